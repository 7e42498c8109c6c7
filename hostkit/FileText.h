#pragma once

#include <string>
#include <string_view>

/** Whole files as texts; every error is one line that names the file and the system's reason. */
namespace VellariHostKit {

/** @return the system's reason for an error number, in the words of the C locale whatever the host has set. */
std::string SystemReason(int code);

/** @return the bytes of a file. @throws std::runtime_error when it can't be read. */
std::string ReadWholeFile(std::string const& path);

/**
 * Writes a file so that readers see the old one or the new one, never a part: a new file beside it takes its
 * place when it is complete, with the permissions of the old one. A link is followed. Something that is no
 * plain file, such as a pipe or a terminal, is written directly.
 *
 * @throws std::runtime_error when it can't be written; an old file is then unchanged and nothing else stays.
 */
void WriteWholeFile(std::string const& path, std::string_view text);

} // namespace VellariHostKit
