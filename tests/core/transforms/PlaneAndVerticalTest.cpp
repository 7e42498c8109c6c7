#include "core/transforms/PlaneAndVertical.h"

#include "core/refsystems/TransformsSet.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace KvRefSystem;

// Hosts are compiled against this layout.
static_assert(sizeof(TPlaneRotationRefSystemTransform) == 104);
static_assert(sizeof(TPlaneShiftRefSystemTransform) == 96);
static_assert(sizeof(TPlaneAffineRefSystemTransform) == 160);
static_assert(sizeof(TVerticalShiftRefSystemTransform) == 88);

constexpr double Pi = 3.141592653589793;
constexpr char SingularText[] = "TPlaneAffineRefSystemTransform(const double M[4], const double S[2])";

TCoords Point(double x, double y, double z) {
    TCoords point;
    point.X = x;
    point.Y = y;
    point.Z = z;
    return point;
}

void ExpectPoint(TCoords const& point, double x, double y, double z, double tolerance = 1e-9) {
    EXPECT_NEAR(point.X, x, tolerance);
    EXPECT_NEAR(point.Y, y, tolerance);
    EXPECT_EQ(point.Z, z);
}

TPlaneAffineRefSystemTransform Affine(std::vector<double> const& M, std::vector<double> const& S) {
    return TPlaneAffineRefSystemTransform(M.data(), S.data());
}

std::vector<std::string> OutputOf(TRefSystemTransform const& transform) {
    std::vector<std::string> lines;
    transform.Output(&lines);
    return lines;
}

using Lines = std::vector<std::string>;

// --- Rotation ----------------------------------------------------------------------------------------------

TEST(PlaneRotation, TurnsForthAndBack) {
    // By hand: sin 30° * 200 + cos 30° * 100 and cos 30° * 200 - sin 30° * 100.
    TPlaneRotationRefSystemTransform const rotation(Pi / 6);
    TCoords point = Point(100, 200, 7);
    rotation.BaseToTransformed(nullptr, &point);
    ExpectPoint(point, 186.60254037844386, 123.20508075688773, 7);
    rotation.TransformedToBase(nullptr, &point);
    ExpectPoint(point, 100, 200, 7);
}

TEST(PlaneRotation, ByAQuarterTakesYToX) {
    TPlaneRotationRefSystemTransform const rotation(Pi / 2);
    TCoords point = Point(1, 2, 0);
    rotation.BaseToTransformed(nullptr, &point);
    ExpectPoint(point, 2, -1, 0, 1e-15);
}

TEST(PlaneRotation, PreparesSineAndCosine) {
    TPlaneRotationRefSystemTransform const rotation(0.25);
    EXPECT_EQ(rotation.Type, rsttPlaneRotation);
    EXPECT_EQ(rotation.Angle, 0.25);
    EXPECT_EQ(rotation.SinAngle, std::sin(0.25));
    EXPECT_EQ(rotation.CosAngle, std::cos(0.25));
}

TEST(PlaneRotation, LeavesTheHeightsMarkAlone) {
    TCoords point = Point(1, 2, 3);
    point.ZUndefined = true;
    TPlaneRotationRefSystemTransform(1).BaseToTransformed(nullptr, &point);
    TPlaneRotationRefSystemTransform(1).TransformedToBase(nullptr, &point);
    EXPECT_TRUE(point.ZUndefined);
}

TEST(PlaneRotation, FormWithTwoPointsIsReachable) {
    TPlaneRotationRefSystemTransform const rotation(Pi / 6);
    TCoords const in = Point(100, 200, 7);
    TCoords out;
    rotation.BaseToTransformed(nullptr, in, &out);
    ExpectPoint(out, 186.60254037844386, 123.20508075688773, 7);
    rotation.TransformedToBase(nullptr, out, &out);
    ExpectPoint(out, 100, 200, 7);
}

