#include "frame/NumberText.h"
#include "tests/cli/ToolRunner.h"

#include <gmock/gmock.h>

namespace {

using namespace ToolTest;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TToolRun Area(std::string const& system, std::string const& corners,
              std::vector<std::string> const& options = {}) {
    std::vector<std::string> arguments = {"area", system};
    arguments.insert(arguments.end(), options.begin(), options.end());
    TRunSettings settings;
    settings.input = corners;
    return RunTool(arguments, settings);
}

/** @return the number in front of the unit. */
double SquareMetres(TToolRun const& run) {
    EXPECT_THAT(run.out, testing::MatchesRegex("[0-9.]+ square metres\n"));
    return KvRefSystem::ParseLeadingDouble(run.out.c_str());
}

// --- area --------------------------------------------------------------------------------------------------

constexpr char const* moscow = "55.75,37.60\n55.75,37.64\n55.77,37.63\n55.76,37.60\n";

TEST(AreaCommand, IsThatOfTheEllipsoidInSquareMetres) {
    TToolRun const run = Area("wgs-84", moscow);
    // GeographicLib's Planimeter, with geodesics as edges: 3844577.4 m2.
    EXPECT_NEAR(SquareMetres(run), 3844577.4, 4);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(Area("wgs-84", moscow, {"-p", "0"}).out, testing::MatchesRegex("[0-9]+ square metres\n"));
}

TEST(AreaCommand, TakesAHeaderFurtherColumnsAndTheFirstCornerAgain) {
    double const area = SquareMetres(Area("wgs-84", moscow));
    EXPECT_DOUBLE_EQ(SquareMetres(Area("wgs-84", "lat,lon,h,name\n55.75,37.60,0,a\n55.75,37.64,0,b\n"
                                                 "55.77,37.63,0,c\n55.76,37.60,0,d\n\n55.75,37.60,0,a\n")),
                     area);
    TTemporaryFolder const folder;
    EXPECT_DOUBLE_EQ(SquareMetres(RunTool({"area", "wgs-84", folder.Write("corners.csv", moscow)})), area);
}

TEST(AreaCommand, GrowsWithTheHeight) {
    std::string const high = "55.75,37.60,1000\n55.75,37.64,1000\n55.77,37.63,1000\n55.76,37.60,1000\n";
    // (R + 1000)^2 / R^2 with the earth's radius of 6364 km there.
    EXPECT_NEAR(SquareMetres(Area("wgs-84", high)) / SquareMetres(Area("wgs-84", moscow)), 1.000314, 1e-6);
}

TEST(AreaCommand, AcrossTheAntimeridianItIsTakenSoAndSaysSo) {
    TToolRun const run = Area("wgs-84", "0,179.95\n0,-179.95\n0.1,-179.95\n0.1,179.95\n");
    // GeographicLib's Planimeter: 123090691.4 m2.
    EXPECT_NEAR(SquareMetres(run), 123090691.4, 100);
    EXPECT_EQ(run.err,
              "vellari: the corners' longitudes differ by half a turn or more: the polygon is taken to "
              "lie across the antimeridian\n");
    EXPECT_EQ(run.status, 0);
}

TEST(AreaCommand, OnASphereItIsHalfAndSaysSo) {
    TToolRun const run = Area("sphere", "0,0\n0,1\n1,1\n1,0\n");
    // R^2 (sin 1 deg - sin 0) pi / 180 with R = 6371007 m is 12363554172 m2; edges and parallels differ a little.
    EXPECT_NEAR(SquareMetres(run), 12363554172.0 / 2, 1e-4 * 12363554172.0);
    EXPECT_EQ(run.err, "vellari: on a sphere the library gives half of the area\n");
}

struct TNoArea {
    char const* system;
    char const* corners;
    char const* reason;
};

class NoArea : public testing::TestWithParam<TNoArea> {};

TEST_P(NoArea, IsZeroWithALineThatSaysWhy) {
    TNoArea const& row = GetParam();
    TToolRun const run = Area(row.system, row.corners);
    EXPECT_EQ(run.out, "0.000 square metres\n");
    EXPECT_EQ(run.err, std::string("vellari: no area: ") + row.reason + "\n");
    EXPECT_EQ(run.status, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, NoArea,
    testing::Values(
        TNoArea{"wgs-84", "55,37\n56,38\n", "a polygon needs three corners, and the input has 2"},
        TNoArea{"wgs-84", "55,37\n56,38\n55,37\n", "a polygon needs three corners, and the input has 2"},
        TNoArea{"wgs-84", "", "a polygon needs three corners, and the input has 0"},
        TNoArea{"wgs-84", "55,37\n56,37\n57,37\n", "all corners lie on one parallel or one meridian"},
        TNoArea{"utm:37N", "400000,6100000\n400100,6100000\n400100,6100100\n",
                "utm:37N is a map-projected system; only geodetic systems have areas"},
        TNoArea{"local-metres", "0,0\n1,0\n1,1\n",
                "local-metres is a local Cartesian system; only geodetic systems have areas"}));

TEST(AreaCommand, ALineThatIsNoCornerLeavesNoArea) {
    TToolRun const run = Area("wgs-84", "0,0\n0,x1\n1,1\n100,0\n");
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "vellari: standard input, line 2: longitude \"x1\" is not a number, in \"0,x1\"\n"
                       "vellari: standard input, line 4: latitude 100 is beyond a pole, in \"100,0\"\n"
                       "vellari: no area: not all lines are corners\n");
    EXPECT_EQ(run.status, 1);
}

// --- compare -----------------------------------------------------------------------------------------------

struct TComparison {
    char const* first;
    char const* second;
    char const* datums;
    char const* heights;
    char const* geometry;
    char const* systems;
};

class CompareCommand : public testing::TestWithParam<TComparison> {};

TEST_P(CompareCommand, TellsDatumsHeightsGeometryAndSystems) {
    TComparison const& row = GetParam();
    TToolRun const run = RunTool({"compare", row.first, row.second});
    EXPECT_EQ(run.out, std::string("datums              ") + row.datums + "\nheights             " +
                           row.heights + "\nequal geometry      " + row.geometry + "\nequal systems       " +
                           row.systems + "\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, CompareCommand,
    testing::Values(TComparison{"wgs-84", "wgs-84", "equal", "kept", "yes", "yes"},
                    // The same place in another unit of angles.
                    TComparison{"wgs-84", "wgs-84-dms", "equal", "kept", "yes", "no"},
                    TComparison{"wgs-84", "wgs-84-feet", "equal", "change: their units differ", "yes", "no"},
                    TComparison{"pulkovo-1942", "gk:7", "equal", "kept", "no", "no"},
                    TComparison{"pulkovo-1942", "wgs-84", "different",
                                "change: not known to lie on the same datum and frame", "no", "no"},
                    TComparison{"wgs-84", "sphere", "unknown: a datum shift is missing",
                                "change: not known to lie on the same datum and frame", "no", "no"},
                    TComparison{"wgs-84", "wgs-84-geocentric", "equal",
                                "change: a geodetic and a geocentric system have no heights in common", "no",
                                "no"},
                    TComparison{"local-metres", "local-metres",
                                "unknown: neither system is tied to the earth", "kept", "yes", "yes"},
                    TComparison{"wgs-84", "local-metres", "incompatible: one system isn't tied to the earth",
                                "change: a geodetic and a local Cartesian system have no heights in common",
                                "no", "no"}));

TEST(CompareCommandMistake, ASystemThatIsNoneIsOneLine) {
    TToolRun const run = RunTool({"compare", "wgs-84", "utm:61N"});
    EXPECT_EQ(run.err, "vellari: utm:61N: zone 61 is outside 1 to 60\n");
    EXPECT_EQ(run.status, 2);
}

// --- axes --------------------------------------------------------------------------------------------------

struct TAxesCase {
    std::vector<std::string> arguments;
    char const* out;
};

class AxesCommand : public testing::TestWithParam<TAxesCase> {};

TEST_P(AxesCommand, TellsWhereTheyLead) {
    std::vector<std::string> arguments = {"axes"};
    arguments.insert(arguments.end(), GetParam().arguments.begin(), GetParam().arguments.end());
    TToolRun const run = RunTool(arguments);
    EXPECT_EQ(run.out, GetParam().out);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Systems, AxesCommand,
    testing::Values(
        TAxesCase{{"wgs-84"}, "directions          north, east\n"},
        TAxesCase{{"utm:37N"}, "directions          east, north\n"},
        TAxesCase{{"s-jtsk-krovak"}, "directions          south, west\n"},
        TAxesCase{
            {"wgs-84-geocentric"},
            "directions          none: the axes of this geocentric system lead to no point of the compass\n"},
        // M and N cos B of WGS 84 in latitude 45, times pi / 180.
        TAxesCase{{"wgs-84", "45", "0"},
                  "directions          north, east\n"
                  "latitude            1 deg = 111131.78 m, bearing 0.00000, elevation 0.00000\n"
                  "longitude           1 deg = 78846.835 m, bearing 90.00000, elevation 0.00000\n"
                  "height              1 m = 1 m, elevation 90.00000\n"},
        // By PROJ's factors there: scale 0.99969203 (1.0003081 in reverse), convergence -1.14076417 degrees.
        TAxesCase{{"utm:37N", "55.75", "37.62"},
                  "directions          east, north\n"
                  "easting             1 m = 1.0003081 m, bearing 88.85924, elevation 0.00000\n"
                  "northing            1 m = 1.0003081 m, bearing 358.85924, elevation 0.00000\n"
                  "height              1 m = 1 m, elevation 90.00000\n"},
        // At latitude and longitude 0 the axes X, Y, Z point up, east and north.
        TAxesCase{
            {"wgs-84-geocentric", "0", "0"},
            "directions          none: the axes of this geocentric system lead to no point of the compass\n"
            "x                   1 m = 1 m, elevation 90.00000\n"
            "y                   1 m = 1 m, bearing 90.00000, elevation 0.00000\n"
            "z                   1 m = 1 m, bearing 0.00000, elevation 0.00000\n"},
        TAxesCase{{"topocentric-moscow", "55.752536", "37.621392"},
                  "directions          east, north\n"
                  "east                1 m = 1 m, bearing 90.00000, elevation 0.00000\n"
                  "north               1 m = 1 m, bearing 0.00000, elevation 0.00000\n"
                  "up                  1 m = 1 m, elevation 90.00000\n"},
        TAxesCase{{"local-metres", "55", "37"},
                  "directions          none: the axes of this local Cartesian system lead to no point of the "
                  "compass\nplace on the earth  none: this system isn't tied to the earth\n"}));

TEST(AxesCommandText, ALongitudeCountsFromThePrimeMeridianOfTheSystem) {
    // The Observatory of Paris is longitude 0 of this system, whatever its own unit.
    std::string const out = RunTool({"axes", "ntf-paris", "-12.5", "-3"}).out;
    EXPECT_THAT(out, HasSubstr("latitude            1 grad = "));
    EXPECT_THAT(out, HasSubstr(" m, bearing 90.00000, elevation 0.00000\n"));
}

TEST(AxesCommandText, ALeftHandedFrameHasItsNumbersAsTheRightHandedOne) {
    // Kept by the library: it tells the directions of the axes the other way round, but swaps the coordinates
    // twice, so that the first one is the easting in either case.
    TTemporaryFolder const folder;
    std::string const left =
        folder.Write("left.txt", Replaced(CatalogText("topocentric-moscow"), "swap\t0", "swap\t1"));
    EXPECT_EQ(RunTool({"axes", left, "55.752536", "37.621392"}).out,
              "directions          north, east\n"
              "east                1 m = 1 m, bearing 90.00000, elevation 0.00000\n"
              "north               1 m = 1 m, bearing 0.00000, elevation 0.00000\n"
              "up                  1 m = 1 m, elevation 90.00000\n");
}

TEST(AxesCommandText, ATurnedFrameHasNoDirectionsButBearings) {
    TTemporaryFolder const folder;
    std::string const turned =
        folder.Write("turned.txt", Replaced(CatalogText("topocentric-moscow"), "(1120,2)[1]origin\t150\n",
                                            "(1120,2)[1]origin\t150\n(1122,0)[1]azimuth\t30\n"));
    std::string const out = RunTool({"axes", turned, "55.752536", "37.621392"}).out;
    EXPECT_THAT(
        out, StartsWith("directions          none: the axes of this topocentric system lead to no point of "
                        "the compass\n"));
    EXPECT_THAT(out, HasSubstr("x                   1 m = 1 m, bearing 120.00000, elevation 0.00000\n"));
    EXPECT_THAT(out, HasSubstr("y                   1 m = 1 m, bearing 30.00000, elevation 0.00000\n"));
}

struct TAxesMistake {
    std::vector<std::string> arguments;
    char const* message;
};

class AxesMistake : public testing::TestWithParam<TAxesMistake> {};

TEST_P(AxesMistake, IsOneLineAndStatusTwo) {
    std::vector<std::string> arguments = {"axes"};
    arguments.insert(arguments.end(), GetParam().arguments.begin(), GetParam().arguments.end());
    TToolRun const run = RunTool(arguments);
    EXPECT_THAT(run.err, StartsWith(std::string("vellari: ") + GetParam().message));
    EXPECT_EQ(CountLines(run.err), 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.status, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Mistakes, AxesMistake,
    testing::Values(TAxesMistake{{"wgs-84", "55"}, "LON is missing: a place needs latitude and longitude\n"},
                    TAxesMistake{{"wgs-84", "55N", "37"}, "latitude \"55N\" is not a number of degrees\n"},
                    TAxesMistake{{"wgs-84", "55", "east"}, "longitude \"east\" is not a number of degrees\n"},
                    TAxesMistake{{"wgs-84", "90", "0"},
                                 "latitude 90 is a pole or beyond it, where no direction is north\n"},
                    TAxesMistake{{"albers-conus", "-89.999", "1e300"},
                                 "albers-conus doesn't reach that place"}));

TEST(AxesMistakeText, ASystemWithoutADatumHasNoLatitudes) {
    TTemporaryFolder const folder;
    std::string text = CatalogText("wgs-84-geocentric");
    std::size_t const begin = text.find("\t(1107,0)");
    text.erase(begin, text.find("\t(1104,0)") - begin);
    std::string const path = folder.Write("bare.txt", text);
    EXPECT_EQ(RunTool({"axes", path, "0", "0"}).err,
              "vellari: " + path + " has no datum or no prime meridian, so no latitude and longitude\n");
}

} // namespace
