#pragma once

#include "tools/vellari/AxisText.h"
#include "tools/vellari/PointLine.h"
#include "tools/vellari/PointOperation.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace VellariTool {

/** What a line of the input turned out to be. */
enum TLineKind : int {
    lkBlank = 0,  ///< nothing but blanks
    lkHeader = 1, ///< the first line, when neither coordinate of it looks like a number
    lkPoint = 2,
    lkMistake = 3, ///< a line that should have been a point
};

/**
 * Turns lines of points into coordinates: finds the separator and the header, and keeps both in mind.
 *
 * The separator is that of the first line whose latitude and longitude read with it, tried in the order TAB,
 * semicolon, comma, blanks; it holds for all lines from there on.
 */
class TPointReader {
public:
    explicit TPointReader(std::array<TAxisText, 3> const& axes);

    /**
     * Takes a line apart and reads its point.
     * @param fields receives the line's fields. @param reason receives what is wrong with a mistake.
     */
    TLineKind Read(std::string_view line, TPointFields* fields, TPoint* point, std::string* reason);

    /** @return the separator of the line that was read last. */
    TSeparator Separator() const { return separator; }

    /** @return whether the table has a third column, by its first line. */
    bool HasHeightColumn() const { return hasHeightColumn; }

private:
    bool ReadPlane(TPointFields const& fields, TSeparator candidate, double* plane,
                   std::string* reason) const;
    bool ReadPoint(TPointFields const& fields, TPoint* point, std::string* reason) const;
    std::string ExplainSeparator(std::string_view line) const;
    bool FindSeparator(std::string_view line);

    std::array<TAxisText, 3> axis;
    TSeparator separator = sepComma;
    bool isSeparatorKnown = false;
    bool isFirstLine = true;
    bool hasHeightColumn = true;
};

/** Writes points in the columns of the input. */
class TPointWriter {
public:
    explicit TPointWriter(std::array<TAxisText, 3> const& axes);

    /** Appends a header. @param rest further columns, with their separator. */
    void AppendHeader(std::string* text, TSeparator separator, bool withHeight, std::string_view rest) const;

    /** Appends a point. @param withHeight whether there is a height column for a point without a height. */
    void AppendPoint(std::string* text, TSeparator separator, bool withHeight, TPoint const& point,
                     std::string_view rest) const;

    /** Appends empty coordinates. */
    static void AppendMark(std::string* text, TSeparator separator, bool withHeight, std::string_view rest);

private:
    std::array<TAxisText, 3> axis;
};

} // namespace VellariTool
