#include "tests/docs/Document.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <string>

// The table of docs/host.md tells which test does each thing that it allows.

namespace {

constexpr char const* Ending = "InThreads";

/** What is named like tests with threads: "PointsInThreads.WhatFailsFailsForAll", "UnitsInThreads.*". */
std::set<std::string> TestsNamedInTheDocument() {
    std::regex const name("[A-Za-z]+InThreads\\.(\\*|[A-Za-z]+)");
    std::string const text = Documents::ReadSource("docs/host.md");
    return {std::sregex_token_iterator(text.begin(), text.end(), name), std::sregex_token_iterator()};
}

/** @return the names of the tests, and of each suite as a whole. */
std::set<std::string> TestsOfThisProgram() {
    std::set<std::string> names;
    testing::UnitTest const& program = *testing::UnitTest::GetInstance();
    for (int suite = 0; suite < program.total_test_suite_count(); ++suite) {
        testing::TestSuite const& tests = *program.GetTestSuite(suite);
        names.insert(std::string(tests.name()) + ".*");
        for (int test = 0; test < tests.total_test_count(); ++test) {
            names.insert(std::string(tests.name()) + '.' + tests.GetTestInfo(test)->name());
        }
    }
    return names;
}

bool IsWithThreads(std::string const& test) {
    return test.find(std::string(Ending) + '.') != std::string::npos;
}

/** @return the name that stands for all tests of this one's suite. */
std::string SuiteOf(std::string const& test) {
    return test.substr(0, test.find('.')) + ".*";
}

/** @return whether the test is left out where the geoid grids are. */
bool NeedsGrids(std::string const& test) {
    return test.rfind("GridsInThreads.", 0) == 0;
}

} // namespace

TEST(ThreadsDocument, EveryPromiseHasItsTest) {
    std::set<std::string> const tests = TestsOfThisProgram();
    std::set<std::string> const named = TestsNamedInTheDocument();
    EXPECT_GT(named.size(), 20U);
    bool const hasGrids = std::any_of(tests.begin(), tests.end(), NeedsGrids);
    for (std::string const& test : named) {
        EXPECT_TRUE(tests.contains(test) || (NeedsGrids(test) && !hasGrids))
            << "docs/host.md names " << test << ", which tests/threads doesn't have";
    }
}

TEST(ThreadsDocument, EveryTestStandsBesideItsPromise) {
    std::set<std::string> const named = TestsNamedInTheDocument();
    for (std::string const& test : TestsOfThisProgram()) {
        EXPECT_TRUE(test == SuiteOf(test) || !IsWithThreads(test) || named.contains(test) ||
                    named.contains(SuiteOf(test)))
            << test << " isn't named in the table of docs/host.md, \"Threads\"";
    }
}

TEST(ThreadsDocument, EveryRowHasATest) {
    auto const document = Documents::ReadDocument("host.md");
    auto const& rows = Documents::SectionOf(document, "Threads").rows;
    EXPECT_GT(rows.size(), 15U);
    for (Documents::TRow const& row : rows) {
        ASSERT_EQ(row.size(), 5U) << row.front();
        EXPECT_TRUE(IsWithThreads(row.back())) << row.front() << ": " << row.back();
    }
}
