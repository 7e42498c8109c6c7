#include "shell/units/SexagesimalUnits.h"

#include "frame/NumberText.h"
#include "frame/imported/Strings.h"
#include "shell/units/UnitDetail.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <locale>
#include <stdexcept>

namespace KvRefSystem {

namespace {

constexpr std::size_t LongestAngleText = 127;
using TAngleText = std::array<char, LongestAngleText + 1>;

constexpr int SecondDecimals = 6;
constexpr int MinuteDecimals = 7;

/** The beginning of a text, with a closing NUL, to be changed in place. */
TAngleText CopyBeginning(std::string const& text) {
    TAngleText beginning{};
    text.copy(beginning.data(), LongestAngleText);
    return beginning;
}

/** Up to three numbers of a separated text; what wasn't read is 0. */
struct TThreeNumbers {
    explicit TThreeNumbers(char const* text)
        : count(ScanText(text, "%lf %lf %lf", &degrees, &minutes, &seconds)) {}

    double degrees = 0.0;
    double minutes = 0.0;
    double seconds = 0.0;
    int count; ///< how many were read; -1 for an empty or blank text
};

/** Cuts a text at the later of the first places of two letters. @return whether one of them occurs. */
bool CutAtLetters(char* text, char firstLetter, char secondLetter) {
    char* const first = std::strchr(text, firstLetter);
    char* const second = std::strchr(text, secondLetter);
    if (!first && !second) {
        return false;
    }
    char* const later = first && second ? std::max(first, second) : (first ? first : second);
    *later = '\0';
    return true;
}

/** An angle without its sign: degrees, whole minutes and the fraction of a minute. */
struct TSplitAngle {
    explicit TSplitAngle(double value) : negative(value < 0.0) {
        double const magnitude = std::fabs(value);
        degrees = ToInt32(std::floor(magnitude));
        double const minutesWithFraction = (magnitude - degrees) * 60.0;
        minutes = ToInt32(std::floor(minutesWithFraction));
        minuteFraction = minutesWithFraction - minutes;
    }

    /** The minutes overflowed; 180 degrees and more come out on the other side. Kept: hosts rely on it. */
    void CarryIntoDegrees() {
        if (degrees < 180) {
            ++degrees;
            return;
        }
        degrees = 359 - degrees;
        negative = !negative;
    }

    /** What lies below the minutes overflowed. */
    void CarryIntoMinutes() {
        if (minutes < 59) {
            ++minutes;
            return;
        }
        minutes -= 59;
        CarryIntoDegrees();
    }

    /** Rounds the seconds, with a carry. @return the seconds. */
    double RoundSeconds(int decimals) {
        double const scale = LumCommonUtils::pow10(decimals);
        double seconds = std::floor(minuteFraction * 60.0 * scale + 0.5) / scale;
        if (seconds >= 60.0) {
            seconds -= 60.0;
            CarryIntoMinutes();
        }
        return seconds;
    }

    bool negative; ///< -0.0 isn't, and a tiny value is although it may print as zeros
    std::int32_t degrees;
    std::int32_t minutes;
    double minuteFraction;
};

/** A fraction below 1 as a whole number of so many digits. */
struct TPackedFraction {
    TPackedFraction(double fraction, int digits) {
        double const scale = LumCommonUtils::pow10(digits);
        double number = std::floor(fraction * scale + 0.5);
        overflowed = number >= scale;
        if (overflowed) {
            number -= scale;
        }
        digitsNumber = ToInt32(number);
    }

