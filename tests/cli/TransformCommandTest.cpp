#include "tests/cli/ToolRunner.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <random>

namespace {

using namespace ToolTest;
using testing::EndsWith;
using testing::HasSubstr;

// echo "37.62 55.75 150" | cct -d 9 +proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad
//     +step +proj=cart +ellps=krass
//     +step +proj=helmert +convention=position_vector +x=23.57 +y=-140.95 +z=-79.8 +rx=0 +ry=0.35 +rz=0.79
// +s=-0.22
//     +step +inv +proj=cart +ellps=WGS84 +step +proj=unitconvert +xy_in=rad +xy_out=deg
// gives 37.618125892 55.750042613 154.542208768.
char const* const moscow = "55.750042613,37.618125892,154.542";

// --- Numbers -----------------------------------------------------------------------------------------------

TEST(TransformCommand, MovesAPointFromPulkovo1942ToWgs84) {
    TToolRun const run = Transform("55.75,37.62,150\n");
    EXPECT_EQ(run.out, std::string(moscow) + "\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
}

TEST(TransformCommand, ReadsAFileOfPoints) {
    TTemporaryFolder const folder;
    TToolRun const run =
        RunTool({"transform", "pulkovo-1942", "wgs-84", folder.Write("points.csv", "55.75,37.62,150\n")});
    EXPECT_EQ(run.out, std::string(moscow) + "\n");
}

TEST(TransformCommand, TakesADescriptionFileForASystem) {
    TTemporaryFolder const folder;
    TRunSettings settings;
    settings.input = "55.75,37.62,150\n";
    std::string const source = folder.Write("own.txt", CatalogText("pulkovo-1942"));
    EXPECT_EQ(RunTool({"transform", source, "wgs-84"}, settings).out, std::string(moscow) + "\n");
}

TEST(TransformCommand, PrecisionHoldsForAllCoordinates) {
    EXPECT_EQ(Transform("55.75,37.62,150\n", {"--precision", "3"}).out, "55.750,37.618,154.542\n");
    EXPECT_EQ(Transform("55.75,37.62,150\n", {"-p", "0"}).out, "56,38,155\n");
}

TEST(TransformCommand, HeightsMayHaveAPrecisionOfTheirOwn) {
    EXPECT_EQ(Transform("55.75,37.62,150\n", {"-p", "5", "--height-precision", "1"}).out,
              "55.75004,37.61813,154.5\n");
    EXPECT_EQ(Transform("55.75,37.62,150\n", {"--height-precision", "0"}).out,
              "55.750042613,37.618125892,155\n");
}

TEST(TransformCommand, NumbersDoNotFollowTheLocale) {
    for (char const* const locale : {"LC_ALL=de_DE.UTF-8", "LC_ALL=ru_RU.UTF-8", "LC_ALL=C"}) {
        TRunSettings settings;
        settings.input = "55.75,37.62,150\n";
        settings.environment = {locale};
        EXPECT_EQ(RunTool({"transform", "pulkovo-1942", "wgs-84"}, settings).out, std::string(moscow) + "\n")
            << locale;
    }
}

TEST(TransformCommand, WritesHeightsInTheUnitOfTheTarget) {
    // 30.48 m are 100 international feet of 0.3048 m.
    TRunSettings settings;
    settings.input = "10,20,30.48\n";
    EXPECT_EQ(RunTool({"transform", "wgs-84", "wgs-84-feet", "--header", "always"}, settings).out,
              "latitude_deg,longitude_deg,height_ft\n10.000000000,20.000000000,100.000\n");
}

TEST(TransformCommand, ReadsAndWritesGrads) {
    // echo "0 54 100" | cct with the steps: unitconvert from grads; inverse of longlat +a=6378249.2
    // +b=6356515 +pm=paris; cart; helmert +x=-168 +y=-60 +z=320; inverse of cart +ellps=WGS84; degrees gives
    // 2.336509257 48.599932240 143.241049334. Its meridian of Paris is 2d20'14.025", that of EPSG 8903 is
    // 2.5969213 grad, which is 3e-9 degrees more.
    TRunSettings settings;
    settings.input = "lat,lon,h\n54,0,100\n";
    TToolRun const run =
        RunTool({"transform", "ntf-paris", "wgs-84", "-p", "7", "--height-precision", "3"}, settings);
    EXPECT_EQ(run.out, "latitude_deg,longitude_deg,height_m\n48.5999322,2.3365093,143.241\n");
    TToolRun const same = RunTool({"transform", "ntf-paris", "ntf-paris", "-p", "6"}, settings);
    EXPECT_EQ(same.out, "latitude_grad,longitude_grad,height_m\n54.000000,0.000000,100.000000\n");
}

// --- Separators, headers, line ends ------------------------------------------------------------------------

TEST(TransformCommand, KeepsTheSeparatorOfTheInput) {
    EXPECT_EQ(Transform("55.75;37.62;150\n").out, "55.750042613;37.618125892;154.542\n");
    EXPECT_EQ(Transform("55.75\t37.62\t150\n").out, "55.750042613\t37.618125892\t154.542\n");
    EXPECT_EQ(Transform("55.75 37.62 150\n").out, "55.750042613 37.618125892 154.542\n");
    EXPECT_EQ(Transform("  55.75   37.62 150\n").out, "55.750042613 37.618125892 154.542\n");
}

TEST(TransformCommand, BlanksAroundFieldsDoNotCount) {
    EXPECT_EQ(Transform(" 55.75 , 37.62 , 150 \n").out, std::string(moscow) + "\n");
}

TEST(TransformCommand, TheFirstPointDecidesTheSeparator) {
    // A comma stands in the further column only.
    EXPECT_EQ(Transform("55.75 37.62 150 Moscow, Kremlin\n").out,
              "55.750042613 37.618125892 154.542 Moscow, Kremlin\n");
    EXPECT_EQ(Transform("55.75,37.62,150,a;b\n").out, std::string(moscow) + ",a;b\n");
}

TEST(TransformCommand, AHeaderComesOutWithNamesAndUnits) {
    EXPECT_EQ(Transform("B,L,H,name\n55.75,37.62,150,Moscow\n").out,
              "latitude_deg,longitude_deg,height_m,name\n" + std::string(moscow) + ",Moscow\n");
}

TEST(TransformCommand, AHeaderKeepsItsSeparator) {
    EXPECT_EQ(Transform("B;L;H;name\n55.75;37.62;150;x\n").out,
              "latitude_deg;longitude_deg;height_m;name\n55.750042613;37.618125892;154.542;x\n");
}

TEST(TransformCommand, AFirstLineWithSomethingLikeANumberIsAMistakeAndNoHeader) {
    for (char const* const first : {"12abc,37.62,150", "12abc,x,150", "x,37.62,150", ",,150"}) {
        TToolRun const run = Transform(std::string(first) + "\n55.75,37.62,150\n");
        EXPECT_EQ(run.out, ",,\n" + std::string(moscow) + "\n") << first;
        EXPECT_EQ(run.status, 1) << first;
    }
}

TEST(TransformCommand, HeaderModesAddAndTakeAwayTheHeader) {
    std::string const header = "latitude_deg,longitude_deg,height_m\n";
    std::string const point = std::string(moscow) + "\n";
    EXPECT_EQ(Transform("55.75,37.62,150\n", {"--header", "always"}).out, header + point);
    EXPECT_EQ(Transform("B,L,H\n55.75,37.62,150\n", {"--header", "always"}).out, header + point);
    EXPECT_EQ(Transform("B,L,H\n55.75,37.62,150\n", {"--header", "never"}).out, point);
    EXPECT_EQ(Transform("B,L,H\n55.75,37.62,150\n", {"--header", "auto"}).out, header + point);
}

TEST(TransformCommand, ReadsCarriageReturnsAndAByteOrderMark) {
    EXPECT_EQ(Transform("\xEF\xBB\xBF"
                        "55.75,37.62,150\r\n55.75,37.62,150\r\n")
                  .out,
              std::string(moscow) + "\n" + moscow + "\n");
}

TEST(TransformCommand, TheLastLineNeedsNoLineEnd) {
    EXPECT_EQ(Transform("55.75,37.62,150").out, std::string(moscow) + "\n");
}

TEST(TransformCommand, EmptyLinesPassThrough) {
    TToolRun const run = Transform("\nB,L,H\n\n55.75,37.62,150\n \n\n");
    EXPECT_EQ(run.out, "\nlatitude_deg,longitude_deg,height_m\n\n" + std::string(moscow) + "\n \n\n");
    EXPECT_EQ(run.status, 0);
}

TEST(TransformCommand, AnEmptyInputGivesAnEmptyOutput) {
    TToolRun const run = Transform("");
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.status, 0);
}

TEST(TransformCommand, FurtherColumnsStayAsTheyStand) {
    EXPECT_EQ(Transform("55.75,37.62,150,\"a,b\", 007 ,,\n").out, std::string(moscow) + ",\"a,b\", 007 ,,\n");
}

TEST(TransformCommand, QuotesAroundACoordinateDoNotCount) {
    EXPECT_EQ(Transform("\"55.75\",\"37.62\",\"150\"\n").out, std::string(moscow) + "\n");
}

// --- Heights -----------------------------------------------------------------------------------------------

TEST(TransformCommand, AnEmptyHeightStaysEmpty) {
    // The point goes the way of one at height 0: cct of "37.62 55.75 0" as above gives 37.618125845
    // 55.750042616.
    EXPECT_EQ(Transform("55.75,37.62,,x\n").out, "55.750042616,37.618125845,,x\n");
    EXPECT_EQ(Transform("55.75,37.62,\n").out, "55.750042616,37.618125845,\n");
}

TEST(TransformCommand, ATableWithoutHeightsHasNoneAfterwards) {
    EXPECT_EQ(Transform("B,L\n55.75,37.62\n").out, "latitude_deg,longitude_deg\n55.750042616,37.618125845\n");
    EXPECT_EQ(Transform("55.75 37.62\n").out, "55.750042616 37.618125845\n");
}

TEST(TransformCommand, AMissingHeightIsAnEmptyFieldInATableWithHeights) {
    EXPECT_EQ(Transform("55.75,37.62,150\n55.75,37.62\n").out,
              std::string(moscow) + "\n55.750042616,37.618125845,\n");
}

TEST(TransformCommand, AStarIsTheEmptyHeightAmongBlanks) {
    EXPECT_EQ(Transform("55.75 37.62 * Moscow\n").out, "55.750042616 37.618125845 * Moscow\n");
}

// --- Grids -------------------------------------------------------------------------------------------------

/** Runs `vellari transform` between two systems. */
TToolRun Between(std::string const& source, std::string const& target, std::string const& points) {
    TRunSettings settings;
    settings.input = points;
    return RunTool({"transform", source, target}, settings);
}

TEST(TransformCommand, MovesPointsIntoAGridInMillimetres) {
    // echo "55.75 37.62 150" | cs2cs -f %.3f EPSG:4326 EPSG:32637
    EXPECT_EQ(Between("wgs-84", "utm:37N", "55.75,37.62,150\n").out, "413380.720,6179118.147,150.000\n");
}

TEST(TransformCommand, ColumnsOfAGridAreNamedByTheDirectionsOfItsAxes) {
    EXPECT_THAT(Between("wgs-84", "utm:37N", "B,L,H,n\n55,39,0,a\n").out,
                testing::StartsWith("easting_m,northing_m,height_m,n\n"));
    EXPECT_THAT(Between("wgs-84", "gk:7", "B,L,H\n55,39,0\n").out,
                testing::StartsWith("northing_m,easting_m,height_m\n"));
    EXPECT_THAT(Between("wgs-84", "s-jtsk-krovak", "B,L\n50,15\n").out,
                testing::StartsWith("southing_m,westing_m\n"));
}

TEST(TransformCommand, PointsWithoutHeightGoThroughGridsInBothDirections) {
    EXPECT_EQ(Between("wgs-84", "utm:37N", "55.75,37.62\n").out, "413380.720,6179118.147\n");
    EXPECT_EQ(Between("wgs-84", "utm:37N", "55.75,37.62,,x\n").out, "413380.720,6179118.147,,x\n");
    // A height of 0 has no part in it: both lie on the central meridian, 500000 and 7500000.
    EXPECT_EQ(Between("utm:37N", "wgs-84", "500000,0\n").out, "0.000000000,39.000000000\n");
    std::string const withHeight = Between("gk:7", "utm:37N", "6181692,7413462,0,x\n").out;
    std::string const without = Between("gk:7", "utm:37N", "6181692,7413462,,x\n").out;
    EXPECT_EQ(without.substr(0, 22), withHeight.substr(0, 22));
    EXPECT_THAT(without, EndsWith(",,x\n"));
}

TEST(TransformCommand, APointOutsideOfAProjectionsReachIsAMistake) {
    // At a pole the tangent of the latitude leaves the numbers.
    TToolRun const target = Between("wgs-84", "utm:37N", "90,39,1\n55.75,37.62,150\n90,39\n");
    EXPECT_EQ(target.out, ",,\n413380.720,6179118.147,150.000\n,,\n");
    EXPECT_THAT(target.err,
                HasSubstr("line 1: the point lies outside of the reach of the target's projection, in "
                          "\"90,39,1\"\n"));
    EXPECT_EQ(target.status, 1);
    EXPECT_THAT(Between("utm:37N", "wgs-84", "1e300,1e300,0\n").err,
                HasSubstr("line 1: the point lies outside of the reach of the source's projection, in "));
    EXPECT_THAT(Between("utm:37N", "gk:7", "1e300,1e300,0\n").err,
                HasSubstr("line 1: the point lies outside of the reach of the two projections, in "));
}

TEST(TransformCommand, EastingsAndNorthingsHaveNoLimitAsLatitudesHave) {
    EXPECT_EQ(Between("utm:37N", "utm:37N", "413380.72,6179118.147,1\n").out,
              "413380.720,6179118.147,1.000\n");
    EXPECT_THAT(Between("utm:37N", "wgs-84", "east,6179118,1\nx,y,1\n1,x,1\n").err,
                HasSubstr("northing \"x\" is not a number"));
}

// --- Sexagesimal texts -------------------------------------------------------------------------------------

TEST(TransformCommand, ReadsDegreesMinutesAndSeconds) {
    // 55 + 45/60 + 7.2/3600 = 55.752; 37 + 36/60 + 56.4/3600 = 37.6156666...
    TRunSettings settings;
    settings.input = "55 45 07.2 N,37 36 56.4 E,144\n33 51 25 S,70 30 0 W,\n";
    EXPECT_EQ(RunTool({"transform", "wgs-84-dms", "wgs-84"}, settings).out,
              "55.752000000,37.615666667,144.000\n-33.856944444,-70.500000000,\n");
}

TEST(TransformCommand, WritesDegreesMinutesAndSeconds) {
    TRunSettings settings;
    settings.input = "lat,lon,h\n-33.5,151.25,27\n";
    EXPECT_EQ(RunTool({"transform", "wgs-84", "wgs-84-dms", "-p", "2"}, settings).out,
              "latitude_dms,longitude_dms,height_m\n33 30 0.00 S,151 15 0.00 E,27.00\n");
}

TEST(TransformCommand, SexagesimalTextsAmongBlanksAreExplained) {
    TRunSettings settings;
    settings.input = "55 45 07.2 N 37 36 56.4 E 144\n";
    TToolRun const run = RunTool({"transform", "wgs-84-dms", "wgs-84"}, settings);
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err,
                HasSubstr("angles with blanks inside need commas, semicolons or TABs between the columns"));
}

