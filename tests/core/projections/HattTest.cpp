#include "core/projections/Hatt.h"

#include "tests/core/projections/ProjectionChecks.h"

namespace {

using namespace ProjectionChecks;
using KvRefSystem::THattMapProjection;
using Record = KvRefSystem::THattMapProjectionParameters;

constexpr std::array<double, 2> Fields = {0.6, 0.4};

THattMapProjection Around(double latitude, double longitude, TEllipsoidSemiAxes const& axes = Bessel) {
    Record const record(latitude * Degree, longitude * Degree);
    return THattMapProjection(&axes, &record);
}

TEST(Hatt, ForwardSumsItsSeries) {
    // The stated powers, term after term with 50 digits, mpmath.
    ExpectNear(Project(Around(38, 23.5), 38.2, 23.7), 17516.59978599384, 22216.14193694103, 1e-8);
    ExpectNear(Project(Around(-34, 20), -34.5, 19.25), -68872.02185961744, -55710.76732045126, 1e-8);
}

TEST(Hatt, ReverseSumsItsSeries) {
    // As above.
    TCoords const north = Unproject(Around(38, 23.5), 17516.5998, 22216.1419);
    ExpectNear(north, 23.70000000013727 * Degree, 38.19999999011957 * Degree, 2e-15);
    TCoords const south = Unproject(Around(-34, 20), -60000, 50000);
    ExpectNear(south, 19.35387359754809 * Degree, -33.54747144454025 * Degree, 2e-15);
}

TEST(Hatt, RoundTripsCloseToTheOrderOfTheSeries) {
    for (double const latitude : {-60.0, 0.0, 38.0}) {
        THattMapProjection const projection = Around(latitude, 23.5);
        EXPECT_LT(GreatestRoundTripError(projection, {latitude - 0.25, latitude + 0.25, 23.25, 23.75}),
                  0.0022);
        EXPECT_LT(GreatestRoundTripError(projection, {latitude - 0.5, latitude + 0.5, 23, 24}), 0.018);
    }
}

TEST(Hatt, ReverseLeavesMillimetresOnTheEllipsoidAndThatIsMeant) {
    // The ellipsoid's share of the latitude's x2 y and y3 terms is kept as it is; on a sphere there is none.
    TRegion const sheet = {-0.25, 0.25, 23.25, 23.75};
    EXPECT_GT(GreatestRoundTripError(Around(0, 23.5), sheet), 1e-3);
    EXPECT_LT(GreatestRoundTripError(Around(0, 23.5, Sphere), sheet), 1e-6);
}

TEST(Hatt, OriginIsZeroWithoutFalseValues) {
    ExpectNear(Project(Around(38, 23.5), 38, 23.5), 0, 0, 0);
    ExpectNear(Unproject(Around(38, 23.5), 0, 0), 23.5 * Degree, 38 * Degree, 0);
}

TEST(Hatt, LongitudesAreNotWrapped) {
    ExpectLongitudesUnwrapped(Around(38, 23.5), 38.1, 23.6);
}

TEST(Hatt, FieldsStandInTheirStoredOrder) {
    ExpectRecordInStoredOrder<Record>(Fields);
    Record const record(1, 2);
    EXPECT_EQ(record.LatitudeOfOrigin, 1);
    EXPECT_EQ(record.LongitudeOfOrigin, 2);
}

TEST(Hatt, EqualityComparesTheWholeRecordAndNotTheEllipsoid) {
    ExpectEqualityOfRecords<THattMapProjection>(RecordOf<Record>(Fields));
}

TEST(Hatt, CopiesStandAlone) {
    ExpectCopiesToStandAlone<THattMapProjection>(Wgs84, RecordOf<Record>(Fields), 34.5, 23);
}

TEST(Hatt, TakesAnyNumber) {
    ExpectToTakeAnyNumber(Around(38, 23.5));
    ExpectToTakeAnyNumber(Around(90, 0));
}

} // namespace
