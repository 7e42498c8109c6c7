#pragma once

#include <string>

namespace VellariTool {

/**
 * Prints a system in one of the formats.
 * @return `esDone`. @throws TToolError for an unknown format or a system that can't be built.
 */
int RunShow(std::string const& nameOrPath, std::string const& format);

/** @return what the help says of `--as`: the formats, the default first. */
std::string ShowFormatsText();

} // namespace VellariTool
