#include "shell/refsystems/GeodeticReferenceSystem.h"

#include "frame/imported/BaseGrid.h"
#include "tests/support/CartesianKinds.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

void AppendPairwise(TShellReferenceSystem* system, std::string const& name, double metres) {
    auto const shift = HeightShift(metres);
    EXPECT_TRUE(system->AppendPairwiseTransform(name, &shift));
}

void RemoveHeightUnit(TStringTree* tree) {
    tree->FindSubtree(1201, 0)->DeleteSubtree(1104, 0);
}

// Proxies

TEST(SettingsEdge, ThePointPassesTheSourcesProxyAndThenTheTargets) {
    auto const source = Create(WithZeroShift());
    auto const target = Create(WithZeroShift());
    auto const first = newobj_a(Create(WithZeroShift()).release());
    auto const second = newobj_a(Create(WithZeroShift()).release());
    ASSERT_TRUE(source->SetProxyRefSys(first));
    ASSERT_TRUE(target->SetProxyRefSys(second));
    AppendPairwise(source.get(), "in", 1);
    AppendPairwise(first.get(), "in", 10);
    AppendPairwise(first.get(), "middle", 100);
    AppendPairwise(second.get(), "middle", 1000);
    AppendPairwise(second.get(), "out", 5);
    AppendPairwise(target.get(), "out", 50);
    double coords[3] = {50, 10, 0};

    source->OperateShellCoords(*target, coords, false);

    // Each leg takes its first system's shift off and puts its second's on.
    EXPECT_NEAR(coords[2], (-1 + 10) + (-100 + 1000) + (-5 + 50), 1e-6);
}

TEST(SettingsEdge, OneProxyIsEnoughForADetour) {
    auto const source = Create(WithZeroShift());
    auto const target = Create(WithZeroShift());
    auto const proxy = newobj_a(Create(WithZeroShift()).release());
    AppendPairwise(proxy.get(), "a", 10);
    AppendPairwise(proxy.get(), "b", 100);
    AppendPairwise(source.get(), "a", 1);
    AppendPairwise(target.get(), "b", 1000);
    double ofTheSource[3] = {50, 10, 0};
    double ofTheTarget[3] = {50, 10, 0};

    ASSERT_TRUE(source->SetProxyRefSys(proxy));
    source->OperateShellCoords(*target, ofTheSource, false);
    EXPECT_NEAR(ofTheSource[2], (-1 + 10) + (-100 + 1000), 1e-6);
    source->ClearProxyRefSys();
    ASSERT_TRUE(target->SetProxyRefSys(proxy));
    source->OperateShellCoords(*target, ofTheTarget, false);
    EXPECT_NEAR(ofTheTarget[2], (-1 + 10) + (-100 + 1000), 1e-6);
}

TEST(SettingsEdge, ASystemGoesThroughItsProxyEvenToItself) {
    auto const system = Create(WithZeroShift());
    auto const proxy = newobj_a(Create(Pulkovo1942()).release());
    ASSERT_TRUE(system->SetProxyRefSys(proxy));
    double coords[3] = {50, 10, 100};

    system->OperateShellCoords(*system, coords, false);
    EXPECT_NEAR(coords[0], 50, 1e-8);
    EXPECT_NEAR(coords[1], 10, 1e-8);
    EXPECT_NEAR(coords[2], 100, 1e-3);
    delete proxy->CoreRefSystem;
    proxy->CoreRefSystem = nullptr;
    EXPECT_THROW(system->OperateShellCoords(*system, coords, false), std::runtime_error);
}

TEST(SettingsEdge, TheProxysGeoidDoesNotActOnTheRoute) {
    auto const source = Create(WithZeroShift());
    auto const target = Create(WithZeroShift());
    auto const grid = Create(WithZeroShift());
    auto const proxy = newobj_a(Create(WithZeroShift()).release());
    TLevelGrid surface(40);
    ASSERT_TRUE(proxy->SetGeoid("geoid", &surface, grid.get()));
    ASSERT_TRUE(source->SetProxyRefSys(proxy));
    double coords[3] = {50, 10, 100};

    source->OperateShellCoords(*target, coords, false);

    EXPECT_NEAR(coords[2], 100, 1e-6);
}

// Geoids

