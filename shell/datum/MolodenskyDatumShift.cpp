#include "shell/datum/MolodenskyDatumShift.h"

#include "core/primitives/BursaWolfDatumShift.h"
#include "frame/NumberText.h"
#include "frame/imported/XIni.h"
#include "shell/datum/DatumDetail.h"

#include <memory>
#include <stdexcept>
#include <utility>

namespace KvRefSystem {

using DatumDetail::RoundToEightPlaces;
using DatumDetail::ValueInBase;

namespace {

constexpr char const* treeConstructor =
    "TShellMolodenskyDatumShift::TShellMolodenskyDatumShift(TStringTree *tree)";
constexpr char const* xmlConstructor =
    "TShellMolodenskyDatumShift::TShellMolodenskyDatumShift(TKvXIniReader *xml)";

constexpr int tagLinearUnit = 5440;
constexpr char const* linearUnitKey = "DatumShiftLinearUnit";

/** One translation with its tag and its XML key, in the order of reading and writing. */
struct TTranslation {
    int tag;
    char const* key;
    std::string TShellMolodenskyDatumShift::*text;
};

constexpr TTranslation translations[] = {
    {5461, "DatumShiftDx", &TShellMolodenskyDatumShift::ShiftX},
    {5462, "DatumShiftDy", &TShellMolodenskyDatumShift::ShiftY},
    {5463, "DatumShiftDz", &TShellMolodenskyDatumShift::ShiftZ},
};

struct TMeters {
    double x;
    double y;
    double z;
};

/** @throws std::runtime_error for a text that doesn't parse. */
TMeters Translation(TShellMolodenskyDatumShift const& shift) {
    TShellLinearUnit const& unit = *shift.LinearUnit;
    return {ValueInBase(unit, shift.ShiftX), ValueInBase(unit, shift.ShiftY),
            ValueInBase(unit, shift.ShiftZ)};
}

} // namespace

TShellMolodenskyDatumShift::TShellMolodenskyDatumShift(TStringTree* tree) : TShellDatumShift(tree) {
    TStringTree* const unitTree = tree->FindSubtree(tagLinearUnit, 0);
    if (unitTree == nullptr) {
        throw std::runtime_error(treeConstructor);
    }
    auto unit = std::make_unique<TShellLinearUnit>(unitTree);
    for (TTranslation const& row : translations) {
        if (!tree->GetString(row.tag, 0, &(this->*row.text))) {
            throw std::runtime_error(treeConstructor);
        }
    }
    LinearUnit = unit.release();
}

TShellMolodenskyDatumShift::TShellMolodenskyDatumShift(TKvXIniReader* xml) : TShellDatumShift(xml) {
    try {
        if (!TShellMolodenskyDatumShift::LoadFromXML(xml)) {
            throw std::runtime_error(xmlConstructor);
        }
    } catch (...) {
        Reset();
        throw;
    }
}

TShellMolodenskyDatumShift::~TShellMolodenskyDatumShift() {
    delete LinearUnit;
}

void TShellMolodenskyDatumShift::Reset() {
    for (TTranslation const& row : translations) {
        (this->*row.text).clear();
    }
    delete std::exchange(LinearUnit, nullptr);
}

TDatumShift* TShellMolodenskyDatumShift::Create() const {
    if (LinearUnit == nullptr) {
        throw std::runtime_error("TDatumShift* TShellMolodenskyDatumShift::Create() const");
    }
    TMeters const d = Translation(*this);
    return new TBursaWolfDatumShift(TBursaWolfDatumShiftParameters(d.x, d.y, d.z, 0.0, 0.0, 0.0, 1.0));
}

bool TShellMolodenskyDatumShift::ExportToMIFMID(std::string* text) const {
    if (LinearUnit == nullptr) {
        return false;
    }
    TMeters const d = Translation(*this);
    *text = FormatText("%lg, %lg, %lg, 0, 0, 0, 0", RoundToEightPlaces(d.x), RoundToEightPlaces(d.y),
                       RoundToEightPlaces(d.z));
    return true;
}

bool TShellMolodenskyDatumShift::ExportToWKT(std::string* text) const {
    if (LinearUnit == nullptr) {
        return false;
    }
    TMeters const d = Translation(*this);
    *text = FormatText("TOWGS84[%.9lg,%.9lg,%.9lg,0,0,0,0]", d.x, d.y, d.z);
    return true;
}

bool TShellMolodenskyDatumShift::ExportToGeoTIFF(std::map<int, std::string>* keys) const {
    if (LinearUnit == nullptr) {
        return false;
    }
    TMeters const d = Translation(*this);
    keys->insert({2062, FormatText("%.9lg,%.9lg,%.9lg", d.x, d.y, d.z)});
    return true;
}

bool TShellMolodenskyDatumShift::LoadFromXML(TKvXIniReader* reader) {
    Reset();
    if (!TShellDatumShift::LoadFromXML(reader) || Type != dstMolodensky) {
        return false;
    }
    LinearUnit = DatumDetail::ReadPlainUnitSection<TShellLinearUnit>(reader, linearUnitKey).release();
    if (LinearUnit == nullptr) {
        return false;
    }
    bool complete = true;
    for (TTranslation const& row : translations) {
        this->*row.text = ReadXmlText(reader, row.key);
        complete = complete && !(this->*row.text).empty();
    }
    return complete;
}

bool TShellMolodenskyDatumShift::SaveToXML(TKvXIniWriter* writer) const {
    if (!TShellDatumShift::SaveToXML(writer)) {
        return false;
    }
    for (TTranslation const& row : translations) {
        if (!writer->WriteS<std::string>(row.key, this->*row.text)) {
            return false;
        }
    }
    return DatumDetail::WriteUnitSection(writer, linearUnitKey, LinearUnit);
}

bool TShellMolodenskyDatumShift::GetDatumShiftParams(double* dx, double* dy, double* dz, double* rx,
                                                     double* ry, double* rz, double* ds) const {
    if (LinearUnit == nullptr) {
        return false;
    }
    TMeters const d = Translation(*this);
    *dx = d.x;
    *dy = d.y;
    *dz = d.z;
    *rx = 0.0;
    *ry = 0.0;
    *rz = 0.0;
    *ds = 0.0;
    return true;
}

} // namespace KvRefSystem
