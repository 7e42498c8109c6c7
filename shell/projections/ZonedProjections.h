#pragma once

#include "shell/projections/MapProjection.h"

/**
 * The shells that a zone number and a hemisphere describe. Both build a core Transverse Mercator: the zone
 * doesn't survive into the core.
 *
 * Zones have no upper limit; arithmetic is that of whole numbers wide enough for any zone. XML has the base
 * form only, so zone and hemisphere don't come back from it. After `Reset` there is no zone, and a projection
 * without one (below 1) has no core and no exports.
 */
namespace KvRefSystem {

/**
 * Gauss-Kruger in zones of six degrees [EPSG7-2, 9824], counted eastward from Greenwich: scale factor 1, the
 * zone number leads the false easting, the south has a false northing of 10,000 km.
 *
 * Kept: from zone 31 on the core and MapInfo have the central meridian less a full turn (-177 degrees for
 * zone 31), WKT and GeoTIFF don't (183); hosts rely on the difference.
 */
class TShellGaussKruger6MapProjection : public TShellMapProjection {
public:
    /**
     * @throws std::runtime_error with "TShellGaussKruger6MapProjection::TShellGaussKruger6MapProjection(
     *         TStringTree *tree)" (in one piece) without a zone from 1 on or without a hemisphere, whose text
     *         begins with "N" or "S".
     */
    explicit TShellGaussKruger6MapProjection(TStringTree* tree);

    TMapProjection* CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const override;
    bool operator==(TShellMapProjection const& other) const override;
    bool GetProjectionTypeWKT(std::string* text) const override;
    bool GetProjectionParamsWKT(std::string* text) const override;
    bool ExportToMIFMID(TShellLinearUnit* outputUnit, std::string* text) const override;
    void Reset() override;
    bool ExportMapProjParamsToGeoTIFF(std::map<int, std::string>* keys, TShellAngularUnit const* angularUnit,
                                      TShellLinearUnit const* linearUnit) const override;

    int Zone{};   ///< from 1 on; 0 after `Reset`
    bool North{}; ///< hemisphere
};

/**
 * Universal Transverse Mercator [Snyder87, 57-58] [EPSG7-2, 9824]: zones of six degrees counted eastward from
 * the antimeridian, scale factor 0.9996, false easting 500 km, the south has a false northing of 10,000 km.
 *
 * Kept: only MapInfo takes a full turn off a central meridian above 180 degrees (zones from 61 on).
 */
class TShellUTMMapProjection : public TShellMapProjection {
public:
    /**
     * @throws std::runtime_error with "TShellUTMMapProjection::TShellUTMMapProjection(TStringTree *tree)"
     *         without a zone from 1 on or without a hemisphere, whose text begins with "N" or "S".
     */
    explicit TShellUTMMapProjection(TStringTree* tree);

    TMapProjection* CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const override;
    bool operator==(TShellMapProjection const& other) const override;
    bool GetProjectionTypeWKT(std::string* text) const override;
    bool GetProjectionParamsWKT(std::string* text) const override;
    bool ExportToMIFMID(TShellLinearUnit* outputUnit, std::string* text) const override;
    void Reset() override;
    bool ExportMapProjParamsToGeoTIFF(std::map<int, std::string>* keys, TShellAngularUnit const* angularUnit,
                                      TShellLinearUnit const* linearUnit) const override;

    int Zone{};   ///< from 1 on; 0 after `Reset`
    bool North{}; ///< hemisphere
};

} // namespace KvRefSystem
