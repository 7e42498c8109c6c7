#include "tools/accuracy/Contents.h"

#include "tools/accuracy/ProjectionTables.h"
#include "tools/accuracy/road/Tables.h"

#include <iterator>
#include <utility>

namespace VellariAccuracy {

namespace {

constexpr char Introduction[] =
    "# Accuracy\n\n"
    "How many digits survive the way of a point, stage by stage, where they get lost, and why. This document "
    "is written whole\nby `make accuracy`; the figures ";

std::string Afterwards() {
    std::string text =
        ".\nA test measures again and fails where a figure no longer holds.\n\n"
        "First the stages of the road (see [transformations.md](transformations.md)): "
        "geocentric coordinates, datums,\nprojections, geoids, local kinds. Then each "
        "projection of the core against another maker's.\n\n"
        "## The figures\n\n"
        "- Each is the greatest difference over its row's domain. Beside each table stands the "
        "program that makes it.\n"
        "- Figures have two digits, rounded up, so that they hold on other machines. None is "
        "below ";
    text += FigureText(LeastFigure) +
            " m, or where\n  the rounding of Cartesian coordinates is all there is, " +
            FigureText(0, LeastCartesian) + " m; an angle's is " + FigureText(0, LeastAngle) +
            " radians.\n"
            "- In rows with an asterisk the greatest difference comes from digits that get lost, and the "
            "figures are twice what was\n  measured, up to the bound. \"" +
            NoNumber +
            "\" says that a place had no result, or that there is no bound.\n"
            "- A bound is what the reason allows: it is computed from the stated passes and formulas, not "
            "from what was measured,\n  and the test fails beyond it.\n"
            "- A reason that isn't given is that of the row above.\n"
            "- Distances on the ground are along great circles of a sphere with the semi-major axis.\n";
    return text;
}

} // namespace

TDocument WholeDocument() {
    TDocument document{Introduction, Afterwards(), RoadTables()};
    std::vector<TTable> projections = ProjectionTables(Families());
    projections.front().Before = ProjectionText();
    std::move(projections.begin(), projections.end(), std::back_inserter(document.Tables));
    return document;
}

} // namespace VellariAccuracy
