#include "core/refsystems/GeocentricReferenceSystem.h"

#include "TestKinds.h"
#include "core/transforms/PlaneAndVertical.h"
#include "core/transforms/SevenParameters.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

using namespace KvRefSystem;
using namespace KvRefSystemTests;

namespace {

char const* const ShiftCopyFailed = "TGeocentricReferenceSystem::TGeocentricReferenceSystem: datum shift";
char const* const UnknownKind = "@PreservesHeights(): invalid refsystem type.";
constexpr double ParisLongitude = Radians(2.33722917);

/** Longitude 37, latitude 55 degrees, height 200 m on WGS 84; closed formulas in 40 digits. */
TCoords const Place = Point(2928363.4035793577, 2206680.1029400281, 5201547.3536111299);

/** A point inside of the ellipsoid's evolute, where the latitude's iteration jumps to and fro for ever. */
TCoords const Restless = Point(20000, 0, 30000);

TGeocentricReferenceSystem Geocentric(TDatumShift const* shift, double longitude = 0.0,
                                      TRefSystemTransformsSet const& set = {}) {
    TPrimeMeridian const meridian(longitude);
    return {shift, &meridian, set, {}};
}

TBursaWolfDatumShiftParameters LargeParameters() {
    return {100, 50, -300, 1e-3, -2e-3, 3e-3, 1.001};
}

void ExpectNear(TCoords const& point, TCoords const& expected, double tolerance) {
    EXPECT_NEAR(point.X, expected.X, tolerance);
    EXPECT_NEAR(point.Y, expected.Y, tolerance);
    EXPECT_NEAR(point.Z, expected.Z, tolerance);
}

} // namespace

TEST(GeocentricReferenceSystem, CopiesShiftAndMeridian) {
    auto const shift = Shift(1, 2, 3);
    TPrimeMeridian const meridian(0.5);
    TGeocentricReferenceSystem const system(&shift, &meridian, {}, {});
    EXPECT_EQ(system.Type, rstGeocentric);
    ASSERT_NE(system.DatumShift, nullptr);
    EXPECT_NE(system.DatumShift, &shift);
    EXPECT_EQ(*system.DatumShift, shift);
    EXPECT_NE(system.PrimeMeridian, &meridian);
    EXPECT_EQ(system.PrimeMeridian->Longitude, 0.5);
}

TEST(GeocentricReferenceSystem, WithoutMeridianCountsFromGreenwich) {
    TGeocentricReferenceSystem const system(nullptr, nullptr, {}, {});
    EXPECT_EQ(system.DatumShift, nullptr);
    ASSERT_NE(system.PrimeMeridian, nullptr);
    EXPECT_EQ(system.PrimeMeridian->Longitude, 0.0);
    EXPECT_FALSE(system.PrimeMeridian->NonZero);
}

TEST(GeocentricReferenceSystem, ThrowsWhenTheShiftCannotBeCopied) {
    TForeignShift const foreign;
    EXPECT_EQ(ThrownText<std::runtime_error>([&] { Geocentric(&foreign); }), ShiftCopyFailed);
    TGeocentricReferenceSystem source(nullptr, nullptr, {}, {});
    source.DatumShift = new TForeignShift;
    EXPECT_EQ(ThrownText<std::runtime_error>([&] { CopyOf(source); }), ShiftCopyFailed);
}

TEST(GeocentricReferenceSystem, CopyIsDeep) {
    auto const shift = Shift(1, 2, 3);
    TPlaneShiftRefSystemTransform const transform(1, 2);
    TPrimeMeridian const meridian(0.5);
    TGeocentricReferenceSystem const source(&shift, &meridian, SetOf(transform), {{"k", SetOf(transform)}});
    TGeocentricReferenceSystem const copy = CopyOf(source);
    EXPECT_NE(copy.DatumShift, source.DatumShift);
    EXPECT_NE(copy.PrimeMeridian, source.PrimeMeridian);
    EXPECT_EQ(copy, source);
    EXPECT_TRUE(copy.PairwiseTransforms == source.PairwiseTransforms);
}

TEST(GeocentricReferenceSystem, RelatesToItselfOnly) {
    TGeocentricReferenceSystem const system = Geocentric(nullptr);
    EXPECT_EQ(system.RelatedGeocentricRefSystem(), &system);
    EXPECT_EQ(system.RelatedGeodeticRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedMapProjectedRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedTopocentricHorizontalRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedLocalCartesianRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedLocalCurvedRefSystem(), nullptr);
}

