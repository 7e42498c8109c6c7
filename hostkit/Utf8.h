#pragma once

#include <cstddef>
#include <string_view>

namespace VellariHostKit {

/** One character of a UTF-8 text. */
struct Utf8Character {
    char32_t code;      ///< code point; meaningless for a byte that isn't UTF-8
    std::size_t length; ///< number of bytes; 0 for a byte that isn't UTF-8
};

/**
 * @return the character at the beginning of `text`, which isn't empty; overlong forms and surrogates aren't
 *         UTF-8.
 */
Utf8Character DecodeUtf8(std::string_view text);

/** @return the offset of the first byte that isn't UTF-8, or npos. */
std::size_t FindInvalidUtf8(std::string_view text);

} // namespace VellariHostKit
