#pragma once

#include "shell/refsystems/ReferenceSystem.h"

#include <memory>
#include <string>
#include <vector>

/** What the sweeps are about: descriptions of every kind and every part, and systems made of them. */
namespace MemorySweep {

/** A description with a name for messages. */
struct TSubject {
    std::string name;
    std::string text;
};

/**
 * One of each of the six kinds, with all that it may hold: codes, axes, three records, pairs, a proxy.
 */
std::vector<TSubject> const& WholeSystems();

/** One map-projected system for each type of projection that a description may name. */
std::vector<TSubject> const& ProjectedSystems();

/** A grid in a system of its own; geodetic systems: each form of the datum, exact rotations too, and each notation of an angle. */
std::vector<TSubject> const& DatumsAndUnits();

/** Every entry of the catalogue. */
std::vector<TSubject> const& CatalogEntries();

/** All of the above. */
std::vector<TSubject> AllSubjects();

/** @return the system of a description, which must be one. */
std::unique_ptr<KvRefSystem::TShellReferenceSystem> SystemOf(std::string const& text);

/** A tree that a pointer may own: trees have no virtual destructor, and no class derives from this one. */
class TOwnedTree final : public KvRefSystem::TStringTree {};

/** @return the tree of a description's text. */
std::unique_ptr<TOwnedTree> TreeOf(std::string const& text);

/** @return the XML form of a description's system. */
std::string XmlOfText(std::string const& text);

/** Records for chains, one of each form. */
std::vector<std::shared_ptr<KvRefSystem::TShellRefSystemTransformParams>> const& Records();

} // namespace MemorySweep
