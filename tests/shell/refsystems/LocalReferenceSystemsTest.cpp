#include "shell/refsystems/LocalReferenceSystems.h"

#include "core/refsystems/LocalCartesianReferenceSystem.h"
#include "core/refsystems/LocalCurvedReferenceSystem.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "tests/support/CartesianSystems.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <string>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

using TCartesian = TShellLocalCartesianReferenceSystem;
using TCurved = TShellLocalCurvedReferenceSystem;
using TPoint = std::array<double, 3>;

constexpr char const* CartesianMessage =
    "TShellLocalCartesianReferenceSystem(TStringTree *tree,TKvProgressHandler *prh)";
constexpr char const* CurvedMessage =
    "TShellLocalCurvedReferenceSystem(TStringTree *tree,TKvProgressHandler *prh)";
constexpr char const* BaseMessage = "TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)";

TLocalText Swapped(TLocalText text, int swap) {
    text.swap = swap;
    return text;
}

TLocalText In(TUnitText const& unit, TLocalText text) {
    text.linearUnit = unit;
    return text;
}

TLocalText Around(std::string const& x, std::string const& y, TLocalText text) {
    text.hasCentre = true;
    text.centre[0] = x;
    text.centre[1] = y;
    return text;
}

TUnitText Kilometre() {
    return {0, 1, "1000", "1", "kilometre", "km"};
}

TPoint Transformed(TShellReferenceSystem const& source, TPoint const& point,
                   TShellReferenceSystem const& target) {
    TPoint result = {};
    EXPECT_TRUE(
        TransformCoords(&source, point[0], point[1], point[2], &target, &result[0], &result[1], &result[2]));
    return result;
}

void ExpectNear(TPoint const& actual, TPoint const& expected, double tolerance) {
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_NEAR(actual[axis], expected[axis], tolerance) << axis;
    }
}

std::string CartesianThrows(TTreeChange const& change) {
    return ThrownText([&] { LiveCartesian(TLocalText(), change); });
}

std::string CurvedThrows(TTreeChange const& change) {
    return ThrownText([&] { LiveCurved(Around("1", "2", Curved("1000")), change); });
}

// Construction of the Cartesian kind

TEST(LocalCartesianReferenceSystem, IsReadFromItsDescription) {
    auto const system = LiveCartesian(In(Foot(), TLocalText()));

    EXPECT_EQ(system->Type, rstLocalCartesian);
    EXPECT_EQ(system->Name, "Test plan");
    EXPECT_EQ(system->LinearUnit->Name, "foot");
    EXPECT_FALSE(system->SwapAxes);
    EXPECT_EQ(system->GeoTIFFType, "");
    auto const* const core = dynamic_cast<TLocalCartesianReferenceSystem const*>(system->CoreRefSystem);
    ASSERT_NE(core, nullptr);
    EXPECT_EQ(core->Orientation, rscoRight);
}

TEST(LocalCartesianReferenceSystem, ASwapThatIsNotZeroSwapsTheAxes) {
    EXPECT_FALSE(LiveCartesian(Swapped(TLocalText(), 0))->IsLeft());
    for (int const swap : {1, 2, -1}) {
        auto const system = LiveCartesian(Swapped(TLocalText(), swap));
        EXPECT_TRUE(system->SwapAxes) << swap;
        EXPECT_TRUE(system->IsLeft()) << swap;
        EXPECT_EQ(dynamic_cast<TLocalCartesianReferenceSystem&>(*system->CoreRefSystem).Orientation, rscoLeft)
            << swap;
    }
}

TEST(LocalCartesianReferenceSystem, NeedsUnitAndOrder) {
    EXPECT_EQ(CartesianThrows([](TStringTree* tree) { tree->DeleteSubtree(1104, 0); }), CartesianMessage);
    EXPECT_EQ(CartesianThrows([](TStringTree* tree) { tree->DeleteField(1400, 0); }), CartesianMessage);
    EXPECT_EQ(CartesianThrows([](TStringTree* tree) { SetField(tree, 1400, "no"); }), CartesianMessage);
}

