#include "tools/vellari/DescriptionCheck.h"

#include "tools/vellari/FrameCheck.h"
#include "tools/vellari/ProjectionCheck.h"
#include "tools/vellari/ToolError.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

// --- Conditions --------------------------------------------------------------------------------------------

/** @return the whole number of a field, or `fallback` without one. */
int WholeOr(TStringTree const& tree, int tag, int fallback) {
    int value = fallback;
    tree.GetInteger(tag, 0, &value);
    return value;
}

/** @return whether the second value of the ellipsoid is its inverse flattening. */
bool HasFlattening(TStringTree const& ellipsoid) {
    return WholeOr(ellipsoid, 5114, 0) != 0;
}

/** @return whether it is its semi-minor axis: neither a flattening nor a sphere. */
bool HasMinorAxis(TStringTree const& ellipsoid) {
    return !HasFlattening(ellipsoid) && WholeOr(ellipsoid, 5115, 0) == 0;
}

/** @return the number of the datum shift's form; 0 without one. */
int ShiftForm(TStringTree const& shift) {
    TStringTree const* const form = shift.FindSubtree(5443, 0);
    return form ? WholeOr(*form, 5701, 0) : 0;
}

/** @return whether the shift has a form that the library builds; other shifts count as none. */
bool HasKnownForm(TStringTree const& shift) {
    return ShiftForm(shift) >= dstMolodensky && ShiftForm(shift) <= dstBursaWolfInvRot;
}

/** @return whether the shift has seven parameters. */
bool HasRotations(TStringTree const& shift) {
    return ShiftForm(shift) == dstBursaWolf || ShiftForm(shift) == dstBursaWolfInvRot;
}

/** @return whether its rotations are plain numbers. */
bool HasPlainRotations(TStringTree const& shift) {
    TStringTree const* const unit = shift.FindSubtree(5441, 0);
    return HasRotations(shift) && unit && IsPlainUnit(*unit);
}

/** @return whether the prime meridian's longitude is a plain number. */
bool HasPlainLongitude(TStringTree const& meridian) {
    TStringTree const* const unit = meridian.FindSubtree(5211, 0);
    return IsPlainUnit(unit ? *unit : meridian);
}

/** @return whether the system has a datum, whose ellipsoid then counts. */
bool HasDatum(TStringTree const& system) {
    return system.FindSubtree(1107, 0) != nullptr;
}

/** @return the opposite, where the ellipsoid stands alone. */
bool HasNoDatum(TStringTree const& system) {
    return !HasDatum(system);
}

/** @return whether there is a prime meridian; without one it is Greenwich. */
bool HasPrimeMeridian(TStringTree const& system) {
    return system.FindSubtree(1101, 0) != nullptr;
}

/** @return whether heights have a unit, whole or not. */
bool HasHeightUnit(TStringTree const& vertical) {
    return vertical.FindSubtree(1104, 0) != nullptr;
}

/** @return whether a system without a datum has an ellipsoid at its root, beside that of its base if any. */
bool HasOwnEllipsoid(TStringTree const& system) {
    return HasNoDatum(system) && system.FindSubtree(1103, 0) != nullptr;
}

/** @return whether a projection has lengths. */
bool UsesLengths(TStringTree const& projection) {
    return UsesUnit(projection, utLinear);
}

/** @return whether it has angles. */
bool UsesAngles(TStringTree const& projection) {
    return UsesUnit(projection, utAngular);
}

/** @return whether it has scale factors. */
bool UsesFactors(TStringTree const& projection) {
    return UsesUnit(projection, utScale);
}

// --- What a description must hold --------------------------------------------------------------------------

constexpr TRequirement unitRows[] = {
    {5301, rfWhole, "the unit's code"},
    {5312, rfWhole, "the unit's kind"},
    {5320, rfText, "the unit's name"},
    {5322, rfText, "the unit's description"},
    {5321, rfText, "the unit's abbreviation"},
    {5310, rfFactor, "the numerator of the unit's size", suTransform},
    {5311, rfFactor, "the denominator of the unit's size", suTransform},
};

