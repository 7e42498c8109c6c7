#include "frame/NumberText.h"
#include "shell/refsystems/GeodeticReferenceSystem.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

std::string FieldOf(TStringTree const& tree, int tag, int idx = 0) {
    std::string value = "(none)";
    tree.GetString(tag, idx, &value);
    return value;
}

std::string HeaderOf(TStringTree const& tree, int tag) {
    TStringTree const* const child = tree.FindSubtree(tag, 0);
    return child ? child->header : "(none)";
}

double NumberOf(TStringTree const& tree, int tag, int idx) {
    return ParseLeadingDouble(FieldOf(tree, tag, idx).c_str());
}

std::vector<std::string> Fields(TStringTree const& tree) {
    return {FieldOf(tree, 1020),    FieldOf(tree, 1021),    FieldOf(tree, 1022),   FieldOf(tree, 1100),
            FieldOf(tree, 1025, 0), FieldOf(tree, 1025, 1), FieldOf(tree, 1025, 2)};
}

TShellCoords Origin(std::string const& first, std::string const& second, std::string const& third) {
    TShellCoords coords;
    coords.Coord[0] = first;
    coords.Coord[1] = second;
    coords.Coord[2] = third;
    return coords;
}

TProjectedText WithDatumAtRoot(TGeodeticText const& base) {
    TProjectedText text = On(base, UtmZone(31, 'N'));
    text.datumAtRoot = true;
    return text;
}

// The internal system

TEST(MapProjectedDescriptions, TheInternalSystemHasItsOriginInTheBaseSystem) {
    auto const system = Projected(On(WithZeroShift(), UtmZone(31, 'N')));
    TStringTree tree;

    // 45 N, 3 E in zone 31.
    ASSERT_TRUE(system->FillInternalRefSystemTree(&tree, Origin("500000", "4982950.4005", "100")));

    EXPECT_EQ(Fields(tree), (std::vector<std::string>{"Internal", "Right, topocentric, meters", "Internal",
                                                      "6", "X", "Y", "Z"}));
    EXPECT_EQ(FieldOf(tree, 1400), "0");
    EXPECT_NEAR(NumberOf(tree, 1120, 0), 45, 5e-9); // half a millimetre of the projection's series
    EXPECT_NEAR(NumberOf(tree, 1120, 1), 3, 1e-12);
    EXPECT_NEAR(NumberOf(tree, 1120, 2), 100, 1e-6);
    EXPECT_EQ(FieldOf(tree, 1120, 3), "(none)");
    EXPECT_EQ(HeaderOf(tree, 1121), "primary reference system");
    EXPECT_EQ(HeaderOf(tree, 1104), "linear unit");
    auto const primary = Create(tree.FindSubtree(1121, 0));
    ASSERT_NE(primary, nullptr);
    EXPECT_TRUE(*primary == *system->BaseGeodetic);
}

TEST(MapProjectedDescriptions, TheOriginIsGivenInTheOrderAndUnitsOfTheSystem) {
    TProjectedText text = Placed(On(WithZeroShift(), UtmZone(31, 'N')), 1, 1, -1);
    text.linearUnit = {0, 1, "1000", "1", "kilometre", "km"};
    text.base.angularUnit = Grad();
    text.base.heightUnit = Foot();
    auto const system = Projected(text);
    TStringTree tree;

    ASSERT_TRUE(system->FillInternalRefSystemTree(&tree, Origin("4982.9504005", "-500", "1000")));

    EXPECT_NEAR(NumberOf(tree, 1120, 0), 50, 5e-9);
    EXPECT_NEAR(NumberOf(tree, 1120, 1), 10.0 / 3, 1e-11);
    EXPECT_NEAR(NumberOf(tree, 1120, 2), 1000, 1e-5);
}

TEST(MapProjectedDescriptions, AnOriginWithoutHeightLiesAtHeightZero) {
    auto const system = Projected(On(WithZeroShift(), UtmZone(31, 'N')));
    TStringTree tree;

    ASSERT_TRUE(system->FillInternalRefSystemTree(&tree, Origin("500000", "4982950.4005", "")));

    EXPECT_NEAR(NumberOf(tree, 1120, 2), 0, 1e-6);
    EXPECT_NE(FieldOf(tree, 1120, 2), "");
}

