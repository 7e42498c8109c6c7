#include "core/refsystems/LocalCartesianReferenceSystem.h"

#include "TestKinds.h"
#include "core/refsystems/LocalCurvedReferenceSystem.h"
#include "core/refsystems/TopocentricHorizontalReferenceSystem.h"
#include "core/transforms/PlaneAndVertical.h"
#include "core/transforms/SevenParameters.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>

using namespace KvRefSystem;
using namespace KvRefSystemTests;

namespace {

char const* const UnknownKind = "@PreservesHeights(): invalid refsystem type.";

TReferenceSystemCartesianOrientation OrientationOf(int value) {
    return static_cast<TReferenceSystemCartesianOrientation>(value);
}

TLocalCartesianReferenceSystem Local(TReferenceSystemCartesianOrientation orientation = rscoLeft,
                                     TRefSystemTransformsSet const& set = {}) {
    return {orientation, set, {}};
}

} // namespace

TEST(LocalCartesianReferenceSystem, KeepsOrientationAndChains) {
    TPlaneShiftRefSystemTransform const transform(1, 2);
    TLocalCartesianReferenceSystem const system(rscoRight, SetOf(transform), {{"k", SetOf(transform)}});
    EXPECT_EQ(system.Type, rstLocalCartesian);
    EXPECT_EQ(system.Orientation, rscoRight);
    EXPECT_TRUE(system.Transforms == SetOf(transform));
    EXPECT_EQ(system.PairwiseTransforms.size(), 1U);
}

TEST(LocalCartesianReferenceSystem, RelatesToItselfOnly) {
    TLocalCartesianReferenceSystem const system = Local();
    EXPECT_EQ(system.RelatedLocalCartesianRefSystem(), &system);
    EXPECT_EQ(system.RelatedLocalCurvedRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedGeocentricRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedGeodeticRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedMapProjectedRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedTopocentricHorizontalRefSystem(), nullptr);
}

TEST(LocalCartesianReferenceSystem, HasNoDatumAndTakesNone) {
    auto const shift = Shift(1, 2, 3);
    TLocalCartesianReferenceSystem system = Local();
    EXPECT_FALSE(system.ContainsDatum());
    EXPECT_FALSE(system.NonlinearDatum());
    EXPECT_FALSE(system.ReplaceDatumShift(&shift));
    EXPECT_FALSE(system.ContainsDatum());
}

TEST(LocalCartesianReferenceSystem, CopiesAreEqual) {
    TPlaneShiftRefSystemTransform const transform(1, 2);
    TLocalCartesianReferenceSystem const source(rscoRight, SetOf(transform), {{"k", SetOf(transform)}});
    std::unique_ptr<TReferenceSystem> const copy(CreateCopy(source));
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(*copy, source);
    EXPECT_EQ(copy->RelatedLocalCartesianRefSystem()->Orientation, rscoRight);
    EXPECT_TRUE(copy->PairwiseTransforms == source.PairwiseTransforms);
}

TEST(LocalCartesianReferenceSystem, OppositeOrientationsSwapXAndYAndNothingElse) {
    TCoords point{1, 2, 3, true};
    Local(rscoLeft).OperateCoords(Local(rscoRight), &point);
    EXPECT_EQ(point.X, 2);
    EXPECT_EQ(point.Y, 1);
    EXPECT_EQ(point.Z, 3);
    EXPECT_TRUE(point.ZUndefined);
    Local(rscoRight).OperateCoords(Local(rscoLeft), &point);
    EXPECT_EQ(point.X, 1);
    EXPECT_EQ(point.Y, 2);
}

TEST(LocalCartesianReferenceSystem, OneOrientationLeavesThePoint) {
    TCoords point = Point(1, 2, 3);
    Local(rscoLeft).OperateCoords(Local(rscoLeft), &point);
    Local(rscoRight).OperateCoords(Local(rscoRight), &point);
    EXPECT_EQ(point, Point(1, 2, 3));
}

TEST(LocalCartesianReferenceSystem, OrientationsAreComparedAsTheyAreStored) {
    // Both numbers act as `rscoRight` elsewhere; here they differ.
    TCoords point = Point(1, 2, 3);
    Local(OrientationOf(7)).LocalCartesianTransformation(Local(rscoRight), &point);
    EXPECT_EQ(point, Point(2, 1, 3));
    Local(OrientationOf(7)).LocalCartesianTransformation(Local(OrientationOf(7)), &point);
    EXPECT_EQ(point, Point(2, 1, 3));
}

