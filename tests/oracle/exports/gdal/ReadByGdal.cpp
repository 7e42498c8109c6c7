#include "tests/oracle/exports/gdal/ReadByGdal.h"

#include "tests/oracle/exports/ExportedSystems.h"
#include "tests/oracle/exports/ProjSystem.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace OracleTests {

namespace {

using namespace KvRefSystem;

/** The first two numbers in the other order, if so asked. */
TTriple Turned(TTriple const& numbers, bool isTurned) {
    return isTurned ? TTriple{numbers[1], numbers[0], numbers[2]} : numbers;
}

double OnTheGround(TPlace const& ours, TTriple const& theirs) {
    return GroundDistance({ours.Latitude, ours.Longitude, 0}, {theirs[0], theirs[1], 0});
}

bool IsNorthFirst(TShellReferenceSystem const& system) {
    TCardinalDirection first = cdNone;
    TCardinalDirection second = cdNone;
    return system.GetAxesDirections(&first, &second) && first == cdNorth;
}

TTriple OwnAt(TShellReferenceSystem const& system, TPlace const& place) {
    if (system.Type == rstGeocentric) {
        return OurOwn(system, place);
    }
    double const angle = Degree / system.GetPlaneUnitCoefToBase();
    return {place.Latitude * angle, place.Longitude * angle, 0};
}

} // namespace

TReadDistance DistanceOf(std::string const& name, TShellReferenceSystem& system, std::string const& wkt) {
    TProjSystem const projs(wkt);
    if (!projs.IsRead()) {
        throw std::runtime_error("PROJ doesn't read " + wkt);
    }
    bool const isTurned = projs.IsNorthFirst() != IsNorthFirst(system);
    auto const* const grid = dynamic_cast<TShellMapProjectedReferenceSystem const*>(&system);
    TReadDistance distance;
    for (TPlace const& place : PlacesOf(name)) {
        TTriple const own = grid ? OurPlane(*grid, place) : OwnAt(system, place);
        if (grid) {
            TTriple const theirs =
                Turned(projs.FromGeographic({place.Latitude, place.Longitude, 0}), isTurned);
            distance.Projected =
                std::max({distance.Projected, std::abs(own[0] - theirs[0]), std::abs(own[1] - theirs[1])});
        }
        if (system.GetDatumShift()) {
            distance.Shifted = std::max(
                distance.Shifted, OnTheGround(OurWgs84(system, own), projs.ToWgs84(Turned(own, isTurned))));
        }
    }
    return distance;
}

} // namespace OracleTests
