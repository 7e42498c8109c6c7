#include "TopocentricChecks.h"
#include "core/refsystems/LocalCartesianReferenceSystem.h"
#include "core/refsystems/LocalCurvedReferenceSystem.h"
#include "core/transforms/PlaneAndVertical.h"
#include "core/transforms/SevenParameters.h"
#include "tests/support/AllocationCount.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>
#include <stdexcept>

using namespace TopocentricChecks;

TEST(TopocentricHorizontalReferenceSystem, ReachesGeodeticTargetsAndComesBack) {
    // 37.001, 55.001 degrees, 250 m in the frame; 40 digits
    TGeodeticReferenceSystem const geodetic = Geodetic();
    TTopocentricHorizontalReferenceSystem const system = Frame();
    TCoords point = Degrees(37.001, 55.001, 250);
    geodetic.OperateCoords(system, &point);
    ExpectNear(point, Point(128.41070823632237, -0.24284943268318193, 49.998708160058077));
    system.OperateCoords(geodetic, &point);
    EXPECT_NEAR(point.X, Radians(37.001), 1e-14);
    EXPECT_NEAR(point.Y, Radians(55.001), 1e-12);
    EXPECT_NEAR(point.Z, 250, 1e-5);
}

TEST(TopocentricHorizontalReferenceSystem, ReachesMapProjectedTargetsAndComesBack) {
    // 37, 55 degrees and 200 m on the map: series of the meridian arc in 40 digits, central meridian 39
    TMapProjectedReferenceSystem const projected = Projected(Geodetic());
    TTopocentricHorizontalReferenceSystem const system = Frame();
    TCoords point = Point(0, 0, 0);
    system.OperateCoords(projected, &point);
    ExpectNear(point, Point(7372020.6169, 6099060.3312, 200), 1e-4);
    projected.OperateCoords(system, &point);
    // Two degrees from the central meridian the series' way back is good to half a millimetre.
    ExpectNear(point, Point(0, 0, 0), 5e-4);
}

TEST(TopocentricHorizontalReferenceSystem, ReachesAnotherFrame) {
    // Origin 38, 54 degrees, 100 m, east first; 40 digits
    TTopocentricHorizontalReferenceSystem const other =
        Frame(Geodetic(), rscoRight, Degrees(38, 54, 100), 0.0);
    TCoords point = Point(100, 200, 300);
    Frame().OperateCoords(other, &point);
    ExpectNear(point, Point(-63772.905984207528, 111752.63658276348, -897.22473622007169));
    other.OperateCoords(Frame(), &point);
    ExpectNear(point, Point(100, 200, 300));
}

TEST(TopocentricHorizontalReferenceSystem, DatumShiftsActBetweenFrames) {
    // The geocentric point with the shift added, in the other frame; 40 digits
    auto const own = Shift(25, -141, -80);
    auto const common = Shift(0, 0, 0);
    TTopocentricHorizontalReferenceSystem const system = Frame(Geodetic(&own));
    TTopocentricHorizontalReferenceSystem const other =
        Frame(Geodetic(&common), rscoRight, Degrees(38, 54, 100), 0.0);
    TCoords point = Point(100, 200, 300);
    system.OperateCoords(other, &point);
    ExpectNear(point, Point(-63899.407037349216, 111759.90527437580, -1001.3911879993676));
}

TEST(TopocentricHorizontalReferenceSystem, WorldIsGeocentricInGreenwichAxesAfterTheShiftOnRequest) {
    // Turned by the meridian of Paris, then shifted; 40 digits
    auto const shift = Shift(25, -141, -80);
    TTopocentricHorizontalReferenceSystem const system = Frame(Geodetic(&shift, ParisLongitude));
    TCoords point = Point(100, 200, 300);
    system.OperateCoordsWorld(&point, false);
    ExpectNear(point, Point(2835936.7164598153, 2324554.7287933983, 5201785.4147572708));
    point = Point(100, 200, 300);
    system.OperateCoordsWorld(&point, true);
    ExpectNear(point, Point(2835961.7164598153, 2324413.7287933983, 5201705.4147572708));
}

TEST(TopocentricHorizontalReferenceSystem, AxesAreTheColumnsInTheOrderOfTheCoordinates) {
    // The columns turned by the meridian of Paris, in 40 digits
    double const azimuth[3] = {-0.86561696417439242, -0.062966857001397183, 0.49673176489215407};
    double const right[3] = {-0.23218149872440675, 0.9294322296788491, -0.28678821817552305};
    double const zenith[3] = {0.44362035907248095, 0.363580672414759554, 0.81915204428899179};
    for (auto const orientation : {rscoLeft, rscoRight}) {
        double axes[9];
        TTopocentricHorizontalReferenceSystem const system =
            Frame(Geodetic(nullptr, ParisLongitude), orientation);
        ASSERT_TRUE(system.TransformAxesWorld(Point(100, 200, 300), axes, true));
        for (int index = 0; index < 3; ++index) {
            EXPECT_NEAR(axes[index], orientation == rscoLeft ? azimuth[index] : right[index], 1e-8);
            EXPECT_NEAR(axes[3 + index], orientation == rscoLeft ? right[index] : azimuth[index], 1e-8);
            EXPECT_NEAR(axes[6 + index], zenith[index], 1e-8);
        }
    }
}

