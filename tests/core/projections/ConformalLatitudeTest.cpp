#include "core/projections/ConformalLatitude.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace KvRefSystem;

namespace {

// Clarke 1866.
constexpr double Clarke1866E2 = 0.00676866;

TEST(ConformalLatitudeSeries, HasTheCoefficientsOfItsSource) {
    // The sums of fractions for e2 = 1/100, by Python's Fraction.
    TConformalLatitudeSeries const series(0.01);
    EXPECT_DOUBLE_EQ(series.Sin2, 0.0050209170277777781);
    EXPECT_DOUBLE_EQ(series.Sin4, 1.4704870659722223e-05);
    EXPECT_DOUBLE_EQ(series.Sin6, 5.9056547619047619e-08);
    EXPECT_DOUBLE_EQ(series.Sin8, 2.6531498015873016e-10);
}

TEST(ConformalLatitudeSeries, IsTheSumOfFourSines) {
    TConformalLatitudeSeries const series(Clarke1866E2);
    for (double chi = -1.57; chi < 1.58; chi += 0.01) {
        double const sum = chi + series.Sin2 * std::sin(2 * chi) + series.Sin4 * std::sin(4 * chi) +
                           series.Sin6 * std::sin(6 * chi) + series.Sin8 * std::sin(8 * chi);
        ASSERT_NEAR(series.Latitude(chi), sum, 5e-16);
    }
}

TEST(ConformalLatitudeSeries, StaysCloseToTheClosedRelation) {
    double const e = std::sqrt(Clarke1866E2);
    TConformalLatitudeSeries const series(Clarke1866E2);
    double greatest = 0;
    for (double phi = -1.5; phi < 1.51; phi += 0.001) {
        double const s = e * std::sin(phi);
        double const isometric = std::asinh(std::tan(phi)) - e * std::atanh(s);
        double const chi = std::atan(std::sinh(isometric));
        greatest = std::fmax(greatest, std::fabs(series.Latitude(chi) - phi));
    }
    EXPECT_LT(greatest, 2.2e-12);
    EXPECT_GT(greatest, 1e-12); // The truncation is really there.
}

TEST(ConformalLatitudeSeries, LeavesTheLatitudesOfASphere) {
    TConformalLatitudeSeries const series(0);
    EXPECT_EQ(series.Latitude(0.7), 0.7);
    EXPECT_EQ(series.Latitude(-1.5707963267948966), -1.5707963267948966);
}

} // namespace
