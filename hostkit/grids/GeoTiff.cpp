#include "hostkit/grids/TiffFileDetail.h"

#include "frame/NumberText.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace VellariHostKit {

namespace {

using KvRefSystem::FormatText;

// Tags and keys of GeoTIFF [OGC19-008] and of the metadata that geodetic grids carry [GTG].
constexpr std::uint32_t pixelScaleTag = 33550;
constexpr std::uint32_t tiepointTag = 33922;
constexpr std::uint32_t transformationTag = 34264;
constexpr std::uint32_t geoKeysTag = 34735;
constexpr std::uint32_t metadataTag = 42112;
constexpr std::uint32_t noDataTag = 42113;

constexpr std::uint16_t modelTypeKey = 1024;
constexpr std::uint16_t rasterTypeKey = 1025;
constexpr std::uint16_t angularUnitKey = 2054;
constexpr std::uint16_t geographicModel = 2;
constexpr std::uint16_t pixelIsPoint = 2;
constexpr std::uint16_t degreeUnit = 9102;

/** What the metadata say about the sample to be read. */
struct SampleMeaning {
    std::uint16_t sample = 0;
    double scale = 1.0;
    double offset = 0.0;
};

/** @return the value of a geokey that stands in the directory itself; nothing without it. */
std::optional<std::uint16_t> GeoKey(std::vector<std::uint16_t> const& directory, std::uint16_t key) {
    // The directory begins with a row of its own; the rows are key, place of the value, count, value.
    constexpr std::size_t width = 4;
    for (std::size_t row = width; row + width <= directory.size(); row += width) {
        if (directory[row] == key && directory[row + 1] == 0) {
            return directory[row + 3];
        }
    }
    return std::nullopt;
}

void RequireKey(std::vector<std::uint16_t> const& directory, std::uint16_t key, std::uint16_t value,
                char const* meaning) {
    std::uint16_t const found = GeoKey(directory, key).value_or(value);
    if (found != value) {
        throw std::runtime_error(
            FormatText("its geokey %d is %d; it must be %d (%s)", key, found, value, meaning));
    }
}

/** Where the first pixel's corner or centre lies, and the steps to the next column and row; degrees. */
struct PixelFrame {
    double longitude;
    double latitude;
    double longitudeStep;
    double latitudeStep; ///< negative where the first row is the northern one
};

PixelFrame ReadFrame(TiffFile const& file) {
    std::vector<double> const scale = file.Doubles(pixelScaleTag);
    std::vector<double> const tie = file.Doubles(tiepointTag);
    if (scale.size() >= 2 && tie.size() >= 6) {
        return {tie[3] - tie[0] * scale[0], tie[4] + tie[1] * scale[1], scale[0], -scale[1]};
    }
    std::vector<double> const matrix = file.Doubles(transformationTag);
    if (matrix.size() < 8) {
        throw std::runtime_error(
            "it doesn't say where it lies; the tags 33550 and 33922 or 34264 are needed");
    }
    if (matrix[1] != 0 || matrix[4] != 0) {
        throw std::runtime_error("its rows don't run along parallels (tag 34264)");
    }
    return {matrix[3], matrix[7], matrix[0], matrix[5]};
}

GridLayout ReadLayout(TiffFile const& file, bool* northFirst) {
    std::vector<std::uint16_t> const keys = file.Shorts(geoKeysTag);
    RequireKey(keys, modelTypeKey, geographicModel, "longitude and latitude");
    RequireKey(keys, angularUnitKey, degreeUnit, "degrees");
    PixelFrame frame = ReadFrame(file);
    // The frame is that of the pixels' corners unless the file says that pixels are points.
    if (GeoKey(keys, rasterTypeKey) != pixelIsPoint) {
        frame.longitude += frame.longitudeStep / 2;
        frame.latitude += frame.latitudeStep / 2;
    }
    *northFirst = frame.latitudeStep < 0;
    GridLayout layout{};
    layout.columns = file.Columns();
    layout.rows = file.Rows();
    layout.west = frame.longitude;
    layout.longitudeStep = frame.longitudeStep;
    layout.latitudeStep = std::fabs(frame.latitudeStep);
    layout.south = frame.latitude;
    if (*northFirst) {
        layout.south -= layout.latitudeStep * static_cast<double>(layout.rows - 1);
    }
    return layout;
}

double ReadFactor(pugi::xml_node item) {
    double value = 0.0;
    if (!KvRefSystem::ParseWholeDouble(item.child_value(), &value) || !std::isfinite(value)) {
        throw std::runtime_error(FormatText("its metadata state \"%s\" for %s; a number is needed",
                                            item.child_value(), item.attribute("role").value()));
    }
    return value;
}

/** @return whether an item of the metadata says something about a sample in a given role. */
bool IsAbout(pugi::xml_node item, std::string_view role, std::uint16_t sample) {
    int number = 0;
    return item.attribute("role").value() == role &&
           KvRefSystem::ParseWholeInt(item.attribute("sample").value(), &number) && number == sample;
}

pugi::xml_node ItemOf(pugi::xml_node items, std::string_view role, std::uint16_t sample) {
    return items.find_child([=](pugi::xml_node item) { return IsAbout(item, role, sample); });
}

SampleMeaning ReadMeaning(TiffFile const& file) {
    SampleMeaning meaning;
    std::string const text = file.Text(metadataTag);
    if (text.empty()) {
        return meaning;
    }
    pugi::xml_document document;
    if (!document.load_buffer(text.data(), text.size())) {
        throw std::runtime_error("its metadata (tag 42112) aren't XML");
    }
    pugi::xml_node const items = document.child("GDALMetadata");
    std::string_view const type = items.find_child_by_attribute("Item", "name", "TYPE").child_value();
    if (!type.empty() && !type.starts_with("VERTICAL_OFFSET_")) {
        throw std::runtime_error("it is a grid of type " + std::string(type) +
                                 "; a vertical offset is needed");
    }
    for (std::uint16_t sample = 0; sample < file.SampleCount(); ++sample) {
        if (std::string_view(ItemOf(items, "description", sample).child_value()) == "geoid_undulation") {
            meaning.sample = sample;
            break;
        }
    }
    std::string_view const unit = ItemOf(items, "unittype", meaning.sample).child_value();
    if (!unit.empty() && unit != "metre" && unit != "meter" && unit != "m") {
        throw std::runtime_error("its undulations are in " + std::string(unit) + "; metres are needed");
    }
    if (pugi::xml_node const item = ItemOf(items, "scale", meaning.sample)) {
        meaning.scale = ReadFactor(item);
    }
    if (pugi::xml_node const item = ItemOf(items, "offset", meaning.sample)) {
        meaning.offset = ReadFactor(item);
    }
    return meaning;
}

/** @return the mark of lacking nodes, before scale and offset; without one a NaN, which equals nothing. */
double ReadNoData(TiffFile const& file) {
    double value = std::nan("");
    std::string const text = file.Text(noDataTag);
    if (!text.empty() && !KvRefSystem::ParseWholeDouble(text, &value)) {
        throw std::runtime_error("its mark of lacking nodes (tag 42113) is \"" + text +
                                 "\"; a number is needed");
    }
    // The text may have more digits than the samples. What is beyond their range is lacking anyway.
    bool const rounds = file.IsSingle() && std::fabs(value) <= std::numeric_limits<float>::max();
    return rounds ? static_cast<double>(static_cast<float>(value)) : value;
}

GridNodes ReadImage(TiffFile const& file, GridLayout const& layout, bool northFirst) {
    SampleMeaning const meaning = ReadMeaning(file);
    double const noData = ReadNoData(file);
    GridNodes nodes(layout);
    file.ReadSamples(meaning.sample, [&](std::int64_t row, std::int64_t column, double value) {
        if (value != noData) {
            nodes.Set(northFirst ? layout.rows - 1 - row : row, column,
                      value * meaning.scale + meaning.offset);
        }
    });
    nodes.Finish();
    return nodes;
}

} // namespace

