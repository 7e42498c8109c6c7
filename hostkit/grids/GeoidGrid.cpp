#include "hostkit/grids/GeoidGrid.h"

#include "hostkit/grids/GridFileDetail.h"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

namespace VellariHostKit {

/** The grids of the file, the finest first; one at least. */
struct TGeoidGrid::State {
    std::vector<GridNodes> grids;
};

namespace {

std::vector<GridNodes> ReadGrids(GridFile const& file) {
    try {
        if (IsTiff(file)) {
            return ReadGeoTiff(file);
        }
        std::vector<GridNodes> grids;
        grids.push_back(ReadGtx(file));
        return grids;
    } catch (std::runtime_error const& reason) {
        throw std::runtime_error(std::string("can't be read as a geoid grid: ") + reason.what());
    }
}

std::vector<GridNodes> OpenGrids(std::string const& path) {
    try {
        std::vector<GridNodes> grids = ReadGrids(GridFile(path));
        std::stable_sort(grids.begin(), grids.end(), [](GridNodes const& first, GridNodes const& second) {
            return first.LongitudeStep() < second.LongitudeStep();
        });
        return grids;
    } catch (std::runtime_error const& reason) {
        throw std::runtime_error(path + ": " + reason.what());
    }
}

} // namespace

TGeoidGrid::TGeoidGrid(std::string const& path) : state(new State{OpenGrids(path)}) {}

TGeoidGrid::~TGeoidGrid() = default;

bool TGeoidGrid::GetZFastZ(double x, double y, double& z, unsigned int) {
    return Undulation(x, y, &z);
}

bool TGeoidGrid::Undulation(double longitude, double latitude, double* undulation) const {
    return std::any_of(state->grids.begin(), state->grids.end(), [&](GridNodes const& grid) {
        return grid.Undulation(longitude, latitude, undulation);
    });
}

GeoidExtent TGeoidGrid::Extent() const {
    GeoidExtent all = state->grids.front().Extent();
    for (GridNodes const& grid : state->grids) {
        GeoidExtent const extent = grid.Extent();
        all.west = std::min(all.west, extent.west);
        all.south = std::min(all.south, extent.south);
        all.east = std::max(all.east, extent.east);
        all.north = std::max(all.north, extent.north);
    }
    return all;
}

} // namespace VellariHostKit