TEST(LocalCartesianReferenceSystem, BrokenPartsFailWithTheirOwnTexts) {
    EXPECT_EQ(CartesianThrows([](TStringTree* tree) { tree->FindSubtree(1104, 0)->DeleteField(5301, 0); }),
              "TShellUnit::TShellUnit(TStringTree *tree)");
    EXPECT_EQ(CartesianThrows([](TStringTree* tree) { AddChainWithoutCoreForm(Child(tree, 1108), ""); }),
              "TShellRefSystemTransform::CreateCoreTransform");
    EXPECT_EQ(CartesianThrows([](TStringTree* tree) { tree->DeleteField(1021, 0); }), BaseMessage);
    EXPECT_EQ(ThrownText([] { TCartesian(static_cast<TStringTree*>(nullptr), nullptr); }), BaseMessage);
}

// Construction of the curved kind

TEST(LocalCurvedReferenceSystem, IsReadFromItsDescription) {
    TLocalText text = In(Foot(), Around("100", "200", Curved("6.371")));
    text.radiusUnit = Kilometre();
    text.swap = 1;
    auto const system = LiveCurved(text);

    EXPECT_EQ(system->Type, rstLocalCurved);
    EXPECT_EQ(system->LinearUnit->Name, "foot");
    EXPECT_EQ(system->Orientation, rscoLeft);
    EXPECT_FALSE(system->NoOrigin);
    EXPECT_EQ(system->OriginCoord[0], "100");
    EXPECT_EQ(system->OriginCoord[1], "200");
    EXPECT_EQ(system->SphereUnit->Name, "kilometre");
    EXPECT_EQ(system->SphereRadiusText, "6.371");
    EXPECT_DOUBLE_EQ(system->SphereRadius, 6371);
    auto const& core = dynamic_cast<TLocalCurvedReferenceSystem const&>(*system->CoreRefSystem);
    EXPECT_DOUBLE_EQ(core.Radius, 6371);
    // Meant: the centre isn't swapped, whatever the order of the axes.
    EXPECT_DOUBLE_EQ(core.CenterX, 30.48);
    EXPECT_DOUBLE_EQ(core.CenterY, 60.96);
    EXPECT_EQ(core.LocalCartesianSystem->Orientation, rscoLeft);
}

TEST(LocalCurvedReferenceSystem, NeedsSphereRadiusUnitsAndOrder) {
    EXPECT_EQ(CurvedThrows([](TStringTree* tree) { tree->DeleteSubtree(1103, 0); }), CurvedMessage);
    EXPECT_EQ(CurvedThrows([](TStringTree* tree) { tree->DeleteSubtree(1104, 0); }), CurvedMessage);
    EXPECT_EQ(CurvedThrows([](TStringTree* tree) { tree->DeleteField(1400, 0); }), CurvedMessage);
}

TEST(LocalCurvedReferenceSystem, ItsSphereIsAWholeEllipsoid) {
    // The ellipsoid of the description is read first, and it needs all of its fields.
    for (int const field : {5110, 5111, 5114, 5115, 5120, 5121}) {
        EXPECT_EQ(CurvedThrows([&](TStringTree* tree) { tree->FindSubtree(1103, 0)->DeleteField(field, 0); }),
                  "TShellEllipsoid::TShellEllipsoid(TStringTree *tree)")
            << field;
    }
    EXPECT_EQ(CurvedThrows([](TStringTree* tree) { tree->FindSubtree(1103, 0)->DeleteSubtree(5113, 0); }),
              "TShellEllipsoid::TShellEllipsoid(TStringTree *tree)");
}

