#include "shell/refsystems/LocalReferenceSystems.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "tests/support/CartesianSystems.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

using TCartesian = TShellLocalCartesianReferenceSystem;
using TCurved = TShellLocalCurvedReferenceSystem;

constexpr char const* CartesianXmlMessage =
    "TShellLocalCartesianReferenceSystem::TShellLocalCartesianReferenceSystem(TKvXIniReader *xml)";
constexpr char const* CurvedXmlMessage =
    "TShellLocalCurvedReferenceSystem::TShellLocalCurvedReferenceSystem(TKvXIniReader *xml)";

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

std::string FieldOf(TStringTree const& tree, int tag, int idx = 0) {
    std::string value = "(none)";
    tree.GetString(tag, idx, &value);
    return value;
}

// XML

TEST(LocalDescriptions, WriteTheirKeysInTheirOrder) {
    EXPECT_EQ(KeysOf(XmlOf(*LiveCartesian(TLocalText()))),
              (std::vector<std::string>{"RefSystemType", "RefSystemName", "RefSystemTransform",
                                        "RefSystemOrientation", "RefSystemLinearUnit"}));
    EXPECT_EQ(
        KeysOf(XmlOf(*LiveCurved(Around("1", "2", Curved("1000"))))),
        (std::vector<std::string>{"RefSystemType", "RefSystemName", "RefSystemEllipsoid",
                                  "RefSystemTransform", "RefSystemOrientation", "RefSystemSphere",
                                  "RefSystemLinearUnit", "RefSystemOriginCoord1", "RefSystemOriginCoord2"}));
    EXPECT_EQ(KeysOf(XmlOf(*LiveCurved(Curved("1000")))).back(), "RefSystemLinearUnit");
}

TEST(LocalDescriptions, TheOrderInXmlIsTheOppositeOfTheTrees) {
    EXPECT_EQ(ValueOf(XmlOf(*LiveCartesian(Swapped(TLocalText(), 0))), "RefSystemOrientation"), "1");
    EXPECT_EQ(ValueOf(XmlOf(*LiveCartesian(Swapped(TLocalText(), 1))), "RefSystemOrientation"), "0");
    EXPECT_EQ(ValueOf(XmlOf(*LiveCurved(Swapped(Curved("1"), 0))), "RefSystemOrientation"), "1");
    EXPECT_EQ(ValueOf(XmlOf(*LiveCurved(Swapped(Curved("1"), 1))), "RefSystemOrientation"), "0");
    std::string const document = XmlOf(*LiveCartesian(TLocalText()));
    EXPECT_TRUE(FromXml<TCartesian>(WithValue(document, "RefSystemOrientation", "0"))->SwapAxes);
}

TEST(LocalCartesianDescriptions, SurvivesXml) {
    for (int const swap : {0, 1}) {
        auto const system = LiveCartesian(In(Foot(), Swapped(TLocalText(), swap)));
        auto const read = FromXml<TCartesian>(XmlOf(*system));

        EXPECT_EQ(read->SwapAxes, system->SwapAxes);
        EXPECT_TRUE(*read == *system);
        EXPECT_EQ(XmlOf(*read), XmlOf(*system));
        ASSERT_NE(read->Transform, nullptr);
        double point[3] = {1, 2, 3};
        read->OperateShellCoords(*system, point, false);
        EXPECT_NEAR(point[0], 1, 1e-14);
        EXPECT_NEAR(point[1], 2, 1e-14);
    }
}

TEST(LocalCurvedDescriptions, SurvivesXml) {
    for (bool const hasCentre : {false, true}) {
        TLocalText text = In(Foot(), Swapped(Around("1", "2", Curved("6.371")), 1));
        text.hasCentre = hasCentre;
        text.radiusUnit = Kilometre();
        auto const system = LiveCurved(text);
        auto const read = FromXml<TCurved>(XmlOf(*system));

        EXPECT_EQ(read->Orientation, rscoLeft);
        EXPECT_EQ(read->NoOrigin, !hasCentre);
        EXPECT_EQ(read->SphereRadiusText, "6.371");
        EXPECT_EQ(read->SphereUnit->Name, "kilometre");
        EXPECT_EQ(read->SphereRadius, system->SphereRadius);
        EXPECT_TRUE(*read == *system);
        EXPECT_TRUE(*read ^= *system);
        EXPECT_EQ(XmlOf(*read), XmlOf(*system));
        ASSERT_NE(read->Transform, nullptr);
    }
}

