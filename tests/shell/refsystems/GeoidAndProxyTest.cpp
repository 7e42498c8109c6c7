#include "shell/refsystems/GeodeticReferenceSystem.h"

#include "frame/imported/BaseGrid.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <string>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

constexpr char const* GeoidMessage =
    "void TShellReferenceSystem::SetGeoid(TBaseGrid*, const TShellReferenceSystem*)";

var_a<TShellReferenceSystem*> Proxy(TGeodeticText const& text) {
    return newobj_a(Create(text).release());
}

TEST(GeoidSettings, SettingAGeoidWritesItsIdAndActsOnHeights) {
    auto const grid = Create(WithZeroShift());
    auto const system = Create(WithZeroShift());
    auto const target = Create(WithZeroShift());
    TLevelGrid surface(40);
    double x = 0;
    double y = 0;
    double z = 0;

    ASSERT_TRUE(system->SetGeoid("geoid", &surface, grid.get()));
    ASSERT_TRUE(TransformCoords(system.get(), 50, 10, 100, target.get(), &x, &y, &z));

    // The ellipsoidal height is the height over the geoid plus the undulation.
    EXPECT_NEAR(z, 140, 1e-6);
    EXPECT_EQ(system->GetGeoidSetting(), "geoid");
    EXPECT_EQ(system->GetGeoidID(), "geoid");
    EXPECT_TRUE(system->ContainsGeoid());
    EXPECT_EQ(system->GetGeoidGrid(), &surface);
    EXPECT_EQ(system->GetGeoidGridRefSystem(), grid.get());
    EXPECT_TRUE(system->CheckGeoid());
}

TEST(GeoidSettings, SkippingTheGeoidGivesEllipsoidalHeights) {
    auto const grid = Create(WithZeroShift());
    auto const system = Create(WithZeroShift());
    auto const target = Create(WithZeroShift());
    TLevelGrid surface(40);
    ASSERT_TRUE(system->SetGeoid("a", &surface, grid.get()));
    ASSERT_TRUE(target->SetGeoid("b", &surface, grid.get()));
    double coords[3] = {50, 10, 100};

    system->OperateShellCoords(*target, coords, true);

    EXPECT_NEAR(coords[2], 100, 1e-6);
}

TEST(GeoidSettings, ActiveGeoidAndSettingAreComparedById) {
    auto const grid = Create(WithZeroShift());
    auto const system = Create(WithZeroShift());
    TLevelGrid surface(40);

    EXPECT_TRUE(system->CheckGeoid());
    ASSERT_TRUE(system->InsertGeoidSetting("other"));
    EXPECT_FALSE(system->CheckGeoid());
    ASSERT_TRUE(system->SetGeoid("geoid", &surface, grid.get()));
    EXPECT_TRUE(system->CheckGeoid());
    system->ClearGeoidSetting();
    EXPECT_FALSE(system->CheckGeoid());
    EXPECT_TRUE(system->ContainsGeoid());
    system->ClearGeoid();
    EXPECT_TRUE(system->CheckGeoid());
    EXPECT_EQ(system->GetGeoidGrid(), nullptr);
    EXPECT_EQ(system->GetGeoidGridRefSystem(), nullptr);
}

TEST(GeoidSettings, AFailureTakesTheOldGeoidAway) {
    auto const grid = Create(WithZeroShift());
    auto const system = Create(WithZeroShift());
    TLevelGrid surface(40);
    ASSERT_TRUE(system->SetGeoid("geoid", &surface, grid.get()));

    try {
        system->SetGeoid("next", nullptr, grid.get());
        FAIL();
    } catch (std::runtime_error const& failure) {
        EXPECT_STREQ(failure.what(), GeoidMessage);
    }
    EXPECT_EQ(system->Geoid, nullptr);
    EXPECT_EQ(system->GetGeoidSetting(), "");
    EXPECT_THROW(system->SetGeoid("next", &surface, nullptr), std::runtime_error);
}

