// What holds for the texts of all units: round trips, any bytes, any locale, real XML documents.

#include "UnitFixtures.h"

#include "hostkit/XmlIni.h"
#include "shell/units/AngularUnit.h"
#include "shell/units/BuiltInUnits.h"
#include "shell/units/LinearUnit.h"
#include "shell/units/ScaleUnit.h"
#include "shell/units/SexagesimalUnits.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <functional>
#include <locale>
#include <map>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

using namespace KvRefSystem;
using namespace KvRefSystem::UnitTests;

namespace {

constexpr int Rounds = 2000;

std::vector<std::unique_ptr<TShellAngularUnit>> AllAngularUnits() {
    std::vector<std::unique_ptr<TShellAngularUnit>> units;
    for (int const code : {0, 7, 8, 10, 11}) {
        TStringTree tree;
        Fill(&tree, Degree(code));
        units.emplace_back(CreateShellAngularUnit(&tree));
    }
    units.push_back(MakeUnit<TShellAngularUnit>(Radian()));
    units.push_back(MakeUnit<TShellAngularUnit>(Grad()));
    return units;
}

/** Calls `check` with values that are spread evenly over a range. */
void ForValues(double first, double last, std::function<void(double)> const& check) {
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> values(first, last);
    for (int round = 0; round < Rounds; ++round) {
        check(values(random));
    }
}

std::string RandomText(std::mt19937_64* random, std::string const& alphabet) {
    std::string text;
    std::size_t const length = (*random)() % 160;
    for (std::size_t index = 0; index < length; ++index) {
        text +=
            alphabet.empty() ? static_cast<char>((*random)() % 256) : alphabet[(*random)() % alphabet.size()];
    }
    return text;
}

double RandomBits(std::mt19937_64* random) {
    std::uint64_t const bits = (*random)();
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

/** Puts the process into a locale with a decimal comma until the end of a test. */
class TCommaLocale {
public:
    TCommaLocale() : previousC(std::setlocale(LC_ALL, nullptr)), previousStandard(std::locale()) {
        isSet = std::setlocale(LC_ALL, Name) != nullptr;
        if (isSet) {
            std::locale::global(std::locale(Name));
        }
    }
    TCommaLocale(TCommaLocale const&) = delete;
    TCommaLocale& operator=(TCommaLocale const&) = delete;
    ~TCommaLocale() {
        std::locale::global(previousStandard);
        std::setlocale(LC_ALL, previousC.c_str());
    }

    static constexpr char const* Name = "de_DE.UTF-8";
    bool isSet = false;

private:
    std::string previousC;
    std::locale previousStandard;
};

template <class TUnit>
void ExpectDocumentRoundTrip(TUnit const& unit) {
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(unit.SaveToXML(&writer));
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    TUnit const back(&reader);
    EXPECT_TRUE(back == unit) << writer.ToString();
    EXPECT_EQ(back.Precision, unit.Precision);
}

} // namespace

// --- Round trips -------------------------------------------------------------------------------------------

TEST(UnitTexts, DegreesMinutesSecondsReadBackWhatTheyPrint) {
    auto const unit = MakeUnit<TShellUnitDegreeMinuteSecond>(Degree(7));
    for (int const precision : {-1, 0, 2, 6, 9}) {
        double const lastDigit = std::pow(10.0, precision < 0 ? -12 : -precision) / 3600.0;
        ForValues(-180.0, 180.0, [&](double value) {
            std::string const text = unit->ValueToString(value, precision);
            ASSERT_NEAR(unit->StringToDegrees(text), value, 0.5 * lastDigit + 1e-13) << text;
        });
    }
}

TEST(UnitTexts, HemispheresReadBackWhatTheyPrint) {
    auto const unit = MakeUnit<TShellUnitDegreeMinuteSecondHemisphere>(Degree(8));
    for (int const precision : {-1, 0, 2, 6, 9}) {
        double const lastDigit = std::pow(10.0, precision < 0 ? -10 : -precision) / 3600.0;
        ForValues(-180.0, 180.0, [&](double value) {
            std::string const longitude = unit->ValueToStringLongitude(value, precision);
            ASSERT_NEAR(unit->StringToValueLongitude(longitude), value, 0.5 * lastDigit + 1e-13) << longitude;
            std::string const latitude = unit->ValueToStringLatitude(value / 2.0, precision);
            ASSERT_NEAR(unit->StringToValueLatitude(latitude), value / 2.0, 0.5 * lastDigit + 1e-13)
                << latitude;
        });
    }
}

TEST(UnitTexts, PackedSecondsReadBackWhatTheyPrintFromOneDegreeOn) {
    auto const unit = MakeUnit<TShellUnitSexagesimalDegree>(Degree(10));
    for (int const precision : {0, 1, 3, 6, 9}) {
        double const lastDigit = std::pow(10.0, -precision) / 3600.0;
        auto const check = [&](double value) {
            std::string const text = unit->ValueToString(value, precision);
            ASSERT_NEAR(unit->StringToDegrees(text), value, 0.5 * lastDigit + 1e-13) << text;
        };
        ForValues(0.0, 180.0, check);
        ForValues(-180.0, -1.0, check);
    }
}

TEST(UnitTexts, DecimalMinutesReadBackWhatTheyPrintWithUpToOneDigit) {
    auto const unit = MakeUnit<TShellDegreeDecimalMinuteUnit>(Degree(11));
    for (int const precision : {0, 1}) {
        double const lastDigit = std::pow(10.0, -precision) / 60.0;
        ForValues(-180.0, 180.0, [&](double value) {
            std::string const text = unit->ValueToString(value, precision);
            ASSERT_NEAR(unit->StringToDegrees(text), value, 0.5 * lastDigit + 1e-13) << text;
        });
    }
}

TEST(UnitTexts, DegreesOfDecimalNotationsReadBackWhatTheyPrint) {
    for (TUnitWords const& words : {Degree(), Radian(), Grad()}) {
        auto const unit = MakeUnit<TShellAngularUnit>(words);
        ForValues(-180.0, 180.0, [&](double degrees) {
            ASSERT_NEAR(unit->StringToDegrees(unit->DegreesToString(degrees, -1)), degrees, 1e-12);
            double const radians = degrees / 60.0;
            ASSERT_NEAR(unit->StringToRadiansLongitude(unit->RadiansToStringLongitude(radians, -1)), radians,
                        1e-14);
        });
    }
}

TEST(UnitTexts, TreesSurviveTheirTextForm) {
    for (int const code : {0, 7, 8, 10, 11}) {
        TStringTree tree;
        Fill(&tree, Degree(code));
        std::string text(tree.WriteToString(nullptr, 0, 0), '\0');
        tree.WriteToString(text.data(), 0, 0);
        TStringTree back;
        back.ReadFromString(text.c_str(), nullptr, nullptr);
        std::unique_ptr<TShellAngularUnit> const unit(CreateShellAngularUnit(&tree));
        std::unique_ptr<TShellAngularUnit> const unitBack(CreateShellAngularUnit(&back));
        ASSERT_TRUE(unitBack);
        EXPECT_TRUE(*unit == *unitBack) << code;
        EXPECT_EQ(unit->Precision, unitBack->Precision);
    }
}

TEST(UnitTexts, AllClassesSurviveADocument) {
    auto const linear = MakeUnit<TShellLinearUnit>(Metres("0.3048"));
    linear->GeoTIFFCode = 9002;
    linear->MIFMIDCode = 3;
    linear->Name = "foot <\"&'> фут";
    linear->Description = " two blanks at the ends ";
    ExpectDocumentRoundTrip(*linear);
    ExpectDocumentRoundTrip(*MakeUnit<TShellScaleUnit>(PartsPerMillion()));
    ExpectDocumentRoundTrip(*MakeUnit<TShellAngularUnit>(Grad()));
    ExpectDocumentRoundTrip(*MakeUnit<TShellUnitDegreeMinuteSecond>(Degree(7)));
    ExpectDocumentRoundTrip(*MakeUnit<TShellUnitDegreeMinuteSecondHemisphere>(Degree(8)));
    ExpectDocumentRoundTrip(*MakeUnit<TShellUnitSexagesimalDegree>(Degree(10)));
    ExpectDocumentRoundTrip(*MakeUnit<TShellDegreeDecimalMinuteUnit>(Degree(11)));
}

TEST(UnitTexts, CoefficientsSurviveADocumentToTheLastBit) {
    std::mt19937_64 random(4);
    for (int round = 0; round < 200; ++round) {
        auto const unit = MakeUnit<TShellScaleUnit>(PartsPerMillion());
        unit->CoefToBase = RandomBits(&random);
        unit->CoefFromBase = RandomBits(&random);
        if (!std::isfinite(unit->CoefToBase) || !std::isfinite(unit->CoefFromBase)) {
            continue;
        }
        ExpectDocumentRoundTrip(*unit);
    }
}

// --- Any bytes and any numbers -----------------------------------------------------------------------------

TEST(UnitTexts, AnyBytesAreReadWithoutHarm) {
    auto const linear = MakeUnit<TShellLinearUnit>(Metre());
    auto const scale = MakeUnit<TShellScaleUnit>(PartsPerMillion());
    auto const angular = AllAngularUnits();
    std::vector<TShellUnit const*> units = {linear.get(), scale.get()};
    for (auto const& unit : angular) {
        units.push_back(unit.get());
    }
    std::mt19937_64 random(5);
    for (std::string const& alphabet :
         {std::string(), std::string("0123456789.- NSEWe+x'"), std::string("12. -")}) {
        for (int round = 0; round < Rounds; ++round) {
            std::string const text = RandomText(&random, alphabet);
            std::string const separated = [&] {
                std::string copy = text;
                SeparateDMSString(copy.data());
                return std::string(copy.c_str());
            }();
            ASSERT_LE(separated.size(), text.size());
            for (TShellUnit const* const unit : units) {
                double value = 7.0;
                if (!unit->StringToValue(text, &value)) {
                    ASSERT_EQ(value, 7.0) << text;
                    ASSERT_THROW(unit->StringToValue(text), std::runtime_error) << text;
                    ASSERT_EQ(unit->StringToValue(text, 3.0), 3.0) << text;
                }
            }
        }
    }
}

TEST(UnitTexts, AnyNumbersPrintWithoutHarm) {
    auto const linear = MakeUnit<TShellLinearUnit>(Metre());
    auto const scale = MakeUnit<TShellScaleUnit>(PartsPerMillion());
    auto const angular = AllAngularUnits();
    std::mt19937_64 random(6);
    for (int round = 0; round < Rounds; ++round) {
        double const value = RandomBits(&random);
        int const precision = static_cast<int>(random() % 24) - 2;
        ASSERT_FALSE(linear->ValueToString(value, precision).empty());
        ASSERT_FALSE(scale->ValueToString(value, precision).empty());
        for (auto const& unit : angular) {
            ASSERT_FALSE(unit->ValueToStringLatitude(value, precision).empty());
            ASSERT_FALSE(unit->DegreesToStringLongitude(value, precision).empty());
            if (unit->Code != anDegreeMinuteSecondHemisphere) {
                ASSERT_FALSE(unit->ValueToString(value, precision).empty());
            }
        }
    }
}

TEST(UnitTexts, FarDecimalsPrintWithoutHarm) {
    std::string const zeros(1000, '0');
    EXPECT_EQ(MakeUnit<TShellAngularUnit>(Degree())->ValueToString(12.5, 1000), "12.5" + zeros.substr(1));
    auto const dms = MakeUnit<TShellUnitDegreeMinuteSecond>(Degree(7));
    EXPECT_EQ(dms->ValueToString(12.5, 308), "12 30 0." + zeros.substr(0, 308));
    // From here on the power of ten that rounds the seconds is infinite; the sign of such a NaN is open.
    EXPECT_NE(dms->ValueToString(12.5, 309).find("nan"), std::string::npos);
    auto const packed = MakeUnit<TShellUnitSexagesimalDegree>(Degree(10));
    EXPECT_EQ(packed->ValueToString(12.5, 308), "12.3000" + zeros.substr(0, 308));
    auto const decimalMinute = MakeUnit<TShellDegreeDecimalMinuteUnit>(Degree(11));
    EXPECT_EQ(decimalMinute->ValueToString(12.5, 308), "12.30" + zeros.substr(0, 308));
}

// --- A host with a decimal comma ---------------------------------------------------------------------------

TEST(UnitTexts, DecimalCommaOfTheHostChangesNoText) {
    TCommaLocale const comma;
    ASSERT_TRUE(comma.isSet) << "the locale " << TCommaLocale::Name << " isn't installed";
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");

    auto const metre = MakeUnit<TShellLinearUnit>(Metre());
    EXPECT_EQ(metre->StringToValue("12.5"), 12.5);
    EXPECT_EQ(metre->StringToValue("12,5"), 12.0);
    EXPECT_EQ(metre->ValueToString(1.0 / 3.0, 4), "0.3333");
    EXPECT_EQ(metre->ValueToString(1.0 / 3.0, -1), "0.3333333333333333148296163");
    EXPECT_EQ(metre->ValueToString(1234567.5, 1), "1234567.5");
    EXPECT_EQ(MakeUnit<TShellScaleUnit>(PartsPerMillion())->ValueToString(1.5, 2), "1.5");
    EXPECT_EQ(WKTOf(*MakeUnit<TShellLinearUnit>(Metres("0.3048"))), "UNIT[\"unit\",0.3048]");
    EXPECT_EQ(CreateWKTDegreeString(), "UNIT[\"degree\",0.0174532925199433]");
    std::map<int, std::string> keys;
    MakeUnit<TShellLinearUnit>(Metres("0.3048"))->ExportToGeoTIFF(&keys, 3076, 3077);
    EXPECT_EQ(keys[3077], "0.3048");
    std::string text;
    EXPECT_TRUE(Convert(*MakeUnit<TShellLinearUnit>(Metres("0.5")), "0.5", *metre, &text));
    EXPECT_EQ(text, "0.25");

    auto const dms = MakeUnit<TShellUnitDegreeMinuteSecond>(Degree(7));
    EXPECT_EQ(dms->ValueToString(-12.5, 2), "- 12 30 0.00");
    EXPECT_NEAR(dms->StringToDegrees("12°34'56.7\""), 12.582416666666667, 1e-13);
    auto const hemisphere = MakeUnit<TShellUnitDegreeMinuteSecondHemisphere>(Degree(8));
    EXPECT_EQ(hemisphere->ValueToStringLatitude(-12.5, 2), "12 30 0.00 S");
    EXPECT_NEAR(hemisphere->StringToDegrees("12 34 56.7 W"), -12.582416666666667, 1e-13);
    auto const packed = MakeUnit<TShellUnitSexagesimalDegree>(Degree(10));
    EXPECT_EQ(packed->ValueToString(10.5, 3), "10.3000000");
    EXPECT_NEAR(packed->StringToDegrees("12.34567"), 12.582416666666667, 1e-13);
    auto const decimalMinute = MakeUnit<TShellDegreeDecimalMinuteUnit>(Degree(11));
    EXPECT_EQ(decimalMinute->ValueToString(12.51, 3), "12.30600");
    EXPECT_NEAR(decimalMinute->StringToDegrees("12.3456"), 12.66, 1e-13);
}

TEST(UnitTexts, DecimalCommaOfTheHostChangesNoTreeAndNoDocument) {
    TCommaLocale const comma;
    ASSERT_TRUE(comma.isSet) << "the locale " << TCommaLocale::Name << " isn't installed";
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");

    TStringTree tree;
    ASSERT_TRUE(FillDegreeTree(&tree));
    std::string factor;
    ASSERT_TRUE(tree.GetString(5310, 0, &factor));
    EXPECT_EQ(factor, "3.14159265358979312");
    TShellAngularUnit const degree(&tree);
    EXPECT_EQ(degree.CoefToBase, 0.017453292519943295);
    ExpectDocumentRoundTrip(degree);
    ExpectDocumentRoundTrip(*MakeUnit<TShellLinearUnit>(Metres("0.3048")));
}
