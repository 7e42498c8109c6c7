#include "tests/oracle/Road.h"
#include "tests/oracle/exports/ExportedSystems.h"
#include "tests/oracle/exports/ProjSystem.h"
#include "tests/support/Descriptions.h"
#include "tests/support/Systems.h"

#include "frame/NumberText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

/** Every WKT that the library writes, as PROJ reads it and computes with it. */
namespace OracleTests {

namespace {

using namespace KvRefSystem;

/** Entries without WKT: the methods whose names and parameters the library writes are four, and the zones'. */
struct TWithoutWkt {
    char const* Name;
    char const* Reason;
};

constexpr TWithoutWkt withoutWkt[] = {
    {"albers-conus", "Albers has no name in the library's WKT"},
    {"belge-lambert-72", "Lambert 2SP Belgium has none"},
    {"belgian-lambert-72", "Lambert 2SP has none"},
    {"etrs89-laea", "Lambert azimuthal has none"},
    {"etrs89-lcc", "Lambert 2SP has none"},
    {"lambert-93", "Lambert 2SP has none"},
    {"lambert-zone-ii", "Lambert 1SP has none"},
    {"rd-new", "oblique stereographic has none"},
    {"s-jtsk-krovak", "Krovak has none"},
    {"s-jtsk-krovak-en", "Krovak has none"},
    {"swiss-lv95", "oblique Mercator has none"},
    {"ups-north", "polar stereographic has none"},
    {"ups-south", "polar stereographic has none"},
    {"msk:50:2", "a regional grid has none"},
    {"sk63:C:1", "a block grid has none"},
};

/**
 * PROJ gives a local system of WKT two axes, never three; the library's have their height as the third. What
 * it reads of such a text is the text without the last axis.
 */
constexpr char const* threeLocalAxes = "unexpected AXIS count for LOCAL_CS";

/** Metres, in the plane, on the ground and upwards. */
constexpr double Agreed = PromisedOnTheGround;

std::string WktOf(TShellReferenceSystem const& system, bool compound = false, bool panorama = false) {
    std::string text;
    EXPECT_TRUE(system.ExportToWKT(&text, compound, panorama)) << system.Name;
    return text;
}

std::string Replaced(std::string text, std::string const& from, std::string const& to) {
    std::size_t const at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from << " in " << text;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

std::string WithoutLastAxis(std::string const& text) {
    std::size_t const at = text.rfind(",AXIS[");
    return text.substr(0, at) + "]";
}

bool HasNoWkt(std::string const& name) {
    return std::any_of(std::begin(withoutWkt), std::end(withoutWkt),
                       [&](TWithoutWkt const& row) { return row.Name == name; });
}

bool IsLocal(TShellReferenceSystem const& system) {
    return system.Type == rstLocalCartesian || system.Type == rstLocalCurved ||
           system.Type == rstTopocentricHorizontal;
}

/** A system that has WKT. */
struct TWithWkt {
    std::string Name;
    int Kind;
};

std::vector<TWithWkt> const& AllWithWkt() {
    static std::vector<TWithWkt> const all = [] {
        std::vector<TWithWkt> systems;
        for (std::vector<std::string> const& names : {CatalogueNames(), ZoneNames()}) {
            for (std::string const& name : names) {
                if (!HasNoWkt(name)) {
                    systems.push_back({name, SystemNamed(name)->Type});
                }
            }
        }
        return systems;
    }();
    return all;
}

std::vector<std::string> NamesOf(std::initializer_list<int> kinds) {
    std::vector<std::string> names;
    for (TWithWkt const& system : AllWithWkt()) {
        if (std::find(kinds.begin(), kinds.end(), system.Kind) != kinds.end()) {
            names.push_back(system.Name);
        }
    }
    return names;
}

double PlaneDistance(TTriple const& first, TTriple const& second) {
    return std::max(std::abs(first[0] - second[0]), std::abs(first[1] - second[1]));
}

TTriple PlaceOf(TPlace const& place) {
    return {place.Latitude, place.Longitude, place.Height};
}

TPlace PlaceFrom(TTriple const& numbers) {
    return {numbers[0], numbers[1], numbers[2]};
}

/** The greatest distance in the plane over the grid's places. */
double GreatestPlaneDistance(TShellMapProjectedReferenceSystem const& grid, TProjSystem const& projs,
                             std::string const& name) {
    double distance = 0;
    for (TPlace const& place : PlacesOf(name)) {
        distance =
            std::max(distance, PlaneDistance(OurPlane(grid, place), projs.FromGeographic(PlaceOf(place))));
    }
    return distance;
}

TEST(WktExport, SystemsWithoutATextAreTheListedOnes) {
    for (TWithoutWkt const& row : withoutWkt) {
        std::string text = "untouched";
        EXPECT_FALSE(SystemNamed(row.Name)->ExportToWKT(&text, false, false)) << row.Name;
        EXPECT_EQ(text, "untouched") << row.Name << ": " << row.Reason;
    }
}

class WktExport : public testing::TestWithParam<std::string> {};

TEST_P(WktExport, IsReadWithoutAComplaint) {
    auto const system = SystemNamed(GetParam());
    for (bool const compound : {false, true}) {
        for (bool const panorama : {false, true}) {
            std::string text = WktOf(*system, compound, panorama);
            if (IsLocal(*system)) {
                text = WithoutLastAxis(text);
            }
            TProjSystem const projs(text);
            EXPECT_TRUE(projs.IsRead()) << text;
            EXPECT_EQ(projs.Complaints(), std::vector<std::string>()) << text;
        }
    }
}

TEST_P(WktExport, KeepsNameAndShift) {
    auto const system = SystemNamed(GetParam());
    std::string const text = WktOf(*system);
    TProjSystem const projs(IsLocal(*system) ? WithoutLastAxis(text) : text);
    ASSERT_TRUE(projs.IsRead()) << text;
    EXPECT_EQ(projs.Name(), system->Name);
    bool const isKnownByName = GetParam() == "web-mercator"; // PROJ takes the register's system for it
    EXPECT_EQ(projs.HasShift(), !IsLocal(*system) && !isKnownByName && system->GetDatumShift() != nullptr);
}

INSTANTIATE_TEST_SUITE_P(All, WktExport,
                         testing::ValuesIn(NamesOf({rstGeodetic, rstMapProjected, rstGeocentric,
                                                    rstLocalCartesian, rstLocalCurved,
                                                    rstTopocentricHorizontal})),
                         [](auto const& row) { return SuffixOf(row.param); });

// --- Grids -------------------------------------------------------------------------------------------------

class WktExportOfAGrid : public testing::TestWithParam<std::string> {};

TEST_P(WktExportOfAGrid, ProjectsAsOurs) {
    auto const grid = GridNamed(GetParam());
    TProjSystem const projs(WktOf(*grid));
    ASSERT_EQ(projs.Type(), PJ_TYPE_PROJECTED_CRS);
    EXPECT_LT(GreatestPlaneDistance(*grid, projs, GetParam()), Agreed);
}

TEST_P(WktExportOfAGrid, ShiftsAsOurs) {
    auto const grid = GridNamed(GetParam());
    TProjSystem const projs(WktOf(*grid));
    double distance = 0;
    for (TPlace const& place : PlacesOf(GetParam())) {
        TTriple const plane = OurPlane(*grid, place);
        TPlace const ours = OurWgs84(*grid, plane);
        TPlace const theirs = PlaceFrom(projs.ToWgs84(plane));
        distance = std::max(distance, GroundDistance({ours.Latitude, ours.Longitude, 0},
                                                     {theirs.Latitude, theirs.Longitude, 0}));
    }
    EXPECT_LT(distance, ReversePromise(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, WktExportOfAGrid, testing::ValuesIn(NamesOf({rstMapProjected})),
                         [](auto const& row) { return SuffixOf(row.param); });

TEST(WktExportOfAGrid, AllZonesOfSixDegreesProjectAsOurs) {
    for (int zone = 1; zone <= 60; ++zone) {
        for (char const* const form : {"utm:%dN", "utm:%dS", "gk:%d", "gk:%dS"}) {
            std::string const name = FormatText(form, zone);
            auto const grid = GridNamed(name);
            EXPECT_LT(GreatestPlaneDistance(*grid, TProjSystem(WktOf(*grid)), name), Agreed) << name;
        }
    }
}

// The library names the spherical method after the nearest one of WKT. PROJ knows what is meant by the system's
// name alone; under another it computes on the ellipsoid, and northings differ by a e atanh(e sin(latitude)).
TEST(WktExportOfAGrid, WebMercatorIsKnownByItsName) {
    auto const grid = GridNamed("web-mercator");
    TProjSystem const byName(WktOf(*grid));
    grid->Name = "A map of the world";
    TProjSystem const other(WktOf(*grid));
    double const eccentricity = 0.0818191908426215;
    for (TPlace const& place : PlacesOf("web-mercator")) {
        TTriple const ours = OurPlane(*grid, place);
        EXPECT_LT(PlaneDistance(ours, byName.FromGeographic(PlaceOf(place))), Agreed);
        TTriple const theirs = other.FromGeographic(PlaceOf(place));
        double const lower =
            6378137 * eccentricity * std::atanh(eccentricity * std::sin(place.Latitude * Degree));
        EXPECT_NEAR(ours[0], theirs[0], Agreed);
        EXPECT_NEAR(ours[1] - theirs[1], lower, Agreed);
    }
    EXPECT_FALSE(byName.HasShift());
    EXPECT_TRUE(other.HasShift());
}

// The base stands in degrees and its meridian in its own unit: 2.5969213 grads are read as degrees, 0.2597 too
// many. Nothing else is wrong: with the meridian's number in degrees the texts agree.
TEST(WktExportOfAGrid, MeridianInGradsIsReadInDegrees) {
    auto text = TestSupport::TransverseMercator("0", "1", "500000");
    text.base = TestSupport::WithZeroShift();
    text.base.meridian = "2.5969213";
    text.base.meridianUnit = TestSupport::Grad();
    text.base.angularUnit = TestSupport::Grad();
    auto const grid = TestSupport::Create(text);
    std::string const wkt = WktOf(*grid);
    std::string const meridian = "PRIMEM[\"Meridian\",2.5969213]";
    TTriple const own = {500000, 5000000, 0};

    TPlace const ours = OurWgs84(*grid, own);
    TPlace const theirs = PlaceFrom(TProjSystem(wkt).ToWgs84(own));
    TPlace const mended =
        PlaceFrom(TProjSystem(Replaced(wkt, meridian, "PRIMEM[\"Meridian\",2.33722917]")).ToWgs84(own));

    EXPECT_NEAR(theirs.Longitude - ours.Longitude, 2.5969213 - 2.33722917, 1e-8);
    EXPECT_LT(GroundDistance({ours.Latitude, ours.Longitude, 0}, {mended.Latitude, mended.Longitude, 0}),
              Agreed);
}

// --- Latitude and longitude --------------------------------------------------------------------------------

class WktExportOfLatLon : public testing::TestWithParam<std::string> {};

TEST_P(WktExportOfLatLon, CompoundShiftsAsOursWithTheHeight) {
    auto const system = SystemNamed(GetParam());
    if (!system->GetDatumShift()) {
        return; // the sphere: nothing leads to WGS 84
    }
    TProjSystem const projs(WktOf(*system, true));
    ASSERT_EQ(projs.Type(), PJ_TYPE_GEOGRAPHIC_3D_CRS);
    double const angle = Degree / system->GetPlaneUnitCoefToBase();
    double const length = 1 / system->GetHeightUnitCoefToBase();
    double distance = 0;
    for (TPlace const& place : EdgesAndDrawn(Ground, 100, 9102)) {
        TTriple const own = {place.Latitude * angle, place.Longitude * angle, place.Height * length};
        distance = std::max(distance, GroundDistance(OurWgs84(*system, own), PlaceFrom(projs.ToWgs84(own))));
    }
    EXPECT_LT(distance, Agreed);
}

TEST_P(WktExportOfLatLon, PlainTextShiftsAsOursOnTheGround) {
    auto const system = SystemNamed(GetParam());
    if (!system->GetDatumShift()) {
        return;
    }
    TProjSystem const projs(WktOf(*system));
    ASSERT_EQ(projs.Type(), PJ_TYPE_GEOGRAPHIC_2D_CRS);
    double const angle = Degree / system->GetPlaneUnitCoefToBase();
    double distance = 0;
    for (TPlace const& place : EdgesAndDrawn(Ground, 100, 9103)) {
        TTriple const own = {place.Latitude * angle, place.Longitude * angle, 0};
        TPlace const ours = OurWgs84(*system, own);
        TPlace const theirs = PlaceFrom(projs.ToWgs84(own));
        distance = std::max(distance, GroundDistance({ours.Latitude, ours.Longitude, 0},
                                                     {theirs.Latitude, theirs.Longitude, 0}));
    }
    EXPECT_LT(distance, Agreed);
}

INSTANTIATE_TEST_SUITE_P(All, WktExportOfLatLon, testing::ValuesIn(NamesOf({rstGeodetic})),
                         [](auto const& row) { return SuffixOf(row.param); });

// --- Geocentric systems ------------------------------------------------------------------------------------

class WktExportOfGeocentric : public testing::TestWithParam<std::string> {};

TEST_P(WktExportOfGeocentric, ShiftsAsOurs) {
    auto const system = SystemNamed(GetParam());
    TProjSystem const projs(WktOf(*system));
    ASSERT_EQ(projs.Type(), PJ_TYPE_GEOCENTRIC_CRS);
    double distance = 0;
    for (TTriple const& own : {TTriple{2850000, 2200000, 5250000}, TTriple{-2700000, 4500000, -3600000},
                               TTriple{6378137, 0, 0}, TTriple{1, 2, 6356800}}) {
        distance = std::max(distance, GroundDistance(OurWgs84(*system, own), PlaceFrom(projs.ToWgs84(own))));
    }
    EXPECT_LT(distance, Agreed);
}

INSTANTIATE_TEST_SUITE_P(All, WktExportOfGeocentric, testing::ValuesIn(NamesOf({rstGeocentric})),
                         [](auto const& row) { return SuffixOf(row.param); });

// With the axes OTHER, EAST, NORTH PROJ knows a geocentric system by their names only.
TEST(WktExportOfGeocentric, AxesAreKnownByTheNamesOfTheRegister) {
    auto const system = SystemNamed("wgs-84-geocentric");
    system->AxisName[0] = "X";
    TProjSystem const otherName(WktOf(*system));
    EXPECT_FALSE(otherName.IsRead());
    ASSERT_FALSE(otherName.Complaints().empty());
    EXPECT_NE(otherName.Complaints().front().find("Inconsistent CRS type"), std::string::npos);

    system->AxisName[0] = "Geocentric X";
    system->AxisName[1] = "Geocentric Y";
    system->AxisName[2] = "Geocentric Z";
    EXPECT_EQ(TProjSystem(WktOf(*system)).Type(), PJ_TYPE_GEOCENTRIC_CRS);
}

// --- Local systems -----------------------------------------------------------------------------------------

class WktExportOfLocal : public testing::TestWithParam<std::string> {};

TEST_P(WktExportOfLocal, IsALocalSystemOfProjsWithoutItsThirdAxis) {
    auto const system = SystemNamed(GetParam());
    std::string const text = WktOf(*system);
    TProjSystem const whole(text);
    EXPECT_FALSE(whole.IsRead());
    ASSERT_FALSE(whole.Complaints().empty());
    EXPECT_NE(whole.Complaints().front().find(threeLocalAxes), std::string::npos);
    EXPECT_EQ(TProjSystem(WithoutLastAxis(text)).Type(), PJ_TYPE_ENGINEERING_CRS);
}

INSTANTIATE_TEST_SUITE_P(All, WktExportOfLocal,
                         testing::ValuesIn(NamesOf({rstLocalCartesian, rstLocalCurved,
                                                    rstTopocentricHorizontal})),
                         [](auto const& row) { return SuffixOf(row.param); });

TEST(WktExportOfLocal, CurvedSystemHasTheTextOfTheCartesianOne) {
    auto const curved = TestSupport::Create(TestSupport::Curved("6371000"));
    std::string const text = WktOf(*curved);
    EXPECT_EQ(text, WktOf(*TestSupport::Create(TestSupport::TLocalText{})));
    EXPECT_EQ(TProjSystem(WithoutLastAxis(text)).Type(), PJ_TYPE_ENGINEERING_CRS);
}

// --- Heights and Panorama's names --------------------------------------------------------------------------

struct TGeoidRow {
    char const* Id;
    char const* Code; ///< the register's vertical system
};

void PrintTo(TGeoidRow const& row, std::ostream* out) {
    *out << row.Id;
}

class WktExportOfGeoid : public testing::TestWithParam<TGeoidRow> {};

TEST_P(WktExportOfGeoid, IsTheVerticalSystemOfTheRegister) {
    TestSupport::TLevelGrid surface(40);
    auto const wgs84 = SystemNamed("wgs-84");
    for (char const* const name : {"wgs-84", "utm:37N"}) {
        auto const system = SystemNamed(name);
        ASSERT_TRUE(system->SetGeoid(GetParam().Id, &surface, wgs84.get()));
        // With a geoid the text is compound whatever is asked for.
        TProjSystem const projs(WktOf(*system));
        ASSERT_TRUE(projs.IsRead());
        EXPECT_EQ(projs.Complaints(), std::vector<std::string>());
        EXPECT_EQ(projs.Type(), PJ_TYPE_COMPOUND_CRS);
        EXPECT_EQ(projs.VerticalCode(), GetParam().Code);
    }
}

// EPSG:5773 is the height over EGM96, EPSG:3855 that over EGM2008.
constexpr TGeoidRow geoids[] = {
    {"EGM96", "5773"},
    {" egm 96 of 15 minutes", "5773"},
    {"Earth Gravitational Model 2008", "3855"},
    {"egm2008 and EGM-96", "5773"},
    {"Quasigeoid of a town", ""},
};
INSTANTIATE_TEST_SUITE_P(Ids, WktExportOfGeoid, testing::ValuesIn(geoids));

TEST(WktExportOfPanorama, NameStandsInTheGeographicSystemAndChangesNoNumber) {
    for (char const* const name : {"gsk:1", "gsk:7", "gsk:31", "gsk:60"}) {
        auto const grid = GridNamed(name);
        TProjSystem const projs(WktOf(*grid, false, true));
        EXPECT_EQ(projs.GeographicName(), grid->GetPanoramaName());
        EXPECT_EQ(projs.GeographicName().find("GSK-2011 Zone "), 0u);
        EXPECT_LT(GreatestPlaneDistance(*grid, projs, name), Agreed);
    }
}

TEST(WktExportOfPanorama, WithoutACodeTheDatumNamesTheGeographicSystem) {
    auto const grid = GridNamed("gk:7");
    EXPECT_EQ(TProjSystem(WktOf(*grid, false, true)).GeographicName(), grid->DatumName);
}

} // namespace

} // namespace OracleTests
