#include "tools/reference/Geocentric.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace VellariReference;

constexpr TAxes wgs84 = {6378137, 6356752.314245179};

TEST(ReferenceNumber, PiHasAllItsDigits) {
    EXPECT_EQ(FixedText(Pi(), 58), "3.1415926535897932384626433832795028841971693993751058209749");
}

TEST(ReferenceNumber, TextsAndDoublesAreTheNearestOnes) {
    EXPECT_EQ(FixedText(TNumber("-2.00006"), 4), "-2.0001");
    EXPECT_EQ(NearestDouble("0.1"), 0.1);
    EXPECT_EQ(NearestDouble(TNumber(1) / 3), 1.0 / 3);
    // Half a unit above 1 goes to the even one, the least bit more to the next.
    EXPECT_EQ(NearestDouble(1 + pow(TNumber(2), -53)), 1.0);
    EXPECT_EQ(NearestDouble(1 + pow(TNumber(2), -53) + TNumber("1e-50")), 1 + 0x1p-52);
    EXPECT_EQ(ShortestText(0.1), "0.1");
    EXPECT_EQ(ShortestText(-6e6), "-6e+06");
    EXPECT_THROW(NearestDouble("1.0x"), std::invalid_argument);
    EXPECT_THROW(NearestDouble(""), std::invalid_argument);
}

TEST(ReferenceGeocentric, IsRightOnTheAxes) {
    TPoint const equator = ToCartesian(wgs84, {0, 0, 10});
    EXPECT_EQ(equator.X, 6378147);
    EXPECT_EQ(equator.Y, 0);
    EXPECT_EQ(equator.Z, 0);
    TPoint const pole = ToCartesian(wgs84, {-Pi() / 2, 0, 10});
    EXPECT_LT(abs(pole.X), TNumber("1e-70"));
    EXPECT_LT(abs(pole.Z + TNumber(wgs84.Minor) + 10), TNumber("1e-70"));
}

// The numbers of the next three: mpmath with 70 digits.
TEST(ReferenceGeocentric, CartesianCoordinatesAreThoseOfAnotherProgram) {
    TPoint const first = ToCartesian(wgs84, {0.75, -2.5, 1234.5});
    EXPECT_EQ(FixedText(first.X, 30), "-3745338.361347297717096607347861094248");
    EXPECT_EQ(FixedText(first.Y, 30), "-2797851.266629737854967828734484483686");
    EXPECT_EQ(FixedText(first.Z, 30), "4326054.341537578177652103854237746634");
    TPoint const second = ToCartesian(wgs84, {-1.25, 3, 2e7});
    EXPECT_EQ(FixedText(second.X, 30), "-8240406.942170033296050874271024430591");
    EXPECT_EQ(FixedText(second.Y, 30), "1174641.523131618506954255778784700298");
    EXPECT_EQ(FixedText(second.Z, 30), "-25010132.413947513896496005125316075272");
}

TEST(ReferenceGeocentric, PlacesAreThoseOfAnotherProgram) {
    TPlace const place = ToEllipsoidal(wgs84, {4e6, -3e6, 4e6}, {0.7, -0.6, 0});
    EXPECT_EQ(FixedText(place.Latitude, 50), "0.67800275942069409147899879654861243976587718715525");
    EXPECT_EQ(FixedText(place.Longitude, 50), "-0.64350110879328438680280922871732263804151059111531");
    EXPECT_EQ(FixedText(place.Height, 40), "33357.9524399404609317688878447347969682242231");
}

TEST(ReferenceGeocentric, WayBackEndsWhereItBegan) {
    for (char const* const latitude :
         {"0", "1e-20", "-0.8", "1.5707963", "1.57079632679489661923132169163975"}) {
        for (int const height : {-6000000, -1, 0, 20000000}) {
            TPlace const from = {TNumber(latitude), TNumber(2), height};
            TPlace const back =
                ToEllipsoidal(wgs84, ToCartesian(wgs84, from), {from.Latitude, 0, height + 1});
            EXPECT_LT(abs(back.Latitude - from.Latitude), TNumber("1e-60")) << latitude << ' ' << height;
            EXPECT_LT(abs(back.Height - from.Height), TNumber("1e-55")) << latitude << ' ' << height;
        }
    }
}

TEST(ReferenceGeocentric, WayBackThatDoesNotEndIsRefused) {
    // At the centre of a sphere a step to the side has no radius.
    EXPECT_THROW(ToEllipsoidal({1, 1}, {2, 0, 1}, {0, 0, -1}), std::runtime_error);
}

TEST(ReferenceData, HasNineNumbersALineAndEveryLatitudeAtEveryHeight) {
    std::istringstream lines(GeocentricData());
    int ellipsoids = 0;
    int places = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("ellipsoid ")) {
            ++ellipsoids;
        } else if (line.front() != '#') {
            ++places;
            std::istringstream words(line);
            std::vector<std::string> const numbers{std::istream_iterator<std::string>(words), {}};
            ASSERT_EQ(numbers.size(), 9U) << line;
        }
    }
    EXPECT_EQ(ellipsoids, 4);
    EXPECT_EQ(places, 4 * 30 * 10);
}

} // namespace
