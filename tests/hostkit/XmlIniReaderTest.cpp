#include "Failure.h"
#include "TempFolder.h"

#include "hostkit/XmlIni.h"

#include <gtest/gtest.h>

#include <string>

using VellariHostKit::MaxXmlDepth;
using VellariHostKit::TXmlIniReader;

namespace {

constexpr unsigned long nothing = TKvXIniReader::NotFound;

std::string LoadFailure(std::string const& document) {
    TXmlIniReader reader;
    return FailureOf([&] { reader.LoadString(document); });
}

std::string Repeated(std::string const& text, unsigned long count) {
    std::string all;
    for (unsigned long index = 0; index < count; ++index) {
        all += text;
    }
    return all;
}

} // namespace

TEST(XmlIniReader, StartsAtAnEmptyRoot) {
    TXmlIniReader reader;
    EXPECT_EQ(reader.RootName(), "Vellari");
    EXPECT_EQ(reader.ItemCount(), 0u);
}

TEST(XmlIniReader, NumbersAttributesBeforeElements) {
    TXmlIniReader reader;
    reader.LoadString("<root b='1' a='2'><x>3</x><!-- no item --><y><z>4</z></y>\n  <x>5</x></root>");
    EXPECT_EQ(reader.RootName(), "root");
    EXPECT_EQ(reader.ItemCount(), 5u);
    EXPECT_EQ(reader.FindF("b", 0), 0u);
    EXPECT_EQ(reader.FindF("a", 0), 1u);
    EXPECT_EQ(reader.FindF("x", 0), 2u);
    EXPECT_EQ(reader.FindF("x", 3), 4u);
    EXPECT_EQ(reader.FindF("x", 5), nothing);
    EXPECT_EQ(reader.FindF("X", 0), nothing);
    EXPECT_EQ(reader.Read<int>(1, 0), 2);
    EXPECT_EQ(reader.Read<int>(4, 0), 5);
    EXPECT_EQ(reader.Read<int>(3, -1), -1);
}

TEST(XmlIniReader, TellsSectionsFromValues) {
    TXmlIniReader reader;
    reader.LoadString(
        "<r a='1'><value>text</value><section><x/></section><both k='v'>text</both><empty/></r>");
    EXPECT_FALSE(reader.IsSection(0));
    EXPECT_FALSE(reader.IsSection(1));
    EXPECT_TRUE(reader.IsSection(2));
    EXPECT_TRUE(reader.IsSection(3));
    EXPECT_TRUE(reader.IsSection(4));
    EXPECT_FALSE(reader.IsSection(5));
    EXPECT_FALSE(reader.IsSection(nothing));
    EXPECT_EQ(reader.ReadE<std::string>(3), "text");
    EXPECT_EQ(reader.ReadE<std::string>(4), "");
    EXPECT_EQ(reader.Read<std::string>(2, "none"), "none");
}

TEST(XmlIniReader, EntersAndLeavesSections) {
    TXmlIniReader reader;
    reader.LoadString("<r><a><b><c>1</c></b></a><d>2</d></r>");
    unsigned long const a = reader.EnterSection(0);
    ASSERT_NE(a, 0u);
    unsigned long const b = reader.EnterSectionSE("b");
    ASSERT_NE(b, 0u);
    EXPECT_EQ(reader.ReadE<int>(reader.FindFE("c", 0)), 1);
    EXPECT_FALSE(reader.LeaveSection(a));
    EXPECT_TRUE(reader.LeaveSection(b));
    EXPECT_FALSE(reader.LeaveSection(b));
    EXPECT_TRUE(reader.LeaveSection(a));
    EXPECT_FALSE(reader.LeaveSection(0));
    EXPECT_EQ(reader.ReadE<int>(1), 2);
    EXPECT_EQ(reader.EnterSection(1), 0u);
    EXPECT_EQ(reader.EnterSection(2), 0u);
    EXPECT_EQ(reader.EnterSection(nothing), 0u);
}

