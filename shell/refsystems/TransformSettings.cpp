#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/ReferenceSystem.h"

#include <memory>
#include <vector>

namespace KvRefSystem {

bool TShellReferenceSystem::AppendTransform(TShellRefSystemTransformParams const* params) {
    return params && Transform && Transform->AddNextTransform(*params) && InsertTransformsSettings() &&
           InsertCoreTransforms();
}

bool TShellReferenceSystem::DeleteTransform(int index) {
    return Transform && Transform->DeleteTransform(index) && InsertTransformsSettings() &&
           InsertCoreTransforms();
}

bool TShellReferenceSystem::ReplaceTransform(int index, TShellRefSystemTransformParams const& params) {
    return Transform && Transform->ReplaceTransform(index, params) && InsertTransformsSettings() &&
           InsertCoreTransforms();
}

bool TShellReferenceSystem::SwapTransforms(int first, int second) {
    return Transform && Transform->SwapTransforms(first, second) && InsertTransformsSettings() &&
           InsertCoreTransforms();
}

bool TShellReferenceSystem::ClearTransforms() {
    if (!Transform) {
        return false;
    }
    Transform->ClearTransforms();
    ClearTransformsSettings();
    return InsertCoreTransforms();
}

void TShellReferenceSystem::ClearTransformsSettings() {
    if (SavedTree) {
        SavedTree->DeleteSubtree(DescriptionTag::Transforms, 0);
    }
}

TShellRefSystemTransformParams* TShellReferenceSystem::GetTransform(int index) const {
    return Transform ? Transform->GetTransform(index) : nullptr;
}

bool TShellReferenceSystem::InsertTransformsSettings() {
    if (!SavedTree || !Transform) {
        return false;
    }
    ClearTransformsSettings();
    return SavedTree->InsertSubtree("Transforms", DescriptionTag::Transforms, 0) &&
           Transform->WriteToTree(SavedTree->FindSubtree(DescriptionTag::Transforms, 0), std::string());
}

bool TShellReferenceSystem::AppendPairwiseTransform(std::string const& name,
                                                    TShellRefSystemTransformParams const* params) {
    // A chain without a name couldn't be read again.
    if (!params || name.empty()) {
        return false;
    }
    auto const append = [&](TShellRefSystemTransform* chain) {
        return chain->AddNextTransform(*params) && InsertPairwiseTransformsSettings(name) &&
               InsertCorePairwiseTransforms(name);
    };
    if (TShellRefSystemTransform* const present = AccessPairwiseTransforms(name)) {
        return append(present);
    }
    TShellRefSystemTransform*& entry = PairwiseTransforms[name];
    auto const discard = [&] {
        DestroyTransformChain(entry);
        PairwiseTransforms.erase(name);
    };
    try {
        entry = new TShellRefSystemTransform;
        if (append(entry)) {
            return true;
        }
    } catch (...) {
        discard();
        throw;
    }
    discard();
    return false;
}

bool TShellReferenceSystem::DeletePairwiseTransform(std::string const& name, int index) {
    TShellRefSystemTransform* const chain = AccessPairwiseTransforms(name);
    return chain && chain->DeleteTransform(index) && InsertPairwiseTransformsSettings(name) &&
           InsertCorePairwiseTransforms(name);
}

bool TShellReferenceSystem::ReplacePairwiseTransform(std::string const& name, int index,
                                                     TShellRefSystemTransformParams const& params) {
    TShellRefSystemTransform* const chain = AccessPairwiseTransforms(name);
    return chain && chain->ReplaceTransform(index, params) && InsertPairwiseTransformsSettings(name) &&
           InsertCorePairwiseTransforms(name);
}

bool TShellReferenceSystem::SwapPairwiseTransforms(std::string const& name, int first, int second) {
    TShellRefSystemTransform* const chain = AccessPairwiseTransforms(name);
    // Kept: the main chain's description and core follow, so this swap stays in memory until the name's next
    // change.
    return chain && chain->SwapTransforms(first, second) && InsertTransformsSettings() &&
           InsertCoreTransforms();
}

bool TShellReferenceSystem::ClearPairwiseTransforms(std::string const& name) {
    std::string const key = name; // the caller's name may be the map's own
    auto const entry = PairwiseTransforms.find(key);
    if (entry != PairwiseTransforms.end()) {
        DestroyTransformChain(entry->second);
        PairwiseTransforms.erase(entry);
    }
    ClearPairwiseTransformsSettings(key);
    return InsertCorePairwiseTransforms(key);
}

bool TShellReferenceSystem::ClearPairwiseTransformsSettings(std::string const& name) {
    TStringTree* const settings = FindPairwiseTransformsSettings(name);
    if (!settings) {
        return true;
    }
    TDataTree<std::string>* const collection = settings->parent;
    collection->DeleteSubtree(DescriptionTag::PairwiseTransformSet, settings->idx);
    std::vector<int> remaining;
    if (collection->GetSubtreesIndexList(DescriptionTag::PairwiseTransformSet, &remaining) == 0) {
        SavedTree->DeleteSubtree(DescriptionTag::AllPairwiseTransforms, 0);
    }
    return true;
}

bool TShellReferenceSystem::ClearAllPairwiseTransforms() {
    for (auto& entry : PairwiseTransforms) {
        DestroyTransformChain(entry.second);
        entry.second = nullptr;
    }
    PairwiseTransforms.clear();
    // Kept: no step on the core follows, which goes on with the chains that it has.
    ClearAllPairwiseTransformsSettings();
    return true;
}

void TShellReferenceSystem::ClearAllPairwiseTransformsSettings() {
    if (SavedTree) {
        SavedTree->DeleteSubtree(DescriptionTag::AllPairwiseTransforms, 0);
    }
}

TShellRefSystemTransform* TShellReferenceSystem::AccessPairwiseTransforms(std::string const& name) {
    auto const entry = PairwiseTransforms.find(name);
    return entry == PairwiseTransforms.end() ? nullptr : entry->second;
}

TShellRefSystemTransform const* TShellReferenceSystem::FindPairwiseTransforms(std::string const& name) const {
    auto const entry = PairwiseTransforms.find(name);
    return entry == PairwiseTransforms.end() ? nullptr : entry->second;
}

TShellRefSystemTransformParams* TShellReferenceSystem::GetPairwiseTransform(std::string const& name,
                                                                            int index) const {
    TShellRefSystemTransform const* const chain = FindPairwiseTransforms(name);
    return chain ? chain->GetTransform(index) : nullptr;
}

TStringTree* TShellReferenceSystem::FindPairwiseTransformsSettings(std::string const& name) const {
    TStringTree* const collection =
        SavedTree ? SavedTree->FindSubtree(DescriptionTag::AllPairwiseTransforms, 0) : nullptr;
    if (!collection) {
        return nullptr;
    }
    std::vector<int> indexes;
    collection->GetSubtreesIndexList(DescriptionTag::PairwiseTransformSet, &indexes);
    for (int const idx : indexes) {
        TStringTree* const settings = collection->FindSubtree(DescriptionTag::PairwiseTransformSet, idx);
        std::string id;
        // Kept: the name is looked for under the set's own idx but written under 0, so only set 0 is ever
        // found.
        if (settings->GetString(DescriptionTag::TransformSetId, idx, &id) && id == name) {
            return settings;
        }
    }
    return nullptr;
}

bool TShellReferenceSystem::InsertPairwiseTransformsSettings(std::string const& name) {
    TShellRefSystemTransform* const chain = AccessPairwiseTransforms(name);
    if (!chain || !SavedTree) {
        return false;
    }
    ClearPairwiseTransformsSettings(name);
    if (!SavedTree->FindSubtree(DescriptionTag::AllPairwiseTransforms, 0) &&
        !SavedTree->InsertSubtree("All Pairwise Transforms", DescriptionTag::AllPairwiseTransforms, 0)) {
        return false;
    }
    TStringTree* const collection = SavedTree->FindSubtree(DescriptionTag::AllPairwiseTransforms, 0);
    int const idx = collection->GetFreeSubtreeIndex(DescriptionTag::PairwiseTransformSet);
    return collection->InsertSubtree("Pairwise Transform Set", DescriptionTag::PairwiseTransformSet, idx) &&
           chain->WriteToTree(collection->FindSubtree(DescriptionTag::PairwiseTransformSet, idx), name);
}

bool TShellReferenceSystem::InitializeCorePairwiseTransforms(
    std::map<std::string, TRefSystemTransformsSet>* out) const {
    out->clear();
    for (auto const& [name, chain] : PairwiseTransforms) {
        if (!chain) {
            continue;
        }
        std::unique_ptr<TRefSystemTransformsSet> const set(chain->CreateCoreTransform(false, 1, 1));
        if (!set) {
            return false;
        }
        out->emplace(name, *set);
    }
    return true;
}

} // namespace KvRefSystem
