#include "frame/NumberText.h"
#include "frame/imported/BaseGrid.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

using TKeys = std::map<int, std::string>;

/** WGS 84 with a shift that is told in full: position vector, metres, seconds and ppm. */
TGeodeticText ShiftedBase() {
    TGeodeticText text = WithZeroShift();
    text.shiftType = 2;
    std::string const numbers[7] = {"1", "2", "3", "0.5", "-0.25", "0.75", "1.5"};
    std::copy(std::begin(numbers), std::end(numbers), text.shift);
    return text;
}

TProjectedText Mercator() {
    return On(ShiftedBase(), TransverseMercator("9", "0.9996", "500000"));
}

/** A system with the labels that the expected texts show. */
std::unique_ptr<TProjectedSystem> Labelled(TProjectedText const& text) {
    auto system = Projected(text);
    system->AxisName[0] = "E";
    system->AxisName[1] = "N";
    system->BaseGeodetic->AxisName[0] = "Lat";
    system->BaseGeodetic->AxisName[1] = "Lon";
    return system;
}

/** The settings of a MapInfo clause at the root of the description. */
void AddMifSettings(TStringTree* tree) {
    TStringTree* const settings = Child(tree, 101000);
    SetField(settings, 101001, "8");
    SetField(settings, 101002, "m");
    SetField(tree, 101003, "104");
}

std::string GeographicWkt(std::string const& name) {
    return "GEOGCS[\"" + name +
           "\",DATUM[\"Test datum\",SPHEROID[\"Ellipsoid\",6378137,298.257223563],"
           "TOWGS84[1,2,3,0.5,-0.25,0.75,1.5]],PRIMEM[\"Meridian\",0],UNIT[\"degree\",0.0174532925199433],"
           "AXIS[\"Lat\",NORTH],AXIS[\"Lon\",EAST]]";
}

std::string ProjectedWkt(std::string const& geographicName) {
    return "PROJCS[\"Test projection\"," + GeographicWkt(geographicName) +
           ",PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"latitude_of_origin\",0],\t"
           "PARAMETER[\"central_meridian\",9],\tPARAMETER[\"scale_factor\",0.9996],\t"
           "PARAMETER[\"false_easting\",500000],\tPARAMETER[\"false_northing\",0],UNIT[\"metre\",1],"
           "AXIS[\"E\",EAST],AXIS[\"N\",NORTH]]";
}

constexpr char const* MercatorClause = ", 9, 0, 0.9996, 500000, 0";

// WKT

TEST(MapProjectedExports, WritesWkt) {
    std::string text;

    ASSERT_TRUE(Labelled(Mercator())->ExportToWKT(&text, false, false));
    EXPECT_EQ(text, ProjectedWkt("WGS 84"));
    ASSERT_TRUE(Labelled(Mercator())->Export2DToWKT(&text, false));
    EXPECT_EQ(text, ProjectedWkt("WGS 84"));
}

TEST(MapProjectedExports, TheGeographicSystemIsInDegreesWhateverTheBasesUnit) {
    TProjectedText text = Mercator();
    text.base.angularUnit = Grad();
    std::string wkt;

    ASSERT_TRUE(Labelled(text)->ExportToWKT(&wkt, false, false));
    EXPECT_EQ(wkt, ProjectedWkt("WGS 84"));
}

TEST(MapProjectedExports, TheGeographicSystemIsNamedAfterTheDatumAtTheRoot) {
    TProjectedText text = Mercator();
    text.datumAtRoot = true;
    std::string wkt;

    ASSERT_TRUE(Labelled(text)->ExportToWKT(&wkt, false, false));
    EXPECT_EQ(wkt, ProjectedWkt("Test datum"));
}

TEST(MapProjectedExports, ThePanoramaNameReplacesThatOfTheGeographicSystem) {
    TProjectedText text = Mercator();
    text.datumAtRoot = true;
    auto const system = Labelled(text);
    system->PanoramaCode = "80011001";
    std::string wkt;

    ASSERT_TRUE(system->ExportToWKT(&wkt, false, true));
    EXPECT_EQ(wkt, ProjectedWkt("PZ-90.11 Zone 1"));
    ASSERT_TRUE(system->Export2DToWKT(&wkt, true));
    EXPECT_EQ(wkt, ProjectedWkt("PZ-90.11 Zone 1"));
    ASSERT_TRUE(system->ExportToWKT(&wkt, false, false));
    EXPECT_EQ(wkt, ProjectedWkt("Test datum"));
    system->PanoramaCode = "1";
    ASSERT_TRUE(system->ExportToWKT(&wkt, false, true));
    EXPECT_EQ(wkt, ProjectedWkt("Test datum"));
}

