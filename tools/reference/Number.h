#pragma once

#include <boost/multiprecision/cpp_dec_float.hpp>

#include <string>
#include <string_view>

namespace VellariReference {

/** 80 decimal digits, of which 50 are written: what arithmetic in a handful of steps loses stays behind them. */
using TNumber =
    boost::multiprecision::number<boost::multiprecision::cpp_dec_float<80>, boost::multiprecision::et_off>;

TNumber Pi();

/** The number with this many digits behind the point. */
std::string FixedText(TNumber const& number, int decimals);

/** The double nearest to a decimal number. @throws std::invalid_argument for a text that isn't one. */
double NearestDouble(std::string_view text);

/** The double nearest to a number. */
double NearestDouble(TNumber const& number);

/** The shortest text whose nearest double is this one. */
std::string ShortestText(double number);

} // namespace VellariReference
