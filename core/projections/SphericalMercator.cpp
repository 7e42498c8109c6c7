#include "core/projections/SphericalMercator.h"

#include <cmath>

namespace KvRefSystem {

TSphericalMercatorMapProjectionParameters::TSphericalMercatorMapProjectionParameters(
    double const& centralMeridian, double const& scaleFactor, double const& falseEasting,
    double const& falseNorthing)
    : CentralMeridian(centralMeridian),
      ScaleFactor(scaleFactor),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TSphericalMercatorMapProjectionParameters::TSphericalMercatorMapProjectionParameters(
    TSphericalMercatorMapProjectionParameters const& source) = default;

TSphericalMercatorMapProjection::TSphericalMercatorMapProjection(
    TEllipsoidSemiAxes const* axes, TSphericalMercatorMapProjectionParameters const* parameters)
    : TMapProjection(mptSphericalMercator),
      Parameters(parameters ? new TSphericalMercatorMapProjectionParameters(*parameters) : nullptr) {
    if (!Parameters) {
        return;
    }
    Radius = axes ? Parameters->ScaleFactor * axes->a : Parameters->ScaleFactor;
}

TSphericalMercatorMapProjection::TSphericalMercatorMapProjection(
    TSphericalMercatorMapProjection const& source)
    : TMapProjection(mptSphericalMercator),
      Parameters(source.Parameters ? new TSphericalMercatorMapProjectionParameters(*source.Parameters)
                                   : nullptr),
      Radius(source.Radius) {}

TSphericalMercatorMapProjection::~TSphericalMercatorMapProjection() {
    delete Parameters;
}

void TSphericalMercatorMapProjection::GeodeticToProjected(TCoords* coords) const {
    constexpr double QuarterPi = 0.7853981633974483;
    double difference = coords->X - Parameters->CentralMeridian;
    NormalizeLongitude(difference);
    coords->X = Parameters->FalseEasting + Radius * difference;
    coords->Y = Parameters->FalseNorthing + Radius * std::log(std::tan(QuarterPi + coords->Y / 2));
}

void TSphericalMercatorMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    coords->X = (coords->X - Parameters->FalseEasting) / Radius + Parameters->CentralMeridian;
    coords->Y = std::atan(std::sinh((coords->Y - Parameters->FalseNorthing) / Radius));
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

bool TSphericalMercatorMapProjection::operator==(TMapProjection const& other) const {
    auto const* const projection = AsSameClass(*this, other);
    if (!projection) {
        return false;
    }
    auto const* const second = projection->Parameters;
    if (!Parameters || !second) {
        return Parameters == second;
    }
    return Parameters->CentralMeridian == second->CentralMeridian &&
           Parameters->ScaleFactor == second->ScaleFactor &&
           Parameters->FalseEasting == second->FalseEasting &&
           Parameters->FalseNorthing == second->FalseNorthing;
}

} // namespace KvRefSystem
