#include "core/transforms/SevenParameters.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using KvRefSystem::TCoords;
using Transform = KvRefSystem::TSevenParametersRefSystemTransform;

// Hosts are compiled against this layout.
static_assert(sizeof(LumCommonUtils::T7Params) == 56);

constexpr double ArcSecond = 3.141592653589793 / 180 / 3600;
constexpr char ConstructorText[] = "TSevenParametersRefSystemTransform::TSevenParametersRefSystemTransform";
constexpr char CopyText[] = "TSevenParametersRefSystemTransform::TSevenParametersRefSystemTransform(const "
                            "TSevenParametersRefSystemTransform&)";

TCoords Point(double x, double y, double z) {
    TCoords point;
    point.X = x;
    point.Y = y;
    point.Z = z;
    return point;
}

void ExpectPoint(TCoords const& point, double x, double y, double z, double tolerance) {
    EXPECT_NEAR(point.X, x, tolerance);
    EXPECT_NEAR(point.Y, y, tolerance);
    EXPECT_NEAR(point.Z, z, tolerance);
}

Transform Sample() {
    return Transform(10, 20, 30, 0.1, 0.2, 0.3, 0.001);
}

TEST(SevenParameters, DefaultIsTheIdentity) {
    Transform const identity;
    TCoords point = Point(1, 2, 3);
    identity.BaseToTransformed(nullptr, &point);
    ExpectPoint(point, 1, 2, 3, 0);
    identity.TransformedToBase(nullptr, &point);
    ExpectPoint(point, 1, 2, 3, 0);
    EXPECT_EQ(identity.Type, KvRefSystem::rsttSevenParameters);
    EXPECT_TRUE(identity == Transform(0, 0, 0, 0, 0, 0, 0));
}

TEST(SevenParameters, ForwardAgreesWithManyDigits) {
    // With 50 digits in mpmath: (1 + m) (Rz Ry Rx)^T p + d with active rotations.
    TCoords point = Point(1000, 2000, 3000);
    Sample().BaseToTransformed(nullptr, &point);
    ExpectPoint(point, 930.46387077649679, 1953.2157939113903, 3103.0175653202345, 1e-9);

    point = Point(-10, 20, 40);
    Transform(1, -2, 3, -1.2, 0.7, 2.5, -0.5).BaseToTransformed(nullptr, &point);
    ExpectPoint(point, -4.2432441312811443, -24.074577353122161, 6.1970964422131593, 1e-12);
}

TEST(SevenParameters, BackwardReturnsThePoint) {
    TCoords point = Point(1000, 2000, 3000);
    Sample().BaseToTransformed(nullptr, &point);
    Sample().TransformedToBase(nullptr, &point);
    ExpectPoint(point, 1000, 2000, 3000, 1e-9);
}

TEST(SevenParameters, RotationsHaveTheSignOfTheCoordinateFrame) {
    // EPSG Guidance Note 7-2, WGS 72 to WGS 84 with the rotation as a coordinate frame rotation.
    Transform const transform(0, 0, 4.5, 0, 0, -0.554 * ArcSecond, 0.219e-6);
    TCoords point = Point(3657660.66, 255768.55, 5201382.11);
    transform.BaseToTransformed(nullptr, &point);
    ExpectPoint(point, 3657660.78, 255778.43, 5201387.75, 0.006);
}

TEST(SevenParameters, LeaveTheHeightsMarkAlone) {
    TCoords point = Point(1, 2, 3);
    point.ZUndefined = true;
    Sample().BaseToTransformed(nullptr, &point);
    Sample().TransformedToBase(nullptr, &point);
    EXPECT_TRUE(point.ZUndefined);
}

TEST(SevenParameters, FormWithTwoPointsIsReachable) {
    TCoords const in = Point(1000, 2000, 3000);
    TCoords out;
    Sample().BaseToTransformed(nullptr, in, &out);
    ExpectPoint(out, 930.46387077649679, 1953.2157939113903, 3103.0175653202345, 1e-9);
    Sample().TransformedToBase(nullptr, out, &out);
    ExpectPoint(out, 1000, 2000, 3000, 1e-9);
}

TEST(SevenParameters, GiveTheNumbersInTheConstructorsOrder) {
    double dX = 0;
    double dY = 0;
    double dZ = 0;
    double alpha = 0;
    double beta = 0;
    double gamma = 0;
    double dm = 0;
    Transform(1, 2, 3, 4, 5, 6, 7).GetParameters(&dX, &dY, &dZ, &alpha, &beta, &gamma, &dm);
    EXPECT_EQ(dX, 1);
    EXPECT_EQ(dY, 2);
    EXPECT_EQ(dZ, 3);
    EXPECT_EQ(alpha, 4);
    EXPECT_EQ(beta, 5);
    EXPECT_EQ(gamma, 6);
    EXPECT_EQ(dm, 7);
}

