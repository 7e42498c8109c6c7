#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/GeodeticReferenceSystem.h"
#include "shell/refsystems/KindsDetail.h"

namespace KvRefSystem {

bool TShellGeodeticReferenceSystem::FillInternalRefSystemTree(TStringTree* tree,
                                                              TShellCoords const& origin) const {
    if (!SavedTree || !TShellReferenceSystem::FillInternalRefSystemTree(tree, origin) ||
        !tree->InsertSubtree("primary reference system", DescriptionTag::PrimarySystem, 0) ||
        !SavedTree->CopyTo(tree->FindSubtree(DescriptionTag::PrimarySystem, 0))) {
        return false;
    }
    for (int axis = 0; axis < 3; ++axis) {
        if (!tree->InsertString("origin", DescriptionTag::Origin, axis, origin.Coord[axis])) {
            return false;
        }
    }
    return true;
}

int TShellGeodeticReferenceSystem::FillPrimaryGeodeticRefSystemTree(TStringTree* tree) const {
    return Kinds::FillPrimary(SavedTree, DatumName, Kinds::pfGeodetic, tree);
}

int TShellGeodeticReferenceSystem::FillPrimaryGeodeticRefSystemTreeDeg(TStringTree* tree) const {
    return Kinds::FillPrimary(SavedTree, DatumName, Kinds::pfGeodeticDegrees, tree);
}

int TShellGeodeticReferenceSystem::FillPrimaryGeocentricRefSystemTree(TStringTree* tree) const {
    return Kinds::FillPrimary(SavedTree, DatumName, Kinds::pfGeocentric, tree);
}

} // namespace KvRefSystem
