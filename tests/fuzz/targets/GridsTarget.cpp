#include "hostkit/grids/GeoidGrid.h"
#include "tests/fuzz/targets/Promises.h"
#include "tests/fuzz/targets/Targets.h"
#include "tests/hostkit/TempFolder.h"
#include "tests/hostkit/grids/GridFiles.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>

namespace Fuzz {

namespace {

using GridFiles::TImage;

/** A file that stands in memory alone. */
class TMemoryFile {
public:
    explicit TMemoryFile(std::string_view bytes) : file(memfd_create("grid", MFD_CLOEXEC)) {
        Require(file >= 0 && write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()),
                "a file in memory can be written");
    }
    TMemoryFile(TMemoryFile const&) = delete;
    TMemoryFile& operator=(TMemoryFile const&) = delete;
    ~TMemoryFile() { close(file); }

    std::string Path() const { return "/proc/self/fd/" + std::to_string(file); }

private:
    int file;
};

void LookUp(VellariHostKit::TGeoidGrid const& grid, double longitude, double latitude) {
    constexpr double MostUndulation = 1000;
    constexpr double Mark = -12345.5;
    double undulation = Mark;
    if (grid.Undulation(longitude, latitude, &undulation)) {
        Require(std::fabs(undulation) <= MostUndulation * (1 + 1e-9), "an undulation is within 1000 metres",
                std::to_string(undulation));
    } else {
        Require(undulation == Mark, "a point without an undulation leaves the result untouched");
    }
}

TImage Image(std::uint16_t format, std::uint16_t bits) {
    TImage image;
    image.Columns = 3;
    image.Rows = 2;
    image.Numbers = {20, 21, 22, 10, 11, 12};
    image.Format = format;
    image.Bits = bits;
    return image;
}

} // namespace

void RunGrids(std::string_view input) {
    TMemoryFile const file(input);
    std::unique_ptr<VellariHostKit::TGeoidGrid> grid;
    if (!Succeeds<std::runtime_error>(
            [&] { grid = std::make_unique<VellariHostKit::TGeoidGrid>(file.Path()); })) {
        return;
    }
    VellariHostKit::GeoidExtent const extent = grid->Extent();
    Require(extent.west <= extent.east && extent.south <= extent.north, "a grid's extent has an inside");
    for (double const part : {-0.25, 0.0, 0.125, 0.5, 0.999, 1.0, 1.25}) {
        double const longitude = extent.west + part * (extent.east - extent.west);
        for (double const latitude :
             {extent.south, extent.south + part * (extent.north - extent.south), extent.north}) {
            LookUp(*grid, longitude, latitude);
            LookUp(*grid, longitude + 720, latitude);
        }
    }
    for (double const odd :
         {1e300, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(), -1e18}) {
        LookUp(*grid, odd, extent.south);
        LookUp(*grid, extent.west, odd);
    }
}

std::vector<std::string> GridsSeeds() {
    std::vector<std::string> seeds;
    GridFiles::TGtxHeader header;
    seeds.push_back(GridFiles::GtxText(header, {1, 2, 3, 4}));
    header.Columns = 4;
    header.West = -180;
    header.LongitudeStep = 90;
    seeds.push_back(GridFiles::GtxText(header, {1, 2, 3, 4, 5, -88.8888F, 7, 8}));

    TempFolder const folder;
    std::string const path = folder.File("grid.tif");
    TImage scaled = Image(SAMPLEFORMAT_INT, 16);
    scaled.Metadata = "<GDALMetadata><Item name=\"SCALE\" sample=\"0\" role=\"scale\">0.5</Item>"
                      "<Item name=\"OFFSET\" sample=\"0\" role=\"offset\">3</Item></GDALMetadata>";
    scaled.NoData = "11";
    TImage tiled = Image(SAMPLEFORMAT_IEEEFP, 64);
    tiled.TileSize = 16;
    tiled.Compression = COMPRESSION_ADOBE_DEFLATE;
    TImage packed = Image(SAMPLEFORMAT_UINT, 8);
    packed.Compression = COMPRESSION_LZW;
    for (TImage const& image : {Image(SAMPLEFORMAT_IEEEFP, 32), scaled, tiled, packed}) {
        for (char const* const mode : {"w", "wb", "w8"}) {
            GridFiles::WriteTiff(path, {image}, mode);
            seeds.push_back(TempFolder::Read(path));
        }
    }
    GridFiles::WriteTiff(path, {Image(SAMPLEFORMAT_IEEEFP, 32), tiled});
    seeds.push_back(TempFolder::Read(path));
    return seeds;
}

} // namespace Fuzz
