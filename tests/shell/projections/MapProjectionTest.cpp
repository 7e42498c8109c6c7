#include "shell/projections/MapProjection.h"

#include "frame/NumberText.h"
#include "tests/shell/projections/ProjectionTestKit.h"

#include <cstdint>
#include <cstring>

namespace {

using namespace ProjectionTestKit;

constexpr char const* treeMessage =
    "TShellMapProjection::TShellMapProjection(LumCommonUtils::TStringTree *tree)";

/** The root alone; its parameters are one geokey, if it is told so. */
class TBareProjection : public TShellMapProjection {
public:
    explicit TBareProjection(TStringTree* tree) : TShellMapProjection(tree) {}

    TMapProjection* CreateCoreMapProjection(TEllipsoidSemiAxes*) const override { return nullptr; }
    bool operator==(TShellMapProjection const& other) const override { return EqualsInBase(other); }
    bool ExportMapProjParamsToGeoTIFF(TGeoKeys* keys, TShellAngularUnit const* angular,
                                      TShellLinearUnit const* linear) const override {
        keys->emplace(3081, "0");
        angularUnit = angular;
        linearUnit = linear;
        ++exports;
        return parametersWork;
    }

    bool parametersWork = true;
    mutable int exports = 0;
    mutable TShellAngularUnit const* angularUnit = nullptr;
    mutable TShellLinearUnit const* linearUnit = nullptr;
};

/** A description of a type alone. */
struct TBareDescription : TStringTree {
    explicit TBareDescription(std::string const& type = "1") { InsertString("", 6001, 0, type); }
};

/** A description with everything that the root reads. */
struct TFullDescription : TBareDescription {
    explicit TFullDescription(TUnit const& angular = grad) {
        InsertString("", 6020, 0, "A name");
        PutUnitSubtree(this, 6091, foot);
        PutUnitSubtree(this, 6090, angular);
        PutUnitSubtree(this, 6092, millionth);
        InsertString("", 102007, 0, "16001");
        InsertString("", 102008, 0, "1");
    }
};

// --- The description ---------------------------------------------------------------------------------------

TEST(ShellMapProjection, ReadsItsFields) {
    TFullDescription tree;
    TBareProjection const shell(&tree);
    EXPECT_EQ(shell.Type, mptTransverseMercator);
    EXPECT_EQ(shell.Name, "A name");
    EXPECT_EQ(shell.LinearUnit->Name, "foot");
    EXPECT_EQ(shell.AngularUnit->Name, "grad");
    EXPECT_EQ(shell.ScaleUnit->Name, "ppm");
    EXPECT_EQ(shell.GeoTIFFCode, "16001");
    EXPECT_EQ(shell.GeoTIFFType, "1");
}

TEST(ShellMapProjection, NeedsNothingButAType) {
    TBareDescription tree("26");
    TBareProjection const shell(&tree);
    EXPECT_EQ(shell.Type, mptOrthographic);
    EXPECT_EQ(shell.Name, "");
    EXPECT_EQ(shell.LinearUnit, nullptr);
    EXPECT_EQ(shell.AngularUnit, nullptr);
    EXPECT_EQ(shell.ScaleUnit, nullptr);
    EXPECT_EQ(shell.GeoTIFFCode, "");
    EXPECT_EQ(shell.GeoTIFFType, "");
}

TEST(ShellMapProjection, TheOlderType18IsA16) {
    TBareDescription tree("18");
    EXPECT_EQ(TBareProjection(&tree).Type, mptKrovak);
}

TEST(ShellMapProjection, KnowsAllTypes) {
    for (int const type : {1,  2,  3,  4,  5,  6,  7,  8,  9,   10,   11,   12,   13,   14,   15,
                           16, 17, 21, 22, 23, 24, 25, 26, 101, 1001, 1002, 1003, 1004, 1201, 1313}) {
        TBareDescription tree(KvRefSystem::FormatText("%d", type));
        EXPECT_EQ(TBareProjection(&tree).Type, type);
    }
}

TEST(ShellMapProjection, AnUnknownTypeThrows) {
    for (char const* const type :
         {"0", "-1", "19", "20", "27", "100", "1005", "1314", "", "x", "1.5", "99999999999"}) {
        TBareDescription tree(type);
        EXPECT_EQ(MessageOf([&] { TBareProjection{&tree}; }), treeMessage) << type;
    }
    TStringTree without;
    EXPECT_EQ(MessageOf([&] { TBareProjection{&without}; }), treeMessage);
    EXPECT_EQ(MessageOf([&] { TBareProjection{static_cast<TStringTree*>(nullptr)}; }), treeMessage);
}

TEST(ShellMapProjection, AUnitThatDoesntBuildThrows) {
    // Each lacks its name; the angular one then its code, without which there is no class for it.
    for (int const unit : {6091, 6090, 6092}) {
        TFullDescription tree;
        tree.FindSubtree(unit, 0)->DeleteField(5320, 0);
        EXPECT_EQ(MessageOf([&] { TBareProjection{&tree}; }), treeMessage) << unit;
    }
    for (int const unit : {6091, 6090, 6092}) {
        TFullDescription tree;
        tree.FindSubtree(unit, 0)->DeleteField(5301, 0);
        EXPECT_EQ(MessageOf([&] { TBareProjection{&tree}; }), treeMessage) << unit;
    }
    for (int const unit : {6091, 6090, 6092}) {
        TBareDescription tree;
        PutSubtree(&tree, unit);
        EXPECT_EQ(MessageOf([&] { TBareProjection{&tree}; }), treeMessage) << unit;
    }
}

TEST(ShellMapProjection, TheAngularUnitHasTheClassOfItsNotation) {
    TFullDescription tree(degreeMinuteSecond);
    TBareProjection const shell(&tree);
    EXPECT_EQ(shell.AngularUnit->ValueToString(4.5, 0), "4 30 0");
}

// --- Places ------------------------------------------------------------------------------------------------

/** @return the slot of a virtual operation: a pointer to it holds its offset plus 1 (Itanium ABI, 2.3). */
template <class Operation>
std::size_t SlotOf(Operation operation) {
    std::uintptr_t code = 0;
    std::memcpy(&code, &operation, sizeof code);
    return (code - 1) / sizeof(void*);
}

template <class Object, class Member>
std::ptrdiff_t OffsetOf(Object const& object, Member const& member) {
    return reinterpret_cast<char const*>(&member) - reinterpret_cast<char const*>(&object);
}

TEST(ShellMapProjection, OperationsStandInTheOrderThatHostsCall) {
    using TBase = TShellMapProjection;
    // The destructor has slots 0 and 1.
    EXPECT_EQ(SlotOf(&TBase::CreateCoreMapProjection), 2U);
    EXPECT_EQ(SlotOf<bool (TBase::*)(TBase const&) const>(&TBase::operator==), 3U);
    EXPECT_EQ(SlotOf(&TBase::GetProjectionTypeWKT), 4U);
    EXPECT_EQ(SlotOf(&TBase::GetProjectionParamsWKT), 5U);
    EXPECT_EQ(SlotOf(&TBase::ExportToMIFMID), 6U);
    EXPECT_EQ(SlotOf(&TBase::LoadFromXML), 7U);
    EXPECT_EQ(SlotOf(&TBase::SaveToXML), 8U);
    EXPECT_EQ(SlotOf(&TBase::Reset), 9U);
    EXPECT_EQ(SlotOf(&TBase::ExportMapProjParamsToGeoTIFF), 10U);
}

TEST(ShellMapProjection, MembersStandInTheirOrder) {
    TBareDescription tree;
    TBareProjection const shell(&tree);
    TShellMapProjection const& base = shell;
    EXPECT_EQ(OffsetOf(base, base.Type), 8);
    EXPECT_EQ(OffsetOf(base, base.Name), 16);
    EXPECT_EQ(OffsetOf(base, base.LinearUnit), 48);
    EXPECT_EQ(OffsetOf(base, base.AngularUnit), 56);
    EXPECT_EQ(OffsetOf(base, base.ScaleUnit), 64);
    EXPECT_EQ(OffsetOf(base, base.GeoTIFFCode), 72);
    EXPECT_EQ(OffsetOf(base, base.GeoTIFFType), 104);
    EXPECT_EQ(sizeof(TShellMapProjection), 136U);
}

// --- Defaults ----------------------------------------------------------------------------------------------

TEST(ShellMapProjection, HasNoWktAndNoMifByItself) {
    TFullDescription tree;
    TBareProjection const shell(&tree);
    EXPECT_EQ(WktTypeOf(shell), "false");
    EXPECT_EQ(WktOf(shell), "false");
    EXPECT_EQ(MifOf(shell), "false");
}

TEST(ShellMapProjection, ResetFreesTheUnitsAndKeepsNameAndCodes) {
    TFullDescription tree;
    TBareProjection shell(&tree);
    shell.Reset();
    EXPECT_EQ(shell.LinearUnit, nullptr);
    EXPECT_EQ(shell.AngularUnit, nullptr);
    EXPECT_EQ(shell.ScaleUnit, nullptr);
    EXPECT_EQ(shell.Name, "A name");
    EXPECT_EQ(shell.GeoTIFFCode, "16001");
    EXPECT_EQ(shell.GeoTIFFType, "1");
}

// --- Equality ----------------------------------------------------------------------------------------------

/** Compares the full description with one that is changed. */
template <class Change>
bool IsEqualAfter(Change change) {
    TFullDescription tree;
    TFullDescription changed;
    change(&changed);
    return TBareProjection(&tree) == TBareProjection(&changed);
}

TEST(ShellMapProjection, ComparesTypeCodesAndUnits) {
    EXPECT_TRUE(IsEqualAfter([](TStringTree*) {}));
    EXPECT_FALSE(IsEqualAfter([](TStringTree* tree) { Change(tree, 6001, "2"); }));
    EXPECT_FALSE(IsEqualAfter([](TStringTree* tree) { Change(tree, 102007, "16002"); }));
    EXPECT_FALSE(IsEqualAfter([](TStringTree* tree) { tree->DeleteField(102007, 0); }));
    EXPECT_FALSE(IsEqualAfter([](TStringTree* tree) { Change(tree, 102008, "2"); }));
    for (int const unit : {6090, 6091, 6092}) {
        EXPECT_FALSE(IsEqualAfter([&](TStringTree* tree) { Change(tree->FindSubtree(unit, 0), 5310, "7"); }));
        EXPECT_FALSE(IsEqualAfter([&](TStringTree* tree) { Change(tree->FindSubtree(unit, 0), 5320, "u"); }));
    }
}

TEST(ShellMapProjection, NamesArentCompared) {
    EXPECT_TRUE(IsEqualAfter([](TStringTree* tree) { Change(tree, 6020, "Another name"); }));
    EXPECT_TRUE(IsEqualAfter([](TStringTree* tree) { tree->DeleteField(6020, 0); }));
}

TEST(ShellMapProjection, UnitsAreEqualWhenBothAreMissing) {
    for (int const unit : {6090, 6091, 6092}) {
        TFullDescription with;
        TFullDescription without;
        without.DeleteSubtree(unit, 0);
        TFullDescription alsoWithout;
        alsoWithout.DeleteSubtree(unit, 0);
        EXPECT_FALSE(TBareProjection(&with) == TBareProjection(&without)) << unit;
        EXPECT_FALSE(TBareProjection(&without) == TBareProjection(&with)) << unit;
        EXPECT_TRUE(TBareProjection(&without) == TBareProjection(&alsoWithout)) << unit;
    }
}

// --- GeoTIFF -----------------------------------------------------------------------------------------------

/** The units that a caller hands over. */
struct TExportUnits {
    std::unique_ptr<TShellAngularUnit> angular = MakeAngularUnit(degree);
    std::unique_ptr<TShellLinearUnit> linear = MakeUnit<TShellLinearUnit>(foot);
};

TEST(ShellMapProjection, ACodeIsAllOfTheGeoTiff) {
    TFullDescription tree;
    TBareProjection const shell(&tree);
    TGeoKeys keys = {{3074, "older"}};
    // The units aren't touched: they may be missing.
    EXPECT_TRUE(shell.ExportToGeoTIFF(&keys, nullptr, nullptr));
    EXPECT_EQ(keys, (TGeoKeys{{3074, "16001"}}));
    EXPECT_EQ(shell.exports, 0);
}

TEST(ShellMapProjection, AMethodBringsItsParametersAndTheUnit) {
    TFullDescription tree;
    tree.DeleteField(102007, 0);
    TBareProjection shell(&tree);
    TExportUnits const units;
    for (bool const works : {true, false}) {
        shell.parametersWork = works;
        TGeoKeys keys = {{3074, "older"}, {3075, "older"}};
        EXPECT_EQ(shell.ExportToGeoTIFF(&keys, units.angular.get(), units.linear.get()), works);
        EXPECT_EQ(keys,
                  (TGeoKeys{{3074, "32767"}, {3075, "1"}, {3076, "32767"}, {3077, "0.3048"}, {3081, "0"}}));
    }
    EXPECT_EQ(shell.exports, 2);
    EXPECT_EQ(shell.angularUnit, units.angular.get());
    EXPECT_EQ(shell.linearUnit, units.linear.get());
}

TEST(ShellMapProjection, WithoutCodeAndMethodGeoTiffIsFalseWithTheUnit) {
    TBareDescription tree;
    TBareProjection const shell(&tree);
    TExportUnits const units;
    TGeoKeys keys;
    EXPECT_FALSE(shell.ExportToGeoTIFF(&keys, units.angular.get(), units.linear.get()));
    EXPECT_EQ(keys, (TGeoKeys{{3074, "32767"}, {3076, "32767"}, {3077, "0.3048"}}));
    EXPECT_EQ(shell.exports, 0);
}

TEST(ShellMapProjection, AUnitWithACodeIsThatCode) {
    TBareDescription tree;
    TBareProjection const shell(&tree);
    TStringTree unit;
    PutUnit(&unit, metre);
    unit.InsertInteger("epsg", 102002, 0, 9001);
    TShellLinearUnit const linear(&unit);
    TGeoKeys keys;
    EXPECT_FALSE(shell.ExportToGeoTIFF(&keys, nullptr, &linear));
    EXPECT_EQ(keys, (TGeoKeys{{3074, "32767"}, {3076, "9001"}}));
}

TEST(ShellMapProjection, GeoKeysOfTheUnitThatExistStay) {
    TBareDescription tree;
    TBareProjection const shell(&tree);
    TExportUnits const units;
    TGeoKeys keys = {{3076, "9001"}, {3077, "mine"}};
    EXPECT_FALSE(shell.ExportToGeoTIFF(&keys, units.angular.get(), units.linear.get()));
    EXPECT_EQ(keys, (TGeoKeys{{3074, "32767"}, {3076, "9001"}, {3077, "mine"}}));
}

TEST(ShellMapProjection, GeoTiffWithoutAUnitIsFalse) {
    TFullDescription tree;
    tree.DeleteField(102007, 0);
    TBareProjection const shell(&tree);
    TGeoKeys keys;
    EXPECT_FALSE(shell.ExportToGeoTIFF(&keys, nullptr, nullptr));
}

} // namespace
