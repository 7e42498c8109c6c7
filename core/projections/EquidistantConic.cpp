#include "core/projections/EquidistantConic.h"

#include <cmath>
#include <memory>

namespace KvRefSystem {

TEquidistantConicMapProjectionParameters::TEquidistantConicMapProjectionParameters(
    double const& firstStandardParallel, double const& secondStandardParallel, double const& latitudeOfOrigin,
    double const& longitudeOfOrigin, double const& falseEasting, double const& falseNorthing)
    : FirstStandardParallel(firstStandardParallel),
      SecondStandardParallel(secondStandardParallel),
      LatitudeOfOrigin(latitudeOfOrigin),
      LongitudeOfOrigin(longitudeOfOrigin),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TEquidistantConicMapProjectionParameters::TEquidistantConicMapProjectionParameters(
    TEquidistantConicMapProjectionParameters const& source) = default;

TEquidistantConicMapProjection::TEquidistantConicMapProjection(
    TEllipsoidSemiAxes const* axes, TEquidistantConicMapProjectionParameters const* parameters)
    : TMapProjection(mptEquidistantConic), Parameters(nullptr) {
    if (!parameters) {
        return;
    }
    auto record = std::make_unique<TEquidistantConicMapProjectionParameters>(*parameters);
    double const ratio = axes->b / axes->a;
    double const e2 = 1 - ratio * ratio;
    double const e4 = e2 * e2;
    double const e6 = e4 * e2;
    double const root = std::sqrt(1 - e2);
    SemiMajorAxis = axes->a;
    EccentricitySquared = e2;
    ThirdFlattening = (1 - root) / (1 + root); // [Snyder87, 3-24]
    ThirdFlatteningPow2 = ThirdFlattening * ThirdFlattening;
    ThirdFlatteningPow3 = ThirdFlatteningPow2 * ThirdFlattening;
    ThirdFlatteningPow4 = ThirdFlatteningPow3 * ThirdFlattening;
    ArcLatitude = SemiMajorAxis * (1 - e2 / 4 - 3 * e4 / 64 - 5 * e6 / 256); // [Snyder87, 3-21]
    ArcSin2 = -SemiMajorAxis * (3 * e2 / 8 + 3 * e4 / 32 + 45 * e6 / 1024);
    ArcSin4 = SemiMajorAxis * (15 * e4 / 256 + 45 * e6 / 1024);
    ArcSin6 = -SemiMajorAxis * (35 * e6 / 3072);
    OriginArc = calc_M(record->LatitudeOfOrigin);
    FirstArc = calc_M(record->FirstStandardParallel);
    SecondArc = calc_M(record->SecondStandardParallel);
    FirstParallelRadius = calc_m(record->FirstStandardParallel);
    SecondParallelRadius = calc_m(record->SecondStandardParallel);
    ConeConstant = SemiMajorAxis * (FirstParallelRadius - SecondParallelRadius) / (SecondArc - FirstArc);
    ApexArc = SemiMajorAxis * FirstParallelRadius / ConeConstant + FirstArc;
    OriginRadius = ApexArc - OriginArc;
    ConeSign = ConeConstant > 0 ? 1 : -1;
    FootpointSin2 = 3 * ThirdFlattening / 2 - 27 * ThirdFlatteningPow3 / 32; // [Snyder87, 3-26]
    FootpointSin4 = 21 * ThirdFlatteningPow2 / 16 - 55 * ThirdFlatteningPow4 / 32;
    FootpointSin6 = 151 * ThirdFlatteningPow3 / 96;
    FootpointSin8 = 1097 * ThirdFlatteningPow4 / 512;
    Parameters = record.release();
}

TEquidistantConicMapProjection::TEquidistantConicMapProjection(TEquidistantConicMapProjection const& source)
    : TMapProjection(mptEquidistantConic),
      Parameters(source.Parameters ? new TEquidistantConicMapProjectionParameters(*source.Parameters)
                                   : nullptr),
      SemiMajorAxis(source.SemiMajorAxis),
      EccentricitySquared(source.EccentricitySquared),
      ThirdFlattening(source.ThirdFlattening),
      ThirdFlatteningPow2(source.ThirdFlatteningPow2),
      ThirdFlatteningPow3(source.ThirdFlatteningPow3),
      ThirdFlatteningPow4(source.ThirdFlatteningPow4),
      ArcLatitude(source.ArcLatitude),
      ArcSin2(source.ArcSin2),
      ArcSin4(source.ArcSin4),
      ArcSin6(source.ArcSin6),
      OriginArc(source.OriginArc),
      FirstArc(source.FirstArc),
      SecondArc(source.SecondArc),
      FirstParallelRadius(source.FirstParallelRadius),
      SecondParallelRadius(source.SecondParallelRadius),
      ConeConstant(source.ConeConstant),
      ApexArc(source.ApexArc),
      OriginRadius(source.OriginRadius),
      ConeSign(source.ConeSign),
      FootpointSin2(source.FootpointSin2),
      FootpointSin4(source.FootpointSin4),
      FootpointSin6(source.FootpointSin6),
      FootpointSin8(source.FootpointSin8) {}

TEquidistantConicMapProjection::~TEquidistantConicMapProjection() {
    delete Parameters;
}

double TEquidistantConicMapProjection::calc_M(double const& latitude) const {
    double const sine2 = std::sin(2 * latitude);
    double const cosine2 = std::cos(2 * latitude);
    return ArcLatitude * latitude +
           sine2 * (ArcSin2 + 2 * cosine2 * ArcSin4 + (4 * cosine2 * cosine2 - 1) * ArcSin6);
}

double TEquidistantConicMapProjection::calc_m(double const& latitude) const {
    double const sine = std::sin(latitude);
    return std::cos(latitude) / std::sqrt(1 - EccentricitySquared * (sine * sine));
}

void TEquidistantConicMapProjection::GeodeticToProjected(TCoords* coords) const {
    double const theta = ConeConstant * (coords->X - Parameters->LongitudeOfOrigin);
    double const rho = ApexArc - calc_M(coords->Y);
    coords->X = Parameters->FalseEasting + rho * std::sin(theta);
    coords->Y = Parameters->FalseNorthing + (OriginRadius - rho * std::cos(theta));
}

void TEquidistantConicMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const x = coords->X - Parameters->FalseEasting;
    double const s = OriginRadius - (coords->Y - Parameters->FalseNorthing);
    double const rho = ConeSign * std::sqrt(x * x + s * s);
    double const mu = (ApexArc - rho) / ArcLatitude;
    double const sine2 = std::sin(2 * mu);
    double const cosine2 = std::cos(2 * mu);
    double const squaredCosine2 = cosine2 * cosine2;
    double const correction = FootpointSin2 + 2 * cosine2 * FootpointSin4 +
                              (4 * squaredCosine2 - 1) * FootpointSin6 +
                              4 * cosine2 * (2 * squaredCosine2 - 1) * FootpointSin8;
    coords->X = std::atan(x / s) / ConeConstant + Parameters->LongitudeOfOrigin;
    coords->Y = mu + sine2 * correction;
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

bool TEquidistantConicMapProjection::operator==(TMapProjection const& other) const {
    auto const* const projection = AsSameClass(*this, other);
    if (!projection) {
        return false;
    }
    auto const* const second = projection->Parameters;
    if (!Parameters || !second) {
        return Parameters == second;
    }
    return Parameters->FirstStandardParallel == second->FirstStandardParallel &&
           Parameters->SecondStandardParallel == second->SecondStandardParallel &&
           Parameters->LatitudeOfOrigin == second->LatitudeOfOrigin &&
           Parameters->LongitudeOfOrigin == second->LongitudeOfOrigin &&
           Parameters->FalseEasting == second->FalseEasting &&
           Parameters->FalseNorthing == second->FalseNorthing;
}

} // namespace KvRefSystem
