#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

struct TRun {
    int Status;
    std::string Text; ///< of both outputs
};

TRun RunProgram(std::string const& arguments) {
    std::string const command = std::string("'") + VELLARI_ACCURACY + "' " + arguments + " 2>&1";
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
    EXPECT_TRUE(run.Text.starts_with("vellari_accuracy: " + what + "\nusage: vellari_accuracy --write FILE"))
        << run.Text;
}

TEST(AccuracyProgram, RefusesOtherArguments) {
    ExpectMisuse("", "nothing to do");
    ExpectMisuse("--wirte a.md", "unknown argument \"--wirte\"");
    ExpectMisuse("a.md", "unknown argument \"a.md\"");
    ExpectMisuse("--write", "--write needs a file");
    ExpectMisuse("--check ''", "--check needs a file");
    ExpectMisuse("--check a.md b.md", "unexpected argument \"b.md\" after the file");
    ExpectMisuse("--help me", "unknown argument \"--help\"");
}

TEST(AccuracyProgram, HelpsWhenAsked) {
    TRun const run = RunProgram("--help");
    EXPECT_EQ(run.Status, 0);
    EXPECT_TRUE(run.Text.starts_with("usage: ")) << run.Text;
}

TEST(AccuracyProgram, NamesTheFileThatItCannotRead) {
    TRun const run = RunProgram("--check /nowhere/a.md");
    EXPECT_EQ(run.Status, 1);
    EXPECT_EQ(run.Text, "vellari_accuracy: can't open /nowhere/a.md: No such file or directory\n");
    EXPECT_EQ(RunProgram("--check /").Text, "vellari_accuracy: can't read /: Is a directory\n");
}

TEST(AccuracyProgram, WritesWhatItsCheckAcceptsAndNothingAside) {
    fs::path const folder = fs::path(testing::TempDir()) / ("accuracy" + std::to_string(getpid()));
    fs::create_directory(folder);
    std::string const path = folder / "written.md";
    TRun const written = RunProgram("--write '" + path + "'");
    EXPECT_EQ(written.Status, 0) << written.Text;
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
    EXPECT_EQ(RunProgram("--check '" + path + "'").Status, 0);

    std::ofstream(path, std::ios::app) << "more\n";
    TRun const refused = RunProgram("--check '" + path + "'");
    EXPECT_EQ(refused.Status, 1);
    EXPECT_NE(refused.Text.find("the text isn't what the program writes: \"\"\n"), std::string::npos)
        << refused.Text;
    fs::remove_all(folder);
}

TEST(AccuracyProgram, LeavesNothingWhereItCannotWrite) {
    TRun const run = RunProgram("--write /nowhere/a.md");
    EXPECT_EQ(run.Status, 1);
    EXPECT_EQ(run.Text, "vellari_accuracy: can't write /nowhere/a.md.part: No such file or directory\n");
    // A folder stands in the way of the name itself.
    fs::path const folder = fs::path(testing::TempDir()) / ("accuracy-folder" + std::to_string(getpid()));
    fs::create_directories(folder / "taken");
    TRun const late = RunProgram("--write '" + std::string(folder / "taken") + "'");
    EXPECT_EQ(late.Status, 1);
    EXPECT_TRUE(late.Text.ends_with("taken: Is a directory\n")) << late.Text;
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
    fs::remove_all(folder);
}

} // namespace
