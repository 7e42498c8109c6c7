#pragma once

#include <Vellari/Vellari.h>

#include <string>

namespace OracleTests {

/** How far the system that GDAL reads lies from ours, metres over all its places. */
struct TReadDistance {
    double Projected = 0; ///< from the own latitude and longitude to the plane; 0 without a plane
    double Shifted = 0;   ///< on the ground, from the own coordinates to WGS 84; 0 without a shift
};

/**
 * @param name of the system, which says where its places are. @param wkt what GDAL made of an export.
 * @throws std::runtime_error when PROJ can't read the text or compute with it.
 */
TReadDistance DistanceOf(std::string const& name, KvRefSystem::TShellReferenceSystem& system,
                         std::string const& wkt);

} // namespace OracleTests