TEST(TopocentricHorizontalReferenceSystem, RunsItsOwnChain) {
    TTopocentricHorizontalReferenceSystem const system =
        Frame(Geodetic(), rscoLeft, Degrees(0, 0, 0), 0.0, SetOf(TPlaneShiftRefSystemTransform(1000, 2000)));
    TGeocentricReferenceSystem const geocentric(nullptr, nullptr, {}, {});
    TCoords point = Point(1010, 2020, 30);
    system.OperateCoords(geocentric, &point);
    EXPECT_EQ(point, Point(6378167, 20, 10));
    geocentric.OperateCoords(system, &point);
    EXPECT_EQ(point, Point(1010, 2020, 30));
}

TEST(TopocentricHorizontalReferenceSystem, TheChainOfItsBaseTakesNoPart) {
    TGeodeticReferenceSystem chained = Geodetic();
    chained.Transforms.AddNextTransform(TPlaneShiftRefSystemTransform(1, 2));
    TCoords point = Point(100, 200, 300);
    Frame(chained).OperateCoords(Frame(), &point);
    ExpectNear(point, Point(100, 200, 300));
}

TEST(TopocentricHorizontalReferenceSystem, TheAntipodeIsTwiceTheRadiusBelow) {
    // The origin's mirror through the centre: -2 rotation^T origin in 40 digits
    TTopocentricHorizontalReferenceSystem const system = Frame();
    TCoords const antipode = Point(-2928363.4035793577, -2206680.1029400281, -5201547.3536111299);
    TCoords point = antipode;
    system.ConvertGeocentricToTopocentricHorizontal(&point);
    ExpectNear(point, Point(34825.573259701556, -20106.554096171726, -12727991.184546856));
    system.ConvertTopocentricHorizontalToGeocentric(&point);
    ExpectNear(point, antipode);
}

TEST(TopocentricHorizontalReferenceSystem, AtThePoleTheLongitudeStillTellsNorth) {
    // Over the pole north is the direction that longitude + 180 degrees leads away.
    TTopocentricHorizontalReferenceSystem const system =
        Frame(Geodetic(), rscoLeft, Degrees(37, 90, 200), 0.0);
    TCoords point = Point(1000, 0, 0);
    system.ConvertTopocentricHorizontalToGeocentric(&point);
    ExpectNear(point, Point(-798.63551004729285, -601.81502315204828, 6356952.314245179));
}

TEST(TopocentricHorizontalReferenceSystem, SeededPointsComeBackThroughTheOtherEarthBoundKinds) {
    std::mt19937_64 random(4403);
    std::uniform_real_distribution<double> turn(-Pi, Pi);
    std::uniform_real_distribution<double> latitude(Radians(-80), Radians(80));
    std::uniform_real_distribution<double> local(-1e5, 1e5);
    auto const shift = Shift(25, -141, -80);
    auto const common = Shift(0, 0, 0);
    TGeocentricReferenceSystem const geocentric(&common, nullptr, {}, {});
    TGeodeticReferenceSystem const geodetic = Geodetic(&common, 0, Krasovsky());
    // The latitude's passes stop at 1e-12 radians: of the earth's radius times the tangent, metres.
    constexpr double StoppedPasses = 5e-6;
    for (int round = 0; round < 2000; ++round) {
        auto const orientation = round % 2 == 0 ? rscoLeft : rscoRight;
        TTopocentricHorizontalReferenceSystem const system =
            Frame(Geodetic(&shift, ParisLongitude), orientation,
                  Point(turn(random), latitude(random), local(random) / 10), turn(random));
        TTopocentricHorizontalReferenceSystem const other =
            Frame(Geodetic(&common, 0, Krasovsky()), rscoRight,
                  Point(turn(random), latitude(random), local(random) / 10), turn(random));
        TCoords const start = Point(local(random), local(random), local(random) / 10);
        for (TReferenceSystem const* const target :
             {static_cast<TReferenceSystem const*>(&geocentric), static_cast<TReferenceSystem const*>(&other),
              static_cast<TReferenceSystem const*>(&geodetic)}) {
            TCoords point = start;
            system.OperateCoords(*target, &point);
            target->OperateCoords(system, &point);
            double const tolerance = target == &geodetic ? StoppedPasses : 2 * RoundingOfTheEarthsRadius;
            ASSERT_NEAR(point.X, start.X, tolerance);
            ASSERT_NEAR(point.Y, start.Y, tolerance);
            ASSERT_NEAR(point.Z, start.Z, tolerance);
        }
    }
}

