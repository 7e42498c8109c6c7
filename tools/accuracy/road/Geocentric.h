#pragma once

#include "tools/accuracy/road/ExactPlaces.h"

namespace VellariAccuracy {

/** Metres between our Cartesian coordinates of a place and the exact ones. */
double ErrorOfPoint(TExactPlace const& place);

/** How far our way back is from the exact one. */
struct TErrorsBack {
    double Latitude;  ///< radians
    double Longitude; ///< radians
    double Ground;    ///< metres
    double Height;    ///< metres
};

/** @throws what `TEllipsoid::CartesianToEllipsoidal` throws. */
TErrorsBack ErrorsOfPlace(TExactPlace const& place);

/**
 * What is left of the latitude when the passes stop at a change of `TEllipsoid::Tolerance`, at a height or
 * above it, and the rounding of a handful of operations; radians.
 */
double LatitudeBound(double height);

/** What such a latitude leaves of a height, which is p / cos(latitude) - N; metres. */
double HeightBound(double latitude, double leastHeight, double greatestHeight);

} // namespace VellariAccuracy
