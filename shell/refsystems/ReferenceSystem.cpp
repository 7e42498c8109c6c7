#include "shell/refsystems/ReferenceSystem.h"

#include "frame/NumberText.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/KindsDetail.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"

#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <vector>

namespace KvRefSystem {

namespace {

[[noreturn]] void FailConstruction() {
    throw std::runtime_error("TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)");
}

int ProxyDepth(TStringTree const* tree) {
    int depth = 0;
    for (TDataTree<std::string> const* level = tree; level; level = level->parent) {
        depth += level->tag == DescriptionTag::Proxy ? 1 : 0;
    }
    return depth;
}

std::string OptionalText(TStringTree const& tree, int tag, int idx) {
    std::string text;
    tree.GetString(tag, idx, &text);
    return text;
}

unsigned LeadingNumber(std::string const& text) {
    unsigned number = 0;
    return !text.empty() && ScanText(text.c_str(), "%u", &number) == 1 ? number : 0;
}

} // namespace

TShellReferenceSystem::TShellReferenceSystem()
    : Type(TReferenceSystemType{}), Transform(new TShellRefSystemTransform) {}

TShellReferenceSystem::TShellReferenceSystem(TStringTree* tree) : Type(TReferenceSystemType{}) {
    // A base that throws has no destructor run: what is built so far is freed here.
    try {
        ReadDescription(tree);
    } catch (...) {
        FreeComponents();
        throw;
    }
}

TShellReferenceSystem::~TShellReferenceSystem() {
    FreeComponents();
}

void TShellReferenceSystem::ReadDescription(TStringTree* tree) {
    if (!tree) {
        FailConstruction();
    }
    int type = 0;
    bool required = tree->GetInteger(DescriptionTag::Type, 0, &type);
    Type = static_cast<TReferenceSystemType>(type);
    required = required && tree->GetString(DescriptionTag::Name, 0, &Name);
    required = required && tree->GetString(DescriptionTag::Description, 0, &Description);
    Abbreviation = OptionalText(*tree, DescriptionTag::Abbreviation, 0);
    if (!required) {
        FailConstruction();
    }

    GeoTIFFType = OptionalText(*tree, DescriptionTag::GeoTIFFType, 0);
    GeoTIFFCode = OptionalText(*tree, DescriptionTag::GeoTIFFCode, 0);
    PanoramaCode = OptionalText(*tree, DescriptionTag::PanoramaCode, 0);
    for (int axis = 0; axis < 3; ++axis) {
        AxisName[axis] = OptionalText(*tree, DescriptionTag::Axis, axis);
    }

    if (TStringTree* const datum = tree->FindSubtree(DescriptionTag::Datum, 0)) {
        ReadDatum(datum);
    } else if (TStringTree* const ellipsoid = tree->FindSubtree(DescriptionTag::Ellipsoid, 0)) {
        Ellipsoid = new TShellEllipsoid(ellipsoid);
    }
    if (TStringTree* const meridian = tree->FindSubtree(DescriptionTag::PrimeMeridian, 0)) {
        PrimeMeridian = new TShellPrimeMeridian(meridian);
    }
    TStringTree* const chain = tree->FindSubtree(DescriptionTag::Transforms, 0);
    Transform = chain ? new TShellRefSystemTransform(chain) : new TShellRefSystemTransform;
    if (TStringTree* const pairwise = tree->FindSubtree(DescriptionTag::AllPairwiseTransforms, 0)) {
        ReadPairwiseTransforms(pairwise);
    }
    if (TStringTree* const proxy = tree->FindSubtree(DescriptionTag::Proxy, 0)) {
        if (ProxyDepth(proxy) > MaxProxyDepth) {
            FailConstruction();
        }
        // A proxy of an unknown kind is null: the handle then has a count and no system.
        ProxyRefSys = newobj_a(CreateShellReferenceSystem(proxy, nullptr));
    }

    SavedTree = new TStringTree(0, 0, nullptr, "saved reference system ");
    // A duplicate pair in the given tree ends the copy early; the live reading above stands nevertheless.
    tree->CopyTo(SavedTree);
}

void TShellReferenceSystem::ReadDatum(TStringTree* datum) {
    DatumGeoTIFFCode = OptionalText(*datum, DescriptionTag::DatumGeoTIFFCode, 0);
    DatumName = OptionalText(*datum, DescriptionTag::DatumName, 0);
    TStringTree* const shift = datum->FindSubtree(DescriptionTag::DatumShift, 0);
    if (!shift) {
        FailConstruction();
    }
    // A shift of an unknown form is null and legal: the system then has an undefined datum.
    DatumShift = CreateShellDatumShift(shift);
    TStringTree* const ellipsoid = datum->FindSubtree(DescriptionTag::DatumEllipsoid, 0);
    if (!ellipsoid) {
        FailConstruction();
    }
    Ellipsoid = new TShellEllipsoid(ellipsoid);
}

void TShellReferenceSystem::ReadPairwiseTransforms(TStringTree* collection) {
    std::vector<int> indexes;
    collection->GetSubtreesIndexList(DescriptionTag::PairwiseTransformSet, &indexes);
    for (int const idx : indexes) {
        TStringTree* const subtree = collection->FindSubtree(DescriptionTag::PairwiseTransformSet, idx);
        std::string name;
        if (!subtree || !subtree->GetString(DescriptionTag::TransformSetId, 0, &name) || name.empty()) {
            FailConstruction();
        }
        TShellRefSystemTransform*& chain = PairwiseTransforms[name];
        auto* const replacement = new TShellRefSystemTransform(subtree);
        DestroyTransformChain(chain); // a later name of the same spelling wins
        chain = replacement;
    }
}

void TShellReferenceSystem::FreeComponents() {
    delete CoreRefSystem;
    CoreRefSystem = nullptr;
    delete DatumShift;
    DatumShift = nullptr;
    delete Ellipsoid;
    Ellipsoid = nullptr;
    delete PrimeMeridian;
    PrimeMeridian = nullptr;
    DestroyTransformChain(Transform);
    Transform = nullptr;
    for (auto& entry : PairwiseTransforms) {
        // The keys stay: a name without a chain counts as none.
        DestroyTransformChain(entry.second);
        entry.second = nullptr;
    }
    delete Geoid;
    Geoid = nullptr;
    TPtrVector<TStringTree>::Release(SavedTree); // trees have no virtual destructor
    SavedTree = nullptr;
}

void TShellReferenceSystem::Reset() {
    FreeComponents();
    for (std::string* const text :
         {&Name, &Description, &Abbreviation, &AxisName[0], &AxisName[1], &AxisName[2], &GeoTIFFCode,
          &GeoTIFFType, &DatumGeoTIFFCode, &PanoramaCode, &DatumName}) {
        text->clear();
    }
}

unsigned TShellReferenceSystem::WriteToString(char* buffer) const {
    if (!SavedTree) {
        return 0;
    }
    if (!buffer) {
        return static_cast<unsigned>(SavedTree->TDataTree::WriteToString(nullptr, 0, 0) + 1);
    }
    unsigned long const length = SavedTree->TDataTree::WriteToString(buffer, 0, 0);
    buffer[length] = '\0';
    return static_cast<unsigned>(length + 1);
}

bool TShellReferenceSystem::WriteToString(std::string& text) const {
    if (!SavedTree) {
        return false;
    }
    try {
        unsigned long const length = SavedTree->TDataTree::WriteToString(nullptr, 0, 0);
        if (length == std::numeric_limits<unsigned long>::max()) {
            return false;
        }
        // The closing NUL is a character of the text: hosts store the buffer as it is.
        std::string written(length + 1, '\0');
        SavedTree->TDataTree::WriteToString(written.data(), 0, 0);
        text = std::move(written);
        return true;
    } catch (std::bad_alloc const&) {
        return false;
    } catch (std::length_error const&) {
        return false;
    }
}

bool TShellReferenceSystem::WriteToXML(TKvXIniWriter* writer) const {
    return SavedTree && writer && SavedTree->WriteToXML(writer);
}

TShellReferenceSystem* TShellReferenceSystem::CreateCopy() const {
    if (!SavedTree) {
        return nullptr;
    }
    std::unique_ptr<TShellReferenceSystem> copy(CreateShellReferenceSystem(SavedTree, nullptr));
    if (copy && Geoid) {
        copy->Geoid = new TShellGeoid(*Geoid, copy.get());
        // Once more, as the copy has it only now: which heights the system has depends on its geoid.
        copy->Geoid->Preset(copy.get());
    }
    return copy.release();
}

bool TShellReferenceSystem::IsGlobal() const {
    switch (Type) {
    case rstLocalCartesian:
    case rstLocalCurved:
        return false;
    case rstGeocentric:
    case rstGeodetic:
    case rstMapProjected:
    case rstTopocentricHorizontal:
        return true;
    }
    throw std::logic_error("TShellReferenceSystem::IsGlobal");
}

bool TShellReferenceSystem::IsLatLon() const {
    return Type == rstGeodetic;
}

bool TShellReferenceSystem::IsGeocentric() const {
    return Type == rstGeocentric;
}

bool TShellReferenceSystem::IsProjected() const {
    return Type == rstMapProjected;
}

bool TShellReferenceSystem::IsTopocentricHorizontal() const {
    return Type == rstTopocentricHorizontal;
}

bool TShellReferenceSystem::GetEllipsoidSemiAxesMeters(double* a, double* b) const {
    return Ellipsoid && Ellipsoid->GetSemiAxesMeters(a, b);
}

unsigned TShellReferenceSystem::GetGeoTIFFCode() const {
    return LeadingNumber(GeoTIFFCode);
}

unsigned TShellReferenceSystem::GetPanoramaCode() const {
    return LeadingNumber(PanoramaCode);
}

bool TShellReferenceSystem::operator^=(TShellReferenceSystem const& other) const {
    return CoreRefSystem && other.CoreRefSystem && CoreRefSystem->operator==(*other.CoreRefSystem);
}

bool TShellReferenceSystem::FillInternalRefSystemTree(TStringTree* tree, TShellCoords const&) const {
    return Kinds::FillInternal("Right, topocentric, meters", rstTopocentricHorizontal, tree);
}

bool TShellReferenceSystem::GetSphereRadius(double*) const {
    return false;
}

std::string TShellReferenceSystem::GetMapProjectionName() const {
    return std::string();
}

double TShellReferenceSystem::CalculateArea(std::vector<vec_t_<double, 3>> const&) const {
    return 0.0;
}

TShellDatumShift* TShellReferenceSystem::GetDatumShift() {
    return DatumShift;
}

} // namespace KvRefSystem
