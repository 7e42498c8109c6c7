#include "core/refsystems/ReferenceSystem.h"

#include "TestKinds.h"
#include "core/transforms/PlaneAndVertical.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using namespace KvRefSystem;
using namespace KvRefSystemTests;

namespace {

TPlaneShiftRefSystemTransform ShiftBy(double dX) {
    return {dX, 0};
}

/** Chains that shift `X` by the given numbers. */
TSetMap Chains(std::map<std::string, double> const& shifts) {
    TSetMap chains;
    for (auto const& [key, dX] : shifts) {
        chains[key] = SetOf(ShiftBy(dX));
    }
    return chains;
}

/** `X` of the origin after the way from `source` to `target`. */
double Moved(TReferenceSystem const& source, TReferenceSystem const& target) {
    TCoords point;
    source.OperateCoords(target, &point);
    return point.X;
}

/** Adds a journalling transform to `chain`, which owns it. */
TForeignTransform* Journal(TRefSystemTransformsSet& chain, std::string const& label,
                           std::vector<std::string>* journal) {
    auto* const transform = new TForeignTransform(label, journal);
    chain.TransformList.push_back(transform);
    return transform;
}

char const* const InvalidSource = "@TReferenceSystem::CompareDatums(): invalid src_ref type.";
char const* const InvalidTarget = "@TReferenceSystem::CompareDatums(): invalid dst_ref type.";

} // namespace

TEST(ReferenceSystem, AnswersForNothingUnlessItsKindDoes) {
    TTestKind const system(1);
    TReferenceSystem const& base = system;
    EXPECT_EQ(base.TReferenceSystem::RelatedGeocentricRefSystem(), nullptr);
    EXPECT_EQ(base.TReferenceSystem::RelatedGeodeticRefSystem(), nullptr);
    EXPECT_EQ(base.RelatedMapProjectedRefSystem(), nullptr);
    EXPECT_EQ(base.RelatedTopocentricHorizontalRefSystem(), nullptr);
    EXPECT_EQ(base.RelatedLocalCartesianRefSystem(), nullptr);
    EXPECT_EQ(base.RelatedLocalCurvedRefSystem(), nullptr);
    EXPECT_FALSE(base.ContainsDatum());
    EXPECT_FALSE(base.NonlinearDatum());
    auto const shift = Shift(1, 2, 3);
    EXPECT_FALSE(TTestKind(1).ReplaceDatumShift(&shift));
}

TEST(ReferenceSystem, ConstructionCopiesSetAndMap) {
    TRefSystemTransformsSet const set = SetOf(ShiftBy(1));
    TSetMap const chains = Chains({{"k", 2}});
    TTestKind const plain(1, set);
    EXPECT_TRUE(plain.Transforms == set);
    EXPECT_TRUE(plain.PairwiseTransforms.empty());
    TTestKind const full(1, set, chains);
    EXPECT_NE(full.Transforms.TransformList[0], set.TransformList[0]);
    EXPECT_TRUE(full.PairwiseTransforms == chains);
}

TEST(ReferenceSystem, WayGoesBackThroughTheSourceChainAcrossAndForthThroughTheTargetChain) {
    std::vector<std::string> journal;
    TTestKind source(1);
    TTestKind target(1);
    TForeignTransform const* const leaving = Journal(source.Transforms, "source", &journal);
    TForeignTransform const* const entering = Journal(target.Transforms, "target", &journal);
    source.OnOperate = [&](TReferenceSystem const& dst, TCoords*) {
        EXPECT_EQ(&dst, &target);
        journal.emplace_back("across");
    };
    TCoords point;
    source.OperateCoords(target, &point);
    EXPECT_EQ(journal, (std::vector<std::string>{"source back", "across", "target forth"}));
    EXPECT_EQ(leaving->LastSystem, &source);
    EXPECT_EQ(entering->LastSystem, &target);
}

TEST(ReferenceSystem, OntoItselfRunsTheWholeChain) {
    std::vector<std::string> journal;
    TTestKind system(1);
    Journal(system.Transforms, "own", &journal);
    system.OnOperate = [&](TReferenceSystem const&, TCoords*) { journal.emplace_back("across"); };
    TCoords point;
    system.OperateCoords(system, &point);
    EXPECT_EQ(journal, (std::vector<std::string>{"own back", "across", "own forth"}));
}

