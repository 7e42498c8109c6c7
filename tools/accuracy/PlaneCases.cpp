#include "tools/accuracy/Cases.h"

namespace VellariAccuracy {

using namespace KvRefSystem;

std::vector<TCase> PlaneCases() {
    return {
        {mptLambertAzimuthalEqualArea,
         {52, 10, 4321000, 3210000},
         "+proj=laea +lat_0=52 +lon_0=10 +x_0=4321000 +y_0=3210000",
         elAll,
         {
             {{24, 85, 10, 46},
              "The series of the latitude ends with the sixth power of e, PROJ's too, so it is there and "
              "back "
              "that shows it."},
             {{-30, 89.9, 10, 84},
              "The same; and the authalic cosine comes from the sine, which loses digits towards the pole.",
              soRounding},
             {{52, 52, 10, 0}, "The way back of the origin itself is 0 / 0."},
             {{60, 85, 145, 40},
              "More than 90 degrees of longitude from the origin the arc tangent of the way back is on the "
              "wrong side: the longitude comes back half a turn off."},
         }},
        {mptLambertAzimuthalEqualArea,
         {90, 10, 0, 0},
         "+proj=laea +lat_0=90 +lon_0=10",
         elAll,
         {
             {{60, 89, 10, 89},
              "With the origin at a pole the map is stretched by the quotient of two cosines that ought to "
              "vanish."},
         }},
        {mptOrthographic,
         {55, 5, 0, 0},
         "+proj=ortho +lat_0=55 +lon_0=5",
         elAll,
         {
             {{10, 80, 5, 45},
              "Forward is the closed form; the last step of the way back, the one within 1e-12 radians, "
              "isn't "
              "applied."},
             {{-15, 60, 5, 60}, "Towards the horizon the map has no depth.", soRounding},
             {{70, 89, -175, 60},
              "Beyond the pole the passes arrive at a latitude above 90°, which is cut at the pole."},
         }},
        {mptHatt,
         {38, 23.5},
         "+proj=aeqd +lat_0=38 +lon_0=23.5",
         elAll,
         {
             {{37.75, 38.25, 23.5, 0.25},
              "PROJ has no such method: measured against the azimuthal equidistant by geodesics, of which "
              "the "
              "map is the series to the fourth power. The ellipsoid's share of the cubic terms of the way "
              "back isn't that of the inverse."},
             {{37.5, 38.5, 23.5, 0.5}, ""},
             {{36, 40, 23.5, 2}, ""},
         }},
        {mptCassiniSoldner,
         {40, 10, 0, 0},
         "+proj=cass +lat_0=40 +lon_0=10",
         elAll,
         {
             {{-80, 80, 10, 1},
              "The series of the meridian's arc ends with the sixth power of e; that of the way back with "
              "the "
              "fifth power of the longitude's difference, which PROJ mends by its forward."},
             {{-80, 80, 10, 3}, ""},
             {{-80, 80, 10, 10}, ""},
         }},
        {mptNZMG,
         {-41, 173, 2510000, 6023150},
         "+proj=nzmg",
         elInternational,
         {
             {{-48, -34, 172.5, 6.5}, "The same polynomials and two steps of Newton's."},
             {{-44.5, -43.5, -176.5, 1},
              "The difference of longitude isn't wrapped: the Chatham Islands lie nowhere near. The way back "
              "has no such step."},
         }},
    };
}

} // namespace VellariAccuracy
