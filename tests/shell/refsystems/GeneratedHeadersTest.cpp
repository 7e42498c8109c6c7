#include "tests/support/CartesianSystems.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;
using TLines = std::vector<std::string>;

// The labels of the descriptions that the library writes itself. Nothing looks a field up by them, but they are
// what a person reads in a saved description.

std::string Place(int tag, int idx) {
    return std::to_string(tag) + "," + std::to_string(idx);
}

/** The fields with their labels and values, then the subtrees with their labels. */
TLines Outline(TStringTree const& tree) {
    TLines lines;
    for (unsigned long i = 0; i < tree.fields.Size(); ++i) {
        auto const& field = *tree.fields[i];
        lines.push_back(Place(field.tag, field.idx) + " " + field.header + " = " + field.values[0]);
    }
    for (unsigned long i = 0; i < tree.subtrees.Size(); ++i) {
        auto const& subtree = *tree.subtrees[i];
        lines.push_back(Place(subtree.tag, subtree.idx) + " " + subtree.header);
    }
    return lines;
}

TLines OutlineOf(TStringTree const& tree, int tag) {
    TStringTree const* const subtree = tree.FindSubtree(tag, 0);
    return subtree ? Outline(*subtree) : TLines{"none"};
}

TLines const GeneratedMetre = {"5301,0 code = 0",
                               "5312,0 type = 1",
                               "5310,0 f_b = 1",
                               "5311,0 f_c = 1",
                               "5320,0 name = meter",
                               "5321,0 abbr = m",
                               "5322,0 desc = generated (not from Db!)"};
TLines const Metre = {"5301,0 code = 0",     "5312,0 type = 1", "5310,0 f_b = 1", "5311,0 f_c = 1",
                      "5320,0 name = metre", "5321,0 abbr = m", "5322,0 desc = ", "102002,0 epsg = 9001"};

TGeocentricText GeocentricOn(TGeodeticText const& base) {
    TGeocentricText text;
    text.base = base;
    return text;
}

TEST(GeneratedHeaders, TheInternalSystemOfAGeodeticOne) {
    TStringTree tree;
    ASSERT_TRUE(Create(Pulkovo1942())->FillInternalRefSystemTree(&tree, Texts("55", "37", "200")));

    EXPECT_EQ(Outline(tree),
              (TLines{"1020,0 name = Internal", "1021,0 desc = Right, topocentric, meters",
                      "1022,0 abbr = Internal", "1100,0 type = 6", "1400,0 swap = 0", "1025,0 axis = X",
                      "1025,1 axis = Y", "1025,2 axis = Z", "1120,0 origin = 55", "1120,1 origin = 37",
                      "1120,2 origin = 200", "1104,0 linear unit", "1121,0 primary reference system"}));
    EXPECT_EQ(OutlineOf(tree, 1104), GeneratedMetre);
}

TEST(GeneratedHeaders, TheInternalSystemOfAGeocentricOne) {
    TStringTree tree;
    // On the third axis, where the sphere's radius is the number itself and the latitude is 90 degrees.
    ASSERT_TRUE(Live(TGeocentricText())->FillInternalRefSystemTree(&tree, Texts("0", "0", "6000000")));

    TStringTree const* const base = tree.FindSubtree(1121, 0);
    ASSERT_NE(base, nullptr);
    EXPECT_EQ(base->header, "primary reference system");
    EXPECT_EQ(Outline(*base),
              (TLines{"1020,0 name = Geodetic", "1021,0 desc = Auto-generated", "1022,0 abbr = geod",
                      "1100,0 type = 4", "1025,0 axis = Lat", "1025,1 axis = Lon", "1025,2 axis = H",
                      "1101,0 prime meridian", "1106,0 angular units", "1201,0 vertical reference system",
                      "1103,0 ellipsoid (generated sphere)"}));
    EXPECT_EQ(OutlineOf(*base, 1201), TLines{"1104,0 height linear unit"});
    EXPECT_EQ(OutlineOf(*base, 1103),
              (TLines{"5120,0 name = sphere", "5121,0 desc = auto-generated", "5110,0 A = 6000000",
                      "5111,0 B = 6000000", "5114,0 by flattening = 0", "5115,0 sphere = 0",
                      "5113,0 ellipsoid linear units"}));

    TStringTree withDatum;
    ASSERT_TRUE(
        Live(GeocentricOn(Pulkovo1942()))->FillInternalRefSystemTree(&withDatum, Texts("0", "0", "6000000")));
    EXPECT_EQ(OutlineOf(withDatum, 1121).back(), "1107,0 datum shift");
}

