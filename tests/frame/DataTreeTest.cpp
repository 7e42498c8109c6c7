#include "frame/DataTree.h"

#include "frame/imported/StringTree.h"
#include "tests/frame/DataTreeText.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

using namespace DataTreeText;
using KvRefSystem::TDataField;
using KvRefSystem::TDataTree;
using KvRefSystem::TPtrVector;
using KvRefSystem::TStringField;
using KvRefSystem::TStringTree;

// --- Operations --------------------------------------------------------------------------------------------

TEST(DataTree, IsBuiltWithItsParentAndLabel) {
    TStringTree root(0, 0, nullptr, "root");
    TStringTree const child(3, 4, &root, "child");
    EXPECT_EQ(root.parent, nullptr);
    EXPECT_EQ(child.parent, &root);
    EXPECT_EQ(child.tag, 3);
    EXPECT_EQ(child.idx, 4);
    EXPECT_EQ(child.header, "child");
}

TEST(DataTree, InsertNeverReplaces) {
    TStringTree tree;
    EXPECT_TRUE(tree.InsertField("first", 1, 0, "old"));
    EXPECT_FALSE(tree.InsertField("second", 1, 0, "new"));
    std::string values[] = {"new", "newer"};
    EXPECT_FALSE(tree.InsertField("third", 1, 0, values, 2));
    ASSERT_EQ(tree.fields.Size(), 1u);
    EXPECT_EQ(tree.fields[0]->header, "first");
    EXPECT_EQ(tree.fields[0]->values[0], "old");
    EXPECT_TRUE(tree.InsertField("second", 1, 1, "new"));
    EXPECT_TRUE(tree.InsertField("third", 2, 0, values, 2));
    EXPECT_EQ(tree.fields[2]->count, 2u);
    EXPECT_EQ(tree.fields[2]->values[1], "newer");
    values[1] = "changed";
    EXPECT_EQ(tree.fields[2]->values[1], "newer");

    EXPECT_TRUE(tree.InsertSubtree("first", 1, 0));
    EXPECT_FALSE(tree.InsertSubtree("second", 1, 0));
    ASSERT_EQ(tree.subtrees.Size(), 1u);
    EXPECT_EQ(tree.subtrees[0]->header, "first");
    EXPECT_EQ(tree.subtrees[0]->parent, &tree);
}

TEST(DataTree, FieldAndSubtreeMayShareAPair) {
    TStringTree tree;
    EXPECT_TRUE(tree.InsertField("field", 1, 0, "x"));
    EXPECT_TRUE(tree.InsertSubtree("subtree", 1, 0));
    EXPECT_EQ(Rewritten(TextOf(tree)), TextOf(tree));
}

TEST(DataTree, NothingIsFoundByItsHeader) {
    TStringTree tree;
    EXPECT_TRUE(tree.InsertField("same", 1, 0, "x"));
    EXPECT_TRUE(tree.InsertField("same", 2, 0, "y"));
    EXPECT_TRUE(tree.InsertSubtree("same", 1, 0));
    EXPECT_TRUE(tree.InsertSubtree("same", 2, 0));
    EXPECT_EQ(tree.FindField(2, 0)->values[0], "y");
}

TEST(DataTree, DeleteTakesTheFirstMatchAndClosesTheGap) {
    TStringTree tree;
    Read(&tree,
         "(0,0)\n(1,0)[1]a\tA\n(2,0)[1]b\tB\n(1,0)[1]c\tC\n\t(3,0)d\n\t(1,0)[1]e\tE\n\t\n\t(4,0)f\n\t\n\n");
    tree.DeleteField(1, 0);
    ASSERT_EQ(tree.fields.Size(), 2u);
    EXPECT_EQ(tree.fields[0]->header, "b");
    EXPECT_EQ(tree.fields[1]->header, "c");
    tree.DeleteSubtree(3, 0);
    ASSERT_EQ(tree.subtrees.Size(), 1u);
    EXPECT_EQ(tree.subtrees[0]->header, "f");
    tree.DeleteField(99, 0);
    tree.DeleteSubtree(3, 0);
    EXPECT_EQ(tree.fields.Size(), 2u);
    EXPECT_EQ(tree.subtrees.Size(), 1u);
}

