#include "tests/oracle/Road.h"
#include "tests/oracle/exports/ExportedSystems.h"
#include "tests/oracle/exports/gdal/GdalPrograms.h"
#include "tests/oracle/exports/gdal/ReadByGdal.h"
#include "tests/support/Descriptions.h"

#include "frame/NumberText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

/** The MapInfo clauses beside those that GDAL writes for the same systems of the register. */
namespace OracleTests {

namespace {

using namespace KvRefSystem;

/** A clause taken apart. */
struct TClause {
    int Projection = 0;
    std::vector<double> Datum; ///< one number, or 9999, ellipsoid, three or seven parameters and a meridian
    std::string Unit;
    std::vector<double> Parameters;
};

TClause ClauseOf(std::string text) {
    std::string const head = "Earth Projection ";
    std::size_t const at = text.find(head);
    if (at == std::string::npos) {
        throw std::runtime_error("no place on the earth: " + text);
    }
    text = text.substr(at + head.size());
    TClause clause;
    std::vector<double> numbers;
    for (std::size_t from = 0; from <= text.size();) {
        std::size_t const comma = std::min(text.find(',', from), text.size());
        std::size_t const first = std::min(text.find_first_not_of(' ', from), comma);
        std::string const piece = text.substr(first, comma - first);
        if (piece.substr(0, 1) == "\"") {
            clause.Unit = piece;
            clause.Datum.swap(numbers);
        } else {
            double value = 0;
            if (!ParseWholeDouble(piece, &value)) {
                throw std::runtime_error("not a number: " + piece);
            }
            numbers.push_back(value);
        }
        from = comma + 1;
    }
    (clause.Unit.empty() ? clause.Datum : clause.Parameters) = numbers;
    clause.Projection = static_cast<int>(clause.Datum.front());
    clause.Datum.erase(clause.Datum.begin());
    return clause;
}

TClause OurClause(TShellReferenceSystem const& system) {
    std::string text;
    EXPECT_TRUE(system.ExportToMIFMID(&text, false)) << system.Name;
    return ClauseOf(text);
}

struct TClauseRow {
    char const* Name;
    char const* Definition; ///< the system of the register
    char const* Datum;      ///< ellipsoid and shift as PROJ has them, typed from the register
};

void PrintTo(TClauseRow const& row, std::ostream* out) {
    *out << row.Name;
}

constexpr char const* zeroOnGrs80 = "+ellps=GRS80 +towgs84=0,0,0,0,0,0,0";
constexpr char const* zeroOnWgs84 = "+ellps=WGS84 +towgs84=0,0,0,0,0,0,0";
constexpr char const* pulkovo = "+ellps=krass +towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22";
constexpr char const* italy = "+ellps=intl +towgs84=-104.1,-49.1,-9.9,0.971,-2.917,0.714,-11.68";
constexpr char const* britain = "+ellps=airy +towgs84=446.448,-125.157,542.06,0.15,0.247,0.842,-20.489";
constexpr char const* gsk =
    "+a=6378136.5 +rf=298.2564151 +towgs84=0.013,-0.092,-0.03,-0.001738,0.003559,-0.004263,0.0074";

constexpr TClauseRow rows[] = {
    {"albers-conus", "EPSG:5070", zeroOnGrs80},
    {"belgian-lambert-72", "EPSG:31370",
     "+ellps=intl +towgs84=-106.8686,52.2978,-103.7239,0.3366,-0.457,1.8422,-1.2747"},
    {"british-national-grid", "EPSG:27700", britain},
    {"etrs89-lcc", "EPSG:3034", zeroOnGrs80},
    {"italy-zone-1", "EPSG:3003", italy},
    {"italy-zone-2", "EPSG:3004", italy},
    {"lambert-93", "EPSG:2154", zeroOnGrs80},
    {"nzmg", "EPSG:27200", "+ellps=intl +towgs84=59.47,-5.04,187.44,0.47,-0.1,1.024,-4.5993"},
    {"utm:1N", "EPSG:32601", zeroOnWgs84},
    {"utm:37N", "EPSG:32637", zeroOnWgs84},
    {"utm:60S", "EPSG:32760", zeroOnWgs84},
    {"gk:4", "EPSG:28404", pulkovo},
    {"gk:7", "EPSG:28407", pulkovo},
    {"gk:31", "EPSG:28431", pulkovo},
    {"gk:32", "EPSG:28432", pulkovo},
    {"gsk:7", "EPSG:20907", gsk},
    {"gsk:32", "EPSG:20932", gsk},
    {"dhdn", "EPSG:4314", "+ellps=bessel +towgs84=598.1,73.7,418.2,0.202,0.045,-2.455,6.7"},
    {"ed50", "EPSG:4230", "+ellps=intl +towgs84=-87,-98,-121"},
    {"etrs89", "EPSG:4258", zeroOnGrs80},
    {"gsk-2011", "EPSG:7683", gsk},
    {"nad27", "EPSG:4267", "+ellps=clrk66 +towgs84=-8,160,176"},
    {"osgb36", "EPSG:4277", britain},
    {"pulkovo-1942", "EPSG:4284", pulkovo},
    {"pulkovo-1995", "EPSG:4200", "+ellps=krass +towgs84=24.47,-130.89,-81.56,0,0,0.13,-0.22"},
    {"pz-90.02", "EPSG:9474", "+a=6378136 +rf=298.257839303 +towgs84=-0.36,0.08,0.18"},
    {"pz-90.11", "EPSG:9475",
     "+a=6378136 +rf=298.257839303 +towgs84=0.013,-0.106,-0.022,-0.0023,0.00354,-0.00421,0.008"},
    {"tokyo", "EPSG:4301", "+ellps=bessel +towgs84=-146.414,507.337,680.507"},
    {"wgs-84", "EPSG:4326", zeroOnWgs84},
    {"wgs-84-dms", "EPSG:4326", zeroOnWgs84},
    {"wgs-84-feet", "EPSG:4326", zeroOnWgs84},
};

class MifExport : public testing::TestWithParam<TClauseRow> {};

/** Lambert's two parallels are one pair in either order: GDAL writes the southern one first. */
void SortParallels(TClause* clause) {
    int const lambert = 3;
    if (clause->Projection == lambert) {
        std::sort(clause->Parameters.begin() + 2, clause->Parameters.begin() + 4);
    }
}

TEST_P(MifExport, ProjectionUnitAndParametersAreGdals) {
    TClause ours = OurClause(*SystemNamed(GetParam().Name));
    TClause theirs = ClauseOf(GdalsMapInfo(GetParam().Definition));
    SortParallels(&ours);
    SortParallels(&theirs);
    EXPECT_EQ(ours.Projection, theirs.Projection);
    EXPECT_EQ(ours.Unit, theirs.Unit);
    ASSERT_EQ(ours.Parameters.size(), theirs.Parameters.size());
    for (std::size_t index = 0; index < ours.Parameters.size(); ++index) {
        // Ours have ten decimals of a degree, theirs fifteen digits.
        EXPECT_NEAR(ours.Parameters[index], theirs.Parameters[index], 1e-9) << index;
    }
}

/** Both stand for 6378388 m and 297; the register's name of that ellipsoid is International 1924, number 4. */
constexpr double international = 4;
constexpr double hayford = 5;

TEST_P(MifExport, DatumIsGdalsForTheSameShift) {
    std::vector<double> const ours = OurClause(*SystemNamed(GetParam().Name)).Datum;
    std::vector<double> theirs =
        ClauseOf(GdalsMapInfo(std::string("+proj=longlat +no_defs ") + GetParam().Datum)).Datum;
    ASSERT_EQ(ours.size(), 10u);
    if (theirs == std::vector<double>{104}) {
        // GDAL knows the shift of zero on WGS 84 by MapInfo's number of that datum.
        EXPECT_EQ(ours, (std::vector<double>{9999, 28, 0, 0, 0, 0, 0, 0, 0, 0}));
        return;
    }
    ASSERT_EQ(theirs.size(), 10u);
    if (theirs[1] == hayford) {
        theirs[1] = international;
    }
    // GDAL turns the scale's sign as if it were a rotation, and reads its own clause with the turned sign: the
    // library's is the one that GDAL reads rightly, as ReadByGdalGivesOurNumbers proves.
    theirs[8] = -theirs[8];
    for (std::size_t index = 0; index < ours.size(); ++index) {
        // The clause has six digits.
        EXPECT_NEAR(ours[index], theirs[index], 5e-6 * std::abs(theirs[index])) << index;
    }
}

TEST(MifExport, GdalReadsItsOwnScaleWithTheOtherSign) {
    std::string const clause = GdalsMapInfo("+proj=longlat +ellps=krass +towgs84=1,2,3,4,5,6,7");
    EXPECT_EQ(ClauseOf(clause).Datum, (std::vector<double>{9999, 3, 1, 2, 3, -4, -5, -6, -7, 0}));
    EXPECT_NE(GdalsWktOfMapInfo("CoordSys " + clause).find("TOWGS84[1,2,3,4,5,6,-7]"), std::string::npos);
}

/** Systems whose clause GDAL knows for one of MapInfo's datums; it keeps the name then, not the shift. */
struct TKnownDatum {
    char const* Name;
    char const* Datum;
};
constexpr TKnownDatum knownDatums[] = {
    {"ed50", "DATUM[\"European_Datum_1950\","},
    {"nad27", "DATUM[\"North_American_Datum_1927\","},
    {"nzmg", "DATUM[\"NZGD_7_Param_49\","},
    {"tokyo", "DATUM[\"Tokyo\","},
};

char const* KnownDatum(std::string const& name) {
    auto const* const found = std::find_if(std::begin(knownDatums), std::end(knownDatums),
                                           [&](TKnownDatum const& row) { return row.Name == name; });
    return found == std::end(knownDatums) ? nullptr : found->Datum;
}

TEST_P(MifExport, ReadByGdalGivesOurNumbers) {
    auto const system = SystemNamed(GetParam().Name);
    std::string clause;
    ASSERT_TRUE(system->ExportToMIFMID(&clause, false));
    std::string const wkt = GdalsWktOfMapInfo(clause);
    TReadDistance const distance = DistanceOf(GetParam().Name, *system, wkt);
    EXPECT_LT(distance.Projected, PromisedOnTheGround) << clause;
    if (char const* const datum = KnownDatum(GetParam().Name)) {
        EXPECT_NE(wkt.find(datum), std::string::npos) << wkt;
    } else {
        EXPECT_LT(distance.Shifted, ReversePromise(GetParam().Name)) << clause;
    }
}

INSTANTIATE_TEST_SUITE_P(Register, MifExport, testing::ValuesIn(rows),
                         [](auto const& row) { return SuffixOf(row.param.Name); });

// --- Where only one of the two has a form ------------------------------------------------------------------

struct TOneSided {
    char const* Name;
    char const* Definition;
    char const* Reason;
};

// The library's forms of these methods lose digits that matter, or it has none; the catalogue gives them no
// settings then. GDAL has a projection number for each.
constexpr TOneSided gdalsAlone[] = {
    {"belge-lambert-72", "EPSG:31300", "six digits of each angle"},
    {"etrs89-laea", "EPSG:3035", "the method has no form"},
    {"lambert-zone-ii", "EPSG:27572", "six digits of the scale factor"},
    {"polyconic-brazil", "EPSG:5880", "the form has a scale, where MapInfo reads the false easting"},
    {"rd-new", "EPSG:28992", "six digits of each angle and of the scale factor"},
    {"s-jtsk-krovak", "EPSG:5513", "the method has no form"},
    {"s-jtsk-krovak-en", "EPSG:5514", "the method has no form"},
    {"swiss-lv95", "EPSG:2056", "the method has no form"},
    {"web-mercator", "EPSG:3857", "the method has no form"},
    {"ntf-paris", "EPSG:4807", "the form of a meridian is right for zero alone"},
    {"sphere", "EPSG:4047", "a sphere without a datum has no shift"},
};

TEST(MifExport, GdalAloneHasAPlaceOnTheEarth) {
    for (TOneSided const& row : gdalsAlone) {
        std::string clause;
        ASSERT_TRUE(SystemNamed(row.Name)->ExportToMIFMID(&clause, false)) << row.Name;
        EXPECT_EQ(clause.find("CoordSys Nonearth Units \""), 0u) << row.Name << ": " << row.Reason;
        EXPECT_NO_THROW(ClauseOf(GdalsMapInfo(row.Definition))) << row.Name;
    }
}

constexpr TOneSided polar[] = {
    {"ups-north", "EPSG:5041", "projection 20 with a pole as its origin"},
    {"ups-south", "EPSG:5042", "projection 20 with a pole as its origin"},
};

TEST(MifExport, PolarGridsAreReadThoughGdalWritesNone) {
    for (TOneSided const& row : polar) {
        EXPECT_EQ(GdalsMapInfo(row.Definition).find("NonEarth"), 0u);
        auto const system = SystemNamed(row.Name);
        std::string clause;
        ASSERT_TRUE(system->ExportToMIFMID(&clause, false));
        TReadDistance const distance = DistanceOf(row.Name, *system, GdalsWktOfMapInfo(clause));
        EXPECT_LT(distance.Projected, PromisedOnTheGround) << clause;
        EXPECT_LT(distance.Shifted, PromisedOnTheGround) << clause;
    }
}

TEST(MifExport, RowsCoverTheCatalogue) {
    for (std::string const& name : CatalogueNames()) {
        auto const isNamed = [&](auto const& row) { return row.Name == name; };
        int const kind = SystemNamed(name)->Type;
        bool const isCovered = std::any_of(std::begin(rows), std::end(rows), isNamed) ||
                               std::any_of(std::begin(gdalsAlone), std::end(gdalsAlone), isNamed) ||
                               std::any_of(std::begin(polar), std::end(polar), isNamed);
        EXPECT_EQ(isCovered, kind == rstGeodetic || kind == rstMapProjected) << name;
    }
}

TEST(MifExport, NonearthIsALocalSystemOfGdals) {
    for (char const* const name : {"rd-new", "msk:50:2", "sk63:C:1"}) {
        std::string clause;
        ASSERT_TRUE(SystemNamed(name)->ExportToMIFMID(&clause, false));
        EXPECT_EQ(clause, "CoordSys Nonearth Units \"m\"") << name;
        EXPECT_EQ(GdalsWktOfMapInfo(clause).find("LOCAL_CS[\"Nonearth\",UNIT[\"Meter\",1]"), 0u);
    }
}

// --- The ready clause of a datum ---------------------------------------------------------------------------

TEST(MifExport, ReadyClauseOfWgs84IsGdalsWholeClause) {
    TestSupport::TStringTree tree;
    tree.ReadFromString(TestSupport::CatalogText("wgs-84").c_str(), nullptr, nullptr);
    TestSupport::SetField(&tree, 101003, "104");
    auto const system = TestSupport::Create(&tree);
    std::string ready;
    std::string custom;
    ASSERT_TRUE(system->ExportToMIFMID(&ready, false));
    ASSERT_TRUE(system->ExportToMIFMID(&custom, true));
    EXPECT_EQ(ready, "CoordSys " + GdalsMapInfo("EPSG:4326"));
    EXPECT_EQ(custom, "CoordSys Earth Projection 1, 9999, 28, 0, 0, 0, 0, 0, 0, 0, 0");
}

} // namespace

} // namespace OracleTests
