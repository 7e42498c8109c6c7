#include "frame/imported/Strings.h"
#include "frame/imported/Progress.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

using Parts = std::vector<std::string>;

Parts Split(char const* text, char const* separators, unsigned int limit, bool keepEmpty = false) {
    std::vector<std::string> parts(limit + 1, "untouched");
    unsigned int const count =
        LumCommonUtils::SplitString(text, separators, parts.data(), limit, nullptr, keepEmpty);
    EXPECT_LE(count, limit);
    EXPECT_EQ(parts[count], "untouched");
    parts.resize(count);
    return parts;
}

class StepCounter : public TKvProgressHandler {
public:
    unsigned long steps = 0;
    unsigned long done = 0;
    int stops = 0;

    void OnStart(unsigned long announced) override { steps = announced; }
    void OnProgress(unsigned long sofar) override { done = sofar; }
    void OnStop() override { ++stops; }
};

/** Sets a locale with a decimal comma while it lives. */
class CommaLocale {
public:
    CommaLocale() : before(std::setlocale(LC_ALL, nullptr)) {
        EXPECT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "the locale de_DE.UTF-8 is missing";
    }
    ~CommaLocale() { std::setlocale(LC_ALL, before.c_str()); }

private:
    std::string before;
};

} // namespace

TEST(SsPrintf, FormatsTextOfAnyLength) {
    EXPECT_EQ(Orvane::ssprintf("%s-%d", "a", 7), "a-7");
    EXPECT_EQ(Orvane::ssprintf("%s", std::string(100000, 'x').c_str()), std::string(100000, 'x'));
    // 2^1023: 308 digits before the point.
    EXPECT_EQ(Orvane::ssprintf("%.*lf", 3, std::ldexp(1.0, 1023)).size(), 312u);
}

TEST(SsPrintf, WritesADecimalPointWhateverTheLocale) {
    CommaLocale const locale;
    EXPECT_EQ(Orvane::ssprintf("%.2lf", 1.25), "1.25");
    EXPECT_EQ(LumCommonUtils::StringToDoubleDef("1.25", 0.0), 1.25);
}

TEST(SplitString, CollapsesRunsOfSeparatorsAndDropsTheSurplus) {
    EXPECT_EQ(Split("1\r\n 2 3", " \n\r\t", 2), (Parts{"1", "2"}));
    EXPECT_EQ(Split("  1  ", " ", 5), (Parts{"1"}));
    EXPECT_EQ(Split("a b c", " ", 3), (Parts{"a", "b", "c"}));
}

TEST(SplitString, HasNoPartsInAnEmptyText) {
    EXPECT_EQ(Split("", " ", 3), Parts());
    EXPECT_EQ(Split(" \t ", " \t", 3), Parts());
    EXPECT_EQ(Split("a", " ", 0), Parts());
    EXPECT_EQ(Split(nullptr, " ", 3), Parts());
}

TEST(SplitString, WithoutSeparatorsGivesTheWholeText) {
    EXPECT_EQ(Split("a b", "", 3), (Parts{"a b"}));
    EXPECT_EQ(Split("a b", nullptr, 3), (Parts{"a b"}));
}

TEST(SplitString, KeepsEmptyPartsOnRequest) {
    EXPECT_EQ(Split("a;;b", ";", 5, true), (Parts{"a", "", "b"}));
    EXPECT_EQ(Split(";a;", ";", 5, true), (Parts{"", "a", ""}));
    EXPECT_EQ(Split(";a;", ";", 2, true), (Parts{"", "a"}));
}

TEST(SplitString, ReportsAStepForEachPart) {
    StepCounter counter;
    std::string parts[5];
    EXPECT_EQ(LumCommonUtils::SplitString("a b c", " ", parts, 5, &counter, false), 3u);
    EXPECT_EQ(counter.steps, 5u);
    EXPECT_EQ(counter.done, 3u);
    EXPECT_EQ(counter.stops, 1);
}

TEST(StringContains, FoldsOnlyAsciiLetters) {
    EXPECT_TRUE(LumCommonUtils::StringContains("Pulkovo 1942", "kovo", false));
    EXPECT_FALSE(LumCommonUtils::StringContains("Pulkovo 1942", "KOVO", false));
    EXPECT_TRUE(LumCommonUtils::StringContains("Pulkovo 1942", "KOVO", true));
    EXPECT_TRUE(LumCommonUtils::StringContains("Широта", "рота", true));
    EXPECT_FALSE(LumCommonUtils::StringContains("ШИРОТА", "рота", true));
    EXPECT_TRUE(LumCommonUtils::StringContains("x", "", false));
    EXPECT_FALSE(LumCommonUtils::StringContains("", "x", true));
}

