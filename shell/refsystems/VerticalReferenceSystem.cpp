#include "shell/refsystems/VerticalReferenceSystem.h"

#include "frame/XmlSectionsDetail.h"
#include "shell/refsystems/DescriptionTags.h"

#include <memory>
#include <stdexcept>

namespace KvRefSystem {

TShellVerticalReferenceSystem::TShellVerticalReferenceSystem(TStringTree* tree) {
    TStringTree* const unit = tree ? tree->FindSubtree(DescriptionTag::LinearUnit, 0) : nullptr;
    if (unit) {
        HeightUnit = new TShellLinearUnit(unit);
    }
}

TShellVerticalReferenceSystem::TShellVerticalReferenceSystem(TKvXIniReader* xml) {
    if (!TShellVerticalReferenceSystem::LoadFromXML(xml)) {
        throw std::runtime_error(
            "TShellVerticalReferenceSystem::TShellVerticalReferenceSystem(TKvXIniReader *xml)");
    }
}

TShellVerticalReferenceSystem::~TShellVerticalReferenceSystem() {
    delete HeightUnit;
}

bool TShellVerticalReferenceSystem::operator==(TShellVerticalReferenceSystem const& other) const {
    if (!HeightUnit || !other.HeightUnit) {
        return HeightUnit == other.HeightUnit;
    }
    return HeightUnit->operator==(*other.HeightUnit);
}

bool TShellVerticalReferenceSystem::ExportToWKT(std::string* text) const {
    std::string unit;
    if (!HeightUnit || !HeightUnit->ExportToWKT(&unit)) {
        return false;
    }
    *text =
        R"(VERT_CS["height above ellipsoid",VERT_DATUM["ellipsoidal",2002],)" + unit + R"(,AXIS["Up",UP]])";
    return true;
}

bool TShellVerticalReferenceSystem::LoadFromXML(TKvXIniReader* reader) {
    TShellVerticalReferenceSystem::Reset();
    if (!reader) {
        return false;
    }
    try {
        TXmlReadSection section(reader, "VerticalLinearUnit");
        if (!section) {
            return false;
        }
        auto unit = std::make_unique<TShellLinearUnit>(reader);
        if (!section.Leave()) {
            return false;
        }
        HeightUnit = unit.release();
        return true;
    } catch (...) {
        return false;
    }
}

bool TShellVerticalReferenceSystem::SaveToXML(TKvXIniWriter* writer) const {
    if (!HeightUnit || !writer) {
        return false;
    }
    return WriteXmlSection(writer, "VerticalLinearUnit", [&] { return HeightUnit->SaveToXML(writer); });
}

void TShellVerticalReferenceSystem::Reset() {
    delete HeightUnit;
    HeightUnit = nullptr;
}

} // namespace KvRefSystem