TEST(LocalCartesianReferenceSystem, NumbersThatAreNoneAreOnlySwapped) {
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const infinity = std::numeric_limits<double>::infinity();
    TCoords point = Point(nan, -infinity, infinity);
    Local(rscoLeft).OperateCoords(Local(rscoRight), &point);
    EXPECT_EQ(point.X, -infinity);
    EXPECT_TRUE(std::isnan(point.Y));
    EXPECT_EQ(point.Z, infinity);
}

TEST(LocalCartesianReferenceSystem, ReachesALocalCurvedTargetAfterTheSwap) {
    // 10 + ((2000 - 50)^2 + (1000 - 80)^2) / (2 10^6)
    TLocalCurvedReferenceSystem const curved(rscoRight, 1e6, 50, 80, {}, {});
    TCoords point = Point(1000, 2000, 10);
    Local(rscoLeft).OperateCoords(curved, &point);
    EXPECT_EQ(point, Point(2000, 1000, 12.32445));
}

TEST(LocalCartesianReferenceSystem, RunsBothOwnChains) {
    // Back from the source's chain to (90, 180), swapped, then forth through the target's.
    TCoords point = Point(100, 200, 3);
    Local(rscoLeft, SetOf(TPlaneShiftRefSystemTransform(10, 20)))
        .OperateCoords(Local(rscoRight, SetOf(TPlaneShiftRefSystemTransform(1000, 2000))), &point);
    EXPECT_EQ(point, Point(1180, 2090, 3));
}

TEST(LocalCartesianReferenceSystem, AsksTheTargetForItsStagesWhateverItsClass) {
    TLocalCartesianReferenceSystem const inner = Local(rscoRight);
    TTestKind target(1);
    target.LocalCartesian = &inner;
    TCoords point = Point(1, 2, 3);
    Local(rscoLeft).OperateCoords(target, &point);
    EXPECT_EQ(point, Point(2, 1, 3));
}

TEST(LocalCartesianReferenceSystem, RefusesEarthBoundAndUnknownTargetsWithTheShortText) {
    auto const ellipsoid = Wgs84();
    TGeodeticReferenceSystem const geodetic(nullptr, nullptr, &ellipsoid, {}, {});
    TTopocentricHorizontalReferenceSystem const topocentric(rscoLeft, 0.0, &geodetic, TCoords(), {}, {});
    TLocalCartesianReferenceSystem const system = Local();
    TCoords point = Point(1, 2, 3);
    for (TReferenceSystem const* const target :
         {static_cast<TReferenceSystem const*>(geodetic.GeocentricSystem),
          static_cast<TReferenceSystem const*>(&geodetic),
          static_cast<TReferenceSystem const*>(&topocentric)}) {
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(*target, &point); }), ":(");
        EXPECT_EQ(ThrownText<std::logic_error>([&] { target->OperateCoords(system, &point); }), ":(");
    }
    for (int const kind : {3, 4, 5, 6, 0, 7, -1}) {
        TTestKind target(kind);
        target.LocalCartesian = &system;
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
    }
    EXPECT_EQ(point, Point(1, 2, 3));
}

TEST(LocalCartesianReferenceSystem, RefusesTargetsWithoutTheirStagesWithTheShortText) {
    TLocalCartesianReferenceSystem const system = Local();
    TLocalCartesianReferenceSystem const opposite = Local(rscoRight);
    TCoords point = Point(1, 2, 3);
    for (int const kind : {1, 2}) {
        TTestKind target(kind);
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
        target.LocalCartesian = kind == 1 ? nullptr : &opposite;
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
    }
    EXPECT_EQ(point, Point(1, 2, 3));
}

TEST(LocalCartesianReferenceSystem, TurnsEveryFailureOfTheTargetIntoTheShortText) {
    TLocalCartesianReferenceSystem const system = Local();
    TTestKind target(1);
    TCoords point = Point(1, 2, 3);
    target.OnRelated = [] { throw std::bad_alloc(); };
    EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
    target.OnRelated = [] { throw 42; };
    EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
}

TEST(LocalCartesianReferenceSystem, HasNoWorldAndLeavesThePoint) {
    TCoords point = Point(1, 2, 3);
    Local(rscoRight).OperateCoordsWorld(&point, true);
    Local(rscoRight).OperateCoordsBaseWorld(&point, false);
    EXPECT_EQ(point, Point(1, 2, 3));
}

