#include "tools/vellari/SexagesimalText.h"

#include <cmath>
#include <stdexcept>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

/** The units copy this much of a text. */
constexpr std::size_t longestText = 127;
/** Whole numbers of the packed notations are read as ints of nine safe digits. */
constexpr std::size_t mostDegreeDigits = 9;
constexpr std::size_t mostSecondFractionDigits = 9;

/** ASCII digits only, whatever the locale. */
constexpr bool IsDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

/** @return whether the byte is one of the set. */
bool Contains(std::string_view set, char byte) {
    return set.find(byte) != std::string_view::npos;
}

/** The parts of an angle in the order of the text. */
struct TParts {
    int count = 0;
    double value[3] = {0, 0, 0};
};

/** Reads up to three numbers with signs between them. @return false for anything else. */
bool ReadParts(std::string_view text, TParts* parts) {
    // Degree, minute and second signs: of ASCII, and the bytes of the UTF-8 signs for them and for primes.
    constexpr std::string_view signs = " \t'\":dmsDM-\xC2\xB0\xBA\xE2\x80\xB2\xB3\x99\x9D";
    std::size_t position = 0;
    while (position < text.size()) {
        if (!IsDigit(text[position]) && text[position] != '.') {
            if (!Contains(signs, text[position])) {
                return false;
            }
            ++position;
            continue;
        }
        std::size_t const start = position;
        while (position < text.size() && (IsDigit(text[position]) || text[position] == '.')) {
            ++position;
        }
        if (parts->count == 3 ||
            !ParseWholeDouble(text.substr(start, position - start), &parts->value[parts->count])) {
            return false;
        }
        ++parts->count;
    }
    return parts->count > 0;
}

/** Checks the numbers, without a sign or letter of the hemisphere. */
std::string FindMistakeInParts(std::string_view text) {
    TParts parts;
    if (text.size() > longestText || !ReadParts(text, &parts)) {
        return "is not an angle of degrees, minutes and seconds, as 55 45 07.2";
    }
    if (parts.value[1] >= 60 || parts.value[2] >= 60) {
        return "has 60 or more minutes or seconds";
    }
    return "";
}

/** Checks the notation with a minus sign. */
std::string FindMistakeWithSign(std::string_view text) {
    if (!text.empty() && Contains("NSEW", text.back())) {
        return "ends with a letter, which this notation does not read; the sign stands in front, as -55 45 "
               "07.2";
    }
    if (!text.empty() && text.front() == '-') {
        text.remove_prefix(1);
    } else if (!text.empty() && !IsDigit(text.front()) && text.front() != '.') {
        return "does not begin with a digit or a minus sign";
    }
    if (Contains(text, '-')) {
        return "has a minus sign that does not stand in front";
    }
    return FindMistakeInParts(text);
}

/** Checks the notation with a hemisphere letter. */
std::string FindMistakeWithLetter(std::string_view text, bool isLongitude) {
    std::string_view const letters = isLongitude ? "EW" : "NS";
    std::string const example = isLongitude ? "37 36 56.4 E" : "55 45 07.2 N";
    if (!text.empty() && !IsDigit(text.front()) && text.front() != '.') {
        return "does not begin with a digit; the hemisphere is a letter behind it, as " + example;
    }
    if (!text.empty() && Contains("NSEW", text.back())) {
        if (!Contains(letters, text.back())) {
            return "has the letter of the other axis; right would be " + example;
        }
        text.remove_suffix(1);
    } else if (!text.empty() && Contains("nsew", text.back()) &&
               !(text.back() == 's' && text.find('m') != std::string_view::npos)) {
        return "has a small letter for the hemisphere; right would be " + example;
    }
    return FindMistakeInParts(text);
}

/** Checks the two notations of one packed number. */
std::string FindMistakeInPacked(std::string_view text, bool hasSeconds) {
    std::string const example = hasSeconds ? "55.450720 for 55 45 07.20" : "55.455 for 55 45.5";
    bool const isNegative = !text.empty() && text.front() == '-';
    if (isNegative) {
        text.remove_prefix(1);
    }
    std::size_t const point = text.find('.');
    std::string_view const degrees = text.substr(0, point);
    std::string_view const digits =
        point == std::string_view::npos ? std::string_view() : text.substr(point + 1);
    for (std::string_view const part : {degrees, digits}) {
        for (char const byte : part) {
            if (!IsDigit(byte)) {
                return "is not a packed angle, as " + example;
            }
        }
    }
    if (degrees.empty() || degrees.size() > mostDegreeDigits) {
        return "is not a packed angle, as " + example;
    }
    if (digits.size() == 1 || (hasSeconds && digits.size() == 3)) {
        return "has one digit where two digits of minutes or seconds are needed, as " + example;
    }
    if ((digits.size() >= 2 && digits[0] > '5') || (hasSeconds && digits.size() >= 4 && digits[2] > '5')) {
        return "has 60 or more minutes or seconds";
    }
    if (hasSeconds && digits.size() > 4 + mostSecondFractionDigits) {
        return "has more than 13 digits behind the point";
    }
    if (!hasSeconds && digits.size() > 3) {
        // The unit takes whatever follows the minutes for tenths.
        return "has more than one decimal of a minute, which this notation cannot read";
    }
    if (hasSeconds && isNegative && degrees.find_first_not_of('0') == std::string_view::npos &&
        digits.find_first_not_of('0') != std::string_view::npos) {
        // The unit takes the sign from the whole degrees.
        return "is above -1 degree and below 0, where this notation loses the sign";
    }
    return "";
}

} // namespace

std::unique_ptr<TShellAngularUnit> ReadAngularUnit(TStringTree const& tree) {
    try {
        // It is only read; a copy wouldn't do, since that ends at a field that stands twice.
        return std::unique_ptr<TShellAngularUnit>(CreateShellAngularUnit(const_cast<TStringTree*>(&tree)));
    } catch (std::runtime_error const&) {
        return nullptr;
    }
}

TSexagesimalNotation NotationOf(TShellAngularUnit const& unit) {
    if (dynamic_cast<TShellUnitDegreeMinuteSecond const*>(&unit)) {
        return snParts;
    }
    if (dynamic_cast<TShellUnitDegreeMinuteSecondHemisphere const*>(&unit)) {
        return snHemisphere;
    }
    if (dynamic_cast<TShellUnitSexagesimalDegree const*>(&unit)) {
        return snPackedSeconds;
    }
    if (dynamic_cast<TShellDegreeDecimalMinuteUnit const*>(&unit)) {
        return snPackedMinutes;
    }
    return snNone;
}

std::string FindSexagesimalMistake(std::string_view text, TSexagesimalNotation notation, bool isLongitude) {
    if (text.empty()) {
        return "is empty; an angle is needed";
    }
    switch (notation) {
    case snNone:
        break;
    case snParts:
        return FindMistakeWithSign(text);
    case snHemisphere:
        return FindMistakeWithLetter(text, isLongitude);
    case snPackedSeconds:
        return FindMistakeInPacked(text, true);
    case snPackedMinutes:
        return FindMistakeInPacked(text, false);
    }
    return "";
}

} // namespace VellariTool
