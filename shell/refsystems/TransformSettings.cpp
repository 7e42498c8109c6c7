#include "shell/refsystems/DescriptionEditDetail.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/ReferenceSystem.h"

#include <memory>
#include <optional>
#include <vector>

namespace KvRefSystem {

namespace {

using DescriptionEdit::KeepWithMemory;
using DescriptionEdit::TChainBackup;
using DescriptionEdit::TNewSubtree;

constexpr char const* PairwiseSetName = "Pairwise Transform Set";

/**
 * Lets the description, and then what `core` does, follow a change of the own chain. A false keeps what is
 * done; memory that runs out leaves both as they were.
 */
template <class Core>
bool FollowOwnChain(TShellReferenceSystem* system, Core core) {
    if (!system->SavedTree || !system->Transform) {
        return false;
    }
    TStringTree const* const old = system->SavedTree->FindSubtree(DescriptionTag::Transforms, 0);
    TNewSubtree settings(system->SavedTree, "Transforms", DescriptionTag::Transforms, 0, old);
    return KeepWithMemory(
        [&] { return system->Transform->WriteToTree(settings.Tree(), std::string()) && core(); },
        [&] { settings.Keep(); });
}

/** Changes a chain and lets `follow` do the rest; memory that runs out puts the chain back. */
template <class Change, class Follow>
bool ChangeChain(TShellRefSystemTransform* chain, std::optional<int> index, Change change, Follow follow) {
    TChainBackup backup(chain, index);
    if (!change()) {
        return false;
    }
    return KeepWithMemory(follow, [&] { backup.Keep(); });
}

/** What stands for a pairwise chain in a description: the set alone, or with it all that is left around it. */
TDataTree<std::string>* FindOutermost(TStringTree* settings) {
    if (!settings) {
        return nullptr;
    }
    std::vector<int> sets;
    settings->parent->GetSubtreesIndexList(DescriptionTag::PairwiseTransformSet, &sets);
    return sets.size() == 1 ? settings->parent : settings;
}

/** @return the index of a new set once `old` is gone: the largest that then stands there plus 1. */
int FreeSetIndexWithout(TDataTree<std::string> const* old, TStringTree const& collection) {
    TStringTree others;
    for (unsigned long position = 0; position < collection.subtrees.Size(); ++position) {
        TDataTree<std::string> const* const set = collection.subtrees[position];
        if (set != old) {
            others.InsertSubtree("", set->tag, set->idx);
        }
    }
    return others.GetFreeSubtreeIndex(DescriptionTag::PairwiseTransformSet);
}

/** As `FollowOwnChain`, for a pairwise chain. */
template <class Core>
bool FollowPairwiseChain(TShellReferenceSystem* system, std::string const& name, Core core) {
    TShellRefSystemTransform* const chain = system->AccessPairwiseTransforms(name);
    if (!chain || !system->SavedTree) {
        return false;
    }
    TStringTree* const tree = system->SavedTree;
    TDataTree<std::string> const* const old = FindOutermost(system->FindPairwiseTransformsSettings(name));
    TStringTree* const collection = tree->FindSubtree(DescriptionTag::AllPairwiseTransforms, 0);
    auto const writeAndKeep = [&](TNewSubtree* added, TStringTree* settings) {
        return KeepWithMemory([&] { return chain->WriteToTree(settings, name) && core(); },
                              [&] { added->Keep(); });
    };
    if (collection && collection != old) {
        int const idx = FreeSetIndexWithout(old, *collection);
        TNewSubtree set(collection, PairwiseSetName, DescriptionTag::PairwiseTransformSet, idx, old);
        return writeAndKeep(&set, set.Tree());
    }
    TNewSubtree all(tree, "All Pairwise Transforms", DescriptionTag::AllPairwiseTransforms, 0, old);
    return all.Tree()->InsertSubtree(PairwiseSetName, DescriptionTag::PairwiseTransformSet, 0) &&
           writeAndKeep(&all, all.Tree()->FindSubtree(DescriptionTag::PairwiseTransformSet, 0));
}

} // namespace

bool TShellReferenceSystem::AppendTransform(TShellRefSystemTransformParams const* params) {
    return params && Transform &&
           ChangeChain(
               Transform, std::nullopt, [&] { return Transform->AddNextTransform(*params); },
               [this] { return FollowOwnChain(this, [this] { return InsertCoreTransforms(); }); });
}

bool TShellReferenceSystem::DeleteTransform(int index) {
    return Transform &&
           ChangeChain(
               Transform, index, [&] { return Transform->DeleteTransform(index); },
               [this] { return FollowOwnChain(this, [this] { return InsertCoreTransforms(); }); });
}

bool TShellReferenceSystem::ReplaceTransform(int index, TShellRefSystemTransformParams const& params) {
    return Transform &&
           ChangeChain(
               Transform, index, [&] { return Transform->ReplaceTransform(index, params); },
               [this] { return FollowOwnChain(this, [this] { return InsertCoreTransforms(); }); });
}

bool TShellReferenceSystem::SwapTransforms(int first, int second) {
    return Transform &&
           ChangeChain(
               Transform, std::nullopt, [&] { return Transform->SwapTransforms(first, second); },
               [this] { return FollowOwnChain(this, [this] { return InsertCoreTransforms(); }); });
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
    return FollowOwnChain(this, [] { return true; });
}

bool TShellReferenceSystem::AppendPairwiseTransform(std::string const& name,
                                                    TShellRefSystemTransformParams const* params) {
    // A chain without a name couldn't be read again.
    if (!params || name.empty()) {
        return false;
    }
    auto const append = [&](TShellRefSystemTransform* chain) {
        return ChangeChain(
            chain, std::nullopt, [&] { return chain->AddNextTransform(*params); },
            [&] {
                return FollowPairwiseChain(this, name, [&] { return InsertCorePairwiseTransforms(name); });
            });
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
    return chain &&
           ChangeChain(
               chain, index, [&] { return chain->DeleteTransform(index); },
               [&] {
                   return FollowPairwiseChain(this, name, [&] { return InsertCorePairwiseTransforms(name); });
               });
}

bool TShellReferenceSystem::ReplacePairwiseTransform(std::string const& name, int index,
                                                     TShellRefSystemTransformParams const& params) {
    TShellRefSystemTransform* const chain = AccessPairwiseTransforms(name);
    return chain &&
           ChangeChain(
               chain, index, [&] { return chain->ReplaceTransform(index, params); },
               [&] {
                   return FollowPairwiseChain(this, name, [&] { return InsertCorePairwiseTransforms(name); });
               });
}

bool TShellReferenceSystem::SwapPairwiseTransforms(std::string const& name, int first, int second) {
    TShellRefSystemTransform* const chain = AccessPairwiseTransforms(name);
    // Kept: the main chain's description and core follow, so this swap stays in memory until the name's next
    // change.
    return chain && ChangeChain(
                        chain, std::nullopt, [&] { return chain->SwapTransforms(first, second); },
                        [this] { return FollowOwnChain(this, [this] { return InsertCoreTransforms(); }); });
}

bool TShellReferenceSystem::ClearPairwiseTransforms(std::string const& name) {
    std::string const key = name; // the caller's name may be the map's own
    TDataTree<std::string>* const settings = FindOutermost(FindPairwiseTransformsSettings(key));
    auto entry = PairwiseTransforms.extract(key);
    bool isDone = false;
    try {
        isDone = InsertCorePairwiseTransforms(key);
    } catch (...) {
        PairwiseTransforms.insert(std::move(entry));
        throw;
    }
    if (entry) {
        DestroyTransformChain(entry.mapped());
    }
    if (settings) {
        settings->parent->DeleteSubtree(settings->tag, settings->idx);
    }
    return isDone;
}

bool TShellReferenceSystem::ClearPairwiseTransformsSettings(std::string const& name) {
    TDataTree<std::string>* const settings = FindOutermost(FindPairwiseTransformsSettings(name));
    if (settings) {
        settings->parent->DeleteSubtree(settings->tag, settings->idx);
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
    return FollowPairwiseChain(this, name, [] { return true; });
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
