#include "core/projections/Polyconic.h"

#include <cmath>

namespace KvRefSystem {

namespace {

/** Latitudes (radians) and northings (semi-major axes) below this are the equator's. */
constexpr double EquatorTolerance = 1e-7;

/** A step of the latitude's iteration (radians) that ends it. */
constexpr double LatitudeTolerance = 1e-11;
constexpr int MostIterations = 20;

struct TMultipleAngles {
    double Sine2;
    double Cosine2;
    double Sine4;
    double Cosine4;
    double Sine6;
    double Cosine6;
};

TMultipleAngles MultipleAngles(double sine, double cosine) {
    double const sine2 = 2 * sine * cosine;
    double const cosine2 = 1 - 2 * sine * sine;
    double const sine4 = 2 * sine2 * cosine2;
    double const cosine4 = 1 - 2 * sine2 * sine2;
    double const sine6 = sine4 * cosine2 + cosine4 * sine2;
    double const cosine6 = cosine4 * cosine2 - sine4 * sine2;
    return {sine2, cosine2, sine4, cosine4, sine6, cosine6};
}

} // namespace

TPolyconicMapProjectionParameters::TPolyconicMapProjectionParameters(double const& longitudeOfOrigin,
                                                                     double const& latitudeOfOrigin,
                                                                     double const& scaleFactor,
                                                                     double const& falseEasting,
                                                                     double const& falseNorthing)
    : LongitudeOfOrigin(longitudeOfOrigin),
      LatitudeOfOrigin(latitudeOfOrigin),
      ScaleFactor(scaleFactor),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TPolyconicMapProjection::TPolyconicMapProjection(TEllipsoidSemiAxes const* ellipsoid,
                                                 TPolyconicMapProjectionParameters const* parameters)
    : TMapProjection(mptPolyconic),
      Parameters(new TPolyconicMapProjectionParameters(*parameters)),
      SemiMajorAxis(ellipsoid->a),
      SemiMinorAxis(ellipsoid->b) {
    double const axisRatio = SemiMinorAxis / SemiMajorAxis;
    double const e2 = 1 - axisRatio * axisRatio;
    double const e4 = e2 * e2;
    double const e6 = e4 * e2;
    SquaredEccentricity = e2;
    FourthEccentricity = e4;
    SixthEccentricity = e6;
    Arc0 = 1 - e2 / 4 - 3 * e4 / 64 - 5 * e6 / 256;
    Arc2 = 3 * e2 / 8 + 3 * e4 / 32 + 45 * e6 / 1024;
    Arc4 = 15 * e4 / 256 + 45 * e6 / 1024;
    Arc6 = 35 * e6 / 3072;
    OriginArc = meridian_length(Parameters->LatitudeOfOrigin);
}

TPolyconicMapProjection::TPolyconicMapProjection(TPolyconicMapProjection const& source)
    : TMapProjection(source),
      Parameters(new TPolyconicMapProjectionParameters(*source.Parameters)),
      SemiMajorAxis(source.SemiMajorAxis),
      SemiMinorAxis(source.SemiMinorAxis),
      SquaredEccentricity(source.SquaredEccentricity),
      FourthEccentricity(source.FourthEccentricity),
      SixthEccentricity(source.SixthEccentricity),
      Arc0(source.Arc0),
      Arc2(source.Arc2),
      Arc4(source.Arc4),
      Arc6(source.Arc6),
      OriginArc(source.OriginArc) {}

TPolyconicMapProjection::~TPolyconicMapProjection() {
    delete Parameters;
}

bool TPolyconicMapProjection::operator==(TMapProjection const& other) const {
    auto const* const same = AsSameClass(*this, other);
    if (!same) {
        return false;
    }
    auto const& theirs = *same->Parameters;
    return Parameters->LongitudeOfOrigin == theirs.LongitudeOfOrigin &&
           Parameters->LatitudeOfOrigin == theirs.LatitudeOfOrigin &&
           Parameters->ScaleFactor == theirs.ScaleFactor && Parameters->FalseEasting == theirs.FalseEasting &&
           Parameters->FalseNorthing == theirs.FalseNorthing;
}

void TPolyconicMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const x = (coords->X - Parameters->FalseEasting) / Parameters->ScaleFactor / SemiMajorAxis;
    double const a =
        (coords->Y - Parameters->FalseNorthing) / Parameters->ScaleFactor / SemiMajorAxis + OriginArc;
    if (std::fabs(a) < EquatorTolerance) {
        coords->X = x + Parameters->LongitudeOfOrigin;
        coords->Y = 0;
        NormalizeLongitude(coords->X);
        return;
    }

