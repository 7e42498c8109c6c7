#include "shell/refsystems/GeodeticReferenceSystem.h"

#include "tests/support/Descriptions.h"

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

std::vector<std::string> Fields(TStringTree const& tree) {
    return {FieldOf(tree, 1020),    FieldOf(tree, 1021),    FieldOf(tree, 1022),   FieldOf(tree, 1100),
            FieldOf(tree, 1025, 0), FieldOf(tree, 1025, 1), FieldOf(tree, 1025, 2)};
}

TEST(GeodeticDescriptions, ThePrimarySystemIsInRadiansOnTheSameDatum) {
    auto const system = Create(Pulkovo1942());
    TStringTree tree;

    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTree(&tree), 0);

    EXPECT_EQ(Fields(tree),
              (std::vector<std::string>{"Geodetic", "Auto-generated", "geod", "4", "Lat", "Lon", "H"}));
    EXPECT_EQ(HeaderOf(tree, 1101), "prime meridian");
    EXPECT_EQ(HeaderOf(tree, 1106), "angular units");
    EXPECT_EQ(HeaderOf(tree, 1201), "vertical reference system");
    EXPECT_EQ(HeaderOf(tree, 1107), "datum");
    EXPECT_EQ(HeaderOf(*tree.FindSubtree(1201, 0), 1104), "height linear unit");
    EXPECT_EQ(tree.FindSubtree(1103, 0), nullptr);
    auto const primary = Create(&tree);
    ASSERT_NE(primary, nullptr);
    EXPECT_EQ(primary->GetPlaneUnitCoefToBase(), 1);
    EXPECT_TRUE(*primary ^= *system);
}

TEST(GeodeticDescriptions, ThePrimarySystemInDegreesHasTheStoresTexts) {
    auto const system = Create(Pulkovo1942());
    TStringTree tree;

    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&tree), 0);

    EXPECT_EQ(FieldOf(tree, 1021), "");
    EXPECT_EQ(FieldOf(tree, 1022), "");
    EXPECT_EQ(FieldOf(tree, 1100), "4");
    // Text of the store, a blank, the datum's name.
    EXPECT_EQ(FieldOf(tree, 1020), "Latitude/Longitude Test datum");
    EXPECT_EQ(FieldOf(tree, 1025, 0), "Latitude");
    EXPECT_EQ(FieldOf(tree, 1025, 1), "Longitude");
    EXPECT_EQ(FieldOf(tree, 1025, 2), "H");
    auto const primary = Create(&tree);
    ASSERT_NE(primary, nullptr);
    EXPECT_NEAR(primary->GetPlaneUnitCoefToBase(), 0.017453292519943295, 1e-18);
}

TEST(GeodeticDescriptions, AnEllipsoidWithoutADatumIsCopied) {
    auto const system = Create(TGeodeticText());
    TStringTree tree;

    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTree(&tree), 0);

    EXPECT_EQ(tree.FindSubtree(1107, 0), nullptr);
    EXPECT_EQ(HeaderOf(tree, 1103), "ellipsoid");
    EXPECT_TRUE(*Create(&tree) ^= *system);
}

TEST(GeodeticDescriptions, TheGeocentricSystemTakesTheDatumAndNoEllipsoidAlone) {
    TStringTree tree;
    ASSERT_EQ(Create(Pulkovo1942())->FillPrimaryGeocentricRefSystemTree(&tree), 0);
    EXPECT_EQ(Fields(tree),
              (std::vector<std::string>{"Geocentric", "Auto-generated", "geoc", "3", "X", "Y", "Z"}));
    EXPECT_EQ(HeaderOf(tree, 1104), "linear unit");
    EXPECT_NE(tree.FindSubtree(1107, 0), nullptr);
    EXPECT_EQ(tree.FindSubtree(1201, 0), nullptr);

    TStringTree withoutDatum;
    ASSERT_EQ(Create(TGeodeticText())->FillPrimaryGeocentricRefSystemTree(&withoutDatum), 0);
    EXPECT_EQ(withoutDatum.FindSubtree(1107, 0), nullptr);
    EXPECT_EQ(withoutDatum.FindSubtree(1103, 0), nullptr);
}

TEST(GeodeticDescriptions, AMissingMeridianOrDatumIsStatusNine) {
    auto const system = Create(Pulkovo1942());
    system->SavedTree->DeleteSubtree(1107, 0);
    TStringTree first;
    TStringTree second;
    TStringTree third;
    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&first), 9);
    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&second), 9);
    EXPECT_EQ(system->FillPrimaryGeocentricRefSystemTree(&third), 9);

    auto const withoutMeridian = Create(Pulkovo1942());
    withoutMeridian->SavedTree->DeleteSubtree(1101, 0);
    TStringTree fourth;
    TStringTree fifth;
    EXPECT_EQ(withoutMeridian->FillPrimaryGeodeticRefSystemTree(&fourth), 9);
    EXPECT_EQ(withoutMeridian->FillPrimaryGeocentricRefSystemTree(&fifth), 9);
}

TEST(GeodeticDescriptions, ATakenTagIsStatusNine) {
    auto const system = Create(Pulkovo1942());
    TStringTree tree;
    SetField(&tree, 1022, "taken");

    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&tree), 9);
    EXPECT_EQ(FieldOf(tree, 1020), "Geodetic"); // what was written stays
}

TEST(GeodeticDescriptions, TheInternalSystemHoldsTheWholeDescriptionAndTheOrigin) {
    auto const system = Create(Pulkovo1942());
    TStringTree tree;
    TShellCoords origin;
    origin.Coord[0] = "55";
    origin.Coord[1] = "37";

    ASSERT_TRUE(system->FillInternalRefSystemTree(&tree, origin));

    EXPECT_EQ(Fields(tree), (std::vector<std::string>{"Internal", "Right, topocentric, meters", "Internal",
                                                      "6", "X", "Y", "Z"}));
    EXPECT_EQ(FieldOf(tree, 1400), "0");
    EXPECT_EQ(FieldOf(tree, 1120, 0), "55");
    EXPECT_EQ(FieldOf(tree, 1120, 1), "37");
    EXPECT_EQ(FieldOf(tree, 1120, 2), "");
    EXPECT_EQ(HeaderOf(tree, 1121), "primary reference system");
    EXPECT_TRUE(*Create(tree.FindSubtree(1121, 0)) == *system);
    TStringTree const& metre = *tree.FindSubtree(1104, 0);
    EXPECT_EQ(FieldOf(metre, 5320), "meter");
    EXPECT_EQ(FieldOf(metre, 5321), "m");
    EXPECT_EQ(FieldOf(metre, 5322), "generated (not from Db!)");
    EXPECT_EQ(FieldOf(metre, 5301), "0");
    EXPECT_EQ(FieldOf(metre, 5312), "1");
    EXPECT_EQ(FieldOf(metre, 5310), "1");
    EXPECT_EQ(FieldOf(metre, 5311), "1");
}

TEST(GeodeticDescriptions, TheInternalSystemFailsOnATakenTag) {
    auto const system = Create(Pulkovo1942());
    for (int const tag : {1020, 1400, 1120}) {
        TStringTree tree;
        SetField(&tree, tag, "taken");
        EXPECT_FALSE(system->FillInternalRefSystemTree(&tree, TShellCoords())) << tag;
    }
    TStringTree tree;
    tree.InsertSubtree("taken", 1121, 0);
    EXPECT_FALSE(system->FillInternalRefSystemTree(&tree, TShellCoords()));
}

} // namespace
} // namespace KvRefSystem
