#include "shell/refsystems/GeodeticReferenceSystem.h"

#include "frame/imported/BaseGrid.h"
#include "hostkit/XmlIni.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <exception>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

std::unique_ptr<TShellReferenceSystem> BornFromXml(TGeodeticText const& text) {
    VellariHostKit::TXmlIniWriter writer;
    EXPECT_TRUE(Create(text)->SaveToXML(&writer));
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    return std::unique_ptr<TShellReferenceSystem>(CreateShellReferenceSystem(&reader, nullptr));
}

void RemoveHeightUnit(TStringTree* tree) {
    tree->FindSubtree(1201, 0)->DeleteSubtree(1104, 0);
}

// Construction

TEST(ReferenceSystemEdge, ADatumHidesAnEllipsoidAtTheRoot) {
    auto const system = Geodetic(WithZeroShift(), [](TStringTree* tree) {
        TGeodeticText other;
        other.majorAxis = "6378245";
        TStringTree source;
        FillGeodetic(&source, other);
        source.FindSubtree(1103, 0)->CopyTo(Child(tree, 1103));
    });

    EXPECT_EQ(system->Ellipsoid->MajorSemiAxis, "6378137");
}

TEST(ReferenceSystemEdge, AnAbsentTextIsEmptyAndAnAbsentChainIsAnEmptyChain) {
    auto const system = Geodetic(TGeodeticText());

    for (std::string const* const text :
         {&system->Abbreviation, &system->AxisName[0], &system->AxisName[1], &system->AxisName[2],
          &system->GeoTIFFCode, &system->DatumGeoTIFFCode, &system->PanoramaCode, &system->DatumName}) {
        EXPECT_EQ(*text, "");
    }
    ASSERT_NE(system->Transform, nullptr);
    EXPECT_EQ(system->GetTransform(0), nullptr);
    EXPECT_EQ(system->GetDatumShift(), nullptr);
}

TEST(ReferenceSystemEdge, TheCoreIsBuiltBeforeTheAngularUnitIsLookedFor) {
    auto const broken = [](TStringTree* tree) {
        SetField(tree->FindSubtree(1107, 0)->FindSubtree(5610, 0), 5110, "no number");
        tree->DeleteSubtree(1106, 0);
    };
    char const* const message = "TShellGeodeticReferenceSystem(TStringTree *tree, TKvProgressHandler *prh)";

    // Of two faults the ellipsoid's is told; a missing vertical system comes before both.
    EXPECT_NE(ThrownText([&] { Geodetic(WithZeroShift(), broken); }), message);
    EXPECT_NE(ThrownText([&] { Geodetic(WithZeroShift(), broken); }), "nothing thrown");
    EXPECT_EQ(ThrownText([&] {
                  Geodetic(WithZeroShift(), [&](TStringTree* tree) {
                      broken(tree);
                      tree->DeleteSubtree(1201, 0);
                  });
              }),
              message);
}

TEST(ReferenceSystemEdge, ThePositiveLongitudeFieldIsAnyNumberButZero) {
    struct TRow {
        char const* text;
        bool positive;
    };
    for (TRow const& row : {TRow{"1", true}, {"-1", true}, {"7", true}, {"0", false}, {"yes", false}}) {
        auto const system =
            Geodetic(WithZeroShift(), [&](TStringTree* tree) { SetField(tree, 1111, row.text); });
        EXPECT_EQ(system->PositiveLongitude, row.positive) << row.text;
    }
}

TEST(ReferenceSystemEdge, ACopyHasAProxyOfItsOwn) {
    auto const system = Create(WithZeroShift());
    ASSERT_TRUE(system->SetProxyRefSys(newobj_a(Create(Pulkovo1942()).release())));

    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());

    ASSERT_TRUE(copy->ContainsProxyRefSys());
    EXPECT_NE(copy->GetProxyRefSys().get(), system->GetProxyRefSys().get());
    EXPECT_EQ(system->ProxyRefSys.use_count(), 1U);
}

