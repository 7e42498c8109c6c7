#include "hostkit/grids/GridFileDetail.h"

#include "frame/NumberText.h"

#include <bit>
#include <stdexcept>

namespace VellariHostKit {

namespace {

using KvRefSystem::FormatText;

constexpr std::size_t headerSize = 40;
constexpr std::size_t nodeSize = 4;

/** Marks a lacking node [VDatumGTX]. */
constexpr float lackingMark = -88.8888F;

/** All numbers of the format have their most significant byte first. */
template <class Number>
Number ReadNumber(unsigned char const* bytes) {
    Number number = 0;
    for (std::size_t index = 0; index < sizeof(Number); ++index) {
        number = static_cast<Number>(number << 8 | bytes[index]);
    }
    return number;
}

double ReadDouble(unsigned char const* bytes) {
    return std::bit_cast<double>(ReadNumber<std::uint64_t>(bytes));
}

std::int32_t ReadCount(unsigned char const* bytes) {
    return static_cast<std::int32_t>(ReadNumber<std::uint32_t>(bytes));
}

[[noreturn]] void FailShort(std::uint64_t size) {
    throw std::runtime_error(FormatText("it has %llu bytes; the header of a GTX file has %zu",
                                        static_cast<unsigned long long>(size), headerSize));
}

/** [VDatumGTX]: latitude and longitude of the south-western node, their steps, rows, columns. */
GridLayout ReadHeader(GridFile const& file) {
    unsigned char header[headerSize];
    if (file.Read(0, header, headerSize) < headerSize) {
        FailShort(file.Size());
    }
    GridLayout layout{};
    layout.south = ReadDouble(header);
    layout.west = ReadDouble(header + 8);
    layout.latitudeStep = ReadDouble(header + 16);
    layout.longitudeStep = ReadDouble(header + 24);
    layout.rows = ReadCount(header + 32);
    layout.columns = ReadCount(header + 36);
    return layout;
}

/** A file of another kind, or one that is cut, has hardly ever the size that its header calls for. */
void CheckSize(GridFile const& file, GridLayout const& layout) {
    if (layout.rows < 0 || layout.columns < 0) {
        return; // the layout itself is refused
    }
    // Both counts are below 2^31, so that the product of all three stays below 2^64.
    std::uint64_t const nodes =
        static_cast<std::uint64_t>(layout.rows) * static_cast<std::uint64_t>(layout.columns);
    std::uint64_t const size = headerSize + nodes * nodeSize;
    if (file.Size() != size) {
        throw std::runtime_error(
            FormatText("its %lld rows of %lld nodes call for %llu bytes, it has %llu",
                       static_cast<long long>(layout.rows), static_cast<long long>(layout.columns),
                       static_cast<unsigned long long>(size), static_cast<unsigned long long>(file.Size())));
    }
}

} // namespace

GridNodes ReadGtx(GridFile const& file) {
    GridLayout const layout = ReadHeader(file);
    CheckSize(file, layout);
    GridNodes nodes(layout);
    std::vector<unsigned char> line(nodeSize * static_cast<std::size_t>(layout.columns));
    for (std::int64_t row = 0; row < layout.rows; ++row) {
        std::uint64_t const offset = headerSize + static_cast<std::uint64_t>(row) * line.size();
        if (file.Read(offset, line.data(), line.size()) < line.size()) {
            throw std::runtime_error("it became shorter while it was read");
        }
        for (std::int64_t column = 0; column < layout.columns; ++column) {
            unsigned char const* const bytes = line.data() + nodeSize * static_cast<std::size_t>(column);
            auto const value = std::bit_cast<float>(ReadNumber<std::uint32_t>(bytes));
            if (value != lackingMark) {
                nodes.Set(row, column, value);
            }
        }
    }
    nodes.Finish();
    return nodes;
}

} // namespace VellariHostKit
