#pragma once

#include <cmath>

namespace KvRefSystem {

/**
 * ln t [Snyder87, 15-9], the isometric latitude with its sign changed, of t = tan(pi/4 - phi/2) / ((1 - e sin
 * phi) / (1 + e sin phi))^(e/2). One sine and cosine of the half angle serve both factors: sin phi is the
 * cosine of the whole one. The tangent at the north pole is 0 and its logarithm -inf; at the south pole it
 * ends where that of pi/2 in doubles does, and the logarithm is 37.3. Beyond the poles the result is a NaN.
 * @param phi latitude (radians).
 */
inline double LogT(double phi, double eccentricity, double halfEccentricity) {
    constexpr double QuarterPi = 0.7853981633974483;
    double const halfAngle = QuarterPi - phi / 2;
    double const sine = std::sin(halfAngle);
    double const cosine = std::cos(halfAngle);
    double const eSine = eccentricity * ((cosine - sine) * (cosine + sine));
    return std::log(sine / cosine) + halfEccentricity * std::log((1 + eSine) / (1 - eSine));
}

} // namespace KvRefSystem
