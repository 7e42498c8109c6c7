#pragma once

#include <string>

namespace VellariTool {

/**
 * Prints how two systems relate, one fact a line.
 * @param first, second entry, zone or file. @return `esDone`. @throws TToolError, TOutputClosed.
 */
int RunCompare(std::string const& first, std::string const& second);

} // namespace VellariTool
