#include "tests/fuzz/targets/SystemPromises.h"

#include "hostkit/XmlIni.h"
#include "shell/refsystems/ReferenceSystem.h"
#include "tests/fuzz/targets/Promises.h"

#include <functional>
#include <map>

namespace Fuzz {

using KvRefSystem::TShellReferenceSystem;

bool HasTextForm(KvRefSystem::TDataTree<std::string> const& tree) {
    bool has = tree.header.find('\n') == std::string::npos && tree.header.find('\0') == std::string::npos;
    for (unsigned long i = 0; i < tree.fields.Size() && has; ++i) {
        has = tree.fields[i]->count != 0;
    }
    for (unsigned long i = 0; i < tree.subtrees.Size() && has; ++i) {
        has = HasTextForm(*tree.subtrees[i]);
    }
    return has;
}

std::string TextOf(TShellReferenceSystem const& system) {
    std::string text;
    if (!system.WriteToString(text)) {
        return "";
    }
    Require(!text.empty() && text.back() == '\0', "a description's text ends with a NUL");
    text.pop_back();
    return text;
}

void RequireEqual(TShellReferenceSystem const& first, TShellReferenceSystem const& second) {
    TShellReferenceSystem const& itself = first;
    if (first == itself) {
        Require(first == second && second == first, "systems of one text are equal");
    }
    if (first ^= itself) {
        Require(first ^= second, "systems of one text have equal geometry");
    }
}

void RequireQuietExports(TShellReferenceSystem const& system) {
    std::string const before = "as it was";
    std::function<bool(std::string*)> const exports[] = {
        [&](std::string* text) { return system.ExportToWKT(text, false, false); },
        [&](std::string* text) { return system.ExportToWKT(text, true, true); },
        [&](std::string* text) { return system.ExportToMIFMID(text, false); },
        [&](std::string* text) { return system.ExportToMIFMID(text, true); },
        [&](std::string* text) { return system.ExportAxesToWKT(text); },
        [&](std::string* text) { return system.ExportDatumToWKT(text); },
        [&](std::string* text) { return system.ExportDatumToMIFMID(text, false); },
    };
    for (auto const& run : exports) {
        std::string text = before;
        Require(run(&text) || text == before, "an export that fails leaves its text", text);
    }
    std::map<int, std::string> keys;
    system.ExportToGeoTIFF(&keys, true);
    system.ExportToGeoTIFFClassified(&keys);
    system.ExportToPanorama(&keys, false);
}

std::string XmlOf(TShellReferenceSystem const& system) {
    VellariHostKit::TXmlIniWriter writer;
    Require(system.SaveToXML(&writer), "a system is written as XML");
    return writer.ToString();
}

} // namespace Fuzz
