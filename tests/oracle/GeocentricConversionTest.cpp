#include "tests/oracle/Ellipsoids.h"
#include "tests/oracle/Places.h"
#include "tests/oracle/ProjPipeline.h"

#include <Vellari/Vellari.h>

#include <GeographicLib/Geocentric.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace OracleTests {

namespace {

using namespace KvRefSystem;

constexpr double Epsilon = std::numeric_limits<double>::epsilon();

/**
 * Sines, cosines and a handful of products, each off by half a unit of the last place; of the distance from
 * the centre.
 */
constexpr double RoundingOfCartesian = 4 * Epsilon;

/**
 * Our passes stop when two of them differ by 1e-12 radians; the last one has then shrunk that by e2 / (1 -
 * e2) or more. This is for e2 of the earth's ellipsoids, with a third for rounding. Radians of the latitude.
 */
constexpr double StoppedPasses = 1e-12 * 0.0068 * 1.3;

/** atan2 of our own and of others, with the degrees that GeographicLib takes and gives; radians. */
constexpr double RoundingOfAngles = 8 * Epsilon;

/**
 * PROJ goes back in one pass of Bowring's formula, whose remainder grows with the height: metres on the
 * ground and up to 10 km, and up to 20000 km. GeographicLib solves the quartic, and takes our part.
 */
constexpr double ProjOnTheGround = 2e-6;
constexpr double ProjInSpace = 0.3;

/** The height is p / cos(latitude) - N, so an error of the latitude comes into it times the tangent. */
double HeightBound(double latitudeBound, double latitude, double radius) {
    return radius * (Epsilon * 4 + latitudeBound * (1 + std::tan(std::fabs(latitude))));
}

constexpr TAxes ellipsoids[] = {Ellipsoids::Wgs84, Ellipsoids::Krassowsky1940, Ellipsoids::Airy1830,
                                Ellipsoids::Clarke1880Ign, Ellipsoids::Sphere};

/**
 * Five microradians (32 m) from the poles: nearer ones lose the height, which the division by the cosine
 * gives.
 */
constexpr double NearestToPole = 89.9997;

constexpr TRegion NearTheGround = {NearestToPole, -1e4, 1e4};
constexpr TRegion IntoSpace = {NearestToPole, -1e4, 2e7};

std::vector<TPlace> PlacesOf(TRegion const& region) {
    std::vector<TPlace> places = GridOf(region, 24);
    std::vector<TPlace> const more = EdgesAndDrawn(region, 10000, 20110);
    places.insert(places.end(), more.begin(), more.end());
    return places;
}

class GeocentricConversion : public testing::TestWithParam<TAxes> {
protected:
    GeocentricConversion()
        : Ellipsoid(GetParam().Major, GetParam().Minor),
          Geodetic(nullptr, nullptr, &Ellipsoid, {}, {}),
          Geocentric(nullptr, nullptr, {}, {}),
          Proj("+proj=cart +a=" + Number(GetParam().Major) + " +b=" + Number(GetParam().Minor)),
          Quartic(GetParam().Major, (GetParam().Major - GetParam().Minor) / GetParam().Major) {}

    TCoords ToGeocentric(TPlace const& place) const {
        TCoords point{place.Longitude * Degree, place.Latitude * Degree, place.Height, false};
        Geodetic.OperateCoords(Geocentric, &point);
        return point;
    }

    TCoords ToGeodetic(TCoords const& geocentric) const {
        TCoords point = geocentric;
        Geocentric.OperateCoords(Geodetic, &point);
        return point;
    }

    /** Greatest difference (metres) of our way back from PROJ's over a region. */
    double GreatestFromProj(TRegion const& region) const {
        double greatest = 0;
        for (TPlace const& place : PlacesOf(region)) {
            TCoords const geocentric = ToGeocentric(place);
            TCoords const ours = ToGeodetic(geocentric);
            TTriple const theirs = Proj.Inverse({geocentric.X, geocentric.Y, geocentric.Z});
            double const radius = std::hypot(geocentric.X, geocentric.Y, geocentric.Z);
            double const fromAxis = std::hypot(geocentric.X, geocentric.Y);
            double const tangent = std::tan(std::fabs(ours.Y));
            greatest = std::max({greatest, std::fabs(ours.Y - theirs[1]) * radius,
                                 std::fabs(std::remainder(ours.X - theirs[0], 2 * Pi)) * fromAxis,
                                 std::fabs(ours.Z - theirs[2]) / (1 + tangent)});
        }
        return greatest;
    }

