#pragma once

#include "frame/imported/StringTree.h"

#include <map>
#include <string>

class TKvXIniReader;
class TKvXIniWriter;

namespace KvRefSystem {

class TDatumShift;

/** Form in which the user gave a datum shift. */
enum TShellDatumShiftType : int {
    dstMolodensky = 1,      ///< translations only [EPSG7-2, 9603]
    dstBursaWolf = 2,       ///< position vector rotations [EPSG7-2, 9606]
    dstBursaWolfInvRot = 3, ///< coordinate frame rotations [EPSG7-2, 9607]
};

/** A datum shift to WGS 84 as the user gave it: texts with their units. Builds the core shift on request. */
class TShellDatumShift {
public:
    /**
     * @throws std::runtime_error with "TShellDatumShift::TShellDatumShift(TStringTree *tree)" without a type.
     */
    explicit TShellDatumShift(TStringTree* tree);

    /**
     * @throws std::runtime_error with "TShellDatumShift::TShellDatumShift(TKvXIniReader *xml)" for a type
     *         outside 1 to 3.
     */
    explicit TShellDatumShift(TKvXIniReader* xml);

    TShellDatumShift(TShellDatumShift const&) = delete;
    TShellDatumShift& operator=(TShellDatumShift const&) = delete;
    virtual ~TShellDatumShift();

    /**
     * @return a new core shift, owned by the caller.
     * @throws std::runtime_error for a text that doesn't parse.
     */
    virtual TDatumShift* Create() const = 0;

    /**
     * Replaces `text` by the numbers of the MapInfo clause: metres, seconds, ppm, to eight places.
     * @return false without a unit, else true.
     * @throws as `Create`.
     */
    virtual bool ExportToMIFMID(std::string* text) const = 0;

    /**
     * Replaces `text` by the WKT TOWGS84: metres, seconds of arc, ppm.
     * @return false without a unit, else true.
     * @throws as `Create`.
     */
    virtual bool ExportToWKT(std::string* text) const = 0;

    /** Writes geokey 2062. @return false without a unit, else true. @throws as `Create`. */
    virtual bool ExportToGeoTIFF(std::map<int, std::string>* keys) const = 0;

    /** Reads "DatumShiftType". @return false for a type outside 1 to 3. */
    virtual bool LoadFromXML(TKvXIniReader* reader);

    /** Writes "DatumShiftType". @return whether the write succeeded. */
    virtual bool SaveToXML(TKvXIniWriter* writer) const;

    /** Chooses the exact form of the rotations. @return false in forms that have none, as here. */
    virtual bool SetNonLinear(bool nonLinear);

    /**
     * Stores translations (metres), rotations (seconds of arc, coordinate frame sign) and scale (ppm).
     * @return false without a unit, else true.
     * @throws as `Create`.
     */
    virtual bool GetDatumShiftParams(double* dx, double* dy, double* dz, double* rx, double* ry, double* rz,
                                     double* ds) const = 0;

    int Type{}; ///< a `TShellDatumShiftType`
};

/**
 * @return the shift in the form that the tree names, owned by the caller; null without or with another form.
 * @throws as the class.
 */
TShellDatumShift* CreateShellDatumShift(TStringTree* tree);

/**
 * @return the shift in the form that "DatumShiftType" names, owned by the caller; null for another form.
 * @throws as the class.
 */
TShellDatumShift* CreateShellDatumShift(TKvXIniReader* reader);

} // namespace KvRefSystem