TEST(MapProjectedDescriptions, AnOriginThatDoesNotParseFails) {
    auto const system = Projected(On(WithZeroShift(), UtmZone(31, 'N')));
    TStringTree tree;

    EXPECT_FALSE(system->FillInternalRefSystemTree(&tree, Origin("x", "4982950.4005", "0")));
    EXPECT_EQ(FieldOf(tree, 1120, 0), "(none)");
}

TEST(MapProjectedDescriptions, TheCopiedBaseIsMadeGeodetic) {
    auto const system = Projected(On(WithZeroShift(), UtmZone(31, 'N')),
                                  [](TStringTree* tree) { SetField(tree->FindSubtree(1121, 0), 1100, "3"); });
    TStringTree tree;

    ASSERT_TRUE(system->FillInternalRefSystemTree(&tree, Origin("500000", "4982950.4005", "0")));

    EXPECT_EQ(FieldOf(*tree.FindSubtree(1121, 0), 1100), "4");
    EXPECT_EQ(FieldOf(*system->SavedTree->FindSubtree(1121, 0), 1100), "3");
}

TEST(MapProjectedDescriptions, TheInternalSystemFailsOnATakenTag) {
    auto const system = Projected(On(WithZeroShift(), UtmZone(31, 'N')));
    for (int const tag : {1020, 1400, 1120}) {
        TStringTree tree;
        SetField(&tree, tag, "taken");
        EXPECT_FALSE(system->FillInternalRefSystemTree(&tree, Origin("500000", "0", "0"))) << tag;
    }
    TStringTree tree;
    tree.InsertSubtree("taken", 1121, 0);
    EXPECT_FALSE(system->FillInternalRefSystemTree(&tree, Origin("500000", "0", "0")));
}

TEST(MapProjectedDescriptions, WithoutItsBaseInTheDescriptionThereIsNoInternalSystem) {
    auto const system = Projected(On(WithZeroShift(), UtmZone(31, 'N')));
    system->SavedTree->DeleteSubtree(1121, 0);
    TStringTree tree;

    EXPECT_FALSE(system->FillInternalRefSystemTree(&tree, Origin("500000", "0", "0")));
}

TEST(MapProjectedDescriptions, ABrokenBaseInTheDescriptionThrowsItsOwnMessage) {
    auto const system = Projected(On(WithZeroShift(), UtmZone(31, 'N')));
    system->SavedTree->FindSubtree(1121, 0)->DeleteSubtree(1201, 0);
    TStringTree tree;

    EXPECT_EQ(ThrownText([&] { system->FillInternalRefSystemTree(&tree, Origin("500000", "0", "0")); }),
              "TShellGeodeticReferenceSystem(TStringTree *tree, TKvProgressHandler *prh)");
}

// Systems on the same datum

TEST(MapProjectedDescriptions, ADatumThatStandsInTheBaseAloneIsNotFound) {
    auto const system = Projected(On(Pulkovo1942(), UtmZone(31, 'N')));
    TStringTree first;
    TStringTree second;
    TStringTree third;

    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&first), 9);
    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&second), 9);
    EXPECT_EQ(system->FillPrimaryGeocentricRefSystemTree(&third), 9);
}

TEST(MapProjectedDescriptions, ADatumAtTheRootGivesThePrimarySystem) {
    auto const system = Projected(WithDatumAtRoot(Pulkovo1942()));
    TStringTree tree;

    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTree(&tree), 0);

    EXPECT_EQ(Fields(tree),
              (std::vector<std::string>{"Geodetic", "Auto-generated", "geod", "4", "Lat", "Lon", "H"}));
    EXPECT_EQ(HeaderOf(tree, 1101), "prime meridian");
    EXPECT_EQ(HeaderOf(tree, 1106), "angular units");
    EXPECT_EQ(HeaderOf(tree, 1201), "vertical reference system");
    EXPECT_EQ(HeaderOf(tree, 1107), "datum");
    auto const primary = Create(&tree);
    ASSERT_NE(primary, nullptr);
    EXPECT_EQ(primary->GetPlaneUnitCoefToBase(), 1);
    EXPECT_TRUE(*primary ^= *system->BaseGeodetic);
}

