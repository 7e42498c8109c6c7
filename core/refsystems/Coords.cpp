#include "core/refsystems/Coords.h"

#include "frame/NumberText.h"
#include "frame/imported/ModuleHooks.h"

#include <cmath>

namespace KvRefSystem {

namespace {

constexpr double Pi = 3.141592653589793;
constexpr double TwoPi = 6.283185307179586;
constexpr double HalfPi = 1.5707963267948966;

/**
 * Takes whole turns off an angle (radians) outside of [-limit, limit]; a NaN stays, an infinity gives a NaN.
 */
double WithoutWholeTurns(double angle, double limit) {
    if (angle > limit) {
        angle -= std::floor(angle / TwoPi) * TwoPi;
        return angle > limit ? angle - TwoPi : angle;
    }
    if (angle < -limit) {
        angle += std::floor(angle / -TwoPi) * TwoPi;
        return angle < -limit ? angle + TwoPi : angle;
    }
    return angle;
}

} // namespace

bool TCoords::operator==(TCoords const& other) const {
    if (X != other.X || Y != other.Y || ZUndefined != other.ZUndefined) {
        return false;
    }
    return ZUndefined || Z == other.Z;
}

void TCoords::DebugOutput(std::string const& prefix) const {
    KvPrintDbgMsg(prefix +
                  (ZUndefined ? FormatText(" %lf   %lf", X, Y) : FormatText(" %lf   %lf   %lf", X, Y, Z)));
}

void NormalizeLongitude(double& lon) {
    lon = WithoutWholeTurns(lon, Pi);
}

void NormalizeLatitude(double& lat) {
    double const turned = WithoutWholeTurns(lat, HalfPi);
    if (turned > HalfPi) {
        lat = turned > Pi ? -HalfPi : HalfPi;
    } else if (turned < -HalfPi) {
        lat = turned < -Pi ? HalfPi : -HalfPi;
    } else {
        lat = turned;
    }
}

} // namespace KvRefSystem
