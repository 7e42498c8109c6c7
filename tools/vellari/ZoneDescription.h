#pragma once

#include "tools/vellari/ZoneShorthand.h"

#include <string>

namespace VellariTool {

/**
 * Writes the description of a zone: a map-projected system on the geodetic entry of the catalogue that its
 * family has.
 * @return a description text as that of a file.
 */
std::string DescribeZone(TZone const& zone);

} // namespace VellariTool
