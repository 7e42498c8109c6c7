#include "tests/oracle/Places.h"

#include <cmath>
#include <random>

namespace OracleTests {

namespace {

/** A number in [0, 1), by hand, since the standard leaves its own distributions to the library. */
double Fraction(std::mt19937_64& source) {
    return static_cast<double>(source() >> 11) * 0x1p-53;
}

} // namespace

std::vector<TPlace> GridOf(TRegion const& region, int steps) {
    std::vector<TPlace> places;
    for (int row = 0; row <= steps; ++row) {
        double const latitude = region.GreatestLatitude * (2.0 * row / steps - 1);
        for (int column = 0; column <= 2 * steps; ++column) {
            double const longitude = 180.0 * column / steps - 180.0;
            for (int level = 0; level <= steps; ++level) {
                double const height =
                    region.LeastHeight + (region.GreatestHeight - region.LeastHeight) * level / steps;
                places.push_back({latitude, longitude, height});
            }
        }
    }
    return places;
}

std::vector<TPlace> DrawFrom(TRegion const& region, int count, std::uint64_t seed) {
    std::mt19937_64 source(seed);
    std::vector<TPlace> places;
    for (int number = 0; number < count; ++number) {
        double const latitude = region.GreatestLatitude * (2 * Fraction(source) - 1);
        double const longitude = 360 * Fraction(source) - 180;
        double const height =
            region.LeastHeight + (region.GreatestHeight - region.LeastHeight) * Fraction(source);
        places.push_back({latitude, longitude, height});
    }
    return places;
}

std::vector<TPlace> EdgesOf(TRegion const& region) {
    std::vector<TPlace> places;
    double const top = region.GreatestLatitude;
    for (double const latitude : {-top, -45.0, -1e-9, 0.0, 1e-9, 44.9, 45.0, 45.1, top}) {
        for (double const longitude : {-180.0, -179.999999, -90.0, -1e-9, 0.0, 90.0, 179.999999, 180.0}) {
            for (double const height : {region.LeastHeight, 0.0, region.GreatestHeight}) {
                places.push_back({latitude, longitude, height});
            }
        }
    }
    return places;
}

std::vector<TPlace> EdgesAndDrawn(TRegion const& region, int count, std::uint64_t seed) {
    std::vector<TPlace> places = EdgesOf(region);
    std::vector<TPlace> const drawn = DrawFrom(region, count, seed);
    places.insert(places.end(), drawn.begin(), drawn.end());
    return places;
}

double GroundDistance(TPlace const& first, TPlace const& second) {
    double const metres = 6.4e6 * Degree;
    double const north = (first.Latitude - second.Latitude) * metres;
    double const east = std::remainder(first.Longitude - second.Longitude, 360.0) * metres *
                        std::cos(first.Latitude * Degree);
    return std::hypot(north, east, first.Height - second.Height);
}

} // namespace OracleTests
