#include "frame/NumberText.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>
#include <locale.h>
#include <stdexcept>
#include <string>

using KvRefSystem::AppendFixed;
using KvRefSystem::FormatText;
using KvRefSystem::ParseLeadingDouble;
using KvRefSystem::ParseWholeDouble;
using KvRefSystem::ParseWholeFloat;
using KvRefSystem::ParseWholeInt;
using KvRefSystem::ScanText;
using KvRefSystem::ToInt32;

namespace {

std::string Fixed(double value, int decimals) {
    std::string text;
    AppendFixed(&text, value, decimals);
    return text;
}

/** A host that writes numbers with a decimal comma, for the time of one test. */
class DecimalCommaHost : public testing::Test {
protected:
    void SetUp() override {
        previous = std::setlocale(LC_ALL, nullptr);
        ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr)
            << "the locale de_DE.UTF-8 is missing: localedef -i de_DE -f UTF-8 de_DE.UTF-8 makes it";
        char sample[8];
        std::snprintf(sample, sizeof(sample), "%.1f", 1.5);
        ASSERT_STREQ(sample, "1,5");
    }

    void TearDown() override { std::setlocale(LC_ALL, previous.c_str()); }

    std::string previous;
};

} // namespace

TEST(NumberText, FormatsAsPrintfDoes) {
    EXPECT_EQ(FormatText("(%d,%d)[%lu] %s", -1, 2, 3UL, "abc"), "(-1,2)[3] abc");
    // 0.1 is 0.1000000000000000055511151231257827...
    EXPECT_EQ(FormatText("%.18lg", 0.1), "0.100000000000000006");
    EXPECT_EQ(FormatText("%.16le", 1.5), "1.5000000000000000e+00");
    EXPECT_EQ(FormatText("%lg", -0.0), "-0");
    EXPECT_EQ(FormatText("%s", ""), "");
}

TEST(NumberText, FormatsTextsOfAnyLength) {
    // 309 digits, the point and 6 decimals
    std::string const largest = FormatText("%lf", -1e308);
    EXPECT_EQ(largest.size(), 1u + 309u + 7u);
    EXPECT_EQ(largest.substr(0, 4), "-100");
    for (std::size_t const length : {254u, 255u, 256u, 257u, 100000u}) {
        std::string const text(length, 'x');
        EXPECT_EQ(FormatText("%s", text.c_str()), text);
    }
}

TEST(NumberText, FormatReportsATextThatCannotBe) {
    wchar_t const withoutByteForm[] = {0x7FFFFFFF, 0};
    try {
        static_cast<void>(FormatText("%ls", withoutByteForm));
        FAIL() << "the character was formatted";
    } catch (std::runtime_error const& error) {
        EXPECT_STREQ(
            error.what(),
            "FormatText: \"%ls\" gives no text: it is too long or holds a character without a byte form");
    }
}

TEST(NumberText, ScanCountsItsConversions) {
    int degrees = 0;
    double minutes = 0;
    EXPECT_EQ(ScanText("55 45.5", "%d %lf", &degrees, &minutes), 2);
    EXPECT_EQ(degrees, 55);
    EXPECT_EQ(minutes, 45.5);
    EXPECT_EQ(ScanText("55 x", "%d %lf", &degrees, &minutes), 1);
    EXPECT_EQ(ScanText("x", "%d", &degrees), 0);
}

TEST(NumberText, ScanOfAnEndedTextIsEof) {
    int value = 7;
    EXPECT_EQ(ScanText("", "%d", &value), EOF);
    EXPECT_EQ(ScanText("  ", "%d", &value), EOF);
    EXPECT_EQ(EOF, -1);
    EXPECT_EQ(value, 7);
}

TEST(NumberText, LeadingNumberIgnoresWhatFollows) {
    EXPECT_EQ(ParseLeadingDouble(" 12.5abc"), 12.5);
    EXPECT_EQ(ParseLeadingDouble("1e3 2"), 1000.0);
    EXPECT_EQ(ParseLeadingDouble("1,5"), 1.0);
    EXPECT_EQ(ParseLeadingDouble("abc"), 0.0);
    EXPECT_EQ(ParseLeadingDouble(""), 0.0);
    EXPECT_EQ(ParseLeadingDouble("0x10"), 16.0);
}

TEST(NumberText, WholeNumberTakesEveryTextThatIsWritten) {
    double const values[] = {0.0,
                             -0.0,
                             0.1,
                             -1.0 / 3.0,
                             6378137.0,
                             298.257223563,
                             1e22,
                             -1e-22,
                             std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::lowest(),
                             std::numeric_limits<double>::min(),
                             std::numeric_limits<double>::denorm_min(),
                             std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity()};
    for (double const value : values) {
        double read = 77;
        EXPECT_TRUE(ParseWholeDouble(FormatText("%.18lg", value), &read)) << value;
        EXPECT_EQ(read, value);
        EXPECT_EQ(std::signbit(read), std::signbit(value));
    }
    for (char const* const text : {"nan", "-nan", "NaN", "+nan"}) {
        double read = 77;
        EXPECT_TRUE(ParseWholeDouble(text, &read)) << text;
        EXPECT_TRUE(std::isnan(read)) << text;
    }
}

