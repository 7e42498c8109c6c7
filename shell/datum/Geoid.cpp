#include "shell/datum/Geoid.h"

#include "core/refsystems/ReferenceSystem.h"
#include "frame/NumberText.h"
#include "frame/imported/BaseGrid.h"
#include "shell/units/GeoKeyDetail.h"
// The systems own their geoids, and a geoid asks the systems for heights: the knot is tied here, in one
// direction, so that the header knows a forward declaration only.
#include "shell/refsystems/ReferenceSystem.h"

#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <string_view>

namespace KvRefSystem {

namespace {

constexpr std::string_view shiftMark = "###";
constexpr char const* toEllipsoid =
    "void TShellGeoid::GeoidToEllipsoid(const TShellReferenceSystem*, double[3]) const";
constexpr char const* toGeoid =
    "void TShellGeoid::EllipsoidToGeoid(const TShellReferenceSystem*, double[3]) const";

constexpr int maxRounds = 100;

/** The undulation counts as found when a round changes it by less than this, metres. */
constexpr double undulationTolerance = 0.001;

} // namespace

TShellGeoid::TShellGeoid(std::string const& id, TBaseGrid* grid, TShellReferenceSystem const* gridSystem)
    : Id(id),
      Shift(ExtractShift(id)),
      Grid(grid),
      GridRefSystem(gridSystem),
      GridIsLeft(false),
      GridHeightCoef(0.0),
      PresetSystem(nullptr),
      PresetFast(false),
      PresetScale(0.0) {
    if (gridSystem == nullptr) {
        throw std::runtime_error("TShellGeoid::TShellGeoid(const string& id, TBaseGrid *grid, const "
                                 "TShellReferenceSystem *grid_system)");
    }
    GridIsLeft = gridSystem->IsLeft();
    GridHeightCoef = gridSystem->GetHeightUnitCoefToBase();
}

TShellGeoid::TShellGeoid(TShellGeoid const& source, TShellReferenceSystem const* system)
    : Id(source.Id),
      Shift(source.Shift),
      Grid(source.Grid),
      GridRefSystem(source.GridRefSystem),
      GridIsLeft(source.GridRefSystem->IsLeft()),
      GridHeightCoef(source.GridRefSystem->GetHeightUnitCoefToBase()),
      PresetSystem(nullptr),
      PresetFast(false),
      PresetScale(0.0) {
    Preset(system);
}

double TShellGeoid::ExtractShift(std::string const& id) {
    std::size_t const mark = id.find(shiftMark);
    if (mark == std::string::npos) {
        return 0.0;
    }
    double shift = 0.0;
    std::string const text = id.substr(mark + shiftMark.size());
    return ScanText(text.c_str(), "%lf", &shift) == 1 ? shift : 0.0;
}

void TShellGeoid::Preset(TShellReferenceSystem const* system) {
    PresetFast = false;
    PresetScale = 0.0;
    PresetSystem = system;
    if (system == nullptr) {
        return;
    }
    if (system->PreservesHeights(*GridRefSystem)) {
        PresetFast = true;
        return;
    }
    TReferenceSystem const* const core = system->CoreRefSystem;
    TReferenceSystem const* const gridCore = GridRefSystem->CoreRefSystem;
    if (core == nullptr || gridCore == nullptr || !core->PreservesHeights(*gridCore)) {
        return;
    }
    // The two agree but for the unit of the heights.
    PresetScale = GridHeightCoef / system->GetHeightUnitCoefToBase();
    PresetFast = true;
}

void TShellGeoid::ClearPreset() {
    PresetSystem = nullptr;
    PresetFast = false;
    PresetScale = 0.0;
}

double TShellGeoid::Undulation(double const* gridCoords) const {
    double const x = gridCoords[GridIsLeft ? 1 : 0];
    double const y = gridCoords[GridIsLeft ? 0 : 1];
    double z = 0.0;
    if (Grid == nullptr || !Grid->GetZFastZ(x, y, z, 0)) {
        throw std::runtime_error("double TShellGeoid::Undulation(const double grid_coords[3]) const");
    }
    return z + Shift;
}

// Every conversion below leaves the geoids out: with them it would come back here without end.

void TShellGeoid::GeoidToEllipsoid(TShellReferenceSystem const* system, double* coords) const {
    if (system == nullptr) {
        throw std::runtime_error(toEllipsoid);
    }
    // The plane position in the grid depends on the height over the ellipsoid, which is sought: iteration on
    // the undulation. The first round always goes on unless the undulation is below the tolerance itself.
    double const systemCoef = system->GetHeightUnitCoefToBase();
    double const heightOverGeoid = coords[2] * systemCoef;
    double previous = 0.0;
    for (int round = 0; round < maxRounds; ++round) {
        double gridCoords[3];
        system->OperateShellCoords(coords, *GridRefSystem, gridCoords, true);
        double const undulation = Undulation(gridCoords);
        gridCoords[2] = (undulation * GridHeightCoef + heightOverGeoid) / GridHeightCoef;
        double back[3];
        GridRefSystem->OperateShellCoords(gridCoords, *system, back, true);
        coords[2] = back[2];
        double const seen = back[2] * systemCoef - heightOverGeoid;
        double const difference = std::fabs(previous - seen);
        previous = seen;
        if (difference < undulationTolerance) {
            return;
        }
    }
    throw std::runtime_error(toEllipsoid);
}

void TShellGeoid::EllipsoidToGeoid(TShellReferenceSystem const* system, double* coords) const {
    if (system == nullptr) {
        throw std::runtime_error(toGeoid);
    }
    double gridCoords[3];
    system->OperateShellCoords(coords, *GridRefSystem, gridCoords, true);
    double const height = gridCoords[2] - Undulation(gridCoords);
    coords[2] = GridHeightCoef / system->GetHeightUnitCoefToBase() * height;
}

void TShellGeoid::GeoidToEllipsoid(double* coords) const {
    if (PresetSystem == nullptr) {
        throw std::runtime_error("void TShellGeoid::GeoidToEllipsoid(double[3]) const");
    }
    if (!PresetFast) {
        GeoidToEllipsoid(PresetSystem, coords);
        return;
    }
    double gridCoords[3];
    PresetSystem->OperateShellCoords(coords, *GridRefSystem, gridCoords, true);
    double const undulation = Undulation(gridCoords);
    coords[2] += PresetScale != 0.0 ? undulation * PresetScale : undulation;
}

void TShellGeoid::EllipsoidToGeoid(double* coords) const {
    if (PresetSystem == nullptr) {
        throw std::runtime_error("void TShellGeoid::EllipsoidToGeoid(double[3]) const");
    }
    EllipsoidToGeoid(PresetSystem, coords);
}

bool TShellGeoid::ExportToGeoTIFF(std::map<int, std::string>* keys) const {
    if (Id.empty()) {
        return false;
    }
    keys->insert({4096, UserDefinedGeoKey});
    keys->insert({4097, Id});
    return true;
}

} // namespace KvRefSystem
