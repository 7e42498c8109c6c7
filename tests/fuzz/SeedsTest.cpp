#include "tests/fuzz/targets/Targets.h"
#include "tests/support/Descriptions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace {

std::filesystem::path const CrashFolder =
    std::filesystem::path(VELLARI_SOURCE_DIR) / "tests" / "fuzz" / "crashes";

/** The files of crashes that a target once had, named after what they were, from the repository's root. */
std::vector<std::string> CrashesOf(std::string const& target) {
    std::vector<std::string> paths;
    if (std::filesystem::exists(CrashFolder / target)) {
        for (auto const& entry : std::filesystem::directory_iterator(CrashFolder / target)) {
            paths.push_back(std::filesystem::relative(entry.path(), VELLARI_SOURCE_DIR).string());
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

class FuzzTarget : public testing::TestWithParam<Fuzz::TTarget> {};

} // namespace

TEST_P(FuzzTarget, KeepsItsPromisesForEverySeed) {
    std::vector<std::string> const seeds = GetParam().seeds();
    EXPECT_GE(seeds.size(), 5u);
    EXPECT_EQ(std::set<std::string>(seeds.begin(), seeds.end()).count(""), 0u);
    for (std::string const& seed : seeds) {
        GetParam().run(seed);
    }
}

TEST_P(FuzzTarget, KeepsItsPromisesForSeedsThatAreCutOrDamaged) {
    constexpr std::size_t MostSeeds = 24;
    constexpr std::size_t CutsOfASeed = 12;
    std::vector<std::string> const seeds = GetParam().seeds();
    std::size_t const stride = (seeds.size() + MostSeeds - 1) / MostSeeds;
    for (std::size_t index = 0; index < seeds.size(); index += stride) {
        std::string const& seed = seeds[index];
        std::size_t const step = seed.size() / CutsOfASeed + 1;
        for (std::size_t length = 0; length < seed.size(); length += step) {
            GetParam().run(std::string_view(seed).substr(0, length));
            std::string damaged = seed;
            damaged[length] = static_cast<char>(damaged[length] ^ 0x15);
            GetParam().run(damaged);
        }
    }
}

TEST_P(FuzzTarget, HasNoneOfItsOldCrashes) {
    for (std::string const& path : CrashesOf(GetParam().name)) {
        SCOPED_TRACE(path);
        GetParam().run(TestSupport::ReadFile(path));
    }
}

INSTANTIATE_TEST_SUITE_P(Fuzz, FuzzTarget, testing::ValuesIn(Fuzz::Targets().begin(), Fuzz::Targets().end()),
                         [](auto const& parameter) { return std::string(parameter.param.name); });

TEST(FuzzTargets, EveryFolderOfCrashesBelongsToATarget) {
    if (!std::filesystem::exists(CrashFolder)) {
        return;
    }
    for (auto const& entry : std::filesystem::directory_iterator(CrashFolder)) {
        EXPECT_NE(Fuzz::FindTarget(entry.path().filename().string()), nullptr) << entry.path();
    }
}
