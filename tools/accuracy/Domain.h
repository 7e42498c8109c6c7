#pragma once

#include "tools/accuracy/ProjOperation.h"

#include <string>
#include <vector>

namespace VellariAccuracy {

inline constexpr double Degree = 3.141592653589793 / 180; ///< radians

/**
 * Intervals of a domain's grid. Those of longitude are odd in number, so that the middle meridian, where many
 * a term is 0, lies between two columns.
 */
inline constexpr int LatitudeIntervals = 60;
inline constexpr int LongitudeIntervals = 61;

/** Where differences are measured: latitudes, and longitudes on both sides of a meridian; degrees. */
struct TDomain {
    double South;
    double North;
    double Middle;
    double Reach;
    double Radius = 0;         ///< kilometres about the origin; 0 for all of the grid
    double OriginLatitude = 0; ///< degrees; the origin's longitude is `Middle`
};

/** The places of the domain's grid: longitude and latitude, radians. One that has no width has one column. */
std::vector<TPair> PlacesOf(TDomain const& domain);

/** The domain in words. */
std::string DomainText(TDomain const& domain);

/**
 * Metres between two places (longitude and latitude, radians), along the great circle of a sphere, without
 * loss of digits where they are close.
 */
double GroundDistance(TPair const& first, TPair const& second, double radius);

} // namespace VellariAccuracy