TEST(MapProjectedExports, APrimarySystemIsNamedAfterItsDatum) {
    TProjectedText text = Mercator();
    text.base.name = "Primary ref. system";
    std::string wkt;

    ASSERT_TRUE(Labelled(text)->ExportToWKT(&wkt, false, false));
    EXPECT_EQ(wkt, ProjectedWkt("Test datum"));
}

TEST(MapProjectedExports, ACodeBecomesAnAuthority) {
    auto const system = Labelled(Mercator());
    system->GeoTIFFCode = "32632";
    std::string text;
    std::string const bare = ProjectedWkt("WGS 84");

    ASSERT_TRUE(system->ExportToWKT(&text, false, false));
    EXPECT_EQ(text, bare.substr(0, bare.size() - 1) + ",AUTHORITY[\"EPSG\",\"32632\"]]");
}

TEST(MapProjectedExports, UnitsAndAxesAreTheSystemsOwn) {
    TProjectedText text = Placed(Mercator(), 1, -1, 1);
    text.linearUnit = Foot();
    std::string wkt;

    ASSERT_TRUE(Labelled(text)->ExportToWKT(&wkt, false, false));

    // The parameters stay in metres.
    std::string const end = "PARAMETER[\"false_easting\",500000],\tPARAMETER[\"false_northing\",0],"
                            "UNIT[\"foot\",0.3048],AXIS[\"E\",SOUTH],AXIS[\"N\",EAST]]";
    ASSERT_GT(wkt.size(), end.size());
    EXPECT_EQ(wkt.substr(wkt.size() - end.size()), end);
}

TEST(MapProjectedExports, AxesByOrderAndSigns) {
    struct TRow {
        int flip;
        int first;
        int second;
        char const* expectedFirst;
        char const* expectedSecond;
    };
    for (TRow const& row : {TRow{0, 1, 1, "EAST", "NORTH"},
                            {0, -1, 1, "WEST", "NORTH"},
                            {0, 1, -1, "EAST", "SOUTH"},
                            {0, 0, 0, "WEST", "SOUTH"},
                            {0, 2, 2, "EAST", "NORTH"},
                            {1, 1, 1, "NORTH", "EAST"},
                            {1, -1, 1, "SOUTH", "EAST"},
                            {1, 1, -1, "NORTH", "WEST"},
                            {1, 0, 0, "SOUTH", "WEST"}}) {
        std::string text;
        ASSERT_TRUE(Labelled(Placed(Mercator(), row.flip, row.first, row.second))->ExportAxesToWKT(&text));
        EXPECT_EQ(text, "AXIS[\"E\"," + std::string(row.expectedFirst) + "],AXIS[\"N\"," +
                            row.expectedSecond + "]");
    }
}

TEST(MapProjectedExports, CompoundWktHoldsEllipsoidalHeights) {
    TProjectedText text = Mercator();
    text.base.heightUnit = Foot();
    std::string wkt;

    ASSERT_TRUE(Labelled(text)->ExportToWKT(&wkt, true, false));
    EXPECT_EQ(
        wkt, "COMPD_CS[\"Test projection\"," + ProjectedWkt("WGS 84") +
                 ",VERT_CS[\"height above ellipsoid\",VERT_DATUM[\"ellipsoidal\",2002],UNIT[\"foot\",0.3048],"
                 "AXIS[\"Up\",UP]]]");
}

TEST(MapProjectedExports, AGeoidMakesTheSystemCompound) {
    auto const system = Labelled(Mercator());
    auto const grid = Create(WithZeroShift());
    TLevelGrid surface(0);
    ASSERT_TRUE(system->SetGeoid("EGM2008", &surface, grid.get()));
    std::string text;

    ASSERT_TRUE(system->ExportToWKT(&text, false, false));
    EXPECT_EQ(text, "COMPD_CS[\"Test projection\"," + ProjectedWkt("WGS 84") +
                        ",VERT_CS[\"EGM2008\",VERT_DATUM[\"EGM2008\",2005,AUTHORITY[\"EPSG\",\"1027\"]],"
                        "UNIT[\"metre\",1],AXIS[\"Up\",UP],AUTHORITY[\"EPSG\",\"3855\"]]]");
}

TEST(MapProjectedExports, AProjectionWithoutAWktFormFailsAndLeavesTheText) {
    for (int const type : AllProjectionTypes) {
        bool const hasForm = type == 1 || type == 4 || type == 14 || type == 15 || type == 101 ||
                             type == 1001 || type == 1002 || type == 1313;
        std::string text = "kept";
        EXPECT_EQ(Labelled(OfType(type))->ExportToWKT(&text, false, false), hasForm) << type;
        EXPECT_EQ(text == "kept", !hasForm) << type;
    }
}

