#include "frame/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <locale.h>
#include <stdexcept>
#include <system_error>

namespace KvRefSystem {

namespace {

locale_t CLocale() {
    static locale_t const locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

/** Puts the calling thread into the C locale; the host's own setting returns at the end. */
class TCLocaleScope {
public:
    TCLocaleScope() : hostLocale(uselocale(CLocale())) {}
    TCLocaleScope(TCLocaleScope const&) = delete;
    TCLocaleScope& operator=(TCLocaleScope const&) = delete;
    ~TCLocaleScope() { uselocale(hostLocale); }

private:
    locale_t hostLocale;
};

/** The number inside of its blanks, without one leading "+", which the standard's parsers don't take. */
std::string_view NumberToken(std::string_view text) {
    constexpr std::string_view Blanks = " \t\n\v\f\r";
    std::size_t const first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    text = text.substr(first, text.find_last_not_of(Blanks) - first + 1);
    if (text.back() == ')') {
        return {}; // the standard's parsers take "nan(...)"
    }
    bool const hasPlus = text.front() == '+';
    bool const hasSecondSign = text.size() > 1 && text[1] == '-';
    if (hasPlus && !hasSecondSign) {
        text.remove_prefix(1);
    }
    return text;
}

double StringToReal(char const* text, double) {
    return strtod_l(text, nullptr, CLocale());
}

float StringToReal(char const* text, float) {
    return strtof_l(text, nullptr, CLocale());
}

template <class Real>
bool ParseWholeReal(std::string_view text, Real* value) {
    std::string_view const token = NumberToken(text);
    char const* const end = token.data() + token.size();
    Real number = 0;
    auto const [stop, error] = std::from_chars(token.data(), end, number);
    if (stop != end || error == std::errc::invalid_argument) {
        return false;
    }
    if (error == std::errc::result_out_of_range) {
        // Too small is still a number, the nearest one; only too large is not.
        number = StringToReal(std::string(token).c_str(), Real());
        if (std::isinf(number)) {
            return false;
        }
    }
    *value = number;
    return true;
}

} // namespace

std::string FormatText(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    try {
        std::string text = FormatTextV(format, arguments);
        va_end(arguments);
        return text;
    } catch (...) {
        va_end(arguments);
        throw;
    }
}

std::string FormatTextV(char const* format, std::va_list arguments) {
    TCLocaleScope const inCLocale;
    char shortText[256];
    std::va_list secondArguments;
    va_copy(secondArguments, arguments);
    int const length = std::vsnprintf(shortText, sizeof(shortText), format, arguments);
    std::string text;
    try {
        if (length < 0) {
            throw std::runtime_error(
                "FormatText: \"" + std::string(format) +
                "\" gives no text: it is too long or holds a character without a byte form");
        }
        auto const size = static_cast<std::size_t>(length);
        if (size < sizeof(shortText)) {
            text.assign(shortText, size);
        } else {
            text.resize(size);
            std::vsnprintf(text.data(), size + 1, format, secondArguments);
        }
    } catch (...) {
        va_end(secondArguments);
        throw;
    }
    va_end(secondArguments);
    return text;
}

int ScanText(char const* text, char const* format, ...) {
    TCLocaleScope const inCLocale;
    std::va_list arguments;
    va_start(arguments, format);
    int const conversions = std::vsscanf(text, format, arguments);
    va_end(arguments);
    return conversions;
}

double ParseLeadingDouble(char const* text) {
    return strtod_l(text, nullptr, CLocale());
}

bool ParseWholeDouble(std::string_view text, double* value) {
    return ParseWholeReal(text, value);
}

bool ParseWholeFloat(std::string_view text, float* value) {
    return ParseWholeReal(text, value);
}

bool ParseWholeInt(std::string_view text, int* value) {
    std::string_view const token = NumberToken(text);
    char const* const end = token.data() + token.size();
    int number = 0;
    auto const [stop, error] = std::from_chars(token.data(), end, number);
    if (stop != end || error != std::errc()) {
        return false;
    }
    *value = number;
    return true;
}

void AppendFixed(std::string* text, double value, int decimals) {
    // The largest double has 309 digits before the point; sign, point and 60 decimals come on top.
    char digits[384];
    auto const [end, error] = std::to_chars(digits, digits + sizeof(digits), value, std::chars_format::fixed,
                                            std::clamp(decimals, 0, 60));
    static_cast<void>(error);
    text->append(digits, static_cast<std::size_t>(end - digits));
}

std::int32_t ToInt32(double value) {
    if (!(value > -2147483649.0 && value < 2147483648.0)) {
        return std::numeric_limits<std::int32_t>::min();
    }
    return static_cast<std::int32_t>(value);
}

} // namespace KvRefSystem
