#include "core/transforms/PlaneAndVertical.h"

#include "core/refsystems/FamilyEquality.h"
#include "frame/NumberText.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <stdexcept>

namespace KvRefSystem {

namespace {

constexpr double Pi = 3.141592653589793;

/** Least determinant of a matrix that counts as invertible, exclusive; of the unit of the matrix squared. */
constexpr double SingularDeterminant = 1e-20;

} // namespace

// --- Rotation ----------------------------------------------------------------------------------------------

TPlaneRotationRefSystemTransform::TPlaneRotationRefSystemTransform(double const& angle)
    : TRefSystemTransform(rsttPlaneRotation),
      Angle(angle),
      SinAngle(std::sin(angle)),
      CosAngle(std::cos(angle)) {}

TPlaneRotationRefSystemTransform::TPlaneRotationRefSystemTransform(
    TPlaneRotationRefSystemTransform const& source)
    : TRefSystemTransform(rsttPlaneRotation),
      Angle(source.Angle),
      SinAngle(source.SinAngle),
      CosAngle(source.CosAngle) {}

bool TPlaneRotationRefSystemTransform::operator==(TRefSystemTransform const& other) const {
    auto const* const that = AsSameClass(*this, other);
    return that != nullptr && that->Angle == Angle;
}

void TPlaneRotationRefSystemTransform::BaseToTransformed(TReferenceSystem const*, TCoords* coords) const {
    double const x = coords->X;
    double const y = coords->Y;
    coords->X = SinAngle * y + CosAngle * x;
    coords->Y = CosAngle * y - SinAngle * x;
}

void TPlaneRotationRefSystemTransform::TransformedToBase(TReferenceSystem const*, TCoords* coords) const {
    double const x = coords->X;
    double const y = coords->Y;
    coords->X = CosAngle * x - SinAngle * y;
    coords->Y = CosAngle * y + SinAngle * x;
}

bool TPlaneRotationRefSystemTransform::PreservesHeights() const {
    return true;
}

void TPlaneRotationRefSystemTransform::Output(std::vector<std::string>* lines) const {
    TRefSystemTransform::Output(lines);
    lines->push_back(FormatText("Angle = %lg degrees", Angle * 180 / Pi));
}

// --- Shift -------------------------------------------------------------------------------------------------

TPlaneShiftRefSystemTransform::TPlaneShiftRefSystemTransform(double const& dX, double const& dY)
    : TRefSystemTransform(rsttPlaneShift), ShiftX(dX), ShiftY(dY) {}

TPlaneShiftRefSystemTransform::TPlaneShiftRefSystemTransform(TPlaneShiftRefSystemTransform const& source)
    : TRefSystemTransform(rsttPlaneShift), ShiftX(source.ShiftX), ShiftY(source.ShiftY) {}

bool TPlaneShiftRefSystemTransform::operator==(TRefSystemTransform const& other) const {
    auto const* const that = AsSameClass(*this, other);
    if (that == nullptr) {
        return false;
    }
    return ShiftX == that->ShiftX && ShiftY == that->ShiftY;
}

void TPlaneShiftRefSystemTransform::BaseToTransformed(TReferenceSystem const*, TCoords* coords) const {
    coords->X += ShiftX;
    coords->Y += ShiftY;
}

void TPlaneShiftRefSystemTransform::TransformedToBase(TReferenceSystem const*, TCoords* coords) const {
    coords->X -= ShiftX;
    coords->Y -= ShiftY;
}

bool TPlaneShiftRefSystemTransform::PreservesHeights() const {
    return true;
}

void TPlaneShiftRefSystemTransform::Output(std::vector<std::string>* lines) const {
    TRefSystemTransform::Output(lines);
    lines->push_back(FormatText("dX = %lg", ShiftX));
    lines->push_back(FormatText("dY = %lg", ShiftY));
}

// --- Affine transformation ---------------------------------------------------------------------------------

TPlaneAffineRefSystemTransform::TPlaneAffineRefSystemTransform(double const* M, double const* S)
    : TRefSystemTransform(rsttPlaneAffine), Matrix{M[0], M[1], M[2], M[3]}, Shift{S[0], S[1]} {
    // Written so that a NaN is refused.
    if (!(std::fabs(Matrix[1] * Matrix[2] - Matrix[0] * Matrix[3]) > SingularDeterminant)) {
        throw std::runtime_error("TPlaneAffineRefSystemTransform(const double M[4], const double S[2])");
    }
    double const determinant = Matrix[0] * Matrix[3] - Matrix[1] * Matrix[2];
    Inverse[0] = Matrix[3] / determinant;
    Inverse[1] = -Matrix[1] / determinant;
    Inverse[2] = -Matrix[2] / determinant;
    Inverse[3] = Matrix[0] / determinant;
}

TPlaneAffineRefSystemTransform::TPlaneAffineRefSystemTransform(TPlaneAffineRefSystemTransform const& source)
    : TRefSystemTransform(rsttPlaneAffine) {
    source.GetParameters(Matrix, Shift);
    std::copy(std::begin(source.Inverse), std::end(source.Inverse), Inverse);
}

bool TPlaneAffineRefSystemTransform::operator==(TRefSystemTransform const& other) const {
    auto const* const that = AsSameClass(*this, other);
    if (that == nullptr) {
        return false;
    }
    return std::equal(std::begin(Matrix), std::end(Matrix), that->Matrix) &&
           std::equal(std::begin(Shift), std::end(Shift), that->Shift);
}

void TPlaneAffineRefSystemTransform::BaseToTransformed(TReferenceSystem const*, TCoords* coords) const {
    double const x = coords->X;
    double const y = coords->Y;
    coords->X = Matrix[0] * x + Matrix[1] * y + Shift[0];
    coords->Y = Matrix[2] * x + Matrix[3] * y + Shift[1];
}

void TPlaneAffineRefSystemTransform::TransformedToBase(TReferenceSystem const*, TCoords* coords) const {
    double const u = coords->X - Shift[0];
    double const v = coords->Y - Shift[1];
    coords->X = Inverse[0] * u + Inverse[1] * v;
    coords->Y = Inverse[2] * u + Inverse[3] * v;
}

bool TPlaneAffineRefSystemTransform::PreservesHeights() const {
    return true;
}

void TPlaneAffineRefSystemTransform::Output(std::vector<std::string>* lines) const {
    TRefSystemTransform::Output(lines);
    lines->push_back(FormatText("X' = %lg*X + %lg*Y + %lg", Matrix[0], Matrix[1], Shift[0]));
    lines->push_back(FormatText("Y' = %lg*X + %lg*Y + %lg", Matrix[2], Matrix[3], Shift[1]));
}

void TPlaneAffineRefSystemTransform::GetParameters(double* M, double* S) const {
    std::copy(std::begin(Matrix), std::end(Matrix), M);
    std::copy(std::begin(Shift), std::end(Shift), S);
}

// --- Vertical shift ----------------------------------------------------------------------------------------

TVerticalShiftRefSystemTransform::TVerticalShiftRefSystemTransform(double dZ)
    : TRefSystemTransform(rsttVerticalShift), ShiftZ(dZ) {}

TVerticalShiftRefSystemTransform::TVerticalShiftRefSystemTransform(
    TVerticalShiftRefSystemTransform const& source)
    : TRefSystemTransform(rsttVerticalShift), ShiftZ(source.ShiftZ) {}

bool TVerticalShiftRefSystemTransform::operator==(TRefSystemTransform const& other) const {
    auto const* const that = AsSameClass(*this, other);
    return that != nullptr && that->ShiftZ == ShiftZ;
}

void TVerticalShiftRefSystemTransform::BaseToTransformed(TReferenceSystem const*, TCoords* coords) const {
    coords->Z += ShiftZ;
}

void TVerticalShiftRefSystemTransform::TransformedToBase(TReferenceSystem const*, TCoords* coords) const {
    coords->Z -= ShiftZ;
}

bool TVerticalShiftRefSystemTransform::PreservesHeights() const {
    // Kept: chains with a height shift count as height-preserving for the hosts.
    return true;
}

void TVerticalShiftRefSystemTransform::Output(std::vector<std::string>* lines) const {
    TRefSystemTransform::Output(lines);
    lines->push_back(FormatText("dZ = %lg", ShiftZ));
}

void TVerticalShiftRefSystemTransform::GetParameters(double) const {}

} // namespace KvRefSystem
