#include "shell/refsystems/MapProjectedReferenceSystem.h"

#include "core/primitives/Ellipsoid.h"
#include "core/refsystems/MapProjectedReferenceSystem.h"
#include "frame/XmlSectionsDetail.h"
#include "shell/projections/LocalGrids.h"
#include "shell/projections/ParameterisedProjections.h"
#include "shell/projections/ProjectionTagsDetail.h"
#include "shell/projections/TransverseCylinders.h"
#include "shell/projections/ZonedProjections.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/KindsDetail.h"

#include <memory>
#include <stdexcept>

namespace KvRefSystem {

namespace {

constexpr char const* ModelType = "1"; ///< projected, of geokey 1024

char const* const ConstructorText =
    "TShellMapProjectedReferenceSystem(TStringTree *tree, TKvProgressHandler *prh)";
char const* const PairwiseText =
    "TShellMapProjectedReferenceSystem::TShellMapProjectedReferenceSystem(TStringTree *tree, "
    "TKvProgressHandler *prh)";
char const* const XmlText =
    "TShellMapProjectedReferenceSystem::TShellMapProjectedReferenceSystem(TKvXIniReader *xml)";

template <class Shell>
TShellMapProjection* Make(TStringTree* tree) {
    return new Shell(tree);
}

struct TProjectionRow {
    TMapProjectionType type;
    TShellMapProjection* (*make)(TStringTree*);
};

/** The class of each projection. */
constexpr TProjectionRow Projections[] = {
    {mptTransverseMercator, Make<TShellTransverseMercatorMapProjection>},
    {mptObliqueMercator, Make<TShellObliqueMercatorMapProjection>},
    {mptHotineObliqueMercator, Make<TShellHotineObliqueMercatorMapProjection>},
    {mptNZMG, Make<TShellNZMGMapProjection>},
    {mptAlbersEqualAreaConic, Make<TShellAlbersEqualAreaConicMapProjection>},
    {mptLambertConicConformal2SP, Make<TShellLambertConicConformal2SPMapProjection>},
    {mptLambertConicConformal1SP, Make<TShellLambertConicConformal1SPMapProjection>},
    {mptCassiniSoldner, Make<TShellCassiniSoldnerMapProjection>},
    {mptMercator2SP, Make<TShellMercator2SPMapProjection>},
    {mptMercator1SP, Make<TShellMercator1SPMapProjection>},
    {mptObliqueStereographic, Make<TShellObliqueStereographicMapProjection>},
    {mptPolarStereographic, Make<TShellPolarStereographicMapProjection>},
    {mptQuasiStereographic, Make<TShellQuasiStereographicMapProjection>},
    {mptPolyconic, Make<TShellPolyconicMapProjection>},
    {mptGaussBoaga, Make<TShellGaussBoagaMapProjection>},
    {mptKrovak, Make<TShellKrovakMapProjection>},
    {mptHatt, Make<TShellHattMapProjection>},
    {mptPolarStereographicBasic, Make<TShellPolarStereographicBasicMapProjection>},
    {mptPolarStereographicNaturalOrigin, Make<TShellPolarStereographicNaturalOriginMapProjection>},
    {mptPolarStereographicFalseOrigin, Make<TShellPolarStereographicFalseOriginMapProjection>},
    {mptLambertAzimuthalEqualArea, Make<TShellLambertAzimuthalEqualAreaMapProjection>},
    {mptEquidistantConic, Make<TShellEquidistantConicMapProjection>},
    {mptOrthographic, Make<TShellOrthographicMapProjection>},
    {mptGaussKrugerWide, Make<TShellGaussKrugerWideMapProjection>},
    {mptGaussKruger6, Make<TShellGaussKruger6MapProjection>},
    {mptUTM, Make<TShellUTMMapProjection>},
    {mptMSKxx, Make<TShellMSKxxMapProjection>},
    {mptSK63, Make<TShellSK63MapProjection>},
    {mptLambertConicConformal2SPBelgium, Make<TShellLambertConicConformal2SPBelgiumMapProjection>},
    {mptSphericalMercator, Make<TShellSphericalMercatorMapProjection>},
};

/** @return the projection of a subtree; null for an unknown type. @throws as its class. */
std::unique_ptr<TShellMapProjection> CreateProjection(TStringTree* tree, int storedType) {
    TMapProjectionType const type = TMapProjection::IntToType(storedType);
    for (TProjectionRow const& row : Projections) {
        if (row.type == type) {
            return std::unique_ptr<TShellMapProjection>(row.make(tree));
        }
    }
    return nullptr;
}

TShellLinearUnit const& LinearUnitOf(TShellMapProjectedReferenceSystem const& system) {
    if (!system.LinearUnit) {
        throw std::runtime_error(
            "const TShellLinearUnit& TShellMapProjectedReferenceSystem::GetLinearUnit() const");
    }
    return *system.LinearUnit;
}

/** Two plane coordinates, in the order and with the signs of the user's axes. */
struct TPlane {
    double first;
    double second;
};

/** @param plane in metres. */
void StorePlane(TShellMapProjectedReferenceSystem const& system, TPlane const& plane, TCoords* core) {
    (system.FlipAxes ? core->Y : core->X) = system.FirstAxisSign * plane.first;
    (system.FlipAxes ? core->X : core->Y) = system.SecondAxisSign * plane.second;
}

/** @return the plane coordinates in the system's unit. */
TPlane LoadPlane(TShellMapProjectedReferenceSystem const& system, TCoords const& core) {
    double const fromMetres = LinearUnitOf(system).CoefFromBase;
    return {system.FirstAxisSign * (system.FlipAxes ? core.Y : core.X) * fromMetres,
            system.SecondAxisSign * (system.FlipAxes ? core.X : core.Y) * fromMetres};
}

Kinds::TAxisOrder AxisOrderOf(TShellMapProjectedReferenceSystem const& system) {
    return {system.FlipAxes, system.FirstAxisSign, system.SecondAxisSign};
}

/**
 * @param system with projection, unit and base system; `Transform` is set. @param failure text of the
 *        exception for a system that isn't whole.
 * @throws std::runtime_error with `failure`; as the chain.
 */
std::unique_ptr<TReferenceSystem> CreateCore(TShellMapProjectedReferenceSystem const& system,
                                             char const* failure) {
    TGeodeticReferenceSystem const* const base = system.BaseGeodeticCore;
    if (!system.MapProjection || !system.LinearUnit || !base || !base->Ellipsoid) {
        throw std::runtime_error(failure);
    }
    TEllipsoidSemiAxes axes = {base->Ellipsoid->SemiMajorAxis, base->Ellipsoid->SemiMinorAxis};
    std::unique_ptr<TMapProjection> projection(system.MapProjection->CreateCoreMapProjection(&axes));
    if (!projection) {
        throw std::runtime_error(failure);
    }
    std::unique_ptr<TRefSystemTransformsSet> const chain(
        system.Transform->CreateCoreTransform(system.FlipAxes, system.FirstAxisSign, system.SecondAxisSign));
    std::map<std::string, TRefSystemTransformsSet> pairwise;
    if (!chain || !system.InitializeCorePairwiseTransforms(&pairwise)) {
        throw std::runtime_error(PairwiseText);
    }
    // Not make_unique: here the projection is given up after the core has its memory, so it can't get lost.
    return std::unique_ptr<TReferenceSystem>(
        new TMapProjectedReferenceSystem(base, projection.release(), *chain, pairwise));
}

TGeodeticReferenceSystem const* GeodeticCoreOf(TShellGeodeticReferenceSystem const* system) {
    return system ? dynamic_cast<TGeodeticReferenceSystem const*>(system->CoreRefSystem) : nullptr;
}

} // namespace

TShellMapProjectedReferenceSystem::TShellMapProjectedReferenceSystem(TStringTree* tree, TKvProgressHandler*)
    : TShellReferenceSystem(tree) {
    GeoTIFFType = ModelType;
    try {
        ReadTree(tree);
        CoreRefSystem = CreateCore(*this, ConstructorText).release();
    } catch (...) {
        FreeOwn();
        throw;
    }
}

void TShellMapProjectedReferenceSystem::ReadTree(TStringTree* tree) {
    if (TStringTree* const unit = tree->FindSubtree(DescriptionTag::LinearUnit, 0)) {
        LinearUnit = new TShellLinearUnit(unit);
    }
    if (TStringTree* const base = tree->FindSubtree(DescriptionTag::PrimarySystem, 0)) {
        BaseGeodetic = new TShellGeodeticReferenceSystem(base, nullptr);
        BaseGeodeticCore = GeodeticCoreOf(BaseGeodetic);
    }
    TStringTree* const projection = tree->FindSubtree(DescriptionTag::MapProjection, 0);
    int flip = 0;
    int type = 0;
    if (!projection || !projection->GetInteger(DescriptionTag::FlipAxes, 0, &flip) ||
        !projection->GetInteger(DescriptionTag::AxisSign, 0, &FirstAxisSign) ||
        !projection->GetInteger(DescriptionTag::AxisSign, 1, &SecondAxisSign) ||
        !projection->GetInteger(ProjectionTag::Type, 0, &type)) {
        throw std::runtime_error(ConstructorText);
    }
    FlipAxes = flip != 0;
    MapProjection = CreateProjection(projection, type).release();
}

TShellMapProjectedReferenceSystem::TShellMapProjectedReferenceSystem(TKvXIniReader* xml,
                                                                     TKvProgressHandler*) {
    GeoTIFFType = ModelType;
    try {
        if (!LoadFromXML(xml)) {
            throw std::runtime_error(XmlText);
        }
        BaseGeodeticCore = GeodeticCoreOf(BaseGeodetic);
        // The XML form holds no chains: the system begins with empty ones.
        Transform = new TShellRefSystemTransform;
        CoreRefSystem = CreateCore(*this, XmlText).release();
    } catch (...) {
        FreeOwn();
        throw;
    }
}

TShellMapProjectedReferenceSystem::~TShellMapProjectedReferenceSystem() {
    FreeOwn();
}

void TShellMapProjectedReferenceSystem::FreeOwn() {
    delete BaseGeodetic;
    BaseGeodetic = nullptr;
    delete LinearUnit;
    LinearUnit = nullptr;
    delete MapProjection;
    MapProjection = nullptr;
}

TShellLinearUnit const* TShellMapProjectedReferenceSystem::FindHeightUnit() const {
    return BaseGeodetic && BaseGeodetic->Vertical ? BaseGeodetic->Vertical->HeightUnit : nullptr;
}

TShellLinearUnit const& TShellMapProjectedReferenceSystem::HeightUnit() const {
    TShellLinearUnit const* const unit = FindHeightUnit();
    if (!unit) {
        throw std::runtime_error(
            "const TShellLinearUnit& TShellMapProjectedReferenceSystem::GetHeightUnit() const");
    }
    return *unit;
}

void TShellMapProjectedReferenceSystem::CoordsShellToCore(double const* shell, TCoords* core) const {
    double const toMetres = LinearUnitOf(*this).CoefToBase;
    double const height = HeightUnit().CoefToBase * shell[2];
    core->ZUndefined = false;
    core->Z = height;
    StorePlane(*this, {toMetres * shell[0], toMetres * shell[1]}, core);
}

void TShellMapProjectedReferenceSystem::CoordsCoreToShell(TCoords const& core, double* shell) const {
    TPlane const plane = LoadPlane(*this, core);
    shell[0] = plane.first;
    shell[1] = plane.second;
    if (core.ZUndefined) {
        throw std::runtime_error("TShellMapProjectedReferenceSystem::CoordsCoreToShell");
    }
    shell[2] = core.Z * HeightUnit().CoefFromBase;
}

void TShellMapProjectedReferenceSystem::CoordsShellToCore(TShellCoords const& shell, TCoords* core) const {
    if (shell.Coord[2].empty()) {
        core->ZUndefined = true;
    } else {
        TShellLinearUnit const& heightUnit = HeightUnit();
        core->ZUndefined = false;
        core->Z = heightUnit.StringToValue(shell.Coord[2]) * heightUnit.CoefToBase;
    }
    TShellLinearUnit const& unit = LinearUnitOf(*this);
    StorePlane(*this,
               {unit.CoefToBase * unit.StringToValue(shell.Coord[0]),
                unit.CoefToBase * unit.StringToValue(shell.Coord[1])},
               core);
}

void TShellMapProjectedReferenceSystem::CoordsCoreToShell(TCoords const& core, TShellCoords* shell) const {
    TShellLinearUnit const& unit = LinearUnitOf(*this);
    TPlane const plane = LoadPlane(*this, core);
    TShellCoords printed;
    printed.Coord[0] = unit.ValueToString(plane.first, -1);
    printed.Coord[1] = unit.ValueToString(plane.second, -1);
    if (!core.ZUndefined) {
        TShellLinearUnit const& heightUnit = HeightUnit();
        printed.Coord[2] = heightUnit.ValueToString(core.Z * heightUnit.CoefFromBase, -1);
    }
    *shell = std::move(printed);
}

bool TShellMapProjectedReferenceSystem::InputCoords(TShellCoords const& texts, TShellUnit const* plane,
                                                    TShellUnit const* height, double* shell) const {
    TShellLinearUnit const* const heightUnit = FindHeightUnit();
    return LinearUnit && heightUnit && Kinds::ParseTexts(texts, 2, {*LinearUnit, plane}, shell) &&
           Kinds::ParseText(texts.Coord[2], {*heightUnit, height}, &shell[2]);
}

void TShellMapProjectedReferenceSystem::OutputCoords(double const* shell, TShellCoords* texts,
                                                     TShellUnit const* plane, int planePrecision,
                                                     TShellUnit const* height, int heightPrecision) const {
    TShellLinearUnit const& unit = LinearUnitOf(*this);
    TShellCoords printed;
    printed.Coord[0] = Kinds::PrintText(shell[0], {unit, plane}, planePrecision);
    printed.Coord[1] = Kinds::PrintText(shell[1], {unit, plane}, planePrecision);
    printed.Coord[2] = Kinds::PrintText(shell[2], {HeightUnit(), height}, heightPrecision);
    *texts = std::move(printed);
}

void TShellMapProjectedReferenceSystem::OutputCoordsDef(double const* shell, TShellCoords* texts) const {
    OutputCoords(shell, texts, nullptr, LinearUnitOf(*this).Precision, nullptr, HeightUnit().Precision);
}

bool TShellMapProjectedReferenceSystem::IsLeft() const {
    bool const equalSigns = FirstAxisSign == SecondAxisSign;
    return FlipAxes ? equalSigns : !equalSigns;
}

bool TShellMapProjectedReferenceSystem::GetAxesDirections(TCardinalDirection* first,
                                                          TCardinalDirection* second) const {
    // Kept: a sign of 0 counts as negative here, while the coordinates are multiplied by it as it stands.
    bool const firstPositive = FirstAxisSign >= 1;
    bool const secondPositive = SecondAxisSign >= 1;
    TCardinalDirection const alongNorth[] = {cdSouth, cdNorth};
    TCardinalDirection const alongEast[] = {cdWest, cdEast};
    *first = (FlipAxes ? alongNorth : alongEast)[firstPositive];
    *second = (FlipAxes ? alongEast : alongNorth)[secondPositive];
    return true;
}

std::string TShellMapProjectedReferenceSystem::GetMapProjectionName() const {
    return MapProjection ? MapProjection->Name : std::string();
}

double TShellMapProjectedReferenceSystem::GetPlaneUnitCoefToBase() const {
    return LinearUnitOf(*this).CoefToBase;
}

std::string TShellMapProjectedReferenceSystem::GetPlaneUnitName() const {
    return LinearUnitOf(*this).Name;
}

std::string TShellMapProjectedReferenceSystem::GetPlaneUnitShortName() const {
    return Kinds::ShortName(LinearUnitOf(*this));
}

int TShellMapProjectedReferenceSystem::GetPlaneUnitDefPrec() const {
    return LinearUnitOf(*this).Precision;
}

double TShellMapProjectedReferenceSystem::GetHeightUnitCoefToBase() const {
    return HeightUnit().CoefToBase;
}

std::string TShellMapProjectedReferenceSystem::GetHeightUnitName() const {
    return HeightUnit().Name;
}

std::string TShellMapProjectedReferenceSystem::GetHeightUnitShortName() const {
    return Kinds::ShortName(HeightUnit());
}

int TShellMapProjectedReferenceSystem::GetHeightUnitDefPrec() const {
    return HeightUnit().Precision;
}

bool TShellMapProjectedReferenceSystem::operator==(TShellReferenceSystem const& other) const {
    auto const* const projected = dynamic_cast<TShellMapProjectedReferenceSystem const*>(&other);
    if (!projected || !MapProjection || !projected->MapProjection || !CoreRefSystem ||
        !projected->CoreRefSystem || !LinearUnit || !projected->LinearUnit || !BaseGeodetic ||
        !projected->BaseGeodetic) {
        return false;
    }
    return MapProjection->operator==(*projected->MapProjection) &&
           CoreRefSystem->operator==(*projected->CoreRefSystem) &&
           LinearUnit->operator==(*projected->LinearUnit) &&
           BaseGeodetic->operator==(*projected->BaseGeodetic) && FlipAxes == projected->FlipAxes &&
           FirstAxisSign == projected->FirstAxisSign && SecondAxisSign == projected->SecondAxisSign;
}

bool TShellMapProjectedReferenceSystem::LoadFromXML(TKvXIniReader* reader) {
    Reset();
    bool const loaded =
        TShellReferenceSystem::LoadFromXML(reader) && Type == rstMapProjected && ReadOwnXML(reader);
    if (!loaded) {
        Reset();
    }
    return loaded;
}

bool TShellMapProjectedReferenceSystem::ReadOwnXML(TKvXIniReader* reader) {
    try {
        TXmlReadSection unit(reader, "RefSystemLinearUnit");
        if (!unit) {
            return false;
        }
        LinearUnit = new TShellLinearUnit(reader);
        if (!unit.Leave()) {
            return false;
        }
        TXmlReadSection projection(reader, "RefSystemMapProjection");
        if (!projection) {
            return false;
        }
        MapProjection = CreateShellMapProjection(reader);
        if (!MapProjection || !projection.Leave()) {
            return false;
        }
        TXmlReadSection base(reader, "RefSystemBaseGeodetic");
        if (!base) {
            return false;
        }
        BaseGeodetic = new TShellGeodeticReferenceSystem(reader, nullptr);
        if (!base.Leave()) {
            return false;
        }
        FlipAxes = reader->Read<bool>(reader->FindF("RefSystemFlipAxes", 0), false);
        FirstAxisSign = ReadXmlInt(reader, "RefSystemFirstAxisSign", 1);
        SecondAxisSign = ReadXmlInt(reader, "RefSystemSecondAxisSign", 1);
        return true;
    } catch (...) {
        return false;
    }
}

bool TShellMapProjectedReferenceSystem::SaveToXML(TKvXIniWriter* writer) const {
    return writer && TShellReferenceSystem::SaveToXML(writer) && BaseGeodetic &&
           WriteXmlSection(writer, "RefSystemBaseGeodetic",
                           [&] { return BaseGeodetic->SaveToXML(writer); }) &&
           MapProjection &&
           WriteXmlSection(writer, "RefSystemMapProjection",
                           [&] { return MapProjection->SaveToXML(writer); }) &&
           writer->WriteS<bool>("RefSystemFlipAxes", FlipAxes) &&
           writer->WriteS<int>("RefSystemFirstAxisSign", FirstAxisSign) &&
           writer->WriteS<int>("RefSystemSecondAxisSign", SecondAxisSign) && LinearUnit &&
           WriteXmlSection(writer, "RefSystemLinearUnit", [&] { return LinearUnit->SaveToXML(writer); });
}

void TShellMapProjectedReferenceSystem::Reset() {
    TShellReferenceSystem::Reset();
    FreeOwn();
}

bool TShellMapProjectedReferenceSystem::InsertCoreTransforms() {
    return Kinds::InsertOwnChain(this, AxisOrderOf(*this));
}

bool TShellMapProjectedReferenceSystem::InsertCorePairwiseTransforms(std::string const& name) {
    return Kinds::InsertPairwiseChain(this, name, AxisOrderOf(*this));
}

} // namespace KvRefSystem
