#include "tools/accuracy/road/Geocentric.h"

#include "tools/accuracy/road/Tables.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace VellariAccuracy;

/** Where 8 metres of height are on the axis to longitude 0, told with an error. */
TExactPlace OnTheEquator(std::string const& x, std::string const& latitude, std::string const& longitude,
                         std::string const& height) {
    return {{6378137, 6356752.314245179}, {0, 0, 8}, {x, "0", "0"}, {latitude, longitude, height}};
}

TEST(GeocentricErrors, AreNoneWhereThePlaceIsExact) {
    TExactPlace const place = OnTheEquator("6378145", "0", "0", "8");
    EXPECT_EQ(ErrorOfPoint(place), 0);
    TErrorsBack const errors = ErrorsOfPlace(place);
    EXPECT_EQ(errors.Latitude, 0);
    EXPECT_EQ(errors.Longitude, 0);
    EXPECT_EQ(errors.Ground, 0);
    EXPECT_EQ(errors.Height, 0);
}

TEST(GeocentricErrors, AreThoseThatTheDataSay) {
    EXPECT_DOUBLE_EQ(ErrorOfPoint(OnTheEquator("6378145.0000000003", "0", "0", "8")), 3e-10);
    TErrorsBack const errors = ErrorsOfPlace(
        OnTheEquator("6378145", "0.0000000000003", "-0.0000000000004", "8.00000000000000000005"));
    EXPECT_DOUBLE_EQ(errors.Latitude, 3e-13);
    EXPECT_DOUBLE_EQ(errors.Longitude, 4e-13);
    EXPECT_DOUBLE_EQ(errors.Ground, 5e-13 * 6378137);
    EXPECT_DOUBLE_EQ(errors.Height, 5e-20);
}

TEST(GeocentricBounds, FollowFromThePassesAndTheTangent) {
    // On the ground e2 is 0.0068035 there; N falls out: 1e-12 e2 / (1 - 2 e2), and 4 units of rounding.
    EXPECT_NEAR(LatitudeBound(0), 6.8973e-15 + 8.882e-16, 1e-18);
    EXPECT_EQ(LatitudeBound(2e7), LatitudeBound(0));
    EXPECT_GT(LatitudeBound(-6e6), 10 * LatitudeBound(0));
    // N at the pole is 6400057 m.
    EXPECT_NEAR(HeightBound(45, 0, 0), 6400057 * (LatitudeBound(0) + 8.882e-16), 1e-12);
    EXPECT_NEAR(HeightBound(89, 0, 0) / HeightBound(45, 0, 0), 51.5, 0.1);
    EXPECT_TRUE(std::isinf(HeightBound(90, 0, 0)));
}

TEST(GeocentricTables, EveryRowHasPlaces) {
    for (TTable const& table : GeocentricTables()) {
        for (std::size_t line = 0; line < table.Lines.size(); ++line) {
            TNumbers const numbers = table.Measure(line);
            EXPECT_EQ(numbers.size(), table.Columns.size());
            EXPECT_GT(numbers.front() + numbers.back(), 0) << table.Lines[line].Cells.front();
        }
    }
}

} // namespace
