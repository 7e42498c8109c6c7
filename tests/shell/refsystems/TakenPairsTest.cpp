#include "tests/support/TakenPairs.h"

#include "tests/support/CartesianKinds.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

/** Derived descriptions of all kinds, written into trees that refuse one of the fields or subtrees. */
namespace KvRefSystem {
namespace {

using namespace TestSupport;

constexpr int Done = 0;
constexpr int Failed = 9;

/** One of each kind with a datum and one with an ellipsoid only. */
std::vector<std::unique_ptr<TShellReferenceSystem>> AllKinds() {
    std::vector<std::unique_ptr<TShellReferenceSystem>> systems;
    for (TGeodeticText const& base : {Pulkovo1942(), TGeodeticText()}) {
        TGeocentricText geocentric;
        geocentric.base = base;
        systems.push_back(Live(geocentric));
        TTopocentricText topocentric;
        topocentric.base = base;
        systems.push_back(Live(topocentric));
        systems.push_back(Geodetic(base));
        TProjectedText projected = On(base, TransverseMercator("9", "1", "0"));
        projected.datumAtRoot = true;
        systems.push_back(Projected(projected));
    }
    systems.push_back(LiveCartesian(TLocalText()));
    systems.push_back(LiveCurved(Curved("6371000")));
    return systems;
}

/** The status of a filling, which is that of a failure where it isn't that of success. */
bool IsDone(int status) {
    EXPECT_TRUE(status == Done || status == Failed) << status;
    return status == Done;
}

TEST(TakenPairs, TheInternalSystemTellsOfEachFieldThatATreeRefuses) {
    for (auto const& system : AllKinds()) {
        SCOPED_TRACE(system->Type);
        ExpectEveryTakenPairTold(
            [&](TStringTree* tree) { return system->FillInternalRefSystemTree(tree, Texts("1", "2", "3")); });
    }
}

TEST(TakenPairs, ThePrimarySystemsTellOfEachFieldThatATreeRefuses) {
    for (auto const& system : AllKinds()) {
        TStringTree tree;
        if (!system->IsGlobal() || system->FillPrimaryGeodeticRefSystemTree(&tree) != Done) {
            continue; // a local system derives none; a geocentric one derives none from an ellipsoid alone
        }
        SCOPED_TRACE(system->Type);
        ExpectEveryTakenPairTold(
            [&](TStringTree* into) { return IsDone(system->FillPrimaryGeodeticRefSystemTree(into)); });
        ExpectEveryTakenPairTold(
            [&](TStringTree* into) { return IsDone(system->FillPrimaryGeodeticRefSystemTreeDeg(into)); });
        ExpectEveryTakenPairTold(
            [&](TStringTree* into) { return IsDone(system->FillPrimaryGeocentricRefSystemTree(into)); });
    }
}

} // namespace
} // namespace KvRefSystem
