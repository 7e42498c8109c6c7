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

/** The text of an entry. */
std::string ReadEntry(std::string const& name);

/** The system that an entry describes, or null. */
std::unique_ptr<KvRefSystem::TShellReferenceSystem> BuildEntry(std::string const& name);

/** `name` as a suffix of a test's name. */
std::string TestSuffix(std::string const& name);

} // namespace VellariTest
