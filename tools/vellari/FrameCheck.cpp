#include "tools/vellari/FrameCheck.h"

#include "tools/vellari/SexagesimalText.h"

#include <cmath>
#include <memory>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

using TMistake = std::optional<std::string>;

bool IsNumber(std::string const& text) {
    double value = 0;
    return ParseWholeDouble(text, &value) && std::isfinite(value);
}

/** @return the angular unit of a geodetic description, or null. */
std::unique_ptr<TShellAngularUnit> AngularUnitOf(TStringTree const& geodetic) {
    TStringTree const* const tree = geodetic.FindSubtree(1106, 0);
    return tree ? ReadAngularUnit(*tree) : nullptr;
}

/** @return whether the unit reads a text. */
bool IsAngle(TShellAngularUnit const& unit, std::string const& text) {
    // The notations read a word for 0.
    std::size_t const first = text.find_first_not_of(" \t");
    if (first == std::string::npos || text.find_first_of("0123456789+-.", first) != first) {
        return false;
    }
    try {
        return std::isfinite(static_cast<TShellUnit const&>(unit).StringToValue(text));
    } catch (std::exception const&) {
        return false;
    }
}

/** Looks at one number. */
TMistake FindNumberMistake(TPlace const& place, int tag, int idx, char const* meaning) {
    std::string text;
    place.tree->GetString(tag, idx, &text);
    return IsNumber(text) ? std::nullopt : TMistake(place.HasWrongText(tag, idx, meaning, text, "a number"));
}

/** Looks at one angle. */
TMistake FindAngleMistake(TPlace const& place, int tag, int idx, char const* meaning,
                          TShellAngularUnit const& unit) {
    if (NotationOf(unit) == snNone) {
        return FindNumberMistake(place, tag, idx, meaning);
    }
    std::string text;
    place.tree->GetString(tag, idx, &text);
    return IsAngle(unit, text)
               ? std::nullopt
               : TMistake(place.HasWrongText(tag, idx, meaning, text, "an angle in its unit"));
}

} // namespace

std::optional<std::string> FindOriginMistake(TPlace const& root) {
    TStringTree const* const base = root.tree->FindSubtree(1121, 0);
    std::unique_ptr<TShellAngularUnit> const unit = base ? AngularUnitOf(*base) : nullptr;
    if (!unit) {
        return std::nullopt;
    }
    TMistake mistake = FindAngleMistake(root, 1120, 0, "the origin's latitude", *unit);
    if (!mistake) {
        mistake = FindAngleMistake(root, 1120, 1, "the origin's longitude", *unit);
    }
    std::string text;
    root.tree->GetString(1120, 2, &text);
    if (!mistake && !text.empty()) { // an empty height is 0
        mistake = FindNumberMistake(root, 1120, 2, "the origin's height");
    }
    text.clear();
    root.tree->GetString(1122, 0, &text);
    if (!mistake && !text.empty()) {
        mistake = FindAngleMistake(root, 1122, 0, "the azimuth", *unit);
    }
    return mistake;
}

std::optional<std::string> FindCentreMistake(TPlace const& root) {
    std::string text;
    if (!root.tree->GetString(1120, 0, &text) || !root.tree->GetString(1120, 1, &text)) {
        return std::nullopt;
    }
    TMistake const mistake = FindNumberMistake(root, 1120, 0, "the centre's first coordinate");
    return mistake ? mistake : FindNumberMistake(root, 1120, 1, "the centre's second coordinate");
}

} // namespace VellariTool
