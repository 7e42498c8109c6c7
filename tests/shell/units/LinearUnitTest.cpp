#include "shell/units/LinearUnit.h"

#include "UnitFixtures.h"

#include "shell/units/AngularUnit.h"
#include "shell/units/ScaleUnit.h"
#include "shell/units/SexagesimalUnits.h"

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

using namespace KvRefSystem;
using namespace KvRefSystem::UnitTests;

static_assert(sizeof(TShellLinearUnit) == 144);
static_assert(std::has_virtual_destructor_v<TShellLinearUnit>);

namespace {

constexpr char const* XMLMessage = "TShellLinearUnit::TShellLinearUnit(TKvXIniReader *xml)";

} // namespace

TEST(ShellLinearUnit, MIFMIDCodeFollowsTheMembersOfTheRoot) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    EXPECT_EQ(OffsetIn(*unit, unit->MIFMIDCode), 136);
}

TEST(ShellLinearUnit, PrecisionIsThatOfMillimetres) {
    std::vector<std::pair<char const*, int>> const rows = {{"1", 3},      {"1000", 6},   {"0.3048", 3},
                                                           {"0.001", 0},  {"0.0001", 0}, {"1609.344", 7},
                                                           {"1e-300", 0}, {"-1", 0},     {"1e300", 303}};
    for (auto const& [metres, precision] : rows) {
        EXPECT_EQ(MakeUnit<TShellLinearUnit>(Metres(metres))->Precision, precision) << metres;
        EXPECT_EQ(LoadUnit<TShellLinearUnit>(
                      TItems{{"UnitType", "1"}, {"UnitCoefToBase", metres}, {"UnitCoefFromBase", "1"}})
                      ->Precision,
                  precision)
            << metres;
    }
}

TEST(ShellLinearUnit, UnitThatCannotConvertHasPrecisionZero) {
    EXPECT_EQ(MakeUnit<TShellLinearUnit>({.denominator = "0"})->Precision, 0);
    EXPECT_EQ(MakeUnit<TShellLinearUnit>(Metres("inf"))->Precision, 0);
    EXPECT_EQ(MakeUnit<TShellLinearUnit>(Metres("nan"))->Precision, 0);
}

TEST(ShellLinearUnit, TreeHasTheGeoTIFFCodeButNoMIFMIDCode) {
    TStringTree tree;
    Fill(&tree, Metre());
    EXPECT_EQ(TShellLinearUnit(&tree).GeoTIFFCode, 0);
    tree.InsertString("epsg", 102003, 0, "9102");
    EXPECT_EQ(TShellLinearUnit(&tree).GeoTIFFCode, 0);
    tree.InsertString("epsg", 102002, 0, "9001");
    EXPECT_EQ(TShellLinearUnit(&tree).GeoTIFFCode, 9001);
    EXPECT_EQ(TShellLinearUnit(&tree).MIFMIDCode, -1);
}

TEST(ShellLinearUnit, MissingFieldHasTheMessageOfTheRoot) {
    TStringTree tree;
    EXPECT_EQ(MessageOf([&] { TShellLinearUnit unit(&tree); }), "TShellUnit::TShellUnit(TStringTree *tree)");
}

TEST(ShellLinearUnit, XMLOfAnotherKindDoesNotLoad) {
    EXPECT_EQ(MessageOf([] { LoadUnit<TShellLinearUnit>(LoadableItems(0, 2)); }), XMLMessage);
    EXPECT_EQ(MessageOf([] { LoadUnit<TShellLinearUnit>(LoadableItems(0, 3)); }), XMLMessage);
    EXPECT_EQ(MessageOf([] { LoadUnit<TShellLinearUnit>(TItems{}); }), XMLMessage);
    EXPECT_EQ(MessageOf([] { TShellLinearUnit unit(static_cast<TKvXIniReader*>(nullptr)); }), XMLMessage);
}

TEST(ShellLinearUnit, MIFMIDCodeIsReadEvenWhenTheKindIsWrong) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    TListReader reader(TItems{{"UnitMIFMIDCode", "7"}});
    EXPECT_FALSE(unit->LoadFromXML(&reader));
    EXPECT_EQ(unit->MIFMIDCode, 7);
    TListReader without(LoadableItems(0, 1));
    EXPECT_TRUE(unit->LoadFromXML(&without));
    EXPECT_EQ(unit->MIFMIDCode, -1);
}

