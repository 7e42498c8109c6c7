#include "shell/refsystems/TopocentricHorizontalReferenceSystem.h"

#include "core/refsystems/TopocentricHorizontalReferenceSystem.h"
#include "frame/NumberText.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "tests/support/CartesianSystems.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

using TSystem = TShellTopocentricHorizontalReferenceSystem;
using TPoint = std::array<double, 3>;

constexpr char const* Message =
    "TShellTopocentricHorizontalReferenceSystem(TStringTree *tree,TKvProgressHandler *prh)";
constexpr char const* XmlMessage =
    "TShellTopocentricHorizontalReferenceSystem::TShellTopocentricHorizontalReferenceSystem(TKvXIniReader "
    "*xml)";
constexpr char const* UnitMessage = "bool TShellUnit::StringToValue(const string& str, double *value) const";

/** Latitude 55, longitude 37, height 200 m on WGS 84. */
TTopocentricText Place() {
    TTopocentricText text;
    text.base = WithZeroShift();
    text.origin[0] = "55";
    text.origin[1] = "37";
    text.origin[2] = "200";
    return text;
}

TTopocentricText Turned(std::string const& azimuth, int swap = 0) {
    TTopocentricText text = Place();
    text.azimuth = azimuth;
    text.swap = swap;
    return text;
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

std::unique_ptr<TShellReferenceSystem> Geocentric() {
    TGeocentricText text;
    text.base = WithZeroShift();
    return Create(text);
}

std::string FieldOf(TStringTree const& tree, int tag, int idx = 0) {
    std::string value = "(none)";
    tree.GetString(tag, idx, &value);
    return value;
}

double NumberOf(TStringTree const& tree, int tag, int idx) {
    return ParseLeadingDouble(FieldOf(tree, tag, idx).c_str());
}

std::string ThrownBy(TTreeChange const& change) {
    return ThrownText([&] { Live(Turned("30"), change); });
}

std::string ThrownByXml(std::string const& document) {
    return ThrownText([&] { FromXml<TSystem>(document); });
}

// Construction

TEST(TopocentricHorizontalReferenceSystem, IsReadFromItsDescription) {
    auto const system = Live(Turned("30", 1));

    EXPECT_EQ(system->Type, rstTopocentricHorizontal);
    EXPECT_EQ(system->Name, "Test horizon");
    EXPECT_EQ(system->BaseGeodetic->Name, "WGS 84");
    EXPECT_EQ(system->LinearUnit->Name, "metre");
    EXPECT_EQ(system->Orientation, rscoLeft);
    EXPECT_EQ(system->OriginCoord[0], "55");
    EXPECT_EQ(system->OriginCoord[1], "37");
    EXPECT_EQ(system->OriginCoord[2], "200");
    EXPECT_EQ(system->Azimuth, "30");
    EXPECT_EQ(system->GeoTIFFType, "");
    ASSERT_NE(dynamic_cast<TTopocentricHorizontalReferenceSystem*>(system->CoreRefSystem), nullptr);
    EXPECT_TRUE(system->CoreRefSystem->ContainsDatum());
    // By mpmath, the geocentric place of the origin.
    auto const& core = dynamic_cast<TTopocentricHorizontalReferenceSystem&>(*system->CoreRefSystem);
    EXPECT_NEAR(core.Origin[0], 2928363.403579358, 1e-8);
    EXPECT_NEAR(core.Origin[1], 2206680.102940028, 1e-8);
    EXPECT_NEAR(core.Origin[2], 5201547.35361113, 1e-8);
}

TEST(TopocentricHorizontalReferenceSystem, ASwapOfZeroIsRightHanded) {
    EXPECT_EQ(Live(Turned("", 0))->Orientation, rscoRight);
    EXPECT_FALSE(Live(Turned("", 0))->IsLeft());
    for (int const swap : {1, 2, -1}) {
        EXPECT_EQ(Live(Turned("", swap))->Orientation, rscoLeft) << swap;
        EXPECT_TRUE(Live(Turned("", swap))->IsLeft()) << swap;
    }
}

TEST(TopocentricHorizontalReferenceSystem, NeedsOrderBaseUnitAndOrigin) {
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { tree->DeleteField(1400, 0); }), Message);
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { SetField(tree, 1400, "left"); }), Message);
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { tree->DeleteSubtree(1121, 0); }), Message);
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { tree->DeleteSubtree(1104, 0); }), Message);
    for (int const axis : {0, 1, 2}) {
        EXPECT_EQ(ThrownBy([&](TStringTree* tree) { tree->DeleteField(1120, axis); }), Message) << axis;
    }
}

