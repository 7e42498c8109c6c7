#include "shell/datum/BursaWolfDatumShift.h"
#include "shell/datum/Ellipsoid.h"
#include "shell/datum/MolodenskyDatumShift.h"
#include "shell/datum/PrimeMeridian.h"

#include "core/primitives/BursaWolfDatumShift.h"
#include "shell/units/SexagesimalUnits.h"
#include "tests/shell/datum/ShiftDescription.h"
#include "tests/shell/units/UnitFixtures.h"

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace DatumTestKit;
using KvRefSystem::TBursaWolfDatumShift;
using KvRefSystem::TDatumShift;
using KvRefSystem::TShellAngularUnit;
using KvRefSystem::TShellBursaWolfDatumShift;
using KvRefSystem::TShellBursaWolfInvRotDatumShift;
using KvRefSystem::TShellDatumShift;
using KvRefSystem::TShellEllipsoid;
using KvRefSystem::TShellMolodenskyDatumShift;
using KvRefSystem::TShellPrimeMeridian;
using KvRefSystem::UnitTests::SlotOf;

constexpr TUnit unity = {0, 3, "1", "1", "unity"};

struct TEllipsoidDescription : TStringTree {
    TEllipsoidDescription() {
        InsertString("", 5120, 0, "WGS84");
        InsertString("", 5121, 0, "a description");
        InsertString("", 5110, 0, "6378137");
        InsertString("", 5111, 0, "6356752");
        InsertInteger("", 5114, 0, 1);
        InsertInteger("", 5115, 0, 0);
        InsertString("", 5112, 0, "298.257223563");
        InsertInteger("", 102004, 0, 7030);
        PutUnitSubtree(this, 5113, metre);
    }
};

struct TMeridianDescription : TStringTree {
    explicit TMeridianDescription(std::string const& longitude = "2.5", TUnit const& unit = degree) {
        InsertString("", 5220, 0, "Paris");
        InsertString("", 5221, 0, "a description");
        InsertString("", 5210, 0, longitude);
        PutUnitSubtree(this, 5211, unit);
    }
};

/** A value stands where the section is expected. */
MemoryXIni::TNode WithValueInsteadOf(MemoryXIni::TNode root, char const* section) {
    root.Drop(section);
    root.children.push_back(MemoryXIni::TNode{section, "metre", false, {}});
    return root;
}

// --- Ellipsoid and prime meridian ---

TEST(DatumEdge, LoadClearsALiveEllipsoidFirst) {
    TEllipsoidDescription tree;
    TShellEllipsoid ellipsoid(&tree);
    ellipsoid.MIFMIDCode = 28;
    MemoryXIni::TNode empty;
    MemoryXIni::TReader reader(&empty);
    EXPECT_FALSE(ellipsoid.LoadFromXML(&reader));
    EXPECT_EQ(ellipsoid.Name + ellipsoid.Description + ellipsoid.MajorSemiAxis + ellipsoid.MinorSemiAxis +
                  ellipsoid.InverseFlattening,
              "");
    EXPECT_EQ(ellipsoid.LinearUnit, nullptr);
    EXPECT_EQ(ellipsoid.GeoTIFFCode, 0);
    EXPECT_EQ(ellipsoid.MIFMIDCode, -1);
}

TEST(DatumEdge, LoadClearsALiveMeridianFirst) {
    TMeridianDescription tree;
    tree.InsertInteger("", 102009, 0, 8903);
    TShellPrimeMeridian meridian(&tree);
    MemoryXIni::TNode empty;
    MemoryXIni::TReader reader(&empty);
    EXPECT_FALSE(meridian.LoadFromXML(&reader));
    EXPECT_EQ(meridian.Name + meridian.Description + meridian.Longitude, "");
    EXPECT_EQ(meridian.AngularUnit, nullptr);
    EXPECT_EQ(meridian.GeoTIFFCode, 0);
    EXPECT_TRUE(meridian.IsZero);
}

