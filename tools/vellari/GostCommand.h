#pragma once

#include "tools/vellari/AxisText.h"
#include "tools/vellari/PointRun.h"

#include <string>

namespace VellariTool {

/** Names as the user wrote them. */
struct TGostOptions : TPointRunOptions {
    std::string from; ///< datum
    std::string to;   ///< datum
    std::string edition = "2008";
    std::string type = "geodetic"; ///< coordinate type of both sides
    std::string fromType;          ///< of the input; empty: `type`
    std::string toType;            ///< of the output; empty: `type`
    TPrecision precision;
    bool parameters = false; ///< only tell the parameters of `from`
};

/**
 * Moves points by the standard's own transformation, or tells the parameters of a datum to WGS 84.
 * @return `esDone` or `esSomeFailed`. @throws TToolError, TOutputClosed.
 */
int RunGost(TGostOptions const& options);

} // namespace VellariTool
