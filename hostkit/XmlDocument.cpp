#include "hostkit/XmlDocument.h"

#include "frame/NumberText.h"
#include "hostkit/Utf8.h"
#include "hostkit/XmlIni.h"
#include "hostkit/XmlText.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <stdexcept>
#include <unordered_set>
#include <utility>

#include <pugixml.hpp>

namespace VellariHostKit {

namespace {

using KvRefSystem::FormatText;

constexpr unsigned parseOptions = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_wconv_attribute |
                                  pugi::parse_eol | pugi::parse_doctype | pugi::parse_fragment;

[[noreturn]] void Refuse(ParsedDocument const& document, std::size_t offset, std::string const& reason) {
    throw std::runtime_error(document.Place(offset) + ": " + reason);
}

std::size_t OffsetOf(pugi::xml_node const& node) {
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(node.offset_debug(), 0));
}

void CheckCharacters(ParsedDocument const& document) {
    std::string_view const text = document.text;
    for (std::size_t offset = 0; offset < text.size();) {
        Utf8Character const character = DecodeUtf8(text.substr(offset));
        if (character.length == 0) {
            Refuse(document, offset,
                   FormatText("the byte 0x%02X is not UTF-8",
                              static_cast<unsigned>(static_cast<unsigned char>(text[offset]))));
        }
        if (!IsXmlCharacter(character.code)) {
            Refuse(document, offset,
                   FormatText("XML can't hold the character U+%04X", static_cast<unsigned>(character.code)));
        }
        offset += character.length;
    }
}

/** Whether the reference that begins with the `&` of a text is one that every document may hold. */
bool IsKnownReference(std::string_view text) {
    std::string_view const body = text.substr(1, text.find(';') - 1);
    for (char const* const name : {"amp", "lt", "gt", "quot", "apos"}) {
        if (body == name) {
            return text.size() > body.size() + 1;
        }
    }
    bool const isHex = body.substr(0, 2) == "#x";
    std::size_t const head = isHex ? 2 : 1;
    if (text.size() <= body.size() + 1 || body.empty() || body.front() != '#' || body.size() == head) {
        return false;
    }
    char32_t code = 0;
    for (char const digit : body.substr(head)) {
        constexpr std::string_view digits = "0123456789abcdefABCDEF";
        std::size_t const found = digits.find(digit);
        if (found >= (isHex ? digits.size() : 10)) {
            return false;
        }
        code = code * (isHex ? 16 : 10) + static_cast<char32_t>(found > 15 ? found - 6 : found);
        if (code > 0x10FFFF) {
            return false;
        }
    }
    return IsXmlCharacter(code);
}

void CheckReference(ParsedDocument const& document, std::size_t offset) {
    if (!IsKnownReference(std::string_view(document.text).substr(offset, 64))) {
        Refuse(document, offset, "an \"&\" that doesn't begin a known reference; a plain one is \"&amp;\"");
    }
}

/** Parts of a document in which `&` is an ordinary character. */
struct OpaquePart {
    std::string_view begin;
    std::string_view end;
};

constexpr OpaquePart opaqueParts[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};

/** Refuses what a part of the document must not hold and the parser lets pass. */
void CheckPart(ParsedDocument const& document, std::size_t offset, std::string_view part) {
    constexpr std::string_view comment = "<!--";
    constexpr std::string_view declaration = "<?xml";
    if (part.substr(0, comment.size()) == comment) {
        std::size_t const dashes = part.find("--", comment.size());
        if (dashes + 3 != part.size()) {
            Refuse(document, offset + dashes, "\"--\" inside of a comment");
        }
    }
    bool const isDeclaration = part.size() > declaration.size() &&
                               part.substr(0, declaration.size()) == declaration &&
                               std::strchr("? \t\r\n", part[declaration.size()]) != nullptr;
    if (isDeclaration && offset != 0) {
        Refuse(document, offset, "an XML declaration that isn't the beginning of the document");
    }
}

/** @return the offset behind the tag that begins at `offset`. */
std::size_t CheckTag(ParsedDocument const& document, std::size_t offset) {
    std::string_view const text = document.text;
    char quote = '\0';
    for (++offset; offset < text.size(); ++offset) {
        char const byte = text[offset];
        if (byte == '<') {
            Refuse(document, offset, "a \"<\" inside of a tag; in a value it is \"&lt;\"");
        }
        if (byte == '&') {
            CheckReference(document, offset);
        }
        if (quote == '\0' && byte == '>') {
            return offset + 1;
        }
        if (quote == '\0' && (byte == '"' || byte == '\'')) {
            quote = byte;
        } else if (byte == quote) {
            quote = '\0';
        }
    }
    return offset;
}

/** Checks the text between the elements, and the elements' tags. */
void CheckReferences(ParsedDocument const& document) {
    constexpr std::string_view sectionEnd = "]]>";
    std::string_view const text = document.text;
    for (std::size_t offset = text.find_first_of("<&]"); offset != std::string_view::npos;
         offset = text.find_first_of("<&]", offset)) {
        std::string_view const rest = text.substr(offset);
        if (rest.front() == '&') {
            CheckReference(document, offset);
            ++offset;
            continue;
        }
        if (rest.front() == ']') {
            if (rest.substr(0, sectionEnd.size()) == sectionEnd) {
                Refuse(document, offset, "\"]]>\" in a text; there it is \"]]&gt;\"");
            }
            ++offset;
            continue;
        }
        OpaquePart const* const part =
            std::find_if(std::begin(opaqueParts), std::end(opaqueParts), [rest](OpaquePart const& row) {
                return rest.substr(0, row.begin.size()) == row.begin;
            });
        if (part == std::end(opaqueParts)) {
            offset = CheckTag(document, offset);
            continue;
        }
        std::size_t const end = rest.find(part->end, part->begin.size());
        std::size_t const length = end == std::string_view::npos ? rest.size() : end + part->end.size();
        CheckPart(document, offset, rest.substr(0, length));
        offset += length;
    }
}

void CheckAttributes(ParsedDocument const& document, pugi::xml_node const& node) {
    std::unordered_set<std::string_view> names;
    for (pugi::xml_attribute const attribute : node.attributes()) {
        if (!names.insert(attribute.name()).second) {
            Refuse(document, OffsetOf(node),
                   std::string("the element \"") + node.name() + "\" has the attribute \"" +
                       attribute.name() + "\" twice");
        }
    }
}

/** Walks over all elements, without recursion, since the depth isn't known to be bounded yet. */
void CheckElements(ParsedDocument const& document, pugi::xml_node const& root) {
    unsigned long depth = 1;
    for (pugi::xml_node node = root; node;) {
        if (depth > MaxXmlDepth && node.type() == pugi::node_element) {
            Refuse(document, OffsetOf(node), FormatText("elements are nested deeper than %lu", MaxXmlDepth));
        }
        CheckAttributes(document, node);
        if (pugi::xml_node const child = node.first_child()) {
            node = child;
            ++depth;
            continue;
        }
        while (node != root && !node.next_sibling()) {
            node = node.parent();
            --depth;
        }
        node = node == root ? pugi::xml_node() : node.next_sibling();
    }
}

void CheckTopLevel(ParsedDocument const& document) {
    pugi::xml_node root;
    for (pugi::xml_node const node : document.dom->children()) {
        if (node.type() == pugi::node_doctype) {
            Refuse(document, OffsetOf(node), "a document type declaration isn't read");
        }
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
            Refuse(document, OffsetOf(node), "text outside of the root element");
        }
        if (node.type() == pugi::node_element && root) {
            Refuse(document, OffsetOf(node),
                   std::string("the element \"") + node.name() + "\" follows the root element");
        }
        root = node.type() == pugi::node_element ? node : root;
    }
    if (!root) {
        Refuse(document, document.text.size(), "there is no element");
    }
    CheckElements(document, root);
}

} // namespace

