#include "core/projections/Orthographic.h"

#include "tests/core/projections/ProjectionChecks.h"

namespace {

using namespace ProjectionChecks;
using KvRefSystem::TOrthographicMapProjection;
using Record = KvRefSystem::TOrthographicMapProjectionParameters;

constexpr std::array<double, 4> Fields = {0.9, 0.1, 3, 4};

TOrthographicMapProjection From(double latitude, double longitude, double falseEasting = 0,
                                double falseNorthing = 0) {
    Record const record(latitude * Degree, longitude * Degree, falseEasting, falseNorthing);
    return TOrthographicMapProjection(&Wgs84, &record);
}

TEST(Orthographic, GivesTheExampleOfTheGuidanceNote) {
    // [EPSG7-2, 9840]: WGS 84, origin 55 N 5 E.
    double const phi = Dms(53, 48, 33.82);
    double const lambda = Dms(2, 7, 46.38);
    ExpectNear(Project(From(55, 5), phi, lambda), -189011.711, -128640.567, 0.001);
    ExpectNear(Unproject(From(55, 5), -189011.711, -128640.567), lambda * Degree, phi * Degree, 2e-10);
    ExpectNear(Project(From(55, 5, 300, 400), phi, lambda), -189011.711 + 300, -128640.567 + 400, 0.001);
}

TEST(Orthographic, RoundTripsCloseOnTheVisibleHalf) {
    // The step within the tolerance of 1e-12 radians stays away: up to 6.4 micrometres.
    EXPECT_LT(GreatestRoundTripError(From(55, 5), {-10, 80, -45, 55}), 2e-5);
    EXPECT_LT(GreatestRoundTripError(From(-30, 100), {-80, 20, 60, 140}), 2e-5);
}

TEST(Orthographic, ReverseOverThePoleIsCutAtThePoleAndThatIsMeant) {
    // 87 N, 158 degrees from the origin's meridian, is 93 degrees up the meridian 22 degrees on the other side.
    TCoords const plane = Project(From(55, 5), 87, 5 + 158);
    ExpectNear(Unproject(From(55, 5), plane.X, plane.Y), (5 - 22) * Degree, Pi / 2, 1e-9);
}

TEST(Orthographic, ReverseStopsWithoutApplyingTheLastStep) {
    // Newton's iterates of (61 N, 43 W) with 30 digits, mpmath: the last step would be 7.9e-13 radians.
    TCoords const point = Unproject(From(55, 5), -2303845.67227595728, 1507277.75444870459);
    EXPECT_NEAR(point.Y, 1.06465084371677763, 2e-14);
    EXPECT_NEAR(point.X, -0.750491578356772163, 2e-14);
    EXPECT_GT(std::fabs(point.X + 43 * Degree), 7e-13);
}

TEST(Orthographic, ReverseBeyondTheVisibleHalfEndsWithTheLatestValues) {
    TOrthographicMapProjection const projection = From(55, 5);
    TCoords const point = Unproject(projection, 8e6, 0);
    EXPECT_LE(std::fabs(point.Y), Pi / 2);
    EXPECT_LE(std::fabs(point.X), Pi);
    TCoords plane = point;
    projection.GeodeticToProjected(&plane);
    EXPECT_GT(std::hypot(plane.X - 8e6, plane.Y), 1e6);
}

TEST(Orthographic, ReverseOfAnOriginAtThePoleFindsNoWayAndThatIsMeant) {
    // It starts at the pole, where the longitude says nothing: the Jacobian is singular but for rounding.
    TOrthographicMapProjection const projection = From(90, 0);
    TCoords const plane = Project(projection, 80, 30);
    // nu cos(80) = 1111164.871 m, mpmath.
    ExpectNear(plane, 1111164.8708 / 2, -1111164.8708 * std::sqrt(0.75), 1e-3);
    TCoords const back = Unproject(projection, plane.X, plane.Y);
    EXPECT_FALSE(std::fabs(back.X - 30 * Degree) < 1e-9 && std::fabs(back.Y - 80 * Degree) < 1e-9);
}

TEST(Orthographic, FarHalfIsProjectedToo) {
    // The antipode of an origin on the equator falls onto the origin.
    ExpectNear(Project(From(0, 5, 10, 20), 0, 185), 10, 20, 1e-8);
}

TEST(Orthographic, JacobianHoldsTheDerivatives) {
    // Derivatives of the projection at 50 N 12 E with 50 digits, mpmath.
    double easting = 0;
    double northing = 0;
    std::array<double, 4> jacobian{};
    From(55, 5).GeodeticToProjected(50 * Degree, 12 * Degree, &easting, &northing, jacobian.data());
    EXPECT_NEAR(easting, 500622.6995929535, 2e-9);
    EXPECT_NEAR(northing, -530595.5660629261, 2e-9);
    EXPECT_NEAR(jacobian[0], -594962.1704782738, 1e-8);
    EXPECT_NEAR(jacobian[1], 4077244.695192869, 1e-8);
    EXPECT_NEAR(jacobian[2], 6318896.415933451, 1e-8);
    EXPECT_NEAR(jacobian[3], 410086.1077890417, 1e-8);
}

TEST(Orthographic, JacobianMayBeLeftOut) {
    TOrthographicMapProjection const projection = From(55, 5, 300, 400);
    double easting = 0;
    double northing = 0;
    projection.GeodeticToProjected(50 * Degree, 12 * Degree, &easting, &northing, nullptr);
    ExpectNear(Project(projection, 50, 12), easting, northing, 0);
}

TEST(Orthographic, ResultsMayTakeTheArgumentsPlaces) {
    TOrthographicMapProjection const projection = From(55, 5);
    double first = 50 * Degree;
    double second = 12 * Degree;
    projection.GeodeticToProjected(first, second, &first, &second, nullptr);
    ExpectNear(Project(projection, 50, 12), first, second, 0);
}

TEST(Orthographic, NormalisesTheReverseLongitude) {
    TOrthographicMapProjection const projection = From(10, 179);
    TCoords const plane = Project(projection, 12, 182);
    EXPECT_NEAR(Unproject(projection, plane.X, plane.Y).X, -178 * Degree, 2e-12);
}

TEST(Orthographic, FieldsStandInTheirStoredOrder) {
    ExpectRecordInStoredOrder<Record>(Fields);
    Record const record(1, 2, 3, 4);
    EXPECT_EQ(record.LatitudeOfOrigin, 1);
    EXPECT_EQ(record.LongitudeOfOrigin, 2);
    EXPECT_EQ(record.FalseEasting, 3);
    EXPECT_EQ(record.FalseNorthing, 4);
}

TEST(Orthographic, EqualityComparesTheWholeRecordAndNotTheEllipsoid) {
    ExpectEqualityOfRecords<TOrthographicMapProjection>(RecordOf<Record>(Fields));
}

TEST(Orthographic, CopiesStandAlone) {
    ExpectCopiesToStandAlone<TOrthographicMapProjection>(Wgs84, RecordOf<Record>(Fields), 50, 12);
}

TEST(Orthographic, TakesAnyNumber) {
    ExpectToTakeAnyNumber(From(55, 5));
    ExpectToTakeAnyNumber(From(90, 0));
}

} // namespace
