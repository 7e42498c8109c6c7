#pragma once

#include "core/refsystems/FamilyEquality.h"
#include "core/refsystems/ReferenceSystem.h"
#include "frame/imported/Geometry.h"
#include "frame/imported/SharedHandle.h"
#include "frame/imported/StringTree.h"
#include "shell/datum/DatumShift.h"
#include "shell/datum/Ellipsoid.h"
#include "shell/datum/Geoid.h"
#include "shell/datum/PrimeMeridian.h"
#include "shell/refsystems/ShellCoords.h"
#include "shell/transforms/TransformChain.h"
#include "shell/units/Unit.h"

#include <map>
#include <string>
#include <vector>

class TBaseGrid;
class TKvProgressHandler;
class TKvXIniReader;
class TKvXIniWriter;

namespace KvRefSystem {

using var_a_legacy::newobj_a;
using var_a_legacy::var_a;

/**
 * Proxies of proxies that a description may nest. Each level holds a copy of all that lies below it, so the
 * memory grows with the square of the depth; a deeper nest is refused.
 */
inline constexpr int MaxProxyDepth = 32;

/** Direction of an axis. */
enum TCardinalDirection : int {
    cdNone = 0,
    cdNorth = 1,
    cdEast = 2,
    cdSouth = 3,
    cdWest = 4,
};

/**
 * The user-facing reference system: names, units, codes, datum components, chains of corrections, and one
 * core system that does the arithmetic.
 *
 * Born from a description tree (or its text), which stays its identity: `SavedTree` is a private copy, and
 * what changes on a live system changes the component, the description and the core, so that they stay in
 * step. A system read from XML has no description tree: operations on the description then report failure,
 * and it carries no chains, no proxy and no geoid.
 *
 * Const operations only read and may run on several threads at once, as long as no thread changes the system.
 * Everything else is for one thread at a time.
 */
class TShellReferenceSystem {
public:
    TShellReferenceSystem(TShellReferenceSystem const&) = delete;
    TShellReferenceSystem& operator=(TShellReferenceSystem const&) = delete;
    virtual ~TShellReferenceSystem();

    /**
     * Three numbers in shell units to a core point. The flag `ZUndefined` is the caller's in the geodetic
     * kind.
     */
    virtual void CoordsShellToCore(double const* shell, TCoords* core) const = 0;

    /** A core point to three numbers in shell units. */
    virtual void CoordsCoreToShell(TCoords const& core, double* shell) const = 0;

    /**
     * Three texts in shell units to a core point.
     * @throws std::runtime_error for a text that doesn't parse.
     */
    virtual void CoordsShellToCore(TShellCoords const& shell, TCoords* core) const = 0;

    /** A core point to three texts. */
    virtual void CoordsCoreToShell(TCoords const& core, TShellCoords* shell) const = 0;

    /**
     * Parses three texts to numbers in shell units.
     * @param plane, height units of the texts; null: the system's own. @return whether all texts parsed.
     */
    virtual bool InputCoords(TShellCoords const& texts, TShellUnit const* plane, TShellUnit const* height,
                             double* shell) const = 0;

    /**
     * Prints three numbers in shell units.
     * @param plane, height units of the texts; null: the system's own. @param planePrecision, heightPrecision
     *        decimals, as the unit takes them.
     */
    virtual void OutputCoords(double const* shell, TShellCoords* texts, TShellUnit const* plane,
                              int planePrecision, TShellUnit const* height, int heightPrecision) const = 0;

    /** Prints three numbers in the system's units with their default precision. */
    virtual void OutputCoordsDef(double const* shell, TShellCoords* texts) const = 0;

    /**
     * Fills `tree` with a metric right-handed topocentric description at `origin` (texts in shell units).
     * @return false at the first step that failed.
     */
    virtual bool FillInternalRefSystemTree(TStringTree* tree, TShellCoords const& origin) const;

    /**
     * Fills `tree` with a geodetic system in radians on the same datum.
     * @return 0, or the kind's status of a failure.
     */
    virtual int FillPrimaryGeodeticRefSystemTree(TStringTree* tree) const = 0;

