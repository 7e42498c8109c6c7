#pragma once

#include "hostkit/grids/GridFileDetail.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace VellariHostKit {

/** No compression that files use packs more bytes into one, not even of equal nodes. */
inline constexpr std::uint64_t MaxPacking = 4096;

/** The images of a TIFF file, one after the other; failures throw std::runtime_error with the reason. */
class TiffFile {
public:
    /** Receives a row, a column and the number there. */
    using Sink = std::function<void(std::int64_t, std::int64_t, double)>;

    /** Opens the first image. @param file outlives this object. */
    explicit TiffFile(GridFile const& file);
    TiffFile(TiffFile const&) = delete;
    TiffFile& operator=(TiffFile const&) = delete;
    ~TiffFile();

    /** Goes on to the next image. @return false when there is none. */
    bool Next();

    /** @return whether the image is an overview or a mask of another one. */
    bool IsDerived() const;

    std::uint32_t Columns() const;
    std::uint32_t Rows() const;

    /** @return the number of samples that each pixel has. */
    std::uint16_t SampleCount() const;

    /** @return whether the samples are numbers of single precision. */
    bool IsSingle() const;

    /** @return the values of a tag; none when the image lacks it. */
    std::vector<double> Doubles(std::uint32_t tag) const;
    std::vector<std::uint16_t> Shorts(std::uint32_t tag) const;

    /** @return the text of a tag; empty when the image lacks it. */
    std::string Text(std::uint32_t tag) const;

    /** Reads one sample of all pixels, in the order in which the file holds them. */
    void ReadSamples(std::uint16_t sample, Sink const& sink) const;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace VellariHostKit
