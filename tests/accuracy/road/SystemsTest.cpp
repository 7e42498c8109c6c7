#include "tools/accuracy/road/Systems.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace {

using namespace VellariAccuracy;

TEST(AccuracySystems, GridIsTheMethodOnItsBase) {
    TSystem const grid = Grid("ed50", 1002, {{6201, "32"}, {6202, "N"}});
    TSystem const base = FromCatalog("ed50");
    // The equator at the central meridian of zone 32.
    TTriple const plane = Moved(base, {0, 9, 12.5}, grid);
    EXPECT_NEAR(plane[0], 500000, 1e-6);
    EXPECT_NEAR(plane[1], 0, 1e-6);
    EXPECT_NEAR(plane[2], 12.5, 1e-6);
}

TEST(AccuracySystems, LocalOnesHaveUnitsAndSphere) {
    TSystem const plane = Local({false, 1});
    TTriple const feet = Moved(plane, {3.048, 6.096, 0.3048}, Local({true, 0.3048}));
    EXPECT_NEAR(feet[0], 10, 1e-12);
    EXPECT_NEAR(feet[1], 20, 1e-12);
    EXPECT_NEAR(feet[2], 1, 1e-12);
    // 1000 m from the centre the sphere of 5000 km lies 1e6 / 2 / 5e6 = 0.1 m below.
    EXPECT_NEAR(Moved(plane, {1100, 200, 7}, Local({false, 1, 5e6, 100, 200}))[2], 7.1, 1e-12);
}

TEST(AccuracySystems, FailedWaysAreNoNumbers) {
    for (double const number : Moved(FromCatalog("wgs-84"), {1, 2, 3}, Local({false, 1}))) {
        EXPECT_TRUE(std::isnan(number));
    }
}

TEST(AccuracySystems, DescriptionsThatAreRefusedAreTold) {
    EXPECT_THROW(FromCatalog("nowhere"), std::runtime_error);
    try {
        Grid("ed50", 1002, {{6201, "32"}});
        FAIL() << "a zone without a hemisphere";
    } catch (std::runtime_error const& failure) {
        EXPECT_TRUE(std::string(failure.what())
                        .starts_with("the library refuses this description:\n(0,0)method 1002\n"))
            << failure.what();
    }
}

TEST(AccuracySystems, DistancesAreThoseOfASphereAndOfHeights) {
    // A thousandth of a degree of the parallel of 60 degrees, half of that on the equator.
    TApart const apart = ApartBy({60, 10, 5}, {60, 10.001, 2}, 6378137);
    EXPECT_NEAR(apart.Ground, 6378137 * 0.001 * 3.141592653589793 / 180 / 2, 1e-6);
    EXPECT_EQ(apart.Height, 3);
    EXPECT_NEAR(ApartBy({0, 180, 0}, {0, -180, 0}, 6378137).Ground, 0, 1e-8);
}

} // namespace