TEST(GeocentricReferenceSystem, TellsWhetherItHasADatumAndANonlinearOne) {
    auto const linear = Shift(1, 2, 3);
    TBursaWolfNonlinearDatumShift const nonlinear(LargeParameters());
    EXPECT_FALSE(Geocentric(nullptr).ContainsDatum());
    EXPECT_FALSE(Geocentric(nullptr).NonlinearDatum());
    EXPECT_TRUE(Geocentric(&linear).ContainsDatum());
    EXPECT_FALSE(Geocentric(&linear).NonlinearDatum());
    EXPECT_TRUE(Geocentric(&nonlinear).ContainsDatum());
    EXPECT_TRUE(Geocentric(&nonlinear).NonlinearDatum());
}

TEST(GeocentricReferenceSystem, StepsAreOneMetre) {
    double steps[3] = {};
    Geocentric(nullptr).GetAxisStepsBase(steps);
    EXPECT_EQ(steps[0], 1.0);
    EXPECT_EQ(steps[1], 1.0);
    EXPECT_EQ(steps[2], 1.0);
}

TEST(GeocentricReferenceSystem, EqualityComparesMeridianShiftAndChain) {
    auto const shift = Shift(1, 2, 3);
    auto const otherShift = Shift(1, 2, 4);
    TPlaneShiftRefSystemTransform const transform(1, 2);
    EXPECT_EQ(Geocentric(&shift, 0.5), Geocentric(&shift, 0.5));
    EXPECT_EQ(Geocentric(nullptr, 0.5), Geocentric(nullptr, 0.5));
    EXPECT_EQ(Geocentric(nullptr, 0.0), Geocentric(nullptr, -0.0));
    EXPECT_NE(Geocentric(&shift, 0.5), Geocentric(&shift, 0.25));
    EXPECT_NE(Geocentric(&shift), Geocentric(&otherShift));
    EXPECT_NE(Geocentric(&shift), Geocentric(&shift, 0, SetOf(transform)));
    EXPECT_EQ(Geocentric(&shift, 0, SetOf(transform)), Geocentric(&shift, 0, SetOf(transform)));
}

TEST(GeocentricReferenceSystem, WithAndWithoutAShiftAreUnequalBothWays) {
    auto const shift = Shift(0, 0, 0);
    EXPECT_NE(Geocentric(&shift), Geocentric(nullptr));
    EXPECT_NE(Geocentric(nullptr), Geocentric(&shift));
}

TEST(GeocentricReferenceSystem, EqualityIgnoresPairwiseChains) {
    TGeocentricReferenceSystem first = Geocentric(nullptr);
    first.SetPairwiseTransforms("k", SetOf(TPlaneShiftRefSystemTransform(1, 2)));
    EXPECT_EQ(first, Geocentric(nullptr));
}

TEST(GeocentricReferenceSystem, IsUnequalToAnObjectThatOnlyClaimsItsKind) {
    EXPECT_NE(Geocentric(nullptr), TTestKind(3));
}

TEST(GeocentricReferenceSystem, PreservesHeightsWithEqualShiftsWhateverTheMeridians) {
    auto const shift = Shift(1, 2, 3);
    auto const otherShift = Shift(1, 2, 4);
    EXPECT_TRUE(Geocentric(&shift, 0.5).PreservesHeights(Geocentric(&shift, 0.25)));
    EXPECT_FALSE(Geocentric(&shift).PreservesHeights(Geocentric(&otherShift)));
}

TEST(GeocentricReferenceSystem, WithoutAShiftOnEitherSideDoesNotPreserveHeights) {
    auto const shift = Shift(1, 2, 3);
    EXPECT_FALSE(Geocentric(nullptr).PreservesHeights(Geocentric(&shift)));
    EXPECT_FALSE(Geocentric(&shift).PreservesHeights(Geocentric(nullptr)));
    EXPECT_FALSE(Geocentric(nullptr).PreservesHeights(Geocentric(nullptr)));
}