TEST(ReferenceSystem, ExceptionsPassAndLeaveThePointAsFarAsItGot) {
    TTestKind source(1, SetOf(ShiftBy(5)));
    source.OnOperate = [](TReferenceSystem const&, TCoords* coords) {
        coords->Y = 7;
        throw std::out_of_range("far");
    };
    TCoords point;
    EXPECT_EQ(ThrownText<std::out_of_range>([&] { source.OperateCoords(TTestKind(1), &point); }), "far");
    EXPECT_EQ(point, Point(-5, 7, 0));
}

TEST(ReferenceSystem, SharedPairwiseChainsReplaceTheOwnChains) {
    TTestKind const source(1, SetOf(ShiftBy(1)), Chains({{"k", 10}}));
    TTestKind const target(1, SetOf(ShiftBy(2)), Chains({{"k", 300}}));
    EXPECT_EQ(Moved(source, target), 290.0);
    EXPECT_EQ(Moved(target, source), -290.0);
}

TEST(ReferenceSystem, OfTwoSharedKeysTheFirstInOrderCounts) {
    TTestKind const source(1, SetOf(ShiftBy(1)), Chains({{"a", 7}, {"b", 10}, {"c", 20}}));
    TTestKind const target(1, SetOf(ShiftBy(2)), Chains({{"b", 300}, {"c", 4000}}));
    EXPECT_EQ(source.GetPairwiseTransformID(target), "b");
    EXPECT_EQ(target.GetPairwiseTransformID(source), "b");
    EXPECT_EQ(Moved(source, target), 290.0);
}

TEST(ReferenceSystem, AKeyInOneMapOnlyHasNoEffect) {
    TTestKind const with(1, SetOf(ShiftBy(1)), Chains({{"k", 10}}));
    TTestKind const without(1, SetOf(ShiftBy(2)));
    TTestKind const other(1, SetOf(ShiftBy(2)), Chains({{"l", 10}}));
    EXPECT_EQ(Moved(with, without), 1.0);
    EXPECT_EQ(Moved(without, with), -1.0);
    EXPECT_EQ(Moved(with, other), 1.0);
    EXPECT_EQ(with.GetPairwiseTransformID(without), "");
    EXPECT_EQ(without.GetPairwiseTransformID(with), "");
    EXPECT_EQ(with.GetPairwiseTransformID(other), "");
}

TEST(ReferenceSystem, AnEmptySharedKeyCountsAsNoneAndHidesTheOthers) {
    TTestKind const source(1, SetOf(ShiftBy(1)), Chains({{"", 10}, {"k", 20}}));
    TTestKind const target(1, SetOf(ShiftBy(2)), Chains({{"", 300}, {"k", 4000}}));
    EXPECT_EQ(source.GetPairwiseTransformID(target), "");
    EXPECT_EQ(Moved(source, target), 1.0);
}

TEST(ReferenceSystem, PairwiseChainsRunOnBehalfOfTheirOwners) {
    TTestKind source(1);
    TTestKind target(1);
    TForeignTransform const* const leaving = Journal(source.PairwiseTransforms["k"], "source", nullptr);
    TForeignTransform const* const entering = Journal(target.PairwiseTransforms["k"], "target", nullptr);
    TCoords point;
    source.OperateCoords(target, &point);
    EXPECT_EQ(leaving->LastSystem, &source);
    EXPECT_EQ(entering->LastSystem, &target);
}

TEST(ReferenceSystem, PairwiseStepsAreFalseForAnAbsentKeyAndLeaveThePoint) {
    TTestKind const system(1, {}, Chains({{"k", 10}}));
    TCoords point = Point(1, 2, 3);
    EXPECT_FALSE(system.BaseToTransformedPairwise(&system, &point, "l"));
    EXPECT_FALSE(system.TransformedToBasePairwise(&system, &point, "l"));
    EXPECT_EQ(point, Point(1, 2, 3));
    EXPECT_TRUE(system.BaseToTransformedPairwise(&system, &point, "k"));
    EXPECT_EQ(point, Point(11, 2, 3));
    EXPECT_TRUE(system.TransformedToBasePairwise(&system, &point, "k"));
    EXPECT_EQ(point, Point(1, 2, 3));
}

TEST(ReferenceSystem, PairwiseStepsHandOnTheGivenSystem) {
    TTestKind owner(1);
    TTestKind const other(2);
    TForeignTransform const* const transform = Journal(owner.PairwiseTransforms["k"], "", nullptr);
    TCoords point;
    owner.BaseToTransformedPairwise(&other, &point, "k");
    EXPECT_EQ(transform->LastSystem, &other);
    owner.TransformedToBasePairwise(nullptr, &point, "k");
    EXPECT_EQ(transform->LastSystem, nullptr);
}

