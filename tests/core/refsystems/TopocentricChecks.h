#pragma once

#include "TestKinds.h"
#include "core/projections/TransverseMercator.h"
#include "core/refsystems/MapProjectedReferenceSystem.h"
#include "core/refsystems/TopocentricHorizontalReferenceSystem.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>

/** Frames and places of the topocentric systems' tests. */
namespace TopocentricChecks {

using namespace KvRefSystem;
using namespace KvRefSystemTests;

inline char const* const UnknownKind = "@PreservesHeights(): invalid refsystem type.";
inline constexpr double ParisLongitude = Radians(2.33722917);
inline double const NaN = std::numeric_limits<double>::quiet_NaN();
inline double const Infinity = std::numeric_limits<double>::infinity();

/** Some last places of the earth's radius, which every point passes; metres. */
inline constexpr double RoundingOfTheEarthsRadius = 1e-8;

/** A few last places of the numbers of a rotation. */
inline constexpr double RoundingOfRotations = 1e-15;

inline TGeodeticReferenceSystem Geodetic(TDatumShift const* shift = nullptr, double longitude = 0.0,
                                         TEllipsoid const& ellipsoid = Wgs84()) {
    TPrimeMeridian const meridian(longitude);
    return {shift, &meridian, &ellipsoid, {}, {}};
}

inline TCoords Degrees(double longitude, double latitude, double height) {
    return Point(Radians(longitude), Radians(latitude), height);
}

/** The place of most tests: longitude 37, latitude 55 degrees, height 200 m, azimuth 30 degrees. */
inline TCoords const Place = Degrees(37, 55, 200);
inline constexpr double Azimuth = Radians(30);

inline TTopocentricHorizontalReferenceSystem
Frame(TGeodeticReferenceSystem const& geodetic, TReferenceSystemCartesianOrientation orientation = rscoLeft,
      TCoords const& origin = Place, double azimuth = Azimuth, TRefSystemTransformsSet const& set = {}) {
    return {orientation, azimuth, &geodetic, origin, set, {}};
}

inline TTopocentricHorizontalReferenceSystem
Frame(TReferenceSystemCartesianOrientation orientation = rscoLeft) {
    return Frame(Geodetic(), orientation);
}

inline TMapProjectedReferenceSystem Projected(TGeodeticReferenceSystem const& geodetic) {
    TEllipsoidSemiAxes const axes = {geodetic.Ellipsoid->SemiMajorAxis, geodetic.Ellipsoid->SemiMinorAxis};
    TTransverseMercatorMapProjectionParameters const parameters(Radians(39), 0.0, 1.0, 7500000.0, 0.0);
    return {&geodetic, new TTransverseMercatorMapProjection(&axes, &parameters), {}, {}};
}

inline void ExpectNear(TCoords const& point, TCoords const& expected,
                       double tolerance = RoundingOfTheEarthsRadius) {
    EXPECT_NEAR(point.X, expected.X, tolerance);
    EXPECT_NEAR(point.Y, expected.Y, tolerance);
    EXPECT_NEAR(point.Z, expected.Z, tolerance);
}

template <std::size_t Count>
void ExpectNumbers(double const (&numbers)[Count], double const (&expected)[Count], double tolerance) {
    for (std::size_t index = 0; index < Count; ++index) {
        EXPECT_NEAR(numbers[index], expected[index], tolerance) << index;
    }
}

} // namespace TopocentricChecks
