#include "shell/refsystems/TopocentricHorizontalReferenceSystem.h"

#include "core/refsystems/TopocentricHorizontalReferenceSystem.h"
#include "frame/XmlSectionsDetail.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/Exports.h"
#include "shell/refsystems/KindsDetail.h"

#include <memory>
#include <new>
#include <stdexcept>

namespace KvRefSystem {

namespace {

char const* const ConstructorText =
    "TShellTopocentricHorizontalReferenceSystem(TStringTree *tree,TKvProgressHandler *prh)";
char const* const XmlText =
    "TShellTopocentricHorizontalReferenceSystem::TShellTopocentricHorizontalReferenceSystem(TKvXIniReader "
    "*xml)";

constexpr char const* OriginKeys[3] = {"RefSystemOriginCoord1", "RefSystemOriginCoord2",
                                       "RefSystemOriginCoord3"};

} // namespace

TShellTopocentricHorizontalReferenceSystem::TShellTopocentricHorizontalReferenceSystem(TStringTree* tree,
                                                                                       TKvProgressHandler*)
    : TCartesianReferenceSystem(tree) {
    try {
        ReadTree(tree);
        CoreRefSystem = CreateCore();
    } catch (...) {
        FreeOwn();
        throw;
    }
}

void TShellTopocentricHorizontalReferenceSystem::ReadTree(TStringTree* tree) {
    int swap = 0;
    TStringTree* const base = tree->FindSubtree(DescriptionTag::PrimarySystem, 0);
    if (!tree->GetInteger(DescriptionTag::Orientation, 0, &swap) || !base) {
        throw std::runtime_error(ConstructorText);
    }
    Orientation = Kinds::OrientationOfField(swap);
    BaseGeodetic = new TShellGeodeticReferenceSystem(base, nullptr);
    TStringTree* const unit = tree->FindSubtree(DescriptionTag::LinearUnit, 0);
    if (!unit) {
        throw std::runtime_error(ConstructorText);
    }
    LinearUnit = new TShellLinearUnit(unit);
    for (int axis = 0; axis < 3; ++axis) {
        if (!tree->GetString(DescriptionTag::Origin, axis, &OriginCoord[axis])) {
            throw std::runtime_error(ConstructorText);
        }
    }
    tree->GetString(DescriptionTag::Azimuth, 0, &Azimuth);
}

TShellTopocentricHorizontalReferenceSystem::TShellTopocentricHorizontalReferenceSystem(TKvXIniReader* xml,
                                                                                       TKvProgressHandler*) {
    try {
        if (!LoadFromXML(xml)) {
            throw std::runtime_error(XmlText);
        }
        // The XML form holds no chains: the system begins with empty ones.
        Transform = new TShellRefSystemTransform;
        CoreRefSystem = CreateCore();
    } catch (std::bad_alloc const&) {
        FreeOwn();
        throw;
    } catch (...) {
        FreeOwn();
        throw std::runtime_error(XmlText);
    }
}

TShellTopocentricHorizontalReferenceSystem::~TShellTopocentricHorizontalReferenceSystem() {
    FreeOwn();
}

void TShellTopocentricHorizontalReferenceSystem::FreeOwn() {
    delete LinearUnit;
    LinearUnit = nullptr;
    delete BaseGeodetic;
    BaseGeodetic = nullptr;
}

double TShellTopocentricHorizontalReferenceSystem::AzimuthInRadians() const {
    if (Azimuth.empty() || !BaseGeodetic || !BaseGeodetic->AngularUnit) {
        return 0.0;
    }
    TShellAngularUnit const& unit = *BaseGeodetic->AngularUnit;
    return unit.StringToValue(Azimuth) * unit.CoefToBase;
}

TReferenceSystem* TShellTopocentricHorizontalReferenceSystem::CreateCore() const {
    TShellCoords texts;
    for (int axis = 0; axis < 3; ++axis) {
        texts.Coord[axis] = OriginCoord[axis];
    }
    TCoords origin{0, 0, 0, false};
    BaseGeodetic->CoordsShellToCore(texts, &origin);
    double const azimuth = AzimuthInRadians();
    std::unique_ptr<TRefSystemTransformsSet> const chain(Transform->CreateCoreTransform(IsLeft(), 1, 1));
    std::map<std::string, TRefSystemTransformsSet> pairwise;
    if (!chain || !InitializeCorePairwiseTransforms(&pairwise)) {
        throw std::runtime_error(ConstructorText);
    }
    auto const* const geodetic = dynamic_cast<TGeodeticReferenceSystem const*>(BaseGeodetic->CoreRefSystem);
    return new TTopocentricHorizontalReferenceSystem(Orientation, azimuth, geodetic, origin, *chain,
                                                     pairwise);
}

bool TShellTopocentricHorizontalReferenceSystem::FillInternalRefSystemTree(TStringTree* tree,
                                                                           TShellCoords const& origin) const {
    TStringTree const* const saved =
        SavedTree ? SavedTree->FindSubtree(DescriptionTag::PrimarySystem, 0) : nullptr;
    if (!saved || !TShellReferenceSystem::FillInternalRefSystemTree(tree, origin) ||
        !tree->InsertSubtree("primary reference system", DescriptionTag::PrimarySystem, 0)) {
        return false;
    }
    TStringTree* const base = tree->FindSubtree(DescriptionTag::PrimarySystem, 0);
    return saved->CopyTo(base) && Kinds::InsertOriginOf(*this, origin, base, tree);
}

int TShellTopocentricHorizontalReferenceSystem::FillPrimaryGeodeticRefSystemTree(TStringTree* tree) const {
    return Kinds::FillPrimary(Kinds::BaseOf(SavedTree), DatumName, Kinds::pfGeodetic, tree);
}

int TShellTopocentricHorizontalReferenceSystem::FillPrimaryGeodeticRefSystemTreeDeg(TStringTree* tree) const {
    return Kinds::FillPrimary(Kinds::BaseOf(SavedTree), DatumName, Kinds::pfGeodeticDegrees, tree);
}

int TShellTopocentricHorizontalReferenceSystem::FillPrimaryGeocentricRefSystemTree(TStringTree* tree) const {
    return Kinds::FillPrimary(Kinds::BaseOf(SavedTree), DatumName, Kinds::pfGeocentric, tree);
}

bool TShellTopocentricHorizontalReferenceSystem::IsLeft() const {
    return Orientation == rscoLeft;
}

bool TShellTopocentricHorizontalReferenceSystem::GetAxesDirections(TCardinalDirection* first,
                                                                   TCardinalDirection* second) const {
    if (!(AzimuthInRadians() == 0.0)) {
        return false;
    }
    if (Orientation != rscoLeft && Orientation != rscoRight) {
        throw std::logic_error("TShellTopocentricHorizontalReferenceSystem::GetAxesDirections");
    }
    *first = IsLeft() ? cdNorth : cdEast;
    *second = IsLeft() ? cdEast : cdNorth;
    return true;
}

bool TShellTopocentricHorizontalReferenceSystem::operator==(TShellReferenceSystem const& other) const {
    auto const* const topocentric = dynamic_cast<TShellTopocentricHorizontalReferenceSystem const*>(&other);
    return topocentric && Kinds::SameCore(*this, *topocentric) &&
           Kinds::SameUnit(LinearUnit, topocentric->LinearUnit);
}

bool TShellTopocentricHorizontalReferenceSystem::LoadFromXML(TKvXIniReader* reader) {
    Reset();
    bool const loaded =
        TShellReferenceSystem::LoadFromXML(reader) && Type == rstTopocentricHorizontal && ReadOwnXML(reader);
    if (!loaded) {
        Reset();
    }
    return loaded;
}

bool TShellTopocentricHorizontalReferenceSystem::ReadOwnXML(TKvXIniReader* reader) {
    try {
        if (!Kinds::ReadOrientation(reader, &Orientation)) {
            return false;
        }
        for (int axis = 0; axis < 3; ++axis) {
            OriginCoord[axis] = ReadXmlText(reader, OriginKeys[axis]);
        }
        Azimuth = ReadXmlText(reader, "RefSystemAzimuth");
        if (!Kinds::ReadUnit(reader, "RefSystemLinearUnit", &LinearUnit)) {
            return false;
        }
        TXmlReadSection base(reader, "RefSystemBaseGeodetic");
        if (!base) {
            return false;
        }
        BaseGeodetic = new TShellGeodeticReferenceSystem(reader, nullptr);
        return base.Leave();
    } catch (...) {
        return false;
    }
}

bool TShellTopocentricHorizontalReferenceSystem::SaveToXML(TKvXIniWriter* writer) const {
    if (!writer || !TShellReferenceSystem::SaveToXML(writer) ||
        !writer->WriteS<int>("RefSystemOrientation", Orientation)) {
        return false;
    }
    for (int axis = 0; axis < 3; ++axis) {
        if (!writer->WriteS<std::string>(OriginKeys[axis], OriginCoord[axis])) {
            return false;
        }
    }
    return LumCommonUtils::WriteNotEmptyString(writer, "RefSystemAzimuth", Azimuth) &&
           Kinds::WriteUnit(writer, "RefSystemLinearUnit", LinearUnit) && BaseGeodetic &&
           WriteXmlSection(writer, "RefSystemBaseGeodetic", [&] { return BaseGeodetic->SaveToXML(writer); });
}

void TShellTopocentricHorizontalReferenceSystem::Reset() {
    TShellReferenceSystem::Reset();
    FreeOwn();
    Orientation = rscoRight;
    for (std::string& text : OriginCoord) {
        text.clear();
    }
    Azimuth.clear();
}

TShellDatumShift* TShellTopocentricHorizontalReferenceSystem::GetDatumShift() {
    return BaseGeodetic ? BaseGeodetic->GetDatumShift() : nullptr;
}

bool TShellTopocentricHorizontalReferenceSystem::ExportAxesToWKT(std::string* text) const {
    *text = "AXIS[\"" + AxisName[0] + (IsLeft() ? "\",NORTH]," : "\",EAST],") + "AXIS[\"" + AxisName[1] +
            (IsLeft() ? "\",EAST]," : "\",NORTH],") + "AXIS[\"" + AxisName[2] + "\",UP]";
    return true;
}

bool TShellTopocentricHorizontalReferenceSystem::ExportToWKT(std::string* text, bool, bool) const {
    return ExportLocalToWKT(*this, LinearUnit, text);
}

} // namespace KvRefSystem
