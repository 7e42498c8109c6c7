#include "shell/refsystems/public/CoordinateOperation.h"

#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/Descriptions.h"

#include <gtest/gtest.h>

#include <memory>

namespace KvRefSystem {
namespace {

using namespace TestSupport;
using KvRefSystemTests::AllocationCount;

/** How often a hundred points on the road from `source` to `target` allocate. */
std::size_t AllocationsOnTheRoad(TShellReferenceSystem const& source, TShellReferenceSystem const& target) {
    double x = 0;
    double y = 0;
    double z = 0;
    std::size_t const before = AllocationCount();
    for (int pass = 0; pass < 100; ++pass) {
        EXPECT_TRUE(TransformCoords(&source, 45 + pass * 0.1, 3, 100, &target, &x, &y, &z));
    }
    return AllocationCount() - before;
}

TEST(PointRoad, TheCounterCounts) {
    std::size_t const before = AllocationCount();

    auto const system = Create(Pulkovo1942());

    ASSERT_NE(system, nullptr);
    EXPECT_GT(AllocationCount(), before);
}

TEST(PointRoad, NoPointAllocates) {
    std::unique_ptr<TShellReferenceSystem> const target(
        CreateShellReferenceSystem(CatalogText("wgs-84"), nullptr));
    // Seven parameters; a meridian and grads; sexagesimal texts; heights in feet; an ellipsoid without a datum.
    for (char const* const name : {"pulkovo-1942", "ntf-paris", "wgs-84-dms", "wgs-84-feet", "sphere"}) {
        std::unique_ptr<TShellReferenceSystem> const source(
            CreateShellReferenceSystem(CatalogText(name), nullptr));
        ASSERT_NE(source, nullptr) << name;
        EXPECT_EQ(AllocationsOnTheRoad(*source, *target), 0U) << name;
        EXPECT_EQ(AllocationsOnTheRoad(*target, *source), 0U) << name;
    }
}

TEST(PointRoad, NoPointAllocatesOnTheWayThroughChainsAndProxies) {
    TShellRefSystemTransformShiftZParams shift;
    shift.dH = 1;
    auto const source = Create(Pulkovo1942());
    auto const target = Create(WithZeroShift());
    ASSERT_TRUE(source->AppendTransform(&shift));
    ASSERT_TRUE(target->SetProxyRefSys(newobj_a(Create(Pulkovo1942()).release())));

    EXPECT_EQ(AllocationsOnTheRoad(*source, *target), 0U);
}

} // namespace
} // namespace KvRefSystem
