#pragma once

#include "shell/units/AngularUnit.h"
#include "shell/units/LinearUnit.h"

#include <string>

#pragma GCC visibility push(hidden)

/** How all projections read and print their parameters; not for hosts, and hidden from them. */
namespace KvRefSystem::ParameterText {

/** Angles of MapInfo clauses have this many decimals of a degree, unless a class says otherwise. */
inline constexpr int MifDecimals = 8;

/** Those of the classes that keep more. */
inline constexpr int FineMifDecimals = 10;

/**
 * @param unit may be null. @return the parameter in base units: radians, metres or the plain factor.
 * @throws std::runtime_error without a unit, for an empty or blank text and for one that doesn't parse.
 */
double ToBase(TShellUnit const* unit, std::string const& text);

/**
 * @param unit, target may be null. @return the parameter's text in another unit, with all digits.
 * @throws std::runtime_error as `ToBase`, and for two kinds of units; std::logic_error for a notation that
 *         needs an axis.
 */
std::string InUnit(TShellUnit const* unit, std::string const& text, TShellUnit const* target);

/** @return the angle (radians) in degrees. */
double ToDegrees(double radians);

/** @return the angle (degrees) in radians: times pi, then over 180. */
double ToRadians(double degrees);

/** @return degrees rounded half up to a number of decimals, as the product with their power of ten. */
double RoundDegrees(double degrees, int decimals);

/** @return metres in `unit` as text, with all digits. @throws std::runtime_error without a unit. */
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
