#include "shell/refsystems/GeodeticReferenceSystem.h"

#include "core/refsystems/ReferenceSystem.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

/** Height (metres) of a point of `system` in WGS 84 itself. */
double HeightInWgs84(TShellReferenceSystem const& system) {
    auto const target = Create(WithZeroShift());
    double x = 0;
    double y = 0;
    double z = 0;
    EXPECT_TRUE(TransformCoords(&system, 50, 10, 100, target.get(), &x, &y, &z));
    return z;
}

int PairwiseSetCount(TShellReferenceSystem const& system) {
    TStringTree const* const collection = system.SavedTree->FindSubtree(1109, 0);
    std::vector<int> list;
    return collection ? static_cast<int>(collection->GetSubtreesIndexList(1110, &list)) : 0;
}

TEST(TransformSettings, AppendingChangesChainDescriptionAndCore) {
    auto const system = Create(WithZeroShift());
    auto const seven = HeightShift(7);

    ASSERT_TRUE(system->AppendTransform(&seven));

    // A height shift of 7 from base to transformed: the base height is 7 less.
    EXPECT_NEAR(HeightInWgs84(*system), 93, 1e-6);
    EXPECT_NE(system->SavedTree->FindSubtree(1108, 0), nullptr);
    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());
    EXPECT_NEAR(HeightInWgs84(*copy), 93, 1e-6);
}

TEST(TransformSettings, ChainsOfGeodeticSystemsTakeTheirAxesAsTheyStand) {
    auto const target = Create(WithZeroShift());
    TShellRefSystemTransform2DAffineParams shift(true);
    shift.a13 = 0.01; // radians of longitude and latitude, from base to transformed: the base has less
    shift.a23 = 0.02;
    auto const own = Create(WithZeroShift());
    ASSERT_TRUE(own->AppendTransform(&shift));
    auto const pairwise = Create(WithZeroShift());
    ASSERT_TRUE(pairwise->AppendPairwiseTransform("pair", &shift));
    auto const partner = Create(WithZeroShift());
    TShellRefSystemTransform2DAffineParams const identity(true);
    ASSERT_TRUE(partner->AppendPairwiseTransform("pair", &identity));

    for (auto const& [source, end] : {std::pair(own.get(), target.get()), {pairwise.get(), partner.get()}}) {
        double latitude = 0;
        double longitude = 0;
        double height = 0;
        EXPECT_TRUE(TransformCoords(source, 50, 10, 100, end, &latitude, &longitude, &height));
        EXPECT_NEAR(latitude, 50 - 1.1459155902616465, 1e-9);
        EXPECT_NEAR(longitude, 10 - 0.5729577951308232, 1e-9);
    }
}

TEST(TransformSettings, EveryEditReachesTheCore) {
    auto const system = Create(WithZeroShift());
    auto const one = HeightShift(1);
    auto const ten = HeightShift(10);
    TShellRefSystemTransform2DAffineParams const identity(true);
    ASSERT_TRUE(system->AppendTransform(&one));
    ASSERT_TRUE(system->AppendTransform(&ten));
    EXPECT_NEAR(HeightInWgs84(*system), 89, 1e-6);

    EXPECT_TRUE(system->ReplaceTransform(0, HeightShift(5)));
    EXPECT_NEAR(HeightInWgs84(*system), 85, 1e-6);
    EXPECT_TRUE(system->SwapTransforms(0, 1));
    EXPECT_EQ(dynamic_cast<TShellRefSystemTransformShiftZParams*>(system->GetTransform(0))->dH, 10);
    EXPECT_TRUE(system->DeleteTransform(0));
    EXPECT_NEAR(HeightInWgs84(*system), 95, 1e-6);
    EXPECT_TRUE(system->ReplaceTransform(0, identity));
    EXPECT_NEAR(HeightInWgs84(*system), 100, 1e-6);
    EXPECT_TRUE(system->ClearTransforms());
    EXPECT_EQ(system->SavedTree->FindSubtree(1108, 0), nullptr);
    EXPECT_EQ(system->GetTransform(0), nullptr);
    EXPECT_TRUE(system->CoreRefSystem->Transforms.TransformList.empty());
}

TEST(TransformSettings, BadIndexesAndRecordsAreRefused) {
    auto const system = Create(WithZeroShift());

    EXPECT_FALSE(system->AppendTransform(nullptr));
    EXPECT_FALSE(system->DeleteTransform(0));
    EXPECT_FALSE(system->ReplaceTransform(0, HeightShift(1)));
    EXPECT_FALSE(system->SwapTransforms(0, 1));
    EXPECT_EQ(system->GetTransform(-1), nullptr);
}

