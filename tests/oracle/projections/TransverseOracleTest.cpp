#include "tests/oracle/Ellipsoids.h"
#include "tests/oracle/Places.h"
#include "tests/oracle/ProjPipeline.h"

#include "core/projections/GaussBoaga.h"
#include "core/projections/GaussKrugerWide.h"
#include "core/projections/TransverseMercator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace OracleTests {

namespace {

using namespace KvRefSystem;

/** Reach from the central meridian, and what may be left there: metres on the map, and on the ground. */
struct TBound {
    double Degrees;
    double Forward;
    double Reverse;
};

/**
 * Against PROJ's exact method (Poder and Engsager), good to nanometres. Snyder's series leaves out e8 of the
 * meridian's arc: one millimetre on the way there, a quarter of that back; and the seventh and eighth powers
 * of the difference of longitude, which count from three degrees on and grow fast.
 */
constexpr TBound SnydersSeries[] = {{0, 1.05e-3, 2.4e-4}, {3, 1.05e-3, 4.1e-4}, {3.5, 1.05e-3, 1.2e-3},
                                    {5, 3.5e-3, 1.35e-2}, {6, 1.25e-2, 4.9e-2}, {10, 0.42, 1.8}};

/**
 * Gauss-Boaga ends the arc of the meridian behind e'6, which leaves 15 mm in middle latitudes, and holds of
 * the ellipsoid's part in the difference of longitude the first term alone.
 */
constexpr TBound ClosedForms[] = {{0, 1.55e-2, 1.55e-2}, {3, 2.4e-2, 2.45e-2}, {3.5, 3.3e-2, 3.3e-2},
                                  {5, 9.6e-2, 9.6e-2},   {6, 0.19, 0.19},      {10, 1.45, 1.4}};

/**
 * Krueger's series behind n3, and the radius without n4, leave less than a tenth of a millimetre up to
 * fifteen degrees; further out the hyperbolic factor of the missing sine of the eightfold angle takes over.
 */
constexpr TBound KruegersSeries[] = {{0, 6.6e-5, 3.7e-5},  {6, 6.7e-5, 3.9e-5},  {15, 8.7e-5, 4.8e-5},
                                     {20, 1.3e-4, 5.7e-5}, {30, 3.1e-4, 1.0e-4}, {40, 2.1e-3, 2.5e-4},
                                     {60, 0.28, 1.3e-2},   {75, 105, 3.0}};

/**
 * On a sphere Krueger's series is empty, and ours is the closed form to some nanometres. PROJ's northing
 * there is an arc cosine, which loses half of its digits on the equator: metres on the map and on the ground.
 */
constexpr double ArcCosineAtTheEquator = 0.1;

constexpr TAxes ellipsoids[] = {
    Ellipsoids::Wgs84,    Ellipsoids::Krassowsky1940, Ellipsoids::International1924,
    Ellipsoids::Airy1830, Ellipsoids::Clarke1880Ign,  Ellipsoids::Bessel1841};

constexpr double CentralMeridian = 39 * Degree;
constexpr double ScaleFactor = 0.9996;
constexpr double FalseEasting = 500000;
constexpr double FalseNorthing = -2500000;
constexpr double LatitudeOfOrigin = 12.5 * Degree;

/** Where the Transverse Mercator's division by the cosine still leaves a number. */
constexpr double NearestToPole = 89.9;

TProjPipeline Proj(TAxes const& axes, double latitudeOfOrigin) {
    return TProjPipeline("+proj=tmerc +algo=poder_engsager +lat_0=" + Number(latitudeOfOrigin / Degree) +
                         " +lon_0=39 +k=" + Number(ScaleFactor) + " +x_0=" + Number(FalseEasting) + " +y_0=" +
                         Number(FalseNorthing) + " +a=" + Number(axes.Major) + " +b=" + Number(axes.Minor));
}

struct TDifferences {
    double Forward = 0; ///< metres on the map
    double Reverse = 0; ///< metres on the ground
};

/** Over the grid of all latitudes and the given reach, a tenth of it and half a degree apart. */
TDifferences Greatest(TMapProjection const& ours, TProjPipeline const& theirs, double reach) {
    TDifferences greatest;
    int const columns = reach > 0 ? 10 : 0;
    for (int row = -180; row <= 180; ++row) {
        double const phi = std::clamp(row / 2.0, -NearestToPole, NearestToPole) * Degree;
        for (int column = -columns; column <= columns; ++column) {
            double const lambda = CentralMeridian + (columns > 0 ? reach * column / columns : 0.0) * Degree;
            TTriple const plane = theirs.Forward({lambda, phi, 0});
            TCoords there{lambda, phi, 0, false};
            ours.GeodeticToProjected(&there);
            greatest.Forward = std::max(greatest.Forward, std::hypot(there.X - plane[0], there.Y - plane[1]));
            TCoords back{plane[0], plane[1], 0, false};
            ours.ProjectedToGeodetic(&back);
            double const east = std::remainder(back.X - lambda, 2 * Pi) * std::cos(phi);
            greatest.Reverse = std::max(greatest.Reverse, 6.38e6 * std::hypot(east, back.Y - phi));
        }
    }
    return greatest;
}

template <std::size_t count>
void ExpectWithin(TBound const (&bounds)[count], TMapProjection const& ours, TProjPipeline const& theirs) {
    for (TBound const& bound : bounds) {
        TDifferences const differences = Greatest(ours, theirs, bound.Degrees);
        EXPECT_LT(differences.Forward, bound.Forward) << bound.Degrees << " degrees";
        EXPECT_LT(differences.Reverse, bound.Reverse) << bound.Degrees << " degrees";
    }
}

class Transverse : public testing::TestWithParam<TAxes> {
protected:
    TEllipsoidSemiAxes Axes{GetParam().Major, GetParam().Minor};
};

} // namespace