TEST(GeoidSettings, ACopyHasAGeoidBoundToItself) {
    auto const grid = Create(WithZeroShift());
    auto const system = Create(WithZeroShift());
    TLevelGrid surface(40);
    ASSERT_TRUE(system->SetGeoid("geoid", &surface, grid.get()));

    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());

    ASSERT_NE(copy->Geoid, nullptr);
    EXPECT_NE(copy->Geoid, system->Geoid);
    EXPECT_EQ(copy->Geoid->PresetSystem, copy.get());
    EXPECT_EQ(copy->GetGeoidID(), "geoid");
}

TEST(GeoidSettings, EqualDatumsWithDifferentGeoidsAreDifferent) {
    auto const grid = Create(WithZeroShift());
    auto const first = Create(WithZeroShift());
    auto const second = Create(WithZeroShift());
    TLevelGrid surface(40);

    EXPECT_EQ(CompareDatums(first.get(), second.get()), dcEqual);
    ASSERT_TRUE(first->SetGeoid("geoid", &surface, grid.get()));
    EXPECT_EQ(CompareDatums(first.get(), second.get()), dcDifferent);
    ASSERT_TRUE(second->SetGeoid("geoid", &surface, grid.get()));
    EXPECT_EQ(CompareDatums(first.get(), second.get()), dcEqual);
}

TEST(ProxySettings, AProxyIsSharedAndDescribed) {
    auto const system = Create(WithZeroShift());
    auto const proxy = Proxy(Pulkovo1942());

    ASSERT_TRUE(system->SetProxyRefSys(proxy));

    EXPECT_EQ(proxy.use_count(), 2U);
    EXPECT_EQ(system->GetProxyRefSysName(), "Pulkovo 1942");
    EXPECT_TRUE(system->ContainsProxyRefSys());
    std::string text;
    ASSERT_TRUE(proxy->WriteToString(text));
    EXPECT_EQ(system->GetProxyRefSysStr(), text);
    EXPECT_EQ(text.back(), '\0');
    ASSERT_NE(system->SavedTree->FindSubtree(1112, 0), nullptr);
    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());
    EXPECT_EQ(copy->GetProxyRefSysName(), "Pulkovo 1942");
}

TEST(ProxySettings, ThePointPassesTheProxyWithItsOwnCorrections) {
    TStringTree tree;
    FillGeodetic(&tree, WithZeroShift());
    // The proxy's base longitude and latitude become the user's plus 0.01 and 0.02 radians.
    AddPlaneShift(&tree, 0.01, 0.02);
    auto const source = Create(WithZeroShift());
    auto const target = Create(WithZeroShift());
    ASSERT_TRUE(source->SetProxyRefSys(newobj_a(Create(&tree).release())));
    double coords[3] = {50, 10, 100};

    source->OperateShellCoords(*target, coords, false);

    // Into the proxy and out of it again: its chain acts both ways.
    EXPECT_NEAR(coords[0], 50, 1e-9);
    EXPECT_NEAR(coords[1], 10, 1e-9);
    EXPECT_NEAR(coords[2], 100, 1e-6);
}

TEST(ProxySettings, AProxyOfAnotherDatumMovesThePoint) {
    auto const source = Create(TGeodeticText());
    auto const target = Create(Pulkovo1942());
    double straight[3] = {55, 37, 200};
    double detour[3] = {55, 37, 200};

    source->OperateShellCoords(*target, straight, false);
    ASSERT_TRUE(source->SetProxyRefSys(Proxy(WithZeroShift())));
    source->OperateShellCoords(*target, detour, false);

    // Without a shift of its own the source reaches Pulkovo 1942 unshifted; from the proxy the datum shift
    // acts.
    auto const wgs84 = Create(WithZeroShift());
    double shifted[3] = {55, 37, 200};
    wgs84->OperateShellCoords(*target, shifted, false);
    EXPECT_NEAR(detour[0], shifted[0], 1e-9);
    EXPECT_NEAR(detour[1], shifted[1], 1e-9);
    EXPECT_GT(std::abs(detour[1] - straight[1]), 1e-4);
}

TEST(ProxySettings, ASystemIsNotItsOwnProxy) {
    auto self = newobj_a(Create(WithZeroShift()).release());

    EXPECT_FALSE(self->SetProxyRefSys(self));
    EXPECT_EQ(self.use_count(), 1U);
    EXPECT_EQ(self->SavedTree->FindSubtree(1112, 0), nullptr);
}

