#include "core/projections/ObliqueStereographic.h"

#include <cmath>

namespace KvRefSystem {

namespace {

constexpr double QuarterPi = 0.7853981633974483;
constexpr double HalfPi = 1.5707963267948966;

/** The iteration of the latitude: its greatest number of steps, and the step (radians) that ends it. */
constexpr int LatitudeSteps = 100;
constexpr double LastLatitudeStep = 1e-9;

/** ((1 + s)/(1 - s) ((1 - es)/(1 + es))^e)^n of a latitude with the sine s. */
double LatitudePower(double sinPhi, double e, double n) {
    double const eSinPhi = e * sinPhi;
    return std::exp(n *
                    (std::log((1 + sinPhi) / (1 - sinPhi)) + e * std::log((1 - eSinPhi) / (1 + eSinPhi))));
}

/** Natural logarithm of tan(phi/2 + pi/4), from the sine and cosine of phi. */
double LogTanHalf(double sinPhi, double cosPhi) {
    // The form without a difference of nearly equal numbers.
    return std::log(sinPhi < 0 ? cosPhi / (1 - sinPhi) : (1 + sinPhi) / cosPhi);
}

} // namespace

TObliqueStereographicMapProjectionParameters::TObliqueStereographicMapProjectionParameters(
    double const& longitudeOfOrigin, double const& latitudeOfOrigin, double const& scaleFactor,
    double const& falseEasting, double const& falseNorthing)
    : LongitudeOfOrigin(longitudeOfOrigin),
      LatitudeOfOrigin(latitudeOfOrigin),
      ScaleFactor(scaleFactor),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TObliqueStereographicMapProjection::TObliqueStereographicMapProjection(
    TEllipsoidSemiAxes const* semiAxes, TObliqueStereographicMapProjectionParameters const* parameters)
    : TMapProjection(mptObliqueStereographic),
      Parameters(new TObliqueStereographicMapProjectionParameters(*parameters)),
      SemiMajorAxis(semiAxes->a),
      SemiMinorAxis(semiAxes->b),
      Eccentricity(std::sqrt(1 - (SemiMinorAxis / SemiMajorAxis) * (SemiMinorAxis / SemiMajorAxis))),
      SquaredEccentricity(Eccentricity * Eccentricity) {
    double const e2 = SquaredEccentricity;
    double const s = std::sin(Parameters->LatitudeOfOrigin);
    double const nu = SemiMajorAxis / std::sqrt(1 - e2 * s * s);
    double const rho = (1 - e2) * nu / (1 - e2 * s * s);
    SphereRadius = std::sqrt(rho * nu);
    double const n = std::sqrt(1 + e2 * (1 - s * s) * (1 - s * s) / (1 - e2));
    LongitudeRatio = n;
    double const w1 = LatitudePower(s, Eccentricity, n);
    double const sinChi = (w1 - 1) / (w1 + 1);
    SphereConstant = (n + s) * (1 - sinChi) / ((n - s) * (1 + sinChi));
    double const w2 = SphereConstant * w1;
    SinSphereLatitude = (w2 - 1) / (w2 + 1);
    SphereLatitude = std::asin(SinSphereLatitude);
    CosSphereLatitude = std::cos(SphereLatitude);
    MapDiameter = 2 * SphereRadius * Parameters->ScaleFactor;
    ReverseOriginShift = MapDiameter * std::tan(QuarterPi - SphereLatitude / 2);
    ReverseAntipodeShift = 2 * MapDiameter * SinSphereLatitude / CosSphereLatitude + ReverseOriginShift;
}

TObliqueStereographicMapProjection::TObliqueStereographicMapProjection(
    TObliqueStereographicMapProjection const& source)
    : TMapProjection(source),
      Parameters(new TObliqueStereographicMapProjectionParameters(*source.Parameters)),
      SemiMajorAxis(source.SemiMajorAxis),
      SemiMinorAxis(source.SemiMinorAxis),
      Eccentricity(source.Eccentricity),
      SquaredEccentricity(source.SquaredEccentricity),
      SphereRadius(source.SphereRadius),
      LongitudeRatio(source.LongitudeRatio),
      SphereConstant(source.SphereConstant),
      SphereLatitude(source.SphereLatitude),
      SinSphereLatitude(source.SinSphereLatitude),
      CosSphereLatitude(source.CosSphereLatitude),
      MapDiameter(source.MapDiameter),
      ReverseOriginShift(source.ReverseOriginShift),
      ReverseAntipodeShift(source.ReverseAntipodeShift) {}

TObliqueStereographicMapProjection::~TObliqueStereographicMapProjection() {
    delete Parameters;
}

bool TObliqueStereographicMapProjection::operator==(TMapProjection const& other) const {
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

void TObliqueStereographicMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const x = coords->X - Parameters->FalseEasting;
    double const y = coords->Y - Parameters->FalseNorthing;
    double const i = std::atan2(x, ReverseAntipodeShift + y);
    double const j = std::atan2(x, ReverseOriginShift - y) - i;
    double const sphereLongitude = j + 2 * i;
    double const chi = SphereLatitude + 2 * std::atan2(y - x * std::tan(j / 2), MapDiameter);
    double const sinChi = std::sin(chi);
    double const psi = std::log((1 + sinChi) / ((1 - sinChi) * SphereConstant)) / (2 * LongitudeRatio);
    double phi = 2 * std::atan(std::exp(psi)) - HalfPi;
    for (int step = 0; step < LatitudeSteps; ++step) {
        double const sinPhi = std::sin(phi);
        double const cosPhi = std::cos(phi);
        double const s = Eccentricity * sinPhi;
        double const psiOfStep = LogTanHalf(sinPhi, cosPhi) + Eccentricity / 2 * std::log((1 - s) / (1 + s));
        double const delta = (psiOfStep - psi) * cosPhi * (1 - s * s) / (1 - SquaredEccentricity);
        phi -= delta;
        if (std::fabs(delta) <= LastLatitudeStep) {
            break;
        }
    }
    double longitude = sphereLongitude / LongitudeRatio + Parameters->LongitudeOfOrigin;
    NormalizeLatitude(phi);
    NormalizeLongitude(longitude);
    coords->X = longitude;
    coords->Y = phi;
}

void TObliqueStereographicMapProjection::GeodeticToProjected(TCoords* coords) const {
    double deltaLambda = coords->X - Parameters->LongitudeOfOrigin;
    NormalizeLongitude(deltaLambda);
    double const sphereLongitude = LongitudeRatio * deltaLambda;
    double const sinLongitude = std::sin(sphereLongitude);
    double const cosLongitude = std::cos(sphereLongitude);
    double const w = SphereConstant * LatitudePower(std::sin(coords->Y), Eccentricity, LongitudeRatio);
    double const sinChi = (w - 1) / (w + 1);
    double const cosChi = std::sqrt((1 - sinChi) * (1 + sinChi));
    double const scale =
        MapDiameter / (1 + SinSphereLatitude * sinChi + CosSphereLatitude * cosChi * cosLongitude);
    coords->X = Parameters->FalseEasting + scale * cosChi * sinLongitude;
    coords->Y = Parameters->FalseNorthing +
                scale * (sinChi * CosSphereLatitude - cosChi * SinSphereLatitude * cosLongitude);
}

} // namespace KvRefSystem
