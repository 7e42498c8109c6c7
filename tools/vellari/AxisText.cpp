#include "tools/vellari/AxisText.h"

#include "tools/vellari/NameMatch.h"
#include "tools/vellari/ToolError.h"

#include <algorithm>
#include <cmath>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

/** Names of a kind's coordinates. */
struct TAxisNames {
    int kind;
    std::string_view name[3];
};

constexpr TAxisNames axisNames[] = {
    {rstLocalCartesian, {"x", "y", "h"}},    {rstLocalCurved, {"x", "y", "h"}},
    {rstGeocentric, {"x", "y", "z"}},        {rstGeodetic, {"latitude", "longitude", "height"}},
    {rstMapProjected, {"x", "y", "height"}}, {rstTopocentricHorizontal, {"x", "y", "up"}},
};

/** @return the name of a plane coordinate that grows in a direction; empty without one. */
std::string_view GridAxisName(TCardinalDirection direction) {
    switch (direction) {
    case cdNone:
        break;
    case cdNorth:
        return "northing";
    case cdEast:
        return "easting";
    case cdSouth:
        return "southing";
    case cdWest:
        return "westing";
    }
    return "";
}

/** What stands in a column's name for a notation. */
std::string_view NotationName(TSexagesimalNotation notation) {
    switch (notation) {
    case snNone:
        break;
    case snParts:
    case snHemisphere:
        return "dms";
    case snPackedSeconds:
        return "ddmmss";
    case snPackedMinutes:
        return "ddmm";
    }
    return "";
}

} // namespace

std::string AxisNameOf(TShellReferenceSystem const& system, int index) {
    TCardinalDirection direction[2] = {cdNone, cdNone};
    if (index < 2 && system.IsTopocentricHorizontal() &&
        system.GetAxesDirections(&direction[0], &direction[1])) {
        // The numbers, not the directions that the library tells: those of a left-handed frame stand the other
        // way round, while its coordinates are swapped twice and come in the same order.
        return index == 0 ? "east" : "north";
    }
    if (index < 2 && system.IsProjected() && system.GetAxesDirections(&direction[0], &direction[1]) &&
        !GridAxisName(direction[index]).empty()) {
        return std::string(GridAxisName(direction[index]));
    }
    for (TAxisNames const& row : axisNames) {
        if (row.kind == system.Type) {
            return std::string(row.name[index]);
        }
    }
    return std::string(1, "xyz"[index]);
}

TAxisText::TAxisText(std::string axisName, std::string unitName, int decimals)
    : axis(std::move(axisName)), columnName(axis + "_" + unitName), precision(decimals) {}

TAxisText::TAxisText(std::string axisName, TShellAngularUnit const& unit, bool isLongitude, int decimals)
    : axis(std::move(axisName)),
      notation(NotationOf(unit)),
      isLongitudeAxis(isLongitude),
      precision(decimals) {
    if (notation == snNone) {
        columnName = axis + "_" + ColumnUnitName(unit.Abbreviation, unit.Name);
    } else {
        sexagesimalUnit = &unit;
        if (notation == snPackedSeconds || notation == snPackedMinutes) {
            precision = std::min(precision, MostPackedDecimals);
        }
        columnName = axis + "_" + std::string(NotationName(notation));
    }
}

void TAxisText::Rename(std::string const& axisName) {
    columnName = axisName + columnName.substr(axis.size());
    axis = axisName;
}

bool TAxisText::Parse(std::string_view field, double* value, std::string* reason) const {
    double number = 0;
    if (notation == snNone) {
        if (ParseWholeDouble(field, &number) && std::isfinite(number)) {
            *value = number;
            return true;
        }
        if (reason) {
            *reason = field.empty()
                          ? axis + " is empty; a number is needed"
                          : axis + " " + Quoted(field, 40) + " is not a number" +
                                (field.find(',') != std::string_view::npos ? " with a decimal point" : "");
        }
        return false;
    }

    std::string problem = FindSexagesimalMistake(field, notation, isLongitudeAxis);
    if (problem.empty()) {
        std::string const text(field);
        bool const isRead = isLongitudeAxis ? sexagesimalUnit->StringToValueLongitude(text, &number)
                                            : sexagesimalUnit->StringToValueLatitude(text, &number);
        if (isRead && std::isfinite(number)) {
            *value = number;
            return true;
        }
        problem = "cannot be read";
    }
    if (reason) {
        *reason = axis + " " + (field.empty() ? "" : Quoted(field, 40) + " ") + problem;
    }
    return false;
}

void TAxisText::Append(std::string* text, double value) const {
    if (notation == snNone) {
        AppendFixed(text, value, precision);
        return;
    }
    text->append(isLongitudeAxis ? sexagesimalUnit->ValueToStringLongitude(value, precision)
                                 : sexagesimalUnit->ValueToStringLatitude(value, precision));
}

std::array<TAxisText, 3> AxisTexts(TShellReferenceSystem const& system, TPrecision const& precision) {
    int const planeDecimals = precision.all.value_or(system.GetPlaneUnitDefPrec());
    int const heightDecimals =
        precision.height.value_or(precision.all.value_or(system.GetHeightUnitDefPrec()));
    TAxisText const height(AxisNameOf(system, 2),
                           ColumnUnitName(system.GetHeightUnitShortName(), system.GetHeightUnitName()),
                           heightDecimals);
    if (auto const* const geodetic = dynamic_cast<TShellGeodeticReferenceSystem const*>(&system)) {
        TShellAngularUnit const& unit = *geodetic->AngularUnit;
        return {TAxisText(AxisNameOf(system, 0), unit, false, planeDecimals),
                TAxisText(AxisNameOf(system, 1), unit, true, planeDecimals), height};
    }
    std::string const planeUnit = ColumnUnitName(system.GetPlaneUnitShortName(), system.GetPlaneUnitName());
    return {TAxisText(AxisNameOf(system, 0), planeUnit, planeDecimals),
            TAxisText(AxisNameOf(system, 1), planeUnit, planeDecimals), height};
}

std::string ColumnUnitName(std::string const& abbreviation, std::string const& name) {
    for (std::string const* const text : {&abbreviation, &name}) {
        std::string clean;
        for (char const letter : LowerCase(*text)) {
            if ((letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9')) {
                clean += letter;
            } else if (!clean.empty() && clean.back() != '_') {
                clean += '_';
            }
        }
        if (!clean.empty() && clean.back() == '_') {
            clean.pop_back();
        }
        if (!clean.empty()) {
            return clean;
        }
    }
    return "unit";
}

} // namespace VellariTool
