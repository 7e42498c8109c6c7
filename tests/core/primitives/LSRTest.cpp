#include "core/primitives/LSR.h"

#include "core/primitives/WGS84SemiAxes.h"
#include "tests/core/primitives/LSRChecks.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace LSRChecks;

// Hosts are compiled against this layout.
static_assert(std::is_standard_layout_v<TLSR>);
static_assert(offsetof(TLSR, EllipsoidRef) == 0);
static_assert(offsetof(TLSR, Origin) == 16);
static_assert(offsetof(TLSR, InverseShift) == 40);
static_assert(offsetof(TLSR, Rotation) == 64);
static_assert(sizeof(TLSR) == 136);

/** Azimuth and elevation of a local direction. */
std::pair<double, double> Angles(double x, double y, double z) {
    std::pair<double, double> angles;
    Dir2AzimuthElevation(x, y, z, &angles.first, &angles.second);
    return angles;
}

TTriple Direction(double azimuth, double elevation) {
    TTriple direction{};
    AzimuthElevation2Dir(azimuth, elevation, &direction[0], &direction[1], &direction[2]);
    return direction;
}

void ExpectAngles(std::pair<double, double> const& angles, double azimuth, double elevation) {
    EXPECT_NEAR(angles.first, azimuth, 1e-15);
    EXPECT_NEAR(angles.second, elevation, 1e-15);
}

// --- The frame ---------------------------------------------------------------------------------------------

TEST(LSR, AtTheOriginOfAnglesYPointsNorthAndXEast) {
    TLSR const frame = Frame(0, 0, 0, 0);
    ExpectNear(ToGeocentric(frame, {0, 0, 0}), WgsMajor, 0, 0, 0);
    ExpectNear(ToGeocentric(frame, {0, 1, 0}), WgsMajor, 0, 1, 0);
    ExpectNear(ToGeocentric(frame, {1, 0, 0}), WgsMajor, 1, 0, 0);
    ExpectNear(ToGeocentric(frame, {0, 0, 1}), WgsMajor + 1, 0, 0, 0);
}

TEST(LSR, YPointsAtTheAzimuthAndXToItsRight) {
    // Azimuth east: y is east, x south.
    TLSR const frame = Frame(0, 0, 0, 90);
    ExpectNear(ToGeocentric(frame, {0, 1, 0}), WgsMajor, 1, 0, 1e-15);
    ExpectNear(ToGeocentric(frame, {1, 0, 0}), WgsMajor, 0, -1, 1e-15);
}

TEST(LSR, FrameEqualsValuesFromElsewhere) {
    // The closed forms with mpmath; x and y as the topocentric system gives them with the right order of
    // axes.
    TLSR const frame = Sample();
    ExpectNear(ToGeocentric(frame, {100, 200, 300}), 2928307.92567, 2206871.94903, 5201863.76676, 6e-6);
    ExpectNear(ToLocal(frame, {2928307.92567, 2206871.94903, 5201863.76676}), 100, 200, 300, 2e-5);
    ExpectNear({frame.InverseShift[0], frame.InverseShift[1], frame.InverseShift[2]}, -10053.27705,
               17412.78663, -6363995.59227, 6e-6);
}

TEST(LSR, OriginIsThePointItself) {
    TLSR const frame = Sample();
    TEllipsoid const ellipsoid(WgsMajor, WgsMinor);
    TCoords origin;
    origin.X = 37 * Degree;
    origin.Y = 55 * Degree;
    origin.Z = 200;
    ellipsoid.EllipsoidalToCartesian(&origin);
    ExpectNear({frame.Origin[0], frame.Origin[1], frame.Origin[2]}, origin.X, origin.Y, origin.Z, Rounding);
    ExpectNear(ToGeocentric(frame, {0, 0, 0}), frame.Origin[0], frame.Origin[1], frame.Origin[2], 0);
    ExpectNear(ToLocal(frame, {origin.X, origin.Y, origin.Z}), 0, 0, 0, Rounding);
}

