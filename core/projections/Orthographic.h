#pragma once

#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** What defines an orthographic projection. A plain record. */
struct TOrthographicMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TOrthographicMapProjectionParameters(double const& latitudeOfOrigin, double const& longitudeOfOrigin,
                                         double const& falseEasting, double const& falseNorthing);
    TOrthographicMapProjectionParameters(TOrthographicMapProjectionParameters const&) = default;

    double LatitudeOfOrigin;  ///< radians
    double LongitudeOfOrigin; ///< radians
    double FalseEasting;      ///< metres
    double FalseNorthing;     ///< metres
};

/**
 * The orthographic projection of the ellipsoid [EPSG7-2, 9840]: the ellipsoid seen from infinity above the
 * origin.
 *
 * Good within 65 degrees of the origin on this side of the poles, where it agrees with PROJ to 5e-9 m
 * forward; the reverse leaves up to 6.4e-6 m in each coordinate, more towards the horizon, where the map has
 * no depth. Beyond the horizon there is no place to find, and with an origin at a pole the reverse starts
 * where the Jacobian is singular: values without meaning come back.
 *
 * Kept: seen over a pole, the reverse arrives at a latitude beyond it, which is cut at the pole; the
 * longitude is then that of the near side.
 *
 * Kept, as hosts rely on these numbers: the last step of the reverse, the one within the tolerance, isn't
 * applied; when 100 passes don't suffice the latest values stand. Kept: longitude differences aren't wrapped,
 * and the far half is projected too.
 */
class TOrthographicMapProjection : public TMapProjection {
public:
    /** @param ellipsoid only read. @param parameters copied. */
    TOrthographicMapProjection(TEllipsoidSemiAxes const* ellipsoid,
                               TOrthographicMapProjectionParameters const* parameters);
    TOrthographicMapProjection(TOrthographicMapProjection const& source);
    ~TOrthographicMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    /**
     * The same easting and northing with their derivatives.
     *
     * @param phi latitude, radians. @param lambda longitude, radians.
     * @param easting, northing results, metres.
     * @param jacobian four results, metres a radian: easting by latitude, easting by longitude, northing by
     *        latitude, northing by longitude; null when they aren't wanted.
     */
    void GeodeticToProjected(double const& phi, double const& lambda, double* easting, double* northing,
                             double* jacobian) const;

    TOrthographicMapProjectionParameters* Parameters; ///< owned

private:
    /** The projection and, unless it is null, its Jacobian from the sines and cosines. */
    void Project(double sinPhi, double cosPhi, double sinDifference, double cosDifference, double* easting,
                 double* northing, double* jacobian) const;

    double Tolerance;           ///< steps of the reverse that end it, radians
    int MaxIterations;          ///< most passes of the reverse
    double SemiMajorAxis;       ///< a, metres
    double SquaredEccentricity; ///< e2
    double SquaredAxisRatio;    ///< 1 - e2
    double SinOrigin;           ///< of the latitude of origin
    double CosOrigin;
    double OriginRadius; ///< nu 0, in the prime vertical at the origin, metres
};

} // namespace KvRefSystem
