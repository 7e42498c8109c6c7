#include "tests/oracle/exports/ExportedSystems.h"

#include "tests/oracle/Road.h"
#include "tests/support/Descriptions.h"
#include "tools/vellari/ZoneDescription.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <stdexcept>

namespace OracleTests {

namespace {

using namespace KvRefSystem;

/** Where a grid of the catalogue is at home, degrees. */
struct TArea {
    char const* Name;
    double South;
    double North;
    double West; ///< from the base system's meridian
    double East;
};

constexpr TArea areas[] = {
    {"albers-conus", 25, 49, -124, -67},
    {"belge-lambert-72", 49.5, 51.5, 2.5, 6.4},
    {"belgian-lambert-72", 49.5, 51.5, 2.5, 6.4},
    {"british-national-grid", 50, 60.8, -7, 1.9},
    {"etrs89-laea", 35, 70, -10, 30},
    {"etrs89-lcc", 35, 70, -10, 30},
    {"italy-zone-1", 37, 47, 6.5, 12},
    {"italy-zone-2", 37, 47, 12, 18.5},
    {"lambert-93", 41, 51, -5, 9.5},
    {"lambert-zone-ii", 45.5, 48.1, -7, 5},
    {"nzmg", -47.3, -34.2, 166.5, 178.5},
    {"polyconic-brazil", -33, 5, -73, -35},
    {"rd-new", 50.8, 53.6, 3.3, 7.2},
    {"s-jtsk-krovak", 48.6, 51, 12.2, 18.8},
    {"s-jtsk-krovak-en", 48.6, 51, 12.2, 18.8},
    {"swiss-lv95", 45.9, 47.8, 6, 10.4},
    {"ups-north", 61, 89, -175, 175},
    {"ups-south", -89, -61, -175, 175},
    {"web-mercator", -80, 80, -175, 175},
};

/** Where the series of a reverse form leave more than a millimetre. */
struct TSeries {
    char const* Name;
    double Distance; ///< metres
};

constexpr TSeries beyondTheSeries[] = {
    {"albers-conus", 0.0017},         // at the southern edge
    {"british-national-grid", 0.014}, // 5 degrees from the meridian
    {"italy-zone-2", 0.0011},         // 3.5 degrees from the meridian
};

/** Rows and columns of the visited places. */
constexpr int Steps = 6;

std::vector<TPlace> PlacesIn(TArea const& area) {
    std::vector<TPlace> places;
    for (int row = 0; row <= Steps; ++row) {
        for (int column = 0; column <= Steps; ++column) {
            places.push_back({area.South + (area.North - area.South) * row / Steps,
                              area.West + (area.East - area.West) * column / Steps, 0});
        }
    }
    return places;
}

/** The place of a zone of six degrees: on its own side of the equator, to the edges and the meridian. */
TArea AreaOfZone(std::string const& name) {
    VellariTool::TZone const zone = VellariTool::ParseZoneShorthand(name);
    double const meridian = 6.0 * zone.zone - (zone.family == VellariTool::zfUtm ? 183 : 3);
    double const east = meridian > 180 ? meridian - 360 : meridian;
    return {name.c_str(), zone.isNorth ? 0.0 : -80.0, zone.isNorth ? 84.0 : 0.0, east - 3, east + 3};
}

TShellReferenceSystem const& Wgs84() {
    static std::unique_ptr<TShellReferenceSystem> const system = SystemNamed("wgs-84");
    return *system;
}

} // namespace

std::unique_ptr<TShellReferenceSystem> SystemNamed(std::string const& name) {
    std::string const text = VellariTool::IsZoneShorthand(name)
                                 ? VellariTool::DescribeZone(VellariTool::ParseZoneShorthand(name))
                                 : TestSupport::CatalogText(name);
    std::unique_ptr<TShellReferenceSystem> system(CreateShellReferenceSystem(text, nullptr));
    if (!system) {
        throw std::runtime_error(name + " doesn't build");
    }
    return system;
}

std::unique_ptr<TShellMapProjectedReferenceSystem> GridNamed(std::string const& name) {
    auto system = SystemNamed(name);
    auto* const grid = dynamic_cast<TShellMapProjectedReferenceSystem*>(system.get());
    if (!grid) {
        throw std::runtime_error(name + " is no grid");
    }
    system.release();
    return std::unique_ptr<TShellMapProjectedReferenceSystem>(grid);
}

std::vector<std::string> CatalogueNames() {
    std::vector<std::string> names;
    for (auto const& file : std::filesystem::directory_iterator(VELLARI_SOURCE_DIR "/catalog")) {
        if (file.path().extension() == ".txt") {
            names.push_back(file.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> ZoneNames() {
    return {"utm:1N", "utm:30N", "utm:31N", "utm:37N", "utm:60N", "utm:1S", "utm:37S", "utm:60S",
            "gk:1",   "gk:4",    "gk:7",    "gk:30",   "gk:31",   "gk:32",  "gk:60",   "gk:7S",
            "gk:60S", "gsk:1",   "gsk:7",   "gsk:30",  "gsk:31",  "gsk:32", "gsk:60",  "gsk:7S"};
}

std::vector<TPlace> PlacesOf(std::string const& name) {
    if (VellariTool::IsZoneShorthand(name)) {
        return PlacesIn(AreaOfZone(name));
    }
    for (TArea const& area : areas) {
        if (area.Name == name) {
            return PlacesIn(area);
        }
    }
    return PlacesIn({name.c_str(), -85, 85, -170, 170});
}

TTriple OurPlane(TShellMapProjectedReferenceSystem const& grid, TPlace const& place) {
    double const angle = Degree / grid.BaseGeodetic->GetPlaneUnitCoefToBase();
    TTriple out{};
    if (!TransformCoords(grid.BaseGeodetic, place.Latitude * angle, place.Longitude * angle, place.Height,
                         &grid, &out[0], &out[1], &out[2])) {
        throw std::runtime_error(grid.Name + ": not projected");
    }
    double const metres = grid.GetPlaneUnitCoefToBase();
    return {out[0] * metres, out[1] * metres, out[2]};
}

TTriple OurOwn(TShellReferenceSystem const& system, TPlace const& place) {
    TTriple out{};
    if (!TransformCoords(&Wgs84(), place.Latitude, place.Longitude, 0, &system, &out[0], &out[1], &out[2])) {
        throw std::runtime_error(system.Name + ": not transformed");
    }
    return out;
}

TPlace OurWgs84(TShellReferenceSystem const& system, TTriple const& own) {
    TPlace out{};
    if (!TransformCoords(&system, own[0], own[1], own[2], &Wgs84(), &out.Latitude, &out.Longitude,
                         &out.Height)) {
        throw std::runtime_error(system.Name + ": not transformed");
    }
    return out;
}

double ReversePromise(std::string const& name) {
    for (TSeries const& row : beyondTheSeries) {
        if (row.Name == name) {
            return row.Distance;
        }
    }
    return PromisedOnTheGround;
}

std::string SuffixOf(std::string const& name) {
    std::string suffix = name;
    std::replace_if(
        suffix.begin(), suffix.end(), [](unsigned char letter) { return std::isalnum(letter) == 0; }, '_');
    return suffix;
}

} // namespace OracleTests
