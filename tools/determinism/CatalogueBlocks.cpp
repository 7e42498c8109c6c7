#include "tools/determinism/Block.h"

#include "tools/determinism/Describe.h"

#include <Vellari/Vellari.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace VellariDeterminism {

namespace {

namespace fs = std::filesystem;

constexpr int PointsOfSystem = 400;
constexpr int PointsOfPair = 12;

struct TNamedSystem {
    std::string Name;
    TSystem System;
};

std::vector<TNamedSystem> Read(std::string const& folder) {
    std::vector<fs::path> paths;
    for (fs::directory_entry const& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == ".txt") {
            paths.push_back(entry.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    std::vector<TNamedSystem> systems;
    for (fs::path const& path : paths) {
        std::ifstream file(path, std::ios::binary);
        std::string const text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        TSystem const system(KvRefSystem::CreateShellReferenceSystem(text, nullptr));
        if (!system) {
            throw std::runtime_error(path.string() + ": no description of a system");
        }
        systems.push_back({path.stem().string(), system});
    }
    if (systems.empty()) {
        throw std::runtime_error(folder + ": no descriptions here");
    }
    return systems;
}

} // namespace

void AddCatalogue(TBlocks* blocks, std::string const& folder) {
    TSystem const world = Build(TGeodetic());
    std::vector<TNamedSystem> const systems = Read(folder);
    for (TNamedSystem const& to : systems) {
        blocks->push_back({"catalogue " + to.Name, PointsOfSystem,
                           [world, system = to.System](TGenerator& numbers, TLine* line) {
                               PrintThereAndBack(*world, *system, WorldPlace(numbers), line);
                           }});
    }
    for (TNamedSystem const& from : systems) {
        for (TNamedSystem const& to : systems) {
            blocks->push_back(
                {"catalogue " + from.Name + " to " + to.Name, PointsOfPair,
                 [world, first = from.System, second = to.System](TGenerator& numbers, TLine* line) {
                     TPoint point = EuropeanPlace(numbers);
                     Transform(*world, *first, &point);
                     Transform(*first, *second, &point);
                     PrintPoint(*second, point, line);
                 }});
        }
    }
}

} // namespace VellariDeterminism