TEST(PlaneRotation, EqualityComparesTheAngleExactly) {
    EXPECT_TRUE(TPlaneRotationRefSystemTransform(0.5) == TPlaneRotationRefSystemTransform(0.5));
    EXPECT_TRUE(TPlaneRotationRefSystemTransform(0.0) == TPlaneRotationRefSystemTransform(-0.0));
    EXPECT_FALSE(TPlaneRotationRefSystemTransform(0.5) ==
                 TPlaneRotationRefSystemTransform(std::nextafter(0.5, 1)));
    // A whole turn more turns the same and still is another number.
    EXPECT_FALSE(TPlaneRotationRefSystemTransform(0.5) == TPlaneRotationRefSystemTransform(0.5 + 2 * Pi));
    TPlaneRotationRefSystemTransform const notANumber(std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(notANumber == notANumber);
}

TEST(PlaneRotation, OutputShowsDegrees) {
    TPlaneRotationRefSystemTransform rotation(Pi / 6);
    rotation.Name = "turn";
    rotation.Description = "of the grid";
    EXPECT_EQ(OutputOf(rotation), (Lines{"Name: turn", "Description: of the grid", "Type: Plane rotation",
                                         "Angle = 30 degrees"}));
}

TEST(PlaneRotation, PreservesHeights) {
    EXPECT_TRUE(TPlaneRotationRefSystemTransform(1).PreservesHeights());
}

// --- Shift -------------------------------------------------------------------------------------------------

TEST(PlaneShift, MovesForthAndBack) {
    TPlaneShiftRefSystemTransform const shift(10.5, -20.25);
    TCoords point = Point(1, 2, 3);
    shift.BaseToTransformed(nullptr, &point);
    ExpectPoint(point, 11.5, -18.25, 3, 0);
    shift.TransformedToBase(nullptr, &point);
    ExpectPoint(point, 1, 2, 3, 0);
    EXPECT_EQ(shift.Type, rsttPlaneShift);
    EXPECT_TRUE(shift.PreservesHeights());
}

TEST(PlaneShift, EqualityComparesBothNumbers) {
    TPlaneShiftRefSystemTransform const shift(1, 2);
    EXPECT_TRUE(shift == TPlaneShiftRefSystemTransform(1, 2));
    EXPECT_FALSE(shift == TPlaneShiftRefSystemTransform(1, 2.5));
    EXPECT_FALSE(shift == TPlaneShiftRefSystemTransform(1.5, 2));
}

TEST(PlaneShift, OutputShowsBothNumbers) {
    EXPECT_EQ(OutputOf(TPlaneShiftRefSystemTransform(-1234567.875, 0.1)),
              (Lines{"Name: ", "Description: ", "Type: Plane shift", "dX = -1.23457e+06", "dY = 0.1"}));
}

// --- Affine transformation ---------------------------------------------------------------------------------

TEST(PlaneAffine, ConvertsThePublishedExample) {
    // EPSG Guidance Note 7-2, method 9624: Jamaica 1875 (Old Grid) to JAD69 / Jamaica National Grid.
    TPlaneAffineRefSystemTransform const affine =
        Affine({0.304794369, 0.000015417425, -0.000015417425, 0.304794369}, {82357.457, 28091.324});
    TCoords point = Point(553900, 482500, 0);
    affine.BaseToTransformed(nullptr, &point);
    ExpectPoint(point, 251190.497, 175146.067, 0, 1e-3);
    affine.TransformedToBase(nullptr, &point);
    ExpectPoint(point, 553900, 482500, 0, 1e-8);
}

TEST(PlaneAffine, TakesTheMatrixRowByRow) {
    TPlaneAffineRefSystemTransform const affine = Affine({1, 2, 3, 4}, {5, 6});
    TCoords point = Point(1, 1, 9);
    affine.BaseToTransformed(nullptr, &point);
    ExpectPoint(point, 8, 13, 9, 0);
    affine.TransformedToBase(nullptr, &point);
    ExpectPoint(point, 1, 1, 9, 1e-14);
}

TEST(PlaneAffine, PreparesTheInverse) {
    // By hand: determinant -2.
    TPlaneAffineRefSystemTransform const affine = Affine({1, 2, 3, 4}, {5, 6});
    EXPECT_EQ(affine.Type, rsttPlaneAffine);
    EXPECT_EQ(affine.Inverse[0], -2);
    EXPECT_EQ(affine.Inverse[1], 1);
    EXPECT_EQ(affine.Inverse[2], 1.5);
    EXPECT_EQ(affine.Inverse[3], -0.5);
    EXPECT_TRUE(affine.PreservesHeights());
}

TEST(PlaneAffine, GivesItsParameters) {
    double M[4] = {};
    double S[2] = {};
    Affine({1, 2, 3, 4}, {5, 6}).GetParameters(M, S);
    EXPECT_EQ((std::vector<double>(M, M + 4)), (std::vector<double>{1, 2, 3, 4}));
    EXPECT_EQ((std::vector<double>(S, S + 2)), (std::vector<double>{5, 6}));
}

TEST(PlaneAffine, RefusesASingularMatrix) {
    double const notANumber = std::numeric_limits<double>::quiet_NaN();
    for (std::vector<double> const& M :
         {std::vector<double>{1, 2, 2, 4}, std::vector<double>{0, 0, 0, 0},
          std::vector<double>{1e-20, 0, 0, 1}, std::vector<double>{-1e-20, 0, 0, 1},
          std::vector<double>{1, 0, 0, notANumber}}) {
        try {
            Affine(M, {0, 0});
            FAIL() << "no exception";
        } catch (std::runtime_error const& error) {
            EXPECT_STREQ(error.what(), SingularText);
        }
    }
}

TEST(PlaneAffine, AcceptsADeterminantJustAboveTheLimit) {
    EXPECT_NO_THROW(Affine({std::nextafter(1e-20, 1), 0, 0, 1}, {0, 0}));
    EXPECT_NO_THROW(Affine({0, 1, 1, 0}, {0, 0}));
}

TEST(PlaneAffine, EqualityComparesTheSixNumbers) {
    std::vector<double> const M = {1, 2, 3, 5};
    std::vector<double> const S = {5, 6};
    TPlaneAffineRefSystemTransform const affine = Affine(M, S);
    EXPECT_TRUE(affine == Affine(M, S));
    for (std::size_t k = 0; k < 4; ++k) {
        std::vector<double> other = M;
        other[k] += 0.25;
        EXPECT_FALSE(affine == Affine(other, S)) << k;
    }
    EXPECT_FALSE(affine == Affine(M, {5.5, 6}));
    EXPECT_FALSE(affine == Affine(M, {5, 6.5}));
}

TEST(PlaneAffine, OutputShowsTwoEquations) {
    EXPECT_EQ(OutputOf(Affine({1, 2, 3, 4}, {5, 6})), (Lines{"Name: ", "Description: ", "Type: Plane affine",
                                                             "X' = 1*X + 2*Y + 5", "Y' = 3*X + 4*Y + 6"}));
    EXPECT_EQ(OutputOf(Affine({0.5, -2, 0, 1e9}, {-0.0, 1e-7}))[3], "X' = 0.5*X + -2*Y + -0");
}

// --- Vertical shift ----------------------------------------------------------------------------------------

TEST(VerticalShift, RaisesForthAndBack) {
    TVerticalShiftRefSystemTransform const shift(12.5);
    TCoords point = Point(1, 2, 3);
    shift.BaseToTransformed(nullptr, &point);
    ExpectPoint(point, 1, 2, 15.5, 0);
    shift.TransformedToBase(nullptr, &point);
    ExpectPoint(point, 1, 2, 3, 0);
    EXPECT_EQ(shift.Type, rsttVerticalShift);
    EXPECT_EQ(shift.ShiftZ, 12.5);
}

TEST(VerticalShift, SaysThatItPreservesHeightsAsHostsRelyOn) {
    EXPECT_TRUE(TVerticalShiftRefSystemTransform(12.5).PreservesHeights());
}

TEST(VerticalShift, GetParametersDoesNothingAsItTakesAValue) {
    double dZ = 77;
    TVerticalShiftRefSystemTransform(12.5).GetParameters(dZ);
    EXPECT_EQ(dZ, 77);
}

TEST(VerticalShift, EqualityComparesTheNumber) {
    EXPECT_TRUE(TVerticalShiftRefSystemTransform(1) == TVerticalShiftRefSystemTransform(1));
    EXPECT_FALSE(TVerticalShiftRefSystemTransform(1) == TVerticalShiftRefSystemTransform(2));
}

TEST(VerticalShift, OutputShowsTheNumber) {
    EXPECT_EQ(OutputOf(TVerticalShiftRefSystemTransform(-0.125)),
              (Lines{"Name: ", "Description: ", "Type: Vertical ShiftZ", "dZ = -0.125"}));
}

// --- The family --------------------------------------------------------------------------------------------

TEST(PlaneAndVertical, OutputAppends) {
    Lines lines = {"before"};
    TVerticalShiftRefSystemTransform(1).Output(&lines);
    EXPECT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines.front(), "before");
}