    /** Fills `tree` with a geodetic system in degrees on the same datum. @return as above. */
    virtual int FillPrimaryGeodeticRefSystemTreeDeg(TStringTree* tree) const = 0;

    /** Fills `tree` with a geocentric system on the same datum. @return as above. */
    virtual int FillPrimaryGeocentricRefSystemTree(TStringTree* tree) const = 0;

    /** Replaces `text` by the MapInfo CoordSys clause. @return false, `text` untouched, without one. */
    virtual bool ExportToMIFMID(std::string* text, bool CustomDatum) const;

    /** Writes the system's geokeys. @return false when the system has no form there. */
    virtual bool ExportToGeoTIFF(std::map<int, std::string>* keys, bool WithGeoid) const;

    /**
     * Writes the system's geokeys without what tells its datum.
     * @return false when the system has no form there.
     */
    virtual bool ExportToGeoTIFFClassified(std::map<int, std::string>* keys) const;

    /** Replaces `text` by WKT of 2001. @return false, `text` untouched, when a part has no form there. */
    virtual bool ExportToWKT(std::string* text, bool Compound, bool PanoramaName) const = 0;

    /** Writes the Panorama keys. @return false when the system has no form there. */
    virtual bool ExportToPanorama(std::map<int, std::string>* keys, bool WithGeoid) const;

    /**
     * @return whether the second coordinate lies to the right of the first (latitude first, or north first).
     */
    virtual bool IsLeft() const = 0;

    /**
     * Stores the sphere's radius of a local curved system.
     * @return false, nothing written, in other kinds.
     */
    virtual bool GetSphereRadius(double* radius) const;

    /** Stores the directions of the first two axes. @return whether they have one. */
    virtual bool GetAxesDirections(TCardinalDirection* first, TCardinalDirection* second) const = 0;

    /** @return the projection's name; empty in kinds without one. */
    virtual std::string GetMapProjectionName() const;

    /**
     * @return base units (radians or metres) in one plane unit.
     * @throws std::runtime_error without a unit, as the seven below.
     */
    virtual double GetPlaneUnitCoefToBase() const = 0;
    /** @return the plane unit's name. */
    virtual std::string GetPlaneUnitName() const = 0;
    /** @return the plane unit's abbreviation, or its name without one. */
    virtual std::string GetPlaneUnitShortName() const = 0;
    /** @return the decimals of a plane coordinate that its unit proposes. */
    virtual int GetPlaneUnitDefPrec() const = 0;
    /** @return metres in one height unit. */
    virtual double GetHeightUnitCoefToBase() const = 0;
    /** @return the height unit's name. */
    virtual std::string GetHeightUnitName() const = 0;
    /** @return the height unit's abbreviation, or its name without one. */
    virtual std::string GetHeightUnitShortName() const = 0;
    /** @return the decimals of a height that its unit proposes. */
    virtual int GetHeightUnitDefPrec() const = 0;

    /** Same kind, equal geometry and equal units; names don't count. */
    virtual bool operator==(TShellReferenceSystem const& other) const = 0;

    /**
     * @return whether a transformation to `dst` leaves heights as they are; equal height units with equal
     *         geoids are enough. Kept: the core is asked only when the geoids differ.
     */
    virtual bool PreservesHeights(TShellReferenceSystem const& dst) const;

    /**
     * Reads the base's keys; the object is reset first, and again on a failure.
     * @return false on a failure.
     */
    virtual bool LoadFromXML(TKvXIniReader* reader);

    /** Writes the base's keys. @return false at the first write that failed. */
    virtual bool SaveToXML(TKvXIniWriter* writer) const;

    /** Frees and empties everything but `Type`, `ProxyRefSys` and the keys of the pairwise chains. */
    virtual void Reset();

    /**
     * @param points shell coordinates of a polygon's corners.
     * @return its area in square metres; 0 in kinds without one.
     */
    virtual double CalculateArea(std::vector<vec_t_<double, 3>> const& points) const;

