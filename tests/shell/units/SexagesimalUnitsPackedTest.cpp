// The notations that are one packed number; the others stand in SexagesimalUnitsTest.cpp.

#include "shell/units/SexagesimalUnits.h"

#include "UnitFixtures.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

using namespace KvRefSystem;
using namespace KvRefSystem::UnitTests;

static_assert(sizeof(TShellUnitSexagesimalDegree) == 136);
static_assert(sizeof(TShellDegreeDecimalMinuteUnit) == 136);

namespace {

constexpr char const* ParseMessage = "bool TShellUnit::StringToValue(const string& str, double *value) const";
constexpr char const* PackedMessage =
    "TShellUnitSexagesimalDegree::TShellUnitSexagesimalDegree(TKvXIniReader *xml)";
constexpr char const* DecimalMinuteMessage =
    "TShellDegreeDecimalMinuteUnit::TShellDegreeDecimalMinuteUnit(TKvXIniReader *xml)";

std::unique_ptr<TShellUnitSexagesimalDegree> Packed() {
    return MakeUnit<TShellUnitSexagesimalDegree>(Degree(10));
}

std::unique_ptr<TShellDegreeDecimalMinuteUnit> DecimalMinute() {
    return MakeUnit<TShellDegreeDecimalMinuteUnit>(Degree(11));
}

} // namespace

// --- Packed degrees, minutes, seconds ----------------------------------------------------------------------

TEST(ShellUnitSexagesimalDegree, PrintsOneNumber) {
    auto const unit = Packed();
    EXPECT_EQ(unit->ValueToString(10.5, 3), "10.3000000");
    EXPECT_EQ(unit->ValueToString(-10.5, 3), "-10.3000000");
    EXPECT_EQ(unit->ValueToString(12.5825, 3), "12.3457000");
    EXPECT_EQ(unit->ValueToString(12.58243, 2), "12.345675"); // 34 minutes and 56.748 seconds
}

TEST(ShellUnitSexagesimalDegree, PrecisionZeroStillPrintsOneDigit) {
    EXPECT_EQ(Packed()->ValueToString(10.5, 0), "10.30000");
    EXPECT_EQ(Packed()->ValueToString(10.0 + 30.6 / 3600.0, 0), "10.00310");
}

TEST(ShellUnitSexagesimalDegree, NegativePrecisionMeansNineDigits) {
    EXPECT_EQ(Packed()->ValueToString(10.5, -1), "10.3000000000000");
    EXPECT_EQ(Packed()->ValueToString(-0.25, -5), "-0.1500000000000");
}

TEST(ShellUnitSexagesimalDegree, NegativePrecisionHasNoCarry) {
    // 57 seconds less what the binary fraction lacks: the fraction of the second rounds to a whole one.
    EXPECT_EQ(Packed()->ValueToString(12.5825, -1), "12.34561000000000");
}

TEST(ShellUnitSexagesimalDegree, RoundedFractionCarries) {
    auto const unit = Packed();
    EXPECT_EQ(unit->ValueToString(12.999999999, 3), "13.0000000");
    EXPECT_EQ(unit->ValueToString(12.0 + 5.9996 / 3600.0, 3), "12.0006000");
    EXPECT_EQ(unit->ValueToString(12.0 + 59.9996 / 3600.0, 3), "12.0100000");
    EXPECT_EQ(unit->ValueToString(180.9999999999, 3), "-179.0000000");
    EXPECT_EQ(unit->ValueToString(-180.9999999999, 3), "179.0000000");
}

TEST(ShellUnitSexagesimalDegree, NegativeZeroIsPositiveAndATinyValueKeepsItsSign) {
    EXPECT_EQ(Packed()->ValueToString(-0.0, 1), "0.00000");
    EXPECT_EQ(Packed()->ValueToString(-1e-12, 1), "-0.00000");
}