TEST(LSR, FrameIsRightHandedAndOrthonormal) {
    std::vector<TLSR> frames = CornerFrames();
    TDraw draw(7);
    for (int i = 0; i < 2000; ++i) {
        frames.push_back(draw.AnyFrame());
    }
    for (TLSR const& frame : frames) {
        double const* const r = frame.Rotation;
        for (int i = 0; i < 3; ++i) {
            for (int j = 0; j < 3; ++j) {
                ASSERT_NEAR(r[i] * r[j] + r[3 + i] * r[3 + j] + r[6 + i] * r[6 + j], i == j ? 1 : 0, 1e-15);
            }
        }
        double const determinant = r[0] * (r[4] * r[8] - r[5] * r[7]) - r[1] * (r[3] * r[8] - r[5] * r[6]) +
                                   r[2] * (r[3] * r[7] - r[4] * r[6]);
        ASSERT_NEAR(determinant, 1, 1e-15);
        // The closed form of the shift back.
        for (int i = 0; i < 3; ++i) {
            double const turned =
                r[i] * frame.Origin[0] + r[3 + i] * frame.Origin[1] + r[6 + i] * frame.Origin[2];
            ASSERT_NEAR(frame.InverseShift[i], -turned, Rounding);
        }
    }
}

TEST(LSR, OfTwoAnglesStandsOnTheCommonWgs84) {
    double a = 0;
    double b = 0;
    GetWGS84SemiAxes(&a, &b);
    TLSR const frame(0.9, 0.6);
    TLSR const expected(a, b, 0.9, 0.6, 0, 0);
    EXPECT_EQ(frame.EllipsoidRef->SemiMajorAxis, a);
    EXPECT_EQ(frame.EllipsoidRef->SemiMinorAxis, b);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(frame.Origin[i], expected.Origin[i]);
        EXPECT_EQ(frame.InverseShift[i], expected.InverseShift[i]);
    }
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(frame.Rotation[i], expected.Rotation[i]);
    }
}

// --- Points ------------------------------------------------------------------------------------------------

TEST(LSR, PointsComeBackFromGeocentric) {
    TDraw draw(11);
    for (int i = 0; i < 5000; ++i) {
        TLSR const frame = draw.AnyFrame();
        TTriple const point = draw.Point();
        ASSERT_LT(Distance(ToLocal(frame, ToGeocentric(frame, point)), point), Rounding);
    }
}

TEST(LSR, GeodeticCoordinatesComeInTheOrderLatitudeLongitudeHeight) {
    TLSR const frame = Sample();
    double lat = 0;
    double lon = 0;
    double h = 0;
    frame.LSR2Geodetic(0, 0, 0, &lat, &lon, &h);
    EXPECT_NEAR(lat, 55 * Degree, 1e-13);
    EXPECT_NEAR(lon, 37 * Degree, 1e-15);
    EXPECT_NEAR(h, 200, Rounding);
    // Up along the normal only the height changes.
    frame.LSR2Geodetic(0, 0, 50, &lat, &lon, &h);
    EXPECT_NEAR(lat, 55 * Degree, 1e-13);
    EXPECT_NEAR(lon, 37 * Degree, 1e-15);
    EXPECT_NEAR(h, 250, Rounding);
    TTriple local{};
    frame.Geodetic2LSR(55 * Degree, 37 * Degree, 1200, &local[0], &local[1], &local[2]);
    ExpectNear(local, 0, 0, 1000, Rounding);
}

TEST(LSR, GeodeticCoordinatesComeBack) {
    TDraw draw(13);
    for (int i = 0; i < 2000; ++i) {
        TLSR const frame =
            Frame(draw.Number(-85, 85), draw.Number(-179, 179), draw.Number(-1e3, 1e4), draw.Number(0, 360));
        TTriple const point = {draw.Number(-1e4, 1e4), draw.Number(-1e4, 1e4), draw.Number(-1e3, 1e3)};
        double lat = 0;
        double lon = 0;
        double h = 0;
        TTriple back{};
        frame.LSR2Geodetic(point[0], point[1], point[2], &lat, &lon, &h);
        frame.Geodetic2LSR(lat, lon, h, &back[0], &back[1], &back[2]);
        // The latitude's passes stop at 1e-12 radians, and the height takes that times the tangent.
        ASSERT_LT(Distance(back, point), 1e-6);
    }
}

