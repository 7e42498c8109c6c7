#include "shell/refsystems/public/CoordinateOperation.h"

#include "frame/imported/BaseGrid.h"
#include "shell/datum/BursaWolfDatumShift.h"
#include "shell/refsystems/GeodeticReferenceSystem.h"
#include "tests/support/Descriptions.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <thread>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

TGeodeticText InFeet(TGeodeticText text) {
    text.heightUnit = Foot();
    return text;
}

TEST(TransformCoords, ShiftsPulkovo1942ToWgs84) {
    // cs2cs +proj=longlat +ellps=krass +towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +to +proj=longlat
    // +datum=WGS84:
    // 37.618125891889 E, 55.750042613104 N; the height by cct with the same steps is 154.542209 m.
    auto const source = Create(Pulkovo1942());
    auto const target = Create(WithZeroShift());
    double latitude = 0;
    double longitude = 0;
    double height = 0;

    ASSERT_TRUE(
        TransformCoords(source.get(), 55.75, 37.62, 150, target.get(), &latitude, &longitude, &height));

    EXPECT_NEAR(latitude, 55.750042613104, 1e-11);
    EXPECT_NEAR(longitude, 37.618125891889, 1e-11);
    EXPECT_NEAR(height, 154.542209, 1e-5);
}

TEST(TransformCoords, ChangesUnitsOnTheWay) {
    TGeodeticText text = WithZeroShift();
    text.angularUnit = Grad();
    auto const source = Create(WithZeroShift());
    auto const target = Create(InFeet(text));
    double latitude = 0;
    double longitude = 0;
    double height = 0;

    ASSERT_TRUE(TransformCoords(source.get(), 45, -90, 304.8, target.get(), &latitude, &longitude, &height));

    EXPECT_NEAR(latitude, 50, 1e-11);
    EXPECT_NEAR(longitude, -100, 1e-11);
    EXPECT_NEAR(height, 1000, 1e-5);
}

TEST(TransformCoords, TakesPrimeMeridiansIntoAccount) {
    TGeodeticText paris = WithZeroShift();
    paris.meridian = "2.33722917";
    auto const source = Create(WithZeroShift());
    auto const target = Create(paris);
    double latitude = 0;
    double longitude = 0;
    double height = 0;

    ASSERT_TRUE(
        TransformCoords(source.get(), 48, 2.33722917, 0, target.get(), &latitude, &longitude, &height));

    EXPECT_NEAR(longitude, 0, 1e-12);
    EXPECT_NEAR(latitude, 48, 1e-11);
}

TEST(TransformCoords, EqualSystemsRunTheWholeChain) {
    auto const system = Create(WithZeroShift());
    double x = 0;
    double y = 0;
    double z = 0;

    ASSERT_TRUE(TransformCoords(system.get(), 55, 37, 200, system.get(), &x, &y, &z));
    // By way of Cartesian coordinates the height comes back to rounding only: 1 ulp of 6.4e6 m is 1e-9 m.
    EXPECT_NEAR(z, 200, 1e-8);
    EXPECT_NEAR(x, 55, 1e-12);
    EXPECT_NEAR(y, 37, 1e-12);
}

TEST(TransformCoords, FailsWithUntouchedOutputs) {
    auto const system = Create(WithZeroShift());
    double x = 1;
    double y = 2;
    double z = 3;

    EXPECT_FALSE(TransformCoords(nullptr, 0, 0, 0, system.get(), &x, &y, &z));
    EXPECT_FALSE(TransformCoords(system.get(), 0, 0, 0, nullptr, &x, &y, &z));
    delete system->CoreRefSystem;
    system->CoreRefSystem = nullptr;
    EXPECT_FALSE(TransformCoords(system.get(), 0, 0, 0, system.get(), &x, &y, &z));
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, 2);
    EXPECT_EQ(z, 3);
}

TEST(TransformCoords, AMissingHeightUnitFailsAtTheFirstUse) {
    TStringTree tree;
    FillGeodetic(&tree, WithZeroShift());
    tree.FindSubtree(1201, 0)->DeleteSubtree(1104, 0);
    auto const source = Create(&tree);
    auto const target = Create(WithZeroShift());
    double x = 0;

    ASSERT_NE(source, nullptr);
    EXPECT_FALSE(TransformCoords(source.get(), 1, 2, 3, target.get(), &x, &x, &x));
}

