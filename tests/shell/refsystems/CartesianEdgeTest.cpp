#include "shell/refsystems/public/CoordinateOperation.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/CartesianKinds.h"
#include "tests/support/EveryOperation.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <clocale>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

/** Another system of the kind, or a geodetic one. */
std::unique_ptr<TShellReferenceSystem> Other(TCartesianKind const& kind, bool isGeodetic) {
    return isGeodetic ? Create(Pulkovo1942()) : Everything(kind);
}

class CartesianEdge : public testing::TestWithParam<TCartesianKind> {};

INSTANTIATE_TEST_SUITE_P(Kinds, CartesianEdge, testing::ValuesIn(CartesianKinds),
                         [](auto const& kind) { return std::string(kind.param.name); });

// Objects without their components

/** All that `AskEverything` asks, and the form of the clause that these kinds add. */
void AskAll(TCartesianKind const& kind, TShellReferenceSystem* system, TShellReferenceSystem* other) {
    std::string text;
    AskEverything(system, other, kind.isGlobal, {[&] { kind.exportMif(*system, &text); }});
}

TEST_P(CartesianEdge, EveryOperationAnswersOnASystemOfATree) {
    for (bool const otherIsGeodetic : {false, true}) {
        AskAll(GetParam(), Everything(GetParam()).get(), Other(GetParam(), otherIsGeodetic).get());
    }
}

TEST_P(CartesianEdge, EveryOperationAnswersOnASystemOfXml) {
    for (bool const otherIsGeodetic : {false, true}) {
        AskAll(GetParam(), GetParam().read(XmlOf(*Everything(GetParam()))).get(),
               Other(GetParam(), otherIsGeodetic).get());
    }
}

TEST_P(CartesianEdge, EveryOperationAnswersOnAnEmptiedSystem) {
    for (bool const otherIsGeodetic : {false, true}) {
        auto const system = Everything(GetParam());
        system->Reset();
        AskAll(GetParam(), system.get(), Other(GetParam(), otherIsGeodetic).get());
    }
}

TEST_P(CartesianEdge, EveryOperationAnswersOnASystemThatWasLoadedAgain) {
    auto const system = Everything(GetParam());
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(XmlOf(*system));
    ASSERT_TRUE(system->LoadFromXML(&reader));

    AskAll(GetParam(), system.get(), Other(GetParam(), false).get());
}

TEST_P(CartesianEdge, EveryOperationAnswersWhereAComponentIsMissing) {
    // Members are public: a host may have taken one away.
    std::function<void(TShellReferenceSystem*)> const takings[] = {
        GetParam().takeUnit,
        [](TShellReferenceSystem* system) { delete std::exchange(system->CoreRefSystem, nullptr); },
        [](TShellReferenceSystem* system) { delete std::exchange(system->DatumShift, nullptr); },
        [](TShellReferenceSystem* system) { delete std::exchange(system->Ellipsoid, nullptr); },
        [](TShellReferenceSystem* system) { delete std::exchange(system->PrimeMeridian, nullptr); },
        [](TShellReferenceSystem* system) {
            if (system->PrimeMeridian) {
                delete std::exchange(system->PrimeMeridian->AngularUnit, nullptr);
            }
        },
        [](TShellReferenceSystem* system) {
            if (auto* const curved = dynamic_cast<TShellLocalCurvedReferenceSystem*>(system)) {
                delete std::exchange(curved->SphereUnit, nullptr);
            }
        },
        [](TShellReferenceSystem* system) {
            if (auto* const horizon = dynamic_cast<TShellTopocentricHorizontalReferenceSystem*>(system)) {
                delete std::exchange(horizon->BaseGeodetic, nullptr);
            }
        },
        [](TShellReferenceSystem* system) {
            if (auto* const horizon = dynamic_cast<TShellTopocentricHorizontalReferenceSystem*>(system)) {
                delete std::exchange(horizon->BaseGeodetic->AngularUnit, nullptr);
            }
        },
        [](TShellReferenceSystem* system) {
            if (system->SavedTree) {
                for (int const tag : {1101, 1103, 1104, 1107, 1121}) {
                    system->SavedTree->DeleteSubtree(tag, 0);
                }
            }
        },
    };
    for (auto const& take : takings) {
        auto const system = Everything(GetParam());
        take(system.get());
        AskAll(GetParam(), system.get(), Other(GetParam(), false).get());
    }
}

