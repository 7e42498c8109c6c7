#include "core/projections/Krovak.h"

#include <cmath>

namespace KvRefSystem {

namespace {

constexpr double QuarterPi = 0.78539816339744828;

/** Two passes of the latitude's iteration that differ by less (radians) end it. */
constexpr double LatitudeTolerance = 1e-10;
constexpr int MostIterations = 30;

struct TSineCosine {
    double Sine;
    double Cosine;
};

/** Sine and cosine of 2 (atan(tangent) - pi / 4), which saves the three functions. */
TSineCosine OfTwiceArctangent(double tangent) {
    if (tangent > 1) {
        double const inverse = 1 / tangent; // an infinite tangent stands for the axis
        double const square = inverse * inverse;
        return {(1 - square) / (1 + square), 2 * inverse / (1 + square)};
    }
    double const square = tangent * tangent;
    return {(square - 1) / (1 + square), 2 * tangent / (1 + square)};
}

} // namespace

TKrovakMapProjectionParameters::TKrovakMapProjectionParameters(
    double const& latitudeOfCentre, double const& longitudeOfOrigin, double const& azimuthOfInitialLine,
    double const& latitudeOfPseudoStandardParallel, double const& scaleFactor, double const& falseEasting,
    double const& falseNorthing)
    : LatitudeOfCentre(latitudeOfCentre),
      LongitudeOfOrigin(longitudeOfOrigin),
      AzimuthOfInitialLine(azimuthOfInitialLine),
      LatitudeOfPseudoStandardParallel(latitudeOfPseudoStandardParallel),
      ScaleFactor(scaleFactor),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TKrovakMapProjection::TKrovakMapProjection(TEllipsoidSemiAxes const* ellipsoid,
                                           TKrovakMapProjectionParameters const* parameters)
    : TMapProjection(mptKrovak), Parameters(new TKrovakMapProjectionParameters(*parameters)) {
    double const axisRatio = ellipsoid->b / ellipsoid->a;
    double const e2 = 1 - axisRatio * axisRatio;
    double const phiC = Parameters->LatitudeOfCentre;
    double const phiP = Parameters->LatitudeOfPseudoStandardParallel;
    double const sinPhiC = std::sin(phiC);
    double const cosPhiC = std::cos(phiC);
    double const cos2PhiC = cosPhiC * cosPhiC;

    Eccentricity = std::sqrt(e2);
    HalfEccentricity = Eccentricity / 2;
    double const radius = ellipsoid->a * std::sqrt(1 - e2) / (1 - e2 * sinPhiC * sinPhiC);
    LongitudeRatio = std::sqrt(1 + e2 * cos2PhiC * cos2PhiC / (1 - e2));
    double const gamma0 = std::asin(sinPhiC / LongitudeRatio);
    double const ratio = (1 + Eccentricity * sinPhiC) / (1 - Eccentricity * sinPhiC);
    SphereConstant =
        std::tan(QuarterPi + gamma0 / 2) *
        std::pow(std::pow(ratio, HalfEccentricity) / std::tan(QuarterPi + phiC / 2), LongitudeRatio);
    ConeConstant = std::sin(phiP);
    ConeRadius = Parameters->ScaleFactor * radius / std::tan(phiP);
    ConeTangent = std::tan(phiP / 2 + QuarterPi);
    SinAzimuth = std::sin(Parameters->AzimuthOfInitialLine);
    CosAzimuth = std::cos(Parameters->AzimuthOfInitialLine);
}

TKrovakMapProjection::TKrovakMapProjection(TKrovakMapProjection const& source)
    : TMapProjection(source),
      Parameters(new TKrovakMapProjectionParameters(*source.Parameters)),
      Eccentricity(source.Eccentricity),
      HalfEccentricity(source.HalfEccentricity),
      LongitudeRatio(source.LongitudeRatio),
      SphereConstant(source.SphereConstant),
      ConeConstant(source.ConeConstant),
      ConeRadius(source.ConeRadius),
      ConeTangent(source.ConeTangent),
      SinAzimuth(source.SinAzimuth),
      CosAzimuth(source.CosAzimuth) {}

TKrovakMapProjection::~TKrovakMapProjection() {
    delete Parameters;
}

bool TKrovakMapProjection::operator==(TMapProjection const& other) const {
    auto const* const same = AsSameClass(*this, other);
    if (!same) {
        return false;
    }
    auto const& theirs = *same->Parameters;
    return Parameters->LatitudeOfCentre == theirs.LatitudeOfCentre &&
           Parameters->LongitudeOfOrigin == theirs.LongitudeOfOrigin &&
           Parameters->AzimuthOfInitialLine == theirs.AzimuthOfInitialLine &&
           Parameters->LatitudeOfPseudoStandardParallel == theirs.LatitudeOfPseudoStandardParallel &&
           Parameters->ScaleFactor == theirs.ScaleFactor && Parameters->FalseEasting == theirs.FalseEasting &&
           Parameters->FalseNorthing == theirs.FalseNorthing;
}

void TKrovakMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    // Kept: the forward turns the sign after adding the false values, the reverse still subtracts them.
    double const x = coords->X - Parameters->FalseEasting;
    double const y = coords->Y - Parameters->FalseNorthing;
    double const r = std::sqrt(x * x + y * y);
    double const obliqueLongitude = std::atan2(-x, -y) / ConeConstant; // D
    double const sinD = std::sin(obliqueLongitude);
    double const cosD = std::cos(obliqueLongitude);
    TSineCosine const oblique =
        OfTwiceArctangent(ConeTangent * std::pow(ConeRadius / r, 1 / ConeConstant)); // T

