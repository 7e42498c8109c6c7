#pragma once

#include <string>
#include <string_view>

namespace VellariTool {

/** What stands between the fields of a line. */
enum TSeparator : char {
    sepComma = ',',
    sepSemicolon = ';',
    sepTab = '\t',
    sepBlanks = ' ', ///< any run of blanks and TABs; leading ones don't count
};

/** All separators, in the order in which a line is tried for them. */
inline constexpr TSeparator allSeparators[] = {sepTab, sepSemicolon, sepComma, sepBlanks};

/** The sign that stands for an empty field where blanks separate, since they can't show one. */
inline constexpr std::string_view emptyFieldAmongBlanks = "*";

/** One line taken apart; views of that line. */
struct TPointFields {
    std::string_view
        field[3];          ///< coordinates without blanks and double quotes around them; empty when missing
    int count = 0;         ///< coordinate fields that the line has, 0 to 3
    std::string_view rest; ///< further columns as they stand, with the separator before them
};

/** Takes a line apart. */
TPointFields SplitLine(std::string_view line, TSeparator separator);

/** @return whether the line has nothing but blanks. */
bool IsBlankLine(std::string_view line);

/** @return the first separator, in the order of trial, that the line holds; a comma when it has none. */
TSeparator FirstSeparatorIn(std::string_view line);

/** @return what messages call the separator. */
std::string_view SeparatorName(TSeparator separator);

} // namespace VellariTool
