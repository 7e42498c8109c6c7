#include "shell/refsystems/GeodeticReferenceSystem.h"

#include "frame/imported/BaseGrid.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

using TKeys = std::map<int, std::string>;

/** A system with the labels that the expected texts show. */
std::unique_ptr<TShellGeodeticReferenceSystem> Labelled(TGeodeticText const& text) {
    auto system = Geodetic(text);
    system->AxisName[0] = "Lat";
    system->AxisName[1] = "Lon";
    return system;
}

constexpr char const* Wgs84Wkt =
    "GEOGCS[\"WGS 84\",DATUM[\"Test "
    "datum\",SPHEROID[\"Ellipsoid\",6378137,298.257223563],TOWGS84[0,0,0,0,0,0,0]],"
    "PRIMEM[\"Meridian\",0],UNIT[\"degree\",0.0174532925199433],AXIS[\"Lat\",NORTH],AXIS[\"Lon\",EAST]]";

TEST(GeodeticExports, WritesWkt) {
    std::string text;

    ASSERT_TRUE(Labelled(WithZeroShift())->ExportToWKT(&text, false, false));
    EXPECT_EQ(text, Wgs84Wkt);
}

TEST(GeodeticExports, CodesBecomeAuthorities) {
    auto const system = Labelled(WithZeroShift());
    system->GeoTIFFCode = "4326";
    system->DatumGeoTIFFCode = "6326";
    std::string text;

    ASSERT_TRUE(system->ExportToWKT(&text, false, false));

    EXPECT_NE(text.find("TOWGS84[0,0,0,0,0,0,0],AUTHORITY[\"EPSG\",\"6326\"]]"), std::string::npos);
    EXPECT_EQ(text.substr(text.size() - 26), ",AUTHORITY[\"EPSG\",\"4326\"]]");
}

TEST(GeodeticExports, WithoutAShiftTheDatumIsUnspecifiedButKeepsItsCode) {
    auto const system = Labelled(TGeodeticText());
    std::string text;
    ASSERT_TRUE(system->ExportDatumToWKT(&text));
    EXPECT_EQ(text, "DATUM[\"Unspecified\",SPHEROID[\"Ellipsoid\",6378137,298.257223563]]");

    system->DatumGeoTIFFCode = "6326";
    ASSERT_TRUE(system->ExportDatumToWKT(&text));
    EXPECT_EQ(
        text,
        "DATUM[\"Unspecified\",SPHEROID[\"Ellipsoid\",6378137,298.257223563],AUTHORITY[\"EPSG\",\"6326\"]]");
}

TEST(GeodeticExports, CompoundWktHoldsEllipsoidalHeights) {
    std::string text;

    ASSERT_TRUE(Labelled(WithZeroShift())->ExportToWKT(&text, true, false));
    EXPECT_EQ(text,
              "COMPD_CS[\"WGS 84\"," + std::string(Wgs84Wkt) +
                  ",VERT_CS[\"height above ellipsoid\",VERT_DATUM[\"ellipsoidal\",2002],UNIT[\"metre\",1],"
                  "AXIS[\"Up\",UP]]]");
}

TEST(GeodeticExports, AGeoidMakesTheSystemCompound) {
    auto const system = Labelled(WithZeroShift());
    auto const grid = Create(WithZeroShift());
    TLevelGrid surface(0);
    ASSERT_TRUE(system->SetGeoid(" egm96 grid ", &surface, grid.get()));
    std::string text;

    ASSERT_TRUE(system->ExportToWKT(&text, false, false));

    // The spelling stays as given; it is recognised after trimming and upper-casing.
    EXPECT_NE(
        text.find("VERT_CS[\" egm96 grid \",VERT_DATUM[\" egm96 grid \",2005,AUTHORITY[\"EPSG\",\"5171\"]],"
                  "UNIT[\"metre\",1],AXIS[\"Up\",UP],AUTHORITY[\"EPSG\",\"5773\"]]"),
        std::string::npos)
        << text;
}

