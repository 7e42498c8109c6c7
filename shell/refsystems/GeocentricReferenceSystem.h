#pragma once

#include "shell/refsystems/CartesianReferenceSystem.h"

#include <map>
#include <string>

namespace KvRefSystem {

/**
 * Earth-centred Cartesian coordinates `X`, `Y`, `Z` in one linear unit, with a datum or an ellipsoid and a
 * prime meridian.
 */
class TShellGeocentricReferenceSystem : public TCartesianReferenceSystem<TShellGeocentricReferenceSystem> {
public:
    /**
     * @param progress isn't used.
     * @throws std::runtime_error with "TShellGeocentricReferenceSystem(TStringTree *tree,TKvProgressHandler
     *         *prh)" without linear unit and for any failure of the core's pieces; as the components.
     */
    TShellGeocentricReferenceSystem(TStringTree* tree, TKvProgressHandler* progress);

    /**
     * @param progress isn't used.
     * @throws std::runtime_error with
     *         "TShellGeocentricReferenceSystem::TShellGeocentricReferenceSystem(TKvXIniReader *xml)" when it
     *         doesn't load, with "TShellGeocentricReferenceSystem(TKvXIniReader *xml,TKvProgressHandler
     *         *prh)" for a failure of the core's pieces.
     */
    TShellGeocentricReferenceSystem(TKvXIniReader* xml, TKvProgressHandler* progress);

    ~TShellGeocentricReferenceSystem() override;

    /**
     * The internal system has its origin in a generated geodetic system: on the datum, or without one on a
     * sphere through the origin. @throws as the texts of `origin` and the coordinate operation.
     */
    bool FillInternalRefSystemTree(TStringTree* tree, TShellCoords const& origin) const override;

    /** @return 0; 2 without a datum; 9 for any other failure. */
    int FillPrimaryGeodeticRefSystemTree(TStringTree* tree) const override;
    /** @return as above. */
    int FillPrimaryGeodeticRefSystemTreeDeg(TStringTree* tree) const override;
    /** @return 0, or 9 for any failure. */
    int FillPrimaryGeocentricRefSystemTree(TStringTree* tree) const override;
    bool ExportToGeoTIFF(std::map<int, std::string>* keys, bool WithGeoid) const override;
    bool ExportToGeoTIFFClassified(std::map<int, std::string>* keys) const override;
    bool ExportToWKT(std::string* text, bool Compound, bool PanoramaName) const override;
    /** @return false. */
    bool IsLeft() const override;
    /** @return false: these axes have no cardinal directions. */
    bool GetAxesDirections(TCardinalDirection* first, TCardinalDirection* second) const override;
    bool operator==(TShellReferenceSystem const& other) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    bool SaveToXML(TKvXIniWriter* writer) const override;
    void Reset() override;
    /** Kept: the first axis has the direction OTHER, the others EAST and NORTH. */
    bool ExportAxesToWKT(std::string* text) const override;

    TShellLinearUnit* LinearUnit = nullptr; ///< of all three coordinates, owned
};

} // namespace KvRefSystem
