#pragma once

#include <Vellari/Vellari.h>

#include <memory>
#include <string>
#include <string_view>

namespace VellariTool {

/** How an angular unit writes an angle. */
enum TSexagesimalNotation : int {
    snNone = 0,          ///< a plain number
    snParts = 1,         ///< "55 45 07.2", "-12 30"
    snHemisphere = 2,    ///< "55 45 07.2 N"
    snPackedSeconds = 3, ///< "55.450720": two digits of minutes and of seconds behind the point
    snPackedMinutes = 4, ///< "55.4512": two digits of minutes behind the point
};

/** @return the notation that the unit's class has. */
TSexagesimalNotation NotationOf(KvRefSystem::TShellAngularUnit const& unit);

/** @return the angular unit that a system makes of the subtree; null for one that lacks a part. */
std::unique_ptr<KvRefSystem::TShellAngularUnit> ReadAngularUnit(KvRefSystem::TStringTree const& tree);

/**
 * Looks for what the units' lenient readers would misread without a word: signs and letters at a wrong place,
 * a letter of the other axis, 60 minutes or more, digits that a packed number has no place for.
 * @param isLongitude the axis, for the hemisphere's letter.
 * @return what is wrong and what would be right, to follow the quoted text; empty when the unit reads it
 *         rightly.
 */
std::string FindSexagesimalMistake(std::string_view text, TSexagesimalNotation notation, bool isLongitude);

} // namespace VellariTool
