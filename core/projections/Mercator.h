#pragma once

#include "core/projections/ConformalLatitude.h"
#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** Parameters of the Mercator projection given by a standard parallel; radians and metres. */
struct TMercator2SPMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TMercator2SPMapProjectionParameters(double const& firstStandardParallel, double const& longitudeOfOrigin,
                                        double const& falseEasting, double const& falseNorthing);
    TMercator2SPMapProjectionParameters(TMercator2SPMapProjectionParameters const& source);

    double FirstStandardParallel; ///< phi1, radians
    double LongitudeOfOrigin;     ///< lambda0, radians
    double FalseEasting;          ///< metres
    double FalseNorthing;         ///< metres
};

/** Parameters of the Mercator projection given by its scale on the equator; radians and metres. */
struct TMercator1SPMapProjectionParameters {
    /** The scale comes third here and is stored last. */
    TMercator1SPMapProjectionParameters(double const& latitudeOfOrigin, double const& longitudeOfOrigin,
                                        double const& scaleFactor, double const& falseEasting,
                                        double const& falseNorthing);
    TMercator1SPMapProjectionParameters(TMercator1SPMapProjectionParameters const& source);

    double LatitudeOfOrigin;  ///< phi0, radians; carried and never read
    double LongitudeOfOrigin; ///< lambda0, radians
    double FalseEasting;      ///< metres
    double FalseNorthing;     ///< metres
    double ScaleFactor;       ///< k0, on the equator
};

/**
 * Mercator projection of the ellipsoid, one standard parallel on either side of the equator [EPSG7-2, 9805],
 * [Snyder87, 44-45].
 *
 * The forward direction is a closed form, within 0.1 micrometres of PROJ's map as far as 89 degrees of
 * latitude. The series of the way back ends at e^8, as printed, which leaves 14 micrometres at most.
 *
 * Kept: the longitude's difference isn't wrapped, so the map goes on beyond the antimeridian of the central
 * meridian. Kept: the north pole lies where the tangent of pi/2 in doubles puts it, 37.3 R from the equator;
 * the south pole at -inf.
 */
class TMercator2SPMapProjection : public TMapProjection {
public:
    /** @param axes only read. @param parameters copied; null sets the type and leaves the rest at 0. */
    TMercator2SPMapProjection(TEllipsoidSemiAxes const* axes,
                              TMercator2SPMapProjectionParameters const* parameters);
    TMercator2SPMapProjection(TMercator2SPMapProjection const& source);
    ~TMercator2SPMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    TMercator2SPMapProjectionParameters* Parameters; ///< owned; null in the form with a scale

protected:
    /** The constants that depend on the ellipsoid's shape alone. */
    void SetEccentricity(TEllipsoidSemiAxes const& axes);

    double Eccentricity = 0;                      ///< e
    double HalfEccentricity = 0;                  ///< e/2
    TConformalLatitudeSeries LatitudeSeries{0.0}; ///< A, B, C, D
    double Radius = 0;                            ///< R, of the equator on the map, metres
    double CentralMeridian = 0;                   ///< lambda0 of either record, radians
    double OriginEasting = 0;                     ///< FE of either record, metres
    double OriginNorthing = 0;                    ///< FN of either record, metres
};

/**
 * Mercator projection of the ellipsoid with a scale on the equator [EPSG7-2, 9804]; accuracy and quirks as
 * with a standard parallel.
 *
 * Kept: the equator is the origin whatever the latitude of origin says. Kept: the scale factor doesn't take
 * part in comparisons.
 */
class TMercator1SPMapProjection : public TMercator2SPMapProjection {
public:
    /** @param axes only read. @param parameters copied; null as in the base. */
    TMercator1SPMapProjection(TEllipsoidSemiAxes const* axes,
                              TMercator1SPMapProjectionParameters const* parameters);
    TMercator1SPMapProjection(TMercator1SPMapProjection const& source);
    ~TMercator1SPMapProjection() override;

    bool operator==(TMapProjection const& other) const override;

    TMercator1SPMapProjectionParameters* Parameters; ///< owned
};

} // namespace KvRefSystem
