#include "tests/docs/Document.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <string>

// Every work that the code or a document cites stands in docs/bibliography.md.

namespace {

namespace fs = std::filesystem;

std::set<std::string> CitedKeys() {
    static std::regex const citation(R"(\[([A-Z][A-Za-z]*[0-9][A-Za-z0-9-]*)(?:, [^\]]*)?\](?!\())");
    std::set<std::string> keys;
    for (char const* const room :
         {"core", "shell", "frame", "hostkit", "tools", "bench", "catalog", "docs"}) {
        for (fs::directory_entry const& entry :
             fs::recursive_directory_iterator(fs::path(VELLARI_SOURCE_DIR) / room)) {
            std::string const extension = entry.path().extension();
            bool const isRead = extension == ".h" || extension == ".cpp" || extension == ".md";
            if (!isRead || entry.path().filename() == "bibliography.md") {
                continue;
            }
            std::string const text = Documents::ReadSource(fs::relative(entry.path(), VELLARI_SOURCE_DIR));
            for (std::sregex_iterator found(text.begin(), text.end(), citation), end; found != end; ++found) {
                keys.insert((*found)[1]);
            }
        }
    }
    return keys;
}

} // namespace

TEST(Bibliography, HasTheWorksThatAreCited) {
    std::set<std::string> told;
    for (Documents::TSection const& section : Documents::ReadDocument("bibliography.md")) {
        for (Documents::TRow const& row : section.rows) {
            EXPECT_TRUE(told.insert(row.at(0)).second) << row.at(0);
        }
    }
    for (std::string const& key : CitedKeys()) {
        EXPECT_EQ(told.count(key), 1U) << key << " is cited";
    }
    EXPECT_GE(told.size(), 10U);
}
