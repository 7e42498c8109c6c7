#pragma once

#include <Vellari/Vellari.h>

#include <array>
#include <string>

namespace VellariTest {

using TPoint = std::array<double, 3>; ///< in a system's units and order

/** Metres between two points of WGS 84 (degrees, metres) that lie close together, with a mean radius. */
double Distance(TPoint const& first, TPoint const& second);

/** The point in `target`; a failure of the test and zeros where it doesn't go over. */
TPoint Transform(KvRefSystem::TShellReferenceSystem const* source, TPoint const& point,
                 KvRefSystem::TShellReferenceSystem const* target);

/** The same between two entries of the catalogue. */
TPoint Transform(std::string const& source, TPoint const& point, std::string const& target);

} // namespace VellariTest
