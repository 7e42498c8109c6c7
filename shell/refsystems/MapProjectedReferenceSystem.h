#pragma once

#include "shell/projections/MapProjection.h"
#include "shell/refsystems/GeodeticReferenceSystem.h"

#include <map>
#include <string>

namespace KvRefSystem {

class TGeodeticReferenceSystem;

/**
 * Two plane coordinates of a map projection on a geodetic system, and a height. The core always holds the
 * easting in `X` and the northing in `Y`, in metres; the order and the signs of the user's axes live here.
 *
 * The shell point is (first, second, height): the plane coordinates in `LinearUnit`, the height in the height
 * unit of `BaseGeodetic`. Datum and prime meridian of the geometry are those of `BaseGeodetic`; the members
 * of the base class tell what the description's root says beside it, usually nothing.
 */
class TShellMapProjectedReferenceSystem : public TShellReferenceSystem {
public:
    /**
     * @param progress isn't used.
     * @throws std::runtime_error with "TShellMapProjectedReferenceSystem(TStringTree *tree,
     *         TKvProgressHandler *prh)" without the projection's subtree or one of its fields, for an unknown
     *         projection, without linear unit or base system, and when the projection has no core form; with
     *         "TShellMapProjectedReferenceSystem::TShellMapProjectedReferenceSystem(TStringTree *tree,
     *         TKvProgressHandler *prh)" for a pairwise chain without a core form; as the components.
     */
    TShellMapProjectedReferenceSystem(TStringTree* tree, TKvProgressHandler* progress);

    /**
     * @param progress isn't used.
     * @throws std::runtime_error with
     *         "TShellMapProjectedReferenceSystem::TShellMapProjectedReferenceSystem(TKvXIniReader *xml)".
     */
    TShellMapProjectedReferenceSystem(TKvXIniReader* xml, TKvProgressHandler* progress);

    ~TShellMapProjectedReferenceSystem() override;

    void CoordsShellToCore(double const* shell, TCoords* core) const override;

    /**
     * @throws std::runtime_error with "TShellMapProjectedReferenceSystem::CoordsCoreToShell" for a point
     *         without height, after the plane coordinates were written.
     */
    void CoordsCoreToShell(TCoords const& core, double* shell) const override;
    void CoordsShellToCore(TShellCoords const& shell, TCoords* core) const override;
    /** A point without height has an empty third text. */
    void CoordsCoreToShell(TCoords const& core, TShellCoords* shell) const override;
    bool InputCoords(TShellCoords const& texts, TShellUnit const* plane, TShellUnit const* height,
                     double* shell) const override;
    void OutputCoords(double const* shell, TShellCoords* texts, TShellUnit const* plane, int planePrecision,
                      TShellUnit const* height, int heightPrecision) const override;
    void OutputCoordsDef(double const* shell, TShellCoords* texts) const override;

    /** The internal system has its origin in the coordinates of the base system. */
    bool FillInternalRefSystemTree(TStringTree* tree, TShellCoords const& origin) const override;

    /**
     * @return 0, or 9 for any failure; the two below likewise. Kept: datum, ellipsoid and prime meridian are
     *         looked for at the description's root only; one that keeps them in its base system alone gives
     *         9.
     */
    int FillPrimaryGeodeticRefSystemTree(TStringTree* tree) const override;
    int FillPrimaryGeodeticRefSystemTreeDeg(TStringTree* tree) const override;
    int FillPrimaryGeocentricRefSystemTree(TStringTree* tree) const override;
    bool ExportToMIFMID(std::string* text, bool CustomDatum) const override;
    bool ExportToGeoTIFF(std::map<int, std::string>* keys, bool WithGeoid) const override;
    bool ExportToGeoTIFFClassified(std::map<int, std::string>* keys) const override;
    bool ExportToWKT(std::string* text, bool Compound, bool PanoramaName) const override;
    bool ExportToPanorama(std::map<int, std::string>* keys, bool WithGeoid) const override;
    bool IsLeft() const override;
    bool GetAxesDirections(TCardinalDirection* first, TCardinalDirection* second) const override;
    std::string GetMapProjectionName() const override;
    double GetPlaneUnitCoefToBase() const override;
    std::string GetPlaneUnitName() const override;
    std::string GetPlaneUnitShortName() const override;
    int GetPlaneUnitDefPrec() const override;
    double GetHeightUnitCoefToBase() const override;
    std::string GetHeightUnitName() const override;
    std::string GetHeightUnitShortName() const override;
    int GetHeightUnitDefPrec() const override;
    bool operator==(TShellReferenceSystem const& other) const override;

    /** Kept: of the projections only Transverse Mercator is read again. */
    bool LoadFromXML(TKvXIniReader* reader) override;
    bool SaveToXML(TKvXIniWriter* writer) const override;

    /** The order and the signs of the axes stay. */
    void Reset() override;
    bool ExportAxesToWKT(std::string* text) const override;
    bool InsertCoreTransforms() override;

    /**
     * Kept: the chain's core form follows the order and the signs of the axes, while one that was read with
     * the description doesn't.
     */
    bool InsertCorePairwiseTransforms(std::string const& name) override;

    /**
     * Replaces `text` by the WKT PROJCS.
     * @param PanoramaName names the geographic system after the Panorama zone, if the code is one.
     */
    bool Export2DToWKT(std::string* text, bool PanoramaName) const;

    /** @return "PZ-90.11 Zone 7" or "GSK-2011 Zone 7" by the Panorama code; empty for all other codes. */
    std::string GetPanoramaName() const;

    TShellMapProjection* MapProjection = nullptr;               ///< owned
    TShellLinearUnit* LinearUnit = nullptr;                     ///< of the plane coordinates, owned
    TShellGeodeticReferenceSystem* BaseGeodetic = nullptr;      ///< datum, meridian and height unit, owned
    TGeodeticReferenceSystem const* BaseGeodeticCore = nullptr; ///< core of `BaseGeodetic`; not owned
    bool FlipAxes{};                                            ///< the first coordinate is the northing
    int FirstAxisSign{};                                        ///< factor of the first coordinate
    int SecondAxisSign{};                                       ///< factor of the second coordinate

private:
    void ReadTree(TStringTree* tree);
    bool ReadOwnXML(TKvXIniReader* reader);
    TShellLinearUnit const* FindHeightUnit() const;
    TShellLinearUnit const& HeightUnit() const;
    void FreeOwn();
};

} // namespace KvRefSystem
