#pragma once

#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** What describes a Transverse Mercator; angles in radians, lengths in metres. */
struct TTransverseMercatorMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TTransverseMercatorMapProjectionParameters(double const& centralMeridian, double const& latitudeOfOrigin,
                                               double const& scaleFactor, double const& falseEasting,
                                               double const& falseNorthing);

    double CentralMeridian;  ///< lambda0
    double LatitudeOfOrigin; ///< phi0
    double ScaleFactor;      ///< k0, on the central meridian
    double FalseEasting;
    double FalseNorthing;
};

/**
 * Transverse Mercator [EPSG7-2, 9807] by Snyder's series [Snyder87, 60-64]; the difference of longitude from
 * the central meridian is wrapped.
 *
 * Good for zones. Within 3 degrees of the central meridian forward is within 1.1 mm of the exact projection
 * and reverse within 0.5 mm, within 5 degrees 4 mm and 14 mm, within 6 degrees 13 mm and 5 cm, within 10
 * degrees 0.5 m and 2 m; there and back leaves 1 mm at 3 degrees, 14 mm at 5 (against PROJ, on the earth's
 * ellipsoids, at all latitudes to 89.9 degrees). The millimetre is the meridian's arc, which ends at e6 in
 * one direction. Further out the result is what the series gives, kilometres off at 40 degrees. At the poles
 * themselves, where the cosine is divided by, forward gives NaNs.
 */
class TTransverseMercatorMapProjection : public TMapProjection {
public:
    /** Neither pointer is kept; neither may be null. */
    TTransverseMercatorMapProjection(TEllipsoidSemiAxes const* ellipsoid,
                                     TTransverseMercatorMapProjectionParameters const* parameters);
    TTransverseMercatorMapProjection(TTransverseMercatorMapProjection const& source);
    ~TTransverseMercatorMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    TTransverseMercatorMapProjectionParameters* Parameters; ///< owned

private:
    /** Arc of the meridian from the equator (metres), by the latitude (radians) and its sine and cosine. */
    double MeridianArc(double phi, double s, double c) const;

    double SemiMajorAxis;             ///< a, metres
    double EccentricitySquared;       ///< e2
    double SecondEccentricitySquared; ///< e'2
    double MeridionalNumerator;       ///< a (1 - e2), of the radius of curvature in the meridian, metres
    double ArcPerRadian;              ///< c0, metres
    double ArcSin2Coefficient;        ///< c1, metres
    double ArcSin4Coefficient;        ///< c2, metres
    double ArcSin6Coefficient;        ///< c3, metres
    double ArcOfOrigin;               ///< M0, metres
    double FootpointSin2Coefficient;  ///< j1
    double FootpointSin4Coefficient;  ///< j2
    double FootpointSin6Coefficient;  ///< j3
    double FootpointSin8Coefficient;  ///< j4
};

} // namespace KvRefSystem