TEST(TransformCommand, AnglesWithoutBlanksInsideMayStandAmongBlanks) {
    TRunSettings settings;
    settings.input = "55\xC2\xB0"
                     "45'07.2\"N 37d36m56.4sE 144\n";
    EXPECT_EQ(RunTool({"transform", "wgs-84-dms", "wgs-84"}, settings).out,
              "55.752000000 37.615666667 144.000\n");
}

TEST(TransformCommand, AngleWithTheOtherAxisLetterIsAMistake) {
    TRunSettings settings;
    settings.input = "37 36 56.4 E,55 45 07.2 N,144\n";
    TToolRun const run = RunTool({"transform", "wgs-84-dms", "wgs-84"}, settings);
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err,
                HasSubstr("line 1: latitude \"37 36 56.4 E\" has the letter of the other axis; right would "
                          "be 55 45 07.2 N"));
}

// --- Mistakes ----------------------------------------------------------------------------------------------

std::string const goodPoint = "55.75,37.62,150\n";

TEST(TransformCommand, ReportsNumberTextAndReason) {
    TToolRun const run = Transform(goodPoint + "12abc,37.62,150,x\n");
    EXPECT_EQ(
        run.err,
        "vellari: standard input, line 2: latitude \"12abc\" is not a number, in \"12abc,37.62,150,x\"\n"
        "vellari: 1 of 2 points could not be transformed\n");
    EXPECT_EQ(run.status, 1);
}

