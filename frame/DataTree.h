#pragma once

#include <cstddef>
#include <new>
#include <string>
#include <vector>

class TKvXIniReader;
class TKvXIniWriter;

namespace KvRefSystem {

/** Deepest nesting of trees that a text or an XML document may have. What goes deeper is refused. */
inline constexpr unsigned long MaxTreeDepth = 256;

/**
 * A growing array of owned pointers. Elements are ended as plain `T`, never virtually, from first to last.
 */
template <class T>
class TPtrVector {
public:
    TPtrVector() = default;
    TPtrVector(TPtrVector const&) = delete;
    TPtrVector& operator=(TPtrVector const&) = delete;
    ~TPtrVector() { Clear(); }

    /** @return the number of items. */
    unsigned long Size() const { return items.size(); }
    /** @param index below the size, unchecked. @return the item. */
    T* operator[](unsigned long index) const { return items[index]; }

    /** Appends and takes over `item`; it is ended when that fails. */
    void Append(T* item) {
        try {
            items.push_back(item);
        } catch (...) {
            Release(item);
            throw;
        }
    }

    /** Ends one element and closes the gap. */
    void Delete(unsigned long index) {
        T* const item = items[index];
        items.erase(items.begin() + static_cast<std::ptrdiff_t>(index));
        Release(item);
    }

    /** Ends all elements, from first to last. */
    void Clear() {
        for (T* const item : items) {
            Release(item);
        }
        items.clear();
    }

    /** Ends one element as a plain `T`. */
    static void Release(T* item) {
        if (!item) {
            return;
        }
        item->T::~T();
        ::operator delete(static_cast<void*>(item));
    }

private:
    std::vector<T*> items;
};

/**
 * A field of a data tree: values under a pair (tag, idx) with a label for people.
 *
 * A field with a negative tag or idx is never persisted. The generic class has no codec for its values:
 * its four value operations do nothing; the codec belongs to a derived class, which adds no members, since
 * destruction isn't virtual.
 */
template <class T>
class TDataField {
public:
    /** An empty field, to be read. */
    TDataField();

    /** A field of `count` values, each copied from `source`. */
    TDataField(int fieldTag, int fieldIdx, T const* source, unsigned long valueCount, std::string label);

    TDataField(TDataField const&) = delete;
    TDataField& operator=(TDataField const&) = delete;
    ~TDataField();

    /**
     * Writes the field's line.
     * @param buffer receives the text from `position` on; null only measures. @param level number of
     *         leading TABs.
     * @return the number of bytes; 0 for a field that is never persisted.
     */
    virtual unsigned long WriteToString(char* buffer, unsigned long position, unsigned long level) const;

    /** Writes "tag", "idx", "hdr" and the section "data". @return false when a write failed. */
    virtual bool WriteToXML(TKvXIniWriter* writer) const;

    /**
     * Writes one value's text at `buffer + position`.
     * @return its length; with a null buffer the length only.
     */
    virtual unsigned long ValueToString(unsigned long index, char* buffer, unsigned long position) const;

    /** @return one value as a plain text. */
    virtual std::string ValueToString(unsigned long index) const;

    /** Stores one value from its text. @return whether it was stored. */
    virtual bool StringToValue(char const* text, unsigned long length, unsigned long index);

    /** Stores one value from a plain text. @return whether it was stored. */
    virtual bool StringToValue(std::string const& text, unsigned long index);

    /**
     * Reads the field's line; a text that ends early ends the field with what it has.
     * @param position offset of the "(" of the line; set past its LF, or at the closing NUL. May be
     *         null for 0.
     * @throws std::bad_alloc for a count that is more than 16 above what is left of the text.
     */
    void ReadFromString(char const* text, unsigned long* position);

    /**
     * Reads from the current section.
     * @return false when something is missing; what was read stays. @throws std::bad_alloc.
     */
    bool ReadFromXML(TKvXIniReader* reader);

    int tag;             ///< field number; negative: never persisted
    int idx;             ///< occurrence under that tag; negative: never persisted
    unsigned long count; ///< number of values
    T* values;           ///< the values, owned
    std::string header;  ///< label, never used for lookup
};

/**
 * A tree of numbered, named fields and subtrees, found by (tag, idx).
 *
 * Inside one tree a pair occurs at most once among the fields and once among the subtrees, as far as the
 * insert operations are used; a field and a subtree may share a pair. The order is that of insertion and
 * both persistent forms keep it. Headers are labels: nothing is found by them.
 *
 * Text form: one line an element, TAB and LF as the only separators, indentation is structure; a tree ends
 * with a line of TABs alone. A derived class adds no members, since destruction isn't virtual.
 */
template <class T>
class TDataTree {
public:
    /** An empty tree. @param enclosing the parent, null at the root; not owned. */
    TDataTree(int treeTag, int treeIdx, TDataTree* enclosing, std::string label);
    TDataTree(TDataTree const&) = delete;
    TDataTree& operator=(TDataTree const&) = delete;
    ~TDataTree();