TEST(TransformSettings, ClearingTheSettingsLeavesChainAndCore) {
    auto const system = Create(WithZeroShift());
    auto const shift = HeightShift(3);
    ASSERT_TRUE(system->AppendTransform(&shift));

    system->ClearTransformsSettings();

    EXPECT_EQ(system->SavedTree->FindSubtree(1108, 0), nullptr);
    EXPECT_NEAR(HeightInWgs84(*system), 97, 1e-6);
}

TEST(TransformSettings, APairwiseChainReplacesTheOwnChainsOfBothSystems) {
    auto const source = Create(WithZeroShift());
    auto const target = Create(WithZeroShift());
    auto const own = HeightShift(1000);
    auto const pairwise = HeightShift(2);
    ASSERT_TRUE(source->AppendTransform(&own));
    ASSERT_TRUE(source->AppendPairwiseTransform("pair", &pairwise));
    double x = 0;
    double y = 0;
    double z = 0;

    ASSERT_TRUE(TransformCoords(source.get(), 50, 10, 100, target.get(), &x, &y, &z));
    EXPECT_NEAR(z, -900, 1e-6); // the target lacks the name: the own chain acts

    ASSERT_TRUE(target->AppendPairwiseTransform("pair", &pairwise));
    ASSERT_TRUE(TransformCoords(source.get(), 50, 10, 100, target.get(), &x, &y, &z));
    EXPECT_NEAR(z, 100, 1e-6); // minus 2, plus 2
}

TEST(TransformSettings, LaterNamesPileUpInTheDescription) {
    auto const system = Create(WithZeroShift());
    auto const shift = HeightShift(1);
    ASSERT_TRUE(system->AppendPairwiseTransform("A", &shift));
    ASSERT_TRUE(system->AppendPairwiseTransform("B", &shift));
    ASSERT_TRUE(system->AppendPairwiseTransform("B", &shift));

    EXPECT_EQ(PairwiseSetCount(*system), 3);
    EXPECT_NE(system->FindPairwiseTransformsSettings("A"), nullptr);
    EXPECT_EQ(system->FindPairwiseTransformsSettings("B"), nullptr);
    for (int idx = 0; idx < 3; ++idx) {
        EXPECT_NE(system->SavedTree->FindSubtree(1109, 0)->FindSubtree(1110, idx), nullptr) << idx;
    }
}

TEST(TransformSettings, TheLastOfThePiledUpSetsIsRead) {
    auto const system = Create(WithZeroShift());
    auto const shift = HeightShift(1);
    ASSERT_TRUE(system->AppendPairwiseTransform("A", &shift));
    ASSERT_TRUE(system->AppendPairwiseTransform("B", &shift));
    ASSERT_TRUE(system->AppendPairwiseTransform("B", &shift));

    std::unique_ptr<TShellReferenceSystem> const read(system->CreateCopy());

    EXPECT_NE(read->GetPairwiseTransform("B", 1), nullptr);
    EXPECT_EQ(read->GetPairwiseTransform("B", 2), nullptr);
}

TEST(TransformSettings, TheCoreKeepsTheFirstFormOfAPairwiseChain) {
    auto const system = Create(WithZeroShift());
    auto const shift = HeightShift(1);
    ASSERT_TRUE(system->AppendPairwiseTransform("B", &shift));
    ASSERT_TRUE(system->AppendPairwiseTransform("B", &shift));

    EXPECT_EQ(system->CoreRefSystem->PairwiseTransforms.at("B").TransformList.size(), 1U);
    EXPECT_NE(system->GetPairwiseTransform("B", 1), nullptr);
}

TEST(TransformSettings, SwappingAPairwiseChainTouchesNeitherItsDescriptionNorTheCore) {
    auto const system = Create(WithZeroShift());
    auto const one = HeightShift(1);
    auto const two = HeightShift(2);
    ASSERT_TRUE(system->AppendPairwiseTransform("A", &one));
    ASSERT_TRUE(system->AppendPairwiseTransform("A", &two));
    std::string const before = TextOf(*system->SavedTree->FindSubtree(1109, 0));

    ASSERT_TRUE(system->SwapPairwiseTransforms("A", 0, 1));

    EXPECT_EQ(dynamic_cast<TShellRefSystemTransformShiftZParams*>(system->GetPairwiseTransform("A", 0))->dH,
              2);
    EXPECT_EQ(TextOf(*system->SavedTree->FindSubtree(1109, 0)), before);
    // What it does rewrite is the main chain, which is empty here.
    EXPECT_NE(system->SavedTree->FindSubtree(1108, 0), nullptr);
}

