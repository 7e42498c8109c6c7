// Edges where several notations or both ways of building a unit stand side by side.

#include "UnitFixtures.h"
#include "shell/units/LinearUnit.h"
#include "shell/units/ScaleUnit.h"
#include "shell/units/SexagesimalUnits.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <typeinfo>

using namespace KvRefSystem;
using namespace KvRefSystem::UnitTests;

namespace {

constexpr char const* ParseMessage = "bool TShellUnit::StringToValue(const string& str, double *value) const";
constexpr char const* LatitudeMessage =
    "double TShellAngularUnit::StringToValueLatitude(const string& str) const";
constexpr char const* LongitudeMessage =
    "double TShellAngularUnit::StringToValueLongitude(const string& str) const";
constexpr char const* DMSMessage =
    "TShellUnitDegreeMinuteSecond::TShellUnitDegreeMinuteSecond(TKvXIniReader *xml)";

std::unique_ptr<TShellUnitDegreeMinuteSecond> DMS() {
    return MakeUnit<TShellUnitDegreeMinuteSecond>(Degree(7));
}

std::unique_ptr<TShellUnitDegreeMinuteSecondHemisphere> Hemisphere() {
    return MakeUnit<TShellUnitDegreeMinuteSecondHemisphere>(Degree(8));
}

std::unique_ptr<TShellUnitSexagesimalDegree> Packed() {
    return MakeUnit<TShellUnitSexagesimalDegree>(Degree(10));
}

std::unique_ptr<TShellDegreeDecimalMinuteUnit> DecimalMinute() {
    return MakeUnit<TShellDegreeDecimalMinuteUnit>(Degree(11));
}

TEST(UnitsEdge, ANullUnitConvertsNothing) {
    std::string result = "kept";

    EXPECT_FALSE(ConvertLatitude(nullptr, "1", nullptr, &result));
    EXPECT_FALSE(ConvertLongitude(nullptr, "1", nullptr, &result));
    EXPECT_EQ(result, "kept");
}

} // namespace

// --- Printing ----------------------------------------------------------------------------------------------

TEST(UnitsEdge, PackedNotationsFillTheirDigitsWithZeros) {
    // 5 degrees, 7 minutes, 8.009 seconds; 5 degrees, 7.009 minutes.
    EXPECT_EQ(Packed()->ValueToString(5.0 + 7.0 / 60.0 + 8.009 / 3600.0, 3), "5.0708009");
    EXPECT_EQ(DecimalMinute()->ValueToString(5.0 + 7.009 / 60.0, 3), "5.07009");
    // 8.05 seconds and 7.05 minutes in the default digits, nine and ten of them.
    EXPECT_EQ(Packed()->ValueToString(5.0 + 7.0 / 60.0 + 8.05 / 3600.0, -1), "5.0708050000000");
    EXPECT_EQ(DecimalMinute()->ValueToString(5.0 + 7.05 / 60.0, -1), "5.070500000000");
}

TEST(UnitsEdge, PrecisionZeroCarriesThroughMinutesIntoDegrees) {
    // 59 minutes and 59.964 seconds; 59.9 minutes.
    EXPECT_EQ(Packed()->ValueToString(12.99999, 0), "13.00000");
    EXPECT_EQ(Packed()->ValueToString(179.99999, 0), "180.00000");
    EXPECT_EQ(DecimalMinute()->ValueToString(12.0 + 59.9 / 60.0, 0), "13.000");
    EXPECT_EQ(DMS()->ValueToString(12.9999, 0), "13 0 0");
}

TEST(UnitsEdge, CarryPastTheAntimeridianTurnsEveryNotationAndBothSigns) {
    EXPECT_EQ(Hemisphere()->ValueToStringLatitude(-180.9999999999, 2), "179 0 0.00 N");
    EXPECT_EQ(Hemisphere()->ValueToStringLongitude(359.9999999999, 2), "0 0 0.00 W");
    EXPECT_EQ(Packed()->ValueToString(360.9999999999, 1), "--1.00000");
    EXPECT_EQ(DecimalMinute()->ValueToString(359.99999999, 3), "-0.00000");
}