TEST(LocalCurvedReferenceSystem, WithADatumTheSphereNeedsRadiusAndUnitAlone) {
    auto const withDatum = [](TStringTree* tree) {
        TStringTree geodetic;
        FillGeodetic(&geodetic, WithZeroShift());
        geodetic.FindSubtree(1107, 0)->CopyTo(Child(tree, 1107));
        TStringTree* const sphere = tree->FindSubtree(1103, 0);
        for (int const field : {5111, 5114, 5115, 5120, 5121}) {
            sphere->DeleteField(field, 0);
        }
    };
    EXPECT_EQ(LiveCurved(Curved("1000"), withDatum)->SphereRadius, 1000);
    EXPECT_EQ(CurvedThrows([&](TStringTree* tree) {
                  withDatum(tree);
                  tree->FindSubtree(1103, 0)->DeleteField(5110, 0);
              }),
              CurvedMessage);
    EXPECT_EQ(CurvedThrows([&](TStringTree* tree) {
                  withDatum(tree);
                  tree->FindSubtree(1103, 0)->DeleteSubtree(5113, 0);
              }),
              CurvedMessage);
}

TEST(LocalCurvedReferenceSystem, TextsWithoutANumberFailWithTheUnitsText) {
    constexpr char const* unitMessage =
        "bool TShellUnit::StringToValue(const string& str, double *value) const";
    EXPECT_EQ(CurvedThrows([](TStringTree* tree) { SetField(tree->FindSubtree(1103, 0), 5110, "wide"); }),
              unitMessage);
    EXPECT_EQ(CurvedThrows([](TStringTree* tree) { SetField(tree, 1120, "west", 0); }), unitMessage);
    EXPECT_EQ(CurvedThrows([](TStringTree* tree) { SetField(tree, 1120, "south", 1); }), unitMessage);
}

TEST(LocalCurvedReferenceSystem, BrokenPartsFailWithTheirOwnTexts) {
    EXPECT_EQ(CurvedThrows([](TStringTree* tree) { tree->FindSubtree(1104, 0)->DeleteField(5301, 0); }),
              "TShellUnit::TShellUnit(TStringTree *tree)");
    EXPECT_EQ(CurvedThrows([](TStringTree* tree) { AddChainWithoutCoreForm(Child(tree, 1108), ""); }),
              "TShellRefSystemTransform::CreateCoreTransform");
    EXPECT_EQ(CurvedThrows([](TStringTree* tree) { tree->DeleteField(1021, 0); }), BaseMessage);
}

TEST(LocalCurvedReferenceSystem, HalfACentreIsNone) {
    for (int const axis : {0, 1}) {
        auto const system = LiveCurved(Around("100", "200", Curved("1000")),
                                       [&](TStringTree* tree) { tree->DeleteField(1120, axis); });
        auto const& core = dynamic_cast<TLocalCurvedReferenceSystem const&>(*system->CoreRefSystem);

        EXPECT_TRUE(system->NoOrigin) << axis;
        EXPECT_EQ(core.CenterX, 0) << axis;
        EXPECT_EQ(core.CenterY, 0) << axis;
    }
    EXPECT_TRUE(LiveCurved(Curved("1000"))->NoOrigin);
}

TEST(LocalCurvedReferenceSystem, AnEmptyTextOfTheCentreIsACentreInATree) {
    // Kept: the tree's field counts, not its text; in XML it is the text.
    auto const system = LiveCurved(Around("", "200", Curved("1000")));

    EXPECT_FALSE(system->NoOrigin);
    EXPECT_EQ(dynamic_cast<TLocalCurvedReferenceSystem&>(*system->CoreRefSystem).CenterX, 0);
    EXPECT_EQ(dynamic_cast<TLocalCurvedReferenceSystem&>(*system->CoreRefSystem).CenterY, 200);
    EXPECT_TRUE(FromXml<TCurved>(XmlOf(*system))->NoOrigin);
}

// Coordinates

