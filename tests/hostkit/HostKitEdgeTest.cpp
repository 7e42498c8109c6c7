#include "frame/NumberText.h"
#include "frame/imported/StringTree.h"
#include "hostkit/XmlIni.h"

#include <gtest/gtest.h>

#include <ctime>
#include <stdexcept>
#include <string>

using LumCommonUtils::TStringTree;
using VellariHostKit::TXmlIniReader;

namespace {

/** @return the error's text, or an empty one for a document that is read. */
std::string RefusalOf(std::string const& document) {
    TXmlIniReader reader;
    try {
        reader.LoadString(document);
    } catch (std::runtime_error const& error) {
        return error.what();
    }
    return {};
}

bool BeginsWith(std::string const& text, std::string const& beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

} // namespace

TEST(XmlIniReaderEdge, WhatXmlForbidsIsRefusedWithItsPlace) {
    struct {
        char const* document;
        char const* place;
    } const rows[] = {
        // productions AttValue, CharData, Comment and prolog of XML 1.0
        {"<a b=\"<\"/>", "<string>, line 1, column 7:"},
        {"<a>x]]></a>", "<string>, line 1, column 5:"},
        {"<a>\n<!-- x -- y --></a>", "<string>, line 2, column 8:"},
        {"<a/><?xml version=\"1.0\"?>", "<string>, line 1, column 5:"},
        {"<a><?xml version=\"1.0\"?></a>", "<string>, line 1, column 4:"},
        {" <?xml version=\"1.0\"?><a/>", "<string>, line 1, column 2:"},
        {"<?xml version=\"1.0\"?><?xml version=\"1.0\"?><a/>", "<string>, line 1, column 22:"},
    };
    for (auto const& row : rows) {
        std::string const refusal = RefusalOf(row.document);
        EXPECT_TRUE(BeginsWith(refusal, row.place)) << row.document << " -> " << refusal;
    }
}

TEST(XmlIniReaderEdge, WhatOnlyLooksForbiddenIsRead) {
    for (char const* const document : {
             "<?xml version=\"1.0\"?><a b=\">\"/>",
             "<a>x]] ></a>",
             "<a><![CDATA[<!-- x -- y < ]]></a>",
             "<a><!-- x - y < ]]> <?xml ?> --></a>",
             "<a><?target -- < ]]> ?></a>",
             "<a b=\"-- ]]&gt;\"/>",
             "<a b='\"' c=\"'\">'\"</a>",
         }) {
        EXPECT_EQ(RefusalOf(document), "") << document;
    }
}

TEST(XmlIniReaderEdge, ManyAttributesAreReadInLinearTime) {
    std::string document = "<a";
    for (int number = 0; number < 100000; ++number) {
        document += " a" + KvRefSystem::FormatText("%d", number) + "=\"\"";
    }
    std::clock_t const start = std::clock();
    EXPECT_EQ(RefusalOf(document + "/>"), "");
    EXPECT_NE(RefusalOf(document + " a7=\"\"/>"), "");
    // Comparing each with each takes half a minute.
    EXPECT_LT(std::clock() - start, 4 * CLOCKS_PER_SEC); // time of the processor: others may be at work
}

TEST(XmlIniReaderEdge, ManyFailingChildrenAreReadInLinearTime) {
    constexpr unsigned long Children = 100000;
    std::string document = "<a tag=\"0\" idx=\"0\" hdr=\"\"><field>";
    for (unsigned long child = 0; child < Children; ++child) {
        document += "<item/>";
    }
    document += "</field></a>";
    std::clock_t const start = std::clock();
    TXmlIniReader reader;
    reader.LoadString(document);
    TStringTree tree;
    EXPECT_TRUE(tree.ReadFromXML(&reader, 0, nullptr));
    EXPECT_EQ(tree.fields.Size(), Children);
    // Looking for the place of each failure from the beginning of the document takes half a minute.
    EXPECT_LT(std::clock() - start, 4 * CLOCKS_PER_SEC); // time of the processor: others may be at work
}
