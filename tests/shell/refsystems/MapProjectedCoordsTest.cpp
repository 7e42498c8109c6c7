#include "shell/refsystems/MapProjectedReferenceSystem.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

constexpr char const* NoHeightMessage = "TShellMapProjectedReferenceSystem::CoordsCoreToShell";
constexpr char const* ParseMessage = "bool TShellUnit::StringToValue(const string& str, double *value) const";

TShellCoords Texts(std::string const& first, std::string const& second, std::string const& third) {
    TShellCoords coords;
    coords.Coord[0] = first;
    coords.Coord[1] = second;
    coords.Coord[2] = third;
    return coords;
}

/** Where the first and the second coordinate of a shell point (10, 20) in metres go, by order and signs. */
struct TPlacement {
    int flip;
    int first;
    int second;
    double x;
    double y;
};

constexpr TPlacement Placements[] = {
    {0, 1, 1, 10, 20}, {0, -1, 1, -10, 20}, {0, 1, -1, 10, -20}, {0, -1, -1, -10, -20}, {0, 0, 1, 0, 20},
    {0, 1, 0, 10, 0},  {0, 2, 3, 20, 60},   {1, 1, 1, 20, 10},   {1, -1, 1, 20, -10},   {1, 1, -1, -20, 10},
    {1, 0, 1, 20, 0},  {1, 1, 0, 0, 10},    {1, 2, 3, 60, 20},
};

std::unique_ptr<TProjectedSystem> PlacedSystem(TPlacement const& row) {
    return Projected(Placed(UtmZone(31, 'N'), row.flip, row.first, row.second));
}

/** A system of feet on the plane, with heights in kilometres. */
TProjectedText InFeet() {
    TProjectedText text = UtmZone(31, 'N');
    text.linearUnit = Foot();
    text.base.heightUnit = {0, 1, "1000", "1", "kilometre", "km"};
    return text;
}

/** The units in which texts may be given. */
struct TUnits {
    TUnits() {
        TStringTree foot;
        FillUnit(&foot, Foot());
        plane = std::make_unique<TShellLinearUnit>(&foot);
        height = std::make_unique<TShellLinearUnit>(&foot);
        TStringTree degree;
        FillUnit(&degree, Degree());
        angle = std::make_unique<TShellAngularUnit>(&degree);
    }

    std::unique_ptr<TShellLinearUnit> plane;
    std::unique_ptr<TShellLinearUnit> height;
    std::unique_ptr<TShellAngularUnit> angle;
};

// Numbers

TEST(MapProjectedCoords, NumbersGoToTheCoreByOrderAndSigns) {
    for (TPlacement const& row : Placements) {
        double const shell[3] = {10, 20, 30};
        TCoords core;
        PlacedSystem(row)->CoordsShellToCore(shell, &core);
        EXPECT_EQ(core.X, row.x) << row.flip << row.first << row.second;
        EXPECT_EQ(core.Y, row.y) << row.flip << row.first << row.second;
        EXPECT_EQ(core.Z, 30);
    }
}

TEST(MapProjectedCoords, NumbersComeFromTheCoreByOrderAndSigns) {
    for (TPlacement const& row : Placements) {
        // The signs are factors both ways, never divisors.
        double const x = 7;
        double const y = 11;
        double shell[3] = {};
        PlacedSystem(row)->CoordsCoreToShell(TCoords{x, y, 30, false}, shell);
        EXPECT_EQ(shell[0], row.first * (row.flip ? y : x)) << row.flip << row.first << row.second;
        EXPECT_EQ(shell[1], row.second * (row.flip ? x : y)) << row.flip << row.first << row.second;
        EXPECT_EQ(shell[2], 30);
    }
}

TEST(MapProjectedCoords, ASignOfZeroGivesZero) {
    auto const system = Projected(Placed(UtmZone(31, 'N'), 0, 0, 0));
    double shell[3] = {5, 6, 7};

    system->CoordsCoreToShell(TCoords{500000, 4000000, 1, false}, shell);

    EXPECT_EQ(shell[0], 0.0);
    EXPECT_EQ(shell[1], 0.0);
    EXPECT_EQ(shell[2], 1);
}

