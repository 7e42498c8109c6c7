#include "tests/oracle/Ellipsoids.h"
#include "tests/oracle/Places.h"

#include "core/primitives/LSR.h"

#include <GeographicLib/Geocentric.hpp>
#include <GeographicLib/LocalCartesian.hpp>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace OracleTests {

namespace {

using KvRefSystem::TLSR;

/**
 * Both sides go through geocentric coordinates: angles in degrees against radians, products and sums, each
 * off by half a unit of the last place; of the distance from the centre.
 */
constexpr double RoundingOfFrames = 8 * std::numeric_limits<double>::epsilon();

/** Our passes stop at a change of 1e-12 radians; e2 / (1 - e2) of it is left, with a third for rounding. */
constexpr double StoppedPasses = 1e-12 * 0.0068 * 1.3;

constexpr TAxes ellipsoids[] = {Ellipsoids::Wgs84, Ellipsoids::Krassowsky1940, Ellipsoids::Sphere};

constexpr TRegion Ground = {89.0, -1e4, 1e4};
constexpr TRegion IntoSpace = {90.0, -1e4, 2e7};

struct TLocal {
    double X;
    double Y;
    double Z;
};

double Distance(TLocal const& first, TLocal const& second) {
    return std::hypot(first.X - second.X, first.Y - second.Y, first.Z - second.Z);
}

/** East, north and up turned into the axes of a frame with an azimuth in degrees. */
TLocal Turned(TLocal const& enu, double azimuth) {
    double const sine = std::sin(azimuth * Degree);
    double const cosine = std::cos(azimuth * Degree);
    return {enu.X * cosine - enu.Y * sine, enu.X * sine + enu.Y * cosine, enu.Z};
}

/** Frames at the quadrants and at drawn places, the origin of the angles and its antipode among them. */
std::vector<TPlace> Origins() {
    std::vector<TPlace> origins = {{0, 0, 0}, {0, 180, 0}, {90, 0, 0}, {-90, 30, 100}};
    std::vector<TPlace> const more = EdgesAndDrawn(Ground, 40, 9837);
    origins.insert(origins.end(), more.begin(), more.end());
    return origins;
}

class LocalFrame : public testing::TestWithParam<TAxes> {
protected:
    LocalFrame() : Earth(GetParam().Major, (GetParam().Major - GetParam().Minor) / GetParam().Major) {}

    TLSR FrameAt(TPlace const& origin, double azimuth) const {
        return TLSR(GetParam().Major, GetParam().Minor, origin.Latitude * Degree, origin.Longitude * Degree,
                    origin.Height, azimuth * Degree);
    }

    GeographicLib::LocalCartesian TheirsAt(TPlace const& origin) const {
        return GeographicLib::LocalCartesian(origin.Latitude, origin.Longitude, origin.Height, Earth);
    }

    GeographicLib::Geocentric Earth;
};

TEST_P(LocalFrame, LocalCoordinatesEqualGeographicLib) {
    for (TPlace const& origin : Origins()) {
        GeographicLib::LocalCartesian const theirs = TheirsAt(origin);
        double const azimuth = origin.Longitude + 3 * origin.Latitude;
        TLSR const frame = FrameAt(origin, azimuth);
        for (TPlace const& place : EdgesAndDrawn(IntoSpace, 300, 51)) {
            TLocal enu{};
            theirs.Forward(place.Latitude, place.Longitude, place.Height, enu.X, enu.Y, enu.Z);
            TLocal ours{};
            frame.Geodetic2LSR(place.Latitude * Degree, place.Longitude * Degree, place.Height, &ours.X,
                               &ours.Y, &ours.Z);
            double const size = 2 * GetParam().Major + std::fabs(place.Height);
            ASSERT_LT(Distance(ours, Turned(enu, azimuth)), RoundingOfFrames * size)
                << origin.Latitude << ' ' << origin.Longitude << " to " << place.Latitude << ' '
                << place.Longitude;
        }
    }
}

TEST_P(LocalFrame, GeodeticCoordinatesEqualGeographicLib) {
    for (TPlace const& origin : Origins()) {
        GeographicLib::LocalCartesian const theirs = TheirsAt(origin);
        TLSR const frame = FrameAt(origin, 0);
        for (TPlace const& place : EdgesAndDrawn(Ground, 300, 52)) {
            TLocal local{};
            theirs.Forward(place.Latitude, place.Longitude, place.Height, local.X, local.Y, local.Z);
            TPlace back{};
            theirs.Reverse(local.X, local.Y, local.Z, back.Latitude, back.Longitude, back.Height);
            double latitude = 0;
            double longitude = 0;
            double height = 0;
            frame.LSR2Geodetic(local.X, local.Y, local.Z, &latitude, &longitude, &height);
            double const radius = GetParam().Major;
            double const metres = RoundingOfFrames * 2 * radius;
            double const latitudeBound = StoppedPasses + metres / radius;
            ASSERT_NEAR(latitude, back.Latitude * Degree, latitudeBound);
            double const turn = std::remainder(longitude - back.Longitude * Degree, 2 * Pi);
            ASSERT_LT(std::fabs(turn) * std::cos(latitude) * radius, metres);
            // Our height is p / cos(latitude) - N, which takes the latitude's error times the tangent.
            ASSERT_NEAR(height, back.Height,
                        metres + latitudeBound * radius * (1 + std::tan(std::fabs(latitude))));
        }
    }
}

TEST_P(LocalFrame, TurnsBetweenFramesEqualGeographicLibsMatrix) {
    for (TPlace const& origin : Origins()) {
        GeographicLib::LocalCartesian const theirs = TheirsAt(origin);
        TLSR const frame = FrameAt(origin, 0);
        for (TPlace const& place : EdgesAndDrawn(Ground, 100, 53)) {
            // Row after row, from east, north and up of the place to the axes of the frame.
            std::vector<double> matrix(9);
            TLocal centre{};
            theirs.Forward(place.Latitude, place.Longitude, place.Height, centre.X, centre.Y, centre.Z,
                           matrix);
            TLSR const atPlace = FrameAt(place, 0);
            for (std::size_t axis = 0; axis < 3; ++axis) {
                // A thousand kilometres along the axis, so that the roundings of the origins fade.
                std::array<double, 3> const point = {axis == 0 ? 1e6 : 0.0, axis == 1 ? 1e6 : 0.0,
                                                     axis == 2 ? 1e6 : 0.0};
                TLocal ours{};
                KvRefSystem::LSR2LSR(atPlace, point[0], point[1], point[2], frame, &ours.X, &ours.Y, &ours.Z);
                TLocal const expected = {centre.X + 1e6 * matrix[axis], centre.Y + 1e6 * matrix[3 + axis],
                                         centre.Z + 1e6 * matrix[6 + axis]};
                ASSERT_LT(Distance(ours, expected), RoundingOfFrames * 2 * GetParam().Major);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, LocalFrame, testing::ValuesIn(ellipsoids),
                         [](auto const& axes) { return axes.param.Name; });

} // namespace

} // namespace OracleTests
