#include "shell/refsystems/GeocentricReferenceSystem.h"

#include "core/refsystems/GeocentricReferenceSystem.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/CartesianSystems.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

using TSystem = TShellGeocentricReferenceSystem;
using TPoint = std::array<double, 3>;

constexpr char const* Message = "TShellGeocentricReferenceSystem(TStringTree *tree,TKvProgressHandler *prh)";
constexpr char const* XmlMessage =
    "TShellGeocentricReferenceSystem::TShellGeocentricReferenceSystem(TKvXIniReader *xml)";
constexpr char const* LateXmlMessage =
    "TShellGeocentricReferenceSystem(TKvXIniReader *xml,TKvProgressHandler *prh)";

TGeocentricText On(TGeodeticText const& base) {
    TGeocentricText text;
    text.base = base;
    return text;
}

std::string ThrownBy(TTreeChange const& change) {
    return ThrownText([&] { Live(On(WithZeroShift()), change); });
}

std::string ThrownByXml(std::string const& document) {
    return ThrownText([&] { FromXml<TSystem>(document); });
}

// Construction

TEST(GeocentricReferenceSystem, IsReadFromItsDescription) {
    auto const system = Live(On(Pulkovo1942()), [](TStringTree* tree) {
        SetField(tree, 1022, "geoc");
        SetField(tree, 1025, "X");
        SetField(tree, 1025, "Y", 1);
        SetField(tree, 1025, "Z", 2);
        SetField(tree, 102001, "7");
    });

    EXPECT_EQ(system->Type, rstGeocentric);
    EXPECT_EQ(system->Name, "Test geocentric");
    EXPECT_EQ(system->AxisName[2], "Z");
    EXPECT_EQ(system->GeoTIFFType, "3"); // whatever the description says
    EXPECT_EQ(system->DatumName, "Test datum");
    EXPECT_EQ(system->LinearUnit->Name, "metre");
    ASSERT_NE(system->DatumShift, nullptr);
    EXPECT_EQ(system->GetDatumShift(), system->DatumShift);
    auto const* const core = dynamic_cast<TGeocentricReferenceSystem const*>(system->CoreRefSystem);
    ASSERT_NE(core, nullptr);
    EXPECT_NE(core->DatumShift, nullptr);
    EXPECT_TRUE(core->ContainsDatum());
}

TEST(GeocentricReferenceSystem, MayLackDatumEllipsoidAndMeridian) {
    auto const system = Live(TGeocentricText(), [](TStringTree* tree) {
        tree->DeleteSubtree(1103, 0);
        tree->DeleteSubtree(1101, 0);
    });
    auto const& core = dynamic_cast<TGeocentricReferenceSystem const&>(*system->CoreRefSystem);

    EXPECT_EQ(system->Ellipsoid, nullptr);
    EXPECT_EQ(system->PrimeMeridian, nullptr);
    EXPECT_EQ(core.DatumShift, nullptr);
    EXPECT_EQ(core.PrimeMeridian->Longitude, 0);
    double a = 1;
    double b = 2;
    EXPECT_FALSE(system->GetEllipsoidSemiAxesMeters(&a, &b));
    EXPECT_EQ(a, 1);
    EXPECT_EQ(b, 2);
}

TEST(GeocentricReferenceSystem, NeedsALinearUnit) {
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { tree->DeleteSubtree(1104, 0); }), Message);
}

TEST(GeocentricReferenceSystem, ABrokenLinearUnitFailsWithItsOwnText) {
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { tree->FindSubtree(1104, 0)->DeleteField(5320, 0); }),
              "TShellUnit::TShellUnit(TStringTree *tree)");
}

TEST(GeocentricReferenceSystem, EveryFailureOfTheCoresPiecesHasTheSameText) {
    EXPECT_EQ(ThrownBy([](TStringTree* tree) {
                  SetField(tree->FindSubtree(1107, 0)->FindSubtree(1102, 0), 5461, "north");
              }),
              Message);
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { AddChainWithoutCoreForm(Child(tree, 1108), ""); }), Message);
    EXPECT_EQ(
        ThrownBy([](TStringTree* tree) { AddChainWithoutCoreForm(Child(Child(tree, 1109), 1110), "pair"); }),
        Message);
}

TEST(GeocentricReferenceSystem, TheBaseFailsWithTheBasesText) {
    for (int const field : {1020, 1021}) {
        EXPECT_EQ(ThrownBy([&](TStringTree* tree) { tree->DeleteField(field, 0); }),
                  "TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)")
            << field;
    }
}

