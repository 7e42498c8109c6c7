#include "core/projections/MapProjection.h"
#include "core/refsystems/GeodeticReferenceSystem.h"
#include "core/refsystems/MapProjectedReferenceSystem.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/EveryOperation.h"
#include "tests/support/MemoryFailures.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;
using KvRefSystemTests::FailAllocation;

/** Transverse Mercator on Pulkovo 1942, the datum also at the root, with a code of each kind. */
TProjectedText Whole() {
    TProjectedText text = On(Pulkovo1942(), TransverseMercator("9", "0.9996", "500000"));
    text.datumAtRoot = true;
    return text;
}

std::string DescriptionOf(TProjectedText const& text) {
    TStringTree tree;
    FillProjected(&tree, text);
    return TextOf(tree);
}

TShellRefSystemTransform2DGridParams Corrections(std::string const& system) {
    TShellRefSystemTransform2DGridParams params;
    params.dE = "2 2 1000000 0 0 1 1 1 1";
    params.dN = "2 2 1000000 0 0 2 2 2 2";
    params.coef = 1;
    params.refsys = system;
    return params;
}

/** The whole system with what a description may hold: chains, one with a grid record, and a proxy. */
void FillEverything(TStringTree* tree) {
    FillProjected(tree, Whole());
    SetField(tree, 1025, "E");
    SetField(tree, 1025, "N", 1);
    SetField(tree, 102800, "80020007");
    FillProjected(Child(tree, 1112), Whole());
    TShellRefSystemTransform chain;
    chain.AddNextTransform(HeightShift(1));
    chain.AddNextTransform(Corrections(DescriptionOf(Whole())));
    chain.WriteToTree(Child(tree, 1108), "");
    chain.WriteToTree(Child(Child(tree, 1109), 1110), "pair");
    chain.ClearTransforms();
}

std::unique_ptr<TProjectedSystem> Everything() {
    TStringTree tree;
    FillEverything(&tree);
    return std::make_unique<TProjectedSystem>(&tree, nullptr);
}

// Memory

TEST(MapProjectedEdge, AConstructorThatRunsOutOfMemoryLeavesNothingBehind) {
    TStringTree tree;
    FillEverything(&tree);

    EXPECT_GT(CountSurvivedFailures([&] { TProjectedSystem(&tree, nullptr); }), 100);
}

TEST(MapProjectedEdge, ALoadThatRunsOutOfMemoryLeavesNothingBehind) {
    std::string const document = XmlOf(*Projected(Whole()));

    EXPECT_GT(CountSurvivedFailures([&] { ProjectedFromXml(document); }), 100);
}

TEST(MapProjectedEdge, TheTextFactoryAnswersNullWhenItRunsOutOfMemory) {
    TStringTree tree;
    FillEverything(&tree);
    std::string const text = TextOf(tree);

    EXPECT_GT(CountSurvivedFailures([&] {
                  std::string copy;
                  try {
                      copy = text;
                  } catch (std::bad_alloc const&) {
                      return;
                  }
                  EXPECT_NO_THROW(delete CreateShellReferenceSystem(std::move(copy), nullptr));
              }),
              100);
}

TEST(MapProjectedEdge, ACopyThatRunsOutOfMemoryLeavesNothingBehind) {
    TLevelGrid grid(1);
    auto const gridSystem = Create(Pulkovo1942());
    auto const system = Everything();
    ASSERT_TRUE(system->SetGeoid("Level", &grid, gridSystem.get()));

    EXPECT_GT(CountSurvivedFailures([&] { delete system->CreateCopy(); }), 100);
}

TEST(MapProjectedEdge, ACoreCopyThatRunsOutOfMemoryLeavesNothingBehind) {
    auto const system = Everything();
    auto const& core = dynamic_cast<TMapProjectedReferenceSystem const&>(*system->CoreRefSystem);

    EXPECT_GT(CountSurvivedFailures([&] { TMapProjectedReferenceSystem copy(core); }), 10);
    EXPECT_GT(CountSurvivedFailures([&] {
                  std::unique_ptr<TMapProjection> projection(CreateCopy(*core.Projection));
                  if (projection) {
                      TMapProjectedReferenceSystem taken(core.GeodeticSystem, projection.release(),
                                                         core.Transforms, core.PairwiseTransforms);
                  }
              }),
              10);
}