struct TMistake {
    char const* line;
    char const* reason;
};

class TransformMistake : public testing::TestWithParam<TMistake> {};

TEST_P(TransformMistake, IsReportedWithItsReason) {
    TToolRun const run = Transform(goodPoint + GetParam().line + "\n");
    EXPECT_THAT(run.err, HasSubstr(std::string("line 2: ") + GetParam().reason + ", in "));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(CountLines(run.out), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, TransformMistake,
    testing::Values(TMistake{",37.62,150", "latitude is empty; a number is needed"},
                    TMistake{"55.75,,150", "longitude is empty; a number is needed"},
                    TMistake{"55.75", "longitude is missing"},
                    TMistake{"55.75,37.62E,150", "longitude \"37.62E\" is not a number"},
                    TMistake{"55.75,37.62,high", "height \"high\" is not a number"},
                    TMistake{"0x10,37.62,1", "latitude \"0x10\" is not a number"},
                    TMistake{"nan,37.62,1", "latitude \"nan\" is not a number"},
                    TMistake{"55.75,inf,1", "longitude \"inf\" is not a number"},
                    TMistake{"55.75,37.62,1e999", "height \"1e999\" is not a number"},
                    TMistake{"55 45,37.62,1", "latitude \"55 45\" is not a number"},
                    TMistake{"90.001,37.62,1", "latitude 90.001 is beyond a pole"},
                    TMistake{"-137,55,1", "latitude -137 is beyond a pole"},
                    TMistake{"55.75;37.62;150",
                             "longitude is missing; the columns of this input are separated by comma"}));

TEST(TransformCommand, ADecimalCommaIsExplained) {
    TToolRun const run = Transform("55.75;37.62;150\n55,75;37,62;150\n");
    EXPECT_THAT(run.err, HasSubstr("line 2: latitude \"55,75\" is not a number with a decimal point"));
}

TEST(TransformCommand, AResultThatIsNotFiniteIsAMistake) {
    TToolRun const run = Transform(goodPoint + "55.75,37.62,1e308\n");
    EXPECT_THAT(run.err, HasSubstr("line 2: the transformation gave no finite numbers: "));
    EXPECT_EQ(run.out, std::string(moscow) + "\n,,\n");
    EXPECT_EQ(run.status, 1);
}

TEST(TransformCommand, ControlBytesDoNotReachTheTerminal) {
    TToolRun const run = Transform(goodPoint + "\x1B[2J,1,2\n");
    EXPECT_THAT(run.err, HasSubstr("\"\\x1B[2J,1,2\""));
    EXPECT_EQ(run.err.find('\x1B'), std::string::npos);
}

TEST(TransformCommand, ReportsOnlyTheFirstTwentyOneByOne) {
    std::string points = goodPoint;
    for (int i = 0; i < 30; ++i) {
        points += "x,1,2\n";
    }
    TToolRun const run = Transform(points);
    EXPECT_EQ(CountLines(run.err), 22);
    EXPECT_THAT(run.err, HasSubstr("line 21: "));
    EXPECT_THAT(run.err, EndsWith("vellari: further lines are only counted\n"
                                  "vellari: 30 of 31 points could not be transformed\n"));
    EXPECT_EQ(CountLines(run.out), 31);
}

std::string const mixed = "B,L,H,name\n55.75,37.62,150,a\n\nx,37.62,150,b\n55.75,37.62,150,c\n";

TEST(TransformCommand, MarkLeavesTheCoordinatesEmptyAndKeepsAllLines) {
    std::string const expected =
        "latitude_deg,longitude_deg,height_m,name\n" + std::string(moscow) + ",a\n\n,,,b\n" + moscow + ",c\n";
    for (std::vector<std::string> const& options : {std::vector<std::string>{}, {"--on-error", "mark"}}) {
        TToolRun const run = Transform(mixed, options);
        EXPECT_EQ(run.out, expected);
        EXPECT_EQ(run.status, 1);
    }
}

TEST(TransformCommand, MarkAmongBlanksWritesStars) {
    EXPECT_EQ(Transform("55.75 37.62 150 a\nx 1 2 b\n").out,
              "55.750042613 37.618125892 154.542 a\n* * * b\n");
}

TEST(TransformCommand, SkipLeavesTheLineOut) {
    TToolRun const run = Transform(mixed, {"--on-error", "skip"});
    EXPECT_EQ(run.out, "latitude_deg,longitude_deg,height_m,name\n" + std::string(moscow) + ",a\n\n" +
                           moscow + ",c\n");
    EXPECT_EQ(run.status, 1);
}

TEST(TransformCommand, StopEndsAtTheLine) {
    TToolRun const run = Transform(mixed, {"--on-error", "stop"});
    EXPECT_EQ(run.out, "latitude_deg,longitude_deg,height_m,name\n" + std::string(moscow) + ",a\n\n");
    EXPECT_THAT(run.err, HasSubstr("vellari: stopped at the first line that could not be transformed\n"));
    EXPECT_EQ(run.status, 1);
}

TEST(TransformCommand, ALineOfAbsurdLengthIsAMistake) {
    std::string const longLine(3 << 20, '7');
    TToolRun const run = Transform(goodPoint + longLine + "\n" + goodPoint);
    EXPECT_THAT(run.err, HasSubstr("line 2: the line is longer than 1 MiB, in \"777"));
    EXPECT_LT(run.err.size(), 500u);
    EXPECT_EQ(run.out, std::string(moscow) + "\n,,\n" + moscow + "\n");
}

TEST(TransformCommand, ANulByteIsAMistakeLikeAnyOther) {
    TToolRun const run = Transform(goodPoint + std::string("55.75\0,37.62,1\n", 15));
    EXPECT_THAT(run.err, HasSubstr("\"55.75\\x00\" is not a number"));
    EXPECT_EQ(run.status, 1);
}

// --- Files -------------------------------------------------------------------------------------------------

TEST(TransformCommand, WritesAFile) {
    TTemporaryFolder const folder;
    TToolRun const run = Transform(goodPoint, {"-o", folder.Path("result.csv")});
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(ReadFile(folder.Path("result.csv")), std::string(moscow) + "\n");
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"result.csv"});
}

