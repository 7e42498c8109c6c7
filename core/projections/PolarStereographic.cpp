#include "core/projections/PolarStereographic.h"

#include <cmath>
#include <stdexcept>

namespace KvRefSystem {

namespace {

constexpr double QuarterPi = 0.7853981633974483;
constexpr double HalfPi = 1.5707963267948966;

/** @param where operation, the whole text of the error. @throws std::logic_error for what is neither pole. */
bool IsNorth(TPole pole, char const* where) {
    if (pole == poleNorth) {
        return true;
    }
    if (pole == poleSouth) {
        return false;
    }
    throw std::logic_error(where);
}

/**
 * t of the method, for the north pole [Snyder87, 15-9]; the south pole's is that of the latitude with the
 * other sign.
 *
 * @param phi geodetic latitude (radians).
 */
double IsometricColatitude(TPolarStereographicConstants const& constants, double phi) {
    // The sine of the latitude is the cosine of twice the half colatitude: one pair serves both factors.
    double const halfColatitude = QuarterPi - phi / 2;
    double const sine = std::sin(halfColatitude);
    double const cosine = std::cos(halfColatitude);
    double const eSinPhi = constants.Eccentricity * ((cosine - sine) * (cosine + sine));
    return sine / cosine * std::exp(constants.HalfEccentricity * std::log((1 + eSinPhi) / (1 - eSinPhi)));
}

/** The square root in the method's radius [Snyder87, 21-33]. */
double PolarRadiusRoot(double e) {
    return std::sqrt(std::pow(1 + e, 1 + e) * std::pow(1 - e, 1 - e));
}

/** mc of the method: radius of a parallel over the semi-major axis [Snyder87, 14-15]. */
double ParallelRadiusRatio(double phi, double e) {
    double const sinPhi = std::sin(phi);
    return std::cos(phi) / std::sqrt(1 - e * e * sinPhi * sinPhi);
}

/** @return latitude (radians) of a point at a distance (metres) from the pole. */
double LatitudeAt(TPolarStereographicConstants const& constants, double x, double y, bool north) {
    double const t = constants.InverseRadiusFactor * std::sqrt(x * x + y * y);
    double const chi = north ? HalfPi - 2 * std::atan(t) : 2 * std::atan(t) - HalfPi;
    return constants.Series.Latitude(chi);
}

/** Forward, of the classes with a pole. */
template <class Parameters>
void Project(Parameters const& parameters, TPolarStereographicConstants const& constants, char const* where,
             TCoords* coords) {
    bool const north = IsNorth(parameters.Pole, where);
    double const deltaLambda = coords->X - parameters.LongitudeOfOrigin;
    double const rho =
        IsometricColatitude(constants, north ? coords->Y : -coords->Y) / constants.InverseRadiusFactor;
    double const alongOrigin = rho * std::cos(deltaLambda);
    coords->X = parameters.FalseEasting + rho * std::sin(deltaLambda);
    coords->Y = north ? parameters.FalseNorthing - alongOrigin : parameters.FalseNorthing + alongOrigin;
}

/** Reverse, of the classes with a pole. */
template <class Parameters>
void Unproject(Parameters const& parameters, TPolarStereographicConstants const& constants, char const* where,
               TCoords* coords) {
    double const x = coords->X - parameters.FalseEasting;
    double const y = coords->Y - parameters.FalseNorthing;
    double latitude = LatitudeAt(constants, x, y, IsNorth(parameters.Pole, where));
    double longitude = parameters.LongitudeOfOrigin;
    if (x != 0) { // Kept: on that line the longitude is that of the origin, also beyond the pole.
        longitude += std::atan2(x, IsNorth(parameters.Pole, where) ? -y : y);
    }
    NormalizeLatitude(latitude);
    NormalizeLongitude(longitude);
    coords->X = longitude;
    coords->Y = latitude;
}

} // namespace

TPolarStereographicConstants::TPolarStereographicConstants(TEllipsoidSemiAxes const& semiAxes)
    : SemiMajorAxis(semiAxes.a),
      SemiMinorAxis(semiAxes.b),
      Eccentricity(std::sqrt(1 - (semiAxes.b / semiAxes.a) * (semiAxes.b / semiAxes.a))),
      HalfEccentricity(Eccentricity / 2),
      Series(Eccentricity * Eccentricity),
      InverseRadiusFactor(0) {}

// --- North pole, scale factor ------------------------------------------------------------------------------

TPolarStereographicMapProjectionParameters::TPolarStereographicMapProjectionParameters(
    double const& longitudeOfOrigin, double const& latitudeOfOrigin, double const& scaleFactor,
    double const& falseEasting, double const& falseNorthing)
    : LongitudeOfOrigin(longitudeOfOrigin),
      LatitudeOfOrigin(latitudeOfOrigin),
      ScaleFactor(scaleFactor),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TPolarStereographicMapProjection::TPolarStereographicMapProjection(
    TEllipsoidSemiAxes const* semiAxes, TPolarStereographicMapProjectionParameters const* parameters)
    : TMapProjection(mptPolarStereographic),
      Parameters(new TPolarStereographicMapProjectionParameters(*parameters)),
      Constants(*semiAxes) {
    Constants.InverseRadiusFactor =
        PolarRadiusRoot(Constants.Eccentricity) / (2 * Constants.SemiMajorAxis * Parameters->ScaleFactor);
}

TPolarStereographicMapProjection::TPolarStereographicMapProjection(
    TPolarStereographicMapProjection const& source)
    : TMapProjection(source),
      Parameters(new TPolarStereographicMapProjectionParameters(*source.Parameters)),
      Constants(source.Constants) {}

TPolarStereographicMapProjection::~TPolarStereographicMapProjection() {
    delete Parameters;
}

bool TPolarStereographicMapProjection::operator==(TMapProjection const& other) const {
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

void TPolarStereographicMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const x = coords->X - Parameters->FalseEasting;
    double const y = coords->Y - Parameters->FalseNorthing;
    double latitude = LatitudeAt(Constants, x, y, true);
    // Kept: no rule for the pole. The minus of a zero northing turns its longitude by half a circle.
    double longitude = std::atan2(x, -y) + Parameters->LongitudeOfOrigin;
    NormalizeLatitude(latitude);
    NormalizeLongitude(longitude);
    coords->X = longitude;
    coords->Y = latitude;
}

void TPolarStereographicMapProjection::GeodeticToProjected(TCoords* coords) const {
    double const deltaLambda = coords->X - Parameters->LongitudeOfOrigin;
    double const rho = IsometricColatitude(Constants, coords->Y) / Constants.InverseRadiusFactor;
    coords->X = Parameters->FalseEasting + rho * std::sin(deltaLambda);
    coords->Y = Parameters->FalseNorthing - rho * std::cos(deltaLambda);
}

// --- Either pole, scale factor -----------------------------------------------------------------------------

TPolarStereographicBasicMapProjectionParameters::TPolarStereographicBasicMapProjectionParameters(
    TPole pole, double const& longitudeOfOrigin, double const& scaleFactor, double const& falseEasting,
    double const& falseNorthing)
    : Pole(pole),
      LongitudeOfOrigin(longitudeOfOrigin),
      ScaleFactor(scaleFactor),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TPolarStereographicBasicMapProjection::TPolarStereographicBasicMapProjection(
    TEllipsoidSemiAxes const* semiAxes, TPolarStereographicBasicMapProjectionParameters const* parameters)
    : TMapProjection(mptPolarStereographicBasic),
      Parameters(new TPolarStereographicBasicMapProjectionParameters(*parameters)),
      Constants(*semiAxes) {
    Constants.InverseRadiusFactor =
        PolarRadiusRoot(Constants.Eccentricity) / (2 * Constants.SemiMajorAxis * Parameters->ScaleFactor);
}

TPolarStereographicBasicMapProjection::TPolarStereographicBasicMapProjection(
    TPolarStereographicBasicMapProjection const& source)
    : TMapProjection(source),
      Parameters(new TPolarStereographicBasicMapProjectionParameters(*source.Parameters)),
      Constants(source.Constants) {}

TPolarStereographicBasicMapProjection::~TPolarStereographicBasicMapProjection() {
    delete Parameters;
}

bool TPolarStereographicBasicMapProjection::operator==(TMapProjection const& other) const {
    auto const* const same = AsSameClass(*this, other);
    if (!same) {
        return false;
    }
    auto const& theirs = *same->Parameters;
    return Parameters->Pole == theirs.Pole && Parameters->LongitudeOfOrigin == theirs.LongitudeOfOrigin &&
           Parameters->ScaleFactor == theirs.ScaleFactor && Parameters->FalseEasting == theirs.FalseEasting &&
           Parameters->FalseNorthing == theirs.FalseNorthing;
}

void TPolarStereographicBasicMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    Unproject(*Parameters, Constants, "TPolarStereographicBasicMapProjection::ProjectedToGeodetic", coords);
}

