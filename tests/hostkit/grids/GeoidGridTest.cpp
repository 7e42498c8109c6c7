#include "tests/hostkit/Failure.h"
#include "tests/hostkit/TempFolder.h"
#include "tests/hostkit/grids/GridFiles.h"

#include "hostkit/grids/GeoidGrid.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <thread>
#include <vector>

using GridFiles::GtxText;
using GridFiles::TGtxHeader;
using VellariHostKit::TGeoidGrid;

namespace {

constexpr float Nan = std::numeric_limits<float>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

/** A grid from a GTX file of the given content. */
class GeoidGrid : public testing::Test {
protected:
    TGeoidGrid Grid(TGtxHeader const& header, std::vector<float> const& nodes) const {
        return TGeoidGrid(Folder.Put("grid.gtx", GtxText(header, nodes)));
    }

    TempFolder const Folder;
};

std::optional<double> At(TGeoidGrid const& grid, double longitude, double latitude) {
    double undulation = 0.0;
    return grid.Undulation(longitude, latitude, &undulation) ? std::optional(undulation) : std::nullopt;
}

/** 3 rows of 4 nodes from 10 E 50 N on, a degree apart; the node in row r and column c is 10 r + c. */
TGtxHeader const ThreeByFour = {50, 10, 1, 1, 3, 4};
std::vector<float> const ThreeByFourNodes = {0, 1, 2, 3, 10, 11, 12, 13, 20, 21, 22, 23};

TEST_F(GeoidGrid, NodesAreExactlyThoseOfTheFile) {
    // Neither number is short in binary, so that a detour by another precision would show.
    TGeoidGrid const grid = Grid({50, 10, 0.25, 0.25, 2, 3}, {0.1F, -17.3F, 3e-5F, 85.8F, -0.7F, 99.99F});
    EXPECT_EQ(At(grid, 10, 50), static_cast<double>(0.1F));
    EXPECT_EQ(At(grid, 10.25, 50), static_cast<double>(-17.3F));
    EXPECT_EQ(At(grid, 10.5, 50), static_cast<double>(3e-5F));
    EXPECT_EQ(At(grid, 10, 50.25), static_cast<double>(85.8F));
    EXPECT_EQ(At(grid, 10.25, 50.25), static_cast<double>(-0.7F));
    EXPECT_EQ(At(grid, 10.5, 50.25), static_cast<double>(99.99F));
}

TEST_F(GeoidGrid, TheMeanOfFourNodesIsBilinear) {
    TGeoidGrid const grid = Grid({50, 10, 0.5, 2, 2, 2}, {8, 16, 24, 64});
    // A quarter of the way east and three quarters north: 8 + 0.25 * 8 = 10 and 24 + 0.25 * 40 = 34 in the
    // rows, 10 + 0.75 * 24 = 28 between them.
    EXPECT_EQ(At(grid, 10.5, 50.375), 28.0);
    EXPECT_EQ(At(grid, 11, 50), 12.0);
    EXPECT_EQ(At(grid, 10, 50.25), 16.0);
}

TEST_F(GeoidGrid, TheEdgesBelongToTheGrid) {
    TGeoidGrid const grid = Grid(ThreeByFour, ThreeByFourNodes);
    EXPECT_EQ(At(grid, 10, 50), 0.0);
    EXPECT_EQ(At(grid, 13, 50), 3.0);
    EXPECT_EQ(At(grid, 10, 52), 20.0);
    EXPECT_EQ(At(grid, 13, 52), 23.0);
    EXPECT_EQ(At(grid, 11.5, 52), 21.5);
    EXPECT_EQ(At(grid, 13, 50.5), 8.0);
}

TEST_F(GeoidGrid, ThereIsNoUndulationOutside) {
    TGeoidGrid const grid = Grid(ThreeByFour, ThreeByFourNodes);
    for (auto const& [longitude, latitude] : std::vector<std::pair<double, double>>{{9.99999, 51},
                                                                                    {13.00001, 51},
                                                                                    {11, 49.99999},
                                                                                    {11, 52.00001},
                                                                                    {191, 51},
                                                                                    {11, 411},
                                                                                    {11, -51}}) {
        double undulation = 7.5;
        EXPECT_FALSE(grid.Undulation(longitude, latitude, &undulation)) << longitude << " " << latitude;
        EXPECT_EQ(undulation, 7.5);
    }
}

TEST_F(GeoidGrid, RoundingAtAnEdgeDoesNotLeaveTheGrid) {
    // 1e-9 of a cell is let through: radians and back move a coordinate by some 1e-14 degrees.
    TGeoidGrid const grid = Grid(ThreeByFour, ThreeByFourNodes);
    EXPECT_EQ(At(grid, 10 - 1e-13, 50 - 1e-13), 0.0);
    EXPECT_EQ(At(grid, 13 + 1e-13, 52 + 1e-13), 23.0);
    EXPECT_EQ(At(grid, 10 - 1e-8, 51), std::nullopt);
    EXPECT_EQ(At(grid, 11, 52 + 1e-8), std::nullopt);
    // A turn further on rounding is of the same kind.
    EXPECT_EQ(At(grid, 370 - 1e-13, 50), 0.0);
    EXPECT_EQ(At(grid, -350 - 1e-13, 50), 0.0);
}

TEST_F(GeoidGrid, CoordinatesThatAreNoNumbersLieOutside) {
    for (TGeoidGrid const& grid :
         {Grid(ThreeByFour, ThreeByFourNodes), Grid({-90, 0, 90, 90, 3, 4}, ThreeByFourNodes)}) {
        EXPECT_EQ(At(grid, Nan, 51), std::nullopt);
        EXPECT_EQ(At(grid, 11, Nan), std::nullopt);
        EXPECT_EQ(At(grid, Infinity, 51), std::nullopt);
        EXPECT_EQ(At(grid, -Infinity, 51), std::nullopt);
        EXPECT_EQ(At(grid, 11, Infinity), std::nullopt);
        EXPECT_EQ(At(grid, 11, -Infinity), std::nullopt);
    }
}

TEST_F(GeoidGrid, LongitudesMayBeOfAnyTurn) {
    TGeoidGrid const grid = Grid(ThreeByFour, ThreeByFourNodes);
    for (double const turn : {-720.0, -360.0, 0.0, 360.0, 3600.0, 360.0 * 0x1p40}) {
        EXPECT_EQ(At(grid, 11.5 + turn, 51), 11.5) << turn;
        EXPECT_EQ(At(grid, 10 + turn, 51), 10.0) << turn;
        EXPECT_EQ(At(grid, 13 + turn, 51), 13.0) << turn;
        EXPECT_EQ(At(grid, 14 + turn, 51), std::nullopt) << turn;
    }
}

TEST_F(GeoidGrid, ARegionMayLieAcrossTheAntimeridian) {
    for (double const west : {178.0, -182.0, 538.0}) {
        TGeoidGrid const grid = Grid({50, west, 1, 1, 2, 5}, {1, 2, 3, 4, 5, 1, 2, 3, 4, 5});
        EXPECT_EQ(At(grid, 178, 50), 1.0) << west;
        EXPECT_EQ(At(grid, 179.5, 50), 2.5) << west;
        EXPECT_EQ(At(grid, 180, 50), 3.0) << west;
        EXPECT_EQ(At(grid, -180, 50), 3.0) << west;
        EXPECT_EQ(At(grid, -179.5, 50), 3.5) << west;
        EXPECT_EQ(At(grid, -178, 50), 5.0) << west;
        EXPECT_EQ(At(grid, -177, 50), std::nullopt) << west;
        EXPECT_EQ(At(grid, 177, 50), std::nullopt) << west;
    }
}

TEST_F(GeoidGrid, AGridThatGoesRoundHasNoSeam) {
    // 90 degrees apart: the last node is followed by the first one.
    TGeoidGrid const grid = Grid({-90, -180, 90, 90, 3, 4}, {4, 4, 4, 4, 1, 2, 3, 5, 6, 6, 6, 6});
    EXPECT_EQ(At(grid, 90, 0), 5.0);
    EXPECT_EQ(At(grid, 135, 0), 3.0);
    EXPECT_NEAR(At(grid, 179.991, 0).value(), 1.0004, 1e-12);
    EXPECT_EQ(At(grid, 180, 0), 1.0);
    EXPECT_EQ(At(grid, -180, 0), 1.0);
    EXPECT_EQ(At(grid, -225, 0), 3.0);
    EXPECT_EQ(At(grid, 315, 45), 4.25); // the middle of 2 and 3, and half of the way to 6
    EXPECT_EQ(At(grid, 17, 90), 6.0);
    EXPECT_EQ(At(grid, 17, -90), 4.0);
}

TEST_F(GeoidGrid, TheFirstMeridianMayBeRepeatedAtTheEnd) {
    TGeoidGrid const grid = Grid({-90, 0, 90, 90, 3, 5}, {4, 4, 4, 4, 4, 1, 2, 3, 5, 1, 6, 6, 6, 6, 6});
    EXPECT_EQ(At(grid, 315, 0), 3.0);
    EXPECT_EQ(At(grid, -45, 0), 3.0);
    EXPECT_EQ(At(grid, 360, 0), 1.0);
    EXPECT_EQ(At(grid, 405, 0), 1.5);
}

TEST_F(GeoidGrid, StepsThatFilesRoundCloseTheTurnAllTheSame) {
    // 1/60 of a degree with six decimals: the nodes come to 360.0072 degrees.
    std::vector<float> nodes(2 * 21600, 0.0F);
    nodes[0] = 8;
    nodes[21599] = 4;
    TGeoidGrid const grid = Grid({0, 0, 1, 0.016667, 2, 21600}, nodes);
    EXPECT_NEAR(At(grid, 360 - 1 / 120.0, 0).value(), 6.0, 1e-9);
    EXPECT_EQ(At(grid, -1 / 60.0, 0).has_value(), true);
    EXPECT_NEAR(At(grid, -1 / 60.0, 0).value(), 4.0, 1e-9);
}

TEST_F(GeoidGrid, ACoarseGridOfARegionIsNotTakenForARound) {
    // Two cells of 150 degrees are nearer to a turn than a whole cell, and yet it doesn't go round.
    TGeoidGrid const grid = Grid({0, 0, 1, 150, 2, 3}, {1, 2, 3, 1, 2, 3});
    EXPECT_EQ(At(grid, 150, 0), 2.0);
    EXPECT_EQ(At(grid, 300, 0), 3.0);
    EXPECT_EQ(At(grid, 330, 0), std::nullopt);
}

TEST_F(GeoidGrid, ACellThatLacksANodeHasNoUndulation) {
    for (float const lacking : {Nan, -88.8888F, std::numeric_limits<float>::infinity(), 1000.01F, -9999.0F}) {
        TGeoidGrid const grid = Grid({50, 10, 1, 1, 3, 3}, {1, 1, 1, 1, lacking, 1, 1, 1, 1});
        EXPECT_EQ(At(grid, 11, 51), std::nullopt) << lacking;
        for (double const longitude : {10.1, 10.9, 11.0, 11.9}) {
            for (double const latitude : {50.1, 51.0, 51.9}) {
                EXPECT_EQ(At(grid, longitude, latitude), std::nullopt) << lacking;
            }
        }
    }
}

TEST_F(GeoidGrid, TheEdgeOfACompleteCellHasAnUndulation) {
    // The cells on both sides of 12 E are complete to the east and not to the west.
    TGeoidGrid const grid = Grid({50, 10, 1, 1, 2, 4}, {1, Nan, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(At(grid, 12, 50.5), 5.0);
    EXPECT_EQ(At(grid, 12 - 1e-12, 50.5), 5.0);
    EXPECT_EQ(At(grid, 11.9999, 50.5), std::nullopt);
    // Along the northern row and at the nodes that are there.
    EXPECT_EQ(At(grid, 11.5, 51), 6.5);
    EXPECT_EQ(At(grid, 10, 50), 1.0);
    EXPECT_EQ(At(grid, 10, 50.5), 3.0);
    EXPECT_EQ(At(grid, 11, 50), std::nullopt);
}

TEST_F(GeoidGrid, AThousandMetresIsStillAnUndulation) {
    TGeoidGrid const grid = Grid({50, 10, 1, 1, 2, 2}, {1000, -1000, 1000, -1000});
    EXPECT_EQ(At(grid, 10, 50), 1000.0);
    EXPECT_EQ(At(grid, 11, 51), -1000.0);
}

TEST_F(GeoidGrid, ServesAsTheLibrarysGridWhateverTheMode) {
    TGeoidGrid grid = Grid(ThreeByFour, ThreeByFourNodes);
    TBaseGrid& base = grid;
    for (unsigned const mode : {0U, 1U, 77U}) {
        double undulation = 7.5;
        EXPECT_FALSE(base.GetZFastZ(20, 51, undulation, mode));
        EXPECT_EQ(undulation, 7.5);
        EXPECT_TRUE(base.GetZFastZ(12.5, 51, undulation, mode));
        EXPECT_EQ(undulation, 12.5);
    }
}

TEST_F(GeoidGrid, TellsItsExtent) {
    VellariHostKit::GeoidExtent const region = Grid({50, 190, 0.5, 0.25, 3, 4}, ThreeByFourNodes).Extent();
    EXPECT_EQ(region.west, -170.0);
    EXPECT_EQ(region.south, 50.0);
    EXPECT_EQ(region.east, -169.25);
    EXPECT_EQ(region.north, 51.0);
    VellariHostKit::GeoidExtent const round = Grid({-90, 0, 90, 90, 3, 4}, ThreeByFourNodes).Extent();
    EXPECT_EQ(round.west, 0.0);
    EXPECT_EQ(round.east, 360.0);
}

TEST_F(GeoidGrid, TheFileIsNotNeededAfterwards) {
    std::optional<TempFolder> own(std::in_place);
    TGeoidGrid const grid(own->Put("grid.gtx", GtxText(ThreeByFour, ThreeByFourNodes)));
    own.reset();
    EXPECT_EQ(At(grid, 12.5, 51), 12.5);
}

TEST_F(GeoidGrid, ManyThreadsShareOne) {
    TGeoidGrid const grid = Grid({-90, 0, 90, 90, 3, 4}, {0, 0, 0, 0, 0, 90, 180, 90, 0, 0, 0, 0});
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int number = 0; number < 8; ++number) {
        threads.emplace_back([&grid, &wrong, number] {
            for (int step = 0; step < 20000; ++step) {
                // On the equator the undulation is the distance from the first meridian.
                double const longitude = (step * 7 + number) % 361 - 180;
                double undulation = 0.0;
                if (!grid.Undulation(longitude, 0, &undulation) ||
                    std::fabs(undulation - std::fabs(longitude)) > 1e-12) {
                    ++wrong;
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
}

} // namespace
