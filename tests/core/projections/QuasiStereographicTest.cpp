#include "core/projections/QuasiStereographic.h"

#include "tests/core/projections/ProjectionChecks.h"

#include <cstddef>
#include <type_traits>

using namespace KvRefSystem;
using namespace ProjectionChecks;

namespace {

using TQuasi = TQuasiStereographicMapProjection;
using TParameters = TQuasiStereographicMapProjectionParameters;

static_assert(std::is_base_of_v<TMapProjection, TQuasi>);
static_assert(!std::is_copy_assignable_v<TQuasi>);
static_assert(sizeof(TParameters) == 40 && offsetof(TParameters, LongitudeOfOrigin) == 0);
static_assert(offsetof(TParameters, LatitudeOfOrigin) == 8 && offsetof(TParameters, ScaleFactor) == 16);
static_assert(offsetof(TParameters, FalseEasting) == 24 && offsetof(TParameters, FalseNorthing) == 32);

TParameters const romania(25 * Degree, 46 * Degree, 0.99975, 5e5, 5e5);

/**
 * Expected numbers come from the tables, typed apart from the sources and added up by mpmath with 40 digits.
 */
constexpr double Metres = 2e-9;
constexpr double Radians = 4e-16;

TEST(QuasiStereographic, GivesTheSumsOfItsTables) {
    TQuasi const projection(&Krassowsky, &romania);
    ExpectNear(Project(projection, 46.5, 26), 576740.5393114496, 556049.3145899941, Metres);
    ExpectNear(Project(projection, 44, 21), 179505.76727937, 285688.1354618956, Metres);
    ExpectNear(Project(projection, 47.5, 28.25), 744680.8380122515, 671778.7577040054, Metres);
    EXPECT_EQ(projection.Type, mptQuasiStereographic);
}

TEST(QuasiStereographic, ReverseGivesTheSumsOfItsOwnTables) {
    TQuasi const projection(&Krassowsky, &romania);
    ExpectNear(Unproject(projection, 576740.5393114496, 556049.3145899941), 0.453782380247223407,
               0.811578111211097326, Radians);
    ExpectNear(Unproject(projection, 2e5, 3e5), 0.371021171427033577, 0.770345076855655973, Radians);
}

TEST(QuasiStereographic, GivesTheSumsInTheSouthAndOnOtherFigures) {
    TParameters const southern(149 * Degree, -35 * Degree, 1.0001, 3e5, 2e5);
    TQuasi const projection(&Wgs84, &southern);
    ExpectNear(Project(projection, -33, 151), 486814.7223704586, 420060.0164507276, Metres);
    ExpectNear(Unproject(projection, 4.5e5, 5e4), 2.62968770327607755, -0.634256777870284155, 2 * Radians);
    TParameters const plain(0, 30 * Degree, 1, 0, 0);
    ExpectNear(Project(TQuasi(&Sphere, &plain), 31, 1), 95298.56782754526, 111620.0131657944, Metres);
}

TEST(QuasiStereographic, OriginIsTheFalseOrigin) {
    TQuasi const projection(&Krassowsky, &romania);
    TCoords coords{romania.LongitudeOfOrigin, romania.LatitudeOfOrigin, 0, false};
    projection.GeodeticToProjected(&coords);
    EXPECT_EQ(coords.X, 5e5);
    EXPECT_EQ(coords.Y, 5e5);
    projection.ProjectedToGeodetic(&coords);
    EXPECT_EQ(coords.X, romania.LongitudeOfOrigin);
    EXPECT_EQ(coords.Y, romania.LatitudeOfOrigin);
}

// On a sphere of radius 1 with the origin at 45 degrees (t = 1, c2 = 1/2) the stereographic projection's own
// series has -c/4 at the second power of latitude times longitude in the easting, -3/8 c2 t at the second
// powers in the northing, and -(1/4 + t2)/(3c) at the third power of the easting in the longitude.

TEST(QuasiStereographic, EastingTermOfTheSecondPowerOfLatitudeIsFourTimesThatOfTheProjection) {
    TParameters const parameters(0, 45 * Degree, 1, 0, 0);
    TQuasiStereographicSeries const series(UnitSphere, 45 * Degree);
    EXPECT_NEAR(series.EastingPhi2Lambda1, -std::sqrt(0.5), 1e-15);
    // At 47.5, 1 the closed form gives the easting k cos(phi) sin(lambda), k = 2/(1 + cos(distance)).
    double const phi = 47.5 * Degree;
    double const cosDistance = (std::sin(phi) + std::cos(phi) * std::cos(Degree)) * std::sqrt(0.5);
    double const closed = 2 / (1 + cosDistance) * std::cos(phi) * std::sin(Degree);
    double const delta = 2.5 * Degree;
    double const excess = -0.75 * std::sqrt(0.5) * delta * delta * Degree;
    EXPECT_NEAR(Project(TQuasi(&UnitSphere, &parameters), 47.5, 1).X - closed, excess, 2e-9);
}

TEST(QuasiStereographic, NorthingTermOfTheSecondPowersLacksTheTangent) {
    TQuasiStereographicSeries const northern(UnitSphere, 60 * Degree);
    TQuasiStereographicSeries const southern(UnitSphere, -60 * Degree);
    EXPECT_NEAR(northern.NorthingPhi2Lambda2, -0.25 * 3 / 8, 1e-15); // not times tan(60)
    EXPECT_EQ(northern.NorthingPhi2Lambda2, southern.NorthingPhi2Lambda2);
}

TEST(QuasiStereographic, LongitudeTermOfTheThirdPowerOfEastingIsThreeTimesThatOfTheProjection) {
    TQuasiStereographicSeries const series(UnitSphere, 45 * Degree);
    EXPECT_NEAR(series.LongitudeX3, -1.25 * std::sqrt(2.0), 1e-14);
}

TEST(QuasiStereographic, RoundTripHoldsOnlyNearTheOrigin) {
    // The three terms of the third power leave an error that grows with the cube of the distance.
    TQuasi const projection(&Krassowsky, &romania);
    EXPECT_LT(RoundTripError(projection, 46.01, 25.01), 3e-5);
    EXPECT_NEAR(RoundTripError(projection, 46.1, 25.1), 0.02793963, 1e-7); // mpmath
    EXPECT_NEAR(RoundTripError(projection, 46.5, 25.5), 3.456364, 1e-5);
    EXPECT_NEAR(RoundTripError(projection, 47, 26), 27.29325, 1e-4);
    TCoords const plane = Project(projection, 46.5, 26);
    TCoords const back = Unproject(projection, plane.X, plane.Y);
    ExpectNear(back, 25.99981520556659 * Degree, 46.50000051759484 * Degree, 1e-15);
}

TEST(QuasiStereographic, ComesBackWithTheCubeOfTheReach) {
    // Of drawn places: half of the reach leaves an eighth of the distance.
    TQuasi const projection(&Krassowsky, &romania);
    double const wide = GreatestRoundTripError(projection, AroundMeridian(45.8, 46.2, 25, 0.2));
    EXPECT_LT(wide, 0.25);
    double const narrow = GreatestRoundTripError(projection, AroundMeridian(45.9, 46.1, 25, 0.1));
    EXPECT_NEAR(wide / narrow, 8, 0.3);
    EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(45.99, 46.01, 25, 0.01)), 3e-5);
}

