#include "shell/units/Unit.h"

#include "UnitFixtures.h"

#include "frame/NumberText.h"
#include "shell/units/AngularUnit.h"
#include "shell/units/LinearUnit.h"
#include "shell/units/ScaleUnit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

using namespace KvRefSystem;
using namespace KvRefSystem::UnitTests;

static_assert(sizeof(TShellUnit) == 136);
static_assert(!std::has_virtual_destructor_v<TShellUnit>);
static_assert(!std::is_copy_constructible_v<TShellUnit> && !std::is_copy_assignable_v<TShellUnit>);

namespace {

constexpr char const* ParseMessage = "bool TShellUnit::StringToValue(const string& str, double *value) const";

TItems FullItems() {
    return {{"UnitCode", "5"},
            {"UnitType", "3"},
            {"UnitCoefToBase", "0.5"},
            {"UnitCoefFromBase", "2"},
            {"UnitName", "half"},
            {"UnitAbbreviation", "h"},
            {"UnitDescription", "one half"},
            {"UnitGeoTIFFCode", "77"}};
}

} // namespace

TEST(ShellUnit, MembersLieWhereHostsExpectThem) {
    auto const unit = MakeUnit<TShellScaleUnit>(Metre());
    EXPECT_EQ(OffsetIn(*unit, unit->Code), 8);
    EXPECT_EQ(OffsetIn(*unit, unit->Type), 12);
    EXPECT_EQ(OffsetIn(*unit, unit->CoefToBase), 16);
    EXPECT_EQ(OffsetIn(*unit, unit->CoefFromBase), 24);
    EXPECT_EQ(OffsetIn(*unit, unit->Name), 32);
    EXPECT_EQ(OffsetIn(*unit, unit->Description), 64);
    EXPECT_EQ(OffsetIn(*unit, unit->Abbreviation), 96);
    EXPECT_EQ(OffsetIn(*unit, unit->Precision), 128);
    EXPECT_EQ(OffsetIn(*unit, unit->GeoTIFFCode), 132);
}

TEST(ShellUnit, VirtualOperationsStandInTheirSlots) {
    bool (TShellUnit::*const parse)(std::string const&, double*) const = &TShellUnit::StringToValue;
    EXPECT_EQ(SlotOf(parse), 0);
    EXPECT_EQ(SlotOf(&TShellUnit::ValueToString), 1);
    EXPECT_EQ(SlotOf(&TShellUnit::operator==), 2);
    EXPECT_EQ(SlotOf(&TShellUnit::ExportToWKT), 3);
    EXPECT_EQ(SlotOf(&TShellUnit::LoadFromXML), 4);
    EXPECT_EQ(SlotOf(&TShellUnit::SaveToXML), 5);
}

// --- From a tree -------------------------------------------------------------------------------------------

TEST(ShellUnit, TreeGivesAllMembers) {
    TStringTree tree;
    Fill(&tree, {.code = 5,
                 .type = 3,
                 .numerator = "1",
                 .denominator = "4",
                 .name = "quarter",
                 .abbreviation = "q",
                 .description = "one quarter"});
    TShellUnit const unit(&tree);
    EXPECT_EQ(unit.Code, 5);
    EXPECT_EQ(unit.Type, utScale);
    EXPECT_EQ(unit.CoefToBase, 0.25);
    EXPECT_EQ(unit.CoefFromBase, 4.0);
    EXPECT_EQ(unit.Name, "quarter");
    EXPECT_EQ(unit.Abbreviation, "q");
    EXPECT_EQ(unit.Description, "one quarter");
    EXPECT_EQ(unit.Precision, 0);
    EXPECT_EQ(unit.GeoTIFFCode, 0);
}

TEST(ShellUnit, EachMandatoryFieldOfTheTreeIsMissed) {
    for (int const tag : {5301, 5312, 5320, 5321, 5322}) {
        TStringTree tree;
        Fill(&tree, Metre());
        tree.DeleteField(tag, 0);
        EXPECT_EQ(MessageOf([&] { TShellUnit unit(&tree); }), "TShellUnit::TShellUnit(TStringTree *tree)")
            << tag;
    }
    EXPECT_EQ(MessageOf([] { TShellUnit unit(static_cast<TStringTree*>(nullptr)); }),
              "TShellUnit::TShellUnit(TStringTree *tree)");
}

TEST(ShellUnit, CodeThatIsNoNumberIsMissed) {
    TStringTree tree;
    Fill(&tree, Metre());
    tree.DeleteField(5301, 0);
    tree.InsertString("code", 5301, 0, "five");
    EXPECT_EQ(MessageOf([&] { TShellUnit unit(&tree); }), "TShellUnit::TShellUnit(TStringTree *tree)");
}

