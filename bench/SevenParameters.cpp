#include "bench/Points.h"
#include "bench/ProjHandles.h"
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

std::unique_ptr<TShellReferenceSystem> BuildEntry(std::string const& name) {
    std::unique_ptr<TShellReferenceSystem> system(CreateShellReferenceSystem(CatalogText(name), nullptr));
    if (!system) {
        throw std::runtime_error("the catalogue's " + name + " doesn't build");
    }
    return system;
}

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
        : Pulkovo(BuildEntry("pulkovo-1942")),
          Wgs84(BuildEntry("wgs-84")),
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

void RunOurs(benchmark::State& state, TShellReferenceSystem const* source,
             TShellReferenceSystem const* target, std::vector<TTriple> const& points) {
    for (auto _ : state) {
        for (TTriple const& point : points) {
            TTriple out{};
            bool done =
                TransformCoords(source, point[0], point[1], point[2], target, &out[0], &out[1], &out[2]);
            benchmark::DoNotOptimize(done);
            benchmark::DoNotOptimize(out);
        }
    }
    state.counters["items"] = static_cast<double>(points.size());
}

void RunProj(benchmark::State& state, PJ* operation, PJ_DIRECTION direction,
             std::vector<TTriple> const& points) {
    for (auto _ : state) {
        for (TTriple const& point : points) {
            PJ_COORD out = proj_trans(operation, direction, proj_coord(point[1], point[0], point[2], 0));
            benchmark::DoNotOptimize(out);
        }
    }
    state.counters["items"] = static_cast<double>(points.size());
}

} // namespace

void RegisterSevenParameters() {
    auto const stage = std::make_shared<TStage const>();
    for (bool const there : {true, false}) {
        TShellReferenceSystem const* const source = there ? stage->Pulkovo.get() : stage->Wgs84.get();
        TShellReferenceSystem const* const target = there ? stage->Wgs84.get() : stage->Pulkovo.get();
        PJ_DIRECTION const direction = there ? PJ_FWD : PJ_INV;
        std::string const task = there ? "Pulkovo 1942 to WGS 84, seven parameters, ns a point/"
                                       : "WGS 84 to Pulkovo 1942, seven parameters, ns a point/";
        benchmark::RegisterBenchmark((task + "Vellari").c_str(), [=](benchmark::State& state) {
            RunOurs(state, source, target, stage->Points);
        });
        benchmark::RegisterBenchmark((task + "PROJ, pipeline").c_str(), [=](benchmark::State& state) {
            RunProj(state, stage->Explicit.get(), direction, stage->Points);
        });
        benchmark::RegisterBenchmark(
            (task + "PROJ, between two systems").c_str(),
            [=](benchmark::State& state) { RunProj(state, stage->Chosen.get(), direction, stage->Points); });
    }
}

} // namespace VellariBench
