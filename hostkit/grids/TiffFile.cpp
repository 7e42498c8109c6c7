#include "hostkit/grids/TiffFileDetail.h"

#include "frame/NumberText.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <stdexcept>
#include <string_view>

#include <fcntl.h>
#include <tiffio.h>
#include <unistd.h>

namespace VellariHostKit {

namespace {

using KvRefSystem::FormatText;

/** The most that one row or tile may take, as it lies in the file and unpacked; bytes. */
constexpr std::uint64_t maxBlock = std::uint64_t{1} << 30;

using NumberReader = double (*)(unsigned char const*);

template <class Number>
double ReadAs(unsigned char const* bytes) {
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return static_cast<double>(number);
}

/** A kind of samples that a grid may have. */
struct SampleKind {
    std::uint16_t format;
    std::uint16_t bits;
    NumberReader read;
};

constexpr SampleKind sampleKinds[] = {
    {SAMPLEFORMAT_IEEEFP, 32, ReadAs<float>},       {SAMPLEFORMAT_IEEEFP, 64, ReadAs<double>},
    {SAMPLEFORMAT_INT, 16, ReadAs<std::int16_t>},   {SAMPLEFORMAT_INT, 32, ReadAs<std::int32_t>},
    {SAMPLEFORMAT_UINT, 16, ReadAs<std::uint16_t>}, {SAMPLEFORMAT_UINT, 32, ReadAs<std::uint32_t>},
};

/** A part of an image that is read at once: a row or a tile. */
struct Block {
    std::uint32_t row;
    std::uint32_t column;
    std::uint32_t rows;
    std::uint32_t columns;
};

/** What the reading library says when it goes on without a tag that it can't read. */
constexpr std::string_view lostTag = "tag ignored";

} // namespace

struct TiffFile::State {
    std::string message; ///< the first error of the reading library
    TIFF* handle = nullptr;
    std::uint64_t fileSize = 0;

    State() = default;
    State(State const&) = delete;
    State& operator=(State const&) = delete;
    ~State() {
        if (handle != nullptr) {
            TIFFClose(handle);
        }
    }

    [[noreturn]] void Fail() const {
        throw std::runtime_error(message.empty() ? "it isn't a whole TIFF file" : message);
    }

    void KeepMessage(char const* module, char const* format, va_list arguments,
                     std::string_view part) noexcept {
        try {
            std::string const text = KvRefSystem::FormatTextV(format, arguments);
            if (message.empty() && text.find(part) != std::string::npos) {
                message = module != nullptr && *module != '\0' ? std::string(module) + ": " + text : text;
            }
        } catch (std::exception const&) {
            message.clear(); // the caller is C, and the failure is reported without its reason
        }
    }

    // 1: no other handler is asked.
    static int KeepError(TIFF*, void* state, char const* module, char const* format, va_list arguments) {
        static_cast<State*>(state)->KeepMessage(module, format, arguments, "");
        return 1;
    }
    static int KeepWarning(TIFF*, void* state, char const* module, char const* format, va_list arguments) {
        static_cast<State*>(state)->KeepMessage(module, format, arguments, lostTag);
        return 1;
    }

    /** A tag that was lost may have said that the grid lies elsewhere. */
    void CheckTags() const {
        if (message.find(lostTag) != std::string::npos) {
            Fail();
        }
    }

    template <class Value>
    Value Field(std::uint32_t tag) const {
        Value value{};
        TIFFGetFieldDefaulted(handle, tag, &value);
        return value;
    }

    /** @return the values of a tag that this library doesn't know by itself; none without it. */
    template <class Value>
    std::vector<Value> Values(std::uint32_t tag, TIFFDataType type) const {
        TIFFField const* const field = TIFFFindField(handle, tag, TIFF_ANY);
        if (field == nullptr) {
            return {};
        }
        // Other libraries of the process may have made the tag known, each with a count of its own width.
        std::uint32_t count = 0;
        std::uint16_t shortCount = 0;
        Value* values = nullptr;
        bool found = false;
        if (TIFFFieldPassCount(field) == 0) {
            found = TIFFGetField(handle, tag, &values) != 0;
            count = static_cast<std::uint32_t>(std::max(TIFFFieldReadCount(field), 0));
            if constexpr (sizeof(Value) == 1) {
                count = found ? static_cast<std::uint32_t>(std::strlen(values)) : 0;
            }
        } else if (TIFFFieldReadCount(field) == TIFF_VARIABLE2) {
            found = TIFFGetField(handle, tag, &count, &values) != 0;
        } else {
            found = TIFFGetField(handle, tag, &shortCount, &values) != 0;
            count = shortCount;
        }
        if (!found || values == nullptr) {
            return {};
        }
        if (TIFFFieldDataType(field) != type) {
            throw std::runtime_error(FormatText(
                "its tag %lu is of type %d; it must be of type %d", static_cast<unsigned long>(tag),
                static_cast<int>(TIFFFieldDataType(field)), static_cast<int>(type)));
        }
        return std::vector<Value>(values, values + count);
    }

