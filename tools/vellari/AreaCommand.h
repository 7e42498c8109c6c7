#pragma once

#include <optional>
#include <string>

namespace VellariTool {

struct TAreaOptions {
    std::string system;  ///< entry, zone or file
    std::string polygon; ///< file of corners; empty or "-": standard input
    std::optional<int> precision;
};

/**
 * Prints the area of a polygon in square metres. What the number rests on, or why it is 0, goes to standard
 * error.
 * @return `esDone`, or `esSomeFailed` where there is no area. @throws TToolError, TOutputClosed.
 */
int RunArea(TAreaOptions const& options);

} // namespace VellariTool
