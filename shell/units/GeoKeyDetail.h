#pragma once

namespace KvRefSystem {

/** Mark of a user-defined value in a geokey. */
inline constexpr char const* UserDefinedGeoKey = "32767";

} // namespace KvRefSystem
