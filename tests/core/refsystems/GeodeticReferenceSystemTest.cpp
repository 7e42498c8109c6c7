#include "core/refsystems/GeodeticReferenceSystem.h"

#include "TestKinds.h"
#include "core/transforms/PlaneAndVertical.h"
#include "core/transforms/SevenParameters.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace KvRefSystem;
using namespace KvRefSystemTests;

namespace {

char const* const UnknownKind = "@PreservesHeights(): invalid refsystem type.";
constexpr double ParisLongitude = Radians(2.33722917);

TGeodeticReferenceSystem Geodetic(TEllipsoid const& ellipsoid, TDatumShift const* shift = nullptr,
                                  double longitude = 0.0, TRefSystemTransformsSet const& set = {}) {
    TPrimeMeridian const meridian(longitude);
    return {shift, &meridian, &ellipsoid, set, {}};
}

TCoords Degrees(double longitude, double latitude, double height) {
    return Point(Radians(longitude), Radians(latitude), height);
}

/** Angles within 1e-11 radians (0.1 mm), the height within 1e-4 m. */
void ExpectNear(TCoords const& point, TCoords const& expected) {
    EXPECT_NEAR(point.X, expected.X, 1e-11);
    EXPECT_NEAR(point.Y, expected.Y, 1e-11);
    EXPECT_NEAR(point.Z, expected.Z, 1e-4);
}

} // namespace

TEST(GeodeticReferenceSystem, CopiesItsParts) {
    auto const shift = Shift(1, 2, 3);
    auto const ellipsoid = Wgs84();
    TPrimeMeridian const meridian(0.5);
    TPlaneShiftRefSystemTransform const transform(1, 2);
    TGeodeticReferenceSystem const system(&shift, &meridian, &ellipsoid, SetOf(transform),
                                          {{"k", SetOf(transform)}});
    EXPECT_EQ(system.Type, rstGeodetic);
    EXPECT_NE(system.Ellipsoid, &ellipsoid);
    EXPECT_EQ(system.Ellipsoid->SemiMajorAxis, ellipsoid.SemiMajorAxis);
    EXPECT_EQ(system.Ellipsoid->SemiMinorAxis, ellipsoid.SemiMinorAxis);
    EXPECT_EQ(*system.GeocentricSystem->DatumShift, shift);
    EXPECT_EQ(system.GeocentricSystem->PrimeMeridian->Longitude, 0.5);
    EXPECT_TRUE(system.Transforms == SetOf(transform));
    EXPECT_EQ(system.PairwiseTransforms.size(), 1U);
}

TEST(GeodeticReferenceSystem, GivesItsGeocentricSystemNoChains) {
    auto const ellipsoid = Wgs84();
    TPlaneShiftRefSystemTransform const transform(1, 2);
    TGeodeticReferenceSystem const system(nullptr, nullptr, &ellipsoid, SetOf(transform),
                                          {{"k", SetOf(transform)}});
    EXPECT_TRUE(system.GeocentricSystem->Transforms.TransformList.empty());
    EXPECT_TRUE(system.GeocentricSystem->PairwiseTransforms.empty());
}

TEST(GeodeticReferenceSystem, NeedsAnEllipsoid) {
    EXPECT_EQ(ThrownText<std::runtime_error>(
                  [] { TGeodeticReferenceSystem const system(nullptr, nullptr, nullptr, {}, {}); }),
              "TGeodeticReferenceSystem::TGeodeticReferenceSystem: ellipsoid");
}

TEST(GeodeticReferenceSystem, PassesTheFailureOfAShiftsCopyOn) {
    TForeignShift const foreign;
    EXPECT_EQ(ThrownText<std::runtime_error>([&] { Geodetic(Wgs84(), &foreign); }),
              "TGeocentricReferenceSystem::TGeocentricReferenceSystem: datum shift");
}

TEST(GeodeticReferenceSystem, CopyIsDeep) {
    auto const shift = Shift(1, 2, 3);
    TGeodeticReferenceSystem const source = Geodetic(Krasovsky(), &shift, 0.5);
    TGeodeticReferenceSystem const copy = CopyOf(source);
    EXPECT_NE(copy.Ellipsoid, source.Ellipsoid);
    EXPECT_NE(copy.GeocentricSystem, source.GeocentricSystem);
    EXPECT_EQ(copy, source);
}

