#include "core/projections/AlbersEqualAreaConic.h"
#include "core/projections/CassiniSoldner.h"
#include "core/projections/EquidistantConic.h"
#include "core/projections/Hatt.h"
#include "core/projections/Krovak.h"
#include "core/projections/LambertAzimuthalEqualArea.h"
#include "core/projections/LambertConicConformal.h"
#include "core/projections/Mercator.h"
#include "core/projections/NZMG.h"
#include "core/projections/ObliqueMercator.h"
#include "core/projections/ObliqueStereographic.h"
#include "core/projections/Orthographic.h"
#include "core/projections/PolarStereographic.h"
#include "core/projections/Polyconic.h"
#include "core/projections/QuasiStereographic.h"
#include "core/projections/SphericalMercator.h"
#include "core/projections/TransverseMercator.h"
#include "frame/NumberText.h"
#include "tests/shell/projections/ProjectionTestKit.h"

#include <cmath>

namespace {

using namespace ProjectionTestKit;

constexpr double Pi = 3.14159265358979312;
constexpr TEllipsoidSemiAxes wgs84 = {6378137.0, 6356752.314245179};

double Number(int key) {
    double value = 0.0;
    EXPECT_TRUE(ParseWholeDouble(TextOf(key), &value));
    return value;
}

/** The value under a key in base units: the text's number times its unit, which is gon, foot or ppm. */
double Base(int key) {
    if (IsScaleKey(key)) {
        return Number(key) * (1.0 / 1000000.0);
    }
    return IsLengthKey(key) ? Number(key) * 0.3048 : Number(key) * (Pi / 200.0);
}

/** Where two equal projections on the same ellipsoid give the same numbers to the last bit. */
void ExpectSamePoint(TMapProjection const& made, TMapProjection const& expected) {
    TCoords ours = {};
    ours.X = 0.36;
    ours.Y = 0.80;
    TCoords theirs = ours;
    made.GeodeticToProjected(&ours);
    expected.GeodeticToProjected(&theirs);
    EXPECT_TRUE(std::isfinite(ours.X) && std::isfinite(ours.Y));
    EXPECT_EQ(ours.X, theirs.X);
    EXPECT_EQ(ours.Y, theirs.Y);
}

/** Compares the core that a shell makes with one that is made from a record of these values. */
template <class Core, class Record, class... Values>
void ExpectCore(TShellMapProjection const& shell, Values... values) {
    Record const record(values...);
    Core const expected(&wgs84, &record);
    auto const made = CoreOf(shell);
    ASSERT_NE(made, nullptr);
    EXPECT_NE(dynamic_cast<Core const*>(made.get()), nullptr);
    EXPECT_EQ(made->Type, expected.Type);
    EXPECT_TRUE(*made == expected);
    ExpectSamePoint(*made, expected);
}

TEST(TransverseMercatorShell, CoreHasItsRecord) {
    ExpectCore<TTransverseMercatorMapProjection, TTransverseMercatorMapProjectionParameters>(
        *Create(1), Base(6101), Base(6102), Base(6103), Base(6104), Base(6105));
}

TEST(ObliqueMercatorShell, CoreHasTheLatitudeBeforeTheLongitude) {
    ExpectCore<TObliqueMercatorMapProjection, TObliqueMercatorMapProjectionParameters>(
        *Create(2), Base(6107), Base(6108), Base(6109), Base(6110), Base(6111), Base(6112), Base(6113));
}

TEST(HotineObliqueMercatorShell, CoreHasTheLatitudeBeforeTheLongitude) {
    ExpectCore<THotineObliqueMercatorMapProjection, THotineObliqueMercatorMapProjectionParameters>(
        *Create(3), Base(6107), Base(6108), Base(6109), Base(6110), Base(6111), Base(6104), Base(6105));
}

TEST(NZMGShell, CoreHasTheLatitudeBeforeTheLongitude) {
    ExpectCore<TNZMGMapProjection, TNZMGMapProjectionParameters>(*Create(4), Base(6102), Base(6106),
                                                                 Base(6104), Base(6105));
}

TEST(AlbersEqualAreaConicShell, CoreHasTheParallelsFirst) {
    ExpectCore<TAlbersEqualAreaConicMapProjection, TAlbersEqualAreaConicMapProjectionParameters>(
        *Create(5), Base(6114), Base(6115), Base(6102), Base(6101), Base(6104), Base(6105));
}

TEST(LambertConicConformal2SPShell, CoreHasItsRecord) {
    ExpectCore<TLambertConicConformal2SPMapProjection, TLambertConicConformal2SPMapProjectionParameters>(
        *Create(6), Base(6114), Base(6115), Base(6116), Base(6117), Base(6118), Base(6119));
}

TEST(LambertConicConformal1SPShell, CoreHasItsRecord) {
    ExpectCore<TLambertConicConformal1SPMapProjection, TLambertConicConformal1SPMapProjectionParameters>(
        *Create(7), Base(6102), Base(6106), Base(6111), Base(6104), Base(6105));
}

TEST(CassiniSoldnerShell, CoreHasItsRecord) {
    ExpectCore<TCassiniSoldnerMapProjection, TCassiniSoldnerMapProjectionParameters>(
        *Create(8), Base(6102), Base(6106), Base(6104), Base(6105));
}

TEST(Mercator2SPShell, CoreHasItsRecord) {
    ExpectCore<TMercator2SPMapProjection, TMercator2SPMapProjectionParameters>(
        *Create(9), Base(6114), Base(6106), Base(6104), Base(6105));
}

TEST(Mercator1SPShell, CoreHasItsRecord) {
    auto const shell = Create(10);
    ExpectCore<TMercator1SPMapProjection, TMercator1SPMapProjectionParameters>(
        *shell, Base(6102), Base(6106), Base(6120), Base(6104), Base(6105));
    // The core's comparison leaves the scale out.
    auto const core = CoreOf(*shell);
    EXPECT_EQ(dynamic_cast<TMercator1SPMapProjection&>(*core).Parameters->ScaleFactor, Base(6120));
}

TEST(ObliqueStereographicShell, CoreHasItsRecord) {
    ExpectCore<TObliqueStereographicMapProjection, TObliqueStereographicMapProjectionParameters>(
        *Create(11), Base(6106), Base(6102), Base(6120), Base(6104), Base(6105));
}

TEST(PolarStereographicShell, CoreAlwaysHasTheNorthPoleForItsLatitude) {
    ExpectCore<TPolarStereographicMapProjection, TPolarStereographicMapProjectionParameters>(
        *Create(12), Base(6106), Pi / 2.0, Base(6120), Base(6104), Base(6105));
}

TEST(PolarStereographicShell, CoreIgnoresALatitudeText) {
    for (char const* const latitude : {"-100", "33.5", "not a number", ""}) {
        auto const shell = Load(12, Document(12, {{"LongitudeOfNatiralOrigin", TextOf(6106)},
                                                  {"LatitudeOfNaturalOrigin", latitude},
                                                  {"ScaleFactorAtNaturalOrigin", TextOf(6120)},
                                                  {"FalseEasting", TextOf(6104)},
                                                  {"FalseNorthing", TextOf(6105)}}));
        ASSERT_EQ(MemberOf(*shell, 12, LatitudeKey), latitude);
        ExpectCore<TPolarStereographicMapProjection, TPolarStereographicMapProjectionParameters>(
            *shell, Base(6106), Pi / 2.0, Base(6120), Base(6104), Base(6105));
    }
}

TEST(QuasiStereographicShell, CoreHasItsRecord) {
    ExpectCore<TQuasiStereographicMapProjection, TQuasiStereographicMapProjectionParameters>(
        *Create(13), Base(6106), Base(6102), Base(6120), Base(6104), Base(6105));
}

TEST(PolyconicShell, CoreHasItsRecord) {
    ExpectCore<TPolyconicMapProjection, TPolyconicMapProjectionParameters>(
        *Create(14), Base(6106), Base(6102), Base(6111), Base(6104), Base(6105));
}

TEST(KrovakShell, CoreHasItsRecord) {
    ExpectCore<TKrovakMapProjection, TKrovakMapProjectionParameters>(
        *Create(16), Base(6107), Base(6106), Base(6109), Base(6121), Base(6122), Base(6104), Base(6105));
}

TEST(HattShell, CoreHasItsRecord) {
    ExpectCore<THattMapProjection, THattMapProjectionParameters>(*Create(17), Base(6102), Base(6106));
}

TEST(PolarStereographicBasicShell, CoreHasItsRecord) {
    for (auto const& [text, pole] : {std::pair("N", poleNorth), std::pair("S", poleSouth)}) {
        ExpectCore<TPolarStereographicBasicMapProjection, TPolarStereographicBasicMapProjectionParameters>(
            *Create(21, {{PoleKey, text}}), pole, Base(6106), Base(6120), Base(6104), Base(6105));
    }
}

TEST(PolarStereographicNaturalOriginShell, BuildsTheCoreByTheScaleAtThePole) {
    for (auto const& [text, pole] : {std::pair("N", poleNorth), std::pair("S", poleSouth)}) {
        auto const shell = Create(22, {{PoleKey, text}});
        EXPECT_EQ(shell->Type, 22);
        EXPECT_EQ(CoreOf(*shell)->Type, 21);
        ExpectCore<TPolarStereographicBasicMapProjection, TPolarStereographicBasicMapProjectionParameters>(
            *shell, pole, Base(6106), Base(6120), Base(6104), Base(6105));
    }
}

TEST(PolarStereographicFalseOriginShell, CoreHasTheParallelBeforeTheLongitude) {
    for (auto const& [text, pole] : {std::pair("N", poleNorth), std::pair("S", poleSouth)}) {
        ExpectCore<TPolarStereographicFalseOriginMapProjection,
                   TPolarStereographicFalseOriginMapProjectionParameters>(
            *Create(23, {{PoleKey, text}}), pole, Base(6114), Base(6106), Base(6104), Base(6105));
    }
}

TEST(LambertAzimuthalEqualAreaShell, CoreHasItsRecord) {
    ExpectCore<TLambertAzimuthalEqualAreaMapProjection, TLambertAzimuthalEqualAreaMapProjectionParameters>(
        *Create(24), Base(6102), Base(6106), Base(6104), Base(6105));
}

TEST(EquidistantConicShell, CoreHasItsRecord) {
    ExpectCore<TEquidistantConicMapProjection, TEquidistantConicMapProjectionParameters>(
        *Create(25), Base(6114), Base(6115), Base(6116), Base(6117), Base(6118), Base(6119));
}

TEST(OrthographicShell, CoreHasItsRecord) {
    ExpectCore<TOrthographicMapProjection, TOrthographicMapProjectionParameters>(
        *Create(26), Base(6102), Base(6106), Base(6104), Base(6105));
}

TEST(LambertConicConformal2SPBelgiumShell, CoreHasItsRecordAndItsOwnClass) {
    auto const shell = Create(1201);
    ExpectCore<TLambertConicConformal2SPBelgiumMapProjection,
               TLambertConicConformal2SPMapProjectionParameters>(*shell, Base(6114), Base(6115), Base(6116),
                                                                 Base(6117), Base(6118), Base(6119));
    EXPECT_EQ(CoreOf(*shell)->Type, 1201);
}

TEST(SphericalMercatorShell, CoreHasItsRecord) {
    ExpectCore<TSphericalMercatorMapProjection, TSphericalMercatorMapProjectionParameters>(
        *Create(1313), Base(6101), Base(6103), Base(6104), Base(6105));
}

// The texts are read in the notation of their unit, each time anew.

TEST(ParameterisedProjections, AnglesAreReadInASexagesimalNotation) {
    // 55 degrees, 30 minutes, 36 seconds are 55.51 degrees; 4 degrees, 30 minutes 4.5 of them.
    auto const shell =
        Create(1, {{6101, "-4 30 0"}, {6102, "55 30 36"}, {6103, "1000000"}, {6104, "500"}, {6105, "-2.5"}},
               {&kilometre, &degreeMinuteSecond, &millionth});
    auto const core = CoreOf(*shell);
    ASSERT_NE(core, nullptr);
    auto const& record = *dynamic_cast<TTransverseMercatorMapProjection&>(*core).Parameters;
    EXPECT_NEAR(record.CentralMeridian, -4.5 * Pi / 180.0, 1e-15);
    EXPECT_NEAR(record.LatitudeOfOrigin, 55.51 * Pi / 180.0, 1e-15);
    EXPECT_EQ(record.ScaleFactor, 1.0);
    EXPECT_EQ(record.FalseEasting, 500000.0);
    EXPECT_EQ(record.FalseNorthing, -2500.0);
}

TEST(ParameterisedProjections, TheSameShellMakesACoreEachTime) {
    auto const shell = Create(6);
    auto const first = CoreOf(*shell);
    auto const second = CoreOf(*shell);
    EXPECT_NE(first, second);
    EXPECT_TRUE(*first == *second);
}

TEST(ParameterisedProjections, TheCoreLiesOnTheGivenEllipsoid) {
    auto const shell = Create(1313);
    TEllipsoidSemiAxes sphere = {1000.0, 1000.0};
    std::unique_ptr<TMapProjection> const core(shell->CreateCoreMapProjection(&sphere));
    TCoords coords = {};
    coords.X = Base(6101) + 0.25;
    core->GeodeticToProjected(&coords);
    // R times the difference of longitudes, with R the scale times the axis.
    EXPECT_NEAR(coords.X, 1000.0 * Base(6103) * 0.25 + Base(6104), 1e-9);
}

TEST(ParameterisedProjections, WhatTheCoreRefusesGivesANullCore) {
    // Opposite parallels have no cone.
    for (int const type : {6, 1201}) {
        EXPECT_EQ(CoreOf(*Create(type, {{6114, "30"}, {6115, "-30"}})), nullptr) << type;
    }
    // Nor has the equator a touching one.
    EXPECT_EQ(CoreOf(*Create(7, {{LatitudeKey, "0"}})), nullptr);
}

TEST(ParameterisedProjections, APoleOfNeitherValueGivesANullCoreOfTheFalseOrigin) {
    auto const shell = Create(23);
    dynamic_cast<TShellPolarStereographicFalseOriginMapProjection&>(*shell).Pole = TPole(3);
    EXPECT_EQ(CoreOf(*shell), nullptr);
}

TEST(ParameterisedProjections, WithoutAnEllipsoidThereIsNoCore) {
    for (TShellClass const& shellClass : AllClasses()) {
        auto const shell = Create(shellClass.type);
        std::unique_ptr<TMapProjection> const core(shell->CreateCoreMapProjection(nullptr));
        // The spherical one has a form without: the radius is then the scale factor.
        EXPECT_EQ(core != nullptr, shellClass.type == 1313) << shellClass.name;
    }
}

} // namespace
