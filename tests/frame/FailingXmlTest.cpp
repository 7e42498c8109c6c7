#include "tests/support/FailingXml.h"

#include "frame/imported/StringTree.h"

#include <gtest/gtest.h>

#include <string>

/** Trees, written and read while one operation of the writer or the reader fails, or all from it on. */
namespace {

using KvRefSystem::TStringTree;
using namespace TestSupport;

void Fill(TStringTree* tree) {
    tree->InsertString("name", 5320, 0, "metre");
    tree->InsertString("code", 5301, 0, "0");
    tree->InsertSubtree("unit", 7, 2);
    tree->FindSubtree(7, 2)->InsertString("name", 5320, 0, "degree");
}

std::string DocumentOf(TStringTree const& tree) {
    VellariHostKit::TXmlIniWriter writer;
    EXPECT_TRUE(tree.WriteToXML(&writer));
    return writer.ToString();
}

TEST(FailingTreeXml, EveryFailedWriteIsTold) {
    TStringTree tree;
    Fill(&tree);

    ExpectToldWriteFailures([&](TKvXIniWriter* writer) { return tree.WriteToXML(writer); });
}

TEST(FailingTreeXml, EverySectionIsLeftWhateverFails) {
    TStringTree tree;
    Fill(&tree);
    std::string const document = DocumentOf(tree);
    TFailingXmlReader whole(document);
    TStringTree read;
    ASSERT_TRUE(read.ReadFromXML(&whole, 0, nullptr));
    ASSERT_EQ(DocumentOf(read), document);

    // Kept: a tree below that is cut short doesn't stop the one above it, so the answer may be true.
    for (unsigned long failing = 0; failing < whole.Operations(); ++failing) {
        for (TFailure const how : {AloneFails, AllBehindFail}) {
            TFailingXmlReader reader(document, failing, how);
            TStringTree partly;
            bool const isRead = partly.ReadFromXML(&reader, 0, nullptr);
            EXPECT_EQ(reader.Depth(), 0u) << failing;
            EXPECT_FALSE(isRead && how == AllBehindFail) << failing;
        }
    }
}

} // namespace
