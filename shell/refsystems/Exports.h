#pragma once

#include <new>
#include <stdexcept>
#include <string>

/** What the exports of the kinds share. */
namespace KvRefSystem {

/** Numbers of the geokeys that whole systems write. */
namespace GeoKey {
inline constexpr int ModelType = 1024;
inline constexpr int Citation = 1026;
inline constexpr int GeographicType = 2048;
inline constexpr int GeographicCitation = 2049;
inline constexpr int GeodeticDatum = 2050;
inline constexpr int AngularUnits = 2054;
inline constexpr int AngularUnitSize = 2055;
inline constexpr int LinearUnitSize = 2053; ///< also of the vertical unit (kept)
inline constexpr int VerticalUnits = 4099;
} // namespace GeoKey

/** Mark of a user-defined value in a geokey. */
inline constexpr char const* UserDefinedGeoKey = "32767";

/** Runs an export: a failure inside is a false, but memory that runs out passes. */
template <class Export>
bool ReportFailure(Export run) {
    try {
        return run();
    } catch (std::bad_alloc const&) {
        throw;
    } catch (std::length_error const&) {
        throw;
    } catch (...) {
        return false;
    }
}

/** @return the WKT AUTHORITY of an EPSG code with its leading comma; an empty text without a code. */
inline std::string WktAuthority(std::string const& code) {
    return code.empty() ? std::string() : ",AUTHORITY[\"EPSG\",\"" + code + "\"]";
}

/** @return the MapInfo clause of a system without a place on the earth. */
inline std::string NonearthClause(std::string const& unit) {
    return "CoordSys Nonearth Units \"" + unit + "\"";
}

} // namespace KvRefSystem
