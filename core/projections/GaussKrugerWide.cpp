#include "core/projections/GaussKrugerWide.h"

#include <algorithm>
#include <cmath>

namespace KvRefSystem {

namespace {

/** Larger pairs are no further from the pole of the transverse aspect, as far as doubles can tell. */
constexpr double FarthestEta = 300;

/**
 * Sines, cosines and their hyperbolic counterparts of 2, 4 and 6 times a Gauss-Lambert pair, by double and
 * triple angles instead of calls.
 */
struct TMultiples {
    /** @param growing exp(2 eta): one exponential serves all the hyperbolic ones. */
    TMultiples(double sin2Xi, double cos2Xi, double growing)
        : Sin2(sin2Xi),
          Cos2(cos2Xi),
          Sin4(2 * Sin2 * Cos2),
          Cos4(2 * Cos2 * Cos2 - 1),
          Sin6(Sin2 * (3 - 4 * Sin2 * Sin2)),
          Cos6(Cos2 * (4 * Cos2 * Cos2 - 3)),
          Sinh2((growing - 1 / growing) / 2),
          Cosh2((growing + 1 / growing) / 2),
          Sinh4(2 * Sinh2 * Cosh2),
          Cosh4(2 * Cosh2 * Cosh2 - 1),
          Sinh6(Sinh2 * (4 * Sinh2 * Sinh2 + 3)),
          Cosh6(Cosh2 * (4 * Cosh2 * Cosh2 - 3)) {}

    TMultiples(double xi, double eta) : TMultiples(std::sin(2 * xi), std::cos(2 * xi), std::exp(2 * eta)) {}

    double Sin2;
    double Cos2;
    double Sin4;
    double Cos4;
    double Sin6;
    double Cos6;
    double Sinh2;
    double Cosh2;
    double Sinh4;
    double Cosh4;
    double Sinh6;
    double Cosh6;
};

/** Three coefficients of a Krueger series, of 2, 4 and 6 times the pair. */
struct TSeries {
    double Xi(TMultiples const& m) const {
        return Sin2 * m.Sin2 * m.Cosh2 + Sin4 * m.Sin4 * m.Cosh4 + Sin6 * m.Sin6 * m.Cosh6;
    }
    double Eta(TMultiples const& m) const {
        return Sin2 * m.Cos2 * m.Sinh2 + Sin4 * m.Cos4 * m.Sinh4 + Sin6 * m.Cos6 * m.Sinh6;
    }

    double Sin2;
    double Sin4;
    double Sin6;
};

} // namespace

TGaussKrugerWideMapProjectionParameters::TGaussKrugerWideMapProjectionParameters(
    double const& centralMeridian, double const& falseEasting, double const& falseNorthing)
    : TGaussKrugerWideMapProjectionParameters(centralMeridian, 1, falseEasting, falseNorthing) {}

TGaussKrugerWideMapProjectionParameters::TGaussKrugerWideMapProjectionParameters(
    double const& centralMeridian, double const& scaleFactor, double const& falseEasting,
    double const& falseNorthing)
    : CentralMeridian(centralMeridian),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing),
      ScaleFactor(scaleFactor) {}

TGaussKrugerWideMapProjection::TGaussKrugerWideMapProjection(
    TEllipsoidSemiAxes const* ellipsoid, TGaussKrugerWideMapProjectionParameters const* parameters)
    : TMapProjection(mptGaussKrugerWide),
      Parameters(nullptr),
      Sphere(std::make_unique<TEllipsoidToSphereMollweideProjection>(ellipsoid->a, ellipsoid->b, 0, 0)) {
    Parameters = new TGaussKrugerWideMapProjectionParameters(*parameters);
    Precalculate(ellipsoid, parameters);
}

TGaussKrugerWideMapProjection::TGaussKrugerWideMapProjection(TGaussKrugerWideMapProjection const& source)
    : TMapProjection(source),
      Parameters(nullptr),
      Sphere(std::make_unique<TEllipsoidToSphereMollweideProjection>(*source.Sphere)),
      RectifyingRadius(source.RectifyingRadius),
      ForwardSin2Coefficient(source.ForwardSin2Coefficient),
      ForwardSin4Coefficient(source.ForwardSin4Coefficient),
      ForwardSin6Coefficient(source.ForwardSin6Coefficient),
      ReverseSin2Coefficient(source.ReverseSin2Coefficient),
      ReverseSin4Coefficient(source.ReverseSin4Coefficient),
      ReverseSin6Coefficient(source.ReverseSin6Coefficient) {
    Parameters = new TGaussKrugerWideMapProjectionParameters(*source.Parameters);
}

TGaussKrugerWideMapProjection::~TGaussKrugerWideMapProjection() {
    delete Parameters;
}

void TGaussKrugerWideMapProjection::Precalculate(TEllipsoidSemiAxes const* ellipsoid,
                                                 TGaussKrugerWideMapProjectionParameters const* parameters) {
    *Parameters = *parameters;
    double const n = (ellipsoid->a - ellipsoid->b) / (ellipsoid->a + ellipsoid->b);
    double const n2 = n * n;
    double const n3 = n2 * n;
    // [Krueger1912, 12, 18, 21]. Kept: cut behind n3, the radius without n4; hosts rely on the numbers of
    // that.
    RectifyingRadius = ellipsoid->a / (1 + n) * (1 + n2 / 4);
    ForwardSin2Coefficient = n / 2 - 2 * n2 / 3 + 5 * n3 / 16;
    ForwardSin4Coefficient = 13 * n2 / 48 - 3 * n3 / 5;
    ForwardSin6Coefficient = 61 * n3 / 240;
    ReverseSin2Coefficient = n / 2 - 2 * n2 / 3 + 37 * n3 / 96;
    ReverseSin4Coefficient = n2 / 48 + n3 / 15;
    ReverseSin6Coefficient = 17 * n3 / 480;
}

