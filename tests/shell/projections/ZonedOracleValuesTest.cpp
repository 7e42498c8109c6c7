#include "shell/projections/LocalGrids.h"
#include "shell/projections/TransverseCylinders.h"
#include "shell/projections/ZonedProjections.h"
#include "tests/shell/projections/ZonedCores.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

/*
 * Places in zones, worked out with PROJ 9.1.1 (Debian's proj-bin), whose transverse Mercator is exact to
 * nanometres. The command of each is in its comment: longitude or latitude first as the command asks for it,
 * the result in metres.
 */
namespace {

using namespace ZonedCores;
using namespace KvRefSystem;

/** What a method may leave there (metres on the map) and back (metres on the ground). */
struct TBound {
    double Forward;
    double Reverse;
};

/** Snyder's series up to 3 degrees from the central meridian: it leaves out e8 of the meridian's arc. */
constexpr TBound SnydersSeries = {1.1e-3, 5e-4};

/** The closed forms up to 3 degrees: the arc ends behind e'6. */
constexpr TBound ClosedForms = {2.5e-2, 2.5e-2};

/** Krueger's series behind n3, up to 15 degrees. */
constexpr TBound KruegersSeries = {9e-5, 5e-5};

struct TPlace {
    double Latitude; ///< degrees
    double Longitude;
    double Easting; ///< metres
    double Northing;
};

void ExpectPlaces(TMapProjection const* core, TBound const& bound, std::vector<TPlace> const& places) {
    ASSERT_NE(core, nullptr);
    for (TPlace const& place : places) {
        SCOPED_TRACE(::testing::Message() << place.Latitude << " " << place.Longitude);
        TCoords point{place.Longitude * Degree, place.Latitude * Degree, 0, false};
        core->GeodeticToProjected(&point);
        EXPECT_NEAR(point.X, place.Easting, bound.Forward);
        EXPECT_NEAR(point.Y, place.Northing, bound.Forward);

        point = {place.Easting, place.Northing, 0, false};
        core->ProjectedToGeodetic(&point);
        double const parallel = 6.38e6 * std::cos(place.Latitude * Degree);
        EXPECT_NEAR((point.X - place.Longitude * Degree) * parallel, 0, bound.Reverse);
        EXPECT_NEAR((point.Y - place.Latitude * Degree) * 6.4e6, 0, bound.Reverse);
    }
}

} // namespace

TEST(ZonedOracleValues, GaussKrugerZone7North) {
    // cs2cs -f %.6f EPSG:4284 EPSG:28407 <<< "55.75 37.6", and "0.5 41.5"; northing first
    // proj -f %.6f +proj=tmerc +lon_0=39 +x_0=7500000 +a=6378245 +rf=298.3 <<< "36.25 -12"
    auto const core = Core<TShellGaussKruger6MapProjection>(1001, {{6201, "7"}, {6202, "N"}});
    ExpectPlaces(core.get(), SnydersSeries,
                 {{55.75, 37.6, 7412088.835660, 6181724.275974},
                  {0.5, 41.5, 7778381.842768, 55341.166455},
                  {-12, 36.25, 7200406.838105, -1328603.869644}});
}

TEST(ZonedOracleValues, GaussKrugerZone7South) {
    // proj -f %.6f +proj=tmerc +lon_0=39 +x_0=7500000 +y_0=10000000 +a=6378245 +rf=298.3 <<< "37.6 -33.5"
    auto const core = Core<TShellGaussKruger6MapProjection>(1001, {{6201, "7"}, {6202, "S"}});
    ExpectPlaces(core.get(), SnydersSeries, {{-33.5, 37.6, 7369901.155163, 6290854.313070}});
}

TEST(ZonedOracleValues, GaussKrugerZone31North) {
    // cs2cs -f %.6f EPSG:4284 EPSG:28431 <<< "66.3 -178.5", "71 179.9" and "64.4 -174.2"; northing first.
    // The second lies beyond the antimeridian.
    auto const core = Core<TShellGaussKruger6MapProjection>(1001, {{6201, "31"}, {6202, "N"}});
    ExpectPlaces(core.get(), SnydersSeries,
                 {{66.3, -178.5, 31432698.003726, 7357226.843365},
                  {71, 179.9, 31387353.302319, 7883567.958550},
                  {64.4, -174.2, 31635015.471940, 7147546.775902}});
}

TEST(ZonedOracleValues, GaussKrugerZone31South) {
    // proj -f %.6f +proj=tmerc +lon_0=-177 +x_0=31500000 +y_0=10000000 +a=6378245 +rf=298.3 <<< "-176.2 -44"
    auto const core = Core<TShellGaussKruger6MapProjection>(1001, {{6201, "31"}, {6202, "S"}});
    ExpectPlaces(core.get(), SnydersSeries, {{-44, -176.2, 31564166.102556, 5125780.435647}});
}

TEST(ZonedOracleValues, Utm31North) {
    // cs2cs -f %.6f EPSG:4326 EPSG:32631 <<< "48.8582 2.2945", and "50 5"
    auto const core = Core<TShellUTMMapProjection>(1002, {{6201, "31"}, {6202, "N"}}, Wgs84);
    ExpectPlaces(core.get(), SnydersSeries,
                 {{48.8582, 2.2945, 448251.795206, 5411932.677670}, {50, 5, 643329.123885, 5540547.369935}});
}

