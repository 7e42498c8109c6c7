#include "core/projections/PolarStereographic.h"

#include "tests/core/projections/ProjectionChecks.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <type_traits>

using namespace KvRefSystem;
using namespace ProjectionChecks;

namespace {

using TOlder = TPolarStereographicMapProjection;
using TOlderParameters = TPolarStereographicMapProjectionParameters;
using TBasic = TPolarStereographicBasicMapProjection;
using TBasicParameters = TPolarStereographicBasicMapProjectionParameters;
using TNatural = TPolarStereographicNaturalOriginMapProjection;
using TNaturalParameters = TPolarStereographicNaturalOriginMapProjectionParameters;
using TFalse = TPolarStereographicFalseOriginMapProjection;
using TFalseParameters = TPolarStereographicFalseOriginMapProjectionParameters;

static_assert(sizeof(TMapProjection) == 16);
static_assert(std::is_base_of_v<TMapProjection, TOlder> && std::is_base_of_v<TMapProjection, TBasic>);
static_assert(std::is_base_of_v<TMapProjection, TNatural> && std::is_base_of_v<TMapProjection, TFalse>);
static_assert(!std::is_copy_assignable_v<TOlder> && !std::is_copy_assignable_v<TBasic>);
static_assert(!std::is_copy_assignable_v<TNatural> && !std::is_copy_assignable_v<TFalse>);

static_assert(sizeof(TOlderParameters) == 40 && offsetof(TOlderParameters, LongitudeOfOrigin) == 0);
static_assert(offsetof(TOlderParameters, LatitudeOfOrigin) == 8);
static_assert(offsetof(TOlderParameters, ScaleFactor) == 16);
static_assert(offsetof(TOlderParameters, FalseEasting) == 24);
static_assert(offsetof(TOlderParameters, FalseNorthing) == 32);
static_assert(sizeof(TBasicParameters) == 40 && offsetof(TBasicParameters, Pole) == 0);
static_assert(offsetof(TBasicParameters, LongitudeOfOrigin) == 8);
static_assert(offsetof(TBasicParameters, ScaleFactor) == 16);
static_assert(offsetof(TBasicParameters, FalseEasting) == 24);
static_assert(offsetof(TBasicParameters, FalseNorthing) == 32);
static_assert(sizeof(TNaturalParameters) == 40 && offsetof(TNaturalParameters, Pole) == 0);
static_assert(offsetof(TNaturalParameters, LatitudeOfStandardParallel) == 8);
static_assert(offsetof(TNaturalParameters, LongitudeOfOrigin) == 16);
static_assert(offsetof(TNaturalParameters, FalseEasting) == 24);
static_assert(offsetof(TNaturalParameters, FalseNorthing) == 32);
static_assert(sizeof(TFalseParameters) == 40 && offsetof(TFalseParameters, Pole) == 0);
static_assert(offsetof(TFalseParameters, LatitudeOfStandardParallel) == 8);
static_assert(offsetof(TFalseParameters, LongitudeOfOrigin) == 16);
static_assert(offsetof(TFalseParameters, FalseEasting) == 24);
static_assert(offsetof(TFalseParameters, FalseNorthing) == 32);
static_assert(std::is_trivially_copy_constructible_v<TOlderParameters>);
static_assert(std::is_trivially_copy_constructible_v<TBasicParameters>);

TPole const neitherPole = static_cast<TPole>(3);

// Universal Polar Stereographic.
TOlder UpsOlder(double longitudeOfOrigin = 0, double latitudeOfOrigin = 90) {
    TOlderParameters const parameters(longitudeOfOrigin * Degree, latitudeOfOrigin * Degree, 0.994, 2e6, 2e6);
    return TOlder(&Wgs84, &parameters);
}

TBasic Ups(TPole pole, double longitudeOfOrigin = 0) {
    TBasicParameters const parameters(pole, longitudeOfOrigin * Degree, 0.994, 2e6, 2e6);
    return TBasic(&Wgs84, &parameters);
}

// WGS 84 / Australian Antarctic Polar Stereographic.
TNaturalParameters const antarctic(poleSouth, -71 * Degree, 70 * Degree, 6e6, 6e6);

// Petrels 1972 / Terre Adelie Polar Stereographic.
TFalseParameters const terreAdelie(poleSouth, -67 * Degree, 140 * Degree, 3e5, 2e5);
constexpr double TerreAdelieLatitude = -(66 + 36 / 60.0 + 18.820 / 3600);
constexpr double TerreAdelieLongitude = 140 + 4 / 60.0 + 17.040 / 3600;

/** Half of the last place that the published examples print. */
constexpr double Printed = 0.005;

/** Values that mpmath gave with 50 digits. */
constexpr double Computed = 1e-8;

template <class Function>
std::string LogicErrorOf(Function function) {
    try {
        function();
    } catch (std::logic_error const& error) {
        return typeid(error) == typeid(std::logic_error) ? error.what() : "of another type";
    }
    return "nothing thrown";
}

TEST(PolarStereographicBasic, GivesTheWorkedExampleOfVariantA) {
    // Guidance Note 7-2, 9810: 73 N, 44 E.
    TBasic const projection = Ups(poleNorth);
    TCoords const plane = Project(projection, 73, 44);
    ExpectNear(plane, 3320416.75, 632668.43, Printed);
    ExpectNear(plane, 3320416.74735985, 632668.431272129, Computed);
    ExpectNear(Unproject(projection, 3320416.74735985, 632668.431272129), 44 * Degree, 73 * Degree, 1e-13);
}

TEST(PolarStereographicBasic, MirrorsTheNorthInTheSouth) {
    TCoords const plane = Project(Ups(poleSouth), -73, 44);
    ExpectNear(plane, 3320416.74735985, 3367331.56872787, Computed);
    ExpectNear(Unproject(Ups(poleSouth), plane.X, plane.Y), 44 * Degree, -73 * Degree, 1e-13);
}

TEST(PolarStereographicBasic, GivesTheSphericalFormulaOnASphere) {
    // 2 R tan((90 - 60)/2) sin 30, cos 30: mpmath.
    TBasicParameters const parameters(poleNorth, 0, 1, 0, 0);
    TCoords const plane = Project(TBasic(&Sphere, &parameters), 60, 30);
    ExpectNear(plane, 1707106.18062303, -2956794.63875394, Computed);
}

TEST(PolarStereographicBasic, ReachesBeyondTheEquator) {
    // mpmath.
    ExpectNear(Project(Ups(poleSouth), 0, -100), 2e6 - 12445329.23436848, 2e6 - 2194447.327818987, 1e-7);
    ExpectNear(Project(Ups(poleNorth), -80, 100), 2e6 + 141314011.1260438, 2e6 + 24917472.91365772, 1e-5);
}

TEST(PolarStereographicBasic, PutsThePoleOnTheFalseOrigin) {
    TCoords const north = Project(Ups(poleNorth), 90, 123);
    EXPECT_EQ(north.X, 2e6);
    EXPECT_EQ(north.Y, 2e6);
    TCoords const south = Project(Ups(poleSouth), -90, 123);
    EXPECT_EQ(south.X, 2e6);
    EXPECT_EQ(south.Y, 2e6);
}

TEST(PolarStereographicBasic, OppositePoleIsFarButFinite) {
    // tan of the double next to pi/2 is 1.633123935319537e16, times 2 a k / root, times ((1+e)/(1-e))^(e/2).
    TCoords const far = Project(Ups(poleNorth), -90, 90);
    EXPECT_GT(far.X, 1e23);
    EXPECT_TRUE(std::isfinite(far.X));
    EXPECT_NEAR(Unproject(Ups(poleNorth), far.X, far.Y).Y, -90 * Degree, 1e-15);
}

TEST(PolarStereographicBasic, LongitudeDifferenceIsNotWrapped) {
    // Two turns away the sine differs by its rounding only, but it isn't the sine of the wrapped angle.
    TBasic const projection = Ups(poleNorth, 170);
    TCoords const near = Project(projection, 80, -170);
    TCoords const turned = Project(projection, 80, 190);
    ExpectNear(near, turned.X, turned.Y, 1e-8);
    double const delta = -170 * Degree - 170 * Degree;
    double const rho = std::hypot(near.X - 2e6, near.Y - 2e6);
    EXPECT_NEAR(near.X, 2e6 + rho * std::sin(delta), 1e-8);
    TCoords const huge = Project(projection, 80, 1e12);
    EXPECT_NEAR(huge.X, 2e6 + rho * std::sin(1e12 * Degree - 170 * Degree), 1e-8);
}

TEST(PolarStereographicBasic, ReverseOfThePoleIsOnTheLongitudeOfOrigin) {
    for (TPole const pole : {poleNorth, poleSouth}) {
        TCoords const geodetic = Unproject(Ups(pole, 30), 2e6, 2e6);
        EXPECT_EQ(geodetic.X, 30 * Degree);
        EXPECT_EQ(geodetic.Y, pole == poleNorth ? 90 * Degree : -90 * Degree);
    }
}

TEST(PolarStereographicBasic, ReverseOnTheFalseEastingIsOnTheLongitudeOfOriginAlsoBeyondThePole) {
    // North of the pole on the map lies the opposite meridian: 30 - 180 = -150. It's meant to come back as
    // 30.
    EXPECT_EQ(Unproject(Ups(poleNorth, 30), 2e6, 3e6).X, 30 * Degree);
    EXPECT_EQ(Unproject(Ups(poleSouth, 30), 2e6, 1e6).X, 30 * Degree);
    EXPECT_NEAR(Unproject(Ups(poleNorth, 30), 2e6 + 1e-6, 3e6).X, -150 * Degree, 1e-11);
}

TEST(PolarStereographicBasic, ReverseLongitudeIsNormalised) {
    TCoords const geodetic = Unproject(Ups(poleNorth, 170), 3e6, 2e6); // 90 degrees east of 170
    EXPECT_NEAR(geodetic.X, -100 * Degree, 1e-15);
}

TEST(PolarStereographicBasic, ComesBackAfterRoundTrips) {
    EXPECT_LT(GreatestRoundTripError(Ups(poleNorth), AroundMeridian(60, 90, 0, 179.9)), 1.2e-6);
    EXPECT_LT(GreatestRoundTripError(Ups(poleNorth), AroundMeridian(0, 90, 0, 179.9)), 1.4e-5);
    EXPECT_LT(GreatestRoundTripError(Ups(poleSouth), AroundMeridian(-90, 80, 0, 179.9)), 1.4e-5);
}

TEST(PolarStereographicBasic, TakesABadPoleAndRefusesItAtTheFirstCoordinate) {
    for (int const bad : {0, 3, -1, 256}) {
        TBasic const projection = Ups(static_cast<TPole>(bad));
        TCoords coords{0.25, 1.25, 7, true};
        EXPECT_EQ(LogicErrorOf([&] { projection.GeodeticToProjected(&coords); }),
                  "TPolarStereographicBasicMapProjection::GeodeticToProjected");
        EXPECT_EQ(LogicErrorOf([&] { projection.ProjectedToGeodetic(&coords); }),
                  "TPolarStereographicBasicMapProjection::ProjectedToGeodetic");
        EXPECT_EQ(coords.X, 0.25);
        EXPECT_EQ(coords.Y, 1.25);
    }
}

TEST(PolarStereographicBasic, RefusesABadPoleAlsoOnTheFalseEasting) {
    TBasic const projection = Ups(neitherPole);
    TCoords coords{2e6, 2e6, 0, false};
    EXPECT_EQ(LogicErrorOf([&] { projection.ProjectedToGeodetic(&coords); }),
              "TPolarStereographicBasicMapProjection::ProjectedToGeodetic");
}

TEST(PolarStereographicBasic, EqualityComparesTheRecordAndNotTheEllipsoid) {
    TBasicParameters const parameters(poleNorth, 1, 2, 3, 4);
    ExpectEqualityOfRecords<TBasic>(parameters);
    EXPECT_FALSE(TBasic(&Wgs84, &parameters) == UpsOlder());
}

TEST(PolarStereographicOlder, EqualsTheBasicOneInTheNorth) {
    TCoords const plane = Project(UpsOlder(), 73, 44);
    TCoords const basic = Project(Ups(poleNorth), 73, 44);
    ExpectEqual(plane, basic);
    ExpectNear(Unproject(UpsOlder(), plane.X, plane.Y), 44 * Degree, 73 * Degree, 1e-13);
    EXPECT_EQ(UpsOlder().Type, mptPolarStereographic);
}

TEST(PolarStereographicOlder, NeverReadsTheLatitudeOfOrigin) {
    for (double const latitude : {-90.0, 0.0, 45.0, NotANumber}) {
        TCoords const plane = Project(UpsOlder(0, latitude), 73, 44);
        ExpectNear(plane, 3320416.74735985, 632668.431272129, Computed);
    }
}

TEST(PolarStereographicOlder, ReverseOfThePoleIsOppositeToTheOrigin) {
    // atan2(0, -0.0) is pi: 30 + 180 = -150 degrees.
    TCoords const geodetic = Unproject(UpsOlder(30), 2e6, 2e6);
    EXPECT_NEAR(geodetic.X, -150 * Degree, 1e-15);
    EXPECT_EQ(geodetic.Y, 90 * Degree);
}

TEST(PolarStereographicOlder, ReverseOnTheFalseEastingKnowsBothSidesOfThePole) {
    EXPECT_NEAR(Unproject(UpsOlder(30), 2e6, 3e6).X, -150 * Degree, 1e-15);
    EXPECT_EQ(Unproject(UpsOlder(30), 2e6, 1e6).X, 30 * Degree);
}

TEST(PolarStereographicOlder, ComesBackAfterRoundTrips) {
    EXPECT_LT(GreatestRoundTripError(UpsOlder(), AroundMeridian(60, 90, 0, 180)), 1.2e-6);
    EXPECT_LT(GreatestRoundTripError(UpsOlder(), AroundMeridian(-80, 90, 0, 180)), 1.4e-5);
}

TEST(PolarStereographicOlder, EqualityComparesAllFiveFieldsAlsoTheUnreadOne) {
    TOlderParameters const parameters(1, 2, 3, 4, 5);
    ExpectEqualityOfRecords<TOlder>(parameters);
}

TEST(PolarStereographicNaturalOrigin, GivesTheWorkedExampleOfVariantB) {
    // Guidance Note 7-2, 9829: 75 S, 120 E.
    TNatural const projection(&Wgs84, &antarctic);
    TCoords const plane = Project(projection, -75, 120);
    ExpectNear(plane, 7255380.79, 7053389.56, Printed);
    ExpectNear(plane, 7255380.79325839, 7053389.56061015, Computed);
    ExpectNear(Unproject(projection, 7255380.79325839, 7053389.56061015), 120 * Degree, -75 * Degree, 1e-13);
    EXPECT_EQ(projection.Type, mptPolarStereographicNaturalOrigin);
}

TEST(PolarStereographicNaturalOrigin, GivesSnydersNumericalExample) {
    // Working Manual, pages 314-317: International ellipsoid, 71 S, 100 W; the point at 75 S, 150 E.
    TNaturalParameters const parameters(poleSouth, -71 * Degree, -100 * Degree, 0, 0);
    TNatural const projection(&International, &parameters);
    TCoords const plane = Project(projection, -75, 150);
    ExpectNear(plane, -1540033.6, -560526.4, 0.05);
    ExpectNear(Unproject(projection, -1540033.6, -560526.4), 150 * Degree, -75 * Degree, 1e-7);
}

TEST(PolarStereographicNaturalOrigin, EqualsTheBasicOneWithTheDerivedScaleFactor) {
    // mpmath: 0.97276901289179693658
    TBasicParameters const parameters(poleSouth, 70 * Degree, 0.9727690128917969, 6e6, 6e6);
    TBasic const basic(&Wgs84, &parameters);
    TNatural const projection(&Wgs84, &antarctic);
    for (double latitude = -90; latitude < 60; latitude += 7) {
        TCoords const plane = Project(projection, latitude, 120);
        TCoords const other = Project(basic, latitude, 120);
        ExpectNear(plane, other.X, other.Y, 1e-7);
        TCoords const back = Unproject(projection, plane.X, plane.Y);
        TCoords const otherBack = Unproject(basic, plane.X, plane.Y);
        ExpectNear(back, otherBack.X, otherBack.Y, 1e-15);
    }
}

TEST(PolarStereographicNaturalOrigin, KeepsTheLengthOfTheStandardParallel) {
    // The parallel of 60 degrees has half of the sphere's radius.
    TNaturalParameters const parameters(poleNorth, 60 * Degree, 0, 0, 0);
    TCoords const plane = Project(TNatural(&Sphere, &parameters), 60, 0);
    EXPECT_NEAR(plane.Y, -6371007 * 0.5, 1e-8);
}

TEST(PolarStereographicNaturalOrigin, StandardParallelAtThePoleIsNotANumber) {
    TNaturalParameters const parameters(poleSouth, -90 * Degree, 0, 0, 0);
    TNatural const projection(&Wgs84, &parameters);
    TCoords const plane = Project(projection, -75, 120);
    EXPECT_FALSE(std::isfinite(plane.X)); // no guard
}

TEST(PolarStereographicNaturalOrigin, ReverseOnTheFalseEastingIsOnTheLongitudeOfOrigin) {
    TNatural const projection(&Wgs84, &antarctic);
    EXPECT_EQ(Unproject(projection, 6e6, 6e6).X, 70 * Degree);
    EXPECT_EQ(Unproject(projection, 6e6, 6e6).Y, -90 * Degree);
    EXPECT_EQ(Unproject(projection, 6e6, 5e6).X, 70 * Degree); // beyond the pole too
    EXPECT_EQ(Unproject(projection, 6e6, 7e6).X, 70 * Degree);
}

TEST(PolarStereographicNaturalOrigin, ComesBackAfterRoundTrips) {
    TNatural const projection(&Wgs84, &antarctic);
    EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-90, -60, 70, 179.9)), 1.2e-6);
    EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-90, 80, 70, 179.9)), 1.4e-5);
}

