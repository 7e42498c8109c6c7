#include "frame/DataTree.h"

#include "frame/imported/StringTree.h"
#include "tests/frame/MemoryXIni.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using KvRefSystem::MaxTreeDepth;
using KvRefSystem::TDataField;
using KvRefSystem::TDataTree;
using KvRefSystem::TStringField;
using KvRefSystem::TStringTree;
using MemoryXIni::TNode;
using MemoryXIni::TReader;
using MemoryXIni::TWriter;

namespace {

std::string TextOf(TDataTree<std::string> const& tree) {
    std::string text(tree.WriteToString(nullptr, 0, 0), '?');
    tree.WriteToString(text.data(), 0, 0);
    return text;
}

/** Two fields, one of them of two values, and a subtree with a field. */
void FillSample(TStringTree* tree) {
    tree->header = "root header";
    tree->InsertString("code", 5301, 0, "0");
    std::string values[] = {"A\tB", ""};
    tree->InsertField("name \t<&>", 5320, 1, values, 2);
    tree->InsertSubtree("unit", 7, 2);
    tree->FindSubtree(7, 2)->InsertString("", 5320, 0, "metre");
}

TNode DocumentOf(TDataTree<std::string> const& tree) {
    TNode document;
    TWriter writer(&document);
    EXPECT_TRUE(tree.WriteToXML(&writer));
    return document;
}

} // namespace

TEST(DataTreeXml, WritesAttributesOfTheTreeAndPlainValuesOfItsFields) {
    TStringTree tree;
    FillSample(&tree);
    TNode document;
    TWriter writer(&document);
    ASSERT_TRUE(tree.WriteToXML(&writer));
    std::vector<std::string> const expected = {
        "@tag=0",
        "@idx=0",
        "@hdr=root header",
        "<field",
        "<~",
        "tag=5301",
        "idx=0",
        "hdr=code",
        "<~data",
        "=0",
        ">",
        ">",
        "<~",
        "tag=5320",
        "idx=1",
        "hdr=name \t<&>",
        "<~data",
        "=A\tB",
        "=",
        ">",
        ">",
        ">",
        "<subtree",
        "<",
        "@tag=7",
        "@idx=2",
        "@hdr=unit",
        "<field",
        "<~",
        "tag=5320",
        "idx=0",
        "hdr=",
        "<~data",
        "=metre",
        ">",
        ">",
        ">",
        ">",
        ">",
    };
    EXPECT_EQ(writer.log, expected);
    EXPECT_EQ(writer.Depth(), 0u);
    EXPECT_FALSE(writer.isAttributeMode);
}

TEST(DataTreeXml, EmptyTreeHasItsThreeAttributesOnly) {
    TStringTree const tree;
    TNode document;
    TWriter writer(&document);
    EXPECT_TRUE(tree.WriteToXML(&writer));
    EXPECT_EQ(writer.log, (std::vector<std::string>{"@tag=0", "@idx=0", "@hdr="}));
}

TEST(DataTreeXml, NegativeFieldsVanishButTheirSectionStands) {
    TStringTree tree;
    tree.InsertString("hidden", -1, 0, "x");
    tree.InsertString("hidden too", 1, -1, "x");
    TNode document;
    TWriter writer(&document);
    EXPECT_TRUE(tree.WriteToXML(&writer));
    EXPECT_EQ(writer.log, (std::vector<std::string>{"@tag=0", "@idx=0", "@hdr=", "<field", ">"}));

    TReader reader(&document);
    TStringTree read;
    EXPECT_TRUE(read.ReadFromXML(&reader, 0, nullptr));
    EXPECT_EQ(read.fields.Size(), 0u);
}

TEST(DataTreeXml, NegativeFieldWritesNothingAndSucceeds) {
    TNode document;
    TWriter writer(&document);
    std::string const value = "x";
    EXPECT_TRUE(TStringField(-1, 0, &value, 1, "").WriteToXML(&writer));
    EXPECT_TRUE(TStringField(0, -1, &value, 1, "").WriteToXML(&writer));
    EXPECT_EQ(writer.operations, 0u);
}

TEST(DataTreeXml, RoundTripKeepsEverythingInOrder) {
    TStringTree tree;
    FillSample(&tree);
    TNode document = DocumentOf(tree);
    TReader reader(&document);
    TStringTree enclosing;
    TStringTree read;
    ASSERT_TRUE(read.ReadFromXML(&reader, 99, &enclosing));
    EXPECT_EQ(reader.Depth(), 0u);
    EXPECT_EQ(read.parent, &enclosing);
    EXPECT_EQ(TextOf(read), TextOf(tree));
    ASSERT_NE(read.FindField(5320, 1), nullptr);
    EXPECT_EQ(read.FindField(5320, 1)->count, 2u);
    EXPECT_EQ(read.FindField(5320, 1)->values[0], "A\tB");
    EXPECT_EQ(read.FindSubtree(7, 2)->parent, &read);
}

