#include "hostkit/XmlIni.h"

#include "frame/NumberText.h"
#include "hostkit/FileText.h"
#include "hostkit/XmlText.h"

#include <stdexcept>
#include <unordered_set>
#include <utility>
#include <vector>

#include <pugixml.hpp>

namespace VellariHostKit {

namespace {

constexpr char const* declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr unsigned long indentation = 4;

/** Sections that stand on one line, by the identity of their nodes. */
using CompactSections = std::unordered_set<std::size_t>;

/** Turns elements into text; the depth is bounded by the writer. */
class Printer {
public:
    Printer(std::string* target, CompactSections const& compactSections)
        : text(*target), compact(compactSections) {}

    void Print(pugi::xml_node const& element, unsigned long level, bool isOnLine) {
        bool const isCompact = isOnLine || compact.contains(element.hash_value());
        Indent(level, isOnLine);
        text.append("<").append(element.name());
        for (pugi::xml_attribute const attribute : element.attributes()) {
            text.append(" ").append(attribute.name());
            text.append("=\"").append(EscapeMarkup(attribute.value())).append("\"");
        }
        if (!element.first_child()) {
            text += "/>";
        } else {
            text += '>';
            PrintContent(element, level, isCompact);
            text.append("</").append(element.name()).append(">");
        }
        text += isOnLine ? "" : "\n";
    }

private:
    void PrintContent(pugi::xml_node const& element, unsigned long level, bool isCompact) {
        if (element.first_child().type() == pugi::node_pcdata) {
            text += EscapeMarkup(element.first_child().value());
            return;
        }
        text += isCompact ? "" : "\n";
        for (pugi::xml_node const child : element.children()) {
            Print(child, level + 1, isCompact);
        }
        Indent(level, isCompact);
    }

    void Indent(unsigned long level, bool isOnLine) { text.append(isOnLine ? 0 : level * indentation, ' '); }

    std::string& text;
    CompactSections const& compact;
};

struct Level {
    pugi::xml_node section;
    unsigned long handle;
};

} // namespace

struct __attribute__((visibility("hidden"))) TXmlIniWriter::State {
    pugi::xml_document document;
    CompactSections compact;
    std::vector<Level> levels;
    unsigned long lastHandle = 0;
    bool attributeMode = false;
    std::string lastError = "nothing failed so far";

    /** Notes why a call reports a failure. */
    bool Fail(std::string reason) {
        lastError = std::move(reason);
        return false;
    }

    unsigned long Begin(std::string const& name, bool isCompact) {
        // The element of a value needs a level below the section.
        if (levels.size() + 1 >= MaxXmlDepth) {
            Fail(KvRefSystem::FormatText("sections are nested deeper than %lu", MaxXmlDepth - 1));
            return 0;
        }
        levels.reserve(levels.size() + 1);
        std::string const element = NameOf(name);
        pugi::xml_node const section = levels.back().section.append_child(element.c_str());
        if (!section) {
            throw std::bad_alloc();
        }
        if (isCompact) {
            compact.insert(section.hash_value());
        }
        levels.push_back({section, ++lastHandle});
        return lastHandle;
    }

    /** `Begin` for callers that want a 0 instead of an exception. */
    unsigned long TryBegin(std::string const& name, bool isCompact) {
        try {
            return Begin(name, isCompact);
        } catch (...) {
            Fail("there is no memory for a section");
            return 0;
        }
    }
};

TXmlIniWriter::TXmlIniWriter(std::string const& rootName) : state(std::make_unique<State>()) {
    std::string const name = NameOf(rootName);
    state->levels.push_back({state->document.append_child(name.c_str()), 0});
    if (!state->levels.back().section) {
        throw std::bad_alloc();
    }
}

TXmlIniWriter::~TXmlIniWriter() = default;

std::string TXmlIniWriter::ToString() const {
    if (state->levels.size() > 1) {
        throw std::runtime_error(std::string("the section \"") + state->levels.back().section.name() +
                                 "\" is still open");
    }
    std::string text = declaration;
    Printer(&text, state->compact).Print(state->levels.front().section, 0, false);
    return text;
}

void TXmlIniWriter::SaveFile(std::string const& path) const {
    WriteWholeFile(path, ToString());
}

unsigned long TXmlIniWriter::BeginSection(std::string const& name) {
    return state->TryBegin(name, false);
}

unsigned long TXmlIniWriter::BeginSectionCompact(std::string const& name) {
    return state->TryBegin(name, true);
}

bool TXmlIniWriter::EndSection(unsigned long handle) {
    if (state->levels.size() < 2 || state->levels.back().handle != handle) {
        return state->Fail(
            KvRefSystem::FormatText("the section %lu that is to be closed is not the current one", handle));
    }
    state->levels.pop_back();
    return true;
}

void TXmlIniWriter::EndSectionE(unsigned long handle) {
    if (!EndSection(handle)) {
        RaiseError();
    }
}

void TXmlIniWriter::SetAttributeMode(bool on) {
    state->attributeMode = on;
}

void TXmlIniWriter::RaiseError() {
    throw std::runtime_error("XML can't be written: " + state->lastError);
}

bool TXmlIniWriter::WriteText(std::string const& key, std::string const& text) {
    std::string const name = NameOf(key);
    std::string const value = EscapeValue(text);
    pugi::xml_node section = state->levels.back().section;
    if (!state->attributeMode) {
        pugi::xml_node element = section.append_child(name.c_str());
        bool const stored =
            element && (value.empty() || element.append_child(pugi::node_pcdata).set_value(value.c_str()));
        return stored || state->Fail("there is no memory for the value \"" + key + "\"");
    }
    if (key.empty()) {
        return state->Fail("an attribute without a key");
    }
    if (section.attribute(name.c_str())) {
        return state->Fail("the attribute \"" + key + "\" stands twice in one section");
    }
    return section.append_attribute(name.c_str()).set_value(value.c_str()) ||
           state->Fail("there is no memory for the attribute \"" + key + "\"");
}

} // namespace VellariHostKit