TEST(ShellUnit, TreeWithoutFactorsGivesAUnitThatCannotConvert) {
    for (int const tag : {5310, 5311}) {
        for (char const* const factor : {"", "0", "-0.0", "x"}) {
            TStringTree tree;
            Fill(&tree, Metre());
            tree.DeleteField(tag, 0);
            if (*factor != '\0') {
                tree.InsertString("f", tag, 0, factor);
            }
            TShellUnit const unit(&tree);
            EXPECT_EQ(unit.CoefToBase, 0.0) << tag << factor;
            EXPECT_EQ(unit.CoefFromBase, 0.0) << tag << factor;
            double result = 7.0;
            EXPECT_TRUE(Convert(unit, 5.0, unit, &result));
            EXPECT_EQ(result, 0.0);
        }
    }
}

TEST(ShellUnit, TypeOfATreeIsNotValidated) {
    EXPECT_EQ(MakeUnit<TShellLinearUnit>({.type = 99})->Type, 99);
    EXPECT_EQ(MakeUnit<TShellScaleUnit>({.type = -1})->Type, -1);
}

// --- Texts -------------------------------------------------------------------------------------------------

TEST(ShellUnit, NumberIsRead) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    std::vector<std::pair<char const*, double>> const rows = {
        {"12", 12.0}, {"-0.5", -0.5}, {" \t\n7.25", 7.25}, {"1e3", 1000.0}, {"+4", 4.0}, {".5", 0.5}};
    for (auto const& [text, expected] : rows) {
        double value = -1.0;
        EXPECT_TRUE(unit->StringToValue(text, &value)) << text;
        EXPECT_EQ(value, expected) << text;
    }
}

TEST(ShellUnit, WordDoesNotParse) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    for (char const* const text : {"abc", "x12", ",5", "."}) {
        double value = 7.0;
        EXPECT_FALSE(unit->StringToValue(text, &value)) << text;
        EXPECT_EQ(value, 7.0) << text;
    }
}

TEST(ShellUnit, EmptyOrBlankTextParsesAndKeepsTheOldValue) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    for (char const* const text : {"", " ", " \t\r\n "}) {
        double value = 7.0;
        EXPECT_TRUE(unit->StringToValue(text, &value));
        EXPECT_EQ(value, 7.0);
        EXPECT_EQ(unit->StringToValue(text), 0.0);
        EXPECT_EQ(unit->StringToValue(text, 3.0), 3.0);
    }
}

TEST(ShellUnit, WhatFollowsANumberDoesNotCount) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    EXPECT_EQ(unit->StringToValue("12abc"), 12.0);
    EXPECT_EQ(unit->StringToValue("12,5"), 12.0);
    EXPECT_EQ(unit->StringToValue("1 2"), 1.0);
}

TEST(ShellUnit, AllSpellingsOfANumberAreRead) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    EXPECT_TRUE(std::isnan(unit->StringToValue("nan")));
    EXPECT_EQ(unit->StringToValue("-inf"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(unit->StringToValue("0x10"), 16.0);
    EXPECT_EQ(unit->StringToValue("1e999"), std::numeric_limits<double>::infinity());
}

TEST(ShellUnit, ThrowingParserNamesItself) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    EXPECT_EQ(MessageOf([&] { unit->StringToValue("abc"); }), ParseMessage);
    EXPECT_EQ(unit->StringToValue("2.5"), 2.5);
}

TEST(ShellUnit, FallbackIsForATextThatDoesNotParse) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    EXPECT_EQ(unit->StringToValue("abc", 4.0), 4.0);
    EXPECT_EQ(unit->StringToValue("2.5", 4.0), 2.5);
}

TEST(ShellUnit, ValuePrintsWithItsDecimals) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    EXPECT_EQ(unit->ValueToString(1.0 / 3.0, 4), "0.3333");
    EXPECT_EQ(unit->ValueToString(-2.5, 0), "-2"); // a tie goes to the even neighbour
    EXPECT_EQ(unit->ValueToString(3.5, 0), "4");
    EXPECT_EQ(unit->ValueToString(-0.0, 1), "-0.0");
    EXPECT_EQ(unit->ValueToString(1e22, 2), "10000000000000000000000.00");
    EXPECT_EQ(unit->ValueToString(std::numeric_limits<double>::infinity(), 3), "inf");
    EXPECT_EQ(unit->ValueToString(-std::numeric_limits<double>::infinity(), 3), "-inf");
    EXPECT_EQ(unit->ValueToString(std::numeric_limits<double>::quiet_NaN(), 3), "nan");
    // All digits of the double next to one tenth, which has 55 decimals.
    EXPECT_EQ(unit->ValueToString(0.1, 61),
              "0.1000000000000000055511151231257827021181583404541015625000000");
    EXPECT_EQ(unit->ValueToString(std::numeric_limits<double>::max(), 0).size(), 309u);
    EXPECT_EQ(unit->ValueToString(std::numeric_limits<double>::max(), 400).size(), 710u);
}

