#include "shell/units/AngularUnit.h"

#include "UnitFixtures.h"

#include "shell/units/SexagesimalUnits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

using namespace KvRefSystem;
using namespace KvRefSystem::UnitTests;

static_assert(sizeof(TShellAngularUnit) == 136);
static_assert(std::has_virtual_destructor_v<TShellAngularUnit>);

namespace {

constexpr char const* LatitudeMessage =
    "double TShellAngularUnit::StringToValueLatitude(const string& str) const";
constexpr char const* LongitudeMessage =
    "double TShellAngularUnit::StringToValueLongitude(const string& str) const";
constexpr char const* ParseMessage = "bool TShellUnit::StringToValue(const string& str, double *value) const";
constexpr char const* RootTreeMessage = "TShellUnit::TShellUnit(TStringTree *tree)";

template <class TUnit>
bool IsA(TShellAngularUnit const* unit) {
    return unit && typeid(*unit) == typeid(TUnit);
}

} // namespace

TEST(ShellAngularUnit, VirtualOperationsStandInTheirSlots) {
    bool (TShellAngularUnit::*const parseLatitude)(std::string const&, double*) const =
        &TShellAngularUnit::StringToValueLatitude;
    bool (TShellAngularUnit::*const parseLongitude)(std::string const&, double*) const =
        &TShellAngularUnit::StringToValueLongitude;
    EXPECT_EQ(SlotOf(parseLatitude), 6);
    EXPECT_EQ(SlotOf(parseLongitude), 7);
    EXPECT_EQ(SlotOf(&TShellAngularUnit::ValueToStringLatitude), 8);
    EXPECT_EQ(SlotOf(&TShellAngularUnit::ValueToStringLongitude), 9);
    EXPECT_EQ(SlotOf(&TShellAngularUnit::StringToDegrees), 10);
    EXPECT_EQ(SlotOf(&TShellAngularUnit::DegreesToString), 11);
    EXPECT_EQ(SlotOf(&TShellAngularUnit::StringToDegreesLatitude), 12);
    EXPECT_EQ(SlotOf(&TShellAngularUnit::DegreesToStringLatitude), 13);
    EXPECT_EQ(SlotOf(&TShellAngularUnit::StringToDegreesLongitude), 14);
    EXPECT_EQ(SlotOf(&TShellAngularUnit::DegreesToStringLongitude), 15);
}

// --- Construction ------------------------------------------------------------------------------------------

TEST(ShellAngularUnit, PrecisionIsTenDecimalsOfARadian) {
    EXPECT_EQ(MakeUnit<TShellAngularUnit>(Radian())->Precision, 10);
    EXPECT_EQ(MakeUnit<TShellAngularUnit>(Degree())->Precision, 9);
    EXPECT_EQ(MakeUnit<TShellAngularUnit>(Grad())->Precision, 9);
    // One second of arc: log10(pi / 648000) + 10 = 4.69.
    EXPECT_EQ(
        MakeUnit<TShellAngularUnit>({.type = 2, .numerator = PiText, .denominator = "648000"})->Precision, 5);
    EXPECT_EQ(MakeUnit<TShellAngularUnit>({.type = 2, .numerator = "1e-12"})->Precision, 0);
    EXPECT_EQ(MakeUnit<TShellAngularUnit>({.type = 2, .denominator = "0"})->Precision, 0);
    EXPECT_EQ(MakeUnit<TShellAngularUnit>({.type = 2, .numerator = "-1"})->Precision, 0);
    EXPECT_EQ(LoadUnit<TShellAngularUnit>(LoadableItems(0, 2))->Precision, 11);
}

TEST(ShellAngularUnit, TreeHasTheGeoTIFFCode) {
    TStringTree tree;
    Fill(&tree, Degree());
    tree.InsertString("epsg", 102002, 0, "9001");
    EXPECT_EQ(TShellAngularUnit(&tree).GeoTIFFCode, 0);
    tree.InsertString("epsg", 102003, 0, "9102");
    EXPECT_EQ(TShellAngularUnit(&tree).GeoTIFFCode, 9102);
}

TEST(ShellAngularUnit, MissingFieldHasTheMessageOfTheRootTheCodeIncluded) {
    for (int const tag : {5301, 5312, 5320, 5321, 5322}) {
        TStringTree tree;
        Fill(&tree, Degree());
        tree.DeleteField(tag, 0);
        EXPECT_EQ(MessageOf([&] { TShellAngularUnit unit(&tree); }), RootTreeMessage) << tag;
    }
}