TEST(TopocentricHorizontalReferenceSystem, LeavesTheHeightMarkAloneAndTreatsTheHeightAsANumber) {
    TCoords point{100, 200, 300, true};
    Frame().OperateCoords(Frame(rscoRight), &point);
    EXPECT_TRUE(point.ZUndefined);
    EXPECT_NEAR(point.X, 200, RoundingOfTheEarthsRadius);
    EXPECT_NEAR(point.Z, 300, RoundingOfTheEarthsRadius);
}

TEST(TopocentricHorizontalReferenceSystem, NumbersThatAreNoneReachTheWholePoint) {
    for (double const number : {NaN, Infinity}) {
        TCoords point = Point(number, 0, 0);
        Frame().ConvertTopocentricHorizontalToGeocentric(&point);
        EXPECT_FALSE(std::isfinite(point.X));
        EXPECT_FALSE(std::isfinite(point.Y));
        EXPECT_FALSE(std::isfinite(point.Z));
        point = Point(0, number, 0);
        Frame().ConvertGeocentricToTopocentricHorizontal(&point);
        EXPECT_FALSE(std::isfinite(point.X));
        EXPECT_FALSE(std::isfinite(point.Y));
        EXPECT_FALSE(std::isfinite(point.Z));
    }
}

TEST(TopocentricHorizontalReferenceSystem, AnEllipsoidOfRadiusZeroGivesNoNumbersAndNoError) {
    TTopocentricHorizontalReferenceSystem const system = Frame(Geodetic(nullptr, 0, TEllipsoid(0.0)));
    EXPECT_TRUE(std::isnan(system.Origin[0]));
    TCoords point = Point(1, 2, 3);
    system.OperateCoordsWorld(&point, true);
    EXPECT_TRUE(std::isnan(point.X));
}

TEST(TopocentricHorizontalReferenceSystem, AsksTheTargetForItsStagesWhateverItsClass) {
    TTopocentricHorizontalReferenceSystem const inner =
        Frame(Geodetic(), rscoRight, Degrees(38, 54, 100), 0.0);
    TTestKind target(6);
    target.Geocentric = inner.GeodeticSystem->GeocentricSystem;
    target.Topocentric = &inner;
    TCoords point = Point(100, 200, 300);
    Frame().OperateCoords(target, &point);
    ExpectNear(point, Point(-63772.905984207528, 111752.63658276348, -897.22473622007169));
}

TEST(TopocentricHorizontalReferenceSystem, RefusesLocalAndUnknownTargetsBeforeAnyStep) {
    TTopocentricHorizontalReferenceSystem const system = Frame();
    TLocalCartesianReferenceSystem const local(rscoLeft, {}, {});
    TLocalCurvedReferenceSystem const curved(rscoLeft, 1e6, 0, 0, {}, {});
    TCoords point = Point(1, 2, 3);
    EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(local, &point); }), ":(");
    EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(curved, &point); }), ":(");
    EXPECT_EQ(ThrownText<std::logic_error>([&] { local.OperateCoords(system, &point); }), ":(");
    EXPECT_EQ(ThrownText<std::logic_error>([&] { curved.OperateCoords(system, &point); }), ":(");
    for (int const kind : {1, 2, 0, 7, -1}) {
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(TTestKind(kind), &point); }), ":(");
    }
    EXPECT_EQ(point, Point(1, 2, 3));
}

TEST(TopocentricHorizontalReferenceSystem, RefusesTargetsWithoutTheirStagesBeforeAnyStep) {
    TTopocentricHorizontalReferenceSystem const system = Frame();
    TCoords point = Point(1, 2, 3);
    for (int const kind : {3, 4, 5, 6}) {
        TTestKind target(kind);
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
        target.Geocentric = kind == 3 ? nullptr : system.RelatedGeocentricRefSystem();
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
    }
    EXPECT_EQ(point, Point(1, 2, 3));
}

TEST(TopocentricHorizontalReferenceSystem, LetsFailuresOfTheTargetPass) {
    TTestKind target(6);
    target.OnRelated = [] { throw std::out_of_range("related"); };
    TCoords point = Point(1, 2, 3);
    EXPECT_EQ(ThrownText<std::out_of_range>([&] { Frame().OperateCoords(target, &point); }), "related");
}

TEST(TopocentricHorizontalReferenceSystem, LetsAFailedIterationPass) {
    // 20 km and 30 km from the centre, where the latitude's iteration never settles
    TTopocentricHorizontalReferenceSystem const system = Frame(Geodetic(), rscoLeft, Degrees(0, 0, 0), 0.0);
    TCoords point = Point(30000, 0, 20000 - 6378137.0);
    EXPECT_EQ(ThrownText<std::runtime_error>([&] { system.OperateCoords(Geodetic(), &point); }),
              "CartesianToEllipsoidal");
}
