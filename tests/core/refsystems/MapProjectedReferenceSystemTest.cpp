#include "core/refsystems/MapProjectedReferenceSystem.h"

#include "core/primitives/BursaWolfDatumShift.h"
#include "core/projections/TransverseMercator.h"
#include "core/refsystems/LocalCartesianReferenceSystem.h"
#include "core/transforms/PlaneAndVertical.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using namespace KvRefSystem;

constexpr double Degree = 0.017453292519943295;
constexpr double A = 6378137.0;
constexpr double B = 6356752.314245179;

/** A projection whose coordinates are the angles, which counts its destructions. */
class TCountedProjection : public TMapProjection {
public:
    explicit TCountedProjection(int* destructionCount)
        : TMapProjection(mptTransverseMercator), destructions(destructionCount) {}
    ~TCountedProjection() override { ++*destructions; }
    bool operator==(TMapProjection const& other) const override { return this == &other; }
    void ProjectedToGeodetic(TCoords*) const override { throw std::out_of_range("outside of the map"); }
    void GeodeticToProjected(TCoords*) const override {}

private:
    int* destructions;
};

/** A transform that can't be copied. */
class TUncopyable : public TRefSystemTransform {
public:
    TUncopyable() : TRefSystemTransform(static_cast<TReferenceSystemTransformType>(99)) {}
    bool operator==(TRefSystemTransform const&) const override { return false; }
    void BaseToTransformed(TReferenceSystem const*, TCoords*) const override {}
    void TransformedToBase(TReferenceSystem const*, TCoords*) const override {}
};

TGeodeticReferenceSystem Geodetic(TDatumShift const* shift = nullptr) {
    TEllipsoid const ellipsoid(A, B);
    return TGeodeticReferenceSystem(shift, nullptr, &ellipsoid, {}, {});
}

TMapProjection* Projection(double scale = 1.0) {
    TEllipsoidSemiAxes const axes = {A, B};
    TTransverseMercatorMapProjectionParameters const parameters(39 * Degree, 0.0, scale, 7500000.0, 0.0);
    return new TTransverseMercatorMapProjection(&axes, &parameters);
}

TMapProjectedReferenceSystem Projected(TDatumShift const* shift = nullptr, double scale = 1.0) {
    TGeodeticReferenceSystem const geodetic = Geodetic(shift);
    return TMapProjectedReferenceSystem(&geodetic, Projection(scale), {}, {});
}

TEST(MapProjectedReferenceSystem, ProjectsAndComesBack) {
    TGeodeticReferenceSystem const geodetic = Geodetic();
    TMapProjectedReferenceSystem const projected = Projected();
    TCoords point{37 * Degree, 55 * Degree, 200, false};

    geodetic.OperateCoords(projected, &point);

    // Series of the meridian arc and its terms in 40 digits for (55, 37), central meridian 39.
    EXPECT_NEAR(point.X, 7372020.6169, 1e-4);
    EXPECT_NEAR(point.Y, 6099060.3312, 1e-4);
    EXPECT_NEAR(point.Z, 200, 1e-6);
    projected.OperateCoords(geodetic, &point);
    // Two degrees from the central meridian the series' way back is good to half a millimetre.
    constexpr double HalfMillimetre = 5e-9; // degrees
    EXPECT_NEAR(point.X / Degree, 37, 2 * HalfMillimetre);
    EXPECT_NEAR(point.Y / Degree, 55, HalfMillimetre);
}

TEST(MapProjectedReferenceSystem, KnowsItsStages) {
    TMapProjectedReferenceSystem const system = Projected();

    EXPECT_EQ(system.RelatedMapProjectedRefSystem(), &system);
    EXPECT_EQ(system.RelatedGeodeticRefSystem(), system.GeodeticSystem);
    EXPECT_EQ(system.RelatedGeocentricRefSystem(), system.GeodeticSystem->GeocentricSystem);
    EXPECT_EQ(system.RelatedTopocentricHorizontalRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedLocalCartesianRefSystem(), nullptr);
    EXPECT_EQ(system.Type, rstMapProjected);
    double steps[3] = {};
    system.GetAxisStepsBase(steps);
    EXPECT_EQ(steps[0], 1.0);
    EXPECT_EQ(steps[1], 1.0);
    EXPECT_EQ(steps[2], 1.0);
}

TEST(MapProjectedReferenceSystem, TheDatumShiftIsReplacedTwoLevelsDown) {
    TMapProjectedReferenceSystem system = Projected();
    TBursaWolfDatumShift const shift(TBursaWolfDatumShiftParameters(1, 2, 3));

    EXPECT_FALSE(system.ContainsDatum());
    EXPECT_TRUE(system.ReplaceDatumShift(&shift));
    EXPECT_TRUE(system.ContainsDatum());
    EXPECT_FALSE(system.NonlinearDatum());
    EXPECT_NE(system.GeodeticSystem->GeocentricSystem->DatumShift, nullptr);
}

TEST(MapProjectedReferenceSystem, TheProjectionIsGivenUpInEveryCase) {
    TGeodeticReferenceSystem const geodetic = Geodetic();
    TRefSystemTransformsSet uncopyable;
    uncopyable.TransformList.push_back(new TUncopyable);
    int destructions = 0;

    EXPECT_THROW(
        TMapProjectedReferenceSystem(&geodetic, new TCountedProjection(&destructions), uncopyable, {}),
        std::runtime_error);
    EXPECT_EQ(destructions, 1);
    EXPECT_THROW(TMapProjectedReferenceSystem(nullptr, new TCountedProjection(&destructions), {}, {}),
                 std::runtime_error);
    EXPECT_EQ(destructions, 2);
    { TMapProjectedReferenceSystem const system(&geodetic, new TCountedProjection(&destructions), {}, {}); }
    EXPECT_EQ(destructions, 3);
    EXPECT_THROW(TMapProjectedReferenceSystem(&geodetic, nullptr, {}, {}), std::runtime_error);
}

