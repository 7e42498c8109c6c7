#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/CartesianKinds.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/threads/Places.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace KvRefSystem;
using namespace TestSupport;
using namespace Threads;

std::string TextFormOf(TShellReferenceSystem const& system) {
    std::string text;
    EXPECT_TRUE(system.WriteToString(text));
    text.pop_back(); // the closing NUL
    return text;
}

/** A tree that a container may hold, although its destructor isn't virtual. */
struct TDescription {
    TStringTree tree;
};

/** A description of each kind, with names, codes, chains and a proxy. */
std::deque<TDescription> TreesOfAllKinds() {
    std::deque<TDescription> trees;
    for (TCartesianKind const& kind : CartesianKinds) {
        kind.fill(&trees.emplace_back().tree);
    }
    FillGeodetic(&trees.emplace_back().tree, Pulkovo1942());
    FillProjected(&trees.emplace_back().tree, On(Pulkovo1942(), TransverseMercator("39", "1", "7500000")));
    for (TDescription& description : trees) {
        FillRest(&description.tree);
    }
    return trees;
}

TEST(BirthInThreads, SystemsOfAllKindsAreBornOfSharedTreesAndDie) {
    std::deque<TDescription> trees = TreesOfAllKinds();

    auto const outcome = AskTogether(6, [&](int) {
        std::vector<std::string> texts;
        for (TDescription& description : trees) {
            TSystem const system(CreateShellReferenceSystem(&description.tree, nullptr));
            texts.push_back(TextFormOf(*system));
        }
        return texts;
    });

    EXPECT_EQ(outcome.deviations, 0);
    ASSERT_EQ(outcome.alone.size(), 6U);
    for (std::size_t kind = 0; kind < trees.size(); ++kind) {
        // The text is the description's but for its first line, which is the label of the saved one.
        std::string const described = TextOf(trees[kind].tree);
        EXPECT_EQ(outcome.alone[kind].substr(outcome.alone[kind].find('\n')),
                  described.substr(described.find('\n')));
    }
}

TEST(BirthInThreads, SystemsOfTheCatalogueAreBornOfSharedTextsAndMovePoints) {
    std::vector<std::string> texts;
    for (char const* const name : {"pulkovo-1942", "wgs-84", "lambert-93", "web-mercator",
                                   "topocentric-moscow", "wgs-84-geocentric", "s-jtsk-krovak", "nzmg"}) {
        texts.push_back(CatalogText(name));
    }

    auto const outcome = AskTogether(4, [&](int) {
        TMovedPoints moved;
        std::vector<TSystem> systems;
        for (std::string const& text : texts) {
            systems.emplace_back(CreateShellReferenceSystem(text, nullptr));
        }
        for (TSystem const& system : systems) {
            moved.push_back(Move(*systems.front(), {55.75, 37.62, 150}, *system));
        }
        moved.push_back({CreateShellReferenceSystem("no description", nullptr) == nullptr, {}});
        return moved;
    });

    EXPECT_EQ(outcome.deviations, 0);
    for (TMoved const& moved : outcome.alone) {
        EXPECT_TRUE(moved.done);
    }
    EXPECT_NEAR(outcome.alone[1].point[0], 55.750042613104, 1e-9); // by cct, as `EarthBoundPlaces` tells
    EXPECT_NEAR(outcome.alone[1].point[1], 37.618125891889, 1e-9);
}

