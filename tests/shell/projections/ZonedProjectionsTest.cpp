#include "shell/projections/ZonedProjections.h"

#include "tests/shell/projections/ZonedTestKit.h"

namespace {

using namespace ZonedTestKit;
using GaussKruger = TShellGaussKruger6MapProjection;
using Utm = TShellUTMMapProjection;

// Hosts are compiled against this layout.
static_assert(sizeof(GaussKruger) == sizeof(TShellMapProjection) + 8);
static_assert(sizeof(Utm) == sizeof(TShellMapProjection) + 8);
static_assert(std::is_same_v<decltype(GaussKruger::Zone), int> && std::is_same_v<decltype(Utm::Zone), int>);
static_assert(std::is_same_v<decltype(GaussKruger::North), bool> &&
              std::is_same_v<decltype(Utm::North), bool>);

constexpr char const* gaussKrugerMessage =
    "TShellGaussKruger6MapProjection::TShellGaussKruger6MapProjection(TStringTree *tree)";
constexpr char const* utmMessage = "TShellUTMMapProjection::TShellUTMMapProjection(TStringTree *tree)";

/** Snyder's series within 3 degrees of the central meridian, metres. */
constexpr double SeriesTolerance = 1.1e-3;

TChanges Zone(std::string const& zone, std::string const& hemisphere) {
    return {{ZoneKey, zone}, {HemisphereKey, hemisphere}};
}

std::unique_ptr<GaussKruger> MakeGaussKruger(std::string const& zone, std::string const& hemisphere = "N",
                                             TUnits const& units = surveyUnits) {
    return Make<GaussKruger>(1001, Zone(zone, hemisphere), units);
}

std::unique_ptr<Utm> MakeUtm(std::string const& zone, std::string const& hemisphere = "N",
                             TUnits const& units = surveyUnits) {
    return Make<Utm>(1002, Zone(zone, hemisphere), units);
}

std::string Wkt(char const* meridian, char const* scale, char const* easting, char const* northing) {
    return std::string("PARAMETER[\"latitude_of_origin\",0],\tPARAMETER[\"central_meridian\",") + meridian +
           "],\tPARAMETER[\"scale_factor\"," + scale + "],\tPARAMETER[\"false_easting\"," + easting +
           "],\tPARAMETER[\"false_northing\"," + northing + "]";
}

// --- Description -------------------------------------------------------------------------------------------

TEST(ZonedProjections, DescriptionGivesZoneAndHemisphere) {
    auto const seven = MakeGaussKruger("7", "N");
    EXPECT_EQ(seven->Type, mptGaussKruger6);
    EXPECT_EQ(seven->Zone, 7);
    EXPECT_TRUE(seven->North);
    auto const fiftySix = MakeUtm("56", "S");
    EXPECT_EQ(fiftySix->Type, mptUTM);
    EXPECT_EQ(fiftySix->Zone, 56);
    EXPECT_FALSE(fiftySix->North);
}

TEST(ZonedProjections, ClassesAreDirectChildrenOfTheFamilyWithZoneBeforeHemisphere) {
    ExpectDirectChildOfTheFamily<GaussKruger>();
    ExpectDirectChildOfTheFamily<Utm>();
    constexpr auto BaseSize = static_cast<std::ptrdiff_t>(sizeof(TShellMapProjection));
    auto const one = MakeGaussKruger("1");
    EXPECT_EQ(OffsetOf(*one, one->Zone), BaseSize);
    EXPECT_EQ(OffsetOf(*one, one->North), BaseSize + 4);
    auto const two = MakeUtm("1");
    EXPECT_EQ(OffsetOf(*two, two->Zone), BaseSize);
    EXPECT_EQ(OffsetOf(*two, two->North), BaseSize + 4);
}

TEST(ZonedProjections, MissingTextsAreRefused) {
    for (int const tag : {ZoneKey, HemisphereKey}) {
        EXPECT_EQ(Refusal<GaussKruger>(1001, Without(Zone("7", "N"), tag)), gaussKrugerMessage) << tag;
        EXPECT_EQ(Refusal<Utm>(1002, Without(Zone("7", "N"), tag)), utmMessage) << tag;
    }
}

TEST(ZonedProjections, ZonesThatAreNoNumberOrBelowOneAreRefused) {
    for (char const* const zone : {"", " ", "x", "N31", "0", "-1", "-31", "0x1F", ".5", "+", "--3"}) {
        EXPECT_EQ(Refusal<GaussKruger>(1001, Zone(zone, "N")), gaussKrugerMessage) << zone;
        EXPECT_EQ(Refusal<Utm>(1002, Zone(zone, "N")), utmMessage) << zone;
    }
}

TEST(ZonedProjections, ZonesBeyondAnIntAreRefusedAndDoNotWrap) {
    // 4294967327 is 2^32 + 31.
    for (char const* const zone : {"2147483648", "4294967327", "9223372036854775807", "18446744073709551647",
                                   "99999999999999999999999999999999999999"}) {
        EXPECT_EQ(Refusal<GaussKruger>(1001, Zone(zone, "N")), gaussKrugerMessage) << zone;
        EXPECT_EQ(Refusal<Utm>(1002, Zone(zone, "N")), utmMessage) << zone;
    }
}

TEST(ZonedProjections, WhatFollowsTheZonesNumberDoesNotCount) {
    for (char const* const zone : {"12", "12abc", " 12", "+12", "12.9", "012", "\t12 N"}) {
        EXPECT_EQ(MakeGaussKruger(zone)->Zone, 12) << zone;
        EXPECT_EQ(MakeUtm(zone)->Zone, 12) << zone;
    }
}

TEST(ZonedProjections, OnlyTheFirstLetterOfTheHemisphereCountsAndMustBeUpperCase) {
    for (char const* const north : {"N", "North", "Nord", "NS"}) {
        EXPECT_TRUE(MakeGaussKruger("7", north)->North) << north;
        EXPECT_TRUE(MakeUtm("7", north)->North) << north;
    }
    for (char const* const south : {"S", "South", "SN"}) {
        EXPECT_FALSE(MakeGaussKruger("7", south)->North) << south;
        EXPECT_FALSE(MakeUtm("7", south)->North) << south;
    }
    for (char const* const bad : {"", "north", "n", "s", "south", " N", "1", "E"}) {
        EXPECT_EQ(Refusal<GaussKruger>(1001, Zone("7", bad)), gaussKrugerMessage) << bad;
        EXPECT_EQ(Refusal<Utm>(1002, Zone("7", bad)), utmMessage) << bad;
    }
}

// --- Core --------------------------------------------------------------------------------------------------

TEST(ZonedProjections, GaussKrugerMeridianOfTheCoreTurnsBackAfterZone30) {
    ExpectTransverseMercator(*MakeGaussKruger("1"), 3, 1, 1500000, 0);
    ExpectTransverseMercator(*MakeGaussKruger("7"), 39, 1, 7500000, 0);
    ExpectTransverseMercator(*MakeGaussKruger("30"), 177, 1, 30500000, 0);
    ExpectTransverseMercator(*MakeGaussKruger("31"), -177, 1, 31500000, 0);
    ExpectTransverseMercator(*MakeGaussKruger("60"), -3, 1, 60500000, 0);
    ExpectTransverseMercator(*MakeGaussKruger("7", "S"), 39, 1, 7500000, 10000000);
}

TEST(ZonedProjections, UtmMeridianOfTheCoreIsNeverReduced) {
    ExpectTransverseMercator(*MakeUtm("1"), -177, 0.9996, 500000, 0);
    ExpectTransverseMercator(*MakeUtm("31", "S"), 3, 0.9996, 500000, 10000000);
    ExpectTransverseMercator(*MakeUtm("60"), 177, 0.9996, 500000, 0);
    ExpectTransverseMercator(*MakeUtm("61"), 183, 0.9996, 500000, 0);
}

TEST(ZonedProjections, ThereIsNoUpperLimitOfZones) {
    // 6 n - 363, 1e6 n + 500000 and 6 n - 183 of n = 2147483647, in whole numbers.
    ExpectTransverseMercator(*MakeGaussKruger("2147483647"), 12884901519.0, 1, 2147483647500000.0, 0);
    ExpectTransverseMercator(*MakeUtm("2147483647"), 12884901699.0, 0.9996, 500000, 0);
    EXPECT_EQ(WktOf(*MakeGaussKruger("2147483647")), Wkt("12884901879", "1", "2.1474836475e+15", "0"));
    EXPECT_EQ(WktOf(*MakeUtm("2147483647")), Wkt("12884901699", "0.9996", "500000", "0"));
}

// PROJ 9.1.1, `proj +proj=utm +zone=... +ellps=WGS84`.
TEST(ZonedProjections, UtmProjectsAsPublishedTools) {
    auto const north = MakeUtm("31");
    ExpectPlane(*north, 3, 45, 500000.00000, 4982950.40023, SeriesTolerance);
    ExpectPlane(*north, 5, 50, 643329.12388, 5540547.36993, SeriesTolerance);
    ExpectPlane(*MakeUtm("56", "S"), 151.2, -33.5, 332795.49173, 6291830.86103, SeriesTolerance);
}

TEST(ZonedProjections, CoreNeedsNoUnitsButAnEllipsoid) {
    ExpectTransverseMercator(*MakeGaussKruger("7", "N", noUnits), 39, 1, 7500000, 0);
    ExpectTransverseMercator(*MakeUtm("31", "N", noUnits), 3, 0.9996, 500000, 0);
    EXPECT_EQ(TOwned(MakeUtm("31"))->CreateCoreMapProjection(nullptr), nullptr);
    EXPECT_EQ(TOwned(MakeGaussKruger("7"))->CreateCoreMapProjection(nullptr), nullptr);
}

// --- Exports -----------------------------------------------------------------------------------------------

TEST(ZonedProjections, GaussKrugerMeridianOfWktIsNotReduced) {
    EXPECT_EQ(WktTypeOf(*MakeGaussKruger("31")), "Transverse_Mercator");
    EXPECT_EQ(WktOf(*MakeGaussKruger("7")), Wkt("39", "1", "7500000", "0"));
    EXPECT_EQ(WktOf(*MakeGaussKruger("31")), Wkt("183", "1", "31500000", "0"));
    EXPECT_EQ(WktOf(*MakeGaussKruger("31", "S")), Wkt("183", "1", "31500000", "10000000"));
}

TEST(ZonedProjections, UtmMeridianOfWktIsNotReduced) {
    EXPECT_EQ(WktTypeOf(*MakeUtm("31")), "Transverse_Mercator");
    EXPECT_EQ(WktOf(*MakeUtm("31", "S")), Wkt("3", "0.9996", "500000", "10000000"));
    EXPECT_EQ(WktOf(*MakeUtm("61")), Wkt("183", "0.9996", "500000", "0"));
}

TEST(ZonedProjections, WktIsInDegreesAndMetresWhateverTheUnits) {
    TUnits const others = {&foot, &grad, &millionth};
    EXPECT_EQ(WktOf(*MakeUtm("32", "N", others)), Wkt("9", "0.9996", "500000", "0"));
    EXPECT_EQ(WktOf(*MakeGaussKruger("7", "N", noUnits)), Wkt("39", "1", "7500000", "0"));
}

TEST(ZonedProjections, GaussKrugerMeridianOfMapInfoIsReducedFromZone31On) {
    EXPECT_EQ(MifOf(*MakeGaussKruger("7")), ", 39, 0, 1, 7500000, 0");
    EXPECT_EQ(MifOf(*MakeGaussKruger("30")), ", 177, 0, 1, 30500000, 0");
    EXPECT_EQ(MifOf(*MakeGaussKruger("31")), ", -177, 0, 1, 31500000, 0");
    EXPECT_EQ(MifOf(*MakeGaussKruger("31", "S")), ", -177, 0, 1, 31500000, 10000000");
}

TEST(ZonedProjections, UtmMeridianOfMapInfoIsReducedAbove180) {
    EXPECT_EQ(MifOf(*MakeUtm("31", "S")), ", 3, 0, 0.9996, 500000, 10000000");
    EXPECT_EQ(MifOf(*MakeUtm("60")), ", 177, 0, 0.9996, 500000, 0");
    EXPECT_EQ(MifOf(*MakeUtm("61")), ", -177, 0, 0.9996, 500000, 0");
}

// Metres times 1 / 0.3048 with 25 digits, from Python.
TEST(ZonedProjections, MapInfoLengthsAreInTheOutputUnit) {
    EXPECT_EQ(MifOf(*MakeGaussKruger("31", "S"), foot),
              ", -177, 0, 1, 103346456.6929133683443069, 32808398.95013123005628586");
    EXPECT_EQ(MifOf(*MakeUtm("31"), foot), ", 3, 0, 0.9996, 1640419.947506561409682035, 0");
}

TEST(ZonedProjections, MapInfoNeedsAnOutputUnit) {
    for (TOwned const& shell : {TOwned(MakeUtm("31")), TOwned(MakeGaussKruger("7"))}) {
        std::string text = "kept";
        EXPECT_FALSE(shell->ExportToMIFMID(nullptr, &text));
        EXPECT_EQ(text, "kept");
    }
}

TEST(ZonedProjections, GeoKeysHaveTheOriginsLongitudeUnreduced) {
    EXPECT_EQ(
        GeoKeysOf(*MakeGaussKruger("31")),
        (TGeoKeys{{3081, "0"}, {3080, "183.000000000"}, {3092, "1.0"}, {3082, "31500000"}, {3083, "0"}}));
    EXPECT_EQ(
        GeoKeysOf(*MakeUtm("61", "S")),
        (TGeoKeys{
            {3081, "0"}, {3080, "183.000000000"}, {3092, "0.9996"}, {3082, "500000"}, {3083, "10000000"}}));
}

// 183 degrees are 203.333... gon; metres times 1 / 0.3048 from Python.
TEST(ZonedProjections, GeoKeysAreInTheGivenUnits) {
    EXPECT_EQ(GeoKeysOf(*MakeGaussKruger("31", "S"), grad, foot),
              (TGeoKeys{{3081, "0"},
                        {3080, "203.333333333"},
                        {3092, "1.0"},
                        {3082, "103346456.6929133683443069"},
                        {3083, "32808398.95013123005628586"}}));
    EXPECT_EQ(GeoKeysOf(*MakeUtm("31"), grad, foot), (TGeoKeys{{3081, "0"},
                                                               {3080, "3.333333333"},
                                                               {3092, "0.9996"},
                                                               {3082, "1640419.947506561409682035"},
                                                               {3083, "0"}}));
}

TEST(ZonedProjections, GeoKeysThatExistStay) {
    TGeoKeys keys = {{3080, "there"}, {3092, "first"}};
    auto const angular = MakeAngularUnit(degree);
    auto const linear = MakeUnit<TShellLinearUnit>(metre);
    EXPECT_TRUE(MakeUtm("31")->ExportMapProjParamsToGeoTIFF(&keys, angular.get(), linear.get()));
    EXPECT_EQ(keys, (TGeoKeys{{3081, "0"}, {3080, "there"}, {3092, "first"}, {3082, "500000"}, {3083, "0"}}));
}

TEST(ZonedProjections, GeoKeysNeedBothUnitsAndANotationWithoutAnAxis) {
    constexpr TUnit hemisphereNotation = {8, 2, "3.14159265358979312", "180", "dms with a letter"};
    auto const degrees = MakeAngularUnit(degree);
    auto const letters = MakeAngularUnit(hemisphereNotation);
    auto const metres = MakeUnit<TShellLinearUnit>(metre);
    for (TOwned const& shell : {TOwned(MakeUtm("31")), TOwned(MakeGaussKruger("7"))}) {
        TGeoKeys keys;
        EXPECT_FALSE(shell->ExportMapProjParamsToGeoTIFF(&keys, nullptr, metres.get()));
        EXPECT_FALSE(shell->ExportMapProjParamsToGeoTIFF(&keys, degrees.get(), nullptr));
        EXPECT_FALSE(shell->ExportMapProjParamsToGeoTIFF(&keys, letters.get(), metres.get()));
        EXPECT_TRUE(keys.empty());
    }
}

TEST(ZonedProjections, GeoTIFFCodeStandsForTheWholeZone) {
    auto const utm = Make<Utm>(1002, With(Zone("31", "N"), CodeKey, "16031"));
    TGeoKeys keys;
    EXPECT_TRUE(utm->ExportToGeoTIFF(&keys, nullptr, nullptr));
    EXPECT_EQ(keys, (TGeoKeys{{3074, "16031"}}));
}

// --- Equality and life -------------------------------------------------------------------------------------

TEST(ZonedProjections, EqualityIsThatOfTheBaseOfZoneAndOfHemisphere) {
    ExpectBaseToCount<GaussKruger>(1001, Zone("7", "N"), true);
    ExpectBaseToCount<Utm>(1002, Zone("7", "N"), true);
    EXPECT_TRUE(*MakeUtm("31") == *MakeUtm("31 ", "North"));
    EXPECT_FALSE(*MakeUtm("31") == *MakeUtm("32"));
    EXPECT_FALSE(*MakeUtm("31") == *MakeUtm("31", "S"));
    EXPECT_FALSE(*MakeGaussKruger("7") == *MakeGaussKruger("8"));
    EXPECT_FALSE(*MakeGaussKruger("7") == *MakeGaussKruger("7", "S"));
}

TEST(ZonedProjections, AnotherClassIsDifferentEvenUnderTheSameType) {
    auto const utm = MakeUtm("7");
    auto const gaussKruger = MakeGaussKruger("7");
    EXPECT_FALSE(*utm == *gaussKruger);
    EXPECT_FALSE(*gaussKruger == *utm);
    auto const misnamed = Make<Utm>(1001, Zone("7", "N"));
    EXPECT_EQ(misnamed->Type, mptGaussKruger6);
    EXPECT_FALSE(*misnamed == *gaussKruger);
    EXPECT_FALSE(*gaussKruger == *misnamed);
}

TEST(ZonedProjections, ResetLeavesNoZone) {
    auto const gaussKruger = Make<GaussKruger>(1001, With(Zone("7", "N"), CodeKey, "28407"));
    gaussKruger->Reset();
    EXPECT_EQ(gaussKruger->Zone, 0);
    EXPECT_FALSE(gaussKruger->North);
    EXPECT_EQ(gaussKruger->LinearUnit, nullptr);
    EXPECT_EQ(gaussKruger->GeoTIFFCode, "28407");
    ExpectNothingComesOut(*gaussKruger);
    auto const utm = MakeUtm("31");
    utm->Reset();
    EXPECT_EQ(utm->Zone, 0);
    EXPECT_FALSE(utm->North);
    ExpectNothingComesOut(*utm);
}

TEST(ZonedProjections, XmlLosesZoneAndHemisphere) {
    auto const gaussKruger = MakeGaussKruger("7");
    ExpectXmlLosesTheParameters(gaussKruger.get());
    EXPECT_EQ(gaussKruger->Zone, 0);
    auto const utm = MakeUtm("31");
    ExpectXmlLosesTheParameters(utm.get());
    EXPECT_EQ(utm->Zone, 0);
}

} // namespace
