#pragma once

#include <string>

namespace KvRefSystem {

/** One point as text, in shell coordinate order; an empty third text means that the height isn't set. */
struct TShellCoords {
    /** Three empty texts. */
    TShellCoords() = default;

    /** Formats each number with 17 significant digits ("1.5000000000000000e+00"). */
    TShellCoords(double const& first, double const& second, double const& third);

    std::string Coord[3]; ///< first, second and third coordinate
};

} // namespace KvRefSystem
