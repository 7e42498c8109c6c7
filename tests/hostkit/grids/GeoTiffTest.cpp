#include "tests/hostkit/Failure.h"
#include "tests/hostkit/TempFolder.h"
#include "tests/hostkit/grids/GridFiles.h"

#include "hostkit/grids/GeoidGrid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using GridFiles::TImage;
using GridFiles::WriteTiff;
using VellariHostKit::TGeoidGrid;

namespace {

/** 3 rows of 4 nodes, the first one at 10 E 51 N, a degree apart, from the north on. */
TImage ThreeByFour() {
    TImage image;
    image.Columns = 4;
    image.Rows = 3;
    image.Numbers = {20, 21, 22, 23, 10, 11, 12, 13, 0, 1, 2, 3};
    return image;
}

/** The metadata of a geodetic grid around some items. */
std::string Metadata(std::string const& items) {
    return "<GDALMetadata>" + items + "</GDALMetadata>";
}

class GeoTiff : public testing::Test {
protected:
    std::string Put(std::vector<TImage> const& images, char const* mode = "w") const {
        std::string const file = Folder.File("grid.tif");
        WriteTiff(file, images, mode);
        return file;
    }

    static std::optional<double> At(TGeoidGrid const& grid, double longitude, double latitude) {
        double undulation = 0.0;
        return grid.Undulation(longitude, latitude, &undulation) ? std::optional(undulation) : std::nullopt;
    }

    /** What `ThreeByFour` says, whatever way it is written. */
    static void ExpectThreeByFour(TGeoidGrid const& grid) {
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 4; ++column) {
                EXPECT_EQ(At(grid, 10 + column, 49 + row), 10.0 * row + column) << row << " " << column;
            }
        }
        EXPECT_EQ(At(grid, 11.5, 49.5), 6.5);
        EXPECT_EQ(At(grid, 9.9, 50), std::nullopt);
        EXPECT_EQ(At(grid, 13.1, 50), std::nullopt);
        EXPECT_EQ(At(grid, 11, 51.1), std::nullopt);
        EXPECT_EQ(At(grid, 11, 48.9), std::nullopt);
    }

    /** @return what is said about images that can't be read, without the part that is always the same. */
    std::string ReasonOf(std::vector<TImage> const& images) const { return ReasonOfFile(Put(images)); }

    static std::string ReasonOfFile(std::string const& file) {
        std::string const failure = FailureOf([&] { TGeoidGrid const grid(file); });
        std::string const beginning = file + ": can't be read as a geoid grid: ";
        return failure.starts_with(beginning) ? failure.substr(beginning.size()) : "unexpected: " + failure;
    }

    TempFolder const Folder;
};

TEST_F(GeoTiff, FormsOfTheFileGiveTheSameGrid) {
    for (char const* const mode : {"wl", "wb", "w8l", "w8b"}) {
        SCOPED_TRACE(mode);
        ExpectThreeByFour(TGeoidGrid(Put({ThreeByFour()}, mode)));
    }
}

TEST_F(GeoTiff, KindsOfSamplesGiveTheSameGrid) {
    struct TKind {
        std::uint16_t Format;
        std::uint16_t Bits;
    };
    for (TKind const kind :
         {TKind{SAMPLEFORMAT_IEEEFP, 32}, TKind{SAMPLEFORMAT_IEEEFP, 64}, TKind{SAMPLEFORMAT_INT, 16},
          TKind{SAMPLEFORMAT_INT, 32}, TKind{SAMPLEFORMAT_UINT, 16}, TKind{SAMPLEFORMAT_UINT, 32}}) {
        SCOPED_TRACE(testing::Message() << kind.Format << " " << kind.Bits);
        TImage image = ThreeByFour();
        image.Format = kind.Format;
        image.Bits = kind.Bits;
        ExpectThreeByFour(TGeoidGrid(Put({image})));
        ExpectThreeByFour(TGeoidGrid(Put({image}, "wb")));
    }
}

TEST_F(GeoTiff, WaysToStoreTheNodesGiveTheSameGrid) {
    for (std::uint16_t const compression : {COMPRESSION_NONE, COMPRESSION_LZW, COMPRESSION_ADOBE_DEFLATE}) {
        for (std::uint32_t const tile : {0U, 16U}) {
            SCOPED_TRACE(testing::Message() << compression << " " << tile);
            TImage image = ThreeByFour();
            image.Compression = compression;
            image.TileSize = tile;
            ExpectThreeByFour(TGeoidGrid(Put({image})));
        }
    }
}

