#include "shell/refsystems/ShellCoords.h"

#include <gtest/gtest.h>

namespace KvRefSystem {
namespace {

TEST(ShellCoords, BeginsWithThreeEmptyTexts) {
    TShellCoords const coords;

    EXPECT_EQ(coords.Coord[0], "");
    EXPECT_EQ(coords.Coord[1], "");
    EXPECT_EQ(coords.Coord[2], "");
}

TEST(ShellCoords, FormatsNumbersWithSixteenDecimalsAndAnExponent) {
    TShellCoords const coords(1.5, -0.0, 1e300);

    EXPECT_EQ(coords.Coord[0], "1.5000000000000000e+00");
    EXPECT_EQ(coords.Coord[1], "-0.0000000000000000e+00");
    // 1e300 as a double is 1.00000000000000005250…e300.
    EXPECT_EQ(coords.Coord[2], "1.0000000000000001e+300");
}

static_assert(sizeof(TShellCoords) == 96);

} // namespace
} // namespace KvRefSystem
