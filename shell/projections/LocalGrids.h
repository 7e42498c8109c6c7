#pragma once

#include "shell/projections/MapProjection.h"

#include <string>
#include <vector>

/**
 * The shells of local coordinate systems, in which built-in tables by a region or a block give the first
 * zone. Both build a core Transverse Mercator [EPSG7-2, 9807] on the equator with a scale factor of 1.
 *
 * They know no other export than the core; with a GeoTIFF code, that code. XML has the base form only, so the
 * parameters don't come back from it. The regions and blocks have no names here: hosts supply the codes.
 */
namespace KvRefSystem {

/**
 * Local system of a region (MSK): zones of the described width, counted from the region's first; some regions
 * have one grid, which neither zone nor width change.
 *
 * Kept: an unknown region loads and is found when the core is created. Region 72 has two first zones, by the
 * width.
 */
class TShellMSKxxMapProjection : public TShellMapProjection {
public:
    /**
     * @throws std::runtime_error with "TShellMSKxxMapProjection::TShellMSKxxMapProjection(TStringTree *tree)"
     *         for a missing or unreadable text, a zone or region below 1 and a width that isn't above 0.
     */
    explicit TShellMSKxxMapProjection(TStringTree* tree);

    TMapProjection* CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const override;

    /**
     * Same type, region, zone and width, the last to 1e-12 degrees. Kept: units and GeoTIFF codes don't
     * count.
     */
    bool operator==(TShellMapProjection const& other) const override;
    void Reset() override;

    /** @return false. */
    bool ExportMapProjParamsToGeoTIFF(std::map<int, std::string>* keys, TShellAngularUnit const* angularUnit,
                                      TShellLinearUnit const* linearUnit) const override;

    int Region{};       ///< code, from 1 on; 0 after `Reset`
    int Zone{};         ///< within the region, from 1 on; 0 after `Reset`
    double ZoneWidth{}; ///< degrees, whatever the angular unit
};

/**
 * System of 1963 (SK-63): zones of the described width, counted from the block's first.
 *
 * Kept: the block's first character decides, in upper case; an unknown block loads and is found when the core
 * is created.
 */
class TShellSK63MapProjection : public TShellMapProjection {
public:
    /**
     * @throws std::runtime_error with "TShellSK63MapProjection::TShellSK63MapProjection(TStringTree *tree)"
     *         for a missing or unreadable text, a zone or width below 1 and an empty block.
     */
    explicit TShellSK63MapProjection(TStringTree* tree);

    TMapProjection* CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const override;

    /**
     * Same type, block, zone and width. Kept: the block is compared as the whole text; units and GeoTIFF
     * codes don't count.
     */
    bool operator==(TShellMapProjection const& other) const override;
    void Reset() override;

    /** @return false. */
    bool ExportMapProjParamsToGeoTIFF(std::map<int, std::string>* keys, TShellAngularUnit const* angularUnit,
                                      TShellLinearUnit const* linearUnit) const override;

    std::string Block; ///< its first character is the block; empty after `Reset`
    int Zone{};        ///< within the block, from 1 on; 0 after `Reset`
    int ZoneWidth{};   ///< degrees, whatever the angular unit
};

/** @return the codes of the regions that have a grid, rising. */
std::vector<int> GetMSKxxRegions();

/** @return the letters of the blocks, in the order of the alphabet. */
std::string GetSK63Blocks();

} // namespace KvRefSystem