TEST(LocalCartesianReferenceSystem, WorldStillGoesBackThroughTheOwnChain) {
    TCoords point = Point(1, 2, 3);
    Local(rscoRight, SetOf(TPlaneShiftRefSystemTransform(10, 20))).OperateCoordsWorld(&point, true);
    EXPECT_EQ(point, Point(-9, -18, 3));
}

TEST(LocalCartesianReferenceSystem, AxesAreTheUnitVectorsInEitherOrientation) {
    for (auto const orientation : {rscoLeft, rscoRight}) {
        double axes[9];
        ASSERT_TRUE(Local(orientation).TransformAxesWorld(Point(4, 5, 6), axes, true));
        double const expected[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
        for (int index = 0; index < 9; ++index) {
            EXPECT_EQ(axes[index], expected[index]) << index;
        }
    }
}

TEST(LocalCartesianReferenceSystem, EqualityComparesOrientationAndChain) {
    TPlaneShiftRefSystemTransform const transform(1, 2);
    EXPECT_EQ(Local(rscoLeft), Local(rscoLeft));
    EXPECT_NE(Local(rscoLeft), Local(rscoRight));
    EXPECT_NE(Local(rscoRight), Local(OrientationOf(7)));
    EXPECT_NE(Local(rscoLeft), Local(rscoLeft, SetOf(transform)));
    EXPECT_EQ(Local(rscoLeft, SetOf(transform)), Local(rscoLeft, SetOf(transform)));
    EXPECT_NE(Local(), TTestKind(1));
}

TEST(LocalCartesianReferenceSystem, EqualityIgnoresPairwiseChains) {
    TLocalCartesianReferenceSystem system = Local();
    system.SetPairwiseTransforms("k", SetOf(TPlaneShiftRefSystemTransform(1, 2)));
    EXPECT_EQ(system, Local());
}

TEST(LocalCartesianReferenceSystem, PreservesHeightsWithBothChainsWhateverTheOrientations) {
    TSevenParametersRefSystemTransform const similarity;
    EXPECT_TRUE(Local(rscoLeft).PreservesHeights(Local(rscoRight)));
    EXPECT_TRUE(Local().PreservesHeights(Local(rscoLeft, SetOf(TPlaneShiftRefSystemTransform(1, 2)))));
    EXPECT_FALSE(Local().PreservesHeights(Local(rscoLeft, SetOf(similarity))));
    EXPECT_FALSE(Local(rscoLeft, SetOf(similarity)).PreservesHeights(Local()));
}

TEST(LocalCartesianReferenceSystem, PreservesHeightsThrowsForOtherKinds) {
    TLocalCartesianReferenceSystem const system = Local();
    TLocalCurvedReferenceSystem const curved(rscoLeft, 1e6, 0, 0, {}, {});
    EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)system.PreservesHeights(curved); }), UnknownKind);
    for (int const kind : {0, 2, 3, 4, 5, 6, 7}) {
        EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)system.PreservesHeights(TTestKind(kind)); }),
                  UnknownKind);
    }
}

TEST(LocalCartesianReferenceSystem, DatumsOfLocalSystemsAreUnknownAndOfOthersIncompatible) {
    auto const shift = Shift(1, 2, 3);
    auto const ellipsoid = Wgs84();
    TGeodeticReferenceSystem const geodetic(&shift, nullptr, &ellipsoid, {}, {});
    TTopocentricHorizontalReferenceSystem const topocentric(rscoLeft, 0.0, &geodetic, TCoords(), {}, {});
    TLocalCurvedReferenceSystem const curved(rscoLeft, 1e6, 0, 0, {}, {});
    TLocalCartesianReferenceSystem const system = Local();
    EXPECT_EQ(system.CompareDatums(system), dcUnknown);
    EXPECT_EQ(system.CompareDatums(curved), dcUnknown);
    EXPECT_EQ(curved.CompareDatums(system), dcUnknown);
    EXPECT_EQ(system.CompareDatums(topocentric), dcIncompatible);
    EXPECT_EQ(geodetic.CompareDatums(system), dcIncompatible);
}

TEST(LocalCartesianReferenceSystem, OperationsAllocateNothing) {
    TLocalCartesianReferenceSystem const from = Local(rscoLeft);
    TLocalCartesianReferenceSystem const to = Local(rscoRight);
    TCoords point = Point(1, 2, 3);
    std::size_t const before = AllocationCount();
    from.OperateCoords(to, &point);
    from.OperateCoordsWorld(&point, true);
    EXPECT_EQ(AllocationCount(), before);
}
