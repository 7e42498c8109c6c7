#include "shell/refsystems/GeodeticReferenceSystem.h"

#include "core/refsystems/GeodeticReferenceSystem.h"
#include "hostkit/XmlIni.h"
#include "shell/units/BuiltInUnits.h"
#include "shell/units/SexagesimalUnits.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

constexpr double Pi = 3.141592653589793;
constexpr char const* ShortMessage =
    "TShellGeodeticReferenceSystem(TStringTree *tree, TKvProgressHandler *prh)";

std::string ThrownAfter(std::function<void(TStringTree*)> const& change) {
    try {
        Geodetic(WithZeroShift(), change);
        return std::string();
    } catch (std::runtime_error const& failure) {
        return failure.what();
    }
}

TShellCoords Texts(std::string const& first, std::string const& second, std::string const& third) {
    TShellCoords coords;
    coords.Coord[0] = first;
    coords.Coord[1] = second;
    coords.Coord[2] = third;
    return coords;
}

/** The system read back from its XML form. */
std::unique_ptr<TShellGeodeticReferenceSystem> ThroughXml(TShellGeodeticReferenceSystem const& system) {
    VellariHostKit::TXmlIniWriter writer;
    EXPECT_TRUE(system.SaveToXML(&writer));
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    return std::make_unique<TShellGeodeticReferenceSystem>(&reader, nullptr);
}

// Construction

TEST(GeodeticReferenceSystem, IsOfGeoTiffTypeTwoWhateverTheTreeSays) {
    auto const system = Geodetic(WithZeroShift(), [](TStringTree* tree) { SetField(tree, 102001, "1"); });

    EXPECT_EQ(system->GeoTIFFType, "2");
}

TEST(GeodeticReferenceSystem, WithoutAVerticalSystemTheShortMessageComes) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { tree->DeleteSubtree(1201, 0); }), ShortMessage);
}

TEST(GeodeticReferenceSystem, WithoutAnAngularUnitTheShortMessageComes) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { tree->DeleteSubtree(1106, 0); }), ShortMessage);
}

TEST(GeodeticReferenceSystem, AnAngularUnitWithoutACodeIsNone) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { tree->FindSubtree(1106, 0)->DeleteField(5301, 0); }),
              ShortMessage);
}

TEST(GeodeticReferenceSystem, WithoutAnyEllipsoidTheShortMessageComes) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { tree->DeleteSubtree(1107, 0); }), ShortMessage);
}

TEST(GeodeticReferenceSystem, APrimeMeridianIsNotRequired) {
    auto const system = Geodetic(WithZeroShift(), [](TStringTree* tree) { tree->DeleteSubtree(1101, 0); });

    EXPECT_EQ(system->CoreRefSystem->RelatedGeocentricRefSystem()->PrimeMeridian->Longitude, 0.0);
}

TEST(GeodeticReferenceSystem, ASystemWithoutAHeightUnitBuildsAndFailsAtItsFirstUse) {
    auto const system = Geodetic(
        WithZeroShift(), [](TStringTree* tree) { tree->FindSubtree(1201, 0)->DeleteSubtree(1104, 0); });
    double shell[3] = {};

    EXPECT_THROW(system->GetHeightUnitCoefToBase(), std::runtime_error);
    EXPECT_THROW(system->CoordsCoreToShell(TCoords(), shell), std::runtime_error);
    EXPECT_FALSE(system->InputCoords(Texts("1", "2", "3"), nullptr, nullptr, shell));
    EXPECT_TRUE(*system == *system); // two missing units are equal
}

TEST(GeodeticReferenceSystem, ASystemWhoseAngularUnitIsGoneFailsAtItsNextUse) {
    auto const system = Geodetic(WithZeroShift());
    delete std::exchange(system->AngularUnit, nullptr);
    double shell[3] = {};
    TCoords core = {0, 0, 0, false};
    std::string text;

    std::string const message =
        "const TShellAngularUnit& TShellGeodeticReferenceSystem::GetAngularUnit() const";
    EXPECT_EQ(ThrownText([&] { system->CoordsCoreToShell(TCoords(), shell); }), message);
    EXPECT_EQ(ThrownText([&] { system->CoordsShellToCore(shell, &core); }), message);
    EXPECT_FALSE(system->InputCoords(Texts("1", "2", "3"), nullptr, nullptr, shell));
    EXPECT_FALSE(*system == *system);
    EXPECT_FALSE(system->Export2DToWKT(&text, false, ""));
    EXPECT_FALSE(system->ExportToMIFMID(&text, false));
    EXPECT_EQ(text, "");
}

