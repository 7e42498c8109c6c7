#include "shell/refsystems/public/CoordinateOperation.h"

#include "shell/refsystems/GeodeticReferenceSystem.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;
using KvRefSystemTests::AllocationCount;

using TPoint = std::array<double, 3>;

TPoint Transformed(TShellReferenceSystem const& source, TPoint const& point,
                   TShellReferenceSystem const& target) {
    TPoint result = {};
    EXPECT_TRUE(
        TransformCoords(&source, point[0], point[1], point[2], &target, &result[0], &result[1], &result[2]));
    return result;
}

void ExpectNear(TPoint const& actual, TPoint const& expected, double plane, double height) {
    EXPECT_NEAR(actual[0], expected[0], plane);
    EXPECT_NEAR(actual[1], expected[1], plane);
    EXPECT_NEAR(actual[2], expected[2], height);
}

/** Pulkovo 1942, zone 7 of Gauss and Krueger. */
TProjectedText GaussKruger7() {
    TProjectedText text = On(Pulkovo1942(), OfType(1001));
    text.parameters.emplace_back(6201, "7");
    return text;
}

// One pair of systems

TEST(MapProjectedRoad, PointsOfUtmZones) {
    auto const geodetic = Create(TGeodeticText());

    // cs2cs +proj=longlat +datum=WGS84 +to +proj=utm gives (500000, 4982950.40023), (643329.12388,
    // 5540547.36993) and (332795.49173, 6291830.86103); the series here stop after the eighth power.
    ExpectNear(Transformed(*geodetic, {45, 3, 7}, *Projected(UtmZone(31, 'N'))),
               {500000.0000, 4982950.4005, 7}, 1e-4, 1e-8);
    ExpectNear(Transformed(*geodetic, {50, 5, 7}, *Projected(UtmZone(31, 'N'))),
               {643329.1239, 5540547.3703, 7}, 1e-4, 1e-8);
    ExpectNear(Transformed(*geodetic, {-33.5, 151.2, 7}, *Projected(UtmZone(56, 'S'))),
               {332795.4917, 6291830.8610, 7}, 1e-4, 1e-8);
}

TEST(MapProjectedRoad, PointsComeBack) {
    auto const geodetic = Create(TGeodeticText());
    for (int const flip : {0, 1}) {
        for (int const first : {1, -1}) {
            for (int const second : {1, -1}) {
                auto const system = Projected(Placed(UtmZone(31, 'N'), flip, first, second));
                for (TPoint const& point :
                     {TPoint{45, 3, 0}, {50, 5, 100}, {0, 2, -20}, {-70, 1, 5}, {80, 6, 9000}}) {
                    TPoint const back =
                        Transformed(*system, Transformed(*geodetic, point, *system), *geodetic);
                    // The series come back to two centimetres within three degrees of the meridian; the heights
                    // run through Cartesian coordinates, whose way back iterates.
                    ExpectNear(back, point, 2e-7, 1e-6);
                }
            }
        }
    }
}

TEST(MapProjectedRoad, AFlippedSystemIsNorthingFirst) {
    auto const geodetic = Create(TGeodeticText());

    ExpectNear(Transformed(*geodetic, {50, 5, 0}, *Projected(Placed(UtmZone(31, 'N'), 1, 1, 1))),
               {5540547.3703, 643329.1239, 0}, 1e-4, 1e-8);
    ExpectNear(Transformed(*geodetic, {50, 5, 0}, *Projected(Placed(UtmZone(31, 'N'), 0, 1, -1))),
               {643329.1239, -5540547.3703, 0}, 1e-4, 1e-8);
    ExpectNear(Transformed(*geodetic, {50, 5, 0}, *Projected(Placed(UtmZone(31, 'N'), 1, -1, 1))),
               {-5540547.3703, 643329.1239, 0}, 1e-4, 1e-8);
}

TEST(MapProjectedRoad, AFlippedSourceIsReadNorthingFirst) {
    auto const geodetic = Create(TGeodeticText());

    ExpectNear(Transformed(*Projected(Placed(UtmZone(31, 'N'), 1, 1, -1)), {5540547.3703, -643329.1239, 0},
                           *geodetic),
               {50, 5, 0}, 5e-9, 1e-8);
}

