#include "frame/imported/Geometry.h"

#include <gtest/gtest.h>

namespace {

using Polygon = std::vector<vec_t_<double, 2>>;

} // namespace

TEST(CalcSignedFigureArea, IsPositiveFromTheFirstAxisToTheSecond) {
    EXPECT_EQ(CalcSignedFigureArea({{{0, 0}}, {{2, 0}}, {{2, 3}}, {{0, 3}}}), 6.0);
    EXPECT_EQ(CalcSignedFigureArea({{{0, 3}}, {{2, 3}}, {{2, 0}}, {{0, 0}}}), -6.0);
}

TEST(CalcSignedFigureArea, HandlesReentrantFigures) {
    // An L: a square of 3 without its upper right square of 2.
    EXPECT_EQ(CalcSignedFigureArea({{{0, 0}}, {{3, 0}}, {{3, 1}}, {{1, 1}}, {{1, 3}}, {{0, 3}}}), 5.0);
}

TEST(CalcSignedFigureArea, OfFewerThanThreeCornersIsZero) {
    EXPECT_EQ(CalcSignedFigureArea({}), 0.0);
    EXPECT_EQ(CalcSignedFigureArea({{{1, 2}}}), 0.0);
    EXPECT_EQ(CalcSignedFigureArea({{{1, 2}}, {{3, 4}}}), 0.0);
}

TEST(CalcSignedFigureArea, KeepsItsDigitsFarFromTheOrigin) {
    double const x = 7e6;
    double const y = 6e9;
    Polygon const square = {{{x, y}}, {{x + 0.5, y}}, {{x + 0.5, y + 0.5}}, {{x, y + 0.5}}};
    EXPECT_EQ(CalcSignedFigureArea(square), 0.25);
}

TEST(SmallVector, StartsAsZerosAndIsIndexed) {
    vec_t_<double, 3> vector;
    EXPECT_EQ(vector[2], 0.0);
    vector[1] = 4.0;
    vec_t_<double, 3> const copy = vector;
    EXPECT_EQ(copy[1], 4.0);
    EXPECT_EQ(copy.Elements[1], 4.0);
}
