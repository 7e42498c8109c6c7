#include "bench/Points.h"
#include "bench/ProjHandles.h"
#include "bench/Runs.h"
#include "bench/Tasks.h"

#include <Vellari/Vellari.h>

#include <benchmark/benchmark.h>
#include <proj_experimental.h>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace VellariBench {

namespace {

using namespace KvRefSystem;

/**
 * Straight from step to step, with the degrees' conversion and nothing else: the fastest that PROJ offers.
 */
char const* const pulkovoPipeline =
    "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=cart +ellps=krass "
    "+step +proj=helmert +x=23.57 +y=-140.95 +z=-79.8 +rx=0 +ry=-0.35 +rz=-0.79 +s=-0.22 "
    "+convention=coordinate_frame +step +inv +proj=cart +ellps=WGS84 "
    "+step +proj=unitconvert +xy_in=rad +xy_out=deg";

/** What a host gets from PROJ when it names two systems: the operation between them, heights included. */
TProjObject OperationBetween(PJ_CONTEXT* context, char const* source, char const* target) {
    TProjObject const first = Require(proj_create(context, source), source);
    TProjObject const second = Require(proj_create(context, target), target);
    TProjObject const first3d = Require(proj_crs_promote_to_3D(context, nullptr, first.get()), source);
    TProjObject const second3d = Require(proj_crs_promote_to_3D(context, nullptr, second.get()), target);
    return Require(proj_create_crs_to_crs_from_pj(context, first3d.get(), second3d.get(), nullptr, nullptr),
                   "an operation between systems");
}

/** Metres that two points (latitude, longitude in degrees, height) lie apart, with a round radius. */
double Distance(TTriple const& first, TTriple const& second) {
    double const metres = 6.4e6 * Degree;
    return std::hypot((first[0] - second[0]) * metres, std::remainder(first[1] - second[1], 360.0) * metres,
                      first[2] - second[2]);
}

struct TStage {
    TStage()
        : Pulkovo(BuildSystem(CatalogText("pulkovo-1942"))),
          Wgs84(BuildSystem(CatalogText("wgs-84"))),
          Context(proj_context_create()),
          Explicit(Pipeline(Context.get(), pulkovoPipeline)),
          Chosen(OperationBetween(Context.get(), PulkovoAsProjText,
                                  "+proj=longlat +datum=WGS84 +no_defs +type=crs")),
          Points(GeodeticPoints()) {
        for (TTriple const& point : Points) {
            CompareWith(Explicit.get(), point, "the explicit pipeline");
            CompareWith(Chosen.get(), point, "the operation between two systems");
        }
    }

    /**
     * A comparison of speeds means nothing unless both do the same. @throws std::runtime_error beyond a
     * millimetre.
     */
    void CompareWith(PJ* operation, TTriple const& point, std::string const& name) const {
        TTriple ours{};
        PJ_COORD const theirs = proj_trans(operation, PJ_FWD, proj_coord(point[1], point[0], point[2], 0));
        if (!TransformCoords(Pulkovo.get(), point[0], point[1], point[2], Wgs84.get(), &ours[0], &ours[1],
                             &ours[2]) ||
            !(Distance(ours, {theirs.xyz.y, theirs.xyz.x, theirs.xyz.z}) < 1e-3)) {
            throw std::runtime_error("Pulkovo 1942 to WGS 84 differs from PROJ by " + name);
        }
    }

    std::unique_ptr<TShellReferenceSystem> Pulkovo;
    std::unique_ptr<TShellReferenceSystem> Wgs84;
    TProjContext Context;
    TProjObject Explicit;
    TProjObject Chosen;
    std::vector<TTriple> Points; ///< latitude, longitude, height
};

/** Longitude, latitude, height: PROJ's order. */
std::vector<PJ_COORD> InProjsOrder(std::vector<TTriple> const& points) {
    std::vector<PJ_COORD> turned;
    turned.reserve(points.size());
    for (TTriple const& point : points) {
        turned.push_back(proj_coord(point[1], point[0], point[2], 0));
    }
    return turned;
}

} // namespace

void RegisterSevenParameters() {
    auto const stage = std::make_shared<TStage const>();
    auto const turned = std::make_shared<std::vector<PJ_COORD> const>(InProjsOrder(stage->Points));
    for (bool const there : {true, false}) {
        TShellReferenceSystem const& source = there ? *stage->Pulkovo : *stage->Wgs84;
        TShellReferenceSystem const& target = there ? *stage->Wgs84 : *stage->Pulkovo;
        PJ_DIRECTION const direction = there ? PJ_FWD : PJ_INV;
        std::string const task = there ? "Pulkovo 1942 to WGS 84, seven parameters, ns a point"
                                       : "WGS 84 to Pulkovo 1942, seven parameters, ns a point";
        Register(task, "Vellari", [stage, &source, &target](benchmark::State& state) {
            RunRoad(state, source, target, stage->Points);
        });
        Register(task, "PROJ, pipeline",
                 [=](benchmark::State& state) { RunProj(state, stage->Explicit.get(), direction, *turned); });
        Register(task, "PROJ, between two systems",
                 [=](benchmark::State& state) { RunProj(state, stage->Chosen.get(), direction, *turned); });
    }
}

} // namespace VellariBench
