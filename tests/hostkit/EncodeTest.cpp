#include "frame/imported/StringTree.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using LumCommonUtils::Decode;
using LumCommonUtils::Encode;

namespace {

std::string Encoded(std::string const& plain) {
    std::string text(Encode(plain.data(), plain.size(), nullptr, 0), '?');
    EXPECT_EQ(Encode(plain.data(), plain.size(), text.data(), 0), text.size());
    return text;
}

std::string Decoded(std::string const& text) {
    std::string plain = "leftover";
    EXPECT_TRUE(Decode(text, &plain));
    return plain;
}

} // namespace

TEST(Encode, EscapesExactlyBackslashTabLineFeedCarriageReturnAndZero) {
    EXPECT_EQ(Encoded(std::string("a\\b\tc\nd\re\0f", 11)), "a\\\\b\\tc\\nd\\re\\0f");
    for (int byte = 1; byte < 256; ++byte) {
        char const letter = static_cast<char>(byte);
        bool const isEscaped = letter == '\\' || letter == '\t' || letter == '\n' || letter == '\r';
        EXPECT_EQ(Encoded(std::string(1, letter)).size(), isEscaped ? 2u : 1u) << byte;
    }
}

TEST(Encode, LeavesBlanksQuotesPercentSignsAndUtf8Alone) {
    EXPECT_EQ(Encoded("  \"50%\" <Широта> "), "  \"50%\" <Широта> ");
}

TEST(Encode, WritesAtThePositionAndNothingElse) {
    std::string buffer = "0123456789";
    EXPECT_EQ(Encode("\ta", 2, buffer.data(), 4), 3u);
    EXPECT_EQ(buffer, "0123\\ta789");
}

TEST(Encode, OnlyMeasuresWithoutABuffer) {
    EXPECT_EQ(Encode("a\nb", 3, nullptr, 1000), 4u);
    EXPECT_EQ(Encode(nullptr, 0, nullptr, 0), 0u);
}

TEST(Decode, KeepsAnUnknownEscapeAsItIs) {
    EXPECT_EQ(Decoded("\\x\\N\\ "), "\\x\\N\\ ");
}

TEST(Decode, KeepsALoneFinalBackslash) {
    EXPECT_EQ(Decoded("a\\"), "a\\");
    EXPECT_EQ(Decoded("a\\\\\\"), "a\\\\");
}

TEST(Decode, ReadsEscapesFromLeftToRight) {
    EXPECT_EQ(Decoded("\\\\t"), "\\t");
    EXPECT_EQ(Decoded("\\\\\\t"), "\\\t");
}

TEST(Decode, InvertsEncodeForAnyBytes) {
    std::mt19937 generator(20240229);
    for (int round = 0; round < 500; ++round) {
        std::string plain(generator() % 40, '\0');
        for (char& byte : plain) {
            unsigned const draw = static_cast<unsigned>(generator());
            // Half of the bytes are the ones that matter.
            byte = draw & 256u ? "\\\t\n\rtnr0"[draw % 8] : static_cast<char>(draw % 256);
        }
        EXPECT_EQ(Decoded(Encoded(plain)), plain);
        EXPECT_EQ(Encoded(plain).find_first_of(std::string("\t\n\r\0", 4)), std::string::npos);
    }
}