TEST(PolarStereographicNaturalOrigin, RefusesABadPole) {
    TNaturalParameters const bad(neitherPole, -71 * Degree, 0, 0, 0);
    EXPECT_EQ(LogicErrorOf([&] { TNatural const projection(&Wgs84, &bad); }),
              "TPolarStereographicNaturalOriginMapProjection::TPolarStereographicNaturalOriginMapProjection");
    TNatural const projection(&Wgs84, &antarctic);
    projection.Parameters->Pole = neitherPole;
    TCoords coords{0.25, 1.25, 0, false};
    EXPECT_EQ(LogicErrorOf([&] { projection.GeodeticToProjected(&coords); }),
              "TPolarStereographicNaturalOriginMapProjection::GeodeticToProjected");
    EXPECT_EQ(LogicErrorOf([&] { projection.ProjectedToGeodetic(&coords); }),
              "TPolarStereographicNaturalOriginMapProjection::ProjectedToGeodetic");
    EXPECT_EQ(coords.X, 0.25);
    EXPECT_EQ(coords.Y, 1.25);
}

TEST(PolarStereographicNaturalOrigin, EqualityComparesTheRecordsFiveFields) {
    TNaturalParameters const parameters(poleNorth, 1, 2, 3, 4);
    EXPECT_TRUE(parameters == TNaturalParameters(poleNorth, 1, 2, 3, 4));
    for (TNaturalParameters const& other : WithOneFieldChanged(parameters)) {
        EXPECT_FALSE(parameters == other);
    }
    ExpectEqualityOfRecords<TNatural>(parameters);
    TFalseParameters const sameNumbers(poleNorth, 1, 2, 3, 4);
    EXPECT_FALSE(TNatural(&Wgs84, &parameters) == TFalse(&Wgs84, &sameNumbers));
}

