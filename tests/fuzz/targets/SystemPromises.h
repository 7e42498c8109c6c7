#pragma once

#include <memory>
#include <string>

namespace KvRefSystem {
template <class T>
class TDataTree;
class TShellReferenceSystem;
} // namespace KvRefSystem

namespace Fuzz {

using TSystem = std::unique_ptr<KvRefSystem::TShellReferenceSystem>;

/**
 * @return whether a tree comes back from its text: a field without values takes the line that follows into its
 *         label, and a tree's label stands as it is, line ends included.
 */
bool HasTextForm(KvRefSystem::TDataTree<std::string> const& tree);

/** @return the description's text without its closing NUL; empty without a description. */
std::string TextOf(KvRefSystem::TShellReferenceSystem const& system);

/** Two systems that were made of the same text: equal both ways, unless a NaN makes one unequal to itself. */
void RequireEqual(KvRefSystem::TShellReferenceSystem const& first,
                  KvRefSystem::TShellReferenceSystem const& second);

/** Every export gives a form or leaves its text as it is, and none throws. */
void RequireQuietExports(KvRefSystem::TShellReferenceSystem const& system);

/** @return the XML form of a system. */
std::string XmlOf(KvRefSystem::TShellReferenceSystem const& system);

} // namespace Fuzz