TEST(NumberText, WholeNumberTakesBlanksAtItsEndsAndSigns) {
    struct {
        char const* text;
        double value;
    } const rows[] = {{" 1.5 ", 1.5},   {"\t1.5\r\n", 1.5}, {"\v\f1.5", 1.5}, {"+1.5", 1.5},
                      {"-1.5", -1.5},   {"1.", 1.0},        {".5", 0.5},      {"1e3", 1000.0},
                      {"1E+3", 1000.0}, {"1e-3", 0.001},    {"007", 7.0}};
    for (auto const& row : rows) {
        double read = 77;
        EXPECT_TRUE(ParseWholeDouble(row.text, &read)) << row.text;
        EXPECT_EQ(read, row.value) << row.text;
    }
    double read = 0;
    EXPECT_TRUE(ParseWholeDouble("+inf", &read));
    EXPECT_EQ(read, std::numeric_limits<double>::infinity());
    EXPECT_TRUE(ParseWholeDouble("-Infinity", &read));
    EXPECT_EQ(read, -std::numeric_limits<double>::infinity());
}

TEST(NumberText, WholeNumberRefusesEverythingElse) {
    for (char const* const text :
         {"",    " ", "+",  "-",    "+-1",   "-+1", "++1",  "1,5",     "1.5x", "x1.5",  "1 2",   "1e",
          "1e+", ".", "e5", "0x10", "0x1p3", "--1", "1.5.", "infinit", "in",   "1e400", "-1e400"}) {
        double read = 77;
        float readFloat = 77;
        EXPECT_FALSE(ParseWholeDouble(text, &read)) << text;
        EXPECT_EQ(read, 77) << text;
        EXPECT_FALSE(ParseWholeFloat(text, &readFloat)) << text;
        EXPECT_EQ(readFloat, 77) << text;
    }
    double read = 77;
    EXPECT_FALSE(ParseWholeDouble(std::string_view("1\0", 2), &read));
    EXPECT_FALSE(ParseWholeDouble(std::string_view("1\0"
                                                   "2",
                                                   3),
                                  &read));
    EXPECT_FALSE(ParseWholeDouble(std::string_view(), &read));
    EXPECT_EQ(read, 77);
}

TEST(NumberText, WholeNumberTooSmallIsTheNearestOne) {
    double read = 77;
    EXPECT_TRUE(ParseWholeDouble("1e-400", &read));
    EXPECT_EQ(read, 0.0);
    EXPECT_TRUE(ParseWholeDouble(" -1e-400 ", &read));
    EXPECT_EQ(read, 0.0);
    EXPECT_TRUE(std::signbit(read));
    float readFloat = 77;
    EXPECT_TRUE(ParseWholeFloat("1e-60", &readFloat));
    EXPECT_EQ(readFloat, 0.0f);
}

TEST(NumberText, WholeFloatDoesNotGoByWayOfADouble) {
    // The text lies just above the middle of 1 and the next float, 1 + 2^-24, by less than a double can tell:
    // the double is the middle itself, which would round to the even neighbour, 1.
    float read = 0;
    EXPECT_TRUE(ParseWholeFloat("1.00000005960464477539062500000001", &read));
    EXPECT_EQ(read, std::nextafter(1.0f, 2.0f));
    EXPECT_EQ(static_cast<float>(1.00000005960464477539062500000001), 1.0f);
}

TEST(NumberText, WholeFloatOverflowsBeforeADouble) {
    float read = 77;
    EXPECT_FALSE(ParseWholeFloat("1e39", &read));
    EXPECT_FALSE(ParseWholeFloat("-3.5e38", &read));
    EXPECT_EQ(read, 77);
    EXPECT_TRUE(ParseWholeFloat("3.4028234663852886e38", &read));
    EXPECT_EQ(read, std::numeric_limits<float>::max());
    EXPECT_TRUE(ParseWholeFloat(" +0.1\n", &read));
    EXPECT_EQ(read, 0.1f);
}

TEST(NumberText, WholeIntegerKeepsToItsRange) {
    struct {
        char const* text;
        int value;
    } const rows[] = {{"0", 0},
                      {"-0", 0},
                      {"+12", 12},
                      {" 12\n", 12},
                      {"-12", -12},
                      {"0012", 12},
                      {"2147483647", std::numeric_limits<int>::max()},
                      {"-2147483648", std::numeric_limits<int>::min()}};
    for (auto const& row : rows) {
        int read = 77;
        EXPECT_TRUE(ParseWholeInt(row.text, &read)) << row.text;
        EXPECT_EQ(read, row.value) << row.text;
    }
    for (char const* const text : {"", " ", "+", "-", "+-1", "1.0", "1e3", "0x10", "12a", "1 2", "2147483648",
                                   "-2147483649", "99999999999999999999", "nan"}) {
        int read = 77;
        EXPECT_FALSE(ParseWholeInt(text, &read)) << text;
        EXPECT_EQ(read, 77) << text;
    }
}

