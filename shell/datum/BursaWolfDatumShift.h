#pragma once

#include "shell/datum/DatumShift.h"
#include "shell/units/AngularUnit.h"
#include "shell/units/LinearUnit.h"
#include "shell/units/ScaleUnit.h"

namespace KvRefSystem {

/**
 * Seven parameters with position vector rotations [EPSG7-2, 9606]. The signs of the rotations in WKT and
 * GeoTIFF and those of `GetDatumShiftParams` and MapInfo differ: the formats follow different conventions.
 */
class TShellBursaWolfDatumShift : public TShellDatumShift {
public:
    /**
     * @throws std::runtime_error with "TShellBursaWolfDatumShift::TShellBursaWolfDatumShift(TStringTree
     *         *tree)"; as root and units.
     */
    explicit TShellBursaWolfDatumShift(TStringTree* tree);

    /**
     * @throws std::runtime_error with "TShellBursaWolfDatumShift::TShellBursaWolfDatumShift(TKvXIniReader
     *         *xml)".
     */
    explicit TShellBursaWolfDatumShift(TKvXIniReader* xml);

    ~TShellBursaWolfDatumShift() override;

    /** Empties the texts, frees the units and makes the shift linear. */
    void Reset();

    TDatumShift* Create() const override;
    bool ExportToMIFMID(std::string* text) const override;
    bool ExportToWKT(std::string* text) const override;
    bool ExportToGeoTIFF(std::map<int, std::string>* keys) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    bool SaveToXML(TKvXIniWriter* writer) const override;
    bool SetNonLinear(bool nonLinear) override;
    bool GetDatumShiftParams(double* dx, double* dy, double* dz, double* rx, double* ry, double* rz,
                             double* ds) const override;

    std::string ShiftX;                       ///< dx, text in the linear unit
    std::string ShiftY;                       ///< dy
    std::string ShiftZ;                       ///< dz
    std::string RotationX;                    ///< rx, text in the angular unit
    std::string RotationY;                    ///< ry
    std::string RotationZ;                    ///< rz
    std::string ScaleDifference;              ///< ds, text in the scale unit
    TShellLinearUnit* LinearUnit = nullptr;   ///< owned
    TShellAngularUnit* AngularUnit = nullptr; ///< owned
    TShellScaleUnit* ScaleUnit = nullptr;     ///< owned
    bool NonLinear{};                         ///< the core shift evaluates its rotations exactly
};

/** Seven parameters with coordinate frame rotations [EPSG7-2, 9607]: as above with all rotations negated. */
class TShellBursaWolfInvRotDatumShift : public TShellDatumShift {
public:
    /**
     * @throws std::runtime_error with
     *         "TShellBursaWolfInvRotDatumShift::TShellBursaWolfInvRotDatumShift(TStringTree *tree)"; as root
     *         and units.
     */
    explicit TShellBursaWolfInvRotDatumShift(TStringTree* tree);

    /**
     * @throws std::runtime_error with
     *         "TShellBursaWolfInvRotDatumShift::TShellBursaWolfInvRotDatumShift(TKvXIniReader *xml)".
     */
    explicit TShellBursaWolfInvRotDatumShift(TKvXIniReader* xml);

    ~TShellBursaWolfInvRotDatumShift() override;

    /** Empties the texts, frees the units and makes the shift linear. */
    void Reset();

    TDatumShift* Create() const override;
    bool ExportToMIFMID(std::string* text) const override;
    bool ExportToWKT(std::string* text) const override;
    bool ExportToGeoTIFF(std::map<int, std::string>* keys) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    bool SaveToXML(TKvXIniWriter* writer) const override;
    bool SetNonLinear(bool nonLinear) override;
    bool GetDatumShiftParams(double* dx, double* dy, double* dz, double* rx, double* ry, double* rz,
                             double* ds) const override;

    std::string ShiftX;                       ///< dx, text in the linear unit
    std::string ShiftY;                       ///< dy
    std::string ShiftZ;                       ///< dz
    std::string RotationX;                    ///< rx, text in the angular unit
    std::string RotationY;                    ///< ry
    std::string RotationZ;                    ///< rz
    std::string ScaleDifference;              ///< ds, text in the scale unit
    TShellLinearUnit* LinearUnit = nullptr;   ///< owned
    TShellAngularUnit* AngularUnit = nullptr; ///< owned
    TShellScaleUnit* ScaleUnit = nullptr;     ///< owned
    bool NonLinear{};                         ///< the core shift evaluates its rotations exactly
};

} // namespace KvRefSystem
