#pragma once

#include "shell/refsystems/CartesianReferenceSystem.h"

#include <string>

/** The two kinds that nobody ties to the earth. They know no datum, so no other system derives from them. */
namespace KvRefSystem {

/** A plane with a height, in one linear unit. */
class TShellLocalCartesianReferenceSystem
    : public TCartesianReferenceSystem<TShellLocalCartesianReferenceSystem> {
public:
    /**
     * @param progress isn't used.
     * @throws std::runtime_error with "TShellLocalCartesianReferenceSystem(TStringTree
     *         *tree,TKvProgressHandler *prh)" without linear unit or axis order, and for a pairwise chain
     *         without a core form; as the components.
     */
    TShellLocalCartesianReferenceSystem(TStringTree* tree, TKvProgressHandler* progress);

    /**
     * @param progress isn't used.
     * @throws std::runtime_error with
     *         "TShellLocalCartesianReferenceSystem::TShellLocalCartesianReferenceSystem(TKvXIniReader *xml)".
     */
    TShellLocalCartesianReferenceSystem(TKvXIniReader* xml, TKvProgressHandler* progress);

    ~TShellLocalCartesianReferenceSystem() override;

    /** Writes a right-handed local Cartesian system in metres; `origin` isn't used. */
    bool FillInternalRefSystemTree(TStringTree* tree, TShellCoords const& origin) const override;
    /** @return 1, nothing written; the two below likewise. */
    int FillPrimaryGeodeticRefSystemTree(TStringTree* tree) const override;
    int FillPrimaryGeodeticRefSystemTreeDeg(TStringTree* tree) const override;
    int FillPrimaryGeocentricRefSystemTree(TStringTree* tree) const override;
    bool ExportToWKT(std::string* text, bool Compound, bool PanoramaName) const override;
    bool IsLeft() const override;
    /** @return false: these axes have no cardinal directions. */
    bool GetAxesDirections(TCardinalDirection* first, TCardinalDirection* second) const override;
    bool operator==(TShellReferenceSystem const& other) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    /** Kept: in XML the order is 0 with swapped axes and 1 without, the opposite of the tree's. */
    bool SaveToXML(TKvXIniWriter* writer) const override;
    void Reset() override;
    bool ExportAxesToWKT(std::string* text) const override;

    TShellLinearUnit* LinearUnit = nullptr; ///< of all three coordinates, owned
    bool SwapAxes{};                        ///< the first shell coordinate is the core's `Y`

private:
    TReferenceSystem* CreateCore() const;
};

/** A plane bent around a sphere, with an optional centre. */
class TShellLocalCurvedReferenceSystem : public TCartesianReferenceSystem<TShellLocalCurvedReferenceSystem> {
public:
    /**
     * The description's sphere stands in the ellipsoid's subtree, with all the fields of an ellipsoid.
     * @param progress isn't used.
     * @throws std::runtime_error with "TShellLocalCurvedReferenceSystem(TStringTree *tree,TKvProgressHandler
     *         *prh)" without sphere, radius, its unit, linear unit or axis order, and for a pairwise chain
     *         without a core form; as the components, and as the texts of radius and centre.
     */
    TShellLocalCurvedReferenceSystem(TStringTree* tree, TKvProgressHandler* progress);

    /**
     * @param progress isn't used.
     * @throws std::runtime_error with
     *         "TShellLocalCurvedReferenceSystem::TShellLocalCurvedReferenceSystem(TKvXIniReader *xml)".
     */
    TShellLocalCurvedReferenceSystem(TKvXIniReader* xml, TKvProgressHandler* progress);

    ~TShellLocalCurvedReferenceSystem() override;

    /** Kept: writes a local Cartesian system, as the Cartesian kind does; `origin` isn't used. */
    bool FillInternalRefSystemTree(TStringTree* tree, TShellCoords const& origin) const override;
    /** @return 1, nothing written; the two below likewise. */
    int FillPrimaryGeodeticRefSystemTree(TStringTree* tree) const override;
    int FillPrimaryGeodeticRefSystemTreeDeg(TStringTree* tree) const override;
    int FillPrimaryGeocentricRefSystemTree(TStringTree* tree) const override;
    bool ExportToWKT(std::string* text, bool Compound, bool PanoramaName) const override;
    bool IsLeft() const override;
    /** Stores the radius in the plane unit, not in the one in which it was written. @return true. */
    bool GetSphereRadius(double* radius) const override;
    /** @return false: these axes have no cardinal directions. */
    bool GetAxesDirections(TCardinalDirection* first, TCardinalDirection* second) const override;

    /** Kept: without a centre, orientation and radius alone are compared, no chains. */
    bool operator==(TShellReferenceSystem const& other) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    bool SaveToXML(TKvXIniWriter* writer) const override;
    void Reset() override;
    bool ExportAxesToWKT(std::string* text) const override;

    TShellLinearUnit* LinearUnit = nullptr;                       ///< of all three coordinates, owned
    TReferenceSystemCartesianOrientation Orientation = rscoRight; ///< order of the plane coordinates
    std::string OriginCoord[2];                                   ///< the centre, in `LinearUnit`
    bool NoOrigin{};                                              ///< there is no centre
    TShellLinearUnit* SphereUnit = nullptr;                       ///< of the radius' text, owned
    std::string SphereRadiusText;                                 ///< as it was written
    double SphereRadius{};                                        ///< metres

private:
    void ReadTree(TStringTree* tree);
    bool ReadOwnXML(TKvXIniReader* reader);
    void ReadRadius();
    TReferenceSystem* CreateCore() const;
    void FreeOwn();
};

} // namespace KvRefSystem
