#include "shell/units/SexagesimalUnits.h"

#include "UnitFixtures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <locale>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace KvRefSystem;
using namespace KvRefSystem::UnitTests;

static_assert(sizeof(TShellUnitDegreeMinuteSecond) == 136);
static_assert(sizeof(TShellUnitDegreeMinuteSecondHemisphere) == 144);

namespace {

constexpr char const* ParseMessage = "bool TShellUnit::StringToValue(const string& str, double *value) const";
constexpr char const* DMSMessage =
    "TShellUnitDegreeMinuteSecond::TShellUnitDegreeMinuteSecond(TKvXIniReader *xml)";

std::unique_ptr<TShellUnitDegreeMinuteSecond> DMS() {
    return MakeUnit<TShellUnitDegreeMinuteSecond>(Degree(7));
}

std::unique_ptr<TShellUnitDegreeMinuteSecondHemisphere> Hemisphere() {
    return MakeUnit<TShellUnitDegreeMinuteSecondHemisphere>(Degree(8));
}

std::string Separated(std::string text) {
    SeparateDMSString(text.data());
    return text.c_str();
}

/** In the text, so many blanks stand between "12" and the rest. */
std::string FarApart(std::size_t blanks, std::string const& rest) {
    std::string text = "12";
    text.append(blanks, ' ').append(rest);
    return text;
}

} // namespace

// --- Separating --------------------------------------------------------------------------------------------

TEST(SeparateDMSString, RunsOfSignsBecomeOneBlank) {
    EXPECT_EQ(Separated("12 34 56.7"), "12 34 56.7");
    EXPECT_EQ(Separated("12°34'56.7\""), "12 34 56.7\"");
    EXPECT_EQ(Separated("12d34m56.7s"), "12 34 56.7s");
    EXPECT_EQ(Separated("12 - 34"), "12 34");
    EXPECT_EQ(Separated("12.5"), "12.5");
    EXPECT_EQ(Separated("12 "), "12 ");
}

TEST(SeparateDMSString, LeadingWhiteSpaceIsSkipped) {
    EXPECT_EQ(Separated(" \t\n\v\f\r12"), "12");
    EXPECT_EQ(Separated(" \t "), "");
    EXPECT_EQ(Separated(""), "");
}

TEST(SeparateDMSString, LeadingSignCountsAsASeparator) {
    EXPECT_EQ(Separated("-12 30 15 N"), " 12 30 15 N");
    EXPECT_EQ(Separated("abc"), " ");
    EXPECT_EQ(Separated("N 1 2 3"), " 1 2 3");
}

TEST(SeparateDMSString, WhatFollowsTheSecondSeparatorIsKeptAsItIs) {
    EXPECT_EQ(Separated("1 2 3 --x4°"), "1 2 3 --x4°");
    EXPECT_EQ(Separated("1--2--x.5e7 8"), "1 2 .5e7 8");
    EXPECT_EQ(Separated("1 2 xyz"), "1 2 ");
}

namespace {

/** Takes "_" for white space and "#" for a digit. */
class TOtherClasses : public std::ctype<char> {
public:
    TOtherClasses() : std::ctype<char>(Table()) {}

private:
    static mask const* Table() {
        static std::vector<mask> table(classic_table(), classic_table() + table_size);
        table['_'] = space;
        table['#'] = digit;
        return table.data();
    }
};

/** Takes the minus for a digit. */
class TMinusAsDigit : public std::ctype<char> {
public:
    TMinusAsDigit() : std::ctype<char>(Table()) {}

private:
    static mask const* Table() {
        static std::vector<mask> table(classic_table(), classic_table() + table_size);
        table['-'] = digit;
        return table.data();
    }
};

} // namespace

