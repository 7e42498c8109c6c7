#include "tests/oracle/exports/gdal/GeoKeys.h"

#include "frame/NumberText.h"

#include <tiffio.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <vector>

namespace OracleTests {

namespace {

constexpr std::uint32_t directoryTag = 34735;
constexpr std::uint32_t doublesTag = 34736;
constexpr std::uint32_t textTag = 34737;

TIFFFieldInfo const geoTags[] = {
    {directoryTag, TIFF_VARIABLE, TIFF_VARIABLE, TIFF_SHORT, FIELD_CUSTOM, 1, 1,
     const_cast<char*>("GeoKeyDirectory")},
    {doublesTag, TIFF_VARIABLE, TIFF_VARIABLE, TIFF_DOUBLE, FIELD_CUSTOM, 1, 1,
     const_cast<char*>("GeoDoubleParams")},
    {textTag, TIFF_VARIABLE, TIFF_VARIABLE, TIFF_ASCII, FIELD_CUSTOM, 1, 0,
     const_cast<char*>("GeoAsciiParams")},
};

struct TCloseTiff {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using TTiffFile = std::unique_ptr<TIFF, TCloseTiff>;

TIFFExtendProc nextExtender = nullptr;

/** Makes the three tags known to a file that is about to be read or written. */
void AddGeoTags(TIFF* tiff) {
    TIFFMergeFieldInfo(tiff, geoTags, 3);
    if (nextExtender) {
        nextExtender(tiff);
    }
}

TTiffFile Open(std::string const& file, char const* mode) {
    static bool const isInstalled = [] {
        nextExtender = TIFFSetTagExtender(AddGeoTags);
        return true;
    }();
    static_cast<void>(isInstalled);
    TTiffFile tiff(TIFFOpen(file.c_str(), mode));
    if (!tiff) {
        throw std::runtime_error("cannot open " + file);
    }
    return tiff;
}

enum class TKeyType { Code, Text, Number };

TKeyType TypeOf(int key) {
    if (key == 1026 || key == 2049 || key == 3073 || key == 4097) {
        return TKeyType::Text;
    }
    bool const isNumber = key == 2053 || key == 2055 || (key >= 2057 && key <= 2059) || key == 2061 ||
                          key == 2062 || (key >= 3077 && key <= 3096);
    return isNumber ? TKeyType::Number : TKeyType::Code;
}

double NumberOf(std::string const& text) {
    double value = 0;
    if (!KvRefSystem::ParseWholeDouble(text, &value)) {
        throw std::runtime_error("not a number: " + text);
    }
    return value;
}

/** The numbers of a list with commas. */
std::vector<double> NumbersOf(std::string const& text) {
    std::vector<double> numbers;
    for (std::size_t at = 0; at <= text.size();) {
        std::size_t const comma = std::min(text.find(',', at), text.size());
        numbers.push_back(NumberOf(text.substr(at, comma - at)));
        at = comma + 1;
    }
    return numbers;
}

} // namespace

TGeoKeys ReadGeoKeys(std::string const& file) {
    TTiffFile const tiff = Open(file, "r");
    std::uint16_t count = 0;
    std::uint16_t const* directory = nullptr;
    if (TIFFGetField(tiff.get(), directoryTag, &count, &directory) == 0 || count < 4) {
        throw std::runtime_error("no geokeys in " + file);
    }
    std::uint16_t doubleCount = 0;
    double const* doubles = nullptr;
    TIFFGetField(tiff.get(), doublesTag, &doubleCount, &doubles);
    char const* text = nullptr;
    TIFFGetField(tiff.get(), textTag, &text);
    std::string const texts = text ? text : "";

    TGeoKeys keys;
    for (int at = 4; at + 3 < count; at += 4) {
        int const length = directory[at + 2];
        int const value = directory[at + 3];
        std::string& written = keys[directory[at]];
        if (directory[at + 1] == 0) {
            written = KvRefSystem::FormatText("%d", value);
        } else if (directory[at + 1] == textTag) {
            written = texts.substr(std::min<std::size_t>(value, texts.size()), length - 1);
        } else {
            for (int index = value; index < value + length && index < doubleCount; ++index) {
                written += (index > value ? "," : "") + KvRefSystem::FormatText("%.17g", doubles[index]);
            }
        }
    }
    return keys;
}

void WriteGeoTiff(std::string const& file, TGeoKeys const& systemKeys) {
    // Keys stand in rising order; 1025 tells that a pixel is an area.
    TGeoKeys keys = systemKeys;
    keys.emplace(1025, "1");
    std::vector<std::uint16_t> directory = {1, 1, 0, static_cast<std::uint16_t>(keys.size())};
    std::vector<double> doubles;
    std::string texts;
    auto const add = [&directory](std::size_t key, std::size_t place, std::size_t length, std::size_t value) {
        for (std::size_t const number : {key, place, length, value}) {
            directory.push_back(static_cast<std::uint16_t>(number));
        }
    };
    for (auto const& [number, value] : keys) {
        auto const key = static_cast<std::size_t>(number);
        switch (TypeOf(number)) {
        case TKeyType::Code:
            add(key, 0, 1, static_cast<std::size_t>(NumberOf(value)));
            break;
        case TKeyType::Text:
            add(key, textTag, value.size() + 1, texts.size());
            texts += value + "|";
            break;
        case TKeyType::Number: {
            std::vector<double> const numbers = NumbersOf(value);
            add(key, doublesTag, numbers.size(), doubles.size());
            doubles.insert(doubles.end(), numbers.begin(), numbers.end());
            break;
        }
        }
    }

    TTiffFile const tiff = Open(file, "w");
    TIFFSetField(tiff.get(), TIFFTAG_IMAGEWIDTH, 1);
    TIFFSetField(tiff.get(), TIFFTAG_IMAGELENGTH, 1);
    TIFFSetField(tiff.get(), TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff.get(), TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(tiff.get(), TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
    TIFFSetField(tiff.get(), TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff.get(), TIFFTAG_ROWSPERSTRIP, 1);
    TIFFSetField(tiff.get(), directoryTag, static_cast<int>(directory.size()), directory.data());
    if (!doubles.empty()) {
        TIFFSetField(tiff.get(), doublesTag, static_cast<int>(doubles.size()), doubles.data());
    }
    if (!texts.empty()) {
        TIFFSetField(tiff.get(), textTag, texts.c_str());
    }
    std::uint8_t pixel = 0;
    if (TIFFWriteScanline(tiff.get(), &pixel, 0, 0) != 1) {
        throw std::runtime_error("cannot write " + file);
    }
}

} // namespace OracleTests