TEST(DatumEdge, ValueInThePlaceOfTheUnitIsNoUnit) {
    TEllipsoidDescription ellipsoidTree;
    TShellEllipsoid ellipsoid(&ellipsoidTree);
    MemoryXIni::TNode ellipsoidRoot = WithValueInsteadOf(Saved(ellipsoid), "EllipsoidLinearUnit");
    MemoryXIni::TReader ellipsoidReader(&ellipsoidRoot);
    EXPECT_FALSE(ellipsoid.LoadFromXML(&ellipsoidReader));
    EXPECT_EQ(ellipsoid.LinearUnit, nullptr);
    EXPECT_EQ(ellipsoid.Name, "WGS84");
    EXPECT_EQ(ellipsoidReader.Depth(), 0U);

    TMeridianDescription meridianTree;
    TShellPrimeMeridian meridian(&meridianTree);
    MemoryXIni::TNode meridianRoot = WithValueInsteadOf(Saved(meridian), "PrimeMeridianAngularUnit");
    MemoryXIni::TReader meridianReader(&meridianRoot);
    EXPECT_FALSE(meridian.LoadFromXML(&meridianReader));
    EXPECT_EQ(meridianReader.Depth(), 0U);

    TShiftDescription shiftTree(2);
    TShellBursaWolfDatumShift shift(&shiftTree);
    MemoryXIni::TNode const shiftRoot = Saved(shift);
    for (char const* const key : {"DatumShiftLinearUnit", "DatumShiftAngularUnit", "DatumShiftScalarUnit"}) {
        MemoryXIni::TNode root = WithValueInsteadOf(shiftRoot, key);
        MemoryXIni::TReader reader(&root);
        EXPECT_FALSE(shift.LoadFromXML(&reader)) << key;
        EXPECT_EQ(reader.Depth(), 0U) << key;
    }
}

TEST(DatumEdge, SphereFlagDoesNotReplaceAMissingFlattening) {
    TEllipsoidDescription tree;
    Change(&tree, 5115, "1");
    tree.DeleteField(5112, 0);
    EXPECT_EQ(MessageOf([&] { TShellEllipsoid const ellipsoid(&tree); }),
              "TShellEllipsoid::TShellEllipsoid(TStringTree *tree)");
}

TEST(DatumEdge, NegativeFlagsCountAsSet) {
    TEllipsoidDescription tree;
    Change(&tree, 5114, "-1");
    Change(&tree, 5115, "-1");
    TShellEllipsoid const ellipsoid(&tree);
    EXPECT_EQ(ellipsoid.InverseFlattening, "298.257223563");
    EXPECT_EQ(ellipsoid.MinorSemiAxis, "6378137");
}

TEST(DatumEdge, FlatteningIsReadAsFarAsItIsANumber) {
    TEllipsoidDescription tree;
    Change(&tree, 5112, "2 pounds");
    TShellEllipsoid const ellipsoid(&tree);
    double a = 0.0;
    double b = 0.0;
    EXPECT_TRUE(ellipsoid.GetSemiAxesMeters(&a, &b));
    EXPECT_EQ(b, 3189068.5); // (2 - 1) 6378137 / 2
    std::map<int, std::string> keys;
    EXPECT_TRUE(ellipsoid.ExportToGeoTIFF(&keys, nullptr));
    EXPECT_EQ(keys.at(2059), "2 pounds");
}

TEST(DatumEdge, MeridianLeavesEmptyTextsAndNoCodeOut) {
    TMeridianDescription tree;
    Change(&tree, 5220, "");
    Change(&tree, 5221, "");
    MemoryXIni::TNode root = Saved(TShellPrimeMeridian(&tree));
    EXPECT_EQ(Keys(root), (std::vector<std::string>{"PrimeMeridianLongitude", "PrimeMeridianAngularUnit"}));
    MemoryXIni::TReader reader(&root);
    TShellPrimeMeridian const copy(&reader);
    EXPECT_EQ(copy.Name + copy.Description, "");
    EXPECT_EQ(copy.GeoTIFFCode, 0);
}

