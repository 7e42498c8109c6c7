#include "tools/accuracy/ProjectionTables.h"

#include "tools/accuracy/Measure.h"
#include "tools/accuracy/Methods.h"

#include <Vellari/Vellari.h>

#include <utility>

namespace VellariAccuracy {

namespace {

using KvRefSystem::FormatText;

TLine LineOf(int number, TCase const& measured, TRow const& row) {
    std::string domain = DomainText(row.Domain);
    if (row.Reverse == rvLatitude) {
        domain += "; on the ground the latitude alone";
    }
    return {{FormatText("%d", number), MethodOf(measured.Type).Name, domain}, row.Reason, row.Source};
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

} // namespace

std::string ProjectionText() {
    std::string text =
        "## Projections against PROJ\n\n"
        "How far each projection of the core, without the road, is from another maker's. Measured by "
        "`vellari_accuracy`\n(tools/accuracy/Measure.cpp).\n\n";
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
        "  leaves it.\n"
        "- \"All\" figures of the earth are ";
    char const* separator = "";
    for (TEllipsoid const& ellipsoid : EllipsoidsOf(elAll)) {
        text += separator;
        text += ellipsoid.Name;
        separator = ", ";
    }
    text += ";\n  the greatest difference of them counts.\n\n"
            "Longitudes that aren't wrapped: PROJ brings the difference from the central meridian into half "
            "a turn. So do the\n"
            "transverse cylinders, the spherical Mercator, Albers' cone, the polyconic and the oblique "
            "stereographic here. The\n"
            "others take it as it comes, since hosts rely on it: it shows where the map isn't the same after "
            "a turn, which is on\n"
            "the cones and on Mercator's cylinders, on the series of Cassini-Soldner, Hatt, the "
            "quasi-stereographic and the New\n"
            "Zealand Map Grid, and on the skew cylinders. Some rows below lie there.\n";
    return text;
}

std::vector<TTable> ProjectionTables(std::vector<TFamily> const& families) {
    std::vector<TTable> tables;
    int number = 0;
    for (TFamily const& family : families) {
        TTable table;
        table.Heading = std::string("### ") + family.Title;
        table.Subject = "case";
        table.KeyHeadings = {"Case", "Method", "Domain"};
        table.Columns = {{"forward", "m"}, {"reverse", "m"}, {"there and back", "m"}};
        std::vector<std::pair<TCase, TRow>> rows;
        for (TCase const& measured : family.Cases) {
            table.Notes += CaseText(++number, measured);
            for (TRow const& row : measured.Rows) {
                table.Lines.push_back(LineOf(number, measured, row));
                rows.emplace_back(measured, row);
            }
        }
        table.Measure = [rows](std::size_t line) { return Measure(rows[line].first, rows[line].second); };
        tables.push_back(std::move(table));
    }
    return tables;
}

} // namespace VellariAccuracy