TEST(GeodeticReferenceSystem, TheCoreHasTheTextsEllipsoidMeridianAndDatum) {
    TGeodeticText text = Pulkovo1942();
    text.meridian = "90";
    auto const system = Geodetic(text);
    auto const& core = dynamic_cast<TGeodeticReferenceSystem const&>(*system->CoreRefSystem);

    EXPECT_EQ(core.Ellipsoid->SemiMajorAxis, 6378245.0);
    EXPECT_NEAR(core.GeocentricSystem->PrimeMeridian->Longitude, Pi / 2, 1e-15);
    EXPECT_TRUE(core.ContainsDatum());
}

// Coordinates

TEST(GeodeticReferenceSystem, ShellOrderIsLatitudeLongitudeAndTheCoresIsTheOther) {
    auto const system = Geodetic(WithZeroShift());
    double const shell[3] = {45, -90, 100};
    TCoords core;

    system->CoordsShellToCore(shell, &core);

    EXPECT_NEAR(core.Y, Pi / 4, 1e-15);
    EXPECT_NEAR(core.X, -Pi / 2, 1e-15);
    EXPECT_EQ(core.Z, 100);
    double back[3] = {};
    system->CoordsCoreToShell(core, back);
    EXPECT_NEAR(back[0], 45, 1e-13);
    EXPECT_NEAR(back[1], -90, 1e-13);
    EXPECT_EQ(back[2], 100);
}

TEST(GeodeticReferenceSystem, NumbersLeaveTheHeightFlagToTheCaller) {
    auto const system = Geodetic(WithZeroShift());
    double const shell[3] = {45, -90, 100};
    TCoords core;
    core.ZUndefined = true;
    core.Z = 7;

    system->CoordsShellToCore(shell, &core);

    EXPECT_TRUE(core.ZUndefined);
    EXPECT_EQ(core.Z, 7);
}

TEST(GeodeticReferenceSystem, InputIsNormalised) {
    auto const system = Geodetic(WithZeroShift());
    double const shell[3] = {100, 350, 0};
    TCoords core;

    system->CoordsShellToCore(shell, &core);

    // A latitude past the pole ends at the pole.
    EXPECT_EQ(core.Y, 1.5707963267948966);
    EXPECT_NEAR(core.X, -10 * Pi / 180, 1e-15);
}

TEST(GeodeticReferenceSystem, PositiveLongitudeChangesOnlyTheReport) {
    auto const system = Geodetic(WithZeroShift(), [](TStringTree* tree) { SetField(tree, 1111, "1"); });
    double const shell[3] = {0, -10, 0};
    TCoords core;
    double back[3] = {};

    system->CoordsShellToCore(shell, &core);
    EXPECT_NEAR(core.X, -10 * Pi / 180, 1e-15);
    system->CoordsCoreToShell(core, back);
    EXPECT_NEAR(back[1], 350, 1e-12);
}

TEST(GeodeticReferenceSystem, APositiveLongitudeFieldOfZeroIsFalse) {
    EXPECT_FALSE(
        Geodetic(WithZeroShift(), [](TStringTree* tree) { SetField(tree, 1111, "0"); })->PositiveLongitude);
    EXPECT_FALSE(Geodetic(WithZeroShift())->PositiveLongitude);
}

TEST(GeodeticReferenceSystem, AnEmptyHeightTextIsAnUndefinedHeight) {
    auto const system = Geodetic(WithZeroShift());
    TCoords core;
    core.Z = 5;

    system->CoordsShellToCore(Texts("1", "2", ""), &core);
    EXPECT_TRUE(core.ZUndefined);
    EXPECT_EQ(core.Z, 5);

    TShellCoords texts;
    double numbers[3] = {9, 9, 9};
    system->CoordsCoreToShell(core, &texts);
    system->CoordsCoreToShell(core, numbers);
    EXPECT_EQ(texts.Coord[2], "");
    EXPECT_EQ(numbers[2], 0.0);
}

TEST(GeodeticReferenceSystem, AHeightTextClearsTheFlag) {
    TGeodeticText text = WithZeroShift();
    text.heightUnit = Foot();
    auto const system = Geodetic(text);
    TCoords core;
    core.ZUndefined = true;

    system->CoordsShellToCore(Texts("1", "2", "1000"), &core);

    EXPECT_FALSE(core.ZUndefined);
    EXPECT_NEAR(core.Z, 304.8, 1e-12);
}