TEST(LSR, GeodeticCoordinatesOfPlacesThatDoNotConvergeAreAnError) {
    // 43 km from the centre, where the latitude's passes jump between two values for ever.
    TLSR const frame = Frame(0, 0, 0, 0);
    TTriple const local = ToLocal(frame, {30000, 0, 31000});
    double lat = -1;
    double lon = -2;
    double h = -3;
    try {
        frame.LSR2Geodetic(local[0], local[1], local[2], &lat, &lon, &h);
        FAIL() << lat << ' ' << h;
    } catch (std::runtime_error const& error) {
        EXPECT_EQ(std::string(error.what()), "CartesianToEllipsoidal");
    }
    EXPECT_EQ(lat, -1);
    EXPECT_EQ(lon, -2);
    EXPECT_EQ(h, -3);
}

TEST(LSR, OutputsMayBeTheInputs) {
    TLSR const frame = Sample();
    TTriple const start = {100, 200, 300};
    TTriple const geocentric = ToGeocentric(frame, start);
    TTriple p = start;
    frame.LSR2Geocentric(p[0], p[1], p[2], &p[2], &p[0], &p[1]);
    EXPECT_EQ(p, (TTriple{geocentric[1], geocentric[2], geocentric[0]}));
    p = geocentric;
    frame.Geocentric2LSR(p[0], p[1], p[2], &p[0], &p[1], &p[2]);
    EXPECT_EQ(p, ToLocal(frame, geocentric));

    TTriple geodetic{};
    frame.LSR2Geodetic(100, 200, 300, &geodetic[0], &geodetic[1], &geodetic[2]);
    p = start;
    frame.LSR2Geodetic(p[0], p[1], p[2], &p[2], &p[0], &p[1]);
    EXPECT_EQ(p, (TTriple{geodetic[1], geodetic[2], geodetic[0]}));
    TTriple local{};
    frame.Geodetic2LSR(geodetic[0], geodetic[1], geodetic[2], &local[0], &local[1], &local[2]);
    p = geodetic;
    frame.Geodetic2LSR(p[0], p[1], p[2], &p[0], &p[1], &p[2]);
    EXPECT_EQ(p, local);

    TLSR const other = Frame(-10, 20, 5, 70);
    TTriple const moved = Between(frame, start, other);
    p = start;
    LSR2LSR(frame, p[0], p[1], p[2], other, &p[1], &p[2], &p[0]);
    EXPECT_EQ(p, (TTriple{moved[2], moved[0], moved[1]}));

    TTriple direction = {1, -2, 3};
    std::pair<double, double> const angles = Angles(1, -2, 3);
    Dir2AzimuthElevation(direction[0], direction[1], direction[2], &direction[2], &direction[0]);
    EXPECT_EQ(direction[2], angles.first);
    EXPECT_EQ(direction[0], angles.second);
    direction = {0.5, 0.25, 0};
    AzimuthElevation2Dir(direction[0], direction[1], &direction[0], &direction[1], &direction[2]);
    EXPECT_EQ(direction, Direction(0.5, 0.25));

    TTriple space{};
    frame.AzimuthElevation2GeocDir(0.5, 0.25, &space[0], &space[1], &space[2]);
    p = {0.5, 0.25, 0};
    frame.AzimuthElevation2GeocDir(p[0], p[1], &p[1], &p[0], &p[2]);
    EXPECT_EQ(p, (TTriple{space[1], space[0], space[2]}));
    double azimuth = 0;
    double elevation = 0;
    frame.GeocDir2AzimuthElevation(space[0], space[1], space[2], &azimuth, &elevation);
    p = space;
    frame.GeocDir2AzimuthElevation(p[0], p[1], p[2], &p[1], &p[0]);
    EXPECT_EQ(p[1], azimuth);
    EXPECT_EQ(p[0], elevation);
}

