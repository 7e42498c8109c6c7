#include "tools/vellari/AxesCommand.h"

#include "tools/vellari/AxisText.h"
#include "tools/vellari/OutputFile.h"
#include "tools/vellari/SystemKinds.h"
#include "tools/vellari/SystemLoader.h"
#include "tools/vellari/ToolError.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

constexpr double degree = 3.141592653589793 / 180;

struct TVector {
    double x;
    double y;
    double z;
};

double Dot(TVector const& a, TVector const& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

TVector Cross(TVector const& a, TVector const& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

TVector Unit(TVector const& a) {
    double const length = std::sqrt(Dot(a, a));
    return {a.x / length, a.y / length, a.z / length};
}

/** Derivatives of the world's coordinates by the core's three, metres. */
struct TAxes {
    TVector row[3];
};

TAxes CoreAxes(TShellReferenceSystem const& system, double const* place, std::string const& name) {
    double numbers[9];
    bool isDone = TransformAxes(&system, place[0], place[1], place[2], numbers, false);
    for (double const number : numbers) {
        isDone = isDone && std::isfinite(number);
    }
    if (!isDone) {
        throw TToolError(name + " doesn't reach that place");
    }
    return {{{numbers[0], numbers[1], numbers[2]},
             {numbers[3], numbers[4], numbers[5]},
             {numbers[6], numbers[7], numbers[8]}}};
}

/**
 * The same by one unit of each shell coordinate. The core has the coordinates in another order, and with
 * other signs.
 */
TAxes ShellAxes(TShellReferenceSystem const& system, double const* place, std::string const& name) {
    TAxes const core = CoreAxes(system, place, name);
    TAxes shell{};
    double const zero[3] = {0, 0, 0};
    TCoords origin{};
    system.CoordsShellToCore(zero, &origin);
    for (int axis = 0; axis < 3; ++axis) {
        double one[3] = {0, 0, 0};
        one[axis] = 1;
        TCoords moved{};
        system.CoordsShellToCore(one, &moved);
        double const step[3] = {moved.X - origin.X, moved.Y - origin.Y, moved.Z - origin.Z};
        TVector& sum = shell.row[axis];
        for (int k = 0; k < 3; ++k) {
            sum.x += step[k] * core.row[k].x;
            sum.y += step[k] * core.row[k].y;
            sum.z += step[k] * core.row[k].z;
        }
    }
    return shell;
}

double DegreesOf(std::string const& text, char const* what) {
    double value = 0;
    if (!ParseWholeDouble(text, &value) || !std::isfinite(value)) {
        throw TToolError(std::string(what) + " " + Quoted(text, 40) + " is not a number of degrees");
    }
    return value;
}

/** @return the geodetic system in degrees on the same datum. */
std::unique_ptr<TShellReferenceSystem> GeodeticBelow(TLoadedSystem const& loaded) {
    TStringTree tree;
    if (loaded.system->FillPrimaryGeodeticRefSystemTreeDeg(&tree) == 0) {
        std::unique_ptr<TShellReferenceSystem> system(CreateShellReferenceSystem(&tree, nullptr));
        if (system) {
            return system;
        }
    }
    throw TToolError(loaded.name + " has no datum or no prime meridian, so no latitude and longitude");
}

/** East, north and up at a place. */
struct THorizon {
    TVector east;
    TVector north;
    TVector up;
};

THorizon HorizonAt(TShellReferenceSystem const& geodetic, double const* place, std::string const& name) {
    TAxes const axes = ShellAxes(geodetic, place, name);
    TVector const up = Unit(axes.row[2]);
    TVector const east = Unit(axes.row[1]);
    return {east, Cross(up, east), up};
}

/** "111131.78 m, bearing 0.00000, elevation 0.00000"; eight digits, what the differences are good for. */
std::string LeadText(TVector const& axis, THorizon const& horizon) {
    double const east = Dot(axis, horizon.east);
    double const north = Dot(axis, horizon.north);
    double const up = Dot(axis, horizon.up);
    double const plane = std::hypot(east, north);
    double const length = std::hypot(plane, up);
    // Differences of coordinates of the earth's size leave a rounding behind.
    constexpr double rounding = 1e-7;
    std::string text = FormatText("%.8g m", length);
    if (plane > rounding * length) {
        double bearing = std::atan2(east, north) / degree;
        bearing += bearing < -rounding ? 360 : 0;
        text += FormatText(", bearing %.5f", std::fabs(bearing) < rounding ? 0.0 : bearing);
    }
    double const elevation = std::atan2(up, plane) / degree;
    return text + FormatText(", elevation %.5f", std::fabs(elevation) < 1e-5 ? 0.0 : elevation);
}

char const* DirectionName(TCardinalDirection direction) {
    switch (direction) {
    case cdNone:
        break;
    case cdNorth:
        return "north";
    case cdEast:
        return "east";
    case cdSouth:
        return "south";
    case cdWest:
        return "west";
    }
    return "none";
}

std::string Padded(std::string text) {
    text.resize(std::max<std::size_t>(20, text.size() + 1), ' ');
    return text;
}

/** What the library says of the axes. */
std::string DirectionsText(TShellReferenceSystem const& system) {
    TCardinalDirection direction[2] = {cdNone, cdNone};
    bool const hasDirections = system.GetAxesDirections(&direction[0], &direction[1]);
    if (!hasDirections) {
        return Padded("directions") + "none: the axes of this " + KindName(system.Type) +
               " system lead to no point of the compass\n";
    }
    return Padded("directions") + DirectionName(direction[0]) + ", " + DirectionName(direction[1]) + "\n";
}

/** Where one unit of each coordinate leads at a place. */
std::string PlaceText(TLoadedSystem const& loaded, double latitude, double longitude) {
    TShellReferenceSystem const& system = *loaded.system;
    std::unique_ptr<TShellReferenceSystem> const geodetic = GeodeticBelow(loaded);
    double const place[3] = {latitude, longitude, 0};
    double coords[3];
    try {
        geodetic->OperateShellCoords(place, system, coords, true);
    } catch (std::exception const& failure) {
        throw TToolError(loaded.name + " doesn't reach that place: " + failure.what());
    }
    THorizon const horizon = HorizonAt(*geodetic, place, loaded.name);
    TAxes const axes = ShellAxes(system, coords, loaded.name);
    std::string const planeUnit = system.GetPlaneUnitShortName();
    std::string const units[3] = {planeUnit, planeUnit, system.GetHeightUnitShortName()};
    std::string text;
    for (int axis = 0; axis < 3; ++axis) {
        text += Padded(AxisNameOf(system, axis)) + "1 " + units[axis] + " = " +
                LeadText(axes.row[axis], horizon) + "\n";
    }
    return text;
}

} // namespace

int RunAxes(TAxesOptions const& options) {
    TLoadedSystem const loaded = LoadSystem(options.system, suTransform);
    if (options.latitude.empty() != options.longitude.empty()) {
        throw TToolError("LON is missing: a place needs latitude and longitude");
    }
    std::string text = DirectionsText(*loaded.system);
    if (!options.latitude.empty()) {
        double const latitude = DegreesOf(options.latitude, "latitude");
        double const longitude = DegreesOf(options.longitude, "longitude");
        if (!(std::fabs(latitude) < 90)) {
            throw TToolError(
                FormatText("latitude %.9g is a pole or beyond it, where no direction is north", latitude));
        }
        text += loaded.system->IsGlobal()
                    ? PlaceText(loaded, latitude, longitude)
                    : Padded("place on the earth") + "none: this system isn't tied to the earth\n";
    }
    PrintText(text);
    return esDone;
}

} // namespace VellariTool