TEST(MapProjectedDescriptions, ADatumAtTheRootGivesThePrimarySystemInDegrees) {
    auto const system = Projected(WithDatumAtRoot(Pulkovo1942()));
    TStringTree tree;

    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&tree), 0);

    std::string const name = FieldOf(tree, 1020);
    EXPECT_GT(name.size(), 11U);
    EXPECT_EQ(name.substr(name.size() - 11), " Test datum");
    EXPECT_EQ(FieldOf(tree, 1021), "");
    EXPECT_EQ(FieldOf(tree, 1022), "");
    auto const primary = Create(&tree);
    ASSERT_NE(primary, nullptr);
    EXPECT_NEAR(primary->GetPlaneUnitCoefToBase(), 0.017453292519943295, 1e-18);
    EXPECT_TRUE(*primary ^= *system->BaseGeodetic);
}

TEST(MapProjectedDescriptions, ADatumAtTheRootGivesTheGeocentricSystem) {
    auto const system = Projected(WithDatumAtRoot(Pulkovo1942()));
    TStringTree tree;

    ASSERT_EQ(system->FillPrimaryGeocentricRefSystemTree(&tree), 0);

    EXPECT_EQ(Fields(tree),
              (std::vector<std::string>{"Geocentric", "Auto-generated", "geoc", "3", "X", "Y", "Z"}));
    EXPECT_EQ(HeaderOf(tree, 1104), "linear unit");
    EXPECT_EQ(HeaderOf(tree, 1107), "datum");
    EXPECT_EQ(tree.FindSubtree(1201, 0), nullptr);
    EXPECT_EQ(tree.FindSubtree(1106, 0), nullptr);
}

TEST(MapProjectedDescriptions, AnEllipsoidAtTheRootIsEnough) {
    auto const system = Projected(WithDatumAtRoot(TGeodeticText()));
    TStringTree tree;
    TStringTree degrees;

    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTree(&tree), 0);
    EXPECT_EQ(HeaderOf(tree, 1103), "ellipsoid");
    EXPECT_EQ(tree.FindSubtree(1107, 0), nullptr);
    EXPECT_TRUE(*Create(&tree) ^= *system->BaseGeodetic);
    // Without a datum there is no name of one: the label ends with the blank before it.
    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&degrees), 0);
    EXPECT_EQ(FieldOf(degrees, 1020).back(), ' ');
}

TEST(MapProjectedDescriptions, AMeridianAtTheRootAloneIsStatusNine) {
    auto const system = Projected(WithDatumAtRoot(TGeodeticText()));
    system->SavedTree->DeleteSubtree(1103, 0);
    TStringTree first;
    TStringTree second;

    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&first), 9);
    EXPECT_EQ(system->FillPrimaryGeocentricRefSystemTree(&second), 9);
}

TEST(MapProjectedDescriptions, ADatumAtTheRootWithoutAMeridianIsStatusNine) {
    auto const system = Projected(WithDatumAtRoot(Pulkovo1942()));
    system->SavedTree->DeleteSubtree(1101, 0);
    TStringTree first;
    TStringTree second;

    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&first), 9);
    EXPECT_EQ(system->FillPrimaryGeocentricRefSystemTree(&second), 9);
}

// Copies

TEST(MapProjectedDescriptions, ACopyIsEqual) {
    auto const system = Projected(Placed(On(Pulkovo1942(), UtmZone(31, 'N')), 1, 1, -1));

    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());

    ASSERT_NE(copy, nullptr);
    EXPECT_TRUE(*copy == *system);
    EXPECT_EQ(copy->Name, "UTM 31N");
}

TEST(MapProjectedDescriptions, ASystemFromXmlHasNone) {
    auto const system = ProjectedFromXml(XmlOf(*Projected(TransverseMercator("9", "0.9996", "500000"))));
    TStringTree tree;
    std::string text;

    EXPECT_FALSE(system->FillInternalRefSystemTree(&tree, Origin("500000", "0", "0")));
    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&tree), 9);
    EXPECT_EQ(system->CreateCopy(), nullptr);
    EXPECT_FALSE(system->WriteToString(text));
}

} // namespace
} // namespace KvRefSystem
