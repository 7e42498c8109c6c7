#include "frame/imported/SevenParameters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

using namespace LumCommonUtils;

namespace {

constexpr double pi = 3.141592653589793;
constexpr double infinity = std::numeric_limits<double>::infinity();

// The exact numbers below were computed with Python's mpmath at 40 digits, from A = (Rz Ry Rx)^T written out
// as a product of three matrices and the textbook angles of a rotation matrix.
constexpr T7Params first = {0.1, 0.2, 0.3, 0.001, 10, 20, 30};
constexpr T7Params second = {-0.25, 0.4, 1.1, -0.002, -7, 11, 130};

struct Point {
    double x;
    double y;
    double z;
};

void ExpectNear(Point const& point, Point const& expected, double tolerance) {
    EXPECT_NEAR(point.x, expected.x, tolerance);
    EXPECT_NEAR(point.y, expected.y, tolerance);
    EXPECT_NEAR(point.z, expected.z, tolerance);
}

void ExpectNear(T7Params const& parameters, T7Params const& expected) {
    EXPECT_NEAR(parameters.wx, expected.wx, 1e-14);
    EXPECT_NEAR(parameters.wy, expected.wy, 1e-14);
    EXPECT_NEAR(parameters.wz, expected.wz, 1e-14);
    EXPECT_NEAR(parameters.m, expected.m, 1e-15);
    EXPECT_NEAR(parameters.dX, expected.dX, 1e-12);
    EXPECT_NEAR(parameters.dY, expected.dY, 1e-12);
    EXPECT_NEAR(parameters.dZ, expected.dZ, 1e-12);
}

Point Direct(T7Params const& parameters, Point p) {
    T7ParamsTransform transform;
    EXPECT_TRUE(transform.Initialize(parameters));
    transform.DirectTransform(p.x, p.y, p.z, &p.x, &p.y, &p.z);
    return p;
}

Point Inverse(T7Params const& parameters, Point p) {
    T7ParamsTransform transform;
    EXPECT_TRUE(transform.Initialize(parameters));
    transform.InverseTransform(p.x, p.y, p.z, &p.x, &p.y, &p.z);
    return p;
}

/** The matrix of one active rotation about axis 0, 1 or 2. */
TMatrix Rotation(unsigned long axis, double angle) {
    unsigned long const next = (axis + 1) % 3;
    unsigned long const last = (axis + 2) % 3;
    TMatrix matrix(3, 3);
    matrix.SetElement(axis, axis, 1.0);
    matrix.SetElement(next, next, std::cos(angle));
    matrix.SetElement(last, last, std::cos(angle));
    matrix.SetElement(last, next, -std::sin(angle));
    matrix.SetElement(next, last, std::sin(angle));
    return matrix;
}

TMatrix Rzyx(double alpha, double beta, double gamma) {
    return Rotation(2, gamma) * Rotation(1, beta) * Rotation(0, alpha);
}

double LargestDifference(TMatrix const& left, TMatrix const& right) {
    double largest = 0.0;
    for (unsigned long row = 0; row < 3; ++row) {
        for (unsigned long column = 0; column < 3; ++column) {
            double const difference = left.GetElement(column, row) - right.GetElement(column, row);
            largest = std::max(largest, std::fabs(difference));
        }
    }
    return largest;
}

/** Takes a matrix apart and puts it together again. */
double RecompositionError(TMatrix const& matrix) {
    double alpha = 0;
    double beta = 0;
    double gamma = 0;
    RzyxGetAlphaBetaGamma(matrix, &alpha, &beta, &gamma);
    return LargestDifference(Rzyx(alpha, beta, gamma), matrix);
}

/** Numbers that are the same on every system. */
class Draw {
public:
    double operator()(double least, double greatest) {
        return least + (greatest - least) * (static_cast<double>(generator()) / 4294967296.0);
    }

    T7Params Parameters() {
        Draw& draw = *this;
        double const angle = 3.0;
        return {draw(-angle, angle), draw(-angle, angle), draw(-angle, angle), draw(-0.5, 0.5),
                draw(-1e3, 1e3),     draw(-1e3, 1e3),     draw(-1e3, 1e3)};
    }

    Point ThePoint() {
        Draw& draw = *this;
        return {draw(-7e6, 7e6), draw(-7e6, 7e6), draw(-7e6, 7e6)};
    }

private:
    std::mt19937 generator{1942};
};

} // namespace

TEST(SevenParameters, DirectTurnsByTheTransposedMatrixThenScalesAndShifts) {
    ExpectNear(Direct(first, {1000, 2000, 3000}),
               {930.46387077649679, 1953.2157939113903, 3103.0175653202345}, 1e-11);
}

