#include "tools/vellari/ProjectionCheck.h"

#include "tools/vellari/ProjectionNames.h"
#include "tools/vellari/SexagesimalText.h"
#include "tools/vellari/ZoneShorthand.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

using TMistake = std::optional<std::string>;

/** Types are stored in descriptions; all known ones are far below. */
constexpr int greatestType = 9999;

TMapProjectionType TypeOf(TStringTree const& projection) {
    int type = 0;
    projection.GetInteger(6001, 0, &type);
    return TMapProjection::IntToType(type);
}

/** Tags of the units in a projection's subtree. */
int UnitTag(TShellUnitType kind) {
    switch (kind) {
    case utNone:
        break;
    case utLinear:
        return 6091;
    case utAngular:
        return 6090;
    case utScale:
        return 6092;
    }
    return 0;
}

bool IsBlank(std::string const& text) {
    return text.find_first_not_of(" \t\n\v\f\r") == std::string::npos;
}

// --- Numbers and angles ------------------------------------------------------------------------------------

/** Reads an angle by its unit, in radians. @return nothing for a text that doesn't parse. */
std::optional<double> AngleOf(TStringTree const& projection, std::string const& text) {
    TStringTree const* const tree = projection.FindSubtree(UnitTag(utAngular), 0);
    if (!tree || IsBlank(text)) {
        return std::nullopt;
    }
    try {
        std::unique_ptr<TShellAngularUnit> const unit = ReadAngularUnit(*tree);
        if (!unit) {
            return std::nullopt;
        }
        double const radians = static_cast<TShellUnit const&>(*unit).StringToValue(text) * unit->CoefToBase;
        return std::isfinite(radians) ? std::optional<double>(radians) : std::nullopt;
    } catch (std::exception const&) {
        return std::nullopt;
    }
}

/** @return what is wrong with a parameter that has a unit. */
TMistake FindMeasureMistake(TPlace const& place, TMapProjectionParameter const& parameter,
                            std::string const& meaning, std::string const& text) {
    TStringTree const* const unit = place.tree->FindSubtree(UnitTag(parameter.Unit), 0);
    if (parameter.IsOptional && (text.empty() || !unit)) {
        return std::nullopt;
    }
    if (parameter.Unit == utAngular && unit && !IsPlainUnit(*unit)) {
        return AngleOf(*place.tree, text)
                   ? std::nullopt
                   : TMistake(place.HasWrongText(parameter.Key, 0, meaning, text, "an angle in its unit"));
    }
    double value = 0;
    if (!ParseWholeDouble(text, &value) || !std::isfinite(value)) {
        return place.HasWrongText(parameter.Key, 0, meaning, text, "a number");
    }
    return std::nullopt;
}

// --- Zones, poles, regions ---------------------------------------------------------------------------------

bool IsWholeFromOne(std::string const& text) {
    int value = 0;
    return ParseWholeInt(text, &value) && value >= 1;
}

bool IsNorthOrSouth(std::string const& text) {
    return !text.empty() && (text[0] == 'N' || text[0] == 'S');
}

bool IsBlock(std::string const& text) {
    return !text.empty() && GetSK63Blocks().find(text[0]) != std::string::npos;
}

bool IsRegion(std::string const& text) {
    int value = 0;
    std::vector<int> const regions = GetMSKxxRegions();
    return ParseWholeInt(text, &value) && std::find(regions.begin(), regions.end(), value) != regions.end();
}

bool IsAboveZero(std::string const& text) {
    double value = 0;
    return ParseWholeDouble(text, &value) && value > 0 && std::isfinite(value);
}

/** What a parameter without a unit must be. */
struct TPlainRule {
    int key;
    bool (*isRight)(std::string const& text);
    std::string (*wanted)();
};

