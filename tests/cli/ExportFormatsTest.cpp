#include "tests/cli/ToolRunner.h"
#include "tools/vellari/DescriptionCheck.h"
#include "tools/vellari/ExportText.h"
#include "tools/vellari/GeoKeyNames.h"
#include "tools/vellari/SystemLoader.h"
#include "tools/vellari/ToolError.h"

#include <gmock/gmock.h>

#include <functional>

namespace {

using namespace KvRefSystem;
using namespace ToolTest;
using namespace VellariTool;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TToolRun Show(std::string const& system, std::string const& format) {
    return RunTool({"show", system, "--as", format});
}

/** @return a system from an entry's description after a change. */
TLoadedSystem Changed(std::string const& entry, std::function<void(TStringTree*)> const& change) {
    TStringTree tree;
    tree.ReadFromString(CatalogText(entry).c_str(), nullptr, nullptr);
    change(&tree);
    std::string text(tree.WriteToString(nullptr, 0, 0), '\0');
    tree.WriteToString(text.data(), 0, 0);
    return BuildSystem("my.txt", text, suShow);
}

/** @return the line that an export ends with; empty when it has a form. */
std::string Refusal(std::string (*print)(TLoadedSystem const&), TLoadedSystem const& loaded) {
    try {
        print(loaded);
        return "";
    } catch (TToolError const& failure) {
        return failure.what();
    }
}

// --- WKT ---------------------------------------------------------------------------------------------------

TEST(ShowAsWkt, BeginsWithTheKeywordOfTheKind) {
    struct TKeyword {
        char const* system;
        char const* keyword;
    };
    for (TKeyword const& row : {TKeyword{"wgs-84", "GEOGCS[\"WGS 84\","},
                                {"utm:37N", "PROJCS[\"WGS 84 / UTM zone 37N\","},
                                {"wgs-84-geocentric", "GEOCCS[\"WGS 84 (geocentric)\","},
                                {"topocentric-moscow", "LOCAL_CS[\"Topocentric, Moscow\","},
                                {"local-metres", "LOCAL_CS[\"Local metres\","}}) {
        TToolRun const run = Show(row.system, "wkt");
        EXPECT_THAT(run.out, StartsWith(row.keyword));
        EXPECT_EQ(CountLines(run.out), 1) << row.system;
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.status, 0);
    }
}

TEST(ShowAsWkt, CompoundAddsTheHeightsOfKindsThatHaveThemApart) {
    for (char const* const system : {"wgs-84", "utm:37N"}) {
        std::string const out = Show(system, "wkt-compound").out;
        EXPECT_THAT(out, StartsWith("COMPD_CS["));
        EXPECT_THAT(out, HasSubstr("VERT_CS[\"height above ellipsoid\",VERT_DATUM[\"ellipsoidal\",2002]"));
        EXPECT_THAT(Show(system, "wkt").out, Not(HasSubstr("VERT_CS")));
    }
    for (char const* const system : {"wgs-84-geocentric", "topocentric-moscow", "local-metres"}) {
        EXPECT_EQ(Show(system, "wkt-compound").out, Show(system, "wkt").out);
    }
}

TEST(ShowAsWkt, AProjectionWithoutANameThereIsNamed) {
    TToolRun const run = Show("rd-new", "wkt");
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err,
              "vellari: rd-new has no form in WKT: the projection \"Oblique Stereographic\" (Oblique "
              "Stereographic) has no name there\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(Show("nzmg", "wkt").out, HasSubstr("PROJECTION[\"New_Zealand_Map_Grid\"]"));
}

TEST(ShowAsWkt, WithoutAPrimeMeridianThereIsNone) {
    for (char const* const entry : {"wgs-84", "wgs-84-geocentric"}) {
        TLoadedSystem const loaded = Changed(entry, [](TStringTree* tree) { tree->DeleteSubtree(1101, 0); });
        EXPECT_EQ(Refusal(ExportAsWkt, loaded), "my.txt has no form in WKT: there is no prime meridian");
    }
}