    double const b = x * x + a * a;
    double phi = a;
    double c = 0;
    double sinPhi = 0;
    for (int pass = 0; pass < MostIterations; ++pass) {
        // [Snyder87, 18-21]
        sinPhi = std::sin(phi);
        double const cosPhi = std::cos(phi);
        double const sinCos = sinPhi * cosPhi;
        c = sinPhi / cosPhi * std::sqrt(1 - SquaredEccentricity * sinPhi * sinPhi);
        double const m = MeridianLength(phi, sinPhi, cosPhi);
        double const derivative = MeridianLengthDerivative(sinPhi, cosPhi);
        double const square = m * m + b;
        double const step = (2 * m + c * square - 2 * a * (c * m + 1)) /
                            (2 * (a - m) * (c * derivative - 1 / sinCos) - 2 * derivative +
                             (square - 2 * a * m) * SquaredEccentricity * sinCos / c);
        phi += step;
        if (std::fabs(step) <= LatitudeTolerance) {
            break;
        }
    }

    coords->X = Parameters->LongitudeOfOrigin + arcsin(x * c) / sinPhi;
    coords->Y = phi;
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

void TPolyconicMapProjection::GeodeticToProjected(TCoords* coords) const {
    double const phi = coords->Y;
    double difference = coords->X - Parameters->LongitudeOfOrigin;
    NormalizeLongitude(difference);

    double x = SemiMajorAxis * difference;
    double y = -OriginArc; // Kept: not times the semi-major axis.
    if (!(std::fabs(phi) < EquatorTolerance)) {
        double const sinPhi = std::sin(phi);
        double const cosPhi = std::cos(phi);
        double const g =
            SemiMajorAxis * (cosPhi / sinPhi) / std::sqrt(1 - SquaredEccentricity * sinPhi * sinPhi);
        double const e = difference * sinPhi;
        x = g * std::sin(e);
        y = SemiMajorAxis * (MeridianLength(phi, sinPhi, cosPhi) - OriginArc) + g * (1 - std::cos(e));
    }
    coords->X = x * Parameters->ScaleFactor + Parameters->FalseEasting;
    coords->Y = y * Parameters->ScaleFactor + Parameters->FalseNorthing;
}

double TPolyconicMapProjection::meridian_length(double phi) const {
    return MeridianLength(phi, std::sin(phi), std::cos(phi));
}

double TPolyconicMapProjection::dmeridian_length_dphi(double phi) const {
    return MeridianLengthDerivative(std::sin(phi), std::cos(phi));
}

double TPolyconicMapProjection::MeridianLength(double phi, double sinPhi, double cosPhi) const {
    TMultipleAngles const of = MultipleAngles(sinPhi, cosPhi);
    return Arc0 * phi - Arc2 * of.Sine2 + Arc4 * of.Sine4 - Arc6 * of.Sine6;
}

double TPolyconicMapProjection::MeridianLengthDerivative(double sinPhi, double cosPhi) const {
    TMultipleAngles const of = MultipleAngles(sinPhi, cosPhi);
    return Arc0 - 2 * Arc2 * of.Cosine2 + 4 * Arc4 * of.Cosine4 - 6 * Arc6 * of.Cosine6;
}

} // namespace KvRefSystem
