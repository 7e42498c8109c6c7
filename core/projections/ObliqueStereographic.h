#pragma once

#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** Parameters of the oblique stereographic; radians and metres. */
struct TObliqueStereographicMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TObliqueStereographicMapProjectionParameters(double const& longitudeOfOrigin,
                                                 double const& latitudeOfOrigin, double const& scaleFactor,
                                                 double const& falseEasting, double const& falseNorthing);

    double LongitudeOfOrigin;
    double LatitudeOfOrigin;
    double ScaleFactor;
    double FalseEasting;
    double FalseNorthing;
};

/**
 * Oblique Stereographic, the double projection over a conformal sphere [EPSG7-2, 9809].
 *
 * Good for the whole ellipsoid but the poles and the point opposite to the origin. Forward is the closed
 * relation, within 1e-8 m of it up to 3000 km from the origin; reverse stops its iteration by a step of 1e-9
 * radians, the last of which leaves nothing but rounding. Near a pole 1 - sin(latitude) loses digits, on the
 * ground 1e-6 m at 10 km from it, 1e-5 m at one kilometre, 6 mm in the last metre.
 *
 * The north pole and its last decimetre are not a number, forward; the south pole is a point like others. The
 * way back is not a number at both. An origin at a pole gives nothing but such numbers: take a polar class.
 */
class TObliqueStereographicMapProjection : public TMapProjection {
public:
    /** Reads both only while it builds. */
    TObliqueStereographicMapProjection(TEllipsoidSemiAxes const* semiAxes,
                                       TObliqueStereographicMapProjectionParameters const* parameters);
    TObliqueStereographicMapProjection(TObliqueStereographicMapProjection const& source);
    ~TObliqueStereographicMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    TObliqueStereographicMapProjectionParameters* Parameters; ///< owned

private:
    double SemiMajorAxis;        ///< metres
    double SemiMinorAxis;        ///< metres
    double Eccentricity;         ///< first eccentricity
    double SquaredEccentricity;  ///< its square
    double SphereRadius;         ///< radius of the conformal sphere, metres
    double LongitudeRatio;       ///< longitude on the sphere over that on the ellipsoid
    double SphereConstant;       ///< factor of the latitude relation
    double SphereLatitude;       ///< latitude of the origin on the sphere, radians
    double SinSphereLatitude;    ///< its sine
    double CosSphereLatitude;    ///< its cosine
    double MapDiameter;          ///< twice the sphere's radius times the scale factor, metres
    double ReverseOriginShift;   ///< "g" of the method, metres
    double ReverseAntipodeShift; ///< "h" of the method, metres
};

} // namespace KvRefSystem
