#pragma once

#include "frame/imported/XIni.h"

#include <memory>
#include <string>
#include <string_view>

namespace VellariHostKit {

/** Deepest nesting of the elements of a document, the root's included; a deeper one is refused. */
inline constexpr unsigned long MaxXmlDepth = 1000;

/** Name of a document's root element where the caller names none. */
inline constexpr char const* DefaultXmlRoot = "Vellari";

/**
 * Reads a tree of sections from an XML document.
 *
 * The root element is the first section. The items of a section are its attributes and then its child
 * elements, numbered from 0; an item's key is its name, and an unnamed item is an element named `item`. An
 * attribute is a value. An element without child elements is a value, its text; an element with child
 * elements or attributes is a section, and so is an empty one. Blanks, tabs and line ends between elements,
 * comments and processing instructions don't count. How keys and values that XML can't hold are written
 * stands in `hostkit/XmlText.h`.
 *
 * The document is UTF-8. A document with a document type declaration is refused, so that nothing is fetched
 * or expanded. A reader is not to be used from two threads at once.
 */
class TXmlIniReader : public TKvXIniReader {
public:
    /** A reader of an empty root section. */
    TXmlIniReader();
    ~TXmlIniReader() override;
    TXmlIniReader(TXmlIniReader const&) = delete;
    TXmlIniReader& operator=(TXmlIniReader const&) = delete;

    /**
     * Reads a document from a string and stands at its root.
     * @throws std::runtime_error with "<string>", line and column and what is wrong with a document that
     *         isn't well formed or goes too deep; the reader is then unchanged.
     */
    void LoadString(std::string_view document);

    /**
     * Reads a document from a file and stands at its root.
     * @throws std::runtime_error that names the file and the system's reason, or the file, line and column
     *         and what is wrong; the reader is then unchanged.
     */
    void LoadFile(std::string const& path);

    /** @return the name of the root element. */
    std::string RootName() const;

    unsigned long ItemCount() override;
    bool IsSection(unsigned long item) override;
    unsigned long EnterSection(unsigned long item) override;
    bool LeaveSection(unsigned long handle) override;
    unsigned long EnterSectionE(unsigned long item) override;
    void LeaveSectionE(unsigned long handle) override;

protected:
    unsigned long FindItem(char const* key, unsigned long from) override;
    bool ReadText(unsigned long item, std::string* text) override;
    std::string Where() const override;

private:
    struct State;
    std::unique_ptr<State> state;
};

/**
 * Writes a tree of sections as an XML document: the mirror of `TXmlIniReader`.
 *
 * A section is an element with its key as the name, `item` without a key; a value is an element with the
 * value as its text, or an attribute of the current section in attribute mode. A compact section stands on
 * one line with all that it holds; everything else stands on lines of its own, indented by four blanks a
 * level. A writer is not to be used from two threads at once.
 */
class TXmlIniWriter : public TKvXIniWriter {
public:
    /** Begins a document. @param rootName key of the root element, which is the first section. */
    explicit TXmlIniWriter(std::string const& rootName = DefaultXmlRoot);
    ~TXmlIniWriter() override;
    TXmlIniWriter(TXmlIniWriter const&) = delete;
    TXmlIniWriter& operator=(TXmlIniWriter const&) = delete;

    /** @return the document, UTF-8 with a declaration. @throws std::runtime_error while a section is open. */
    std::string ToString() const;

    /**
     * Writes the document to a file, which has all of it or stays as it was.
     * @throws std::runtime_error that names the file and the reason, or while a section is open.
     */
    void SaveFile(std::string const& path) const;

    unsigned long BeginSection(std::string const& name) override;
    bool EndSection(unsigned long handle) override;
    void EndSectionE(unsigned long handle) override;
    void SetAttributeMode(bool on) override;
    void RaiseError() override;

protected:
    bool WriteText(std::string const& key, std::string const& text) override;
    unsigned long BeginSectionCompact(std::string const& name) override;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace VellariHostKit
