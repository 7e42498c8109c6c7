#include "hostkit/Utf8.h"

namespace VellariHostKit {

namespace {

/** One row a length: the lead byte's mark and the smallest code point that needs that many bytes. */
struct Form {
    unsigned char mask;
    unsigned char mark;
    char32_t smallest;
    std::size_t length;
};

constexpr Form forms[] = {
    {0x80, 0x00, 0x0, 1},
    {0xE0, 0xC0, 0x80, 2},
    {0xF0, 0xE0, 0x800, 3},
    {0xF8, 0xF0, 0x10000, 4},
};

constexpr Utf8Character invalid = {0, 0};

} // namespace

Utf8Character DecodeUtf8(std::string_view text) {
    auto const lead = static_cast<unsigned char>(text.front());
    for (Form const& form : forms) {
        if ((lead & form.mask) != form.mark) {
            continue;
        }
        if (text.size() < form.length) {
            return invalid;
        }
        char32_t code = lead & static_cast<unsigned char>(~form.mask);
        for (std::size_t index = 1; index < form.length; ++index) {
            auto const next = static_cast<unsigned char>(text[index]);
            if ((next & 0xC0) != 0x80) {
                return invalid;
            }
            code = code << 6 | (next & 0x3F);
        }
        bool const isSurrogate = code >= 0xD800 && code <= 0xDFFF;
        return code < form.smallest || code > 0x10FFFF || isSurrogate ? invalid
                                                                      : Utf8Character{code, form.length};
    }
    return invalid;
}

std::size_t FindInvalidUtf8(std::string_view text) {
    for (std::size_t offset = 0; offset < text.size();) {
        std::size_t const length = DecodeUtf8(text.substr(offset)).length;
        if (length == 0) {
            return offset;
        }
        offset += length;
    }
    return std::string_view::npos;
}

} // namespace VellariHostKit
