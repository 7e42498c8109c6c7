#pragma once

#include "core/projections/ConformalLatitude.h"
#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** What the polar stereographic classes compute from the ellipsoid and the parameters. */
struct TPolarStereographicConstants {
    /** All but `InverseRadiusFactor`, which each class fills in its own way. */
    explicit TPolarStereographicConstants(TEllipsoidSemiAxes const& semiAxes);

    double SemiMajorAxis;            ///< metres
    double SemiMinorAxis;            ///< metres
    double Eccentricity;             ///< first eccentricity
    double HalfEccentricity;         ///< its half
    TConformalLatitudeSeries Series; ///< conformal to geodetic latitude
    double InverseRadiusFactor;      ///< t over the radius on the map, 1/metres
};

/** Parameters of the older polar stereographic; radians and metres. */
struct TPolarStereographicMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TPolarStereographicMapProjectionParameters(double const& longitudeOfOrigin,
                                               double const& latitudeOfOrigin, double const& scaleFactor,
                                               double const& falseEasting, double const& falseNorthing);

    double LongitudeOfOrigin;
    double LatitudeOfOrigin; ///< carried, never read
    double ScaleFactor;
    double FalseEasting;
    double FalseNorthing;
};

/** Parameters of the polar stereographic by its scale at the pole; radians and metres. */
struct TPolarStereographicBasicMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TPolarStereographicBasicMapProjectionParameters(TPole pole, double const& longitudeOfOrigin,
                                                    double const& scaleFactor, double const& falseEasting,
                                                    double const& falseNorthing);

    TPole Pole;
    double LongitudeOfOrigin;
    double ScaleFactor; ///< at the pole
    double FalseEasting;
    double FalseNorthing;
};

/** Parameters of the polar stereographic by its standard parallel; radians and metres. */
struct TPolarStereographicNaturalOriginMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TPolarStereographicNaturalOriginMapProjectionParameters(TPole pole,
                                                            double const& latitudeOfStandardParallel,
                                                            double const& longitudeOfOrigin,
                                                            double const& falseEasting,
                                                            double const& falseNorthing);

    /** All five fields are exactly equal. */
    bool operator==(TPolarStereographicNaturalOriginMapProjectionParameters const& other) const;

    TPole Pole;
    double LatitudeOfStandardParallel; ///< negative in the south
    double LongitudeOfOrigin;
    double FalseEasting;
    double FalseNorthing;
};

/** Parameters of the polar stereographic by its false origin; radians and metres. */
struct TPolarStereographicFalseOriginMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TPolarStereographicFalseOriginMapProjectionParameters(TPole pole,
                                                          double const& latitudeOfStandardParallel,
                                                          double const& longitudeOfOrigin,
                                                          double const& falseEasting,
                                                          double const& falseNorthing);

    /** All five fields are exactly equal. */
    bool operator==(TPolarStereographicFalseOriginMapProjectionParameters const& other) const;

    TPole Pole;
    double LatitudeOfStandardParallel; ///< negative in the south
    double LongitudeOfOrigin;
    double FalseEasting;  ///< easting of the pole
    double FalseNorthing; ///< northing of the pole
};

/**
 * Polar Stereographic on the north pole by its scale there [EPSG7-2, 9810], [Snyder87, 160-162]: the older
 * class of `TPolarStereographicBasicMapProjection`. The domain, the bounds and the behaviour outside of it
 * are those of that class.
 *
 * Kept: the latitude of origin is carried and never read, the pole is the north one whatever it says;
 * descriptions of the south written with this class come out as they always have.
 * Kept: on the meridian through the pole the longitude is what the arctangent gives, so the pole itself
 * comes back on the meridian opposite to that of the origin; hosts rely on it.
 * Kept: the difference of longitudes isn't wrapped.
 */
class TPolarStereographicMapProjection : public TMapProjection {
public:
    /** Reads both only while it builds. */
    TPolarStereographicMapProjection(TEllipsoidSemiAxes const* semiAxes,
                                     TPolarStereographicMapProjectionParameters const* parameters);
    TPolarStereographicMapProjection(TPolarStereographicMapProjection const& source);
    ~TPolarStereographicMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    TPolarStereographicMapProjectionParameters* Parameters; ///< owned

private:
    TPolarStereographicConstants Constants;
};

