#pragma once

#include "shell/units/AngularUnit.h"

#include <map>
#include <string>

namespace KvRefSystem {

class TPrimeMeridian;

/** The prime meridian as the user gave it: a text, east positive, with its unit. */
class TShellPrimeMeridian {
public:
    /**
     * @throws std::runtime_error with "TShellPrimeMeridian::TShellPrimeMeridian(TStringTree *tree)"; what
     *         unit and text throw.
     */
    explicit TShellPrimeMeridian(TStringTree* tree);

    /** @throws std::runtime_error with "TShellPrimeMeridian::TShellPrimeMeridian(TKvXIniReader *xml)". */
    explicit TShellPrimeMeridian(TKvXIniReader* xml);

    TShellPrimeMeridian(TShellPrimeMeridian const&) = delete;
    TShellPrimeMeridian& operator=(TShellPrimeMeridian const&) = delete;
    ~TShellPrimeMeridian();

    /** Empties everything and frees the unit; the meridian counts as zero then. */
    void Reset();

    /**
     * @return a new core meridian in radians, owned by the caller.
     * @throws std::runtime_error for a text that doesn't parse.
     */
    TPrimeMeridian* Create() const;

    /**
     * Replaces `text` by the number of the MapInfo clause: radians times pi / 180 (kept).
     * @return false without a unit, else true.
     * @throws as `Create`.
     */
    bool ExportToMIFMID(std::string* text) const;

    /**
     * Replaces `text` by the WKT PRIMEM in `unit`, or in degrees with null.
     * @return false without a unit, else true.
     * @throws as `Create`.
     */
    bool ExportToWKT(std::string* text, TShellAngularUnit const* unit) const;

    /**
     * Writes geokey 2051, and 2061 in `unit` for a user-defined one; null: this meridian's own unit.
     * @return false without a unit, else true.
     * @throws as `Create`.
     */
    bool ExportToGeoTIFF(std::map<int, std::string>* keys, TShellAngularUnit const* unit) const;

    /** @return false without a unit or with an empty longitude. */
    bool LoadFromXML(TKvXIniReader* reader);

    /** @return false at the first write that failed. */
    bool SaveToXML(TKvXIniWriter* writer) const;

    std::string Name;                         ///< also the WKT name
    std::string Description;                  ///< free text
    TShellAngularUnit* AngularUnit = nullptr; ///< owned; null after `Reset`
    std::string Longitude;                    ///< text in the angular unit, east positive
    int GeoTIFFCode = 0;                      ///< 0 when there is none
    bool IsZero{};                            ///< the longitude is exactly 0.0 radians
};

} // namespace KvRefSystem
