#include "tools/vellari/PointLine.h"

namespace VellariTool {

namespace {

/** Blanks of a line. */
constexpr bool IsBlank(char byte) {
    return byte == ' ' || byte == '\t';
}

/** Takes blanks and one pair of double quotes away. */
std::string_view Bare(std::string_view field) {
    while (!field.empty() && IsBlank(field.front())) {
        field.remove_prefix(1);
    }
    while (!field.empty() && IsBlank(field.back())) {
        field.remove_suffix(1);
    }
    if (field.size() >= 2 && field.front() == '"' && field.back() == '"') {
        field = field.substr(1, field.size() - 2);
    }
    return field;
}

/** Takes a line apart at runs of blanks. */
TPointFields SplitAtBlanks(std::string_view line) {
    TPointFields fields;
    std::size_t position = 0;
    while (fields.count < 3) {
        while (position < line.size() && IsBlank(line[position])) {
            ++position;
        }
        if (position == line.size()) {
            return fields;
        }
        std::size_t const start = position;
        while (position < line.size() && !IsBlank(line[position])) {
            ++position;
        }
        std::string_view const field = Bare(line.substr(start, position - start));
        fields.field[fields.count++] = field == emptyFieldAmongBlanks ? std::string_view() : field;
    }
    fields.rest = line.substr(position);
    return fields;
}

} // namespace

TPointFields SplitLine(std::string_view line, TSeparator separator) {
    if (separator == sepBlanks) {
        return SplitAtBlanks(line);
    }
    TPointFields fields;
    std::size_t start = 0;
    for (;;) {
        std::size_t const end = line.find(separator, start);
        bool const isLast = end == std::string_view::npos;
        fields.field[fields.count++] = Bare(line.substr(start, isLast ? end : end - start));
        if (isLast) {
            return fields;
        }
        if (fields.count == 3) {
            fields.rest = line.substr(end);
            return fields;
        }
        start = end + 1;
    }
}

bool IsBlankLine(std::string_view line) {
    return line.find_first_not_of(" \t") == std::string_view::npos;
}

TSeparator FirstSeparatorIn(std::string_view line) {
    // Blanks at the ends separate nothing.
    std::size_t const first = line.find_first_not_of(" \t");
    std::size_t const last = line.find_last_not_of(" \t");
    if (first == std::string_view::npos) {
        return sepComma;
    }
    std::string_view const inner = line.substr(first, last - first + 1);
    for (TSeparator const separator : allSeparators) {
        if (inner.find(separator) != std::string_view::npos) {
            return separator;
        }
    }
    return sepComma;
}

std::string_view SeparatorName(TSeparator separator) {
    switch (separator) {
    case sepComma:
        return "comma";
    case sepSemicolon:
        return "semicolon";
    case sepTab:
        return "TAB";
    case sepBlanks:
        return "blanks";
    }
    return "separator";
}

} // namespace VellariTool
