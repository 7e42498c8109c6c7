#pragma once

#include "shell/refsystems/ReferenceSystem.h"

#include <string>

namespace KvRefSystem {

/**
 * The system that a description text tells of.
 * @param text     text form of a description tree.
 * @param progress may be null; never called.
 * @return a new system, owned by the caller; null for every failure.
 */
TShellReferenceSystem* CreateShellReferenceSystem(std::string text, TKvProgressHandler* progress);

/**
 * The system that a description tree tells of.
 * @return a new system, owned by the caller; null without a kind or for a kind that can't be built.
 * @throws std::runtime_error and what else the kind's constructor throws.
 */
TShellReferenceSystem* CreateShellReferenceSystem(TStringTree* tree, TKvProgressHandler* progress);

/**
 * The system that the reader's current section tells of.
 * @return a new system, owned by the caller; null for a kind that can't be built.
 * @throws std::runtime_error and what else the kind's constructor throws.
 */
TShellReferenceSystem* CreateShellReferenceSystem(TKvXIniReader* reader, TKvProgressHandler* progress);

} // namespace KvRefSystem
