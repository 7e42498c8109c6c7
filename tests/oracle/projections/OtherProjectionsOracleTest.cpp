#include "core/projections/CassiniSoldner.h"
#include "core/projections/Hatt.h"
#include "core/projections/Krovak.h"
#include "core/projections/LambertAzimuthalEqualArea.h"
#include "core/projections/NZMG.h"
#include "core/projections/Orthographic.h"
#include "core/projections/Polyconic.h"
#include "tests/oracle/Ellipsoids.h"
#include "tests/oracle/Places.h"
#include "tests/oracle/ProjPipeline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace OracleTests {

namespace {

using namespace KvRefSystem;

constexpr TAxes ellipsoids[] = {Ellipsoids::Wgs84, Ellipsoids::International1924, Ellipsoids::Bessel1841,
                                Ellipsoids::Clarke1880Rgs, Ellipsoids::Krassowsky1940};

constexpr TEllipsoidSemiAxes SemiAxesOf(TAxes const& axes) {
    return {axes.Major, axes.Minor};
}

constexpr TEllipsoidSemiAxes International = SemiAxesOf(Ellipsoids::International1924);
constexpr TEllipsoidSemiAxes Bessel = SemiAxesOf(Ellipsoids::Bessel1841);
constexpr TEllipsoidSemiAxes Sphere = SemiAxesOf(Ellipsoids::Sphere);

/** Degrees. */
struct TArea {
    double South;
    double North;
    double West;
    double East;
};

/** Greatest differences from PROJ: metres on the map, and on the ground for the way back. */
struct TDifferences {
    double Forward = 0;
    double Reverse = 0;
};

std::string AxesOf(TEllipsoidSemiAxes const& axes) {
    return " +a=" + Number(axes.a) + " +b=" + Number(axes.b);
}

std::string OriginOf(double latitude, double longitude) {
    return " +lat_0=" + Number(latitude) + " +lon_0=" + Number(longitude);
}

/** A NaN is a difference that nothing hides. */
void Enlarge(double* greatest, double difference) {
    if (!(difference <= *greatest)) {
        *greatest = difference;
    }
}

TDifferences Compare(TMapProjection const& ours, std::string const& definition, TArea const& area) {
    constexpr int Steps = 101; // odd: the origin itself, whose reverse may be no number, stays between
    TProjPipeline const proj(definition);
    TDifferences differences;
    for (int row = 0; row <= Steps; ++row) {
        for (int column = 0; column <= Steps; ++column) {
            double const phi = (area.South + (area.North - area.South) * row / Steps) * Degree;
            double const lambda = (area.West + (area.East - area.West) * column / Steps) * Degree;
            TCoords plane{lambda, phi, 0, false};
            ours.GeodeticToProjected(&plane);
            TTriple const theirs = proj.Forward({lambda, phi, 0});
            Enlarge(&differences.Forward, std::hypot(plane.X - theirs[0], plane.Y - theirs[1]));

            TCoords place{theirs[0], theirs[1], 0, false};
            ours.ProjectedToGeodetic(&place);
            TTriple const theirPlace = proj.Inverse(theirs);
            double const east = std::remainder(place.X - theirPlace[0], 2 * Pi) * std::cos(phi);
            Enlarge(&differences.Reverse, 6.4e6 * std::hypot(place.Y - theirPlace[1], east));
        }
    }
    return differences;
}

void ExpectWithin(TDifferences const& differences, double forward, double reverse) {
    EXPECT_LT(differences.Forward, forward);
    EXPECT_LT(differences.Reverse, reverse);
}

class OtherProjections : public testing::TestWithParam<TAxes> {
protected:
    OtherProjections() : Axes(SemiAxesOf(GetParam())) {}

