#pragma once

#include "core/projections/MapProjection.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <memory>
#include <tuple>
#include <type_traits>
#include <vector>

/** What the tests of all projections share. */
namespace ProjectionChecks {

using KvRefSystem::TCoords;
using KvRefSystem::TEllipsoidSemiAxes;
using KvRefSystem::TMapProjection;

inline constexpr double Pi = 3.141592653589793;
inline constexpr double Degree = Pi / 180;
inline constexpr double Infinity = std::numeric_limits<double>::infinity();
inline constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

inline constexpr TEllipsoidSemiAxes Wgs84 = {6378137, 6356752.314245179};
inline constexpr TEllipsoidSemiAxes Krassowsky = {6378245, 6356863.018773047};
inline constexpr TEllipsoidSemiAxes Bessel = {6377397.155, 6356078.962818189};
inline constexpr TEllipsoidSemiAxes International = {6378388, 6356911.9461279465};
inline constexpr TEllipsoidSemiAxes Clarke1866 = {6378206.4, 6356583.8};
inline constexpr TEllipsoidSemiAxes Airy = {6377563.396, 6377563.396 * (1 - 1 / 299.32496)};
inline constexpr TEllipsoidSemiAxes Sphere = {6371007, 6371007};
inline constexpr TEllipsoidSemiAxes UnitSphere = {1, 1};

/** Degrees, minutes, seconds to degrees. */
constexpr double Dms(double degrees, double minutes, double seconds) {
    return degrees + minutes / 60 + seconds / 3600;
}

/** Degrees, minutes, seconds to radians. */
constexpr double Angle(double degrees, double minutes, double seconds) {
    return Dms(degrees, minutes, seconds) * Degree;
}

// --- Places ------------------------------------------------------------------------------------------------

/** @param latitude, longitude degrees. @return easting and northing. */
TCoords Project(TMapProjection const& projection, double latitude, double longitude);

/** @return longitude and latitude, radians. */
TCoords Unproject(TMapProjection const& projection, double easting, double northing);

void ExpectNear(TCoords const& actual, double x, double y, double bound);
void ExpectEqual(TCoords const& actual, TCoords const& expected);
void ExpectNotANumber(TCoords const& actual);

/** Both ways of two projections give the same numbers: at the place (degrees) and at a point of the plane. */
void ExpectSameResults(TMapProjection const& first, TMapProjection const& second, double latitude = 41.5,
                       double longitude = 7.25);

/** The difference of longitudes isn't brought into half a turn: a turn more gives another place. */
void ExpectLongitudesUnwrapped(TMapProjection const& projection, double latitude, double longitude);

// --- Round trips -------------------------------------------------------------------------------------------

/** Distance (metres on a sphere of 6380 km) between a place in degrees and where it comes back. */
double RoundTripError(TMapProjection const& projection, double latitude, double longitude);

/** Degrees. */
struct TRegion {
    double South;
    double North;
    double West;
    double East;
};

/** A region on both sides of a meridian; degrees. */
constexpr TRegion AroundMeridian(double south, double north, double meridian, double reach) {
    return {south, north, meridian - reach, meridian + reach};
}

/**
 * Greatest distance (metres on the ground) between drawn places and where they come back; a NaN if one comes
 * back as such. @param turned the longitude that a result is meant to be off by (radians).
 */
double GreatestRoundTripError(TMapProjection const& projection, TRegion const& region, double turned = 0);

// --- Numbers of all kinds ----------------------------------------------------------------------------------

/**
 * Any number may come: both ways end, without allocating, and leave the height and its mark alone; results
 * of the way back are normalised; what is no number in comes out as none.
 */
void ExpectToTakeAnyNumber(TMapProjection const& projection);

void ExpectNoAllocation(TMapProjection const& projection);
void ExpectHeightsUntouched(TMapProjection const& projection);

// --- Records -----------------------------------------------------------------------------------------------

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

/** The record with each of its fields changed in turn: a number to the next one and by a quarter. */
template <class TRecord>
std::vector<TRecord> WithOneFieldChanged(TRecord const& record) {
    static_assert(std::is_standard_layout_v<TRecord> && sizeof(TRecord) % sizeof(double) == 0);
    std::vector<TRecord> others;
    std::size_t offset = 0;
    if constexpr (requires { record.Pole; }) {
        bool const north = record.Pole == KvRefSystem::poleNorth;
        others.push_back(record);
        others.back().Pole = north ? KvRefSystem::poleSouth : KvRefSystem::poleNorth;
        offset = sizeof(double);
    }
    for (; offset < sizeof(TRecord); offset += sizeof(double)) {
        double field = 0;
        std::memcpy(&field, reinterpret_cast<char const*>(&record) + offset, sizeof field);
        for (double const changed : {std::nextafter(field, Infinity), field + 0.25}) {
            others.push_back(record);
            std::memcpy(reinterpret_cast<char*>(&others.back()) + offset, &changed, sizeof changed);
        }
    }
    return others;
}

/** A class that hosts derive: of any type, equal to everything. */
class TForeignProjection final : public TMapProjection {
public:
    explicit TForeignProjection(KvRefSystem::TMapProjectionType type) : TMapProjection(type) {}
    bool operator==(TMapProjection const&) const override { return true; }
    void ProjectedToGeodetic(TCoords*) const override {}
    void GeodeticToProjected(TCoords*) const override {}
};

/** Equality looks at class and type, at each field of the record, exactly, and never at the ellipsoid. */
template <class TProjection, class TRecord>
void ExpectEqualityOfRecords(TRecord const& record) {
    TProjection const projection(&Wgs84, &record);
    TMapProjection const& base = projection;
    for (TEllipsoidSemiAxes const& axes : {Wgs84, Krassowsky, Bessel, International, Clarke1866, Sphere}) {
        EXPECT_TRUE(base == TProjection(&axes, &record)) << axes.a;
    }
    std::size_t change = 0;
    for (TRecord const& other : WithOneFieldChanged(record)) {
        TProjection const changed(&Wgs84, &other);
        EXPECT_FALSE(base == changed) << "change " << change;
        EXPECT_TRUE(changed != projection) << "change " << change;
        ++change;
    }
    TForeignProjection const foreign(projection.Type);
    // Compared as bases, so that the first one's operator decides.
    EXPECT_FALSE(base == static_cast<TMapProjection const&>(foreign)) << "another class of the same type";
    TForeignProjection const untyped(KvRefSystem::TMapProjectionType(0));
    EXPECT_FALSE(base == static_cast<TMapProjection const&>(untyped)) << "another class and type";
}

/** A null record leaves an object without parameters, which equals its like only. */
template <class TProjection, class TRecord>
void ExpectNullRecordToLeaveAnEmptyObject(TRecord const& record) {
    TProjection const empty(&Wgs84, nullptr);
    EXPECT_EQ(empty.Parameters, nullptr);
    EXPECT_TRUE(empty == TProjection(empty));
    EXPECT_FALSE(empty == TProjection(&Wgs84, &record));
    EXPECT_FALSE(TProjection(&Wgs84, &record) == empty);
}

// --- Objects -----------------------------------------------------------------------------------------------

/**
 * An object outlives the caller's record, a copy has a record of its own and outlives its source. The results
 * are compared at the place (degrees).
 */
template <class TProjection, class TRecord>
void ExpectCopiesToStandAlone(TEllipsoidSemiAxes const& axes, TRecord const& record, double latitude = 41.5,
                              double longitude = 7.25) {
    static_assert(sizeof(TMapProjection) == 16 && std::is_base_of_v<TMapProjection, TProjection>);
    static_assert(!std::is_copy_assignable_v<TProjection> && std::is_copy_constructible_v<TProjection>);
    TProjection const fresh(&axes, &record);
    auto callersRecord = std::make_unique<TRecord>(record);
    auto callersAxes = std::make_unique<TEllipsoidSemiAxes>(axes);
    auto source = std::make_unique<TProjection>(callersAxes.get(), callersRecord.get());
    EXPECT_NE(source->Parameters, callersRecord.get());
    callersRecord.reset();
    callersAxes.reset();
    ExpectSameResults(*source, fresh, latitude, longitude);

    TProjection const copy(*source);
    EXPECT_NE(copy.Parameters, source->Parameters);
    EXPECT_TRUE(copy == *source);
    EXPECT_EQ(copy.Type, source->Type);
    ExpectSameResults(copy, *source, latitude, longitude);
    source.reset();
    ExpectSameResults(copy, fresh, latitude, longitude);
}

/** Slot of a virtual function: its pointer to member holds 1 + 8 slots. */
template <class Function>
std::ptrdiff_t SlotOf(Function function) {
    std::ptrdiff_t words[2];
    static_assert(sizeof words == sizeof function);
    std::memcpy(words, &function, sizeof words);
    return (words[0] - 1) / 8;
}

template <class TProjection>
void ExpectOperationsInTheBasesSlots() {
    EXPECT_EQ(SlotOf(&TProjection::operator==), 2);
    EXPECT_EQ(SlotOf(&TProjection::ProjectedToGeodetic), 3);
    EXPECT_EQ(SlotOf(&TProjection::GeodeticToProjected), 4);
}

template <class Object, class Member>
std::ptrdiff_t OffsetIn(Object const& object, Member const& member) {
    return reinterpret_cast<char const*>(&member) - reinterpret_cast<char const*>(&object);
}

} // namespace ProjectionChecks