TEST(GeodeticReferenceSystem, ATextThatDoesNotParseThrowsTheUnitsMessage) {
    auto const system = Geodetic(WithZeroShift());
    TCoords core;
    for (TShellCoords const& texts : {Texts("x", "2", "3"), Texts("1", "x", "3"), Texts("1", "2", "x")}) {
        try {
            system->CoordsShellToCore(texts, &core);
            FAIL();
        } catch (std::runtime_error const& failure) {
            EXPECT_STREQ(failure.what(),
                         "bool TShellUnit::StringToValue(const string& str, double *value) const");
        }
    }
}

TEST(GeodeticReferenceSystem, TextOutputShowsRadiansWithTheUnitsNotation) {
    auto const system = Geodetic(WithZeroShift());
    TCoords core;
    core.Y = Pi / 4;
    core.X = -Pi / 2;
    core.Z = 100;
    TShellCoords texts;

    system->CoordsCoreToShell(core, &texts);

    // pi/4 as a double to 25 digits, not 45.
    EXPECT_EQ(texts.Coord[0], "0.7853981633974482789994909");
    EXPECT_EQ(texts.Coord[1], "-1.570796326794896557998982");
    EXPECT_EQ(texts.Coord[2], "100");
}

TEST(GeodeticReferenceSystem, InputCoordsReadsInTheSystemsUnits) {
    auto const system = Geodetic(WithZeroShift());
    double shell[3] = {};

    EXPECT_TRUE(system->InputCoords(Texts("45.5", "-190", "7"), nullptr, nullptr, shell));

    EXPECT_EQ(shell[0], 45.5);
    EXPECT_EQ(shell[1], -190); // not normalised here
    EXPECT_EQ(shell[2], 7);
}

TEST(GeodeticReferenceSystem, InputCoordsConvertsFromGivenUnits) {
    auto const system = Geodetic(WithZeroShift());
    TStringTree grad;
    FillUnit(&grad, Grad());
    TShellAngularUnit const plane(&grad);
    TStringTree foot;
    FillUnit(&foot, Foot());
    TShellLinearUnit const height(&foot);
    double shell[3] = {};

    EXPECT_TRUE(system->InputCoords(Texts("50", "100", "1000"), &plane, &height, shell));

    EXPECT_NEAR(shell[0], 45, 1e-13);
    EXPECT_NEAR(shell[1], 90, 1e-13);
    EXPECT_NEAR(shell[2], 304.8, 1e-12);
}

TEST(GeodeticReferenceSystem, InputCoordsTellsOfATextThatDoesNotParse) {
    auto const system = Geodetic(WithZeroShift());
    TStringTree degree;
    FillUnit(&degree, Degree());
    TShellAngularUnit const plane(&degree);
    TStringTree metre;
    FillUnit(&metre, Metre());
    TShellLinearUnit const height(&metre);
    double shell[3] = {};

    EXPECT_FALSE(system->InputCoords(Texts("x", "2", "3"), nullptr, nullptr, shell));
    EXPECT_FALSE(system->InputCoords(Texts("1", "x", "3"), &plane, nullptr, shell));
    EXPECT_FALSE(system->InputCoords(Texts("1", "2", "x"), nullptr, nullptr, shell));
    EXPECT_FALSE(system->InputCoords(Texts("1", "2", "x"), nullptr, &height, shell));
}

TEST(GeodeticReferenceSystem, InputCoordsKeepsTheHeightForAnEmptyText) {
    auto const system = Geodetic(WithZeroShift());
    double shell[3] = {0, 0, 42};

    EXPECT_TRUE(system->InputCoords(Texts("1", "2", ""), nullptr, nullptr, shell));
    EXPECT_EQ(shell[2], 42);
}

TEST(GeodeticReferenceSystem, OutputCoordsPrintsInTheSystemsUnits) {
    auto const system = Geodetic(WithZeroShift());
    double const shell[3] = {45.123456789, -90.5, 12.3456};
    TShellCoords texts;

    system->OutputCoords(shell, &texts, nullptr, 4, nullptr, 2);

    EXPECT_EQ(texts.Coord[0], "45.1235");
    EXPECT_EQ(texts.Coord[1], "-90.5000");
    EXPECT_EQ(texts.Coord[2], "12.35");
}