TEST(GeodeticReferenceSystem, RelatesToItselfAndItsGeocentricSystem) {
    TGeodeticReferenceSystem const system = Geodetic(Wgs84());
    EXPECT_EQ(system.RelatedGeocentricRefSystem(), system.GeocentricSystem);
    EXPECT_EQ(system.RelatedGeodeticRefSystem(), &system);
    EXPECT_EQ(system.RelatedMapProjectedRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedTopocentricHorizontalRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedLocalCartesianRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedLocalCurvedRefSystem(), nullptr);
}

TEST(GeodeticReferenceSystem, DatumIsThatOfItsGeocentricSystem) {
    auto const linear = Shift(1, 2, 3);
    TBursaWolfNonlinearDatumShift const nonlinear(TBursaWolfDatumShiftParameters(1, 2, 3));
    TGeodeticReferenceSystem system = Geodetic(Wgs84());
    EXPECT_FALSE(system.ContainsDatum());
    EXPECT_FALSE(system.NonlinearDatum());
    EXPECT_TRUE(system.ReplaceDatumShift(&linear));
    EXPECT_EQ(*system.GeocentricSystem->DatumShift, linear);
    EXPECT_TRUE(system.ContainsDatum());
    EXPECT_FALSE(system.NonlinearDatum());
    EXPECT_TRUE(system.ReplaceDatumShift(&nonlinear));
    EXPECT_TRUE(system.NonlinearDatum());
    EXPECT_TRUE(system.ReplaceDatumShift(system.GeocentricSystem->DatumShift));
    EXPECT_TRUE(system.NonlinearDatum());
    EXPECT_FALSE(system.ReplaceDatumShift(nullptr));
    EXPECT_FALSE(system.ContainsDatum());
}

TEST(GeodeticReferenceSystem, StepsAreRadiansRadiansAndAMetre) {
    double steps[3] = {};
    Geodetic(Wgs84()).GetAxisStepsBase(steps);
    EXPECT_EQ(steps[0], 1e-05);
    EXPECT_EQ(steps[1], 1e-05);
    EXPECT_EQ(steps[2], 1.0);
}

TEST(GeodeticReferenceSystem, ConvertsToGeocentricAndBack) {
    // Closed formulas in 40 digits
    TGeodeticReferenceSystem const system = Geodetic(Wgs84(), nullptr, ParisLongitude);
    TCoords point = Degrees(37, 55, 200);
    system.ConvertToGeocentric(&point);
    EXPECT_NEAR(point.X, 2928363.4035793577, 1e-8);
    EXPECT_NEAR(point.Y, 2206680.1029400281, 1e-8);
    EXPECT_NEAR(point.Z, 5201547.3536111299, 1e-8);
    system.ConvertFromGeocentric(&point);
    ExpectNear(point, Degrees(37, 55, 200));
}

TEST(GeodeticReferenceSystem, ConvertFromGeocentricThrowsWhenTheIterationDoesNotEnd) {
    TCoords point = Point(20000, 0, 30000);
    EXPECT_EQ(ThrownText<std::runtime_error>([&] { Geodetic(Wgs84()).ConvertFromGeocentric(&point); }),
              "CartesianToEllipsoidal");
    EXPECT_EQ(point, Point(20000, 0, 30000));
}

TEST(GeodeticReferenceSystem, BetweenEllipsoidsWithoutShiftsKeepsThePlaceInSpace) {
    // Geocentric position on WGS 84, taken to the Krasovsky ellipsoid; closed formulas and iteration in 40
    // digits
    TCoords point = Degrees(37, 55, 200);
    Geodetic(Wgs84()).OperateCoords(Geodetic(Krasovsky()), &point);
    ExpectNear(point, Degrees(37, 54.999977143597731, 90.187378049318944));
}

TEST(GeodeticReferenceSystem, WithEqualShiftsChangesThroughTheEllipsoidsOnly) {
    auto const shift = Shift(25, -141, -80);
    TCoords point = Degrees(37, 55, 200);
    Geodetic(Wgs84(), &shift).OperateCoords(Geodetic(Krasovsky(), &shift), &point);
    ExpectNear(point, Degrees(37, 54.999977143597731, 90.187378049318944));
}

