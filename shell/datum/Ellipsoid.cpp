#include "shell/datum/Ellipsoid.h"

#include "core/primitives/Ellipsoid.h"
#include "frame/NumberText.h"
#include "frame/imported/XIni.h"
#include "shell/datum/DatumDetail.h"
#include "shell/units/GeoKeyDetail.h"

#include <memory>
#include <stdexcept>
#include <utility>

namespace KvRefSystem {

using DatumDetail::ValueInBase;
using LumCommonUtils::WriteNonNegativeInt;
using LumCommonUtils::WriteNonZeroInt;
using LumCommonUtils::WriteNotEmptyString;

namespace {

constexpr char const* treeConstructor = "TShellEllipsoid::TShellEllipsoid(TStringTree *tree)";
constexpr char const* xmlConstructor = "TShellEllipsoid::TShellEllipsoid(TKvXIniReader *xml)";

/** What GeoTIFF writes for a code that is told by other keys. */

enum TEllipsoidTag : int {
    tagMajorSemiAxis = 5110,
    tagMinorSemiAxis = 5111,
    tagInverseFlattening = 5112,
    tagLinearUnit = 5113,
    tagHasInverseFlattening = 5114,
    tagIsSphere = 5115,
    tagName = 5120,
    tagDescription = 5121,
    tagGeoTIFFCode = 102004,
};

enum TEllipsoidGeoKey : int {
    keyLinearUnitCode = 2052,
    keyLinearUnitSize = 2053,
    keyCode = 2056,
    keyMajorSemiAxis = 2057,
    keyMinorSemiAxis = 2058,
    keyInverseFlattening = 2059,
};

/** One string member with its XML key, in the order of writing. */
struct TTextKey {
    char const* key;
    std::string TShellEllipsoid::*text;
};

constexpr TTextKey textKeys[] = {
    {"EllipsoidName", &TShellEllipsoid::Name},
    {"EllipsoidDescription", &TShellEllipsoid::Description},
    {"EllipsoidMajorSemiAxis", &TShellEllipsoid::MajorSemiAxis},
    {"EllipsoidMinorSemiAxis", &TShellEllipsoid::MinorSemiAxis},
    {"EllipsoidInverseFlattening", &TShellEllipsoid::InverseFlattening},
};

/** The axis in metres, printed in `unit` with all its digits. */
std::string PrintMeters(TShellLinearUnit const& unit, double meters) {
    return unit.ValueToString(meters * unit.CoefFromBase, -1);
}

} // namespace

TShellEllipsoid::TShellEllipsoid(TStringTree* tree) {
    if (tree == nullptr) {
        throw std::runtime_error(treeConstructor);
    }
    int hasInverseFlattening = 0;
    int isSphere = 0;
    if (!tree->GetString(tagName, 0, &Name) || !tree->GetString(tagDescription, 0, &Description) ||
        !tree->GetString(tagMajorSemiAxis, 0, &MajorSemiAxis) ||
        !tree->GetString(tagMinorSemiAxis, 0, &MinorSemiAxis) ||
        !tree->GetInteger(tagHasInverseFlattening, 0, &hasInverseFlattening) ||
        !tree->GetInteger(tagIsSphere, 0, &isSphere)) {
        throw std::runtime_error(treeConstructor);
    }

    // Kept: descriptions whose unit stands directly beside the axes exist.
    TStringTree* const unitTree = tree->FindSubtree(tagLinearUnit, 0);
    std::unique_ptr<TShellLinearUnit> unit;
    try {
        unit = std::make_unique<TShellLinearUnit>(unitTree != nullptr ? unitTree : tree);
    } catch (std::runtime_error const&) {
        throw std::runtime_error(treeConstructor);
    }

    if (hasInverseFlattening != 0 && !tree->GetString(tagInverseFlattening, 0, &InverseFlattening)) {
        throw std::runtime_error(treeConstructor);
    }
    // Kept: the second axis that a sphere's description holds doesn't count.
    if (isSphere != 0) {
        MinorSemiAxis = MajorSemiAxis;
    }
    tree->GetInteger(tagGeoTIFFCode, 0, &GeoTIFFCode);
    LinearUnit = unit.release();
}

TShellEllipsoid::TShellEllipsoid(TKvXIniReader* xml) {
    try {
        if (!LoadFromXML(xml)) {
            throw std::runtime_error(xmlConstructor);
        }
    } catch (...) {
        Reset();
        throw;
    }
}

TShellEllipsoid::~TShellEllipsoid() {
    delete LinearUnit;
}

void TShellEllipsoid::Reset() {
    for (TTextKey const& row : textKeys) {
        (this->*row.text).clear();
    }
    delete std::exchange(LinearUnit, nullptr);
    GeoTIFFCode = 0;
    MIFMIDCode = -1;
}

TEllipsoid* TShellEllipsoid::Create() const {
    if (LinearUnit == nullptr) {
        throw std::runtime_error("TEllipsoid* TShellEllipsoid::Create() const");
    }
    double const a = ValueInBase(*LinearUnit, MajorSemiAxis);
    if (InverseFlattening.empty()) {
        return new TEllipsoid(a, ValueInBase(*LinearUnit, MinorSemiAxis));
    }
    // Kept: a text that isn't a number counts as a flattening of 0.
    double const f = ParseLeadingDouble(InverseFlattening.c_str());
    return new TEllipsoid(a, a * (f - 1.0) / f);
}

bool TShellEllipsoid::GetSemiAxesMeters(double* major, double* minor) const {
    if (LinearUnit == nullptr || MajorSemiAxis.empty() ||
        (InverseFlattening.empty() && MinorSemiAxis.empty())) {
        return false;
    }
    double const a = ValueInBase(*LinearUnit, MajorSemiAxis);
    double b = 0.0;
    if (InverseFlattening.empty()) {
        b = ValueInBase(*LinearUnit, MinorSemiAxis);
    } else {
        double const f = ParseLeadingDouble(InverseFlattening.c_str());
        b = (f - 1.0) * a / f;
    }
    *major = a;
    *minor = b;
    return true;
}

bool TShellEllipsoid::ExportToWKT(std::string* text) const {
    if (LinearUnit == nullptr) {
        return false;
    }
    double const a = ValueInBase(*LinearUnit, MajorSemiAxis);
    // The flattening that the user typed, not one computed again; != is true for a NaN.
    double f = ParseLeadingDouble(InverseFlattening.c_str());
    if (!(f != 0.0)) {
        double const difference = a - ValueInBase(*LinearUnit, MinorSemiAxis);
        f = difference != 0.0 ? a / difference : 0.0;
    }
    *text = FormatText("SPHEROID[\"%s\",%.15lg,%.15lg]", Name.c_str(), a, f);
    return true;
}

bool TShellEllipsoid::ExportToGeoTIFF(std::map<int, std::string>* keys, TShellLinearUnit const* unit) const {
    if (LinearUnit == nullptr) {
        return false;
    }
    // The texts come first: when one of them doesn't parse, no key is written.
    std::string major = MajorSemiAxis;
    std::string minor = MinorSemiAxis;
    if (unit != nullptr) {
        major = PrintMeters(*unit, ValueInBase(*LinearUnit, MajorSemiAxis));
        if (InverseFlattening.empty()) {
            minor = PrintMeters(*unit, ValueInBase(*LinearUnit, MinorSemiAxis));
        }
    }
    keys->insert({keyCode, GeoTIFFCode != 0 ? FormatText("%d", GeoTIFFCode) : UserDefinedGeoKey});
    keys->insert({keyMajorSemiAxis, std::move(major)});
    if (unit == nullptr) {
        LinearUnit->ExportToGeoTIFF(keys, keyLinearUnitCode, keyLinearUnitSize);
    }
    if (InverseFlattening.empty()) {
        keys->insert({keyMinorSemiAxis, std::move(minor)});
    } else {
        keys->insert({keyInverseFlattening, InverseFlattening});
    }
    return true;
}

bool TShellEllipsoid::LoadFromXML(TKvXIniReader* reader) {
    Reset();
    if (reader == nullptr) {
        return false;
    }
    unsigned long const unitItem = reader->FindF("EllipsoidLinearUnit", 0);
    LinearUnit = DatumDetail::ReadPlainUnitSection<TShellLinearUnit>(reader, "EllipsoidLinearUnit").release();
    if (unitItem != TKvXIniReader::NotFound) {
        MajorSemiAxis = ReadXmlText(reader, "EllipsoidMajorSemiAxis");
        MinorSemiAxis = ReadXmlText(reader, "EllipsoidMinorSemiAxis");
        InverseFlattening = ReadXmlText(reader, "EllipsoidInverseFlattening");
    }
    Name = ReadXmlText(reader, "EllipsoidName");
    Description = ReadXmlText(reader, "EllipsoidDescription");
    GeoTIFFCode = ReadXmlInt(reader, "EllipsoidGeoTIFFCode", 0);
    MIFMIDCode = ReadXmlInt(reader, "EllipsoidMIFMIDCode", -1);
    return LinearUnit != nullptr && !MajorSemiAxis.empty() &&
           (!MinorSemiAxis.empty() || !InverseFlattening.empty());
}

bool TShellEllipsoid::SaveToXML(TKvXIniWriter* writer) const {
    if (writer == nullptr) {
        return false;
    }
    for (TTextKey const& row : textKeys) {
        if (!WriteNotEmptyString(writer, row.key, this->*row.text)) {
            return false;
        }
    }
    return DatumDetail::WriteUnitSection(writer, "EllipsoidLinearUnit", LinearUnit) &&
           WriteNonZeroInt(writer, "EllipsoidGeoTIFFCode", GeoTIFFCode) &&
           WriteNonNegativeInt(writer, "EllipsoidMIFMIDCode", MIFMIDCode);
}

} // namespace KvRefSystem
