#pragma once

#include "core/projections/MapProjection.h"
#include "core/projections/SkewCylinder.h"

namespace KvRefSystem {

/** Parameters of Hotine's oblique Mercator projection; radians and metres. */
struct THotineObliqueMercatorMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    THotineObliqueMercatorMapProjectionParameters(double const& latitudeOfCentre,
                                                  double const& longitudeOfCentre,
                                                  double const& azimuthOfInitialLine,
                                                  double const& angleRectifiedToSkewGrid,
                                                  double const& scaleFactor, double const& falseEasting,
                                                  double const& falseNorthing);
    THotineObliqueMercatorMapProjectionParameters(
        THotineObliqueMercatorMapProjectionParameters const& source);

    double LatitudeOfCentre;         ///< phic, radians
    double LongitudeOfCentre;        ///< lambdac, radians
    double AzimuthOfInitialLine;     ///< alphac, radians
    double AngleRectifiedToSkewGrid; ///< gammac, radians
    double ScaleFactor;              ///< kc, on the initial line
    double FalseEasting;             ///< at the natural origin, metres
    double FalseNorthing;            ///< at the natural origin, metres
};

/** Parameters of the oblique Mercator projection counted from its centre; radians and metres. */
struct TObliqueMercatorMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TObliqueMercatorMapProjectionParameters(double const& latitudeOfCentre, double const& longitudeOfCentre,
                                            double const& azimuthOfInitialLine,
                                            double const& angleRectifiedToSkewGrid, double const& scaleFactor,
                                            double const& eastingAtCentre, double const& northingAtCentre);
    TObliqueMercatorMapProjectionParameters(TObliqueMercatorMapProjectionParameters const& source);

    double LatitudeOfCentre;         ///< phic, radians
    double LongitudeOfCentre;        ///< lambdac, radians
    double AzimuthOfInitialLine;     ///< alphac, radians
    double AngleRectifiedToSkewGrid; ///< gammac, radians
    double ScaleFactor;              ///< kc, on the initial line
    double EastingAtCentre;          ///< Ec, metres
    double NorthingAtCentre;         ///< Nc, metres
};

/**
 * Hotine's oblique Mercator projection, variant A [EPSG7-2, 9812], [Snyder87, 70-75]: counted from the
 * natural origin, where the initial line crosses the equator of the aposphere.
 *
 * The forward direction is a closed form, within 0.1 micrometres of PROJ's map within 30 degrees of the
 * centre. The series of the way back ends at e^8, as printed, which leaves 14 micrometres at most. The north
 * pole gives NaNs.
 *
 * Kept: the longitude's difference isn't wrapped. Kept: u is an arc tangent that doesn't tell the quadrants:
 * beyond 90 degrees from the natural origin u folds back. Kept: with a centre on the equator the sign of its
 * latitude is 0, and F = D. Kept: the longitude of the natural origin comes from an arc sine. Azimuths near
 * 90 degrees bring its argument near 1, where half of the digits get lost: the map may lie up to 0.3 metres
 * off. Kept: the sine of gamma0 isn't clamped: a centre on the equator with an azimuth of 90 degrees may give
 * NaNs.
 */
class THotineObliqueMercatorMapProjection : public TMapProjection {
public:
    /**
     * @param axes only read. @param parameters copied; null leaves an empty object that only can be
     *        destroyed, copied and compared.
     */
    THotineObliqueMercatorMapProjection(TEllipsoidSemiAxes const* axes,
                                        THotineObliqueMercatorMapProjectionParameters const* parameters);
    THotineObliqueMercatorMapProjection(THotineObliqueMercatorMapProjection const& source);
    ~THotineObliqueMercatorMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    THotineObliqueMercatorMapProjectionParameters* Parameters; ///< owned

private:
    TSkewCylinder Cylinder; ///< constants of the method
};

/**
 * Oblique Mercator projection, variant B [EPSG7-2, 9815], [Snyder87, 70-75]: counted from the centre.
 *
 * Accuracy, domain and quirks as Hotine's, and: Kept: an azimuth of 90 degrees or with a negative cosine
 * takes off the centre's u with the sign of the longitude's side, and u is 0 on the centre's own meridian;
 * the way back always adds it with the sign of the centre's latitude. Azimuths between 90 and 270 degrees
 * therefore don't come back on both sides.
 */
class TObliqueMercatorMapProjection : public TMapProjection {
public:
    /**
     * @param axes only read. @param parameters copied; null leaves an empty object that only can be
     *        destroyed, copied and compared.
     */
    TObliqueMercatorMapProjection(TEllipsoidSemiAxes const* axes,
                                  TObliqueMercatorMapProjectionParameters const* parameters);
    TObliqueMercatorMapProjection(TObliqueMercatorMapProjection const& source);
    ~TObliqueMercatorMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    TObliqueMercatorMapProjectionParameters* Parameters; ///< owned

private:
    TSkewCylinder Cylinder;        ///< constants of the method
    double ApospherePerRadian = 0; ///< A = q B, metres
    double CentreAlong = 0;        ///< uc, metres
    double AzimuthCosine = 0;      ///< cos alphac
};

} // namespace KvRefSystem
