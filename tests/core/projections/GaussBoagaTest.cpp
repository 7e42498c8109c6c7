#include "core/projections/GaussBoaga.h"
#include "core/projections/TransverseMercator.h"
#include "tests/core/projections/TransverseChecks.h"

#include <cstddef>
#include <memory>
#include <type_traits>

namespace {

using namespace ProjectionChecks;
using Record = KvRefSystem::TGaussBoagaMapProjectionParameters;
using Projection = KvRefSystem::TGaussBoagaMapProjection;

// Hosts are compiled against this layout.
static_assert(std::is_base_of_v<TMapProjection, Projection> && std::has_virtual_destructor_v<Projection>);
static_assert(sizeof(Record) == 32 && std::is_standard_layout_v<Record>);
static_assert(offsetof(Record, CentralMeridian) == 0 && offsetof(Record, ScaleFactor) == 8);
static_assert(offsetof(Record, FalseEasting) == 16 && offsetof(Record, FalseNorthing) == 24);
static_assert(std::is_copy_constructible_v<Projection> && !std::is_copy_assignable_v<Projection>);

Record Zone39() {
    return Record(39 * Degree, 1, 7500000, 0);
}

Record WesternItaly() {
    return Record(9 * Degree, 0.9996, 1500000, 0);
}

} // namespace

TEST(GaussBoaga, RecordTakesItsValuesInStoredOrder) {
    Record const record(1, 2, 3, 4);
    EXPECT_EQ(record.CentralMeridian, 1);
    EXPECT_EQ(record.ScaleFactor, 2);
    EXPECT_EQ(record.FalseEasting, 3);
    EXPECT_EQ(record.FalseNorthing, 4);
}

TEST(GaussBoaga, HasItsType) {
    Record const record = Zone39();
    EXPECT_EQ(Projection(&Wgs84, &record).Type, KvRefSystem::mptGaussBoaga);
}

TEST(GaussBoaga, FollowsTheClosedFormsForward) {
    // The formulas with 40 digits in mpmath.
    Record const record = Zone39();
    Projection const projection(&Wgs84, &record);
    ExpectNear(Project(projection, 55, 37), 7372020.61683446, 6099060.31638327, RoundingMetres);
    ExpectNear(Project(projection, -80, 41), 7538779.56954279, -8885806.47843112, RoundingMetres);
}

TEST(GaussBoaga, FollowsTheClosedFormsInReverse) {
    // The formulas with 40 digits in mpmath.
    Record const record = Zone39();
    ExpectNear(UnprojectToDegrees(Projection(&Wgs84, &record), 7372020.6168, 6099060.3164),
               37.000000014349224, 55.000000002011369, RoundingDegrees);
}

TEST(GaussBoaga, GivesSnydersExampleOfTheTransverseMercator) {
    // Snyder, pages 269 to 271: Clarke 1866 with e2 = 0.00676866, printed to the decimetre. There is none of
    // the closed forms themselves.
    TEllipsoidSemiAxes const clarke = {6378206.4, 6378206.4 * std::sqrt(1 - 0.00676866)};
    Record const record(-75 * Degree, 0.9996, 0, 0);
    Projection const projection(&clarke, &record);
    ExpectNear(Project(projection, 40.5, -73.5), 127106.5, 4484124.4, 0.05);
    ExpectNear(UnprojectToDegrees(projection, 127106.5, 4484124.4), -73.5, 40.5, 1e-6);
}

TEST(GaussBoaga, StaysWithinThreeCentimetresOfTheTruthInItaly) {
    // Rome and Turin in the western zone, by GeographicLib's TransverseMercatorExact on Hayford's ellipsoid.
    Record const record = WesternItaly();
    Projection const projection(&International, &record);
    ExpectNear(Project(projection, 41.9, 12.45), 1786199.723513, 4644513.619098, 0.03);
    ExpectNear(Project(projection, 45.07, 7.69), 1396872.972685, 4991654.259468, 0.03);
}

TEST(GaussBoaga, EquatorOnTheCentralMeridianIsTheFalseOrigin) {
    Record const record(9 * Degree, 0.9996, 1500000, -250);
    TCoords point{record.CentralMeridian, 0, 0, false};
    Projection const projection(&International, &record);
    projection.GeodeticToProjected(&point);
    EXPECT_EQ(point.X, 1500000);
    EXPECT_EQ(point.Y, -250);
    projection.ProjectedToGeodetic(&point);
    EXPECT_EQ(point.X, record.CentralMeridian);
    EXPECT_EQ(point.Y, 0);
}

