#pragma once

#include "frame/imported/StringTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

/** Trees that refuse a field or a subtree, since its pair is taken. */
namespace TestSupport {

using KvRefSystem::TStringTree;

/** An insertion: the tree, counted in the order in which the trees are made, and what goes into it. */
struct TInsertion {
    std::size_t tree;
    bool isSubtree;
    int tag;
    int idx;
};

/**
 * Notes what is inserted into it and into the trees below it, and has one pair taken from the beginning. What it
 * notes lies outside of the objects: trees are ended as plain ones and may have no members of their own.
 */
class TNotingTree : public TStringTree {
public:
    using TStringTree::CreateField;
    using TStringTree::CreateSubtree;
    using TStringTree::TStringTree;

    /** Begins a run with this tree as the first one. @param taken null: nothing is. */
    void Begin(TInsertion const* taken) {
        Insertions().clear();
        Trees().clear();
        Taken() = taken;
        Enter(this);
    }

    /** What was inserted in this run. */
    static std::vector<TInsertion>& Insertions() {
        static std::vector<TInsertion> insertions;
        return insertions;
    }

    KvRefSystem::TDataTree<std::string>* CreateSubtree(int subtreeTag, int subtreeIdx,
                                                       std::string label) override {
        Note(true, subtreeTag, subtreeIdx);
        auto* const child = new TNotingTree(subtreeTag, subtreeIdx, this, std::move(label));
        Enter(child);
        return child;
    }

    KvRefSystem::TDataField<std::string>* CreateField(int fieldTag, int fieldIdx, std::string* source,
                                                      unsigned long valueCount, std::string label) override {
        Note(false, fieldTag, fieldIdx);
        return TStringTree::CreateField(fieldTag, fieldIdx, source, valueCount, std::move(label));
    }

    KvRefSystem::TDataField<std::string>* CreateField(int fieldTag, int fieldIdx, std::string const& value,
                                                      std::string label) override {
        Note(false, fieldTag, fieldIdx);
        return TStringTree::CreateField(fieldTag, fieldIdx, value, std::move(label));
    }

private:
    static std::vector<TNotingTree const*>& Trees() {
        static std::vector<TNotingTree const*> trees;
        return trees;
    }

    static TInsertion const*& Taken() {
        static TInsertion const* taken = nullptr;
        return taken;
    }

    /** Takes the pair that is to be taken when it is this tree's. */
    static void Enter(TNotingTree* tree) {
        Trees().push_back(tree);
        TInsertion const* const taken = Taken();
        if (!taken || taken->tree != Trees().size() - 1) {
            return;
        }
        Taken() = nullptr;
        if (taken->isSubtree) {
            tree->InsertSubtree("taken", taken->tag, taken->idx);
        } else {
            tree->InsertField("taken", taken->tag, taken->idx, "taken");
        }
    }

    void Note(bool isSubtree, int insertedTag, int insertedIdx) {
        // The latest: an earlier tree at this place is gone.
        auto const place = std::find(Trees().rbegin(), Trees().rend(), this);
        auto const number = static_cast<std::size_t>(Trees().rend() - place - 1);
        Insertions().push_back({number, isSubtree, insertedTag, insertedIdx});
    }
};

/** `fill` succeeds in an empty tree, and fails in a tree that has any one of the pairs that it inserts. */
inline void ExpectEveryTakenPairTold(std::function<bool(TStringTree*)> const& fill) {
    TNotingTree whole;
    whole.Begin(nullptr);
    ASSERT_TRUE(fill(&whole));
    std::vector<TInsertion> const insertions = TNotingTree::Insertions();
    ASSERT_FALSE(insertions.empty());
    for (TInsertion const& taken : insertions) {
        TNotingTree tree;
        tree.Begin(&taken);
        EXPECT_FALSE(fill(&tree)) << (taken.isSubtree ? "subtree " : "field ") << taken.tag << ","
                                  << taken.idx << " of tree " << taken.tree;
    }
}

} // namespace TestSupport
