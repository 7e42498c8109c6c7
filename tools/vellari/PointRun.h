#pragma once

#include "tools/vellari/AxisText.h"
#include "tools/vellari/PointOperation.h"

#include <array>
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

/** Where points come from, where they go, and what becomes of those that fail. */
struct TPointRunOptions {
    std::string points; ///< file; empty or "-": standard input
    std::string output; ///< file; empty or "-": standard output
    TOnError onError = oeMark;
    THeaderMode header = hmAuto;
};

/**
 * Moves a file of points line by line; mistakes go to standard error.
 * @param source, target columns of the input and of the output.
 * @return `esDone` or `esSomeFailed`. @throws TToolError, TOutputClosed.
 */
int RunPoints(TPointRunOptions const& options, TPointMove* move, std::array<TAxisText, 3> const& source,
              std::array<TAxisText, 3> const& target);

} // namespace VellariTool
