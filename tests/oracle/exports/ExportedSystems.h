#pragma once

#include "tests/oracle/Places.h"
#include "tests/oracle/ProjPipeline.h"

#include <Vellari/Vellari.h>

#include <memory>
#include <string>
#include <vector>

/** The systems whose exports are compared with other programs'. */
namespace OracleTests {

/** @param name entry of the catalogue or zone, such as "utm:37N". @throws std::exception when there is none. */
std::unique_ptr<KvRefSystem::TShellReferenceSystem> SystemNamed(std::string const& name);

/** The same as a map-projected system. @throws std::runtime_error for another kind. */
std::unique_ptr<KvRefSystem::TShellMapProjectedReferenceSystem> GridNamed(std::string const& name);

/** The names of all entries of the catalogue, in alphabetical order. */
std::vector<std::string> CatalogueNames();

/** Zones of every family that has a name for them, at both ends and on both sides of the antimeridian. */
std::vector<std::string> ZoneNames();

/** The system's own places that a comparison visits: around its origin, or over the earth. */
std::vector<TPlace> PlacesOf(std::string const& name);

/**
 * From the base system of a grid to the grid.
 * @param place degrees from the base's meridian. @return plane coordinates in metres in the grid's order.
 */
TTriple OurPlane(KvRefSystem::TShellMapProjectedReferenceSystem const& grid, TPlace const& place);

/** From latitude and longitude in degrees on WGS 84, at a height of zero, to the system's own numbers. */
TTriple OurOwn(KvRefSystem::TShellReferenceSystem const& system, TPlace const& place);

/** From a system's own numbers to WGS 84: latitude and longitude in degrees, height in metres. */
TPlace OurWgs84(KvRefSystem::TShellReferenceSystem const& system, TTriple const& own);

/**
 * Metres within which the way from a grid's plane back to the ground agrees with PROJ's at its places: a
 * millimetre, but for the series of the reverse.
 */
double ReversePromise(std::string const& name);

/** `name` as a suffix of a test's name. */
std::string SuffixOf(std::string const& name);

} // namespace OracleTests
