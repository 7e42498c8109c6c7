#include "tests/support/CartesianKinds.h"
#include "tests/support/MemoryFailures.h"
#include "tests/support/ProjectedSystems.h"

#include <gtest/gtest.h>

#include <exception>
#include <map>
#include <memory>
#include <string>

namespace KvRefSystem {
namespace {

using namespace TestSupport;
using KvRefSystemTests::FailAllocation;

class CartesianMemory : public testing::TestWithParam<TCartesianKind> {};

INSTANTIATE_TEST_SUITE_P(Kinds, CartesianMemory, testing::ValuesIn(CartesianKinds),
                         [](auto const& kind) { return std::string(kind.param.name); });

TEST_P(CartesianMemory, AConstructorThatRunsOutOfMemoryLeavesNothingBehind) {
    TStringTree tree;
    GetParam().fill(&tree);
    FillRest(&tree);

    EXPECT_GT(CountSurvivedFailures([&] { GetParam().build(&tree); }), 50);
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