TEST(XmlIniReader, EnteringByNameSkipsValues) {
    TXmlIniReader reader;
    reader.LoadString("<r data='0'><data>1</data><data><x>2</x></data></r>");
    unsigned long const handle = reader.EnterSectionSE("data");
    EXPECT_EQ(reader.ReadE<int>(reader.FindFE("x", 0)), 2);
    reader.LeaveSectionE(handle);
}

TEST(XmlIniReader, FailuresNameThePlace) {
    TXmlIniReader reader;
    reader.LoadString("<r>\n <a>\n  <b>x</b></a></r>");
    reader.EnterSectionE(0);
    EXPECT_EQ(FailureOf([&] { reader.FindFE("tag", 0); }),
              "there is no item \"tag\" in \"r/a\" (<string>, line 2, column 3)");
    EXPECT_EQ(FailureOf([&] { reader.ReadE<int>(0); }),
              "item 0 is \"x\" instead of a whole number in \"r/a\" (<string>, line 2, column 3)");
    EXPECT_EQ(FailureOf([&] { reader.EnterSectionE(0); }),
              "item 0 is not a section in \"r/a\" (<string>, line 2, column 3)");
    EXPECT_EQ(FailureOf([&] { reader.EnterSectionE(nothing); }),
              "there is no such section in \"r/a\" (<string>, line 2, column 3)");
    EXPECT_EQ(FailureOf([&] { reader.EnterSectionSE("b"); }),
              "there is no section \"b\" in \"r/a\" (<string>, line 2, column 3)");
    EXPECT_EQ(
        FailureOf([&] { reader.LeaveSectionE(77); }),
        "the section 77 that is to be left is not the current one in \"r/a\" (<string>, line 2, column 3)");
}

TEST(XmlIniReader, UnderstandsEntitiesReferencesAndCharacterData) {
    TXmlIniReader reader;
    reader.LoadString(
        "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?>\n<!-- & < -->\n"
        "<r a='&quot;&#x428;&#13;'><x>&lt;<![CDATA[ & <b> ]]>&amp;&apos;&gt;</x><?do & it?></r>\n");
    EXPECT_EQ(reader.ReadE<std::string>(0), "\"Ш\r");
    EXPECT_EQ(reader.ReadE<std::string>(1), "< & <b> &'>");
    EXPECT_EQ(reader.ItemCount(), 2u);
}

TEST(XmlIniReader, MalformedDocumentsAreRefusedWithLineAndColumn) {
    EXPECT_EQ(LoadFailure("<a>\n  <b>\n</a>"), "<string>, line 3, column 3: Start-end tags mismatch");
    EXPECT_EQ(LoadFailure("<a>\n<b x=1/></a>"),
              "<string>, line 2, column 6: Error parsing element attribute");
    EXPECT_EQ(LoadFailure("<a><b"), "<string>, line 1, column 5: Error parsing start element tag");
    EXPECT_EQ(LoadFailure("<a><!-- "), "<string>, line 1, column 8: Error parsing comment");
    // The column counts characters, not bytes.
    EXPECT_EQ(LoadFailure("<a>Широта</b>"), "<string>, line 1, column 12: Start-end tags mismatch");
}

TEST(XmlIniReader, ADocumentWithoutExactlyOneRootIsRefused) {
    EXPECT_EQ(LoadFailure(""), "<string>, line 1, column 1: there is no element");
    EXPECT_EQ(LoadFailure("<?xml version='1.0'?>\n"), "<string>, line 2, column 1: there is no element");
    EXPECT_EQ(LoadFailure("<a/>\n<b/>"),
              "<string>, line 2, column 2: the element \"b\" follows the root element");
    EXPECT_EQ(LoadFailure("(0,0)\n"), "<string>, line 1, column 1: text outside of the root element");
    // The text begins with its blank.
    EXPECT_EQ(LoadFailure("<a/> x"), "<string>, line 1, column 5: text outside of the root element");
}

TEST(XmlIniReader, BytesThatAreNoTextAreRefused) {
    EXPECT_EQ(LoadFailure("<a>\n\xCC\xE5</a>"), "<string>, line 2, column 1: the byte 0xCC is not UTF-8");
    EXPECT_EQ(LoadFailure(std::string("<a>\0</a>", 8)),
              "<string>, line 1, column 4: XML can't hold the character U+0000");
    EXPECT_EQ(LoadFailure("<a>\x01</a>"), "<string>, line 1, column 4: XML can't hold the character U+0001");
}

