#include "tests/support/EveryOperation.h"

#include "shell/refsystems/public/CoordinateOperation.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>

namespace TestSupport {

using namespace KvRefSystem;

namespace {

/** Runs `run`; an exception of the library's kinds is an answer too. */
template <class Run>
void Ask(Run const& run) {
    try {
        run();
    } catch (std::runtime_error const&) {
    } catch (std::logic_error const&) {}
}

} // namespace

void AskEverything(TShellReferenceSystem* system, TShellReferenceSystem* other, bool isGlobal,
                   std::vector<std::function<void()>> const& own) {
    TCoords core{500000, 6000000, 1, false};
    TCoords withoutHeight{1, 2, 3, true};
    TShellCoords texts;
    texts.Coord[0] = texts.Coord[1] = texts.Coord[2] = "1";
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
    std::vector<std::function<void()>> reading = {
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
        [&] { EXPECT_EQ(system->IsGlobal(), isGlobal); },
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
    reading.insert(reading.end(), own.begin(), own.end());
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

} // namespace TestSupport
