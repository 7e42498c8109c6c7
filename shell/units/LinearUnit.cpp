#include "shell/units/LinearUnit.h"

#include "frame/imported/XIni.h"
#include "shell/units/UnitDetail.h"

#include <stdexcept>

namespace KvRefSystem {

namespace {

constexpr int TagGeoTIFFCode = 102002;
constexpr int NoMIFMIDCode = -1;
constexpr double MetreDecimals = 3.0;

} // namespace

TShellLinearUnit::TShellLinearUnit(TStringTree* tree) : TShellUnit(tree) {
    tree->GetInteger(TagGeoTIFFCode, 0, &GeoTIFFCode);
    Precision = UnitDetail::DefaultPrecision(CoefToBase, MetreDecimals);
}

TShellLinearUnit::TShellLinearUnit(TKvXIniReader* xml) {
    if (!TShellLinearUnit::LoadFromXML(xml)) {
        throw std::runtime_error("TShellLinearUnit::TShellLinearUnit(TKvXIniReader *xml)");
    }
    Precision = UnitDetail::DefaultPrecision(CoefToBase, MetreDecimals);
}

TShellLinearUnit::~TShellLinearUnit() = default;

bool TShellLinearUnit::operator==(TShellUnit const& other) const {
    return TShellUnit::operator==(other) &&
           MIFMIDCode == dynamic_cast<TShellLinearUnit const&>(other).MIFMIDCode;
}

bool TShellLinearUnit::LoadFromXML(TKvXIniReader* reader) {
    bool const loaded = TShellUnit::LoadFromXML(reader) && Type == utLinear;
    if (reader) {
        MIFMIDCode = reader->Read<int>(reader->FindF("UnitMIFMIDCode", 0), NoMIFMIDCode);
    }
    return loaded;
}

bool TShellLinearUnit::SaveToXML(TKvXIniWriter* writer) const {
    return TShellUnit::SaveToXML(writer) &&
           LumCommonUtils::WriteNonNegativeInt(writer, "UnitMIFMIDCode", MIFMIDCode);
}

} // namespace KvRefSystem