TEST(PolarStereographicFalseOrigin, LeavesTheRadiusOfTheStandardParallelInTheNorthing) {
    // Guidance Note 7-2, 9830: 303169.52, 244055.72. It takes off the parallel's radius 2499363.48783059
    // (mpmath).
    TFalse const projection(&International, &terreAdelie);
    TCoords const plane = Project(projection, TerreAdelieLatitude, TerreAdelieLongitude);
    ExpectNear(plane, 303169.52, 244055.72 + 2499363.48783059, Printed);
    ExpectNear(plane, 303169.52185697, 2743419.20833127, Computed);
    EXPECT_EQ(projection.Type, mptPolarStereographicFalseOrigin);
}

TEST(PolarStereographicFalseOrigin, FalseCoordinatesAreThoseOfThePole) {
    TFalse const projection(&International, &terreAdelie);
    TCoords const pole = Project(projection, -90, 17);
    EXPECT_EQ(pole.X, 3e5);
    EXPECT_EQ(pole.Y, 2e5);
    EXPECT_NEAR(Project(projection, -67, 140).Y, 2e5 + 2499363.48783059, Computed);
}

TEST(PolarStereographicFalseOrigin, EqualsTheNaturalOriginOfTheSameNumbers) {
    TFalse const projection(&International, &terreAdelie);
    TNaturalParameters const sameNumbers(poleSouth, -67 * Degree, 140 * Degree, 3e5, 2e5);
    TNatural const natural(&International, &sameNumbers);
    for (double longitude = -180; longitude < 180; longitude += 23) {
        TCoords const plane = Project(projection, -66, longitude);
        TCoords const other = Project(natural, -66, longitude);
        ExpectNear(plane, other.X, other.Y, 1e-8);
        TCoords const back = Unproject(projection, plane.X, plane.Y);
        TCoords const otherBack = Unproject(natural, plane.X, plane.Y);
        ExpectNear(back, otherBack.X, otherBack.Y, 1e-15);
    }
}

