#include "tests/core/projections/ProjectionChecks.h"

#include "tests/support/AllocationCount.h"

#include <algorithm>
#include <random>

namespace ProjectionChecks {

namespace {

/** Between a place (degrees) and where it comes back, radians. */
double RoundTripAngle(TMapProjection const& projection, double latitude, double longitude, double turned) {
    TCoords const plane = Project(projection, latitude, longitude);
    TCoords const back = Unproject(projection, plane.X, plane.Y);
    double const east = std::remainder(back.X - longitude * Degree - turned, 2 * Pi);
    return std::hypot(back.Y - latitude * Degree, east * std::cos(latitude * Degree));
}

bool Keeps(TCoords const& point, double height, bool undefined) {
    return point.Z == height && point.ZUndefined == undefined;
}

struct TSideEffects {
    std::size_t Allocations;
    int TouchedHeights;
};

bool IsFinite(TCoords const& point) {
    return std::isfinite(point.X) && std::isfinite(point.Y);
}

/** Calls `visit(given, forward, reverse)` with numbers of all kinds and what the two ways make of them. */
template <class Visit>
TSideEffects Sweep(TMapProjection const& projection, Visit visit) {
    constexpr double Height = 123.5;
    double const numbers[] = {
        0,      -0.0,    1e-300,   -1e-300,  1e-8,      0.1,       0.9,  std::nextafter(Pi / 2, 0),
        Pi / 2, -Pi / 2, 1.6,      -1.6,     3,         -3,        Pi,   -Pi,
        4,      1e6,     6378137., 1e7,      -1e7,      -2e7,      -1e9, 1e17,
        1e20,   1e300,   -1e300,   Infinity, -Infinity, NotANumber};
    std::size_t const before = KvRefSystemTests::AllocationCount();
    int touched = 0;
    for (bool const undefined : {false, true}) {
        for (double const x : numbers) {
            for (double const y : numbers) {
                TCoords const given{x, y, Height, undefined};
                TCoords forward = given;
                projection.GeodeticToProjected(&forward);
                TCoords back = forward;
                projection.ProjectedToGeodetic(&back);
                TCoords reverse = given;
                projection.ProjectedToGeodetic(&reverse);
                touched += !Keeps(forward, Height, undefined) || !Keeps(back, Height, undefined) ||
                           !Keeps(reverse, Height, undefined);
                visit(given, forward, reverse);
            }
        }
    }
    return {KvRefSystemTests::AllocationCount() - before, touched};
}

TSideEffects Sweep(TMapProjection const& projection) {
    return Sweep(projection, [](TCoords const&, TCoords const&, TCoords const&) {});
}

} // namespace

TCoords Project(TMapProjection const& projection, double latitude, double longitude) {
    TCoords point{longitude * Degree, latitude * Degree, 0, false};
    projection.GeodeticToProjected(&point);
    return point;
}

TCoords Unproject(TMapProjection const& projection, double easting, double northing) {
    TCoords point{easting, northing, 0, false};
    projection.ProjectedToGeodetic(&point);
    return point;
}

void ExpectNear(TCoords const& actual, double x, double y, double bound) {
    EXPECT_NEAR(actual.X, x, bound);
    EXPECT_NEAR(actual.Y, y, bound);
}

void ExpectEqual(TCoords const& actual, TCoords const& expected) {
    EXPECT_EQ(actual.X, expected.X);
    EXPECT_EQ(actual.Y, expected.Y);
    EXPECT_TRUE(actual == expected); // the heights too
}

void ExpectNotANumber(TCoords const& actual) {
    EXPECT_TRUE(std::isnan(actual.X));
    EXPECT_TRUE(std::isnan(actual.Y));
}

void ExpectSameResults(TMapProjection const& first, TMapProjection const& second, double latitude,
                       double longitude) {
    TCoords const plane = Project(first, latitude, longitude);
    ExpectEqual(plane, Project(second, latitude, longitude));
    ExpectEqual(Unproject(first, plane.X, plane.Y), Unproject(second, plane.X, plane.Y));
    ExpectEqual(Unproject(first, 123456.5, -65432.25), Unproject(second, 123456.5, -65432.25));
}

void ExpectLongitudesUnwrapped(TMapProjection const& projection, double latitude, double longitude) {
    TCoords const here = Project(projection, latitude, longitude);
    TCoords const turned = Project(projection, latitude, longitude + 360);
    EXPECT_GT(std::hypot(here.X - turned.X, here.Y - turned.Y), 1e5);
}

double RoundTripError(TMapProjection const& projection, double latitude, double longitude) {
    return 6.38e6 * RoundTripAngle(projection, latitude, longitude, 0);
}

double GreatestRoundTripError(TMapProjection const& projection, TRegion const& region, double turned) {
    constexpr double GreatestRadius = 6.4e6; // of curvature, on any ellipsoid of the earth
    constexpr int Places = 20000;
    std::mt19937_64 generator(20117);
    auto const drawn = [&generator](double low, double high) {
        return low + (high - low) * (static_cast<double>(generator() >> 11U) * 0x1p-53);
    };
    double greatest = 0;
    for (int place = 0; place < Places; ++place) {
        double const latitude = drawn(region.South, region.North);
        double const longitude = drawn(region.West, region.East);
        double const error = GreatestRadius * RoundTripAngle(projection, latitude, longitude, turned);
        if (std::isnan(error)) {
            return error;
        }
        greatest = std::max(greatest, error);
    }
    return greatest;
}

void ExpectToTakeAnyNumber(TMapProjection const& projection) {
    int unnormalised = 0;
    int fromNone = 0;
    auto const look = [&](TCoords const& given, TCoords const& forward, TCoords const& reverse) {
        // A NaN passes; so do longitudes that are too great for whole turns to be told apart.
        unnormalised +=
            std::fabs(reverse.Y) > Pi / 2 || (std::fabs(reverse.X) > Pi && std::fabs(reverse.X) < 1e8);
        fromNone += !IsFinite(given) && IsFinite(forward);
        fromNone +=
            (std::isnan(given.X) || std::isnan(given.Y)) && !std::isnan(reverse.X) && !std::isnan(reverse.Y);
    };
    TSideEffects const effects = Sweep(projection, look);
    EXPECT_EQ(effects.Allocations, 0U);
    EXPECT_EQ(effects.TouchedHeights, 0);
    EXPECT_EQ(unnormalised, 0);
    EXPECT_EQ(fromNone, 0);
}

void ExpectNoAllocation(TMapProjection const& projection) {
    EXPECT_EQ(Sweep(projection).Allocations, 0U);
}

void ExpectHeightsUntouched(TMapProjection const& projection) {
    EXPECT_EQ(Sweep(projection).TouchedHeights, 0);
}

} // namespace ProjectionChecks
