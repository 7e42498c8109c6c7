#pragma once

#include "tools/accuracy/Table.h"

#include <string>
#include <string_view>
#include <vector>

namespace VellariAccuracy {

/** A row as the text has it. */
struct TDocumentRow {
    std::string Key; ///< heading and cells up to the figures
    TFigures Figures;
    int Line; ///< counted from 1
};

/** What a document's text says. */
struct TDocumentContents {
    std::string Release; ///< of PROJ; empty when it isn't there
    std::vector<TDocumentRow> Rows;
};

/** Stands before the release in the text. */
inline constexpr std::string_view BeforeRelease = "were measured against PROJ ";

/** What a line is found by. */
std::string KeyOf(TTable const& table, TLine const& line);

/** A line in words, for failures. */
std::string LabelOf(TTable const& table, TLine const& line);

/** @param figures one a line, in the order of the tables. @return the whole text. */
std::string Render(TDocument const& document, std::vector<TFigures> const& figures,
                   std::string const& release);

/** Reads the rows under the document's headings and the release; takes what has another form for text. */
TDocumentContents Parse(TDocument const& document, std::string_view text);

} // namespace VellariAccuracy