TEST(SeparateDMSString, ClassesAreThoseOfTheGlobalLocale) {
    ASSERT_EQ(Separated("_1_#2"), " 1 2");
    std::locale const before = std::locale::global(std::locale(std::locale(), new TOtherClasses));
    std::string const separated = Separated("_1_#2");
    std::locale::global(before);
    EXPECT_EQ(separated, "1 #2");
}

// --- Degrees, minutes, seconds -----------------------------------------------------------------------------

TEST(ShellUnitDegreeMinuteSecond, PrintsWithBlanks) {
    auto const unit = DMS();
    EXPECT_EQ(unit->ValueToString(12.5, 2), "12 30 0.00");
    EXPECT_EQ(unit->ValueToString(12.58241666666666667, 3), "12 34 56.700");
    EXPECT_EQ(unit->ValueToString(0.0, 0), "0 0 0");
}

TEST(ShellUnitDegreeMinuteSecond, NegativeValueHasABlankBehindTheMinus) {
    EXPECT_EQ(DMS()->ValueToString(-12.5, 2), "- 12 30 0.00");
}

TEST(ShellUnitDegreeMinuteSecond, NegativePrecisionMeansTwelveDecimals) {
    EXPECT_EQ(DMS()->ValueToString(0.5, -1), "0 30 0.000000000000");
}

TEST(ShellUnitDegreeMinuteSecond, NegativeZeroIsPositiveAndATinyValueKeepsItsSign) {
    EXPECT_EQ(DMS()->ValueToString(-0.0, 2), "0 0 0.00");
    EXPECT_EQ(DMS()->ValueToString(-1e-9, 2), "- 0 0 0.00");
}

TEST(ShellUnitDegreeMinuteSecond, RoundedSecondsCarry) {
    auto const unit = DMS();
    EXPECT_EQ(unit->ValueToString(12.9999999999, 2), "13 0 0.00");
    EXPECT_EQ(unit->ValueToString(-12.9999999999, 2), "- 13 0 0.00");
    EXPECT_EQ(unit->ValueToString(12.0 + 29.99999999 / 60.0, 2), "12 30 0.00");
    EXPECT_EQ(unit->ValueToString(179.9999999999, 2), "180 0 0.00");
}

TEST(ShellUnitDegreeMinuteSecond, CarryPastTheAntimeridianComesOutOnTheOtherSide) {
    auto const unit = DMS();
    EXPECT_EQ(unit->ValueToString(180.9999999999, 2), "- 179 0 0.00");
    EXPECT_EQ(unit->ValueToString(-180.9999999999, 2), "179 0 0.00");
    EXPECT_EQ(unit->ValueToString(359.9999999999, 2), "- 0 0 0.00");
    EXPECT_EQ(unit->ValueToString(360.9999999999, 2), "- -1 0 0.00");
    EXPECT_EQ(unit->ValueToString(200.5, 2), "200 30 0.00"); // without a carry there is no other side
}

TEST(ShellUnitDegreeMinuteSecond, ValuesBeyondTheRangeOfIntPrintWithoutATrap) {
    auto const unit = DMS();
    EXPECT_EQ(unit->ValueToString(std::numeric_limits<double>::quiet_NaN(), 2),
              "-2147483648 -2147483648 nan");
    EXPECT_EQ(unit->ValueToString(std::numeric_limits<double>::infinity(), 2), "-2147483648 -2147483647 inf");
    EXPECT_EQ(unit->ValueToString(2147483647.5, 1), "2147483647 30 0.0");
    // The carry: 359 - 2147483646.
    EXPECT_EQ(unit->ValueToString(2147483646.9999998, 1), "- -2147483287 0 0.0");
}

TEST(ShellUnitDegreeMinuteSecond, ReadsAnySigns) {
    ExpectReadings(*DMS(), {{"12 34 56.7", 12.582416666666667},
                            {"12°34'56.7\"", 12.582416666666667},
                            {"12d34m56.7s", 12.582416666666667},
                            {"  12:34:56.7", 12.582416666666667},
                            {"12 30", 12.5},
                            {"12.25", 12.25},
                            {"- 12 30 0.00", -12.5},
                            {"12,5", 12.083333333333334},
                            {"1e5", 1.0833333333333333}});
}