TEST(LocalCartesianDescriptions, XmlNeedsKindOrderAndUnit) {
    std::string const document = XmlOf(*LiveCartesian(TLocalText()));
    auto const thrown = [](std::string const& text) {
        return ThrownText([&] { FromXml<TCartesian>(text); });
    };
    for (char const* const key : {"RefSystemType", "RefSystemOrientation", "RefSystemLinearUnit"}) {
        EXPECT_EQ(thrown(WithoutKey(document, key)), CartesianXmlMessage) << key;
    }
    for (char const* const value : {"-1", "2", "right", ""}) {
        EXPECT_EQ(thrown(WithValue(document, "RefSystemOrientation", value)), CartesianXmlMessage) << value;
    }
    EXPECT_EQ(thrown(WithValue(document, "RefSystemType", "2")), CartesianXmlMessage);
    EXPECT_NO_THROW(FromXml<TCartesian>(WithoutKey(document, "RefSystemName")));
    EXPECT_EQ(ThrownText([] { TCartesian(static_cast<TKvXIniReader*>(nullptr), nullptr); }),
              CartesianXmlMessage);
}

TEST(LocalCurvedDescriptions, XmlNeedsKindOrderSphereAndUnit) {
    std::string const document = XmlOf(*LiveCurved(Around("1", "2", Curved("1000"))));
    auto const thrown = [](std::string const& text) { return ThrownText([&] { FromXml<TCurved>(text); }); };
    for (char const* const key :
         {"RefSystemType", "RefSystemOrientation", "RefSystemSphere", "RefSystemLinearUnit"}) {
        EXPECT_EQ(thrown(WithoutKey(document, key)), CurvedXmlMessage) << key;
    }
    for (char const* const value : {"-1", "2", "right", ""}) {
        EXPECT_EQ(thrown(WithValue(document, "RefSystemOrientation", value)), CurvedXmlMessage) << value;
    }
    EXPECT_EQ(thrown(WithValue(document, "RefSystemType", "1")), CurvedXmlMessage);
    EXPECT_EQ(thrown(WithValue(document, "RefSystemOriginCoord1", "west")), CurvedXmlMessage);
    EXPECT_EQ(thrown(Without(document, "<RefSystemSphereLinearUnit>", "</RefSystemSphereLinearUnit>")),
              CurvedXmlMessage);
    std::string broken = document;
    std::string const radius = "<RefSystemSphereRadius>1000<";
    broken.replace(broken.find(radius), radius.size(), "<RefSystemSphereRadius>wide<");
    EXPECT_EQ(thrown(broken), CurvedXmlMessage);
    EXPECT_EQ(ThrownText([] { TCurved(static_cast<TKvXIniReader*>(nullptr), nullptr); }), CurvedXmlMessage);
    for (char const* const key : {"RefSystemName", "RefSystemEllipsoid", "RefSystemTransform"}) {
        EXPECT_NO_THROW(FromXml<TCurved>(WithoutKey(document, key))) << key;
    }
}

TEST(LocalCurvedDescriptions, XmlWithHalfACentreHasNone) {
    std::string const document = XmlOf(*LiveCurved(Around("1", "2", Curved("1000"))));

    EXPECT_FALSE(FromXml<TCurved>(document)->NoOrigin);
    for (char const* const key : {"RefSystemOriginCoord1", "RefSystemOriginCoord2"}) {
        auto const read = FromXml<TCurved>(WithoutKey(document, key));
        EXPECT_TRUE(read->NoOrigin) << key;
        EXPECT_TRUE(*read == *LiveCurved(Curved("1000"))) << key;
    }
}

TEST(LocalCurvedDescriptions, XmlWithoutARadiusHasTheRadiusZero) {
    // Kept: an empty text reads as no number, which leaves 0.
    std::string const document =
        Without(XmlOf(*LiveCurved(Curved("1000"))), "<RefSystemSphereRadius>", "</RefSystemSphereRadius>");

    EXPECT_EQ(FromXml<TCurved>(document)->SphereRadius, 0);
}

TEST(LocalDescriptions, AFailedLoadLeavesAnEmptyObject) {
    auto const plane = LiveCartesian(Swapped(TLocalText(), 1));
    auto const curved = LiveCurved(Swapped(Around("1", "2", Curved("1000")), 1));
    VellariHostKit::TXmlIniReader planeReader;
    planeReader.LoadString(WithoutKey(XmlOf(*plane), "RefSystemLinearUnit"));
    VellariHostKit::TXmlIniReader curvedReader;
    curvedReader.LoadString(WithoutKey(XmlOf(*curved), "RefSystemLinearUnit"));

    EXPECT_FALSE(plane->LoadFromXML(&planeReader));
    EXPECT_FALSE(plane->SwapAxes);
    EXPECT_EQ(plane->LinearUnit, nullptr);
    EXPECT_FALSE(curved->LoadFromXML(&curvedReader));
    EXPECT_EQ(curved->SphereUnit, nullptr);
    EXPECT_EQ(curved->SphereRadiusText, "");
    EXPECT_EQ(curved->SphereRadius, 0);
    EXPECT_EQ(curved->Orientation, rscoRight);
}

