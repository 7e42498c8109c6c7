#pragma once

#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** What defines a Lambert azimuthal equal-area projection. A plain record. */
struct TLambertAzimuthalEqualAreaMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TLambertAzimuthalEqualAreaMapProjectionParameters(double const& latitudeOfOrigin,
                                                      double const& longitudeOfOrigin,
                                                      double const& falseEasting,
                                                      double const& falseNorthing);
    TLambertAzimuthalEqualAreaMapProjectionParameters(
        TLambertAzimuthalEqualAreaMapProjectionParameters const&) = default;

    double LatitudeOfOrigin;  ///< radians
    double LongitudeOfOrigin; ///< radians
    double FalseEasting;      ///< metres
    double FalseNorthing;     ///< metres
};

/**
 * Lambert's azimuthal equal-area projection of the ellipsoid [EPSG7-2, 9820], [Snyder87, 187-190].
 *
 * Good within 90 degrees of longitude from an origin off the poles, on an ellipsoid: it agrees with PROJ to
 * 1e-7 m, and 0.1 degrees from a pole to 5e-6 m, since the authalic cosine comes from the sine; a round trip
 * closes to 2 mm, as the latitude's series ends with e6. Nearest to a pole a rounded sine above 1, off the
 * map and on a sphere (0 times infinity) the results are not numbers.
 *
 * Kept, as hosts rely on these numbers: with the origin at a pole the map is stretched by 1.0045 along x and
 * shrunk along y, since D is the quotient of two cosines that ought to vanish; there and back still meet.
 *
 * Kept: the reverse of the origin itself is not a number (0 / 0). Kept: the reverse takes an arc tangent for
 * the longitude, so what lies more than 90 degrees of longitude from the origin comes back half a turn off.
 * Kept: longitude differences aren't wrapped.
 */
class TLambertAzimuthalEqualAreaMapProjection : public TMapProjection {
public:
    /** @param ellipsoid only read. @param parameters copied. */
    TLambertAzimuthalEqualAreaMapProjection(
        TEllipsoidSemiAxes const* ellipsoid,
        TLambertAzimuthalEqualAreaMapProjectionParameters const* parameters);
    TLambertAzimuthalEqualAreaMapProjection(TLambertAzimuthalEqualAreaMapProjection const& source);
    ~TLambertAzimuthalEqualAreaMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    TLambertAzimuthalEqualAreaMapProjectionParameters* Parameters; ///< owned

private:
    /** q of a latitude given by its sine. */
    double AuthalicFunction(double sinPhi) const;

    double SemiMajorAxis;           ///< a, metres
    double Eccentricity;            ///< e
    double SquaredEccentricity;     ///< e2
    double SquaredAxisRatio;        ///< 1 - e2
    double HalfInverseEccentricity; ///< 1 / (2 e)
    double Latitude2;               ///< of sin 2 beta in the latitude
    double Latitude4;               ///< of sin 4 beta
    double Latitude6;               ///< of sin 6 beta
    double PoleValue;               ///< q of the pole
    double SinOrigin;               ///< sine of the origin's authalic latitude
    double CosOrigin;
    double AuthalicRadius; ///< Rq, metres
    double Stretch;        ///< D, the scale that makes all directions alike at the origin
};

} // namespace KvRefSystem
