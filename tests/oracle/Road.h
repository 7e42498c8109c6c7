#pragma once

#include "tests/oracle/Places.h"
#include "tests/oracle/ProjPipeline.h"

#include <Vellari/Vellari.h>

#include <string>

namespace OracleTests {

/** How the steps of PROJ turn and scale. */
struct TShiftStyle {
    bool Exact = false;          ///< rotations by sines and cosines
    bool PositionVector = false; ///< the rotations' sign; else coordinate frame
};

/**
 * PROJ's way between two geodetic systems, from the numbers that they report: own meridian, ellipsoid, shift to the
 * common datum, and back on the other side. In and out: longitude and latitude in radians, height in metres.
 * @throws std::runtime_error for a system without ellipsoid or shift.
 */
std::string PipelineBetween(KvRefSystem::TShellReferenceSystem const& source,
                            KvRefSystem::TShellReferenceSystem const& target, TShiftStyle style);

/** The place in degrees and metres by `TransformCoords`; its numbers in the systems' units on the way. */
TPlace OurWay(KvRefSystem::TShellReferenceSystem const& source, TPlace const& place,
              KvRefSystem::TShellReferenceSystem const& target);

/** The place in degrees and metres by a pipeline of `PipelineBetween`. */
TPlace ProjsWay(TProjPipeline const& pipeline, TPlace const& place);

} // namespace OracleTests
