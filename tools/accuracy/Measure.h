#pragma once

#include "tools/accuracy/Cases.h"

namespace VellariAccuracy {

/**
 * Greatest differences over the domain of a row, metres: from PROJ's plane coordinates, on the map; from PROJ's
 * places for its own plane coordinates, on the ground; between places and where our way there and back leaves
 * them, on the ground.
 * @throws std::runtime_error with the operation when PROJ refuses it or a place.
 */
TNumbers Measure(TCase const& measured, TRow const& row);

} // namespace VellariAccuracy
