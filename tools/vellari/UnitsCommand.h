#pragma once

#include <optional>
#include <string>

namespace VellariTool {

struct TUnitsOptions {
    std::string value;
    std::string from;
    std::string to;
    std::string axis; ///< "latitude", "longitude" or empty
    std::optional<int> precision;
};

/**
 * Converts a value between two lengths or two angles.
 * @return the text in the second unit. @throws TToolError for an unknown unit, two kinds or a text that
 *         doesn't read.
 */
std::string ConvertUnits(TUnitsOptions const& options);

/** Prints what `ConvertUnits` returns. @return `esDone`. */
int RunUnits(TUnitsOptions const& options);

/** @return a table of the units: name, kind, what it is. */
std::string UnitsTable();

} // namespace VellariTool
