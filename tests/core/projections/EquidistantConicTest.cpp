#include "core/projections/EquidistantConic.h"

#include "tests/core/projections/ProjectionChecks.h"

#include <type_traits>

using namespace KvRefSystem;
using namespace ProjectionChecks;

namespace {

using TEquidistant = TEquidistantConicMapProjection;
using TParameters = TEquidistantConicMapProjectionParameters;

static_assert(std::is_base_of_v<TMapProjection, TEquidistant>);
static_assert(!std::is_copy_assignable_v<TEquidistant>);
static_assert(sizeof(TParameters) == 48 && offsetof(TParameters, FirstStandardParallel) == 0);
static_assert(offsetof(TParameters, SecondStandardParallel) == 8);
static_assert(offsetof(TParameters, LatitudeOfOrigin) == 16 &&
              offsetof(TParameters, LongitudeOfOrigin) == 24);
static_assert(offsetof(TParameters, FalseEasting) == 32 && offsetof(TParameters, FalseNorthing) == 40);

/** mpmath with 40 digits, from the method's formulas; metres. */
constexpr double Computed = 2e-8;

/** What the series of the arc leaves, which ends at e^6, one way and in a round trip: metres. */
constexpr double SeriesEnd = 1e-3;
constexpr double SeriesEndAngle = 2e-10;

TParameters const states(29.5 * Degree, 45.5 * Degree, 23 * Degree, -96 * Degree, 0, 0);
TParameters const wide(40 * Degree, 50 * Degree, 45 * Degree, 0, 0, 0);
TParameters const australia(-18 * Degree, -36 * Degree, -27 * Degree, 134 * Degree, 0, 0);

/** n of `wide` on WGS 84, mpmath. */
constexpr double WideCone = 0.7062276510178342389;

TEST(EquidistantConic, GivesSnydersExample) {
    // Snyder 1987, page 300: Clarke 1866, 35 N 75 W, to a tenth of a metre.
    TEquidistant const projection(&Clarke1866, &states);
    ExpectNear(Project(projection, 35, -75), 1885051.9, 1540507.6, 0.05);
    ExpectNear(Unproject(projection, 1885051.9, 1540507.6), -75 * Degree, 35 * Degree, 1e-8);
    EXPECT_EQ(projection.Type, mptEquidistantConic);
}

TEST(EquidistantConic, GivesSnydersExampleOfTheSphere) {
    // Snyder 1987, page 298: radius 1, 35 N 75 W.
    TEquidistant const projection(&UnitSphere, &states);
    ExpectNear(Project(projection, 35, -75), 0.2952057, 0.2424021, 5e-8);
    // mpmath.
    ExpectNear(Project(projection, 35, -75), 0.295205658572225412, 0.2424021254117408953, 1e-15);
    ExpectNear(Unproject(projection, 0.295205658572225412, 0.2424021254117408953), -75 * Degree, 35 * Degree,
               1e-14);
}

TEST(EquidistantConic, GivesTheFormulas) {
    TEquidistant const projection(&Wgs84, &states);
    ExpectNear(Project(projection, 35, -75), 1885007.500591348365, 1540552.304074001656, Computed);
    // With the whole integral of the arc instead of its series.
    ExpectNear(Project(projection, 35, -75), 1885007.500578127197, 1540552.304039189769, SeriesEnd);
    ExpectNear(Project(TEquidistant(&Clarke1866, &states), 35, -75), 1885051.856746690571,
               1540507.639904178971, Computed);
}

TEST(EquidistantConic, OriginIsTheFalseOrigin) {
    TParameters parameters = states;
    parameters.FalseEasting = 1000000;
    parameters.FalseNorthing = -250000;
    TCoords const plane = Project(TEquidistant(&Wgs84, &parameters), 23, -96);
    EXPECT_EQ(plane.X, 1000000);
    EXPECT_EQ(plane.Y, -250000);
}

TEST(EquidistantConic, LongitudeIsNotWrapped) {
    ExpectNear(Project(TEquidistant(&Wgs84, &wide), 50, 200), 3641118.369847564627, 10908545.96163541547,
               Computed);
}

TEST(EquidistantConic, BeyondARightAngleLongitudeComesBackHalfATurnOfTheConeOff) {
    TEquidistant const projection(&Wgs84, &wide);
    TCoords const plane = Project(projection, 45, 150);
    ExpectNear(plane, 6127685.176885066103, 8121997.542545774412, Computed);
    TCoords const back = Unproject(projection, plane.X, plane.Y);
    ExpectNear(back, (150 - 180 / WideCone) * Degree, 45 * Degree, SeriesEndAngle);
}

TEST(EquidistantConic, ComesBackWithinARightAngleOfTheCone) {
    EXPECT_LT(GreatestRoundTripError(TEquidistant(&Wgs84, &wide), AroundMeridian(-60, 89, 0, 127)),
              SeriesEnd);
    EXPECT_LT(GreatestRoundTripError(TEquidistant(&Sphere, &wide), AroundMeridian(-60, 89, 0, 127)), 1e-7);
}

TEST(EquidistantConic, SouthernConeComesBack) {
    TEquidistant const projection(&Wgs84, &australia);
    TCoords const plane = Project(projection, -33, 151);
    ExpectNear(plane, 1572704.212524058531, -770777.919790977617, Computed);
    ExpectNear(Unproject(projection, plane.X, plane.Y), 151 * Degree, -33 * Degree, SeriesEndAngle);
    EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-89, 60, 134, 180)), SeriesEnd);
}

