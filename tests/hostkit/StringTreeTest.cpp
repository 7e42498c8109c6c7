#include "frame/imported/StringTree.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <string>

using LumCommonUtils::TStringField;
using LumCommonUtils::TStringTree;

static_assert(sizeof(TStringField) == sizeof(KvRefSystem::TDataField<std::string>),
              "a field is ended as its base and so has no members of its own");
static_assert(sizeof(TStringTree) == sizeof(KvRefSystem::TDataTree<std::string>),
              "a tree is ended as its base and so has no members of its own");

namespace {

std::string TextOf(TStringTree const& tree) {
    std::string text(tree.WriteToString(nullptr, 0, 0), '?');
    EXPECT_EQ(tree.WriteToString(text.data(), 0, 0), text.size());
    return text;
}

void Put(TStringTree* tree, int tag, std::string const& value) {
    ASSERT_TRUE(tree->InsertString("hdr", tag, 0, value));
}

} // namespace

TEST(StringField, WritesValuesEscapedAndReadsThemBack) {
    std::string const value("a\tb\nc\\\0d", 8);
    TStringField field(1, 0, &value, 1, "hdr");
    EXPECT_EQ(field.ValueToString(0, nullptr, 0), 12u);
    EXPECT_EQ(field.ValueToString(0), value);
    std::string buffer(14, '.');
    EXPECT_EQ(field.ValueToString(0, buffer.data(), 1), 12u);
    EXPECT_EQ(buffer, ".a\\tb\\nc\\\\\\0d.");
    EXPECT_TRUE(field.StringToValue("x\\ty", 4, 0));
    EXPECT_EQ(field.ValueToString(0), "x\ty");
    EXPECT_TRUE(field.StringToValue(std::string("plain \\t"), 0));
    EXPECT_EQ(field.ValueToString(0), "plain \\t");
}

TEST(StringField, IgnoresAnIndexPastTheCount) {
    std::string const value = "v";
    TStringField field(1, 0, &value, 1, "hdr");
    EXPECT_FALSE(field.StringToValue("x", 1, 1));
    EXPECT_FALSE(field.StringToValue(std::string("x"), ULONG_MAX));
    EXPECT_EQ(field.ValueToString(1, nullptr, 0), 0u);
    EXPECT_EQ(field.ValueToString(ULONG_MAX), "");
    EXPECT_EQ(field.ValueToString(0), "v");
}

TEST(StringField, StartsEmpty) {
    TStringField const field;
    EXPECT_EQ(field.count, 0u);
    EXPECT_EQ(field.ValueToString(0), "");
}

TEST(StringTree, DefaultTreeIsAnEmptyRoot) {
    TStringTree const tree;
    EXPECT_EQ(tree.parent, nullptr);
    EXPECT_EQ(TextOf(tree), "(0,0)\n\n");
}

TEST(StringTree, CreatesChildrenOfItsOwnKind) {
    TStringTree tree(0, 0, nullptr, "root");
    ASSERT_TRUE(tree.InsertSubtree("unit", 7, 2));
    ASSERT_NE(dynamic_cast<TStringTree*>(tree.subtrees[0]), nullptr);
    EXPECT_EQ(tree.FindSubtree(7, 2)->parent, &tree);
    ASSERT_TRUE(tree.InsertField("name", 1, 0, "v"));
    EXPECT_NE(dynamic_cast<TStringField*>(tree.fields[0]), nullptr);
    std::string values[] = {"A", "B"};
    ASSERT_TRUE(tree.InsertField("names", 2, 0, values, 2));
    EXPECT_EQ(tree.FindField(2, 0)->ValueToString(1), "B");
}

TEST(StringTree, ReadsTextIntoItsOwnKind) {
    TStringTree tree;
    tree.ReadFromString("(0,0)\n(5301,0)[1]code\t0\n\t(7,2)unit\n\t(5320,0)[2]name\tA\\tZ\tB\n\t\n\n",
                        nullptr, nullptr);
    TStringTree const& root = tree;
    ASSERT_NE(root.FindSubtree(7, 2), nullptr);
    TStringField const* const name = root.FindSubtree(7, 2)->FindField(5320, 0);
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->ValueToString(0), "A\tZ");
    EXPECT_EQ(name->ValueToString(1), "B");
    EXPECT_EQ(name->header, "name");
}

TEST(StringTree, FindsByTagAndIndexAndNeverByHeader) {
    TStringTree tree;
    ASSERT_TRUE(tree.InsertString("same", 1, 0, "first"));
    ASSERT_TRUE(tree.InsertString("same", 1, 1, "second"));
    ASSERT_TRUE(tree.InsertSubtree("same", 1, 0));
    EXPECT_EQ(tree.FindField(1, 1)->ValueToString(0), "second");
    EXPECT_EQ(tree.FindField(2, 0), nullptr);
    EXPECT_EQ(tree.FindField(1, 2), nullptr);
    EXPECT_EQ(tree.FindSubtree(1, 1), nullptr);
    EXPECT_NE(tree.FindSubtree(1, 0), nullptr);
}

