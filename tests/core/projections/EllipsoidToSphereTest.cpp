#include "core/projections/EllipsoidToSphere.h"

#include "tests/core/projections/TransverseChecks.h"

#include <cstddef>
#include <random>
#include <type_traits>

namespace {

using namespace ProjectionChecks;
using Mapping = KvRefSystem::TEllipsoidToSphereMollweideProjection;

// Hosts are compiled against this layout.
static_assert(sizeof(Mapping) == 160);
static_assert(std::is_standard_layout_v<Mapping> && std::is_trivially_copyable_v<Mapping>);
static_assert(offsetof(Mapping, Eccentricity) == 16 && offsetof(Mapping, HalfEccentricity) == 48);
static_assert(offsetof(Mapping, SphereRadius) == 56 && offsetof(Mapping, Accuracy) == 72);
static_assert(offsetof(Mapping, StopThreshold) == 88 && offsetof(Mapping, ForwardSin2Coefficient) == 96);
static_assert(offsetof(Mapping, ReverseSin2Coefficient) == 120 &&
              offsetof(Mapping, CentralScaleRatio) == 144);
static_assert(offsetof(Mapping, CentralScaleBase) == 152);

Mapping AtEquator(double accuracy = 0) {
    return Mapping(Wgs84.a, Wgs84.b, 0, accuracy);
}

// Conformal latitudes on WGS 84 with 40 digits in mpmath.
constexpr double Chi45 = 0.78204161697211739635;
constexpr double ChiMinus60 = -1.0442866240206812344;

constexpr double Rounding = 4e-16; // radians
constexpr double Relative = 4e-15;

void ExpectRelative(double value, double expected) {
    EXPECT_NEAR(value, expected, Relative * std::fabs(expected));
}

} // namespace

TEST(EllipsoidToSphere, LatitudesBecomeConformal) {
    Mapping const mapping = AtEquator();
    double chi = 0;
    mapping.LatitudeEllipsoidToSphere(Pi / 4, &chi);
    EXPECT_NEAR(chi, Chi45, Rounding);
    mapping.LatitudeEllipsoidToSphere(-60 * Degree, &chi);
    EXPECT_NEAR(chi, ChiMinus60, Rounding);
    mapping.LatitudeEllipsoidToSphere(0, &chi);
    EXPECT_NEAR(chi, 0, Rounding);
}

TEST(EllipsoidToSphere, PolesStayPoles) {
    Mapping const mapping = AtEquator();
    for (double const pole : {Pi / 2, -Pi / 2}) {
        double latitude = 0;
        mapping.LatitudeEllipsoidToSphere(pole, &latitude);
        EXPECT_NEAR(latitude, pole, Rounding);
        EXPECT_EQ(mapping.LatitudeSphereToEllipsoid(latitude, &latitude), 1);
        EXPECT_NEAR(latitude, pole, Rounding);
    }
}

TEST(EllipsoidToSphere, IterationReturnsTheValueOfThePassThatStoppedIt) {
    // The passes with 40 digits in mpmath: four of them, 4.3e-13 below 45 degrees.
    Mapping const mapping = AtEquator();
    double phi = 0;
    EXPECT_EQ(mapping.LatitudeSphereToEllipsoid(Chi45, &phi), 4);
    EXPECT_NEAR(phi, 0.78539816339702058329, Rounding);
    EXPECT_EQ(mapping.LatitudeSphereToEllipsoid(0.086685204558030860985, &phi), 4);
    EXPECT_NEAR(phi, 0.087266462598583912683, Rounding);
    EXPECT_EQ(mapping.LatitudeSphereToEllipsoid(1.4829453948563859867, &phi), 3);
    EXPECT_NEAR(phi, 1.4835298641951800617, Rounding);
    EXPECT_EQ(mapping.LatitudeSphereToEllipsoid(0, &phi), 1);
    EXPECT_NEAR(phi, 0, Rounding);
}

