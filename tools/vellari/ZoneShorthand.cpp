#include "tools/vellari/ZoneShorthand.h"

#include "tools/vellari/NameMatch.h"
#include "tools/vellari/ToolError.h"

#include <Vellari/Vellari.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

constexpr TZoneForm zoneForms[] = {
    {zfUtm, "utm", "utm:ZONE(N|S)", "utm:37N", "WGS 84 / UTM; easting, northing; zones 1 to 60"},
    {zfPulkovoZone, "gk", "gk:ZONE[N|S]", "gk:7",
     "Pulkovo 1942 / Gauss-Kruger of 6 degrees; northing, easting; zones 1 to 60"},
    {zfGskZone, "gsk", "gsk:ZONE[N|S]", "gsk:7",
     "GSK-2011 / Gauss-Kruger of 6 degrees; northing, easting; zones 1 to 60"},
    {zfRegionalGrid, "msk", "msk:REGION:ZONE[:WIDTH]", "msk:50:2",
     "MSK, grid of a region; northing, easting; WIDTH of its zones in degrees, else 3"},
    {zfBlockGrid, "sk63", "sk63:BLOCK:ZONE[:WIDTH]", "sk63:C:1",
     "SK-63, grid of a block; northing, easting; WIDTH of its zones in whole degrees, else 3"},
};

constexpr int mostSixDegreeZones = 60;
constexpr double fullTurn = 360;
constexpr char const* defaultWidth = "3";

/** Prefixes farther away than this are hardly misspelt ones. */
constexpr std::size_t mostPrefixMistakes = 2;

constexpr std::size_t longestShownPart = 40;

TZoneForm const* FindForm(std::string_view name) {
    std::size_t const colon = name.find(':');
    if (colon == std::string_view::npos) {
        return nullptr;
    }
    std::string const prefix = LowerCase(name.substr(0, colon));
    auto const* const found =
        std::find_if(std::begin(zoneForms), std::end(zoneForms),
                     [&prefix](TZoneForm const& form) { return form.prefix == prefix; });
    return found == std::end(zoneForms) ? nullptr : found;
}

/** A shorthand while it is taken apart; knows how to complain. */
class TParts {
public:
    TParts(std::string_view wholeName, TZoneForm const& itsForm) : name(wholeName), form(itsForm) {
        std::string_view rest = name.substr(form.prefix.size());
        while (!rest.empty()) {
            rest.remove_prefix(1);
            std::size_t const length = std::min(rest.find(':'), rest.size());
            parts.emplace_back(rest.substr(0, length));
            rest.remove_prefix(length);
        }
    }

    std::size_t Count() const { return parts.size(); }
    std::string const& operator[](std::size_t index) const { return parts[index]; }

    [[noreturn]] void Fail(std::string const& problem) const {
        std::string const shown = Quoted(name);
        throw TToolError(shown.substr(1, shown.size() - 2) + ": " + problem);
    }

    /** @return "; the form is msk:REGION:ZONE[:WIDTH], as in msk:50:2". */
    std::string FormText() const {
        return "; the form is " + std::string(form.pattern) + ", as in " + std::string(form.example);
    }

    /** @param names of the parts, in order. @param required how many of them must be there. */
    void RequireCount(std::initializer_list<char const*> names, std::size_t required) const {
        if (parts.size() > names.size()) {
            Fail(Quoted(parts[names.size()], longestShownPart) + " is one part too many" + FormText());
        }
        std::size_t index = 0;
        for (char const* const partName : names) {
            bool const isMissing = index >= parts.size() ? index < required : parts[index].empty();
            if (isMissing) {
                Fail(std::string("the ") + partName + " is missing" + FormText());
            }
            ++index;
        }
    }

    /** @return a whole number without sign or blanks. */
    int WholeNumber(char const* partName, std::string const& text) const {
        int value = 0;
        std::size_t const first = text.find_first_not_of('-');
        if (first == std::string::npos || first > 1 ||
            text.find_first_not_of("0123456789", first) != std::string::npos) {
            Fail(std::string(partName) + " " + Quoted(text, longestShownPart) + " is not a whole number" +
                 FormText());
        }
        return ParseWholeInt(text, &value) ? value : OutsideOfAnyRange;
    }

    /** @return the same from 1 to `most`. @param remark follows the range. */
    int NumberUpTo(char const* partName, std::string const& text, int most,
                   std::string const& remark = "") const {
        int const value = WholeNumber(partName, text);
        if (value < 1 || value > most) {
            Fail(std::string(partName) + " " + text.substr(0, longestShownPart) +
                 FormatText(" is outside 1 to %d", most) + remark);
        }
        return value;
    }

private:
    /** Stands for numbers that no int holds. */
    static constexpr int OutsideOfAnyRange = -1;

    std::string_view name;
    TZoneForm const& form;
    std::vector<std::string> parts;
};

/** Reads "37N" or, where the letter isn't needed, "7". */
void ParseSixDegreeZone(TParts const& parts, bool needsLetter, TZone* zone) {
    parts.RequireCount({"zone"}, 1);
    std::string number = parts[0];
    char const last = number.back();
    bool const isNorth = last == 'N' || last == 'n';
    bool const isSouth = last == 'S' || last == 's';
    if (isNorth || isSouth) {
        number.pop_back();
        zone->isNorth = isNorth;
    }
    if (number.empty()) {
        parts.Fail("the zone is missing" + parts.FormText());
    }
    zone->zone = parts.NumberUpTo("zone", number, mostSixDegreeZones);
    if (needsLetter && !isNorth && !isSouth) {
        parts.Fail("the letter N (north) or S (south) is missing behind the zone" + parts.FormText());
    }
}

