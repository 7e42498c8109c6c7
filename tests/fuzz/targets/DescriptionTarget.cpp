#include "shell/refsystems/ReferenceSystem.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/fuzz/targets/Promises.h"
#include "tests/fuzz/targets/SystemPromises.h"
#include "tests/fuzz/targets/Targets.h"
#include "tools/vellari/Catalog.h"
#include "tools/vellari/SystemLoader.h"
#include "tools/vellari/ToolError.h"

namespace Fuzz {

namespace {

using namespace KvRefSystem;

/** The tool tells in one line what is wrong. */
void AskTool(std::string const& text) {
    try {
        VellariTool::BuildSystem("input", text, VellariTool::suTransform);
    } catch (VellariTool::TToolError const& error) {
        std::string const message = error.what();
        Require(message.find('\n') == std::string::npos, "the tool's message is one line", message);
    }
}

/** @return whether a system keeps all of its description: a pair that stands twice ends the copy that it keeps. */
bool IsKept(std::string const& text) {
    TStringTree tree;
    tree.ReadFromString(text.c_str(), nullptr, nullptr);
    TStringTree kept;
    return tree.CopyTo(&kept);
}

} // namespace

void RunDescription(std::string_view input) {
    std::string const text(input);
    AskTool(text);
    TSystem const system(CreateShellReferenceSystem(text, nullptr));
    if (!system) {
        return;
    }
    RequireQuietExports(*system);
    std::string const first = TextOf(*system);
    if (!HasTextForm(*system->SavedTree) || !IsKept(text)) {
        return;
    }
    TSystem const again(CreateShellReferenceSystem(first, nullptr));
    Require(again != nullptr, "a system's own text is a description", first);
    RequireSameText(first, TextOf(*again), "a system has the same text again");
    RequireEqual(*system, *again);
    TSystem const copy(system->CreateCopy());
    Require(copy != nullptr, "a system of a description has copies", first);
    RequireSameText(first, TextOf(*copy), "a copy has the same text");
}

std::vector<std::string> DescriptionSeeds() {
    std::vector<std::string> seeds;
    for (VellariTool::EmbeddedFile const& entry : VellariTool::embeddedCatalog()) {
        seeds.emplace_back(entry.text);
    }
    return seeds;
}

} // namespace Fuzz