TEST_F(GeoTiff, AGridOfManyTilesIsPutTogether) {
    TImage image;
    image.Columns = 37;
    image.Rows = 21;
    image.TileSize = 16;
    image.PixelScale = {0.5, 0.25, 0};
    image.Tiepoint = {0, 0, 0, 10, 55, 0};
    for (int index = 0; index < 37 * 21; ++index) {
        image.Numbers.push_back(index * 0.125);
    }
    TGeoidGrid const grid(Put({image}));
    for (int index = 0; index < 37 * 21; ++index) {
        EXPECT_EQ(At(grid, 10 + 0.5 * (index % 37), 55 - 0.25 * (index / 37)), index * 0.125) << index;
    }
}

TEST_F(GeoTiff, NodesLieInTheMiddleOfPixelsThatAreAreas) {
    TImage image = ThreeByFour();
    image.Tiepoint = {0, 0, 0, 9.5, 51.5, 0};
    image.GeoKeys = {1, 1, 0, 2, 1024, 0, 1, 2, 1025, 0, 1, 1};
    ExpectThreeByFour(TGeoidGrid(Put({image})));
    // Without a word on it they are areas.
    image.GeoKeys = {1, 1, 0, 1, 1024, 0, 1, 2};
    ExpectThreeByFour(TGeoidGrid(Put({image})));
    image.GeoKeys.clear();
    ExpectThreeByFour(TGeoidGrid(Put({image})));
}

TEST_F(GeoTiff, AnyPixelMayBeTheOneWhosePlaceIsStated) {
    TImage image = ThreeByFour();
    image.Tiepoint = {2, 1, 0, 12, 50, 0};
    ExpectThreeByFour(TGeoidGrid(Put({image})));
}

TEST_F(GeoTiff, AMatrixMayStateThePlaceWithTheSouthFirst) {
    TImage image = ThreeByFour();
    image.PixelScale.clear();
    image.Tiepoint.clear();
    image.Matrix = {1, 0, 0, 10, 0, -1, 0, 51, 0, 0, 0, 0, 0, 0, 0, 1};
    ExpectThreeByFour(TGeoidGrid(Put({image})));
    image.Matrix[5] = 1;
    image.Matrix[7] = 49;
    image.Numbers = {0, 1, 2, 3, 10, 11, 12, 13, 20, 21, 22, 23};
    ExpectThreeByFour(TGeoidGrid(Put({image})));
}

TEST_F(GeoTiff, TheSampleOfUndulationsIsFoundByItsDescription) {
    for (std::uint16_t const planes : {PLANARCONFIG_CONTIG, PLANARCONFIG_SEPARATE}) {
        for (std::uint32_t const tile : {0U, 16U}) {
            SCOPED_TRACE(testing::Message() << planes << " " << tile);
            TImage image = ThreeByFour();
            std::vector<double> const undulations = std::move(image.Numbers);
            image.Numbers.clear();
            for (double const undulation : undulations) {
                image.Numbers.insert(image.Numbers.end(), {500 + undulation, undulation, -3});
            }
            image.Samples = 3;
            image.Planes = planes;
            image.TileSize = tile;
            image.Metadata =
                Metadata("<Item name=\"DESCRIPTION\" sample=\"0\" role=\"description\">other</Item>"
                         "<Item name=\"DESCRIPTION\" sample=\"1\" role=\"description\">"
                         "geoid_undulation</Item>");
            ExpectThreeByFour(TGeoidGrid(Put({image})));
            image.Metadata.clear();
            EXPECT_EQ(At(TGeoidGrid(Put({image})), 10, 49), 500.0);
        }
    }
}

TEST_F(GeoTiff, ScaleAndOffsetMakeUndulationsOfSamples) {
    TImage image = ThreeByFour();
    image.Format = SAMPLEFORMAT_INT;
    image.Bits = 16;
    image.Metadata = Metadata("<Item name=\"SCALE\" sample=\"0\" role=\"scale\">0.001</Item>"
                              "<Item name=\"OFFSET\" sample=\"0\" role=\"offset\"> -31.5 </Item>"
                              "<Item name=\"SCALE\" sample=\"1\" role=\"scale\">7</Item>");
    TGeoidGrid const grid(Put({image}));
    EXPECT_EQ(At(grid, 10, 49), -31.5);
    EXPECT_EQ(At(grid, 13, 51), static_cast<double>(static_cast<float>(-31.5 + 0.023)));
}

