#include "core/refsystems/LocalCartesianReferenceSystem.h"

#include "core/refsystems/LocalTargetDetail.h"

#include <stdexcept>
#include <utility>

namespace KvRefSystem {

TLocalCartesianReferenceSystem::TLocalCartesianReferenceSystem(
    TReferenceSystemCartesianOrientation orientation, TRefSystemTransformsSet const& transforms,
    std::map<std::string, TRefSystemTransformsSet> const& pairwise)
    : TReferenceSystem(rstLocalCartesian, transforms, pairwise), Orientation(orientation) {}

TLocalCartesianReferenceSystem::TLocalCartesianReferenceSystem(TLocalCartesianReferenceSystem const&) =
    default;

TLocalCartesianReferenceSystem::~TLocalCartesianReferenceSystem() = default;

TLocalCartesianReferenceSystem const* TLocalCartesianReferenceSystem::RelatedLocalCartesianRefSystem() const {
    return this;
}

bool TLocalCartesianReferenceSystem::operator==(TReferenceSystem const& other) const {
    auto const* const system = AsSameClass(*this, other);
    return system != nullptr && Orientation == system->Orientation && Transforms == system->Transforms;
}

bool TLocalCartesianReferenceSystem::PreservesHeights(TReferenceSystem const& dst) const {
    if (dst.Type != rstLocalCartesian) {
        throw std::logic_error("@PreservesHeights(): invalid refsystem type.");
    }
    return Transforms.PreservesHeights() && dst.Transforms.PreservesHeights();
}

void TLocalCartesianReferenceSystem::OperateCoordsBase(TReferenceSystem const& dst, TCoords* coords) const {
    try {
        TLocalTarget const target(dst);
        target.Reach(*this, coords);
    } catch (...) {
        // Kept: hosts know a local source by this text, whatever failed behind it.
        throw std::logic_error(TLocalTarget::Failure);
    }
}

void TLocalCartesianReferenceSystem::OperateCoordsBaseWorld(TCoords*, bool) const {}

void TLocalCartesianReferenceSystem::GetAxisStepsBase(double* steps) const {
    steps[0] = 1.0;
    steps[1] = 1.0;
    steps[2] = 1.0;
}

void TLocalCartesianReferenceSystem::LocalCartesianTransformation(TLocalCartesianReferenceSystem const& dst,
                                                                  TCoords* coords) const {
    if (Orientation != dst.Orientation) {
        std::swap(coords->X, coords->Y);
    }
}

} // namespace KvRefSystem
