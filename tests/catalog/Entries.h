#pragma once

#include <Vellari/Vellari.h>

#include <memory>
#include <string>
#include <vector>

namespace VellariTest {

/**
 * The whole file, byte for byte.
 * @param path from the repository's root. @throws std::runtime_error when it is missing.
 */
std::string ReadSourceFile(std::string const& path);

/** The names of all files of the catalogue, without extension, in alphabetical order. */
std::vector<std::string> CatalogNames();

/** Those of the map-projected entries. */
std::vector<std::string> GridNames();

/** Those of the geodetic entries. */
std::vector<std::string> GeodeticNames();

/** Those of all others: geocentric systems, topocentric and local frames. */
std::vector<std::string> FrameNames();

/** The text of an entry. */
std::string ReadEntry(std::string const& name);

/** The system that an entry describes, or null. */
std::unique_ptr<KvRefSystem::TShellReferenceSystem> BuildEntry(std::string const& name);

/** The same as a map-projected system, or null. */
std::unique_ptr<KvRefSystem::TShellMapProjectedReferenceSystem> BuildGrid(std::string const& name);

/** Pulkovo 1942 in a six-degree zone of Gauss-Kruger, northing first. */
std::unique_ptr<KvRefSystem::TShellReferenceSystem> BuildPulkovoZone(int zone);

/** `name` as a suffix of a test's name. */
std::string TestSuffix(std::string const& name);

} // namespace VellariTest
