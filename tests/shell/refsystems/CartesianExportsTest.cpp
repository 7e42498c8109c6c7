#include "tests/support/CartesianSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

using TKeys = std::map<int, std::string>;

TGeocentricText On(TGeodeticText const& base) {
    TGeocentricText text;
    text.base = base;
    return text;
}

void NameAxes(TStringTree* tree) {
    SetField(tree, 1025, "A", 0);
    SetField(tree, 1025, "B", 1);
    SetField(tree, 1025, "C", 2);
}

/** MapInfo settings with everything that a system of the earth would use. */
void AddMifSettings(TStringTree* tree) {
    SetField(Child(tree, 101000), 101001, "1");
    SetField(Child(tree, 101000), 101002, "mif unit");
    SetField(tree, 101003, "1001");
}

std::string WktOf(TShellReferenceSystem const& system, bool compound = false, bool panorama = false) {
    std::string text;
    EXPECT_TRUE(system.ExportToWKT(&text, compound, panorama));
    return text;
}

// WKT

TEST(GeocentricExports, WritesWkt) {
    std::string const expected =
        "GEOCCS[\"Test geocentric\",DATUM[\"Test datum\",SPHEROID[\"Ellipsoid\",6378137,298.257223563],"
        "TOWGS84[0,0,0,0,0,0,0]],PRIMEM[\"Meridian\",0],UNIT[\"metre\",1],"
        "AXIS[\"A\",OTHER],AXIS[\"B\",EAST],AXIS[\"C\",NORTH]]";
    auto const system = Live(On(WithZeroShift()), NameAxes);

    EXPECT_EQ(WktOf(*system), expected);
    EXPECT_EQ(WktOf(*system, true, true), expected);
}

TEST(GeocentricExports, WktHasNoAuthorityOfTheSystem) {
    auto const system = Live(On(WithZeroShift()));
    system->GeoTIFFCode = "4978";
    system->DatumGeoTIFFCode = "6326";
    std::string const text = WktOf(*system);

    EXPECT_EQ(text.find("4978"), std::string::npos);
    EXPECT_NE(text.find(",TOWGS84[0,0,0,0,0,0,0],AUTHORITY[\"EPSG\",\"6326\"]],PRIMEM"), std::string::npos);
}

TEST(GeocentricExports, WktWithoutAShiftIsUnspecified) {
    EXPECT_NE(WktOf(*Live(TGeocentricText())).find("DATUM[\"Unspecified\",SPHEROID["), std::string::npos);
}

TEST(GeocentricExports, WktHasTheMeridianInDegreesAndTheSystemsUnit) {
    TGeocentricText text = On(WithZeroShift());
    text.base.meridian = "10";
    text.base.meridianUnit = Grad();
    text.linearUnit = Foot();

    EXPECT_NE(WktOf(*Live(text)).find(",PRIMEM[\"Meridian\",9],UNIT[\"foot\",0.3048],AXIS"),
              std::string::npos);
}

TEST(GeocentricExports, WktNeedsMeridianAndUnit) {
    auto const withoutMeridian =
        Live(On(WithZeroShift()), [](TStringTree* tree) { tree->DeleteSubtree(1101, 0); });
    auto const withoutFactor =
        Live(On(WithZeroShift()), [](TStringTree* tree) { SetField(tree->FindSubtree(1104, 0), 5310, "0"); });
    auto const badEllipsoid = Live(On(WithZeroShift()));
    badEllipsoid->Ellipsoid->MajorSemiAxis = "long";
    std::string text = "kept";

    EXPECT_FALSE(withoutMeridian->ExportToWKT(&text, false, false));
    EXPECT_FALSE(withoutFactor->ExportToWKT(&text, false, false));
    EXPECT_FALSE(badEllipsoid->ExportToWKT(&text, false, false));
    EXPECT_EQ(text, "kept");
}

TEST(TopocentricExports, WritesWkt) {
    TTopocentricText text;
    auto const right = Live(text, NameAxes);
    text.swap = 1;
    text.linearUnit = Foot();
    auto const left = Live(text, NameAxes);

    EXPECT_EQ(WktOf(*right), "LOCAL_CS[\"Test horizon\",LOCAL_DATUM[\"Local Datum\",0],UNIT[\"metre\",1],"
                             "AXIS[\"A\",EAST],AXIS[\"B\",NORTH],AXIS[\"C\",UP]]");
    EXPECT_EQ(WktOf(*left, true, true),
              "LOCAL_CS[\"Test horizon\",LOCAL_DATUM[\"Local Datum\",0],UNIT[\"foot\",0.3048],"
              "AXIS[\"A\",NORTH],AXIS[\"B\",EAST],AXIS[\"C\",UP]]");
}