TEST(MapProjectedCoords, PlaneAndHeightHaveUnitsOfTheirOwn) {
    auto const system = Projected(InFeet());
    double const shell[3] = {1000, -2000, 1.5};
    double back[3] = {};
    TCoords core;

    system->CoordsShellToCore(shell, &core);
    EXPECT_NEAR(core.X, 304.8, 1e-12);
    EXPECT_NEAR(core.Y, -609.6, 1e-12);
    EXPECT_EQ(core.Z, 1500);
    system->CoordsCoreToShell(core, back);
    EXPECT_NEAR(back[0], 1000, 1e-12);
    EXPECT_NEAR(back[1], -2000, 1e-12);
    EXPECT_EQ(back[2], 1.5);
}

TEST(MapProjectedCoords, NumbersAlwaysHaveAHeight) {
    auto const system = Projected(UtmZone(31, 'N'));
    double const shell[3] = {1, 2, 3};
    TCoords core;
    core.ZUndefined = true;

    system->CoordsShellToCore(shell, &core);

    EXPECT_FALSE(core.ZUndefined);
    EXPECT_EQ(core.Z, 3);
}

TEST(MapProjectedCoords, NothingIsNormalised) {
    auto const system = Projected(UtmZone(31, 'N'));
    double const shell[3] = {1e9, -1e9, 1e9};
    TCoords core;

    system->CoordsShellToCore(shell, &core);

    EXPECT_EQ(core.X, 1e9);
    EXPECT_EQ(core.Y, -1e9);
    EXPECT_EQ(core.Z, 1e9);
}

TEST(MapProjectedCoords, TheSignIsMultipliedFirst) {
    TProjectedText text = InFeet();
    text.firstSign = 3;
    text.secondSign = 3;
    auto const system = Projected(text);
    double const from = system->LinearUnit->CoefFromBase;
    int apart = 0;
    for (int step = 1; step <= 200; ++step) {
        double const value = step / 7.0;
        double shell[3] = {};
        system->CoordsCoreToShell(TCoords{value, value, 0, false}, shell);
        EXPECT_EQ(shell[0], 3 * value * from);
        EXPECT_EQ(shell[1], 3 * value * from);
        apart += 3 * value * from != 3 * (value * from) ? 1 : 0;
    }
    EXPECT_GT(apart, 0); // the orders can be told apart
}

TEST(MapProjectedCoords, APointWithoutHeightLeavesItsPlaneCoordinatesAndThrows) {
    auto const system = Projected(Placed(UtmZone(31, 'N'), 1, 1, -1));
    TCoords const core{500000, 4000000, 5, true};
    double shell[3] = {-1, -2, -3};

    EXPECT_EQ(ThrownText([&] { system->CoordsCoreToShell(core, shell); }), NoHeightMessage);
    EXPECT_EQ(shell[0], 4000000);
    EXPECT_EQ(shell[1], -500000);
}

TEST(MapProjectedCoords, NumbersThatAreNotFinitePassAsTheyAre) {
    auto const system = Projected(UtmZone(31, 'N'));
    double const infinity = std::numeric_limits<double>::infinity();
    double const shell[3] = {infinity, std::numeric_limits<double>::quiet_NaN(), -infinity};
    TCoords core;

    system->CoordsShellToCore(shell, &core);

    EXPECT_EQ(core.X, infinity);
    EXPECT_NE(core.Y, core.Y);
    EXPECT_EQ(core.Z, -infinity);
}

// Texts

TEST(MapProjectedCoords, TextsGoToTheCoreByOrderAndSigns) {
    for (TPlacement const& row : Placements) {
        TCoords core;
        core.ZUndefined = true;
        PlacedSystem(row)->CoordsShellToCore(Texts("10", "20", "30"), &core);
        EXPECT_EQ(core.X, row.x) << row.flip << row.first << row.second;
        EXPECT_EQ(core.Y, row.y) << row.flip << row.first << row.second;
        EXPECT_EQ(core.Z, 30);
        EXPECT_FALSE(core.ZUndefined);
    }
}

