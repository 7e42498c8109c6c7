#include "core/projections/LambertConicConformal.h"

#include "tests/core/projections/ProjectionChecks.h"

#include <stdexcept>
#include <string>
#include <type_traits>

using namespace KvRefSystem;
using namespace ProjectionChecks;

namespace {

using TOne = TLambertConicConformal1SPMapProjection;
using TOneParameters = TLambertConicConformal1SPMapProjectionParameters;
using TTwo = TLambertConicConformal2SPMapProjection;
using TTwoParameters = TLambertConicConformal2SPMapProjectionParameters;
using TBelgium = TLambertConicConformal2SPBelgiumMapProjection;

static_assert(std::is_base_of_v<TMapProjection, TOne> && std::is_base_of_v<TMapProjection, TTwo>);
static_assert(std::is_base_of_v<TTwo, TBelgium>);
static_assert(!std::is_copy_assignable_v<TOne> && !std::is_copy_assignable_v<TTwo>);
static_assert(sizeof(TOneParameters) == 40 && sizeof(TTwoParameters) == 48);
static_assert(offsetof(TOneParameters, LatitudeOfOrigin) == 0);
static_assert(offsetof(TOneParameters, LongitudeOfOrigin) == 8);
static_assert(offsetof(TOneParameters, ScaleFactor) == 16);
static_assert(offsetof(TOneParameters, FalseEasting) == 24);
static_assert(offsetof(TOneParameters, FalseNorthing) == 32);
static_assert(offsetof(TTwoParameters, FirstStandardParallel) == 0);
static_assert(offsetof(TTwoParameters, SecondStandardParallel) == 8);
static_assert(offsetof(TTwoParameters, LatitudeOfFalseOrigin) == 16);
static_assert(offsetof(TTwoParameters, LongitudeOfFalseOrigin) == 24);
static_assert(offsetof(TTwoParameters, FalseEasting) == 32);
static_assert(offsetof(TTwoParameters, FalseNorthing) == 40);

/** mpmath with 40 digits, from the method's formulas; metres. */
constexpr double Computed = 3e-8;

/** What 1e-10 radians between two passes may leave: that times e2 and the earth's radius. Metres. */
constexpr double LastPass = 5e-6;
constexpr double LastPassAngle = 7e-13;

TOneParameters const jamaica(18 * Degree, -77 * Degree, 1, 250000, 150000);
TOneParameters const france(46.5 * Degree, 3 * Degree, 0.99987742, 600000, 2200000);
TOneParameters const southern(-20 * Degree, 20 * Degree, 1, 0, 0);
TTwoParameters const belgium72(Angle(49, 50, 0), Angle(51, 10, 0), 90 * Degree, Angle(4, 21, 24.983),
                               150000.01256, 5400088.4378);
TTwoParameters const wide(40 * Degree, 50 * Degree, 45 * Degree, 0, 0, 0);
TTwoParameters const australia(-18 * Degree, -36 * Degree, -27 * Degree, 134 * Degree, 0, 0);
TTwoParameters const antarctic(-70 * Degree, -80 * Degree, -75 * Degree, 0, 0, 0);

/** n of `wide` and `australia` on WGS 84, mpmath. */
constexpr double WideCone = 0.7080207451636469728;
constexpr double AustralianCone = -0.4559179538853846348;

std::string FailureOf(auto const& build) {
    try {
        build();
    } catch (std::runtime_error const& failure) {
        return failure.what();
    }
    return "none";
}

// --- One standard parallel ---------------------------------------------------------------------------------

TEST(LambertConicConformal1SP, GivesTheWorkedExample) {
    // Guidance Note 7-2, 9801: JAD69 / Jamaica National Grid, 17 55 55.80 N, 76 56 37.26 W; its foot was
    // metric.
    TOne const projection(&Clarke1866, &jamaica);
    double const latitude = Angle(17, 55, 55.8);
    double const longitude = -Angle(76, 56, 37.26);
    TCoords point{longitude, latitude, 0, false};
    projection.GeodeticToProjected(&point);
    ExpectNear(point, 255966.58, 142493.51, 0.005);
    projection.ProjectedToGeodetic(&point);
    ExpectNear(point, longitude, latitude, LastPassAngle);
    EXPECT_EQ(projection.Type, mptLambertConicConformal1SP);
}

TEST(LambertConicConformal1SP, OriginIsTheFalseOrigin) {
    TOne const projection(&Wgs84, &france);
    TCoords point{france.LongitudeOfOrigin, france.LatitudeOfOrigin, 0, false};
    projection.GeodeticToProjected(&point);
    EXPECT_EQ(point.X, 600000);
    EXPECT_EQ(point.Y, 2200000);
    projection.ProjectedToGeodetic(&point);
    ExpectNear(point, france.LongitudeOfOrigin, france.LatitudeOfOrigin, LastPassAngle);
}

TEST(LambertConicConformal1SP, GivesTheFormulasFarFromTheOrigin) {
    TOne const projection(&Wgs84, &france);
    ExpectNear(Project(projection, 30, 60), 5830642.664731305169, 2318357.864153856753, Computed);
    ExpectNear(Project(projection, -30, 60), 12148790.41488818354, -4861718.8560183078, Computed);
}

TEST(LambertConicConformal1SP, LongitudeIsNotWrapped) {
    TOneParameters const parameters(45 * Degree, 0, 1, 0, 0);
    TOne const projection(&Wgs84, &parameters);
    // The same meridian, on the cone's next turn and on its first.
    ExpectNear(Project(projection, 50, 200), 3636900.401447933653, 10948189.18882192484, Computed);
    ExpectNear(Project(projection, 50, -160), -5363114.039767123913, 8680504.265779136792, Computed);
}

TEST(LambertConicConformal1SP, SouthernConeComesBackHalfATurnOfTheConeOff) {
    TOne const projection(&Wgs84, &southern);
    TCoords const plane = Project(projection, -21, 22);
    ExpectNear(plane, 207967.4183820194726, -111957.6629139354816, Computed);
    double const half = Pi / std::sin(20 * Degree);
    ExpectNear(Unproject(projection, plane.X, plane.Y), std::remainder(22 * Degree - half, 2 * Pi),
               -21 * Degree, LastPassAngle);
    // Both arguments of atan2 change their sign: theta comes out pi less to the east of the meridian, pi more
    // to the west, and so the longitude pi / n either way.
    EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-60, 40, 95, 74), -half), LastPass);
    EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-60, 40, -55, 74), half), LastPass);
}

