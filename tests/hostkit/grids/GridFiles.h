#pragma once

#include <bit>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include <tiffio.h>

/** Writers of small grid files. */
namespace GridFiles {

/** The header of a GTX file. */
struct TGtxHeader {
    double South = 50;
    double West = 10;
    double LatitudeStep = 1;
    double LongitudeStep = 1;
    std::int32_t Rows = 2;
    std::int32_t Columns = 2;
};

template <class Number>
void AppendNumber(std::string* text, Number number) {
    for (int shift = static_cast<int>(sizeof(Number)) * 8 - 8; shift >= 0; shift -= 8) {
        *text += static_cast<char>(number >> shift & 0xFF);
    }
}

/** @return the bytes of a GTX file; nodes from south to north, each row from west to east. */
inline std::string GtxText(TGtxHeader const& header, std::vector<float> const& nodes) {
    std::string text;
    for (double const number : {header.South, header.West, header.LatitudeStep, header.LongitudeStep}) {
        AppendNumber(&text, std::bit_cast<std::uint64_t>(number));
    }
    AppendNumber(&text, static_cast<std::uint32_t>(header.Rows));
    AppendNumber(&text, static_cast<std::uint32_t>(header.Columns));
    for (float const node : nodes) {
        AppendNumber(&text, std::bit_cast<std::uint32_t>(node));
    }
    return text;
}

/** An image of a GeoTIFF file; tags whose value is empty are left out. */
struct TImage {
    std::uint32_t Columns = 2;
    std::uint32_t Rows = 2;
    std::vector<double> Numbers; ///< row by row, the samples of a pixel side by side
    std::uint16_t Samples = 1;
    std::uint16_t Format = SAMPLEFORMAT_IEEEFP;
    std::uint16_t Bits = 32;
    std::uint16_t Compression = COMPRESSION_NONE;
    std::uint16_t Planes = PLANARCONFIG_CONTIG;
    std::uint32_t TileSize = 0; ///< 0 for rows in strips
    std::uint32_t SubfileType = 0;
    std::vector<double> PixelScale = {1, 1, 0};
    std::vector<double> Tiepoint = {0, 0, 0, 10, 51, 0};
    std::vector<double> Matrix;
    std::vector<std::uint16_t> GeoKeys = {1, 1, 0, 2, 1024, 0, 1, 2, 1025, 0, 1, 2}; ///< geographic, points
    std::string Metadata;
    std::string NoData;
};

namespace Detail {

template <class Number>
void AppendRaw(std::vector<unsigned char>* bytes, double number) {
    auto const value = static_cast<Number>(number);
    auto const* const first = reinterpret_cast<unsigned char const*>(&value);
    bytes->insert(bytes->end(), first, first + sizeof value);
}

inline void AppendSample(std::vector<unsigned char>* bytes, TImage const& image, double number) {
    if (image.Format == SAMPLEFORMAT_IEEEFP) {
        image.Bits == 64 ? AppendRaw<double>(bytes, number) : AppendRaw<float>(bytes, number);
    } else if (image.Format == SAMPLEFORMAT_INT) {
        image.Bits == 32 ? AppendRaw<std::int32_t>(bytes, number) : AppendRaw<std::int16_t>(bytes, number);
    } else if (image.Bits == 8) {
        AppendRaw<std::uint8_t>(bytes, number);
    } else {
        image.Bits == 32 ? AppendRaw<std::uint32_t>(bytes, number) : AppendRaw<std::uint16_t>(bytes, number);
    }
}

/** @return the bytes of a rectangle; what lies outside of the image is 0. */
inline std::vector<unsigned char> BlockOf(TImage const& image, std::uint32_t top, std::uint32_t left,
                                          std::uint32_t rows, std::uint32_t columns, int plane) {
    std::vector<unsigned char> bytes;
    for (std::uint32_t row = top; row < top + rows; ++row) {
        for (std::uint32_t column = left; column < left + columns; ++column) {
            bool const inside = row < image.Rows && column < image.Columns;
            for (std::uint16_t sample = 0; sample < image.Samples; ++sample) {
                if (plane < 0 || plane == sample) {
                    std::size_t const index =
                        (std::size_t{row} * image.Columns + column) * image.Samples + sample;
                    AppendSample(&bytes, image, inside ? image.Numbers.at(index) : 0.0);
                }
            }
        }
    }
    return bytes;
}

inline void Require(bool done) {
    if (!done) {
        throw std::runtime_error("the TIFF file can't be written");
    }
}

inline void SetTags(TIFF* tiff, TImage const& image) {
    static TIFFFieldInfo fields[] = {
        {33550, -1, -1, TIFF_DOUBLE, FIELD_CUSTOM, 1, 1, const_cast<char*>("Scale")},
        {33922, -1, -1, TIFF_DOUBLE, FIELD_CUSTOM, 1, 1, const_cast<char*>("Tiepoint")},
        {34264, -1, -1, TIFF_DOUBLE, FIELD_CUSTOM, 1, 1, const_cast<char*>("Matrix")},
        {34735, -1, -1, TIFF_SHORT, FIELD_CUSTOM, 1, 1, const_cast<char*>("GeoKeys")},
        {42112, -1, -1, TIFF_ASCII, FIELD_CUSTOM, 1, 0, const_cast<char*>("Metadata")},
        {42113, -1, -1, TIFF_ASCII, FIELD_CUSTOM, 1, 0, const_cast<char*>("NoData")},
    };
    TIFFMergeFieldInfo(tiff, fields, 6);
    TIFFSetField(tiff, TIFFTAG_SUBFILETYPE, image.SubfileType);
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, image.Columns);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, image.Rows);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, image.Samples);
    TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, image.Format);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, image.Bits);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, image.Compression);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, image.Planes);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
    if (image.TileSize != 0) {
        TIFFSetField(tiff, TIFFTAG_TILEWIDTH, image.TileSize);
        TIFFSetField(tiff, TIFFTAG_TILELENGTH, image.TileSize);
    } else {
        TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, 2);
    }
    std::pair<std::uint32_t, std::vector<double> const*> const numbers[] = {
        {33550, &image.PixelScale}, {33922, &image.Tiepoint}, {34264, &image.Matrix}};
    for (auto const& [tag, values] : numbers) {
        if (!values->empty()) {
            TIFFSetField(tiff, tag, static_cast<int>(values->size()), values->data());
        }
    }
    if (!image.GeoKeys.empty()) {
        TIFFSetField(tiff, 34735, static_cast<int>(image.GeoKeys.size()), image.GeoKeys.data());
    }
    if (!image.Metadata.empty()) {
        TIFFSetField(tiff, 42112, image.Metadata.c_str());
    }
    if (!image.NoData.empty()) {
        TIFFSetField(tiff, 42113, image.NoData.c_str());
    }
}