void TPolarStereographicBasicMapProjection::GeodeticToProjected(TCoords* coords) const {
    Project(*Parameters, Constants, "TPolarStereographicBasicMapProjection::GeodeticToProjected", coords);
}

// --- Either pole, standard parallel ------------------------------------------------------------------------

TPolarStereographicNaturalOriginMapProjectionParameters::
    TPolarStereographicNaturalOriginMapProjectionParameters(TPole pole,
                                                            double const& latitudeOfStandardParallel,
                                                            double const& longitudeOfOrigin,
                                                            double const& falseEasting,
                                                            double const& falseNorthing)
    : Pole(pole),
      LatitudeOfStandardParallel(latitudeOfStandardParallel),
      LongitudeOfOrigin(longitudeOfOrigin),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

bool TPolarStereographicNaturalOriginMapProjectionParameters::operator==(
    TPolarStereographicNaturalOriginMapProjectionParameters const& other) const {
    return Pole == other.Pole && LatitudeOfStandardParallel == other.LatitudeOfStandardParallel &&
           LongitudeOfOrigin == other.LongitudeOfOrigin && FalseEasting == other.FalseEasting &&
           FalseNorthing == other.FalseNorthing;
}

TPolarStereographicNaturalOriginMapProjection::TPolarStereographicNaturalOriginMapProjection(
    TEllipsoidSemiAxes const* semiAxes,
    TPolarStereographicNaturalOriginMapProjectionParameters const* parameters)
    : TMapProjection(mptPolarStereographicNaturalOrigin), Parameters(nullptr), Constants(*semiAxes) {
    bool const north = IsNorth(parameters->Pole, "TPolarStereographicNaturalOriginMapProjection::"
                                                 "TPolarStereographicNaturalOriginMapProjection");
    double const parallel = parameters->LatitudeOfStandardParallel;
    double const mc = ParallelRadiusRatio(parallel, Constants.Eccentricity);
    double const tc = IsometricColatitude(Constants, north ? parallel : -parallel);
    double const root = PolarRadiusRoot(Constants.Eccentricity);
    double const scaleFactor = mc * root / (2 * tc); // [Snyder87, 21-35]
    Constants.InverseRadiusFactor = root / (2 * Constants.SemiMajorAxis * scaleFactor);
    Parameters = new TPolarStereographicNaturalOriginMapProjectionParameters(*parameters);
}

