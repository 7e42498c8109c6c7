#include "core/projections/AlbersEqualAreaConic.h"

#include "tests/core/projections/ProjectionChecks.h"

#include <type_traits>

using namespace KvRefSystem;
using namespace ProjectionChecks;

namespace {

using TAlbers = TAlbersEqualAreaConicMapProjection;
using TParameters = TAlbersEqualAreaConicMapProjectionParameters;

static_assert(std::is_base_of_v<TMapProjection, TAlbers>);
static_assert(!std::is_copy_assignable_v<TAlbers>);
static_assert(sizeof(TParameters) == 48 && offsetof(TParameters, FirstStandardParallel) == 0);
static_assert(offsetof(TParameters, SecondStandardParallel) == 8);
static_assert(offsetof(TParameters, LatitudeOfFalseOrigin) == 16);
static_assert(offsetof(TParameters, LongitudeOfFalseOrigin) == 24);
static_assert(offsetof(TParameters, FalseEasting) == 32 && offsetof(TParameters, FalseNorthing) == 40);

/** mpmath with 40 digits, from the method's formulas; metres. */
constexpr double Computed = 2e-8;

/** What the series of the latitude leaves, which ends at e^6: metres. */
constexpr double SeriesEnd = 2e-3;
constexpr double SeriesEndAngle = 3e-10;

TParameters const states(29.5 * Degree, 45.5 * Degree, 23 * Degree, -96 * Degree, 0, 0);
TParameters const australia(-18 * Degree, -36 * Degree, 0, 132 * Degree, 0, 0);

/** n of `australia` on WGS 84, mpmath. */
constexpr double AustralianCone = -0.4484789971679208971;

TEST(AlbersEqualAreaConic, GivesTheWorkedExample) {
    // Guidance Note 7-2, 9822: NAD83 / Great Lakes Albers, 42 45 N, 78 45 W.
    TEllipsoidSemiAxes const grs80 = {6378137, 6356752.314140356};
    TParameters const lakes(Angle(42, 7, 21.9864), Angle(49, 0, 54.648), Angle(45, 34, 8.3172),
                            -Angle(84, 27, 21.438), 1000000, 1000000);
    TAlbers const projection(&grs80, &lakes);
    TCoords const plane = Project(projection, 42.75, -78.75);
    ExpectNear(plane, 1466493.492, 702903.006, 0.0005);
    ExpectNear(Unproject(projection, plane.X, plane.Y), -78.75 * Degree, 42.75 * Degree, SeriesEndAngle);
    EXPECT_EQ(projection.Type, mptAlbersEqualAreaConic);
}

TEST(AlbersEqualAreaConic, GivesSnydersExample) {
    // Snyder 1987, pages 292 and 294: Clarke 1866, 35 N 75 W, to a tenth of a metre.
    TAlbers const projection(&Clarke1866, &states);
    ExpectNear(Project(projection, 35, -75), 1885472.7, 1535925.0, 0.05);
    ExpectNear(Unproject(projection, 1885472.7, 1535925.0), -75 * Degree, 35 * Degree, 1e-8);
}

TEST(AlbersEqualAreaConic, GivesTheFormulas) {
    ExpectNear(Project(TAlbers(&Wgs84, &states), 35, -75), 1885428.390532333647, 1535969.285828168172,
               Computed);
    ExpectNear(Project(TAlbers(&Clarke1866, &states), 35, -75), 1885472.725813466465, 1535925.004983636395,
               Computed);
}

TEST(AlbersEqualAreaConic, OriginIsTheFalseOrigin) {
    TParameters parameters = states;
    parameters.FalseEasting = 1000000;
    parameters.FalseNorthing = -250000;
    TAlbers const projection(&Wgs84, &parameters);
    TCoords const plane = Project(projection, 23, -96);
    EXPECT_EQ(plane.X, 1000000);
    EXPECT_EQ(plane.Y, -250000);
}

TEST(AlbersEqualAreaConic, LongitudeDifferenceWrapsAtTheAntimeridian) {
    TParameters parameters = states;
    parameters.LongitudeOfFalseOrigin = 170 * Degree;
    TAlbers const projection(&Wgs84, &parameters);
    // mpmath with 20 degrees of difference.
    ExpectNear(Project(projection, 35, -170), 1797009.474089658535, 1516594.626033992034, Computed);
    TCoords const back = Unproject(projection, 1797009.474089658535, 1516594.626033992034);
    ExpectNear(back, -170 * Degree, 35 * Degree, SeriesEndAngle);
}

TEST(AlbersEqualAreaConic, ComesBackOnTheWholeTurnOfANorthernCone) {
    EXPECT_LT(GreatestRoundTripError(TAlbers(&Wgs84, &states), AroundMeridian(-60, 89, -96, 180)), SeriesEnd);
}

TEST(AlbersEqualAreaConic, SouthernConeComesBackHalfATurnOfTheConeOff) {
    TAlbers const projection(&Wgs84, &australia);
    TCoords const plane = Project(projection, -25, 140);
    ExpectNear(plane, 797850.9657355731183, -2727559.633240455655, Computed);
    TCoords const back = Unproject(projection, plane.X, plane.Y);
    double const expected = std::remainder(140 * Degree + Pi / AustralianCone, 2 * Pi);
    ExpectNear(back, expected, -25 * Degree, SeriesEndAngle);
    EXPECT_NEAR(back.X, 98.643412 * Degree, 1e-8);
}

TEST(AlbersEqualAreaConic, SphereGivesNoNumbers) {
    TAlbers const projection(&Sphere, &states);
    ExpectNotANumber(Project(projection, 35, -75));
    EXPECT_TRUE(std::isnan(Unproject(projection, 1e6, 1e6).Y));
}

TEST(AlbersEqualAreaConic, EqualAndOppositeParallelsGiveNoNumbers) {
    TParameters const equal(40 * Degree, 40 * Degree, 40 * Degree, 0, 0, 0);
    ExpectNotANumber(Project(TAlbers(&Wgs84, &equal), 35, 5));
    TParameters const opposite(40 * Degree, -40 * Degree, 0, 0, 0, 0);
    ExpectNotANumber(Project(TAlbers(&Wgs84, &opposite), 35, 5));
}

TEST(AlbersEqualAreaConic, PoleIsAnArcAndBeyondItIsNothing) {
    TAlbers const projection(&Wgs84, &states);
    TCoords const east = Project(projection, 90, -75);
    TCoords const west = Project(projection, 90, -117);
    EXPECT_NEAR(east.X, -west.X, Computed);
    EXPECT_GT(east.X, 1e5);
    ExpectNear(Unproject(projection, east.X, east.Y), -75 * Degree, Pi / 2, 1e-7);
    // The apex lies beyond the pole: the arc sine has no value there.
    EXPECT_TRUE(std::isnan(Unproject(projection, 0, 9929079.6).Y));
    EXPECT_TRUE(std::isnan(Unproject(projection, Infinity, 0).Y));
}

TEST(AlbersEqualAreaConic, EqualityComparesTheSixNumbersAndNotTheEllipsoid) {
    ExpectEqualityOfRecords<TAlbers>(states);
}

TEST(AlbersEqualAreaConic, CopyOutlivesItsSource) {
    ExpectCopiesToStandAlone<TAlbers>(Wgs84, states);
}

TEST(AlbersEqualAreaConic, NullRecordLeavesAnEmptyObject) {
    ExpectNullRecordToLeaveAnEmptyObject<TAlbers>(states);
}

TEST(AlbersEqualAreaConic, SurvivesAllNumbersWithoutAllocating) {
    ExpectToTakeAnyNumber(TAlbers(&Wgs84, &states));
    ExpectToTakeAnyNumber(TAlbers(&Wgs84, &australia));
    ExpectToTakeAnyNumber(TAlbers(&Sphere, &states));
}

} // namespace
