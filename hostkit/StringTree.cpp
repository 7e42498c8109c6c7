#include "frame/imported/StringTree.h"

#include "frame/NumberText.h"

#include <memory>
#include <string_view>
#include <utility>

namespace LumCommonUtils {

namespace {

using KvRefSystem::TDataField;
using KvRefSystem::TDataTree;
using KvRefSystem::TPtrVector;

/** Ends an object as the tree's own array does, since its destructor isn't virtual. */
template <class T>
struct Releaser {
    void operator()(T* item) const { TPtrVector<T>::Release(item); }
};

using OwnedField = std::unique_ptr<TStringField, Releaser<TStringField>>;
using OwnedTree = std::unique_ptr<TStringTree, Releaser<TStringTree>>;

/** One row of the escape table: a byte that text lines can't hold and the letter behind the backslash. */
struct Escape {
    char plain;
    char letter;
};

constexpr Escape escapes[] = {
    {'\\', '\\'}, {'\t', 't'}, {'\n', 'n'}, {'\r', 'r'}, {'\0', '0'},
};

char EscapeLetter(char plain) {
    for (Escape const& row : escapes) {
        if (row.plain == plain) {
            return row.letter;
        }
    }
    return 0;
}

/** @return the row whose letter this is, or null. */
Escape const* FindEscape(char letter) {
    for (Escape const& row : escapes) {
        if (row.letter == letter) {
            return &row;
        }
    }
    return nullptr;
}

/** @return the first item with that pair as `Wanted`, or null. */
template <class Wanted, class Items>
Wanted* Find(Items const& items, int tag, int idx) {
    for (unsigned long index = 0; index < items.Size(); ++index) {
        auto* const item = items[index];
        if (item->tag == tag && item->idx == idx) {
            return dynamic_cast<Wanted*>(item);
        }
    }
    return nullptr;
}

/** @return the first value of a field, or null. */
std::string const* FirstValue(TPtrVector<TDataField<std::string>> const& fields, int tag, int idx) {
    auto const* const field = Find<TDataField<std::string>>(fields, tag, idx);
    return field && field->count > 0 ? field->values : nullptr;
}

} // namespace

unsigned long Encode(char const* source, unsigned long length, char* buffer, unsigned long position) {
    unsigned long written = 0;
    auto const put = [&](char byte) {
        if (buffer) {
            buffer[position + written] = byte;
        }
        ++written;
    };
    for (unsigned long index = 0; index < length; ++index) {
        char const letter = EscapeLetter(source[index]);
        if (letter) {
            put('\\');
        }
        put(letter ? letter : source[index]);
    }
    return written;
}

bool Decode(std::string encoded, std::string* decoded) {
    std::string plain;
    plain.reserve(encoded.size());
    for (std::size_t index = 0; index < encoded.size(); ++index) {
        bool const escaped = encoded[index] == '\\' && index + 1 < encoded.size();
        Escape const* const row = escaped ? FindEscape(encoded[index + 1]) : nullptr;
        plain += row ? row->plain : encoded[index];
        index += row ? 1 : 0;
    }
    *decoded = std::move(plain);
    return true;
}

TStringField::TStringField() = default;

TStringField::TStringField(int fieldTag, int fieldIdx, std::string const* source, unsigned long valueCount,
                           std::string label)
    : TDataField<std::string>(fieldTag, fieldIdx, source, valueCount, std::move(label)) {}

unsigned long TStringField::ValueToString(unsigned long index, char* buffer, unsigned long position) const {
    if (index >= count) {
        return 0;
    }
    return Encode(values[index].data(), values[index].size(), buffer, position);
}

std::string TStringField::ValueToString(unsigned long index) const {
    return index < count ? values[index] : std::string();
}

bool TStringField::StringToValue(char const* text, unsigned long length, unsigned long index) {
    if (index >= count) {
        return false;
    }
    return Decode(std::string(text, length), &values[index]);
}

bool TStringField::StringToValue(std::string const& text, unsigned long index) {
    if (index >= count) {
        return false;
    }
    values[index] = text;
    return true;
}

TStringTree::TStringTree() : TStringTree(0, 0, nullptr, std::string()) {}

TStringTree::TStringTree(int treeTag, int treeIdx, TDataTree<std::string>* enclosing, std::string label)
    : TDataTree<std::string>(treeTag, treeIdx, enclosing, std::move(label)) {}

TDataTree<std::string>* TStringTree::CreateSubtree(int subtreeTag, int subtreeIdx, std::string label) {
    return new TStringTree(subtreeTag, subtreeIdx, this, std::move(label));
}

// The object is complete before it reads, so that reading reaches the codec of the string classes.
TDataTree<std::string>* TStringTree::CreateSubtree(char const* text, unsigned long* position) {
    OwnedTree child(new TStringTree(0, 0, this, std::string()));
    child->ReadFromString(text, position, this);
    return child.release();
}

// Kept: a child that fails half-way stays as far as it was read, and the parent goes on.
TDataTree<std::string>* TStringTree::CreateSubtree(TKvXIniReader* reader, unsigned long item) {
    OwnedTree child(new TStringTree(0, 0, this, std::string()));
    child->ReadFromXML(reader, item, this);
    return child.release();
}

TDataField<std::string>* TStringTree::CreateField(int fieldTag, int fieldIdx, std::string* source,
                                                  unsigned long valueCount, std::string label) {
    return new TStringField(fieldTag, fieldIdx, source, valueCount, std::move(label));
}

TDataField<std::string>* TStringTree::CreateField(int fieldTag, int fieldIdx, std::string const& value,
                                                  std::string label) {
    return new TStringField(fieldTag, fieldIdx, &value, 1, std::move(label));
}

TDataField<std::string>* TStringTree::CreateField(char const* text, unsigned long* position) {
    OwnedField field(new TStringField());
    field->ReadFromString(text, position);
    return field.release();
}

// Kept: a field that fails half-way stays as far as it was read, and the tree goes on.
TDataField<std::string>* TStringTree::CreateField(TKvXIniReader* reader, unsigned long) {
    OwnedField field(new TStringField());
    field->ReadFromXML(reader);
    return field.release();
}

TStringTree* TStringTree::FindSubtree(int subtreeTag, int subtreeIdx) {
    return Find<TStringTree>(subtrees, subtreeTag, subtreeIdx);
}

TStringTree const* TStringTree::FindSubtree(int subtreeTag, int subtreeIdx) const {
    return Find<TStringTree>(subtrees, subtreeTag, subtreeIdx);
}

TStringField* TStringTree::FindField(int fieldTag, int fieldIdx) {
    return Find<TStringField>(fields, fieldTag, fieldIdx);
}

TStringField const* TStringTree::FindField(int fieldTag, int fieldIdx) const {
    return Find<TStringField>(fields, fieldTag, fieldIdx);
}

bool TStringTree::GetInteger(int fieldTag, int fieldIdx, int* value) const {
    std::string const* const text = FirstValue(fields, fieldTag, fieldIdx);
    return text && KvRefSystem::ParseWholeInt(*text, value);
}

bool TStringTree::GetDouble(int fieldTag, int fieldIdx, double* value) const {
    std::string const* const text = FirstValue(fields, fieldTag, fieldIdx);
    return text && KvRefSystem::ParseWholeDouble(*text, value);
}

bool TStringTree::GetString(int fieldTag, int fieldIdx, std::string* value) const {
    std::string const* const text = FirstValue(fields, fieldTag, fieldIdx);
    if (!text) {
        return false;
    }
    *value = *text;
    return true;
}

bool TStringTree::InsertInteger(std::string label, int fieldTag, int fieldIdx, int value) {
    return InsertField(std::move(label), fieldTag, fieldIdx, KvRefSystem::FormatText("%d", value));
}

bool TStringTree::InsertDouble(std::string label, int fieldTag, int fieldIdx, double const& value) {
    return InsertField(std::move(label), fieldTag, fieldIdx, KvRefSystem::FormatText("%.18lg", value));
}

bool TStringTree::InsertString(std::string label, int fieldTag, int fieldIdx, std::string const& value) {
    return InsertField(std::move(label), fieldTag, fieldIdx, value);
}

} // namespace LumCommonUtils