TEST(GeocentricReferenceSystem, PreservesHeightsOnlyWithBothChains) {
    auto const shift = Shift(1, 2, 3);
    TSevenParametersRefSystemTransform const similarity;
    TGeocentricReferenceSystem const plain = Geocentric(&shift);
    TGeocentricReferenceSystem const chained = Geocentric(&shift, 0, SetOf(similarity));
    EXPECT_FALSE(plain.PreservesHeights(chained));
    EXPECT_FALSE(chained.PreservesHeights(plain));
}

TEST(GeocentricReferenceSystem, PreservesHeightsThrowsForOtherKindsBeforeAnyOtherTest) {
    auto const ellipsoid = Wgs84();
    TGeodeticReferenceSystem const geodetic(nullptr, nullptr, &ellipsoid, {}, {});
    TGeocentricReferenceSystem const system = Geocentric(nullptr);
    EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)system.PreservesHeights(geodetic); }), UnknownKind);
    for (int const kind : {0, 1, 2, 3, 5, 6, 7}) {
        EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)system.PreservesHeights(TTestKind(kind)); }),
                  UnknownKind);
    }
}

TEST(GeocentricReferenceSystem, ComparesDatums) {
    auto const shift = Shift(1, 2, 3);
    auto const otherShift = Shift(1, 2, 4);
    TGeocentricReferenceSystem const none = Geocentric(nullptr);
    TGeocentricReferenceSystem const first = Geocentric(&shift, 0.5);
    TGeocentricReferenceSystem const same = Geocentric(&shift);
    TGeocentricReferenceSystem const other = Geocentric(&otherShift);
    EXPECT_EQ(TGeocentricReferenceSystem::CompareDatumsGeoc(none, none), dcUnknown);
    EXPECT_EQ(TGeocentricReferenceSystem::CompareDatumsGeoc(none, first), dcUnknown);
    EXPECT_EQ(TGeocentricReferenceSystem::CompareDatumsGeoc(first, none), dcUnknown);
    EXPECT_EQ(TGeocentricReferenceSystem::CompareDatumsGeoc(first, same), dcEqual);
    EXPECT_EQ(TGeocentricReferenceSystem::CompareDatumsGeoc(first, other), dcDifferent);
    EXPECT_EQ(none.CompareDatums(first), 1);
    EXPECT_EQ(first.CompareDatums(same), 2);
    EXPECT_EQ(first.CompareDatums(other), 3);
}

TEST(GeocentricReferenceSystem, DifferentShiftsActBothInTheOrderDirectThenReverse) {
    auto const source = Shift(25, -141, -80);
    auto const target = Shift(1, 10, 100);
    TCoords point = Point(1000, 2000, 3000);
    Geocentric(&source).OperateCoords(Geocentric(&target), &point);
    EXPECT_EQ(point, Point(1024, 1849, 2820));
}

TEST(GeocentricReferenceSystem, AMissingShiftOnEitherSideMeansNoShiftAndNoError) {
    auto const shift = Shift(25, -141, -80);
    TCoords point = Point(1000, 2000, 3000);
    Geocentric(&shift).OperateCoords(Geocentric(nullptr), &point);
    Geocentric(nullptr).OperateCoords(Geocentric(&shift), &point);
    EXPECT_EQ(point, Point(1000, 2000, 3000));
}

TEST(GeocentricReferenceSystem, EqualShiftsAreSkippedSoThatThePointStaysExact) {
    TBursaWolfDatumShift const shift(LargeParameters());
    TCoords point = Point(1000.1, 2000.2, 3000.3);
    Geocentric(&shift).OperateCoords(Geocentric(&shift), &point);
    EXPECT_EQ(point, Point(1000.1, 2000.2, 3000.3));
}

TEST(GeocentricReferenceSystem, EqualNumbersInDifferentClassesAreAppliedBoth) {
    // Linear direct comes to (1001100, 2008056, -2999296); (R^T (p - d)) / s of that in 40 digits.
    TBursaWolfDatumShift const linear(LargeParameters());
    TBursaWolfNonlinearDatumShift const nonlinear(LargeParameters());
    TGeocentricReferenceSystem const source = Geocentric(&linear);
    TGeocentricReferenceSystem const target = Geocentric(&nonlinear);
    EXPECT_EQ(source.CompareDatums(target), dcDifferent);
    TCoords point = Point(1e6, 2e6, -3e6);
    source.OperateCoords(target, &point);
    ExpectNear(point, Point(1000006.5219680397, 2000011.9824807112, -2999998.5043254538), 1e-8);
}

