#include "hostkit/XmlIni.h"

#include "frame/NumberText.h"
#include "hostkit/FileText.h"
#include "hostkit/XmlDocument.h"
#include "hostkit/XmlText.h"

#include <stdexcept>
#include <utility>
#include <vector>

#include <pugixml.hpp>

namespace VellariHostKit {

namespace {

/** One item of a section: an attribute or an element. */
struct Item {
    pugi::xml_attribute attribute;
    pugi::xml_node element;

    char const* Name() const { return attribute ? attribute.name() : element.name(); }
};

bool IsElement(pugi::xml_node const& node) {
    return node.type() == pugi::node_element;
}

bool HasElements(pugi::xml_node const& element) {
    return !element.find_child(IsElement).empty();
}

std::string TextOf(pugi::xml_node const& element) {
    std::string text;
    for (pugi::xml_node const child : element.children()) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
            text += child.value();
        }
    }
    return text;
}

std::vector<Item> ItemsOf(pugi::xml_node const& section) {
    std::vector<Item> items;
    for (pugi::xml_attribute const attribute : section.attributes()) {
        items.push_back({attribute, pugi::xml_node()});
    }
    for (pugi::xml_node const child : section.children()) {
        if (IsElement(child)) {
            items.push_back({pugi::xml_attribute(), child});
        }
    }
    return items;
}

/** A section that was entered. */
struct Level {
    pugi::xml_node section;
    unsigned long handle;
    std::vector<Item> items;
};

} // namespace

// Hidden, since its functions take what the kit is made with.
struct __attribute__((visibility("hidden"))) TXmlIniReader::State {
    std::unique_ptr<ParsedDocument> document;
    std::vector<Level> levels;
    unsigned long lastHandle = 0;

    explicit State(std::unique_ptr<ParsedDocument> parsed) : document(std::move(parsed)) {
        Enter(document->dom->find_child(IsElement));
    }

    unsigned long Enter(pugi::xml_node const& section) {
        levels.push_back({section, lastHandle + 1, ItemsOf(section)});
        return ++lastHandle;
    }

    Item const* Find(unsigned long item) const {
        std::vector<Item> const& items = levels.back().items;
        return item < items.size() ? &items[item] : nullptr;
    }
};

TXmlIniReader::TXmlIniReader()
    : state(std::make_unique<State>(ParseXml("<string>", std::string("<") + DefaultXmlRoot + "/>"))) {}

TXmlIniReader::~TXmlIniReader() = default;

void TXmlIniReader::LoadString(std::string_view document) {
    state = std::make_unique<State>(ParseXml("<string>", std::string(document)));
}

void TXmlIniReader::LoadFile(std::string const& path) {
    state = std::make_unique<State>(ParseXml(path, ReadWholeFile(path)));
}

std::string TXmlIniReader::RootName() const {
    return state->levels.front().section.name();
}

unsigned long TXmlIniReader::ItemCount() {
    return state->levels.back().items.size();
}

bool TXmlIniReader::IsSection(unsigned long item) {
    Item const* const found = state->Find(item);
    if (!found || !found->element) {
        return false;
    }
    return HasElements(found->element) || found->element.first_attribute() || TextOf(found->element).empty();
}

unsigned long TXmlIniReader::EnterSection(unsigned long item) {
    try {
        return IsSection(item) ? state->Enter(state->Find(item)->element) : 0;
    } catch (...) {
        return 0;
    }
}

bool TXmlIniReader::LeaveSection(unsigned long handle) {
    if (state->levels.size() < 2 || state->levels.back().handle != handle) {
        return false;
    }
    state->levels.pop_back();
    return true;
}

unsigned long TXmlIniReader::EnterSectionE(unsigned long item) {
    if (IsSection(item)) {
        return state->Enter(state->Find(item)->element); // memory that runs out passes as what it is
    }
    if (item == NotFound) {
        throw std::runtime_error("there is no such section" + Where());
    }
    throw std::runtime_error(KvRefSystem::FormatText("item %lu is not a section", item) + Where());
}

void TXmlIniReader::LeaveSectionE(unsigned long handle) {
    if (!LeaveSection(handle)) {
        throw std::runtime_error(
            KvRefSystem::FormatText("the section %lu that is to be left is not the current one", handle) +
            Where());
    }
}

unsigned long TXmlIniReader::FindItem(char const* key, unsigned long from) {
    std::string const name = NameOf(key ? key : "");
    std::vector<Item> const& items = state->levels.back().items;
    for (unsigned long item = from; item < items.size(); ++item) {
        if (name == items[item].Name()) {
            return item;
        }
    }
    return NotFound;
}

bool TXmlIniReader::ReadText(unsigned long item, std::string* text) {
    Item const* const found = state->Find(item);
    if (!found || (found->element && HasElements(found->element))) {
        return false;
    }
    *text = UnescapeValue(found->attribute ? found->attribute.value() : TextOf(found->element));
    return true;
}

std::string TXmlIniReader::Where() const {
    std::string path;
    for (Level const& level : state->levels) {
        path += (path.empty() ? "" : "/") + std::string(level.section.name());
    }
    auto const offset = static_cast<std::size_t>(state->levels.back().section.offset_debug());
    return " in \"" + path + "\" (" + state->document->Place(offset) + ")";
}

} // namespace VellariHostKit
