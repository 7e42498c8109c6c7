#pragma once

#include "tools/reference/Number.h"

#include <string>

namespace VellariReference {

/** A figure of the earth, metres. */
struct TAxes {
    double Major;
    double Minor;
};

/** A place: radians and metres. */
struct TPlace {
    TNumber Latitude;
    TNumber Longitude;
    TNumber Height;
};

/** Metres from the centre. */
struct TPoint {
    TNumber X;
    TNumber Y;
    TNumber Z;
};

/** [EPSG7-2, 9602] */
TPoint ToCartesian(TAxes const& axes, TPlace const& place);

/**
 * The way back, by Newton's steps on latitude and height together, to all digits.
 * @param near a place in whose neighbourhood the point lies.
 * @throws std::runtime_error when the steps don't end, which is so near the centre.
 */
TPlace ToEllipsoidal(TAxes const& axes, TPoint const& point, TPlace const& near);

/** The text of the whole file of data. */
std::string GeocentricData();

} // namespace VellariReference
