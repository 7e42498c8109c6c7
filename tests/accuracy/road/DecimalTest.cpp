#include "tools/accuracy/road/Decimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

namespace {

using VellariAccuracy::DistanceFrom;

TEST(Decimal, DistanceKeepsItsDigitsWhereDoublesHaveNone) {
    EXPECT_DOUBLE_EQ(DistanceFrom(1, "1.00000000000000000000000000000000000000000007"), 7e-44);
    EXPECT_DOUBLE_EQ(DistanceFrom(6378137, "6378136.99999999999999999"), 1e-17);
    EXPECT_DOUBLE_EQ(DistanceFrom(-6378137, "-6378136.99999999999999999"), 1e-17);
    // The double nearest to 0.1 is 0.1000000000000000055511151231257827...
    EXPECT_DOUBLE_EQ(DistanceFrom(0.1, "0.1"), 5.5511151231257827e-18);
    EXPECT_DOUBLE_EQ(DistanceFrom(-1234567.891, "-1234567.891"), 6.1467289924621582e-11);
}

TEST(Decimal, DistanceOfEqualAndOfFarNumbers) {
    EXPECT_EQ(DistanceFrom(0, "0"), 0);
    EXPECT_EQ(DistanceFrom(-0.0, "-0.000"), 0);
    EXPECT_EQ(DistanceFrom(2.5, "2.5"), 0);
    EXPECT_EQ(DistanceFrom(3, "-4"), 7);
    EXPECT_EQ(DistanceFrom(-1e17, "100000000000000000"), 2e17);
    EXPECT_EQ(DistanceFrom(0.5, "1000000000.25"), 999999999.75);
    EXPECT_EQ(DistanceFrom(1000000000.25, "0.5"), 999999999.75);
}

TEST(Decimal, WhatIsNoNumberHasNoDistance) {
    EXPECT_TRUE(std::isnan(DistanceFrom(std::nan(""), "1")));
    EXPECT_TRUE(std::isnan(DistanceFrom(std::numeric_limits<double>::infinity(), "1")));
    EXPECT_TRUE(std::isnan(DistanceFrom(1e18, "1")));
}

TEST(Decimal, OtherTextsAreRefused) {
    for (char const* const text :
         {"", "-", ".5", "1e5", "+1", " 1", "1.2.3", "nan", "0x1", "--1", "1234567890123456789"}) {
        EXPECT_THROW(DistanceFrom(1, text), std::invalid_argument) << text;
    }
    EXPECT_THROW(DistanceFrom(1, "0." + std::string(64, '0')), std::invalid_argument);
    EXPECT_EQ(DistanceFrom(1, "1." + std::string(63, '0')), 0);
}

} // namespace
