#include "bench/Runs.h"
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

std::unique_ptr<KvRefSystem::TShellReferenceSystem> BuildSystem(std::string const& text) {
    std::unique_ptr<KvRefSystem::TShellReferenceSystem> system(
        KvRefSystem::CreateShellReferenceSystem(text, nullptr));
    if (!system) {
        throw std::runtime_error("a description doesn't build");
    }
    return system;
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

void CreateByProj(benchmark::State& state, std::string const& text) {
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

/** PROJ's text of the projected system. */
char const* const utmAsProjText =
    "+proj=utm +zone=37 +ellps=krass +towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +no_defs +type=crs";

/** PROJ's own WKT of the same system. */
std::string AsWkt(char const* definition) {
    TProjContext const context(proj_context_create());
    TProjObject const system = Require(proj_create(context.get(), definition), definition);
    char const* const text = proj_as_wkt(context.get(), system.get(), PJ_WKT2_2019, nullptr);
    if (text == nullptr) {
        throw std::runtime_error("PROJ writes no WKT");
    }
    return text;
}

} // namespace

void RegisterCreation() {
    struct TCreation {
        std::string Task;
        std::string Ours;
        char const* Theirs;
    };
    TCreation const systems[] = {
        {"Pulkovo 1942 from its text and away again, ns a system", CatalogText("pulkovo-1942"),
         PulkovoAsProjText},
        {"UTM 37N on Pulkovo 1942 from its text and away again, ns a system", UtmOnPulkovoText(),
         utmAsProjText},
    };
    for (TCreation const& system : systems) {
        Register(system.Task, "Vellari",
                 [text = system.Ours](benchmark::State& state) { RunOurs(state, text); });
        Register(system.Task, "PROJ, WKT",
                 [text = AsWkt(system.Theirs)](benchmark::State& state) { CreateByProj(state, text); });
        Register(system.Task, "PROJ, its own text",
                 [text = std::string(system.Theirs)](benchmark::State& state) { CreateByProj(state, text); });
    }
}

} // namespace VellariBench