TPolarStereographicNaturalOriginMapProjection::TPolarStereographicNaturalOriginMapProjection(
    TPolarStereographicNaturalOriginMapProjection const& source)
    : TMapProjection(source),
      Parameters(new TPolarStereographicNaturalOriginMapProjectionParameters(*source.Parameters)),
      Constants(source.Constants) {}

TPolarStereographicNaturalOriginMapProjection::~TPolarStereographicNaturalOriginMapProjection() {
    delete Parameters;
}

bool TPolarStereographicNaturalOriginMapProjection::operator==(TMapProjection const& other) const {
    auto const* const same = AsSameClass(*this, other);
    if (!same) {
        return false;
    }
    return *Parameters == *same->Parameters;
}

void TPolarStereographicNaturalOriginMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    Unproject(*Parameters, Constants, "TPolarStereographicNaturalOriginMapProjection::ProjectedToGeodetic",
              coords);
}

void TPolarStereographicNaturalOriginMapProjection::GeodeticToProjected(TCoords* coords) const {
    Project(*Parameters, Constants, "TPolarStereographicNaturalOriginMapProjection::GeodeticToProjected",
            coords);
}

// --- Either pole, standard parallel, false origin ----------------------------------------------------------

TPolarStereographicFalseOriginMapProjectionParameters::TPolarStereographicFalseOriginMapProjectionParameters(
    TPole pole, double const& latitudeOfStandardParallel, double const& longitudeOfOrigin,
    double const& falseEasting, double const& falseNorthing)
    : Pole(pole),
      LatitudeOfStandardParallel(latitudeOfStandardParallel),
      LongitudeOfOrigin(longitudeOfOrigin),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

