#include "core/projections/TransverseMercator.h"
#include "tests/core/projections/TransverseChecks.h"

#include <cstddef>
#include <memory>
#include <type_traits>

namespace {

using namespace ProjectionChecks;
using Record = KvRefSystem::TTransverseMercatorMapProjectionParameters;
using Projection = KvRefSystem::TTransverseMercatorMapProjection;

// Hosts are compiled against this layout.
static_assert(sizeof(TMapProjection) == 16 && std::is_base_of_v<TMapProjection, Projection>);
static_assert(sizeof(Record) == 40 && std::is_standard_layout_v<Record>);
static_assert(offsetof(Record, CentralMeridian) == 0 && offsetof(Record, FalseNorthing) == 32);
static_assert(std::has_virtual_destructor_v<Projection> && std::is_copy_constructible_v<Projection>);
static_assert(!std::is_copy_assignable_v<Projection>);

Record Wide(double centralMeridian) {
    return Record(centralMeridian * Degree, 0, 1, 7500000, 0);
}

Record BritishGrid() {
    return Record(-2 * Degree, 49 * Degree, 0.9996012717, 400000, -100000);
}

Record SouthernZone() {
    return Record(-63 * Degree, -10 * Degree, 0.9996, 500000, 10000);
}

} // namespace

TEST(TransverseMercator, RecordTakesItsValuesInStoredOrder) {
    Record const record(1, 2, 3, 4, 5);
    EXPECT_EQ(record.CentralMeridian, 1);
    EXPECT_EQ(record.LatitudeOfOrigin, 2);
    EXPECT_EQ(record.ScaleFactor, 3);
    EXPECT_EQ(record.FalseEasting, 4);
    EXPECT_EQ(record.FalseNorthing, 5);
}

TEST(TransverseMercator, HasItsType) {
    Record const record = Wide(39);
    EXPECT_EQ(Projection(&Wgs84, &record).Type, KvRefSystem::mptTransverseMercator);
}

TEST(TransverseMercator, GivesThePublishedExampleOfTheBritishGrid) {
    // EPSG Guidance Note 7-2, method 9807: 50 30'00.00"N, 0 30'00.00"E, printed to the centimetre.
    Record const record = BritishGrid();
    Projection const projection(&Airy, &record);
    ExpectNear(Project(projection, 50.5, 0.5), 577274.99, 69740.50, 0.011);
    ExpectNear(UnprojectToDegrees(projection, 577274.99, 69740.50), 0.5, 50.5, 0.0005 / 3600);
}

TEST(TransverseMercator, GivesSnydersNumericalExample) {
    // Snyder, pages 269 to 271: Clarke 1866 with e2 = 0.00676866, printed to the decimetre.
    TEllipsoidSemiAxes const clarke = {6378206.4, 6378206.4 * std::sqrt(1 - 0.00676866)};
    Record const record(-75 * Degree, 0, 0.9996, 0, 0);
    Projection const projection(&clarke, &record);
    ExpectNear(Project(projection, 40.5, -73.5), 127106.5, 4484124.4, 0.05);
    ExpectNear(UnprojectToDegrees(projection, 127106.5, 4484124.4), -73.5, 40.5, 1e-6);
}

TEST(TransverseMercator, FollowsTheSeriesForward) {
    // The series with 40 digits in mpmath.
    Record const wide = Wide(39);
    Projection const projection(&Wgs84, &wide);
    ExpectNear(Project(projection, 55, 37), 7372020.61686985, 6099060.33120938, RoundingMetres);
    ExpectNear(Project(projection, -80, 41), 7538779.5695426, -8885806.4930548, RoundingMetres);
    Record const southern = SouthernZone();
    ExpectNear(Project(Projection(&Wgs84, &southern), -23, -65.5), 243739.3065845469, -1430292.695071744,
               RoundingMetres);
    Record const utm31(3 * Degree, 0, 0.9996, 500000, 0);
    ExpectNear(Project(Projection(&Wgs84, &utm31), 48.8582, 2.2945), 448251.795205952, 5411932.67803857,
               RoundingMetres);
}

TEST(TransverseMercator, FollowsTheSeriesInReverse) {
    // The series with 40 digits in mpmath.
    Record const wide = Wide(39);
    ExpectNear(UnprojectToDegrees(Projection(&Wgs84, &wide), 7372020.6169, 6099060.3312), 36.999999999933457,
               55.00000000397998, RoundingDegrees);
    Record const southern = SouthernZone();
    ExpectNear(UnprojectToDegrees(Projection(&Wgs84, &southern), 230000, -1500000), -65.646358181070992,
               -23.62682884927873, RoundingDegrees);
}

TEST(TransverseMercator, OriginMapsExactlyToTheFalseOrigin) {
    for (double const phi0 : {0.0, 49.0, -37.3, 89.0}) {
        Record const record(-2 * Degree, phi0 * Degree, 0.9996, 400000.25, -100000.5);
        TCoords point{record.CentralMeridian, record.LatitudeOfOrigin, 0, false};
        Projection(&Airy, &record).GeodeticToProjected(&point);
        EXPECT_EQ(point.X, 400000.25);
        EXPECT_EQ(point.Y, -100000.5);
    }
}

