#include "bench/Points.h"
#include "bench/Runs.h"
#include "bench/Tasks.h"

#include <Vellari/Vellari.h>

#include <GeographicLib/LocalCartesian.hpp>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace VellariBench {

namespace {

using namespace KvRefSystem;

constexpr double Major = 6378137;
constexpr double Minor = 6356752.314245179;
constexpr double Latitude = 55;
constexpr double Longitude = 37;
constexpr double Height = 200;

/** The same frame in three libraries, and the points in all forms that they take. */
struct TStage {
    TStage()
        : Ellipsoid(Major, Minor),
          Geodetic(nullptr, nullptr, &Ellipsoid, {}, {}),
          Geocentric(nullptr, nullptr, {}, {}),
          Frame(rscoRight, 0.0, &Geodetic, {Longitude * Degree, Latitude * Degree, Height, false}, {}, {}),
          Context(proj_context_create()),
          Proj(Pipeline(Context.get(), "+proj=topocentric +ellps=WGS84 +lat_0=55 +lon_0=37 +h_0=200")),
          Local(Latitude, Longitude, Height) {
        for (TTriple const& point : GeodeticPoints()) {
            TCoords core{point[1] * Degree, point[0] * Degree, point[2], false};
            Degrees.push_back(point);
            Geodetic.OperateCoords(Geocentric, &core);
            Cartesian.push_back(core);
            Geocentric.OperateCoords(Frame, &core);
            Topocentric.push_back(core);
            Compare(Cartesian.back(), core);
        }
        CartesianForProj = InProjsForm(Cartesian);
        TopocentricForProj = InProjsForm(Topocentric);
    }

    /** A comparison of speeds means nothing unless both do the same. @throws std::runtime_error otherwise. */
    void Compare(TCoords const& cartesian, TCoords const& ours) const {
        PJ_COORD const theirs =
            proj_trans(Proj.get(), PJ_FWD, proj_coord(cartesian.X, cartesian.Y, cartesian.Z, 0));
        if (!(std::hypot(theirs.xyz.x - ours.X, theirs.xyz.y - ours.Y, theirs.xyz.z - ours.Z) < 1e-6)) {
            throw std::runtime_error("the topocentric frame differs from PROJ");
        }
    }

    TEllipsoid Ellipsoid;
    TGeodeticReferenceSystem Geodetic;
    TGeocentricReferenceSystem Geocentric;
    TTopocentricHorizontalReferenceSystem Frame;
    TProjContext Context;
    TProjObject Proj;
    GeographicLib::LocalCartesian Local;
    std::vector<TTriple> Degrees;
    std::vector<TCoords> Cartesian;
    std::vector<TCoords> Topocentric;
    std::vector<PJ_COORD> CartesianForProj;
    std::vector<PJ_COORD> TopocentricForProj;
};

void RunOurs(benchmark::State& state, TReferenceSystem const& source, TReferenceSystem const& target,
             std::vector<TCoords> const& points) {
    RunPoints(state, points, [&](TCoords coords) {
        source.OperateCoords(target, &coords);
        return coords;
    });
}

} // namespace

void RegisterTopocentric() {
    auto const stage = std::make_shared<TStage const>();
    std::string const forward = "geocentric to topocentric, ns a point";
    Register(forward, "Vellari", [stage](benchmark::State& state) {
        RunOurs(state, stage->Geocentric, stage->Frame, stage->Cartesian);
    });
    Register(forward, "PROJ", [stage](benchmark::State& state) {
        RunProj(state, stage->Proj.get(), PJ_FWD, stage->CartesianForProj);
    });
    std::string const back = "topocentric to geocentric, ns a point";
    Register(back, "Vellari", [stage](benchmark::State& state) {
        RunOurs(state, stage->Frame, stage->Geocentric, stage->Topocentric);
    });
    Register(back, "PROJ", [stage](benchmark::State& state) {
        RunProj(state, stage->Proj.get(), PJ_INV, stage->TopocentricForProj);
    });
    std::string const whole = "geodetic to topocentric, ns a point";
    Register(whole, "Vellari", [stage](benchmark::State& state) {
        RunPoints(state, stage->Degrees, [&](TTriple const& point) {
            TCoords coords{point[1] * Degree, point[0] * Degree, point[2], false};
            stage->Geodetic.OperateCoords(stage->Frame, &coords);
            return coords;
        });
    });
    Register(whole, "GeographicLib", [stage](benchmark::State& state) {
        RunPoints(state, stage->Degrees, [&](TTriple const& point) {
            TTriple out{};
            stage->Local.Forward(point[0], point[1], point[2], out[0], out[1], out[2]);
            return out;
        });
    });
}

} // namespace VellariBench
