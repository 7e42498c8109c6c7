#pragma once

#include <cstdarg>
#include <cstdint>
#include <string>
#include <string_view>

/**
 * Number text, in both directions always that of the C locale, whatever locale the host has set. The only
 * place in the library that formats or scans numbers.
 */
namespace KvRefSystem {

/**
 * `printf` into a new string of any length.
 * @throws std::runtime_error when `printf` fails, from 2 GiB on.
 */
std::string FormatText(char const* format, ...) __attribute__((format(printf, 1, 2)));

/** As `FormatText`, with an argument list. */
std::string FormatTextV(char const* format, std::va_list arguments) __attribute__((format(printf, 1, 0)));

/** `sscanf`. @return the number of conversions, or EOF (-1) when the text ended before the first one. */
int ScanText(char const* text, char const* format, ...) __attribute__((format(scanf, 2, 3)));

/** `strtod` without the end: the number at the beginning of the text, or 0. */
double ParseLeadingDouble(char const* text);

/**
 * Reads a number that is the whole text, blanks at its ends aside: decimal, with or without an exponent and a
 * sign, or "inf", "infinity" or "nan" in letters of either case. Hexadecimal numbers are refused, as are
 * numbers too large for the type; those too small give the nearest one.
 * @return false, `*value` untouched, otherwise.
 */
bool ParseWholeDouble(std::string_view text, double* value);

/**
 * Reads a float that is the whole text, blanks at its ends aside, not by way of a double.
 * @return as above.
 */
bool ParseWholeFloat(std::string_view text, float* value);

/** Reads an int that is the whole text, blanks at its ends aside, and in range. @return as above. */
bool ParseWholeInt(std::string_view text, int* value);

/**
 * Appends `value` with exactly `decimals` (0 to 60) digits behind the point, rounded to nearest; fast. The
 * text is that of "%.*f", "inf" and "nan" included.
 */
void AppendFixed(std::string* text, double value, int decimals);

/** Cuts towards zero; a NaN and anything outside of the type's range give -2147483648. */
std::int32_t ToInt32(double value);

} // namespace KvRefSystem
