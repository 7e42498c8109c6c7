#include "tests/oracle/Road.h"
#include "tests/oracle/exports/ExportedSystems.h"
#include "tests/oracle/exports/gdal/GdalPrograms.h"
#include "tests/oracle/exports/gdal/GeoKeys.h"
#include "tests/oracle/exports/gdal/ReadByGdal.h"

#include "frame/NumberText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <set>
#include <string>
#include <vector>

/** The geokeys beside those that GDAL writes for the same systems of the register, and Panorama's name. */
namespace OracleTests {

namespace {

using namespace KvRefSystem;

struct TKeyRow {
    char const* Name;
    char const* Definition; ///< the system of the register
};

void PrintTo(TKeyRow const& row, std::ostream* out) {
    *out << row.Name;
}

constexpr TKeyRow rows[] = {
    {"albers-conus", "EPSG:5070"},
    {"belge-lambert-72", "EPSG:31300"},
    {"belgian-lambert-72", "EPSG:31370"},
    {"british-national-grid", "EPSG:27700"},
    {"etrs89-laea", "EPSG:3035"},
    {"etrs89-lcc", "EPSG:3034"},
    {"italy-zone-1", "EPSG:3003"},
    {"italy-zone-2", "EPSG:3004"},
    {"lambert-93", "EPSG:2154"},
    {"lambert-zone-ii", "EPSG:27572"},
    {"nzmg", "EPSG:27200"},
    {"polyconic-brazil", "EPSG:5880"},
    {"rd-new", "EPSG:28992"},
    {"s-jtsk-krovak", "EPSG:5513"},
    {"s-jtsk-krovak-en", "EPSG:5514"},
    {"swiss-lv95", "EPSG:2056"},
    {"ups-north", "EPSG:5041"},
    {"ups-south", "EPSG:5042"},
    {"web-mercator", "EPSG:3857"},
    {"utm:1N", "EPSG:32601"},
    {"utm:37N", "EPSG:32637"},
    {"utm:60S", "EPSG:32760"},
    {"gk:7", "EPSG:28407"},
    {"gk:31", "EPSG:28431"},
    {"gk:32", "EPSG:28432"},
    {"gsk:7", "EPSG:20907"},
    {"dhdn", "EPSG:4314"},
    {"ed50", "EPSG:4230"},
    {"etrs89", "EPSG:4258"},
    {"gsk-2011", "EPSG:7683"},
    {"nad27", "EPSG:4267"},
    {"ntf-paris", "EPSG:4807"},
    {"osgb36", "EPSG:4277"},
    {"pulkovo-1942", "EPSG:4284"},
    {"pulkovo-1995", "EPSG:4200"},
    {"pz-90.02", "EPSG:9474"},
    {"pz-90.11", "EPSG:9475"},
    {"sphere", "EPSG:4047"},
    {"tokyo", "EPSG:4301"},
    {"wgs-84", "EPSG:4326"},
    {"wgs-84-geocentric", "EPSG:4978"},
    {"etrs89-geocentric", "EPSG:4936"},
};

/** A key that one side writes and the other doesn't. */
struct TOneSided {
    int Key;
    char const* Reason;
};

constexpr TOneSided oursAlone[] = {
    {1026, "who wrote it; GDAL's names a grid and stays away elsewhere"},
    {2051, "the meridian has its code; GDAL writes 2061, its longitude"},
    {2052, "unit of the ellipsoid's semi-axes, which are metres without it"},
    {2056, "the ellipsoid has its code beside its numbers"},
    {2058, "an ellipsoid stated by two semi-axes; GDAL writes 2059"},
    {2062, "the systems carry their shift"},
    {3073, "citation of a grid without a code; GDAL's stands under 1026"},
    {4099, "the systems have heights"},
};

constexpr TOneSided gdalsAlone[] = {
    {1025, "how pixels lie: not the system's"},
    {2049, "name of the geographic system, which its code implies"},
    {2050, "implied by the code of the geocentric system"},
    {2052, "as 2050: the unit of its coordinates"},
    {2054, "implied by the code of the geographic system"},
    {2057, "as 2054"},
    {2059, "as 2054, or the other form of 2058"},
    {2061, "the meridian that ours states by 2051"},
    {3076, "implied by the code of the grid"},
};

/** Texts for readers. */
std::set<int> const citations = {1026, 2049, 3073};

/** The same parameter under another key, or with another number. */
struct TMoved {
    char const* Name;
    int Ours;
    int Gdals;
    char const* Reason;
};

constexpr char const* centre = "Transverse Mercator's meridian stands under that of the centre";
constexpr char const* naturalOrigin = "origin and centre are one: the keys of the natural origin";
constexpr char const* offsets = "false easting and northing have one pair of keys for every method";

constexpr TMoved moved[] = {
    {"british-national-grid", 3088, 3080, centre},
    {"italy-zone-1", 3088, 3080, centre},
    {"italy-zone-2", 3088, 3080, centre},
    {"etrs89-laea", 3081, 3089, naturalOrigin},
    {"etrs89-laea", 3080, 3088, naturalOrigin},
    {"belgian-lambert-72", 3082, 3086, offsets},
    {"belgian-lambert-72", 3083, 3087, offsets},
    {"etrs89-lcc", 3082, 3086, offsets},
    {"etrs89-lcc", 3083, 3087, offsets},
    {"lambert-93", 3082, 3086, offsets},
    {"lambert-93", 3083, 3087, offsets},
    {"swiss-lv95", 3090, 3082, "at the projection's centre"},
    {"swiss-lv95", 3091, 3083, "at the projection's centre"},
};

/** A number that differs. */
struct TOther {
    char const* Name;
    int Key;
    double Ours;
    double Gdals;
    char const* Reason;
};

constexpr char const* sixDigits = "scale factors of this method have six digits";
constexpr char const* unreduced = "the meridian of a zone runs from 3 to 357 degrees";
constexpr char const* ownCode = "the system's own code; GDAL's is that of a geographic system";

constexpr TOther others[] = {
    {"lambert-zone-ii", 3092, 0.999877, 0.99987742, sixDigits},
    {"rd-new", 3092, 0.999908, 0.9999079, sixDigits},
    {"swiss-lv95", 3075, 3, 9815, "the format's number of the oblique Mercator; GDAL's is the register's"},
    {"gk:31", 3080, 183, -177, unreduced},
    {"gk:32", 3080, 189, -171, unreduced},
    {"sphere", 2050, 32767, 6047, "the entry has no datum"},
    {"wgs-84-geocentric", 2048, 4978, 4326, ownCode},
    {"etrs89-geocentric", 2048, 4936, 32767, ownCode},
};

/** Systems that GDAL recognises by their parameters, code or no code. */
bool IsRecognised(std::string const& name) {
    return name.compare(0, 4, "utm:") == 0 || name == "wgs-84" || name == "nad27";
}

/** Grids whose methods the library cannot state in keys. */
bool HasNoKeysOfItsOwn(std::string const& name) {
    std::set<std::string> const names = {"belge-lambert-72", "s-jtsk-krovak", "s-jtsk-krovak-en",
                                         "web-mercator"};
    return names.count(name) != 0;
}

/** The system as if the register had no code for it. */
std::unique_ptr<TShellReferenceSystem> Uncoded(std::string const& name) {
    auto system = SystemNamed(name);
    system->GeoTIFFCode.clear();
    if (auto* const grid = dynamic_cast<TShellMapProjectedReferenceSystem*>(system.get())) {
        grid->MapProjection->GeoTIFFCode.clear();
    }
    return system;
}

TGeoKeys KeysOf(TShellReferenceSystem const& system, bool expected = true) {
    TGeoKeys keys;
    EXPECT_EQ(system.ExportToGeoTIFF(&keys, true), expected) << system.Name;
    return keys;
}

TGeoKeys GdalsKeys(std::string const& definition) {
    TScratchFolder const folder;
    GdalCreatesGeoTiff(folder.File("a.tif"), definition);
    return ReadGeoKeys(folder.File("a.tif"));
}

std::string WktOfKeys(TGeoKeys const& keys) {
    TScratchFolder const folder;
    WriteGeoTiff(folder.File("a.tif"), keys);
    return GdalsWkt(folder.File("a.tif"));
}

double Value(std::string const& text) {
    double value = NAN;
    EXPECT_TRUE(ParseWholeDouble(text, &value)) << text;
    return value;
}

bool IsListed(TOneSided const* begin, TOneSided const* end, int key) {
    return std::any_of(begin, end, [key](TOneSided const& row) { return row.Key == key; });
}

/** Brings GDAL's keys to the library's, where a row says how they differ; a row that says nothing fails. */
void ApplyRows(std::string const& name, bool isCoded, TGeoKeys* gdals) {
    for (TMoved const& row : moved) {
        if (row.Name == name && !isCoded) {
            ASSERT_EQ(gdals->count(row.Gdals), 1u) << row.Reason;
            std::string const value = gdals->at(row.Gdals);
            gdals->erase(row.Gdals);
            (*gdals)[row.Ours] = value;
        }
    }
    for (TOther const& row : others) {
        auto const found = gdals->find(row.Key);
        if (row.Name == name && found != gdals->end()) {
            EXPECT_NEAR(Value(found->second), row.Gdals, 1e-12) << row.Reason;
            found->second = FormatText("%.17g", row.Ours);
        }
    }
}

void ExpectEqualKeys(std::string const& name, bool isCoded, TGeoKeys const& ours, TGeoKeys gdals) {
    ApplyRows(name, isCoded, &gdals);
    for (auto const& [key, value] : ours) {
        auto const theirs = gdals.find(key);
        if (theirs == gdals.end()) {
            EXPECT_TRUE(IsListed(std::begin(oursAlone), std::end(oursAlone), key)) << key << " = " << value;
        } else if (citations.count(key) == 0) {
            // GDAL's angles have fifteen digits.
            EXPECT_NEAR(Value(value), Value(theirs->second), 1e-9) << key;
        }
    }
    for (auto const& [key, value] : gdals) {
        EXPECT_TRUE(ours.count(key) != 0 || IsListed(std::begin(gdalsAlone), std::end(gdalsAlone), key))
            << key << " = " << value;
    }
}

class GeoTiffExport : public testing::TestWithParam<TKeyRow> {};

TEST_P(GeoTiffExport, KeysOfARegisteredSystemAreGdals) {
    ExpectEqualKeys(GetParam().Name, true, KeysOf(*SystemNamed(GetParam().Name)),
                    GdalsKeys(GetParam().Definition));
}

TEST_P(GeoTiffExport, KeysWithoutTheCodeAreGdals) {
    std::string const name = GetParam().Name;
    auto const system = Uncoded(name);
    if (HasNoKeysOfItsOwn(name)) {
        TGeoKeys const keys = KeysOf(*system, false);
        EXPECT_EQ(keys.count(3075), 0u) << "no number of the method";
        return;
    }
    TGeoKeys const ours = KeysOf(*system);
    if (system->Type == rstGeocentric || IsRecognised(name)) {
        // GDAL has no such form: ReadByGdalGivesOurNumbers tells that it understands ours.
        return;
    }
    ExpectEqualKeys(name, false, ours, GdalsKeys(WithoutCode(GdalsWkt(GetParam().Definition))));
}

/** A grid that lies apart from what GDAL and PROJ make of its keys. */
struct TApart {
    char const* Name;
    double Coded;   ///< metres, with the register's code
    double Uncoded; ///< metres, with the parameters
    char const* Reason;
};

// PROJ leaves out the turn of 29.2985 seconds, 5.38e6 m from the pole of the cone. What the scale factors lack
// counts along the greatest distance from the origin: 7 degrees of longitude at 45.5 north, 163 km.
constexpr TApart apart[] = {
    {"belge-lambert-72", 29.2985 / 3600 * Degree * 5.38e6, 0, "PROJ has the plain conic for the Belgian one"},
    {"lambert-zone-ii", 0, 4.2e-7 * 0.5465e6, sixDigits},
    {"rd-new", 0, 1e-7 * 0.163e6, sixDigits},
};

void ExpectApart(std::string const& name, bool isCoded, double distance) {
    for (TApart const& row : apart) {
        double const expected = isCoded ? row.Coded : row.Uncoded;
        if (row.Name == name && expected > 0) {
            EXPECT_NEAR(distance, expected, 0.01 * expected) << row.Reason;
            return;
        }
    }
    EXPECT_LT(distance, PromisedOnTheGround);
}

TEST_P(GeoTiffExport, CodedKeysReadByGdalGiveOurNumbers) {
    auto const system = SystemNamed(GetParam().Name);
    TReadDistance const distance = DistanceOf(GetParam().Name, *system, WktOfKeys(KeysOf(*system)));
    ExpectApart(GetParam().Name, true, distance.Projected);
}

TEST_P(GeoTiffExport, UncodedKeysReadByGdalGiveOurNumbers) {
    std::string const name = GetParam().Name;
    if (HasNoKeysOfItsOwn(name)) {
        return;
    }
    auto const system = Uncoded(name);
    TGeoKeys const keys = KeysOf(*system);
    TReadDistance const distance = DistanceOf(name, *system, WktOfKeys(keys));
    ExpectApart(name, false, distance.Projected);
    if (keys.count(2062) != 0) {
        EXPECT_LT(distance.Shifted, ReversePromise(name));
    } else {
        // A base with a code implies the datum, and a sphere has none to shift.
        EXPECT_TRUE(system->Type == rstMapProjected || !system->GetDatumShift());
    }
}

INSTANTIATE_TEST_SUITE_P(Register, GeoTiffExport, testing::ValuesIn(rows),
                         [](auto const& row) { return SuffixOf(row.param.Name); });

TEST(GeoTiffExport, RowsCoverTheSystemsOfTheRegister) {
    for (std::string const& name : CatalogueNames()) {
        bool const isListed = std::any_of(std::begin(rows), std::end(rows),
                                          [&](TKeyRow const& row) { return row.Name == name; });
        // The other two forms of WGS 84 have its code; the local systems have none.
        bool const isAnotherWgs84 = name == "wgs-84-dms" || name == "wgs-84-feet";
        EXPECT_EQ(isListed, !isAnotherWgs84 && !SystemNamed(name)->GeoTIFFCode.empty()) << name;
    }
}

TEST(GeoTiffExport, SystemsWithoutAFormAreTheListedOnes) {
    // The grids have a model, but neither a code nor the number of a method; local systems have no model.
    for (char const* const name : {"msk:50:2", "sk63:C:1"}) {
        TGeoKeys const keys = KeysOf(*SystemNamed(name), false);
        EXPECT_EQ(keys.at(1024), "1") << name;
        EXPECT_EQ(keys.count(3075), 0u) << name;
    }
    for (char const* const name : {"local-metres", "topocentric-moscow"}) {
        EXPECT_EQ(KeysOf(*SystemNamed(name), false), (TGeoKeys{{1024, "0"}})) << name;
    }
}

// --- Panorama's names --------------------------------------------------------------------------------------

TEST(PanoramaExport, NameOfTheZoneReplacesTheCitationAndGdalReadsTheSame) {
    for (int zone : {1, 7, 31, 60}) {
        std::string const name = FormatText("gsk:%d", zone);
        auto const grid = GridNamed(name);
        TGeoKeys keys;
        ASSERT_TRUE(grid->ExportToPanorama(&keys, true)) << name;
        EXPECT_EQ(keys.at(2049), FormatText("GSK-2011 Zone %d", zone));
        EXPECT_EQ(grid->GetPanoramaCode(), 80020000u + static_cast<unsigned>(zone));
        EXPECT_LT(DistanceOf(name, *grid, WktOfKeys(keys)).Projected, PromisedOnTheGround) << name;
        keys.erase(2049);
        EXPECT_EQ(keys, KeysOf(*grid)) << name;
    }
}

TEST(PanoramaExport, SystemsWithoutItsCodeGiveTheGeokeys) {
    for (char const* const name : {"gk:7", "gsk:7S", "utm:37N", "wgs-84", "british-national-grid"}) {
        auto const system = SystemNamed(name);
        TGeoKeys keys;
        EXPECT_EQ(system->GetPanoramaCode(), 0u) << name;
        ASSERT_TRUE(system->ExportToPanorama(&keys, true)) << name;
        EXPECT_EQ(keys, KeysOf(*system)) << name;
    }
}

} // namespace

} // namespace OracleTests