TEST(SettingsEdge, TheTargetsGeoidTakesItsUndulationOff) {
    auto const source = Create(WithZeroShift());
    auto const target = Create(WithZeroShift());
    auto const grid = Create(WithZeroShift());
    TLevelGrid surface(40);
    ASSERT_TRUE(target->SetGeoid("geoid###-0.5", &surface, grid.get()));
    double with[3] = {50, 10, 100};
    double without[3] = {50, 10, 100};

    source->OperateShellCoords(*target, with, false);
    source->OperateShellCoords(*target, without, true);

    EXPECT_NEAR(with[2], 60.5, 1e-6);
    EXPECT_NEAR(without[2], 100, 1e-6);
}

TEST(SettingsEdge, SkippingTheGeoidsLeavesBothOut) {
    auto const source = Create(WithZeroShift());
    auto const target = Create(WithZeroShift());
    auto const grid = Create(WithZeroShift());
    TLevelGrid low(40);
    TLevelGrid high(70);
    ASSERT_TRUE(source->SetGeoid("low", &low, grid.get()));
    ASSERT_TRUE(target->SetGeoid("high", &high, grid.get()));
    double with[3] = {50, 10, 100};
    double without[3] = {};
    double const point[3] = {50, 10, 100};

    source->OperateShellCoords(*target, with, false);
    source->OperateShellCoords(point, *target, without, true);

    EXPECT_NEAR(with[2], 70, 1e-6); // plus 40, minus 70
    EXPECT_NEAR(without[2], 100, 1e-6);
    EXPECT_EQ(point[2], 100);
}

TEST(SettingsEdge, ACopysGeoidActsAsTheOriginals) {
    auto const source = Create(Pulkovo1942());
    auto const target = Create(WithZeroShift());
    auto const grid = Create(WithZeroShift());
    TLevelGrid surface(40);
    ASSERT_TRUE(source->SetGeoid("geoid", &surface, grid.get()));
    std::unique_ptr<TShellReferenceSystem> const copy(source->CreateCopy());
    ASSERT_NE(copy, nullptr);
    double original[3] = {55, 37, 100};
    double copied[3] = {55, 37, 100};

    source->OperateShellCoords(*target, original, false);
    copy->OperateShellCoords(*target, copied, false);

    // The surface is level over the ellipsoid of the target: 40 and 100 metres, whatever the source's datum. The
    // search for the height ends at a millimetre.
    EXPECT_NEAR(original[2], 140, 1e-3);
    EXPECT_EQ(copied[2], original[2]);
}

TEST(SettingsEdge, ANewGeoidReplacesTheOldOneAndItsSetting) {
    auto const system = Create(WithZeroShift());
    auto const grid = Create(WithZeroShift());
    TLevelGrid first(1);
    TLevelGrid second(2);
    ASSERT_TRUE(system->SetGeoid("first", &first, grid.get()));
    ASSERT_TRUE(system->SetGeoid("second", &second, grid.get()));

    EXPECT_EQ(system->GetGeoidID(), "second");
    EXPECT_EQ(system->GetGeoidSetting(), "second");
    EXPECT_EQ(system->GetGeoidGrid(), &second);
    TStringTree const* const setting = system->SavedTree->FindSubtree(8000, 0);
    ASSERT_NE(setting, nullptr);
    EXPECT_EQ(setting->header, "Geoid");
    EXPECT_EQ(setting->FindField(8001, 0)->header, "GeoidID");
}

TEST(SettingsEdge, AGridSystemWithoutAHeightUnitIsAGeoidsFailure) {
    auto const system = Create(WithZeroShift());
    auto const grid = Geodetic(WithZeroShift(), RemoveHeightUnit);
    TLevelGrid surface(40);

    EXPECT_EQ(ThrownText([&] { system->SetGeoid("geoid", &surface, grid.get()); }),
              "void TShellReferenceSystem::SetGeoid(TBaseGrid*, const TShellReferenceSystem*)");
    EXPECT_EQ(system->Geoid, nullptr);
    EXPECT_EQ(system->SavedTree->FindSubtree(8000, 0), nullptr);
}

TEST(SettingsEdge, AGeoidWithoutAnIdActsButIsNotContained) {
    auto const system = Create(WithZeroShift());
    auto const target = Create(WithZeroShift());
    auto const grid = Create(WithZeroShift());
    TLevelGrid surface(40);
    ASSERT_TRUE(system->SetGeoid("", &surface, grid.get()));
    double coords[3] = {50, 10, 100};
    std::map<int, std::string> keys;

    system->OperateShellCoords(*target, coords, false);

    EXPECT_NEAR(coords[2], 140, 1e-6);
    EXPECT_FALSE(system->ContainsGeoid());
    EXPECT_TRUE(system->CheckGeoid());
    EXPECT_FALSE(system->ExportToGeoTIFF(&keys, true)); // the geoid's answer ends the export
    EXPECT_EQ(keys.count(4096), 0U);
}

