#include "core/refsystems/TopocentricHorizontalReferenceSystem.h"
#include "tests/oracle/Ellipsoids.h"
#include "tests/oracle/Places.h"
#include "tests/oracle/ProjPipeline.h"

#include <GeographicLib/Geocentric.hpp>
#include <GeographicLib/LocalCartesian.hpp>
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

/** The greatest distance between two places of the tests, metres. */
constexpr double ThroughTheEarth = 1.4e7;

/** A dozen products and sums on each side, each off by half a unit of the last place; metres. */
constexpr double RoundingOfFrames = 12 * Epsilon * ThroughTheEarth;

/**
 * Our passes towards the latitude stop at 1e-12 radians; the height, p / cos(latitude) - N, takes the rest
 * times the tangent (29 at 88 degrees). Metres.
 */
constexpr double StoppedPasses = 1e-12 * 0.0068 * 1.3 * 6.4e6 * 30 + 2e-7;

constexpr TAxes ellipsoids[] = {Ellipsoids::Wgs84, Ellipsoids::Krassowsky1940, Ellipsoids::Sphere};

constexpr TRegion WholeEarth = {90.0, -1e4, 1e5};
constexpr TRegion AwayFromThePoles = {88.0, -1e3, 9e3};

/** Origins on the equator, the quadrants, the antimeridian, both poles, and drawn ones. */
std::vector<TPlace> Origins() {
    std::vector<TPlace> origins = EdgesAndDrawn(WholeEarth, 60, 9836);
    origins.push_back({0, 0, 0});
    origins.push_back({55, 37, 200});
    return origins;
}

double Distance(TCoords const& first, TTriple const& second) {
    return std::hypot(first.X - second[0], first.Y - second[1], first.Z - second[2]);
}

class Topocentric : public testing::TestWithParam<TAxes> {
protected:
    Topocentric()
        : Ellipsoid(GetParam().Major, GetParam().Minor),
          Geodetic(nullptr, nullptr, &Ellipsoid, {}, {}),
          Geocentric(nullptr, nullptr, {}, {}),
          Quartic(GetParam().Major, (GetParam().Major - GetParam().Minor) / GetParam().Major) {}

    TTopocentricHorizontalReferenceSystem Frame(TPlace const& origin,
                                                TReferenceSystemCartesianOrientation orientation,
                                                double azimuth = 0.0) const {
        return {orientation, azimuth, &Geodetic, Point(origin), {}, {}};
    }

    TProjPipeline ProjsFrame(TPlace const& origin) const {
        return TProjPipeline("+proj=topocentric +a=" + Number(GetParam().Major) +
                             " +b=" + Number(GetParam().Minor) + " +lon_0=" + Number(origin.Longitude) +
                             " +lat_0=" + Number(origin.Latitude) + " +h_0=" + Number(origin.Height));
    }

    GeographicLib::LocalCartesian TheirFrame(TPlace const& origin) const {
        return GeographicLib::LocalCartesian(origin.Latitude, origin.Longitude, origin.Height, Quartic);
    }

    static TCoords Point(TPlace const& place) {
        return {place.Longitude * Degree, place.Latitude * Degree, place.Height, false};
    }

    TCoords GeocentricPoint(TPlace const& place) const {
        TCoords point = Point(place);
        Geodetic.OperateCoords(Geocentric, &point);
        return point;
    }

    TEllipsoid Ellipsoid;
    TGeodeticReferenceSystem Geodetic;
    TGeocentricReferenceSystem Geocentric;
    GeographicLib::Geocentric Quartic;
};

TEST_P(Topocentric, FromGeocentricEqualsProjAllOverTheEarth) {
    double greatest = 0;
    for (TPlace const& origin : Origins()) {
        TTopocentricHorizontalReferenceSystem const frame = Frame(origin, rscoRight);
        TProjPipeline const proj = ProjsFrame(origin);
        for (TPlace const& place : EdgesAndDrawn(WholeEarth, 200, 1)) {
            TCoords const geocentric = GeocentricPoint(place);
            TCoords ours = geocentric;
            Geocentric.OperateCoords(frame, &ours);
            greatest =
                std::max(greatest, Distance(ours, proj.Forward({geocentric.X, geocentric.Y, geocentric.Z})));
        }
    }
    EXPECT_LT(greatest, RoundingOfFrames);
}

