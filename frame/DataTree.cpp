#include "frame/DataTree.h"

#include "frame/DataTreeDetail.h"
#include "frame/NumberText.h"
#include "frame/imported/XIni.h"

#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>

namespace KvRefSystem {

using DataTreeDetail::FindByte;
using DataTreeDetail::PastByte;
using DataTreeDetail::TAttributeMode;
using DataTreeDetail::TCountScope;
using DataTreeDetail::TNumberScan;
using DataTreeDetail::TPlainOwner;
using DataTreeDetail::TReaderSection;
using DataTreeDetail::TTextSink;
using DataTreeDetail::TWriterSection;
using DataTreeDetail::WriteValue;

namespace {

unsigned long const NoElement = static_cast<unsigned long>(-1);

/** @return the position of the first element with that pair, or `NoElement`. */
template <class Element>
unsigned long FindPair(TPtrVector<Element> const& elements, int tag, int idx) {
    for (unsigned long position = 0; position < elements.Size(); ++position) {
        Element const* const element = elements[position];
        if (element->tag == tag && element->idx == idx) {
            return position;
        }
    }
    return NoElement;
}

template <class Element>
void DeletePair(TPtrVector<Element>* elements, int tag, int idx) {
    unsigned long const position = FindPair(*elements, tag, idx);
    if (position != NoElement) {
        elements->Delete(position);
    }
}

template <class Tree>
bool IsWithin(Tree const* tree, Tree const* ancestor) {
    while (tree && tree != ancestor) {
        tree = tree->parent;
    }
    return tree != nullptr;
}

/** @return whether a tree under `enclosing` would stand deeper than `MaxTreeDepth`. */
template <class Tree>
bool IsTooDeep(Tree const* enclosing) {
    unsigned long depth = 1;
    for (; enclosing && depth <= MaxTreeDepth; enclosing = enclosing->parent) {
        ++depth;
    }
    return depth > MaxTreeDepth;
}

unsigned long CountTabs(char const* text, unsigned long offset) {
    unsigned long tabs = 0;
    while (text[offset + tabs] == '\t') {
        ++tabs;
    }
    return tabs;
}

/** Calls `readItem` inside of each section of the section `name`, if there is one. */
template <class ReadItem>
void ReadSections(TKvXIniReader* reader, char const* name, ReadItem readItem) {
    unsigned long const item = reader->FindF(name, 0);
    if (item == TKvXIniReader::NotFound) {
        return;
    }
    TReaderSection list(reader, reader->EnterSectionE(item));
    for (unsigned long index = 0; reader->IsSection(index); ++index) {
        TReaderSection element(reader, reader->EnterSectionE(index));
        readItem(index);
        element.Leave();
    }
    list.Leave();
}

} // namespace

template <class T>
TDataTree<T>::TDataTree(int treeTag, int treeIdx, TDataTree* enclosing, std::string label)
    : parent(enclosing), tag(treeTag), idx(treeIdx), header(std::move(label)) {}

template <class T>
TDataTree<T>::~TDataTree() {
    // Children refer to their parent: they go while all of it still stands.
    subtrees.Clear();
    fields.Clear();
}

template <class T>
TDataTree<T>* TDataTree<T>::CreateSubtree(int subtreeTag, int subtreeIdx, std::string label) {
    return new TDataTree(subtreeTag, subtreeIdx, this, std::move(label));
}

template <class T>
TDataTree<T>* TDataTree<T>::CreateSubtree(char const* text, unsigned long* position) {
    TPlainOwner<TDataTree> child(new TDataTree(0, 0, this, std::string()));
    child->ReadFromString(text, position, this);
    return child.release();
}

template <class T>
TDataTree<T>* TDataTree<T>::CreateSubtree(TKvXIniReader* reader, unsigned long item) {
    TPlainOwner<TDataTree> child(new TDataTree(0, 0, this, std::string()));
    // Kept: a child that fails half-way stays as far as it was read, and the parent goes on.
    static_cast<void>(child->ReadFromXML(reader, item, this));
    return child.release();
}

template <class T>
TDataField<T>* TDataTree<T>::CreateField(int fieldTag, int fieldIdx, T* source, unsigned long valueCount,
                                         std::string label) {
    return new TDataField<T>(fieldTag, fieldIdx, source, valueCount, std::move(label));
}

template <class T>
TDataField<T>* TDataTree<T>::CreateField(int fieldTag, int fieldIdx, T const& value, std::string label) {
    return new TDataField<T>(fieldTag, fieldIdx, &value, 1, std::move(label));
}

template <class T>
TDataField<T>* TDataTree<T>::CreateField(char const* text, unsigned long* position) {
    TPlainOwner<TDataField<T>> field(new TDataField<T>());
    field->ReadFromString(text, position);
    return field.release();
}

template <class T>
TDataField<T>* TDataTree<T>::CreateField(TKvXIniReader* reader, unsigned long /*item*/) {
    TPlainOwner<TDataField<T>> field(new TDataField<T>());
    // Kept: a child that fails half-way stays as far as it was read, and the parent goes on.
    static_cast<void>(field->ReadFromXML(reader));
    return field.release();
}

template <class T>
bool TDataTree<T>::InsertField(std::string label, int fieldTag, int fieldIdx, T const& value) {
    if (FindPair(fields, fieldTag, fieldIdx) != NoElement) {
        return false;
    }
    fields.Append(CreateField(fieldTag, fieldIdx, value, std::move(label)));
    return true;
}

template <class T>
bool TDataTree<T>::InsertField(std::string label, int fieldTag, int fieldIdx, T* source,
                               unsigned long valueCount) {
    if (FindPair(fields, fieldTag, fieldIdx) != NoElement) {
        return false;
    }
    fields.Append(CreateField(fieldTag, fieldIdx, source, valueCount, std::move(label)));
    return true;
}

template <class T>
bool TDataTree<T>::InsertSubtree(std::string label, int subtreeTag, int subtreeIdx) {
    if (FindPair(subtrees, subtreeTag, subtreeIdx) != NoElement) {
        return false;
    }
    subtrees.Append(CreateSubtree(subtreeTag, subtreeIdx, std::move(label)));
    return true;
}

template <class T>
void TDataTree<T>::DeleteField(int fieldTag, int fieldIdx) {
    DeletePair(&fields, fieldTag, fieldIdx);
}

template <class T>
void TDataTree<T>::DeleteSubtree(int subtreeTag, int subtreeIdx) {
    DeletePair(&subtrees, subtreeTag, subtreeIdx);
}

template <class T>
unsigned long TDataTree<T>::GetSubtreesIndexList(int subtreeTag, std::vector<int>* list) const {
    unsigned long appended = 0;
    for (unsigned long position = 0; position < subtrees.Size(); ++position) {
        TDataTree const* const child = subtrees[position];
        if (child->tag == subtreeTag) {
            list->push_back(child->idx);
            ++appended;
        }
    }
    return appended;
}

template <class T>
int TDataTree<T>::GetFreeSubtreeIndex(int subtreeTag) const {
    std::vector<int> taken;
    if (GetSubtreesIndexList(subtreeTag, &taken) == 0) {
        return 0;
    }
    // Kept: gaps stay free, so an index that was once given away isn't given to something else.
    int const largest = *std::max_element(taken.begin(), taken.end());
    return largest == std::numeric_limits<int>::max() ? largest : largest + 1;
}

template <class T>
bool TDataTree<T>::CopyTo(TDataTree* target) const {
    if (!target) {
        return false;
    }
    if (IsWithin<TDataTree>(target, this)) {
        // Walking what grows under the walk would never end: copy what stands now, from the side.
        TPlainOwner<TDataTree> const snapshot(target->CreateSubtree(tag, idx, header));
        snapshot->parent = nullptr;
        bool const isWhole = CopyTo(snapshot.get());
        return snapshot->CopyTo(target) && isWhole;
    }
    for (unsigned long position = 0; position < fields.Size(); ++position) {
        TDataField<T> const* const field = fields[position];
        if (!target->InsertField(field->header, field->tag, field->idx, field->values, field->count)) {
            return false;
        }
    }
    for (unsigned long position = 0; position < subtrees.Size(); ++position) {
        TDataTree const* const child = subtrees[position];
        if (!target->InsertSubtree(child->header, child->tag, child->idx)) {
            return false;
        }
        TDataTree* const copy = target->subtrees[FindPair(target->subtrees, child->tag, child->idx)];
        if (!child->CopyTo(copy)) {
            return false;
        }
    }
    return true;
}

template <class T>
unsigned long TDataTree<T>::WriteToString(char* buffer, unsigned long position, unsigned long level) const {
    TTextSink sink(buffer, position);
    sink.PutTabs(level);
    sink.Put("(");
    sink.PutNumber(tag);
    sink.Put(",");
    sink.PutNumber(idx);
    sink.Put(")");
    sink.Put(header);
    sink.Put("\n");
    for (unsigned long element = 0; element < fields.Size(); ++element) {
        sink.Skip(fields[element]->WriteToString(buffer, sink.Position(), level));
    }
    for (unsigned long element = 0; element < subtrees.Size(); ++element) {
        sink.Skip(subtrees[element]->WriteToString(buffer, sink.Position(), level + 1));
    }
    sink.PutTabs(level);
    sink.Put("\n");
    return sink.Length();
}

template <class T>
void TDataTree<T>::ReadFromString(char const* text, unsigned long* position, TDataTree* enclosing) {
    parent = enclosing;
    if (!text) {
        return;
    }
    unsigned long offset = position ? *position : 0;
    if (IsTooDeep(enclosing)) {
        throw std::runtime_error(
            FormatText("TDataTree::ReadFromString: the tree at byte %lu is nested deeper than %lu levels",
                       offset, MaxTreeDepth));
    }
    TCountScope const countScope(text, offset);

    unsigned long const level = CountTabs(text, offset);
    offset += level;
    TNumberScan scan(text + offset);
    static_cast<void>(scan.Literal('(') && scan.Number(&tag) && scan.Literal(',') && scan.Number(&idx));
    offset = PastByte(text, offset, ')');
    unsigned long const headerEnd = FindByte(text, offset, '\n');
    header.assign(text + offset, headerEnd - offset);
    offset = PastByte(text, headerEnd, '\n');

    for (;;) {
        unsigned long const tabs = CountTabs(text, offset);
        char const first = text[offset + tabs];
        if (first == '\0') {
            // The text ends early: so do all trees that are open.
            offset += tabs;
            break;
        }
        if (tabs > level) {
            subtrees.Append(CreateSubtree(text, &offset));
            continue;
        }
        offset += tabs;
        if (first == '\n') {
            ++offset;
            break;
        }
        fields.Append(CreateField(text, &offset));
    }
    if (position) {
        *position = offset;
    }
}

template <class T>
bool TDataTree<T>::WriteToXML(TKvXIniWriter* writer) const {
    if (!writer) {
        return false;
    }
    try {
        TAttributeMode attributes(writer);
        if (!WriteValue(writer, "tag", tag) || !WriteValue(writer, "idx", idx) ||
            !WriteValue(writer, "hdr", header)) {
            return false;
        }
        attributes.End();

        if (fields.Size() != 0) {
            // Kept: the section stands even when every field in it is skipped.
            TWriterSection list(writer, writer->BeginSectionSE("field"));
            for (unsigned long position = 0; position < fields.Size(); ++position) {
                TDataField<T> const* const field = fields[position];
                if (field->tag < 0 || field->idx < 0) {
                    continue;
                }
                TWriterSection element(writer, writer->BeginSectionCompactSE(""));
                if (!field->WriteToXML(writer)) {
                    return false;
                }
                element.End();
            }
            list.End();
        }
        if (subtrees.Size() != 0) {
            TWriterSection list(writer, writer->BeginSectionSE("subtree"));
            for (unsigned long position = 0; position < subtrees.Size(); ++position) {
                TWriterSection element(writer, writer->BeginSectionSE(""));
                if (!subtrees[position]->WriteToXML(writer)) {
                    return false;
                }
                element.End();
            }
            list.End();
        }
        return true;
    } catch (...) {
        return false;
    }
}

template <class T>
bool TDataTree<T>::ReadFromXML(TKvXIniReader* reader, unsigned long /*item*/, TDataTree* enclosing) {
    parent = enclosing;
    if (!reader || IsTooDeep(enclosing)) {
        return false;
    }
    try {
        tag = reader->template ReadE<int>(reader->FindFE("tag", 0));
        idx = reader->template ReadE<int>(reader->FindFE("idx", 0));
        header = reader->template ReadE<std::string>(reader->FindFE("hdr", 0));
        ReadSections(reader, "field",
                     [this, reader](unsigned long index) { fields.Append(CreateField(reader, index)); });
        ReadSections(reader, "subtree",
                     [this, reader](unsigned long index) { subtrees.Append(CreateSubtree(reader, index)); });
        return true;
    } catch (std::bad_alloc const&) {
        if (enclosing) {
            throw; // an inner tree that is cut short would pass for one that is malformed
        }
        return false;
    } catch (...) {
        return false;
    }
}

template class TDataTree<std::string>;

} // namespace KvRefSystem
