#include "core/projections/QuasiStereographic.h"

#include <cmath>

namespace KvRefSystem {

TQuasiStereographicMapProjectionParameters::TQuasiStereographicMapProjectionParameters(
    double const& longitudeOfOrigin, double const& latitudeOfOrigin, double const& scaleFactor,
    double const& falseEasting, double const& falseNorthing)
    : LongitudeOfOrigin(longitudeOfOrigin),
      LatitudeOfOrigin(latitudeOfOrigin),
      ScaleFactor(scaleFactor),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

TQuasiStereographicSeries::TQuasiStereographicSeries(TEllipsoidSemiAxes const& semiAxes,
                                                     double latitudeOfOrigin) {
    double const a2 = semiAxes.a * semiAxes.a;
    double const b2 = semiAxes.b * semiAxes.b;
    double const c = std::cos(latitudeOfOrigin);
    double const c2 = c * c;
    double const c3 = c2 * c;
    double const c4 = c2 * c2;
    double const c5 = c4 * c;
    double const t = std::tan(latitudeOfOrigin);
    double const t2 = t * t;
    double const t4 = t2 * t2;
    double const eta2 = (a2 - b2) / b2 * c2;
    double const eta4 = eta2 * eta2;
    double const eta6 = eta4 * eta2;
    double const nu = a2 / (semiAxes.b * std::sqrt(1 + eta2));
    double const nu2 = nu * nu;
    double const nu3 = nu2 * nu;
    double const nu4 = nu2 * nu2;
    double const nu5 = nu4 * nu;

    NorthingPhi1 = nu * (1 - eta2 + eta4 - eta6);
    NorthingPhi2 = 3.0 / 2 * nu * t * (eta2 - 2 * eta4);
    NorthingLambda2 = nu * c2 * t / 2;
    NorthingPhi3 = nu * (1.0 / 12 + eta2 / 3 - 3 * eta4 / 4 - t2 * eta2 / 2 + 7 * t2 * eta4 / 2);
    NorthingPhi1Lambda2 = nu * c2 * (1.0 / 4 - t2 / 2 + t2 * eta2 / 2 - 3 * t2 * eta4 / 2);
    NorthingPhi4 = -nu * t * eta2 / 8;
    NorthingPhi2Lambda2 = -nu * c2 * (3.0 / 8 + eta2 / 4 + 3 * t2 * eta2 / 4); // Kept: no factor t.
    NorthingLambda4 = nu * c4 * t * (1.0 / 12 + eta2 / 4 - t2 / 24);
    NorthingPhi5 = nu / 120;
    NorthingPhi3Lambda2 = -nu * c2 * (1 + t2) / 24;
    NorthingPhi1Lambda4 = nu * c4 * (1.0 / 24 - 11 * t2 / 48 + t4 / 24);

    EastingLambda1 = nu * c;
    EastingPhi1Lambda1 = -nu * c * t * (1 - eta2 + eta4);
    EastingPhi2Lambda1 =
        -nu * c * (1 - eta2 + eta4 + 6 * t2 * eta2 - 12 * t2 * eta4); // Kept: not a quarter of it.
    EastingLambda3 = nu * c3 * (1.0 / 12 + eta2 / 12 - t2 / 6);
    EastingPhi3Lambda1 = nu * c * t * (-1.0 / 12 - 5 * eta2 / 12 + t2 * eta2 / 2);
    EastingPhi1Lambda3 = nu * c3 * t * (-1.0 / 3 - 2 * eta2 / 3 + t2 / 6 - t2 * eta2 / 6);
    EastingPhi4Lambda1 = -nu * c / 24;
    EastingPhi2Lambda3 = nu * c3 * (-1.0 / 12 + 7 * t2 / 24);
    EastingLambda5 = nu * c5 * (1.0 / 120 - 11 * t2 / 240 + t4 / 120);

    LatitudeY1 = (1 + eta2) / nu;
    LatitudeY2 = -(3.0 / 2) * t * eta2 * (1 + eta2) / nu2;
    LatitudeX2 = -t * (1 + eta2) / (2 * nu2);
    LatitudeY3 = (-1.0 / 12 - 2 * eta2 / 3 - 13 * eta4 / 12 + t2 * eta2 / 2 + 3 * t2 * eta4) / nu3;
    LatitudeX2Y1 = (-1.0 / 4 - eta2 / 2 - eta4 / 4 - t2 / 2 + t2 * eta2 + 3 * t2 * eta4 / 2) / nu3;
    LatitudeY4 = 3 * t * eta2 / (4 * nu4);
    LatitudeX2Y2 = t * (-1.0 / 4 + 2 * eta2 - t2 / 2 + t2 * eta2 / 4) / nu4;
    LatitudeX4 = t * (1.0 / 8 + eta2 / 12 + t2 / 8 - t2 * eta2 / 4) / nu4;
    LatitudeY5 = 1 / (80 * nu5);
    LatitudeX2Y3 = -t2 * (3.0 / 8 + t2 / 2) / nu5;
    LatitudeX4Y1 = (1.0 / 16 + 3 * t2 / 8 + 3 * t4 / 8) / nu5;

    LongitudeX1 = 1 / (c * nu);
    LongitudeX1Y1 = t / (c * nu2);
    LongitudeX1Y2 = (1.0 / 4 + eta2 / 4 + t2) / (c * nu3);
    LongitudeX3 = -(1.0 / 4 + eta2 / 4 + t2) / (c * nu3); // Kept: not a third of it.
    LongitudeX1Y3 = t * (1.0 / 2 - eta2 / 6 + t2) / (c * nu4);
    LongitudeX3Y1 = -t * (1.0 / 2 - eta2 / 6 + t2) / (c * nu4);
    LongitudeX1Y4 = (1.0 / 16 + 3 * t2 / 4 + t4) / (c * nu5);
    LongitudeX3Y2 = -(1.0 / 8 + 3 * t2 / 2 + 2 * t4) / (c * nu5);
    LongitudeX5 = (1.0 / 80 + 3 * t2 / 20 + t4 / 5) / (c * nu5);
}

TQuasiStereographicMapProjection::TQuasiStereographicMapProjection(
    TEllipsoidSemiAxes const* semiAxes, TQuasiStereographicMapProjectionParameters const* parameters)
    : TMapProjection(mptQuasiStereographic),
      Parameters(new TQuasiStereographicMapProjectionParameters(*parameters)),
      Series(*semiAxes, Parameters->LatitudeOfOrigin) {}

TQuasiStereographicMapProjection::TQuasiStereographicMapProjection(
    TQuasiStereographicMapProjection const& source)
    : TMapProjection(source),
      Parameters(new TQuasiStereographicMapProjectionParameters(*source.Parameters)),
      Series(source.Series) {}

TQuasiStereographicMapProjection::~TQuasiStereographicMapProjection() {
    delete Parameters;
}

bool TQuasiStereographicMapProjection::operator==(TMapProjection const& other) const {
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

void TQuasiStereographicMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    TQuasiStereographicSeries const& s = Series;
    double const x = (coords->X - Parameters->FalseEasting) / Parameters->ScaleFactor;
    double const y = (coords->Y - Parameters->FalseNorthing) / Parameters->ScaleFactor;
    double const x2 = x * x;
    double const latitudeX0 =
        y * (s.LatitudeY1 + y * (s.LatitudeY2 + y * (s.LatitudeY3 + y * (s.LatitudeY4 + y * s.LatitudeY5))));
    double const latitudeX2 = s.LatitudeX2 + y * (s.LatitudeX2Y1 + y * (s.LatitudeX2Y2 + y * s.LatitudeX2Y3));
    double const latitudeX4 = s.LatitudeX4 + y * s.LatitudeX4Y1;
    double const longitudeX1 =
        s.LongitudeX1 +
        y * (s.LongitudeX1Y1 + y * (s.LongitudeX1Y2 + y * (s.LongitudeX1Y3 + y * s.LongitudeX1Y4)));
    double const longitudeX3 = s.LongitudeX3 + y * (s.LongitudeX3Y1 + y * s.LongitudeX3Y2);
    double latitude = Parameters->LatitudeOfOrigin + (latitudeX0 + x2 * (latitudeX2 + x2 * latitudeX4));
    double longitude =
        Parameters->LongitudeOfOrigin + x * (longitudeX1 + x2 * (longitudeX3 + x2 * s.LongitudeX5));
    NormalizeLatitude(latitude);
    NormalizeLongitude(longitude);
    coords->X = longitude;
    coords->Y = latitude;
}

void TQuasiStereographicMapProjection::GeodeticToProjected(TCoords* coords) const {
    TQuasiStereographicSeries const& s = Series;
    double const lambda = coords->X - Parameters->LongitudeOfOrigin;
    double const phi = coords->Y - Parameters->LatitudeOfOrigin;
    double const lambda2 = lambda * lambda;
    double const northing0 =
        phi *
        (s.NorthingPhi1 +
         phi * (s.NorthingPhi2 + phi * (s.NorthingPhi3 + phi * (s.NorthingPhi4 + phi * s.NorthingPhi5))));
    double const northing2 =
        s.NorthingLambda2 +
        phi * (s.NorthingPhi1Lambda2 + phi * (s.NorthingPhi2Lambda2 + phi * s.NorthingPhi3Lambda2));
    double const northing4 = s.NorthingLambda4 + phi * s.NorthingPhi1Lambda4;
    double const easting1 =
        s.EastingLambda1 +
        phi * (s.EastingPhi1Lambda1 +
               phi * (s.EastingPhi2Lambda1 + phi * (s.EastingPhi3Lambda1 + phi * s.EastingPhi4Lambda1)));
    double const easting3 = s.EastingLambda3 + phi * (s.EastingPhi1Lambda3 + phi * s.EastingPhi2Lambda3);
    coords->X =
        Parameters->FalseEasting +
        Parameters->ScaleFactor * (lambda * (easting1 + lambda2 * (easting3 + lambda2 * s.EastingLambda5)));
    coords->Y = Parameters->FalseNorthing +
                Parameters->ScaleFactor * (northing0 + lambda2 * (northing2 + lambda2 * northing4));
}

} // namespace KvRefSystem
