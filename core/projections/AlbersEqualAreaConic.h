#pragma once

#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** Parameters of Albers' equal-area cone; radians and metres. */
struct TAlbersEqualAreaConicMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TAlbersEqualAreaConicMapProjectionParameters(double const& firstStandardParallel,
                                                 double const& secondStandardParallel,
                                                 double const& latitudeOfFalseOrigin,
                                                 double const& longitudeOfFalseOrigin,
                                                 double const& falseEasting, double const& falseNorthing);
    TAlbersEqualAreaConicMapProjectionParameters(TAlbersEqualAreaConicMapProjectionParameters const& source);

    double FirstStandardParallel;  ///< phi1, radians
    double SecondStandardParallel; ///< phi2, radians
    double LatitudeOfFalseOrigin;  ///< phi0, radians
    double LongitudeOfFalseOrigin; ///< lambda0, radians
    double FalseEasting;           ///< easting at the false origin, metres
    double FalseNorthing;          ///< northing at the false origin, metres
};

/**
 * Albers' equal-area cone [EPSG7-2, 9822], [Snyder87, 101-102].
 *
 * The forward direction is a closed form, within 0.1 micrometres of PROJ's map between the pole and 60
 * degrees on the other hemisphere; the longitude's difference is wrapped. The series of the way back ends at
 * e^6, as printed, which leaves 1.7 millimetres at most. The poles are arcs; what lies outside of the ring
 * between them comes back as NaN.
 *
 * Kept: with southern parallels (n < 0) the reverse takes atan2 as it comes: the longitude is pi / n off.
 * Kept: nothing is checked. A sphere (e = 0), equal parallels and opposite parallels have no finite
 * constants, and their results aren't numbers.
 */
class TAlbersEqualAreaConicMapProjection : public TMapProjection {
public:
    /**
     * @param axes only read. @param parameters copied; null leaves an empty object that only can be
     *        destroyed, copied and compared.
     */
    TAlbersEqualAreaConicMapProjection(TEllipsoidSemiAxes const* axes,
                                       TAlbersEqualAreaConicMapProjectionParameters const* parameters);
    TAlbersEqualAreaConicMapProjection(TAlbersEqualAreaConicMapProjection const& source);
    ~TAlbersEqualAreaConicMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    TAlbersEqualAreaConicMapProjectionParameters* Parameters; ///< owned

private:
    double SemiMajorAxis = 0;               ///< a, metres
    double SemiMajorAxisSquared = 0;        ///< a2, square metres
    double Eccentricity = 0;                ///< e
    double OneMinusEccentricitySquared = 0; ///< 1 - e2
    double PolarQ = 0;                      ///< q at the pole
    double ConeConstant = 0;                ///< n
    double AreaConstant = 0;                ///< C
    double OriginRadius = 0;                ///< rho0, metres
    double ConeConstantSquared = 0;         ///< n2
    double LatitudeSin2 = 0;                ///< of sin 2 beta in the latitude from the authalic one
    double LatitudeSin4 = 0;                ///< of sin 4 beta
    double LatitudeSin6 = 0;                ///< of sin 6 beta

    double AuthalicQ(double latitude) const;
    double Radius(double latitude) const;
};

} // namespace KvRefSystem