TEST(MapProjectedRoad, UnitsOfPlaneAndHeightAreTheSystemsOwn) {
    TProjectedText text = UtmZone(31, 'N');
    text.linearUnit = {0, 1, "1000", "1", "kilometre", "km"};
    text.base.heightUnit = Foot();
    auto const geodetic = Create(TGeodeticText());

    ExpectNear(Transformed(*geodetic, {50, 5, 304.8}, *Projected(text)), {643.3291239, 5540.5473703, 1000},
               1e-7, 1e-8);
}

TEST(MapProjectedRoad, AngularUnitsOfTheBaseDoNotTouchThePlane) {
    TProjectedText text = UtmZone(31, 'N');
    text.base.angularUnit = Grad();
    auto const geodetic = Create(TGeodeticText());

    ExpectNear(Transformed(*geodetic, {50, 5, 0}, *Projected(text)), {643329.1239, 5540547.3703, 0}, 1e-4,
               1e-8);
}

TEST(MapProjectedRoad, DatumAndProjectionInOneStep) {
    // cct with the inverse tmerc, cart, helmert (position vector), inverse cart and utm steps.
    auto const target = Projected(On(WithZeroShift(), UtmZone(37, 'N')));

    ExpectNear(Transformed(*Create(Pulkovo1942()), {55.75, 37.62, 150}, *target),
               {413263.189918, 6179125.232602, 154.542209}, 1e-3, 1e-5);
    ExpectNear(Transformed(*Projected(GaussKruger7()), {7413356.2, 6181927.5, 150}, *target),
               {413274.764520, 6179353.552508, 154.542548}, 1e-3, 1e-5);
}

TEST(MapProjectedRoad, BetweenZonesOfOneDatum) {
    // cct with the inverse utm of zone 31 and the utm of zone 32.
    TPoint const west = {643329.1239, 5540547.3703, 12};
    TPoint const east = {213372.049009, 5546300.847755, 12};
    auto const source = Projected(UtmZone(31, 'N'));
    auto const target = Projected(UtmZone(32, 'N'));

    ExpectNear(Transformed(*source, west, *target), east, 5e-3, 1e-8);
    ExpectNear(Transformed(*target, east, *source), west, 5e-2, 1e-8);
    ExpectNear(Transformed(*source, west, *source), west, 1e-3, 1e-8);
}

TEST(MapProjectedRoad, OtherMethodsAreReached) {
    auto const geodetic = Create(TGeodeticText());

    // cct +proj=laea +lat_0=30 +lon_0=9 +x_0=500000 and +proj=lcc +lat_1=20 +lat_2=40 +lat_0=30 +lon_0=9.
    ExpectNear(Transformed(*geodetic, {45, 12, 0}, *Projected(OfType(24))),
               {738585.571995, 1663328.911925, 0}, 1e-3, 1e-8);
    ExpectNear(Transformed(*geodetic, {45, 12, 0}, *Projected(OfType(6))), {241397.520514, 1661924.052653, 0},
               1e-3, 1e-8);
}

TEST(MapProjectedRoad, EveryMethodTakesAPointAndGivesItBack) {
    auto const geodetic = Create(TGeodeticText());
    for (int const type : AllProjectionTypes) {
        // The points lie near to the origins of the methods, those of the zones in the zones.
        TProjectedText text = OfType(type);
        text.parameters.emplace_back(6201, type == 1002 ? "32" : type == 1003 ? "1" : "2");
        TPoint point = {31, 9.5, 100};
        if (type == 1003) {
            point = {55, 36, 100};
        } else if (type == 1004) {
            point = {55, 28, 100};
        }
        auto const system = Projected(text);
        TPoint const plane = Transformed(*geodetic, point, *system);
        EXPECT_TRUE(std::isfinite(plane[0]) && std::isfinite(plane[1])) << type;
        EXPECT_NEAR(plane[2], 100, 1e-8) << type;
        TPoint const back = Transformed(*system, plane, *geodetic);
        EXPECT_NEAR(back[2], 100, 1e-8) << type;
        if (type == 16) {
            continue; // with a false origin its way back is another
        }
        double const degrees = type == 13 ? 1e-3 : 1e-6;
        EXPECT_NEAR(back[0], point[0], degrees) << type;
        EXPECT_NEAR(back[1], point[1], degrees) << type;
    }
}

// Failures