TEST(ShellAngularUnit, XMLMessageOfThePlainClassHasNoArgumentList) {
    std::string const message = "TShellAngularUnit::TShellAngularUnit";
    EXPECT_EQ(MessageOf([] { LoadUnit<TShellAngularUnit>(LoadableItems(0, 1)); }), message);
    EXPECT_EQ(MessageOf([] { LoadUnit<TShellAngularUnit>(LoadableItems(0, 3)); }), message);
    EXPECT_EQ(MessageOf([] { LoadUnit<TShellAngularUnit>(TItems{}); }), message);
    EXPECT_EQ(MessageOf([] { TShellAngularUnit unit(static_cast<TKvXIniReader*>(nullptr)); }), message);
}

TEST(ShellAngularUnit, PlainClassLoadsTheCodeOfANotationToo) {
    auto const unit = LoadUnit<TShellAngularUnit>(LoadableItems(7, 2));
    EXPECT_EQ(unit->Code, anDegreeMinuteSecond);
    EXPECT_EQ(unit->ValueToString(12.5, 2), "12.50");
}

TEST(ShellAngularUnit, TreeAndXMLGiveTheSameUnit) {
    auto const fromTree = MakeUnit<TShellAngularUnit>(Grad());
    TListWriter writer;
    ASSERT_TRUE(fromTree->SaveToXML(&writer));
    auto const fromXML = LoadUnit<TShellAngularUnit>(writer.items);
    EXPECT_TRUE(*fromXML == *fromTree);
    EXPECT_EQ(fromXML->Precision, fromTree->Precision);
}

// --- Latitude and longitude --------------------------------------------------------------------------------

TEST(ShellAngularUnit, PlainNotationReadsAndPrintsBothAxesAlike) {
    auto const unit = MakeUnit<TShellAngularUnit>(Degree());
    double value = 0.0;
    EXPECT_TRUE(unit->StringToValueLatitude("-12.5", &value));
    EXPECT_EQ(value, -12.5);
    EXPECT_TRUE(unit->StringToValueLongitude("200.25", &value));
    EXPECT_EQ(value, 200.25);
    EXPECT_EQ(unit->ValueToStringLatitude(-12.5, 2), "-12.50");
    EXPECT_EQ(unit->ValueToStringLongitude(200.25, -1), "200.25");
}

TEST(ShellAngularUnit, ThrowingParsersNameTheirAxis) {
    auto const unit = MakeUnit<TShellAngularUnit>(Degree());
    EXPECT_EQ(unit->StringToValueLatitude("12.5"), 12.5);
    EXPECT_EQ(unit->StringToValueLongitude("12.5"), 12.5);
    EXPECT_EQ(MessageOf([&] { unit->StringToValueLatitude("x"); }), LatitudeMessage);
    EXPECT_EQ(MessageOf([&] { unit->StringToValueLongitude("x"); }), LongitudeMessage);
    EXPECT_EQ(MessageOf([&] { unit->StringToRadiansLatitude("x"); }), LatitudeMessage);
    EXPECT_EQ(MessageOf([&] { unit->StringToRadiansLongitude("x"); }), LongitudeMessage);
    EXPECT_EQ(MessageOf([&] { unit->StringToDegreesLatitude("x"); }), LatitudeMessage);
    EXPECT_EQ(MessageOf([&] { unit->StringToDegreesLongitude("x"); }), LongitudeMessage);
    EXPECT_EQ(MessageOf([&] { unit->StringToDegrees("x"); }), ParseMessage);
}

TEST(ShellAngularUnit, FallbackIsForATextThatDoesNotParse) {
    auto const unit = MakeUnit<TShellAngularUnit>(Degree());
    EXPECT_EQ(unit->StringToValueLatitudeDef("x", 5.0), 5.0);
    EXPECT_EQ(unit->StringToValueLongitudeDef("x", 6.0), 6.0);
    EXPECT_EQ(unit->StringToValueLatitudeDef("1.5", 5.0), 1.5);
    EXPECT_EQ(unit->StringToValueLongitudeDef("2.5", 6.0), 2.5);
}

TEST(ShellAngularUnit, EmptyTextIsZeroOrTheFallback) {
    auto const unit = MakeUnit<TShellAngularUnit>(Degree());
    EXPECT_EQ(unit->StringToValueLatitude(""), 0.0);
    EXPECT_EQ(unit->StringToValueLongitude(" "), 0.0);
    EXPECT_EQ(unit->StringToRadiansLatitude(""), 0.0);
    EXPECT_EQ(unit->StringToDegreesLongitude(""), 0.0);
    EXPECT_EQ(unit->StringToValueLatitudeDef("", 5.0), 5.0);
    EXPECT_EQ(unit->StringToValueLongitudeDef("", 6.0), 6.0);
}

TEST(ShellAngularUnit, RadiansComeFromTheCoefficients) {
    auto const unit = MakeUnit<TShellAngularUnit>(Grad());
    // 50 grads are a quarter of pi.
    EXPECT_NEAR(unit->StringToRadiansLatitude("50"), 0.7853981633974483, 1e-15);
    EXPECT_NEAR(unit->StringToRadiansLongitude("-50"), -0.7853981633974483, 1e-15);
    EXPECT_EQ(unit->RadiansToStringLatitude(0.7853981633974483, 6), "50.000000");
    EXPECT_EQ(unit->RadiansToStringLongitude(-0.7853981633974483, 6), "-50.000000");
}

