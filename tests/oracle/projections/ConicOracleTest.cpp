#include "tests/oracle/Ellipsoids.h"
#include "tests/oracle/Places.h"
#include "tests/oracle/ProjPipeline.h"

#include "core/projections/AlbersEqualAreaConic.h"
#include "core/projections/EquidistantConic.h"
#include "core/projections/LambertConicConformal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace OracleTests {

namespace {

using namespace KvRefSystem;

/** Both sides work out the closed forms in doubles: metres over the distance from the origin, at least a. */
constexpr double RoundingOnTheMap = 8e-15;

/** Metres on the ground, of angles in doubles. */
constexpr double RoundingOnTheGround = 2e-7;

/** Our passes stop at a change of 1e-10 radians; what is left is that times e2 and the earth's radius. */
constexpr double LastPass = 6e-6;

/** Our series from the authalic latitude ends at e^6, as printed; PROJ iterates. Metres on the ground. */
constexpr double AuthalicSeries = 2.5e-3;

/**
 * Our series of the meridian's arc ends at e^6, as printed; PROJ's goes on. Metres, both ways, within 40
 * degrees of the origin, and as far as 60 degrees on the other hemisphere.
 */
constexpr double ArcSeries = 1.5e-3;
constexpr double ArcSeriesFarAway = 8e-3;

constexpr TAxes ellipsoids[] = {Ellipsoids::Wgs84, Ellipsoids::Krassowsky1940, Ellipsoids::Airy1830,
                                Ellipsoids::Clarke1880Ign, Ellipsoids::Sphere};

/** Latitudes, and longitudes on both sides of a meridian; degrees. */
struct TGrid {
    double South;
    double North;
    double Middle;
    double Reach;
};

struct TDifferences {
    double Forward = 0;         ///< metres on the map
    double ForwardRelative = 0; ///< over the distance from the origin, at least a
    double Reverse = 0;         ///< metres on the ground
    double ReverseLatitude = 0; ///< metres on the ground, of the latitude alone
};

class ConicProjections : public testing::TestWithParam<TAxes> {
protected:
    ConicProjections() : Axes{GetParam().Major, GetParam().Minor} {}

    /**
     * Greatest differences from an operation of PROJ on a grid.
     * @param turned what our longitudes are meant to be off by, radians.
     */
    TDifferences Compare(TMapProjection const& projection, std::string const& definition, TGrid const& grid,
                         double turned = 0) const {
        TProjPipeline const proj(definition + " +a=" + Number(Axes.a) + " +b=" + Number(Axes.b));
        constexpr int Rows = 60;
        constexpr int Columns = 72;
        TDifferences greatest;
        for (int row = 0; row <= Rows; ++row) {
            double const latitude = (grid.South + (grid.North - grid.South) * row / Rows) * Degree;
            for (int column = 0; column <= Columns; ++column) {
                double const share = 2.0 * column / Columns - 1;
                double const longitude = (grid.Middle + grid.Reach * share) * Degree;
                TTriple const plane = proj.Forward({longitude, latitude, 0});
                TCoords point{longitude, latitude, 0, false};
                projection.GeodeticToProjected(&point);
                double const forward = std::hypot(point.X - plane[0], point.Y - plane[1]);
                greatest.Forward = Greater(greatest.Forward, forward);
                double const size = std::max(Axes.a, std::hypot(plane[0], plane[1]));
                greatest.ForwardRelative = Greater(greatest.ForwardRelative, forward / size);

                TTriple const place = proj.Inverse(plane);
                point = {plane[0], plane[1], 0, false};
                projection.ProjectedToGeodetic(&point);
                double const north = Axes.a * std::fabs(point.Y - place[1]);
                double const east =
                    Axes.a * std::cos(latitude) * std::remainder(point.X - place[0] - turned, 2 * Pi);
                greatest.Reverse = Greater(greatest.Reverse, std::hypot(north, east));
                greatest.ReverseLatitude = Greater(greatest.ReverseLatitude, north);
            }
        }
        return greatest;
    }

    /** The greater one, or what isn't a number. */
    static double Greater(double first, double second) { return second <= first ? first : second; }

    bool IsSphere() const { return Axes.a == Axes.b; }