/** WGS 84 without heights. */
class THeightlessSystem : public TShellGeodeticReferenceSystem {
public:
    using TShellGeodeticReferenceSystem::CoordsShellToCore;
    using TShellGeodeticReferenceSystem::TShellGeodeticReferenceSystem;

    void CoordsShellToCore(double const* shell, TCoords* core) const override {
        TShellGeodeticReferenceSystem::CoordsShellToCore(shell, core);
        core->ZUndefined = true;
    }
};

TEST(MapProjectedRoad, APointWithoutHeightDoesNotComeOutAsNumbers) {
    TStringTree tree;
    FillGeodetic(&tree, TGeodeticText());
    THeightlessSystem const source(&tree, nullptr);
    auto const target = Projected(UtmZone(31, 'N'));
    double coords[3] = {50, 5, 0};
    TPoint result = {1, 2, 3};

    EXPECT_EQ(ThrownText([&] { source.OperateShellCoords(*target, coords, false); }),
              "TShellMapProjectedReferenceSystem::CoordsCoreToShell");
    EXPECT_FALSE(TransformCoords(&source, 50, 5, 0, target.get(), &result[0], &result[1], &result[2]));
    EXPECT_EQ(result, (TPoint{1, 2, 3}));
}

TEST(MapProjectedRoad, ATargetWithoutACoreFails) {
    auto const source = Create(TGeodeticText());
    auto const target = Projected(UtmZone(31, 'N'));
    TPoint result = {1, 2, 3};
    target->Reset();

    EXPECT_FALSE(TransformCoords(source.get(), 50, 5, 0, target.get(), &result[0], &result[1], &result[2]));
    EXPECT_FALSE(
        TransformCoords(target.get(), 5e5, 5e6, 0, source.get(), &result[0], &result[1], &result[2]));
    EXPECT_EQ(result, (TPoint{1, 2, 3}));
}

TEST(MapProjectedRoad, NumbersThatAreNotFiniteEndAndGiveNumbersThatAreNotFinite) {
    auto const geodetic = Create(TGeodeticText());
    for (int const type : AllProjectionTypes) {
        auto const system = Projected(OfType(type));
        for (double const number :
             {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), -1e308}) {
            TPoint result = {};
            if (TransformCoords(system.get(), number, number, 0, geodetic.get(), &result[0], &result[1],
                                &result[2]) &&
                number != number) {
                EXPECT_FALSE(std::isfinite(result[0]) && std::isfinite(result[1])) << type;
            }
            if (TransformCoords(geodetic.get(), number, number, 0, system.get(), &result[0], &result[1],
                                &result[2]) &&
                number != number) {
                EXPECT_FALSE(std::isfinite(result[0]) && std::isfinite(result[1])) << type;
            }
        }
    }
}

// Cost and threads

/** How often a hundred points on the road from `source` to `target` allocate. */
std::size_t AllocationsOnTheRoad(TShellReferenceSystem const& source, TPoint const& point,
                                 TShellReferenceSystem const& target) {
    TPoint result = {};
    std::size_t const before = AllocationCount();
    for (int pass = 0; pass < 100; ++pass) {
        EXPECT_TRUE(TransformCoords(&source, point[0], point[1], point[2] + pass, &target, &result[0],
                                    &result[1], &result[2]));
    }
    return AllocationCount() - before;
}

TEST(MapProjectedRoad, NoPointAllocates) {
    auto const geodetic = Create(WithZeroShift());
    for (int const type : AllProjectionTypes) {
        auto const system = Projected(On(Pulkovo1942(), Placed(OfType(type), 1, 1, -1)));
        EXPECT_EQ(AllocationsOnTheRoad(*geodetic, {31, 9.5, 100}, *system), 0U) << type;
        EXPECT_EQ(AllocationsOnTheRoad(*system, {3400000, -600000, 100}, *geodetic), 0U) << type;
        EXPECT_EQ(AllocationsOnTheRoad(*system, {3400000, -600000, 100}, *system), 0U) << type;
    }
}

