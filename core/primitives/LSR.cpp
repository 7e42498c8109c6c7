#include "core/primitives/LSR.h"

#include "core/primitives/WGS84SemiAxes.h"
#include "frame/imported/Matrix.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace KvRefSystem {

namespace {

constexpr double TwoPi = 6.283185307179586;
constexpr double HalfPi = 1.5707963267948966;

/** A point, a shift or a direction. */
struct TTriple {
    double x;
    double y;
    double z;
};

/** The local axes' components put together. */
TTriple Turn(double const (&rotation)[9], TTriple const& local) {
    return {rotation[0] * local.x + rotation[1] * local.y + rotation[2] * local.z,
            rotation[3] * local.x + rotation[4] * local.y + rotation[5] * local.z,
            rotation[6] * local.x + rotation[7] * local.y + rotation[8] * local.z};
}

/** The components along the local axes. */
TTriple TurnBack(double const (&rotation)[9], TTriple const& geocentric) {
    return {rotation[0] * geocentric.x + rotation[3] * geocentric.y + rotation[6] * geocentric.z,
            rotation[1] * geocentric.x + rotation[4] * geocentric.y + rotation[7] * geocentric.z,
            rotation[2] * geocentric.x + rotation[5] * geocentric.y + rotation[8] * geocentric.z};
}

} // namespace

TLSR::TLSR(double const& a, double const& b, double const& lat, double const& lon, double const& h,
           double const& azimuth) {
    Setup(a, b, lat, lon, h, azimuth);
}

TLSR::TLSR(double const& lat, double const& lon) {
    double a{};
    double b{};
    GetWGS84SemiAxes(&a, &b);
    Setup(a, b, lat, lon, 0.0, 0.0);
}

void TLSR::Setup(double const& a, double const& b, double const& lat, double const& lon, double const& h,
                 double const& azimuth) {
    var_a<TEllipsoid> ellipsoid = var_a_legacy::newembedded_a<TEllipsoid>(a, b);
    double const e2 = ellipsoid->EccentricitySquared;
    double const sp = std::sin(lat);
    double const cp = std::cos(lat);
    double const sl = std::sin(lon);
    double const cl = std::cos(lon);
    double const sa = std::sin(azimuth);
    double const ca = std::cos(azimuth);
    double const height = h;
    double const nu = a / std::sqrt(1 - e2 * sp * sp);

    Origin[0] = (nu + height) * cp * cl;
    Origin[1] = (nu + height) * cp * sl;
    Origin[2] = sp * (nu + height) - nu * e2 * sp;

    Rotation[0] = sp * cl * sa - sl * ca;
    Rotation[1] = -sa * sl - sp * cl * ca;
    Rotation[2] = cl * cp;
    Rotation[3] = cl * ca + sl * sp * sa;
    Rotation[4] = cl * sa - sl * sp * ca;
    Rotation[5] = sl * cp;
    Rotation[6] = -cp * sa;
    Rotation[7] = cp * ca;
    Rotation[8] = sp;

    InverseShift[0] = -cp * nu * e2 * sp * sa;
    InverseShift[1] = cp * nu * e2 * sp * ca;
    InverseShift[2] = nu * e2 * sp * sp - (nu + height);

    // Last, since the semi-axes may have come from the ellipsoid that this lets go.
    EllipsoidRef = std::move(ellipsoid);
}

void TLSR::LSR2Geocentric(double const& x, double const& y, double const& z, double* X, double* Y,
                          double* Z) const {
    TTriple const turned = Turn(Rotation, {x, y, z});
    *X = turned.x + Origin[0];
    *Y = turned.y + Origin[1];
    *Z = turned.z + Origin[2];
}

void TLSR::Geocentric2LSR(double const& X, double const& Y, double const& Z, double* x, double* y,
                          double* z) const {
    TTriple const turned = TurnBack(Rotation, {X, Y, Z});
    *x = turned.x + InverseShift[0];
    *y = turned.y + InverseShift[1];
    *z = turned.z + InverseShift[2];
}

void TLSR::LSR2Geodetic(double const& x, double const& y, double const& z, double* lat, double* lon,
                        double* h) const {
    TCoords point;
    LSR2Geocentric(x, y, z, &point.X, &point.Y, &point.Z);
    EllipsoidRef->CartesianToEllipsoidal(&point);
    *lat = point.Y;
    *lon = point.X;
    *h = point.Z;
}

