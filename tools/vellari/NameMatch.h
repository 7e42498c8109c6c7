#pragma once

#include <string>
#include <string_view>

namespace VellariTool {

/** @return the text with the Latin capitals as small letters; all other bytes stay. */
std::string LowerCase(std::string_view text);

/**
 * @return the least number of single-byte insertions, deletions and replacements that turn `first` into
 *         `second`.
 */
std::size_t EditDistance(std::string_view first, std::string_view second);

/**
 * Compares a text with a pattern, letters of either case.
 * @param pattern with `*` or `?` in it, it stands for the whole text (`*` any bytes, `?` one); otherwise for
 *         any part.
 */
bool MatchesPattern(std::string_view text, std::string_view pattern);

} // namespace VellariTool
