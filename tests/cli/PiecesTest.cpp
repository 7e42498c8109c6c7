#include "tests/cli/ToolRunner.h"
#include "tools/vellari/AxisText.h"
#include "tools/vellari/Catalog.h"
#include "tools/vellari/LineReader.h"
#include "tools/vellari/NameMatch.h"
#include "tools/vellari/PointLine.h"
#include "tools/vellari/SexagesimalText.h"
#include "tools/vellari/ToolError.h"

#include <gmock/gmock.h>

namespace {

using namespace ToolTest;
using namespace VellariTool;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(NameMatch, EditDistanceCountsSingleMistakes) {
    EXPECT_EQ(EditDistance("kitten", "sitting"), 3u); // the textbook's example
    EXPECT_EQ(EditDistance("", "abc"), 3u);
    EXPECT_EQ(EditDistance("abc", ""), 3u);
    EXPECT_EQ(EditDistance("same", "same"), 0u);
}

TEST(NameMatch, PatternsWithStarsStandForTheWholeText) {
    EXPECT_TRUE(MatchesPattern("WGS 84", "wgs*"));
    EXPECT_TRUE(MatchesPattern("abcabc", "*abc"));
    EXPECT_TRUE(MatchesPattern("anything", "*"));
    EXPECT_TRUE(MatchesPattern("", "*"));
    EXPECT_FALSE(MatchesPattern("WGS 84", "gs*"));
    EXPECT_FALSE(MatchesPattern("ab", "a?c"));
    EXPECT_TRUE(MatchesPattern("WGS 84", "gs 8"));
}

TEST(NameMatch, AHostilePatternEndsSoon) {
    std::string pattern;
    for (int i = 0; i < 30; ++i) {
        pattern += "*a";
    }
    EXPECT_FALSE(MatchesPattern(std::string(2000, 'a'), pattern + "b"));
}

TEST(Catalog, HoldsTheFilesByteForByte) {
    ASSERT_GE(embeddedCatalog().size(), 16u);
    for (EmbeddedFile const& entry : embeddedCatalog()) {
        EXPECT_EQ(entry.text, CatalogText(std::string(entry.name)));
    }
}

TEST(Catalog, SuggestsTheNearestFirst) {
    EXPECT_THAT(SimilarCatalogEntries("wgs-85"), ElementsAre("wgs-84"));
    EXPECT_THAT(SimilarCatalogEntries("toky"), ElementsAre("tokyo"));
    EXPECT_TRUE(SimilarCatalogEntries("/a/long/path/of/some/file").empty());
}

TEST(PointLine, SplitsAtOneSign) {
    TPointFields const fields = SplitLine(" 1 ,\"2\",3,four, five", sepComma);
    EXPECT_EQ(fields.count, 3);
    EXPECT_EQ(fields.field[0], "1");
    EXPECT_EQ(fields.field[1], "2");
    EXPECT_EQ(fields.field[2], "3");
    EXPECT_EQ(fields.rest, ",four, five");
}

TEST(PointLine, CountsTheFieldsThatThereAre) {
    EXPECT_EQ(SplitLine("1", sepComma).count, 1);
    EXPECT_EQ(SplitLine("1,", sepComma).count, 2);
    EXPECT_EQ(SplitLine(",,", sepComma).count, 3);
    EXPECT_EQ(SplitLine("", sepBlanks).count, 0);
    EXPECT_EQ(SplitLine(" 1  2 ", sepBlanks).count, 2);
}

TEST(PointLine, RunsOfBlanksAreOneSeparator) {
    TPointFields const fields = SplitLine("  1 \t 2   3   rest of it ", sepBlanks);
    EXPECT_EQ(fields.field[0], "1");
    EXPECT_EQ(fields.field[1], "2");
    EXPECT_EQ(fields.field[2], "3");
    EXPECT_EQ(fields.rest, "   rest of it ");
}

TEST(PointLine, TriesTabsFirstAndBlanksLast) {
    EXPECT_EQ(FirstSeparatorIn("a b,c;d\te"), sepTab);
    EXPECT_EQ(FirstSeparatorIn("a b,c;d"), sepSemicolon);
    EXPECT_EQ(FirstSeparatorIn("a b,c"), sepComma);
    EXPECT_EQ(FirstSeparatorIn(" a b "), sepBlanks);
    EXPECT_EQ(FirstSeparatorIn(" a "), sepComma);
}

TEST(ColumnUnitName, HasOnlyLettersDigitsAndLowLines) {
    EXPECT_EQ(ColumnUnitName("m", "metre"), "m");
    EXPECT_EQ(ColumnUnitName("US ft.", "foot"), "us_ft");
    EXPECT_EQ(ColumnUnitName("\xC2\xB0", "degree"), "degree");
    EXPECT_EQ(ColumnUnitName("", ""), "unit");
}

TEST(Quoted, CutsLongTextsBetweenCharacters) {
    EXPECT_EQ(Quoted("abcdef", 3), "\"abc...\"");
    EXPECT_EQ(Quoted("ab\xC3\xA9"
                     "cd",
                     3),
              "\"ab...\"");
    EXPECT_EQ(Quoted("a\tb\x01"), "\"a\\tb\\x01\"");
}

/** All lines of a text, as the reader gives them. */
std::vector<std::string> LinesOf(std::string const& text) {
    TTemporaryFolder const folder;
    TLineReader reader(folder.Write("lines", text));
    std::vector<std::string> lines;
    TTextLine line;
    while (reader.Next(&line)) {
        lines.emplace_back(line.text);
    }
    EXPECT_EQ(reader.Position(), text.size());
    EXPECT_EQ(reader.Size(), text.size());
    return lines;
}

TEST(LineReader, TakesEveryKindOfLineEnd) {
    EXPECT_THAT(LinesOf("a\nb\r\nc"), ElementsAre("a", "b", "c"));
    EXPECT_THAT(LinesOf("\n\n"), ElementsAre("", ""));
    EXPECT_THAT(LinesOf(""), ElementsAre());
    EXPECT_THAT(LinesOf("\xEF\xBB\xBF"
                        "a\n"),
                ElementsAre("a"));
    EXPECT_THAT(LinesOf("\xEF\xBB"), ElementsAre("\xEF\xBB"));
}

TEST(LineReader, LinesMayLieAcrossBlocks) {
    std::string text;
    std::vector<std::string> expected;
    for (std::size_t length = 0; length < 2000; ++length) {
        expected.emplace_back(length, static_cast<char>('a' + length % 26));
        text += expected.back() + "\n";
    }
    EXPECT_EQ(LinesOf(text), expected);
}

TEST(LineReader, CutsALineOfAbsurdLengthAndGoesOn) {
    TTemporaryFolder const folder;
    std::size_t const most = TLineReader::MaxLineLength;
    TLineReader reader(folder.Write("lines", std::string(most, 'a') + "\n" + std::string(most + 1, 'b') +
                                                 "\n" + std::string(10 * most, 'c') + "\nend\n" +
                                                 std::string(2 * most, 'd')));
    TTextLine line;
    ASSERT_TRUE(reader.Next(&line));
    EXPECT_EQ(line.text.size(), most);
    EXPECT_FALSE(line.isTooLong);
    for (char const letter : {'b', 'c'}) {
        ASSERT_TRUE(reader.Next(&line));
        EXPECT_TRUE(line.isTooLong);
        EXPECT_EQ(line.text, std::string(most, letter));
    }
    ASSERT_TRUE(reader.Next(&line));
    EXPECT_EQ(line.text, "end");
    EXPECT_FALSE(line.isTooLong);
    ASSERT_TRUE(reader.Next(&line));
    EXPECT_TRUE(line.isTooLong);
    EXPECT_EQ(line.text, std::string(most, 'd'));
    EXPECT_FALSE(reader.Next(&line));
}

struct TSexagesimalCase {
    TSexagesimalNotation notation;
    bool isLongitude;
    char const* text;
    char const* mistake; ///< part of the message; empty: the text is good
};

class SexagesimalText : public testing::TestWithParam<TSexagesimalCase> {};

TEST_P(SexagesimalText, IsGoodOrSaysWhatIsWrong) {
    TSexagesimalCase const& row = GetParam();
    std::string const message = FindSexagesimalMistake(row.text, row.notation, row.isLongitude);
    if (*row.mistake == '\0') {
        EXPECT_EQ(message, "") << row.text;
    } else {
        EXPECT_THAT(message, HasSubstr(row.mistake)) << row.text;
    }
}

// What is refused here is what the units read without a word as another angle.
INSTANTIATE_TEST_SUITE_P(
    Texts, SexagesimalText,
    testing::Values(TSexagesimalCase{snHemisphere, false, "55 45 07.2 N", ""},
                    TSexagesimalCase{snHemisphere, true, "0 00 05 W", ""},
                    TSexagesimalCase{snHemisphere, false,
                                     "55\xC2\xB0"
                                     "45'07.2\"N",
                                     ""},
                    TSexagesimalCase{snHemisphere, false,
                                     "55\xC2\xB0"
                                     "45\xE2\x80\xB2"
                                     "07.2\xE2\x80\xB3 S",
                                     ""},
                    TSexagesimalCase{snHemisphere, false, "12d34m56.7s", ""},
                    TSexagesimalCase{snHemisphere, false, "12.5", ""},
                    TSexagesimalCase{snHemisphere, false, "", "is empty"},
                    TSexagesimalCase{snHemisphere, false, "N", "begin"},
                    TSexagesimalCase{snHemisphere, false, "N 55 45", "does not begin with a digit"},
                    TSexagesimalCase{snHemisphere, false, "-12 30 0 N", "does not begin with a digit"},
                    TSexagesimalCase{snHemisphere, false, "12 30 0 s", "small letter"},
                    TSexagesimalCase{snHemisphere, true, "12 30 0 w", "small letter"},
                    TSexagesimalCase{snHemisphere, true, "12 30 0 N",
                                     "other axis; right would be 37 36 56.4 E"},
                    TSexagesimalCase{snHemisphere, false, "12 60 0 N", "60 or more"},
                    TSexagesimalCase{snHemisphere, false, "12 30 0 5 N", "is not an angle"},
                    TSexagesimalCase{snHemisphere, false, "12 30 1e1 N", "is not an angle"},
                    TSexagesimalCase{snParts, false, "-12 30", ""},
                    TSexagesimalCase{snParts, false, "- 12 30 0.5", ""},
                    TSexagesimalCase{snParts, false, "12-30", "does not stand in front"},
                    TSexagesimalCase{snParts, false, "12 30 0 S", "ends with a letter"},
                    TSexagesimalCase{snParts, false, "+12 30 0", "does not begin"},
                    TSexagesimalCase{snParts, false, "12 30 60", "60 or more"},
                    TSexagesimalCase{snParts, false, "-", "is not an angle"},
                    TSexagesimalCase{snPackedSeconds, false, "55.450720", ""},
                    TSexagesimalCase{snPackedSeconds, false, "55", ""},
                    TSexagesimalCase{snPackedSeconds, false, "-12.30", ""},
                    TSexagesimalCase{snPackedSeconds, false, "-0.00", ""},
                    TSexagesimalCase{snPackedSeconds, false, "12.345", "one digit"},
                    TSexagesimalCase{snPackedSeconds, false, "12.7", "one digit"},
                    TSexagesimalCase{snPackedSeconds, false, "12.7500", "60 or more"},
                    TSexagesimalCase{snPackedSeconds, false, "12.3075", "60 or more"},
                    TSexagesimalCase{snPackedSeconds, false, "-0.3000", "loses the sign"},
                    TSexagesimalCase{snPackedSeconds, false, "1.30000000000000", "more than 13 digits"},
                    TSexagesimalCase{snPackedSeconds, false, "12.30x", "is not a packed angle"},
                    TSexagesimalCase{snPackedSeconds, false, "12345678901", "is not a packed angle"},
                    TSexagesimalCase{snPackedMinutes, false, "12.345", ""},
                    TSexagesimalCase{snPackedMinutes, false, "-0.30", ""},
                    TSexagesimalCase{snPackedMinutes, false, "12.3456", "more than one decimal of a minute"},
                    TSexagesimalCase{snPackedMinutes, false, "12.61", "60 or more"}));

} // namespace
