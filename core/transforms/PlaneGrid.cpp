#include "core/transforms/PlaneGrid.h"

#include "core/refsystems/FamilyEquality.h"
#include "core/refsystems/ReferenceSystem.h"

#include <memory>
#include <stdexcept>

namespace KvRefSystem {

TPlaneGridRefSystemTransform::TPlaneGridRefSystemTransform(T2DTable<float> const& gridDE,
                                                           T2DTable<float> const& gridDN, double coef,
                                                           TReferenceSystem const* refsystem)
    : TRefSystemTransform(rsttPlaneGrid),
      GridDE(nullptr),
      GridDN(nullptr),
      GridRefSystem(nullptr),
      GridCoef(coef) {
    try {
        auto copyDE = std::make_unique<T2DTable<float>>(gridDE);
        auto copyDN = std::make_unique<T2DTable<float>>(gridDN);
        std::unique_ptr<TReferenceSystem> copySystem(refsystem != nullptr ? CreateCopy(*refsystem) : nullptr);
        if (refsystem != nullptr && !copySystem) {
            throw std::runtime_error("the system of the grid can't be copied");
        }
        GridDE = copyDE.release();
        GridDN = copyDN.release();
        GridRefSystem = copySystem.release();
    } catch (...) {
        // Kept: whatever failed, also in a copy, hosts get this one text.
        throw std::runtime_error("TPlaneGridRefSystemTransform::TPlaneGridRefSystemTransform");
    }
}

TPlaneGridRefSystemTransform::TPlaneGridRefSystemTransform(TPlaneGridRefSystemTransform const& source)
    : TPlaneGridRefSystemTransform(*source.GridDE, *source.GridDN, source.GridCoef, source.GridRefSystem) {}

TPlaneGridRefSystemTransform::~TPlaneGridRefSystemTransform() {
    delete GridDE;
    delete GridDN;
    delete GridRefSystem;
}

bool TPlaneGridRefSystemTransform::operator==(TRefSystemTransform const& other) const {
    auto const* const that = AsSameClass(*this, other);
    if (that == nullptr) {
        return false;
    }
    if (!(GridCoef == that->GridCoef && *GridDE == *that->GridDE && *GridDN == *that->GridDN)) {
        return false;
    }
    if (GridRefSystem == nullptr || that->GridRefSystem == nullptr) {
        return GridRefSystem == that->GridRefSystem;
    }
    return GridRefSystem->operator==(*that->GridRefSystem);
}

void TPlaneGridRefSystemTransform::BaseToTransformed(TReferenceSystem const* sys, TCoords* coords) const {
    TCoords place = *coords;
    if (GridRefSystem != nullptr) {
        if (sys == nullptr) {
            throw std::logic_error(
                "TPlaneGridRefSystemTransform::BaseToTransformed: no system is given from which "
                "the point could be taken into the system of the grid");
        }
        place.Z = 0;
        sys->OperateCoords(*GridRefSystem, &place);
    }
    float const x = static_cast<float>(place.X);
    float const y = static_cast<float>(place.Y);
    float const dN = GridDN->InterpolateValue(x, y);
    float const dE = GridDE->InterpolateValue(x, y);
    coords->X += dE * GridCoef;
    coords->Y += dN * GridCoef;
}

void TPlaneGridRefSystemTransform::TransformedToBase(TReferenceSystem const*, TCoords*) const {
    // One-way by design: a correction is looked up at the uncorrected place only.
}

bool TPlaneGridRefSystemTransform::PreservesHeights() const {
    return true;
}

void TPlaneGridRefSystemTransform::Output(std::vector<std::string>* lines) const {
    TRefSystemTransform::Output(lines);
}

} // namespace KvRefSystem