TEST(DataTree, IndexListIsAppendedInOrderAndNotCleared) {
    TStringTree tree;
    for (int const idx : {7, 0, 2}) {
        tree.InsertSubtree("", 3, idx);
        tree.InsertSubtree("", 4, idx + 100);
    }
    std::vector<int> list = {42};
    EXPECT_EQ(tree.GetSubtreesIndexList(3, &list), 3u);
    EXPECT_EQ(list, (std::vector<int>{42, 7, 0, 2}));
    EXPECT_EQ(tree.GetSubtreesIndexList(5, &list), 0u);
    EXPECT_EQ(list.size(), 4u);
}

TEST(DataTree, FreeIndexIsOneAboveTheLargestAndGapsAreNotReused) {
    TStringTree tree;
    EXPECT_EQ(tree.GetFreeSubtreeIndex(3), 0);
    for (int const idx : {0, 2, 7}) {
        tree.InsertSubtree("", 3, idx);
    }
    tree.InsertSubtree("", 4, 100);
    EXPECT_EQ(tree.GetFreeSubtreeIndex(3), 8);
    EXPECT_EQ(tree.GetFreeSubtreeIndex(5), 0);
    tree.InsertSubtree("", 6, 5);
    tree.InsertSubtree("", 6, 0);
    EXPECT_EQ(tree.GetFreeSubtreeIndex(6), 6);
    tree.InsertSubtree("", 7, -5);
    EXPECT_EQ(tree.GetFreeSubtreeIndex(7), -4);
}

TEST(DataTree, FreeIndexStaysAtTheLargestInt) {
    TStringTree tree;
    tree.InsertSubtree("", 3, LargestInt);
    EXPECT_EQ(tree.GetFreeSubtreeIndex(3), LargestInt);
}

TEST(DataTree, PointerVectorEndsItsElementsFromFirstToLastAsPlainOnes) {
    struct TProbe {
        TProbe(int probeNumber, std::vector<int>* probeLog) : number(probeNumber), log(probeLog) {}
        ~TProbe() { log->push_back(number); }
        int number;
        std::vector<int>* log;
    };
    std::vector<int> log;
    {
        TPtrVector<TProbe> probes;
        probes.Append(new TProbe(1, &log));
        probes.Append(nullptr);
        probes.Append(new TProbe(2, &log));
        probes.Append(new TProbe(3, &log));
        EXPECT_EQ(probes.Size(), 4u);
        probes.Delete(2);
        EXPECT_EQ(log, (std::vector<int>{2}));
        EXPECT_EQ(probes.Size(), 3u);
        EXPECT_EQ(probes[2]->number, 3);
    }
    EXPECT_EQ(log, (std::vector<int>{2, 1, 3}));
}

// --- Copying -----------------------------------------------------------------------------------------------

TEST(DataTree, CopyTakesEverythingInOrder) {
    TStringTree tree;
    FillWorkedExample(&tree);
    tree.InsertField("hidden", -1, 0, "stays in memory");
    std::string const bytes("a\tb\nc\\\0d\r", 9);
    tree.InsertField("bytes", 9, 0, bytes);
    TStringTree copy;
    EXPECT_TRUE(tree.CopyTo(&copy));
    EXPECT_EQ(TextOf(copy), TextOf(tree));
    ASSERT_NE(copy.FindField(-1, 0), nullptr);
    EXPECT_EQ(copy.FindField(9, 0)->values[0], bytes);
    EXPECT_EQ(copy.FindSubtree(7, 2)->parent, &copy);
}

TEST(DataTree, CopyOfNothingSucceeds) {
    TStringTree const tree;
    TStringTree copy;
    EXPECT_TRUE(tree.CopyTo(&copy));
    EXPECT_TRUE(tree.CopyTo(&copy));
    EXPECT_FALSE(tree.CopyTo(nullptr));
}