TEST(GeneratedHeaders, TheInternalSystemOfALocalOne) {
    TLines const expected = {"1020,0 name = Internal", "1021,0 desc = Right, local cartesian, meters",
                             "1022,0 abbr = Internal", "1100,0 type = 1",
                             "1400,0 swap = 0",        "1025,0 axis = X",
                             "1025,1 axis = Y",        "1025,2 axis = Z",
                             "1104,0 linear unit"};
    TStringTree plane;
    TStringTree curved;
    ASSERT_TRUE(LiveCartesian(TLocalText())->FillInternalRefSystemTree(&plane, Texts("0", "0", "0")));
    ASSERT_TRUE(LiveCurved(Curved("1000"))->FillInternalRefSystemTree(&curved, Texts("0", "0", "0")));

    EXPECT_EQ(Outline(plane), expected);
    EXPECT_EQ(OutlineOf(plane, 1104), GeneratedMetre);
    EXPECT_EQ(Outline(curved), expected);
    EXPECT_EQ(OutlineOf(curved, 1104), GeneratedMetre);
}

TEST(GeneratedHeaders, TheInternalSystemOfAMapProjectedOneHasItsOriginToo) {
    TStringTree tree;
    TProjectedText zone = UtmZone(31, 'N');
    ASSERT_TRUE(Create(zone)->FillInternalRefSystemTree(&tree, Texts("500000", "0", "0")));

    TLines const lines = Outline(tree);
    ASSERT_GT(lines.size(), 11U);
    EXPECT_EQ(lines[8].substr(0, 15), "1120,0 origin =");
    EXPECT_EQ(lines[9].substr(0, 15), "1120,1 origin =");
    EXPECT_EQ(lines[10].substr(0, 15), "1120,2 origin =");
    EXPECT_EQ(lines.back(), "1121,0 primary reference system");
}

TEST(GeneratedHeaders, TheDerivedGeodeticSystems) {
    auto const system = Create(Pulkovo1942());
    TStringTree radians;
    TStringTree degrees;
    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTree(&radians), 0);
    ASSERT_EQ(system->FillPrimaryGeodeticRefSystemTreeDeg(&degrees), 0);

    EXPECT_EQ(Outline(radians),
              (TLines{"1020,0 name = Geodetic", "1021,0 desc = Auto-generated", "1022,0 abbr = geod",
                      "1100,0 type = 4", "1025,0 axis = Lat", "1025,1 axis = Lon", "1025,2 axis = H",
                      "1101,0 prime meridian", "1106,0 angular units", "1201,0 vertical reference system",
                      "1107,0 datum"}));
    EXPECT_EQ(OutlineOf(radians, 1106),
              (TLines{"5301,0 code = 0", "5312,0 type = 2", "5310,0 f_b = 1", "5311,0 f_c = 1",
                      "5320,0 name = p", "5321,0 abbr = p", "5322,0 desc = "}));
    EXPECT_EQ(OutlineOf(radians, 1201), TLines{"1104,0 height linear unit"});
    EXPECT_EQ(OutlineOf(*radians.FindSubtree(1201, 0), 1104), Metre);
    EXPECT_EQ(Outline(degrees),
              (TLines{"1020,0 name = Latitude/Longitude Test datum",
                      "1021,0 desc = ", "1022,0 abbr = ", "1100,0 type = 4", "1025,0 axis = Latitude",
                      "1025,1 axis = Longitude", "1025,2 axis = H", "1101,0 prime meridian",
                      "1106,0 angular units", "1201,0 vertical reference system", "1107,0 datum"}));
    EXPECT_EQ(
        OutlineOf(degrees, 1106),
        (TLines{"5301,0 code = 0", "5312,0 type = 2", "5310,0 f_b = 3.14159265358979312", "5311,0 f_c = 180",
                "5320,0 name = degree", "5321,0 abbr = °", "5322,0 desc = ", "102003,0 epsg = 9102"}));

    TStringTree withoutDatum;
    ASSERT_EQ(Create(TGeodeticText())->FillPrimaryGeodeticRefSystemTree(&withoutDatum), 0);
    EXPECT_EQ(Outline(withoutDatum).back(), "1103,0 ellipsoid");
}

TEST(GeneratedHeaders, TheDerivedGeocentricSystem) {
    TStringTree tree;
    ASSERT_EQ(Create(Pulkovo1942())->FillPrimaryGeocentricRefSystemTree(&tree), 0);

    EXPECT_EQ(Outline(tree),
              (TLines{"1020,0 name = Geocentric", "1021,0 desc = Auto-generated", "1022,0 abbr = geoc",
                      "1100,0 type = 3", "1025,0 axis = X", "1025,1 axis = Y", "1025,2 axis = Z",
                      "1101,0 prime meridian", "1104,0 linear unit", "1107,0 datum"}));
    EXPECT_EQ(OutlineOf(tree, 1104), Metre);
}

} // namespace
} // namespace KvRefSystem