// Chains

TEST(SettingsEdge, ARecordThatCannotBeCopiedChangesNothing) {
    auto const system = Create(WithZeroShift());
    TShellRefSystemTransformParams const mistyped(rsttPlaneAffine);
    auto const shift = HeightShift(1);

    EXPECT_FALSE(system->AppendTransform(&mistyped));
    EXPECT_EQ(system->GetTransform(0), nullptr);
    EXPECT_FALSE(system->AppendPairwiseTransform("A", &mistyped));
    EXPECT_TRUE(system->PairwiseTransforms.empty());
    ASSERT_TRUE(system->AppendPairwiseTransform("A", &shift));
    EXPECT_FALSE(system->AppendPairwiseTransform("A", &mistyped)); // a chain that is there stays
    EXPECT_NE(system->GetPairwiseTransform("A", 0), nullptr);
    EXPECT_EQ(system->GetPairwiseTransform("A", 1), nullptr);
}

TEST(SettingsEdge, AnAppendedSingularRecordStaysInChainAndDescription) {
    auto const system = Create(WithZeroShift());
    TShellRefSystemTransform2DAffineParams const singular(false);

    // Meant: appending tests nothing, and the core refuses it only after chain and description have changed.
    EXPECT_THROW(system->AppendTransform(&singular), std::runtime_error);
    EXPECT_NE(system->GetTransform(0), nullptr);
    EXPECT_NE(system->SavedTree->FindSubtree(1108, 0), nullptr);
    EXPECT_THROW(system->CreateCopy(), std::runtime_error);
    EXPECT_TRUE(system->ClearTransforms());
    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());
    EXPECT_NE(copy, nullptr);
}

TEST(SettingsEdge, ClearingALaterNameLeavesItInTheDescription) {
    auto const system = Create(WithZeroShift());
    AppendPairwise(system.get(), "A", 1);
    AppendPairwise(system.get(), "B", 2);

    EXPECT_TRUE(system->ClearPairwiseTransforms("B"));

    // Meant: only the set with idx 0 is ever found, so a copy has the name again.
    EXPECT_EQ(system->FindPairwiseTransforms("B"), nullptr);
    EXPECT_EQ(system->CoreRefSystem->PairwiseTransforms.count("B"), 0U);
    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());
    EXPECT_NE(copy->FindPairwiseTransforms("B"), nullptr);
}

TEST(SettingsEdge, ARewrittenSetTakesTheIndexAfterThoseThatStay) {
    auto const system = Create(WithZeroShift());
    AppendPairwise(system.get(), "first", 1);
    TStringTree* const collection = system->SavedTree->FindSubtree(1109, 0);
    ASSERT_TRUE(collection->InsertSubtree("set", 1110, 2));
    ASSERT_TRUE(collection->FindSubtree(1110, 2)->InsertString("name", 7201, 2, "second"));

    AppendPairwise(system.get(), "second", 2);

    // The old set goes before the largest index is looked for: 0 stays, so the new one has 1.
    EXPECT_NE(collection->FindSubtree(1110, 1), nullptr);
    EXPECT_EQ(collection->FindSubtree(1110, 2), nullptr);
    EXPECT_EQ(collection->FindSubtree(1110, 3), nullptr);
}

TEST(SettingsEdge, TheCollectionGoesWithItsLastSetOnly) {
    auto const system = Create(WithZeroShift());
    AppendPairwise(system.get(), "A", 1);
    AppendPairwise(system.get(), "B", 2);

    EXPECT_TRUE(system->ClearPairwiseTransformsSettings("A"));
    TStringTree const* const collection = system->SavedTree->FindSubtree(1109, 0);
    ASSERT_NE(collection, nullptr);
    EXPECT_EQ(collection->FindSubtree(1110, 0), nullptr);
    EXPECT_NE(collection->FindSubtree(1110, 1), nullptr);
    EXPECT_NE(system->FindPairwiseTransforms("A"), nullptr); // the description only
}