TEST(SevenParameters, AreStoredAnglesFirst) {
    LumCommonUtils::T7Params stored;
    Transform(1, 2, 3, 4, 5, 6, 7).Transform.GetParameters(&stored);
    EXPECT_EQ(stored.wx, 4);
    EXPECT_EQ(stored.wy, 5);
    EXPECT_EQ(stored.wz, 6);
    EXPECT_EQ(stored.m, 7);
    EXPECT_EQ(stored.dX, 1);
    EXPECT_EQ(stored.dY, 2);
    EXPECT_EQ(stored.dZ, 3);
}

TEST(SevenParameters, ThatCannotBePreparedThrow) {
    double const bad[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()};
    auto const text = [](std::vector<double> const& n) -> std::string {
        try {
            Transform(n[0], n[1], n[2], n[3], n[4], n[5], n[6]);
        } catch (std::runtime_error const& error) {
            return error.what();
        }
        return "";
    };
    EXPECT_EQ(text({1, 2, 3, 0.1, 0.2, 0.3, -1}), ConstructorText);
    for (double const value : bad) {
        for (std::size_t k = 0; k < 7; ++k) {
            std::vector<double> numbers = {1, 2, 3, 0.1, 0.2, 0.3, 0};
            numbers[k] = value;
            EXPECT_EQ(text(numbers), ConstructorText) << k;
        }
    }
    EXPECT_EQ(text({1, 2, 3, 0.1, 0.2, 0.3, -2}), "");
}

TEST(SevenParameters, CopyOfAnUnusableTransformHasItsOwnText) {
    // What the utility holds in memory is the only way to numbers that can't be prepared: damage a copy's.
    Transform source;
    static_assert(sizeof(source.Transform) >= sizeof(LumCommonUtils::T7Params));
    LumCommonUtils::T7Params damaged;
    damaged.m = -1;
    auto* const bytes = reinterpret_cast<unsigned char*>(&source.Transform);
    LumCommonUtils::T7Params held;
    std::memcpy(bytes, &damaged, sizeof damaged);
    source.Transform.GetParameters(&held);
    ASSERT_EQ(held.m, -1);
    try {
        Transform const copy(source);
        FAIL() << "no exception";
    } catch (std::runtime_error const& error) {
        EXPECT_STREQ(error.what(), CopyText);
    }
}

TEST(SevenParameters, CopyIsEqualAndLosesTheNames) {
    Transform source = Sample();
    source.Name = "name";
    source.Description = "description";
    Transform const copy(source);
    EXPECT_TRUE(copy == source);
    EXPECT_EQ(copy.Name, "");
    EXPECT_EQ(copy.Description, "");
    TCoords one = Point(1000, 2000, 3000);
    TCoords two = one;
    source.BaseToTransformed(nullptr, &one);
    copy.BaseToTransformed(nullptr, &two);
    ExpectPoint(two, one.X, one.Y, one.Z, 0);
}

TEST(SevenParameters, EqualityComparesAllSeven) {
    std::vector<double> const numbers = {10, 20, 30, 0.1, 0.2, 0.3, 0.001};
    for (std::size_t k = 0; k < 7; ++k) {
        std::vector<double> n = numbers;
        n[k] = std::nextafter(n[k], 100);
        EXPECT_FALSE(Sample() == Transform(n[0], n[1], n[2], n[3], n[4], n[5], n[6])) << k;
    }
    EXPECT_TRUE(Sample() == Sample());
    EXPECT_TRUE(Transform(0.0, 0, 0, 0, 0, 0, 0) == Transform(-0.0, 0, 0, 0, 0, 0, 0));
    // A whole turn more turns the same and still is another number.
    EXPECT_FALSE(Transform(0, 0, 0, 0, 0, 0.5, 0) == Transform(0, 0, 0, 0, 0, 0.5 + 6.283185307179586, 0));
}

TEST(SevenParameters, DoNotPreserveHeights) {
    EXPECT_FALSE(Sample().PreservesHeights());
    EXPECT_FALSE(Transform().PreservesHeights());
}

TEST(SevenParameters, OutputAlignsTheNames) {
    Transform transform = Sample();
    transform.Name = "similarity";
    std::vector<std::string> lines = {"before"};
    transform.Output(&lines);
    EXPECT_EQ(lines,
              (std::vector<std::string>{"before", "Name: similarity", "Description: ", "Type: Seven params",
                                        "Alpha= 0.1 radians", "Beta = 0.2 radians", "Gamma= 0.3 radians",
                                        "dm   = 0.001", "dX   = 10", "dY   = 20", "dZ   = 30"}));
}

} // namespace
