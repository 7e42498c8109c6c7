#include "bench/Points.h"
#include "bench/Runs.h"
#include "bench/Tasks.h"

#include <Vellari/Vellari.h>

#include <GeographicLib/UTMUPS.hpp>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace VellariBench {

namespace {

using namespace KvRefSystem;

/** The steps of each road, written out: the fastest that PROJ offers. */
char const* const utmPipeline = "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad "
                                "+step +proj=tmerc +approx +lon_0=39 +k_0=0.9996 +x_0=500000 +ellps=WGS84";
char const* const datumPipeline =
    "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=cart +ellps=krass "
    "+step +proj=helmert +x=23.57 +y=-140.95 +z=-79.8 +rx=0 +ry=-0.35 +rz=-0.79 +s=-0.22 "
    "+convention=coordinate_frame +step +inv +proj=cart +ellps=WGS84 "
    "+step +proj=tmerc +approx +lon_0=39 +k_0=0.9996 +x_0=500000 +ellps=WGS84";

constexpr int Zone = 37;

void FillUnit(TStringTree* tree, std::string const& label, int tag, bool (*fill)(TStringTree*)) {
    tree->InsertSubtree(label, tag, 0);
    fill(tree->FindSubtree(tag, 0));
}

/** @return the description of a UTM zone on an entry of the catalogue. */
std::string UtmText(std::string const& base) {
    TStringTree tree;
    tree.InsertString("name", 1020, 0, "UTM zone 37N");
    tree.InsertString("desc", 1021, 0, "");
    tree.InsertInteger("type", 1100, 0, rstMapProjected);
    FillUnit(&tree, "linear unit", 1104, FillMeterTree);
    tree.InsertSubtree("primary reference system", 1121, 0);
    TStringTree baseTree;
    baseTree.ReadFromString(CatalogText(base).c_str(), nullptr, nullptr);
    baseTree.CopyTo(tree.FindSubtree(1121, 0));
    tree.InsertSubtree("map projection", 1300, 0);
    TStringTree* const projection = tree.FindSubtree(1300, 0);
    projection->InsertInteger("type", 6001, 0, mptUTM);
    projection->InsertString("name", 6020, 0, "UTM zone 37N");
    FillUnit(projection, "linear unit", 6091, FillMeterTree);
    FillUnit(projection, "angular unit", 6090, FillDegreeTree);
    projection->InsertInteger("zone", 6201, 0, Zone);
    projection->InsertString("hemisphere", 6202, 0, "N");
    projection->InsertInteger("flip", 1400, 0, 0);
    projection->InsertInteger("sign", 1401, 0, 1);
    projection->InsertInteger("sign", 1401, 1, 1);
    std::string text(tree.WriteToString(nullptr, 0, 0), '\0');
    tree.WriteToString(text.data(), 0, 0);
    return text;
}

/** Points of the zone: latitude, longitude (degrees), height. */
std::vector<TTriple> ZonePoints() {
    std::vector<TTriple> points = GeodeticPoints();
    for (TTriple& point : points) {
        point[0] = 40 + point[0] / 85 * 39;
        point[1] = 39 + point[1] / 180 * 3;
    }
    return points;
}

struct TStage {
    TStage()
        : Wgs84(BuildSystem(CatalogText("wgs-84"))),
          Pulkovo(BuildSystem(CatalogText("pulkovo-1942"))),
          Utm(BuildSystem(UtmText("wgs-84"))),
          Context(proj_context_create()),
          Plain(Pipeline(Context.get(), utmPipeline)),
          Shifted(Pipeline(Context.get(), datumPipeline)),
          Geodetic(ZonePoints()) {
        for (TTriple const& point : Geodetic) {
            Plane.push_back(Moved(*Wgs84, point, *Utm));
            ShiftedPlane.push_back(Moved(*Pulkovo, point, *Utm));
            Compare(Plain.get(), point, Plane.back());
            Compare(Shifted.get(), point, ShiftedPlane.back());
            GeodeticForProj.push_back(proj_coord(point[1], point[0], point[2], 0));
            PlaneForProj.push_back(proj_coord(Plane.back()[0], Plane.back()[1], point[2], 0));
            ShiftedForProj.push_back(
                proj_coord(ShiftedPlane.back()[0], ShiftedPlane.back()[1], ShiftedPlane.back()[2], 0));
        }
    }