TEST(UnitsEdge, AxisOtherThanLatitudeIsALongitude) {
    EXPECT_EQ(Hemisphere()->InternalOutput(12.5, 0, 7), "12 30 0 E");
    EXPECT_EQ(Hemisphere()->InternalOutput(-12.5, 0, -1), "12 30 0 W");
}

TEST(UnitsEdge, NegativeGeoTIFFCodeIsACode) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    unit->GeoTIFFCode = -5;
    std::map<int, std::string> keys;
    EXPECT_TRUE(unit->ExportToGeoTIFF(&keys, 3076, 3077));
    EXPECT_EQ(keys, (std::map<int, std::string>{{3076, "-5"}}));
}

// --- Reading -----------------------------------------------------------------------------------------------

TEST(UnitsEdge, PackedSignReachesMinutesSecondsAndFraction) {
    // 12 degrees, 34 minutes, 56.7 seconds.
    ExpectReadings(*Packed(), {{"-12.34567", -12.582416666666667}, {"-12.3456", -12.582222222222222}});
}

TEST(UnitsEdge, PackedFractionBeyondAnIntKeepsItsLowBits) {
    // 12345678901 - 3 * 2^32 = -539222987, a negative part; 4294967297 - 2^32 = 1 of ten digits.
    double value = 7.0;
    EXPECT_FALSE(Packed()->StringToValue("12.345612345678901", &value));
    EXPECT_EQ(value, 7.0);
    ExpectReadings(*Packed(), {{"12.34564294967297", 12.582222222222222}});
}

TEST(UnitsEdge, MinutesAndSecondsAreNotLimited) {
    // 12 + 99/60 + 99/3600; 12 + 75/60.
    ExpectReadings(*Packed(), {{"12.9999", 13.6775}});
    ExpectReadings(*DecimalMinute(), {{"12.75", 13.25}});
    ExpectReadings(*DMS(), {{"12 75 120", 13.283333333333333}});
}

TEST(UnitsEdge, ThirdNumberOfDegreesMinutesSecondsIsReadAsItStands) {
    // Only the first two numbers lose their signs; the third one may have an exponent.
    ExpectReadings(*DMS(), {{"1 2 3e2", 1.1166666666666667}, {"1 2e2", 1.0338888888888889}});
    ExpectReadings(*Hemisphere(), {{"1 2 3e2 S", -1.1166666666666667}});
}

TEST(UnitsEdge, EmptyTextGivesTheFallbackOrZeroByNotation) {
    EXPECT_EQ(DMS()->StringToValueLatitudeDef("", 5.0), 5.0);
    EXPECT_EQ(DMS()->StringToValue("", 5.0), 5.0);
    EXPECT_EQ(Hemisphere()->StringToValueLatitudeDef("", 5.0), 0.0);
    EXPECT_EQ(Hemisphere()->StringToValueLongitudeDef("abc", 5.0), 0.0);
    EXPECT_EQ(Hemisphere()->StringToValueLongitudeDef(".", 5.0), 5.0);
    EXPECT_EQ(Packed()->StringToValue("", 5.0), 0.0);
    EXPECT_EQ(DecimalMinute()->StringToValue("", 5.0), 0.0);
    EXPECT_EQ(Packed()->StringToValue("abc", 5.0), 5.0);
    EXPECT_EQ(DecimalMinute()->StringToValue("abc", 5.0), 5.0);
}

