#pragma once

#include "frame/imported/StringTree.h"
#include "frame/imported/XIni.h"
#include "shell/units/AngularUnit.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/** What the tests of units share: units from a few words, and sections that lie in memory. */
namespace KvRefSystem::UnitTests {

constexpr char const* PiText = "3.14159265358979312";

/** The fields of a unit's tree. */
struct TUnitWords {
    int code = 0;
    int type = 1;
    std::string numerator = "1";
    std::string denominator = "1";
    std::string name = "metre";
    std::string abbreviation = "m";
    std::string description = "";
};

inline TUnitWords Metre() {
    return {};
}

/** A length of so many metres, a number as text. */
inline TUnitWords Metres(std::string const& metres) {
    return {.numerator = metres, .name = "unit", .abbreviation = "u"};
}

inline TUnitWords Radian() {
    return {.type = 2, .name = "radian", .abbreviation = "rad"};
}

inline TUnitWords Degree(int code = 0) {
    return {.code = code,
            .type = 2,
            .numerator = PiText,
            .denominator = "180",
            .name = "degree",
            .abbreviation = "deg"};
}

inline TUnitWords Grad() {
    return {.type = 2, .numerator = PiText, .denominator = "200", .name = "grad", .abbreviation = "gon"};
}

inline TUnitWords PartsPerMillion() {
    return {.type = 3, .denominator = "1000000", .name = "parts per million", .abbreviation = "ppm"};
}

inline void Fill(TStringTree* tree, TUnitWords const& words) {
    tree->InsertInteger("code", 5301, 0, words.code);
    tree->InsertInteger("type", 5312, 0, words.type);
    tree->InsertString("f_b", 5310, 0, words.numerator);
    tree->InsertString("f_c", 5311, 0, words.denominator);
    tree->InsertString("name", 5320, 0, words.name);
    tree->InsertString("abbr", 5321, 0, words.abbreviation);
    tree->InsertString("desc", 5322, 0, words.description);
}

template <class TUnit>
std::unique_ptr<TUnit> MakeUnit(TUnitWords const& words) {
    TStringTree tree;
    Fill(&tree, words);
    return std::make_unique<TUnit>(&tree);
}

using TItems = std::vector<std::pair<std::string, std::string>>;

/** One section without sections in it; remembers the keys that were asked for. */
class TListReader final : public TKvXIniReader {
public:
    explicit TListReader(TItems sectionItems) : items(std::move(sectionItems)) {}

    unsigned long ItemCount() override { return items.size(); }
    bool IsSection(unsigned long) override { return false; }
    unsigned long EnterSection(unsigned long) override { return 0; }
    bool LeaveSection(unsigned long) override { return false; }
    unsigned long EnterSectionE(unsigned long) override { throw std::runtime_error("no section"); }
    void LeaveSectionE(unsigned long) override { throw std::runtime_error("no section"); }

    std::vector<std::string> asked;

protected:
    unsigned long FindItem(char const* key, unsigned long from) override {
        asked.emplace_back(key);
        for (unsigned long item = from; item < items.size(); ++item) {
            if (items[item].first == key) {
                return item;
            }
        }
        return NotFound;
    }

    bool ReadText(unsigned long item, std::string* text) override {
        if (item >= items.size()) {
            return false;
        }
        *text = items[item].second;
        return true;
    }

private:
    TItems items;
};

/** Keeps what is written; fails from a given write on. */
class TListWriter final : public TKvXIniWriter {
public:
    explicit TListWriter(std::size_t writesThatWork = std::numeric_limits<std::size_t>::max())
        : capacity(writesThatWork) {}

    unsigned long BeginSection(std::string const&) override { return 0; }
    bool EndSection(unsigned long) override { return false; }
    void EndSectionE(unsigned long) override { throw std::runtime_error("no section"); }
    void SetAttributeMode(bool) override {}
    void RaiseError() override { throw std::runtime_error("a write failed"); }

    TItems items;

protected:
    bool WriteText(std::string const& key, std::string const& text) override {
        if (items.size() >= capacity) {
            return false;
        }
        items.emplace_back(key, text);
        return true;
    }

    unsigned long BeginSectionCompact(std::string const&) override { return 0; }

private:
    std::size_t capacity;
};

template <class TUnit>
std::unique_ptr<TUnit> LoadUnit(TItems const& items) {
    TListReader reader(items);
    return std::make_unique<TUnit>(&reader);
}

/** The items of a unit that loads, with coefficients that no built-in unit has. */
inline TItems LoadableItems(int code, int type) {
    return {{"UnitCode", std::to_string(code)},
            {"UnitType", std::to_string(type)},
            {"UnitCoefToBase", "2"},
            {"UnitCoefFromBase", "0.5"}};
}

/** @return the message of what `action` throws; empty when it throws nothing of that type. */
template <class TException = std::runtime_error, class TAction>
std::string MessageOf(TAction action) {
    try {
        action();
    } catch (TException const& error) {
        return error.what();
    }
    return std::string();
}

/** @return the text that a unit makes of itself, or "false". */
template <class TUnit>
std::string WKTOf(TUnit const& unit) {
    std::string text;
    return unit.ExportToWKT(&text) ? text : "false";
}

/** A text and the degrees that it stands for. */
using TReadings = std::vector<std::pair<std::string, double>>;

/** Checks that a unit reads them, to a rounding of degrees. */
inline void ExpectReadings(TShellAngularUnit const& unit, TReadings const& readings) {
    for (auto const& [text, degrees] : readings) {
        double value = -999.0;
        EXPECT_TRUE(unit.StringToValue(text, &value)) << text;
        EXPECT_NEAR(value, degrees, 1e-13) << text;
    }
}

/** @return the distance of a member from the beginning of its object, in bytes. */
template <class TObject, class TMember>
std::ptrdiff_t OffsetIn(TObject const& object, TMember const& member) {
    return reinterpret_cast<char const*>(&member) - reinterpret_cast<char const*>(&object);
}

/** @return the slot of a virtual operation, counted from 0, by the rules of the platform's C++ interface. */
template <class TOperation>
std::ptrdiff_t SlotOf(TOperation operation) {
    std::ptrdiff_t entry = 0;
    std::memcpy(&entry, &operation, sizeof(entry));
    return (entry - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

} // namespace KvRefSystem::UnitTests
