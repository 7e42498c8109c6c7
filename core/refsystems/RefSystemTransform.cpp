#include "core/refsystems/RefSystemTransform.h"

#include <cstddef>
#include <iterator>

namespace KvRefSystem {

namespace {

/** Names by type; no type has the value 0. */
constexpr char const* TypeNames[] = {
    "",               //
    "Plane rotation", // rsttPlaneRotation
    "Plane shift",    // rsttPlaneShift
    "Seven params",   // rsttSevenParameters
    "Plane affine",   // rsttPlaneAffine
    "Plane grid",     // rsttPlaneGrid
    "Vertical ShiftZ" // rsttVerticalShift
};

} // namespace

std::string GetReferenceSystemTransformTypeName(TReferenceSystemTransformType type) {
    // Unsigned, so that negative values are beyond the end too.
    auto const index = static_cast<unsigned>(type);
    return index < std::size(TypeNames) ? TypeNames[index] : "";
}

TRefSystemTransform::TRefSystemTransform(TReferenceSystemTransformType transformType) : Type(transformType) {}

TRefSystemTransform::TRefSystemTransform(TRefSystemTransform const& source)
    : TRefSystemTransform(source.Type) {}

TRefSystemTransform::~TRefSystemTransform() = default;

bool TRefSystemTransform::PreservesHeights() const {
    return false;
}

void TRefSystemTransform::Output(std::vector<std::string>* lines) const {
    lines->push_back("Name: " + Name);
    lines->push_back("Description: " + Description);
    lines->push_back("Type: " + GetReferenceSystemTransformTypeName(Type));
}

void TRefSystemTransform::BaseToTransformed(TReferenceSystem const* sys, TCoords const& in,
                                            TCoords* out) const {
    *out = in;
    BaseToTransformed(sys, out);
}

void TRefSystemTransform::TransformedToBase(TReferenceSystem const* sys, TCoords const& in,
                                            TCoords* out) const {
    *out = in;
    TransformedToBase(sys, out);
}

} // namespace KvRefSystem