TEST(PolarStereographicFalseOrigin, WorksOnTheNorthPole) {
    TFalseParameters const parameters(poleNorth, 67 * Degree, 140 * Degree, 3e5, 2e5);
    TFalse const projection(&International, &parameters);
    // The mirror of the southern example: the northing's distance from the pole changes its sign.
    TCoords const plane = Project(projection, -TerreAdelieLatitude, TerreAdelieLongitude);
    ExpectNear(plane, 303169.52185697, 2e5 - (2743419.20833127 - 2e5), Computed);
    EXPECT_EQ(Unproject(projection, 3e5, 2e5 + 1e6).X, 140 * Degree);
}

TEST(PolarStereographicFalseOrigin, ComesBackAfterRoundTrips) {
    TFalse const projection(&International, &terreAdelie);
    EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-90, -60, 140, 179.9)), 1.2e-6);
    EXPECT_LT(GreatestRoundTripError(projection, AroundMeridian(-90, 80, 140, 179.9)), 1.4e-5);
}

TEST(PolarStereographicFalseOrigin, RefusesABadPole) {
    TFalseParameters const bad(neitherPole, -71 * Degree, 0, 0, 0);
    EXPECT_EQ(LogicErrorOf([&] { TFalse const projection(&Wgs84, &bad); }),
              "TPolarStereographicFalseOriginMapProjection::TPolarStereographicFalseOriginMapProjection");
    TFalse const projection(&International, &terreAdelie);
    projection.Parameters->Pole = neitherPole;
    TCoords coords{0.25, 1.25, 0, false};
    EXPECT_EQ(LogicErrorOf([&] { projection.GeodeticToProjected(&coords); }),
              "TPolarStereographicFalseOriginMapProjection::GeodeticToProjected");
    EXPECT_EQ(LogicErrorOf([&] { projection.ProjectedToGeodetic(&coords); }),
              "TPolarStereographicFalseOriginMapProjection::ProjectedToGeodetic");
    EXPECT_EQ(coords.X, 0.25);
    EXPECT_EQ(coords.Y, 1.25);
}

