#pragma once

#include <string>
#include <string_view>

/**
 * How keys and values become names and texts of XML 1.0, which can hold neither every name nor every byte.
 *
 * A byte that XML can't hold in a value (a control character other than TAB, LF and CR, a byte that isn't
 * UTF-8, the bytes of U+FFFE and U+FFFF) is written `_x00HH_` with two hexadecimal digits in capitals, as
 * many programs do; an underscore that would be read as the beginning of such an escape is written `_x005F_`.
 * All other texts stay as they are. A key uses the same escape for each byte of a character that a name can't
 * have in its place.
 */
namespace VellariHostKit {

/** Name of the elements of unnamed items. */
inline constexpr char const* UnnamedItem = "item";

/** @return the text of XML characters for any bytes; the markup characters stay. */
std::string EscapeValue(std::string_view value);

/** Inverts `EscapeValue`; anything that isn't a complete escape stays. */
std::string UnescapeValue(std::string_view text);

/** @return the element's or attribute's name for a key; `UnnamedItem` for an empty one. */
std::string NameOf(std::string_view key);

/** @return whether XML 1.0 may hold a character, directly or as a reference. */
bool IsXmlCharacter(char32_t code);

/**
 * Writes a text of XML characters so that every parser gives back the same: markup characters, line ends,
 * tabs and blanks at the ends as references.
 */
std::string EscapeMarkup(std::string_view text);

} // namespace VellariHostKit
