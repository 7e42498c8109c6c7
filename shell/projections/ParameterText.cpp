#include "frame/NumberText.h"
#include "shell/projections/ParameterTextDetail.h"
#include "shell/projections/ReportFailureDetail.h"

#include <cmath>
#include <string_view>

namespace KvRefSystem::ParameterText {

namespace {

constexpr double Pi = 3.141592653589793;

/** Powers of ten as literals, so that they are exact. */
constexpr double FromMifDecimals = 1e-8;
constexpr double ToMifDecimals = 1e8;
constexpr double FromFineMifDecimals = 1e-10;
constexpr double ToFineMifDecimals = 1e10;

TShellUnit const& Required(TShellUnit const* unit) {
    if (!unit) {
        throw TUnusableProjection();
    }
    return *unit;
}

/** The units let an empty text pass, and read as far as a null character; a parameter must be there. */
void RequireText(std::string const& text) {
    std::string_view const read = text.c_str();
    if (read.find_first_not_of(" \t\n\v\f\r") == std::string_view::npos) {
        throw TUnusableProjection();
    }
}

} // namespace

double ToBase(TShellUnit const* unit, std::string const& text) {
    TShellUnit const& known = Required(unit);
    RequireText(text);
    return known.StringToValue(text) * known.CoefToBase;
}

std::string InUnit(TShellUnit const* unit, std::string const& text, TShellUnit const* target) {
    RequireText(text);
    std::string result;
    if (!Convert(Required(unit), text, Required(target), &result)) {
        throw TUnusableProjection();
    }
    return result;
}

double ToDegrees(double radians) {
    return radians * 180.0 / Pi;
}

double ToRadians(double degrees) {
    return degrees * Pi / 180.0;
}

double RoundDegrees(double degrees, TMifRounding rounding) {
    bool const isFine = rounding == TMifRounding::Ten;
    double const steps = std::floor(degrees * (isFine ? ToFineMifDecimals : ToMifDecimals) + 0.5);
    return steps * (isFine ? FromFineMifDecimals : FromMifDecimals);
}

std::string LengthText(TShellLinearUnit const* unit, double metres) {
    TShellUnit const& known = Required(unit);
    return known.ValueToString(metres * known.CoefFromBase, -1);
}

void TWktParameters::Add(char const* name, double value) {
    Text += Text.empty() ? "" : ",\t";
    Text += FormatText("PARAMETER[\"%s\",%.15lg]", name, value);
}

} // namespace KvRefSystem::ParameterText