TEST(ShellUnit, DecimalsAreThoseOfPrintf) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    std::mt19937_64 random(7);
    for (int round = 0; round < 20000; ++round) {
        std::uint64_t const pattern = random();
        int const precision = static_cast<int>(random() % 64);
        double value = 0.0;
        std::memcpy(&value, &pattern, sizeof(value));
        ASSERT_EQ(unit->ValueToString(value, precision), FormatText("%.*lf", precision, value));
        double const ordinary = std::fmod(value, 1e6);
        ASSERT_EQ(unit->ValueToString(ordinary, precision), FormatText("%.*lf", precision, ordinary));
    }
}

TEST(ShellUnit, NegativePrecisionPrintsTwentyFiveDigits) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    EXPECT_EQ(unit->ValueToString(1.0 / 3.0, -1), "0.3333333333333333148296163");
    EXPECT_EQ(unit->ValueToString(1.0 / 3.0, -100), "0.3333333333333333148296163");
    EXPECT_EQ(unit->ValueToString(1500.0, -1), "1500");
    EXPECT_EQ(unit->ValueToString(-0.0, -1), "-0");
    EXPECT_EQ(unit->ValueToString(1e30, -1), "1.000000000000000019884625e+30");
}

TEST(ShellUnit, StoredPrecisionDoesNotPrint) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    ASSERT_EQ(unit->Precision, 3);
    EXPECT_EQ(unit->ValueToString(0.5, 1), "0.5");
    EXPECT_EQ(unit->ValueToString(0.5, -1), "0.5");
}

TEST(ShellUnit, TwentyFiveDigitsReadBackTheSameForEveryDouble) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    std::mt19937_64 bits(1);
    for (int round = 0; round < 20000; ++round) {
        std::uint64_t const pattern = bits();
        double value = 0.0;
        std::memcpy(&value, &pattern, sizeof(value));
        if (!std::isfinite(value)) {
            continue;
        }
        double back = 0.0;
        ASSERT_TRUE(unit->StringToValue(unit->ValueToString(value, -1), &back));
        ASSERT_EQ(back, value);
    }
}

TEST(ShellUnit, DecimalsReadBackWithinHalfOfTheLastOne) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    std::mt19937_64 random(2);
    std::uniform_real_distribution<double> values(-1e6, 1e6);
    for (int precision = 0; precision <= 9; ++precision) {
        for (int round = 0; round < 500; ++round) {
            double const value = values(random);
            double const back = unit->StringToValue(unit->ValueToString(value, precision));
            ASSERT_NEAR(back, value, 0.5 * std::pow(10.0, -precision) + 2e-10) << precision;
        }
    }
}

// --- Equality ----------------------------------------------------------------------------------------------

TEST(ShellUnit, EveryMemberButThePrecisionCountsInEquality) {
    auto const make = [] { return MakeUnit<TShellScaleUnit>(PartsPerMillion()); };
    auto const unit = make();
    auto const other = make();
    EXPECT_TRUE(*unit == *other);
    other->Precision = 17;
    EXPECT_TRUE(*unit == *other);

    std::vector<void (*)(TShellUnit&)> const changes = {
        [](TShellUnit& changed) { changed.Type = 1; },
        [](TShellUnit& changed) { changed.Code = 1; },
        [](TShellUnit& changed) { changed.CoefToBase = std::nextafter(changed.CoefToBase, 1.0); },
        [](TShellUnit& changed) { changed.CoefFromBase = 1.0; },
        [](TShellUnit& changed) { changed.Name += "s"; },
        [](TShellUnit& changed) { changed.Description = "d"; },
        [](TShellUnit& changed) { changed.Abbreviation = "PPM"; },
        [](TShellUnit& changed) { changed.GeoTIFFCode = 1; },
    };
    for (std::size_t row = 0; row < changes.size(); ++row) {
        auto const changed = make();
        changes[row](*changed);
        EXPECT_FALSE(*unit == *changed) << row;
        EXPECT_FALSE(*changed == *unit) << row;
        EXPECT_TRUE(*unit != *changed) << row;
    }
}

