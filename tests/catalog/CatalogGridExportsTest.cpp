#include "tests/catalog/Entries.h"

#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace VellariTest {

namespace {

using namespace KvRefSystem;

struct TExports {
    char const* Entry;
    char const* Mif;           ///< first and last parts of the MapInfo clause around the datum; null for none
    char const* MifParameters; ///< as `gdalsrsinfo -o mapinfo` prints them for the register's system
    char const* GeoTiff;       ///< the method's number in GeoTIFF; null where it has none
};

void PrintTo(TExports const& row, std::ostream* out) {
    *out << row.Entry;
}

// Numbers of MapInfo: projections 3 Lambert, 8 Transverse Mercator, 9 Albers, 18 New Zealand Map Grid, 20
// stereographic; ellipsoids 0 GRS 80, 4 International 1924, 9 Airy, 28 WGS 84. The order of the two parallels
// is the entry's.
TExports const rows[] = {
    {"albers-conus", "9, 9999, 0, ", "-96, 23, 29.5, 45.5, 0, 0", "11"},
    {"belge-lambert-72", nullptr, nullptr, nullptr},
    {"belgian-lambert-72", "3, 9999, 4, ", nullptr, "8"},
    {"british-national-grid", "8, 9999, 9, ", "-2, 49, 0.9996012717, 400000, -100000", "1"},
    {"etrs89-laea", nullptr, nullptr, "10"},
    {"etrs89-lcc", "3, 9999, 0, ", "10, 52, 35, 65, 4000000, 2800000", "8"},
    {"italy-zone-1", "8, 9999, 4, ", "9, 0, 0.9996, 1500000, 0", "1"},
    {"italy-zone-2", "8, 9999, 4, ", "15, 0, 0.9996, 2520000, 0", "1"},
    {"lambert-93", "3, 9999, 0, ", "3, 46.5, 49, 44, 700000, 6600000", "8"},
    {"lambert-zone-ii", nullptr, nullptr, "9"},
    {"nzmg", "18, 9999, 4, ", "173, -41, 2510000, 6023150", "26"},
    {"polyconic-brazil", nullptr, nullptr, "22"},
    {"rd-new", nullptr, nullptr, "16"},
    {"s-jtsk-krovak", nullptr, nullptr, nullptr},
    {"s-jtsk-krovak-en", nullptr, nullptr, nullptr},
    {"swiss-lv95", nullptr, nullptr, "3"},
    {"ups-north", "20, 9999, 28, ", "0, 90, 0.994, 2000000, 2000000", "15"},
    {"ups-south", "20, 9999, 28, ", "0, -90, 0.994, 2000000, 2000000", "15"},
    {"web-mercator", nullptr, nullptr, nullptr},
};

class CatalogGridExports : public testing::TestWithParam<TExports> {
protected:
    void SetUp() override {
        grid = BuildGrid(GetParam().Entry);
        ASSERT_NE(grid, nullptr);
    }

    std::unique_ptr<TShellMapProjectedReferenceSystem> grid;
};

TEST_P(CatalogGridExports, MapInfoClauseHasTheProjectionTheEllipsoidAndTheParameters) {
    std::string clause;
    ASSERT_TRUE(grid->ExportToMIFMID(&clause, false));
    if (GetParam().Mif == nullptr) {
        EXPECT_EQ(clause, "CoordSys Nonearth Units \"m\"");
        return;
    }
    std::string const head = std::string("CoordSys Earth Projection ") + GetParam().Mif;
    EXPECT_EQ(clause.substr(0, head.size()), head);
    std::string const unit = ", \"m\", ";
    std::size_t const parameters = clause.find(unit);
    ASSERT_NE(parameters, std::string::npos) << clause;
    if (GetParam().MifParameters != nullptr) {
        EXPECT_EQ(clause.substr(parameters + unit.size()), GetParam().MifParameters);
    }
}

TEST_P(CatalogGridExports, GeoTiffHasTheCodeOfTheRegister) {
    std::map<int, std::string> keys;
    ASSERT_TRUE(grid->ExportToGeoTIFF(&keys, false));
    EXPECT_EQ(keys[3072], grid->GeoTIFFCode);
    EXPECT_EQ(keys[1024], "1");
    EXPECT_EQ(keys[4099], "9001");
}

TEST_P(CatalogGridExports, ProjectionNamesItsMethodOfGeoTiff) {
    LumCommonUtils::TStringTree tree;
    ASSERT_TRUE(FillDegreeTree(&tree));
    std::unique_ptr<TShellAngularUnit> const degree(CreateShellAngularUnit(&tree));
    std::map<int, std::string> keys;
    bool const complete = grid->MapProjection->ExportToGeoTIFF(&keys, degree.get(), grid->LinearUnit);
    EXPECT_EQ(complete, GetParam().GeoTiff != nullptr);
    EXPECT_EQ(keys[3075], GetParam().GeoTiff != nullptr ? GetParam().GeoTiff : "");
}

INSTANTIATE_TEST_SUITE_P(All, CatalogGridExports, testing::ValuesIn(rows),
                         [](auto const& row) { return TestSuffix(row.param.Entry); });

TEST(CatalogGridExportsRows, CoverEveryGrid) {
    std::vector<std::string> covered;
    for (TExports const& row : rows) {
        covered.emplace_back(row.Entry);
    }
    EXPECT_EQ(covered, GridNames());
}

} // namespace

} // namespace VellariTest
