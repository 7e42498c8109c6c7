#include "shell/refsystems/LocalReferenceSystems.h"

#include "core/refsystems/LocalCartesianReferenceSystem.h"
#include "core/refsystems/LocalCurvedReferenceSystem.h"
#include "frame/XmlSectionsDetail.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/Exports.h"
#include "shell/refsystems/KindsDetail.h"

#include <map>
#include <memory>
#include <new>
#include <stdexcept>

namespace KvRefSystem {

namespace {

char const* const CartesianText =
    "TShellLocalCartesianReferenceSystem(TStringTree *tree,TKvProgressHandler *prh)";
char const* const CartesianXmlText =
    "TShellLocalCartesianReferenceSystem::TShellLocalCartesianReferenceSystem(TKvXIniReader *xml)";
char const* const CurvedText = "TShellLocalCurvedReferenceSystem(TStringTree *tree,TKvProgressHandler *prh)";
char const* const CurvedXmlText =
    "TShellLocalCurvedReferenceSystem::TShellLocalCurvedReferenceSystem(TKvXIniReader *xml)";

constexpr char const* OriginKeys[2] = {"RefSystemOriginCoord1", "RefSystemOriginCoord2"};

/** Of the internal system of both kinds: kept, the curved one's is Cartesian, too. */
char const* const InternalText = "Right, local cartesian, meters";

/** Status of the operations that fill a tree with a derived system: local kinds derive none. */
constexpr int NoDerivedSystem = 1;

std::string AxesWithoutDirections(TShellReferenceSystem const& system) {
    return "AXIS[\"" + system.AxisName[0] + "\",OTHER],AXIS[\"" + system.AxisName[1] + "\",OTHER],AXIS[\"" +
           system.AxisName[2] + "\",OTHER]";
}

/** The system's chains in core form. */
struct TCoreChains {
    std::unique_ptr<TRefSystemTransformsSet> own;
    std::map<std::string, TRefSystemTransformsSet> pairwise;
};

/** @throws std::runtime_error with `failure` for a pairwise chain without a core form; as the own chain. */
TCoreChains CreateCoreChains(TShellReferenceSystem const& system, char const* failure) {
    TCoreChains chains;
    chains.own.reset(system.Transform->CreateCoreTransform(system.IsLeft(), 1, 1));
    if (!chains.own || !system.InitializeCorePairwiseTransforms(&chains.pairwise)) {
        throw std::runtime_error(failure);
    }
    return chains;
}

} // namespace

// --- Local Cartesian ---------------------------------------------------------------------------------------

TShellLocalCartesianReferenceSystem::TShellLocalCartesianReferenceSystem(TStringTree* tree,
                                                                         TKvProgressHandler*)
    : TCartesianReferenceSystem(tree) {
    TStringTree* const unit = tree->FindSubtree(DescriptionTag::LinearUnit, 0);
    if (!unit) {
        throw std::runtime_error(CartesianText);
    }
    auto linearUnit = std::make_unique<TShellLinearUnit>(unit);
    int swap = 0;
    if (!tree->GetInteger(DescriptionTag::Orientation, 0, &swap)) {
        throw std::runtime_error(CartesianText);
    }
    SwapAxes = swap != 0;
    CoreRefSystem = CreateCore();
    LinearUnit = linearUnit.release();
}

TShellLocalCartesianReferenceSystem::TShellLocalCartesianReferenceSystem(TKvXIniReader* xml,
                                                                         TKvProgressHandler*) {
    try {
        if (!LoadFromXML(xml)) {
            throw std::runtime_error(CartesianXmlText);
        }
        // The XML form holds no chains: the system begins with empty ones.
        Transform = new TShellRefSystemTransform;
        CoreRefSystem = CreateCore();
    } catch (...) {
        delete LinearUnit;
        throw;
    }
}

TShellLocalCartesianReferenceSystem::~TShellLocalCartesianReferenceSystem() {
    delete LinearUnit;
}

TReferenceSystem* TShellLocalCartesianReferenceSystem::CreateCore() const {
    TCoreChains const chains = CreateCoreChains(*this, CartesianText);
    return new TLocalCartesianReferenceSystem(SwapAxes ? rscoLeft : rscoRight, *chains.own, chains.pairwise);
}

bool TShellLocalCartesianReferenceSystem::FillInternalRefSystemTree(TStringTree* tree,
                                                                    TShellCoords const&) const {
    return Kinds::FillInternal(InternalText, rstLocalCartesian, tree);
}

int TShellLocalCartesianReferenceSystem::FillPrimaryGeodeticRefSystemTree(TStringTree*) const {
    return NoDerivedSystem;
}

int TShellLocalCartesianReferenceSystem::FillPrimaryGeodeticRefSystemTreeDeg(TStringTree*) const {
    return NoDerivedSystem;
}

int TShellLocalCartesianReferenceSystem::FillPrimaryGeocentricRefSystemTree(TStringTree*) const {
    return NoDerivedSystem;
}

bool TShellLocalCartesianReferenceSystem::ExportToWKT(std::string* text, bool, bool) const {
    return ExportLocalToWKT(*this, LinearUnit, text);
}

bool TShellLocalCartesianReferenceSystem::IsLeft() const {
    return SwapAxes;
}

bool TShellLocalCartesianReferenceSystem::GetAxesDirections(TCardinalDirection* first,
                                                            TCardinalDirection* second) const {
    return Kinds::NoAxesDirections(first, second);
}

bool TShellLocalCartesianReferenceSystem::operator==(TShellReferenceSystem const& other) const {
    auto const* const local = dynamic_cast<TShellLocalCartesianReferenceSystem const*>(&other);
    return local && Kinds::SameCore(*this, *local) && Kinds::SameUnit(LinearUnit, local->LinearUnit);
}

bool TShellLocalCartesianReferenceSystem::LoadFromXML(TKvXIniReader* reader) {
    Reset();
    TReferenceSystemCartesianOrientation orientation = rscoRight;
    bool const loaded = TShellReferenceSystem::LoadFromXML(reader) && Type == rstLocalCartesian &&
                        Kinds::ReadOrientation(reader, &orientation) &&
                        Kinds::ReadUnit(reader, "RefSystemLinearUnit", &LinearUnit);
    if (!loaded) {
        Reset();
        return false;
    }
    SwapAxes = orientation == rscoLeft;
    return true;
}

bool TShellLocalCartesianReferenceSystem::SaveToXML(TKvXIniWriter* writer) const {
    return writer && TShellReferenceSystem::SaveToXML(writer) &&
           writer->WriteS<int>("RefSystemOrientation", SwapAxes ? rscoLeft : rscoRight) &&
           Kinds::WriteUnit(writer, "RefSystemLinearUnit", LinearUnit);
}

void TShellLocalCartesianReferenceSystem::Reset() {
    TShellReferenceSystem::Reset();
    SwapAxes = false;
    delete LinearUnit;
    LinearUnit = nullptr;
}

bool TShellLocalCartesianReferenceSystem::ExportAxesToWKT(std::string* text) const {
    *text = AxesWithoutDirections(*this);
    return true;
}

// --- Local curved ------------------------------------------------------------------------------------------

TShellLocalCurvedReferenceSystem::TShellLocalCurvedReferenceSystem(TStringTree* tree, TKvProgressHandler*)
    : TCartesianReferenceSystem(tree) {
    try {
        ReadTree(tree);
        CoreRefSystem = CreateCore();
    } catch (...) {
        FreeOwn();
        throw;
    }
}

void TShellLocalCurvedReferenceSystem::ReadTree(TStringTree* tree) {
    TStringTree* const sphere = tree->FindSubtree(DescriptionTag::Ellipsoid, 0);
    TStringTree* const sphereUnit =
        sphere ? sphere->FindSubtree(DescriptionTag::EllipsoidLinearUnit, 0) : nullptr;
    if (!sphereUnit || !sphere->GetString(DescriptionTag::SemiMajorAxis, 0, &SphereRadiusText)) {
        throw std::runtime_error(CurvedText);
    }
    SphereUnit = new TShellLinearUnit(sphereUnit);
    ReadRadius();
    TStringTree* const unit = tree->FindSubtree(DescriptionTag::LinearUnit, 0);
    int swap = 0;
    if (!unit || !tree->GetInteger(DescriptionTag::Orientation, 0, &swap)) {
        throw std::runtime_error(CurvedText);
    }
    LinearUnit = new TShellLinearUnit(unit);
    Orientation = Kinds::OrientationOfField(swap);
    bool const first = tree->GetString(DescriptionTag::Origin, 0, &OriginCoord[0]);
    bool const second = tree->GetString(DescriptionTag::Origin, 1, &OriginCoord[1]);
    NoOrigin = !first || !second;
}

void TShellLocalCurvedReferenceSystem::ReadRadius() {
    SphereRadius = SphereUnit->StringToValue(SphereRadiusText) * SphereUnit->CoefToBase;
}

TShellLocalCurvedReferenceSystem::TShellLocalCurvedReferenceSystem(TKvXIniReader* xml, TKvProgressHandler*) {
    try {
        if (!LoadFromXML(xml)) {
            throw std::runtime_error(CurvedXmlText);
        }
        // The XML form holds no chains: the system begins with empty ones.
        Transform = new TShellRefSystemTransform;
        CoreRefSystem = CreateCore();
    } catch (std::bad_alloc const&) {
        FreeOwn();
        throw;
    } catch (...) {
        FreeOwn();
        throw std::runtime_error(CurvedXmlText);
    }
}

TShellLocalCurvedReferenceSystem::~TShellLocalCurvedReferenceSystem() {
    FreeOwn();
}

void TShellLocalCurvedReferenceSystem::FreeOwn() {
    delete LinearUnit;
    LinearUnit = nullptr;
    delete SphereUnit;
    SphereUnit = nullptr;
}

TReferenceSystem* TShellLocalCurvedReferenceSystem::CreateCore() const {
    double centre[2] = {0.0, 0.0};
    for (int axis = 0; axis < 2 && !NoOrigin; ++axis) {
        centre[axis] = LinearUnit->StringToValue(OriginCoord[axis]) * LinearUnit->CoefToBase;
    }
    TCoreChains const chains = CreateCoreChains(*this, CurvedText);
    return new TLocalCurvedReferenceSystem(Orientation, SphereRadius, centre[0], centre[1], *chains.own,
                                           chains.pairwise);
}

bool TShellLocalCurvedReferenceSystem::FillInternalRefSystemTree(TStringTree* tree,
                                                                 TShellCoords const&) const {
    return Kinds::FillInternal(InternalText, rstLocalCartesian, tree);
}

int TShellLocalCurvedReferenceSystem::FillPrimaryGeodeticRefSystemTree(TStringTree*) const {
    return NoDerivedSystem;
}

int TShellLocalCurvedReferenceSystem::FillPrimaryGeodeticRefSystemTreeDeg(TStringTree*) const {
    return NoDerivedSystem;
}

int TShellLocalCurvedReferenceSystem::FillPrimaryGeocentricRefSystemTree(TStringTree*) const {
    return NoDerivedSystem;
}

bool TShellLocalCurvedReferenceSystem::ExportToWKT(std::string* text, bool, bool) const {
    return ExportLocalToWKT(*this, LinearUnit, text);
}

bool TShellLocalCurvedReferenceSystem::IsLeft() const {
    return Orientation == rscoLeft;
}

bool TShellLocalCurvedReferenceSystem::GetSphereRadius(double* radius) const {
    if (!LinearUnit) {
        return false;
    }
    *radius = SphereRadius * LinearUnit->CoefFromBase;
    return true;
}

bool TShellLocalCurvedReferenceSystem::GetAxesDirections(TCardinalDirection* first,
                                                         TCardinalDirection* second) const {
    return Kinds::NoAxesDirections(first, second);
}

bool TShellLocalCurvedReferenceSystem::operator==(TShellReferenceSystem const& other) const {
    auto const* const local = dynamic_cast<TShellLocalCurvedReferenceSystem const*>(&other);
    if (!local || Type != local->Type || NoOrigin != local->NoOrigin ||
        !Kinds::SameUnit(LinearUnit, local->LinearUnit)) {
        return false;
    }
    return NoOrigin ? Orientation == local->Orientation && SphereRadius == local->SphereRadius
                    : Kinds::SameCore(*this, *local);
}

bool TShellLocalCurvedReferenceSystem::LoadFromXML(TKvXIniReader* reader) {
    Reset();
    bool const loaded =
        TShellReferenceSystem::LoadFromXML(reader) && Type == rstLocalCurved && ReadOwnXML(reader);
    if (!loaded) {
        Reset();
    }
    return loaded;
}

bool TShellLocalCurvedReferenceSystem::ReadOwnXML(TKvXIniReader* reader) {
    try {
        if (!Kinds::ReadOrientation(reader, &Orientation)) {
            return false;
        }
        TXmlReadSection sphere(reader, "RefSystemSphere");
        if (!sphere) {
            return false;
        }
        SphereRadiusText = ReadXmlText(reader, "RefSystemSphereRadius");
        if (!Kinds::ReadUnit(reader, "RefSystemSphereLinearUnit", &SphereUnit) || !sphere.Leave()) {
            return false;
        }
        ReadRadius();
        if (!Kinds::ReadUnit(reader, "RefSystemLinearUnit", &LinearUnit)) {
            return false;
        }
        OriginCoord[0] = ReadXmlText(reader, OriginKeys[0]);
        OriginCoord[1] = ReadXmlText(reader, OriginKeys[1]);
        NoOrigin = OriginCoord[0].empty() || OriginCoord[1].empty();
        return true;
    } catch (...) {
        return false;
    }
}

bool TShellLocalCurvedReferenceSystem::SaveToXML(TKvXIniWriter* writer) const {
    return writer && TShellReferenceSystem::SaveToXML(writer) &&
           writer->WriteS<int>("RefSystemOrientation", Orientation) &&
           WriteXmlSection(writer, "RefSystemSphere",
                           [&] {
                               return writer->WriteS<std::string>("RefSystemSphereRadius",
                                                                  SphereRadiusText) &&
                                      Kinds::WriteUnit(writer, "RefSystemSphereLinearUnit", SphereUnit);
                           }) &&
           Kinds::WriteUnit(writer, "RefSystemLinearUnit", LinearUnit) &&
           LumCommonUtils::WriteNotEmptyString(writer, OriginKeys[0], OriginCoord[0]) &&
           LumCommonUtils::WriteNotEmptyString(writer, OriginKeys[1], OriginCoord[1]);
}

void TShellLocalCurvedReferenceSystem::Reset() {
    TShellReferenceSystem::Reset();
    FreeOwn();
    Orientation = rscoRight;
    OriginCoord[0].clear();
    OriginCoord[1].clear();
    SphereRadiusText.clear();
    NoOrigin = true;
    SphereRadius = 0.0;
}

bool TShellLocalCurvedReferenceSystem::ExportAxesToWKT(std::string* text) const {
    *text = AxesWithoutDirections(*this);
    return true;
}

} // namespace KvRefSystem
