#include "tests/shell/projections/ProjectionTestKit.h"

namespace {

using namespace ProjectionTestKit;

// Expected numbers by Python: gon times 0.9, rounded to 8 or 10 decimals, in the format of the class; feet times
// 0.3048, with 25 digits of the double.

constexpr char const* lengths = "500.0244000000000141881173, -100.0506000000000028649083";
constexpr char const* originLengths = "914.4762000000000625732355, 1219.238100000000031286618";

std::string With(std::string const& angles, char const* metres = lengths) {
    return angles + metres;
}

TEST(TransverseMercatorShell, MifHasSixteenDigits) {
    EXPECT_EQ(MifOf(*Create(1)), With(", 20.11111101, 45.21111102, 0.9996123456789, "));
}

TEST(TransverseMercatorShell, MifShowsTheProductWithThePowerOfTen) {
    // 41000000000 * 1e-10 is the double behind 4.1.
    TUnit const unity = {0, 3, "1", "1", "unity"};
    auto const shell =
        Create(1, {{6101, "4.1"}, {6102, "0"}, {6103, "0.9996"}, {6104, "500000"}, {6105, "0"}},
               {&metre, &degree, &unity});
    EXPECT_EQ(MifOf(*shell), ", 4.100000000000001, 0, 0.9996, 500000, 0");
}

TEST(TransverseMercatorShell, MifRoundsToTenDecimals) {
    auto const shell =
        Create(1, {{6101, "4.12345678912"}, {6102, "-0.12345678919"}, {6104, "0"}, {6105, "0"}}, plainUnits);
    EXPECT_EQ(MifOf(*shell), ", 4.1234567891, -0.1234567892, 0.9996123456789, 0, 0");
}

TEST(HotineObliqueMercatorShell, MifHasSixDigitsAndNoAngleToTheSkewGrid) {
    EXPECT_EQ(MifOf(*Create(3)), With(", 17.4389, 43.3111, 30.1611, 0.999512, "));
}

TEST(NZMGShell, MifHasTheLongitudeFirst) {
    EXPECT_EQ(MifOf(*Create(4)), With(", 19.5889, 45.2111, "));
}

TEST(AlbersEqualAreaConicShell, MifHasSixDigits) {
    EXPECT_EQ(MifOf(*Create(5)), With(", 20.1111, 45.2111, 40.0889, 54.6789, "));
}

TEST(LambertConicConformal2SPShell, MifHasSixteenDigits) {
    EXPECT_EQ(MifOf(*Create(6)),
              With(", 20.02678884, 47.27897883, 40.08888981, 54.67888962, ", originLengths));
}

TEST(LambertConicConformal2SPShell, MifRoundsToTenDecimals) {
    auto const shell = Create(
        6, {{6114, "4.1"}, {6115, "4.12345678912"}, {6116, "3"}, {6117, "-2.5"}, {6118, "0"}, {6119, "1"}},
        plainUnits);
    EXPECT_EQ(MifOf(*shell), ", -2.5, 3, 4.100000000000001, 4.1234567891, 0, 1");
}

TEST(LambertConicConformal2SPBelgiumShell, MifHasSixDigits) {
    EXPECT_EQ(MifOf(*Create(1201)), With(", 20.0268, 47.279, 40.0889, 54.6789, ", originLengths));
}

TEST(LambertConicConformal1SPShell, MifHasTheLatitudeThreeTimes) {
    EXPECT_EQ(MifOf(*Create(7)), With(", 19.5889, 45.2111, 45.2111, 45.2111, 0.999512, "));
}

TEST(ObliqueStereographicShell, MifHasSixDigits) {
    EXPECT_EQ(MifOf(*Create(11)), With(", 19.5889, 45.2111, 0.999412, "));
}

TEST(PolarStereographicShell, MifHasTheNorthPole) {
    EXPECT_EQ(MifOf(*Create(12)), With(", 19.5889, 90, 0.999412, "));
}

TEST(PolarStereographicShell, MifHasTheNorthPoleWhateverLatitudeCameThroughXml) {
    for (char const* const latitude : {"-80", "not a number", ""}) {
        auto const shell = Load(12, Document(12, {{"LongitudeOfNatiralOrigin", TextOf(6106)},
                                                  {"LatitudeOfNaturalOrigin", latitude},
                                                  {"ScaleFactorAtNaturalOrigin", TextOf(6120)},
                                                  {"FalseEasting", TextOf(6104)},
                                                  {"FalseNorthing", TextOf(6105)}}));
        EXPECT_EQ(MifOf(*shell), With(", 19.5889, 90, 0.999412, ")) << latitude;
    }
}

TEST(QuasiStereographicShell, MifHasTenDigitsOfAnglesAndSixteenOfTheScale) {
    EXPECT_EQ(MifOf(*Create(13)), With(", 19.58888889, 45.21111102, 0.9994123456789, "));
}

TEST(QuasiStereographicShell, MifRoundsToEightDecimals) {
    // Ten digits of 4.123456789 would show the ninth decimal.
    auto const shell =
        Create(13, {{6106, "4.123456789"}, {6102, "4.1"}, {6104, "0"}, {6105, "0"}}, plainUnits);
    EXPECT_EQ(MifOf(*shell), ", 4.12345679, 4.1, 0.9994123456789, 0, 0");
}

TEST(PolyconicShell, MifHasSixteenDigits) {
    EXPECT_EQ(MifOf(*Create(14)), With(", 19.58888889, 45.21111102, 0.9995123456789, "));
}

TEST(PolyconicShell, MifRoundsToTenDecimals) {
    auto const shell =
        Create(14, {{6106, "4.1"}, {6102, "4.12345678912"}, {6104, "0"}, {6105, "0"}}, plainUnits);
    EXPECT_EQ(MifOf(*shell), ", 4.100000000000001, 4.1234567891, 0.9995123456789, 0, 0");
}

TEST(PolarStereographicBasicShell, MifHasTheLatitudeOfThePole) {
    EXPECT_EQ(MifOf(*Create(21)), With(", 19.5889, 90, 0.999412, "));
    EXPECT_EQ(MifOf(*Create(21, {{PoleKey, "S"}})), With(", 19.5889, -90, 0.999412, "));
}

TEST(PolarStereographicNaturalOriginShell, MifHasTheLatitudeOfThePole) {
    EXPECT_EQ(MifOf(*Create(22)), With(", 19.5889, 90, 0.999412, "));
    EXPECT_EQ(MifOf(*Create(22, {{PoleKey, "S"}})), With(", 19.5889, -90, 0.999412, "));
}

TEST(ParameterisedProjections, ElevenHaveNoMifForm) {
    for (int const type : {2, 8, 9, 10, 16, 17, 23, 24, 25, 26, 1313}) {
        EXPECT_EQ(MifOf(*Create(type)), "false") << type;
    }
}

TEST(ParameterisedProjections, MifLengthsAreInTheOutputUnit) {
    // 500.0244 m and -100.0506 m.
    EXPECT_EQ(MifOf(*Create(4), foot), ", 19.5889, 45.2111, 1640.499999999999772626325, -328.25");
    EXPECT_EQ(MifOf(*Create(4), kilometre),
              ", 19.5889, 45.2111, 0.5000244000000000355043994, -0.1000506000000000034200198");
}

TEST(ParameterisedProjections, MifCutsLargeNumbersToSixDigits) {
    auto const shell = Create(4, {{6106, "173.12345678"}, {6102, "-41.98765432"}}, plainUnits);
    EXPECT_EQ(MifOf(*shell), ", 173.123, -41.9877, 1640.5, -328.25");
}

TEST(ParameterisedProjections, MifNeedsAnOutputUnit) {
    for (TShellClass const& shellClass : AllClasses()) {
        std::string text = "clause";
        EXPECT_FALSE(Create(shellClass.type)->ExportToMIFMID(nullptr, &text)) << shellClass.name;
        EXPECT_EQ(text, "clause") << shellClass.name;
    }
}

TEST(PolarShells, MifOfAPoleOfNeitherValueIsFalse) {
    auto const basic = Create(21);
    dynamic_cast<TShellPolarStereographicBasicMapProjection&>(*basic).Pole = TPole(0);
    EXPECT_EQ(MifOf(*basic), "false");
    auto const natural = Create(22);
    dynamic_cast<TShellPolarStereographicNaturalOriginMapProjection&>(*natural).Pole = TPole(3);
    EXPECT_EQ(MifOf(*natural), "false");
}

} // namespace
