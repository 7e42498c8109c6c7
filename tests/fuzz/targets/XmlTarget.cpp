#include "hostkit/XmlIni.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/fuzz/targets/Promises.h"
#include "tests/fuzz/targets/SystemPromises.h"
#include "tests/fuzz/targets/Targets.h"
#include "tools/vellari/Catalog.h"

#include <stdexcept>

namespace Fuzz {

namespace {

using namespace KvRefSystem;
using VellariHostKit::TXmlIniReader;
using VellariHostKit::TXmlIniWriter;

/** The system that stands in the document; null where there is none. */
TSystem ReadSystem(TXmlIniReader* reader) {
    TSystem system;
    Succeeds<std::runtime_error, std::logic_error>(
        [&] { system.reset(CreateShellReferenceSystem(reader, nullptr)); });
    return system;
}

} // namespace

void RunXml(std::string_view input) {
    TXmlIniReader reader;
    if (!Succeeds<std::runtime_error>([&] { reader.LoadString(input); })) {
        return;
    }
    TSystem const system = ReadSystem(&reader);
    if (!system) {
        return;
    }
    Require(TextOf(*system).empty(), "a system of XML has no description");
    RequireQuietExports(*system);
    std::string const first = XmlOf(*system);
    TXmlIniReader rereader;
    rereader.LoadString(first);
    TSystem const again(CreateShellReferenceSystem(&rereader, nullptr));
    Require(again != nullptr, "a written system is read", first);
    RequireSameText(first, XmlOf(*again), "a system has the same XML again");
    RequireEqual(*system, *again);
}

std::vector<std::string> XmlSeeds() {
    std::vector<std::string> seeds;
    for (VellariTool::EmbeddedFile const& entry : VellariTool::embeddedCatalog()) {
        TSystem const system(CreateShellReferenceSystem(std::string(entry.text), nullptr));
        TXmlIniWriter form;
        if (system->SaveToXML(&form)) {
            seeds.push_back(form.ToString());
        }
    }
    return seeds;
}

} // namespace Fuzz
