#include "core/refsystems/ReferenceSystem.h"

#include "core/refsystems/GeocentricReferenceSystem.h"

#include <stdexcept>
#include <utility>

namespace KvRefSystem {

namespace {

using TSetMap = std::map<std::string, TRefSystemTransformsSet>;

/** Where two systems' pairwise chains meet; both at the end when no key is shared. */
struct TSharedChains {
    TSetMap::const_iterator Source;
    TSetMap::const_iterator Target;
};

TSharedChains FindSharedChains(TSetMap const& source, TSetMap const& target) {
    if (!target.empty()) {
        for (auto own = source.begin(); own != source.end(); ++own) {
            auto const found = target.find(own->first);
            if (found != target.end()) {
                return {own, found};
            }
        }
    }
    return {source.end(), target.end()};
}

// The emptiness tests save a call across the library's table of exported functions for each point.
void LeaveChain(TRefSystemTransformsSet const& chain, TReferenceSystem const* sys, TCoords* coords) {
    if (!chain.TransformList.empty()) {
        chain.TransformedToBase(sys, coords);
    }
}

void EnterChain(TRefSystemTransformsSet const& chain, TReferenceSystem const* sys, TCoords* coords) {
    if (!chain.TransformList.empty()) {
        chain.BaseToTransformed(sys, coords);
    }
}

bool IsLocal(TReferenceSystem const& system) {
    return system.Type == rstLocalCartesian || system.Type == rstLocalCurved;
}

bool IsEarthBound(TReferenceSystem const& system) {
    return system.Type >= rstGeocentric && system.Type <= rstTopocentricHorizontal;
}

} // namespace

TReferenceSystem::TReferenceSystem(TReferenceSystemType type, TRefSystemTransformsSet const& transforms)
    : Type(type), Transforms(transforms) {}

TReferenceSystem::TReferenceSystem(TReferenceSystemType type, TRefSystemTransformsSet const& transforms,
                                   std::map<std::string, TRefSystemTransformsSet> const& pairwise)
    : Type(type), Transforms(transforms), PairwiseTransforms(pairwise) {}

TReferenceSystem::~TReferenceSystem() = default;

TGeocentricReferenceSystem const* TReferenceSystem::RelatedGeocentricRefSystem() const {
    return nullptr;
}

TGeodeticReferenceSystem const* TReferenceSystem::RelatedGeodeticRefSystem() const {
    return nullptr;
}

TMapProjectedReferenceSystem const* TReferenceSystem::RelatedMapProjectedRefSystem() const {
    return nullptr;
}

TTopocentricHorizontalReferenceSystem const* TReferenceSystem::RelatedTopocentricHorizontalRefSystem() const {
    return nullptr;
}

TLocalCartesianReferenceSystem const* TReferenceSystem::RelatedLocalCartesianRefSystem() const {
    return nullptr;
}

TLocalCurvedReferenceSystem const* TReferenceSystem::RelatedLocalCurvedRefSystem() const {
    return nullptr;
}

bool TReferenceSystem::ContainsDatum() const {
    return false;
}

bool TReferenceSystem::NonlinearDatum() const {
    return false;
}

bool TReferenceSystem::ReplaceDatumShift(TDatumShift const*) {
    return false;
}

void TReferenceSystem::OperateCoords(TReferenceSystem const& dst, TCoords* coords) const {
    if (!PairwiseTransforms.empty()) {
        TSharedChains const chains = FindSharedChains(PairwiseTransforms, dst.PairwiseTransforms);
        // An empty key names no chain, and since it sorts first it also hides the keys behind it.
        if (chains.Source != PairwiseTransforms.end() && !chains.Source->first.empty()) {
            LeaveChain(chains.Source->second, this, coords);
            OperateCoordsBase(dst, coords);
            EnterChain(chains.Target->second, &dst, coords);
            return;
        }
    }
    LeaveChain(Transforms, this, coords);
    OperateCoordsBase(dst, coords);
    EnterChain(dst.Transforms, &dst, coords);
}

std::string TReferenceSystem::GetPairwiseTransformID(TReferenceSystem const& other) const {
    TSharedChains const chains = FindSharedChains(PairwiseTransforms, other.PairwiseTransforms);
    return chains.Source == PairwiseTransforms.end() ? std::string() : chains.Source->first;
}

bool TReferenceSystem::TransformedToBasePairwise(TReferenceSystem const* sys, TCoords* coords,
                                                 std::string const& id) const {
    auto const found = PairwiseTransforms.find(id);
    if (found == PairwiseTransforms.end()) {
        return false;
    }
    found->second.TransformedToBase(sys, coords);
    return true;
}

bool TReferenceSystem::BaseToTransformedPairwise(TReferenceSystem const* sys, TCoords* coords,
                                                 std::string const& id) const {
    auto const found = PairwiseTransforms.find(id);
    if (found == PairwiseTransforms.end()) {
        return false;
    }
    found->second.BaseToTransformed(sys, coords);
    return true;
}

void TReferenceSystem::OperateCoordsWorld(TCoords* coords, bool ApplyDatumShift) const {
    LeaveChain(Transforms, this, coords);
    OperateCoordsBaseWorld(coords, ApplyDatumShift);
}

bool TReferenceSystem::SetPairwiseTransforms(std::string id, TRefSystemTransformsSet const& set) {
    if (id.empty()) {
        return false;
    }
    // Kept: a taken key keeps its set and still counts as success; callers that replace remove first.
    PairwiseTransforms.try_emplace(std::move(id), set);
    return true;
}

bool TReferenceSystem::RemovePairwiseTransforms(std::string id) {
    return PairwiseTransforms.erase(id) != 0;
}

bool TReferenceSystem::TransformAxesWorld(TCoords const& coords, double* axes, bool ApplyDatumShift) const {
    static constexpr double TCoords::*Members[3] = {&TCoords::X, &TCoords::Y, &TCoords::Z};
    TCoords const point = coords;
    try {
        double steps[3] = {};
        GetAxisStepsBase(steps);
        for (int axis = 0; axis < 3; ++axis) {
            TCoords plus = point;
            TCoords minus = point;
            plus.*Members[axis] += steps[axis];
            minus.*Members[axis] -= steps[axis];
            OperateCoordsWorld(&plus, ApplyDatumShift);
            OperateCoordsWorld(&minus, ApplyDatumShift);
            double const factor = 0.5 / steps[axis];
            for (int component = 0; component < 3; ++component) {
                axes[3 * axis + component] = (plus.*Members[component] - minus.*Members[component]) * factor;
            }
        }
        return true;
    } catch (...) {
        return false;
    }
}

int TReferenceSystem::CompareDatums(TReferenceSystem const& dst) const {
    if (!IsLocal(*this) && !IsEarthBound(*this)) {
        throw std::logic_error("@TReferenceSystem::CompareDatums(): invalid src_ref type.");
    }
    if (!IsLocal(dst) && !IsEarthBound(dst)) {
        throw std::logic_error("@TReferenceSystem::CompareDatums(): invalid dst_ref type.");
    }
    if (IsLocal(*this) != IsLocal(dst)) {
        return dcIncompatible;
    }
    if (IsLocal(*this)) {
        return dcUnknown;
    }
    TGeocentricReferenceSystem const* const own = RelatedGeocentricRefSystem();
    TGeocentricReferenceSystem const* const others = dst.RelatedGeocentricRefSystem();
    if (own == nullptr || others == nullptr) {
        return dcUnknown;
    }
    return TGeocentricReferenceSystem::CompareDatumsGeoc(*own, *others);
}

} // namespace KvRefSystem
