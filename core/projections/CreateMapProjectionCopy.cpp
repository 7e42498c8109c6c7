#include "core/projections/AlbersEqualAreaConic.h"
#include "core/projections/CassiniSoldner.h"
#include "core/projections/EquidistantConic.h"
#include "core/projections/GaussBoaga.h"
#include "core/projections/GaussKrugerWide.h"
#include "core/projections/Hatt.h"
#include "core/projections/Krovak.h"
#include "core/projections/LambertAzimuthalEqualArea.h"
#include "core/projections/LambertConicConformal.h"
#include "core/projections/MapProjection.h"
#include "core/projections/Mercator.h"
#include "core/projections/NZMG.h"
#include "core/projections/ObliqueMercator.h"
#include "core/projections/ObliqueStereographic.h"
#include "core/projections/Orthographic.h"
#include "core/projections/PolarStereographic.h"
#include "core/projections/Polyconic.h"
#include "core/projections/QuasiStereographic.h"
#include "core/projections/SphericalMercator.h"
#include "core/projections/TransverseMercator.h"

namespace KvRefSystem {

namespace {

/** Null when the type was claimed by an object of another class. */
template <class Projection>
TMapProjection* CopyAs(TMapProjection const& source) {
    auto const* const projection = dynamic_cast<Projection const*>(&source);
    return projection == nullptr ? nullptr : new Projection(*projection);
}

/** A type that has a class, and how an object of it is copied. */
struct TCopyRow {
    TMapProjectionType type;
    TMapProjection* (*copy)(TMapProjection const& source);
};

constexpr TCopyRow CopyRows[] = {
    {mptTransverseMercator, CopyAs<TTransverseMercatorMapProjection>},
    {mptObliqueMercator, CopyAs<TObliqueMercatorMapProjection>},
    {mptHotineObliqueMercator, CopyAs<THotineObliqueMercatorMapProjection>},
    {mptNZMG, CopyAs<TNZMGMapProjection>},
    {mptAlbersEqualAreaConic, CopyAs<TAlbersEqualAreaConicMapProjection>},
    {mptLambertConicConformal2SP, CopyAs<TLambertConicConformal2SPMapProjection>},
    {mptLambertConicConformal1SP, CopyAs<TLambertConicConformal1SPMapProjection>},
    {mptCassiniSoldner, CopyAs<TCassiniSoldnerMapProjection>},
    {mptMercator2SP, CopyAs<TMercator2SPMapProjection>},
    {mptMercator1SP, CopyAs<TMercator1SPMapProjection>},
    {mptObliqueStereographic, CopyAs<TObliqueStereographicMapProjection>},
    {mptPolarStereographic, CopyAs<TPolarStereographicMapProjection>},
    {mptQuasiStereographic, CopyAs<TQuasiStereographicMapProjection>},
    {mptPolyconic, CopyAs<TPolyconicMapProjection>},
    {mptGaussBoaga, CopyAs<TGaussBoagaMapProjection>},
    {mptKrovak, CopyAs<TKrovakMapProjection>},
    {mptHatt, CopyAs<THattMapProjection>},
    {mptPolarStereographicBasic, CopyAs<TPolarStereographicBasicMapProjection>},
    {mptPolarStereographicNaturalOrigin, CopyAs<TPolarStereographicNaturalOriginMapProjection>},
    {mptPolarStereographicFalseOrigin, CopyAs<TPolarStereographicFalseOriginMapProjection>},
    {mptLambertAzimuthalEqualArea, CopyAs<TLambertAzimuthalEqualAreaMapProjection>},
    {mptEquidistantConic, CopyAs<TEquidistantConicMapProjection>},
    {mptOrthographic, CopyAs<TOrthographicMapProjection>},
    {mptGaussKrugerWide, CopyAs<TGaussKrugerWideMapProjection>},
    {mptLambertConicConformal2SPBelgium, CopyAs<TLambertConicConformal2SPBelgiumMapProjection>},
    {mptSphericalMercator, CopyAs<TSphericalMercatorMapProjection>},
};

} // namespace

TMapProjection* CreateCopy(TMapProjection const& source) {
    try {
        for (TCopyRow const& row : CopyRows) {
            if (row.type == source.Type) {
                return row.copy(source);
            }
        }
        return nullptr;
    } catch (...) {
        return nullptr;
    }
}

} // namespace KvRefSystem
