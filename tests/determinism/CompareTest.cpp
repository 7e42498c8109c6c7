#include "tools/determinism/Compare.h"

#include "frame/NumberText.h"
#include "tools/determinism/Generator.h"
#include "tools/determinism/Line.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>

#include <unistd.h>

namespace {

using namespace VellariDeterminism;

/** Two outputs in files of their own. */
class Comparison : public testing::Test {
protected:
    void SetUp() override {
        folder = std::filesystem::path(testing::TempDir()) / ("same-bits" + Suffix());
        std::filesystem::create_directory(folder);
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    /** What is told of two outputs. */
    std::string Told(std::string const& first, std::string const& second, bool same) {
        std::ofstream(folder / "first", std::ios::binary) << first;
        std::ofstream(folder / "second", std::ios::binary) << second;
        testing::internal::CaptureStdout();
        bool const found = Compare((folder / "first").string(), (folder / "second").string());
        std::string told = testing::internal::GetCapturedStdout();
        EXPECT_EQ(found, same);
        return told;
    }

    std::filesystem::path folder;

private:
    static std::string Suffix() {
        std::string name = "-";
        name += testing::UnitTest::GetInstance()->current_test_info()->name();
        name += KvRefSystem::FormatText("-%d", static_cast<int>(::getpid()));
        return name;
    }
};

TEST_F(Comparison, OfTheSameBytesTellsNothing) {
    EXPECT_EQ(Told("block a\n0000000000000001\n", "block a\n0000000000000001\n", true), "");
}

TEST_F(Comparison, TellsTheFirstDifferenceOfEveryBlock) {
    // From the least number below 0 to the second one above it: 0 lies between, once.
    EXPECT_EQ(Told("block a\nx\n1 3ff0000000000000\n1 2\nblock b\n8000000000000001\nblock c\nsame\n",
                   "block a\nx\n1 3ff0000000000003\n1 4\nblock b\n0000000000000002\nblock c\nsame\n", false),
              "a: line 2, word 2: 3ff0000000000000 and 3ff0000000000003, 3 ulp apart; 2 of 3 lines differ\n"
              "b: line 1, word 1: 8000000000000001 and 0000000000000002, 3 ulp apart; 1 of 1 lines differ\n");
}

TEST_F(Comparison, TellsTextsAndSizesThatDiffer) {
    EXPECT_EQ(Told("block a\n\"1.0\"\nblock b\n", "block a\n\"1.1\"\n", false),
              "a: line 1, word 1: \"1.0\" and \"1.1\"; 1 of 1 lines differ\n"
              "one output has more blocks than the other\n");
    EXPECT_EQ(Told("block a\n1\n", "block b\n1\n", false),
              "a: the other output has b there, or another size\n");
    EXPECT_EQ(Told("block a\n1\n", "block a\n1 2\n", false),
              "a: line 1, one line is longer than the other; 1 of 1 lines differ\n");
}

TEST_F(Comparison, RefusesAFileThatIsNotThere) {
    EXPECT_THROW(Compare((folder / "none").string(), (folder / "none").string()), std::runtime_error);
}

// The first numbers of the published generator splitmix64 from the seed 1234567.
TEST(DeterminismGenerator, IsThePublishedOne) {
    TGenerator numbers(1234567);
    EXPECT_EQ(numbers.Next(), 6457827717110365317U);
    EXPECT_EQ(numbers.Next(), 3203168211198807973U);
    EXPECT_EQ(numbers.Next(), 9817491932198370423U);
}

TEST(DeterminismLine, HoldsNumbersByTheirBits) {
    TLine line;
    line.Add(1.0, -0.0, -2.0);
    EXPECT_EQ(line.Text(), "3ff0000000000000 8000000000000000 c000000000000000");
}

TEST(DeterminismLine, HasOneFormOfWhatIsNoNumber) {
    double const invalid = std::numeric_limits<double>::quiet_NaN();
    TLine line;
    line.Add(invalid, -invalid);
    line.AddText("-nan");
    line.AddText("-nan rows");
    EXPECT_EQ(line.Text(), "nan nan \"nan\" \"-nan rows\"");
}

} // namespace