TEST(GeocentricReferenceSystem, ANullTreeFails) {
    EXPECT_EQ(ThrownText([] { TSystem(static_cast<TStringTree*>(nullptr), nullptr); }),
              "TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)");
}

// Coordinates

TEST(GeocentricReferenceSystem, PointsOfAGeodeticSystem) {
    auto const geodetic = Create(WithZeroShift());
    auto const system = Live(On(WithZeroShift()));
    TPoint point = {};

    ASSERT_TRUE(TransformCoords(geodetic.get(), 45, 90, 100, system.get(), &point[0], &point[1], &point[2]));

    // By hand: (N + h) cos 45 and (N (1 - e2) + h) sin 45; mpmath, cct +proj=cart.
    EXPECT_NEAR(point[0], 0, 1e-8);
    EXPECT_NEAR(point[1], 4517661.589527, 1e-6);
    EXPECT_NEAR(point[2], 4487419.119544, 1e-6);
}

TEST(GeocentricReferenceSystem, AxesHaveNoDirections) {
    TCardinalDirection first = cdEast;
    TCardinalDirection second = cdWest;
    auto const system = Live(On(WithZeroShift()));

    EXPECT_FALSE(system->GetAxesDirections(&first, &second));
    EXPECT_EQ(first, cdNone);
    EXPECT_EQ(second, cdNone);
    EXPECT_FALSE(system->IsLeft());
}

TEST(GeocentricReferenceSystem, SimpleAnswers) {
    auto const system = Live(On(WithZeroShift()));
    double radius = 7;

    EXPECT_TRUE(system->IsGlobal());
    EXPECT_TRUE(system->IsGeocentric());
    EXPECT_FALSE(system->IsLatLon());
    EXPECT_FALSE(system->IsProjected());
    EXPECT_FALSE(system->IsTopocentricHorizontal());
    EXPECT_FALSE(system->GetSphereRadius(&radius));
    EXPECT_EQ(radius, 7);
    EXPECT_EQ(system->GetMapProjectionName(), "");
    EXPECT_EQ(system->CalculateArea({{{0, 0, 0}}, {{0, 1000, 0}}, {{1000, 1000, 0}}}), 0);
}

// Equality

TEST(GeocentricReferenceSystem, EqualityLooksAtCoreAndUnit) {
    auto const system = Live(On(Pulkovo1942()));
    TGeocentricText renamed = On(Pulkovo1942());
    renamed.name = "Another name";
    TGeocentricText inFeet = On(Pulkovo1942());
    inFeet.linearUnit = Foot();
    TGeodeticText shifted = Pulkovo1942();
    shifted.shift[0] = "23.58";
    TGeodeticText turned = Pulkovo1942();
    turned.meridian = "2.33722917";

    EXPECT_TRUE(*system == *Live(renamed));
    EXPECT_FALSE(*system == *Live(inFeet));
    EXPECT_TRUE(*system ^= *Live(inFeet));
    EXPECT_FALSE(*system == *Live(On(shifted)));
    EXPECT_FALSE(*system == *Live(On(turned)));
    EXPECT_FALSE(*system == *Create(Pulkovo1942()));
}

TEST(GeocentricReferenceSystem, EllipsoidsDoNotCount) {
    // The coordinates are the same on every ellipsoid.
    TGeodeticText other = WithZeroShift();
    other.majorAxis = "6378245";

    EXPECT_TRUE(*Live(On(WithZeroShift())) == *Live(On(other)));
}

TEST(GeocentricReferenceSystem, EqualityLooksAtTheKindThatIsStored) {
    auto const system = Live(On(WithZeroShift()));
    auto const other = Live(On(WithZeroShift()));
    other->Type = rstGeodetic;

    EXPECT_FALSE(*system == *other);
}

// Life

TEST(GeocentricReferenceSystem, ResetEmptiesAllButTheKind) {
    auto const system = Live(On(WithZeroShift()));
    system->Reset();

    EXPECT_EQ(system->Type, rstGeocentric);
    EXPECT_EQ(system->LinearUnit, nullptr);
    EXPECT_EQ(system->CoreRefSystem, nullptr);
    EXPECT_EQ(system->DatumShift, nullptr);
    EXPECT_EQ(system->Ellipsoid, nullptr);
    EXPECT_EQ(system->PrimeMeridian, nullptr);
    EXPECT_EQ(system->SavedTree, nullptr);
    EXPECT_EQ(system->Name, "");
    EXPECT_EQ(system->GeoTIFFType, "");
}

