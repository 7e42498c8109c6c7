#include "frame/NumberText.h"
#include "shell/refsystems/GeocentricReferenceSystem.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "tests/support/CartesianSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

using TSystem = TShellGeocentricReferenceSystem;

std::string FieldOf(TStringTree const& tree, int tag, int idx = 0) {
    std::string value = "(none)";
    tree.GetString(tag, idx, &value);
    return value;
}

std::string HeaderOf(TStringTree const& tree, int tag) {
    TStringTree const* const child = tree.FindSubtree(tag, 0);
    return child ? child->header : "(none)";
}

double NumberOf(TStringTree const& tree, int tag, int idx) {
    return ParseLeadingDouble(FieldOf(tree, tag, idx).c_str());
}

std::vector<std::string> NamesOf(TStringTree const& tree) {
    return {FieldOf(tree, 1020),    FieldOf(tree, 1021),    FieldOf(tree, 1022),   FieldOf(tree, 1100),
            FieldOf(tree, 1025, 0), FieldOf(tree, 1025, 1), FieldOf(tree, 1025, 2)};
}

TGeocentricText On(TGeodeticText const& base) {
    TGeocentricText text;
    text.base = base;
    return text;
}

// The internal system

TEST(GeocentricDescriptions, TheInternalSystemOfADatumHasItsOriginOnTheDatum) {
    auto const system = Live(On(Pulkovo1942()));
    TStringTree tree;

    // 55 N, 37 E, 200 m on WGS 84 by mpmath; here the ellipsoid is the datum's, so other numbers come out.
    ASSERT_TRUE(system->FillInternalRefSystemTree(
        &tree, Texts("2928363.403579358", "2206680.102940028", "5201547.35361113")));

    EXPECT_EQ(NamesOf(tree), (std::vector<std::string>{"Internal", "Right, topocentric, meters", "Internal",
                                                       "6", "X", "Y", "Z"}));
    EXPECT_EQ(FieldOf(tree, 1400), "0");
    EXPECT_EQ(HeaderOf(tree, 1121), "primary reference system");
    TStringTree const& base = *tree.FindSubtree(1121, 0);
    EXPECT_EQ(NamesOf(base),
              (std::vector<std::string>{"Geodetic", "Auto-generated", "geod", "4", "Lat", "Lon", "H"}));
    EXPECT_EQ(HeaderOf(base, 1101), "prime meridian");
    EXPECT_EQ(HeaderOf(base, 1106), "angular units");
    EXPECT_EQ(HeaderOf(base, 1107), "datum shift");
    EXPECT_EQ(HeaderOf(base, 1201), "vertical reference system");
    EXPECT_EQ(HeaderOf(*base.FindSubtree(1201, 0), 1104), "height linear unit");
    EXPECT_EQ(base.FindSubtree(1103, 0), nullptr);
    EXPECT_EQ(FieldOf(*base.FindSubtree(1107, 0), 5620), "Test datum");
    // cct +inv +proj=cart +ellps=krass
    EXPECT_NEAR(NumberOf(tree, 1120, 0), 54.999977143598, 1e-11);
    EXPECT_NEAR(NumberOf(tree, 1120, 1), 37, 1e-12);
    EXPECT_NEAR(NumberOf(tree, 1120, 2), 90.187378049828, 1e-5);
}

TEST(GeocentricDescriptions, TheOriginsNumbersAreThoseOfTheConversion) {
    auto const system = Live(On(WithZeroShift()));
    TStringTree tree;

    ASSERT_TRUE(system->FillInternalRefSystemTree(
        &tree, Texts("2928363.403579358", "2206680.102940028", "5201547.35361113")));

    EXPECT_NEAR(NumberOf(tree, 1120, 0), 55, 1e-11);
    EXPECT_NEAR(NumberOf(tree, 1120, 1), 37, 1e-12);
    EXPECT_NEAR(NumberOf(tree, 1120, 2), 200, 1e-5);
}

TEST(GeocentricDescriptions, TheInternalSystemIsATangentPlaneAtItsOrigin) {
    auto const system = Live(On(WithZeroShift()));
    TStringTree tree;
    ASSERT_TRUE(system->FillInternalRefSystemTree(
        &tree, Texts("2928363.403579358", "2206680.102940028", "5201547.35361113")));
    auto const internal = Create(&tree);
    ASSERT_NE(internal, nullptr);
    double point[3] = {};

    // 10 m east, 20 m north, 30 m up of 55 N, 37 E, by mpmath from the axes east = (-sl, cl, 0),
    // north = (-sp cl, -sp sl, cp), up = (cp cl, cp sl, sp).
    ASSERT_TRUE(TransformCoords(internal.get(), 10, 20, 30, system.get(), &point[0], &point[1], &point[2]));
    EXPECT_NEAR(point[0],
                2928363.403579358 - 10 * 0.6018150231520483 - 20 * 0.6542039106970216 +
                    30 * 0.4580785097963263,
                1e-4);
    EXPECT_NEAR(point[1],
                2206680.102940028 + 10 * 0.7986355100472928 - 20 * 0.4929780064988273 +
                    30 * 0.3451869163220742,
                1e-4);
    EXPECT_NEAR(point[2], 5201547.35361113 + 20 * 0.5735764363510461 + 30 * 0.8191520442889918, 1e-4);
}

