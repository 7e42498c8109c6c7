#pragma once

#include "frame/DataTree.h"

#include <string>

namespace LumCommonUtils {

/**
 * A field of strings, whose values are written as their escaped text. Adds no members, since destruction
 * isn't virtual.
 */
class TStringField : public KvRefSystem::TDataField<std::string> {
public:
    /** An empty field, to be read. */
    TStringField();

    /** A field of `valueCount` values, each copied from `source`. */
    TStringField(int fieldTag, int fieldIdx, std::string const* source, unsigned long valueCount,
                 std::string label);

    using TDataField<std::string>::ValueToString;
    using TDataField<std::string>::StringToValue;

    /** Writes the escaped value. @return its length; 0 for an index past the count. */
    unsigned long ValueToString(unsigned long index, char* buffer, unsigned long position) const override;

    /** @return the plain value; empty for an index past the count. */
    std::string ValueToString(unsigned long index) const override;

    /** Stores a value from its escaped text. @return false for an index past the count, which is ignored. */
    bool StringToValue(char const* text, unsigned long length, unsigned long index) override;

    /** Stores a plain value. @return false for an index past the count, which is ignored. */
    bool StringToValue(std::string const& text, unsigned long index) override;
};

/** A tree of strings with typed access to its fields. Adds no members, since destruction isn't virtual. */
class TStringTree : public KvRefSystem::TDataTree<std::string> {
public:
    /** An empty root tree, to be read or filled. */
    TStringTree();

    /** An empty tree. @param enclosing the parent, null at the root; not owned. */
    TStringTree(int treeTag, int treeIdx, TDataTree<std::string>* enclosing, std::string label);

    using TDataTree<std::string>::CreateSubtree;
    using TDataTree<std::string>::CreateField;

    TDataTree<std::string>* CreateSubtree(int subtreeTag, int subtreeIdx, std::string label) override;
    TDataTree<std::string>* CreateSubtree(char const* text, unsigned long* position) override;
    TDataTree<std::string>* CreateSubtree(TKvXIniReader* reader, unsigned long item) override;
    KvRefSystem::TDataField<std::string>* CreateField(int fieldTag, int fieldIdx, std::string* source,
                                                      unsigned long valueCount, std::string label) override;
    KvRefSystem::TDataField<std::string>* CreateField(int fieldTag, int fieldIdx, std::string const& value,
                                                      std::string label) override;
    KvRefSystem::TDataField<std::string>* CreateField(char const* text, unsigned long* position) override;
    KvRefSystem::TDataField<std::string>* CreateField(TKvXIniReader* reader, unsigned long item) override;

    /** @return the subtree (tag, idx), or null. */
    TStringTree* FindSubtree(int subtreeTag, int subtreeIdx);
    /** The same for reading. */
    TStringTree const* FindSubtree(int subtreeTag, int subtreeIdx) const;

    /** @return the field (tag, idx), or null. */
    TStringField* FindField(int fieldTag, int fieldIdx);
    /** The same for reading. */
    TStringField const* FindField(int fieldTag, int fieldIdx) const;

    /**
     * Reads a whole number, strictly.
     * @return false, `*value` untouched, without the field or for another text.
     */
    bool GetInteger(int fieldTag, int fieldIdx, int* value) const;

    /** Reads a number, strictly. @return false, `*value` untouched, without the field or for another text. */
    bool GetDouble(int fieldTag, int fieldIdx, double* value) const;

    /** Reads a text. @return false, `*value` untouched, without the field or when it holds no value. */
    bool GetString(int fieldTag, int fieldIdx, std::string* value) const;

    /** As `InsertField`, of the decimal text. @return false, nothing changed, when the pair is taken. */
    bool InsertInteger(std::string label, int fieldTag, int fieldIdx, int value);

    /**
     * As `InsertField`, of the text of 18 digits, which reads back the same.
     * @return false when the pair is taken.
     */
    bool InsertDouble(std::string label, int fieldTag, int fieldIdx, double const& value);

    /** As `InsertField`. @return false, nothing changed, when the pair is taken. */
    bool InsertString(std::string label, int fieldTag, int fieldIdx, std::string const& value);
};

/**
 * Escapes backslash, TAB, LF, CR and NUL as `\\`, `\t`, `\n`, `\r` and `\0`; all other bytes stay.
 *
 * @param source   the bytes. @param length their number.
 * @param buffer   receives the text from `position` on, without a closing NUL; null only measures.
 * @return the length of the escaped text in bytes.
 */
unsigned long Encode(char const* source, unsigned long length, char* buffer, unsigned long position);

/** Inverts `Encode`; an unknown escape and a lone final backslash stay as they are. @return true. */
bool Decode(std::string encoded, std::string* decoded);

} // namespace LumCommonUtils

namespace KvRefSystem {
using LumCommonUtils::TStringField;
using LumCommonUtils::TStringTree;
} // namespace KvRefSystem
