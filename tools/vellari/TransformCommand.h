#pragma once

#include "tools/vellari/AxisText.h"
#include "tools/vellari/PointRun.h"

#include <string>

namespace VellariTool {

struct TTransformOptions : TPointRunOptions {
    std::string source; ///< entry, zone or file
    std::string target; ///< entry, zone or file
    TPrecision precision;
    std::string geoidOfSource; ///< grid file; empty: the source's heights stand over its ellipsoid
    std::string geoidOfTarget; ///< the same of the target
};

/**
 * Transforms a file of points line by line; mistakes go to standard error.
 * @return `esDone` or `esSomeFailed`. @throws TToolError, TOutputClosed.
 */
int RunTransform(TTransformOptions const& options);

} // namespace VellariTool
