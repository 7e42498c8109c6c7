#include "frame/DataTree.h"

#include "frame/imported/StringTree.h"
#include "tests/frame/DataTreeText.h"

#include <gtest/gtest.h>

#include <ctime>
#include <new>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

using namespace DataTreeText;
using KvRefSystem::MaxTreeDepth;
using KvRefSystem::TDataField;
using KvRefSystem::TDataTree;
using KvRefSystem::TStringField;
using KvRefSystem::TStringTree;

namespace {

/** `levels` trees inside of one another. */
std::string NestedText(unsigned long levels) {
    std::string text;
    for (unsigned long level = 0; level < levels; ++level) {
        text += std::string(level, '\t') + "(1,0)\n";
    }
    for (unsigned long level = levels; level-- > 0;) {
        text += std::string(level, '\t') + "\n";
    }
    return text;
}

unsigned long LevelsOf(TDataTree<std::string> const* tree) {
    unsigned long levels = 1;
    for (; tree->subtrees.Size() != 0; tree = tree->subtrees[0]) {
        ++levels;
    }
    return levels;
}

} // namespace

TEST(DataTreeDamagedText, EveryPrefixOfAGoodTextReadsToItsEnd) {
    TStringTree tree(0, 0, nullptr, "header (with) [all]");
    FillWorkedExample(&tree);
    std::string values[] = {"a\tb", "", "\\", std::string("\0x", 2)};
    tree.FindSubtree(7, 2)->InsertSubtree("deep", 12, 345);
    tree.FindSubtree(7, 2)->FindSubtree(12, 345)->InsertField("four", 10, 10, values, 4);
    std::string const text = TextOf(tree);
    for (std::size_t length = 0; length < text.size(); ++length) {
        TStringTree read;
        EXPECT_EQ(Read(&read, text.substr(0, length)), length) << length;
    }
}

TEST(DataTreeDamagedText, TextThatEndsEarlyKeepsWhatItHas) {
    EXPECT_EQ(Rewritten(""), "(0,0)\n\n");
    EXPECT_EQ(Rewritten("(3"), "(3,0)\n\n");
    EXPECT_EQ(Rewritten("(3,4)he"), "(3,4)he\n\n");
    EXPECT_EQ(Rewritten("(0,0)\n(1,0)[1]co"), "(0,0)\n(1,0)[1]co\t\n\n");
    EXPECT_EQ(Rewritten("(0,0)\n(1,0)[2]code\tA\tB"), "(0,0)\n(1,0)[2]code\tA\tB\n\n");
    EXPECT_EQ(Rewritten("(0,0)\n\t(1,0)unit\n\t(2,0)[1]code\tA\n"),
              "(0,0)\n\t(1,0)unit\n\t(2,0)[1]code\tA\n\t\n\n");
    EXPECT_EQ(Rewritten("(0,0)\n\t\t"), "(0,0)\n\n");
    EXPECT_EQ(Rewritten("\t"), "(0,0)\n\n");
}

TEST(DataTreeDamagedText, NothingIsReadBehindTheClosingNul) {
    std::string const block = std::string("(0,0)\n(1,0)[1]code\tA") + '\0' + "\n(2,0)[1]more\tB\n\n";
    unsigned long position = 0;
    TStringTree tree;
    tree.ReadFromString(block.data(), &position, nullptr);
    EXPECT_EQ(position, 20u);
    EXPECT_EQ(tree.fields.Size(), 1u);
}

TEST(DataTreeDamagedText, MissingTextReadsNothing) {
    unsigned long position = 7;
    TStringTree tree;
    tree.ReadFromString(nullptr, &position, nullptr);
    TStringField field;
    field.ReadFromString(nullptr, &position);
    EXPECT_EQ(position, 7u);
    EXPECT_EQ(TextOf(tree), "(0,0)\n\n");
}

TEST(DataTreeDamagedText, SingleByteChangesNeverDoHarm) {
    TStringTree tree(0, 0, nullptr, "root");
    FillWorkedExample(&tree);
    tree.FindSubtree(7, 2)->InsertSubtree("deep", 12, 345);
    tree.FindSubtree(7, 2)->FindSubtree(12, 345)->InsertField("more", 10, 11, "value");
    std::string const text = TextOf(tree);
    for (std::size_t at = 0; at < text.size(); ++at) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string changed = text;
            changed[at] = static_cast<char>(byte);
            TStringTree read;
            try {
                EXPECT_LE(Read(&read, changed), changed.size());
            } catch (std::bad_alloc const&) {
                // a digit of a count
            }
            TextOf(read);
        }
    }
}

TEST(DataTreeDamagedText, RandomStructureNeverDoesHarm) {
    std::mt19937 random(20240501);
    std::string const alphabet = "()[],\t\t\n\n\\019-+ x";
    std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
    std::uniform_int_distribution<std::size_t> size(0, 200);
    for (int round = 0; round < 20000; ++round) {
        std::string text(size(random), ' ');
        for (char& character : text) {
            character = alphabet[letter(random)];
        }
        TStringTree read;
        try {
            EXPECT_LE(Read(&read, text), text.size());
        } catch (std::bad_alloc const&) {
            continue; // a count that the text can't hold
        }
        std::string const written = TextOf(read);
        EXPECT_FALSE(written.empty());
    }
}

