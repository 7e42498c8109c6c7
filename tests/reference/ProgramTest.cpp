#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

struct TRun {
    int Status;
    std::string Text; ///< of both outputs
};

TRun RunProgram(std::string const& arguments) {
    std::string const command = std::string("'") + VELLARI_REFERENCE + "' " + arguments + " 2>&1";
    std::FILE* const pipe = popen(command.c_str(), "r");
    TRun run{-1, ""};
    if (pipe == nullptr) {
        return run;
    }
    char block[4096];
    while (std::size_t const count = std::fread(block, 1, sizeof(block), pipe)) {
        run.Text.append(block, count);
    }
    run.Status = WEXITSTATUS(pclose(pipe));
    return run;
}

void ExpectMisuse(std::string const& arguments, std::string const& what) {
    TRun const run = RunProgram(arguments);
    EXPECT_EQ(run.Status, 2) << arguments;
    EXPECT_TRUE(
        run.Text.starts_with("vellari_reference: " + what + "\nusage: vellari_reference --write FILE"))
        << run.Text;
}

TEST(ReferenceProgram, RefusesOtherArguments) {
    ExpectMisuse("", "nothing to do");
    ExpectMisuse("a.txt", "unknown argument \"a.txt\"");
    ExpectMisuse("--write", "--write needs a file");
    ExpectMisuse("--check ''", "--check needs a file");
    ExpectMisuse("--check a.txt b.txt", "unexpected argument \"b.txt\" after the file");
}

TEST(ReferenceProgram, HelpsWhenAsked) {
    TRun const run = RunProgram("--help");
    EXPECT_EQ(run.Status, 0);
    EXPECT_TRUE(run.Text.starts_with("usage: ")) << run.Text;
}

TEST(ReferenceProgram, NamesTheFileThatItCannotUse) {
    EXPECT_EQ(RunProgram("--check /nowhere/a.txt").Text, "vellari_reference: can't open /nowhere/a.txt\n");
    TRun const run = RunProgram("--write /nowhere/a.txt");
    EXPECT_EQ(run.Text, "vellari_reference: can't write /nowhere/a.txt\n");
    EXPECT_EQ(run.Status, 1);
}

TEST(ReferenceProgram, CheckFindsTheDigitThatWasChanged) {
    fs::path const path = fs::path(testing::TempDir()) / ("reference" + std::to_string(getpid()) + ".txt");
    std::string const quoted = "'" + path.string() + "'";
    TRun const written = RunProgram("--write " + quoted);
    EXPECT_EQ(written.Text, path.string() + ": 1209 lines written\n");
    TRun const checked = RunProgram("--check " + quoted);
    EXPECT_EQ(checked.Status, 0);
    EXPECT_EQ(checked.Text, path.string() + ": all 1209 lines are what the program computes\n");

    std::ifstream file(path);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    // The sixth line is the first ellipsoid's, the seventh the first place's.
    std::size_t const at = text.find("378137.0000", text.find("\nellipsoid") + 40);
    ASSERT_NE(at, std::string::npos);
    text[at + 5] = '8';
    std::ofstream(path) << text;
    TRun const refused = RunProgram("--check " + quoted);
    EXPECT_EQ(refused.Status, 1);
    EXPECT_EQ(refused.Text, path.string() +
                                ":7: isn't what the program computes; \"vellari_reference --write\" "
                                "writes the file anew\n");
    std::ofstream(path) << text.substr(0, 100);
    EXPECT_EQ(RunProgram("--check " + quoted).Status, 1);
    fs::remove(path);
}

} // namespace
