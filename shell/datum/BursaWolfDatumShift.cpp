#include "shell/datum/BursaWolfDatumShift.h"

#include "core/primitives/BursaWolfDatumShift.h"
#include "frame/NumberText.h"
#include "frame/imported/XIni.h"
#include "shell/datum/DatumDetail.h"

#include <array>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <utility>

// The two forms are siblings with the same members. What they do stands here once, as templates over the
// class; what tells them apart stands in their rows.

namespace KvRefSystem {

using DatumDetail::RoundToEightPlaces;
using DatumDetail::ValueInBase;

namespace {

/** What tells the two forms apart. */
struct TForm {
    TShellDatumShiftType type;
    double coreSign;      ///< of the rotations in the core, which has position vector rotations
    double secondsWKT;    ///< seconds of arc in a degree, with the sign of WKT and GeoTIFF
    double secondsParams; ///< the same with the sign of `GetDatumShiftParams` and MapInfo
    char const* treeConstructor;
    char const* xmlConstructor;
    char const* create;
};

template <class Shift>
constexpr TForm formOf = {};

// Kept: the exchange formats follow different conventions, so the two signs of one form differ.
template <>
constexpr TForm formOf<TShellBursaWolfDatumShift> = {
    dstBursaWolf,
    1.0,
    3600.0,
    -3600.0,
    "TShellBursaWolfDatumShift::TShellBursaWolfDatumShift(TStringTree *tree)",
    "TShellBursaWolfDatumShift::TShellBursaWolfDatumShift(TKvXIniReader *xml)",
    "TDatumShift* TShellBursaWolfDatumShift::Create() const",
};

template <>
constexpr TForm formOf<TShellBursaWolfInvRotDatumShift> = {
    dstBursaWolfInvRot,
    -1.0,
    -3600.0,
    3600.0,
    "TShellBursaWolfInvRotDatumShift::TShellBursaWolfInvRotDatumShift(TStringTree *tree)",
    "TShellBursaWolfInvRotDatumShift::TShellBursaWolfInvRotDatumShift(TKvXIniReader *xml)",
    "TDatumShift* TShellBursaWolfInvRotDatumShift::Create() const",
};

constexpr int tagLinearUnit = 5440;
constexpr int tagAngularUnit = 5441;
constexpr int tagScaleUnit = 5442;
constexpr int tagNonLinear = 5469;

constexpr char const* nonLinearKey = "DatumShiftNonLinear";
constexpr char const* linearUnitKey = "DatumShiftLinearUnit";
constexpr char const* angularUnitKey = "DatumShiftAngularUnit";
constexpr char const* scaleUnitKey = "DatumShiftScalarUnit";

/** One of the seven texts with its tag and its XML key. */
template <class Shift>
struct TTextRow {
    int tag;
    char const* key;
    std::string Shift::*text;
};

/** The seven texts in the order of reading and writing. */
template <class Shift>
constexpr TTextRow<Shift> textRows[] = {
    {5461, "DatumShiftDx", &Shift::ShiftX},          {5462, "DatumShiftDy", &Shift::ShiftY},
    {5463, "DatumShiftDz", &Shift::ShiftZ},          {5464, "DatumShiftRx", &Shift::RotationX},
    {5465, "DatumShiftRy", &Shift::RotationY},       {5466, "DatumShiftRz", &Shift::RotationZ},
    {5467, "DatumShiftDs", &Shift::ScaleDifference},
};

/** Metres, seconds of arc and parts per million, in the order of every exchange format. */
struct TNumbers {
    double dx;
    double dy;
    double dz;
    double rx;
    double ry;
    double rz;
    double ds;
};

template <class Shift>
bool HasUnits(Shift const& shift) {
    return shift.LinearUnit != nullptr && shift.AngularUnit != nullptr && shift.ScaleUnit != nullptr;
}

/**
 * @param seconds seconds of arc in a degree, with a sign.
 * @throws std::runtime_error for a text that doesn't parse.
 */
template <class Shift>
TNumbers Numbers(Shift const& shift, double seconds) {
    TShellAngularUnit const& angular = *shift.AngularUnit;
    TNumbers numbers{};
    numbers.dx = ValueInBase(*shift.LinearUnit, shift.ShiftX);
    numbers.dy = ValueInBase(*shift.LinearUnit, shift.ShiftY);
    numbers.dz = ValueInBase(*shift.LinearUnit, shift.ShiftZ);
    numbers.rx = angular.StringToDegrees(shift.RotationX) * seconds;
    numbers.ry = angular.StringToDegrees(shift.RotationY) * seconds;
    numbers.rz = angular.StringToDegrees(shift.RotationZ) * seconds;
    numbers.ds = ValueInBase(*shift.ScaleUnit, shift.ScaleDifference) * 1e6;
    return numbers;
}

template <class Shift>
void ReadTree(Shift* shift, TStringTree* tree) {
    constexpr char const* message = formOf<Shift>.treeConstructor;
    TStringTree* const linearTree = tree->FindSubtree(tagLinearUnit, 0);
    TStringTree* const angularTree = tree->FindSubtree(tagAngularUnit, 0);
    TStringTree* const scaleTree = tree->FindSubtree(tagScaleUnit, 0);
    if (linearTree == nullptr || angularTree == nullptr || scaleTree == nullptr) {
        throw std::runtime_error(message);
    }
    auto linear = std::make_unique<TShellLinearUnit>(linearTree);
    std::unique_ptr<TShellAngularUnit> angular(CreateShellAngularUnit(angularTree));
    if (!angular) {
        throw std::runtime_error(message);
    }
    auto scale = std::make_unique<TShellScaleUnit>(scaleTree);
    for (TTextRow<Shift> const& row : textRows<Shift>) {
        if (!tree->GetString(row.tag, 0, &(shift->*row.text))) {
            throw std::runtime_error(message);
        }
    }
    int nonLinear = 0;
    tree->GetInteger(tagNonLinear, 0, &nonLinear);
    shift->NonLinear = nonLinear != 0;
    shift->LinearUnit = linear.release();
    shift->AngularUnit = angular.release();
    shift->ScaleUnit = scale.release();
}

template <class Shift>
void ReadXML(Shift* shift, TKvXIniReader* xml) {
    try {
        if (!shift->Shift::LoadFromXML(xml)) {
            throw std::runtime_error(formOf<Shift>.xmlConstructor);
        }
    } catch (...) {
        shift->Reset();
        throw;
    }
}

template <class Shift>
void FreeUnits(Shift* shift) {
    delete std::exchange(shift->LinearUnit, nullptr);
    delete std::exchange(shift->AngularUnit, nullptr);
    delete std::exchange(shift->ScaleUnit, nullptr);
}

template <class Shift>
void ResetShift(Shift* shift) {
    for (TTextRow<Shift> const& row : textRows<Shift>) {
        (shift->*row.text).clear();
    }
    FreeUnits(shift);
    shift->NonLinear = false;
}

template <class Shift>
TDatumShift* CreateShift(Shift const& shift) {
    constexpr TForm form = formOf<Shift>;
    if (!HasUnits(shift)) {
        throw std::runtime_error(form.create);
    }
    TBursaWolfDatumShiftParameters const parameters(
        ValueInBase(*shift.LinearUnit, shift.ShiftX), ValueInBase(*shift.LinearUnit, shift.ShiftY),
        ValueInBase(*shift.LinearUnit, shift.ShiftZ),
        form.coreSign * ValueInBase(*shift.AngularUnit, shift.RotationX),
        form.coreSign * ValueInBase(*shift.AngularUnit, shift.RotationY),
        form.coreSign * ValueInBase(*shift.AngularUnit, shift.RotationZ),
        ValueInBase(*shift.ScaleUnit, shift.ScaleDifference) + 1.0);
    if (shift.NonLinear) {
        return new TBursaWolfNonlinearDatumShift(parameters);
    }
    return new TBursaWolfDatumShift(parameters);
}

template <class Shift>
bool ExportMIFMID(Shift const& shift, std::string* text) {
    if (!HasUnits(shift)) {
        return false;
    }
    TNumbers const n = Numbers(shift, formOf<Shift>.secondsParams);
    *text = FormatText("%lg, %lg, %lg, %lg, %lg, %lg, %lg", RoundToEightPlaces(n.dx),
                       RoundToEightPlaces(n.dy), RoundToEightPlaces(n.dz), RoundToEightPlaces(n.rx),
                       RoundToEightPlaces(n.ry), RoundToEightPlaces(n.rz), RoundToEightPlaces(n.ds));
    return true;
}

/** @return the list of WKT and GeoTIFF; a zero rotation shows as "-0" where the sign is negative (kept). */
template <class Shift>
std::string NumberList(Shift const& shift) {
    TNumbers const n = Numbers(shift, formOf<Shift>.secondsWKT);
    return FormatText("%.9lg,%.9lg,%.9lg,%.9lg,%.9lg,%.9lg,%.9lg", n.dx, n.dy, n.dz, n.rx, n.ry, n.rz, n.ds);
}

template <class Shift>
bool ExportWKT(Shift const& shift, std::string* text) {
    if (!HasUnits(shift)) {
        return false;
    }
    *text = "TOWGS84[" + NumberList(shift) + "]";
    return true;
}

template <class Shift>
bool ExportGeoTIFF(Shift const& shift, std::map<int, std::string>* keys) {
    if (!HasUnits(shift)) {
        return false;
    }
    keys->insert({2062, NumberList(shift)});
    return true;
}

template <class Shift>
bool LoadXML(Shift* shift, TKvXIniReader* reader) {
    shift->Reset();
    if (!shift->TShellDatumShift::LoadFromXML(reader) || shift->Type != formOf<Shift>.type) {
        return false;
    }
    shift->LinearUnit = DatumDetail::ReadPlainUnitSection<TShellLinearUnit>(reader, linearUnitKey).release();
    if (shift->LinearUnit == nullptr) {
        return false;
    }
    // Kept: always the plain class, so sexagesimal texts are read as plain numbers.
    shift->AngularUnit =
        DatumDetail::ReadPlainUnitSection<TShellAngularUnit>(reader, angularUnitKey).release();
    if (shift->AngularUnit == nullptr) {
        return false;
    }
    shift->ScaleUnit = DatumDetail::ReadPlainUnitSection<TShellScaleUnit>(reader, scaleUnitKey).release();
    if (shift->ScaleUnit == nullptr) {
        return false;
    }
    bool complete = true;
    for (TTextRow<Shift> const& row : textRows<Shift>) {
        shift->*row.text = ReadXmlText(reader, row.key);
        complete = complete && !(shift->*row.text).empty();
    }
    shift->NonLinear = ReadXmlInt(reader, nonLinearKey, 0) != 0;
    return complete;
}

template <class Shift>
bool SaveXML(Shift const& shift, TKvXIniWriter* writer) {
    if (!shift.TShellDatumShift::SaveToXML(writer)) {
        return false;
    }
    for (TTextRow<Shift> const& row : textRows<Shift>) {
        if (!writer->WriteS<std::string>(row.key, shift.*row.text)) {
            return false;
        }
    }
    if (shift.NonLinear && !writer->WriteS<int>(nonLinearKey, 1)) {
        return false;
    }
    return DatumDetail::WriteUnitSection(writer, linearUnitKey, shift.LinearUnit) &&
           DatumDetail::WriteUnitSection(writer, angularUnitKey, shift.AngularUnit) &&
           DatumDetail::WriteUnitSection(writer, scaleUnitKey, shift.ScaleUnit);
}

/** Stores the numbers in their order. @return false, nothing stored, without the units. */
template <class Shift>
bool StoreParams(Shift const& shift, std::array<double*, 7> const& outputs) {
    if (!HasUnits(shift)) {
        return false;
    }
    TNumbers const n = Numbers(shift, formOf<Shift>.secondsParams);
    double const values[] = {n.dx, n.dy, n.dz, n.rx, n.ry, n.rz, n.ds};
    for (std::size_t k = 0; k < outputs.size(); ++k) {
        *outputs[k] = values[k];
    }
    return true;
}

} // namespace

// --- Position vector rotations ---

TShellBursaWolfDatumShift::TShellBursaWolfDatumShift(TStringTree* tree) : TShellDatumShift(tree) {
    ReadTree(this, tree);
}

TShellBursaWolfDatumShift::TShellBursaWolfDatumShift(TKvXIniReader* xml) : TShellDatumShift(xml) {
    ReadXML(this, xml);
}

TShellBursaWolfDatumShift::~TShellBursaWolfDatumShift() {
    FreeUnits(this);
}

void TShellBursaWolfDatumShift::Reset() {
    ResetShift(this);
}

TDatumShift* TShellBursaWolfDatumShift::Create() const {
    return CreateShift(*this);
}

bool TShellBursaWolfDatumShift::ExportToMIFMID(std::string* text) const {
    return ExportMIFMID(*this, text);
}

bool TShellBursaWolfDatumShift::ExportToWKT(std::string* text) const {
    return ExportWKT(*this, text);
}

bool TShellBursaWolfDatumShift::ExportToGeoTIFF(std::map<int, std::string>* keys) const {
    return ExportGeoTIFF(*this, keys);
}

bool TShellBursaWolfDatumShift::LoadFromXML(TKvXIniReader* reader) {
    return LoadXML(this, reader);
}

bool TShellBursaWolfDatumShift::SaveToXML(TKvXIniWriter* writer) const {
    return SaveXML(*this, writer);
}

bool TShellBursaWolfDatumShift::SetNonLinear(bool nonLinear) {
    NonLinear = nonLinear;
    return true;
}

bool TShellBursaWolfDatumShift::GetDatumShiftParams(double* dx, double* dy, double* dz, double* rx,
                                                    double* ry, double* rz, double* ds) const {
    return StoreParams(*this, {dx, dy, dz, rx, ry, rz, ds});
}

// --- Coordinate frame rotations ---

TShellBursaWolfInvRotDatumShift::TShellBursaWolfInvRotDatumShift(TStringTree* tree) : TShellDatumShift(tree) {
    ReadTree(this, tree);
}

TShellBursaWolfInvRotDatumShift::TShellBursaWolfInvRotDatumShift(TKvXIniReader* xml) : TShellDatumShift(xml) {
    ReadXML(this, xml);
}

TShellBursaWolfInvRotDatumShift::~TShellBursaWolfInvRotDatumShift() {
    FreeUnits(this);
}

void TShellBursaWolfInvRotDatumShift::Reset() {
    ResetShift(this);
}

TDatumShift* TShellBursaWolfInvRotDatumShift::Create() const {
    return CreateShift(*this);
}

bool TShellBursaWolfInvRotDatumShift::ExportToMIFMID(std::string* text) const {
    return ExportMIFMID(*this, text);
}

bool TShellBursaWolfInvRotDatumShift::ExportToWKT(std::string* text) const {
    return ExportWKT(*this, text);
}

bool TShellBursaWolfInvRotDatumShift::ExportToGeoTIFF(std::map<int, std::string>* keys) const {
    return ExportGeoTIFF(*this, keys);
}

bool TShellBursaWolfInvRotDatumShift::LoadFromXML(TKvXIniReader* reader) {
    return LoadXML(this, reader);
}

bool TShellBursaWolfInvRotDatumShift::SaveToXML(TKvXIniWriter* writer) const {
    return SaveXML(*this, writer);
}

bool TShellBursaWolfInvRotDatumShift::SetNonLinear(bool nonLinear) {
    NonLinear = nonLinear;
    return true;
}

bool TShellBursaWolfInvRotDatumShift::GetDatumShiftParams(double* dx, double* dy, double* dz, double* rx,
                                                          double* ry, double* rz, double* ds) const {
    return StoreParams(*this, {dx, dy, dz, rx, ry, rz, ds});
}

} // namespace KvRefSystem
