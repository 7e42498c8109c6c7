#pragma once

#include "core/primitives/LSR.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <vector>

/** What the tests of the local frames share. */
namespace LSRChecks {

using namespace KvRefSystem;

inline constexpr double Pi = 3.141592653589793;
inline constexpr double HalfPi = 1.5707963267948966;
inline constexpr double TwoPi = 6.283185307179586;
inline constexpr double Degree = Pi / 180;
inline constexpr double WgsMajor = 6378137.0;
inline constexpr double WgsMinor = 6356752.314245179;

/** Metres: a dozen roundings of geocentric coordinates, 1e-9 each. */
inline constexpr double Rounding = 1e-8;

using TTriple = std::array<double, 3>;

inline TLSR Frame(double latitude, double longitude, double height, double azimuth) {
    return TLSR(WgsMajor, WgsMinor, latitude * Degree, longitude * Degree, height, azimuth * Degree);
}

/** The frame whose numbers are known from elsewhere. */
inline TLSR Sample() {
    return Frame(55, 37, 200, 30);
}

inline TTriple ToGeocentric(TLSR const& frame, TTriple const& p) {
    TTriple result{};
    frame.LSR2Geocentric(p[0], p[1], p[2], &result[0], &result[1], &result[2]);
    return result;
}

inline TTriple ToLocal(TLSR const& frame, TTriple const& p) {
    TTriple result{};
    frame.Geocentric2LSR(p[0], p[1], p[2], &result[0], &result[1], &result[2]);
    return result;
}

inline TTriple Between(TLSR const& from, TTriple const& p, TLSR const& to) {
    TTriple result{};
    LSR2LSR(from, p[0], p[1], p[2], to, &result[0], &result[1], &result[2]);
    return result;
}

inline double Distance(TTriple const& a, TTriple const& b) {
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

inline void ExpectNear(TTriple const& found, double x, double y, double z, double tolerance) {
    EXPECT_NEAR(found[0], x, tolerance);
    EXPECT_NEAR(found[1], y, tolerance);
    EXPECT_NEAR(found[2], z, tolerance);
}

/** Draws frames and points; the same everywhere. */
class TDraw {
public:
    explicit TDraw(unsigned long seed) : random(seed) {}

    double Number(double least, double greatest) {
        return least + (greatest - least) * (static_cast<double>(random() >> 11) * 0x1p-53);
    }

    TLSR AnyFrame() {
        double const flattening = Number(0, 0.01);
        return TLSR(WgsMajor, WgsMajor * (1 - flattening), Number(-90, 90) * Degree,
                    Number(-360, 360) * Degree, Number(-1e4, 1e5), Number(-360, 360) * Degree);
    }

    TTriple Point() { return {Number(-1e5, 1e5), Number(-1e5, 1e5), Number(-1e4, 1e4)}; }

private:
    std::mt19937_64 random;
};

/** Frames where angles meet their ends: quadrants, poles, and rotations about one axis only. */
inline std::vector<TLSR> CornerFrames() {
    std::vector<TLSR> frames;
    for (double const latitude : {-90.0, 0.0, 45.0, 90.0}) {
        for (double const longitude : {-180.0, -90.0, 0.0, 90.0, 180.0}) {
            for (double const azimuth : {0.0, 90.0, 180.0, 270.0}) {
                frames.push_back(Frame(latitude, longitude, 0, azimuth));
            }
        }
    }
    return frames;
}

} // namespace LSRChecks