    /** Writes the tree into the current section. @return false when a write failed. */
    virtual bool WriteToXML(TKvXIniWriter* writer) const;

    /** @return a new empty child; the caller owns it. */
    virtual TDataTree* CreateSubtree(int subtreeTag, int subtreeIdx, std::string label);

    /** @return a new child read from the text at `*position`; the caller owns it. */
    virtual TDataTree* CreateSubtree(char const* text, unsigned long* position);

    /** @return a new child read from the current section, as far as it could be; the caller owns it. */
    virtual TDataTree* CreateSubtree(TKvXIniReader* reader, unsigned long item);

    /** @return a new field with copies of `count` values; the caller owns it. */
    virtual TDataField<T>* CreateField(int fieldTag, int fieldIdx, T* source, unsigned long valueCount,
                                       std::string label);

    /** @return a new field of one value; the caller owns it. */
    virtual TDataField<T>* CreateField(int fieldTag, int fieldIdx, T const& value, std::string label);

    /** @return a new field read from the text at `*position`; the caller owns it. */
    virtual TDataField<T>* CreateField(char const* text, unsigned long* position);

    /** @return a new field read from the current section, as far as it could be; the caller owns it. */
    virtual TDataField<T>* CreateField(TKvXIniReader* reader, unsigned long item);

    /** Appends a field of one value. @return false, changing nothing, when the pair is taken. */
    bool InsertField(std::string label, int fieldTag, int fieldIdx, T const& value);

    /**
     * Appends a field with copies of `count` values.
     * @return false, changing nothing, when the pair is taken.
     */
    bool InsertField(std::string label, int fieldTag, int fieldIdx, T* source, unsigned long valueCount);

    /** Appends an empty subtree. @return false, changing nothing, when the pair is taken. */
    bool InsertSubtree(std::string label, int subtreeTag, int subtreeIdx);

    /** Ends the first field with that pair, if there is one. */
    void DeleteField(int fieldTag, int fieldIdx);

    /** Ends the first subtree with that pair, with all that it holds, if there is one. */
    void DeleteSubtree(int subtreeTag, int subtreeIdx);

    /**
     * Appends the idx of each subtree with that tag, in order; doesn't clear.
     * @return how many were appended.
     */
    unsigned long GetSubtreesIndexList(int subtreeTag, std::vector<int>* list) const;

    /** @return the largest idx of the subtrees with that tag plus 1, or 0 without one; gaps aren't reused. */
    int GetFreeSubtreeIndex(int subtreeTag) const;

    /**
     * Copies fields, then subtrees, into `target`, which isn't cleared.
     * @return false at the first pair that `target` has already; what was copied stays.
     */
    bool CopyTo(TDataTree* target) const;

    /**
     * Writes the text form, without a closing NUL.
     * @param buffer receives the text from `position` on; null only measures. @param level number of
     *         leading TABs.
     * @return the number of bytes.
     */
    unsigned long WriteToString(char* buffer, unsigned long position, unsigned long level) const;

    /**
     * Reads the text form into this empty tree; a text that ends early closes all open trees.
     * @param position offset of the tree's line, set past its closing line; null for 0.
     * @throws std::bad_alloc for a count more than 16 above what is left of the text, std::runtime_error for
     *         a nesting deeper than `MaxTreeDepth`.
     */
    void ReadFromString(char const* text, unsigned long* position, TDataTree* enclosing);

    /**
     * Reads from the current section; `item` isn't used.
     * @return false when something is missing, or memory in a root tree; what was read stays.
     * @throws std::bad_alloc inside of another tree.
     */
    bool ReadFromXML(TKvXIniReader* reader, unsigned long item, TDataTree* enclosing);

    TDataTree* parent;                ///< enclosing tree, null at the root; not owned
    TPtrVector<TDataTree> subtrees;   ///< children, in order of insertion
    TPtrVector<TDataField<T>> fields; ///< fields, in order of insertion
    int tag;                          ///< tree number
    int idx;                          ///< occurrence under that number
    std::string header;               ///< label, written raw: must not hold an LF
};

extern template class TDataField<std::string>;
extern template class TDataTree<std::string>;

} // namespace KvRefSystem
