#include "frame/imported/Strings.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/Exports.h"
#include "shell/refsystems/GeodeticReferenceSystem.h"

namespace KvRefSystem {

namespace {

/** EPSG codes of a geoid's vertical datum and vertical system, by the spellings of its name. */
struct TKnownGeoid {
    char const* spellings[4];
    char const* datumCode;
    char const* systemCode;
};

constexpr TKnownGeoid KnownGeoids[] = {
    {{"EGM96", "EGM-96", "EGM 96", "EARTH GRAVITATIONAL MODEL 1996"}, "5171", "5773"},
    {{"EGM2008", "EGM-2008", "EGM 2008", "EARTH GRAVITATIONAL MODEL 2008"}, "1027", "3855"},
};

TKnownGeoid const* FindKnownGeoid(std::string const& id) {
    std::string const name = LumCommonUtils::toupper(LumCommonUtils::trim(id));
    for (TKnownGeoid const& geoid : KnownGeoids) {
        for (char const* const spelling : geoid.spellings) {
            if (LumCommonUtils::StringContains(name, spelling, false)) {
                return &geoid;
            }
        }
    }
    return nullptr;
}

TShellLinearUnit const* HeightUnitOf(TShellGeodeticReferenceSystem const& system) {
    return system.Vertical ? system.Vertical->HeightUnit : nullptr;
}

} // namespace

bool TShellGeodeticReferenceSystem::ExportAxesToWKT(std::string* text) const {
    *text = "AXIS[\"" + AxisName[0] + "\",NORTH],AXIS[\"" + AxisName[1] + "\",EAST]";
    return true;
}

bool TShellGeodeticReferenceSystem::Export2DToWKT(std::string* text, bool UseDegrees,
                                                  std::string const& name) const {
    return ReportFailure([&] {
        std::string datum;
        std::string meridian;
        std::string axes;
        if (!ExportDatumToWKT(&datum) || !PrimeMeridian ||
            !PrimeMeridian->ExportToWKT(&meridian, AngularUnit) || !ExportAxesToWKT(&axes)) {
            return false;
        }
        std::string unit;
        if (UseDegrees) {
            unit = CreateWKTDegreeString();
        } else if (!AngularUnit || !AngularUnit->ExportToWKT(&unit)) {
            return false;
        }
        std::string title = name.empty() ? Name : name;
        if (title == "Primary ref. system") {
            title = DatumName.empty() ? "Geodetic reference system" : DatumName;
        }
        *text = "GEOGCS[\"" + title + "\"," + datum + "," + meridian + "," + unit + "," + axes +
                WktAuthority(GeoTIFFCode) + "]";
        return true;
    });
}

bool TShellGeodeticReferenceSystem::ExportVertRefToWKT(std::string const& geoidId, std::string* text) const {
    return ReportFailure([&] {
        if (geoidId.empty()) {
            return Vertical && Vertical->ExportToWKT(text);
        }
        TShellLinearUnit const* const heightUnit = HeightUnitOf(*this);
        std::string unit;
        if (!heightUnit || !heightUnit->ExportToWKT(&unit)) {
            return false;
        }
        TKnownGeoid const* const known = FindKnownGeoid(geoidId);
        std::string const datum =
            "VERT_DATUM[\"" + geoidId + "\",2005" + WktAuthority(known ? known->datumCode : "") + "]";
        *text = "VERT_CS[\"" + geoidId + "\"," + datum + "," + unit + ",AXIS[\"Up\",UP]" +
                WktAuthority(known ? known->systemCode : "") + "]";
        return true;
    });
}

bool TShellGeodeticReferenceSystem::ExportToWKT(std::string* text, bool Compound, bool) const {
    return ReportFailure([&] {
        std::string const geoidId = GetGeoidID();
        if (!Compound && geoidId.empty()) {
            return Export2DToWKT(text, false, std::string());
        }
        std::string horizontal;
        std::string vertical;
        if (!Export2DToWKT(&horizontal, false, std::string()) || !ExportVertRefToWKT(geoidId, &vertical)) {
            return false;
        }
        *text = "COMPD_CS[\"" + Name + "\"," + horizontal + "," + vertical + "]";
        return true;
    });
}

bool TShellGeodeticReferenceSystem::ExportToMIFMID(std::string* text, bool CustomDatum) const {
    return ReportFailure([&] {
        std::string projection;
        std::string unit;
        std::string datum;
        if (ReadMifSettings(SavedTree, &projection, &unit) && ExportDatumToMIFMID(&datum, CustomDatum)) {
            *text = "CoordSys Earth Projection " + projection + ", " + datum;
            return true;
        }
        if (TShellReferenceSystem::ExportToMIFMID(text, CustomDatum)) {
            return true;
        }
        if (!AngularUnit) {
            return false;
        }
        *text = NonearthClause(AngularUnit->Abbreviation);
        return true;
    });
}

bool TShellGeodeticReferenceSystem::ExportToGeoTIFF(std::map<int, std::string>* keys, bool WithGeoid) const {
    return ExportToGeoTIFF(keys, WithGeoid, AngularUnit);
}

bool TShellGeodeticReferenceSystem::ExportToGeoTIFF(std::map<int, std::string>* keys, bool WithGeoid,
                                                    TShellAngularUnit const* unit) const {
    return ReportKeysFailure(keys, [&] {
        TShellLinearUnit const* const heightUnit = HeightUnitOf(*this);
        if (!TShellReferenceSystem::ExportToGeoTIFF(keys, WithGeoid) || !unit || !heightUnit) {
            return false;
        }
        if (!GeoTIFFCode.empty()) {
            (*keys)[GeoKey::GeographicType] = GeoTIFFCode;
        } else {
            (*keys)[GeoKey::GeographicType] = UserDefinedGeoKey;
            (*keys)[GeoKey::GeographicCitation] = Name + " " + Description;
            (*keys)[GeoKey::GeodeticDatum] = DatumGeoTIFFCode.empty() ? UserDefinedGeoKey : DatumGeoTIFFCode;
            if (!Ellipsoid) {
                return false;
            }
            Ellipsoid->ExportToGeoTIFF(keys, nullptr);
            if (DatumShift) {
                DatumShift->ExportToGeoTIFF(keys);
            }
            unit->ExportToGeoTIFF(keys, GeoKey::AngularUnits, GeoKey::AngularUnitSize);
            if (!PrimeMeridian || !PrimeMeridian->ExportToGeoTIFF(keys, unit)) {
                return false;
            }
        }
        // Kept: the vertical unit's size stands under the key of the linear unit's.
        return heightUnit->ExportToGeoTIFF(keys, GeoKey::VerticalUnits, GeoKey::LinearUnitSize);
    });
}

bool TShellGeodeticReferenceSystem::ExportToGeoTIFFClassified(std::map<int, std::string>* keys) const {
    return ReportKeysFailure(keys, [&] {
        TShellLinearUnit const* const heightUnit = HeightUnitOf(*this);
        if (!TShellReferenceSystem::ExportToGeoTIFFClassified(keys) || !AngularUnit || !heightUnit) {
            return false;
        }
        (*keys)[GeoKey::GeographicType] = UserDefinedGeoKey;
        (*keys)[GeoKey::GeographicCitation] = Name + " " + Description;
        AngularUnit->ExportToGeoTIFF(keys, GeoKey::AngularUnits, GeoKey::AngularUnitSize);
        return heightUnit->ExportToGeoTIFF(keys, GeoKey::VerticalUnits, GeoKey::LinearUnitSize);
    });
}

} // namespace KvRefSystem
