#pragma once

#include "tests/oracle/Places.h"
#include "tests/oracle/ProjPipeline.h"

#include <Vellari/Vellari.h>

#include <string>

namespace OracleTests {

/** What the house promises of the whole road: a millimetre, on the ground and upwards. */
inline constexpr double PromisedOnTheGround = 1e-3;

/**
 * What two programs of the same formulas leave, metres: the last places of a longitude in degrees (3e-9), the
 * passes that stop at 1e-12 radians (4.3e-8, in the height times the tangent of the latitude) and PROJ's
 * single pass (1e-6).
 */
inline constexpr double SameFormulas = 3e-6;

/**
 * 220 km from the poles and no nearer: the height is p / cos(latitude) - N, on which the tangent (29 here)
 * acts.
 */
inline constexpr TRegion Ground = {88.0, -1e3, 9e3};

/** How the steps of PROJ turn and scale. */
struct TShiftStyle {
    bool Exact = false;          ///< rotations by sines and cosines
    bool PositionVector = false; ///< the rotations' sign; else coordinate frame
};

/**
 * PROJ's way between two geodetic systems, from the numbers that they report: own meridian, ellipsoid, shift
 * to the common datum, and back on the other side. In and out: longitude and latitude in radians, height in
 * metres.
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
