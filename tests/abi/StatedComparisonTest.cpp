#include "tests/abi/StatedComparison.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// A small library in the form that abidw writes, and what the comparison says when something in it changed.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

char const* const Table = R"(
class TUnit
    slot bool Read(string const&, double*) const
    slot Reset()
    member int Code
    member double Factor

class TLinearUnit : TUnit # a destructor after its base's slots
    slot destructor
    member int MifCode

class TBasin : TUnit via TShared
    member bool Deep

class TPlace
    member string Name
    member TKind Kind
    own members: what is computed once

enum TKind
    value 1 near
    value 2 far
)";

char const* const Library = R"(<abi-corpus version='2.2'>
  <elf-variable-symbols>
    <elf-symbol name='_ZTVN11KvRefSystem11TLinearUnitE' size='48'/>
    <elf-symbol name='_ZTVN11KvRefSystem5TUnitE' size='32'/>
  </elf-variable-symbols>
  <abi-instr>
    <type-decl name='bool' size-in-bits='8' id='bool'/>
    <type-decl name='int' size-in-bits='32' id='int'/>
    <type-decl name='double' size-in-bits='64' id='double'/>
    <type-decl name='void' id='void'/>
    <type-decl name='unnamed-enum-underlying-type-32' size-in-bits='32' id='under'/>
    <class-decl name='basic_string&lt;char, std::char_traits&lt;char&gt;, std::allocator&lt;char&gt; &gt;'
                size-in-bits='256' id='string'/>
    <qualified-type-def type-id='string' const='yes' id='string-c'/>
    <reference-type-def kind='lvalue' type-id='string-c' id='string-cr'/>
    <pointer-type-def type-id='double' id='double-p'/>
    <namespace-decl name='KvRefSystem'>
      <class-decl name='TUnit' size-in-bits='192' id='unit'>
        <data-member layout-offset-in-bits='64'><var-decl name='Code' type-id='int'/></data-member>
        <data-member layout-offset-in-bits='128'><var-decl name='Factor' type-id='double'/></data-member>
        <member-function const='yes' vtable-offset='0'>
          <function-decl name='Read'>
            <parameter type-id='unit-p' is-artificial='yes'/>
            <parameter type-id='string-cr'/>
            <parameter type-id='double-p'/>
            <return type-id='bool'/>
          </function-decl>
        </member-function>
        <member-function vtable-offset='1'>
          <function-decl name='Reset'><return type-id='void'/></function-decl>
        </member-function>
      </class-decl>
      <class-decl name='TLinearUnit' size-in-bits='256' id='linear'>
        <base-class layout-offset-in-bits='0' type-id='unit'/>
        <data-member layout-offset-in-bits='192'><var-decl name='MifCode' type-id='int'/></data-member>
        <member-function destructor='yes' vtable-offset='-1'>
          <function-decl name='~TLinearUnit'><return type-id='void'/></function-decl>
        </member-function>
      </class-decl>
      <class-decl name='TShared&lt;KvRefSystem::TBasin&gt;' size-in-bits='192' id='shared'>
        <base-class layout-offset-in-bits='0' type-id='unit'/>
      </class-decl>
      <class-decl name='TBasin' size-in-bits='256' id='basin'>
        <base-class layout-offset-in-bits='0' type-id='shared'/>
        <data-member layout-offset-in-bits='192'><var-decl name='Deep' type-id='bool'/></data-member>
      </class-decl>
      <class-decl name='TPlace' size-in-bits='384' id='place'>
        <data-member layout-offset-in-bits='0'><var-decl name='Name' type-id='string'/></data-member>
        <data-member layout-offset-in-bits='256'><var-decl name='Kind' type-id='kind'/></data-member>
        <data-member layout-offset-in-bits='320'><var-decl name='Computed' type-id='double'/></data-member>
      </class-decl>
      <enum-decl name='TKind' id='kind'>
        <underlying-type type-id='under'/>
        <enumerator name='near' value='1'/>
        <enumerator name='far' value='2'/>
      </enum-decl>
    </namespace-decl>
  </abi-instr>
