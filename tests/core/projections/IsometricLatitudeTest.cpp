#include "core/projections/IsometricLatitude.h"

#include <gtest/gtest.h>

#include <limits>

using namespace KvRefSystem;

namespace {

constexpr double Degree = 3.141592653589793 / 180;
constexpr double Wgs84Eccentricity = 0.0818191908426214;

double LogAt(double degrees) {
    return LogT(degrees * Degree, Wgs84Eccentricity, Wgs84Eccentricity / 2);
}

TEST(IsometricLatitude, IsTheOppositeOfTheLogarithm) {
    // mpmath with 30 digits: e atanh(e sin phi) - asinh(tan phi).
    EXPECT_NEAR(LogAt(45), -0.876634653434598935, 1e-15);
    EXPECT_NEAR(LogAt(-60), 1.31115066178427174, 1e-15);
    EXPECT_NEAR(LogAt(89), -4.73464040830057601, 2e-14);
    EXPECT_NEAR(LogAt(0), 0, 2e-16);
    EXPECT_NEAR(LogT(45 * Degree, 0, 0), -std::asinh(1.0), 1e-15);
}

TEST(IsometricLatitude, NorthPoleIsAtInfinityAndTheSouthPoleIsNot) {
    EXPECT_EQ(LogT(90 * Degree, 0, 0), -std::numeric_limits<double>::infinity());
    // The tangent of pi/2 in doubles is 1 / 6.123233995736766e-17.
    EXPECT_NEAR(LogT(-90 * Degree, 0, 0), -std::log(6.123233995736766e-17), 1e-14);
    EXPECT_TRUE(std::isnan(LogT(91 * Degree, 0, 0)));
    EXPECT_TRUE(std::isnan(LogT(-91 * Degree, 0, 0)));
}

} // namespace
