#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace pugi {
class xml_document;
} // namespace pugi

/** Checked parsing of a whole XML document. Internal to the kit: not part of its interface. */
namespace VellariHostKit {

/** A document together with what its places are called in messages. */
struct ParsedDocument {
    std::string source;                      ///< the file's name, or "<string>"
    std::string text;                        ///< the bytes that were parsed
    std::unique_ptr<pugi::xml_document> dom; ///< the elements

    ParsedDocument();
    ~ParsedDocument();

    /** @return "SOURCE, line L, column C" of an offset in the text, both from 1, the column in characters. */
    std::string Place(std::size_t offset) const;

private:
    /** A place that was counted, from which the count goes on to a later one. */
    struct Mark {
        std::size_t offset = 0;
        long line = 1;
        long column = 1;
    };
    mutable Mark mark;
};

/**
 * Parses a document and checks what the parser lets pass: that it is UTF-8 of characters that XML may hold,
 * has one root element and no text beside it, no document type, no reference to an unknown entity, no
 * attribute twice, and no nesting deeper than `MaxXmlDepth`.
 *
 * @throws std::runtime_error with the place and what is wrong.
 */
std::unique_ptr<ParsedDocument> ParseXml(std::string source, std::string text);

} // namespace VellariHostKit
