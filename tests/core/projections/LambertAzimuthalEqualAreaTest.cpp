#include "core/projections/LambertAzimuthalEqualArea.h"

#include "tests/core/projections/ProjectionChecks.h"

namespace {

using namespace ProjectionChecks;
using KvRefSystem::TLambertAzimuthalEqualAreaMapProjection;
using Record = KvRefSystem::TLambertAzimuthalEqualAreaMapProjectionParameters;

constexpr std::array<double, 4> Fields = {0.9, 0.1, 3, 4};
constexpr TEllipsoidSemiAxes Grs80 = {6378137, 6378137 * (1 - 1 / 298.2572221)};

TLambertAzimuthalEqualAreaMapProjection From(double latitude, double longitude,
                                             TEllipsoidSemiAxes const& axes = Wgs84) {
    Record const record(latitude * Degree, longitude * Degree, 0, 0);
    return TLambertAzimuthalEqualAreaMapProjection(&axes, &record);
}

TLambertAzimuthalEqualAreaMapProjection Europe() {
    Record const record(52 * Degree, 10 * Degree, 4321000, 3210000);
    return TLambertAzimuthalEqualAreaMapProjection(&Grs80, &record);
}

TEST(LambertAzimuthalEqualArea, GivesTheExampleOfTheGuidanceNote) {
    // [EPSG7-2, 9820]: ETRS89 / LAEA Europe, 50 N 5 E.
    ExpectNear(Project(Europe(), 50, 5), 3962799.45, 2999718.85, 0.005);
    ExpectNear(Project(Europe(), 50, 5), 3962799.4510, 2999718.8532, 1e-4);
    ExpectNear(Unproject(Europe(), 3962799.4510, 2999718.8532), 5 * Degree, 50 * Degree, 3e-10);
}

TEST(LambertAzimuthalEqualArea, GivesSnydersExample) {
    // [Snyder87, 333-334]: Clarke 1866, origin 40 N 100 W, place 30 N 110 W.
    ExpectNear(Project(From(40, -100, Clarke1866), 30, -110), -965932.1, -1056814.9, 0.05);
    ExpectNear(Unproject(From(40, -100, Clarke1866), -965932.1, -1056814.9), -110 * Degree, 30 * Degree,
               2e-8);
}

TEST(LambertAzimuthalEqualArea, RoundTripsCloseWithinNinetyDegreesOfLongitude) {
    // The latitude's series ends with the sixth power of the eccentricity.
    EXPECT_LT(GreatestRoundTripError(Europe(), {24, 85, -36, 46}), 0.002);
    EXPECT_LT(GreatestRoundTripError(Europe(), {-30, 89.9, -75, 95}), 0.002);
    EXPECT_LT(GreatestRoundTripError(From(-20, 100), {-85, 60, 30, 170}), 0.002);
}

TEST(LambertAzimuthalEqualArea, ReverseOfTheOriginIsNotANumberAndThatIsMeant) {
    TCoords const origin = Unproject(Europe(), 4321000, 3210000);
    EXPECT_TRUE(std::isnan(origin.X));
    EXPECT_TRUE(std::isnan(origin.Y));
    TCoords const beside = Unproject(Europe(), 4321000, 3210000.001);
    ExpectNear(beside, 10 * Degree, 52 * Degree, 1e-9);
}

TEST(LambertAzimuthalEqualArea, LongitudesBeyondNinetyDegreesComeBackHalfATurnOffAndThatIsMeant) {
    TLambertAzimuthalEqualAreaMapProjection const projection = From(52, 10);
    TCoords const plane = Project(projection, 70, 130);
    TCoords const back = Unproject(projection, plane.X, plane.Y);
    EXPECT_NEAR(back.X, -50 * Degree, 1e-12);
    EXPECT_NEAR(back.Y, 70 * Degree, 1e-9);
}

TEST(LambertAzimuthalEqualArea, ReverseOutsideOfTheMapIsNotANumber) {
    TCoords const point = Unproject(From(52, 10), 1e7, 1e7);
    EXPECT_TRUE(std::isnan(point.X));
    EXPECT_TRUE(std::isnan(point.Y));
}

TEST(LambertAzimuthalEqualArea, OriginAtThePoleStretchesTheMapAndThatIsMeant) {
    // PROJ's polar laea gives 557704.5255 and -965972.5737. The quotient of two vanishing cosines, which
    // ought to be 1, is 1 / sqrt((1 - e2) qp / 2) = 1.0044869585.
    TCoords const plane = Project(From(90, 0), 80, 30);
    ExpectNear(plane, 557704.5255 * 1.0044869585, -965972.5737 / 1.0044869585, 1e-3);
    TCoords const back = Unproject(From(90, 0), plane.X, plane.Y);
    ExpectNear(back, 30 * Degree, 80 * Degree, 1e-9);
}

TEST(LambertAzimuthalEqualArea, SphereIsNotServed) {
    // 1 / (2 e) times the logarithm of 1.
    EXPECT_TRUE(std::isnan(Project(From(52, 10, Sphere), 50, 5).X));
}

TEST(LambertAzimuthalEqualArea, WholeTurnsOfLongitudeDoNotMatter) {
    TCoords const here = Project(Europe(), 50, 5);
    ExpectNear(Project(Europe(), 50, 365), here.X, here.Y, 1e-8);
}

TEST(LambertAzimuthalEqualArea, FieldsStandInTheirStoredOrder) {
    ExpectRecordInStoredOrder<Record>(Fields);
    Record const record(1, 2, 3, 4);
    EXPECT_EQ(record.LatitudeOfOrigin, 1);
    EXPECT_EQ(record.LongitudeOfOrigin, 2);
    EXPECT_EQ(record.FalseEasting, 3);
    EXPECT_EQ(record.FalseNorthing, 4);
}

TEST(LambertAzimuthalEqualArea, EqualityComparesTheWholeRecordAndNotTheEllipsoid) {
    ExpectEqualityOfRecords<TLambertAzimuthalEqualAreaMapProjection>(RecordOf<Record>(Fields));
}

TEST(LambertAzimuthalEqualArea, CopiesStandAlone) {
    ExpectCopiesToStandAlone<TLambertAzimuthalEqualAreaMapProjection>(Wgs84, RecordOf<Record>(Fields), 50,
                                                                      12);
}

TEST(LambertAzimuthalEqualArea, TakesAnyNumber) {
    ExpectToTakeAnyNumber(Europe());
    ExpectToTakeAnyNumber(From(90, 0));
}

} // namespace
