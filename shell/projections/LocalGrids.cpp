#include "shell/projections/LocalGrids.h"

#include "shell/projections/ProjectionTagsDetail.h"
#include "shell/projections/TransverseGridDetail.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <optional>
#include <stdexcept>

namespace KvRefSystem {

namespace {

using TransverseGrid::TGrid;

constexpr double WidthTolerance = 1e-12; ///< degrees, of equal zone widths
constexpr double ZoneInEasting = 1000000;
constexpr double Scale = 1;
constexpr int MostRegionsOfAGrid = 4;

/** The first zone of a region or block, or a region's one grid. */
struct TOrigin {
    double Meridian; ///< central meridian, degrees
    double Easting;  ///< false easting, metres; without the zone
    double Northing; ///< false northing, metres
};

/** Regions that share their first zone; unused places are 0. */
struct TZonedRegions {
    int Regions[MostRegionsOfAGrid];
    TOrigin First;
};

struct TRegionWithOneGrid {
    int Region;
    TOrigin Grid;
};

struct TBlock {
    char Letter;
    TOrigin First;
};

// clang-format off

constexpr TZonedRegions ZonedRegions[] = {
    {{1, 23}, {37.983333333333334, 300000, -4511057.628}},
    {{2}, {55.03333333333333, 300000, -5409414.7}},
    {{3}, {100.03333333333333, 250000, -5211057.63}},
    {{4}, {85.46666666666667, 300000, -5112900.56}},
    {{5}, {37.983333333333334, 300000, -11057.628}},
    {{6, 7, 15, 20}, {43.983333333333334, 300000, -4311057.63}},
    {{8}, {40.983333333333334, 300000, -4711057.63}},
    {{9}, {40.983333333333334, 300000, -4311057.63}},
    {{10}, {32.03333333333333, 400000, -6511057.63}},
    {{11}, {41.03333333333333, 400000, -6211057.628}},
    {{12, 43}, {47.55, 250000, -5914743.504}},
    {{13}, {44.55, 250000, -5614743.504}},
    {{14}, {108.45, 400000, -5912900.566}},
    {{16}, {49.03333333333333, 300000, -5709414.7}},
    {{18}, {50.55, 250000, -5914743.504}},
    {{21}, {47.55, 250000, -5814743.504}},
    {{22}, {79.46666666666667, 300000, -5312900.56}},
    {{24}, {81.51666666666667, 500000, -5416586.442}},
    {{25}, {130.71666666666667, 300000, -4416586.44}},
    {{26}, {40.983333333333334, 300000, -4511057.63}},
    {{27}, {130.71666666666667, 300000, -4916586.44}},
    {{28}, {121.71666666666667, 300000, -5116586.44}},
    {{29, 83}, {32.03333333333333, 400000, -6511057.628}},
    {{30}, {46.05, 300000, -4714743.504}},
    {{31}, {35.483333333333334, 250000, -5212900.56}},
    {{32}, {32.483333333333334, 250000, -5412900.56}},
    {{33}, {38.55, 250000, -5814743.504}},
    {{34}, {43.05, 300000, -4914743.504}},
    {{35}, {35.55, 250000, -6214743.504}},
    {{36}, {38.483333333333334, 250000, -5212900.566}},
    {{37, 76}, {38.55, 250000, -6014743.504}},
    {{38}, {97.03333333333333, 250000, -5411057.63}},
    {{39}, {21.45, 250000, -5711057.628}},
    {{40}, {35.483333333333334, 250000, -5612900.566}},
    {{41}, {158.46666666666667, 400000, -5316586.442}},
    {{42}, {85.46666666666667, 300000, -5512900.56}},
    {{44}, {41.55, 250000, -6114743.504}},
    {{45}, {61.03333333333333, 300000, -5709414.7}},
    {{46}, {35.483333333333334, 250000, -5312900.566}},
    {{47}, {27.95, 250000, -6211057.628}},
    {{48}, {38.483333333333334, 250000, -5412900.566}},
    {{49, 87}, {144.45, 400000, -6212900.566}},
    {{50}, {35.483333333333334, 250000, -5712900.566}},
    {{51}, {32.03333333333333, 400000, -7011057.628}},
    {{52}, {41.55, 250000, -5714743.504}},
    {{53}, {29.483333333333334, 250000, -5912900.56}},
    {{54}, {74.73333333333333, 250000, -5612900.566}},
    {{55}, {71.73333333333333, 250000, -5612900.563}},
    {{56}, {52.03333333333333, 300000, -5309414.7}},
    {{57}, {32.483333333333334, 250000, -12900.566}},
    {{58}, {43.05, 300000, -5514743.504}},
    {{59}, {53.55, 250000, -5914743.504}},
    {{60}, {27.95, 250000, -5911057.63}},
    {{61}, {37.983333333333334, 300000, -4811057.628}},
    {{62}, {38.483333333333334, 250000, -5612900.56}},
    {{63}, {49.03333333333333, 300000, -5509414.7}},
    {{64}, {43.05, 300000, -5214743.504}},
    {{65}, {142.71666666666667, 300000, -4516586.439}},
    {{66}, {60.05, 500000, -5911057.63}},
    {{67}, {32.483333333333334, 250000, -5612900.56}},
    {{68}, {41.483333333333334, 250000, -5412900.56}},
    {{69}, {32.483333333333334, 250000, -6012900.566}},
    {{70}, {74.73333333333333, 250000, -5912900.566}},
    {{71}, {35.483333333333334, 250000, -5612900.563}},
    {{73}, {46.05, 300000, -5514743.504}},
    {{74}, {58.03333333333333, 300000, -5509414.7}},
    {{75}, {109.03333333333333, 250000, -5111057.628}},
    {{86, 89}, {60.05, 500000, -5811057.63}},
};

constexpr TRegionWithOneGrid RegionsWithOneGrid[] = {
    {124, {93, 54304.47, -6196680.59}},
    {163, {81, 65425.7, -7434483.2}},
    {164, {84, 86209.8, -6542783.5}},
    {165, {87, 105295.8, -5652185.0}},
    {166, {90, 107543.3, -5540944.5}},
    {167, {93, 106797.8, -5578022.5}},
    {168, {96, 108285.2, -5503868.6}},
    {169, {99, 117308.6, -5503868.6}},
    {170, {102, 90338.9, -6357146.1}},
    {171, {105, 87870.5, -6468522.7}},
    {172, {108, 73593.7, -6877050.9}},
    {173, {111, 61954.6, -7546013.8}},
    {174, {114, 50000.0, -8150000.0}},
    {1964, {30, 95942.17, -6552810.0}},
    {3395, {39, 134156.988, -6032524.376}},
};

constexpr TBlock Blocks[] = {
    {'C', {24.95, 250000, -11057.628}},
    {'D', {38.55, 250000, -14743.504}},
    {'E', {77.78333333333333, 300000, -14743.504}},
    {'F', {97.03333333333333, 250000, -11057.628}},
    {'G', {121.71666666666667, 300000, -16586.442}},
    {'I', {71.73333333333333, 250000, -12900.566}},
    {'J', {158.46666666666667, 400000, -16586.442}},
    {'L', {81.51666666666667, 500000, -16586.442}},
    {'M', {79.46666666666667, 300000, -12900.566}},
    {'P', {32.483333333333334, 250000, -12900.566}},
    {'Q', {60.03333333333333, 400000, -11057.628}},
    {'R', {43.05, 300000, -14743.504}},
    {'S', {108.45, 400000, -12900.566}},
    {'T', {37.983333333333334, 300000, -11057.628}},
    {'V', {49.03333333333333, 300000, -9414.7}},
    {'W', {60.05, 500000, -11057.628}},
    {'X', {23.5, 300000, -9214.69}},
};

/** The region with two systems: one of narrow zones, one of three degrees. */
constexpr int RegionOfTwoWidths = 72;
constexpr double LeastWideZone = 2; ///< degrees
constexpr TOrigin FirstNarrowZone = {66.08333333333333, 500000, -6000000};
constexpr TOrigin FirstWideZone = {63.05, 500000, -5811057.63};

// clang-format on

TOrigin const* FindFirstZone(int region, double width) {
    if (region == RegionOfTwoWidths) {
        return width < LeastWideZone ? &FirstNarrowZone : &FirstWideZone;
    }
    for (TZonedRegions const& row : ZonedRegions) {
        for (int const code : row.Regions) {
            if (code != 0 && code == region) {
                return &row.First;
            }
        }
    }
    return nullptr;
}

TOrigin const* FindOneGrid(int region) {
    for (TRegionWithOneGrid const& row : RegionsWithOneGrid) {
        if (row.Region == region) {
            return &row.Grid;
        }
    }
    return nullptr;
}

TOrigin const* FindBlock(std::string const& text) {
    for (TBlock const& row : Blocks) {
        if (text.starts_with(row.Letter)) {
            return &row.First;
        }
    }
    return nullptr;
}

/** @param eastward of the first zone's central meridian, degrees. */
TGrid ZoneGrid(TOrigin const& first, int zone, double eastward) {
    return {eastward + first.Meridian, Scale, zone * ZoneInEasting + first.Easting, first.Northing};
}

/** @return nothing for an unknown region. */
std::optional<TGrid> RegionGrid(int region, int zone, double width) {
    if (TOrigin const* const first = FindFirstZone(region, width)) {
        return ZoneGrid(*first, zone, (zone - 1.0) * width);
    }
    if (TOrigin const* const grid = FindOneGrid(region)) {
        return TGrid{grid->Meridian, Scale, grid->Easting, grid->Northing};
    }
    return std::nullopt;
}

/** @return nothing for an unknown block. */
std::optional<TGrid> BlockGrid(std::string const& block, int zone, int width) {
    TOrigin const* const first = FindBlock(block);
    if (!first) {
        return std::nullopt;
    }
    std::int64_t const eastward = (std::int64_t(zone) - 1) * width; // twice the bits: never too large
    return ZoneGrid(*first, zone, static_cast<double>(eastward));
}

/** @return null without a grid, too. */
TMapProjection* CreateCore(TEllipsoidSemiAxes const* semiAxes, std::optional<TGrid> const& grid) {
    return TransverseGrid::CoreOrNull(
        [&] { return grid ? TransverseGrid::CreateTransverseMercator(semiAxes, *grid) : nullptr; });
}

} // namespace

// --- Regions -----------------------------------------------------------------------------------------------

TShellMSKxxMapProjection::TShellMSKxxMapProjection(TStringTree* tree) : TShellMapProjection(tree) {
    std::optional<int> const zone = TransverseGrid::ReadCount(*tree, ProjectionTag::Zone);
    std::optional<double> const width = TransverseGrid::ReadPositive(*tree, ProjectionTag::ZoneWidth);
    std::optional<int> const region = TransverseGrid::ReadCount(*tree, ProjectionTag::Region);
    if (!zone || !width || !region) {
        throw std::runtime_error("TShellMSKxxMapProjection::TShellMSKxxMapProjection(TStringTree *tree)");
    }
    Region = *region;
    Zone = *zone;
    ZoneWidth = *width;
}

TMapProjection* TShellMSKxxMapProjection::CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const {
    return CreateCore(semiAxes, RegionGrid(Region, Zone, ZoneWidth));
}

bool TShellMSKxxMapProjection::operator==(TShellMapProjection const& other) const {
    auto const* const same = AsSameClass(*this, other);
    return same && Zone == same->Zone && Region == same->Region &&
           std::fabs(ZoneWidth - same->ZoneWidth) <= WidthTolerance;
}

void TShellMSKxxMapProjection::Reset() {
    TShellMapProjection::Reset();
    Region = 0;
    Zone = 0;
    ZoneWidth = 0;
}

bool TShellMSKxxMapProjection::ExportMapProjParamsToGeoTIFF(std::map<int, std::string>*,
                                                            TShellAngularUnit const*,
                                                            TShellLinearUnit const*) const {
    return false;
}

// --- Blocks ------------------------------------------------------------------------------------------------

TShellSK63MapProjection::TShellSK63MapProjection(TStringTree* tree) : TShellMapProjection(tree) {
    std::optional<int> const zone = TransverseGrid::ReadCount(*tree, ProjectionTag::Zone);
    std::optional<int> const width = TransverseGrid::ReadCount(*tree, ProjectionTag::ZoneWidth);
    if (!zone || !width || !tree->GetString(ProjectionTag::Block, 0, &Block) || Block.empty()) {
        throw std::runtime_error("TShellSK63MapProjection::TShellSK63MapProjection(TStringTree *tree)");
    }
    Zone = *zone;
    ZoneWidth = *width;
}

TMapProjection* TShellSK63MapProjection::CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const {
    return CreateCore(semiAxes, BlockGrid(Block, Zone, ZoneWidth));
}

bool TShellSK63MapProjection::operator==(TShellMapProjection const& other) const {
    auto const* const same = AsSameClass(*this, other);
    return same && Zone == same->Zone && ZoneWidth == same->ZoneWidth && Block == same->Block;
}

void TShellSK63MapProjection::Reset() {
    TShellMapProjection::Reset();
    Block.clear();
    Zone = 0;
    ZoneWidth = 0;
}

bool TShellSK63MapProjection::ExportMapProjParamsToGeoTIFF(std::map<int, std::string>*,
                                                           TShellAngularUnit const*,
                                                           TShellLinearUnit const*) const {
    return false;
}

// --- Lists -------------------------------------------------------------------------------------------------

std::vector<int> GetMSKxxRegions() {
    std::vector<int> regions = {RegionOfTwoWidths};
    for (TZonedRegions const& row : ZonedRegions) {
        std::copy_if(std::begin(row.Regions), std::end(row.Regions), std::back_inserter(regions),
                     [](int code) { return code != 0; });
    }
    for (TRegionWithOneGrid const& row : RegionsWithOneGrid) {
        regions.push_back(row.Region);
    }
    std::sort(regions.begin(), regions.end());
    return regions;
}

std::string GetSK63Blocks() {
    std::string letters;
    for (TBlock const& row : Blocks) {
        letters += row.Letter;
    }
    return letters;
}

} // namespace KvRefSystem
