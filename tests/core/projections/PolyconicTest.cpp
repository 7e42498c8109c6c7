#include "core/projections/Polyconic.h"

#include "tests/core/projections/ProjectionChecks.h"

namespace {

using namespace ProjectionChecks;
using KvRefSystem::TPolyconicMapProjection;
using Record = KvRefSystem::TPolyconicMapProjectionParameters;

constexpr std::array<double, 5> Fields = {-0.9, 0.5, 0.9999, 5e6, 1e7};

TPolyconicMapProjection Brazil() {
    Record const record(-54 * Degree, 0, 1, 5e6, 1e7);
    return TPolyconicMapProjection(&Wgs84, &record);
}

TPolyconicMapProjection WithOrigin(double latitudeRadians, double scale, double falseNorthing) {
    Record const record(-54 * Degree, latitudeRadians, scale, 0, falseNorthing);
    return TPolyconicMapProjection(&Wgs84, &record);
}

TEST(Polyconic, GivesSnydersExample) {
    // [Snyder87, 303-304]: Clarke 1866, origin 30 N 96 W, place 40 N 75 W.
    Record const record(-96 * Degree, 30 * Degree, 1, 0, 0);
    TPolyconicMapProjection const projection(&Clarke1866, &record);
    ExpectNear(Project(projection, 40, -75), 1776774.5, 1319657.8, 0.05);
    ExpectNear(Unproject(projection, 1776774.5, 1319657.8), -75 * Degree, 40 * Degree, 2e-8);
}

TEST(Polyconic, ProjectsBrazil) {
    // PROJ's poly, whose meridian has more terms.
    ExpectNear(Project(Brazil(), -10, -50), 5438546.7142, 8891486.8987, 1e-4);
}

TEST(Polyconic, RoundTripsClose) {
    EXPECT_LT(GreatestRoundTripError(Brazil(), {-35, 6, -74, -34}), 1e-4);
    EXPECT_LT(GreatestRoundTripError(Brazil(), {-80, 80, -114, 6}), 2e-4);
}

TEST(Polyconic, ReverseLongitudeNearTheEquatorComesFromTheLastPassesStart) {
    // The last step, of up to 1e-11 radians, is a part of the latitude that grows towards the equator.
    EXPECT_LT(GreatestRoundTripError(Brazil(), {1e-4, 2e-4, -74, -34}), 1e-3);
    EXPECT_GT(GreatestRoundTripError(Brazil(), {1e-5, 2e-5, -74, -34}), 1e-4);
    EXPECT_LT(GreatestRoundTripError(Brazil(), {1e-7, 5.7e-6, -74, -34}), 0.65);
}

TEST(Polyconic, ScaleFactorMultipliesTheMap) {
    TCoords const one = Project(WithOrigin(0.5, 1, 0), 10, -50);
    TCoords const half = Project(WithOrigin(0.5, 0.5, 100), 10, -50);
    ExpectNear(half, one.X / 2, one.Y / 2 + 100, 1e-8);
    ExpectNear(Unproject(WithOrigin(0.5, 0.5, 100), half.X, half.Y), -50 * Degree, 10 * Degree, 1e-12);
}

TEST(Polyconic, EquatorsNorthingStaysInSemiMajorAxesAndThatIsMeant) {
    // The meridian's series at 0.5 radians, mpmath: 0.497048579542700811.
    TCoords const point = Project(WithOrigin(0.5, 1, 0), 1e-8 / Degree, -50);
    EXPECT_NEAR(point.Y, -0.497048579542701, 1e-15);
    EXPECT_NEAR(point.X, 6378137 * 4 * Degree, 1e-8);
    EXPECT_NEAR(Project(WithOrigin(0.5, 0.9, 100), 0, -50).Y, 100 - 0.9 * 0.497048579542701, 1e-12);
    // From 1e-7 radians on they are metres.
    EXPECT_NEAR(Project(WithOrigin(0.5, 1, 0), 1.1e-7 / Degree, -50).Y, -0.497048579542701 * 6378137, 1);
}

TEST(Polyconic, ReverseNearTheEquatorGivesLatitudeZero) {
    TCoords const point = Unproject(WithOrigin(0, 1, 0), 600000, 0.6);
    EXPECT_EQ(point.Y, 0);
    EXPECT_NEAR(point.X, -54 * Degree + 600000 / 6378137.0, 1e-15);
    // 1e-7 semi-major axes are 0.638 m.
    EXPECT_GT(Unproject(WithOrigin(0, 1, 0), 600000, 0.65).Y, 0);
    // The longitude is normalised there too.
    EXPECT_NEAR(Unproject(WithOrigin(0, 1, 0), -2.2e7, 0).X, -54 * Degree - 2.2e7 / 6378137 + 2 * Pi, 1e-14);
}

TEST(Polyconic, LongitudesAreWrapped) {
    Record const record(-179 * Degree, 0, 1, 0, 0);
    TPolyconicMapProjection const projection(&Wgs84, &record);
    TCoords const across = Project(projection, 10, 179);
    TCoords const mirrored = Project(projection, 10, -177);
    ExpectNear(across, -mirrored.X, mirrored.Y, 1e-8);
    EXPECT_NEAR(Unproject(projection, across.X, across.Y).X, 179 * Degree, 1e-11);
}

TEST(Polyconic, LongitudesArcSineIsClampedOutsideOfTheMap) {
    // East of the map's edge: x C is above 1, but the longitude stays a number.
    TCoords const point = Unproject(Brazil(), 5e6 + 2e7, 1e7 + 2e6);
    EXPECT_TRUE(std::isfinite(point.X));
    EXPECT_LE(std::fabs(point.X), Pi);
}

double MeridianLength(TPolyconicMapProjection const& projection, double phi);
double MeridianDerivative(TPolyconicMapProjection const& projection, double phi);

/** Calls two private operations: their names are exported. An explicit instantiation may name what is private. */
template <auto Length, auto Derivative>
struct TMeridian {
    friend double MeridianLength(TPolyconicMapProjection const& projection, double phi) {
        return (projection.*Length)(phi);
    }
    friend double MeridianDerivative(TPolyconicMapProjection const& projection, double phi) {
        return (projection.*Derivative)(phi);
    }
};
template struct TMeridian<&TPolyconicMapProjection::meridian_length,
                          &TPolyconicMapProjection::dmeridian_length_dphi>;

TEST(Polyconic, MeridiansDerivativeIsThatOfItsLength) {
    constexpr double step = 1e-4;
    constexpr double f = 1 / 298.257223563; // of WGS 84
    constexpr double e2 = f * (2 - f);
    for (double const latitude : {-90.0, -54.0, -1.0, 0.0, 30.0, 45.0, 89.0}) {
        double const phi = latitude * Degree;
        double const derivative = MeridianDerivative(Brazil(), phi);
        double const difference = MeridianLength(Brazil(), phi + step) - MeridianLength(Brazil(), phi - step);
        EXPECT_NEAR(derivative, difference / (2 * step), 1e-9) << latitude;

        // The meridian's radius of curvature in semi-major axes; the series ends behind the sixth power of e.
        double const sine = std::sin(phi);
        EXPECT_NEAR(derivative, (1 - e2) / std::pow(1 - e2 * sine * sine, 1.5), 5e-9) << latitude;
    }
}

TEST(Polyconic, FieldsStandInTheirStoredOrder) {
    ExpectRecordInStoredOrder<Record>(Fields);
    Record const record(1, 2, 3, 4, 5);
    EXPECT_EQ(record.LongitudeOfOrigin, 1);
    EXPECT_EQ(record.LatitudeOfOrigin, 2);
    EXPECT_EQ(record.ScaleFactor, 3);
    EXPECT_EQ(record.FalseEasting, 4);
    EXPECT_EQ(record.FalseNorthing, 5);
}

TEST(Polyconic, EqualityComparesTheWholeRecordAndNotTheEllipsoid) {
    ExpectEqualityOfRecords<TPolyconicMapProjection>(RecordOf<Record>(Fields));
}

TEST(Polyconic, CopiesStandAlone) {
    ExpectCopiesToStandAlone<TPolyconicMapProjection>(Wgs84, RecordOf<Record>(Fields), 20, -50);
}

TEST(Polyconic, TakesAnyNumber) {
    ExpectToTakeAnyNumber(Brazil());
    ExpectToTakeAnyNumber(WithOrigin(0.5, 0, 0));
}

} // namespace