TEST(GeodeticExports, GeoidNamesAreRecognisedTheOlderModelFirst) {
    auto const system = Labelled(WithZeroShift());
    struct TRow {
        char const* id;
        char const* authority;
    };
    for (TRow const& row : {TRow{"EGM-96", "5773"},
                            {"EGM 96", "5773"},
                            {"Earth Gravitational Model 1996", "5773"},
                            {"egm2008", "3855"},
                            {"EGM-2008", "3855"},
                            {"EGM 2008", "3855"},
                            {"earth gravitational model 2008", "3855"},
                            {"EGM2008 and EGM96", "5773"}}) {
        std::string text;
        ASSERT_TRUE(system->ExportVertRefToWKT(row.id, &text));
        EXPECT_NE(text.find("\"EPSG\",\"" + std::string(row.authority) + "\"]]"), std::string::npos) << text;
    }
    std::string text;
    ASSERT_TRUE(system->ExportVertRefToWKT("local", &text));
    EXPECT_EQ(text, "VERT_CS[\"local\",VERT_DATUM[\"local\",2005],UNIT[\"metre\",1],AXIS[\"Up\",UP]]");
}

TEST(GeodeticExports, ThePrimarySystemIsNamedAfterItsDatum) {
    auto const system = Labelled(WithZeroShift());
    std::string text;

    ASSERT_TRUE(system->Export2DToWKT(&text, true, "Primary ref. system"));
    EXPECT_EQ(text.substr(0, 19), "GEOGCS[\"Test datum\"");
    system->DatumName = "";
    ASSERT_TRUE(system->Export2DToWKT(&text, true, "Primary ref. system"));
    EXPECT_EQ(text.substr(0, 34), "GEOGCS[\"Geodetic reference system\"");
    ASSERT_TRUE(system->Export2DToWKT(&text, true, "other"));
    EXPECT_EQ(text.substr(0, 14), "GEOGCS[\"other\"");
}

TEST(GeodeticExports, AFailureLeavesTheTextAlone) {
    auto const system = Labelled(WithZeroShift());
    system->AngularUnit->CoefToBase = 0.0;
    std::string text = "kept";
    EXPECT_FALSE(system->ExportToWKT(&text, false, false));
    EXPECT_EQ(text, "kept");

    system->Ellipsoid->MajorSemiAxis = "no number";
    EXPECT_FALSE(system->ExportDatumToWKT(&text));
    EXPECT_EQ(text, "kept");
    system->Vertical->Reset();
    EXPECT_FALSE(system->ExportVertRefToWKT("geoid", &text));
    EXPECT_FALSE(system->ExportVertRefToWKT("", &text));
    EXPECT_EQ(text, "kept");
}

TEST(GeodeticExports, MapInfoClauseTakesTheReadyDatum) {
    auto const system = Labelled(Pulkovo1942());
    TStringTree* const settings = Child(system->SavedTree, 101000);
    SetField(settings, 101001, "1");
    SetField(settings, 101002, "m");
    SetField(system->SavedTree, 101003, "1001");
    std::string text;

    ASSERT_TRUE(system->ExportToMIFMID(&text, false));
    EXPECT_EQ(text, "CoordSys Earth Projection 1, 1001");
}

TEST(GeodeticExports, MapInfoClauseSpellsACustomDatumOut) {
    auto const system = Labelled(Pulkovo1942());
    TStringTree* const settings = Child(system->SavedTree, 101000);
    SetField(settings, 101001, "1");
    SetField(settings, 101002, "m");
    SetField(system->SavedTree, 101003, "1001");
    SetField(system->SavedTree->FindSubtree(1107, 0)->FindSubtree(5610, 0), 101004, "3");
    std::string text;

    ASSERT_TRUE(system->ExportToMIFMID(&text, true));
    // The clause's rotations have the sign of the coordinate frame, as the description's: metres, seconds,
    // ppm.
    EXPECT_EQ(text, "CoordSys Earth Projection 1, 9999, 3, 23.57, -140.95, -79.8, 0, -0.35, -0.79, -0.22, 0");
}