TEST(TopocentricHorizontalReferenceSystem, BrokenPartsFailWithTheirOwnTexts) {
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { tree->FindSubtree(1104, 0)->DeleteField(5320, 0); }),
              "TShellUnit::TShellUnit(TStringTree *tree)");
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { tree->FindSubtree(1121, 0)->DeleteSubtree(1106, 0); }),
              "TShellGeodeticReferenceSystem(TStringTree *tree, TKvProgressHandler *prh)");
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { SetField(tree, 1120, "north", 0); }), UnitMessage);
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { SetField(tree, 1120, "high", 2); }), UnitMessage);
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { SetField(tree, 1122, "north-east"); }), UnitMessage);
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { tree->DeleteField(1020, 0); }),
              "TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)");
    EXPECT_EQ(ThrownText([] { TSystem(static_cast<TStringTree*>(nullptr), nullptr); }),
              "TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)");
}

TEST(TopocentricHorizontalReferenceSystem, AChainWithoutACoreFormFailsWithTheChainsText) {
    EXPECT_EQ(ThrownBy([](TStringTree* tree) { AddChainWithoutCoreForm(Child(tree, 1108), ""); }),
              "TShellRefSystemTransform::CreateCoreTransform");
}

TEST(TopocentricHorizontalReferenceSystem, AnEmptyThirdTextLeavesTheOriginAtHeightZero) {
    TTopocentricText empty = Place();
    empty.origin[2] = "";
    TTopocentricText zero = Place();
    zero.origin[2] = "0";

    EXPECT_TRUE(*Live(empty) == *Live(zero));
}

TEST(TopocentricHorizontalReferenceSystem, OriginAndAzimuthAreInTheUnitsOfTheBase) {
    TTopocentricText grads = Turned("33.333333333333333");
    grads.base.angularUnit = Grad();
    grads.base.heightUnit = Foot();
    grads.origin[0] = "61.1111111111111111";
    grads.origin[1] = "41.1111111111111111";
    grads.origin[2] = "656.16797900262467";

    ExpectNear(Transformed(*Live(grads), {200, 100, 300}, *Geocentric()),
               Transformed(*Live(Turned("30")), {200, 100, 300}, *Geocentric()), 1e-7);
}

TEST(TopocentricHorizontalReferenceSystem, AnOriginWithHemispheresIsRead) {
    TTopocentricText text = Place();
    text.base.angularUnit = HemisphereDegree();
    text.origin[0] = "55 0 0 N";
    text.origin[1] = "37 0 0 E";

    ExpectNear(Transformed(*Live(text), {1, 2, 3}, *Geocentric()),
               Transformed(*Live(Place()), {1, 2, 3}, *Geocentric()), 1e-8);
}

// Coordinates

TEST(TopocentricHorizontalReferenceSystem, AtLatitudeZeroTheAxesAreThoseOfTheEarth) {
    // Meant: in both orders the first shell coordinate is the one to the right of the azimuth.
    for (int const swap : {0, 1}) {
        TTopocentricText text;
        text.base = WithZeroShift();
        text.swap = swap;
        auto const system = Live(text);

        ExpectNear(Transformed(*system, {10, 20, 30}, *Geocentric()), {6378167, 10, 20}, 1e-8);
        ExpectNear(Transformed(*Geocentric(), {6378167, 10, 20}, *system), {10, 20, 30}, 1e-8);
        // By mpmath from (6378167, 10, 20).
        TPoint const geodetic = Transformed(*system, {10, 20, 30}, *Create(WithZeroShift()));
        EXPECT_NEAR(geodetic[0], 0.000180873039, 1e-11);
        EXPECT_NEAR(geodetic[1], 0.0000898311059, 1e-12);
        EXPECT_NEAR(geodetic[2], 30.0000394, 1e-6);
    }
}

