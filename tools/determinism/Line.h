#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

namespace VellariDeterminism {

/** One line of the output: numbers by their bits, texts in quotation marks. */
class TLine {
public:
    /**
     * Adds a number as its 64 bits in hexadecimal digits. A NaN is "nan": which sign and payload an invalid
     * operation leaves is up to the order of the operands, which a compiler may exchange.
     */
    void Add(double value) {
        if (value != value) {
            AddWord("nan");
            return;
        }
        auto const bits = std::bit_cast<std::uint64_t>(value);
        char digits[16];
        for (int place = 0; place < 16; ++place) {
            digits[place] = "0123456789abcdef"[(bits >> (60 - 4 * place)) & 15];
        }
        AddWord(std::string_view(digits, sizeof(digits)));
    }

    template <class... Numbers>
    void Add(double first, double second, Numbers... rest) {
        Add(first);
        Add(second, rest...);
    }

    /** Adds a text in quotation marks; that of a NaN without its sign, for the same reason. */
    void AddText(std::string_view value) {
        AddWord("\"");
        text += value == "-nan" ? "nan" : value;
        text += '"';
    }

    /** Adds a text as it is. */
    void AddWord(std::string_view word) {
        text += text.empty() ? "" : " ";
        text += word;
    }

    std::string const& Text() const { return text; }

private:
    std::string text;
};

} // namespace VellariDeterminism