TEST(LambertConicConformal1SP, ComesBackOnTheWholeTurnOfANorthernCone) {
    TOne const projection(&Wgs84, &france);
    EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-60, 89, 3, 179.9)), LastPass);
    EXPECT_LT(GreatestRoundTripError(TOne(&Sphere, &france), AroundMeridian(-60, 89, 3, 179.9)), 1e-7);
}

TEST(LambertConicConformal1SP, PolesAreTheApexAndFarAway) {
    TOne const projection(&Wgs84, &france);
    TCoords const apex = Project(projection, 90, 77);
    EXPECT_EQ(apex.X, 600000);
    ExpectNear(Project(projection, 90, -50), apex.X, apex.Y, 0);
    // The apex has no longitude of its own: atan2(0, 0) is that of origin.
    ExpectNear(Unproject(projection, apex.X, apex.Y), 3 * Degree, Pi / 2, 1e-7);
    TCoords const away = Project(projection, -90, 3);
    EXPECT_LT(away.Y, -1e17);
    EXPECT_TRUE(std::isnan(Project(projection, 91, 3).Y));
    EXPECT_TRUE(std::isnan(Project(projection, -91, 3).Y));
}

TEST(LambertConicConformal1SP, EndlesslyFarIsTheOppositePole) {
    EXPECT_EQ(Unproject(TOne(&Wgs84, &france), 0, -Infinity).Y, -Pi / 2);
    EXPECT_EQ(Unproject(TOne(&Wgs84, &southern), 0, Infinity).Y, Pi / 2);
}