    double const sphereLatitude =
        std::asin(CosAzimuth * oblique.Sine - SinAzimuth * oblique.Cosine * cosD);              // U
    double const sphereLongitude = std::asin(sinD * oblique.Cosine / std::cos(sphereLatitude)); // V

    double const tangent =
        std::pow(std::tan(sphereLatitude / 2 + QuarterPi) / SphereConstant, 1 / LongitudeRatio);
    double phi = sphereLatitude;
    for (int pass = 0; pass < MostIterations; ++pass) {
        double const s = Eccentricity * std::sin(phi);
        double const ratio = std::exp(HalfEccentricity * std::log((1 + s) / (1 - s)));
        double const next = 2 * (std::atan(ratio * tangent) - QuarterPi);
        double const step = next - phi;
        phi = next;
        if (std::fabs(step) < LatitudeTolerance) {
            break;
        }
    }

    coords->X = Parameters->LongitudeOfOrigin - sphereLongitude / LongitudeRatio;
    coords->Y = phi;
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

void TKrovakMapProjection::GeodeticToProjected(TCoords* coords) const {
    double const phi = coords->Y;
    double const sphereLongitude = LongitudeRatio * (Parameters->LongitudeOfOrigin - coords->X); // V
    double const s = Eccentricity * std::sin(phi);
    double const isometric =
        std::log(std::tan(phi / 2 + QuarterPi)) - HalfEccentricity * std::log((1 + s) / (1 - s));
    TSineCosine const sphere = OfTwiceArctangent(SphereConstant * std::exp(LongitudeRatio * isometric)); // U

    double const sinV = std::sin(sphereLongitude);
    double const cosV = std::cos(sphereLongitude);
    double const obliqueLatitude =
        std::asin(CosAzimuth * sphere.Sine + SinAzimuth * sphere.Cosine * cosV);                 // T
    double const obliqueLongitude = std::asin(sphere.Cosine * sinV / std::cos(obliqueLatitude)); // D

    double const theta = ConeConstant * obliqueLongitude;
    double const r =
        ConeRadius * std::pow(ConeTangent / std::tan(obliqueLatitude / 2 + QuarterPi), ConeConstant);
    double const sinTheta = std::sin(theta);
    double const cosTheta = std::cos(theta);
    coords->X = -(r * sinTheta + Parameters->FalseEasting);
    coords->Y = -(r * cosTheta + Parameters->FalseNorthing);
}

} // namespace KvRefSystem
