#pragma once

#include "core/primitives/GOST51794.h"
#include "tests/core/primitives/GOST51794Rows.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <limits>
#include <random>

/** What the tests of the state standard share. */
namespace GOST51794Checks {

using namespace GOST51794Rows;
using KvRefSystem::GOST51794::GetGOST51794Params;
using KvRefSystem::GOST51794::GOST51794TransformCoords;

inline constexpr double Degree = 3.141592653589793 / 180;
inline constexpr double HalfPi = 1.5707963267948966;
inline constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double Infinity = std::numeric_limits<double>::infinity();

inline constexpr double WgsMajor = 6378137.0;
inline constexpr double WgsEccentricitySquared = 0.0066943799901413165;

inline constexpr int UnknownVersions[] = {INT_MIN, -1, 0, 2000, 2002, 2016, 2018, INT_MAX};
inline constexpr int UnknownDatums[] = {INT_MIN, -1, 8, 100, INT_MAX};
inline constexpr int UnknownTypes[] = {INT_MIN, -1, 0, 1, 2, 6, INT_MAX};
inline constexpr TGOST51794Version Versions[] = {gv2001, gv2008, gv2017};
inline constexpr TGOST51794RefsystemType Types[] = {grtGeocentric, grtGeodetic, grtProjected};

inline TGOST51794Version Version(int value) {
    return static_cast<TGOST51794Version>(value);
}

inline TGOST51794Datum Datum(int value) {
    return static_cast<TGOST51794Datum>(value);
}

inline TGOST51794RefsystemType Type(int value) {
    return static_cast<TGOST51794RefsystemType>(value);
}

/** Three numbers and whether they were given. */
struct TResult {
    bool Done = false;
    double X = -1;
    double Y = -2;
    double Z = -3;
};

inline TResult Transform(TGOST51794Version version, TGOST51794RefsystemParams src, double x, double y,
                         double z, TGOST51794RefsystemParams dst) {
    TResult result;
    result.Done = GOST51794TransformCoords(version, src, x, y, z, dst, &result.X, &result.Y, &result.Z);
    return result;
}

inline TResult OfType(TGOST51794Datum datum, TGOST51794RefsystemType from, double x, double y, double z,
                      TGOST51794RefsystemType to) {
    TResult result;
    result.Done = TransformType(datum, from, x, y, z, to, &result.X, &result.Y, &result.Z);
    return result;
}

inline TResult OfEllipsoid(double a, double e2, TGOST51794RefsystemType from, double x, double y, double z,
                           TGOST51794RefsystemType to) {
    TResult result;
    result.Done = TransformType(a, e2, from, x, y, z, to, &result.X, &result.Y, &result.Z);
    return result;
}

inline TResult Geodetic(double X, double Y, double Z, double a = WgsMajor,
                        double e2 = WgsEccentricitySquared) {
    TResult result;
    result.Done = geoc2geod(a, e2, X, Y, Z, &result.X, &result.Y, &result.Z);
    return result;
}

/** Degrees in, northing and easting out. */
inline TResult Plane(double latitude, double longitude) {
    TResult result;
    result.Done = geod2proj(latitude * Degree, longitude * Degree, &result.X, &result.Y);
    return result;
}

/** Northing and easting in, degrees out. */
inline TResult FromPlane(double northing, double easting) {
    TResult result;
    result.Done = proj2geod(northing, easting, &result.X, &result.Y);
    result.X /= Degree;
    result.Y /= Degree;
    return result;
}

inline void ExpectUntouched(TResult const& result) {
    EXPECT_FALSE(result.Done);
    EXPECT_EQ(result.X, -1);
    EXPECT_EQ(result.Y, -2);
    EXPECT_EQ(result.Z, -3);
}

inline void ExpectExactly(TResult const& result, double x, double y, double z) {
    EXPECT_TRUE(result.Done);
    EXPECT_EQ(result.X, x);
    EXPECT_EQ(result.Y, y);
    EXPECT_EQ(result.Z, z);
}

inline void ExpectSame(TResult const& result, TResult const& expected) {
    EXPECT_EQ(result.Done, expected.Done);
    EXPECT_EQ(result.X, expected.X);
    EXPECT_EQ(result.Y, expected.Y);
    EXPECT_EQ(result.Z, expected.Z);
}

inline void ExpectNear(TResult const& result, double x, double y, double z, double tolerance) {
    EXPECT_TRUE(result.Done);
    EXPECT_NEAR(result.X, x, tolerance);
    EXPECT_NEAR(result.Y, y, tolerance);
    EXPECT_NEAR(result.Z, z, tolerance);
}

/** Degrees and metres. */
inline void ExpectPlace(TResult const& result, double latitude, double longitude, double height) {
    EXPECT_TRUE(result.Done);
    EXPECT_NEAR(result.X / Degree, latitude, 2e-12);
    EXPECT_NEAR(result.Y / Degree, longitude, 2e-12);
    EXPECT_NEAR(result.Z, height, 1e-6);
}

inline std::array<double, 7> NumbersOf(TDatumShiftParams const& record) {
    return {record.dX, record.dY, record.dZ, record.wx, record.wy, record.wz, record.m};
}

/** Places of the eastern half, where longitudes come back as they went. */
class TEasternPlaces {
public:
    explicit TEasternPlaces(unsigned long seed) : random(seed) {}

    double Latitude(double greatest) { return (2 * Draw() - 1) * greatest * Degree; }
    double Longitude(double least, double greatest) { return (least + (greatest - least) * Draw()) * Degree; }
    double Height() { return -1e3 + 1e4 * Draw(); }

private:
    double Draw() { return static_cast<double>(random() >> 11) * 0x1p-53; }

    std::mt19937_64 random;
};

} // namespace GOST51794Checks
