#include "frame/DataTree.h"

#include "frame/DataTreeDetail.h"
#include "frame/imported/StringTree.h"
#include "frame/imported/XIni.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

namespace KvRefSystem {

using DataTreeDetail::FindByte;
using DataTreeDetail::PastByte;
using DataTreeDetail::TCountScope;
using DataTreeDetail::TNumberScan;
using DataTreeDetail::TReaderSection;
using DataTreeDetail::TTextSink;
using DataTreeDetail::TWriterSection;
using DataTreeDetail::WriteValue;

template <class T>
TDataField<T>::TDataField() : tag(0), idx(0), count(0), values(nullptr) {}

template <class T>
TDataField<T>::TDataField(int fieldTag, int fieldIdx, T const* source, unsigned long valueCount,
                          std::string label)
    : tag(fieldTag), idx(fieldIdx), count(valueCount), values(nullptr), header(std::move(label)) {
    auto copies = std::make_unique<T[]>(valueCount);
    std::copy_n(source, valueCount, copies.get());
    values = copies.release();
}

template <class T>
TDataField<T>::~TDataField() {
    delete[] values;
}

template <class T>
unsigned long TDataField<T>::WriteToString(char* buffer, unsigned long position, unsigned long level) const {
    if (tag < 0 || idx < 0) {
        return 0;
    }
    TTextSink sink(buffer, position);
    sink.PutTabs(level);
    sink.Put("(");
    sink.PutNumber(tag);
    sink.Put(",");
    sink.PutNumber(idx);
    sink.Put(")[");
    sink.PutNumber(count);
    sink.Put("]");
    sink.Skip(LumCommonUtils::Encode(header.data(), header.size(), sink.Buffer(), sink.Position()));
    for (unsigned long index = 0; index < count; ++index) {
        sink.Put("\t");
        sink.Skip(ValueToString(index, sink.Buffer(), sink.Position()));
    }
    sink.Put("\n");
    return sink.Length();
}

template <class T>
bool TDataField<T>::WriteToXML(TKvXIniWriter* writer) const {
    if (tag < 0 || idx < 0) {
        return true;
    }
    if (!writer) {
        return false;
    }
    try {
        if (!WriteValue(writer, "tag", tag) || !WriteValue(writer, "idx", idx) ||
            !WriteValue(writer, "hdr", header)) {
            return false;
        }
        TWriterSection data(writer, writer->BeginSectionCompactSE("data"));
        for (unsigned long index = 0; index < count; ++index) {
            if (!WriteValue(writer, "", ValueToString(index))) {
                return false;
            }
        }
        data.End();
        return true;
    } catch (...) {
        return false;
    }
}

template <class T>
unsigned long TDataField<T>::ValueToString(unsigned long /*index*/, char* /*buffer*/,
                                           unsigned long /*position*/) const {
    return 0;
}

template <class T>
std::string TDataField<T>::ValueToString(unsigned long /*index*/) const {
    return {};
}

template <class T>
bool TDataField<T>::StringToValue(char const* /*text*/, unsigned long /*length*/, unsigned long /*index*/) {
    return false;
}

template <class T>
bool TDataField<T>::StringToValue(std::string const& /*text*/, unsigned long /*index*/) {
    return false;
}

template <class T>
void TDataField<T>::ReadFromString(char const* text, unsigned long* position) {
    if (!text) {
        return;
    }
    unsigned long offset = position ? *position : 0;

    unsigned long stated = 0;
    TNumberScan scan(text + offset);
    static_cast<void>(scan.Literal('(') && scan.Number(&tag) && scan.Literal(',') && scan.Number(&idx) &&
                      scan.Literal(')') && scan.Literal('[') && scan.Number(&stated));
    offset = PastByte(text, offset, ']');

    // Kept: a header ends at a TAB only, so a line without values takes in what follows, up to the next one.
    unsigned long const headerEnd = FindByte(text, offset, '\t');
    LumCommonUtils::Decode(std::string(text + offset, headerEnd - offset), &header);
    offset = PastByte(text, headerEnd, '\t');

    TCountScope::Require(text, offset, stated);
    auto fresh = std::make_unique<T[]>(stated);
    delete[] values;
    values = fresh.release();
    count = stated;

    // Kept: the line alone decides how many values are delivered; the slot ignores those past the count.
    unsigned long start = offset;
    for (unsigned long index = 0;; ++index) {
        while (text[offset] != '\t' && text[offset] != '\n' && text[offset] != '\0') {
            ++offset;
        }
        StringToValue(text + start, offset - start, index);
        if (text[offset] != '\t') {
            break;
        }
        start = ++offset;
    }
    if (text[offset] == '\n') {
        ++offset;
    }
    if (position) {
        *position = offset;
    }
}

template <class T>
bool TDataField<T>::ReadFromXML(TKvXIniReader* reader) {
    if (!reader) {
        return false;
    }
    try {
        tag = reader->template ReadE<int>(reader->FindFE("tag", 0));
        idx = reader->template ReadE<int>(reader->FindFE("idx", 0));
        header = reader->template ReadE<std::string>(reader->FindFE("hdr", 0));
        TReaderSection data(reader, reader->EnterSectionSE("data"));
        unsigned long const items = reader->ItemCount();
        auto fresh = std::make_unique<T[]>(items);
        delete[] values;
        values = fresh.release();
        count = items;
        for (unsigned long index = 0; index < items; ++index) {
            StringToValue(reader->template ReadE<std::string>(index), index);
        }
        data.Leave();
        return true;
    } catch (std::bad_alloc const&) {
        throw; // for the tree, which goes on over a field that is malformed
    } catch (...) {
        return false;
    }
}

template class TDataField<std::string>;

} // namespace KvRefSystem
