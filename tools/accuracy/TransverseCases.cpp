#include "tools/accuracy/Cases.h"

namespace VellariAccuracy {

using namespace KvRefSystem;

std::vector<TCase> TransverseCases() {
    return {
        {mptTransverseMercator,
         {39, 0, 0.9996, 500000, 0},
         "+proj=tmerc +algo=poder_engsager +lon_0=39 +k_0=0.9996 +x_0=500000",
         elAll,
         {
             {{-89, 89, 39, 0},
              "The series of the meridian's arc ends with the sixth power of e forward, with the fourth of "
              "the third flattening in reverse; PROJ's operation is exact to nanometres."},
             {{-84, 84, 39, 3}, "The arc; the seventh power of the longitude's difference is left out."},
             {{-84, 84, 39, 3.5}, ""},
             {{-84, 84, 39, 5}, "The powers from the seventh on that are left out grow fast."},
             {{-84, 84, 39, 6}, ""},
             {{-84, 84, 39, 10}, ""},
         }},
        {mptTransverseMercator,
         {-177, 0, 0.9996, 500000, 0},
         "+proj=tmerc +algo=poder_engsager +lon_0=-177 +k_0=0.9996 +x_0=500000",
         elAll,
         {
             {{-84, 84, -180, 0.1}, "The difference of longitude is wrapped, on either side of 180°."},
         }},
        {mptGaussBoaga,
         {39, 0.9996, 500000, 0},
         "+proj=tmerc +algo=poder_engsager +lon_0=39 +k_0=0.9996 +x_0=500000",
         elAll,
         {
             {{-89, 89, 39, 0}, "The arc of the meridian ends with the sixth power of e'."},
             {{-84, 84, 39, 3},
              "The closed forms hold the first term alone of the ellipsoid's part in the difference of "
              "longitude."},
             {{-84, 84, 39, 6}, ""},
             {{-84, 84, 39, 10}, ""},
         }},
        {mptGaussKrugerWide,
         {39, 0.9996, 500000, 0},
         "+proj=tmerc +algo=poder_engsager +lon_0=39 +k_0=0.9996 +x_0=500000",
         elAll,
         {
             {{-89, 89, 39, 3},
              "The series end with the third power of n, the rectifying radius does without the fourth."},
             {{-84, 84, 39, 15}, ""},
             {{-84, 84, 39, 30},
              "The hyperbolic factor of the sine of the eightfold angle, left out, grows."},
             {{-84, 84, 39, 60}, ""},
         }},
    };
}

} // namespace VellariAccuracy