TEST(ReferenceSystemEdge, ResetEmptiesTheGeodeticMembersToo) {
    auto const system = Geodetic(WithZeroShift(), [](TStringTree* tree) { SetField(tree, 1111, "1"); });

    system->Reset();

    EXPECT_EQ(system->AngularUnit, nullptr);
    EXPECT_EQ(system->Vertical, nullptr);
    EXPECT_FALSE(system->PositiveLongitude);
    EXPECT_FALSE(*system == *Geodetic(WithZeroShift()));
    EXPECT_FALSE(*system ^= *Geodetic(WithZeroShift()));
}

TEST(ReferenceSystemEdge, SystemsOfDifferentKindNumbersAreUnequal) {
    auto const first = Geodetic(WithZeroShift());
    auto const second = Geodetic(WithZeroShift());
    second->Type = rstMapProjected;

    EXPECT_FALSE(*first == *second);
    EXPECT_TRUE(*first ^= *second);
    second->Type = rstGeodetic;
}

// XML

TEST(ReferenceSystemEdge, XmlWithoutTheLongitudeFlagReadsFalse) {
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(
        Geodetic(WithZeroShift(), [](TStringTree* tree) { SetField(tree, 1111, "1"); })->SaveToXML(&writer));
    std::string document = writer.ToString();
    std::string const end = "</RefSystemPositiveLongitude>";
    std::size_t const begin = document.find("<RefSystemPositiveLongitude>");
    ASSERT_NE(begin, std::string::npos);
    document.erase(begin, document.find(end) + end.size() - begin);
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(document);

    EXPECT_FALSE(TShellGeodeticReferenceSystem(&reader, nullptr).PositiveLongitude);
}

TEST(ReferenceSystemEdge, ADatumWithoutItsEllipsoidCannotBeWrittenAsXml) {
    auto const system = Geodetic(WithZeroShift());
    delete system->Ellipsoid;
    system->Ellipsoid = nullptr;
    VellariHostKit::TXmlIniWriter writer;

    EXPECT_FALSE(system->SaveToXML(&writer));
}

TEST(ReferenceSystemEdge, EmptyTextsAreNotWrittenAsXmlButTheNameIs) {
    auto const system = Geodetic(WithZeroShift());
    system->Name = "";
    system->GeoTIFFType = "";
    system->DatumName = "";
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(system->SaveToXML(&writer));
    std::string const document = writer.ToString();

    EXPECT_NE(document.find("<RefSystemName"), std::string::npos);
    for (char const* const key : {"RefSystemDescription", "RefSystemAbbreviation", "RefSystemAxisName",
                                  "RefSystemGeoTIFFCode", "RefSystemGeoTIFFType", "RefSystemPanoramaCode",
                                  "RefSystemDatumName", "RefSystemDatumGeoTIFFCode"}) {
        EXPECT_EQ(document.find(key), std::string::npos) << key;
    }
}

TEST(ReferenceSystemEdge, ASystemFromXmlWorksButHasNoDescriptionToChange) {
    auto const system = BornFromXml(Pulkovo1942());
    auto const grid = Create(WithZeroShift());
    auto const target = Create(WithZeroShift());
    TLevelGrid surface(40);
    auto const shift = HeightShift(1);
    double coords[3] = {55, 37, 60};
    std::string text;
    TStringTree tree;

    EXPECT_FALSE(system->SetGeoid("geoid", &surface, grid.get())); // no setting, but the geoid acts
    system->OperateShellCoords(*target, coords, false);
    EXPECT_NEAR(coords[2], 100, 1e-3); // over the grid's ellipsoid, which is the target's: 60 + 40
    EXPECT_EQ(system->GetGeoidSetting(), "");
    EXPECT_FALSE(system->CheckGeoid());
    EXPECT_FALSE(system->AppendTransform(&shift));
    EXPECT_FALSE(system->AppendPairwiseTransform("A", &shift));
    EXPECT_TRUE(system->PairwiseTransforms.empty());
    EXPECT_FALSE(system->SetProxyRefSys(newobj_a(Create(WithZeroShift()).release())));
    EXPECT_FALSE(system->SetNonLinearDatum(true));
    EXPECT_EQ(system->CreateCopy(), nullptr);
    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&tree), 9);
    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&tree), 9);
    EXPECT_EQ(system->FillPrimaryGeocentricRefSystemTree(&tree), 9);
    ASSERT_TRUE(system->ExportToMIFMID(&text, false));
    EXPECT_EQ(text, "CoordSys Nonearth Units \"deg\"");
    system->ClearGeoidSetting();
    system->ClearTransformsSettings();
    system->ClearAllPairwiseTransformsSettings();
    system->DeleteProxyRefSysFromTree();
    EXPECT_EQ(system->SavedTree, nullptr);
}