TEST(XmlIniReader, UnknownReferencesAreRefused) {
    for (char const* const reference : {"&", "& ", "&amp", "&nbsp;", "&#;", "&#x;", "&#0;", "&#x110000;",
                                        "&#1a;", "&#99999999999999999999;", "&;"}) {
        EXPECT_EQ(LoadFailure(std::string("<a>\n x") + reference + "</a>"),
                  "<string>, line 2, column 3: an \"&\" that doesn't begin a known reference; a plain one is "
                  "\"&amp;\"")
            << reference;
    }
}

TEST(XmlIniReader, DocumentTypesAreRefusedSoThatNothingIsExpanded) {
    EXPECT_NE(LoadFailure("<!DOCTYPE a [<!ENTITY x 'y'>]>\n<a>&x;</a>")
                  .find("a document type declaration isn't read"),
              std::string::npos);
}

TEST(XmlIniReader, AnAttributeThatStandsTwiceIsRefused) {
    EXPECT_EQ(LoadFailure("<a><b x='1' y='2' x='3'/></a>"),
              "<string>, line 1, column 5: the element \"b\" has the attribute \"x\" twice");
}

TEST(XmlIniReader, DeepDocumentsAreRefused) {
    TXmlIniReader reader;
    reader.LoadString(Repeated("<a>", MaxXmlDepth) + Repeated("</a>", MaxXmlDepth));
    for (unsigned long depth = 1; depth < MaxXmlDepth; ++depth) {
        ASSERT_NE(reader.EnterSection(0), 0u);
    }
    EXPECT_EQ(reader.ItemCount(), 0u);
    unsigned long const deep = MaxXmlDepth + 1;
    EXPECT_EQ(LoadFailure(Repeated("<a>", deep) + Repeated("</a>", deep)),
              "<string>, line 1, column 3002: elements are nested deeper than 1000");
    EXPECT_NE(LoadFailure(Repeated("<a>", 300000) + Repeated("</a>", 300000)).find("nested deeper than 1000"),
              std::string::npos);
    EXPECT_NE(LoadFailure(Repeated("<a>", 300000)).find("<string>, line 1, column "), std::string::npos);
}

TEST(XmlIniReader, AFailedLoadLeavesTheReaderAsItWas) {
    TXmlIniReader reader;
    reader.LoadString("<r><a><b>1</b></a></r>");
    reader.EnterSectionE(0);
    EXPECT_THROW(reader.LoadString("<x>"), std::runtime_error);
    EXPECT_EQ(reader.ReadE<int>(reader.FindFE("b", 0)), 1);
    reader.LoadString("<new><y>2</y></new>");
    EXPECT_EQ(reader.RootName(), "new");
    EXPECT_EQ(reader.ReadE<int>(reader.FindFE("y", 0)), 2);
}

TEST(XmlIniReader, ReadsFilesAndNamesThemInErrors) {
    TempFolder const folder;
    TXmlIniReader reader;
    reader.LoadFile(folder.Put("good.xml", "<r><a>1</a></r>"));
    EXPECT_EQ(reader.ReadE<int>(0), 1);
    std::string const bad = folder.Put("bad.xml", "<r>\n<a></r>");
    EXPECT_EQ(FailureOf([&] { reader.LoadFile(bad); }), bad + ", line 2, column 6: Start-end tags mismatch");
    std::string const missing = folder.File("missing.xml");
    EXPECT_EQ(FailureOf([&] { reader.LoadFile(missing); }),
              missing + ": can't be read: No such file or directory");
}

TEST(XmlIniReader, EveryPrefixOfADocumentIsRefused) {
    std::string const document = "<r a=\"1\"><b c='&lt;'>t&#65;</b><![CDATA[x]]><!-- y --></r>";
    for (std::size_t length = 0; length < document.size(); ++length) {
        EXPECT_NE(LoadFailure(document.substr(0, length)).find("<string>, line 1, column "),
                  std::string::npos)
            << length;
    }
}
