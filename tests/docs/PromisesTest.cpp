#include "tests/docs/Document.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

/** The names by which tests are called: of the test framework, and those that the build configuration adds. */
std::set<std::string> NamesOfTests() {
    fs::path const root = VELLARI_SOURCE_DIR;
    std::set<std::string> names;
    std::regex const test(R"((?:TEST|TEST_F|TEST_P|TYPED_TEST)\(\s*(\w+)\s*,\s*(\w+)\s*\))");
    std::regex const added(R"(NAME\s+([A-Za-z_]+\.[A-Za-z_]+))");
    auto const collect = [&names](std::string const& text, std::regex const& expression) {
        for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
            names.insert(match->size() == 3 ? (*match)[1].str() + "." + (*match)[2].str()
                                            : (*match)[1].str());
        }
    };
    for (fs::directory_entry const& entry : fs::recursive_directory_iterator(root / "tests")) {
        std::string const path = fs::relative(entry.path(), root).generic_string();
        if (entry.path().extension() == ".cpp") {
            collect(Documents::ReadSource(path), test);
        } else if (entry.path().filename() == "CMakeLists.txt") {
            collect(Documents::ReadSource(path), added);
        }
    }
    for (fs::directory_entry const& entry : fs::directory_iterator(root / "cmake")) {
        collect(Documents::ReadSource(fs::relative(entry.path(), root).generic_string()), added);
    }
    return names;
}

std::set<std::string> TargetsOfMake() {
    std::set<std::string> targets;
    std::string const makefile = Documents::ReadSource("Makefile");
    std::regex const target(R"(^([a-z-]+):)", std::regex::multiline);
    for (std::sregex_iterator match(makefile.begin(), makefile.end(), target), end; match != end; ++match) {
        targets.insert("make " + (*match)[1].str());
    }
    return targets;
}

/** The proofs of a cell: names apart by commas. */
std::vector<std::string> ProofsIn(std::string const& cell) {
    std::vector<std::string> proofs;
    std::regex const comma(R"(\s*,\s*)");
    for (std::sregex_token_iterator part(cell.begin(), cell.end(), comma, -1), end; part != end; ++part) {
        if (part->length() > 0) {
            proofs.push_back(part->str());
        }
    }
    return proofs;
}

} // namespace

TEST(Promises, EachIsProvedByATestThatExists) {
    auto const tests = NamesOfTests();
    auto const targets = TargetsOfMake();
    ASSERT_GT(tests.size(), 2000u);
    int promises = 0;
    for (Documents::TSection const& section : Documents::ReadDocument("promises.md")) {
        for (Documents::TRow const& row : section.rows) {
            ++promises;
            ASSERT_GE(row.size(), 2u) << section.heading;
            auto const proofs = ProofsIn(row.back());
            EXPECT_FALSE(proofs.empty()) << "nothing proves \"" << row.front() << '"';
            for (std::string const& proof : proofs) {
                EXPECT_TRUE(tests.count(proof) || targets.count(proof))
                    << '"' << proof << "\" is neither a test nor a target of make; it is to prove \""
                    << row.front() << '"';
            }
        }
    }
    EXPECT_GT(promises, 40) << "the tables of the document aren't read";
}