TEST(TopocentricHorizontalReferenceSystem, TheAzimuthTurnsTheFrame) {
    // By mpmath: 100 m along azimuth 30, 200 m to its right, 300 m up; the second shell coordinate is the
    // one along the azimuth.
    TPoint const expected = {2928375.263631931, 2206968.523171376, 5201785.414757271};
    for (int const swap : {0, 1}) {
        ExpectNear(Transformed(*Live(Turned("30", swap)), {200, 100, 300}, *Geocentric()), expected, 1e-8);
        ExpectNear(Transformed(*Geocentric(), expected, *Live(Turned("30", swap))), {200, 100, 300}, 1e-8);
    }
}

TEST(TopocentricHorizontalReferenceSystem, AzimuthZeroIsNoAzimuth) {
    EXPECT_TRUE(*Live(Turned("0")) == *Live(Turned("")));
    EXPECT_TRUE(*Live(Turned("-0.0")) == *Live(Turned("")));
    auto const empty = Live(Place(), [](TStringTree* tree) { SetField(tree, 1122, ""); });
    EXPECT_EQ(empty->Azimuth, "");
    EXPECT_TRUE(*empty == *Live(Turned("0")));
}

TEST(TopocentricHorizontalReferenceSystem, TheLinearUnitIsThatOfAllThreeCoordinates) {
    TTopocentricText text = Turned("30");
    text.linearUnit = {0, 1, "1000", "1", "kilometre", "km"};

    ExpectNear(Transformed(*Live(text), {0.2, 0.1, 0.3}, *Geocentric()),
               {2928375.263631931, 2206968.523171376, 5201785.414757271}, 1e-8);
}

TEST(TopocentricHorizontalReferenceSystem, AFlippedChainWorksOnCoreCoordinates) {
    // A left-handed system's chain has its first number along the first shell coordinate, too.
    for (int const swap : {0, 1}) {
        auto const plain = Live(Turned("", swap));
        auto const shifted = Live(Turned("", swap), [](TStringTree* tree) { AddPlaneShift(tree, 100, 20); });

        ExpectNear(Transformed(*plain, {1, 2, 3}, *shifted), {101, 22, 3}, 1e-7);
    }
}

// Axes

TEST(TopocentricHorizontalReferenceSystem, DirectionsFollowTheOrder) {
    TCardinalDirection first = cdNone;
    TCardinalDirection second = cdNone;

    for (char const* const azimuth : {"", "0", "-0"}) {
        EXPECT_TRUE(Live(Turned(azimuth, 1))->GetAxesDirections(&first, &second)) << azimuth;
        EXPECT_EQ(first, cdNorth);
        EXPECT_EQ(second, cdEast);
        EXPECT_TRUE(Live(Turned(azimuth, 0))->GetAxesDirections(&first, &second)) << azimuth;
        EXPECT_EQ(first, cdEast);
        EXPECT_EQ(second, cdNorth);
    }
}

TEST(TopocentricHorizontalReferenceSystem, ATurnedSystemHasNoDirections) {
    TCardinalDirection first = cdSouth;
    TCardinalDirection second = cdWest;

    for (char const* const azimuth : {"5", "1e-300", "360", "nan"}) {
        EXPECT_FALSE(Live(Turned(azimuth))->GetAxesDirections(&first, &second)) << azimuth;
    }
    EXPECT_EQ(first, cdSouth);
    EXPECT_EQ(second, cdWest);
}

TEST(TopocentricHorizontalReferenceSystem, AnOrderThatIsNoneThrows) {
    auto const system = Live(Place());
    system->Orientation = static_cast<TReferenceSystemCartesianOrientation>(2);
    TCardinalDirection first = cdSouth;
    TCardinalDirection second = cdWest;

    EXPECT_THROW(system->GetAxesDirections(&first, &second), std::logic_error);
    EXPECT_EQ(ThrownText([&] { system->GetAxesDirections(&first, &second); }),
              "TShellTopocentricHorizontalReferenceSystem::GetAxesDirections");
    system->Azimuth = "5";
    EXPECT_FALSE(system->GetAxesDirections(&first, &second)); // the azimuth is looked at first
}

// Equality

