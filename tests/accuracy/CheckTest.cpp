#include "tools/accuracy/Check.h"
#include "tools/accuracy/ProjectionTables.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace {

using namespace VellariAccuracy;
using testing::ElementsAre;
using testing::IsEmpty;

/** Two rows that nothing has to be measured for. */
TDocument TwoRows() {
    TDocument document{"# Planes\n\nThey ", ".\n", {}};
    document.Tables =
        ProjectionTables({{"Planes",
                           {{KvRefSystem::mptHatt,
                             {38, 23.5},
                             "+proj=aeqd",
                             elBessel,
                             {{{37, 39, 23.5, 1}, "Its series."}, {{36, 40, 23.5, 2}, "", soRounding}}}}}});
    return document;
}

std::vector<TNumbers> const differences = {{0.0011, 2.2, 0}, {0.004, 0.005, 1e-9}};

std::string Document() {
    TDocument const document = TwoRows();
    TTable const& table = document.Tables.front();
    return Render(
        document,
        {FiguresOf(table, table.Lines[0], differences[0]), FiguresOf(table, table.Lines[1], differences[1])},
        "9.1.1");
}

std::string Replaced(std::string text, std::string const& from, std::string const& to) {
    std::size_t const found = text.find(from);
    EXPECT_NE(found, std::string::npos) << from;
    return text.replace(found, from.size(), to);
}

std::vector<std::string> Failures(std::string const& text) {
    return Check(TwoRows(), differences, text, "d.md");
}

/** Where the first row stands in the document. */
int FirstLine() {
    return Parse(TwoRows(), Document()).Rows.at(0).Line;
}

std::string At(int line) {
    return "d.md:" + std::to_string(line) + ": ";
}

constexpr char firstRow[] = "case 1, Hatt, 37° N to 39° N, within 1° of 23.5° E";
constexpr char secondRow[] = "case 1, Hatt, 36° N to 40° N, within 2° of 23.5° E *";

TEST(AccuracyCheck, DocumentHoldsWhatItWasWrittenFrom) {
    EXPECT_THAT(Failures(Document()), IsEmpty());
}

TEST(AccuracyCheck, RowsOfLostDigitsHaveTwiceTheFigures) {
    TDocumentContents const contents = Parse(TwoRows(), Document());
    ASSERT_EQ(contents.Rows.size(), 2U);
    EXPECT_THAT(contents.Rows[0].Figures, ElementsAre("0.0011", "2.2", "1e-6"));
    EXPECT_THAT(contents.Rows[1].Figures, ElementsAre("0.0080", "0.010", "1e-6"));
    EXPECT_EQ(contents.Release, "9.1.1");
}

TEST(AccuracyCheck, GreaterDifferenceFails) {
    EXPECT_THAT(Failures(Replaced(Document(), "| 2.2 |", "| 2.1 |")),
                ElementsAre(At(FirstLine()) + firstRow + ": reverse: measured 2.2 m, the document says 2.1"));
}

TEST(AccuracyCheck, SmallerDifferencePasses) {
    EXPECT_THAT(Failures(Replaced(Document(), "| 2.2 |", "| 2.3 |")), IsEmpty());
}

TEST(AccuracyCheck, TextInPlaceOfAFigureFails) {
    EXPECT_THAT(Failures(Replaced(Document(), "| 2.2 |", "| many |")),
                ElementsAre(At(FirstLine()) + firstRow +
                            ": reverse: \"many\" is no figure; one is like 0.0011, 2.4e-5 or none"));
}

TEST(AccuracyCheck, MissingRowFails) {
    std::string const text = Document();
    std::size_t const start = text.find("| 1 | Hatt | 36");
    EXPECT_THAT(Failures(std::string(text).erase(start, text.find('\n', start) + 1 - start)),
                ElementsAre("d.md: " + std::string(secondRow) + ": the row is missing"));
}

TEST(AccuracyCheck, UnknownRowFails) {
    std::string const row = "| 1 | Hatt | elsewhere | 1.0 | 1.0 | 1.0 | |\n";
    EXPECT_THAT(Failures(Replaced(Document(), "| 1 | Hatt | 37", row + "| 1 | Hatt | 37")),
                ElementsAre(At(FirstLine()) + "Planes, 1, Hatt, elsewhere: no such row is measured"));
}

TEST(AccuracyCheck, RowThatStandsTwiceFails) {
    std::string const text = Document();
    std::size_t const start = text.find("| 1 | Hatt | 37");
    std::string const row = text.substr(start, text.find('\n', start) + 1 - start);
    EXPECT_THAT(Failures(std::string(text).insert(start, row)),
                ElementsAre(At(FirstLine() + 1) +
                            "Planes, 1, Hatt, 37° N to 39° N, within 1° of 23.5° E: stands twice"));
}

TEST(AccuracyCheck, OtherTextFails) {
    EXPECT_THAT(Failures(Replaced(Document(), "# Planes", "# Plains")),
                ElementsAre("d.md:1: the text isn't what the program writes: \"# Planes\""));
    std::string const text = Document();
    std::string const reason = Replaced(text, "Its series.", "Its whim.");
    ASSERT_EQ(Failures(reason).size(), 1U);
    EXPECT_THAT(Failures(reason)[0], testing::StartsWith(At(FirstLine()) + "the text isn't what"));
    EXPECT_EQ(Failures(text + "more").size(), 1U);
    EXPECT_EQ(Failures(text.substr(0, text.size() - 1)).size(), 1U);
}