TEST(MapProjectedExports, AnyPieceThatFailsLeavesTheText) {
    std::string text = "kept";
    auto const withoutUnit = Labelled(Mercator());
    withoutUnit->LinearUnit->CoefToBase = 0.0;
    EXPECT_FALSE(withoutUnit->ExportToWKT(&text, false, false));
    auto const withoutEllipsoid = Labelled(Mercator());
    withoutEllipsoid->BaseGeodetic->Ellipsoid->MajorSemiAxis = "no number";
    EXPECT_FALSE(withoutEllipsoid->ExportToWKT(&text, true, false));
    auto const withoutHeights = Labelled(Mercator());
    withoutHeights->BaseGeodetic->Vertical->Reset();
    EXPECT_FALSE(withoutHeights->ExportToWKT(&text, true, false));
    auto const emptied = Labelled(Mercator());
    emptied->Reset();
    EXPECT_FALSE(emptied->ExportToWKT(&text, false, false));
    EXPECT_FALSE(emptied->Export2DToWKT(&text, true));
    EXPECT_EQ(text, "kept");
}

// MapInfo

TEST(MapProjectedExports, MapInfoClauseTakesTheReadyDatum) {
    TProjectedText text = Mercator();
    text.datumAtRoot = true;
    std::string clause;

    ASSERT_TRUE(Projected(text, AddMifSettings)->ExportToMIFMID(&clause, false));
    EXPECT_EQ(clause, "CoordSys Earth Projection 8, 104, \"m\"" + std::string(MercatorClause));
}

TEST(MapProjectedExports, MapInfoClauseSpellsACustomDatumOut) {
    TProjectedText text = Mercator();
    text.datumAtRoot = true;
    auto const system = Projected(text, [](TStringTree* tree) {
        AddMifSettings(tree);
        SetField(tree->FindSubtree(1107, 0)->FindSubtree(5610, 0), 101004, "28");
    });
    std::string clause;

    ASSERT_TRUE(system->ExportToMIFMID(&clause, true));
    // The clause's rotations have the other sign: those of the coordinate frame.
    EXPECT_EQ(clause, "CoordSys Earth Projection 8, 9999, 28, 1, 2, 3, -0.5, 0.25, -0.75, 1.5, 0, \"m\"" +
                          std::string(MercatorClause));
}

TEST(MapProjectedExports, MapInfoClauseHasTheFalseOriginInTheSystemsUnit) {
    TProjectedText text = Mercator();
    text.datumAtRoot = true;
    text.linearUnit = {0, 1, "1000", "1", "kilometre", "km"};
    std::string clause;

    ASSERT_TRUE(Projected(text, AddMifSettings)->ExportToMIFMID(&clause, false));
    EXPECT_EQ(clause, "CoordSys Earth Projection 8, 104, \"m\", 9, 0, 0.9996, 500, 0");
}

TEST(MapProjectedExports, ADatumInTheBaseAloneHasNoPlaceOnTheEarth) {
    std::string clause;

    // The meridian and the datum of the clause are those of the root.
    ASSERT_TRUE(Projected(Mercator(), AddMifSettings)->ExportToMIFMID(&clause, false));
    EXPECT_EQ(clause, "CoordSys Nonearth Units \"m\"");
    ASSERT_TRUE(Projected(Mercator(), AddMifSettings)->ExportToMIFMID(&clause, true));
    EXPECT_EQ(clause, "CoordSys Nonearth Units \"m\"");
}

TEST(MapProjectedExports, AProjectionWithoutAMapInfoFormIsNonearthWithTheSetUnit) {
    TProjectedText text = On(ShiftedBase(), OfType(8));
    text.datumAtRoot = true;
    std::string clause;

    ASSERT_TRUE(Projected(text, [](TStringTree* tree) {
                    AddMifSettings(tree);
                    SetField(tree->FindSubtree(101000, 0), 101002, "survey ft");
                })->ExportToMIFMID(&clause, false));
    EXPECT_EQ(clause, "CoordSys Nonearth Units \"survey ft\"");
}

TEST(MapProjectedExports, WithoutSettingsTheClauseIsNonearthInTheSystemsUnit) {
    TProjectedText text = Mercator();
    text.datumAtRoot = true;
    text.linearUnit = Foot();
    std::string clause;

    ASSERT_TRUE(Projected(text)->ExportToMIFMID(&clause, false));
    EXPECT_EQ(clause, "CoordSys Nonearth Units \"ft\"");
}

