#pragma once

#include <optional>

namespace Fuzz {

/**
 * How far a number may be off that is printed and read again.
 * @param code of an angular unit; 0 for plain numbers. @param precision as the unit takes it.
 * @return in the unit; none where the notation isn't made to be read back, each case being one that the unit's
 *         class comment tells.
 */
std::optional<double> ReadBackTolerance(int code, double value, int precision);

/** @return whether `read` is `value` within the tolerance, or a turn away from it after a carry at 180 degrees. */
bool IsReadBack(int code, double value, double read, double tolerance);

} // namespace Fuzz
