#include "core/projections/ObliqueStereographic.h"

#include "tests/core/projections/ProjectionChecks.h"

#include <cstddef>
#include <type_traits>

using namespace KvRefSystem;
using namespace ProjectionChecks;

namespace {

using TOblique = TObliqueStereographicMapProjection;
using TParameters = TObliqueStereographicMapProjectionParameters;

static_assert(std::is_base_of_v<TMapProjection, TOblique>);
static_assert(!std::is_copy_assignable_v<TOblique>);
static_assert(sizeof(TParameters) == 40 && offsetof(TParameters, LongitudeOfOrigin) == 0);
static_assert(offsetof(TParameters, LatitudeOfOrigin) == 8 && offsetof(TParameters, ScaleFactor) == 16);
static_assert(offsetof(TParameters, FalseEasting) == 24 && offsetof(TParameters, FalseNorthing) == 32);

// Amersfoort / RD New.
TParameters const rdNew((5 + 23 / 60.0 + 15.5 / 3600) * Degree, (52 + 9 / 60.0 + 22.178 / 3600) * Degree,
                        0.9999079, 155000, 463000);

// Pulkovo 1942(58) / Stereo70.
TParameters const stereo70(25 * Degree, 46 * Degree, 0.99975, 5e5, 5e5);

/** Values that mpmath gave with 50 digits from the method's formulas. */
constexpr double Computed = 2e-8;

TEST(ObliqueStereographic, GivesTheWorkedExample) {
    // Guidance Note 7-2, 9809: 53 N, 6 E.
    TOblique const projection(&Bessel, &rdNew);
    TCoords const plane = Project(projection, 53, 6);
    ExpectNear(plane, 196105.283, 557057.739, 0.0005);
    ExpectNear(plane, 196105.2829924584, 557057.7393884, Computed);
    ExpectNear(Unproject(projection, 196105.2829924584, 557057.7393884), 6 * Degree, 53 * Degree, 1e-14);
    EXPECT_EQ(projection.Type, mptObliqueStereographic);
}

TEST(ObliqueStereographic, GivesTheFormulasFarFromTheOrigin) {
    TOblique const projection(&Krassowsky, &stereo70);
    ExpectNear(Project(projection, 44, 21), 179217.7412369559, 285687.9220604318, Computed);
    ExpectNear(Project(projection, 47.5, 28.25), 744812.5046984956, 671778.6816116261, Computed);
    ExpectNear(Project(projection, 45, -100), -5528556.181757092, 8659971.428359106, Computed);
    ExpectNear(Project(projection, -30, 60), 6086158.935772308, -9089293.473946495, Computed);
}

TEST(ObliqueStereographic, GivesTheFormulasOnTheEquator) {
    TParameters const parameters(0, 0, 1, 0, 0);
    ExpectNear(Project(TOblique(&Wgs84, &parameters), 30, 20), 2084114.964460745, 3496194.45599132, Computed);
}

TEST(ObliqueStereographic, GivesTheSphericalFormulaOnASphere) {
    // mpmath; the unit sphere, origin 40 N 100 W, point 30 N 90 W.
    TParameters const parameters(-100 * Degree, 40 * Degree, 1, 0, 0);
    TOblique const projection(&UnitSphere, &parameters);
    ExpectNear(Project(projection, 30, -90), 0.152308223397799, -0.1673050865190049, 1e-15);
    ExpectNear(Unproject(projection, 0.152308223397799, -0.1673050865190049), -90 * Degree, 30 * Degree,
               1e-15);
}

TEST(ObliqueStereographic, LongitudeDifferenceWrapsAtTheAntimeridian) {
    TParameters const parameters(175 * Degree, -40 * Degree, 1, 0, 0);
    TOblique const projection(&Wgs84, &parameters);
    // mpmath with 6 degrees; 354 degrees, unwrapped, would give 490442.81, 207001.76.
    ExpectNear(Project(projection, -38, -179), 527064.5786450545, 204667.4520577151, Computed);
    TCoords const back = Unproject(projection, 527064.5786450545, 204667.4520577151);
    ExpectNear(back, -179 * Degree, -38 * Degree, 1e-14);
}

TEST(ObliqueStereographic, OriginIsTheFalseOrigin) {
    TOblique const projection(&Bessel, &rdNew);
    TCoords coords{rdNew.LongitudeOfOrigin, rdNew.LatitudeOfOrigin, 0, false};
    projection.GeodeticToProjected(&coords);
    ExpectNear(coords, 155000, 463000, 3e-9);
    projection.ProjectedToGeodetic(&coords);
    ExpectNear(coords, rdNew.LongitudeOfOrigin, rdNew.LatitudeOfOrigin, 1e-15);
}

TEST(ObliqueStereographic, ComesBackNearTheOriginWellWithinTheStoppingStep) {
    TOblique const projection(&Bessel, &rdNew);
    EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(50, 54, 5.4, 3)), 6.38e6 * 1e-9);
    // The step that stops is applied.
    EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(50, 54, 5.4, 3)), 1e-8);
}