TEST(TransformCoords, OutputsMayBeTheInputs) {
    auto const source = Create(Pulkovo1942());
    auto const target = Create(WithZeroShift());
    double latitude = 55.75;
    double longitude = 37.62;
    double height = 150;

    ASSERT_TRUE(TransformCoords(source.get(), latitude, longitude, height, target.get(), &latitude,
                                &longitude, &height));

    EXPECT_NEAR(latitude, 55.750042613104, 1e-11);
    EXPECT_NEAR(longitude, 37.618125891889, 1e-11);
}

TEST(TransformCoords, NumbersThatAreNotFiniteEndAndGiveNumbersThatAreNotFinite) {
    auto const source = Create(Pulkovo1942());
    auto const target = Create(WithZeroShift());
    double const bad[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()};
    for (double const number : bad) {
        double x = 0;
        double y = 0;
        double z = 0;
        if (TransformCoords(source.get(), number, 37, 150, target.get(), &x, &y, &z)) {
            EXPECT_FALSE(std::isfinite(x) && std::isfinite(y) && std::isfinite(z));
        }
    }
}

TEST(TransformCoords, OnePairOfSystemsServesManyThreads) {
    auto const source = Create(Pulkovo1942());
    auto const target = Create(WithZeroShift());
    double expected[3] = {};
    ASSERT_TRUE(TransformCoords(source.get(), 55.75, 37.62, 150, target.get(), &expected[0], &expected[1],
                                &expected[2]));
    std::vector<std::thread> threads;
    std::vector<int> wrong(4, 0);

    for (int& count : wrong) {
        threads.emplace_back([&source, &target, &expected, &count] {
            for (int pass = 0; pass < 5000; ++pass) {
                double x = 0;
                double y = 0;
                double z = 0;
                bool const done = TransformCoords(source.get(), 55.75, 37.62, 150, target.get(), &x, &y, &z);
                count += done && x == expected[0] && y == expected[1] && z == expected[2] ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }

    EXPECT_EQ(wrong, std::vector<int>(4, 0));
}

TEST(TransformAxes, GivesTheDerivativesOfTheWorldCoordinates) {
    auto const system = Create(WithZeroShift());
    double axes[9] = {};

    ASSERT_TRUE(TransformAxes(system.get(), 0, 0, 0, axes, true));

    // At (0, 0) by longitude (core X): Y grows by a per radian, a sin(1e-5)/1e-5; by latitude: Z by the
    // radius of curvature of the meridian a (1 - e2), likewise; by height: X by 1.
    EXPECT_NEAR(axes[0], 0, 1e-4);
    EXPECT_NEAR(axes[1], 6378136.99989, 1e-4);
    EXPECT_NEAR(axes[2], 0, 1e-4);
    EXPECT_NEAR(axes[5], 6335439.32719, 1e-4);
    EXPECT_NEAR(axes[6], 1, 1e-9);
}

TEST(TransformAxes, FailsWithoutASystem) {
    double axes[9] = {};
    EXPECT_FALSE(TransformAxes(nullptr, 0, 0, 0, axes, true));
}

TEST(CompareDatums, TellsUnknownEqualAndDifferent) {
    auto const none = Create(TGeodeticText());
    auto const wgs84 = Create(WithZeroShift());
    auto const pulkovo = Create(Pulkovo1942());
    auto const again = Create(Pulkovo1942());

    EXPECT_EQ(CompareDatums(none.get(), wgs84.get()), dcUnknown);
    EXPECT_EQ(CompareDatums(wgs84.get(), none.get()), dcUnknown);
    EXPECT_EQ(CompareDatums(pulkovo.get(), again.get()), dcEqual);
    EXPECT_EQ(CompareDatums(pulkovo.get(), wgs84.get()), dcDifferent);
}

TEST(CompareDatums, NeedsTwoSystems) {
    auto const system = Create(WithZeroShift());
    std::string const message = "CompareDatums(const TShellReferenceSystem*, const TShellReferenceSystem*)";
    EXPECT_EQ(ThrownText([&] { CompareDatums(nullptr, system.get()); }), message);
    EXPECT_EQ(ThrownText([&] { CompareDatums(system.get(), nullptr); }), message);
    EXPECT_THROW(CompareDatums(nullptr, nullptr), std::logic_error);
}

TEST(PreservesHeights, EqualUnitsAndNoGeoidsAreEnoughWhateverTheEllipsoids) {
    auto const first = Create(Pulkovo1942());
    auto const second = Create(WithZeroShift());

    EXPECT_TRUE(first->PreservesHeights(*second));
}

TEST(PreservesHeights, DifferentHeightUnitsDoNot) {
    auto const first = Create(WithZeroShift());
    auto const second = Create(InFeet(WithZeroShift()));

    EXPECT_FALSE(first->PreservesHeights(*second));
}

TEST(PreservesHeights, AHeightUnitThatIsNotANumberDoesNot) {
    auto const first = Create(WithZeroShift());
    auto const second = Create(WithZeroShift());
    double const nan = std::numeric_limits<double>::quiet_NaN();
    dynamic_cast<TShellGeodeticReferenceSystem&>(*first).Vertical->HeightUnit->CoefToBase = nan;
    dynamic_cast<TShellGeodeticReferenceSystem&>(*second).Vertical->HeightUnit->CoefToBase = nan;

    EXPECT_FALSE(first->PreservesHeights(*second));
}

TEST(PreservesHeights, AGeoidOnOneSideDoesNot) {
    struct : TBaseGrid {
        bool GetZFastZ(double, double, double& z, unsigned int) override {
            z = 1;
            return true;
        }
    } grid;
    auto const first = Create(WithZeroShift());
    auto const second = Create(WithZeroShift());
    auto const gridSystem = Create(WithZeroShift());
    ASSERT_TRUE(first->SetGeoid("geoid", &grid, gridSystem.get()));

    EXPECT_FALSE(first->PreservesHeights(*second));
    EXPECT_FALSE(second->PreservesHeights(*first));
    ASSERT_TRUE(second->SetGeoid("geoid", &grid, gridSystem.get()));
    EXPECT_TRUE(first->PreservesHeights(*second));
}

TEST(NonLinearDatum, ReachesShellDescriptionAndCore) {
    TGeodeticText text = Pulkovo1942();
    text.shiftType = 2;
    auto const system = Create(text);
    TStringTree const* const settings = system->SavedTree->FindSubtree(1107, 0)->FindSubtree(1102, 0);

    ASSERT_TRUE(system->SetNonLinearDatum(true));
    std::string value;
    EXPECT_TRUE(settings->GetString(5469, 0, &value));
    EXPECT_EQ(value, "1");
    EXPECT_EQ(settings->FindField(5469, 0)->header, "Non-linear");
    EXPECT_TRUE(system->CoreRefSystem->NonlinearDatum());
    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());
    EXPECT_TRUE(copy->CoreRefSystem->NonlinearDatum());

    ASSERT_TRUE(system->SetNonLinearDatum(false));
    EXPECT_EQ(settings->FindField(5469, 0), nullptr);
    EXPECT_FALSE(system->CoreRefSystem->NonlinearDatum());
}

TEST(NonLinearDatum, NeedsADatumWithRotations) {
    auto const none = Create(TGeodeticText());
    auto const translations = Create(WithZeroShift());

    EXPECT_FALSE(none->SetNonLinearDatum(true));
    EXPECT_FALSE(translations->SetNonLinearDatum(true));
    EXPECT_TRUE(translations->CoreRefSystem->ContainsDatum());
}

TEST(NonLinearDatum, TheShellsFlagStaysWhenALaterStepFails) {
    auto const system = Create(Pulkovo1942());
    system->SavedTree->DeleteSubtree(1107, 0);

    EXPECT_FALSE(system->SetNonLinearDatum(true));
    EXPECT_TRUE(dynamic_cast<TShellBursaWolfInvRotDatumShift&>(*system->DatumShift).NonLinear);
    EXPECT_TRUE(system->CoreRefSystem->NonlinearDatum());
}

TEST(NonLinearDatum, KindsWithoutADatumOfTheirOwnHaveTheirOwnAnswers) {
    auto const system = Create(Pulkovo1942());
    system->Type = rstLocalCartesian;
    EXPECT_FALSE(system->SetNonLinearDatum(true));
    system->Type = static_cast<TReferenceSystemType>(9);
    EXPECT_TRUE(system->SetNonLinearDatum(true));
    system->Type = rstMapProjected; // no primary system in this description
    EXPECT_FALSE(system->SetNonLinearDatum(true));
}

TEST(DatumShiftParams, ArePassedOnOrMissing) {
    double values[7] = {};
    auto const get = [&values](TShellReferenceSystem const& system) {
        return system.GetDatumShiftParams(&values[0], &values[1], &values[2], &values[3], &values[4],
                                          &values[5], &values[6]);
    };

    EXPECT_FALSE(get(*Create(TGeodeticText())));
    ASSERT_TRUE(get(*Create(Pulkovo1942())));
    EXPECT_DOUBLE_EQ(values[0], 23.57);
    // The form with coordinate frame rotations gives them as they stand, in seconds.
    EXPECT_NEAR(values[4], -0.35, 1e-12);
    EXPECT_NEAR(values[6], -0.22, 1e-12);
}

} // namespace
} // namespace KvRefSystem
