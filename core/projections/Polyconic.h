#pragma once

#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** What defines a polyconic projection. A plain record. */
struct TPolyconicMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TPolyconicMapProjectionParameters(double const& longitudeOfOrigin, double const& latitudeOfOrigin,
                                      double const& scaleFactor, double const& falseEasting,
                                      double const& falseNorthing);
    TPolyconicMapProjectionParameters(TPolyconicMapProjectionParameters const&) = default;

    double LongitudeOfOrigin; ///< radians
    double LatitudeOfOrigin;  ///< radians
    double ScaleFactor;       ///< k0
    double FalseEasting;      ///< metres
    double FalseNorthing;     ///< metres
};

/**
 * The American polyconic projection on the ellipsoid [Snyder87, 129-131], [EPSG7-2, 9818], with a scale
 * factor.
 *
 * Good between 80 S and 80 N and within 60 degrees of the central meridian: against PROJ 0.1 mm to 35 degrees
 * of latitude and 1.1 mm beyond, as the meridian's series ends with e6; a round trip closes to 0.1 mm, but
 * within 1e-4 degrees of the equator only to 2 mm and nearest to it to 0.6 m. Much farther from the central
 * meridian the reverse's iteration goes elsewhere; after 20 passes its latest value stands, and the
 * longitude's arc sine is clamped.
 *
 * Kept, as hosts rely on these numbers: on the equator (latitudes under 1e-7 radians) the northing is -M0 in
 * semi-major axes instead of metres; with the origin on the equator, as in practice, that is 0. Kept: the
 * reverse's longitude comes from the last pass's start, and a northing within 1e-7 semi-major axes of the
 * equator gives the latitude 0.
 */
class TPolyconicMapProjection : public TMapProjection {
public:
    /** @param ellipsoid only read. @param parameters copied. */
    TPolyconicMapProjection(TEllipsoidSemiAxes const* ellipsoid,
                            TPolyconicMapProjectionParameters const* parameters);
    TPolyconicMapProjection(TPolyconicMapProjection const& source);
    ~TPolyconicMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    TPolyconicMapProjectionParameters* Parameters; ///< owned

private:
    /** Length of the meridian from the equator to `phi` (radians), in semi-major axes. */
    double meridian_length(double phi) const;

    /** Its derivative. */
    double dmeridian_length_dphi(double phi) const;

    /** The same two where the latitude's sine and cosine are at hand. */
    double MeridianLength(double phi, double sinPhi, double cosPhi) const;
    double MeridianLengthDerivative(double sinPhi, double cosPhi) const;

    double SemiMajorAxis;       ///< a, metres
    double SemiMinorAxis;       ///< b, metres
    double SquaredEccentricity; ///< e2
    double FourthEccentricity;  ///< e4
    double SixthEccentricity;   ///< e6
    double Arc0;                ///< of phi in the meridian's length
    double Arc2;                ///< of -sin 2 phi
    double Arc4;                ///< of sin 4 phi
    double Arc6;                ///< of -sin 6 phi
    double OriginArc;           ///< M0, in semi-major axes
};

} // namespace KvRefSystem
