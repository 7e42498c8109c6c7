#include "UnitFixtures.h"

#include "shell/units/AngularUnit.h"
#include "shell/units/LinearUnit.h"
#include "shell/units/ScaleUnit.h"
#include "shell/units/SexagesimalUnits.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>

using namespace KvRefSystem;
using namespace KvRefSystem::UnitTests;

namespace {

constexpr char const* ParseMessage = "bool TShellUnit::StringToValue(const string& str, double *value) const";
constexpr char const* MemberMessage =
    "void TShellUnit::Convert(const TShellUnit& dst_unit, double *value) const";

} // namespace

TEST(Conversion, ValueGoesByWayOfTheBaseUnit) {
    auto const kilometre = MakeUnit<TShellLinearUnit>(Metres("1000"));
    auto const foot = MakeUnit<TShellLinearUnit>(Metres("0.3048"));
    double result = 0.0;
    EXPECT_TRUE(Convert(*kilometre, 1.5, *MakeUnit<TShellLinearUnit>(Metre()), &result));
    EXPECT_EQ(result, 1500.0);
    EXPECT_TRUE(Convert(*foot, 10000.0, *kilometre, &result));
    EXPECT_NEAR(result, 3.048, 1e-15);
}

TEST(Conversion, ResultMayBeTheValue) {
    auto const kilometre = MakeUnit<TShellLinearUnit>(Metres("1000"));
    double value = 2.0;
    EXPECT_TRUE(Convert(*kilometre, value, *MakeUnit<TShellLinearUnit>(Metre()), &value));
    EXPECT_EQ(value, 2000.0);
}

TEST(Conversion, TextIsReadAndPrintedWithAllDigits) {
    auto const kilometre = MakeUnit<TShellLinearUnit>(Metres("1000"));
    auto const metre = MakeUnit<TShellLinearUnit>(Metre());
    std::string text = "1.5";
    EXPECT_TRUE(Convert(*kilometre, text, *metre, &text));
    EXPECT_EQ(text, "1500");
    EXPECT_TRUE(Convert(*metre, "0.1", *metre, &text));
    EXPECT_EQ(text, "0.1000000000000000055511151");
}

TEST(Conversion, EmptyTextConvertsAsZero) {
    auto const metre = MakeUnit<TShellLinearUnit>(Metre());
    std::string text = "old";
    EXPECT_TRUE(Convert(*metre, "", *metre, &text));
    EXPECT_EQ(text, "0");
}

TEST(Conversion, AnotherKindIsFalseAndKeepsTheResult) {
    auto const metre = MakeUnit<TShellLinearUnit>(Metre());
    auto const radian = MakeUnit<TShellAngularUnit>(Radian());
    double result = 7.0;
    EXPECT_FALSE(Convert(*metre, 1.0, *radian, &result));
    EXPECT_FALSE(Convert(*radian, 1.0, *metre, &result));
    EXPECT_EQ(result, 7.0);
    std::string text = "old";
    EXPECT_FALSE(Convert(*metre, "1", *radian, &text));
    EXPECT_EQ(text, "old");
}

TEST(Conversion, KindIsTestedBeforeTheTextIsRead) {
    std::string text = "old";
    EXPECT_FALSE(
        Convert(*MakeUnit<TShellLinearUnit>(Metre()), "abc", *MakeUnit<TShellAngularUnit>(Radian()), &text));
    EXPECT_EQ(text, "old");
}

TEST(Conversion, TextThatDoesNotParseThrowsAndKeepsTheResult) {
    auto const metre = MakeUnit<TShellLinearUnit>(Metre());
    std::string text = "old";
    EXPECT_EQ(MessageOf([&] { Convert(*metre, "abc", *metre, &text); }), ParseMessage);
    EXPECT_EQ(text, "old");
}

TEST(Conversion, SourceIsMultipliedFirst) {
    // (1e300 * 1e10) overflows, 1e10 * 1e-300 would not.
    auto const huge = MakeUnit<TShellLinearUnit>(Metres("1e300"));
    double result = 0.0;
    EXPECT_TRUE(Convert(*huge, 1e10, *huge, &result));
    EXPECT_EQ(result, std::numeric_limits<double>::infinity());
    double value = 1e10;
    huge->Convert(*huge, &value);
    EXPECT_EQ(value, std::numeric_limits<double>::infinity());
}

