#include "tools/vellari/PointOperation.h"

#include "tools/vellari/AxisText.h"
#include "tools/vellari/SystemKinds.h"

#include <cmath>
#include <exception>
#include <limits>

namespace VellariTool {

using namespace KvRefSystem;

namespace {

/** Room for the rounding of a pole's latitude in its unit; below 0.1 mm on the ground. */
constexpr double latitudeTolerance = 1e-11;

constexpr double halfPi = 1.5707963267948966;

/** @return whether the third coordinate of a kind stands apart from the others, so that it may be missing. */
bool MayLackHeights(TShellReferenceSystem const& system) {
    return system.IsLatLon() || system.IsProjected();
}

/** @return why a point without a height can't be moved between the systems; empty when it can. */
std::string ReasonOfMissingHeight(TShellReferenceSystem const& source, TShellReferenceSystem const& target) {
    if (MayLackHeights(source) && MayLackHeights(target)) {
        return "";
    }
    TShellReferenceSystem const& strict = MayLackHeights(source) ? target : source;
    return AxisNameOf(source, 2) + " is empty; a " + KindName(strict.Type) +
           " system needs all three coordinates";
}

/** @return what to tell of a failure inside of the library. */
std::string ReasonOfFailure(std::string const& failure) {
    bool const isOfGeoid = failure.find("TShellGeoid::") != std::string::npos;
    return isOfGeoid ? "the point lies outside of the geoid's grid, or its height has no geoid there"
                     : "the transformation failed: " + failure;
}

} // namespace

TPointOperation::TPointOperation(TShellReferenceSystem const& sourceSystem,
                                 TShellReferenceSystem const& targetSystem)
    : source(sourceSystem),
      target(targetSystem),
      heightReason(ReasonOfMissingHeight(sourceSystem, targetSystem)),
      greatestLatitude(sourceSystem.IsLatLon()
                           ? (halfPi + latitudeTolerance) / sourceSystem.GetPlaneUnitCoefToBase()
                           : std::numeric_limits<double>::infinity()) {}

bool TPointOperation::Transform(TPoint* point, std::string* reason) {
    double* const coords = point->coord;
    // The library folds such a latitude back to a pole; among points it is a mistake, mostly exchanged
    // columns.
    if (!(std::fabs(coords[0]) <= greatestLatitude)) {
        *reason = FormatText("latitude %.9g is beyond a pole", coords[0]);
        return false;
    }
    if (!point->hasHeight && !heightReason.empty()) {
        *reason = heightReason;
        return false;
    }
    try {
        if (point->hasHeight) {
            source.OperateShellCoords(target, coords, false);
        } else {
            TransformWithoutHeight(coords);
        }
    } catch (std::exception const& failure) {
        *reason = ReasonOfFailure(failure.what());
        return false;
    }
    if (!std::isfinite(coords[0]) || !std::isfinite(coords[1]) || !std::isfinite(coords[2])) {
        *reason = ReasonOfInfinity(coords);
        return false;
    }
    return true;
}

/** @return why a result isn't finite: points beyond a projection's reach are the usual cause. */
std::string TPointOperation::ReasonOfInfinity(double const* coords) const {
    if (!source.IsProjected() && !target.IsProjected()) {
        return FormatText("the transformation gave no finite numbers: %.9g, %.9g, %.9g", coords[0], coords[1],
                          coords[2]);
    }
    std::string const reason = "the point lies outside of the reach of ";
    if (source.IsProjected() && target.IsProjected()) {
        return reason + "the two projections";
    }
    return reason + (target.IsProjected() ? "the target's projection" : "the source's projection");
}

/**
 * The same way as `OperateShellCoords`, by the proxies of both systems, with the mark that there is no
 * height.
 */
void TPointOperation::TransformWithoutHeight(double* coords) const {
    TCoords point;
    point.ZUndefined = true;
    source.CoordsShellToCore(coords, &point);
    TReferenceSystem const* current = source.CoreRefSystem;
    for (TShellReferenceSystem const* const system : {&source, &target}) {
        if (system->ContainsProxyRefSys()) {
            var_a<TShellReferenceSystem*> const proxy = system->GetProxyRefSys();
            TReferenceSystem const* const next = proxy->CoreRefSystem;
            current->OperateCoords(*next, &point);
            current = next;
        }
    }
    current->OperateCoords(*target.CoreRefSystem, &point);
    // The map-projected kind gives no numbers for a point without height.
    point.ZUndefined = false;
    point.Z = 0;
    target.CoordsCoreToShell(point, coords);
}

} // namespace VellariTool
