#include "tests/catalog/Entries.h"

#include "frame/imported/StringTree.h"

#include <gtest/gtest.h>

namespace VellariTest {

namespace {

using namespace KvRefSystem;

class CatalogEntry : public testing::TestWithParam<std::string> {};

/** All but the first line, whose header is a label of the writer's choice. */
std::string withoutTitle(std::string const& text) {
    return text.substr(text.find('\n'));
}

std::string fieldText(LumCommonUtils::TStringTree const& tree, int tag, int idx) {
    std::string text;
    EXPECT_TRUE(tree.GetString(tag, idx, &text)) << "no field " << tag << "," << idx;
    return text;
}

TEST_P(CatalogEntry, BuildsASystem) {
    auto const system = BuildEntry(GetParam());
    ASSERT_NE(system, nullptr);
    EXPECT_EQ(system->IsLatLon(), system->Type == rstGeodetic);
    EXPECT_EQ(system->IsGlobal(), system->Type != rstLocalCartesian && system->Type != rstLocalCurved);
    EXPECT_NE(system->CoreRefSystem, nullptr);
}

TEST_P(CatalogEntry, ComesBackEqualFromItsOwnText) {
    auto const system = BuildEntry(GetParam());
    ASSERT_NE(system, nullptr);
    std::string text;
    ASSERT_TRUE(system->WriteToString(text));
    // Kept: the written text has a zero byte of its own as its last character.
    ASSERT_FALSE(text.empty());
    ASSERT_EQ(text.back(), '\0');
    text.pop_back();
    EXPECT_EQ(withoutTitle(text), withoutTitle(ReadEntry(GetParam())));

    std::unique_ptr<TShellReferenceSystem> const again(CreateShellReferenceSystem(text, nullptr));
    ASSERT_NE(again, nullptr);
    EXPECT_TRUE(*again == *system);
    EXPECT_TRUE(*again ^= *system);
    EXPECT_EQ(again->Name, system->Name);
    EXPECT_EQ(again->Description, system->Description);
}

TEST_P(CatalogEntry, IsWrittenAsTheTreeWritesIt) {
    std::string const text = ReadEntry(GetParam());
    LumCommonUtils::TStringTree tree;
    unsigned long position = 0;
    tree.ReadFromString(text.c_str(), &position, nullptr);
    EXPECT_EQ(position, text.size());

    std::string written(tree.WriteToString(nullptr, 0, 0), '\0');
    ASSERT_EQ(tree.WriteToString(written.data(), 0, 0), written.size());
    EXPECT_EQ(written, text);
}

TEST_P(CatalogEntry, HasATitleNameAbbreviationAndAxes) {
    std::string const text = ReadEntry(GetParam());
    std::string const title = text.substr(0, text.find('\n'));
    EXPECT_EQ(title.find("(0,0)"), 0u);
    EXPECT_GT(title.size(), 5u);

    auto const system = BuildEntry(GetParam());
    ASSERT_NE(system, nullptr);
    EXPECT_FALSE(system->Name.empty());
    EXPECT_FALSE(system->Abbreviation.empty());
    if (system->Type == rstGeodetic) {
        EXPECT_EQ(system->AxisName[0], "Latitude");
        EXPECT_EQ(system->AxisName[1], "Longitude");
    }
    if (system->Type == rstGeodetic || system->Type == rstMapProjected) {
        EXPECT_EQ(system->AxisName[2], "Height");
    }
    for (std::string const& axis : system->AxisName) {
        EXPECT_FALSE(axis.empty());
    }
}

TEST_P(CatalogEntry, NamesItsSourceAndAccuracyInTheDescription) {
    auto const system = BuildEntry(GetParam());
    ASSERT_NE(system, nullptr);
    // Frames are made for a place and stand in no register.
    bool const isFrame = system->Type == rstTopocentricHorizontal || system->Type == rstLocalCartesian;
    EXPECT_EQ(system->GeoTIFFCode.empty(), isFrame);
    if (!isFrame) {
        std::string const source = "EPSG:" + system->GeoTIFFCode + ". ";
        EXPECT_EQ(system->Description.find(source), 0u) << system->Description;
    }
    char const* const accuracy =
        system->GetDatumShift() != nullptr ? " Accuracy " : "no accuracy is published";
    EXPECT_NE(system->Description.find(accuracy), std::string::npos) << system->Description;
}

TEST_P(CatalogEntry, HasEveryUnitWithACodeOfTheExchangeFormats) {
    LumCommonUtils::TStringTree tree;
    std::string const text = ReadEntry(GetParam());
    tree.ReadFromString(text.c_str(), nullptr, nullptr);
    int kind = 0;
    ASSERT_TRUE(tree.GetInteger(1100, 0, &kind));
    if (kind != rstGeodetic) {
        auto const* const unit = tree.FindSubtree(1104, 0);
        ASSERT_NE(unit, nullptr);
        EXPECT_FALSE(fieldText(*unit, 102002, 0).empty());
    }
    if (kind == rstGeocentric || kind == rstLocalCartesian) {
        return;
    }
    auto const* const primary = tree.FindSubtree(1121, 0);
    EXPECT_EQ(primary != nullptr, kind != rstGeodetic);
    auto const* const geodetic = primary != nullptr ? primary : &tree;
    if (kind == rstMapProjected) {
        auto const* const projection = tree.FindSubtree(1300, 0);
        ASSERT_NE(projection, nullptr);
        auto const* const angles = projection->FindSubtree(6090, 0);
        ASSERT_NE(angles, nullptr);
        EXPECT_FALSE(fieldText(*angles, 102003, 0).empty());
        auto const* const lengths = projection->FindSubtree(6091, 0);
        ASSERT_NE(lengths, nullptr);
        EXPECT_FALSE(fieldText(*lengths, 102002, 0).empty());
    }
    auto const* const angular = geodetic->FindSubtree(1106, 0);
    ASSERT_NE(angular, nullptr);
    EXPECT_FALSE(fieldText(*angular, 102003, 0).empty());
    auto const* const vertical = geodetic->FindSubtree(1201, 0);
    ASSERT_NE(vertical, nullptr);
    auto const* const height = vertical->FindSubtree(1104, 0);
    ASSERT_NE(height, nullptr);
    EXPECT_FALSE(fieldText(*height, 102002, 0).empty());
}

INSTANTIATE_TEST_SUITE_P(All, CatalogEntry, testing::ValuesIn(CatalogNames()),
                         [](auto const& entry) { return TestSuffix(entry.param); });

TEST(Catalog, HoldsSixteenGeodeticSystems) {
    std::vector<std::string> const expected = {
        "dhdn",   "ed50",         "etrs89",       "gsk-2011",    "nad27",    "ntf-paris",
        "osgb36", "pulkovo-1942", "pulkovo-1995", "pz-90.02",    "pz-90.11", "sphere",
        "tokyo",  "wgs-84",       "wgs-84-dms",   "wgs-84-feet",
    };
    EXPECT_EQ(GeodeticNames(), expected);
}

TEST(Catalog, HoldsTwoGeocentricSystemsAndTwoFrames) {
    std::vector<std::string> const expected = {"etrs89-geocentric", "local-metres", "topocentric-moscow",
                                               "wgs-84-geocentric"};
    EXPECT_EQ(FrameNames(), expected);
}

TEST(Catalog, HoldsNineteenGrids) {
    std::vector<std::string> const expected = {
        "albers-conus",
        "belge-lambert-72",
        "belgian-lambert-72",
        "british-national-grid",
        "etrs89-laea",
        "etrs89-lcc",
        "italy-zone-1",
        "italy-zone-2",
        "lambert-93",
        "lambert-zone-ii",
        "nzmg",
        "polyconic-brazil",
        "rd-new",
        "s-jtsk-krovak",
        "s-jtsk-krovak-en",
        "swiss-lv95",
        "ups-north",
        "ups-south",
        "web-mercator",
    };
    EXPECT_EQ(GridNames(), expected);
}

} // namespace

} // namespace VellariTest
