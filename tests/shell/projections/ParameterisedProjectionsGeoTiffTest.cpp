#include "tests/shell/projections/ProjectionTestKit.h"

namespace {

using namespace ProjectionTestKit;

// Expected numbers by Python: gon times (pi/200) times (180/pi), feet times 0.3048, with 25 digits of the double.

constexpr char const* centralMeridian = "20.11111101000000189742423";
constexpr char const* latitude = "45.21111102000000414591341";
constexpr char const* naturalLongitude = "19.58888889000000332885065";
constexpr char const* centreLatitude = "43.31111103000000639440259";
constexpr char const* centreLongitude = "17.43888888000000392253241";
constexpr char const* azimuth = "30.16111104000000864289177";
constexpr char const* skewAngle = "30.82888971000000566391464";
constexpr char const* firstParallel = "40.08888980999999773757736";
constexpr char const* secondParallel = "54.67888962000000674379407";
constexpr char const* falseLatitude = "47.27897883000000689435183";
constexpr char const* falseLongitude = "20.02678884000000181231371";
constexpr char const* easting = "500.0244000000000141881173";
constexpr char const* northing = "-100.0506000000000028649083";
constexpr char const* centreEasting = "457.4286000000000171894499";
constexpr char const* centreNorthing = "762.1524000000000569343683";
constexpr char const* falseEasting = "914.4762000000000625732355";
constexpr char const* falseNorthing = "1219.238100000000031286618";

TEST(TransverseMercatorShell, GeoKeysHaveTheCentreLongitudeAndTenDigitsOfTheScale) {
    EXPECT_EQ(GeoKeysOf(*Create(1)), (TGeoKeys{{3081, latitude},
                                               {3088, centralMeridian},
                                               {3092, "0.9996123457"},
                                               {3082, easting},
                                               {3083, northing}}));
}

TEST(ObliqueMercatorShell, GeoKeysAreThoseOfTheCentre) {
    EXPECT_EQ(GeoKeysOf(*Create(2)), (TGeoKeys{{3089, centreLatitude},
                                               {3088, centreLongitude},
                                               {3094, azimuth},
                                               {3096, skewAngle},
                                               {3093, "0.999512"},
                                               {3090, centreEasting},
                                               {3091, centreNorthing}}));
}

TEST(HotineObliqueMercatorShell, GeoKeysHaveTheLengthsOfTheOrigin) {
    EXPECT_EQ(GeoKeysOf(*Create(3)), (TGeoKeys{{3089, centreLatitude},
                                               {3088, centreLongitude},
                                               {3094, azimuth},
                                               {3096, skewAngle},
                                               {3093, "0.999512"},
                                               {3082, easting},
                                               {3083, northing}}));
}

TEST(NZMGShell, GeoKeysAreThoseOfTheNaturalOrigin) {
    EXPECT_EQ(GeoKeysOf(*Create(4)),
              (TGeoKeys{{3081, latitude}, {3080, naturalLongitude}, {3082, easting}, {3083, northing}}));
}

TEST(AlbersEqualAreaConicShell, GeoKeysAreThoseOfTheNaturalOrigin) {
    EXPECT_EQ(GeoKeysOf(*Create(5)), (TGeoKeys{{3081, latitude},
                                               {3080, centralMeridian},
                                               {3078, firstParallel},
                                               {3079, secondParallel},
                                               {3082, easting},
                                               {3083, northing}}));
}

TEST(LambertConicConformal2SPShell, GeoKeysAreThoseOfTheFalseOriginWithPlainLengths) {
    for (int const type : {6, 1201}) {
        EXPECT_EQ(GeoKeysOf(*Create(type)), (TGeoKeys{{3085, falseLatitude},
                                                      {3084, falseLongitude},
                                                      {3078, firstParallel},
                                                      {3079, secondParallel},
                                                      {3082, falseEasting},
                                                      {3083, falseNorthing}}))
            << type;
    }
}

TEST(LambertConicConformal1SPShell, GeoKeysHaveSixDigitsOfTheScale) {
    EXPECT_EQ(GeoKeysOf(*Create(7)), (TGeoKeys{{3081, latitude},
                                               {3080, naturalLongitude},
                                               {3092, "0.999512"},
                                               {3082, easting},
                                               {3083, northing}}));
}

TEST(ParameterisedProjections, ThreeHaveOnlyTheirOriginInGeoKeys) {
    for (int const type : {8, 24, 26}) {
        EXPECT_EQ(GeoKeysOf(*Create(type)),
                  (TGeoKeys{{3081, latitude}, {3080, naturalLongitude}, {3082, easting}, {3083, northing}}))
            << type;
    }
}

TEST(Mercator2SPShell, GeoKeysHaveTheParallel) {
    EXPECT_EQ(GeoKeysOf(*Create(9)),
              (TGeoKeys{{3078, firstParallel}, {3080, naturalLongitude}, {3082, easting}, {3083, northing}}));
}

TEST(ParameterisedProjections, TwoWithScaleAtTheOriginHaveSixDigitsOfItInGeoKeys) {
    for (int const type : {10, 11}) {
        EXPECT_EQ(GeoKeysOf(*Create(type)), (TGeoKeys{{3081, latitude},
                                                      {3080, naturalLongitude},
                                                      {3092, "0.999412"},
                                                      {3082, easting},
                                                      {3083, northing}}))
            << type;
    }
}

TEST(PolarStereographicShell, GeoKeysAreFalseFromADescription) {
    EXPECT_EQ(GeoKeysOf(*Create(12)), (TGeoKeys{{0, "false"}}));
}

TEST(PolarStereographicShell, GeoKeysFromADescriptionLeaveTheLatitudeOut) {
    auto const shell = Create(12, {{102008, "15"}});
    auto const angular = MakeAngularUnit(degree);
    auto const linear = MakeUnit<TShellLinearUnit>(metre);
    TGeoKeys keys;
    EXPECT_FALSE(shell->ExportToGeoTIFF(&keys, angular.get(), linear.get()));
    EXPECT_EQ(keys.count(3081), 0U);
    EXPECT_EQ(keys[3074], "32767");
    EXPECT_EQ(keys[3075], "15");
    EXPECT_EQ(keys[3076], "32767");
    EXPECT_EQ(keys[3077], "1");
}

TEST(PolarStereographicShell, GeoKeysHaveTheLatitudeThatCameThroughXml) {
    auto const shell = Load(12, Document(12, {{"LongitudeOfNatiralOrigin", TextOf(6106)},
                                              {"LatitudeOfNaturalOrigin", TextOf(6102)},
                                              {"ScaleFactorAtNaturalOrigin", TextOf(6120)},
                                              {"FalseEasting", TextOf(6104)},
                                              {"FalseNorthing", TextOf(6105)}}));
    EXPECT_EQ(GeoKeysOf(*shell), (TGeoKeys{{3081, latitude},
                                           {3095, naturalLongitude},
                                           {3092, "0.999412"},
                                           {3082, easting},
                                           {3083, northing}}));
}

TEST(QuasiStereographicShell, GeoKeysHaveTwelveDigitsOfTheScale) {
    EXPECT_EQ(GeoKeysOf(*Create(13)), (TGeoKeys{{3081, latitude},
                                                {3080, naturalLongitude},
                                                {3092, "0.999412345679"},
                                                {3082, easting},
                                                {3083, northing}}));
}

TEST(PolyconicShell, GeoKeysHaveTenDigitsOfTheScale) {
    EXPECT_EQ(GeoKeysOf(*Create(14)), (TGeoKeys{{3081, latitude},
                                                {3080, naturalLongitude},
                                                {3092, "0.9995123457"},
                                                {3082, easting},
                                                {3083, northing}}));
}

TEST(PolarShells, GeoKeysHaveTheLatitudeOfThePoleInTheUnitOfTheExport) {
    for (int const type : {21, 22}) {
        auto const north = Create(type);
        auto const south = Create(type, {{PoleKey, "S"}});
        EXPECT_EQ(GeoKeysOf(*north), (TGeoKeys{{3081, "90"},
                                               {3095, naturalLongitude},
                                               {3092, "0.999412"},
                                               {3082, easting},
                                               {3083, northing}}))
            << type;
        EXPECT_EQ(GeoKeysOf(*south)[3081], "-90");
        EXPECT_EQ(GeoKeysOf(*north, grad)[3081], "100");
        EXPECT_EQ(GeoKeysOf(*south, grad)[3081], "-100");
        EXPECT_EQ(GeoKeysOf(*north, degreeMinuteSecond)[3081], "90 0 0.000000000000");
        EXPECT_EQ(GeoKeysOf(*south, degreeMinuteSecond)[3081], "- 90 0 0.000000000000");
    }
}

TEST(PolarShells, GeoKeysOfAPoleOfNeitherValueAreFalse) {
    auto const basic = Create(21);
    dynamic_cast<TShellPolarStereographicBasicMapProjection&>(*basic).Pole = TPole(0);
    EXPECT_EQ(GeoKeysOf(*basic), (TGeoKeys{{0, "false"}}));
    auto const natural = Create(22);
    dynamic_cast<TShellPolarStereographicNaturalOriginMapProjection&>(*natural).Pole = TPole(3);
    EXPECT_EQ(GeoKeysOf(*natural), (TGeoKeys{{0, "false"}}));
}

TEST(ParameterisedProjections, FiveHaveNoGeoKeys) {
    for (int const type : {16, 17, 23, 25, 1313}) {
        EXPECT_EQ(GeoKeysOf(*Create(type)), (TGeoKeys{{0, "false"}})) << type;
    }
}

// --- Units and entries that exist --------------------------------------------------------------------------

constexpr TUnit hemisphereDegree = {8, 2, "3.14159265358979312", "180", "dms"};

TEST(ParameterisedProjections, GeoKeysAreInTheUnitsOfTheExport) {
    // 21.7654321 gon times (pi/200); 500.0244 m and -100.0506 m in kilometres, as doubles.
    auto const keys = GeoKeysOf(*Create(8), radian, kilometre);
    EXPECT_EQ(keys, (TGeoKeys{{3081, "0.7890827457836919744949"},
                              {3080, "0.3418906079378373763510979"},
                              {3082, "0.5000244000000000355043994"},
                              {3083, "-0.1000506000000000034200198"}}));
}

TEST(ParameterisedProjections, GeoKeysAreInTheNotationOfTheExport) {
    auto const shell = Create(8, {{6102, "45.5"}, {6106, "-4.25"}, {6104, "10"}, {6105, "-2.5"}}, plainUnits);
    EXPECT_EQ(
        GeoKeysOf(*shell, degreeMinuteSecond),
        (TGeoKeys{
            {3081, "45 30 0.000000000000"}, {3080, "- 4 15 0.000000000000"}, {3082, "10"}, {3083, "-2.5"}}));
}

TEST(ParameterisedProjections, GeoKeysOfSexagesimalTextsAreDegrees) {
    auto const shell = Create(8, {{6102, "45 30 0"}, {6106, "-4 15 0"}, {6104, "10"}, {6105, "-2.5"}},
                              {&metre, &degreeMinuteSecond, &millionth});
    EXPECT_EQ(GeoKeysOf(*shell), (TGeoKeys{{3081, "45.5"}, {3080, "-4.25"}, {3082, "10"}, {3083, "-2.5"}}));
}

TEST(ParameterisedProjections, ANotationThatNeedsAnAxisMakesGeoKeysFalse) {
    for (TShellClass const& shellClass : AllClasses()) {
        EXPECT_EQ(GeoKeysOf(*Create(shellClass.type), hemisphereDegree), (TGeoKeys{{0, "false"}}))
            << shellClass.name;
    }
}

TEST(ParameterisedProjections, UnitsOfAnotherKindMakeGeoKeysFalse) {
    TUnit lengthForAngles = degree;
    lengthForAngles.type = 1;
    TUnit angleForLengths = metre;
    angleForLengths.type = 2;
    for (TShellClass const& shellClass : AllClasses()) {
        // The poles aren't converted, but their longitude is.
        EXPECT_EQ(GeoKeysOf(*Create(shellClass.type), lengthForAngles), (TGeoKeys{{0, "false"}}))
            << shellClass.name;
        EXPECT_EQ(GeoKeysOf(*Create(shellClass.type), degree, angleForLengths), (TGeoKeys{{0, "false"}}))
            << shellClass.name;
    }
}

TEST(ParameterisedProjections, GeoKeysThatExistStay) {
    for (TShellClass const& shellClass : AllClasses()) {
        auto const shell = Create(shellClass.type);
        TGeoKeys const all = GeoKeysOf(*shell);
        if (all.count(0) == 1) {
            continue;
        }
        auto const angular = MakeAngularUnit(degree);
        auto const linear = MakeUnit<TShellLinearUnit>(metre);
        for (auto const& [key, text] : all) {
            TGeoKeys keys = {{key, "mine"}, {1024, "1"}};
            EXPECT_TRUE(shell->ExportMapProjParamsToGeoTIFF(&keys, angular.get(), linear.get()));
            TGeoKeys expected = all;
            expected[key] = "mine";
            expected[1024] = "1";
            EXPECT_EQ(keys, expected) << shellClass.name << ' ' << key;
        }
    }
}

TEST(ParameterisedProjections, GeoKeysNeedTheUnitsOfTheExport) {
    auto const angular = MakeAngularUnit(degree);
    auto const linear = MakeUnit<TShellLinearUnit>(metre);
    for (TShellClass const& shellClass : AllClasses()) {
        auto const shell = Create(shellClass.type);
        TGeoKeys keys;
        EXPECT_FALSE(shell->ExportMapProjParamsToGeoTIFF(&keys, nullptr, linear.get())) << shellClass.name;
        EXPECT_FALSE(shell->ExportMapProjParamsToGeoTIFF(&keys, angular.get(), nullptr)) << shellClass.name;
        EXPECT_FALSE(shell->ExportMapProjParamsToGeoTIFF(&keys, nullptr, nullptr)) << shellClass.name;
    }
}

TEST(TransverseMercatorShell, WholeGeoTiffHasMethodParametersAndUnit) {
    auto const shell = Create(1, {{102008, "1"}});
    auto const angular = MakeAngularUnit(degree);
    auto const linear = MakeUnit<TShellLinearUnit>(metre);
    TGeoKeys keys;
    EXPECT_TRUE(shell->ExportToGeoTIFF(&keys, angular.get(), linear.get()));
    EXPECT_EQ(keys, (TGeoKeys{{3074, "32767"},
                              {3075, "1"},
                              {3076, "32767"},
                              {3077, "1"},
                              {3081, latitude},
                              {3088, centralMeridian},
                              {3092, "0.9996123457"},
                              {3082, easting},
                              {3083, northing}}));
}

} // namespace
