#include "tests/abi/StatedTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Abi::ReadStatedTable;
using Abi::TypeName;

TEST(StatedTable, HasABlockForEachClassAndEnumeration) {
    Abi::TStatedTable const table = ReadStatedTable(
        "# a comment\n\nclass TA : TB via TC # why\n    slot destructor\n    slot int F(char) const\n"
        "    member map<int, string>* List\n    own members: computed once\nenum TE\n    value -1 e\n",
        "a.txt");
    ASSERT_EQ(table.classes.size(), 1U);
    Abi::TStatedClass const& block = table.classes.front();
    EXPECT_EQ(block.name, "TA");
    EXPECT_EQ(block.base, "TB");
    EXPECT_EQ(block.via, "TC");
    EXPECT_EQ(block.where, "a.txt:3");
    ASSERT_EQ(block.slots.size(), 2U);
    EXPECT_FALSE(block.slots[0].has_value());
    EXPECT_EQ(Abi::ToString(*block.slots[1]), "int F(char) const");
    ASSERT_EQ(block.members.size(), 1U);
    EXPECT_EQ(block.members[0].type, "map<int, string>*");
    EXPECT_EQ(block.members[0].name, "List");
    EXPECT_EQ(block.ownMembers, "computed once");
    ASSERT_EQ(table.enumerations.size(), 1U);
    EXPECT_EQ(table.enumerations[0].values[0].value, -1);
}

TEST(StatedTable, RefusesARowThatItDoesntKnowAndTellsItsPlace) {
    for (char const* const row : {"class T\n field int A", "class T\n member int", "class T\n value 1 a",
                                  "enum T\n member int A", "enum T\n value a 1", "class T\n slot F"}) {
        EXPECT_THROW(ReadStatedTable(row, "a.txt"), std::runtime_error) << row;
    }
    try {
        ReadStatedTable("class T\n\n    field int A\n", "a.txt");
        FAIL();
    } catch (std::runtime_error const& refused) {
        EXPECT_STREQ(refused.what(), "a.txt:3: `field int A` is no row of this block");
    }
}

TEST(TypeNames, AreOneSpellingForEachType) {
    EXPECT_EQ(
        TypeName("std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> > const&"),
        "string const&");
    EXPECT_EQ(
        TypeName(
            "std::map<int, std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >, "
            "std::less<int>, std::allocator<std::pair<int const, double> > >*"),
        "map<int, string>*");
    EXPECT_EQ(TypeName("vector<KvRefSystem::TUnit const*, std::allocator<KvRefSystem::TUnit const*> >"),
              "vector<TUnit const*>");
    EXPECT_EQ(TypeName("long unsigned int"), "unsigned long");
    EXPECT_EQ(TypeName("void (var_a_legacy::var_a_item*)"), "void(var_a_item*)");
}

TEST(TypeNames, TakeWhatHasTheLayoutOfAPointerForOne) {
    EXPECT_EQ(TypeName("unique_ptr<KvRefSystem::TUnit, std::default_delete<KvRefSystem::TUnit> >"), "TUnit*");
    EXPECT_EQ(TypeName("unique_ptr<std::unique_ptr<float [], std::default_delete<float []> > [], "
                       "std::default_delete<std::unique_ptr<float [], std::default_delete<float []> > []> >"),
              "float**");
    EXPECT_EQ(TypeName("unique_ptr<KvRefSystem::TUnit, KvRefSystem::TFree>"), "unique_ptr<TUnit, TFree>");
}

TEST(TypeNames, TakeAnArrayOfTheLibraryForAPlainOne) {
    EXPECT_EQ(TypeName("array<double, 3>"), "double[3]");
}

TEST(TypeNames, RefuseWhatNobodySpells) {
    EXPECT_THROW(TypeName("void(int;)"), std::runtime_error);
    EXPECT_THROW(Abi::ReadSignature("Read"), std::runtime_error);
}

} // namespace
