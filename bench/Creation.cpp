#include "bench/ProjHandles.h"
#include "bench/Tasks.h"

#include <Vellari/Vellari.h>

#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>

namespace VellariBench {

char const* const PulkovoAsProjText =
    "+proj=longlat +ellps=krass +towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +no_defs +type=crs";

std::string CatalogText(std::string const& name) {
    std::string const path = std::string(VELLARI_SOURCE_DIR) + "/catalog/" + name + ".txt";
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

namespace {

using namespace KvRefSystem;

void RunOurs(benchmark::State& state, std::string const& text) {
    for (auto _ : state) {
        std::unique_ptr<TShellReferenceSystem> system(CreateShellReferenceSystem(text, nullptr));
        if (!system) {
            state.SkipWithError("the description doesn't build");
            break;
        }
        benchmark::DoNotOptimize(system);
    }
}

void RunProj(benchmark::State& state, std::string const& text) {
    TProjContext const context(proj_context_create());
    for (auto _ : state) {
        TProjObject system(proj_create(context.get(), text.c_str()));
        if (!system) {
            state.SkipWithError("PROJ can't read the text");
            break;
        }
        benchmark::DoNotOptimize(system);
    }
}

/** PROJ's own WKT of the same system. */
std::string PulkovoAsWkt() {
    TProjContext const context(proj_context_create());
    TProjObject const system = Require(proj_create(context.get(), PulkovoAsProjText), PulkovoAsProjText);
    char const* const text = proj_as_wkt(context.get(), system.get(), PJ_WKT2_2019, nullptr);
    if (text == nullptr) {
        throw std::runtime_error("PROJ writes no WKT");
    }
    return text;
}

} // namespace

void RegisterCreation() {
    std::string const task = "Pulkovo 1942 from its text and away again, ns a system/";
    benchmark::RegisterBenchmark(
        (task + "Vellari").c_str(),
        [text = CatalogText("pulkovo-1942")](benchmark::State& state) { RunOurs(state, text); });
    benchmark::RegisterBenchmark((task + "PROJ, WKT").c_str(),
                                 [text = PulkovoAsWkt()](benchmark::State& state) { RunProj(state, text); });
    benchmark::RegisterBenchmark((task + "PROJ, its own text").c_str(),
                                 [](benchmark::State& state) { RunProj(state, PulkovoAsProjText); });
}

} // namespace VellariBench