TEST(TopocentricHorizontalReferenceSystem, EqualityLooksAtFrameAndUnit) {
    auto const system = Live(Turned("30"));
    TTopocentricText inFeet = Turned("30");
    inFeet.linearUnit = Foot();
    TTopocentricText higher = Turned("30");
    higher.origin[2] = "201";
    TTopocentricText onPulkovo = Turned("30");
    onPulkovo.base = Pulkovo1942();

    EXPECT_TRUE(*system == *Live(Turned("30")));
    EXPECT_FALSE(*system == *Live(inFeet));
    EXPECT_TRUE(*system ^= *Live(inFeet));
    EXPECT_FALSE(*system == *Live(Turned("31")));
    EXPECT_FALSE(*system == *Live(higher));
    EXPECT_FALSE(*system == *Live(onPulkovo));
    EXPECT_FALSE(*system == *Geocentric());
}

TEST(TopocentricHorizontalReferenceSystem, EqualityLeavesOrderAndTextsOut) {
    TTopocentricText otherTexts = Turned("3e1");
    otherTexts.origin[0] = "55.000";

    EXPECT_TRUE(*Live(Turned("30", 0)) == *Live(Turned("30", 1)));
    EXPECT_TRUE(*Live(Turned("30")) == *Live(otherTexts));
}

TEST(TopocentricHorizontalReferenceSystem, EqualityLeavesTheStoredKindOut) {
    auto const system = Live(Place());
    auto const other = Live(Place());
    other->Type = rstGeodetic;

    EXPECT_TRUE(*system == *other);
}

// Life

TEST(TopocentricHorizontalReferenceSystem, SimpleAnswers) {
    auto const system = Live(Place());
    double radius = 7;

    EXPECT_TRUE(system->IsGlobal());
    EXPECT_TRUE(system->IsTopocentricHorizontal());
    EXPECT_FALSE(system->IsGeocentric());
    EXPECT_FALSE(system->GetSphereRadius(&radius));
    EXPECT_EQ(system->CalculateArea({{{0, 0, 0}}, {{0, 1000, 0}}, {{1000, 1000, 0}}}), 0);
}

TEST(TopocentricHorizontalReferenceSystem, TheDatumShiftIsThatOfTheBase) {
    auto const system = Live(Place());
    TTopocentricText without;
    double numbers[7] = {};

    EXPECT_EQ(system->DatumShift, nullptr);
    EXPECT_EQ(system->GetDatumShift(), system->BaseGeodetic->DatumShift);
    EXPECT_NE(system->GetDatumShift(), nullptr);
    EXPECT_EQ(Live(without)->GetDatumShift(), nullptr);
    EXPECT_FALSE(system->GetDatumShiftParams(&numbers[0], &numbers[1], &numbers[2], &numbers[3], &numbers[4],
                                             &numbers[5], &numbers[6]));
}

TEST(TopocentricHorizontalReferenceSystem, ADatumCanBeMadeNonLinear) {
    TTopocentricText text = Place();
    text.base = Pulkovo1942();
    auto const system = Live(text);

    ASSERT_TRUE(system->SetNonLinearDatum(true));

    EXPECT_TRUE(system->CoreRefSystem->NonlinearDatum());
    int flag = 0;
    TStringTree const& base = *system->SavedTree->FindSubtree(1121, 0);
    EXPECT_TRUE(base.FindSubtree(1107, 0)->FindSubtree(1102, 0)->GetInteger(5469, 0, &flag));
    EXPECT_EQ(flag, 1);
}

TEST(TopocentricHorizontalReferenceSystem, ResetEmptiesAllButTheKind) {
    auto const system = Live(Turned("30", 1));
    system->Reset();

    EXPECT_EQ(system->Type, rstTopocentricHorizontal);
    EXPECT_EQ(system->BaseGeodetic, nullptr);
    EXPECT_EQ(system->LinearUnit, nullptr);
    EXPECT_EQ(system->Orientation, rscoRight);
    EXPECT_EQ(system->OriginCoord[0] + system->OriginCoord[1] + system->OriginCoord[2], "");
    EXPECT_EQ(system->Azimuth, "");
    EXPECT_EQ(system->CoreRefSystem, nullptr);
    EXPECT_EQ(system->GetDatumShift(), nullptr);
}

// XML

