#include "shell/units/ScaleUnit.h"

#include "UnitFixtures.h"

#include <gtest/gtest.h>

#include <string>

using namespace KvRefSystem;
using namespace KvRefSystem::UnitTests;

static_assert(sizeof(TShellScaleUnit) == 136);
static_assert(std::has_virtual_destructor_v<TShellScaleUnit>);

namespace {

constexpr char const* XMLMessage = "TShellScaleUnit::TShellScaleUnit(TKvXIniReader *xml)";

} // namespace

TEST(ShellScaleUnit, PrecisionIsIgnoredInPrinting) {
    auto const unit = MakeUnit<TShellScaleUnit>(PartsPerMillion());
    for (int const precision : {-1, 0, 2, 40}) {
        EXPECT_EQ(unit->ValueToString(1.5, precision), "1.5");
        EXPECT_EQ(unit->ValueToString(0.1, precision), "0.1000000000000000055511151");
    }
}

TEST(ShellScaleUnit, TreeGivesNoPrecisionAndNoGeoTIFFCode) {
    TStringTree tree;
    Fill(&tree, PartsPerMillion());
    tree.InsertString("epsg", 102002, 0, "9001");
    tree.InsertString("epsg", 102003, 0, "9102");
    TShellScaleUnit const unit(&tree);
    EXPECT_EQ(unit.Precision, 0);
    EXPECT_EQ(unit.GeoTIFFCode, 0);
    EXPECT_EQ(unit.CoefToBase, 1e-6);
    EXPECT_EQ(unit.CoefFromBase, 1e6);
}

TEST(ShellScaleUnit, MissingFieldHasTheMessageOfTheRoot) {
    TStringTree tree;
    EXPECT_EQ(MessageOf([&] { TShellScaleUnit unit(&tree); }), "TShellUnit::TShellUnit(TStringTree *tree)");
}

TEST(ShellScaleUnit, XMLOfAnotherKindDoesNotLoad) {
    EXPECT_EQ(MessageOf([] { LoadUnit<TShellScaleUnit>(LoadableItems(0, 1)); }), XMLMessage);
    EXPECT_EQ(MessageOf([] { LoadUnit<TShellScaleUnit>(LoadableItems(0, 2)); }), XMLMessage);
    EXPECT_EQ(MessageOf([] { LoadUnit<TShellScaleUnit>(TItems{}); }), XMLMessage);
    EXPECT_EQ(MessageOf([] { TShellScaleUnit unit(static_cast<TKvXIniReader*>(nullptr)); }), XMLMessage);
    EXPECT_EQ(LoadUnit<TShellScaleUnit>(LoadableItems(0, 3))->CoefToBase, 2.0);
}

TEST(ShellScaleUnit, TreeAndXMLGiveTheSameUnit) {
    auto const fromTree = MakeUnit<TShellScaleUnit>(PartsPerMillion());
    TListWriter writer;
    ASSERT_TRUE(fromTree->SaveToXML(&writer));
    EXPECT_TRUE(*LoadUnit<TShellScaleUnit>(writer.items) == *fromTree);
}

TEST(ShellScaleUnit, EmptyTextIsASuccessThatChangesNothing) {
    auto const unit = MakeUnit<TShellScaleUnit>(PartsPerMillion());
    double value = 7.0;
    EXPECT_TRUE(unit->StringToValue("", &value));
    EXPECT_EQ(value, 7.0);
}
