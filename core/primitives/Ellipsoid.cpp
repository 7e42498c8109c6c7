#include "core/primitives/Ellipsoid.h"

#include <cmath>
#include <limits>
#include <stdexcept>

namespace KvRefSystem {

namespace {

constexpr double Pi = 3.141592653589793;
constexpr double TwoPi = 6.283185307179586;
constexpr double HalfPi = 1.5707963267948966;

/** The passes on the tangent serve up to this one, some kilometres from the axis, where no digits cancel. */
constexpr double GreatestTangent = 1e3;

/** Below it, in radians, an angle and its tangent are one. */
constexpr double SmallAngle = 1e-6;

/** Points near the ground need three or four passes. */
constexpr int TangentPasses = 16;

/** What the forward azimuthal equal-area projection needs of its centre [Snyder87, 187-188]. */
struct AzimuthalCentre {
    double longitude; ///< radians
    double sinBeta;   ///< of the authalic latitude
    double cosBeta;
    double stretch; ///< D, which makes the scale at the centre true
};

/** Least and greatest latitude and longitude of the normalised vertices, radians. */
struct AngularBox {
    double latMin = HalfPi;
    double latMax = -HalfPi;
    double lonMin = Pi;
    double lonMax = -Pi;
};

AngularBox BoundingBox(std::vector<vec_t_<double, 2>> const& vertices) {
    AngularBox box;
    for (vec_t_<double, 2> const& vertex : vertices) {
        double lat = vertex[0];
        double lon = vertex[1];
        NormalizeLatitude(lat);
        NormalizeLongitude(lon);
        if (lat < box.latMin) {
            box.latMin = lat;
        }
        if (lat > box.latMax) {
            box.latMax = lat;
        }
        if (lon < box.lonMin) {
            box.lonMin = lon;
        }
        if (lon > box.lonMax) {
            box.lonMax = lon;
        }
    }
    return box;
}

/** Moves the polygon to its least coordinates, so that the area's sum works on small numbers. */
void MoveToOrigin(std::vector<vec_t_<double, 2>>* plane) {
    double xMin = std::numeric_limits<double>::max();
    double yMin = std::numeric_limits<double>::max();
    for (vec_t_<double, 2> const& point : *plane) {
        if (point[0] < xMin) {
            xMin = point[0];
        }
        if (point[1] < yMin) {
            yMin = point[1];
        }
    }
    for (vec_t_<double, 2>& point : *plane) {
        point[0] -= xMin;
        point[1] -= yMin;
    }
}

/** Height over the ellipsoid of a point at the distance p from the axis. */
double HeightAt(TEllipsoid const& ellipsoid, double p, double phi) {
    double const sinPhi = std::sin(phi);
    double const nu =
        ellipsoid.SemiMajorAxis / std::sqrt(1 - ellipsoid.EccentricitySquared * sinPhi * sinPhi);
    return p / std::cos(phi) - nu;
}

/**
 * Latitude of a point at the distance p from the axis, by passes on the angle itself.
 * @return false when it hasn't converged; a NaN ends the passes and counts as converged.
 */
bool IterateOnAngle(TEllipsoid const& ellipsoid, double p, double z, double* latitude, double* height) {
    double const a = ellipsoid.SemiMajorAxis;
    double const e2 = ellipsoid.EccentricitySquared;
    // The sign of z takes part in the choice of the formula: all southern points go by the first one.
    bool const low = p >= z;
    double phi = std::atan(z / p / (1 - e2));
    double difference = 0;
    int counter = -1;
    do {
        double const sinPhi = std::sin(phi);
        double const nu = a / std::sqrt(1 - e2 * sinPhi * sinPhi);
        double const next =
            low ? std::atan((z + nu * e2 * sinPhi) / p) : std::atan(z / (p - e2 * nu * std::cos(phi)));
        difference = std::fabs(next - phi);
        phi = next;
        ++counter;
    } while (counter < ellipsoid.MaxIterations && difference > ellipsoid.Tolerance);
    *latitude = phi;
    *height = HeightAt(ellipsoid, p, phi);
    return !(difference > ellipsoid.Tolerance);
}

/**
 * The same passes on t = tan phi, without a sine and an arc tangent in each: nu sin phi = a t / r and
 * nu cos phi = a / r with r = sqrt(1 + (1 - e2) t^2). Agrees with the passes on the angle to the last digits.
 * @return false where that doesn't hold or where it hasn't converged soon; then nothing is stored.
 */
bool IterateOnTangent(TEllipsoid const& ellipsoid, double p, double z, double* latitude, double* height) {
    double const a = ellipsoid.SemiMajorAxis;
    double const e2 = ellipsoid.EccentricitySquared;
    if (!(ellipsoid.Tolerance < SmallAngle && ellipsoid.MaxIterations >= TangentPasses)) {
        return false;
    }
    bool const low = p >= z;
    double t = z / p / (1 - e2);
    for (int pass = 0; pass < TangentPasses && std::fabs(t) < GreatestTangent; ++pass) {
        double const r = std::sqrt(1 + (1 - e2) * t * t);
        double const next = low ? (z + e2 * a * t / r) / p : z / (p - e2 * a / r);
        double const distance = std::fabs(next - t);
        double const tolerance = ellipsoid.Tolerance * (1 + t * next);
        t = next;
        if (distance <= tolerance) {
            *latitude = std::atan(t);
            // p / cos phi - nu, since 1 / cos phi = sqrt(1 + t^2): no sine and cosine of the angle again.
            *height = std::sqrt(1 + t * t) * (p - a / std::sqrt(1 + (1 - e2) * t * t));
            return true;
        }
    }
    return false;
}

} // namespace

TEllipsoid::TEllipsoid(double const& radius) : SemiMajorAxis(radius), SemiMinorAxis(radius) {
    Calculate();
}

TEllipsoid::TEllipsoid(double const& a, double const& b) : SemiMajorAxis(a), SemiMinorAxis(b) {
    Calculate();
}

TEllipsoid::TEllipsoid(TEllipsoid const& source)
    : SemiMajorAxis(source.SemiMajorAxis), SemiMinorAxis(source.SemiMinorAxis) {
    Calculate();
}

void TEllipsoid::Calculate() {
    double const minorToMajor = SemiMinorAxis / SemiMajorAxis;
    double const majorToMinor = SemiMajorAxis / SemiMinorAxis;
    double const e2 = 1 - minorToMajor * minorToMajor;
    double const e4 = e2 * e2;
    double const e6 = e2 * e2 * e2;
    double const e = std::sqrt(e2);

    Eccentricity = e;
    EccentricitySquared = e2;
    EccentricityPow4 = e4;
    EccentricityPow6 = e6;
    SecondEccentricitySquared = majorToMinor * majorToMinor - 1;
    SecondEccentricity = std::sqrt(SecondEccentricitySquared);

    // 17/360 and 31/180 as doubles.
    AuthalicRadiusSeries = SemiMajorAxis * (1 - e2 / 6 - 0.04722222222222222 * e4);
    // Kept: the published series begins with e2/3; hosts rely on the numbers of this one.
    AuthalicSin2Coefficient = 0.5 * e2 + 0.17222222222222222 * e4;
    AuthalicSin4Coefficient = 0.04722222222222222 * e4;

    MaxIterations = 1000;
    Tolerance = 1e-12;

    // Kept: a sphere's q at the pole is 1.0 and not 2, which halves its areas; hosts rely on that.
    PolarQ = e != 0 ? (1 - e2) * (1 / (1 - e2) + std::log((1 - e) / (1 + e)) / (-2 * e)) : 1.0;
    AuthalicRadius = SemiMajorAxis * std::sqrt(PolarQ / 2);

    // [Snyder87, 3-18]
    AuthalicInverse2 = e2 / 3 + 31 * e4 / 180 + 517 * e6 / 5040;
    AuthalicInverse4 = 23 * e4 / 360 + 251 * e6 / 3780;
    AuthalicInverse6 = 761 * e6 / 45360;
}

double TEllipsoid::Calculate_q(double const& lat) const {
    double const sinLat = std::sin(lat);
    if (Eccentricity == 0) {
        return sinLat;
    }
    double const e = Eccentricity;
    double const e2 = EccentricitySquared;
    return (1 - e2) *
           (sinLat / (1 - e2 * sinLat * sinLat) + std::log((1 - e * sinLat) / (1 + e * sinLat)) / (-2 * e));
}

void TEllipsoid::EllipsoidalToCartesian(TCoords* coords) const {
    double const lambda = coords->X;
    double const phi = coords->Y;
    double const h = coords->Z;
    double const e2 = EccentricitySquared;
    double const sinPhi = std::sin(phi);
    double const cosPhi = std::cos(phi);
    double const nu = SemiMajorAxis / std::sqrt(1 - e2 * sinPhi * sinPhi);

    coords->X = (nu + h) * cosPhi * std::cos(lambda);
    coords->Y = (nu + h) * cosPhi * std::sin(lambda);
    coords->Z = sinPhi * (nu + h - e2 * nu);
}

void TEllipsoid::CartesianToEllipsoidal(TCoords* coords) const {
    double const x = coords->X;
    double const y = coords->Y;
    double const z = coords->Z;
    double const p = std::sqrt(x * x + y * y);

    double phi = 0;
    double height = 0;
    if (!IterateOnTangent(*this, p, z, &phi, &height) && !IterateOnAngle(*this, p, z, &phi, &height)) {
        throw std::runtime_error("CartesianToEllipsoidal");
    }

    coords->X = std::atan2(y, x);
    coords->Y = phi;
    coords->Z = height;
}

void TEllipsoid::AuthalicTransformationOntoSphere(double const& lat, double const& lon, double* sphereLat,
                                                  double* sphereLon) const {
    double const phi = lat;
    double const lambda = lon;
    *sphereLat =
        phi - AuthalicSin2Coefficient * std::sin(2 * phi) + AuthalicSin4Coefficient * std::sin(4 * phi);
    *sphereLon = lambda;
}

double TEllipsoid::CalculateArea(std::vector<vec_t_<double, 2>> const& vertices) const {
    if (vertices.size() < 3) {
        return 0.0;
    }
    AngularBox const box = BoundingBox(vertices);
    if (!(box.latMax - box.latMin > 0) || !(box.lonMax - box.lonMin > 0)) {
        return 0.0;
    }

    double const lat0 = (box.latMax + box.latMin) / 2;
    // A range of half a turn or more is taken to straddle the antimeridian.
    double const lonMin = box.lonMax - box.lonMin < Pi ? box.lonMin : box.lonMin + TwoPi;
    double const sinLat0 = std::sin(lat0);
    double const beta0 = std::asin(Calculate_q(lat0) / PolarQ);
    AzimuthalCentre centre;
    centre.longitude = (box.lonMax + lonMin) / 2;
    centre.sinBeta = std::sin(beta0);
    centre.cosBeta = std::cos(beta0);
    centre.stretch = SemiMajorAxis *
                     (std::cos(lat0) / std::sqrt(1 - EccentricitySquared * sinLat0 * sinLat0)) /
                     (AuthalicRadius * centre.cosBeta);

    std::vector<vec_t_<double, 2>> plane;
    plane.reserve(vertices.size());
    for (vec_t_<double, 2> const& vertex : vertices) {
        double const beta = std::asin(Calculate_q(vertex[0]) / PolarQ);
        double const sinBeta = std::sin(beta);
        double const cosBeta = std::cos(beta);
        double const sinD = std::sin(vertex[1] - centre.longitude);
        double const cosD = std::cos(vertex[1] - centre.longitude);
        // [Snyder87, 24-19]
        double const B =
            AuthalicRadius * std::sqrt(2 / (1 + centre.sinBeta * sinBeta + centre.cosBeta * cosBeta * cosD));
        vec_t_<double, 2> point;
        point[0] = B * centre.stretch * cosBeta * sinD;
        point[1] = (B / centre.stretch) * (centre.cosBeta * sinBeta - centre.sinBeta * cosBeta * cosD);
        plane.push_back(point);
    }
    MoveToOrigin(&plane);
    return std::fabs(CalcSignedFigureArea(plane));
}

} // namespace KvRefSystem
