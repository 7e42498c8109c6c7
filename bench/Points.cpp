#include "bench/Points.h"

#include <cstdint>
#include <random>

namespace VellariBench {

std::vector<TTriple> GeodeticPoints() {
    std::mt19937_64 source(1942);
    auto const fraction = [&source] { return static_cast<double>(source() >> 11) * 0x1p-53; };
    std::vector<TTriple> points;
    points.reserve(PointCount);
    for (std::size_t number = 0; number < PointCount; ++number) {
        double const latitude = 170 * fraction() - 85;
        double const longitude = 360 * fraction() - 180;
        double const height = 9100 * fraction() - 100;
        points.push_back({latitude, longitude, height});
    }
    return points;
}

} // namespace VellariBench
