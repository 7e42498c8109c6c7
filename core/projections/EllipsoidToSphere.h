#pragma once

namespace KvRefSystem {

/**
 * Conformal mapping of the ellipsoid onto a sphere [Snyder87, 15-16, 18-19]: latitudes go through the
 * conformal latitude, longitudes stay as they are. The way back is an iteration [Snyder87, 3-4], both ways
 * have a short series as well [Snyder87, 3-2, 3-5].
 *
 * With the default accuracy of e^10 the iteration leaves up to 8e-12 radians on the earth's ellipsoids. The
 * series stay within 6e-9 radians of the closed form, since some of their last coefficients aren't Snyder's.
 * Kept: hosts rely on the numbers that these give. A latitude that is no number costs all ten passes and
 * stays none. Not meant for a sphere: the threshold is then no number and the iteration always makes ten
 * passes, whose result is right all the same.
 */
class TEllipsoidToSphereMollweideProjection {
public:
    /**
     * @param a semi-major axis, metres. @param b semi-minor axis, metres.
     * @param phi0 central latitude, radians: the scale is 1 there.
     * @param accuracy of the iteration, radians; 0 or below selects e^10.
     */
    TEllipsoidToSphereMollweideProjection(double const& a, double const& b, double const& phi0,
                                          double const& accuracy);

    /** @param phi geodetic latitude. @param chi conformal latitude; radians, may be the same variable. */
    void LatitudeEllipsoidToSphere(double const& phi, double* chi) const;

    /** The reverse, by iteration. @return the passes made, 1 to 10; the tenth counts as it stands. */
    int LatitudeSphereToEllipsoid(double const& chi, double* phi) const;

    /** Geodetic to spherical; radians. Outputs may be the inputs' variables, here and below. */
    void EllipsoidToSphere(double const& phi, double const& lambda, double* chi, double* sphereLambda) const;

    /** Spherical to geodetic; radians. */
    void SphereToEllipsoid(double const& chi, double const& lambda, double* phi,
                           double* ellipsoidLambda) const;

    /** As `EllipsoidToSphere`, by the series. */
    void EllipsoidToSphereApprox(double const& phi, double const& lambda, double* chi,
                                 double* sphereLambda) const;

    /** As `SphereToEllipsoid`, by the series. */
    void SphereToEllipsoidApprox(double const& chi, double const& lambda, double* phi,
                                 double* ellipsoidLambda) const;

    /** @param phi latitude, radians. @return scale there; at the poles what the formula gives. */
    double EllipsoidToSphereScale(double const& phi) const;

    /** As `EllipsoidToSphereScale`, to the first order of e2. */
    double EllipsoidToSphereScaleApprox(double const& phi) const;

    /**
     * @param phi geodetic latitude, radians.
     * @return tan(chi / 2 + pi / 4): all of the conformal latitude but its arctangent, for callers that go on
     *         with the sine and the cosine.
     */
    double ConformalTangent(double phi) const;

    /**
     * The passes of `LatitudeSphereToEllipsoid` without a sine and an arctangent in each.
     * @param sinChi, cosChi sine and cosine of the conformal latitude, which lies in [-pi / 2, pi / 2].
     * @return the geodetic latitude, radians.
     */
    double LatitudeOfConformal(double sinChi, double cosChi) const;

    /** @return how many passes the accuracy needs; 0 where no number comes out, as on a sphere. */
    int MaxIterationsCount() const;

    double SemiMajorAxis;            ///< a, metres
    double SemiMinorAxis;            ///< b, metres
    double Eccentricity;             ///< e
    double EccentricitySquared;      ///< e2 = (a2 - b2) / a2
    double EccentricityPow4;         ///< e2 e2
    double EccentricityPow6;         ///< e2 e2 e2
    double HalfEccentricity;         ///< e / 2
    double SphereRadius;             ///< R = m0 a, metres
    double CentralLatitude;          ///< phi0, radians
    double Accuracy;                 ///< of the iteration, radians
    double TwiceEccentricitySquared; ///< 2 e2
    double StopThreshold;            ///< two passes nearer than this end the iteration, radians
    double ForwardSin2Coefficient;   ///< of sin 2 phi in chi
    double ForwardSin4Coefficient;   ///< of sin 4 phi in chi
    double ForwardSin6Coefficient;   ///< of sin 6 phi in chi
    double ReverseSin2Coefficient;   ///< of sin 2 chi in phi
    double ReverseSin4Coefficient;   ///< of sin 4 chi in phi
    double ReverseSin6Coefficient;   ///< of sin 6 chi in phi
    double CentralScaleRatio;        ///< m0
    double CentralScaleBase;         ///< s0 = e2 sin2 phi0 / 2 + 1
};

} // namespace KvRefSystem
