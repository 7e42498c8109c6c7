#include "tools/vellari/PointStream.h"

#include "tools/vellari/ToolError.h"

namespace VellariTool {

namespace {

void AppendEmptyField(std::string* text, TSeparator separator) {
    if (separator == sepBlanks) {
        text->append(emptyFieldAmongBlanks);
    }
}

} // namespace

// --- Reading ---------------------------------------------------------------------------------------------------------

TPointReader::TPointReader(std::array<TAxisText, 3> const& axes) : axis(axes) {}

TLineKind TPointReader::Read(std::string_view line, TPointFields* fields, TPoint* point, std::string* reason) {
    if (IsBlankLine(line)) {
        return lkBlank;
    }
    bool const isFirst = isFirstLine;
    isFirstLine = false;
    if (!isSeparatorKnown && !FindSeparator(line)) {
        separator = FirstSeparatorIn(line);
    }
    *fields = SplitLine(line, separator);
    if (isFirst) {
        int readable = 0;
        bool const isHeader = !ReadsAsPlane(*fields, &readable) && readable == 0;
        hasHeightColumn = fields->count != 2;
        if (isHeader) {
            return lkHeader;
        }
    }
    if (ReadPoint(*fields, point, reason)) {
        return lkPoint;
    }
    *reason += ExplainSeparator(line);
    return lkMistake;
}

/** Chooses the first separator with which the line has a point. @return false without one. */
bool TPointReader::FindSeparator(std::string_view line) {
    for (TSeparator const candidate : allSeparators) {
        int readable = 0;
        if (ReadsAsPlane(SplitLine(line, candidate), &readable)) {
            separator = candidate;
            isSeparatorKnown = true;
            return true;
        }
    }
    return false;
}

/** @param readable receives how many of the first two fields read. @return whether both do. */
bool TPointReader::ReadsAsPlane(TPointFields const& fields, int* readable) const {
    double value = 0;
    *readable = 0;
    for (int i = 0; i < 2; ++i) {
        *readable += i < fields.count && axis[i].Parse(fields.field[i], &value, nullptr) ? 1 : 0;
    }
    return *readable == 2;
}

bool TPointReader::ReadPoint(TPointFields const& fields, TPoint* point, std::string* reason) const {
    if (fields.count < 2) {
        *reason = axis[1].AxisName() + " is missing";
        return false;
    }
    if (!axis[0].Parse(fields.field[0], &point->coord[0], reason) ||
        !axis[1].Parse(fields.field[1], &point->coord[1], reason)) {
        return false;
    }
    point->coord[2] = 0;
    point->hasHeight = !fields.field[2].empty();
    return !point->hasHeight || axis[2].Parse(fields.field[2], &point->coord[2], reason);
}

/** @return what a mistake's reason needs to add about separators, or an empty text. */
std::string TPointReader::ExplainSeparator(std::string_view line) const {
    if (separator == sepBlanks && axis[0].HasBlanks()) {
        return "; angles with blanks inside need commas, semicolons or TABs between the columns";
    }
    TSeparator const first = FirstSeparatorIn(line);
    if (isSeparatorKnown && first != separator && line.find(separator) == std::string_view::npos) {
        return "; the columns of this input are separated by " + std::string(SeparatorName(separator));
    }
    return "";
}

// --- Writing ---------------------------------------------------------------------------------------------------------

TPointWriter::TPointWriter(std::array<TAxisText, 3> const& axes) : axis(axes) {}

void TPointWriter::AppendHeader(std::string* text, TSeparator separator, bool withHeight,
                                std::string_view rest) const {
    *text += axis[0].ColumnName();
    *text += static_cast<char>(separator);
    *text += axis[1].ColumnName();
    if (withHeight) {
        *text += static_cast<char>(separator);
        *text += axis[2].ColumnName();
    }
    *text += rest;
    *text += '\n';
}

void TPointWriter::AppendPoint(std::string* text, TSeparator separator, bool withHeight, TPoint const& point,
                               std::string_view rest) const {
    axis[0].Append(text, point.coord[0]);
    *text += static_cast<char>(separator);
    axis[1].Append(text, point.coord[1]);
    if (point.hasHeight) {
        *text += static_cast<char>(separator);
        axis[2].Append(text, point.coord[2]);
    } else if (withHeight) {
        *text += static_cast<char>(separator);
        AppendEmptyField(text, separator);
    }
    text->append(rest);
    *text += '\n';
}

void TPointWriter::AppendMark(std::string* text, TSeparator separator, bool withHeight, std::string_view rest) {
    AppendEmptyField(text, separator);
    *text += static_cast<char>(separator);
    AppendEmptyField(text, separator);
    if (withHeight) {
        *text += static_cast<char>(separator);
        AppendEmptyField(text, separator);
    }
    text->append(rest);
    *text += '\n';
}

} // namespace VellariTool