TEST(TopocentricExports, TheAzimuthPlaysNoPartInTheAxes) {
    TTopocentricText text;
    auto const straight = Live(text);
    text.azimuth = "5";
    auto const turned = Live(text);
    std::string axes;

    ASSERT_TRUE(turned->ExportAxesToWKT(&axes));
    EXPECT_EQ(axes, "AXIS[\"\",EAST],AXIS[\"\",NORTH],AXIS[\"\",UP]");
    EXPECT_EQ(WktOf(*turned), WktOf(*straight));
}

TEST(LocalExports, WriteWkt) {
    EXPECT_EQ(WktOf(*LiveCartesian(TLocalText(), NameAxes), true, true),
              "LOCAL_CS[\"Test plan\",LOCAL_DATUM[\"Local Datum\",0],UNIT[\"metre\",1],"
              "AXIS[\"A\",OTHER],AXIS[\"B\",OTHER],AXIS[\"C\",OTHER]]");
    TLocalText text = Curved("1000");
    text.linearUnit = Foot();
    text.swap = 1;
    EXPECT_EQ(WktOf(*LiveCurved(text, NameAxes)),
              "LOCAL_CS[\"Test plan\",LOCAL_DATUM[\"Local Datum\",0],UNIT[\"foot\",0.3048],"
              "AXIS[\"A\",OTHER],AXIS[\"B\",OTHER],AXIS[\"C\",OTHER]]");
}

TEST(LocalExports, AUnitWithoutAFactorHasNoWkt) {
    auto const zero = [](TStringTree* tree) { SetField(tree->FindSubtree(1104, 0), 5310, "0"); };
    std::string text = "kept";

    EXPECT_FALSE(LiveCartesian(TLocalText(), zero)->ExportToWKT(&text, false, false));
    EXPECT_FALSE(LiveCurved(Curved("1"), zero)->ExportToWKT(&text, false, false));
    EXPECT_FALSE(Live(TTopocentricText(), zero)->ExportToWKT(&text, false, false));
    EXPECT_EQ(text, "kept");
}

TEST(LocalExports, QuoteMarksInNamesStay) {
    TLocalText text;
    text.name = "a \"plan\"";

    EXPECT_EQ(WktOf(*LiveCartesian(text)).substr(0, 21), "LOCAL_CS[\"a \"plan\"\",L");
}

// MapInfo, the same in all four kinds

template <class System>
void CheckMapInfo(std::unique_ptr<System> plain, std::unique_ptr<System> withSettings,
                  std::unique_ptr<System> withoutAbbreviation) {
    std::string text = "kept";
    TShellReferenceSystem const& asBase = *plain;
    EXPECT_FALSE(asBase.ExportToMIFMID(&text, false));
    EXPECT_FALSE(plain->ExportToMIFMID(&text, true));
    EXPECT_EQ(text, "kept");
    EXPECT_TRUE(plain->ExportToMIFMID(&text));
    EXPECT_EQ(text, "CoordSys Nonearth Units \"m\"");

    // Meant: only the unit of the settings is used, neither projection nor datum.
    text = "";
    EXPECT_TRUE(withSettings->ExportToMIFMID(&text, false));
    EXPECT_EQ(text, "CoordSys Nonearth Units \"mif unit\"");
    text = "";
    EXPECT_TRUE(withSettings->ExportToMIFMID(&text, true));
    EXPECT_EQ(text, "CoordSys Nonearth Units \"mif unit\"");
    text = "";
    EXPECT_TRUE(withSettings->ExportToMIFMID(&text));
    EXPECT_EQ(text, "CoordSys Nonearth Units \"mif unit\"");

    // Meant: the name is no substitute for the abbreviation.
    EXPECT_TRUE(withoutAbbreviation->ExportToMIFMID(&text));
    EXPECT_EQ(text, "CoordSys Nonearth Units \"\"");

    plain->Reset();
    text = "kept";
    EXPECT_FALSE(plain->ExportToMIFMID(&text));
    EXPECT_EQ(text, "kept");
}

void Unabbreviate(TStringTree* tree) {
    SetField(tree->FindSubtree(1104, 0), 5321, "");
}

TEST(CartesianExports, MapInfoClauseOfTheGeocentricKind) {
    TGeocentricText const text = On(WithZeroShift());
    CheckMapInfo(Live(text), Live(text, AddMifSettings), Live(text, Unabbreviate));
}

TEST(CartesianExports, MapInfoClauseOfTheTopocentricKind) {
    TTopocentricText const text;
    CheckMapInfo(Live(text), Live(text, AddMifSettings), Live(text, Unabbreviate));
}