constexpr TRequirement ellipsoidRows[] = {
    {5120, rfText, "the ellipsoid's name"},
    {5121, rfText, "the ellipsoid's description"},
    {5110, rfText, "the semi-major axis"},
    {5111, rfText, "the semi-minor axis, which may be empty"},
    {5114, rfWhole, "whether there is an inverse flattening (1) or not (0)"},
    {5115, rfWhole, "whether it is a sphere (1) or not (0)"},
    {5113, rfTreeOrHere, "the ellipsoid's linear unit", suShow, unitRows},
    {5112, rfText, "the inverse flattening", suShow, {}, HasFlattening},
    {5110, rfNumber, "the semi-major axis"},
    {5111, rfNumber, "the semi-minor axis", suShow, {}, HasMinorAxis},
    {5112, rfNumber, "the inverse flattening", suShow, {}, HasFlattening},
};

constexpr TRequirement meridianRows[] = {
    {5220, rfText, "the prime meridian's name"},
    {5221, rfText, "the prime meridian's description"},
    {5210, rfText, "the prime meridian's longitude"},
    {5211, rfTreeOrHere, "the prime meridian's angular unit", suShow, unitRows},
    {5210, rfNumberOrEmpty, "the prime meridian's longitude", suShow, {}, HasPlainLongitude},
};

constexpr TRequirement shiftFormRows[] = {
    {5701, rfShiftForm, "the form of the datum shift", suTransform},
};

constexpr TRequirement shiftRows[] = {
    {5443, rfTree, "the form of the datum shift", suTransform, shiftFormRows},
    {5440, rfTree, "the linear unit of the datum shift", suShow, unitRows, HasKnownForm},
    {5461, rfNumberOrEmpty, "the shift along X", suShow, {}, HasKnownForm},
    {5462, rfNumberOrEmpty, "the shift along Y", suShow, {}, HasKnownForm},
    {5463, rfNumberOrEmpty, "the shift along Z", suShow, {}, HasKnownForm},
    {5441, rfTree, "the angular unit of the datum shift", suShow, unitRows, HasRotations},
    {5442, rfTree, "the scale unit of the datum shift", suShow, unitRows, HasRotations},
    {5464, rfText, "the rotation about X", suShow, {}, HasRotations},
    {5465, rfText, "the rotation about Y", suShow, {}, HasRotations},
    {5466, rfText, "the rotation about Z", suShow, {}, HasRotations},
    {5467, rfNumberOrEmpty, "the scale difference", suShow, {}, HasRotations},
    {5464, rfNumberOrEmpty, "the rotation about X", suShow, {}, HasPlainRotations},
    {5465, rfNumberOrEmpty, "the rotation about Y", suShow, {}, HasPlainRotations},
    {5466, rfNumberOrEmpty, "the rotation about Z", suShow, {}, HasPlainRotations},
};

constexpr TRequirement datumRows[] = {
    {1102, rfTree, "the datum shift", suShow, shiftRows},
    {5610, rfTree, "the datum's ellipsoid", suShow, ellipsoidRows},
};

constexpr TRequirement verticalRows[] = {
    {1104, rfTree, "the unit of heights", suShow, unitRows, HasHeightUnit},
    {1104, rfTree, "the unit of heights", suTransform, unitRows},
};

constexpr TRequirement geodeticRows[] = {
    {1100, rfWhole, "the kind of the system"},
    {1020, rfText, "the name"},
    {1021, rfText, "the description, which may be empty"},
    {1107, rfTree, "the datum", suShow, datumRows, HasDatum},
    {1103, rfTree, "the ellipsoid, or (1107,0), the datum", suShow, ellipsoidRows, HasNoDatum},
    {1101, rfTree, "the prime meridian", suShow, meridianRows, HasPrimeMeridian},
    {1201, rfTree, "the vertical system", suShow, verticalRows},
    {1106, rfTree, "the angular unit", suShow, unitRows},
};

