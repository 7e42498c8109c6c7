#include "tests/catalog/Entries.h"
#include "tests/catalog/Register.h"
#include "tests/support/Descriptions.h"

#include "frame/NumberText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace VellariTest {

namespace {

using namespace KvRefSystem;

struct TGrid {
    char const* Entry;
    int System; ///< EPSG code of the projected system
};

void PrintTo(TGrid const& grid, std::ostream* out) {
    *out << grid.Entry;
}

TGrid const grids[] = {
    {"albers-conus", 5070},
    {"belge-lambert-72", 31300},
    {"belgian-lambert-72", 31370},
    {"british-national-grid", 27700},
    {"etrs89-laea", 3035},
    {"etrs89-lcc", 3034},
    {"italy-zone-1", 3003},
    {"italy-zone-2", 3004},
    {"lambert-93", 2154},
    {"lambert-zone-ii", 27572},
    {"nzmg", 27200},
    {"polyconic-brazil", 5880},
    {"rd-new", 28992},
    {"s-jtsk-krovak", 5513},
    {"s-jtsk-krovak-en", 5514},
    {"swiss-lv95", 2056},
    {"ups-north", 5041},
    {"ups-south", 5042},
    {"web-mercator", 3857},
};

/** The class of each of the register's methods. */
std::map<int, TMapProjectionType> const methods = {
    {1024, mptSphericalMercator},
    {1041, mptKrovak},
    {9801, mptLambertConicConformal1SP},
    {9802, mptLambertConicConformal2SP},
    {9803, mptLambertConicConformal2SPBelgium},
    {9807, mptTransverseMercator},
    {9809, mptObliqueStereographic},
    {9810, mptPolarStereographicBasic},
    {9811, mptNZMG},
    {9815, mptObliqueMercator},
    {9818, mptPolyconic},
    {9819, mptKrovak},
    {9820, mptLambertAzimuthalEqualArea},
    {9822, mptAlbersEqualAreaConic},
};

/** The tags under which a parameter of the register may stand: the classes differ. */
std::map<std::string, std::vector<int>> const tags = {
    {"Angle from Rectified to Skew Grid", {6110}},
    {"Azimuth of initial line", {6109}},
    {"Co-latitude of cone axis", {6109}},
    {"Easting at false origin", {6118, 6104}},
    {"Easting at projection centre", {6112}},
    {"False easting", {6104}},
    {"False northing", {6105}},
    {"Latitude of 1st standard parallel", {6114}},
    {"Latitude of 2nd standard parallel", {6115}},
    {"Latitude of false origin", {6116, 6102}},
    {"Latitude of natural origin", {6102, 6203}},
    {"Latitude of projection centre", {6107}},
    {"Latitude of pseudo standard parallel", {6121}},
    {"Longitude of false origin", {6117, 6101}},
    {"Longitude of natural origin", {6106, 6101}},
    {"Longitude of origin", {6106}},
    {"Longitude of projection centre", {6108}},
    {"Northing at false origin", {6119, 6105}},
    {"Northing at projection centre", {6113}},
    {"Scale factor at natural origin", {6103, 6111, 6120}},
    {"Scale factor on initial line", {6111}},
    {"Scale factor on pseudo standard parallel", {6122}},
};

constexpr int poleTag = 6203;

class CatalogGridRegister : public testing::TestWithParam<TGrid> {
protected:
    void SetUp() override {
        system = BuildGrid(GetParam().Entry);
        ASSERT_NE(system, nullptr);
        ASSERT_NE(system->MapProjection, nullptr);
        published = ReadRegisterGrid(GetParam().System);
        tree.ReadFromString(ReadEntry(GetParam().Entry).c_str(), nullptr, nullptr);
        projection = tree.FindSubtree(1300, 0);
        ASSERT_NE(projection, nullptr);
    }

    /** A parameter of the entry in radians, metres or as a plain factor; the pole as its latitude. */
    double valueOf(int tag, TRegisterParameter const& parameter) const {
        std::string text;
        EXPECT_TRUE(projection->GetString(tag, 0, &text)) << parameter.Name;
        if (tag == poleTag) {
            return (text == "N" ? 0.5 : -0.5) * 3.141592653589793;
        }
        double value = 0;
        TShellUnit const* unit = system->MapProjection->ScaleUnit;
        if (parameter.Unit == "ANGLEUNIT") {
            unit = system->MapProjection->AngularUnit;
        } else if (parameter.Unit == "LENGTHUNIT") {
            unit = system->MapProjection->LinearUnit;
        }
        EXPECT_TRUE(unit != nullptr && unit->StringToValue(text, &value)) << parameter.Name << ": " << text;
        return unit != nullptr ? value * unit->CoefToBase : 0.0;
    }

