#include "hostkit/XmlText.h"

#include "frame/NumberText.h"
#include "hostkit/Utf8.h"

#include <algorithm>
#include <iterator>

namespace VellariHostKit {

namespace {

struct CodeRange {
    char32_t first;
    char32_t last;

    bool Holds(char32_t code) const { return code >= first && code <= last; }
};

template <std::size_t N>
bool AnyHolds(CodeRange const (&ranges)[N], char32_t code) {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [code](CodeRange const& range) { return range.Holds(code); });
}

/** The production Char of XML 1.0. */
constexpr CodeRange characters[] = {
    {0x9, 0xA}, {0xD, 0xD}, {0x20, 0xD7FF}, {0xE000, 0xFFFD}, {0x10000, 0x10FFFF},
};

/** The production NameStartChar of XML 1.0, fifth edition, without the colon, which is left to namespaces. */
constexpr CodeRange nameStarts[] = {
    {'A', 'Z'},       {'_', '_'},       {'a', 'z'},       {0xC0, 0xD6},     {0xD8, 0xF6},
    {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F},
    {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};

/** What NameChar has beyond NameStartChar. */
constexpr CodeRange nameParts[] = {
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040},
};

constexpr std::string_view escapeHead = "_x00";
constexpr std::size_t escapeLength = 7; // _x00HH_

/** @return the value of a hexadecimal digit, or -1. */
int HexDigit(char digit) {
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    if (digit >= 'A' && digit <= 'F') {
        return digit - 'A' + 10;
    }
    if (digit >= 'a' && digit <= 'f') {
        return digit - 'a' + 10;
    }
    return -1;
}

/** @return the byte that an escape at the beginning of a text tells, its last underscore aside, or -1. */
int ReadUnfinishedEscape(std::string_view text) {
    if (text.size() < escapeLength - 1 || text.substr(0, escapeHead.size()) != escapeHead) {
        return -1;
    }
    int const high = HexDigit(text[4]);
    int const low = HexDigit(text[5]);
    return high < 0 || low < 0 ? -1 : high * 16 + low;
}

/** @return the byte of the escape at the beginning of a text, or -1 without one. */
int ReadEscape(std::string_view text) {
    bool const isFinished = text.size() >= escapeLength && text[escapeLength - 1] == '_';
    return isFinished ? ReadUnfinishedEscape(text) : -1;
}

void AppendEscapes(std::string* target, std::string_view bytes) {
    for (char const byte : bytes) {
        *target +=
            KvRefSystem::FormatText("_x00%02X_", static_cast<unsigned>(static_cast<unsigned char>(byte)));
    }
}

/** Copies the characters that `mayStand(code, isFirst)` lets through and escapes the bytes of the others. */
template <class Predicate>
std::string EscapeUnless(std::string_view text, Predicate mayStand) {
    auto const stands = [text, mayStand](std::size_t offset) {
        Utf8Character const character = DecodeUtf8(text.substr(offset));
        return character.length != 0 && mayStand(character.code, offset == 0);
    };
    std::string escaped;
    escaped.reserve(text.size());
    for (std::size_t offset = 0; offset < text.size();) {
        std::string_view const rest = text.substr(offset);
        // The underscore that finishes it may also be the first one of an escape that follows.
        std::size_t const next = offset + escapeLength - 1;
        bool const readsAsEscape =
            next < text.size() && ReadUnfinishedEscape(rest) >= 0 && (text[next] == '_' || !stands(next));
        std::size_t const length = std::max<std::size_t>(DecodeUtf8(rest).length, 1);
        if (stands(offset) && !readsAsEscape) {
            escaped += rest.substr(0, length);
        } else {
            AppendEscapes(&escaped, rest.substr(0, length));
        }
        offset += length;
    }
    return escaped;
}

/** The reference for a markup character or one that parsers change on reading, or null. */
char const* ReferenceFor(char byte) {
    switch (byte) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\t':
        return "&#9;";
    case '\n':
        return "&#10;";
    case '\r':
        return "&#13;";
    default:
        return nullptr;
    }
}

} // namespace

bool IsXmlCharacter(char32_t code) {
    return AnyHolds(characters, code);
}

std::string EscapeValue(std::string_view value) {
    return EscapeUnless(value, [](char32_t code, bool) { return IsXmlCharacter(code); });
}

std::string UnescapeValue(std::string_view text) {
    std::string value;
    value.reserve(text.size());
    for (std::size_t offset = 0; offset < text.size();) {
        int const byte = ReadEscape(text.substr(offset));
        value += byte < 0 ? text[offset] : static_cast<char>(byte);
        offset += byte < 0 ? 1 : escapeLength;
    }
    return value;
}

std::string NameOf(std::string_view key) {
    if (key.empty()) {
        return UnnamedItem;
    }
    return EscapeUnless(key, [](char32_t code, bool isFirst) {
        return AnyHolds(nameStarts, code) || (!isFirst && AnyHolds(nameParts, code));
    });
}

std::string EscapeMarkup(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (std::size_t offset = 0; offset < text.size(); ++offset) {
        bool const isAtEnd = offset == 0 || offset + 1 == text.size();
        char const* const reference = text[offset] == ' ' && isAtEnd ? "&#32;" : ReferenceFor(text[offset]);
        if (reference) {
            escaped += reference;
        } else {
            escaped += text[offset];
        }
    }
    return escaped;
}

} // namespace VellariHostKit
