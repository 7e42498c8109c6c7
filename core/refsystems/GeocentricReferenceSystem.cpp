#include "core/refsystems/GeocentricReferenceSystem.h"

#include "core/refsystems/EarthTarget.h"

#include <memory>
#include <stdexcept>

namespace KvRefSystem {

namespace {

std::unique_ptr<TDatumShift> CopyShift(TDatumShift const* shift) {
    std::unique_ptr<TDatumShift> copy(CreateDatumShiftCopy(shift));
    if (shift != nullptr && !copy) {
        throw std::runtime_error("TGeocentricReferenceSystem::TGeocentricReferenceSystem: datum shift");
    }
    return copy;
}

std::unique_ptr<TPrimeMeridian> CopyMeridian(TPrimeMeridian const* meridian) {
    return meridian != nullptr ? std::make_unique<TPrimeMeridian>(*meridian)
                               : std::make_unique<TPrimeMeridian>(0.0);
}

} // namespace

TGeocentricReferenceSystem::TGeocentricReferenceSystem(
    TDatumShift const* shift, TPrimeMeridian const* meridian, TRefSystemTransformsSet const& transforms,
    std::map<std::string, TRefSystemTransformsSet> const& pairwise)
    : TReferenceSystem(rstGeocentric, transforms, pairwise) {
    std::unique_ptr<TDatumShift> ownShift = CopyShift(shift);
    PrimeMeridian = CopyMeridian(meridian).release();
    DatumShift = ownShift.release();
}

TGeocentricReferenceSystem::TGeocentricReferenceSystem(TGeocentricReferenceSystem const& source)
    : TReferenceSystem(source) {
    std::unique_ptr<TDatumShift> ownShift = CopyShift(source.DatumShift);
    PrimeMeridian = CopyMeridian(source.PrimeMeridian).release();
    DatumShift = ownShift.release();
}

TGeocentricReferenceSystem::~TGeocentricReferenceSystem() {
    delete DatumShift;
    delete PrimeMeridian;
}

TGeocentricReferenceSystem const* TGeocentricReferenceSystem::RelatedGeocentricRefSystem() const {
    return this;
}

bool TGeocentricReferenceSystem::operator==(TReferenceSystem const& other) const {
    auto const* const system = AsSameClass(*this, other);
    if (system == nullptr || PrimeMeridian->Longitude != system->PrimeMeridian->Longitude) {
        return false;
    }
    if ((DatumShift == nullptr) != (system->DatumShift == nullptr)) {
        return false;
    }
    if (DatumShift != nullptr && !(*DatumShift == *system->DatumShift)) {
        return false;
    }
    return Transforms == system->Transforms;
}

bool TGeocentricReferenceSystem::PreservesHeights(TReferenceSystem const& dst) const {
    TGeocentricReferenceSystem const* const system =
        dst.Type == rstGeocentric ? dst.RelatedGeocentricRefSystem() : nullptr;
    if (system == nullptr) {
        throw std::logic_error("@PreservesHeights(): invalid refsystem type.");
    }
    // Without a shift on either side nothing vouches for equal datums; the meridian moves no height.
    if (DatumShift == nullptr || system->DatumShift == nullptr || !(*DatumShift == *system->DatumShift)) {
        return false;
    }
    return Transforms.PreservesHeights() && dst.Transforms.PreservesHeights();
}

bool TGeocentricReferenceSystem::ContainsDatum() const {
    return DatumShift != nullptr;
}

bool TGeocentricReferenceSystem::NonlinearDatum() const {
    return DatumShift != nullptr && DatumShift->IsNonlinear();
}

void TGeocentricReferenceSystem::OperateCoordsBase(TReferenceSystem const& dst, TCoords* coords) const {
    try {
        TEarthTarget const target(dst);
        target.Reach(*this, coords);
    } catch (...) {
        // Kept: hosts know a geocentric source by this text, whatever failed behind it.
        throw std::logic_error(":(");
    }
}

void TGeocentricReferenceSystem::OperateCoordsBaseWorld(TCoords* coords, bool ApplyDatumShift) const {
    GeocentricTransformationWorld(coords, ApplyDatumShift);
}

void TGeocentricReferenceSystem::GetAxisStepsBase(double* steps) const {
    steps[0] = 1.0;
    steps[1] = 1.0;
    steps[2] = 1.0;
}

bool TGeocentricReferenceSystem::ReplaceDatumShift(TDatumShift const* shift) {
    // The copy comes first, since `shift` may be the present one.
    TDatumShift* const copy = CreateDatumShiftCopy(shift);
    delete DatumShift;
    DatumShift = copy;
    return copy != nullptr;
}

void TGeocentricReferenceSystem::GeocentricTransformation(TGeocentricReferenceSystem const& dst,
                                                          TCoords* coords) const {
    // Most meridians are Greenwich: the tests here spare the two calls.
    if (PrimeMeridian->NonZero) {
        PrimeMeridian->TransformGeocentricToGreenwich(coords);
    }
    TDatumShift const* const own = DatumShift;
    TDatumShift const* const others = dst.DatumShift;
    if (own != nullptr && others != nullptr && !(*own == *others)) {
        own->DirectTransform(coords);
        others->ReverseTransform(coords);
    }
    TPrimeMeridian const* const meridian = dst.PrimeMeridian;
    if (meridian->NonZero) {
        meridian->TransformGeocentricFromGreenwich(coords);
    }
}

void TGeocentricReferenceSystem::GeocentricTransformationWorld(TCoords* coords, bool ApplyDatumShift) const {
    PrimeMeridian->TransformGeocentricToGreenwich(coords);
    if (ApplyDatumShift && DatumShift != nullptr) {
        DatumShift->DirectTransform(coords);
    }
}

int TGeocentricReferenceSystem::CompareDatumsGeoc(TGeocentricReferenceSystem const& a,
                                                  TGeocentricReferenceSystem const& b) {
    if (a.DatumShift == nullptr || b.DatumShift == nullptr) {
        return dcUnknown;
    }
    return *a.DatumShift == *b.DatumShift ? dcEqual : dcDifferent;
}

} // namespace KvRefSystem