TEST(PlaneAndVertical, ClassesDifferByType) {
    TPlaneRotationRefSystemTransform const rotation(0);
    TPlaneShiftRefSystemTransform const shift(0, 0);
    TPlaneAffineRefSystemTransform const affine = Affine({1, 0, 0, 1}, {0, 0});
    TVerticalShiftRefSystemTransform const vertical(0);
    TRefSystemTransform const* const all[] = {&rotation, &shift, &affine, &vertical};
    for (auto const* const first : all) {
        for (auto const* const second : all) {
            EXPECT_EQ(*first == *second, first == second);
        }
    }
    EXPECT_FALSE(rotation == shift);
    EXPECT_FALSE(vertical == affine);
}

TEST(PlaneAndVertical, CopiesKeepTheNumbersAndLoseTheNames) {
    TPlaneRotationRefSystemTransform rotation(0.3);
    TPlaneShiftRefSystemTransform shift(1, 2);
    TPlaneAffineRefSystemTransform affine = Affine({1, 2, 3, 4}, {5, 6});
    TVerticalShiftRefSystemTransform vertical(7);
    for (TRefSystemTransform* const transform :
         {static_cast<TRefSystemTransform*>(&rotation), static_cast<TRefSystemTransform*>(&shift),
          static_cast<TRefSystemTransform*>(&affine), static_cast<TRefSystemTransform*>(&vertical)}) {
        transform->Name = "name";
        transform->Description = "description";
    }
    TPlaneRotationRefSystemTransform const rotationCopy(rotation);
    TPlaneShiftRefSystemTransform const shiftCopy(shift);
    TPlaneAffineRefSystemTransform const affineCopy(affine);
    TVerticalShiftRefSystemTransform const verticalCopy(vertical);
    EXPECT_TRUE(rotationCopy == rotation);
    EXPECT_EQ(rotationCopy.SinAngle, rotation.SinAngle);
    EXPECT_TRUE(shiftCopy == shift);
    EXPECT_TRUE(affineCopy == affine);
    EXPECT_EQ(affineCopy.Inverse[3], affine.Inverse[3]);
    EXPECT_TRUE(verticalCopy == vertical);
    for (TRefSystemTransform const* const copy : {static_cast<TRefSystemTransform const*>(&rotationCopy),
                                                  static_cast<TRefSystemTransform const*>(&shiftCopy),
                                                  static_cast<TRefSystemTransform const*>(&affineCopy),
                                                  static_cast<TRefSystemTransform const*>(&verticalCopy)}) {
        EXPECT_EQ(copy->Name, "");
        EXPECT_EQ(copy->Description, "");
    }
}

