#include "tests/support/CartesianKinds.h"
#include "tests/support/MemoryFailures.h"
#include "tests/support/ProjectedSystems.h"

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
using KvRefSystemTests::AllocationIsToFail;
using KvRefSystemTests::FailAllocation;

/** Whichever allocation fails: a tree that is reported as filled has all that it has with enough memory. */
void ExpectWholeOrRefused(std::function<bool(TStringTree*)> const& fill) {
    TStringTree whole;
    ASSERT_TRUE(fill(&whole));
    std::string const expected = TextOf(whole);
    for (int which = 1;; ++which) {
        TStringTree tree;
        bool done = false;
        FailAllocation(which);
        try {
            done = fill(&tree);
        } catch (std::exception const&) {
            // Reported as well.
        }
        bool const reached = !AllocationIsToFail();
        FailAllocation(0);
        if (done) {
            EXPECT_EQ(TextOf(tree), expected) << "allocation " << which;
        }
        if (!reached) {
            EXPECT_TRUE(done);
            EXPECT_GT(which, 10);
            return;
        }
    }
}

class CartesianMemory : public testing::TestWithParam<TCartesianKind> {};

INSTANTIATE_TEST_SUITE_P(Kinds, CartesianMemory, testing::ValuesIn(CartesianKinds),
                         [](auto const& kind) { return std::string(kind.param.name); });

TEST_P(CartesianMemory, AConstructorThatRunsOutOfMemoryLeavesNothingBehind) {
    TStringTree tree;
    GetParam().fill(&tree);
    FillRest(&tree);

    EXPECT_GT(CountSurvivedFailures([&] { GetParam().build(&tree); }), 50);
}

TEST_P(CartesianMemory, AConstructorWithoutACoreChainFailsAndLeavesNothingBehind) {
    TStringTree tree;
    GetParam().fill(&tree);
    FillRest(&tree);
    tree.DeleteSubtree(1112, 0); // a proxy has chains of its own

    // Chains take their memory by the form that gives null: the own one, the pair's, and those of a base.
    int refused = 0;
    for (bool isRefused = true; isRefused; refused += isRefused) {
        auto const before = KvRefSystemTests::LiveAllocations();
        KvRefSystemTests::FailNothrowAllocation(refused + 1);
        isRefused = false;
        try {
            GetParam().build(&tree);
        } catch (std::runtime_error const&) {
            isRefused = true;
        }
        KvRefSystemTests::FailNothrowAllocation(0);
        EXPECT_EQ(KvRefSystemTests::LiveAllocations(), before) << refused;
    }
    EXPECT_GE(refused, 2);
}

TEST_P(CartesianMemory, ALoadThatRunsOutOfMemoryLeavesNothingBehind) {
    std::string const document = XmlOf(*Everything(GetParam()));

    EXPECT_GT(CountSurvivedFailures([&] { GetParam().read(document); }), 30);
}

TEST_P(CartesianMemory, GeneratedDescriptionsAndExportsThatRunOutOfMemoryLeaveNothingBehind) {
    auto const system = Everything(GetParam());
    system->GeoTIFFCode = "";

    EXPECT_GT(CountSurvivedFailures([&] {
                  TStringTree tree;
                  system->FillInternalRefSystemTree(&tree, Texts("2000000", "3000000", "5000000"));
              }),
              20);
    CountSurvivedFailures([&] {
        TStringTree geodetic;
        system->FillPrimaryGeodeticRefSystemTree(&geodetic);
        TStringTree degrees;
        system->FillPrimaryGeodeticRefSystemTreeDeg(&degrees);
        TStringTree geocentric;
        system->FillPrimaryGeocentricRefSystemTree(&geocentric);
    });
    EXPECT_GT(CountSurvivedFailures([&] {
                  std::map<int, std::string> keys;
                  system->ExportToPanorama(&keys, true);
                  std::string text;
                  system->ExportToWKT(&text, true, true);
                  GetParam().exportMif(*system, &text);
              }),
              5);
}

TEST(GeneratedDescriptionsMemory, AreWholeOrRefused) {
    TGeocentricText withDatum;
    withDatum.base = Pulkovo1942();
    TTopocentricText horizon;
    horizon.base = Pulkovo1942();
    auto const geocentric = Live(withDatum);
    auto const onASphere = Live(TGeocentricText());
    auto const topocentric = Live(horizon);
    auto const origin = Texts("2000000", "3000000", "5000000");

    for (TShellReferenceSystem const* const system :
         {static_cast<TShellReferenceSystem const*>(geocentric.get()),
          static_cast<TShellReferenceSystem const*>(onASphere.get()),
          static_cast<TShellReferenceSystem const*>(topocentric.get())}) {
        ExpectWholeOrRefused(
            [&](TStringTree* tree) { return system->FillInternalRefSystemTree(tree, origin); });
    }
    for (TShellReferenceSystem const* const system :
         {static_cast<TShellReferenceSystem const*>(geocentric.get()),
          static_cast<TShellReferenceSystem const*>(topocentric.get())}) {
        ExpectWholeOrRefused(
            [&](TStringTree* tree) { return system->FillPrimaryGeodeticRefSystemTree(tree) == 0; });
        ExpectWholeOrRefused(
            [&](TStringTree* tree) { return system->FillPrimaryGeodeticRefSystemTreeDeg(tree) == 0; });
        ExpectWholeOrRefused(
            [&](TStringTree* tree) { return system->FillPrimaryGeocentricRefSystemTree(tree) == 0; });
    }
}

TEST_P(CartesianMemory, ACopyThatRunsOutOfMemoryLeavesNothingBehind) {
    auto const system = Everything(GetParam());

    EXPECT_GT(CountSurvivedFailures([&] { delete system->CreateCopy(); }), 50);
}

TEST_P(CartesianMemory, AChangeThatRunsOutOfMemoryLeavesAWholeObject) {
    auto const shift = HeightShift(1);
    TStringTree tree;
    GetParam().fill(&tree);
    FillRest(&tree);

    EXPECT_GT(CountSurvivedFailures([&] {
                  auto const system = GetParam().build(&tree);
                  try {
                      system->AppendTransform(&shift);
                      system->AppendPairwiseTransform("pair", &shift);
                      system->InsertCorePairwiseTransforms("pair");
                      system->ClearPairwiseTransforms("pair");
                  } catch (std::exception const&) {
                      FailAllocation(0);
                      double point[3] = {2e6, 3e6, 5e6};
                      try {
                          system->OperateShellCoords(*system, point, false);
                      } catch (std::exception const&) {
                          // A point that cannot be had is an answer too.
                      }
                      system->Reset();
                      throw;
                  }
              }),
              50);
}

} // namespace
} // namespace KvRefSystem