TEST(EllipsoidToSphere, AccuracyDecidesHowManyPassesAreMade) {
    // The passes with 40 digits in mpmath, on the way back from 45 degrees.
    double phi = 0;
    EXPECT_EQ(AtEquator(1e-3).LatitudeSphereToEllipsoid(Chi45, &phi), 1);
    EXPECT_NEAR(phi, 0.785386871832934654, Rounding);
    EXPECT_EQ(AtEquator(1e-6).LatitudeSphereToEllipsoid(Chi45, &phi), 2);
    EXPECT_NEAR(phi, 0.785398125475291211, Rounding);
}

TEST(EllipsoidToSphere, AccuracyOfZeroOrBelowSelectsTheTenthPowerOfTheEccentricity) {
    // By mpmath with 40 digits.
    for (double const accuracy : {0.0, -1.0, -1e-30}) {
        Mapping const mapping = AtEquator(accuracy);
        ExpectRelative(mapping.Accuracy, 1.34447212355317967e-11);
        ExpectRelative(mapping.StopThreshold, 9.90734997822213339e-10);
    }
    EXPECT_EQ(AtEquator(1e-7).Accuracy, 1e-7);
}

TEST(EllipsoidToSphere, TenthPassStandsWhetherItConvergedOrNot) {
    // Half as high as wide: the threshold is negative, the passes are slow. By mpmath with 40 digits they
    // have come to within 0.6 degrees of 20 degrees.
    Mapping const mapping(2, 1, 0, 0);
    EXPECT_LT(mapping.StopThreshold, 0);
    double phi = 0;
    EXPECT_EQ(mapping.LatitudeSphereToEllipsoid(0.0918110473688038438, &phi), 10);
    EXPECT_NEAR(phi, 0.338152558388447335, 1e-15);
}

TEST(EllipsoidToSphere, WhatIsNoNumberCostsTenPassesAndStaysNone) {
    Mapping const mapping = AtEquator();
    double phi = 0;
    EXPECT_EQ(mapping.LatitudeSphereToEllipsoid(NotANumber, &phi), 10);
    EXPECT_TRUE(std::isnan(phi));
    EXPECT_TRUE(std::isnan(mapping.LatitudeOfConformal(NotANumber, NotANumber)));
}

TEST(EllipsoidToSphere, SphereMakesTenPassesAndGivesTheLatitudeItself) {
    Mapping const sphere(6371000, 6371000, 0, 0);
    double phi = 0;
    EXPECT_EQ(sphere.LatitudeSphereToEllipsoid(0.5, &phi), 10);
    EXPECT_NEAR(phi, 0.5, Rounding);
    EXPECT_NEAR(sphere.LatitudeOfConformal(std::sin(0.5), std::cos(0.5)), 0.5, Rounding);
    EXPECT_FALSE(std::isfinite(sphere.StopThreshold));
    EXPECT_EQ(sphere.MaxIterationsCount(), 0);
}

TEST(EllipsoidToSphere, ShortIterationMakesTheSamePasses) {
    // Also on a body as flat as Saturn, where the power takes its full way, and with passes that end early.
    for (Mapping const& mapping : {AtEquator(), AtEquator(1e-3), AtEquator(1e-6), AtEquator(1e-300),
                                   Mapping(60268000, 54364000, 0, 0), Mapping(60268000, 54364000, 0, 1e-4)}) {
        for (double chi = -89.9; chi < 90; chi += 0.1) {
            double phi = 0;
            mapping.LatitudeSphereToEllipsoid(chi * Degree, &phi);
            double const direct = mapping.LatitudeOfConformal(std::sin(chi * Degree), std::cos(chi * Degree));
            EXPECT_NEAR(direct, phi, 2e-15) << chi;
        }
    }
}

TEST(EllipsoidToSphere, ConformalTangentIsThatOfHalfTheLatitudeAndAQuarterOfPi) {
    Mapping const mapping = AtEquator();
    ExpectRelative(mapping.ConformalTangent(Pi / 4), std::tan(Chi45 / 2 + Pi / 4));
    ExpectRelative(mapping.ConformalTangent(-60 * Degree), std::tan(ChiMinus60 / 2 + Pi / 4));
}

