#include "frame/imported/Strings.h"

#include "frame/NumberText.h"
#include "frame/imported/Progress.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <string_view>
#include <utility>

#include <zlib.h>

namespace {

// Only the letters of ASCII are folded: a UTF-8 text keeps its other bytes, whatever locale the host has set.
char LowerLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

char UpperLetter(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

} // namespace

namespace Orvane {

std::string ssprintf(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::string text;
    try {
        text = KvRefSystem::FormatTextV(format, arguments);
    } catch (...) {
        va_end(arguments);
        throw;
    }
    va_end(arguments);
    return text;
}

} // namespace Orvane

namespace LumCommonUtils {

unsigned int SplitString(char const* text, char const* separators, std::string* parts, unsigned int limit,
                         TKvProgressHandler* progress, bool keepEmpty) {
    if (!text || !parts) {
        return 0;
    }
    std::string_view rest(text);
    std::string_view const cutters(separators ? separators : "");
    TKvStepProgress steps(progress);
    steps.Start(limit);
    unsigned int count = 0;
    for (bool more = true; more && count < limit;) {
        std::size_t const end = rest.find_first_of(cutters);
        more = end != std::string_view::npos;
        std::string_view const part = rest.substr(0, end);
        if (keepEmpty || !part.empty()) {
            parts[count++] = part;
            steps.Next();
        }
        rest.remove_prefix(more ? end + 1 : rest.size());
    }
    steps.Stop();
    return count;
}

bool StringContains(std::string const& text, std::string const& part, bool ignoreCase) {
    auto const equal = [ignoreCase](char left, char right) {
        return ignoreCase ? LowerLetter(left) == LowerLetter(right) : left == right;
    };
    return part.empty() ||
           std::search(text.begin(), text.end(), part.begin(), part.end(), equal) != text.end();
}

int StringToIntDef(std::string const& text, int fallback) {
    int value = fallback;
    return KvRefSystem::ParseWholeInt(text, &value) ? value : fallback;
}

double StringToDoubleDef(std::string const& text, double const& fallback) {
    double value = fallback;
    return KvRefSystem::ParseWholeDouble(text, &value) ? value : fallback;
}

bool ValueFromString(std::string const& text, float* value) {
    float number = 0.0f;
    bool const read = KvRefSystem::ParseWholeFloat(text, &number);
    *value = read ? number : 0.0f;
    return read;
}

std::string trim(std::string text) {
    std::size_t const begin = text.find_first_not_of(whiteSpace);
    if (begin == std::string::npos) {
        return std::string();
    }
    text.erase(text.find_last_not_of(whiteSpace) + 1);
    text.erase(0, begin);
    return text;
}

std::string tolower(std::string const& text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), LowerLetter);
    return lower;
}

std::string toupper(std::string const& text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), UpperLetter);
    return upper;
}

double pow10(double exponent) {
    // Volatile, since a compiler that sees the 10 puts exp10 in its place, which isn't exact for whole
    // powers.
    static double const volatile ten = 10.0;
    return std::pow(ten, exponent);
}

unsigned int crc32(unsigned int start, void const* data, unsigned long length) {
    if (!data) {
        return 0;
    }
    // The length that zlib takes has 32 bits: longer data go in pieces.
    constexpr unsigned long longestPiece = 0x40000000;
    auto const* bytes = static_cast<Bytef const*>(data);
    uLong crc = start;
    while (length > 0) {
        unsigned long const piece = std::min(length, longestPiece);
        crc = ::crc32(crc, bytes, static_cast<uInt>(piece));
        bytes += piece;
        length -= piece;
    }
    return static_cast<unsigned int>(crc);
}

} // namespace LumCommonUtils