TEST(ShowAsWkt, AUnitWithoutASizeIsNamed) {
    TLoadedSystem const loaded = Changed("local-metres", [](TStringTree* tree) {
        TStringTree* const unit = tree->FindSubtree(1104, 0);
        unit->DeleteField(5310, 0);
        unit->InsertString("f_b", 5310, 0, "0");
    });
    EXPECT_EQ(Refusal(ExportAsWkt, loaded),
              "my.txt has no form in WKT: the linear unit \"metre\" has no size");
}

TEST(ShowAsWkt, HeightsWithoutAUnitAreNamedInTheCompoundFormOnly) {
    for (char const* const entry : {"wgs-84", "nzmg"}) {
        TLoadedSystem const loaded = Changed(entry, [](TStringTree* tree) {
            TStringTree* const base = tree->FindSubtree(1121, 0);
            (base ? base : tree)->FindSubtree(1201, 0)->DeleteSubtree(1104, 0);
        });
        EXPECT_EQ(Refusal(ExportAsWkt, loaded), "") << entry;
        EXPECT_EQ(Refusal(ExportAsCompoundWkt, loaded),
                  "my.txt has no form in WKT: there is no unit of heights");
    }
}

// --- MapInfo -----------------------------------------------------------------------------------------------

TEST(ShowAsMif, TellsTheClause) {
    TToolRun const run = Show("utm:37N", "mif");
    // Projection 8, Transverse Mercator; ellipsoid 28, WGS 84; the parameters of UTM's zone 37.
    EXPECT_EQ(run.out, "CoordSys Earth Projection 8, 9999, 28, 0, 0, 0, 0, 0, 0, 0, 0, \"m\", 39, 0, 0.9996, "
                       "500000, 0\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
}

TEST(ShowAsMif, ALocalSystemIsNonearthWithoutAWord) {
    TToolRun const run = Show("local-metres", "mif");
    EXPECT_EQ(run.out, "CoordSys Nonearth Units \"m\"\n");
    EXPECT_EQ(run.err, "");
}

TEST(ShowAsMif, AnEarthBoundSystemWithoutSettingsIsNonearthAndTellsWhy) {
    TToolRun const run = Show("rd-new", "mif");
    EXPECT_EQ(run.out, "CoordSys Nonearth Units \"m\"\n");
    EXPECT_EQ(run.err, "vellari: rd-new: the clause names no place on the earth: the description lacks "
                       "subtree (101000,0), the MapInfo settings\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(Show("wgs-84-geocentric", "mif").err,
              "vellari: wgs-84-geocentric: the clause names no place on the earth: MapInfo has no geocentric "
              "systems\n");
    EXPECT_THAT(Show("topocentric-moscow", "mif").err, HasSubstr("MapInfo has no topocentric systems\n"));
}

/** @return what the tool writes about a changed description to standard error. */
std::string MifMessage(std::function<void(TStringTree*)> const& change) {
    TLoadedSystem const loaded = Changed("lambert-93", change);
    testing::internal::CaptureStderr();
    EXPECT_EQ(ExportAsMif(loaded).rfind("CoordSys Nonearth Units", 0), 0u);
    return testing::internal::GetCapturedStderr();
}

TEST(ShowAsMif, EveryPartThatLacksIsNamed) {
    std::string const head = "vellari: my.txt: the clause names no place on the earth: ";
    EXPECT_EQ(MifMessage([](TStringTree* tree) { tree->FindSubtree(101000, 0)->DeleteField(101001, 0); }),
              head + "the MapInfo settings lack field (101001,0), the projection\n");
    EXPECT_EQ(MifMessage([](TStringTree* tree) { tree->FindSubtree(101000, 0)->DeleteField(101002, 0); }),
              head + "the MapInfo settings lack field (101002,0), the unit\n");
    EXPECT_EQ(MifMessage([](TStringTree* tree) {
                  tree->FindSubtree(1107, 0)->FindSubtree(5610, 0)->DeleteField(101004, 0);
              }),
              head + "the datum's ellipsoid lacks field (101004,0), its number in MapInfo\n");
    EXPECT_EQ(MifMessage([](TStringTree* tree) { tree->DeleteSubtree(1101, 0); }),
              head + "the description has no prime meridian at its root\n");
    EXPECT_EQ(MifMessage([](TStringTree* tree) { tree->DeleteSubtree(1107, 0); }),
              head + "the description has no datum at its root\n");
}

// --- Geokeys -----------------------------------------------------------------------------------------------

TEST(ShowAsGeoTiff, TellsNumberNameAndValue) {
    TToolRun const run = Show("utm:37N", "geotiff");
    // 1 is a projected system, 32637 the register's number of the zone, 9001 the metre.
    EXPECT_EQ(run.out, "1024  GTModelTypeGeoKey               1\n"
                       "1026  GTCitationGeoKey                ORVANE GeoReference\n"
                       "3072  ProjectedCSTypeGeoKey           32637\n"
                       "4099  VerticalUnitsGeoKey             9001\n");
    EXPECT_EQ(run.status, 0);
}

TEST(ShowAsGeoTiff, ASystemWithoutACodeIsToldInParts) {
    TLoadedSystem const loaded =
        Changed("albers-conus", [](TStringTree* tree) { tree->DeleteField(102005, 0); });
    std::string const keys = ExportAsGeoTiff(loaded);
    // Method 11, Albers, with the second parallel 45.5 and the latitude 23 of the register's EPSG:5070.
    for (char const* const line :
         {"2048  GeographicTypeGeoKey            4269\n", "3072  ProjectedCSTypeGeoKey           32767\n",
          "3075  ProjCoordTransGeoKey            11\n", "3081  ProjNatOriginLatGeoKey          23\n",
          "3079  ProjStdParallel2GeoKey          45.5\n"}) {
        EXPECT_THAT(keys, HasSubstr(line));
    }
    EXPECT_THAT(keys, Not(HasSubstr("unknown")));
}

TEST(ShowAsGeoTiff, AKindWithoutAModelTypeHasNoForm) {
    TToolRun const run = Show("local-metres", "geotiff");
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "vellari: local-metres has no form in GeoTIFF: it has no model type for a local "
                       "Cartesian system\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(Show("topocentric-moscow", "panorama").err,
              "vellari: topocentric-moscow has no form in Panorama's keys: it has no model type for a "
              "topocentric system\n");
}