TEST(DataTree, CopyStopsAtTheFirstTakenPairAndKeepsWhatItCopied) {
    TStringTree tree;
    for (int const tag : {1, 2, 3}) {
        tree.InsertField("new", tag, 0, "new");
    }
    tree.InsertSubtree("new", 1, 0);
    TStringTree target;
    target.InsertField("old", 2, 0, "old");
    EXPECT_FALSE(tree.CopyTo(&target));
    EXPECT_EQ(TextOf(target), "(0,0)\n(2,0)[1]old\told\n(1,0)[1]new\tnew\n\n");
}

TEST(DataTree, CopyStopsAtATakenSubtree) {
    TStringTree tree;
    tree.InsertSubtree("", 1, 0);
    tree.FindSubtree(1, 0)->InsertField("f", 5, 0, "x");
    tree.InsertSubtree("", 1, 1);
    TStringTree target;
    target.InsertSubtree("old", 1, 1);
    EXPECT_FALSE(tree.CopyTo(&target));
    ASSERT_EQ(target.subtrees.Size(), 2u);
    EXPECT_EQ(target.subtrees[1]->fields.Size(), 1u);
}

TEST(DataTree, CopyOfADuplicatePairFailsDeepInside) {
    TStringTree tree;
    Read(&tree, "(0,0)\n\t(1,0)\n\t(5,0)[1]a\tA\n\t(5,0)[1]b\tB\n\t\n\t(2,0)\n\t\n\n");
    TStringTree target;
    EXPECT_FALSE(tree.CopyTo(&target));
    EXPECT_EQ(TextOf(target), "(0,0)\n\t(1,0)\n\t(5,0)[1]a\tA\n\t\n\n");
}

TEST(DataTree, CopyIntoAnOwnDescendantTakesWhatStoodBefore) {
    TStringTree tree;
    tree.InsertField("f", 1, 0, "x");
    tree.InsertSubtree("a", 2, 0);
    tree.FindSubtree(2, 0)->InsertSubtree("b", 3, 0);
    EXPECT_TRUE(tree.CopyTo(tree.FindSubtree(2, 0)));
    EXPECT_EQ(TextOf(tree), "(0,0)\n"
                            "(1,0)[1]f\tx\n"
                            "\t(2,0)a\n"
                            "\t(1,0)[1]f\tx\n"
                            "\t\t(3,0)b\n"
                            "\t\t\n"
                            "\t\t(2,0)a\n"
                            "\t\t\t(3,0)b\n"
                            "\t\t\t\n"
                            "\t\t\n"
                            "\t\n"
                            "\n");
}

TEST(DataTree, CopyIntoItselfFindsItsPairsTaken) {
    TStringTree tree;
    FillWorkedExample(&tree);
    EXPECT_FALSE(tree.CopyTo(&tree));
    EXPECT_EQ(TextOf(tree), WorkedExample);
}

// --- Writing -----------------------------------------------------------------------------------------------

TEST(DataTree, EmptyRootIsSevenBytes) {
    TStringTree const tree;
    EXPECT_EQ(TextOf(tree), "(0,0)\n\n");
    EXPECT_EQ(tree.WriteToString(nullptr, 0, 0), 7u);
    TStringTree read;
    EXPECT_EQ(Read(&read, "(0,0)\n\n"), 7u);
    EXPECT_EQ(read.header, "");
    EXPECT_EQ(read.fields.Size() + read.subtrees.Size(), 0u);
}

TEST(DataTree, WorkedExampleIsItsSixLines) {
    TStringTree tree;
    FillWorkedExample(&tree);
    EXPECT_EQ(TextOf(tree), WorkedExample);
    EXPECT_EQ(Rewritten(WorkedExample), WorkedExample);
}

TEST(DataTree, NegativeFieldsAreNeverPersisted) {
    TStringTree tree;
    tree.InsertField("hidden", -1, 0, "x");
    tree.InsertField("hidden too", 0, -1, "x");
    EXPECT_EQ(TextOf(tree), "(0,0)\n\n");
    EXPECT_EQ(tree.fields[0]->WriteToString(nullptr, 0, 5), 0u);
    EXPECT_EQ(tree.fields[1]->WriteToString(nullptr, 0, 5), 0u);
}