// --- Directions --------------------------------------------------------------------------------------------

TEST(LSR, AzimuthsRunFromYTowardsX) {
    ExpectAngles(Angles(0, 1, 0), 0, 0);
    ExpectAngles(Angles(1, 0, 0), HalfPi, 0);
    ExpectAngles(Angles(0, -1, 0), Pi, 0);
    ExpectAngles(Angles(-1, 0, 0), 3 * HalfPi, 0);
    ExpectAngles(Angles(5, 5, 0), Pi / 4, 0);
    ExpectAngles(Angles(-1, -1, std::sqrt(2.0)), 1.25 * Pi, Pi / 4);
    ExpectAngles(Angles(3, -3, -std::sqrt(18.0)), 0.75 * Pi, -Pi / 4);
}

TEST(LSR, VerticalDirectionsHaveAzimuth0) {
    EXPECT_EQ(Angles(0, 0, 1), std::make_pair(0.0, HalfPi));
    EXPECT_EQ(Angles(0, 0, 1e-300), std::make_pair(0.0, HalfPi));
    EXPECT_EQ(Angles(-0.0, -0.0, -5), std::make_pair(0.0, -HalfPi));
}

TEST(LSR, TheZeroVectorPointsDown) {
    EXPECT_EQ(Angles(0, 0, 0), std::make_pair(0.0, -HalfPi));
}

TEST(LSR, AzimuthsThatComeToAWholeTurnAreZero) {
    EXPECT_EQ(Angles(-1e-20, 1, 0), std::make_pair(0.0, 0.0));
    EXPECT_EQ(Angles(-1e-9, 1, 0).first, 0.0);
    // The least angle that an arc cosine tells from 0.
    EXPECT_LT(Angles(-2e-8, 1, 0).first, TwoPi);
    EXPECT_GT(Angles(-2e-8, 1, 0).first, 6.28);
}

TEST(LSR, ANegativeZeroIsNotToTheLeft) {
    EXPECT_EQ(Angles(-0.0, -1, 0).first, Pi);
    EXPECT_EQ(Angles(-0.0, 1, 0).first, 0.0);
}

TEST(LSR, DirectionsSoShortThatTheirSquaresFadeHaveAngles) {
    // 1e-160 squared is 1e-320, of which three digits are left, and the root comes out less than 1e-160.
    EXPECT_EQ(Angles(0, 1e-160, 0).first, 0.0);
    EXPECT_EQ(Angles(0, -1e-160, 0).first, Pi);
    for (double length = 1e-150; length > 1e-170; length *= 0.7) {
        double const azimuth = Angles(-length / 3, length, 0).first;
        EXPECT_GE(azimuth, 0);
        EXPECT_LT(azimuth, TwoPi);
    }
}

TEST(LSR, StraightUpXAndYAreExactlyZero) {
    for (double const azimuth : {0.0, 1.0, HalfPi, 4.0}) {
        EXPECT_EQ(Direction(azimuth, HalfPi), (TTriple{0, 0, 1}));
        EXPECT_EQ(Direction(azimuth, -HalfPi), (TTriple{0, 0, -1}));
        // So near that the sine is 1, though the cosine isn't 0.
        EXPECT_EQ(Direction(azimuth, HalfPi - 5e-9), (TTriple{0, 0, 1}));
    }
    EXPECT_NE(Direction(1, HalfPi - 1e-7)[0], 0);
}