constexpr TRequirement projectionRows[] = {
    {1400, rfWhole, "whether northings come first (1) or eastings (0)"},
    {1401, rfWhole, "the sign of the first axis"},
    {1401, rfWhole, "the sign of the second axis", suShow, {}, nullptr, 1},
    {1401, rfSign, "the sign of the first axis", suTransform},
    {1401, rfSign, "the sign of the second axis", suTransform, {}, nullptr, 1},
    {6001, rfProjection, "the type of the projection"},
    {6091, rfTree, "the projection's linear unit", suShow, unitRows, UsesLengths},
    {6090, rfTree, "the projection's angular unit", suShow, unitRows, UsesAngles},
    {6092, rfTree, "the projection's scale unit", suShow, unitRows, UsesFactors},
};

constexpr TRequirement mapProjectedRows[] = {
    {1020, rfText, "the name"},
    {1021, rfText, "the description, which may be empty"},
    {1107, rfTree, "the datum", suShow, datumRows, HasDatum},
    {1103, rfTree, "the ellipsoid", suShow, ellipsoidRows, HasOwnEllipsoid},
    {1101, rfTree, "the prime meridian", suShow, meridianRows, HasPrimeMeridian},
    {1104, rfTree, "the linear unit", suShow, unitRows},
    {1121, rfTree, "the geodetic system below the grid", suShow, geodeticRows},
    {1300, rfTree, "the map projection", suShow, projectionRows, nullptr, 0, FindParameterMistake},
};

constexpr TRequirement geocentricRows[] = {
    {1020, rfText, "the name"},
    {1021, rfText, "the description, which may be empty"},
    {1107, rfTree, "the datum", suShow, datumRows, HasDatum},
    {1103, rfTree, "the ellipsoid", suShow, ellipsoidRows, HasOwnEllipsoid},
    {1101, rfTree, "the prime meridian", suShow, meridianRows, HasPrimeMeridian},
    {1104, rfTree, "the linear unit", suShow, unitRows},
};

constexpr TRequirement topocentricRows[] = {
    {1020, rfText, "the name"},
    {1021, rfText, "the description, which may be empty"},
    {1107, rfTree, "the datum", suShow, datumRows, HasDatum},
    {1103, rfTree, "the ellipsoid", suShow, ellipsoidRows, HasOwnEllipsoid},
    {1101, rfTree, "the prime meridian", suShow, meridianRows, HasPrimeMeridian},
    {1400, rfWhole, "whether the axes are left-handed (1) or right-handed (0)"},
    {1121, rfTree, "the geodetic system below the frame", suShow, geodeticRows},
    {1104, rfTree, "the linear unit", suShow, unitRows},
    {1120, rfText, "the origin's latitude"},
    {1120, rfText, "the origin's longitude", suShow, {}, nullptr, 1},
    {1120, rfText, "the origin's height, which may be empty", suShow, {}, nullptr, 2},
};

constexpr TRequirement localCartesianRows[] = {
    {1020, rfText, "the name"},
    {1021, rfText, "the description, which may be empty"},
    {1107, rfTree, "the datum", suShow, datumRows, HasDatum},
    {1103, rfTree, "the ellipsoid", suShow, ellipsoidRows, HasOwnEllipsoid},
    {1101, rfTree, "the prime meridian", suShow, meridianRows, HasPrimeMeridian},
    {1104, rfTree, "the linear unit", suShow, unitRows},
    {1400, rfWhole, "whether the axes are left-handed (1) or right-handed (0)"},
};

