#pragma once

#include "bench/Points.h"
#include "bench/ProjHandles.h"

#include <Vellari/Vellari.h>

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace VellariBench {

/** Registers a benchmark under "task/contender". */
inline void Register(std::string const& task, std::string const& contender,
                     std::function<void(benchmark::State&)> run) {
    benchmark::RegisterBenchmark((task + "/" + contender).c_str(), std::move(run));
}

/** Measures `step` on each of the points, which are copied first. */
template <class Point, class Step>
void RunPoints(benchmark::State& state, std::vector<Point> const& points, Step step) {
    for (auto _ : state) {
        for (Point const& point : points) {
            auto out = step(point);
            benchmark::DoNotOptimize(out);
        }
    }
    state.counters["items"] = static_cast<double>(points.size());
}

/** Radians and metres as PROJ takes them; the order is the same. */
inline std::vector<PJ_COORD> InProjsForm(std::vector<KvRefSystem::TCoords> const& points) {
    std::vector<PJ_COORD> all;
    all.reserve(points.size());
    for (KvRefSystem::TCoords const& point : points) {
        all.push_back(proj_coord(point.X, point.Y, point.Z, 0));
    }
    return all;
}

/** PROJ's operation on points in its own order and units. */
inline void RunProj(benchmark::State& state, PJ* operation, PJ_DIRECTION direction,
                    std::vector<PJ_COORD> const& points) {
    RunPoints(state, points, [=](PJ_COORD const& point) { return proj_trans(operation, direction, point); });
}

/** The whole road between two of our systems. */
inline void RunRoad(benchmark::State& state, KvRefSystem::TShellReferenceSystem const& source,
                    KvRefSystem::TShellReferenceSystem const& target, std::vector<TTriple> const& points) {
    RunPoints(state, points, [&](TTriple const& point) {
        TTriple out{};
        bool done = KvRefSystem::TransformCoords(&source, point[0], point[1], point[2], &target, &out[0],
                                                 &out[1], &out[2]);
        benchmark::DoNotOptimize(done);
        return out;
    });
}

} // namespace VellariBench
