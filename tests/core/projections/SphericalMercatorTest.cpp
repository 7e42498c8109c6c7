#include "core/projections/SphericalMercator.h"

#include "tests/core/projections/ProjectionChecks.h"

#include <type_traits>

using namespace KvRefSystem;
using namespace ProjectionChecks;

namespace {

using TSpherical = TSphericalMercatorMapProjection;
using TParameters = TSphericalMercatorMapProjectionParameters;

static_assert(std::is_base_of_v<TMapProjection, TSpherical>);
static_assert(!std::is_copy_assignable_v<TSpherical>);
static_assert(sizeof(TParameters) == 32 && offsetof(TParameters, CentralMeridian) == 0);
static_assert(offsetof(TParameters, ScaleFactor) == 8 && offsetof(TParameters, FalseEasting) == 16);
static_assert(offsetof(TParameters, FalseNorthing) == 24);

TParameters const web(0, 1, 0, 0);

TEST(SphericalMercator, GivesTheWorkedExample) {
    // Guidance Note 7-2, 1024: WGS 84 / Pseudo-Mercator, 24 22 54.433 N, 100 20 00.000 W.
    TSpherical const projection(&Wgs84, &web);
    TCoords point{-Angle(100, 20, 0), Angle(24, 22, 54.433), 0, false};
    projection.GeodeticToProjected(&point);
    ExpectNear(point, -11169055.58, 2800000.00, 0.005);
    projection.ProjectedToGeodetic(&point);
    ExpectNear(point, -Angle(100, 20, 0), Angle(24, 22, 54.433), 1e-15);
    EXPECT_EQ(projection.Type, mptSphericalMercator);
}

TEST(SphericalMercator, LongitudeDifferenceWrapsAtTheAntimeridian) {
    TParameters const parameters(170 * Degree, 1, 0, 0);
    // 20 degrees of the equator.
    EXPECT_NEAR(Project(TSpherical(&Wgs84, &parameters), 0, -170).X, 6378137 * Pi / 9, 1e-8);
}

TEST(SphericalMercator, NullAxesGiveTheScaleAsTheRadius) {
    TParameters const parameters(0, 2.5, 0, 0);
    TSpherical const projection(nullptr, &parameters);
    EXPECT_EQ(Project(projection, 0, 90).X, 2.5 * 90 * Degree);
    // ln tan(60 degrees) = ln 3 / 2
    EXPECT_NEAR(Project(projection, 30, 0).Y, 2.5 * std::log(3.0) / 2, 1e-15);
}

TEST(SphericalMercator, ScaleFactorMultipliesTheRadius) {
    TParameters const parameters(0, 0.5, 1000, 2000);
    TSpherical const projection(&Wgs84, &parameters);
    ExpectNear(Project(projection, 30, 90), 1000 + 0.5 * 6378137 * Pi / 2,
               2000 + 0.5 * 6378137 * std::log(3.0) / 2, 2e-9);
}

TEST(SphericalMercator, PolesAreWhatTheLogarithmGives) {
    TSpherical const projection(&Wgs84, &web);
    // The tangent of pi/2 in doubles is 1 / 6.123233995736766e-17.
    EXPECT_NEAR(Project(projection, 90, 0).Y, 6378137 * std::log(1 / 6.123233995736766e-17), 1e-6);
    EXPECT_NEAR(Project(projection, 90, 0).Y, 238107693.265, 0.001);
    EXPECT_EQ(Project(projection, -90, 0).Y, -Infinity);
    EXPECT_EQ(Unproject(projection, 0, Infinity).Y, Pi / 2);
}

TEST(SphericalMercator, ComesBack) {
    EXPECT_LT(GreatestRoundTripError(TSpherical(&Wgs84, &web), AroundMeridian(-89.9, 89.9, 0, 180)), 2e-8);
}

TEST(SphericalMercator, EqualityComparesTheFourNumbersAndNotTheEllipsoid) {
    EXPECT_TRUE(TSpherical(&Wgs84, &web) == TSpherical(nullptr, &web));
    ExpectEqualityOfRecords<TSpherical>(web);
}

TEST(SphericalMercator, CopyOutlivesItsSource) {
    ExpectCopiesToStandAlone<TSpherical>(Wgs84, web);
}

TEST(SphericalMercator, NullRecordLeavesAnEmptyObject) {
    ExpectNullRecordToLeaveAnEmptyObject<TSpherical>(web);
}

TEST(SphericalMercator, SurvivesAllNumbersWithoutAllocating) {
    ExpectToTakeAnyNumber(TSpherical(&Wgs84, &web));
    TParameters const nothing(NotANumber, 0, Infinity, 0);
    ExpectToTakeAnyNumber(TSpherical(&Wgs84, &nothing));
}

} // namespace
