#include "core/projections/Mercator.h"

#include "tests/core/projections/ProjectionChecks.h"

#include <type_traits>

using namespace KvRefSystem;
using namespace ProjectionChecks;

namespace {

using TTwo = TMercator2SPMapProjection;
using TTwoParameters = TMercator2SPMapProjectionParameters;
using TOne = TMercator1SPMapProjection;
using TOneParameters = TMercator1SPMapProjectionParameters;

static_assert(std::is_base_of_v<TMapProjection, TTwo> && std::is_base_of_v<TTwo, TOne>);
static_assert(!std::is_copy_assignable_v<TTwo> && !std::is_copy_assignable_v<TOne>);
static_assert(sizeof(TTwoParameters) == 32 && sizeof(TOneParameters) == 40);
static_assert(offsetof(TTwoParameters, FirstStandardParallel) == 0);
static_assert(offsetof(TTwoParameters, LongitudeOfOrigin) == 8);
static_assert(offsetof(TTwoParameters, FalseEasting) == 16 && offsetof(TTwoParameters, FalseNorthing) == 24);
static_assert(offsetof(TOneParameters, LatitudeOfOrigin) == 0);
static_assert(offsetof(TOneParameters, LongitudeOfOrigin) == 8);
static_assert(offsetof(TOneParameters, FalseEasting) == 16 && offsetof(TOneParameters, FalseNorthing) == 24);
static_assert(offsetof(TOneParameters, ScaleFactor) == 32);

/** mpmath with 40 digits, from the method's formulas; metres. */
constexpr double Computed = 2e-8;

/** What the series of the latitude leaves, which ends at e^8: metres and radians. */
constexpr double SeriesEnd = 2e-5;
constexpr double SeriesEndAngle = 3e-12;

TTwoParameters const caspian(42 * Degree, 51 * Degree, 0, 0);
TOneParameters const makassar(0, 110 * Degree, 0.997, 3900000, 900000);

TEST(Mercator2SP, GivesTheWorkedExample) {
    // Guidance Note 7-2, 9805: Pulkovo 1942 / Mercator Caspian Sea, 53 N 53 E.
    TTwo const projection(&Krassowsky, &caspian);
    TCoords const plane = Project(projection, 53, 53);
    ExpectNear(plane, 165704.29, 5171848.07, 0.005);
    ExpectNear(plane, 165704.2933105065018, 5171848.072896472831, Computed);
    ExpectNear(Unproject(projection, plane.X, plane.Y), 53 * Degree, 53 * Degree, SeriesEndAngle);
    EXPECT_EQ(projection.Type, mptMercator2SP);
}

TEST(Mercator1SP, GivesTheWorkedExample) {
    // Guidance Note 7-2, 9804: Makassar / NEIEZ, 3 S 120 E.
    TOne const projection(&Bessel, &makassar);
    TCoords const plane = Project(projection, -3, 120);
    ExpectNear(plane, 5009726.58, 569150.82, 0.005);
    ExpectNear(Unproject(projection, plane.X, plane.Y), 120 * Degree, -3 * Degree, SeriesEndAngle);
    EXPECT_EQ(projection.Type, mptMercator1SP);
}

TEST(Mercator1SP, GivesSnydersExample) {
    // Snyder 1987, page 267: Clarke 1866, central meridian 180, 35 N 75 W; the longitude given as 285 E.
    TOneParameters const parameters(0, 180 * Degree, 1, 0, 0);
    TOne const projection(&Clarke1866, &parameters);
    ExpectNear(Project(projection, 35, 285), 11688673.7, 4139145.6, 0.1);
    ExpectNear(Project(projection, 35, 285), 11688673.71543631795, 4139145.662600092802, Computed);
}

TEST(Mercator1SP, LongitudeIsNotWrapped) {
    TOneParameters const parameters(0, 170 * Degree, 1, 0, 0);
    TOne const projection(&Wgs84, &parameters);
    ExpectNear(Project(projection, 40, -170), -37848626.8697130147, 4838471.398061136382, Computed);
    ExpectNear(Unproject(projection, -37848626.8697130147, 4838471.398061136382), -170 * Degree, 40 * Degree,
               SeriesEndAngle);
}

TEST(Mercator1SP, LatitudeOfOriginIsNeverRead) {
    TOneParameters const plain(0, 10 * Degree, 0.9, 500, 700);
    TOneParameters const carried(30 * Degree, 10 * Degree, 0.9, 500, 700);
    ExpectSameResults(TOne(&Wgs84, &plain), TOne(&Wgs84, &carried));
    EXPECT_FALSE(TOne(&Wgs84, &plain) == TOne(&Wgs84, &carried));
}

TEST(Mercator1SP, ScaleFactorDoesNotTakePartInComparisons) {
    TOne const projection(&Bessel, &makassar);
    TOneParameters other = makassar;
    other.ScaleFactor = 1;
    EXPECT_TRUE(projection == TOne(&Bessel, &other));
    for (double TOneParameters::*const field :
         {&TOneParameters::LatitudeOfOrigin, &TOneParameters::LongitudeOfOrigin,
          &TOneParameters::FalseEasting, &TOneParameters::FalseNorthing}) {
        TOneParameters moved = makassar;
        moved.*field += 0.25;
        EXPECT_FALSE(projection == TOne(&Bessel, &moved));
    }
    TTwo const two(&Bessel, &caspian);
    EXPECT_FALSE(projection == two);
    EXPECT_FALSE(two == projection);
}

TEST(Mercator1SP, BaseHasNoRecord) {
    TOne const projection(&Bessel, &makassar);
    TTwo const& base = projection;
    EXPECT_EQ(base.Parameters, nullptr);
    EXPECT_NE(projection.Parameters, nullptr);
    TTwo const sliced(base);
    EXPECT_EQ(sliced.Type, mptMercator2SP);
    ExpectSameResults(sliced, projection);
}

TEST(Mercator1SP, CopyOutlivesItsSource) {
    ExpectCopiesToStandAlone<TOne>(Bessel, makassar);
    TOne const source(&Bessel, &makassar);
    TOne const copy(source);
    EXPECT_EQ(copy.Type, mptMercator1SP);
    EXPECT_EQ(copy.Parameters->ScaleFactor, 0.997);
}

TEST(Mercator2SP, CopyOutlivesItsSource) {
    ExpectCopiesToStandAlone<TTwo>(Krassowsky, caspian);
}

TEST(Mercator2SP, EqualityComparesTheFourNumbersAndNotTheEllipsoid) {
    ExpectEqualityOfRecords<TTwo>(caspian);
}

TEST(Mercator2SP, NullRecordSetsOnlyTheType) {
    TTwo const two(&Wgs84, nullptr);
    EXPECT_EQ(two.Type, mptMercator2SP);
    EXPECT_EQ(two.Parameters, nullptr);
    EXPECT_TRUE(two == TTwo(two));
    EXPECT_FALSE(two == TTwo(&Wgs84, &caspian));
    ExpectToTakeAnyNumber(two);
    TOne const one(nullptr, nullptr);
    EXPECT_EQ(one.Type, mptMercator1SP);
    EXPECT_TRUE(one == TOne(one));
    EXPECT_FALSE(one == TOne(&Wgs84, &makassar));
    ExpectToTakeAnyNumber(one);
}

TEST(Mercator2SP, PolesAreWhatTheLogarithmGives) {
    TTwoParameters const parameters(0, 0, 0, 0);
    // ln tan(pi/2) of doubles: the tangent of pi/2 - 6.123233995736766e-17, less e atanh(e) of the ellipsoid.
    double const sphere = 6371007 * std::log(1 / 6.123233995736766e-17);
    TTwo const projection(&Sphere, &parameters);
    EXPECT_NEAR(Project(projection, 90, 0).Y, sphere, 1e-6);
    EXPECT_EQ(Project(projection, -90, 0).Y, -Infinity);
    EXPECT_EQ(Unproject(projection, 0, Infinity).Y, Pi / 2);
    EXPECT_EQ(Unproject(projection, 0, -Infinity).Y, -Pi / 2);
    EXPECT_TRUE(std::isnan(Project(projection, 91, 0).Y));
}

TEST(Mercator2SP, ComesBack) {
    EXPECT_LT(GreatestRoundTripError(TTwo(&Krassowsky, &caspian), AroundMeridian(-89.9, 89.9, 51, 180)),
              SeriesEnd);
    EXPECT_LT(GreatestRoundTripError(TOne(&Bessel, &makassar), AroundMeridian(-89.9, 89.9, 110, 180)),
              SeriesEnd);
    EXPECT_LT(GreatestRoundTripError(TOne(&Sphere, &makassar), AroundMeridian(-89.9, 89.9, 110, 180)), 2e-8);
}

TEST(Mercator2SP, SurvivesAllNumbersWithoutAllocating) {
    ExpectToTakeAnyNumber(TTwo(&Krassowsky, &caspian));
    ExpectToTakeAnyNumber(TOne(&Bessel, &makassar));
    TTwoParameters const pole(90 * Degree, 0, 0, 0);
    ExpectToTakeAnyNumber(TTwo(&Sphere, &pole));
}

} // namespace