TEST(AccuracyCheck, AnotherReleaseOfTheOtherSideIsNoFailure) {
    EXPECT_THAT(Failures(Replaced(Document(), "9.1.1", "9.10.0")), IsEmpty());
}

TEST(AccuracyCheck, EmptyDocumentMissesAllRows) {
    EXPECT_EQ(Failures("").size(), 2U);
    EXPECT_EQ(Failures("| 1 | Hatt\n| 1 | Hatt | 37° N | 0.1 |\n").size(), 2U);
}

/** A table whose second column has bounds. */
TDocument Bounded() {
    TTable table;
    table.Heading = "## Errors";
    table.Subject = "error:";
    table.Text = "Of a way.\n";
    table.KeyHeadings = {"Height", "Side"};
    table.Columns = {{"latitude", "rad", LeastAngle}, {"height", "m", LeastCartesian, true}};
    table.Lines = {{{"0 to 10 km", "north"}, "Rounding.", soRounding, {3e-9}},
                   {{"0 to 10 km", "south"}, "", soMethod, {0.5}},
                   {{"above", "south"}, "", soMethod, {std::numeric_limits<double>::infinity()}}};
    table.Notes = "Thus.\n";
    table.Before = "## Part\n";
    table.Measure = [](std::size_t line) { return TNumbers{1e-15 * static_cast<double>(line), 2e-9}; };
    return {"It ", ".\n", {table}};
}

std::string BoundedText(std::vector<TNumbers> const& measured) {
    TDocument const document = Bounded();
    TTable const& table = document.Tables.front();
    std::vector<TFigures> figures;
    for (TLine const& line : table.Lines) {
        figures.push_back(FiguresOf(table, line, measured.at(figures.size())));
    }
    return Render(document, figures, "9.1.1");
}

TEST(AccuracyBounds, StandBesideTheirFiguresAndLimitThoseOfLostDigits) {
    EXPECT_EQ(BoundedText(MeasureAll(Bounded())),
              "It were measured against PROJ 9.1.1.\n\n"
              "## Part\n\n"
              "## Errors\n\nOf a way.\n\n"
              "| Height | Side | Latitude, rad | Height, m | Bound | Reason |\n|---|---|---|---|---|---|\n"
              "| 0 to 10 km | north * | 1e-16 | 3e-9 | 3e-9 | Rounding. |\n"
              "| 0 to 10 km | south | 1e-15 | 2e-9 | 0.50 | |\n"
              "| above | south | 2e-15 | 2e-9 | none | |\n\nThus.\n");
}

TEST(AccuracyBounds, NumbersBeyondThemFailWhateverTheTextSays) {
    std::vector<TNumbers> measured = MeasureAll(Bounded());
    EXPECT_THAT(BeyondBounds(Bounded(), measured), IsEmpty());
    measured[0][1] = 4e-9;
    measured[1][1] = std::nan("");
    measured[2][1] = 1e9;
    char const* const first =
        "error: 0 to 10 km, north *: height: measured 4e-09 m, more than the bound of 3e-09 m";
    char const* const second =
        "error: 0 to 10 km, south: height: measured nan m, more than the bound of 0.5 m";
    EXPECT_THAT(BeyondBounds(Bounded(), measured), ElementsAre(first, second));
    EXPECT_THAT(Check(Bounded(), measured, BoundedText(measured), "d.md"), ElementsAre(first, second));
}

TEST(AccuracyBounds, TextHoldsAndFailsAsWithoutThem) {
    std::vector<TNumbers> const measured = MeasureAll(Bounded());
    std::string const text = BoundedText(measured);
    EXPECT_THAT(Check(Bounded(), measured, text, "d.md"), IsEmpty());
    EXPECT_THAT(
        Check(Bounded(), measured, Replaced(text, "| 2e-15 |", "| 1e-15 |"), "d.md"),
        ElementsAre("d.md:13: error: above, south: latitude: measured 2e-15 rad, the document says 1e-15"));
    EXPECT_THAT(Check(Bounded(), measured, Replaced(text, "| 0.50 |", "| 0.60 |"), "d.md"),
                ElementsAre("d.md:12: the text isn't what the program writes: "
                            "\"| 0 to 10 km | south | 1e-15 | 2e-9 | 0.50 | |\""));
    // Under another heading there is no table.
    EXPECT_EQ(Check(Bounded(), measured, Replaced(text, "## Errors", "## Other"), "d.md").size(), 3U);
}

TEST(AccuracyTable, WhatIsNoNumberIsTheGreatestAndStays) {
    double greatest = 1;
    Enlarge(&greatest, 0.5);
    EXPECT_EQ(greatest, 1);
    Enlarge(&greatest, 2);
    EXPECT_EQ(greatest, 2);
    Enlarge(&greatest, std::nan(""));
    Enlarge(&greatest, 3);
    EXPECT_TRUE(std::isnan(greatest));
}

} // namespace