TEST(GeocentricReferenceSystem, ADatumCanBeMadeNonLinear) {
    auto const system = Live(On(Pulkovo1942()));

    ASSERT_TRUE(system->SetNonLinearDatum(true));

    EXPECT_TRUE(system->CoreRefSystem->NonlinearDatum());
    int flag = 0;
    EXPECT_TRUE(system->SavedTree->FindSubtree(1107, 0)->FindSubtree(1102, 0)->GetInteger(5469, 0, &flag));
    EXPECT_EQ(flag, 1);
    EXPECT_FALSE(Live(TGeocentricText())->SetNonLinearDatum(true));
}

// XML

TEST(GeocentricReferenceSystem, WritesItsKeysInTheirOrder) {
    auto const system = Live(On(Pulkovo1942()));

    EXPECT_EQ(
        KeysOf(XmlOf(*system)),
        (std::vector<std::string>{"RefSystemType", "RefSystemName", "RefSystemGeoTIFFType", "RefSystemDatum",
                                  "RefSystemPrimeMeridian", "RefSystemTransform", "RefSystemLinearUnit"}));
    EXPECT_EQ(KeysOf(XmlOf(*Live(TGeocentricText())))[3], "RefSystemEllipsoid");
}

TEST(GeocentricReferenceSystem, SurvivesXml) {
    TGeocentricText text = On(Pulkovo1942());
    text.linearUnit = Foot();
    text.base.meridian = "2.33722917";
    auto const system = Live(text, [](TStringTree* tree) { SetField(tree, 102005, "4978"); });

    auto const read = FromXml<TSystem>(XmlOf(*system));

    EXPECT_EQ(read->Type, rstGeocentric);
    EXPECT_EQ(read->GeoTIFFCode, "4978");
    EXPECT_EQ(read->GeoTIFFType, "3");
    EXPECT_EQ(read->LinearUnit->Name, "foot");
    EXPECT_EQ(read->DatumName, "Test datum");
    EXPECT_TRUE(*read == *system);
    EXPECT_EQ(XmlOf(*read), XmlOf(*system));
    EXPECT_EQ(read->SavedTree, nullptr);
    ASSERT_NE(read->Transform, nullptr);
    EXPECT_EQ(read->Transform->GetFirstTransform(), nullptr);
}

TEST(GeocentricReferenceSystem, XmlWithoutAnExportTypeLeavesItEmpty) {
    // Kept: reading empties what the constructor had set.
    auto const read = FromXml<TSystem>(WithoutKey(XmlOf(*Live(On(WithZeroShift()))), "RefSystemGeoTIFFType"));

    EXPECT_EQ(read->GeoTIFFType, "");
}

TEST(GeocentricReferenceSystem, XmlNeedsKindAndUnit) {
    std::string const document = XmlOf(*Live(On(WithZeroShift())));

    for (char const* const key : {"RefSystemType", "RefSystemLinearUnit"}) {
        EXPECT_EQ(ThrownByXml(WithoutKey(document, key)), XmlMessage) << key;
    }
    for (char const* const kind : {"0", "1", "2", "4", "5", "6", "7"}) {
        EXPECT_EQ(ThrownByXml(WithValue(document, "RefSystemType", kind)), XmlMessage) << kind;
    }
    EXPECT_EQ(ThrownText([] { TSystem(static_cast<TKvXIniReader*>(nullptr), nullptr); }), XmlMessage);
}

TEST(GeocentricReferenceSystem, XmlMayLackEverythingElse) {
    std::string const document = XmlOf(*Live(On(WithZeroShift())));

    for (char const* const key : {"RefSystemName", "RefSystemGeoTIFFType", "RefSystemDatum",
                                  "RefSystemPrimeMeridian", "RefSystemTransform"}) {
        EXPECT_NO_THROW(FromXml<TSystem>(WithoutKey(document, key))) << key;
    }
}

TEST(GeocentricReferenceSystem, XmlWhoseUnitIsNotLinearDoesNotLoad) {
    std::string document = XmlOf(*Live(On(WithZeroShift())));
    auto const place = document.rfind("<UnitType>1");
    document.replace(place, 11, "<UnitType>2");

    EXPECT_EQ(ThrownByXml(document), XmlMessage);
}

TEST(GeocentricReferenceSystem, XmlWhoseCoreFailsHasATextOfItsOwn) {
    std::string document = XmlOf(*Live(On(Pulkovo1942())));
    std::string const number = "<DatumShiftDx>23.57<";
    document.replace(document.find(number), number.size(), "<DatumShiftDx>north<");

    EXPECT_EQ(ThrownByXml(document), LateXmlMessage);
}

