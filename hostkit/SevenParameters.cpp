#include "frame/imported/SevenParameters.h"

#include <cmath>

namespace LumCommonUtils {

namespace {

struct Point {
    double x;
    double y;
    double z;
};

Point ShiftOf(T7Params const& parameters) {
    return {parameters.dX, parameters.dY, parameters.dZ};
}

/** Nine numbers of a rotation, by rows. */
struct Rotation {
    double m[3][3];

    Point operator*(Point const& p) const {
        return {m[0][0] * p.x + m[0][1] * p.y + m[0][2] * p.z, m[1][0] * p.x + m[1][1] * p.y + m[1][2] * p.z,
                m[2][0] * p.x + m[2][1] * p.y + m[2][2] * p.z};
    }

    Rotation operator*(Rotation const& right) const {
        Rotation product{};
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column) {
                product.m[row][column] = m[row][0] * right.m[0][column] + m[row][1] * right.m[1][column] +
                                         m[row][2] * right.m[2][column];
            }
        }
        return product;
    }

    Rotation Transposed() const {
        return {{{m[0][0], m[1][0], m[2][0]}, {m[0][1], m[1][1], m[2][1]}, {m[0][2], m[1][2], m[2][2]}}};
    }
};

/** Rz(wz) Ry(wy) Rx(wx), active rotations: the transposed of the similarity's own matrix A. */
Rotation ActiveRotation(T7Params const& parameters) {
    double const sa = std::sin(parameters.wx);
    double const ca = std::cos(parameters.wx);
    double const sb = std::sin(parameters.wy);
    double const cb = std::cos(parameters.wy);
    double const sg = std::sin(parameters.wz);
    double const cg = std::cos(parameters.wz);
    return {{{cb * cg, sa * sb * cg - ca * sg, ca * sb * cg + sa * sg},
             {cb * sg, sa * sb * sg + ca * cg, ca * sb * sg - sa * cg},
             {-sb, sa * cb, ca * cb}}};
}

/** The angles of M = Rz(gamma) Ry(beta) Rx(alpha). */
void TakeApart(Rotation const& rotation, double* alpha, double* beta, double* gamma) {
    auto const& m = rotation.m;
    // gamma comes first and is then turned back, so that the other two stay exact where cos(beta) is 0.
    double const g = std::atan2(m[1][0], m[0][0]);
    double const sg = std::sin(g);
    double const cg = std::cos(g);
    *alpha = std::atan2(sg * m[0][2] - cg * m[1][2], cg * m[1][1] - sg * m[0][1]);
    *beta = std::atan2(-m[2][0], cg * m[0][0] + sg * m[1][0]);
    *gamma = g;
}

bool IsFinite(T7Params const& parameters) {
    for (double const number : {parameters.wx, parameters.wy, parameters.wz, parameters.m, parameters.dX,
                                parameters.dY, parameters.dZ}) {
        if (!std::isfinite(number)) {
            return false;
        }
    }
    return true;
}

} // namespace

T7ParamsTransform::T7ParamsTransform() : rotation(3, 3), shift(3) {
    Initialize(T7Params());
}

bool T7ParamsTransform::Initialize(T7Params const& newParameters) {
    if (!IsFinite(newParameters) || 1.0 + newParameters.m == 0.0) {
        return false;
    }
    parameters = newParameters;
    Rotation const a = ActiveRotation(parameters).Transposed();
    for (unsigned long row = 0; row < 3; ++row) {
        for (unsigned long column = 0; column < 3; ++column) {
            rotation.SetElement(column, row, a.m[row][column]);
        }
    }
    shift[0] = parameters.dX;
    shift[1] = parameters.dY;
    shift[2] = parameters.dZ;
    return true;
}

void T7ParamsTransform::GetParameters(T7Params* stored) const {
    *stored = parameters;
}

void T7ParamsTransform::DirectTransform(double const& x, double const& y, double const& z, double* rx,
                                        double* ry, double* rz) const {
    double const p[3] = {x, y, z};
    double* const results[3] = {rx, ry, rz};
    double const scale = 1.0 + parameters.m;
    for (unsigned long row = 0; row < 3; ++row) {
        double const turned = rotation.GetElement(0, row) * p[0] + rotation.GetElement(1, row) * p[1] +
                              rotation.GetElement(2, row) * p[2];
        *results[row] = scale * turned + shift.Elements[row];
    }
}

void T7ParamsTransform::InverseTransform(double const& x, double const& y, double const& z, double* rx,
                                         double* ry, double* rz) const {
    double const p[3] = {x - shift.Elements[0], y - shift.Elements[1], z - shift.Elements[2]};
    double* const results[3] = {rx, ry, rz};
    double const scale = 1.0 + parameters.m;
    for (unsigned long column = 0; column < 3; ++column) {
        double const turned = rotation.GetElement(column, 0) * p[0] + rotation.GetElement(column, 1) * p[1] +
                              rotation.GetElement(column, 2) * p[2];
        *results[column] = turned / scale;
    }
}

void Combine7Params(T7Params const& first, T7Params const& second, T7Params* result) {
    T7Params combined;
    Rotation const secondActive = ActiveRotation(second);
    TakeApart(ActiveRotation(first) * secondActive, &combined.wx, &combined.wy, &combined.wz);
    double const secondScale = 1.0 + second.m;
    combined.m = (1.0 + first.m) * secondScale - 1.0;
    Point const turned = secondActive.Transposed() * ShiftOf(first);
    combined.dX = secondScale * turned.x + second.dX;
    combined.dY = secondScale * turned.y + second.dY;
    combined.dZ = secondScale * turned.z + second.dZ;
    *result = combined;
}

void Combine7ParamsLinearized(T7Params const& first, T7Params const& second, T7Params* result) {
    T7Params combined;
    combined.wx = first.wx + second.wx;
    combined.wy = first.wy + second.wy;
    combined.wz = first.wz + second.wz;
    combined.m = first.m + second.m;
    double const secondScale = 1.0 + second.m;
    Point const d = ShiftOf(first);
    combined.dX = secondScale * (d.x + second.wz * d.y - second.wy * d.z) + second.dX;
    combined.dY = secondScale * (d.y - second.wz * d.x + second.wx * d.z) + second.dY;
    combined.dZ = secondScale * (d.z + second.wy * d.x - second.wx * d.y) + second.dZ;
    *result = combined;
}

void InvertParams(T7Params const& parameters, T7Params* inverse) {
    T7Params inverted;
    Rotation const active = ActiveRotation(parameters);
    TakeApart(active.Transposed(), &inverted.wx, &inverted.wy, &inverted.wz);
    double const scale = 1.0 + parameters.m;
    inverted.m = 1.0 / scale - 1.0;
    Point const turned = active * ShiftOf(parameters);
    inverted.dX = -turned.x / scale;
    inverted.dY = -turned.y / scale;
    inverted.dZ = -turned.z / scale;
    *inverse = inverted;
}

void RzyxGetAlphaBetaGamma(TMatrix const& rotation, double* alpha, double* beta, double* gamma) {
    Rotation numbers{};
    for (unsigned long row = 0; row < 3; ++row) {
        for (unsigned long column = 0; column < 3; ++column) {
            numbers.m[row][column] = rotation.GetElement(column, row);
        }
    }
    TakeApart(numbers, alpha, beta, gamma);
}

} // namespace LumCommonUtils