TEST(GeocentricReferenceSystem, AShiftWithANaNEqualsNothingAndSoActs) {
    auto const shift = Shift(std::numeric_limits<double>::quiet_NaN(), 0, 0);
    TGeocentricReferenceSystem const system = Geocentric(&shift);
    EXPECT_EQ(system.CompareDatums(system), dcDifferent);
    TCoords point = Point(1, 2, 3);
    system.OperateCoords(system, &point);
    EXPECT_NE(point.X, point.X);
    EXPECT_EQ(point.Y, 2.0);
}

TEST(GeocentricReferenceSystem, MeridiansRotateToGreenwichAndFromThere) {
    // From Paris to Greenwich: X cos L - Y sin L, X sin L + Y cos L in 40 digits.
    auto const shift = Shift(1, 2, 3);
    TGeocentricReferenceSystem const paris = Geocentric(&shift, ParisLongitude);
    TGeocentricReferenceSystem const greenwich = Geocentric(&shift);
    TCoords point = Place;
    paris.OperateCoords(greenwich, &point);
    ExpectNear(point, Point(2835936.6283482559, 2324266.0648314382, Place.Z), 1e-8);
    greenwich.OperateCoords(paris, &point);
    ExpectNear(point, Place, 1e-8);
}

TEST(GeocentricReferenceSystem, ShiftsActInGreenwichAxes) {
    // A quarter turn takes (3, 4) to Greenwich's (-4, 3); the shift makes it (6, 23); the way back is (23,
    // -6).
    auto const source = Shift(10, 20, 30);
    auto const target = Shift(0, 0, 0);
    TCoords point = Point(3, 4, 5);
    Geocentric(&source, Pi / 2).GeocentricTransformation(Geocentric(&target, Pi / 2), &point);
    ExpectNear(point, Point(23, -6, 35), 1e-13);
}

TEST(GeocentricReferenceSystem, ReachesAGeodeticTarget) {
    auto const ellipsoid = Wgs84();
    TGeodeticReferenceSystem const geodetic(nullptr, nullptr, &ellipsoid, {}, {});
    TCoords point = Place;
    Geocentric(nullptr).OperateCoords(geodetic, &point);
    EXPECT_NEAR(point.X, Radians(37), 1e-15);
    EXPECT_NEAR(point.Y, Radians(55), 1e-12);
    EXPECT_NEAR(point.Z, 200, 1e-5);
}

TEST(GeocentricReferenceSystem, AsksTheTargetForItsStagesWhateverItsClass) {
    auto const shift = Shift(1, 10, 100);
    auto const ellipsoid = Wgs84();
    TGeocentricReferenceSystem const inner = Geocentric(nullptr);
    TGeodeticReferenceSystem const geodetic(nullptr, nullptr, &ellipsoid, {}, {});
    TTestKind target(3);
    target.Geocentric = &inner;
    TCoords point = Place;
    Geocentric(&shift).OperateCoords(target, &point);
    EXPECT_EQ(point, Place);

    TTestKind geodeticTarget(4);
    geodeticTarget.Geocentric = &inner;
    geodeticTarget.Geodetic = &geodetic;
    Geocentric(&shift).OperateCoords(geodeticTarget, &point);
    EXPECT_NEAR(point.Y, Radians(55), 1e-12);
}

TEST(GeocentricReferenceSystem, TurnsLocalAndUnknownTargetsIntoTheShortText) {
    TGeocentricReferenceSystem const system = Geocentric(nullptr);
    for (int const kind : {1, 2, 0, 7, -1}) {
        TCoords point = Place;
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(TTestKind(kind), &point); }), ":(");
    }
}

TEST(GeocentricReferenceSystem, TurnsTargetsWithoutTheirStagesIntoTheShortText) {
    TGeocentricReferenceSystem const system = Geocentric(nullptr);
    for (int const kind : {3, 4, 5, 6}) {
        TTestKind target(kind);
        TCoords point = Place;
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
        target.Geocentric = kind == 3 ? nullptr : &system;
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
    }
}

TEST(GeocentricReferenceSystem, TurnsEveryFailureOfTheTargetIntoTheShortText) {
    TGeocentricReferenceSystem const system = Geocentric(nullptr);
    TTestKind target(3);
    TCoords point = Place;
    target.OnRelated = [] { throw std::bad_alloc(); };
    EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
    target.OnRelated = [] { throw 42; };
    EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
}

