#include "core/refsystems/GeodeticReferenceSystem.h"
#include "core/refsystems/TransformsSet.h"
#include "core/transforms/PlaneAndVertical.h"
#include "core/transforms/PlaneGrid.h"
#include "core/transforms/SevenParameters.h"

#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>
#include <vector>

namespace {

using namespace KvRefSystem;

/** A transform that no copy knows, of any type. */
class TForeignTransform : public TRefSystemTransform {
public:
    explicit TForeignTransform(int type)
        : TRefSystemTransform(static_cast<TReferenceSystemTransformType>(type)) {}
    bool operator==(TRefSystemTransform const& other) const override { return this == &other; }
    void BaseToTransformed(TReferenceSystem const*, TCoords*) const override {}
    void TransformedToBase(TReferenceSystem const*, TCoords*) const override {}
};

/** One transform of every class. */
std::vector<std::unique_ptr<TRefSystemTransform>> OneOfEach() {
    double const M[4] = {1, 2, 3, 4};
    double const S[2] = {5, 6};
    T2DTable<float> table;
    EXPECT_TRUE(table.LoadFromString2("1 2 1 0 0 1 2", nullptr));
    TEllipsoid const ellipsoid(6378137.0, 6356752.314245179);
    TGeodeticReferenceSystem const system(nullptr, nullptr, &ellipsoid, TRefSystemTransformsSet(), {});
    std::vector<std::unique_ptr<TRefSystemTransform>> all;
    all.push_back(std::make_unique<TPlaneRotationRefSystemTransform>(0.25));
    all.push_back(std::make_unique<TPlaneShiftRefSystemTransform>(1, 2));
    all.push_back(std::make_unique<TSevenParametersRefSystemTransform>(10, 20, 30, 0.1, 0.2, 0.3, 0.001));
    all.push_back(std::make_unique<TPlaneAffineRefSystemTransform>(M, S));
    all.push_back(std::make_unique<TPlaneGridRefSystemTransform>(table, table, 1.5, &system));
    all.push_back(std::make_unique<TVerticalShiftRefSystemTransform>(7));
    return all;
}

TEST(CreateTransformCopy, KeepsClassAndNumbersAndLosesTheNames) {
    int expectedType = rsttPlaneRotation;
    for (auto const& source : OneOfEach()) {
        EXPECT_EQ(source->Type, expectedType++);
        source->Name = "name";
        source->Description = "description";
        std::unique_ptr<TRefSystemTransform> const copy(CreateTransformCopy(*source));
        ASSERT_NE(copy, nullptr);
        EXPECT_NE(copy, source);
        TRefSystemTransform const& original = *source;
        TRefSystemTransform const& copied = *copy;
        EXPECT_TRUE(typeid(copied) == typeid(original));
        EXPECT_TRUE(copied == original);
        EXPECT_EQ(copy->Name, "");
        EXPECT_EQ(copy->Description, "");
    }
}

TEST(CreateTransformCopy, CopiesWorkLikeTheirSources) {
    TEllipsoid const ellipsoid(6378137.0, 6356752.314245179);
    TGeodeticReferenceSystem const holder(nullptr, nullptr, &ellipsoid, TRefSystemTransformsSet(), {});
    for (auto const& source : OneOfEach()) {
        std::unique_ptr<TRefSystemTransform> const copy(CreateTransformCopy(*source));
        ASSERT_NE(copy, nullptr);
        TCoords one;
        one.X = 0.5;
        one.Y = 0.25;
        one.Z = 100;
        TCoords two = one;
        source->BaseToTransformed(&holder, &one);
        copy->BaseToTransformed(&holder, &two);
        EXPECT_TRUE(one == two);
        EXPECT_EQ(source->PreservesHeights(), copy->PreservesHeights());
    }
}

TEST(CreateTransformCopy, EveryPairOfClassesDiffers) {
    auto const all = OneOfEach();
    for (auto const& first : all) {
        for (auto const& second : all) {
            EXPECT_EQ(*first == *second, first == second);
        }
    }
}

TEST(CreateTransformCopy, OfAnUnknownTypeIsNull) {
    for (int type : {-1, 0, 7, 1000}) {
        EXPECT_EQ(CreateTransformCopy(TForeignTransform(type)), nullptr) << type;
    }
}

TEST(CreateTransformCopy, OfAForeignClassWithAKnownTypeIsNull) {
    for (int type = rsttPlaneRotation; type <= rsttVerticalShift; ++type) {
        EXPECT_EQ(CreateTransformCopy(TForeignTransform(type)), nullptr) << type;
    }
}

TEST(CreateTransformCopy, SwallowsAFailedCopy) {
    TEllipsoid const ellipsoid(6378137.0, 6356752.314245179);
    TGeodeticReferenceSystem const system(nullptr, nullptr, &ellipsoid, TRefSystemTransformsSet(), {});
    TPlaneGridRefSystemTransform const grid(T2DTable<float>(), T2DTable<float>(), 1.0, &system);
    grid.GridRefSystem->Type = static_cast<TReferenceSystemType>(77);
    EXPECT_EQ(CreateTransformCopy(grid), nullptr);
    TRefSystemTransformsSet chain;
    EXPECT_FALSE(chain.AddNextTransform(grid));
    EXPECT_TRUE(chain.TransformList.empty());
}

} // namespace
