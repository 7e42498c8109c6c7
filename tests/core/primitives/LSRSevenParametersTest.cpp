#include "core/primitives/LSR.h"

#include "tests/core/primitives/LSRChecks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

namespace {

using namespace LSRChecks;
using LumCommonUtils::T7ParamsTransform;

T7Params ParamsOf(TLSR const& frame) {
    T7Params params;
    frame.Get7ParamsToGeocentric(&params);
    return params;
}

TTriple Direct(T7Params const& params, TTriple const& p) {
    T7ParamsTransform transform;
    EXPECT_TRUE(transform.Initialize(params));
    TTriple result{};
    transform.DirectTransform(p[0], p[1], p[2], &result[0], &result[1], &result[2]);
    return result;
}

TTriple Inverse(T7Params const& params, TTriple const& p) {
    T7ParamsTransform transform;
    EXPECT_TRUE(transform.Initialize(params));
    TTriple result{};
    transform.InverseTransform(p[0], p[1], p[2], &result[0], &result[1], &result[2]);
    return result;
}

/** Pairs of frames: drawn ones, each with itself and its antipode, and all pairs of corners. */
std::vector<std::pair<TLSR, TLSR>> Pairs() {
    std::vector<std::pair<TLSR, TLSR>> pairs;
    TDraw draw(20240);
    for (int i = 0; i < 4000; ++i) {
        TLSR const frame = draw.AnyFrame();
        pairs.emplace_back(frame, draw.AnyFrame());
    }
    for (int i = 0; i < 500; ++i) {
        double const latitude = draw.Number(-90, 90);
        double const longitude = draw.Number(-180, 180);
        double const azimuth = draw.Number(0, 360);
        TLSR const frame = Frame(latitude, longitude, 0, azimuth);
        pairs.emplace_back(frame, frame);
        pairs.emplace_back(frame, Frame(-latitude, longitude + 180, 0, azimuth));
        pairs.emplace_back(frame, Frame(0, 0, 0, 0));
        pairs.emplace_back(Frame(0, 0, 0, 0), frame);
    }
    std::vector<TLSR> const corners = CornerFrames();
    for (TLSR const& from : corners) {
        for (TLSR const& to : corners) {
            pairs.emplace_back(from, to);
        }
    }
    return pairs;
}

TEST(LSR, SevenParametersEqualValuesFromElsewhere) {
    // The angles taken out of the rotation with mpmath.
    T7Params const params = ParamsOf(Sample());
    EXPECT_NEAR(params.wx, 0.398813574933, 1e-12);
    EXPECT_NEAR(params.wy, -0.475832370620, 1e-12);
    EXPECT_NEAR(params.wz, -1.790909608852, 1e-12);
    EXPECT_EQ(params.m, 0);
    TLSR const frame = Sample();
    EXPECT_EQ(params.dX, frame.Origin[0]);
    EXPECT_EQ(params.dY, frame.Origin[1]);
    EXPECT_EQ(params.dZ, frame.Origin[2]);
}

TEST(LSR, SevenParametersSurviveTheGimbalLockAtTheOriginOfAngles) {
    TLSR const frame = Frame(0, 0, 0, 0);
    EXPECT_NEAR(std::fabs(ParamsOf(frame).wy), HalfPi, 1e-15);
    EXPECT_LT(Distance(Direct(ParamsOf(frame), {1, 2, 3}), ToGeocentric(frame, {1, 2, 3})), Rounding);
}

TEST(LSR, SevenParametersLeadToGeocentricAndBack) {
    TDraw draw(23);
    for (auto const& [frame, other] : Pairs()) {
        TTriple const point = draw.Point();
        T7Params const params = ParamsOf(frame);
        ASSERT_EQ(params.m, 0);
        TTriple const geocentric = ToGeocentric(frame, point);
        ASSERT_LT(Distance(Direct(params, point), geocentric), Rounding);
        ASSERT_LT(Distance(Inverse(params, geocentric), point), Rounding);
    }
}

TEST(LSR, SevenParametersLeadFromFrameToFrame) {
    TDraw draw(29);
    for (auto const& [from, to] : Pairs()) {
        TTriple const point = draw.Point();
        T7Params params;
        LSR2LSR7Params(from, to, &params);
        TTriple const moved = Between(from, point, to);
        ASSERT_NEAR(params.m, 0, 1e-15);
        ASSERT_LT(Distance(Direct(params, point), moved), 2 * Rounding);
        ASSERT_LT(Distance(Inverse(params, moved), point), 2 * Rounding);
        // The other way is the inverse.
        T7Params back;
        LSR2LSR7Params(to, from, &back);
        ASSERT_LT(Distance(Direct(back, moved), point), 2 * Rounding);
    }
}

TEST(LSR, SevenParametersOfThreeFramesCombine) {
    TDraw draw(31);
    TLSR const middle = Frame(-33, 151, 40, 200);
    for (auto const& [from, to] : Pairs()) {
        TTriple const point = draw.Point();
        T7Params first;
        T7Params second;
        T7Params whole;
        LSR2LSR7Params(from, middle, &first);
        LSR2LSR7Params(middle, to, &second);
        LumCommonUtils::Combine7Params(first, second, &whole);
        ASSERT_LT(Distance(Direct(whole, point), Between(from, point, to)), 4 * Rounding);
    }
}

TEST(LSR, SevenParametersOfAFrameToItselfAreTheIdentity) {
    T7Params params;
    LSR2LSR7Params(Sample(), Sample(), &params);
    EXPECT_NEAR(params.wx, 0, 1e-15);
    EXPECT_NEAR(params.wy, 0, 1e-15);
    EXPECT_NEAR(params.wz, 0, 1e-15);
    EXPECT_NEAR(Distance({params.dX, params.dY, params.dZ}, {0, 0, 0}), 0, Rounding);
}

TEST(LSR, AFrameToItselfReturnsTheInput) {
    TDraw draw(37);
    for (int i = 0; i < 1000; ++i) {
        TLSR const frame = draw.AnyFrame();
        TTriple const point = draw.Point();
        ASSERT_LT(Distance(Between(frame, point, frame), point), Rounding);
    }
}

TEST(LSR, AntipodesLookAtEachOtherThroughTheEarth) {
    // By hand: from the equator the other side's origin lies two radii down, its east is our west.
    TLSR const here = Frame(0, 0, 0, 0);
    TLSR const there = Frame(0, 180, 0, 0);
    ExpectNear(Between(there, {0, 0, 0}, here), 0, 0, -2 * WgsMajor, Rounding);
    ExpectNear(Between(there, {10, 20, 30}, here), -10, 20, -2 * WgsMajor - 30, Rounding);
}

TEST(LSR, EllipsoidsHaveNoInfluenceBetweenFrames) {
    TLSR const from = Sample();
    TLSR to = Frame(54, 38, 0, 0);
    TTriple const moved = Between(from, {1, 2, 3}, to);
    T7Params params;
    LSR2LSR7Params(from, to, &params);
    to.EllipsoidRef = TLSR(7e6, 1e6, 0, 0, 0, 0).EllipsoidRef;
    EXPECT_EQ(Between(from, {1, 2, 3}, to), moved);
    T7Params changed;
    LSR2LSR7Params(from, to, &changed);
    EXPECT_EQ(changed.wz, params.wz);
    EXPECT_EQ(changed.dX, params.dX);
}

} // namespace
