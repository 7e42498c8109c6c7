#include "shell/datum/MolodenskyDatumShift.h"

#include "core/primitives/BursaWolfDatumShift.h"
#include "hostkit/XmlIni.h"
#include "tests/shell/datum/ShiftDescription.h"

#include <cmath>
#include <map>

namespace {

using namespace DatumTestKit;
using KvRefSystem::TBursaWolfDatumShift;
using KvRefSystem::TDatumShift;
using KvRefSystem::TShellDatumShift;
using KvRefSystem::TShellMolodenskyDatumShift;

static_assert(sizeof(TShellMolodenskyDatumShift) == 120);

constexpr char const* treeMessage =
    "TShellMolodenskyDatumShift::TShellMolodenskyDatumShift(TStringTree *tree)";
constexpr char const* xmlMessage =
    "TShellMolodenskyDatumShift::TShellMolodenskyDatumShift(TKvXIniReader *xml)";

TEST(ShellMolodenskyDatumShift, MembersStandInTheirOrder) {
    TShiftDescription tree(1);
    TShellMolodenskyDatumShift const shift(&tree);
    auto const offset = [&](auto const& member) {
        return reinterpret_cast<char const*>(&member) - reinterpret_cast<char const*>(&shift);
    };
    EXPECT_EQ(offset(shift.ShiftX), 16);
    EXPECT_EQ(offset(shift.ShiftY), 48);
    EXPECT_EQ(offset(shift.ShiftZ), 80);
    EXPECT_EQ(offset(shift.LinearUnit), 112);
}

TEST(ShellMolodenskyDatumShift, CreateGivesALinearShiftWithoutRotations) {
    TShiftDescription tree(1);
    TShellMolodenskyDatumShift const shift(&tree);
    std::unique_ptr<TDatumShift> const core(shift.Create());
    auto const* const linear = dynamic_cast<TBursaWolfDatumShift*>(core.get());
    ASSERT_NE(linear, nullptr);
    EXPECT_EQ(linear->Parameters->ShiftX, 23.92);
    EXPECT_EQ(linear->Parameters->ShiftY, -141.27);
    EXPECT_EQ(linear->Parameters->ShiftZ, -80.9);
    EXPECT_EQ(linear->Parameters->RotationX, 0.0);
    EXPECT_EQ(linear->Parameters->RotationY, 0.0);
    EXPECT_EQ(linear->Parameters->RotationZ, 0.0);
    EXPECT_EQ(linear->Parameters->Scale, 1.0);
    EXPECT_TRUE(linear->Parameters->OnlyShift);
}

TEST(ShellMolodenskyDatumShift, TranslationsAreInTheirUnit) {
    TShiftDescription tree(1, second, millionth, kilometre);
    TParams params;
    EXPECT_TRUE(params.Get(TShellMolodenskyDatumShift(&tree)));
    EXPECT_NEAR(params.value[0], 23920.0, 1e-9);
    EXPECT_NEAR(params.value[1], -141270.0, 1e-9);
    EXPECT_NEAR(params.value[2], -80900.0, 1e-9);
}

TEST(ShellMolodenskyDatumShift, HasNoExactForm) {
    TShiftDescription tree(1);
    TShellMolodenskyDatumShift shift(&tree);
    EXPECT_FALSE(shift.SetNonLinear(true));
    std::unique_ptr<TDatumShift> const core(shift.Create());
    EXPECT_FALSE(core->IsNonlinear());
}

TEST(ShellMolodenskyDatumShift, ParamsHaveZerosForWhatItHasNot) {
    TShiftDescription tree(1);
    TParams params;
    EXPECT_TRUE(params.Get(TShellMolodenskyDatumShift(&tree)));
    double const expected[] = {23.92, -141.27, -80.9, 0.0, 0.0, 0.0, 0.0};
    for (int k = 0; k < 7; ++k) {
        EXPECT_EQ(params.value[k], expected[k]) << k;
        EXPECT_EQ(std::signbit(params.value[k]), std::signbit(expected[k])) << k;
    }
}

TEST(ShellMolodenskyDatumShift, WKTAndMIFMIDHavePlainZeros) {
    TShiftDescription tree(1);
    TShellMolodenskyDatumShift const shift(&tree);
    std::string text = "old";
    EXPECT_TRUE(shift.ExportToWKT(&text));
    EXPECT_EQ(text, "TOWGS84[23.92,-141.27,-80.9,0,0,0,0]");
    EXPECT_TRUE(shift.ExportToMIFMID(&text));
    EXPECT_EQ(text, "23.92, -141.27, -80.9, 0, 0, 0, 0");
}

TEST(ShellMolodenskyDatumShift, MIFMIDHasEightPlacesAndSixDigits) {
    TShiftDescription tree(1);
    Change(&tree, 5461, "0.000000014");
    Change(&tree, 5462, "1234567.89");
    Change(&tree, 5463, "-0.000000004");
    std::string text;
    EXPECT_TRUE(TShellMolodenskyDatumShift(&tree).ExportToMIFMID(&text));
    EXPECT_EQ(text, "1e-08, 1.23457e+06, 0, 0, 0, 0, 0");
}

TEST(ShellMolodenskyDatumShift, GeoTIFFHasThreeNumbers) {
    TShiftDescription tree(1);
    TShellMolodenskyDatumShift const shift(&tree);
    std::map<int, std::string> keys;
    EXPECT_TRUE(shift.ExportToGeoTIFF(&keys));
    std::map<int, std::string> const expected = {{2062, "23.92,-141.27,-80.9"}};
    EXPECT_EQ(keys, expected);
    std::map<int, std::string> taken = {{2062, "x"}};
    EXPECT_TRUE(shift.ExportToGeoTIFF(&taken));
    EXPECT_EQ(taken.at(2062), "x");
}

TEST(ShellMolodenskyDatumShift, TreeNeedsOnlyTranslationsAndTheirUnit) {
    TShiftDescription tree(1);
    for (int const tag : {5464, 5465, 5466, 5467}) {
        tree.DeleteField(tag, 0);
    }
    tree.DeleteSubtree(5441, 0);
    tree.DeleteSubtree(5442, 0);
    EXPECT_EQ(TShellMolodenskyDatumShift(&tree).ShiftZ, "-80.9");
}

TEST(ShellMolodenskyDatumShift, EachRequiredPartIsMissedWithTheSameMessage) {
    for (int const tag : {5461, 5462, 5463}) {
        TShiftDescription tree(1);
        tree.DeleteField(tag, 0);
        EXPECT_EQ(MessageOf([&] { TShellMolodenskyDatumShift const shift(&tree); }), treeMessage) << tag;
    }
    TShiftDescription tree(1);
    tree.DeleteSubtree(5440, 0);
    EXPECT_EQ(MessageOf([&] { TShellMolodenskyDatumShift const shift(&tree); }), treeMessage);
}

TEST(ShellMolodenskyDatumShift, UnitBesideTheTextsIsNotLookedAt) {
    TShiftDescription tree(1);
    tree.DeleteSubtree(5440, 0);
    PutUnit(&tree, metre);
    EXPECT_EQ(MessageOf([&] { TShellMolodenskyDatumShift const shift(&tree); }), treeMessage);
}

TEST(ShellMolodenskyDatumShift, BrokenUnitSpeaksForItself) {
    TShiftDescription tree(1);
    tree.FindSubtree(5440, 0)->DeleteField(5320, 0);
    EXPECT_EQ(MessageOf([&] { TShellMolodenskyDatumShift const shift(&tree); }), unitMessage);
}

TEST(ShellMolodenskyDatumShift, EmptyTextsOfATreeAreZero) {
    TShiftDescription tree(1);
    Change(&tree, 5462, "");
    TParams params;
    EXPECT_TRUE(params.Get(TShellMolodenskyDatumShift(&tree)));
    EXPECT_EQ(params.value[1], 0.0);
}

TEST(ShellMolodenskyDatumShift, TextThatDoesNotParseThrowsOnUse) {
    for (int const tag : {5461, 5462, 5463}) {
        TShiftDescription tree(1);
        Change(&tree, tag, "far");
        TShellMolodenskyDatumShift const shift(&tree);
        EXPECT_EQ(MessageOf([&] { delete shift.Create(); }), parseMessage) << tag;
        std::string text = "kept";
        EXPECT_EQ(MessageOf([&] { shift.ExportToWKT(&text); }), parseMessage) << tag;
        EXPECT_EQ(MessageOf([&] { shift.ExportToMIFMID(&text); }), parseMessage) << tag;
        EXPECT_EQ(text, "kept");
        std::map<int, std::string> keys;
        EXPECT_EQ(MessageOf([&] { shift.ExportToGeoTIFF(&keys); }), parseMessage) << tag;
        EXPECT_TRUE(keys.empty());
        TParams params;
        EXPECT_EQ(MessageOf([&] { params.Get(shift); }), parseMessage) << tag;
        EXPECT_EQ(params.value[0], 9.0);
    }
}

TEST(ShellMolodenskyDatumShift, AfterResetCreationThrowsAndTheRestIsFalse) {
    TShiftDescription tree(1);
    TShellMolodenskyDatumShift shift(&tree);
    shift.Reset();
    EXPECT_EQ(shift.LinearUnit, nullptr);
    EXPECT_EQ(shift.ShiftX + shift.ShiftY + shift.ShiftZ, "");
    EXPECT_EQ(MessageOf([&] { delete shift.Create(); }),
              "TDatumShift* TShellMolodenskyDatumShift::Create() const");
    std::string text = "kept";
    EXPECT_FALSE(shift.ExportToWKT(&text));
    EXPECT_FALSE(shift.ExportToMIFMID(&text));
    EXPECT_EQ(text, "kept");
    std::map<int, std::string> keys;
    EXPECT_FALSE(shift.ExportToGeoTIFF(&keys));
    EXPECT_TRUE(keys.empty());
    TParams params;
    EXPECT_FALSE(params.Get(shift));
    EXPECT_EQ(params.value[6], 9.0);
    MemoryXIni::TNode root;
    MemoryXIni::TWriter writer(&root);
    EXPECT_FALSE(shift.SaveToXML(&writer));
}

TEST(ShellMolodenskyDatumShift, XMLHasTheKeysInTheirOrder) {
    TShiftDescription tree(1);
    std::vector<std::string> const expected = {"DatumShiftType", "DatumShiftDx", "DatumShiftDy",
                                               "DatumShiftDz", "DatumShiftLinearUnit"};
    EXPECT_EQ(Keys(Saved(TShellMolodenskyDatumShift(&tree))), expected);
}

TEST(ShellMolodenskyDatumShift, XMLRoundTripKeepsEverything) {
    TShiftDescription tree(1, second, millionth, kilometre);
    Change(&tree, 5461, " 23.9200");
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(TShellMolodenskyDatumShift(&tree).SaveToXML(&writer));
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    TShellMolodenskyDatumShift const copy(&reader);
    EXPECT_EQ(copy.Type, 1);
    EXPECT_EQ(copy.ShiftX, " 23.9200");
    EXPECT_EQ(copy.ShiftY, "-141.27");
    EXPECT_EQ(copy.ShiftZ, "-80.9");
    EXPECT_EQ(copy.LinearUnit->Name, "kilometre");
}

TEST(ShellMolodenskyDatumShift, XMLNeedsEveryPart) {
    TShiftDescription tree(1);
    MemoryXIni::TNode const complete = Saved(TShellMolodenskyDatumShift(&tree));
    for (char const* const key : {"DatumShiftDx", "DatumShiftDy", "DatumShiftDz", "DatumShiftLinearUnit"}) {
        MemoryXIni::TNode root = complete;
        root.Drop(key);
        MemoryXIni::TReader reader(&root);
        EXPECT_EQ(MessageOf([&] { TShellMolodenskyDatumShift const copy(&reader); }), xmlMessage) << key;
    }
}

TEST(ShellMolodenskyDatumShift, XMLRefusesAnotherForm) {
    TShiftDescription tree(1);
    for (char const* const type : {"2", "3"}) {
        MemoryXIni::TNode root = Saved(TShellMolodenskyDatumShift(&tree));
        root.Find("DatumShiftType").text = type;
        MemoryXIni::TReader reader(&root);
        EXPECT_EQ(MessageOf([&] { TShellMolodenskyDatumShift const copy(&reader); }), xmlMessage) << type;
    }
}

TEST(ShellMolodenskyDatumShift, XMLWithABrokenUnitIsFalseAndLeavesTheSection) {
    TShiftDescription tree(1);
    TShellMolodenskyDatumShift shift(&tree);
    MemoryXIni::TNode root = Saved(shift);
    root.Find("DatumShiftLinearUnit").Find("UnitType").text = "3";
    MemoryXIni::TReader reader(&root);
    EXPECT_FALSE(shift.LoadFromXML(&reader));
    EXPECT_EQ(reader.Depth(), 0U);
    EXPECT_FALSE(shift.LoadFromXML(nullptr));
}

TEST(ShellMolodenskyDatumShift, XMLConstructorLeaksNothingWhenTheReaderThrows) {
    TShiftDescription tree(1);
    MemoryXIni::TNode root = Saved(TShellMolodenskyDatumShift(&tree));
    MemoryXIni::TReader counter(&root);
    { TShellMolodenskyDatumShift const complete(&counter); }
    for (unsigned long operation = 1; operation <= counter.operations; ++operation) {
        MemoryXIni::TReader reader(&root);
        reader.failingOperation = operation;
        EXPECT_ANY_THROW(TShellMolodenskyDatumShift const copy(&reader)) << operation;
        EXPECT_EQ(reader.Depth(), 0U) << operation;
    }
}

TEST(ShellMolodenskyDatumShift, EveryFailedWriteIsReported) {
    TShiftDescription tree(1);
    ExpectEveryFailedWriteIsReported(TShellMolodenskyDatumShift(&tree));
}

} // namespace
