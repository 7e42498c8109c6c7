#include "core/refsystems/TransformsSet.h"

#include "TestKinds.h"
#include "core/transforms/PlaneAndVertical.h"
#include "core/transforms/SevenParameters.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace KvRefSystem;
using namespace KvRefSystemTests;

namespace {

char const* const CopyFailed =
    "TRefSystemTransformsSet::TRefSystemTransformsSet(const TRefSystemTransformsSet& src)";

TRefSystemTransformsSet RotationThenShift() {
    return SetOf(TPlaneRotationRefSystemTransform(Pi / 2), TPlaneShiftRefSystemTransform(10, 20));
}

} // namespace

TEST(TransformsSet, BeginsEmpty) {
    TRefSystemTransformsSet const set;
    EXPECT_TRUE(set.TransformList.empty());
    EXPECT_EQ(set.TransformID, "");
    EXPECT_EQ(set.Cursor, 0U);
    EXPECT_EQ(set.GetFirstTransform(), nullptr);
}

TEST(TransformsSet, EmptyIsTheIdentityBothWaysAndPreservesHeights) {
    TRefSystemTransformsSet const set;
    TCoords point{1, 2, 3, true};
    set.BaseToTransformed(nullptr, &point);
    set.TransformedToBase(nullptr, &point);
    EXPECT_EQ(point.X, 1.0);
    EXPECT_EQ(point.Y, 2.0);
    EXPECT_EQ(point.Z, 3.0);
    EXPECT_TRUE(point.ZUndefined);
    EXPECT_TRUE(set.PreservesHeights());
}

TEST(TransformsSet, HoldsCopiesThatHaveLostTheirNames) {
    TPlaneShiftRefSystemTransform shift(1, 2);
    shift.Name = "name";
    shift.Description = "description";
    TRefSystemTransformsSet set;
    EXPECT_TRUE(set.AddNextTransform(shift));
    ASSERT_EQ(set.TransformList.size(), 1U);
    EXPECT_NE(set.TransformList[0], &shift);
    EXPECT_EQ(set.TransformList[0]->Name, "");
    EXPECT_EQ(set.TransformList[0]->Description, "");
    EXPECT_EQ(*set.TransformList[0], shift);
}

TEST(TransformsSet, RefusesATransformThatCannotBeCopied) {
    TRefSystemTransformsSet set = RotationThenShift();
    set.GetFirstTransform();
    EXPECT_FALSE(set.AddNextTransform(TForeignTransform()));
    EXPECT_EQ(set.TransformList.size(), 2U);
    EXPECT_EQ(set.Cursor, 0U);
}

TEST(TransformsSet, AcceptsACopyOfItsOwnTransform) {
    TRefSystemTransformsSet set = SetOf(TPlaneShiftRefSystemTransform(1, 2));
    EXPECT_TRUE(set.AddNextTransform(*set.TransformList[0]));
    EXPECT_EQ(*set.TransformList[0], *set.TransformList[1]);
}

TEST(TransformsSet, RunsForwardFromFirstToLast) {
    // The quarter turn takes (1, 2) to (2, -1); the shift follows.
    TCoords point = Point(1, 2, 3);
    RotationThenShift().BaseToTransformed(nullptr, &point);
    EXPECT_NEAR(point.X, 12, 1e-14);
    EXPECT_NEAR(point.Y, 19, 1e-14);
    EXPECT_EQ(point.Z, 3.0);
}

TEST(TransformsSet, RunsBackFromLastToFirst) {
    TCoords point = Point(12, 19, 3);
    RotationThenShift().TransformedToBase(nullptr, &point);
    EXPECT_NEAR(point.X, 1, 1e-14);
    EXPECT_NEAR(point.Y, 2, 1e-14);
}

TEST(TransformsSet, HandsTheSystemToEachTransform) {
    TTestKind const system(1);
    TRefSystemTransformsSet set;
    auto* const transform = new TForeignTransform;
    set.TransformList.push_back(transform);
    TCoords point;
    set.BaseToTransformed(&system, &point);
    EXPECT_EQ(transform->LastSystem, &system);
    set.TransformedToBase(nullptr, &point);
    EXPECT_EQ(transform->LastSystem, nullptr);
}