TEST(ShellLinearUnit, MIFMIDCodeIsTheLastKeyAndLeftOutWhenNegative) {
    TItems items = {{"UnitCode", "3"},         {"UnitType", "1"},        {"UnitCoefToBase", "0.5"},
                    {"UnitCoefFromBase", "2"}, {"UnitName", "half"},     {"UnitAbbreviation", "h"},
                    {"UnitDescription", "d"},  {"UnitGeoTIFFCode", "77"}};
    TListWriter without;
    EXPECT_TRUE(LoadUnit<TShellLinearUnit>(items)->SaveToXML(&without));
    EXPECT_EQ(without.items, items);

    items.emplace_back("UnitMIFMIDCode", "0");
    auto const unit = LoadUnit<TShellLinearUnit>(items);
    TListWriter writer;
    EXPECT_TRUE(unit->SaveToXML(&writer));
    EXPECT_EQ(writer.items, items);
    EXPECT_TRUE(*LoadUnit<TShellLinearUnit>(writer.items) == *unit);
    for (std::size_t works = 0; works < items.size(); ++works) {
        TListWriter failing(works);
        EXPECT_FALSE(unit->SaveToXML(&failing)) << works;
        EXPECT_EQ(failing.items.size(), works);
    }
}

TEST(ShellLinearUnit, MIFMIDCodesCountInEquality) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    auto const other = MakeUnit<TShellLinearUnit>(Metre());
    EXPECT_TRUE(*unit == *other);
    EXPECT_FALSE(*unit != *other);
    other->MIFMIDCode = 7;
    EXPECT_FALSE(*unit == *other);
    EXPECT_FALSE(*other == *unit);
    TShellUnit const& root = *unit;
    EXPECT_FALSE(root == *other);
    EXPECT_FALSE(*other == root);
}

TEST(ShellLinearUnit, EqualityWithAnotherKindEndsAtTheType) {
    auto const linear = MakeUnit<TShellLinearUnit>(Metre());
    auto const angular = MakeUnit<TShellAngularUnit>(Radian());
    EXPECT_FALSE(*linear == *angular);
    EXPECT_FALSE(*angular == *linear);
}

TEST(ShellLinearUnit, EqualFieldsOfAnotherClassAreABadCastOnlyFromTheLinearSide) {
    auto const linear = MakeUnit<TShellLinearUnit>(Metre());
    auto const angular = MakeUnit<TShellAngularUnit>(Metre());
    auto const scale = MakeUnit<TShellScaleUnit>(Metre());
    // The sides are compared in the order in which they stand, whatever their static types are.
    EXPECT_TRUE(*angular == *linear);
    EXPECT_TRUE(*scale == *linear);
    EXPECT_FALSE(*angular != *linear);
    EXPECT_THROW(static_cast<void>(*linear == *angular), std::bad_cast);
    EXPECT_THROW(static_cast<void>(*linear == *scale), std::bad_cast);
    EXPECT_THROW(static_cast<void>(*linear != *angular), std::bad_cast);
    EXPECT_TRUE(*angular == *scale);
    EXPECT_TRUE(*scale == *angular);
}

TEST(ShellLinearUnit, AsymmetryHoldsThroughReferencesToTheRoot) {
    auto const linear = MakeUnit<TShellLinearUnit>(Metre());
    auto const angular = MakeUnit<TShellAngularUnit>(Metre());
    TShellUnit const& linearRoot = *linear;
    TShellUnit const& angularRoot = *angular;
    EXPECT_TRUE(angularRoot == linearRoot);
    EXPECT_TRUE(angularRoot == *linear);
    EXPECT_TRUE(*angular == linearRoot);
    EXPECT_THROW(static_cast<void>(linearRoot == angularRoot), std::bad_cast);
    EXPECT_THROW(static_cast<void>(linearRoot == *angular), std::bad_cast);
    EXPECT_THROW(static_cast<void>(*linear == angularRoot), std::bad_cast);
    EXPECT_TRUE(linearRoot == *linear);
    EXPECT_TRUE(*linear == linearRoot);
}

TEST(ShellLinearUnit, ComparesWithTheSexagesimalClassesToo) {
    auto const sexagesimal = MakeUnit<TShellUnitDegreeMinuteSecond>(Degree(7));
    auto const angular = MakeUnit<TShellAngularUnit>(Degree(7));
    auto const linear = MakeUnit<TShellLinearUnit>(Degree(7));
    EXPECT_TRUE(*sexagesimal == *angular);
    EXPECT_TRUE(*angular == *sexagesimal);
    EXPECT_TRUE(*sexagesimal == *linear);
    EXPECT_THROW(static_cast<void>(*linear == *sexagesimal), std::bad_cast);
}

TEST(ShellLinearUnit, TreeAndXMLGiveTheSameUnit) {
    auto const fromTree = MakeUnit<TShellLinearUnit>(Metres("0.3048"));
    TListWriter writer;
    ASSERT_TRUE(fromTree->SaveToXML(&writer));
    auto const fromXML = LoadUnit<TShellLinearUnit>(writer.items);
    EXPECT_TRUE(*fromTree == *fromXML);
    EXPECT_EQ(fromXML->Precision, 3);
}
