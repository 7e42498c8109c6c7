#include "core/refsystems/GeodeticReferenceSystem.h"

#include "core/refsystems/EarthTarget.h"

#include <memory>
#include <stdexcept>

namespace KvRefSystem {

namespace {

std::unique_ptr<TEllipsoid> CopyEllipsoid(TEllipsoid const* ellipsoid) {
    if (ellipsoid == nullptr) {
        throw std::runtime_error("TGeodeticReferenceSystem::TGeodeticReferenceSystem: ellipsoid");
    }
    return std::make_unique<TEllipsoid>(*ellipsoid);
}

/** Same axes, datum and meridian. */
bool SameGeometry(TGeodeticReferenceSystem const& first, TGeodeticReferenceSystem const& second) {
    return first.Ellipsoid->SemiMajorAxis == second.Ellipsoid->SemiMajorAxis &&
           first.Ellipsoid->SemiMinorAxis == second.Ellipsoid->SemiMinorAxis &&
           *first.GeocentricSystem == *second.GeocentricSystem;
}

} // namespace

TGeodeticReferenceSystem::TGeodeticReferenceSystem(
    TDatumShift const* shift, TPrimeMeridian const* meridian, TEllipsoid const* ellipsoid,
    TRefSystemTransformsSet const& transforms, std::map<std::string, TRefSystemTransformsSet> const& pairwise)
    : TReferenceSystem(rstGeodetic, transforms, pairwise) {
    std::unique_ptr<TEllipsoid> ownEllipsoid = CopyEllipsoid(ellipsoid);
    GeocentricSystem = new TGeocentricReferenceSystem(shift, meridian, {}, {});
    Ellipsoid = ownEllipsoid.release();
}

TGeodeticReferenceSystem::TGeodeticReferenceSystem(TGeodeticReferenceSystem const& source)
    : TReferenceSystem(source) {
    std::unique_ptr<TEllipsoid> ownEllipsoid = CopyEllipsoid(source.Ellipsoid);
    GeocentricSystem = new TGeocentricReferenceSystem(*source.GeocentricSystem);
    Ellipsoid = ownEllipsoid.release();
}

TGeodeticReferenceSystem::~TGeodeticReferenceSystem() {
    delete Ellipsoid;
    delete GeocentricSystem;
}

TGeocentricReferenceSystem const* TGeodeticReferenceSystem::RelatedGeocentricRefSystem() const {
    return GeocentricSystem;
}

TGeodeticReferenceSystem const* TGeodeticReferenceSystem::RelatedGeodeticRefSystem() const {
    return this;
}

bool TGeodeticReferenceSystem::operator==(TReferenceSystem const& other) const {
    auto const* const system = AsSameClass(*this, other);
    return system != nullptr && SameGeometry(*this, *system) && Transforms == system->Transforms;
}

bool TGeodeticReferenceSystem::PreservesHeights(TReferenceSystem const& dst) const {
    bool const known = dst.Type == rstGeodetic || dst.Type == rstMapProjected;
    TGeodeticReferenceSystem const* const system = known ? dst.RelatedGeodeticRefSystem() : nullptr;
    if (system == nullptr) {
        throw std::logic_error("@PreservesHeights(): invalid refsystem type.");
    }
    bool const samePlace = dst.Type == rstGeodetic ? SameGeometry(*this, *system) : PreservesHeights(*system);
    return samePlace && Transforms.PreservesHeights() && dst.Transforms.PreservesHeights();
}

bool TGeodeticReferenceSystem::ContainsDatum() const {
    return GeocentricSystem->ContainsDatum();
}

bool TGeodeticReferenceSystem::NonlinearDatum() const {
    return GeocentricSystem->NonlinearDatum();
}

void TGeodeticReferenceSystem::OperateCoordsBase(TReferenceSystem const& dst, TCoords* coords) const {
    TEarthTarget const target(dst);
    Ellipsoid->EllipsoidalToCartesian(coords);
    target.Reach(*GeocentricSystem, coords);
}

void TGeodeticReferenceSystem::OperateCoordsBaseWorld(TCoords* coords, bool ApplyDatumShift) const {
    Ellipsoid->EllipsoidalToCartesian(coords);
    GeocentricSystem->GeocentricTransformationWorld(coords, ApplyDatumShift);
}

void TGeodeticReferenceSystem::GetAxisStepsBase(double* steps) const {
    steps[0] = 1e-05;
    steps[1] = 1e-05;
    steps[2] = 1.0;
}

bool TGeodeticReferenceSystem::ReplaceDatumShift(TDatumShift const* shift) {
    return GeocentricSystem->ReplaceDatumShift(shift);
}

void TGeodeticReferenceSystem::ConvertToGeocentric(TCoords* coords) const {
    Ellipsoid->EllipsoidalToCartesian(coords);
}

void TGeodeticReferenceSystem::ConvertFromGeocentric(TCoords* coords) const {
    Ellipsoid->CartesianToEllipsoidal(coords);
}

} // namespace KvRefSystem
