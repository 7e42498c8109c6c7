#include "shell/datum/Ellipsoid.h"

#include "core/primitives/Ellipsoid.h"
#include "hostkit/XmlIni.h"
#include "tests/shell/datum/DatumTestKit.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <map>

namespace {

using namespace DatumTestKit;
using KvRefSystem::TEllipsoid;
using KvRefSystem::TShellEllipsoid;

static_assert(sizeof(TShellEllipsoid) == 176);
static_assert(offsetof(TShellEllipsoid, Name) == 0);
static_assert(offsetof(TShellEllipsoid, Description) == 32);
static_assert(offsetof(TShellEllipsoid, LinearUnit) == 64);
static_assert(offsetof(TShellEllipsoid, MajorSemiAxis) == 72);
static_assert(offsetof(TShellEllipsoid, MinorSemiAxis) == 104);
static_assert(offsetof(TShellEllipsoid, InverseFlattening) == 136);
static_assert(offsetof(TShellEllipsoid, GeoTIFFCode) == 168);
static_assert(offsetof(TShellEllipsoid, MIFMIDCode) == 172);

constexpr char const* treeMessage = "TShellEllipsoid::TShellEllipsoid(TStringTree *tree)";
constexpr char const* xmlMessage = "TShellEllipsoid::TShellEllipsoid(TKvXIniReader *xml)";

/** Fills a description; an empty flattening is left out. */
void Fill(TStringTree* tree, char const* major, char const* minor, std::string const& flattening,
          TUnit const& unit = metre) {
    tree->InsertString("", 5120, 0, "WGS84");
    tree->InsertString("", 5121, 0, "a description");
    tree->InsertString("", 5110, 0, major);
    tree->InsertString("", 5111, 0, minor);
    tree->InsertInteger("", 5114, 0, flattening.empty() ? 0 : 1);
    tree->InsertInteger("", 5115, 0, 0);
    if (!flattening.empty()) {
        tree->InsertString("", 5112, 0, flattening);
    }
    PutUnitSubtree(tree, 5113, unit);
}

struct TDescription : TStringTree {
    TDescription(char const* major, char const* minor, std::string const& flattening,
                 TUnit const& unit = metre) {
        Fill(this, major, minor, flattening, unit);
    }
};

std::string WKT(TShellEllipsoid const& ellipsoid) {
    std::string text;
    EXPECT_TRUE(ellipsoid.ExportToWKT(&text));
    return text;
}

// 6378137 (1 - 1/298.257223563), in double precision with Python.
constexpr double wgs84Minor = 6356752.314245179;

TEST(ShellEllipsoid, TreeKeepsTheTextsAsTheyWereTyped) {
    TDescription tree("6378137.000", " 6.35e6", "298.2570");
    tree.InsertInteger("", 102004, 0, 7030);
    TShellEllipsoid const ellipsoid(&tree);
    EXPECT_EQ(ellipsoid.Name, "WGS84");
    EXPECT_EQ(ellipsoid.Description, "a description");
    EXPECT_EQ(ellipsoid.MajorSemiAxis, "6378137.000");
    EXPECT_EQ(ellipsoid.MinorSemiAxis, " 6.35e6");
    EXPECT_EQ(ellipsoid.InverseFlattening, "298.2570");
    EXPECT_EQ(ellipsoid.LinearUnit->Name, "metre");
    EXPECT_EQ(ellipsoid.GeoTIFFCode, 7030);
    EXPECT_EQ(ellipsoid.MIFMIDCode, -1);
}

TEST(ShellEllipsoid, GeoTIFFCodeIsOptionalInATree) {
    TDescription tree("6378137", "", "298.257223563");
    EXPECT_EQ(TShellEllipsoid(&tree).GeoTIFFCode, 0);
}

TEST(ShellEllipsoid, InverseFlatteningGivesTheMinorAxis) {
    TDescription tree("6378137", "", "298.257223563");
    TShellEllipsoid const ellipsoid(&tree);
    std::unique_ptr<TEllipsoid> const core(ellipsoid.Create());
    EXPECT_EQ(core->SemiMajorAxis, 6378137.0);
    EXPECT_NEAR(core->SemiMinorAxis, wgs84Minor, 1e-8);
    double a = 0.0;
    double b = 0.0;
    EXPECT_TRUE(ellipsoid.GetSemiAxesMeters(&a, &b));
    EXPECT_EQ(a, 6378137.0);
    EXPECT_NEAR(b, wgs84Minor, 1e-8);
}

TEST(ShellEllipsoid, TwoAxesGiveTheCoreEllipsoidInMetres) {
    // 20925646.3254593 international feet are 6378137 m.
    TDescription tree("20925646.3254593", "20855486.5952925", "", foot);
    TShellEllipsoid const ellipsoid(&tree);
    std::unique_ptr<TEllipsoid> const core(ellipsoid.Create());
    EXPECT_NEAR(core->SemiMajorAxis, 6378137.0, 1e-6);
    EXPECT_NEAR(core->SemiMinorAxis, wgs84Minor, 1e-4);
    double a = 0.0;
    double b = 0.0;
    EXPECT_TRUE(ellipsoid.GetSemiAxesMeters(&a, &b));
    EXPECT_EQ(a, core->SemiMajorAxis);
    EXPECT_EQ(b, core->SemiMinorAxis);
}

TEST(ShellEllipsoid, WKTPrintsTheFlatteningThatWasTyped) {
    TDescription tree("6378137", "", "298.257223563");
    EXPECT_EQ(WKT(TShellEllipsoid(&tree)), "SPHEROID[\"WGS84\",6378137,298.257223563]");
}

TEST(ShellEllipsoid, WKTWithoutFlatteningComputesItFromTheAxes) {
    // a / (a - b) of Krasovsky 1940 and Airy 1830, to 15 digits.
    TDescription krasovsky("6378245", "6356863.01877", "");
    EXPECT_EQ(WKT(TShellEllipsoid(&krasovsky)), "SPHEROID[\"WGS84\",6378245,298.299999957487]");
    TDescription airy("6377563.396", "6356256.909", "");
    EXPECT_EQ(WKT(TShellEllipsoid(&airy)), "SPHEROID[\"WGS84\",6377563.396,299.324961266495]");
}

TEST(ShellEllipsoid, WKTTakesAFlatteningOfZeroForNone) {
    TDescription tree("6378245", "6356863.01877", "0");
    EXPECT_EQ(WKT(TShellEllipsoid(&tree)), "SPHEROID[\"WGS84\",6378245,298.299999957487]");
}

TEST(ShellEllipsoid, WKTTakesANaNForAFlattening) {
    TDescription typed("6378245", "6356863", "nan");
    EXPECT_EQ(WKT(TShellEllipsoid(&typed)), "SPHEROID[\"WGS84\",6378245,nan]");
    TDescription computed("6378245", "nan", "");
    EXPECT_NE(WKT(TShellEllipsoid(&computed)).find("nan"), std::string::npos);
}

TEST(ShellEllipsoid, EqualAxesAreASphereWithAThirdNumberOfZero) {
    TDescription tree("6371000", "6371000", "");
    TShellEllipsoid const ellipsoid(&tree);
    EXPECT_EQ(WKT(ellipsoid), "SPHEROID[\"WGS84\",6371000,0]");
    std::map<int, std::string> keys;
    EXPECT_TRUE(ellipsoid.ExportToGeoTIFF(&keys, nullptr));
    EXPECT_EQ(keys.at(2058), "6371000");
    EXPECT_EQ(keys.count(2059), 0U);
}

TEST(ShellEllipsoid, SphereFlagReplacesTheMinorText) {
    TDescription tree("6371000.0", "6356752", "");
    Change(&tree, 5115, "2");
    TShellEllipsoid const ellipsoid(&tree);
    EXPECT_EQ(ellipsoid.MinorSemiAxis, "6371000.0");
    EXPECT_EQ(WKT(ellipsoid), "SPHEROID[\"WGS84\",6371000,0]");
    std::map<int, std::string> keys;
    EXPECT_TRUE(ellipsoid.ExportToGeoTIFF(&keys, nullptr));
    EXPECT_EQ(keys.at(2058), "6371000.0");
}

TEST(ShellEllipsoid, SphereFlagDoesNotTakeTheFlatteningAway) {
    TDescription tree("6378137", "1", "298.257223563");
    Change(&tree, 5115, "1");
    TShellEllipsoid const ellipsoid(&tree);
    EXPECT_EQ(ellipsoid.MinorSemiAxis, "6378137");
    EXPECT_EQ(WKT(ellipsoid), "SPHEROID[\"WGS84\",6378137,298.257223563]");
}

TEST(ShellEllipsoid, FlatteningFieldIsReadOnlyWithItsFlag) {
    TDescription tree("6378137", "6356752", "298.257223563");
    Change(&tree, 5114, "0");
    EXPECT_EQ(TShellEllipsoid(&tree).InverseFlattening, "");
}

TEST(ShellEllipsoid, FlatteningThatIsNoNumberMakesTheMinorAxisInfinite) {
    TDescription tree("6378137", "6356752", "flat");
    TShellEllipsoid const ellipsoid(&tree);
    std::unique_ptr<TEllipsoid> const core(ellipsoid.Create());
    EXPECT_EQ(core->SemiMinorAxis, -std::numeric_limits<double>::infinity());
    double a = 0.0;
    double b = 0.0;
    EXPECT_TRUE(ellipsoid.GetSemiAxesMeters(&a, &b));
    EXPECT_EQ(b, -std::numeric_limits<double>::infinity());
}

TEST(ShellEllipsoid, EmptyMinorTextCountsAsZero) {
    TDescription tree("6378137", "", "");
    TShellEllipsoid const ellipsoid(&tree);
    std::unique_ptr<TEllipsoid> const core(ellipsoid.Create());
    EXPECT_EQ(core->SemiMinorAxis, 0.0);
    EXPECT_EQ(WKT(ellipsoid), "SPHEROID[\"WGS84\",6378137,1]");
}

TEST(ShellEllipsoid, EachRequiredFieldIsMissedWithTheSameMessage) {
    for (int const tag : {5120, 5121, 5110, 5111, 5114, 5115, 5112}) {
        TDescription tree("6378137", "6356752", "298.257223563");
        tree.DeleteField(tag, 0);
        EXPECT_EQ(MessageOf([&] { TShellEllipsoid const ellipsoid(&tree); }), treeMessage) << tag;
    }
    EXPECT_EQ(MessageOf([] { TShellEllipsoid const ellipsoid(static_cast<TStringTree*>(nullptr)); }),
              treeMessage);
}

TEST(ShellEllipsoid, FlagsMustBeWholeNumbers) {
    for (int const tag : {5114, 5115}) {
        TDescription tree("6378137", "6356752", "");
        Change(&tree, tag, "yes");
        EXPECT_EQ(MessageOf([&] { TShellEllipsoid const ellipsoid(&tree); }), treeMessage) << tag;
    }
}

TEST(ShellEllipsoid, UnitMayStandBesideTheAxes) {
    TDescription tree("6378.137", "", "298.257223563");
    tree.DeleteSubtree(5113, 0);
    PutUnit(&tree, kilometre);
    std::unique_ptr<TEllipsoid> const core(TShellEllipsoid(&tree).Create());
    EXPECT_NEAR(core->SemiMajorAxis, 6378137.0, 1e-8);
}

TEST(ShellEllipsoid, WithoutAnyUnitTheEllipsoidNamesItself) {
    TDescription tree("6378137", "", "298.257223563");
    tree.DeleteSubtree(5113, 0);
    EXPECT_EQ(MessageOf([&] { TShellEllipsoid const ellipsoid(&tree); }), treeMessage);
}

TEST(ShellEllipsoid, BrokenUnitIsReportedAsTheEllipsoids) {
    TDescription tree("6378137", "", "298.257223563");
    tree.FindSubtree(5113, 0)->DeleteField(5320, 0);
    EXPECT_EQ(MessageOf([&] { TShellEllipsoid const ellipsoid(&tree); }), treeMessage);
}

TEST(ShellEllipsoid, SemiAxesAfterResetAreNotTouched) {
    TDescription tree("6378137", "", "298.257223563");
    tree.InsertInteger("", 102004, 0, 7030);
    TShellEllipsoid ellipsoid(&tree);
    ellipsoid.MIFMIDCode = 28;
    ellipsoid.Reset();
    double a = 1.5;
    double b = 2.5;
    EXPECT_FALSE(ellipsoid.GetSemiAxesMeters(&a, &b));
    EXPECT_EQ(a, 1.5);
    EXPECT_EQ(b, 2.5);
    EXPECT_EQ(ellipsoid.LinearUnit, nullptr);
    EXPECT_EQ(ellipsoid.Name + ellipsoid.Description + ellipsoid.MajorSemiAxis + ellipsoid.InverseFlattening,
              "");
    EXPECT_EQ(ellipsoid.GeoTIFFCode, 0);
    EXPECT_EQ(ellipsoid.MIFMIDCode, -1);
}

TEST(ShellEllipsoid, SemiAxesNeedAMajorAndASecondText) {
    double a = 1.5;
    double b = 2.5;
    TDescription withoutMajor("", "6356752", "298.257223563");
    EXPECT_FALSE(TShellEllipsoid(&withoutMajor).GetSemiAxesMeters(&a, &b));
    TDescription withoutSecond("6378137", "", "");
    EXPECT_FALSE(TShellEllipsoid(&withoutSecond).GetSemiAxesMeters(&a, &b));
    EXPECT_EQ(a, 1.5);
    EXPECT_EQ(b, 2.5);
}

TEST(ShellEllipsoid, WithoutAUnitCreationThrowsAndExportsAreFalse) {
    TDescription tree("6378137", "", "298.257223563");
    TShellEllipsoid ellipsoid(&tree);
    ellipsoid.Reset();
    EXPECT_EQ(MessageOf([&] { delete ellipsoid.Create(); }), "TEllipsoid* TShellEllipsoid::Create() const");
    std::string text = "kept";
    EXPECT_FALSE(ellipsoid.ExportToWKT(&text));
    EXPECT_EQ(text, "kept");
    std::map<int, std::string> keys;
    EXPECT_FALSE(ellipsoid.ExportToGeoTIFF(&keys, nullptr));
    EXPECT_TRUE(keys.empty());
    MemoryXIni::TNode root;
    MemoryXIni::TWriter writer(&root);
    EXPECT_FALSE(ellipsoid.SaveToXML(&writer));
    EXPECT_FALSE(ellipsoid.SaveToXML(nullptr));
}

TEST(ShellEllipsoid, TextThatDoesNotParseThrowsOnUse) {
    for (bool const isMajorBad : {true, false}) {
        TDescription tree(isMajorBad ? "long" : "6378137", isMajorBad ? "6356752" : "short", "");
        TShellEllipsoid const ellipsoid(&tree);
        EXPECT_EQ(MessageOf([&] { delete ellipsoid.Create(); }), parseMessage);
        std::string text = "kept";
        EXPECT_EQ(MessageOf([&] { ellipsoid.ExportToWKT(&text); }), parseMessage);
        EXPECT_EQ(text, "kept");
        std::map<int, std::string> keys;
        EXPECT_EQ(MessageOf([&] { ellipsoid.ExportToGeoTIFF(&keys, ellipsoid.LinearUnit); }), parseMessage);
        EXPECT_TRUE(keys.empty());
        double a = 0.0;
        double b = 0.0;
        EXPECT_EQ(MessageOf([&] { ellipsoid.GetSemiAxesMeters(&a, &b); }), parseMessage);
        // As they stand, texts aren't looked at.
        EXPECT_TRUE(ellipsoid.ExportToGeoTIFF(&keys, nullptr));
    }
}

TEST(ShellEllipsoid, GeoTIFFWithoutAUnitHasTheTextsAndTheirUnit) {
    TDescription tree("6378137.0", "6356752.00", "");
    std::map<int, std::string> keys;
    EXPECT_TRUE(TShellEllipsoid(&tree).ExportToGeoTIFF(&keys, nullptr));
    std::map<int, std::string> const expected = {
        {2052, "32767"}, {2053, "1"}, {2056, "32767"}, {2057, "6378137.0"}, {2058, "6356752.00"}};
    EXPECT_EQ(keys, expected);
}

TEST(ShellEllipsoid, GeoTIFFWithAUnitConvertsTheAxes) {
    // 6378137 and 6356752.3142 / 0.3048 with all digits, from Python.
    TDescription tree("6378137", "6378137", "");
    TStringTree unitTree;
    PutUnit(&unitTree, foot);
    KvRefSystem::TShellLinearUnit const feet(&unitTree);
    std::map<int, std::string> keys;
    EXPECT_TRUE(TShellEllipsoid(&tree).ExportToGeoTIFF(&keys, &feet));
    std::map<int, std::string> const expected = {
        {2056, "32767"}, {2057, "20925646.3254593163728714"}, {2058, "20925646.3254593163728714"}};
    EXPECT_EQ(keys, expected);
}

TEST(ShellEllipsoid, GeoTIFFHasAxesAndFlatteningBesideACode) {
    TDescription tree("6378137", "junk", "298.257223563");
    tree.InsertInteger("", 102004, 0, 7030);
    TShellEllipsoid const ellipsoid(&tree);
    std::map<int, std::string> keys;
    EXPECT_TRUE(ellipsoid.ExportToGeoTIFF(&keys, ellipsoid.LinearUnit));
    std::map<int, std::string> const expected = {{2056, "7030"}, {2057, "6378137"}, {2059, "298.257223563"}};
    EXPECT_EQ(keys, expected);
}

TEST(ShellEllipsoid, GeoTIFFKeepsEntriesThatAreThere) {
    TDescription tree("6378137", "", "298.257223563");
    std::map<int, std::string> keys = {{2056, "x"}, {2057, "y"}, {2059, "z"}};
    std::map<int, std::string> const before = keys;
    TShellEllipsoid const ellipsoid(&tree);
    EXPECT_TRUE(ellipsoid.ExportToGeoTIFF(&keys, ellipsoid.LinearUnit));
    EXPECT_EQ(keys, before);
}

TEST(ShellEllipsoid, WKTNameMayBeOfAnyLength) {
    TDescription tree("1", "1", "");
    std::string const name(5000, 'n');
    Change(&tree, 5120, name);
    EXPECT_EQ(WKT(TShellEllipsoid(&tree)), "SPHEROID[\"" + name + "\",1,0]");
}

TEST(ShellEllipsoid, XMLHasTheKeysInTheirOrder) {
    TDescription tree("6378137", "6356752", "298.257223563");
    tree.InsertInteger("", 102004, 0, 7030);
    TShellEllipsoid ellipsoid(&tree);
    ellipsoid.MIFMIDCode = 0;
    std::vector<std::string> const expected = {
        "EllipsoidName",          "EllipsoidDescription",       "EllipsoidMajorSemiAxis",
        "EllipsoidMinorSemiAxis", "EllipsoidInverseFlattening", "EllipsoidLinearUnit",
        "EllipsoidGeoTIFFCode",   "EllipsoidMIFMIDCode"};
    EXPECT_EQ(Keys(Saved(ellipsoid)), expected);
}

TEST(ShellEllipsoid, XMLLeavesEmptyTextsAndMissingCodesOut) {
    TDescription tree("6378137", "", "298.257223563");
    Change(&tree, 5120, "");
    Change(&tree, 5121, "");
    std::vector<std::string> const expected = {"EllipsoidMajorSemiAxis", "EllipsoidInverseFlattening",
                                               "EllipsoidLinearUnit"};
    EXPECT_EQ(Keys(Saved(TShellEllipsoid(&tree))), expected);
}

TEST(ShellEllipsoid, XMLRoundTripKeepsEverything) {
    TDescription tree("6378.1370", "6356.7", "298.2570", kilometre);
    tree.InsertInteger("", 102004, 0, 7030);
    Change(&tree, 5121, "<two> & \"lines\"\n\ttabbed");
    TShellEllipsoid source(&tree);
    source.MIFMIDCode = 28;
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(source.SaveToXML(&writer));
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    TShellEllipsoid const copy(&reader);
    EXPECT_EQ(copy.Name, source.Name);
    EXPECT_EQ(copy.Description, source.Description);
    EXPECT_EQ(copy.MajorSemiAxis, "6378.1370");
    EXPECT_EQ(copy.MinorSemiAxis, "6356.7");
    EXPECT_EQ(copy.InverseFlattening, "298.2570");
    EXPECT_EQ(copy.GeoTIFFCode, 7030);
    EXPECT_EQ(copy.MIFMIDCode, 28);
    EXPECT_EQ(copy.LinearUnit->Name, "kilometre");
    EXPECT_EQ(copy.LinearUnit->CoefToBase, 1000.0);
}

TEST(ShellEllipsoid, XMLWithoutAUnitStillReadsNamesAndCodes) {
    TDescription tree("6378137", "6356752", "298.257223563");
    tree.InsertInteger("", 102004, 0, 7030);
    TShellEllipsoid ellipsoid(&tree);
    ellipsoid.MIFMIDCode = 28;
    MemoryXIni::TNode root = Saved(ellipsoid);
    root.Drop("EllipsoidLinearUnit");
    ellipsoid.Reset();
    MemoryXIni::TReader reader(&root);
    EXPECT_FALSE(ellipsoid.LoadFromXML(&reader));
    EXPECT_EQ(ellipsoid.Name, "WGS84");
    EXPECT_EQ(ellipsoid.Description, "a description");
    EXPECT_EQ(ellipsoid.GeoTIFFCode, 7030);
    EXPECT_EQ(ellipsoid.MIFMIDCode, 28);
    EXPECT_EQ(ellipsoid.MajorSemiAxis + ellipsoid.MinorSemiAxis + ellipsoid.InverseFlattening, "");
}

TEST(ShellEllipsoid, XMLWithABrokenUnitIsFalseAndLeavesTheSection) {
    TDescription tree("6378137", "6356752", "298.257223563");
    TShellEllipsoid ellipsoid(&tree);
    MemoryXIni::TNode root = Saved(ellipsoid);
    root.Find("EllipsoidLinearUnit").Find("UnitType").text = "2";
    MemoryXIni::TReader reader(&root);
    EXPECT_FALSE(ellipsoid.LoadFromXML(&reader));
    EXPECT_EQ(reader.Depth(), 0U);
    EXPECT_EQ(ellipsoid.LinearUnit, nullptr);
    EXPECT_EQ(ellipsoid.MajorSemiAxis, "6378137");
    EXPECT_EQ(ellipsoid.Name, "WGS84");
    MemoryXIni::TReader again(&root);
    EXPECT_EQ(MessageOf([&] { TShellEllipsoid const copy(&again); }), xmlMessage);
}

TEST(ShellEllipsoid, XMLNeedsTheMajorAndASecondText) {
    TDescription tree("6378137", "6356752", "298.257223563");
    MemoryXIni::TNode const complete = Saved(TShellEllipsoid(&tree));
    struct TCase {
        std::vector<char const*> dropped;
        bool loads;
    };
    for (TCase const& row :
         {TCase{{"EllipsoidMajorSemiAxis"}, false},
          TCase{{"EllipsoidMinorSemiAxis", "EllipsoidInverseFlattening"}, false},
          TCase{{"EllipsoidMinorSemiAxis"}, true}, TCase{{"EllipsoidInverseFlattening"}, true},
          TCase{{"EllipsoidName", "EllipsoidDescription"}, true}}) {
        MemoryXIni::TNode root = complete;
        for (char const* const key : row.dropped) {
            root.Drop(key);
        }
        MemoryXIni::TReader reader(&root);
        EXPECT_EQ(MessageOf([&] { TShellEllipsoid const copy(&reader); }), row.loads ? "" : xmlMessage)
            << row.dropped.front();
    }
    EXPECT_EQ(MessageOf([] { TShellEllipsoid const copy(static_cast<TKvXIniReader*>(nullptr)); }),
              xmlMessage);
}

TEST(ShellEllipsoid, XMLConstructorLeaksNothingWhenTheReaderThrows) {
    TDescription tree("6378137", "6356752", "298.257223563");
    MemoryXIni::TNode root = Saved(TShellEllipsoid(&tree));
    MemoryXIni::TReader counter(&root);
    { TShellEllipsoid const complete(&counter); }
    for (unsigned long operation = 1; operation <= counter.operations; ++operation) {
        MemoryXIni::TReader reader(&root);
        reader.failingOperation = operation;
        EXPECT_ANY_THROW(TShellEllipsoid const copy(&reader)) << operation;
        EXPECT_EQ(reader.Depth(), 0U) << operation;
    }
}

TEST(ShellEllipsoid, EveryFailedWriteIsReported) {
    TDescription tree("6378137", "6356752", "298.257223563");
    tree.InsertInteger("", 102004, 0, 7030);
    TShellEllipsoid ellipsoid(&tree);
    ellipsoid.MIFMIDCode = 28;
    ExpectEveryFailedWriteIsReported(ellipsoid);
}

} // namespace
