#include "core/projections/CassiniSoldner.h"

#include <cmath>

namespace KvRefSystem {

namespace {

struct TMultipleAngle {
    double Sine;
    double Cosine;
};

TMultipleAngle Doubled(TMultipleAngle const& angle) {
    return {2 * angle.Sine * angle.Cosine, 1 - 2 * angle.Sine * angle.Sine};
}

} // namespace

TCassiniSoldnerMapProjectionParameters::TCassiniSoldnerMapProjectionParameters(
    double const& latitudeOfOrigin, double const& longitudeOfOrigin, double const& falseEasting,
    double const& falseNorthing)
    : LatitudeOfOrigin(latitudeOfOrigin),
      LongitudeOfOrigin(longitudeOfOrigin),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TCassiniSoldnerMapProjection::TCassiniSoldnerMapProjection(
    TEllipsoidSemiAxes const* ellipsoid, TCassiniSoldnerMapProjectionParameters const* parameters)
    : TMapProjection(mptCassiniSoldner),
      Parameters(new TCassiniSoldnerMapProjectionParameters(*parameters)),
      SemiMajorAxis(ellipsoid->a) {
    double const axisRatio = ellipsoid->b / ellipsoid->a;
    double const e2 = 1 - axisRatio * axisRatio;
    double const e4 = e2 * e2;
    double const e6 = e4 * e2;
    SquaredEccentricity = e2;
    SquaredSecondEccentricity = e2 / (1 - e2);

    Arc0 = SemiMajorAxis * (1 - e2 / 4 - 3 * e4 / 64 - 5 * e6 / 256);
    Arc2 = -SemiMajorAxis * (3 * e2 / 8 + 3 * e4 / 32 + 45 * e6 / 1024);
    Arc4 = SemiMajorAxis * (15 * e4 / 256 + 45 * e6 / 1024);
    Arc6 = -SemiMajorAxis * (35 * e6 / 3072);
    double const phi0 = Parameters->LatitudeOfOrigin;
    OriginArc = MeridianLength(phi0, std::sin(phi0), std::cos(phi0));

    double const root = std::sqrt(1 - e2);
    double const n = (1 - root) / (1 + root);
    double const n2 = n * n;
    double const n3 = n2 * n;
    double const n4 = n2 * n2;
    Footpoint2 = 3 * n / 2 - 27 * n3 / 32;
    Footpoint4 = 21 * n2 / 16 - 55 * n4 / 32;
    Footpoint6 = 151 * n3 / 96;
    Footpoint8 = 1097 * n4 / 512;
}

TCassiniSoldnerMapProjection::TCassiniSoldnerMapProjection(TCassiniSoldnerMapProjection const& source)
    : TMapProjection(source),
      Parameters(new TCassiniSoldnerMapProjectionParameters(*source.Parameters)),
      SemiMajorAxis(source.SemiMajorAxis),
      SquaredEccentricity(source.SquaredEccentricity),
      SquaredSecondEccentricity(source.SquaredSecondEccentricity),
      Arc0(source.Arc0),
      Arc2(source.Arc2),
      Arc4(source.Arc4),
      Arc6(source.Arc6),
      OriginArc(source.OriginArc),
      Footpoint2(source.Footpoint2),
      Footpoint4(source.Footpoint4),
      Footpoint6(source.Footpoint6),
      Footpoint8(source.Footpoint8) {}

TCassiniSoldnerMapProjection::~TCassiniSoldnerMapProjection() {
    delete Parameters;
}

bool TCassiniSoldnerMapProjection::operator==(TMapProjection const& other) const {
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

void TCassiniSoldnerMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const x = coords->X - Parameters->FalseEasting;
    double const mu = (coords->Y - Parameters->FalseNorthing + OriginArc) / Arc0;
    TMultipleAngle const twice = Doubled({std::sin(mu), std::cos(mu)});
    TMultipleAngle const fourfold = Doubled(twice);
    double const sin6Mu = fourfold.Sine * twice.Cosine + fourfold.Cosine * twice.Sine;
    double const sin8Mu = 2 * fourfold.Sine * fourfold.Cosine;
    double const phi1 =
        mu + Footpoint2 * twice.Sine + Footpoint4 * fourfold.Sine + Footpoint6 * sin6Mu + Footpoint8 * sin8Mu;

    double const sinPhi1 = std::sin(phi1);
    double const cosPhi1 = std::cos(phi1);
    double const tanPhi1 = sinPhi1 / cosPhi1;
    double const t1 = tanPhi1 * tanPhi1;
    double const w = 1 - SquaredEccentricity * sinPhi1 * sinPhi1;
    double const d = x * std::sqrt(w) / SemiMajorAxis;
    double const d2 = d * d;
    double const arcRatio = w / (1 - SquaredEccentricity); // of nu to rho
    coords->X =
        Parameters->LongitudeOfOrigin + d * (1 - d2 * t1 * (1.0 / 3 - (1 + 3 * t1) * d2 / 15)) / cosPhi1;
    coords->Y = phi1 - tanPhi1 * arcRatio * d2 * (1.0 / 2 - (1 + 3 * t1) * d2 / 24);
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

void TCassiniSoldnerMapProjection::GeodeticToProjected(TCoords* coords) const {
    double const phi = coords->Y;
    double const sinPhi = std::sin(phi);
    double const cosPhi = std::cos(phi);
    double const tanPhi = sinPhi / cosPhi;
    double const a = (coords->X - Parameters->LongitudeOfOrigin) * cosPhi;
    double const a2 = a * a;
    double const t = tanPhi * tanPhi;
    double const c = SquaredSecondEccentricity * cosPhi * cosPhi;
    double const nu = SemiMajorAxis / std::sqrt(1 - SquaredEccentricity * sinPhi * sinPhi);
    coords->X = Parameters->FalseEasting + nu * a * (1 - t * a2 * (1.0 / 6 + (8 - t + 8 * c) * a2 / 120));
    coords->Y = Parameters->FalseNorthing + MeridianLength(phi, sinPhi, cosPhi) - OriginArc +
                nu * tanPhi * a2 * (1.0 / 2 + (5 - t + 6 * c) * a2 / 24);
}

double TCassiniSoldnerMapProjection::MeridianLength(double phi, double sinPhi, double cosPhi) const {
    TMultipleAngle const twice = Doubled({sinPhi, cosPhi});
    TMultipleAngle const fourfold = Doubled(twice);
    double const sin6Phi = fourfold.Sine * twice.Cosine + fourfold.Cosine * twice.Sine;
    return Arc0 * phi + Arc2 * twice.Sine + Arc4 * fourfold.Sine + Arc6 * sin6Phi;
}

} // namespace KvRefSystem
