#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace VellariBench {

constexpr double Degree = 3.141592653589793 / 180.0; ///< radians

/** Points of one pass: enough that branches can't be learnt, few enough to stay in the first cache. */
constexpr std::size_t PointCount = 1024;

using TTriple = std::array<double, 3>;

/** Latitudes to 85 degrees, all longitudes (degrees), heights from -100 to 9000 m; the same in each run. */
std::vector<TTriple> GeodeticPoints();

} // namespace VellariBench