TEST(LambertConicConformal1SP, IterationEndsAfterAThousandPasses) {
    // With b = 0 and so e = 1, a pass multiplies tan(pi/4 - phi/2) by t: from 45 degrees and with t = 0.9999,
    // which moves it by more than 1e-10 each time, 1000 passes lead to pi/2 - 2 atan(0.9999^1000 tan(pi/8)),
    // mpmath.
    TEllipsoidSemiAxes const disc = {1, 0};
    TOneParameters const parameters(45 * Degree, 0, 1, 0, 0);
    TOne const projection(&disc, &parameters);
    // m = t = 1 at 45 degrees: F = 1/n, and rho = t^n / n below the apex at y = 1/n.
    double const cone = std::sqrt(0.5);
    double const y = (1 - std::exp(cone * std::log(0.9999))) / cone;
    EXPECT_NEAR(Unproject(projection, 0, y).Y, 0.8536161176499885356, 1e-11);
}

TEST(LambertConicConformal1SP, OriginOnTheEquatorIsRefused) {
    TOneParameters const equator(0, 0, 1, 0, 0);
    EXPECT_EQ(FailureOf([&] { TOne const projection(&Wgs84, &equator); }),
              "TLambertConicConformal1SPMapProjection::TLambertConicConformal1SPMapProjection");
    TOneParameters const below(-0.0, 0, 1, 0, 0);
    EXPECT_THROW(TOne(&Wgs84, &below), std::runtime_error);
}

TEST(LambertConicConformal1SP, EqualityComparesTheFiveNumbersAndNotTheEllipsoid) {
    ExpectEqualityOfRecords<TOne>(france);
    TMapProjection const& other = TTwo(&Wgs84, &wide);
    EXPECT_FALSE(TOne(&Wgs84, &france) == other);
    EXPECT_FALSE(other == TOne(&Wgs84, &france));
    TOneParameters nothing = france;
    nothing.FalseEasting = NotANumber;
    TOne const odd(&Wgs84, &nothing);
    EXPECT_FALSE(odd == TOne(odd));
}

TEST(LambertConicConformal1SP, CopyOutlivesItsSourceAndTheCallersRecord) {
    ExpectCopiesToStandAlone<TOne>(Wgs84, france);
}

TEST(LambertConicConformal1SP, NullRecordLeavesAnEmptyObject) {
    ExpectNullRecordToLeaveAnEmptyObject<TOne>(france);
}

TEST(LambertConicConformal1SP, SurvivesAllNumbersWithoutAllocating) {
    ExpectToTakeAnyNumber(TOne(&Wgs84, &france));
    ExpectToTakeAnyNumber(TOne(&Wgs84, &southern));
    ExpectToTakeAnyNumber(TOne(&Sphere, &france));
    TOneParameters const pole(90 * Degree, 0, 1, 0, 0);
    ExpectToTakeAnyNumber(TOne(&Wgs84, &pole));
    TOneParameters const nothing(NotANumber, NotANumber, Infinity, 0, 0);
    ExpectToTakeAnyNumber(TOne(&Wgs84, &nothing));
}

// --- Two standard parallels --------------------------------------------------------------------------------

TEST(LambertConicConformal2SP, GivesTheWorkedExample) {
    // Guidance Note 7-2, 9802: NAD27 / Texas South Central, 28 30 N, 96 W, in US survey feet.
    double const foot = 1200.0 / 3937;
    TTwoParameters const texas(Angle(28, 23, 0), Angle(30, 17, 0), Angle(27, 50, 0), -99 * Degree,
                               2000000 * foot, 0);
    TTwo const projection(&Clarke1866, &texas);
    TCoords const plane = Project(projection, 28.5, -96);
    ExpectNear(plane, 2963503.91 * foot, 254759.80 * foot, 0.005 * foot);
    ExpectNear(Unproject(projection, plane.X, plane.Y), -96 * Degree, 28.5 * Degree, LastPassAngle);
    EXPECT_EQ(projection.Type, mptLambertConicConformal2SP);
}

TEST(LambertConicConformal2SP, GivesSnydersExample) {
    // Snyder 1987, page 296: Clarke 1866, 35 N 75 W, to a tenth of a metre.
    TTwoParameters const parameters(33 * Degree, 45 * Degree, 23 * Degree, -96 * Degree, 0, 0);
    ExpectNear(Project(TTwo(&Clarke1866, &parameters), 35, -75), 1894410.9, 1564649.5, 0.05);
}

