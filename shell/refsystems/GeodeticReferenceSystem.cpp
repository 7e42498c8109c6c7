#include "shell/refsystems/GeodeticReferenceSystem.h"

#include "core/primitives/Ellipsoid.h"
#include "core/refsystems/GeodeticReferenceSystem.h"
#include "frame/XmlSectionsDetail.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/KindsDetail.h"

#include <cmath>
#include <memory>
#include <stdexcept>

namespace KvRefSystem {

namespace {

constexpr char const* ModelType = "2"; ///< geographic, of geokey 1024
constexpr double TwoPi = 6.283185307179586;
constexpr double HalfPi = 1.5707963267948966;

[[noreturn]] void FailConstruction() {
    throw std::runtime_error("TShellGeodeticReferenceSystem(TStringTree *tree, TKvProgressHandler *prh)");
}

TShellAngularUnit const& AngularUnitOf(TShellGeodeticReferenceSystem const& system) {
    if (!system.AngularUnit) {
        throw std::runtime_error(
            "const TShellAngularUnit& TShellGeodeticReferenceSystem::GetAngularUnit() const");
    }
    return *system.AngularUnit;
}

TShellLinearUnit const& HeightUnitOf(TShellGeodeticReferenceSystem const& system) {
    if (!system.Vertical || !system.Vertical->HeightUnit) {
        throw std::runtime_error(
            "const TShellLinearUnit& TShellGeodeticReferenceSystem::GetHeightUnit() const");
    }
    return *system.Vertical->HeightUnit;
}

/** The longitude (radians) as it is reported. */
double ReportedLongitude(TShellGeodeticReferenceSystem const& system, double longitude) {
    return system.PositiveLongitude && longitude < 0 ? longitude + TwoPi : longitude;
}

/** @param pairwise fills the core's pairwise chains after the other pieces are made. */
template <class Pairwise>
std::unique_ptr<TReferenceSystem> CreateCore(TShellGeodeticReferenceSystem const& system,
                                             Pairwise fillPairwise) {
    std::unique_ptr<TDatumShift> const shift(system.DatumShift ? system.DatumShift->Create() : nullptr);
    std::unique_ptr<TPrimeMeridian> const meridian(system.PrimeMeridian ? system.PrimeMeridian->Create()
                                                                        : nullptr);
    if (!system.Ellipsoid) {
        FailConstruction();
    }
    std::unique_ptr<TEllipsoid> const ellipsoid(system.Ellipsoid->Create());
    std::unique_ptr<TRefSystemTransformsSet> const chain(system.Transform->CreateCoreTransform(false, 1, 1));
    std::map<std::string, TRefSystemTransformsSet> pairwise;
    if (!chain || !fillPairwise(&pairwise)) {
        throw std::runtime_error(
            "TShellGeodeticReferenceSystem::TShellGeodeticReferenceSystem(TStringTree *tree, "
            "TKvProgressHandler *prh)");
    }
    return std::make_unique<TGeodeticReferenceSystem>(shift.get(), meridian.get(), ellipsoid.get(), *chain,
                                                      pairwise);
}

} // namespace

TShellGeodeticReferenceSystem::TShellGeodeticReferenceSystem(TStringTree* tree, TKvProgressHandler*)
    : TShellReferenceSystem(tree) {
    GeoTIFFType = ModelType;
    TStringTree* const vertical = tree->FindSubtree(DescriptionTag::VerticalSystem, 0);
    if (!vertical) {
        FailConstruction();
    }
    auto verticalSystem = std::make_unique<TShellVerticalReferenceSystem>(vertical);

    using TPairwise = std::map<std::string, TRefSystemTransformsSet>;
    CoreRefSystem =
        CreateCore(*this, [this](TPairwise* out) { return InitializeCorePairwiseTransforms(out); }).release();

    TStringTree* const angular = tree->FindSubtree(DescriptionTag::AngularUnit, 0);
    std::unique_ptr<TShellAngularUnit> angularUnit(angular ? CreateShellAngularUnit(angular) : nullptr);
    if (!angularUnit) {
        FailConstruction();
    }
    int positive = 0;
    PositiveLongitude = tree->GetInteger(DescriptionTag::PositiveLongitude, 0, &positive) && positive != 0;
    Vertical = verticalSystem.release();
    AngularUnit = angularUnit.release();
}

TShellGeodeticReferenceSystem::TShellGeodeticReferenceSystem(TKvXIniReader* xml, TKvProgressHandler*) {
    GeoTIFFType = ModelType;
    try {
        if (!LoadFromXML(xml) || !Ellipsoid) {
            throw std::runtime_error(
                "TShellGeodeticReferenceSystem::TShellGeodeticReferenceSystem(TKvXIniReader *xml)");
        }
        // The XML form holds no chains: the system begins with empty ones.
        Transform = new TShellRefSystemTransform;
        CoreRefSystem = CreateCore(*this, [](auto*) { return true; }).release();
    } catch (...) {
        delete AngularUnit;
        delete Vertical;
        throw;
    }
}

TShellGeodeticReferenceSystem::~TShellGeodeticReferenceSystem() {
    delete AngularUnit;
    delete Vertical;
}

void TShellGeodeticReferenceSystem::CoordsShellToCore(double const* shell, TCoords* core) const {
    double const toRadians = AngularUnitOf(*this).CoefToBase;
    double latitude = toRadians * shell[0];
    double longitude = toRadians * shell[1];
    NormalizeLatitude(latitude);
    NormalizeLongitude(longitude);
    if (!core->ZUndefined) {
        core->Z = HeightUnitOf(*this).CoefToBase * shell[2];
    }
    core->Y = latitude;
    core->X = longitude;
}

void TShellGeodeticReferenceSystem::CoordsCoreToShell(TCoords const& core, double* shell) const {
    double const fromRadians = AngularUnitOf(*this).CoefFromBase;
    double const longitude = ReportedLongitude(*this, core.X);
    shell[0] = core.Y * fromRadians;
    shell[1] = longitude * fromRadians;
    shell[2] = core.ZUndefined ? 0.0 : core.Z * HeightUnitOf(*this).CoefFromBase;
}

void TShellGeodeticReferenceSystem::CoordsShellToCore(TShellCoords const& shell, TCoords* core) const {
    if (shell.Coord[2].empty()) {
        core->ZUndefined = true;
    } else {
        TShellLinearUnit const& heightUnit = HeightUnitOf(*this);
        core->ZUndefined = false;
        core->Z = heightUnit.StringToValue(shell.Coord[2]) * heightUnit.CoefToBase;
    }
    TShellAngularUnit const& unit = AngularUnitOf(*this);
    core->Y = unit.StringToValue(shell.Coord[0]) * unit.CoefToBase;
    core->X = unit.StringToValue(shell.Coord[1]) * unit.CoefToBase;
    NormalizeLatitude(core->Y);
    NormalizeLongitude(core->X);
}

void TShellGeodeticReferenceSystem::CoordsCoreToShell(TCoords const& core, TShellCoords* shell) const {
    TShellAngularUnit const& unit = AngularUnitOf(*this);
    double const longitude = ReportedLongitude(*this, core.X);
    TShellCoords printed;
    // Kept: the two angles are printed from the core's radians, without the unit's coefficient.
    printed.Coord[0] = unit.ValueToStringLatitude(core.Y, -1);
    printed.Coord[1] = unit.ValueToStringLongitude(longitude, -1);
    if (!core.ZUndefined) {
        TShellLinearUnit const& heightUnit = HeightUnitOf(*this);
        printed.Coord[2] = heightUnit.ValueToString(core.Z * heightUnit.CoefFromBase, -1);
    }
    *shell = std::move(printed);
}

bool TShellGeodeticReferenceSystem::InputCoords(TShellCoords const& texts, TShellUnit const* plane,
                                                TShellUnit const* height, double* shell) const {
    if (!AngularUnit || !Vertical || !Vertical->HeightUnit) {
        return false;
    }
    return Kinds::ParseTexts(texts, 2, {*AngularUnit, plane}, shell) &&
           Kinds::ParseText(texts.Coord[2], {*Vertical->HeightUnit, height}, &shell[2]);
}

void TShellGeodeticReferenceSystem::OutputCoords(double const* shell, TShellCoords* texts,
                                                 TShellUnit const* plane, int planePrecision,
                                                 TShellUnit const* height, int heightPrecision) const {
    TShellAngularUnit const& unit = AngularUnitOf(*this);
    TShellLinearUnit const& heightUnit = HeightUnitOf(*this);
    TShellCoords printed;
    if (plane) {
        printed.Coord[0] = Kinds::PrintText(shell[0], {unit, plane}, planePrecision);
        printed.Coord[1] = Kinds::PrintText(shell[1], {unit, plane}, planePrecision);
    } else {
        printed.Coord[0] = unit.ValueToStringLatitude(shell[0], planePrecision);
        printed.Coord[1] = unit.ValueToStringLongitude(shell[1], planePrecision);
    }
    printed.Coord[2] = Kinds::PrintText(shell[2], {heightUnit, height}, heightPrecision);
    *texts = std::move(printed);
}

void TShellGeodeticReferenceSystem::OutputCoordsDef(double const* shell, TShellCoords* texts) const {
    OutputCoords(shell, texts, nullptr, AngularUnitOf(*this).Precision, nullptr,
                 HeightUnitOf(*this).Precision);
}

bool TShellGeodeticReferenceSystem::IsLeft() const {
    return true;
}

bool TShellGeodeticReferenceSystem::GetAxesDirections(TCardinalDirection* first,
                                                      TCardinalDirection* second) const {
    *first = cdNorth;
    *second = cdEast;
    return true;
}

double TShellGeodeticReferenceSystem::GetPlaneUnitCoefToBase() const {
    return AngularUnitOf(*this).CoefToBase;
}

std::string TShellGeodeticReferenceSystem::GetPlaneUnitName() const {
    return AngularUnitOf(*this).Name;
}

std::string TShellGeodeticReferenceSystem::GetPlaneUnitShortName() const {
    return Kinds::ShortName(AngularUnitOf(*this));
}

int TShellGeodeticReferenceSystem::GetPlaneUnitDefPrec() const {
    return AngularUnitOf(*this).Precision;
}

double TShellGeodeticReferenceSystem::GetHeightUnitCoefToBase() const {
    return HeightUnitOf(*this).CoefToBase;
}

std::string TShellGeodeticReferenceSystem::GetHeightUnitName() const {
    return HeightUnitOf(*this).Name;
}

std::string TShellGeodeticReferenceSystem::GetHeightUnitShortName() const {
    return Kinds::ShortName(HeightUnitOf(*this));
}

int TShellGeodeticReferenceSystem::GetHeightUnitDefPrec() const {
    return HeightUnitOf(*this).Precision;
}

bool TShellGeodeticReferenceSystem::operator==(TShellReferenceSystem const& other) const {
    auto const* const geodetic = dynamic_cast<TShellGeodeticReferenceSystem const*>(&other);
    if (!geodetic || PositiveLongitude != geodetic->PositiveLongitude || Type != geodetic->Type) {
        return false;
    }
    if (!CoreRefSystem || !geodetic->CoreRefSystem || !CoreRefSystem->operator==(*geodetic->CoreRefSystem)) {
        return false;
    }
    return AngularUnit && geodetic->AngularUnit && Vertical && geodetic->Vertical &&
           AngularUnit->operator==(*geodetic->AngularUnit) && Vertical->operator==(*geodetic->Vertical);
}

bool TShellGeodeticReferenceSystem::LoadFromXML(TKvXIniReader* reader) {
    Reset();
    bool const loaded =
        TShellReferenceSystem::LoadFromXML(reader) && Type == rstGeodetic && ReadOwnXML(reader);
    if (!loaded) {
        Reset();
    }
    return loaded;
}

bool TShellGeodeticReferenceSystem::ReadOwnXML(TKvXIniReader* reader) {
    try {
        PositiveLongitude = reader->Read<bool>(reader->FindF("RefSystemPositiveLongitude", 0), false);
        TXmlReadSection angular(reader, "RefSystemAngularUnit");
        if (!angular) {
            return false;
        }
        AngularUnit = CreateShellAngularUnit(reader);
        if (!angular.Leave()) {
            return false;
        }
        TXmlReadSection vertical(reader, "RefSystemVertical");
        if (!vertical) {
            return false;
        }
        Vertical = new TShellVerticalReferenceSystem(reader);
        return vertical.Leave();
    } catch (...) {
        return false;
    }
}

bool TShellGeodeticReferenceSystem::SaveToXML(TKvXIniWriter* writer) const {
    return writer && TShellReferenceSystem::SaveToXML(writer) &&
           writer->WriteS<bool>("RefSystemPositiveLongitude", PositiveLongitude) && AngularUnit &&
           WriteXmlSection(writer, "RefSystemAngularUnit", [&] { return AngularUnit->SaveToXML(writer); }) &&
           Vertical &&
           WriteXmlSection(writer, "RefSystemVertical", [&] { return Vertical->SaveToXML(writer); });
}

void TShellGeodeticReferenceSystem::Reset() {
    TShellReferenceSystem::Reset();
    delete AngularUnit;
    AngularUnit = nullptr;
    delete Vertical;
    Vertical = nullptr;
    PositiveLongitude = false;
}

double TShellGeodeticReferenceSystem::CalculateArea(std::vector<vec_t_<double, 3>> const& points) const {
    if (!CoreRefSystem || points.size() < 3 || !Ellipsoid) {
        return 0.0;
    }
    double const toRadians = AngularUnitOf(*this).CoefToBase;
    double const toMetres = HeightUnitOf(*this).CoefToBase;
    double const firstLongitude = std::fabs(toRadians * points[0][1]);

    std::vector<vec_t_<double, 2>> vertices;
    vertices.reserve(points.size());
    double meanLatitude = 0;
    double meanLongitude = 0;
    double meanHeight = 0;
    double done = 0;
    for (vec_t_<double, 3> const& point : points) {
        double latitude = toRadians * point[0];
        double longitude = toRadians * point[1];
        NormalizeLatitude(latitude);
        NormalizeLongitude(longitude);
        vertices.push_back({{latitude, longitude}});
        double const height = toMetres * point[2];
        // A polygon that starts beyond 90 degrees lies around the antimeridian when the mean is formed.
        if (firstLongitude > HalfPi && longitude < 0) {
            longitude += TwoPi;
        }
        meanLatitude = meanLatitude * (done / (done + 1)) + latitude / (done + 1);
        meanLongitude = meanLongitude * (done / (done + 1)) + longitude / (done + 1);
        meanHeight = meanHeight * (done / (done + 1)) + height / (done + 1);
        done += 1;
    }

    try {
        std::unique_ptr<TEllipsoid> const ellipsoid(Ellipsoid->Create());
        double const area = ellipsoid->CalculateArea(vertices);
        auto const squaredRadius = [&](double height) {
            TCoords position{meanLongitude, meanLatitude, height, false};
            ellipsoid->EllipsoidalToCartesian(&position);
            return position.X * position.X + position.Y * position.Y + position.Z * position.Z;
        };
        return area * squaredRadius(meanHeight) / squaredRadius(0.0);
    } catch (...) {
        return 0.0;
    }
}

bool TShellGeodeticReferenceSystem::InsertCoreTransforms() {
    return Kinds::InsertOwnChain(this, {});
}

bool TShellGeodeticReferenceSystem::InsertCorePairwiseTransforms(std::string const& name) {
    return Kinds::InsertPairwiseChain(this, name, {});
}

} // namespace KvRefSystem
