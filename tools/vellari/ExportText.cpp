#include "tools/vellari/ExportText.h"

#include "tools/vellari/FailureReport.h"
#include "tools/vellari/GeoKeyNames.h"
#include "tools/vellari/ProjectionNames.h"
#include "tools/vellari/SystemKinds.h"
#include "tools/vellari/ToolError.h"

#include <algorithm>
#include <map>
#include <memory>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

using TKeys = std::map<int, std::string>;

[[noreturn]] void FailWithoutForm(TLoadedSystem const& loaded, char const* language,
                                  std::string const& reason) {
    throw TToolError(loaded.name + " has no form in " + language + ": " + reason);
}

/** "the projection Polyconic (American Polyconic)". */
std::string ProjectionText(TShellMapProjection const& projection) {
    std::string const name = projection.Name.empty() ? "" : " " + Quoted(projection.Name, 40);
    return "the projection" + name + " (" + ProjectionMethodName(projection.Type) + ")";
}

// --- Why a system has no WKT -------------------------------------------------------------------------------

/** @return why a unit has no WKT; empty when it has. */
std::string UnitReason(TShellUnit const* unit, std::string const& what) {
    std::string text;
    if (!unit) {
        return "there is no " + what;
    }
    return unit->ExportToWKT(&text) ? "" : "the " + what + " " + Quoted(unit->Name, 40) + " has no size";
}

/** The same for what every earth-bound system has. */
std::string EarthReason(TShellReferenceSystem const& system) {
    std::string text;
    if (!system.PrimeMeridian) {
        return "there is no prime meridian";
    }
    return system.ExportDatumToWKT(&text) ? "" : "its datum has numbers that can't be read";
}

/** The same for the heights of a compound system. */
std::string HeightReason(TShellGeodeticReferenceSystem const& geodetic, bool isCompound) {
    return isCompound
               ? UnitReason(geodetic.Vertical ? geodetic.Vertical->HeightUnit : nullptr, "unit of heights")
               : "";
}

/** The same for a grid without its heights. */
std::string GridReason(TShellMapProjectedReferenceSystem const& grid) {
    std::string text;
    std::string earth = EarthReason(*grid.BaseGeodetic);
    if (!earth.empty()) {
        return earth;
    }
    if (!grid.MapProjection->GetProjectionTypeWKT(&text)) {
        return ProjectionText(*grid.MapProjection) + " has no name there";
    }
    if (!grid.MapProjection->GetProjectionParamsWKT(&text)) {
        return ProjectionText(*grid.MapProjection) + " has parameters without a form there";
    }
    return UnitReason(grid.LinearUnit, "linear unit");
}

std::string WktReason(TShellReferenceSystem const& system, bool isCompound) {
    std::string reason;
    if (auto const* const grid = dynamic_cast<TShellMapProjectedReferenceSystem const*>(&system)) {
        reason = GridReason(*grid);
        return reason.empty() ? HeightReason(*grid->BaseGeodetic, isCompound) : reason;
    }
    if (system.IsLatLon() || system.IsGeocentric()) {
        reason = EarthReason(system);
    }
    if (auto const* const geodetic = dynamic_cast<TShellGeodeticReferenceSystem const*>(&system)) {
        if (reason.empty()) {
            reason = UnitReason(geodetic->AngularUnit, "angular unit");
        }
        return reason.empty() ? HeightReason(*geodetic, isCompound) : reason;
    }
    return reason.empty() ? UnitReason(OneUnitOf(system), "linear unit") : reason;
}

std::string ExportWkt(TLoadedSystem const& loaded, bool isCompound) {
    std::string text;
    if (!loaded.system->ExportToWKT(&text, isCompound, false)) {
        std::string const reason = WktReason(*loaded.system, isCompound);
        FailWithoutForm(loaded, "WKT", reason.empty() ? "a part of it can't be written" : reason);
    }
    return text;
}

// --- MapInfo -----------------------------------------------------------------------------------------------

/** @return why the datum has no numbers of MapInfo. */
std::string MifDatumReason(TShellReferenceSystem const& system) {
    if (!system.DatumShift || !system.PrimeMeridian) {
        return std::string("the description has no ") + (system.DatumShift ? "prime meridian" : "datum") +
               " at its root";
    }
    TStringTree const* const datum = system.SavedTree->FindSubtree(1107, 0);
    TStringTree const* const ellipsoid = datum ? datum->FindSubtree(5610, 0) : nullptr;
    std::string code;
    if (!ellipsoid || !ellipsoid->GetString(101004, 0, &code) || code.empty()) {
        return "the datum's ellipsoid lacks field (101004,0), its number in MapInfo";
    }
    return "the datum has numbers that can't be read";
}

