#pragma once

#include <string>

namespace VellariTool {

/**
 * Lists the entries of the catalogue with name and title, in groups, and the shorthands of zones.
 * @param pattern for names and titles, as `MatchesPattern`; empty for all. A zone stands for its family.
 * @return `esDone`. @throws TToolError when nothing fits.
 */
int RunList(std::string const& pattern);

} // namespace VellariTool
