#include "core/transforms/PlaneAndVertical.h"
#include "core/transforms/PlaneGrid.h"
#include "core/transforms/SevenParameters.h"

namespace KvRefSystem {

namespace {

/** @throws std::bad_cast for an object that isn't of the class which its type names. */
template <class T>
TRefSystemTransform* CopyAs(TRefSystemTransform const& source) {
    return new T(dynamic_cast<T const&>(source));
}

} // namespace

TRefSystemTransform* CreateTransformCopy(TRefSystemTransform const& source) {
    try {
        switch (source.Type) {
        case rsttPlaneRotation:
            return CopyAs<TPlaneRotationRefSystemTransform>(source);
        case rsttPlaneShift:
            return CopyAs<TPlaneShiftRefSystemTransform>(source);
        case rsttSevenParameters:
            return CopyAs<TSevenParametersRefSystemTransform>(source);
        case rsttPlaneAffine:
            return CopyAs<TPlaneAffineRefSystemTransform>(source);
        case rsttPlaneGrid:
            return CopyAs<TPlaneGridRefSystemTransform>(source);
        case rsttVerticalShift:
            return CopyAs<TVerticalShiftRefSystemTransform>(source);
        }
    } catch (...) {
        return nullptr;
    }
    return nullptr;
}

} // namespace KvRefSystem