TEST(DataTree, BothPassesAgreeForEveryNumber) {
    for (int const number :
         {0, 1, 2, 9, 10, 99, 100, 999999999, 1000000000, LargestInt, -1, -10, SmallestInt}) {
        std::string const digits = std::to_string(number);
        TStringTree const tree(number, number, nullptr, "h");
        EXPECT_EQ(TextOf(tree), "(" + digits + "," + digits + ")h\n\n");
        if (number >= 0) {
            TStringTree holder;
            holder.InsertField("f", number, number, "v");
            EXPECT_EQ(TextOf(holder), "(0,0)\n(" + digits + "," + digits + ")[1]f\tv\n\n");
        }
    }
    for (unsigned long const count : {9ul, 10ul, 99ul, 100ul}) {
        std::vector<std::string> values(count, "v");
        TStringTree tree;
        tree.InsertField("f", 1, 0, values.data(), count);
        std::string line = "(1,0)[" + std::to_string(count) + "]f";
        for (unsigned long value = 0; value < count; ++value) {
            line += "\tv";
        }
        EXPECT_EQ(TextOf(tree), "(0,0)\n" + line + "\n\n");
    }
}

TEST(DataTree, LengthOfALineHoldsAllDigitsOfALargeCount) {
    // The values needn't be there: the generic class never looks at one.
    struct TCountedField : TDataField<std::string> {
        unsigned long WriteLine(char* buffer) {
            unsigned long const before = count;
            count = 1000000;
            unsigned long const length = WriteToString(buffer, 0, 0);
            count = before;
            return length;
        }
    };
    TCountedField field;
    // "(0,0)[1000000]", a TAB a value, LF
    EXPECT_EQ(field.WriteLine(nullptr), 14u + 1000000u + 1u);
}

TEST(DataTree, WriterStaysInsideOfItsBytes) {
    TStringTree tree;
    FillWorkedExample(&tree);
    std::string buffer(5 + WorkedExample.size() + 5, '#');
    EXPECT_EQ(tree.WriteToString(buffer.data(), 5, 0), WorkedExample.size());
    EXPECT_EQ(buffer, "#####" + WorkedExample + "#####");
}

TEST(DataTree, LevelIndentsEveryLine) {
    TStringTree tree;
    FillWorkedExample(&tree);
    std::string buffer(tree.WriteToString(nullptr, 0, 2), '#');
    tree.WriteToString(buffer.data(), 0, 2);
    EXPECT_EQ(
        buffer,
        "\t\t(0,0)\n\t\t(5301,0)[1]code\t0\n\t\t\t(7,2)unit\n\t\t\t(5320,0)[2]name\tA\tB\n\t\t\t\n\t\t\n");
}

TEST(DataTree, EmptyValueKeepsItsTab) {
    TStringTree tree;
    tree.InsertField("hdr", 1, 0, "");
    EXPECT_EQ(TextOf(tree), "(0,0)\n(1,0)[1]hdr\t\n\n");
    TStringTree read;
    Read(&read, TextOf(tree));
    ASSERT_EQ(read.fields.Size(), 1u);
    EXPECT_EQ(read.fields[0]->count, 1u);
    EXPECT_EQ(read.fields[0]->values[0], "");
}

TEST(DataTree, FieldWithoutValuesWritesNoTabAndTakesInTheFollowingLine) {
    TStringTree tree;
    tree.InsertField("none", 1, 0, nullptr, 0);
    tree.InsertField("next", 2, 0, "x");
    EXPECT_EQ(TextOf(tree), "(0,0)\n(1,0)[0]none\n(2,0)[1]next\tx\n\n");
    TStringTree read;
    Read(&read, TextOf(tree));
    ASSERT_EQ(read.fields.Size(), 1u);
    EXPECT_EQ(read.fields[0]->header, "none\n(2,0)[1]next");
    EXPECT_EQ(read.fields[0]->count, 0u);
}

