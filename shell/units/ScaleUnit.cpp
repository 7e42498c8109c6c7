#include "shell/units/ScaleUnit.h"

#include <stdexcept>

namespace KvRefSystem {

TShellScaleUnit::TShellScaleUnit(TStringTree* tree) : TShellUnit(tree) {}

TShellScaleUnit::TShellScaleUnit(TKvXIniReader* xml) {
    if (!TShellScaleUnit::LoadFromXML(xml)) {
        throw std::runtime_error("TShellScaleUnit::TShellScaleUnit(TKvXIniReader *xml)");
    }
}

TShellScaleUnit::~TShellScaleUnit() = default;

std::string TShellScaleUnit::ValueToString(double const& value, int) const {
    return TShellUnit::ValueToString(value, -1);
}

bool TShellScaleUnit::LoadFromXML(TKvXIniReader* reader) {
    return TShellUnit::LoadFromXML(reader) && Type == utScale;
}

} // namespace KvRefSystem