TEST(ObliqueStereographic, ComesBackFromAllButTheFarSideAndThePoles) {
    EXPECT_LT(GreatestRoundTripError(TOblique(&Krassowsky, &stereo70), AroundMeridian(-30, 89, 25, 120)),
              1e-7);
    TParameters const southern(175 * Degree, -40 * Degree, 0.9996, 1e6, 1e6);
    EXPECT_LT(GreatestRoundTripError(TOblique(&Wgs84, &southern), AroundMeridian(-89, 30, 175, 120)), 1e-7);
    EXPECT_LT(GreatestRoundTripError(TOblique(&Sphere, &stereo70), AroundMeridian(-30, 89, 25, 120)), 1e-7);
}

TEST(ObliqueStereographic, NorthPoleIsNotANumber) {
    TCoords const plane = Project(TOblique(&Krassowsky, &stereo70), 90, 10);
    EXPECT_TRUE(std::isnan(plane.X));
    EXPECT_TRUE(std::isnan(plane.Y));
}

TEST(ObliqueStereographic, SouthPoleIsAPointWhoseWayBackIsNotANumber) {
    TOblique const projection(&Krassowsky, &stereo70);
    TCoords const plane = Project(projection, -90, 10);
    EXPECT_TRUE(std::isfinite(plane.X));
    TCoords const close = Project(projection, -89.9999, 10);
    EXPECT_NEAR(plane.Y, close.Y, 150); // the scale is about 7.6 there, the place 11 m away
    EXPECT_TRUE(std::isnan(Unproject(projection, plane.X, plane.Y).Y));
}

TEST(ObliqueStereographic, LosesDigitsInTheLastMetresBeforeThePole) {
    TOblique const projection(&Krassowsky, &stereo70);
    double const metre = 1 / 111694.0; // degrees of the meridian at the pole
    for (int const sign : {-1, 1}) {
        EXPECT_LT(RoundTripError(projection, sign * (90 - 10000 * metre), 40), 1e-6);
        EXPECT_LT(RoundTripError(projection, sign * (90 - 1000 * metre), 40), 1e-5);
        EXPECT_LT(RoundTripError(projection, sign * (90 - 10 * metre), 40), 1e-3);
        EXPECT_LT(RoundTripError(projection, sign * (90 - metre), 40), 1e-2);
    }
}

TEST(ObliqueStereographic, OriginAtAPoleGivesNoNumbers) {
    TParameters const parameters(0, 90 * Degree, 1, 0, 0);
    TOblique const projection(&Wgs84, &parameters);
    EXPECT_TRUE(std::isnan(Project(projection, 80, 10).X));
    EXPECT_TRUE(std::isnan(Unproject(projection, 1e5, 1e5).Y));
}

TEST(ObliqueStereographic, OperationsFillTheBasesSlots) {
    ExpectOperationsInTheBasesSlots<TOblique>();
}

TEST(ObliqueStereographic, CopyOwnsItsRecordAndGivesTheSameNumbers) {
    ExpectCopiesToStandAlone<TOblique>(Bessel, rdNew, 51, 4);
    TOblique const original(&Bessel, &rdNew);
    TOblique const copy(original);
    EXPECT_EQ(OffsetIn(copy, copy.Parameters), 16);
    ExpectEqual(Unproject(copy, 1e5, 4e5), Unproject(original, 1e5, 4e5));
    copy.Parameters->ScaleFactor = 1;
    EXPECT_FALSE(copy == original);
}

TEST(ObliqueStereographic, EqualityComparesTheRecordAndNotTheEllipsoid) {
    TParameters const parameters(1, 0.5, 3, 4, 5);
    ExpectEqualityOfRecords<TOblique>(parameters);
}

TEST(ObliqueStereographic, SurvivesAllNumbersAndAllocatesNothing) {
    ExpectToTakeAnyNumber(TOblique(&Bessel, &rdNew));
    ExpectToTakeAnyNumber(TOblique(&Sphere, &stereo70));
}

} // namespace