TEST(GeocentricDescriptions, WithoutADatumASphereGoesThroughTheOrigin) {
    auto const system = Live(TGeocentricText());
    TStringTree tree;

    ASSERT_TRUE(system->FillInternalRefSystemTree(&tree, Texts("6378137", "0", "0")));

    TStringTree const& base = *tree.FindSubtree(1121, 0);
    EXPECT_EQ(base.FindSubtree(1107, 0), nullptr);
    EXPECT_EQ(HeaderOf(base, 1103), "ellipsoid (generated sphere)");
    TStringTree const& sphere = *base.FindSubtree(1103, 0);
    EXPECT_EQ(FieldOf(sphere, 5120), "sphere");
    EXPECT_EQ(FieldOf(sphere, 5121), "auto-generated");
    EXPECT_EQ(FieldOf(sphere, 5110), "6378137");
    EXPECT_EQ(FieldOf(sphere, 5111), "6378137");
    EXPECT_EQ(FieldOf(sphere, 5114), "0");
    EXPECT_EQ(FieldOf(sphere, 5115), "0");
    EXPECT_EQ(HeaderOf(sphere, 5113), "ellipsoid linear units");
    EXPECT_EQ(FieldOf(*sphere.FindSubtree(5113, 0), 5320), "metre");
    EXPECT_EQ(FieldOf(tree, 1120, 0), "0");
    EXPECT_EQ(FieldOf(tree, 1120, 1), "0");
    EXPECT_EQ(FieldOf(tree, 1120, 2), "0");
    EXPECT_EQ(tree.FindSubtree(1121, 0)->FindSubtree(1103, 0)->FindSubtree(5112, 0), nullptr);
}

TEST(GeocentricDescriptions, TheSphereIsInTheSystemsUnit) {
    TGeocentricText text;
    text.linearUnit = {0, 1, "1000", "1", "kilometre", "km"};
    TStringTree tree;

    // 2, 3 and 6 km have the length 7 km.
    ASSERT_TRUE(Live(text)->FillInternalRefSystemTree(&tree, Texts("2", "3", "6")));

    TStringTree const& base = *tree.FindSubtree(1121, 0);
    TStringTree const& sphere = *base.FindSubtree(1103, 0);
    EXPECT_EQ(FieldOf(sphere, 5110), "7");
    EXPECT_EQ(FieldOf(*sphere.FindSubtree(5113, 0), 5320), "kilometre");
    EXPECT_EQ(FieldOf(*base.FindSubtree(1201, 0)->FindSubtree(1104, 0), 5320), "kilometre");
    // By hand: asin(6 / 7) and atan(3 / 2).
    EXPECT_NEAR(NumberOf(tree, 1120, 0), 58.99728086612601, 1e-10);
    EXPECT_NEAR(NumberOf(tree, 1120, 1), 56.30993247402022, 1e-12);
    EXPECT_NEAR(NumberOf(tree, 1120, 2), 0, 1e-12);
}

TEST(GeocentricDescriptions, AnEllipsoidAloneIsReplacedByTheSphere) {
    auto const system = Live(TGeocentricText());
    TStringTree tree;

    ASSERT_NE(system->Ellipsoid, nullptr);
    ASSERT_TRUE(system->FillInternalRefSystemTree(&tree, Texts("0", "7000000", "0")));

    EXPECT_EQ(FieldOf(*tree.FindSubtree(1121, 0)->FindSubtree(1103, 0), 5110), "7000000");
    EXPECT_EQ(FieldOf(*system->SavedTree->FindSubtree(1103, 0), 5110), "6378137");
    EXPECT_EQ(FieldOf(tree, 1120, 1), "90");
}

TEST(GeocentricDescriptions, TheEarthsCentreGivesASphereOfRadiusZero) {
    TStringTree tree;

    ASSERT_TRUE(Live(TGeocentricText())->FillInternalRefSystemTree(&tree, Texts("0", "0", "0")));

    TStringTree const& sphere = *tree.FindSubtree(1121, 0)->FindSubtree(1103, 0);
    EXPECT_EQ(FieldOf(sphere, 5110), "0");
    EXPECT_EQ(FieldOf(sphere, 5111), "0");
    // Meant: the centre isn't guarded, there is no latitude.
    EXPECT_NE(FieldOf(tree, 1120, 0).find("nan"), std::string::npos);
}