TEST(EllipsoidToSphere, LongitudesPassThroughUnchanged) {
    Mapping const mapping = AtEquator();
    using TOperation = void (Mapping::*)(double const&, double const&, double*, double*) const;
    for (TOperation const operation :
         {&Mapping::EllipsoidToSphere, &Mapping::SphereToEllipsoid, &Mapping::EllipsoidToSphereApprox,
          &Mapping::SphereToEllipsoidApprox}) {
        for (double const given : {0.0, -3.0, 100.0, Infinity}) {
            double latitude = 0;
            double longitude = 0;
            (mapping.*operation)(0.7, given, &latitude, &longitude);
            EXPECT_EQ(longitude, given);
        }
    }
}

TEST(EllipsoidToSphere, OutputsMayBeTheInputsVariables) {
    Mapping const mapping = AtEquator();
    using TOperation = void (Mapping::*)(double const&, double const&, double*, double*) const;
    for (TOperation const operation :
         {&Mapping::EllipsoidToSphere, &Mapping::SphereToEllipsoid, &Mapping::EllipsoidToSphereApprox,
          &Mapping::SphereToEllipsoidApprox}) {
        double latitude = 0;
        double longitude = 0;
        (mapping.*operation)(0.7, 0.2, &latitude, &longitude);
        double first = 0.7;
        double second = 0.2;
        (mapping.*operation)(first, second, &first, &second);
        EXPECT_EQ(first, latitude);
        EXPECT_EQ(second, longitude);
        first = 0.7;
        second = 0.2;
        (mapping.*operation)(first, second, &second, &first);
        EXPECT_EQ(second, latitude);
        EXPECT_EQ(first, longitude);
    }
}

TEST(EllipsoidToSphere, DrawnPlacesComeBack) {
    Mapping const mapping = AtEquator();
    std::mt19937_64 generator(1518);
    std::uniform_real_distribution<double> drawn(-1, 1);
    for (int place = 0; place < 5000; ++place) {
        double const phi = drawn(generator) * Pi / 2;
        double const lambda = drawn(generator) * Pi;
        double latitude = phi;
        double longitude = lambda;
        mapping.EllipsoidToSphere(latitude, longitude, &latitude, &longitude);
        mapping.SphereToEllipsoid(latitude, longitude, &latitude, &longitude);
        EXPECT_NEAR(latitude, phi, 8e-12);
        EXPECT_EQ(longitude, lambda);
    }
}

TEST(EllipsoidToSphere, PairsGoThroughTheLatitudes) {
    Mapping const mapping = AtEquator();
    double latitude = 0;
    double longitude = 0;
    mapping.EllipsoidToSphere(Pi / 4, 0.2, &latitude, &longitude);
    EXPECT_NEAR(latitude, Chi45, Rounding);
    mapping.SphereToEllipsoid(Chi45, 0.2, &latitude, &longitude);
    EXPECT_NEAR(latitude, 0.78539816339702058329, Rounding);
}

TEST(EllipsoidToSphere, SeriesHaveTheirStatedCoefficientsOnPurpose) {
    // By mpmath with 40 digits; some of the last terms aren't the printed ones.
    Mapping const mapping = AtEquator();
    ExpectRelative(mapping.ForwardSin2Coefficient, -0.0033565513963555714);
    ExpectRelative(mapping.ForwardSin4Coefficient, 4.6919508970043244e-6);
    ExpectRelative(mapping.ForwardSin6Coefficient, -7.5001696985873303e-9);
    ExpectRelative(mapping.ReverseSin2Coefficient, 0.0033565482712848636);
    ExpectRelative(mapping.ReverseSin4Coefficient, 6.5742313802516849e-6);
    ExpectRelative(mapping.ReverseSin6Coefficient, 1.6875381821821493e-8);
}

