#include "frame/DataTree.h"
#include "frame/ModuleInitializer.h"
#include "frame/NumberText.h"
#include "frame/imported/StringTree.h"
#include "tests/frame/DataTreeText.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <thread>
#include <vector>

using namespace DataTreeText;
using KvRefSystem::TDataField;
using KvRefSystem::TDataTree;
using KvRefSystem::TStringTree;

namespace {

using Field = TDataField<std::string>;
using Tree = TDataTree<std::string>;

// Hosts are compiled against these; strings of 32 bytes, pointers of 8.
static_assert(sizeof(KvRefSystem::KvModule_Initializer) == 168);
static_assert(sizeof(Field) == 64);
static_assert(sizeof(Tree) == 104);
static_assert(sizeof(KvRefSystem::TPtrVector<Tree>) == 24);

/** Slot of a virtual function: its pointer holds one more than the slot's distance in the table. */
template <class Class, class Result, class... Arguments>
unsigned long SlotOf(Result (Class::*function)(Arguments...)) {
    std::uintptr_t words[2] = {};
    static_assert(sizeof words == sizeof function);
    std::memcpy(words, &function, sizeof words);
    return (words[0] - 1) / sizeof(void*);
}

template <class Class, class Result, class... Arguments>
unsigned long SlotOf(Result (Class::*function)(Arguments...) const) {
    std::uintptr_t words[2] = {};
    static_assert(sizeof words == sizeof function);
    std::memcpy(words, &function, sizeof words);
    return (words[0] - 1) / sizeof(void*);
}

template <class Member>
std::ptrdiff_t Offset(void const* object, Member const& member) {
    return reinterpret_cast<char const*>(&member) - static_cast<char const*>(object);
}

} // namespace

TEST(FrameLayout, MembersOfAFieldStandInTheStatedOrder) {
    Field const field;
    EXPECT_EQ(Offset(&field, field.tag), 8);
    EXPECT_EQ(Offset(&field, field.idx), 12);
    EXPECT_EQ(Offset(&field, field.count), 16);
    EXPECT_EQ(Offset(&field, field.values), 24);
    EXPECT_EQ(Offset(&field, field.header), 32);
}

TEST(FrameLayout, MembersOfATreeStandInTheStatedOrder) {
    Tree const tree(0, 0, nullptr, "");
    EXPECT_EQ(Offset(&tree, tree.parent), 8);
    EXPECT_EQ(Offset(&tree, tree.subtrees), 16);
    EXPECT_EQ(Offset(&tree, tree.fields), 40);
    EXPECT_EQ(Offset(&tree, tree.tag), 64);
    EXPECT_EQ(Offset(&tree, tree.idx), 68);
    EXPECT_EQ(Offset(&tree, tree.header), 72);
}

TEST(FrameLayout, VirtualFunctionsOfAFieldStandInTheirSlots) {
    using ULong = unsigned long;
    EXPECT_EQ(SlotOf(&Field::WriteToString), 0u);
    EXPECT_EQ(SlotOf(&Field::WriteToXML), 1u);
    EXPECT_EQ(SlotOf(static_cast<ULong (Field::*)(ULong, char*, ULong) const>(&Field::ValueToString)), 2u);
    EXPECT_EQ(SlotOf(static_cast<std::string (Field::*)(ULong) const>(&Field::ValueToString)), 3u);
    EXPECT_EQ(SlotOf(static_cast<bool (Field::*)(char const*, ULong, ULong)>(&Field::StringToValue)), 4u);
    EXPECT_EQ(SlotOf(static_cast<bool (Field::*)(std::string const&, ULong)>(&Field::StringToValue)), 5u);
}