TEST(MapProjectedEdge, GeneratedDescriptionsAndExportsThatRunOutOfMemoryLeaveNothingBehind) {
    auto const system = Everything();
    TShellCoords origin;
    origin.Coord[0] = "500000";
    origin.Coord[1] = "6000000";
    origin.Coord[2] = "1";

    EXPECT_GT(CountSurvivedFailures([&] {
                  TStringTree tree;
                  system->FillInternalRefSystemTree(&tree, origin);
              }),
              100);
    EXPECT_GT(CountSurvivedFailures([&] {
                  std::map<int, std::string> keys;
                  system->ExportToPanorama(&keys, true);
                  std::string text;
                  system->ExportToWKT(&text, true, true);
                  system->ExportToMIFMID(&text, true);
              }),
              30);
}

TEST(MapProjectedEdge, AChangeThatRunsOutOfMemoryLeavesAWholeObject) {
    auto const grid = Corrections(DescriptionOf(Whole()));

    EXPECT_GT(CountSurvivedFailures([&] {
                  auto const system = Projected(Whole());
                  try {
                      system->AppendTransform(&grid);
                      system->AppendPairwiseTransform("pair", &grid);
                      system->InsertCorePairwiseTransforms("pair");
                      system->ClearPairwiseTransforms("pair");
                  } catch (std::exception const&) {
                      FailAllocation(0);
                      double point[3] = {500000, 6000000, 0};
                      system->OperateShellCoords(*system, point, false);
                      system->Reset();
                      throw;
                  }
              }),
              100);
}

// Hostile descriptions

TEST(MapProjectedEdge, PanoramaCodesBeyondEveryRangeNameNoZone) {
    auto const system = Projected(Whole());
    for (char const* const code :
         {"-9223372036854775808", "9223372036854775807", "-99999999999999999999999"}) {
        system->PanoramaCode = code;
        EXPECT_EQ(system->GetPanoramaName(), "") << code;
    }
}

/** Fills a tree with map-projected systems, each the proxy of the one around it or of that one's base. */
void FillProxies(TStringTree* tree, int depth, bool insideBase) {
    FillProjected(tree, Whole());
    TStringTree* holder = tree;
    for (int level = 0; level < depth; ++level) {
        holder = Child(insideBase ? Child(holder, 1121) : holder, 1112);
        FillProjected(holder, Whole());
    }
}

TEST(MapProjectedEdge, ProxiesNestOnlySoDeepAlsoInsideOfBaseSystems) {
    for (bool const insideBase : {false, true}) {
        TStringTree allowed;
        FillProxies(&allowed, MaxProxyDepth, insideBase);
        TStringTree tooDeep;
        FillProxies(&tooDeep, MaxProxyDepth + 1, insideBase);

        EXPECT_NO_THROW(TProjectedSystem(&allowed, nullptr)) << insideBase;
        EXPECT_EQ(ThrownText([&] { TProjectedSystem(&tooDeep, nullptr); }),
                  "TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)")
            << insideBase;
    }
}

TEST(MapProjectedEdge, AProxyWhoseBaseNestsTooManyIsRefused) {
    TStringTree tree;
    FillProxies(&tree, MaxProxyDepth, true);
    auto const proxy = newobj_a(Create(&tree).release());
    auto const system = Projected(Whole());

    // With it the description couldn't be read again.
    EXPECT_FALSE(system->SetProxyRefSys(proxy));
    EXPECT_NO_THROW(delete system->CreateCopy());
}

/** A description whose grid record lies in a system with a grid record, and so on. */
std::string NestedGrids(int depth) {
    std::string text = DescriptionOf(Whole());
    for (int level = 0; level < depth; ++level) {
        TStringTree tree;
        FillProjected(&tree, Whole());
        TShellRefSystemTransform chain;
        chain.AddNextTransform(Corrections(text));
        chain.WriteToTree(Child(&tree, 1108), "");
        chain.ClearTransforms();
        text = TextOf(tree);
    }
    return text;
}