TEST(DataTree, GenericFieldHasNoCodec) {
    std::string const value = "x";
    TDataField<std::string> field(1, 0, &value, 1, "h");
    EXPECT_EQ(field.ValueToString(0, nullptr, 0), 0u);
    EXPECT_EQ(field.ValueToString(0), "");
    EXPECT_FALSE(field.StringToValue("y", 1, 0));
    EXPECT_FALSE(field.StringToValue(std::string("y"), 0));
    EXPECT_EQ(field.values[0], "x");
    char buffer[16];
    EXPECT_EQ(std::string(buffer, field.WriteToString(buffer, 0, 0)), "(1,0)[1]h\t\n");
}

TEST(DataTree, GenericTreeIsFilledCopiedAndSearchedLikeAnother) {
    TDataTree<std::string> tree(0, 0, nullptr, "root");
    std::string values[] = {"a", "b"};
    EXPECT_TRUE(tree.InsertField("one", 1, 0, values[0]));
    EXPECT_TRUE(tree.InsertField("two", 2, 0, values, 2));
    EXPECT_TRUE(tree.InsertSubtree("below", 3, 4));
    EXPECT_FALSE(tree.InsertField("one", 1, 0, values[1]));
    EXPECT_FALSE(tree.InsertField("two", 2, 0, values, 1));
    EXPECT_FALSE(tree.InsertSubtree("below", 3, 4));

    TDataTree<std::string> copy(0, 0, nullptr, "copy");
    EXPECT_TRUE(tree.CopyTo(&copy));

    ASSERT_EQ(copy.fields.Size(), 2u);
    EXPECT_EQ(copy.fields[0]->values[0], "a");
    EXPECT_EQ(copy.fields[1]->count, 2u);
    EXPECT_EQ(copy.fields[1]->values[1], "b");
    ASSERT_EQ(copy.subtrees.Size(), 1u);
    EXPECT_EQ(copy.subtrees[0]->parent, &copy);
    EXPECT_EQ(copy.GetFreeSubtreeIndex(3), 5);
}

TEST(DataTree, AnyBytesSurviveInValuesAndFieldHeaders) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    bytes += "\\t\\n\\0\\\\ \xC3\xA9 %d \"quoted\"\\";
    TStringTree tree;
    tree.InsertField(bytes, 1, 0, bytes);
    TStringTree read;
    EXPECT_EQ(Read(&read, TextOf(tree)), TextOf(tree).size());
    ASSERT_EQ(read.fields.Size(), 1u);
    EXPECT_EQ(read.fields[0]->header, bytes);
    EXPECT_EQ(read.fields[0]->values[0], bytes);
}

TEST(DataTree, TreeHeadersAreRawAndFieldHeadersEncoded) {
    TStringTree tree(0, 0, nullptr, "a\\b \tc ");
    tree.InsertField("a\\b \tc ", 1, 0, "");
    EXPECT_EQ(TextOf(tree), "(0,0)a\\b \tc \n(1,0)[1]a\\\\b \\tc \t\n\n");
    TStringTree read;
    Read(&read, TextOf(tree));
    EXPECT_EQ(read.header, "a\\b \tc ");
    EXPECT_EQ(read.fields[0]->header, "a\\b \tc ");
}

TEST(DataTree, LineFeedInATreeHeaderCutsTheTreeLine) {
    TStringTree const tree(0, 0, nullptr, "a\n\nb");
    TStringTree read;
    EXPECT_EQ(Read(&read, TextOf(tree)), 8u);
    EXPECT_EQ(read.header, "a");
}

// --- Reading -----------------------------------------------------------------------------------------------

TEST(DataTree, HeadersMayHoldClosingBrackets) {
    std::string const text = "(0,0)a)b]c\n(1,0)[1]d)e]f\tx\n\n";
    TStringTree read;
    Read(&read, text);
    EXPECT_EQ(read.header, "a)b]c");
    EXPECT_EQ(read.fields[0]->header, "d)e]f");
    EXPECT_EQ(TextOf(read), text);
}

