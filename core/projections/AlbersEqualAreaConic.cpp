#include "core/projections/AlbersEqualAreaConic.h"

#include <cmath>
#include <memory>

namespace KvRefSystem {

namespace {

/** m2, the square of a parallel's radius over a [Snyder87, 14-15]. */
double SquaredParallelRadius(double phi, double eccentricity) {
    double const eSine = eccentricity * std::sin(phi);
    double const m = std::cos(phi) / std::sqrt(1 - eSine * eSine);
    return m * m;
}

} // namespace

TAlbersEqualAreaConicMapProjectionParameters::TAlbersEqualAreaConicMapProjectionParameters(
    double const& firstStandardParallel, double const& secondStandardParallel,
    double const& latitudeOfFalseOrigin, double const& longitudeOfFalseOrigin, double const& falseEasting,
    double const& falseNorthing)
    : FirstStandardParallel(firstStandardParallel),
      SecondStandardParallel(secondStandardParallel),
      LatitudeOfFalseOrigin(latitudeOfFalseOrigin),
      LongitudeOfFalseOrigin(longitudeOfFalseOrigin),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TAlbersEqualAreaConicMapProjectionParameters::TAlbersEqualAreaConicMapProjectionParameters(
    TAlbersEqualAreaConicMapProjectionParameters const& source) = default;

TAlbersEqualAreaConicMapProjection::TAlbersEqualAreaConicMapProjection(
    TEllipsoidSemiAxes const* axes, TAlbersEqualAreaConicMapProjectionParameters const* parameters)
    : TMapProjection(mptAlbersEqualAreaConic), Parameters(nullptr) {
    if (!parameters) {
        return;
    }
    auto record = std::make_unique<TAlbersEqualAreaConicMapProjectionParameters>(*parameters);
    double const phi1 = record->FirstStandardParallel;
    double const phi2 = record->SecondStandardParallel;
    double const ratio = axes->b / axes->a;
    double const e2 = 1 - ratio * ratio;
    double const e4 = e2 * e2;
    double const e6 = e4 * e2;
    SemiMajorAxis = axes->a;
    SemiMajorAxisSquared = SemiMajorAxis * SemiMajorAxis;
    Eccentricity = std::sqrt(e2);
    OneMinusEccentricitySquared = 1 - e2;
    PolarQ = 1 - OneMinusEccentricitySquared / (2 * Eccentricity) *
                     std::log((1 - Eccentricity) / (1 + Eccentricity)); // [Snyder87, 3-12]
    double const squaredM1 = SquaredParallelRadius(phi1, Eccentricity);
    double const squaredM2 = SquaredParallelRadius(phi2, Eccentricity);
    double const q1 = AuthalicQ(phi1);
    ConeConstant = (squaredM1 - squaredM2) / (AuthalicQ(phi2) - q1); // [Snyder87, 14-14]
    AreaConstant = squaredM1 + ConeConstant * q1;                    // [Snyder87, 14-13]
    OriginRadius = Radius(record->LatitudeOfFalseOrigin);
    ConeConstantSquared = ConeConstant * ConeConstant;
    LatitudeSin2 = e2 / 3 + 31 * e4 / 180 + 517 * e6 / 5040; // [Snyder87, 3-18]
    LatitudeSin4 = 23 * e4 / 360 + 251 * e6 / 3780;
    LatitudeSin6 = 761 * e6 / 45360;
    Parameters = record.release();
}

TAlbersEqualAreaConicMapProjection::TAlbersEqualAreaConicMapProjection(
    TAlbersEqualAreaConicMapProjection const& source)
    : TMapProjection(mptAlbersEqualAreaConic),
      Parameters(source.Parameters ? new TAlbersEqualAreaConicMapProjectionParameters(*source.Parameters)
                                   : nullptr),
      SemiMajorAxis(source.SemiMajorAxis),
      SemiMajorAxisSquared(source.SemiMajorAxisSquared),
      Eccentricity(source.Eccentricity),
      OneMinusEccentricitySquared(source.OneMinusEccentricitySquared),
      PolarQ(source.PolarQ),
      ConeConstant(source.ConeConstant),
      AreaConstant(source.AreaConstant),
      OriginRadius(source.OriginRadius),
      ConeConstantSquared(source.ConeConstantSquared),
      LatitudeSin2(source.LatitudeSin2),
      LatitudeSin4(source.LatitudeSin4),
      LatitudeSin6(source.LatitudeSin6) {}

TAlbersEqualAreaConicMapProjection::~TAlbersEqualAreaConicMapProjection() {
    delete Parameters;
}

/** q(phi) [Snyder87, 3-12]. */
double TAlbersEqualAreaConicMapProjection::AuthalicQ(double latitude) const {
    double const sine = std::sin(latitude);
    double const eSine = Eccentricity * sine;
    return OneMinusEccentricitySquared *
           (sine / (1 - eSine * eSine) + std::log((1 + eSine) / (1 - eSine)) / (2 * Eccentricity));
}

/** rho (metres, signed as n) [Snyder87, 14-12]. */
double TAlbersEqualAreaConicMapProjection::Radius(double latitude) const {
    return SemiMajorAxis * std::sqrt(AreaConstant - ConeConstant * AuthalicQ(latitude)) / ConeConstant;
}

void TAlbersEqualAreaConicMapProjection::GeodeticToProjected(TCoords* coords) const {
    double difference = coords->X - Parameters->LongitudeOfFalseOrigin;
    NormalizeLongitude(difference);
    double const theta = ConeConstant * difference;
    double const rho = Radius(coords->Y);
    coords->X = Parameters->FalseEasting + rho * std::sin(theta);
    coords->Y = Parameters->FalseNorthing + (OriginRadius - rho * std::cos(theta));
}

void TAlbersEqualAreaConicMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const x = coords->X - Parameters->FalseEasting;
    double const s = OriginRadius - (coords->Y - Parameters->FalseNorthing);
    double const q =
        (AreaConstant - (s * s + x * x) * ConeConstantSquared / SemiMajorAxisSquared) / ConeConstant;
    // The sines of 2, 4 and 6 beta are polynomials of the sine and cosine of beta, so beta needs no sine
    // again.
    double const sine = q / PolarQ;
    double const sine2 = 2 * sine * std::sqrt((1 - sine) * (1 + sine));
    double const cosine2 = 1 - 2 * sine * sine;
    coords->X = std::atan2(x, s) / ConeConstant + Parameters->LongitudeOfFalseOrigin;
    coords->Y = std::asin(sine) + sine2 * (LatitudeSin2 + 2 * cosine2 * LatitudeSin4 +
                                           (4 * cosine2 * cosine2 - 1) * LatitudeSin6);
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

bool TAlbersEqualAreaConicMapProjection::operator==(TMapProjection const& other) const {
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

} // namespace KvRefSystem
