#pragma once

#include <string>
#include <string_view>

namespace VellariAccuracy {

/** Metres below which a figure is the rounding of doubles, which machines do differently. */
inline constexpr double LeastFigure = 1e-6;

/** The same where Cartesian coordinates of the earth's size are all that is rounded; metres. */
inline constexpr double LeastCartesian = 1e-9;

/** The same of angles; radians. */
inline constexpr double LeastAngle = 1e-16;

/** What a figure says that isn't a number or has no end. */
inline constexpr char NoNumber[] = "none";

/**
 * @param number metres or radians.
 * @return the number with two significant digits, rounded up, `least` at least; `NoNumber` for none.
 */
std::string FigureText(double number, double least = LeastFigure);

/**
 * Reads what `FigureText` writes.
 * @param number gets the number, a NaN for `NoNumber`.
 * @return false for any other text, and `*number` stays.
 */
bool ReadFigure(std::string_view text, double* number, double least = LeastFigure);

/** Whether a measured difference, or none, is within what a figure says, a NaN for none. */
bool Holds(double measured, double figure);

} // namespace VellariAccuracy
