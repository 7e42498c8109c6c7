#include "tools/accuracy/Document.h"

#include <algorithm>
#include <cctype>

namespace VellariAccuracy {

namespace {

constexpr std::string_view CellEnd = " | ";
constexpr std::string_view RowStart = "| ";

/** Of a row whose greatest difference is lost digits, behind its last cell. */
constexpr std::string_view RoundingMark = " *";

std::string HeadingOf(TColumn const& column) {
    std::string text = std::string(column.Name) + ", " + column.Unit;
    text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
    return text;
}

/** The cells of a row's key, the mark included. */
std::string CellsOf(TLine const& line) {
    std::string text = std::string(RowStart);
    for (std::string const& cell : line.Cells) {
        if (text.size() > RowStart.size()) {
            text += CellEnd;
        }
        text += cell;
    }
    return line.Source == soRounding ? text.append(RoundingMark) : text;
}

std::string HeaderOf(TTable const& table) {
    std::string names = "|";
    std::string rule = "|";
    auto const add = [&names, &rule](std::string const& name) {
        names += ' ' + name + " |";
        rule += "---|";
    };
    for (std::string const& heading : table.KeyHeadings) {
        add(heading);
    }
    for (TColumn const& column : table.Columns) {
        add(HeadingOf(column));
        if (column.Bounded) {
            add("Bound");
        }
    }
    add("Reason");
    return names + '\n' + rule + '\n';
}

std::string RowOf(TTable const& table, TLine const& line, TFigures const& figures) {
    std::string text = CellsOf(line);
    std::size_t bound = 0;
    for (std::size_t place = 0; place < table.Columns.size(); ++place) {
        TColumn const& column = table.Columns[place];
        text.append(CellEnd).append(figures.at(place));
        if (column.Bounded) {
            text.append(CellEnd).append(FigureText(line.Bounds.at(bound++), column.Least));
        }
    }
    text.append(CellEnd).append(line.Reason);
    return text += line.Reason.empty() ? "|\n" : " |\n";
}

/** The part of the line from `*position` to the next end of a cell, which it goes past. */
std::string_view NextCell(std::string_view line, std::size_t* position) {
    std::size_t const start = *position;
    std::size_t const end = line.find(CellEnd, start);
    if (end == std::string_view::npos) {
        *position = end;
        return line.substr(start);
    }
    *position = end + CellEnd.size();
    return line.substr(start, end - start);
}

/** @return whether the line is a row of the table. */
bool ParseRow(TTable const& table, std::string_view line, TDocumentRow* row) {
    if (!line.starts_with(RowStart) || HeaderOf(table).starts_with(line)) {
        return false;
    }
    std::size_t position = RowStart.size();
    for (std::size_t cell = 0; cell < table.KeyHeadings.size(); ++cell) {
        NextCell(line, &position);
        if (position == std::string_view::npos) {
            return false;
        }
    }
    row->Key = table.Heading + '\n' + std::string(line.substr(0, position - CellEnd.size()));
    row->Figures.clear();
    for (TColumn const& column : table.Columns) {
        if (position == std::string_view::npos) {
            return false;
        }
        row->Figures.emplace_back(NextCell(line, &position));
        if (column.Bounded && position != std::string_view::npos) {
            NextCell(line, &position);
        }
    }
    return true;
}

std::string ReleaseIn(std::string_view rest) {
    std::string release(rest.substr(0, rest.find_first_not_of("0123456789.")));
    while (release.ends_with('.')) {
        release.pop_back(); // the sentence's
    }
    return release;
}

} // namespace

std::string KeyOf(TTable const& table, TLine const& line) {
    return table.Heading + '\n' + CellsOf(line);
}

std::string LabelOf(TTable const& table, TLine const& line) {
    std::string text = table.Subject;
    char const* separator = " ";
    for (std::string const& cell : line.Cells) {
        text += separator + cell;
        separator = ", ";
    }
    return line.Source == soRounding ? text.append(RoundingMark) : text;
}

std::string Render(TDocument const& document, std::vector<TFigures> const& figures,
                   std::string const& release) {
    std::string text = document.Introduction;
    text.append(BeforeRelease).append(release).append(document.IntroductionAfterwards);
    std::size_t place = 0;
    for (TTable const& table : document.Tables) {
        if (!table.Before.empty()) {
            text += '\n' + table.Before;
        }
        text += '\n' + table.Heading + "\n\n";
        if (!table.Text.empty()) {
            text += table.Text + '\n';
        }
        text += HeaderOf(table);
        for (TLine const& line : table.Lines) {
            text += RowOf(table, line, figures.at(place++));
        }
        if (!table.Notes.empty()) {
            text += '\n' + table.Notes;
        }
    }
    return text;
}

TDocumentContents Parse(TDocument const& document, std::string_view text) {
    TDocumentContents contents;
    TTable const* current = nullptr;
    int number = 0;
    while (!text.empty()) {
        std::size_t const end = text.find('\n');
        std::string_view const line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        ++number;
        TDocumentRow row;
        if (line.starts_with('#')) {
            auto const found = std::find_if(document.Tables.begin(), document.Tables.end(),
                                            [line](TTable const& table) { return table.Heading == line; });
            current = found == document.Tables.end() ? nullptr : &*found;
        } else if (current != nullptr && ParseRow(*current, line, &row)) {
            row.Line = number;
            contents.Rows.push_back(row);
        } else if (std::size_t const found = line.find(BeforeRelease); found != std::string_view::npos) {
            contents.Release = ReleaseIn(line.substr(found + BeforeRelease.size()));
        }
    }
    return contents;
}

} // namespace VellariAccuracy
