#include "core/projections/GaussKrugerWide.h"
#include "core/projections/TransverseMercator.h"
#include "tests/core/projections/TransverseChecks.h"

#include <cstddef>
#include <memory>
#include <type_traits>

namespace {

using namespace ProjectionChecks;
using Record = KvRefSystem::TGaussKrugerWideMapProjectionParameters;
using Projection = KvRefSystem::TGaussKrugerWideMapProjection;

// Hosts are compiled against this layout.
static_assert(std::is_base_of_v<TMapProjection, Projection> && std::has_virtual_destructor_v<Projection>);
static_assert(sizeof(Record) == 32 && std::is_standard_layout_v<Record>);
static_assert(offsetof(Record, CentralMeridian) == 0 && offsetof(Record, FalseEasting) == 8);
static_assert(offsetof(Record, FalseNorthing) == 16 && offsetof(Record, ScaleFactor) == 24);
static_assert(std::is_copy_constructible_v<Projection> && !std::is_copy_assignable_v<Projection>);

Record Zone39() {
    return Record(39 * Degree, 7500000, 0);
}

// 55 N, 21 degrees east of the central meridian on WGS 84: the formulas with 40 digits in mpmath.
constexpr double Chi = 0.956773945488615525;
constexpr double Lambda = 21 * Degree;
constexpr double Xi = 0.988746323822388459;
constexpr double Eta = 0.20948884620060876;
constexpr double Northing = 6301122.54547051;
constexpr double Easting = 1332996.28323987;

constexpr double RoundingRadians = 5e-16;

} // namespace

TEST(GaussKrugerWide, RecordStoresTheScaleLastButTakesItSecond) {
    Record const record(1, 2, 3, 4);
    EXPECT_EQ(record.CentralMeridian, 1);
    EXPECT_EQ(record.ScaleFactor, 2);
    EXPECT_EQ(record.FalseEasting, 3);
    EXPECT_EQ(record.FalseNorthing, 4);
}

TEST(GaussKrugerWide, RecordOfThreeValuesHasAScaleOfOne) {
    Record const three(0.7, 500000, -1000);
    EXPECT_EQ(three.CentralMeridian, 0.7);
    EXPECT_EQ(three.FalseEasting, 500000);
    EXPECT_EQ(three.FalseNorthing, -1000);
    EXPECT_EQ(three.ScaleFactor, 1);
    Record const four(0.7, 1, 500000, -1000);
    Projection const one(&Wgs84, &three);
    Projection const two(&Wgs84, &four);
    EXPECT_TRUE(one == two);
    ExpectSameResultsInBothHemispheres(one, two);
}

TEST(GaussKrugerWide, HasItsType) {
    Record const record = Zone39();
    EXPECT_EQ(Projection(&Wgs84, &record).Type, KvRefSystem::mptGaussKrugerWide);
}

TEST(GaussKrugerWide, GivesThePublishedExampleOfTheBritishGrid) {
    // EPSG Guidance Note 7-2, method 9807: 50 30'N, 0 30'E to (577274.99, 69740.50) with an origin at 49 N
    // whose arc is printed as 5429228.60.
    Record const record(-2 * Degree, 0.9996012717, 400000, -100000 - 0.9996012717 * 5429228.60);
    Projection const projection(&Airy, &record);
    ExpectNear(Project(projection, 50.5, 0.5), 577274.99, 69740.50, 0.015);
    ExpectNear(UnprojectToDegrees(projection, 577274.99, 69740.50), 0.5, 50.5, 0.0006 / 3600);
}

TEST(GaussKrugerWide, FollowsTheSeriesForward) {
    // The formulas with 40 digits in mpmath.
    Record const record = Zone39();
    Projection const projection(&Wgs84, &record);
    ExpectNear(Project(projection, 55, 37), 7372020.6168655, 6099060.3305911, RoundingMetres);
    ExpectNear(Project(projection, -80, 41), 7538779.56954161, -8885806.49235043, RoundingMetres);
    ExpectNear(Project(projection, 55, 60), 8832996.28323987, 6301122.54547051, RoundingMetres);
}

TEST(GaussKrugerWide, FollowsTheSeriesInReverse) {
    // The formulas with 40 digits in mpmath, the iteration stopped by its threshold.
    Record const record = Zone39();
    Projection const projection(&Wgs84, &record);
    ExpectNear(UnprojectToDegrees(projection, 8832996.2832, 6301122.5455), 60.000000000539062,
               54.999999999815532, RoundingDegrees);
}

