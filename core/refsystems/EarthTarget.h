#pragma once

#include "core/projections/MapProjection.h"
#include "core/refsystems/GeocentricReferenceSystem.h"
#include "core/refsystems/GeodeticReferenceSystem.h"
#include "core/refsystems/MapProjectedReferenceSystem.h"
#include "core/refsystems/TopocentricHorizontalReferenceSystem.h"

#include <stdexcept>

namespace KvRefSystem {

/**
 * The last steps on the way to an earth-bound target, the same for every earth-bound source: fetched and
 * checked before a point is touched, then applied to it. For the kinds' own use; not exported.
 */
class __attribute__((visibility("hidden"))) TEarthTarget {
public:
    /**
     * @throws std::logic_error with ":(" for a kind that can't be reached or doesn't give what it stands for.
     */
    explicit TEarthTarget(TReferenceSystem const& dst) : Geocentric(dst.RelatedGeocentricRefSystem()) {
        switch (dst.Type) {
        case rstGeocentric:
            Require(Geocentric != nullptr);
            break;
        case rstGeodetic:
            Geodetic = dst.RelatedGeodeticRefSystem();
            Require(Geocentric != nullptr && Geodetic != nullptr);
            break;
        case rstMapProjected: {
            TMapProjectedReferenceSystem const* const projected = dst.RelatedMapProjectedRefSystem();
            Require(Geocentric != nullptr && projected != nullptr);
            Geodetic = projected->GeodeticSystem;
            Projection = projected->Projection;
            break;
        }
        case rstTopocentricHorizontal:
            Topocentric = dst.RelatedTopocentricHorizontalRefSystem();
            Require(Geocentric != nullptr && Topocentric != nullptr);
            break;
        default:
            Require(false);
        }
    }

    /** In: metres in the axes of the geocentric system `source`. Out: base coordinates of the target. */
    void Reach(TGeocentricReferenceSystem const& source, TCoords* coords) const {
        source.GeocentricTransformation(*Geocentric, coords);
        if (Geodetic != nullptr) {
            Geodetic->Ellipsoid->CartesianToEllipsoidal(coords);
        }
        if (Projection != nullptr) {
            Projection->GeodeticToProjected(coords);
        }
        if (Topocentric != nullptr) {
            Topocentric->ConvertGeocentricToTopocentricHorizontal(coords);
        }
    }

    TGeocentricReferenceSystem const* Geocentric;       ///< borrowed from the target
    TGeodeticReferenceSystem const* Geodetic = nullptr; ///< borrowed; null without ellipsoidal coordinates
    TMapProjection const* Projection = nullptr;         ///< borrowed; null when the target isn't projected
    TTopocentricHorizontalReferenceSystem const* Topocentric =
        nullptr; ///< borrowed; null when the target isn't topocentric

private:
    static void Require(bool reachable) {
        if (!reachable) {
            throw std::logic_error(":(");
        }
    }
};

} // namespace KvRefSystem