TEST(TransverseMercator, LongitudeDifferenceWrapsAtTheAntimeridian) {
    // Two degrees to the west, by the series with 40 digits in mpmath.
    Record const record(-179 * Degree, 0, 1, 0, 0);
    Projection const projection(&Wgs84, &record);
    TCoords const point = Project(projection, 10, 179);
    ExpectNear(point, -219320.867176057, 1106519.7376006, RoundingMetres);
    ExpectNear(Project(projection, 10, -181), point.X, point.Y, RoundingMetres);
    EXPECT_NEAR(UnprojectToDegrees(projection, point.X, point.Y).X, 179, 1e-8);
}

TEST(TransverseMercator, ComesCloseToTheSphereOfTheSameRadius) {
    // The closed form on the sphere (Snyder, 8-1 and 8-3) at 40 N, 1 E: the series leaves out the seventh
    // order.
    TEllipsoidSemiAxes const sphere = {6371000, 6371000};
    Record const record(0, 0, 1, 0, 0);
    double const across = std::cos(40 * Degree) * std::sin(Degree);
    double const northing = 6371000 * std::atan2(std::tan(40 * Degree), std::cos(Degree));
    ExpectNear(Project(Projection(&sphere, &record), 40, 1), 6371000 * std::atanh(across), northing, 1e-6);
}

TEST(TransverseMercator, RoundTripStaysWithinItsBoundUpToFiveDegrees) {
    // The arcs there and back end with different terms: 0.8 mm on the meridian. The rest grows with the
    // width.
    Record const record(9 * Degree, 0, 0.9996, 500000, 0);
    for (TEllipsoidSemiAxes const& axes : {Wgs84, Krassowsky, International, Airy}) {
        Projection const projection(&axes, &record);
        EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-89, 89, 9, 3)), 0.9e-3);
        EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-89, 89, 9, 5)), 1.4e-2);
    }
}

TEST(TransverseMercator, PolesAreWhatTheDivisionByTheCosineGives) {
    Record const record = Wide(39);
    Projection const projection(&Wgs84, &record);
    for (double const pole : {90.0, -90.0}) {
        TCoords const point = Project(projection, pole, 41);
        EXPECT_TRUE(std::isnan(point.X));
        EXPECT_TRUE(std::isnan(point.Y));
    }
}

TEST(TransverseMercator, ReturnsWhateverComesIn) {
    Record const record = Wide(39);
    ExpectToTakeAnyNumber(Projection(&Wgs84, &record));
}

TEST(TransverseMercator, LeavesHeightsAlone) {
    Record const record = Wide(3);
    ExpectHeightsUntouched(Projection(&Wgs84, &record));
}

TEST(TransverseMercator, AllocatesNothingPerPoint) {
    Record const record = Wide(3);
    ExpectNoAllocation(Projection(&Wgs84, &record));
}

TEST(TransverseMercator, KeepsItsOwnCopyOfTheRecord) {
    auto record = std::make_unique<Record>(BritishGrid());
    Projection const projection(&Airy, record.get());
    EXPECT_NE(projection.Parameters, record.get());
    TCoords const before = Project(projection, 52, -1);
    *record = Wide(39);
    EXPECT_EQ(Project(projection, 52, -1), before);
    record.reset();
    EXPECT_EQ(Project(projection, 52, -1), before);
}

TEST(TransverseMercator, CopyHasARecordAndConstantsOfItsOwn) {
    Record const record = BritishGrid();
    ExpectCopiesToStandAlone<Projection>(Airy, record);
    auto source = std::make_unique<Projection>(&Airy, &record);
    Projection const copy(*source);
    EXPECT_EQ(copy.Type, KvRefSystem::mptTransverseMercator);
    ExpectSameResultsInBothHemispheres(copy, *source);
    source.reset();
    ExpectNear(Project(copy, 50.5, 0.5), 577274.99, 69740.50, 0.011);
}

TEST(TransverseMercator, ConstantsAreCopiedNotComputedAgain) {
    // The arc of the origin was taken from the record at construction; the record's latitude isn't read
    // again.
    Record const record = BritishGrid();
    Projection const source(&Airy, &record);
    source.Parameters->LatitudeOfOrigin = 0;
    Projection const copy(source);
    ExpectNear(Project(copy, 50.5, 0.5), 577274.99, 69740.50, 0.011);
}

TEST(TransverseMercator, EqualityComparesEveryFieldExactly) {
    ExpectEqualityOfRecords<Projection>(Record(0.1, 0.2, 0.3, 0.4, 0.5));
}

TEST(TransverseMercator, EqualityIgnoresTheEllipsoidOnPurpose) {
    Record const record = Wide(39);
    EXPECT_TRUE(Projection(&Wgs84, &record) == Projection(&Krassowsky, &record));
}
