#include "tools/reference/Number.h"

#include <charconv>
#include <ios>
#include <stdexcept>
#include <system_error>

namespace VellariReference {

TNumber Pi() {
    // Machin's formula by the library's own arc tangent.
    static TNumber const pi = 16 * atan(TNumber(1) / 5) - 4 * atan(TNumber(1) / 239);
    return pi;
}

std::string FixedText(TNumber const& number, int decimals) {
    return number.str(decimals, std::ios_base::fixed);
}

double NearestDouble(std::string_view text) {
    double number = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw std::invalid_argument("\"" + std::string(text) + "\" is no number");
    }
    return number;
}

double NearestDouble(TNumber const& number) {
    constexpr int AllDigits = 60;
    return NearestDouble(number.str(AllDigits, std::ios_base::scientific));
}

std::string ShortestText(double number) {
    constexpr int LongestDouble = 32;
    char text[LongestDouble];
    return {text, std::to_chars(text, text + LongestDouble, number).ptr};
}

} // namespace VellariReference