TEST(CartesianExports, MapInfoClauseOfTheLocalCartesianKind) {
    TLocalText const text;
    CheckMapInfo(LiveCartesian(text), LiveCartesian(text, AddMifSettings), LiveCartesian(text, Unabbreviate));
}

TEST(CartesianExports, MapInfoClauseOfTheLocalCurvedKind) {
    TLocalText const text = Curved("1000");
    CheckMapInfo(LiveCurved(text), LiveCurved(text, AddMifSettings), LiveCurved(text, Unabbreviate));
}

TEST(CartesianExports, MapInfoSettingsWithoutAUnitFallBackToTheAbbreviation) {
    auto const system =
        LiveCartesian(TLocalText(), [](TStringTree* tree) { SetField(Child(tree, 101000), 101001, "1"); });
    std::string text = "kept";

    EXPECT_FALSE(system->ExportToMIFMID(&text, false));
    EXPECT_EQ(text, "kept");
    EXPECT_TRUE(system->ExportToMIFMID(&text));
    EXPECT_EQ(text, "CoordSys Nonearth Units \"m\"");
}

// GeoTIFF

TEST(GeocentricExports, GeoTiffKeysOfAUserDefinedSystem) {
    TKeys keys;

    ASSERT_TRUE(Live(On(WithZeroShift()))->ExportToGeoTIFF(&keys, false));

    EXPECT_EQ(keys, (TKeys{{1024, "3"},
                           {1026, "ORVANE GeoReference"},
                           {2048, "32767"},
                           {2049, "Test geocentric "},
                           {2050, "32767"},
                           {2051, "32767"},
                           {2052, "32767"},
                           {2053, "1"},
                           {2056, "32767"},
                           {2057, "6378137"},
                           {2059, "298.257223563"},
                           {2061, "0"},
                           {2062, "0,0,0"}}));
}

TEST(GeocentricExports, GeoTiffKeysOfACodedDatumLeaveTheEllipsoidOut) {
    auto const system = Live(On(WithZeroShift()));
    system->DatumGeoTIFFCode = "6326";
    system->Description = "of the world";
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, false));

    EXPECT_EQ(keys, (TKeys{{1024, "3"},
                           {1026, "ORVANE GeoReference"},
                           {2048, "32767"},
                           {2049, "Test geocentric of the world"},
                           {2050, "6326"},
                           {2051, "32767"},
                           {2052, "32767"},
                           {2053, "1"},
                           {2061, "0"},
                           {2062, "0,0,0"}}));
}

TEST(GeocentricExports, GeoTiffKeysWithoutDatumAndEllipsoid) {
    auto const system = Live(TGeocentricText(), [](TStringTree* tree) { tree->DeleteSubtree(1103, 0); });
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, false));

    EXPECT_EQ(keys, (TKeys{{1024, "3"},
                           {1026, "ORVANE GeoReference"},
                           {2048, "32767"},
                           {2049, "Test geocentric "},
                           {2051, "32767"},
                           {2052, "32767"},
                           {2053, "1"},
                           {2061, "0"}}));
}

TEST(GeocentricExports, ACodedSystemNeedsNoOtherGeoTiffKeys) {
    auto const system = Live(On(WithZeroShift()));
    system->GeoTIFFCode = "4978";
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, true));

    EXPECT_EQ(keys, (TKeys{{1024, "3"}, {1026, "ORVANE GeoReference"}, {2048, "4978"}}));
}

