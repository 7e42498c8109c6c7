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

TEST(TopocentricHorizontalReferenceSystem, CopiesItsParts) {
    TGeodeticReferenceSystem const geodetic = Geodetic();
    TPlaneShiftRefSystemTransform const transform(1, 2);
    TTopocentricHorizontalReferenceSystem const system(rscoRight, Azimuth, &geodetic, Place, SetOf(transform),
                                                       {{"k", SetOf(transform)}});
    EXPECT_EQ(system.Type, rstTopocentricHorizontal);
    EXPECT_NE(system.GeodeticSystem, &geodetic);
    EXPECT_EQ(*system.GeodeticSystem, geodetic);
    EXPECT_EQ(system.Orientation, rscoRight);
    EXPECT_TRUE(system.Transforms == SetOf(transform));
    EXPECT_EQ(system.PairwiseTransforms.size(), 1U);
}

TEST(TopocentricHorizontalReferenceSystem, NeedsAGeodeticSystem) {
    EXPECT_EQ(
        ThrownText<std::runtime_error>([] {
            TTopocentricHorizontalReferenceSystem const system(rscoLeft, 0.0, nullptr, Place, {}, {});
        }),
        "TTopocentricHorizontalReferenceSystem::TTopocentricHorizontalReferenceSystem: geodetic system");
}

TEST(TopocentricHorizontalReferenceSystem, PassesTheFailureOfTheGeodeticCopyOn) {
    TGeodeticReferenceSystem geodetic = Geodetic();
    geodetic.GeocentricSystem->DatumShift = new TForeignShift;
    EXPECT_EQ(ThrownText<std::runtime_error>([&] { Frame(geodetic); }),
              "TGeocentricReferenceSystem::TGeocentricReferenceSystem: datum shift");
}

TEST(TopocentricHorizontalReferenceSystem, MayBeBuiltFromTheBaseOfAnother) {
    TTopocentricHorizontalReferenceSystem const first = Frame();
    EXPECT_EQ(Frame(*first.GeodeticSystem), first);
}

TEST(TopocentricHorizontalReferenceSystem, TheAzimuthMayBeANumberOfTheOrigin) {
    TGeodeticReferenceSystem const geodetic = Geodetic();
    TTopocentricHorizontalReferenceSystem const system(rscoLeft, Place.X, &geodetic, Place, {}, {});
    EXPECT_EQ(system, Frame(geodetic, rscoLeft, Place, Radians(37)));
}

TEST(TopocentricHorizontalReferenceSystem, CopyIsDeep) {
    auto const shift = Shift(1, 2, 3);
    TPlaneShiftRefSystemTransform const transform(1, 2);
    TGeodeticReferenceSystem const geodetic = Geodetic(&shift, 0.5);
    TTopocentricHorizontalReferenceSystem const source(rscoRight, Azimuth, &geodetic, Place, SetOf(transform),
                                                       {{"k", SetOf(transform)}});
    TTopocentricHorizontalReferenceSystem const copy = CopyOf(source);
    EXPECT_NE(copy.GeodeticSystem, source.GeodeticSystem);
    EXPECT_EQ(copy.Orientation, rscoRight);
    EXPECT_EQ(copy, source);

    std::unique_ptr<TReferenceSystem> const other(CreateCopy(source));
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(*other, source);
    EXPECT_EQ(other->RelatedTopocentricHorizontalRefSystem()->Orientation, rscoRight);
    EXPECT_TRUE(other->PairwiseTransforms == source.PairwiseTransforms);
}

TEST(TopocentricHorizontalReferenceSystem, AFailedCopyIsNull) {
    TTopocentricHorizontalReferenceSystem const system = Frame();
    system.GeodeticSystem->GeocentricSystem->DatumShift = new TForeignShift;
    EXPECT_EQ(CreateCopy(system), nullptr);
}

