#pragma once

#include "core/projections/MapProjection.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>

/** What the tests of the transverse cylindrical projections share. */
namespace TransverseChecks {

using KvRefSystem::TCoords;
using KvRefSystem::TEllipsoidSemiAxes;
using KvRefSystem::TMapProjection;

inline constexpr double Pi = 3.141592653589793;
inline constexpr double Degree = Pi / 180;
inline constexpr double Infinity = std::numeric_limits<double>::infinity();
inline constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

inline constexpr TEllipsoidSemiAxes Wgs84 = {6378137, 6356752.314245179};
inline constexpr TEllipsoidSemiAxes Krassowsky = {6378245, 6356863.018773047};
inline constexpr TEllipsoidSemiAxes International = {6378388, 6378388 * (1 - 1 / 297.0)};
inline constexpr TEllipsoidSemiAxes Airy = {6377563.396, 6377563.396 * (1 - 1 / 299.32496)};

/** Formulas with some fifty operations on metres, against the same in decimal. */
inline constexpr double RoundingMetres = 3e-8;
inline constexpr double RoundingDegrees = 1e-13;

/** @param lat, lon degrees. */
inline TCoords Forward(TMapProjection const& projection, double lat, double lon) {
    TCoords point{lon * Degree, lat * Degree, 0, false};
    projection.GeodeticToProjected(&point);
    return point;
}

/** @return longitude and latitude in degrees. */
inline TCoords Reverse(TMapProjection const& projection, double easting, double northing) {
    TCoords point{easting, northing, 0, false};
    projection.ProjectedToGeodetic(&point);
    point.X /= Degree;
    point.Y /= Degree;
    return point;
}

inline void ExpectNear(TCoords const& point, double x, double y, double tolerance) {
    EXPECT_NEAR(point.X, x, tolerance);
    EXPECT_NEAR(point.Y, y, tolerance);
}

/** Both ways of two projections give the same bits at some places. */
inline void ExpectSameNumbers(TMapProjection const& one, TMapProjection const& two) {
    for (double const lat : {-70.0, 0.0, 12.5, 55.0}) {
        TCoords const first = Forward(one, lat, lat / 20);
        EXPECT_EQ(first, Forward(two, lat, lat / 20));
        EXPECT_EQ(Reverse(one, first.X, first.Y), Reverse(two, first.X, first.Y));
    }
}

/** Greatest distance (metres on the ground) that there and back leaves, of drawn places up to 89 degrees. */
inline double GreatestRoundTrip(TMapProjection const& projection, double centralMeridian, double width) {
    std::mt19937_64 generator(9807);
    std::uniform_real_distribution<double> latitude(-89 * Degree, 89 * Degree);
    std::uniform_real_distribution<double> difference(-width * Degree, width * Degree);
    double greatest = 0;
    for (int place = 0; place < 20000; ++place) {
        TCoords const given{centralMeridian + difference(generator), latitude(generator), 0, false};
        TCoords point = given;
        projection.GeodeticToProjected(&point);
        projection.ProjectedToGeodetic(&point);
        double const east = std::remainder(point.X - given.X, 2 * Pi) * std::cos(given.Y);
        greatest = std::max(greatest, 6.38e6 * std::hypot(east, point.Y - given.Y));
    }
    return greatest;
}

/** Heights and their marks pass both ways whatever they hold. */
inline void ExpectHeightsUntouched(TMapProjection const& projection) {
    for (bool const undefined : {false, true}) {
        TCoords point{0.1, 0.9, 123.5, undefined};
        projection.GeodeticToProjected(&point);
        EXPECT_EQ(point.Z, 123.5);
        EXPECT_EQ(point.ZUndefined, undefined);
        projection.ProjectedToGeodetic(&point);
        EXPECT_EQ(point.Z, 123.5);
        EXPECT_EQ(point.ZUndefined, undefined);
    }
}

inline void ExpectNoAllocation(TMapProjection const& projection) {
    TCoords point{0.1, 0.9, 0, false};
    std::size_t const before = KvRefSystemTests::AllocationCount();
    projection.GeodeticToProjected(&point);
    projection.ProjectedToGeodetic(&point);
    EXPECT_EQ(KvRefSystemTests::AllocationCount(), before);
}

/** Whatever comes in, both ways return, and what is no number in comes out as none. */
inline void ExpectReturns(TMapProjection const& projection) {
    for (double const x :
         {0.0, -0.0, Pi / 2, -Pi / 2, Pi, 1e7, -1e9, 1e300, Infinity, -Infinity, NotANumber}) {
        for (double const y :
             {0.0, Pi / 2, -Pi / 2, 4.0, 1e7, -1e9, 1e300, Infinity, -Infinity, NotANumber}) {
            TCoords forward{x, y, 0, false};
            EXPECT_NO_THROW(projection.GeodeticToProjected(&forward));
            TCoords reverse{x, y, 0, false};
            EXPECT_NO_THROW(projection.ProjectedToGeodetic(&reverse));
            if (!std::isfinite(x) || !std::isfinite(y)) {
                EXPECT_FALSE(std::isfinite(forward.X) && std::isfinite(forward.Y)) << x << ' ' << y;
            }
            if (std::isnan(x) || std::isnan(y)) {
                EXPECT_TRUE(std::isnan(reverse.X) || std::isnan(reverse.Y)) << x << ' ' << y;
            }
        }
    }
}

} // namespace TransverseChecks