TEST(StringTree, InsertsWithoutReplacing) {
    TStringTree tree;
    EXPECT_TRUE(tree.InsertInteger("type", 1100, 0, 4));
    EXPECT_FALSE(tree.InsertInteger("type", 1100, 0, 5));
    EXPECT_FALSE(tree.InsertDouble("type", 1100, 0, 5.5));
    EXPECT_FALSE(tree.InsertString("type", 1100, 0, "x"));
    int value = 0;
    EXPECT_TRUE(tree.GetInteger(1100, 0, &value));
    EXPECT_EQ(value, 4);
}

TEST(StringTree, WritesDoublesWithEighteenDigits) {
    TStringTree tree;
    ASSERT_TRUE(tree.InsertDouble("tenth", 1, 0, 0.1));
    ASSERT_TRUE(tree.InsertDouble("minus zero", 2, 0, -0.0));
    ASSERT_TRUE(tree.InsertInteger("least", 3, 0, INT_MIN));
    // 0.1 is 0.1000000000000000055511151231257827 as a double.
    EXPECT_EQ(tree.FindField(1, 0)->ValueToString(0), "0.100000000000000006");
    EXPECT_EQ(tree.FindField(2, 0)->ValueToString(0), "-0");
    EXPECT_EQ(tree.FindField(3, 0)->ValueToString(0), "-2147483648");
}

TEST(StringTree, DoublesSurviveExactly) {
    double const numbers[] = {0.1,       6378137.0, 298.257223563, 5e-324, -1.7976931348623157e308,
                              1.0 / 3.0, INFINITY};
    for (double const number : numbers) {
        TStringTree tree;
        ASSERT_TRUE(tree.InsertDouble("d", 1, 0, number));
        double back = 0;
        EXPECT_TRUE(tree.GetDouble(1, 0, &back));
        EXPECT_EQ(back, number);
    }
    TStringTree tree;
    ASSERT_TRUE(tree.InsertDouble("nan", 1, 0, std::nan("")));
    double back = 0;
    EXPECT_TRUE(tree.GetDouble(1, 0, &back));
    EXPECT_TRUE(std::isnan(back));
}

TEST(StringTree, NumbersAreReadOnlyFromTheWholeText) {
    TStringTree tree;
    Put(&tree, 1, " 42 ");
    Put(&tree, 2, "42x");
    Put(&tree, 3, "2147483648");
    Put(&tree, 4, "");
    Put(&tree, 5, "4.5");
    int integer = -7;
    EXPECT_TRUE(tree.GetInteger(1, 0, &integer));
    EXPECT_EQ(integer, 42);
    integer = -7;
    double real = -7;
    for (int const tag : {2, 3, 4, 5, 99}) {
        EXPECT_FALSE(tree.GetInteger(tag, 0, &integer)) << tag;
    }
    for (int const tag : {2, 4, 99}) {
        EXPECT_FALSE(tree.GetDouble(tag, 0, &real)) << tag;
    }
    EXPECT_EQ(integer, -7);
    EXPECT_EQ(real, -7);
    EXPECT_TRUE(tree.GetDouble(5, 0, &real));
    EXPECT_EQ(real, 4.5);
}

TEST(StringTree, AFieldWithoutValuesHasNothingToGet) {
    TStringTree tree;
    ASSERT_TRUE(tree.InsertField("none", 1, 0, nullptr, 0));
    int integer = -7;
    double real = -7;
    std::string text = "before";
    EXPECT_FALSE(tree.GetInteger(1, 0, &integer));
    EXPECT_FALSE(tree.GetDouble(1, 0, &real));
    EXPECT_FALSE(tree.GetString(1, 0, &text));
    EXPECT_FALSE(tree.GetString(2, 0, &text));
    EXPECT_EQ(text, "before");
}

TEST(StringTree, GetsTheFirstOfSeveralValues) {
    TStringTree tree;
    std::string values[] = {"1", "2"};
    ASSERT_TRUE(tree.InsertField("two", 1, 0, values, 2));
    std::string text;
    EXPECT_TRUE(tree.GetString(1, 0, &text));
    EXPECT_EQ(text, "1");
}

TEST(StringTree, AValueWithAnyBytesSurvivesTextAndCopy) {
    std::string value;
    for (int byte = 0; byte < 256; ++byte) {
        value += static_cast<char>(byte);
    }
    TStringTree tree;
    Put(&tree, 1, value);
    TStringTree read;
    read.ReadFromString(TextOf(tree).c_str(), nullptr, nullptr);
    TStringTree copy;
    EXPECT_TRUE(read.CopyTo(&copy));
    std::string back;
    EXPECT_TRUE(copy.GetString(1, 0, &back));
    EXPECT_EQ(back, value);
}