TEST(ReferenceSystemEdge, AProxyFromXmlIsRefusedAndTheOldOneIsGone) {
    auto const system = Create(WithZeroShift());
    ASSERT_TRUE(system->SetProxyRefSys(newobj_a(Create(Pulkovo1942()).release())));

    EXPECT_FALSE(system->SetProxyRefSys(newobj_a(BornFromXml(Pulkovo1942()).release())));

    EXPECT_FALSE(system->ContainsProxyRefSys());
    EXPECT_EQ(system->SavedTree->FindSubtree(1112, 0), nullptr);
}

// Coordinates

TEST(ReferenceSystemEdge, TextOutputShowsThePositiveLongitudeInRadians) {
    auto const system = Geodetic(WithZeroShift(), [](TStringTree* tree) { SetField(tree, 1111, "1"); });
    TCoords core;
    core.X = -10 * 3.141592653589793 / 180;
    TShellCoords texts;

    system->CoordsCoreToShell(core, &texts);

    // 6.283185307179586 - 10 degrees in radians, as a double to 25 digits.
    EXPECT_EQ(texts.Coord[1], "6.108652381980153478480133");
}

TEST(ReferenceSystemEdge, PositiveLongitudeTakesNoPartInParsingAndPrintingOfShellNumbers) {
    auto const system = Geodetic(WithZeroShift(), [](TStringTree* tree) { SetField(tree, 1111, "1"); });
    TShellCoords texts;
    texts.Coord[0] = "95";
    texts.Coord[1] = "-10";
    texts.Coord[2] = "0";
    double shell[3] = {};

    ASSERT_TRUE(system->InputCoords(texts, nullptr, nullptr, shell));
    EXPECT_EQ(shell[0], 95);
    EXPECT_EQ(shell[1], -10);
    system->OutputCoords(shell, &texts, nullptr, 1, nullptr, 1);
    EXPECT_EQ(texts.Coord[0], "95.0");
    EXPECT_EQ(texts.Coord[1], "-10.0");
}

TEST(ReferenceSystemEdge, InputCoordsInGivenUnitsTellsOfEachTextThatDoesNotParse) {
    auto const system = Geodetic(WithZeroShift());
    TStringTree degree;
    FillUnit(&degree, Degree());
    TShellAngularUnit const plane(&degree);
    TStringTree metre;
    FillUnit(&metre, Metre());
    TShellLinearUnit const height(&metre);

    for (int bad = 0; bad < 3; ++bad) {
        TShellCoords texts;
        for (int axis = 0; axis < 3; ++axis) {
            texts.Coord[axis] = axis == bad ? "x" : "1";
        }
        double shell[3] = {};
        EXPECT_FALSE(system->InputCoords(texts, &plane, &height, shell)) << bad;
        EXPECT_FALSE(system->InputCoords(texts, nullptr, nullptr, shell)) << bad;
    }
}

TEST(ReferenceSystemEdge, ATargetThatCannotTakeThePointFailsOrThrows) {
    auto const source = Create(WithZeroShift());
    auto const target = Geodetic(WithZeroShift(), RemoveHeightUnit);
    double x = 1;
    double y = 2;
    double z = 3;
    double coords[3] = {50, 10, 100};
    double axes[9] = {};

    EXPECT_FALSE(TransformCoords(source.get(), 50, 10, 100, target.get(), &x, &y, &z));
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, 2);
    EXPECT_EQ(z, 3);
    EXPECT_THROW(source->OperateShellCoords(*target, coords, false), std::runtime_error);
    EXPECT_THROW(TransformAxes(target.get(), 50, 10, 100, axes, false), std::runtime_error);
}

