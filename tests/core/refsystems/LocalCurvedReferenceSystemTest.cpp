#include "core/refsystems/LocalCurvedReferenceSystem.h"

#include "TestKinds.h"
#include "core/refsystems/LocalCartesianReferenceSystem.h"
#include "core/refsystems/TopocentricHorizontalReferenceSystem.h"
#include "core/transforms/PlaneAndVertical.h"
#include "core/transforms/SevenParameters.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <random>
#include <stdexcept>

using namespace KvRefSystem;
using namespace KvRefSystemTests;

namespace {

char const* const UnknownKind = "@PreservesHeights(): invalid refsystem type.";
constexpr double EarthRadius = 6371000.0;
double const NaN = std::numeric_limits<double>::quiet_NaN();
double const Infinity = std::numeric_limits<double>::infinity();

/** Some last places of the greatest height and correction in the seeded round trips (2e4 m); metres. */
constexpr double RoundingOfHeights = 2e-11;

TLocalCurvedReferenceSystem Curved(TReferenceSystemCartesianOrientation orientation = rscoLeft,
                                   double radius = EarthRadius, double centerX = 0, double centerY = 0,
                                   TRefSystemTransformsSet const& set = {}) {
    return {orientation, radius, centerX, centerY, set, {}};
}

TLocalCartesianReferenceSystem Flat(TReferenceSystemCartesianOrientation orientation = rscoLeft) {
    return {orientation, {}, {}};
}

} // namespace

TEST(LocalCurvedReferenceSystem, KeepsItsNumbersInTheOrderGiven) {
    TPlaneShiftRefSystemTransform const transform(1, 2);
    TLocalCurvedReferenceSystem const system(rscoRight, 5, 6, 7, SetOf(transform), {{"k", SetOf(transform)}});
    EXPECT_EQ(system.Type, rstLocalCurved);
    EXPECT_EQ(system.Radius, 5);
    EXPECT_EQ(system.CenterX, 6);
    EXPECT_EQ(system.CenterY, 7);
    EXPECT_TRUE(system.Transforms == SetOf(transform));
    EXPECT_EQ(system.PairwiseTransforms.size(), 1U);
}

TEST(LocalCurvedReferenceSystem, GivesItsFlatSystemTheOrientationAndNoChains) {
    TPlaneShiftRefSystemTransform const transform(1, 2);
    TLocalCurvedReferenceSystem const system(rscoRight, 5, 6, 7, SetOf(transform), {{"k", SetOf(transform)}});
    ASSERT_NE(system.LocalCartesianSystem, nullptr);
    EXPECT_EQ(system.LocalCartesianSystem->Orientation, rscoRight);
    EXPECT_TRUE(system.LocalCartesianSystem->Transforms.TransformList.empty());
    EXPECT_TRUE(system.LocalCartesianSystem->PairwiseTransforms.empty());
}

TEST(LocalCurvedReferenceSystem, AllItsNumbersMayBeOneVariable) {
    double const number = 5;
    TLocalCurvedReferenceSystem const system(rscoLeft, number, number, number, {}, {});
    EXPECT_EQ(system.Radius, 5);
    EXPECT_EQ(system.CenterX, 5);
    EXPECT_EQ(system.CenterY, 5);
}

TEST(LocalCurvedReferenceSystem, RelatesToItselfAndItsFlatSystem) {
    TLocalCurvedReferenceSystem const system = Curved();
    EXPECT_EQ(system.RelatedLocalCartesianRefSystem(), system.LocalCartesianSystem);
    EXPECT_EQ(system.RelatedLocalCurvedRefSystem(), &system);
    EXPECT_EQ(system.RelatedGeocentricRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedGeodeticRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedMapProjectedRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedTopocentricHorizontalRefSystem(), nullptr);
}

TEST(LocalCurvedReferenceSystem, HasNoDatumAndTakesNone) {
    auto const shift = Shift(1, 2, 3);
    TLocalCurvedReferenceSystem system = Curved();
    EXPECT_FALSE(system.ContainsDatum());
    EXPECT_FALSE(system.NonlinearDatum());
    EXPECT_FALSE(system.ReplaceDatumShift(&shift));
}

TEST(LocalCurvedReferenceSystem, CopyIsDeep) {
    TPlaneShiftRefSystemTransform const transform(1, 2);
    TLocalCurvedReferenceSystem const source(rscoRight, 5, 6, 7, SetOf(transform), {{"k", SetOf(transform)}});
    TLocalCurvedReferenceSystem const copy = CopyOf(source);
    EXPECT_NE(copy.LocalCartesianSystem, source.LocalCartesianSystem);
    EXPECT_EQ(copy, source);
    std::unique_ptr<TReferenceSystem> const other(CreateCopy(source));
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(*other, source);
    EXPECT_TRUE(other->PairwiseTransforms == source.PairwiseTransforms);
}

