#pragma once

#include "frame/imported/StringTree.h"
#include "shell/projections/ProjectionTagsDetail.h"
#include "shell/projections/ReportFailureDetail.h"

#include <string>

/** What the exports of the kinds share. */
namespace KvRefSystem {

class TShellLinearUnit;
class TShellReferenceSystem;

/** Numbers of the geokeys that whole systems write. */
namespace GeoKey {
inline constexpr int ModelType = 1024;
inline constexpr int Citation = 1026;
inline constexpr int GeographicType = 2048;
inline constexpr int GeographicCitation = 2049;
inline constexpr int GeodeticDatum = 2050;
inline constexpr int LinearUnits = 2052;
inline constexpr int LinearUnitSize = 2053; ///< Kept: also that of the vertical unit
inline constexpr int AngularUnits = 2054;
inline constexpr int AngularUnitSize = 2055;
inline constexpr int ToWgs84 = 2062;
inline constexpr int ProjectedType = 3072;
inline constexpr int ProjectedCitation = 3073;
inline constexpr int VerticalUnits = 4099;
} // namespace GeoKey

/** @return the WKT AUTHORITY of an EPSG code with its leading comma; an empty text without a code. */
inline std::string WktAuthority(std::string const& code) {
    return code.empty() ? std::string() : ",AUTHORITY[\"EPSG\",\"" + code + "\"]";
}

/**
 * Reads the MapInfo settings of a description.
 * @param saved may be null. @return false without the settings or one of the two.
 */
bool ReadMifSettings(TStringTree const* saved, std::string* projection, std::string* unit);

/**
 * Replaces `text` by the WKT LOCAL_CS of a system.
 * @param unit may be null. @return false, `text` untouched, without a unit that has a form there.
 */
bool ExportLocalToWKT(TShellReferenceSystem const& system, TShellLinearUnit const* unit, std::string* text);

/** @return the MapInfo clause of a system without a place on the earth. */
inline std::string NonearthClause(std::string const& unit) {
    return "CoordSys Nonearth Units \"" + unit + "\"";
}

} // namespace KvRefSystem
