#include "tests/docs/Document.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

// The code in docs/host.md is that of examples/embedding, which is compiled and run.

namespace {

char const* const Document = "host.md";

std::string Indented(std::string const& text, std::string const& blanks) {
    std::string result;
    bool atBegin = true;
    for (char const c : text) {
        if (atBegin && c != '\n') {
            result += blanks;
        }
        result += c;
        atBegin = c == '\n';
    }
    return result;
}

/** @return whether the piece stands in the source, indented by up to three levels. */
bool Holds(std::string const& source, std::string const& piece) {
    for (char const* const blanks : {"", "    ", "        ", "            "}) {
        if (source.find('\n' + Indented(piece, blanks)) != std::string::npos) {
            return true;
        }
    }
    return false;
}

std::string OutputOf(std::string const& command) {
    std::unique_ptr<FILE, int (*)(FILE*)> const pipe(popen(command.c_str(), "r"), pclose);
    std::string output;
    std::array<char, 256> buffer;
    while (pipe && fgets(buffer.data(), static_cast<int>(buffer.size()), pipe.get()) != nullptr) {
        output += buffer.data();
    }
    return output;
}

} // namespace

TEST(QuotedCode, StandsInTheExamples) {
    std::string const sources = Documents::ReadSource("examples/embedding/main.cpp") +
                                Documents::ReadSource("examples/embedding/geoid.cpp");
    std::vector<std::string> const pieces = Documents::QuotesOf(Document, "cpp");
    EXPECT_GT(pieces.size(), 8U);
    for (std::string const& piece : pieces) {
        EXPECT_TRUE(Holds(sources, piece)) << piece;
    }
}

TEST(QuotedCode, OfCMakeIsThatOfTheExample) {
    EXPECT_EQ(Documents::QuotesOf(Document, "cmake"),
              std::vector<std::string>{Documents::ReadSource("examples/embedding/CMakeLists.txt")});
}

TEST(QuotedCode, PrintsWhatTheDocumentShows) {
    std::vector<std::string> const shown = Documents::QuotesOf(Document, "text");
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(OutputOf("'" VELLARI_EMBEDDING "' '" VELLARI_SOURCE_DIR "/catalog'"), shown.front());
}
