#pragma once

#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** What describes a Gauss-Boaga, whose latitude of origin is the equator; radians and metres. */
struct TGaussBoagaMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TGaussBoagaMapProjectionParameters(double const& centralMeridian, double const& scaleFactor,
                                       double const& falseEasting, double const& falseNorthing);

    double CentralMeridian; ///< lambda0
    double ScaleFactor;     ///< k0, on the central meridian
    double FalseEasting;
    double FalseNorthing;
};

/**
 * Gauss-Boaga: Transverse Mercator [EPSG7-2, 9807] by the closed forms of [CoticchiaSurace78], whose
 * arctangents replace the series; the difference of longitude from the central meridian is wrapped.
 *
 * Good for zones, to centimetres. Within 3 degrees of the central meridian both ways are within 2.5 cm of the
 * exact projection, within 3.5 degrees 3.3 cm, within 5 degrees 10 cm, within 6 degrees 19 cm, within 10
 * degrees 1.5 m; on the meridian itself 15 mm are left by the arc, which ends at e'6. There and back leaves
 * 6.5 mm up to 6 degrees, 0.3 m at 10 (against PROJ, on the earth's ellipsoids, at all latitudes). Further
 * out the result is what the forms give, kilometres off at 60 degrees; 90 degrees away on the equator it is
 * infinite.
 *
 * Kept: forward goes on beyond 90 degrees from the central meridian, where reverse folds back to the near
 * side; hosts rely on the numbers of both.
 */
class TGaussBoagaMapProjection : public TMapProjection {
public:
    /** Neither pointer is kept; neither may be null. */
    TGaussBoagaMapProjection(TEllipsoidSemiAxes const* ellipsoid,
                             TGaussBoagaMapProjectionParameters const* parameters);
    TGaussBoagaMapProjection(TGaussBoagaMapProjection const& source);
    ~TGaussBoagaMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    TGaussBoagaMapProjectionParameters* Parameters; ///< owned

private:
    /** Arc of the meridian from the equator (metres), by the latitude (radians) and its sine and cosine. */
    double MeridianArc(double phi, double s, double c) const;

    double PolarRadius;                   ///< a2 / b, of curvature at the pole, metres
    double SecondEccentricitySquared;     ///< e'2
    double HalfSecondEccentricitySquared; ///< e'2 / 2
    double Alpha;                         ///< of J2 in the arc
    double Beta;                          ///< of J4
    double Gamma;                         ///< of J6
    double ArcPerRadian;                  ///< A0, mean arc of a radian of latitude, metres
};

} // namespace KvRefSystem