TEST(ShellUnitSexagesimalDegree, DigitsBeyondAnIntPrintTheSmallestInt) {
    EXPECT_EQ(Packed()->ValueToString(10.0 + 0.5 / 3600.0, 10), "10.0000-2147483648");
    EXPECT_EQ(Packed()->ValueToString(std::numeric_limits<double>::quiet_NaN(), 3),
              "-2147483648.-2147483648-2147483648-2147483648");
}

TEST(ShellUnitSexagesimalDegree, ReadsOneNumber) {
    ExpectReadings(*Packed(), {{"12.34567", 12.582416666666667},
                               {"12.3456", 12.582222222222222},
                               {"12.30", 12.5},
                               {"12.3", 12.05},
                               {"12", 12.0},
                               {"12.", 12.0},
                               {"-12.3000", -12.5},
                               {"-12.30000", -12.5},
                               {"+12.30", 12.5}});
}

TEST(ShellUnitSexagesimalDegree, ThirdDigitAloneIsOneSecondNotTen) {
    ExpectReadings(*Packed(), {{"12.345", 12.568055555555556}});
}

TEST(ShellUnitSexagesimalDegree, SignRestsOnTheWholeDegrees) {
    ExpectReadings(*Packed(), {{"-0.3000", 0.5}, {"-1.3000", -1.5}});
    EXPECT_EQ(Packed()->ValueToString(-0.5, 0), "-0.30000");
}

TEST(ShellUnitSexagesimalDegree, JunkBehindTheFractionCountsAsItsDigits) {
    // "7N" are two digits, so the fraction is 7 hundredths: 34 minutes and 56.07 seconds.
    ExpectReadings(*Packed(), {{"12.34567N", 12.582241666666667}});
}

TEST(ShellUnitSexagesimalDegree, WhiteSpaceAtTheEndsDoesNotCount) {
    ExpectReadings(*Packed(), {{" \t12.34567 \n", 12.582416666666667}});
}

TEST(ShellUnitSexagesimalDegree, NegativePartsDoNotParse) {
    for (char const* const text : {"12.-534", "12.34-5", "12.3456-7", "abc", "-", ".5"}) {
        double value = 7.0;
        EXPECT_FALSE(Packed()->StringToValue(text, &value)) << text;
        EXPECT_EQ(value, 7.0) << text;
    }
    EXPECT_EQ(MessageOf([] { Packed()->StringToDegrees("abc"); }), ParseMessage);
}

TEST(ShellUnitSexagesimalDegree, EmptyTextIsZero) {
    for (char const* const text : {"", "   "}) {
        double value = 7.0;
        EXPECT_TRUE(Packed()->StringToValue(text, &value));
        EXPECT_EQ(value, 0.0);
    }
}

TEST(ShellUnitSexagesimalDegree, CoefficientsOfATreeAreThoseOfTheDegree) {
    auto const unit = MakeUnit<TShellUnitSexagesimalDegree>({.code = 10, .type = 2, .numerator = "5"});
    EXPECT_EQ(unit->CoefToBase, 0.017453292519943295);
    EXPECT_EQ(unit->CoefFromBase, 57.29577951308232);
    EXPECT_EQ(unit->Precision, 6);
}

TEST(ShellUnitSexagesimalDegree, CoefficientsOfXMLStayButAreNotUsedForDegrees) {
    auto const unit = LoadUnit<TShellUnitSexagesimalDegree>(LoadableItems(10, 2));
    EXPECT_EQ(unit->CoefToBase, 2.0);
    EXPECT_EQ(unit->Precision, 6);
    EXPECT_EQ(unit->StringToDegrees("12.30"), 12.5);
    EXPECT_EQ(unit->StringToDegreesLatitude("12.30"), 12.5);
    EXPECT_EQ(unit->StringToDegreesLongitude("12.30"), 12.5);
    EXPECT_EQ(unit->DegreesToString(12.5, 1), "12.30000");
    EXPECT_EQ(unit->DegreesToStringLatitude(12.5, 1), "12.30000");
    EXPECT_EQ(unit->DegreesToStringLongitude(12.5, 1), "12.30000");
    EXPECT_EQ(WKTOf(*unit), "UNIT[\"\",0.0174532925199433]");
}

