#include "hostkit/XmlText.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace VellariHostKit;

TEST(XmlText, PlainTextsStayPlain) {
    for (char const* const text :
         {"", "WGS 84", "Широта 55°", "a_b", "_x", "_x00", "_x0041", "_xABCD_", "_x004G_", "C:\\data\\x.txt",
          "<&>\"'", "a\tb\nc\rd", "\xF0\x9F\x8C\x8D"}) {
        EXPECT_EQ(EscapeValue(text), text);
        EXPECT_EQ(UnescapeValue(text), text);
    }
}

TEST(XmlText, BytesThatXmlCannotHoldAreEscaped) {
    EXPECT_EQ(EscapeValue(std::string("\0\x01\x1F", 3)), "_x0000__x0001__x001F_");
    EXPECT_EQ(EscapeValue("\xFF\xC3(\x80"), "_x00FF__x00C3_(_x0080_");
    // U+FFFE and U+FFFF are UTF-8, but no characters of XML; U+FFFD is one.
    EXPECT_EQ(EscapeValue("\xEF\xBF\xBE\xEF\xBF\xBF\xEF\xBF\xBD"),
              "_x00EF__x00BF__x00BE__x00EF__x00BF__x00BF_\xEF\xBF\xBD");
}

TEST(XmlText, ATextThatLooksLikeAnEscapeIsEscaped) {
    EXPECT_EQ(EscapeValue("a_x0041_b"), "a_x005F_x0041_b");
    EXPECT_EQ(UnescapeValue("a_x005F_x0041_b"), "a_x0041_b");
    EXPECT_EQ(UnescapeValue("_x0041__x0062_"), "Ab");
    EXPECT_EQ(UnescapeValue("_x004a_"), "J");
}

TEST(XmlText, ATextIsEscapedThatTheNextEscapeWouldFinish) {
    // Without the first escape the underscore of the second one would make "_x000A_".
    EXPECT_EQ(EscapeValue("_x000A\x0F_"), "_x005F_x000A_x000F__");
    EXPECT_EQ(EscapeValue("_x0041\xFF"), "_x005F_x0041_x00FF_");
    EXPECT_EQ(NameOf("_x0041 b"), "_x005F_x0041_x0020_b");
    for (char const* const value : {"_x000A\x0F_", "_x0041\xFF", "_x0041_x0042\x01", "_x0041_\x01"}) {
        EXPECT_EQ(UnescapeValue(EscapeValue(value)), value);
    }
}

TEST(XmlText, UnescapeInvertsEscapeForAnyBytes) {
    std::mt19937 generator(4242);
    for (int round = 0; round < 1000; ++round) {
        std::string value(generator() % 30, '\0');
        for (char& byte : value) {
            unsigned const draw = static_cast<unsigned>(generator());
            byte = draw & 1024u ? "_x00_x5F"[draw % 8] : static_cast<char>(draw % 256);
        }
        EXPECT_EQ(UnescapeValue(EscapeValue(value)), value);
    }
}

TEST(XmlText, KeysThatAreNamesStayAsTheyAre) {
    for (char const* const key : {"tag", "RefSystemType", "_a", "a-b.c1", "Широта", "a_b"}) {
        EXPECT_EQ(NameOf(key), key);
    }
}

TEST(XmlText, KeysThatAreNoNamesAreEscaped) {
    EXPECT_EQ(NameOf("1a"), "_x0031_a");
    EXPECT_EQ(NameOf("-a"), "_x002D_a");
    EXPECT_EQ(NameOf("a b"), "a_x0020_b");
    EXPECT_EQ(NameOf("a:b<"), "a_x003A_b_x003C_");
    EXPECT_EQ(NameOf("5°"), "_x0035__x00C2__x00B0_");
    EXPECT_EQ(NameOf(std::string("\0", 1)), "_x0000_");
    EXPECT_EQ(NameOf("_x0041_"), "_x005F_x0041_");
}

TEST(XmlText, AnEmptyKeyIsCalledItem) {
    EXPECT_EQ(NameOf(""), "item");
}

TEST(XmlText, MarkupAndWhatParsersChangeBecomesReferences) {
    EXPECT_EQ(EscapeMarkup("a<b>&\"c'"), "a&lt;b&gt;&amp;&quot;c'");
    EXPECT_EQ(EscapeMarkup(" a  b "), "&#32;a  b&#32;");
    EXPECT_EQ(EscapeMarkup("\t\r\n"), "&#9;&#13;&#10;");
    EXPECT_EQ(EscapeMarkup(" "), "&#32;");
    EXPECT_EQ(EscapeMarkup(""), "");
}

TEST(XmlText, KnowsTheCharactersOfXml) {
    for (char32_t const code : {0x9, 0xA, 0xD, 0x20, 0x7F, 0xD7FF, 0xE000, 0xFFFD, 0x10000, 0x10FFFF}) {
        EXPECT_TRUE(IsXmlCharacter(code));
    }
    for (char32_t const code : {0x0, 0x8, 0xB, 0x1F, 0xD800, 0xDFFF, 0xFFFE, 0xFFFF, 0x110000}) {
        EXPECT_FALSE(IsXmlCharacter(code));
    }
}
