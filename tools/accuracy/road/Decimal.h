#pragma once

#include <string_view>

namespace VellariAccuracy {

/**
 * How far a double is from a decimal number with more digits than a double has, without loss: the difference is
 * taken digit by digit and only then becomes a double.
 * @param exact digits with one point at most, up to 18 before it and 63 behind it, and a sign if negative.
 * @return the distance; a NaN for a number that isn't finite or is too large. @throws std::invalid_argument for
 *         any other text.
 */
double DistanceFrom(double number, std::string_view exact);

} // namespace VellariAccuracy
