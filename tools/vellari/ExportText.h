#pragma once

#include "tools/vellari/SystemLoader.h"

#include <string>

/**
 * A system in the languages of other programs, as the library writes them. Each throws TToolError with a line
 * that tells which part of the system has no form there.
 */
namespace VellariTool {

/** WKT of 2001, the plane part alone. */
std::string ExportAsWkt(TLoadedSystem const& loaded);

/** WKT of 2001 together with the heights, in the kinds that have them apart. */
std::string ExportAsCompoundWkt(TLoadedSystem const& loaded);

/**
 * The MapInfo CoordSys clause. For an earth-bound system without a form there it names only the unit; a
 * message on standard error then tells why.
 */
std::string ExportAsMif(TLoadedSystem const& loaded);

/** The geokeys, one a line: number, published name, value. */
std::string ExportAsGeoTiff(TLoadedSystem const& loaded);

/** The keys of Panorama in the same way. */
std::string ExportAsPanorama(TLoadedSystem const& loaded);

} // namespace VellariTool