TEST_F(GeoTiff, LackingNodesAreThoseOfTheMark) {
    TImage image = ThreeByFour();
    image.Numbers[5] = -32.25;
    for (char const* const mark : {"-32.25", " -32.250 ", "-3.225e1"}) {
        image.NoData = mark;
        TGeoidGrid const grid(Put({image}));
        EXPECT_EQ(At(grid, 11.5, 50.5), std::nullopt) << mark;
        EXPECT_EQ(At(grid, 10.5, 49.5), std::nullopt) << mark;
        EXPECT_EQ(At(grid, 12.5, 50.5), 17.5) << mark;
    }
    image.NoData.clear();
    EXPECT_EQ(At(TGeoidGrid(Put({image})), 11, 50), -32.25);
    // The text has more digits than a number of single precision.
    image.Numbers[5] = 0.1;
    image.NoData = "0.1";
    EXPECT_EQ(At(TGeoidGrid(Put({image})), 11, 50), std::nullopt);
    // Before the scale, not behind it.
    image.Numbers[5] = 10;
    image.NoData = "10";
    image.Metadata = Metadata("<Item name=\"SCALE\" sample=\"0\" role=\"scale\">0.5</Item>");
    EXPECT_EQ(At(TGeoidGrid(Put({image})), 11, 50), std::nullopt);
    EXPECT_EQ(At(TGeoidGrid(Put({image})), 10, 51), 10.0);
}

TEST_F(GeoTiff, NumbersThatAreNoUndulationsAreLackingWithoutAMark) {
    for (double const number : {std::numeric_limits<double>::quiet_NaN(), 1e300, -32768.0,
                                std::numeric_limits<double>::infinity()}) {
        TImage image = ThreeByFour();
        image.Format = SAMPLEFORMAT_IEEEFP;
        image.Bits = 64;
        image.Numbers[5] = number;
        for (char const* const mark : {"nan", "-1e300", ""}) {
            image.NoData = mark;
            TGeoidGrid const grid(Put({image}));
            EXPECT_EQ(At(grid, 11, 50), std::nullopt) << number << " " << mark;
            EXPECT_EQ(At(grid, 12, 50), 12.0) << number << " " << mark;
        }
    }
}

TEST_F(GeoTiff, OverviewsAndMasksAreNoGrids) {
    TImage overview = ThreeByFour();
    overview.Numbers.assign(12, 77);
    overview.SubfileType = FILETYPE_REDUCEDIMAGE;
    TImage mask = overview;
    mask.SubfileType = FILETYPE_MASK;
    ExpectThreeByFour(TGeoidGrid(Put({overview, ThreeByFour(), mask})));
    EXPECT_EQ(ReasonOf({overview, mask}), "it holds overviews and masks only");
}

TEST_F(GeoTiff, TheFinestOfSeveralGridsAnswers) {
    TImage fine;
    fine.Columns = 3;
    fine.Rows = 3;
    fine.PixelScale = {0.5, 0.5, 0};
    fine.Tiepoint = {0, 0, 0, 11, 51, 0};
    double const lacking = std::numeric_limits<double>::quiet_NaN();
    fine.Numbers = {100, 100, 100, 100, 100, 100, lacking, 100, 100};
    for (std::vector<TImage> const& order :
         {std::vector{fine, ThreeByFour()}, std::vector{ThreeByFour(), fine}}) {
        TGeoidGrid const grid(Put(order));
        EXPECT_EQ(At(grid, 11.25, 50.75), 100.0);
        EXPECT_EQ(At(grid, 12, 50), 100.0);
        EXPECT_EQ(At(grid, 12.5, 50), 12.5);
        // Where the fine one lacks a node the coarse one helps.
        EXPECT_EQ(At(grid, 11.25, 50.25), 13.75);
        EXPECT_EQ(At(grid, 14, 50), std::nullopt);
        EXPECT_EQ(grid.Extent().west, 10.0);
        EXPECT_EQ(grid.Extent().south, 49.0);
        EXPECT_EQ(grid.Extent().east, 13.0);
        EXPECT_EQ(grid.Extent().north, 51.0);
    }
}

TEST_F(GeoTiff, AGridThatGoesRoundHasNoSeam) {
    TImage image;
    image.Columns = 4;
    image.Rows = 2;
    image.PixelScale = {90, 90, 0};
    image.Tiepoint = {0, 0, 0, -180, 90, 0};
    image.GeoKeys = {1, 1, 0, 2, 1024, 0, 1, 2, 1025, 0, 1, 1};
    image.Numbers = {1, 2, 3, 5, 1, 2, 3, 5};
    TGeoidGrid const grid(Put({image}));
    EXPECT_EQ(At(grid, 135, 0), 5.0);
    EXPECT_EQ(At(grid, 180, 0), 3.0);
    EXPECT_EQ(At(grid, -135, 0), 1.0);
    // The centres of the outer pixels are the end.
    EXPECT_EQ(At(grid, 0, 45.5), std::nullopt);
}

