#pragma once

#include "core/refsystems/Coords.h"

namespace KvRefSystem {

/**
 * Prime meridian of a system. Works in place; a meridian of longitude 0.0 (or -0.0) does nothing at all, not
 * even a multiplication. `Z` is never touched. Immutable after construction.
 */
class TPrimeMeridian {
public:
    /** @param longitude radians east of Greenwich. */
    explicit TPrimeMeridian(double const& longitude);
    TPrimeMeridian(TPrimeMeridian const&) = default;
    TPrimeMeridian& operator=(TPrimeMeridian const&) = delete;
    virtual ~TPrimeMeridian();

    /** Rotates geocentric coordinates (metres) from this meridian's axes to Greenwich's. */
    void TransformGeocentricToGreenwich(TCoords* coords) const;

    /** Rotates geocentric coordinates (metres) from Greenwich's axes to this meridian's. */
    void TransformGeocentricFromGreenwich(TCoords* coords) const;

    /** Adds the meridian's longitude to the longitude `X` (radians). */
    void TransformGeodeticToGreenwich(TCoords* coords) const;

    /** Subtracts the meridian's longitude from the longitude `X` (radians). */
    void TransformGeodeticFromGreenwich(TCoords* coords) const;

    double Longitude;    ///< radians east of Greenwich
    double SinLongitude; ///< its sine
    double CosLongitude; ///< its cosine
    bool NonZero;        ///< the longitude isn't 0.0; true for a NaN
};

} // namespace KvRefSystem