TEST(MapProjectedCoords, TextsAreInTheSystemsUnits) {
    TCoords core;

    Projected(InFeet())->CoordsShellToCore(Texts("1000", "-2000", "1.5"), &core);

    EXPECT_NEAR(core.X, 304.8, 1e-12);
    EXPECT_NEAR(core.Y, -609.6, 1e-12);
    EXPECT_EQ(core.Z, 1500);
}

TEST(MapProjectedCoords, AnEmptyHeightTextIsAnUndefinedHeight) {
    auto const system = Projected(UtmZone(31, 'N'));
    TCoords core;
    core.Z = 5;

    system->CoordsShellToCore(Texts("1", "2", ""), &core);

    EXPECT_TRUE(core.ZUndefined);
    EXPECT_EQ(core.Z, 5);
    EXPECT_EQ(core.X, 1);
    EXPECT_EQ(core.Y, 2);
}

TEST(MapProjectedCoords, ATextThatDoesNotParseThrowsTheUnitsMessage) {
    auto const system = Projected(UtmZone(31, 'N'));
    TCoords core;
    for (TShellCoords const& texts : {Texts("x", "2", "3"), Texts("1", "x", "3"), Texts("1", "2", "x")}) {
        EXPECT_EQ(ThrownText([&] { system->CoordsShellToCore(texts, &core); }), ParseMessage);
    }
}

TEST(MapProjectedCoords, TextsComeFromTheCoreWithAllDigits) {
    TProjectedText text = Placed(InFeet(), 1, -1, 1);
    text.linearUnit = {0, 1, "1000", "1", "kilometre", "km"};
    TShellCoords texts;

    Projected(text)->CoordsCoreToShell(TCoords{2500, 500, 1500, false}, &texts);
    EXPECT_EQ(texts.Coord[0], "-0.5");
    EXPECT_EQ(texts.Coord[1], "2.5");
    EXPECT_EQ(texts.Coord[2], "1.5");
    Projected(UtmZone(31, 'N'))->CoordsCoreToShell(TCoords{0.1, 2, 3, false}, &texts);
    EXPECT_EQ(texts.Coord[0], "0.1000000000000000055511151"); // 0.1 as a double
    EXPECT_EQ(texts.Coord[1], "2");
    EXPECT_EQ(texts.Coord[2], "3");
}

TEST(MapProjectedCoords, APointWithoutHeightHasAnEmptyThirdText) {
    auto const system = Projected(UtmZone(31, 'N'));
    TShellCoords texts = Texts("a", "b", "c");

    system->CoordsCoreToShell(TCoords{1, 2, 3, true}, &texts);

    EXPECT_EQ(texts.Coord[0], "1");
    EXPECT_EQ(texts.Coord[1], "2");
    EXPECT_EQ(texts.Coord[2], "");
}

// Input and output in chosen units

TEST(MapProjectedCoords, InputCoordsReadsShellNumbersWithoutOrderAndSigns) {
    auto const system = Projected(Placed(InFeet(), 1, -1, 0));
    double shell[3] = {};

    EXPECT_TRUE(system->InputCoords(Texts("1.5", "-2", "7"), nullptr, nullptr, shell));

    EXPECT_EQ(shell[0], 1.5);
    EXPECT_EQ(shell[1], -2);
    EXPECT_EQ(shell[2], 7);
}

TEST(MapProjectedCoords, InputCoordsConvertsFromGivenUnits) {
    auto const system = Projected(UtmZone(31, 'N'));
    TUnits const units;
    double shell[3] = {};

    EXPECT_TRUE(
        system->InputCoords(Texts("1000", "2000", "3000"), units.plane.get(), units.height.get(), shell));
    EXPECT_NEAR(shell[0], 304.8, 1e-12);
    EXPECT_NEAR(shell[1], 609.6, 1e-12);
    EXPECT_NEAR(shell[2], 914.4, 1e-12);
    EXPECT_TRUE(system->InputCoords(Texts("1000", "2000", "3000"), nullptr, units.height.get(), shell));
    EXPECT_EQ(shell[0], 1000);
    EXPECT_NEAR(shell[2], 914.4, 1e-12);
    EXPECT_TRUE(system->InputCoords(Texts("1000", "2000", "3000"), units.plane.get(), nullptr, shell));
    EXPECT_NEAR(shell[1], 609.6, 1e-12);
    EXPECT_EQ(shell[2], 3000);
}

