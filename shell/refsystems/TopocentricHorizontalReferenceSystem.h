#pragma once

#include "shell/refsystems/CartesianReferenceSystem.h"
#include "shell/refsystems/GeodeticReferenceSystem.h"

#include <string>

namespace KvRefSystem {

/**
 * A Cartesian frame tangent to a geodetic system at an origin, turned by an azimuth, in one linear unit.
 * Origin and azimuth are the user's texts, in the units of the base system.
 */
class TShellTopocentricHorizontalReferenceSystem
    : public TCartesianReferenceSystem<TShellTopocentricHorizontalReferenceSystem> {
public:
    /**
     * @param progress isn't used.
     * @throws std::runtime_error with "TShellTopocentricHorizontalReferenceSystem(TStringTree
     *         *tree,TKvProgressHandler *prh)" without orientation, base system, linear unit or origin, and
     *         for a pairwise chain without a core form; as the components, and as the texts of origin and
     *         azimuth.
     */
    TShellTopocentricHorizontalReferenceSystem(TStringTree* tree, TKvProgressHandler* progress);

    /**
     * @param progress isn't used.
     * @throws std::runtime_error with
     *         "TShellTopocentricHorizontalReferenceSystem::TShellTopocentricHorizontalReferenceSystem(
     *         TKvXIniReader *xml)" (in one piece).
     */
    TShellTopocentricHorizontalReferenceSystem(TKvXIniReader* xml, TKvProgressHandler* progress);

    ~TShellTopocentricHorizontalReferenceSystem() override;

    /** The internal system has its origin in the coordinates of the base system. */
    bool FillInternalRefSystemTree(TStringTree* tree, TShellCoords const& origin) const override;
    /** @return 0, or 9 for any failure; the two below likewise. */
    int FillPrimaryGeodeticRefSystemTree(TStringTree* tree) const override;
    int FillPrimaryGeodeticRefSystemTreeDeg(TStringTree* tree) const override;
    int FillPrimaryGeocentricRefSystemTree(TStringTree* tree) const override;
    bool ExportToWKT(std::string* text, bool Compound, bool PanoramaName) const override;
    bool IsLeft() const override;

    /**
     * @return false for an azimuth other than exactly 0.
     * @throws std::logic_error with "TShellTopocentricHorizontalReferenceSystem::GetAxesDirections" for an
     *         orientation that is none.
     */
    bool GetAxesDirections(TCardinalDirection* first, TCardinalDirection* second) const override;

    /** Kept: order and texts don't count by themselves, only the frame that they come to. */
    bool operator==(TShellReferenceSystem const& other) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    bool SaveToXML(TKvXIniWriter* writer) const override;
    void Reset() override;

    /** @return that of the base system. */
    TShellDatumShift* GetDatumShift() override;

    /** Kept: the azimuth plays no part. */
    bool ExportAxesToWKT(std::string* text) const override;

    TShellGeodeticReferenceSystem* BaseGeodetic = nullptr;        ///< the primary system, owned
    TShellLinearUnit* LinearUnit = nullptr;                       ///< of all three coordinates, owned
    TReferenceSystemCartesianOrientation Orientation = rscoRight; ///< order of the plane coordinates
    std::string OriginCoord[3];                                   ///< in shell texts of `BaseGeodetic`
    std::string Azimuth; ///< in the angular unit of `BaseGeodetic`; empty for 0

private:
    void ReadTree(TStringTree* tree);
    bool ReadOwnXML(TKvXIniReader* reader);
    double AzimuthInRadians() const;
    TReferenceSystem* CreateCore() const;
    void FreeOwn();
};

} // namespace KvRefSystem