TEST(SevenParameters, InverseUndoesTheShiftFirst) {
    ExpectNear(Inverse(first, {1000, 2000, 3000}),
               {1029.7124093934544, 2068.6238987638403, 2890.4127436729759}, 1e-11);
}

TEST(SevenParameters, InvertGivesTheInverseSimilarity) {
    T7Params inverse;
    InvertParams(first, &inverse);
    ExpectNear(inverse,
               {-0.037879880513200806, -0.22012403121296461, -0.28577170062846079, -0.000999000999000999,
                -10.401135448418732, -20.895190896604448, -29.19608831992905});
}

TEST(SevenParameters, CombineIsSecondAfterFirst) {
    T7Params combined;
    Combine7Params(first, second, &combined);
    ExpectNear(combined, {-0.0079894799174017346, 0.39243110504786074, 1.4837477368875126, -0.001002,
                          1.894648467091059, 2.182072384945351, 165.17861539660894});
}

TEST(SevenParameters, LinearisedCombinationAddsAnglesAndScalesAndTurnsTheFirstShift) {
    // By hand: w2 x d1 = (0.4*30 - 1.1*20, 1.1*10 + 0.25*30, -0.25*20 - 0.4*10) = (-10, 18.5, -9), so
    // d = 0.998 (20, 1.5, 39) + (-7, 11, 130).
    T7Params combined;
    Combine7ParamsLinearized(first, second, &combined);
    ExpectNear(combined, {-0.15, 0.6, 1.4, -0.001, 12.96, 12.497, 168.922});
}

TEST(SevenParameters, OutputsMayBeTheInputs) {
    T7Params combined;
    Combine7Params(first, second, &combined);
    T7Params a = first;
    T7Params b = second;
    Combine7Params(a, second, &a);
    Combine7Params(first, b, &b);
    ExpectNear(a, combined);
    ExpectNear(b, combined);
    Combine7ParamsLinearized(first, second, &combined);
    a = first;
    b = second;
    Combine7ParamsLinearized(a, second, &a);
    Combine7ParamsLinearized(first, b, &b);
    ExpectNear(a, combined);
    ExpectNear(b, combined);
    InvertParams(first, &combined);
    a = first;
    InvertParams(a, &a);
    ExpectNear(a, combined);
    T7ParamsTransform transform;
    ASSERT_TRUE(transform.Initialize(first));
    double x = 1000;
    double y = 2000;
    double z = 3000;
    transform.DirectTransform(x, y, z, &z, &x, &y);
    ExpectNear({z, x, y}, {930.46387077649679, 1953.2157939113903, 3103.0175653202345}, 1e-11);
}

TEST(SevenParameters, DefaultTransformIsTheIdentity) {
    T7ParamsTransform const transform;
    T7Params stored = first;
    transform.GetParameters(&stored);
    ExpectNear(stored, T7Params());
    Point p = {1, -2, 3e6};
    transform.DirectTransform(p.x, p.y, p.z, &p.x, &p.y, &p.z);
    ExpectNear(p, {1, -2, 3e6}, 0);
}

TEST(SevenParameters, GivesBackTheStoredNumbersUnchanged) {
    // Angles beyond a full turn are not reduced.
    T7Params const parameters = {100, -0.0, 1e-300, 1e9, -0.1, 1e300, 7};
    T7ParamsTransform transform;
    ASSERT_TRUE(transform.Initialize(parameters));
    T7Params stored;
    transform.GetParameters(&stored);
    EXPECT_EQ(stored.wx, 100);
    EXPECT_TRUE(std::signbit(stored.wy));
    EXPECT_EQ(stored.wz, 1e-300);
    EXPECT_EQ(stored.m, 1e9);
    EXPECT_EQ(stored.dX, -0.1);
    EXPECT_EQ(stored.dY, 1e300);
    EXPECT_EQ(stored.dZ, 7);
}

TEST(SevenParameters, InitializeRefusesWhatHasNoInverseAndKeepsWhatItHad) {
    T7ParamsTransform transform;
    ASSERT_TRUE(transform.Initialize(first));
    T7Params flat = second;
    flat.m = -1;
    EXPECT_FALSE(transform.Initialize(flat));
    double T7Params::*const members[] = {&T7Params::wx, &T7Params::wy, &T7Params::wz, &T7Params::m,
                                         &T7Params::dX, &T7Params::dY, &T7Params::dZ};
    for (auto const member : members) {
        for (double const bad : {std::nan(""), infinity, -infinity}) {
            T7Params parameters = second;
            parameters.*member = bad;
            EXPECT_FALSE(transform.Initialize(parameters));
        }
    }
    T7Params stored;
    transform.GetParameters(&stored);
    ExpectNear(stored, first);
    Point p = {1000, 2000, 3000};
    transform.DirectTransform(p.x, p.y, p.z, &p.x, &p.y, &p.z);
    ExpectNear(p, {930.46387077649679, 1953.2157939113903, 3103.0175653202345}, 1e-11);
}