TEST(GeodeticReferenceSystem, OutputCoordsConvertsToGivenUnits) {
    auto const system = Geodetic(WithZeroShift());
    TStringTree grad;
    FillUnit(&grad, Grad());
    TShellAngularUnit const plane(&grad);
    TStringTree foot;
    FillUnit(&foot, Foot());
    TShellLinearUnit const height(&foot);
    double const shell[3] = {45, -90, 304.8};
    TShellCoords texts;

    system->OutputCoords(shell, &texts, &plane, 3, &height, 1);

    EXPECT_EQ(texts.Coord[0], "50.000");
    EXPECT_EQ(texts.Coord[1], "-100.000");
    EXPECT_EQ(texts.Coord[2], "1000.0");
}

TEST(GeodeticReferenceSystem, OutputInAHemisphereNotationNeedsTheSystemsOwnUnit) {
    TGeodeticText text = WithZeroShift();
    text.angularUnit = HemisphereDegree();
    auto const system = Geodetic(text);
    TStringTree unit;
    FillUnit(&unit, HemisphereDegree());
    TShellUnitDegreeMinuteSecondHemisphere const plane(&unit);
    double const shell[3] = {-0.5, 37.5, 0};
    TShellCoords texts;

    system->OutputCoords(shell, &texts, nullptr, 2, nullptr, 0);
    EXPECT_EQ(texts.Coord[0], "0 30 0.00 S");
    EXPECT_EQ(texts.Coord[1], "37 30 0.00 E");
    // With a unit given, the axis isn't told to it.
    EXPECT_THROW(system->OutputCoords(shell, &texts, &plane, 2, nullptr, 0), std::logic_error);
}

TEST(GeodeticReferenceSystem, OutputCoordsDefHasTheUnitsPrecisions) {
    auto const system = Geodetic(WithZeroShift());
    double const shell[3] = {1, 2, 3};
    TShellCoords texts;

    system->OutputCoordsDef(shell, &texts);

    // ceil(log10(pi / 180) + 10) = 9 and ceil(log10(1) + 3) = 3 decimals.
    EXPECT_EQ(texts.Coord[0], "1.000000000");
    EXPECT_EQ(texts.Coord[1], "2.000000000");
    EXPECT_EQ(texts.Coord[2], "3.000");
}

// Answers

TEST(GeodeticReferenceSystem, AnswersForItsAxesAndUnits) {
    TGeodeticText text = WithZeroShift();
    text.heightUnit.abbreviation = "";
    auto const system = Geodetic(text);
    TCardinalDirection first = cdNone;
    TCardinalDirection second = cdNone;

    EXPECT_TRUE(system->IsLeft());
    EXPECT_TRUE(system->GetAxesDirections(&first, &second));
    EXPECT_EQ(first, cdNorth);
    EXPECT_EQ(second, cdEast);
    EXPECT_NEAR(system->GetPlaneUnitCoefToBase(), Pi / 180, 1e-17);
    EXPECT_EQ(system->GetPlaneUnitName(), "degree");
    EXPECT_EQ(system->GetPlaneUnitShortName(), "deg");
    EXPECT_EQ(system->GetPlaneUnitDefPrec(), 9);
    EXPECT_EQ(system->GetHeightUnitCoefToBase(), 1);
    EXPECT_EQ(system->GetHeightUnitName(), "metre");
    EXPECT_EQ(system->GetHeightUnitShortName(), "metre"); // the name where there is no abbreviation
    EXPECT_EQ(system->GetHeightUnitDefPrec(), 3);
}

TEST(GeodeticReferenceSystem, EqualityLooksAtGeometryUnitsAndTheLongitudeFlag) {
    auto const system = Geodetic(Pulkovo1942());
    TGeodeticText renamed = Pulkovo1942();
    renamed.name = "another";
    TGeodeticText grads = Pulkovo1942();
    grads.angularUnit = Grad();
    TGeodeticText feet = Pulkovo1942();
    feet.heightUnit = Foot();
    auto const positive = Geodetic(Pulkovo1942(), [](TStringTree* tree) { SetField(tree, 1111, "1"); });

    EXPECT_TRUE(*system == *Geodetic(renamed));
    EXPECT_FALSE(*system == *Geodetic(grads));
    EXPECT_FALSE(*system == *Geodetic(feet));
    EXPECT_FALSE(*system == *positive);
    EXPECT_FALSE(*system == *Geodetic(WithZeroShift()));
    TShellReferenceSystem const& base = *system;
    EXPECT_TRUE(*system == base);
    EXPECT_TRUE(base == *system);
}