TEST(LocalCurvedReferenceSystem, AFailedCopyIsNull) {
    TLocalCurvedReferenceSystem system = Curved();
    system.LocalCartesianSystem->Transforms.TransformList.push_back(new TForeignTransform);
    EXPECT_EQ(CreateCopy(system), nullptr);
}

TEST(LocalCurvedReferenceSystem, HeightsOverTheSphereAreLowerOverThePlane) {
    // 10 - (1000^2 + 2000^2) / (2 6371000) in 40 digits
    TCoords point = Point(1000, 2000, 10);
    Curved().OperateCoords(Flat(), &point);
    EXPECT_EQ(point.X, 1000);
    EXPECT_EQ(point.Y, 2000);
    EXPECT_NEAR(point.Z, 9.6075969235598807, 1e-14);
    Flat().OperateCoords(Curved(), &point);
    EXPECT_NEAR(point.Z, 10, 1e-14);
}

TEST(LocalCurvedReferenceSystem, DistancesCountFromTheCentre) {
    // 3-4-5: 5 - 0.5 25 / 2, and back
    TLocalCurvedReferenceSystem const system = Curved(rscoLeft, 2, 100, 200);
    TCoords point = Point(103, 204, 5);
    system.ConvertCurvedToCartesian(&point);
    EXPECT_EQ(point, Point(103, 204, -1.25));
    system.ConvertCartesianToCurved(&point);
    EXPECT_EQ(point, Point(103, 204, 5));
}

TEST(LocalCurvedReferenceSystem, OntoItselfTheCorrectionCancels) {
    TLocalCurvedReferenceSystem const system = Curved(rscoLeft, 2, 100, 200);
    TCoords point = Point(103, 204, 5);
    system.OperateCoords(system, &point);
    EXPECT_EQ(point, Point(103, 204, 5));
}

TEST(LocalCurvedReferenceSystem, TheSecondCorrectionIsOfTheSwappedPointAndTheTargetsCentre) {
    // z - ((1000 - 300)^2 + (2000 + 700)^2) / (2 6371000) + ((2000 - 50)^2 + (1000 - 80)^2) / (2 10^6); 40 digits
    TCoords point = Point(1000, 2000, 10);
    Curved(rscoLeft, EarthRadius, 300, -700).OperateCoords(Curved(rscoRight, 1e6, 50, 80), &point);
    EXPECT_EQ(point.X, 2000);
    EXPECT_EQ(point.Y, 1000);
    EXPECT_NEAR(point.Z, 11.713870813059174, 1e-13);
}

TEST(LocalCurvedReferenceSystem, TheCentreIsNeverSwapped) {
    // The same centre on both sides: z - d2(1000, 2000) / 2 R + d2(2000, 1000) / 2 R; 40 digits
    TCoords point = Point(1000, 2000, 10);
    Curved(rscoLeft, EarthRadius, 300, -700).OperateCoords(Curved(rscoRight, EarthRadius, 300, -700), &point);
    EXPECT_NEAR(point.Z, 9.8430387694239523, 1e-14);
}

TEST(LocalCurvedReferenceSystem, SeededPointsComeBackThroughOtherLocalSystems) {
    std::mt19937_64 random(4402);
    std::uniform_real_distribution<double> plane(-1e5, 1e5);
    std::uniform_real_distribution<double> height(-1e4, 1e4);
    std::uniform_real_distribution<double> radius(6e6, 7e6);
    for (int round = 0; round < 2000; ++round) {
        TLocalCurvedReferenceSystem const first =
            Curved(rscoLeft, radius(random), plane(random), plane(random));
        TLocalCurvedReferenceSystem const second =
            Curved(round % 2 == 0 ? rscoRight : rscoLeft, radius(random), plane(random), plane(random));
        TLocalCartesianReferenceSystem const flat = Flat(rscoRight);
        TCoords const start = Point(plane(random), plane(random), height(random));
        for (TReferenceSystem const* const other :
             {static_cast<TReferenceSystem const*>(&second), static_cast<TReferenceSystem const*>(&flat)}) {
            TCoords point = start;
            first.OperateCoords(*other, &point);
            other->OperateCoords(first, &point);
            ASSERT_EQ(point.X, start.X);
            ASSERT_EQ(point.Y, start.Y);
            ASSERT_NEAR(point.Z, start.Z, RoundingOfHeights);
        }
    }
}

