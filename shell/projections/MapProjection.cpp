#include "shell/projections/MapProjection.h"

#include "frame/XmlSectionsDetail.h"
#include "shell/projections/ParameterisedProjections.h"
#include "shell/projections/ProjectionTagsDetail.h"
#include "shell/projections/ReportFailureDetail.h"

#include <memory>
#include <stdexcept>

namespace KvRefSystem {

namespace {

/** @return the unit of an optional section, or null without the section. @throws as the unit. */
template <class Unit>
std::unique_ptr<Unit> ReadUnit(TKvXIniReader* reader, char const* key) {
    TXmlReadSection section(reader, key);
    if (!section) {
        return nullptr;
    }
    auto unit = std::make_unique<Unit>(reader);
    if (!section.Leave()) {
        throw TUnusableProjection();
    }
    return unit;
}

template <class Unit>
bool WriteUnit(TKvXIniWriter* writer, char const* key, Unit const* unit) {
    return !unit || WriteXmlSection(writer, key, [&] { return unit->SaveToXML(writer); });
}

/** Two units, either of which may be missing. */
bool SameUnit(TShellUnit const* one, TShellUnit const* other) {
    return one && other ? one->operator==(*other) : one == other;
}

} // namespace

TShellMapProjection::TShellMapProjection(TStringTree* tree) {
    try {
        ReadTree(tree);
    } catch (std::bad_alloc const&) {
        FreeUnits();
        throw;
    } catch (...) {
        FreeUnits();
        throw std::runtime_error(
            "TShellMapProjection::TShellMapProjection(LumCommonUtils::TStringTree *tree)");
    }
}

void TShellMapProjection::ReadTree(TStringTree* tree) {
    if (!tree) {
        throw TUnusableProjection();
    }
    tree->GetString(ProjectionTag::Name, 0, &Name);
    int type = 0;
    tree->GetInteger(ProjectionTag::Type, 0, &type);
    Type = TMapProjection::IntToType(type);
    if (Type == 0) {
        throw TUnusableProjection();
    }
    if (TStringTree* const unit = tree->FindSubtree(ProjectionTag::LinearUnit, 0)) {
        LinearUnit = new TShellLinearUnit(unit);
    }
    if (TStringTree* const unit = tree->FindSubtree(ProjectionTag::AngularUnit, 0)) {
        AngularUnit = CreateShellAngularUnit(unit);
        if (!AngularUnit) {
            throw TUnusableProjection();
        }
    }
    if (TStringTree* const unit = tree->FindSubtree(ProjectionTag::ScaleUnit, 0)) {
        ScaleUnit = new TShellScaleUnit(unit);
    }
    tree->GetString(ProjectionTag::GeoTIFFCode, 0, &GeoTIFFCode);
    tree->GetString(ProjectionTag::GeoTIFFType, 0, &GeoTIFFType);
}

TShellMapProjection::TShellMapProjection(TKvXIniReader* xml) {
    if (!TShellMapProjection::LoadFromXML(xml)) {
        TShellMapProjection::Reset();
        throw std::runtime_error("TShellMapProjection::TShellMapProjection(TKvXIniReader *xml)");
    }
}

TShellMapProjection::~TShellMapProjection() {
    FreeUnits();
}

void TShellMapProjection::FreeUnits() {
    delete LinearUnit;
    LinearUnit = nullptr;
    delete AngularUnit;
    AngularUnit = nullptr;
    delete ScaleUnit;
    ScaleUnit = nullptr;
}

bool TShellMapProjection::EqualsInBase(TShellMapProjection const& other) const {
    return Type == other.Type && GeoTIFFCode == other.GeoTIFFCode && GeoTIFFType == other.GeoTIFFType &&
           SameUnit(LinearUnit, other.LinearUnit) && SameUnit(AngularUnit, other.AngularUnit) &&
           SameUnit(ScaleUnit, other.ScaleUnit);
}

bool TShellMapProjection::GetProjectionTypeWKT(std::string*) const {
    return false;
}

bool TShellMapProjection::GetProjectionParamsWKT(std::string*) const {
    return false;
}

bool TShellMapProjection::ExportToMIFMID(TShellLinearUnit*, std::string*) const {
    return false;
}

bool TShellMapProjection::LoadFromXML(TKvXIniReader* reader) {
    Reset();
    if (!reader) {
        return false;
    }
    try {
        Type = TMapProjection::IntToType(ReadXmlInt(reader, "MapProjType", 0));
        if (Type == 0) {
            return false;
        }
        LinearUnit = ReadUnit<TShellLinearUnit>(reader, "MapProjParamLinearUnit").release();
        // Kept: the angles are read as plain numbers, also where they were written in a sexagesimal notation.
        AngularUnit = ReadUnit<TShellAngularUnit>(reader, "MapProjParamAngularUnit").release();
        ScaleUnit = ReadUnit<TShellScaleUnit>(reader, "MapProjParamScaleUnit").release();
        GeoTIFFCode = ReadXmlText(reader, "MapProjGeoTIFFCode");
        GeoTIFFType = ReadXmlText(reader, "MapProjGeoTIFFType");
        return true;
    } catch (...) {
        return false;
    }
}

bool TShellMapProjection::SaveToXML(TKvXIniWriter* writer) const {
    return writer && writer->WriteS<int>("MapProjType", Type) &&
           WriteUnit(writer, "MapProjParamLinearUnit", LinearUnit) &&
           WriteUnit(writer, "MapProjParamAngularUnit", AngularUnit) &&
           WriteUnit(writer, "MapProjParamScaleUnit", ScaleUnit) &&
           LumCommonUtils::WriteNotEmptyString(writer, "MapProjGeoTIFFCode", GeoTIFFCode) &&
           LumCommonUtils::WriteNotEmptyString(writer, "MapProjGeoTIFFType", GeoTIFFType);
}

void TShellMapProjection::Reset() {
    FreeUnits();
}

bool TShellMapProjection::ExportToGeoTIFF(std::map<int, std::string>* keys,
                                          TShellAngularUnit const* angularUnit,
                                          TShellLinearUnit const* linearUnit) const {
    if (!GeoTIFFCode.empty()) {
        (*keys)[ProjectionGeoKey::Projection] = GeoTIFFCode;
        return true;
    }
    (*keys)[ProjectionGeoKey::Projection] = UserDefinedGeoKey;
    bool done = false;
    if (!GeoTIFFType.empty()) {
        (*keys)[ProjectionGeoKey::CoordinateTransformation] = GeoTIFFType;
        done = ExportMapProjParamsToGeoTIFF(keys, angularUnit, linearUnit);
    }
    if (!linearUnit) {
        return false;
    }
    linearUnit->ExportToGeoTIFF(keys, ProjectionGeoKey::LinearUnits, ProjectionGeoKey::LinearUnitSize);
    return done;
}

TShellMapProjection* CreateShellMapProjection(TKvXIniReader* reader) {
    try {
        if (!reader || ReadXmlInt(reader, "MapProjType", 0) != mptTransverseMercator) {
            return nullptr;
        }
        return new TShellTransverseMercatorMapProjection(reader);
    } catch (...) {
        return nullptr;
    }
}

} // namespace KvRefSystem