    TEllipsoid Ellipsoid;
    TGeodeticReferenceSystem Geodetic;
    TGeocentricReferenceSystem Geocentric;
    TProjPipeline Proj;
    GeographicLib::Geocentric Quartic;
};

TEST_P(GeocentricConversion, ForwardEqualsProjAndGeographicLib) {
    double greatestProj = 0;
    double greatestGeographicLib = 0;
    for (TPlace const& place : PlacesOf(IntoSpace)) {
        TCoords const ours = ToGeocentric(place);
        TTriple const proj = Proj.Forward({place.Longitude * Degree, place.Latitude * Degree, place.Height});
        TTriple other{};
        Quartic.Forward(place.Latitude, place.Longitude, place.Height, other[0], other[1], other[2]);
        double const radius = std::hypot(ours.X, ours.Y, ours.Z);
        greatestProj =
            std::max(greatestProj, std::hypot(ours.X - proj[0], ours.Y - proj[1], ours.Z - proj[2]) / radius);
        greatestGeographicLib =
            std::max(greatestGeographicLib,
                     std::hypot(ours.X - other[0], ours.Y - other[1], ours.Z - other[2]) / radius);
    }
    EXPECT_LT(greatestProj, RoundingOfCartesian);
    EXPECT_LT(greatestGeographicLib, RoundingOfCartesian);
}

TEST_P(GeocentricConversion, BackwardEqualsGeographicLibAtAllHeights) {
    double const latitudeBound = StoppedPasses + RoundingOfAngles;
    for (TPlace const& place : PlacesOf(IntoSpace)) {
        TCoords const geocentric = ToGeocentric(place);
        TCoords const ours = ToGeodetic(geocentric);
        TPlace theirs{};
        Quartic.Reverse(geocentric.X, geocentric.Y, geocentric.Z, theirs.Latitude, theirs.Longitude,
                        theirs.Height);
        double const radius = std::hypot(geocentric.X, geocentric.Y, geocentric.Z);
        ASSERT_NEAR(ours.Y, theirs.Latitude * Degree, latitudeBound);
        ASSERT_LT(std::fabs(std::remainder(ours.X - theirs.Longitude * Degree, 2 * Pi)), RoundingOfAngles);
        ASSERT_NEAR(ours.Z, theirs.Height, HeightBound(latitudeBound, ours.Y, radius));
    }
}

TEST_P(GeocentricConversion, BackwardEqualsProjOnTheGround) {
    EXPECT_LT(GreatestFromProj(NearTheGround), ProjOnTheGround);
}

TEST_P(GeocentricConversion, BackwardLeavesProjsSinglePassBehindInSpace) {
    double const greatest = GreatestFromProj(IntoSpace);
    EXPECT_LT(greatest, ProjInSpace);
    // A sphere leaves nothing to approximate.
    double const exact = StoppedPasses * 2.7e7;
    if (Ellipsoid.Eccentricity == 0) {
        EXPECT_LT(greatest, exact);
    } else {
        EXPECT_GT(greatest, exact);
    }
}

TEST_P(GeocentricConversion, BackwardReturnsToTheStart) {
    double const latitudeBound = StoppedPasses + RoundingOfAngles;
    for (TPlace const& place : PlacesOf(IntoSpace)) {
        TCoords const geocentric = ToGeocentric(place);
        TCoords const back = ToGeodetic(geocentric);
        double const radius = std::hypot(geocentric.X, geocentric.Y, geocentric.Z);
        ASSERT_NEAR(back.Y, place.Latitude * Degree, latitudeBound);
        ASSERT_LT(std::fabs(std::remainder(back.X - place.Longitude * Degree, 2 * Pi)), RoundingOfAngles);
        ASSERT_NEAR(back.Z, place.Height, HeightBound(latitudeBound, back.Y, radius));
    }
}

INSTANTIATE_TEST_SUITE_P(All, GeocentricConversion, testing::ValuesIn(ellipsoids),
                         [](auto const& axes) { return axes.param.Name; });

} // namespace

} // namespace OracleTests