TEST(GeocentricReferenceSystem, TurnsAFailedIterationIntoTheShortText) {
    auto const ellipsoid = Wgs84();
    TGeodeticReferenceSystem const geodetic(nullptr, nullptr, &ellipsoid, {}, {});
    TCoords point = Restless;
    EXPECT_EQ(ThrownText<std::logic_error>([&] { Geocentric(nullptr).OperateCoords(geodetic, &point); }),
              ":(");
    EXPECT_EQ(point, Restless);
}

TEST(GeocentricReferenceSystem, WorldIsGreenwichAfterTheDirectShiftOnRequest) {
    auto const shift = Shift(10, 20, 30);
    TGeocentricReferenceSystem const system = Geocentric(&shift, Pi / 2);
    TCoords point = Point(3, 4, 5);
    system.OperateCoordsWorld(&point, true);
    ExpectNear(point, Point(6, 23, 35), 1e-13);
    point = Point(3, 4, 5);
    system.GeocentricTransformationWorld(&point, false);
    ExpectNear(point, Point(-4, 3, 5), 1e-13);
}

TEST(GeocentricReferenceSystem, WorldWithoutAShiftIsNoError) {
    TCoords point = Point(3, 4, 5);
    Geocentric(nullptr).OperateCoordsWorld(&point, true);
    EXPECT_EQ(point, Point(3, 4, 5));
}

TEST(GeocentricReferenceSystem, AxesAreThoseOfItsMeridian) {
    double axes[9];
    ASSERT_TRUE(Geocentric(nullptr, Pi / 2).TransformAxesWorld(Point(1, 2, 3), axes, false));
    double const expected[9] = {0, 1, 0, -1, 0, 0, 0, 0, 1};
    for (int index = 0; index < 9; ++index) {
        EXPECT_NEAR(axes[index], expected[index], 1e-14) << index;
    }
}

TEST(GeocentricReferenceSystem, ReplaceStoresACopyOfTheShift) {
    auto const shift = Shift(1, 2, 3);
    auto const otherShift = Shift(4, 5, 6);
    TGeocentricReferenceSystem system = Geocentric(&shift);
    EXPECT_TRUE(system.ReplaceDatumShift(&otherShift));
    ASSERT_NE(system.DatumShift, nullptr);
    EXPECT_NE(system.DatumShift, &otherShift);
    EXPECT_EQ(*system.DatumShift, otherShift);
}

TEST(GeocentricReferenceSystem, ReplaceByNullRemovesTheShiftAndIsFalse) {
    auto const shift = Shift(1, 2, 3);
    TGeocentricReferenceSystem system = Geocentric(&shift);
    EXPECT_FALSE(system.ReplaceDatumShift(nullptr));
    EXPECT_EQ(system.DatumShift, nullptr);
    EXPECT_FALSE(system.ContainsDatum());
}

TEST(GeocentricReferenceSystem, ReplaceByAnUncopyableShiftLeavesNone) {
    auto const shift = Shift(1, 2, 3);
    TGeocentricReferenceSystem system = Geocentric(&shift);
    EXPECT_FALSE(system.ReplaceDatumShift(std::make_unique<TForeignShift>().get()));
    EXPECT_EQ(system.DatumShift, nullptr);
}

TEST(GeocentricReferenceSystem, ReplaceAcceptsItsOwnShift) {
    auto const shift = Shift(1, 2, 3);
    TGeocentricReferenceSystem system = Geocentric(&shift);
    EXPECT_TRUE(system.ReplaceDatumShift(system.DatumShift));
    ASSERT_NE(system.DatumShift, nullptr);
    EXPECT_EQ(*system.DatumShift, shift);
}

TEST(GeocentricReferenceSystem, OperationsAllocateNothing) {
    auto const source = Shift(25, -141, -80);
    TBursaWolfNonlinearDatumShift const target(LargeParameters());
    TGeocentricReferenceSystem const from = Geocentric(&source, ParisLongitude);
    TGeocentricReferenceSystem const to = Geocentric(&target);
    TCoords point = Place;
    std::size_t const before = AllocationCount();
    from.OperateCoords(to, &point);
    from.GeocentricTransformation(to, &point);
    from.OperateCoordsWorld(&point, true);
    EXPECT_EQ(AllocationCount(), before);
}
