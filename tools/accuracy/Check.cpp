#include "tools/accuracy/Check.h"

#include "tools/accuracy/Figure.h"

#include <algorithm>
#include <map>

namespace VellariAccuracy {

namespace {

using KvRefSystem::FormatText;

/** Lost digits may be twice as many elsewhere. */
constexpr double RoundingElsewhere = 2;

std::array<double, Directions.size()> NumbersOf(TDifferences const& differences) {
    return {differences.Forward, differences.Reverse, differences.Closure};
}

/** A key without the marks of the table. */
std::string Plain(std::string const& key) {
    std::string text = "case";
    for (char const sign : key) {
        if (sign != '|') {
            text += sign;
        } else if (text != "case") {
            text.back() = ',';
        }
    }
    return text;
}

std::vector<std::string> LinesOf(std::string const& text) {
    std::vector<std::string> lines(1);
    for (char const sign : text) {
        if (sign == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += sign;
        }
    }
    return lines;
}

void CheckRow(TDocumentRow const& row, TDifferences const& differences, std::string const& path,
              std::vector<std::string>* failures) {
    auto const measured = NumbersOf(differences);
    for (std::size_t place = 0; place < Directions.size(); ++place) {
        std::string const& said = row.Figures[place];
        std::string failure;
        double figure = 0;
        if (!ReadFigure(said, &figure)) {
            failure = FormatText("\"%s\" is no figure; one is like 0.0011, 2.4e-5 or none", said.c_str());
        } else if (!Holds(measured[place], figure)) {
            failure = FormatText("measured %.3g m, the document says %s", measured[place], said.c_str());
        } else {
            continue;
        }
        failures->push_back(FormatText("%s:%d: %s: %s: %s", path.c_str(), row.Line, Plain(row.Key).c_str(),
                                       Directions[place], failure.c_str()));
    }
}

/** The first line that differs from what the program writes around the document's own figures. */
void CheckText(std::string const& text, std::string const& expected, std::string const& path,
               std::vector<std::string>* failures) {
    if (text == expected) {
        return;
    }
    std::vector<std::string> const lines = LinesOf(text);
    std::vector<std::string> const expectedLines = LinesOf(expected);
    std::size_t const common = std::min(lines.size(), expectedLines.size());
    std::size_t line = 0;
    while (line < common && lines[line] == expectedLines[line]) {
        ++line;
    }
    std::string const wanted = line < expectedLines.size() ? "\"" + expectedLines[line] + "\"" : "nothing";
    failures->push_back(
        FormatText("%s:%zu: the text isn't what the program writes: ", path.c_str(), line + 1) + wanted);
}

} // namespace

TFigures FiguresOf(TRow const& row, TDifferences const& differences) {
    double const factor = row.Source == soRounding ? RoundingElsewhere : 1;
    TFigures figures;
    auto const measured = NumbersOf(differences);
    for (std::size_t place = 0; place < figures.size(); ++place) {
        figures[place] = FigureText(factor * measured[place]);
    }
    return figures;
}

std::vector<TDifferences> MeasureAll(std::vector<TFamily> const& families) {
    std::vector<TDifferences> differences;
    for (TFamily const& family : families) {
        for (TCase const& measured : family.Cases) {
            for (TRow const& row : measured.Rows) {
                differences.push_back(Measure(measured, row));
            }
        }
    }
    return differences;
}

std::vector<std::string> Check(std::vector<TFamily> const& families,
                               std::vector<TDifferences> const& differences, std::string const& text,
                               std::string const& path) {
    TDocumentContents const contents = Parse(text);
    std::vector<std::string> failures;
    std::map<std::string, TDocumentRow const*> rows;
    for (TDocumentRow const& row : contents.Rows) {
        if (!rows.emplace(row.Key, &row).second) {
            failures.push_back(
                FormatText("%s:%d: %s: stands twice", path.c_str(), row.Line, Plain(row.Key).c_str()));
        }
    }
    std::vector<TFigures> figures;
    std::vector<std::string> const keys = RowKeys(families);
    for (std::size_t place = 0; place < keys.size(); ++place) {
        auto const found = rows.find(keys[place]);
        if (found == rows.end()) {
            failures.push_back(path + ": " + Plain(keys[place]) + ": the row is missing");
            continue;
        }
        CheckRow(*found->second, differences.at(place), path, &failures);
        figures.push_back(found->second->Figures);
        rows.erase(found);
    }
    for (auto const& [key, row] : rows) {
        failures.push_back(
            FormatText("%s:%d: %s: no such row is measured", path.c_str(), row->Line, Plain(key).c_str()));
    }
    if (failures.empty()) {
        CheckText(text, Render(families, figures, contents.Release), path, &failures);
    }
    return failures;
}

} // namespace VellariAccuracy