TEST(ShellUnitSexagesimalDegree, XMLChecksTheCodeButNotTheKind) {
    EXPECT_EQ(LoadUnit<TShellUnitSexagesimalDegree>(LoadableItems(10, 1))->Type, 1);
    for (int const code : {0, 7, 8, 11}) {
        EXPECT_EQ(MessageOf([&] { LoadUnit<TShellUnitSexagesimalDegree>(LoadableItems(code, 2)); }),
                  PackedMessage);
    }
}

// --- Packed degrees and decimal minutes --------------------------------------------------------------------

TEST(ShellDegreeDecimalMinuteUnit, PrintsOneNumber) {
    auto const unit = DecimalMinute();
    EXPECT_EQ(unit->ValueToString(10.5, 3), "10.30000");
    EXPECT_EQ(unit->ValueToString(12.51, 3), "12.30600");
    EXPECT_EQ(unit->ValueToString(-12.51, 3), "-12.30600");
}

TEST(ShellDegreeDecimalMinuteUnit, PrecisionZeroStillPrintsOneDigit) {
    EXPECT_EQ(DecimalMinute()->ValueToString(12.51, 0), "12.310");
    EXPECT_EQ(DecimalMinute()->ValueToString(12.5, 0), "12.300");
}

TEST(ShellDegreeDecimalMinuteUnit, NegativePrecisionMeansTenDigits) {
    EXPECT_EQ(DecimalMinute()->ValueToString(12.501, -1), "12.300600000000");
}

TEST(ShellDegreeDecimalMinuteUnit, TenDigitsAreRoundedFromTheHalfOn) {
    EXPECT_EQ(DecimalMinute()->ValueToString(3.45e-10 / 60.0, -1), "0.000000000003");
    EXPECT_EQ(DecimalMinute()->ValueToString(3.55e-10 / 60.0, -1), "0.000000000004");
}

TEST(ShellDegreeDecimalMinuteUnit, DefaultPrecisionOverflowsFrom02147483648MinutesOn) {
    EXPECT_EQ(DecimalMinute()->ValueToString(12.51, -1), "12.30-2147483648");
    EXPECT_EQ(DecimalMinute()->ValueToString(0.2147483647 / 60.0, -1), "0.002147483647");
    EXPECT_EQ(DecimalMinute()->ValueToString(0.2147483648 / 60.0, -1), "0.00-2147483648");
    EXPECT_EQ(DecimalMinute()->ValueToString(-12.999999999999, -1), "-12.59-2147483648");
}

TEST(ShellDegreeDecimalMinuteUnit, RoundedFractionCarries) {
    auto const unit = DecimalMinute();
    EXPECT_EQ(unit->ValueToString(12.0 + 29.9996 / 60.0, 3), "12.30000");
    EXPECT_EQ(unit->ValueToString(12.9999999, 3), "13.00000");
    EXPECT_EQ(unit->ValueToString(180.99999999, 3), "-179.00000");
    EXPECT_EQ(unit->ValueToString(-180.99999999, 3), "179.00000");
}

TEST(ShellDegreeDecimalMinuteUnit, DigitsBeyondAnIntPrintTheSmallestInt) {
    EXPECT_EQ(DecimalMinute()->ValueToString(10.0 + 0.5 / 60.0, 10), "10.00-2147483648");
}

TEST(ShellDegreeDecimalMinuteUnit, NegativeZeroIsPositiveAndATinyValueKeepsItsSign) {
    EXPECT_EQ(DecimalMinute()->ValueToString(-0.0, 1), "0.000");
    EXPECT_EQ(DecimalMinute()->ValueToString(-1e-12, 1), "-0.000");
}

TEST(ShellDegreeDecimalMinuteUnit, ReadsOneNumber) {
    ExpectReadings(*DecimalMinute(),
                   {{"12.306", 12.51}, {"12.30", 12.5}, {"12.3", 12.05}, {"12", 12.0}, {"-12.30", -12.5}});
}

