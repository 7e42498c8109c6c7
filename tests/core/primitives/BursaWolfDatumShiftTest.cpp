#include "core/primitives/BursaWolfDatumShift.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <utility>

namespace {

using namespace KvRefSystem;

// Hosts are compiled against this layout.
static_assert(sizeof(TBursaWolfDatumShiftParameters) == 64);
static_assert(offsetof(TBursaWolfDatumShiftParameters, RotationX) == 0);
static_assert(offsetof(TBursaWolfDatumShiftParameters, Scale) == 24);
static_assert(offsetof(TBursaWolfDatumShiftParameters, ShiftX) == 32);
static_assert(offsetof(TBursaWolfDatumShiftParameters, OnlyShift) == 56);
static_assert(sizeof(TBursaWolfDatumShift) == 24);
static_assert(sizeof(TBursaWolfNonlinearDatumShift) == 120);

constexpr double ArcSecond = 3.141592653589793 / 180 / 3600;

TBursaWolfDatumShiftParameters Sample() {
    return TBursaWolfDatumShiftParameters(100, 50, -300, 1e-3, -2e-3, 3e-3, 1.001);
}

/** The numbers of the identity with the flag of a full shift. */
TBursaWolfDatumShiftParameters FullIdentity(double dx, double dy, double dz) {
    TBursaWolfDatumShiftParameters parameters(dx, dy, dz);
    parameters.OnlyShift = false;
    return parameters;
}

TCoords Point(double x, double y, double z) {
    TCoords point;
    point.X = x;
    point.Y = y;
    point.Z = z;
    return point;
}

void ExpectPoint(TCoords const& point, double x, double y, double z, double tolerance) {
    EXPECT_NEAR(point.X, x, tolerance);
    EXPECT_NEAR(point.Y, y, tolerance);
    EXPECT_NEAR(point.Z, z, tolerance);
}

/** A shift that no copy knows. */
class TUnknownDatumShift : public TDatumShift {
public:
    explicit TUnknownDatumShift(int type) : TDatumShift(static_cast<TDatumShiftType>(type)) {}
    bool operator==(TDatumShift const& other) const override { return this == &other; }
    void DirectTransform(TCoords*) const override {}
    void ReverseTransform(TCoords*) const override {}
    bool IsNonlinear() const override { return false; }
};

// --- Parameters --------------------------------------------------------------------------------------------

TEST(BursaWolfDatumShiftParameters, BeginAsTheIdentity) {
    TBursaWolfDatumShiftParameters const identity;
    EXPECT_EQ(identity.RotationX, 0);
    EXPECT_EQ(identity.RotationY, 0);
    EXPECT_EQ(identity.RotationZ, 0);
    EXPECT_EQ(identity.Scale, 1);
    EXPECT_EQ(identity.ShiftX, 0);
    EXPECT_EQ(identity.ShiftY, 0);
    EXPECT_EQ(identity.ShiftZ, 0);
    EXPECT_TRUE(identity.OnlyShift);
}

TEST(BursaWolfDatumShiftParameters, OfThreeNumbersOnlyShift) {
    TBursaWolfDatumShiftParameters const shifts(1, 2, 3);
    EXPECT_EQ(shifts.ShiftX, 1);
    EXPECT_EQ(shifts.ShiftY, 2);
    EXPECT_EQ(shifts.ShiftZ, 3);
    EXPECT_EQ(shifts.Scale, 1);
    EXPECT_TRUE(shifts.OnlyShift);
}

TEST(BursaWolfDatumShiftParameters, TakeShiftsBeforeRotationsAndScale) {
    TBursaWolfDatumShiftParameters const all(1, 2, 3, 4, 5, 6, 7);
    EXPECT_EQ(all.ShiftX, 1);
    EXPECT_EQ(all.ShiftY, 2);
    EXPECT_EQ(all.ShiftZ, 3);
    EXPECT_EQ(all.RotationX, 4);
    EXPECT_EQ(all.RotationY, 5);
    EXPECT_EQ(all.RotationZ, 6);
    EXPECT_EQ(all.Scale, 7);
    EXPECT_FALSE(all.OnlyShift);
}

TEST(BursaWolfDatumShiftParameters, OnlyShiftIsDecidedExactly) {
    auto const onlyShift = [](double rx, double ry, double rz, double scale) {
        return TBursaWolfDatumShiftParameters(1, 2, 3, rx, ry, rz, scale).OnlyShift;
    };
    EXPECT_TRUE(onlyShift(0, 0, 0, 1));
    EXPECT_TRUE(onlyShift(-0.0, -0.0, -0.0, 1));
    EXPECT_FALSE(onlyShift(1e-300, 0, 0, 1));
    EXPECT_FALSE(onlyShift(0, 1e-300, 0, 1));
    EXPECT_FALSE(onlyShift(0, 0, -1e-300, 1));
    EXPECT_FALSE(onlyShift(0, 0, 0, std::nextafter(1.0, 2.0)));
    EXPECT_FALSE(onlyShift(0, 0, 0, std::numeric_limits<double>::quiet_NaN()));
}

TEST(BursaWolfDatumShiftParameters, WithoutInvertAreAPlainCopy) {
    TBursaWolfDatumShiftParameters source = Sample();
    source.OnlyShift = true;
    TBursaWolfDatumShiftParameters const copy(source, false);
    EXPECT_EQ(copy.RotationX, 1e-3);
    EXPECT_EQ(copy.RotationY, -2e-3);
    EXPECT_EQ(copy.RotationZ, 3e-3);
    EXPECT_EQ(copy.Scale, 1.001);
    EXPECT_EQ(copy.ShiftX, 100);
    EXPECT_EQ(copy.ShiftY, 50);
    EXPECT_EQ(copy.ShiftZ, -300);
    EXPECT_TRUE(copy.OnlyShift);
}

TEST(BursaWolfDatumShiftParameters, InvertTransposesTheSmallAngles) {
    // By hand: -(100 + 0.003*50 - (-0.002)(-300))/1.001 and so on.
    TBursaWolfDatumShiftParameters const inverse(Sample(), true);
    EXPECT_EQ(inverse.RotationX, -1e-3);
    EXPECT_EQ(inverse.RotationY, 2e-3);
    EXPECT_EQ(inverse.RotationZ, -3e-3);
    EXPECT_NEAR(inverse.Scale, 0.999000999000999, 1e-15);
    EXPECT_NEAR(inverse.ShiftX, -99.55 / 1.001, 1e-12);
    EXPECT_NEAR(inverse.ShiftY, -49.4 / 1.001, 1e-12);
    EXPECT_NEAR(inverse.ShiftZ, 300.25 / 1.001, 1e-12);
    EXPECT_FALSE(inverse.OnlyShift);
}

TEST(BursaWolfDatumShiftParameters, InvertedTwiceReturnToTheSecondOrderOnly) {
    TBursaWolfDatumShiftParameters const twice(TBursaWolfDatumShiftParameters(Sample(), true), true);
    // By hand from the numbers of the inverse.
    EXPECT_NEAR(twice.ShiftX, 100.0023, 1e-9);
    EXPECT_NEAR(twice.ShiftY, 49.9989, 1e-9);
    EXPECT_NEAR(twice.ShiftZ, -300.0015, 1e-9);
    EXPECT_NEAR(twice.Scale, 1.001, 1e-15);
    EXPECT_EQ(twice.RotationX, 1e-3);
}

TEST(BursaWolfDatumShiftParameters, InvertOfAPureShiftNegatesTheShifts) {
    TBursaWolfDatumShiftParameters const inverse(TBursaWolfDatumShiftParameters(100, -50, 0), true);
    EXPECT_EQ(inverse.ShiftX, -100);
    EXPECT_EQ(inverse.ShiftY, 50);
    EXPECT_EQ(inverse.ShiftZ, 0);
    EXPECT_TRUE(std::signbit(inverse.ShiftZ));
    EXPECT_EQ(inverse.Scale, 1);
    EXPECT_EQ(inverse.RotationX, 0);
    EXPECT_TRUE(inverse.OnlyShift);
}

TEST(BursaWolfDatumShiftParameters, InvertOfAnOnlyShiftRecordDropsWhateverElseItHolds) {
    TBursaWolfDatumShiftParameters source = Sample();
    source.OnlyShift = true;
    TBursaWolfDatumShiftParameters const inverse(source, true);
    EXPECT_EQ(inverse.RotationX, 0);
    EXPECT_EQ(inverse.RotationY, 0);
    EXPECT_EQ(inverse.RotationZ, 0);
    EXPECT_EQ(inverse.Scale, 1);
    EXPECT_EQ(inverse.ShiftX, -100);
    EXPECT_TRUE(inverse.OnlyShift);
}

TEST(BursaWolfDatumShiftParameters, InvertMayReadItsOwnResult) {
    TBursaWolfDatumShiftParameters parameters = Sample();
    parameters = TBursaWolfDatumShiftParameters(parameters, true);
    EXPECT_NEAR(parameters.ShiftZ, 300.25 / 1.001, 1e-12);
}

// --- Small-angle form --------------------------------------------------------------------------------------

TEST(BursaWolfDatumShift, ConvertsThePublishedPositionVectorExample) {
    // EPSG Guidance Note 7-2, method 9606: WGS 72 to WGS 84.
    TBursaWolfDatumShift const shift({0, 0, 4.5, 0, 0, 0.554 * ArcSecond, 1 + 0.219e-6});
    TCoords point = Point(3657660.66, 255768.55, 5201382.11);
    shift.DirectTransform(&point);
    ExpectPoint(point, 3657660.78, 255778.43, 5201387.75, 0.006);
}

TEST(BursaWolfDatumShift, DirectAddsTheRotationVector) {
    // By hand: scaled (1001000, 2002000, -3003000), then X' = 100 + x - 0.003 y - 0.002 z and so on.
    TBursaWolfDatumShift const shift(Sample());
    TCoords point = Point(1e6, 2e6, -3e6);
    shift.DirectTransform(&point);
    ExpectPoint(point, 1001100, 2008056, -2999296, 1e-6);
}

TEST(BursaWolfDatumShift, ReverseLeavesARemainderOfTheSecondOrderAsHostsRelyOn) {
    // By hand: the transposed matrix on (1000000, 2006000, -2996000)/... with the numbers above.
    TBursaWolfDatumShift const shift(Sample());
    TCoords point = Point(1001100, 2008056, -2999296);
    shift.ReverseTransform(&point);
    ExpectPoint(point, 1000026, 2000004, -3000006, 1e-6);
}

TEST(BursaWolfDatumShift, OnlyShiftAddsAndSubtracts) {
    TBursaWolfDatumShift const shift({100, 50, -300});
    TCoords point = Point(1e6, 2e6, -3e6);
    shift.DirectTransform(&point);
    ExpectPoint(point, 1000100, 2000050, -3000300, 0);
    shift.ReverseTransform(&point);
    ExpectPoint(point, 1e6, 2e6, -3e6, 0);
}

TEST(BursaWolfDatumShift, OnlyShiftKeepsRotationsOut) {
    TBursaWolfDatumShiftParameters parameters = Sample();
    parameters.OnlyShift = true;
    TBursaWolfDatumShift const shift(parameters);
    TCoords point = Point(1, 2, 3);
    shift.DirectTransform(&point);
    ExpectPoint(point, 101, 52, -297, 0);
}

TEST(BursaWolfDatumShift, ScaleOfZeroGivesInfinities) {
    TBursaWolfDatumShift const shift({0, 0, 0, 0, 0, 0, 0});
    TCoords point = Point(1, -2, 3);
    EXPECT_NO_THROW(shift.ReverseTransform(&point));
    EXPECT_FALSE(std::isfinite(point.X));
    EXPECT_FALSE(std::isfinite(point.Y));
    EXPECT_FALSE(std::isfinite(point.Z));
}

TEST(BursaWolfDatumShift, IsLinear) {
    TBursaWolfDatumShift const shift(Sample());
    EXPECT_FALSE(shift.IsNonlinear());
    EXPECT_EQ(shift.Type, dsBursaWolf);
}

TEST(BursaWolfDatumShift, LeavesTheHeightsMarkAlone) {
    TBursaWolfDatumShift const shift(Sample());
    TCoords point = Point(1, 2, 3);
    point.ZUndefined = true;
    shift.DirectTransform(&point);
    shift.ReverseTransform(&point);
    EXPECT_TRUE(point.ZUndefined);
}

TEST(BursaWolfDatumShift, OwnsACopyOfItsParameters) {
    TBursaWolfDatumShiftParameters parameters = Sample();
    TBursaWolfDatumShift const shift(parameters);
    parameters.ShiftX = 0;
    EXPECT_EQ(shift.Parameters->ShiftX, 100);
    TBursaWolfDatumShift const copy(shift);
    EXPECT_NE(copy.Parameters, shift.Parameters);
    EXPECT_EQ(copy.Parameters->ShiftX, 100);
    EXPECT_TRUE(copy == shift);
}

TEST(BursaWolfDatumShift, EqualityComparesEveryNumber) {
    TBursaWolfDatumShift const shift(Sample());
    EXPECT_TRUE(shift == TBursaWolfDatumShift(Sample()));
    double TBursaWolfDatumShiftParameters::*const numbers[] = {
        &TBursaWolfDatumShiftParameters::RotationX, &TBursaWolfDatumShiftParameters::RotationY,
        &TBursaWolfDatumShiftParameters::RotationZ, &TBursaWolfDatumShiftParameters::Scale,
        &TBursaWolfDatumShiftParameters::ShiftX,    &TBursaWolfDatumShiftParameters::ShiftY,
        &TBursaWolfDatumShiftParameters::ShiftZ,
    };
    for (auto const number : numbers) {
        TBursaWolfDatumShiftParameters other = Sample();
        other.*number = std::nextafter(other.*number, 1e9);
        EXPECT_FALSE(shift == TBursaWolfDatumShift(other));
        EXPECT_FALSE(TBursaWolfDatumShift(other) == shift);
    }
}

TEST(BursaWolfDatumShift, OnlyShiftAloneMakesADifference) {
    TBursaWolfDatumShift const plain({1, 2, 3});
    TBursaWolfDatumShift const full(FullIdentity(1, 2, 3));
    EXPECT_FALSE(plain == full);
    EXPECT_FALSE(full == plain);
}

TEST(BursaWolfDatumShift, EqualityOfPureShiftsIgnoresTheRest) {
    TBursaWolfDatumShiftParameters one = Sample();
    one.OnlyShift = true;
    EXPECT_TRUE(TBursaWolfDatumShift(one) == TBursaWolfDatumShift({100, 50, -300}));
}

TEST(BursaWolfDatumShift, ZerosOfBothSignsAreEqualAndNaNsAreNot) {
    EXPECT_TRUE(TBursaWolfDatumShift({0.0, 1, 2}) == TBursaWolfDatumShift({-0.0, 1, 2}));
    TBursaWolfDatumShift const notANumber({std::numeric_limits<double>::quiet_NaN(), 1, 2});
    EXPECT_FALSE(notANumber == notANumber);
}

// --- Form with exact rotations -----------------------------------------------------------------------------

TEST(BursaWolfNonlinearDatumShift, RotatesByRxRyRz) {
    // With 50 digits in mpmath, from the product of the three matrices.
    TBursaWolfNonlinearDatumShift const shift({1, 2, 3, 0.3, -0.5, 1.1, 0.75});
    double const expected[9] = {0.39806804630419479, -0.78210803821827026, -0.479425538604203,
                                0.78713744178570415, 0.55960312629768375,  -0.25934338005223077,
                                0.47112257242740836, -0.27413747936432791, 0.83838664359420353};
    for (int k = 0; k < 9; ++k) {
        EXPECT_NEAR(shift.Matrix[k], expected[k], 1e-15) << k;
    }
    EXPECT_EQ(shift.Scale, 0.75);
    EXPECT_FALSE(shift.OnlyShift);
}

TEST(BursaWolfNonlinearDatumShift, DirectAgreesWithManyDigits) {
    // With 50 digits in mpmath.
    TCoords point = Point(1e6, 2e6, -3e6);
    TBursaWolfNonlinearDatumShift(Sample()).DirectTransform(&point);
    ExpectPoint(point, 1001093.5105300294, 2008043.9875215014, -2999297.5221654099, 1e-8);

    point = Point(1e6, 2e6, -3e6);
    TBursaWolfNonlinearDatumShift({100, 50, -300, 0.3, -0.5, 1.1, 0.75}).DirectTransform(&point);
    ExpectPoint(point, 204196.43926019745, 2013330.375903323, -1944534.2378128935, 1e-8);
}

TEST(BursaWolfNonlinearDatumShift, ReverseIsTheExactInverse) {
    for (TBursaWolfDatumShiftParameters const& parameters :
         {Sample(), TBursaWolfDatumShiftParameters(100, 50, -300, 0.3, -0.5, 1.1, 0.75)}) {
        TBursaWolfNonlinearDatumShift const shift(parameters);
        TCoords point = Point(1e6, 2e6, -3e6);
        shift.DirectTransform(&point);
        shift.ReverseTransform(&point);
        ExpectPoint(point, 1e6, 2e6, -3e6, 5e-9);
    }
}

TEST(BursaWolfNonlinearDatumShift, AgreesWithTheSmallAngleFormForPublishedAngles) {
    // Half a squared rotation times the earth's radius: (4e-6)^2 / 2 * 6.4e6 m = 5e-5 m.
    TBursaWolfDatumShiftParameters const gost(23.57, -140.95, -79.8, 0, -0.35 * ArcSecond, -0.79 * ArcSecond,
                                              1 - 0.22e-6);
    TCoords linear = Point(2928412.0, 2206716.8, 5201638.8);
    TCoords exact = linear;
    TBursaWolfDatumShift(gost).DirectTransform(&linear);
    TBursaWolfNonlinearDatumShift(gost).DirectTransform(&exact);
    ExpectPoint(exact, linear.X, linear.Y, linear.Z, 1e-4);
}

TEST(BursaWolfNonlinearDatumShift, OnlyShiftAddsAndSubtracts) {
    TBursaWolfNonlinearDatumShift const shift({100, 50, -300});
    EXPECT_TRUE(shift.OnlyShift);
    EXPECT_EQ(shift.Scale, 1.0);
    TCoords point = Point(1e6, 2e6, -3e6);
    shift.DirectTransform(&point);
    ExpectPoint(point, 1000100, 2000050, -3000300, 0);
    shift.ReverseTransform(&point);
    ExpectPoint(point, 1e6, 2e6, -3e6, 0);
}

TEST(BursaWolfNonlinearDatumShift, OnlyShiftEvaluatesNoRotation) {
    TBursaWolfDatumShiftParameters parameters = Sample();
    parameters.OnlyShift = true;
    parameters.RotationX = std::numeric_limits<double>::infinity();
    TBursaWolfNonlinearDatumShift const shift(parameters);
    EXPECT_EQ(shift.Scale, 1.0);
    double const identity[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    for (int k = 0; k < 9; ++k) {
        EXPECT_EQ(shift.Matrix[k], identity[k]);
    }
    TCoords point = Point(1, 2, 3);
    shift.DirectTransform(&point);
    ExpectPoint(point, 101, 52, -297, 0);
}

TEST(BursaWolfNonlinearDatumShift, IsNonlinear) {
    TBursaWolfNonlinearDatumShift const shift(Sample());
    EXPECT_TRUE(shift.IsNonlinear());
    EXPECT_EQ(shift.Type, dsBursaWolfNonlinear);
}

TEST(BursaWolfNonlinearDatumShift, ScaleOfZeroGivesInfinities) {
    TBursaWolfNonlinearDatumShift const shift({0, 0, 0, 0, 0, 0, 0});
    TCoords point = Point(1, -2, 3);
    EXPECT_NO_THROW(shift.ReverseTransform(&point));
    EXPECT_FALSE(std::isfinite(point.X));
}

TEST(BursaWolfNonlinearDatumShift, OnlyShiftDoesNotDecideEqualityByItself) {
    TBursaWolfNonlinearDatumShift const plain({1, 2, 3});
    TBursaWolfNonlinearDatumShift const full(FullIdentity(1, 2, 3));
    EXPECT_FALSE(full.OnlyShift);
    EXPECT_TRUE(plain == full);
    EXPECT_TRUE(full == plain);
    EXPECT_FALSE(plain == TBursaWolfNonlinearDatumShift(FullIdentity(1, 2, 3.5)));
}

TEST(BursaWolfNonlinearDatumShift, PureShiftDiffersFromARotatedOrScaledOne) {
    TBursaWolfNonlinearDatumShift const plain({100, 50, -300});
    EXPECT_FALSE(plain == TBursaWolfNonlinearDatumShift({100, 50, -300, 0, 0, 1e-9, 1}));
    EXPECT_FALSE(TBursaWolfNonlinearDatumShift({100, 50, -300, 0, 0, 1e-9, 1}) == plain);
    EXPECT_FALSE(plain == TBursaWolfNonlinearDatumShift({100, 50, -300, 0, 0, 0, 1.5}));
    EXPECT_FALSE(TBursaWolfNonlinearDatumShift({100, 50, -300, 0, 0, 0, 1.5}) == plain);
}

TEST(BursaWolfNonlinearDatumShift, EqualityComparesEveryNumber) {
    TBursaWolfNonlinearDatumShift const shift(Sample());
    EXPECT_TRUE(shift == TBursaWolfNonlinearDatumShift(Sample()));
    for (int k = 0; k < 9; ++k) {
        TBursaWolfNonlinearDatumShift other(shift);
        other.Matrix[k] += 1;
        EXPECT_FALSE(shift == other) << k;
    }
    for (int k = 0; k < 3; ++k) {
        TBursaWolfNonlinearDatumShift other(shift);
        other.Shift[k] += 1;
        EXPECT_FALSE(shift == other) << k;
    }
    TBursaWolfNonlinearDatumShift other(shift);
    other.Scale = 1.002;
    EXPECT_FALSE(shift == other);
}

TEST(BursaWolfNonlinearDatumShift, ZerosOfBothSignsAreEqualAndNaNsAreNot) {
    EXPECT_TRUE(TBursaWolfNonlinearDatumShift({0.0, 1, 2}) == TBursaWolfNonlinearDatumShift({-0.0, 1, 2}));
    TBursaWolfNonlinearDatumShift const notANumber({std::numeric_limits<double>::quiet_NaN(), 1, 2});
    EXPECT_FALSE(notANumber == notANumber);
}

// --- The family --------------------------------------------------------------------------------------------

TEST(DatumShiftFamily, ClassesDifferByTypeEvenWithEqualNumbers) {
    TBursaWolfDatumShift const linear({1, 2, 3});
    TBursaWolfNonlinearDatumShift const nonlinear({1, 2, 3});
    EXPECT_FALSE(linear == nonlinear);
    EXPECT_FALSE(nonlinear == linear);
    TDatumShift const& first = linear;
    TDatumShift const& second = nonlinear;
    EXPECT_FALSE(first == second);
    EXPECT_FALSE(second == first);
    EXPECT_FALSE(linear == second);
    EXPECT_TRUE(linear == first);
    EXPECT_TRUE(first == linear);
}

TEST(CreateDatumShiftCopy, KeepsClassAndNumbers) {
    TBursaWolfDatumShift const linear(Sample());
    std::unique_ptr<TDatumShift> const linearCopy(CreateDatumShiftCopy(&linear));
    ASSERT_NE(linearCopy, nullptr);
    EXPECT_NE(dynamic_cast<TBursaWolfDatumShift*>(linearCopy.get()), nullptr);
    EXPECT_TRUE(*linearCopy == linear);

    TBursaWolfNonlinearDatumShift const nonlinear(Sample());
    std::unique_ptr<TDatumShift> const nonlinearCopy(CreateDatumShiftCopy(&nonlinear));
    ASSERT_NE(nonlinearCopy, nullptr);
    EXPECT_NE(dynamic_cast<TBursaWolfNonlinearDatumShift*>(nonlinearCopy.get()), nullptr);
    EXPECT_TRUE(*nonlinearCopy == nonlinear);
}

TEST(CreateDatumShiftCopy, OfNullIsNull) {
    EXPECT_EQ(CreateDatumShiftCopy(nullptr), nullptr);
}

TEST(CreateDatumShiftCopy, OfAnUnknownTypeIsNull) {
    for (int type : {-1, 0, 3, 1000}) {
        TUnknownDatumShift const unknown(type);
        EXPECT_EQ(CreateDatumShiftCopy(&unknown), nullptr) << type;
    }
}

TEST(CreateDatumShiftCopy, OfAForeignClassWithAKnownTypeIsNull) {
    TUnknownDatumShift const foreign(dsBursaWolf);
    EXPECT_EQ(CreateDatumShiftCopy(&foreign), nullptr);
    TUnknownDatumShift const foreignNonlinear(dsBursaWolfNonlinear);
    EXPECT_EQ(CreateDatumShiftCopy(&foreignNonlinear), nullptr);
}

} // namespace