TEST(DataTreeXml, FieldWithoutValuesHasAnEmptyDataSection) {
    TStringTree tree;
    tree.InsertField("none", 1, 0, nullptr, 0);
    TNode document = DocumentOf(tree);
    TReader reader(&document);
    TStringTree read;
    ASSERT_TRUE(read.ReadFromXML(&reader, 0, nullptr));
    ASSERT_EQ(read.fields.Size(), 1u);
    EXPECT_EQ(read.fields[0]->count, 0u);
    EXPECT_EQ(read.fields[0]->header, "none");
}

TEST(DataTreeXml, EveryFailingWriteEndsInFalseWithAllSectionsClosed) {
    TStringTree tree;
    FillSample(&tree);
    TNode whole;
    TWriter counter(&whole);
    ASSERT_TRUE(tree.WriteToXML(&counter));
    ASSERT_GT(counter.operations, 30u);

    for (TWriter::TFailure const failure : {TWriter::ReportsFalse, TWriter::Throws}) {
        for (bool const raiseReturns : {false, true}) {
            for (unsigned long operation = 1; operation <= counter.operations; ++operation) {
                TNode document;
                TWriter writer(&document);
                writer.failure = failure;
                writer.failingOperation = operation;
                writer.raiseReturns = raiseReturns;
                EXPECT_FALSE(tree.WriteToXML(&writer)) << operation;
                EXPECT_EQ(writer.Depth(), 0u) << operation;
                EXPECT_LE(writer.raised, 1u) << operation;
            }
        }
    }
}

TEST(DataTreeXml, FailedWriteOfAValueIsReportedToTheWriter) {
    TStringTree tree;
    tree.InsertString("code", 1, 0, "v");
    // 1 attribute mode, 2-4 the tree's values, 5 attribute mode, 6-7 sections, 8-10 the field's values, 11
    // "data", 12 the field's one value
    for (unsigned long const operation : {2ul, 3ul, 4ul, 8ul, 9ul, 10ul, 12ul}) {
        for (bool const raiseReturns : {false, true}) {
            TNode document;
            TWriter writer(&document);
            writer.failure = TWriter::ReportsFalse;
            writer.failingOperation = operation;
            writer.raiseReturns = raiseReturns;
            EXPECT_FALSE(tree.WriteToXML(&writer));
            EXPECT_EQ(writer.raised, 1u) << operation;
            EXPECT_EQ(writer.Depth(), 0u) << operation;
            EXPECT_FALSE(writer.isAttributeMode) << operation;
        }
    }
}

TEST(DataTreeXml, FailingChildEndsTheWritingOfItsParent) {
    TStringTree tree;
    tree.InsertSubtree("first", 1, 0);
    tree.InsertSubtree("second", 1, 1);
    TNode document;
    TWriter writer(&document);
    // 1-5 the root's attributes, 6 "subtree", 7 the first child's section, 8 attribute mode, 9 its tag
    writer.failure = TWriter::ReportsFalse;
    writer.failingOperation = 9;
    EXPECT_FALSE(tree.WriteToXML(&writer));
    EXPECT_EQ(writer.log, (std::vector<std::string>{"@tag=0", "@idx=0", "@hdr=", "<subtree", "<", ">", ">"}));
}

TEST(DataTreeXml, MissingNumbersOrHeaderFailTheTree) {
    for (char const* const key : {"tag", "idx", "hdr"}) {
        TStringTree tree;
        FillSample(&tree);
        TNode document = DocumentOf(tree);
        document.Drop(key);
        TReader reader(&document);
        TStringTree read;
        EXPECT_FALSE(read.ReadFromXML(&reader, 0, nullptr)) << key;
        EXPECT_EQ(read.fields.Size(), 0u);
    }
}

TEST(DataTreeXml, TagThatIsNoNumberFailsTheTree) {
    TStringTree const tree;
    TNode document = DocumentOf(tree);
    document.Find("tag").text = "x";
    TReader reader(&document);
    TStringTree read;
    EXPECT_FALSE(read.ReadFromXML(&reader, 0, nullptr));
}