TEST(MapProjectedReferenceSystem, ACopyWithoutAProjectionThrowsItsText) {
    TGeodeticReferenceSystem const geodetic = Geodetic();
    int destructions = 0;
    // The class claims a type that isn't its own, so it can't be copied.
    TMapProjectedReferenceSystem const system(&geodetic, new TCountedProjection(&destructions), {}, {});

    try {
        TMapProjectedReferenceSystem const copy(system);
        FAIL();
    } catch (std::runtime_error const& failure) {
        EXPECT_STREQ(failure.what(), "TMapProjectedReferenceSystem::TMapProjectedReferenceSystem(const "
                                     "TMapProjectedReferenceSystem&)");
    }
    EXPECT_EQ(CreateCopy(static_cast<TReferenceSystem const&>(system)), nullptr);
}

TEST(MapProjectedReferenceSystem, ACopyIsEqual) {
    TMapProjectedReferenceSystem const system = Projected();

    std::unique_ptr<TReferenceSystem> const copy(CreateCopy(static_cast<TReferenceSystem const&>(system)));

    ASSERT_NE(copy, nullptr);
    EXPECT_TRUE(*copy == system);
}

TEST(MapProjectedReferenceSystem, EqualityLooksAtBaseProjectionAndOwnChain) {
    TBursaWolfDatumShift const shift(TBursaWolfDatumShiftParameters(1, 2, 3));
    TMapProjectedReferenceSystem const system = Projected();
    TMapProjectedReferenceSystem withChain = Projected();
    withChain.Transforms.AddNextTransform(TPlaneShiftRefSystemTransform(1, 2));
    TMapProjectedReferenceSystem withPairwise = Projected();
    withPairwise.SetPairwiseTransforms("key", {});

    EXPECT_TRUE(system == Projected());
    EXPECT_FALSE(system == Projected(&shift));
    EXPECT_FALSE(system == Projected(nullptr, 0.9996));
    EXPECT_FALSE(system == withChain);
    EXPECT_TRUE(system == withPairwise);
    EXPECT_FALSE(system == Geodetic());
    EXPECT_FALSE(Geodetic() == system);
}

TEST(MapProjectedReferenceSystem, PreservesHeightsToItsOwnBaseBothWays) {
    TMapProjectedReferenceSystem const system = Projected();
    TGeodeticReferenceSystem const geodetic = Geodetic();
    TMapProjectedReferenceSystem lifted = Projected();
    lifted.Transforms.AddNextTransform(TVerticalShiftRefSystemTransform(5));

    EXPECT_TRUE(system.PreservesHeights(geodetic));
    EXPECT_TRUE(geodetic.PreservesHeights(system));
    EXPECT_TRUE(system.PreservesHeights(system));
    // Kept: a height shift counts as height-preserving.
    EXPECT_TRUE(system.PreservesHeights(lifted));
}

TEST(MapProjectedReferenceSystem, OtherKindsAreRefusedForHeights) {
    TMapProjectedReferenceSystem const system = Projected();
    TGeocentricReferenceSystem const geocentric(nullptr, nullptr, {}, {});

    try {
        system.PreservesHeights(geocentric);
        FAIL();
    } catch (std::logic_error const& failure) {
        EXPECT_STREQ(failure.what(), "@PreservesHeights(): invalid refsystem type.");
    }
}

TEST(MapProjectedReferenceSystem, AnUnreachableTargetIsRefusedBeforeTheProjectionRuns) {
    TGeodeticReferenceSystem const geodetic = Geodetic();
    int destructions = 0;
    TMapProjectedReferenceSystem const system(&geodetic, new TCountedProjection(&destructions), {}, {});
    TLocalCartesianReferenceSystem const target(rscoLeft, {}, {});
    TCoords point{1, 2, 3, false};

    try {
        system.OperateCoords(target, &point);
        FAIL();
    } catch (std::logic_error const& failure) {
        EXPECT_STREQ(failure.what(), ":(");
    }
    EXPECT_EQ(point, (TCoords{1, 2, 3, false}));
}

TEST(MapProjectedReferenceSystem, FailuresOfTheProjectionPass) {
    TGeodeticReferenceSystem const geodetic = Geodetic();
    int destructions = 0;
    TMapProjectedReferenceSystem const system(&geodetic, new TCountedProjection(&destructions), {}, {});
    TCoords point{1, 2, 3, false};

    EXPECT_THROW(system.OperateCoords(geodetic, &point), std::out_of_range);
}

TEST(MapProjectedReferenceSystem, TheWorldIsReachedThroughTheProjection) {
    TBursaWolfDatumShift const shift(TBursaWolfDatumShiftParameters(100, 200, 300));
    TMapProjectedReferenceSystem const system = Projected(&shift);
    TGeodeticReferenceSystem const geodetic = Geodetic(&shift);
    TCoords projected{37 * Degree, 55 * Degree, 200, false};
    TCoords world = projected;
    geodetic.OperateCoords(system, &projected);

    geodetic.OperateCoordsWorld(&world, true);
    system.OperateCoordsWorld(&projected, true);

    EXPECT_NEAR(projected.X, world.X, 1e-3);
    EXPECT_NEAR(projected.Y, world.Y, 1e-3);
    EXPECT_NEAR(projected.Z, world.Z, 1e-3);
}

static_assert(sizeof(TMapProjectedReferenceSystem) == 144);

} // namespace