TEST(StringToIntDef, GivesTheFallbackForAnythingButAWholeNumber) {
    EXPECT_EQ(LumCommonUtils::StringToIntDef(" -12 ", 7), -12);
    for (char const* const text : {"", "12a", "1.5", "99999999999", "--1"}) {
        EXPECT_EQ(LumCommonUtils::StringToIntDef(text, 7), 7) << text;
    }
}

TEST(StringToDoubleDef, GivesTheFallbackForAnythingButANumber) {
    EXPECT_EQ(LumCommonUtils::StringToDoubleDef(" 1e3 ", 7.0), 1000.0);
    for (char const* const text : {"", "1,5", "1.5m", "."}) {
        EXPECT_EQ(LumCommonUtils::StringToDoubleDef(text, 7.0), 7.0) << text;
    }
}

TEST(ValueFromString, ReadsAFloatDirectly) {
    float value = 5.0f;
    // A little above the middle of 1 and the next float, 1 + 2^-24 + 1e-20: by way of a double it would lose
    // the part that decides and be rounded to even, to 1.
    EXPECT_TRUE(LumCommonUtils::ValueFromString("1.00000005960464477540", &value));
    EXPECT_EQ(value, std::nextafter(1.0f, 2.0f));
}

TEST(ValueFromString, LeavesZeroWhenItFails) {
    for (char const* const text : {"", "x", "1 2", "1.5m"}) {
        float value = 5.0f;
        EXPECT_FALSE(LumCommonUtils::ValueFromString(text, &value)) << text;
        EXPECT_EQ(value, 0.0f) << text;
    }
}

TEST(Trim, CutsWhiteSpaceAtBothEnds) {
    EXPECT_EQ(LumCommonUtils::trim("\t a \n"), "a");
    EXPECT_EQ(LumCommonUtils::trim("\v\fa b\r"), "a b");
    EXPECT_EQ(LumCommonUtils::trim(" \n\t"), "");
    EXPECT_EQ(LumCommonUtils::trim(""), "");
    EXPECT_EQ(LumCommonUtils::trim("\xC2\xA0Ш"), "\xC2\xA0Ш");
}

TEST(LetterCase, ChangesOnlyAsciiLetters) {
    EXPECT_EQ(LumCommonUtils::tolower("WGS 84 Ш [`{@"), "wgs 84 Ш [`{@");
    EXPECT_EQ(LumCommonUtils::toupper("wgs 84 ш [`{@"), "WGS 84 ш [`{@");
}

TEST(Pow10, IsExactForWholePowersThatADoubleHolds) {
    double power = 1.0;
    for (int exponent = 0; exponent <= 22; ++exponent) {
        EXPECT_EQ(LumCommonUtils::pow10(exponent), power) << exponent;
        power *= 10.0;
    }
    EXPECT_EQ(LumCommonUtils::pow10(400), std::numeric_limits<double>::infinity());
    EXPECT_EQ(LumCommonUtils::pow10(-400), 0.0);
}

// Values of Python's zlib.crc32.
TEST(Crc32, IsTheOneOfZlib) {
    EXPECT_EQ(LumCommonUtils::crc32(0, "123456789", 9), 0xCBF43926u);
    EXPECT_EQ(LumCommonUtils::crc32(0, "Широта", 12), 0x091214E9u);
    std::string bytes;
    for (int index = 0; index < 3 * 256; ++index) {
        bytes += static_cast<char>(index % 256);
    }
    EXPECT_EQ(LumCommonUtils::crc32(0, bytes.data(), bytes.size()), 0xB0C0DF2Au);
}

TEST(Crc32, ContinuesFromAStart) {
    EXPECT_EQ(LumCommonUtils::crc32(LumCommonUtils::crc32(0, "1234", 4), "56789", 5), 0xCBF43926u);
    EXPECT_EQ(LumCommonUtils::crc32(0xCBF43926u, "", 0), 0xCBF43926u);
    // Without data the CRC begins anew, as in zlib.
    EXPECT_EQ(LumCommonUtils::crc32(0xCBF43926u, nullptr, 0), 0u);
}