TEST(DataTree, ReadingReplacesTheHeaderAndStoresTheParent) {
    TStringTree enclosing;
    TStringTree tree(9, 9, nullptr, "old");
    tree.ReadFromString("(1,2)new\n\n", nullptr, &enclosing);
    EXPECT_EQ(tree.header, "new");
    EXPECT_EQ(tree.tag, 1);
    EXPECT_EQ(tree.idx, 2);
    EXPECT_EQ(tree.parent, &enclosing);
}

TEST(DataTree, PositionIsThatOfTheTreeAndOfWhatFollowsIt) {
    std::string const text = "##" + WorkedExample + "rest";
    unsigned long position = 2;
    TStringTree tree;
    tree.ReadFromString(text.c_str(), &position, nullptr);
    EXPECT_EQ(position, 2 + WorkedExample.size());
    EXPECT_EQ(TextOf(tree), WorkedExample);
}

TEST(DataTree, LevelIsThatOfTheTextAndNotOfTheCall) {
    TStringTree tree;
    std::string const text = "\t\t(0,0)h\n\t\t(1,0)[1]f\tx\n\t\t\t(2,0)s\n\t\t\t\n\t\t\n";
    EXPECT_EQ(Read(&tree, text), text.size());
    EXPECT_EQ(TextOf(tree), "(0,0)h\n(1,0)[1]f\tx\n\t(2,0)s\n\t\n\n");
    // any number of TABs more opens a subtree
    EXPECT_EQ(Rewritten("(0,0)\n\t\t\t(1,0)\n\t\t\t\n\n"), "(0,0)\n\t(1,0)\n\t\n\n");
}

TEST(DataTree, LineWithFewerTabsCountsAsOneAtTheLevel) {
    TStringTree tree;
    Read(&tree, "(0,0)\n\t(1,0)s\n(2,0)[1]f\tx\n\n(3,0)[1]g\ty\n\n");
    ASSERT_EQ(tree.subtrees.Size(), 1u);
    ASSERT_EQ(tree.subtrees[0]->fields.Size(), 1u);
    EXPECT_EQ(tree.subtrees[0]->fields[0]->tag, 2);
    ASSERT_EQ(tree.fields.Size(), 1u);
    EXPECT_EQ(tree.fields[0]->tag, 3);
}

TEST(DataTree, FieldsAndSubtreesMayBeInterleavedInAText) {
    EXPECT_EQ(Rewritten("(0,0)\n\t(1,0)s\n\t\n(2,0)[1]f\tx\n\n"), "(0,0)\n(2,0)[1]f\tx\n\t(1,0)s\n\t\n\n");
}

TEST(DataTree, ReadingDoesNotCheckForDuplicates) {
    std::string const text = "(0,0)\n(1,0)[1]a\tx\n(1,0)[1]b\ty\n\t(1,0)c\n\t\n\t(1,0)d\n\t\n\n";
    EXPECT_EQ(Rewritten(text), text);
}

TEST(DataTree, CarriageReturnIsNotStructural) {
    TStringTree tree;
    Read(&tree, "(0,0)h\r\n(1,0)[1]f\tx\r\n\r\n\n");
    EXPECT_EQ(tree.header, "h\r");
    ASSERT_GE(tree.fields.Size(), 1u);
    EXPECT_EQ(tree.fields[0]->values[0], "x\r");
}

TEST(DataTree, LineDecidesHowManyValuesAreDelivered) {
    TStringTree tree;
    Read(&tree, "(0,0)\n(1,0)[3]few\tA\n(2,0)[1]many\tA\tB\tC\n(3,0)[0]none\tA\n\n");
    ASSERT_EQ(tree.fields.Size(), 3u);
    EXPECT_EQ(tree.fields[0]->count, 3u);
    EXPECT_EQ(tree.fields[0]->values[0], "A");
    EXPECT_EQ(tree.fields[0]->values[2], "");
    EXPECT_EQ(tree.fields[1]->count, 1u);
    EXPECT_EQ(tree.fields[1]->values[0], "A");
    EXPECT_EQ(tree.fields[2]->count, 0u);
}

