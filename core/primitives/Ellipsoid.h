#pragma once

#include "core/refsystems/Coords.h"
#include "frame/imported/Geometry.h"

#include <vector>

namespace KvRefSystem {

/**
 * Reference ellipsoid: two semi-axes in metres and what is derived from them once.
 *
 * Ellipsoidal to Cartesian coordinates and back [EPSG7-2, 9602], the latter by iteration to 1e-12 radians;
 * area of a polygon through the oblique azimuthal equal-area projection [Snyder87, 187-190].
 * Singular points: nothing guards the poles and the centre. With p = 0 the height comes to -N at either pole,
 * and the north pole itself (X = Y = 0, Z > 0) comes to latitude -pi/2; the centre comes to a NaN.
 * On a sphere `PolarQ` is 1.0 and areas come to one half of the true value.
 * A semi-minor axis greater than the semi-major one gives a NaN eccentricity.
 */
class TEllipsoid {
public:
    /** A sphere. @param radius metres. */
    explicit TEllipsoid(double const& radius);

    /** @param a semi-major axis, metres. @param b semi-minor axis, metres. */
    TEllipsoid(double const& a, double const& b);

    /** Copies the semi-axes and derives the rest again. */
    TEllipsoid(TEllipsoid const& source);
    TEllipsoid& operator=(TEllipsoid const& source) = default;

    /** @return the authalic q of a latitude in radians [Snyder87, 3-12]. */
    double Calculate_q(double const& lat) const;

    /** In: longitude, latitude (radians), height (metres). Out: geocentric X, Y, Z (metres). */
    void EllipsoidalToCartesian(TCoords* coords) const;

    /**
     * In: geocentric X, Y, Z (metres). Out: longitude, latitude (radians), height (metres). `ZUndefined`
     * stays.
     * @throws std::runtime_error with "CartesianToEllipsoidal", the point unchanged, when 1001 passes don't
     *         converge; a NaN ends the iteration without an exception.
     */
    void CartesianToEllipsoidal(TCoords* coords) const;

    /** The two-term series onto the authalic sphere; radians. Outputs may be the inputs' variables. */
    void AuthalicTransformationOntoSphere(double const& lat, double const& lon, double* sphereLat,
                                          double* sphereLon) const;

    /**
     * @param vertices (latitude, longitude) in radians, in order.
     * @return the polygon's area in square metres; 0 for fewer than three vertices or an empty bounding box.
     */
    double CalculateArea(std::vector<vec_t_<double, 2>> const& vertices) const;

    double SemiMajorAxis;             ///< a, metres
    double SemiMinorAxis;             ///< b, metres
    double Eccentricity;              ///< e
    double SecondEccentricity;        ///< e'
    double EccentricitySquared;       ///< e2 = 1 - (b/a)^2
    double EccentricityPow4;          ///< e2 e2
    double EccentricityPow6;          ///< e2 e2 e2
    double SecondEccentricitySquared; ///< e'2 = (a/b)^2 - 1
    double AuthalicRadiusSeries;      ///< radius of the authalic sphere by its series, metres
    double AuthalicSin2Coefficient;   ///< of sin 2 lat in the authalic latitude; begins with e2/2
    double AuthalicSin4Coefficient;   ///< of sin 4 lat in the authalic latitude
    int MaxIterations;                ///< 1000
    double Tolerance;                 ///< 1e-12 radians
    double PolarQ;                    ///< q at the pole; 1.0 on a sphere
    double AuthalicRadius;            ///< a sqrt(PolarQ / 2), metres
    double AuthalicInverse2;          ///< of sin 2 beta in the latitude from the authalic one
    double AuthalicInverse4;          ///< of sin 4 beta
    double AuthalicInverse6;          ///< of sin 6 beta

private:
    void Calculate();
};

} // namespace KvRefSystem
