#pragma once

namespace KvRefSystem {

/**
 * The transformations of GOST R 51794 in its editions of 2001 and 2008, with the parameters of the revision
 * of 2017 [GOST51794-2008] [GOST32453-2017]: geocentric, geodetic and Gauss-Kruger coordinates of eight earth
 * datums, on plain numbers and with tables of their own. Here latitude comes before longitude and the
 * northing before the easting.
 *
 * All failures are return values, and nothing throws. On false the outputs hold nothing or partial results,
 * except where a function promises more. Outputs may be the inputs' variables. Values of the enumerations
 * outside of those that are named, negative ones included, have the outcome that each function tells.
 *
 * Kept, since results in use rely on it:
 * - A geocentric point with Y below 0 gets another longitude than its own: 405 degrees for 315, 315 for 225
 *   and -90 for 270. The plane coordinates refuse those outside of their zones.
 * - No longitude is ever normalised: below 0 there is no zone, and zones 31 to 60 are those of 180 to 360
 *   degrees.
 * - The plane coordinates' radian is 57.29577951 degrees, but the zone comes from the full number.
 * - The edition of 2017 has parameters but no road: between two datums it changes only the ellipsoid.
 */
namespace GOST51794 {

/** Edition of the standard; the value is its year. */
enum TGOST51794Version : int {
    gv2001 = 2001,
    gv2008 = 2008,
    gv2017 = 2017, ///< parameters only, see `GOST51794TransformCoords`
};

/** Earth datum. */
enum TGOST51794Datum : int {
    gdPZ90 = 0,
    gdWGS84 = 1,
    gdPulkovo42 = 2,
    gdPulkovo95 = 3,
    gdPZ90_02 = 4,
    gdPZ90_11 = 5,
    gdGSK2011 = 6,
    gdITRF2008 = 7,
};

/** What three numbers stand for; values as those of `TReferenceSystemType`. */
enum TGOST51794RefsystemType : int {
    grtGeocentric = 3, ///< X, Y, Z, metres
    grtGeodetic = 4,   ///< latitude B and longitude L in radians, height H in metres
    grtProjected = 5,  ///< northing x, easting y with the zone number in front, height H, metres
};

/** One side of a transformation. A plain record. */
struct TGOST51794RefsystemParams {
    TGOST51794Datum Datum;
    TGOST51794RefsystemType RefsystemType;
};

/** Seven numbers from one datum to another: coordinate frame rotations [EPSG7-2, 9607]. A plain record. */
struct TDatumShiftParams {
    double dX; ///< metres
    double dY; ///< metres
    double dZ; ///< metres
    double wx; ///< radians
    double wy; ///< radians
    double wz; ///< radians
    double m;  ///< scale correction: the factor is 1 + m
};

/**
 * The whole transformation of a point: coordinate types within a datum, between two datums the road of the
 * edition, which is one record or two. The edition of 2001 goes through PZ-90; that of 2008 has direct
 * records from and to PZ-90 and PZ-90.02, and goes through PZ-90.02 otherwise. Any other version, that of
 * 2017 and unknown ones included, takes the geocentric coordinates of the source as those of the target.
 *
 * @param version          edition; plays no part within one datum.
 * @param src              datum and type of the input.
 * @param x, y, z          the point, as `src.RefsystemType` tells.
 * @param dst              datum and type of the output.
 * @param outX, outY, outZ receive the point, as `dst.RefsystemType` tells.
 * @return false for a datum that the tables or the edition don't know, for plane coordinates on another datum
 *         than the two of Pulkovo, and where `TransformType` gives false.
 */
bool GOST51794TransformCoords(TGOST51794Version version, TGOST51794RefsystemParams const& src,
                              double const& x, double const& y, double const& z,
                              TGOST51794RefsystemParams const& dst, double* outX, double* outY, double* outZ);

/**
 * The semi-axes of a datum and the one set of parameters that leads from it to WGS 84; two records are
 * combined to the first order. Here the edition of 2017 counts as the others do.
 *
 * @param version edition.
 * @param datum   datum.
 * @param a, b    receive the semi-axes in metres, for every datum of the tables, whatever is returned.
 * @param params  receives the parameters; untouched on false.
 * @return false for a version that isn't named, and for a datum that the tables or the edition don't know.
 */
bool GetGOST51794Params(TGOST51794Version version, TGOST51794Datum datum, double* a, double* b,
                        TDatumShiftParams* params);

/**
 * Between coordinate types within a datum. Equal types, unknown ones too, copy the three numbers, with no
 * test of zones.
 *
 * @param datum            datum, which gives the ellipsoid.
 * @param srcType          type of the input.
 * @param x, y, z          the point, as `srcType` tells.
 * @param dstType          type of the output.
 * @param outX, outY, outZ receive the point, as `dstType` tells.
 * @return false for an unknown datum, for plane coordinates on another datum than the two of Pulkovo, and as
 *         the next function.
 */
bool TransformType(TGOST51794Datum datum, TGOST51794RefsystemType srcType, double x, double y, double z,
                   TGOST51794RefsystemType dstType, double* outX, double* outY, double* outZ);

/**
 * The same on any ellipsoid; the plane coordinates are those of the Krasovsky ellipsoid all the same.
 *
 * @param a  semi-major axis, metres.
 * @param e2 first eccentricity squared.
 * @return false for two types of which one is unknown, outside of the zones, for a radicand that isn't
 *         positive, and without convergence.
 */
bool TransformType(double a, double e2, TGOST51794RefsystemType srcType, double x, double y, double z,
                   TGOST51794RefsystemType dstType, double* outX, double* outY, double* outZ);

/**
 * Geocentric into geodetic coordinates, by passes to 0.0001 of an arc second. The centre comes to latitude
 * and longitude 0 and height -a.
 *
 * @param a       semi-major axis, metres.
 * @param e2      first eccentricity squared.
 * @param X, Y, Z the point, metres.
 * @param B, L, H receive latitude and longitude (radians; with Y below 0 not the point's own) and height
 *                (metres); untouched on false.
 * @return false for a radicand that isn't positive and without convergence within 100 passes.
 */
bool geoc2geod(double const& a, double const& e2, double const& X, double const& Y, double const& Z,
               double* B, double* L, double* H);

/**
 * Gauss-Kruger coordinates in zones of six degrees on the Krasovsky ellipsoid [GOST51794-2008].
 *
 * @param B, L latitude and longitude, radians.
 * @param x, y receive northing and easting with the zone number in front, metres; untouched on false.
 * @return false for a longitude outside of the zones 1 to 60, which are those of [0, 2 pi).
 */
bool geod2proj(double const& B, double const& L, double* x, double* y);

/**
 * The way back from Gauss-Kruger coordinates.
 *
 * @param x, y northing and easting with the zone number in front, metres.
 * @param B, L receive latitude and longitude, radians; untouched on false.
 * @return false for a zone number outside 1 to 60.
 */
bool proj2geod(double const& x, double const& y, double* B, double* L);

} // namespace GOST51794

using GOST51794::GetGOST51794Params;
using GOST51794::GOST51794TransformCoords;
using GOST51794::TDatumShiftParams;
using GOST51794::TGOST51794Datum;
using GOST51794::TGOST51794RefsystemParams;
using GOST51794::TGOST51794RefsystemType;
using GOST51794::TGOST51794Version;
using enum TGOST51794Version;
using enum TGOST51794Datum;
using enum TGOST51794RefsystemType;

} // namespace KvRefSystem
