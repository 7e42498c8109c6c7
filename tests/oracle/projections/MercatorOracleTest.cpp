#include "tests/oracle/Ellipsoids.h"
#include "tests/oracle/Places.h"
#include "tests/oracle/ProjPipeline.h"

#include "core/projections/Mercator.h"
#include "core/projections/ObliqueMercator.h"
#include "core/projections/SphericalMercator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace OracleTests {

namespace {

using namespace KvRefSystem;

/** Both sides work out the closed forms in doubles: metres over the distance from the origin, at least a. */
constexpr double RoundingOnTheMap = 5e-15;

/** Metres on the ground, of angles in doubles. */
constexpr double RoundingOnTheGround = 5e-8;

/** Our series of the latitude ends at e^8, as printed; PROJ iterates. Metres on the ground. */
constexpr double ConformalSeries = 2e-5;

/**
 * With an azimuth of 90 degrees both sides take the arc sine of a number that is 1 but for its last bits, and
 * so may lose half of their digits: sqrt(4 * 1.1e-16) radians each. Metres on the ground, and over the
 * semi-major axis.
 */
constexpr double HalfOfTheDigits = 2 * 2.2e-8 * 6.4e6;
constexpr double HalfOfTheDigitsOnTheMap = 2 * 2.2e-8;

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
    double Forward = 0; ///< on the map, over the distance from the origin, at least a
    double Reverse = 0; ///< metres on the ground
};

class MercatorProjections : public testing::TestWithParam<TAxes> {
protected:
    MercatorProjections() : Axes{GetParam().Major, GetParam().Minor} {}

    /** Greatest differences from an operation of PROJ on a grid. */
    TDifferences Compare(TMapProjection const& projection, std::string const& definition,
                         TGrid const& grid) const {
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
                double const size = std::max(Axes.a, std::hypot(plane[0], plane[1]));
                greatest.Forward =
                    Greater(greatest.Forward, std::hypot(point.X - plane[0], point.Y - plane[1]) / size);

                TTriple const place = proj.Inverse(plane);
                point = {plane[0], plane[1], 0, false};
                projection.ProjectedToGeodetic(&point);
                double const north = Axes.a * std::fabs(point.Y - place[1]);
                double const east = Axes.a * std::cos(latitude) * std::remainder(point.X - place[0], 2 * Pi);
                greatest.Reverse = Greater(greatest.Reverse, std::hypot(north, east));
            }
        }
        return greatest;
    }

    /** The greater one, or what isn't a number. */
    static double Greater(double first, double second) { return second <= first ? first : second; }

    double ReverseBound() const { return Axes.a == Axes.b ? RoundingOnTheGround : ConformalSeries; }

    TEllipsoidSemiAxes Axes;
};

TEST_P(MercatorProjections, FormWithAStandardParallelEqualsProj) {
    TMercator2SPMapProjectionParameters const parameters(42 * Degree, 51 * Degree, 1000, 2000);
    TDifferences const differences =
        Compare(TMercator2SPMapProjection(&Axes, &parameters),
                "+proj=merc +lat_ts=42 +lon_0=51 +x_0=1000 +y_0=2000", {-89, 89, 51, 179});
    EXPECT_LT(differences.Forward, RoundingOnTheMap);
    EXPECT_LT(differences.Reverse, ReverseBound());
}

TEST_P(MercatorProjections, FormWithAScaleEqualsProj) {
    TMercator1SPMapProjectionParameters const parameters(20 * Degree, 110 * Degree, 0.997, 3900000, 900000);
    TDifferences const differences =
        Compare(TMercator1SPMapProjection(&Axes, &parameters),
                "+proj=merc +k_0=0.997 +lon_0=110 +x_0=3900000 +y_0=900000", {-89, 89, 110, 179});
    EXPECT_LT(differences.Forward, RoundingOnTheMap);
    EXPECT_LT(differences.Reverse, ReverseBound());
}