TEST(GaussKrugerWide, StaysWithinATenthOfAMillimetreOfTheTruthFarFromTheMeridian) {
    // GeographicLib's TransverseMercatorExact on Krassowsky's ellipsoid; at 30 degrees 0.3 mm are left.
    Record const record(39 * Degree, 0, 0);
    Projection const projection(&Krassowsky, &record);
    ExpectNear(Project(projection, 55, 60), 1333018.421596, 6301232.808614, 1e-4);
    ExpectNear(Project(projection, -30, 69), 2959879.959109, -3731632.402117, 3e-4);
}

TEST(GaussKrugerWide, EquatorOnTheCentralMeridianIsTheFalseOrigin) {
    Record const record(39 * Degree, 0.9996, 500000, -250);
    TCoords point{record.CentralMeridian, 0, 0, false};
    Projection const projection(&Wgs84, &record);
    projection.GeodeticToProjected(&point);
    EXPECT_EQ(point.X, 500000);
    EXPECT_EQ(point.Y, -250);
    projection.ProjectedToGeodetic(&point);
    EXPECT_NEAR(point.X, record.CentralMeridian, RoundingRadians);
    EXPECT_NEAR(point.Y, 0, RoundingRadians);
}

TEST(GaussKrugerWide, PolesAreAQuarterOfTheMeridianAway) {
    // 10001965.72931272 m on WGS 84 by quadrature in mpmath; the radius without n4 leaves 0.02 mm.
    Record const record(39 * Degree, 0, 0);
    Projection const projection(&Wgs84, &record);
    ExpectNear(Project(projection, 90, 60), 0, 10001965.72931, 3e-5);
    ExpectNear(Project(projection, -90, 20), 0, -10001965.72931, 3e-5);
}

TEST(GaussKrugerWide, LongitudeDifferenceWrapsAtTheAntimeridian) {
    // Two degrees to the west, by the formulas with 40 digits in mpmath.
    Record const record(-179 * Degree, 0, 0);
    Projection const projection(&Wgs84, &record);
    TCoords const point = Project(projection, 10, 179);
    ExpectNear(point, -219320.867180965, 1106519.73760093, RoundingMetres);
    EXPECT_NEAR(UnprojectToDegrees(projection, point.X, point.Y).X, 179, 1e-9);
}

TEST(GaussKrugerWide, PointsBeyondNinetyDegreesFoldBackOnPurpose) {
    // The formulas with 40 digits in mpmath, 100 degrees from the central meridian at 10 S: the one-argument
    // arctangent takes it for a point 80 degrees away in the north, and so does the way back.
    Record const record = Zone39();
    Projection const projection(&Wgs84, &record);
    ExpectNear(Project(projection, -10, 139), 20815107.1036454, 5202488.78914377, 2e-7);
    ExpectNear(UnprojectToDegrees(projection, 20815107.1036454, 5202488.78914377), 118.99976298414586,
               10.000170001505445, 1e-12);
}

TEST(GaussKrugerWide, NorthingsBeyondThePoleFoldBackOnPurpose) {
    // The formulas with 40 digits in mpmath; on the other side of the pole the true longitude is 204.7
    // degrees.
    Record const record = Zone39();
    ExpectNear(UnprojectToDegrees(Projection(&Wgs84, &record), 8000000, 12000000), 24.714964780404079,
               71.572501649907784, RoundingDegrees);
}

TEST(GaussKrugerWide, NinetyDegreesAwayOnTheEquatorIsUnbounded) {
    Record const record(0, 0, 0);
    Projection const projection(&Wgs84, &record);
    TCoords east{Pi / 2, 0, 0, false};
    projection.GeodeticToProjected(&east);
    EXPECT_EQ(east.X, Infinity);
    TCoords west{-Pi / 2, 0, 0, false};
    projection.GeodeticToProjected(&west);
    EXPECT_EQ(west.X, -Infinity);
}

TEST(GaussKrugerWide, EastingsWithoutBoundEndOnTheEquatorAQuarterAway) {
    // Far outside of the domain, where the hyperbolic terms grow beyond any northing.
    Record const record(0, 0, 0);
    TCoords point{2e8, 0, 0, false};
    Projection(&Wgs84, &record).ProjectedToGeodetic(&point);
    EXPECT_NEAR(std::fabs(point.X), Pi / 2, RoundingRadians);
    EXPECT_NEAR(point.Y, 0, RoundingRadians);
}