bool TPolarStereographicFalseOriginMapProjectionParameters::operator==(
    TPolarStereographicFalseOriginMapProjectionParameters const& other) const {
    return Pole == other.Pole && LatitudeOfStandardParallel == other.LatitudeOfStandardParallel &&
           LongitudeOfOrigin == other.LongitudeOfOrigin && FalseEasting == other.FalseEasting &&
           FalseNorthing == other.FalseNorthing;
}

TPolarStereographicFalseOriginMapProjection::TPolarStereographicFalseOriginMapProjection(
    TEllipsoidSemiAxes const* semiAxes,
    TPolarStereographicFalseOriginMapProjectionParameters const* parameters)
    : TMapProjection(mptPolarStereographicFalseOrigin), Parameters(nullptr), Constants(*semiAxes) {
    bool const north = IsNorth(parameters->Pole, "TPolarStereographicFalseOriginMapProjection::"
                                                 "TPolarStereographicFalseOriginMapProjection");
    double const parallel = parameters->LatitudeOfStandardParallel;
    RadiusOfStandardParallel =
        Constants.SemiMajorAxis * ParallelRadiusRatio(parallel, Constants.Eccentricity);
    Constants.InverseRadiusFactor =
        IsometricColatitude(Constants, north ? parallel : -parallel) / RadiusOfStandardParallel;
    Parameters = new TPolarStereographicFalseOriginMapProjectionParameters(*parameters);
}

TPolarStereographicFalseOriginMapProjection::TPolarStereographicFalseOriginMapProjection(
    TPolarStereographicFalseOriginMapProjection const& source)
    : TMapProjection(source),
      Parameters(new TPolarStereographicFalseOriginMapProjectionParameters(*source.Parameters)),
      Constants(source.Constants),
      RadiusOfStandardParallel(source.RadiusOfStandardParallel) {}

TPolarStereographicFalseOriginMapProjection::~TPolarStereographicFalseOriginMapProjection() {
    delete Parameters;
}

bool TPolarStereographicFalseOriginMapProjection::operator==(TMapProjection const& other) const {
    auto const* const same = AsSameClass(*this, other);
    if (!same) {
        return false;
    }
    return *Parameters == *same->Parameters;
}

void TPolarStereographicFalseOriginMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    Unproject(*Parameters, Constants, "TPolarStereographicFalseOriginMapProjection::ProjectedToGeodetic",
              coords);
}

void TPolarStereographicFalseOriginMapProjection::GeodeticToProjected(TCoords* coords) const {
    Project(*Parameters, Constants, "TPolarStereographicFalseOriginMapProjection::GeodeticToProjected",
            coords);
}

} // namespace KvRefSystem
