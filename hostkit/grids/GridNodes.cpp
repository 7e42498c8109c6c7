#include "hostkit/grids/GridNodesDetail.h"

#include "frame/NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace VellariHostKit {

namespace {

using KvRefSystem::FormatText;

/** A point this near to an edge lies on it: coordinates that were radians are off by some 1e-13; cells. */
constexpr double edgeTolerance = 1e-9;

/**
 * Files round their steps (1/60 to 0.016667): a grid whose width is this near to a turn, as a part of it and
 * in cells, goes round.
 */
constexpr double closingTolerance = 1e-4;
constexpr double closingCells = 0.5;

/** No geoid of the earth is further from its ellipsoid; numbers beyond mark lacking nodes. Metres. */
constexpr double greatestUndulation = 1000.0;

constexpr double fullTurn = 360.0; ///< degrees

/** @return the value between two nodes; exactly theirs at both ends, since their difference is exact. */
double Between(double first, double second, double part) {
    return first + part * (second - first);
}

/** As `Between`, but a node without weight may be lacking. */
double BetweenKnown(double first, double second, double part) {
    if (part <= edgeTolerance) {
        return first;
    }
    return part >= 1 - edgeTolerance ? second : Between(first, second, part);
}

void CheckLayout(GridLayout const& layout) {
    if (layout.columns < 2 || layout.rows < 2) {
        throw std::runtime_error(FormatText("it has %lld rows of %lld nodes; at least 2 of 2 are needed",
                                            static_cast<long long>(layout.rows),
                                            static_cast<long long>(layout.columns)));
    }
    if (layout.columns > MaxNodes / layout.rows) {
        throw std::runtime_error(FormatText(
            "it has %lld rows of %lld nodes; %lld nodes are the most", static_cast<long long>(layout.rows),
            static_cast<long long>(layout.columns), static_cast<long long>(MaxNodes)));
    }
    // Written so that a NaN fails, too.
    if (!(layout.longitudeStep > 0 && layout.longitudeStep <= fullTurn && layout.latitudeStep > 0 &&
          layout.latitudeStep <= fullTurn / 2)) {
        throw std::runtime_error(
            FormatText("its steps are %.9g degrees of longitude and %.9g of latitude; they "
                       "must be above 0 and at most 360 and 180",
                       layout.longitudeStep, layout.latitudeStep));
    }
    double const north = layout.south + layout.latitudeStep * static_cast<double>(layout.rows - 1);
    double const polar = 90 + layout.latitudeStep;
    if (!(layout.south >= -polar && north <= polar)) {
        throw std::runtime_error(
            FormatText("it spans latitudes %.9g to %.9g degrees, beyond the poles", layout.south, north));
    }
    double const east = layout.west + layout.longitudeStep * static_cast<double>(layout.columns - 1);
    if (!(layout.west >= -2 * fullTurn && east <= 2 * fullTurn)) {
        throw std::runtime_error(FormatText(
            "it spans longitudes %.9g to %.9g degrees; -720 to 720 may be used", layout.west, east));
    }
}

/** @return whether so many cells are meant to make a turn. */
bool ClosesTurn(double cells, double step) {
    double const gap = std::fabs(cells * step - fullTurn);
    return gap < closingTolerance * fullTurn && gap < closingCells * step;
}

/** @return the layout with the west in -180 to 180 and, if it goes round, with steps that close the turn. */
GridLayout Normalised(GridLayout layout) {
    CheckLayout(layout);
    layout.west -= fullTurn * std::floor((layout.west + fullTurn / 2) / fullTurn);
    auto const cells = static_cast<double>(layout.columns - 1);
    if (ClosesTurn(cells, layout.longitudeStep)) {
        layout.longitudeStep = fullTurn / cells;
    } else if (ClosesTurn(cells + 1, layout.longitudeStep)) {
        layout.longitudeStep = fullTurn / (cells + 1);
        ++layout.columns;
    }
    return layout;
}

} // namespace

GridNodes::GridNodes(GridLayout const& newLayout)
    : layout(Normalised(newLayout)),
      fileColumns(newLayout.columns),
      turn(fullTurn / layout.longitudeStep),
      lastColumn(static_cast<double>(layout.columns - 1)),
      lastRow(static_cast<double>(layout.rows - 1)),
      stride(static_cast<std::size_t>(layout.columns)),
      values(stride * static_cast<std::size_t>(layout.rows), std::numeric_limits<float>::quiet_NaN()) {}

void GridNodes::Set(std::int64_t row, std::int64_t column, double undulation) {
    // Written so that a NaN is lacking, too.
    bool const known = std::fabs(undulation) <= greatestUndulation;
    values[static_cast<std::size_t>(row) * stride + static_cast<std::size_t>(column)] =
        known ? static_cast<float>(undulation) : std::numeric_limits<float>::quiet_NaN();
}

void GridNodes::Finish() {
    if (layout.columns > fileColumns) {
        for (std::size_t first = 0; first < values.size(); first += stride) {
            values[first + stride - 1] = values[first];
        }
    }
    if (std::all_of(values.begin(), values.end(), [](float value) { return std::isnan(value); })) {
        throw std::runtime_error("none of its nodes has an undulation");
    }
}

bool GridNodes::ColumnOf(double longitude, double* column) const {
    double const direct = (longitude - layout.west) / layout.longitudeStep;
    if (direct >= -edgeTolerance && direct <= lastColumn + edgeTolerance) {
        *column = direct;
        return true;
    }
    // The remainder is exact, so that no number of turns costs digits.
    double const wrapped = (std::fmod(longitude, fullTurn) - layout.west) / layout.longitudeStep;
    double const cells = wrapped - turn * std::floor((wrapped + edgeTolerance) / turn);
    *column = cells;
    return cells <= lastColumn + edgeTolerance;
}

bool GridNodes::Undulation(double longitude, double latitude, double* undulation) const {
    double row = (latitude - layout.south) / layout.latitudeStep;
    double column = 0.0;
    if (!(row >= -edgeTolerance && row <= lastRow + edgeTolerance) || !ColumnOf(longitude, &column)) {
        return false;
    }
    row = std::clamp(row, 0.0, lastRow);
    column = std::clamp(column, 0.0, lastColumn);
    auto const rowBelow = static_cast<std::size_t>(std::min(row, lastRow - 1));
    auto const columnBefore = static_cast<std::size_t>(std::min(column, lastColumn - 1));
    double const northPart = row - static_cast<double>(rowBelow);
    double const eastPart = column - static_cast<double>(columnBefore);
    float const* const south = values.data() + rowBelow * stride + columnBefore;
    float const* const north = south + stride;
    double mean =
        Between(Between(south[0], south[1], eastPart), Between(north[0], north[1], eastPart), northPart);
    if (std::isnan(mean)) {
        mean = BetweenKnown(BetweenKnown(south[0], south[1], eastPart),
                            BetweenKnown(north[0], north[1], eastPart), northPart);
        if (std::isnan(mean)) {
            return false;
        }
    }
    *undulation = mean;
    return true;
}

GeoidExtent GridNodes::Extent() const {
    return {layout.west, layout.south, layout.west + layout.longitudeStep * lastColumn,
            layout.south + layout.latitudeStep * lastRow};
}

} // namespace VellariHostKit
