#include "tools/accuracy/Cases.h"

namespace VellariAccuracy {

using namespace KvRefSystem;

std::vector<TCase> CylinderCases() {
    return {
        {mptMercator2SP,
         {42, 51, 1000, 2000},
         "+proj=merc +lat_ts=42 +lon_0=51 +x_0=1000 +y_0=2000",
         elAll,
         {
             {{-89, 89, 51, 128},
              "Forward is the closed form; the series of the latitude on the way back ends with the eighth "
              "power of e, PROJ iterates."},
             {{-60, 60, -170, 9.9},
              "The difference of longitude isn't wrapped: forward the places lie a turn of the cylinder "
              "west of PROJ's."},
         }},
        {mptMercator1SP,
         {20, 110, 0.997, 3900000, 900000},
         "+proj=merc +lon_0=110 +k_0=0.997 +x_0=3900000 +y_0=900000",
         elAll,
         {
             {{-89, 89, 45, 114},
              "As with a standard parallel. The latitude of origin is carried and never read, so PROJ's "
              "operation has none."},
         }},
        {mptSphericalMercator,
         {-10, 1, 0, 0},
         "+proj=webmerc +lon_0=-10",
         elAll,
         {
             {{-89, 89, 0, 180}, "Closed forms both ways; the difference of longitude is wrapped."},
         }},
        {mptHotineObliqueMercator,
         {36, -78, 40, 30, 0.9996, 0, 5000000},
         "+proj=omerc +no_uoff +lat_0=36 +lonc=-78 +alpha=40 +gamma=30 +k_0=0.9996 +y_0=5000000",
         elAll,
         {
             {{10, 60, -78, 30},
              "Forward is the closed form; the series of the latitude on the way back ends with the eighth "
              "power of e, PROJ iterates."},
         }},
        {mptHotineObliqueMercator,
         {-20, 47, 18.9, 18.9, 0.9995, 400000, 800000},
         "+proj=omerc +no_uoff +lat_0=-20 +lonc=47 +alpha=18.9 +gamma=18.9 +k_0=0.9995 +x_0=400000 "
         "+y_0=800000",
         elAll,
         {
             {{-50, 10, 47, 25}, "The same in the south."},
         }},
        {mptObliqueMercator,
         {4, 115, 53.3158204722, 53.1301023611, 0.99984, 590476.87, 442857.65},
         "+proj=omerc +lat_0=4 +lonc=115 +alpha=53.3158204722 +gamma=53.1301023611 +k_0=0.99984 "
         "+x_0=590476.87 +y_0=442857.65",
         elAll,
         {
             {{-26, 34, 115, 30}, "As Hotine's."},
         }},
        {mptObliqueMercator,
         {-20, 47, 18.9, 18.9, 0.9995, 400000, 800000},
         "+proj=omerc +lat_0=-20 +lonc=47 +alpha=18.9 +gamma=18.9 +k_0=0.9995 +x_0=400000 +y_0=800000",
         elAll,
         {
             {{-50, 10, 47, 25}, "The same in the south."},
         }},
        {mptObliqueMercator,
         {46.95240555555556, 7.439583333333333, 90, 90, 1, 2600000, 1200000},
         "+proj=omerc +lat_0=46.95240555555556 +lonc=7.439583333333333 +alpha=90 +gamma=90 +x_0=2600000 "
         "+y_0=1200000",
         elAll,
         {
             {{45.8, 47.9, 8.25, 2.4},
              "With an azimuth of 90° both sides take an arc sine near 1, which may lose half of the digits.",
              soRounding},
             {{30, 65, 7.45, 30}, "", soRounding},
         }},
        {mptObliqueMercator,
         {4, 115, 126.5, 126.5, 1, 0, 0},
         "+proj=omerc +lat_0=4 +lonc=115 +alpha=126.5 +gamma=126.5",
         elAll,
         {
             {{-10, 20, 115, 15},
              "With an azimuth whose cosine is negative the map takes off the centre's u with the sign of "
              "the longitude's side, the way back with that of the centre's latitude."},
         }},
    };
}

} // namespace VellariAccuracy
