#include "bench/Tasks.h"

#include "bench/Points.h"
#include "bench/Runs.h"

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
    RunPoints(state, points, [&](TCoords coords) {
        source.OperateCoords(target, &coords);
        return coords;
    });
}

} // namespace

void RegisterGeocentric() {
    auto const stage = std::make_shared<TStage const>();
    std::string const forward = "geodetic to geocentric, ns a point";
    Register(forward, "Vellari", [stage](benchmark::State& state) {
        RunOurs(state, stage->Geodetic, stage->Geocentric, stage->Radians);
    });
    Register(forward, "PROJ", [stage](benchmark::State& state) {
        RunProj(state, stage->Cart.get(), PJ_FWD, InProjsForm(stage->Radians));
    });
    Register(forward, "GeographicLib", [stage](benchmark::State& state) {
        RunPoints(state, stage->Degrees, [&](TTriple const& point) {
            TTriple out{};
            stage->Quartic.Forward(point[0], point[1], point[2], out[0], out[1], out[2]);
            return out;
        });
    });
    std::string const back = "geocentric to geodetic, ns a point";
    Register(back, "Vellari", [stage](benchmark::State& state) {
        RunOurs(state, stage->Geocentric, stage->Geodetic, stage->Cartesian);
    });
    Register(back, "PROJ", [stage](benchmark::State& state) {
        RunProj(state, stage->Cart.get(), PJ_INV, InProjsForm(stage->Cartesian));
    });
    Register(back, "GeographicLib", [stage](benchmark::State& state) {
        RunPoints(state, stage->Cartesian, [&](TCoords const& point) {
            TTriple out{};
            stage->Quartic.Reverse(point.X, point.Y, point.Z, out[0], out[1], out[2]);
            return out;
        });
    });
}

} // namespace VellariBench
