#pragma once

#include "shell/refsystems/ReferenceSystem.h"
#include "shell/refsystems/VerticalReferenceSystem.h"
#include "shell/units/AngularUnit.h"

#include <map>
#include <string>
#include <vector>

namespace KvRefSystem {

/**
 * Latitude, longitude and height. Shell order is latitude, longitude, height in the units of the description;
 * the core holds the longitude in `X` and the latitude in `Y`, in radians.
 */
class TShellGeodeticReferenceSystem : public TShellReferenceSystem {
public:
    /**
     * @param progress isn't used.
     * @throws std::runtime_error with "TShellGeodeticReferenceSystem(TStringTree *tree, TKvProgressHandler
     *         *prh)" without angular unit, vertical system or ellipsoid; with
     *         "TShellGeodeticReferenceSystem:: TShellGeodeticReferenceSystem(TStringTree *tree,
     *         TKvProgressHandler *prh)" for a pairwise chain without a core form; as the components.
     */
    TShellGeodeticReferenceSystem(TStringTree* tree, TKvProgressHandler* progress);

    /**
     * @param progress isn't used.
     * @throws std::runtime_error with
     *         "TShellGeodeticReferenceSystem::TShellGeodeticReferenceSystem(TKvXIniReader *xml)".
     */
    TShellGeodeticReferenceSystem(TKvXIniReader* xml, TKvProgressHandler* progress);

    ~TShellGeodeticReferenceSystem() override;

    using TShellReferenceSystem::ExportToGeoTIFF;

    void CoordsShellToCore(double const* shell, TCoords* core) const override;
    void CoordsCoreToShell(TCoords const& core, double* shell) const override;
    void CoordsShellToCore(TShellCoords const& shell, TCoords* core) const override;
    /** Kept: latitude and longitude are printed from the core's radians, whatever the angular unit. */
    void CoordsCoreToShell(TCoords const& core, TShellCoords* shell) const override;
    bool InputCoords(TShellCoords const& texts, TShellUnit const* plane, TShellUnit const* height,
                     double* shell) const override;
    void OutputCoords(double const* shell, TShellCoords* texts, TShellUnit const* plane, int planePrecision,
                      TShellUnit const* height, int heightPrecision) const override;
    void OutputCoordsDef(double const* shell, TShellCoords* texts) const override;
    bool FillInternalRefSystemTree(TStringTree* tree, TShellCoords const& origin) const override;
    /** @return 0, or 9 for any failure; the two below likewise. */
    int FillPrimaryGeodeticRefSystemTree(TStringTree* tree) const override;
    int FillPrimaryGeodeticRefSystemTreeDeg(TStringTree* tree) const override;
    int FillPrimaryGeocentricRefSystemTree(TStringTree* tree) const override;
    bool ExportToMIFMID(std::string* text, bool CustomDatum) const override;
    bool ExportToGeoTIFF(std::map<int, std::string>* keys, bool WithGeoid) const override;
    bool ExportToGeoTIFFClassified(std::map<int, std::string>* keys) const override;
    bool ExportToWKT(std::string* text, bool Compound, bool PanoramaName) const override;
    bool IsLeft() const override;
    bool GetAxesDirections(TCardinalDirection* first, TCardinalDirection* second) const override;
    double GetPlaneUnitCoefToBase() const override;
    std::string GetPlaneUnitName() const override;
    std::string GetPlaneUnitShortName() const override;
    int GetPlaneUnitDefPrec() const override;
    double GetHeightUnitCoefToBase() const override;
    std::string GetHeightUnitName() const override;
    std::string GetHeightUnitShortName() const override;
    int GetHeightUnitDefPrec() const override;
    bool operator==(TShellReferenceSystem const& other) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    bool SaveToXML(TKvXIniWriter* writer) const override;
    void Reset() override;
    /** @return the area at the mean height of the corners; 0.0 for fewer than three or after a failure. */
    double CalculateArea(std::vector<vec_t_<double, 3>> const& points) const override;
    bool ExportAxesToWKT(std::string* text) const override;
    bool InsertCoreTransforms() override;
    bool InsertCorePairwiseTransforms(std::string const& name) override;

    /** As the form with two arguments, in a chosen angular unit. */
    bool ExportToGeoTIFF(std::map<int, std::string>* keys, bool WithGeoid,
                         TShellAngularUnit const* unit) const;

    /**
     * Replaces `text` by the WKT GEOGCS.
     * @param UseDegrees names the unit degree.
     * @param name of the system, or empty for its own.
     */
    bool Export2DToWKT(std::string* text, bool UseDegrees, std::string const& name) const;

    /** Replaces `text` by the WKT VERT_CS: above `geoidId`, or above the ellipsoid for an empty one. */
    bool ExportVertRefToWKT(std::string const& geoidId, std::string* text) const;

    TShellAngularUnit* AngularUnit = nullptr;          ///< unit of the first two coordinates, owned
    bool PositiveLongitude{};                          ///< longitudes are reported in [0, 2 pi)
    TShellVerticalReferenceSystem* Vertical = nullptr; ///< holds the height unit, owned

private:
    bool ReadOwnXML(TKvXIniReader* reader);
};

} // namespace KvRefSystem