TEST(ShellUnit, NotANumberIsDifferentEvenFromItself) {
    for (bool const first : {true, false}) {
        auto const unit = MakeUnit<TShellScaleUnit>(PartsPerMillion());
        (first ? unit->CoefToBase : unit->CoefFromBase) = std::numeric_limits<double>::quiet_NaN();
        EXPECT_FALSE(*unit == *unit);
    }
}

// --- Exports -----------------------------------------------------------------------------------------------

TEST(ShellUnit, WKTHasNameAndSize) {
    EXPECT_EQ(WKTOf(*MakeUnit<TShellLinearUnit>(Metre())), "UNIT[\"metre\",1]");
    EXPECT_EQ(WKTOf(*MakeUnit<TShellLinearUnit>(Metres("0.3048"))), "UNIT[\"unit\",0.3048]");
    EXPECT_EQ(WKTOf(*MakeUnit<TShellAngularUnit>(Degree())), "UNIT[\"degree\",0.0174532925199433]");
    EXPECT_EQ(WKTOf(*MakeUnit<TShellScaleUnit>(PartsPerMillion())), "UNIT[\"parts per million\",1e-06]");
}

TEST(ShellUnit, NameGoesIntoTheWKTAsItIs) {
    auto const unit = MakeUnit<TShellLinearUnit>({.name = "a \"metre\" %s"});
    EXPECT_EQ(WKTOf(*unit), "UNIT[\"a \"metre\" %s\",1]");
    std::string const longName(5000, 'n');
    EXPECT_EQ(WKTOf(*MakeUnit<TShellLinearUnit>({.name = longName})), "UNIT[\"" + longName + "\",1]");
}

TEST(ShellUnit, UnitThatCannotConvertHasNoWKT) {
    auto const unit = MakeUnit<TShellLinearUnit>({.denominator = "0"});
    std::string text = "kept";
    EXPECT_FALSE(unit->ExportToWKT(&text));
    EXPECT_EQ(text, "kept");
}

TEST(ShellUnit, WKTConstantsOfDegreeAndMetre) {
    EXPECT_EQ(CreateWKTDegreeString(), "UNIT[\"degree\",0.0174532925199433]");
    EXPECT_EQ(CreateWKTMeterString(), "UNIT[\"metre\",1]");
}

TEST(ShellUnit, GeoTIFFCodeIsOneEntry) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metre());
    unit->GeoTIFFCode = 9001;
    std::map<int, std::string> keys;
    EXPECT_TRUE(unit->ExportToGeoTIFF(&keys, 3076, 3077));
    EXPECT_EQ(keys, (std::map<int, std::string>{{3076, "9001"}}));
}

TEST(ShellUnit, UserDefinedUnitHasItsSizeInTheGeokeys) {
    auto const unit = MakeUnit<TShellLinearUnit>(Metres("0.3048"));
    std::map<int, std::string> keys;
    EXPECT_TRUE(unit->ExportToGeoTIFF(&keys, 3076, 3077));
    EXPECT_EQ(keys, (std::map<int, std::string>{{3076, "32767"}, {3077, "0.3048"}}));
}

TEST(ShellUnit, SizeInTheGeokeysHasSixDigits) {
    std::map<int, std::string> keys;
    MakeUnit<TShellAngularUnit>(Degree())->ExportToGeoTIFF(&keys, 2054, 2055);
    EXPECT_EQ(keys, (std::map<int, std::string>{{2054, "32767"}, {2055, "0.0174533"}}));
}

TEST(ShellUnit, NoKeyOfTheSizeMeansNoSize) {
    for (int const valueKey : {0, -1}) {
        std::map<int, std::string> keys;
        EXPECT_TRUE(MakeUnit<TShellLinearUnit>(Metres("0.3048"))->ExportToGeoTIFF(&keys, 3076, valueKey));
        EXPECT_EQ(keys, (std::map<int, std::string>{{3076, "32767"}}));
    }
}

TEST(ShellUnit, GeokeysThatExistStay) {
    std::map<int, std::string> keys = {{3076, "a"}, {3077, "b"}};
    std::map<int, std::string> const before = keys;
    auto const unit = MakeUnit<TShellLinearUnit>(Metres("0.3048"));
    EXPECT_TRUE(unit->ExportToGeoTIFF(&keys, 3076, 3077));
    EXPECT_EQ(keys, before);
    unit->GeoTIFFCode = 9002;
    EXPECT_TRUE(unit->ExportToGeoTIFF(&keys, 3076, 3077));
    EXPECT_EQ(keys, before);
}

// --- XML ---------------------------------------------------------------------------------------------------