TEST(DataTreeXml, MissingListsMeanThatThereAreNone) {
    TStringTree tree;
    FillSample(&tree);
    TNode document = DocumentOf(tree);
    document.Drop("field");
    document.Drop("subtree");
    TReader reader(&document);
    TStringTree read;
    EXPECT_TRUE(read.ReadFromXML(&reader, 0, nullptr));
    EXPECT_EQ(read.fields.Size(), 0u);
    EXPECT_EQ(read.subtrees.Size(), 0u);
}

TEST(DataTreeXml, ListThatIsAValueFailsTheTree) {
    TStringTree tree;
    FillSample(&tree);
    TNode document = DocumentOf(tree);
    document.Find("subtree").isSection = false;
    TReader reader(&document);
    TStringTree read;
    EXPECT_FALSE(read.ReadFromXML(&reader, 0, nullptr));
    EXPECT_EQ(read.fields.Size(), 2u);
    EXPECT_EQ(reader.Depth(), 0u);
}

TEST(DataTreeXml, ListEndsAtTheFirstItemThatIsNoSection) {
    TStringTree tree;
    tree.InsertString("a", 1, 0, "x");
    tree.InsertString("b", 2, 0, "x");
    tree.InsertString("c", 3, 0, "x");
    TNode document = DocumentOf(tree);
    document.Find("field").At(1).isSection = false;
    TReader reader(&document);
    TStringTree read;
    EXPECT_TRUE(read.ReadFromXML(&reader, 0, nullptr));
    ASSERT_EQ(read.fields.Size(), 1u);
    EXPECT_EQ(read.fields[0]->tag, 1);
}

TEST(DataTreeXml, FailedFieldStaysAsFarAsItWasReadAndTheParentGoesOn) {
    TStringTree tree;
    FillSample(&tree);
    TNode document = DocumentOf(tree);
    document.Find("field").At(0).Drop("hdr");
    TReader reader(&document);
    TStringTree read;
    EXPECT_TRUE(read.ReadFromXML(&reader, 0, nullptr));
    ASSERT_EQ(read.fields.Size(), 2u);
    EXPECT_EQ(read.fields[0]->tag, 5301);
    EXPECT_EQ(read.fields[0]->header, "");
    EXPECT_EQ(read.fields[0]->count, 0u);
    EXPECT_EQ(read.fields[1]->values[0], "A\tB");
    EXPECT_EQ(read.subtrees.Size(), 1u);
}

TEST(DataTreeXml, FieldThatFailsInsideOfItsDataLeavesThemForTheNext) {
    TStringTree tree;
    tree.InsertString("a", 1, 0, "x");
    std::string values[] = {"1", "2"};
    tree.InsertField("b", 2, 0, values, 2);
    tree.InsertString("c", 3, 0, "y");
    TNode document = DocumentOf(tree);
    document.Find("field").At(1).Find("data").At(1).isSection = true;
    TReader reader(&document);
    TStringTree read;
    EXPECT_TRUE(read.ReadFromXML(&reader, 0, nullptr));
    EXPECT_EQ(reader.Depth(), 0u);
    ASSERT_EQ(read.fields.Size(), 3u);
    EXPECT_EQ(read.fields[1]->count, 2u);
    EXPECT_EQ(read.fields[1]->values[0], "1");
    EXPECT_EQ(read.fields[1]->values[1], "");
    EXPECT_EQ(read.fields[2]->values[0], "y");
}

TEST(DataTreeXml, FieldWithoutDataFails) {
    TStringTree tree;
    tree.InsertString("a", 1, 0, "x");
    TNode document = DocumentOf(tree);
    TNode& element = document.Find("field").At(0);
    element.Drop("data");
    TReader reader(&element);
    TStringField read;
    EXPECT_FALSE(read.ReadFromXML(&reader));
    EXPECT_EQ(read.tag, 1);
    EXPECT_EQ(read.header, "a");
    EXPECT_EQ(read.count, 0u);
}

TEST(DataTreeXml, FailedSubtreeStaysAndTheParentGoesOn) {
    TStringTree tree;
    tree.InsertSubtree("first", 1, 0);
    tree.FindSubtree(1, 0)->InsertString("a", 5, 0, "x");
    tree.InsertSubtree("second", 1, 1);
    TNode document = DocumentOf(tree);
    document.Find("subtree").At(0).Drop("idx");
    TReader reader(&document);
    TStringTree read;
    EXPECT_TRUE(read.ReadFromXML(&reader, 0, nullptr));
    ASSERT_EQ(read.subtrees.Size(), 2u);
    EXPECT_EQ(read.subtrees[0]->tag, 1);
    EXPECT_EQ(read.subtrees[0]->header, "");
    EXPECT_EQ(read.subtrees[0]->fields.Size(), 0u);
    EXPECT_EQ(read.subtrees[1]->header, "second");
}