TEST(TransformCommand, TheFileMayBeThatOfThePoints) {
    TTemporaryFolder const folder;
    std::string const path = folder.Write("points.csv", goodPoint);
    EXPECT_EQ(RunTool({"transform", "pulkovo-1942", "wgs-84", path, "-o", path}).status, 0);
    EXPECT_EQ(ReadFile(path), std::string(moscow) + "\n");
}

TEST(TransformCommand, FollowsALinkAndKeepsThePermissions) {
    namespace fs = std::filesystem;
    TTemporaryFolder const folder;
    std::string const path = folder.Write("result.csv", "old\n");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    fs::create_symlink(path, folder.Path("link.csv"));
    EXPECT_EQ(Transform(goodPoint, {"-o", folder.Path("link.csv")}).status, 0);
    EXPECT_TRUE(fs::is_symlink(folder.Path("link.csv")));
    EXPECT_EQ(ReadFile(path), std::string(moscow) + "\n");
    EXPECT_EQ(fs::status(path).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EXPECT_EQ(folder.Files(), (std::vector<std::string>{"link.csv", "result.csv"}));
}

TEST(TransformCommand, LeavesTheFileAloneWhenItStops) {
    TTemporaryFolder const folder;
    std::string const path = folder.Write("result.csv", "old\n");
    TToolRun const run = Transform(mixed, {"--on-error", "stop", "-o", path});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("; " + path + " is left as it was"));
    EXPECT_EQ(ReadFile(path), "old\n");
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"result.csv"});
}

