#pragma once

#include "tools/vellari/AxisText.h"

#include <string>

namespace VellariTool {

/** What the output shows of a line that can't be transformed. */
enum TOnError : int {
    oeMark = 0, ///< empty coordinates and its further columns
    oeSkip = 1, ///< nothing
    oeStop = 2, ///< nothing, and no more lines
};

/** Whether the output begins with a header. */
enum THeaderMode : int {
    hmAuto = 0, ///< when the input has one
    hmAlways = 1,
    hmNever = 2,
};

struct TTransformOptions {
    std::string source; ///< entry, zone or file
    std::string target; ///< entry, zone or file
    std::string points; ///< file; empty or "-": standard input
    std::string output; ///< file; empty or "-": standard output
    TPrecision precision;
    TOnError onError = oeMark;
    THeaderMode header = hmAuto;
};

/**
 * Transforms a file of points line by line; mistakes go to standard error.
 * @return `esDone` or `esSomeFailed`. @throws TToolError, TOutputClosed.
 */
int RunTransform(TTransformOptions const& options);

} // namespace VellariTool
