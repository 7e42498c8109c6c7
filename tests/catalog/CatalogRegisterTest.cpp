#include "tests/catalog/Entries.h"
#include "tests/catalog/Register.h"

#include "frame/NumberText.h"
#include "frame/imported/StringTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <ostream>

namespace VellariTest {

namespace {

using namespace KvRefSystem;

// EPSG's methods.
constexpr int translations = 9603;
constexpr int positionVector = 9606;
constexpr int coordinateFrame = 9607;
constexpr int coordinateFrameAtEpoch = 1066;

/** One operation on the way to WGS 84; `Direction` is -1 where it is gone in reverse. */
struct TStep {
    int Operation;
    int Method;
    int Direction;
};

struct TRow {
    char const* Entry;
    int System;               ///< EPSG code of the geographic system, of a grid that of its base
    std::vector<TStep> Steps; ///< none: the datum is WGS 84 itself
};

void PrintTo(TRow const& row, std::ostream* out) {
    *out << row.Entry;
}

// Reversed small-angle parameters change their signs; at shifts of half a metre that is exact to 1e-8 m.
TRow const rows[] = {
    {"wgs-84", 4326, {}},
    {"wgs-84-dms", 4326, {}},
    {"wgs-84-feet", 4326, {}},
    {"pz-90.02", 9474, {{7961, coordinateFrameAtEpoch, -1}}},
    {"pz-90.11", 9475, {{7703, coordinateFrameAtEpoch, -1}, {7961, coordinateFrameAtEpoch, -1}}},
    {"gsk-2011",
     7683,
     {{7705, coordinateFrameAtEpoch, 1},
      {7703, coordinateFrameAtEpoch, -1},
      {7961, coordinateFrameAtEpoch, -1}}},
    {"pulkovo-1942", 4284, {{5044, coordinateFrame, 1}}},
    {"pulkovo-1995", 4200, {{5043, coordinateFrame, 1}}},
    {"etrs89", 4258, {{1149, translations, 1}}},
    {"ed50", 4230, {{1133, translations, 1}}},
    {"osgb36", 4277, {{1314, positionVector, 1}}},
    {"dhdn", 4314, {{1777, positionVector, 1}}},
    {"nad27", 4267, {{1173, translations, 1}}},
    {"tokyo", 4301, {{15484, translations, 1}}},
    {"ntf-paris", 4807, {{1193, translations, 1}}},
    {"albers-conus", 4269, {{1188, translations, 1}}},
    {"belge-lambert-72", 4313, {{15929, coordinateFrame, 1}}},
    {"belgian-lambert-72", 4313, {{15929, coordinateFrame, 1}}},
    {"british-national-grid", 4277, {{1314, positionVector, 1}}},
    {"etrs89-laea", 4258, {{1149, translations, 1}}},
    {"etrs89-lcc", 4258, {{1149, translations, 1}}},
    {"italy-zone-1", 4265, {{1660, positionVector, 1}}},
    {"italy-zone-2", 4265, {{1660, positionVector, 1}}},
    {"lambert-93", 4171, {{1671, translations, 1}}},
    {"lambert-zone-ii", 4807, {{1193, translations, 1}}},
    {"nzmg", 4272, {{1564, coordinateFrame, 1}}},
    {"polyconic-brazil", 4674, {{15894, translations, 1}}},
    {"rd-new", 4289, {{4833, coordinateFrame, 1}}},
    {"s-jtsk-krovak", 4156, {{5239, coordinateFrame, 1}}},
    {"s-jtsk-krovak-en", 4156, {{5239, coordinateFrame, 1}}},
    {"swiss-lv95", 4150, {{1676, translations, 1}}},
    {"ups-north", 4326, {}},
    {"ups-south", 4326, {}},
    {"web-mercator", 4326, {}},
};

/** The row's operations added up, rotations as those of the coordinate frame. */
std::array<double, 7> registerParameters(TRow const& row) {
    std::array<double, 7> sum{};
    for (TStep const& step : row.Steps) {
        TRegisterOperation const operation = ReadRegisterOperation(step.Operation);
        EXPECT_EQ(operation.Method, step.Method) << operation.Name;
        for (std::size_t i = 0; i < sum.size(); ++i) {
            bool const turned = operation.Method == positionVector && i >= 3 && i <= 5;
            sum[i] += step.Direction * (turned ? -operation.Parameters[i] : operation.Parameters[i]);
        }
    }
    return sum;
}

double statedAccuracy(std::string const& description) {
    std::string const label = " Accuracy ";
    std::size_t const begin = description.find(label);
    std::size_t const end = description.find(" m", begin);
    double metres = 0;
    if (begin == std::string::npos || end == std::string::npos ||
        !ParseWholeDouble(description.substr(begin + label.size(), end - begin - label.size()), &metres)) {
        ADD_FAILURE() << "no accuracy in: " << description;
    }
    return metres;
}

LumCommonUtils::TStringTree const* find(LumCommonUtils::TStringTree const* tree,
                                        std::initializer_list<int> tags) {
    for (int const tag : tags) {
        tree = tree != nullptr ? tree->FindSubtree(tag, 0) : nullptr;
    }
    return tree;
}

std::string text(LumCommonUtils::TStringTree const* tree, int tag) {
    std::string value;
    EXPECT_TRUE(tree != nullptr && tree->GetString(tag, 0, &value)) << "no field " << tag;
    return value;
}

class CatalogRegister : public testing::TestWithParam<TRow> {
protected:
    void SetUp() override {
        entry = BuildEntry(GetParam().Entry);
        auto const* const grid = dynamic_cast<TShellMapProjectedReferenceSystem const*>(entry.get());
        system = grid != nullptr ? grid->BaseGeodetic : entry.get();
        ASSERT_NE(system, nullptr);
        ASSERT_NE(system->DatumShift, nullptr);
        ASSERT_NE(system->Ellipsoid, nullptr);
        ASSERT_NE(system->PrimeMeridian, nullptr);
        std::string const description = ReadEntry(GetParam().Entry);
        root.ReadFromString(description.c_str(), nullptr, nullptr);
        tree = grid != nullptr ? find(&root, {1121}) : &root;
    }

