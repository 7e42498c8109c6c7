#pragma once

#include "core/primitives/Ellipsoid.h"
#include "frame/imported/SevenParameters.h"
#include "frame/imported/SharedHandle.h"

namespace KvRefSystem {

using LumCommonUtils::T7Params;
using var_a_legacy::var_a;

/**
 * Local spatial reference: a tangent frame at a point of an ellipsoid, for geometry around that point
 * [EPSG7-2, 9837].
 *
 * The frame is right-handed: local y points at the frame's azimuth, local x 90 degrees to the right of it and
 * local z up the normal, so with azimuth 0 the axes are east, north and up. All angles are radians, all
 * lengths metres, and outputs may be the inputs' variables.
 *
 * Conversions to and from geocentric coordinates are one turn and one shift, within a few nanometres near the
 * ground. Copies share the ellipsoid, which is released with the last of them; copies may be used and dropped
 * on different threads. `Setup` beside readers of the same object is left to the caller to prevent.
 */
class TLSR {
public:
    /**
     * @param a, b     semi-axes of the ellipsoid, metres.
     * @param lat, lon geodetic latitude and longitude of the origin, radians.
     * @param h        ellipsoidal height of the origin, metres.
     * @param azimuth  direction of local y, radians clockwise from north.
     */
    TLSR(double const& a, double const& b, double const& lat, double const& lon, double const& h,
         double const& azimuth);

    /** On the WGS 84 of `GetWGS84SemiAxes`, height and azimuth 0. @param lat, lon radians. */
    TLSR(double const& lat, double const& lon);

    /**
     * Makes it another frame, on an ellipsoid of its own; the share of the former one is dropped. The
     * parameters are those of the constructor and may be this frame's own numbers.
     * @throws std::bad_alloc, the frame unchanged.
     */
    void Setup(double const& a, double const& b, double const& lat, double const& lon, double const& h,
               double const& azimuth);

    /** @param x, y, z local, metres. @param X, Y, Z receive the geocentric coordinates, metres. */
    void LSR2Geocentric(double const& x, double const& y, double const& z, double* X, double* Y,
                        double* Z) const;

    /** @param X, Y, Z geocentric, metres. @param x, y, z receive the local coordinates, metres. */
    void Geocentric2LSR(double const& X, double const& Y, double const& Z, double* x, double* y,
                        double* z) const;

    /**
     * @param x, y, z     local, metres.
     * @param lat, lon, h receive latitude and longitude (radians) and the ellipsoidal height (metres).
     * @throws std::runtime_error with "CartesianToEllipsoidal", the outputs untouched, when the ellipsoid's
     *         iteration doesn't converge.
     */
    void LSR2Geodetic(double const& x, double const& y, double const& z, double* lat, double* lon,
                      double* h) const;

    /**
     * @param lat, lon, h latitude and longitude (radians) and ellipsoidal height (metres).
     * @param x, y, z     receive the local coordinates, metres.
     */
    void Geodetic2LSR(double const& lat, double const& lon, double const& h, double* x, double* y,
                      double* z) const;

    /** @param params receives the similarity whose direct form turns local into geocentric coordinates. */
    void Get7ParamsToGeocentric(T7Params* params) const;

    /**
     * @param dX, dY, dZ         geocentric direction of any length above 0; only turned, never shifted.
     * @param azimuth, elevation receive the direction as `Dir2AzimuthElevation` tells it, radians.
     */
    void GeocDir2AzimuthElevation(double const& dX, double const& dY, double const& dZ, double* azimuth,
                                  double* elevation) const;

    /**
     * @param azimuth, elevation direction in this frame, radians.
     * @param dX, dY, dZ         receive the geocentric direction, of length 1.
     */
    void AzimuthElevation2GeocDir(double const& azimuth, double const& elevation, double* dX, double* dY,
                                  double* dZ) const;

    var_a<TEllipsoid> EllipsoidRef; ///< shared by the copies
    double Origin[3];               ///< geocentric, metres
    double InverseShift[3];         ///< minus the transposed `Rotation` times `Origin`, metres
    double Rotation[9];             ///< row after row; its columns are the local axes, geocentric
};

/**
 * @param x, y, z   local direction of any length above 0.
 * @param azimuth   receives the angle from local y towards local x, radians in [0, 2 pi); 0 for a direction
 *                  along local z and for the zero vector.
 * @param elevation receives the angle above the plane of x and y, radians; -pi/2 for the zero vector.
 */
void Dir2AzimuthElevation(double const& x, double const& y, double const& z, double* azimuth,
                          double* elevation);

/**
 * @param azimuth, elevation radians.
 * @param x, y, z            receive the local direction, of length 1. Where the sine of the elevation rounds
 *                           to ±1, x and y are 0 exactly.
 */
void AzimuthElevation2Dir(double const& azimuth, double const& elevation, double* x, double* y, double* z);

/** @param params receives the similarity whose direct form turns local coordinates of `from` into `to`'s. */
void LSR2LSR7Params(TLSR const& from, TLSR const& to, T7Params* params);

/**
 * Moves a point between two frames. The frames' ellipsoids have no influence.
 *
 * @param x, y, z    local in `from`, metres.
 * @param ox, oy, oz receive the local coordinates in `to`, metres.
 */
void LSR2LSR(TLSR const& from, double const& x, double const& y, double const& z, TLSR const& to, double* ox,
             double* oy, double* oz);

} // namespace KvRefSystem
