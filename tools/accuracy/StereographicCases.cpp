#include "tools/accuracy/Cases.h"

namespace VellariAccuracy {

using namespace KvRefSystem;

std::vector<TCase> StereographicCases() {
    return {
        {mptObliqueStereographic,
         {25, 46, 0.99975, 500000, 500000},
         "+proj=sterea +lat_0=46 +lon_0=25 +k_0=0.99975 +x_0=500000 +y_0=500000",
         elAll,
         {
             {{40, 52, 25, 10, 500, 46},
              "The same closed relations; the passes of the way back end early enough."},
             {{19, 73, 25, 70, 3000, 46}, ""},
             {{-44, 89.9, 25, 179, 10000, 46},
              "Near the poles 1 - sin(latitude) loses digits, where PROJ takes the tangent of half the "
              "angle.",
              soRounding},
             {{89.5, 89.99, 25, 179}, "", soRounding},
         }},
        {mptObliqueStereographic,
         {175, -40, 0.9996, 1000000, 2000000},
         "+proj=sterea +lat_0=-40 +lon_0=175 +k_0=0.9996 +x_0=1000000 +y_0=2000000",
         elAll,
         {
             {{-60, -20, 175, 30, 2000, -40},
              "In the south and over the antimeridian: the difference of longitude is wrapped."},
         }},
        {mptQuasiStereographic,
         {25, 46, 0.99975, 500000, 500000},
         "+proj=sterea +lat_0=46 +lon_0=25 +k_0=0.99975 +x_0=500000 +y_0=500000",
         elAll,
         {
             {{45.9, 46.1, 25, 0.15, 10, 46},
              "PROJ has no such method: measured against the oblique stereographic, from whose series three "
              "coefficients of the tables differ. The departure grows with the cube of the distance."},
             {{45.5, 46.5, 25, 0.7, 50, 46}, ""},
             {{45, 47, 25, 1.4, 100, 46}, ""},
         }},
        {mptPolarStereographic,
         {10, 90, 0.994, 2000000, 2000000},
         "+proj=stere +lat_0=90 +lon_0=10 +k_0=0.994 +x_0=2000000 +y_0=2000000",
         elAll,
         {
             {{60, 90, 10, 179},
              "Forward is the closed relation; the series of the latitude on the way back ends with the "
              "eighth power of e, PROJ iterates."},
             {{0, 60, 10, 179}, ""},
             {{-80, 0, 10, 179}, "The map is a hundred times as large there, and its rounding with it."},
         }},
        {mptPolarStereographic,
         {10, -90, 0.994, 2000000, 2000000},
         "+proj=stere +lat_0=-90 +lon_0=10 +k_0=0.994 +x_0=2000000 +y_0=2000000",
         elAll,
         {
             {{-80, -60, 10, 179},
              "The latitude of origin is carried and never read: the pole stays the north one, and the south "
              "lies far outside of its map."},
         }},
        {mptPolarStereographicBasic,
         {poleNorth, 10, 0.994, 2000000, 2000000},
         "+proj=stere +lat_0=90 +lon_0=10 +k_0=0.994 +x_0=2000000 +y_0=2000000",
         elAll,
         {
             {{60, 90, 10, 179}, "As the older one."},
             {{0, 60, 10, 179}, ""},
             {{-80, 0, 10, 179}, ""},
             {{60, 89, -170, 0},
              "An easting that is the false easting comes back on the longitude of origin, from beyond the "
              "pole too."},
         }},
        {mptPolarStereographicBasic,
         {poleSouth, 10, 0.994, 2000000, 2000000},
         "+proj=stere +lat_0=-90 +lon_0=10 +k_0=0.994 +x_0=2000000 +y_0=2000000",
         elAll,
         {
             {{-90, -60, 10, 179}, "The same in the south."},
         }},
        {mptPolarStereographicNaturalOrigin,
         {poleSouth, -71, 70, 6000000, 6000000},
         "+proj=stere +lat_0=-90 +lat_ts=-71 +lon_0=70 +x_0=6000000 +y_0=6000000",
         elAll,
         {
             {{-89.999, -60, 70, 179}, "The series of the latitude on the way back, as with a scale."},
             {{-60, 0, 70, 179}, ""},
         }},
        {mptPolarStereographicFalseOrigin,
         {poleSouth, -67, 140, 300000, 200000},
         "+proj=stere +lat_0=-90 +lat_ts=-67 +lon_0=140 +x_0=300000 +y_0=200000",
         elInternational,
         {
             {{-89.999, -60, 140, 179},
              "The false values are those of the pole, as with a standard parallel; measured against that."},
         }},
        // The radius of the parallel of 67° S on the map is a m = 2499363.488305941 metres.
        {mptPolarStereographicFalseOrigin,
         {poleSouth, -67, 140, 300000, 200000},
         "+proj=stere +lat_0=-90 +lat_ts=-67 +lon_0=140 +x_0=300000 +y_0=-2299363.488305941",
         elInternational,
         {
             {{-89.999, -60, 140, 179},
              "Against the published rule, by which the false northing belongs to the standard parallel: the "
              "radius of that parallel lies between the two."},
         }},
    };
}

} // namespace VellariAccuracy