TEST(SettingsEdge, PairwiseSettingsCarryTheirLabels) {
    auto const system = Create(WithZeroShift());
    AppendPairwise(system.get(), "A", 1);
    auto const shift = HeightShift(1);
    ASSERT_TRUE(system->AppendTransform(&shift));

    TStringTree const* const collection = system->SavedTree->FindSubtree(1109, 0);
    ASSERT_NE(collection, nullptr);
    EXPECT_EQ(collection->header, "All Pairwise Transforms");
    TStringTree const* const set = collection->FindSubtree(1110, 0);
    EXPECT_EQ(set->header, "Pairwise Transform Set");
    AppendPairwise(system.get(), "B", 2);
    EXPECT_EQ(collection->FindSubtree(1110, 1)->header, "Pairwise Transform Set");
    EXPECT_EQ(set->FindField(7201, 0)->header, "Transform set ID");
    TStringTree const* const own = system->SavedTree->FindSubtree(1108, 0);
    EXPECT_EQ(own->header, "Transforms");
    EXPECT_EQ(own->FindField(7201, 0), nullptr); // the own chain has no name
}

TEST(SettingsEdge, TheProxysDescriptionCarriesItsLabel) {
    auto const system = Create(WithZeroShift());
    ASSERT_TRUE(system->SetProxyRefSys(newobj_a(Create(Pulkovo1942()).release())));

    EXPECT_EQ(system->SavedTree->FindSubtree(1112, 0)->header, "Proxy reference system");
}

TEST(SettingsEdge, TheCoresPairwiseChainsReplaceWhatTheMapHeld) {
    auto const system = Create(WithZeroShift());
    std::map<std::string, TRefSystemTransformsSet> core;
    core["old"];

    EXPECT_TRUE(system->InitializeCorePairwiseTransforms(&core));
    EXPECT_TRUE(core.empty());
    AppendPairwise(system.get(), "B", 1);
    AppendPairwise(system.get(), "A", 1);
    EXPECT_TRUE(system->InitializeCorePairwiseTransforms(&core));
    EXPECT_EQ(core.size(), 2U);
    EXPECT_EQ(core["A"].TransformList.size(), 1U);
    EXPECT_EQ(core["A"].TransformID, "");
}

TEST(SettingsEdge, PairwiseChainsOfTheDescriptionReachTheCore) {
    auto const system = Create(WithZeroShift());
    AppendPairwise(system.get(), "A", 3);

    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());

    ASSERT_EQ(copy->CoreRefSystem->PairwiseTransforms.size(), 1U);
    EXPECT_EQ(copy->CoreRefSystem->PairwiseTransforms.at("A").TransformList.size(), 1U);
}

/** A kind of a host's own, whose core can't follow. */
class TStubbornSystem : public TShellGeodeticReferenceSystem {
public:
    using TShellGeodeticReferenceSystem::TShellGeodeticReferenceSystem;
    bool InsertCorePairwiseTransforms(std::string const&) override {
        throw std::runtime_error("the core stays as it is");
    }
};

TEST(SettingsEdge, PairsStayWhenTheCoreOfAHostsOwnKindCannotFollow) {
    TStringTree tree;
    FillGeodetic(&tree, WithZeroShift());
    FillRest(&tree);
    TStubbornSystem system(&tree, nullptr);
    TShellRefSystemTransform const* const chain = system.FindPairwiseTransforms("pair");
    ASSERT_NE(chain, nullptr);
    std::string const before = TextOf(*system.SavedTree);

    EXPECT_THROW(system.ClearPairwiseTransforms("pair"), std::runtime_error);
    EXPECT_EQ(system.FindPairwiseTransforms("pair"), chain);
    EXPECT_EQ(TextOf(*system.SavedTree), before);
}

TEST(SettingsEdge, TheOldGeoidsOwnIdMayNameTheNewOne) {
    auto const system = Create(WithZeroShift());
    auto const grid = Create(WithZeroShift());
    TLevelGrid surface(40);
    std::string const id = "an id that is longer than a small buffer";
    ASSERT_TRUE(system->SetGeoid(id, &surface, grid.get()));
    ASSERT_TRUE(system->SetGeoid(system->Geoid->Id, &surface, grid.get()));
    EXPECT_EQ(system->GetGeoidID(), id);
    EXPECT_EQ(system->GetGeoidSetting(), id);
}

TEST(SettingsEdge, ProxiesThatCouldNotBeReadAgainAreRefused) {
    auto proxy = newobj_a(Create(WithZeroShift()).release());
    for (int depth = 0; depth < 40; ++depth) {
        auto const outer = newobj_a(Create(WithZeroShift()).release());
        if (!outer->SetProxyRefSys(proxy)) {
            break;
        }
        proxy = outer;
    }
    std::unique_ptr<TShellReferenceSystem> copy;
    EXPECT_NO_THROW(copy.reset(proxy->CreateCopy()));
    EXPECT_NE(copy, nullptr);
}

} // namespace
} // namespace KvRefSystem
