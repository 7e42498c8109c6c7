#include "tools/accuracy/Domain.h"
#include "tools/accuracy/road/Geocentric.h"
#include "tools/accuracy/road/Systems.h"
#include "tools/accuracy/road/Tables.h"

#include <Vellari/Vellari.h>
#include <Vellari/hostkit/grids/GeoidGrid.h>
#include <proj.h>

#include <memory>
#include <stdexcept>

namespace VellariAccuracy {

namespace {

constexpr double MajorAxis = 6378137; ///< metres

/** An undulation that is the same everywhere. */
class TLevelSurface : public TBaseGrid {
public:
    bool GetZFastZ(double, double, double& z, unsigned int) override {
        constexpr double Undulation = 40; // metres
        z = Undulation;
        return true;
    }
};

std::shared_ptr<TBaseGrid> LevelSurface() {
    return std::make_shared<TLevelSurface>();
}

/** The grid of Debian's proj-data, read by the host kit. */
std::shared_ptr<TBaseGrid> Egm96() {
    static std::shared_ptr<TBaseGrid> const grid = [] {
        std::string const file = proj_grid_info("egm96_15.gtx").filename;
        if (file.empty()) {
            throw std::runtime_error("PROJ doesn't find egm96_15.gtx: install proj-data");
        }
        return std::make_shared<VellariHostKit::TGeoidGrid>(file);
    }();
    return grid;
}

TSystem Wgs84() {
    return FromCatalog("wgs-84");
}

TSystem Wgs84InFeet() {
    return FromCatalog("wgs-84-feet");
}

TSystem Pulkovo() {
    return FromCatalog("pulkovo-1942");
}

TSystem ZoneOnEd50() {
    return Grid("ed50", 1002, {{6201, "32"}, {6202, "N"}});
}

/** The bound of a way whose passes end when the undulation changes by less than this, metres. */
constexpr double StoppingChange = 1e-3;

struct TGeoidRow {
    char const* Surface;
    std::shared_ptr<TBaseGrid> (*CreateSurface)();
    char const* SystemText;
    TSystem (*CreateSystem)();
    TDomain Domain;
    bool Passes; ///< the way down to the ellipsoid isn't one lookup
    char const* Reason;
};

constexpr TDomain Earth = {-89, 89, 0, 180};
constexpr TDomain Zone = {0, 80, 9, 3};

constexpr TGeoidRow rows[] = {
    {"level, 40 m", &LevelSurface, "WGS 84", &Wgs84, Earth, false,
     "One lookup both ways: the heights of the system and of the grid's are the same. Two conversions with "
     "their "
     "stopped passes are on the way, whose height takes the tangent of the latitude."},
    {"level, 40 m", &LevelSurface, "WGS 84, heights in feet", &Wgs84InFeet, Earth, false, ""},
    {"level, 40 m", &LevelSurface, "Pulkovo 1942", &Pulkovo, Earth, true,
     "The passes of the way back end when the undulation changes by less than a millimetre; what is left is "
     "far "
     "less, and the squares of the shift's rotations are more."},
    {"EGM96", &Egm96, "WGS 84", &Wgs84, Earth, false, "One lookup at the same place both ways."},
    {"EGM96", &Egm96, "WGS 84, heights in feet", &Wgs84InFeet, Earth, false, ""},
    {"EGM96", &Egm96, "Pulkovo 1942", &Pulkovo, Earth, true,
     "The same passes, and the place of the second lookup is off by what the shift leaves."},
    {"EGM96", &Egm96, "UTM, zone 32, on ED50", &ZoneOnEd50, Zone, true,
     "The same passes, and the place is off by what the projection leaves."},
};

TNumbers MeasureRow(TGeoidRow const& row) {
    auto const surface = row.CreateSurface();
    TSystem const gridSystem = Wgs84();
    TSystem const ellipsoid = Wgs84();
    TSystem const system = row.CreateSystem();
    if (!system->SetGeoid("geoid", surface.get(), gridSystem.get())) {
        throw std::runtime_error(system->Name + ": no geoid");
    }
    double ground = 0;
    double height = 0;
    for (TPair const& place : PlacesOf(row.Domain)) {
        for (double const level : {-1e3, 0.0, 9e3}) {
            TTriple const from = {place.Y / Degree, place.X / Degree, level};
            TApart const apart =
                ApartBy(from, Moved(system, Moved(ellipsoid, from, system), ellipsoid), MajorAxis);
            Enlarge(&ground, apart.Ground);
            Enlarge(&height, apart.Height);
        }
    }
    return {ground, height};
}

} // namespace

TTable GeoidTable() {
    constexpr double GreatestLatitude = 89;
    constexpr double LeastHeight = -1e3;
    constexpr double GreatestHeight = 9e3;
    double const oneWay = HeightBound(GreatestLatitude, LeastHeight, GreatestHeight);
    TTable table;
    table.Heading = "## Geoids";
    table.Subject = "geoid:";
    table.Text =
        "From heights over the ellipsoid of WGS 84 to heights over a geoid in the system, and back; at "
        "-1 km, 0 and 9 km. EGM96 is\nthe grid of a quarter of a degree, read by the host kit. Measured by "
        "`vellari_accuracy` (tools/accuracy/road/Geoids.cpp).\n";
    table.KeyHeadings = {"Geoid", "System", "Domain"};
    table.Columns = {{"on the ground", "m"}, {"height", "m", LeastFigure, true}};
    for (TGeoidRow const& row : rows) {
        // Each way has its conversion, and each lookup another one there and back in the grid's system.
        constexpr double Conversions = 4;
        double const bound = Conversions * oneWay + (row.Passes ? StoppingChange : 0);
        table.Lines.push_back({{row.Surface, row.SystemText, DomainText(row.Domain)},
                               row.Reason,
                               row.Passes ? soMethod : soRounding,
                               {bound}});
    }
    table.Measure = [](std::size_t line) { return MeasureRow(rows[line]); };
    return table;
}

} // namespace VellariAccuracy