TEST(LSR, DirectionsComeBack) {
    TDraw draw(17);
    for (int i = 0; i < 10000; ++i) {
        double const azimuth = draw.Number(1e-3, TwoPi - 1e-3);
        double const elevation = draw.Number(-1.57, 1.57);
        TTriple const direction = Direction(azimuth, elevation);
        ASSERT_NEAR(std::hypot(direction[0], direction[1], direction[2]), 1, 1e-15);
        double const length = draw.Number(1e-3, 1e6);
        std::pair<double, double> const angles =
            Angles(direction[0] * length, direction[1] * length, direction[2] * length);
        // An arc cosine loses half of the digits near 0 and pi.
        ASSERT_NEAR(angles.first, azimuth, 1e-7);
        ASSERT_NEAR(angles.second, elevation, 1e-13);
    }
}

TEST(LSR, GeocentricDirectionsAreTurnedAndNeverShifted) {
    TLSR const frame = Sample();
    double azimuth = -1;
    double elevation = -1;
    // The normal is the way up.
    frame.GeocDir2AzimuthElevation(std::cos(55 * Degree) * std::cos(37 * Degree) * 1e3,
                                   std::cos(55 * Degree) * std::sin(37 * Degree) * 1e3,
                                   std::sin(55 * Degree) * 1e3, &azimuth, &elevation);
    EXPECT_NEAR(elevation, HalfPi, 1e-12);
    // East is 60 degrees to the right of azimuth 30.
    frame.GeocDir2AzimuthElevation(-std::sin(37 * Degree), std::cos(37 * Degree), 0, &azimuth, &elevation);
    EXPECT_NEAR(azimuth, 60 * Degree, 1e-15);
    EXPECT_NEAR(elevation, 0, 1e-15);
    // And north 30 degrees to the left.
    frame.GeocDir2AzimuthElevation(-std::sin(55 * Degree) * std::cos(37 * Degree),
                                   -std::sin(55 * Degree) * std::sin(37 * Degree), std::cos(55 * Degree),
                                   &azimuth, &elevation);
    EXPECT_NEAR(azimuth, 330 * Degree, 4e-15);
    EXPECT_NEAR(elevation, 0, 1e-15);
}

TEST(LSR, GeocentricDirectionsJoinTheFramesPoints) {
    TDraw draw(19);
    for (int i = 0; i < 2000; ++i) {
        TLSR const frame = draw.AnyFrame();
        double const azimuth = draw.Number(0.01, TwoPi - 0.01);
        double const elevation = draw.Number(-1.5, 1.5);
        TTriple direction{};
        frame.AzimuthElevation2GeocDir(azimuth, elevation, &direction[0], &direction[1], &direction[2]);
        ASSERT_NEAR(std::hypot(direction[0], direction[1], direction[2]), 1, 1e-15);
        TTriple const there = ToGeocentric(frame, Direction(azimuth, elevation));
        ASSERT_LT(Distance(there, {frame.Origin[0] + direction[0], frame.Origin[1] + direction[1],
                                   frame.Origin[2] + direction[2]}),
                  Rounding);
        double backAzimuth = 0;
        double backElevation = 0;
        frame.GeocDir2AzimuthElevation(direction[0], direction[1], direction[2], &backAzimuth,
                                       &backElevation);
        ASSERT_NEAR(backAzimuth, azimuth, 1e-7);
        ASSERT_NEAR(backElevation, elevation, 1e-13);
    }
}

// --- The shared ellipsoid ----------------------------------------------------------------------------------

TEST(LSR, CopiesShareTheEllipsoid) {
    TLSR const frame = Sample();
    EXPECT_EQ(frame.EllipsoidRef.use_count(), 1u);
    {
        TLSR const copy = frame;
        EXPECT_EQ(copy.EllipsoidRef.get(), frame.EllipsoidRef.get());
        EXPECT_EQ(frame.EllipsoidRef.use_count(), 2u);
        TLSR assigned = Frame(0, 0, 0, 0);
        assigned = copy;
        EXPECT_EQ(frame.EllipsoidRef.use_count(), 3u);
        EXPECT_EQ(ToGeocentric(assigned, {1, 2, 3}), ToGeocentric(frame, {1, 2, 3}));
    }
    EXPECT_EQ(frame.EllipsoidRef.use_count(), 1u);
}

