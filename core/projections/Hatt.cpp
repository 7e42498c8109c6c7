#include "core/projections/Hatt.h"

#include <cmath>

namespace KvRefSystem {

THattMapProjectionParameters::THattMapProjectionParameters(double const& latitudeOfOrigin,
                                                           double const& longitudeOfOrigin)
    : LatitudeOfOrigin(latitudeOfOrigin), LongitudeOfOrigin(longitudeOfOrigin) {}

THattMapProjection::THattMapProjection(TEllipsoidSemiAxes const* ellipsoid,
                                       THattMapProjectionParameters const* parameters)
    : TMapProjection(mptHatt), Parameters(new THattMapProjectionParameters(*parameters)) {
    double const a = ellipsoid->a;
    double const b = ellipsoid->b;
    double const axisRatio = b / a;
    double const e2 = 1 - axisRatio * axisRatio;
    double const epsilon = (a * a - b * b) / (b * b);
    double const s = std::sin(Parameters->LatitudeOfOrigin);
    double const c = std::cos(Parameters->LatitudeOfOrigin);
    double const t = s / c;
    double const s2 = s * s;
    double const c2 = c * c;
    double const t2 = t * t;
    double const w = 1 - e2 * s2;
    double const nu = a / std::sqrt(w);
    double const rho = (1 - e2) * a / (w * std::sqrt(w));
    double const nu2 = nu * nu;
    double const nu3 = nu2 * nu;
    double const rho2 = rho * rho;

    EastingTerms = {
        c * nu, -s * rho, -(9 * epsilon * s2 + 2) * c * rho / 6, -nu * c * s2 / 6, -nu * s * (1 - 2 * s2) / 6,
    };
    NorthingTerms = {
        rho,
        nu * c * s / 2,
        3 * epsilon * s * c * rho2 / (2 * nu),
        rho * (1 - 4 * s2 + epsilon * c2 * c2) / 6,
        (1 - 2 * s2) * rho * epsilon / 2,
        nu * s * c * (1 - 2 * s2) / 24,
        -nu * s * c / 3,
    };
    LatitudeTerms = {
        1 / rho,
        -t / (2 * rho * nu),
        -3 * epsilon * s * c / (2 * rho * nu),
        -(3 * t2 + 1 - (1 - 10 * s2) * epsilon) / (6 * rho * nu2),
        -(1 - 2 * s2) * epsilon / (2 * rho2 * nu),
        (3 * t2 + 1) * t / (24 * rho2 * nu2),
        -t * (3 * t2 + 2) / (6 * rho2 * nu2),
    };
    LongitudeTerms = {
        1 / (nu * c),
        t / nu,
        -t2 / (3 * nu2),
        (3 * t2 + 1 + epsilon * c2) / (3 * nu2),
        t * (3 * t2 + 2) / (3 * nu3),
        -(3 * t2 + 1) * t / (3 * nu3),
    };
}

THattMapProjection::THattMapProjection(THattMapProjection const& source)
    : TMapProjection(source),
      Parameters(new THattMapProjectionParameters(*source.Parameters)),
      EastingTerms(source.EastingTerms),
      NorthingTerms(source.NorthingTerms),
      LatitudeTerms(source.LatitudeTerms),
      LongitudeTerms(source.LongitudeTerms) {}

THattMapProjection::~THattMapProjection() {
    delete Parameters;
}

bool THattMapProjection::operator==(TMapProjection const& other) const {
    auto const* const same = AsSameClass(*this, other);
    if (!same) {
        return false;
    }
    auto const& theirs = *same->Parameters;
    return Parameters->LatitudeOfOrigin == theirs.LatitudeOfOrigin &&
           Parameters->LongitudeOfOrigin == theirs.LongitudeOfOrigin;
}

void THattMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    double const x = coords->X;
    double const y = coords->Y;
    double const x2 = x * x;
    double const y2 = y * y;
    auto const& p = LatitudeTerms;
    auto const& l = LongitudeTerms;
    coords->Y = Parameters->LatitudeOfOrigin + y * (p[0] + p[2] * y + p[4] * y2) +
                x2 * (p[1] + p[3] * y + p[6] * y2 + p[5] * x2);
    coords->X = Parameters->LongitudeOfOrigin +
                x * l[0] * (1 + y * (l[1] + l[3] * y + l[4] * y2) + x2 * (l[2] + l[5] * y));
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

void THattMapProjection::GeodeticToProjected(TCoords* coords) const {
    double const dP = coords->Y - Parameters->LatitudeOfOrigin;
    double const dL = coords->X - Parameters->LongitudeOfOrigin;
    double const dL2 = dL * dL;
    auto const& e = EastingTerms;
    auto const& n = NorthingTerms;
    coords->X = dL * (e[0] + dP * (e[1] + e[2] * dP) + dL2 * (e[3] + e[4] * dP));
    coords->Y = dP * (n[0] + dP * (n[2] + n[4] * dP)) + dL2 * (n[1] + dP * (n[3] + n[6] * dP) + n[5] * dL2);
}

} // namespace KvRefSystem