TEST(ShowAsGeoTiff, EveryPartThatLacksIsNamed) {
    EXPECT_EQ(Refusal(ExportAsGeoTiff,
                      Changed("wgs-84",
                              [](TStringTree* tree) { tree->FindSubtree(1201, 0)->DeleteSubtree(1104, 0); })),
              "my.txt has no form in GeoTIFF: there is no unit of heights");
    EXPECT_EQ(Refusal(ExportAsGeoTiff, Changed("wgs-84",
                                               [](TStringTree* tree) {
                                                   tree->DeleteField(102005, 0);
                                                   tree->DeleteSubtree(1101, 0);
                                               })),
              "my.txt has no form in GeoTIFF: there is no prime meridian");
    EXPECT_EQ(
        Refusal(ExportAsGeoTiff, Changed("s-jtsk-krovak",
                                         [](TStringTree* tree) {
                                             tree->DeleteField(102005, 0);
                                             tree->FindSubtree(1300, 0)->DeleteField(102008, 0);
                                         })),
        "my.txt has no form in GeoTIFF: the projection \"Krovak\" (Krovak) has no field (102008,0), its "
        "method there");
}

TEST(ShowAsPanorama, HasTheKeysOfGeoTiffWhenThereIsNoZone) {
    EXPECT_EQ(Show("wgs-84", "panorama").out, Show("wgs-84", "geotiff").out);
    EXPECT_THAT(Show("wgs-84", "panorama").out, HasSubstr("2048  GeographicTypeGeoKey            4326\n"));
}

// The names of the standard's list of keys.
TEST(GeoKeyName, IsThePublishedOne) {
    EXPECT_EQ(GeoKeyName(1024), "GTModelTypeGeoKey");
    EXPECT_EQ(GeoKeyName(2062), "GeogTOWGS84GeoKey");
    EXPECT_EQ(GeoKeyName(3088), "ProjCenterLongGeoKey");
    EXPECT_EQ(GeoKeyName(3096), "ProjRectifiedGridAngleGeoKey");
    EXPECT_EQ(GeoKeyName(4099), "VerticalUnitsGeoKey");
    EXPECT_EQ(GeoKeyName(1), "unknown");
}

} // namespace
