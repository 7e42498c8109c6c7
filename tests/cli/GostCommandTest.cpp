#include "tests/cli/ToolRunner.h"

#include <gmock/gmock.h>

namespace {

using namespace ToolTest;
using testing::HasSubstr;

/** Runs `vellari gost` on a text of points. */
TToolRun Gost(std::string const& points, std::vector<std::string> const& options) {
    std::vector<std::string> arguments = {"gost"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    TRunSettings settings;
    settings.input = points;
    return RunTool(arguments, settings);
}

constexpr char const* moscow = "55,37,200\n";

// --- Results -----------------------------------------------------------------------------------------------

// Worked out with Python: latitude and longitude to geocentric coordinates in closed form, the edition's two
// records one after the other, and back by iteration to the last digit. The standard stops at 0.0001 of an arc
// second, 3e-8 degrees.
TEST(GostCommand, MovesPointsByTheEdition) {
    TToolRun const run = Gost(moscow, {"--from", "pulkovo42", "--to", "wgs84", "-p", "6"});
    EXPECT_EQ(run.out, "55.000020,36.998156,205.160847\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(Gost(moscow, {"--from", "pulkovo42", "--to", "wgs84", "-p", "6", "--edition", "2008"}).out,
              run.out);
    EXPECT_EQ(Gost(moscow, {"--from", "pulkovo42", "--to", "wgs84", "-p", "6", "--edition", "2001"}).out,
              "55.000009,36.998160,204.924948\n");
}

TEST(GostCommand, TheEditionOf2017ChangesTheEllipsoidOnlyAndSaysSo) {
    TToolRun const run =
        Gost(moscow, {"--from", "pulkovo42", "--to", "wgs84", "-p", "6", "--edition", "2017"});
    EXPECT_EQ(run.out, "55.000023,37.000000,309.812623\n");
    EXPECT_EQ(run.err,
              "vellari: the edition of 2017 has parameters but no way from datum to datum here: only "
              "the ellipsoid changes; `vellari gost --parameters` tells them\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(Gost(moscow, {"--from", "gsk2011", "--to", "gsk2011", "--edition", "2017"}).err, "");
}

TEST(GostCommand, HasThreeCoordinateTypesWithColumnsOfTheirOwn) {
    std::vector<std::string> const within = {"--from",   "sk42",   "--to", "SK-42",
                                             "--header", "always", "-p",   "3"};
    auto const with = [&within](std::vector<std::string> const& more) {
        std::vector<std::string> all = within;
        all.insert(all.end(), more.begin(), more.end());
        return all;
    };
    EXPECT_EQ(Gost(moscow, with({"--to-type", "projected"})).out,
              "northing_m,easting_m,height_m\n6099167.239,7372018.491,200.000\n");
    EXPECT_EQ(Gost("6099167.239455,7372018.491163,200\n", with({"--from-type", "projected"})).out,
              "latitude_deg,longitude_deg,height_m\n55.000,37.000,200.000\n");
    // With Python by the closed form on the Krasovsky ellipsoid: N = a / sqrt(1 - e2 sin2 B).
    EXPECT_EQ(Gost(moscow, with({"--to-type", "geocentric"})).out,
              "x_m,y_m,z_m\n2928412.042,2206716.754,5201638.766\n");
    EXPECT_EQ(Gost("1,2,3\n", with({"--type", "geocentric"})).out, "x_m,y_m,z_m\n1.000,2.000,3.000\n");
}

TEST(GostCommand, KeepsHeaderFurtherColumnsAndEmptyHeights) {
    EXPECT_EQ(Gost("lat;lon;h;name\n55;37;;a\n", {"--from", "pulkovo42", "--to", "pulkovo42", "-p", "1"}).out,
              "latitude_deg;longitude_deg;height_m;name\n55.0;37.0;;a\n");
}

TEST(GostCommand, TakesItsOptionsAsTransformDoes) {
    TTemporaryFolder const folder;
    std::string const points = folder.Write("points.csv", "12abc,37,0\n55,37,200\n");
    std::string const output = folder.Path("out.csv");
    TToolRun const run = RunTool({"gost", points, "--from", "wgs84", "--to", "wgs84", "-p", "2",
                                  "--height-precision", "0", "-o", output, "--on-error", "skip"});
    EXPECT_EQ(ReadFile(output), "55.00,37.00,200\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(Gost("12abc,37,0\n55,37,0\n", {"--from", "wgs84", "--to", "wgs84", "--on-error", "stop"}).out,
              "");
}

// --- Refusals of points ------------------------------------------------------------------------------------

struct TRefusedPoint {
    char const* point;
    std::vector<std::string> options;
    char const* reason;
};

class GostRefusal : public testing::TestWithParam<TRefusedPoint> {};

TEST_P(GostRefusal, IsALineThatSaysWhy) {
    TRefusedPoint const& row = GetParam();
    std::vector<std::string> options = {"--from", "pulkovo42", "--to", "pulkovo42"};
    options.insert(options.end(), row.options.begin(), row.options.end());
    TToolRun const run = Gost(row.point + std::string("\n"), options);
    EXPECT_THAT(run.err, HasSubstr(std::string("line 1: ") + row.reason + ", in \"" + row.point + "\"\n"));
    EXPECT_THAT(run.err, HasSubstr("1 of 1 points could not be transformed"));
    EXPECT_EQ(run.out, ",,\n");
    EXPECT_EQ(run.status, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Points, GostRefusal,
    testing::Values(
        TRefusedPoint{"55,-1,0",
                      {"--to-type", "projected"},
                      "longitude -1 is outside of the zones 1 to 60, which reach from 0 to 360 degrees"},
        TRefusedPoint{"55,360,0",
                      {"--to-type", "projected"},
                      "longitude 360 is outside of the zones 1 to 60, which reach from 0 to 360 degrees"},
        TRefusedPoint{"6099167,372018.5,0",
                      {"--from-type", "projected"},
                      "easting 372018.500 has no zone number from 1 to 60 in front of its six digits"},
        TRefusedPoint{"6099167,61372018.5,0",
                      {"--from-type", "projected"},
                      "easting 61372018.500 has no zone number from 1 to 60 in front of its six digits"},
        // Close to the centre the passes of the latitude don't settle.
        TRefusedPoint{
            "1,0,1", {"--from-type", "geocentric"}, "the standard's formulas find no latitude for it"},
        TRefusedPoint{"91,0,0", {"--to-type", "projected"}, "latitude 91 is beyond a pole"},
        TRefusedPoint{
            "1,2,", {"--type", "geocentric"}, "z is empty; geocentric points need all three coordinates"},
        TRefusedPoint{"55,37,",
                      {"--to-type", "geocentric"},
                      "height is empty; geocentric points need all three coordinates"}));

TEST(GostCommand, LongitudesThatTheFormulasChangeAreCounted) {
    // South of the X axis, at 315 degrees, the formulas in use give 405 degrees; at 225 they give 315.
    TToolRun const run = Gost("4e6,-4e6,4e6\n-4e6,-4e6,4e6\n4e6,4e6,4e6\n",
                              {"--from", "wgs84", "--to", "wgs84", "--from-type", "geocentric", "-p", "3"});
    EXPECT_THAT(run.out, HasSubstr(",405.000,"));
    EXPECT_THAT(run.out, HasSubstr(",315.000,"));
    EXPECT_THAT(run.out, HasSubstr(",45.000,"));
    EXPECT_EQ(run.err,
              "vellari: points at Y below 0: 2; the formulas in use give them another longitude than "
              "their own\n");
    EXPECT_EQ(run.status, 0);
}

// --- Refusals of the whole run -----------------------------------------------------------------------------

struct TRefusedRun {
    std::vector<std::string> options;
    char const* message;
};

class GostMistake : public testing::TestWithParam<TRefusedRun> {};

TEST_P(GostMistake, IsOneLineAndStatusTwo) {
    TToolRun const run = Gost(moscow, GetParam().options);
    EXPECT_EQ(run.err, std::string("vellari: ") + GetParam().message + "\n");
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.status, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Mistakes, GostMistake,
    testing::Values(
        TRefusedRun{{"--to", "wgs84"},
                    "--from is required; datums are wgs84, pulkovo42, pulkovo95, pz90, pz90.02, pz90.11, "
                    "gsk2011, itrf2008"},
        TRefusedRun{{"--from", "wgs84"},
                    "--to is required; datums are wgs84, pulkovo42, pulkovo95, pz90, pz90.02, pz90.11, "
                    "gsk2011, itrf2008"},
        TRefusedRun{{"--from", "nad27", "--to", "wgs84"},
                    "--from \"nad27\" is not a datum of the standard; right is wgs84, pulkovo42, pulkovo95, "
                    "pz90, pz90.02, pz90.11, gsk2011, itrf2008"},
        TRefusedRun{{"--from", "wgs84", "--to", "wgs84", "--edition", "1999"},
                    "--edition \"1999\" is not an edition of the standard; right is 2001, 2008, 2017"},
        TRefusedRun{
            {"--from", "wgs84", "--to", "wgs84", "--type", "polar"},
            "--type \"polar\" is not a coordinate type of the standard; right is geocentric, geodetic, "
            "projected"},
        TRefusedRun{{"--from", "wgs84", "--to", "wgs84", "--to-type", "polar"},
                    "--to-type \"polar\" is not a coordinate type of the standard; right is geocentric, "
                    "geodetic, projected"},
        TRefusedRun{
            {"--from", "pulkovo42", "--to", "wgs84", "--to-type", "projected"},
            "WGS 84 has no projected coordinates in the standard; Pulkovo 1942 and Pulkovo 1995 have"},
        TRefusedRun{{"--from", "gsk2011", "--to", "wgs84"},
                    "the edition of 2008 has no way from GSK-2011 to WGS 84"},
        TRefusedRun{{"--from", "pz90.02", "--to", "pulkovo42", "--edition", "2001"},
                    "the edition of 2001 has no way from PZ-90.02 to Pulkovo 1942"},
        TRefusedRun{{"--parameters", "--from", "itrf2008", "--edition", "2001"},
                    "the edition of 2001 has no way from ITRF2008 to WGS 84"}));

// --- Parameters --------------------------------------------------------------------------------------------

TEST(GostParameters, AreThoseOfTheRoadToWgs84) {
    // The records of 2008 by way of PZ-90.02, added up: 23.93 - 0.36 and so on.
    EXPECT_EQ(Gost("", {"--parameters", "--from", "pulkovo-1942"}).out,
              "datum               Pulkovo 1942\n"
              "edition             2008\n"
              "semi-major axis     6378245.000 m\n"
              "semi-minor axis     6356863.018773 m\n"
              "shift to WGS 84     seven parameters, coordinate frame rotation\n"
              "  shift X           23.57 m\n"
              "  shift Y           -140.95 m\n"
              "  shift Z           -79.8 m\n"
              "  rotation X        0 rad (0.000000 sec)\n"
              "  rotation Y        -1.6968e-06 rad (-0.349990 sec)\n"
              "  rotation Z        -3.83e-06 rad (-0.789994 sec)\n"
              "  scale difference  -0.22 ppm\n");
}

TEST(GostParameters, ExistInTheEditionOf2017Too) {
    TToolRun const run = Gost("", {"--parameters", "--from", "gsk-2011", "--edition", "2017"});
    EXPECT_THAT(run.out, HasSubstr("datum               GSK-2011\nedition             2017\n"));
    // 0 + 0.013, 0.014 - 0.106, -0.008 - 0.022: the two records of the revision, no rotation large enough to
    // move them.
    EXPECT_THAT(run.out, HasSubstr("  shift X           0.013"));
    EXPECT_THAT(run.out, HasSubstr("  shift Y           -0.092"));
    EXPECT_THAT(run.out, HasSubstr("  shift Z           -0.03"));
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
}

} // namespace
