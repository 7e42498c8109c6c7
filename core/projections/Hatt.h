#pragma once

#include "core/projections/MapProjection.h"

#include <array>

namespace KvRefSystem {

/** What defines a Hatt projection. A plain record. */
struct THattMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    THattMapProjectionParameters(double const& latitudeOfOrigin, double const& longitudeOfOrigin);
    THattMapProjectionParameters(THattMapProjectionParameters const&) = default;

    double LatitudeOfOrigin;  ///< radians
    double LongitudeOfOrigin; ///< radians
};

/**
 * The azimuthal equidistant projection around the origin as the power series of Hatt, to the fourth degree,
 * as the Greek maps use it; neither false values nor a scale.
 *
 * Made for sheets around the origin: against geodesics (PROJ's azimuthal equidistant) 0.03 mm forward within
 * a quarter of a degree and 0.3 mm within half a degree; 3 cm within 2 degrees. The reverse is 2.2 mm, 18 mm
 * and 1.3 m away, and round trips close to the same. Farther out the series give numbers that are no map. An
 * origin at a pole has no longitudes: the reverse divides by its cosine.
 *
 * Kept, as hosts rely on these numbers: the ellipsoid's share of the reverse's cubic terms isn't the inverse
 * of the forward's, which is what leaves the millimetres. Kept: longitude differences aren't wrapped.
 */
class THattMapProjection : public TMapProjection {
public:
    /** @param ellipsoid only read. @param parameters copied. */
    THattMapProjection(TEllipsoidSemiAxes const* ellipsoid, THattMapProjectionParameters const* parameters);
    THattMapProjection(THattMapProjection const& source);
    ~THattMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    THattMapProjectionParameters* Parameters; ///< owned

private:
    std::array<double, 5> EastingTerms;   ///< dL, dL dP, dL dP2, dL3, dL3 dP
    std::array<double, 7> NorthingTerms;  ///< dP, dL2, dP2, dL2 dP, dP3, dL4, dL2 dP2
    std::array<double, 7> LatitudeTerms;  ///< y, x2, y2, x2 y, y3, x4, x2 y2
    std::array<double, 6> LongitudeTerms; ///< x before the bracket, then y, x2, y2, y3, x2 y in it
};

} // namespace KvRefSystem
