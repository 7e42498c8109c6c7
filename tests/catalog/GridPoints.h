#pragma once

#include <array>
#include <span>

namespace VellariTest {

/** A point of a grid, each at a height of 100 m over the ellipsoid of the grid's datum. */
struct TGridPoint {
    char const* Entry;
    std::array<double, 2> Geographic; ///< latitude, longitude in the units of the grid's base system
    std::array<double, 2> Grid;       ///< metres, in the order of the entry's axes
    std::array<double, 3> Wgs84;      ///< degrees, metres
};

/** Five or six points over the area of use of each grid. */
std::span<TGridPoint const> GridPoints();

} // namespace VellariTest
