#include "Failure.h"
#include "TempFolder.h"

#include "frame/imported/StringTree.h"
#include "hostkit/XmlIni.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>
#include <vector>

using LumCommonUtils::TStringTree;
using VellariHostKit::MaxXmlDepth;
using VellariHostKit::TXmlIniReader;
using VellariHostKit::TXmlIniWriter;

namespace {

std::string const declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

/** Writes a text as an element's value and as an attribute and reads both back. */
void ExpectSurvives(std::string const& value) {
    TXmlIniWriter writer;
    ASSERT_TRUE(writer.WriteS<std::string>("value", value));
    writer.SetAttributeMode(true);
    ASSERT_TRUE(writer.WriteS<std::string>("attribute", value));
    TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    EXPECT_EQ(reader.ReadE<std::string>(reader.FindFE("value", 0)), value);
    EXPECT_EQ(reader.ReadE<std::string>(reader.FindFE("attribute", 0)), value);
}

std::string TextOf(TStringTree const& tree) {
    std::string text(tree.WriteToString(nullptr, 0, 0), '?');
    tree.WriteToString(text.data(), 0, 0);
    return text;
}

} // namespace

TEST(XmlIniWriter, WritesSectionsIndentedAndCompactOnesOnOneLine) {
    TXmlIniWriter writer("System");
    writer.SetAttributeMode(true);
    EXPECT_TRUE(writer.WriteS<int>("tag", 5));
    EXPECT_TRUE(writer.WriteS<std::string>("hdr", "a \"b\""));
    writer.SetAttributeMode(false);
    EXPECT_TRUE(writer.WriteS<bool>("flag", true));
    unsigned long const field = writer.BeginSectionSE("field");
    unsigned long const item = writer.BeginSectionCompactSE("");
    EXPECT_TRUE(writer.WriteS<int>("tag", 1));
    unsigned long const data = writer.BeginSectionSE("data");
    EXPECT_TRUE(writer.WriteS<std::string>("", "x<y"));
    EXPECT_TRUE(writer.WriteS<std::string>("", ""));
    writer.EndSectionE(data);
    writer.EndSectionE(item);
    writer.EndSectionE(field);
    unsigned long const empty = writer.BeginSection("empty");
    EXPECT_TRUE(writer.EndSection(empty));
    EXPECT_EQ(writer.ToString(),
              declaration + "<System tag=\"5\" hdr=\"a &quot;b&quot;\">\n"
                            "    <flag>true</flag>\n"
                            "    <field>\n"
                            "        <item><tag>1</tag><data><item>x&lt;y</item><item/></data></item>\n"
                            "    </field>\n"
                            "    <empty/>\n"
                            "</System>\n");
}

TEST(XmlIniWriter, AnEmptyDocumentIsTheRootAlone) {
    EXPECT_EQ(TXmlIniWriter().ToString(), declaration + "<Vellari/>\n");
    EXPECT_EQ(TXmlIniWriter("5 x").ToString(), declaration + "<_x0035__x0020_x/>\n");
}

TEST(XmlIniWriter, UnnamedValuesKeepTheirOrderAndArePlacedByPosition) {
    TXmlIniWriter writer;
    std::vector<std::string> const values = {"b", "", "a", " ", "c"};
    for (std::string const& value : values) {
        ASSERT_TRUE(writer.WriteS<std::string>("", value));
    }
    TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    ASSERT_EQ(reader.ItemCount(), values.size());
    for (unsigned long item = 0; item < values.size(); ++item) {
        EXPECT_EQ(reader.FindF("", item), item);
        EXPECT_EQ(reader.ReadE<std::string>(item), values[item]);
    }
}

TEST(XmlIniWriter, NastyTextsSurvive) {
    for (std::string const& value : {std::string(),
                                     std::string(" "),
                                     std::string("\n"),
                                     std::string("\r"),
                                     std::string("\t"),
                                     std::string("\r\n a \r\n"),
                                     std::string("  leading and trailing  "),
                                     std::string("a\0b\0", 4),
                                     std::string("\x01\x08\x0B\x0C\x1F\x7F"),
                                     std::string("<&>\"'"),
                                     std::string("]]>"),
                                     std::string("<!-- x -->"),
                                     std::string("<![CDATA[x]]>"),
                                     std::string("&amp;&#10;&lt;"),
                                     std::string("_x0041_"),
                                     std::string("__x005F_"),
                                     std::string("_x005F_x0041_"),
                                     std::string("\xFF\xFE\xC3("),
                                     std::string("\xEF\xBF\xBE"),
                                     std::string("\xEF\xBB\xBF"),
                                     std::string("Широта 55°45′ \xF0\x9F\x8C\x8D"),
                                     std::string("\\t\\"),
                                     std::string("\xC2\x85\xE2\x80\xA8")}) {
        ExpectSurvives(value);
    }
}

