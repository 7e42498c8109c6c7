#include "tools/accuracy/Contents.h"

#include "tools/accuracy/Cases.h"
#include "tools/accuracy/Document.h"
#include "tools/accuracy/Methods.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace {

using namespace VellariAccuracy;

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

TEST(AccuracyContents, KeysAreAllDifferent) {
    std::set<std::string> keys;
    for (TTable const& table : WholeDocument().Tables) {
        for (TLine const& line : table.Lines) {
            EXPECT_TRUE(keys.insert(KeyOf(table, line)).second) << KeyOf(table, line);
        }
    }
    EXPECT_GT(keys.size(), 150U);
}

TEST(AccuracyContents, EveryTableTellsHowItIsMeasuredAndBeginsWithAReason) {
    std::set<std::string> headings;
    bool isRoad = true;
    for (TTable const& table : WholeDocument().Tables) {
        EXPECT_TRUE(headings.insert(table.Heading).second) << table.Heading;
        isRoad = isRoad && table.Before.empty();
        EXPECT_EQ(table.Text.empty(), !isRoad) << table.Heading;
        ASSERT_FALSE(table.Lines.empty()) << table.Heading;
        EXPECT_FALSE(table.Lines.front().Reason.empty()) << table.Heading;
        auto const bounded = std::count_if(table.Columns.begin(), table.Columns.end(),
                                           [](TColumn const& column) { return column.Bounded; });
        for (TLine const& line : table.Lines) {
            EXPECT_EQ(line.Cells.size(), table.KeyHeadings.size()) << LabelOf(table, line);
            EXPECT_EQ(line.Bounds.size(), static_cast<std::size_t>(bounded)) << LabelOf(table, line);
        }
    }
}

TEST(AccuracyContents, RoadHasEveryMethodOfADescription) {
    std::set<std::string> methods;
    for (TTable const& table : WholeDocument().Tables) {
        if (table.Heading == "## Projections on the road") {
            for (TLine const& line : table.Lines) {
                methods.insert(line.Cells.front());
            }
        }
    }
    std::set<std::string> expected;
    for (int const method : {1,  2,  3,  4,  5,  6,  7,  8,  9,   10,   11,   12,   13,   14,   15,
                             16, 17, 21, 22, 23, 24, 25, 26, 101, 1001, 1002, 1003, 1004, 1201, 1313}) {
        expected.insert(std::to_string(method));
    }
    EXPECT_EQ(methods, expected);
}

} // namespace
