#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

// Every room knows only the rooms below it: an include that runs back up fails here.

namespace {

namespace fs = std::filesystem;

/** A room and what its files may include besides themselves; entries are beginnings of paths. */
struct TRoom {
    char const* room;
    std::vector<std::string> mayInclude;
};

// The first row that a file's path begins with counts, so narrower rooms stand first.
std::vector<TRoom> const Rooms = {
    {"frame/imported/", {"frame/imported/", "frame/DataTree.h"}},
    {"frame/", {"frame/"}},
    {"core/primitives/",
     {"frame/imported/", "frame/NumberText.h", "core/primitives/", "core/refsystems/Coords.h",
      "core/refsystems/DatumShift.h"}},
    {"core/projections/",
     {"frame/imported/", "frame/NumberText.h", "core/primitives/", "core/projections/",
      "core/refsystems/Coords.h", "core/refsystems/FamilyEquality.h"}},
    {"core/transforms/", {"frame/imported/", "frame/NumberText.h", "core/transforms/", "core/refsystems/"}},
    {"core/refsystems/", {"frame/imported/", "frame/NumberText.h", "core/"}},
    {"shell/units/", {"frame/", "core/", "shell/units/"}},
    {"shell/datum/", {"frame/", "core/", "shell/units/", "shell/datum/"}},
    {"shell/projections/", {"frame/", "core/", "shell/units/", "shell/datum/", "shell/projections/"}},
    {"shell/transforms/",
     {"frame/", "core/", "shell/units/", "shell/datum/", "shell/projections/", "shell/transforms/"}},
    {"shell/refsystems/", {"frame/", "core/", "shell/"}},
    {"hostkit/", {"frame/", "hostkit/"}},
    {"tools/accuracy/", {"tools/accuracy/"}},
    {"tools/determinism/", {"tools/determinism/", "tools/accuracy/"}},
    {"tools/reference/", {"tools/reference/"}},
    {"tools/vellari/", {"tools/vellari/"}},
    {"bench/", {"bench/"}},
    {"examples/", {}},
};

/** The knots between rooms, each tied in one .cpp. */
std::map<std::string, std::string> const Knots = {
    {"shell/datum/Geoid.cpp",
     "shell/refsystems/ReferenceSystem.h"}, // a geoid and the systems it converts for
};

/** The public headers that hosts include with angle brackets. */
bool IsHost(std::string const& file) {
    return file.starts_with("tools/") || file.starts_with("bench/") || file.starts_with("examples/");
}

std::vector<std::string> SourceFiles() {
    std::vector<std::string> files;
    fs::path const root = VELLARI_SOURCE_DIR;
    for (char const* const top : {"frame", "core", "shell", "hostkit", "tools", "bench", "examples"}) {
        if (!fs::exists(root / top)) {
            continue;
        }
        for (fs::directory_entry const& entry : fs::recursive_directory_iterator(root / top)) {
            std::string const extension = entry.path().extension();
            if (extension == ".h" || extension == ".cpp") {
                files.push_back(fs::relative(entry.path(), root));
            }
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

/** The files that a file includes with the given quote marks. */
std::vector<std::string> IncludesOf(std::string const& file, char open, char close) {
    std::ifstream stream(fs::path(VELLARI_SOURCE_DIR) / file);
    std::vector<std::string> includes;
    std::string const start = std::string("#include ") + open;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with(start)) {
            includes.push_back(line.substr(start.size(), line.find(close, start.size()) - start.size()));
        }
    }
    return includes;
}

bool Allowed(std::string const& file, std::string const& include) {
    auto const knot = Knots.find(file);
    if (knot != Knots.end() && knot->second == include) {
        return true;
    }
    for (TRoom const& row : Rooms) {
        if (file.starts_with(row.room)) {
            return std::any_of(row.mayInclude.begin(), row.mayInclude.end(),
                               [&](std::string const& prefix) { return include.starts_with(prefix); });
        }
    }
    return false;
}

TEST(IncludeRules, EveryRoomKnowsOnlyTheRoomsBelowIt) {
    std::vector<std::string> const files = SourceFiles();
    ASSERT_GT(files.size(), 100U);
    for (std::string const& file : files) {
        for (std::string const& include : IncludesOf(file, '"', '"')) {
            EXPECT_TRUE(Allowed(file, include)) << file << " includes " << include;
        }
    }
}

TEST(IncludeRules, HostsUseThePublicFaceOnly) {
    for (std::string const& file : SourceFiles()) {
        for (std::string const& include : IncludesOf(file, '<', '>')) {
            if (include.starts_with("Vellari/")) {
                EXPECT_TRUE(IsHost(file)) << file << " includes " << include;
                EXPECT_TRUE(include == "Vellari/Vellari.h" || include == "Vellari/hostkit/HostKit.h" ||
                            include == "Vellari/hostkit/grids/GeoidGrid.h")
                    << file << " includes " << include;
            }
        }
    }
}

TEST(IncludeRules, HeadersHaveNoCircles) {
    std::map<std::string, std::vector<std::string>> graph;
    for (std::string const& file : SourceFiles()) {
        if (file.ends_with(".h")) {
            graph[file] = IncludesOf(file, '"', '"');
        }
    }
    std::set<std::string> done;
    std::vector<std::string> path;
    std::function<void(std::string const&)> const visit = [&](std::string const& file) {
        if (done.count(file) != 0) {
            return;
        }
        ASSERT_EQ(std::count(path.begin(), path.end(), file), 0) << "circle through " << file;
        path.push_back(file);
        for (std::string const& include : graph[file]) {
            visit(include);
        }
        path.pop_back();
        done.insert(file);
    };
    for (std::string const& file : SourceFiles()) {
        if (file.ends_with(".h")) {
            visit(file);
        }
    }
    EXPECT_GT(done.size(), 40U);
}

TEST(IncludeRules, PublicHeadersTakeInNothingButTheStandardLibrary) {
    for (std::string const& file : SourceFiles()) {
        if (!file.ends_with(".h") || IsHost(file)) {
            continue;
        }
        for (std::string const& include : IncludesOf(file, '<', '>')) {
            // Standard headers have neither a folder nor an extension.
            EXPECT_EQ(include.find_first_of("./"), std::string::npos) << file << " includes " << include;
        }
    }
}

TEST(IncludeRules, FormattingOfNumbersHasOneRoom) {
    // The hostkit's printf-like function forwards to the same room.
    std::vector<std::string> const banned = {
        "sprintf(",      "sscanf(",       "strtod(",      "strtof(", "std::to_string",
        "ostringstream", "istringstream", "stringstream", "atof(",   "setlocale"};
    for (std::string const& file : SourceFiles()) {
        if (IsHost(file) || file == "frame/NumberText.cpp") {
            continue;
        }
        std::ifstream stream(fs::path(VELLARI_SOURCE_DIR) / file);
        for (std::string line; std::getline(stream, line);) {
            std::size_t const code = line.find_first_not_of(' ');
            if (code == std::string::npos || line.compare(code, 1, "*") == 0 ||
                line.compare(code, 2, "/*") == 0 || line.compare(code, 2, "//") == 0) {
                continue;
            }
            for (std::string const& word : banned) {
                std::size_t const found = line.find(word);
                bool const own =
                    found != std::string::npos && found > 0 && line[found - 1] == 's' && word == "sprintf(";
                EXPECT_TRUE(found == std::string::npos || own) << file << ": " << line;
            }
        }
    }
}

} // namespace
