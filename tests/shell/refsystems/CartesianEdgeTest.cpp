#include "shell/refsystems/public/CoordinateOperation.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/CartesianKinds.h"
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

/** Runs `run`; an exception of the library's kinds is an answer too. */
template <class Run>
void Ask(Run const& run) {
    try {
        run();
    } catch (std::runtime_error const&) {
    } catch (std::logic_error const&) {}
}

/** Every public operation on one system, each with another whole system where it takes one. */
void AskEverything(TCartesianKind const& kind, TShellReferenceSystem* system, TShellReferenceSystem* other) {
    TCoords core{500000, 6000000, 1, false};
    TCoords withoutHeight{1, 2, 3, true};
    TShellCoords texts = Texts("1", "1", "1");
    double shell[3] = {500000, 6000000, 1};
    double numbers[9] = {};
    std::string text;
    std::map<int, std::string> keys;
    std::map<std::string, TRefSystemTransformsSet> sets;
    TCardinalDirection directions[2] = {};
    VellariHostKit::TXmlIniWriter writer;
    TLevelGrid grid(1);
    TShellRefSystemTransformShiftZParams const shift = HeightShift(1);

    auto const intoTree = [](auto const& fill) {
        return [fill] {
            TStringTree tree;
            fill(&tree);
        };
    };
    std::function<void()> const reading[] = {
        [&] { system->CoordsShellToCore(shell, &core); },
        [&] { system->CoordsCoreToShell(core, shell); },
        [&] { system->CoordsShellToCore(texts, &core); },
        [&] { system->CoordsCoreToShell(core, &texts); },
        [&] { system->CoordsCoreToShell(withoutHeight, shell); },
        [&] { system->CoordsCoreToShell(withoutHeight, &texts); },
        [&] { system->InputCoords(texts, nullptr, nullptr, shell); },
        [&] { system->OutputCoords(shell, &texts, nullptr, 3, nullptr, 3); },
        [&] { system->OutputCoordsDef(shell, &texts); },
        intoTree([&](TStringTree* tree) { system->FillInternalRefSystemTree(tree, texts); }),
        intoTree([&](TStringTree* tree) { system->FillPrimaryGeodeticRefSystemTree(tree); }),
        intoTree([&](TStringTree* tree) { system->FillPrimaryGeodeticRefSystemTreeDeg(tree); }),
        intoTree([&](TStringTree* tree) { system->FillPrimaryGeocentricRefSystemTree(tree); }),
        [&] { system->FillInternalRefSystemTree(nullptr, texts); },
        [&] { system->FillPrimaryGeodeticRefSystemTree(nullptr); },
        [&] { system->FillPrimaryGeodeticRefSystemTreeDeg(nullptr); },
        [&] { system->FillPrimaryGeocentricRefSystemTree(nullptr); },
        [&] { system->ExportToMIFMID(&text, false); },
        [&] { system->ExportToMIFMID(&text, true); },
        [&] { kind.exportMif(*system, &text); },
        [&] { system->ExportToGeoTIFF(&keys, true); },
        [&] { system->ExportToGeoTIFF(&keys, false); },
        [&] { system->ExportToGeoTIFFClassified(&keys); },
        [&] { system->ExportToPanorama(&keys, true); },
        [&] { system->ExportToWKT(&text, false, true); },
        [&] { system->ExportToWKT(&text, true, false); },
        [&] { system->ExportAxesToWKT(&text); },
        [&] { system->ExportDatumToMIFMID(&text, true); },
        [&] { system->ExportDatumToMIFMID(&text, false); },
        [&] { system->ExportDatumToWKT(&text); },
        [&] { system->IsLeft(); },
        [&] { system->GetSphereRadius(numbers); },
        [&] { system->GetAxesDirections(&directions[0], &directions[1]); },
        [&] { system->GetMapProjectionName(); },
        [&] { system->GetPlaneUnitCoefToBase(); },
        [&] { system->GetPlaneUnitName(); },
        [&] { system->GetPlaneUnitShortName(); },
        [&] { system->GetPlaneUnitDefPrec(); },
        [&] { system->GetHeightUnitCoefToBase(); },
        [&] { system->GetHeightUnitName(); },
        [&] { system->GetHeightUnitShortName(); },
        [&] { system->GetHeightUnitDefPrec(); },
        [&] { EXPECT_FALSE(*system == *other && !(*other == *system)); },
        [&] { *system ^= *other; },
        [&] { *other ^= *system; },
        [&] { system->PreservesHeights(*other); },
        [&] { other->PreservesHeights(*system); },
        [&] { system->SaveToXML(&writer); },
        [&] { system->SaveToXML(nullptr); },
        [&] { system->WriteToXML(&writer); },
        [&] {
            system->CalculateArea({{{0, 0, 0}}, {{0, 1, 0}}, {{1, 1, 0}}});
        },
        [&] { system->GetDatumShift(); },
        [&] {
            std::vector<char> buffer(system->WriteToString(nullptr) + 1);
            system->WriteToString(buffer.data());
        },
        [&] { system->WriteToString(text); },
        [&] { delete system->CreateCopy(); },
        [&] { system->IsLatLon() || system->IsGeocentric() || system->IsTopocentricHorizontal(); },
        [&] { EXPECT_EQ(system->IsGlobal(), kind.isGlobal); },
        [&] { system->GetEllipsoidSemiAxesMeters(&numbers[0], &numbers[1]); },
        [&] { system->GetGeoTIFFCode(); },
        [&] { system->GetPanoramaCode(); },
        [&] { system->OperateShellCoords(*other, shell, false); },
        [&] { other->OperateShellCoords(*system, shell, false); },
        [&] { system->OperateShellCoords(shell, *system, shell, true); },
        [&] { TransformCoords(system, 0, 0, 0, other, &numbers[0], &numbers[1], &numbers[2]); },
        [&] { TransformCoords(other, 0, 0, 0, system, &numbers[0], &numbers[1], &numbers[2]); },
        [&] { TransformAxes(system, 500000, 6000000, 0, numbers, true); },
        [&] { CompareDatums(system, other); },
        [&] { CompareDatums(other, system); },
        [&] {
            system->GetDatumShiftParams(&numbers[0], &numbers[1], &numbers[2], &numbers[3], &numbers[4],
                                        &numbers[5], &numbers[6]);
        },
        [&] { system->GetGeoidSetting(); },
        [&] { system->GetGeoidID(); },
        [&] { system->ContainsGeoid(); },
        [&] { system->GetGeoidGrid(); },
        [&] { system->GetGeoidGridRefSystem(); },
        [&] { system->CheckGeoid(); },
        [&] { system->GetProxyRefSys(); },
        [&] { system->ContainsProxyRefSys(); },
        [&] { system->GetProxyRefSysStr(); },
        [&] { system->GetProxyRefSysName(); },
        [&] { system->GetProxyGeoidSetting(); },
        [&] { system->GetProxyGeoidID(); },
        [&] { system->GetTransform(0); },
        [&] { system->GetPairwiseTransform("pair", 0); },
        [&] { system->AccessPairwiseTransforms("pair"); },
        [&] { system->FindPairwiseTransforms("pair"); },
        [&] { system->FindPairwiseTransformsSettings("pair"); },
        [&] { system->InitializeCorePairwiseTransforms(&sets); },
    };
    std::function<void()> const changing[] = {
        [&] { system->AppendTransform(&shift); },
        [&] { system->AppendTransform(nullptr); },
        [&] { system->ReplaceTransform(0, shift); },
        [&] { system->SwapTransforms(0, 0); },
        [&] { system->InsertTransformsSettings(); },
        [&] { system->InsertCoreTransforms(); },
        [&] { system->AppendPairwiseTransform("pair", &shift); },
        [&] { system->AppendPairwiseTransform("new", &shift); },
        [&] { system->ReplacePairwiseTransform("pair", 0, shift); },
        [&] { system->SwapPairwiseTransforms("pair", 0, 0); },
        [&] { system->InsertPairwiseTransformsSettings("pair"); },
        [&] { system->InsertCorePairwiseTransforms("pair"); },
        [&] { system->InsertCorePairwiseTransforms("none"); },
        [&] { system->SetNonLinearDatum(true); },
        [&] { system->SetNonLinearDatum(false); },
        [&] { system->SetGeoid("", &grid, other); },
        [&] { system->SetGeoid("Level", &grid, other); },
        [&] { system->SetGeoid("None", nullptr, nullptr); },
        [&] { system->InsertGeoidSetting("Level"); },
        [&] { system->SetProxyRefSys(newobj_a(other->CreateCopy())); },
        [&] { system->InsertProxyRefSysToTree(nullptr); },
        [&] { system->SetProxyGeoid("Level", &grid, other); },
        [&] {
            for (auto const& run : reading) {
                Ask(run);
            }
        },
        [&] { system->DeleteTransform(0); },
        [&] { system->ClearTransforms(); },
        [&] { system->ClearTransformsSettings(); },
        [&] { system->DeletePairwiseTransform("pair", 0); },
        [&] { system->ClearPairwiseTransforms("pair"); },
        [&] { system->ClearPairwiseTransformsSettings("pair"); },
        [&] { system->ClearAllPairwiseTransforms(); },
        [&] { system->ClearAllPairwiseTransformsSettings(); },
        [&] { system->ClearGeoid(); },
        [&] { system->ClearGeoidSetting(); },
        [&] { system->DeleteProxyRefSysFromTree(); },
        [&] { system->SetProxyRefSys({}); },
        [&] { system->ClearProxyRefSys(); },
        [&] { system->LoadFromXML(nullptr); },
    };
    for (auto const& run : reading) {
        Ask(run);
    }
    for (auto const& run : changing) {
        Ask(run);
    }
    EXPECT_EQ(system->CoreRefSystem, nullptr); // the last of them is a load that fails
    EXPECT_EQ(system->SavedTree, nullptr);
}