TEST(MapProjectedCoords, InputCoordsTellsOfATextThatDoesNotParse) {
    auto const system = Projected(UtmZone(31, 'N'));
    TUnits const units;
    double shell[3] = {};

    for (TShellCoords const& texts : {Texts("x", "2", "3"), Texts("1", "x", "3"), Texts("1", "2", "x")}) {
        EXPECT_FALSE(system->InputCoords(texts, nullptr, nullptr, shell));
        EXPECT_FALSE(system->InputCoords(texts, units.plane.get(), units.height.get(), shell));
    }
}

TEST(MapProjectedCoords, InputCoordsKeepsTheNumberOfAnEmptyText) {
    auto const system = Projected(UtmZone(31, 'N'));
    double shell[3] = {1, 2, 42};

    EXPECT_TRUE(system->InputCoords(Texts("10", "20", ""), nullptr, nullptr, shell));

    EXPECT_EQ(shell[0], 10);
    EXPECT_EQ(shell[2], 42);
}

TEST(MapProjectedCoords, AngularUnitsDoNotFitThePlane) {
    auto const system = Projected(UtmZone(31, 'N'));
    TUnits const units;
    double shell[3] = {};
    TShellCoords texts;
    std::string const message = "void TShellUnit::Convert(const TShellUnit& dst_unit, double *value) const";

    EXPECT_EQ(
        ThrownText([&] { system->InputCoords(Texts("1", "2", "3"), units.angle.get(), nullptr, shell); }),
        message);
    EXPECT_EQ(ThrownText([&] { system->OutputCoords(shell, &texts, units.angle.get(), 1, nullptr, 1); }),
              message);
}

TEST(MapProjectedCoords, OutputCoordsPrintsShellNumbersWithoutOrderAndSigns) {
    auto const system = Projected(Placed(InFeet(), 1, -1, 0));
    double const shell[3] = {1234.5678, -2, 7.125};
    TShellCoords texts;

    system->OutputCoords(shell, &texts, nullptr, 2, nullptr, 1);

    EXPECT_EQ(texts.Coord[0], "1234.57");
    EXPECT_EQ(texts.Coord[1], "-2.00");
    EXPECT_EQ(texts.Coord[2], "7.1");
}

TEST(MapProjectedCoords, OutputCoordsConvertsToGivenUnits) {
    auto const system = Projected(UtmZone(31, 'N'));
    TUnits const units;
    double const shell[3] = {304.8, 609.6, 914.4};
    TShellCoords texts;

    system->OutputCoords(shell, &texts, units.plane.get(), 3, units.height.get(), 1);
    EXPECT_EQ(texts.Coord[0], "1000.000");
    EXPECT_EQ(texts.Coord[1], "2000.000");
    EXPECT_EQ(texts.Coord[2], "3000.0");
    system->OutputCoords(shell, &texts, nullptr, 1, units.height.get(), 0);
    EXPECT_EQ(texts.Coord[0], "304.8");
    EXPECT_EQ(texts.Coord[2], "3000");
}

TEST(MapProjectedCoords, OutputCoordsDefHasTheUnitsPrecisions) {
    auto const system = Projected(InFeet());
    double const shell[3] = {1, 2, 3};
    TShellCoords texts;

    system->OutputCoordsDef(shell, &texts);

    // Millimetres: ceil(log10(0.3048) + 3) = 3 and ceil(log10(1000) + 3) = 6 decimals.
    EXPECT_EQ(texts.Coord[0], "1.000");
    EXPECT_EQ(texts.Coord[1], "2.000");
    EXPECT_EQ(texts.Coord[2], "3.000000");
}

} // namespace
} // namespace KvRefSystem