TEST(LocalReferenceSystems, SwappedAndPlainSystemsShareTheirNumbers) {
    // Meant: the shell's swap and the core's cancel out.
    TPoint const point = {1, 2, 3};
    auto const right = LiveCartesian(TLocalText());
    auto const left = LiveCartesian(Swapped(TLocalText(), 1));

    EXPECT_EQ(Transformed(*right, point, *left), point);
    EXPECT_EQ(Transformed(*left, point, *right), point);
    EXPECT_EQ(Transformed(*LiveCurved(Curved("1e300")), point, *LiveCurved(Swapped(Curved("1e300"), 1))),
              point);
}

TEST(LocalReferenceSystems, UnitsAreConverted) {
    ExpectNear(Transformed(*LiveCartesian(In(Foot(), TLocalText())), {1000, 2000, 3000},
                           *LiveCartesian(In(Kilometre(), TLocalText()))),
               {0.3048, 0.6096, 0.9144}, 1e-15);
}

TEST(LocalReferenceSystems, ACurvedHeightFallsOffWithTheSquareOfTheDistance) {
    TLocalText text = Curved("1");
    text.radiusUnit = Kilometre();
    auto const curved = LiveCurved(text);
    auto const plane = LiveCartesian(TLocalText());

    // 100^2 / (2 * 1000) = 5.
    EXPECT_EQ(Transformed(*curved, {100, 0, 0}, *plane), (TPoint{100, 0, -5}));
    EXPECT_EQ(Transformed(*plane, {100, 0, -5}, *curved), (TPoint{100, 0, 0}));
    EXPECT_EQ(Transformed(*curved, {30, 40, 7}, *plane), (TPoint{30, 40, 5.75}));
    EXPECT_EQ(Transformed(*curved, {30, 40, 7}, *curved), (TPoint{30, 40, 7}));
}

TEST(LocalReferenceSystems, TheEarthsCurvature) {
    // 1000^2 + 2000^2 over 2 * 6371000, from 10, by hand.
    ExpectNear(Transformed(*LiveCurved(Curved("6371000")), {1000, 2000, 10}, *LiveCartesian(TLocalText())),
               {1000, 2000, 9.60759692356}, 1e-11);
}

TEST(LocalReferenceSystems, TheCentreIsInTheSystemsUnit) {
    auto const curved = LiveCurved(In(Kilometre(), Around("1", "2", Curved("1000000"))));
    auto const plane = LiveCartesian(TLocalText());

    // 3 km and 4 km from the centre: 25e6 / 2e6 = 12.5 m.
    ExpectNear(Transformed(*curved, {4, 6, 0.1}, *plane), {4000, 6000, 87.5}, 1e-9);
}

TEST(LocalReferenceSystems, BetweenTwoOrdersTheSecondCorrectionIsOnSwappedCoordinates) {
    auto const right = LiveCurved(Around("100", "0", Curved("1000")));
    auto const left = LiveCurved(Swapped(Around("100", "0", Curved("1000")), 1));

    // The point is the centre of the first. In the second the centre's first number is the core's X, which is
    // the second shell coordinate there: (100, 0) is 100 m off in either axis, (1e4 + 1e4) / 2000 = 10.
    EXPECT_EQ(Transformed(*right, {100, 0, 0}, *left), (TPoint{100, 0, 10}));
    EXPECT_EQ(Transformed(*left, {0, 100, 0}, *right), (TPoint{0, 100, 10}));
}

TEST(LocalReferenceSystems, ARadiusOfZeroGivesInfiniteHeights) {
    auto const curved = LiveCurved(Curved("0"));
    auto const plane = LiveCartesian(TLocalText());

    TPoint const off = Transformed(*curved, {3, 4, 0}, *plane);
    EXPECT_EQ(off[0], 3);
    EXPECT_TRUE(std::isinf(off[2]) && off[2] < 0);
    EXPECT_TRUE(std::isnan(Transformed(*curved, {0, 0, 0}, *plane)[2]));
}

