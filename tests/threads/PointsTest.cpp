#include "shell/refsystems/public/CoordinateOperation.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"
#include "tests/threads/Places.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <string>
#include <vector>

namespace {

using namespace KvRefSystem;
using namespace TestSupport;
using namespace Threads;

TEST(PointsInThreads, OnePairOfEveryTwoEarthBoundKindsServesAll) {
    std::vector<TPlace> const places = EarthBoundPlaces();

    auto const outcome = AskTogether(150, [&](int) {
        TMovedPoints moved;
        for (TPlace const& source : places) {
            for (TPlace const& target : places) {
                moved.push_back(Move(*source.system, source.point, *target.system));
            }
        }
        return moved;
    });

    EXPECT_EQ(outcome.deviations, 0);
    std::size_t pair = 0;
    for (TPlace const& source : places) {
        for (TPlace const& target : places) {
            ExpectAt(outcome.alone[pair++], source, target);
        }
    }
}

TEST(PointsInThreads, OnePairOfEveryTwoLocalKindsServesAll) {
    std::vector<TSystem> const systems = LocalSystems();

    auto const outcome = AskTogether(2000, [&](int) {
        TMovedPoints moved;
        for (TSystem const& source : systems) {
            for (TSystem const& target : systems) {
                moved.push_back(Move(*source, {1000, 2000, 10}, *target));
            }
        }
        return moved;
    });

    EXPECT_EQ(outcome.deviations, 0);
    // 5e6 / (2 * 6371000), by hand, for a change between flat and curved.
    double const bend[] = {0, 0.39240307644, 0.39240307644, 0};
    for (std::size_t pair = 0; pair < 4; ++pair) {
        ASSERT_TRUE(outcome.alone[pair].done);
        EXPECT_EQ(outcome.alone[pair].point[0], 1000);
        EXPECT_EQ(outcome.alone[pair].point[1], 2000);
        EXPECT_NEAR(std::abs(outcome.alone[pair].point[2] - 10), bend[pair], 1e-11);
    }
}

TEST(PointsInThreads, WhatFailsFailsForAll) {
    std::vector<TPlace> const places = EarthBoundPlaces();
    std::vector<TSystem> const locals = LocalSystems();

    auto const outcome = AskTogether(10, [&](int) {
        TMovedPoints moved;
        for (TPlace const& place : places) {
            for (TSystem const& local : locals) {
                moved.push_back(Move(*local, {1, 2, 3}, *place.system));
                moved.push_back(Move(*place.system, place.point, *local));
            }
        }
        return moved;
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_EQ(outcome.alone, TMovedPoints(places.size() * locals.size() * 2)); // none is moved
}

TEST(PointsInThreads, ChainsOfEveryClassAreOnlyRead) {
    auto const source = Projected(On(WithZeroShift(), UtmZone(37, 'N')));
    auto const target = Projected(On(WithZeroShift(), UtmZone(37, 'N')));
    TShellRefSystemTransform2DAffineParams affine(true);
    affine.a13 = 1000;
    TShellRefSystemTransform2DGridParams grid;
    grid.dE = "2 2 1000000 6000000 0 4 4 4 4"; // 4 m everywhere
    grid.dN = "2 2 1000000 6000000 0 2 2 2 2";
    grid.coef = 0.5;
    ASSERT_TRUE(target->AppendTransform(&affine));
    ASSERT_TRUE(target->AppendTransform(&grid));
    TShellRefSystemTransformShiftZParams const shift = HeightShift(7);
    ASSERT_TRUE(target->AppendTransform(&shift));

    auto const outcome = AskTogether(2000, [&](int) {
        return Move(*source, {400000, 6200000, 50}, *target);
    });

    EXPECT_EQ(outcome.deviations, 0);
    ASSERT_TRUE(outcome.alone.done);
    // 1000 + 4 / 2 east, 2 / 2 north, 7 up; 0.6 mm for the projection's series there and back.
    EXPECT_NEAR(outcome.alone.point[0], 401002, 1e-3);
    EXPECT_NEAR(outcome.alone.point[1], 6200001, 1e-3);
    EXPECT_NEAR(outcome.alone.point[2], 57, 1e-6);
}

TEST(PointsInThreads, PairwiseChainsAreOnlyRead) {
    auto const source = Geodetic(WithZeroShift());
    auto const target = Geodetic(WithZeroShift());
    TShellRefSystemTransformShiftZParams const up = HeightShift(3);
    TShellRefSystemTransformShiftZParams const more = HeightShift(10);
    ASSERT_TRUE(source->AppendPairwiseTransform("a pair of the two", &up));
    ASSERT_TRUE(target->AppendPairwiseTransform("a pair of the two", &more));
    ASSERT_TRUE(target->AppendTransform(&up)); // the pairwise chains take its place

    auto const outcome = AskTogether(2000, [&](int) { return Move(*source, {55, 37, 100}, *target); });

    EXPECT_EQ(outcome.deviations, 0);
    ASSERT_TRUE(outcome.alone.done);
    EXPECT_NEAR(outcome.alone.point[0], 55, 1e-11);
    EXPECT_NEAR(outcome.alone.point[1], 37, 1e-11);
    EXPECT_NEAR(outcome.alone.point[2], 107, 1e-6); // 3 down, 10 up
}

TEST(PointsInThreads, OneProxyOfBothSystemsIsOnlyRead) {
    std::vector<TPlace> const places = EarthBoundPlaces();
    {
        var_a<TShellReferenceSystem*> const proxy =
            newobj_a(static_cast<TShellReferenceSystem*>(Geodetic(WithZeroShift()).release()));
        for (TPlace const& place : places) {
            ASSERT_TRUE(place.system->SetProxyRefSys(proxy)) << place.name;
        }
    }

    auto const outcome = AskTogether(150, [&](int) {
        TMovedPoints moved;
        for (TPlace const& target : places) {
            moved.push_back(Move(*places.front().system, places.front().point, *target.system));
        }
        return moved;
    });

    EXPECT_EQ(outcome.deviations, 0);
    for (std::size_t target = 0; target < places.size(); ++target) {
        TMoved const& moved = outcome.alone[target];
        ASSERT_TRUE(moved.done) << places[target].name;
        // Out to the proxy and back: the linear shift's remainder of 0.2 mm, and 1 mm for the projections.
        double const metres = 1.3e-3;
        EXPECT_NEAR(moved.point[2], places[target].point[2], metres) << places[target].name;
        EXPECT_NEAR(moved.point[0], places[target].point[0],
                    places[target].hasDegrees ? metres / 6e4 : metres)
            << places[target].name;
    }
    EXPECT_EQ(places.front().system->GetProxyRefSys().use_count(), places.size() + 1);
}

TEST(PointsInThreads, TextsAreReadAndPrinted) {
    TGeodeticText sexagesimal = WithZeroShift();
    sexagesimal.angularUnit = HemisphereDegree();
    auto const from = Geodetic(sexagesimal);
    auto const to = Geodetic(WithZeroShift());
    TShellCoords texts;
    texts.Coord[0] = "55 45 00 N";
    texts.Coord[1] = "37 37 12 E";
    texts.Coord[2] = "150";

    auto const outcome = AskTogether(50, [&](int) {
        TPoint point = {};
        TShellCoords decimal;
        TShellCoords back;
        bool const isRead = from->InputCoords(texts, nullptr, nullptr, point.data());
        from->OperateShellCoords(*to, point.data(), false);
        to->OutputCoords(point.data(), &decimal, nullptr, 6, nullptr, 3);
        to->OperateShellCoords(*from, point.data(), false);
        from->OutputCoordsDef(point.data(), &back);
        return std::vector<std::string>{isRead ? "read" : "not read",
                                        decimal.Coord[0],
                                        decimal.Coord[1],
                                        decimal.Coord[2],
                                        back.Coord[0],
                                        back.Coord[1],
                                        back.Coord[2]};
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_EQ(outcome.alone[0], "read");
    EXPECT_EQ(outcome.alone[1], "55.750000");
    EXPECT_EQ(outcome.alone[2], "37.620000");
    EXPECT_EQ(outcome.alone[3], "150.000");
    EXPECT_NE(outcome.alone[4].find("45"), std::string::npos) << outcome.alone[4];
}

TEST(PointsInThreads, AxesAndDatumsAreCompared) {
    std::vector<TPlace> const places = EarthBoundPlaces();

    auto const outcome = AskTogether(20, [&](int) {
        std::vector<double> answers;
        for (TPlace const& place : places) {
            double axes[9] = {};
            bool const done =
                TransformAxes(place.system.get(), place.point[0], place.point[1], place.point[2], axes, true);
            answers.push_back(done ? 1 : 0);
            answers.insert(answers.end(), std::begin(axes), std::end(axes));
            for (TPlace const& other : places) {
                answers.push_back(CompareDatums(place.system.get(), other.system.get()));
            }
        }
        return answers;
    });

    EXPECT_EQ(outcome.deviations, 0);
    std::size_t const row = 10 + places.size();
    for (std::size_t place = 0; place < places.size(); ++place) {
        EXPECT_EQ(outcome.alone[place * row], 1) << places[place].name;
        for (std::size_t other = 0; other < places.size(); ++other) {
            EXPECT_EQ(outcome.alone[place * row + 10 + other],
                      places[place].isPulkovo == places[other].isPulkovo ? dcEqual : dcDifferent)
                << places[place].name << " and " << places[other].name;
        }
    }
}

} // namespace