inline void WriteImage(TIFF* tiff, TImage const& image) {
    SetTags(tiff, image);
    bool const apart = image.Planes == PLANARCONFIG_SEPARATE;
    for (int plane = 0; plane < (apart ? image.Samples : 1); ++plane) {
        int const chosen = apart ? plane : -1;
        auto const sample = static_cast<std::uint16_t>(plane);
        if (image.TileSize == 0) {
            for (std::uint32_t row = 0; row < image.Rows; ++row) {
                std::vector<unsigned char> line = BlockOf(image, row, 0, 1, image.Columns, chosen);
                Require(TIFFWriteScanline(tiff, line.data(), row, sample) >= 0);
            }
            continue;
        }
        for (std::uint32_t row = 0; row < image.Rows; row += image.TileSize) {
            for (std::uint32_t column = 0; column < image.Columns; column += image.TileSize) {
                std::vector<unsigned char> tile =
                    BlockOf(image, row, column, image.TileSize, image.TileSize, chosen);
                Require(TIFFWriteTile(tiff, tile.data(), column, row, 0, sample) >= 0);
            }
        }
    }
    Require(TIFFWriteDirectory(tiff) != 0);
}

} // namespace Detail

/** Writes a GeoTIFF file. @param mode "w", with "b" or "l" for the order of bytes, "8" for the large form. */
inline void WriteTiff(std::string const& path, std::vector<TImage> const& images, char const* mode = "w") {
    TIFF* const tiff = TIFFOpen(path.c_str(), mode);
    Detail::Require(tiff != nullptr);
    for (TImage const& image : images) {
        Detail::WriteImage(tiff, image);
    }
    TIFFClose(tiff);
}

} // namespace GridFiles
