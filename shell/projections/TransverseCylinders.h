#pragma once

#include "shell/projections/MapProjection.h"

/**
 * The shells of transverse cylinders with mathematics of their own. Members are the texts as the user wrote
 * them, angles in the angular unit, lengths in the linear unit, factors in the scale unit; exports call both
 * a Transverse Mercator. XML has the base form only, so the parameters don't come back from it.
 */
namespace KvRefSystem {

/** Gauss-Boaga: Transverse Mercator [EPSG7-2, 9807] by closed forms [CoticchiaSurace78]. */
class TShellGaussBoagaMapProjection : public TShellMapProjection {
public:
    /**
     * @throws std::runtime_error with "TShellGaussBoagaMapProjection::TShellGaussBoagaMapProjection(
     *         TStringTree *tree)" (in one piece) for a missing text.
     */
    explicit TShellGaussBoagaMapProjection(TStringTree* tree);

    TMapProjection* CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const override;
    bool operator==(TShellMapProjection const& other) const override;
    bool GetProjectionTypeWKT(std::string* text) const override;
    bool GetProjectionParamsWKT(std::string* text) const override;
    bool ExportToMIFMID(TShellLinearUnit* outputUnit, std::string* text) const override;
    void Reset() override;

    /** Kept: the central meridian is in degrees, whatever `angularUnit` is. */
    bool ExportMapProjParamsToGeoTIFF(std::map<int, std::string>* keys, TShellAngularUnit const* angularUnit,
                                      TShellLinearUnit const* linearUnit) const override;

    std::string CentralMeridian;
    std::string ScaleFactor;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/**
 * Transverse Mercator [EPSG7-2, 9807] that is good far from the central meridian [Krueger1912].
 *
 * Kept: the scale factor is optional, and 1 without a scale unit or with an empty text, in all but GeoTIFF.
 */
class TShellGaussKrugerWideMapProjection : public TShellMapProjection {
public:
    /**
     * @throws std::runtime_error with "TShellGaussKrugerWideMapProjection::TShellGaussKrugerWideMapProjection(
     *         TStringTree *tree)" (in one piece) for a missing text other than the scale factor's.
     */
    explicit TShellGaussKrugerWideMapProjection(TStringTree* tree);

    TMapProjection* CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const override;
    bool operator==(TShellMapProjection const& other) const override;
    bool GetProjectionTypeWKT(std::string* text) const override;
    bool GetProjectionParamsWKT(std::string* text) const override;
    bool ExportToMIFMID(TShellLinearUnit* outputUnit, std::string* text) const override;
    void Reset() override;

    /** Kept: the scale factor is the text as it is stored, in whichever unit. */
    bool ExportMapProjParamsToGeoTIFF(std::map<int, std::string>* keys, TShellAngularUnit const* angularUnit,
                                      TShellLinearUnit const* linearUnit) const override;

    std::string CentralMeridian;
    std::string ScaleFactor; ///< "1" when the description has none
    std::string FalseEasting;
    std::string FalseNorthing;
};

} // namespace KvRefSystem
