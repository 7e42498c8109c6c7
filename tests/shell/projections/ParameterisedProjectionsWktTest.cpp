#include "tests/shell/projections/ProjectionTestKit.h"

namespace {

using namespace ProjectionTestKit;

// Expected numbers: gon times 0.9, feet times 0.3048 and millionths, in Python, at 15 digits.

TEST(TransverseMercatorShell, WktIsInDegreesMetresAndPlainFactors) {
    auto const shell = Create(1);
    EXPECT_EQ(WktTypeOf(*shell), "Transverse_Mercator");
    EXPECT_EQ(WktOf(*shell), "PARAMETER[\"latitude_of_origin\",45.21111102],\t"
                             "PARAMETER[\"central_meridian\",20.11111101],\t"
                             "PARAMETER[\"scale_factor\",0.9996123456789],\t"
                             "PARAMETER[\"false_easting\",500.0244],\t"
                             "PARAMETER[\"false_northing\",-100.0506]");
}

TEST(TransverseMercatorShell, WktOfAPlainZone) {
    auto const shell =
        Create(1, {{6101, "9"}, {6102, "0"}, {6103, "999600"}, {6104, "500000"}, {6105, "0"}}, plainUnits);
    EXPECT_EQ(WktOf(*shell), "PARAMETER[\"latitude_of_origin\",0],\tPARAMETER[\"central_meridian\",9],\t"
                             "PARAMETER[\"scale_factor\",0.9996],\tPARAMETER[\"false_easting\",500000],\t"
                             "PARAMETER[\"false_northing\",0]");
}

TEST(TransverseMercatorShell, WktHasFifteenDigits) {
    auto const shell = Create(1,
                              {{6101, "9.123456789012345"},
                               {6102, "-0.00001234567"},
                               {6103, "1000000"},
                               {6104, "12345678.123456789"},
                               {6105, "1e20"}},
                              plainUnits);
    EXPECT_EQ(WktOf(*shell), "PARAMETER[\"latitude_of_origin\",-1.234567e-05],\t"
                             "PARAMETER[\"central_meridian\",9.12345678901235],\t"
                             "PARAMETER[\"scale_factor\",1],\t"
                             "PARAMETER[\"false_easting\",12345678.1234568],\t"
                             "PARAMETER[\"false_northing\",1e+20]");
}

TEST(TransverseMercatorShell, WktOfSexagesimalTextsIsInDegrees) {
    // 4.5 and 55.51 degrees.
    auto const shell =
        Create(1, {{6101, "4 30 0"}, {6102, "55 30 36"}, {6103, "1000000"}, {6104, "500"}, {6105, "-2.5"}},
               {&kilometre, &degreeMinuteSecond, &millionth});
    EXPECT_EQ(WktOf(*shell),
              "PARAMETER[\"latitude_of_origin\",55.51],\tPARAMETER[\"central_meridian\",4.5],\t"
              "PARAMETER[\"scale_factor\",1],\tPARAMETER[\"false_easting\",500000],\t"
              "PARAMETER[\"false_northing\",-2500]");
}

TEST(NZMGShell, WktHasTheLatitudeFirst) {
    auto const shell = Create(4);
    EXPECT_EQ(WktTypeOf(*shell), "New_Zealand_Map_Grid");
    EXPECT_EQ(WktOf(*shell), "PARAMETER[\"latitude_of_origin\",45.21111102],\t"
                             "PARAMETER[\"central_meridian\",19.58888889],\t"
                             "PARAMETER[\"false_easting\",500.0244],\t"
                             "PARAMETER[\"false_northing\",-100.0506]");
}

TEST(PolyconicShell, WktLeavesTheScaleFactorOut) {
    auto const shell = Create(14);
    EXPECT_EQ(WktTypeOf(*shell), "Polyconic");
    EXPECT_EQ(WktOf(*shell), "PARAMETER[\"latitude_of_origin\",45.21111102],\t"
                             "PARAMETER[\"central_meridian\",19.58888889],\t"
                             "PARAMETER[\"false_easting\",500.0244],\t"
                             "PARAMETER[\"false_northing\",-100.0506]");
}

TEST(SphericalMercatorShell, WktHasTheNameOfTheEllipsoidalMethod) {
    auto const shell = Create(1313);
    EXPECT_EQ(WktTypeOf(*shell), "Mercator_1SP");
    EXPECT_EQ(WktOf(*shell), "PARAMETER[\"central_meridian\",20.11111101],\t"
                             "PARAMETER[\"scale_factor\",0.9996123456789],\t"
                             "PARAMETER[\"false_easting\",500.0244],\t"
                             "PARAMETER[\"false_northing\",-100.0506]");
}

TEST(ParameterisedProjections, OnlyFourHaveAWktForm) {
    std::set<int> const withWkt = {1, 4, 14, 1313};
    for (TShellClass const& shellClass : AllClasses()) {
        auto const shell = Create(shellClass.type);
        EXPECT_EQ(WktTypeOf(*shell) != "false", withWkt.count(shellClass.type) == 1) << shellClass.name;
        EXPECT_EQ(WktOf(*shell) != "false", withWkt.count(shellClass.type) == 1) << shellClass.name;
    }
}

TEST(ParameterisedProjections, TheWktNameNeedsNeitherUnitsNorTexts) {
    auto const shell = Create(1);
    shell->Reset();
    EXPECT_EQ(WktTypeOf(*shell), "Transverse_Mercator");
    EXPECT_EQ(WktOf(*shell), "false");
}

} // namespace
