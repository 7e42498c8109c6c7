#include "core/projections/Mercator.h"

#include "core/projections/IsometricLatitude.h"

#include <cmath>
#include <memory>

namespace KvRefSystem {

namespace {

constexpr double HalfPi = 1.5707963267948966;

} // namespace

// --- A standard parallel -----------------------------------------------------------------------------------

TMercator2SPMapProjectionParameters::TMercator2SPMapProjectionParameters(double const& firstStandardParallel,
                                                                         double const& longitudeOfOrigin,
                                                                         double const& falseEasting,
                                                                         double const& falseNorthing)
    : FirstStandardParallel(firstStandardParallel),
      LongitudeOfOrigin(longitudeOfOrigin),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TMercator2SPMapProjectionParameters::TMercator2SPMapProjectionParameters(
    TMercator2SPMapProjectionParameters const& source) = default;

TMercator2SPMapProjection::TMercator2SPMapProjection(TEllipsoidSemiAxes const* axes,
                                                     TMercator2SPMapProjectionParameters const* parameters)
    : TMapProjection(mptMercator2SP),
      Parameters(parameters ? new TMercator2SPMapProjectionParameters(*parameters) : nullptr) {
    if (!Parameters) {
        return;
    }
    SetEccentricity(*axes);
    double const eSine = Eccentricity * std::sin(Parameters->FirstStandardParallel);
    Radius = axes->a * std::cos(Parameters->FirstStandardParallel) / std::sqrt(1 - eSine * eSine);
    CentralMeridian = Parameters->LongitudeOfOrigin;
    OriginEasting = Parameters->FalseEasting;
    OriginNorthing = Parameters->FalseNorthing;
}

TMercator2SPMapProjection::TMercator2SPMapProjection(TMercator2SPMapProjection const& source)
    : TMapProjection(mptMercator2SP),
      Parameters(source.Parameters ? new TMercator2SPMapProjectionParameters(*source.Parameters) : nullptr),
      Eccentricity(source.Eccentricity),
      HalfEccentricity(source.HalfEccentricity),
      LatitudeSeries(source.LatitudeSeries),
      Radius(source.Radius),
      CentralMeridian(source.CentralMeridian),
      OriginEasting(source.OriginEasting),
      OriginNorthing(source.OriginNorthing) {}

TMercator2SPMapProjection::~TMercator2SPMapProjection() {
    delete Parameters;
}

void TMercator2SPMapProjection::SetEccentricity(TEllipsoidSemiAxes const& axes) {
    double const ratio = axes.b / axes.a;
    double const e2 = 1 - ratio * ratio;
    Eccentricity = std::sqrt(e2);
    HalfEccentricity = Eccentricity / 2;
    LatitudeSeries = TConformalLatitudeSeries(e2);
}

void TMercator2SPMapProjection::GeodeticToProjected(TCoords* coords) const {
    // ((1 - e sin phi) / (1 + e sin phi))^(e/2) tan(pi/4 + phi/2) is t of the latitude on the other
    // hemisphere.
    double const logarithm = LogT(-coords->Y, Eccentricity, HalfEccentricity);
    coords->X = OriginEasting + Radius * (coords->X - CentralMeridian);
    coords->Y = OriginNorthing + Radius * logarithm;
}

void TMercator2SPMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const t = std::exp(-(coords->Y - OriginNorthing) / Radius);
    coords->X = (coords->X - OriginEasting) / Radius + CentralMeridian;
    coords->Y = LatitudeSeries.Latitude(HalfPi - 2 * std::atan(t));
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

bool TMercator2SPMapProjection::operator==(TMapProjection const& other) const {
    auto const* const projection = AsSameClass(*this, other);
    if (!projection) {
        return false;
    }
    auto const* const second = projection->Parameters;
    if (!Parameters || !second) {
        return Parameters == second;
    }
    return Parameters->FirstStandardParallel == second->FirstStandardParallel &&
           Parameters->LongitudeOfOrigin == second->LongitudeOfOrigin &&
           Parameters->FalseEasting == second->FalseEasting &&
           Parameters->FalseNorthing == second->FalseNorthing;
}

// --- A scale on the equator --------------------------------------------------------------------------------

TMercator1SPMapProjectionParameters::TMercator1SPMapProjectionParameters(double const& latitudeOfOrigin,
                                                                         double const& longitudeOfOrigin,
                                                                         double const& scaleFactor,
                                                                         double const& falseEasting,
                                                                         double const& falseNorthing)
    : LatitudeOfOrigin(latitudeOfOrigin),
      LongitudeOfOrigin(longitudeOfOrigin),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing),
      ScaleFactor(scaleFactor) {}

TMercator1SPMapProjectionParameters::TMercator1SPMapProjectionParameters(
    TMercator1SPMapProjectionParameters const& source) = default;

TMercator1SPMapProjection::TMercator1SPMapProjection(TEllipsoidSemiAxes const* axes,
                                                     TMercator1SPMapProjectionParameters const* parameters)
    : TMercator2SPMapProjection(axes, nullptr),
      Parameters(parameters ? new TMercator1SPMapProjectionParameters(*parameters) : nullptr) {
    Type = mptMercator1SP;
    if (!Parameters) {
        return;
    }
    SetEccentricity(*axes);
    Radius = axes->a * Parameters->ScaleFactor;
    CentralMeridian = Parameters->LongitudeOfOrigin;
    OriginEasting = Parameters->FalseEasting;
    OriginNorthing = Parameters->FalseNorthing;
}

TMercator1SPMapProjection::TMercator1SPMapProjection(TMercator1SPMapProjection const& source)
    : TMercator2SPMapProjection(source),
      Parameters(source.Parameters ? new TMercator1SPMapProjectionParameters(*source.Parameters) : nullptr) {
    Type = mptMercator1SP;
}

TMercator1SPMapProjection::~TMercator1SPMapProjection() {
    delete Parameters;
}

bool TMercator1SPMapProjection::operator==(TMapProjection const& other) const {
    auto const* const projection = AsSameClass(*this, other);
    if (!projection) {
        return false;
    }
    auto const* const second = projection->Parameters;
    if (!Parameters || !second) {
        return Parameters == second;
    }
    return Parameters->LatitudeOfOrigin == second->LatitudeOfOrigin &&
           Parameters->LongitudeOfOrigin == second->LongitudeOfOrigin &&
           Parameters->FalseEasting == second->FalseEasting &&
           Parameters->FalseNorthing == second->FalseNorthing;
}

} // namespace KvRefSystem
