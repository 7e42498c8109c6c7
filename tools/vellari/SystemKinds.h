#pragma once

#include <Vellari/Vellari.h>

#include <string>
#include <string_view>

namespace VellariTool {

/** @return "geodetic" and so on; "unknown" for a number that is no kind. */
std::string KindName(int kind);

/** @return the kind that a description text names; 0 without one. */
int KindOfDescription(std::string_view text);

/** @return the unit of a kind that has one for all three coordinates; null in the others. */
KvRefSystem::TShellUnit const* OneUnitOf(KvRefSystem::TShellReferenceSystem const& system);

} // namespace VellariTool