/** Kept: the library reads the sphere as an ellipsoid first, with all its fields. */
constexpr TRequirement sphereRows[] = {
    {5113, rfTree, "the unit of the sphere's radius", suShow, unitRows},
    {5120, rfText, "the sphere's name"},
    {5121, rfText, "the sphere's description"},
    {5110, rfNumber, "the sphere's radius"},
    {5111, rfText, "the semi-minor axis, which may be empty"},
    {5114, rfWhole, "whether there is an inverse flattening (1) or not (0)"},
    {5115, rfWhole, "whether it is a sphere (1) or not (0)"},
    {5112, rfNumber, "the inverse flattening", suShow, {}, HasFlattening},
    {5111, rfNumber, "the semi-minor axis", suShow, {}, HasMinorAxis},
    {5110, rfFactor, "the sphere's radius", suTransform},
};

constexpr TRequirement localCurvedRows[] = {
    {1020, rfText, "the name"},
    {1021, rfText, "the description, which may be empty"},
    {1107, rfTree, "the datum", suShow, datumRows, HasDatum},
    {1101, rfTree, "the prime meridian", suShow, meridianRows, HasPrimeMeridian},
    {1103, rfTree, "the sphere", suShow, sphereRows},
    {1104, rfTree, "the linear unit", suShow, unitRows},
    {1400, rfWhole, "whether the axes are left-handed (1) or right-handed (0)"},
};

/** A kind with what it must hold besides the kind itself. */
struct TKindRow {
    int kind;
    std::span<TRequirement const> rows;
    std::optional<std::string> (*more)(TPlace const& root) = nullptr; ///< looked for after `rows`
};

constexpr TKindRow kinds[] = {
    {rstLocalCartesian, localCartesianRows}, {rstLocalCurved, localCurvedRows, FindCentreMistake},
    {rstGeocentric, geocentricRows},         {rstGeodetic, geodeticRows},
    {rstMapProjected, mapProjectedRows},     {rstTopocentricHorizontal, topocentricRows, FindOriginMistake},
};

TKindRow const* FindKind(int kind) {
    for (TKindRow const& row : kinds) {
        if (row.kind == kind) {
            return &row;
        }
    }
    return nullptr;
}

// --- The walk ----------------------------------------------------------------------------------------------

/** @return whether a field's text has the form of its row. */
bool IsUsable(TRequirement const& row, std::string const& text) {
    double number = 0;
    int whole = 0;
    switch (row.form) {
    case rfWhole:
        return ParseWholeInt(text, &whole);
    case rfNumber:
        return ParseWholeDouble(text, &number);
    case rfNumberOrEmpty:
        return text.find_first_not_of(" \t") == std::string::npos || ParseWholeDouble(text, &number);
    case rfFactor:
        return ParseWholeDouble(text, &number) && number != 0.0;
    case rfShiftForm:
        return ParseWholeInt(text, &whole) && whole >= dstMolodensky && whole <= dstBursaWolfInvRot;
    case rfProjection:
        return ParseWholeInt(text, &whole) && IsKnownProjection(whole);
    case rfSign:
        return ParseWholeInt(text, &whole) && (whole == 1 || whole == -1);
    case rfText:
    case rfTree:
    case rfTreeOrHere:
        break;
    }
    return true;
}

/** @return what a field of that form needs. */
std::string WantedText(TRequirementForm form) {
    switch (form) {
    case rfWhole:
        return "a whole number";
    case rfFactor:
        return "a number other than 0";
    case rfShiftForm:
        return "1, 2 or 3";
    case rfProjection:
        return "a type of " + KnownProjections();
    case rfSign:
        return "1 or -1";
    default:
        return "a number";
    }
}

/** @return what is wrong with the first of the rows that isn't met. */
std::optional<std::string> FindMistake(TPlace const& place, std::span<TRequirement const> rows,
                                       TSystemUse use);

