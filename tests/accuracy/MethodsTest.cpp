#include "tools/accuracy/Methods.h"
#include "tools/accuracy/Domain.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace VellariAccuracy;

TEST(AccuracyMethods, WrongNumberOfParametersIsRefused) {
    TMethod const& hatt = MethodOf(KvRefSystem::mptHatt);
    std::vector<double> const one = {38};
    EXPECT_THROW(ParametersText(hatt, one), std::logic_error);
    EXPECT_THROW(CreateProjection(hatt, {6378137, 6356752}, one), std::logic_error);
    EXPECT_THROW(MethodOf(KvRefSystem::mptUTM), std::logic_error);
}

TEST(AccuracyDomain, GridHasItsEdges) {
    std::vector<TPair> const places = PlacesOf({-10, 20, 100, 30});
    ASSERT_EQ(places.size(), 61U * 62U);
    EXPECT_NEAR(places.front().X / Degree, 70, 1e-12);
    EXPECT_NEAR(places.front().Y / Degree, -10, 1e-12);
    EXPECT_NEAR(places.back().X / Degree, 130, 1e-12);
    EXPECT_NEAR(places.back().Y / Degree, 20, 1e-12);
    EXPECT_EQ(PlacesOf({45, 45, 10, 0}).size(), 1U);
}

TEST(AccuracyDomain, DiscHasThePlacesThatAreNear) {
    for (TPair const& place : PlacesOf({45, 47, 25, 1.4, 100, 46})) {
        EXPECT_LE(GroundDistance(place, {25 * Degree, 46 * Degree}, 6371), 100);
    }
    EXPECT_GT(PlacesOf({45, 47, 25, 1.4, 100, 46}).size(), 1000U);
}

TEST(AccuracyDomain, GroundDistanceKeepsItsDigits) {
    // A metre of a meridian and of the parallel of 60 degrees, and half of the great circle.
    constexpr double Radius = 6378137;
    EXPECT_NEAR(GroundDistance({1, 0.5}, {1, 0.5 + 1 / Radius}, Radius), 1, 1e-9);
    EXPECT_NEAR(GroundDistance({-3, 60 * Degree}, {-3 + 2 / Radius, 60 * Degree}, Radius), 1, 1e-9);
    EXPECT_NEAR(GroundDistance({0, 0}, {180 * Degree, 0}, 1), 180 * Degree, 1e-9);
}

TEST(AccuracyDomain, IsToldInWords) {
    EXPECT_EQ(DomainText({-84, 84, 39, 3}), "84° S to 84° N, within 3° of 39° E");
    EXPECT_EQ(DomainText({0, 0, -96, 30}), "0°, within 30° of 96° W");
    EXPECT_EQ(DomainText({60, 89, -170, 0}), "60° N to 89° N, on 170° W");
    EXPECT_EQ(DomainText({45, 47, 25, 1.4, 100, 46}), "within 100 km of 46° N 25° E");
}

} // namespace
