#include "tests/cli/ToolRunner.h"

#include <gmock/gmock.h>

namespace {

using namespace ToolTest;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// --- list --------------------------------------------------------------------------------------------------

TEST(ListCommand, ShowsNamesAndTitlesInGroups) {
    TToolRun const run = RunTool({"list"});
    EXPECT_THAT(run.out, testing::ContainsRegex("\n  pulkovo-1942 +Pulkovo 1942\n"));
    EXPECT_THAT(run.out, testing::ContainsRegex("\n  wgs-84 +WGS 84\n"));
    std::size_t const geodetic = run.out.find("Geodetic systems\n");
    std::size_t const grids = run.out.find("\nNational and regional grids\n");
    std::size_t const zones = run.out.find("\nZones, by their numbers\n");
    EXPECT_EQ(geodetic, 0u);
    EXPECT_LT(run.out.find("\n  tokyo "), grids);
    EXPECT_LT(grids, run.out.find("\n  rd-new "));
    EXPECT_LT(run.out.find("\n  rd-new "), zones);
    EXPECT_LT(zones, run.out.find("\n  utm:ZONE(N|S) "));
    std::size_t const geocentric = run.out.find("\nGeocentric systems\n");
    std::size_t const frames = run.out.find("\nTopocentric and local frames\n");
    EXPECT_LT(run.out.find("\n  rd-new "), geocentric);
    EXPECT_LT(geocentric, run.out.find("\n  wgs-84-geocentric "));
    EXPECT_LT(run.out.find("\n  etrs89-geocentric "), frames);
    EXPECT_LT(frames, run.out.find("\n  local-metres "));
    EXPECT_LT(run.out.find("\n  topocentric-moscow "), zones);
    EXPECT_EQ(run.status, 0);
}

TEST(ListCommand, ShowsTheZonesWithAnExample) {
    std::string const zones = RunTool({"list", "zones"}).out + RunTool({"list", "utm"}).out;
    for (char const* const example : {"; as utm:37N\n", "; as msk:50:2\n", "; as sk63:C:1\n"}) {
        EXPECT_THAT(zones, HasSubstr(example));
    }
    EXPECT_EQ(RunTool({"list", "GK:7"}).out,
              "Zones, by their numbers\n  gk:ZONE[N|S]  Pulkovo 1942 / Gauss-Kruger of 6 degrees; northing, "
              "easting; zones 1 to 60; as gk:7\n");
}

TEST(ListCommand, TakesAPartOfANameOrTitleInEitherCase) {
    TToolRun const run = RunTool({"list", "PULKOVO"});
    EXPECT_THAT(run.out, testing::MatchesRegex("Geodetic systems\n"
                                               "  pulkovo-1942 +Pulkovo 1942\n"
                                               "  pulkovo-1995 +Pulkovo 1995\n"
                                               "\nZones, by their numbers\n"
                                               "  gk:ZONE.*\n"));
    EXPECT_THAT(RunTool({"list", "grads"}).out, HasSubstr("\n  ntf-paris  "));
}

TEST(ListCommand, TakesAPatternForTheWholeName) {
    EXPECT_EQ(CountLines(RunTool({"list", "pz-90.*"}).out), 1 + 2);
    EXPECT_EQ(CountLines(RunTool({"list", "wgs-8?"}).out), 1 + 1);
}

TEST(ListCommand, APatternThatFitsNothingIsAnError) {
    TToolRun const run = RunTool({"list", "atlantis"});
    EXPECT_EQ(run.err,
              "vellari: no entry of the catalogue and no zone fits \"atlantis\"; `vellari list` shows all\n");
    EXPECT_EQ(run.status, 2);
}

// --- show --------------------------------------------------------------------------------------------------

TEST(ShowCommand, SummaryTellsTheSystemOneFactALine) {
    std::string const summary = RunTool({"show", "pulkovo-1942"}).out;
    for (char const* const line :
         {"name                Pulkovo 1942\n", "kind                geodetic\n",
          "axes                Latitude, Longitude, Height\n", "angular unit        degree (deg)\n",
          "height unit         metre (m)\n", "datum               Pulkovo 1942\n",
          "shift to WGS 84     seven parameters, coordinate frame rotation\n",
          "  shift X           23.57 m\n", "  rotation Z        -0.79 sec\n",
          "  scale difference  -0.22 ppm\n", "  semi-major axis   6378245 m\n", "  inv. flattening   298.3\n",
          "prime meridian      Greenwich\n", "  longitude         0 deg\n", "EPSG code           4284\n"}) {
        EXPECT_THAT(summary, HasSubstr(line));
    }
    EXPECT_EQ(RunTool({"show", "pulkovo-1942", "--as", "summary"}).out, summary);
}

TEST(ShowCommand, SummaryOfASystemWithoutADatumHasNoShift) {
    EXPECT_THAT(RunTool({"show", "sphere"}).out, HasSubstr("shift to WGS 84     none\n"));
}

TEST(ShowCommand, TextIsTheDescriptionByteForByte) {
    for (char const* const name : {"pulkovo-1942", "wgs-84-dms", "sphere"}) {
        EXPECT_EQ(RunTool({"show", name, "--as", "text"}).out, CatalogText(name));
    }
}

TEST(ShowCommand, XmlHoldsAllFieldsOfTheDescription) {
    TToolRun const run = RunTool({"show", "wgs-84", "--as", "xml"});
    EXPECT_THAT(run.out, StartsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"));
    std::string const text = CatalogText("wgs-84");
    long fields = 0;
    for (std::size_t at = text.find(")["); at != std::string::npos; at = text.find(")[", at + 1)) {
        ++fields;
    }
    long tags = 0;
    for (std::size_t at = run.out.find("<tag>"); at != std::string::npos;
         at = run.out.find("<tag>", at + 1)) {
        ++tags;
    }
    EXPECT_EQ(tags, fields);
}

TEST(ShowCommand, AnUnknownFormatNamesTheFormats) {
    TToolRun const run = RunTool({"show", "wgs-84", "--as", "pdf"});
    EXPECT_EQ(run.err,
              "vellari: --as pdf is not a format; formats are summary, text, xml, wkt, wkt-compound, mif, "
              "geotiff, panorama\n");
    EXPECT_EQ(run.status, 2);
}

TEST(ShowCommand, AnUnknownSystemNamesSimilarEntries) {
    TToolRun const run = RunTool({"show", "pulkvo-1942"});
    EXPECT_EQ(run.err,
              "vellari: \"pulkvo-1942\" is neither a description file nor an entry of the catalogue; similar "
              "entries: pulkovo-1942, pulkovo-1995\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(RunTool({"show", "qqqqqqqqqqqqqqqqqqqqqqqq"}).err,
                HasSubstr("; `vellari list` shows the entries\n"));
}

TEST(ShowCommand, AFolderIsNoDescription) {
    TToolRun const run = RunTool({"show", "/tmp"});
    EXPECT_EQ(run.err, "vellari: /tmp: the description can't be read: Is a directory\n");
    EXPECT_EQ(run.status, 2);
}

TEST(ShowCommand, NamesOfEntriesMayHaveLettersOfEitherCase) {
    EXPECT_EQ(RunTool({"show", "WGS-84"}).out, RunTool({"show", "wgs-84"}).out);
}

// --- units -------------------------------------------------------------------------------------------------

struct TConversion {
    char const* value;
    char const* from;
    char const* to;
    char const* result;
};

class UnitsCommand : public testing::TestWithParam<TConversion> {};

TEST_P(UnitsCommand, Converts) {
    TConversion const& row = GetParam();
    TToolRun const run = RunTool({"units", row.value, "--from", row.from, "--to", row.to, "-p", "6"});
    EXPECT_EQ(run.out, std::string(row.result) + "\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
}

// By hand from the definitions: 0.3048 m, 1200/3937 m, 1852 m, 1609.344 m; 400 grad = 360 degrees.
INSTANTIATE_TEST_SUITE_P(Values, UnitsCommand,
                         testing::Values(TConversion{"1", "foot", "metre", "0.304800"},
                                         TConversion{"3937", "us-foot", "metre", "1200.000000"},
                                         TConversion{"1", "nautical-mile", "km", "1.852000"},
                                         TConversion{"-2.5", "kilometre", "m", "-2500.000000"},
                                         TConversion{"1", "mile", "foot", "5280.000000"},
                                         TConversion{"1", "yard", "foot", "3.000000"},
                                         TConversion{"1", "fathom", "foot", "6.000000"},
                                         TConversion{"100", "grad", "degree", "90.000000"},
                                         TConversion{"180", "degree", "radian", "3.141593"},
                                         TConversion{"1", "degree", "second", "3600.000000"},
                                         TConversion{"90", "minute", "degree", "1.500000"},
                                         TConversion{"55.752", "degree", "dms", "55 45 7.200000"},
                                         TConversion{"-12.5", "degree", "dms", "- 12 30 0.000000"},
                                         TConversion{"55 45 07.2 N", "dms-hemisphere", "degree", "55.752000"},
                                         TConversion{"33 30 0 W", "dms-hemisphere", "degree", "-33.500000"},
                                         TConversion{"- 12 30", "dms", "degree", "-12.500000"},
                                         TConversion{"12d34m56.7s", "dms", "degree", "12.582417"},
                                         TConversion{"10.5", "degree", "sexagesimal", "10.3000000000"},
                                         TConversion{"10.300000", "sexagesimal", "degree", "10.500000"},
                                         TConversion{"10.5", "degree", "decimal-minutes", "10.30000000"},
                                         TConversion{"10.305", "decimal-minutes", "degree", "10.508333"}));

TEST(UnitsCommandText, WithoutAPrecisionTheUnitHasItsOwn) {
    EXPECT_EQ(RunTool({"units", "1", "--from", "nautical-mile", "--to", "metre"}).out, "1852.000\n");
    EXPECT_EQ(RunTool({"units", "1", "--from", "grad", "--to", "degree"}).out, "0.900000000\n");
    EXPECT_EQ(RunTool({"units", "55.752", "--from", "degree", "--to", "dms"}).out, "55 45 7.200000\n");
}

TEST(UnitsCommandText, AHemisphereLetterNeedsTheAxis) {
    TToolRun const run = RunTool({"units", "-5.5", "--from", "degree", "--to", "dms-hemisphere"});
    EXPECT_EQ(
        run.err,
        "vellari: an angle with a hemisphere letter needs its axis: --axis latitude or --axis longitude\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(RunTool({"units", "-5.5", "--from", "degree", "--to", "dms-hemisphere", "--axis", "latitude",
                       "-p", "1"})
                  .out,
              "5 30 0.0 S\n");
    EXPECT_EQ(RunTool({"units", "-5.5", "--from", "degree", "--to", "dms-hemisphere", "--axis", "longitude",
                       "-p", "1"})
                  .out,
              "5 30 0.0 W\n");
    EXPECT_EQ(
        RunTool({"units", "5 30 0 W", "--from", "dms-hemisphere", "--to", "dms-hemisphere", "-p", "0"}).out,
        "5 30 0 W\n");
}

struct TUnitsMistake {
    std::vector<std::string> arguments;
    char const* message;
};

class UnitsMistake : public testing::TestWithParam<TUnitsMistake> {};

TEST_P(UnitsMistake, IsOneLineAndStatusTwo) {
    std::vector<std::string> arguments = {"units"};
    arguments.insert(arguments.end(), GetParam().arguments.begin(), GetParam().arguments.end());
    TToolRun const run = RunTool(arguments);
    EXPECT_EQ(run.err, std::string("vellari: ") + GetParam().message + "\n");
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.status, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Mistakes, UnitsMistake,
    testing::Values(
        TUnitsMistake{
            {"1", "--from", "metre", "--to", "degree"},
            "metre is a unit of length and degree one of angle: no conversion leads from one to the other"},
        TUnitsMistake{{"1", "--from", "metr", "--to", "degree"},
                      "unit \"metr\" is not known; did you mean metre? `vellari help units` lists the units"},
        TUnitsMistake{{"1", "--from", "metre", "--to", "parsecs-of-old"},
                      "unit \"parsecs-of-old\" is not known; `vellari help units` lists the units"},
        TUnitsMistake{{"12abc", "--from", "metre", "--to", "foot"}, "value \"12abc\" is not a number"},
        TUnitsMistake{{"1 75 0", "--from", "dms", "--to", "degree"},
                      "value \"1 75 0\" has 60 or more minutes or seconds"},
        TUnitsMistake{{"400", "--from", "degree", "--to", "dms"},
                      "value \"400\" is more than a turn, which this notation does not write"},
        TUnitsMistake{{"4", "--from", "degree", "--to", "dms", "--axis", "up"},
                      "--axis up is not an axis; right is latitude or longitude"}));

// --- help, version, usage ----------------------------------------------------------------------------------

TEST(HelpCommand, ListsItsTopics) {
    TToolRun const run = RunTool({"help"});
    for (char const* const topic :
         {"transform", "gost", "systems", "formats", "points", "relations", "units", "exit-status"}) {
        EXPECT_THAT(run.out, HasSubstr(std::string("vellari help ") + topic));
        TToolRun const text = RunTool({"help", topic});
        EXPECT_GT(CountLines(text.out), 5) << topic;
        EXPECT_EQ(text.status, 0);
    }
}

TEST(HelpCommand, ListsTheUnits) {
    EXPECT_THAT(RunTool({"help", "units"}).out, HasSubstr("nautical-mile"));
}

TEST(HelpCommand, AnUnknownTopicNamesTheTopics) {
    TToolRun const run = RunTool({"help", "cooking"});
    EXPECT_EQ(
        run.err,
        "vellari: there is no help on \"cooking\"; topics are transform, gost, systems, formats, points, "
        "relations, units, exit-status\n");
    EXPECT_EQ(run.status, 2);
}

TEST(CommandLine, TellsTheVersion) {
    TToolRun const run = RunTool({"--version"});
    EXPECT_THAT(run.out, testing::MatchesRegex("vellari [0-9]+\\.[0-9]+\\.[0-9]+\n"));
    EXPECT_EQ(run.status, 0);
}

TEST(CommandLine, HelpNamesTheCommands) {
    TToolRun const run = RunTool({"--help"});
    for (char const* const command :
         {"transform", "gost", "show", "list", "compare", "axes", "area", "units", "help"}) {
        EXPECT_THAT(run.out, HasSubstr(command));
        EXPECT_EQ(RunTool({command, "--help"}).status, 0);
    }
    EXPECT_EQ(run.status, 0);
}

struct TUsageMistake {
    std::vector<std::string> arguments;
    char const* message;
};

class UsageMistake : public testing::TestWithParam<TUsageMistake> {};

TEST_P(UsageMistake, IsOneLineAndStatusTwo) {
    TToolRun const run = RunTool(GetParam().arguments);
    EXPECT_THAT(run.err, StartsWith("vellari: "));
    EXPECT_THAT(run.err, HasSubstr(GetParam().message));
    EXPECT_EQ(CountLines(run.err), 1);
    EXPECT_EQ(run.status, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Mistakes, UsageMistake,
    testing::Values(
        TUsageMistake{{},
                      "a command is needed: transform, gost, show, list, compare, axes, area, units or help"},
        TUsageMistake{{"transfrom", "a", "b"}, "\"transfrom\" is not a command"},
        TUsageMistake{{"transform"}, "SOURCE is required"}, TUsageMistake{{"area"}, "SYSTEM is required"},
        TUsageMistake{{"compare", "wgs-84"}, "B is required"}, TUsageMistake{{"axes"}, "SYSTEM is required"},
        TUsageMistake{{"transform", "wgs-84"}, "TARGET is required"},
        TUsageMistake{{"transform", "wgs-84", "wgs-84", "--on-error", "panic"},
                      "panic not in {mark,skip,stop}"},
        TUsageMistake{{"transform", "wgs-84", "wgs-84", "--header", "maybe"},
                      "maybe not in {auto,always,never}"},
        TUsageMistake{{"transform", "wgs-84", "wgs-84", "--precision", "21"}, "not in range 0 to 20"},
        TUsageMistake{{"transform", "wgs-84", "wgs-84", "--precision", "two"}, "--precision"},
        TUsageMistake{{"list", "--colour"}, "--colour"},
        TUsageMistake{{"--language", "tlh", "list"}, "--language tlh: "},
        TUsageMistake{{"units", "1", "--from", "metre"}, "--to is required"}));

TEST(CommandLine, TakesTheLanguagesOfTheTexts) {
    EXPECT_EQ(RunTool({"--language", "ru", "list"}).status, 0);
    EXPECT_EQ(RunTool({"--language", "en", "list"}).status, 0);
}

TEST(CommandLine, AFullDiskIsReportedByEveryCommand) {
    for (std::vector<std::string> const& arguments : {std::vector<std::string>{"list"},
                                                      {"help"},
                                                      {"--version"},
                                                      {"show", "wgs-84"},
                                                      {"show", "wgs-84", "--as", "wkt"},
                                                      {"compare", "wgs-84", "etrs89"},
                                                      {"axes", "wgs-84"},
                                                      {"gost", "--parameters", "--from", "pz90"}}) {
        TRunSettings settings;
        settings.outputPath = "/dev/full";
        TToolRun const run = RunTool(arguments, settings);
        EXPECT_EQ(run.err,
                  "vellari: standard output: the result can't be written: No space left on device\n");
        EXPECT_EQ(run.status, 2);
    }
}

} // namespace
