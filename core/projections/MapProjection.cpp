#include "core/projections/MapProjection.h"

#include <cmath>

namespace KvRefSystem {

TMapProjection::TMapProjection(TMapProjectionType projectionType) : Type(projectionType) {}

TMapProjection::~TMapProjection() = default;

TMapProjectionType TMapProjection::IntToType(int value) {
    constexpr int OlderKrovak = 18; // descriptions with this number exist
    if (value == OlderKrovak) {
        return mptKrovak;
    }
    bool const known = (value >= mptTransverseMercator && value <= mptHatt) ||
                       (value >= mptPolarStereographicBasic && value <= mptOrthographic) ||
                       value == mptGaussKrugerWide || (value >= mptGaussKruger6 && value <= mptSK63) ||
                       value == mptLambertConicConformal2SPBelgium || value == mptSphericalMercator;
    return static_cast<TMapProjectionType>(known ? value : 0);
}

int GetMapProjectionParametersNumber(TMapProjectionType type) {
    switch (type) {
    case mptTransverseMercator:
        return 5;
    case mptGaussKruger6:
    case mptUTM:
        return 2;
    default:
        return 0;
    }
}

double arcsin(double value) {
    if (value > 1) {
        return std::asin(1.0);
    }
    if (value < -1) {
        return std::asin(-1.0);
    }
    return std::asin(value);
}

} // namespace KvRefSystem