TEST(LambertConicConformal2SP, LongitudeIsNotWrapped) {
    ExpectNear(Project(TTwo(&Wgs84, &wide), 50, 200), 3603506.745993678118, 10903547.67073697128, Computed);
}

TEST(LambertConicConformal2SP, BeyondARightAngleLongitudeComesBackHalfATurnOfTheConeOff) {
    TTwo const projection(&Wgs84, &wide);
    TCoords const plane = Project(projection, 45, 140);
    ExpectNear(plane, 6275972.29702256296, 7364198.551649459799, Computed);
    // atan2 would give 140.
    double const turn = 180 / WideCone;
    ExpectNear(Unproject(projection, plane.X, plane.Y), (140 - turn) * Degree, 45 * Degree, LastPassAngle);
    ExpectNear(Unproject(projection, -plane.X, plane.Y), (turn - 140) * Degree, 45 * Degree, LastPassAngle);
}

TEST(LambertConicConformal2SP, ComesBackWithinARightAngleOfTheCone) {
    EXPECT_LT(GreatestRoundTripError(TTwo(&Wgs84, &wide), AroundMeridian(-60, 89, 0, 126)), LastPass);
    EXPECT_LT(GreatestRoundTripError(TTwo(&Sphere, &wide), AroundMeridian(-60, 89, 0, 126)), 1e-7);
}

TEST(LambertConicConformal2SP, SouthernConeComesBack) {
    TTwo const projection(&Wgs84, &australia);
    TCoords const plane = Project(projection, -33, 151);
    ExpectNear(plane, 1572825.721416787245, -764650.2750250672745, Computed);
    ExpectNear(Unproject(projection, plane.X, plane.Y), 151 * Degree, -33 * Degree, LastPassAngle);
    EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-89, 60, 134, 180)), LastPass);
    EXPECT_LT(GreatestRoundTripError(TTwo(&Wgs84, &antarctic), AroundMeridian(-89, -40, 0, 90)), LastPass);
}

TEST(LambertConicConformal2SP, ApexHasNoLongitude) {
    TTwo const projection(&Wgs84, &wide);
    TCoords const apex = Project(projection, 90, 0);
    ExpectNear(apex, 0, 6356377.270690337994, Computed);
    TCoords const back = Unproject(projection, apex.X, apex.Y);
    EXPECT_TRUE(std::isnan(back.X));
    EXPECT_NEAR(back.Y, Pi / 2, 1e-7);
}

TEST(LambertConicConformal2SP, OppositeParallelsAreRefused) {
    std::string const text = "TLambertConicConformal2SPMapProjection::TLambertConicConformal2SPMapProjection";
    TTwoParameters const opposite(40 * Degree, -40 * Degree, 0, 0, 0, 0);
    EXPECT_EQ(FailureOf([&] { TTwo const projection(&Wgs84, &opposite); }), text);
    EXPECT_EQ(FailureOf([&] { TTwo const projection(&Sphere, &opposite); }), text);
}

TEST(LambertConicConformal2SP, EqualParallelsGiveNoNumbers) {
    TTwoParameters const equal(45 * Degree, 45 * Degree, 45 * Degree, 0, 0, 0);
    TTwo const projection(&Wgs84, &equal);
    ExpectNotANumber(Project(projection, 45, 0));
    ExpectNotANumber(Unproject(projection, 0, 0));
    TTwoParameters const equator(0, 0, 0, 0, 0, 0);
    ExpectNotANumber(Project(TTwo(&Wgs84, &equator), 45, 0));
}

TEST(LambertConicConformal2SP, EqualityComparesTheSixNumbersAndNotTheEllipsoid) {
    ExpectEqualityOfRecords<TTwo>(wide);
}

TEST(LambertConicConformal2SP, CopyOutlivesItsSource) {
    ExpectCopiesToStandAlone<TTwo>(Wgs84, wide);
}

TEST(LambertConicConformal2SP, NullRecordLeavesAnEmptyObject) {
    ExpectNullRecordToLeaveAnEmptyObject<TTwo>(wide);
}

