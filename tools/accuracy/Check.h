#pragma once

#include "tools/accuracy/Document.h"
#include "tools/accuracy/Measure.h"

namespace VellariAccuracy {

/** The figures that a row's differences are written with. */
TFigures FiguresOf(TRow const& row, TDifferences const& differences);

/** The differences of all rows, in the order of the document. @throws std::runtime_error of PROJ's. */
std::vector<TDifferences> MeasureAll(std::vector<TFamily> const& families);

/**
 * Holds a document against what was measured.
 * @param path of the document, for the texts.
 * @return a line for each figure that doesn't hold, for each row that is missing, unknown or stands twice,
 *         and for the first line that is no longer what the program writes; empty when the document holds.
 */
std::vector<std::string> Check(std::vector<TFamily> const& families,
                               std::vector<TDifferences> const& differences, std::string const& text,
                               std::string const& path);

} // namespace VellariAccuracy
