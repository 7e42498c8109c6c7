#pragma once

#include "tools/accuracy/Figure.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace VellariAccuracy {

/** Where the greatest difference comes from, which decides how far the figure may be off elsewhere. */
enum ESource : int {
    soMethod,
    soRounding, ///< lost digits of doubles: another machine's are others
};

/** A column of figures. */
struct TColumn {
    char const* Name; ///< as "there and back"; the heading begins with a capital letter
    char const* Unit; ///< as "m"
    double Least = LeastFigure;
    bool Bounded = false; ///< a column of bounds follows
};

/** What one row measures. */
struct TLine {
    std::vector<std::string> Cells; ///< those before the figures; together they are the row's key
    std::string Reason;             ///< of the greatest difference; empty: as the row above
    ESource Source = soMethod;
    std::vector<double> Bounds = {}; ///< one for each bounded column: what the reason allows
};

/** Greatest differences, one a column; a NaN where one of them is no number. */
using TNumbers = std::vector<double>;

/** The texts of the figures of a row. */
using TFigures = std::vector<std::string>;

/** A table of the document under a heading of its own. */
struct TTable {
    std::string Heading; ///< as "## Geoids"
    std::string Text;    ///< before the table; with its line end
    std::string Subject; ///< what a failure calls a row, before its cells
    std::vector<std::string> KeyHeadings;
    std::vector<TColumn> Columns;
    std::vector<TLine> Lines;
    std::function<TNumbers(std::size_t line)> Measure;
    std::string Notes = {};  ///< behind the table
    std::string Before = {}; ///< before the heading: what tables have in common, under a heading of its own
};

/** The document. */
struct TDocument {
    std::string Introduction;           ///< up to the release of PROJ
    std::string IntroductionAfterwards; ///< from behind the release
    std::vector<TTable> Tables;
};

/** What isn't a number is greater than all, and stays. */
void Enlarge(double* greatest, double difference);

} // namespace VellariAccuracy