TEST(ReferenceSystemEdge, ASystemWithoutACoreThrows) {
    auto const source = Create(WithZeroShift());
    auto const target = Create(WithZeroShift());
    target->Reset();
    double coords[3] = {50, 10, 100};

    EXPECT_THROW(source->OperateShellCoords(*target, coords, false), std::runtime_error);
    EXPECT_THROW(CompareDatums(source.get(), target.get()), std::logic_error);
}

TEST(ReferenceSystemEdge, EqualSystemsStillRunTheirChains) {
    auto const system = Create(WithZeroShift());
    TShellRefSystemTransform2DAffineParams flat(true);
    flat.a11 = 2;
    ASSERT_TRUE(system->AppendTransform(&flat));
    double coords[3] = {0, 100, 0};

    // Out of the chain: 50 degrees; into it: 100 again; a target without the chain shows the half-way point.
    system->OperateShellCoords(*system, coords, false);
    EXPECT_NEAR(coords[1], 100, 1e-9);
    auto const plain = Create(WithZeroShift());
    system->OperateShellCoords(*plain, coords, false);
    EXPECT_NEAR(coords[1], 50, 1e-9);
}

TEST(ReferenceSystemEdge, AreaTakesLatitudeFirst) {
    auto const system = Geodetic(WithZeroShift());
    double const north = 60.01;
    double const east = 0.02;

    // b^2/2 dlon (q(60.01) - q(60)) with q = sin/(1 - e^2 sin^2) + artanh(e sin)/e [Snyder87, 3-12]; with the
    // coordinates exchanged it would be about twice as large.
    EXPECT_NEAR(system->CalculateArea({{{60, 0, 0}}, {{60, east, 0}}, {{north, east, 0}}, {{north, 0, 0}}}),
                1243174.4869, 1.0);
}

TEST(ReferenceSystemEdge, AreaTakesAnglesAndHeightsInTheirUnits) {
    TGeodeticText text = WithZeroShift();
    text.angularUnit = Grad();
    text.heightUnit = Foot();
    auto const system = Geodetic(text);
    double const side = 10.0 / 9.0; // one degree in grads
    double const height = 1000 / 0.3048;

    EXPECT_NEAR(system->CalculateArea(
                    {{{0, 0, height}}, {{0, side, height}}, {{side, side, height}}, {{side, 0, height}}}),
                12312169533.49, 1.0);
}

TEST(ReferenceSystemEdge, ALoadThatFailsInTheKindsSectionsResetsTheObject) {
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(Geodetic(Pulkovo1942())->SaveToXML(&writer));
    std::string document = writer.ToString();
    std::string const end = "</RefSystemVertical>";
    std::size_t const begin = document.find("<RefSystemVertical>");
    document.erase(begin, document.find(end) + end.size() - begin);
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(document);
    auto const system = Create(WithZeroShift());
    EXPECT_FALSE(system->LoadFromXML(&reader));
    EXPECT_EQ(system->Name, "");
    EXPECT_EQ(system->Ellipsoid, nullptr);
    EXPECT_EQ(dynamic_cast<TShellGeodeticReferenceSystem&>(*system).AngularUnit, nullptr);
}

TEST(ReferenceSystemEdge, InputAndOutputMayBeOneArray) {
    auto const system = Geodetic(WithZeroShift());
    double const shell[3] = {30, 40, 50};
    TCoords apart;
    TCoords inPlace{30, 40, 50, false};
    system->CoordsShellToCore(shell, &apart);
    system->CoordsShellToCore(&inPlace.X, &inPlace);
    EXPECT_EQ(inPlace.X, apart.X);
    EXPECT_EQ(inPlace.Y, apart.Y);
    EXPECT_EQ(inPlace.Z, apart.Z);
}

} // namespace
} // namespace KvRefSystem