TEST(ShellUnitDegreeMinuteSecond, FirstMinusAnywhereIsTheSignAndTheBeginning) {
    ExpectReadings(*DMS(), {{"-12 30", -12.5}, {"12-30", -30.0}, {"12 30 0 -7", -7.0}, {"--5", -5.0}});
}

TEST(ShellUnitDegreeMinuteSecond, ThirdNumberCountsWhateverFollowsAndAFourthDoesNot) {
    ExpectReadings(*DMS(), {{"12 30 0 x", 12.5}, {"12 30 36 99", 12.51}, {"12 30 36abc", 12.51}});
}

TEST(ShellUnitDegreeMinuteSecond, EmptyTextParsesAndKeepsTheOldValue) {
    for (char const* const text : {"", "  \t"}) {
        double value = 7.0;
        EXPECT_TRUE(DMS()->StringToValue(text, &value));
        EXPECT_EQ(value, 7.0);
    }
    EXPECT_EQ(DMS()->StringToDegrees(""), 0.0);
}

TEST(ShellUnitDegreeMinuteSecond, TextWithoutDigitsIsReadAsAPlainNumber) {
    double value = 7.0;
    EXPECT_TRUE(DMS()->StringToValue("nan", &value));
    EXPECT_TRUE(std::isnan(value));
    EXPECT_TRUE(DMS()->StringToValue("-inf", &value));
    EXPECT_EQ(value, -std::numeric_limits<double>::infinity());
    for (char const* const text : {"-", "abc", ".", "°"}) {
        value = 7.0;
        EXPECT_FALSE(DMS()->StringToValue(text, &value)) << text;
        EXPECT_EQ(value, 7.0) << text;
    }
}

TEST(ShellUnitDegreeMinuteSecond, OnlyTheFirst127CharactersCount) {
    ExpectReadings(*DMS(), {{FarApart(123, "30"), 12.5},  // the last one is "0"
                            {FarApart(124, "30"), 12.05}, // the last one is "3"
                            {FarApart(125, "30"), 12.0},
                            {FarApart(125, "-5"), 12.0}});
}

TEST(ShellUnitDegreeMinuteSecond, CoefficientsOfATreeAreThoseOfTheDegree) {
    auto const unit = MakeUnit<TShellUnitDegreeMinuteSecond>({.code = 7, .type = 2, .numerator = "5"});
    EXPECT_EQ(unit->CoefToBase, 0.017453292519943295);
    EXPECT_EQ(unit->CoefFromBase, 57.29577951308232);
    EXPECT_EQ(unit->Precision, 6);
}

TEST(ShellUnitDegreeMinuteSecond, CoefficientsOfXMLStayButAreNotUsedForDegrees) {
    auto const unit = LoadUnit<TShellUnitDegreeMinuteSecond>(LoadableItems(7, 2));
    EXPECT_EQ(unit->CoefToBase, 2.0);
    EXPECT_EQ(unit->CoefFromBase, 0.5);
    EXPECT_EQ(unit->Precision, 6);
    EXPECT_EQ(unit->StringToDegrees("12 30"), 12.5);
    EXPECT_EQ(unit->StringToDegreesLatitude("12 30"), 12.5);
    EXPECT_EQ(unit->StringToDegreesLongitude("12 30"), 12.5);
    EXPECT_EQ(unit->DegreesToString(12.5, 0), "12 30 0");
    EXPECT_EQ(unit->DegreesToStringLatitude(12.5, 0), "12 30 0");
    EXPECT_EQ(unit->DegreesToStringLongitude(-12.5, 0), "- 12 30 0");
    EXPECT_EQ(unit->StringToRadiansLatitude("12 30"), 25.0);
}

