#include "tools/accuracy/Check.h"

#include <Vellari/Vellari.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <utility>

namespace VellariAccuracy {

namespace {

using KvRefSystem::FormatText;

/** Lost digits may be twice as many elsewhere. */
constexpr double RoundingElsewhere = 2;

using TFailures = std::vector<std::string>;

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

/** Calls for each line of the document, in its order. */
void VisitLines(TDocument const& document, std::function<void(TTable const&, TLine const&)> const& visit) {
    for (TTable const& table : document.Tables) {
        for (TLine const& line : table.Lines) {
            visit(table, line);
        }
    }
}

void CheckRow(TTable const& table, TDocumentRow const& row, TNumbers const& measured,
              std::string const& before, TFailures* failures) {
    for (std::size_t place = 0; place < table.Columns.size(); ++place) {
        TColumn const& column = table.Columns[place];
        std::string const& said = row.Figures[place];
        std::string failure;
        double figure = 0;
        if (!ReadFigure(said, &figure, column.Least)) {
            failure = FormatText("\"%s\" is no figure; one is like 0.0011, 2.4e-5 or none", said.c_str());
        } else if (!Holds(measured[place], figure)) {
            failure = FormatText("measured %.3g %s, the document says %s", measured[place], column.Unit,
                                 said.c_str());
        } else {
            continue;
        }
        std::string told = before;
        told.append(": ").append(column.Name).append(": ").append(failure);
        failures->push_back(std::move(told));
    }
}

/** The first line that differs from what the program writes around the text's own figures. */
void CheckText(std::string const& text, std::string const& expected, std::string const& path,
               TFailures* failures) {
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

/** A key in words. */
std::string Plain(std::string const& key) {
    std::string text = key.substr(key.find_first_not_of("# "));
    for (char const* const mark : {"\n| ", " | "}) {
        std::string const separator = mark;
        for (auto at = text.find(separator); at != std::string::npos; at = text.find(separator)) {
            text.replace(at, separator.size(), ", ");
        }
    }
    return text;
}

} // namespace

TFigures FiguresOf(TTable const& table, TLine const& line, TNumbers const& numbers) {
    double const factor = line.Source == soRounding ? RoundingElsewhere : 1;
    TFigures figures;
    std::size_t bound = 0;
    for (std::size_t place = 0; place < table.Columns.size(); ++place) {
        TColumn const& column = table.Columns[place];
        double number = factor * numbers.at(place);
        if (column.Bounded) {
            // No machine may go beyond it.
            number = std::min(number, std::max(numbers[place], line.Bounds.at(bound++)));
        }
        figures.push_back(FigureText(number, column.Least));
    }
    return figures;
}

std::vector<TNumbers> MeasureAll(TDocument const& document) {
    std::vector<TNumbers> numbers;
    for (TTable const& table : document.Tables) {
        for (std::size_t line = 0; line < table.Lines.size(); ++line) {
            numbers.push_back(table.Measure(line));
        }
    }
    return numbers;
}

TFailures BeyondBounds(TDocument const& document, std::vector<TNumbers> const& measured) {
    TFailures failures;
    std::size_t number = 0;
    VisitLines(document, [&](TTable const& table, TLine const& line) {
        TNumbers const& numbers = measured.at(number++);
        std::size_t bound = 0;
        for (std::size_t place = 0; place < table.Columns.size(); ++place) {
            TColumn const& column = table.Columns[place];
            if (!column.Bounded) {
                continue;
            }
            double const most = line.Bounds.at(bound++);
            if (std::isfinite(most) && !(numbers.at(place) <= std::max(most, column.Least))) {
                failures.push_back(LabelOf(table, line) + ": " + column.Name + ": " +
                                   FormatText("measured %.3g %s, more than the bound of %.3g %s",
                                              numbers[place], column.Unit, most, column.Unit));
            }
        }
    });
    return failures;
}

TFailures Check(TDocument const& document, std::vector<TNumbers> const& measured, std::string const& text,
                std::string const& path) {
    TDocumentContents const contents = Parse(document, text);
    TFailures failures = BeyondBounds(document, measured);
    std::map<std::string, TDocumentRow const*> rows;
    for (TDocumentRow const& row : contents.Rows) {
        if (!rows.emplace(row.Key, &row).second) {
            failures.push_back(
                FormatText("%s:%d: %s: stands twice", path.c_str(), row.Line, Plain(row.Key).c_str()));
        }
    }
    std::vector<TFigures> figures;
    std::size_t number = 0;
    VisitLines(document, [&](TTable const& table, TLine const& line) {
        TNumbers const& numbers = measured.at(number++);
        std::string const label = LabelOf(table, line);
        auto const found = rows.find(KeyOf(table, line));
        if (found == rows.end()) {
            failures.push_back(path + ": " + label + ": the row is missing");
            return;
        }
        TDocumentRow const& row = *found->second;
        CheckRow(table, row, numbers, FormatText("%s:%d: %s", path.c_str(), row.Line, label.c_str()),
                 &failures);
        figures.push_back(row.Figures);
        rows.erase(found);
    });
    for (auto const& [key, row] : rows) {
        failures.push_back(
            FormatText("%s:%d: %s: no such row is measured", path.c_str(), row->Line, Plain(key).c_str()));
    }
    if (failures.empty()) {
        CheckText(text, Render(document, figures, contents.Release), path, &failures);
    }
    return failures;
}

} // namespace VellariAccuracy