TEST(PlaneAndVertical, ChainRotatesFirstAndUnshiftsFirst) {
    TRefSystemTransformsSet chain;
    ASSERT_TRUE(chain.AddNextTransform(TPlaneRotationRefSystemTransform(Pi / 2)));
    ASSERT_TRUE(chain.AddNextTransform(TPlaneShiftRefSystemTransform(10, 100)));
    TCoords point = Point(1, 2, 0);
    chain.BaseToTransformed(nullptr, &point);
    ExpectPoint(point, 12, 99, 0, 1e-14);
    chain.TransformedToBase(nullptr, &point);
    ExpectPoint(point, 1, 2, 0, 1e-14);
}

TEST(PlaneAndVertical, ChainWithAHeightShiftPreservesHeightsAsHostsRelyOn) {
    TRefSystemTransformsSet chain;
    ASSERT_TRUE(chain.AddNextTransform(TPlaneShiftRefSystemTransform(10, 100)));
    ASSERT_TRUE(chain.AddNextTransform(TVerticalShiftRefSystemTransform(5)));
    EXPECT_TRUE(chain.PreservesHeights());
    TCoords point = Point(1, 2, 3);
    chain.BaseToTransformed(nullptr, &point);
    EXPECT_EQ(point.Z, 8);
}

} // namespace