</abi-corpus>
)";

/** @return `text` with the one place of `from` replaced. */
std::string Changed(std::string text, std::string const& from, std::string const& to) {
    std::size_t const place = text.find(from);
    if (place == std::string::npos || text.find(from, place + 1) != std::string::npos) {
        throw std::runtime_error("`" + from + "` doesn't stand there once");
    }
    return text.replace(place, from.size(), to);
}

std::vector<std::string> Differences(std::string const& library, std::string const& table = Table) {
    Abi::TStatedTable const stated = Abi::ReadStatedTable(table, "t");
    Abi::TLibraryTypes const types = Abi::ReadLibraryTypes(library);
    Abi::TStatedComparison const comparison(stated, types);
    std::vector<std::string> all;
    for (Abi::TStatedClass const& block : stated.classes) {
        std::vector<std::string> const lines = comparison.Differences(block);
        all.insert(all.end(), lines.begin(), lines.end());
    }
    for (Abi::TStatedEnumeration const& block : stated.enumerations) {
        std::vector<std::string> const lines = comparison.Differences(block);
        all.insert(all.end(), lines.begin(), lines.end());
    }
    return all;
}

std::vector<std::string> DifferencesAfter(std::string const& from, std::string const& to) {
    return Differences(Changed(Library, from, to));
}

TEST(StatedComparison, SaysNothingOfALibraryThatIsAsStated) {
    EXPECT_THAT(Differences(Library), IsEmpty());
}

TEST(StatedComparison, TellsMembersThatChangedPlaces) {
    std::string swapped = Changed(Library, "<var-decl name='Name' type-id='string'/>", "<placeholder/>");
    swapped = Changed(swapped, "<var-decl name='Kind' type-id='kind'/>",
                      "<var-decl name='Name' type-id='string'/>");
    swapped = Changed(swapped, "<placeholder/>", "<var-decl name='Kind' type-id='kind'/>");
    EXPECT_THAT(
        Differences(swapped),
        ElementsAre("t:15: TPlace: member 1 is stated as `string Name`, the library has `TKind Kind` there; "
                    "Name stands as member 2",
                    "t:15: TPlace: member 2 is stated as `TKind Kind`, the library has `string Name` there; "
                    "Kind stands as member 1"));
}

TEST(StatedComparison, TellsAMemberThatWasRenamed) {
    EXPECT_THAT(
        DifferencesAfter("name='MifCode'", "name='Code2'"),
        ElementsAre("t:8: TLinearUnit: member 1 is stated as `int MifCode`, the library has `int Code2` "
                    "there"));
}

TEST(StatedComparison, TellsAMemberOfAnotherType) {
    EXPECT_THAT(
        DifferencesAfter("name='Factor' type-id='double'", "name='Factor' type-id='double-p'"),
        ElementsAre("t:2: TUnit: member 2 is stated as `double Factor`, the library has `double* Factor` "
                    "there"));
}

TEST(StatedComparison, TellsAMemberThatIsMissing) {
    EXPECT_THAT(
        DifferencesAfter(
            "<data-member layout-offset-in-bits='192'><var-decl name='MifCode' type-id='int'/></data-member>",
            ""),
        ElementsAre("t:8: TLinearUnit: member `int MifCode` is missing"));
}

TEST(StatedComparison, TellsAMemberThatNobodyStated) {
    std::string const member =
        "<data-member layout-offset-in-bits='192'><var-decl name='Deep' type-id='bool'/>"
        "</data-member>";
    EXPECT_THAT(DifferencesAfter(member, member + "<data-member layout-offset-in-bits='200'>"
                                                  "<var-decl name='Wide' type-id='bool'/></data-member>"),
                ElementsAre("t:12: TBasin: member `bool Wide` isn't stated"));
}

