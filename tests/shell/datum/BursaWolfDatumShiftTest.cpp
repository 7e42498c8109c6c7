#include "shell/datum/BursaWolfDatumShift.h"

#include "core/primitives/BursaWolfDatumShift.h"
#include "hostkit/XmlIni.h"
#include "shell/units/SexagesimalUnits.h"
#include "tests/shell/datum/ShiftDescription.h"

#include <cmath>
#include <map>

namespace {

using namespace DatumTestKit;
using KvRefSystem::TBursaWolfDatumShift;
using KvRefSystem::TBursaWolfNonlinearDatumShift;
using KvRefSystem::TDatumShift;
using KvRefSystem::TShellAngularUnit;
using KvRefSystem::TShellBursaWolfDatumShift;
using KvRefSystem::TShellBursaWolfInvRotDatumShift;
using KvRefSystem::TShellUnitDegreeMinuteSecond;

static_assert(sizeof(TShellBursaWolfDatumShift) == 272);
static_assert(sizeof(TShellBursaWolfInvRotDatumShift) == 272);
static_assert(!std::is_base_of_v<TShellBursaWolfDatumShift, TShellBursaWolfInvRotDatumShift>);

constexpr double secondInRadians = 4.84813681109536e-06; // pi / 648000

/** What both forms have in common is tested on both. */
template <class Shift>
struct TForm;

template <>
struct TForm<TShellBursaWolfDatumShift> {
    static constexpr int type = 2;
    static constexpr char const* treeMessage =
        "TShellBursaWolfDatumShift::TShellBursaWolfDatumShift(TStringTree *tree)";
    static constexpr char const* xmlMessage =
        "TShellBursaWolfDatumShift::TShellBursaWolfDatumShift(TKvXIniReader *xml)";
    static constexpr char const* createMessage = "TDatumShift* TShellBursaWolfDatumShift::Create() const";
};

template <>
struct TForm<TShellBursaWolfInvRotDatumShift> {
    static constexpr int type = 3;
    static constexpr char const* treeMessage =
        "TShellBursaWolfInvRotDatumShift::TShellBursaWolfInvRotDatumShift(TStringTree *tree)";
    static constexpr char const* xmlMessage =
        "TShellBursaWolfInvRotDatumShift::TShellBursaWolfInvRotDatumShift(TKvXIniReader *xml)";
    static constexpr char const* createMessage =
        "TDatumShift* TShellBursaWolfInvRotDatumShift::Create() const";
};

template <class Shift>
class ShellBursaWolfForms : public testing::Test {
protected:
    using Form = TForm<Shift>;
};

struct TFormNames {
    template <class Shift>
    static std::string GetName(int) {
        return TForm<Shift>::type == 2 ? "PositionVector" : "CoordinateFrame";
    }
};

using TForms = testing::Types<TShellBursaWolfDatumShift, TShellBursaWolfInvRotDatumShift>;
TYPED_TEST_SUITE(ShellBursaWolfForms, TForms, TFormNames);

template <class Shift>
std::string WKT(Shift const& shift) {
    std::string text = "old";
    EXPECT_TRUE(shift.ExportToWKT(&text));
    return text;
}

template <class Shift>
std::string MIFMID(Shift const& shift) {
    std::string text = "old";
    EXPECT_TRUE(shift.ExportToMIFMID(&text));
    return text;
}

template <class Shift>
std::string GeoTIFF(Shift const& shift) {
    std::map<int, std::string> keys;
    EXPECT_TRUE(shift.ExportToGeoTIFF(&keys));
    EXPECT_EQ(keys.size(), 1U);
    return keys[2062];
}

TYPED_TEST(ShellBursaWolfForms, MembersStandInTheirOrder) {
    TShiftDescription tree(TestFixture::Form::type);
    TypeParam const shift(&tree);
    auto const offset = [&](auto const& member) {
        return reinterpret_cast<char const*>(&member) - reinterpret_cast<char const*>(&shift);
    };
    EXPECT_EQ(offset(shift.ShiftX), 16);
    EXPECT_EQ(offset(shift.ShiftY), 48);
    EXPECT_EQ(offset(shift.ShiftZ), 80);
    EXPECT_EQ(offset(shift.RotationX), 112);
    EXPECT_EQ(offset(shift.RotationY), 144);
    EXPECT_EQ(offset(shift.RotationZ), 176);
    EXPECT_EQ(offset(shift.ScaleDifference), 208);
    EXPECT_EQ(offset(shift.LinearUnit), 240);
    EXPECT_EQ(offset(shift.AngularUnit), 248);
    EXPECT_EQ(offset(shift.ScaleUnit), 256);
    EXPECT_EQ(offset(shift.NonLinear), 264);
}

TYPED_TEST(ShellBursaWolfForms, TreeKeepsTheTextsAsTheyWereTyped) {
    TShiftDescription tree(TestFixture::Form::type);
    Change(&tree, 5464, " 0.000");
    TypeParam const shift(&tree);
    EXPECT_EQ(shift.Type, TestFixture::Form::type);
    EXPECT_EQ(shift.ShiftX, "23.92");
    EXPECT_EQ(shift.ShiftY, "-141.27");
    EXPECT_EQ(shift.ShiftZ, "-80.9");
    EXPECT_EQ(shift.RotationX, " 0.000");
    EXPECT_EQ(shift.RotationY, "-0.35");
    EXPECT_EQ(shift.RotationZ, "-0.82");
    EXPECT_EQ(shift.ScaleDifference, "-0.12");
    EXPECT_EQ(shift.LinearUnit->Name, "metre");
    EXPECT_EQ(shift.AngularUnit->Name, "second");
    EXPECT_EQ(shift.ScaleUnit->Name, "ppm");
}

TYPED_TEST(ShellBursaWolfForms, NonLinearFieldOfZeroAndNoneAreLinear) {
    for (char const* const text : {"", "0", "yes"}) {
        TShiftDescription tree(TestFixture::Form::type);
        if (*text != '\0') {
            tree.InsertString("", 5469, 0, text);
        }
        TypeParam const shift(&tree);
        EXPECT_FALSE(shift.NonLinear) << text;
        std::unique_ptr<TDatumShift> const core(shift.Create());
        EXPECT_NE(dynamic_cast<TBursaWolfDatumShift*>(core.get()), nullptr) << text;
    }
}

TYPED_TEST(ShellBursaWolfForms, NonLinearFieldChoosesTheExactForm) {
    TShiftDescription tree(TestFixture::Form::type);
    tree.InsertInteger("", 5469, 0, 5);
    TypeParam const shift(&tree);
    EXPECT_TRUE(shift.NonLinear);
    std::unique_ptr<TDatumShift> const core(shift.Create());
    EXPECT_NE(dynamic_cast<TBursaWolfNonlinearDatumShift*>(core.get()), nullptr);
}

TYPED_TEST(ShellBursaWolfForms, SetNonLinearStoresTheFlag) {
    TShiftDescription tree(TestFixture::Form::type);
    TypeParam shift(&tree);
    EXPECT_TRUE(shift.SetNonLinear(true));
    EXPECT_TRUE(shift.NonLinear);
    std::unique_ptr<TDatumShift> const exact(shift.Create());
    EXPECT_TRUE(exact->IsNonlinear());
    EXPECT_TRUE(shift.SetNonLinear(false));
    std::unique_ptr<TDatumShift> const linear(shift.Create());
    EXPECT_FALSE(linear->IsNonlinear());
}

TYPED_TEST(ShellBursaWolfForms, ScaleOfZeroIsExactlyOneInTheCore) {
    for (TUnit const& unit : {millionth, TUnit{0, 3, "1", "1", "unity"}, TUnit{0, 3, "1", "3", "third"}}) {
        TShiftDescription tree(TestFixture::Form::type, second, unit);
        Change(&tree, 5467, "0");
        std::unique_ptr<TDatumShift> const core(TypeParam(&tree).Create());
        EXPECT_EQ(dynamic_cast<TBursaWolfDatumShift&>(*core).Parameters->Scale, 1.0) << unit.name;
    }
}

TYPED_TEST(ShellBursaWolfForms, ScaleOfOneMillionthIsOnePartPerMillion) {
    TShiftDescription tree(TestFixture::Form::type);
    Change(&tree, 5467, "1");
    TypeParam const shift(&tree);
    std::unique_ptr<TDatumShift> const core(shift.Create());
    EXPECT_EQ(dynamic_cast<TBursaWolfDatumShift&>(*core).Parameters->Scale, 1.000001);
    TParams params;
    EXPECT_TRUE(params.Get(shift));
    EXPECT_NEAR(params.value[6], 1.0, 1e-15);
    std::string const text = WKT(shift);
    EXPECT_EQ(text.substr(text.size() - 3), ",1]");
}

TYPED_TEST(ShellBursaWolfForms, EachRequiredPartIsMissedWithTheSameMessage) {
    for (int tag = 5461; tag <= 5467; ++tag) {
        TShiftDescription tree(TestFixture::Form::type);
        tree.DeleteField(tag, 0);
        EXPECT_EQ(MessageOf([&] { TypeParam const shift(&tree); }), TestFixture::Form::treeMessage) << tag;
    }
    for (int tag = 5440; tag <= 5442; ++tag) {
        TShiftDescription tree(TestFixture::Form::type);
        tree.DeleteSubtree(tag, 0);
        EXPECT_EQ(MessageOf([&] { TypeParam const shift(&tree); }), TestFixture::Form::treeMessage) << tag;
    }
}

TYPED_TEST(ShellBursaWolfForms, AngularUnitWithoutACodeIsMissing) {
    TShiftDescription tree(TestFixture::Form::type);
    tree.FindSubtree(5441, 0)->DeleteField(5301, 0);
    EXPECT_EQ(MessageOf([&] { TypeParam const shift(&tree); }), TestFixture::Form::treeMessage);
}

TYPED_TEST(ShellBursaWolfForms, BrokenUnitSpeaksForItself) {
    for (int tag = 5440; tag <= 5442; ++tag) {
        TShiftDescription tree(TestFixture::Form::type);
        tree.FindSubtree(tag, 0)->DeleteField(5320, 0);
        EXPECT_EQ(MessageOf([&] { TypeParam const shift(&tree); }), unitMessage) << tag;
    }
}

TYPED_TEST(ShellBursaWolfForms, WithoutATypeTheRootSpeaks) {
    TShiftDescription tree(0);
    EXPECT_EQ(MessageOf([&] { TypeParam const shift(&tree); }),
              "TShellDatumShift::TShellDatumShift(TStringTree *tree)");
}

TYPED_TEST(ShellBursaWolfForms, TypeOfATreeIsNotCheckedAgainstTheClass) {
    TShiftDescription tree(1);
    TypeParam const shift(&tree);
    EXPECT_EQ(shift.Type, 1);
    EXPECT_EQ(Saved(shift).Find("DatumShiftType").text, "1");
}

TYPED_TEST(ShellBursaWolfForms, EmptyTextsOfATreeAreZero) {
    TShiftDescription tree(TestFixture::Form::type);
    for (int tag = 5461; tag <= 5467; ++tag) {
        Change(&tree, tag, "");
    }
    std::unique_ptr<TDatumShift> const core(TypeParam(&tree).Create());
    EXPECT_TRUE(dynamic_cast<TBursaWolfDatumShift&>(*core).Parameters->OnlyShift);
}

TYPED_TEST(ShellBursaWolfForms, TextThatDoesNotParseThrowsOnUse) {
    for (int tag = 5461; tag <= 5467; ++tag) {
        TShiftDescription tree(TestFixture::Form::type);
        Change(&tree, tag, "far");
        TypeParam const shift(&tree);
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

TYPED_TEST(ShellBursaWolfForms, AfterResetCreationThrowsAndTheRestIsFalse) {
    TShiftDescription tree(TestFixture::Form::type);
    TypeParam shift(&tree);
    shift.SetNonLinear(true);
    shift.Reset();
    EXPECT_EQ(shift.LinearUnit, nullptr);
    EXPECT_EQ(shift.AngularUnit, nullptr);
    EXPECT_EQ(shift.ScaleUnit, nullptr);
    EXPECT_FALSE(shift.NonLinear);
    EXPECT_EQ(shift.ShiftX + shift.ShiftY + shift.ShiftZ + shift.RotationX + shift.RotationY +
                  shift.RotationZ + shift.ScaleDifference,
              "");
    EXPECT_EQ(MessageOf([&] { delete shift.Create(); }), TestFixture::Form::createMessage);
    std::string text = "kept";
    EXPECT_FALSE(shift.ExportToWKT(&text));
    EXPECT_FALSE(shift.ExportToMIFMID(&text));
    EXPECT_EQ(text, "kept");
    std::map<int, std::string> keys;
    EXPECT_FALSE(shift.ExportToGeoTIFF(&keys));
    EXPECT_TRUE(keys.empty());
    TParams params;
    EXPECT_FALSE(params.Get(shift));
    EXPECT_EQ(params.value[0], 9.0);
    MemoryXIni::TNode root;
    MemoryXIni::TWriter writer(&root);
    EXPECT_FALSE(shift.SaveToXML(&writer));
}

TYPED_TEST(ShellBursaWolfForms, GeoTIFFKeepsAnEntryThatIsThere) {
    TShiftDescription tree(TestFixture::Form::type);
    std::map<int, std::string> keys = {{2062, "x"}};
    EXPECT_TRUE(TypeParam(&tree).ExportToGeoTIFF(&keys));
    EXPECT_EQ(keys.at(2062), "x");
}

TYPED_TEST(ShellBursaWolfForms, XMLHasTheKeysInTheirOrder) {
    TShiftDescription tree(TestFixture::Form::type);
    tree.InsertInteger("", 5469, 0, 7);
    MemoryXIni::TNode root = Saved(TypeParam(&tree));
    std::vector<std::string> const expected = {
        "DatumShiftType",      "DatumShiftDx",         "DatumShiftDy",          "DatumShiftDz",
        "DatumShiftRx",        "DatumShiftRy",         "DatumShiftRz",          "DatumShiftDs",
        "DatumShiftNonLinear", "DatumShiftLinearUnit", "DatumShiftAngularUnit", "DatumShiftScalarUnit"};
    EXPECT_EQ(Keys(root), expected);
    EXPECT_EQ(root.Find("DatumShiftNonLinear").text, "1");
}

TYPED_TEST(ShellBursaWolfForms, XMLOfALinearShiftHasNoNonLinearKey) {
    TShiftDescription tree(TestFixture::Form::type);
    MemoryXIni::TNode root = Saved(TypeParam(&tree));
    EXPECT_THROW(root.Find("DatumShiftNonLinear"), std::out_of_range);
}

TYPED_TEST(ShellBursaWolfForms, XMLRoundTripKeepsEverything) {
    TShiftDescription tree(TestFixture::Form::type);
    tree.InsertInteger("", 5469, 0, 1);
    TypeParam const source(&tree);
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(source.SaveToXML(&writer));
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    TypeParam const copy(&reader);
    EXPECT_EQ(copy.Type, TestFixture::Form::type);
    EXPECT_TRUE(copy.NonLinear);
    EXPECT_EQ(WKT(copy), WKT(source));
    EXPECT_EQ(copy.RotationY, "-0.35");
    EXPECT_EQ(copy.LinearUnit->Name, "metre");
    EXPECT_EQ(copy.AngularUnit->Name, "second");
    EXPECT_EQ(copy.ScaleUnit->Name, "ppm");
    std::unique_ptr<TDatumShift> const first(source.Create());
    std::unique_ptr<TDatumShift> const second(copy.Create());
    EXPECT_TRUE(*first == *second);
}

TYPED_TEST(ShellBursaWolfForms, XMLReadsSexagesimalTextsAsPlainNumbers) {
    TShiftDescription tree(TestFixture::Form::type, degreeMinuteSecond);
    Change(&tree, 5465, "0 0 1");
    TypeParam const source(&tree);
    EXPECT_NE(dynamic_cast<TShellUnitDegreeMinuteSecond*>(source.AngularUnit), nullptr);
    MemoryXIni::TNode root = Saved(source);
    MemoryXIni::TReader reader(&root);
    TypeParam const copy(&reader);
    TShellAngularUnit const& unit = *copy.AngularUnit;
    EXPECT_EQ(typeid(unit), typeid(TShellAngularUnit));
    TParams before;
    TParams after;
    EXPECT_TRUE(before.Get(source));
    EXPECT_TRUE(after.Get(copy));
    EXPECT_NEAR(std::fabs(before.value[4]), 1.0, 1e-12);
    EXPECT_EQ(after.value[4], 0.0);
}

TYPED_TEST(ShellBursaWolfForms, XMLNeedsEveryPartAndNoEmptyText) {
    TShiftDescription tree(TestFixture::Form::type);
    MemoryXIni::TNode const complete = Saved(TypeParam(&tree));
    for (char const* const key :
         {"DatumShiftDx", "DatumShiftDy", "DatumShiftDz", "DatumShiftRx", "DatumShiftRy", "DatumShiftRz",
          "DatumShiftDs", "DatumShiftLinearUnit", "DatumShiftAngularUnit", "DatumShiftScalarUnit"}) {
        MemoryXIni::TNode root = complete;
        root.Drop(key);
        MemoryXIni::TReader reader(&root);
        EXPECT_EQ(MessageOf([&] { TypeParam const copy(&reader); }), TestFixture::Form::xmlMessage) << key;
    }
    for (char const* const key : {"DatumShiftDx", "DatumShiftRz", "DatumShiftDs"}) {
        MemoryXIni::TNode root = complete;
        root.Find(key).text.clear();
        MemoryXIni::TReader reader(&root);
        EXPECT_EQ(MessageOf([&] { TypeParam const copy(&reader); }), TestFixture::Form::xmlMessage) << key;
    }
}

TYPED_TEST(ShellBursaWolfForms, XMLRefusesAnotherForm) {
    TShiftDescription tree(TestFixture::Form::type);
    for (char const* const type : {"1", TestFixture::Form::type == 2 ? "3" : "2"}) {
        MemoryXIni::TNode root = Saved(TypeParam(&tree));
        root.Find("DatumShiftType").text = type;
        MemoryXIni::TReader reader(&root);
        EXPECT_EQ(MessageOf([&] { TypeParam const copy(&reader); }), TestFixture::Form::xmlMessage) << type;
    }
}

TYPED_TEST(ShellBursaWolfForms, XMLWithABrokenUnitIsFalseAndLeavesTheSection) {
    TShiftDescription tree(TestFixture::Form::type);
    for (char const* const key : {"DatumShiftLinearUnit", "DatumShiftAngularUnit", "DatumShiftScalarUnit"}) {
        TypeParam shift(&tree);
        MemoryXIni::TNode root = Saved(shift);
        root.Find(key).Find("UnitType").text = "9";
        MemoryXIni::TReader reader(&root);
        EXPECT_FALSE(shift.LoadFromXML(&reader)) << key;
        EXPECT_EQ(reader.Depth(), 0U) << key;
        MemoryXIni::TReader again(&root);
        EXPECT_EQ(MessageOf([&] { TypeParam const copy(&again); }), TestFixture::Form::xmlMessage) << key;
    }
}

TYPED_TEST(ShellBursaWolfForms, XMLLoadReplacesALiveShift) {
    TShiftDescription tree(TestFixture::Form::type);
    MemoryXIni::TNode root = Saved(TypeParam(&tree));
    TypeParam shift(&tree);
    shift.SetNonLinear(true);
    shift.ShiftX = "1";
    MemoryXIni::TReader reader(&root);
    EXPECT_TRUE(shift.LoadFromXML(&reader));
    EXPECT_FALSE(shift.NonLinear);
    EXPECT_EQ(shift.ShiftX, "23.92");
}

TYPED_TEST(ShellBursaWolfForms, XMLConstructorLeaksNothingWhenTheReaderThrows) {
    TShiftDescription tree(TestFixture::Form::type);
    tree.InsertInteger("", 5469, 0, 1);
    MemoryXIni::TNode root = Saved(TypeParam(&tree));
    MemoryXIni::TReader counter(&root);
    { TypeParam const complete(&counter); }
    for (unsigned long operation = 1; operation <= counter.operations; ++operation) {
        MemoryXIni::TReader reader(&root);
        reader.failingOperation = operation;
        EXPECT_ANY_THROW(TypeParam const copy(&reader)) << operation;
        EXPECT_EQ(reader.Depth(), 0U) << operation;
    }
}

TYPED_TEST(ShellBursaWolfForms, EveryFailedWriteIsReported) {
    TShiftDescription tree(TestFixture::Form::type);
    tree.InsertInteger("", 5469, 0, 1);
    ExpectEveryFailedWriteIsReported(TypeParam(&tree));
}

// --- The signs ---

TEST(ShellBursaWolfDatumShift, ExportsHaveTheRotationsAsGivenAndParamsTheOpposite) {
    TShiftDescription tree(2);
    TShellBursaWolfDatumShift const shift(&tree);
    EXPECT_EQ(WKT(shift), "TOWGS84[23.92,-141.27,-80.9,0,-0.35,-0.82,-0.12]");
    EXPECT_EQ(GeoTIFF(shift), "23.92,-141.27,-80.9,0,-0.35,-0.82,-0.12");
    EXPECT_EQ(MIFMID(shift), "23.92, -141.27, -80.9, 0, 0.35, 0.82, -0.12");
    TParams params;
    EXPECT_TRUE(params.Get(shift));
    double const expected[] = {23.92, -141.27, -80.9, 0.0, 0.35, 0.82, -0.12};
    for (int k = 0; k < 7; ++k) {
        EXPECT_NEAR(params.value[k], expected[k], 1e-12) << k;
    }
}

TEST(ShellBursaWolfInvRotDatumShift, ExportsHaveTheRotationsNegatedAndParamsAsGiven) {
    TShiftDescription tree(3);
    TShellBursaWolfInvRotDatumShift const shift(&tree);
    EXPECT_EQ(WKT(shift), "TOWGS84[23.92,-141.27,-80.9,-0,0.35,0.82,-0.12]");
    EXPECT_EQ(GeoTIFF(shift), "23.92,-141.27,-80.9,-0,0.35,0.82,-0.12");
    EXPECT_EQ(MIFMID(shift), "23.92, -141.27, -80.9, 0, -0.35, -0.82, -0.12");
    TParams params;
    EXPECT_TRUE(params.Get(shift));
    double const expected[] = {23.92, -141.27, -80.9, 0.0, -0.35, -0.82, -0.12};
    for (int k = 0; k < 7; ++k) {
        EXPECT_NEAR(params.value[k], expected[k], 1e-12) << k;
    }
}

TEST(ShellBursaWolfDatumShift, ZeroRotationIsNegativeInTheParamsAndPlainInMIFMID) {
    TShiftDescription tree(2);
    TShellBursaWolfDatumShift const shift(&tree);
    TParams params;
    EXPECT_TRUE(params.Get(shift));
    EXPECT_EQ(params.value[3], 0.0);
    EXPECT_TRUE(std::signbit(params.value[3]));
    EXPECT_EQ(MIFMID(shift).substr(0, 27), "23.92, -141.27, -80.9, 0, 0");
}

TEST(ShellBursaWolfInvRotDatumShift, ZeroRotationIsPositiveInTheParams) {
    TShiftDescription tree(3);
    TParams params;
    EXPECT_TRUE(params.Get(TShellBursaWolfInvRotDatumShift(&tree)));
    EXPECT_FALSE(std::signbit(params.value[3]));
}

TEST(ShellBursaWolfDatumShift, CoreTakesTheRotationsAsGiven) {
    TShiftDescription tree(2);
    std::unique_ptr<TDatumShift> const core(TShellBursaWolfDatumShift(&tree).Create());
    auto const& parameters = *dynamic_cast<TBursaWolfDatumShift&>(*core).Parameters;
    EXPECT_EQ(parameters.ShiftX, 23.92);
    EXPECT_EQ(parameters.ShiftY, -141.27);
    EXPECT_EQ(parameters.ShiftZ, -80.9);
    EXPECT_EQ(parameters.RotationX, 0.0);
    EXPECT_NEAR(parameters.RotationY, -0.35 * secondInRadians, 1e-20);
    EXPECT_NEAR(parameters.RotationZ, -0.82 * secondInRadians, 1e-20);
    EXPECT_EQ(parameters.Scale, 0.99999988);
}

TEST(ShellBursaWolfInvRotDatumShift, CoreTakesTheRotationsNegated) {
    TShiftDescription tree(3);
    std::unique_ptr<TDatumShift> const core(TShellBursaWolfInvRotDatumShift(&tree).Create());
    auto const& parameters = *dynamic_cast<TBursaWolfDatumShift&>(*core).Parameters;
    EXPECT_EQ(parameters.ShiftX, 23.92);
    EXPECT_EQ(parameters.RotationX, 0.0);
    EXPECT_NEAR(parameters.RotationY, 0.35 * secondInRadians, 1e-20);
    EXPECT_NEAR(parameters.RotationZ, 0.82 * secondInRadians, 1e-20);
    EXPECT_EQ(parameters.Scale, 0.99999988);
}

/** A shift with rotations of one second each, typed in degrees, minutes and seconds. */
struct TOneSecond : TShiftDescription {
    explicit TOneSecond(int type) : TShiftDescription(type, degreeMinuteSecond) {
        for (int const rotation : {5464, 5465, 5466}) {
            Change(this, rotation, "0 0 1");
        }
    }
};

TEST(ShellBursaWolfDatumShift, OneSecondInDegreesMinutesSeconds) {
    TOneSecond tree(2);
    TShellBursaWolfDatumShift const shift(&tree);
    EXPECT_EQ(WKT(shift), "TOWGS84[23.92,-141.27,-80.9,1,1,1,-0.12]");
    TParams params;
    EXPECT_TRUE(params.Get(shift));
    EXPECT_NEAR(params.value[3], -1.0, 1e-12);
    std::unique_ptr<TDatumShift> const core(shift.Create());
    EXPECT_NEAR(dynamic_cast<TBursaWolfDatumShift&>(*core).Parameters->RotationX, secondInRadians, 1e-18);
}

TEST(ShellBursaWolfInvRotDatumShift, OneSecondInDegreesMinutesSeconds) {
    TOneSecond tree(3);
    TShellBursaWolfInvRotDatumShift const shift(&tree);
    EXPECT_EQ(WKT(shift), "TOWGS84[23.92,-141.27,-80.9,-1,-1,-1,-0.12]");
    TParams params;
    EXPECT_TRUE(params.Get(shift));
    EXPECT_NEAR(params.value[3], 1.0, 1e-12);
    std::unique_ptr<TDatumShift> const core(shift.Create());
    EXPECT_NEAR(dynamic_cast<TBursaWolfDatumShift&>(*core).Parameters->RotationX, -secondInRadians, 1e-18);
}

TEST(ShellBursaWolfDatumShift, MIFMIDHasEightPlacesAndSixDigits) {
    TShiftDescription tree(2);
    Change(&tree, 5461, "0.000000014");
    Change(&tree, 5462, "1234567.89");
    Change(&tree, 5464, "-1.23456789");
    Change(&tree, 5467, "0.000000004");
    EXPECT_EQ(MIFMID(TShellBursaWolfDatumShift(&tree)), "1e-08, 1.23457e+06, -80.9, 1.23457, 0.35, 0.82, 0");
}

TEST(ShellBursaWolfDatumShift, WKTHasNineDigits) {
    TShiftDescription tree(2);
    Change(&tree, 5461, "1234.567891234");
    EXPECT_EQ(WKT(TShellBursaWolfDatumShift(&tree)), "TOWGS84[1234.56789,-141.27,-80.9,0,-0.35,-0.82,-0.12]");
}

} // namespace
