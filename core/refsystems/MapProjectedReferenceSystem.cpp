#include "core/refsystems/MapProjectedReferenceSystem.h"

#include "core/projections/MapProjection.h"
#include "core/refsystems/EarthTarget.h"

#include <memory>
#include <stdexcept>

namespace KvRefSystem {

// The projection is the constructor's from the first moment on, so it goes also when the base can't be built.
TMapProjectedReferenceSystem::TMapProjectedReferenceSystem(
    TGeodeticReferenceSystem const* geodetic, TMapProjection* projection,
    TRefSystemTransformsSet const& transforms,
    std::map<std::string, TRefSystemTransformsSet> const& pairwise) try
    : TReferenceSystem(rstMapProjected, transforms, pairwise),
      GeodeticSystem(nullptr),
      Projection(projection) {
    if (geodetic == nullptr || projection == nullptr) {
        throw std::runtime_error(
            "TMapProjectedReferenceSystem::TMapProjectedReferenceSystem: geodetic system or projection");
    }
    GeodeticSystem = new TGeodeticReferenceSystem(*geodetic);
} catch (...) {
    delete projection;
    throw;
}

TMapProjectedReferenceSystem::TMapProjectedReferenceSystem(TMapProjectedReferenceSystem const& source)
    : TReferenceSystem(source) {
    auto geodetic = std::make_unique<TGeodeticReferenceSystem>(*source.GeodeticSystem);
    Projection = CreateCopy(*source.Projection);
    if (Projection == nullptr) {
        throw std::runtime_error("TMapProjectedReferenceSystem::TMapProjectedReferenceSystem(const "
                                 "TMapProjectedReferenceSystem&)");
    }
    GeodeticSystem = geodetic.release();
}

TMapProjectedReferenceSystem::~TMapProjectedReferenceSystem() {
    delete GeodeticSystem;
    delete Projection;
}

TGeocentricReferenceSystem const* TMapProjectedReferenceSystem::RelatedGeocentricRefSystem() const {
    return GeodeticSystem->RelatedGeocentricRefSystem();
}

TGeodeticReferenceSystem const* TMapProjectedReferenceSystem::RelatedGeodeticRefSystem() const {
    return GeodeticSystem;
}

TMapProjectedReferenceSystem const* TMapProjectedReferenceSystem::RelatedMapProjectedRefSystem() const {
    return this;
}

bool TMapProjectedReferenceSystem::operator==(TReferenceSystem const& other) const {
    auto const* const system = AsSameClass(*this, other);
    return system != nullptr && *GeodeticSystem == *system->GeodeticSystem &&
           *Projection == *system->Projection && Transforms == system->Transforms;
}

bool TMapProjectedReferenceSystem::PreservesHeights(TReferenceSystem const& dst) const {
    bool const known = dst.Type == rstGeodetic || dst.Type == rstMapProjected;
    TGeodeticReferenceSystem const* const system = known ? dst.RelatedGeodeticRefSystem() : nullptr;
    if (system == nullptr) {
        throw std::logic_error("@PreservesHeights(): invalid refsystem type.");
    }
    return GeodeticSystem->PreservesHeights(*system) && Transforms.PreservesHeights() &&
           dst.Transforms.PreservesHeights();
}

bool TMapProjectedReferenceSystem::ContainsDatum() const {
    return GeodeticSystem->ContainsDatum();
}

bool TMapProjectedReferenceSystem::NonlinearDatum() const {
    return GeodeticSystem->NonlinearDatum();
}

void TMapProjectedReferenceSystem::OperateCoordsBase(TReferenceSystem const& dst, TCoords* coords) const {
    TEarthTarget const target(dst);
    Projection->ProjectedToGeodetic(coords);
    GeodeticSystem->Ellipsoid->EllipsoidalToCartesian(coords);
    target.Reach(*GeodeticSystem->GeocentricSystem, coords);
}

void TMapProjectedReferenceSystem::OperateCoordsBaseWorld(TCoords* coords, bool ApplyDatumShift) const {
    Projection->ProjectedToGeodetic(coords);
    GeodeticSystem->Ellipsoid->EllipsoidalToCartesian(coords);
    GeodeticSystem->GeocentricSystem->GeocentricTransformationWorld(coords, ApplyDatumShift);
}

void TMapProjectedReferenceSystem::GetAxisStepsBase(double* steps) const {
    steps[0] = 1.0;
    steps[1] = 1.0;
    steps[2] = 1.0;
}

bool TMapProjectedReferenceSystem::ReplaceDatumShift(TDatumShift const* shift) {
    return GeodeticSystem->ReplaceDatumShift(shift);
}

} // namespace KvRefSystem
