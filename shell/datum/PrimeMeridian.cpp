#include "shell/datum/PrimeMeridian.h"

#include "core/refsystems/PrimeMeridian.h"
#include "frame/NumberText.h"
#include "frame/imported/XIni.h"
#include "shell/datum/DatumDetail.h"
#include "shell/units/GeoKeyDetail.h"

#include <cmath>
#include <memory>
#include <stdexcept>
#include <utility>

namespace KvRefSystem {

using DatumDetail::ValueInBase;
using LumCommonUtils::WriteNonZeroInt;
using LumCommonUtils::WriteNotEmptyString;

namespace {

constexpr char const* treeConstructor = "TShellPrimeMeridian::TShellPrimeMeridian(TStringTree *tree)";
constexpr char const* xmlConstructor = "TShellPrimeMeridian::TShellPrimeMeridian(TKvXIniReader *xml)";

constexpr double pi = 3.141592653589793;
constexpr double twoPi = 6.283185307179586;

/** Beyond this many radians whole turns come off by a remainder: one by one would take too long. */
constexpr double farAngle = 1e6;

enum TPrimeMeridianTag : int {
    tagLongitude = 5210,
    tagAngularUnit = 5211,
    tagName = 5220,
    tagDescription = 5221,
    tagGeoTIFFCode = 102009,
};

enum TPrimeMeridianGeoKey : int {
    keyCode = 2051,
    keyLongitude = 2061,
};

/** Takes whole turns off. What has none left to take, as an infinity or a NaN, stays. */
double WrapHalfTurn(double radians) {
    double value =
        std::fabs(radians) > farAngle && std::isfinite(radians) ? std::fmod(radians, twoPi) : radians;
    while (value > pi && value - twoPi < value) {
        value -= twoPi;
    }
    while (value < -pi && value + twoPi > value) {
        value += twoPi;
    }
    return value;
}

} // namespace

TShellPrimeMeridian::TShellPrimeMeridian(TStringTree* tree) {
    if (tree == nullptr || !tree->GetString(tagName, 0, &Name) ||
        !tree->GetString(tagDescription, 0, &Description) || !tree->GetString(tagLongitude, 0, &Longitude)) {
        throw std::runtime_error(treeConstructor);
    }
    tree->GetInteger(tagGeoTIFFCode, 0, &GeoTIFFCode);

    // Kept: descriptions whose unit stands directly beside the longitude exist.
    TStringTree* const unitTree = tree->FindSubtree(tagAngularUnit, 0);
    std::unique_ptr<TShellAngularUnit> unit(CreateShellAngularUnit(unitTree != nullptr ? unitTree : tree));
    if (!unit) {
        throw std::runtime_error(treeConstructor);
    }
    IsZero = ValueInBase(*unit, Longitude) == 0.0;
    AngularUnit = unit.release();
}

TShellPrimeMeridian::TShellPrimeMeridian(TKvXIniReader* xml) {
    try {
        if (!LoadFromXML(xml)) {
            throw std::runtime_error(xmlConstructor);
        }
    } catch (...) {
        Reset();
        throw;
    }
}

TShellPrimeMeridian::~TShellPrimeMeridian() {
    delete AngularUnit;
}

void TShellPrimeMeridian::Reset() {
    Name.clear();
    Description.clear();
    delete std::exchange(AngularUnit, nullptr);
    Longitude.clear();
    GeoTIFFCode = 0;
    IsZero = true;
}

TPrimeMeridian* TShellPrimeMeridian::Create() const {
    if (AngularUnit == nullptr) {
        throw std::runtime_error("TPrimeMeridian* TShellPrimeMeridian::Create() const");
    }
    return new TPrimeMeridian(ValueInBase(*AngularUnit, Longitude));
}

bool TShellPrimeMeridian::ExportToMIFMID(std::string* text) const {
    if (AngularUnit == nullptr) {
        return false;
    }
    double value = WrapHalfTurn(ValueInBase(*AngularUnit, Longitude));
    // Kept: radians times pi / 180, not degrees; only zero, the normal case of this format, comes out plain.
    value = value * pi / 180.0;
    *text = FormatText("%lg", DatumDetail::RoundToEightPlaces(value));
    return true;
}

bool TShellPrimeMeridian::ExportToWKT(std::string* text, TShellAngularUnit const* unit) const {
    if (AngularUnit == nullptr) {
        return false;
    }
    double const value = unit == nullptr ? AngularUnit->StringToDegrees(Longitude)
                                         : ValueInBase(*AngularUnit, Longitude) * unit->CoefFromBase;
    *text = FormatText("PRIMEM[\"%s\",%.15lg]", Name.c_str(), value);
    return true;
}

bool TShellPrimeMeridian::ExportToGeoTIFF(std::map<int, std::string>* keys,
                                          TShellAngularUnit const* unit) const {
    if (GeoTIFFCode != 0) {
        keys->insert({keyCode, FormatText("%d", GeoTIFFCode)});
        return true;
    }
    if (AngularUnit == nullptr) {
        return false;
    }
    TShellAngularUnit const& target = unit != nullptr ? *unit : *AngularUnit;
    std::string longitude =
        target.ValueToString(ValueInBase(*AngularUnit, Longitude) * target.CoefFromBase, -1);
    keys->insert({keyCode, UserDefinedGeoKey});
    keys->insert({keyLongitude, std::move(longitude)});
    return true;
}

bool TShellPrimeMeridian::LoadFromXML(TKvXIniReader* reader) {
    Reset();
    if (reader == nullptr) {
        return false;
    }
    AngularUnit = DatumDetail::ReadUnitSection(reader, "PrimeMeridianAngularUnit", [](TKvXIniReader* xml) {
                      return std::unique_ptr<TShellAngularUnit>(CreateShellAngularUnit(xml));
                  }).release();
    if (AngularUnit == nullptr) {
        return false;
    }
    Longitude = ReadXmlText(reader, "PrimeMeridianLongitude");
    Name = ReadXmlText(reader, "PrimeMeridianName");
    Description = ReadXmlText(reader, "PrimeMeridianDescription");
    GeoTIFFCode = ReadXmlInt(reader, "PrimeMeridianGeoTIFFCode", 0);
    if (Longitude.empty()) {
        return false;
    }
    try {
        IsZero = ValueInBase(*AngularUnit, Longitude) == 0.0;
    } catch (std::runtime_error const&) {
        return false;
    }
    return true;
}

bool TShellPrimeMeridian::SaveToXML(TKvXIniWriter* writer) const {
    return writer != nullptr && WriteNotEmptyString(writer, "PrimeMeridianName", Name) &&
           WriteNotEmptyString(writer, "PrimeMeridianDescription", Description) &&
           WriteNotEmptyString(writer, "PrimeMeridianLongitude", Longitude) &&
           DatumDetail::WriteUnitSection(writer, "PrimeMeridianAngularUnit", AngularUnit) &&
           WriteNonZeroInt(writer, "PrimeMeridianGeoTIFFCode", GeoTIFFCode);
}

} // namespace KvRefSystem
