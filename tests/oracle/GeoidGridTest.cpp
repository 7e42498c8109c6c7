#include "tests/hostkit/TempFolder.h"
#include "tests/hostkit/grids/GridFiles.h"
#include "tests/oracle/Places.h"
#include "tests/oracle/ProjPipeline.h"

#include <Vellari/hostkit/grids/GeoidGrid.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

namespace OracleTests {

namespace {

using VellariHostKit::TGeoidGrid;

constexpr char const* Egm96 = "egm96_15.gtx";

/**
 * Both sides take the mean of the same four numbers of single precision. PROJ's coordinates are radians: a
 * longitude is off by 4e-16 of its 3.1, which is 1e-13 of a cell of a quarter of a degree, over which the
 * geoid of the earth rises by less than 10 m; metres.
 */
constexpr double RoundingOfRadians = 1e-11;

/** PROJ's undulations, by the step that adds them to heights. */
class TProjGrid {
public:
    explicit TProjGrid(std::string const& file)
        : Shift(
              "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=vgridshift +grids=" +
              file + " +multiplier=1") {}

    double At(double longitude, double latitude) const { return Shift.Forward({longitude, latitude, 0})[2]; }

private:
    TProjPipeline Shift;
};

/** @return the full name of one of PROJ's grids. */
std::string FileOf(char const* name) {
    std::string const file = proj_grid_info(name).filename;
    if (file.empty()) {
        throw std::runtime_error(std::string(name) + ": PROJ doesn't have it");
    }
    return file;
}

double GreatestDifference(TGeoidGrid const& ours, TProjGrid const& theirs,
                          std::vector<TPlace> const& places) {
    double greatest = 0;
    for (TPlace const& place : places) {
        double undulation = std::nan("");
        EXPECT_TRUE(ours.Undulation(place.Longitude, place.Latitude, &undulation))
            << place.Longitude << " " << place.Latitude;
        double const difference = std::fabs(undulation - theirs.At(place.Longitude, place.Latitude));
        EXPECT_FALSE(std::isnan(difference)) << place.Longitude << " " << place.Latitude;
        greatest = std::max(greatest, difference);
    }
    return greatest;
}

TEST(GeoidGrid, EqualsProjOverTheWholeEarth) {
    TGeoidGrid const ours(FileOf(Egm96));
    TProjGrid const theirs(Egm96);
    EXPECT_LT(GreatestDifference(ours, theirs, DrawFrom({90, 0, 0}, 20000, 96)), RoundingOfRadians);
}

TEST(GeoidGrid, EqualsProjAtTheNodes) {
    TGeoidGrid const ours(FileOf(Egm96));
    TProjGrid const theirs(Egm96);
    std::vector<TPlace> nodes;
    for (double latitude = -90; latitude <= 90; latitude += 2.25) {
        for (double longitude = -180; longitude <= 180; longitude += 0.75) {
            nodes.push_back({latitude, longitude, 0});
        }
    }
    EXPECT_LT(GreatestDifference(ours, theirs, nodes), RoundingOfRadians);
}

TEST(GeoidGrid, EqualsProjAcrossTheSeam) {
    // The last meridian of the file is 179.75 E.
    TGeoidGrid const ours(FileOf(Egm96));
    TProjGrid const theirs(Egm96);
    std::vector<TPlace> places;
    for (double latitude = -90; latitude <= 90; latitude += 0.7) {
        for (double const offset : {-0.3, -0.25, -0.2, -0.1, -1e-9, 0.0, 1e-9, 0.1, 0.3}) {
            places.push_back({latitude, 180 + offset, 0});
            places.push_back({latitude, -180 + offset, 0});
        }
    }
    EXPECT_LT(GreatestDifference(ours, theirs, places), RoundingOfRadians);
}

/** A grid of 40 rows of 60 nodes that rises and falls by some metres. */
GridFiles::TImage Waves() {
    GridFiles::TImage image;
    image.Columns = 60;
    image.Rows = 40;
    image.PixelScale = {0.05, 0.04, 0};
    image.Tiepoint = {0, 0, 0, 20, 61, 0};
    for (int row = 0; row < 40; ++row) {
        for (int column = 0; column < 60; ++column) {
            image.Numbers.push_back(
                std::round(1000 * (15 + 4 * std::sin(row * 0.3) * std::cos(column * 0.2))));
        }
    }
    image.Metadata = "<GDALMetadata><Item name=\"TYPE\">VERTICAL_OFFSET_GEOGRAPHIC_TO_VERTICAL</Item>"
                     "<Item name=\"DESCRIPTION\" sample=\"0\" role=\"description\">geoid_undulation</Item>"
                     "<Item name=\"UNITTYPE\" sample=\"0\" role=\"unittype\">metre</Item>"
                     "<Item name=\"SCALE\" sample=\"0\" role=\"scale\">0.001</Item>"
                     "<Item name=\"OFFSET\" sample=\"0\" role=\"offset\">-3.5</Item></GDALMetadata>";
    return image;
}

/**
 * With a scale our nodes are the nearest numbers of single precision, off by up to 1e-6 m near 16 m; PROJ may
 * keep more digits.
 */
constexpr double RoundingOfNodes = 1e-6;

TEST(GeoidGrid, EqualsProjOnGeoTiffOfAllForms) {
    TempFolder const folder;
    std::vector<TPlace> places;
    for (double latitude = 59.4601; latitude < 60.98; latitude += 0.0373) {
        for (double longitude = 20.0301; longitude < 22.92; longitude += 0.0291) {
            places.push_back({latitude, longitude, 0});
        }
    }
    std::vector<std::uint16_t> const areas = {1, 1, 0, 2, 1024, 0, 1, 2, 1025, 0, 1, 1};
    std::vector<GridFiles::TImage> images(5, Waves());
    images[1].GeoKeys = areas;
    images[1].Format = SAMPLEFORMAT_INT;
    images[1].Bits = 16;
    images[2].TileSize = 16;
    images[2].Compression = COMPRESSION_ADOBE_DEFLATE;
    images[3].Bits = 64;
    images[4].Format = SAMPLEFORMAT_UINT;
    for (std::size_t number = 0; number < images.size(); ++number) {
        std::string const file = folder.File("grid" + std::to_string(number) + ".tif");
        GridFiles::WriteTiff(file, {images[number]});
        EXPECT_LT(GreatestDifference(TGeoidGrid(file), TProjGrid(file), places), RoundingOfNodes) << number;
    }
}

TEST(GeoidGrid, EqualsProjInRegionsOfGtxOfEitherCountOfLongitudes) {
    TempFolder const folder;
    std::vector<float> nodes;
    for (int index = 0; index < 30 * 20; ++index) {
        nodes.push_back(static_cast<float>(40 + 30 * std::sin(index * 1.7)));
    }
    for (double const west : {175.0, 352.0, -171.5}) {
        std::string const file = folder.Put("grid" + Number(west) + ".gtx",
                                            GridFiles::GtxText({-40, west, 0.5, 0.25, 20, 30}, nodes));
        std::vector<TPlace> places;
        for (double latitude = -40; latitude <= -30.5; latitude += 0.19) {
            for (double east = 0; east <= 7.25; east += 0.0725) {
                places.push_back({latitude, std::remainder(west + east, 360), 0});
            }
        }
        // Neighbours differ by up to 60 m here, six times as much as the bound counts with.
        EXPECT_LT(GreatestDifference(TGeoidGrid(file), TProjGrid(file), places), 6 * RoundingOfRadians)
            << west;
    }
}

} // namespace

} // namespace OracleTests
