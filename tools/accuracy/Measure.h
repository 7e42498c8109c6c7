#pragma once

#include "tools/accuracy/Cases.h"

namespace VellariAccuracy {

/** Greatest differences over the domain of a row, metres; a NaN where one of them is no number. */
struct TDifferences {
    double Forward = 0; ///< from PROJ's plane coordinates, on the map
    double Reverse = 0; ///< from PROJ's places for its own plane coordinates, on the ground
    double Closure = 0; ///< between places and where our way there and back leaves them, on the ground
};

/** @throws std::runtime_error with the operation when PROJ refuses it or a place. */
TDifferences Measure(TCase const& measured, TRow const& row);

} // namespace VellariAccuracy