TEST(MapProjectedEdge, GridRecordsInsideGridRecordsAreReadAndUsed) {
    // Each level doubles the escapes of the text, so a text of some megabytes holds no deeper nest.
    std::unique_ptr<TShellReferenceSystem> const system(CreateShellReferenceSystem(NestedGrids(12), nullptr));
    ASSERT_NE(system, nullptr);
    auto const plain = Projected(Whole());
    double const point[3] = {500000, 6000000, 0};
    double straight[3] = {};
    double corrected[3] = {};

    plain->OperateShellCoords(point, *plain, straight, false);
    plain->OperateShellCoords(point, *system, corrected, false);

    // Each level's tables hold the same numbers everywhere.
    EXPECT_NEAR(corrected[0] - straight[0], 1, 1e-6);
    EXPECT_NEAR(corrected[1] - straight[1], 2, 1e-6);
}

// Objects without their components

/** All that `AskEverything` asks, and what the kind has besides. */
void AskAll(TProjectedSystem* system, TShellReferenceSystem* other) {
    std::string text;
    AskEverything(system, other, true,
                  {[&] { EXPECT_TRUE(system->IsProjected()); }, [&] { system->GetPanoramaName(); },
                   [&] { system->Export2DToWKT(&text, true); }});
}

TEST(MapProjectedEdge, EveryOperationAnswersOnASystemOfATree) {
    for (bool const otherIsGeodetic : {false, true}) {
        auto const system = Everything();
        auto const other = otherIsGeodetic ? Create(Pulkovo1942()) : Create(Whole());

        AskAll(system.get(), other.get());
        EXPECT_EQ(system->CoreRefSystem, nullptr); // the last of them is a load that fails
    }
}

TEST(MapProjectedEdge, EveryOperationAnswersOnASystemOfXml) {
    auto const system = ProjectedFromXml(XmlOf(*Everything()));
    AskAll(system.get(), Create(Whole()).get());
    EXPECT_EQ(system->CoreRefSystem, nullptr);
}

TEST(MapProjectedEdge, EveryOperationAnswersOnAnEmptiedSystem) {
    auto const system = Everything();
    system->Reset();
    AskAll(system.get(), Create(Whole()).get());
    EXPECT_EQ(system->BaseGeodetic, nullptr);
}

TEST(MapProjectedEdge, EveryOperationAnswersOnASystemThatWasLoadedAgain) {
    auto const system = Everything();
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(XmlOf(*system));
    ASSERT_TRUE(system->LoadFromXML(&reader));

    AskAll(system.get(), Create(Whole()).get());
    EXPECT_EQ(system->CoreRefSystem, nullptr);
}

TEST(MapProjectedEdge, EveryOperationAnswersWhereAComponentIsMissing) {
    // Members are public: a host may have taken one away.
    auto const other = Create(Whole());
    std::function<void(TProjectedSystem*)> const takings[] = {
        [](TProjectedSystem* system) { delete std::exchange(system->MapProjection, nullptr); },
        [](TProjectedSystem* system) { delete std::exchange(system->LinearUnit, nullptr); },
        [](TProjectedSystem* system) { delete std::exchange(system->BaseGeodetic, nullptr); },
        [](TProjectedSystem* system) { delete std::exchange(system->BaseGeodetic->Vertical, nullptr); },
        [](TProjectedSystem* system) { delete std::exchange(system->BaseGeodetic->AngularUnit, nullptr); },
        [](TProjectedSystem* system) { delete std::exchange(system->BaseGeodetic->Ellipsoid, nullptr); },
        [](TProjectedSystem* system) { delete std::exchange(system->CoreRefSystem, nullptr); },
        [](TProjectedSystem* system) { delete std::exchange(system->DatumShift, nullptr); },
        [](TProjectedSystem* system) { delete std::exchange(system->Ellipsoid, nullptr); },
        [](TProjectedSystem* system) { delete std::exchange(system->PrimeMeridian, nullptr); },
    };
    for (auto const& take : takings) {
        auto const system = Everything();
        take(system.get());
        AskAll(system.get(), other.get());
        EXPECT_EQ(system->LinearUnit, nullptr);
    }
}

// Inputs that are outputs