TEST(TransformsSet, PreservesHeightsWhenAllDo) {
    TSevenParametersRefSystemTransform const similarity;
    EXPECT_TRUE(RotationThenShift().PreservesHeights());
    EXPECT_FALSE(SetOf(similarity).PreservesHeights());
    EXPECT_FALSE(SetOf(TPlaneShiftRefSystemTransform(1, 2), similarity).PreservesHeights());
    EXPECT_FALSE(SetOf(similarity, TPlaneShiftRefSystemTransform(1, 2)).PreservesHeights());
}

TEST(TransformsSet, WithAVerticalShiftStillCountsAsHeightPreserving) {
    TRefSystemTransformsSet const set =
        SetOf(TPlaneShiftRefSystemTransform(1, 2), TVerticalShiftRefSystemTransform(5));
    EXPECT_TRUE(set.PreservesHeights());
    TCoords point;
    set.BaseToTransformed(nullptr, &point);
    EXPECT_EQ(point, Point(1, 2, 5));
}

TEST(TransformsSet, CursorWalksFromFirstToEndAndStaysThere) {
    TRefSystemTransformsSet const set = RotationThenShift();
    EXPECT_EQ(set.GetFirstTransform(), set.TransformList[0]);
    EXPECT_EQ(set.GetNextTransform(), set.TransformList[1]);
    EXPECT_EQ(set.GetNextTransform(), nullptr);
    EXPECT_EQ(set.GetNextTransform(), nullptr);
    EXPECT_EQ(set.Cursor, 2U);
    EXPECT_EQ(set.GetFirstTransform(), set.TransformList[0]);
}

TEST(TransformsSet, NextWithoutFirstIsNull) {
    EXPECT_EQ(RotationThenShift().GetNextTransform(), nullptr);
    EXPECT_EQ(TRefSystemTransformsSet().GetNextTransform(), nullptr);
}

TEST(TransformsSet, CursorBeyondTheListIsHarmless) {
    TRefSystemTransformsSet const set = RotationThenShift();
    set.Cursor = static_cast<std::size_t>(-1);
    EXPECT_EQ(set.GetNextTransform(), nullptr);
}

TEST(TransformsSet, AddingMovesTheCursorToTheEnd) {
    TRefSystemTransformsSet set = RotationThenShift();
    set.GetFirstTransform();
    set.AddNextTransform(TVerticalShiftRefSystemTransform(1));
    EXPECT_EQ(set.Cursor, 3U);
    EXPECT_EQ(set.GetNextTransform(), nullptr);
}

TEST(TransformsSet, ClearEmptiesTheIdentifierToo) {
    TRefSystemTransformsSet set = RotationThenShift();
    set.TransformID = "id";
    set.ClearTransforms();
    EXPECT_TRUE(set.TransformList.empty());
    EXPECT_EQ(set.TransformID, "");
    EXPECT_EQ(set.Cursor, 0U);
    EXPECT_TRUE(set == TRefSystemTransformsSet());
}

TEST(TransformsSet, CopyIsDeepAndKeepsTheIdentifier) {
    TRefSystemTransformsSet source = RotationThenShift();
    source.TransformID = "id";
    source.TransformList[0]->Name = "name";
    source.GetFirstTransform();
    TRefSystemTransformsSet const copy = CopyOf(source);
    ASSERT_EQ(copy.TransformList.size(), 2U);
    EXPECT_NE(copy.TransformList[0], source.TransformList[0]);
    EXPECT_EQ(copy.TransformList[0]->Name, "");
    EXPECT_EQ(copy.TransformID, "id");
    EXPECT_EQ(copy.Cursor, 2U);
    EXPECT_EQ(source.Cursor, 0U);
    EXPECT_TRUE(copy == source);
}

TEST(TransformsSet, CopyThrowsWhenATransformCannotBeCopied) {
    TRefSystemTransformsSet source = RotationThenShift();
    source.TransformList.push_back(new TForeignTransform);
    EXPECT_EQ(ThrownText<std::runtime_error>([&] { CopyOf(source); }), CopyFailed);
}

TEST(TransformsSet, CopyTreatsANullEntryAsAFailedCopy) {
    TRefSystemTransformsSet source = RotationThenShift();
    source.TransformList.push_back(nullptr);
    EXPECT_EQ(ThrownText<std::runtime_error>([&] { CopyOf(source); }), CopyFailed);
    source.TransformList.pop_back();
}