TEST(ShellUnitDegreeMinuteSecond, AxesReadAndPrintAlike) {
    auto const unit = DMS();
    EXPECT_EQ(unit->StringToValueLatitude("-12 30"), -12.5);
    EXPECT_EQ(unit->StringToValueLongitude("-12 30"), -12.5);
    EXPECT_EQ(unit->ValueToStringLatitude(-12.5, 0), "- 12 30 0");
    EXPECT_EQ(unit->ValueToStringLongitude(-12.5, 0), "- 12 30 0");
    EXPECT_EQ(MessageOf([&] { unit->StringToDegrees("x"); }), ParseMessage);
    EXPECT_EQ(MessageOf([&] { unit->StringToDegreesLatitude("x"); }), ParseMessage);
    EXPECT_EQ(MessageOf([&] { unit->StringToDegreesLongitude("x"); }), ParseMessage);
}

TEST(ShellUnitDegreeMinuteSecond, WKTIsThatOfTheDegreeWhateverTheCoefficients) {
    auto const unit = LoadUnit<TShellUnitDegreeMinuteSecond>(LoadableItems(7, 2));
    EXPECT_EQ(WKTOf(*unit), "UNIT[\"\",0.0174532925199433]");
    TListReader nothing(TItems{});
    EXPECT_FALSE(unit->LoadFromXML(&nothing));
    EXPECT_EQ(unit->CoefToBase, 0.0);
    EXPECT_EQ(WKTOf(*unit), "UNIT[\"\",0.0174532925199433]");
    EXPECT_EQ(WKTOf(*DMS()), "UNIT[\"degree\",0.0174532925199433]");
}

TEST(ShellUnitDegreeMinuteSecond, XMLChecksTheCodeButNotTheKind) {
    EXPECT_EQ(LoadUnit<TShellUnitDegreeMinuteSecond>(LoadableItems(7, 1))->Type, 1);
    for (int const code : {0, 8, 10, 11}) {
        EXPECT_EQ(MessageOf([&] { LoadUnit<TShellUnitDegreeMinuteSecond>(LoadableItems(code, 2)); }),
                  DMSMessage);
    }
    EXPECT_EQ(MessageOf([] {
                  LoadUnit<TShellUnitDegreeMinuteSecond>(TItems{{"UnitCode", "7"}});
              }),
              DMSMessage);
}

TEST(ShellUnitDegreeMinuteSecond, TreeConstructorDoesNotCheckTheCode) {
    EXPECT_EQ(MakeUnit<TShellUnitDegreeMinuteSecond>(Degree(3))->Code, 3);
}

// --- With a hemisphere letter ------------------------------------------------------------------------------