TEST(MapProjectedEdge, ShellAndCoreMayBeTheSameNumbers) {
    static_assert(offsetof(TCoords, X) == 0 && offsetof(TCoords, Z) == 2 * sizeof(double));
    TProjectedText text = Placed(Whole(), 1, -1, 1);
    text.linearUnit = Foot();
    auto const system = Projected(text);
    double const shell[3] = {1000, 2000, 30};
    TCoords expected;
    system->CoordsShellToCore(shell, &expected);
    TCoords both{1000, 2000, 30, false};

    system->CoordsShellToCore(&both.X, &both);
    EXPECT_EQ(both.X, expected.X);
    EXPECT_EQ(both.Y, expected.Y);
    EXPECT_EQ(both.Z, expected.Z);
    double back[3] = {};
    system->CoordsCoreToShell(both, back);
    system->CoordsCoreToShell(both, &both.X);
    EXPECT_EQ(both.X, back[0]);
    EXPECT_EQ(both.Y, back[1]);
    EXPECT_EQ(both.Z, back[2]);
}

TEST(MapProjectedEdge, ANameMayTakeTheSystemsExport) {
    auto const system = Projected(Whole());
    std::string expected;
    ASSERT_TRUE(system->ExportToWKT(&expected, true, false));
    EXPECT_TRUE(system->ExportToWKT(&system->Name, true, false));
    EXPECT_EQ(system->Name, expected);
}

TEST(MapProjectedEdge, ASecondTextThatDoesNotParseIsReportedAlsoWhereTheUnitsDoNotFit) {
    auto const projected = Projected(Whole());
    auto const geodetic = Geodetic(Pulkovo1942());
    TShellCoords texts;
    texts.Coord[0] = "1";
    texts.Coord[1] = "x";
    texts.Coord[2] = "1";
    double shell[3] = {};

    EXPECT_FALSE(projected->InputCoords(texts, geodetic->AngularUnit, nullptr, shell));
    EXPECT_FALSE(geodetic->InputCoords(texts, projected->LinearUnit, nullptr, shell));
    texts.Coord[1] = "1";
    EXPECT_THROW(projected->InputCoords(texts, geodetic->AngularUnit, nullptr, shell), std::runtime_error);
    EXPECT_THROW(geodetic->InputCoords(texts, projected->LinearUnit, nullptr, shell), std::runtime_error);
}

TEST(MapProjectedEdge, AnEmptyTextInAnotherUnitConvertsTheNumberThatIsThere) {
    // Meant: the text's number is the one that stood there, and it is converted like any other.
    auto const system = Projected(Whole());
    TStringTree tree;
    FillUnit(&tree, {0, 1, "1000", "1", "kilometre", "km"});
    TShellLinearUnit const kilometre(&tree);
    double shell[3] = {7, 8, 9};

    EXPECT_TRUE(system->InputCoords(TShellCoords(), &kilometre, nullptr, shell));
    EXPECT_EQ(shell[0], 7000);
    EXPECT_EQ(shell[1], 8000);
    EXPECT_EQ(shell[2], 9);
}

// Locale

TEST(MapProjectedEdge, AHostWithADecimalCommaGetsTheSameTexts) {
    auto const printed = [] {
        auto const system = Everything();
        std::string all;
        std::string text;
        EXPECT_TRUE(system->ExportToWKT(&text, true, true));
        all += text;
        EXPECT_TRUE(system->ExportToMIFMID(&text, true));
        all += text + XmlOf(*system);
        std::map<int, std::string> keys;
        system->ExportToPanorama(&keys, true);
        for (auto const& [key, value] : keys) {
            all += value + ";";
        }
        TShellCoords texts;
        system->CoordsCoreToShell(TCoords{500000.25, 6000000.125, 1.5, false}, &texts);
        all += texts.Coord[0] + ";" + texts.Coord[1] + ";" + texts.Coord[2];
        TStringTree tree;
        EXPECT_TRUE(system->FillInternalRefSystemTree(&tree, texts));
        return all + TextOf(tree);
    };
    std::string const expected = printed();
    std::string const before = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "the locale de_DE.UTF-8 is not installed";

    std::string const withComma = printed();
    std::setlocale(LC_ALL, before.c_str());

    EXPECT_EQ(withComma, expected);
}

} // namespace
} // namespace KvRefSystem