TEST(GeodeticReferenceSystem, WithAShiftOnOneSideOnlyAppliesNone) {
    auto const shift = Shift(25, -141, -80);
    TGeodeticReferenceSystem const shifted = Geodetic(Wgs84(), &shift);
    TGeodeticReferenceSystem const plain = Geodetic(Krasovsky());
    TCoords point = Degrees(37, 55, 200);
    shifted.OperateCoords(plain, &point);
    ExpectNear(point, Degrees(37, 54.999977143597731, 90.187378049318944));
    EXPECT_EQ(shifted.CompareDatums(plain), 1);
    EXPECT_EQ(plain.CompareDatums(shifted), 1);
}

TEST(GeodeticReferenceSystem, WithDifferentShiftsGoesFromDatumToDatum) {
    // Krasovsky to Cartesian, plus the shift, to WGS 84; in 40 digits
    auto const pulkovo = Shift(25, -141, -80);
    auto const common = Shift(0, 0, 0);
    TGeodeticReferenceSystem const source = Geodetic(Krasovsky(), &pulkovo);
    TGeodeticReferenceSystem const target = Geodetic(Wgs84(), &common);
    TCoords point = Degrees(37, 55, 200);
    source.OperateCoords(target, &point);
    ExpectNear(point, Degrees(36.998005299408077, 55.000088131250268, 207.06234852649962));
    target.OperateCoords(source, &point);
    ExpectNear(point, Degrees(37, 55, 200));
}

TEST(GeodeticReferenceSystem, LongitudesCountFromItsMeridian) {
    auto const shift = Shift(25, -141, -80);
    TGeodeticReferenceSystem const paris = Geodetic(Wgs84(), &shift, ParisLongitude);
    TGeodeticReferenceSystem const greenwich = Geodetic(Wgs84(), &shift);
    TCoords point = Degrees(37, 55, 200);
    paris.OperateCoords(greenwich, &point);
    ExpectNear(point, Degrees(39.33722917, 55, 200));
    greenwich.OperateCoords(paris, &point);
    ExpectNear(point, Degrees(37, 55, 200));
}

TEST(GeodeticReferenceSystem, ShiftsActInGreenwichAxes) {
    // Longitude 39.33722917 on Krasovsky to Cartesian, plus the shift, to WGS 84; in 40 digits
    auto const pulkovo = Shift(25, -141, -80);
    auto const common = Shift(0, 0, 0);
    TCoords point = Degrees(37, 55, 200);
    Geodetic(Krasovsky(), &pulkovo, ParisLongitude).OperateCoords(Geodetic(Wgs84(), &common), &point);
    ExpectNear(point, Degrees(39.335277476749207, 55.000126039555965, 204.10732866823442));
}

TEST(GeodeticReferenceSystem, OntoACopyOfItselfComesBackToTheIterationsTolerance) {
    auto const shift = Shift(25, -141, -80);
    TGeodeticReferenceSystem const system = Geodetic(Wgs84(), &shift, ParisLongitude);
    TGeodeticReferenceSystem const copy = CopyOf(system);
    for (double latitude = -89; latitude < 90; latitude += 7) {
        TCoords point = Degrees(37, latitude, 200);
        system.OperateCoords(copy, &point);
        EXPECT_NEAR(point.X, Radians(37), 1e-14) << latitude;
        EXPECT_NEAR(point.Y, Radians(latitude), 2e-12) << latitude;
        EXPECT_NEAR(point.Z, 200, 1e-3) << latitude;
    }
}

TEST(GeodeticReferenceSystem, OntoItselfStillGoesThroughCartesianCoordinates) {
    // Three and a half turns come back as half a turn less, which only the Cartesian stage can do.
    TGeodeticReferenceSystem const system = Geodetic(Wgs84());
    TCoords point = Point(7 * Pi - 1, 0.5, 10);
    system.OperateCoords(system, &point);
    EXPECT_NEAR(point.X, Pi - 1, 1e-14);
}

TEST(GeodeticReferenceSystem, ReachesAGeocentricTarget) {
    TGeocentricReferenceSystem const geocentric(nullptr, nullptr, {}, {});
    TCoords point = Degrees(37, 55, 200);
    Geodetic(Wgs84()).OperateCoords(geocentric, &point);
    EXPECT_NEAR(point.X, 2928363.4035793577, 1e-8);
    EXPECT_NEAR(point.Y, 2206680.1029400281, 1e-8);
    EXPECT_NEAR(point.Z, 5201547.3536111299, 1e-8);
}

