#include "tools/vellari/UnitsCommand.h"

#include "tools/vellari/NameMatch.h"
#include "tools/vellari/OutputFile.h"
#include "tools/vellari/SexagesimalText.h"
#include "tools/vellari/ToolError.h"

#include <Vellari/Vellari.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

/** Facts of a unit; its size in base units is the quotient. */
struct TUnitRow {
    char const* name;
    int type;
    int code;
    char const* numerator;
    char const* denominator;
    int epsg; ///< code in the EPSG register
    char const* explanation;
};

constexpr char const* pi = "3.14159265358979312";

// Sizes as the EPSG register defines them, which is exact for all lengths.
constexpr TUnitRow unitRows[] = {
    {"metre", utLinear, 0, "1", "1", 9001, "the base unit of lengths"},
    {"kilometre", utLinear, 1, "1000", "1", 9036, "1000 m"},
    {"centimetre", utLinear, 4, "1", "100", 1033, "0.01 m"},
    {"millimetre", utLinear, 5, "1", "1000", 1025, "0.001 m"},
    {"foot", utLinear, 2, "0.3048", "1", 9002, "international foot, 0.3048 m"},
    {"us-foot", utLinear, 3, "12", "39.37", 9003, "US survey foot, 12/39.37 m"},
    {"yard", utLinear, 6, "0.9144", "1", 9096, "international yard, 0.9144 m"},
    {"fathom", utLinear, 7, "1.8288", "1", 9014, "1.8288 m"},
    {"mile", utLinear, 8, "1609.344", "1", 9093, "statute mile, 1609.344 m"},
    {"nautical-mile", utLinear, 9, "1852", "1", 9030, "1852 m"},
    {"degree", utAngular, 0, pi, "180", 9102, "plain decimal degrees"},
    {"radian", utAngular, 1, "1", "1", 9101, "the base unit of angles"},
    {"minute", utAngular, 4, pi, "10800", 9103, "1/60 degree"},
    {"second", utAngular, 5, pi, "648000", 9104, "1/3600 degree"},
    {"grad", utAngular, 3, pi, "200", 9105, "1/400 of a turn"},
    {"dms", utAngular, anDegreeMinuteSecond, pi, "180", 9107, "degrees, minutes, seconds: -55 45 07.2"},
    {"dms-hemisphere", utAngular, anDegreeMinuteSecondHemisphere, pi, "180", 9108,
     "the same with a letter: 55 45 07.2 S"},
    {"sexagesimal", utAngular, anSexagesimalDegree, pi, "180", 9110, "packed degrees.MMSSsss: 55.450720"},
    {"decimal-minutes", utAngular, anDegreeDecimalMinute, pi, "180", 9111,
     "packed degrees.MMm: 55.451 for 55 45.1"},
};

/** Other spellings of a unit. */
struct TUnitAlias {
    char const* alias;
    char const* name;
};

constexpr TUnitAlias aliases[] = {
    {"m", "metre"},
    {"meter", "metre"},
    {"km", "kilometre"},
    {"kilometer", "kilometre"},
    {"cm", "centimetre"},
    {"centimeter", "centimetre"},
    {"mm", "millimetre"},
    {"millimeter", "millimetre"},
    {"ft", "foot"},
    {"feet", "foot"},
    {"us-ft", "us-foot"},
    {"yd", "yard"},
    {"mi", "mile"},
    {"nm", "nautical-mile"},
    {"deg", "degree"},
    {"degrees", "degree"},
    {"rad", "radian"},
    {"radians", "radian"},
    {"gon", "grad"},
    {"grads", "grad"},
    {"min", "minute"},
    {"sec", "second"},
    {"dmsh", "dms-hemisphere"},
};

/** @return the row of a unit. @throws TToolError for an unknown one. */
TUnitRow const& FindUnit(std::string const& name) {
    std::string wanted = LowerCase(name);
    for (TUnitAlias const& row : aliases) {
        if (wanted == row.alias) {
            wanted = row.name;
        }
    }
    TUnitRow const* nearest = nullptr;
    std::size_t nearestDistance = 0;
    for (TUnitRow const& row : unitRows) {
        if (wanted == row.name) {
            return row;
        }
        std::size_t const distance = EditDistance(wanted, row.name);
        if (!nearest || distance < nearestDistance) {
            nearest = &row;
            nearestDistance = distance;
        }
    }
    std::string const hint = nearestDistance <= 2 ? std::string("; did you mean ") + nearest->name + "?" : "";
    throw TToolError("unit " + Quoted(name) + " is not known" + hint + (hint.empty() ? ";" : "") +
                     " `vellari help units` lists the units");
}

/** Fills a tree as descriptions have it. */
void FillUnitTree(TUnitRow const& row, TStringTree* tree) {
    tree->InsertInteger("code", 5301, 0, row.code);
    tree->InsertInteger("type", 5312, 0, row.type);
    tree->InsertString("f_b", 5310, 0, row.numerator);
    tree->InsertString("f_c", 5311, 0, row.denominator);
    tree->InsertString("name", 5320, 0, row.name);
    tree->InsertString("abbr", 5321, 0, row.name);
    tree->InsertString("desc", 5322, 0, row.explanation);
    tree->InsertInteger("epsg", row.type == utLinear ? 102002 : 102003, 0, row.epsg);
}

