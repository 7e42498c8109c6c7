#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int mostLines = 600;

/** A file that is longer, and why it can't be read better in pieces. */
struct TLongFile {
    char const* path;
    char const* reason;
};

/** None. A row here needs a reason that a reader of the file would accept. */
std::vector<TLongFile> const& LongFiles() {
    static std::vector<TLongFile> const files;
    return files;
}

bool IsSource(fs::path const& path) {
    for (char const* extension : {".cpp", ".h", ".py", ".sh", ".cmake", ".map"}) {
        if (path.extension() == extension) {
            return true;
        }
    }
    return path.filename() == "CMakeLists.txt" || path.filename() == "Makefile";
}

int CountLines(fs::path const& path) {
    std::ifstream file(path, std::ios::binary);
    return static_cast<int>(std::count(std::istreambuf_iterator<char>(file), {}, '\n'));
}

std::map<std::string, int> LinesOfSources() {
    fs::path const root = VELLARI_SOURCE_DIR;
    std::map<std::string, int> lines;
    for (char const* room :
         {"frame", "core", "shell", "hostkit", "tools", "tests", "bench", "examples", "cmake"}) {
        for (fs::directory_entry const& entry : fs::recursive_directory_iterator(root / room)) {
            if (entry.is_regular_file() && IsSource(entry.path())) {
                lines[fs::relative(entry.path(), root).generic_string()] = CountLines(entry.path());
            }
        }
    }
    return lines;
}

} // namespace

TEST(FileSize, NoSourceIsLongerThanAReaderTakesInWithoutAReason) {
    auto const sources = LinesOfSources();
    ASSERT_GT(sources.size(), 400u) << "the folders of the sources aren't where they are looked for";
    for (auto const& [path, lines] : sources) {
        bool const listed = std::any_of(LongFiles().begin(), LongFiles().end(),
                                        [&path = path](TLongFile const& file) { return path == file.path; });
        EXPECT_EQ(lines > mostLines, listed) << path << " has " << lines << " lines; " << mostLines
                                             << " are the most without a row in the list above";
    }
    for (TLongFile const& file : LongFiles()) {
        EXPECT_TRUE(sources.count(file.path)) << file.path << " is listed and doesn't exist";
        EXPECT_STRNE(file.reason, "");
    }
}