TEST(GaussKrugerWide, RoundTripStaysWithinItsBoundUpToThirtyDegrees) {
    // The radius without n4 and the series without it there and back; from twenty degrees on they grow.
    Record const record(9 * Degree, 0.9996, 500000, 0);
    for (TEllipsoidSemiAxes const& axes : {Wgs84, Krassowsky, International, Airy}) {
        Projection const projection(&axes, &record);
        EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-89, 89, 9, 6)), 7.5e-5);
        EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-89, 89, 9, 20)), 1.1e-4);
        EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-89, 89, 9, 30)), 2.6e-4);
    }
}

TEST(GaussKrugerWide, StepsAreOpenOneByOne) {
    // Northing first.
    Record const record = Zone39();
    Projection const projection(&Wgs84, &record);
    double first = 0;
    double second = 0;
    projection.LambertSphericalToRectangular(Chi, Lambda, &first, &second);
    EXPECT_NEAR(first, Xi, RoundingRadians);
    EXPECT_NEAR(second, Eta, RoundingRadians);
    projection.LambertRectangularToSpherical(Xi, Eta, &first, &second);
    EXPECT_NEAR(first, Chi, RoundingRadians);
    EXPECT_NEAR(second, Lambda, RoundingRadians);
    projection.LambertToTransverseMercator(Xi, Eta, &first, &second);
    EXPECT_NEAR(first, Northing, RoundingMetres);
    EXPECT_NEAR(second, Easting, RoundingMetres);
    // By mpmath with 40 digits; not quite the pair above, since both series end at n3.
    projection.TransverseMercatorToLambert(6301122.5455, 1332996.2832, &first, &second);
    EXPECT_NEAR(first, 0.98874632382097428, RoundingRadians);
    EXPECT_NEAR(second, 0.20948884620685886, RoundingRadians);
}

TEST(GaussKrugerWide, StepsMayWriteOverTheirInputs) {
    Record const record = Zone39();
    Projection const projection(&Wgs84, &record);
    using TStep = void (Projection::*)(double const&, double const&, double*, double*) const;
    for (TStep const step :
         {&Projection::LambertSphericalToRectangular, &Projection::LambertRectangularToSpherical,
          &Projection::LambertToTransverseMercator, &Projection::TransverseMercatorToLambert}) {
        double first = 0;
        double second = 0;
        (projection.*step)(0.9, 0.3, &first, &second);
        double one = 0.9;
        double two = 0.3;
        (projection.*step)(one, two, &one, &two);
        EXPECT_EQ(one, first);
        EXPECT_EQ(two, second);
        one = 0.9;
        two = 0.3;
        (projection.*step)(one, two, &two, &one);
        EXPECT_EQ(two, first);
        EXPECT_EQ(one, second);
    }
}

TEST(GaussKrugerWide, WholeWayIsTheStepsInARow) {
    Record const record(0, 0, 0);
    Projection const projection(&Wgs84, &record);
    KvRefSystem::TEllipsoidToSphereMollweideProjection const sphere(Wgs84.a, Wgs84.b, 0, 0);
    for (double lat = -89; lat <= 89; lat += 1) {
        for (double lon = -80; lon <= 80; lon += 10) {
            double first = 0;
            double second = 0;
            sphere.EllipsoidToSphere(lat * Degree, lon * Degree, &first, &second);
            projection.LambertSphericalToRectangular(first, second, &first, &second);
            projection.LambertToTransverseMercator(first, second, &first, &second);
            TCoords const there = Project(projection, lat, lon);
            // The hyperbolic terms enlarge the last places of eta at eighty degrees.
            ExpectNear(there, second, first, 3e-7);
            projection.TransverseMercatorToLambert(there.Y, there.X, &first, &second);
            projection.LambertRectangularToSpherical(first, second, &first, &second);
            sphere.SphereToEllipsoid(first, second, &first, &second);
            ExpectNear(UnprojectToDegrees(projection, there.X, there.Y), second / Degree, first / Degree,
                       1e-11);
        }
    }
}

TEST(GaussKrugerWide, PrecalculateKeepsTheMappingOntoTheSphereOnPurpose) {
    // By mpmath with 40 digits: conformal latitude on WGS 84, series on Bessel's ellipsoid.
    Record const record(39 * Degree, 0, 0);
    Projection projection(&Wgs84, &record);
    projection.Precalculate(&Bessel, &record);
    ExpectNear(Project(projection, 55, 60), 1332851.096002609, 6300407.347137352, RoundingMetres);
}

