#pragma once

#include "core/projections/MapProjection.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <random>

namespace KvRefSystemTests::ConeAndCylinder {

constexpr double Pi = 3.141592653589793;
constexpr double Degree = Pi / 180;
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

constexpr KvRefSystem::TEllipsoidSemiAxes Wgs84 = {6378137, 6356752.314245179};
constexpr KvRefSystem::TEllipsoidSemiAxes International = {6378388, 6356911.9461279465};
constexpr KvRefSystem::TEllipsoidSemiAxes Clarke1866 = {6378206.4, 6356583.8};
constexpr KvRefSystem::TEllipsoidSemiAxes Sphere = {6371007, 6371007};
constexpr KvRefSystem::TEllipsoidSemiAxes UnitSphere = {1, 1};

/** Degrees, minutes, seconds to radians. */
constexpr double Angle(double degrees, double minutes, double seconds) {
    return (degrees + minutes / 60 + seconds / 3600) * Degree;
}

/** Latitude and longitude in degrees to easting and northing. */
inline KvRefSystem::TCoords Project(KvRefSystem::TMapProjection const& projection, double latitude,
                                    double longitude) {
    KvRefSystem::TCoords coords{longitude * Degree, latitude * Degree, 0, false};
    projection.GeodeticToProjected(&coords);
    return coords;
}

/** Easting and northing to longitude and latitude in radians. */
inline KvRefSystem::TCoords Unproject(KvRefSystem::TMapProjection const& projection, double easting,
                                      double northing) {
    KvRefSystem::TCoords coords{easting, northing, 0, false};
    projection.ProjectedToGeodetic(&coords);
    return coords;
}

inline void ExpectNear(KvRefSystem::TCoords const& actual, double x, double y, double bound) {
    EXPECT_NEAR(actual.X, x, bound);
    EXPECT_NEAR(actual.Y, y, bound);
}

inline void ExpectNotANumber(KvRefSystem::TCoords const& actual) {
    EXPECT_TRUE(std::isnan(actual.X));
    EXPECT_TRUE(std::isnan(actual.Y));
}

inline void ExpectEqual(KvRefSystem::TCoords const& actual, KvRefSystem::TCoords const& expected) {
    EXPECT_EQ(actual.X, expected.X);
    EXPECT_EQ(actual.Y, expected.Y);
}

/** Both operations give the very same numbers. */
inline void ExpectSameResults(KvRefSystem::TMapProjection const& first,
                              KvRefSystem::TMapProjection const& second) {
    ExpectEqual(Project(first, 41.5, 7.25), Project(second, 41.5, 7.25));
    ExpectEqual(Unproject(first, 123456.5, -65432.25), Unproject(second, 123456.5, -65432.25));
}

/** A region of the map: latitudes, and longitudes on both sides of a meridian; degrees. */
struct TReach {
    double South;
    double North;
    double Middle;
    double Half;
};

/**
 * The greatest error (metres on a sphere) of seeded round trips. @param turned the longitude that a result is
 * meant to be off by (radians).
 */
inline double GreatestRoundTripError(KvRefSystem::TMapProjection const& projection, TReach const& reach,
                                     double turned = 0) {
    std::mt19937_64 random(20119);
    std::uniform_real_distribution<double> latitudes(reach.South, reach.North);
    std::uniform_real_distribution<double> longitudes(reach.Middle - reach.Half, reach.Middle + reach.Half);
    double greatest = 0;
    for (int place = 0; place < 5000; ++place) {
        double const latitude = latitudes(random);
        double const longitude = longitudes(random);
        KvRefSystem::TCoords const plane = Project(projection, latitude, longitude);
        KvRefSystem::TCoords const back = Unproject(projection, plane.X, plane.Y);
        double const east = std::remainder(back.X - longitude * Degree - turned, 2 * Pi);
        double const error =
            6.38e6 * std::hypot(back.Y - latitude * Degree, east * std::cos(latitude * Degree));
        if (!(error <= greatest)) {
            greatest = error;
        }
    }
    return greatest;
}

/** Runs both operations over numbers of all kinds: nothing may trap, hang, allocate or touch the height. */
inline void ExpectToSurviveAllNumbers(KvRefSystem::TMapProjection const& projection) {
    double const numbers[] = {0,      -0.0, Pi / 2, -Pi / 2, 3,        -3,        1e-300,
                              -1e300, 1e7,  -1e7,   1e20,    Infinity, -Infinity, NotANumber};
    std::size_t const before = AllocationCount();
    int touched = 0;
    for (double const x : numbers) {
        for (double const y : numbers) {
            KvRefSystem::TCoords forward{x, y, 123, true};
            KvRefSystem::TCoords reverse = forward;
            projection.GeodeticToProjected(&forward);
            projection.ProjectedToGeodetic(&reverse);
            touched += forward.Z != 123 || !forward.ZUndefined || reverse.Z != 123 || !reverse.ZUndefined;
        }
    }
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_EQ(touched, 0);
}

/** Equality takes part in every field: changes each in turn. */
template <class Projection, class Parameters, std::size_t Count>
void ExpectEveryFieldToCount(Parameters const& parameters, double Parameters::*const (&fields)[Count]) {
    static_assert(sizeof(Parameters) == Count * sizeof(double));
    Projection const first(&Wgs84, &parameters);
    EXPECT_TRUE(first == Projection(&Wgs84, &parameters));
    for (auto const field : fields) {
        Parameters other = parameters;
        other.*field += 0.25;
        EXPECT_FALSE(first == Projection(&Wgs84, &other));
    }
}

} // namespace KvRefSystemTests::ConeAndCylinder