/** @return what is wrong with a field: that it is missing, or its text. */
std::optional<std::string> FindFieldMistake(TPlace const& place, TRequirement const& row) {
    std::string text;
    if (!place.tree->GetString(row.tag, row.idx, &text)) {
        return place.LacksField(row.tag, row.idx, row.meaning);
    }
    if (!IsUsable(row, text)) {
        return place.HasWrongText(row.tag, row.idx, row.meaning, text, WantedText(row.form));
    }
    return std::nullopt;
}

/** @return what is wrong with a subtree: that it is missing, or something inside. */
std::optional<std::string> FindTreeMistake(TPlace const& place, TRequirement const& row, TSystemUse use) {
    if (TStringTree const* const child = place.tree->FindSubtree(row.tag, 0)) {
        TPlace const below = place.Below(child);
        std::optional<std::string> const mistake = FindMistake(below, row.inside, use);
        return mistake || !row.more ? mistake : row.more(below);
    }
    if (row.form == rfTreeOrHere) {
        bool const standsHere =
            std::any_of(row.inside.begin(), row.inside.end(), [&place](TRequirement const& inner) {
                return place.tree->FindField(inner.tag, 0) != nullptr;
            });
        if (standsHere) {
            return FindMistake(place, row.inside, use);
        }
    }
    return place.LacksTree(row.tag, row.meaning);
}

std::optional<std::string> FindMistake(TPlace const& place, std::span<TRequirement const> rows,
                                       TSystemUse use) {
    for (TRequirement const& row : rows) {
        if (row.use > use || (row.applies && !row.applies(*place.tree))) {
            continue;
        }
        bool const isTree = row.form == rfTree || row.form == rfTreeOrHere;
        std::optional<std::string> mistake =
            isTree ? FindTreeMistake(place, row, use) : FindFieldMistake(place, row);
        if (mistake) {
            return mistake;
        }
    }
    return std::nullopt;
}

} // namespace

std::span<TRequirement const> RequirementsOf(int kind) {
    TKindRow const* const row = FindKind(kind);
    return row ? row->rows : std::span<TRequirement const>();
}

std::optional<std::string> FindTextMistake(std::string_view text) {
    std::size_t const first = text.find_first_not_of('\t');
    if (first == std::string_view::npos) {
        return " is not a description: it is empty";
    }
    if (text[first] != '(') {
        return " is not a description: it begins with " + Quoted(text.substr(0, text.find('\n')), 20) +
               " where \"(0,0)\" is needed";
    }
    std::size_t const nul = text.find('\0');
    // Texts that a system wrote itself may end with one.
    if (nul != std::string_view::npos && nul + 1 != text.size()) {
        return FormatText(" is not a description: it has a NUL byte at offset %lu",
                          static_cast<unsigned long>(nul));
    }
    return std::nullopt;
}

std::optional<std::string> FindDescriptionMistake(TStringTree const& tree, TSystemUse use) {
    TPlace const root{&tree, ""};
    TRequirement const kindRow{1100, rfWhole, "the kind of the system"};
    if (std::optional<std::string> mistake = FindFieldMistake(root, kindRow)) {
        return mistake;
    }
    int const number = WholeOr(tree, 1100, 0);
    TKindRow const* const kind = FindKind(number);
    if (!kind) {
        return FormatText(": field (1100,0), the kind of the system, is %d; kinds are 1 to 6", number);
    }
    std::optional<std::string> const mistake = FindMistake(root, kind->rows, use);
    return mistake || !kind->more ? mistake : kind->more(root);
}

std::optional<int> FindLineIndentedWithBlanks(std::string_view text) {
    int number = 1;
    while (!text.empty()) {
        std::string_view const line = text.substr(0, text.find('\n'));
        std::size_t const first = line.find_first_not_of(" \t");
        if (first != std::string_view::npos && line[first] == '(' &&
            line.substr(0, first).find(' ') != std::string_view::npos) {
            return number;
        }
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        ++number;
    }
    return std::nullopt;
}

} // namespace VellariTool
