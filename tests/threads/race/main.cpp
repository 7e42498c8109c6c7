// deliberate_race WHAT: eight threads do what docs/host.md forbids, so that a thread sanitizer that has fallen silent
// is noticed. WHAT is the place of the race: the core's or the shell's chains, or a writer of the host kit.

#include "core/refsystems/TransformsSet.h"
#include "hostkit/XmlIni.h"
#include "shell/transforms/TransformChain.h"
#include "tests/threads/Crew.h"

#include <cstdio>
#include <map>
#include <string>

namespace {

constexpr int Passes = 100;

void WalkOneChain() {
    KvRefSystem::TRefSystemTransformsSet const chain;
    Threads::RunTogether([&](int) {
        for (int pass = 0; pass < Passes; ++pass) {
            chain.GetFirstTransform();
        }
    });
}

void WalkOneChainOfTheShell() {
    KvRefSystem::TShellRefSystemTransform const chain;
    Threads::RunTogether([&](int) {
        for (int pass = 0; pass < Passes; ++pass) {
            chain.GetFirstTransform();
        }
    });
}

void WriteWithOneWriter() {
    VellariHostKit::TXmlIniWriter writer;
    Threads::RunTogether([&](int) {
        for (int pass = 0; pass < Passes; ++pass) {
            writer.SetAttributeMode(pass % 2 == 0);
        }
    });
}

} // namespace

int main(int count, char** arguments) {
    std::map<std::string, void (*)()> const races = {
        {"core", &WalkOneChain}, {"shell", &WalkOneChainOfTheShell}, {"writer", &WriteWithOneWriter}};
    auto const race = count == 2 ? races.find(arguments[1]) : races.end();
    if (race == races.end()) {
        std::fputs("usage: deliberate_race core|shell|writer\n", stderr);
        return 2;
    }
    race->second();
    std::puts("the race went by without a report");
}
