#include "tests/catalog/Points.h"

#include "tests/catalog/Entries.h"

#include <gtest/gtest.h>

#include <cmath>

namespace VellariTest {

double Distance(TPoint const& first, TPoint const& second) {
    constexpr double radian = 180.0 / 3.141592653589793; // degrees
    double const metres = 6371000.0 / radian;
    double const north = (first[0] - second[0]) * metres;
    double const east = std::remainder(first[1] - second[1], 360.0) * metres * std::cos(first[0] / radian);
    return std::hypot(north, east, first[2] - second[2]);
}

TPoint Transform(KvRefSystem::TShellReferenceSystem const* source, TPoint const& point,
                 KvRefSystem::TShellReferenceSystem const* target) {
    TPoint result{};
    EXPECT_TRUE(source != nullptr && target != nullptr &&
                KvRefSystem::TransformCoords(source, point[0], point[1], point[2], target, &result[0],
                                             &result[1], &result[2]))
        << point[0] << ", " << point[1] << ", " << point[2];
    return result;
}

TPoint Transform(std::string const& source, TPoint const& point, std::string const& target) {
    SCOPED_TRACE(source + " to " + target);
    return Transform(BuildEntry(source).get(), point, BuildEntry(target).get());
}

} // namespace VellariTest