TEST(TransformSettings, ClearingOneNameReachesTheCore) {
    auto const system = Create(WithZeroShift());
    auto const shift = HeightShift(1);
    ASSERT_TRUE(system->AppendPairwiseTransform("A", &shift));

    EXPECT_TRUE(system->ClearPairwiseTransforms("A"));

    EXPECT_EQ(system->AccessPairwiseTransforms("A"), nullptr);
    EXPECT_EQ(system->SavedTree->FindSubtree(1109, 0), nullptr);
    EXPECT_TRUE(system->CoreRefSystem->PairwiseTransforms.empty());
}

TEST(TransformSettings, ClearingAllNamesLeavesTheCore) {
    auto const system = Create(WithZeroShift());
    auto const shift = HeightShift(1);
    ASSERT_TRUE(system->AppendPairwiseTransform("A", &shift));

    EXPECT_TRUE(system->ClearAllPairwiseTransforms());

    EXPECT_TRUE(system->PairwiseTransforms.empty());
    EXPECT_EQ(system->SavedTree->FindSubtree(1109, 0), nullptr);
    EXPECT_EQ(system->CoreRefSystem->PairwiseTransforms.size(), 1U);
}

TEST(TransformSettings, UnknownNamesAreRefused) {
    auto const system = Create(WithZeroShift());

    EXPECT_FALSE(system->AppendPairwiseTransform("A", nullptr));
    EXPECT_FALSE(system->DeletePairwiseTransform("A", 0));
    EXPECT_FALSE(system->ReplacePairwiseTransform("A", 0, HeightShift(1)));
    EXPECT_FALSE(system->SwapPairwiseTransforms("A", 0, 0));
    EXPECT_FALSE(system->InsertPairwiseTransformsSettings("A"));
    EXPECT_EQ(system->FindPairwiseTransforms("A"), nullptr);
    EXPECT_EQ(system->GetPairwiseTransform("A", 0), nullptr);
    EXPECT_EQ(system->FindPairwiseTransformsSettings("A"), nullptr);
    EXPECT_TRUE(system->ClearPairwiseTransformsSettings("A"));
}

TEST(TransformSettings, ARecordWithoutACoreFormTakesTheNewNameAway) {
    auto const system = Create(WithZeroShift());
    TShellRefSystemTransform2DAffineParams const singular(false);

    EXPECT_THROW(system->AppendPairwiseTransform("A", &singular), std::runtime_error);
    EXPECT_TRUE(system->PairwiseTransforms.empty());
}

TEST(TransformSettings, PairwiseEditsRewriteTheirDescription) {
    auto const system = Create(WithZeroShift());
    auto const shift = HeightShift(1);
    ASSERT_TRUE(system->AppendPairwiseTransform("A", &shift));
    ASSERT_TRUE(system->AppendPairwiseTransform("A", &shift));

    EXPECT_TRUE(system->ReplacePairwiseTransform("A", 1, HeightShift(4)));
    EXPECT_TRUE(system->DeletePairwiseTransform("A", 0));
    EXPECT_FALSE(system->DeletePairwiseTransform("A", 1));

    std::unique_ptr<TShellReferenceSystem> const read(system->CreateCopy());
    EXPECT_EQ(dynamic_cast<TShellRefSystemTransformShiftZParams*>(read->GetPairwiseTransform("A", 0))->dH, 4);
    EXPECT_EQ(read->GetPairwiseTransform("A", 1), nullptr);
}

TEST(TransformSettings, ANameWithoutAChainAfterAResetIsFilledAnew) {
    auto const system = Create(WithZeroShift());
    auto const shift = HeightShift(1);
    ASSERT_TRUE(system->AppendPairwiseTransform("A", &shift));
    DestroyTransformChain(system->PairwiseTransforms["A"]);
    system->PairwiseTransforms["A"] = nullptr;
    std::map<std::string, TRefSystemTransformsSet> core;

    EXPECT_TRUE(system->InitializeCorePairwiseTransforms(&core));
    EXPECT_TRUE(core.empty());
    EXPECT_TRUE(system->AppendPairwiseTransform("A", &shift));
    EXPECT_NE(system->GetPairwiseTransform("A", 0), nullptr);
}

} // namespace
} // namespace KvRefSystem