TEST(MapProjectedExports, EachMapInfoSettingIsNeeded) {
    TProjectedText text = Mercator();
    text.datumAtRoot = true;
    std::string clause;
    auto const without = [&](int tag) {
        return Projected(text, [&](TStringTree* tree) {
            AddMifSettings(tree);
            tree->FindSubtree(101000, 0)->DeleteField(tag, 0);
        });
    };

    ASSERT_TRUE(without(101001)->ExportToMIFMID(&clause, false));
    EXPECT_EQ(clause, "CoordSys Nonearth Units \"m\"");
    ASSERT_TRUE(without(101002)->ExportToMIFMID(&clause, false));
    EXPECT_EQ(clause, "CoordSys Nonearth Units \"m\"");
}

// GeoTIFF

TEST(MapProjectedExports, GeoTiffKeysOfACodedSystemAreItsCodeAndTheShift) {
    TProjectedText text = Mercator();
    auto const system = Labelled(text);
    system->GeoTIFFCode = "32632";
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, false));

    EXPECT_EQ(keys, (TKeys{{1024, "1"},
                           {1026, "ORVANE GeoReference"},
                           {2062, "1,2,3,0.5,-0.25,0.75,1.5"},
                           {3072, "32632"},
                           {4099, "32767"}}));
}

TEST(MapProjectedExports, GeoTiffKeysOfACodedSystemWithoutAShift) {
    auto const system = Labelled(On(TGeodeticText(), Mercator()));
    system->GeoTIFFCode = "32632";
    TKeys keys = {{3072, "old"}, {9999, "of the host"}};

    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, false));

    // The map is emptied before the code is written.
    EXPECT_EQ(keys, (TKeys{{1024, "1"}, {1026, "ORVANE GeoReference"}, {3072, "32632"}, {4099, "32767"}}));
}

TEST(MapProjectedExports, ACodedSystemNamesItsGeoidEvenWithoutBeingAsked) {
    auto const system = Labelled(Mercator());
    auto const grid = Create(WithZeroShift());
    TLevelGrid surface(0);
    ASSERT_TRUE(system->SetGeoid("EGM96", &surface, grid.get()));
    system->GeoTIFFCode = "32632";
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(keys[4097], "EGM96");
    EXPECT_EQ(keys[4099], "32767");
}

TEST(MapProjectedExports, GeoTiffKeysOfAUserDefinedSystem) {
    TProjectedText text = Mercator();
    text.description = "told";
    text.base.angularUnit = Grad();
    auto const system =
        Projected(text, [](TStringTree* tree) { SetField(tree->FindSubtree(1300, 0), 102008, "1"); });
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, false));

    EXPECT_EQ(keys[1024], "1"); // that of the base is replaced
    EXPECT_EQ(keys[1026], "ORVANE GeoReference");
    EXPECT_EQ(keys[2048], "32767");
    EXPECT_EQ(keys[2049], "WGS 84 ");
    EXPECT_EQ(keys[2050], "32767");
    EXPECT_EQ(keys[2057], "6378137");
    EXPECT_EQ(keys[2062], "1,2,3,0.5,-0.25,0.75,1.5");
    EXPECT_EQ(keys[2054], "9102"); // degrees, though the base counts in grads
    EXPECT_EQ(keys[3072], "32767");
    EXPECT_EQ(keys[3073], "Test projection told");
    EXPECT_EQ(keys[3074], "32767");
    EXPECT_EQ(keys[3075], "1");
    EXPECT_EQ(keys[3076], "32767");
    EXPECT_EQ(keys[3077], "1");
    EXPECT_EQ(ParseLeadingDouble(keys[3081].c_str()), 0);
    EXPECT_NEAR(ParseLeadingDouble(keys[3088].c_str()), 9, 1e-12);
    EXPECT_EQ(keys[3092], "0.9996");
    EXPECT_EQ(keys[3082], "500000");
    EXPECT_EQ(keys[3083], "0");
    EXPECT_EQ(keys[4099], "32767");
}

TEST(MapProjectedExports, GeoTiffParametersAreInTheSystemsUnit) {
    TProjectedText text = Mercator();
    text.linearUnit = {0, 1, "1000", "1", "kilometre", "km"};
    auto const system =
        Projected(text, [](TStringTree* tree) { SetField(tree->FindSubtree(1300, 0), 102008, "1"); });
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(keys[3077], "1000");
    EXPECT_EQ(ParseLeadingDouble(keys[3082].c_str()), 500);
}

