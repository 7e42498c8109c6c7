#include "core/primitives/GOST51794.h"

#include "core/primitives/GOST51794Records.h"
#include "frame/imported/SevenParameters.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>

namespace KvRefSystem::GOST51794 {

namespace {

using LumCommonUtils::T7Params;

constexpr double Pi = 3.141592653589793;
constexpr double TwoPi = 6.283185307179586;
constexpr double HalfPi = 1.5707963267948966;

/** Degrees in a radian. Kept: the standard computes with these ten digits. */
constexpr double DegreesPerRadian = 57.29577951;

/** 0.0001 of an arc second, radians. */
constexpr double LatitudeTolerance = 4.84813681109536e-10;
constexpr int GreatestPasses = 100;

constexpr double FirstZone = 1;
constexpr double LastZone = 60;

// --- Tables ------------------------------------------------------------------------------------------------

constexpr unsigned int DatumCount = 8;

// All three as printed: b isn't computed from the others.
constexpr double SemiMajorAxes[DatumCount] = {
    6378136.0, // gdPZ90
    6378137.0, // gdWGS84
    6378245.0, // gdPulkovo42
    6378245.0, // gdPulkovo95
    6378136.0, // gdPZ90_02
    6378136.0, // gdPZ90_11
    6378136.5, // gdGSK2011
    6378137.0, // gdITRF2008
};
constexpr double EccentricitiesSquared[DatumCount] = {
    0.006694366177481925,  // gdPZ90
    0.0066943799901413165, // gdWGS84
    0.006693421622965943,  // gdPulkovo42
    0.006693421622965943,  // gdPulkovo95
    0.006694366177481925,  // gdPZ90_02
    0.006694366177481925,  // gdPZ90_11
    0.0066943981056621395, // gdGSK2011
    0.006694380022900787,  // gdITRF2008
};
constexpr double SemiMinorAxes[DatumCount] = {
    6356751.361795686, // gdPZ90
    6356752.314245179, // gdWGS84
    6356863.018773047, // gdPulkovo42
    6356863.018773047, // gdPulkovo95
    6356751.361795686, // gdPZ90_02
    6356751.361795686, // gdPZ90_11
    6356751.757955603, // gdGSK2011
    6356752.314140356, // gdITRF2008
};

/** A record and where it leads. */
struct TStep {
    TGOST51794Version version;
    TGOST51794Datum from;
    TGOST51794Datum to;
    TDatumShiftParams const* record;
};

constexpr TStep Steps[] = {
    {gv2001, gdPulkovo42, gdPZ90, &PULKOVO42_to_PZ90_2001},
    {gv2001, gdPulkovo95, gdPZ90, &PULKOVO95_to_PZ90_2001},
    {gv2001, gdWGS84, gdPZ90, &WGS84_to_PZ90_2001},
    {gv2001, gdPZ90, gdPulkovo42, &PZ90_to_PULKOVO42_2001},
    {gv2001, gdPZ90, gdPulkovo95, &PZ90_to_PULKOVO95_2001},
    {gv2001, gdPZ90, gdWGS84, &PZ90_to_WGS84_2001},

    {gv2008, gdPulkovo42, gdPZ90_02, &PULKOVO42_to_PZ90_02_2008},
    {gv2008, gdPulkovo95, gdPZ90_02, &PULKOVO95_to_PZ90_02_2008},
    {gv2008, gdPulkovo42, gdPZ90, &PULKOVO42_to_PZ90_2008},
    {gv2008, gdPulkovo95, gdPZ90, &PULKOVO95_to_PZ90_2008},
    {gv2008, gdPZ90_02, gdWGS84, &PZ90_02_to_WGS84_2008},
    {gv2008, gdPZ90, gdWGS84, &PZ90_to_WGS84_2008},
    {gv2008, gdPZ90_02, gdPZ90, &PZ90_02_to_PZ90_2008},
    {gv2008, gdPZ90_02, gdPulkovo42, &PZ90_02_to_PULKOVO42_2008},
    {gv2008, gdPZ90_02, gdPulkovo95, &PZ90_02_to_PULKOVO95_2008},
    {gv2008, gdPZ90, gdPulkovo42, &PZ90_to_PULKOVO42_2008},
    {gv2008, gdPZ90, gdPulkovo95, &PZ90_to_PULKOVO95_2008},
    {gv2008, gdWGS84, gdPZ90_02, &WGS84_to_PZ90_02_2008},
    {gv2008, gdWGS84, gdPZ90, &WGS84_to_PZ90_2008},
    {gv2008, gdPZ90, gdPZ90_02, &PZ90_to_PZ90_02_2008},

    {gv2017, gdPulkovo42, gdPZ90_11, &PULKOVO42_to_PZ90_11_2017},
    {gv2017, gdPulkovo95, gdPZ90_11, &PULKOVO95_to_PZ90_11_2017},
    {gv2017, gdPZ90, gdPZ90_11, &PZ90_to_PZ90_11_2017},
    {gv2017, gdWGS84, gdPZ90_11, &WGS84_to_PZ90_11_2017},
    {gv2017, gdPZ90_02, gdPZ90_11, &PZ90_02_to_PZ90_11_2017},
    {gv2017, gdITRF2008, gdPZ90_11, &ITRF2008_to_PZ90_11_2017},
    {gv2017, gdGSK2011, gdPZ90_11, &GSK2011_to_PZ90_11_2017},
    {gv2017, gdPZ90_11, gdPulkovo42, &PZ90_11_to_PULKOVO42_2017},
    {gv2017, gdPZ90_11, gdPulkovo95, &PZ90_11_to_PULKOVO95_2017},
    {gv2017, gdPZ90_11, gdPZ90, &PZ90_11_to_PZ90_2017},
    {gv2017, gdPZ90_11, gdPZ90_02, &PZ90_11_to_PZ90_02_2017},
    {gv2017, gdPZ90_11, gdWGS84, &PZ90_11_to_WGS84_2017},
    {gv2017, gdPZ90_11, gdITRF2008, &PZ90_11_to_ITRF2008_2017},
    {gv2017, gdPZ90_11, gdGSK2011, &PZ90_11_to_GSK2011_2017},
};

// --- Roads between datums ----------------------------------------------------------------------------------

constexpr std::size_t NoStep = std::size(Steps);

/** One record or two in a row, by their rows in `Steps`; none when `first` is `NoStep`. */
struct TRoad {
    std::size_t first = NoStep;
    std::size_t second = NoStep;
};

constexpr std::size_t FindStep(TGOST51794Version version, TGOST51794Datum from, TGOST51794Datum to) {
    std::size_t row = 0;
    while (row < NoStep &&
           !(Steps[row].version == version && Steps[row].from == from && Steps[row].to == to)) {
        ++row;
    }
    return row;
}

/** A direct record where there is one, otherwise the way through the edition's own datum. */
constexpr TRoad FindRoad(TGOST51794Version version, TGOST51794Datum own, TGOST51794Datum from,
                         TGOST51794Datum to) {
    std::size_t const direct = FindStep(version, from, to);
    if (direct != NoStep) {
        return {direct, NoStep};
    }
    TRoad const road = {FindStep(version, from, own), FindStep(version, own, to)};
    return road.first != NoStep && road.second != NoStep ? road : TRoad();
}

/** All roads of an edition, from datum to datum; found once, by the compiler. */
using TRoads = std::array<std::array<TRoad, DatumCount>, DatumCount>;

constexpr TRoads FindRoads(TGOST51794Version version, TGOST51794Datum own) {
    TRoads roads;
    for (unsigned int from = 0; from < DatumCount; ++from) {
        for (unsigned int to = 0; to < DatumCount; ++to) {
            roads[from][to] =
                FindRoad(version, own, static_cast<TGOST51794Datum>(from), static_cast<TGOST51794Datum>(to));
        }
    }
    return roads;
}

constexpr TRoads Roads2001 = FindRoads(gv2001, gdPZ90);
constexpr TRoads Roads2008 = FindRoads(gv2008, gdPZ90_02);
constexpr TRoads Roads2017 = FindRoads(gv2017, gdPZ90_11);

/** @return the roads of an edition, or null for a version that isn't named. */
TRoads const* RoadsOf(TGOST51794Version version) {
    switch (version) {
    case gv2001:
        return &Roads2001;
    case gv2008:
        return &Roads2008;
    case gv2017:
        return &Roads2017;
    }
    return nullptr;
}

struct TPoint {
    double x;
    double y;
    double z;
};

/** Coordinate frame rotations to the first order [EPSG7-2, 9607]. */
TPoint Shift(TDatumShiftParams const& record, TPoint const& p) {
    double const s = 1 + record.m;
    return {s * (p.x + record.wz * p.y - record.wy * p.z) + record.dX,
            s * (p.y - record.wz * p.x + record.wx * p.z) + record.dY,
            s * (p.z + record.wy * p.x - record.wx * p.y) + record.dZ};
}

/** Brings a geocentric point from datum to datum, both of the tables. @return false without a road. */
bool ShiftAlongRoad(TGOST51794Version version, TGOST51794Datum from, TGOST51794Datum to, TPoint* point) {
    // Kept: hosts rely on 2017 and unknown versions changing the ellipsoid only.
    if (version != gv2001 && version != gv2008) {
        return true;
    }
    TRoad const& road = (*RoadsOf(version))[from][to];
    if (road.first == NoStep) {
        return false;
    }
    *point = Shift(*Steps[road.first].record, *point);
    if (road.second != NoStep) {
        *point = Shift(*Steps[road.second].record, *point);
    }
    return true;
}

T7Params ToSevenParameters(TDatumShiftParams const& record) {
    return {record.wx, record.wy, record.wz, record.m, record.dX, record.dY, record.dZ};
}

TDatumShiftParams Combined(TRoad const& road) {
    TDatumShiftParams const& first = *Steps[road.first].record;
    if (road.second == NoStep) {
        return first;
    }
    TDatumShiftParams const& second = *Steps[road.second].record;
    T7Params combined;
    LumCommonUtils::Combine7ParamsLinearized(ToSevenParameters(first), ToSevenParameters(second), &combined);
    return {combined.dX, combined.dY, combined.dZ, combined.wx, combined.wy, combined.wz, combined.m};
}

// --- Coordinate types --------------------------------------------------------------------------------------

/** Unsigned, so that negative values are out of range too. */
bool IsInTables(TGOST51794Datum datum) {
    return static_cast<unsigned int>(datum) < DatumCount;
}

/** The plane coordinates are made for the ellipsoid of these two. */
bool HasPlane(TGOST51794Datum datum) {
    return datum == gdPulkovo42 || datum == gdPulkovo95;
}

/** Whether the tables and the plane coordinates allow this type on this datum. */
bool IsAllowed(TGOST51794Datum datum, TGOST51794RefsystemType type) {
    return IsInTables(datum) && (type != grtProjected || HasPlane(datum));
}

/** Written so that a NaN is outside. */
bool IsZone(double number) {
    return number >= FirstZone && number <= LastZone;
}

/** Easting of a zone's central meridian with the zone number in front, metres. */
double EastingOfMeridian(double zone) {
    return (10 * zone + 5) * 100000;
}

bool geod2geoc(double a, double e2, double B, double L, double H, double* X, double* Y, double* Z) {
    double const sinB = std::sin(B);
    double const w2 = 1 - e2 * sinB * sinB;
    if (!(w2 > 0)) {
        return false;
    }
    double const nu = a / std::sqrt(w2);
    double const cosB = std::cos(B);
    *X = (nu + H) * cosB * std::cos(L);
    *Y = (nu + H) * cosB * std::sin(L);
    *Z = sinB * ((1 - e2) * nu + H);
    return true;
}

/**
 * Longitude of a point off the axis, D its distance from the axis.
 * Kept: where Y is below 0 it isn't the point's own longitude, and results in use have it so.
 */
double GeocentricLongitude(double X, double Y, double D) {
    double const signedAngle = std::asin(Y / D);
    if (Y < 0 && X > 0) {
        return TwoPi - signedAngle;
    }
    if (Y < 0 && X < 0) {
        return signedAngle + TwoPi;
    }
    if (Y > 0 && X < 0) {
        return Pi - signedAngle;
    }
    if (Y > 0 && X > 0) {
        return signedAngle;
    }
    if (X != 0 && Y == 0) {
        return X < 0 ? Pi : 0.0;
    }
    if (X == 0) {
        return Y < 0 ? -HalfPi : HalfPi;
    }
    return std::numeric_limits<double>::quiet_NaN();
}

/** Latitude by passes on its difference from the geocentric one. @return false as `geoc2geod`. */
bool IterateLatitude(double a, double e2, double r, double Z, double* B, double* w2) {
    double const c = std::asin(Z / r);
    double const p = e2 * a / (2 * r);
    double s1 = 0;
    for (int passes = 1;; ++passes) {
        double const b = c + s1;
        double const sinB = std::sin(b);
        double const radicand = 1 - e2 * sinB * sinB;
        if (!(radicand > 0)) {
            return false;
        }
        double const s2 = std::asin(p * std::sin(2 * b) / std::sqrt(radicand));
        if (passes > GreatestPasses) {
            return false;
        }
        if (std::fabs(s2 - s1) < LatitudeTolerance) {
            *B = b;
            *w2 = radicand;
            return true;
        }
        s1 = s2;
    }
}

} // namespace

bool geoc2geod(double const& a, double const& e2, double const& X, double const& Y, double const& Z,
               double* B, double* L, double* H) {
    TPoint const point = {X, Y, Z};
    double const major = a;
    double const D = std::sqrt(point.x * point.x + point.y * point.y);
    double const longitude = D != 0 ? GeocentricLongitude(point.x, point.y, D) : 0.0;
    if (point.z == 0) {
        *B = 0;
        *L = longitude;
        *H = D - major;
        return true;
    }
    // On the axis too: there the passes end at once, at the pole.
    double const r = std::sqrt(point.x * point.x + point.y * point.y + point.z * point.z);
    double latitude = 0;
    double w2 = 0;
    if (!IterateLatitude(major, e2, r, point.z, &latitude, &w2)) {
        return false;
    }
    *B = latitude;
    *L = longitude;
    *H = D * std::cos(latitude) + point.z * std::sin(latitude) - major * std::sqrt(w2);
    return true;
}

bool geod2proj(double const& B, double const& L, double* x, double* y) {
    double const degrees = L * 180 / Pi;
    double const n = std::floor((degrees + 6) / 6);
    if (!IsZone(n)) {
        return false;
    }
    double const latitude = B;
    double const l = (degrees - (6 * n - 3)) / DegreesPerRadian;
    double const l2 = l * l;
    double const s = std::sin(latitude);
    double const c = std::cos(latitude);
    double const s2 = s * s;
    double const s4 = s2 * s2;
    double const s6 = s2 * s4;

    double const A = 16002.89 + 66.9607 * s2 + 0.3515 * s4;
    double const P1 = 1594561.25 + 5336.535 * s2 + 26.79 * s4 + 0.149 * s6;
    double const P2 = 672483.4 - 811219.9 * s2 + 5420.0 * s4 - 10.6 * s6;
    double const P3 = 278194.0 - 830174.0 * s2 + 572434.0 * s4 - 16010.0 * s6;
    double const P4 = 109500.0 - 574700.0 * s2 + 863700.0 * s4 - 398600.0 * s6;
    *x = 6367558.4968 * latitude - 2 * s * c * (A - l2 * (P1 + l2 * (P2 + l2 * (P3 + l2 * P4))));

    double const T1 = 6378245.0 + 21346.1415 * s2 + 107.159 * s4 + 0.5977 * s6;
    double const T2 = 1070204.16 - 2136826.66 * s2 + 17.98 * s4 - 11.99 * s6;
    double const T3 = 270806.0 - 1523417.0 * s2 + 1327645.0 * s4 - 21701.0 * s6;
    double const T4 = 79690.0 - 866190.0 * s2 + 1730360.0 * s4 - 945460.0 * s6;
    *y = EastingOfMeridian(n) + l * c * (T1 + l2 * (T2 + l2 * (T3 + l2 * T4)));
    return true;
}

bool proj2geod(double const& x, double const& y, double* B, double* L) {
    double const n = std::floor(y * 1e-6);
    if (!IsZone(n)) {
        return false;
    }
    double const b = x / 6367558.4968;
    double const t = std::sin(b) * std::sin(b);
    double const B0 = b + std::sin(2 * b) * (0.00252588685 - 1.49186e-5 * t + 1.1904e-7 * t * t);
    double const c = std::cos(B0);
    if (c == 0) {
        return false;
    }
    double const z = (y - EastingOfMeridian(n)) / (6378245.0 * c);
    double const w = z * z;
    double const s = std::sin(B0);
    double const u = s * s;
    double const u2 = u * u;
    double const u3 = u * u2;

    double const Q1 = 0.251684631 - 0.003369263 * u + 1.1276e-5 * u2;
    double const Q2 = 0.10500614 - 0.04559916 * u + 0.00228901 * u2 - 2.987e-5 * u3;
    double const Q3 = 0.042858 - 0.025318 * u + 0.014346 * u2 - 0.001264 * u3;
    double const Q4 = 0.01672 - 0.0063 * u + 0.01188 * u2 - 0.00328 * u3;
    *B = B0 - 2 * s * c * w * (Q1 - w * (Q2 - w * (Q3 - w * Q4)));

    double const R1 = 1.0 - 0.0033467108 * u - 5.6002e-6 * u2 - 1.87e-8 * u3;
    double const R2 = 0.16778975 + 0.16273586 * u - 0.0005249 * u2 - 8.46e-6 * u3;
    double const R3 = 0.0420025 + 0.1487407 * u + 0.005942 * u2 - 1.5e-5 * u3;
    double const R4 = 0.01225 + 0.09477 * u + 0.03282 * u2 - 0.00034 * u3;
    double const R5 = 0.0038 + 0.0524 * u + 0.0482 * u2 + 0.0032 * u3;
    *L = 6 * (n - 0.5) / DegreesPerRadian + z * (R1 - w * (R2 - w * (R3 - w * (R4 - w * R5))));
    return true;
}

bool TransformType(double a, double e2, TGOST51794RefsystemType srcType, double x, double y, double z,
                   TGOST51794RefsystemType dstType, double* outX, double* outY, double* outZ) {
    if (srcType == dstType) {
        *outX = x;
        *outY = y;
        *outZ = z;
        return true;
    }
    double B = x;
    double L = y;
    double H = z;
    switch (srcType) {
    case grtGeocentric:
        if (dstType == grtGeodetic) {
            return geoc2geod(a, e2, x, y, z, outX, outY, outZ);
        }
        if (dstType != grtProjected || !geoc2geod(a, e2, x, y, z, &B, &L, &H) ||
            !geod2proj(B, L, outX, outY)) {
            return false;
        }
        *outZ = H;
        return true;
    case grtGeodetic:
        if (dstType == grtGeocentric) {
            return geod2geoc(a, e2, B, L, H, outX, outY, outZ);
        }
        if (dstType != grtProjected || !geod2proj(B, L, outX, outY)) {
            return false;
        }
        *outZ = H;
        return true;
    case grtProjected:
        if (dstType == grtGeocentric) {
            return proj2geod(x, y, &B, &L) && geod2geoc(a, e2, B, L, H, outX, outY, outZ);
        }
        if (dstType != grtGeodetic || !proj2geod(x, y, outX, outY)) {
            return false;
        }
        *outZ = H;
        return true;
    }
    return false;
}

bool TransformType(TGOST51794Datum datum, TGOST51794RefsystemType srcType, double x, double y, double z,
                   TGOST51794RefsystemType dstType, double* outX, double* outY, double* outZ) {
    if (!IsAllowed(datum, srcType) || !IsAllowed(datum, dstType)) {
        return false;
    }
    return TransformType(SemiMajorAxes[datum], EccentricitiesSquared[datum], srcType, x, y, z, dstType, outX,
                         outY, outZ);
}

bool GOST51794TransformCoords(TGOST51794Version version, TGOST51794RefsystemParams const& src,
                              double const& x, double const& y, double const& z,
                              TGOST51794RefsystemParams const& dst, double* outX, double* outY,
                              double* outZ) {
    if (src.Datum == dst.Datum) {
        return TransformType(src.Datum, src.RefsystemType, x, y, z, dst.RefsystemType, outX, outY, outZ);
    }
    TPoint point{};
    if (!IsInTables(dst.Datum) ||
        !TransformType(src.Datum, src.RefsystemType, x, y, z, grtGeocentric, &point.x, &point.y, &point.z) ||
        !ShiftAlongRoad(version, src.Datum, dst.Datum, &point)) {
        return false;
    }
    return TransformType(dst.Datum, grtGeocentric, point.x, point.y, point.z, dst.RefsystemType, outX, outY,
                         outZ);
}

bool GetGOST51794Params(TGOST51794Version version, TGOST51794Datum datum, double* a, double* b,
                        TDatumShiftParams* params) {
    if (!IsInTables(datum)) {
        return false;
    }
    *a = SemiMajorAxes[datum];
    *b = SemiMinorAxes[datum];
    TRoads const* const roads = RoadsOf(version);
    if (!roads) {
        return false;
    }
    if (datum == gdWGS84) {
        *params = TDatumShiftParams();
        return true;
    }
    TRoad const& road = (*roads)[datum][gdWGS84];
    if (road.first == NoStep) {
        return false;
    }
    *params = Combined(road);
    return true;
}

} // namespace KvRefSystem::GOST51794