    std::unique_ptr<TShellMapProjectedReferenceSystem> system;
    TRegisterGrid published;
    LumCommonUtils::TStringTree tree;
    LumCommonUtils::TStringTree const* projection = nullptr;
};

TEST_P(CatalogGridRegister, NameMethodAndBaseAreThoseOfTheRegister) {
    EXPECT_EQ(system->GeoTIFFCode, FormatText("%d", GetParam().System));
    EXPECT_EQ(system->Name, published.Name);
    EXPECT_EQ(system->GetMapProjectionName(), published.MethodName);
    EXPECT_NE(system->Description.find(". " + published.MethodName + ". "), std::string::npos)
        << system->Description;
    EXPECT_EQ(system->BaseGeodetic->GeoTIFFCode, FormatText("%d", published.Base));
    EXPECT_EQ(system->BaseGeodetic->Name, published.BaseName);
    ASSERT_EQ(methods.count(published.Method), 1u) << published.Method;
    EXPECT_EQ(system->MapProjection->Type, methods.at(published.Method));
}

TEST_P(CatalogGridRegister, ParametersAreThoseOfTheRegister) {
    std::set<int> told;
    for (TRegisterParameter const& parameter : published.Parameters) {
        ASSERT_EQ(tags.count(parameter.Name), 1u) << parameter.Name;
        std::vector<int> const& candidates = tags.at(parameter.Name);
        auto const tag = std::find_if(candidates.begin(), candidates.end(), [this](int candidate) {
            std::string text;
            return projection->GetString(candidate, 0, &text);
        });
        if (tag == candidates.end()) {
            // A class without that parameter holds it at zero.
            EXPECT_EQ(parameter.Value, 0.0) << parameter.Name;
            continue;
        }
        told.insert(*tag);
        // The register prints 15 digits.
        EXPECT_NEAR(valueOf(*tag, parameter), parameter.Value, 1e-14 * std::abs(parameter.Value))
            << parameter.Name;
    }
    // What the register doesn't tell of is a scale of one.
    for (int tag = 6101; tag <= 6206; ++tag) {
        std::string text;
        if (told.count(tag) == 0 && projection->GetString(tag, 0, &text)) {
            EXPECT_EQ(text, "1") << tag;
        }
    }
}

TEST_P(CatalogGridRegister, AxesAreThoseOfTheRegister) {
    ASSERT_EQ(published.Axes.size(), 2u);
    TCardinalDirection got[2]{};
    ASSERT_TRUE(system->GetAxesDirections(&got[0], &got[1]));
    std::map<std::string, std::pair<TCardinalDirection, std::string>> const directions = {
        {"north", {cdNorth, "Northing"}},
        {"south", {cdSouth, "Southing"}},
        {"east", {cdEast, "Easting"}},
        {"west", {cdWest, "Westing"}},
    };
    for (std::size_t i = 0; i < 2; ++i) {
        auto const& [direction, name] = directions.at(published.Axes[i]);
        EXPECT_EQ(got[i], direction) << i;
        EXPECT_EQ(system->AxisName[i], name) << i;
    }
    EXPECT_EQ(system->GetPlaneUnitCoefToBase(), 1.0);
    EXPECT_EQ(system->GetHeightUnitCoefToBase(), 1.0);
}

TEST_P(CatalogGridRegister, RootRepeatsMeridianAndDatumOfTheBase) {
    // Operations on the description look for them there.
    auto const* const primary = tree.FindSubtree(1121, 0);
    ASSERT_NE(primary, nullptr);
    for (int const tag : {1101, 1107}) {
        auto const* const atRoot = tree.FindSubtree(tag, 0);
        auto const* const ofBase = primary->FindSubtree(tag, 0);
        ASSERT_TRUE(atRoot != nullptr && ofBase != nullptr) << tag;
        EXPECT_EQ(TestSupport::TextOf(*atRoot), TestSupport::TextOf(*ofBase)) << tag;
    }
    EXPECT_EQ(system->DatumName, system->BaseGeodetic->DatumName);
}

INSTANTIATE_TEST_SUITE_P(All, CatalogGridRegister, testing::ValuesIn(grids),
                         [](auto const& grid) { return TestSuffix(grid.param.Entry); });

TEST(CatalogGridRegisterRows, CoverEveryGrid) {
    std::vector<std::string> covered;
    for (TGrid const& grid : grids) {
        covered.emplace_back(grid.Entry);
    }
    EXPECT_EQ(covered, GridNames());
}

} // namespace

} // namespace VellariTest
