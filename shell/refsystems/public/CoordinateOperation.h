#pragma once

#include "core/primitives/WGS84SemiAxes.h"
#include "shell/refsystems/ReferenceSystem.h"

namespace KvRefSystem {

/**
 * Moves one point from `src`'s shell coordinates to `dst`'s.
 * @param a, b, c the point in `src`'s units and order (a geodetic system: latitude, longitude, height).
 * @param x, y, z receive the point in `dst`'s units and order; untouched on a failure.
 * @return false after any failure.
 */
bool TransformCoords(TShellReferenceSystem const* src, double const& a, double const& b, double const& c,
                     TShellReferenceSystem const* dst, double* x, double* y, double* z);

/**
 * Derivatives of the world coordinates with respect to the core's three coordinates at a point.
 * @param a, b, c the point in `src`'s units and order. @param axes receives nine numbers, row by row.
 * @return false after a failure in the core. @throws what the conversion of the point throws.
 */
bool TransformAxes(TShellReferenceSystem const* src, double const& a, double const& b, double const& c,
                   double* axes, bool ApplyDatumShift);

/**
 * @return a `TDatumComparison`; equal datums with different geoids are different.
 * @throws std::logic_error for a null system, a system without a core, or an unknown kind.
 */
int CompareDatums(TShellReferenceSystem const* a, TShellReferenceSystem const* b);

} // namespace KvRefSystem