TEST(GaussKrugerWide, PrecalculateTakesOverTheRecord) {
    Record const first = Zone39();
    Record const second(21 * Degree, 0.9996, 500000, 100);
    Projection projection(&Wgs84, &first);
    projection.Precalculate(&Wgs84, &second);
    Projection const expected(&Wgs84, &second);
    EXPECT_TRUE(projection == expected);
    ExpectSameResultsInBothHemispheres(projection, expected);
    projection.Precalculate(&Wgs84, projection.Parameters);
    ExpectSameResultsInBothHemispheres(projection, expected);
}

TEST(GaussKrugerWide, WorksOnASphere) {
    // The closed form on the sphere (Snyder, 8-1 and 8-3).
    TEllipsoidSemiAxes const sphere = {6371000, 6371000};
    Record const record(0, 0, 0);
    Projection const projection(&sphere, &record);
    for (double lat = -90; lat <= 90; lat += 5) {
        for (double lon = -80; lon <= 80; lon += 5) {
            double const across = std::cos(lat * Degree) * std::sin(lon * Degree);
            double const northing = 6371000 * std::atan2(std::tan(lat * Degree), std::cos(lon * Degree));
            TCoords const point = Project(projection, lat, lon);
            ExpectNear(point, 6371000 * std::atanh(across), northing, RoundingMetres);
            TCoords const back = UnprojectToDegrees(projection, point.X, point.Y);
            EXPECT_NEAR(back.Y, lat, 1e-12);
            EXPECT_NEAR((back.X - lon) * std::cos(lat * Degree), 0, 1e-12);
        }
    }
}

TEST(GaussKrugerWide, SemiMinorAxisGreaterThanTheMajorOneGivesNoNumber) {
    TEllipsoidSemiAxes const egg = {6356752, 6378137};
    Record const record = Zone39();
    Projection const projection(&egg, &record);
    EXPECT_TRUE(std::isnan(Project(projection, 55, 37).X));
    EXPECT_TRUE(std::isnan(UnprojectToDegrees(projection, 7372020, 6099060).Y));
}

TEST(GaussKrugerWide, ReturnsWhateverComesIn) {
    Record const record = Zone39();
    ExpectToTakeAnyNumber(Projection(&Wgs84, &record));
}

TEST(GaussKrugerWide, LeavesHeightsAlone) {
    Record const record = Zone39();
    ExpectHeightsUntouched(Projection(&Wgs84, &record));
}

TEST(GaussKrugerWide, AllocatesNothingPerPoint) {
    Record const record = Zone39();
    ExpectNoAllocation(Projection(&Wgs84, &record));
}

TEST(GaussKrugerWide, KeepsItsOwnCopyOfTheRecord) {
    auto record = std::make_unique<Record>(Zone39());
    Projection const projection(&Wgs84, record.get());
    TCoords const before = Project(projection, 55, 60);
    record->FalseEasting = 0;
    EXPECT_EQ(Project(projection, 55, 60), before);
    record.reset();
    EXPECT_EQ(Project(projection, 55, 60), before);
}

TEST(GaussKrugerWide, CopyHasARecordAndASphereOfItsOwn) {
    Record const record = Zone39();
    ExpectCopiesToStandAlone<Projection>(Wgs84, record, 55, 60);
    auto source = std::make_unique<Projection>(&Wgs84, &record);
    Projection const copy(*source);
    EXPECT_EQ(copy.Type, KvRefSystem::mptGaussKrugerWide);
    ExpectSameResultsInBothHemispheres(copy, *source);
    TCoords const before = Project(*source, 55, 60);
    source.reset();
    EXPECT_EQ(Project(copy, 55, 60), before);
    ExpectNear(UnprojectToDegrees(copy, before.X, before.Y), 60, 55, 1e-8);
}

TEST(GaussKrugerWide, EqualityComparesEveryFieldExactly) {
    ExpectEqualityOfRecords<Projection>(Record(0.1, 0.2, 0.3, 0.4));
}

TEST(GaussKrugerWide, EqualityIgnoresTheEllipsoidOnPurpose) {
    Record const record = Zone39();
    EXPECT_TRUE(Projection(&Wgs84, &record) == Projection(&Krassowsky, &record));
}

TEST(GaussKrugerWide, DiffersFromATransverseMercatorOfTheSameNumbers) {
    Record const record = Zone39();
    KvRefSystem::TTransverseMercatorMapProjectionParameters const series(39 * Degree, 0, 1, 7500000, 0);
    Projection const one(&Wgs84, &record);
    KvRefSystem::TTransverseMercatorMapProjection const two(&Wgs84, &series);
    EXPECT_FALSE(one == two);
    EXPECT_FALSE(two == one);
}