TEST(ReferenceSystem, SetPairwiseRefusesAnEmptyKey) {
    TTestKind system(1);
    EXPECT_FALSE(system.SetPairwiseTransforms("", SetOf(ShiftBy(1))));
    EXPECT_TRUE(system.PairwiseTransforms.empty());
}

TEST(ReferenceSystem, SetPairwiseStoresACopy) {
    TTestKind system(1);
    TRefSystemTransformsSet const set = SetOf(ShiftBy(1));
    EXPECT_TRUE(system.SetPairwiseTransforms("k", set));
    ASSERT_EQ(system.PairwiseTransforms.count("k"), 1U);
    EXPECT_TRUE(system.PairwiseTransforms["k"] == set);
    EXPECT_NE(system.PairwiseTransforms["k"].TransformList[0], set.TransformList[0]);
}

TEST(ReferenceSystem, SetPairwiseOnATakenKeyKeepsTheOldSetAndIsTrue) {
    TTestKind system(1);
    system.SetPairwiseTransforms("k", SetOf(ShiftBy(1)));
    EXPECT_TRUE(system.SetPairwiseTransforms("k", SetOf(ShiftBy(2))));
    EXPECT_TRUE(system.PairwiseTransforms["k"] == SetOf(ShiftBy(1)));
    EXPECT_TRUE(system.RemovePairwiseTransforms("k"));
    EXPECT_TRUE(system.SetPairwiseTransforms("k", SetOf(ShiftBy(2))));
    EXPECT_TRUE(system.PairwiseTransforms["k"] == SetOf(ShiftBy(2)));
}

TEST(ReferenceSystem, RemovePairwiseTellsWhetherThereWasOne) {
    TTestKind system(1, {}, Chains({{"k", 1}}));
    EXPECT_FALSE(system.RemovePairwiseTransforms("l"));
    EXPECT_TRUE(system.RemovePairwiseTransforms("k"));
    EXPECT_FALSE(system.RemovePairwiseTransforms("k"));
    EXPECT_FALSE(system.RemovePairwiseTransforms(""));
}

TEST(ReferenceSystem, WorldGoesBackThroughTheOwnChainOnly) {
    TTestKind system(1, SetOf(ShiftBy(1)), Chains({{"k", 10}}));
    bool applied = false;
    system.OnWorld = [&](TCoords* coords, bool ApplyDatumShift) {
        applied = ApplyDatumShift;
        coords->Y += 2;
    };
    TCoords point;
    system.OperateCoordsWorld(&point, true);
    EXPECT_EQ(point, Point(-1, 2, 0));
    EXPECT_TRUE(applied);
    system.OperateCoordsWorld(&point, false);
    EXPECT_FALSE(applied);
}

TEST(ReferenceSystem, WorldLetsExceptionsPass) {
    TTestKind system(1);
    system.OnWorld = [](TCoords*, bool) { throw std::runtime_error("no world"); };
    TCoords point;
    EXPECT_EQ(ThrownText<std::runtime_error>([&] { system.OperateCoordsWorld(&point, true); }), "no world");
}

