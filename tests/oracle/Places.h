#pragma once

#include <cstdint>
#include <vector>

namespace OracleTests {

inline constexpr double Pi = 3.141592653589793;
inline constexpr double Degree = Pi / 180.0; ///< radians

/** A place on the earth. */
struct TPlace {
    double Latitude;  ///< degrees
    double Longitude; ///< degrees
    double Height;    ///< metres
};

/** What places are drawn from. */
struct TRegion {
    double GreatestLatitude; ///< degrees, on both sides of the equator
    double LeastHeight;      ///< metres
    double GreatestHeight;   ///< metres
};

/** All combinations of `steps` + 1 latitudes and heights and twice as many longitudes, the ends included. */
std::vector<TPlace> GridOf(TRegion const& region, int steps);

/** Places drawn evenly from the region's numbers; the same for the same seed everywhere. */
std::vector<TPlace> DrawFrom(TRegion const& region, int count, std::uint64_t seed);

/** Equator, quadrants, antimeridian and the region's ends. */
std::vector<TPlace> EdgesOf(TRegion const& region);

/** Edges and drawn places together. */
std::vector<TPlace> EdgesAndDrawn(TRegion const& region, int count, std::uint64_t seed);

/** Metres on the ground and upwards between two places that lie close together, with a radius of 6.4e6 m. */
double GroundDistance(TPlace const& first, TPlace const& second);

} // namespace OracleTests
