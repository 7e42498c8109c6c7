#include "tools/accuracy/Document.h"

#include "tools/accuracy/Figure.h"
#include "tools/accuracy/Methods.h"

#include <functional>

namespace VellariAccuracy {

namespace {

using KvRefSystem::FormatText;

/** Stands before the release in the text. */
constexpr std::string_view BeforeRelease = "were measured against PROJ ";

constexpr std::string_view CellEnd = " | ";

std::string Introduction(std::string const& release) {
    std::string text = "# Accuracy of the projections\n\n"
                       "How far each projection of the core is from another maker's, where, and why. This "
                       "document is written whole by\n"
                       "`make accuracy`; the figures ";
    text += BeforeRelease;
    text += release;
    text += ".\nA test measures again and fails where a figure no longer holds.\n\n";
    text += "## How it is measured\n\n";
    text += FormatText(
        "- Each row has a grid of places: %d latitudes by %d longitudes, evenly spaced over its domain, its "
        "edges included.\n",
        LatitudeIntervals + 1, LongitudeIntervals + 1);
    text +=
        "  A domain around a place takes those of them that are near enough.\n"
        "- Forward: greatest distance in metres, on the map, between our plane coordinates of a place and "
        "PROJ's.\n"
        "- Reverse: greatest distance in metres, on the ground, between the places that both sides find "
        "for PROJ's plane\n"
        "  coordinates.\n"
        "- There and back: greatest distance in metres, on the ground, between a place and where our own "
        "way there and back\n"
        "  leaves it.\n";
    text += "- Figures have two digits, rounded up, so that they hold on other machines. None is below " +
            FigureText(LeastFigure) +
            ": that is the rounding of\n  doubles. In rows with an asterisk the greatest difference comes "
            "from digits that get lost, on either side, and the\n  figures are twice what was measured. \"" +
            NoNumber + "\" says that a place had no result.\n";
    text += "- \"All\" figures of the earth are ";
    char const* separator = "";
    for (TEllipsoid const& ellipsoid : EllipsoidsOf(elAll)) {
        text += separator;
        text += ellipsoid.Name;
        separator = ", ";
    }
    text += ";\n  the greatest difference of them counts.\n"
            "- A reason that isn't given is that of the row above.\n\n";
    text += "## Longitudes that aren't wrapped\n\n"
            "PROJ brings the difference from the central meridian into half a turn. So do ";
    text += "the transverse cylinders, the spherical\n"
            "Mercator, Albers' cone, the polyconic and the oblique stereographic here. The others take it as "
            "it comes, since hosts rely\n"
            "on it: it shows where the map isn't the same after a turn, which is on the cones and on "
            "Mercator's cylinders, on the\n"
            "series of Cassini-Soldner, Hatt, the quasi-stereographic and the New Zealand Map Grid, and on "
            "the skew cylinders. Some\n"
            "rows below lie there.\n";
    return text;
}

std::string KeyOf(int number, TCase const& measured, TRow const& row) {
    std::string key = FormatText("| %d | %s | ", number, MethodOf(measured.Type).Name);
    key += DomainText(row.Domain);
    if (row.Reverse == rvLatitude) {
        key += "; on the ground the latitude alone";
    }
    return key + (row.Source == soRounding ? " *" : "");
}

/** One line on what a case compares. */
std::string CaseText(int number, TCase const& measured) {
    TMethod const& method = MethodOf(measured.Type);
    std::string text = FormatText("%d. %s (class %d, ", number, method.Name, static_cast<int>(method.Type));
    text += method.Epsg != 0 ? FormatText("EPSG method %d", method.Epsg) : std::string("no EPSG method");
    text += "): " + ParametersText(method, measured.Values) + ". PROJ: `" + measured.Operation + "`. ";
    if (measured.Ellipsoids == elAll) {
        return text + "All figures of the earth.\n";
    }
    return text + EllipsoidsOf(measured.Ellipsoids).front().Name + ".\n";
}

/** Calls for each row of the document, in its order. */
void VisitRows(std::vector<TFamily> const& families,
               std::function<void(int, TCase const&, TRow const&)> const& visit) {
    int number = 0;
    for (TFamily const& family : families) {
        for (TCase const& measured : family.Cases) {
            ++number;
            for (TRow const& row : measured.Rows) {
                visit(number, measured, row);
            }
        }
    }
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

/** @return whether the line is a row. */
bool ParseRow(std::string_view line, TDocumentRow* row) {
    constexpr std::string_view Start = "| ";
    if (!line.starts_with(Start) || line.size() == Start.size() || line[2] < '0' || line[2] > '9') {
        return false;
    }
    std::size_t position = Start.size();
    constexpr int CellsOfKey = 3;
    for (int cell = 0; cell < CellsOfKey; ++cell) {
        NextCell(line, &position);
        if (position == std::string_view::npos) {
            return false;
        }
    }
    row->Key = line.substr(0, position - CellEnd.size());
    for (std::string& figure : row->Figures) {
        if (position == std::string_view::npos) {
            return false;
        }
        figure = NextCell(line, &position);
    }
    return true;
}

} // namespace

std::vector<std::string> RowKeys(std::vector<TFamily> const& families) {
    std::vector<std::string> keys;
    VisitRows(families, [&keys](int number, TCase const& measured, TRow const& row) {
        keys.push_back(KeyOf(number, measured, row));
    });
    return keys;
}

std::string Render(std::vector<TFamily> const& families, std::vector<TFigures> const& figures,
                   std::string const& release) {
    std::string text = Introduction(release);
    int number = 0;
    std::size_t place = 0;
    for (TFamily const& family : families) {
        text += std::string("\n## ") + family.Title + "\n\n";
        text += "| Case | Method | Domain | Forward, m | Reverse, m | There and back, m | Reason |\n"
                "|---|---|---|---|---|---|---|\n";
        std::string cases;
        for (TCase const& measured : family.Cases) {
            cases += CaseText(++number, measured);
            for (TRow const& row : measured.Rows) {
                text += KeyOf(number, measured, row);
                for (std::string const& figure : figures.at(place)) {
                    text.append(CellEnd).append(figure);
                }
                text.append(CellEnd).append(row.Reason) += *row.Reason != '\0' ? " |\n" : "|\n";
                ++place;
            }
        }
        text += '\n' + cases;
    }
    return text;
}

TDocumentContents Parse(std::string_view text) {
    TDocumentContents contents;
    int number = 0;
    while (!text.empty()) {
        std::size_t const end = text.find('\n');
        std::string_view const line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        ++number;
        TDocumentRow row;
        if (ParseRow(line, &row)) {
            row.Line = number;
            contents.Rows.push_back(row);
        } else if (std::size_t const found = line.find(BeforeRelease); found != std::string_view::npos) {
            std::string_view const release = line.substr(found + BeforeRelease.size());
            contents.Release = release.substr(0, release.find_first_not_of("0123456789."));
            while (contents.Release.ends_with('.')) {
                contents.Release.pop_back(); // the sentence's
            }
        }
    }
    return contents;
}

} // namespace VellariAccuracy