TEST(XmlIniWriter, AnyBytesSurvive) {
    std::mt19937 generator(31337);
    for (int round = 0; round < 300; ++round) {
        std::string value(generator() % 50, '\0');
        for (char& byte : value) {
            unsigned const draw = static_cast<unsigned>(generator());
            byte = draw & 1024u ? "_x0&<> \r\n\t;#\"]"[draw % 15] : static_cast<char>(draw % 256);
        }
        ExpectSurvives(value);
    }
}

TEST(XmlIniWriter, PlainTextsStayPlain) {
    TXmlIniWriter writer;
    ASSERT_TRUE(writer.WriteS<std::string>("name", "WGS 84, Широта: C:\\x_y"));
    EXPECT_EQ(writer.ToString(),
              declaration + "<Vellari>\n    <name>WGS 84, Широта: C:\\x_y</name>\n</Vellari>\n");
}

TEST(XmlIniWriter, AnyKeyNamesASectionAndAValue) {
    for (char const* const key : {"a b", "1", "x:y", "<", "°", "\xFF", "Широта", "_x0041_", "-", "\x01"}) {
        TXmlIniWriter writer;
        writer.EndSectionE(writer.BeginSectionSE(key));
        ASSERT_TRUE(writer.WriteS<int>(key, 7));
        TXmlIniReader reader;
        reader.LoadString(writer.ToString());
        EXPECT_EQ(reader.FindF(key, 0), 0u);
        EXPECT_EQ(reader.FindF(key, 1), 1u);
        EXPECT_TRUE(reader.LeaveSection(reader.EnterSectionSE(key)));
        EXPECT_EQ(reader.ReadE<int>(1), 7);
    }
}

TEST(XmlIniWriter, AttributesNeedAKeyOfTheirOwn) {
    TXmlIniWriter writer;
    writer.SetAttributeMode(true);
    EXPECT_FALSE(writer.WriteS<int>("", 1));
    EXPECT_EQ(FailureOf([&] { writer.RaiseError(); }), "XML can't be written: an attribute without a key");
    EXPECT_TRUE(writer.WriteS<int>("a", 1));
    EXPECT_FALSE(writer.WriteS<int>("a", 2));
    EXPECT_EQ(FailureOf([&] { writer.RaiseError(); }),
              "XML can't be written: the attribute \"a\" stands twice in one section");
    EXPECT_EQ(writer.ToString(), declaration + "<Vellari a=\"1\"/>\n");
}

TEST(XmlIniWriter, AttributesMayFollowElements) {
    TXmlIniWriter writer;
    EXPECT_TRUE(writer.WriteS<int>("x", 1));
    writer.SetAttributeMode(true);
    EXPECT_TRUE(writer.WriteS<int>("a", 2));
    EXPECT_EQ(writer.ToString(), declaration + "<Vellari a=\"2\">\n    <x>1</x>\n</Vellari>\n");
}

TEST(XmlIniWriter, RaiseErrorAlwaysThrows) {
    TXmlIniWriter writer;
    EXPECT_EQ(FailureOf([&] { writer.RaiseError(); }), "XML can't be written: nothing failed so far");
}

TEST(XmlIniWriter, SectionsAreClosedInOrder) {
    TXmlIniWriter writer;
    unsigned long const outer = writer.BeginSectionSE("outer");
    unsigned long const inner = writer.BeginSectionSE("inner");
    EXPECT_FALSE(writer.EndSection(outer));
    EXPECT_EQ(FailureOf([&] { writer.EndSectionE(outer); }),
              "XML can't be written: the section 1 that is to be closed is not the current one");
    writer.EndSectionE(inner);
    EXPECT_EQ(FailureOf([&] { writer.ToString(); }), "the section \"outer\" is still open");
    EXPECT_TRUE(writer.EndSection(outer));
    EXPECT_FALSE(writer.EndSection(outer));
    EXPECT_FALSE(writer.EndSection(0));
}