TEST(LSR, TheLastCopyKeepsTheEllipsoid) {
    auto frame = std::make_unique<TLSR>(Sample());
    TLSR const copy = *frame;
    frame.reset();
    EXPECT_EQ(copy.EllipsoidRef.use_count(), 1u);
    EXPECT_EQ(copy.EllipsoidRef->SemiMajorAxis, WgsMajor);
}

TEST(LSR, SetupLetsTheFormerEllipsoidGo) {
    TLSR frame = Sample();
    TLSR const copy = frame;
    TEllipsoid const* const former = frame.EllipsoidRef.get();
    frame.Setup(6378245, 6356863.018773047, 0.5, 0.25, 10, 0.125);
    EXPECT_EQ(copy.EllipsoidRef.use_count(), 1u);
    EXPECT_EQ(copy.EllipsoidRef.get(), former);
    EXPECT_EQ(frame.EllipsoidRef.use_count(), 1u);
    EXPECT_EQ(frame.EllipsoidRef->SemiMajorAxis, 6378245);
    TLSR const expected(6378245, 6356863.018773047, 0.5, 0.25, 10, 0.125);
    EXPECT_EQ(ToGeocentric(frame, {1, 2, 3}), ToGeocentric(expected, {1, 2, 3}));
    // The copy is the frame that it was.
    EXPECT_EQ(ToGeocentric(copy, {1, 2, 3}), ToGeocentric(Sample(), {1, 2, 3}));
}

TEST(LSR, SetupMayTakeTheFramesOwnNumbers) {
    TLSR frame = Sample();
    double const height = frame.Origin[2];
    frame.Setup(frame.EllipsoidRef->SemiMajorAxis, frame.EllipsoidRef->SemiMinorAxis, frame.Rotation[8],
                frame.Rotation[2], frame.Origin[2], frame.Rotation[0]);
    TLSR const former = Sample();
    TLSR const expected(WgsMajor, WgsMinor, former.Rotation[8], former.Rotation[2], height,
                        former.Rotation[0]);
    EXPECT_EQ(ToGeocentric(frame, {1, 2, 3}), ToGeocentric(expected, {1, 2, 3}));
    EXPECT_EQ(ToLocal(frame, {1, 2, 3}), ToLocal(expected, {1, 2, 3}));
    EXPECT_EQ(frame.EllipsoidRef->SemiMinorAxis, WgsMinor);
}

TEST(LSR, CopiesAreUsedAndDroppedOnManyThreads) {
    TLSR const frame = Sample();
    TTriple const expected = ToGeocentric(frame, {100, 200, 300});
    std::array<int, 8> wrong{};
    std::vector<std::thread> threads;
    for (int& count : wrong) {
        threads.emplace_back([&frame, &expected, &count] {
            for (int i = 0; i < 5000; ++i) {
                TLSR const copy = frame;
                TLSR const second = copy;
                TTriple geodetic{};
                second.LSR2Geodetic(100, 200, 300, &geodetic[0], &geodetic[1], &geodetic[2]);
                if (ToGeocentric(second, {100, 200, 300}) != expected || !(geodetic[2] > 499)) {
                    ++count;
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, (std::array<int, 8>{}));
    EXPECT_EQ(frame.EllipsoidRef.use_count(), 1u);
}

TEST(LSR, NumbersThatAreNotFiniteStayWithoutHarm) {
    double const nan = std::numeric_limits<double>::quiet_NaN();
    TLSR const frame(WgsMajor, WgsMinor, nan, 0, 0, 0);
    EXPECT_TRUE(std::isnan(ToGeocentric(frame, {0, 0, 0})[0]));
    // No length, so it counts as a direction without one.
    EXPECT_EQ(Angles(nan, 1, 1), std::make_pair(0.0, HalfPi));
    EXPECT_EQ(Angles(nan, 1, nan), std::make_pair(0.0, -HalfPi));
}

} // namespace
