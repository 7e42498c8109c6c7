#pragma once

#include "tools/accuracy/Table.h"

#include <vector>

namespace VellariAccuracy {

/** All tables of the road, in the order of the document. */
std::vector<TTable> RoadTables();

/** Against the exact data: ellipsoidal to Cartesian, and the way back. */
std::vector<TTable> GeocentricTables();

/** The shifts of the core, and the road between systems of different datums. */
std::vector<TTable> ShiftTables();

/** Every projection's way there and back by the road. */
TTable ProjectedTable();

TTable GeoidTable();

/** Geocentric, topocentric and local systems. */
TTable LocalTable();

} // namespace VellariAccuracy
