#include "shell/refsystems/Exports.h"

#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/ReferenceSystem.h"
#include "shell/units/LinearUnit.h"

namespace KvRefSystem {

bool ReadMifSettings(TStringTree const* saved, std::string* projection, std::string* unit) {
    TStringTree const* const settings = saved ? saved->FindSubtree(DescriptionTag::MifSettings, 0) : nullptr;
    return settings && settings->GetString(DescriptionTag::MifProjection, 0, projection) &&
           settings->GetString(DescriptionTag::MifUnit, 0, unit);
}

bool ExportLocalToWKT(TShellReferenceSystem const& system, TShellLinearUnit const* unit, std::string* text) {
    return ReportFailure([&] {
        std::string unitText;
        std::string axes;
        if (!unit || !unit->ExportToWKT(&unitText) || !system.ExportAxesToWKT(&axes)) {
            return false;
        }
        *text =
            "LOCAL_CS[\"" + system.Name + "\",LOCAL_DATUM[\"Local Datum\",0]," + unitText + "," + axes + "]";
        return true;
    });
}

bool TShellReferenceSystem::ExportToMIFMID(std::string* text, bool) const {
    TStringTree const* const settings =
        SavedTree ? SavedTree->FindSubtree(DescriptionTag::MifSettings, 0) : nullptr;
    std::string unit;
    if (!settings || !settings->GetString(DescriptionTag::MifUnit, 0, &unit)) {
        return false;
    }
    *text = NonearthClause(unit);
    return true;
}

bool TShellReferenceSystem::ExportDatumToMIFMID(std::string* text, bool CustomDatum) const {
    return ReportFailure([&] {
        std::string ready;
        if (!CustomDatum && SavedTree && SavedTree->GetString(DescriptionTag::MifDatum, 0, &ready) &&
            PrimeMeridian && PrimeMeridian->IsZero) {
            *text = ready;
            return true;
        }
        TStringTree const* const datum =
            SavedTree ? SavedTree->FindSubtree(DescriptionTag::Datum, 0) : nullptr;
        TStringTree const* const ellipsoid =
            datum ? datum->FindSubtree(DescriptionTag::DatumEllipsoid, 0) : nullptr;
        std::string code;
        if (!ellipsoid || !ellipsoid->GetString(DescriptionTag::MifEllipsoid, 0, &code) || code.empty()) {
            return false;
        }
        std::string shift;
        std::string meridian;
        if (!DatumShift || !DatumShift->ExportToMIFMID(&shift) || !PrimeMeridian ||
            !PrimeMeridian->ExportToMIFMID(&meridian)) {
            return false;
        }
        *text = "9999, " + code + ", " + shift + ", " + meridian;
        return true;
    });
}

bool TShellReferenceSystem::ExportDatumToWKT(std::string* text) const {
    return ReportFailure([&] {
        std::string ellipsoid;
        if (Ellipsoid) {
            Ellipsoid->ExportToWKT(&ellipsoid);
        }
        std::string shift;
        bool const shifted = DatumShift && DatumShift->ExportToWKT(&shift);
        std::string datum =
            "DATUM[\"" + (shifted ? DatumName : std::string("Unspecified")) + "\"," + ellipsoid;
        if (shifted) {
            datum += "," + shift;
        }
        *text = datum + WktAuthority(DatumGeoTIFFCode) + "]";
        return true;
    });
}

bool TShellReferenceSystem::ExportToGeoTIFF(std::map<int, std::string>* keys, bool WithGeoid) const {
    return ReportKeysFailure(keys, [&] {
        if (GeoTIFFType.empty()) {
            (*keys)[GeoKey::ModelType] = "0";
            return false;
        }
        (*keys)[GeoKey::ModelType] = GeoTIFFType;
        (*keys)[GeoKey::Citation] = "ORVANE GeoReference";
        return !WithGeoid || !Geoid || Geoid->ExportToGeoTIFF(keys);
    });
}

bool TShellReferenceSystem::ExportToGeoTIFFClassified(std::map<int, std::string>* keys) const {
    return TShellReferenceSystem::ExportToGeoTIFF(keys, false);
}

bool TShellReferenceSystem::ExportToPanorama(std::map<int, std::string>* keys, bool WithGeoid) const {
    return ExportToGeoTIFF(keys, WithGeoid);
}

} // namespace KvRefSystem