TEST(PolarStereographicFalseOrigin, EqualityComparesTheRecordsFiveFields) {
    TFalseParameters const parameters(poleNorth, 1, 2, 3, 4);
    EXPECT_TRUE(parameters == TFalseParameters(poleNorth, 1, 2, 3, 4));
    for (TFalseParameters const& other : WithOneFieldChanged(parameters)) {
        EXPECT_FALSE(parameters == other);
    }
    ExpectEqualityOfRecords<TFalse>(parameters);
}

/** What holds for each of the four classes alike. */
template <class Projection>
class PolarStereographicClasses : public testing::Test {
protected:
    static Projection Make() {
        if constexpr (std::is_same_v<Projection, TOlder>) {
            return UpsOlder(25);
        } else if constexpr (std::is_same_v<Projection, TBasic>) {
            return Ups(poleSouth, 25);
        } else if constexpr (std::is_same_v<Projection, TNatural>) {
            return TNatural(&Wgs84, &antarctic);
        } else {
            return TFalse(&Wgs84, &terreAdelie);
        }
    }
};

using TClasses = testing::Types<TOlder, TBasic, TNatural, TFalse>;
TYPED_TEST_SUITE(PolarStereographicClasses, TClasses);

TYPED_TEST(PolarStereographicClasses, CopyOwnsItsRecordAndGivesTheSameNumbers) {
    TypeParam const original = TestFixture::Make();
    ExpectCopiesToStandAlone<TypeParam>(Wgs84, *original.Parameters, -70, 100);
    TypeParam const copy(original);
    ExpectSameResults(copy, original, -70, 100);
    ExpectEqual(Unproject(copy, 1e6, 1e6), Unproject(original, 1e6, 1e6));
    copy.Parameters->FalseEasting += 1;
    EXPECT_FALSE(copy == original);
}

