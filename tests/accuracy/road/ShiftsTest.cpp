#include "tools/accuracy/road/Tables.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace VellariAccuracy;

struct TMeasured {
    TLine Line;
    TNumbers Numbers;
};

/** The row of the core's shifts, or of the road's, with these cells. @throws std::logic_error without it. */
TMeasured Measured(std::vector<std::string> const& cells) {
    for (TTable const& table : ShiftTables()) {
        for (std::size_t line = 0; line < table.Lines.size(); ++line) {
            if (table.Lines[line].Cells == cells) {
                return {table.Lines[line], table.Measure(line)};
            }
        }
    }
    throw std::logic_error("no row " + cells.front());
}

// The squares of 5.137", 1.474" and 5.297" are 1.33080e-9 in sum, of 6388 km with 746 m of translation.
constexpr double SquaresOfMgi = 0.0085023;

TEST(AccuracyShifts, SmallAnglesLeaveTheSquaresOfTheRotationsAndNoMore) {
    for (char const* const form : {"small angles", "small angles, inverted record"}) {
        TMeasured const row = Measured({form, "7 parameters of MGI", "±10 km"});
        EXPECT_EQ(row.Line.Source, soMethod);
        for (std::size_t way = 0; way < 2; ++way) {
            EXPECT_NEAR(row.Line.Bounds[way], SquaresOfMgi, 2e-6) << form;
            EXPECT_LE(row.Numbers[way], row.Line.Bounds[way]) << form;
            // Across the axis of the rotation it is all of that.
            EXPECT_GT(row.Numbers[way], 0.99 * SquaresOfMgi) << form;
        }
    }
}

TEST(AccuracyShifts, ExactRotationsLeaveRounding) {
    TMeasured const row = Measured({"exact rotations", "7 parameters of MGI", "±10 km"});
    EXPECT_EQ(row.Line.Source, soRounding);
    EXPECT_LT(row.Numbers[0], 1e-8);
    EXPECT_LT(row.Numbers[1], 1e-8);
    EXPECT_GT(row.Numbers[0], 0);
}

TEST(AccuracyShifts, RoadHasTheSquaresOfBothSidesUnlessTheyAreExact) {
    // The squares of 0.202", 0.045", 2.455" and of 0.15", 0.247", 0.842" come to 1.61295e-10, of 6387 km;
    // the passes of both ways leave 1e-7 m.
    TMeasured const linear = Measured({"dhdn and osgb36", "as described"});
    EXPECT_NEAR(linear.Line.Bounds[0], 0.0010303, 2e-7);
    EXPECT_GT(linear.Numbers[1], 0.5 * linear.Line.Bounds[1]);
    TMeasured const exact = Measured({"dhdn and osgb36", "exact"});
    EXPECT_LT(exact.Line.Bounds[0], 2e-7);
    EXPECT_LE(exact.Numbers[0], exact.Line.Bounds[0]);
}

} // namespace
