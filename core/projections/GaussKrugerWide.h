#pragma once

#include "core/projections/EllipsoidToSphere.h"
#include "core/projections/MapProjection.h"

#include <memory>

namespace KvRefSystem {

/** What describes a wide Gauss-Kruger; angles in radians, lengths in metres. Stored with the scale last. */
struct TGaussKrugerWideMapProjectionParameters {
    /** With a scale factor of 1. */
    TGaussKrugerWideMapProjectionParameters(double const& centralMeridian, double const& falseEasting,
                                            double const& falseNorthing);

    /** Takes the scale factor second. */
    TGaussKrugerWideMapProjectionParameters(double const& centralMeridian, double const& scaleFactor,
                                            double const& falseEasting, double const& falseNorthing);

    double CentralMeridian; ///< lambda0
    double FalseEasting;
    double FalseNorthing;
    double ScaleFactor; ///< k0, on the central meridian
};

/**
 * Transverse Mercator [EPSG7-2, 9807] by the conformal sphere and Krueger's series in n [Krueger1912, 12-21],
 * both cut behind n3; good far from the central meridian, from which the difference of longitude is wrapped.
 *
 * Both ways are within 0.09 mm of the exact projection up to 15 degrees from the central meridian, 0.13 mm up
 * to 20, 0.31 mm up to 30, 2.1 mm up to 40, 0.28 m up to 60 and 105 m up to 75; there and back leaves 0.09 mm
 * up to 15 degrees (against PROJ, on the earth's ellipsoids, at all latitudes). Further out the result is
 * what the series gives; 90 degrees away on the equator it is infinite.
 *
 * Kept, as hosts rely on the numbers: points more than 90 degrees away fold back to the near side, both ways,
 * since the arctangents have one argument; the rectifying radius does without n4; the iteration for the
 * latitude ends at a threshold of 1e-9 radians, which leaves up to 8e-12.
 */
class TGaussKrugerWideMapProjection : public TMapProjection {
public:
    /** Neither pointer is kept; neither may be null. */
    TGaussKrugerWideMapProjection(TEllipsoidSemiAxes const* ellipsoid,
                                  TGaussKrugerWideMapProjectionParameters const* parameters);
    TGaussKrugerWideMapProjection(TGaussKrugerWideMapProjection const& source);
    ~TGaussKrugerWideMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    /**
     * Conformal latitude and difference of longitude (radians) to the Gauss-Lambert pair on the unit sphere,
     * xi to the north and eta to the east. Outputs may be the inputs' variables, here and below.
     */
    void LambertSphericalToRectangular(double const& chi, double const& lambda, double* xi,
                                       double* eta) const;

    /** The reverse of `LambertSphericalToRectangular`. */
    void LambertRectangularToSpherical(double const& xi, double const& eta, double* chi,
                                       double* lambda) const;

    /** Gauss-Lambert pair to northing and easting (metres), without scale factor and false coordinates. */
    void LambertToTransverseMercator(double const& xi, double const& eta, double* northing,
                                     double* easting) const;

    /** The reverse of `LambertToTransverseMercator`. */
    void TransverseMercatorToLambert(double const& northing, double const& easting, double* xi,
                                     double* eta) const;

    /**
     * Takes over other axes and parameters, but keeps the mapping onto the sphere of the ellipsoid that the
     * object was made with. Kept: hosts rely on both halves. Not for an object that other threads use.
     */
    void Precalculate(TEllipsoidSemiAxes const* ellipsoid,
                      TGaussKrugerWideMapProjectionParameters const* parameters);

    TGaussKrugerWideMapProjectionParameters* Parameters; ///< owned

private:
    std::unique_ptr<TEllipsoidToSphereMollweideProjection const>
        Sphere;                    ///< conformal, of scale 1 at the equator
    double RectifyingRadius;       ///< A, metres
    double ForwardSin2Coefficient; ///< alpha1
    double ForwardSin4Coefficient; ///< alpha2
    double ForwardSin6Coefficient; ///< alpha3
    double ReverseSin2Coefficient; ///< beta1
    double ReverseSin4Coefficient; ///< beta2
    double ReverseSin6Coefficient; ///< beta3
};

} // namespace KvRefSystem