bool IsTiff(GridFile const& file) {
    constexpr std::size_t length = 4;
    constexpr char const* beginnings[] = {"II*\0", "MM\0*", "II+\0", "MM\0+"};
    unsigned char bytes[length];
    if (file.Read(0, bytes, length) < length) {
        return false;
    }
    return std::any_of(std::begin(beginnings), std::end(beginnings),
                       [&](char const* beginning) { return std::memcmp(bytes, beginning, length) == 0; });
}

std::vector<GridNodes> ReadGeoTiff(GridFile const& file) {
    TiffFile tiff(file);
    std::vector<GridNodes> grids;
    std::int64_t total = 0;
    do {
        if (tiff.IsDerived()) {
            continue;
        }
        bool northFirst = false;
        GridLayout const layout = ReadLayout(tiff, &northFirst);
        if (layout.columns > (MaxNodes - total) / std::max<std::int64_t>(layout.rows, 1)) {
            throw std::runtime_error(
                FormatText("its images have more than %lld nodes", static_cast<long long>(MaxNodes)));
        }
        total += layout.columns * layout.rows;
        if (sizeof(float) * static_cast<std::uint64_t>(total) / MaxPacking > file.Size()) {
            throw std::runtime_error(FormatText("%lld nodes can't lie in its %llu bytes",
                                                static_cast<long long>(total),
                                                static_cast<unsigned long long>(file.Size())));
        }
        grids.push_back(ReadImage(tiff, layout, northFirst));
    } while (tiff.Next());
    if (grids.empty()) {
        throw std::runtime_error("it holds overviews and masks only");
    }
    return grids;
}

} // namespace VellariHostKit