TEST_P(CartesianEdge, EveryOperationAnswersOnASystemOfATree) {
    for (bool const otherIsGeodetic : {false, true}) {
        AskEverything(GetParam(), Everything(GetParam()).get(), Other(GetParam(), otherIsGeodetic).get());
    }
}

TEST_P(CartesianEdge, EveryOperationAnswersOnASystemOfXml) {
    for (bool const otherIsGeodetic : {false, true}) {
        AskEverything(GetParam(), GetParam().read(XmlOf(*Everything(GetParam()))).get(),
                      Other(GetParam(), otherIsGeodetic).get());
    }
}

TEST_P(CartesianEdge, EveryOperationAnswersOnAnEmptiedSystem) {
    for (bool const otherIsGeodetic : {false, true}) {
        auto const system = Everything(GetParam());
        system->Reset();
        AskEverything(GetParam(), system.get(), Other(GetParam(), otherIsGeodetic).get());
    }
}

TEST_P(CartesianEdge, EveryOperationAnswersOnASystemThatWasLoadedAgain) {
    auto const system = Everything(GetParam());
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(XmlOf(*system));
    ASSERT_TRUE(system->LoadFromXML(&reader));

    AskEverything(GetParam(), system.get(), Other(GetParam(), false).get());
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
        AskEverything(GetParam(), system.get(), Other(GetParam(), false).get());
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
