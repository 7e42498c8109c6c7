#include "core/refsystems/TransformsSet.h"

#include "frame/NumberText.h"

#include <memory>
#include <stdexcept>
#include <utility>

namespace KvRefSystem {

TRefSystemTransformsSet::TRefSystemTransformsSet() : Cursor(0) {}

// The delegation makes this an object whose destructor runs when the body throws.
TRefSystemTransformsSet::TRefSystemTransformsSet(TRefSystemTransformsSet const& source)
    : TRefSystemTransformsSet() {
    TransformList.reserve(source.TransformList.size());
    for (TRefSystemTransform const* const transform : source.TransformList) {
        if (transform == nullptr || !AddNextTransform(*transform)) {
            throw std::runtime_error(
                "TRefSystemTransformsSet::TRefSystemTransformsSet(const TRefSystemTransformsSet& src)");
        }
    }
    TransformID = source.TransformID;
    Cursor = TransformList.size();
}

TRefSystemTransformsSet& TRefSystemTransformsSet::operator=(TRefSystemTransformsSet const& source) {
    if (this != &source) {
        TRefSystemTransformsSet copy(source);
        Swap(copy);
    }
    return *this;
}

TRefSystemTransformsSet::~TRefSystemTransformsSet() {
    for (TRefSystemTransform const* const transform : TransformList) {
        delete transform;
    }
}

bool TRefSystemTransformsSet::AddNextTransform(TRefSystemTransform const& transform) {
    std::unique_ptr<TRefSystemTransform> copy(CreateTransformCopy(transform));
    if (!copy) {
        return false;
    }
    TransformList.push_back(copy.get());
    copy.release();
    Cursor = TransformList.size();
    return true;
}

void TRefSystemTransformsSet::ClearTransforms() {
    TRefSystemTransformsSet empty;
    Swap(empty);
}

TRefSystemTransform* TRefSystemTransformsSet::GetFirstTransform() const {
    Cursor = 0;
    return TransformList.empty() ? nullptr : TransformList.front();
}

TRefSystemTransform* TRefSystemTransformsSet::GetNextTransform() const {
    if (Cursor >= TransformList.size()) {
        return nullptr;
    }
    ++Cursor;
    return Cursor < TransformList.size() ? TransformList[Cursor] : nullptr;
}

bool TRefSystemTransformsSet::operator==(TRefSystemTransformsSet const& other) const {
    if (TransformList.size() != other.TransformList.size() || TransformID != other.TransformID) {
        return false;
    }
    for (std::size_t index = 0; index < TransformList.size(); ++index) {
        TRefSystemTransform const* const own = TransformList[index];
        TRefSystemTransform const* const others = other.TransformList[index];
        if (own == nullptr || others == nullptr || !(*own == *others)) {
            return false;
        }
    }
    return true;
}

void TRefSystemTransformsSet::BaseToTransformed(TReferenceSystem const* sys, TCoords* coords) const {
    for (TRefSystemTransform const* const transform : TransformList) {
        transform->BaseToTransformed(sys, coords);
    }
}

void TRefSystemTransformsSet::TransformedToBase(TReferenceSystem const* sys, TCoords* coords) const {
    for (std::size_t index = TransformList.size(); index > 0; --index) {
        TransformList[index - 1]->TransformedToBase(sys, coords);
    }
}

bool TRefSystemTransformsSet::PreservesHeights() const {
    for (TRefSystemTransform const* const transform : TransformList) {
        if (!transform->PreservesHeights()) {
            return false;
        }
    }
    return true;
}

void TRefSystemTransformsSet::Output(std::vector<std::string>* lines) const {
    lines->clear();
    lines->push_back(FormatText("Transform count: %d", static_cast<int>(TransformList.size())));
    lines->push_back("Transform ID: " + TransformID);
    for (TRefSystemTransform const* const transform : TransformList) {
        lines->push_back("--------- Transform ----------");
        transform->Output(lines);
    }
    lines->push_back("==============================");
}

void TRefSystemTransformsSet::Swap(TRefSystemTransformsSet& other) noexcept {
    TransformList.swap(other.TransformList);
    TransformID.swap(other.TransformID);
    Cursor = TransformList.size();
    other.Cursor = other.TransformList.size();
}

} // namespace KvRefSystem
