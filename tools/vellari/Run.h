#pragma once

namespace VellariTool {

/** The whole tool: reads the command line and runs the command. @return the exit status. */
int Run(int count, char const* const* arguments);

} // namespace VellariTool