TEST(TopocentricHorizontalReferenceSystem, RelatesToItselfAndToWhatItsBaseContains) {
    TTopocentricHorizontalReferenceSystem const system = Frame();
    EXPECT_EQ(system.RelatedGeocentricRefSystem(), system.GeodeticSystem->GeocentricSystem);
    EXPECT_EQ(system.RelatedGeodeticRefSystem(), system.GeodeticSystem);
    EXPECT_EQ(system.RelatedMapProjectedRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedTopocentricHorizontalRefSystem(), &system);
    EXPECT_EQ(system.RelatedLocalCartesianRefSystem(), nullptr);
    EXPECT_EQ(system.RelatedLocalCurvedRefSystem(), nullptr);
}

TEST(TopocentricHorizontalReferenceSystem, TheDatumIsThatOfTheBase) {
    auto const linear = Shift(1, 2, 3);
    TBursaWolfNonlinearDatumShift const nonlinear(TBursaWolfDatumShiftParameters(1, 2, 3));
    TTopocentricHorizontalReferenceSystem system = Frame();
    EXPECT_FALSE(system.ContainsDatum());
    EXPECT_FALSE(system.NonlinearDatum());
    EXPECT_TRUE(system.ReplaceDatumShift(&linear));
    EXPECT_EQ(*system.GeodeticSystem->GeocentricSystem->DatumShift, linear);
    EXPECT_TRUE(system.ContainsDatum());
    EXPECT_FALSE(system.NonlinearDatum());
    EXPECT_TRUE(system.ReplaceDatumShift(&nonlinear));
    EXPECT_TRUE(system.NonlinearDatum());
    EXPECT_FALSE(system.ReplaceDatumShift(nullptr));
    EXPECT_FALSE(system.ContainsDatum());
}

TEST(TopocentricHorizontalReferenceSystem, ComparesDatumsWithTheOtherKinds) {
    auto const shift = Shift(1, 2, 3);
    auto const otherShift = Shift(1, 2, 4);
    TGeodeticReferenceSystem const geodetic = Geodetic(&shift);
    TTopocentricHorizontalReferenceSystem const system = Frame(geodetic);
    EXPECT_EQ(system.CompareDatums(geodetic), dcEqual);
    EXPECT_EQ(Projected(geodetic).CompareDatums(system), dcEqual);
    EXPECT_EQ(system.CompareDatums(Geodetic(&otherShift)), dcDifferent);
    EXPECT_EQ(system.CompareDatums(Frame()), dcUnknown);
    EXPECT_EQ(system.CompareDatums(TLocalCartesianReferenceSystem(rscoLeft, {}, {})), dcIncompatible);
    EXPECT_EQ(TLocalCurvedReferenceSystem(rscoLeft, 1, 0, 0, {}, {}).CompareDatums(system), dcIncompatible);
}

TEST(TopocentricHorizontalReferenceSystem, StepsAreOneMetre) {
    double steps[3] = {};
    Frame().GetAxisStepsBase(steps);
    EXPECT_EQ(steps[0], 1.0);
    EXPECT_EQ(steps[1], 1.0);
    EXPECT_EQ(steps[2], 1.0);
}

TEST(TopocentricHorizontalReferenceSystem, ColumnsOfTheRotationAreAzimuthRightAndZenith) {
    // north cos A + east sin A, east cos A - north sin A and the zenith, in 40 digits
    double const expected[9] = {-0.86746471749477109, -0.19408514308028312, 0.4580785097963263,
                                -0.02761372211134808, 0.93812764331471153,  0.34518691632207415,
                                0.49673176489215407,  -0.28678821817552305, 0.81915204428899179};
    ExpectNumbers(Frame().Rotation, expected, RoundingOfRotations);
}

TEST(TopocentricHorizontalReferenceSystem, TheOriginIsTheTangentPointInGeocentricMetres) {
    double const expected[3] = {2928363.4035793577, 2206680.1029400281, 5201547.3536111299};
    ExpectNumbers(Frame().Origin, expected, RoundingOfTheEarthsRadius);
}

TEST(TopocentricHorizontalReferenceSystem, TheInverseShiftTakesTheOriginIntoTheLocalAxes) {
    // Minus the transposed rotation times the origin, in 40 digits
    double const expected[3] = {17412.786629850778, -10053.277048085863, -6363995.592273428};
    ExpectNumbers(Frame().InverseShift, expected, RoundingOfTheEarthsRadius);
}

