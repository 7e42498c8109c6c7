#pragma once

#include "shell/units/LinearUnit.h"

#include <map>
#include <string>

namespace KvRefSystem {

class TEllipsoid;

/** The ellipsoid as the user gave it: texts with their unit. Builds the core ellipsoid on request. */
class TShellEllipsoid {
public:
    /** @throws std::runtime_error with "TShellEllipsoid::TShellEllipsoid(TStringTree *tree)". */
    explicit TShellEllipsoid(TStringTree* tree);

    /** @throws std::runtime_error with "TShellEllipsoid::TShellEllipsoid(TKvXIniReader *xml)". */
    explicit TShellEllipsoid(TKvXIniReader* xml);

    TShellEllipsoid(TShellEllipsoid const&) = delete;
    TShellEllipsoid& operator=(TShellEllipsoid const&) = delete;
    ~TShellEllipsoid();

    /** Empties everything and frees the unit. */
    void Reset();

    /**
     * @return a new core ellipsoid in metres, owned by the caller.
     * @throws std::runtime_error for a text that doesn't parse.
     */
    TEllipsoid* Create() const;

    /**
     * Stores the semi-axes in metres.
     * @return false, outputs untouched, without a unit or a needed text.
     * @throws as `Create`.
     */
    bool GetSemiAxesMeters(double* major, double* minor) const;

    /** Replaces `text` by the WKT SPHEROID. @return false without a unit, else true. @throws as `Create`. */
    bool ExportToWKT(std::string* text) const;

    /**
     * Writes geokeys 2056 to 2059, in `unit`; with null as they stand, and the own unit's 2052 and 2053.
     * @return false without a unit, else true. @throws as `Create`.
     */
    bool ExportToGeoTIFF(std::map<int, std::string>* keys, TShellLinearUnit const* unit) const;

    /** @return false without a unit, a major and a second text. */
    bool LoadFromXML(TKvXIniReader* reader);

    /** @return false at the first write that failed. */
    bool SaveToXML(TKvXIniWriter* writer) const;

    std::string Name;                       ///< also the WKT name
    std::string Description;                ///< free text
    TShellLinearUnit* LinearUnit = nullptr; ///< owned; null after `Reset`
    std::string MajorSemiAxis;              ///< text in the linear unit
    std::string MinorSemiAxis;              ///< text in the linear unit; may be empty beside a flattening
    std::string InverseFlattening;          ///< plain number; empty when two axes define the ellipsoid
    int GeoTIFFCode = 0;                    ///< 0 when there is none
    int MIFMIDCode = -1;                    ///< -1 when there is none; no place in the tree form
};

} // namespace KvRefSystem
