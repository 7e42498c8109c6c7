#include "shell/datum/PrimeMeridian.h"

#include "core/refsystems/PrimeMeridian.h"
#include "hostkit/XmlIni.h"
#include "shell/units/SexagesimalUnits.h"
#include "tests/shell/datum/DatumTestKit.h"

#include <cmath>
#include <cstddef>
#include <map>

namespace {

using namespace DatumTestKit;
using KvRefSystem::TPrimeMeridian;
using KvRefSystem::TShellAngularUnit;
using KvRefSystem::TShellPrimeMeridian;

static_assert(sizeof(TShellPrimeMeridian) == 112);
static_assert(offsetof(TShellPrimeMeridian, Name) == 0);
static_assert(offsetof(TShellPrimeMeridian, Description) == 32);
static_assert(offsetof(TShellPrimeMeridian, AngularUnit) == 64);
static_assert(offsetof(TShellPrimeMeridian, Longitude) == 72);
static_assert(offsetof(TShellPrimeMeridian, GeoTIFFCode) == 104);
static_assert(offsetof(TShellPrimeMeridian, IsZero) == 108);

constexpr char const* treeMessage = "TShellPrimeMeridian::TShellPrimeMeridian(TStringTree *tree)";
constexpr char const* xmlMessage = "TShellPrimeMeridian::TShellPrimeMeridian(TKvXIniReader *xml)";

struct TDescription : TStringTree {
    TDescription(char const* longitude, TUnit const& unit) {
        InsertString("", 5220, 0, "Paris");
        InsertString("", 5221, 0, "a description");
        InsertString("", 5210, 0, longitude);
        PutUnitSubtree(this, 5211, unit);
    }
};

std::string MIFMID(char const* longitude, TUnit const& unit) {
    TDescription tree(longitude, unit);
    std::string text;
    EXPECT_TRUE(TShellPrimeMeridian(&tree).ExportToMIFMID(&text));
    return text;
}

TEST(ShellPrimeMeridian, TreeKeepsTheTextsAsTheyWereTyped) {
    TDescription tree("2.33722917000", degree);
    tree.InsertInteger("", 102009, 0, 8903);
    TShellPrimeMeridian const meridian(&tree);
    EXPECT_EQ(meridian.Name, "Paris");
    EXPECT_EQ(meridian.Description, "a description");
    EXPECT_EQ(meridian.Longitude, "2.33722917000");
    EXPECT_EQ(meridian.AngularUnit->Name, "degree");
    EXPECT_EQ(meridian.GeoTIFFCode, 8903);
    EXPECT_FALSE(meridian.IsZero);
}

TEST(ShellPrimeMeridian, CreateGivesRadians) {
    TDescription tree("90", degree);
    std::unique_ptr<TPrimeMeridian> const core(TShellPrimeMeridian(&tree).Create());
    EXPECT_NEAR(core->Longitude, 1.5707963267948966, 1e-15);
    EXPECT_TRUE(core->NonZero);
}

TEST(ShellPrimeMeridian, SexagesimalUnitsAreBuiltByTheirCode) {
    TDescription tree("2 20 14.025", degreeMinuteSecond);
    TShellPrimeMeridian const meridian(&tree);
    EXPECT_NE(dynamic_cast<KvRefSystem::TShellUnitDegreeMinuteSecond*>(meridian.AngularUnit), nullptr);
    // 2 + 20/60 + 14.025/3600 degrees
    std::unique_ptr<TPrimeMeridian> const core(meridian.Create());
    EXPECT_NEAR(core->Longitude, 2.3372291666666667 * 3.141592653589793 / 180.0, 1e-15);
    std::string text;
    EXPECT_TRUE(meridian.ExportToWKT(&text, nullptr));
    EXPECT_EQ(text, "PRIMEM[\"Paris\",2.33722916666667]");
}

TEST(ShellPrimeMeridian, IsZeroOnlyForExactlyZeroRadians) {
    for (TUnit const& unit : {degree, grad, radian, degreeMinuteSecond}) {
        TDescription tree("0", unit);
        EXPECT_TRUE(TShellPrimeMeridian(&tree).IsZero) << unit.name;
    }
    TDescription negative("-0.0", degree);
    EXPECT_TRUE(TShellPrimeMeridian(&negative).IsZero);
    TDescription paris("2.33722917", grad);
    EXPECT_FALSE(TShellPrimeMeridian(&paris).IsZero);
    TDescription tiny("1e-300", radian);
    EXPECT_FALSE(TShellPrimeMeridian(&tiny).IsZero);
}

TEST(ShellPrimeMeridian, EmptyLongitudeInATreeIsZero) {
    TDescription tree("", degree);
    TShellPrimeMeridian const meridian(&tree);
    EXPECT_TRUE(meridian.IsZero);
    std::unique_ptr<TPrimeMeridian> const core(meridian.Create());
    EXPECT_EQ(core->Longitude, 0.0);
}

TEST(ShellPrimeMeridian, EachRequiredFieldIsMissedWithTheSameMessage) {
    for (int const tag : {5220, 5221, 5210}) {
        TDescription tree("0", degree);
        tree.DeleteField(tag, 0);
        EXPECT_EQ(MessageOf([&] { TShellPrimeMeridian const meridian(&tree); }), treeMessage) << tag;
    }
    EXPECT_EQ(MessageOf([] { TShellPrimeMeridian const meridian(static_cast<TStringTree*>(nullptr)); }),
              treeMessage);
}

TEST(ShellPrimeMeridian, UnitMayStandBesideTheLongitude) {
    TDescription tree("100", degree);
    tree.DeleteSubtree(5211, 0);
    PutUnit(&tree, grad);
    std::unique_ptr<TPrimeMeridian> const core(TShellPrimeMeridian(&tree).Create());
    EXPECT_NEAR(core->Longitude, 1.5707963267948966, 1e-15);
}

TEST(ShellPrimeMeridian, UnitWithoutACodeIsMissing) {
    TDescription tree("0", degree);
    tree.FindSubtree(5211, 0)->DeleteField(5301, 0);
    EXPECT_EQ(MessageOf([&] { TShellPrimeMeridian const meridian(&tree); }), treeMessage);
    tree.DeleteSubtree(5211, 0);
    EXPECT_EQ(MessageOf([&] { TShellPrimeMeridian const meridian(&tree); }), treeMessage);
}

TEST(ShellPrimeMeridian, BrokenUnitSpeaksForItself) {
    TDescription tree("0", degree);
    tree.FindSubtree(5211, 0)->DeleteField(5320, 0);
    EXPECT_EQ(MessageOf([&] { TShellPrimeMeridian const meridian(&tree); }), unitMessage);
}

TEST(ShellPrimeMeridian, LongitudeThatDoesNotParseIsRefusedAtConstruction) {
    TDescription tree("east", degree);
    EXPECT_EQ(MessageOf([&] { TShellPrimeMeridian const meridian(&tree); }), parseMessage);
}

TEST(ShellPrimeMeridian, LongitudeThatDoesNotParseThrowsOnUse) {
    TDescription tree("0", degree);
    TShellPrimeMeridian meridian(&tree);
    meridian.Longitude = "east";
    EXPECT_EQ(MessageOf([&] { delete meridian.Create(); }), parseMessage);
    std::string text = "kept";
    EXPECT_EQ(MessageOf([&] { meridian.ExportToMIFMID(&text); }), parseMessage);
    EXPECT_EQ(MessageOf([&] { meridian.ExportToWKT(&text, nullptr); }), parseMessage);
    EXPECT_EQ(text, "kept");
    std::map<int, std::string> keys;
    EXPECT_EQ(MessageOf([&] { meridian.ExportToGeoTIFF(&keys, nullptr); }), parseMessage);
    EXPECT_TRUE(keys.empty());
}

// Values of floor(radians * pi / 180 * 1e8 + 0.5) * 1e-8 from Python.
TEST(ShellPrimeMeridian, MIFMIDIsRadiansTimesPiOver180) {
    EXPECT_EQ(MIFMID("0", degree), "0");
    EXPECT_EQ(MIFMID("2.33722917", degree), "0.00071196");
    EXPECT_EQ(MIFMID("30", degree), "0.00913852");
}

TEST(ShellPrimeMeridian, MIFMIDWrapsToHalfATurn) {
    EXPECT_EQ(MIFMID("3.5", radian), "-0.0485758");
    EXPECT_EQ(MIFMID("-3.5", radian), "0.0485758");
    EXPECT_EQ(MIFMID("100", radian), "-0.00926709");
    EXPECT_EQ(MIFMID("3.141592653589793", radian), "0.0548311");
    EXPECT_EQ(MIFMID("-3.141592653589793", radian), "-0.0548311");
}

TEST(ShellPrimeMeridian, MIFMIDEndsForAnyNumber) {
    EXPECT_EQ(MIFMID("inf", radian), "inf");
    EXPECT_EQ(MIFMID("-inf", radian), "-inf");
    EXPECT_NE(MIFMID("nan", radian).find("nan"), std::string::npos);
    for (char const* const far : {"1e300", "-1e300", "1e17"}) {
        TDescription tree("0", radian);
        TShellPrimeMeridian meridian(&tree);
        meridian.Longitude = far;
        std::string text;
        ASSERT_TRUE(meridian.ExportToMIFMID(&text));
        EXPECT_LE(std::fabs(meridian.AngularUnit->StringToValue(text)), 0.0548312) << far;
    }
    // 2,000,000 radians less 318310 turns are -0.71512833417 (mpmath).
    EXPECT_EQ(MIFMID("2000000", radian), "-0.0124813");
}

TEST(ShellPrimeMeridian, WKTWithoutAUnitIsInDegrees) {
    // 2.5969213 grads are 2.33722917 degrees.
    TDescription tree("2.5969213", grad);
    std::string text = "old";
    EXPECT_TRUE(TShellPrimeMeridian(&tree).ExportToWKT(&text, nullptr));
    EXPECT_EQ(text, "PRIMEM[\"Paris\",2.33722917]");
}

TEST(ShellPrimeMeridian, WKTWithAUnitIsInThatUnit) {
    // 2.5969213 pi / 200 to 15 digits.
    TDescription tree("2.5969213", grad);
    TStringTree unitTree;
    PutUnit(&unitTree, radian);
    TShellAngularUnit const unit(&unitTree);
    std::string text;
    EXPECT_TRUE(TShellPrimeMeridian(&tree).ExportToWKT(&text, &unit));
    EXPECT_EQ(text, "PRIMEM[\"Paris\",0.0407923443901543]");
}

TEST(ShellPrimeMeridian, GeoTIFFWithACodeIsTheCodeAlone) {
    TDescription tree("2.33722917", degree);
    tree.InsertInteger("", 102009, 0, 8903);
    std::map<int, std::string> keys;
    EXPECT_TRUE(TShellPrimeMeridian(&tree).ExportToGeoTIFF(&keys, nullptr));
    std::map<int, std::string> const expected = {{2051, "8903"}};
    EXPECT_EQ(keys, expected);
}

TEST(ShellPrimeMeridian, GeoTIFFWithoutACodeHasTheLongitude) {
    TDescription tree("0.5", radian);
    TStringTree unitTree;
    PutUnit(&unitTree, degree);
    TShellAngularUnit const unit(&unitTree);
    TShellPrimeMeridian const meridian(&tree);
    std::map<int, std::string> keys;
    EXPECT_TRUE(meridian.ExportToGeoTIFF(&keys, &unit));
    ASSERT_EQ(keys.size(), 2U);
    EXPECT_EQ(keys.at(2051), "32767");
    // Half a radian in degrees.
    EXPECT_NEAR(unit.StringToValue(keys.at(2061)), 28.64788975654116, 1e-13);
    EXPECT_EQ(keys.at(2061), unit.ValueToString(0.5 * unit.CoefFromBase, -1));
}

TEST(ShellPrimeMeridian, GeoTIFFWithoutAUnitFallsBackToTheMeridiansOwn) {
    TDescription tree("0.5", radian);
    std::map<int, std::string> keys;
    EXPECT_TRUE(TShellPrimeMeridian(&tree).ExportToGeoTIFF(&keys, nullptr));
    std::map<int, std::string> const expected = {{2051, "32767"}, {2061, "0.5"}};
    EXPECT_EQ(keys, expected);
}

TEST(ShellPrimeMeridian, GeoTIFFKeepsEntriesThatAreThere) {
    TDescription tree("0.5", radian);
    std::map<int, std::string> keys = {{2051, "x"}, {2061, "y"}};
    std::map<int, std::string> const before = keys;
    EXPECT_TRUE(TShellPrimeMeridian(&tree).ExportToGeoTIFF(&keys, nullptr));
    EXPECT_EQ(keys, before);
}

TEST(ShellPrimeMeridian, WithoutAUnitCreationThrowsAndExportsAreFalse) {
    TDescription tree("2.5", degree);
    tree.InsertInteger("", 102009, 0, 8903);
    TShellPrimeMeridian meridian(&tree);
    meridian.Reset();
    EXPECT_EQ(meridian.Name + meridian.Description + meridian.Longitude, "");
    EXPECT_EQ(meridian.GeoTIFFCode, 0);
    EXPECT_TRUE(meridian.IsZero);
    EXPECT_EQ(meridian.AngularUnit, nullptr);
    EXPECT_EQ(MessageOf([&] { delete meridian.Create(); }),
              "TPrimeMeridian* TShellPrimeMeridian::Create() const");
    std::string text = "kept";
    EXPECT_FALSE(meridian.ExportToMIFMID(&text));
    EXPECT_FALSE(meridian.ExportToWKT(&text, nullptr));
    EXPECT_EQ(text, "kept");
    std::map<int, std::string> keys;
    EXPECT_FALSE(meridian.ExportToGeoTIFF(&keys, nullptr));
    EXPECT_TRUE(keys.empty());
    MemoryXIni::TNode root;
    MemoryXIni::TWriter writer(&root);
    EXPECT_FALSE(meridian.SaveToXML(&writer));
    EXPECT_FALSE(meridian.SaveToXML(nullptr));
}

TEST(ShellPrimeMeridian, XMLHasTheKeysInTheirOrder) {
    TDescription tree("2.5", degree);
    tree.InsertInteger("", 102009, 0, 8903);
    std::vector<std::string> const expected = {"PrimeMeridianName", "PrimeMeridianDescription",
                                               "PrimeMeridianLongitude", "PrimeMeridianAngularUnit",
                                               "PrimeMeridianGeoTIFFCode"};
    EXPECT_EQ(Keys(Saved(TShellPrimeMeridian(&tree))), expected);
}

TEST(ShellPrimeMeridian, XMLRoundTripKeepsEverythingAndTheNotation) {
    TDescription tree("2 20 14.025", degreeMinuteSecond);
    tree.InsertInteger("", 102009, 0, 8903);
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(TShellPrimeMeridian(&tree).SaveToXML(&writer));
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    TShellPrimeMeridian const copy(&reader);
    EXPECT_EQ(copy.Name, "Paris");
    EXPECT_EQ(copy.Description, "a description");
    EXPECT_EQ(copy.Longitude, "2 20 14.025");
    EXPECT_EQ(copy.GeoTIFFCode, 8903);
    EXPECT_FALSE(copy.IsZero);
    EXPECT_NE(dynamic_cast<KvRefSystem::TShellUnitDegreeMinuteSecond*>(copy.AngularUnit), nullptr);
}

TEST(ShellPrimeMeridian, XMLNeedsTheUnitAndALongitude) {
    TDescription tree("2.5", degree);
    MemoryXIni::TNode const complete = Saved(TShellPrimeMeridian(&tree));
    for (char const* const key : {"PrimeMeridianAngularUnit", "PrimeMeridianLongitude"}) {
        MemoryXIni::TNode root = complete;
        root.Drop(key);
        MemoryXIni::TReader reader(&root);
        EXPECT_EQ(MessageOf([&] { TShellPrimeMeridian const copy(&reader); }), xmlMessage) << key;
    }
    EXPECT_EQ(MessageOf([] { TShellPrimeMeridian const copy(static_cast<TKvXIniReader*>(nullptr)); }),
              xmlMessage);
}

TEST(ShellPrimeMeridian, XMLComputesTheZeroFlag) {
    for (char const* const longitude : {"0", "2.5"}) {
        TDescription tree("1", degree);
        MemoryXIni::TNode root = Saved(TShellPrimeMeridian(&tree));
        root.Find("PrimeMeridianLongitude").text = longitude;
        MemoryXIni::TReader reader(&root);
        EXPECT_EQ(TShellPrimeMeridian(&reader).IsZero, std::string(longitude) == "0");
    }
}

TEST(ShellPrimeMeridian, XMLWithABrokenUnitIsFalseAndLeavesTheSection) {
    TDescription tree("2.5", degree);
    TShellPrimeMeridian meridian(&tree);
    MemoryXIni::TNode root = Saved(meridian);
    root.Find("PrimeMeridianAngularUnit").Drop("UnitCoefToBase");
    MemoryXIni::TReader reader(&root);
    EXPECT_FALSE(meridian.LoadFromXML(&reader));
    EXPECT_EQ(reader.Depth(), 0U);
    EXPECT_EQ(meridian.AngularUnit, nullptr);
}

TEST(ShellPrimeMeridian, XMLWithALongitudeThatDoesNotParseIsFalse) {
    TDescription tree("2.5", degree);
    MemoryXIni::TNode root = Saved(TShellPrimeMeridian(&tree));
    root.Find("PrimeMeridianLongitude").text = "east";
    MemoryXIni::TReader reader(&root);
    EXPECT_EQ(MessageOf([&] { TShellPrimeMeridian const copy(&reader); }), xmlMessage);
}

TEST(ShellPrimeMeridian, XMLConstructorLeaksNothingWhenTheReaderThrows) {
    TDescription tree("2.5", degree);
    MemoryXIni::TNode root = Saved(TShellPrimeMeridian(&tree));
    MemoryXIni::TReader counter(&root);
    { TShellPrimeMeridian const complete(&counter); }
    for (unsigned long operation = 1; operation <= counter.operations; ++operation) {
        MemoryXIni::TReader reader(&root);
        reader.failingOperation = operation;
        EXPECT_ANY_THROW(TShellPrimeMeridian const copy(&reader)) << operation;
        EXPECT_EQ(reader.Depth(), 0U) << operation;
    }
}

TEST(ShellPrimeMeridian, EveryFailedWriteIsReported) {
    TDescription tree("2.5", degree);
    tree.InsertInteger("", 102009, 0, 8903);
    ExpectEveryFailedWriteIsReported(TShellPrimeMeridian(&tree));
}

} // namespace