void TGaussKrugerWideMapProjection::LambertSphericalToRectangular(double const& chi, double const& lambda,
                                                                  double* xi, double* eta) const {
    double const sinChi = std::sin(chi);
    double const cosChi = std::cos(chi);
    double const east = std::sin(lambda) * cosChi;
    // Kept: the plain arctangent, so that points beyond 90 degrees fold back; hosts rely on that.
    *xi = std::atan(sinChi / cosChi / std::cos(lambda));
    *eta = std::log((1 + east) / (1 - east)) / 2;
}

void TGaussKrugerWideMapProjection::LambertRectangularToSpherical(double const& xi, double const& eta,
                                                                  double* chi, double* lambda) const {
    double const sinXi = std::sin(xi);
    double const cosXi = std::cos(xi);
    double const sinhEta = std::sinh(eta);
    double const coshEta = std::sqrt(1 + sinhEta * sinhEta);
    *chi = std::asin(sinXi / coshEta);
    // Kept: the plain arctangent, as in the forward operation.
    *lambda = std::atan(sinhEta / cosXi);
}

void TGaussKrugerWideMapProjection::LambertToTransverseMercator(double const& xi, double const& eta,
                                                                double* northing, double* easting) const {
    TMultiples const multiples(xi, eta);
    TSeries const series{ForwardSin2Coefficient, ForwardSin4Coefficient, ForwardSin6Coefficient};
    double const north = xi + series.Xi(multiples);
    double const east = eta + series.Eta(multiples);
    *northing = RectifyingRadius * north;
    *easting = RectifyingRadius * east;
}

void TGaussKrugerWideMapProjection::TransverseMercatorToLambert(double const& northing, double const& easting,
                                                                double* xi, double* eta) const {
    double const xi0 = northing / RectifyingRadius;
    double const eta0 = easting / RectifyingRadius;
    TMultiples const multiples(xi0, eta0);
    TSeries const series{ReverseSin2Coefficient, ReverseSin4Coefficient, ReverseSin6Coefficient};
    *xi = xi0 - series.Xi(multiples);
    *eta = eta0 - series.Eta(multiples);
}

void TGaussKrugerWideMapProjection::GeodeticToProjected(TCoords* coords) const {
    // The three steps as the operations above have them, each going on with the sines, cosines and
    // exponentials of the one before instead of the angles.
    double deltaLambda = coords->X - Parameters->CentralMeridian;
    NormalizeLongitude(deltaLambda);
    double const u = Sphere->ConformalTangent(coords->Y);
    double const sinChi = (u * u - 1) / (u * u + 1);
    double const cosChi = 2 * u / (u * u + 1);
    double const across = std::sin(deltaLambda) * cosChi;
    double const along = std::cos(deltaLambda) * cosChi;
    double const squares = sinChi * sinChi + along * along;
    double const growing = (1 + across) / (1 - across);
    TMultiples const multiples(2 * sinChi * along / squares, (along * along - sinChi * sinChi) / squares,
                               growing);
    TSeries const series{ForwardSin2Coefficient, ForwardSin4Coefficient, ForwardSin6Coefficient};
    double const north = RectifyingRadius * (std::atan(sinChi / along) + series.Xi(multiples));
    double const east = RectifyingRadius * (std::log(growing) / 2 + series.Eta(multiples));
    coords->X = east * Parameters->ScaleFactor + Parameters->FalseEasting;
    coords->Y = north * Parameters->ScaleFactor + Parameters->FalseNorthing;
}

void TGaussKrugerWideMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const east = (coords->X - Parameters->FalseEasting) / Parameters->ScaleFactor;
    double const north = (coords->Y - Parameters->FalseNorthing) / Parameters->ScaleFactor;
    double xi = 0;
    double eta = 0;
    TransverseMercatorToLambert(north, east, &xi, &eta);
    double const sinXi = std::sin(xi);
    double const cosXi = std::cos(xi);
    double const growing = std::exp(std::clamp(eta, -FarthestEta, FarthestEta));
    double const sinhEta = (growing - 1 / growing) / 2;
    double const coshEta = (growing + 1 / growing) / 2;
    double const cosChi = std::sqrt(sinhEta * sinhEta + cosXi * cosXi) / coshEta;
    double phi = Sphere->LatitudeOfConformal(sinXi / coshEta, cosChi);
    double lambda = Parameters->CentralMeridian + std::atan(sinhEta / cosXi);
    NormalizeLatitude(phi);
    NormalizeLongitude(lambda);
    coords->X = lambda;
    coords->Y = phi;
}

bool TGaussKrugerWideMapProjection::operator==(TMapProjection const& other) const {
    auto const* const same = AsSameClass(*this, other);
    if (!same) {
        return false;
    }
    TGaussKrugerWideMapProjectionParameters const& one = *Parameters;
    TGaussKrugerWideMapProjectionParameters const& two = *same->Parameters;
    return one.CentralMeridian == two.CentralMeridian && one.FalseEasting == two.FalseEasting &&
           one.FalseNorthing == two.FalseNorthing && one.ScaleFactor == two.ScaleFactor;
}

} // namespace KvRefSystem
