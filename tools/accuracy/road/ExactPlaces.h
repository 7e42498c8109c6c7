#pragma once

#include <Vellari/Vellari.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace VellariAccuracy {

/** A place whose coordinates are known to many digits. */
struct TExactPlace {
    KvRefSystem::TEllipsoidSemiAxes Axes;
    std::array<double, 3> Place;      ///< latitude, longitude (radians), height (metres)
    std::array<std::string, 3> Point; ///< its X, Y, Z, metres
    std::array<std::string, 3> Back;  ///< latitude, longitude, height of the doubles nearest to `Point`
};

/**
 * Reads what vellari_reference writes.
 * @param path for the failures.
 * @throws std::runtime_error with path, line and what is wrong there, and for a text without any place.
 */
std::vector<TExactPlace> ParseExactPlaces(std::string_view text, std::string const& path);

} // namespace VellariAccuracy
