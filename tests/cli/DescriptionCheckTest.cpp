#include "tests/cli/ToolRunner.h"
#include "tools/vellari/SystemLoader.h"
#include "tools/vellari/ToolError.h"

#include <gmock/gmock.h>

#include <random>

namespace {

using namespace ToolTest;
using namespace VellariTool;
using testing::HasSubstr;

/** @return the message about a description, or an empty text when it can be used for that. */
std::string MessageOf(std::string const& text, TSystemUse use = suTransform) {
    try {
        BuildSystem("my.txt", text, use);
        return "";
    } catch (TToolError const& failure) {
        return failure.what();
    }
}

/** One thing that a description must hold: what to take out of SK-42, and what the tool then says. */
struct TRequiredPart {
    int path[3]; ///< tags of the subtrees on the way; 0 ends it
    bool isTree; ///< the part is a subtree
    int tag;
    bool onlyToUse; ///< without it a system builds but can't move points
    char const* message;
};

constexpr char const* datum = "subtree (1107,0) \"datum\"";
constexpr char const* shift = "subtree (1107,0) \"datum\"/(1102,0) \"datum shift\"";

void PrintTo(TRequiredPart const& part, std::ostream* stream) {
    *stream << part.message;
}

/** @return the text without the part. */
std::string Without(std::string const& text, TRequiredPart const& part) {
    KvRefSystem::TStringTree tree;
    tree.ReadFromString(text.c_str(), nullptr, nullptr);
    KvRefSystem::TStringTree* place = &tree;
    for (int const tag : part.path) {
        place = tag == 0 ? place : place->FindSubtree(tag, 0);
        if (!place) {
            ADD_FAILURE() << "no subtree " << tag;
            return text;
        }
    }
    bool const exists =
        part.isTree ? place->FindSubtree(part.tag, 0) != nullptr : place->FindField(part.tag, 0) != nullptr;
    EXPECT_TRUE(exists) << part.tag;
    if (part.isTree) {
        place->DeleteSubtree(part.tag, 0);
    } else {
        place->DeleteField(part.tag, 0);
    }
    std::string result(tree.WriteToString(nullptr, 0, 0), '\0');
    tree.WriteToString(result.data(), 0, 0);
    return result;
}

class RequiredPart : public testing::TestWithParam<TRequiredPart> {};

TEST_P(RequiredPart, IsNamedWithFileTagAndSubtreeWhenItIsMissing) {
    TRequiredPart const& part = GetParam();
    std::string const text = Without(CatalogText("pulkovo-1942"), part);
    EXPECT_EQ(MessageOf(text), std::string("my.txt: ") + part.message);
    EXPECT_EQ(MessageOf(text, suShow), part.onlyToUse ? "" : std::string("my.txt: ") + part.message);
}

INSTANTIATE_TEST_SUITE_P(
    Root, RequiredPart,
    testing::Values(
        TRequiredPart{{}, false, 1100, false, "the description lacks field (1100,0), the kind of the system"},
        TRequiredPart{{}, false, 1020, false, "the description lacks field (1020,0), the name"},
        TRequiredPart{{},
                      false,
                      1021,
                      false,
                      "the description lacks field (1021,0), the description, which may be empty"},
        TRequiredPart{{},
                      true,
                      1107,
                      false,
                      "the description lacks subtree (1103,0), the ellipsoid, or (1107,0), the datum"},
        TRequiredPart{{}, true, 1106, false, "the description lacks subtree (1106,0), the angular unit"},
        TRequiredPart{{}, true, 1201, false, "the description lacks subtree (1201,0), the vertical system"},
        TRequiredPart{
            {1201},
            true,
            1104,
            true,
            "subtree (1201,0) \"vertical reference system\" lacks subtree (1104,0), the unit of heights"},
        TRequiredPart{{1106},
                      false,
                      5301,
                      false,
                      "subtree (1106,0) \"angular units\" lacks field (5301,0), the unit's code"},
        TRequiredPart{{1106},
                      false,
                      5312,
                      false,
                      "subtree (1106,0) \"angular units\" lacks field (5312,0), the unit's kind"},
        TRequiredPart{{1106},
                      false,
                      5320,
                      false,
                      "subtree (1106,0) \"angular units\" lacks field (5320,0), the unit's name"},
        TRequiredPart{{1106},
                      false,
                      5321,
                      false,
                      "subtree (1106,0) \"angular units\" lacks field (5321,0), the unit's abbreviation"},
        TRequiredPart{{1106},
                      false,
                      5322,
                      false,
                      "subtree (1106,0) \"angular units\" lacks field (5322,0), the unit's description"},
        TRequiredPart{
            {1106},
            false,
            5310,
            true,
            "subtree (1106,0) \"angular units\" lacks field (5310,0), the numerator of the unit's size"},
        TRequiredPart{
            {1106},
            false,
            5311,
            true,
            "subtree (1106,0) \"angular units\" lacks field (5311,0), the denominator of the unit's size"},
        TRequiredPart{{1101},
                      false,
                      5220,
                      false,
                      "subtree (1101,0) \"prime meridian\" lacks field (5220,0), the prime meridian's name"},
        TRequiredPart{
            {1101},
            false,
            5221,
            false,
            "subtree (1101,0) \"prime meridian\" lacks field (5221,0), the prime meridian's description"},
        TRequiredPart{
            {1101},
            false,
            5210,
            false,
            "subtree (1101,0) \"prime meridian\" lacks field (5210,0), the prime meridian's longitude"},
        TRequiredPart{{1101},
                      true,
                      5211,
                      false,
                      "subtree (1101,0) \"prime meridian\" lacks subtree (5211,0), the prime meridian's "
                      "angular unit"}));

std::vector<TRequiredPart> DatumParts() {
    static std::vector<std::string> const messages = [] {
        std::string const ellipsoid = std::string(datum) + "/(5610,0) \"ellipsoid\"";
        return std::vector<std::string>{
            std::string(datum) + " lacks subtree (1102,0), the datum shift",
            std::string(datum) + " lacks subtree (5610,0), the datum's ellipsoid",
            std::string(shift) + " lacks subtree (5443,0), the form of the datum shift",
            std::string(shift) + "/(5443,0) \"type\" lacks field (5701,0), the form of the datum shift",
            std::string(shift) + " lacks subtree (5440,0), the linear unit of the datum shift",
            std::string(shift) + " lacks subtree (5441,0), the angular unit of the datum shift",
            std::string(shift) + " lacks subtree (5442,0), the scale unit of the datum shift",
            std::string(shift) + " lacks field (5461,0), the shift along X",
            std::string(shift) + " lacks field (5462,0), the shift along Y",
            std::string(shift) + " lacks field (5463,0), the shift along Z",
            std::string(shift) + " lacks field (5464,0), the rotation about X",
            std::string(shift) + " lacks field (5465,0), the rotation about Y",
            std::string(shift) + " lacks field (5466,0), the rotation about Z",
            std::string(shift) + " lacks field (5467,0), the scale difference",
            ellipsoid + " lacks field (5120,0), the ellipsoid's name",
            ellipsoid + " lacks field (5121,0), the ellipsoid's description",
            ellipsoid + " lacks field (5110,0), the semi-major axis",
            ellipsoid + " lacks field (5111,0), the semi-minor axis, which may be empty",
            ellipsoid + " lacks field (5112,0), the inverse flattening",
            ellipsoid + " lacks field (5114,0), whether there is an inverse flattening (1) or not (0)",
            ellipsoid + " lacks field (5115,0), whether it is a sphere (1) or not (0)",
            ellipsoid + " lacks subtree (5113,0), the ellipsoid's linear unit",
        };
    }();
    auto const text = [](std::size_t i) { return messages[i].c_str(); };
    return {
        {{1107}, true, 1102, false, text(0)},         {{1107}, true, 5610, false, text(1)},
        {{1107, 1102}, true, 5443, true, text(2)},    {{1107, 1102, 5443}, false, 5701, true, text(3)},
        {{1107, 1102}, true, 5440, false, text(4)},   {{1107, 1102}, true, 5441, false, text(5)},
        {{1107, 1102}, true, 5442, false, text(6)},   {{1107, 1102}, false, 5461, false, text(7)},
        {{1107, 1102}, false, 5462, false, text(8)},  {{1107, 1102}, false, 5463, false, text(9)},
        {{1107, 1102}, false, 5464, false, text(10)}, {{1107, 1102}, false, 5465, false, text(11)},
        {{1107, 1102}, false, 5466, false, text(12)}, {{1107, 1102}, false, 5467, false, text(13)},
        {{1107, 5610}, false, 5120, false, text(14)}, {{1107, 5610}, false, 5121, false, text(15)},
        {{1107, 5610}, false, 5110, false, text(16)}, {{1107, 5610}, false, 5111, false, text(17)},
        {{1107, 5610}, false, 5112, false, text(18)}, {{1107, 5610}, false, 5114, false, text(19)},
        {{1107, 5610}, false, 5115, false, text(20)}, {{1107, 5610}, true, 5113, false, text(21)},
    };
}

INSTANTIATE_TEST_SUITE_P(Datum, RequiredPart, testing::ValuesIn(DatumParts()));

TEST(DescriptionCheck, AGoodDescriptionHasNoMistake) {
    for (char const* const name : {"pulkovo-1942", "wgs-84", "wgs-84-dms", "sphere", "ntf-paris", "osgb36"}) {
        EXPECT_EQ(MessageOf(CatalogText(name)), "") << name;
    }
}

TEST(DescriptionCheck, AnEllipsoidWithoutADatumIsCheckedToo) {
    TRequiredPart const part{{1103}, false, 5110, false, ""};
    EXPECT_EQ(MessageOf(Without(CatalogText("sphere"), part)),
              "my.txt: subtree (1103,0) \"ellipsoid\" lacks field (5110,0), the semi-major axis");
}

TEST(DescriptionCheck, TheUnitMayStandBesideTheAxes) {
    // Descriptions of this form exist: the unit's fields without a subtree of their own.
    std::string const text = CatalogText("sphere");
    std::size_t const begin = text.find("\t\t(5113,0)");
    ASSERT_NE(begin, std::string::npos);
    std::size_t const end = text.find("\n\t\t\n", begin);
    ASSERT_NE(end, std::string::npos);
    std::string unit = text.substr(text.find('\n', begin) + 1, end - text.find('\n', begin));
    for (std::size_t at = unit.find("\t\t("); at != std::string::npos; at = unit.find("\t\t(", at)) {
        unit.erase(at, 1);
    }
    EXPECT_EQ(MessageOf(text.substr(0, begin) + unit + text.substr(end + 4)), "");
}

TEST(DescriptionCheck, ATextThatIsNoNumberIsShown) {
    EXPECT_EQ(MessageOf(Replaced(CatalogText("pulkovo-1942"), "dx\t23.57", "dx\t23,57")),
              "my.txt: subtree (1107,0) \"datum\"/(1102,0) \"datum shift\" has in field (5461,0), the shift "
              "along X, the "
              "text \"23,57\" where a number is needed");
    EXPECT_THAT(
        MessageOf(Replaced(CatalogText("pulkovo-1942"), "(1100,0)[1]type\t4", "(1100,0)[1]type\tfour")),
        HasSubstr("has in field (1100,0), the kind of the system, the text \"four\" where a whole number"));
    EXPECT_THAT(MessageOf(Replaced(CatalogText("pulkovo-1942"), "f_c\t180", "f_c\t0")),
                HasSubstr("the text \"0\" where a number other than 0 is needed"));
}

TEST(DescriptionCheck, AnUnknownFormOfTheShiftCanBeShownAndNotUsed) {
    // The library takes such a shift for none, so points would stay where they are without a word.
    std::string const text =
        Replaced(CatalogText("pulkovo-1942"), "(5701,0)[1]type\t3", "(5701,0)[1]type\t4");
    EXPECT_EQ(MessageOf(text, suShow), "");
    EXPECT_THAT(MessageOf(text),
                HasSubstr("in field (5701,0), the form of the datum shift, the text \"4\" where 1, 2 "
                          "or 3 is needed"));
}

TEST(DescriptionCheck, AKindThatIsNotAvailableIsNamed) {
    EXPECT_EQ(MessageOf(Replaced(CatalogText("wgs-84"), "(1100,0)[1]type\t4", "(1100,0)[1]type\t9")),
              "my.txt: field (1100,0), the kind of the system, is 9; kinds are 1 to 6");
}

TEST(DescriptionCheck, IndentationWithBlanksIsPointedAt) {
    std::string text = CatalogText("wgs-84");
    for (std::size_t at = text.find("\n\t"); at != std::string::npos; at = text.find("\n\t", at)) {
        text.replace(at, 2, "\n    ");
    }
    EXPECT_THAT(MessageOf(text), HasSubstr("is indented with blanks, but only TABs count"));
}

TEST(DescriptionCheck, AnotherFileIsNoDescription) {
    EXPECT_EQ(MessageOf("<?xml version=\"1.0\"?>\n"), "my.txt is not a description: it begins with \"<?xml "
                                                      "version=\"1.0\"?...\" where \"(0,0)\" is needed");
    EXPECT_EQ(MessageOf(""), "my.txt is not a description: it is empty");
    EXPECT_EQ(MessageOf(std::string("(0,0)a\0b", 8)),
              "my.txt is not a description: it has a NUL byte at offset 6");
}

TEST(DescriptionCheck, ACountBeyondTheTextIsDamage) {
    EXPECT_EQ(MessageOf(Replaced(CatalogText("wgs-84"), "(1020,0)[1]", "(1020,0)[999999999]")),
              "my.txt is damaged: a field claims more values than the text holds");
}

TEST(DescriptionCheck, NestingBeyondTheLimitIsDamage) {
    std::string text;
    for (int level = 0; level < 300; ++level) {
        text += std::string(static_cast<std::size_t>(level), '\t') + "(1,0)\n";
    }
    EXPECT_THAT(MessageOf(text), HasSubstr("my.txt is damaged: "));
    EXPECT_THAT(MessageOf(text), HasSubstr("nested deeper than 256 levels"));
}

TEST(DescriptionCheck, EveryPrefixIsASystemOrOneLine) {
    std::string const text = CatalogText("pulkovo-1942");
    for (std::size_t length = 0; length < text.size(); ++length) {
        std::string const message = MessageOf(text.substr(0, length));
        EXPECT_EQ(message.find('\n'), std::string::npos) << length;
    }
    EXPECT_NE(MessageOf(text.substr(0, text.size() / 2)), "");
}

TEST(DescriptionCheck, RandomBytesAreASystemOrOneLine) {
    std::mt19937 random(20240229);
    std::string const good = CatalogText("pulkovo-1942");
    for (int round = 0; round < 500; ++round) {
        std::string text = good;
        for (int change = 0; change < 1 + round % 8; ++change) {
            text[random() % text.size()] = static_cast<char>(random() % 256);
        }
        EXPECT_EQ(MessageOf(text).find('\n'), std::string::npos) << round;
    }
}

TEST(DescriptionCheck, TheToolNamesTheFileAndEndsWithStatusTwo) {
    TTemporaryFolder const folder;
    TRequiredPart const part{{1107, 1102, 5443}, false, 5701, true, ""};
    std::string const path = folder.Write("my.txt", Without(CatalogText("pulkovo-1942"), part));
    TToolRun const run = RunTool({"transform", path, "wgs-84"});
    EXPECT_EQ(run.err, "vellari: " + path +
                           ": subtree (1107,0) \"datum\"/(1102,0) \"datum shift\"/(5443,0) \"type\" "
                           "lacks field (5701,0), the form of the datum shift\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(RunTool({"transform", "wgs-84", path}).err, run.err);
}

} // namespace
