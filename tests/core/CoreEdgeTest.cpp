#include "core/primitives/BursaWolfDatumShift.h"
#include "core/primitives/WGS84SemiAxes.h"
#include "core/refsystems/GeocentricReferenceSystem.h"
#include "core/refsystems/PrimeMeridian.h"
#include "core/transforms/FloatTable.h"
#include "core/transforms/PlaneAndVertical.h"
#include "frame/imported/OptionTable.h"
#include "hostkit/ProcessHooks.h"
#include "tests/core/refsystems/TestKinds.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <thread>
#include <vector>

using namespace KvRefSystem;
using namespace KvRefSystemTests;

namespace {

/** A host's own access to its tables, in the place of the kit's for as long as this object lives. */
class TOwnTables {
public:
    TOwnTables() {
        table.RegisterOption<double>("planet/ellipsoid/a", 1737400.0, nullptr);
        table.RegisterOption<double>("planet/ellipsoid/b", 1736000.0, nullptr);
        current = this;
        new (static_cast<void*>(&GlobalOT)) TAccess();
        VellariHostKit::SetApplication(this);
    }
    TOwnTables(TOwnTables const&) = delete;
    TOwnTables& operator=(TOwnTables const&) = delete;
    ~TOwnTables() {
        VellariHostKit::SetApplication(nullptr);
        new (static_cast<void*>(&GlobalOT)) TKvOptionTableAccess();
    }

    int lastKind = 0;
    bool answersNull = false;

private:
    struct TAccess : TKvOptionTableAccess {
        TKvOptionTable* GetTable(int kind) override {
            current->lastKind = kind;
            return current->answersNull ? nullptr : &current->table;
        }
    };

    static inline TOwnTables* current = nullptr;
    TKvOptionTable table;
};

} // namespace

TEST(WGS84SemiAxesEdge, AsksTheHostsOwnTablesThroughTheirFirstVirtualOperation) {
    TOwnTables tables;
    double a = 0;
    double b = 0;
    GetWGS84SemiAxes(&a, &b);
    EXPECT_EQ(tables.lastKind, 1);
    EXPECT_EQ(a, 1737400.0);
    EXPECT_EQ(b, 1736000.0);
}

TEST(WGS84SemiAxesEdge, AreTheConstantsWhenTheHostHasNoTable) {
    TOwnTables tables;
    tables.answersNull = true;
    double a = 0;
    double b = 0;
    GetWGS84SemiAxes(&a, &b);
    EXPECT_EQ(tables.lastKind, 1);
    EXPECT_EQ(a, 6378137.0);
    EXPECT_EQ(b, 6356752.314245179);
}

TEST(FloatTableEdge, ComparisonIsTheOnlyVirtualFunctionAndStandsFirst) {
    // A pointer to a virtual function holds one more than the slot's distance in the table.
    auto const function = &T2DTable<float>::operator==;
    std::uintptr_t words[2] = {};
    static_assert(sizeof words == sizeof function);
    std::memcpy(words, &function, sizeof words);
    EXPECT_EQ(words[0], 1u);
}

TEST(GeocentricReferenceSystemEdge, OneShiftAndTwoMeridiansMakeTwoRotationsOnly) {
    // 30 degrees to Greenwich and 60 degrees on to the target's meridian: a quarter, (x, y) to (-y, x).
    TBursaWolfDatumShift const shift = Shift(23.92, -141.27, -80.9);
    TPrimeMeridian const east(Radians(30));
    TPrimeMeridian const west(Radians(-60));
    TGeocentricReferenceSystem const source(&shift, &east, {}, {});
    TGeocentricReferenceSystem const target(&shift, &west, {}, {});
    TCoords point = Point(2928363.0, 2206680.0, 5201547.0);
    source.OperateCoords(target, &point);
    EXPECT_NEAR(point.X, -2206680.0, 1e-8);
    EXPECT_NEAR(point.Y, 2928363.0, 1e-8);
    EXPECT_EQ(point.Z, 5201547.0);
}

TEST(BursaWolfDatumShiftParametersEdge, InvertAgreesWithTheNumbersWorkedOutByHand) {
    TBursaWolfDatumShiftParameters const source(100, 50, -300, 1e-3, -2e-3, 3e-3, 1.001);
    TBursaWolfDatumShiftParameters const inverse(source, true);
    // -(100 + 0.15 - 0.6) / 1.001, -(50 - 0.3 - 0.3) / 1.001, -(-300 - 0.2 - 0.05) / 1.001
    EXPECT_NEAR(inverse.ShiftX, -99.450549451, 1e-9);
    EXPECT_NEAR(inverse.ShiftY, -49.350649351, 1e-9);
    EXPECT_NEAR(inverse.ShiftZ, 299.950049950, 1e-9);
    EXPECT_NEAR(inverse.Scale, 0.999000999, 1e-9);
    EXPECT_EQ(inverse.RotationX, -1e-3);
    EXPECT_EQ(inverse.RotationY, 2e-3);
    EXPECT_EQ(inverse.RotationZ, -3e-3);
    EXPECT_FALSE(inverse.OnlyShift);
}

TEST(PlaneAffineEdge, ADeterminantOfExactlyTheLimitIsRefusedWithEitherSign) {
    double const shift[2] = {0, 0};
    double const positive[4] = {1e-20, 0, 0, 1};
    double const negative[4] = {0, 1e-20, 1, 0};
    EXPECT_THROW(TPlaneAffineRefSystemTransform(positive, shift), std::runtime_error);
    EXPECT_THROW(TPlaneAffineRefSystemTransform(negative, shift), std::runtime_error);
}

TEST(TransformsSetEdge, SeveralThreadsRunOneSet) {
    TRefSystemTransformsSet const set =
        SetOf(TPlaneRotationRefSystemTransform(Pi / 6), TPlaneShiftRefSystemTransform(1, 2),
              TVerticalShiftRefSystemTransform(3));
    std::vector<TCoords> results(4);
    std::vector<std::thread> threads;
    for (TCoords& result : results) {
        threads.emplace_back([&set, &result] {
            for (int round = 0; round < 1000; ++round) {
                result = Point(100, 200, 7);
                set.BaseToTransformed(nullptr, &result);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (TCoords const& result : results) {
        // 100 cos 30 + 200 sin 30 + 1, 200 cos 30 - 100 sin 30 + 2
        EXPECT_NEAR(result.X, 187.602540378, 1e-9);
        EXPECT_NEAR(result.Y, 125.205080757, 1e-9);
        EXPECT_EQ(result.Z, 10.0);
    }
}