void TLSR::Geodetic2LSR(double const& lat, double const& lon, double const& h, double* x, double* y,
                        double* z) const {
    TCoords point;
    point.X = lon;
    point.Y = lat;
    point.Z = h;
    EllipsoidRef->EllipsoidalToCartesian(&point);
    Geocentric2LSR(point.X, point.Y, point.Z, x, y, z);
}

void TLSR::Get7ParamsToGeocentric(T7Params* params) const {
    // The parameters' own matrix is the transposed of the one that their angles are taken from.
    LumCommonUtils::TMatrix transposed(3, 3);
    for (unsigned long row = 0; row < 3; ++row) {
        for (unsigned long column = 0; column < 3; ++column) {
            transposed.SetElement(row, column, Rotation[3 * row + column]);
        }
    }
    LumCommonUtils::RzyxGetAlphaBetaGamma(transposed, &params->wx, &params->wy, &params->wz);
    params->m = 0;
    params->dX = Origin[0];
    params->dY = Origin[1];
    params->dZ = Origin[2];
}

void TLSR::GeocDir2AzimuthElevation(double const& dX, double const& dY, double const& dZ, double* azimuth,
                                    double* elevation) const {
    TTriple const local = TurnBack(Rotation, {dX, dY, dZ});
    Dir2AzimuthElevation(local.x, local.y, local.z, azimuth, elevation);
}

void TLSR::AzimuthElevation2GeocDir(double const& azimuth, double const& elevation, double* dX, double* dY,
                                    double* dZ) const {
    TTriple local{};
    AzimuthElevation2Dir(azimuth, elevation, &local.x, &local.y, &local.z);
    TTriple const geocentric = Turn(Rotation, local);
    *dX = geocentric.x;
    *dY = geocentric.y;
    *dZ = geocentric.z;
}

void Dir2AzimuthElevation(double const& x, double const& y, double const& z, double* azimuth,
                          double* elevation) {
    TTriple const direction = {x, y, z};
    double const p = std::sqrt(direction.x * direction.x + direction.y * direction.y);
    if (!(p > 0)) {
        *azimuth = 0;
        *elevation = direction.z > 0 ? HalfPi : -HalfPi;
        return;
    }
    // Squares so small that they lose digits could bring the quotient past 1.
    double const angle = std::acos(std::clamp(direction.y / p, -1.0, 1.0));
    double const clockwise = direction.x < 0 ? TwoPi - angle : angle;
    // A direction a hair to the left of local y comes to the whole turn.
    *azimuth = clockwise >= TwoPi ? 0.0 : clockwise;
    *elevation = std::atan(direction.z / p);
}

void AzimuthElevation2Dir(double const& azimuth, double const& elevation, double* x, double* y, double* z) {
    double const sinAzimuth = std::sin(azimuth);
    double const cosAzimuth = std::cos(azimuth);
    double const sinElevation = std::sin(elevation);
    double const cosElevation = std::cos(elevation);
    bool const vertical = std::fabs(sinElevation) >= 1;
    *x = vertical ? 0.0 : sinAzimuth * cosElevation;
    *y = vertical ? 0.0 : cosAzimuth * cosElevation;
    *z = sinElevation;
}

void LSR2LSR7Params(TLSR const& from, TLSR const& to, T7Params* params) {
    T7Params first;
    from.Get7ParamsToGeocentric(&first);
    T7Params second;
    to.Get7ParamsToGeocentric(&second);
    T7Params inverse;
    LumCommonUtils::InvertParams(second, &inverse);
    LumCommonUtils::Combine7Params(first, inverse, params);
}

void LSR2LSR(TLSR const& from, double const& x, double const& y, double const& z, TLSR const& to, double* ox,
             double* oy, double* oz) {
    TTriple geocentric{};
    from.LSR2Geocentric(x, y, z, &geocentric.x, &geocentric.y, &geocentric.z);
    to.Geocentric2LSR(geocentric.x, geocentric.y, geocentric.z, ox, oy, oz);
}

} // namespace KvRefSystem