TEST(GeocentricReferenceSystem, AFailedLoadLeavesAnEmptyObject) {
    auto const system = Live(On(WithZeroShift()));
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(WithoutKey(XmlOf(*system), "RefSystemLinearUnit"));

    EXPECT_FALSE(system->LoadFromXML(&reader));
    EXPECT_EQ(system->LinearUnit, nullptr);
    EXPECT_EQ(system->CoreRefSystem, nullptr);
    EXPECT_EQ(system->Name, "");
    EXPECT_FALSE(system->LoadFromXML(nullptr));
}

TEST(GeocentricReferenceSystem, WithoutUnitItIsNotWritten) {
    auto const system = Live(On(WithZeroShift()));
    delete std::exchange(system->LinearUnit, nullptr);
    VellariHostKit::TXmlIniWriter writer;

    EXPECT_FALSE(system->SaveToXML(&writer));
    EXPECT_FALSE(system->SaveToXML(nullptr));
}

// Chains

TEST(GeocentricReferenceSystem, AChainOfTheDescriptionKeepsTheAxesAndTheirSigns) {
    auto const plain = Live(On(WithZeroShift()));
    auto const shifted = Live(On(WithZeroShift()), [](TStringTree* tree) { AddPlaneShift(tree, 100, 20); });
    TPoint point = {};

    ASSERT_TRUE(TransformCoords(plain.get(), 2e6, 3e6, 5e6, shifted.get(), &point[0], &point[1], &point[2]));

    EXPECT_NEAR(point[0], 2000100, 1e-6);
    EXPECT_NEAR(point[1], 3000020, 1e-6);
    EXPECT_NEAR(point[2], 5e6, 1e-6);
}

TEST(GeocentricReferenceSystem, AnAppendedChainKeepsTheAxesAndTheirSigns) {
    auto const plain = Live(On(WithZeroShift()));
    auto const shifted = Live(On(WithZeroShift()));
    TShellRefSystemTransform2DAffineParams affine(true);
    affine.a13 = 100;
    affine.a23 = 20;
    ASSERT_TRUE(shifted->AppendTransform(&affine));
    TPoint point = {2e6, 3e6, 5e6};

    plain->OperateShellCoords(*shifted, point.data(), false);

    EXPECT_NEAR(point[0], 2000100, 1e-6);
    EXPECT_NEAR(point[1], 3000020, 1e-6);
    EXPECT_NEAR(point[2], 5e6, 1e-6);
}

TEST(GeocentricReferenceSystem, APairwiseChainKeepsTheAxesAndTheirSigns) {
    auto const plain = Live(On(WithZeroShift()));
    auto const shifted = Live(On(WithZeroShift()));
    TShellRefSystemTransform2DAffineParams const identity(true);
    TShellRefSystemTransform2DAffineParams affine(true);
    affine.a13 = 100;
    affine.a23 = 20;
    ASSERT_TRUE(plain->AppendPairwiseTransform("pair", &identity));
    ASSERT_TRUE(shifted->AppendPairwiseTransform("pair", &affine));
    TPoint point = {2e6, 3e6, 5e6};

    plain->OperateShellCoords(*shifted, point.data(), false);

    EXPECT_NEAR(point[0], 2000100, 1e-6);
    EXPECT_NEAR(point[1], 3000020, 1e-6);
    EXPECT_NEAR(point[2], 5e6, 1e-6);
}

TEST(GeocentricReferenceSystem, ChainsReachTheCore) {
    auto const system = Live(On(WithZeroShift()));
    auto const target = Live(On(WithZeroShift()));
    auto const shift = HeightShift(5);

    ASSERT_TRUE(target->AppendTransform(&shift));
    TPoint point = {1e6, 2e6, 5e6};
    system->OperateShellCoords(*target, point.data(), false);

    EXPECT_EQ(point, (TPoint{1e6, 2e6, 5e6 + 5}));
    ASSERT_TRUE(target->ClearTransforms());
    ASSERT_TRUE(target->AppendPairwiseTransform("pair", &shift));
    EXPECT_EQ(target->CoreRefSystem->PairwiseTransforms.count("pair"), 1U);
    ASSERT_TRUE(target->ClearPairwiseTransforms("pair"));
    EXPECT_EQ(target->CoreRefSystem->PairwiseTransforms.count("pair"), 0U);
}

} // namespace
} // namespace KvRefSystem
