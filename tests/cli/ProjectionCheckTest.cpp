#include "tools/vellari/ProjectionCheck.h"
#include "tests/cli/ToolRunner.h"
#include "tools/vellari/Catalog.h"
#include "tools/vellari/ProjectionNames.h"
#include "tools/vellari/SystemLoader.h"
#include "tools/vellari/ToolError.h"
#include "tools/vellari/ZoneDescription.h"
#include "tools/vellari/ZoneShorthand.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <random>

namespace {

using namespace KvRefSystem;
using namespace ToolTest;
using namespace VellariTool;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr char const* projection = "my.txt: subtree (1300,0) \"map projection\"";

/** @return the message about a description, or an empty text when it can be used for that. */
std::string MessageOf(std::string const& text, TSystemUse use = suTransform) {
    try {
        BuildSystem("my.txt", text, use);
        return "";
    } catch (TToolError const& failure) {
        return failure.what();
    }
}

std::string TextOf(TStringTree const& tree) {
    std::string text(tree.WriteToString(nullptr, 0, 0), '\0');
    tree.WriteToString(text.data(), 0, 0);
    return text;
}

/** @return a zone's description after a change. */
std::string Changed(std::string const& zone, std::function<void(TStringTree*)> const& change) {
    TStringTree tree;
    tree.ReadFromString(DescribeZone(ParseZoneShorthand(zone)).c_str(), nullptr, nullptr);
    change(&tree);
    return TextOf(tree);
}

/** @return a zone's description with another text in a field of its projection. */
std::string WithField(std::string const& zone, int tag, std::string const& text, int idx = 0) {
    return Changed(zone, [&](TStringTree* tree) {
        TStringTree* const fields = tree->FindSubtree(1300, 0);
        fields->DeleteField(tag, idx);
        fields->InsertString("changed", tag, idx, text);
    });
}

/** @return the same without the field. */
std::string WithoutField(std::string const& zone, int tag, int idx = 0) {
    return Changed(zone, [&](TStringTree* tree) {
        ASSERT_TRUE(tree->FindSubtree(1300, 0)->FindField(tag, idx)) << tag;
        tree->FindSubtree(1300, 0)->DeleteField(tag, idx);
    });
}

/** A text that every parameter of that key takes. */
std::string GoodText(TMapProjectionParameter const& parameter) {
    switch (parameter.Key) {
    case 6114:
        return "40";
    case 6115:
        return "50";
    case 6201:
    case 6205:
        return "1";
    case 6204:
        return "C";
    case 6206:
        return "3";
    case 6202:
    case 6203:
        return "N";
    default:
        break;
    }
    return parameter.Unit == utAngular ? "45" : "1";
}

/** @return a description with that type and a good text in each field. */
std::string DescriptionOfType(TMapProjectionType type, std::function<void(TStringTree*)> const& change = {}) {
    return Changed("utm:37N", [&](TStringTree* tree) {
        TStringTree* const fields = tree->FindSubtree(1300, 0);
        for (int const tag : {6001, 6201, 6202}) {
            fields->DeleteField(tag, 0);
        }
        fields->InsertInteger("type", 6001, 0, type);
        for (TMapProjectionParameter const& parameter : GetMapProjectionParameters(type)) {
            fields->InsertString("parameter", parameter.Key, 0, GoodText(parameter));
        }
        if (change) {
            change(fields);
        }
    });
}

/** All types that have a class. */
std::vector<TMapProjectionType> AllTypes() {
    std::vector<TMapProjectionType> types;
    for (int number = 1; number < 2000; ++number) {
        if (TMapProjection::IntToType(number) == number) {
            types.push_back(TMapProjectionType(number));
        }
    }
    return types;
}

// --- Every parameter of every type -------------------------------------------------------------------------

TEST(ProjectionCheck, GoodTextsOfEveryTypePass) {
    ASSERT_EQ(AllTypes().size(), 30u);
    for (TMapProjectionType const type : AllTypes()) {
        EXPECT_EQ(MessageOf(DescriptionOfType(type)), "") << type;
    }
}

TEST(ProjectionCheck, AMissingParameterIsNamedWithItsMeaning) {
    for (TMapProjectionType const type : AllTypes()) {
        for (TMapProjectionParameter const& parameter : GetMapProjectionParameters(type)) {
            std::string const text =
                DescriptionOfType(type, [&](TStringTree* fields) { fields->DeleteField(parameter.Key, 0); });
            std::string const expected = std::string(projection) +
                                         FormatText(" lacks field (%d,0), the ", parameter.Key) +
                                         ParameterName(parameter);
            for (TSystemUse const use : {suShow, suTransform}) {
                EXPECT_EQ(MessageOf(text, use), parameter.IsOptional ? "" : expected) << type;
            }
        }
    }
}

TEST(ProjectionCheck, ATextThatIsNoNumberIsShownWithItsMeaning) {
    for (TMapProjectionType const type : AllTypes()) {
        for (TMapProjectionParameter const& parameter : GetMapProjectionParameters(type)) {
            for (char const* const bad : {"x", "", "  "}) {
                if (parameter.IsOptional && *bad == '\0') {
                    continue; // counts as missing
                }
                std::string const text = DescriptionOfType(type, [&](TStringTree* fields) {
                    fields->DeleteField(parameter.Key, 0);
                    fields->InsertString("parameter", parameter.Key, 0, bad);
                });
                std::string const expected = std::string(projection) +
                                             FormatText(" has in field (%d,0), the ", parameter.Key) +
                                             ParameterName(parameter) + ", the text \"" + bad + "\" where ";
                for (TSystemUse const use : {suShow, suTransform}) {
                    EXPECT_THAT(MessageOf(text, use), StartsWith(expected)) << type;
                }
            }
        }
    }
}

TEST(ProjectionCheck, WhatStandsBehindANumberIsAMistakeForPoints) {
    // The library reads the beginning, so that such a system can be shown.
    std::string const text = DescriptionOfType(mptTransverseMercator, [](TStringTree* fields) {
        fields->DeleteField(6104, 0);
        fields->InsertString("parameter", 6104, 0, "500,000");
    });
    EXPECT_EQ(MessageOf(text, suShow), "");
    EXPECT_EQ(MessageOf(text), std::string(projection) +
                                   " has in field (6104,0), the false easting, the text \"500,000\" "
                                   "where a number is needed");
}

TEST(ProjectionCheck, AMissingUnitIsNamed) {
    struct TUnitRow {
        int tag;
        TShellUnitType kind;
        char const* meaning;
    };
    for (TUnitRow const& unit : {TUnitRow{6091, utLinear, "linear"}, TUnitRow{6090, utAngular, "angular"},
                                 TUnitRow{6092, utScale, "scale"}}) {
        for (TMapProjectionType const type : AllTypes()) {
            std::vector<TMapProjectionParameter> const parameters = GetMapProjectionParameters(type);
            bool const isNeeded = std::any_of(parameters.begin(), parameters.end(),
                                              [&unit](TMapProjectionParameter const& row) {
                                                  return row.Unit == unit.kind && !row.IsOptional;
                                              });
            std::string const text =
                DescriptionOfType(type, [&](TStringTree* fields) { fields->DeleteSubtree(unit.tag, 0); });
            std::string const expected = std::string(projection) +
                                         FormatText(" lacks subtree (%d,0), the projection's ", unit.tag) +
                                         unit.meaning + " unit";
            for (TSystemUse const use : {suShow, suTransform}) {
                EXPECT_EQ(MessageOf(text, use), isNeeded ? expected : "") << type;
            }
        }
    }
}

TEST(ProjectionCheck, ABrokenUnitIsNamed) {
    std::string const text = Changed("utm:37N", [](TStringTree* tree) {
        tree->FindSubtree(1300, 0)->FindSubtree(6090, 0)->DeleteField(5301, 0);
    });
    EXPECT_EQ(MessageOf(text),
              std::string(projection) + "/(6090,0) \"angular unit\" lacks field (5301,0), the unit's code");
}

/** @return a Transverse Mercator in degrees, minutes and seconds with a longitude of origin. */
std::string InSexagesimalUnit(std::string const& longitude) {
    TStringTree degrees;
    degrees.ReadFromString(CatalogText("wgs-84-dms").c_str(), nullptr, nullptr);
    return DescriptionOfType(mptTransverseMercator, [&](TStringTree* fields) {
        fields->DeleteSubtree(6090, 0);
        fields->InsertSubtree("angular unit", 6090, 0);
        degrees.FindSubtree(1106, 0)->CopyTo(fields->FindSubtree(6090, 0));
        // The first way of writing, without letters, since nobody says which axis a parameter belongs to.
        fields->FindSubtree(6090, 0)->DeleteField(5301, 0);
        fields->FindSubtree(6090, 0)->InsertInteger("code", 5301, 0, anDegreeMinuteSecond);
        fields->DeleteField(6101, 0);
        fields->InsertString("parameter", 6101, 0, longitude);
    });
}

TEST(ProjectionCheck, SexagesimalTextsGoThroughTheirUnit) {
    EXPECT_EQ(MessageOf(InSexagesimalUnit("5 23 15.5")), "");
    EXPECT_EQ(MessageOf(InSexagesimalUnit("east")),
              std::string(projection) +
                  " has in field (6101,0), the longitude of origin or central meridian, the text "
                  "\"east\" where an angle in its unit is needed");
    EXPECT_THAT(MessageOf(InSexagesimalUnit(" ")), HasSubstr("where an angle in its unit is needed"));
}

TEST(ProjectionCheck, AFieldThatStandsTwiceInTheUnitDoesNotSpoilTheAngle) {
    std::string const text = InSexagesimalUnit("5 23 15.5");
    std::size_t const name = text.find("(5320,0)", text.find("(6090,0)"));
    ASSERT_NE(name, std::string::npos);
    std::size_t const begin = text.rfind('\n', name) + 1;
    std::string const line = text.substr(begin, text.find('\n', begin) + 1 - begin);
    EXPECT_EQ(MessageOf(text.substr(0, begin) + line + text.substr(begin)), "");
}

// --- Zones, poles, regions ---------------------------------------------------------------------------------

struct TWrongZoneField {
    char const* zone;
    int tag;
    char const* text;
    char const* message;
};

void PrintTo(TWrongZoneField const& row, std::ostream* stream) {
    *stream << row.zone << " " << row.tag << " " << row.text;
}

class WrongZoneField : public testing::TestWithParam<TWrongZoneField> {};

TEST_P(WrongZoneField, IsNamedWithWhatWouldBeRight) {
    TWrongZoneField const& row = GetParam();
    std::string const expected =
        std::string(projection) + FormatText(" has in field (%d,0), the ", row.tag) + row.message;
    for (TSystemUse const use : {suShow, suTransform}) {
        EXPECT_EQ(MessageOf(WithField(row.zone, row.tag, row.text), use), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Fields, WrongZoneField,
    testing::Values(
        TWrongZoneField{"utm:37N", 6201, "0",
                        "zone number, the text \"0\" where a whole number from 1 on is needed"},
        TWrongZoneField{"gk:7", 6201, "-7",
                        "zone number, the text \"-7\" where a whole number from 1 on is needed"},
        TWrongZoneField{"utm:37N", 6202, "north", "hemisphere, the text \"north\" where N or S is needed"},
        TWrongZoneField{"gk:7", 6202, "", "hemisphere, the text \"\" where N or S is needed"},
        TWrongZoneField{"msk:50:2", 6206, "0",
                        "zone width in degrees, the text \"0\" where a number above 0 is needed"},
        TWrongZoneField{"sk63:C:1", 6206, "0",
                        "zone width in degrees, the text \"0\" where a whole number from 1 on is needed"},
        TWrongZoneField{
            "msk:50:2", 6205, "17",
            "region code, the text \"17\" where a region with a grid (1 to 16, 18, 20 to 76, 83, 86, 87, 89, "
            "124, 163 to 174, 1964, 3395) is needed"},
        TWrongZoneField{"sk63:C:1", 6204, "H",
                        "block letter, the text \"H\" where one of the letters C D E F G I J L M P Q R S T V "
                        "W X is needed"},
        TWrongZoneField{
            "sk63:C:1", 6204, "c",
            "block letter, the text \"c\" where one of the letters C D E F G I J L M P Q R S T V W X is "
            "needed"}));

TEST(ProjectionCheck, OnlyTheFirstLetterOfAHemisphereCounts) {
    EXPECT_EQ(MessageOf(WithField("utm:37N", 6202, "North")), "");
    EXPECT_EQ(MessageOf(WithField("utm:37N", 6202, "South")), "");
}

TEST(ProjectionCheck, APoleIsNOrS) {
    std::string const text = DescriptionOfType(mptPolarStereographicBasic, [](TStringTree* fields) {
        fields->DeleteField(6203, 0);
        fields->InsertString("pole", 6203, 0, "north");
    });
    EXPECT_EQ(MessageOf(text, suShow),
              std::string(projection) +
                  " has in field (6203,0), the pole, the text \"north\" where N or S is needed");
}

// --- What a method refuses ---------------------------------------------------------------------------------

/** @return a cone with two parallels. */
std::string Cone(TMapProjectionType type, char const* first, char const* second) {
    return DescriptionOfType(type, [&](TStringTree* fields) {
        fields->DeleteField(6114, 0);
        fields->DeleteField(6115, 0);
        fields->InsertString("parameter", 6114, 0, first);
        fields->InsertString("parameter", 6115, 0, second);
    });
}

TEST(ProjectionCheck, AConeNeedsTwoParallelsThatAreNoMirrorImages) {
    for (TMapProjectionType const type : {mptLambertConicConformal2SP, mptLambertConicConformal2SPBelgium}) {
        std::string const expected =
            std::string(projection) +
            " has in field (6115,0), the second standard parallel, the text \"-40\" where "
            "another parallel than the first one and its mirror image is needed";
        EXPECT_EQ(MessageOf(Cone(type, "40", "-40"), suShow), expected);
        EXPECT_EQ(MessageOf(Cone(type, "40", "-40")), expected);
    }
    for (TMapProjectionType const type :
         {mptLambertConicConformal2SP, mptAlbersEqualAreaConic, mptEquidistantConic}) {
        // Such a cone builds and gives no numbers.
        EXPECT_THAT(MessageOf(Cone(type, "40", "40.0")),
                    HasSubstr("the text \"40.0\" where another parallel"));
    }
}

TEST(ProjectionCheck, AConeOfOneParallelHasItOffTheEquator) {
    std::string const text = DescriptionOfType(mptLambertConicConformal1SP, [](TStringTree* fields) {
        fields->DeleteField(6102, 0);
        fields->InsertString("parameter", 6102, 0, "0.0");
    });
    EXPECT_EQ(MessageOf(text, suShow), std::string(projection) +
                                           " has in field (6102,0), the latitude of origin, the "
                                           "text \"0.0\" where a latitude off the equator is needed");
}

// --- The system around the projection ----------------------------------------------------------------------

TEST(ProjectionCheck, AnUnknownTypeIsToldTheKnownOnes) {
    EXPECT_EQ(MessageOf(WithField("utm:37N", 6001, "99"), suShow),
              std::string(projection) +
                  " has in field (6001,0), the type of the projection, the text \"99\" where a type "
                  "of 1 to 18, 21 to 26, 101, 1001 to 1004, 1201, 1313 is needed");
    EXPECT_THAT(MessageOf(WithField("utm:37N", 6001, "UTM"), suShow),
                HasSubstr("the text \"UTM\" where a type of"));
    EXPECT_EQ(MessageOf(WithoutField("utm:37N", 6001), suShow),
              std::string(projection) + " lacks field (6001,0), the type of the projection");
}

TEST(ProjectionCheck, TheOlderNumberOfKrovakIsKnown) {
    EXPECT_TRUE(IsKnownProjection(18));
    EXPECT_EQ(MessageOf(DescriptionOfType(mptKrovak,
                                          [](TStringTree* fields) {
                                              fields->DeleteField(6001, 0);
                                              fields->InsertInteger("type", 6001, 0, 18);
                                          })),
              "");
}

TEST(ProjectionCheck, OrderAndSignsOfTheAxesAreNeeded) {
    EXPECT_EQ(MessageOf(WithoutField("utm:37N", 1400), suShow),
              std::string(projection) +
                  " lacks field (1400,0), whether northings come first (1) or eastings (0)");
    EXPECT_EQ(MessageOf(WithoutField("utm:37N", 1401), suShow),
              std::string(projection) + " lacks field (1401,0), the sign of the first axis");
    EXPECT_EQ(MessageOf(WithoutField("utm:37N", 1401, 1), suShow),
              std::string(projection) + " lacks field (1401,1), the sign of the second axis");
    EXPECT_EQ(MessageOf(WithField("utm:37N", 1400, "yes"), suShow),
              std::string(projection) +
                  " has in field (1400,0), whether northings come first (1) or eastings (0), the "
                  "text \"yes\" where a whole number is needed");
}

TEST(ProjectionCheck, ASignThatWouldScaleCoordinatesCanBeShownAndNotUsed) {
    std::string const text = WithField("utm:37N", 1401, "2", 1);
    EXPECT_EQ(MessageOf(text, suShow), "");
    EXPECT_EQ(MessageOf(text), std::string(projection) +
                                   " has in field (1401,1), the sign of the second axis, the text "
                                   "\"2\" where 1 or -1 is needed");
    EXPECT_THAT(MessageOf(WithField("utm:37N", 1401, "0")), HasSubstr("where 1 or -1 is needed"));
}

struct TMissingTree {
    int tag;
    char const* meaning;
};

TEST(ProjectionCheck, ThePartsOfTheSystemAreNeeded) {
    for (TMissingTree const& part :
         {TMissingTree{1104, "the linear unit"}, TMissingTree{1121, "the geodetic system below the grid"},
          TMissingTree{1300, "the map projection"}}) {
        std::string const text =
            Changed("gk:7", [&part](TStringTree* tree) { tree->DeleteSubtree(part.tag, 0); });
        for (TSystemUse const use : {suShow, suTransform}) {
            EXPECT_EQ(MessageOf(text, use),
                      FormatText("my.txt: the description lacks subtree (%d,0), %s", part.tag, part.meaning));
        }
    }
}

TEST(ProjectionCheck, TheGeodeticSystemIsCheckedInItsPlace) {
    std::string const text = Changed("gk:7", [](TStringTree* tree) {
        tree->FindSubtree(1121, 0)->FindSubtree(1107, 0)->FindSubtree(5610, 0)->DeleteField(5110, 0);
    });
    EXPECT_EQ(MessageOf(text, suShow), "my.txt: subtree (1121,0) \"primary reference system\"/(1107,0) "
                                       "\"datum\"/(5610,0) \"ellipsoid\" lacks "
                                       "field (5110,0), the semi-major axis");
}

TEST(ProjectionCheck, TheGeodeticSystemHasAKindOfItsOwn) {
    std::string const text =
        Changed("gk:7", [](TStringTree* tree) { tree->FindSubtree(1121, 0)->DeleteField(1100, 0); });
    EXPECT_EQ(MessageOf(text, suShow),
              "my.txt: subtree (1121,0) \"primary reference system\" lacks field (1100,0), the "
              "kind of the system");
}

TEST(ProjectionCheck, ABrokenUnitOfHeightsIsNamedThoughNoneWouldDo) {
    std::string const text = Changed("gk:7", [](TStringTree* tree) {
        tree->FindSubtree(1121, 0)->FindSubtree(1201, 0)->FindSubtree(1104, 0)->DeleteField(5320, 0);
    });
    EXPECT_EQ(MessageOf(text, suShow),
              "my.txt: subtree (1121,0) \"primary reference system\"/(1201,0) \"vertical reference "
              "system\"/(1104,0) \"height linear unit\" lacks field (5320,0), the unit's name");
}

TEST(ProjectionCheck, ADatumAndAMeridianAtTheRootAreNotNeeded) {
    std::string const text = Changed("gk:7", [](TStringTree* tree) {
        tree->DeleteSubtree(1101, 0);
        tree->DeleteSubtree(1107, 0);
    });
    EXPECT_EQ(MessageOf(text), "");
}

TEST(ProjectionCheck, ASummaryNeedsNoUnitOfHeights) {
    std::string const text = Changed("gk:7", [](TStringTree* tree) {
        tree->FindSubtree(1121, 0)->FindSubtree(1201, 0)->DeleteSubtree(1104, 0);
    });
    TTemporaryFolder const folder;
    TToolRun const run = RunTool({"show", folder.Write("my.txt", text)});
    EXPECT_THAT(run.out, HasSubstr("height unit         none\n"));
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(MessageOf(text), HasSubstr("lacks subtree (1104,0), the unit of heights"));
}

TEST(ProjectionCheck, EveryEntryAndZonePasses) {
    for (char const* const name :
         {"utm:37N", "utm:56S", "gk:7", "gsk:7", "msk:50:2", "msk:124:1", "sk63:C:1"}) {
        EXPECT_EQ(MessageOf(DescribeZone(ParseZoneShorthand(name))), "") << name;
    }
    for (EmbeddedFile const& entry : embeddedCatalog()) {
        EXPECT_EQ(MessageOf(std::string(entry.text)), "") << entry.name;
    }
}

TEST(ProjectionCheck, NoMessageIsOnlyTheConstructorsText) {
    for (std::string const& good :
         {DescribeZone(ParseZoneShorthand("gk:7")), DescribeZone(ParseZoneShorthand("msk:50:2")),
          CatalogText("british-national-grid"), CatalogText("wgs-84")}) {
        for (std::size_t at = good.find('\n'); at + 1 < good.size(); at = good.find('\n', at + 1)) {
            // One line less: a field, the head of a subtree or its end.
            std::size_t const end = std::min(good.find('\n', at + 1), good.size());
            std::string const text = good.substr(0, at) + good.substr(end);
            EXPECT_THAT(MessageOf(text, suShow), Not(HasSubstr("::"))) << good.substr(at + 1, end - at - 1);
        }
    }
}

TEST(ProjectionCheck, EveryPrefixIsASystemOrOneLine) {
    std::string const text = DescribeZone(ParseZoneShorthand("msk:50:2"));
    for (std::size_t length = 0; length < text.size(); length += 3) {
        EXPECT_EQ(MessageOf(text.substr(0, length)).find('\n'), std::string::npos) << length;
    }
}

TEST(ProjectionCheck, RandomBytesAreASystemOrOneLine) {
    std::mt19937 random(1963);
    std::string const good = CatalogText("british-national-grid");
    for (int round = 0; round < 500; ++round) {
        std::string text = good;
        for (int change = 0; change < 1 + round % 8; ++change) {
            text[random() % text.size()] = static_cast<char>(random() % 256);
        }
        EXPECT_EQ(MessageOf(text).find('\n'), std::string::npos) << round;
    }
}

TEST(ProjectionNames, EveryTypeHasAName) {
    for (TMapProjectionType const type : AllTypes()) {
        EXPECT_NE(ProjectionMethodName(type), "unknown") << type;
    }
    EXPECT_EQ(ProjectionMethodName(99), "unknown");
}

} // namespace
