#include "tests/catalog/Entries.h"
#include "tests/catalog/Points.h"

#include "frame/NumberText.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace VellariTest {

namespace {

using namespace KvRefSystem;

struct TSample {
    char const* Entry;
    TPoint Point; ///< in the entry's units
    TPoint Wgs84; ///< degrees, metres
};

void PrintTo(TSample const& sample, std::ostream* out) {
    *out << sample.Entry;
}

// From PROJ 9.1: cct with cart, helmert (the entry's parameters and convention), inverse cart on WGS 84.
TSample const samples[] = {
    {"pz-90.02", {55.75, 37.62, 150}, {55.7500030617, 37.6200045085, 149.04821}},
    {"pz-90.11", {55.75, 37.62, 150}, {55.7499995227, 37.6199972297, 149.03412}},
    {"gsk-2011", {55.75, 37.62, 150}, {55.7499986414, 37.6199972065, 149.45769}},
    {"pulkovo-1942", {55.75, 37.62, 150}, {55.7500426131, 37.6181258919, 154.54221}},
    {"pulkovo-1995", {55.75, 37.62, 150}, {55.7500596550, 37.6181472779, 156.97145}},
    {"etrs89", {50, 10, 100}, {49.9999999991, 10.0000000000, 99.99994}},
    {"ed50", {50, 10, 100}, {49.9991986041, 9.9988646378, 138.75548}},
    {"osgb36", {52, -1.5, 100}, {52.0004320861, -1.5014683667, 148.40108}},
    {"dhdn", {50, 8, 100}, {49.9988502917, 7.9991072767, 149.43002}},
    {"nad27", {40, -100, 500}, {40.0000094820, -100.0004175895, 464.78421}},
    {"tokyo", {35.65, 139.75, 20}, {35.6532419200, 139.7467687456, 56.50714}},
    {"ntf-paris", {54, 0.5, 100}, {48.5999350178, 2.7865274172, 142.96872}},
    {"wgs-84-dms", {-33.5, -70.25, 500}, {-33.5, -70.25, 500}},
    // 1000 international feet are 304.8 m by definition.
    {"wgs-84-feet", {55.75, 37.62, 1000}, {55.75, 37.62, 304.8}},
};

class CatalogPoints : public testing::TestWithParam<TSample> {};

TEST_P(CatalogPoints, GoToWgs84WithinAMillimetre) {
    TSample const& sample = GetParam();
    EXPECT_LT(Distance(Transform(sample.Entry, sample.Point, "wgs-84"), sample.Wgs84), 1e-3);
}

TEST_P(CatalogPoints, ComeBackFromWgs84) {
    TSample const& sample = GetParam();
    TPoint const back = Transform("wgs-84", sample.Wgs84, sample.Entry);
    // The reverse of a small-angle shift leaves out products of rotations and scale: a millimetre.
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(back[i], sample.Point[i], i < 2 ? 5e-8 : 5e-3) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(All, CatalogPoints, testing::ValuesIn(samples),
                         [](auto const& sample) { return TestSuffix(sample.param.Entry); });

TEST(CatalogParis, HasItsMeridianInGrads) {
    auto const system = BuildEntry("ntf-paris");
    ASSERT_NE(system, nullptr);
    std::string wkt;
    ASSERT_TRUE(system->PrimeMeridian->ExportToWKT(&wkt, nullptr));
    // 2.5969213 grads times 0.9 are 2 degrees 20 minutes 14.025 seconds.
    EXPECT_EQ(wkt, "PRIMEM[\"Paris\",2.33722917]");
    EXPECT_EQ(system->GetPlaneUnitName(), "grad");
    EXPECT_NEAR(system->GetPlaneUnitCoefToBase(), 3.141592653589793 / 200.0, 1e-17);
}

TEST(CatalogSexagesimal, PrintsLettersOfTheHemisphere) {
    auto const system = BuildEntry("wgs-84-dms");
    ASSERT_NE(system, nullptr);
    // 0.752 degrees are 45 minutes 7.2 seconds; 0.6156 degrees 36 minutes 56.16 seconds.
    double const moscow[3] = {55.752, 37.6156, 144.0};
    TShellCoords text;
    system->OutputCoords(moscow, &text, nullptr, 2, nullptr, 1);
    EXPECT_EQ(text.Coord[0], "55 45 7.20 N");
    EXPECT_EQ(text.Coord[1], "37 36 56.16 E");
    EXPECT_EQ(text.Coord[2], "144.0");

    double const andes[3] = {-33.5, -70.25, 500.0};
    system->OutputCoords(andes, &text, nullptr, 0, nullptr, 0);
    EXPECT_EQ(text.Coord[0], "33 30 0 S");
    EXPECT_EQ(text.Coord[1], "70 15 0 W");
}

TEST(CatalogFeet, NamesTheInternationalFoot) {
    auto const system = BuildEntry("wgs-84-feet");
    ASSERT_NE(system, nullptr);
    EXPECT_EQ(system->GetHeightUnitCoefToBase(), 0.3048);
    EXPECT_EQ(system->GetHeightUnitName(), "foot");
    EXPECT_EQ(system->GetHeightUnitShortName(), "ft");
    EXPECT_NE(system->Description.find("international feet"), std::string::npos);
}

// --- The example points ---------------------------------------------------------------------------------

struct TExample {
    char const* File;
    char const* System;
    char const* Header;
};

void PrintTo(TExample const& example, std::ostream* out) {
    *out << example.File;
}

/** The examples' system of that name: a zone of Gauss-Kruger on Pulkovo 1942, or an entry. */
std::unique_ptr<TShellReferenceSystem> buildExampleSystem(std::string const& name) {
    return name == "gk:7" ? BuildPulkovoZone(7) : BuildEntry(name);
}

TExample const examples[] = {
    {"moscow.csv", "pulkovo-1942", "latitude_deg,longitude_deg,height_m,name"},
    {"europe.csv", "ed50", "latitude_deg,longitude_deg,height_m,name"},
    {"britain.csv", "osgb36", "latitude_deg,longitude_deg,height_m,name"},
    {"tokyo.csv", "tokyo", "latitude_deg,longitude_deg,height_m,name"},
    {"paris-grads.csv", "ntf-paris", "latitude_grad,longitude_grad,height_m,name"},
    {"sexagesimal.csv", "wgs-84-dms", "latitude_dms,longitude_dms,height_m,name"},
    {"moscow-gk7.csv", "gk:7", "northing_m,easting_m,height_m,name"},
    {"britain-grid.csv", "british-national-grid", "easting_m,northing_m,height_m,name"},
};

std::vector<std::string> split(std::string const& text, char separator) {
    std::vector<std::string> parts(1);
    for (char const c : text) {
        if (c == separator) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

/** The places of a file on WGS 84, by name. */
std::map<std::string, TPoint> placesOnWgs84(TExample const& example) {
    auto const source = buildExampleSystem(example.System);
    auto const target = BuildEntry("wgs-84");
    std::map<std::string, TPoint> places;
    if (source == nullptr || target == nullptr) {
        ADD_FAILURE() << example.System << " or wgs-84 does not build";
        return places;
    }
    std::vector<std::string> const lines =
        split(ReadSourceFile(std::string("examples/points/") + example.File), '\n');
    EXPECT_EQ(lines.front(), example.Header);
    EXPECT_EQ(lines.back(), "") << "the last line ends with a line feed";
    for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
        std::vector<std::string> const columns = split(lines[i], ',');
        if (columns.size() != 4) {
            ADD_FAILURE() << example.File << ", line " << i + 1 << ": " << lines[i];
            continue;
        }
        TShellCoords text;
        for (std::size_t column = 0; column < 3; ++column) {
            text.Coord[column] = columns[column];
        }
        TPoint local{};
        TPoint& place = places[columns[3]];
        EXPECT_TRUE(source->InputCoords(text, nullptr, nullptr, local.data())) << lines[i];
        EXPECT_TRUE(TransformCoords(source.get(), local[0], local[1], local[2], target.get(), &place[0],
                                    &place[1], &place[2]))
            << lines[i];
    }
    return places;
}

class ExamplePoints : public testing::TestWithParam<TExample> {};

TEST_P(ExamplePoints, AreADozenPlacesOrSo) {
    EXPECT_GE(placesOnWgs84(GetParam()).size(), 10u);
}

TEST_P(ExamplePoints, MeetTheSamePlacesOfTheSexagesimalFile) {
    std::map<std::string, TPoint> const reference = placesOnWgs84(examples[5]);
    int met = 0;
    for (auto const& [name, place] : placesOnWgs84(GetParam())) {
        auto const same = reference.find(name);
        if (same == reference.end()) {
            continue;
        }
        ++met;
        // Both files are rounded, to 0.2 m at most.
        EXPECT_LT(Distance(place, same->second), 0.3) << name;
    }
    EXPECT_GE(met, 1);
}

INSTANTIATE_TEST_SUITE_P(All, ExamplePoints, testing::ValuesIn(examples),
                         [](auto const& example) { return TestSuffix(example.param.File); });

TEST(ExamplePointsOnGrids, AreThePlacesOfTheGeographicFiles) {
    // moscow.csv and moscow-gk7.csv, britain.csv and britain-grid.csv.
    for (auto const& [geographic, grid] : {std::pair{0, 6}, std::pair{2, 7}}) {
        std::map<std::string, TPoint> const reference = placesOnWgs84(examples[geographic]);
        std::map<std::string, TPoint> const places = placesOnWgs84(examples[grid]);
        EXPECT_EQ(places.size(), reference.size());
        for (auto const& [name, place] : places) {
            auto const same = reference.find(name);
            ASSERT_NE(same, reference.end()) << name;
            // The grid's file is rounded to a centimetre, 7 mm in both coordinates together.
            EXPECT_LT(Distance(place, same->second), 8e-3) << name;
        }
    }
}

TEST(ExamplePointsOfFrance, HaveTheObservatoryOnTheMeridianOfParis) {
    for (std::string const& line : split(ReadSourceFile("examples/points/paris-grads.csv"), '\n')) {
        std::vector<std::string> const columns = split(line, ',');
        if (columns.back() != "Paris Observatory") {
            continue;
        }
        double longitude = 1;
        ASSERT_TRUE(ParseWholeDouble(columns[1], &longitude));
        // The meridian runs through the building, some 60 m long; a thousandth of a grad is 66 m there.
        EXPECT_NEAR(longitude, 0.0, 0.001);
        return;
    }
    FAIL() << "no Paris Observatory in paris-grads.csv";
}

} // namespace

} // namespace VellariTest
