#pragma once

#include <map>
#include <string>

namespace OracleTests {

/** Numbers and texts of geokeys; several numbers with commas between them, as the library writes them. */
using TGeoKeys = std::map<int, std::string>;

/** Reads the geokeys of a GeoTIFF, every bit of the numbers kept. @throws std::runtime_error without any. */
TGeoKeys ReadGeoKeys(std::string const& file);

/**
 * Writes a GeoTIFF of one pixel with these geokeys.
 * @throws std::runtime_error for a number that doesn't parse, and when the file can't be written.
 */
void WriteGeoTiff(std::string const& file, TGeoKeys const& keys);

} // namespace OracleTests