TEST(BirthInThreads, SystemsAreBornOfOneDocumentByReadersOfTheirOwn) {
    auto const system = Projected(On(Pulkovo1942(), TransverseMercator("39", "1", "7500000")));
    auto const geodetic = Geodetic(Pulkovo1942());
    std::string const document = XmlOf(*system);

    auto const outcome = AskTogether(10, [&](int) {
        VellariHostKit::TXmlIniReader reader;
        reader.LoadString(document);
        TSystem const read(CreateShellReferenceSystem(&reader, nullptr));
        return TMovedPoints{{*read == *system && XmlOf(*read) == document, {}},
                            Move(*geodetic, {55.75, 37.62, 150}, *read)};
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_TRUE(outcome.alone[0].done);
    EXPECT_NEAR(outcome.alone[1].point[0], 7413344.619905966, 1e-3); // by cct
}

TEST(BirthInThreads, OneSystemIsCopiedByAllAndEachChangesItsCopy) {
    TGeodeticText withRotations = WithZeroShift();
    withRotations.shiftType = dstBursaWolf; // a form that `SetNonLinearDatum` can make exact
    auto const system = Geodetic(withRotations, [](TStringTree* tree) { FillRest(tree); });
    auto const gridSystem = Geodetic(WithZeroShift());
    TLevelGrid grid(14.5);
    ASSERT_TRUE(system->SetGeoid("level", &grid, gridSystem.get()));
    system->ClearProxyRefSys();
    std::string const before = TextFormOf(*system);

    auto const outcome = AskTogether(20, [&](int) {
        TSystem const copy(system->CreateCopy());
        TMovedPoints moved = {Move(*copy, {55, 37, 100}, *gridSystem)};
        bool changed = copy->ClearTransforms();
        for (int record = 0; record < 3; ++record) {
            TShellRefSystemTransformShiftZParams const shift = HeightShift(2);
            changed = changed && copy->AppendTransform(&shift);
        }
        copy->ClearGeoid();
        changed = changed && copy->SetNonLinearDatum(true);
        changed = changed && copy->InsertGeoidSetting("other");
        moved.push_back(Move(*copy, {55, 37, 100}, *gridSystem));
        moved.push_back({changed && copy->GetGeoidSetting() == "other", {}});
        return moved;
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_EQ(TextFormOf(*system), before);
    ASSERT_TRUE(outcome.alone[0].done && outcome.alone[1].done);
    EXPECT_NEAR(outcome.alone[0].point[2], 100 + 14.5 - 1, 1e-6); // over the geoid, raised by 1
    EXPECT_NEAR(outcome.alone[1].point[2], 100 - 6, 1e-6);        // raised by three times 2
    EXPECT_TRUE(outcome.alone[2].done);
}

TEST(BirthInThreads, OneProxyIsTakenAndDroppedByTheSystemsOfAll) {
    auto const geodetic = Geodetic(WithZeroShift());
    std::string const text = TextFormOf(*geodetic);
    var_a<TShellReferenceSystem*> const proxy =
        newobj_a(static_cast<TShellReferenceSystem*>(Geodetic(Pulkovo1942()).release()));

    auto const outcome = AskTogether(20, [&](int) {
        TSystem const system(CreateShellReferenceSystem(text, nullptr));
        bool const taken = system->SetProxyRefSys(proxy);
        TMoved const moved = Move(*system, {55, 37, 100}, *geodetic);
        bool const isShared = system->GetProxyRefSys().get() == proxy.get();
        system->ClearProxyRefSys();
        return TMovedPoints{moved, {taken && isShared && !system->ContainsProxyRefSys(), {}}};
    });

    EXPECT_EQ(outcome.deviations, 0);
    // There and back through the linear shift, 0.2 mm.
    EXPECT_NEAR(outcome.alone[0].point[0], 55, 1e-8);
    EXPECT_NEAR(outcome.alone[0].point[2], 100, 3e-4);
    EXPECT_TRUE(outcome.alone[1].done);
    EXPECT_EQ(proxy.use_count(), 1U);
}

TEST(BirthInThreads, TheLastShareOfAProxyMayGoOnAnyThread) {
    for (int round = 0; round < 20; ++round) {
        std::vector<TSystem> systems;
        var_a<TShellReferenceSystem*> proxy =
            newobj_a(static_cast<TShellReferenceSystem*>(Geodetic(Pulkovo1942()).release()));
        for (int number = 0; number < CrewSize; ++number) {
            systems.push_back(Geodetic(WithZeroShift()));
            ASSERT_TRUE(systems.back()->SetProxyRefSys(proxy));
        }
        EXPECT_EQ(proxy.use_count(), static_cast<std::uint64_t>(CrewSize) + 1);
        proxy.release();
        std::vector<int> moved(CrewSize, 0);

        RunTogether([&](int number) {
            auto const index = static_cast<std::size_t>(number);
            moved[index] = Move(*systems[index], {55, 37, 100}, *systems[index]).done ? 1 : 0;
            systems[index].reset();
        });

        EXPECT_EQ(moved, std::vector<int>(CrewSize, 1));
    }
}

} // namespace