TYPED_TEST(PolarStereographicClasses, OperationsFillTheBasesSlots) {
    ExpectOperationsInTheBasesSlots<TypeParam>();
}

TYPED_TEST(PolarStereographicClasses, RecordFollowsTheBase) {
    TypeParam const projection = TestFixture::Make();
    EXPECT_EQ(OffsetIn(projection, projection.Parameters), 16);
}

TYPED_TEST(PolarStereographicClasses, SurvivesAllNumbersAndAllocatesNothing) {
    ExpectToTakeAnyNumber(TestFixture::Make());
}

TYPED_TEST(PolarStereographicClasses, InfinitelyFarIsTheOppositePole) {
    TypeParam const projection = TestFixture::Make();
    double const opposite = std::is_same_v<TypeParam, TOlder> ? -90 * Degree : 90 * Degree;
    EXPECT_NEAR(Unproject(projection, Infinity, 0).Y, opposite, 1e-15);
    EXPECT_NEAR(Unproject(projection, 0, -Infinity).Y, opposite, 1e-15);
    EXPECT_TRUE(std::isnan(Unproject(projection, NotANumber, 0).X));
    EXPECT_TRUE(std::isnan(Unproject(projection, 0, NotANumber).Y));
    EXPECT_TRUE(std::isnan(Project(projection, NotANumber, 0).X));
    EXPECT_TRUE(std::isnan(Project(projection, 70, Infinity).X));
}

} // namespace