TEST(GeodeticReferenceSystem, LeavesTheHeightMarkAloneAndTreatsTheHeightAsANumber) {
    TCoords point{Radians(37), Radians(55), 200, true};
    Geodetic(Wgs84()).OperateCoords(Geodetic(Krasovsky()), &point);
    EXPECT_TRUE(point.ZUndefined);
    EXPECT_NEAR(point.Z, 90.187378049318944, 1e-4);
}

TEST(GeodeticReferenceSystem, RefusesLocalAndUnknownTargetsWithTheShortText) {
    TGeodeticReferenceSystem const system = Geodetic(Wgs84());
    for (int const kind : {1, 2, 0, 7, -1}) {
        TCoords point = Degrees(37, 55, 200);
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(TTestKind(kind), &point); }), ":(");
    }
}

TEST(GeodeticReferenceSystem, RefusesTargetsWithoutTheirStagesWithTheShortText) {
    TGeodeticReferenceSystem const system = Geodetic(Wgs84());
    for (int const kind : {3, 4, 5, 6}) {
        TTestKind target(kind);
        TCoords point = Degrees(37, 55, 200);
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
        target.Geocentric = kind == 3 ? nullptr : system.GeocentricSystem;
        EXPECT_EQ(ThrownText<std::logic_error>([&] { system.OperateCoords(target, &point); }), ":(");
    }
}

TEST(GeodeticReferenceSystem, LetsFailuresOfTheTargetPass) {
    TTestKind target(4);
    target.OnRelated = [] { throw std::out_of_range("related"); };
    TCoords point = Degrees(37, 55, 200);
    EXPECT_EQ(ThrownText<std::out_of_range>([&] { Geodetic(Wgs84()).OperateCoords(target, &point); }),
              "related");
}

TEST(GeodeticReferenceSystem, LetsAFailedIterationPass) {
    // 20 km and 30 km from the centre: inside of the ellipsoid's evolute the latitude's iteration never
    // settles.
    // A sphere as the source makes a point there from a latitude and a negative height.
    TGeodeticReferenceSystem const sphere = Geodetic(TEllipsoid(6371000.0));
    double const radius = 36055.512754639893; // sqrt(20000^2 + 30000^2)
    TCoords point = Point(0, 0.98279372324732905 /* atan 1.5 */, radius - 6371000.0);
    EXPECT_EQ(ThrownText<std::runtime_error>([&] { sphere.OperateCoords(Geodetic(Wgs84()), &point); }),
              "CartesianToEllipsoidal");
    EXPECT_NEAR(point.X, 20000, 1e-6);
    EXPECT_NEAR(point.Z, 30000, 1e-6);
}

TEST(GeodeticReferenceSystem, WorldIsGeocentricInGreenwichAxes) {
    // The Krasovsky point at 39.33722917 degrees from Greenwich with the shift added; in 40 digits
    auto const shift = Shift(25, -141, -80);
    TGeodeticReferenceSystem const system = Geodetic(Krasovsky(), &shift, ParisLongitude);
    TCoords point = Degrees(37, 55, 200);
    system.OperateCoordsWorld(&point, true);
    EXPECT_NEAR(point.X, 2836008.7313593951, 1e-8);
    EXPECT_NEAR(point.Y, 2324163.6693366475, 1e-8);
    EXPECT_NEAR(point.Z, 5201558.7663302986, 1e-8);
    point = Degrees(37, 55, 200);
    system.OperateCoordsWorld(&point, false);
    EXPECT_NEAR(point.X, 2836008.7313593951 - 25, 1e-8);
    EXPECT_NEAR(point.Y, 2324163.6693366475 + 141, 1e-8);
    EXPECT_NEAR(point.Z, 5201558.7663302986 + 80, 1e-8);
}

