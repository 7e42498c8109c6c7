#include "frame/DataTree.h"

#include "frame/imported/StringTree.h"
#include "hostkit/XmlIni.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using KvRefSystem::TDataTree;
using KvRefSystem::TStringTree;
using VellariHostKit::TXmlIniReader;
using VellariHostKit::TXmlIniWriter;

namespace {

std::string TextOf(TDataTree<std::string> const& tree) {
    std::string text(tree.WriteToString(nullptr, 0, 0), '?');
    tree.WriteToString(text.data(), 0, 0);
    return text;
}

std::string DocumentOf(TDataTree<std::string> const& tree) {
    TXmlIniWriter writer;
    EXPECT_TRUE(tree.WriteToXML(&writer));
    return writer.ToString();
}

bool ReadDocument(TStringTree* tree, std::string const& document) {
    TXmlIniReader reader;
    reader.LoadString(document);
    return tree->ReadFromXML(&reader, 0, nullptr);
}

void FillSample(TStringTree* tree) {
    tree->header = "Вельск & <others>";
    tree->InsertInteger("code", 5301, 0, -17);
    tree->InsertDouble("third", 5302, 0, 1.0 / 3.0);
    std::string values[] = {"", " blanks at both ends ", "line\nand\ttab\r", "]]> & \"quotes\" 'too' <b>",
                            ""};
    tree->InsertField("many", 5320, 1, values, 5);
    tree->InsertString("", 5321, 0, "");
    tree->InsertSubtree("empty", 7, 1);
    tree->InsertSubtree("unit", 7, 2);
    tree->FindSubtree(7, 2)->InsertString("name", 5320, 0, "metre");
    tree->FindSubtree(7, 2)->InsertSubtree("deep", 8, 0);
}

} // namespace

TEST(DataTreeXmlDocument, RoundTripKeepsEverything) {
    TStringTree tree;
    FillSample(&tree);
    TStringTree read;
    ASSERT_TRUE(ReadDocument(&read, DocumentOf(tree)));
    EXPECT_EQ(TextOf(read), TextOf(tree));
    double third = 0;
    EXPECT_TRUE(read.GetDouble(5302, 0, &third));
    EXPECT_EQ(third, 1.0 / 3.0);
}

TEST(DataTreeXmlDocument, NumbersAndLabelOfATreeAreAttributes) {
    TStringTree tree(0, 3, nullptr, "root");
    tree.InsertString("code", 1, 0, "v");
    std::string const document = DocumentOf(tree);
    EXPECT_NE(document.find("tag=\"0\" idx=\"3\" hdr=\"root\""), std::string::npos) << document;
    EXPECT_NE(document.find("<tag>1</tag>"), std::string::npos) << document;
    EXPECT_NE(document.find("<hdr>code</hdr>"), std::string::npos) << document;
}

TEST(DataTreeXmlDocument, FieldSectionOfHiddenFieldsStandsEmpty) {
    TStringTree tree;
    tree.InsertString("hidden", -1, 0, "secret");
    std::string const document = DocumentOf(tree);
    EXPECT_NE(document.find("<field"), std::string::npos);
    EXPECT_EQ(document.find("secret"), std::string::npos);
    TStringTree read;
    EXPECT_TRUE(ReadDocument(&read, document));
    EXPECT_EQ(read.fields.Size(), 0u);
}

TEST(DataTreeXmlDocument, EveryPrefixIsRefused) {
    TStringTree tree;
    FillSample(&tree);
    std::string const document = DocumentOf(tree);
    // The last byte is a line end, without which the document is whole.
    for (std::size_t length = 0; length + 1 < document.size(); ++length) {
        TStringTree read;
        EXPECT_THROW(ReadDocument(&read, document.substr(0, length)), std::runtime_error) << length;
    }
}

TEST(DataTreeXmlDocument, SingleByteChangesNeverDoHarm) {
    TStringTree tree;
    FillSample(&tree);
    std::string const document = DocumentOf(tree);
    unsigned long refused = 0;
    unsigned long failed = 0;
    for (std::size_t at = 0; at < document.size(); ++at) {
        for (char const byte : {'\0', '<', '>', '"', '/', 'x', '9', '\xFF'}) {
            std::string changed = document;
            changed[at] = byte;
            TStringTree read;
            try {
                failed += ReadDocument(&read, changed) ? 0 : 1;
            } catch (std::runtime_error const&) {
                ++refused;
            }
            EXPECT_FALSE(TextOf(read).empty());
        }
    }
    EXPECT_GT(refused, 0u);
    EXPECT_GT(failed, 0u);
}
