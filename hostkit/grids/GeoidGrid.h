#pragma once

#include "frame/imported/BaseGrid.h"

#include <memory>
#include <string>

namespace VellariHostKit {

/** What a grid covers, in degrees; `west` is in -180 to 180, `east` not brought back. */
struct GeoidExtent {
    double west;
    double south;
    double east;
    double north;
};

/**
 * A grid of geoid undulations from a file: GTX, or GeoTIFF as it is used for geodetic grids. All nodes are
 * read at once, each exactly the single-precision number that the file states (times its scale, plus its
 * offset, where the file has them); afterwards the file is not needed.
 *
 * A point's undulation is the bilinear mean of the four nodes around it, computed in double precision.
 * Longitudes may be of any turn, and a grid that goes round the earth has no seam. There is no undulation
 * outside of the nodes, and none in a cell that lacks one of its nodes; a point on the edge of a complete
 * cell, or within 1e-9 of a cell from it, belongs to that cell. Where a file holds several grids, the finest
 * one that has an undulation answers.
 *
 * A node is lacking where the file says so, where it is no number, and where its undulation would be beyond
 * 1000 metres. Lookups change nothing and take no locks: any number of threads may share a grid.
 *
 * As a `TBaseGrid` it serves a system whose plane coordinates are longitude and latitude in degrees east and
 * north, and whose heights are in metres.
 */
class TGeoidGrid : public TBaseGrid {
public:
    /**
     * @param path name of the file.
     * @throws std::runtime_error that names the file and what is wrong with it.
     */
    explicit TGeoidGrid(std::string const& path);
    ~TGeoidGrid() override;
    TGeoidGrid(TGeoidGrid const&) = delete;
    TGeoidGrid& operator=(TGeoidGrid const&) = delete;

    /** As `Undulation`; there is one kind of interpolation, whatever `mode` says. */
    bool GetZFastZ(double x, double y, double& z, unsigned int mode) override;

    /**
     * @param longitude  (degrees) east of Greenwich, of any turn.
     * @param latitude   (degrees) north.
     * @param undulation receives the height of the geoid over the ellipsoid (metres); untouched without one.
     * @return whether there is one.
     */
    bool Undulation(double longitude, double latitude, double* undulation) const;

    /** @return the extent of the nodes; of all grids together where the file holds several. */
    GeoidExtent Extent() const;

private:
    struct State;
    std::unique_ptr<State const> state;
};

} // namespace VellariHostKit