TEST(DataTreeDamagedText, CountLargerThanTheRestOfTheTextIsRefused) {
    for (char const* const count :
         {"18446744073709551615", "-1", "99999999999999999999999", "1000000000", "999999", "1000", "25"}) {
        std::string const text = std::string("(0,0)\n(1,0)[") + count + "]h\tA\n\n";
        TStringTree tree;
        EXPECT_THROW(Read(&tree, text), std::bad_alloc) << count;
        EXPECT_EQ(tree.fields.Size(), 0u);
        TStringTree nested;
        EXPECT_THROW(Read(&nested, "(0,0)\n\t(5,0)\n\t" + text.substr(6)), std::bad_alloc) << count;
    }
}

TEST(DataTreeDamagedText, CountThatTheRestOfTheTextCanHoldIsAllowed) {
    TStringTree tree;
    Read(&tree, "(0,0)\n(1,0)[500]h\tA\n(2,0)[1]long\t" + std::string(1000, 'x') + "\n(3,0)[1]last\tB\n\n");
    ASSERT_EQ(tree.fields.Size(), 3u);
    EXPECT_EQ(tree.fields[0]->count, 500u);
    EXPECT_EQ(tree.fields[0]->values[0], "A");
    EXPECT_EQ(tree.fields[0]->values[499], "");
    EXPECT_EQ(tree.fields[2]->values[0], "B");
}

TEST(DataTreeDamagedText, ManyCountsTogetherMayNotExceedTheText) {
    // Each count fits into what follows its line, but all of them together would take 32 GB.
    std::string text = "(0,0)\n";
    for (int line = 0; line < 1000; ++line) {
        text += "(1,0)[999999]h\tA\n";
    }
    text += "(2,0)[1]long\t" + std::string(1000000, 'x') + "\n\n";
    TStringTree flat;
    EXPECT_THROW(Read(&flat, text), std::bad_alloc);
    EXPECT_LT(flat.fields.Size(), 10u);

    std::string nested = "(0,0)\n";
    for (int level = 1; level < 100; ++level) {
        nested += std::string(static_cast<std::size_t>(level), '\t') + "(1,0)\n(1,0)[999999]h\tA\n";
    }
    nested += "(2,0)[1]long\t" + std::string(1000000, 'x') + "\n\n";
    TStringTree deep;
    EXPECT_THROW(Read(&deep, nested), std::bad_alloc);
    EXPECT_LT(LevelsOf(&deep), 10u);

    // What one reading was refused is no burden for the next.
    TStringTree good;
    Read(&good, WorkedExample);
    EXPECT_EQ(TextOf(good), WorkedExample);
}

TEST(DataTreeDamagedText, ReadingAnotherTextInBetweenDoesNotLiftTheBound) {
    struct TNestingTree : TStringTree {
        using TStringTree::CreateField;
        TDataField<std::string>* CreateField(char const* text, unsigned long* position) override {
            TStringTree other;
            other.ReadFromString(WorkedExample.c_str(), nullptr, nullptr);
            return TStringTree::CreateField(text, position);
        }
    };
    std::string text = "(0,0)\n";
    for (int line = 0; line < 500; ++line) {
        text += "(1,0)[9999]h\tA\n";
    }
    text += "(2,0)[1]long\t" + std::string(10000, 'x') + "\n\n";
    TNestingTree tree;
    EXPECT_THROW(Read(&tree, text), std::bad_alloc);
    EXPECT_LT(tree.fields.Size(), 10u);
}

TEST(DataTreeDamagedText, FieldOfManyValuesIsRead) {
    std::vector<std::string> values(50000);
    TStringTree tree;
    tree.InsertField("many", 1, 0, values.data(), values.size());
    tree.InsertField("more", 2, 0, values.data(), values.size());
    TStringTree read;
    Read(&read, TextOf(tree));
    ASSERT_EQ(read.fields.Size(), 2u);
    EXPECT_EQ(read.fields[1]->count, 50000u);
}

TEST(DataTreeDamagedText, NestingUpToTheLimitIsRead) {
    TStringTree tree;
    std::string const text = NestedText(MaxTreeDepth);
    EXPECT_EQ(Read(&tree, text), text.size());
    EXPECT_EQ(LevelsOf(&tree), 256u);
    EXPECT_EQ(TextOf(tree), text);
}

TEST(DataTreeDamagedText, NestingDeeperThanTheLimitIsRefused) {
    for (unsigned long const levels : {MaxTreeDepth + 1, 2000ul}) {
        TStringTree tree;
        try {
            Read(&tree, NestedText(levels));
            FAIL() << levels << " levels were read";
        } catch (std::runtime_error const& error) {
            // 256 lines of level 0 to 255: 6 bytes each and 0 + 1 + … + 255 TABs
            EXPECT_STREQ(
                error.what(),
                "TDataTree::ReadFromString: the tree at byte 34176 is nested deeper than 256 levels");
        }
    }
}

TEST(DataTreeDamagedText, LongTextsAreReadInLinearTime) {
    // Anything that looks at the whole rest of the text for each line takes minutes here.
    std::string text = "(0,0)\n";
    constexpr unsigned long Lines = 200000;
    for (unsigned long line = 0; line < Lines; ++line) {
        text += "(5301,0)[1]code\t12345\n";
    }
    text += "\n";
    std::clock_t const start = std::clock();
    TStringTree tree;
    EXPECT_EQ(Read(&tree, text), text.size());
    EXPECT_EQ(tree.fields.Size(), Lines);
    EXPECT_LT(std::clock() - start, 10 * CLOCKS_PER_SEC);
}