TEST(LocalReferenceSystems, TheWorldOfALocalSystemIsItsOwn) {
    double axes[9] = {};

    ASSERT_TRUE(TransformAxes(LiveCartesian(TLocalText()).get(), 1, 2, 3, axes, true));
    for (int cell = 0; cell < 9; ++cell) {
        EXPECT_NEAR(axes[cell], cell % 4 == 0 ? 1 : 0, 1e-12) << cell;
    }
    EXPECT_TRUE(TransformAxes(LiveCurved(Curved("1000")).get(), 1, 2, 3, axes, true));
}

TEST(LocalReferenceSystems, ChainsReachTheCore) {
    auto const plane = LiveCartesian(TLocalText());
    for (int const swap : {0, 1}) {
        auto const shifted = LiveCartesian(Swapped(TLocalText(), swap),
                                           [](TStringTree* tree) { AddPlaneShift(tree, 100, 0); });
        EXPECT_EQ(Transformed(*plane, {1, 2, 3}, *shifted), (TPoint{101, 2, 3})) << swap;
        auto const curved = LiveCurved(Swapped(Curved("1e300"), swap));
        auto const height = HeightShift(7);
        ASSERT_TRUE(curved->AppendTransform(&height));
        EXPECT_EQ(Transformed(*plane, {1, 2, 3}, *curved), (TPoint{1, 2, 10})) << swap;
        ASSERT_TRUE(curved->ClearTransforms());
        EXPECT_EQ(Transformed(*plane, {1, 2, 3}, *curved), (TPoint{1, 2, 3})) << swap;
    }
}

// Simple answers

TEST(LocalReferenceSystems, SimpleAnswers) {
    std::unique_ptr<TShellReferenceSystem> const systems[] = {LiveCartesian(TLocalText()),
                                                              LiveCurved(Curved("1000"))};
    for (auto const& system : systems) {
        TCardinalDirection first = cdEast;
        TCardinalDirection second = cdWest;
        double numbers[7] = {};

        EXPECT_FALSE(system->IsGlobal());
        EXPECT_FALSE(system->IsProjected() || system->IsGeocentric() || system->IsLatLon() ||
                     system->IsTopocentricHorizontal());
        EXPECT_FALSE(system->GetAxesDirections(&first, &second));
        EXPECT_EQ(first, cdNone);
        EXPECT_EQ(second, cdNone);
        EXPECT_EQ(system->GetDatumShift(), nullptr);
        EXPECT_FALSE(system->GetDatumShiftParams(&numbers[0], &numbers[1], &numbers[2], &numbers[3],
                                                 &numbers[4], &numbers[5], &numbers[6]));
        EXPECT_FALSE(system->SetNonLinearDatum(true));
        EXPECT_EQ(system->CalculateArea({{{0, 0, 0}}, {{0, 1000, 0}}, {{1000, 1000, 0}}}), 0);
        EXPECT_EQ(system->GetMapProjectionName(), "");
    }
}

TEST(LocalReferenceSystems, TheSpheresRadiusIsInThePlaneUnit) {
    double radius = 7;

    EXPECT_FALSE(LiveCartesian(TLocalText())->GetSphereRadius(&radius));
    EXPECT_EQ(radius, 7);
    TLocalText text = In(Foot(), Curved("1"));
    text.radiusUnit = Kilometre();
    EXPECT_TRUE(LiveCurved(text)->GetSphereRadius(&radius));
    EXPECT_NEAR(radius, 3280.8398950131, 1e-9); // 1000 / 0.3048
    EXPECT_TRUE(LiveCurved(In(Foot(), Curved("1000")))->GetSphereRadius(&radius));
    EXPECT_NEAR(radius, 3280.8398950131, 1e-9);
}

// Equality

