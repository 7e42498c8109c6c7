#pragma once

#include <memory>
#include <string>

namespace KvRefSystem {
class TShellReferenceSystem;
}

namespace VellariBench {

/** Geodetic to geocentric and back, through the core. */
void RegisterGeocentric();

/** Geocentric and geodetic to topocentric and back. @throws std::runtime_error as below. */
void RegisterTopocentric();

/** Geodetic to geodetic with seven parameters. @throws std::runtime_error when two libraries don't agree. */
void RegisterSevenParameters();

/** Each map projection by itself. @throws std::runtime_error when two libraries don't agree. */
void RegisterProjections();

/** Geodetic to UTM and back, with and without a datum shift. @throws std::runtime_error as above. */
void RegisterProjectedRoad();

/** Heights over a geoid. @throws std::runtime_error when two libraries don't agree or the grid is missing. */
void RegisterGeoid();

/** Systems from their description texts. */
void RegisterCreation();

/** The text of an entry of the catalogue. @throws std::runtime_error without it. */
std::string CatalogText(std::string const& name);

/** The system of a description's text. @throws std::runtime_error when it doesn't build. */
std::unique_ptr<KvRefSystem::TShellReferenceSystem> BuildSystem(std::string const& text);

/** The description of UTM zone 37N on the catalogue's Pulkovo 1942. */
std::string UtmOnPulkovoText();

/** PROJ's text of the same Pulkovo 1942: longitude and latitude in degrees, the shift with it. */
extern char const* const PulkovoAsProjText;

} // namespace VellariBench
