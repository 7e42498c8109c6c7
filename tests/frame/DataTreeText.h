#pragma once

#include "frame/DataTree.h"
#include "frame/imported/StringTree.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

/** What the tests of the text form share. */
namespace DataTreeText {

inline constexpr int LargestInt = std::numeric_limits<int>::max();
inline constexpr int SmallestInt = std::numeric_limits<int>::min();

/** The text form; the buffer is exactly as long as the first pass says. */
inline std::string TextOf(KvRefSystem::TDataTree<std::string> const& tree) {
    std::vector<char> buffer(tree.WriteToString(nullptr, 0, 0));
    EXPECT_EQ(tree.WriteToString(buffer.data(), 0, 0), buffer.size());
    return {buffer.begin(), buffer.end()};
}

/** Reads from a block of memory that ends with the closing NUL. */
inline unsigned long Read(KvRefSystem::TDataTree<std::string>* tree, std::string const& text) {
    std::vector<char> block(text.begin(), text.end());
    block.push_back('\0');
    unsigned long position = 0;
    tree->ReadFromString(block.data(), &position, nullptr);
    return position;
}

inline std::string Rewritten(std::string const& text) {
    KvRefSystem::TStringTree tree;
    Read(&tree, text);
    return TextOf(tree);
}

inline std::string const WorkedExample = "(0,0)\n"
                                         "(5301,0)[1]code\t0\n"
                                         "\t(7,2)unit\n"
                                         "\t(5320,0)[2]name\tA\tB\n"
                                         "\t\n"
                                         "\n";

inline void FillWorkedExample(KvRefSystem::TStringTree* tree) {
    tree->InsertString("code", 5301, 0, "0");
    tree->InsertSubtree("unit", 7, 2);
    std::string values[] = {"A", "B"};
    tree->FindSubtree(7, 2)->InsertField("name", 5320, 0, values, 2);
}

} // namespace DataTreeText