constexpr TPlainRule plainRules[] = {
    {6201, IsWholeFromOne, [] { return std::string("a whole number from 1 on"); }},
    {6202, IsNorthOrSouth, [] { return std::string("N or S"); }},
    {6203, IsNorthOrSouth, [] { return std::string("N or S"); }},
    {6204, IsBlock, [] { return "one of the letters " + SpacedLetters(GetSK63Blocks()); }},
    {6205, IsRegion, [] { return "a region with a grid (" + NumberRanges(GetMSKxxRegions()) + ")"; }},
};

constexpr TPlainRule wholeWidth = {6206, IsWholeFromOne, plainRules[0].wanted};
constexpr TPlainRule anyWidth = {6206, IsAboveZero, [] { return std::string("a number above 0"); }};

/** @return what is wrong with a parameter that has no unit. */
TMistake FindPlainMistake(TPlace const& place, TMapProjectionParameter const& parameter,
                          std::string const& meaning, std::string const& text) {
    TPlainRule const* rule = TypeOf(*place.tree) == mptSK63 ? &wholeWidth : &anyWidth;
    for (TPlainRule const& row : plainRules) {
        rule = row.key == parameter.Key ? &row : rule;
    }
    if (rule->key != parameter.Key || rule->isRight(text)) {
        return std::nullopt;
    }
    return place.HasWrongText(parameter.Key, 0, meaning, text, rule->wanted());
}

// --- What a method refuses ---------------------------------------------------------------------------------

/** A cone whose parallels are one, or one the other's mirror image, is none. */
TMistake FindConeMistake(TPlace const& place) {
    TMapProjectionType const type = TypeOf(*place.tree);
    std::string first;
    std::string second;
    if (place.tree->GetString(6114, 0, &first) && place.tree->GetString(6115, 0, &second)) {
        std::optional<double> const firstAngle = AngleOf(*place.tree, first);
        std::optional<double> const secondAngle = AngleOf(*place.tree, second);
        if (firstAngle && secondAngle && std::fabs(*firstAngle) == std::fabs(*secondAngle)) {
            return place.HasWrongText(6115, 0, "the second standard parallel", second,
                                      "another parallel than the first one and its mirror image");
        }
    }
    std::string latitude;
    if (type == mptLambertConicConformal1SP && place.tree->GetString(6102, 0, &latitude) &&
        AngleOf(*place.tree, latitude) == 0.0) {
        return place.HasWrongText(6102, 0, "the latitude of origin", latitude, "a latitude off the equator");
    }
    return std::nullopt;
}

} // namespace

bool IsKnownProjection(int type) {
    return TMapProjection::IntToType(type) != 0;
}

std::string KnownProjections() {
    std::vector<int> types;
    for (int type = 1; type <= greatestType; ++type) {
        if (IsKnownProjection(type)) {
            types.push_back(type);
        }
    }
    return NumberRanges(types);
}

bool UsesUnit(TStringTree const& projection, TShellUnitType kind) {
    std::vector<TMapProjectionParameter> const parameters = GetMapProjectionParameters(TypeOf(projection));
    return projection.FindSubtree(UnitTag(kind), 0) ||
           std::any_of(parameters.begin(), parameters.end(), [kind](TMapProjectionParameter const& row) {
               return row.Unit == kind && !row.IsOptional;
           });
}

std::optional<std::string> FindParameterMistake(TPlace const& projection) {
    for (TMapProjectionParameter const& parameter : GetMapProjectionParameters(TypeOf(*projection.tree))) {
        std::string const meaning = "the " + ParameterName(parameter);
        std::string text;
        if (!projection.tree->GetString(parameter.Key, 0, &text)) {
            if (parameter.IsOptional) {
                continue;
            }
            return projection.LacksField(parameter.Key, 0, meaning);
        }
        TMistake mistake = parameter.Unit == utNone
                               ? FindPlainMistake(projection, parameter, meaning, text)
                               : FindMeasureMistake(projection, parameter, meaning, text);
        if (mistake) {
            return mistake;
        }
    }
    return FindConeMistake(projection);
}

} // namespace VellariTool