TEST(DatumEdge, MeridianHasNoGeoTIFFTextInTheHemisphereNotation) {
    TMeridianDescription tree;
    TStringTree unitTree;
    PutUnit(&unitTree, TUnit{8, 2, "3.14159265358979312", "180", "dmsh"});
    KvRefSystem::TShellUnitDegreeMinuteSecondHemisphere const letters(&unitTree);
    std::map<int, std::string> keys;
    EXPECT_THROW(TShellPrimeMeridian(&tree).ExportToGeoTIFF(&keys, &letters), std::logic_error);
    EXPECT_TRUE(keys.empty());
}

TEST(DatumEdge, MeridianInTheHemisphereNotationKeepsItsLetter) {
    TMeridianDescription tree("17 40 0 W", TUnit{8, 2, "3.14159265358979312", "180", "dmsh"});
    std::string text;
    EXPECT_TRUE(TShellPrimeMeridian(&tree).ExportToWKT(&text, nullptr));
    EXPECT_EQ(text, "PRIMEM[\"Paris\",-17.6666666666667]");
}

TEST(DatumEdge, MeridianNameMayBeOfAnyLength) {
    TMeridianDescription tree("0");
    std::string const name(5000, 'n');
    Change(&tree, 5220, name);
    std::string text;
    EXPECT_TRUE(TShellPrimeMeridian(&tree).ExportToWKT(&text, nullptr));
    EXPECT_EQ(text, "PRIMEM[\"" + name + "\",0]");
}

TEST(DatumEdge, MeridianCodeMayBeBesideAMissingUnitInGeoTIFF) {
    TMeridianDescription tree;
    TShellPrimeMeridian meridian(&tree);
    meridian.Reset();
    meridian.GeoTIFFCode = 8903;
    std::map<int, std::string> keys;
    EXPECT_TRUE(meridian.ExportToGeoTIFF(&keys, nullptr));
    EXPECT_EQ(keys, (std::map<int, std::string>{{2051, "8903"}}));
}

// --- Datum shifts ---

TEST(DatumEdge, ShiftOperationsStandInTheirSlots) {
    EXPECT_EQ(SlotOf(&TShellDatumShift::Create), 2);
    EXPECT_EQ(SlotOf(&TShellDatumShift::ExportToMIFMID), 3);
    EXPECT_EQ(SlotOf(&TShellDatumShift::ExportToWKT), 4);
    EXPECT_EQ(SlotOf(&TShellDatumShift::ExportToGeoTIFF), 5);
    EXPECT_EQ(SlotOf(&TShellDatumShift::LoadFromXML), 6);
    EXPECT_EQ(SlotOf(&TShellDatumShift::SaveToXML), 7);
    EXPECT_EQ(SlotOf(&TShellDatumShift::SetNonLinear), 8);
    EXPECT_EQ(SlotOf(&TShellDatumShift::GetDatumShiftParams), 9);
}

TEST(DatumEdge, EachGroupOfAShiftIsInItsOwnUnit) {
    TShiftDescription tree(2, degree, unity, foot);
    Change(&tree, 5461, "1000");
    Change(&tree, 5464, "0.0001");
    TShellBursaWolfDatumShift const shift(&tree);
    std::string text;
    EXPECT_TRUE(shift.ExportToWKT(&text));
    // Feet times 0.3048, degrees times 3600, a plain factor times a million.
    EXPECT_EQ(text, "TOWGS84[304.8,-43.059096,-24.65832,0.36,-1260,-2952,-120000]");
    std::unique_ptr<TDatumShift> const core(shift.Create());
    auto const& parameters = *dynamic_cast<TBursaWolfDatumShift&>(*core).Parameters;
    EXPECT_NEAR(parameters.ShiftX, 304.8, 1e-12);
    EXPECT_NEAR(parameters.RotationX, 0.0001 * 3.141592653589793 / 180.0, 1e-20);
    EXPECT_NEAR(parameters.Scale, 0.88, 1e-15);
    TParams params;
    EXPECT_TRUE(params.Get(shift));
    EXPECT_NEAR(params.value[0], 304.8, 1e-12);
    EXPECT_NEAR(params.value[3], -0.36, 1e-15);
    EXPECT_NEAR(params.value[6], -120000.0, 1e-9);
}

