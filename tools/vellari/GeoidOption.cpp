#include "tools/vellari/GeoidOption.h"

#include "tools/vellari/AxisText.h"
#include "tools/vellari/SystemKinds.h"
#include "tools/vellari/ToolError.h"

#ifdef VELLARI_HAS_GRIDS
#include <Vellari/hostkit/grids/GeoidGrid.h>
#endif

#include <stdexcept>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

/** @return "egm96_15" of "grids/egm96_15.gtx". */
std::string StemOf(std::string const& file) {
    std::string const name = file.substr(file.rfind('/') + 1);
    std::size_t const point = name.rfind('.');
    return point == std::string::npos || point == 0 ? name : name.substr(0, point);
}

#ifdef VELLARI_HAS_GRIDS
std::unique_ptr<TBaseGrid> OpenGrid(std::string const& file, std::string const& option) {
    try {
        return std::make_unique<VellariHostKit::TGeoidGrid>(file);
    } catch (std::bad_alloc const&) {
        throw;
    } catch (std::exception const& failure) {
        throw TToolError(option + " " + failure.what());
    }
}
#else
std::unique_ptr<TBaseGrid> OpenGrid(std::string const&, std::string const& option) {
    throw TToolError(option +
                     ": this build has no geoid grids; libtiff was not found when it was configured");
}
#endif

} // namespace

TGeoidOption::TGeoidOption(std::string const& file, std::string const& option, TLoadedSystem* loaded) {
    if (file.empty()) {
        return;
    }
    TShellReferenceSystem* const system = loaded->system.get();
    if (!system->IsLatLon() && !system->IsProjected()) {
        throw TToolError(option + ": " + loaded->name + " is a " + KindName(system->Type) +
                         " system, and its third coordinate isn't a height over an ellipsoid");
    }
    grid = OpenGrid(file, option);
    nodes = LoadSystem("wgs-84", suTransform);
    try {
        if (system->SetGeoid(StemOf(file), grid.get(), nodes.system.get())) {
            return;
        }
    } catch (std::runtime_error const&) {
        // Told below: the library's text names the function only.
    }
    throw TToolError(option + ": " + loaded->name + " takes no geoid");
}

// Where TBaseGrid is known.
TGeoidOption::~TGeoidOption() = default;

std::string HeightNameOf(TShellReferenceSystem const& system) {
    std::string const geoid = system.GetGeoidID();
    return geoid.empty() ? "ellipsoidal_height" : "height_over_" + ColumnUnitName(geoid, geoid);
}

} // namespace VellariTool