TEST_F(GeoTiff, OnlyLongitudesAndLatitudesInDegreesAreGrids) {
    TImage image = ThreeByFour();
    image.GeoKeys = {1, 1, 0, 1, 1024, 0, 1, 1};
    EXPECT_EQ(ReasonOf({image}), "its geokey 1024 is 1; it must be 2 (longitude and latitude)");
    image.GeoKeys = {1, 1, 0, 3, 1024, 0, 1, 2, 1025, 0, 1, 2, 2054, 0, 1, 9105};
    EXPECT_EQ(ReasonOf({image}), "its geokey 2054 is 9105; it must be 9102 (degrees)");
    // A directory that is cut says nothing.
    image.GeoKeys = {1, 1, 0, 3, 1024, 0, 1};
    EXPECT_EQ(ReasonOf({image}), "unexpected: (nothing was thrown)");
}

TEST_F(GeoTiff, APlaceIsNeeded) {
    std::string const reason = "it doesn't say where it lies; the tags 33550 and 33922 or 34264 are needed";
    TImage image = ThreeByFour();
    image.Tiepoint.clear();
    EXPECT_EQ(ReasonOf({image}), reason);
    image.Tiepoint = {0, 0, 0, 10, 51};
    EXPECT_EQ(ReasonOf({image}), reason);
    image = ThreeByFour();
    image.PixelScale.clear();
    EXPECT_EQ(ReasonOf({image}), reason);
    image.Matrix = {1, 0, 0, 10, 0, -1, 0};
    EXPECT_EQ(ReasonOf({image}), reason);
    image.Matrix = {1, 0.5, 0, 10, 0.5, -1, 0, 51, 0, 0, 0, 0, 0, 0, 0, 1};
    EXPECT_EQ(ReasonOf({image}), "its rows don't run along parallels (tag 34264)");
    image = ThreeByFour();
    image.PixelScale = {-1, 1, 0};
    EXPECT_EQ(ReasonOf({image}),
              "its steps are -1 degrees of longitude and 1 of latitude; they must be above 0 "
              "and at most 360 and 180");
}

TEST_F(GeoTiff, OtherKindsOfSamplesAreRefused) {
    TImage image = ThreeByFour();
    image.Format = SAMPLEFORMAT_UINT;
    image.Bits = 8;
    EXPECT_EQ(ReasonOf({image}),
              "its samples are of format 1 with 8 bits; they must be real (3) with 32 or 64 "
              "bits or whole (1, 2) with 16 or 32");
}

TEST_F(GeoTiff, OtherGridsThanGeoidsAreRefused) {
    TImage image = ThreeByFour();
    image.Metadata = Metadata("<Item name=\"TYPE\">HORIZONTAL_OFFSET</Item>");
    EXPECT_EQ(ReasonOf({image}), "it is a grid of type HORIZONTAL_OFFSET; a vertical offset is needed");
    image.Metadata = Metadata("<Item name=\"TYPE\">VERTICAL_OFFSET_GEOGRAPHIC_TO_VERTICAL</Item>"
                              "<Item name=\"UNITTYPE\" sample=\"0\" role=\"unittype\">metre</Item>");
    ExpectThreeByFour(TGeoidGrid(Put({image})));
    image.Metadata = Metadata("<Item name=\"UNITTYPE\" sample=\"0\" role=\"unittype\">foot</Item>");
    EXPECT_EQ(ReasonOf({image}), "its undulations are in foot; metres are needed");
}

TEST_F(GeoTiff, MetadataThatCannotBeReadAreRefused) {
    TImage image = ThreeByFour();
    image.Metadata = "<GDALMetadata><Item";
    EXPECT_EQ(ReasonOf({image}), "its metadata (tag 42112) aren't XML");
    image.Metadata = Metadata("<Item name=\"SCALE\" sample=\"0\" role=\"scale\">half</Item>");
    EXPECT_EQ(ReasonOf({image}), "its metadata state \"half\" for scale; a number is needed");
    image.Metadata = Metadata("<Item name=\"OFFSET\" sample=\"0\" role=\"offset\">inf</Item>");
    EXPECT_EQ(ReasonOf({image}), "its metadata state \"inf\" for offset; a number is needed");
    image.Metadata.clear();
    image.NoData = "none";
    EXPECT_EQ(ReasonOf({image}), "its mark of lacking nodes (tag 42113) is \"none\"; a number is needed");
}

