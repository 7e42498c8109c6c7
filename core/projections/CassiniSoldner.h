#pragma once

#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** What defines a Cassini-Soldner projection. A plain record. */
struct TCassiniSoldnerMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TCassiniSoldnerMapProjectionParameters(double const& latitudeOfOrigin, double const& longitudeOfOrigin,
                                           double const& falseEasting, double const& falseNorthing);
    TCassiniSoldnerMapProjectionParameters(TCassiniSoldnerMapProjectionParameters const&) = default;

    double LatitudeOfOrigin;  ///< radians
    double LongitudeOfOrigin; ///< radians
    double FalseEasting;      ///< metres
    double FalseNorthing;     ///< metres
};

/**
 * The Cassini-Soldner projection in its series [EPSG7-2, 9806], [Snyder87, 92-95].
 *
 * Good between 80 S and 80 N: against PROJ 1.2 mm forward and 0.4 mm back within 1 degree of the central
 * meridian, 3 mm and 2 cm within 3 degrees; 10 degrees off the reverse is 6 m away. Farther out the series
 * give numbers that are no map. At the poles the reverse divides by a vanishing cosine.
 *
 * Kept, as hosts rely on these numbers: longitude differences aren't wrapped.
 */
class TCassiniSoldnerMapProjection : public TMapProjection {
public:
    /** @param ellipsoid only read. @param parameters copied. */
    TCassiniSoldnerMapProjection(TEllipsoidSemiAxes const* ellipsoid,
                                 TCassiniSoldnerMapProjectionParameters const* parameters);
    TCassiniSoldnerMapProjection(TCassiniSoldnerMapProjection const& source);
    ~TCassiniSoldnerMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    TCassiniSoldnerMapProjectionParameters* Parameters; ///< owned

private:
    /** M, the length (metres) of the meridian from the equator to a latitude given by its sine and cosine. */
    double MeridianLength(double phi, double sinPhi, double cosPhi) const;

    double SemiMajorAxis;             ///< a, metres
    double SquaredEccentricity;       ///< e2
    double SquaredSecondEccentricity; ///< e'2
    double Arc0;                      ///< of phi in the meridian's length, metres
    double Arc2;                      ///< of sin 2 phi
    double Arc4;                      ///< of sin 4 phi
    double Arc6;                      ///< of sin 6 phi
    double OriginArc;                 ///< M at the origin, metres
    double Footpoint2;                ///< of sin 2 mu in the footpoint latitude
    double Footpoint4;                ///< of sin 4 mu
    double Footpoint6;                ///< of sin 6 mu
    double Footpoint8;                ///< of sin 8 mu
};

} // namespace KvRefSystem
