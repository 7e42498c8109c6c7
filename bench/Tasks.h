#pragma once

#include <string>

namespace VellariBench {

/** Geodetic to geocentric and back, through the core. */
void RegisterGeocentric();

/** Geodetic to geodetic with seven parameters. @throws std::runtime_error when two libraries don't agree. */
void RegisterSevenParameters();

/** A system from its description text. */
void RegisterCreation();

/** The text of an entry of the catalogue. @throws std::runtime_error without it. */
std::string CatalogText(std::string const& name);

/** PROJ's text of the same Pulkovo 1942: longitude and latitude in degrees, the shift with it. */
extern char const* const PulkovoAsProjText;

} // namespace VellariBench