    /** @return the datum shift, or null. */
    virtual TShellDatumShift* GetDatumShift();

    /** Replaces `text` by the WKT AXIS clauses. @return false, `text` untouched, when there is no form. */
    virtual bool ExportAxesToWKT(std::string* text) const = 0;

    /** Gives the core the system's own chain. @return false when it has no core form. */
    virtual bool InsertCoreTransforms() = 0;

    /**
     * Gives the core one pairwise chain, or takes it away when there is none.
     * @return false when it has no core form.
     */
    virtual bool InsertCorePairwiseTransforms(std::string const& name) = 0;

    // Description, kind and codes

    /**
     * Writes the description's text and a closing NUL; null only measures.
     * @return its length plus 1; 0 without a description.
     */
    unsigned WriteToString(char* buffer) const;

    /**
     * Replaces `text` by the description's text with a closing NUL as its last character (kept: hosts store
     * the buffer as it is). @return false without a description, or when memory runs out.
     */
    bool WriteToString(std::string& text) const;

    /** Writes the description's tree. @return false without a description, or when a write failed. */
    bool WriteToXML(TKvXIniWriter* writer) const;

    /**
     * @return a new system from the description, with a copy of the geoid, owned by the caller; null without
     *         a description. @throws what the kind's constructor and the geoid throw.
     */
    TShellReferenceSystem* CreateCopy() const;

    /**
     * @return whether the kind is earth-bound.
     * @throws std::logic_error with "TShellReferenceSystem::IsGlobal" for an unknown kind.
     */
    bool IsGlobal() const;
    /** @return whether it is of the geodetic kind. */
    bool IsLatLon() const;
    /** @return whether it is of the geocentric kind. */
    bool IsGeocentric() const;
    /** @return whether it is of the map-projected kind. */
    bool IsProjected() const;
    /** @return whether it is of the topocentric kind. */
    bool IsTopocentricHorizontal() const;

    /** Stores the ellipsoid's semi-axes in metres. @return false, nothing written, without an ellipsoid. */
    bool GetEllipsoidSemiAxesMeters(double* a, double* b) const;

    /** @return the number at the beginning of the GeoTIFF code; 0 without one. */
    unsigned GetGeoTIFFCode() const;

    /** @return the number at the beginning of the Panorama code; 0 without one. */
    unsigned GetPanoramaCode() const;

    /** Equal geometry: compares only the core systems. */
    bool operator^=(TShellReferenceSystem const& other) const;

    // Exports of the datum

    /**
     * Replaces `text` by the datum's numbers in the MapInfo clause.
     * @return false, `text` untouched, without them.
     */
    bool ExportDatumToMIFMID(std::string* text, bool CustomDatum) const;

    /** Replaces `text` by the WKT DATUM. @return false, `text` untouched, when a number doesn't parse. */
    bool ExportDatumToWKT(std::string* text) const;

    // Coordinate operation

    /**
     * Transforms three numbers in place from this system's shell coordinates to `dst`'s, by way of the
     * proxies.
     * @param SkipGeoid leaves both geoids out. @throws what any stage throws.
     */
    void OperateShellCoords(TShellReferenceSystem const& dst, double* coords, bool SkipGeoid) const;

    /** Copies `src` to `out` and transforms `out`. */
    void OperateShellCoords(double const* src, TShellReferenceSystem const& dst, double* out,
                            bool SkipGeoid) const;

    // Geoid: the setting is the id in the description, the active geoid has a grid in memory

    /**
     * Attaches a geoid and writes its id into the description; the old one goes first.
     * @param grid, gridRefSys the host's; they must outlive the geoid. @return whether the setting was
     *         written.
     * @throws std::runtime_error with "void TShellReferenceSystem::SetGeoid(TBaseGrid*, const
     *         TShellReferenceSystem*)" for any failure; there is no geoid then.
     */
    bool SetGeoid(std::string const& id, TBaseGrid* grid, TShellReferenceSystem const* gridRefSys);

