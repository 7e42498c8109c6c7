#include "tests/oracle/Ellipsoids.h"
#include "tests/oracle/Places.h"
#include "tests/oracle/ProjPipeline.h"

#include "core/projections/ObliqueStereographic.h"
#include "core/projections/PolarStereographic.h"
#include "core/projections/QuasiStereographic.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace OracleTests {

namespace {

using namespace KvRefSystem;

/** Both sides work out the closed relation in doubles; metres on maps of a few thousand kilometres. */
constexpr double RoundingOnTheMap = 2e-8;

/** Metres on the ground, of angles in doubles. */
constexpr double RoundingOnTheGround = 2e-8;

/**
 * Our way back from the polar maps ends the series of the latitude at e^8, PROJ iterates. Metres on the
 * ground within 30 degrees of the pole, and within 90.
 */
constexpr double SeriesNearThePole = 1.1e-6;
constexpr double SeriesOnTheHemisphere = 1.4e-5;

/**
 * PROJ takes the tangent of half the colatitude, we take the method's 1 - sin(latitude), which loses digits
 * near the poles. Metres on maps and on the ground beyond 10 km (89.9 degrees) and one kilometre (89.99).
 */
constexpr double LostDigitsAtTenKilometres = 1e-6;
constexpr double LostDigitsAtOneKilometre = 5e-5;

/**
 * PROJ's way back on a sphere ends in an arc sine, which loses digits near the pole: metres on the ground
 * beyond 100 metres from it.
 */
constexpr double ArcSineNearThePole = 5e-5;

/**
 * What our fifth order leaves of the exact projection at 100 km once the three coefficients that aren't the
 * projection's are taken into account, as the terms of the fourth order have eta2 in part only: metres
 * forward, and on the ground in reverse. On a sphere only the sixth order is left.
 */
constexpr double TermsWithoutEta2 = 6e-4;
constexpr double SixthOrder = 1e-4;

constexpr TAxes ellipsoids[] = {Ellipsoids::Wgs84, Ellipsoids::Krassowsky1940, Ellipsoids::Airy1830,
                                Ellipsoids::Clarke1880Ign, Ellipsoids::Sphere};

/** A grid of places, in degrees. */
struct TGrid {
    double South;
    double North;
    double Middle; ///< longitude
    double Reach;  ///< to the east and west of it
    double OriginLatitude = 0;
    double Radius = 0; ///< metres about the origin; 0 for all of the grid
};

struct TDifferences {
    double Forward = 0; ///< metres on the map
    double Reverse = 0; ///< metres on the ground
};

double GroundDistance(double longitude, double latitude, double otherLongitude, double otherLatitude) {
    return 6.38e6 * std::hypot(latitude - otherLatitude,
                               std::remainder(longitude - otherLongitude, 2 * Pi) * std::cos(latitude));
}

class Stereographic : public testing::TestWithParam<TAxes> {
protected:
    Stereographic() : Axes{GetParam().Major, GetParam().Minor} {}

    TProjPipeline Proj(std::string const& definition) const {
        return TProjPipeline("+proj=" + definition + " +a=" + Number(Axes.a) + " +b=" + Number(Axes.b));
    }

    /** Calls with each place's longitude and latitude in radians. */
    template <class Visitor>
    static void Visit(TGrid const& grid, Visitor visit) {
        constexpr int Steps = 160;
        for (int row = 0; row <= Steps; ++row) {
            for (int column = 0; column <= Steps; ++column) {
                double const phi = (grid.South + (grid.North - grid.South) * row / Steps) * Degree;
                double const delta = grid.Reach * (2.0 * column / Steps - 1) * Degree;
                double const phi0 = grid.OriginLatitude * Degree;
                double const cosine =
                    std::sin(phi) * std::sin(phi0) + std::cos(phi) * std::cos(phi0) * std::cos(delta);
                if (grid.Radius == 0 || std::acos(std::min(cosine, 1.0)) * 6.371e6 < grid.Radius) {
                    visit(grid.Middle * Degree + delta, phi);
                }
            }
        }
    }

    static TDifferences Greatest(TMapProjection const& ours, TProjPipeline const& theirs, TGrid const& grid) {
        TDifferences greatest;
        Visit(grid, [&](double lambda, double phi) {
            TCoords const plane = OursForward(ours, lambda, phi);
            TTriple const expected = theirs.Forward({lambda, phi, 0});
            greatest.Forward =
                std::max(greatest.Forward, std::hypot(plane.X - expected[0], plane.Y - expected[1]));
            TCoords const back = OursReverse(ours, expected[0], expected[1]);
            TTriple const expectedBack = theirs.Inverse(expected);
            greatest.Reverse =
                std::max(greatest.Reverse, GroundDistance(back.X, back.Y, expectedBack[0], expectedBack[1]));
        });
        return greatest;
    }

    static TCoords OursForward(TMapProjection const& ours, double lambda, double phi) {
        TCoords coords{lambda, phi, 0, false};
        ours.GeodeticToProjected(&coords);
        return coords;
    }