TEST(MapProjectedExports, AProjectionsCodeStandsForItsParameters) {
    auto const system = Projected(
        Mercator(), [](TStringTree* tree) { SetField(tree->FindSubtree(1300, 0), 102007, "16032"); });
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(keys[3074], "16032");
    EXPECT_EQ(keys.count(3075), 0U);
    EXPECT_EQ(keys.count(3082), 0U);
}

TEST(MapProjectedExports, AProjectionWithoutCodeAndTypeFails) {
    TKeys keys;

    EXPECT_FALSE(Projected(Mercator())->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(keys[3074], "32767");
    EXPECT_EQ(keys.count(3075), 0U);
}

TEST(MapProjectedExports, AnEmptyGeoTiffTypeEndsTheExport) {
    auto const base = Labelled(Mercator());
    base->BaseGeodetic->GeoTIFFType = "";
    TKeys ofTheBase;
    EXPECT_FALSE(base->ExportToGeoTIFF(&ofTheBase, false));
    EXPECT_EQ(ofTheBase, (TKeys{{1024, "0"}}));

    auto const system = Labelled(Mercator());
    system->GeoTIFFType = "";
    TKeys keys;
    EXPECT_FALSE(system->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(keys[1024], "0");
    EXPECT_EQ(keys.count(3072), 0U);
}

TEST(MapProjectedExports, TheClassifiedFormLeavesDatumAndProjectionOut) {
    TProjectedText text = Mercator();
    text.linearUnit = Foot();
    auto const system = Labelled(text);
    system->GeoTIFFCode = "32632";
    TKeys keys;

    ASSERT_TRUE(system->ExportToGeoTIFFClassified(&keys));

    EXPECT_EQ(keys, (TKeys{{1024, "1"},
                           {1026, "ORVANE GeoReference"},
                           {3072, "32767"},
                           {3073, "Test projection "},
                           {3076, "32767"},
                           {3077, "0.3048"},
                           {4099, "32767"}}));
}

TEST(MapProjectedExports, AnEmptyGeoTiffTypeEndsTheClassifiedForm) {
    auto const system = Labelled(Mercator());
    system->GeoTIFFType = "";
    TKeys keys;

    EXPECT_FALSE(system->ExportToGeoTIFFClassified(&keys));
    EXPECT_EQ(keys, (TKeys{{1024, "0"}}));
}

// Panorama

TEST(MapProjectedExports, ThePanoramaNameReplacesTheCitation) {
    auto const system =
        Projected(Mercator(), [](TStringTree* tree) { SetField(tree->FindSubtree(1300, 0), 102008, "1"); });
    TKeys geotiff;
    TKeys plain;
    TKeys named;
    ASSERT_TRUE(system->ExportToGeoTIFF(&geotiff, false));
    ASSERT_TRUE(system->ExportToPanorama(&plain, false));
    system->PanoramaCode = "80020007";
    ASSERT_TRUE(system->ExportToPanorama(&named, false));

    EXPECT_EQ(plain, geotiff);
    EXPECT_EQ(named[2049], "GSK-2011 Zone 7");
    named[2049] = geotiff[2049];
    EXPECT_EQ(named, geotiff);
}

TEST(MapProjectedExports, ACodedSystemGainsTheCitationInPanorama) {
    auto const system = Labelled(Mercator());
    system->GeoTIFFCode = "32632";
    system->PanoramaCode = "80020007";
    TKeys keys;

    ASSERT_TRUE(system->ExportToPanorama(&keys, false));
    EXPECT_EQ(keys[2049], "GSK-2011 Zone 7");
    EXPECT_EQ(keys[3072], "32632");
}

TEST(MapProjectedExports, AFailedExportHasNoPanoramaName) {
    auto const system = Labelled(Mercator());
    system->PanoramaCode = "80020007";
    TKeys keys;

    EXPECT_FALSE(system->ExportToPanorama(&keys, false));
    EXPECT_EQ(keys[2049], "WGS 84 ");
}

TEST(MapProjectedExports, AnEmptiedObjectExportsNothing) {
    auto const system = Labelled(Mercator());
    system->Reset();
    std::string text = "kept";
    TKeys keys;

    EXPECT_FALSE(system->ExportToMIFMID(&text, false));
    EXPECT_EQ(text, "kept");
    EXPECT_FALSE(system->ExportToGeoTIFF(&keys, true));
    EXPECT_FALSE(system->ExportToGeoTIFFClassified(&keys));
    EXPECT_FALSE(system->ExportToPanorama(&keys, true));
}

} // namespace
} // namespace KvRefSystem