TEST(ProxySettings, AnEmptyProxyTakesTheOldOneAway) {
    auto const system = Create(WithZeroShift());
    ASSERT_TRUE(system->SetProxyRefSys(Proxy(Pulkovo1942())));

    EXPECT_FALSE(system->SetProxyRefSys(var_a<TShellReferenceSystem*>()));
    EXPECT_FALSE(system->ContainsProxyRefSys());
    EXPECT_EQ(system->SavedTree->FindSubtree(1112, 0), nullptr);
    EXPECT_EQ(system->GetProxyRefSysStr(), "");
    EXPECT_EQ(system->GetProxyRefSysName(), "");
    EXPECT_EQ(system->GetProxyGeoidSetting(), "");
    EXPECT_EQ(system->GetProxyGeoidID(), "");
}

TEST(ProxySettings, AProxyWithoutADescriptionIsReleasedAgain) {
    auto const system = Create(WithZeroShift());
    auto const proxy = Proxy(Pulkovo1942());
    TPtrVector<TStringTree>::Release(proxy->SavedTree);
    proxy->SavedTree = nullptr;

    EXPECT_FALSE(system->SetProxyRefSys(proxy));
    EXPECT_EQ(proxy.use_count(), 1U);
    EXPECT_FALSE(system->ContainsProxyRefSys());
}

TEST(ProxySettings, AProxyWithoutACoreIsRefused) {
    auto const system = Create(WithZeroShift());
    auto const proxy = Proxy(Pulkovo1942());
    delete proxy->CoreRefSystem;
    proxy->CoreRefSystem = nullptr;

    EXPECT_FALSE(system->SetProxyRefSys(proxy));
}

TEST(ProxySettings, SettingTheOwnProxyAgainKeepsIt) {
    auto const system = Create(WithZeroShift());
    ASSERT_TRUE(system->SetProxyRefSys(Proxy(Pulkovo1942())));

    EXPECT_TRUE(system->SetProxyRefSys(system->GetProxyRefSys()));
    EXPECT_EQ(system->GetProxyRefSysName(), "Pulkovo 1942");
}

TEST(ProxySettings, RewritingTheDescriptionIgnoresTheArgument) {
    auto const system = Create(WithZeroShift());
    auto const other = Create(TGeodeticText());
    EXPECT_FALSE(system->InsertProxyRefSysToTree(other.get()));
    ASSERT_TRUE(system->SetProxyRefSys(Proxy(Pulkovo1942())));
    system->DeleteProxyRefSysFromTree();
    EXPECT_EQ(system->SavedTree->FindSubtree(1112, 0), nullptr);
    EXPECT_TRUE(system->ContainsProxyRefSys());

    EXPECT_TRUE(system->InsertProxyRefSysToTree(other.get()));

    std::string name;
    ASSERT_TRUE(system->SavedTree->FindSubtree(1112, 0)->GetString(1020, 0, &name));
    EXPECT_EQ(name, "Pulkovo 1942");
}

TEST(ProxySettings, TheProxysGeoidIsOnlyToldOf) {
    auto const system = Create(WithZeroShift());
    auto const proxy = Proxy(Pulkovo1942());
    auto const grid = Create(WithZeroShift());
    TLevelGrid surface(40);
    ASSERT_TRUE(proxy->SetGeoid("geoid", &surface, grid.get()));
    ASSERT_TRUE(system->SetProxyRefSys(proxy));

    EXPECT_EQ(system->GetProxyGeoidSetting(), "geoid");
    EXPECT_EQ(system->GetProxyGeoidID(), "geoid");
    system->SetProxyGeoid("another", &surface, grid.get());
    EXPECT_EQ(system->GetProxyGeoidID(), "geoid");
}

TEST(ProxySettings, ClearingReleasesTheShare) {
    auto const system = Create(WithZeroShift());
    auto const proxy = Proxy(Pulkovo1942());
    ASSERT_TRUE(system->SetProxyRefSys(proxy));

    system->ClearProxyRefSys();

    EXPECT_EQ(proxy.use_count(), 1U);
    EXPECT_EQ(system->SavedTree->FindSubtree(1112, 0), nullptr);
}

} // namespace
} // namespace KvRefSystem