    static TCoords OursReverse(TMapProjection const& ours, double easting, double northing) {
        TCoords coords{easting, northing, 0, false};
        ours.ProjectedToGeodetic(&coords);
        return coords;
    }

    bool IsSphere() const { return Axes.a == Axes.b; }

    double NearThePole() const { return IsSphere() ? ArcSineNearThePole : SeriesNearThePole; }

    double OnTheHemisphere() const { return IsSphere() ? RoundingOnTheGround : SeriesOnTheHemisphere; }

    TEllipsoidSemiAxes Axes;
};

// The reach stays short of half a turn: there ours comes back on the longitude of origin (the rule for an
// easting that equals the false easting), half a turn away from PROJ's.

TEST_P(Stereographic, PolarByItsScaleEqualsProj) {
    TPolarStereographicMapProjectionParameters const olderParameters(10 * Degree, 1, 0.994, 2e6, 2e6);
    TPolarStereographicMapProjection const older(&Axes, &olderParameters);
    TPolarStereographicBasicMapProjectionParameters const parameters(poleNorth, 10 * Degree, 0.994, 2e6, 2e6);
    TPolarStereographicBasicMapProjection const basic(&Axes, &parameters);
    TProjPipeline const proj = Proj("stere +lat_0=90 +lon_0=10 +k_0=0.994 +x_0=2e6 +y_0=2e6");
    for (TMapProjection const* ours :
         {static_cast<TMapProjection const*>(&older), static_cast<TMapProjection const*>(&basic)}) {
        TDifferences const nearPole = Greatest(*ours, proj, {60, 90, 10, 179});
        EXPECT_LT(nearPole.Forward, RoundingOnTheMap);
        EXPECT_LT(nearPole.Reverse, NearThePole());
        TDifferences const hemisphere = Greatest(*ours, proj, {0, 60, 10, 179});
        EXPECT_LT(hemisphere.Forward, RoundingOnTheMap);
        EXPECT_LT(hemisphere.Reverse, OnTheHemisphere());
        // The map's scale is a hundred and more there, and its rounding with it.
        TDifferences const beyond = Greatest(*ours, proj, {-80, 0, 10, 179});
        EXPECT_LT(beyond.Forward, 100 * RoundingOnTheMap);
        EXPECT_LT(beyond.Reverse, OnTheHemisphere());
    }
}

TEST_P(Stereographic, PolarByItsStandardParallelEqualsProj) {
    TPolarStereographicNaturalOriginMapProjectionParameters const parameters(poleSouth, -71 * Degree,
                                                                             70 * Degree, 6e6, 6e6);
    TPolarStereographicNaturalOriginMapProjection const ours(&Axes, &parameters);
    TProjPipeline const proj = Proj("stere +lat_0=-90 +lat_ts=-71 +lon_0=70 +x_0=6e6 +y_0=6e6");
    TDifferences const nearPole = Greatest(ours, proj, {-89.999, -60, 70, 179});
    EXPECT_LT(nearPole.Forward, RoundingOnTheMap);
    EXPECT_LT(nearPole.Reverse, NearThePole());
    TDifferences const hemisphere = Greatest(ours, proj, {-60, 0, 70, 179});
    EXPECT_LT(hemisphere.Forward, RoundingOnTheMap);
    EXPECT_LT(hemisphere.Reverse, OnTheHemisphere());
}

TEST_P(Stereographic, PolarByItsFalseOriginEqualsProjWithFalseCoordinatesAtThePole) {
    // The false northing of the published variant belongs to the standard parallel, ours to the pole.
    TPolarStereographicFalseOriginMapProjectionParameters const parameters(poleSouth, -67 * Degree,
                                                                           140 * Degree, 3e5, 2e5);
    TPolarStereographicFalseOriginMapProjection const ours(&Axes, &parameters);
    TProjPipeline const proj = Proj("stere +lat_0=-90 +lat_ts=-67 +lon_0=140 +x_0=3e5 +y_0=2e5");
    TDifferences const nearPole = Greatest(ours, proj, {-89.999, -60, 140, 179});
    EXPECT_LT(nearPole.Forward, RoundingOnTheMap);
    EXPECT_LT(nearPole.Reverse, NearThePole());
}

TEST_P(Stereographic, ObliqueEqualsProj) {
    TObliqueStereographicMapProjectionParameters const parameters(25 * Degree, 46 * Degree, 0.99975, 5e5,
                                                                  5e5);
    TObliqueStereographicMapProjection const ours(&Axes, &parameters);
    TProjPipeline const proj = Proj("sterea +lat_0=46 +lon_0=25 +k_0=0.99975 +x_0=5e5 +y_0=5e5");
    TDifferences const nation = Greatest(ours, proj, {40, 52, 25, 10, 46, 5e5});
    EXPECT_LT(nation.Forward, RoundingOnTheMap);
    EXPECT_LT(nation.Reverse, RoundingOnTheGround);
    TDifferences const continent = Greatest(ours, proj, {19, 73, 25, 70, 46, 3e6});
    EXPECT_LT(continent.Forward, RoundingOnTheMap);
    EXPECT_LT(continent.Reverse, RoundingOnTheGround);
    TDifferences const hemisphere = Greatest(ours, proj, {-44, 89.9, 25, 179, 46, 1e7});
    EXPECT_LT(hemisphere.Forward, LostDigitsAtTenKilometres);
    EXPECT_LT(hemisphere.Reverse, LostDigitsAtTenKilometres);
    TDifferences const poles = Greatest(ours, proj, {89.5, 89.99, 25, 179});
    EXPECT_LT(poles.Forward, LostDigitsAtOneKilometre);
    EXPECT_LT(poles.Reverse, LostDigitsAtOneKilometre);
}

TEST_P(Stereographic, ObliqueEqualsProjInTheSouthAndAcrossTheAntimeridian) {
    TObliqueStereographicMapProjectionParameters const parameters(175 * Degree, -40 * Degree, 0.9996, 1e6,
                                                                  2e6);
    TObliqueStereographicMapProjection const ours(&Axes, &parameters);
    TProjPipeline const proj = Proj("sterea +lat_0=-40 +lon_0=175 +k_0=0.9996 +x_0=1e6 +y_0=2e6");
    TDifferences const differences = Greatest(ours, proj, {-60, -20, 175, 30, -40, 2e6});
    EXPECT_LT(differences.Forward, RoundingOnTheMap);
    EXPECT_LT(differences.Reverse, RoundingOnTheGround);
}

TEST_P(Stereographic, QuasiDepartsFromProjByItsThreeCoefficients) {
    double const phi0 = 46 * Degree;
    double const lambda0 = 25 * Degree;
    double const scaleFactor = 0.99975;
    TQuasiStereographicMapProjectionParameters const parameters(lambda0, phi0, scaleFactor, 5e5, 5e5);
    TQuasiStereographicMapProjection const ours(&Axes, &parameters);
    TProjPipeline const proj = Proj("sterea +lat_0=46 +lon_0=25 +k_0=0.99975 +x_0=5e5 +y_0=5e5");

    double const c = std::cos(phi0);
    double const t = std::tan(phi0);
    double const eta2 = (Axes.a * Axes.a - Axes.b * Axes.b) / (Axes.b * Axes.b) * c * c;
    double const nu = Axes.a * Axes.a / (Axes.b * std::sqrt(1 + eta2));
    // Ours has the whole where the projection has a quarter, one where it has the tangent, three thirds for
    // one.
    double const ofEasting =
        -0.75 * nu * c * (1 - eta2 + eta2 * eta2 + 6 * t * t * eta2 - 12 * t * t * eta2 * eta2);
    double const ofNorthing = -nu * c * c * (0.375 + eta2 / 4 + 0.75 * t * t * eta2) * (1 - t);
    double const ofLongitude = -2.0 / 3 * (0.25 + eta2 / 4 + t * t) / (c * nu * nu * nu);

    TDifferences unexplained;
    TDifferences departure;
    Visit({45, 47, 25, 2, 46, 1e5}, [&](double lambda, double phi) {
        double const deltaPhi = phi - phi0;
        double const deltaLambda = lambda - lambda0;
        TCoords const plane = OursForward(ours, lambda, phi);
        TTriple const expected = proj.Forward({lambda, phi, 0});
        double const x = expected[0] + scaleFactor * ofEasting * deltaPhi * deltaPhi * deltaLambda;
        double const y =
            expected[1] + scaleFactor * ofNorthing * deltaPhi * deltaPhi * deltaLambda * deltaLambda;
        unexplained.Forward = std::max(unexplained.Forward, std::hypot(plane.X - x, plane.Y - y));
        departure.Forward =
            std::max(departure.Forward, std::hypot(plane.X - expected[0], plane.Y - expected[1]));
        double const easting = (expected[0] - 5e5) / scaleFactor;
        TCoords const back = OursReverse(ours, expected[0], expected[1]);
        double const longitude = lambda + ofLongitude * easting * easting * easting;
        unexplained.Reverse = std::max(unexplained.Reverse, GroundDistance(back.X, back.Y, longitude, phi));
        departure.Reverse = std::max(departure.Reverse, GroundDistance(back.X, back.Y, lambda, phi));
    });
    double const bound = IsSphere() ? SixthOrder : TermsWithoutEta2;
    EXPECT_LT(unexplained.Forward, bound);
    EXPECT_LT(unexplained.Reverse, bound);
    EXPECT_NEAR(departure.Forward, 7.1, 0.2); // metres at 100 km, the forward tables' and the reverse ones'
    EXPECT_NEAR(departure.Reverse, 21.2, 0.4);
}

INSTANTIATE_TEST_SUITE_P(All, Stereographic, testing::ValuesIn(ellipsoids),
                         [](auto const& axes) { return axes.param.Name; });

} // namespace

} // namespace OracleTests
