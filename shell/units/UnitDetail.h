#pragma once

#include "frame/NumberText.h"

#include <algorithm>
#include <cmath>
#include <string>

#pragma GCC visibility push(hidden)

/** What the kinds of units share inside of their bodies; not for hosts, and hidden from them. */
namespace KvRefSystem::UnitDetail {

inline constexpr double Pi = 3.141592653589793;
inline constexpr double RadiansOfDegree = 0.017453292519943295;
inline constexpr double DegreesOfRadian = 57.29577951308232;

/**
 * The decimals that show a fixed length in base units.
 * @param coefToBase   size of the unit in base units.
 * @param baseDecimals decimals that the base unit has.
 * @return 0 or more; 0 for a unit that can't convert.
 */
inline int DefaultPrecision(double coefToBase, double baseDecimals) {
    double const decimals = std::ceil(std::log10(coefToBase) + baseDecimals);
    // In this order a NaN and, after the cut to an int, an infinity end at 0, too.
    return std::max(0, ToInt32(std::max(0.0, decimals)));
}

/** The WKT UNIT. The name goes in as it is. */
inline std::string UnitWKT(char const* name, double coefToBase) {
    return FormatText("UNIT[\"%s\",%.15lg]", name, coefToBase);
}

} // namespace KvRefSystem::UnitDetail

#pragma GCC visibility pop