TEST(SevenParameters, CopiesOfATransformAreIndependent) {
    T7ParamsTransform source;
    ASSERT_TRUE(source.Initialize(first));
    T7ParamsTransform const copy(source);
    ASSERT_TRUE(source.Initialize(second));
    T7Params stored;
    copy.GetParameters(&stored);
    ExpectNear(stored, first);
}

TEST(RzyxGetAlphaBetaGamma, TakesTheProductOfTheThreeRotationsApart) {
    double alpha = 0;
    double beta = 0;
    double gamma = 0;
    RzyxGetAlphaBetaGamma(Rzyx(0.1, -0.2, 2.5), &alpha, &beta, &gamma);
    EXPECT_NEAR(alpha, 0.1, 1e-15);
    EXPECT_NEAR(beta, -0.2, 1e-15);
    EXPECT_NEAR(gamma, 2.5, 1e-15);
}

TEST(RzyxGetAlphaBetaGamma, IsExactWhereTheMiddleAngleIsARightAngle) {
    for (double const beta : {pi / 2, -pi / 2}) {
        for (double const other : {0.0, 0.7, -2.9, pi}) {
            EXPECT_LT(RecompositionError(Rzyx(other, beta, 0.4)), 1e-15) << beta << " " << other;
        }
    }
    // A frame on the equator with its axes up, east and north: the cosine of the middle angle is exactly 0.
    for (double const sign : {1.0, -1.0}) {
        TMatrix frame(3, 3);
        frame.SetElement(0, 2, sign);
        frame.SetElement(1, 1, 1.0);
        frame.SetElement(2, 0, -sign);
        EXPECT_LT(RecompositionError(frame), 1e-15);
    }
}

TEST(RzyxGetAlphaBetaGamma, RebuildsTwoThousandFrames) {
    Draw draw;
    for (int round = 0; round < 2000; ++round) {
        // Every fourth frame lies on the equator, on the first meridian or at its antipode.
        double const latitude = round % 4 == 0 ? 0.0 : draw(-pi / 2, pi / 2);
        double const longitude = round % 8 == 0 ? (round % 16 ? pi : 0.0) : draw(-pi, pi);
        TMatrix const frame =
            Rotation(2, longitude) * Rotation(1, pi / 2 - latitude) * Rotation(2, draw(-pi, pi));
        EXPECT_LT(RecompositionError(frame), 2e-15) << round;
    }
}

TEST(SevenParameters, IdentitiesHoldForTwoThousandRandomSets) {
    Draw draw;
    for (int round = 0; round < 2000; ++round) {
        T7Params const a = draw.Parameters();
        T7Params const b = draw.Parameters();
        Point const p = draw.ThePoint();
        ExpectNear(Inverse(a, Direct(a, p)), p, 2e-8);
        T7Params combined;
        Combine7Params(a, b, &combined);
        ExpectNear(Direct(combined, p), Direct(b, Direct(a, p)), 5e-8);
        T7Params inverse;
        InvertParams(a, &inverse);
        ExpectNear(Direct(inverse, p), Inverse(a, p), 5e-8);
    }
}

TEST(SevenParameters, LinearisedCombinationAgreesWithTheExactOneForSmallNumbers) {
    // Angles of 1e-6: what is left out is of the size 1e-12 in the angles.
    T7Params const small = {1e-6, -2e-6, 3e-6, 1e-6, 20, -140, -80};
    T7Params const other = {-3e-6, 1e-6, 2e-6, -2e-6, 1, 2, 3};
    T7Params exact;
    T7Params linear;
    Combine7Params(small, other, &exact);
    Combine7ParamsLinearized(small, other, &linear);
    EXPECT_NEAR(linear.wx, exact.wx, 1e-11);
    EXPECT_NEAR(linear.wy, exact.wy, 1e-11);
    EXPECT_NEAR(linear.wz, exact.wz, 1e-11);
    EXPECT_NEAR(linear.m, exact.m, 1e-11);
    EXPECT_NEAR(linear.dX, exact.dX, 1e-8);
    EXPECT_NEAR(linear.dY, exact.dY, 1e-8);
    EXPECT_NEAR(linear.dZ, exact.dZ, 1e-8);
}

TEST(SevenParameters, BeginAsTheIdentity) {
    T7Params const identity;
    for (double const number :
         {identity.wx, identity.wy, identity.wz, identity.m, identity.dX, identity.dY, identity.dZ}) {
        EXPECT_EQ(number, 0);
    }
}