TEST_P(Topocentric, ToGeocentricEqualsProj) {
    double greatest = 0;
    for (TPlace const& origin : Origins()) {
        TTopocentricHorizontalReferenceSystem const frame = Frame(origin, rscoRight);
        TProjPipeline const proj = ProjsFrame(origin);
        for (double const east : {0.0, -1e5, 12345.678, 6e6}) {
            for (double const north : {0.0, 1e5, -54321.987}) {
                for (double const up : {0.0, -4e3, 3e5}) {
                    TCoords ours{east, north, up, false};
                    frame.OperateCoords(Geocentric, &ours);
                    greatest = std::max(greatest, Distance(ours, proj.Inverse({east, north, up})));
                }
            }
        }
    }
    EXPECT_LT(greatest, RoundingOfFrames);
}

TEST_P(Topocentric, OnTheLeftTheNorthComesFirst) {
    TPlace const origin = {55, 37, 200};
    TTopocentricHorizontalReferenceSystem const frame = Frame(origin, rscoLeft);
    TProjPipeline const proj = ProjsFrame(origin);
    for (TPlace const& place : EdgesAndDrawn(WholeEarth, 1000, 2)) {
        TCoords const geocentric = GeocentricPoint(place);
        TCoords ours = geocentric;
        Geocentric.OperateCoords(frame, &ours);
        TTriple const theirs = proj.Forward({geocentric.X, geocentric.Y, geocentric.Z});
        ASSERT_LT(Distance(ours, {theirs[1], theirs[0], theirs[2]}), RoundingOfFrames);
    }
}

TEST_P(Topocentric, FromGeodeticEqualsGeographicLibAllOverTheEarth) {
    double greatest = 0;
    for (TPlace const& origin : Origins()) {
        TTopocentricHorizontalReferenceSystem const frame = Frame(origin, rscoRight);
        GeographicLib::LocalCartesian const local = TheirFrame(origin);
        for (TPlace const& place : EdgesAndDrawn(WholeEarth, 200, 3)) {
            TCoords ours = Point(place);
            Geodetic.OperateCoords(frame, &ours);
            TTriple theirs{};
            local.Forward(place.Latitude, place.Longitude, place.Height, theirs[0], theirs[1], theirs[2]);
            greatest = std::max(greatest, Distance(ours, theirs));
        }
    }
    EXPECT_LT(greatest, RoundingOfFrames);
}

TEST_P(Topocentric, ToGeodeticEqualsGeographicLib) {
    double greatest = 0;
    for (TPlace const& origin : EdgesAndDrawn(AwayFromThePoles, 100, 4)) {
        TTopocentricHorizontalReferenceSystem const frame = Frame(origin, rscoRight);
        GeographicLib::LocalCartesian const local = TheirFrame(origin);
        for (double const east : {0.0, -1e4, 12345.678}) {
            for (double const north : {0.0, 1e4, -54321.987}) {
                TCoords ours{east, north, 100, false};
                frame.OperateCoords(Geodetic, &ours);
                TPlace theirs{};
                local.Reverse(east, north, 100, theirs.Latitude, theirs.Longitude, theirs.Height);
                greatest =
                    std::max(greatest, GroundDistance({ours.Y / Degree, ours.X / Degree, ours.Z}, theirs));
            }
        }
    }
    EXPECT_LT(greatest, StoppedPasses);
}

TEST_P(Topocentric, AnAzimuthTurnsTheirPlane) {
    double greatest = 0;
    for (TPlace const& origin : Origins()) {
        GeographicLib::LocalCartesian const local = TheirFrame(origin);
        for (double const azimuth : {-170.0, -90.0, 30.0, 90.0, 180.0, 275.0}) {
            double const sine = std::sin(azimuth * Degree);
            double const cosine = std::cos(azimuth * Degree);
            TTopocentricHorizontalReferenceSystem const frame = Frame(origin, rscoLeft, azimuth * Degree);
            for (TPlace const& place : EdgesAndDrawn(WholeEarth, 20, 5)) {
                TCoords ours = Point(place);
                Geodetic.OperateCoords(frame, &ours);
                TTriple their{};
                local.Forward(place.Latitude, place.Longitude, place.Height, their[0], their[1], their[2]);
                TTriple const turned = {their[1] * cosine + their[0] * sine,
                                        their[0] * cosine - their[1] * sine, their[2]};
                greatest = std::max(greatest, Distance(ours, turned));
            }
        }
    }
    EXPECT_LT(greatest, RoundingOfFrames);
}

INSTANTIATE_TEST_SUITE_P(All, Topocentric, testing::ValuesIn(ellipsoids),
                         [](auto const& axes) { return axes.param.Name; });

} // namespace

} // namespace OracleTests
