#pragma once

#include <string>

namespace VellariTool {

/**
 * Prints a topic, or the list of topics for an empty name.
 * @return `esDone`.
 * @throws TToolError for an unknown one.
 */
int RunHelp(std::string const& topic);

/** @return the names of all topics, with commas. */
std::string HelpTopicNames();

} // namespace VellariTool
