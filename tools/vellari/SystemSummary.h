#pragma once

#include "tools/vellari/SystemLoader.h"

#include <string>

namespace VellariTool {

/**
 * @return what a system is, one fact a line: names, units, axes, projection, datum, ellipsoid, meridian,
 *         codes, corrections.
 */
std::string SummaryOf(TLoadedSystem const& loaded);

} // namespace VellariTool
