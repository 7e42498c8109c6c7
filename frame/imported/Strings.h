#pragma once

#include <string>

class TKvProgressHandler;

namespace Orvane {

/** `printf` into a new string of any length; numbers in the form of the C locale. */
std::string ssprintf(char const* format, ...) __attribute__((format(printf, 1, 2)));

} // namespace Orvane

namespace LumCommonUtils {

/**
 * Cuts a text at any of the separator characters; a run of them counts as one and surplus parts are dropped.
 *
 * @param text       the text.
 * @param separators the separator characters.
 * @param parts      array of at least `limit` strings, which receives the parts.
 * @param limit      greatest number of parts.
 * @param progress   one step a part; may be null.
 * @param keepEmpty  whether the empty texts between two separators count as parts.
 * @return the number of parts stored.
 */
unsigned int SplitString(char const* text, char const* separators, std::string* parts, unsigned int limit,
                         TKvProgressHandler* progress, bool keepEmpty);

/** @return whether `part` occurs in `text`; `ignoreCase` folds the letters A to Z. */
bool StringContains(std::string const& text, std::string const& part, bool ignoreCase);

/** @return the whole number that the whole text holds, blanks at its ends aside, or `fallback`. */
int StringToIntDef(std::string const& text, int fallback);

/** @return the number that the whole text holds, blanks at its ends aside, or `fallback`. */
double StringToDoubleDef(std::string const& text, double const& fallback);

/** Reads a float; false leaves `*value` at 0. The whole text must be a number. */
bool ValueFromString(std::string const& text, float* value);

/** @return the text without white space at its ends. */
std::string trim(std::string text);

/** @return the text with the letters A to Z in lower case. */
std::string tolower(std::string const& text);

/** @return the text with the letters a to z in upper case. */
std::string toupper(std::string const& text);

/** @return ten to the power `exponent`. */
double pow10(double exponent);

/** The CRC-32 of zlib over any length. @param start the CRC so far, 0 at first. */
unsigned int crc32(unsigned int start, void const* data, unsigned long length);

} // namespace LumCommonUtils
