#include "bench/Points.h"
#include "bench/ProjHandles.h"
#include "bench/Runs.h"
#include "bench/Tasks.h"

#include <Vellari/Vellari.h>
#include <Vellari/hostkit/grids/GeoidGrid.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace VellariBench {

namespace {

using namespace KvRefSystem;

/** A quarter of a degree's grid of the whole earth, from PROJ's data. */
constexpr char const* gridName = "egm96_15.gtx";

/** The undulation is added to the height, and nothing else done. */
constexpr char const* shiftStep = "+proj=vgridshift +grids=egm96_15.gtx +multiplier=1";

/** The same for who has degrees, as our side does. */
constexpr char const* shiftOfDegrees =
    "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad "
    "+step +proj=vgridshift +grids=egm96_15.gtx +multiplier=1 +step +proj=unitconvert +xy_in=rad +xy_out=deg";

std::string FileOfGrid() {
    std::string const file = proj_grid_info(gridName).filename;
    if (file.empty()) {
        throw std::runtime_error(std::string("PROJ has no ") + gridName);
    }
    return file;
}

struct TStage {
    TStage()
        : Wgs84(BuildSystem(CatalogText("wgs-84"))),
          Grid(FileOfGrid()),
          Geoid("EGM96", &Grid, Wgs84.get()),
          Context(proj_context_create()),
          Step(Pipeline(Context.get(), shiftStep)),
          Degrees(Pipeline(Context.get(), shiftOfDegrees)),
          Points(GeodeticPoints()) {
        Geoid.Preset(Wgs84.get());
        if (!Geoid.PresetFast) {
            throw std::runtime_error("the geoid doesn't take the fast path");
        }
        for (TTriple const& point : Points) {
            InRadians.push_back(proj_coord(point[1] * Degree, point[0] * Degree, point[2], 0));
            InDegrees.push_back(proj_coord(point[1], point[0], point[2], 0));
            TTriple ours = point;
            Geoid.GeoidToEllipsoid(ours.data());
            // A comparison of speeds means nothing unless both do the same.
            if (!(std::fabs(ours[2] - proj_trans(Step.get(), PJ_FWD, InRadians.back()).xyz.z) < 1e-6)) {
                throw std::runtime_error("heights over EGM96 differ from PROJ's");
            }
        }
    }

    std::unique_ptr<TShellReferenceSystem> Wgs84;
    VellariHostKit::TGeoidGrid Grid;
    TShellGeoid Geoid;
    TProjContext Context;
    TProjObject Step;
    TProjObject Degrees;
    std::vector<TTriple> Points; ///< latitude, longitude, height
    std::vector<PJ_COORD> InRadians;
    std::vector<PJ_COORD> InDegrees;
};

} // namespace

void RegisterGeoid() {
    auto const stage = std::make_shared<TStage const>();
    std::string const fast = "geoid, EGM96, fast path, ns a point";
    Register(fast, "Vellari", [stage](benchmark::State& state) {
        RunPoints(state, stage->Points, [&](TTriple point) {
            stage->Geoid.GeoidToEllipsoid(point.data());
            return point;
        });
    });
    Register(fast, "PROJ", [stage](benchmark::State& state) {
        RunProj(state, stage->Step.get(), PJ_FWD, stage->InRadians);
    });
    Register(fast, "PROJ, degrees", [stage](benchmark::State& state) {
        RunProj(state, stage->Degrees.get(), PJ_FWD, stage->InDegrees);
    });
    std::string const lookup = "geoid, EGM96, the grid alone, ns a point";
    Register(lookup, "Vellari", [stage](benchmark::State& state) {
        RunPoints(state, stage->Points, [&](TTriple const& point) {
            double undulation = 0.0;
            bool found = stage->Grid.Undulation(point[1], point[0], &undulation);
            benchmark::DoNotOptimize(found);
            return undulation;
        });
    });
    Register(lookup, "PROJ", [stage](benchmark::State& state) {
        RunProj(state, stage->Step.get(), PJ_FWD, stage->InRadians);
    });
}

} // namespace VellariBench
