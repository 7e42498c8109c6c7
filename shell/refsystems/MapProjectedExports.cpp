#include "shell/projections/ProjectionTagsDetail.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/Exports.h"
#include "shell/refsystems/MapProjectedReferenceSystem.h"
#include "shell/units/BuiltInUnits.h"

#include <memory>

namespace KvRefSystem {

namespace {

/** @return degrees: the geographic part of the geokeys is always in them. */
std::unique_ptr<TShellAngularUnit> CreateDegree() {
    TStringTree tree;
    FillDegreeTree(&tree);
    return std::unique_ptr<TShellAngularUnit>(CreateShellAngularUnit(&tree));
}

std::string CitationOf(TShellReferenceSystem const& system) {
    return system.Name + " " + system.Description;
}

/** Writes the keys of a registered system: they replace all that its base system has said but the shift. */
void WriteRegistered(TShellMapProjectedReferenceSystem const& system, std::map<int, std::string>* keys) {
    std::string const shift = keys->count(GeoKey::ToWgs84) != 0 ? (*keys)[GeoKey::ToWgs84] : std::string();
    keys->clear();
    (*keys)[GeoKey::ProjectedType] = system.GeoTIFFCode;
    (*keys)[GeoKey::ModelType] = system.GeoTIFFType;
    (*keys)[GeoKey::Citation] = "ORVANE GeoReference";
    if (!shift.empty()) {
        (*keys)[GeoKey::ToWgs84] = shift;
    }
}

void WriteUserDefined(TShellMapProjectedReferenceSystem const& system, std::map<int, std::string>* keys) {
    (*keys)[GeoKey::ProjectedType] = UserDefinedGeoKey;
    (*keys)[GeoKey::ProjectedCitation] = CitationOf(system);
    system.LinearUnit->ExportToGeoTIFF(keys, ProjectionGeoKey::LinearUnits, ProjectionGeoKey::LinearUnitSize);
}

} // namespace

bool TShellMapProjectedReferenceSystem::ExportAxesToWKT(std::string* text) const {
    TCardinalDirection directions[2] = {cdNone, cdNone};
    GetAxesDirections(&directions[0], &directions[1]);
    char const* const names[] = {"", "NORTH", "EAST", "SOUTH", "WEST"};
    *text = "AXIS[\"" + AxisName[0] + "\"," + names[directions[0]] + "],AXIS[\"" + AxisName[1] + "\"," +
            names[directions[1]] + "]";
    return true;
}

bool TShellMapProjectedReferenceSystem::Export2DToWKT(std::string* text, bool PanoramaName) const {
    return ReportFailure([&] {
        std::string const zone = PanoramaName ? GetPanoramaName() : std::string();
        std::string geodetic;
        std::string method;
        std::string parameters;
        std::string unit;
        std::string axes;
        if (!BaseGeodetic || !BaseGeodetic->Export2DToWKT(&geodetic, true, zone.empty() ? DatumName : zone) ||
            !MapProjection || !MapProjection->GetProjectionTypeWKT(&method) ||
            !MapProjection->GetProjectionParamsWKT(&parameters) || !LinearUnit ||
            !LinearUnit->ExportToWKT(&unit) || !ExportAxesToWKT(&axes)) {
            return false;
        }
        *text = "PROJCS[\"" + Name + "\"," + geodetic + ",PROJECTION[\"" + method + "\"]," + parameters +
                "," + unit + "," + axes + WktAuthority(GeoTIFFCode) + "]";
        return true;
    });
}

bool TShellMapProjectedReferenceSystem::ExportToWKT(std::string* text, bool Compound,
                                                    bool PanoramaName) const {
    return ReportFailure([&] {
        std::string const geoidId = GetGeoidID();
        if (!Compound && geoidId.empty()) {
            return Export2DToWKT(text, PanoramaName);
        }
        std::string plane;
        std::string vertical;
        if (!Export2DToWKT(&plane, PanoramaName) || !BaseGeodetic->ExportVertRefToWKT(geoidId, &vertical)) {
            return false;
        }
        *text = "COMPD_CS[\"" + Name + "\"," + plane + "," + vertical + "]";
        return true;
    });
}

bool TShellMapProjectedReferenceSystem::ExportToMIFMID(std::string* text, bool CustomDatum) const {
    return ReportFailure([&] {
        std::string projection;
        std::string unit;
        std::string datum;
        std::string parameters;
        if (ReadMifSettings(SavedTree, &projection, &unit) && ExportDatumToMIFMID(&datum, CustomDatum) &&
            MapProjection && MapProjection->ExportToMIFMID(LinearUnit, &parameters)) {
            *text =
                "CoordSys Earth Projection " + projection + ", " + datum + ", \"" + unit + "\"" + parameters;
            return true;
        }
        if (TShellReferenceSystem::ExportToMIFMID(text, CustomDatum)) {
            return true;
        }
        if (!LinearUnit) {
            return false;
        }
        *text = NonearthClause(LinearUnit->Abbreviation);
        return true;
    });
}

bool TShellMapProjectedReferenceSystem::ExportToGeoTIFF(std::map<int, std::string>* keys,
                                                        bool WithGeoid) const {
    return ReportKeysFailure(keys, [&] {
        std::unique_ptr<TShellAngularUnit> const degree = CreateDegree();
        TShellLinearUnit const* const heightUnit = FindHeightUnit();
        if (!BaseGeodetic || !BaseGeodetic->ExportToGeoTIFF(keys, WithGeoid, degree.get()) ||
            !TShellReferenceSystem::ExportToGeoTIFF(keys, WithGeoid) || !heightUnit || !LinearUnit ||
            !MapProjection) {
            return false;
        }
        if (!GeoTIFFCode.empty()) {
            WriteRegistered(*this, keys);
            if (Geoid && !Geoid->ExportToGeoTIFF(keys)) {
                return false;
            }
        } else {
            WriteUserDefined(*this, keys);
            if (!MapProjection->ExportToGeoTIFF(keys, degree.get(), LinearUnit)) {
                return false;
            }
        }
        return heightUnit->ExportToGeoTIFF(keys, GeoKey::VerticalUnits, 0);
    });
}

bool TShellMapProjectedReferenceSystem::ExportToGeoTIFFClassified(std::map<int, std::string>* keys) const {
    return ReportKeysFailure(keys, [&] {
        TShellLinearUnit const* const heightUnit = FindHeightUnit();
        if (!TShellReferenceSystem::ExportToGeoTIFFClassified(keys) || !LinearUnit || !heightUnit) {
            return false;
        }
        WriteUserDefined(*this, keys);
        return heightUnit->ExportToGeoTIFF(keys, GeoKey::VerticalUnits, 0);
    });
}

bool TShellMapProjectedReferenceSystem::ExportToPanorama(std::map<int, std::string>* keys,
                                                         bool WithGeoid) const {
    return ReportKeysFailure(keys, [&] {
        if (!TShellReferenceSystem::ExportToPanorama(keys, WithGeoid)) {
            return false;
        }
        std::string const zone = GetPanoramaName();
        if (!zone.empty()) {
            (*keys)[GeoKey::GeographicCitation] = zone;
        }
        return true;
    });
}

} // namespace KvRefSystem