/**
 * Polar Stereographic, variant A, on either pole by the scale there [EPSG7-2, 9810], [Snyder87, 160-162].
 *
 * Good for the whole ellipsoid but the opposite pole. Forward is the closed relation; reverse is the series
 * to e^8: within 1.1e-6 m of it on the ground up to 30 degrees from the pole, within 1.4e-5 m everywhere. The
 * opposite pole comes out as the large radius that the tangent of a double nearest to a right angle gives.
 *
 * Kept: the constructor takes any pole; one that is neither north nor south is refused at the first
 * coordinate, which then stays as it was. Hosts build first and ask later. Kept: an easting that is exactly
 * the false easting comes back on the longitude of origin, beyond the pole too (half a turn from where it
 * came from). Kept: the difference of longitudes isn't wrapped.
 */
class TPolarStereographicBasicMapProjection : public TMapProjection {
public:
    /** Reads both only while it builds. */
    TPolarStereographicBasicMapProjection(TEllipsoidSemiAxes const* semiAxes,
                                          TPolarStereographicBasicMapProjectionParameters const* parameters);
    TPolarStereographicBasicMapProjection(TPolarStereographicBasicMapProjection const& source);
    ~TPolarStereographicBasicMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    /** @throws std::logic_error for a bad pole. */
    void ProjectedToGeodetic(TCoords* coords) const override;
    /** @throws std::logic_error for a bad pole. */
    void GeodeticToProjected(TCoords* coords) const override;

    TPolarStereographicBasicMapProjectionParameters* Parameters; ///< owned

private:
    TPolarStereographicConstants Constants;
};

/**
 * Polar Stereographic, variant B, on either pole by the parallel that keeps its length [EPSG7-2, 9829],
 * [Snyder87, 160-162].
 *
 * The domain, the bounds and the behaviour outside of it are those of
 * `TPolarStereographicBasicMapProjection`, and so are its rules for the longitude. A standard parallel at the
 * pole itself divides zero by zero: all results are then not a number (there the scale is known: take the
 * basic class).
 */
class TPolarStereographicNaturalOriginMapProjection : public TMapProjection {
public:
    /** Reads both only while it builds. @throws std::logic_error for a bad pole. */
    TPolarStereographicNaturalOriginMapProjection(
        TEllipsoidSemiAxes const* semiAxes,
        TPolarStereographicNaturalOriginMapProjectionParameters const* parameters);
    TPolarStereographicNaturalOriginMapProjection(
        TPolarStereographicNaturalOriginMapProjection const& source);
    ~TPolarStereographicNaturalOriginMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    /** @throws std::logic_error for a bad pole. */
    void ProjectedToGeodetic(TCoords* coords) const override;
    /** @throws std::logic_error for a bad pole. */
    void GeodeticToProjected(TCoords* coords) const override;

    TPolarStereographicNaturalOriginMapProjectionParameters* Parameters; ///< owned

private:
    TPolarStereographicConstants Constants;
};

/**
 * Polar Stereographic, variant C, without its offset, on either pole by the parallel that keeps its length
 * [EPSG7-2, 9830].
 *
 * The domain, the bounds and the behaviour outside of it are those of
 * `TPolarStereographicNaturalOriginMapProjection`.
 *
 * Kept: the radius of the standard parallel isn't taken off the northing, so false easting and northing are
 * those of the pole and not, as in the published variant, those of the point where the longitude of origin
 * meets the parallel. Descriptions give them that way.
 */
class TPolarStereographicFalseOriginMapProjection : public TMapProjection {
public:
    /** Reads both only while it builds. @throws std::logic_error for a bad pole. */
    TPolarStereographicFalseOriginMapProjection(
        TEllipsoidSemiAxes const* semiAxes,
        TPolarStereographicFalseOriginMapProjectionParameters const* parameters);
    TPolarStereographicFalseOriginMapProjection(TPolarStereographicFalseOriginMapProjection const& source);
    ~TPolarStereographicFalseOriginMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    /** @throws std::logic_error for a bad pole. */
    void ProjectedToGeodetic(TCoords* coords) const override;
    /** @throws std::logic_error for a bad pole. */
    void GeodeticToProjected(TCoords* coords) const override;

    TPolarStereographicFalseOriginMapProjectionParameters* Parameters; ///< owned

private:
    TPolarStereographicConstants Constants;
    double RadiusOfStandardParallel; ///< metres; no operation reads it
};

} // namespace KvRefSystem