TEST(EquidistantConic, ApexHasNoLongitude) {
    // On a unit sphere the arc is the latitude, and the apex lies G = cos(phi1) / n + phi1 north of the
    // equator.
    double const phi1 = 29.5 * Degree;
    double const phi2 = 45.5 * Degree;
    TParameters const parameters(phi1, phi2, 0, 0, 0, 0);
    double const cone = (std::cos(phi1) - std::cos(phi2)) / (phi2 - phi1);
    TCoords const back = Unproject(TEquidistant(&UnitSphere, &parameters), 0, std::cos(phi1) / cone + phi1);
    EXPECT_TRUE(std::isnan(back.X));
    EXPECT_EQ(back.Y, Pi / 2);
}

TEST(EquidistantConic, EqualAndOppositeParallelsGiveNoNumbers) {
    TParameters const equal(40 * Degree, 40 * Degree, 40 * Degree, 0, 0, 0);
    ExpectNotANumber(Project(TEquidistant(&Wgs84, &equal), 35, 5));
    ExpectNotANumber(Unproject(TEquidistant(&Wgs84, &equal), 1000, 1000));
    TParameters const opposite(40 * Degree, -40 * Degree, 0, 0, 0, 0);
    ExpectNotANumber(Project(TEquidistant(&Wgs84, &opposite), 35, 0));
}

TEST(EquidistantConic, LatitudeBeyondThePoleEndsAtThePole) {
    EXPECT_EQ(Unproject(TEquidistant(&Wgs84, &wide), 0, 6000000).Y, Pi / 2);
}

TEST(EquidistantConic, EqualityComparesTheSixNumbersAndNotTheEllipsoid) {
    ExpectEqualityOfRecords<TEquidistant>(states);
}

TEST(EquidistantConic, CopyOutlivesItsSource) {
    ExpectCopiesToStandAlone<TEquidistant>(Wgs84, states);
}

TEST(EquidistantConic, NullRecordLeavesAnEmptyObject) {
    ExpectNullRecordToLeaveAnEmptyObject<TEquidistant>(states);
}

TEST(EquidistantConic, SurvivesAllNumbersWithoutAllocating) {
    ExpectToTakeAnyNumber(TEquidistant(&Wgs84, &states));
    ExpectToTakeAnyNumber(TEquidistant(&Wgs84, &australia));
    ExpectToTakeAnyNumber(TEquidistant(&Sphere, &states));
}

} // namespace