TEST_P(CartesianEdge, ALoadFromAnotherKindsDocumentLeavesAnEmptyObject) {
    for (TCartesianKind const& other : CartesianKinds) {
        if (other.name == GetParam().name) {
            continue;
        }
        auto const system = Everything(GetParam());
        VellariHostKit::TXmlIniReader reader;
        reader.LoadString(XmlOf(*Everything(other)));

        EXPECT_FALSE(system->LoadFromXML(&reader)) << other.name;
        EXPECT_EQ(system->CoreRefSystem, nullptr) << other.name;
        EXPECT_EQ(system->Name, "") << other.name;
    }
}

// Hostile descriptions

/** Fills a tree with systems of a kind, each the proxy of the one around it. */
void FillProxies(TCartesianKind const& kind, TStringTree* tree, int depth) {
    TStringTree* holder = tree;
    kind.fill(holder);
    for (int level = 0; level < depth; ++level) {
        holder = Child(holder, 1112);
        kind.fill(holder);
    }
}

TEST_P(CartesianEdge, ProxiesNestOnlySoDeep) {
    TStringTree allowed;
    FillProxies(GetParam(), &allowed, MaxProxyDepth);
    TStringTree tooDeep;
    FillProxies(GetParam(), &tooDeep, MaxProxyDepth + 1);

    EXPECT_NO_THROW(GetParam().build(&allowed));
    EXPECT_EQ(ThrownText([&] { GetParam().build(&tooDeep); }),
              "TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)");
}

TEST(CartesianEdge, ProxiesInsideOfBaseSystemsCountToo) {
    for (int const extra : {0, 1}) {
        TStringTree tree;
        TStringTree* holder = &tree;
        for (int level = 0; level < MaxProxyDepth + extra; ++level) {
            FillTopocentricKind(holder);
            holder = Child(Child(holder, 1121), 1112);
        }
        FillTopocentricKind(holder);
        auto const build = [&] { TShellTopocentricHorizontalReferenceSystem(&tree, nullptr); };
        if (extra == 0) {
            EXPECT_NO_THROW(build());
        } else {
            EXPECT_EQ(ThrownText(build), "TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)");
        }
    }
}

TEST(CartesianEdge, ABaseThatIsNoGeodeticSystemFailsInTheTreeOfIt) {
    // A topocentric base inside a topocentric one lacks what a geodetic system needs.
    TStringTree tree;
    FillTopocentricKind(&tree);
    tree.DeleteSubtree(1121, 0);
    FillTopocentricKind(Child(&tree, 1121));

    EXPECT_EQ(ThrownText([&] { TShellTopocentricHorizontalReferenceSystem(&tree, nullptr); }),
              "TShellGeodeticReferenceSystem(TStringTree *tree, TKvProgressHandler *prh)");
}

TEST(CartesianEdge, AbsurdNumbersAreTakenAsTheyStand) {
    TTopocentricText text;
    text.base = Pulkovo1942();
    auto const geocentric = Create(Pulkovo1942());
    for (char const* const absurd : {"1e308", "-1e308", "inf", "nan", "1e-320"}) {
        for (int axis = 0; axis < 3; ++axis) {
            text.origin[0] = text.origin[1] = text.origin[2] = "0";
            text.origin[axis] = absurd;
            text.azimuth = absurd;
            auto const system = Live(text);
            double point[3] = {};
            TransformCoords(geocentric.get(), 1, 2, 3, system.get(), &point[0], &point[1], &point[2]);
            TransformCoords(system.get(), 1, 2, 3, geocentric.get(), &point[0], &point[1], &point[2]);
            EXPECT_EQ(system->OriginCoord[axis], absurd);
        }
        EXPECT_EQ(LiveCurved(Curved(absurd))->SphereRadiusText, absurd);
    }
}

// Locale

TEST_P(CartesianEdge, AHostWithADecimalCommaGetsTheSameTexts) {
    auto const printed = [] {
        auto const system = Everything(GetParam());
        system->GeoTIFFCode = "";
        std::string all;
        std::string text;
        EXPECT_TRUE(system->ExportToWKT(&text, true, true));
        all += text;
        EXPECT_TRUE(GetParam().exportMif(*system, &text));
        all += text + XmlOf(*system);
        std::map<int, std::string> keys;
        system->ExportToPanorama(&keys, true);
        for (auto const& [key, value] : keys) {
            all += value + ";";
        }
        TShellCoords texts;
        system->CoordsCoreToShell(TCoords{2000000.25, 3000000.125, 5000000.5, false}, &texts);
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
    EXPECT_NE(expected.find("2000000.25"), std::string::npos);
}

} // namespace
} // namespace KvRefSystem
