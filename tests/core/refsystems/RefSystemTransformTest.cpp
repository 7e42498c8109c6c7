#include "core/refsystems/RefSystemTransform.h"

#include "TestKinds.h"
#include "core/transforms/PlaneAndVertical.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <string>
#include <vector>

using namespace KvRefSystem;
using namespace KvRefSystemTests;

namespace {

std::string TypeName(int type) {
    return GetReferenceSystemTransformTypeName(static_cast<TReferenceSystemTransformType>(type));
}

} // namespace

TEST(RefSystemTransform, TypesHaveTheirNames) {
    EXPECT_EQ(TypeName(1), "Plane rotation");
    EXPECT_EQ(TypeName(2), "Plane shift");
    EXPECT_EQ(TypeName(3), "Seven params");
    EXPECT_EQ(TypeName(4), "Plane affine");
    EXPECT_EQ(TypeName(5), "Plane grid");
    EXPECT_EQ(TypeName(6), "Vertical ShiftZ");
}

TEST(RefSystemTransform, UnknownTypesHaveAnEmptyName) {
    for (int const type : {0, 7, -1, INT_MAX, INT_MIN}) {
        EXPECT_EQ(TypeName(type), "") << type;
    }
}

TEST(RefSystemTransform, BeginsWithEmptyNameAndDescription) {
    TForeignTransform const transform(5);
    EXPECT_EQ(transform.Name, "");
    EXPECT_EQ(transform.Description, "");
    EXPECT_EQ(transform.Type, rsttPlaneGrid);
}

TEST(RefSystemTransform, CopiesLoseNameAndDescription) {
    TForeignTransform source("label", nullptr);
    source.Name = "name";
    source.Description = "description";
    TForeignTransform const copy(source);
    EXPECT_EQ(copy.Name, "");
    EXPECT_EQ(copy.Description, "");
    EXPECT_EQ(copy.Type, source.Type);
    EXPECT_EQ(copy.Label, "label");
}

TEST(RefSystemTransform, DoesNotPreserveHeightsUnlessItsClassSaysSo) {
    EXPECT_FALSE(TForeignTransform().PreservesHeights());
}

TEST(RefSystemTransform, OutputAppendsNameDescriptionAndType) {
    TForeignTransform transform(4);
    transform.Name = "n";
    transform.Description = "d";
    std::vector<std::string> lines{"before"};
    transform.Output(&lines);
    EXPECT_EQ(lines, (std::vector<std::string>{"before", "Name: n", "Description: d", "Type: Plane affine"}));
}

TEST(RefSystemTransform, TwoPointFormsAssignAndTransformTheOutput) {
    TForeignTransform const transform;
    TTestKind const system(1);
    TCoords const in{10, 20, 30, true};
    TCoords out;
    transform.BaseToTransformed(&system, in, &out);
    EXPECT_EQ(transform.LastSystem, &system);
    EXPECT_EQ(out, (TCoords{11, 20, 30, true}));
    EXPECT_EQ(out.Z, 30.0);
    EXPECT_EQ(in.X, 10.0);
    transform.TransformedToBase(nullptr, in, &out);
    EXPECT_EQ(transform.LastSystem, nullptr);
    EXPECT_EQ(out, (TCoords{9, 20, 30, true}));
}

TEST(RefSystemTransform, TwoPointFormsAcceptOnePointAsInputAndOutput) {
    // A quarter turn: X' = Y, Y' = -X.
    TPlaneRotationRefSystemTransform const rotation(Pi / 2);
    TCoords point = Point(3, 4, 5);
    rotation.BaseToTransformed(nullptr, point, &point);
    EXPECT_NEAR(point.X, 4, 1e-15);
    EXPECT_NEAR(point.Y, -3, 1e-15);
    rotation.TransformedToBase(nullptr, point, &point);
    EXPECT_NEAR(point.X, 3, 1e-15);
    EXPECT_NEAR(point.Y, 4, 1e-15);
    EXPECT_EQ(point.Z, 5.0);
}
