#include "shell/refsystems/GeodeticReferenceSystem.h"

#include "frame/imported/BaseGrid.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

using TKeys = std::map<int, std::string>;

TEST(GeodeticExportsEdge, ANameIsTakenForThePrimarySystemsToo) {
    auto const system = Geodetic(WithZeroShift());
    system->Name = "Primary ref. system";
    std::string text;

    ASSERT_TRUE(system->Export2DToWKT(&text, false, ""));
    EXPECT_EQ(text.substr(0, 19), "GEOGCS[\"Test datum\"");
    system->Name = "Primary ref. system ";
    ASSERT_TRUE(system->Export2DToWKT(&text, false, ""));
    EXPECT_EQ(text.substr(0, 30), "GEOGCS[\"Primary ref. system \",");
}

TEST(GeodeticExportsEdge, WktInDegreesKeepsTheMeridianInTheSystemsUnit) {
    TGeodeticText text = WithZeroShift();
    text.angularUnit = Grad();
    text.meridian = "90";
    std::string wkt;

    ASSERT_TRUE(Geodetic(text)->Export2DToWKT(&wkt, true, ""));
    EXPECT_NE(wkt.find("PRIMEM[\"Meridian\",100]"), std::string::npos) << wkt;
    EXPECT_NE(wkt.find("0.0174532925199433"), std::string::npos) << wkt;
}

TEST(GeodeticExportsEdge, AReadyMapInfoDatumNeedsTheZeroMeridian) {
    TGeodeticText text = Pulkovo1942();
    text.meridian = "30";
    auto const system = Geodetic(text);
    SetField(system->SavedTree, 101003, "1001");
    std::string clause = "kept";

    EXPECT_FALSE(system->ExportDatumToMIFMID(&clause, false)); // no code of the ellipsoid either
    EXPECT_EQ(clause, "kept");
    SetField(system->SavedTree->FindSubtree(1107, 0)->FindSubtree(5610, 0), 101004, "3");
    ASSERT_TRUE(system->ExportDatumToMIFMID(&clause, false));
    EXPECT_EQ(clause.substr(0, 9), "9999, 3, ");
    SetField(system->SavedTree->FindSubtree(1107, 0)->FindSubtree(5610, 0), 101004, "");
    EXPECT_FALSE(system->ExportDatumToMIFMID(&clause, false));
}

TEST(GeodeticExportsEdge, TheMapInfoClauseNeedsItsUnitThoughItIsNotPrinted) {
    auto const system = Geodetic(WithZeroShift());
    TStringTree* const settings = Child(system->SavedTree, 101000);
    SetField(settings, 101001, "1");
    SetField(system->SavedTree, 101003, "104");
    std::string clause;

    ASSERT_TRUE(system->ExportToMIFMID(&clause, false));
    EXPECT_EQ(clause, "CoordSys Nonearth Units \"deg\"");
    SetField(settings, 101002, "m");
    ASSERT_TRUE(system->ExportToMIFMID(&clause, false));
    EXPECT_EQ(clause, "CoordSys Earth Projection 1, 104");
    EXPECT_EQ(system->SavedTree->parent, nullptr); // the description is at its root after exports
}

TEST(GeodeticExportsEdge, GeoTiffInAChosenUnit) {
    TGeodeticText text = WithZeroShift();
    text.meridian = "90";
    auto const system = Geodetic(text);
    system->DatumGeoTIFFCode = "6326";
    TStringTree grad;
    FillUnit(&grad, Grad());
    TShellAngularUnit const unit(&grad);
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, false, &unit));

    EXPECT_EQ(keys[2050], "6326");
    EXPECT_EQ(keys[2055], "0.015708"); // pi/200
    EXPECT_EQ(keys[2051], "32767");
    EXPECT_EQ(keys[2061].substr(0, 3), "100"); // 90 degrees
    EXPECT_FALSE(system->ExportToGeoTIFF(&keys, false, nullptr));
}

TEST(GeodeticExportsEdge, ExportsOfAnUnparsableComponentAreFalseAndNothingThrows) {
    auto const system = Geodetic(WithZeroShift());
    system->PrimeMeridian->Longitude = "no number";
    std::string text = "kept";
    TKeys keys;

    EXPECT_FALSE(system->ExportToGeoTIFF(&keys, false));
    EXPECT_FALSE(system->ExportToPanorama(&keys, false));
    EXPECT_FALSE(system->ExportToWKT(&text, true, false));
    EXPECT_EQ(text, "kept");
}

TEST(GeodeticExportsEdge, ExportsWithoutComponentsAreFalse) {
    auto const system = Geodetic(WithZeroShift());
    delete system->PrimeMeridian;
    system->PrimeMeridian = nullptr;
    std::string text = "kept";
    TKeys keys;

    EXPECT_FALSE(system->ExportToWKT(&text, false, false));
    EXPECT_FALSE(system->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(text, "kept");
    delete system->Ellipsoid;
    system->Ellipsoid = nullptr;
    delete system->DatumShift;
    system->DatumShift = nullptr;
    ASSERT_TRUE(system->ExportDatumToWKT(&text));
    EXPECT_EQ(text, "DATUM[\"Unspecified\",]");
    EXPECT_EQ(system->CalculateArea({{{0, 0, 0}}, {{0, 1, 0}}, {{1, 1, 0}}}), 0.0);
}

TEST(GeodeticExportsEdge, TheClassifiedFormNeedsAGeoTiffTypeToo) {
    auto const system = Geodetic(WithZeroShift());
    system->GeoTIFFType = "";
    TKeys keys;

    EXPECT_FALSE(system->ExportToGeoTIFFClassified(&keys));
    EXPECT_EQ(keys, (TKeys{{1024, "0"}}));
}

TEST(GeodeticExportsEdge, AGeoidMayBeNamedWithTheCompoundFormByItsId) {
    auto const system = Geodetic(WithZeroShift());
    auto const grid = Create(WithZeroShift());
    TLevelGrid surface(0);
    ASSERT_TRUE(system->SetGeoid("local", &surface, grid.get()));
    std::string text;

    ASSERT_TRUE(system->ExportToWKT(&text, true, true));

    EXPECT_EQ(text.substr(0, 27), "COMPD_CS[\"WGS 84\",GEOGCS[\"W");
    EXPECT_NE(text.find(",VERT_CS[\"local\",VERT_DATUM[\"local\",2005],"), std::string::npos);
}

TEST(GeodeticExportsEdge, AUserDefinedSystemCarriesItsDatumShift) {
    auto const system = Geodetic(Pulkovo1942());
    std::map<int, std::string> keys;
    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, false));
    // The sign of the rotations is that of the position vector, as in TOWGS84.
    EXPECT_EQ(keys[2062], "23.57,-140.95,-79.8,-0,0.35,0.79,-0.22");
    system->GeoTIFFCode = "4284";
    keys.clear();
    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(keys.count(2062), 0U);
}

} // namespace
} // namespace KvRefSystem