    TEllipsoidSemiAxes const Axes;
};

/** PROJ's krovak is always on Bessel's ellipsoid, and holds the axis and the cone as rounded decimals. */
constexpr double KrovaksRoundedConstants = 3e-6;

/** Near 90 degrees of oblique longitude its arc sine, ours as PROJ's, loses half of the digits. */
constexpr double KrovaksArcSineNearNinetyDegrees = 1e-3;

TEST(KrovakOracle, EqualsProj) {
    double const azimuth = 30 + 17 / 60.0 + 17.30311 / 3600;
    double const longitude = 24 + 50 / 60.0;
    TKrovakMapProjectionParameters const record(49.5 * Degree, longitude * Degree, azimuth * Degree,
                                                78.5 * Degree, 0.9999, 0, 0);
    TKrovakMapProjection const krovak(&Bessel, &record);
    std::string const definition = "+proj=krovak +ellps=bessel +k=0.9999" + OriginOf(49.5, longitude);
    ExpectWithin(Compare(krovak, definition, {47.5, 51.5, 12, 22.7}), KrovaksRoundedConstants,
                 KrovaksRoundedConstants);
    ExpectWithin(Compare(krovak, definition, {30, 55, 0, 45}), KrovaksRoundedConstants,
                 KrovaksRoundedConstants);
    EXPECT_LT(Compare(krovak, definition, {55, 65, 0, 45}).Forward, KrovaksArcSineNearNinetyDegrees);
}

/** The same polynomials and two steps of Newton's leave nothing but rounding. */
constexpr double Rounding = 1e-8;

TEST(NZMGOracle, EqualsProj) {
    TNZMGMapProjectionParameters const record(-41 * Degree, 173 * Degree, 2510000, 6023150);
    TNZMGMapProjection const grid(&International, &record);
    ExpectWithin(Compare(grid, "+proj=nzmg", {-48, -34, 166, 179}), Rounding, Rounding);
}

/** The meridian's length ends with the sixth power of e, a millimetre and a bit between far latitudes. */
constexpr double MeridianSeries = 1.3e-3;

/** The reverse ends with the fifth power of the longitude's difference; PROJ corrects it by its forward. */
constexpr double CassinisReverseAtOneDegree = 4e-4;
constexpr double CassinisReverseAtThreeDegrees = 0.02;

/** On a sphere PROJ's cass is exact, and so shows what the series leave out. */
constexpr double CassinisSeriesAtThreeDegrees = 3e-3;

TEST_P(OtherProjections, CassiniSoldnerEqualsProj) {
    TCassiniSoldnerMapProjectionParameters const record(40 * Degree, 10 * Degree, 0, 0);
    TCassiniSoldnerMapProjection const cassini(&Axes, &record);
    std::string const definition = "+proj=cass" + OriginOf(40, 10) + AxesOf(Axes);
    ExpectWithin(Compare(cassini, definition, {-80, 80, 9, 11}), MeridianSeries, CassinisReverseAtOneDegree);
    ExpectWithin(Compare(cassini, definition, {-80, 80, 7, 13}), MeridianSeries,
                 CassinisReverseAtThreeDegrees);
}

TEST(CassiniSoldnerOracle, EqualsProjOnTheSphereAsFarAsTheSeriesGo) {
    TCassiniSoldnerMapProjectionParameters const record(40 * Degree, 10 * Degree, 0, 0);
    TCassiniSoldnerMapProjection const cassini(&Sphere, &record);
    std::string const definition = "+proj=cass" + OriginOf(40, 10) + AxesOf(Sphere);
    ExpectWithin(Compare(cassini, definition, {-80, 80, 7, 13}), CassinisSeriesAtThreeDegrees,
                 CassinisSeriesAtThreeDegrees);
}

/** Powers up to the fourth within a quarter and half a degree; PROJ's aeqd takes geodesics. */
constexpr double HattsForwardAtAQuarter = 3e-5;
constexpr double HattsForwardAtAHalf = 3e-4;

/** The ellipsoid's share of the reverse's cubic terms isn't that of the forward's inverse. */
constexpr double HattsReverseAtAQuarter = 2.5e-3;
constexpr double HattsReverseAtAHalf = 0.02;

TEST_P(OtherProjections, HattComesCloseToTheAzimuthalEquidistantOfProj) {
    for (double const latitude : {-60.0, 0.0, 38.0}) {
        THattMapProjectionParameters const record(latitude * Degree, 23.5 * Degree);
        THattMapProjection const hatt(&Axes, &record);
        std::string const definition = "+proj=aeqd" + OriginOf(latitude, 23.5) + AxesOf(Axes);
        ExpectWithin(Compare(hatt, definition, {latitude - 0.25, latitude + 0.25, 23.25, 23.75}),
                     HattsForwardAtAQuarter, HattsReverseAtAQuarter);
        ExpectWithin(Compare(hatt, definition, {latitude - 0.5, latitude + 0.5, 23, 24}), HattsForwardAtAHalf,
                     HattsReverseAtAHalf);
    }
}

/** Latitudes of Brazil, where the meridian's series is nearer to PROJ's. */
constexpr double MeridianSeriesToThirtyFiveDegrees = 1e-4;

TEST_P(OtherProjections, PolyconicEqualsProj) {
    TPolyconicMapProjectionParameters const record(-54 * Degree, 0, 1, 0, 0);
    TPolyconicMapProjection const polyconic(&Axes, &record);
    std::string const definition = "+proj=poly" + OriginOf(0, -54) + AxesOf(Axes);
    ExpectWithin(Compare(polyconic, definition, {-35, 6, -74, -34}), MeridianSeriesToThirtyFiveDegrees,
                 MeridianSeriesToThirtyFiveDegrees);
    ExpectWithin(Compare(polyconic, definition, {-80, 80, -114, 6}), MeridianSeries, MeridianSeries);
}

/** The last step of Newton's, of at most 1e-12 radians in each coordinate, isn't applied. */
constexpr double OrthographicsMissingStep = 1.3e-5;

TEST_P(OtherProjections, OrthographicEqualsProj) {
    TOrthographicMapProjectionParameters const record(55 * Degree, 5 * Degree, 0, 0);
    TOrthographicMapProjection const orthographic(&Axes, &record);
    std::string const definition = "+proj=ortho" + OriginOf(55, 5) + AxesOf(Axes);
    ExpectWithin(Compare(orthographic, definition, {10, 80, -40, 50}), Rounding, OrthographicsMissingStep);
}

/** A cosine from the sine of the authalic latitude loses digits towards the pole. */
constexpr double AuthalicCosineToEightyFive = 2e-7;
constexpr double AuthalicCosineToEightyNineNine = 5e-6;

TEST_P(OtherProjections, LambertAzimuthalEqualAreaEqualsProj) {
    TLambertAzimuthalEqualAreaMapProjectionParameters const record(52 * Degree, 10 * Degree, 0, 0);
    TLambertAzimuthalEqualAreaMapProjection const lambert(&Axes, &record);
    std::string const definition = "+proj=laea" + OriginOf(52, 10) + AxesOf(Axes);
    ExpectWithin(Compare(lambert, definition, {24, 85, -36, 46}), AuthalicCosineToEightyFive,
                 AuthalicCosineToEightyFive);
    ExpectWithin(Compare(lambert, definition, {-30, 89.9, -75, 94}), AuthalicCosineToEightyNineNine,
                 AuthalicCosineToEightyNineNine);
}

INSTANTIATE_TEST_SUITE_P(All, OtherProjections, testing::ValuesIn(ellipsoids),
                         [](auto const& axes) { return axes.param.Name; });

} // namespace

} // namespace OracleTests
