#include "core/refsystems/Coords.h"

#include "TestKinds.h"
#include "frame/imported/ModuleHooks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using namespace KvRefSystem;
using namespace KvRefSystemTests;

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

std::string lastDebugMessage;

double Longitude(double value) {
    NormalizeLongitude(value);
    return value;
}

double Latitude(double value) {
    NormalizeLatitude(value);
    return value;
}

} // namespace

// Replaces the process's debug sink.
void KvPrintDbgMsg(std::string const& message) {
    lastDebugMessage = message;
}

TEST(Coords, BeginAsZerosWithAHeight) {
    TCoords const point;
    EXPECT_EQ(point.X, 0.0);
    EXPECT_EQ(point.Y, 0.0);
    EXPECT_EQ(point.Z, 0.0);
    EXPECT_FALSE(point.ZUndefined);
}

TEST(Coords, AssignmentTakesAllFourFieldsAlsoFromItself) {
    TCoords const source{1, 2, 3, true};
    TCoords copy;
    copy = source;
    TCoords const& itself = copy;
    copy = itself;
    EXPECT_EQ(copy.X, 1.0);
    EXPECT_EQ(copy.Y, 2.0);
    EXPECT_EQ(copy.Z, 3.0);
    EXPECT_TRUE(copy.ZUndefined);
}

TEST(Coords, EqualityIsExact) {
    EXPECT_EQ(Point(1, 2, 3), Point(1, 2, 3));
    EXPECT_NE(Point(1, 2, 3), Point(std::nextafter(1.0, 2.0), 2, 3));
    EXPECT_NE(Point(1, 2, 3), Point(1, std::nextafter(2.0, 3.0), 3));
    EXPECT_NE(Point(1, 2, 3), Point(1, 2, std::nextafter(3.0, 4.0)));
    EXPECT_EQ(Point(0.0, 0.0, 0.0), Point(-0.0, -0.0, -0.0));
}

TEST(Coords, WithANaNAreNotEvenEqualToThemselves) {
    EXPECT_NE(Point(NaN, 2, 3), Point(NaN, 2, 3));
    EXPECT_NE(Point(1, NaN, 3), Point(1, NaN, 3));
    EXPECT_NE(Point(1, 2, NaN), Point(1, 2, NaN));
}

TEST(Coords, WithoutHeightsOnBothSidesZIsNotCompared) {
    TCoords const low{1, 2, 3, true};
    TCoords const high{1, 2, 4, true};
    TCoords const other{1, 2.5, 3, true};
    EXPECT_EQ(low, high);
    EXPECT_NE(low, other);
}

TEST(Coords, WithAHeightOnOneSideOnlyAreDifferent) {
    TCoords const with{1, 2, 3, false};
    TCoords const without{1, 2, 3, true};
    EXPECT_NE(with, without);
    EXPECT_NE(without, with);
}

TEST(Coords, DebugOutputBeginsWithOneBlankAndSeparatesByThree) {
    Point(1, -2.5, 3e-7).DebugOutput("point:");
    EXPECT_EQ(lastDebugMessage, "point: 1.000000   -2.500000   0.000000");
    TCoords{1, -2.5, 3, true}.DebugOutput("");
    EXPECT_EQ(lastDebugMessage, " 1.000000   -2.500000");
}

TEST(Coords, DebugOutputTakesNumbersOfAnyLengthAndPercentSigns) {
    Point(1e308, 0, 0).DebugOutput("%s");
    // 309 digits, the point and six decimals
    EXPECT_EQ(lastDebugMessage.size(), 2U + 1U + 316U + 2U * (3U + 8U));
    EXPECT_EQ(lastDebugMessage.substr(0, 6), "%s 100");
}

TEST(NormalizeLongitude, LeavesTheClosedIntervalAlone) {
    EXPECT_EQ(Longitude(Pi), Pi);
    EXPECT_EQ(Longitude(-Pi), -Pi);
    EXPECT_EQ(Longitude(0.0), 0.0);
    EXPECT_EQ(Longitude(3.0), 3.0);
    EXPECT_EQ(Longitude(-3.0), -3.0);
}

TEST(NormalizeLongitude, TakesWholeTurnsOff) {
    // x - 2 pi round(x / 2 pi) in 40 digits
    EXPECT_NEAR(Longitude(4.0), -2.2831853071795865, 1e-15);
    EXPECT_NEAR(Longitude(-4.0), 2.2831853071795865, 1e-15);
    EXPECT_NEAR(Longitude(100.0), -0.53096491487338363, 1e-13);
    EXPECT_NEAR(Longitude(-100.0), 0.53096491487338363, 1e-13);
    EXPECT_NEAR(Longitude(7.0), 0.71681469282041352, 1e-15);
}

TEST(NormalizeLongitude, KeepsTheSideOnWhichThreeHalfTurnsEnd) {
    // 3 pi as a double less 2 pi as a double is pi as a double, which is inside.
    EXPECT_DOUBLE_EQ(Longitude(9.42477796076938), 3.141592653589793);
    EXPECT_DOUBLE_EQ(Longitude(-9.42477796076938), -3.141592653589793);
}

TEST(NormalizeLongitude, LeavesANaNAndMakesOneOfAnInfinity) {
    EXPECT_TRUE(std::isnan(Longitude(NaN)));
    EXPECT_TRUE(std::isnan(Longitude(Infinity)));
    EXPECT_TRUE(std::isnan(Longitude(-Infinity)));
}

TEST(NormalizeLongitude, EndsForValuesBeyondTheReachOfWholeTurns) {
    EXPECT_TRUE(std::isfinite(Longitude(1e300)));
    EXPECT_TRUE(std::isfinite(Longitude(-1e300)));
}

TEST(NormalizeLatitude, LeavesTheClosedIntervalAlone) {
    EXPECT_EQ(Latitude(Pi / 2), Pi / 2);
    EXPECT_EQ(Latitude(-Pi / 2), -Pi / 2);
    EXPECT_EQ(Latitude(0.5), 0.5);
}

TEST(NormalizeLatitude, EndsAtAPoleInsteadOfReducingTheAngle) {
    EXPECT_EQ(Latitude(2.0), Pi / 2);
    EXPECT_EQ(Latitude(-2.0), -Pi / 2);
    EXPECT_EQ(Latitude(10.0), -Pi / 2);
    EXPECT_EQ(Latitude(-10.0), Pi / 2);
}

TEST(NormalizeLatitude, BeyondHalfATurnEndsAtTheOtherPole) {
    EXPECT_EQ(Latitude(4.0), -Pi / 2);
    EXPECT_EQ(Latitude(-4.0), Pi / 2);
}

TEST(NormalizeLatitude, TakesWholeTurnsOff) {
    // 5.5 - 2 pi and 7 - 2 pi
    EXPECT_NEAR(Latitude(5.5), -0.7831853071795862, 1e-15);
    EXPECT_NEAR(Latitude(-5.5), 0.7831853071795862, 1e-15);
    EXPECT_NEAR(Latitude(7.0), 0.7168146928204138, 1e-15);
    EXPECT_NEAR(Latitude(-7.0), -0.7168146928204138, 1e-15);
}

TEST(NormalizeLatitude, LeavesANaNAndMakesOneOfAnInfinity) {
    EXPECT_TRUE(std::isnan(Latitude(NaN)));
    EXPECT_TRUE(std::isnan(Latitude(Infinity)));
    EXPECT_TRUE(std::isnan(Latitude(-Infinity)));
}