TEST(ShellAngularUnit, DegreesComeFromTheCoefficients) {
    auto const unit = MakeUnit<TShellAngularUnit>(Grad());
    EXPECT_NEAR(unit->StringToDegrees("100"), 90.0, 1e-12);
    EXPECT_NEAR(unit->StringToDegreesLatitude("-50"), -45.0, 1e-12);
    EXPECT_NEAR(unit->StringToDegreesLongitude("200"), 180.0, 1e-12);
    EXPECT_EQ(unit->DegreesToString(90.0, 6), "100.000000");
    EXPECT_EQ(unit->DegreesToStringLatitude(-45.0, 6), "-50.000000");
    EXPECT_EQ(unit->DegreesToStringLongitude(180.0, 6), "200.000000");
}

TEST(ShellAngularUnit, DegreesAreMultipliedBeforeTheyAreDivided) {
    // Any other order would stay in range.
    auto const unit = MakeUnit<TShellAngularUnit>(Radian());
    EXPECT_EQ(unit->StringToDegrees("3e306"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(unit->DegreesToString(1e308, 0), "inf");
}

// --- The free functions ------------------------------------------------------------------------------------

TEST(ShellAngularUnit, CodeChoosesTheClassFromATree) {
    for (int code = -1; code <= 13; ++code) {
        TStringTree tree;
        Fill(&tree, Degree(code));
        std::unique_ptr<TShellAngularUnit> const unit(CreateShellAngularUnit(&tree));
        ASSERT_TRUE(unit) << code;
        EXPECT_EQ(unit->Code, code);
        EXPECT_EQ(IsA<TShellUnitDegreeMinuteSecond>(unit.get()), code == 7) << code;
        EXPECT_EQ(IsA<TShellUnitDegreeMinuteSecondHemisphere>(unit.get()), code == 8) << code;
        EXPECT_EQ(IsA<TShellUnitSexagesimalDegree>(unit.get()), code == 10) << code;
        EXPECT_EQ(IsA<TShellDegreeDecimalMinuteUnit>(unit.get()), code == 11) << code;
        EXPECT_EQ(IsA<TShellAngularUnit>(unit.get()), code < 7 || code == 9 || code > 11) << code;
    }
}

TEST(ShellAngularUnit, CodeChoosesTheClassFromXML) {
    for (int code = -1; code <= 13; ++code) {
        TListReader reader(LoadableItems(code, 2));
        std::unique_ptr<TShellAngularUnit> const unit(CreateShellAngularUnit(&reader));
        ASSERT_TRUE(unit) << code;
        EXPECT_EQ(unit->Code, code);
        EXPECT_EQ(IsA<TShellUnitDegreeMinuteSecond>(unit.get()), code == 7) << code;
        EXPECT_EQ(IsA<TShellUnitDegreeMinuteSecondHemisphere>(unit.get()), code == 8) << code;
        EXPECT_EQ(IsA<TShellUnitSexagesimalDegree>(unit.get()), code == 10) << code;
        EXPECT_EQ(IsA<TShellDegreeDecimalMinuteUnit>(unit.get()), code == 11) << code;
        EXPECT_EQ(IsA<TShellAngularUnit>(unit.get()), code < 7 || code == 9 || code > 11) << code;
    }
}

TEST(ShellAngularUnit, TreeWithoutACodeGivesNoUnit) {
    TStringTree tree;
    Fill(&tree, Degree());
    tree.DeleteField(5301, 0);
    EXPECT_EQ(CreateShellAngularUnit(&tree), nullptr);
    EXPECT_EQ(CreateShellAngularUnit(static_cast<TStringTree*>(nullptr)), nullptr);
}

TEST(ShellAngularUnit, FactoryLetsTheMessageOfTheClassThrough) {
    TStringTree tree;
    tree.InsertInteger("code", 5301, 0, 7);
    EXPECT_EQ(MessageOf([&] { CreateShellAngularUnit(&tree); }), RootTreeMessage);
    TListReader plain(TItems{});
    EXPECT_EQ(MessageOf([&] { CreateShellAngularUnit(&plain); }), "TShellAngularUnit::TShellAngularUnit");
    TListReader packed(TItems{{"UnitCode", "10"}});
    EXPECT_EQ(MessageOf([&] { CreateShellAngularUnit(&packed); }),
              "TShellUnitSexagesimalDegree::TShellUnitSexagesimalDegree(TKvXIniReader *xml)");
    EXPECT_EQ(MessageOf([] { CreateShellAngularUnit(static_cast<TKvXIniReader*>(nullptr)); }),
              "TShellAngularUnit::TShellAngularUnit");
}