ParsedDocument::ParsedDocument() : dom(std::make_unique<pugi::xml_document>()) {}

ParsedDocument::~ParsedDocument() = default;

std::string ParsedDocument::Place(std::size_t offset) const {
    std::size_t const end = std::min(offset, text.size());
    // Places are mostly asked for in the order of the text: counting goes on from the last one.
    if (end < mark.offset) {
        mark = Mark();
    }
    for (; mark.offset < end; ++mark.offset) {
        auto const byte = static_cast<unsigned char>(text[mark.offset]);
        mark.line += byte == '\n' ? 1 : 0;
        mark.column = byte == '\n' ? 1 : mark.column + ((byte & 0xC0) != 0x80 ? 1 : 0);
    }
    return source + FormatText(", line %ld, column %ld", mark.line, mark.column);
}

std::unique_ptr<ParsedDocument> ParseXml(std::string source, std::string text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (std::string_view(text).substr(0, byteOrderMark.size()) == byteOrderMark) {
        text.erase(0, byteOrderMark.size());
    }
    auto document = std::make_unique<ParsedDocument>();
    document->source = std::move(source);
    document->text = std::move(text);
    CheckCharacters(*document);
    pugi::xml_parse_result const result = document->dom->load_buffer(
        document->text.data(), document->text.size(), parseOptions, pugi::encoding_utf8);
    if (result.status == pugi::status_out_of_memory) {
        throw std::bad_alloc();
    }
    if (!result) {
        Refuse(*document, static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0)),
               result.description());
    }
    CheckTopLevel(*document);
    CheckReferences(*document);
    return document;
}

} // namespace VellariHostKit