TEST(MapProjectedRoad, NoPointAllocatesOnTheWayThroughAChain) {
    TShellRefSystemTransform2DAffineParams shift(true);
    shift.a13 = 5;
    auto const geodetic = Create(WithZeroShift());
    auto const system = Projected(On(Pulkovo1942(), UtmZone(31, 'N')));
    ASSERT_TRUE(system->AppendTransform(&shift));

    EXPECT_EQ(AllocationsOnTheRoad(*geodetic, {45, 3, 0}, *system), 0U);
    EXPECT_EQ(AllocationsOnTheRoad(*system, {500000, 4900000, 0}, *geodetic), 0U);
}

TEST(MapProjectedRoad, OnePairOfSystemsServesManyThreads) {
    auto const source = Projected(GaussKruger7());
    auto const target = Projected(On(WithZeroShift(), Placed(UtmZone(37, 'N'), 1, 1, 1)));
    TPoint const point = {7413356.2, 6181927.5, 150};
    TPoint const expected = Transformed(*source, point, *target);
    std::vector<int> failures(4, 0);
    std::vector<std::thread> threads;
    for (int& count : failures) {
        threads.emplace_back([&source, &target, &point, &expected, &count] {
            for (int pass = 0; pass < 2000; ++pass) {
                TPoint result = {};
                bool const done = TransformCoords(source.get(), point[0], point[1], point[2], target.get(),
                                                  &result[0], &result[1], &result[2]);
                count += done && result == expected ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(failures, std::vector<int>(4, 0));
}

// The three forms of a description

TEST(MapProjectedRoad, ATextATreeAndADocumentDescribeTheSameSystem) {
    TProjectedText const text = On(Pulkovo1942(), TransverseMercator("9", "0.9996", "500000"));
    TStringTree tree;
    FillProjected(&tree, text);
    std::unique_ptr<TShellReferenceSystem> const fromTree(CreateShellReferenceSystem(&tree, nullptr));
    ASSERT_NE(fromTree, nullptr);
    std::unique_ptr<TShellReferenceSystem> const fromText(CreateShellReferenceSystem(TextOf(tree), nullptr));
    ASSERT_NE(fromText, nullptr);
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(XmlOf(*fromTree));
    std::unique_ptr<TShellReferenceSystem> const fromXml(CreateShellReferenceSystem(&reader, nullptr));
    ASSERT_NE(fromXml, nullptr);
    auto const geodetic = Create(WithZeroShift());

    EXPECT_NE(dynamic_cast<TProjectedSystem const*>(fromText.get()), nullptr);
    EXPECT_TRUE(*fromText == *fromTree);
    EXPECT_TRUE(*fromXml == *fromTree);
    TPoint const expected = Transformed(*geodetic, {50, 10, 100}, *fromTree);
    EXPECT_EQ(Transformed(*geodetic, {50, 10, 100}, *fromText), expected);
    EXPECT_EQ(Transformed(*geodetic, {50, 10, 100}, *fromXml), expected);
}

TEST(MapProjectedRoad, EveryTypeSurvivesItsText) {
    for (int const type : AllProjectionTypes) {
        auto const system = Create(OfType(type));
        std::string text;
        ASSERT_TRUE(system->WriteToString(text));

        std::unique_ptr<TShellReferenceSystem> const read(CreateShellReferenceSystem(text, nullptr));

        ASSERT_NE(read, nullptr) << type;
        EXPECT_TRUE(*read == *system) << type;
    }
}

TEST(MapProjectedRoad, ABrokenDescriptionThrowsFromTheTreeAndIsNullFromTheText) {
    TStringTree tree;
    FillProjected(&tree, UtmZone(31, 'N'));
    tree.DeleteSubtree(1300, 0);
    std::string const text = TextOf(tree);

    EXPECT_EQ(ThrownText([&] { Create(&tree); }),
              "TShellMapProjectedReferenceSystem(TStringTree *tree, TKvProgressHandler *prh)");
    EXPECT_EQ(CreateShellReferenceSystem(text, nullptr), nullptr);
}

TEST(MapProjectedRoad, EveryPrefixOfAGoodTextEndsWell) {
    TStringTree tree;
    FillProjected(&tree, On(Pulkovo1942(), UtmZone(31, 'N')));
    std::string const text = TextOf(tree);
    for (std::size_t length = 0; length < text.size() / 2; ++length) {
        // What stands last is the base system, without which nothing is built.
        EXPECT_EQ(CreateShellReferenceSystem(text.substr(0, length), nullptr), nullptr) << length;
    }
}

} // namespace
} // namespace KvRefSystem
