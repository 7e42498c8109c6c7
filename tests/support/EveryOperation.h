#pragma once

#include <functional>
#include <vector>

namespace KvRefSystem {
class TShellReferenceSystem;
}

namespace TestSupport {

/**
 * Asks every public operation of one system, each with another whole system where it takes one; an exception
 * of the library's kinds is an answer too. Fails where the kinds or the two directions of a comparison
 * disagree, and where the last operation, a load that fails, leaves something behind.
 * @param own what the kind has besides.
 */
void AskEverything(KvRefSystem::TShellReferenceSystem* system, KvRefSystem::TShellReferenceSystem* other,
                   bool isGlobal, std::vector<std::function<void()>> const& own);

} // namespace TestSupport
