#pragma once

#include "frame/DataTree.h"
#include "frame/imported/XIni.h"

#include <memory>
#include <string>
#include <string_view>

// Not for hosts, and hidden from them.
#pragma GCC visibility push(hidden)

/** What the field and the tree share inside of their bodies. */
namespace KvRefSystem::DataTreeDetail {

/** Ends a tree or a field as a plain one, never virtually. */
struct TPlainRelease {
    template <class T>
    void operator()(T* item) const {
        TPtrVector<T>::Release(item);
    }
};

template <class T>
using TPlainOwner = std::unique_ptr<T, TPlainRelease>;

/**
 * Puts text into a buffer, or only counts it when there is none; so both passes of a writer are the same code
 * and agree for every value.
 */
class TTextSink {
public:
    /** @param target may be null. @param start offset at which to begin. */
    TTextSink(char* target, unsigned long start) : buffer(target), begin(start), offset(start) {}

    void Put(std::string_view text);
    void PutTabs(unsigned long level);
    void PutNumber(int value);
    void PutNumber(unsigned long value);

    /** Counts what somebody else has put at `Position()`. */
    void Skip(unsigned long length) { offset += length; }

    char* Buffer() const { return buffer; }
    unsigned long Position() const { return offset; }
    unsigned long Length() const { return offset - begin; }

private:
    char* buffer;
    unsigned long begin;
    unsigned long offset;
};

/**
 * Reads the numbers of a line's beginning as a scan of "(%d,%d)[%llu]" does, blanks and signs included, but
 * clamps what is out of range and never looks beyond. A step that fails stores nothing.
 */
class TNumberScan {
public:
    explicit TNumberScan(char const* text) : at(text) {}

    bool Literal(char expected);
    bool Number(int* value);
    bool Number(unsigned long* value);

private:
    struct TDigits {
        bool negative;
        bool isClamped;
        unsigned long magnitude;
    };
    bool Digits(TDigits* digits);

    char const* at;
};

/** @return the offset of the first `stop` at or after `offset`, or that of the closing NUL. */
unsigned long FindByte(char const* text, unsigned long offset, char stop);

/** @return the offset just past the first `stop` at or after `offset`, or that of the closing NUL. */
unsigned long PastByte(char const* text, unsigned long offset, char stop);

/**
 * Bounds what one reading of a text may allocate for values: a count must fit into what is left of the text
 * (16 more are allowed, so that a text that was cut behind a count still reads), and all counts together into
 * twice the text, so that many false counts don't add up. The bound grows with
 * the part of the text that has been seen; nothing is looked at beyond that.
 *
 * The outermost reading of a text on a thread makes the scope; the readings of its children join it.
 */
class TCountScope {
public:
    TCountScope(char const* readText, unsigned long start);
    TCountScope(TCountScope const&) = delete;
    TCountScope& operator=(TCountScope const&) = delete;
    ~TCountScope();

    /** @throws std::bad_alloc when `count` values can't stand at or after `position`. */
    static void Require(char const* readText, unsigned long position, unsigned long count);

private:
    char const* text;
    unsigned long begin;
    unsigned long seen;
    unsigned long total;
    bool isJoined;
    TCountScope* outer;

    static thread_local TCountScope* current;
};

/** Writes one value. @return true; false when the write failed and the writer's error report came back. */
template <class T>
bool WriteValue(TKvXIniWriter* writer, std::string const& key, T const& value) {
    if (writer->WriteS(key, value)) {
        return true;
    }
    writer->RaiseError();
    return false;
}

/** An open section of a writer, closed also when an exception passes. */
class TWriterSection {
public:
    TWriterSection(TKvXIniWriter* sectionWriter, unsigned long handle)
        : writer(sectionWriter), section(handle) {}
    TWriterSection(TWriterSection const&) = delete;
    TWriterSection& operator=(TWriterSection const&) = delete;
    ~TWriterSection();

    /** Closes the section and reports a failure to do so. */
    void End();

private:
    TKvXIniWriter* writer;
    unsigned long section;
    bool isOpen = true;
};

/** Attribute mode of a writer, switched off also when an exception passes. */
class TAttributeMode {
public:
    explicit TAttributeMode(TKvXIniWriter* attributeWriter);
    TAttributeMode(TAttributeMode const&) = delete;
    TAttributeMode& operator=(TAttributeMode const&) = delete;
    ~TAttributeMode();

    /** Switches attribute mode off and reports a failure to do so. */
    void End();

private:
    TKvXIniWriter* writer;
    bool isOn = true;
};

/** An entered section of a reader, left also when an exception passes. */
class TReaderSection {
public:
    TReaderSection(TKvXIniReader* sectionReader, unsigned long handle)
        : reader(sectionReader), section(handle) {}
    TReaderSection(TReaderSection const&) = delete;
    TReaderSection& operator=(TReaderSection const&) = delete;
    ~TReaderSection();

    /** Leaves the section and reports a failure to do so. */
    void Leave();

private:
    TKvXIniReader* reader;
    unsigned long section;
    bool isOpen = true;
};

} // namespace KvRefSystem::DataTreeDetail

#pragma GCC visibility pop
