#include "tests/threads/Places.h"

#include "shell/refsystems/public/CoordinateOperation.h"
#include "tests/support/CartesianSystems.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace Threads {

using namespace TestSupport;

namespace {

TGeocentricText GeocentricOn(TGeodeticText const& base) {
    TGeocentricText text;
    text.base = base;
    return text;
}

TTopocentricText TopocentricOn(TGeodeticText const& base, std::array<char const*, 3> const& origin,
                               std::string const& azimuth, int swap) {
    TTopocentricText text;
    text.base = base;
    for (std::size_t axis = 0; axis < origin.size(); ++axis) {
        text.origin[axis] = origin[axis];
    }
    text.azimuth = azimuth;
    text.swap = swap;
    return text;
}

} // namespace

// 55.75 N, 37.62 E, 150 m of Pulkovo 1942. By cct: +proj=cart +ellps=krass; +proj=helmert +x=23.57 +y=-140.95
// +z=-79.8 +ry=0.35 +rz=0.79 +s=-0.22 +convention=position_vector; +proj=topocentric with each origin;
// +proj=utm +zone=37; +proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass.
std::vector<TPlace> EarthBoundPlaces() {
    std::vector<TPlace> places;
    auto const add = [&places](char const* name, TSystem system, TPoint const& point, bool isPulkovo,
                               bool isGrid, bool hasDegrees) {
        places.push_back({name, std::move(system), point, isPulkovo, isGrid, hasDegrees});
    };
    add("Pulkovo geodetic", Geodetic(Pulkovo1942()), {55.75, 37.62, 150}, true, false, true);
    add("Pulkovo geocentric", Live(GeocentricOn(Pulkovo1942())),
        {2849914.450986770, 2196314.798943806, 5249043.073416849}, true, false, false);
    add("Pulkovo topocentric", Live(TopocentricOn(Pulkovo1942(), {"55.8", "37.5", "200"}, "40", 1)),
        {9346.946780092675, 584.1924939954948, -56.864707981}, true, false, false);
    add("Pulkovo Gauss-Kruger", Projected(On(Pulkovo1942(), TransverseMercator("39", "1", "7500000"))),
        {7413344.619905966, 6181699.088616310, 150}, true, true, false);
    add("WGS 84 geodetic", Geodetic(WithZeroShift()), {55.750042613104, 37.618125891889, 154.542208768},
        false, false, true);
    add("WGS 84 geocentric", Live(GeocentricOn(WithZeroShift())),
        {2849937.888885759, 2196184.281004523, 5248957.282757131}, false, false, false);
    add("WGS 84 topocentric", Live(TopocentricOn(WithZeroShift(), {"55.7", "37.6", "100"}, "", 0)),
        {1138.240416716, 5571.868457716, 52.007552006}, false, false, false);
    add("UTM 37", Projected(On(WithZeroShift(), UtmZone(37, 'N'))),
        {413263.189918236, 6179125.232601728, 154.542208768}, false, true, false);
    return places;
}

std::vector<TSystem> LocalSystems() {
    std::vector<TSystem> systems;
    systems.push_back(LiveCartesian(TLocalText()));
    systems.push_back(LiveCurved(Curved("6371000")));
    return systems;
}

TMoved Move(KvRefSystem::TShellReferenceSystem const& from, TPoint const& point,
            KvRefSystem::TShellReferenceSystem const& to) {
    TMoved moved;
    moved.done = KvRefSystem::TransformCoords(&from, point[0], point[1], point[2], &to, &moved.point[0],
                                              &moved.point[1], &moved.point[2]);
    return moved;
}

void ExpectAt(TMoved const& moved, TPlace const& source, TPlace const& target) {
    // The linear reverse shift is off by the square of the rotations (0.86", 4e-6) times the earth's radius;
    // the projections' series stop after the eighth power, which leaves 0.6 mm here.
    bool const isReverse = !source.isPulkovo && target.isPulkovo;
    double const metres = (isReverse ? 2e-4 : 2e-5) + (source.isGrid || target.isGrid ? 1e-3 : 0);
    double const plane = target.hasDegrees ? metres / 6e4 : metres;
    EXPECT_TRUE(moved.done) << source.name << " to " << target.name;
    EXPECT_NEAR(moved.point[0], target.point[0], plane) << source.name << " to " << target.name;
    EXPECT_NEAR(moved.point[1], target.point[1], plane) << source.name << " to " << target.name;
    EXPECT_NEAR(moved.point[2], target.point[2], metres) << source.name << " to " << target.name;
}

} // namespace Threads
