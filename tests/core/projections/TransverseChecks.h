#pragma once

#include "tests/core/projections/ProjectionChecks.h"

/** What only the tests of the transverse cylindrical projections share. */
namespace ProjectionChecks {

/** Formulas with some fifty operations on metres, against the same in decimal. */
inline constexpr double RoundingMetres = 3e-8;
inline constexpr double RoundingDegrees = 1e-13;

/** @return longitude and latitude, degrees. */
inline TCoords UnprojectToDegrees(TMapProjection const& projection, double easting, double northing) {
    TCoords point = Unproject(projection, easting, northing);
    point.X /= Degree;
    point.Y /= Degree;
    return point;
}

/** Both ways of two projections give the same numbers from the far south to the north. */
inline void ExpectSameResultsInBothHemispheres(TMapProjection const& first, TMapProjection const& second) {
    for (double const latitude : {-70.0, 0.0, 12.5, 55.0}) {
        ExpectSameResults(first, second, latitude, latitude / 20);
    }
}

} // namespace ProjectionChecks
