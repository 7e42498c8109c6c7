#include "core/projections/NZMG.h"

#include "tests/core/projections/ProjectionChecks.h"

namespace {

using namespace ProjectionChecks;
using KvRefSystem::TNZMGMapProjection;
using Record = KvRefSystem::TNZMGMapProjectionParameters;
using Complex = TNZMGMapProjection::complex;

constexpr std::array<double, 4> Fields = {-0.7, 3.0, 2510000, 6023150};

TNZMGMapProjection NewZealand() {
    Record const record(-41 * Degree, 173 * Degree, 2510000, 6023150);
    return TNZMGMapProjection(&International, &record);
}

void ExpectComplex(Complex const& value, double real, double imaginary) {
    EXPECT_DOUBLE_EQ(value.Real, real);
    EXPECT_DOUBLE_EQ(value.Imaginary, imaginary);
}

TEST(NZMG, GivesThePublishedPlaces) {
    // Of Land Information New Zealand: the coordinates to the millimetre, the degrees to six places.
    struct TPlace {
        double Easting;
        double Northing;
        double Longitude;
        double Latitude;
    };
    for (TPlace const& place : {TPlace{2487100.638, 6751049.719, 172.739194, -34.444066},
                                TPlace{2486533.395, 6077263.661, 172.723106, -40.512409},
                                TPlace{2216746.425, 5388508.765, 169.172062, -46.651295}}) {
        TCoords const found = Unproject(NewZealand(), place.Easting, place.Northing);
        ExpectNear(found, place.Longitude * Degree, place.Latitude * Degree, 5e-7 * Degree);
        ExpectNear(Project(NewZealand(), place.Latitude, place.Longitude), place.Easting, place.Northing,
                   0.06);
    }
}

TEST(NZMG, ProjectsThePlacesOfNewZealand) {
    // The polynomials with 50 digits, mpmath; the first one agrees with PROJ's nzmg.
    ExpectNear(Project(NewZealand(), -37.78, 175.27), 2710175.3792, 6377994.7720, 5e-5);
    ExpectNear(Project(NewZealand(), -46.4, 168.35), 2152320.305541164, 5413164.281156441, 1e-6);
    ExpectNear(Project(NewZealand(), -41, 173), 2510000, 6023150, 1e-8);
}

TEST(NZMG, RoundTripsCloseOverTheLand) {
    EXPECT_LT(GreatestRoundTripError(NewZealand(), {-48, -34, 166, 179}), 4e-4);
    EXPECT_LT(GreatestRoundTripError(NewZealand(), {-47.4, -34.3, 166.4, 178.6}), 1e-4);
}

TEST(NZMG, ReverseMakesExactlyTwoNewtonSteps) {
    // So far out that one step, two and three differ, mpmath: one gives -25.828 190.945, three -25.83307869
    // 190.93383766. Longitudes come back within half a turn.
    TCoords const far = Unproject(NewZealand(), 4400000, 7500000);
    EXPECT_NEAR(far.Y / Degree, -25.83308088103842, 1e-11);
    EXPECT_NEAR(far.X / Degree, 190.9338397134645 - 360, 1e-11);
    TCoords const farther = Unproject(NewZealand(), 4800000, 8000000);
    EXPECT_NEAR(farther.Y / Degree, -21.25186232234496, 1e-11);
    EXPECT_NEAR(farther.X / Degree, 192.3475888902609 - 360, 1e-11);
}

TEST(NZMG, DegreesInARadianEndInNineteenFive) {
    EXPECT_EQ(TNZMGMapProjection::rad2deg, 57.295779513082195);
    EXPECT_NE(TNZMGMapProjection::rad2deg, 180 / Pi);
}

TEST(NZMG, OnlyTheSemiMajorAxisCounts) {
    Record const record(-41 * Degree, 173 * Degree, 0, 0);
    TEllipsoidSemiAxes const flat = {6378388, 5e6};
    TCoords const usual = Project(TNZMGMapProjection(&International, &record), -44, 170);
    EXPECT_EQ(Project(TNZMGMapProjection(&flat, &record), -44, 170), usual);
    TEllipsoidSemiAxes const twice = {2 * 6378388.0, 6356911.9};
    ExpectNear(Project(TNZMGMapProjection(&twice, &record), -44, 170), 2 * usual.X, 2 * usual.Y, 1e-8);
}

TEST(NZMG, LongitudesAreNotWrapped) {
    ExpectLongitudesUnwrapped(NewZealand(), -41, 175);
}

TEST(NZMG, PlacesAnywhereAreProjectedWithoutARangeCheck) {
    TCoords const moscow = Project(NewZealand(), 55.75, 37.6);
    EXPECT_TRUE(std::isfinite(moscow.X) && std::isfinite(moscow.Y));
}

TEST(NZMG, FillingTheConstantsAgainChangesNothing) {
    TNZMGMapProjection projection = NewZealand();
    TCoords const before = Project(projection, -40, 175);
    projection.InitializeProjectionConstants();
    EXPECT_EQ(Project(projection, -40, 175), before);
}

TEST(NZMG, ComplexOperationsWriteIntoTheirFirstArgument) {
    Complex const first{3, 4};
    Complex const second{1, -2};
    Complex result{};
    Complex::cadd(&result, first, second);
    ExpectComplex(result, 4, 2);
    Complex::csub(&result, first, second);
    ExpectComplex(result, 2, 6);
    Complex::cmult(&result, first, second);
    ExpectComplex(result, 11, -2); // 3 + 8 + (4 - 6) i
    Complex::cdiv(&result, first, second);
    ExpectComplex(result, -1, 2); // (3 + 4 i) (1 + 2 i) / 5
    Complex::cscale(&result, first, 0.5);
    ExpectComplex(result, 1.5, 2);
}

TEST(NZMG, ComplexOperationsTakeTheirResultAsAnOperand) {
    Complex value{3, 4};
    Complex::cmult(&value, value, value);
    ExpectComplex(value, -7, 24);
    Complex other{1, -2};
    Complex::cmult(&other, Complex{3, 4}, other);
    ExpectComplex(other, 11, -2);
    other = {1, -2};
    Complex::cdiv(&other, Complex{3, 4}, other);
    ExpectComplex(other, -1, 2);
    Complex::cdiv(&other, other, other);
    ExpectComplex(other, 1, 0);
    Complex::csub(&other, Complex{5, 5}, other);
    ExpectComplex(other, 4, 5);
    Complex::cadd(&other, other, other);
    ExpectComplex(other, 8, 10);
    Complex::cscale(&other, other, other.Real);
    ExpectComplex(other, 64, 80);
}

TEST(NZMG, FieldsStandInTheirStoredOrder) {
    ExpectRecordInStoredOrder<Record>(Fields);
    Record const record(1, 2, 3, 4);
    EXPECT_EQ(record.LatitudeOfOrigin, 1);
    EXPECT_EQ(record.LongitudeOfOrigin, 2);
    EXPECT_EQ(record.FalseEasting, 3);
    EXPECT_EQ(record.FalseNorthing, 4);
}

TEST(NZMG, EqualityComparesTheWholeRecordAndNotTheEllipsoid) {
    ExpectEqualityOfRecords<TNZMGMapProjection>(RecordOf<Record>(Fields));
}

TEST(NZMG, CopiesStandAlone) {
    ExpectCopiesToStandAlone<TNZMGMapProjection>(Wgs84, RecordOf<Record>(Fields), -42, 172);
}

TEST(NZMG, TakesAnyNumber) {
    ExpectToTakeAnyNumber(NewZealand());
}

} // namespace
