#include "core/projections/LambertConicConformal.h"

#include "core/projections/IsometricLatitude.h"

#include <cmath>
#include <memory>
#include <stdexcept>

namespace KvRefSystem {

namespace {

constexpr double HalfPi = 1.5707963267948966;
constexpr double QuarterPi = 0.7853981633974483;
constexpr double BelgianRotation = 0.0001420431363598774; ///< radians, 29.2985"
constexpr double IterationTolerance = 1e-10;              ///< radians of the latitude
constexpr int MaxIterations = 1000;

double EccentricityOf(TEllipsoidSemiAxes const& axes) {
    double const ratio = axes.b / axes.a;
    return std::sqrt(1 - ratio * ratio);
}

/** m, the radius of a parallel over a [Snyder87, 14-15]. */
double ParallelRadius(double phi, double eccentricity) {
    double const eSine = eccentricity * std::sin(phi);
    return std::cos(phi) / std::sqrt(1 - eSine * eSine);
}

/**
 * The latitude (radians) of t by [Snyder87, 7-9]: phi' = pi/2 - 2 atan(((1 - s) / (1 + s))^(e/2) t), s = e
 * sin phi. It runs on w = tan(pi/4 - phi/2), of which the sine of the latitude is a rational function and the
 * difference of two latitudes 2 (w - w') / (1 + w w') where that is small, so that only the last pass needs
 * the arc tangent. A NaN ends it: it wouldn't change.
 */
double LatitudeOfT(double t, double eccentricity, double halfEccentricity, double startTangent) {
    double tangent = startTangent;
    for (int i = 0; i < MaxIterations; ++i) {
        double const eSine = eccentricity * (2 / (1 + tangent * tangent) - 1);
        double const next = std::exp(halfEccentricity * std::log((1 - eSine) / (1 + eSine))) * t;
        double const change = 2 * std::fabs((next - tangent) / (1 + next * tangent));
        tangent = next;
        if (!(change > IterationTolerance)) {
            break;
        }
    }
    return HalfPi - 2 * std::atan(tangent);
}

int SignOf(double value) {
    return value > 0 ? 1 : -1;
}

} // namespace

// --- One standard parallel ---------------------------------------------------------------------------------

TLambertConicConformal1SPMapProjectionParameters::TLambertConicConformal1SPMapProjectionParameters(
    double const& latitudeOfOrigin, double const& longitudeOfOrigin, double const& scaleFactor,
    double const& falseEasting, double const& falseNorthing)
    : LatitudeOfOrigin(latitudeOfOrigin),
      LongitudeOfOrigin(longitudeOfOrigin),
      ScaleFactor(scaleFactor),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TLambertConicConformal1SPMapProjectionParameters::TLambertConicConformal1SPMapProjectionParameters(
    TLambertConicConformal1SPMapProjectionParameters const& source) = default;

TLambertConicConformal1SPMapProjection::TLambertConicConformal1SPMapProjection(
    TEllipsoidSemiAxes const* axes, TLambertConicConformal1SPMapProjectionParameters const* parameters)
    : TMapProjection(mptLambertConicConformal1SP), Parameters(nullptr) {
    if (!parameters) {
        return;
    }
    auto record = std::make_unique<TLambertConicConformal1SPMapProjectionParameters>(*parameters);
    double const phi0 = record->LatitudeOfOrigin;
    SemiMajorAxis = axes->a;
    Eccentricity = EccentricityOf(*axes);
    HalfEccentricity = Eccentricity / 2;
    ConeConstant = std::sin(phi0);
    if (ConeConstant == 0) {
        throw std::runtime_error(
            "TLambertConicConformal1SPMapProjection::TLambertConicConformal1SPMapProjection");
    }
    InverseConeConstant = 1 / ConeConstant;
    ConeSign = SignOf(ConeConstant);
    double const power = std::exp(ConeConstant * LogT(phi0, Eccentricity, HalfEccentricity));
    RadiusFactor = ParallelRadius(phi0, Eccentricity) / (power * ConeConstant);
    ScaledRadiusFactor = RadiusFactor * SemiMajorAxis * record->ScaleFactor;
    OriginRadius = power * ScaledRadiusFactor;
    StartTangent = std::tan(QuarterPi - phi0 / 2);
    Parameters = record.release();
}

TLambertConicConformal1SPMapProjection::TLambertConicConformal1SPMapProjection(
    TLambertConicConformal1SPMapProjection const& source)
    : TMapProjection(mptLambertConicConformal1SP),
      Parameters(source.Parameters ? new TLambertConicConformal1SPMapProjectionParameters(*source.Parameters)
                                   : nullptr),
      SemiMajorAxis(source.SemiMajorAxis),
      Eccentricity(source.Eccentricity),
      HalfEccentricity(source.HalfEccentricity),
      ConeConstant(source.ConeConstant),
      InverseConeConstant(source.InverseConeConstant),
      ConeSign(source.ConeSign),
      RadiusFactor(source.RadiusFactor),
      ScaledRadiusFactor(source.ScaledRadiusFactor),
      OriginRadius(source.OriginRadius),
      StartTangent(source.StartTangent) {}

TLambertConicConformal1SPMapProjection::~TLambertConicConformal1SPMapProjection() {
    delete Parameters;
}

void TLambertConicConformal1SPMapProjection::GeodeticToProjected(TCoords* coords) const {
    double const theta = ConeConstant * (coords->X - Parameters->LongitudeOfOrigin);
    double const rho =
        std::exp(ConeConstant * LogT(coords->Y, Eccentricity, HalfEccentricity)) * ScaledRadiusFactor;
    coords->X = Parameters->FalseEasting + rho * std::sin(theta);
    coords->Y = Parameters->FalseNorthing + (OriginRadius - rho * std::cos(theta));
}

void TLambertConicConformal1SPMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const x = coords->X - Parameters->FalseEasting;
    double const y = OriginRadius - (coords->Y - Parameters->FalseNorthing);
    double const rho = ConeSign * std::sqrt(x * x + y * y);
    double const t = std::exp(InverseConeConstant * std::log(rho / ScaledRadiusFactor));
    coords->X = std::atan2(x, y) / ConeConstant + Parameters->LongitudeOfOrigin;
    coords->Y = LatitudeOfT(t, Eccentricity, HalfEccentricity, StartTangent);
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

bool TLambertConicConformal1SPMapProjection::operator==(TMapProjection const& other) const {
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
           Parameters->ScaleFactor == second->ScaleFactor &&
           Parameters->FalseEasting == second->FalseEasting &&
           Parameters->FalseNorthing == second->FalseNorthing;
}

// --- Two standard parallels --------------------------------------------------------------------------------

TLambertConicConformal2SPMapProjectionParameters::TLambertConicConformal2SPMapProjectionParameters(
    double const& firstStandardParallel, double const& secondStandardParallel,
    double const& latitudeOfFalseOrigin, double const& longitudeOfFalseOrigin, double const& falseEasting,
    double const& falseNorthing)
    : FirstStandardParallel(firstStandardParallel),
      SecondStandardParallel(secondStandardParallel),
      LatitudeOfFalseOrigin(latitudeOfFalseOrigin),
      LongitudeOfFalseOrigin(longitudeOfFalseOrigin),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TLambertConicConformal2SPMapProjectionParameters::TLambertConicConformal2SPMapProjectionParameters(
    TLambertConicConformal2SPMapProjectionParameters const& source) = default;

TLambertConicConformal2SPMapProjection::TLambertConicConformal2SPMapProjection(
    TEllipsoidSemiAxes const* axes, TLambertConicConformal2SPMapProjectionParameters const* parameters)
    : TMapProjection(mptLambertConicConformal2SP), Parameters(nullptr) {
    if (!parameters) {
        return;
    }
    auto record = std::make_unique<TLambertConicConformal2SPMapProjectionParameters>(*parameters);
    double const phi1 = record->FirstStandardParallel;
    double const phi2 = record->SecondStandardParallel;
    SemiMajorAxis = axes->a;
    Eccentricity = EccentricityOf(*axes);
    HalfEccentricity = Eccentricity / 2;
    double const m1 = ParallelRadius(phi1, Eccentricity);
    double const m2 = ParallelRadius(phi2, Eccentricity);
    double const logT1 = LogT(phi1, Eccentricity, HalfEccentricity);
    double const logT2 = LogT(phi2, Eccentricity, HalfEccentricity);
    ConeConstant = (std::log(m1) - std::log(m2)) / (logT1 - logT2);
    if (ConeConstant == 0) {
        throw std::runtime_error(
            "TLambertConicConformal2SPMapProjection::TLambertConicConformal2SPMapProjection");
    }
    InverseConeConstant = 1 / ConeConstant;
    ConeSign = SignOf(ConeConstant);
    RadiusFactor = m1 / (std::exp(ConeConstant * logT1) * ConeConstant);
    ScaledRadiusFactor = RadiusFactor * SemiMajorAxis;
    OriginRadius = Radius(record->LatitudeOfFalseOrigin);
    StartLatitude = (phi1 + phi2) / 2;
    StartTangent = std::tan(QuarterPi - StartLatitude / 2);
    Parameters = record.release();
}

TLambertConicConformal2SPMapProjection::TLambertConicConformal2SPMapProjection(
    TLambertConicConformal2SPMapProjection const& source)
    : TMapProjection(mptLambertConicConformal2SP),
      Parameters(source.Parameters ? new TLambertConicConformal2SPMapProjectionParameters(*source.Parameters)
                                   : nullptr),
      SemiMajorAxis(source.SemiMajorAxis),
      Eccentricity(source.Eccentricity),
      HalfEccentricity(source.HalfEccentricity),
      ConeConstant(source.ConeConstant),
      InverseConeConstant(source.InverseConeConstant),
      ConeSign(source.ConeSign),
      RadiusFactor(source.RadiusFactor),
      ScaledRadiusFactor(source.ScaledRadiusFactor),
      OriginRadius(source.OriginRadius),
      StartLatitude(source.StartLatitude),
      StartTangent(source.StartTangent) {}

TLambertConicConformal2SPMapProjection::~TLambertConicConformal2SPMapProjection() {
    delete Parameters;
}

double TLambertConicConformal2SPMapProjection::Radius(double latitude) const {
    return std::exp(ConeConstant * LogT(latitude, Eccentricity, HalfEccentricity)) * ScaledRadiusFactor;
}

double TLambertConicConformal2SPMapProjection::LatitudeAt(double squaredRadius) const {
    double const rho = ConeSign * std::sqrt(squaredRadius);
    double const t = std::exp(InverseConeConstant * std::log(rho / ScaledRadiusFactor));
    return LatitudeOfT(t, Eccentricity, HalfEccentricity, StartTangent);
}

void TLambertConicConformal2SPMapProjection::GeodeticToProjected(TCoords* coords) const {
    double const theta = ConeConstant * (coords->X - Parameters->LongitudeOfFalseOrigin);
    double const rho = Radius(coords->Y);
    coords->X = Parameters->FalseEasting + rho * std::sin(theta);
    coords->Y = Parameters->FalseNorthing + (OriginRadius - rho * std::cos(theta));
}

void TLambertConicConformal2SPMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const x = coords->X - Parameters->FalseEasting;
    double const y = OriginRadius - (coords->Y - Parameters->FalseNorthing);
    coords->X = std::atan(x / y) / ConeConstant + Parameters->LongitudeOfFalseOrigin;
    coords->Y = LatitudeAt(x * x + y * y);
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

bool TLambertConicConformal2SPMapProjection::operator==(TMapProjection const& other) const {
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
           Parameters->LatitudeOfFalseOrigin == second->LatitudeOfFalseOrigin &&
           Parameters->LongitudeOfFalseOrigin == second->LongitudeOfFalseOrigin &&
           Parameters->FalseEasting == second->FalseEasting &&
           Parameters->FalseNorthing == second->FalseNorthing;
}

// --- Belgium -----------------------------------------------------------------------------------------------

TLambertConicConformal2SPBelgiumMapProjection::TLambertConicConformal2SPBelgiumMapProjection(
    TEllipsoidSemiAxes const* axes, TLambertConicConformal2SPMapProjectionParameters const* parameters)
    : TLambertConicConformal2SPMapProjection(axes, parameters), GridRotation(BelgianRotation) {
    Type = mptLambertConicConformal2SPBelgium;
}

TLambertConicConformal2SPBelgiumMapProjection::TLambertConicConformal2SPBelgiumMapProjection(
    TLambertConicConformal2SPBelgiumMapProjection const& source)
    : TLambertConicConformal2SPMapProjection(source), GridRotation(BelgianRotation) {
    Type = mptLambertConicConformal2SPBelgium;
}

TLambertConicConformal2SPBelgiumMapProjection::~TLambertConicConformal2SPBelgiumMapProjection() = default;

void TLambertConicConformal2SPBelgiumMapProjection::GeodeticToProjected(TCoords* coords) const {
    double const theta = ConeConstant * (coords->X - Parameters->LongitudeOfFalseOrigin) - GridRotation;
    double const rho = Radius(coords->Y);
    coords->X = Parameters->FalseEasting + rho * std::sin(theta);
    coords->Y = Parameters->FalseNorthing + (OriginRadius - rho * std::cos(theta));
}

void TLambertConicConformal2SPBelgiumMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const x = coords->X - Parameters->FalseEasting;
    double const y = OriginRadius - (coords->Y - Parameters->FalseNorthing);
    coords->X = (std::atan2(x, y) + GridRotation) / ConeConstant + Parameters->LongitudeOfFalseOrigin;
    coords->Y = LatitudeAt(x * x + y * y);
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

} // namespace KvRefSystem
