#include "tests/catalog/Entries.h"
#include "tests/catalog/Points.h"
#include "tests/catalog/Register.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

namespace VellariTest {

namespace {

using namespace KvRefSystem;

/** Geocentric or topocentric points, metres. */
double StraightDistance(TPoint const& first, TPoint const& second) {
    return std::hypot(first[0] - second[0], first[1] - second[1], first[2] - second[2]);
}

// --- Geocentric systems ------------------------------------------------------------------------------------

struct TGeocentric {
    char const* Entry;
    char const* Geodetic; ///< entry of the same datum
    char const* Code;     ///< of the register, as EPSG's names of its axes below
    TPoint Point;         ///< latitude, longitude, height
    TPoint Xyz;
};

void PrintTo(TGeocentric const& row, std::ostream* out) {
    *out << row.Entry;
}

// From PROJ 9.1: cct with cart on the ellipsoid of the datum.
TGeocentric const geocentrics[] = {
    {"wgs-84-geocentric",
     "wgs-84",
     "4978",
     {55.75, 37.62, 150},
     {2849867.133097, 2196278.332944, 5248950.857964}},
    {"etrs89-geocentric", "etrs89", "4936", {50, 10, 100}, {4045519.707602, 713334.275438, 4862865.642037}},
};

class CatalogGeocentric : public testing::TestWithParam<TGeocentric> {};

TEST_P(CatalogGeocentric, MeetsProjBothWays) {
    TGeocentric const& row = GetParam();
    EXPECT_LT(StraightDistance(Transform(row.Geodetic, row.Point, row.Entry), row.Xyz), 1e-5);
    EXPECT_LT(Distance(Transform(row.Entry, row.Xyz, row.Geodetic), row.Point), 1e-5);
}

TEST_P(CatalogGeocentric, LiesOnTheDatumOfTheGeodeticEntry) {
    TGeocentric const& row = GetParam();
    auto const geocentric = BuildEntry(row.Entry);
    auto const geodetic = BuildEntry(row.Geodetic);
    ASSERT_TRUE(geocentric && geodetic);
    EXPECT_EQ(CompareDatums(geocentric.get(), geodetic.get()), dcEqual);
    EXPECT_EQ(geocentric->GeoTIFFCode, row.Code);
    EXPECT_EQ(geocentric->DatumGeoTIFFCode, geodetic->DatumGeoTIFFCode);
    EXPECT_EQ(geocentric->DatumName, ReadRegisterName("datum", geocentric->DatumGeoTIFFCode));
    // The descriptions differ by the code alone.
    EXPECT_EQ(geocentric->Description.substr(geocentric->Description.find(". ")),
              geodetic->Description.substr(geodetic->Description.find(". ")));
}

INSTANTIATE_TEST_SUITE_P(All, CatalogGeocentric, testing::ValuesIn(geocentrics),
                         [](auto const& row) { return TestSuffix(row.param.Entry); });

// --- Frames ------------------------------------------------------------------------------------------------

// From PROJ 9.1: cct with cart, then topocentric at the entry's origin.
TEST(CatalogTopocentric, MeetsProjBothWays) {
    TPoint const place = {55.8, 37.7, 300};
    TPoint const local = {4930.098838, 5287.578733, 145.907766};
    EXPECT_LT(StraightDistance(Transform("wgs-84", place, "topocentric-moscow"), local), 1e-5);
    EXPECT_LT(Distance(Transform("topocentric-moscow", local, "wgs-84"), place), 1e-5);
}

TEST(CatalogTopocentric, HasItsOriginWhereItsDescriptionTells) {
    TPoint const origin = {55.752536, 37.621392, 150};
    EXPECT_LT(StraightDistance(Transform("wgs-84", origin, "topocentric-moscow"), {0, 0, 0}), 1e-8);
    auto const frame = BuildEntry("topocentric-moscow");
    ASSERT_NE(frame, nullptr);
    EXPECT_NE(frame->Description.find("55.752536 N, 37.621392 E, height 150 m"), std::string::npos);
    TCardinalDirection first = cdNone;
    TCardinalDirection second = cdNone;
    ASSERT_TRUE(frame->GetAxesDirections(&first, &second));
    EXPECT_EQ(first, cdEast);
    EXPECT_EQ(second, cdNorth);
}

TEST(CatalogLocal, IsARightHandedPlaneInMetres) {
    auto const local = BuildEntry("local-metres");
    ASSERT_NE(local, nullptr);
    EXPECT_EQ(local->Type, rstLocalCartesian);
    EXPECT_FALSE(local->IsLeft());
    EXPECT_EQ(local->GetPlaneUnitCoefToBase(), 1.0);
    EXPECT_EQ(Transform("local-metres", {1, 2, 3}, "local-metres"), (TPoint{1, 2, 3}));
    TPoint unused{};
    EXPECT_FALSE(TransformCoords(local.get(), 1, 2, 3, BuildEntry("wgs-84").get(), &unused[0], &unused[1],
                                 &unused[2]));
}

} // namespace

} // namespace VellariTest
