#pragma once

#include <string_view>

namespace VellariTool {

/** @return the published name of a geokey; "unknown" for a number without one. */
std::string_view GeoKeyName(int number);

} // namespace VellariTool
