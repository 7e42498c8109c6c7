#pragma once

#include <string>

namespace KvRefSystem {
class TRefSystemTransformsSet;
class TReferenceSystem;
class TShellRefSystemTransform;
class TShellReferenceSystem;
} // namespace KvRefSystem

/** Texts that are equal only for things that are equal in all that a host can see. */
namespace MemorySweep {

/** Description, live members, chains, geoid, proxy, XML form, and where a few points go. */
std::string FingerprintOf(KvRefSystem::TShellReferenceSystem const& system);

/** Its lines. */
std::string FingerprintOf(KvRefSystem::TRefSystemTransformsSet const& set);

/** Chains, datum, and where a few points go in the world frame. */
std::string FingerprintOf(KvRefSystem::TReferenceSystem const& system);

std::string FingerprintOf(KvRefSystem::TShellRefSystemTransform const& chain);

} // namespace MemorySweep
