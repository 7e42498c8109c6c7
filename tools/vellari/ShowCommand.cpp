#include "tools/vellari/ShowCommand.h"

#include "tools/vellari/ExportText.h"
#include "tools/vellari/OutputFile.h"
#include "tools/vellari/SystemLoader.h"
#include "tools/vellari/SystemSummary.h"
#include "tools/vellari/ToolError.h"

#include <Vellari/hostkit/HostKit.h>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

/** The description byte for byte. */
std::string ShowText(TLoadedSystem const& loaded) {
    std::string text = loaded.text;
    if (!text.empty() && text.back() == '\0') {
        text.pop_back();
    }
    return text;
}

/** The description's tree, with all that the text holds. */
std::string ShowXml(TLoadedSystem const& loaded) {
    TStringTree tree;
    tree.ReadFromString(loaded.text.c_str(), nullptr, nullptr);
    VellariHostKit::TXmlIniWriter writer;
    if (!tree.WriteToXML(&writer)) {
        throw TToolError(loaded.name +
                         ": the description has no XML form: it holds bytes that XML cannot hold");
    }
    return writer.ToString();
}

/** A format by its name. */
struct TShowFormat {
    std::string_view name;
    std::string (*print)(TLoadedSystem const& loaded);
};

constexpr TShowFormat showFormats[] = {
    {"summary", SummaryOf},
    {"text", ShowText},
    {"xml", ShowXml},
    {"wkt", ExportAsWkt},
    {"wkt-compound", ExportAsCompoundWkt},
    {"mif", ExportAsMif},
    {"geotiff", ExportAsGeoTiff},
    {"panorama", ExportAsPanorama},
};

/** @return the names of all formats, with commas. */
std::string FormatNames() {
    std::string names;
    for (TShowFormat const& format : showFormats) {
        names += (names.empty() ? "" : ", ") + std::string(format.name);
    }
    return names;
}

} // namespace

std::string ShowFormatsText() {
    return "form of the answer: " + FormatNames() + "; the first is the default";
}

int RunShow(std::string const& nameOrPath, std::string const& format) {
    for (TShowFormat const& row : showFormats) {
        if (format == row.name) {
            std::string text = row.print(LoadSystem(nameOrPath, suShow));
            if (!text.empty() && text.back() != '\n') {
                text += '\n';
            }
            PrintText(text);
            return esDone;
        }
    }
    throw TToolError("--as " + format + " is not a format; formats are " + FormatNames());
}

} // namespace VellariTool