TEST(StatedComparison, TakesNoStaticMemberForAPartOfTheLayout) {
    std::string const member =
        "<data-member layout-offset-in-bits='192'><var-decl name='Deep' type-id='bool'/>"
        "</data-member>";
    EXPECT_THAT(
        DifferencesAfter(member, member + "<data-member static='yes'><var-decl name='Count' type-id='int'/>"
                                          "</data-member>"),
        IsEmpty());
}

TEST(StatedComparison, TellsAnOffsetThatTheRulesDontGive) {
    EXPECT_THAT(DifferencesAfter("'256'><var-decl name='Kind'", "'288'><var-decl name='Kind'"),
                ElementsAre("t:15: TPlace: member Kind lies at byte 36, by the rules at 32"));
}

TEST(StatedComparison, TellsASizeThatTheRulesDontGive) {
    EXPECT_THAT(DifferencesAfter("<class-decl name='TUnit' size-in-bits='192'",
                                 "<class-decl name='TUnit' size-in-bits='256'"),
                ElementsAre("t:2: TUnit: has 32 bytes, by the rules 24"));
}

TEST(StatedComparison, TellsAnotherBase) {
    EXPECT_THAT(DifferencesAfter("<base-class layout-offset-in-bits='0' type-id='shared'/>",
                                 "<base-class layout-offset-in-bits='0' type-id='linear'/>"),
                ElementsAre("t:12: TBasin: stated base TUnit, the library has TLinearUnit"));
}

TEST(StatedComparison, TellsATemplateBetweenThatNobodyStated) {
    EXPECT_THAT(Differences(Library, Changed(Table, " via TShared", "")),
                ElementsAre("t:12: TBasin: stated base TUnit, the library has TShared<TBasin>"));
}

TEST(StatedComparison, TellsWhatATemplateBetweenAdds) {
    std::string const between = "size-in-bits='192' id='shared'>";
    EXPECT_THAT(
        DifferencesAfter(between, between + "<data-member layout-offset-in-bits='192'>"
                                            "<var-decl name='Wide' type-id='bool'/></data-member>"),
        ElementsAre("t:12: TBasin: member 1 is stated as `bool Deep`, the library has `bool Wide` there; "
                    "Deep stands as member 2",
                    "t:12: TBasin: member `bool Deep` isn't stated"));
}

TEST(StatedComparison, TellsABaseThatIsVirtual) {
    EXPECT_THAT(
        DifferencesAfter("<base-class layout-offset-in-bits='0' type-id='unit'/>\n        <data-member",
                         "<base-class is-virtual='yes' type-id='unit'/>\n        <data-member"),
        ElementsAre("t:8: TLinearUnit: the base TUnit doesn't lie at the start"));
}

TEST(StatedComparison, TellsAFunctionThatWasPutBetweenTheSlots) {
    std::string inserted = Changed(
        Library, "<member-function vtable-offset='1'>\n          <function-decl name='Reset'>",
        "<member-function vtable-offset='1'><function-decl name='Clear'><return "
        "type-id='void'/></function-decl>"
        "</member-function>\n        <member-function vtable-offset='2'><function-decl name='Reset'>");
    inserted = Changed(inserted, "5TUnitE' size='32'", "5TUnitE' size='40'");
    EXPECT_THAT(Differences(inserted),
                ElementsAre("t:2: TUnit: slot 1 is stated as Reset(), the library has void Clear() there",
                            "t:2: TUnit: void Reset() in slot 2 is a virtual function that isn't stated",
                            "t:2: TUnit: its table has 2 slots as stated, the library's 3"));
}

TEST(StatedComparison, TellsAFunctionOfOtherArguments) {
    EXPECT_THAT(
        DifferencesAfter("<parameter type-id='double-p'/>", "<parameter type-id='int'/>"),
        ElementsAre(
            "t:2: TUnit: slot 0 is stated as bool Read(string const&, double*) const, the library has "
            "bool Read(string const&, int) const there"));
}