TEST(LocalCurvedReferenceSystem, ARadiusOfZeroIsNotGuarded) {
    TLocalCurvedReferenceSystem const system = Curved(rscoLeft, 0.0, 5, 5);
    TCoords point = Point(1, 2, 3);
    system.OperateCoords(Flat(), &point);
    EXPECT_EQ(point, Point(1, 2, -Infinity));
    point = Point(1, 2, 3);
    system.ConvertCartesianToCurved(&point);
    EXPECT_EQ(point, Point(1, 2, Infinity));
    point = Point(5, 5, 3);
    system.ConvertCurvedToCartesian(&point);
    EXPECT_EQ(point.X, 5);
    EXPECT_TRUE(std::isnan(point.Z));
}

TEST(LocalCurvedReferenceSystem, AnInfiniteRadiusIsAPlane) {
    TCoords point = Point(1000, 2000, 10);
    Curved(rscoLeft, Infinity).OperateCoords(Flat(), &point);
    EXPECT_EQ(point, Point(1000, 2000, 10));
}

TEST(LocalCurvedReferenceSystem, ANegativeRadiusCurvesTheOtherWay) {
    TCoords point = Point(3, 4, 5);
    Curved(rscoLeft, -2).ConvertCurvedToCartesian(&point);
    EXPECT_EQ(point, Point(3, 4, 11.25));
}

TEST(LocalCurvedReferenceSystem, NumbersThatAreNoneReachTheHeightOnly) {
    TCoords point = Point(NaN, 2, 3);
    Curved().OperateCoords(Flat(rscoRight), &point);
    EXPECT_EQ(point.X, 2);
    EXPECT_TRUE(std::isnan(point.Y));
    EXPECT_TRUE(std::isnan(point.Z));
    point = Point(1, -Infinity, 3);
    Curved().ConvertCurvedToCartesian(&point);
    EXPECT_EQ(point, Point(1, -Infinity, -Infinity));
}

TEST(LocalCurvedReferenceSystem, LeavesTheHeightMarkAloneAndTreatsTheHeightAsANumber) {
    TCoords point{3, 4, 5, true};
    Curved(rscoLeft, 2).OperateCoords(Flat(), &point);
    EXPECT_TRUE(point.ZUndefined);
    EXPECT_EQ(point.Z, -1.25);
}

TEST(LocalCurvedReferenceSystem, AsksTheTargetForItsStagesWhateverItsClass) {
    TLocalCurvedReferenceSystem const inner = Curved(rscoRight, 2);
    TTestKind target(2);
    target.LocalCartesian = inner.LocalCartesianSystem;
    target.LocalCurved = &inner;
    TCoords point = Point(3, 4, 5);
    Curved(rscoLeft, Infinity).OperateCoords(target, &point);
    EXPECT_EQ(point, Point(4, 3, 11.25));
}

TEST(LocalCurvedReferenceSystem, RefusesEarthBoundAndUnknownTargetsWithTheShortText) {
    auto const ellipsoid = Wgs84();
    TGeodeticReferenceSystem const geodetic(nullptr, nullptr, &ellipsoid, {}, {});
    TTopocentricHorizontalReferenceSystem const topocentric(rscoLeft, 0.0, &geodetic, TCoords(), {}, {});
    TLocalCurvedReferenceSystem const system = Curved();
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
        target.LocalCartesian = system.LocalCartesianSystem;
        target.LocalCurved = &system;
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
    }
    EXPECT_EQ(point, Point(1, 2, 3));
}

TEST(LocalCurvedReferenceSystem, RefusesTargetsWithoutTheirStagesBeforeAnyStep) {
    TLocalCurvedReferenceSystem const system = Curved();
    TCoords point = Point(1, 2, 3);
    for (int const kind : {1, 2}) {
        TTestKind target(kind);
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
        target.LocalCartesian = kind == 1 ? nullptr : system.LocalCartesianSystem;
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
    }
    EXPECT_EQ(point, Point(1, 2, 3));
}

TEST(LocalCurvedReferenceSystem, TurnsEveryFailureOfTheTargetIntoTheShortText) {
    TLocalCurvedReferenceSystem const system = Curved();
    TTestKind target(2);
    TCoords point = Point(1, 2, 3);
    target.OnRelated = [] { throw std::bad_alloc(); };
    EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
    target.OnRelated = [] { throw 42; };
    EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
}