TEST(TopocentricHorizontalReferenceSystem, TheInverseShiftComesFromTheClosedForm) {
    // On the equator the formula is exact, where the product would leave the rounding of the rotation.
    TTopocentricHorizontalReferenceSystem const system = Frame(Geodetic(), rscoLeft, Degrees(37, 0, 200));
    EXPECT_EQ(system.InverseShift[0], 0.0);
    EXPECT_EQ(system.InverseShift[1], 0.0);
    EXPECT_EQ(system.InverseShift[2], -6378337.0);
}

TEST(TopocentricHorizontalReferenceSystem, OnASphereTheInverseShiftIsTheRadiusAlone) {
    TTopocentricHorizontalReferenceSystem const system =
        Frame(Geodetic(nullptr, 0, TEllipsoid(6371000.0)), rscoLeft, Place);
    EXPECT_EQ(system.InverseShift[0], 0.0);
    EXPECT_EQ(system.InverseShift[1], 0.0);
    EXPECT_EQ(system.InverseShift[2], -6371200.0);
    double const expected[3] = {2918509.8016143541, 2199254.8812711988, 5218981.5045740245}; // in 40 digits
    ExpectNumbers(system.Origin, expected, RoundingOfTheEarthsRadius);
}

TEST(TopocentricHorizontalReferenceSystem, TheHandOfItsColumnsIsTheLeft) {
    // Azimuth, right, zenith: the determinant is -1 for any origin and azimuth, and the columns are orthonormal.
    std::mt19937_64 random(4401);
    std::uniform_real_distribution<double> turn(-Pi, Pi);
    for (int round = 0; round < 1000; ++round) {
        TCoords const origin = Point(turn(random), turn(random) / 2, 1e4 * turn(random));
        TTopocentricHorizontalReferenceSystem const system =
            Frame(Geodetic(), rscoLeft, origin, turn(random));
        double const* const r = system.Rotation;
        double const determinant = r[0] * (r[4] * r[8] - r[5] * r[7]) - r[1] * (r[3] * r[8] - r[5] * r[6]) +
                                   r[2] * (r[3] * r[7] - r[4] * r[6]);
        ASSERT_NEAR(determinant, -1.0, RoundingOfRotations);
        for (int one = 0; one < 3; ++one) {
            double shift = 0;
            for (int other = 0; other < 3; ++other) {
                double const product =
                    r[one] * r[other] + r[3 + one] * r[3 + other] + r[6 + one] * r[6 + other];
                ASSERT_NEAR(product, one == other ? 1.0 : 0.0, RoundingOfRotations);
                shift -= r[3 * other + one] * system.Origin[other];
            }
            ASSERT_NEAR(system.InverseShift[one], shift, RoundingOfTheEarthsRadius);
        }
    }
}

TEST(TopocentricHorizontalReferenceSystem, AtLongitudeAndLatitudeZeroXIsNorthAndYIsEastOnTheLeft) {
    TTopocentricHorizontalReferenceSystem const system = Frame(Geodetic(), rscoLeft, Degrees(0, 0, 30), 0.0);
    TGeocentricReferenceSystem const geocentric(nullptr, nullptr, {}, {});
    TCoords point = Point(0, 0, 0);
    system.OperateCoords(geocentric, &point);
    EXPECT_EQ(point, Point(6378167, 0, 0));
    point = Point(10, 20, 30);
    system.OperateCoords(geocentric, &point);
    EXPECT_EQ(point, Point(6378197, 20, 10));
    geocentric.OperateCoords(system, &point);
    EXPECT_EQ(point, Point(10, 20, 30));
}

TEST(TopocentricHorizontalReferenceSystem, OnTheRightXIsEastAndYIsNorth) {
    TTopocentricHorizontalReferenceSystem const system = Frame(Geodetic(), rscoRight, Degrees(0, 0, 30), 0.0);
    TGeocentricReferenceSystem const geocentric(nullptr, nullptr, {}, {});
    TCoords point = Point(10, 20, 30);
    system.OperateCoords(geocentric, &point);
    EXPECT_EQ(point, Point(6378197, 10, 20));
    geocentric.OperateCoords(system, &point);
    EXPECT_EQ(point, Point(10, 20, 30));
}

