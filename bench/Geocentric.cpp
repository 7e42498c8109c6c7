#include "bench/Tasks.h"

#include "bench/Points.h"
#include "bench/ProjHandles.h"

#include <Vellari/Vellari.h>

#include <GeographicLib/Geocentric.hpp>
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

namespace VellariBench {

namespace {

using namespace KvRefSystem;

constexpr double Major = 6378137;
constexpr double Minor = 6356752.314245179;

/** The three libraries' systems and the points in all forms that they take. */
struct TStage {
    TStage()
        : Ellipsoid(Major, Minor),
          Geodetic(nullptr, nullptr, &Ellipsoid, {}, {}),
          Geocentric(nullptr, nullptr, {}, {}),
          Context(proj_context_create()),
          Cart(Pipeline(Context.get(), "+proj=cart +ellps=WGS84")),
          Quartic(Major, (Major - Minor) / Major),
          Degrees(GeodeticPoints()) {
        for (TTriple const& point : Degrees) {
            TCoords core{point[1] * Degree, point[0] * Degree, point[2], false};
            Radians.push_back(core);
            Geodetic.OperateCoords(Geocentric, &core);
            Cartesian.push_back(core);
        }
    }

    TEllipsoid Ellipsoid;
    TGeodeticReferenceSystem Geodetic;
    TGeocentricReferenceSystem Geocentric;
    TProjContext Context;
    TProjObject Cart;
    GeographicLib::Geocentric Quartic;
    std::vector<TTriple> Degrees;   ///< latitude, longitude, height
    std::vector<TCoords> Radians;   ///< longitude, latitude, height
    std::vector<TCoords> Cartesian; ///< metres
};

/** Ours, from core system to core system. */
void RunOurs(benchmark::State& state, TReferenceSystem const& source, TReferenceSystem const& target,
             std::vector<TCoords> const& points) {
    for (auto _ : state) {
        for (TCoords const& point : points) {
            TCoords coords = point;
            source.OperateCoords(target, &coords);
            benchmark::DoNotOptimize(coords);
        }
    }
    state.counters["items"] = static_cast<double>(points.size());
}

/** PROJ's, in radians. */
void RunProj(benchmark::State& state, PJ* operation, PJ_DIRECTION direction,
             std::vector<TCoords> const& points) {
    for (auto _ : state) {
        for (TCoords const& point : points) {
            PJ_COORD coords = proj_trans(operation, direction, proj_coord(point.X, point.Y, point.Z, 0));
            benchmark::DoNotOptimize(coords);
        }
    }
    state.counters["items"] = static_cast<double>(points.size());
}

/** GeographicLib's, in degrees, as its interface has them. */
void RunQuarticForward(benchmark::State& state, TStage const& stage) {
    for (auto _ : state) {
        for (TTriple const& point : stage.Degrees) {
            TTriple out{};
            stage.Quartic.Forward(point[0], point[1], point[2], out[0], out[1], out[2]);
            benchmark::DoNotOptimize(out);
        }
    }
    state.counters["items"] = static_cast<double>(stage.Degrees.size());
}

void RunQuarticReverse(benchmark::State& state, TStage const& stage) {
    for (auto _ : state) {
        for (TCoords const& point : stage.Cartesian) {
            TTriple out{};
            stage.Quartic.Reverse(point.X, point.Y, point.Z, out[0], out[1], out[2]);
            benchmark::DoNotOptimize(out);
        }
    }
    state.counters["items"] = static_cast<double>(stage.Cartesian.size());
}

} // namespace

void RegisterGeocentric() {
    auto const stage = std::make_shared<TStage const>();
    std::string const forward = "geodetic to geocentric, ns a point/";
    benchmark::RegisterBenchmark((forward + "Vellari").c_str(), [stage](benchmark::State& state) {
        RunOurs(state, stage->Geodetic, stage->Geocentric, stage->Radians);
    });
    benchmark::RegisterBenchmark((forward + "PROJ").c_str(), [stage](benchmark::State& state) {
        RunProj(state, stage->Cart.get(), PJ_FWD, stage->Radians);
    });
    benchmark::RegisterBenchmark((forward + "GeographicLib").c_str(),
                                 [stage](benchmark::State& state) { RunQuarticForward(state, *stage); });
    std::string const back = "geocentric to geodetic, ns a point/";
    benchmark::RegisterBenchmark((back + "Vellari").c_str(), [stage](benchmark::State& state) {
        RunOurs(state, stage->Geocentric, stage->Geodetic, stage->Cartesian);
    });
    benchmark::RegisterBenchmark((back + "PROJ").c_str(), [stage](benchmark::State& state) {
        RunProj(state, stage->Cart.get(), PJ_INV, stage->Cartesian);
    });
    benchmark::RegisterBenchmark((back + "GeographicLib").c_str(),
                                 [stage](benchmark::State& state) { RunQuarticReverse(state, *stage); });
}

} // namespace VellariBench
