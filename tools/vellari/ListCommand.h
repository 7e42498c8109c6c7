#pragma once

#include <string>

namespace VellariTool {

/**
 * Lists the entries of the catalogue with name, kind and title.
 * @param pattern for names and titles, as `MatchesPattern`; empty for all. @return `esDone`.
 * @throws TToolError when no entry fits.
 */
int RunList(std::string const& pattern);

} // namespace VellariTool
