#include "core/projections/GaussBoaga.h"

#include <cmath>

namespace KvRefSystem {

TGaussBoagaMapProjectionParameters::TGaussBoagaMapProjectionParameters(double const& centralMeridian,
                                                                       double const& scaleFactor,
                                                                       double const& falseEasting,
                                                                       double const& falseNorthing)
    : CentralMeridian(centralMeridian),
      ScaleFactor(scaleFactor),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TGaussBoagaMapProjection::TGaussBoagaMapProjection(TEllipsoidSemiAxes const* ellipsoid,
                                                   TGaussBoagaMapProjectionParameters const* parameters)
    : TMapProjection(mptGaussBoaga), Parameters(new TGaussBoagaMapProjectionParameters(*parameters)) {
    double const a = ellipsoid->a;
    double const b = ellipsoid->b;
    PolarRadius = a * a / b;
    SecondEccentricitySquared = (a / b) * (a / b) - 1;
    HalfSecondEccentricitySquared = SecondEccentricitySquared / 2;
    Alpha = 3 * SecondEccentricitySquared / 4;
    Beta = 5 * Alpha * Alpha / 3;
    Gamma = 35 * Alpha * Alpha * Alpha / 27;

    // a (1 - e2) times the mean of (1 - e2 sin2 phi)^(-3/2), term by term.
    double const e2 = 1 - (b / a) * (b / a);
    double const t0 = a * (1 - e2);
    double const t1 = 3 * e2 * t0 / 2;
    double const t2 = 5 * e2 * t1 / 4;
    double const t3 = 7 * e2 * t2 / 6;
    double const t4 = 9 * e2 * t3 / 8;
    double const t5 = 11 * e2 * t4 / 10;
    ArcPerRadian = t0 + t1 / 2 + 3 * t2 / 8 + 5 * t3 / 16 + 35 * t4 / 128 + 63 * t5 / 256;
}

TGaussBoagaMapProjection::TGaussBoagaMapProjection(TGaussBoagaMapProjection const& source)
    : TMapProjection(source),
      Parameters(new TGaussBoagaMapProjectionParameters(*source.Parameters)),
      PolarRadius(source.PolarRadius),
      SecondEccentricitySquared(source.SecondEccentricitySquared),
      HalfSecondEccentricitySquared(source.HalfSecondEccentricitySquared),
      Alpha(source.Alpha),
      Beta(source.Beta),
      Gamma(source.Gamma),
      ArcPerRadian(source.ArcPerRadian) {}

TGaussBoagaMapProjection::~TGaussBoagaMapProjection() {
    delete Parameters;
}

double TGaussBoagaMapProjection::MeridianArc(double phi, double s, double c) const {
    double const c2 = c * c;
    double const A1 = 2 * s * c;
    double const A2 = A1 * c2;
    double const J2 = phi + A1 / 2;
    double const J4 = (3 * J2 + A2) / 4;
    double const J6 = (5 * J4 + A2 * c2) / 3;
    return PolarRadius * (phi - Alpha * J2 + Beta * J4 - Gamma * J6);
}

void TGaussBoagaMapProjection::GeodeticToProjected(TCoords* coords) const {
    double const phi = coords->Y;
    double deltaLambda = coords->X - Parameters->CentralMeridian;
    NormalizeLongitude(deltaLambda);
    double const s = std::sin(phi);
    double const c = std::cos(phi);
    double const k0 = Parameters->ScaleFactor;

    double const B = MeridianArc(phi, s, c);
    double const xi = std::atanh(c * std::sin(deltaLambda));
    double const eta = std::atan2(s / c, std::cos(deltaLambda)) - phi;
    double const nu = PolarRadius / std::sqrt(1 + SecondEccentricitySquared * c * c);
    double const zeta = HalfSecondEccentricitySquared * xi * xi * c * c;
    coords->X = k0 * nu * xi * (1 + zeta / 3) + Parameters->FalseEasting;
    coords->Y = k0 * (B + nu * eta * (1 + zeta)) + Parameters->FalseNorthing;
}

void TGaussBoagaMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const Y = (coords->Y - Parameters->FalseNorthing) / Parameters->ScaleFactor;
    double const X = (coords->X - Parameters->FalseEasting) / Parameters->ScaleFactor;
    double const footpoint = Y / ArcPerRadian;
    double const s = std::sin(footpoint);
    double const c = std::cos(footpoint);

    double const B = MeridianArc(footpoint, s, c);
    double const eta2 = SecondEccentricitySquared * c * c;
    double const nu = PolarRadius / std::sqrt(1 + eta2);
    double const east = X / nu;
    double const north = (Y - B) / nu;
    double const zeta = HalfSecondEccentricitySquared * east * east * c * c;
    double const xi = (1 - zeta / 3) * east;
    double const eta = (1 - zeta) * north + footpoint;
    double const sinEta = std::sin(eta);
    double const cosEta = std::cos(eta);
    double const tangent = std::sinh(xi) / cosEta;
    double const cosine = 1 / std::sqrt(1 + tangent * tangent); // of the difference of longitude
    double const deltaLambda = std::atan(tangent);
    double const tau = std::atan(sinEta / cosEta * cosine);
    double phi = footpoint + (1 + eta2 - 3.0 / 2 * SecondEccentricitySquared * s * c * (tau - footpoint)) *
                                 (tau - footpoint);
    double lambda = deltaLambda + Parameters->CentralMeridian;
    NormalizeLatitude(phi);
    NormalizeLongitude(lambda);
    coords->X = lambda;
    coords->Y = phi;
}

bool TGaussBoagaMapProjection::operator==(TMapProjection const& other) const {
    auto const* const same = AsSameClass(*this, other);
    if (!same) {
        return false;
    }
    TGaussBoagaMapProjectionParameters const& one = *Parameters;
    TGaussBoagaMapProjectionParameters const& two = *same->Parameters;
    return one.CentralMeridian == two.CentralMeridian && one.ScaleFactor == two.ScaleFactor &&
           one.FalseEasting == two.FalseEasting && one.FalseNorthing == two.FalseNorthing;
}

} // namespace KvRefSystem
