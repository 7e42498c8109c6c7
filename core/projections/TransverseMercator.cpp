#include "core/projections/TransverseMercator.h"

#include <cmath>

namespace KvRefSystem {

TTransverseMercatorMapProjectionParameters::TTransverseMercatorMapProjectionParameters(
    double const& centralMeridian, double const& latitudeOfOrigin, double const& scaleFactor,
    double const& falseEasting, double const& falseNorthing)
    : CentralMeridian(centralMeridian),
      LatitudeOfOrigin(latitudeOfOrigin),
      ScaleFactor(scaleFactor),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TTransverseMercatorMapProjection::TTransverseMercatorMapProjection(
    TEllipsoidSemiAxes const* ellipsoid, TTransverseMercatorMapProjectionParameters const* parameters)
    : TMapProjection(mptTransverseMercator),
      Parameters(new TTransverseMercatorMapProjectionParameters(*parameters)) {
    double const a = ellipsoid->a;
    double const b = ellipsoid->b;
    double const e = std::sqrt(1 - (b / a) * (b / a));
    double const e2 = e * e;
    double const e4 = e2 * e2;
    double const e6 = e4 * e2;
    SemiMajorAxis = a;
    EccentricitySquared = e2;
    SecondEccentricitySquared = (a / b) * (a / b) - 1;
    MeridionalNumerator = a * (1 - e2);

    // [Snyder87, 3-21]
    ArcPerRadian = a * (1 - e2 / 4 - 3 * e4 / 64 - 5 * e6 / 256);
    ArcSin2Coefficient = a * (3 * e2 / 8 + 3 * e4 / 32 + 45 * e6 / 1024);
    ArcSin4Coefficient = a * (15 * e4 / 256 + 45 * e6 / 1024);
    ArcSin6Coefficient = a * 35 * e6 / 3072;
    double const phi0 = Parameters->LatitudeOfOrigin;
    ArcOfOrigin = MeridianArc(phi0, std::sin(phi0), std::cos(phi0));

    // [Snyder87, 3-24, 3-26]
    double const root = std::sqrt(1 - e2);
    double const e1 = (1 - root) / (1 + root);
    double const e12 = e1 * e1;
    double const e13 = e12 * e1;
    double const e14 = e13 * e1;
    FootpointSin2Coefficient = 3 * e1 / 2 - 27 * e13 / 32;
    FootpointSin4Coefficient = 21 * e12 / 16 - 55 * e14 / 32;
    FootpointSin6Coefficient = 151 * e13 / 96;
    FootpointSin8Coefficient = 1097 * e14 / 512;
}

TTransverseMercatorMapProjection::TTransverseMercatorMapProjection(
    TTransverseMercatorMapProjection const& source)
    : TMapProjection(source),
      Parameters(new TTransverseMercatorMapProjectionParameters(*source.Parameters)),
      SemiMajorAxis(source.SemiMajorAxis),
      EccentricitySquared(source.EccentricitySquared),
      SecondEccentricitySquared(source.SecondEccentricitySquared),
      MeridionalNumerator(source.MeridionalNumerator),
      ArcPerRadian(source.ArcPerRadian),
      ArcSin2Coefficient(source.ArcSin2Coefficient),
      ArcSin4Coefficient(source.ArcSin4Coefficient),
      ArcSin6Coefficient(source.ArcSin6Coefficient),
      ArcOfOrigin(source.ArcOfOrigin),
      FootpointSin2Coefficient(source.FootpointSin2Coefficient),
      FootpointSin4Coefficient(source.FootpointSin4Coefficient),
      FootpointSin6Coefficient(source.FootpointSin6Coefficient),
      FootpointSin8Coefficient(source.FootpointSin8Coefficient) {}

TTransverseMercatorMapProjection::~TTransverseMercatorMapProjection() {
    delete Parameters;
}

double TTransverseMercatorMapProjection::MeridianArc(double phi, double s, double c) const {
    // [Snyder87, 3-21] with the sines of 4 phi and 6 phi written through sin 2 phi and sin2 phi.
    double const s2 = s * s;
    double const sin2Phi = 2 * s * c;
    return ArcPerRadian * phi - ArcSin2Coefficient * sin2Phi + ArcSin4Coefficient * (2 - 4 * s2) * sin2Phi -
           ArcSin6Coefficient * (16 * (s2 * s2 - s2) + 3) * sin2Phi;
}

void TTransverseMercatorMapProjection::GeodeticToProjected(TCoords* coords) const {
    double const phi = coords->Y;
    double deltaLambda = coords->X - Parameters->CentralMeridian;
    NormalizeLongitude(deltaLambda);
    double const s = std::sin(phi);
    double const c = std::cos(phi);
    double const s2 = s * s;
    double const k0 = Parameters->ScaleFactor;
    double const ep2 = SecondEccentricitySquared;

    // [Snyder87, 8-9, 8-10]
    double const M = MeridianArc(phi, s, c) - ArcOfOrigin;
    double const N = SemiMajorAxis / std::sqrt(1 - EccentricitySquared * s2);
    double const T = s2 / (1 - s2);
    double const C = (1 - s2) * ep2;
    double const A = deltaLambda * c;
    double const A2 = A * A;
    double const A3 = A2 * A;
    double const A4 = A2 * A2;
    double const A5 = A4 * A;
    double const A6 = A4 * A2;
    double const T2 = T * T;
    coords->X =
        k0 * N *
            (A + (1 - T + C) * A3 * (1.0 / 6) + (5 - 18 * T + T2 + 72 * C - 58 * ep2) * A5 * (1.0 / 120)) +
        Parameters->FalseEasting;
    coords->Y = k0 * (M + N * (s / c) *
                              (A2 / 2 + (5 - T + 9 * C + 4 * C * C) * A4 * (1.0 / 24) +
                               (61 - 58 * T + T2 + 600 * C - 330 * ep2) * A6 * (1.0 / 720))) +
                Parameters->FalseNorthing;
}

void TTransverseMercatorMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const k0 = Parameters->ScaleFactor;
    double const ep2 = SecondEccentricitySquared;

