#include "shell/units/AngularUnit.h"

#include "frame/imported/XIni.h"
#include "shell/units/SexagesimalUnits.h"
#include "shell/units/UnitDetail.h"

#include <stdexcept>

namespace KvRefSystem {

namespace {

constexpr int TagCode = 5301;
constexpr int TagGeoTIFFCode = 102003;
constexpr double RadianDecimals = 10.0;

double ValueToDegrees(TShellAngularUnit const& unit, double value) {
    return value * unit.CoefToBase * 180.0 / UnitDetail::Pi;
}

double DegreesToValue(TShellAngularUnit const& unit, double degrees) {
    return degrees * UnitDetail::Pi / 180.0 * unit.CoefFromBase;
}

/** The one place that knows which code has which class. */
template <class TSource>
TShellAngularUnit* CreateByCode(int code, TSource* source) {
    switch (code) {
    case anDegreeMinuteSecond:
        return new TShellUnitDegreeMinuteSecond(source);
    case anDegreeMinuteSecondHemisphere:
        return new TShellUnitDegreeMinuteSecondHemisphere(source);
    case anSexagesimalDegree:
        return new TShellUnitSexagesimalDegree(source);
    case anDegreeDecimalMinute:
        return new TShellDegreeDecimalMinuteUnit(source);
    default:
        return new TShellAngularUnit(source);
    }
}

} // namespace

TShellAngularUnit::TShellAngularUnit(TStringTree* tree) : TShellUnit(tree) {
    tree->GetInteger(TagGeoTIFFCode, 0, &GeoTIFFCode);
    if (!tree->GetInteger(TagCode, 0, &Code)) {
        throw std::runtime_error("TShellAngularUnit::TShellAngularUnit(TStringTree *tree)");
    }
    Precision = UnitDetail::DefaultPrecision(CoefToBase, RadianDecimals);
}

TShellAngularUnit::TShellAngularUnit(TKvXIniReader* xml) {
    if (!TShellAngularUnit::LoadFromXML(xml)) {
        throw std::runtime_error("TShellAngularUnit::TShellAngularUnit");
    }
    Precision = UnitDetail::DefaultPrecision(CoefToBase, RadianDecimals);
}

TShellAngularUnit::~TShellAngularUnit() = default;

bool TShellAngularUnit::LoadFromXML(TKvXIniReader* reader) {
    return TShellUnit::LoadFromXML(reader) && Type == utAngular;
}

// --- The views of a value as a latitude or a longitude -----------------------------------------------------

bool TShellAngularUnit::StringToValueLatitude(std::string const& text, double* value) const {
    return StringToValue(text, value);
}

bool TShellAngularUnit::StringToValueLongitude(std::string const& text, double* value) const {
    return StringToValue(text, value);
}

std::string TShellAngularUnit::ValueToStringLatitude(double const& value, int precision) const {
    return ValueToString(value, precision);
}

std::string TShellAngularUnit::ValueToStringLongitude(double const& value, int precision) const {
    return ValueToString(value, precision);
}

double TShellAngularUnit::StringToValueLatitude(std::string const& text) const {
    double value = 0.0;
    if (!StringToValueLatitude(text, &value)) {
        throw std::runtime_error("double TShellAngularUnit::StringToValueLatitude(const string& str) const");
    }
    return value;
}

double TShellAngularUnit::StringToValueLongitude(std::string const& text) const {
    double value = 0.0;
    if (!StringToValueLongitude(text, &value)) {
        throw std::runtime_error("double TShellAngularUnit::StringToValueLongitude(const string& str) const");
    }
    return value;
}

double TShellAngularUnit::StringToValueLatitudeDef(std::string const& text, double const& fallback) const {
    double value = fallback;
    return StringToValueLatitude(text, &value) ? value : fallback;
}

double TShellAngularUnit::StringToValueLongitudeDef(std::string const& text, double const& fallback) const {
    double value = fallback;
    return StringToValueLongitude(text, &value) ? value : fallback;
}

// --- Degrees -----------------------------------------------------------------------------------------------

double TShellAngularUnit::StringToDegrees(std::string const& text) const {
    return ValueToDegrees(*this, StringToValue(text));
}

std::string TShellAngularUnit::DegreesToString(double const& degrees, int precision) const {
    return ValueToString(DegreesToValue(*this, degrees), precision);
}

double TShellAngularUnit::StringToDegreesLatitude(std::string const& text) const {
    return ValueToDegrees(*this, StringToValueLatitude(text));
}

std::string TShellAngularUnit::DegreesToStringLatitude(double const& degrees, int precision) const {
    return ValueToStringLatitude(DegreesToValue(*this, degrees), precision);
}

double TShellAngularUnit::StringToDegreesLongitude(std::string const& text) const {
    return ValueToDegrees(*this, StringToValueLongitude(text));
}

std::string TShellAngularUnit::DegreesToStringLongitude(double const& degrees, int precision) const {
    return ValueToStringLongitude(DegreesToValue(*this, degrees), precision);
}

// --- Radians -----------------------------------------------------------------------------------------------

double TShellAngularUnit::StringToRadiansLatitude(std::string const& text) const {
    return StringToValueLatitude(text) * CoefToBase;
}

double TShellAngularUnit::StringToRadiansLongitude(std::string const& text) const {
    return StringToValueLongitude(text) * CoefToBase;
}

std::string TShellAngularUnit::RadiansToStringLatitude(double const& radians, int precision) const {
    return ValueToStringLatitude(radians * CoefFromBase, precision);
}

std::string TShellAngularUnit::RadiansToStringLongitude(double const& radians, int precision) const {
    return ValueToStringLongitude(radians * CoefFromBase, precision);
}

// --- Free functions ----------------------------------------------------------------------------------------

bool ConvertLatitude(TShellAngularUnit const* source, std::string const& text,
                     TShellAngularUnit const* target, std::string* result) {
    if (!source || !target) {
        return false;
    }
    double const value = source->StringToValueLatitude(text);
    *result = target->ValueToStringLatitude((source->CoefToBase * value) * target->CoefFromBase, -1);
    return true;
}

bool ConvertLongitude(TShellAngularUnit const* source, std::string const& text,
                      TShellAngularUnit const* target, std::string* result) {
    if (!source || !target) {
        return false;
    }
    double const value = source->StringToValueLongitude(text);
    *result = target->ValueToStringLongitude((source->CoefToBase * value) * target->CoefFromBase, -1);
    return true;
}

TShellAngularUnit* CreateShellAngularUnit(TStringTree* tree) {
    int code = 0;
    if (!tree || !tree->GetInteger(TagCode, 0, &code)) {
        return nullptr;
    }
    return CreateByCode(code, tree);
}

TShellAngularUnit* CreateShellAngularUnit(TKvXIniReader* reader) {
    int const code = reader ? reader->Read<int>(reader->FindF("UnitCode", 0), 0) : 0;
    return CreateByCode(code, reader);
}

} // namespace KvRefSystem
