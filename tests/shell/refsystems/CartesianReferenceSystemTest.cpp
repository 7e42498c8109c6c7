#include "shell/refsystems/CartesianReferenceSystem.h"

#include "core/refsystems/Coords.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/CartesianSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <memory>
#include <ostream>
#include <string>
#include <utility>

namespace KvRefSystem {
namespace {

using namespace TestSupport;
using KvRefSystemTests::AllocationCount;

/** One of the four kinds, in either order of its axes where it has one. */
struct TKind {
    char const* name;
    char const* className;
    TReferenceSystemType type;
    int swap;
    bool isLeft;
};

void PrintTo(TKind const& kind, std::ostream* out) {
    *out << kind.name;
}

TKind const Kinds[] = {
    {"Geocentric", "TShellGeocentricReferenceSystem", rstGeocentric, 0, false},
    {"TopocentricRight", "TShellTopocentricHorizontalReferenceSystem", rstTopocentricHorizontal, 0, false},
    {"TopocentricLeft", "TShellTopocentricHorizontalReferenceSystem", rstTopocentricHorizontal, 1, true},
    {"CartesianRight", "TShellLocalCartesianReferenceSystem", rstLocalCartesian, 0, false},
    {"CartesianLeft", "TShellLocalCartesianReferenceSystem", rstLocalCartesian, 1, true},
    {"CurvedRight", "TShellLocalCurvedReferenceSystem", rstLocalCurved, 0, false},
    {"CurvedLeft", "TShellLocalCurvedReferenceSystem", rstLocalCurved, 1, true},
};

std::unique_ptr<TShellReferenceSystem> Build(TKind const& kind, TUnitText const& unit = Metre()) {
    if (kind.type == rstGeocentric) {
        TGeocentricText text;
        text.linearUnit = unit;
        return Create(text);
    }
    if (kind.type == rstTopocentricHorizontal) {
        TTopocentricText text;
        text.linearUnit = unit;
        text.swap = kind.swap;
        return Create(text);
    }
    TLocalText text = kind.type == rstLocalCurved ? Curved("6371000") : TLocalText();
    text.linearUnit = unit;
    text.swap = kind.swap;
    return Create(text);
}

TUnitText Kilometre() {
    return {0, 1, "1000", "1", "kilometre", "km"};
}

class CartesianReferenceSystem : public testing::TestWithParam<TKind> {};

INSTANTIATE_TEST_SUITE_P(Kinds, CartesianReferenceSystem, testing::ValuesIn(Kinds),
                         [](auto const& kind) { return std::string(kind.param.name); });

TEST_P(CartesianReferenceSystem, ALeftHandedSystemBeginsWithTheCoresSecondCoordinate) {
    auto const system = Build(GetParam());
    double const shell[3] = {1, 2, 3};
    TCoords core{0, 0, 0, true};

    system->CoordsShellToCore(shell, &core);

    EXPECT_EQ(system->IsLeft(), GetParam().isLeft);
    EXPECT_EQ(core.X, GetParam().isLeft ? 2 : 1);
    EXPECT_EQ(core.Y, GetParam().isLeft ? 1 : 2);
    EXPECT_EQ(core.Z, 3);
    EXPECT_FALSE(core.ZUndefined);
    double back[3] = {};
    system->CoordsCoreToShell(core, back);
    EXPECT_EQ(back[0], 1);
    EXPECT_EQ(back[1], 2);
    EXPECT_EQ(back[2], 3);
}

TEST_P(CartesianReferenceSystem, NumbersAreInTheSystemsUnit) {
    auto const system = Build(GetParam(), Kilometre());
    double const shell[3] = {1, 2, 3};
    TCoords core{0, 0, 0, false};

    system->CoordsShellToCore(shell, &core);

    EXPECT_EQ(core.X, GetParam().isLeft ? 2000 : 1000);
    EXPECT_EQ(core.Y, GetParam().isLeft ? 1000 : 2000);
    EXPECT_EQ(core.Z, 3000);
    double back[3] = {};
    system->CoordsCoreToShell(TCoords{500, 250, 125, false}, back);
    EXPECT_EQ(back[0], GetParam().isLeft ? 0.25 : 0.5);
    EXPECT_EQ(back[1], GetParam().isLeft ? 0.5 : 0.25);
    EXPECT_EQ(back[2], 0.125);
}

TEST_P(CartesianReferenceSystem, TextsAreInTheSystemsUnit) {
    auto const system = Build(GetParam(), Kilometre());
    TCoords core{0, 0, 0, true};

    system->CoordsShellToCore(Texts("1", "2.5", "-3"), &core);

    EXPECT_EQ(core.X, GetParam().isLeft ? 2500 : 1000);
    EXPECT_EQ(core.Y, GetParam().isLeft ? 1000 : 2500);
    EXPECT_EQ(core.Z, -3000);
    EXPECT_FALSE(core.ZUndefined);
    TShellCoords texts;
    system->CoordsCoreToShell(core, &texts);
    EXPECT_EQ(texts.Coord[0], "1");
    EXPECT_EQ(texts.Coord[1], "2.5");
    EXPECT_EQ(texts.Coord[2], "-3");
}

TEST_P(CartesianReferenceSystem, TextsHaveAllTheirDigits) {
    auto const system = Build(GetParam());
    TShellCoords texts;

    system->CoordsCoreToShell(TCoords{0.1, 0.1, 0.1, false}, &texts);

    for (std::string const& text : texts.Coord) {
        // The double next to 0.1, to 25 digits.
        EXPECT_EQ(text, "0.1000000000000000055511151");
    }
}

TEST_P(CartesianReferenceSystem, APointWithoutHeightIsRefusedInBothDirections) {
    auto const system = Build(GetParam());
    std::string const name = GetParam().className;
    TCoords core{7, 8, 9, false};
    TShellCoords texts = Texts("a", "b", "c");
    double shell[3] = {4, 5, 6};

    EXPECT_EQ(ThrownText([&] { system->CoordsShellToCore(Texts("1", "2", ""), &core); }),
              name + "::CoordsShellToCore");
    EXPECT_EQ(core.X, 7);
    core.ZUndefined = true;
    EXPECT_EQ(ThrownText([&] { system->CoordsCoreToShell(core, shell); }), name + "::CoordsCoreToShell");
    EXPECT_EQ(ThrownText([&] { system->CoordsCoreToShell(core, &texts); }), name + "::CoordsCoreToShell");
    EXPECT_EQ(shell[0], 4);
    EXPECT_EQ(texts.Coord[0], "a");
}

TEST_P(CartesianReferenceSystem, OtherEmptyTextsAreZero) {
    // Kept: only the height is looked at; an empty text reads as no number, which leaves 0.
    auto const system = Build(GetParam());
    TCoords core{7, 8, 9, true};

    system->CoordsShellToCore(Texts("", "", " "), &core);

    EXPECT_EQ(core.X, 0);
    EXPECT_EQ(core.Y, 0);
    EXPECT_EQ(core.Z, 0);
}

TEST_P(CartesianReferenceSystem, ATextWithoutANumberThrowsTheUnitsText) {
    auto const system = Build(GetParam());
    TCoords core{7, 8, 9, true};

    for (auto const& texts : {Texts("x", "2", "3"), Texts("1", "x", "3"), Texts("1", "2", "x")}) {
        EXPECT_EQ(ThrownText([&] { system->CoordsShellToCore(texts, &core); }),
                  "bool TShellUnit::StringToValue(const string& str, double *value) const");
    }
    EXPECT_EQ(core.X, 7);
    EXPECT_TRUE(core.ZUndefined);
}

TEST_P(CartesianReferenceSystem, InputReadsAllThreeTextsInOneUnit) {
    auto const kilometre =
        Live(TGeocentricText(), [](TStringTree* tree) { FillUnit(tree->FindSubtree(1104, 0), Kilometre()); });
    TShellUnit const* const plane = kilometre->LinearUnit;
    auto const foot =
        Live(TGeocentricText(), [](TStringTree* tree) { FillUnit(tree->FindSubtree(1104, 0), Foot()); });
    auto const system = Build(GetParam());
    double shell[3] = {};

    ASSERT_TRUE(system->InputCoords(Texts("1", "2", "3"), nullptr, foot->LinearUnit, shell));
    EXPECT_EQ(shell[0], 1);
    EXPECT_EQ(shell[1], 2);
    EXPECT_EQ(shell[2], 3); // meant: the height's unit isn't used
    ASSERT_TRUE(system->InputCoords(Texts("1", "2", "3"), plane, foot->LinearUnit, shell));
    EXPECT_EQ(shell[0], 1000);
    EXPECT_EQ(shell[1], 2000);
    EXPECT_EQ(shell[2], 3000);
}

TEST_P(CartesianReferenceSystem, InputConvertsOnlyWhenAllThreeTextsAreRead) {
    auto const kilometre =
        Live(TGeocentricText(), [](TStringTree* tree) { FillUnit(tree->FindSubtree(1104, 0), Kilometre()); });
    auto const angular = Geodetic(WithZeroShift());
    auto const system = Build(GetParam());
    double shell[3] = {7, 8, 9};

    EXPECT_FALSE(system->InputCoords(Texts("1", "2", "x"), kilometre->LinearUnit, nullptr, shell));
    EXPECT_EQ(shell[0], 1);
    EXPECT_EQ(shell[1], 2);
    EXPECT_EQ(shell[2], 9);
    EXPECT_FALSE(system->InputCoords(Texts("x", "2", "3"), nullptr, nullptr, shell));
    EXPECT_FALSE(system->InputCoords(Texts("1", "2", "x"), angular->AngularUnit, nullptr, shell));
    EXPECT_EQ(
        ThrownText([&] { system->InputCoords(Texts("1", "2", "3"), angular->AngularUnit, nullptr, shell); }),
        "void TShellUnit::Convert(const TShellUnit& dst_unit, double *value) const");
}

TEST_P(CartesianReferenceSystem, InputOfAnEmptyTextKeepsTheNumber) {
    auto const system = Build(GetParam());
    double shell[3] = {7, 8, 9};

    EXPECT_TRUE(system->InputCoords(Texts("1", "2", ""), nullptr, nullptr, shell));
    EXPECT_EQ(shell[0], 1);
    EXPECT_EQ(shell[1], 2);
    EXPECT_EQ(shell[2], 9);
}

TEST_P(CartesianReferenceSystem, OutputPrintsAllThreeNumbersInOneUnit) {
    auto const kilometre =
        Live(TGeocentricText(), [](TStringTree* tree) { FillUnit(tree->FindSubtree(1104, 0), Kilometre()); });
    auto const foot =
        Live(TGeocentricText(), [](TStringTree* tree) { FillUnit(tree->FindSubtree(1104, 0), Foot()); });
    auto const system = Build(GetParam());
    double const shell[3] = {1000, 2500, -125};
    TShellCoords texts;

    system->OutputCoords(shell, &texts, kilometre->LinearUnit, 2, foot->LinearUnit, 7);
    EXPECT_EQ(texts.Coord[0], "1.00");
    EXPECT_EQ(texts.Coord[1], "2.50");
    EXPECT_EQ(texts.Coord[2], "-0.12"); // the exact half goes to the even digit; the height's unit isn't used
    system->OutputCoords(shell, &texts, nullptr, 1, foot->LinearUnit, 7);
    EXPECT_EQ(texts.Coord[0], "1000.0");
    EXPECT_EQ(texts.Coord[2], "-125.0");
    system->OutputCoords(shell, &texts, nullptr, -1, nullptr, 7);
    EXPECT_EQ(texts.Coord[1], "2500");
    EXPECT_EQ(texts.Coord[2], "-125");
}

TEST_P(CartesianReferenceSystem, OutputInAnUnitOfAnotherKindThrowsAndLeavesTheTexts) {
    auto const angular = Geodetic(WithZeroShift());
    auto const system = Build(GetParam());
    double const shell[3] = {1, 2, 3};
    TShellCoords texts = Texts("a", "b", "c");

    EXPECT_EQ(ThrownText([&] { system->OutputCoords(shell, &texts, angular->AngularUnit, 2, nullptr, 2); }),
              "void TShellUnit::Convert(const TShellUnit& dst_unit, double *value) const");
    EXPECT_EQ(texts.Coord[0], "a");
}

TEST_P(CartesianReferenceSystem, DefaultOutputHasTheUnitsPrecision) {
    double const shell[3] = {1, 2.25, -3};
    TShellCoords texts;

    // Three decimals of a metre, six of a kilometre.
    Build(GetParam())->OutputCoordsDef(shell, &texts);
    EXPECT_EQ(texts.Coord[0], "1.000");
    EXPECT_EQ(texts.Coord[2], "-3.000");
    Build(GetParam(), Kilometre())->OutputCoordsDef(shell, &texts);
    EXPECT_EQ(texts.Coord[1], "2.250000");
    EXPECT_EQ(texts.Coord[2], "-3.000000");
}

TEST_P(CartesianReferenceSystem, AllUnitAnswersAreOfTheLinearUnit) {
    auto const system = Build(GetParam(), Foot());

    EXPECT_EQ(system->GetPlaneUnitCoefToBase(), 0.3048);
    EXPECT_EQ(system->GetPlaneUnitName(), "foot");
    EXPECT_EQ(system->GetPlaneUnitShortName(), "ft");
    EXPECT_EQ(system->GetPlaneUnitDefPrec(), 3); // ceil(log10(0.3048) + 3)
    EXPECT_EQ(system->GetHeightUnitCoefToBase(), 0.3048);
    EXPECT_EQ(system->GetHeightUnitName(), "foot");
    EXPECT_EQ(system->GetHeightUnitShortName(), "ft");
    EXPECT_EQ(system->GetHeightUnitDefPrec(), 3);
}

TEST_P(CartesianReferenceSystem, TheShortNameOfAUnitWithoutAbbreviationIsItsName) {
    TUnitText unit = Foot();
    unit.abbreviation = "";
    auto const system = Build(GetParam(), unit);

    EXPECT_EQ(system->GetPlaneUnitShortName(), "foot");
    EXPECT_EQ(system->GetHeightUnitShortName(), "foot");
}

TEST_P(CartesianReferenceSystem, AnEmptiedSystemNamesItsClassWhenItsUnitIsWanted) {
    auto const system = Build(GetParam());
    system->Reset();
    std::string const text =
        "const TShellLinearUnit& " + std::string(GetParam().className) + "::GetLinearUnit() const";
    double shell[3] = {1, 2, 3};
    TCoords core{1, 2, 3, false};
    TShellCoords texts = Texts("1", "2", "3");

    EXPECT_EQ(ThrownText([&] { system->GetPlaneUnitName(); }), text);
    EXPECT_EQ(ThrownText([&] { system->GetHeightUnitCoefToBase(); }), text);
    EXPECT_EQ(ThrownText([&] { system->CoordsShellToCore(shell, &core); }), text);
    EXPECT_EQ(ThrownText([&] { system->CoordsShellToCore(texts, &core); }), text);
    EXPECT_EQ(ThrownText([&] { system->CoordsCoreToShell(core, shell); }), text);
    EXPECT_EQ(ThrownText([&] { system->CoordsCoreToShell(core, &texts); }), text);
    EXPECT_EQ(ThrownText([&] { system->OutputCoords(shell, &texts, nullptr, 1, nullptr, 1); }), text);
    EXPECT_EQ(ThrownText([&] { system->OutputCoordsDef(shell, &texts); }), text);
    EXPECT_FALSE(system->InputCoords(texts, nullptr, nullptr, shell));
}

TEST_P(CartesianReferenceSystem, ShellAndCoreMayBeTheSameNumbers) {
    static_assert(offsetof(TCoords, X) == 0 && offsetof(TCoords, Z) == 2 * sizeof(double));
    auto const system = Build(GetParam(), Kilometre());
    TCoords both{1, 2, 3, false};

    system->CoordsShellToCore(&both.X, &both);
    EXPECT_EQ(both.X, GetParam().isLeft ? 2000 : 1000);
    EXPECT_EQ(both.Y, GetParam().isLeft ? 1000 : 2000);
    EXPECT_EQ(both.Z, 3000);
    system->CoordsCoreToShell(both, &both.X);
    EXPECT_EQ(both.X, 1);
    EXPECT_EQ(both.Y, 2);
    EXPECT_EQ(both.Z, 3);
}

TEST_P(CartesianReferenceSystem, TextsMayBeReadAndWrittenInPlace) {
    auto const system = Build(GetParam());
    double shell[3] = {1, 2, 3};
    TShellCoords texts = Texts("4", "5", "6");

    ASSERT_TRUE(system->InputCoords(texts, nullptr, nullptr, shell));
    system->OutputCoords(shell, &texts, nullptr, 0, nullptr, 0);
    EXPECT_EQ(texts.Coord[0], "4");
    EXPECT_EQ(texts.Coord[1], "5");
    EXPECT_EQ(texts.Coord[2], "6");
}

TEST_P(CartesianReferenceSystem, NumbersThatAreNoneGoThrough) {
    auto const system = Build(GetParam());
    double const infinity = std::numeric_limits<double>::infinity();
    double const shell[3] = {infinity, -infinity, infinity};
    TCoords core{0, 0, 0, false};
    double back[3] = {};

    system->CoordsShellToCore(shell, &core);
    system->CoordsCoreToShell(core, back);

    EXPECT_EQ(back[0], infinity);
    EXPECT_EQ(back[1], -infinity);
    EXPECT_EQ(back[2], infinity);
}

TEST_P(CartesianReferenceSystem, APointNeedsNoMemory) {
    auto const system = Build(GetParam());
    double shell[3] = {6e6, 1e6, 1e6};
    TCoords core{0, 0, 0, false};
    auto const before = AllocationCount();

    for (int pass = 0; pass < 100; ++pass) {
        system->CoordsShellToCore(shell, &core);
        system->CoordsCoreToShell(core, shell);
        system->OperateShellCoords(*system, shell, false);
    }

    EXPECT_EQ(AllocationCount(), before);
}

} // namespace
} // namespace KvRefSystem