TEST(GeocentricExports, TheMeridianIsInItsOwnUnit) {
    TGeocentricText text = On(WithZeroShift());
    text.base.meridian = "0.5";
    text.base.meridianUnit = Grad();
    TKeys keys;
    ASSERT_TRUE(Live(text)->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(keys[2061].substr(0, 3), "0.5");

    auto const coded = Live(text);
    coded->PrimeMeridian->GeoTIFFCode = 8901;
    keys.clear();
    ASSERT_TRUE(coded->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(keys[2051], "8901");
    EXPECT_EQ(keys.count(2061), 0U);
}

TEST(GeocentricExports, TheEllipsoidsUnitTakesTheKeysOfTheLinearUnit) {
    // Kept: an insertion replaces no key, and the ellipsoid's own unit comes first.
    TGeocentricText text = On(WithZeroShift());
    text.linearUnit = Foot();
    TKeys keys;
    ASSERT_TRUE(Live(text)->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(keys[2053], "1");

    auto const coded = Live(text);
    coded->DatumGeoTIFFCode = "6326";
    keys.clear();
    ASSERT_TRUE(coded->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(keys[2053], "0.3048");
}

TEST(GeocentricExports, GeoTiffNeedsTypeAndMeridian) {
    auto const withoutType = Live(On(WithZeroShift()));
    withoutType->GeoTIFFType = "";
    TKeys keys;
    EXPECT_FALSE(withoutType->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(keys, (TKeys{{1024, "0"}}));
    EXPECT_FALSE(withoutType->ExportToGeoTIFFClassified(&keys));

    auto const withoutMeridian =
        Live(On(WithZeroShift()), [](TStringTree* tree) { tree->DeleteSubtree(1101, 0); });
    EXPECT_FALSE(withoutMeridian->ExportToGeoTIFF(&keys, false));
    auto const badMeridian = Live(On(WithZeroShift()));
    badMeridian->PrimeMeridian->Longitude = "east";
    EXPECT_FALSE(badMeridian->ExportToGeoTIFF(&keys, false));
}

TEST(GeocentricExports, TheClassifiedFormLeavesTheDatumOut) {
    auto const system = Live(On(Pulkovo1942()));
    system->GeoTIFFCode = "4978";
    system->DatumGeoTIFFCode = "6284";
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFFClassified(&keys));

    EXPECT_EQ(keys, (TKeys{{1024, "3"},
                           {1026, "ORVANE GeoReference"},
                           {2048, "32767"},
                           {2049, "Test geocentric "},
                           {2052, "32767"},
                           {2053, "1"}}));
}

TEST(CartesianExports, UnitsWithACodeWriteIt) {
    auto const system = Live(TGeocentricText(), [](TStringTree* tree) {
        tree->DeleteSubtree(1103, 0);
        SetField(tree->FindSubtree(1104, 0), 102002, "9001");
    });
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFFClassified(&keys));
    EXPECT_EQ(keys[2052], "9001");
    EXPECT_EQ(keys.count(2053), 0U);
}

TEST(CartesianExports, KindsWithoutAGeoTiffFormSayZero) {
    std::unique_ptr<TShellReferenceSystem> const systems[] = {
        Live(TTopocentricText()), LiveCartesian(TLocalText()), LiveCurved(Curved("1000"))};
    for (auto const& system : systems) {
        TKeys keys;
        EXPECT_FALSE(system->ExportToGeoTIFF(&keys, true));
        EXPECT_EQ(keys, (TKeys{{1024, "0"}}));
        EXPECT_FALSE(system->ExportToGeoTIFFClassified(&keys));
        EXPECT_FALSE(system->ExportToPanorama(&keys, true));
        EXPECT_EQ(keys, (TKeys{{1024, "0"}}));
    }
}

TEST(CartesianExports, ADescribedGeoTiffTypeIsWrittenAsItStands) {
    auto const describe = [](TStringTree* tree) {
        SetField(tree, 102001, "32767");
        SetField(tree, 102005, "1234");
    };
    std::unique_ptr<TShellReferenceSystem> const systems[] = {Live(TTopocentricText(), describe),
                                                              LiveCartesian(TLocalText(), describe),
                                                              LiveCurved(Curved("1000"), describe)};
    for (auto const& system : systems) {
        TKeys keys;
        EXPECT_TRUE(system->ExportToGeoTIFF(&keys, true));
        EXPECT_EQ(keys, (TKeys{{1024, "32767"}, {1026, "ORVANE GeoReference"}}));
        EXPECT_EQ(system->GetGeoTIFFCode(), 1234U);
    }
}

TEST(GeocentricExports, PanoramaKeysAreTheGeoTiffOnes) {
    auto const system = Live(On(Pulkovo1942()));
    TKeys panorama;
    TKeys geotiff;

    EXPECT_TRUE(system->ExportToPanorama(&panorama, false));
    EXPECT_TRUE(system->ExportToGeoTIFF(&geotiff, false));
    EXPECT_EQ(panorama, geotiff);
    // Seven numbers in the position vector's sense: the rotations change their sign, the zero too.
    EXPECT_EQ(geotiff[2062], "23.57,-140.95,-79.8,-0,0.35,0.79,-0.22");
}

TEST(CartesianExports, ANameMayTakeTheSystemsExport) {
    std::unique_ptr<TShellReferenceSystem> const systems[] = {
        Live(On(WithZeroShift())), Live(TTopocentricText()), LiveCartesian(TLocalText()),
        LiveCurved(Curved("1000"))};
    for (auto const& system : systems) {
        std::string const expected = WktOf(*system);
        EXPECT_TRUE(system->ExportToWKT(&system->Name, true, false));
        EXPECT_EQ(system->Name, expected);
        std::string const axes = "AXIS[\"" + system->AxisName[0];
        EXPECT_TRUE(system->ExportAxesToWKT(&system->AxisName[0]));
        EXPECT_EQ(system->AxisName[0].substr(0, axes.size()), axes);
    }
}

} // namespace
} // namespace KvRefSystem