/** @return why the clause of an earth-bound system names no place on the earth. */
std::string NonearthReason(TShellReferenceSystem const& system) {
    if (!system.IsLatLon() && !system.IsProjected()) {
        return "MapInfo has no " + KindName(system.Type) + " systems";
    }
    TStringTree const* const settings = system.SavedTree->FindSubtree(101000, 0);
    std::string text;
    if (!settings) {
        return "the description lacks subtree (101000,0), the MapInfo settings";
    }
    if (!settings->GetString(101001, 0, &text)) {
        return "the MapInfo settings lack field (101001,0), the projection";
    }
    if (!settings->GetString(101002, 0, &text)) {
        return "the MapInfo settings lack field (101002,0), the unit";
    }
    if (!system.ExportDatumToMIFMID(&text, false)) {
        return MifDatumReason(system);
    }
    auto const* const grid = dynamic_cast<TShellMapProjectedReferenceSystem const*>(&system);
    return grid ? ProjectionText(*grid->MapProjection) + " has no form there" : "a part has no form there";
}

/** Writes the clause of a kind with one unit. @return false for another class, and without a unit. */
template <class Shell>
bool ExportFrameToMif(TShellReferenceSystem const& system, std::string* text) {
    auto const* const frame = dynamic_cast<Shell const*>(&system);
    return frame && frame->ExportToMIFMID(text);
}

bool ExportToMif(TShellReferenceSystem const& system, std::string* text) {
    return system.ExportToMIFMID(text, false) ||
           ExportFrameToMif<TShellGeocentricReferenceSystem>(system, text) ||
           ExportFrameToMif<TShellTopocentricHorizontalReferenceSystem>(system, text) ||
           ExportFrameToMif<TShellLocalCartesianReferenceSystem>(system, text) ||
           ExportFrameToMif<TShellLocalCurvedReferenceSystem>(system, text);
}

// --- Keys --------------------------------------------------------------------------------------------------

std::string GridKeysReason(TShellMapProjectedReferenceSystem const& grid) {
    TStringTree tree;
    TKeys keys;
    if (!FillDegreeTree(&tree)) {
        return "";
    }
    std::unique_ptr<TShellAngularUnit> const degree(CreateShellAngularUnit(&tree));
    if (!grid.GeoTIFFCode.empty() ||
        grid.MapProjection->ExportToGeoTIFF(&keys, degree.get(), grid.LinearUnit)) {
        return "";
    }
    return ProjectionText(*grid.MapProjection) + (grid.MapProjection->GeoTIFFType.empty()
                                                      ? " has no field (102008,0), its method there"
                                                      : " has parameters without a form there");
}

std::string KeysReason(TShellReferenceSystem const& system) {
    if (system.GeoTIFFType.empty()) {
        return "it has no model type for a " + KindName(system.Type) + " system";
    }
    auto const* const grid = dynamic_cast<TShellMapProjectedReferenceSystem const*>(&system);
    TShellReferenceSystem const& earth = grid ? *grid->BaseGeodetic : system;
    auto const* const geodetic = dynamic_cast<TShellGeodeticReferenceSystem const*>(&earth);
    if (geodetic && !(geodetic->Vertical && geodetic->Vertical->HeightUnit)) {
        return "there is no unit of heights";
    }
    if (geodetic && !earth.Ellipsoid) {
        return "there is no ellipsoid";
    }
    if (!earth.PrimeMeridian) {
        return "there is no prime meridian";
    }
    std::string const reason = grid ? GridKeysReason(*grid) : "";
    return reason.empty() ? "a part of it can't be written" : reason;
}

/** "1024  GTModelTypeGeoKey               1". */
std::string KeysText(TKeys const& keys) {
    constexpr std::size_t nameWidth = 32;
    std::string text;
    for (auto const& [number, value] : keys) {
        std::string name(GeoKeyName(number));
        name.resize(std::max(nameWidth, name.size() + 2), ' ');
        text += FormatText("%-6d", number);
        text += name;
        text += value;
        text += '\n';
    }
    return text;
}

} // namespace

std::string ExportAsWkt(TLoadedSystem const& loaded) {
    return ExportWkt(loaded, false);
}

std::string ExportAsCompoundWkt(TLoadedSystem const& loaded) {
    return ExportWkt(loaded, true);
}

std::string ExportAsMif(TLoadedSystem const& loaded) {
    std::string text;
    if (!ExportToMif(*loaded.system, &text)) {
        FailWithoutForm(loaded, "MapInfo's clauses", "there is no unit");
    }
    if (loaded.system->IsGlobal() && text.rfind("CoordSys Nonearth", 0) == 0) {
        PrintMessage(loaded.name +
                     ": the clause names no place on the earth: " + NonearthReason(*loaded.system));
    }
    return text;
}

std::string ExportAsGeoTiff(TLoadedSystem const& loaded) {
    TKeys keys;
    if (!loaded.system->ExportToGeoTIFF(&keys, true)) {
        FailWithoutForm(loaded, "GeoTIFF", KeysReason(*loaded.system));
    }
    return KeysText(keys);
}

std::string ExportAsPanorama(TLoadedSystem const& loaded) {
    TKeys keys;
    if (!loaded.system->ExportToPanorama(&keys, true)) {
        FailWithoutForm(loaded, "Panorama's keys", KeysReason(*loaded.system));
    }
    return KeysText(keys);
}

} // namespace VellariTool
