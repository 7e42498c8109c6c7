#pragma once

#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** What defines a Krovak projection. A plain record. */
struct TKrovakMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TKrovakMapProjectionParameters(double const& latitudeOfCentre, double const& longitudeOfOrigin,
                                   double const& azimuthOfInitialLine,
                                   double const& latitudeOfPseudoStandardParallel, double const& scaleFactor,
                                   double const& falseEasting, double const& falseNorthing);
    TKrovakMapProjectionParameters(TKrovakMapProjectionParameters const&) = default;

    double LatitudeOfCentre;                 ///< phi c, radians
    double LongitudeOfOrigin;                ///< lambda 0, radians
    double AzimuthOfInitialLine;             ///< alpha c, the co-latitude of the cone's axis, radians
    double LatitudeOfPseudoStandardParallel; ///< phi p, radians
    double ScaleFactor;                      ///< k on the pseudo standard parallel
    double FalseEasting;                     ///< metres
    double FalseNorthing;                    ///< metres
};

/**
 * Krovak's oblique conformal cone of Czechia and Slovakia [EPSG7-2, 9819] with its axes turned to east and
 * north: easting = -(r sin theta + false easting), northing = -(r cos theta + false northing), both negative
 * there.
 *
 * Good within 90 degrees of oblique longitude, that is, south of the cone's axis (59.8 N, 24.8 E with the
 * national parameters): forward 1e-8 m in both countries against 40 digits and 3e-6 m against PROJ, whose
 * constants are rounded; the iteration of the latitude leaves up to 1e-6 m in the reverse. The oblique
 * longitude is an arc sine: near 90 degrees it loses half of its digits (0.3 mm), and behind the axis it
 * folds over: places there share their coordinates with places in front of it.
 *
 * Kept, as hosts rely on these numbers: the reverse subtracts the false values although the forward adds them
 * before it turns the sign, so a Krovak with false values other than 0 doesn't invert. Kept: longitude
 * differences aren't wrapped; arguments of the arc sines aren't clamped; the latitude's iteration ends after
 * 30 passes with its latest value.
 */
class TKrovakMapProjection : public TMapProjection {
public:
    /** @param ellipsoid only read. @param parameters copied. */
    TKrovakMapProjection(TEllipsoidSemiAxes const* ellipsoid,
                         TKrovakMapProjectionParameters const* parameters);
    TKrovakMapProjection(TKrovakMapProjection const& source);
    ~TKrovakMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    TKrovakMapProjectionParameters* Parameters; ///< owned

private:
    double Eccentricity;
    double HalfEccentricity;
    double LongitudeRatio; ///< B, of longitudes on the conformal sphere to those on the ellipsoid
    double SphereConstant; ///< t0
    double ConeConstant;   ///< n
    double ConeRadius;     ///< r0, of the pseudo standard parallel on the plane, metres
    double ConeTangent;    ///< tan(phi p / 2 + pi / 4)
    double SinAzimuth;
    double CosAzimuth;
};

} // namespace KvRefSystem
