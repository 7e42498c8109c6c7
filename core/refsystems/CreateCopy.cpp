#include "core/refsystems/GeocentricReferenceSystem.h"
#include "core/refsystems/GeodeticReferenceSystem.h"
#include "core/refsystems/LocalCartesianReferenceSystem.h"
#include "core/refsystems/LocalCurvedReferenceSystem.h"
#include "core/refsystems/MapProjectedReferenceSystem.h"
#include "core/refsystems/ReferenceSystem.h"
#include "core/refsystems/TopocentricHorizontalReferenceSystem.h"

namespace KvRefSystem {

namespace {

/** Null when the kind was claimed by an object of another class. */
template <class Kind>
TReferenceSystem* CopyAs(TReferenceSystem const& source) {
    auto const* const kind = dynamic_cast<Kind const*>(&source);
    return kind == nullptr ? nullptr : new Kind(*kind);
}

} // namespace

TReferenceSystem* CreateCopy(TReferenceSystem const& source) {
    try {
        switch (source.Type) {
        case rstLocalCartesian:
            return CopyAs<TLocalCartesianReferenceSystem>(source);
        case rstLocalCurved:
            return CopyAs<TLocalCurvedReferenceSystem>(source);
        case rstGeocentric:
            return CopyAs<TGeocentricReferenceSystem>(source);
        case rstGeodetic:
            return CopyAs<TGeodeticReferenceSystem>(source);
        case rstMapProjected:
            return CopyAs<TMapProjectedReferenceSystem>(source);
        case rstTopocentricHorizontal:
            return CopyAs<TTopocentricHorizontalReferenceSystem>(source);
        default:
            return nullptr;
        }
    } catch (...) {
        return nullptr;
    }
}

} // namespace KvRefSystem
