#include "frame/NumberText.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/KindsDetail.h"
#include "shell/refsystems/MapProjectedReferenceSystem.h"

namespace KvRefSystem {

namespace {

/** Panorama codes of a family of sixty zones: the first code less one is their base. */
struct TPanoramaZones {
    long base;
    char const* name;
};

constexpr TPanoramaZones PanoramaFamilies[] = {
    {80011000, "PZ-90.11 Zone"},
    {80020000, "GSK-2011 Zone"},
};

constexpr long PanoramaZoneCount = 60;

/** Copies the base system's description under the same tag, as that of a geodetic system. */
TStringTree* CopyBase(TStringTree const& saved, TStringTree* tree) {
    TStringTree const* const source = Kinds::BaseOf(&saved);
    if (!tree->InsertSubtree("primary reference system", DescriptionTag::PrimarySystem, 0) || !source) {
        return nullptr;
    }
    TStringTree* const base = tree->FindSubtree(DescriptionTag::PrimarySystem, 0);
    if (!source->CopyTo(base)) {
        return nullptr;
    }
    base->DeleteField(DescriptionTag::Type, 0);
    return base->InsertString("type", DescriptionTag::Type, 0, "4") ? base : nullptr;
}

} // namespace

bool TShellMapProjectedReferenceSystem::FillInternalRefSystemTree(TStringTree* tree,
                                                                  TShellCoords const& origin) const {
    if (!SavedTree || !TShellReferenceSystem::FillInternalRefSystemTree(tree, origin)) {
        return false;
    }
    TStringTree* const baseTree = CopyBase(*SavedTree, tree);
    return baseTree && Kinds::InsertOriginOf(*this, origin, baseTree, tree);
}

int TShellMapProjectedReferenceSystem::FillPrimaryGeodeticRefSystemTree(TStringTree* tree) const {
    return Kinds::FillPrimary(SavedTree, DatumName, Kinds::pfGeodetic, tree);
}

int TShellMapProjectedReferenceSystem::FillPrimaryGeodeticRefSystemTreeDeg(TStringTree* tree) const {
    return Kinds::FillPrimary(SavedTree, DatumName, Kinds::pfGeodeticDegrees, tree);
}

int TShellMapProjectedReferenceSystem::FillPrimaryGeocentricRefSystemTree(TStringTree* tree) const {
    return Kinds::FillPrimary(SavedTree, DatumName, Kinds::pfGeocentric, tree);
}

std::string TShellMapProjectedReferenceSystem::GetPanoramaName() const {
    long code = 0;
    ScanText(PanoramaCode.c_str(), "%ld", &code);
    for (TPanoramaZones const& family : PanoramaFamilies) {
        if (code > family.base && code <= family.base + PanoramaZoneCount) {
            return FormatText("%s %d", family.name, static_cast<int>(code - family.base));
        }
    }
    return std::string();
}

} // namespace KvRefSystem
