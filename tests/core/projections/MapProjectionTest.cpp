#include "core/projections/MapProjection.h"

#include "core/projections/Hatt.h"
#include "core/projections/LambertConicConformal.h"
#include "core/projections/TransverseMercator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

namespace {

using namespace KvRefSystem;

constexpr TEllipsoidSemiAxes Wgs84 = {6378137.0, 6356752.314245179};

/** A projection that claims any type. */
class TClaimingProjection : public TMapProjection {
public:
    explicit TClaimingProjection(int type) : TMapProjection(static_cast<TMapProjectionType>(type)) {}
    bool operator==(TMapProjection const&) const override { return false; }
    void ProjectedToGeodetic(TCoords*) const override {}
    void GeodeticToProjected(TCoords*) const override {}
};

TEST(MapProjection, StoredNumbersOfTheCatalogueAreTheirOwnTypes) {
    for (int value = -100; value <= 2000; ++value) {
        bool const known = (value >= 1 && value <= 17) || (value >= 21 && value <= 26) || value == 101 ||
                           (value >= 1001 && value <= 1004) || value == 1201 || value == 1313;
        int const expected = known ? value : value == 18 ? 16 : 0;
        EXPECT_EQ(TMapProjection::IntToType(value), expected) << value;
    }
}

TEST(MapProjection, TheOlderNumberOfKrovakIsReadAsTheNewer) {
    EXPECT_EQ(TMapProjection::IntToType(18), mptKrovak);
}

TEST(MapProjection, ParametersAreCountedForTheThreeShortListsOnly) {
    for (int value = -1; value <= 2000; ++value) {
        int const expected = value == 1 ? 5 : value == 1001 || value == 1002 ? 2 : 0;
        EXPECT_EQ(GetMapProjectionParametersNumber(static_cast<TMapProjectionType>(value)), expected)
            << value;
    }
}

TEST(MapProjection, TheArcSineIsClampedAndKeepsNaN) {
    constexpr double HalfPi = 1.5707963267948966;
    EXPECT_EQ(arcsin(1.0000001), HalfPi);
    EXPECT_EQ(arcsin(-7), -HalfPi);
    EXPECT_EQ(arcsin(std::numeric_limits<double>::infinity()), HalfPi);
    EXPECT_DOUBLE_EQ(arcsin(0.5), 0.5235987755982989); // pi / 6
    EXPECT_TRUE(std::isnan(arcsin(std::numeric_limits<double>::quiet_NaN())));
}

TEST(MapProjection, TypesWithoutAClassAreNotCopied) {
    for (int const type : {0, 18, 19, 27, 1001, 1002, 1003, 1004, 5000, -1}) {
        EXPECT_EQ(CreateCopy(TClaimingProjection(type)), nullptr) << type;
    }
}

TEST(MapProjection, AClassThatClaimsAnothersTypeIsNotCopied) {
    for (int type = 1; type <= 1313; ++type) {
        EXPECT_EQ(CreateCopy(TClaimingProjection(type)), nullptr) << type;
    }
}

TEST(MapProjection, AClassThatClaimsAnothersTypeIsNotEqualToIt) {
    TLambertConicConformal2SPMapProjectionParameters const conic(0.7, 0.8, 1.57, 0.08, 150000, 5400000);
    TTransverseMercatorMapProjectionParameters const cylinder(0.08, 0, 1, 0, 0);
    THattMapProjectionParameters const azimuthal(0.7, 0.4);
    TLambertConicConformal2SPMapProjection const first(&Wgs84, &conic);
    TTransverseMercatorMapProjection const second(&Wgs84, &cylinder);
    THattMapProjection const third(&Wgs84, &azimuthal);

    for (TMapProjection const* const projection :
         {static_cast<TMapProjection const*>(&first), static_cast<TMapProjection const*>(&second),
          static_cast<TMapProjection const*>(&third)}) {
        TClaimingProjection const claiming(projection->Type);
        // As the base: the claiming class's own operator would answer for itself.
        TMapProjection const& other = claiming;
        EXPECT_FALSE(*projection == other) << projection->Type;
    }
}

TEST(MapProjection, CopiesKeepClassAndTypeOfADerivedProjection) {
    TLambertConicConformal2SPMapProjectionParameters const parameters(0.7, 0.8, 1.57, 0.08, 150000, 5400000);
    TLambertConicConformal2SPBelgiumMapProjection const belgium(&Wgs84, &parameters);

    std::unique_ptr<TMapProjection> const copy(CreateCopy(belgium));

    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->Type, mptLambertConicConformal2SPBelgium);
    EXPECT_NE(dynamic_cast<TLambertConicConformal2SPBelgiumMapProjection const*>(copy.get()), nullptr);
    EXPECT_TRUE(*copy == belgium);
}

TEST(MapProjection, TwoClassesAreComparedBothWaysWithoutAmbiguity) {
    TLambertConicConformal2SPMapProjectionParameters const conic(0.7, 0.8, 1.57, 0.08, 150000, 5400000);
    TTransverseMercatorMapProjectionParameters const cylinder(0.08, 0, 1, 0, 0);
    TLambertConicConformal2SPMapProjection const first(&Wgs84, &conic);
    TTransverseMercatorMapProjection const second(&Wgs84, &cylinder);

    EXPECT_FALSE(first == second);
    EXPECT_FALSE(second == first);
    EXPECT_TRUE(first == first);
}

static_assert(sizeof(TMapProjection) == 16);

} // namespace
