#include "shell/units/Unit.h"

#include "frame/NumberText.h"
#include "frame/imported/XIni.h"
#include "shell/units/GeoKeyDetail.h"
#include "shell/units/UnitDetail.h"

#include <stdexcept>

namespace KvRefSystem {

namespace {

enum TUnitTag : int {
    tagCode = 5301,
    tagFactorNumerator = 5310,
    tagFactorDenominator = 5311,
    tagType = 5312,
    tagName = 5320,
    tagAbbreviation = 5321,
    tagDescription = 5322,
};

constexpr int MaxFastDecimals = 60;

template <class T>
T ReadKey(TKvXIniReader* reader, char const* key, T const& fallback) {
    return reader->Read<T>(reader->FindF(key, 0), fallback);
}

} // namespace

TShellUnit::TShellUnit(TStringTree* tree) {
    bool const complete = tree && tree->GetInteger(tagCode, 0, &Code) &&
                          tree->GetInteger(tagType, 0, &Type) && tree->GetString(tagName, 0, &Name) &&
                          tree->GetString(tagDescription, 0, &Description) &&
                          tree->GetString(tagAbbreviation, 0, &Abbreviation);
    if (!complete) {
        throw std::runtime_error("TShellUnit::TShellUnit(TStringTree *tree)");
    }
    double numerator = 0.0;
    double denominator = 0.0;
    bool const hasNumerator = tree->GetDouble(tagFactorNumerator, 0, &numerator) && numerator != 0.0;
    bool const hasDenominator = tree->GetDouble(tagFactorDenominator, 0, &denominator) && denominator != 0.0;
    // Kept: a unit without factors is no error; it stands in descriptions that never convert with it.
    if (hasNumerator && hasDenominator) {
        CoefToBase = numerator / denominator;
        CoefFromBase = denominator / numerator;
    }
}

TShellUnit::TShellUnit(TKvXIniReader* xml) {
    if (!TShellUnit::LoadFromXML(xml)) {
        throw std::runtime_error("TShellUnit::TShellUnit(TKvXIniReader *xml)");
    }
}

bool TShellUnit::StringToValue(std::string const& text, double* value) const {
    // Kept: the end of the text before a number counts as a success, and hosts see the old value.
    return ScanText(text.c_str(), "%lg", value) != 0;
}

std::string TShellUnit::ValueToString(double const& value, int precision) const {
    if (precision < 0) {
        return FormatText("%.25lg", value);
    }
    if (precision > MaxFastDecimals) {
        return FormatText("%.*lf", precision, value);
    }
    std::string text;
    AppendFixed(&text, value, precision);
    return text;
}

bool TShellUnit::operator==(TShellUnit const& other) const {
    return Type == other.Type && Code == other.Code && CoefToBase == other.CoefToBase &&
           CoefFromBase == other.CoefFromBase && Name == other.Name && Description == other.Description &&
           Abbreviation == other.Abbreviation && GeoTIFFCode == other.GeoTIFFCode;
}

bool TShellUnit::ExportToWKT(std::string* text) const {
    if (CoefToBase == 0.0) {
        return false;
    }
    *text = UnitDetail::UnitWKT(Name.c_str(), CoefToBase);
    return true;
}

bool TShellUnit::LoadFromXML(TKvXIniReader* reader) {
    if (!reader) {
        return false;
    }
    Code = ReadKey(reader, "UnitCode", 0);
    int const type = ReadKey<int>(reader, "UnitType", utNone);
    bool const knownType = type == utLinear || type == utAngular || type == utScale;
    if (knownType) {
        Type = type;
    }
    CoefToBase = ReadKey(reader, "UnitCoefToBase", 0.0);
    CoefFromBase = ReadKey(reader, "UnitCoefFromBase", 0.0);
    Name = ReadKey(reader, "UnitName", std::string());
    Abbreviation = ReadKey(reader, "UnitAbbreviation", std::string());
    Description = ReadKey(reader, "UnitDescription", std::string());
    GeoTIFFCode = ReadKey(reader, "UnitGeoTIFFCode", 0);
    return CoefToBase != 0.0 && CoefFromBase != 0.0 && knownType;
}

bool TShellUnit::SaveToXML(TKvXIniWriter* writer) const {
    using namespace LumCommonUtils;
    return writer && WriteNonZeroInt(writer, "UnitCode", Code) && writer->WriteS<int>("UnitType", Type) &&
           writer->WriteS<double>("UnitCoefToBase", CoefToBase) &&
           writer->WriteS<double>("UnitCoefFromBase", CoefFromBase) &&
           WriteNotEmptyString(writer, "UnitName", Name) &&
           WriteNotEmptyString(writer, "UnitAbbreviation", Abbreviation) &&
           WriteNotEmptyString(writer, "UnitDescription", Description) &&
           WriteNonZeroInt(writer, "UnitGeoTIFFCode", GeoTIFFCode);
}

double TShellUnit::StringToValue(std::string const& text) const {
    double value = 0.0;
    if (!StringToValue(text, &value)) {
        throw std::runtime_error("bool TShellUnit::StringToValue(const string& str, double *value) const");
    }
    return value;
}

double TShellUnit::StringToValue(std::string const& text, double const& fallback) const {
    double value = fallback;
    return StringToValue(text, &value) ? value : fallback;
}

void TShellUnit::Convert(TShellUnit const& target, double* value) const {
    if (!KvRefSystem::Convert(*this, *value, target, value)) {
        throw std::runtime_error("void TShellUnit::Convert(const TShellUnit& dst_unit, double *value) const");
    }
}

bool TShellUnit::ExportToGeoTIFF(std::map<int, std::string>* keys, int code_key, int value_key) const {
    if (GeoTIFFCode != 0) {
        keys->emplace(code_key, FormatText("%d", GeoTIFFCode));
        return true;
    }
    keys->emplace(code_key, UserDefinedGeoKey);
    if (value_key >= 1) {
        keys->emplace(value_key, FormatText("%lg", CoefToBase));
    }
    return true;
}

bool Convert(TShellUnit const& source, double const& value, TShellUnit const& target, double* result) {
    if (source.Type != target.Type) {
        return false;
    }
    *result = (source.CoefToBase * value) * target.CoefFromBase;
    return true;
}

bool Convert(TShellUnit const& source, std::string const& text, TShellUnit const& target,
             std::string* result) {
    if (source.Type != target.Type) {
        return false;
    }
    double value = source.StringToValue(text);
    Convert(source, value, target, &value);
    *result = target.ValueToString(value, -1);
    return true;
}

std::string CreateWKTDegreeString() {
    return UnitDetail::UnitWKT("degree", UnitDetail::RadiansOfDegree);
}

std::string CreateWKTMeterString() {
    return "UNIT[\"metre\",1]";
}

} // namespace KvRefSystem
