#include "shell/transforms/TransformParams.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <stdexcept>
#include <type_traits>

namespace {

using namespace KvRefSystem;
using TParams = TShellRefSystemTransformParams;
using TAffine = TShellRefSystemTransform2DAffineParams;
using TGrid = TShellRefSystemTransform2DGridParams;
using TShift = TShellRefSystemTransformShiftZParams;

static_assert(sizeof(TParams) == 80);
static_assert(sizeof(TAffine) == 128);
static_assert(sizeof(TGrid) == 184);
static_assert(sizeof(TShift) == 88);
static_assert(std::has_virtual_destructor_v<TParams>);
// A record converts to a truth value, which must not pass for `identity`.
static_assert(!std::is_convertible_v<TParams, TAffine>);
static_assert(!std::is_constructible_v<TAffine, TParams const&>);
static_assert(!std::is_constructible_v<TAffine, TGrid const&>);
static_assert(!std::is_convertible_v<bool, TAffine>);

bool IsTrue(TParams const& params) {
    return static_cast<bool>(params);
}

TAffine MakeAffine(double a11, double a12, double a13, double a21, double a22, double a23) {
    TAffine params(false);
    double const row1[] = {a11, a12, a13};
    double const row2[] = {a21, a22, a23};
    params.Set(row1, row2);
    return params;
}

void ExpectNumbers(TAffine const& params, double a11, double a12, double a13, double a21, double a22,
                   double a23) {
    EXPECT_EQ(params.a11, a11);
    EXPECT_EQ(params.a12, a12);
    EXPECT_EQ(params.a13, a13);
    EXPECT_EQ(params.a21, a21);
    EXPECT_EQ(params.a22, a22);
    EXPECT_EQ(params.a23, a23);
}

TEST(ShellTransformParams, MembersStandInTheirOrder) {
    auto const offset = [](auto const& object, auto const& member) {
        return reinterpret_cast<char const*>(&member) - reinterpret_cast<char const*>(&object);
    };
    TAffine const affine(true);
    EXPECT_EQ(offset(affine, affine.Name), 8);
    EXPECT_EQ(offset(affine, affine.Description), 40);
    EXPECT_EQ(offset(affine, affine.Type), 72);
    EXPECT_EQ(offset(affine, affine.a11), 80);
    EXPECT_EQ(offset(affine, affine.a12), 88);
    EXPECT_EQ(offset(affine, affine.a13), 96);
    EXPECT_EQ(offset(affine, affine.a21), 104);
    EXPECT_EQ(offset(affine, affine.a22), 112);
    EXPECT_EQ(offset(affine, affine.a23), 120);
    TGrid const grid;
    EXPECT_EQ(offset(grid, grid.dE), 80);
    EXPECT_EQ(offset(grid, grid.dN), 112);
    EXPECT_EQ(offset(grid, grid.refsys), 144);
    EXPECT_EQ(offset(grid, grid.coef), 176);
    TShift const shift;
    EXPECT_EQ(offset(shift, shift.dH), 80);
}

TEST(ShellTransformParams, RootRefusesTypeZero) {
    try {
        TParams const params(TReferenceSystemTransformType{});
        FAIL() << "nothing was thrown";
    } catch (std::runtime_error const& error) {
        EXPECT_STREQ(error.what(), "TShellRefSystemTransformParams::TShellRefSystemTransformParams");
    }
}

TEST(ShellTransformParams, RootIsTrueUntilItsReset) {
    TParams params(rsttPlaneShift);
    params.SetNameDecsription("name", "description");
    EXPECT_EQ(params.Name, "name");
    EXPECT_EQ(params.Description, "description");
    EXPECT_TRUE(IsTrue(params));
    params.Reset();
    EXPECT_FALSE(IsTrue(params));
    EXPECT_EQ(params.Type, 0);
    EXPECT_EQ(params.Name + params.Description, "");
}

TEST(ShellTransformParams, AffineBeginsAsTheIdentityOrAsZeros) {
    TAffine const identity(true);
    EXPECT_EQ(identity.Type, rsttPlaneAffine);
    EXPECT_EQ(identity.Name + identity.Description, "");
    ExpectNumbers(identity, 1, 0, 0, 0, 1, 0);
    EXPECT_TRUE(IsTrue(identity));
    TAffine zeros(false);
    ExpectNumbers(zeros, 0, 0, 0, 0, 0, 0);
    EXPECT_FALSE(IsTrue(zeros));
    EXPECT_TRUE(zeros.Set());
    ExpectNumbers(zeros, 1, 0, 0, 0, 1, 0);
}

TEST(ShellTransformParams, AffineSetTakesThreeNumbersOfEachRow) {
    TAffine params(true);
    double const row1[] = {1, 2, 3};
    double const row2[] = {4, 5, 6};
    EXPECT_TRUE(params.Set(row1, row2));
    ExpectNumbers(params, 1, 2, 3, 4, 5, 6);
    double const parallel[] = {2, 4, 6};
    EXPECT_FALSE(params.Set(row1, parallel));
    ExpectNumbers(params, 1, 2, 3, 2, 4, 6);
}

TEST(ShellTransformParams, AffineSetAnswersThroughTheVirtualSlot) {
    struct TNever : TAffine {
        using TAffine::TAffine;
        operator bool() const override { return false; }
    };
    TNever params(true);
    EXPECT_FALSE(params.Set());
}

TEST(ShellTransformParams, AffineTruthHasATolerance) {
    EXPECT_FALSE(IsTrue(MakeAffine(1e-13, 0, 0, 0, 1, 0)));
    EXPECT_FALSE(IsTrue(MakeAffine(1e-12, 0, 0, 0, 1, 0)));
    EXPECT_TRUE(IsTrue(MakeAffine(1.1e-12, 0, 0, 0, 1, 0)));
    EXPECT_TRUE(IsTrue(MakeAffine(-1, 0, 0, 0, 1, 0)));
    EXPECT_FALSE(IsTrue(MakeAffine(std::numeric_limits<double>::quiet_NaN(), 0, 0, 0, 1, 0)));
}

TEST(ShellTransformParams, AffineInversionTestsForExactlyZero) {
    TAffine inverse(false);
    EXPECT_TRUE(MakeAffine(1e-13, 0, 0, 0, 1, 0).GetInverted(&inverse));
    EXPECT_DOUBLE_EQ(inverse.a11, 1e13);
    EXPECT_EQ(inverse.a22, 1.0);
}

TEST(ShellTransformParams, AffineInversionTakesThePointBack) {
    TAffine inverse(false);
    EXPECT_TRUE(MakeAffine(2, 0, 10, 0, 4, 20).GetInverted(&inverse));
    ExpectNumbers(inverse, 0.5, 0, -5, 0, 0.25, -5);
    // (1, 2; 3, 4) with (5, 6): the inverse matrix is (-2, 1; 1.5, -0.5), the shifts 4 and -4.5.
    EXPECT_TRUE(MakeAffine(1, 2, 5, 3, 4, 6).GetInverted(&inverse));
    ExpectNumbers(inverse, -2, 1, 4, 1.5, -0.5, -4.5);
}

TEST(ShellTransformParams, AffineMayBeInvertedInPlace) {
    TAffine params = MakeAffine(2, 0, 10, 0, 4, 20);
    params.SetNameDecsription("name", "description");
    EXPECT_TRUE(params.GetInverted(&params));
    ExpectNumbers(params, 0.5, 0, -5, 0, 0.25, -5);
    EXPECT_EQ(params.Name, "name");
}

TEST(ShellTransformParams, AffineWithoutAnInverseResetsTheResult) {
    TAffine inverse = MakeAffine(1, 2, 3, 4, 5, 6);
    inverse.SetNameDecsription("name", "description");
    EXPECT_FALSE(MakeAffine(1, 2, 3, 2, 4, 6).GetInverted(&inverse));
    ExpectNumbers(inverse, 0, 0, 0, 0, 0, 0);
    EXPECT_EQ(inverse.Name, "name");
}

TEST(ShellTransformParams, ResetOfAffineKeepsLabelsAndType) {
    TAffine params = MakeAffine(1, 2, 3, 4, 5, 6);
    params.SetNameDecsription("name", "description");
    params.Reset();
    ExpectNumbers(params, 0, 0, 0, 0, 0, 0);
    EXPECT_EQ(params.Name, "name");
    EXPECT_EQ(params.Description, "description");
    EXPECT_EQ(params.Type, rsttPlaneAffine);
}

TEST(ShellTransformParams, GridNeedsBothTablesAndAFactor) {
    TGrid params;
    EXPECT_EQ(params.Type, rsttPlaneGrid);
    EXPECT_EQ(params.coef, 0.0);
    EXPECT_FALSE(IsTrue(params));
    params.dE = "e";
    params.dN = "n";
    EXPECT_FALSE(IsTrue(params));
    params.coef = 2;
    EXPECT_TRUE(IsTrue(params));
    params.dE.clear();
    EXPECT_FALSE(IsTrue(params));
    params.dE = "e";
    params.dN.clear();
    EXPECT_FALSE(IsTrue(params));
}

TEST(ShellTransformParams, GridWithoutASystemIsTrue) {
    TGrid params;
    params.dE = "e";
    params.dN = "n";
    params.coef = -1e-300;
    EXPECT_TRUE(IsTrue(params));
}

TEST(ShellTransformParams, ResetOfGridKeepsLabelsAndType) {
    TGrid params;
    params.SetNameDecsription("name", "description");
    params.dE = "e";
    params.dN = "n";
    params.refsys = "r";
    params.coef = 2;
    params.Reset();
    EXPECT_EQ(params.dE + params.dN + params.refsys, "");
    EXPECT_EQ(params.coef, 0.0);
    EXPECT_EQ(params.Name, "name");
    EXPECT_EQ(params.Description, "description");
    EXPECT_EQ(params.Type, rsttPlaneGrid);
}

TEST(ShellTransformParams, HeightShiftIsTrueEvenWhileUnset) {
    TShift params;
    EXPECT_EQ(params.Type, rsttVerticalShift);
    EXPECT_EQ(params.dH, std::numeric_limits<double>::max());
    EXPECT_TRUE(IsTrue(params));
    params.dH = 0;
    params.SetNameDecsription("name", "description");
    EXPECT_TRUE(IsTrue(params));
    params.Reset();
    EXPECT_EQ(params.dH, std::numeric_limits<double>::max());
    EXPECT_TRUE(IsTrue(params));
    EXPECT_EQ(params.Name, "name");
    EXPECT_EQ(params.Description, "description");
    EXPECT_EQ(params.Type, rsttVerticalShift);
}

TEST(ShellTransformParams, CopiesAreOfTheSameClassWithEverything) {
    TAffine affine = MakeAffine(1, 2, 3, 4, 5, 6);
    affine.SetNameDecsription("affine", "first");
    std::unique_ptr<TParams> copy(CreateTransformCopy(affine));
    auto const* const affineCopy = dynamic_cast<TAffine*>(copy.get());
    ASSERT_NE(affineCopy, nullptr);
    ExpectNumbers(*affineCopy, 1, 2, 3, 4, 5, 6);
    EXPECT_EQ(copy->Name, "affine");
    EXPECT_EQ(copy->Description, "first");

    TGrid grid;
    grid.SetNameDecsription("grid", "second");
    grid.dE = "e";
    grid.dN = "n";
    grid.refsys = "r";
    grid.coef = 2;
    copy.reset(CreateTransformCopy(grid));
    auto const* const gridCopy = dynamic_cast<TGrid*>(copy.get());
    ASSERT_NE(gridCopy, nullptr);
    EXPECT_EQ(gridCopy->dE + gridCopy->dN + gridCopy->refsys, "enr");
    EXPECT_EQ(gridCopy->coef, 2.0);
    EXPECT_EQ(copy->Name + copy->Description, "gridsecond");

    TShift shift;
    shift.SetNameDecsription("shift", "third");
    shift.dH = 12.5;
    copy.reset(CreateTransformCopy(shift));
    auto const* const shiftCopy = dynamic_cast<TShift*>(copy.get());
    ASSERT_NE(shiftCopy, nullptr);
    EXPECT_EQ(shiftCopy->dH, 12.5);
    EXPECT_EQ(copy->Name + copy->Description, "shiftthird");
}

TEST(ShellTransformParams, CopyOfARootRecordIsNull) {
    for (int type = 1; type <= 6; ++type) {
        TParams const params(static_cast<TReferenceSystemTransformType>(type));
        EXPECT_EQ(CreateTransformCopy(params), nullptr) << type;
    }
}

TEST(ShellTransformParams, CopyOfAMistypedRecordIsNull) {
    TAffine affine(true);
    affine.Type = rsttPlaneGrid;
    EXPECT_EQ(CreateTransformCopy(affine), nullptr);
    affine.Type = static_cast<TReferenceSystemTransformType>(77);
    EXPECT_EQ(CreateTransformCopy(affine), nullptr);
}

} // namespace