TEST(TopocentricHorizontalReferenceSystem, WritesItsKeysInTheirOrder) {
    EXPECT_EQ(KeysOf(XmlOf(*Live(Turned("30")))),
              (std::vector<std::string>{"RefSystemType", "RefSystemName", "RefSystemTransform",
                                        "RefSystemOrientation", "RefSystemOriginCoord1",
                                        "RefSystemOriginCoord2", "RefSystemOriginCoord3", "RefSystemAzimuth",
                                        "RefSystemLinearUnit", "RefSystemBaseGeodetic"}));
}

TEST(TopocentricHorizontalReferenceSystem, EmptyOriginTextsAreWrittenAnEmptyAzimuthIsNot) {
    TTopocentricText text;
    text.origin[2] = "";
    std::vector<std::string> const keys = KeysOf(XmlOf(*Live(text)));

    EXPECT_EQ(keys, (std::vector<std::string>{"RefSystemType", "RefSystemName", "RefSystemTransform",
                                              "RefSystemOrientation", "RefSystemOriginCoord1",
                                              "RefSystemOriginCoord2", "RefSystemOriginCoord3",
                                              "RefSystemLinearUnit", "RefSystemBaseGeodetic"}));
}

TEST(TopocentricHorizontalReferenceSystem, TheOrderIsWrittenAsItIsStored) {
    EXPECT_EQ(ValueOf(XmlOf(*Live(Turned("", 1))), "RefSystemOrientation"), "0");
    EXPECT_EQ(ValueOf(XmlOf(*Live(Turned("", 0))), "RefSystemOrientation"), "1");
}

TEST(TopocentricHorizontalReferenceSystem, SurvivesXml) {
    for (int const swap : {0, 1}) {
        TTopocentricText text = Turned("30", swap);
        text.base = Pulkovo1942();
        text.linearUnit = Foot();
        auto const system = Live(text);

        auto const read = FromXml<TSystem>(XmlOf(*system));

        EXPECT_EQ(read->Orientation, system->Orientation);
        EXPECT_EQ(read->OriginCoord[1], "37");
        EXPECT_EQ(read->Azimuth, "30");
        EXPECT_TRUE(*read == *system);
        EXPECT_EQ(XmlOf(*read), XmlOf(*system));
        EXPECT_EQ(read->SavedTree, nullptr);
        ASSERT_NE(read->Transform, nullptr);
        EXPECT_EQ(read->Transform->GetFirstTransform(), nullptr);
        EXPECT_EQ(Transformed(*read, {1, 2, 3}, *Geocentric()),
                  Transformed(*system, {1, 2, 3}, *Geocentric()));
    }
}

TEST(TopocentricHorizontalReferenceSystem, XmlNeedsKindOrderUnitAndBase) {
    std::string const document = XmlOf(*Live(Turned("30")));

    for (char const* const key :
         {"RefSystemType", "RefSystemOrientation", "RefSystemLinearUnit", "RefSystemBaseGeodetic"}) {
        EXPECT_EQ(ThrownByXml(WithoutKey(document, key)), XmlMessage) << key;
    }
    for (char const* const value : {"-1", "2", "left", ""}) {
        EXPECT_EQ(ThrownByXml(WithValue(document, "RefSystemOrientation", value)), XmlMessage) << value;
    }
    for (char const* const kind : {"1", "2", "3", "4", "5"}) {
        EXPECT_EQ(ThrownByXml(WithValue(document, "RefSystemType", kind)), XmlMessage) << kind;
    }
    EXPECT_EQ(ThrownText([] { TSystem(static_cast<TKvXIniReader*>(nullptr), nullptr); }), XmlMessage);
}

TEST(TopocentricHorizontalReferenceSystem, XmlWithoutOriginTextsLiesAtZero) {
    std::string document = XmlOf(*Live(Turned("30")));
    for (char const* const key : {"RefSystemOriginCoord1", "RefSystemOriginCoord2", "RefSystemOriginCoord3",
                                  "RefSystemAzimuth", "RefSystemName", "RefSystemTransform"}) {
        document = WithoutKey(document, key);
    }
    TTopocentricText zero;
    zero.base = WithZeroShift();

    EXPECT_TRUE(*FromXml<TSystem>(document) == *Live(zero));
}