TEST(GaussBoaga, LongitudeDifferenceWrapsAtTheAntimeridian) {
    // Two degrees to the west, by the formulas with 40 digits in mpmath.
    Record const record(-179 * Degree, 1, 0, 0);
    Projection const projection(&Wgs84, &record);
    TCoords const point = Project(projection, 10, 179);
    ExpectNear(point, -219320.867137629, 1106519.73089576, RoundingMetres);
    EXPECT_NEAR(UnprojectToDegrees(projection, point.X, point.Y).X, 179, 1e-7);
}

TEST(GaussBoaga, ForwardGoesOverThePoleButReverseFoldsBackOnPurpose) {
    // The formulas with 40 digits in mpmath, 100 degrees from the central meridian at 60 N: two-argument
    // arctangent there, one-argument arctangent back, which ends 80 degrees to the other side.
    Record const record = Zone39();
    Projection const projection(&Wgs84, &record);
    TCoords const point = Project(projection, 60, 139);
    ExpectNear(point, 10948222.43664867, 10641971.26530488, RoundingMetres);
    ExpectNear(UnprojectToDegrees(projection, 10948222.43664867, 10641971.26530488), -40.983497253038,
               -59.6014444754023, 1e-12);
}

TEST(GaussBoaga, NinetyDegreesAwayOnTheEquatorIsUnbounded) {
    Record const record(0, 1, 0, 0);
    Projection const projection(&Wgs84, &record);
    TCoords east{Pi / 2, 0, 0, false};
    projection.GeodeticToProjected(&east);
    EXPECT_EQ(east.X, Infinity);
    TCoords west{-Pi / 2, 0, 0, false};
    projection.GeodeticToProjected(&west);
    EXPECT_EQ(west.X, -Infinity);
}

TEST(GaussBoaga, PolesAreAQuarterOfTheMeridianAway) {
    // 10001965.72931272 m on WGS 84 by quadrature in mpmath; the arc's series leaves 15 mm.
    Record const record(39 * Degree, 1, 0, 0);
    Projection const projection(&Wgs84, &record);
    ExpectNear(Project(projection, 90, 41), 0, 10001965.729, 0.016);
    ExpectNear(Project(projection, -90, 30), 0, -10001965.729, 0.016);
}

TEST(GaussBoaga, RoundTripStaysWithinItsBoundUpToSixDegrees) {
    Record const record = WesternItaly();
    for (TEllipsoidSemiAxes const& axes : {Wgs84, Krassowsky, International, Airy}) {
        Projection const projection(&axes, &record);
        EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-89, 89, 9, 0)), 0.9e-3);
        EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-89, 89, 9, 3)), 5e-3);
        EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-89, 89, 9, 6)), 6.5e-3);
    }
}

TEST(GaussBoaga, ReturnsWhateverComesIn) {
    Record const record = Zone39();
    ExpectToTakeAnyNumber(Projection(&Wgs84, &record));
}

TEST(GaussBoaga, LeavesHeightsAlone) {
    Record const record = WesternItaly();
    ExpectHeightsUntouched(Projection(&International, &record));
}

TEST(GaussBoaga, AllocatesNothingPerPoint) {
    Record const record = WesternItaly();
    ExpectNoAllocation(Projection(&International, &record));
}

TEST(GaussBoaga, KeepsItsOwnCopyOfTheRecord) {
    auto record = std::make_unique<Record>(WesternItaly());
    Projection const projection(&International, record.get());
    TCoords const before = Project(projection, 41.9, 12.45);
    *record = Zone39();
    EXPECT_EQ(Project(projection, 41.9, 12.45), before);
    record.reset();
    EXPECT_EQ(Project(projection, 41.9, 12.45), before);
}

TEST(GaussBoaga, CopyHasARecordOfItsOwn) {
    Record const record = WesternItaly();
    ExpectCopiesToStandAlone<Projection>(International, record, 41.9, 12.45);
    Projection const source(&International, &record);
    Projection const copy(source);
    EXPECT_EQ(copy.Type, KvRefSystem::mptGaussBoaga);
    ExpectSameResultsInBothHemispheres(copy, source);
}

TEST(GaussBoaga, EqualityComparesEveryFieldExactly) {
    ExpectEqualityOfRecords<Projection>(Record(0.1, 0.2, 0.3, 0.4));
}

TEST(GaussBoaga, EqualityIgnoresTheEllipsoidOnPurpose) {
    Record const record = Zone39();
    EXPECT_TRUE(Projection(&Wgs84, &record) == Projection(&Krassowsky, &record));
}

TEST(GaussBoaga, DiffersFromATransverseMercatorOfTheSameNumbers) {
    Record const record = Zone39();
    KvRefSystem::TTransverseMercatorMapProjectionParameters const series(39 * Degree, 0, 1, 7500000, 0);
    Projection const one(&Wgs84, &record);
    KvRefSystem::TTransverseMercatorMapProjection const two(&Wgs84, &series);
    EXPECT_FALSE(one == two);
    EXPECT_FALSE(two == one);
}
