#pragma once

#include "core/projections/MapProjection.h"
#include "shell/units/Unit.h"

#include <vector>

namespace KvRefSystem {

/** What a description may say about one parameter of a projection. */
struct TMapProjectionParameter {
    int Key;             ///< tag of its field in the projection's subtree
    char const* Meaning; ///< "latitude of origin"; lower case, never null
    TShellUnitType Unit; ///< kind of its unit; `utNone` for what is plain text or has its own unit
    bool IsOptional;     ///< whether the field may be missing
};

/**
 * @return the parameters of a class of projections, in the order in which its shell reads their fields; empty
 *         for a type without a class.
 */
std::vector<TMapProjectionParameter> GetMapProjectionParameters(TMapProjectionType type);

} // namespace KvRefSystem