TEST(EllipsoidToSphere, SeriesAreNearTheClosedForms) {
    // By mpmath with 40 digits.
    Mapping const mapping = AtEquator();
    double latitude = 0;
    double longitude = 0;
    mapping.EllipsoidToSphereApprox(Pi / 4, 0, &latitude, &longitude);
    EXPECT_NEAR(latitude, 0.782041619501262437, Rounding);
    mapping.EllipsoidToSphereApprox(-60 * Degree, 0, &latitude, &longitude);
    EXPECT_NEAR(latitude, -1.04428662906957558, Rounding);
    mapping.SphereToEllipsoidApprox(-60 * Degree, 0, &latitude, &longitude);
    EXPECT_NEAR(latitude, -1.05009871381717352, Rounding);
    for (double phi = -90; phi <= 90; phi += 1) {
        double closed = 0;
        mapping.LatitudeEllipsoidToSphere(phi * Degree, &closed);
        mapping.EllipsoidToSphereApprox(phi * Degree, 0, &latitude, &longitude);
        EXPECT_NEAR(latitude, closed, 6e-9);
        mapping.SphereToEllipsoidApprox(closed, 0, &latitude, &longitude);
        EXPECT_NEAR(latitude, phi * Degree, 6e-9);
        mapping.LatitudeSphereToEllipsoid(closed, &latitude);
        EXPECT_NEAR(latitude, phi * Degree, 8e-12);
    }
}

TEST(EllipsoidToSphere, ScaleIsOneAtTheCentralLatitude) {
    Mapping const mapping(Wgs84.a, Wgs84.b, 50 * Degree, 0);
    ExpectRelative(mapping.EllipsoidToSphereScale(50 * Degree), 1);
    EXPECT_EQ(mapping.EllipsoidToSphereScaleApprox(50 * Degree), 1);
    // By mpmath with 40 digits.
    ExpectRelative(mapping.CentralScaleRatio, 0.998041881332639843);
    ExpectRelative(mapping.SphereRadius, 6365647.85087731949);
    ExpectRelative(mapping.CentralScaleBase, 1.00196421171900983);
    ExpectRelative(mapping.EllipsoidToSphereScale(-60 * Degree), 1.0005483797730148);
    ExpectRelative(mapping.EllipsoidToSphereScaleApprox(-60 * Degree), 1.0005451100657139);
}

TEST(EllipsoidToSphere, ScaleGrowsFromTheEquator) {
    // By mpmath with 40 digits.
    Mapping const mapping = AtEquator();
    ExpectRelative(mapping.EllipsoidToSphereScale(Pi / 4), 1.00167029635786);
    ExpectRelative(mapping.EllipsoidToSphereScaleApprox(Pi / 4), 1.00167359499753533);
    EXPECT_EQ(mapping.CentralScaleRatio, 1);
    EXPECT_EQ(mapping.SphereRadius, Wgs84.a);
}

TEST(EllipsoidToSphere, NumberOfPassesFollowsFromTheAccuracy) {
    // floor(log(2 accuracy / e2) / log(2 e2) + 1): 5.48, 1.28, 2.88 and 6.08 before the floor.
    EXPECT_EQ(AtEquator().MaxIterationsCount(), 5);
    EXPECT_EQ(AtEquator(1e-3).MaxIterationsCount(), 1);
    EXPECT_EQ(AtEquator(1e-6).MaxIterationsCount(), 2);
    EXPECT_EQ(AtEquator(1e-12).MaxIterationsCount(), 6);
}

TEST(EllipsoidToSphere, CopiesMemberByMember) {
    Mapping const source(Wgs84.a, Wgs84.b, 50 * Degree, 1e-7);
    Mapping const copy(source);
    EXPECT_EQ(copy.SemiMajorAxis, Wgs84.a);
    EXPECT_EQ(copy.SemiMinorAxis, Wgs84.b);
    EXPECT_EQ(copy.CentralLatitude, 50 * Degree);
    EXPECT_EQ(copy.Accuracy, 1e-7);
    EXPECT_EQ(copy.EllipsoidToSphereScale(0.3), source.EllipsoidToSphereScale(0.3));
}
