#include "shell/refsystems/VerticalReferenceSystem.h"

#include "hostkit/XmlIni.h"
#include "tests/support/Descriptions.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

TShellVerticalReferenceSystem Vertical(TUnitText const& unit, std::string const& header) {
    TStringTree tree;
    FillUnit(Child(&tree, 1104, 0, header), unit);
    return TShellVerticalReferenceSystem(&tree);
}

std::string ThrownText(TKvXIniReader* reader) {
    try {
        TShellVerticalReferenceSystem const system(reader);
        return "nothing thrown";
    } catch (std::runtime_error const& failure) {
        return failure.what();
    }
}

TEST(VerticalReferenceSystem, TakesItsHeightUnitFromTheTree) {
    TShellVerticalReferenceSystem const system = Vertical(Foot(), "height");

    ASSERT_NE(system.HeightUnit, nullptr);
    EXPECT_EQ(system.HeightUnit->Name, "foot");
    EXPECT_DOUBLE_EQ(system.HeightUnit->CoefToBase, 0.3048);
}

TEST(VerticalReferenceSystem, BuildsWithoutAUnitAndHasNoForms) {
    TStringTree tree;
    TShellVerticalReferenceSystem const system(&tree);
    std::string text = "kept";
    VellariHostKit::TXmlIniWriter writer;

    EXPECT_EQ(system.HeightUnit, nullptr);
    EXPECT_FALSE(system.ExportToWKT(&text));
    EXPECT_EQ(text, "kept");
    EXPECT_FALSE(system.SaveToXML(&writer));
}

TEST(VerticalReferenceSystem, IsEqualByItsUnitWhateverTheHeaders) {
    TShellVerticalReferenceSystem const first = Vertical(Metre(), "height linear unit");
    TShellVerticalReferenceSystem const second = Vertical(Metre(), "another label");
    TShellVerticalReferenceSystem const third = Vertical(Foot(), "height linear unit");

    EXPECT_TRUE(first == second);
    EXPECT_FALSE(first == third);
}

TEST(VerticalReferenceSystem, TwoMissingUnitsAreEqualAndOneIsNot) {
    TStringTree empty;
    TShellVerticalReferenceSystem const first(&empty);
    TShellVerticalReferenceSystem const second(&empty);
    TShellVerticalReferenceSystem const metre = Vertical(Metre(), "height");

    EXPECT_TRUE(first == second);
    EXPECT_FALSE(first == metre);
    EXPECT_FALSE(metre == first);
}

TEST(VerticalReferenceSystem, WritesEllipsoidalHeightsAsWkt) {
    std::string text;

    ASSERT_TRUE(Vertical(Metre(), "height").ExportToWKT(&text));
    EXPECT_EQ(text, "VERT_CS[\"height above ellipsoid\",VERT_DATUM[\"ellipsoidal\",2002],UNIT[\"metre\",1],"
                    "AXIS[\"Up\",UP]]");
}

TEST(VerticalReferenceSystem, SurvivesXml) {
    TShellVerticalReferenceSystem const system = Vertical(Foot(), "height");
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(system.SaveToXML(&writer));
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());

    TShellVerticalReferenceSystem const read(&reader);

    EXPECT_TRUE(read == system);
    EXPECT_NE(writer.ToString().find("<VerticalLinearUnit>"), std::string::npos);
}

TEST(VerticalReferenceSystem, XmlWithoutTheSectionFailsWithItsMessage) {
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString("<Vellari><Other/></Vellari>");

    EXPECT_EQ(ThrownText(&reader),
              "TShellVerticalReferenceSystem::TShellVerticalReferenceSystem(TKvXIniReader *xml)");
}

TEST(VerticalReferenceSystem, XmlWithABadUnitFailsWithItsMessageAndLeavesTheSection) {
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(
        "<Vellari><VerticalLinearUnit><UnitType>2</UnitType></VerticalLinearUnit><After>1</After></Vellari>");

    EXPECT_EQ(ThrownText(&reader),
              "TShellVerticalReferenceSystem::TShellVerticalReferenceSystem(TKvXIniReader *xml)");
    EXPECT_NE(reader.FindF("After", 0), TKvXIniReader::NotFound);
}

TEST(VerticalReferenceSystem, ResetFreesTheUnit) {
    TStringTree tree;
    FillUnit(Child(&tree, 1104), Metre());
    TShellVerticalReferenceSystem system(&tree);

    system.Reset();

    EXPECT_EQ(system.HeightUnit, nullptr);
}

static_assert(sizeof(TShellVerticalReferenceSystem) == 16);

} // namespace
} // namespace KvRefSystem