    /** Takes geoid and setting away. */
    void ClearGeoid();

    /** Rewrites the setting. @return false without a description or when a step failed. */
    bool InsertGeoidSetting(std::string const& id);

    /** Takes the setting away and leaves the geoid alone. */
    void ClearGeoidSetting();

    /** @return the id in the description, or an empty text. */
    std::string GetGeoidSetting() const;

    /** @return the active geoid's id, or an empty text. */
    std::string GetGeoidID() const;

    /** @return whether there is an active geoid with an id. */
    bool ContainsGeoid() const;

    /** @return the active geoid's grid, or null. */
    TBaseGrid* GetGeoidGrid() const;

    /** @return the system of the active geoid's grid, or null. */
    TShellReferenceSystem const* GetGeoidGridRefSystem() const;

    /** @return whether active geoid and setting agree. */
    bool CheckGeoid() const;

    // Proxy: a system that every operation passes through

    /** Replaces the proxy and its description. @return whether there is a proxy now. */
    bool SetProxyRefSys(var_a<TShellReferenceSystem*> proxy);

    /** Takes proxy and its description away. */
    void ClearProxyRefSys();

    /** Takes the proxy's description away and keeps the proxy. */
    void DeleteProxyRefSysFromTree();

    /**
     * Rewrites the proxy's description from `ProxyRefSys`; the argument isn't used (kept).
     * @return false when a step failed.
     */
    bool InsertProxyRefSysToTree(TShellReferenceSystem const* unused);

    /** @return a share of the proxy. */
    var_a<TShellReferenceSystem*> GetProxyRefSys() const;

    /** @return whether there is a proxy. */
    bool ContainsProxyRefSys() const;

    /** @return the proxy's text with its closing NUL, or an empty one. */
    std::string GetProxyRefSysStr() const;

    /** @return the proxy's name, or an empty text. */
    std::string GetProxyRefSysName() const;

    /** @return the geoid's id in the proxy's description, or an empty text. */
    std::string GetProxyGeoidSetting() const;

    /** @return the id of the proxy's active geoid, or an empty text. */
    std::string GetProxyGeoidID() const;

    /** Does nothing (kept): the proxy's geoid is set on the proxy itself. */
    void SetProxyGeoid(std::string const& id, TBaseGrid* grid, TShellReferenceSystem const* gridRefSys);

    // Own chain: live chain, description and core, in this order; a false ends with what is done

    /** Appends a copy of a record. @return false for null or when a step failed, as the four below. */
    bool AppendTransform(TShellRefSystemTransformParams const* params);
    /** Takes a record away. @param index from 0. */
    bool DeleteTransform(int index);
    /** Puts a copy of a record in place of another. @param index from 0. */
    bool ReplaceTransform(int index, TShellRefSystemTransformParams const& params);
    /** Exchanges two records. @param first, second from 0. */
    bool SwapTransforms(int first, int second);
    /** Takes the chain away. */
    bool ClearTransforms();

    /** Takes the chain out of the description only. */
    void ClearTransformsSettings();

    /** @return the record, or null. */
    TShellRefSystemTransformParams* GetTransform(int index) const;

    /** Rewrites the chain in the description. @return false when a step failed. */
    bool InsertTransformsSettings();

    // Pairwise chains, by name

    /**
     * Appends to a chain, which is made if there is none.
     * @return false when a step failed; a new chain is gone then.
     */
    bool AppendPairwiseTransform(std::string const& name, TShellRefSystemTransformParams const* params);
    /** Takes a record away. @param index from 0. @return false when a step failed. */
    bool DeletePairwiseTransform(std::string const& name, int index);
    /** Puts a copy of a record in place of another. @param index from 0. @return false when a step failed. */
    bool ReplacePairwiseTransform(std::string const& name, int index,
                                  TShellRefSystemTransformParams const& params);

    /** Exchanges two records in memory; then rewrites the main chain, not this one (kept). */
    bool SwapPairwiseTransforms(std::string const& name, int first, int second);

