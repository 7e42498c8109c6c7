#include "tests/shell/projections/LocalGridRows.h"

#include "core/projections/TransverseMercator.h"
#include "frame/NumberText.h"
#include "shell/projections/LocalGrids.h"
#include "tests/shell/projections/ZonedCores.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace LocalGridRows;
using namespace ZonedCores;
using KvRefSystem::TShellMSKxxMapProjection;
using KvRefSystem::TShellSK63MapProjection;
using KvRefSystem::TTransverseMercatorMapProjection;

constexpr int Zones[] = {1, 2, 5, 60};
constexpr char const* Widths[] = {"3", "6", "1.5", "0.25"};
constexpr char const* BlockWidths[] = {"3", "6", "1"};

constexpr char const* MskMessage = "TShellMSKxxMapProjection::TShellMSKxxMapProjection(TStringTree *tree)";

double Number(std::string const& text) {
    double value = std::nan("");
    EXPECT_TRUE(KvRefSystem::ParseWholeDouble(text, &value)) << text;
    return value;
}

std::unique_ptr<TMapProjection> MskCore(int region, int zone, std::string const& width) {
    return Core<TShellMSKxxMapProjection>(
        1003, {{6201, std::to_string(zone)}, {6206, width}, {6205, std::to_string(region)}});
}

std::unique_ptr<TMapProjection> BlockCore(std::string const& block, int zone, std::string const& width) {
    return Core<TShellSK63MapProjection>(1004, {{6201, std::to_string(zone)}, {6206, width}, {6204, block}});
}

/** Lengths in metres. @param degrees the central meridian, which turns into radians as a product over 180. */
void ExpectGrid(TMapProjection const* core, double degrees, double falseEasting, double falseNorthing) {
    ASSERT_NE(core, nullptr);
    EXPECT_EQ(core->Type, KvRefSystem::mptTransverseMercator);
    auto const* grid = dynamic_cast<TTransverseMercatorMapProjection const*>(core);
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(grid->Parameters->CentralMeridian, degrees * Pi / 180);
    EXPECT_EQ(grid->Parameters->LatitudeOfOrigin, 0);
    EXPECT_EQ(grid->Parameters->ScaleFactor, 1);
    EXPECT_EQ(grid->Parameters->FalseEasting, falseEasting);
    EXPECT_EQ(grid->Parameters->FalseNorthing, falseNorthing);
}

/** The row's grid moved to a zone: one width to the east for each, and its number before the easting. */
template <class TRow>
void ExpectZone(TMapProjection const* core, TRow const& row, int zone, double width) {
    ExpectGrid(core, (zone - 1) * width + Number(row.Longitude), zone * 1e6 + Number(row.FalseEasting),
               Number(row.FalseNorthing));
}

std::string At(int region, int zone, std::string const& width) {
    return "region " + std::to_string(region) + ", zone " + std::to_string(zone) + ", width " + width;
}

std::set<int> ListedRegions() {
    std::set<int> regions = {72};
    for (TRegionRow const& row : ZonedRegions) {
        regions.insert(row.Codes.begin(), row.Codes.end());
    }
    for (TRegionRow const& row : SingleZoneRegions) {
        regions.insert(row.Codes.begin(), row.Codes.end());
    }
    regions.erase(0);
    return regions;
}

std::set<char> ListedLetters() {
    std::set<char> letters;
    for (TBlockRow const& row : Blocks) {
        letters.insert(row.Letter);
    }
    return letters;
}

} // namespace

TEST(LocalGridRows, PrintedLongitudesAreWholeMinutes) {
    // As all these grids were laid out. Printed digits and rounding leave some 1e-12 of a minute.
    auto const expectWholeMinutes = [](char const* longitude) {
        double const minutes = Number(longitude) * 60;
        EXPECT_NEAR(minutes, std::round(minutes), 1e-11) << longitude;
    };
    for (TRegionRow const& row : ZonedRegions) {
        expectWholeMinutes(row.Longitude);
    }
    for (TBlockRow const& row : Blocks) {
        expectWholeMinutes(row.Longitude);
    }
    expectWholeMinutes(NarrowRegion72.Longitude);
    expectWholeMinutes(WideRegion72.Longitude);
}