TEST(TopocentricHorizontalReferenceSystem, EveryFailureOfXmlHasTheSameText) {
    std::string const document = XmlOf(*Live(Turned("30")));

    EXPECT_EQ(ThrownByXml(WithValue(document, "RefSystemOriginCoord1", "north")), XmlMessage);
    EXPECT_EQ(ThrownByXml(WithValue(document, "RefSystemAzimuth", "north-east")), XmlMessage);
    std::string broken = document;
    std::string const number = "<EllipsoidMajorSemiAxis>6378137<";
    broken.replace(broken.find(number), number.size(), "<EllipsoidMajorSemiAxis>long<");
    EXPECT_EQ(ThrownByXml(broken), XmlMessage);
}

TEST(TopocentricHorizontalReferenceSystem, AFailedLoadLeavesAnEmptyObject) {
    auto const system = Live(Turned("30", 1));
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(WithoutKey(XmlOf(*system), "RefSystemBaseGeodetic"));

    EXPECT_FALSE(system->LoadFromXML(&reader));
    EXPECT_EQ(system->LinearUnit, nullptr);
    EXPECT_EQ(system->BaseGeodetic, nullptr);
    EXPECT_EQ(system->Azimuth, "");
    EXPECT_EQ(system->OriginCoord[0], "");
    EXPECT_EQ(system->Orientation, rscoRight);
}

TEST(TopocentricHorizontalReferenceSystem, WithoutUnitOrBaseItIsNotWritten) {
    VellariHostKit::TXmlIniWriter writer;
    auto const withoutUnit = Live(Place());
    delete std::exchange(withoutUnit->LinearUnit, nullptr);
    auto const withoutBase = Live(Place());
    delete std::exchange(withoutBase->BaseGeodetic, nullptr);

    EXPECT_FALSE(withoutUnit->SaveToXML(&writer));
    EXPECT_FALSE(withoutBase->SaveToXML(&writer));
    EXPECT_FALSE(withoutBase->SaveToXML(nullptr));
}

// Descriptions

TEST(TopocentricHorizontalReferenceSystem, TheInternalSystemHasItsOriginInTheBase) {
    TTopocentricText text = Turned("30", 1);
    text.base.angularUnit = Grad();
    text.origin[0] = "61.1111111111111111";
    text.origin[1] = "41.1111111111111111";
    text.azimuth = "33.333333333333333";
    auto const system = Live(text);
    TStringTree tree;

    ASSERT_TRUE(system->FillInternalRefSystemTree(&tree, Texts("0", "0", "0")));

    EXPECT_EQ(FieldOf(tree, 1020), "Internal");
    EXPECT_EQ(FieldOf(tree, 1021), "Right, topocentric, meters");
    EXPECT_EQ(FieldOf(tree, 1100), "6");
    EXPECT_EQ(FieldOf(tree, 1400), "0");
    EXPECT_EQ(FieldOf(tree, 1122), "(none)");
    EXPECT_EQ(tree.FindSubtree(1121, 0)->header, "primary reference system");
    // The system's own origin, in the units of its base.
    EXPECT_NEAR(NumberOf(tree, 1120, 0), 61.1111111111111, 1e-10);
    EXPECT_NEAR(NumberOf(tree, 1120, 1), 41.1111111111111, 1e-10);
    EXPECT_NEAR(NumberOf(tree, 1120, 2), 200, 1e-5);
    auto const internal = Create(&tree);
    ASSERT_NE(internal, nullptr);
    // The internal system isn't turned: 200 m to the right of azimuth 30 and 100 m along it are
    // 200 cos 30 + 100 sin 30 east and 100 cos 30 - 200 sin 30 north.
    ExpectNear(Transformed(*system, {200, 100, 300}, *internal),
               {223.20508075688772, -13.39745962155614, 300}, 1e-5);
}

TEST(TopocentricHorizontalReferenceSystem, TheInternalSystemTakesOriginsInTheSystemsUnit) {
    TTopocentricText text = Place();
    text.linearUnit = {0, 1, "1000", "1", "kilometre", "km"};
    TStringTree tree;

    ASSERT_TRUE(Live(text)->FillInternalRefSystemTree(&tree, Texts("1", "2", "")));

    // cct +inv +proj=topocentric +lat_0=55 +lon_0=37 +h_0=200 and +inv +proj=cart of (1000, 2000, 0).
    EXPECT_NEAR(NumberOf(tree, 1120, 0), 55.017964059151, 1e-10);
    EXPECT_NEAR(NumberOf(tree, 1120, 1), 37.015632929011, 1e-10);
    EXPECT_NEAR(NumberOf(tree, 1120, 2), 200.391763661988, 1e-5);
}