/** Reads zone and width, which may be missing. @param onlyWhole whether the width is a whole number. */
void ParseZoneAndWidth(TParts const& parts, bool onlyWhole, TZone* zone) {
    zone->width = parts.Count() > 2 ? parts[2] : defaultWidth;
    double width = 0;
    bool const hasBlanks = zone->width.find_first_of(" \t\n\v\f\r") != std::string::npos;
    if (hasBlanks || !ParseWholeDouble(zone->width, &width)) {
        parts.Fail("width " + Quoted(zone->width, longestShownPart) + " is not a number of degrees" +
                   parts.FormText());
    }
    if (!(width > 0 && width <= fullTurn)) {
        parts.Fail("width " + zone->width.substr(0, longestShownPart) +
                   " is not above 0 and up to 360 degrees");
    }
    if (onlyWhole) {
        zone->width = FormatText("%d", parts.WholeNumber("width", zone->width));
    }
    // The zones of a family go round the earth once.
    double const most = std::floor(fullTurn / width);
    zone->zone = parts.NumberUpTo("zone", parts[1], ToInt32(std::min(most, 1e9)),
                                  ", zones of " + zone->width + " degrees");
}

void ParseRegionalGrid(TParts const& parts, TZone* zone) {
    parts.RequireCount({"region", "zone", "width"}, 2);
    std::vector<int> const regions = GetMSKxxRegions();
    zone->region = parts.WholeNumber("region", parts[0]);
    if (std::find(regions.begin(), regions.end(), zone->region) == regions.end()) {
        parts.Fail("region " + parts[0].substr(0, longestShownPart) + " has no grid; regions are " +
                   NumberRanges(regions));
    }
    ParseZoneAndWidth(parts, false, zone);
}

void ParseBlockGrid(TParts const& parts, TZone* zone) {
    parts.RequireCount({"block", "zone", "width"}, 2);
    std::string const blocks = GetSK63Blocks();
    char letter = parts[0].front();
    if (letter >= 'a' && letter <= 'z') {
        letter = static_cast<char>(letter - 'a' + 'A');
    }
    if (parts[0].size() != 1 || blocks.find(letter) == std::string::npos) {
        parts.Fail("block " + Quoted(parts[0], longestShownPart) + " has no grid; blocks are " +
                   SpacedLetters(blocks));
    }
    zone->block = letter;
    ParseZoneAndWidth(parts, true, zone);
}

} // namespace

std::span<TZoneForm const> ZoneForms() {
    return zoneForms;
}

bool IsZoneShorthand(std::string_view name) {
    return FindForm(name) != nullptr;
}

TZone ParseZoneShorthand(std::string_view name) {
    TZoneForm const* const form = FindForm(name);
    if (!form) {
        throw TToolError(Quoted(name) + " is not a zone shorthand");
    }
    TParts const parts(name, *form);
    TZone zone;
    zone.family = form->family;
    switch (form->family) {
    case zfUtm:
        ParseSixDegreeZone(parts, true, &zone);
        break;
    case zfPulkovoZone:
    case zfGskZone:
        ParseSixDegreeZone(parts, false, &zone);
        break;
    case zfRegionalGrid:
        ParseRegionalGrid(parts, &zone);
        break;
    case zfBlockGrid:
        ParseBlockGrid(parts, &zone);
        break;
    }
    return zone;
}

std::string SuggestZoneShorthand(std::string_view name) {
    if (name.find('/') != std::string_view::npos) {
        return "";
    }
    std::string const lower = LowerCase(name);
    std::string prefixes;
    bool isMeant = false;
    for (TZoneForm const& form : zoneForms) {
        bool const isLast = &form == std::end(zoneForms) - 1;
        prefixes += (prefixes.empty() ? "" : isLast ? " or " : ", ") + std::string(form.prefix) + ":";
        // "utm37n", with the colon forgotten, or nothing but the prefix.
        bool const isBegun = lower.rfind(form.prefix, 0) == 0;
        bool const hasDigits =
            isBegun && lower.find_first_of("0123456789", form.prefix.size()) != std::string::npos;
        isMeant = isMeant || hasDigits || lower == form.prefix;
    }
    std::size_t const colon = lower.find(':');
    if (colon != std::string::npos && colon > 0) {
        std::string const prefix = lower.substr(0, colon);
        isMeant = isMeant ||
                  std::any_of(std::begin(zoneForms), std::end(zoneForms), [&prefix](TZoneForm const& form) {
                      return EditDistance(prefix, form.prefix) <= mostPrefixMistakes;
                  });
    }
    return isMeant ? "zones begin with " + prefixes + ", as in " + std::string(zoneForms[0].example) : "";
}

std::string NumberRanges(std::vector<int> const& numbers) {
    std::string text;
    for (std::size_t first = 0; first < numbers.size();) {
        std::size_t last = first;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) {
            ++last;
        }
        text += (text.empty() ? "" : ", ") + FormatText("%d", numbers[first]);
        if (last > first) {
            text += (last > first + 1 ? " to " : ", ") + FormatText("%d", numbers[last]);
        }
        first = last + 1;
    }
    return text;
}

std::string SpacedLetters(std::string_view letters) {
    std::string text;
    for (char const letter : letters) {
        text += text.empty() ? "" : " ";
        text += letter;
    }
    return text;
}

} // namespace VellariTool
