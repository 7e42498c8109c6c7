#include "tests/cli/ToolRunner.h"
#include "tools/vellari/SystemLoader.h"
#include "tools/vellari/ToolError.h"

#include <gmock/gmock.h>

#include <functional>
#include <random>

namespace {

using namespace KvRefSystem;
using namespace ToolTest;
using namespace VellariTool;
using testing::HasSubstr;
using testing::Not;

/** @return the message about a description, or an empty text when it can be used for that. */
std::string MessageOf(std::string const& text, TSystemUse use = suTransform) {
    try {
        BuildSystem("my.txt", text, use);
        return "";
    } catch (TToolError const& failure) {
        return failure.what();
    }
}

std::string Changed(std::string const& text, std::function<void(TStringTree*)> const& change) {
    TStringTree tree;
    tree.ReadFromString(text.c_str(), nullptr, nullptr);
    change(&tree);
    std::string result(tree.WriteToString(nullptr, 0, 0), '\0');
    tree.WriteToString(result.data(), 0, 0);
    return result;
}

std::string WithText(std::string const& text, int tag, int idx, std::string const& value) {
    return Changed(text, [&](TStringTree* tree) {
        tree->DeleteField(tag, idx);
        tree->InsertString("changed", tag, idx, value);
    });
}

/** A sphere of 6371 km below a plane in metres, with the fields of an ellipsoid, as the library wants them. */
std::string CurvedText() {
    std::string const unit =
        "(5301,0)[1]code\t0\n\t\t(5312,0)[1]type\t1\n\t\t(5310,0)[1]f_b\t1\n\t\t(5311,0)[1]f_c"
        "\t1\n\t\t(5320,0)[1]name\tkm\n\t\t(5321,0)[1]abbr\tkm\n\t\t(5322,0)[1]desc\t\n\t\t\n";
    std::string kilometre = Replaced(unit, "f_b\t1", "f_b\t1000");
    std::string const sphere = "\t(1103,0)sphere\n\t(5120,0)[1]name\tearth\n\t(5121,0)[1]desc\t\n"
                               "\t(5110,0)[1]radius\t6371\n\t(5111,0)[1]minor\t\n\t(5114,0)[1]flattening\t0\n"
                               "\t(5115,0)[1]sphere\t1\n\t\t(5113,0)unit\n\t\t" +
                               kilometre + "\t\n";
    std::string text = Replaced(CatalogText("local-metres"), "type\t1\n", "type\t2\n");
    return Replaced(text, "\t(1104,0)", sphere + "\t(1104,0)");
}

TToolRun Move(std::string const& source, std::string const& target, std::string const& points,
              std::vector<std::string> const& options = {}) {
    std::vector<std::string> arguments = {"transform", source, target};
    arguments.insert(arguments.end(), options.begin(), options.end());
    TRunSettings settings;
    settings.input = points;
    return RunTool(arguments, settings);
}

// --- Columns -----------------------------------------------------------------------------------------------

TEST(ColumnsOfAKind, HaveNamesOfTheirOwn) {
    struct TColumns {
        char const* source;
        char const* target;
        char const* header;
    };
    for (TColumns const& row : {TColumns{"wgs-84", "wgs-84-geocentric", "x_m,y_m,z_m\n"},
                                {"wgs-84", "topocentric-moscow", "east_m,north_m,up_m\n"},
                                {"local-metres", "local-metres", "x_m,y_m,h_m\n"}}) {
        EXPECT_THAT(Move(row.source, row.target, "1,2,3\n", {"--header", "always"}).out,
                    testing::StartsWith(row.header));
    }
}

// By PROJ's cart, and by its topocentric behind it.
TEST(PointsOfAKind, MeetProjsNumbers) {
    EXPECT_EQ(Move("wgs-84", "wgs-84-geocentric", "55.75,37.62,150\n", {"-p", "6"}).out,
              "2849867.133097,2196278.332944,5248950.857964\n");
    EXPECT_EQ(
        Move("wgs-84-geocentric", "wgs-84", "2849867.133097,2196278.332944,5248950.857964\n", {"-p", "5"})
            .out,
        "55.75000,37.62000,150.00000\n");
    EXPECT_EQ(Move("wgs-84", "topocentric-moscow", "55.8,37.7,300\n", {"-p", "5"}).out,
              "4930.09884,5287.57873,145.90777\n");
    EXPECT_EQ(
        Move("topocentric-moscow", "wgs-84-geocentric", "4930.098838,5287.578733,145.907766\n", {"-p", "3"})
            .out,
        Move("wgs-84", "wgs-84-geocentric", "55.8,37.7,300\n", {"-p", "3"}).out);
}

TEST(PointsOfAKind, NeedAHeightWhereItIsNoneOfItsOwn) {
    TToolRun const run = Move("wgs-84", "wgs-84-geocentric", "55.75,37.62\n55.75,37.62,150\n");
    EXPECT_EQ(run.out, ",\n2849867.133,2196278.333,5248950.858\n");
    EXPECT_EQ(run.err,
              "vellari: standard input, line 1: height is empty; a geocentric system needs all three "
              "coordinates, in \"55.75,37.62\"\nvellari: 1 of 2 points could not be transformed\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(Move("wgs-84-geocentric", "wgs-84", "1,2,\n").err,
                HasSubstr("z is empty; a geocentric system needs all three coordinates"));
    EXPECT_THAT(Move("topocentric-moscow", "utm:37N", "1,2,\n").err,
                HasSubstr("up is empty; a topocentric system needs all three coordinates"));
    EXPECT_THAT(Move("local-metres", "local-metres", "1,2,\n").err,
                HasSubstr("h is empty; a local Cartesian system needs all three coordinates"));
}

TEST(PointsOfAKind, NoRoadLeadsBetweenALocalAndAnEarthBoundSystem) {
    TToolRun const run = Move("local-metres", "wgs-84", "1,2,3\n");
    EXPECT_EQ(run.err, "vellari: no road leads between local-metres, a local Cartesian system, and wgs-84, a "
                       "geodetic system: the first one isn't tied to the earth\n");
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(Move("wgs-84", "local-metres", "1,2,3\n").err, run.err);
}

TEST(PointsOfAKind, ACurvedSystemBendsThePlane) {
    TTemporaryFolder const folder;
    std::string const curved = folder.Write("curved.txt", CurvedText());
    // 10 - (1000^2 + 2000^2) / (2 * 6371000).
    EXPECT_EQ(Move(curved, "local-metres", "1000,2000,10\n", {"-p", "6"}).out,
              "1000.000000,2000.000000,9.607597\n");
    EXPECT_EQ(Move("local-metres", curved, "1000,2000,9.607597\n", {"-p", "5"}).out,
              "1000.00000,2000.00000,10.00000\n");
}

// --- show --------------------------------------------------------------------------------------------------

TEST(SummaryOfAKind, TellsWhatMakesIt) {
    std::string const frame = RunTool({"show", "topocentric-moscow"}).out;
    for (char const* const line :
         {"kind                topocentric\n", "unit                metre (m)\n",
          "order of axes       east, north, up\n", "orientation         right-handed\n",
          "origin              55.752536, 37.621392, 150\n", "base system         WGS 84\n",
          "ellipsoid           WGS 84\n", "EPSG of base system 4326\n"}) {
        EXPECT_THAT(frame, HasSubstr(line));
    }
    std::string const local = RunTool({"show", "local-metres"}).out;
    EXPECT_THAT(local, HasSubstr("orientation         right-handed\nplace on the earth  none\n"));
    EXPECT_THAT(local, Not(HasSubstr("shift to WGS 84")));
    EXPECT_THAT(RunTool({"show", "etrs89-geocentric"}).out, HasSubstr("EPSG code           4936\n"));
    TTemporaryFolder const folder;
    std::string const turned =
        folder.Write("t.txt", WithText(CatalogText("topocentric-moscow"), 1122, 0, "30"));
    EXPECT_THAT(RunTool({"show", turned}).out, HasSubstr("azimuth             30 deg\n"));
    std::string const curved = folder.Write("c.txt", CurvedText());
    EXPECT_THAT(RunTool({"show", curved}).out,
                HasSubstr("sphere's radius     6371 km\ncentre              none\n"));
    std::string const centred =
        folder.Write("d.txt", WithText(WithText(CurvedText(), 1120, 0, "10"), 1120, 1, "20"));
    EXPECT_THAT(RunTool({"show", centred}).out, HasSubstr("centre              10, 20\n"));
}

// --- Descriptions ------------------------------------------------------------------------------------------

TEST(DescriptionOfAKind, WithoutMistakesHasNone) {
    for (char const* const name :
         {"wgs-84-geocentric", "etrs89-geocentric", "topocentric-moscow", "local-metres"}) {
        EXPECT_EQ(MessageOf(CatalogText(name)), "") << name;
    }
    EXPECT_EQ(MessageOf(CurvedText()), "");
}

struct TMissing {
    char const* name; ///< entry; empty: the curved system
    std::vector<int> way;
    bool isTree;
    int tag;
    int idx;
    char const* message;
};

class MissingPart : public testing::TestWithParam<TMissing> {};

TEST_P(MissingPart, IsNamed) {
    TMissing const& row = GetParam();
    std::string const text =
        Changed(*row.name ? CatalogText(row.name) : CurvedText(), [&row](TStringTree* tree) {
            for (int const tag : row.way) {
                tree = tree->FindSubtree(tag, 0);
                ASSERT_NE(tree, nullptr) << tag;
            }
            if (row.isTree) {
                tree->DeleteSubtree(row.tag, row.idx);
            } else {
                tree->DeleteField(row.tag, row.idx);
            }
        });
    EXPECT_EQ(MessageOf(text, suShow), std::string("my.txt: ") + row.message);
}

INSTANTIATE_TEST_SUITE_P(
    Geocentric, MissingPart,
    testing::Values(
        TMissing{"wgs-84-geocentric", {}, false, 1020, 0, "the description lacks field (1020,0), the name"},
        TMissing{"wgs-84-geocentric",
                 {},
                 true,
                 1104,
                 0,
                 "the description lacks subtree (1104,0), the linear unit"},
        TMissing{"wgs-84-geocentric",
                 {1104},
                 false,
                 5301,
                 0,
                 "subtree (1104,0) \"linear unit\" lacks field (5301,0), the unit's code"},
        TMissing{"wgs-84-geocentric",
                 {1107},
                 true,
                 5610,
                 0,
                 "subtree (1107,0) \"datum\" lacks subtree (5610,0), the datum's ellipsoid"}));

INSTANTIATE_TEST_SUITE_P(
    Topocentric, MissingPart,
    testing::Values(TMissing{"topocentric-moscow",
                             {},
                             false,
                             1400,
                             0,
                             "the description lacks field (1400,0), whether the axes are left-handed (1) or "
                             "right-handed (0)"},
                    TMissing{"topocentric-moscow",
                             {},
                             true,
                             1121,
                             0,
                             "the description lacks subtree (1121,0), the geodetic system below the frame"},
                    TMissing{"topocentric-moscow",
                             {},
                             true,
                             1104,
                             0,
                             "the description lacks subtree (1104,0), the linear unit"},
                    TMissing{"topocentric-moscow",
                             {},
                             false,
                             1120,
                             0,
                             "the description lacks field (1120,0), the origin's latitude"},
                    TMissing{"topocentric-moscow",
                             {},
                             false,
                             1120,
                             1,
                             "the description lacks field (1120,1), the origin's longitude"},
                    TMissing{"topocentric-moscow",
                             {},
                             false,
                             1120,
                             2,
                             "the description lacks field (1120,2), the origin's height, which may be empty"},
                    TMissing{
                        "topocentric-moscow",
                        {1121},
                        true,
                        1106,
                        0,
                        "subtree (1121,0) \"primary reference system\" lacks subtree (1106,0), the angular "
                        "unit"}));

INSTANTIATE_TEST_SUITE_P(
    Local, MissingPart,
    testing::Values(
        TMissing{"local-metres",
                 {},
                 false,
                 1400,
                 0,
                 "the description lacks field (1400,0), whether the axes are left-handed (1) or "
                 "right-handed (0)"},
        TMissing{
            "local-metres", {}, true, 1104, 0, "the description lacks subtree (1104,0), the linear unit"},
        TMissing{"", {}, true, 1103, 0, "the description lacks subtree (1103,0), the sphere"},
        TMissing{"",
                 {1103},
                 false,
                 5110,
                 0,
                 "subtree (1103,0) \"sphere\" lacks field (5110,0), the sphere's radius"},
        TMissing{"",
                 {1103},
                 false,
                 5114,
                 0,
                 "subtree (1103,0) \"sphere\" lacks field (5114,0), whether there is an inverse "
                 "flattening (1) or not (0)"},
        TMissing{"",
                 {1103},
                 true,
                 5113,
                 0,
                 "subtree (1103,0) \"sphere\" lacks subtree (5113,0), the unit of the sphere's radius"},
        TMissing{"", {}, true, 1104, 0, "the description lacks subtree (1104,0), the linear unit"}));

TEST(DescriptionOfAKind, AnOriginOrAzimuthThatDoesNotParseIsShown) {
    std::string const text = CatalogText("topocentric-moscow");
    EXPECT_EQ(
        MessageOf(WithText(text, 1120, 0, "north"), suShow),
        "my.txt: the description has in field (1120,0), the origin's latitude, the text \"north\" where a "
        "number is needed");
    EXPECT_EQ(
        MessageOf(WithText(text, 1120, 1, "37,6")),
        "my.txt: the description has in field (1120,1), the origin's longitude, the text \"37,6\" where a "
        "number is needed");
    EXPECT_EQ(MessageOf(WithText(text, 1120, 2, "high"), suShow),
              "my.txt: the description has in field (1120,2), the origin's height, the text \"high\" where a "
              "number is needed");
    EXPECT_EQ(MessageOf(WithText(text, 1122, 0, "NE"), suShow),
              "my.txt: the description has in field (1122,0), the azimuth, the text \"NE\" where a number is "
              "needed");
    EXPECT_EQ(MessageOf(WithText(text, 1120, 2, "")), "");
    EXPECT_EQ(MessageOf(WithText(text, 1122, 0, "")), "");
}

TEST(DescriptionOfAKind, ABaseInDegreesMinutesAndSecondsTakesThem) {
    std::string const base = CatalogText("wgs-84-dms");
    std::string const text = Changed(CatalogText("topocentric-moscow"), [&base](TStringTree* tree) {
        TStringTree dms;
        dms.ReadFromString(base.c_str(), nullptr, nullptr);
        TStringTree* const below = tree->FindSubtree(1121, 0);
        below->DeleteSubtree(1106, 0);
        below->InsertSubtree("angular units", 1106, 0);
        dms.FindSubtree(1106, 0)->CopyTo(below->FindSubtree(1106, 0));
    });
    std::string const good = WithText(WithText(text, 1120, 0, "55 45 9 N"), 1120, 1, "37 37 17 E");
    EXPECT_EQ(MessageOf(WithText(good, 1122, 0, "30 0 0 N")), "");
    EXPECT_THAT(MessageOf(WithText(text, 1120, 0, "north")),
                HasSubstr("the origin's latitude, the text \"north\" where an angle in its unit is needed"));
    EXPECT_THAT(MessageOf(WithText(good, 1122, 0, "thirty")),
                HasSubstr("the azimuth, the text \"thirty\" where an angle in its unit is needed"));
}

TEST(DescriptionOfAKind, AFieldThatStandsTwiceInTheBasesUnitIsRead) {
    std::string const text = CatalogText("topocentric-moscow");
    std::size_t const unit = text.find("(1106,0)");
    ASSERT_NE(unit, std::string::npos);
    std::size_t const code = text.find("\t\t(5301,0)", unit);
    std::string const line = text.substr(code, text.find('\n', code) + 1 - code);
    std::string const twice = text.substr(0, code) + line + text.substr(code);

    EXPECT_EQ(MessageOf(twice), "");
    EXPECT_THAT(MessageOf(WithText(twice, 1120, 0, "north")), HasSubstr("the origin's latitude"));
}

TEST(DescriptionOfAKind, ASphereOfRadiusZeroCanBeShownAndNotUsed) {
    std::string const text = Replaced(CurvedText(), "radius\t6371", "radius\t0");
    EXPECT_EQ(MessageOf(text, suShow), "");
    EXPECT_EQ(MessageOf(text),
              "my.txt: subtree (1103,0) \"sphere\" has in field (5110,0), the sphere's radius, the "
              "text \"0\" where a number other than 0 is needed");
    EXPECT_THAT(MessageOf(Replaced(CurvedText(), "radius\t6371", "radius\tbig"), suShow),
                HasSubstr("the sphere's radius, the text \"big\" where a number is needed"));
}

TEST(DescriptionOfAKind, ACentreThatDoesNotParseIsShown) {
    EXPECT_EQ(MessageOf(WithText(WithText(CurvedText(), 1120, 0, "10"), 1120, 1, "x"), suShow),
              "my.txt: the description has in field (1120,1), the centre's second coordinate, the text \"x\" "
              "where a "
              "number is needed");
    // One field alone is no centre.
    EXPECT_EQ(MessageOf(WithText(CurvedText(), 1120, 0, "x")), "");
}

TEST(DescriptionOfAKind, ANumberBeyondTheKindsIsNamed) {
    for (char const* const number : {"0", "7", "-1"}) {
        EXPECT_EQ(MessageOf(WithText(CatalogText("local-metres"), 1100, 0, number), suShow),
                  std::string("my.txt: field (1100,0), the kind of the system, is ") + number +
                      "; kinds are 1 to 6");
    }
}

TEST(DescriptionOfAKind, RandomBytesAreASystemOrOneLine) {
    std::mt19937 random(20260101);
    std::string const texts[] = {CatalogText("wgs-84-geocentric"), CatalogText("topocentric-moscow"),
                                 CatalogText("local-metres"), CurvedText()};
    for (std::string const& good : texts) {
        for (int round = 0; round < 300; ++round) {
            std::string text = good;
            for (int change = 0; change < 1 + round % 8; ++change) {
                text[random() % text.size()] = static_cast<char>(random() % 256);
            }
            EXPECT_EQ(MessageOf(text).find('\n'), std::string::npos) << round;
        }
    }
}

} // namespace
