#pragma once

#include "shell/units/AngularUnit.h"
#include "shell/units/LinearUnit.h"

#include <string>

#pragma GCC visibility push(hidden)

/** How all projections read and print their parameters; not for hosts, and hidden from them. */
namespace KvRefSystem::ParameterText {

/** How many decimals of a degree the angles of a MapInfo clause keep. */
enum class TMifRounding : int {
    None, ///< there is no clause
    Eight,
    Ten,
};

/**
 * @param unit may be null. @return the parameter in base units: radians, metres or the plain factor.
 * @throws TUnusableProjection without a unit and for an empty or blank text; std::runtime_error for one that
 *         doesn't parse.
 */
double ToBase(TShellUnit const* unit, std::string const& text);

/**
 * @param unit, target may be null. @return the parameter's text in another unit, with all digits.
 * @throws as `ToBase`; TUnusableProjection for two kinds of units; std::logic_error for a notation that
 *         needs an axis.
 */
std::string InUnit(TShellUnit const* unit, std::string const& text, TShellUnit const* target);

/** @return the angle (radians) in degrees. */
double ToDegrees(double radians);

/** @return the angle (degrees) in radians: times pi, then over 180. */
double ToRadians(double degrees);

/** @return degrees rounded half up to these decimals, as the product with their power of ten. */
double RoundDegrees(double degrees, TMifRounding rounding);

/** @return metres in `unit` as text, with all digits. @throws TUnusableProjection without a unit. */
std::string LengthText(TShellLinearUnit const* unit, double metres);

/** The WKT PARAMETER list as it grows. */
class TWktParameters {
public:
    /** @param value in degrees, metres or as a plain factor. */
    void Add(char const* name, double value);
    std::string Text;
};

} // namespace KvRefSystem::ParameterText

#pragma GCC visibility pop
