#pragma once

#include "frame/imported/StringTree.h"
#include "frame/imported/XIni.h"
#include "tests/frame/MemoryXIni.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/** Trees, documents and messages for the tests of the datum components. */
namespace DatumTestKit {

using KvRefSystem::TStringTree;

/** One unit as a description holds it: base value = value * numerator / denominator. */
struct TUnit {
    int code;
    int type;
    char const* numerator;
    char const* denominator;
    char const* name;
};

inline constexpr TUnit metre = {0, 1, "1", "1", "metre"};
inline constexpr TUnit foot = {0, 1, "0.3048", "1", "foot"};
inline constexpr TUnit kilometre = {0, 1, "1000", "1", "kilometre"};
inline constexpr TUnit radian = {0, 2, "1", "1", "radian"};
inline constexpr TUnit degree = {0, 2, "3.14159265358979312", "180", "degree"};
inline constexpr TUnit grad = {0, 2, "3.14159265358979312", "200", "grad"};
inline constexpr TUnit second = {0, 2, "3.14159265358979312", "648000", "second"};
inline constexpr TUnit degreeMinuteSecond = {7, 2, "3.14159265358979312", "180", "dms"};
inline constexpr TUnit millionth = {0, 3, "1", "1000000", "ppm"};

inline void PutUnit(TStringTree* tree, TUnit const& unit) {
    tree->InsertInteger("code", 5301, 0, unit.code);
    tree->InsertInteger("type", 5312, 0, unit.type);
    tree->InsertString("f_b", 5310, 0, unit.numerator);
    tree->InsertString("f_c", 5311, 0, unit.denominator);
    tree->InsertString("name", 5320, 0, unit.name);
    tree->InsertString("abbr", 5321, 0, "");
    tree->InsertString("desc", 5322, 0, "");
}

inline TStringTree* PutSubtree(TStringTree* tree, int tag) {
    tree->InsertSubtree("", tag, 0);
    return tree->FindSubtree(tag, 0);
}

inline void PutUnitSubtree(TStringTree* tree, int tag, TUnit const& unit) {
    PutUnit(PutSubtree(tree, tag), unit);
}

/** Puts a field in the place of one with the same tag. */
inline void Change(TStringTree* tree, int tag, std::string const& value) {
    tree->DeleteField(tag, 0);
    tree->InsertString("", tag, 0, value);
}

/** @return the text of the std::runtime_error that `action` throws; empty without one. */
template <class Action>
std::string MessageOf(Action action) {
    try {
        action();
    } catch (std::runtime_error const& error) {
        return error.what();
    }
    return std::string();
}

/** What parsing a text says that isn't a number in its unit. */
inline constexpr char const* parseMessage =
    "bool TShellUnit::StringToValue(const string& str, double *value) const";

/** What a unit says that lacks a mandatory field. */
inline constexpr char const* unitMessage = "TShellUnit::TShellUnit(TStringTree *tree)";

/** @return the document that `object` writes. */
template <class Object>
MemoryXIni::TNode Saved(Object const& object) {
    MemoryXIni::TNode root;
    MemoryXIni::TWriter writer(&root);
    EXPECT_TRUE(object.SaveToXML(&writer));
    EXPECT_EQ(writer.Depth(), 0U);
    return root;
}

/** @return the keys of a section's items, in their order. */
inline std::vector<std::string> Keys(MemoryXIni::TNode const& section) {
    std::vector<std::string> keys;
    for (MemoryXIni::TNode const& item : section.children) {
        keys.push_back(item.name);
    }
    return keys;
}

/** Lets each write of `object` fail in turn: every one makes the save fail and leaves no section open. */
template <class Object>
void ExpectEveryFailedWriteIsReported(Object const& object) {
    MemoryXIni::TNode complete;
    MemoryXIni::TWriter counter(&complete);
    ASSERT_TRUE(object.SaveToXML(&counter));
    ASSERT_GT(counter.operations, 0U);
    for (unsigned long operation = 1; operation <= counter.operations; ++operation) {
        MemoryXIni::TNode root;
        MemoryXIni::TWriter writer(&root);
        writer.failure = MemoryXIni::TWriter::ReportsFalse;
        writer.failingOperation = operation;
        EXPECT_FALSE(object.SaveToXML(&writer)) << "operation " << operation;
        EXPECT_EQ(writer.Depth(), 0U) << "operation " << operation;
    }
}

} // namespace DatumTestKit
