#include "tools/accuracy/Figure.h"

#include <Vellari/Vellari.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace VellariAccuracy {

namespace {

/** Between these the figures are written without a power of ten. */
constexpr double LeastPlain = 1e-4;
constexpr double GreatestPlain = 1e6;

/** `digits` (10 to 99) tenths of a power of ten. */
std::string TextOf(int digits, int exponent) {
    std::string const scientific = KvRefSystem::FormatText("%d.%de%d", digits / 10, digits % 10, exponent);
    double value = 0;
    KvRefSystem::ParseWholeDouble(scientific, &value);
    if (value >= LeastPlain && value < GreatestPlain) {
        return KvRefSystem::FormatText("%.*f", std::max(0, 1 - exponent), value);
    }
    return digits % 10 == 0 ? KvRefSystem::FormatText("%de%d", digits / 10, exponent) : scientific;
}

double ValueOf(std::string const& text) {
    double value = 0;
    KvRefSystem::ParseWholeDouble(text, &value);
    return value;
}

} // namespace

std::string FigureText(double number, double least) {
    if (!std::isfinite(number)) {
        return NoNumber;
    }
    double const shown = std::max(number, least);
    int units = 0;
    int tenths = 0;
    int exponent = 0;
    KvRefSystem::ScanText(KvRefSystem::FormatText("%.1e", shown).c_str(), "%d.%de%d", &units, &tenths,
                          &exponent);
    int digits = 10 * units + tenths;
    // To the nearest isn't up yet.
    if (ValueOf(TextOf(digits, exponent)) < shown) {
        ++digits;
    }
    if (digits == 100) {
        digits = 10;
        ++exponent;
    }
    return TextOf(digits, exponent);
}

bool ReadFigure(std::string_view text, double* number, double least) {
    if (text == NoNumber) {
        *number = std::numeric_limits<double>::quiet_NaN();
        return true;
    }
    double value = 0;
    if (!KvRefSystem::ParseWholeDouble(text, &value) || FigureText(value, least) != text) {
        return false;
    }
    *number = value;
    return true;
}

bool Holds(double measured, double figure) {
    if (std::isnan(figure) || !std::isfinite(measured)) {
        return std::isnan(figure) && !std::isfinite(measured);
    }
    return measured <= figure;
}

} // namespace VellariAccuracy