TEST(GeocentricDescriptions, AnEmptyThirdTextOfTheOriginIsZero) {
    TStringTree tree;

    ASSERT_TRUE(Live(TGeocentricText())->FillInternalRefSystemTree(&tree, Texts("3000000", "4000000", "")));

    EXPECT_EQ(FieldOf(*tree.FindSubtree(1121, 0)->FindSubtree(1103, 0), 5110), "5000000");
    EXPECT_NEAR(NumberOf(tree, 1120, 0), 0, 1e-12);
}

TEST(GeocentricDescriptions, AnOriginThatDoesNotParseFails) {
    TStringTree onDatum;
    TStringTree onSphere;

    EXPECT_FALSE(Live(On(WithZeroShift()))->FillInternalRefSystemTree(&onDatum, Texts("x", "0", "0")));
    EXPECT_EQ(FieldOf(onDatum, 1120), "(none)");
    EXPECT_EQ(ThrownText([&] {
                  Live(TGeocentricText())->FillInternalRefSystemTree(&onSphere, Texts("x", "0", "0"));
              }),
              "bool TShellUnit::StringToValue(const string& str, double *value) const");
}

TEST(GeocentricDescriptions, TheInternalSystemTakesTheMeridiansUnit) {
    TGeocentricText text = On(WithZeroShift());
    text.base.meridian = "10";
    text.base.meridianUnit = Grad();
    TStringTree tree;

    ASSERT_TRUE(Live(text)->FillInternalRefSystemTree(&tree, Texts("0", "6378137", "0")));

    EXPECT_EQ(FieldOf(*tree.FindSubtree(1121, 0)->FindSubtree(1106, 0), 5320), "grad");
    // The system's own axes: its meridian turns nothing here.
    EXPECT_NEAR(NumberOf(tree, 1120, 1), 100, 1e-12);
}

TEST(GeocentricDescriptions, TheInternalSystemNeedsAMeridianWithItsUnit) {
    auto const without = Live(On(WithZeroShift()), [](TStringTree* tree) { tree->DeleteSubtree(1101, 0); });
    auto const withoutUnit = Live(On(WithZeroShift()), [](TStringTree* tree) {
        TStringTree* const meridian = tree->FindSubtree(1101, 0);
        meridian->DeleteSubtree(5211, 0);
        FillUnit(meridian, Degree());
    });
    TStringTree first;
    TStringTree second;

    EXPECT_FALSE(without->FillInternalRefSystemTree(&first, Texts("6378137", "0", "0")));
    EXPECT_FALSE(withoutUnit->FillInternalRefSystemTree(&second, Texts("6378137", "0", "0")));
}

TEST(GeocentricDescriptions, TheInternalSystemFailsOnATakenTag) {
    auto const system = Live(On(WithZeroShift()));
    for (int const tag : {1020, 1400, 1120}) {
        TStringTree tree;
        SetField(&tree, tag, "taken");
        EXPECT_FALSE(system->FillInternalRefSystemTree(&tree, Texts("6378137", "0", "0"))) << tag;
    }
    for (int const tag : {1104, 1121}) {
        TStringTree tree;
        Child(&tree, tag);
        EXPECT_FALSE(system->FillInternalRefSystemTree(&tree, Texts("6378137", "0", "0"))) << tag;
    }
    EXPECT_FALSE(system->FillInternalRefSystemTree(nullptr, Texts("6378137", "0", "0")));
}

TEST(GeocentricDescriptions, TheDescriptionItselfStaysAsItWas) {
    auto const system = Live(On(Pulkovo1942()));
    std::string const before = TextOf(*system->SavedTree);
    TStringTree internal;
    TStringTree geodetic;

    ASSERT_TRUE(system->FillInternalRefSystemTree(&internal, Texts("6378137", "0", "0")));
    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTree(&geodetic), 0);

    EXPECT_EQ(TextOf(*system->SavedTree), before);
}

// Derived systems

TEST(GeocentricDescriptions, TheGeodeticSystemIsOnTheDatum) {
    auto const system = Live(On(Pulkovo1942()));
    TStringTree tree;

    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTree(&tree), 0);

    EXPECT_EQ(NamesOf(tree),
              (std::vector<std::string>{"Geodetic", "Auto-generated", "geod", "4", "Lat", "Lon", "H"}));
    EXPECT_EQ(HeaderOf(tree, 1107), "datum");
    auto const geodetic = Create(&tree);
    TGeodeticText expected = Pulkovo1942();
    expected.angularUnit = Radian();
    ASSERT_NE(geodetic, nullptr);
    EXPECT_TRUE(*geodetic ^= *Create(expected));
    EXPECT_EQ(geodetic->GetPlaneUnitCoefToBase(), 1);
    EXPECT_EQ(geodetic->GetHeightUnitCoefToBase(), 1);
}

