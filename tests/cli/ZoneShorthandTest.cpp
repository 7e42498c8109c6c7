#include "tools/vellari/ZoneShorthand.h"
#include "tests/cli/ToolRunner.h"
#include "tools/vellari/SystemLoader.h"
#include "tools/vellari/ToolError.h"
#include "tools/vellari/ZoneDescription.h"

#include <gmock/gmock.h>

#include <array>
#include <map>

namespace {

using namespace ToolTest;
using namespace VellariTool;
using testing::HasSubstr;
using testing::StartsWith;

// --- Texts -------------------------------------------------------------------------------------------------

TEST(ZoneShorthand, IsToldByItsPrefix) {
    for (char const* const name :
         {"utm:37N", "UTM:37n", "gk:7", "gsk:7", "msk:50:2", "SK63:c:1", "utm:", "gk::"}) {
        EXPECT_TRUE(IsZoneShorthand(name)) << name;
    }
    for (char const* const name : {"utm", "utm37N", "./utm:37N", "umt:37N", ":", "", " utm:37N", "wgs-84"}) {
        EXPECT_FALSE(IsZoneShorthand(name)) << name;
    }
}

TEST(ZoneShorthand, SaysZoneAndHemisphere) {
    TZone const utm = ParseZoneShorthand("utm:56s");
    EXPECT_EQ(utm.family, zfUtm);
    EXPECT_EQ(utm.zone, 56);
    EXPECT_FALSE(utm.isNorth);
    EXPECT_TRUE(ParseZoneShorthand("gk:7").isNorth);
    EXPECT_TRUE(ParseZoneShorthand("gk:7N").isNorth);
    EXPECT_FALSE(ParseZoneShorthand("gk:07S").isNorth);
    EXPECT_EQ(ParseZoneShorthand("gsk:60").zone, 60);
}

TEST(ZoneShorthand, SaysRegionOrBlockZoneAndWidth) {
    TZone const region = ParseZoneShorthand("msk:50:2");
    EXPECT_EQ(region.region, 50);
    EXPECT_EQ(region.zone, 2);
    EXPECT_EQ(region.width, "3");
    EXPECT_EQ(ParseZoneShorthand("msk:72:1:1.5").width, "1.5");
    TZone const block = ParseZoneShorthand("sk63:c:1:6");
    EXPECT_EQ(block.block, 'C');
    EXPECT_EQ(block.width, "6");
}

TEST(ZoneShorthand, AWidthHasNoBlanksOfAnyKind) {
    // They would come into messages and into the description.
    for (char const* const width : {"3\n", "3\r", "\v3", "\f3", "3\t", " 3"}) {
        EXPECT_THROW(ParseZoneShorthand(std::string("msk:50:2:") + width), TToolError) << width;
        EXPECT_THROW(ParseZoneShorthand(std::string("sk63:C:1:") + width), TToolError) << width;
    }
}

TEST(ZoneShorthand, ZonesGoRoundTheEarthOnce) {
    EXPECT_EQ(ParseZoneShorthand("msk:50:120").zone, 120); // 360 degrees of 3
    EXPECT_EQ(ParseZoneShorthand("msk:50:60:6").zone, 60);
    EXPECT_EQ(ParseZoneShorthand("msk:50:1:360").zone, 1);
}

struct TBadShorthand {
    char const* name;
    char const* message; ///< behind the name
};

void PrintTo(TBadShorthand const& row, std::ostream* stream) {
    *stream << row.name;
}

constexpr char const* utmForm = "; the form is utm:ZONE(N|S), as in utm:37N";
constexpr char const* gkForm = "; the form is gk:ZONE[N|S], as in gk:7";
constexpr char const* mskForm = "; the form is msk:REGION:ZONE[:WIDTH], as in msk:50:2";
constexpr char const* sk63Form = "; the form is sk63:BLOCK:ZONE[:WIDTH], as in sk63:C:1";

class BadZoneShorthand : public testing::TestWithParam<TBadShorthand> {};

TEST_P(BadZoneShorthand, SaysWhatIsAllowed) {
    std::string message = GetParam().message;
    std::map<std::string, std::string> const forms = {
        {"UTM", utmForm}, {"GK", gkForm}, {"MSK", mskForm}, {"SK63", sk63Form}};
    if (std::size_t const at = message.find('@'); at != std::string::npos) {
        message = message.substr(0, at) + forms.at(message.substr(at + 1));
    }
    try {
        ParseZoneShorthand(GetParam().name);
        ADD_FAILURE() << "taken";
    } catch (TToolError const& failure) {
        EXPECT_EQ(failure.what(), std::string(GetParam().name) + ": " + message);
    }
}

INSTANTIATE_TEST_SUITE_P(
    SixDegreeZones, BadZoneShorthand,
    testing::Values(TBadShorthand{"utm:61N", "zone 61 is outside 1 to 60"},
                    TBadShorthand{"utm:0S", "zone 0 is outside 1 to 60"},
                    TBadShorthand{"utm:99999999999N", "zone 99999999999 is outside 1 to 60"},
                    TBadShorthand{"utm:37",
                                  "the letter N (north) or S (south) is missing behind the zone@UTM"},
                    TBadShorthand{"utm:", "the zone is missing@UTM"},
                    TBadShorthand{"utm:N", "the zone is missing@UTM"},
                    TBadShorthand{"utm:xN", "zone \"x\" is not a whole number@UTM"},
                    TBadShorthand{"utm:3.5N", "zone \"3.5\" is not a whole number@UTM"},
                    TBadShorthand{"utm:37N:1", "\"1\" is one part too many@UTM"},
                    TBadShorthand{"gk:0", "zone 0 is outside 1 to 60"},
                    TBadShorthand{"gk:-7", "zone -7 is outside 1 to 60"},
                    TBadShorthand{"gk:+7", "zone \"+7\" is not a whole number@GK"},
                    TBadShorthand{"gk: 7", "zone \" 7\" is not a whole number@GK"},
                    TBadShorthand{"gk:7E", "zone \"7E\" is not a whole number@GK"},
                    TBadShorthand{"gk:7:", "\"\" is one part too many@GK"},
                    TBadShorthand{"gsk:61", "zone 61 is outside 1 to 60"}));

INSTANTIATE_TEST_SUITE_P(
    LocalGrids, BadZoneShorthand,
    testing::Values(
        TBadShorthand{"msk:17:1",
                      "region 17 has no grid; regions are 1 to 16, 18, 20 to 76, 83, 86, 87, 89, 124, "
                      "163 to 174, 1964, 3395"},
        TBadShorthand{"msk:x:1", "region \"x\" is not a whole number@MSK"},
        TBadShorthand{"msk::1", "the region is missing@MSK"},
        TBadShorthand{"msk:50", "the zone is missing@MSK"},
        TBadShorthand{"msk:50:", "the zone is missing@MSK"},
        TBadShorthand{"msk:50:2:", "the width is missing@MSK"},
        TBadShorthand{"msk:50:2:3:4", "\"4\" is one part too many@MSK"},
        TBadShorthand{"msk:50:0", "zone 0 is outside 1 to 120, zones of 3 degrees"},
        TBadShorthand{"msk:50:61:6", "zone 61 is outside 1 to 60, zones of 6 degrees"},
        TBadShorthand{"msk:50:2:0", "width 0 is not above 0 and up to 360 degrees"},
        TBadShorthand{"msk:50:2:-3", "width -3 is not above 0 and up to 360 degrees"},
        TBadShorthand{"msk:50:2:nan", "width nan is not above 0 and up to 360 degrees"},
        TBadShorthand{"msk:50:2:inf", "width inf is not above 0 and up to 360 degrees"},
        TBadShorthand{"msk:50:2:x", "width \"x\" is not a number of degrees@MSK"},
        TBadShorthand{"msk:50:2: 3", "width \" 3\" is not a number of degrees@MSK"},
        TBadShorthand{"sk63:H:1", "block \"H\" has no grid; blocks are C D E F G I J L M P Q R S T V W X"},
        TBadShorthand{"sk63:CC:1", "block \"CC\" has no grid; blocks are C D E F G I J L M P Q R S T V W X"},
        TBadShorthand{"sk63::1", "the block is missing@SK63"},
        TBadShorthand{"sk63:C", "the zone is missing@SK63"},
        TBadShorthand{"sk63:C:0", "zone 0 is outside 1 to 120, zones of 3 degrees"},
        TBadShorthand{"sk63:C:1:0", "width 0 is not above 0 and up to 360 degrees"},
        TBadShorthand{"sk63:C:1:1.5", "width \"1.5\" is not a whole number@SK63"}));

TEST(ZoneShorthand, AMisspeltOneIsToldThePrefixes) {
    std::string const hint = "zones begin with utm:, gk:, gsk:, msk: or sk63:, as in utm:37N";
    for (char const* const name : {"umt:37N", "utm37N", "UTM-37N", "gkk:7", "sk-63:C:1", "gk", "mks:50:2"}) {
        EXPECT_EQ(SuggestZoneShorthand(name), hint) << name;
    }
    for (char const* const name : {"wgs-84", "EPSG:4326", "./utm:37N", "maps/gk7.txt", "", ":7"}) {
        EXPECT_EQ(SuggestZoneShorthand(name), "") << name;
    }
}

TEST(ZoneShorthand, RangesAreShortAndComplete) {
    EXPECT_EQ(NumberRanges({1, 2, 3, 5, 7, 8}), "1 to 3, 5, 7, 8");
    EXPECT_EQ(NumberRanges({4}), "4");
    EXPECT_EQ(NumberRanges({}), "");
    EXPECT_EQ(SpacedLetters("CDE"), "C D E");
}

// --- Descriptions ------------------------------------------------------------------------------------------

std::string TextOf(std::string const& name) {
    return DescribeZone(ParseZoneShorthand(name));
}

TEST(ZoneDescription, BuildsEveryZoneOfEveryFamily) {
    std::vector<std::string> names;
    for (int zone = 1; zone <= 60; ++zone) {
        for (char const* const pattern : {"utm:%dN", "utm:%dS", "gk:%d", "gk:%dS", "gsk:%d", "gsk:%dS"}) {
            names.push_back(Replaced(pattern, "%d", std::to_string(zone)));
        }
    }
    for (int const region : KvRefSystem::GetMSKxxRegions()) {
        names.push_back("msk:" + std::to_string(region) + ":1");
    }
    for (char const block : KvRefSystem::GetSK63Blocks()) {
        names.push_back(std::string("sk63:") + block + ":1");
    }
    EXPECT_EQ(names.size(), 6u * 60 + 93 + 17);
    for (std::string const& name : names) {
        EXPECT_NO_THROW(LoadSystem(name, suTransform)) << name;
    }
}

TEST(ZoneDescription, HasTheCodesOfTheRegisters) {
    // EPSG: 326zz and 327zz, 28404 to 28432, 20904 to 20932; GeoTIFF: 160zz and 161zz.
    EXPECT_THAT(TextOf("utm:1N"), HasSubstr("(102005,0)[1]epsg\t32601\n"));
    EXPECT_THAT(TextOf("utm:60S"), HasSubstr("(102005,0)[1]epsg\t32760\n"));
    EXPECT_THAT(TextOf("utm:37N"), HasSubstr("(102007,0)[1]geotiff code\t16037\n"));
    EXPECT_THAT(TextOf("utm:56S"), HasSubstr("(102007,0)[1]geotiff code\t16156\n"));
    EXPECT_THAT(TextOf("gk:4"), HasSubstr("(102005,0)[1]epsg\t28404\n"));
    EXPECT_THAT(TextOf("gk:32"), HasSubstr("(102005,0)[1]epsg\t28432\n"));
    EXPECT_THAT(TextOf("gsk:7"), HasSubstr("(102005,0)[1]epsg\t20907\n"));
    EXPECT_THAT(TextOf("gsk:7"), HasSubstr("(102800,0)[1]panorama\t80020007\n"));
    for (char const* const name : {"gk:3", "gk:33", "gk:7S", "gsk:33", "gsk:7S", "msk:50:2", "sk63:C:1"}) {
        // What stands before the first subtree is the system's own.
        std::string const own = TextOf(name).substr(0, TextOf(name).find("\n\t"));
        EXPECT_EQ(own.find("102005"), std::string::npos) << name;
    }
    EXPECT_EQ(TextOf("gsk:7S").find("102800"), std::string::npos);
}

TEST(ZoneDescription, NamesTheZone) {
    std::map<std::string, std::string> const titles = {{"utm:37N", "WGS 84 / UTM zone 37N"},
                                                       {"utm:56S", "WGS 84 / UTM zone 56S"},
                                                       {"gk:7", "Pulkovo 1942 / Gauss-Kruger zone 7"},
                                                       {"gk:7S", "Pulkovo 1942 / Gauss-Kruger zone 7S"},
                                                       {"gsk:7", "GSK-2011 / Gauss-Kruger zone 7"},
                                                       {"msk:50:2", "MSK-50 zone 2"},
                                                       {"sk63:C:1", "SK-63 block C zone 1"}};
    for (auto const& [name, title] : titles) {
        EXPECT_THAT(TextOf(name), StartsWith("(0,0)" + title + "\n(1020,0)[1]name\t" + title + "\n"));
    }
    EXPECT_THAT(TextOf("gk:31"), HasSubstr("Central meridian -177 degrees"));
    EXPECT_THAT(TextOf("utm:31N"), HasSubstr("Central meridian 3 degrees"));
}

TEST(ZoneDescription, KeepsDatumAndMeridianAtTheRootForOperationsOnTheDescription) {
    // Without them there the three operations give 9.
    for (char const* const name : {"utm:37N", "gk:7", "gsk:7", "msk:50:2", "sk63:C:1"}) {
        TLoadedSystem const loaded = LoadSystem(name, suTransform);
        KvRefSystem::TStringTree geodetic;
        KvRefSystem::TStringTree geocentric;
        EXPECT_EQ(loaded.system->FillPrimaryGeodeticRefSystemTreeDeg(&geodetic), 0) << name;
        EXPECT_EQ(loaded.system->FillPrimaryGeocentricRefSystemTree(&geocentric), 0) << name;
    }
}

TEST(ZoneDescription, HasAMapInfoFormWhereTheProjectionHasOne) {
    for (char const* const name : {"utm:37N", "gk:7", "gsk:7"}) {
        EXPECT_THAT(TextOf(name), HasSubstr("(101001,0)[1]projection\t8\n")) << name;
        EXPECT_THAT(TextOf(name), HasSubstr("(101002,0)[1]unit\tm\n")) << name;
    }
    // The base system below has one of its own.
    EXPECT_EQ(TextOf("msk:50:2").find("\n\t(101000,0)"), std::string::npos);
    EXPECT_NE(TextOf("utm:37N").find("\n\t(101000,0)"), std::string::npos);
}

TEST(ZoneDescription, AsAFileIsTheSameSystem) {
    TTemporaryFolder const folder;
    for (char const* const name : {"utm:37N", "gk:7S", "gsk:7", "msk:50:2", "msk:72:1:1.5", "sk63:C:1"}) {
        TToolRun const shown = RunTool({"show", name, "--as", "text"});
        EXPECT_EQ(shown.status, 0);
        std::string const path = folder.Write("zone.txt", shown.out);
        EXPECT_TRUE(*LoadSystem(path, suTransform).system == *LoadSystem(name, suTransform).system) << name;
        EXPECT_EQ(RunTool({"show", path}).out, RunTool({"show", name}).out);
    }
}

// --- In the tool -------------------------------------------------------------------------------------------

/** Points of a run: the first two numbers of its first line. */
std::array<double, 2> MovedBy(std::string const& source, std::string const& target,
                              std::string const& point) {
    TRunSettings settings;
    settings.input = point + "\n";
    TToolRun const run = RunTool({"transform", source, target, "-p", "6"}, settings);
    EXPECT_EQ(run.err, "");
    std::size_t const comma = run.out.find(',');
    return {KvRefSystem::ParseLeadingDouble(run.out.c_str()),
            KvRefSystem::ParseLeadingDouble(run.out.c_str() + comma + 1)};
}

struct TZonePoint {
    char const* source;
    char const* target;
    char const* point;
    double first;
    double second;
};

void PrintTo(TZonePoint const& row, std::ostream* stream) {
    *stream << row.source << " to " << row.target;
}

class ZonePoint : public testing::TestWithParam<TZonePoint> {};

/** The series of the projection and PROJ's differ by less, in metres. */
constexpr double seriesDifference = 2e-3;

TEST_P(ZonePoint, LiesWhereProjPutsIt) {
    TZonePoint const& row = GetParam();
    std::array<double, 2> const moved = MovedBy(row.source, row.target, row.point);
    EXPECT_NEAR(moved[0], row.first, seriesDifference);
    EXPECT_NEAR(moved[1], row.second, seriesDifference);
}

INSTANTIATE_TEST_SUITE_P(
    OnOneDatum, ZonePoint,
    testing::Values(
        // echo "55.75 37.62 150" | cs2cs -f %.4f EPSG:4326 EPSG:32637
        TZonePoint{"wgs-84", "utm:37N", "55.75,37.62,150", 413380.7203, 6179118.1468},
        // echo "151.2 -33.5 20" | cct -d 4 +proj=utm +zone=56 +south +ellps=WGS84
        TZonePoint{"wgs-84", "utm:56S", "-33.5,151.2,20", 332795.4917, 6291830.8610},
        // echo "37.62 55.75 150" | cct -d 4 +proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass; northing first
        TZonePoint{"pulkovo-1942", "gk:7", "55.75,37.62,150", 6181699.0886, 7413344.6199},
        // echo "-178 66 0" | cct -d 4 +proj=tmerc +lon_0=-177 +x_0=31500000 +ellps=krass
        TZonePoint{"pulkovo-1942", "gk:31", "66,-178,0", 7323328.6364, 31454596.0621},
        // echo "37.62 -10 0" | cct -d 4 +proj=tmerc +lon_0=39 +x_0=7500000 +y_0=10000000 +ellps=krass
        TZonePoint{"pulkovo-1942", "gk:7S", "-10,37.62,0", 8893808.9064, 7348681.2765},
        // echo "37.62 55.75 150" | cct -d 4 +proj=tmerc +lon_0=39 +x_0=7500000 +ellps=GSK2011
        TZonePoint{"gsk-2011", "gsk:7", "55.75,37.62,150", 6181590.2298, 7413346.0650},
        // echo "37.62 55.75 150" | cct -d 4 +proj=tmerc +lon_0=38.483333333333334 +x_0=2250000
        //     +y_0=-5712900.566 +ellps=krass
        TZonePoint{"pulkovo-1942", "msk:50:2", "55.75,37.62,150", 468273.4735, 2195786.8919},
        // echo "68 57 0" | cct -d 4 +proj=tmerc +lon_0=67.58333333333333 +x_0=2500000 +y_0=-6000000
        //     +ellps=krass
        TZonePoint{"pulkovo-1942", "msk:72:2:1.5", "57,68,0", 320101.7492, 2525322.0734},
        // echo "28.5 57 0" | cct -d 4 +proj=tmerc +lon_0=27.95 +x_0=2250000 +y_0=-11057.628 +ellps=krass
        TZonePoint{"pulkovo-1942", "sk63:C:2", "57,28.5,0", 6309101.4497, 2283425.0481},
        // echo "31.5 57 0" | cct -d 4 +proj=tmerc +lon_0=30.95 +x_0=2250000 +y_0=-11057.628 +ellps=krass
        TZonePoint{"pulkovo-1942", "SK63:c:2:6", "57,31.5,0", 6309101.4497, 2283425.0481}));

INSTANTIATE_TEST_SUITE_P(
    BetweenDatums, ZonePoint,
    testing::Values(
        // echo "6181692 7413462 145" | cct -d 4 +proj=pipeline +step +proj=axisswap +order=2,1
        //     +step +inv +proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +step +proj=cart +ellps=krass
        //     +step +proj=helmert +convention=position_vector +x=23.57 +y=-140.95 +z=-79.8 +rx=0 +ry=0.35
        //     +rz=0.79 +s=-0.22 +step +inv +proj=cart +ellps=WGS84 +step +proj=utm +zone=37 +ellps=WGS84
        TZonePoint{"gk:7", "utm:37N", "6181692,7413462,145", 413380.5229, 6179118.1473}));

TEST(ZoneInTheTool, AFileOfTheSameNameIsReachedByItsPath) {
    TTemporaryFolder const folder;
    std::string const path = folder.Write("utm:37N", CatalogText("wgs-84"));
    EXPECT_THAT(RunTool({"show", path}).out, StartsWith("name                WGS 84\n"));
}

TEST(ZoneInTheTool, AMisspeltPrefixIsToldThePrefixes) {
    TToolRun const run = RunTool({"show", "umt:37N"});
    EXPECT_EQ(run.err,
              "vellari: \"umt:37N\" is neither a description file nor an entry of the catalogue; zones begin "
              "with utm:, gk:, gsk:, msk: or sk63:, as in utm:37N\n");
    EXPECT_EQ(run.status, 2);
}

TEST(ZoneInTheTool, ABadZoneIsOneLineAndStatusTwo) {
    TToolRun const run = RunTool({"transform", "wgs-84", "utm:61N"});
    EXPECT_EQ(run.err, "vellari: utm:61N: zone 61 is outside 1 to 60\n");
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.status, 2);
}

TEST(ZoneInTheTool, SummaryTellsProjectionParametersAndBase) {
    std::string const summary = RunTool({"show", "msk:50:2"}).out;
    for (char const* const line :
         {"kind                map-projected\n", "axes                Northing, Easting, Height\n",
          "plane unit          metre (m)\n", "height unit         metre (m)\n",
          "order of axes       northing, easting, height\n", "projection          MSK-50 zone 2\n",
          "  method            MSK, local grid of a region\n", "  parameter         zone number: 2\n",
          "  parameter         zone width in degrees: 3\n", "  parameter         region code: 50\n",
          "base system         Pulkovo 1942\n", "datum               Pulkovo 1942\n",
          "ellipsoid           Krassowsky 1940\n", "EPSG of base system 4284\n"}) {
        EXPECT_THAT(summary, HasSubstr(line));
    }
    EXPECT_THAT(RunTool({"show", "utm:37N"}).out, HasSubstr("  parameter         hemisphere: N\n"));
}

} // namespace
