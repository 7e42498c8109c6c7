#include "core/refsystems/PrimeMeridian.h"

#include <cmath>

namespace KvRefSystem {

TPrimeMeridian::TPrimeMeridian(double const& longitude)
    : Longitude(longitude),
      SinLongitude(std::sin(longitude)),
      CosLongitude(std::cos(longitude)),
      NonZero(longitude != 0.0) {}

TPrimeMeridian::~TPrimeMeridian() = default;

void TPrimeMeridian::TransformGeocentricToGreenwich(TCoords* coords) const {
    if (!NonZero) {
        return;
    }
    double const x = coords->X;
    double const y = coords->Y;
    coords->X = x * CosLongitude - y * SinLongitude;
    coords->Y = x * SinLongitude + y * CosLongitude;
}

void TPrimeMeridian::TransformGeocentricFromGreenwich(TCoords* coords) const {
    if (!NonZero) {
        return;
    }
    double const x = coords->X;
    double const y = coords->Y;
    coords->X = x * CosLongitude + y * SinLongitude;
    coords->Y = y * CosLongitude - x * SinLongitude;
}

void TPrimeMeridian::TransformGeodeticToGreenwich(TCoords* coords) const {
    if (NonZero) {
        coords->X += Longitude;
    }
}

void TPrimeMeridian::TransformGeodeticFromGreenwich(TCoords* coords) const {
    if (NonZero) {
        coords->X -= Longitude;
    }
}

} // namespace KvRefSystem