TEST(UnitsEdge, SexagesimalParsersNameTheirAxis) {
    EXPECT_EQ(MessageOf([] { DMS()->StringToValueLatitude("x"); }), LatitudeMessage);
    EXPECT_EQ(MessageOf([] { Hemisphere()->StringToValueLongitude("."); }), LongitudeMessage);
    EXPECT_EQ(MessageOf([] { Packed()->StringToRadiansLatitude("12.-534"); }), LatitudeMessage);
    EXPECT_EQ(MessageOf([] { DecimalMinute()->StringToRadiansLongitude("x"); }), LongitudeMessage);
    EXPECT_EQ(MessageOf([] { Hemisphere()->StringToDegreesLongitude("."); }), ParseMessage);
    std::string text = "old";
    EXPECT_EQ(MessageOf([&] { ConvertLatitude(DMS().get(), "x", DMS().get(), &text); }), LatitudeMessage);
    EXPECT_EQ(MessageOf([&] { ConvertLongitude(Hemisphere().get(), ".", DMS().get(), &text); }),
              LongitudeMessage);
    EXPECT_EQ(text, "old");
}

// --- XML ---------------------------------------------------------------------------------------------------

TEST(UnitsEdge, KindOutOfRangeFailsInEveryNotation) {
    EXPECT_EQ(MessageOf([] { LoadUnit<TShellUnitDegreeMinuteSecond>(LoadableItems(7, 4)); }), DMSMessage);
    EXPECT_EQ(MessageOf([] { LoadUnit<TShellUnitDegreeMinuteSecondHemisphere>(LoadableItems(8, 0)); }),
              DMSMessage);
    EXPECT_EQ(MessageOf([] { LoadUnit<TShellUnitSexagesimalDegree>(LoadableItems(10, 4)); }),
              "TShellUnitSexagesimalDegree::TShellUnitSexagesimalDegree(TKvXIniReader *xml)");
    EXPECT_EQ(MessageOf([] { LoadUnit<TShellDegreeDecimalMinuteUnit>(LoadableItems(11, -1)); }),
              "TShellDegreeDecimalMinuteUnit::TShellDegreeDecimalMinuteUnit(TKvXIniReader *xml)");
}

TEST(UnitsEdge, NullReaderHasTheMessageOfTheClass) {
    auto* const none = static_cast<TKvXIniReader*>(nullptr);
    EXPECT_EQ(MessageOf([&] { TShellUnitDegreeMinuteSecond unit(none); }), DMSMessage);
    EXPECT_EQ(MessageOf([&] { TShellUnitDegreeMinuteSecondHemisphere unit(none); }), DMSMessage);
    EXPECT_EQ(MessageOf([&] { TShellUnitSexagesimalDegree unit(none); }),
              "TShellUnitSexagesimalDegree::TShellUnitSexagesimalDegree(TKvXIniReader *xml)");
    EXPECT_EQ(MessageOf([&] { TShellDegreeDecimalMinuteUnit unit(none); }),
              "TShellDegreeDecimalMinuteUnit::TShellDegreeDecimalMinuteUnit(TKvXIniReader *xml)");
}

TEST(UnitsEdge, CodeThatIsNoNumberIsThePlainNotation) {
    TListReader reader(
        TItems{{"UnitCode", "7x"}, {"UnitType", "2"}, {"UnitCoefToBase", "2"}, {"UnitCoefFromBase", "0.5"}});
    std::unique_ptr<TShellAngularUnit> const unit(CreateShellAngularUnit(&reader));
    TShellAngularUnit const& read = *unit;
    EXPECT_EQ(typeid(read), typeid(TShellAngularUnit));
    EXPECT_EQ(unit->Code, 0);
}

TEST(UnitsEdge, LoadIntoALiveUnitKeepsItsPrecision) {
    auto const metre = MakeUnit<TShellLinearUnit>(Metre());
    TListReader kilometre(
        TItems{{"UnitType", "1"}, {"UnitCoefToBase", "1000"}, {"UnitCoefFromBase", "0.001"}});
    EXPECT_TRUE(metre->LoadFromXML(&kilometre));
    EXPECT_EQ(metre->CoefToBase, 1000.0);
    EXPECT_EQ(metre->Precision, 3);
    auto const radian = MakeUnit<TShellAngularUnit>(Radian());
    TListReader other(LoadableItems(0, 2));
    EXPECT_TRUE(radian->LoadFromXML(&other));
    EXPECT_EQ(radian->Precision, 10);
}
