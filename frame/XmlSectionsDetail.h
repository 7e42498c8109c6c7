#pragma once

#include "frame/imported/XIni.h"

#include <stdexcept>
#include <string>

namespace KvRefSystem {

/** A section of a reader for as long as this object lives; it is left when an exception passes, too. */
class TXmlReadSection {
public:
    /**
     * Enters the section `key` of the current one; converts to false when there is none.
     * @throws std::runtime_error for one that is there and can't be entered: for want of memory it would
     *         pass for a part that the document leaves out.
     */
    TXmlReadSection(TKvXIniReader* source, char const* key) : reader(source), handle(0) {
        unsigned long const item = source->FindF(key, 0);
        handle = source->EnterSection(item);
        if (handle == 0 && item != TKvXIniReader::NotFound && source->IsSection(item)) {
            throw std::runtime_error("a section can't be entered: " + std::string(key));
        }
    }
    TXmlReadSection(TXmlReadSection const&) = delete;
    TXmlReadSection& operator=(TXmlReadSection const&) = delete;

    ~TXmlReadSection() {
        try {
            Leave();
        } catch (...) {
            // The failure that is already on its way tells more.
        }
    }

    explicit operator bool() const { return handle != 0; }

    /** Leaves the section now. @return whether the reader agreed; true when it was left before. */
    bool Leave() {
        unsigned long const left = handle;
        handle = 0;
        return left == 0 || reader->LeaveSection(left);
    }

private:
    TKvXIniReader* reader;
    unsigned long handle;
};

/**
 * Writes a section around what `writeContent` writes. The section is closed after a failure, too, so that the
 * caller's own is the current one again.
 * @return false when any of it failed.
 */
template <class Content>
bool WriteXmlSection(TKvXIniWriter* writer, std::string const& name, Content writeContent) {
    unsigned long const handle = writer->BeginSection(name);
    if (handle == 0) {
        return false;
    }
    bool written{};
    try {
        written = writeContent();
    } catch (...) {
        writer->EndSection(handle);
        throw;
    }
    return writer->EndSection(handle) && written;
}

/** @return the text of the item `key` of the current section, or an empty one. */
inline std::string ReadXmlText(TKvXIniReader* reader, char const* key) {
    return reader->Read<std::string>(reader->FindF(key, 0), std::string());
}

/** @return the number of the item `key` of the current section, or `fallback`. */
inline int ReadXmlInt(TKvXIniReader* reader, char const* key, int fallback) {
    return reader->Read<int>(reader->FindF(key, 0), fallback);
}

} // namespace KvRefSystem
