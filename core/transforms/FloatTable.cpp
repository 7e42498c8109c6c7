#include "core/transforms/FloatTable.h"

#include "frame/imported/Progress.h"
#include "frame/imported/Strings.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>

namespace KvRefSystem {

namespace {

using FloatTable = T2DTable<float>;

constexpr char Separators[] = " \n\r\t";
constexpr unsigned HeaderTokens = 5;

/** Stands for a real number of the text that can't be read. */
constexpr double Unreadable = std::numeric_limits<double>::max();

/** Cell of one axis and the place in it, from 0 to 1. */
struct Cell {
    unsigned index;
    unsigned next; ///< the neighbour; the same index where there is none
    float fraction;
};

/** What stands in front of the values. */
struct Header {
    int sizeX;
    int sizeY;
    double step;
    double originX;
    double originY;
};

/** An axis of one value has that value everywhere. */
Cell FindCell(float coordinate, float origin, float step, unsigned size) {
    auto const cellAt = [size](unsigned index, float fraction) {
        return Cell{index, std::min(index + 1, size - 1), fraction};
    };
    if (!(coordinate > origin)) {
        return cellAt(0, 0.0f);
    }
    float const distance = coordinate - origin;
    float const k = std::floor(distance / step);
    // Compared before the conversion and so that an infinity and a NaN end at the last cell.
    if (!(k < static_cast<float>(size - 1))) {
        return cellAt(size < 2 ? 0 : size - 2, 1.0f);
    }
    if (k < 0) {
        return cellAt(0, 0.0f);
    }
    return cellAt(static_cast<unsigned>(k), (distance - step * k) / step);
}

void ResetToEmpty(FloatTable* table) {
    table->SizeX = 0;
    table->SizeY = 0;
    table->StepX = 0;
    table->StepY = 0;
    table->OriginX = 0;
    table->OriginY = 0;
    table->MinValue = std::numeric_limits<float>::max();
    // Kept: the smallest positive number and not the lowest one; hosts see that in an empty table.
    table->MaxValue = std::numeric_limits<float>::min();
    table->Rows = nullptr;
    table->Crc = 0;
    table->CrcValid = false;
}

void Free(FloatTable* table) {
    if (table->Rows != nullptr) {
        for (unsigned x = 0; x < table->SizeX; ++x) {
            delete[] table->Rows[x];
        }
        delete[] table->Rows;
    }
    ResetToEmpty(table);
}

/** Gives an empty table its sizes and zeros. @throws std::bad_alloc, the table then being empty. */
void Allocate(FloatTable* table, unsigned sizeX, unsigned sizeY) {
    try {
        table->Rows = new float*[sizeX]();
        table->SizeX = sizeX;
        table->SizeY = sizeY;
        for (unsigned x = 0; x < sizeX; ++x) {
            table->Rows[x] = new float[sizeY]();
        }
    } catch (...) {
        Free(table);
        throw;
    }
}

void Store(FloatTable* table, unsigned x, unsigned y, float value) {
    table->Rows[x][y] = value;
    if (table->MinValue > table->MaxValue) {
        table->MinValue = value;
        table->MaxValue = value;
    } else if (value < table->MinValue) {
        table->MinValue = value;
    } else if (value > table->MaxValue) {
        table->MaxValue = value;
    }
    table->Crc = 0;
    table->CrcValid = false;
}

void CalculateCrc(FloatTable* table) {
    unsigned crc = 0;
    for (unsigned x = 0; x < table->SizeX; ++x) {
        crc = LumCommonUtils::crc32(crc, table->Rows[x], table->SizeY * sizeof(float));
    }
    table->Crc = crc;
    table->CrcValid = true;
}

/** @return false for a field that is missing, can't be read or is out of its range. */
bool ReadHeader(std::string const& text, Header* header) {
    std::string tokens[HeaderTokens];
    if (LumCommonUtils::SplitString(text.c_str(), Separators, tokens, HeaderTokens, nullptr, false) == 0) {
        return false;
    }
    header->sizeY = LumCommonUtils::StringToIntDef(tokens[0], 0);
    header->sizeX = LumCommonUtils::StringToIntDef(tokens[1], 0);
    header->step = LumCommonUtils::StringToDoubleDef(tokens[2], Unreadable);
    header->originY = LumCommonUtils::StringToDoubleDef(tokens[3], Unreadable);
    header->originX = LumCommonUtils::StringToDoubleDef(tokens[4], Unreadable);
    return header->sizeY > 0 && header->sizeX > 0 && header->step > 0 && header->step != Unreadable &&
           header->originY != Unreadable && header->originX != Unreadable;
}

bool ReadTable(std::string const& text, TKvProgressHandler* handler, FloatTable* table) {
    Header header{};
    if (!ReadHeader(text, &header)) {
        return false;
    }
    // A token takes at least one character and a separator: a count beyond that is refused before any memory
    // is asked for.
    std::uint64_t const valueCount =
        static_cast<std::uint64_t>(header.sizeX) * static_cast<std::uint64_t>(header.sizeY);
    std::uint64_t const tokenCount = valueCount + HeaderTokens;
    if (tokenCount > (text.size() + 1) / 2 || tokenCount > std::numeric_limits<unsigned>::max()) {
        return false;
    }
    unsigned const sizeX = static_cast<unsigned>(header.sizeX);
    unsigned const sizeY = static_cast<unsigned>(header.sizeY);
    unsigned const expected = static_cast<unsigned>(tokenCount);

    TKvStepProgress progress(handler);
    progress.Start(tokenCount + sizeY);
    auto const tokens = std::make_unique<std::string[]>(expected);
    if (LumCommonUtils::SplitString(text.c_str(), Separators, tokens.get(), expected, progress.Handler(),
                                    false) != expected) {
        progress.Stop();
        return false;
    }
    float const step = static_cast<float>(header.step);
    table->Setup(sizeX, sizeY, step, step, static_cast<float>(header.originX),
                 static_cast<float>(header.originY));
    std::size_t k = HeaderTokens;
    for (unsigned y = 0; y < sizeY; ++y) {
        for (unsigned x = 0; x < sizeX; ++x, ++k) {
            float value = 0.0f;
            bool const good = LumCommonUtils::ValueFromString(tokens[k], &value);
            Store(table, x, y, value);
            if (!good) {
                progress.Stop();
                return false;
            }
        }
        progress.Next();
    }
    if (!table->CrcValid && table->SizeX != 0 && table->SizeY != 0) {
        CalculateCrc(table);
    }
    progress.Stop();
    return true;
}

} // namespace

T2DTable<float>::T2DTable() {
    ResetToEmpty(this);
}

T2DTable<float>::T2DTable(T2DTable const& source) {
    ResetToEmpty(this);
    if (source.Rows != nullptr) {
        Allocate(this, source.SizeX, source.SizeY);
        for (unsigned x = 0; x < SizeX; ++x) {
            std::copy_n(source.Rows[x], SizeY, Rows[x]);
        }
    }
    StepX = source.StepX;
    StepY = source.StepY;
    OriginX = source.OriginX;
    OriginY = source.OriginY;
    MinValue = source.MinValue;
    MaxValue = source.MaxValue;
    Crc = source.Crc;
    CrcValid = source.CrcValid;
}

T2DTable<float>::~T2DTable() {
    Free(this);
}

bool T2DTable<float>::operator==(T2DTable const& other) const {
    if (!(SizeX == other.SizeX && SizeY == other.SizeY && StepX == other.StepX && StepY == other.StepY &&
          OriginX == other.OriginX && OriginY == other.OriginY && MinValue == other.MinValue &&
          MaxValue == other.MaxValue)) {
        return false;
    }
    if (CrcValid && other.CrcValid && Crc != other.Crc) {
        return false;
    }
    for (unsigned x = 0; x < SizeX; ++x) {
        if (!std::equal(Rows[x], Rows[x] + SizeY, other.Rows[x])) {
            return false;
        }
    }
    return true;
}

void T2DTable<float>::Setup(unsigned sizeX, unsigned sizeY, float const& stepX, float const& stepY,
                            float const& originX, float const& originY) {
    float const newStepX = stepX;
    float const newStepY = stepY;
    float const newOriginX = originX;
    float const newOriginY = originY;
    Free(this);
    Allocate(this, sizeX, sizeY);
    StepX = newStepX;
    StepY = newStepY;
    OriginX = newOriginX;
    OriginY = newOriginY;
}

float T2DTable<float>::InterpolateValue(float const& x, float const& y) const {
    if (SizeX == 0 || SizeY == 0) {
        return 0.0f;
    }
    Cell const i = FindCell(x, OriginX, StepX, SizeX);
    Cell const j = FindCell(y, OriginY, StepY, SizeY);
    float const fx = i.fraction;
    float const fy = j.fraction;
    return (1.0f - fy) * fx * Rows[i.next][j.index] + (1.0f - fx) * fy * Rows[i.index][j.next] +
           (1.0f - fx) * (1.0f - fy) * Rows[i.index][j.index] + fx * fy * Rows[i.next][j.next];
}

bool T2DTable<float>::LoadFromString2(std::string const& text, TKvProgressHandler* progress) {
    CrcValid = false;
    try {
        return ReadTable(text, progress, this);
    } catch (...) {
        return false;
    }
}

} // namespace KvRefSystem
