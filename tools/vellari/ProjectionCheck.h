#pragma once

#include "tools/vellari/DescriptionPlace.h"

#include <optional>
#include <string>

namespace VellariTool {

/** @return whether descriptions may name that type of projection. */
bool IsKnownProjection(int type);

/** @return all types that they may name: "1 to 18, 21 to 26, 101". */
std::string KnownProjections();

/**
 * @param projection subtree of a description. @return whether it has the unit of that kind, or a parameter
 *        that needs it.
 */
bool UsesUnit(KvRefSystem::TStringTree const& projection, KvRefSystem::TShellUnitType kind);

/**
 * Looks at the parameters of a projection whose type is known and whose units are there.
 * @return a message, as the other checks of descriptions, about the first one that is missing, that can't be
 *         read, or that the method refuses.
 */
std::optional<std::string> FindParameterMistake(TPlace const& projection);

} // namespace VellariTool