/** @return "length" or "angle". */
char const* KindText(int type) {
    return type == utLinear ? "length" : "angle";
}

/** @return 0 for latitude, 1 for longitude, nothing when neither the option nor the value's letter tells. */
std::optional<bool> FindAxis(TUnitsOptions const& options) {
    if (options.axis == "latitude" || options.axis == "longitude") {
        return options.axis == "longitude";
    }
    if (!options.axis.empty()) {
        throw TToolError("--axis " + options.axis + " is not an axis; right is latitude or longitude");
    }
    std::string_view const value = options.value;
    std::size_t const letter = value.find_last_not_of(' ');
    if (letter == std::string_view::npos) {
        return std::nullopt;
    }
    if (value[letter] == 'N' || value[letter] == 'S') {
        return false;
    }
    if (value[letter] == 'E' || value[letter] == 'W') {
        return true;
    }
    return std::nullopt;
}

/** Names the value and what is wrong with it. */
[[noreturn]] void FailValue(TUnitsOptions const& options, std::string const& problem) {
    throw TToolError("value " + Quoted(options.value, 40) + " " + problem);
}

/** @return the value as a plain number. @throws TToolError for another text. */
double ReadPlain(TUnitsOptions const& options) {
    double value = 0;
    if (!ParseWholeDouble(options.value, &value) || !std::isfinite(value)) {
        FailValue(options, "is not a number");
    }
    return value;
}

/** @return the length in the second unit. */
std::string ConvertLength(TUnitsOptions const& options, TUnitRow const& from, TUnitRow const& to) {
    TStringTree fromTree;
    TStringTree toTree;
    FillUnitTree(from, &fromTree);
    FillUnitTree(to, &toTree);
    TShellLinearUnit const source(&fromTree);
    TShellLinearUnit const target(&toTree);
    double value = ReadPlain(options);
    source.Convert(target, &value);
    return target.ValueToString(value, options.precision.value_or(target.Precision));
}

/** @return the angle in the second unit. */
std::string ConvertAngle(TUnitsOptions const& options, TUnitRow const& from, TUnitRow const& to) {
    TStringTree fromTree;
    TStringTree toTree;
    FillUnitTree(from, &fromTree);
    FillUnitTree(to, &toTree);
    std::unique_ptr<TShellAngularUnit> const source(CreateShellAngularUnit(&fromTree));
    std::unique_ptr<TShellAngularUnit> const target(CreateShellAngularUnit(&toTree));
    std::optional<bool> const axis = FindAxis(options);
    bool const isLongitude = axis.value_or(false);

    double value = 0;
    if (NotationOf(*source) == snNone) {
        value = ReadPlain(options);
    } else {
        std::string text = options.value;
        text.erase(text.find_last_not_of(' ') + 1);
        std::string const problem = FindSexagesimalMistake(text, NotationOf(*source), isLongitude);
        if (!problem.empty()) {
            FailValue(options, problem);
        }
        value = isLongitude ? source->StringToValueLongitude(text) : source->StringToValueLatitude(text);
    }
    if (NotationOf(*target) == snHemisphere && !axis) {
        throw TToolError(
            "an angle with a hemisphere letter needs its axis: --axis latitude or --axis longitude");
    }
    source->Convert(*target, &value);
    if (NotationOf(*target) != snNone && std::fabs(value) > 360) {
        FailValue(options, "is more than a turn, which this notation does not write");
    }
    int const precision = options.precision.value_or(target->Precision);
    bool const isPacked = NotationOf(*target) == snPackedSeconds || NotationOf(*target) == snPackedMinutes;
    int const decimals = isPacked ? std::min(precision, 9) : precision;
    return isLongitude ? target->ValueToStringLongitude(value, decimals)
                       : target->ValueToStringLatitude(value, decimals);
}

} // namespace

std::string ConvertUnits(TUnitsOptions const& options) {
    TUnitRow const& from = FindUnit(options.from);
    TUnitRow const& to = FindUnit(options.to);
    if (from.type != to.type) {
        throw TToolError(std::string(from.name) + " is a unit of " + KindText(from.type) + " and " + to.name +
                         " one of " + KindText(to.type) + ": no conversion leads from one to the other");
    }
    return from.type == utLinear ? ConvertLength(options, from, to) : ConvertAngle(options, from, to);
}

int RunUnits(TUnitsOptions const& options) {
    PrintText(ConvertUnits(options) + "\n");
    return esDone;
}

std::string UnitsTable() {
    std::string text;
    for (TUnitRow const& row : unitRows) {
        std::string line = std::string("  ") + row.name;
        line.append(18 - std::min<std::size_t>(line.size(), 17), ' ');
        line += std::string(row.type == utLinear ? "length  " : "angle   ") + row.explanation;
        for (TUnitAlias const& other : aliases) {
            line += std::string_view(other.name) == row.name ? std::string(", ") + other.alias : "";
        }
        text += line + "\n";
    }
    return text;
}

} // namespace VellariTool