TEST(TopocentricHorizontalReferenceSystem, AQuarterTurnOfAzimuthPutsTheFirstAxisEast) {
    TTopocentricHorizontalReferenceSystem const system =
        Frame(Geodetic(), rscoLeft, Degrees(0, 0, 0), Pi / 2);
    TCoords point = Point(10, 20, 30);
    system.ConvertTopocentricHorizontalToGeocentric(&point);
    // The axis to its right then points south.
    ExpectNear(point, Point(6378167, 10, -20));
}

TEST(TopocentricHorizontalReferenceSystem, GeneralPointsInBothOrientations) {
    // origin + rotation (u, v, z) in 40 digits
    TCoords left = Point(100, 200, 300);
    Frame(rscoLeft).ConvertTopocentricHorizontalToGeocentric(&left);
    ExpectNear(left, Point(2928375.263631931, 2206968.5231713765, 5201785.4147572708));
    Frame(rscoLeft).ConvertGeocentricToTopocentricHorizontal(&left);
    ExpectNear(left, Point(100, 200, 300));

    TCoords right = Point(100, 200, 300);
    Frame(rscoRight).ConvertTopocentricHorizontalToGeocentric(&right);
    ExpectNear(right, Point(2928307.9256744896, 2206871.9490348339, 5201863.7667555775));
    Frame(rscoRight).ConvertGeocentricToTopocentricHorizontal(&right);
    ExpectNear(right, Point(100, 200, 300));
}

TEST(TopocentricHorizontalReferenceSystem, AnyNonZeroOrientationActsAsRight) {
    for (int const number : {7, -1}) {
        TCoords point = Point(100, 200, 300);
        Frame(static_cast<TReferenceSystemCartesianOrientation>(number))
            .ConvertTopocentricHorizontalToGeocentric(&point);
        ExpectNear(point, Point(2928307.9256744896, 2206871.9490348339, 5201863.7667555775));
        Frame(static_cast<TReferenceSystemCartesianOrientation>(number))
            .ConvertGeocentricToTopocentricHorizontal(&point);
        ExpectNear(point, Point(100, 200, 300));
    }
}

TEST(TopocentricHorizontalReferenceSystem, ThePublishedExample) {
    // [EPSG7-2, 9837]: east -189013.869, north -128642.040, up -4220.171; the digits behind come from 40 digits
    TTopocentricHorizontalReferenceSystem const system =
        Frame(Geodetic(), rscoRight, Degrees(5, 55, 200), 0.0);
    TCoords point = Degrees(2 + 7 / 60.0 + 46.38 / 3600, 53 + 48 / 60.0 + 33.82 / 3600, 73);
    Geodetic().OperateCoords(system, &point);
    ExpectNear(point, Point(-189013.86915, -128642.03981, -4220.17076), 1e-5);
}

TEST(TopocentricHorizontalReferenceSystem, EqualityComparesBaseFrameAndChain) {
    TTopocentricHorizontalReferenceSystem const system = Frame();
    EXPECT_EQ(system, Frame());
    EXPECT_NE(system, Frame(Geodetic(nullptr, 0, Krasovsky())));
    EXPECT_NE(system, Frame(Geodetic(nullptr, ParisLongitude)));
    EXPECT_NE(system, Frame(Geodetic(), rscoLeft, Degrees(37, 55, 201)));
    EXPECT_NE(system, Frame(Geodetic(), rscoLeft, Place, Radians(31)));
    EXPECT_NE(system,
              Frame(Geodetic(), rscoLeft, Place, Azimuth, SetOf(TPlaneShiftRefSystemTransform(1, 2))));
    EXPECT_NE(system, *system.GeodeticSystem);
    EXPECT_NE(system, TTestKind(6));
}

