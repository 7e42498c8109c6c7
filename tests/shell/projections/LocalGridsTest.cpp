#include "shell/projections/LocalGrids.h"

#include "tests/shell/projections/ZonedTestKit.h"

#include <limits>

namespace {

using namespace ZonedTestKit;
using Msk = TShellMSKxxMapProjection;
using Sk63 = TShellSK63MapProjection;

// Hosts are compiled against this layout.
static_assert(sizeof(Msk) == sizeof(TShellMapProjection) + 16);
static_assert(sizeof(Sk63) == sizeof(TShellMapProjection) + sizeof(std::string) + 8);
static_assert(std::is_same_v<decltype(Msk::Region), int> && std::is_same_v<decltype(Msk::Zone), int>);
static_assert(std::is_same_v<decltype(Msk::ZoneWidth), double>);
static_assert(std::is_same_v<decltype(Sk63::Block), std::string> &&
              std::is_same_v<decltype(Sk63::Zone), int>);
static_assert(std::is_same_v<decltype(Sk63::ZoneWidth), int>);

constexpr char const* mskMessage = "TShellMSKxxMapProjection::TShellMSKxxMapProjection(TStringTree *tree)";
constexpr char const* sk63Message = "TShellSK63MapProjection::TShellSK63MapProjection(TStringTree *tree)";

TChanges Region(std::string const& region, std::string const& zone, std::string const& width) {
    return {{ZoneKey, zone}, {WidthKey, width}, {RegionKey, region}};
}

TChanges Block(std::string const& block, std::string const& zone, std::string const& width) {
    return {{ZoneKey, zone}, {WidthKey, width}, {BlockKey, block}};
}

std::unique_ptr<Msk> MakeMsk(std::string const& region, std::string const& zone = "1",
                             std::string const& width = "3", TUnits const& units = surveyUnits) {
    return Make<Msk>(1003, Region(region, zone, width), units);
}

std::unique_ptr<Sk63> MakeSk63(std::string const& block, std::string const& zone = "1",
                               std::string const& width = "3", TUnits const& units = surveyUnits) {
    return Make<Sk63>(1004, Block(block, zone, width), units);
}

// --- Description -------------------------------------------------------------------------------------------

TEST(LocalGrids, DescriptionGivesRegionZoneAndWidth) {
    auto const region = MakeMsk("50", "2", "3.5");
    EXPECT_EQ(region->Type, mptMSKxx);
    EXPECT_EQ(region->Region, 50);
    EXPECT_EQ(region->Zone, 2);
    EXPECT_EQ(region->ZoneWidth, 3.5);
    auto const block = MakeSk63("C0", "2", "3");
    EXPECT_EQ(block->Type, mptSK63);
    EXPECT_EQ(block->Block, "C0");
    EXPECT_EQ(block->Zone, 2);
    EXPECT_EQ(block->ZoneWidth, 3);
}

TEST(LocalGrids, ClassesAreDirectChildrenOfTheFamilyWithTheirMembersInOrder) {
    ExpectDirectChildOfTheFamily<Msk>();
    ExpectDirectChildOfTheFamily<Sk63>();
    constexpr auto BaseSize = static_cast<std::ptrdiff_t>(sizeof(TShellMapProjection));
    auto const region = MakeMsk("50");
    EXPECT_EQ(OffsetOf(*region, region->Region), BaseSize);
    EXPECT_EQ(OffsetOf(*region, region->Zone), BaseSize + 4);
    EXPECT_EQ(OffsetOf(*region, region->ZoneWidth), BaseSize + 8);
    constexpr auto AfterBlock = BaseSize + static_cast<std::ptrdiff_t>(sizeof(std::string));
    auto const block = MakeSk63("C");
    EXPECT_EQ(OffsetOf(*block, block->Block), BaseSize);
    EXPECT_EQ(OffsetOf(*block, block->Zone), AfterBlock);
    EXPECT_EQ(OffsetOf(*block, block->ZoneWidth), AfterBlock + 4);
}

TEST(LocalGrids, MissingTextsAreRefused) {
    for (int const tag : {ZoneKey, WidthKey, RegionKey}) {
        EXPECT_EQ(Refusal<Msk>(1003, Without(Region("50", "2", "3"), tag)), mskMessage) << tag;
    }
    for (int const tag : {ZoneKey, WidthKey, BlockKey}) {
        EXPECT_EQ(Refusal<Sk63>(1004, Without(Block("C", "2", "3"), tag)), sk63Message) << tag;
    }
}

TEST(LocalGrids, NumbersThatAreNoneOrBelowOneOrBeyondAnIntAreRefused) {
    for (char const* const bad :
         {"", " ", "x", "0", "-1", "2147483648", "4294967298", "99999999999999999999"}) {
        EXPECT_EQ(Refusal<Msk>(1003, Region(bad, "2", "3")), mskMessage) << bad;
        EXPECT_EQ(Refusal<Msk>(1003, Region("50", bad, "3")), mskMessage) << bad;
        EXPECT_EQ(Refusal<Sk63>(1004, Block("C", bad, "3")), sk63Message) << bad;
        EXPECT_EQ(Refusal<Sk63>(1004, Block("C", "2", bad)), sk63Message) << bad;
    }
    EXPECT_EQ(Refusal<Sk63>(1004, Block("", "2", "3")), sk63Message);
}

TEST(LocalGrids, WidthOfARegionsZonesMustBeAboveZero) {
    for (char const* const bad : {"", " ", "x", "0", "0.0", "-3", "-0.1", "nan"}) {
        EXPECT_EQ(Refusal<Msk>(1003, Region("50", "2", bad)), mskMessage) << bad;
    }
    EXPECT_EQ(MakeMsk("50", "2", "1e-3")->ZoneWidth, 0.001);
}

TEST(LocalGrids, WhatFollowsANumberDoesNotCount) {
    auto const region = MakeMsk("50th", "2nd", "1.5 degrees");
    EXPECT_EQ(region->Region, 50);
    EXPECT_EQ(region->Zone, 2);
    EXPECT_EQ(region->ZoneWidth, 1.5);
    // The width of a block's zones is a whole number.
    auto const block = MakeSk63("C", "2.7", "3.9");
    EXPECT_EQ(block->Zone, 2);
    EXPECT_EQ(block->ZoneWidth, 3);
}

TEST(LocalGrids, WidthIsInDegreesWhateverTheAngularUnit) {
    TUnits const gons = {&foot, &grad, &millionth};
    ExpectTransverseMercator(*MakeMsk("30", "2", "3", gons), 3 + 46.05, 1, 2300000, -4714743.504);
    ExpectTransverseMercator(*MakeSk63("R", "2", "3", gons), 3 + 43.05, 1, 2300000, -14743.504);
    ExpectTransverseMercator(*MakeMsk("30", "2", "3", noUnits), 3 + 46.05, 1, 2300000, -4714743.504);
}

// --- Regions -----------------------------------------------------------------------------------------------

TEST(LocalGrids, RegionsCountZonesFromTheirFirst) {
    ExpectTransverseMercator(*MakeMsk("50", "1"), 35.483333333333334, 1, 1250000, -5712900.566);
    ExpectTransverseMercator(*MakeMsk("50", "2"), 3 + 35.483333333333334, 1, 2250000, -5712900.566);
    ExpectTransverseMercator(*MakeMsk("66", "3", "1.5"), 3 + 60.05, 1, 3500000, -5911057.63);
}

TEST(LocalGrids, Region72HasTwoFirstZonesByTheWidth) {
    ExpectTransverseMercator(*MakeMsk("72", "1", "3"), 63.05, 1, 1500000, -5811057.63);
    ExpectTransverseMercator(*MakeMsk("72", "1", "2"), 63.05, 1, 1500000, -5811057.63);
    ExpectTransverseMercator(*MakeMsk("72", "1", "1.999"), 66.08333333333333, 1, 1500000, -6000000);
    ExpectTransverseMercator(*MakeMsk("72", "2", "1.5"), 1.5 + 66.08333333333333, 1, 2500000, -6000000);
}

TEST(LocalGrids, RegionsWithOneGridIgnoreZoneAndWidth) {
    for (char const* const zone : {"1", "2", "60"}) {
        for (char const* const width : {"3", "1.5"}) {
            ExpectTransverseMercator(*MakeMsk("124", zone, width), 93, 1, 54304.47, -6196680.59);
            ExpectTransverseMercator(*MakeMsk("163", zone, width), 81, 1, 65425.7, -7434483.2);
        }
    }
}

TEST(LocalGrids, UnknownRegionsLoadAndAreRefusedByTheCore) {
    for (char const* const region :
         {"17", "19", "77", "82", "84", "85", "88", "90", "123", "125", "162", "175", "2147483647"}) {
        auto const shell = MakeMsk(region);
        EXPECT_EQ(CoreOf(*shell), nullptr) << region;
    }
}

TEST(LocalGrids, UnusedPlacesOfARowAreNoRegion) {
    auto const shell = MakeMsk("50");
    for (int const region : {0, -1, -50}) {
        shell->Region = region;
        EXPECT_EQ(CoreOf(*shell), nullptr) << region;
    }
}

// PROJ 9.1.1, `proj +proj=tmerc +ellps=WGS84 +lon_0=38.483333333333334 +x_0=2250000 +y_0=-5712900.566`.
TEST(LocalGrids, RegionProjectsAsPublishedTools) {
    ExpectPlane(*MakeMsk("50", "2"), 37.5, 55.75, 2188252.75861, 468265.55706, 1.1e-3);
}

// --- Blocks ------------------------------------------------------------------------------------------------

TEST(LocalGrids, BlocksCountZonesFromTheirFirst) {
    ExpectTransverseMercator(*MakeSk63("C", "1"), 24.95, 1, 1250000, -11057.628);
    // 24.95 and one zone of 3 degrees.
    ExpectTransverseMercator(*MakeSk63("C", "2"), 3 + 24.95, 1, 2250000, -11057.628);
    ExpectTransverseMercator(*MakeSk63("X", "3", "6"), 12 + 23.5, 1, 3300000, -9214.69);
}

TEST(LocalGrids, OnlyTheFirstCharacterOfABlockCounts) {
    ExpectTransverseMercator(*MakeSk63("Charlie"), 24.95, 1, 1250000, -11057.628);
    ExpectTransverseMercator(*MakeSk63("C0"), 24.95, 1, 1250000, -11057.628);
}

TEST(LocalGrids, UnknownBlocksLoadAndAreRefusedByTheCore) {
    for (char const* const block :
         {"H", "A", "B", "K", "N", "O", "U", "Y", "Z", "c", "x", " C", "1", "\xD0\xA1"}) {
        auto const shell = MakeSk63(block);
        EXPECT_EQ(shell->Block, block);
        EXPECT_EQ(CoreOf(*shell), nullptr) << block;
    }
}

TEST(LocalGrids, LargestNumbersDoNotOverflow) {
    // (2^31 - 2) (2^31 - 1) degrees as a whole number, and 1e6 (2^31 - 1) + 250000 metres.
    ExpectTransverseMercator(*MakeSk63("C", "2147483647", "2147483647"), 4611686011984936962.0 + 24.95, 1,
                             2147483647250000.0, -11057.628);
    ExpectTransverseMercator(*MakeMsk("50", "2147483647", "3"), 6442450938.0 + 35.483333333333334, 1,
                             2147483647250000.0, -5712900.566);
    auto const shell = MakeSk63("C");
    shell->Zone = std::numeric_limits<int>::min();
    shell->ZoneWidth = std::numeric_limits<int>::min();
    // (-2^31 - 1) (-2^31)
    ExpectTransverseMercator(*shell, 4611686020574871552.0 + 24.95, 1, -2147483648e6 + 250000, -11057.628);
}

// PROJ 9.1.1, `proj +proj=tmerc +ellps=WGS84 +lon_0=27.95 +x_0=2250000 +y_0=-11057.628`.
TEST(LocalGrids, BlockProjectsAsPublishedTools) {
    ExpectPlane(*MakeSk63("C", "2"), 28, 55.75, 2253139.74649, 6169671.62841, 1.1e-3);
}

// --- Exports, equality and life ----------------------------------------------------------------------------

TEST(LocalGrids, CoreNeedsAnEllipsoid) {
    EXPECT_EQ(MakeMsk("50")->CreateCoreMapProjection(nullptr), nullptr);
    EXPECT_EQ(MakeSk63("C")->CreateCoreMapProjection(nullptr), nullptr);
}

TEST(LocalGrids, ThereAreNoExports) {
    for (TOwned const& shell : {TOwned(MakeMsk("50")), TOwned(MakeSk63("C"))}) {
        EXPECT_NE(CoreOf(*shell), nullptr);
        EXPECT_EQ(WktTypeOf(*shell), "false");
        EXPECT_EQ(WktOf(*shell), "false");
        EXPECT_EQ(MifOf(*shell), "false");
        EXPECT_EQ(GeoKeysOf(*shell), (TGeoKeys{{0, "false"}}));
    }
}

TEST(LocalGrids, GeoTIFFCodeIsWrittenAloneAndAMethodGoesTheCommonWay) {
    auto const linear = MakeUnit<TShellLinearUnit>(metre);
    auto const angular = MakeAngularUnit(degree);
    for (TOwned const& shell : {TOwned(MakeMsk("50")), TOwned(MakeSk63("C"))}) {
        shell->GeoTIFFCode = "2500";
        shell->GeoTIFFType = "1";
        TGeoKeys keys;
        EXPECT_TRUE(shell->ExportToGeoTIFF(&keys, angular.get(), linear.get()));
        EXPECT_EQ(keys, (TGeoKeys{{3074, "2500"}}));
        shell->GeoTIFFCode.clear();
        keys.clear();
        EXPECT_FALSE(shell->ExportToGeoTIFF(&keys, angular.get(), linear.get()));
        EXPECT_EQ(keys, (TGeoKeys{{3074, "32767"}, {3075, "1"}, {3076, "32767"}, {3077, "1"}}));
    }
}

TEST(LocalGrids, EqualityIgnoresUnitsAndGeoTIFFCodes) {
    ExpectBaseToCount<Msk>(1003, Region("50", "2", "3"), false);
    ExpectBaseToCount<Sk63>(1004, Block("C", "2", "3"), false);
}

TEST(LocalGrids, EqualityOfRegionsIsThatOfRegionZoneAndNearlyWidth) {
    auto const shell = MakeMsk("50", "2", "3");
    EXPECT_FALSE(*shell == *MakeMsk("51", "2", "3"));
    EXPECT_FALSE(*shell == *MakeMsk("50", "1", "3"));
    EXPECT_FALSE(*shell == *MakeMsk("50", "2", "1.5"));
    EXPECT_TRUE(*shell == *MakeMsk("50", "2", "3.0000000000009"));
    EXPECT_TRUE(*shell == *MakeMsk("50", "2", "2.9999999999991"));
    EXPECT_FALSE(*shell == *MakeMsk("50", "2", "3.000000000002"));
    EXPECT_FALSE(*shell == *MakeMsk("50", "2", "2.999999999998"));
    // Both have no zones there, but another description.
    EXPECT_FALSE(*MakeMsk("124", "1") == *MakeMsk("124", "2"));
}

TEST(LocalGrids, EqualityOfBlocksIsThatOfTheWholeTextZoneAndWidth) {
    auto const shell = MakeSk63("C", "2", "3");
    EXPECT_TRUE(*shell == *MakeSk63("C", "2", "3"));
    EXPECT_FALSE(*shell == *MakeSk63("C0", "2", "3"));
    EXPECT_FALSE(*shell == *MakeSk63("D", "2", "3"));
    EXPECT_FALSE(*shell == *MakeSk63("C", "1", "3"));
    EXPECT_FALSE(*shell == *MakeSk63("C", "2", "6"));
}

TEST(LocalGrids, AnotherClassIsDifferentEvenUnderTheSameType) {
    auto const region = MakeMsk("50", "2", "3");
    auto const block = MakeSk63("C", "2", "3");
    EXPECT_FALSE(*region == *block);
    EXPECT_FALSE(*block == *region);
    auto const misnamed = Make<Sk63>(1003, Block("C", "2", "3"));
    EXPECT_EQ(misnamed->Type, mptMSKxx);
    EXPECT_FALSE(*region == *misnamed);
    EXPECT_FALSE(*misnamed == *region);
    EXPECT_FALSE(*misnamed == *block);
}

TEST(LocalGrids, ResetLeavesNothing) {
    auto const region = MakeMsk("50", "2", "3");
    region->Reset();
    EXPECT_EQ(region->Region, 0);
    EXPECT_EQ(region->Zone, 0);
    EXPECT_EQ(region->ZoneWidth, 0);
    EXPECT_EQ(region->AngularUnit, nullptr);
    ExpectNothingComesOut(*region);
    auto const block = MakeSk63("C", "2", "3");
    block->Reset();
    EXPECT_EQ(block->Block, "");
    EXPECT_EQ(block->Zone, 0);
    EXPECT_EQ(block->ZoneWidth, 0);
    ExpectNothingComesOut(*block);
}

TEST(LocalGrids, XmlLosesTheParameters) {
    auto const region = MakeMsk("50", "2", "3");
    ExpectXmlLosesTheParameters(region.get());
    EXPECT_EQ(region->Region, 0);
    auto const block = MakeSk63("C", "2", "3");
    ExpectXmlLosesTheParameters(block.get());
    EXPECT_EQ(block->Block, "");
}

} // namespace
