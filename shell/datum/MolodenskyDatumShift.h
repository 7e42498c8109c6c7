#pragma once

#include "shell/datum/DatumShift.h"
#include "shell/units/LinearUnit.h"

namespace KvRefSystem {

/** Three translations [EPSG7-2, 9603]; the core shift is a linear one without rotations. */
class TShellMolodenskyDatumShift : public TShellDatumShift {
public:
    /**
     * @throws std::runtime_error with "TShellMolodenskyDatumShift::TShellMolodenskyDatumShift(TStringTree
     *         *tree)"; as root and unit.
     */
    explicit TShellMolodenskyDatumShift(TStringTree* tree);

    /**
     * @throws std::runtime_error with "TShellMolodenskyDatumShift::TShellMolodenskyDatumShift(TKvXIniReader
     *         *xml)".
     */
    explicit TShellMolodenskyDatumShift(TKvXIniReader* xml);

    ~TShellMolodenskyDatumShift() override;

    /** Empties the texts and frees the unit. */
    void Reset();

    TDatumShift* Create() const override;
    bool ExportToMIFMID(std::string* text) const override;
    bool ExportToWKT(std::string* text) const override;
    bool ExportToGeoTIFF(std::map<int, std::string>* keys) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    bool SaveToXML(TKvXIniWriter* writer) const override;
    bool GetDatumShiftParams(double* dx, double* dy, double* dz, double* rx, double* ry, double* rz,
                             double* ds) const override;

    std::string ShiftX;                     ///< dx, text in the linear unit
    std::string ShiftY;                     ///< dy
    std::string ShiftZ;                     ///< dz
    TShellLinearUnit* LinearUnit = nullptr; ///< owned; null after `Reset`
};

} // namespace KvRefSystem