TEST_P(MercatorProjections, SphericalFormEqualsProj) {
    TSphericalMercatorMapProjectionParameters const parameters(-10 * Degree, 1, 0, 0);
    TDifferences const differences = Compare(TSphericalMercatorMapProjection(&Axes, &parameters),
                                             "+proj=webmerc +lon_0=-10", {-89, 89, 0, 179.5});
    EXPECT_LT(differences.Forward, RoundingOnTheMap);
    EXPECT_LT(differences.Reverse, RoundingOnTheGround);
}

TEST_P(MercatorProjections, ObliqueFormEqualsProjAroundTheCentre) {
    TObliqueMercatorMapProjectionParameters const parameters(4 * Degree, 115 * Degree, 53.3158204722 * Degree,
                                                             53.1301023611 * Degree, 0.99984, 590476.87,
                                                             442857.65);
    TDifferences const differences =
        Compare(TObliqueMercatorMapProjection(&Axes, &parameters),
                "+proj=omerc +lat_0=4 +lonc=115 +alpha=53.3158204722 +gamma=53.1301023611 +k_0=0.99984 "
                "+x_0=590476.87 +y_0=442857.65",
                {-26, 34, 115, 30});
    EXPECT_LT(differences.Forward, RoundingOnTheMap);
    EXPECT_LT(differences.Reverse, ReverseBound());
}

TEST_P(MercatorProjections, HotinesFormEqualsProjAroundTheCentre) {
    THotineObliqueMercatorMapProjectionParameters const parameters(36 * Degree, -78 * Degree, 40 * Degree,
                                                                   30 * Degree, 0.9996, 0, 5000000);
    TDifferences const differences = Compare(THotineObliqueMercatorMapProjection(&Axes, &parameters),
                                             "+proj=omerc +no_uoff +lat_0=36 +lonc=-78 +alpha=40 +gamma=30 "
                                             "+k_0=0.9996 +x_0=0 +y_0=5000000",
                                             {10, 60, -78, 30});
    EXPECT_LT(differences.Forward, RoundingOnTheMap);
    EXPECT_LT(differences.Reverse, ReverseBound());
}

TEST_P(MercatorProjections, ObliqueFormOfARightAngleEqualsProjAroundTheCentre) {
    TObliqueMercatorMapProjectionParameters const parameters(46.95 * Degree, 7.44 * Degree, 90 * Degree,
                                                             90 * Degree, 1, 2600000, 1200000);
    TDifferences const differences =
        Compare(TObliqueMercatorMapProjection(&Axes, &parameters),
                "+proj=omerc +lat_0=46.95 +lonc=7.44 +alpha=90 +gamma=90 +x_0=2600000 +y_0=1200000",
                {30, 65, 7.45, 30});
    EXPECT_LT(differences.Forward, HalfOfTheDigitsOnTheMap);
    EXPECT_LT(differences.Reverse, HalfOfTheDigits);
}

TEST_P(MercatorProjections, SouthernObliqueFormsEqualProjAroundTheCentre) {
    TObliqueMercatorMapProjectionParameters const centred(-20 * Degree, 47 * Degree, 18.9 * Degree,
                                                          18.9 * Degree, 0.9995, 400000, 800000);
    std::string const definition = "+proj=omerc +lat_0=-20 +lonc=47 +alpha=18.9 +gamma=18.9 +k_0=0.9995 "
                                   "+x_0=400000 +y_0=800000";
    TGrid const grid = {-50, 10, 47, 25};
    TDifferences differences = Compare(TObliqueMercatorMapProjection(&Axes, &centred), definition, grid);
    EXPECT_LT(differences.Forward, RoundingOnTheMap);
    EXPECT_LT(differences.Reverse, ReverseBound());

    THotineObliqueMercatorMapProjectionParameters const natural(-20 * Degree, 47 * Degree, 18.9 * Degree,
                                                                18.9 * Degree, 0.9995, 400000, 800000);
    differences =
        Compare(THotineObliqueMercatorMapProjection(&Axes, &natural), definition + " +no_uoff", grid);
    EXPECT_LT(differences.Forward, RoundingOnTheMap);
    EXPECT_LT(differences.Reverse, ReverseBound());
}

INSTANTIATE_TEST_SUITE_P(All, MercatorProjections, testing::ValuesIn(ellipsoids),
                         [](auto const& axes) { return axes.param.Name; });

} // namespace

} // namespace OracleTests