TEST(ShellDegreeDecimalMinuteUnit, DigitsBehindTheMinutesAreAlwaysTenths) {
    // 34 and 5.6 minutes; 34 and 95 minutes.
    ExpectReadings(*DecimalMinute(), {{"12.3456", 12.66}, {"12.34950", 14.15}});
}

TEST(ShellDegreeDecimalMinuteUnit, SignOfAZeroDegreeCounts) {
    ExpectReadings(*DecimalMinute(), {{"-0.30", -0.5}});
}

TEST(ShellDegreeDecimalMinuteUnit, FirstMinusAnywhereIsTheSignAndTheBeginning) {
    ExpectReadings(*DecimalMinute(), {{"12-30", -30.0}, {"12.-534", -534.0}, {"x-5", -5.0}, {"--5", 5.0}});
}

TEST(ShellDegreeDecimalMinuteUnit, LengthOfTheTextDoesNotCount) {
    std::string text(500, ' ');
    text.append("-12.30");
    ExpectReadings(*DecimalMinute(), {{text, -12.5}});
}

TEST(ShellDegreeDecimalMinuteUnit, TextWithoutANumberDoesNotParse) {
    for (char const* const text : {"abc", ".5", "-x"}) {
        double value = 7.0;
        EXPECT_FALSE(DecimalMinute()->StringToValue(text, &value)) << text;
        EXPECT_EQ(value, 7.0) << text;
    }
    EXPECT_EQ(MessageOf([] { DecimalMinute()->StringToDegrees("abc"); }), ParseMessage);
}

TEST(ShellDegreeDecimalMinuteUnit, EmptyTextIsZero) {
    for (char const* const text : {"", "   ", "-"}) {
        double value = 7.0;
        EXPECT_TRUE(DecimalMinute()->StringToValue(text, &value));
        EXPECT_EQ(value, 0.0);
    }
}

TEST(ShellDegreeDecimalMinuteUnit, CoefficientsOfATreeAreThoseOfTheDegree) {
    auto const unit = MakeUnit<TShellDegreeDecimalMinuteUnit>({.code = 11, .type = 2, .numerator = "5"});
    EXPECT_EQ(unit->CoefToBase, 0.017453292519943295);
    EXPECT_EQ(unit->CoefFromBase, 57.29577951308232);
    EXPECT_EQ(unit->Precision, 7);
}

TEST(ShellDegreeDecimalMinuteUnit, CoefficientsOfXMLStayButAreNotUsedForDegrees) {
    auto const unit = LoadUnit<TShellDegreeDecimalMinuteUnit>(LoadableItems(11, 2));
    EXPECT_EQ(unit->CoefToBase, 2.0);
    EXPECT_EQ(unit->Precision, 7);
    EXPECT_EQ(unit->StringToDegrees("12.30"), 12.5);
    EXPECT_EQ(unit->StringToDegreesLatitude("12.30"), 12.5);
    EXPECT_EQ(unit->StringToDegreesLongitude("12.30"), 12.5);
    EXPECT_EQ(unit->DegreesToString(12.5, 1), "12.300");
    EXPECT_EQ(unit->DegreesToStringLatitude(12.5, 1), "12.300");
    EXPECT_EQ(unit->DegreesToStringLongitude(12.5, 1), "12.300");
    EXPECT_EQ(WKTOf(*unit), "UNIT[\"\",0.0174532925199433]");
}

TEST(ShellDegreeDecimalMinuteUnit, XMLChecksTheCodeButNotTheKind) {
    EXPECT_EQ(LoadUnit<TShellDegreeDecimalMinuteUnit>(LoadableItems(11, 1))->Type, 1);
    for (int const code : {0, 7, 8, 10}) {
        EXPECT_EQ(MessageOf([&] { LoadUnit<TShellDegreeDecimalMinuteUnit>(LoadableItems(code, 2)); }),
                  DecimalMinuteMessage);
    }
}