TEST(XmlIniWriter, SectionsThatNoReaderWouldTakeAreNotOpened) {
    TXmlIniWriter writer;
    std::vector<unsigned long> open;
    while (unsigned long const handle = writer.BeginSection("s")) {
        open.push_back(handle);
        ASSERT_LE(open.size(), MaxXmlDepth);
    }
    EXPECT_THROW(writer.BeginSectionSE("s"), std::runtime_error);
    EXPECT_THROW(writer.BeginSectionCompactSE("s"), std::runtime_error);
    EXPECT_EQ(FailureOf([&] { writer.RaiseError(); }),
              "XML can't be written: sections are nested deeper than 999");
    EXPECT_TRUE(writer.WriteS<int>("v", 1));
    for (auto handle = open.rbegin(); handle != open.rend(); ++handle) {
        writer.EndSectionE(*handle);
    }
    TXmlIniReader reader;
    EXPECT_NO_THROW(reader.LoadString(writer.ToString()));
}

TEST(XmlIniWriter, SavesAFileThatReadsBack) {
    TempFolder const folder;
    std::string const file = folder.Put("out.xml", "old");
    TXmlIniWriter writer;
    ASSERT_TRUE(writer.WriteS<std::string>("k", "v"));
    writer.SaveFile(file);
    EXPECT_EQ(TempFolder::Read(file), writer.ToString());
    EXPECT_EQ(folder.FileCount(), 1u);
    TXmlIniReader reader;
    reader.LoadFile(file);
    EXPECT_EQ(reader.ReadE<std::string>(0), "v");
}

TEST(XmlIniWriter, AFailedSaveLeavesNothing) {
    TempFolder const folder;
    TXmlIniWriter writer;
    std::string const missing = folder.File("missing/out.xml");
    EXPECT_EQ(FailureOf([&] { writer.SaveFile(missing); }),
              missing + ": can't be written: No such file or directory");
    std::string const file = folder.Put("out.xml", "old");
    writer.BeginSectionSE("open");
    EXPECT_EQ(FailureOf([&] { writer.SaveFile(file); }), "the section \"open\" is still open");
    EXPECT_EQ(TempFolder::Read(file), "old");
    EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(XmlIni, AStringTreeSurvives) {
    TStringTree tree(0, 0, nullptr, "a <header>");
    std::string everything;
    for (int byte = 0; byte < 256; ++byte) {
        everything += static_cast<char>(byte);
    }
    ASSERT_TRUE(tree.InsertString("code & more", 5301, 0, everything));
    std::string values[] = {"A", "", " B "};
    ASSERT_TRUE(tree.InsertField("", 5320, 1, values, 3));
    ASSERT_TRUE(tree.InsertSubtree("unit", 7, 2));
    ASSERT_TRUE(tree.InsertSubtree("second", 7, 3));
    ASSERT_TRUE(tree.FindSubtree(7, 2)->InsertDouble("coefficient", 1, 0, 0.1));
    ASSERT_TRUE(tree.FindSubtree(7, 2)->InsertSubtree("empty", 8, 0));
    TXmlIniWriter writer;
    ASSERT_TRUE(tree.WriteToXML(&writer));
    TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    TStringTree read;
    ASSERT_TRUE(read.ReadFromXML(&reader, 0, nullptr));
    EXPECT_EQ(TextOf(read), TextOf(tree));
}

TEST(XmlIni, AFieldsSectionStandsOnOneLine) {
    TStringTree tree;
    ASSERT_TRUE(tree.InsertString("code", 5301, 0, "0"));
    TXmlIniWriter writer;
    ASSERT_TRUE(tree.WriteToXML(&writer));
    EXPECT_EQ(
        writer.ToString(),
        declaration +
            "<Vellari tag=\"0\" idx=\"0\" hdr=\"\">\n"
            "    <field>\n"
            "        <item><tag>5301</tag><idx>0</idx><hdr>code</hdr><data><item>0</item></data></item>\n"
            "    </field>\n"
            "</Vellari>\n");
}
