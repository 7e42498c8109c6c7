#include "tools/vellari/AreaCommand.h"

#include "tools/vellari/FailureReport.h"
#include "tools/vellari/LineReader.h"
#include "tools/vellari/OutputFile.h"
#include "tools/vellari/PointStream.h"
#include "tools/vellari/SystemKinds.h"
#include "tools/vellari/SystemLoader.h"
#include "tools/vellari/ToolError.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

using TCorners = std::vector<vec_t_<double, 3>>;

constexpr double pi = 3.141592653589793;
constexpr int defaultDecimals = 3;

/** Reads the corners. @return false when some lines are none; they are reported. */
bool ReadCorners(TAreaOptions const& options, TShellReferenceSystem const& system, TCorners* corners) {
    TLineReader input(options.polygon);
    TPointReader reader(AxisTexts(system, {}));
    TFailureReport report(input.Name());
    double const greatestLatitude =
        system.IsLatLon() ? pi / 2 / system.GetPlaneUnitCoefToBase() * (1 + 1e-11) : HUGE_VAL;
    TTextLine line;
    TPointFields fields;
    TPoint point;
    std::string reason;
    std::uint64_t number = 0;
    while (input.Next(&line)) {
        ++number;
        TLineKind kind = lkMistake;
        reason = "the line is longer than 1 MiB";
        if (!line.isTooLong) {
            kind = reader.Read(line.text, &fields, &point, &reason);
        }
        if (kind == lkPoint && !(std::fabs(point.coord[0]) <= greatestLatitude)) {
            kind = lkMistake;
            reason = FormatText("latitude %.9g is beyond a pole", point.coord[0]);
        }
        if (kind == lkPoint) {
            corners->push_back({{point.coord[0], point.coord[1], point.coord[2]}});
        } else if (kind == lkMistake) {
            report.Add(number, line.text, reason);
        }
    }
    // The first corner may stand at the end again.
    if (corners->size() > 1 && corners->front()[0] == corners->back()[0] &&
        corners->front()[1] == corners->back()[1]) {
        corners->pop_back();
    }
    return report.Count() == 0;
}

/** Least and greatest of one coordinate, radians. */
struct TRange {
    double least = HUGE_VAL;
    double greatest = -HUGE_VAL;

    double Width() const { return greatest - least; }
};

/** @param axis 0 latitude, 1 longitude. */
TRange RangeOf(TCorners const& corners, std::size_t axis, double toRadians) {
    TRange range;
    for (vec_t_<double, 3> const& corner : corners) {
        double angle = corner[axis] * toRadians;
        if (axis == 0) {
            NormalizeLatitude(angle);
        } else {
            NormalizeLongitude(angle);
        }
        range.least = std::min(range.least, angle);
        range.greatest = std::max(range.greatest, angle);
    }
    return range;
}

/** @return why the library's area of the corners is 0; empty when it isn't. */
std::string ReasonOfNoArea(TLoadedSystem const& loaded, TCorners const& corners) {
    if (!loaded.system->IsLatLon()) {
        return loaded.name + " is a " + KindName(loaded.system->Type) +
               " system; only geodetic systems have areas";
    }
    if (corners.size() < 3) {
        return FormatText("a polygon needs three corners, and the input has %lu",
                          static_cast<unsigned long>(corners.size()));
    }
    if (!loaded.system->Ellipsoid) {
        return loaded.name + " has no ellipsoid";
    }
    double const toRadians = loaded.system->GetPlaneUnitCoefToBase();
    if (!(RangeOf(corners, 0, toRadians).Width() > 0) || !(RangeOf(corners, 1, toRadians).Width() > 0)) {
        return "all corners lie on one parallel or one meridian";
    }
    return "";
}

/** Tells what a reader of the number must know. */
void PrintReservations(TLoadedSystem const& loaded, TCorners const& corners) {
    if (RangeOf(corners, 1, loaded.system->GetPlaneUnitCoefToBase()).Width() >= pi) {
        PrintMessage("the corners' longitudes differ by half a turn or more: the polygon is taken to lie "
                     "across the antimeridian");
    }
    double major = 0;
    double minor = 0;
    if (loaded.system->GetEllipsoidSemiAxesMeters(&major, &minor) && major == minor) {
        PrintMessage("on a sphere the library gives half of the area");
    }
}

} // namespace

int RunArea(TAreaOptions const& options) {
    TLoadedSystem const loaded = LoadSystem(options.system, suTransform);
    TCorners corners;
    if (!ReadCorners(options, *loaded.system, &corners)) {
        PrintMessage("no area: not all lines are corners");
        return esSomeFailed;
    }
    double const area = loaded.system->CalculateArea(corners);
    if (!std::isfinite(area)) {
        PrintMessage("no area: the corners give no finite number");
        return esSomeFailed;
    }
    PrintText(FormatText("%.*f square metres\n", options.precision.value_or(defaultDecimals), area));
    std::string const reason = ReasonOfNoArea(loaded, corners);
    if (!reason.empty()) {
        PrintMessage("no area: " + reason);
        return esSomeFailed;
    }
    PrintReservations(loaded, corners);
    return esDone;
}

} // namespace VellariTool