TEST(TransformCommand, AFileThatCannotBeMadeIsNamed) {
    TToolRun const run = Transform(goodPoint, {"-o", "/no/such/folder/result.csv"});
    EXPECT_EQ(
        run.err,
        "vellari: /no/such/folder/result.csv: the result can't be written: No such file or directory\n");
    EXPECT_EQ(run.status, 2);
}

TEST(TransformCommand, AFullDiskIsReported) {
    TRunSettings settings;
    settings.input = goodPoint;
    settings.outputPath = "/dev/full";
    TToolRun const run = RunTool({"transform", "pulkovo-1942", "wgs-84"}, settings);
    EXPECT_EQ(run.err, "vellari: standard output: the result can't be written: No space left on device\n");
    EXPECT_EQ(run.status, 2);
    TToolRun const direct = Transform(goodPoint, {"-o", "/dev/full"});
    EXPECT_EQ(direct.err, "vellari: /dev/full: the result can't be written: No space left on device\n");
    EXPECT_EQ(direct.status, 2);
}

TEST(TransformCommand, EndsQuietlyWhenNobodyReads) {
    TRunSettings settings;
    settings.closedOutput = true;
    for (int i = 0; i < 10000; ++i) {
        settings.input += goodPoint;
    }
    TToolRun const run = RunTool({"transform", "pulkovo-1942", "wgs-84"}, settings);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
}

