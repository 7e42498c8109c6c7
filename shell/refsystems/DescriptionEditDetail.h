#pragma once

#include "frame/imported/StringTree.h"
#include "shell/transforms/TransformChain.h"

#include <cstddef>
#include <new>
#include <optional>
#include <string>
#include <vector>

#pragma GCC visibility push(hidden)

/** Changes that can be taken back without memory; not for hosts, and hidden from them. */
namespace KvRefSystem::DescriptionEdit {

/**
 * Runs a step and then `keep`, unless memory runs out: kept, a core that refuses a chain leaves it in the
 * description.
 */
template <class Step, class Keep>
bool KeepWithMemory(Step step, Keep keep) {
    bool isDone = false;
    try {
        isDone = step();
    } catch (std::bad_alloc const&) {
        throw;
    } catch (...) {
        keep();
        throw;
    }
    keep();
    return isDone;
}

/**
 * A subtree that is made beside the one that it replaces. It stands behind all others from the beginning; the
 * old one goes when the new one is kept, and the new one goes when it isn't.
 */
class TNewSubtree {
public:
    /** @param old the subtree of `tree` that the new one replaces; null for none. */
    TNewSubtree(TDataTree<std::string>* tree, char const* header, int tag, int idx,
                TDataTree<std::string> const* old)
        : owner(tree), replaced(old) {
        owner->subtrees.Append(owner->CreateSubtree(tag, idx, header));
        added = owner->subtrees[owner->subtrees.Size() - 1];
    }
    TNewSubtree(TNewSubtree const&) = delete;
    TNewSubtree& operator=(TNewSubtree const&) = delete;
    ~TNewSubtree() { Drop(added); }

    /** @return the new subtree, to be filled. */
    TStringTree* Tree() const { return dynamic_cast<TStringTree*>(added); }

    /** Lets the new subtree stay and ends the old one. */
    void Keep() {
        Drop(replaced);
        added = nullptr;
    }

private:
    void Drop(TDataTree<std::string> const* subtree) {
        for (unsigned long position = 0; subtree && position < owner->subtrees.Size(); ++position) {
            if (owner->subtrees[position] == subtree) {
                owner->subtrees.Delete(position);
                return;
            }
        }
    }

    TDataTree<std::string>* owner;
    TDataTree<std::string> const* replaced;
    TDataTree<std::string>* added = nullptr;
};

/**
 * A chain as it is now, before one record is appended, ended, replaced or exchanged: unless the change is kept,
 * the chain is the same again at the end.
 */
class TChainBackup {
public:
    /** @param index of the record that the change may end, which lives on until then; or of none. */
    TChainBackup(TShellRefSystemTransform* subject, std::optional<int> index)
        : chain(subject), records(subject->Chain), cursor(subject->Cursor) {
        if (index && *index >= 0 && static_cast<std::size_t>(*index) < records.size()) {
            changed = static_cast<std::size_t>(*index);
            chain->Chain[*changed] = new TShellRefSystemTransformShiftZParams; // what the change may end
        }
    }
    TChainBackup(TChainBackup const&) = delete;
    TChainBackup& operator=(TChainBackup const&) = delete;

    ~TChainBackup() {
        if (isKept) {
            delete (changed ? records[*changed] : nullptr);
            return;
        }
        if (chain->Chain.size() > records.size()) {
            delete chain->Chain.back();
        } else if (chain->Chain.size() == records.size() && changed) {
            delete chain->Chain[*changed];
        }
        chain->Chain.swap(records);
        chain->Cursor = cursor;
    }

    void Keep() { isKept = true; }

private:
    TShellRefSystemTransform* chain;
    std::vector<TShellRefSystemTransformParams*> records;
    std::size_t cursor;
    std::optional<std::size_t> changed;
    bool isKept = false;
};

} // namespace KvRefSystem::DescriptionEdit

#pragma GCC visibility pop