    SampleKind const& Kind() const {
        auto const format = Field<std::uint16_t>(TIFFTAG_SAMPLEFORMAT);
        auto const bits = Field<std::uint16_t>(TIFFTAG_BITSPERSAMPLE);
        for (SampleKind const& kind : sampleKinds) {
            if (kind.format == format && kind.bits == bits) {
                return kind;
            }
        }
        throw std::runtime_error(
            FormatText("its samples are of format %d with %d bits; they must be real (3) with "
                       "32 or 64 bits or whole (1, 2) with 16 or 32",
                       format, bits));
    }
};

TiffFile::TiffFile(GridFile const& file) : state(new State) {
    state->fileSize = file.Size();
    std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)> const options(TIFFOpenOptionsAlloc(),
                                                                                   TIFFOpenOptionsFree);
    // Handlers of this handle alone: those of the process are the host's.
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), State::KeepError, state.get());
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), State::KeepWarning, state.get());
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), maxBlock);
    // The handle closes its descriptor, so it gets one of its own. "m": a file that is cut while it is mapped
    // would end the process.
    int const descriptor = ::fcntl(file.Descriptor(), F_DUPFD_CLOEXEC, 0);
    state->handle = TIFFFdOpenExt(descriptor, "TIFF", "rm", options.get());
    if (state->handle == nullptr) {
        ::close(descriptor);
        state->Fail();
    }
    state->CheckTags();
}

TiffFile::~TiffFile() = default;

bool TiffFile::Next() {
    if (TIFFLastDirectory(state->handle) != 0) {
        return false;
    }
    if (TIFFReadDirectory(state->handle) == 0) {
        state->Fail();
    }
    state->CheckTags();
    return true;
}

bool TiffFile::IsDerived() const {
    return (state->Field<std::uint32_t>(TIFFTAG_SUBFILETYPE) & (FILETYPE_REDUCEDIMAGE | FILETYPE_MASK)) != 0;
}

std::uint32_t TiffFile::Columns() const {
    return state->Field<std::uint32_t>(TIFFTAG_IMAGEWIDTH);
}

std::uint32_t TiffFile::Rows() const {
    return state->Field<std::uint32_t>(TIFFTAG_IMAGELENGTH);
}

std::uint16_t TiffFile::SampleCount() const {
    return state->Field<std::uint16_t>(TIFFTAG_SAMPLESPERPIXEL);
}

bool TiffFile::IsSingle() const {
    SampleKind const& kind = state->Kind();
    return kind.format == SAMPLEFORMAT_IEEEFP && kind.bits == 32;
}

std::vector<double> TiffFile::Doubles(std::uint32_t tag) const {
    return state->Values<double>(tag, TIFF_DOUBLE);
}

std::vector<std::uint16_t> TiffFile::Shorts(std::uint32_t tag) const {
    return state->Values<std::uint16_t>(tag, TIFF_SHORT);
}

std::string TiffFile::Text(std::uint32_t tag) const {
    std::vector<char> const bytes = state->Values<char>(tag, TIFF_ASCII);
    return std::string(bytes.begin(), std::find(bytes.begin(), bytes.end(), '\0'));
}

void TiffFile::ReadSamples(std::uint16_t sample, Sink const& sink) const {
    TIFF* const handle = state->handle;
    SampleKind const& kind = state->Kind();
    auto const compression = state->Field<std::uint16_t>(TIFFTAG_COMPRESSION);
    if (TIFFIsCODECConfigured(compression) == 0) {
        throw std::runtime_error(FormatText("its compression %d can't be read here", compression));
    }
    std::uint32_t const columns = Columns();
    std::uint32_t const rows = Rows();
    bool const tiled = TIFFIsTiled(handle) != 0;
    Block block{0, 0, 1, columns};
    if (tiled) {
        block.columns = state->Field<std::uint32_t>(TIFFTAG_TILEWIDTH);
        block.rows = state->Field<std::uint32_t>(TIFFTAG_TILELENGTH);
    }
    // The samples of a pixel lie side by side, or each sample in an image of its own.
    bool const together = state->Field<std::uint16_t>(TIFFTAG_PLANARCONFIG) == PLANARCONFIG_CONTIG;
    std::size_t const sampleSize = kind.bits / 8;
    std::size_t const stride = sampleSize * (together ? SampleCount() : 1);
    std::size_t const first = together ? sampleSize * sample : 0;
    std::uint64_t const size = tiled ? TIFFTileSize64(handle) : TIFFScanlineSize64(handle);
    if (stride == 0 || block.rows == 0 || block.columns == 0 || size == 0 || size > maxBlock ||
        size / MaxPacking > state->fileSize || size / stride / block.columns != block.rows) {
        throw std::runtime_error(
            FormatText("its blocks of %lu rows of %lu nodes take %llu bytes, which doesn't fit",
                       static_cast<unsigned long>(block.rows), static_cast<unsigned long>(block.columns),
                       static_cast<unsigned long long>(size)));
    }
    std::vector<unsigned char> bytes(size);
    for (std::uint64_t row = 0; row < rows; row += block.rows) {
        for (std::uint64_t column = 0; column < columns; column += block.columns) {
            block.row = static_cast<std::uint32_t>(row);
            block.column = static_cast<std::uint32_t>(column);
            bool const done =
                tiled ? TIFFReadTile(handle, bytes.data(), block.column, block.row, 0, sample) >= 0
                      : TIFFReadScanline(handle, bytes.data(), block.row,
                                         together ? std::uint16_t{0} : sample) >= 0;
            if (!done) {
                state->Fail();
            }
            std::uint32_t const rowEnd = std::min(block.rows, rows - block.row);
            std::uint32_t const columnEnd = std::min(block.columns, columns - block.column);
            for (std::uint32_t y = 0; y < rowEnd; ++y) {
                unsigned char const* const line = bytes.data() + first + stride * block.columns * y;
                for (std::uint32_t x = 0; x < columnEnd; ++x) {
                    sink(block.row + y, block.column + x, kind.read(line + stride * x));
                }
            }
        }
    }
}

} // namespace VellariHostKit
