#include "tools/accuracy/Measure.h"

#include "tools/accuracy/Methods.h"

#include <cmath>

namespace VellariAccuracy {

namespace {

using KvRefSystem::TCoords;
using KvRefSystem::TMapProjection;

TPair Forward(TMapProjection const& projection, TPair const& place) {
    TCoords point{place.X, place.Y, 0, false};
    projection.GeodeticToProjected(&point);
    return {point.X, point.Y};
}

TPair Reverse(TMapProjection const& projection, TPair const& plane) {
    TCoords point{plane.X, plane.Y, 0, false};
    projection.ProjectedToGeodetic(&point);
    return {point.X, point.Y};
}

/** Between a place and where a way back leads; radians, the radius in metres. */
double Away(TPair const& place, TPair const& found, EReverse reverse, double radius) {
    if (reverse == rvLatitude) {
        return radius * std::fabs(found.Y - place.Y);
    }
    return GroundDistance(place, found, radius);
}

} // namespace

TNumbers Measure(TCase const& measured, TRow const& row) {
    TMethod const& method = MethodOf(measured.Type);
    std::vector<TPair> const places = PlacesOf(row.Domain);
    double forward = 0;
    double reverse = 0;
    double closure = 0;
    for (TEllipsoid const& ellipsoid : EllipsoidsOf(measured.Ellipsoids)) {
        TProjOperation const proj(measured.Operation + KvRefSystem::FormatText(" +a=%.17g +b=%.17g",
                                                                               ellipsoid.Axes.a,
                                                                               ellipsoid.Axes.b));
        auto const projection = CreateProjection(method, ellipsoid.Axes, measured.Values);
        double const radius = ellipsoid.Axes.a;
        for (TPair const& place : places) {
            TPair const plane = proj.Forward(place);
            TPair const ours = Forward(*projection, place);
            Enlarge(&forward, std::hypot(ours.X - plane.X, ours.Y - plane.Y));

            TPair const found = Reverse(*projection, plane);
            Enlarge(&reverse, Away(proj.Reverse(plane), found, row.Reverse, radius));

            Enlarge(&closure, Away(place, Reverse(*projection, ours), row.Reverse, radius));
        }
    }
    return {forward, reverse, closure};
}

} // namespace VellariAccuracy
