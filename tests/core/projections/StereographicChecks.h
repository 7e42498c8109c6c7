#pragma once

#include "core/projections/MapProjection.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace KvRefSystemTests::Stereographic {

constexpr double Degree = 3.141592653589793 / 180;
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

constexpr KvRefSystem::TEllipsoidSemiAxes Wgs84 = {6378137, 6356752.314245179};
constexpr KvRefSystem::TEllipsoidSemiAxes Krassowsky = {6378245, 6356863.018773047};
constexpr KvRefSystem::TEllipsoidSemiAxes Bessel = {6377397.155, 6356078.962818189};
constexpr KvRefSystem::TEllipsoidSemiAxes International = {6378388, 6356911.9461279465};
constexpr KvRefSystem::TEllipsoidSemiAxes Sphere = {6371007, 6371007};

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

/** Distance (metres on a sphere) between a place in degrees and where it comes back after a round trip. */
inline double RoundTripError(KvRefSystem::TMapProjection const& projection, double latitude,
                             double longitude) {
    KvRefSystem::TCoords const plane = Project(projection, latitude, longitude);
    KvRefSystem::TCoords const back = Unproject(projection, plane.X, plane.Y);
    double const turns = 2 * 3.141592653589793;
    return 6.38e6 *
           std::hypot(back.Y - latitude * Degree,
                      std::remainder(back.X - longitude * Degree, turns) * std::cos(latitude * Degree));
}

inline void ExpectNear(KvRefSystem::TCoords const& actual, double x, double y, double bound) {
    EXPECT_NEAR(actual.X, x, bound);
    EXPECT_NEAR(actual.Y, y, bound);
}

/** Runs both operations over numbers of all kinds: nothing may trap, hang, allocate or touch the height. */
inline void ExpectToSurviveAllNumbers(KvRefSystem::TMapProjection const& projection) {
    double const numbers[] = {
        0,    -0.0,  1.5707963267948966, -1.5707963267948966, 3,         -3, 1e-300, 1e7, -1e7,
        1e20, 1e300, Infinity,           -Infinity,           NotANumber};
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

/**
 * The greatest error (metres) of seeded round trips between two latitudes and at all longitudes within a
 * reach.
 */
inline double GreatestRoundTripError(KvRefSystem::TMapProjection const& projection, double south,
                                     double north, double middle, double reach, int places = 4000) {
    std::mt19937_64 random(20117);
    std::uniform_real_distribution<double> latitudes(south, north);
    std::uniform_real_distribution<double> longitudes(middle - reach, middle + reach);
    double greatest = 0;
    for (int place = 0; place < places; ++place) {
        double const latitude = latitudes(random);
        double const error = RoundTripError(projection, latitude, longitudes(random));
        if (!(error <= greatest)) {
            greatest = error;
        }
    }
    return greatest;
}

/** Slot of a virtual function: its pointer to member holds 1 + 8 slots. */
template <class Function>
std::ptrdiff_t SlotOf(Function function) {
    std::ptrdiff_t words[2];
    static_assert(sizeof words == sizeof function);
    std::memcpy(words, &function, sizeof words);
    return (words[0] - 1) / 8;
}

template <class Object, class Member>
std::ptrdiff_t OffsetIn(Object const& object, Member const& member) {
    return reinterpret_cast<char const*>(&member) - reinterpret_cast<char const*>(&object);
}

} // namespace KvRefSystemTests::Stereographic