TEST(StatedComparison, TellsAFunctionThatIsNoLongerVirtual) {
    EXPECT_THAT(DifferencesAfter("<member-function vtable-offset='1'>", "<member-function>"),
                ElementsAre("t:2: TUnit: slot 1 is stated as Reset(), the library has none there"));
}

TEST(StatedComparison, TellsADestructorThatBecameVirtual) {
    std::string const start = "<member-function vtable-offset='1'>";
    EXPECT_THAT(DifferencesAfter(start, "<member-function destructor='yes' vtable-offset='-1'>"
                                        "<function-decl name='~TUnit'/></member-function>" +
                                            start),
                ElementsAre("t:2: TUnit: its destructor is stated as not virtual, the library's is"));
}

TEST(StatedComparison, TellsADestructorThatIsNoLongerVirtual) {
    EXPECT_THAT(
        DifferencesAfter("destructor='yes' vtable-offset='-1'", "destructor='yes'"),
        ElementsAre("t:8: TLinearUnit: slot 2 is stated as the destructor's, the library has none there",
                    "t:8: TLinearUnit: slot 3 is stated as the destructor's, the library has none there"));
}

TEST(StatedComparison, LetsADestructorFollowOnlyWhereTheTableSaysWhy) {
    std::string const table =
        Changed(Table, "    slot destructor\n", "    destructor may follow: it is deleted here\n");
    EXPECT_THAT(Differences(Library, table), IsEmpty());
    EXPECT_THAT(Differences(Library, Changed(Table, "    slot destructor\n", "")),
                ElementsAre("t:8: TLinearUnit: its destructor is stated as not virtual, the library's is",
                            "t:8: TLinearUnit: its table has 2 slots as stated, the library's 4"));
}

TEST(StatedComparison, TellsATableOfMoreSlotsThanTheStatedFunctionsFill) {
    EXPECT_THAT(DifferencesAfter("11TLinearUnitE' size='48'", "11TLinearUnitE' size='56'"),
                ElementsAre("t:8: TLinearUnit: its table has 4 slots as stated, the library's 5"));
}

TEST(StatedComparison, TellsEnumeratorsThatChanged) {
    EXPECT_THAT(DifferencesAfter("name='far' value='2'", "name='far' value='3'"),
                ElementsAre("t:20: TKind: far is stated as 2, the library has 3"));
    EXPECT_THAT(DifferencesAfter("name='far' value='2'", "name='away' value='2'"),
                ElementsAre("t:20: TKind: far is missing", "t:20: TKind: away = 2 isn't stated"));
    EXPECT_THAT(DifferencesAfter("size-in-bits='32' id='under'", "size-in-bits='8' id='under'"),
                ElementsAre("t:20: TKind: stated over int, the library's values have 1 bytes"));
}

TEST(StatedComparison, TellsWhatTheLibraryDoesntHave) {
    EXPECT_THAT(DifferencesAfter("<class-decl name='TPlace' size-in-bits='384'", "<class-decl name='TSpot'"),
                ElementsAre("t:15: TPlace: the library has no such class"));
    EXPECT_THAT(
        DifferencesAfter("<enum-decl name='TKind'", "<enum-decl is-declaration-only='yes' name='TKind'"),
        ElementsAre("t:20: TKind: the library has no such enumeration"));
}

TEST(StatedComparison, AsksOfAnOpenClassOnlyThatItsFunctionsAreVirtual) {
    EXPECT_THAT(Differences(Library, "class TUnit\n open: a host's own\n virtual Reset()\n"), IsEmpty());
    EXPECT_THAT(Differences(Library, "class TUnit\n open: a host's own\n virtual Clear()\n"),
                ElementsAre("t:1: TUnit: Clear() is stated as virtual, the library has no such one"));
}

TEST(LibraryTypes, AreReadOnlyFromWhatAbidwWrites) {
    EXPECT_THROW(Abi::ReadLibraryTypes("<abi-corpus>"), std::runtime_error);
    EXPECT_THROW(Abi::ReadLibraryTypes("<other/>"), std::runtime_error);
}

} // namespace