TEST(DatumEdge, NonLinearKeyIsAnyNumberButZero) {
    TShiftDescription tree(3);
    tree.InsertInteger("", 5469, 0, -1);
    TShellBursaWolfInvRotDatumShift shift(&tree);
    EXPECT_TRUE(shift.NonLinear);
    MemoryXIni::TNode root = Saved(shift);
    struct TCase {
        char const* text;
        bool nonLinear;
    };
    for (TCase const& row : {TCase{"2", true}, TCase{"-1", true}, TCase{"0", false}, TCase{"x", false}}) {
        root.Find("DatumShiftNonLinear").text = row.text;
        MemoryXIni::TReader reader(&root);
        EXPECT_TRUE(shift.LoadFromXML(&reader)) << row.text;
        EXPECT_EQ(shift.NonLinear, row.nonLinear) << row.text;
    }
}

TEST(DatumEdge, FailedLoadEmptiesALiveShift) {
    TShiftDescription tree(2);
    tree.InsertInteger("", 5469, 0, 1);
    TShellBursaWolfDatumShift seven(&tree);
    MemoryXIni::TNode empty;
    MemoryXIni::TReader reader(&empty);
    EXPECT_FALSE(seven.LoadFromXML(&reader));
    EXPECT_FALSE(seven.LoadFromXML(nullptr));
    EXPECT_EQ(seven.ShiftX + seven.RotationX + seven.ScaleDifference, "");
    EXPECT_EQ(seven.AngularUnit, nullptr);
    EXPECT_FALSE(seven.NonLinear);
    EXPECT_EQ(seven.Type, 2);
    TShiftDescription threeTree(1);
    TShellMolodenskyDatumShift three(&threeTree);
    EXPECT_FALSE(three.LoadFromXML(&reader));
    EXPECT_EQ(three.ShiftX + three.ShiftY + three.ShiftZ, "");
    EXPECT_EQ(three.LinearUnit, nullptr);
}

TEST(DatumEdge, LoadOfAnotherFormStoresItsTypeAllTheSame) {
    TShiftDescription tree(2);
    TShellBursaWolfDatumShift shift(&tree);
    MemoryXIni::TNode root = Saved(shift);
    root.Find("DatumShiftType").text = "3";
    MemoryXIni::TReader reader(&root);
    EXPECT_FALSE(shift.LoadFromXML(&reader));
    EXPECT_EQ(shift.Type, 3);
}

TEST(DatumEdge, NullArgumentsHaveTheMessageOfTheRoot) {
    auto* const noTree = static_cast<TStringTree*>(nullptr);
    auto* const noReader = static_cast<TKvXIniReader*>(nullptr);
    constexpr char const* treeMessage = "TShellDatumShift::TShellDatumShift(TStringTree *tree)";
    constexpr char const* xmlMessage = "TShellDatumShift::TShellDatumShift(TKvXIniReader *xml)";
    EXPECT_EQ(MessageOf([&] { TShellBursaWolfDatumShift const shift(noTree); }), treeMessage);
    EXPECT_EQ(MessageOf([&] { TShellBursaWolfInvRotDatumShift const shift(noTree); }), treeMessage);
    EXPECT_EQ(MessageOf([&] { TShellMolodenskyDatumShift const shift(noTree); }), treeMessage);
    EXPECT_EQ(MessageOf([&] { TShellBursaWolfDatumShift const shift(noReader); }), xmlMessage);
    EXPECT_EQ(MessageOf([&] { TShellBursaWolfInvRotDatumShift const shift(noReader); }), xmlMessage);
    EXPECT_EQ(MessageOf([&] { TShellMolodenskyDatumShift const shift(noReader); }), xmlMessage);
    TShiftDescription tree(2);
    EXPECT_FALSE(TShellBursaWolfDatumShift(&tree).SaveToXML(nullptr));
}

} // namespace
