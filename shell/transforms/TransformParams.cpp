#include "shell/transforms/TransformParams.h"

#include <cmath>
#include <stdexcept>
#include <utility>

namespace KvRefSystem {

namespace {

/**
 * A determinant up to this makes an affine record count as singular. Inversion tests for exactly 0 instead.
 */
constexpr double singularDeterminant = 1e-12;

/** @return a copy of the class `Params`. @throws std::bad_cast for a record of another class. */
template <class Params>
TShellRefSystemTransformParams* Copy(TShellRefSystemTransformParams const& source) {
    return new Params(dynamic_cast<Params const&>(source));
}

} // namespace

TShellRefSystemTransformParams::TShellRefSystemTransformParams(TReferenceSystemTransformType type)
    : Type(type) {
    if (type == 0) {
        throw std::runtime_error("TShellRefSystemTransformParams::TShellRefSystemTransformParams");
    }
}

TShellRefSystemTransformParams::~TShellRefSystemTransformParams() = default;

void TShellRefSystemTransformParams::Reset() {
    Type = TReferenceSystemTransformType{};
    Name.clear();
    Description.clear();
}

TShellRefSystemTransformParams::operator bool() const {
    return Type != 0;
}

void TShellRefSystemTransformParams::SetNameDecsription(std::string const& name,
                                                        std::string const& description) {
    // The arguments may be the record's own texts.
    std::string newName = name;
    std::string newDescription = description;
    Name = std::move(newName);
    Description = std::move(newDescription);
}

TShellRefSystemTransform2DAffineParams::TShellRefSystemTransform2DAffineParams(bool identity)
    : TShellRefSystemTransformParams(rsttPlaneAffine),
      a11(identity ? 1.0 : 0.0),
      a12(0.0),
      a13(0.0),
      a21(0.0),
      a22(identity ? 1.0 : 0.0),
      a23(0.0) {}

void TShellRefSystemTransform2DAffineParams::Reset() {
    a11 = a12 = a13 = 0.0;
    a21 = a22 = a23 = 0.0;
}

TShellRefSystemTransform2DAffineParams::operator bool() const {
    return std::fabs(a11 * a22 - a12 * a21) > singularDeterminant;
}

bool TShellRefSystemTransform2DAffineParams::Set() {
    a11 = a22 = 1.0;
    a12 = a21 = 0.0;
    a13 = a23 = 0.0;
    return operator bool();
}

bool TShellRefSystemTransform2DAffineParams::Set(double const* row1, double const* row2) {
    // The rows may be the record's own.
    double const first[] = {row1[0], row1[1], row1[2]};
    double const second[] = {row2[0], row2[1], row2[2]};
    a11 = first[0];
    a12 = first[1];
    a13 = first[2];
    a21 = second[0];
    a22 = second[1];
    a23 = second[2];
    return operator bool();
}

bool TShellRefSystemTransform2DAffineParams::GetInverted(
    TShellRefSystemTransform2DAffineParams* inverse) const {
    double const det = a11 * a22 - a12 * a21;
    // Kept: no tolerance here; a record that is too flat for a chain can still be inverted.
    if (det == 0.0) {
        inverse->Reset();
        return false;
    }
    double const b11 = a22 / det;
    double const b12 = -a12 / det;
    double const b21 = -a21 / det;
    double const b22 = a11 / det;
    double const row1[] = {b11, b12, -(b11 * a13) - b12 * a23};
    double const row2[] = {b21, b22, -(a13 * b21) - b22 * a23};
    inverse->Set(row1, row2);
    return true;
}

TShellRefSystemTransform2DGridParams::TShellRefSystemTransform2DGridParams()
    : TShellRefSystemTransformParams(rsttPlaneGrid), coef(0.0) {}

void TShellRefSystemTransform2DGridParams::Reset() {
    dE.clear();
    dN.clear();
    refsys.clear();
    coef = 0.0;
}

TShellRefSystemTransform2DGridParams::operator bool() const {
    return !dE.empty() && !dN.empty() && coef != 0.0;
}

TShellRefSystemTransformShiftZParams::TShellRefSystemTransformShiftZParams()
    : TShellRefSystemTransformParams(rsttVerticalShift), dH(Unset) {}

void TShellRefSystemTransformShiftZParams::Reset() {
    dH = Unset;
}

TShellRefSystemTransformShiftZParams::operator bool() const {
    return true;
}

TShellRefSystemTransformParams* CreateTransformCopy(TShellRefSystemTransformParams const& source) {
    try {
        switch (source.Type) {
        case rsttPlaneAffine:
            return Copy<TShellRefSystemTransform2DAffineParams>(source);
        case rsttPlaneGrid:
            return Copy<TShellRefSystemTransform2DGridParams>(source);
        case rsttVerticalShift:
            return Copy<TShellRefSystemTransformShiftZParams>(source);
        default:
            return nullptr;
        }
    } catch (...) {
        return nullptr;
    }
}

} // namespace KvRefSystem