TEST(FrameLayout, VirtualFunctionsOfATreeStandInTheirSlots) {
    using ULong = unsigned long;
    EXPECT_EQ(SlotOf(&Tree::WriteToXML), 0u);
    EXPECT_EQ(SlotOf(static_cast<Tree* (Tree::*)(int, int, std::string)>(&Tree::CreateSubtree)), 1u);
    EXPECT_EQ(SlotOf(static_cast<Tree* (Tree::*)(char const*, ULong*)>(&Tree::CreateSubtree)), 2u);
    EXPECT_EQ(SlotOf(static_cast<Tree* (Tree::*)(TKvXIniReader*, ULong)>(&Tree::CreateSubtree)), 3u);
    EXPECT_EQ(
        SlotOf(static_cast<Field* (Tree::*)(int, int, std::string*, ULong, std::string)>(&Tree::CreateField)),
        4u);
    EXPECT_EQ(
        SlotOf(static_cast<Field* (Tree::*)(int, int, std::string const&, std::string)>(&Tree::CreateField)),
        5u);
    EXPECT_EQ(SlotOf(static_cast<Field* (Tree::*)(char const*, ULong*)>(&Tree::CreateField)), 6u);
    EXPECT_EQ(SlotOf(static_cast<Field* (Tree::*)(TKvXIniReader*, ULong)>(&Tree::CreateField)), 7u);
}

TEST(DataTreeEdge, CopyIntoNothingFails) {
    TStringTree tree;
    EXPECT_FALSE(tree.CopyTo(nullptr));
}

TEST(DataTreeEdge, CopyIntoTheParentTakesTheChildrenOut) {
    TStringTree root;
    FillWorkedExample(&root);
    EXPECT_TRUE(root.FindSubtree(7, 2)->CopyTo(&root));
    // By hand: the field of the subtree now stands at the root, too, behind the root's own.
    EXPECT_EQ(TextOf(root), "(0,0)\n"
                            "(5301,0)[1]code\t0\n"
                            "(5320,0)[2]name\tA\tB\n"
                            "\t(7,2)unit\n"
                            "\t(5320,0)[2]name\tA\tB\n"
                            "\t\n"
                            "\n");
}

TEST(DataTreeEdge, CopyTakesFieldsThatAreNeverPersisted) {
    TStringTree tree;
    tree.InsertString("hidden", -1, 0, "x");
    TStringTree copy;
    ASSERT_TRUE(tree.CopyTo(&copy));
    std::string value;
    EXPECT_TRUE(copy.GetString(-1, 0, &value));
    EXPECT_EQ(value, "x");
    EXPECT_EQ(TextOf(copy), "(0,0)\n\n");
}

TEST(DataTreeEdge, ANewHoleAtTheEndIsUsedAgain) {
    // Only the largest index that still stands counts, not the largest that ever stood.
    TStringTree tree;
    tree.InsertSubtree("", 3, 0);
    tree.InsertSubtree("", 3, 7);
    EXPECT_EQ(tree.GetFreeSubtreeIndex(3), 8);
    tree.DeleteSubtree(3, 7);
    EXPECT_EQ(tree.GetFreeSubtreeIndex(3), 1);
}

TEST(DataTreeEdge, SeveralThreadsReadOneTreeAndTextsOfTheirOwn) {
    TStringTree shared;
    FillWorkedExample(&shared);
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&shared, &failures] {
            for (int round = 0; round < 200; ++round) {
                std::string name;
                bool good = shared.FindSubtree(7, 2)->GetString(5320, 0, &name) && name == "A";
                good = good && TextOf(shared) == WorkedExample && Rewritten(WorkedExample) == WorkedExample;
                failures += good ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(failures, 0);
}

TEST(DataTreeEdge, CountBeyond64BitsIsRefusedWithASignToo) {
    // strtoull gives the largest number for it, whatever the sign.
    TStringTree tree;
    EXPECT_THROW(Read(&tree, "(0,0)\n(1,0)[-99999999999999999999999]h\tA\n\n"), std::bad_alloc);
}

TEST(NumberTextEdge, ScanOfAnIntegerOutOfRangeKeepsItsLow32Bits) {
    // 12345678901 - 3 * 2^32 = -539222987
    int value = 0;
    EXPECT_EQ(KvRefSystem::ScanText("12345678901", "%d", &value), 1);
    EXPECT_EQ(value, -539222987);
}

TEST(NumberTextEdge, WholeNumberRefusesANanWithAPayload) {
    double value = 4.5;
    EXPECT_FALSE(KvRefSystem::ParseWholeDouble("nan(1)", &value));
    EXPECT_EQ(value, 4.5);
}
