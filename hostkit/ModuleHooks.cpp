#include "frame/imported/ModuleHooks.h"

#include "hostkit/ProcessHooks.h"
#include "hostkit/ResourceStore.h"

#include <cstdio>
#include <memory>
#include <mutex>
#include <utility>

namespace {

using VellariHostKit::DebugSink;

/** The sink in force; kept for the life of the process, since other statics may print while they end. */
struct SinkHolder {
    std::mutex guard;
    std::shared_ptr<DebugSink const> sink;
};

SinkHolder& TheSink() {
    static auto* const holder = new SinkHolder();
    return *holder;
}

} // namespace

// Nothing in the kit calls these hooks, so that each one that a host replaces is replaced everywhere.

void* KvApplication = nullptr;

void Init_QorDataUtils() {
    // The texts are read here, ahead of the first question for one.
    VellariHostKit::TResourceStore::Process();
}

// The mathematics have no state to set up.
void Init_LumMath() {}

// The texts stay: their addresses are promised for the life of the process.
void Deinit_QorDataUtils() {}

void Deinit_LumMath() {}

bool LoadResString(std::string const& module, std::string const& key, std::string const** text) {
    std::string const* const found = VellariHostKit::TResourceStore::Process().Find(module, key);
    if (!found) {
        return false;
    }
    *text = found;
    return true;
}

void KvPrintDbgMsg(std::string const& message) {
    std::shared_ptr<DebugSink const> sink;
    {
        std::lock_guard<std::mutex> const lock(TheSink().guard);
        sink = TheSink().sink;
    }
    if (sink) {
        (*sink)(message);
        return;
    }
    std::string const line = message + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

namespace VellariHostKit {

void SetDebugSink(DebugSink sink) {
    std::shared_ptr<DebugSink const> next =
        sink ? std::make_shared<DebugSink const>(std::move(sink)) : nullptr;
    std::lock_guard<std::mutex> const lock(TheSink().guard);
    TheSink().sink.swap(next);
}

void SetApplication(void* application) {
    KvApplication = application;
}

} // namespace VellariHostKit