TEST(TransformCommand, PointsThatCannotBeReadAreNamed) {
    TToolRun const missing = RunTool({"transform", "wgs-84", "wgs-84", "/no/such/points.csv"});
    EXPECT_EQ(missing.err,
              "vellari: /no/such/points.csv: the points can't be read: No such file or directory\n");
    EXPECT_EQ(missing.status, 2);
    TToolRun const folder = RunTool({"transform", "wgs-84", "wgs-84", "/tmp"});
    EXPECT_EQ(folder.err, "vellari: /tmp: the points can't be read: Is a directory\n");
    EXPECT_EQ(folder.status, 2);
}

TEST(TransformCommand, RandomBytesGiveAsManyLinesAndNoCrash) {
    std::mt19937 random(19420101);
    std::string const alphabet = "0123456789.,;-+eE \t\"NSEWnds'\r*\xC2\xB0\xFF";
    for (char const* const source : {"pulkovo-1942", "wgs-84-dms"}) {
        TRunSettings settings;
        for (int line = 0; line < 2000; ++line) {
            // The first line begins like a number, so that it isn't taken for a header.
            std::string text = line == 0 ? "1" : "";
            for (unsigned length = random() % 30; length > 0; --length) {
                text +=
                    line % 2 == 0 ? alphabet[random() % alphabet.size()] : static_cast<char>(random() % 256);
            }
            std::replace(text.begin(), text.end(), '\n', ' ');
            settings.input += text + "\n";
        }
        TToolRun const run = RunTool({"transform", source, "wgs-84"}, settings);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(CountLines(run.out), 2000);
        EXPECT_EQ(run.out.find("nan"), std::string::npos);
    }
}

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VELLARI_HAS_ADDRESS_SANITIZER
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define VELLARI_HAS_ADDRESS_SANITIZER
#endif
#ifdef VELLARI_HAS_ADDRESS_SANITIZER
constexpr long allowedGrowthKiB = 65536; // the sanitizer keeps freed memory for a while
#else
constexpr long allowedGrowthKiB = 2048;
#endif

TEST(TransformCommand, MemoryDoesNotGrowWithTheNumberOfLines) {
    TTemporaryFolder const folder;
    std::string few;
    for (int i = 0; i < 2000; ++i) {
        few += "55.75,37.62,150,point of the test\n";
    }
    std::string many;
    for (int i = 0; i < 100; ++i) {
        many += few;
    }
    std::string const path = folder.Write("many.csv", many);
    TToolRun const small = Transform(few);
    TToolRun const large =
        RunTool({"transform", "pulkovo-1942", "wgs-84", path, "-o", folder.Path("out.csv")});
    EXPECT_EQ(large.status, 0);
    EXPECT_EQ(CountLines(ReadFile(folder.Path("out.csv"))), 200000);
    // The whole input has 6.8 MB; two runs differ by some hundred KiB at most.
    EXPECT_LT(large.maxResidentKiB, small.maxResidentKiB + allowedGrowthKiB);
}

} // namespace
