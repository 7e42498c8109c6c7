#pragma once

#include "hostkit/grids/GeoidGrid.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace VellariHostKit {

/** Where the nodes of a grid lie, as a file states it. */
struct GridLayout {
    double west;          ///< degrees, of the first column
    double south;         ///< degrees, of the first row
    double longitudeStep; ///< degrees
    double latitudeStep;  ///< degrees
    std::int64_t columns;
    std::int64_t rows;
};

/** The most nodes of one file, which are 1 GiB: a minute's grid of the whole earth has 233 million. */
inline constexpr std::int64_t MaxNodes = std::int64_t{1} << 28;

/** The nodes of one grid. */
class GridNodes {
public:
    /**
     * A grid whose nodes are all lacking.
     * @throws std::runtime_error with the reason when no grid of the earth is like that; nothing large has
     *         been allocated then.
     */
    explicit GridNodes(GridLayout const& newLayout);

    /** Sets a node, counted from the south and the west. Undulations of more than 1000 metres are lacking. */
    void Set(std::int64_t row, std::int64_t column, double undulation);

    /** To be called when all nodes are set. @throws std::runtime_error when all of them are lacking. */
    void Finish();

    /** @return as `TGeoidGrid::Undulation`. */
    bool Undulation(double longitude, double latitude, double* undulation) const;

    GeoidExtent Extent() const;

    double LongitudeStep() const { return layout.longitudeStep; }

private:
    bool ColumnOf(double longitude, double* column) const;

    GridLayout layout;        ///< the closing column of a grid that goes round included
    std::int64_t fileColumns; ///< without the closing column
    double turn;              ///< cells of 360 degrees
    double lastColumn;
    double lastRow;
    std::size_t stride;
    std::vector<float> values; ///< from south to north, each row from west to east; NaN where lacking
};

} // namespace VellariHostKit
