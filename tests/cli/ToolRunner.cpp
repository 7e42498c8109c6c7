#include "tests/cli/ToolRunner.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

extern char** environ;

namespace ToolTest {

namespace {

std::vector<char*> Pointers(std::vector<std::string>* texts) {
    std::vector<char*> pointers;
    for (std::string& text : *texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/** The test's own variables without those that `settings` replaces. */
std::vector<std::string> Environment(TRunSettings const& settings) {
    std::vector<std::string> result = settings.environment;
    for (char** variable = environ; *variable; ++variable) {
        std::string const text = *variable;
        std::string const name = text.substr(0, text.find('=') + 1);
        bool const isReplaced =
            std::any_of(settings.environment.begin(), settings.environment.end(),
                        [&name](std::string const& own) { return own.rfind(name, 0) == 0; });
        if (!isReplaced) {
            result.push_back(text);
        }
    }
    return result;
}

} // namespace

TToolRun RunTool(std::vector<std::string> const& arguments, TRunSettings const& settings) {
    TTemporaryFolder const folder;
    std::string const input =
        settings.inputPath.empty() ? folder.Write("in", settings.input) : settings.inputPath;
    std::string const output = settings.outputPath.empty() ? folder.Path("out") : settings.outputPath;
    std::string const errors = folder.Path("err");

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, input.c_str(), O_RDONLY, 0);
    int ends[2] = {-1, -1};
    if (settings.closedOutput) {
        EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
        posix_spawn_file_actions_adddup2(&actions, ends[1], 1);
        close(ends[0]);
    } else {
        posix_spawn_file_actions_addopen(&actions, 1, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    }
    posix_spawn_file_actions_addopen(&actions, 2, errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);

    std::vector<std::string> words = arguments;
    words.emplace(words.begin(), VELLARI_TOOL);
    std::vector<std::string> variables = Environment(settings);
    pid_t process = 0;
    int const failure = posix_spawn(&process, VELLARI_TOOL, &actions, nullptr, Pointers(&words).data(),
                                    Pointers(&variables).data());
    posix_spawn_file_actions_destroy(&actions);
    if (ends[1] >= 0) {
        close(ends[1]);
    }
    TToolRun run;
    EXPECT_EQ(failure, 0) << VELLARI_TOOL;
    if (failure != 0) {
        return run;
    }
    int status = 0;
    rusage usage{};
    EXPECT_EQ(wait4(process, &status, 0, &usage), process);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    run.maxResidentKiB = usage.ru_maxrss;
    run.out = settings.outputPath.empty() ? ReadFile(output) : "";
    run.err = ReadFile(errors);
    return run;
}

TToolRun Transform(std::string const& points, std::vector<std::string> const& options) {
    std::vector<std::string> arguments = {"transform", "pulkovo-1942", "wgs-84"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    TRunSettings settings;
    settings.input = points;
    return RunTool(arguments, settings);
}

TTemporaryFolder::TTemporaryFolder() {
    path = std::filesystem::temp_directory_path().string() + "/vellari_cli_XXXXXX";
    EXPECT_NE(mkdtemp(path.data()), nullptr);
}

TTemporaryFolder::~TTemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

std::string TTemporaryFolder::Write(std::string const& name, std::string const& text) const {
    std::ofstream(Path(name), std::ios::binary) << text;
    return Path(name);
}

std::vector<std::string> TTemporaryFolder::Files() const {
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(path)) {
        names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string ReadFile(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

long CountLines(std::string const& text) {
    return std::count(text.begin(), text.end(), '\n');
}

std::string CatalogText(std::string const& name) {
    return ReadFile(VELLARI_SOURCE_DIR "/catalog/" + name + ".txt");
}

std::string Replaced(std::string text, std::string const& from, std::string const& to) {
    std::size_t const position = text.find(from);
    EXPECT_NE(position, std::string::npos) << "no \"" << from << "\"";
    return position == std::string::npos ? text : text.replace(position, from.size(), to);
}

} // namespace ToolTest