TEST(LocalCurvedReferenceSystem, HasNoWorldAndItsAxesAreTheUnitVectors) {
    TLocalCurvedReferenceSystem const system = Curved(rscoRight, 2, 3, 4);
    TCoords point = Point(1, 2, 3);
    system.OperateCoordsWorld(&point, true);
    EXPECT_EQ(point, Point(1, 2, 3));
    double axes[9];
    ASSERT_TRUE(system.TransformAxesWorld(point, axes, true));
    double const expected[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    for (int index = 0; index < 9; ++index) {
        EXPECT_EQ(axes[index], expected[index]) << index;
    }
}

TEST(LocalCurvedReferenceSystem, EqualityComparesFlatSystemRadiusCentreAndChain) {
    TPlaneShiftRefSystemTransform const transform(1, 2);
    TLocalCurvedReferenceSystem const system = Curved(rscoLeft, 5, 6, 7);
    EXPECT_EQ(system, Curved(rscoLeft, 5, 6, 7));
    EXPECT_NE(system, Curved(rscoRight, 5, 6, 7));
    EXPECT_NE(system, Curved(rscoLeft, 5.5, 6, 7));
    EXPECT_NE(system, Curved(rscoLeft, 5, 6.5, 7));
    EXPECT_NE(system, Curved(rscoLeft, 5, 6, 7.5));
    EXPECT_NE(system, Curved(rscoLeft, 5, 6, 7, SetOf(transform)));
    EXPECT_NE(system, *system.LocalCartesianSystem);
    EXPECT_NE(system, TTestKind(2));
}

TEST(LocalCurvedReferenceSystem, EqualityIgnoresPairwiseChains) {
    TLocalCurvedReferenceSystem system = Curved();
    system.SetPairwiseTransforms("k", SetOf(TPlaneShiftRefSystemTransform(1, 2)));
    EXPECT_EQ(system, Curved());
}

TEST(LocalCurvedReferenceSystem, WithARadiusThatIsNaNIsUnequalToItself) {
    TLocalCurvedReferenceSystem const system = Curved(rscoLeft, NaN);
    EXPECT_NE(system, system);
    EXPECT_FALSE(system.PreservesHeights(system));
}

TEST(LocalCurvedReferenceSystem, PreservesHeightsOnOneSphereAndCentre) {
    TLocalCurvedReferenceSystem const system = Curved(rscoLeft, 5, 6, 7);
    EXPECT_TRUE(system.PreservesHeights(Curved(rscoLeft, 5, 6, 7)));
    EXPECT_FALSE(system.PreservesHeights(Curved(rscoLeft, 5.5, 6, 7)));
    EXPECT_FALSE(system.PreservesHeights(Curved(rscoLeft, 5, 6.5, 7)));
    EXPECT_FALSE(system.PreservesHeights(Curved(rscoLeft, 5, 6, 7.5)));
}

TEST(LocalCurvedReferenceSystem, OrientationsPlayNoPartInPreservingHeightsAlthoughTheSwapMovesThem) {
    TLocalCurvedReferenceSystem const left = Curved(rscoLeft, 2, 1, 0);
    TLocalCurvedReferenceSystem const right = Curved(rscoRight, 2, 1, 0);
    EXPECT_TRUE(left.PreservesHeights(right));
    // 10 - ((3 - 1)^2 + 4^2) / 4 + ((4 - 1)^2 + 3^2) / 4
    TCoords point = Point(3, 4, 10);
    left.OperateCoords(right, &point);
    EXPECT_EQ(point, Point(4, 3, 9.5));
}

TEST(LocalCurvedReferenceSystem, PreservesHeightsOnlyWithBothChains) {
    TSevenParametersRefSystemTransform const similarity;
    TLocalCurvedReferenceSystem const chained = Curved(rscoLeft, EarthRadius, 0, 0, SetOf(similarity));
    EXPECT_FALSE(Curved().PreservesHeights(chained));
    EXPECT_FALSE(chained.PreservesHeights(Curved()));
}

TEST(LocalCurvedReferenceSystem, PreservesHeightsThrowsForOtherKinds) {
    TLocalCurvedReferenceSystem const system = Curved();
    EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)system.PreservesHeights(Flat()); }), UnknownKind);
    for (int const kind : {0, 1, 2, 3, 4, 5, 6, 7}) {
        EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)system.PreservesHeights(TTestKind(kind)); }),
                  UnknownKind);
    }
}

TEST(LocalCurvedReferenceSystem, OperationsAllocateNothing) {
    TLocalCurvedReferenceSystem const from = Curved(rscoLeft);
    TLocalCurvedReferenceSystem const to = Curved(rscoRight, 1e6, 1, 2);
    TCoords point = Point(1, 2, 3);
    std::size_t const before = AllocationCount();
    from.OperateCoords(to, &point);
    from.OperateCoordsWorld(&point, true);
    EXPECT_EQ(AllocationCount(), before);
}