    bool overflowed;           ///< whether it was rounded up to 1, so that 1 is to be carried
    std::int32_t digitsNumber; ///< the digits
};

char const* MinusOf(bool negative) {
    return negative ? "-" : "";
}

/** The value of these notations is always degrees, whatever factors the description has. */
void SetDegree(TShellAngularUnit* unit, int precision) {
    unit->CoefToBase = UnitDetail::RadiansOfDegree;
    unit->CoefFromBase = UnitDetail::DegreesOfRadian;
    unit->Precision = precision;
}

std::string DegreeWKT(TShellAngularUnit const& unit) {
    return UnitDetail::UnitWKT(unit.Name.c_str(), UnitDetail::RadiansOfDegree);
}

} // namespace

void SeparateDMSString(char* text) {
    constexpr int LastSeparator = 2;
    std::locale const classes;
    char const* source = text;
    while (*source != '\0' && std::isspace(*source, classes)) {
        ++source;
    }
    char* target = text;
    int separators = 0;
    bool inNumber = true;
    for (; *source != '\0'; ++source) {
        bool const ofNumber = *source == '.' || std::isdigit(*source, classes);
        if (ofNumber && !inNumber && separators == LastSeparator) {
            // The target is never ahead of the source, and the closing NUL moves along.
            std::memmove(target, source, std::strlen(source) + 1);
            return;
        }
        if (ofNumber) {
            *target++ = *source;
        } else if (inNumber) {
            *target++ = ' ';
            ++separators;
        }
        inNumber = ofNumber;
    }
    *target = '\0';
}

// --- Degrees, minutes, seconds -----------------------------------------------------------------------------

TShellUnitDegreeMinuteSecond::TShellUnitDegreeMinuteSecond(TStringTree* tree) : TShellAngularUnit(tree) {
    SetDegree(this, SecondDecimals);
}

TShellUnitDegreeMinuteSecond::TShellUnitDegreeMinuteSecond(TKvXIniReader* xml) {
    if (!TShellUnitDegreeMinuteSecond::LoadFromXML(xml)) {
        throw std::runtime_error(
            "TShellUnitDegreeMinuteSecond::TShellUnitDegreeMinuteSecond(TKvXIniReader *xml)");
    }
    Precision = SecondDecimals;
}

bool TShellUnitDegreeMinuteSecond::LoadFromXML(TKvXIniReader* reader) {
    return TShellUnit::LoadFromXML(reader) && Code == anDegreeMinuteSecond;
}

bool TShellUnitDegreeMinuteSecond::StringToValue(std::string const& text, double* value) const {
    TAngleText beginning = CopyBeginning(text);
    char* const minus = std::strchr(beginning.data(), '-');
    double const sign = minus ? -1.0 : 1.0;
    char* const numbers = minus ? minus + 1 : beginning.data();
    SeparateDMSString(numbers);
    TThreeNumbers const read(numbers);
    if (read.count > 0) {
        *value = (read.seconds / 3600.0 + (read.minutes / 60.0 + read.degrees)) * sign;
        return true;
    }
    // Kept: as in the decimal notation, an empty text is a success that leaves the value alone.
    return ScanText(text.c_str(), "%lf", value) != 0;
}

std::string TShellUnitDegreeMinuteSecond::ValueToString(double const& value, int precision) const {
    int const decimals = precision < 0 ? 12 : precision;
    TSplitAngle angle(value);
    double const seconds = angle.RoundSeconds(decimals);
    char const* const minus = angle.negative ? "- " : "";
    return FormatText("%s%d %d %.*lf", minus, angle.degrees, angle.minutes, decimals, seconds);
}

bool TShellUnitDegreeMinuteSecond::ExportToWKT(std::string* text) const {
    *text = DegreeWKT(*this);
    return true;
}

double TShellUnitDegreeMinuteSecond::StringToDegrees(std::string const& text) const {
    return StringToValue(text);
}

std::string TShellUnitDegreeMinuteSecond::DegreesToString(double const& degrees, int precision) const {
    return ValueToString(degrees, precision);
}

double TShellUnitDegreeMinuteSecond::StringToDegreesLatitude(std::string const& text) const {
    return StringToDegrees(text);
}

std::string TShellUnitDegreeMinuteSecond::DegreesToStringLatitude(double const& degrees,
                                                                  int precision) const {
    return DegreesToString(degrees, precision);
}

double TShellUnitDegreeMinuteSecond::StringToDegreesLongitude(std::string const& text) const {
    return StringToDegrees(text);
}

std::string TShellUnitDegreeMinuteSecond::DegreesToStringLongitude(double const& degrees,
                                                                   int precision) const {
    return DegreesToString(degrees, precision);
}

// --- The same with a hemisphere letter ---------------------------------------------------------------------

TShellUnitDegreeMinuteSecondHemisphere::TShellUnitDegreeMinuteSecondHemisphere(TStringTree* tree)
    : TShellAngularUnit(tree) {
    SetDegree(this, SecondDecimals);
}

TShellUnitDegreeMinuteSecondHemisphere::TShellUnitDegreeMinuteSecondHemisphere(TKvXIniReader* xml) {
    if (!TShellUnitDegreeMinuteSecondHemisphere::LoadFromXML(xml)) {
        // Kept: the message is that of the notation without letters; hosts compare it.
        throw std::runtime_error(
            "TShellUnitDegreeMinuteSecond::TShellUnitDegreeMinuteSecond(TKvXIniReader *xml)");
    }
    Precision = SecondDecimals;
}

bool TShellUnitDegreeMinuteSecondHemisphere::LoadFromXML(TKvXIniReader* reader) {
    return TShellUnit::LoadFromXML(reader) && Code == anDegreeMinuteSecondHemisphere;
}

bool TShellUnitDegreeMinuteSecondHemisphere::StringToValue(std::string const& text, double* value) const {
    return DMSH_to_degrees(text, value);
}

bool TShellUnitDegreeMinuteSecondHemisphere::DMSH_to_degrees(std::string const& text, double* value) const {
    TAngleText beginning = CopyBeginning(text);
    double sign = 1.0;
    if (CutAtLetters(beginning.data(), Letters[2], Letters[3])) {
        sign = -1.0;
    } else {
        CutAtLetters(beginning.data(), Letters[0], Letters[1]);
    }
    SeparateDMSString(beginning.data());
    TThreeNumbers read(beginning.data());
    if (read.count == 0) {
        return false;
    }
    if (read.degrees < 0.0) {
        read.degrees = -read.degrees;
        sign = -1.0;
    }
    *value = (read.seconds / 3600.0 + (read.degrees + read.minutes / 60.0)) * sign;
    return true;
}

std::string TShellUnitDegreeMinuteSecondHemisphere::InternalOutput(double const& value, int precision,
                                                                   int axis) const {
    int const decimals = precision < 0 ? 10 : precision;
    TSplitAngle angle(value);
    double const seconds = angle.RoundSeconds(decimals);
    bool const isLongitude = axis != 0;
    char const letter = Letters[(isLongitude ? 1 : 0) + (angle.negative ? 2 : 0)];
    return FormatText("%d %d %.*lf %c", angle.degrees, angle.minutes, decimals, seconds, letter);
}

std::string TShellUnitDegreeMinuteSecondHemisphere::ValueToString(double const&, int) const {
    throw std::logic_error("TShellUnitDegreeMinuteSecondHemisphere::ValueToString");
}

std::string TShellUnitDegreeMinuteSecondHemisphere::ValueToStringLatitude(double const& value,
                                                                          int precision) const {
    return InternalOutput(value, precision, 0);
}

std::string TShellUnitDegreeMinuteSecondHemisphere::ValueToStringLongitude(double const& value,
                                                                           int precision) const {
    return InternalOutput(value, precision, 1);
}

bool TShellUnitDegreeMinuteSecondHemisphere::ExportToWKT(std::string* text) const {
    *text = DegreeWKT(*this);
    return true;
}

double TShellUnitDegreeMinuteSecondHemisphere::StringToDegrees(std::string const& text) const {
    return StringToValue(text);
}

std::string TShellUnitDegreeMinuteSecondHemisphere::DegreesToString(double const&, int) const {
    throw std::logic_error("TShellUnitDegreeMinuteSecondHemisphere::DegreesToString");
}

double TShellUnitDegreeMinuteSecondHemisphere::StringToDegreesLatitude(std::string const& text) const {
    return StringToDegrees(text);
}

std::string TShellUnitDegreeMinuteSecondHemisphere::DegreesToStringLatitude(double const& degrees,
                                                                            int precision) const {
    return ValueToStringLatitude(degrees, precision);
}

double TShellUnitDegreeMinuteSecondHemisphere::StringToDegreesLongitude(std::string const& text) const {
    return StringToDegrees(text);
}

std::string TShellUnitDegreeMinuteSecondHemisphere::DegreesToStringLongitude(double const& degrees,
                                                                             int precision) const {
    return ValueToStringLongitude(degrees, precision);
}

// --- Packed degrees, minutes, seconds ----------------------------------------------------------------------

TShellUnitSexagesimalDegree::TShellUnitSexagesimalDegree(TStringTree* tree) : TShellAngularUnit(tree) {
    SetDegree(this, SecondDecimals);
}

TShellUnitSexagesimalDegree::TShellUnitSexagesimalDegree(TKvXIniReader* xml) {
    if (!TShellUnitSexagesimalDegree::LoadFromXML(xml)) {
        throw std::runtime_error(
            "TShellUnitSexagesimalDegree::TShellUnitSexagesimalDegree(TKvXIniReader *xml)");
    }
    Precision = SecondDecimals;
}

bool TShellUnitSexagesimalDegree::LoadFromXML(TKvXIniReader* reader) {
    return TShellUnit::LoadFromXML(reader) && Code == anSexagesimalDegree;
}

bool TShellUnitSexagesimalDegree::StringToValue(std::string const& text, double* value) const {
    std::string const number = LumCommonUtils::trim(text);
    double scale = 1.0;
    std::size_t const point = number.find('.');
    if (point != std::string::npos) {
        // Kept: junk behind the fraction counts as its digits. A short text wraps round to an infinite scale,
        // which does no harm, since it has no fraction to be divided.
        std::size_t const digits = number.size() - point - 5;
        scale = digits == 0 ? 1.0 : LumCommonUtils::pow10(static_cast<double>(digits));
    }
    int degrees = 0;
    int minutes = 0;
    int seconds = 0;
    int fraction = 0;
    int const count = ScanText(number.c_str(), "%d.%2d%2d%d", &degrees, &minutes, &seconds, &fraction);
    if (count == 0 || minutes < 0 || seconds < 0 || fraction < 0) {
        return false;
    }
    // Kept: the sign rests on the whole degrees alone, so "-0.3000" is positive.
    if (degrees < 0) {
        minutes = -minutes;
        seconds = -seconds;
        fraction = -fraction;
    }
    *value = (fraction / scale + seconds) / 3600.0 + (minutes / 60.0 + degrees);
    return true;
}

std::string TShellUnitSexagesimalDegree::ValueToString(double const& value, int precision) const {
    TSplitAngle angle(value);
    double const secondsWithFraction = angle.minuteFraction * 60.0;
    std::int32_t seconds = ToInt32(std::floor(secondsWithFraction));
    double const fraction = secondsWithFraction - seconds;
    if (precision < 0) {
        // Kept: no carry here, so a fraction next to 1 has ten digits.
        std::int32_t const billionths = ToInt32(std::floor(fraction * 1e9 + 0.5));
        return FormatText("%s%d.%02d%02d%09d", MinusOf(angle.negative), angle.degrees, angle.minutes, seconds,
                          billionths);
    }
    TPackedFraction const packed(fraction, precision);
    if (packed.overflowed && seconds < 59) {
        ++seconds;
    } else if (packed.overflowed) {
        seconds -= 59;
        angle.CarryIntoMinutes();
    }
    return FormatText("%s%d.%02d%02d%0*d", MinusOf(angle.negative), angle.degrees, angle.minutes, seconds,
                      precision, packed.digitsNumber);
}

bool TShellUnitSexagesimalDegree::ExportToWKT(std::string* text) const {
    *text = DegreeWKT(*this);
    return true;
}

double TShellUnitSexagesimalDegree::StringToDegrees(std::string const& text) const {
    return StringToValue(text);
}

std::string TShellUnitSexagesimalDegree::DegreesToString(double const& degrees, int precision) const {
    return ValueToString(degrees, precision);
}

double TShellUnitSexagesimalDegree::StringToDegreesLatitude(std::string const& text) const {
    return StringToDegrees(text);
}

std::string TShellUnitSexagesimalDegree::DegreesToStringLatitude(double const& degrees, int precision) const {
    return DegreesToString(degrees, precision);
}

double TShellUnitSexagesimalDegree::StringToDegreesLongitude(std::string const& text) const {
    return StringToDegrees(text);
}

std::string TShellUnitSexagesimalDegree::DegreesToStringLongitude(double const& degrees,
                                                                  int precision) const {
    return DegreesToString(degrees, precision);
}

// --- Packed degrees and decimal minutes --------------------------------------------------------------------

TShellDegreeDecimalMinuteUnit::TShellDegreeDecimalMinuteUnit(TStringTree* tree) : TShellAngularUnit(tree) {
    SetDegree(this, MinuteDecimals);
}

TShellDegreeDecimalMinuteUnit::TShellDegreeDecimalMinuteUnit(TKvXIniReader* xml) {
    if (!TShellDegreeDecimalMinuteUnit::LoadFromXML(xml)) {
        throw std::runtime_error(
            "TShellDegreeDecimalMinuteUnit::TShellDegreeDecimalMinuteUnit(TKvXIniReader *xml)");
    }
    Precision = MinuteDecimals;
}

bool TShellDegreeDecimalMinuteUnit::LoadFromXML(TKvXIniReader* reader) {
    return TShellUnit::LoadFromXML(reader) && Code == anDegreeDecimalMinute;
}

bool TShellDegreeDecimalMinuteUnit::StringToValue(std::string const& text, double* value) const {
    char const* const minus = std::strchr(text.c_str(), '-');
    double const sign = minus ? -1.0 : 1.0;
    int degrees = 0;
    int minutes = 0;
    int tenths = 0;
    int const count = ScanText(minus ? minus + 1 : text.c_str(), "%d.%2d%d", &degrees, &minutes, &tenths);
    if (count == 0) {
        return false;
    }
    // Kept: however many digits follow the minutes, they are tenths; hosts have texts that were made for it.
    *value = sign * ((minutes + tenths / 10.0) / 60.0 + degrees);
    return true;
}

std::string TShellDegreeDecimalMinuteUnit::ValueToString(double const& value, int precision) const {
    TSplitAngle angle(value);
    if (precision < 0) {
        // Kept: no carry here, and from 0.2147483648 on the fraction doesn't fit; callers give a precision.
        std::int32_t const number = ToInt32(std::floor(angle.minuteFraction * 1e10 + 0.5));
        return FormatText("%s%d.%02d%010d", MinusOf(angle.negative), angle.degrees, angle.minutes, number);
    }
    TPackedFraction const packed(angle.minuteFraction, precision);
    if (packed.overflowed) {
        angle.CarryIntoMinutes();
    }
    return FormatText("%s%d.%02d%0*d", MinusOf(angle.negative), angle.degrees, angle.minutes, precision,
                      packed.digitsNumber);
}

bool TShellDegreeDecimalMinuteUnit::ExportToWKT(std::string* text) const {
    *text = DegreeWKT(*this);
    return true;
}

double TShellDegreeDecimalMinuteUnit::StringToDegrees(std::string const& text) const {
    return StringToValue(text);
}

std::string TShellDegreeDecimalMinuteUnit::DegreesToString(double const& degrees, int precision) const {
    return ValueToString(degrees, precision);
}

double TShellDegreeDecimalMinuteUnit::StringToDegreesLatitude(std::string const& text) const {
    return StringToDegrees(text);
}

std::string TShellDegreeDecimalMinuteUnit::DegreesToStringLatitude(double const& degrees,
                                                                   int precision) const {
    return DegreesToString(degrees, precision);
}

double TShellDegreeDecimalMinuteUnit::StringToDegreesLongitude(std::string const& text) const {
    return StringToDegrees(text);
}

std::string TShellDegreeDecimalMinuteUnit::DegreesToStringLongitude(double const& degrees,
                                                                    int precision) const {
    return DegreesToString(degrees, precision);
}

} // namespace KvRefSystem