TEST(Conversion, MemberConvertsInPlaceAndThrowsForAnotherKind) {
    auto const kilometre = MakeUnit<TShellLinearUnit>(Metres("1000"));
    double value = 1.5;
    kilometre->Convert(*MakeUnit<TShellLinearUnit>(Metre()), &value);
    EXPECT_EQ(value, 1500.0);
    EXPECT_EQ(MessageOf([&] { kilometre->Convert(*MakeUnit<TShellAngularUnit>(Radian()), &value); }),
              MemberMessage);
    EXPECT_EQ(value, 1500.0);
}

TEST(Conversion, ScaleUnitsConvertToo) {
    auto const ppm = MakeUnit<TShellScaleUnit>(PartsPerMillion());
    auto const factor = MakeUnit<TShellScaleUnit>({.type = 3});
    std::string text;
    EXPECT_TRUE(Convert(*factor, "0.5", *ppm, &text));
    EXPECT_EQ(text, "500000");
}

TEST(Conversion, SexagesimalTextsConvertToTheDecimalNotation) {
    auto const sexagesimal = MakeUnit<TShellUnitDegreeMinuteSecond>(Degree(7));
    auto const degree = MakeUnit<TShellAngularUnit>(Degree());
    std::string text;
    EXPECT_TRUE(Convert(*sexagesimal, "- 12 30 0", *degree, &text));
    EXPECT_NEAR(degree->StringToValue(text), -12.5, 1e-14);
    EXPECT_TRUE(Convert(*degree, "12.5", *sexagesimal, &text));
    EXPECT_EQ(text, "12 30 0.000000000000");
}

TEST(Conversion, ToTheHemisphereNotationThereIsNoTextWithoutAnAxis) {
    auto const degree = MakeUnit<TShellAngularUnit>(Degree());
    auto const hemisphere = MakeUnit<TShellUnitDegreeMinuteSecondHemisphere>(Degree(8));
    std::string text = "old";
    EXPECT_EQ(MessageOf<std::logic_error>([&] { Convert(*degree, "12.5", *hemisphere, &text); }),
              "TShellUnitDegreeMinuteSecondHemisphere::ValueToString");
    EXPECT_EQ(text, "old");
}

TEST(Conversion, AxesConvertWithTheirLetters) {
    auto const degree = MakeUnit<TShellAngularUnit>(Degree());
    auto const hemisphere = MakeUnit<TShellUnitDegreeMinuteSecondHemisphere>(Degree(8));
    std::string text = "-12.5";
    EXPECT_TRUE(ConvertLatitude(degree.get(), text, hemisphere.get(), &text));
    EXPECT_EQ(text, "12 30 0.0000000000 S");
    EXPECT_TRUE(ConvertLongitude(degree.get(), "-12.5", hemisphere.get(), &text));
    EXPECT_EQ(text, "12 30 0.0000000000 W");
    EXPECT_TRUE(ConvertLongitude(hemisphere.get(), text, degree.get(), &text));
    EXPECT_NEAR(degree->StringToValue(text), -12.5, 1e-14);
    EXPECT_TRUE(ConvertLatitude(hemisphere.get(), "12 30 N", degree.get(), &text));
    EXPECT_NEAR(degree->StringToValue(text), 12.5, 1e-14);
}

TEST(Conversion, AxisMultipliesTheSourceFirst) {
    auto const huge = MakeUnit<TShellAngularUnit>({.type = 2, .numerator = "1e300"});
    std::string text;
    EXPECT_TRUE(ConvertLatitude(huge.get(), "1e10", huge.get(), &text));
    EXPECT_EQ(text, "inf");
    EXPECT_TRUE(ConvertLongitude(huge.get(), "-1e10", huge.get(), &text));
    EXPECT_EQ(text, "-inf");
}

TEST(Conversion, AxisWithoutANumberThrowsTheMessageOfItsAxis) {
    auto const degree = MakeUnit<TShellAngularUnit>(Degree());
    std::string text = "old";
    EXPECT_EQ(MessageOf([&] { ConvertLatitude(degree.get(), "x", degree.get(), &text); }),
              "double TShellAngularUnit::StringToValueLatitude(const string& str) const");
    EXPECT_EQ(MessageOf([&] { ConvertLongitude(degree.get(), "x", degree.get(), &text); }),
              "double TShellAngularUnit::StringToValueLongitude(const string& str) const");
    EXPECT_EQ(text, "old");
}

TEST(Conversion, EmptyAxisConvertsAsZero) {
    auto const degree = MakeUnit<TShellAngularUnit>(Degree());
    std::string text = "old";
    EXPECT_TRUE(ConvertLatitude(degree.get(), "", degree.get(), &text));
    EXPECT_EQ(text, "0");
    EXPECT_TRUE(ConvertLongitude(degree.get(), " ", degree.get(), &text));
    EXPECT_EQ(text, "0");
}
