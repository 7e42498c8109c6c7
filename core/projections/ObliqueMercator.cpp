#include "core/projections/ObliqueMercator.h"

#include <cmath>

namespace KvRefSystem {

namespace {

/** Cosines of the azimuth up to this are those of 90 degrees. */
constexpr double CosineOfRightAngle = 1e-15;

template <class Parameters>
TSkewCylinderPlace PlaceOf(Parameters const& parameters) {
    return {parameters.LatitudeOfCentre, parameters.LongitudeOfCentre, parameters.AzimuthOfInitialLine,
            parameters.AngleRectifiedToSkewGrid, parameters.ScaleFactor};
}

template <class Parameters>
bool SamePlace(Parameters const& first, Parameters const& second) {
    return first.LatitudeOfCentre == second.LatitudeOfCentre &&
           first.LongitudeOfCentre == second.LongitudeOfCentre &&
           first.AzimuthOfInitialLine == second.AzimuthOfInitialLine &&
           first.AngleRectifiedToSkewGrid == second.AngleRectifiedToSkewGrid &&
           first.ScaleFactor == second.ScaleFactor;
}

} // namespace

// --- From the natural origin -------------------------------------------------------------------------------

THotineObliqueMercatorMapProjectionParameters::THotineObliqueMercatorMapProjectionParameters(
    double const& latitudeOfCentre, double const& longitudeOfCentre, double const& azimuthOfInitialLine,
    double const& angleRectifiedToSkewGrid, double const& scaleFactor, double const& falseEasting,
    double const& falseNorthing)
    : LatitudeOfCentre(latitudeOfCentre),
      LongitudeOfCentre(longitudeOfCentre),
      AzimuthOfInitialLine(azimuthOfInitialLine),
      AngleRectifiedToSkewGrid(angleRectifiedToSkewGrid),
      ScaleFactor(scaleFactor),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

THotineObliqueMercatorMapProjectionParameters::THotineObliqueMercatorMapProjectionParameters(
    THotineObliqueMercatorMapProjectionParameters const& source) = default;

THotineObliqueMercatorMapProjection::THotineObliqueMercatorMapProjection(
    TEllipsoidSemiAxes const* axes, THotineObliqueMercatorMapProjectionParameters const* parameters)
    : TMapProjection(mptHotineObliqueMercator),
      Parameters(parameters ? new THotineObliqueMercatorMapProjectionParameters(*parameters) : nullptr) {
    if (!Parameters) {
        return;
    }
    Cylinder = TSkewCylinder(*axes, PlaceOf(*Parameters));
}

THotineObliqueMercatorMapProjection::THotineObliqueMercatorMapProjection(
    THotineObliqueMercatorMapProjection const& source)
    : TMapProjection(mptHotineObliqueMercator),
      Parameters(source.Parameters ? new THotineObliqueMercatorMapProjectionParameters(*source.Parameters)
                                   : nullptr),
      Cylinder(source.Cylinder) {}

THotineObliqueMercatorMapProjection::~THotineObliqueMercatorMapProjection() {
    delete Parameters;
}

void THotineObliqueMercatorMapProjection::GeodeticToProjected(TCoords* coords) const {
    TSkewCoordinates const skew = Cylinder.Forward(coords->X, coords->Y);
    Cylinder.Rectify(skew, Parameters->FalseEasting, Parameters->FalseNorthing, coords);
}

void THotineObliqueMercatorMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    TSkewCoordinates const skew =
        Cylinder.Unrectify(coords->X - Parameters->FalseEasting, coords->Y - Parameters->FalseNorthing);
    Cylinder.Reverse(skew, coords);
}

bool THotineObliqueMercatorMapProjection::operator==(TMapProjection const& other) const {
    auto const* const projection = AsSameClass(*this, other);
    if (!projection) {
        return false;
    }
    auto const* const second = projection->Parameters;
    if (!Parameters || !second) {
        return Parameters == second;
    }
    return SamePlace(*Parameters, *second) && Parameters->FalseEasting == second->FalseEasting &&
           Parameters->FalseNorthing == second->FalseNorthing;
}

// --- From the centre ---------------------------------------------------------------------------------------

