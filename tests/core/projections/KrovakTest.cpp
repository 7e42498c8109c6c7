#include "core/projections/Krovak.h"

#include "tests/core/projections/ProjectionChecks.h"

namespace {

using namespace ProjectionChecks;
using KvRefSystem::TKrovakMapProjection;
using Record = KvRefSystem::TKrovakMapProjectionParameters;

constexpr std::array<double, 7> Fields = {1, 2, 3, 4, 5, 6, 7};

/** S-JTSK. */
Record National(double azimuthSeconds, double falseEasting, double falseNorthing) {
    return Record(49.5 * Degree, Dms(24, 50, 0) * Degree, Dms(30, 17, azimuthSeconds) * Degree, 78.5 * Degree,
                  0.9999, falseEasting, falseNorthing);
}

TKrovakMapProjection Sjtsk(double falseEasting = 0, double falseNorthing = 0) {
    Record const record = National(17.3031, falseEasting, falseNorthing);
    return TKrovakMapProjection(&Bessel, &record);
}

constexpr TRegion Czechoslovakia = {47.5, 51.5, 12, 22.7};
constexpr double ExampleLatitude = Dms(50, 12, 32.442);
constexpr double ExampleLongitude = Dms(16, 50, 59.179);

TEST(Krovak, GivesTheExampleOfTheGuidanceNoteTurnedToEastAndNorth) {
    // [EPSG7-2, 9819]: southing 1050538.643, westing 568990.997 from rounded intermediate values.
    ExpectNear(Project(Sjtsk(), ExampleLatitude, ExampleLongitude), -568990.997, -1050538.643, 0.015);
    // The same place with 40 digits.
    ExpectNear(Project(Sjtsk(), ExampleLatitude, ExampleLongitude), -568990.9954, -1050538.6312, 5e-5);
}

TEST(Krovak, AgreesWithFortyDigits) {
    // mpmath, with the azimuth 30 17 17.30311.
    Record const record = National(17.30311, 0, 0);
    TKrovakMapProjection const projection(&Bessel, &record);
    ExpectNear(Project(projection, 51.416666666666667, 11), -957688.182626431594, -858793.645696754694, 1e-8);
    ExpectNear(Project(projection, 50, 15), -703105.68993697269, -1058219.60082692021, 5e-9);
}

TEST(Krovak, InvertsWithoutFalseValues) {
    EXPECT_LT(GreatestRoundTripError(Sjtsk(), Czechoslovakia), 1e-6);
    // The whole side of the cone that looks away from the pole.
    EXPECT_LT(GreatestRoundTripError(Sjtsk(), {0, 45, -15, 65}), 1e-5);
}

TEST(Krovak, ForwardAddsTheFalseValuesBeforeTheSignTurns) {
    TCoords const without = Project(Sjtsk(), ExampleLatitude, ExampleLongitude);
    TCoords const with = Project(Sjtsk(1000, 300), ExampleLatitude, ExampleLongitude);
    ExpectNear(with, without.X - 1000, without.Y - 300, 1e-8);
}

TEST(Krovak, DoesNotInvertWithFalseValuesAndThatIsMeant) {
    TKrovakMapProjection const projection = Sjtsk(1000, 0);
    TCoords const plane = Project(projection, ExampleLatitude, ExampleLongitude);
    TCoords const back = Unproject(projection, plane.X, plane.Y);
    // The reverse takes 1000 m off once more: it shows the place 2000 m to the west.
    TCoords const shown = Unproject(Sjtsk(), plane.X - 1000, plane.Y);
    ExpectNear(back, shown.X, shown.Y, 0);
    TCoords const place = Unproject(Sjtsk(), plane.X + 1000, plane.Y);
    double const west = (place.X - back.X) * std::cos(place.Y);
    EXPECT_NEAR(6.39e6 * std::hypot(west, place.Y - back.Y), 2000, 5);
}

TEST(Krovak, LongitudesAreNotWrapped) {
    // Twice 180 degrees on the sphere aren't a turn there, as the longitude ratio is above 1.
    TCoords const here = Project(Sjtsk(), 49, 15);
    TCoords const turned = Project(Sjtsk(), 49, 375);
    EXPECT_GT(std::hypot(here.X - turned.X, here.Y - turned.Y), 10000);
}

TEST(Krovak, ObliqueLongitudesFoldAtNinetyDegreesAndThatIsMeant) {
    // The pole lies behind the cone's axis, at 180 degrees; the arc sine brings it in front.
    TCoords const pole = Project(Sjtsk(), 90, 15);
    EXPECT_NEAR(pole.X, 0, 1e-6);
    EXPECT_LT(pole.Y, -3e6);
    EXPECT_LT(Unproject(Sjtsk(), pole.X, pole.Y).Y, 30 * Degree);
}

TEST(Krovak, ReverseOfTheApexIsTheConesAxis) {
    TCoords const axis = Unproject(Sjtsk(), 0, 0);
    EXPECT_NEAR(axis.X, Dms(24, 50, 0) * Degree, 1e-12);
    // 90 degrees less the azimuth on the sphere, mpmath.
    EXPECT_NEAR(axis.Y, 59.7575985658434 * Degree, 2e-12);
}

TEST(Krovak, FieldsStandInTheirStoredOrder) {
    ExpectRecordInStoredOrder<Record>(Fields);
    Record const record = National(17, 6, 7);
    EXPECT_EQ(record.LatitudeOfPseudoStandardParallel, 78.5 * Degree);
    EXPECT_EQ(record.FalseNorthing, 7);
}

TEST(Krovak, EqualityComparesTheWholeRecordAndNotTheEllipsoid) {
    ExpectEqualityOfRecords<TKrovakMapProjection>(RecordOf<Record>(Fields));
}

TEST(Krovak, CopiesStandAlone) {
    Record const record(0.86, 0.43, 0.53, 1.37, 0.9999, 0, 0);
    ExpectCopiesToStandAlone<TKrovakMapProjection>(Wgs84, record, ExampleLatitude, ExampleLongitude);
}

TEST(Krovak, TakesAnyNumber) {
    ExpectToTakeAnyNumber(Sjtsk());
    Record const record = National(17.3031, 0, 0);
    ExpectToTakeAnyNumber(TKrovakMapProjection(&Sphere, &record));
}

} // namespace