TEST(GeodeticReferenceSystem, AxesAtTheOriginAreEastNorthAndUp) {
    // Central differences with 1e-5 radians in 40 digits; the rounding of doubles leaves about 1e-4 per
    // radian.
    double axes[9];
    ASSERT_TRUE(Geodetic(Wgs84()).TransformAxesWorld(Point(0, 0, 0), axes, false));
    double const expected[9] = {0, 6378136.999893698, 0, 0, 0, 6335439.327189349, 1, 0, 0};
    for (int index = 0; index < 9; ++index) {
        EXPECT_NEAR(axes[index], expected[index], 2e-4) << index;
    }
}

TEST(GeodeticReferenceSystem, AxesAtAGeneralPoint) {
    // Central differences with 1e-5 radians in 40 digits
    double axes[9];
    TCoords const point = Degrees(37, 55, 200);
    ASSERT_TRUE(Geodetic(Wgs84()).TransformAxesWorld(point, axes, true));
    double const expected[9] = {-2206680.10290325,  2928363.403530552,  0,
                                -4172884.417750577, -3144493.953606787, 3658596.554530614,
                                0.4580785097963263, 0.3451869163220742, 0.8191520442889918};
    for (int index = 0; index < 9; ++index) {
        EXPECT_NEAR(axes[index], expected[index], 2e-4) << index;
    }
}

TEST(GeodeticReferenceSystem, EqualityComparesAxesGeocentricSystemAndChain) {
    auto const shift = Shift(1, 2, 3);
    TPlaneShiftRefSystemTransform const transform(1, 2);
    TGeodeticReferenceSystem const system = Geodetic(Wgs84(), &shift, 0.5);
    EXPECT_EQ(system, Geodetic(Wgs84(), &shift, 0.5));
    EXPECT_NE(system, Geodetic(TEllipsoid(6378137.5, 6356752.314245179), &shift, 0.5));
    EXPECT_NE(system, Geodetic(TEllipsoid(6378137.0, 6356752.5), &shift, 0.5));
    EXPECT_NE(system, Geodetic(Wgs84(), nullptr, 0.5));
    EXPECT_NE(Geodetic(Wgs84(), nullptr, 0.5), system);
    EXPECT_NE(system, Geodetic(Wgs84(), &shift, 0.25));
    EXPECT_NE(system, Geodetic(Wgs84(), &shift, 0.5, SetOf(transform)));
    EXPECT_EQ(Geodetic(Wgs84()), Geodetic(Wgs84()));
}

TEST(GeodeticReferenceSystem, EqualityIgnoresPairwiseChains) {
    TGeodeticReferenceSystem system = Geodetic(Wgs84());
    system.SetPairwiseTransforms("k", SetOf(TPlaneShiftRefSystemTransform(1, 2)));
    EXPECT_EQ(system, Geodetic(Wgs84()));
}

TEST(GeodeticReferenceSystem, IsUnequalToItsGeocentricSystemAndToAClaimant) {
    TGeodeticReferenceSystem const system = Geodetic(Wgs84());
    EXPECT_NE(system, *system.GeocentricSystem);
    EXPECT_NE(system, TTestKind(4));
}

TEST(GeodeticReferenceSystem, WithAxesThatAreNaNIsUnequalToItself) {
    double const nan = std::numeric_limits<double>::quiet_NaN();
    TGeodeticReferenceSystem const system = Geodetic(TEllipsoid(nan, nan));
    EXPECT_NE(system, system);
    EXPECT_FALSE(system.PreservesHeights(system));
}

TEST(GeodeticReferenceSystem, PreservesHeightsOnOneEllipsoidAndDatum) {
    auto const shift = Shift(1, 2, 3);
    auto const otherShift = Shift(1, 2, 4);
    TGeodeticReferenceSystem const system = Geodetic(Wgs84(), &shift);
    EXPECT_TRUE(system.PreservesHeights(Geodetic(Wgs84(), &shift)));
    EXPECT_FALSE(system.PreservesHeights(Geodetic(Krasovsky(), &shift)));
    EXPECT_FALSE(system.PreservesHeights(Geodetic(TEllipsoid(6378137.0, 6356752.5), &shift)));
    EXPECT_FALSE(system.PreservesHeights(Geodetic(Wgs84(), &otherShift)));
    EXPECT_FALSE(system.PreservesHeights(Geodetic(Wgs84())));
}

TEST(GeodeticReferenceSystem, WithoutShiftsOnBothSidesPreservesHeights) {
    EXPECT_TRUE(Geodetic(Wgs84()).PreservesHeights(Geodetic(Wgs84())));
}

