#pragma once

#include "tools/accuracy/Cases.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace VellariAccuracy {

/** Forward, reverse, there and back. */
inline constexpr std::array<char const*, 3> Directions = {"forward", "reverse", "there and back"};

/** The texts of the figures of a row. */
using TFigures = std::array<std::string, Directions.size()>;

/** A row as the document has it. */
struct TDocumentRow {
    std::string Key; ///< its cells up to the figures
    TFigures Figures;
    int Line; ///< counted from 1
};

/** What a document says. */
struct TDocumentContents {
    std::string Release; ///< of PROJ; empty when it isn't there
    std::vector<TDocumentRow> Rows;
};

/** The keys of all rows, in the order of the document. */
std::vector<std::string> RowKeys(std::vector<TFamily> const& families);

/** @param figures one a row, in the order of `RowKeys`. @return the whole document. */
std::string Render(std::vector<TFamily> const& families, std::vector<TFigures> const& figures,
                   std::string const& release);

/** Reads the rows and the release; takes what has another form for text. */
TDocumentContents Parse(std::string_view text);

} // namespace VellariAccuracy
