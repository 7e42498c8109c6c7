#include "tools/vellari/ListCommand.h"

#include "tools/vellari/Catalog.h"
#include "tools/vellari/NameMatch.h"
#include "tools/vellari/OutputFile.h"
#include "tools/vellari/SystemKinds.h"
#include "tools/vellari/ToolError.h"

#include <algorithm>
#include <vector>

namespace VellariTool {

namespace {

/** The texts of one line. */
struct TListRow {
    std::string name;
    std::string kind;
    std::string title;
};

/** Appends a text and blanks up to the next column. */
void AppendColumn(std::string* line, std::string const& text, std::size_t width) {
    *line += text;
    line->append(width - text.size() + 2, ' ');
}

} // namespace

int RunList(std::string const& pattern) {
    std::vector<TListRow> rows;
    std::size_t nameWidth = 0;
    std::size_t kindWidth = 0;
    for (EmbeddedFile const& entry : embeddedCatalog()) {
        std::string_view const title = CatalogTitle(entry);
        if (!MatchesPattern(entry.name, pattern) && !MatchesPattern(title, pattern)) {
            continue;
        }
        rows.push_back(
            {std::string(entry.name), KindName(KindOfDescription(entry.text)), std::string(title)});
        nameWidth = std::max(nameWidth, rows.back().name.size());
        kindWidth = std::max(kindWidth, rows.back().kind.size());
    }
    if (rows.empty()) {
        throw TToolError("no entry of the catalogue fits " + Quoted(pattern) + "; `vellari list` shows all");
    }
    std::sort(rows.begin(), rows.end(),
              [](TListRow const& first, TListRow const& second) { return first.name < second.name; });
    std::string text;
    for (TListRow const& row : rows) {
        AppendColumn(&text, row.name, nameWidth);
        AppendColumn(&text, row.kind, kindWidth);
        text += row.title + "\n";
    }
    PrintText(text);
    return esDone;
}

} // namespace VellariTool
