#pragma once

#include <string>

namespace VellariTool {

struct TAxesOptions {
    std::string system;    ///< entry, zone or file
    std::string latitude;  ///< degrees on the system's datum; empty with `longitude`: only the directions
    std::string longitude; ///< degrees from the system's prime meridian
};

/**
 * Prints where the axes of a system lead, and at a place how far a unit goes.
 * @return `esDone`. @throws TToolError, TOutputClosed.
 */
int RunAxes(TAxesOptions const& options);

} // namespace VellariTool
