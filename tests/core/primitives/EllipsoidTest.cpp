#include "core/primitives/Ellipsoid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <type_traits>
#include <vector>

namespace {

using KvRefSystem::TCoords;
using KvRefSystem::TEllipsoid;
using Vertices = std::vector<vec_t_<double, 2>>;

// Hosts are compiled against this layout.
static_assert(sizeof(TEllipsoid) == 144);
static_assert(std::is_standard_layout_v<TEllipsoid> && !std::is_polymorphic_v<TEllipsoid>);
static_assert(offsetof(TEllipsoid, AuthalicSin4Coefficient) == 80);
static_assert(offsetof(TEllipsoid, MaxIterations) == 88);
static_assert(offsetof(TEllipsoid, Tolerance) == 96);
static_assert(offsetof(TEllipsoid, AuthalicInverse6) == 136);

constexpr double HalfPi = 1.5707963267948966;
constexpr double Degree = 3.141592653589793 / 180;
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

TEllipsoid Wgs84() {
    return TEllipsoid(6378137.0, 6356752.314245179);
}

TCoords Point(double x, double y, double z) {
    TCoords point;
    point.X = x;
    point.Y = y;
    point.Z = z;
    return point;
}

void ExpectPoint(TCoords const& point, double x, double y, double z, double planeTolerance,
                 double heightTolerance) {
    EXPECT_NEAR(point.X, x, planeTolerance);
    EXPECT_NEAR(point.Y, y, planeTolerance);
    EXPECT_NEAR(point.Z, z, heightTolerance);
}

/** A place in degrees and metres with its geocentric coordinates. */
struct Place {
    double lon;
    double lat;
    double h;
    double x;
    double y;
    double z;
};

// With 50 digits in mpmath, on WGS 84.
constexpr Place Places[] = {
    {37.0, 55.0, 200.0, 2928363.4035793576, 2206680.102940028, 5201547.3536111303},
    {-70.6483, -33.4569, 520.0, 1765232.5705105172, -5026169.3611508411, -3496633.7106039403},
    {179.9, 89.5, -30.0, -55845.919765016308, 97.469616340235941, 6356478.6385654666},
    {-120.0, -89.99, 2800.0, -558.71424099702251, -967.72145231912516, -6359552.2167311482},
    {10.0, 0.001, 35786000.0, 41523569.010350906, 7321725.5518347583, 735.15780190307425},
    {0.0, 45.0, -6000.0, 4513348.2381618118, 0.0, 4483105.7681788003},
    {86.925, 27.988, 8848.86, 302770.21363510459, 5636031.4258275554, 2979483.691454068},
};

/** Corners in degrees as (latitude, longitude). */
Vertices Polygon(std::vector<std::pair<double, double>> const& corners) {
    Vertices vertices;
    for (auto const& [lat, lon] : corners) {
        vec_t_<double, 2> vertex;
        vertex[0] = lat * Degree;
        vertex[1] = lon * Degree;
        vertices.push_back(vertex);
    }
    return vertices;
}

/** The same polygon with `count` vertices a side, on lines straight in latitude and longitude. */
Vertices Densified(std::vector<std::pair<double, double>> const& corners, int count) {
    std::vector<std::pair<double, double>> dense;
    for (std::size_t side = 0; side < corners.size(); ++side) {
        auto const& [lat1, lon1] = corners[side];
        auto const& [lat2, lon2] = corners[(side + 1) % corners.size()];
        for (int k = 0; k < count; ++k) {
            dense.emplace_back(lat1 + (lat2 - lat1) * k / count, lon1 + (lon2 - lon1) * k / count);
        }
    }
    return Polygon(dense);
}

std::vector<std::pair<double, double>> const DegreeBox = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
std::vector<std::pair<double, double>> const MoscowRegion = {
    {55.0, 37.0}, {55.1, 38.2}, {56.2, 38.0}, {56.0, 36.5}, {55.4, 36.8}};
std::vector<std::pair<double, double>> const Australia = {{-10, 110}, {-12, 145}, {-40, 150}, {-35, 115}};

// --- Derived numbers ---------------------------------------------------------------------------------------

TEST(Ellipsoid, DerivesTheNumbersOfWgs84) {
    // With 50 digits in mpmath.
    TEllipsoid const e = Wgs84();
    EXPECT_DOUBLE_EQ(e.SemiMajorAxis, 6378137.0);
    EXPECT_DOUBLE_EQ(e.SemiMinorAxis, 6356752.314245179);
    EXPECT_NEAR(e.Eccentricity, 0.081819190842621880164, 1e-15);
    EXPECT_NEAR(e.SecondEccentricity, 0.082094437949696074067, 1e-14); // 1 is taken from 1.0067
    EXPECT_NEAR(e.EccentricitySquared, 0.0066943799901413801327, 2e-16);
    EXPECT_NEAR(e.EccentricityPow4, 0.000044814723452405304762, 1e-17);
    EXPECT_NEAR(e.EccentricityPow6, 3.0000678794350170112e-7, 1e-19);
    EXPECT_NEAR(e.SecondEccentricitySquared, 0.0067394967422764989452, 5e-16);
    EXPECT_NEAR(e.AuthalicRadiusSeries, 6371007.2234777517674, 1e-8);
    EXPECT_NEAR(e.AuthalicSin4Coefficient, 2.1162508296969171693e-6, 1e-18);
    EXPECT_EQ(e.MaxIterations, 1000);
    EXPECT_EQ(e.Tolerance, 1e-12);
    EXPECT_NEAR(e.PolarQ, 1.9955310875028367492, 1e-13);
    EXPECT_NEAR(e.AuthalicRadius, 6371007.1809184738306, 1e-6);
    EXPECT_NEAR(e.AuthalicInverse2, 0.0022392088624808677019, 1e-15);
    EXPECT_NEAR(e.AuthalicInverse4, 2.8830839728914550336e-6, 1e-18);
    EXPECT_NEAR(e.AuthalicInverse6, 5.0331826636905818905e-9, 1e-21);
}

TEST(Ellipsoid, DerivesTheNumbersOfClarke1880) {
    // With 50 digits in mpmath.
    TEllipsoid const e(6378249.145, 6356514.869549776);
    EXPECT_NEAR(e.EccentricitySquared, 0.0068035112828487768039, 2e-16);
    EXPECT_NEAR(e.AuthalicRadiusSeries, 6371002.788348022031, 1e-8);
    EXPECT_NEAR(e.AuthalicSin2Coefficient, 0.0034097274233080071178, 1e-15);
    EXPECT_NEAR(e.PolarQ, 1.9954581360456264648, 1e-13);
    EXPECT_NEAR(e.AuthalicRadius, 6371002.7436696306867, 1e-6);
    EXPECT_NEAR(e.AuthalicInverse2, 0.0022758411803921556399, 1e-15);
}

TEST(Ellipsoid, AuthalicSin2CoefficientBeginsWithHalfE2AsHostsRelyOn) {
    // The published series begins with a third: 0.0022 and not 0.0034.
    EXPECT_NEAR(Wgs84().AuthalicSin2Coefficient, 0.0033549080863319376465, 1e-15);
}

TEST(Ellipsoid, PolarQOfASphereIsOneAndNotTwoAsHostsRelyOn) {
    TEllipsoid const sphere(6371000.0);
    EXPECT_EQ(sphere.SemiMajorAxis, 6371000.0);
    EXPECT_EQ(sphere.SemiMinorAxis, 6371000.0);
    EXPECT_EQ(sphere.Eccentricity, 0.0);
    EXPECT_EQ(sphere.SecondEccentricity, 0.0);
    EXPECT_EQ(sphere.PolarQ, 1.0);
    EXPECT_NEAR(sphere.AuthalicRadius, 4504977.302939494, 1e-6); // 6371000 sqrt(0.5)
    EXPECT_EQ(sphere.AuthalicRadiusSeries, 6371000.0);
    EXPECT_EQ(sphere.AuthalicInverse2, 0.0);
    EXPECT_EQ(TEllipsoid(6371000.0, 6371000.0).PolarQ, 1.0);
}

TEST(Ellipsoid, ProlateEccentricityIsANaN) {
    TEllipsoid const prolate(6356752.0, 6378137.0);
    EXPECT_LT(prolate.EccentricitySquared, 0.0);
    EXPECT_TRUE(std::isnan(prolate.Eccentricity));
    // A NaN isn't 0, so the form for an ellipsoid is taken.
    EXPECT_TRUE(std::isnan(prolate.PolarQ));
    EXPECT_TRUE(std::isnan(prolate.AuthalicRadius));
    EXPECT_TRUE(std::isnan(prolate.Calculate_q(0.5)));
    EXPECT_TRUE(std::isnan(prolate.CalculateArea(Polygon(DegreeBox))));
}

TEST(Ellipsoid, ProlateConversionsNeedTheSquareOnly) {
    TEllipsoid const prolate(6356752.0, 6378137.0);
    TCoords point = Point(0.3, 0.8, 500.0);
    prolate.EllipsoidalToCartesian(&point);
    prolate.CartesianToEllipsoidal(&point);
    ExpectPoint(point, 0.3, 0.8, 500.0, 1e-12, 1e-6);
}

TEST(Ellipsoid, CopyDerivesAgain) {
    TEllipsoid source = Wgs84();
    source.PolarQ = 7;
    source.MaxIterations = 3;
    source.Eccentricity = 0;
    TEllipsoid const copy(source);
    EXPECT_EQ(copy.SemiMajorAxis, source.SemiMajorAxis);
    EXPECT_EQ(copy.SemiMinorAxis, source.SemiMinorAxis);
    EXPECT_EQ(copy.PolarQ, Wgs84().PolarQ);
    EXPECT_EQ(copy.MaxIterations, 1000);
    EXPECT_EQ(copy.Eccentricity, Wgs84().Eccentricity);
}

TEST(Ellipsoid, AssignmentTakesAllNumbers) {
    TEllipsoid target(1.0);
    target = Wgs84();
    EXPECT_EQ(target.SemiMinorAxis, 6356752.314245179);
    EXPECT_EQ(target.PolarQ, Wgs84().PolarQ);
}

TEST(Ellipsoid, QGrowsFromMinusToPlusItsPolarValue) {
    TEllipsoid const e = Wgs84();
    // With 50 digits in mpmath.
    EXPECT_NEAR(e.Calculate_q(0.9), 1.5604433460989381868, 1e-13);
    EXPECT_NEAR(e.Calculate_q(-0.3), -0.58731270443676972984, 1e-13);
    EXPECT_EQ(e.Calculate_q(0.0), 0.0);
    EXPECT_NEAR(e.Calculate_q(HalfPi), e.PolarQ, 1e-15);
}

TEST(Ellipsoid, QOfASphereIsTheSine) {
    EXPECT_EQ(TEllipsoid(6371000.0).Calculate_q(0.9), std::sin(0.9));
}

// --- Conversions -------------------------------------------------------------------------------------------

TEST(Ellipsoid, ConvertsThePublishedExample) {
    // EPSG Guidance Note 7-2, method 9602: 53°48'33.820" N, 2°07'46.380" E, 73.0 m.
    TEllipsoid const e = Wgs84();
    double const lat = (53 + 48 / 60.0 + 33.820 / 3600) * Degree;
    double const lon = (2 + 7 / 60.0 + 46.380 / 3600) * Degree;
    TCoords point = Point(lon, lat, 73.0);
    e.EllipsoidalToCartesian(&point);
    ExpectPoint(point, 3771793.968, 140253.342, 5124304.349, 1e-3, 1e-3);

    point = Point(3771793.968, 140253.342, 5124304.349);
    e.CartesianToEllipsoidal(&point);
    ExpectPoint(point, lon, lat, 73.0, 0.0005 / 3600 * Degree, 1e-3);
}

TEST(Ellipsoid, CartesianAgreesWithManyDigits) {
    TEllipsoid const e = Wgs84();
    for (Place const& place : Places) {
        TCoords point = Point(place.lon * Degree, place.lat * Degree, place.h);
        e.EllipsoidalToCartesian(&point);
        ExpectPoint(point, place.x, place.y, place.z, 1e-8, 1e-8);
    }
}

TEST(Ellipsoid, EllipsoidalAgreesWithManyDigits) {
    TEllipsoid const e = Wgs84();
    for (Place const& place : Places) {
        TCoords point = Point(place.x, place.y, place.z);
        e.CartesianToEllipsoidal(&point);
        // Near a pole the division by the cosine costs the height some digits.
        double const heightTolerance = std::fabs(place.lat) > 89 ? 2e-5 : 2e-8;
        ExpectPoint(point, place.lon * Degree, place.lat * Degree, place.h, 2e-14, heightTolerance);
    }
}

TEST(Ellipsoid, ConvertsOnKrassowsky) {
    // With 50 digits in mpmath.
    TEllipsoid const e(6378245.0, 6356863.018773047);
    TCoords point = Point(37 * Degree, 55 * Degree, 200.0);
    e.EllipsoidalToCartesian(&point);
    ExpectPoint(point, 2928412.041737432, 2206716.7544210345, 5201638.7663302989, 1e-8, 1e-8);
}

TEST(Ellipsoid, ConvertsOnASphereInClosedForm) {
    TEllipsoid const sphere(6371000.0);
    TCoords point = Point(0.5, -0.7, 129000.0);
    sphere.EllipsoidalToCartesian(&point);
    ExpectPoint(point, 6500000.0 * std::cos(-0.7) * std::cos(0.5), 6500000.0 * std::cos(-0.7) * std::sin(0.5),
                6500000.0 * std::sin(-0.7), 1e-8, 1e-8);
    sphere.CartesianToEllipsoidal(&point);
    ExpectPoint(point, 0.5, -0.7, 129000.0, 1e-15, 1e-8);
}

TEST(Ellipsoid, ConversionsReturnEverywhereToTheTolerance) {
    TEllipsoid const e = Wgs84();
    for (int lat = -89; lat <= 89; ++lat) {
        for (double h : {-10000.0, 0.0, 9000.0, 400000.0, 36000000.0}) {
            TCoords point = Point((lat * 2.0 + 0.25) * Degree, lat * Degree, h);
            e.EllipsoidalToCartesian(&point);
            e.CartesianToEllipsoidal(&point);
            ExpectPoint(point, (lat * 2.0 + 0.25) * Degree, lat * Degree, h, 2e-14, 1e-6);
        }
    }
}

TEST(Ellipsoid, ConversionsLeaveTheHeightsMarkAlone) {
    TEllipsoid const e = Wgs84();
    TCoords point = Point(0.1, 0.2, 0.0);
    point.ZUndefined = true;
    e.EllipsoidalToCartesian(&point);
    EXPECT_TRUE(point.ZUndefined);
    e.CartesianToEllipsoidal(&point);
    EXPECT_TRUE(point.ZUndefined);
    point.ZUndefined = false;
    e.EllipsoidalToCartesian(&point);
    e.CartesianToEllipsoidal(&point);
    EXPECT_FALSE(point.ZUndefined);
}

TEST(Ellipsoid, NorthPoleComesToTheSouthPoleAsNothingGuardsIt) {
    TEllipsoid const e = Wgs84();
    TCoords point = Point(0, 0, 6356752.0);
    e.CartesianToEllipsoidal(&point);
    EXPECT_EQ(point.X, 0.0);
    EXPECT_EQ(point.Y, -HalfPi);
    EXPECT_NEAR(point.Z, -6399593.6257585, 1e-6); // -a / sqrt(1 - e2) = -a^2/b
}

TEST(Ellipsoid, SouthPoleKeepsItsLatitudeAndLosesItsHeight) {
    TEllipsoid const e = Wgs84();
    TCoords point = Point(0, 0, -6356752.0);
    e.CartesianToEllipsoidal(&point);
    EXPECT_EQ(point.Y, -HalfPi);
    EXPECT_NEAR(point.Z, -6399593.6257585, 1e-6);
}

TEST(Ellipsoid, HeightOnTheAxisIsMinusNWhateverItWas) {
    TEllipsoid const e = Wgs84();
    for (double z : {5000000.0, 6356752.0, 7000000.0, -10.0, -7000000.0}) {
        TCoords point = Point(0, 0, z);
        e.CartesianToEllipsoidal(&point);
        EXPECT_NEAR(point.Z, -6399593.6257585, 1e-6);
    }
}

TEST(Ellipsoid, NorthPoleTurnsRoundWithinTwoPicometresOfTheAxis) {
    TEllipsoid const e = Wgs84();
    // e2 N cos(pi/2) = 2.6e-12 m in doubles: nearer to the axis the denominator is negative.
    for (double p : {1e-13, 1e-12, 2e-12}) {
        TCoords point = Point(p, 0, 6356752.0);
        e.CartesianToEllipsoidal(&point);
        EXPECT_EQ(point.Y, -HalfPi) << p;
    }
    for (double p : {3e-12, 1e-11, 1e-9}) {
        TCoords point = Point(p, 0, 6356752.0);
        e.CartesianToEllipsoidal(&point);
        EXPECT_NEAR(point.Y, HalfPi, 1e-14) << p;
    }
}

TEST(Ellipsoid, CentreComesToANaNWithoutAnException) {
    TEllipsoid const e = Wgs84();
    TCoords point = Point(0, 0, 0);
    EXPECT_NO_THROW(e.CartesianToEllipsoidal(&point));
    EXPECT_EQ(point.X, 0.0);
    EXPECT_TRUE(std::isnan(point.Y));
    EXPECT_TRUE(std::isnan(point.Z));
}

TEST(Ellipsoid, NaNEndsTheIterationWithoutAnException) {
    TEllipsoid const e = Wgs84();
    for (TCoords point : {Point(NotANumber, 1, 1), Point(1, NotANumber, 1), Point(1, 1, NotANumber),
                          Point(Infinity, 1, Infinity)}) {
        EXPECT_NO_THROW(e.CartesianToEllipsoidal(&point));
        EXPECT_TRUE(std::isnan(point.Y));
    }
}

TEST(Ellipsoid, FailedIterationThrowsAndLeavesThePoint) {
    // Inside the evolute, 43 km from the centre, the second formula jumps between two latitudes for ever;
    // with 60 digits in mpmath it does too.
    TEllipsoid const e = Wgs84();
    TCoords point = Point(30000.0, 0.0, 31000.0);
    point.ZUndefined = true;
    try {
        e.CartesianToEllipsoidal(&point);
        FAIL() << "no exception";
    } catch (std::runtime_error const& error) {
        EXPECT_STREQ(error.what(), "CartesianToEllipsoidal");
    }
    EXPECT_EQ(point.X, 30000.0);
    EXPECT_EQ(point.Y, 0.0);
    EXPECT_EQ(point.Z, 31000.0);
    EXPECT_TRUE(point.ZUndefined);
}

TEST(Ellipsoid, SouthernPointsTakeTheFirstFormulaAsZIsComparedWithItsSign) {
    // The mirror image of the point that the second formula fails on; with 50 digits in mpmath.
    TEllipsoid const e = Wgs84();
    TCoords point = Point(30000.0, 0.0, -31000.0);
    e.CartesianToEllipsoidal(&point);
    ExpectPoint(point, 0.0, -1.1679167230980206, -6319764.1242110836, 1e-12, 1e-5);
}

TEST(Ellipsoid, IterationMakesOnePassMoreThanItsLimit) {
    // The point at 55° N needs four passes to 1e-12, its mirror image three (with 50 digits in mpmath).
    TCoords const north = Point(2928363.4035793576, 2206680.102940028, 5201547.3536111303);
    TCoords const south = Point(2928363.4035793576, 2206680.102940028, -5201547.3536111303);
    auto const converges = [](TCoords point, int limit) {
        TEllipsoid e = Wgs84();
        e.MaxIterations = limit;
        try {
            e.CartesianToEllipsoidal(&point);
        } catch (std::runtime_error const&) {
            return false;
        }
        return true;
    };
    EXPECT_FALSE(converges(north, 2));
    EXPECT_TRUE(converges(north, 3));
    EXPECT_FALSE(converges(south, 1));
    EXPECT_TRUE(converges(south, 2));
    EXPECT_FALSE(converges(north, 0));
    EXPECT_FALSE(converges(north, -5));
}

TEST(Ellipsoid, QuickAndPatientIterationsAgree) {
    // A limit below sixteen passes keeps the iteration on the angle itself.
    TEllipsoid const quick = Wgs84();
    TEllipsoid patient = Wgs84();
    patient.MaxIterations = 15;
    for (int lat = -890; lat <= 890; lat += 3) {
        TCoords point = Point(0.4, lat / 10.0 * Degree, lat * 7.0);
        quick.EllipsoidalToCartesian(&point);
        TCoords one = point;
        TCoords two = point;
        quick.CartesianToEllipsoidal(&one);
        patient.CartesianToEllipsoidal(&two);
        ExpectPoint(one, two.X, two.Y, two.Z, 1e-14, 1e-6);
    }
}

TEST(Ellipsoid, ToleranceOfTheObjectCounts) {
    // One pass suffices for a coarse tolerance, and leaves more than the usual 1e-12.
    TEllipsoid coarse = Wgs84();
    coarse.Tolerance = 1e-5;
    coarse.MaxIterations = 0;
    TCoords point = Point(2928363.4035793576, 2206680.102940028, 5201547.3536111303);
    EXPECT_NO_THROW(coarse.CartesianToEllipsoidal(&point));
    EXPECT_GT(std::fabs(point.Y - 55 * Degree), 1e-12);
    EXPECT_LT(std::fabs(point.Y - 55 * Degree), 1e-8);
}

// --- Authalic sphere ---------------------------------------------------------------------------------------

TEST(Ellipsoid, AuthalicTransformationIsATwoTermSeries) {
    // With 50 digits in mpmath.
    double lat = 0;
    double lon = 0;
    Wgs84().AuthalicTransformationOntoSphere(0.7, -2.5, &lat, &lon);
    EXPECT_NEAR(lat, 0.6966946156511388, 1e-15);
    EXPECT_EQ(lon, -2.5);
}

TEST(Ellipsoid, AuthalicTransformationMayWorkInPlace) {
    TEllipsoid const e = Wgs84();
    double lat = 0.7;
    double lon = -2.5;
    e.AuthalicTransformationOntoSphere(lat, lon, &lat, &lon);
    EXPECT_NEAR(lat, 0.6966946156511388, 1e-15);
    EXPECT_EQ(lon, -2.5);
    // Crosswise too.
    lat = 0.7;
    lon = -2.5;
    e.AuthalicTransformationOntoSphere(lat, lon, &lon, &lat);
    EXPECT_NEAR(lon, 0.6966946156511388, 1e-15);
    EXPECT_EQ(lat, -2.5);
}

// --- Areas -------------------------------------------------------------------------------------------------

TEST(EllipsoidArea, OfADegreeBoxAtTheEquator) {
    // With 50 digits in mpmath. The sides are straight on the map: the geodesic box of Planimeter has
    // 12308778361.5, the one between parallels 12308463894.0 square metres, 4e-5 and 1.3e-5 more.
    EXPECT_NEAR(Wgs84().CalculateArea(Polygon(DegreeBox)), 12308309698.658765, 1);
    EXPECT_NEAR(Wgs84().CalculateArea(Polygon(DegreeBox)) / 12308778361.5, 1, 5e-5);
}

TEST(EllipsoidArea, DoesNotDependOnTheDirection) {
    Vertices vertices = Polygon(MoscowRegion);
    double const area = Wgs84().CalculateArea(vertices);
    Vertices const reversed(vertices.rbegin(), vertices.rend());
    EXPECT_NEAR(Wgs84().CalculateArea(reversed), area, 1e-3);
    EXPECT_GT(area, 0.0);
}

TEST(EllipsoidArea, OfARegionIsNearTheGeodesicOne) {
    // 50 digits in mpmath; Planimeter (sides are geodesics): 10328989115.2.
    double const area = Wgs84().CalculateArea(Polygon(MoscowRegion));
    EXPECT_NEAR(area, 10328685882.813924, 1);
    EXPECT_NEAR(area / 10328989115.2, 1, 5e-5);
}

TEST(EllipsoidArea, OfASmallTriangleInTheSouthIsNearTheGeodesicOne) {
    // 50 digits in mpmath; Planimeter: 3865239917.6.
    double const area = Wgs84().CalculateArea(Polygon({{-33.0, -71.0}, {-33.5, -70.2}, {-34.0, -70.9}}));
    EXPECT_NEAR(area, 3865122578.466598, 1);
    EXPECT_NEAR(area / 3865239917.6, 1, 5e-5);
}

TEST(EllipsoidArea, OfACityBlockKeepsItsDigits) {
    // Planimeter: 1398105.6; the difference of the two kinds of sides is below its last digit.
    EXPECT_NEAR(
        Wgs84().CalculateArea(Polygon({{55.75, 37.60}, {55.75, 37.62}, {55.76, 37.62}, {55.76, 37.60}})),
        1398105.6, 0.1);
}

TEST(EllipsoidArea, OfDenselyDrawnPolygonsIsThatOfGeographicLib) {
    // Planimeter on the same vertices: with short sides it doesn't matter which lines join them.
    EXPECT_NEAR(Wgs84().CalculateArea(Densified(MoscowRegion, 400)) / 10317259111.1, 1, 1e-7);
    EXPECT_NEAR(Wgs84().CalculateArea(Densified(Australia, 400)) / 10144190195582.6, 1, 1e-6);
}

TEST(EllipsoidArea, BetweenParallelsIsExact) {
    // a^2/2 (lon2 - lon1) (q2 - q1), with 50 digits in mpmath.
    EXPECT_NEAR(Wgs84().CalculateArea(Densified({{50, 0}, {50, 10}, {55, 10}, {55, 0}}, 2000)) /
                    377717045580.6386,
                1, 1e-8);
    EXPECT_NEAR(Wgs84().CalculateArea(Densified({{-40, 80}, {-40, 100}, {-20, 100}, {-20, 80}}, 2000)) /
                    4256612492154.5598,
                1, 1e-8);
}

TEST(EllipsoidArea, AcrossTheAntimeridianEqualsTheSameBoxElsewhere) {
    TEllipsoid const e = Wgs84();
    double const area = e.CalculateArea(Polygon(DegreeBox));
    EXPECT_NEAR(e.CalculateArea(Polygon({{0, 179.5}, {0, -179.5}, {1, -179.5}, {1, 179.5}})), area, 0.1);
    EXPECT_NEAR(e.CalculateArea(Polygon({{0, 179.5}, {0, 180.5}, {1, 180.5}, {1, 179.5}})), area, 0.1);
}

TEST(EllipsoidArea, RangeOfHalfATurnCountsAsAcrossTheAntimeridian) {
    // From 100° W to 100° E through Greenwich: the centre goes to 180°. With 50 digits in mpmath.
    EXPECT_NEAR(Wgs84().CalculateArea(Polygon({{0, -100}, {0, 100}, {30, 0}})) / 99785127817940.346, 1, 1e-9);
}

TEST(EllipsoidArea, LongitudesBeyondHalfATurnEnterTheBoxNormalised) {
    TEllipsoid const e = Wgs84();
    double const area = e.CalculateArea(Polygon(DegreeBox));
    EXPECT_NEAR(e.CalculateArea(Polygon({{0, 360}, {0, 361}, {1, 361}, {1, 360}})), area, 0.1);
    EXPECT_NEAR(e.CalculateArea(Polygon({{0, 0}, {0, 361}, {1, -359}, {1, 720}})), area, 0.1);
}

TEST(EllipsoidArea, OnASphereIsOneHalfOfTheTrueOneAsHostsRelyOn) {
    TEllipsoid const sphere(6371000.0);
    EXPECT_NEAR(sphere.CalculateArea(Polygon(DegreeBox)), 6181763501.70, 0.01);
    // R^2 (lon2 - lon1) (sin lat2 - sin lat1) = 12363683990.26 between parallels.
    EXPECT_NEAR(sphere.CalculateArea(Densified(DegreeBox, 1000)), 12363683990.261117 / 2, 20);
}

TEST(EllipsoidArea, OfFewerThanThreeVerticesIsZero) {
    TEllipsoid const e = Wgs84();
    EXPECT_EQ(e.CalculateArea({}), 0.0);
    EXPECT_EQ(e.CalculateArea(Polygon({{10, 10}})), 0.0);
    EXPECT_EQ(e.CalculateArea(Polygon({{10, 10}, {11, 11}})), 0.0);
}

TEST(EllipsoidArea, OfAnEmptyBoxIsZero) {
    TEllipsoid const e = Wgs84();
    EXPECT_EQ(e.CalculateArea(Polygon({{10, 20}, {30, 20}, {50, 20}})), 0.0); // on one meridian
    EXPECT_EQ(e.CalculateArea(Polygon({{10, 20}, {10, 30}, {10, 40}})), 0.0); // on one parallel
    EXPECT_EQ(e.CalculateArea(Polygon({{10, 20}, {10, 20}, {10, 20}})), 0.0);
    EXPECT_EQ(e.CalculateArea(Vertices(3, vec_t_<double, 2>{{NotANumber, NotANumber}})), 0.0);
}

TEST(EllipsoidArea, OfVerticesOnOneStraightLineIsNearlyZero) {
    EXPECT_NEAR(Wgs84().CalculateArea(Polygon({{0, 0}, {0, 1}, {0, 2}, {1e-9, 1}})), 12.3,
                0.2); // 1e-9° by 2° / 2
}

} // namespace