TEST(NumberText, FixedDecimalsAreRoundedToNearest) {
    EXPECT_EQ(Fixed(1234.5678, 3), "1234.568");
    EXPECT_EQ(Fixed(-0.0005, 3), "-0.001"); // the double is a little beyond the half
    EXPECT_EQ(Fixed(0.5, 0), "0");          // exactly half: to the even one
    EXPECT_EQ(Fixed(1.5, 0), "2");
    EXPECT_EQ(Fixed(2.5, 0), "2");
    EXPECT_EQ(Fixed(-0.0, 2), "-0.00");
    EXPECT_EQ(Fixed(9.999, 2), "10.00");
    EXPECT_EQ(Fixed(std::numeric_limits<double>::infinity(), 3), "inf");
    EXPECT_EQ(Fixed(-std::numeric_limits<double>::infinity(), 3), "-inf");
    EXPECT_EQ(Fixed(std::numeric_limits<double>::quiet_NaN(), 3), "nan");
    std::string text = "x=";
    AppendFixed(&text, 1.0, 1);
    EXPECT_EQ(text, "x=1.0");
}

TEST(NumberText, FixedDecimalsFitForEveryNumberAndPrecision) {
    for (double const value :
         {1.0 / 3.0, -1e22, 123456789.123456789, 1e-300, std::numeric_limits<double>::lowest()}) {
        for (int const decimals : {0, 1, 17, 60}) {
            EXPECT_EQ(Fixed(value, decimals), FormatText("%.*f", decimals, value));
        }
    }
    EXPECT_EQ(Fixed(1.25, -3), "1");
    EXPECT_EQ(Fixed(1.0, 1000).size(), 62u);
}

TEST(NumberText, IntegersAreCutTowardsZero) {
    EXPECT_EQ(ToInt32(2.9), 2);
    EXPECT_EQ(ToInt32(-2.9), -2);
    EXPECT_EQ(ToInt32(2147483647.5), 2147483647);
    EXPECT_EQ(ToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
}

TEST(NumberText, WhatNoIntegerCanHoldIsTheSmallestOne) {
    constexpr std::int32_t Smallest = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(ToInt32(2147483648.0), Smallest);
    EXPECT_EQ(ToInt32(-2147483649.0), Smallest);
    EXPECT_EQ(ToInt32(1e300), Smallest);
    EXPECT_EQ(ToInt32(-std::numeric_limits<double>::infinity()), Smallest);
    EXPECT_EQ(ToInt32(std::numeric_limits<double>::quiet_NaN()), Smallest);
}

TEST_F(DecimalCommaHost, NumbersAreWrittenWithAPoint) {
    EXPECT_EQ(FormatText("%.2lf|%lg|%.16le", 1234.5, 0.25, 1.5), "1234.50|0.25|1.5000000000000000e+00");
    EXPECT_EQ(Fixed(1234.5, 2), "1234.50");
}

TEST_F(DecimalCommaHost, NumbersAreReadWithAPoint) {
    double value = 0;
    float shortValue = 0;
    int rest = 0;
    EXPECT_EQ(ScanText("1.5;7", "%lf;%d", &value, &rest), 2);
    EXPECT_EQ(value, 1.5);
    EXPECT_EQ(rest, 7);
    EXPECT_EQ(ParseLeadingDouble("2.5"), 2.5);
    EXPECT_EQ(ParseLeadingDouble("2,5"), 2.0);
    EXPECT_TRUE(ParseWholeDouble("3.5", &value));
    EXPECT_EQ(value, 3.5);
    EXPECT_FALSE(ParseWholeDouble("3,5", &value));
    EXPECT_TRUE(ParseWholeDouble("1e-400", &value));
    EXPECT_EQ(value, 0.0);
    EXPECT_TRUE(ParseWholeFloat("4.5", &shortValue));
    EXPECT_EQ(shortValue, 4.5f);
    EXPECT_FALSE(ParseWholeFloat("4,5", &shortValue));
}

TEST_F(DecimalCommaHost, NumbersSurviveTheRoundTrip) {
    for (double const value : {0.1, -1234567.125, 2.5e-300, 1.7e308}) {
        double read = 0;
        EXPECT_TRUE(ParseWholeDouble(FormatText("%.18lg", value), &read));
        EXPECT_EQ(read, value);
    }
}

TEST_F(DecimalCommaHost, HostKeepsItsOwnSetting) {
    static_cast<void>(FormatText("%lf", 1.5));
    double value = 0;
    ScanText("1.5", "%lf", &value);
    char sample[8];
    std::snprintf(sample, sizeof(sample), "%.1f", 1.5);
    EXPECT_STREQ(sample, "1,5");
    EXPECT_EQ(uselocale(nullptr), LC_GLOBAL_LOCALE);
}

TEST_F(DecimalCommaHost, SettingOfASingleThreadIsKeptToo) {
    locale_t const german = newlocale(LC_ALL_MASK, "de_DE.UTF-8", nullptr);
    ASSERT_NE(german, nullptr);
    locale_t const before = uselocale(german);
    EXPECT_EQ(FormatText("%.1f", 1.5), "1.5");
    EXPECT_EQ(uselocale(nullptr), german);
    uselocale(before);
    freelocale(german);
}
