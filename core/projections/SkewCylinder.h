#pragma once

#include "core/projections/ConformalLatitude.h"
#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** Where the initial line of a skew cylinder lies; radians. */
struct TSkewCylinderPlace {
    double LatitudeOfCentre;         ///< phic
    double LongitudeOfCentre;        ///< lambdac
    double AzimuthOfInitialLine;     ///< alphac
    double AngleRectifiedToSkewGrid; ///< gammac
    double ScaleFactorOnInitialLine; ///< kc, a ratio
};

/** Coordinates along the initial line and across it, metres. */
struct TSkewCoordinates {
    double Along;  ///< u
    double Across; ///< v
};

/**
 * What the two skew cylinders share [EPSG7-2, 9812, 9815], [Snyder87, 70-75]: constants of the method's order
 * and the way between longitude, latitude and u, v; u is counted from the natural origin, where the initial
 * line crosses the equator of the aposphere.
 */
class TSkewCylinder {
public:
    /** All 0. */
    TSkewCylinder() = default;

    /** @param axes, place only read. */
    TSkewCylinder(TEllipsoidSemiAxes const& axes, TSkewCylinderPlace const& place);

    /** @param longitude, latitude radians. The arc tangent of u doesn't tell the quadrants (kept). */
    TSkewCoordinates Forward(double longitude, double latitude) const;

    /** @param coords gets longitude and latitude (radians), normalised. */
    void Reverse(TSkewCoordinates const& skew, TCoords* coords) const;

    /** u and v to easting and northing, the false ones added (metres). */
    void Rectify(TSkewCoordinates const& skew, double falseEasting, double falseNorthing,
                 TCoords* coords) const;

    /** Easting and northing without the false ones to u and v (metres). */
    TSkewCoordinates Unrectify(double easting, double northing) const;

    double Eccentricity{};                        ///< e
    double HalfEccentricity{};                    ///< e/2
    TConformalLatitudeSeries LatitudeSeries{0.0}; ///< c2, c4, c6, c8
    double CentreSine{};                          ///< s
    double AposphereConstant{};                   ///< B
    double AposphereRadius{};                     ///< q = A/B, metres
    double CentreT{};                             ///< t0
    double CentreD{};                             ///< D
    double CentreRoot{};                          ///< sqrt(D2 - 1), 0 for a D below 1
    double CentreSign{};                          ///< sigma: 1, -1 or 0
    double CentreF{};                             ///< F
    double ScaleH{};                              ///< H
    double InitialAngle{};                        ///< gamma0, radians
    double CentreG{};                             ///< G
    double NaturalLongitude{};                    ///< lambda0, radians
    double InitialSine{};                         ///< sin gamma0
    double InitialCosine{};                       ///< cos gamma0
    double RectifyingSine{};                      ///< sin gammac
    double RectifyingCosine{};                    ///< cos gammac
};

} // namespace KvRefSystem