TEST(TopocentricHorizontalReferenceSystem, TheInternalSystemFailsOnBadOriginsAndTakenTags) {
    auto const system = Live(Place());
    TStringTree bad;
    EXPECT_FALSE(system->FillInternalRefSystemTree(&bad, Texts("1", "x", "0")));
    EXPECT_EQ(FieldOf(bad, 1120), "(none)");
    for (int const tag : {1020, 1120}) {
        TStringTree tree;
        SetField(&tree, tag, "taken");
        EXPECT_FALSE(system->FillInternalRefSystemTree(&tree, Texts("0", "0", "0"))) << tag;
    }
    TStringTree taken;
    Child(&taken, 1121);
    EXPECT_FALSE(system->FillInternalRefSystemTree(&taken, Texts("0", "0", "0")));
    EXPECT_FALSE(system->FillInternalRefSystemTree(nullptr, Texts("0", "0", "0")));
}

TEST(TopocentricHorizontalReferenceSystem, DerivedSystemsComeFromTheBase) {
    TTopocentricText text = Turned("30");
    text.base = Pulkovo1942();
    auto const system = Live(text);
    TStringTree geodetic;
    TStringTree degrees;
    TStringTree geocentric;

    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTree(&geodetic), 0);
    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&degrees), 0);
    ASSERT_EQ(system->FillPrimaryGeocentricRefSystemTree(&geocentric), 0);

    EXPECT_EQ(FieldOf(geodetic, 1020), "Geodetic");
    EXPECT_EQ(FieldOf(geocentric, 1020), "Geocentric");
    EXPECT_TRUE(*Create(&geodetic) ^= *Create(Pulkovo1942()));
    EXPECT_TRUE(*Create(&degrees) ^= *Create(Pulkovo1942()));
    TGeocentricText expected;
    expected.base = Pulkovo1942();
    EXPECT_TRUE(*Create(&geocentric) ^= *Create(expected));
    // Meant: the name of the form in degrees ends in the system's own datum name, and it has none.
    EXPECT_EQ(FieldOf(degrees, 1020).back(), ' ');
}

TEST(TopocentricHorizontalReferenceSystem, ABaseWithAnEllipsoidAloneIsEnough) {
    auto const system = Live(TTopocentricText());
    TStringTree geodetic;
    TStringTree degrees;
    TStringTree geocentric;

    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&geodetic), 0);
    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&degrees), 0);
    EXPECT_EQ(system->FillPrimaryGeocentricRefSystemTree(&geocentric), 0);
    EXPECT_NE(geodetic.FindSubtree(1103, 0), nullptr);
    EXPECT_EQ(geocentric.FindSubtree(1103, 0), nullptr);
}

TEST(TopocentricHorizontalReferenceSystem, AMissingBaseIsNine) {
    auto const system = Live(Place());
    system->SavedTree->DeleteSubtree(1121, 0);
    TStringTree tree;

    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&tree), 9);
    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&tree), 9);
    EXPECT_EQ(system->FillPrimaryGeocentricRefSystemTree(&tree), 9);
    EXPECT_FALSE(system->FillInternalRefSystemTree(&tree, Texts("0", "0", "0")));
    auto const read = FromXml<TSystem>(XmlOf(*system));
    EXPECT_EQ(read->FillPrimaryGeodeticRefSystemTree(&tree), 9);
    EXPECT_FALSE(read->FillInternalRefSystemTree(&tree, Texts("0", "0", "0")));
}

TEST(TopocentricHorizontalReferenceSystem, ABaseWithoutItsMeridianIsNine) {
    auto const system =
        Live(Place(), [](TStringTree* tree) { tree->FindSubtree(1121, 0)->DeleteSubtree(1101, 0); });
    TStringTree tree;

    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&tree), 9);
}

} // namespace
} // namespace KvRefSystem
