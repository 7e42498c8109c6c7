#pragma once

#include <string>

/**
 * Reader of a tree of sections. A section holds numbered items, and an item is a value or a section; the
 * position is the current section. The operations whose names end in E throw where the others report.
 */
class TKvXIniReader {
public:
    /** "Not found" among item numbers. */
    static constexpr unsigned long NotFound = static_cast<unsigned long>(-1);

    virtual ~TKvXIniReader();

    /** @return the number of the first item named `key` at or after `from`, or `NotFound`. */
    unsigned long FindF(char const* key, unsigned long from);

    /** As `FindF`. @throws std::runtime_error when there is none. */
    unsigned long FindFE(char const* key, unsigned long from);

    /**
     * @return the item's value; `fallback` when `item` is `NotFound` or not readable. For int, bool, double,
     *         string.
     */
    template <class T>
    T Read(unsigned long item, T fallback);

    /**
     * @return the item's value.
     * @throws std::runtime_error when it can't be read. For int, bool, double, string.
     */
    template <class T>
    T ReadE(unsigned long item);

    /**
     * Enters the first section named `name`.
     * @return its handle, never 0.
     * @throws std::runtime_error without one.
     */
    unsigned long EnterSectionSE(char const* name);

    /** @return the number of items of the current section. */
    virtual unsigned long ItemCount() = 0;

    /** @return whether `item` is a section; false past the end. */
    virtual bool IsSection(unsigned long item) = 0;

    /** Enters an item. @return a handle, or 0 when it can't, as for `NotFound`. */
    virtual unsigned long EnterSection(unsigned long item) = 0;

    /** Leaves what `EnterSection` entered. @return whether `handle` was the current section. */
    virtual bool LeaveSection(unsigned long handle) = 0;

    /** Enters an item. @return a handle, never 0. @throws std::runtime_error when it can't. */
    virtual unsigned long EnterSectionE(unsigned long item) = 0;

    /**
     * Leaves what `EnterSectionE` or `EnterSectionSE` entered.
     * @throws std::runtime_error when it isn't the current one.
     */
    virtual void LeaveSectionE(unsigned long handle) = 0;

protected:
    /** @return the number of the first item named `key` at or after `from`, or `NotFound`. */
    virtual unsigned long FindItem(char const* key, unsigned long from) = 0;

    /** Stores the text of a value item. @return false when `item` isn't one. */
    virtual bool ReadText(unsigned long item, std::string* text) = 0;

    /**
     * @return where the current section stands, as the end of an error's text, such as " in ..."; empty at
     *         first.
     */
    virtual std::string Where() const;
};

/** Writer of a tree of sections, the mirror of `TKvXIniReader`. */
class TKvXIniWriter {
public:
    virtual ~TKvXIniWriter();

    /**
     * Writes a value; an empty key makes an unnamed one. For int, bool, double, string.
     * @return true on success.
     */
    template <class T>
    bool WriteS(std::string const& key, T const& value);

    /**
     * Opens a section; an empty name makes an unnamed one.
     * @return its handle.
     * @throws std::runtime_error.
     */
    unsigned long BeginSectionSE(std::string const& name);

    /** The same for a section whose values are to lie on one line. */
    unsigned long BeginSectionCompactSE(std::string const& name);

    /** Opens a section. @return its handle, or 0. */
    virtual unsigned long BeginSection(std::string const& name) = 0;

    /** Closes what `BeginSection` opened. @return whether `handle` was the current section. */
    virtual bool EndSection(unsigned long handle) = 0;

    /** Closes what the SE forms opened. @throws std::runtime_error when it isn't the current one. */
    virtual void EndSectionE(unsigned long handle) = 0;

    /** On: values that follow become attributes of the current section; off: items. */
    virtual void SetAttributeMode(bool on) = 0;

    /** Reports a failed write. @throws std::runtime_error always. */
    virtual void RaiseError() = 0;

protected:
    /** Writes one value as text. @return true on success. */
    virtual bool WriteText(std::string const& key, std::string const& text) = 0;

    /** Opens a section that lies on one line. @return its handle, or 0. */
    virtual unsigned long BeginSectionCompact(std::string const& name) = 0;
};

namespace LumCommonUtils {

/** Writes a number that isn't 0. @return true when it skipped, else what the writer returned. */
bool WriteNonZeroInt(TKvXIniWriter* writer, std::string key, int value);

/** Writes a number that isn't negative. @return true when it skipped, else what the writer returned. */
bool WriteNonNegativeInt(TKvXIniWriter* writer, std::string key, int value);

/** Writes a text that isn't empty. @return true when it skipped, else what the writer returned. */
bool WriteNotEmptyString(TKvXIniWriter* writer, std::string key, std::string value);

} // namespace LumCommonUtils