TEST(LambertConicConformal2SP, SurvivesAllNumbersWithoutAllocating) {
    ExpectToTakeAnyNumber(TTwo(&Wgs84, &wide));
    ExpectToTakeAnyNumber(TTwo(&Wgs84, &australia));
    ExpectToTakeAnyNumber(TTwo(&Sphere, &wide));
    TTwoParameters const equal(45 * Degree, 45 * Degree, 45 * Degree, 0, 0, 0);
    ExpectToTakeAnyNumber(TTwo(&Wgs84, &equal));
}

// --- Belgium -----------------------------------------------------------------------------------------------

TEST(LambertConicConformal2SPBelgium, GivesTheWorkedExample) {
    // Guidance Note 7-2, 9803: Belge 1972 / Belge Lambert 72, 50 40 46.461 N, 5 48 26.533 E.
    TBelgium const projection(&International, &belgium72);
    TCoords point{Angle(5, 48, 26.533), Angle(50, 40, 46.461), 0, false};
    projection.GeodeticToProjected(&point);
    ExpectNear(point, 251763.20, 153034.13, 0.005);
    projection.ProjectedToGeodetic(&point);
    ExpectNear(point, Angle(5, 48, 26.533), Angle(50, 40, 46.461), LastPassAngle);
    EXPECT_EQ(projection.Type, mptLambertConicConformal2SPBelgium);
}

TEST(LambertConicConformal2SPBelgium, IsTheFormOfTwoParallelsTurnedByASmallAngle) {
    TBelgium const turned(&International, &belgium72);
    ExpectNear(Project(turned, 50.6795725, 5.807370278), 251763.2041712509125, 153034.1325544879059,
               Computed);
    TTwo const straight(&International, &belgium72);
    ExpectNear(Project(straight, 50.6795725, 5.807370278), 252508.5111923124014, 153048.640250288163,
               Computed);
}

TEST(LambertConicConformal2SPBelgium, ComesBackOnTheWholeTurnOfANorthernCone) {
    TBelgium const projection(&International, &belgium72);
    EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-60, 89, 4, 179)), LastPass);
}

TEST(LambertConicConformal2SPBelgium, SouthernConeComesBackHalfATurnOfTheConeOff) {
    TBelgium const projection(&Wgs84, &australia);
    TCoords const plane = Project(projection, -33, 133);
    TCoords const back = Unproject(projection, plane.X, plane.Y);
    EXPECT_NEAR(back.X, std::remainder(133 * Degree - Pi / AustralianCone, 2 * Pi), 1e-12);
    EXPECT_NEAR(back.Y, -33 * Degree, LastPassAngle);
}

TEST(LambertConicConformal2SPBelgium, OppositeParallelsAreRefusedWithTheBasesText) {
    TTwoParameters const opposite(40 * Degree, -40 * Degree, 0, 0, 0, 0);
    EXPECT_EQ(FailureOf([&] { TBelgium const projection(&Wgs84, &opposite); }),
              "TLambertConicConformal2SPMapProjection::TLambertConicConformal2SPMapProjection");
}

TEST(LambertConicConformal2SPBelgium, KeepsItsTypeInBothConstructors) {
    TBelgium const projection(&International, &belgium72);
    TBelgium const copy(projection);
    EXPECT_EQ(copy.Type, 1201);
    EXPECT_TRUE(copy == projection);
    ExpectSameResults(copy, projection);
    TTwo const straight(projection);
    EXPECT_EQ(straight.Type, mptLambertConicConformal2SP);
    EXPECT_FALSE(straight == projection);
    EXPECT_FALSE(projection == straight);
    ExpectSameResults(straight, TTwo(&International, &belgium72));
}

TEST(LambertConicConformal2SPBelgium, EqualityComparesTheSixNumbers) {
    ExpectEqualityOfRecords<TBelgium>(wide);
}

TEST(LambertConicConformal2SPBelgium, SurvivesAllNumbersWithoutAllocating) {
    ExpectToTakeAnyNumber(TBelgium(&International, &belgium72));
    ExpectToTakeAnyNumber(TBelgium(&Wgs84, &australia));
}

} // namespace
