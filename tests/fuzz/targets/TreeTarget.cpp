#include "hostkit/XmlIni.h"
#include "tests/fuzz/targets/Promises.h"
#include "tests/fuzz/targets/SystemPromises.h"
#include "tests/fuzz/targets/Targets.h"
#include "tests/support/Descriptions.h"

#include <new>
#include <stdexcept>

namespace Fuzz {

namespace {

using namespace KvRefSystem;

/** Goes from a tree to its text and to its XML form and back. */
void WriteAndRead(TStringTree const& tree) {
    std::string const first = TestSupport::TextOf(tree);
    TStringTree again;
    again.ReadFromString(first.c_str(), nullptr, nullptr);
    RequireSameText(first, TestSupport::TextOf(again), "a tree has the same text again");

    VellariHostKit::TXmlIniWriter writer;
    Require(tree.WriteToXML(&writer), "a tree is written as XML", first);
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    TStringTree fromXml;
    Require(fromXml.ReadFromXML(&reader, 0, nullptr), "a tree is read from its XML", writer.ToString());
    RequireSameText(first, TestSupport::TextOf(fromXml), "a tree has the same text by way of XML");
}

/** @return whether there is a tree. */
bool ReadXml(std::string_view document, TStringTree* tree) {
    VellariHostKit::TXmlIniReader reader;
    return Succeeds<std::runtime_error>([&] { reader.LoadString(document); }) &&
           tree->ReadFromXML(&reader, 0, nullptr);
}

} // namespace

/** Input: the text of a tree, or its XML form. */
void RunTree(std::string_view input) {
    std::string const text(input);
    TStringTree tree;
    bool const isRead =
        input.substr(0, 1) == "<" ? ReadXml(input, &tree) : Succeeds<std::bad_alloc, std::runtime_error>([&] {
            tree.ReadFromString(text.c_str(), nullptr, nullptr);
        });
    if (isRead && HasTextForm(tree)) {
        WriteAndRead(tree);
    }
    if (isRead) {
        // A copy ends at a pair that the tree has twice.
        TStringTree copy;
        copy.header = tree.header;
        if (tree.CopyTo(&copy)) {
            TStringTree again;
            Require(copy.CopyTo(&again), "a copy of a tree can be copied");
        }
    }
}

std::vector<std::string> TreeSeeds() {
    std::vector<std::string> seeds = {
        "(0,0)root\n(1,0)[2]a label\tone\\ttab\ttwo\n\t(7,2)tree\n\t(1,-1)[1]hidden\tx\n\t\n\n",
        "(0,0)\n(5301,0)[1]code\t0\n(5301,0)[1]code\t\n\t(7,2)unit\n\t(5320,0)[2]name\tA\tB\n\t\n\n",
        "(3,4)he\n\t(1,0)\n\t\t(2,0)\n\t\t\t(3,0)\n\t\t\t\n\t\t\n\t\n\n",
        "(0,0)\n(1,0)[3]\\\\ \\t \\n \\r \\0 \\x\t\\\t\t \n\n",
        "(0,0)\n(1,0)[18446744073709551615]h\tA\n(1,1)[0]none\n\n",
    };
    for (std::size_t seed = 0; seed < 4; ++seed) {
        TStringTree tree;
        tree.ReadFromString(std::string(seeds[seed]).c_str(), nullptr, nullptr);
        VellariHostKit::TXmlIniWriter writer;
        tree.WriteToXML(&writer);
        seeds.push_back(writer.ToString());
    }
    return seeds;
}

} // namespace Fuzz