TEST_F(GeoTiff, AGridWithoutAnyUndulationIsRefused) {
    TImage image = ThreeByFour();
    image.Numbers.assign(12, -32768);
    EXPECT_EQ(ReasonOf({image}), "none of its nodes has an undulation");
}

TEST_F(GeoTiff, AFileThatIsCutIsRefusedWithTheReasonOfTheReader) {
    std::string const whole = TempFolder::Read(Put({ThreeByFour()}));
    for (std::size_t size = 4; size < whole.size(); ++size) {
        std::string const reason =
            ReasonOfFile(Folder.Put("cut" + std::to_string(size) + ".tif", whole.substr(0, size)));
        EXPECT_TRUE(reason.find("unexpected") == std::string::npos || size + 1 == whole.size())
            << size << " of " << whole.size() << ": " << reason;
        EXPECT_FALSE(reason.empty());
        EXPECT_EQ(reason.find('\n'), std::string::npos);
    }
}

template <class Number>
Number ReadNative(std::string const& bytes, std::size_t offset) {
    Number number;
    std::memcpy(&number, bytes.data() + offset, sizeof number);
    return number;
}

/** Makes a long number the value of a tag of the first image of a file in this processor's order of bytes. */
void Patch(std::string* file, std::uint16_t tag, std::uint32_t value) {
    auto const directory = ReadNative<std::uint32_t>(*file, 4);
    auto const count = ReadNative<std::uint16_t>(*file, directory);
    std::uint16_t const type = TIFF_LONG;
    for (std::size_t entry = directory + 2; entry < directory + 2 + 12U * count; entry += 12) {
        if (ReadNative<std::uint16_t>(*file, entry) == tag) {
            std::memcpy(file->data() + entry + 2, &type, sizeof type);
            std::memcpy(file->data() + entry + 8, &value, sizeof value);
            return;
        }
    }
    FAIL() << "no tag " << tag;
}

TEST_F(GeoTiff, AbsurdSizesAreRefusedBeforeAnythingIsAllocated) {
    std::string const whole = TempFolder::Read(Put({ThreeByFour()}, "w"));
    std::string huge = whole;
    Patch(&huge, TIFFTAG_IMAGEWIDTH, 0x7FFFFFFF);
    EXPECT_EQ(ReasonOfFile(Folder.Put("huge.tif", huge)), "its images have more than 268435456 nodes");
    Patch(&huge, TIFFTAG_IMAGEWIDTH, 1000000);
    EXPECT_EQ(ReasonOfFile(Folder.Put("huge.tif", huge)),
              "3000000 nodes can't lie in its " + std::to_string(huge.size()) + " bytes");
    TImage tiled = ThreeByFour();
    tiled.TileSize = 16;
    std::string tiles = TempFolder::Read(Put({tiled}));
    Patch(&tiles, TIFFTAG_TILEWIDTH, 0x10000000);
    EXPECT_EQ(ReasonOfFile(Folder.Put("tiles.tif", tiles)),
              "its blocks of 16 rows of 268435456 nodes take 17179869184 bytes, which doesn't fit");
}

TEST_F(GeoTiff, AnyDamageIsAnErrorOrAGrid) {
    // Nothing but the stated exception may come out, whatever bytes the file has.
    TImage image = ThreeByFour();
    image.NoData = "-32768";
    image.Metadata = Metadata("<Item name=\"SCALE\" sample=\"0\" role=\"scale\">0.5</Item>");
    TImage tiled = image;
    tiled.TileSize = 16;
    tiled.Compression = COMPRESSION_LZW;
    std::mt19937 source(20260);
    int refused = 0;
    for (std::vector<TImage> const& images : {std::vector{image, image}, std::vector{tiled}}) {
        TempFolder const own;
        std::string const whole = TempFolder::Read(Put(images, "wl"));
        for (int round = 0; round < 1500; ++round) {
            std::string damaged = whole;
            for (unsigned change = source() % 4 + 1; change > 0; --change) {
                damaged[source() % damaged.size()] = static_cast<char>(source() % 3 ? source() : 0xFF);
            }
            // A name of its own: some file systems write a file that is replaced to the disk at once.
            std::string const file = own.Put(std::to_string(round) + ".tif", damaged);
            try {
                double undulation = 0.0;
                if (TGeoidGrid(file).Undulation(11.5, 50.5, &undulation)) {
                    EXPECT_LE(std::fabs(undulation), 1000.0);
                }
            } catch (std::runtime_error const& failure) {
                ++refused;
                EXPECT_TRUE(std::string(failure.what()).starts_with(file + ": can't be read"))
                    << failure.what();
            }
        }
    }
    EXPECT_GT(refused, 300);
}

} // namespace
