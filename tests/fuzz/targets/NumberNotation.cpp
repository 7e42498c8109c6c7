#include "tests/fuzz/targets/NumberNotation.h"

#include "shell/units/AngularUnit.h"

#include <cmath>
#include <limits>

namespace Fuzz {

namespace {

using namespace KvRefSystem;

/** Half of the last digit, and the roundings of some operations. */
double Tolerance(double value, double unitOfDigits, int decimals) {
    constexpr double Roundings = 8;
    return 0.5 * unitOfDigits * std::pow(10.0, -decimals) * (1 + 1e-9) +
           Roundings * std::numeric_limits<double>::epsilon() * std::fmax(std::fabs(value), 1.0);
}

} // namespace

std::optional<double> ReadBackTolerance(int code, double value, int precision) {
    constexpr double Second = 1.0 / 3600;
    constexpr double Minute = 1.0 / 60;
    constexpr int MostDecimals = 60;
    constexpr int MostPackedDecimals = 9;
    constexpr double MostDegrees = 360;
    if (code != anDegreeMinuteSecond && code != anDegreeMinuteSecondHemisphere &&
        code != anSexagesimalDegree && code != anDegreeDecimalMinute) {
        // 25 significant digits are more than a double has.
        return precision < 0 ? 0.0 : Tolerance(value, 1, precision);
    }
    // Degrees are printed as an int, and a carry folds what is beyond one turn.
    if (!(std::fabs(value) < MostDegrees)) {
        return std::nullopt;
    }
    switch (code) {
    case anDegreeMinuteSecond:
    case anDegreeMinuteSecondHemisphere: {
        int const allDecimals = code == anDegreeMinuteSecond ? 12 : 10;
        return precision > MostDecimals
                   ? std::nullopt
                   : std::optional(Tolerance(value, Second, precision < 0 ? allDecimals : precision));
    }
    case anSexagesimalDegree:
        // The sign rests on the whole degrees; a negative precision has no carry; digits are printed as an int.
        return (value < 0 && value > -1) || precision < 0 || precision > MostPackedDecimals
                   ? std::nullopt
                   : std::optional(Tolerance(value, Second, precision));
    default:
        // What follows the minutes is read as tenths.
        return precision < 0 || precision > 1 ? std::nullopt
                                              : std::optional(Tolerance(value, Minute, precision));
    }
}

bool IsReadBack(int code, double value, double read, double tolerance) {
    if (std::isnan(value) || std::isinf(value)) {
        return std::isnan(value) ? std::isnan(read) : read == value;
    }
    bool const isCarried = code != 0 && std::fabs(value) >= 180;
    return std::fabs(read - value) <= tolerance ||
           (isCarried && std::fabs(std::fabs(read - value) - 360) <= tolerance);
}

} // namespace Fuzz
