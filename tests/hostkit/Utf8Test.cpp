#include "hostkit/Utf8.h"

#include <gtest/gtest.h>

#include <string>

using VellariHostKit::DecodeUtf8;
using VellariHostKit::FindInvalidUtf8;

TEST(Utf8, DecodesEachLength) {
    struct Row {
        std::string text;
        char32_t code;
    };
    // First and last code point of each length.
    Row const rows[] = {
        {std::string(1, '\0'), 0x0},   {"\x7F", 0x7F},           {"\xC2\x80", 0x80},
        {"\xDF\xBF", 0x7FF},           {"\xE0\xA0\x80", 0x800},  {"\xED\x9F\xBF", 0xD7FF},
        {"\xEE\x80\x80", 0xE000},      {"\xEF\xBF\xBF", 0xFFFF}, {"\xF0\x90\x80\x80", 0x10000},
        {"\xF4\x8F\xBF\xBF", 0x10FFFF}};
    for (Row const& row : rows) {
        EXPECT_EQ(DecodeUtf8(row.text + "x").code, row.code);
        EXPECT_EQ(DecodeUtf8(row.text + "x").length, row.text.size());
    }
}

TEST(Utf8, FindsTheFirstByteThatDoesNotBelong) {
    EXPECT_EQ(FindInvalidUtf8("Широта 1°"), std::string::npos);
    EXPECT_EQ(FindInvalidUtf8(""), std::string::npos);
    // Alone, cut short, overlong, a surrogate, beyond the last code point, never a lead byte.
    for (char const* const bad :
         {"\x80", "\xC3", "\xC3(", "\xE2\x82", "\xC0\x80", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80",
          "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF"}) {
        EXPECT_EQ(FindInvalidUtf8(std::string("aШ") + bad), 3u);
    }
}