TEST(GeodeticReferenceSystem, SurvivesXmlWithItsOwnKeys) {
    TGeodeticText text = Pulkovo1942();
    text.angularUnit = HemisphereDegree();
    auto const system = Geodetic(text, [](TStringTree* tree) { SetField(tree, 1111, "1"); });

    auto const read = ThroughXml(*system);

    EXPECT_TRUE(read->PositiveLongitude);
    EXPECT_NE(dynamic_cast<TShellUnitDegreeMinuteSecondHemisphere const*>(read->AngularUnit), nullptr);
    EXPECT_TRUE(*read == *system);
    double const shell[3] = {55, 37, 0};
    TCoords core;
    read->CoordsShellToCore(shell, &core);
    EXPECT_NEAR(core.Y, 55 * Pi / 180, 1e-15);
}

TEST(GeodeticReferenceSystem, AFailingWriterIsNoticedAtEveryWrite) {
    auto const system = Geodetic(Pulkovo1942());

    /** Fails at one write, and counts. */
    class TFailingWriter : public VellariHostKit::TXmlIniWriter {
    public:
        explicit TFailingWriter(int failing) : remaining(failing) {}
        int remaining;

    protected:
        bool WriteText(std::string const& key, std::string const& text) override {
            return remaining-- != 0 && TXmlIniWriter::WriteText(key, text);
        }
    };

    TFailingWriter counter(-1);
    ASSERT_TRUE(system->SaveToXML(&counter));
    int const writes = -1 - counter.remaining;
    ASSERT_GT(writes, 30);
    for (int failing = 0; failing < writes; ++failing) {
        TFailingWriter writer(failing);
        EXPECT_FALSE(system->SaveToXML(&writer)) << failing;
    }
}

// Area

std::vector<vec_t_<double, 3>> Square(double height) {
    return {{{0, 0, height}}, {{0, 1, height}}, {{1, 1, height}}, {{1, 0, height}}};
}

TEST(GeodeticReferenceSystem, TheAreaOfASquareDegreeAtTheEquator) {
    auto const system = Geodetic(WithZeroShift());

    // The equal-area projection's value; GeographicLib's Planimeter gives 12308778361.469 with geodesic
    // edges.
    EXPECT_NEAR(system->CalculateArea(Square(0)), 12308309698.66, 0.1);
    // Times the squared ratio of the radii at the mean point: (r + 1000)^2 / r^2.
    EXPECT_NEAR(system->CalculateArea(Square(1000)), 12312169533.49, 0.1);
}

TEST(GeodeticReferenceSystem, FewerThanThreePointsHaveNoArea) {
    auto const system = Geodetic(WithZeroShift());

    EXPECT_EQ(system->CalculateArea({}), 0.0);
    EXPECT_EQ(system->CalculateArea({{{0, 0, 0}}, {{1, 1, 0}}}), 0.0);
}

TEST(GeodeticReferenceSystem, NoCoreOrNoEllipsoidMeansNoArea) {
    auto const system = Geodetic(WithZeroShift());
    system->Ellipsoid->MajorSemiAxis = "no number";
    EXPECT_EQ(system->CalculateArea(Square(0)), 0.0);
    delete system->CoreRefSystem;
    system->CoreRefSystem = nullptr;
    EXPECT_EQ(system->CalculateArea(Square(0)), 0.0);
}

TEST(GeodeticReferenceSystem, AnAreaAcrossTheAntimeridianIsThatOfTheSamePolygonElsewhere) {
    auto const system = Geodetic(WithZeroShift());
    std::vector<vec_t_<double, 3>> const across = {
        {{0, 179.5, 0}}, {{0, -179.5, 0}}, {{1, -179.5, 0}}, {{1, 179.5, 0}}};

    EXPECT_NEAR(system->CalculateArea(across), system->CalculateArea(Square(0)), 1.0);
}

TEST(GeodeticReferenceSystem, TheMeanPointOfAPolygonAcrossTheAntimeridianLiesInIt) {
    auto const system = Geodetic(WithZeroShift());
    std::vector<vec_t_<double, 3>> const across = {
        {{0, 179.5, 1000}}, {{0, -179.5, 1000}}, {{1, -179.5, 1000}}, {{1, 179.5, 1000}}};

    // The radius doesn't depend on the longitude, so the height counts as at the square at longitude 0.
    EXPECT_NEAR(system->CalculateArea(across), 12312169533.49, 1.0);
}

} // namespace
} // namespace KvRefSystem
