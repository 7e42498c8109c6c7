#include "shell/refsystems/GeocentricReferenceSystem.h"

#include "core/refsystems/GeocentricReferenceSystem.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/Exports.h"
#include "shell/refsystems/KindsDetail.h"

#include <memory>
#include <stdexcept>

namespace KvRefSystem {

namespace {

constexpr char const* ModelType = "3"; ///< geocentric, of geokey 1024

char const* const ConstructorText =
    "TShellGeocentricReferenceSystem(TStringTree *tree,TKvProgressHandler *prh)";
char const* const XmlText =
    "TShellGeocentricReferenceSystem::TShellGeocentricReferenceSystem(TKvXIniReader *xml)";
char const* const XmlCoreText = "TShellGeocentricReferenceSystem(TKvXIniReader *xml,TKvProgressHandler *prh)";

/** @throws std::runtime_error with `failure` for whatever goes wrong. */
std::unique_ptr<TReferenceSystem> CreateCore(TShellGeocentricReferenceSystem const& system,
                                             char const* failure) {
    try {
        std::unique_ptr<TPrimeMeridian> const meridian(system.PrimeMeridian ? system.PrimeMeridian->Create()
                                                                            : nullptr);
        std::unique_ptr<TDatumShift> const shift(system.DatumShift ? system.DatumShift->Create() : nullptr);
        std::unique_ptr<TRefSystemTransformsSet> const chain(
            system.Transform->CreateCoreTransform(false, 1, 1));
        std::map<std::string, TRefSystemTransformsSet> pairwise;
        if (chain && system.InitializeCorePairwiseTransforms(&pairwise)) {
            return std::make_unique<TGeocentricReferenceSystem>(shift.get(), meridian.get(), *chain,
                                                                pairwise);
        }
    } catch (...) {
        // Kept: one text for every failure; hosts know the kind by it.
    }
    throw std::runtime_error(failure);
}

} // namespace

TShellGeocentricReferenceSystem::TShellGeocentricReferenceSystem(TStringTree* tree, TKvProgressHandler*)
    : TCartesianReferenceSystem(tree) {
    GeoTIFFType = ModelType;
    TStringTree* const unit = tree->FindSubtree(DescriptionTag::LinearUnit, 0);
    if (!unit) {
        throw std::runtime_error(ConstructorText);
    }
    auto linearUnit = std::make_unique<TShellLinearUnit>(unit);
    CoreRefSystem = CreateCore(*this, ConstructorText).release();
    LinearUnit = linearUnit.release();
}

TShellGeocentricReferenceSystem::TShellGeocentricReferenceSystem(TKvXIniReader* xml, TKvProgressHandler*) {
    GeoTIFFType = ModelType;
    try {
        if (!LoadFromXML(xml)) {
            throw std::runtime_error(XmlText);
        }
        // The XML form holds no chains: the system begins with empty ones.
        Transform = new TShellRefSystemTransform;
        CoreRefSystem = CreateCore(*this, XmlCoreText).release();
    } catch (...) {
        delete LinearUnit;
        throw;
    }
}

TShellGeocentricReferenceSystem::~TShellGeocentricReferenceSystem() {
    delete LinearUnit;
}

bool TShellGeocentricReferenceSystem::IsLeft() const {
    return false;
}

bool TShellGeocentricReferenceSystem::GetAxesDirections(TCardinalDirection* first,
                                                        TCardinalDirection* second) const {
    return Kinds::NoAxesDirections(first, second);
}

bool TShellGeocentricReferenceSystem::operator==(TShellReferenceSystem const& other) const {
    auto const* const geocentric = dynamic_cast<TShellGeocentricReferenceSystem const*>(&other);
    return geocentric && Type == geocentric->Type && Kinds::SameCore(*this, *geocentric) &&
           Kinds::SameUnit(LinearUnit, geocentric->LinearUnit);
}

bool TShellGeocentricReferenceSystem::LoadFromXML(TKvXIniReader* reader) {
    Reset();
    bool const loaded = TShellReferenceSystem::LoadFromXML(reader) && Type == rstGeocentric &&
                        Kinds::ReadUnit(reader, "RefSystemLinearUnit", &LinearUnit);
    if (!loaded) {
        Reset();
    }
    return loaded;
}

bool TShellGeocentricReferenceSystem::SaveToXML(TKvXIniWriter* writer) const {
    return writer && TShellReferenceSystem::SaveToXML(writer) &&
           Kinds::WriteUnit(writer, "RefSystemLinearUnit", LinearUnit);
}

void TShellGeocentricReferenceSystem::Reset() {
    TShellReferenceSystem::Reset();
    delete LinearUnit;
    LinearUnit = nullptr;
}

bool TShellGeocentricReferenceSystem::ExportAxesToWKT(std::string* text) const {
    *text = "AXIS[\"" + AxisName[0] + "\",OTHER],AXIS[\"" + AxisName[1] + "\",EAST],AXIS[\"" + AxisName[2] +
            "\",NORTH]";
    return true;
}

bool TShellGeocentricReferenceSystem::ExportToWKT(std::string* text, bool, bool) const {
    return ReportFailure([&] {
        std::string datum;
        std::string meridian;
        std::string unit;
        std::string axes;
        if (!ExportDatumToWKT(&datum) || !PrimeMeridian || !PrimeMeridian->ExportToWKT(&meridian, nullptr) ||
            !LinearUnit || !LinearUnit->ExportToWKT(&unit) || !ExportAxesToWKT(&axes)) {
            return false;
        }
        *text = "GEOCCS[\"" + Name + "\"," + datum + "," + meridian + "," + unit + "," + axes + "]";
        return true;
    });
}

bool TShellGeocentricReferenceSystem::ExportToGeoTIFF(std::map<int, std::string>* keys,
                                                      bool WithGeoid) const {
    return ReportKeysFailure(keys, [&] {
        if (!TShellReferenceSystem::ExportToGeoTIFF(keys, WithGeoid)) {
            return false;
        }
        if (!GeoTIFFCode.empty()) {
            (*keys)[GeoKey::GeographicType] = GeoTIFFCode;
            return true;
        }
        (*keys)[GeoKey::GeographicType] = UserDefinedGeoKey;
        (*keys)[GeoKey::GeographicCitation] = Name + " " + Description;
        if (!DatumGeoTIFFCode.empty()) {
            (*keys)[GeoKey::GeodeticDatum] = DatumGeoTIFFCode;
        } else if (Ellipsoid) {
            (*keys)[GeoKey::GeodeticDatum] = UserDefinedGeoKey;
            Ellipsoid->ExportToGeoTIFF(keys, nullptr);
        }
        if (DatumShift) {
            DatumShift->ExportToGeoTIFF(keys);
        }
        if (!LinearUnit || !PrimeMeridian) {
            return false;
        }
        LinearUnit->ExportToGeoTIFF(keys, GeoKey::LinearUnits, GeoKey::LinearUnitSize);
        return PrimeMeridian->ExportToGeoTIFF(keys, PrimeMeridian->AngularUnit);
    });
}

bool TShellGeocentricReferenceSystem::ExportToGeoTIFFClassified(std::map<int, std::string>* keys) const {
    return ReportKeysFailure(keys, [&] {
        if (!TShellReferenceSystem::ExportToGeoTIFFClassified(keys) || !LinearUnit) {
            return false;
        }
        (*keys)[GeoKey::GeographicType] = UserDefinedGeoKey;
        (*keys)[GeoKey::GeographicCitation] = Name + " " + Description;
        return LinearUnit->ExportToGeoTIFF(keys, GeoKey::LinearUnits, GeoKey::LinearUnitSize);
    });
}

} // namespace KvRefSystem
