#include "shell/transforms/TransformChain.h"

#include "core/refsystems/ReferenceSystem.h"
#include "core/transforms/PlaneAndVertical.h"
#include "core/transforms/PlaneGrid.h"
#include "tests/shell/transforms/ChainFixtures.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace {

using namespace ChainFixtures;

constexpr char const* coreMessage = "TShellRefSystemTransform::CreateCoreTransform";

struct TAffineNumbers {
    double matrix[4];
    double shift[2];
};

/** The core numbers of one affine record under the given axes. */
TAffineNumbers CoreAffine(TAffine const& params, bool swap, int xScale, int yScale) {
    TChainPtr const chain(new TChain);
    chain->AddNextTransform(params);
    std::unique_ptr<TRefSystemTransformsSet> const core(chain->CreateCoreTransform(swap, xScale, yScale));
    auto const& affine = dynamic_cast<TPlaneAffineRefSystemTransform&>(*core->GetFirstTransform());
    TAffineNumbers numbers{};
    affine.GetParameters(numbers.matrix, numbers.shift);
    return numbers;
}

void ExpectAffine(TAffineNumbers const& actual, TAffineNumbers const& expected) {
    for (int k = 0; k < 4; ++k) {
        EXPECT_DOUBLE_EQ(actual.matrix[k], expected.matrix[k]) << k;
    }
    EXPECT_DOUBLE_EQ(actual.shift[0], expected.shift[0]);
    EXPECT_DOUBLE_EQ(actual.shift[1], expected.shift[1]);
}

TEST(ShellTransformChain, PlainAxesLeaveTheNumbersAsTheyAre) {
    TAffineNumbers const numbers = CoreAffine(MakeAffine(1.1, 0.2, 3.3, -0.4, 5.5, -6.6), false, 1, 1);
    EXPECT_EQ(numbers.matrix[0], 1.1);
    EXPECT_EQ(numbers.matrix[1], 0.2);
    EXPECT_EQ(numbers.matrix[2], -0.4);
    EXPECT_EQ(numbers.matrix[3], 5.5);
    EXPECT_EQ(numbers.shift[0], 3.3);
    EXPECT_EQ(numbers.shift[1], -6.6);
}

// C A B and C t worked out by hand for A = (1, 0.1; 0, 1) and t = (1, 2).
TEST(ShellTransformChain, AxesTurnTheAffineRecord) {
    TAffine const params = MakeAffine(1, 0.1, 1, 0, 1, 2);
    ExpectAffine(CoreAffine(params, true, 1, 1), {{1, 0, 0.1, 1}, {2, 1}});
    ExpectAffine(CoreAffine(params, false, -1, 1), {{1, -0.1, 0, 1}, {-1, 2}});
    ExpectAffine(CoreAffine(params, true, -1, 1), {{1, 0, -0.1, 1}, {2, -1}});
    ExpectAffine(CoreAffine(params, false, 1, -1), {{1, -0.1, 0, 1}, {1, -2}});
}

TEST(ShellTransformChain, SwappedIdentityStaysTheIdentityWithItsShiftTurned) {
    ExpectAffine(CoreAffine(MakeAffine(1, 0, 1, 0, 1, 2), true, 1, 1), {{1, 0, 0, 1}, {2, 1}});
}

TEST(ShellTransformChain, NegativeFirstScaleTurnsTheMixedNumbersAndTheFirstShift) {
    ExpectAffine(CoreAffine(MakeAffine(1, 2, 3, 4, 5, 6), false, -1, 1), {{1, -2, -4, 5}, {-3, 6}});
}

TEST(ShellTransformChain, AxesDoNotTouchGridsAndHeights) {
    TChainPtr const chain(new TChain);
    chain->AddNextTransform(MakeGrid());
    chain->AddNextTransform(MakeShift(12.5));
    std::unique_ptr<TRefSystemTransformsSet> const plain(chain->CreateCoreTransform(false, 1, 1));
    std::unique_ptr<TRefSystemTransformsSet> const turned(chain->CreateCoreTransform(true, -1, 1));
    EXPECT_TRUE(*plain == *turned);
    TCoords point{0, 0, 3, false};
    turned->BaseToTransformed(nullptr, &point);
    EXPECT_NEAR(point.X, 0.5, 1e-6);
    EXPECT_NEAR(point.Y, -1.0, 1e-6);
    EXPECT_EQ(point.Z, 15.5);
}