TEST(ShellUnit, XMLGivesAllMembers) {
    TListReader reader(FullItems());
    TShellUnit const unit(&reader);
    EXPECT_EQ(unit.Code, 5);
    EXPECT_EQ(unit.Type, utScale);
    EXPECT_EQ(unit.CoefToBase, 0.5);
    EXPECT_EQ(unit.CoefFromBase, 2.0);
    EXPECT_EQ(unit.Name, "half");
    EXPECT_EQ(unit.Abbreviation, "h");
    EXPECT_EQ(unit.Description, "one half");
    EXPECT_EQ(unit.GeoTIFFCode, 77);
    EXPECT_EQ(unit.Precision, 0);
}

TEST(ShellUnit, XMLKeysStandInTheirOrder) {
    TListReader reader(FullItems());
    TShellUnit const unit(&reader);
    TListWriter writer;
    EXPECT_TRUE(unit.SaveToXML(&writer));
    EXPECT_EQ(writer.items, FullItems());
}

TEST(ShellUnit, ZerosAndEmptyTextsAreLeftOutOfTheXML) {
    TListReader reader(TItems{{"UnitType", "1"}, {"UnitCoefToBase", "0.5"}, {"UnitCoefFromBase", "2"}});
    TShellUnit const unit(&reader);
    EXPECT_EQ(unit.Code, 0);
    EXPECT_EQ(unit.Name, "");
    TListWriter writer;
    EXPECT_TRUE(unit.SaveToXML(&writer));
    EXPECT_EQ(writer.items,
              (TItems{{"UnitType", "1"}, {"UnitCoefToBase", "0.5"}, {"UnitCoefFromBase", "2"}}));
}

TEST(ShellUnit, SavingEndsAtTheFirstWriteThatFails) {
    TListReader reader(FullItems());
    TShellUnit const unit(&reader);
    for (std::size_t works = 0; works < FullItems().size(); ++works) {
        TListWriter writer(works);
        EXPECT_FALSE(unit.SaveToXML(&writer)) << works;
        EXPECT_EQ(writer.items.size(), works);
    }
    EXPECT_FALSE(unit.SaveToXML(nullptr));
}

TEST(ShellUnit, XMLWithoutACoefficientDoesNotLoad) {
    for (char const* const key : {"UnitCoefToBase", "UnitCoefFromBase"}) {
        for (char const* const text : {"0", "x", ""}) {
            TItems items = FullItems();
            for (auto& item : items) {
                item.second = item.first == key ? text : item.second;
            }
            EXPECT_EQ(MessageOf([&] {
                          TListReader reader(items);
                          TShellUnit unit(&reader);
                      }),
                      "TShellUnit::TShellUnit(TKvXIniReader *xml)")
                << key << text;
        }
    }
    EXPECT_EQ(MessageOf([] { TShellUnit unit(static_cast<TKvXIniReader*>(nullptr)); }),
              "TShellUnit::TShellUnit(TKvXIniReader *xml)");
}

TEST(ShellUnit, TypeFromXMLCountsOnlyWhenItIsKnown) {
    for (char const* const type : {"0", "4", "-1", "x"}) {
        TStringTree tree;
        Fill(&tree, Metre());
        TShellUnit unit(&tree);
        TListReader reader(TItems{
            {"UnitType", type}, {"UnitCoefToBase", "5"}, {"UnitCoefFromBase", "0.2"}, {"UnitName", "new"}});
        EXPECT_FALSE(unit.LoadFromXML(&reader)) << type;
        EXPECT_EQ(unit.Type, utLinear) << type;
        EXPECT_EQ(unit.CoefToBase, 5.0);
        EXPECT_EQ(unit.Name, "new");
    }
}

TEST(ShellUnit, AllKeysAreReadEvenWhenTheLoadFails) {
    TStringTree tree;
    Fill(&tree, Metre());
    TShellUnit unit(&tree);
    unit.GeoTIFFCode = 5;
    TListReader reader(TItems{});
    EXPECT_FALSE(unit.LoadFromXML(&reader));
    EXPECT_EQ(reader.asked, (std::vector<std::string>{"UnitCode", "UnitType", "UnitCoefToBase",
                                                      "UnitCoefFromBase", "UnitName", "UnitAbbreviation",
                                                      "UnitDescription", "UnitGeoTIFFCode"}));
    EXPECT_EQ(unit.CoefToBase, 0.0);
    EXPECT_EQ(unit.CoefFromBase, 0.0);
    EXPECT_EQ(unit.Name, "");
    EXPECT_EQ(unit.GeoTIFFCode, 0);
}