TEST(DataTree, NumbersAreScannedWithBlanksAndSigns) {
    TStringTree tree;
    Read(&tree, "( +1,\t-2)h\n( 5, +6)[ 1]f\tx\n(7,8)[-0]g\n\n");
    EXPECT_EQ(tree.tag, 1);
    EXPECT_EQ(tree.idx, -2);
    EXPECT_EQ(tree.fields[0]->tag, 5);
    EXPECT_EQ(tree.fields[0]->idx, 6);
    EXPECT_EQ(tree.fields[0]->values[0], "x");
}

TEST(DataTree, NumbersOutOfRangeAreClamped) {
    TStringTree tree;
    Read(&tree, "(2147483648,-2147483649)\n(99999999999999999999,-99999999999999999999)[1]f\tx\n"
                "(2147483647,-2147483648)[1]g\tx\n\n");
    EXPECT_EQ(tree.tag, LargestInt);
    EXPECT_EQ(tree.idx, SmallestInt);
    EXPECT_EQ(tree.fields[0]->tag, LargestInt);
    EXPECT_EQ(tree.fields[0]->idx, SmallestInt);
    EXPECT_EQ(tree.fields[1]->tag, LargestInt);
    EXPECT_EQ(tree.fields[1]->idx, SmallestInt);
}

TEST(DataTree, NumbersBeyond64BitsDoNotWrap) {
    // 2^64 + 1
    TStringTree tree;
    Read(&tree, "(18446744073709551617,-18446744073709551617)\n\n");
    EXPECT_EQ(tree.tag, LargestInt);
    EXPECT_EQ(tree.idx, SmallestInt);
    EXPECT_THROW(Read(&tree, "(0,0)\n(1,0)[18446744073709551617]f\tx\n\n"), std::bad_alloc);
}

TEST(DataTree, FailedScanLeavesZeros) {
    struct {
        char const* line;
        int tag;
        int idx;
        unsigned long count;
    } const rows[] = {{"(x,5)[1]f\tv\n", 0, 0, 0}, {"(4,x)[1]f\tv\n", 4, 0, 0},  {"(4,5)[x]f\tv\n", 4, 5, 0},
                      {"(4;5)[1]f\tv\n", 4, 0, 0}, {"4,5)[1]f\tv\n", 0, 0, 0},   {"(4,5) [1]f\tv\n", 4, 5, 0},
                      {"(4,-)[1]f\tv\n", 4, 0, 0}, {"(4,5)[1x]f\tv\n", 4, 5, 1}, {"(,5)[1]f\tv\n", 0, 0, 0}};
    for (auto const& row : rows) {
        TStringField field;
        unsigned long position = 0;
        field.ReadFromString(row.line, &position);
        EXPECT_EQ(field.tag, row.tag) << row.line;
        EXPECT_EQ(field.idx, row.idx) << row.line;
        EXPECT_EQ(field.count, row.count) << row.line;
        EXPECT_EQ(position, std::string(row.line).size()) << row.line;
        EXPECT_EQ(field.header, "f") << row.line;
    }
}

TEST(DataTree, FieldIsReadAgainFromTheBeginning) {
    std::string const values[] = {"1", "2", "3"};
    TStringField field(9, 9, values, 3, "old");
    field.ReadFromString("(1,0)[1]new\tx\n", nullptr);
    EXPECT_EQ(field.count, 1u);
    EXPECT_EQ(field.values[0], "x");
    EXPECT_EQ(field.header, "new");
}

TEST(DataTree, GenericTreeReadsStructureWithoutValues) {
    TDataTree<std::string> tree(0, 0, nullptr, "");
    Read(&tree, WorkedExample);
    ASSERT_EQ(tree.fields.Size(), 1u);
    EXPECT_EQ(tree.fields[0]->header, "code");
    EXPECT_EQ(tree.fields[0]->values[0], "");
    ASSERT_EQ(tree.subtrees.Size(), 1u);
    EXPECT_EQ(tree.subtrees[0]->parent, &tree);
    EXPECT_EQ(tree.subtrees[0]->fields[0]->count, 2u);
    EXPECT_EQ(TextOf(tree), "(0,0)\n(5301,0)[1]code\t\n\t(7,2)unit\n\t(5320,0)[2]name\t\t\n\t\n\n");
}