TEST(GeodeticExports, MapInfoClauseFallsBackToNonearth) {
    auto const system = Labelled(Pulkovo1942());
    std::string text;

    ASSERT_TRUE(system->ExportToMIFMID(&text, false));
    EXPECT_EQ(text, "CoordSys Nonearth Units \"deg\"");
    SetField(Child(system->SavedTree, 101000), 101002, "m");
    ASSERT_TRUE(system->ExportToMIFMID(&text, false));
    EXPECT_EQ(text, "CoordSys Nonearth Units \"m\"");
    text = "kept";
    EXPECT_FALSE(system->ExportDatumToMIFMID(&text, false));
    EXPECT_EQ(text, "kept");
}

TEST(GeodeticExports, GeoTiffKeysOfAUserDefinedSystem) {
    auto const system = Labelled(WithZeroShift());
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, false));

    EXPECT_EQ(keys[1024], "2");
    EXPECT_EQ(keys[1026], "ORVANE GeoReference");
    EXPECT_EQ(keys[2048], "32767");
    EXPECT_EQ(keys[2049], "WGS 84 ");
    EXPECT_EQ(keys[2050], "32767");
    EXPECT_EQ(keys[2056], "32767");
    EXPECT_EQ(keys[2057], "6378137");
    EXPECT_EQ(keys[2059], "298.257223563");
    EXPECT_EQ(keys[2054], "32767");
    EXPECT_EQ(keys[2055], "0.0174533");
    EXPECT_EQ(keys[4099], "32767");
}

TEST(GeodeticExports, TheVerticalUnitsSizeSharesTheLinearUnitsKey) {
    TGeodeticText text = WithZeroShift();
    text.heightUnit = Foot();
    auto const system = Labelled(text);
    system->GeoTIFFCode = "4326";
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, false));

    EXPECT_EQ(keys[2048], "4326");
    EXPECT_EQ(keys.count(2050), 0U);
    EXPECT_EQ(keys[4099], "32767");
    EXPECT_EQ(keys[2053], "0.3048");
}

TEST(GeodeticExports, GeoTiffWithAGeoidNamesIt) {
    auto const system = Labelled(WithZeroShift());
    auto const grid = Create(WithZeroShift());
    TLevelGrid surface(0);
    ASSERT_TRUE(system->SetGeoid("EGM96", &surface, grid.get()));
    TKeys with;
    TKeys without;

    EXPECT_TRUE(system->ExportToGeoTIFF(&with, true));
    EXPECT_TRUE(system->ExportToGeoTIFF(&without, false));

    EXPECT_EQ(with[4097], "EGM96");
    EXPECT_EQ(without.count(4097), 0U);
}

TEST(GeodeticExports, AnEmptyGeoTiffTypeEndsTheExport) {
    auto const system = Labelled(WithZeroShift());
    system->GeoTIFFType = "";
    TKeys keys;

    EXPECT_FALSE(system->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(keys, (TKeys{{1024, "0"}}));
}

TEST(GeodeticExports, TheClassifiedFormLeavesTheDatumOut) {
    auto const system = Labelled(Pulkovo1942());
    system->GeoTIFFCode = "4284";
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFFClassified(&keys));

    EXPECT_EQ(keys[2048], "32767");
    EXPECT_EQ(keys[2049], "Pulkovo 1942 ");
    for (int const key : {2050, 2051, 2056, 2057, 2059, 2062}) {
        EXPECT_EQ(keys.count(key), 0U) << key;
    }
    EXPECT_EQ(keys[2054], "32767");
    EXPECT_EQ(keys[4099], "32767");
}

TEST(GeodeticExports, PanoramaKeysAreTheGeoTiffOnes) {
    auto const system = Labelled(WithZeroShift());
    TKeys panorama;
    TKeys geotiff;

    EXPECT_TRUE(system->ExportToPanorama(&panorama, false));
    EXPECT_TRUE(system->ExportToGeoTIFF(&geotiff, false));
    EXPECT_EQ(panorama, geotiff);
}

} // namespace
} // namespace KvRefSystem