TEST(ShellUnitDegreeMinuteSecondHemisphere, LettersFollowTheMembersOfTheRoot) {
    auto const unit = Hemisphere();
    EXPECT_EQ(OffsetIn(*unit, unit->Letters), 136);
    EXPECT_EQ(std::string(unit->Letters, 4), "NESW");
    EXPECT_EQ(std::string(LoadUnit<TShellUnitDegreeMinuteSecondHemisphere>(LoadableItems(8, 2))->Letters, 4),
              "NESW");
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, PrintsTheLetterOfTheAxis) {
    auto const unit = Hemisphere();
    EXPECT_EQ(unit->ValueToStringLatitude(12.5, 2), "12 30 0.00 N");
    EXPECT_EQ(unit->ValueToStringLatitude(-0.5, 2), "0 30 0.00 S");
    EXPECT_EQ(unit->ValueToStringLongitude(12.5, 2), "12 30 0.00 E");
    EXPECT_EQ(unit->ValueToStringLongitude(-12.5, 2), "12 30 0.00 W");
    EXPECT_EQ(unit->InternalOutput(-12.5, 0, 0), "12 30 0 S");
    EXPECT_EQ(unit->InternalOutput(-12.5, 0, 1), "12 30 0 W");
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, NegativePrecisionMeansTenDecimals) {
    EXPECT_EQ(Hemisphere()->ValueToStringLongitude(12.5, -1), "12 30 0.0000000000 E");
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, NegativeZeroIsPositiveAndATinyValueKeepsItsLetter) {
    EXPECT_EQ(Hemisphere()->ValueToStringLatitude(-0.0, 1), "0 0 0.0 N");
    EXPECT_EQ(Hemisphere()->ValueToStringLatitude(-1e-9, 1), "0 0 0.0 S");
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, CarryPastTheAntimeridianChangesTheLetterOfBothAxes) {
    auto const unit = Hemisphere();
    EXPECT_EQ(unit->ValueToStringLongitude(180.9999999999, 2), "179 0 0.00 W");
    EXPECT_EQ(unit->ValueToStringLongitude(-180.9999999999, 2), "179 0 0.00 E");
    EXPECT_EQ(unit->ValueToStringLatitude(180.9999999999, 2), "179 0 0.00 S");
    EXPECT_EQ(unit->ValueToStringLongitude(12.9999999999, 2), "13 0 0.00 E");
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, ValueIsNotPrintedWithoutAnAxis) {
    auto const unit = Hemisphere();
    EXPECT_EQ(MessageOf<std::logic_error>([&] { unit->ValueToString(1.0, 2); }),
              "TShellUnitDegreeMinuteSecondHemisphere::ValueToString");
    EXPECT_EQ(MessageOf<std::logic_error>([&] { unit->DegreesToString(1.0, 2); }),
              "TShellUnitDegreeMinuteSecondHemisphere::DegreesToString");
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, DegreesPrintThroughTheirAxis) {
    auto const unit = LoadUnit<TShellUnitDegreeMinuteSecondHemisphere>(LoadableItems(8, 2));
    EXPECT_EQ(unit->DegreesToStringLatitude(-12.5, 1), "12 30 0.0 S");
    EXPECT_EQ(unit->DegreesToStringLongitude(-12.5, 1), "12 30 0.0 W");
    EXPECT_EQ(unit->RadiansToStringLatitude(25.0, 1), "12 30 0.0 N");
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, LetterIsTheSign) {
    ExpectReadings(*Hemisphere(), {{"12 30 0 S", -12.5},
                                   {"12 30 0 W", -12.5},
                                   {"12 30 0 N", 12.5},
                                   {"12 30 0 E", 12.5},
                                   {"12°30'36\"S", -12.51},
                                   {"12 30", 12.5},
                                   {"12.25W", -12.25}});
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, LowerCaseLettersAreIgnored) {
    ExpectReadings(*Hemisphere(), {{"12 30 0 s", 12.5}, {"12 30 0 w", 12.5}});
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, LettersAreNotCheckedAgainstTheAxis) {
    EXPECT_EQ(Hemisphere()->StringToValueLatitude("12 30 W"), -12.5);
    EXPECT_EQ(Hemisphere()->StringToValueLongitude("12 30 S"), -12.5);
    EXPECT_EQ(Hemisphere()->StringToDegreesLatitude("12 30 E"), 12.5);
    EXPECT_EQ(Hemisphere()->StringToDegreesLongitude("12 30 N"), 12.5);
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, MinusIsASeparatorAndNoSign) {
    ExpectReadings(*Hemisphere(), {{"-12 30 0 N", 12.5}, {"-12", 12.0}, {"-12 30 S", -12.5}});
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, NegativeDegreesAreSouthWhateverTheLetter) {
    // A minus only gets as far as the number where the host's locale counts it among the digits.
    std::locale const before = std::locale::global(std::locale(std::locale(), new TMinusAsDigit));
    double value = 0;
    bool const isRead = Hemisphere()->StringToValue("-12 30 N", &value);
    std::locale::global(before);
    EXPECT_TRUE(isRead);
    EXPECT_EQ(value, -12.5);
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, MinusBeforeTheDegreesMayCostTheSeconds) {
    ExpectReadings(*Hemisphere(), {{"-12°30'15\" N", 12.5}, {"12°30'15\" N", 12.504166666666666}});
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, TextIsCutAtTheLaterOfTwoLetters) {
    ExpectReadings(*Hemisphere(), {{"12S30W15", -12.5},
                                   {"12W30S15", -12.5},
                                   {"12N30E15", 12.5},
                                   {"12E30N15", 12.5},
                                   {"12 30 S 15 S", -12.5}, // of one letter the first counts
                                   {"12 30 S N", -12.5},
                                   {"12 N 30 S", -12.5}});
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, LetterBeforeTheNumberCutsEverything) {
    double value = 7.0;
    EXPECT_TRUE(Hemisphere()->StringToValue("S 12 30", &value));
    EXPECT_EQ(value, 0.0);
    EXPECT_TRUE(std::signbit(value));
    EXPECT_TRUE(Hemisphere()->StringToValue("N 12 30", &value));
    EXPECT_EQ(value, 0.0);
    EXPECT_FALSE(std::signbit(value));
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, TextWithoutNumbersIsZero) {
    for (char const* const text : {"", "  ", "abc", "-"}) {
        double value = 7.0;
        EXPECT_TRUE(Hemisphere()->DMSH_to_degrees(text, &value)) << text;
        EXPECT_EQ(value, 0.0) << text;
    }
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, PointAloneDoesNotParse) {
    double value = 7.0;
    EXPECT_FALSE(Hemisphere()->StringToValue(".", &value));
    EXPECT_FALSE(Hemisphere()->DMSH_to_degrees(". 5 N", &value));
    EXPECT_EQ(value, 7.0);
    EXPECT_EQ(MessageOf([] { Hemisphere()->StringToDegrees("."); }), ParseMessage);
    EXPECT_EQ(MessageOf([] { Hemisphere()->StringToDegreesLatitude("."); }), ParseMessage);
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, OnlyTheFirst127CharactersCount) {
    ExpectReadings(*Hemisphere(), {{FarApart(124, "S"), -12.0}, // the last one
                                   {FarApart(125, "S"), 12.0},
                                   {FarApart(124, "30"), 12.05}});
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, CoefficientsOfATreeAreThoseOfTheDegree) {
    auto const unit =
        MakeUnit<TShellUnitDegreeMinuteSecondHemisphere>({.code = 8, .type = 2, .numerator = "5"});
    EXPECT_EQ(unit->CoefToBase, 0.017453292519943295);
    EXPECT_EQ(unit->CoefFromBase, 57.29577951308232);
    EXPECT_EQ(unit->Precision, 6);
    auto const fromXML = LoadUnit<TShellUnitDegreeMinuteSecondHemisphere>(LoadableItems(8, 2));
    EXPECT_EQ(fromXML->CoefToBase, 2.0);
    EXPECT_EQ(fromXML->Precision, 6);
    EXPECT_EQ(fromXML->StringToDegrees("12 30 S"), -12.5);
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, WKTIsThatOfTheDegreeWhateverTheCoefficients) {
    EXPECT_EQ(WKTOf(*LoadUnit<TShellUnitDegreeMinuteSecondHemisphere>(LoadableItems(8, 2))),
              "UNIT[\"\",0.0174532925199433]");
}

TEST(ShellUnitDegreeMinuteSecondHemisphere, XMLMessageIsThatOfTheNotationWithoutLetters) {
    for (int const code : {0, 7, 10, 11}) {
        EXPECT_EQ(
            MessageOf([&] { LoadUnit<TShellUnitDegreeMinuteSecondHemisphere>(LoadableItems(code, 2)); }),
            DMSMessage);
    }
    EXPECT_EQ(LoadUnit<TShellUnitDegreeMinuteSecondHemisphere>(LoadableItems(8, 3))->Type, 3);
}