    TEllipsoidSemiAxes Axes;
};

std::string Cone(char const* method, double firstParallel, double secondParallel, double latitude,
                 double longitude) {
    return std::string("+proj=") + method + " +lat_1=" + Number(firstParallel) +
           " +lat_2=" + Number(secondParallel) + " +lat_0=" + Number(latitude) +
           " +lon_0=" + Number(longitude);
}

// --- Lambert -----------------------------------------------------------------------------------------------

TEST_P(ConicProjections, LambertOfOneParallelEqualsProj) {
    TLambertConicConformal1SPMapProjectionParameters const parameters(46.5 * Degree, 3 * Degree, 0.99987742,
                                                                      600000, 2200000);
    TDifferences const differences =
        Compare(TLambertConicConformal1SPMapProjection(&Axes, &parameters),
                "+proj=lcc +lat_1=46.5 +lat_0=46.5 +lon_0=3 +k_0=0.99987742 +x_0=600000 +y_0=2200000",
                {-60, 89, 3, 179});
    EXPECT_LT(differences.ForwardRelative, RoundingOnTheMap);
    EXPECT_LT(differences.Reverse, IsSphere() ? RoundingOnTheGround : LastPass);
}

TEST_P(ConicProjections, SouthernLambertOfOneParallelEqualsProjForward) {
    TLambertConicConformal1SPMapProjectionParameters const parameters(-30 * Degree, 20 * Degree, 1, 0, 0);
    TDifferences const differences = Compare(TLambertConicConformal1SPMapProjection(&Axes, &parameters),
                                             "+proj=lcc +lat_1=-30 +lat_0=-30 +lon_0=20", {-89, 60, 20, 179});
    EXPECT_LT(differences.ForwardRelative, RoundingOnTheMap);
    EXPECT_LT(differences.ReverseLatitude, IsSphere() ? RoundingOnTheGround : LastPass);
}

TEST_P(ConicProjections, SouthernLambertOfOneParallelComesBackPiOverNFromProj) {
    TLambertConicConformal1SPMapProjectionParameters const parameters(-20 * Degree, 20 * Degree, 1, 0, 0);
    TLambertConicConformal1SPMapProjection const projection(&Axes, &parameters);
    double const half = Pi / std::sin(20 * Degree);
    char const* const definition = "+proj=lcc +lat_1=-20 +lat_0=-20 +lon_0=20";
    EXPECT_LT(Compare(projection, definition, {-89, 60, 65, 44}, -half).Reverse, LastPass);
    EXPECT_LT(Compare(projection, definition, {-89, 60, -25, 44}, half).Reverse, LastPass);
}

TEST_P(ConicProjections, LambertOfTwoParallelsEqualsProjWithinARightAngleOfTheCone) {
    TLambertConicConformal2SPMapProjectionParameters const parameters(35 * Degree, 65 * Degree, 52 * Degree,
                                                                      10 * Degree, 4000000, 2800000);
    TDifferences const differences =
        Compare(TLambertConicConformal2SPMapProjection(&Axes, &parameters),
                Cone("lcc", 35, 65, 52, 10) + " +x_0=4000000 +y_0=2800000", {-60, 89, 10, 115});
    EXPECT_LT(differences.ForwardRelative, RoundingOnTheMap);
    EXPECT_LT(differences.Reverse, IsSphere() ? RoundingOnTheGround : LastPass);
}

TEST_P(ConicProjections, SouthernLambertOfTwoParallelsEqualsProj) {
    TLambertConicConformal2SPMapProjectionParameters const parameters(-18 * Degree, -36 * Degree,
                                                                      -27 * Degree, 134 * Degree, 0, 0);
    TDifferences const differences = Compare(TLambertConicConformal2SPMapProjection(&Axes, &parameters),
                                             Cone("lcc", -18, -36, -27, 134), {-89, 60, 134, 179});
    EXPECT_LT(differences.ForwardRelative, RoundingOnTheMap);
    EXPECT_LT(differences.Reverse, IsSphere() ? RoundingOnTheGround : LastPass);
}

TEST_P(ConicProjections, LambertOfBelgiumEqualsProjTurnedAboutTheApex) {
    double const south = 49 + 50 / 60.0;
    double const north = 51 + 10 / 60.0;
    // A turn about the apex by alpha is another central meridian, alpha / n further; with the apex as the
    // origin that is all. The cone's constant by its definition.
    TLambertConicConformal2SPMapProjectionParameters const parameters(
        south * Degree, north * Degree, 90 * Degree, 4.25 * Degree, 150000, 5400000);
    double const e = std::sqrt(1 - Axes.b / Axes.a * (Axes.b / Axes.a));
    auto const logM = [&](double latitude) {
        double const sine = std::sin(latitude * Degree);
        return std::log(std::cos(latitude * Degree) / std::sqrt(1 - e * e * sine * sine));
    };
    auto const isometric = [&](double latitude) {
        double const sine = std::sin(latitude * Degree);
        return std::atanh(sine) - e * std::atanh(e * sine);
    };
    double const cone = (logM(south) - logM(north)) / (isometric(north) - isometric(south));
    double const turn = 29.2985 / 3600 / cone;
    TDifferences const differences = Compare(
        TLambertConicConformal2SPBelgiumMapProjection(&Axes, &parameters),
        Cone("lcc", south, north, 90, 4.25 + turn) + " +x_0=150000 +y_0=5400000", {-60, 89, 4.25, 179});
    // The constants of a narrow pair of parallels lose a digit.
    EXPECT_LT(differences.ForwardRelative, 10 * RoundingOnTheMap);
    EXPECT_LT(differences.Reverse, LastPass);
}

// --- Albers ------------------------------------------------------------------------------------------------

TEST_P(ConicProjections, AlbersEqualsProj) {
    if (IsSphere()) {
        return; // The method has no sphere: a test of its own says so.
    }
    TAlbersEqualAreaConicMapProjectionParameters const parameters(29.5 * Degree, 45.5 * Degree, 23 * Degree,
                                                                  -96 * Degree, 1000000, -500000);
    TDifferences const differences =
        Compare(TAlbersEqualAreaConicMapProjection(&Axes, &parameters),
                Cone("aea", 29.5, 45.5, 23, -96) + " +x_0=1000000 +y_0=-500000", {-60, 89, -96, 179});
    EXPECT_LT(differences.ForwardRelative, RoundingOnTheMap);
    EXPECT_LT(differences.Reverse, AuthalicSeries);
}

TEST_P(ConicProjections, SouthernAlbersEqualsProjForwardAndComesBackPiOverNOff) {
    if (IsSphere()) {
        return;
    }
    TAlbersEqualAreaConicMapProjectionParameters const parameters(-18 * Degree, -36 * Degree, 0, 132 * Degree,
                                                                  0, 0);
    TAlbersEqualAreaConicMapProjection const projection(&Axes, &parameters);
    std::string const definition = Cone("aea", -18, -36, 0, 132);
    TDifferences const differences = Compare(projection, definition, {-89, 60, 132, 179});
    EXPECT_LT(differences.ForwardRelative, RoundingOnTheMap);
    EXPECT_LT(differences.ReverseLatitude, AuthalicSeries);

    // Both arguments of atan2 change their sign, so theta moves by pi. The chord of 90 degrees of a parallel
    // is inclined by half of the angle that they take on the map.
    TCoords east{222 * Degree, -25 * Degree, 0, false};
    TCoords middle{132 * Degree, -25 * Degree, 0, false};
    projection.GeodeticToProjected(&east);
    projection.GeodeticToProjected(&middle);
    double const cone = 2 * std::atan2(middle.Y - east.Y, east.X) / (90 * Degree);
    double const half = Pi / cone;
    EXPECT_LT(Compare(projection, definition, {-80, 40, 172, 39}, -half).Reverse, AuthalicSeries);
    EXPECT_LT(Compare(projection, definition, {-80, 40, 92, 39}, half).Reverse, AuthalicSeries);
}

TEST_P(ConicProjections, AlbersHasNoSphere) {
    TAlbersEqualAreaConicMapProjectionParameters const parameters(29.5 * Degree, 45.5 * Degree, 23 * Degree,
                                                                  0, 0, 0);
    TCoords point{0, 0.5, 0, false};
    TAlbersEqualAreaConicMapProjection(&Axes, &parameters).GeodeticToProjected(&point);
    EXPECT_EQ(std::isnan(point.X), IsSphere());
}

// --- Equidistant -------------------------------------------------------------------------------------------

TEST_P(ConicProjections, EquidistantEqualsProjWithinARightAngleOfTheCone) {
    TEquidistantConicMapProjectionParameters const parameters(40 * Degree, 50 * Degree, 45 * Degree,
                                                              10 * Degree, 500000, -500000);
    TEquidistantConicMapProjection const projection(&Axes, &parameters);
    std::string const definition = Cone("eqdc", 40, 50, 45, 10) + " +x_0=500000 +y_0=-500000";
    TDifferences const near = Compare(projection, definition, {25, 70, 10, 40});
    EXPECT_LT(near.Forward, IsSphere() ? RoundingOnTheGround : ArcSeries);
    EXPECT_LT(near.Reverse, IsSphere() ? RoundingOnTheGround : ArcSeries);
    TDifferences const far = Compare(projection, definition, {-60, 89, 10, 126});
    EXPECT_LT(far.Forward, IsSphere() ? RoundingOnTheGround : ArcSeriesFarAway);
    EXPECT_LT(far.Reverse, IsSphere() ? RoundingOnTheGround : ArcSeriesFarAway);
}

TEST_P(ConicProjections, SouthernEquidistantEqualsProj) {
    TEquidistantConicMapProjectionParameters const parameters(-18 * Degree, -36 * Degree, -27 * Degree,
                                                              134 * Degree, 0, 0);
    TDifferences const differences = Compare(TEquidistantConicMapProjection(&Axes, &parameters),
                                             Cone("eqdc", -18, -36, -27, 134), {-89, 60, 134, 179});
    EXPECT_LT(differences.Forward, IsSphere() ? RoundingOnTheGround : ArcSeries);
    EXPECT_LT(differences.Reverse, IsSphere() ? RoundingOnTheGround : ArcSeries);
}

INSTANTIATE_TEST_SUITE_P(All, ConicProjections, testing::ValuesIn(ellipsoids),
                         [](auto const& axes) { return axes.param.Name; });

} // namespace

} // namespace OracleTests
