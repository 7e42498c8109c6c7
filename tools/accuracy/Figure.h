#pragma once

#include <string>
#include <string_view>

namespace VellariAccuracy {

/** Metres below which a figure is the rounding of doubles, which machines do differently. */
inline constexpr double LeastFigure = 1e-6;

/** What a figure says that isn't a number or has no end. */
inline constexpr char NoNumber[] = "none";

/** @return metres with two significant digits, rounded up, `LeastFigure` at least; `NoNumber` for no number. */
std::string FigureText(double metres);

/**
 * Reads what `FigureText` writes.
 * @param metres gets the number, a NaN for `NoNumber`.
 * @return false for any other text, and `*metres` stays.
 */
bool ReadFigure(std::string_view text, double* metres);

/** Whether a measured difference (metres, or no number) is within what a figure says (metres, or a NaN). */
bool Holds(double measured, double figure);

} // namespace VellariAccuracy