TEST(DataTreeXml, EveryThrowingReadLeavesAllSections) {
    TStringTree tree;
    FillSample(&tree);
    TNode document = DocumentOf(tree);
    TReader counter(&document);
    TStringTree whole;
    ASSERT_TRUE(whole.ReadFromXML(&counter, 0, nullptr));
    ASSERT_GT(counter.operations, 20u);
    for (unsigned long operation = 1; operation <= counter.operations; ++operation) {
        TReader reader(&document);
        reader.failingOperation = operation;
        TStringTree read;
        static_cast<void>(read.ReadFromXML(&reader, 0, nullptr));
        EXPECT_EQ(reader.Depth(), 0u) << operation;
        EXPECT_GT(reader.operations, operation - 1);
    }
}

TEST(DataTreeXml, OnlyFailuresOfTheTreeItselfFailIt) {
    TStringTree tree;
    tree.InsertString("code", 1, 0, "v");
    TNode document = DocumentOf(tree);
    // 1-3 the tree's values, 4-5 enter the list and its element, 6-8 the field's values, 9 enter "data",
    // 10 the field's one value, 11 leave "data", 12-13 leave the element and the list
    for (unsigned long operation = 1; operation <= 13; ++operation) {
        TReader reader(&document);
        reader.failingOperation = operation;
        TStringTree read;
        bool const isOfTheField = operation >= 6 && operation <= 11;
        EXPECT_EQ(read.ReadFromXML(&reader, 0, nullptr), isOfTheField) << operation;
        EXPECT_EQ(read.fields.Size(), operation >= 6 ? 1u : 0u) << operation;
    }
    for (unsigned long operation = 1; operation <= 6; ++operation) {
        TReader reader(&document.Find("field").At(0));
        reader.failingOperation = operation;
        TStringField read;
        EXPECT_FALSE(read.ReadFromXML(&reader)) << operation;
        EXPECT_EQ(reader.Depth(), 0u) << operation;
    }
}

TEST(DataTreeXml, ReadingDoesNotCheckForDuplicates) {
    TStringTree tree;
    tree.InsertString("a", 1, 0, "x");
    TNode document = DocumentOf(tree);
    TNode& list = document.Find("field");
    list.children.push_back(list.At(0));
    TReader reader(&document);
    TStringTree read;
    EXPECT_TRUE(read.ReadFromXML(&reader, 0, nullptr));
    EXPECT_EQ(read.fields.Size(), 2u);
}

TEST(DataTreeXml, GenericTreeKeepsFieldsWithoutTheirValues) {
    TStringTree tree;
    FillSample(&tree);
    TNode document = DocumentOf(tree);
    TReader reader(&document);
    TDataTree<std::string> read(0, 0, nullptr, "");
    EXPECT_TRUE(read.ReadFromXML(&reader, 0, nullptr));
    ASSERT_EQ(read.fields.Size(), 2u);
    EXPECT_EQ(read.fields[1]->count, 2u);
    EXPECT_EQ(read.fields[1]->values[0], "");
    EXPECT_EQ(read.subtrees.Size(), 1u);
}

TEST(DataTreeXml, TreesDeeperThanTheLimitAreCutThere) {
    TNode document = DocumentOf(TStringTree());
    TNode* deepest = &document;
    for (unsigned long level = 2; level <= MaxTreeDepth + 50; ++level) {
        TNode const child = DocumentOf(TStringTree());
        deepest->children.push_back(TNode{"subtree", "", true, {child}});
        deepest = &deepest->children.back().children.back();
        deepest->isSection = true;
    }
    TReader reader(&document);
    TStringTree read;
    EXPECT_TRUE(read.ReadFromXML(&reader, 0, nullptr));
    EXPECT_EQ(reader.Depth(), 0u);
    unsigned long levels = 0;
    for (TDataTree<std::string> const* tree = &read; tree; ++levels) {
        tree = tree->subtrees.Size() ? tree->subtrees[0] : nullptr;
    }
    // the first one beyond the limit stays as a failed child, empty
    EXPECT_EQ(levels, MaxTreeDepth + 1);
}

TEST(DataTreeXml, MissingReaderOrWriterIsAFailure) {
    TStringTree tree;
    std::string const value = "x";
    TStringField field(1, 0, &value, 1, "");
    EXPECT_FALSE(tree.WriteToXML(nullptr));
    EXPECT_FALSE(tree.ReadFromXML(nullptr, 0, nullptr));
    EXPECT_FALSE(field.WriteToXML(nullptr));
    EXPECT_FALSE(field.ReadFromXML(nullptr));
    EXPECT_EQ(field.values[0], "x");
}
