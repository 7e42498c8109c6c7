#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace VellariTool {

/** Exit statuses of the tool. */
enum TExitStatus : int {
    esDone = 0,
    esSomeFailed = 1, ///< some points could not be transformed
    esError = 2,      ///< wrong usage, a system that can't be built, a file that can't be read or written
};

/** What ends a command with `esError`; the message is one line without the program's name. */
class TToolError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/** The reader of the output has gone away (as `head` does): the command ends quietly. */
class TOutputClosed : public std::runtime_error {
public:
    TOutputClosed() : std::runtime_error("the output is closed") {}
};

/**
 * @param text any bytes. @param limit greatest number of bytes of it that are shown.
 * @return the text in double quotes, fit for one line of a terminal: control bytes as `\xNN`, cut with "...".
 */
std::string Quoted(std::string_view text, std::size_t limit = 80);

} // namespace VellariTool