TEST(LocalGridRows, ZonedRegionsFollowEachOtherToTheEast) {
    for (TRegionRow const& row : ZonedRegions) {
        for (int const region : row.Codes) {
            for (int const zone : Zones) {
                for (std::string const width : Widths) {
                    if (region != 0) {
                        SCOPED_TRACE(At(region, zone, width));
                        ExpectZone(MskCore(region, zone, width).get(), row, zone, Number(width));
                    }
                }
            }
        }
    }
}

TEST(LocalGridRows, Region72HasOneGridForNarrowZonesAndAnotherFromTwoDegreesOn) {
    for (int const zone : Zones) {
        for (std::string const width : {"0.5", "1", "1.5", "1.9999999999999998"}) {
            SCOPED_TRACE(At(72, zone, width));
            ExpectZone(MskCore(72, zone, width).get(), NarrowRegion72, zone, Number(width));
        }
        for (std::string const width : {"2", "2.0000000000000004", "3", "6"}) {
            SCOPED_TRACE(At(72, zone, width));
            ExpectZone(MskCore(72, zone, width).get(), WideRegion72, zone, Number(width));
        }
    }
}

TEST(LocalGridRows, RegionsOfASingleZoneIgnoreItsNumberAndWidth) {
    for (TRegionRow const& row : SingleZoneRegions) {
        for (int const zone : Zones) {
            for (std::string const width : {"3", "6", "1.5", "7.125"}) {
                SCOPED_TRACE(At(row.Codes[0], zone, width));
                ExpectGrid(MskCore(row.Codes[0], zone, width).get(), Number(row.Longitude),
                           Number(row.FalseEasting), Number(row.FalseNorthing));
            }
        }
    }
}

TEST(LocalGridRows, NoOtherRegionBuilds) {
    std::set<int> const listed = ListedRegions();
    EXPECT_EQ(listed.size(), static_cast<std::size_t>(RegionCount));
    int built = 0;
    for (int region = 1; region <= 4000; ++region) {
        bool const builds = MskCore(region, 2, "3") != nullptr;
        EXPECT_EQ(builds, listed.count(region) == 1) << "region " << region;
        built += builds ? 1 : 0;
    }
    EXPECT_EQ(built, RegionCount);
    for (int const region : {4001, 65537, 1000072, 2147483647}) {
        EXPECT_EQ(MskCore(region, 2, "3"), nullptr) << "region " << region;
    }
}

TEST(LocalGridRows, RegionsBelowOneAreRefusedAtLoad) {
    for (int region = -5; region < 1; ++region) {
        EXPECT_EQ(DatumTestKit::MessageOf([region] { MskCore(region, 2, "3"); }), MskMessage)
            << "region " << region;
    }
}

TEST(LocalGridRows, BlocksFollowTheirRows) {
    for (TBlockRow const& row : Blocks) {
        for (int const zone : Zones) {
            for (std::string const width : BlockWidths) {
                SCOPED_TRACE(std::string("block ") + row.Letter + ", zone " + std::to_string(zone) +
                             ", width " + width);
                ExpectZone(BlockCore(std::string(1, row.Letter), zone, width).get(), row, zone,
                           Number(width));
            }
        }
    }
}

TEST(LocalGridRows, NoOtherByteIsABlock) {
    std::set<char> const listed = ListedLetters();
    EXPECT_EQ(listed.size(), 17U);
    unsigned built = 0;
    for (int byte = 1; byte <= 255; ++byte) {
        char const letter = static_cast<char>(byte);
        bool const builds = BlockCore(std::string(1, letter), 2, "3") != nullptr;
        EXPECT_EQ(builds, listed.count(letter) == 1) << "byte " << byte;
        built += builds ? 1U : 0U;
    }
    EXPECT_EQ(built, listed.size());
}

TEST(LocalGridRows, RegionsAreListedInRisingOrder) {
    std::set<int> const listed = ListedRegions();
    EXPECT_EQ(KvRefSystem::GetMSKxxRegions(), std::vector<int>(listed.begin(), listed.end()));
}

TEST(LocalGridRows, BlocksAreListedInTheOrderOfTheAlphabet) {
    std::set<char> const listed = ListedLetters();
    EXPECT_EQ(KvRefSystem::GetSK63Blocks(), std::string(listed.begin(), listed.end()));
}
