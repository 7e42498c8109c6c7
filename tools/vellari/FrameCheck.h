#pragma once

#include "tools/vellari/DescriptionPlace.h"

#include <optional>
#include <string>

namespace VellariTool {

/**
 * Looks at origin and azimuth of a topocentric description whose base system is checked.
 * @return a message, as the other checks of descriptions, about the first text that can't be read.
 */
std::optional<std::string> FindOriginMistake(TPlace const& root);

/**
 * Looks at the centre of a local curved description; one without both fields has no centre.
 * @return a message as above.
 */
std::optional<std::string> FindCentreMistake(TPlace const& root);

} // namespace VellariTool
