#include "core/primitives/BursaWolfDatumShift.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>
#include <typeinfo>

namespace KvRefSystem {

namespace {

constexpr double IdentityMatrix[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};

} // namespace

// --- Parameters --------------------------------------------------------------------------------------------

TBursaWolfDatumShiftParameters::TBursaWolfDatumShiftParameters() : TBursaWolfDatumShiftParameters(0, 0, 0) {}

TBursaWolfDatumShiftParameters::TBursaWolfDatumShiftParameters(double const& dx, double const& dy,
                                                               double const& dz)
    : RotationX(0),
      RotationY(0),
      RotationZ(0),
      Scale(1),
      ShiftX(dx),
      ShiftY(dy),
      ShiftZ(dz),
      OnlyShift(true) {}

TBursaWolfDatumShiftParameters::TBursaWolfDatumShiftParameters(double const& dx, double const& dy,
                                                               double const& dz, double const& rx,
                                                               double const& ry, double const& rz,
                                                               double const& scale)
    : RotationX(rx),
      RotationY(ry),
      RotationZ(rz),
      Scale(scale),
      ShiftX(dx),
      ShiftY(dy),
      ShiftZ(dz),
      OnlyShift(scale == 1.0 && rx == 0.0 && ry == 0.0 && rz == 0.0) {}

TBursaWolfDatumShiftParameters::TBursaWolfDatumShiftParameters(TBursaWolfDatumShiftParameters const& src,
                                                               bool invert)
    : TBursaWolfDatumShiftParameters(src) {
    if (!invert) {
        return;
    }
    if (src.OnlyShift) {
        RotationX = 0;
        RotationY = 0;
        RotationZ = 0;
        Scale = 1;
        ShiftX = -src.ShiftX;
        ShiftY = -src.ShiftY;
        ShiftZ = -src.ShiftZ;
        return;
    }
    double const rx = src.RotationX;
    double const ry = src.RotationY;
    double const rz = src.RotationZ;
    double const s = src.Scale;
    double const dx = src.ShiftX;
    double const dy = src.ShiftY;
    double const dz = src.ShiftZ;
    RotationX = -rx;
    RotationY = -ry;
    RotationZ = -rz;
    Scale = 1 / s;
    ShiftX = -(dx + rz * dy - ry * dz) / s;
    ShiftY = -(dy - rz * dx + rx * dz) / s;
    ShiftZ = -(dz + ry * dx - rx * dy) / s;
}

// --- Small-angle form --------------------------------------------------------------------------------------

TBursaWolfDatumShift::TBursaWolfDatumShift(TBursaWolfDatumShiftParameters const& parameters)
    : TDatumShift(dsBursaWolf), Parameters(new TBursaWolfDatumShiftParameters(parameters)) {}

TBursaWolfDatumShift::TBursaWolfDatumShift(TBursaWolfDatumShift const& source)
    : TDatumShift(dsBursaWolf), Parameters(new TBursaWolfDatumShiftParameters(*source.Parameters)) {}

TBursaWolfDatumShift::~TBursaWolfDatumShift() {
    delete Parameters;
}

bool TBursaWolfDatumShift::operator==(TDatumShift const& other) const {
    if (other.Type != Type || typeid(other) != typeid(*this)) {
        return false;
    }
    TBursaWolfDatumShiftParameters const& one = *Parameters;
    TBursaWolfDatumShiftParameters const& two = *static_cast<TBursaWolfDatumShift const&>(other).Parameters;
    if (one.OnlyShift != two.OnlyShift) {
        // Kept: here the flag alone makes a difference, unlike in the form with exact rotations.
        return false;
    }
    if (!(one.ShiftX == two.ShiftX && one.ShiftY == two.ShiftY && one.ShiftZ == two.ShiftZ)) {
        return false;
    }
    return one.OnlyShift || (one.Scale == two.Scale && one.RotationX == two.RotationX &&
                             one.RotationY == two.RotationY && one.RotationZ == two.RotationZ);
}

void TBursaWolfDatumShift::DirectTransform(TCoords* coords) const {
    TBursaWolfDatumShiftParameters const& q = *Parameters;
    if (q.OnlyShift) {
        coords->X += q.ShiftX;
        coords->Y += q.ShiftY;
        coords->Z += q.ShiftZ;
        return;
    }
    double const x = q.Scale * coords->X;
    double const y = q.Scale * coords->Y;
    double const z = q.Scale * coords->Z;
    coords->X = q.ShiftX + x - q.RotationZ * y + q.RotationY * z;
    coords->Y = q.ShiftY + q.RotationZ * x + y - q.RotationX * z;
    coords->Z = q.ShiftZ - q.RotationY * x + q.RotationX * y + z;
}

void TBursaWolfDatumShift::ReverseTransform(TCoords* coords) const {
    TBursaWolfDatumShiftParameters const& q = *Parameters;
    if (q.OnlyShift) {
        coords->X -= q.ShiftX;
        coords->Y -= q.ShiftY;
        coords->Z -= q.ShiftZ;
        return;
    }
    double const x = (coords->X - q.ShiftX) / q.Scale;
    double const y = (coords->Y - q.ShiftY) / q.Scale;
    double const z = (coords->Z - q.ShiftZ) / q.Scale;
    // Kept: the transposed matrix, not the inverse; published parameters are used both ways like this.
    coords->X = x + q.RotationZ * y - q.RotationY * z;
    coords->Y = y - q.RotationZ * x + q.RotationX * z;
    coords->Z = z + q.RotationY * x - q.RotationX * y;
}

bool TBursaWolfDatumShift::IsNonlinear() const {
    return false;
}

// --- Form with exact rotations -----------------------------------------------------------------------------

TBursaWolfNonlinearDatumShift::TBursaWolfNonlinearDatumShift(TBursaWolfDatumShiftParameters const& parameters)
    : TDatumShift(dsBursaWolfNonlinear),
      OnlyShift(parameters.OnlyShift),
      Scale(parameters.OnlyShift ? 1.0 : parameters.Scale),
      Shift{parameters.ShiftX, parameters.ShiftY, parameters.ShiftZ} {
    if (OnlyShift) {
        std::copy(std::begin(IdentityMatrix), std::end(IdentityMatrix), Matrix);
        return;
    }
    double const sa = std::sin(parameters.RotationX);
    double const ca = std::cos(parameters.RotationX);
    double const sb = std::sin(parameters.RotationY);
    double const cb = std::cos(parameters.RotationY);
    double const sc = std::sin(parameters.RotationZ);
    double const cc = std::cos(parameters.RotationZ);
    Matrix[0] = cb * cc;
    Matrix[1] = -cb * sc;
    Matrix[2] = sb;
    Matrix[3] = sa * sb * cc + ca * sc;
    Matrix[4] = ca * cc - sa * sb * sc;
    Matrix[5] = -sa * cb;
    Matrix[6] = sa * sc - ca * sb * cc;
    Matrix[7] = ca * sb * sc + sa * cc;
    Matrix[8] = ca * cb;
}

TBursaWolfNonlinearDatumShift::~TBursaWolfNonlinearDatumShift() = default;

bool TBursaWolfNonlinearDatumShift::operator==(TDatumShift const& other) const {
    if (other.Type != Type || typeid(other) != typeid(*this)) {
        return false;
    }
    // A side that only shifts holds scale 1 and the identity, so the numbers alone decide.
    auto const& that = static_cast<TBursaWolfNonlinearDatumShift const&>(other);
    return Scale == that.Scale && std::equal(std::begin(Matrix), std::end(Matrix), that.Matrix) &&
           std::equal(std::begin(Shift), std::end(Shift), that.Shift);
}

void TBursaWolfNonlinearDatumShift::DirectTransform(TCoords* coords) const {
    if (OnlyShift) {
        coords->X += Shift[0];
        coords->Y += Shift[1];
        coords->Z += Shift[2];
        return;
    }
    double const x = Scale * coords->X;
    double const y = Scale * coords->Y;
    double const z = Scale * coords->Z;
    coords->X = Matrix[0] * x + Matrix[1] * y + Matrix[2] * z + Shift[0];
    coords->Y = Matrix[3] * x + Matrix[4] * y + Matrix[5] * z + Shift[1];
    coords->Z = Matrix[6] * x + Matrix[7] * y + Matrix[8] * z + Shift[2];
}

void TBursaWolfNonlinearDatumShift::ReverseTransform(TCoords* coords) const {
    if (OnlyShift) {
        coords->X -= Shift[0];
        coords->Y -= Shift[1];
        coords->Z -= Shift[2];
        return;
    }
    double const x = (coords->X - Shift[0]) / Scale;
    double const y = (coords->Y - Shift[1]) / Scale;
    double const z = (coords->Z - Shift[2]) / Scale;
    coords->X = Matrix[0] * x + Matrix[3] * y + Matrix[6] * z;
    coords->Y = Matrix[1] * x + Matrix[4] * y + Matrix[7] * z;
    coords->Z = Matrix[2] * x + Matrix[5] * y + Matrix[8] * z;
}

bool TBursaWolfNonlinearDatumShift::IsNonlinear() const {
    return true;
}

// --- Copies ------------------------------------------------------------------------------------------------

TDatumShift* CreateDatumShiftCopy(TDatumShift const* source) {
    if (source == nullptr) {
        return nullptr;
    }
    try {
        switch (source->Type) {
        case dsBursaWolf:
            return new TBursaWolfDatumShift(dynamic_cast<TBursaWolfDatumShift const&>(*source));
        case dsBursaWolfNonlinear:
            return new TBursaWolfNonlinearDatumShift(
                dynamic_cast<TBursaWolfNonlinearDatumShift const&>(*source));
        }
    } catch (...) {
        return nullptr;
    }
    return nullptr;
}

} // namespace KvRefSystem
