#pragma once

#include "core/projections/MapProjection.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <memory>
#include <random>
#include <tuple>
#include <type_traits>

/** What every projection that belongs to no family has to keep. */
namespace PlaneChecks {

using KvRefSystem::TCoords;
using KvRefSystem::TEllipsoidSemiAxes;
using KvRefSystem::TMapProjection;

inline constexpr double Pi = 3.141592653589793;
inline constexpr double Degree = Pi / 180;
inline constexpr double Infinity = std::numeric_limits<double>::infinity();
inline constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

inline constexpr TEllipsoidSemiAxes Wgs84 = {6378137, 6356752.314245179};
inline constexpr TEllipsoidSemiAxes Bessel = {6377397.155, 6356078.962818189};
inline constexpr TEllipsoidSemiAxes International = {6378388, 6356911.9461279465};
inline constexpr TEllipsoidSemiAxes Clarke1866 = {6378206.4, 6356583.8};

constexpr double Dms(double degrees, double minutes, double seconds) {
    return degrees + minutes / 60 + seconds / 3600;
}

/** @param latitude, longitude degrees. @return easting and northing. */
inline TCoords Project(TMapProjection const& projection, double latitude, double longitude) {
    TCoords point{longitude * Degree, latitude * Degree, 0, false};
    projection.GeodeticToProjected(&point);
    return point;
}

/** @return longitude and latitude, radians. */
inline TCoords Unproject(TMapProjection const& projection, double easting, double northing) {
    TCoords point{easting, northing, 0, false};
    projection.ProjectedToGeodetic(&point);
    return point;
}

inline void ExpectNear(TCoords const& point, double x, double y, double tolerance) {
    EXPECT_NEAR(point.X, x, tolerance);
    EXPECT_NEAR(point.Y, y, tolerance);
}

/** Degrees. */
struct TRegion {
    double South;
    double North;
    double West;
    double East;
};

/** Greatest distance (metres on the ground) between drawn places and where a round trip leaves them. */
inline double GreatestRoundTrip(TMapProjection const& projection, TRegion const& region) {
    std::mt19937_64 engine(30091);
    auto const drawn = [&engine](double low, double high) {
        return low + (high - low) * (static_cast<double>(engine() >> 11U) * 0x1p-53);
    };
    double greatest = 0;
    for (int i = 0; i < 5000; ++i) {
        double const phi = drawn(region.South, region.North) * Degree;
        double const lambda = drawn(region.West, region.East) * Degree;
        TCoords point{lambda, phi, 0, false};
        projection.GeodeticToProjected(&point);
        projection.ProjectedToGeodetic(&point);
        double const away =
            6.4e6 * std::hypot(point.Y - phi, std::remainder(point.X - lambda, 2 * Pi) * std::cos(phi));
        if (!(away <= greatest)) {
            greatest = away; // a NaN too, and it stays
        }
    }
    return greatest;
}

template <class TRecord, std::size_t Count>
TRecord RecordOf(std::array<double, Count> const& fields) {
    return std::apply([](auto const&... values) { return TRecord(values...); }, fields);
}

/** The record's constructor takes the fields in their stored order, and there is nothing else in it. */
template <class TRecord, std::size_t Count>
void ExpectRecordInStoredOrder(std::array<double, Count> const& fields) {
    static_assert(sizeof(TRecord) == Count * sizeof(double));
    static_assert(std::is_standard_layout_v<TRecord> && std::is_trivially_copyable_v<TRecord>);
    TRecord const record = RecordOf<TRecord>(fields);
    std::array<double, Count> stored{};
    std::memcpy(stored.data(), &record, sizeof record);
    EXPECT_EQ(stored, fields);
}

/** Equality looks at each field of the record, exactly, and never at the ellipsoid. */
template <class TProjection, class TRecord, std::size_t Count>
void ExpectEqualityOfRecords(std::array<double, Count> const& fields) {
    TRecord const record = RecordOf<TRecord>(fields);
    TProjection const projection(&Wgs84, &record);
    TMapProjection const& base = projection;
    EXPECT_TRUE(base == TProjection(&Wgs84, &record));
    EXPECT_TRUE(base == TProjection(&International, &record));
    for (std::size_t i = 0; i < Count; ++i) {
        std::array<double, Count> other = fields;
        other[i] = std::nextafter(other[i], Infinity);
        TRecord const otherRecord = RecordOf<TRecord>(other);
        EXPECT_FALSE(base == TProjection(&Wgs84, &otherRecord)) << "field " << i;
    }
}

/** A copy has a record of its own and outlives its source. */
template <class TProjection, class TRecord, std::size_t Count>
void ExpectCopiesToStandAlone(std::array<double, Count> const& fields, double latitude, double longitude) {
    static_assert(sizeof(TMapProjection) == 16 && std::is_base_of_v<TMapProjection, TProjection>);
    static_assert(!std::is_copy_assignable_v<TProjection> && std::is_copy_constructible_v<TProjection>);
    auto record = std::make_unique<TRecord>(RecordOf<TRecord>(fields));
    auto axes = std::make_unique<TEllipsoidSemiAxes>(Wgs84);
    auto source = std::make_unique<TProjection>(axes.get(), record.get());
    EXPECT_NE(source->Parameters, record.get());
    record.reset();
    axes.reset();
    TCoords const plane = Project(*source, latitude, longitude);
    TCoords const back = Unproject(*source, plane.X, plane.Y);

    TProjection const copy(*source);
    EXPECT_NE(copy.Parameters, source->Parameters);
    EXPECT_TRUE(copy == *source);
    EXPECT_EQ(copy.Type, source->Type);
    source.reset();
    EXPECT_EQ(Project(copy, latitude, longitude), plane);
    EXPECT_EQ(Unproject(copy, plane.X, plane.Y), back);
}

/** Any number may come: both ways end, without allocating, and leave the height alone. */
inline void ExpectToTakeAnyNumber(TMapProjection const& projection) {
    double const numbers[] = {0,    -0.0, Pi / 2, -Pi / 2,  Pi,        -Pi,       4,
                              1e-8, 1e6,  -2e7,   6378137., 1e300,     -1e-300,   std::nextafter(Pi / 2, 0),
                              1e17, -1.6, 1.6,    Infinity, -Infinity, NotANumber};
    std::size_t const before = KvRefSystemTests::AllocationCount();
    int touched = 0;
    int unnormalised = 0;
    for (double const x : numbers) {
        for (double const y : numbers) {
            TCoords forward{x, y, 77, true};
            TCoords reverse{x, y, 77, true};
            projection.GeodeticToProjected(&forward);
            projection.ProjectedToGeodetic(&reverse);
            touched += forward.Z != 77 || !forward.ZUndefined || reverse.Z != 77 || !reverse.ZUndefined;
            // A NaN passes; so do longitudes that are too great for whole turns to be told apart.
            unnormalised += reverse.Y > Pi / 2 || reverse.Y < -Pi / 2 ||
                            (std::fabs(reverse.X) > Pi && std::fabs(reverse.X) < 1e9);
        }
    }
    EXPECT_EQ(KvRefSystemTests::AllocationCount() - before, 0U);
    EXPECT_EQ(touched, 0);
    EXPECT_EQ(unnormalised, 0);
}

/** The difference of longitudes isn't brought into half a turn: a turn more gives another place. */
inline void ExpectLongitudesUnwrapped(TMapProjection const& projection, double latitude, double longitude) {
    TCoords const here = Project(projection, latitude, longitude);
    TCoords const turned = Project(projection, latitude, longitude + 360);
    EXPECT_GT(std::hypot(here.X - turned.X, here.Y - turned.Y), 1e5);
}

} // namespace PlaneChecks
