#include "tools/accuracy/Cases.h"

namespace VellariAccuracy {

using namespace KvRefSystem;

std::vector<TCase> ConeCases() {
    return {
        {mptLambertConicConformal1SP,
         {46.5, 3, 0.99987742, 600000, 2200000},
         "+proj=lcc +lat_1=46.5 +lat_0=46.5 +lon_0=3 +k_0=0.99987742 +x_0=600000 +y_0=2200000",
         elAll,
         {
             {{-60, 89, 3, 176.9},
              "Forward is the closed form; the passes of the way back end at a change of 1e-10 radians, of "
              "which the share e2 is left."},
         }},
        {mptLambertConicConformal1SP,
         {46.5, 175, 1, 0, 0},
         "+proj=lcc +lat_1=46.5 +lat_0=46.5 +lon_0=175",
         elAll,
         {
             {{30, 60, -175, 4.9},
              "The difference of longitude isn't wrapped: forward the places lie on the cone's next turn."},
         }},
        {mptLambertConicConformal1SP,
         {-20, 20, 1, 0, 0},
         "+proj=lcc +lat_1=-20 +lat_0=-20 +lon_0=20",
         elAll,
         {
             {{-89, 60, 20, 159},
              "The angle of the way back is taken without a change of signs, so on a southern cone the "
              "longitude comes back π/n off."},
             {{-89, 60, 20, 159}, "Its latitude is right.", soMethod, rvLatitude},
         }},
        {mptLambertConicConformal2SP,
         {35, 65, 52, 10, 4000000, 2800000},
         "+proj=lcc +lat_1=35 +lat_2=65 +lat_0=52 +lon_0=10 +x_0=4000000 +y_0=2800000",
         elAll,
         {
             {{-60, 89, 10, 115}, "As with one parallel."},
             {{30, 89, 150, 20},
              "Beyond a right angle of the cone the arc tangent of the way back is on the wrong side: the "
              "longitude comes back π/n off."},
         }},
        {mptLambertConicConformal2SP,
         {-18, -36, -27, 134, 0, 0},
         "+proj=lcc +lat_1=-18 +lat_2=-36 +lat_0=-27 +lon_0=134",
         elAll,
         {
             {{-89, 60, 67, 112}, "A southern cone comes back, other than with one parallel."},
             {{-60, 0, -113, 66},
              "The difference of longitude isn't wrapped: forward the places lie on the cone's next turn."},
         }},
        // The turn of 29.2985" about the apex is another central meridian: 4°21'24.983" and 29.2985" / n.
        {mptLambertConicConformal2SPBelgium,
         {49 + 50 / 60.0, 51 + 10 / 60.0, 90, 4 + 21 / 60.0 + 24.983 / 3600, 150000.01256, 5400088.4378},
         "+proj=lcc +lat_1=49.833333333333333 +lat_2=51.166666666666667 +lat_0=90 "
         "+lon_0=4.3674866730815232 +x_0=150000.01256 +y_0=5400088.4378",
         elInternational,
         {
             {{-60, 89, 4, 175},
              "As with two parallels; PROJ's meridian is turned by 29.2985\" / n. Parallels that lie close "
              "together cost the constants a digit."},
         }},
        {mptAlbersEqualAreaConic,
         {29.5, 45.5, 23, -96, 1000000, -500000},
         "+proj=aea +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96 +x_0=1000000 +y_0=-500000",
         elAll,
         {
             {{-60, 89, -96, 179},
              "Forward is the closed form; the series from the authalic latitude ends with the sixth power "
              "of e, PROJ iterates."},
         }},
        {mptAlbersEqualAreaConic,
         {-18, -36, 0, 132, 0, 0},
         "+proj=aea +lat_1=-18 +lat_2=-36 +lat_0=0 +lon_0=132",
         elAll,
         {
             {{-89, 60, 132, 179},
              "The angle of the way back is taken without a change of signs, so on a southern cone the "
              "longitude comes back π/n off."},
             {{-89, 60, 132, 179}, "Its latitude is right.", soMethod, rvLatitude},
         }},
        {mptEquidistantConic,
         {40, 50, 45, 10, 500000, -500000},
         "+proj=eqdc +lat_1=40 +lat_2=50 +lat_0=45 +lon_0=10 +x_0=500000 +y_0=-500000",
         elAll,
         {
             {{25, 70, 10, 40}, "The series of the meridian's arc ends with the sixth power of e."},
             {{-60, 89, 10, 126}, ""},
             {{30, 80, 155, 20},
              "Beyond a right angle of the cone the arc tangent of the way back is on the wrong side: the "
              "longitude comes back π/n off."},
         }},
        {mptEquidistantConic,
         {-18, -36, -27, 134, 0, 0},
         "+proj=eqdc +lat_1=-18 +lat_2=-36 +lat_0=-27 +lon_0=134",
         elAll,
         {
             {{-89, 60, 67, 112}, "A southern cone comes back; the arc as above."},
             {{-60, 0, -113, 66},
              "The difference of longitude isn't wrapped: forward the places lie on the cone's next turn."},
         }},
    };
}

} // namespace VellariAccuracy
