#include "bench/Table.h"
#include "bench/Tasks.h"

#include <benchmark/benchmark.h>

#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace {

/** The defaults come first, so that arguments of the command line win. */
std::vector<char*> WithDefaults(std::vector<std::string>& defaults, int count, char** arguments) {
    std::vector<char*> all = {arguments[0]};
    for (std::string& option : defaults) {
        all.push_back(option.data());
    }
    all.insert(all.end(), arguments + 1, arguments + count);
    return all;
}

} // namespace

int main(int argc, char** argv) {
    // Repetitions of all contenders take turns, so that other work on the machine slows all of them alike.
    std::vector<std::string> defaults = {"--benchmark_repetitions=9", "--benchmark_min_time=0.05",
                                         "--benchmark_enable_random_interleaving=true"};
    std::vector<char*> arguments = WithDefaults(defaults, argc, argv);
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    try {
        benchmark::Initialize(&count, arguments.data());
        if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
            return 2;
        }
        VellariBench::RegisterGeocentric();
        VellariBench::RegisterTopocentric();
        VellariBench::RegisterSevenParameters();
        VellariBench::RegisterProjections();
        VellariBench::RegisterProjectedRoad();
        VellariBench::RegisterGeoid();
        VellariBench::RegisterCreation();
        VellariBench::TTableReporter table;
        benchmark::RunSpecifiedBenchmarks(&table);
        benchmark::Shutdown();
        return table.Failed() ? 1 : 0;
    } catch (std::exception const& failure) {
        std::cerr << "vellari_bench: " << failure.what() << '\n';
        return 1;
    }
}