TEST_P(Transverse, TransverseMercatorIsAsFarFromProjAsItsSeriesSays) {
    TTransverseMercatorMapProjectionParameters const record(CentralMeridian, LatitudeOfOrigin, ScaleFactor,
                                                            FalseEasting, FalseNorthing);
    ExpectWithin(SnydersSeries, TTransverseMercatorMapProjection(&Axes, &record),
                 Proj(GetParam(), LatitudeOfOrigin));
}

TEST_P(Transverse, GaussBoagaIsAsFarFromProjAsItsFormsSay) {
    TGaussBoagaMapProjectionParameters const record(CentralMeridian, ScaleFactor, FalseEasting,
                                                    FalseNorthing);
    ExpectWithin(ClosedForms, TGaussBoagaMapProjection(&Axes, &record), Proj(GetParam(), 0));
}

TEST_P(Transverse, GaussKrugerWideIsAsFarFromProjAsItsSeriesSays) {
    TGaussKrugerWideMapProjectionParameters const record(CentralMeridian, ScaleFactor, FalseEasting,
                                                         FalseNorthing);
    ExpectWithin(KruegersSeries, TGaussKrugerWideMapProjection(&Axes, &record), Proj(GetParam(), 0));
}

INSTANTIATE_TEST_SUITE_P(Ellipsoids, Transverse, testing::ValuesIn(ellipsoids),
                         [](auto const& information) { return std::string(information.param.Name); });

TEST(TransverseOnASphere, GaussKrugerWideIsTheClosedForm) {
    constexpr TAxes Sphere = Ellipsoids::Sphere;
    TEllipsoidSemiAxes const axes = {Sphere.Major, Sphere.Minor};
    TGaussKrugerWideMapProjectionParameters const record(CentralMeridian, ScaleFactor, FalseEasting,
                                                         FalseNorthing);
    TDifferences const differences =
        Greatest(TGaussKrugerWideMapProjection(&axes, &record), Proj(Sphere, 0), 60);
    EXPECT_LT(differences.Forward, ArcCosineAtTheEquator);
    EXPECT_LT(differences.Reverse, ArcCosineAtTheEquator);
}

} // namespace OracleTests