TEST(LocalCartesianReferenceSystem, EqualityLooksAtCoreAndUnit) {
    auto const system = LiveCartesian(TLocalText());
    TLocalText renamed;
    renamed.name = "Another name";
    auto const shifted = LiveCartesian(TLocalText(), [](TStringTree* tree) { AddPlaneShift(tree, 1, 0); });

    EXPECT_TRUE(*system == *LiveCartesian(renamed));
    EXPECT_FALSE(*system == *LiveCartesian(In(Foot(), TLocalText())));
    EXPECT_FALSE(*system == *LiveCartesian(Swapped(TLocalText(), 1)));
    EXPECT_FALSE(*system == *shifted);
    EXPECT_FALSE(*system == *LiveCurved(Curved("1000")));
    EXPECT_FALSE(*LiveCurved(Curved("1000")) == *system);
}

TEST(LocalCurvedReferenceSystem, EqualityWithACentreLooksAtTheCore) {
    auto const system = LiveCurved(Around("1", "2", Curved("1000")));
    TLocalText inKilometres = Around("1", "2", Curved("1"));
    inKilometres.radiusUnit = Kilometre();
    auto const shifted =
        LiveCurved(Around("1", "2", Curved("1000")), [](TStringTree* tree) { AddPlaneShift(tree, 1, 0); });

    EXPECT_TRUE(*system == *LiveCurved(Around("1.0", "2", Curved("1e3"))));
    EXPECT_TRUE(*system == *LiveCurved(inKilometres));
    EXPECT_FALSE(*system == *LiveCurved(Around("1", "3", Curved("1000"))));
    EXPECT_FALSE(*system == *LiveCurved(Around("1", "2", Curved("1001"))));
    EXPECT_FALSE(*system == *LiveCurved(Swapped(Around("1", "2", Curved("1000")), 1)));
    EXPECT_FALSE(*system == *LiveCurved(In(Foot(), Around("1", "2", Curved("1000")))));
    EXPECT_FALSE(*system == *shifted);
}

TEST(LocalCurvedReferenceSystem, EqualityWithoutACentreLooksAtOrderAndRadiusAlone) {
    auto const system = LiveCurved(Curved("1000"));
    auto const shifted = LiveCurved(Curved("1000"), [](TStringTree* tree) { AddPlaneShift(tree, 1, 0); });

    EXPECT_TRUE(*system == *shifted); // meant: chains don't count here
    EXPECT_FALSE(*system == *LiveCurved(Curved("1001")));
    EXPECT_FALSE(*system == *LiveCurved(Swapped(Curved("1000"), 1)));
    EXPECT_FALSE(*system == *LiveCurved(In(Foot(), Curved("1000"))));
    EXPECT_FALSE(*system == *LiveCurved(Around("0", "0", Curved("1000"))));
    EXPECT_TRUE(*system ^= *LiveCurved(Around("0", "0", Curved("1000"))));
    auto const other = LiveCurved(Curved("1000"));
    other->Type = rstGeodetic;
    EXPECT_FALSE(*system == *other);
}

// Life

TEST(LocalReferenceSystems, ResetEmptiesAllButTheKind) {
    auto const plane = LiveCartesian(Swapped(TLocalText(), 1));
    plane->Reset();
    EXPECT_EQ(plane->Type, rstLocalCartesian);
    EXPECT_FALSE(plane->SwapAxes);
    EXPECT_EQ(plane->LinearUnit, nullptr);
    EXPECT_EQ(plane->CoreRefSystem, nullptr);

    auto const curved = LiveCurved(Swapped(Around("1", "2", Curved("1000")), 1));
    curved->Reset();
    EXPECT_EQ(curved->Type, rstLocalCurved);
    EXPECT_EQ(curved->LinearUnit, nullptr);
    EXPECT_EQ(curved->Orientation, rscoRight);
    EXPECT_EQ(curved->OriginCoord[0] + curved->OriginCoord[1], "");
    EXPECT_EQ(curved->SphereUnit, nullptr);
    EXPECT_EQ(curved->SphereRadiusText, "");
    EXPECT_TRUE(curved->NoOrigin);
    EXPECT_EQ(curved->SphereRadius, 0);
    double radius = 7;
    EXPECT_FALSE(curved->GetSphereRadius(&radius));
}

} // namespace
} // namespace KvRefSystem