TEST(TopocentricHorizontalReferenceSystem, EveryNumberOfTheFrameCounts) {
    TTopocentricHorizontalReferenceSystem const system = Frame();
    for (int index = 0; index < 15; ++index) {
        TTopocentricHorizontalReferenceSystem other = Frame();
        double& number = index < 3   ? other.Origin[index]
                         : index < 6 ? other.InverseShift[index - 3]
                                     : other.Rotation[index - 6];
        number = std::nextafter(number, Infinity);
        EXPECT_NE(system, other) << index;
    }
}

TEST(TopocentricHorizontalReferenceSystem, SystemsThatDifferOnlyInOrientationAreEqual) {
    EXPECT_EQ(Frame(rscoLeft), Frame(rscoRight));
    TCoords point = Point(100, 200, 300);
    Frame(rscoLeft).OperateCoords(Frame(rscoRight), &point);
    ExpectNear(point, Point(200, 100, 300));
}

TEST(TopocentricHorizontalReferenceSystem, EqualityIgnoresPairwiseChains) {
    TTopocentricHorizontalReferenceSystem system = Frame();
    system.SetPairwiseTransforms("k", SetOf(TPlaneShiftRefSystemTransform(1, 2)));
    EXPECT_EQ(system, Frame());
}

TEST(TopocentricHorizontalReferenceSystem, WithAnOriginThatIsNaNIsUnequalToItself) {
    TTopocentricHorizontalReferenceSystem const system = Frame(Geodetic(), rscoLeft, Point(0, NaN, 0));
    EXPECT_NE(system, system);
    EXPECT_FALSE(system.PreservesHeights(system));
}

TEST(TopocentricHorizontalReferenceSystem, PreservesHeightsOnOneBaseAndOriginWhateverTheAzimuth) {
    TTopocentricHorizontalReferenceSystem const system = Frame();
    EXPECT_TRUE(system.PreservesHeights(Frame(Geodetic(), rscoRight, Place, Radians(77))));
    EXPECT_FALSE(system.PreservesHeights(Frame(Geodetic(), rscoLeft, Degrees(37, 55, 201))));
    EXPECT_FALSE(system.PreservesHeights(Frame(Geodetic(), rscoLeft, Degrees(38, 55, 200))));
    EXPECT_FALSE(system.PreservesHeights(Frame(Geodetic(nullptr, 0, Krasovsky()))));
    EXPECT_FALSE(system.PreservesHeights(Frame(Geodetic(nullptr, ParisLongitude))));
}

TEST(TopocentricHorizontalReferenceSystem, PreservesHeightsOnlyWithBothChains) {
    TSevenParametersRefSystemTransform const similarity;
    TTopocentricHorizontalReferenceSystem const plain = Frame();
    TTopocentricHorizontalReferenceSystem const chained =
        Frame(Geodetic(), rscoLeft, Place, Azimuth, SetOf(similarity));
    EXPECT_FALSE(plain.PreservesHeights(chained));
    EXPECT_FALSE(chained.PreservesHeights(plain));
}

TEST(TopocentricHorizontalReferenceSystem, PreservesHeightsThrowsForOtherKindsBothWays) {
    TTopocentricHorizontalReferenceSystem const system = Frame();
    EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)system.PreservesHeights(*system.GeodeticSystem); }),
              UnknownKind);
    EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)system.GeodeticSystem->PreservesHeights(system); }),
              UnknownKind);
    for (int const kind : {0, 1, 2, 3, 4, 5, 6, 7}) {
        EXPECT_EQ(ThrownText<std::logic_error>([&] { (void)system.PreservesHeights(TTestKind(kind)); }),
                  UnknownKind);
    }
}

TEST(TopocentricHorizontalReferenceSystem, OperationsAllocateNothing) {
    auto const own = Shift(25, -141, -80);
    auto const common = Shift(0, 0, 0);
    TTopocentricHorizontalReferenceSystem const from = Frame(Geodetic(&own, ParisLongitude));
    TTopocentricHorizontalReferenceSystem const to = Frame(Geodetic(&common), rscoRight);
    TCoords point = Point(100, 200, 300);
    std::size_t const before = AllocationCount();
    from.OperateCoords(to, &point);
    from.OperateCoordsWorld(&point, true);
    EXPECT_EQ(AllocationCount(), before);
}