TEST(LocalDescriptions, WithoutAUnitTheyAreNotWritten) {
    VellariHostKit::TXmlIniWriter writer;
    auto const plane = LiveCartesian(TLocalText());
    delete std::exchange(plane->LinearUnit, nullptr);
    auto const curved = LiveCurved(Curved("1000"));
    delete std::exchange(curved->SphereUnit, nullptr);

    EXPECT_FALSE(plane->SaveToXML(&writer));
    EXPECT_FALSE(curved->SaveToXML(&writer));
    EXPECT_FALSE(plane->SaveToXML(nullptr));
}

// Descriptions

TEST(LocalDescriptions, TheInternalSystemIsRightHandedCartesianInMetres) {
    std::unique_ptr<TShellReferenceSystem> const systems[] = {
        LiveCartesian(In(Foot(), Swapped(TLocalText(), 1))),
        LiveCurved(In(Foot(), Swapped(Curved("1000"), 1))), // meant: Cartesian also from the curved kind
        FromXml<TCartesian>(XmlOf(*LiveCartesian(TLocalText()))), // it needs no description
    };
    for (auto const& system : systems) {
        TStringTree tree;
        ASSERT_TRUE(system->FillInternalRefSystemTree(&tree, Texts("not", "even", "numbers")));

        EXPECT_EQ(FieldOf(tree, 1020), "Internal");
        EXPECT_EQ(FieldOf(tree, 1021), "Right, local cartesian, meters");
        EXPECT_EQ(FieldOf(tree, 1022), "Internal");
        EXPECT_EQ(FieldOf(tree, 1100), "1");
        EXPECT_EQ(FieldOf(tree, 1400), "0");
        EXPECT_EQ(FieldOf(tree, 1025, 0) + FieldOf(tree, 1025, 1) + FieldOf(tree, 1025, 2), "XYZ");
        EXPECT_EQ(FieldOf(tree, 1120), "(none)");
        EXPECT_EQ(tree.FindSubtree(1121, 0), nullptr);
        TStringTree const& unit = *tree.FindSubtree(1104, 0);
        EXPECT_EQ(unit.header, "linear unit");
        EXPECT_EQ(FieldOf(unit, 5301), "0");
        EXPECT_EQ(FieldOf(unit, 5312), "1");
        EXPECT_EQ(FieldOf(unit, 5310), "1");
        EXPECT_EQ(FieldOf(unit, 5311), "1");
        EXPECT_EQ(FieldOf(unit, 5320), "meter");
        EXPECT_EQ(FieldOf(unit, 5321), "m");
        EXPECT_EQ(FieldOf(unit, 5322), "generated (not from Db!)");
        auto const internal = Create(&tree);
        ASSERT_NE(internal, nullptr);
        EXPECT_EQ(internal->Type, rstLocalCartesian);
        EXPECT_FALSE(internal->IsLeft());
    }
}

TEST(LocalDescriptions, TheInternalSystemFailsOnATakenTag) {
    for (int const tag : {1020, 1021, 1022, 1100, 1400, 1025}) {
        TStringTree tree;
        SetField(&tree, tag, "taken");
        EXPECT_FALSE(LiveCartesian(TLocalText())->FillInternalRefSystemTree(&tree, Texts("", "", ""))) << tag;
    }
    TStringTree tree;
    Child(&tree, 1104);
    EXPECT_FALSE(LiveCurved(Curved("1"))->FillInternalRefSystemTree(&tree, Texts("", "", "")));
    EXPECT_FALSE(LiveCurved(Curved("1"))->FillInternalRefSystemTree(nullptr, Texts("", "", "")));
}

TEST(LocalDescriptions, NoSystemIsDerived) {
    std::unique_ptr<TShellReferenceSystem> const systems[] = {LiveCartesian(TLocalText()),
                                                              LiveCurved(Curved("1000"))};
    for (auto const& system : systems) {
        TStringTree tree;
        EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&tree), 1);
        EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&tree), 1);
        EXPECT_EQ(system->FillPrimaryGeocentricRefSystemTree(&tree), 1);
        EXPECT_EQ(FieldOf(tree, 1020), "(none)");
        EXPECT_EQ(tree.FindSubtree(1101, 0), nullptr);
    }
}

} // namespace
} // namespace KvRefSystem