TEST(GeocentricDescriptions, TheGeodeticSystemInDegreesIsNamedAfterTheDatum) {
    auto const system = Live(On(Pulkovo1942()));
    TStringTree tree;

    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&tree), 0);

    std::string const name = FieldOf(tree, 1020);
    std::string const datum = " Test datum";
    ASSERT_GT(name.size(), datum.size());
    EXPECT_EQ(name.substr(name.size() - datum.size()), datum);
    EXPECT_EQ(FieldOf(tree, 1021), "");
    EXPECT_EQ(FieldOf(tree, 1022), "");
    auto const geodetic = Create(&tree);
    ASSERT_NE(geodetic, nullptr);
    EXPECT_TRUE(*geodetic ^= *Create(Pulkovo1942()));
    EXPECT_DOUBLE_EQ(geodetic->GetPlaneUnitCoefToBase(), 0.017453292519943295);
}

TEST(GeocentricDescriptions, TheGeocentricSystemIsInMetres) {
    TGeocentricText text = On(Pulkovo1942());
    text.linearUnit = Foot();
    auto const system = Live(text);
    TStringTree tree;

    ASSERT_EQ(system->FillPrimaryGeocentricRefSystemTree(&tree), 0);

    EXPECT_EQ(NamesOf(tree),
              (std::vector<std::string>{"Geocentric", "Auto-generated", "geoc", "3", "X", "Y", "Z"}));
    EXPECT_EQ(tree.FindSubtree(1201, 0), nullptr);
    auto const geocentric = Create(&tree);
    ASSERT_NE(geocentric, nullptr);
    EXPECT_TRUE(*geocentric ^= *system);
    EXPECT_EQ(geocentric->GetPlaneUnitCoefToBase(), 1);
}

TEST(GeocentricDescriptions, WithoutADatumTheStatusTellsTheForm) {
    // Meant: an ellipsoid is no way out here, as it is in the geodetic kind.
    auto const system = Live(TGeocentricText());
    TStringTree geodetic;
    TStringTree degrees;
    TStringTree geocentric;

    ASSERT_NE(system->Ellipsoid, nullptr);
    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&geodetic), 2);
    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&degrees), 2);
    EXPECT_EQ(system->FillPrimaryGeocentricRefSystemTree(&geocentric), 9);
}

TEST(GeocentricDescriptions, AMissingMeridianIsNine) {
    auto const system = Live(TGeocentricText(), [](TStringTree* tree) { tree->DeleteSubtree(1101, 0); });
    auto const onDatum = Live(On(WithZeroShift()), [](TStringTree* tree) { tree->DeleteSubtree(1101, 0); });
    for (TSystem const* const each : {system.get(), onDatum.get()}) {
        TStringTree geodetic;
        TStringTree degrees;
        TStringTree geocentric;
        EXPECT_EQ(each->FillPrimaryGeodeticRefSystemTree(&geodetic), 9);
        EXPECT_EQ(each->FillPrimaryGeodeticRefSystemTreeDeg(&degrees), 9);
        EXPECT_EQ(each->FillPrimaryGeocentricRefSystemTree(&geocentric), 9);
    }
}

TEST(GeocentricDescriptions, ATakenTagIsNine) {
    auto const system = Live(On(WithZeroShift()));
    for (int const tag : {1101, 1107}) {
        TStringTree geodetic;
        TStringTree degrees;
        TStringTree geocentric;
        for (TStringTree* const tree : {&geodetic, &degrees, &geocentric}) {
            Child(tree, tag);
        }
        EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&geodetic), 9) << tag;
        EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&degrees), 9) << tag;
        EXPECT_EQ(system->FillPrimaryGeocentricRefSystemTree(&geocentric), 9) << tag;
    }
    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(nullptr), 9);
}

TEST(GeocentricDescriptions, ASystemWithoutADescriptionFillsNothing) {
    auto const system = Live(On(WithZeroShift()));
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(system->SaveToXML(&writer));
    auto const read = FromXml<TSystem>(writer.ToString());
    TStringTree tree;

    EXPECT_FALSE(read->FillInternalRefSystemTree(&tree, Texts("6378137", "0", "0")));
    EXPECT_EQ(read->FillPrimaryGeodeticRefSystemTree(&tree), 9);
    EXPECT_EQ(read->FillPrimaryGeodeticRefSystemTreeDeg(&tree), 9);
    EXPECT_EQ(read->FillPrimaryGeocentricRefSystemTree(&tree), 9);
}

} // namespace
} // namespace KvRefSystem