TEST(ReferenceSystem, AxesOfALocalKindWithAnEmptyChainAreTheUnitVectors) {
    TTestKind const system(1);
    double axes[9];
    ASSERT_TRUE(system.TransformAxesWorld(Point(4, 5, 6), axes, true));
    double const expected[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    for (int index = 0; index < 9; ++index) {
        EXPECT_EQ(axes[index], expected[index]) << index;
    }
}

TEST(ReferenceSystem, AxesComeRowByRowFromTheCallersCoordinates) {
    // World = (2 Y, 3 Z, 5 X) after a quarter turn back: X = -Y', Y = X' of the caller's X', Y'.
    TTestKind system(1, SetOf(TPlaneRotationRefSystemTransform(Pi / 2)));
    system.OnWorld = [](TCoords* coords, bool) {
        *coords = Point(2 * coords->Y, 3 * coords->Z, 5 * coords->X);
    };
    double axes[9];
    ASSERT_TRUE(system.TransformAxesWorld(Point(1, 2, 3), axes, false));
    double const expected[9] = {2, 0, 0, 0, 0, -5, 0, 3, 0};
    for (int index = 0; index < 9; ++index) {
        EXPECT_NEAR(axes[index], expected[index], 1e-14) << index;
    }
}

TEST(ReferenceSystem, AxesUseTheKindsStepsPlusBeforeMinus) {
    TTestKind system(1);
    system.Steps[0] = 0.25;
    system.Steps[1] = 0.5;
    system.Steps[2] = 2.0;
    std::vector<TCoords> asked;
    system.OnWorld = [&](TCoords* coords, bool) { asked.push_back(*coords); };
    double axes[9];
    TCoords const point{1, 2, 3, true};
    ASSERT_TRUE(system.TransformAxesWorld(point, axes, true));
    ASSERT_EQ(asked.size(), 6U);
    double const numbers[6][3] = {{1.25, 2, 3}, {0.75, 2, 3}, {1, 2.5, 3}, {1, 1.5, 3}, {1, 2, 5}, {1, 2, 1}};
    for (int index = 0; index < 6; ++index) {
        EXPECT_EQ(asked[index].X, numbers[index][0]);
        EXPECT_EQ(asked[index].Y, numbers[index][1]);
        EXPECT_EQ(asked[index].Z, numbers[index][2]);
        EXPECT_TRUE(asked[index].ZUndefined);
    }
}

TEST(ReferenceSystem, AxesSwallowEveryExceptionAndKeepTheRowsWritten) {
    TTestKind system(1);
    int calls = 0;
    system.OnWorld = [&](TCoords*, bool) {
        if (++calls == 3) {
            throw 42;
        }
    };
    double axes[9] = {9, 9, 9, 9, 9, 9, 9, 9, 9};
    EXPECT_FALSE(system.TransformAxesWorld(Point(0, 0, 0), axes, true));
    EXPECT_EQ(axes[0], 1.0);
    EXPECT_EQ(axes[1], 0.0);
    EXPECT_EQ(axes[3], 9.0);
}

TEST(ReferenceSystem, AxesMayOverwriteTheirOwnPoint) {
    // World = (X X, Y Y, Z Z), whose derivatives are twice the coordinates.
    TTestKind system(1);
    system.OnWorld = [](TCoords* coords, bool) {
        *coords = Point(coords->X * coords->X, coords->Y * coords->Y, coords->Z * coords->Z);
    };
    union {
        double Axes[9];
        TCoords Point;
    } shared{};
    shared.Point = Point(1, 2, 3);
    ASSERT_TRUE(system.TransformAxesWorld(shared.Point, shared.Axes, true));
    double const expected[9] = {2, 0, 0, 0, 4, 0, 0, 0, 6};
    for (int index = 0; index < 9; ++index) {
        EXPECT_EQ(shared.Axes[index], expected[index]) << index;
    }
}

TEST(ReferenceSystem, DatumsOfTwoLocalKindsAreUnknown) {
    for (int const source : {1, 2}) {
        for (int const target : {1, 2}) {
            EXPECT_EQ(TTestKind(source).CompareDatums(TTestKind(target)), 1);
        }
    }
}

TEST(ReferenceSystem, DatumsOfALocalAndAnEarthBoundKindAreIncompatible) {
    for (int const local : {1, 2}) {
        for (int const earthBound : {3, 4, 5, 6}) {
            EXPECT_EQ(TTestKind(local).CompareDatums(TTestKind(earthBound)), 4);
            EXPECT_EQ(TTestKind(earthBound).CompareDatums(TTestKind(local)), 4);
        }
    }
}

TEST(ReferenceSystem, DatumsOfEarthBoundKindsAreThoseOfTheirGeocentricSystems) {
    auto const shift = Shift(1, 2, 3);
    auto const otherShift = Shift(1, 2, 4);
    TGeocentricReferenceSystem const first(&shift, nullptr, {}, {});
    TGeocentricReferenceSystem const second(&otherShift, nullptr, {}, {});
    TGeocentricReferenceSystem const none(nullptr, nullptr, {}, {});
    TTestKind projected(5);
    TTestKind topocentric(6);
    projected.Geocentric = &first;
    topocentric.Geocentric = &first;
    EXPECT_EQ(projected.CompareDatums(topocentric), 2);
    EXPECT_EQ(projected.CompareDatums(first), 2);
    EXPECT_EQ(second.CompareDatums(projected), 3);
    EXPECT_EQ(topocentric.CompareDatums(none), 1);
    EXPECT_EQ(none.CompareDatums(topocentric), 1);
}

TEST(ReferenceSystem, DatumsAreUnknownWhenAKindHasNoGeocentricSystem) {
    auto const shift = Shift(1, 2, 3);
    TGeocentricReferenceSystem const geocentric(&shift, nullptr, {}, {});
    EXPECT_EQ(TTestKind(5).CompareDatums(geocentric), 1);
    EXPECT_EQ(geocentric.CompareDatums(TTestKind(6)), 1);
}

TEST(ReferenceSystem, DatumsOfAnUnknownKindThrowTheSourceFirst) {
    for (int const unknown : {0, 7, -1, INT_MAX}) {
        TTestKind const system(unknown);
        for (int const known : {1, 2, 3, 4, 5, 6}) {
            TTestKind const other(known);
            EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)system.CompareDatums(other); }),
                      InvalidSource);
            EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)other.CompareDatums(system); }),
                      InvalidTarget);
        }
        EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)system.CompareDatums(system); }), InvalidSource);
    }
}

