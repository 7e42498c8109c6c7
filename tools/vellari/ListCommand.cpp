#include "tools/vellari/ListCommand.h"

#include "tools/vellari/Catalog.h"
#include "tools/vellari/NameMatch.h"
#include "tools/vellari/OutputFile.h"
#include "tools/vellari/SystemKinds.h"
#include "tools/vellari/ToolError.h"
#include "tools/vellari/ZoneShorthand.h"

#include <Vellari/Vellari.h>

#include <algorithm>
#include <vector>

namespace VellariTool {

namespace {

/** The texts of one line. */
struct TListRow {
    std::string name;
    std::string title;
};

/** Rows under one heading. */
struct TListGroup {
    char const* heading;
    std::vector<TListRow> rows;
};

/** Where an entry of the catalogue belongs. */
enum TListPlace : std::size_t { lpGeodetic = 0, lpGrids = 1, lpGeocentric = 2, lpFrames = 3, lpZones = 4 };

TListPlace PlaceOfKind(int kind) {
    switch (kind) {
    case KvRefSystem::rstGeodetic:
        return lpGeodetic;
    case KvRefSystem::rstMapProjected:
        return lpGrids;
    case KvRefSystem::rstGeocentric:
        return lpGeocentric;
    default:
        return lpFrames;
    }
}

/** @return whether a pattern fits, or is itself a zone of that family. */
bool MatchesZoneForm(TZoneForm const& form, std::string const& pattern) {
    return MatchesPattern(form.pattern, pattern) || MatchesPattern(form.title, pattern) ||
           LowerCase(pattern).rfind(std::string(form.prefix) + ":", 0) == 0;
}

/** Appends the heading and the rows, their titles in one column. */
void AppendGroup(std::string* text, TListGroup const& group, std::size_t width) {
    if (group.rows.empty()) {
        return;
    }
    *text += text->empty() ? "" : "\n";
    *text += group.heading;
    *text += "\n";
    for (TListRow const& row : group.rows) {
        *text += "  " + row.name;
        text->append(width - row.name.size() + 2, ' ');
        *text += row.title + "\n";
    }
}

} // namespace

int RunList(std::string const& pattern) {
    TListGroup groups[] = {{"Geodetic systems", {}},
                           {"National and regional grids", {}},
                           {"Geocentric systems", {}},
                           {"Topocentric and local frames", {}},
                           {"Zones, by their numbers", {}}};
    for (EmbeddedFile const& entry : embeddedCatalog()) {
        std::string_view const title = CatalogTitle(entry);
        if (MatchesPattern(entry.name, pattern) || MatchesPattern(title, pattern)) {
            groups[PlaceOfKind(KindOfDescription(entry.text))].rows.push_back(
                {std::string(entry.name), std::string(title)});
        }
    }
    for (TZoneForm const& form : ZoneForms()) {
        if (MatchesZoneForm(form, pattern)) {
            groups[lpZones].rows.push_back(
                {std::string(form.pattern), std::string(form.title) + "; as " + std::string(form.example)});
        }
    }
    std::size_t width = 0;
    for (TListGroup const& group : groups) {
        for (TListRow const& row : group.rows) {
            width = std::max(width, row.name.size());
        }
    }
    if (width == 0) {
        throw TToolError("no entry of the catalogue and no zone fits " + Quoted(pattern) +
                         "; `vellari list` shows all");
    }
    std::string text;
    for (TListGroup& group : groups) {
        if (&group != &groups[lpZones]) {
            std::sort(group.rows.begin(), group.rows.end(),
                      [](TListRow const& first, TListRow const& second) { return first.name < second.name; });
        }
        AppendGroup(&text, group, width);
    }
    PrintText(text);
    return esDone;
}

} // namespace VellariTool
