#include "core/projections/LambertAzimuthalEqualArea.h"

#include <cmath>

namespace KvRefSystem {

TLambertAzimuthalEqualAreaMapProjectionParameters::TLambertAzimuthalEqualAreaMapProjectionParameters(
    double const& latitudeOfOrigin, double const& longitudeOfOrigin, double const& falseEasting,
    double const& falseNorthing)
    : LatitudeOfOrigin(latitudeOfOrigin),
      LongitudeOfOrigin(longitudeOfOrigin),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TLambertAzimuthalEqualAreaMapProjection::TLambertAzimuthalEqualAreaMapProjection(
    TEllipsoidSemiAxes const* ellipsoid, TLambertAzimuthalEqualAreaMapProjectionParameters const* parameters)
    : TMapProjection(mptLambertAzimuthalEqualArea),
      Parameters(new TLambertAzimuthalEqualAreaMapProjectionParameters(*parameters)),
      SemiMajorAxis(ellipsoid->a) {
    double const axisRatio = ellipsoid->b / ellipsoid->a;
    double const e2 = 1 - axisRatio * axisRatio;
    double const e4 = e2 * e2;
    double const e6 = e4 * e2;
    SquaredEccentricity = e2;
    Eccentricity = std::sqrt(e2);
    SquaredAxisRatio = 1 - e2;
    HalfInverseEccentricity = 1 / (2 * Eccentricity);
    Latitude2 = e2 / 3 + 31 * e4 / 180 + 517 * e6 / 5040;
    Latitude4 = 23 * e4 / 360 + 251 * e6 / 3780;
    Latitude6 = 761 * e6 / 45360;

    double const sinPhi0 = std::sin(Parameters->LatitudeOfOrigin);
    PoleValue = AuthalicFunction(1.0);
    SinOrigin = AuthalicFunction(sinPhi0) / PoleValue;
    CosOrigin = std::cos(std::asin(SinOrigin));
    AuthalicRadius = SemiMajorAxis * std::sqrt(PoleValue / 2);
    double const m = std::cos(Parameters->LatitudeOfOrigin) / std::sqrt(1 - e2 * sinPhi0 * sinPhi0);
    Stretch = SemiMajorAxis * m / (AuthalicRadius * CosOrigin);
}

TLambertAzimuthalEqualAreaMapProjection::TLambertAzimuthalEqualAreaMapProjection(
    TLambertAzimuthalEqualAreaMapProjection const& source)
    : TMapProjection(source),
      Parameters(new TLambertAzimuthalEqualAreaMapProjectionParameters(*source.Parameters)),
      SemiMajorAxis(source.SemiMajorAxis),
      Eccentricity(source.Eccentricity),
      SquaredEccentricity(source.SquaredEccentricity),
      SquaredAxisRatio(source.SquaredAxisRatio),
      HalfInverseEccentricity(source.HalfInverseEccentricity),
      Latitude2(source.Latitude2),
      Latitude4(source.Latitude4),
      Latitude6(source.Latitude6),
      PoleValue(source.PoleValue),
      SinOrigin(source.SinOrigin),
      CosOrigin(source.CosOrigin),
      AuthalicRadius(source.AuthalicRadius),
      Stretch(source.Stretch) {}

TLambertAzimuthalEqualAreaMapProjection::~TLambertAzimuthalEqualAreaMapProjection() {
    delete Parameters;
}

bool TLambertAzimuthalEqualAreaMapProjection::operator==(TMapProjection const& other) const {
    auto const* const same = AsSameClass(*this, other);
    if (!same) {
        return false;
    }
    auto const& theirs = *same->Parameters;
    return Parameters->LatitudeOfOrigin == theirs.LatitudeOfOrigin &&
           Parameters->LongitudeOfOrigin == theirs.LongitudeOfOrigin &&
           Parameters->FalseEasting == theirs.FalseEasting &&
           Parameters->FalseNorthing == theirs.FalseNorthing;
}

void TLambertAzimuthalEqualAreaMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const x = (coords->X - Parameters->FalseEasting) / Stretch;
    double const y = (coords->Y - Parameters->FalseNorthing) * Stretch;
    double const r = std::sqrt(x * x + y * y);
    double const sinHalfC = r / (2 * AuthalicRadius);
    double const sinC = 2 * sinHalfC * std::sqrt((1 - sinHalfC) * (1 + sinHalfC));
    double const cosC = 1 - 2 * sinHalfC * sinHalfC;

    double const sinBeta = cosC * SinOrigin + y * sinC * CosOrigin / r;
    double const cosBeta = std::sqrt((1 - sinBeta) * (1 + sinBeta));
    double const sin2Beta = 2 * sinBeta * cosBeta;
    double const cos2Beta = 1 - 2 * sinBeta * sinBeta;
    double const sin4Beta = 2 * sin2Beta * cos2Beta;
    double const cos4Beta = 1 - 2 * sin2Beta * sin2Beta;
    double const sin6Beta = sin4Beta * cos2Beta + cos4Beta * sin2Beta;

    coords->X = Parameters->LongitudeOfOrigin +
                std::atan(x * sinC / (r * CosOrigin * cosC - y * SinOrigin * sinC)); // Kept: not atan2.
    coords->Y = std::asin(sinBeta) + Latitude2 * sin2Beta + Latitude4 * sin4Beta + Latitude6 * sin6Beta;
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

void TLambertAzimuthalEqualAreaMapProjection::GeodeticToProjected(TCoords* coords) const {
    double const difference = coords->X - Parameters->LongitudeOfOrigin;
    double const sinBeta = AuthalicFunction(std::sin(coords->Y)) / PoleValue;
    double const cosBeta = std::sqrt((1 - sinBeta) * (1 + sinBeta));
    double const sinDifference = std::sin(difference);
    double const cosDifference = std::cos(difference);
    double const b =
        AuthalicRadius * std::sqrt(2 / (1 + SinOrigin * sinBeta + CosOrigin * cosBeta * cosDifference));
    coords->X = Parameters->FalseEasting + b * Stretch * cosBeta * sinDifference;
    coords->Y =
        Parameters->FalseNorthing + b / Stretch * (CosOrigin * sinBeta - SinOrigin * cosBeta * cosDifference);
}

double TLambertAzimuthalEqualAreaMapProjection::AuthalicFunction(double sinPhi) const {
    double const eSin = Eccentricity * sinPhi;
    return SquaredAxisRatio *
           (sinPhi / (1 - eSin * eSin) - HalfInverseEccentricity * std::log((1 - eSin) / (1 + eSin)));
}

} // namespace KvRefSystem
