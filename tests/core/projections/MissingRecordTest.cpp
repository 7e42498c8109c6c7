#include "core/projections/AlbersEqualAreaConic.h"
#include "core/projections/EquidistantConic.h"
#include "core/projections/LambertConicConformal.h"
#include "core/projections/Mercator.h"
#include "core/projections/ObliqueMercator.h"
#include "core/projections/SphericalMercator.h"

#include <gtest/gtest.h>

#include <utility>

/** Projections from which a host has taken the record, which is a public member. */
namespace {

using namespace KvRefSystem;

constexpr TEllipsoidSemiAxes Wgs84 = {6378137.0, 6356752.314245179};

/** A copy has no record either; two that lack theirs are equal, and one that has it is like none of them. */
template <class Projection, class Record, class... Field>
void ExpectMissingRecordCompared(Field... fields) {
    Record const record(fields...);
    Projection const whole(&Wgs84, &record);
    Projection lacking(&Wgs84, &record);
    EXPECT_TRUE(whole == lacking);
    delete std::exchange(lacking.Parameters, nullptr);
    Projection const copy(lacking);

    EXPECT_EQ(copy.Parameters, nullptr);
    EXPECT_TRUE(copy == lacking);
    EXPECT_FALSE(whole == lacking);
    EXPECT_FALSE(lacking == whole);
}

#define EXPECT_COMPARED(name, ...)                                                                           \
    ExpectMissingRecordCompared<T##name##MapProjection, T##name##MapProjectionParameters>(__VA_ARGS__)

TEST(MissingRecord, OfAConeIsCopiedAndCompared) {
    EXPECT_COMPARED(AlbersEqualAreaConic, 0.5, 0.6, 0.7, 0.8, 2.0, 3.0);
    EXPECT_COMPARED(EquidistantConic, 0.5, 0.6, 0.7, 0.8, 2.0, 3.0);
    EXPECT_COMPARED(LambertConicConformal1SP, 0.5, 0.6, 0.9, 2.0, 3.0);
    EXPECT_COMPARED(LambertConicConformal2SP, 0.5, 0.6, 0.7, 0.8, 2.0, 3.0);
}

TEST(MissingRecord, OfACylinderIsCopiedAndCompared) {
    EXPECT_COMPARED(Mercator1SP, 0.5, 0.6, 0.9, 2.0, 3.0);
    EXPECT_COMPARED(Mercator2SP, 0.5, 0.6, 2.0, 3.0);
    EXPECT_COMPARED(SphericalMercator, 0.5, 0.9, 2.0, 3.0);
    EXPECT_COMPARED(HotineObliqueMercator, 0.5, 0.6, 0.7, 0.8, 0.9, 2.0, 3.0);
    EXPECT_COMPARED(ObliqueMercator, 0.5, 0.6, 0.7, 0.8, 0.9, 2.0, 3.0);
}

TEST(MissingRecord, MayBeMissingFromTheBeginning) {
    EXPECT_EQ(THotineObliqueMercatorMapProjection(&Wgs84, nullptr).Parameters, nullptr);
    EXPECT_EQ(TObliqueMercatorMapProjection(&Wgs84, nullptr).Parameters, nullptr);
    EXPECT_EQ(TSphericalMercatorMapProjection(&Wgs84, nullptr).Parameters, nullptr);
}

} // namespace
