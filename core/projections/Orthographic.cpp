#include "core/projections/Orthographic.h"

#include <cmath>

namespace KvRefSystem {

namespace {

/** Below this (radians) two terms of the sine and of the cosine are all that a double holds. */
constexpr double SmallTurn = 1e-4;

/** An angle (radians) with its sine and cosine, which small turns needn't compute anew. */
struct TTurningAngle {
    double Angle;
    double Sine;
    double Cosine;

    void Turn(double turn) {
        Angle += turn;
        if (!(std::fabs(turn) < SmallTurn)) {
            Sine = std::sin(Angle);
            Cosine = std::cos(Angle);
            return;
        }
        double const square = turn * turn;
        double const sineOfTurn = turn * (1 - square / 6);
        double const versine = square / 2;
        double const sine = Sine;
        Sine += Cosine * sineOfTurn - sine * versine;
        Cosine -= sine * sineOfTurn + Cosine * versine;
    }
};

} // namespace

TOrthographicMapProjectionParameters::TOrthographicMapProjectionParameters(double const& latitudeOfOrigin,
                                                                           double const& longitudeOfOrigin,
                                                                           double const& falseEasting,
                                                                           double const& falseNorthing)
    : LatitudeOfOrigin(latitudeOfOrigin),
      LongitudeOfOrigin(longitudeOfOrigin),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TOrthographicMapProjection::TOrthographicMapProjection(TEllipsoidSemiAxes const* ellipsoid,
                                                       TOrthographicMapProjectionParameters const* parameters)
    : TMapProjection(mptOrthographic),
      Parameters(new TOrthographicMapProjectionParameters(*parameters)),
      Tolerance(1e-12),
      MaxIterations(100),
      SemiMajorAxis(ellipsoid->a) {
    double const axisRatio = ellipsoid->b / ellipsoid->a;
    SquaredEccentricity = 1 - axisRatio * axisRatio;
    SquaredAxisRatio = 1 - SquaredEccentricity;
    SinOrigin = std::sin(Parameters->LatitudeOfOrigin);
    CosOrigin = std::cos(Parameters->LatitudeOfOrigin);
    OriginRadius = SemiMajorAxis / std::sqrt(1 - SquaredEccentricity * SinOrigin * SinOrigin);
}

TOrthographicMapProjection::TOrthographicMapProjection(TOrthographicMapProjection const& source)
    : TMapProjection(source),
      Parameters(new TOrthographicMapProjectionParameters(*source.Parameters)),
      Tolerance(source.Tolerance),
      MaxIterations(source.MaxIterations),
      SemiMajorAxis(source.SemiMajorAxis),
      SquaredEccentricity(source.SquaredEccentricity),
      SquaredAxisRatio(source.SquaredAxisRatio),
      SinOrigin(source.SinOrigin),
      CosOrigin(source.CosOrigin),
      OriginRadius(source.OriginRadius) {}

TOrthographicMapProjection::~TOrthographicMapProjection() {
    delete Parameters;
}

bool TOrthographicMapProjection::operator==(TMapProjection const& other) const {
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

void TOrthographicMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const x = coords->X;
    double const y = coords->Y;
    TTurningAngle phi{Parameters->LatitudeOfOrigin, SinOrigin, CosOrigin};
    TTurningAngle difference{0, 0, 1};
    for (int pass = 0; pass < MaxIterations; ++pass) {
        double easting = 0;
        double northing = 0;
        double jacobian[4];
        Project(phi.Sine, phi.Cosine, difference.Sine, difference.Cosine, &easting, &northing, jacobian);
        double const dE = x - easting;
        double const dN = y - northing;
        double const determinant = jacobian[0] * jacobian[3] - jacobian[1] * jacobian[2];
        double const dPhi = (dE * jacobian[3] - dN * jacobian[1]) / determinant;
        double const dLambda = (dN * jacobian[0] - dE * jacobian[2]) / determinant;
        if (std::fabs(dPhi) <= Tolerance && std::fabs(dLambda) <= Tolerance) {
            break; // Kept: without this last step.
        }
        phi.Turn(dPhi);
        difference.Turn(dLambda);
    }
    coords->X = Parameters->LongitudeOfOrigin + difference.Angle;
    coords->Y = phi.Angle;
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

void TOrthographicMapProjection::GeodeticToProjected(TCoords* coords) const {
    GeodeticToProjected(coords->Y, coords->X, &coords->X, &coords->Y, nullptr);
}

void TOrthographicMapProjection::GeodeticToProjected(double const& phi, double const& lambda, double* easting,
                                                     double* northing, double* jacobian) const {
    double const latitude = phi;
    double const difference = lambda - Parameters->LongitudeOfOrigin;
    Project(std::sin(latitude), std::cos(latitude), std::sin(difference), std::cos(difference), easting,
            northing, jacobian);
}

void TOrthographicMapProjection::Project(double sinPhi, double cosPhi, double sinDifference,
                                         double cosDifference, double* easting, double* northing,
                                         double* jacobian) const {
    double const w = 1 - SquaredEccentricity * sinPhi * sinPhi;
    double const nu = SemiMajorAxis / std::sqrt(w);
    *easting = Parameters->FalseEasting + nu * cosPhi * sinDifference;
    *northing = Parameters->FalseNorthing + nu * (sinPhi * CosOrigin - cosPhi * SinOrigin * cosDifference) +
                SquaredEccentricity * (OriginRadius * SinOrigin - nu * sinPhi) * CosOrigin;
    if (jacobian == nullptr) {
        return;
    }
    double const rho = SquaredAxisRatio * nu / w;
    jacobian[0] = -rho * sinPhi * sinDifference;
    jacobian[1] = nu * cosPhi * cosDifference;
    jacobian[2] = rho * (SinOrigin * sinPhi * cosDifference + CosOrigin * cosPhi);
    jacobian[3] = nu * SinOrigin * cosPhi * sinDifference;
}

} // namespace KvRefSystem