    /** Takes one chain away, from the core too. */
    bool ClearPairwiseTransforms(std::string const& name);

    /** Takes one chain out of the description only. @return true. */
    bool ClearPairwiseTransformsSettings(std::string const& name);

    /** Takes all chains away; the core keeps those that it has (kept). */
    bool ClearAllPairwiseTransforms();

    /** Takes all chains out of the description only. */
    void ClearAllPairwiseTransformsSettings();

    /** @return the chain, or null. */
    TShellRefSystemTransform* AccessPairwiseTransforms(std::string const& name);

    /** @return the chain, or null. */
    TShellRefSystemTransform const* FindPairwiseTransforms(std::string const& name) const;

    /** @return the record, or null. */
    TShellRefSystemTransformParams* GetPairwiseTransform(std::string const& name, int index) const;

    /**
     * @return the chain's subtree in the description, or null. Kept: only the subtree with idx 0 is ever
     *         found.
     */
    TStringTree* FindPairwiseTransformsSettings(std::string const& name) const;

    /** Rewrites one chain in the description. @return false when a step failed. */
    bool InsertPairwiseTransformsSettings(std::string const& name);

    /**
     * Replaces `out` by the core forms of all pairwise chains.
     * @return false at the first one without a core form.
     */
    bool InitializeCorePairwiseTransforms(std::map<std::string, TRefSystemTransformsSet>* out) const;

    // Datum

    /**
     * Chooses the exact form of the datum's rotations.
     * @return false without such a form, or when a step failed.
     */
    bool SetNonLinearDatum(bool NonLinear);

    /**
     * Stores metres, seconds of arc and ppm as `TShellDatumShift` does.
     * @return false without a datum shift.
     */
    bool GetDatumShiftParams(double* dx, double* dy, double* dz, double* rx, double* ry, double* rz,
                             double* ds) const;

    TReferenceSystemType Type;                     ///< kind; 0 when not set
    TReferenceSystem* CoreRefSystem = nullptr;     ///< owned
    std::string Name;                              ///< display name
    std::string Description;                       ///< free text
    std::string Abbreviation;                      ///< short name
    std::string AxisName[3];                       ///< axis labels, in shell coordinate order
    std::string GeoTIFFCode;                       ///< decimal code, may be empty
    std::string GeoTIFFType;                       ///< decimal model type
    std::string DatumGeoTIFFCode;                  ///< code of the datum
    std::string PanoramaCode;                      ///< decimal code
    TShellDatumShift* DatumShift = nullptr;        ///< owned; null: an ellipsoid at most
    TShellEllipsoid* Ellipsoid = nullptr;          ///< owned, may be null
    TShellPrimeMeridian* PrimeMeridian = nullptr;  ///< owned, may be null
    TShellRefSystemTransform* Transform = nullptr; ///< own chain, owned; set after construction
    TShellGeoid* Geoid = nullptr;                  ///< active geoid, owned, may be null
    std::map<std::string, TShellRefSystemTransform*>
        PairwiseTransforms;                    ///< named chains, owned; null: no chain
    var_a<TShellReferenceSystem*> ProxyRefSys; ///< shared; may hold none
    std::string DatumName;                     ///< name of the datum
    TStringTree* SavedTree = nullptr;          ///< description, owned, always at its root; null after XML

protected:
    /** An empty system with an empty chain. */
    TShellReferenceSystem();

    /**
     * @throws std::runtime_error with "TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)"; as
     *         the components.
     */
    explicit TShellReferenceSystem(TStringTree* tree);

private:
    void ReadDescription(TStringTree* tree);
    void ReadDatum(TStringTree* datum);
    void ReadPairwiseTransforms(TStringTree* collection);
    void FreeComponents();
};

/** Compares two classes of the family by the first one's operator. */
template <class A, ComparableThrough<A, TShellReferenceSystem> C>
bool operator==(A const& first, C const& second) {
    return static_cast<TShellReferenceSystem const&>(first).operator==(
        static_cast<TShellReferenceSystem const&>(second));
}

} // namespace KvRefSystem
