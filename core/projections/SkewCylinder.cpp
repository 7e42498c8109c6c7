#include "core/projections/SkewCylinder.h"

#include "core/projections/IsometricLatitude.h"

#include <cmath>

namespace KvRefSystem {

namespace {

constexpr double HalfPi = 1.5707963267948966;

} // namespace

TSkewCylinder::TSkewCylinder(TEllipsoidSemiAxes const& axes, TSkewCylinderPlace const& place) {
    double const ratio = axes.b / axes.a;
    double const e2 = 1 - ratio * ratio;
    Eccentricity = std::sqrt(e2);
    HalfEccentricity = Eccentricity / 2;
    LatitudeSeries = TConformalLatitudeSeries(e2);

    CentreSine = std::sin(place.LatitudeOfCentre);
    double const squaredSine = CentreSine * CentreSine;
    double const cosinePow4 = squaredSine * squaredSine + 1 - 2 * squaredSine;
    double const root = std::sqrt(1 - e2);
    AposphereConstant = std::sqrt(1 + e2 * cosinePow4 / (1 - e2));
    AposphereRadius = axes.a * place.ScaleFactorOnInitialLine * root / (1 - e2 * squaredSine);
    double const logT0 = LogT(place.LatitudeOfCentre, Eccentricity, HalfEccentricity);
    CentreT = std::exp(logT0);
    CentreD = AposphereConstant * root / (std::cos(place.LatitudeOfCentre) * std::sqrt(1 - e2 * squaredSine));
    double const squaredRoot = CentreD * CentreD - 1;
    CentreRoot = squaredRoot < 0 ? 0 : std::sqrt(squaredRoot);
    CentreSign = (place.LatitudeOfCentre > 0) - (place.LatitudeOfCentre < 0);
    CentreF = CentreD + CentreSign * CentreRoot;
    ScaleH = std::exp(AposphereConstant * logT0) * CentreF;
    InitialAngle = std::asin(std::sin(place.AzimuthOfInitialLine) / CentreD);
    CentreG = (CentreF - 1 / CentreF) / 2;
    NaturalLongitude = place.LongitudeOfCentre - arcsin(CentreG * std::tan(InitialAngle)) / AposphereConstant;
    InitialSine = std::sin(InitialAngle);
    InitialCosine = std::cos(InitialAngle);
    RectifyingSine = std::sin(place.AngleRectifiedToSkewGrid);
    RectifyingCosine = std::cos(place.AngleRectifiedToSkewGrid);
}

TSkewCoordinates TSkewCylinder::Forward(double longitude, double latitude) const {
    double const power = std::exp(AposphereConstant * LogT(latitude, Eccentricity, HalfEccentricity));
    double const q = ScaleH / power;
    double const s = (q - 1 / q) / 2;
    double const t = (q + 1 / q) / 2;
    double const w = AposphereConstant * (longitude - NaturalLongitude);
    double const v = std::sin(w);
    double const u = (s * InitialSine - v * InitialCosine) / t;
    return {AposphereRadius * std::atan((s * InitialCosine + v * InitialSine) / std::cos(w)),
            AposphereRadius * std::log((1 - u) / (1 + u)) / 2};
}

void TSkewCylinder::Reverse(TSkewCoordinates const& skew, TCoords* coords) const {
    double const q = std::exp(-skew.Across / AposphereRadius);
    double const s = (q - 1 / q) / 2;
    double const t = (q + 1 / q) / 2;
    double const angle = skew.Along / AposphereRadius;
    double const v = std::sin(angle);
    double const u = (s * InitialSine + v * InitialCosine) / t;
    double const power = ScaleH / std::sqrt((1 + u) / (1 - u));
    double const chi = HalfPi - 2 * std::atan(std::exp(std::log(power) / AposphereConstant));
    coords->X = NaturalLongitude -
                std::atan2(s * InitialCosine - v * InitialSine, std::cos(angle)) / AposphereConstant;
    coords->Y = LatitudeSeries.Latitude(chi);
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

void TSkewCylinder::Rectify(TSkewCoordinates const& skew, double falseEasting, double falseNorthing,
                            TCoords* coords) const {
    coords->X = skew.Across * RectifyingCosine + skew.Along * RectifyingSine + falseEasting;
    coords->Y = skew.Along * RectifyingCosine - skew.Across * RectifyingSine + falseNorthing;
}

TSkewCoordinates TSkewCylinder::Unrectify(double easting, double northing) const {
    return {northing * RectifyingCosine + easting * RectifyingSine,
            easting * RectifyingCosine - northing * RectifyingSine};
}

} // namespace KvRefSystem
