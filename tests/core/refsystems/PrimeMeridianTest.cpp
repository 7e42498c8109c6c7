#include "core/refsystems/PrimeMeridian.h"

#include "TestKinds.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace KvRefSystem;
using namespace KvRefSystemTests;

namespace {

constexpr double ParisLongitude = Radians(2.33722917);

/** Longitude 37, latitude 55 degrees, height 200 m on WGS 84; closed formulas in 40 digits. */
TCoords const Place = Point(2928363.4035793577, 2206680.1029400281, 5201547.3536111299);

} // namespace

TEST(PrimeMeridian, KeepsLongitudeSineAndCosine) {
    TPrimeMeridian const meridian(Pi / 6);
    EXPECT_EQ(meridian.Longitude, Pi / 6);
    EXPECT_NEAR(meridian.SinLongitude, 0.5, 1e-15);
    EXPECT_NEAR(meridian.CosLongitude, 0.86602540378443865, 1e-15);
    EXPECT_TRUE(meridian.NonZero);
}

TEST(PrimeMeridian, CopyKeepsAllFourFields) {
    TPrimeMeridian source(Pi / 6);
    source.SinLongitude = 2;
    source.CosLongitude = 3;
    source.NonZero = false;
    TPrimeMeridian const copy(source);
    EXPECT_EQ(copy.Longitude, Pi / 6);
    EXPECT_EQ(copy.SinLongitude, 2.0);
    EXPECT_EQ(copy.CosLongitude, 3.0);
    EXPECT_FALSE(copy.NonZero);
}

TEST(PrimeMeridian, RotatesGeocentricCoordinatesToGreenwich) {
    // X cos L - Y sin L, X sin L + Y cos L in 40 digits
    TCoords point = Place;
    TPrimeMeridian(ParisLongitude).TransformGeocentricToGreenwich(&point);
    EXPECT_NEAR(point.X, 2835936.6283482559, 1e-8);
    EXPECT_NEAR(point.Y, 2324266.0648314382, 1e-8);
    EXPECT_EQ(point.Z, Place.Z);
}

TEST(PrimeMeridian, RotatesGeocentricCoordinatesFromGreenwich) {
    // X cos L + Y sin L, Y cos L - X sin L in 40 digits
    TCoords point = Place;
    TPrimeMeridian(ParisLongitude).TransformGeocentricFromGreenwich(&point);
    EXPECT_NEAR(point.X, 3015918.0127942401, 1e-8);
    EXPECT_NEAR(point.Y, 2085422.7006143227, 1e-8);
    EXPECT_EQ(point.Z, Place.Z);
}

TEST(PrimeMeridian, ShiftsGeodeticLongitudesOnly) {
    TPrimeMeridian const meridian(0.25);
    TCoords point = Point(0.5, 0.75, 100);
    meridian.TransformGeodeticToGreenwich(&point);
    EXPECT_EQ(point, Point(0.75, 0.75, 100));
    meridian.TransformGeodeticFromGreenwich(&point);
    meridian.TransformGeodeticFromGreenwich(&point);
    EXPECT_EQ(point, Point(0.25, 0.75, 100));
}

TEST(PrimeMeridian, OfZeroAndOfMinusZeroDoNothingNotEvenAMultiplication) {
    // An infinity times the sine 0 would be a NaN.
    double const infinity = std::numeric_limits<double>::infinity();
    for (double const longitude : {0.0, -0.0}) {
        TPrimeMeridian const meridian(longitude);
        EXPECT_FALSE(meridian.NonZero);
        TCoords point = Point(infinity, -0.0, 1);
        meridian.TransformGeocentricToGreenwich(&point);
        meridian.TransformGeocentricFromGreenwich(&point);
        meridian.TransformGeodeticToGreenwich(&point);
        meridian.TransformGeodeticFromGreenwich(&point);
        EXPECT_EQ(point.X, infinity);
        EXPECT_EQ(point.Y, 0.0);
        EXPECT_TRUE(std::signbit(point.Y));
    }
}

TEST(PrimeMeridian, OfANaNCountsAsNonZero) {
    TPrimeMeridian const meridian(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(meridian.NonZero);
    TCoords point = Point(1, 2, 3);
    meridian.TransformGeocentricToGreenwich(&point);
    EXPECT_TRUE(std::isnan(point.X));
    EXPECT_TRUE(std::isnan(point.Y));
    EXPECT_EQ(point.Z, 3.0);
}

TEST(PrimeMeridian, LeavesTheHeightMarkAlone) {
    TCoords point{1, 2, 3, true};
    TPrimeMeridian(1.0).TransformGeocentricToGreenwich(&point);
    EXPECT_TRUE(point.ZUndefined);
}