    // Latitude of the footpoint [Snyder87, 3-26, 7-19], the sines of 4 mu, 6 mu and 8 mu through sin 2 mu.
    double const mu = ((coords->Y - Parameters->FalseNorthing) / k0 + ArcOfOrigin) / ArcPerRadian;
    double const s = std::sin(mu);
    double const s2 = s * s;
    double const sin2Mu = 2 * s * std::cos(mu);
    double const phi1 = mu + FootpointSin2Coefficient * sin2Mu +
                        FootpointSin4Coefficient * (2 - 4 * s2) * sin2Mu +
                        FootpointSin6Coefficient * (16 * (s2 * s2 - s2) + 3) * sin2Mu +
                        FootpointSin8Coefficient * (1 - 2 * sin2Mu * sin2Mu) * (4 - 8 * s2) * sin2Mu;

    // [Snyder87, 8-17, 8-18].
    double const sinPhi1 = std::sin(phi1);
    double const cosPhi1 = std::cos(phi1);
    double const cos2 = cosPhi1 * cosPhi1;
    double const T1 = (1 - cos2) / cos2;
    double const C1 = cos2 * ep2;
    double const w = 1 - EccentricitySquared * (1 - cos2);
    double const root = std::sqrt(w);
    double const N1 = SemiMajorAxis / root;
    double const R1 = MeridionalNumerator / (w * root);
    double const D = (coords->X - Parameters->FalseEasting) / (N1 * k0);
    double const D2 = D * D;
    double const D3 = D2 * D;
    double const D4 = D2 * D2;
    double const D5 = D4 * D;
    double const D6 = D4 * D2;
    double const T12 = T1 * T1;
    double const C12 = C1 * C1;
    double phi = phi1 - N1 * (sinPhi1 / cosPhi1) / R1 *
                            (D2 / 2 - (5 + 3 * T1 + 10 * C1 - 4 * C12 - 9 * ep2) * D4 * (1.0 / 24) +
                             (61 + 90 * T1 + 298 * C1 + 45 * T12 - 252 * ep2 - 3 * C12) * D6 * (1.0 / 720));
    double lambda = Parameters->CentralMeridian +
                    (D - (1 + 2 * T1 + C1) * D3 * (1.0 / 6) +
                     (5 - 2 * C1 + 28 * T1 - 3 * C12 + 8 * ep2 + 24 * T12) * D5 * (1.0 / 120)) /
                        cosPhi1;
    NormalizeLatitude(phi);
    NormalizeLongitude(lambda);
    coords->X = lambda;
    coords->Y = phi;
}

bool TTransverseMercatorMapProjection::operator==(TMapProjection const& other) const {
    auto const* const same = AsSameClass(*this, other);
    if (!same) {
        return false;
    }
    TTransverseMercatorMapProjectionParameters const& one = *Parameters;
    TTransverseMercatorMapProjectionParameters const& two = *same->Parameters;
    return one.CentralMeridian == two.CentralMeridian && one.LatitudeOfOrigin == two.LatitudeOfOrigin &&
           one.ScaleFactor == two.ScaleFactor && one.FalseEasting == two.FalseEasting &&
           one.FalseNorthing == two.FalseNorthing;
}

} // namespace KvRefSystem