TEST(ZonedOracleValues, Utm56South) {
    // cs2cs -f %.6f EPSG:4326 EPSG:32756 <<< "-33.5 151.2", "-10 155.5" and "-27.47 153.02"
    auto const core = Core<TShellUTMMapProjection>(1002, {{6201, "56"}, {6202, "S"}}, Wgs84);
    ExpectPlaces(core.get(), SnydersSeries,
                 {{-33.5, 151.2, 332795.491734, 6291830.861031},
                  {-10, 155.5, 774071.053387, 8893548.721746},
                  {-27.47, 153.02, 501975.987616, 6961506.031033}});
}

TEST(ZonedOracleValues, Msk50Zone2) {
    // proj -f %.6f +proj=tmerc +lon_0=38d29 +x_0=2250000 +y_0=-5712900.566 +a=6378245 +rf=298.3
    //   <<< "39.1 55.2", and "37.3 54.9"
    auto const core = Core<TShellMSKxxMapProjection>(1003, {{6201, "2"}, {6206, "3"}, {6205, "50"}});
    ExpectPlaces(core.get(), SnydersSeries,
                 {{55.2, 39.1, 2289266.897039, 406875.598070}, {54.9, 37.3, 2174085.956807, 373945.585297}});
}

TEST(ZonedOracleValues, Msk163) {
    // proj -f %.6f +proj=tmerc +lon_0=81 +x_0=65425.7 +y_0=-7434483.2 +a=6378245 +rf=298.3
    //   <<< "81.5 67.4", and "79.9 66.6"
    auto const core = Core<TShellMSKxxMapProjection>(1003, {{6201, "1"}, {6206, "3"}, {6205, "163"}});
    ExpectPlaces(core.get(), SnydersSeries,
                 {{67.4, 81.5, 86876.927004, 44696.988828}, {66.6, 79.9, 16657.927032, -44178.699408}});
}

TEST(ZonedOracleValues, Sk63BlockCZone1) {
    // proj -f %.6f +proj=tmerc +lon_0=24d57 +x_0=1250000 +y_0=-11057.628 +a=6378245 +rf=298.3
    //   <<< "24.1 56.95", and "26.7 58.4"
    auto const core = Core<TShellSK63MapProjection>(1004, {{6201, "1"}, {6206, "3"}, {6204, "C"}});
    ExpectPlaces(
        core.get(), SnydersSeries,
        {{56.95, 24.1, 1198274.295128, 6303720.446537}, {58.4, 26.7, 1352320.525385, 6466221.853599}});
}

TEST(ZonedOracleValues, Sk63BlockCZone1IsThatOfTheRegister) {
    // cs2cs -f %.6f EPSG:4284 EPSG:3351 <<< "56.95 24.1", and "58.4 26.7"; northing first. The register's
    // origin is 0 06'N itself: 11057.6256 m of arc, which the false northing of millimetres isn't.
    TBound const toTheRegister = {SnydersSeries.Forward + 2.5e-3, SnydersSeries.Reverse + 2.5e-3};
    auto const core = Core<TShellSK63MapProjection>(1004, {{6201, "1"}, {6206, "3"}, {6204, "C"}});
    ExpectPlaces(
        core.get(), toTheRegister,
        {{56.95, 24.1, 1198274.295128, 6303720.448939}, {58.4, 26.7, 1352320.525385, 6466221.856002}});
}

TEST(ZonedOracleValues, GaussBoaga) {
    TTexts const west = {{6101, "9"}, {6103, "0.9996"}, {6104, "1500000"}, {6105, "0"}};
    // cs2cs -f %.6f EPSG:4265 EPSG:3003 <<< "45.4642 9.19", and "44.1 11.9"
    ExpectPlaces(
        Core<TShellGaussBoagaMapProjection>(15, west, International).get(), ClosedForms,
        {{45.4642, 9.19, 1514854.187596, 5034631.186485}, {44.1, 11.9, 1732128.035882, 4887159.202322}});
    // proj -f %.6f +proj=tmerc +lon_0=9 +k=0.9996 +x_0=1500000 +ellps=WGS84 <<< "12 41.9"
    ExpectPlaces(Core<TShellGaussBoagaMapProjection>(15, west, Wgs84).get(), ClosedForms,
                 {{41.9, 12, 1748853.951478, 4643026.463870}});
}

TEST(ZonedOracleValues, GaussKrugerWideHoldsAt15Degrees) {
    // proj -f %.6f +proj=tmerc +lon_0=39 +x_0=7500000 +a=6378245 +rf=298.3
    //   <<< "54 55", "24 -40" and "39 60"
    auto const core = Core<TShellGaussKrugerWideMapProjection>(
        101, {{6101, "39"}, {6103, "1"}, {6104, "7500000"}, {6105, "0"}});
    ExpectPlaces(core.get(), KruegersSeries,
                 {{55, 54, 8456072.115607, 6200835.558982},
                  {-40, 24, 6216624.891287, -4538960.260288},
                  {60, 39, 7500000.000000, 6654189.092222}});
}
