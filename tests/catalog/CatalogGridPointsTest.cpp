#include "tests/catalog/Entries.h"
#include "tests/catalog/GridPoints.h"
#include "tests/catalog/Points.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace VellariTest {

namespace {

using namespace KvRefSystem;

constexpr double height = 100; // metres, of all points

double planeDistance(TPoint const& first, std::array<double, 2> const& second) {
    return std::hypot(first[0] - second[0], first[1] - second[1]);
}

/**
 * Metres between the way back and where the point came from. The forward forms of all grids are closed or good
 * to a tenth of a millimetre; the reverse ones of three methods are series.
 */
double reverseBound(TGridPoint const& point) {
    std::string const entry = point.Entry;
    if (entry == "albers-conus" || entry == "etrs89-laea") {
        return 2e-3; // the latitude from the authalic one, by a series that ends with the sixth power of e
    }
    if (entry == "british-national-grid") {
        // Ends before the seventh power of the distance from the central meridian: 5 mm on Scilly, 91 mm on St
        // Kilda.
        constexpr double centralMeridian = -2;
        return 1e-3 + 2e-7 * std::pow(std::abs(point.Geographic[1] - centralMeridian), 7.0);
    }
    return 1e-3;
}

class CatalogGridPoints : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        grid = BuildGrid(GetParam());
        wgs84 = BuildEntry("wgs-84");
        ASSERT_TRUE(grid != nullptr && wgs84 != nullptr);
        ASSERT_NE(grid->BaseGeodetic, nullptr);
        for (TGridPoint const& point : GridPoints()) {
            if (point.Entry == GetParam()) {
                points.push_back(point);
            }
        }
        ASSERT_GE(points.size(), 4u);
    }

    std::unique_ptr<TShellMapProjectedReferenceSystem> grid;
    std::unique_ptr<TShellReferenceSystem> wgs84;
    std::vector<TGridPoint> points;
};

TEST_P(CatalogGridPoints, ComeFromTheBaseWithinAMillimetre) {
    for (TGridPoint const& point : points) {
        TPoint const got =
            Transform(grid->BaseGeodetic, {point.Geographic[0], point.Geographic[1], height}, grid.get());
        EXPECT_LT(planeDistance(got, point.Grid), 1e-3) << point.Geographic[0] << " " << point.Geographic[1];
        EXPECT_NEAR(got[2], height, 1e-6);
    }
}

TEST_P(CatalogGridPoints, GoToWgs84WithinTheBoundOfTheMethod) {
    for (TGridPoint const& point : points) {
        TPoint const got = Transform(grid.get(), {point.Grid[0], point.Grid[1], height}, wgs84.get());
        EXPECT_LT(Distance(got, point.Wgs84), reverseBound(point))
            << point.Geographic[0] << " " << point.Geographic[1];
    }
}

TEST_P(CatalogGridPoints, GoThereAndBackWithinTheBoundOfTheMethod) {
    for (TGridPoint const& point : points) {
        TPoint const start = {point.Grid[0], point.Grid[1], height};
        TPoint const there = Transform(grid.get(), start, grid->BaseGeodetic);
        TPoint const back = Transform(grid->BaseGeodetic, there, grid.get());
        EXPECT_LT(planeDistance(back, point.Grid), reverseBound(point))
            << point.Geographic[0] << " " << point.Geographic[1];
        EXPECT_NEAR(back[2], height, 1e-6);
    }
}

TEST_P(CatalogGridPoints, ComeBackFromWgs84) {
    for (TGridPoint const& point : points) {
        TPoint const back = Transform(wgs84.get(), point.Wgs84, grid.get());
        // PROJ's own way to the ellipsoid of the equal-area grid is the same series.
        double const bound = GetParam() == "etrs89-laea" ? reverseBound(point) : 1e-3;
        EXPECT_LT(planeDistance(back, point.Grid), bound)
            << point.Geographic[0] << " " << point.Geographic[1];
        // The reverse of a small-angle shift leaves out products of rotations and scale.
        EXPECT_NEAR(back[2], height, 2e-3);
    }
}

INSTANTIATE_TEST_SUITE_P(All, CatalogGridPoints, testing::ValuesIn(GridNames()),
                         [](auto const& entry) { return TestSuffix(entry.param); });

// --- Published examples ---------------------------------------------------------------------------------

struct TPublished {
    char const* Entry;
    TPoint Geographic; ///< degrees on the grid's base system
    std::array<double, 2> Grid;
    char const* Source;
};

void PrintTo(TPublished const& example, std::ostream* out) {
    *out << example.Entry << ": " << example.Source;
}

constexpr double dms(double degrees, double minutes, double seconds) {
    return degrees + minutes / 60 + seconds / 3600;
}

TPublished const examples[] = {
    {"rd-new", {53, 6}, {196105.283, 557057.739}, "[EPSG7-2, 9809]"},
    {"british-national-grid",
     {dms(52, 39, 27.2531), dms(1, 43, 4.5177)},
     {651409.903, 313177.270},
     "Ordnance Survey, A Guide to Coordinate Systems in Great Britain, the tower of Caister"},
    {"s-jtsk-krovak", {dms(50, 12, 32.442), dms(16, 50, 59.179)}, {1050538.63, 568991.00}, "[EPSG7-2, 9819]"},
    {"s-jtsk-krovak-en",
     {dms(50, 12, 32.442), dms(16, 50, 59.179)},
     {-568991.00, -1050538.63},
     "[EPSG7-2, 9819], turned to easting and northing"},
    {"belge-lambert-72",
     {dms(50, 40, 46.461), dms(5, 48, 26.533)},
     {251763.20, 153034.13},
     "[EPSG7-2, 9803]"},
    {"etrs89-laea", {50, 5}, {2999718.85, 3962799.45}, "[EPSG7-2, 9820]"},
    {"ups-north", {73, 44}, {3320416.75, 632668.43}, "[EPSG7-2, 9810]"},
    {"web-mercator", {dms(24, 22, 54.433), -dms(100, 20, 0)}, {-11169055.58, 2800000.00}, "[EPSG7-2, 1024]"},
};

TEST(CatalogGridExamples, MeetThePublishedNumbers) {
    for (TPublished const& example : examples) {
        SCOPED_TRACE(testing::PrintToString(example));
        auto const grid = BuildGrid(example.Entry);
        ASSERT_NE(grid, nullptr);
        TPoint const got = Transform(grid->BaseGeodetic, example.Geographic, grid.get());
        // Printed to a centimetre, half of one in both coordinates.
        EXPECT_LT(planeDistance(got, example.Grid), 7.2e-3) << got[0] << ", " << got[1];
    }
}

TEST(CatalogEqualAreaGrid, HasNoReverseAtItsVeryOrigin) {
    auto const grid = BuildGrid("etrs89-laea");
    ASSERT_NE(grid, nullptr);
    // Kept: the method divides by the distance from the origin there; a millimetre off it is good.
    TPoint const there = Transform(grid.get(), {3210000, 4321000, height}, grid->BaseGeodetic);
    EXPECT_TRUE(std::isnan(there[0]) || std::isnan(there[1])) << there[0] << ", " << there[1];
    TPoint const beside = Transform(grid.get(), {3210000.001, 4321000, height}, grid->BaseGeodetic);
    EXPECT_NEAR(beside[0], 52, 1e-7);
    EXPECT_NEAR(beside[1], 10, 1e-7);
}

} // namespace

} // namespace VellariTest
