#pragma once

#include <string>
#include <string_view>

namespace VellariTool {

/** @return "geodetic" and so on; "unknown" for a number that is no kind. */
std::string KindName(int kind);

/** @return the kind that a description text names; 0 without one. */
int KindOfDescription(std::string_view text);

} // namespace VellariTool
