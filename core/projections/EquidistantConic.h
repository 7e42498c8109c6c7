#pragma once

#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** Parameters of the equidistant cone; radians and metres. */
struct TEquidistantConicMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TEquidistantConicMapProjectionParameters(double const& firstStandardParallel,
                                             double const& secondStandardParallel,
                                             double const& latitudeOfOrigin, double const& longitudeOfOrigin,
                                             double const& falseEasting, double const& falseNorthing);
    TEquidistantConicMapProjectionParameters(TEquidistantConicMapProjectionParameters const& source);

    double FirstStandardParallel;  ///< phi1, radians
    double SecondStandardParallel; ///< phi2, radians
    double LatitudeOfOrigin;       ///< phi0, radians
    double LongitudeOfOrigin;      ///< lambda0, radians
    double FalseEasting;           ///< metres
    double FalseNorthing;          ///< metres
};

/**
 * Equidistant cone [EPSG7-2, 1119], [Snyder87, 113-114].
 *
 * The series of the meridian's arc ends at e^6, as printed. The map is within 1.5 millimetres of PROJ's
 * within 40 degrees of the origin and within 7 millimetres as far as 60 degrees on the other hemisphere
 * (parallels that lie close together lose most), the way back within 1 and 3 millimetres of it. A round trip
 * leaves less than 1 millimetre.
 *
 * Kept: the longitude's difference isn't wrapped, so a point beyond the antimeridian of the central meridian
 * lies on the cone's next turn. Kept: the reverse angle is atan(x'/s), so more than a right angle from the
 * central meridian on the map the longitude comes out pi / n off; the apex has a NaN. Kept: nothing is
 * checked. Equal and opposite parallels have no finite constants, and their results aren't numbers.
 */
class TEquidistantConicMapProjection : public TMapProjection {
public:
    /**
     * @param axes only read. @param parameters copied; null leaves an empty object that only can be
     *        destroyed, copied and compared.
     */
    TEquidistantConicMapProjection(TEllipsoidSemiAxes const* axes,
                                   TEquidistantConicMapProjectionParameters const* parameters);
    TEquidistantConicMapProjection(TEquidistantConicMapProjection const& source);
    ~TEquidistantConicMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    TEquidistantConicMapProjectionParameters* Parameters; ///< owned

private:
    double SemiMajorAxis = 0;        ///< a, metres
    double EccentricitySquared = 0;  ///< e2
    double ThirdFlattening = 0;      ///< e1 = (1 - sqrt(1 - e2)) / (1 + sqrt(1 - e2))
    double ThirdFlatteningPow2 = 0;  ///< e1 to the second power
    double ThirdFlatteningPow3 = 0;  ///< e1 to the third power
    double ThirdFlatteningPow4 = 0;  ///< e1 to the fourth power
    double ArcLatitude = 0;          ///< of the latitude in the arc, metres
    double ArcSin2 = 0;              ///< of sin 2 phi, metres
    double ArcSin4 = 0;              ///< of sin 4 phi, metres
    double ArcSin6 = 0;              ///< of sin 6 phi, metres
    double OriginArc = 0;            ///< M0, metres
    double FirstArc = 0;             ///< M1, metres
    double SecondArc = 0;            ///< M2, metres
    double FirstParallelRadius = 0;  ///< m1, in a
    double SecondParallelRadius = 0; ///< m2, in a
    double ConeConstant = 0;         ///< n
    double ApexArc = 0;              ///< G, metres
    double OriginRadius = 0;         ///< rho0, metres
    double ConeSign = 0;             ///< of n: 1 above 0, otherwise -1
    double FootpointSin2 = 0;        ///< of sin 2 mu in the latitude from the rectifying one
    double FootpointSin4 = 0;        ///< of sin 4 mu
    double FootpointSin6 = 0;        ///< of sin 6 mu
    double FootpointSin8 = 0;        ///< of sin 8 mu

    /** M, the arc of the meridian from the equator (metres) to a latitude (radians). */
    double calc_M(double const& latitude) const;

    /** m, the radius of a parallel (over a) at a latitude (radians). */
    double calc_m(double const& latitude) const;
};

} // namespace KvRefSystem
