#include "tools/vellari/ToolError.h"

#include <Vellari/Vellari.h>

namespace VellariTool {

std::string Quoted(std::string_view text, std::size_t limit) {
    std::size_t shown = text.size();
    if (shown > limit) {
        shown = limit;
        // A character of several bytes isn't cut in two.
        while (shown > 0 && (static_cast<unsigned char>(text[shown]) & 0xC0) == 0x80) {
            --shown;
        }
    }
    std::string quoted = "\"";
    for (char const byte : text.substr(0, shown)) {
        auto const code = static_cast<unsigned char>(byte);
        if (code == '\t') {
            quoted += "\\t";
        } else if (code < 0x20 || code == 0x7F) {
            quoted += KvRefSystem::FormatText("\\x%02X", static_cast<unsigned>(code));
        } else {
            quoted += byte;
        }
    }
    quoted += shown < text.size() ? "...\"" : "\"";
    return quoted;
}

} // namespace VellariTool
