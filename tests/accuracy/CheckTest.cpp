#include "tools/accuracy/Check.h"
#include "tools/accuracy/Methods.h"

#include <gmock/gmock.h>

#include <set>

namespace {

using namespace VellariAccuracy;
using testing::ElementsAre;
using testing::IsEmpty;

/** Two rows that nothing has to be measured for. */
std::vector<TFamily> TwoRows() {
    return {{"Planes",
             {{KvRefSystem::mptHatt,
               {38, 23.5},
               "+proj=aeqd",
               elBessel,
               {{{37, 39, 23.5, 1}, "Its series."}, {{36, 40, 23.5, 2}, "", soRounding}}}}}};
}

std::vector<TDifferences> const differences = {{0.0011, 2.2, 0}, {0.004, 0.005, 1e-9}};

std::string Document() {
    std::vector<TFamily> const families = TwoRows();
    std::vector<TRow> const& rows = families[0].Cases[0].Rows;
    return Render(families, {FiguresOf(rows[0], differences[0]), FiguresOf(rows[1], differences[1])},
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
    return Parse(Document()).Rows.at(0).Line;
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
    TDocumentContents const contents = Parse(Document());
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
                ElementsAre(At(FirstLine()) + "case 1, Hatt, elsewhere: no such row is measured"));
}

TEST(AccuracyCheck, RowThatStandsTwiceFails) {
    std::string const text = Document();
    std::size_t const start = text.find("| 1 | Hatt | 37");
    std::string const row = text.substr(start, text.find('\n', start) + 1 - start);
    EXPECT_THAT(Failures(std::string(text).insert(start, row)),
                ElementsAre(At(FirstLine() + 1) + firstRow + ": stands twice"));
}

TEST(AccuracyCheck, OtherTextFails) {
    EXPECT_THAT(Failures(Replaced(Document(), "# Accuracy of the projections", "# Accuracy")),
                ElementsAre("d.md:1: the text isn't what the program writes: \"# Accuracy of the "
                            "projections\""));
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

TEST(AccuracyCases, CoverAllClasses) {
    std::set<int> methods;
    for (TMethod const& method : Methods()) {
        methods.insert(method.Type);
    }
    EXPECT_EQ(methods.size(), 26U);
    std::set<int> measured;
    for (TFamily const& family : Families()) {
        for (TCase const& row : family.Cases) {
            measured.insert(row.Type);
        }
    }
    EXPECT_EQ(measured, methods);
}

TEST(AccuracyCases, KeysAreAllDifferent) {
    std::vector<std::string> const keys = RowKeys(Families());
    EXPECT_EQ(std::set<std::string>(keys.begin(), keys.end()).size(), keys.size());
}

TEST(AccuracyMethods, WrongNumberOfParametersIsRefused) {
    TMethod const& hatt = MethodOf(KvRefSystem::mptHatt);
    std::vector<double> const one = {38};
    EXPECT_THROW(ParametersText(hatt, one), std::logic_error);
    EXPECT_THROW(CreateProjection(hatt, {6378137, 6356752}, one), std::logic_error);
    EXPECT_THROW(MethodOf(KvRefSystem::mptUTM), std::logic_error);
}

TEST(AccuracyDomain, GridHasItsEdges) {
    std::vector<TPair> const places = PlacesOf({-10, 20, 100, 30});
    ASSERT_EQ(places.size(), 61U * 62U);
    EXPECT_NEAR(places.front().X / Degree, 70, 1e-12);
    EXPECT_NEAR(places.front().Y / Degree, -10, 1e-12);
    EXPECT_NEAR(places.back().X / Degree, 130, 1e-12);
    EXPECT_NEAR(places.back().Y / Degree, 20, 1e-12);
    EXPECT_EQ(PlacesOf({45, 45, 10, 0}).size(), 1U);
}

TEST(AccuracyDomain, DiscHasThePlacesThatAreNear) {
    for (TPair const& place : PlacesOf({45, 47, 25, 1.4, 100, 46})) {
        EXPECT_LE(GroundDistance(place, {25 * Degree, 46 * Degree}, 6371), 100);
    }
    EXPECT_GT(PlacesOf({45, 47, 25, 1.4, 100, 46}).size(), 1000U);
}

TEST(AccuracyDomain, GroundDistanceKeepsItsDigits) {
    // A metre of a meridian and of the parallel of 60 degrees, and half of the great circle.
    constexpr double Radius = 6378137;
    EXPECT_NEAR(GroundDistance({1, 0.5}, {1, 0.5 + 1 / Radius}, Radius), 1, 1e-9);
    EXPECT_NEAR(GroundDistance({-3, 60 * Degree}, {-3 + 2 / Radius, 60 * Degree}, Radius), 1, 1e-9);
    EXPECT_NEAR(GroundDistance({0, 0}, {180 * Degree, 0}, 1), 180 * Degree, 1e-9);
}

TEST(AccuracyDomain, IsToldInWords) {
    EXPECT_EQ(DomainText({-84, 84, 39, 3}), "84° S to 84° N, within 3° of 39° E");
    EXPECT_EQ(DomainText({0, 0, -96, 30}), "0°, within 30° of 96° W");
    EXPECT_EQ(DomainText({60, 89, -170, 0}), "60° N to 89° N, on 170° W");
    EXPECT_EQ(DomainText({45, 47, 25, 1.4, 100, 46}), "within 100 km of 46° N 25° E");
}

} // namespace