TObliqueMercatorMapProjectionParameters::TObliqueMercatorMapProjectionParameters(
    double const& latitudeOfCentre, double const& longitudeOfCentre, double const& azimuthOfInitialLine,
    double const& angleRectifiedToSkewGrid, double const& scaleFactor, double const& eastingAtCentre,
    double const& northingAtCentre)
    : LatitudeOfCentre(latitudeOfCentre),
      LongitudeOfCentre(longitudeOfCentre),
      AzimuthOfInitialLine(azimuthOfInitialLine),
      AngleRectifiedToSkewGrid(angleRectifiedToSkewGrid),
      ScaleFactor(scaleFactor),
      EastingAtCentre(eastingAtCentre),
      NorthingAtCentre(northingAtCentre) {}

TObliqueMercatorMapProjectionParameters::TObliqueMercatorMapProjectionParameters(
    TObliqueMercatorMapProjectionParameters const& source) = default;

TObliqueMercatorMapProjection::TObliqueMercatorMapProjection(
    TEllipsoidSemiAxes const* axes, TObliqueMercatorMapProjectionParameters const* parameters)
    : TMapProjection(mptObliqueMercator),
      Parameters(parameters ? new TObliqueMercatorMapProjectionParameters(*parameters) : nullptr) {
    if (!Parameters) {
        return;
    }
    Cylinder = TSkewCylinder(*axes, PlaceOf(*Parameters));
    ApospherePerRadian = Cylinder.AposphereRadius * Cylinder.AposphereConstant;
    AzimuthCosine = std::cos(Parameters->AzimuthOfInitialLine);
    CentreAlong =
        std::fabs(AzimuthCosine) > CosineOfRightAngle
            ? Cylinder.CentreSign * Cylinder.AposphereRadius * std::atan(Cylinder.CentreRoot / AzimuthCosine)
            : ApospherePerRadian * (Parameters->LongitudeOfCentre - Cylinder.NaturalLongitude);
}

TObliqueMercatorMapProjection::TObliqueMercatorMapProjection(TObliqueMercatorMapProjection const& source)
    : TMapProjection(mptObliqueMercator),
      Parameters(source.Parameters ? new TObliqueMercatorMapProjectionParameters(*source.Parameters)
                                   : nullptr),
      Cylinder(source.Cylinder),
      ApospherePerRadian(source.ApospherePerRadian),
      CentreAlong(source.CentreAlong),
      AzimuthCosine(source.AzimuthCosine) {}

TObliqueMercatorMapProjection::~TObliqueMercatorMapProjection() {
    delete Parameters;
}

void TObliqueMercatorMapProjection::GeodeticToProjected(TCoords* coords) const {
    TSkewCoordinates skew = Cylinder.Forward(coords->X, coords->Y);
    double const offset = Cylinder.CentreSign * std::fabs(CentreAlong);
    // No absolute value here: an azimuth over 90 degrees goes by the side of the centre's meridian.
    if (AzimuthCosine > CosineOfRightAngle) {
        skew.Along -= offset;
    } else {
        double const difference = Parameters->LongitudeOfCentre - coords->X;
        if (difference == 0) {
            skew.Along = 0;
        } else {
            skew.Along -= difference > 0 ? offset : -offset;
        }
    }
    Cylinder.Rectify(skew, Parameters->EastingAtCentre, Parameters->NorthingAtCentre, coords);
}

void TObliqueMercatorMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    TSkewCoordinates skew =
        Cylinder.Unrectify(coords->X - Parameters->EastingAtCentre, coords->Y - Parameters->NorthingAtCentre);
    skew.Along += Cylinder.CentreSign * std::fabs(CentreAlong);
    Cylinder.Reverse(skew, coords);
}

bool TObliqueMercatorMapProjection::operator==(TMapProjection const& other) const {
    auto const* const projection = AsSameClass(*this, other);
    if (!projection) {
        return false;
    }
    auto const* const second = projection->Parameters;
    if (!Parameters || !second) {
        return Parameters == second;
    }
    return SamePlace(*Parameters, *second) && Parameters->EastingAtCentre == second->EastingAtCentre &&
           Parameters->NorthingAtCentre == second->NorthingAtCentre;
}

} // namespace KvRefSystem