TEST(GeodeticReferenceSystem, ADifferenceOfMeridiansCountsAgainstHeights) {
    auto const shift = Shift(1, 2, 3);
    EXPECT_FALSE(Geodetic(Wgs84(), &shift, 0.5).PreservesHeights(Geodetic(Wgs84(), &shift)));
}

TEST(GeodeticReferenceSystem, PreservesHeightsOnlyWithBothChains) {
    TSevenParametersRefSystemTransform const similarity;
    TPlaneShiftRefSystemTransform const plane(1, 2);
    TGeodeticReferenceSystem const plain = Geodetic(Wgs84());
    TGeodeticReferenceSystem const chained = Geodetic(Wgs84(), nullptr, 0, SetOf(similarity));
    EXPECT_FALSE(plain.PreservesHeights(chained));
    EXPECT_FALSE(chained.PreservesHeights(plain));
    EXPECT_TRUE(plain.PreservesHeights(Geodetic(Wgs84(), nullptr, 0, SetOf(plane))));
}

TEST(GeodeticReferenceSystem, AsksTheGeodeticSystemOfAProjectedTargetForHeights) {
    TSevenParametersRefSystemTransform const similarity;
    TGeodeticReferenceSystem const system = Geodetic(Wgs84());
    TGeodeticReferenceSystem const same = Geodetic(Wgs84());
    TGeodeticReferenceSystem const other = Geodetic(Krasovsky());
    TGeodeticReferenceSystem const chained = Geodetic(Wgs84(), nullptr, 0, SetOf(similarity));
    TTestKind projected(5);
    projected.Geodetic = &same;
    EXPECT_TRUE(system.PreservesHeights(projected));
    EXPECT_FALSE(chained.PreservesHeights(projected));
    projected.Geodetic = &other;
    EXPECT_FALSE(system.PreservesHeights(projected));
    projected.Geodetic = &chained;
    EXPECT_FALSE(system.PreservesHeights(projected));
    TTestKind chainedProjection(5, SetOf(similarity));
    chainedProjection.Geodetic = &same;
    EXPECT_FALSE(system.PreservesHeights(chainedProjection));
}

TEST(GeodeticReferenceSystem, PreservesHeightsThrowsForOtherKinds) {
    TGeodeticReferenceSystem const system = Geodetic(Wgs84());
    EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)system.PreservesHeights(*system.GeocentricSystem); }),
              UnknownKind);
    for (int const kind : {0, 1, 2, 3, 4, 5, 6, 7}) {
        EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)system.PreservesHeights(TTestKind(kind)); }),
                  UnknownKind);
    }
}

TEST(GeodeticReferenceSystem, OperationsAllocateNothing) {
    auto const pulkovo = Shift(25, -141, -80);
    auto const common = Shift(0, 0, 0);
    TGeodeticReferenceSystem source = Geodetic(Krasovsky(), &pulkovo, ParisLongitude);
    TGeodeticReferenceSystem const target = Geodetic(Wgs84(), &common);
    source.SetPairwiseTransforms("a key that is longer than a short string", {});
    TCoords point = Degrees(37, 55, 200);
    std::size_t const before = AllocationCount();
    source.OperateCoords(target, &point);
    target.OperateCoords(source, &point);
    source.ConvertToGeocentric(&point);
    source.ConvertFromGeocentric(&point);
    source.OperateCoordsWorld(&point, true);
    EXPECT_EQ(AllocationCount(), before);
}

TEST(GeodeticReferenceSystem, ServesSeveralThreadsAtOnce) {
    auto const pulkovo = Shift(25, -141, -80);
    auto const common = Shift(0, 0, 0);
    TGeodeticReferenceSystem const source = Geodetic(Krasovsky(), &pulkovo);
    TGeodeticReferenceSystem const target = Geodetic(Wgs84(), &common);
    TCoords results[4];
    std::vector<std::thread> threads;
    for (TCoords& result : results) {
        threads.emplace_back([&source, &target, &result] {
            for (int repeat = 0; repeat < 1000; ++repeat) {
                result = Degrees(37, 55, 200);
                source.OperateCoords(target, &result);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (TCoords const& result : results) {
        ExpectNear(result, Degrees(36.998005299408077, 55.000088131250268, 207.06234852649962));
    }
}
