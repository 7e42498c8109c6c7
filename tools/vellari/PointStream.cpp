#include "tools/vellari/PointStream.h"

#include "tools/vellari/ToolError.h"

namespace VellariTool {

namespace {

/** Appends what shows an empty field with that separator. */
void AppendEmptyField(std::string* text, TSeparator separator) {
    if (separator == sepBlanks) {
        text->append(emptyFieldAmongBlanks);
    }
}

/** @return whether a field begins as a number does, so that it was hardly meant for a name. */
bool LooksLikeNumber(std::string_view field) {
    return !field.empty() && field.find_first_of("0123456789+-.") == 0;
}

/** @return whether a first line names columns: its coordinate fields hold something, and no number. */
bool LooksLikeHeader(TPointFields const& fields) {
    bool const holdsNumber = LooksLikeNumber(fields.field[0]) || LooksLikeNumber(fields.field[1]);
    return !holdsNumber && !(fields.field[0].empty() && fields.field[1].empty());
}

/** @return whether a field has nothing but the characters of a plain number. */
bool IsBareNumber(std::string_view field) {
    return field.find_first_not_of("0123456789+-.") == std::string_view::npos;
}

} // namespace

// --- Reading -----------------------------------------------------------------------------------------------

TPointReader::TPointReader(std::array<TAxisText, 3> const& axes) : axis(axes) {}

TLineKind TPointReader::Read(std::string_view line, TPointFields* fields, TPoint* point,
                             std::string* reason) {
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
        hasHeightColumn = fields->count != 2;
        if (!isSeparatorKnown && LooksLikeHeader(*fields)) {
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
        double plane[2];
        if (ReadPlane(SplitLine(line, candidate), candidate, plane, nullptr)) {
            separator = candidate;
            isSeparatorKnown = true;
            return true;
        }
    }
    return false;
}

/** Reads the first two fields. @param reason may be null. */
bool TPointReader::ReadPlane(TPointFields const& fields, TSeparator candidate, double* plane,
                             std::string* reason) const {
    if (fields.count < 2) {
        if (reason) {
            *reason = axis[1].AxisName() + " is missing";
        }
        return false;
    }
    // "55 45 07.2" among blanks is one angle or three fields: only signs or letters tell.
    if (candidate == sepBlanks && axis[0].HasBlanks() &&
        (IsBareNumber(fields.field[0]) || IsBareNumber(fields.field[1]))) {
        if (reason) {
            *reason = "degrees, minutes and seconds cannot be told from columns";
        }
        return false;
    }
    return axis[0].Parse(fields.field[0], &plane[0], reason) &&
           axis[1].Parse(fields.field[1], &plane[1], reason);
}

bool TPointReader::ReadPoint(TPointFields const& fields, TPoint* point, std::string* reason) const {
    if (!ReadPlane(fields, separator, point->coord, reason)) {
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

// --- Writing -----------------------------------------------------------------------------------------------

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

void TPointWriter::AppendMark(std::string* text, TSeparator separator, bool withHeight,
                              std::string_view rest) {
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