TEST(QuasiStereographic, LongitudeDifferenceIsNotWrapped) {
    // A whole turn away from 46.5, 26; the sums by mpmath.
    ExpectNear(Project(TQuasi(&Krassowsky, &romania), 46.5, 385), -339153471.9705832, 154837687.7091623,
               1e-5);
}

TEST(QuasiStereographic, ReverseResultsAreNormalised) {
    TParameters const eastern(179.9 * Degree, 46 * Degree, 1, 0, 0);
    TCoords const geodetic = Unproject(TQuasi(&Krassowsky, &eastern), 2e4, 0);
    EXPECT_LT(geodetic.X, -179 * Degree);
    TParameters const northern(0, 89 * Degree, 1, 0, 0);
    EXPECT_EQ(Unproject(TQuasi(&Krassowsky, &northern), 0, 3e5).Y, 1.5707963267948966);
}

TEST(QuasiStereographic, OperationsFillTheBasesSlots) {
    ExpectOperationsInTheBasesSlots<TQuasi>();
}

TEST(QuasiStereographic, CopyOwnsItsRecordAndGivesTheSameNumbers) {
    ExpectCopiesToStandAlone<TQuasi>(Krassowsky, romania, 45, 24);
    TQuasi const original(&Krassowsky, &romania);
    TQuasi const copy(original);
    EXPECT_EQ(copy.Type, mptQuasiStereographic);
    EXPECT_EQ(OffsetIn(copy, copy.Parameters), 16);
    ExpectEqual(Unproject(copy, 4e5, 4e5), Unproject(original, 4e5, 4e5));
    copy.Parameters->LongitudeOfOrigin = 0;
    EXPECT_FALSE(copy == original);
}

TEST(QuasiStereographic, EqualityComparesTheRecordAndNotTheEllipsoid) {
    TParameters const parameters(1, 0.5, 3, 4, 5);
    ExpectEqualityOfRecords<TQuasi>(parameters);
}

TEST(QuasiStereographic, SurvivesAllNumbersAndAllocatesNothing) {
    ExpectToTakeAnyNumber(TQuasi(&Krassowsky, &romania));
    TParameters const polar(0, 90 * Degree, 0, 0, 0);
    ExpectToTakeAnyNumber(TQuasi(&Sphere, &polar));
}

} // namespace
