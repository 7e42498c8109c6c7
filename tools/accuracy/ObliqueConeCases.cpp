#include "tools/accuracy/Cases.h"

namespace VellariAccuracy {

using namespace KvRefSystem;

std::vector<TCase> ObliqueConeCases() {
    double const azimuth = 30 + 17 / 60.0 + 17.30311 / 3600;
    double const longitude = 24 + 50 / 60.0;
    return {
        {mptKrovak,
         {49.5, longitude, azimuth, 78.5, 0.9999, 0, 0},
         "+proj=krovak +lat_0=49.5 +lon_0=24.833333333333333 +k_0=0.9999",
         elBessel,
         {
             {{47.5, 51.5, 17.35, 5.35},
              "PROJ holds the axis and the cone as rounded decimals. The map has its axes to east and "
              "north."},
             {{30, 55, 22.5, 22.5}, ""},
             {{58, 59.5, 24.8, 4},
              "Near 90 degrees of oblique longitude the arc sine, ours as PROJ's, loses half of the digits.",
              soRounding},
             {{60, 65, 24.8, 20}, "Behind the axis the arc sine folds the oblique longitude, on both sides."},
         }},
        {mptKrovak,
         {49.5, longitude, azimuth, 78.5, 0.9999, 10000, 5000},
         "+proj=krovak +lat_0=49.5 +lon_0=24.833333333333333 +k_0=0.9999 +x_0=-10000 +y_0=-5000",
         elBessel,
         {
             {{47.5, 51.5, 17.35, 5.35},
              "The false values are added before the sign turns, so to PROJ they are negative; the way back "
              "subtracts them, and so is off by twice as much."},
         }},
        {mptPolyconic,
         {-54, 0, 1, 0, 0},
         "+proj=poly +lon_0=-54",
         elAll,
         {
             {{-35, 6, -54, 20}, "The series of the meridian's arc ends with the sixth power of e."},
             {{-80, 80, -54, 60}, ""},
             {{-5.7e-6, 5.7e-6, -54, 20}, "Latitudes of less than 1e-7 radians count as 0."},
             {{1e-5, 1e-4, -54, 20}, "Near the equator the passes of the way back lose digits.", soRounding},
         }},
        {mptPolyconic,
         {-96, 30, 1, 0, 0},
         "+proj=poly +lat_0=30 +lon_0=-96",
         elAll,
         {
             {{20, 50, -96, 30}, "The arc, from the origin on."},
             {{0, 0, -96, 30},
              "On the equator the northing is that of the origin in semi-major axes instead of metres."},
         }},
    };
}

} // namespace VellariAccuracy