TEST(TransformsSet, AssignmentIsDeep) {
    TRefSystemTransformsSet source = RotationThenShift();
    source.TransformID = "id";
    TRefSystemTransformsSet target = SetOf(TVerticalShiftRefSystemTransform(1));
    target = source;
    EXPECT_TRUE(target == source);
    EXPECT_NE(target.TransformList[0], source.TransformList[0]);
    EXPECT_EQ(target.Cursor, 2U);
}

TEST(TransformsSet, AssignmentToItselfKeepsEverything) {
    TRefSystemTransformsSet set = RotationThenShift();
    TRefSystemTransform const* const first = set.TransformList[0];
    TRefSystemTransformsSet const& itself = set;
    set = itself;
    ASSERT_EQ(set.TransformList.size(), 2U);
    EXPECT_EQ(set.TransformList[0], first);
}

TEST(TransformsSet, FailedAssignmentKeepsTheTarget) {
    TRefSystemTransformsSet source;
    source.TransformList.push_back(new TForeignTransform);
    TRefSystemTransformsSet target = RotationThenShift();
    EXPECT_EQ(ThrownText<std::runtime_error>([&] { target = source; }), CopyFailed);
    EXPECT_TRUE(target == RotationThenShift());
}

TEST(TransformsSet, SwapExchangesTheContentsAndPutsBothCursorsToTheEnd) {
    TRefSystemTransformsSet first = RotationThenShift();
    first.TransformID = "first";
    first.GetFirstTransform();
    TRefSystemTransformsSet second = SetOf(TVerticalShiftRefSystemTransform(1));
    second.GetFirstTransform();
    first.Swap(second);
    EXPECT_EQ(first.TransformList.size(), 1U);
    EXPECT_EQ(first.TransformID, "");
    EXPECT_EQ(first.Cursor, 1U);
    EXPECT_EQ(second.TransformList.size(), 2U);
    EXPECT_EQ(second.TransformID, "first");
    EXPECT_EQ(second.Cursor, 2U);
}

TEST(TransformsSet, EqualityComparesLengthOrderAndNumbers) {
    TPlaneShiftRefSystemTransform const shift(10, 20);
    TPlaneRotationRefSystemTransform const rotation(Pi / 2);
    EXPECT_TRUE(RotationThenShift() == RotationThenShift());
    EXPECT_FALSE(RotationThenShift() == SetOf(rotation));
    EXPECT_FALSE(RotationThenShift() == SetOf(shift, rotation));
    EXPECT_FALSE(SetOf(shift) == SetOf(TPlaneShiftRefSystemTransform(10, 21)));
    EXPECT_TRUE(SetOf(shift) != SetOf(rotation));
}

TEST(TransformsSet, WithTheSameTransformsAndDifferentIdentifiersAreUnequal) {
    TRefSystemTransformsSet first = RotationThenShift();
    TRefSystemTransformsSet second = RotationThenShift();
    first.TransformID = "a";
    second.TransformID = "b";
    EXPECT_FALSE(first == second);
    second.TransformID = "a";
    EXPECT_TRUE(first == second);
}

TEST(TransformsSet, ANullEntryMakesItUnequalEvenToItself) {
    TRefSystemTransformsSet set;
    set.TransformList.push_back(nullptr);
    TRefSystemTransformsSet const full = SetOf(TVerticalShiftRefSystemTransform(1));
    EXPECT_FALSE(set == set);
    EXPECT_FALSE(set == full);
    EXPECT_FALSE(full == set);
    set.TransformList.clear();
}

TEST(TransformsSet, OutputReplacesTheLines) {
    TRefSystemTransformsSet set = SetOf(TPlaneShiftRefSystemTransform(1.5, -2));
    set.TransformID = "id";
    std::vector<std::string> lines{"before"};
    set.Output(&lines);
    EXPECT_EQ(lines, (std::vector<std::string>{"Transform count: 1", "Transform ID: id",
                                               "--------- Transform ----------",
                                               "Name: ", "Description: ", "Type: Plane shift", "dX = 1.5",
                                               "dY = -2", "=============================="}));
}

TEST(TransformsSet, OutputOfAnEmptySetHasThreeLines) {
    std::vector<std::string> lines;
    TRefSystemTransformsSet().Output(&lines);
    EXPECT_EQ(lines, (std::vector<std::string>{"Transform count: 0",
                                               "Transform ID: ", "=============================="}));
}