    std::unique_ptr<TShellReferenceSystem> entry;
    TShellReferenceSystem const* system = nullptr; ///< the geodetic system, of a grid its base
    LumCommonUtils::TStringTree root;
    LumCommonUtils::TStringTree const* tree = nullptr; ///< of the geodetic system
};

TEST_P(CatalogRegister, ShiftIsThatOfTheRegister) {
    std::array<double, 7> const expected = registerParameters(GetParam());
    std::array<double, 7> got{};
    // Rotations come out as those of the coordinate frame, whichever form the entry has.
    ASSERT_TRUE(system->DatumShift->GetDatumShiftParams(&got[0], &got[1], &got[2], &got[3], &got[4], &got[5],
                                                        &got[6]));
    for (std::size_t i = 0; i < got.size(); ++i) {
        EXPECT_NEAR(got[i], expected[i], 1e-9) << "parameter " << i;
    }
}

TEST_P(CatalogRegister, ShiftHasTheFormOfTheMethod) {
    std::array<double, 7> const parameters = registerParameters(GetParam());
    bool const translationsOnly =
        std::all_of(parameters.begin() + 3, parameters.end(), [](double value) { return value == 0.0; });
    bool const asPositionVector =
        GetParam().Steps.size() == 1 && GetParam().Steps[0].Method == positionVector;
    TShellDatumShiftType const expected = translationsOnly   ? dstMolodensky
                                          : asPositionVector ? dstBursaWolf
                                                             : dstBursaWolfInvRot;
    int form = 0;
    auto const* const type = find(tree, {1107, 1102, 5443});
    ASSERT_NE(type, nullptr);
    ASSERT_TRUE(type->GetInteger(5701, 0, &form));
    EXPECT_EQ(form, expected);
}

TEST_P(CatalogRegister, DescriptionNamesTheOperationsAndTheirAccuracy) {
    double expected = GetParam().Steps.empty() ? ReadRegisterSystem(GetParam().System).EnsembleAccuracy : 0.0;
    for (TStep const& step : GetParam().Steps) {
        std::string const name = FormatText("EPSG:%d", step.Operation);
        EXPECT_NE(system->Description.find(name), std::string::npos) << name << ": " << system->Description;
        expected += ReadRegisterOperation(step.Operation).Accuracy;
    }
    EXPECT_GT(expected, 0.0);
    EXPECT_NEAR(statedAccuracy(system->Description), expected, 1e-9);
    // A grid's own description repeats that of its base.
    std::size_t const shift = system->Description.find(". ") + 2;
    EXPECT_NE(entry->Description.find(system->Description.substr(shift)), std::string::npos)
        << entry->Description;
}

TEST_P(CatalogRegister, EllipsoidAndMeridianAreThoseOfTheRegister) {
    TRegisterSystem const expected = ReadRegisterSystem(GetParam().System);
    EXPECT_EQ(system->GeoTIFFCode, FormatText("%d", GetParam().System));
    double a = 0;
    double b = 0;
    ASSERT_TRUE(system->GetEllipsoidSemiAxesMeters(&a, &b));
    EXPECT_EQ(a, expected.SemiMajorAxis);
    // The register's text has 15 digits; the difference of the axes loses two or three of them.
    EXPECT_NEAR(a / (a - b), expected.InverseFlattening, 1e-10 * expected.InverseFlattening);

    std::string wkt;
    ASSERT_TRUE(system->PrimeMeridian->ExportToWKT(&wkt, nullptr));
    double const degrees = expected.MeridianLongitude * 180.0 / 3.141592653589793;
    EXPECT_EQ(wkt, FormatText("PRIMEM[\"%s\",%.9g]", expected.MeridianName.c_str(), degrees));
}

TEST_P(CatalogRegister, CodesNameTheSameDatumAndEllipsoid) {
    auto const* const datum = find(tree, {1107});
    EXPECT_EQ(text(datum, 5620), ReadRegisterName("datum", text(datum, 102006)));
    EXPECT_EQ(system->DatumName, text(datum, 5620));
    EXPECT_EQ(system->DatumGeoTIFFCode, text(datum, 102006));

    auto const* const ellipsoid = find(tree, {1107, 5610});
    EXPECT_EQ(text(ellipsoid, 5120), ReadRegisterName("ellipsoid", text(ellipsoid, 102004)));
    EXPECT_EQ(text(ellipsoid, 5121), "EPSG ellipsoid " + text(ellipsoid, 102004));
    EXPECT_EQ(text(ellipsoid, 5120), ReadRegisterSystem(GetParam().System).EllipsoidName);

    // GeoTIFF's PM_Greenwich and PM_Paris.
    auto const* const meridian = find(tree, {1101});
    EXPECT_EQ(text(meridian, 102009), text(meridian, 5220) == "Paris" ? "8903" : "8901");
}

TEST_P(CatalogRegister, AnglesAreInTheUnitOfTheRegister) {
    double const expected = ReadRegisterSystem(GetParam().System).AngularUnit;
    EXPECT_NEAR(system->GetPlaneUnitCoefToBase(), expected, 1e-14 * expected);
}

INSTANTIATE_TEST_SUITE_P(All, CatalogRegister, testing::ValuesIn(rows),
                         [](auto const& row) { return TestSuffix(row.param.Entry); });

TEST(CatalogSphere, IsTheAuthalicSphereOfTheRegisterWithoutADatum) {
    auto const system = BuildEntry("sphere");
    ASSERT_NE(system, nullptr);
    EXPECT_EQ(system->DatumShift, nullptr);
    TRegisterSystem const expected = ReadRegisterSystem(4047);
    EXPECT_EQ(system->GeoTIFFCode, "4047");
    EXPECT_EQ(expected.InverseFlattening, 0.0);
    double a = 0;
    double b = 0;
    ASSERT_TRUE(system->GetEllipsoidSemiAxesMeters(&a, &b));
    EXPECT_EQ(a, expected.SemiMajorAxis);
    EXPECT_EQ(b, expected.SemiMajorAxis);
    EXPECT_EQ(ReadRegisterName("ellipsoid", "7048"), expected.EllipsoidName);
}

TEST(CatalogRegisterRows, CoverEveryGeodeticSystemAndEveryGrid) {
    std::vector<std::string> covered = {"sphere"};
    for (TRow const& row : rows) {
        covered.emplace_back(row.Entry);
    }
    std::sort(covered.begin(), covered.end());
    std::vector<std::string> expected = CatalogNames();
    for (std::string const& frame : FrameNames()) {
        expected.erase(std::find(expected.begin(), expected.end(), frame));
    }
    EXPECT_EQ(covered, expected);
}

} // namespace

} // namespace VellariTest