    /** @throws std::runtime_error when the road fails. */
    static TTriple Moved(TShellReferenceSystem const& source, TTriple const& point,
                         TShellReferenceSystem const& target) {
        TTriple out{};
        if (!TransformCoords(&source, point[0], point[1], point[2], &target, &out[0], &out[1], &out[2])) {
            throw std::runtime_error("a point fails");
        }
        return out;
    }

    /** A comparison of speeds means nothing unless both do the same. @throws beyond two millimetres. */
    static void Compare(PJ* operation, TTriple const& point, TTriple const& ours) {
        PJ_COORD const theirs = proj_trans(operation, PJ_FWD, proj_coord(point[1], point[0], point[2], 0));
        if (!(std::hypot(theirs.xyz.x - ours[0], theirs.xyz.y - ours[1], theirs.xyz.z - ours[2]) < 2e-3)) {
            throw std::runtime_error("the road to UTM differs from PROJ");
        }
    }

    std::unique_ptr<TShellReferenceSystem> Wgs84;
    std::unique_ptr<TShellReferenceSystem> Pulkovo;
    std::unique_ptr<TShellReferenceSystem> Utm;
    TProjContext Context;
    TProjObject Plain;
    TProjObject Shifted;
    std::vector<TTriple> Geodetic;
    std::vector<TTriple> Plane;        ///< of the same system
    std::vector<TTriple> ShiftedPlane; ///< of the other datum
    std::vector<PJ_COORD> GeodeticForProj;
    std::vector<PJ_COORD> PlaneForProj;
    std::vector<PJ_COORD> ShiftedForProj;
};

void RegisterRoads(std::shared_ptr<TStage const> const& stage) {
    struct TRoad {
        std::string Name;
        TShellReferenceSystem const* Source;
        TShellReferenceSystem const* Target;
        std::vector<TTriple> const* Points;
        PJ* Operation;
        PJ_DIRECTION Direction;
        std::vector<PJ_COORD> const* ForProj;
    };
    TStage const& s = *stage;
    std::vector<TRoad> const roads = {
        {"WGS 84 to UTM 37N, whole road, ns a point", s.Wgs84.get(), s.Utm.get(), &s.Geodetic, s.Plain.get(),
         PJ_FWD, &s.GeodeticForProj},
        {"UTM 37N to WGS 84, whole road, ns a point", s.Utm.get(), s.Wgs84.get(), &s.Plane, s.Plain.get(),
         PJ_INV, &s.PlaneForProj},
        {"Pulkovo 1942 to UTM 37N, seven parameters, ns a point", s.Pulkovo.get(), s.Utm.get(), &s.Geodetic,
         s.Shifted.get(), PJ_FWD, &s.GeodeticForProj},
        {"UTM 37N to Pulkovo 1942, seven parameters, ns a point", s.Utm.get(), s.Pulkovo.get(),
         &s.ShiftedPlane, s.Shifted.get(), PJ_INV, &s.ShiftedForProj},
    };
    for (TRoad const& road : roads) {
        Register(road.Name, "Vellari", [stage, road](benchmark::State& state) {
            RunRoad(state, *road.Source, *road.Target, *road.Points);
        });
        Register(road.Name, "PROJ, pipeline", [stage, road](benchmark::State& state) {
            RunProj(state, road.Operation, road.Direction, *road.ForProj);
        });
    }
}

void RegisterGeographicLib(std::shared_ptr<TStage const> const& stage) {
    using GeographicLib::UTMUPS;
    Register("WGS 84 to UTM 37N, whole road, ns a point", "GeographicLib", [stage](benchmark::State& state) {
        RunPoints(state, stage->Geodetic, [](TTriple out) {
            int zone = 0;
            bool north = false;
            UTMUPS::Forward(out[0], out[1], zone, north, out[0], out[1], Zone);
            return out;
        });
    });
    Register("UTM 37N to WGS 84, whole road, ns a point", "GeographicLib", [stage](benchmark::State& state) {
        RunPoints(state, stage->Plane, [](TTriple out) {
            UTMUPS::Reverse(Zone, true, out[0], out[1], out[0], out[1]);
            return out;
        });
    });
}

} // namespace

void RegisterProjectedRoad() {
    auto const stage = std::make_shared<TStage const>();
    RegisterRoads(stage);
    RegisterGeographicLib(stage);
}

std::string UtmOnPulkovoText() {
    return UtmText("pulkovo-1942");
}

} // namespace VellariBench
