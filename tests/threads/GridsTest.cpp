#include "hostkit/grids/GeoidGrid.h"
#include "tests/hostkit/TempFolder.h"
#include "tests/hostkit/grids/GridFiles.h"
#include "tests/support/Systems.h"
#include "tests/threads/Places.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace KvRefSystem;
using namespace TestSupport;
using namespace Threads;
using VellariHostKit::TGeoidGrid;

/** 50 to 60 N, 30 to 40 E; undulations grow from 10 m in the west to 20 m in the east. */
std::string SlopeText() {
    return GridFiles::GtxText({50, 30, 10, 10, 2, 2}, {10, 20, 10, 20});
}

TEST(GridsInThreads, OneGridAnswersAll) {
    TempFolder const folder;
    TGeoidGrid const grid(folder.Put("slope.gtx", SlopeText()));

    auto const outcome = AskTogether(200, [&](int) {
        TMovedPoints moved;
        for (int step = 0; step <= 20; ++step) {
            TMoved answer;
            answer.done = grid.Undulation(29.5 + step * 0.55, 55, &answer.point[0]);
            answer.point[1] = grid.Extent().east;
            moved.push_back(answer);
        }
        return moved;
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_FALSE(outcome.alone.front().done); // 29.5 E is outside
    for (int step = 1; step < 20; ++step) {
        ASSERT_TRUE(outcome.alone[static_cast<std::size_t>(step)].done) << step;
        EXPECT_NEAR(outcome.alone[static_cast<std::size_t>(step)].point[0], 9.5 + step * 0.55, 1e-12);
        EXPECT_EQ(outcome.alone[static_cast<std::size_t>(step)].point[1], 40);
    }
}

TEST(GridsInThreads, FilesAreReadByAllAtOnce) {
    TempFolder const folder;
    std::string const gtx = folder.Put("slope.gtx", SlopeText());
    std::string const tiff = folder.File("slope.tif");
    GridFiles::TImage image;
    image.Numbers = {10, 20, 10, 20};
    GridFiles::WriteTiff(tiff, {image});
    std::string const broken = folder.Put("broken.gtx", "no grid");

    auto const outcome = AskTogether(20, [&](int) {
        TMoved moved;
        moved.done = TGeoidGrid(gtx).Undulation(35, 55, &moved.point[0]) &&
                     TGeoidGrid(tiff).Undulation(10.5, 50.5, &moved.point[1]);
        try {
            TGeoidGrid const none(broken);
        } catch (std::runtime_error const&) {
            moved.point[2] = 1;
        }
        return moved;
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_EQ(outcome.alone, (TMoved{true, {15, 15, 1}}));
}

TEST(GridsInThreads, AGridOnASharedProxyAndOneOnTheSystemServeAll) {
    TempFolder const folder;
    TGeoidGrid slope(folder.Put("slope.gtx", SlopeText()));
    TLevelGrid level(14.5);
    auto const gridSystem = Geodetic(WithZeroShift());
    std::vector<TPlace> const places = EarthBoundPlaces();
    TPlace const& overGeoid = places[4]; // WGS 84, geodetic
    TPlace const& target = places[7];    // UTM 37
    ASSERT_TRUE(overGeoid.system->SetGeoid("level", &level, gridSystem.get()));
    auto proxy = Geodetic(WithZeroShift());
    ASSERT_TRUE(proxy->SetGeoid("slope", &slope, gridSystem.get()));
    var_a<TShellReferenceSystem*> const shared =
        newobj_a(static_cast<TShellReferenceSystem*>(proxy.release()));
    ASSERT_TRUE(overGeoid.system->SetProxyRefSys(shared));
    ASSERT_TRUE(target.system->SetProxyRefSys(shared));
    TPoint point = overGeoid.point;
    point[2] -= 14.5;

    auto const outcome = AskTogether(200, [&](int) {
        return TMovedPoints{Move(*overGeoid.system, point, *target.system),
                            Move(*target.system, target.point, *overGeoid.system)};
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_EQ(shared->GetGeoidID(), "slope");
    ExpectAt(outcome.alone[0], overGeoid, target);
    TMoved back = outcome.alone[1];
    back.point[2] += 14.5;
    ExpectAt(back, target, overGeoid);
}

TEST(GridsInThreads, GeoidsOfTheirOwnOnBothSystemsServeAll) {
    TempFolder const folder;
    TGeoidGrid slope(folder.Put("slope.gtx", SlopeText()));
    TLevelGrid level(14.5);
    auto const gridSystem = Geodetic(WithZeroShift());
    auto const from = Geodetic(WithZeroShift());
    auto const to = Geodetic(WithZeroShift());
    ASSERT_TRUE(from->SetGeoid("slope###-0.25", &slope, gridSystem.get()));
    ASSERT_TRUE(to->SetGeoid("level", &level, gridSystem.get()));

    auto const outcome = AskTogether(200, [&](int) {
        return TMovedPoints{Move(*from, {55, 34, 100}, *to), Move(*from, {55, 34, 100}, *gridSystem),
                            Move(*gridSystem, {65, 34, 100}, *from)};
    });

    EXPECT_EQ(outcome.deviations, 0);
    ASSERT_TRUE(outcome.alone[0].done && outcome.alone[1].done);
    EXPECT_NEAR(outcome.alone[0].point[2], 100 + 14 - 0.25 - 14.5, 1e-6); // 14 m at 34 E
    EXPECT_NEAR(outcome.alone[1].point[2], 100 + 14 - 0.25, 1e-6);
    EXPECT_FALSE(outcome.alone[2].done); // 65 N is outside
}

} // namespace
