#pragma once

#include <string>

namespace KvRefSystem {

/**
 * One core point, a plain value. In a geodetic system `X` is the longitude and `Y` the latitude in radians;
 * in every other kind `X` and `Y` are metres. Nothing in the core but equality and the debug print reads
 * `ZUndefined`: it is the shell's mark that no height was given.
 */
struct TCoords {
    double X = 0;            ///< longitude in radians, or first coordinate in metres
    double Y = 0;            ///< latitude in radians, or second coordinate in metres
    double Z = 0;            ///< height, or third coordinate, in metres
    bool ZUndefined = false; ///< the height isn't set

    /** Exact equality; of two points without heights `Z` isn't compared. */
    bool operator==(TCoords const& other) const;

    /** Sends `prefix` and the numbers as one line to the host's debug sink. */
    void DebugOutput(std::string const& prefix) const;
};

/**
 * Brings a longitude (radians) into [-pi, pi]. Values beyond the reach of doubles' whole turns stay as they
 * come.
 */
void NormalizeLongitude(double& lon);

/**
 * Folds a latitude (radians) to a value in [-pi/2, pi/2]. Not a reduction of the angle: beyond a pole it ends
 * at a pole, so 2.0 becomes pi/2, 4.0 becomes -pi/2 and -4.0 becomes pi/2. Kept: hosts rely on both end
 * rules.
 */
void NormalizeLatitude(double& lat);

} // namespace KvRefSystem
