#pragma once

#include "hostkit/grids/GridNodesDetail.h"

#include <cstdint>
#include <string>
#include <vector>

namespace VellariHostKit {

/** A plain file that is open for reading; errors are the system's reasons, without the file's name. */
class GridFile {
public:
    /** @throws std::runtime_error when it can't be opened or is no plain file. */
    explicit GridFile(std::string const& path);
    GridFile(GridFile const&) = delete;
    GridFile& operator=(GridFile const&) = delete;
    ~GridFile();

    std::uint64_t Size() const { return size; }
    int Descriptor() const { return descriptor; }

    /** @return how many bytes were read from the offset on; fewer than `count` only at the file's end. */
    std::size_t Read(std::uint64_t offset, unsigned char* bytes, std::size_t count) const;

private:
    int descriptor;
    std::uint64_t size = 0;
};

/** Reads a GTX file. @throws std::runtime_error with the reason. */
GridNodes ReadGtx(GridFile const& file);

/** @return whether a file begins as TIFF does; no GTX file does, since it would begin beyond the poles. */
bool IsTiff(GridFile const& file);

/** Reads the grids of a GeoTIFF file. @throws std::runtime_error with the reason. */
std::vector<GridNodes> ReadGeoTiff(GridFile const& file);

} // namespace VellariHostKit
