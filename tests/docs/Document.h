#pragma once

#include <string>
#include <vector>

/** Reads the documents of the house as people see them: headings, tables and quoted texts. */
namespace Documents {

/** A row of a table: its cells without the blanks around them and without back quotes. */
using TRow = std::vector<std::string>;

/** What stands between two headings. */
struct TSection {
    std::string heading;             ///< without the number signs
    std::vector<TRow> rows;          ///< of all its tables, without their heads
    std::vector<std::string> quotes; ///< its fenced texts, each with the line end of its last line
};

/** @return the text of a file of the repository. @throws std::runtime_error for one that can't be read. */
std::string ReadSource(std::string const& path);

/** @return the sections of `docs/NAME`; headings in fenced texts don't count. */
std::vector<TSection> ReadDocument(std::string const& name);

/** @return the section of that heading. @throws std::runtime_error without one. */
TSection const& SectionOf(std::vector<TSection> const& document, std::string const& heading);

/** @return the fenced texts of `docs/NAME` in one language. */
std::vector<std::string> QuotesOf(std::string const& name, std::string const& language);

/** @return the whole numbers in a text, each as it stands. */
std::vector<std::string> NumbersIn(std::string const& text);

} // namespace Documents