TEST(ReferenceSystem, OperationsAllocateNothingWithoutSharedChains) {
    TTestKind const source(1, SetOf(ShiftBy(1), TVerticalShiftRefSystemTransform(2)));
    TTestKind const target(1, SetOf(TPlaneRotationRefSystemTransform(0.5)));
    TCoords point = Point(1, 2, 3);
    std::size_t const before = AllocationCount();
    source.OperateCoords(target, &point);
    source.OperateCoordsWorld(&point, true);
    EXPECT_EQ(AllocationCount(), before);
}

TEST(ReferenceSystem, OperationsAllocateNothingWithSharedChainsEither) {
    std::string const longKey(100, 'k');
    TTestKind const source(1, {}, Chains({{longKey, 10}}));
    TTestKind const target(1, {}, Chains({{longKey, 300}}));
    TCoords point;
    std::size_t const before = AllocationCount();
    source.OperateCoords(target, &point);
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_EQ(point.X, 290.0);
}

TEST(AllocationCount, CountsWhatTheLibraryAllocates) {
    std::size_t const before = AllocationCount();
    TRefSystemTransformsSet const set = SetOf(ShiftBy(1));
    EXPECT_GT(AllocationCount(), before);
}

TEST(CreateCopy, MakesAnObjectOfTheSameKind) {
    auto const shift = Shift(1, 2, 3);
    auto const ellipsoid = Wgs84();
    TPrimeMeridian const meridian(0.5);
    TGeocentricReferenceSystem const geocentric(&shift, &meridian, SetOf(ShiftBy(1)), Chains({{"k", 2}}));
    TGeodeticReferenceSystem const geodetic(&shift, &meridian, &ellipsoid, SetOf(ShiftBy(1)),
                                            Chains({{"k", 2}}));
    for (TReferenceSystem const* const source : {static_cast<TReferenceSystem const*>(&geocentric),
                                                 static_cast<TReferenceSystem const*>(&geodetic)}) {
        std::unique_ptr<TReferenceSystem> const copy(CreateCopy(*source));
        ASSERT_NE(copy, nullptr);
        EXPECT_NE(copy.get(), source);
        EXPECT_EQ(copy->Type, source->Type);
        EXPECT_EQ(*copy, *source);
        EXPECT_TRUE(copy->PairwiseTransforms == source->PairwiseTransforms);
    }
}

TEST(CreateCopy, IsNullForAnUnknownKind) {
    for (int const kind : {0, 7, -1, INT_MAX, INT_MIN}) {
        EXPECT_EQ(CreateCopy(TTestKind(kind)), nullptr) << kind;
    }
}

TEST(CreateCopy, IsNullForAKindThatAnotherClassClaims) {
    for (int const kind : {1, 2, 3, 4, 5, 6}) {
        EXPECT_EQ(CreateCopy(TTestKind(kind)), nullptr) << kind;
    }
}

TEST(CreateCopy, SwallowsEveryExceptionOfTheCopy) {
    TGeocentricReferenceSystem badChain(nullptr, nullptr, {}, {});
    badChain.Transforms.TransformList.push_back(new TForeignTransform);
    EXPECT_EQ(CreateCopy(badChain), nullptr);

    TGeocentricReferenceSystem badPair(nullptr, nullptr, {}, {});
    badPair.PairwiseTransforms["k"].TransformList.push_back(new TForeignTransform);
    EXPECT_EQ(CreateCopy(badPair), nullptr);

    TGeocentricReferenceSystem badShift(nullptr, nullptr, {}, {});
    badShift.DatumShift = new TForeignShift;
    EXPECT_EQ(CreateCopy(badShift), nullptr);
}
