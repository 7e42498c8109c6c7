#include "frame/ModuleInitializer.h"
#include "frame/NumberText.h"
#include "tests/fuzz/targets/Targets.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

/** Writes the seeds of all targets: fuzz_seeds FOLDER makes FOLDER/TARGET/seed-N. */
int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: fuzz_seeds FOLDER\n", stderr);
        return 2;
    }
    Init_Vellari();
    for (Fuzz::TTarget const& target : Fuzz::Targets()) {
        std::filesystem::path const folder = std::filesystem::path(arguments[1]) / target.name;
        std::filesystem::create_directories(folder);
        std::size_t number = 0;
        for (std::string const& seed : target.seeds()) {
            std::filesystem::path const path = folder / KvRefSystem::FormatText("seed-%03zu", number++);
            std::ofstream file(path, std::ios::binary);
            file << seed;
            if (!file.flush()) {
                std::fprintf(stderr, "fuzz_seeds: %s can't be written\n", path.c_str());
                return 1;
            }
        }
        std::printf("%s: %zu seeds\n", target.name, number);
    }
    Deinit_Vellari();
    return 0;
}