TEST(ShellTransformChain, CoreSetHasTheOrderAndNoNames) {
    TChainPtr const chain = MakeChain();
    dynamic_cast<TGrid&>(*chain->GetTransform(1)).refsys.clear();
    std::unique_ptr<TRefSystemTransformsSet> const core(chain->CreateCoreTransform(false, 1, 1));
    ASSERT_EQ(core->TransformList.size(), 3U);
    EXPECT_EQ(core->TransformID, "");
    EXPECT_EQ(core->TransformList[0]->Type, rsttPlaneAffine);
    EXPECT_EQ(core->TransformList[1]->Type, rsttPlaneGrid);
    EXPECT_EQ(core->TransformList[2]->Type, rsttVerticalShift);
    for (TRefSystemTransform const* const transform : core->TransformList) {
        EXPECT_EQ(transform->Name + transform->Description, "");
    }
    EXPECT_EQ(dynamic_cast<TPlaneGridRefSystemTransform&>(*core->TransformList[1]).GridRefSystem, nullptr);
    EXPECT_EQ(dynamic_cast<TPlaneGridRefSystemTransform&>(*core->TransformList[1]).GridCoef, 0.5);
}

TEST(ShellTransformChain, EmptyChainGivesAnEmptySet) {
    TChain const chain;
    std::unique_ptr<TRefSystemTransformsSet> const core(chain.CreateCoreTransform(false, 0, 0));
    ASSERT_NE(core, nullptr);
    EXPECT_TRUE(core->TransformList.empty());
}

TEST(ShellTransformChain, RecordsWithoutACoreFormThrow) {
    for (TReferenceSystemTransformType const type :
         {rsttPlaneShift, rsttPlaneAffine, rsttPlaneGrid, rsttVerticalShift}) {
        TChainPtr const chain(new TChain);
        chain->AddNextTransform(MakeShift(1));
        chain->Chain.push_back(new TParams(type));
        EXPECT_EQ(MessageOf([&] { delete chain->CreateCoreTransform(false, 1, 1); }), coreMessage) << type;
        delete std::exchange(chain->Chain.back(), nullptr);
        EXPECT_EQ(MessageOf([&] { delete chain->CreateCoreTransform(false, 1, 1); }), coreMessage);
    }
}

TEST(ShellTransformChain, TablesThatDoNotLoadThrow) {
    for (bool const isEast : {true, false}) {
        TGrid grid = MakeGrid();
        (isEast ? grid.dE : grid.dN) = "2 2 10 0 0 1 1 1";
        TChainPtr const chain(new TChain);
        chain->AddNextTransform(MakeShift(1));
        chain->AddNextTransform(grid);
        EXPECT_EQ(MessageOf([&] { delete chain->CreateCoreTransform(false, 1, 1); }), coreMessage);
    }
}

TEST(ShellTransformChain, SystemOfAGridThatCannotBeReadThrows) {
    TGrid grid = MakeGrid();
    grid.refsys = "no description";
    TChainPtr const chain(new TChain);
    chain->AddNextTransform(MakeShift(1));
    chain->AddNextTransform(grid);
    EXPECT_ANY_THROW(delete chain->CreateCoreTransform(false, 1, 1));
}

TEST(ShellTransformChain, SingularRecordIsRefusedByTheCoreOnly) {
    TChainPtr const chain(new TChain);
    EXPECT_TRUE(chain->AddNextTransform(TAffine(false)));
    EXPECT_EQ(MessageOf([&] { delete chain->CreateCoreTransform(false, 1, 1); }),
              "TPlaneAffineRefSystemTransform(const double M[4], const double S[2])");
    EXPECT_TRUE(chain->SwapTransforms(0, 0));
    chain->ClearTransforms();
    chain->AddNextTransform(TAffine(true));
    EXPECT_EQ(MessageOf([&] { delete chain->CreateCoreTransform(false, 0, 1); }),
              "TPlaneAffineRefSystemTransform(const double M[4], const double S[2])");
}

} // namespace
