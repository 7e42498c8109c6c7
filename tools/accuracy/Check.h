#pragma once

#include "tools/accuracy/Document.h"

namespace VellariAccuracy {

/** The figures that a line's numbers are written with. */
TFigures FiguresOf(TTable const& table, TLine const& line, TNumbers const& numbers);

/** The numbers of all lines, in the order of the tables. @throws what the tables throw. */
std::vector<TNumbers> MeasureAll(TDocument const& document);

/** @return a line for each measured number that is greater than its bound. */
std::vector<std::string> BeyondBounds(TDocument const& document, std::vector<TNumbers> const& measured);

/**
 * Holds a text against what was measured.
 * @param path of the text, for the failures.
 * @return a line for each number beyond its bound, for each figure that doesn't hold, for each row that is
 *         missing, unknown or stands twice, and for the first line that is no longer what the program writes;
 *         empty when the text holds.
 */
std::vector<std::string> Check(TDocument const& document, std::vector<TNumbers> const& measured,
                               std::string const& text, std::string const& path);

} // namespace VellariAccuracy
