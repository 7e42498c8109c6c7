#include "shell/projections/TransverseCylinders.h"

#include "core/projections/GaussBoaga.h"
#include "core/projections/GaussKrugerWide.h"
#include "tests/shell/projections/ZonedTestKit.h"

namespace {

using namespace ZonedTestKit;
using Boaga = TShellGaussBoagaMapProjection;
using Wide = TShellGaussKrugerWideMapProjection;

// Hosts are compiled against this layout.
static_assert(sizeof(Boaga) == sizeof(TShellMapProjection) + 4 * sizeof(std::string));
static_assert(sizeof(Wide) == sizeof(Boaga));

constexpr char const* boagaMessage =
    "TShellGaussBoagaMapProjection::TShellGaussBoagaMapProjection(TStringTree *tree)";
constexpr char const* wideMessage =
    "TShellGaussKrugerWideMapProjection::TShellGaussKrugerWideMapProjection(TStringTree *tree)";

constexpr int MeridianKey = 6101;
constexpr int ScaleKey = 6103;
constexpr int EastingKey = 6104;
constexpr int NorthingKey = 6105;
constexpr int MandatoryKeys[] = {MeridianKey, EastingKey, NorthingKey};

constexpr TUnits otherUnits = {&foot, &grad, &millionth};
constexpr TUnits noScaleUnit = {&metre, &degree, nullptr};

/** The western zone of Italy. */
TChanges const italy = {
    {MeridianKey, "9"}, {ScaleKey, "0.9996"}, {EastingKey, "1500000"}, {NorthingKey, "0"}};

std::unique_ptr<Boaga> MakeBoaga(TChanges const& texts = italy, TUnits const& units = surveyUnits) {
    return Make<Boaga>(15, texts, units);
}

std::unique_ptr<Wide> MakeWide(TChanges const& texts = italy, TUnits const& units = surveyUnits) {
    return Make<Wide>(101, texts, units);
}

template <class Core, class Shell>
auto ParametersOf(Shell const& shell, TMapProjectionType type) {
    std::unique_ptr<TMapProjection> const core = CoreOf(shell);
    auto const* const cylinder = dynamic_cast<Core const*>(core.get());
    if (!cylinder) {
        throw std::logic_error("no core, or one of another class");
    }
    EXPECT_EQ(cylinder->Type, type);
    return *cylinder->Parameters;
}

auto BoagaCore(Boaga const& shell) {
    return ParametersOf<TGaussBoagaMapProjection>(shell, mptGaussBoaga);
}

auto WideCore(Wide const& shell) {
    return ParametersOf<TGaussKrugerWideMapProjection>(shell, mptGaussKrugerWide);
}

template <class Record>
void ExpectRecord(Record const& record, double degrees, double scale, double easting, double northing) {
    EXPECT_NEAR(record.CentralMeridian, degrees * 3.141592653589793 / 180, 1e-16);
    EXPECT_DOUBLE_EQ(record.ScaleFactor, scale);
    EXPECT_DOUBLE_EQ(record.FalseEasting, easting);
    EXPECT_DOUBLE_EQ(record.FalseNorthing, northing);
}

std::string Wkt(char const* meridian, char const* scale, char const* easting, char const* northing) {
    return std::string("PARAMETER[\"latitude_of_origin\",0],\tPARAMETER[\"central_meridian\",") + meridian +
           "],\tPARAMETER[\"scale_factor\"," + scale + "],\tPARAMETER[\"false_easting\"," + easting +
           "],\tPARAMETER[\"false_northing\"," + northing + "]";
}

// --- Description -------------------------------------------------------------------------------------------

TEST(TransverseCylinders, DescriptionKeepsTheTextsAsTheyWereTyped) {
    TChanges const texts = {{MeridianKey, "9.0"}, {ScaleKey, "x"}, {EastingKey, ""}, {NorthingKey, " 1e2 "}};
    auto const boaga = MakeBoaga(texts);
    EXPECT_EQ(boaga->Type, mptGaussBoaga);
    EXPECT_EQ(boaga->CentralMeridian, "9.0");
    EXPECT_EQ(boaga->ScaleFactor, "x");
    EXPECT_EQ(boaga->FalseEasting, "");
    EXPECT_EQ(boaga->FalseNorthing, " 1e2 ");
    auto const wide = MakeWide(texts);
    EXPECT_EQ(wide->Type, mptGaussKrugerWide);
    EXPECT_EQ(wide->CentralMeridian, "9.0");
    EXPECT_EQ(wide->ScaleFactor, "x");
    EXPECT_EQ(wide->FalseEasting, "");
    EXPECT_EQ(wide->FalseNorthing, " 1e2 ");
}

template <class Shell>
void ExpectMembersInOrder(Shell const& shell) {
    constexpr auto First = static_cast<std::ptrdiff_t>(sizeof(TShellMapProjection));
    constexpr auto Text = static_cast<std::ptrdiff_t>(sizeof(std::string));
    EXPECT_EQ(OffsetOf(shell, shell.CentralMeridian), First);
    EXPECT_EQ(OffsetOf(shell, shell.ScaleFactor), First + Text);
    EXPECT_EQ(OffsetOf(shell, shell.FalseEasting), First + 2 * Text);
    EXPECT_EQ(OffsetOf(shell, shell.FalseNorthing), First + 3 * Text);
}

TEST(TransverseCylinders, ClassesAreDirectChildrenOfTheFamilyWithTheirMembersInOrder) {
    ExpectDirectChildOfTheFamily<Boaga>();
    ExpectDirectChildOfTheFamily<Wide>();
    ExpectMembersInOrder(*MakeBoaga());
    ExpectMembersInOrder(*MakeWide());
}

TEST(TransverseCylinders, MissingTextsAreRefused) {
    for (int const tag : MandatoryKeys) {
        EXPECT_EQ(Refusal<Boaga>(15, Without(italy, tag)), boagaMessage) << tag;
        EXPECT_EQ(Refusal<Wide>(101, Without(italy, tag)), wideMessage) << tag;
    }
    EXPECT_EQ(Refusal<Boaga>(15, Without(italy, ScaleKey)), boagaMessage);
}

TEST(TransverseCylinders, WideTakesAMissingScaleFactorForOne) {
    auto const wide = MakeWide(Without(italy, ScaleKey));
    EXPECT_EQ(wide->ScaleFactor, "1");
    ExpectRecord(WideCore(*wide), 9, 1, 1500000, 0);
    EXPECT_EQ(GeoKeysOf(*wide).at(3092), "1");
}

// --- Core --------------------------------------------------------------------------------------------------

TEST(TransverseCylinders, CoreHasTheConvertedParameters) {
    ExpectRecord(BoagaCore(*MakeBoaga()), 9, 0.9996, 1500000, 0);
    ExpectRecord(WideCore(*MakeWide()), 9, 0.9996, 1500000, 0);
    TChanges const others = {
        {MeridianKey, "10"}, {ScaleKey, "999600"}, {EastingKey, "1000"}, {NorthingKey, "-500"}};
    ExpectRecord(BoagaCore(*MakeBoaga(others, otherUnits)), 9, 0.9996, 304.8, -152.4);
    ExpectRecord(WideCore(*MakeWide(others, otherUnits)), 9, 0.9996, 304.8, -152.4);
}

// The exact projection: PROJ 9.1.1, `proj +proj=tmerc +ellps=WGS84 +lon_0=39 +x_0=7500000`. The closed forms
// are good to centimetres, the wide series to a tenth of a millimetre 21 degrees out.
TEST(TransverseCylinders, CoresProjectAsPublishedTools) {
    TChanges const texts = {
        {MeridianKey, "39"}, {ScaleKey, "1"}, {EastingKey, "7500000"}, {NorthingKey, "0"}};
    ExpectPlane(*MakeBoaga(texts), 37, 55, 7372020.61687, 6099060.33062, 2.5e-2);
    ExpectPlane(*MakeWide(texts), 37, 55, 7372020.61687, 6099060.33062, 1e-4);
    ExpectPlane(*MakeWide(texts), 60, 55, 8832996.28317, 6301122.54553, 1.3e-4);
}

TEST(TransverseCylinders, CoreNeedsAnEllipsoid) {
    EXPECT_EQ(MakeBoaga()->CreateCoreMapProjection(nullptr), nullptr);
    EXPECT_EQ(MakeWide()->CreateCoreMapProjection(nullptr), nullptr);
}

TEST(TransverseCylinders, TextsThatDoNotParseAndEmptyOnesGiveNothing) {
    for (char const* const bad : {"", " ", "\t", "x"}) {
        for (int const tag : MandatoryKeys) {
            SCOPED_TRACE(::testing::Message() << tag << " \"" << bad << "\"");
            EXPECT_EQ(CoreOf(*MakeBoaga(With(italy, tag, bad))), nullptr);
            EXPECT_EQ(WktOf(*MakeBoaga(With(italy, tag, bad))), "false");
            EXPECT_EQ(MifOf(*MakeBoaga(With(italy, tag, bad))), "false");
            EXPECT_EQ(GeoKeysOf(*MakeBoaga(With(italy, tag, bad))), (TGeoKeys{{0, "false"}}));
            EXPECT_EQ(CoreOf(*MakeWide(With(italy, tag, bad))), nullptr);
            EXPECT_EQ(WktOf(*MakeWide(With(italy, tag, bad))), "false");
            EXPECT_EQ(MifOf(*MakeWide(With(italy, tag, bad))), "false");
            EXPECT_EQ(GeoKeysOf(*MakeWide(With(italy, tag, bad))), (TGeoKeys{{0, "false"}}));
        }
        ExpectNothingComesOut(*MakeBoaga(With(italy, ScaleKey, bad)));
    }
}

TEST(TransverseCylinders, MissingUnitsGiveNothing) {
    ExpectNothingComesOut(*MakeBoaga(italy, noUnits));
    ExpectNothingComesOut(*MakeBoaga(italy, noScaleUnit));
    ExpectNothingComesOut(*MakeBoaga(italy, {nullptr, &degree, &unity}));
    ExpectNothingComesOut(*MakeBoaga(italy, {&metre, nullptr, &unity}));
    ExpectNothingComesOut(*MakeWide(italy, noUnits));
    ExpectNothingComesOut(*MakeWide(italy, {nullptr, &degree, &unity}));
    ExpectNothingComesOut(*MakeWide(italy, {&metre, nullptr, &unity}));
}

TEST(TransverseCylinders, WideHasAScaleOfOneWithoutAScaleUnitOrWithAnEmptyText) {
    for (char const* const text : {"0.9996", "x", "", " "}) {
        auto const wide = MakeWide(With(italy, ScaleKey, text), noScaleUnit);
        EXPECT_EQ(WideCore(*wide).ScaleFactor, 1) << text;
        EXPECT_EQ(WktOf(*wide), Wkt("9", "1", "1500000", "0")) << text;
        EXPECT_EQ(MifOf(*wide), ", 9, 0, 1, 1500000, 0") << text;
    }
    auto const empty = MakeWide(With(italy, ScaleKey, ""));
    EXPECT_EQ(WideCore(*empty).ScaleFactor, 1);
    EXPECT_EQ(WktOf(*empty), Wkt("9", "1", "1500000", "0"));
    EXPECT_EQ(MifOf(*empty), ", 9, 0, 1, 1500000, 0");
}

TEST(TransverseCylinders, WideScaleThatDoesNotParseInItsUnitIsAFailure) {
    for (char const* const text : {"x", " "}) {
        auto const wide = MakeWide(With(italy, ScaleKey, text));
        EXPECT_EQ(CoreOf(*wide), nullptr) << text;
        EXPECT_EQ(WktOf(*wide), "false") << text;
        EXPECT_EQ(MifOf(*wide), "false") << text;
    }
}

// --- Exports -----------------------------------------------------------------------------------------------

TEST(TransverseCylinders, WktIsATransverseMercatorInDegreesAndMetres) {
    TChanges const others = {
        {MeridianKey, "10"}, {ScaleKey, "999600"}, {EastingKey, "1000"}, {NorthingKey, "-500"}};
    for (TOwned const& shell : {TOwned(MakeBoaga()), TOwned(MakeWide())}) {
        EXPECT_EQ(WktTypeOf(*shell), "Transverse_Mercator");
        EXPECT_EQ(WktOf(*shell), Wkt("9", "0.9996", "1500000", "0"));
    }
    for (TOwned const& shell :
         {TOwned(MakeBoaga(others, otherUnits)), TOwned(MakeWide(others, otherUnits))}) {
        EXPECT_EQ(WktOf(*shell), Wkt("9", "0.9996", "304.8", "-152.4"));
    }
}

// floor(4.1e10 + 0.5) * 1e-10 shows its last digit; lengths are metres times 1 / 0.3048: all from Python.
TEST(TransverseCylinders, MapInfoMeridianIsRoundedToTenDecimalsAndShowsTheProduct) {
    for (TOwned const& shell : {TOwned(MakeBoaga()), TOwned(MakeWide())}) {
        EXPECT_EQ(MifOf(*shell), ", 9, 0, 0.9996, 1500000, 0");
        EXPECT_EQ(MifOf(*shell, foot), ", 9, 0, 0.9996, 4921259.842519684694707394, 0");
    }
    TChanges const edge = With(italy, MeridianKey, "4.1");
    EXPECT_EQ(MifOf(*MakeBoaga(edge)), ", 4.100000000000001, 0, 0.9996, 1500000, 0");
    EXPECT_EQ(MifOf(*MakeWide(edge)), ", 4.100000000000001, 0, 0.9996, 1500000, 0");
    TChanges const fine = With(italy, MeridianKey, "9.00000000004");
    EXPECT_EQ(MifOf(*MakeBoaga(fine)), ", 9, 0, 0.9996, 1500000, 0");
    EXPECT_EQ(MifOf(*MakeWide(fine)), ", 9, 0, 0.9996, 1500000, 0");
}

TEST(TransverseCylinders, MapInfoNeedsAnOutputUnit) {
    for (TOwned const& shell : {TOwned(MakeBoaga()), TOwned(MakeWide())}) {
        std::string text = "kept";
        EXPECT_FALSE(shell->ExportToMIFMID(nullptr, &text));
        EXPECT_EQ(text, "kept");
    }
}

TEST(TransverseCylinders, BoagaGeoKeysHaveDegreesUnderTheCentresKeyWhateverTheUnit) {
    TGeoKeys const expected = {{3081, "0"}, {3088, "9"}, {3092, "0.9996"}, {3082, "1500000"}, {3083, "0"}};
    EXPECT_EQ(GeoKeysOf(*MakeBoaga()), expected);
    EXPECT_EQ(GeoKeysOf(*MakeBoaga(), grad), expected);
    auto const metres = MakeUnit<TShellLinearUnit>(metre);
    TGeoKeys keys;
    EXPECT_TRUE(MakeBoaga()->ExportMapProjParamsToGeoTIFF(&keys, nullptr, metres.get()));
    EXPECT_EQ(keys, expected);
}

TEST(TransverseCylinders, BoagaGeoKeysHaveTenDigitsOfMeridianAndScale) {
    TChanges const texts = {{MeridianKey, "9.123456789123"},
                            {ScaleKey, "0.99961234567891"},
                            {EastingKey, "1500000"},
                            {NorthingKey, "0"}};
    TGeoKeys const keys = GeoKeysOf(*MakeBoaga(texts), degree, foot);
    EXPECT_EQ(keys.at(3088), "9.123456789");
    EXPECT_EQ(keys.at(3092), "0.9996123457");
    EXPECT_EQ(keys.at(3082), "4921259.842519684694707394");
    EXPECT_EQ(keys.at(3083), "0");
}

TEST(TransverseCylinders, WideGeoKeysHaveAPointBehindTheZeroAndTheScaleAsStored) {
    TChanges const texts = With(italy, ScaleKey, "0.99960");
    EXPECT_EQ(GeoKeysOf(*MakeWide(texts)),
              (TGeoKeys{{3081, "0."}, {3088, "9"}, {3092, "0.99960"}, {3082, "1500000"}, {3083, "0"}}));
    // 9 degrees are 10 gon.
    EXPECT_EQ(GeoKeysOf(*MakeWide(texts), grad, foot), (TGeoKeys{{3081, "0."},
                                                                 {3088, "10"},
                                                                 {3092, "0.99960"},
                                                                 {3082, "4921259.842519684694707394"},
                                                                 {3083, "0"}}));
    EXPECT_EQ(GeoKeysOf(*MakeWide(With(italy, ScaleKey, "999600"), otherUnits)).at(3092), "999600");
    EXPECT_EQ(GeoKeysOf(*MakeWide(With(italy, ScaleKey, "x"))).at(3092), "x");
    EXPECT_EQ(GeoKeysOf(*MakeWide(With(italy, ScaleKey, ""))).at(3092), "");
}

TEST(TransverseCylinders, GeoKeysThatExistStay) {
    auto const angular = MakeAngularUnit(degree);
    auto const linear = MakeUnit<TShellLinearUnit>(metre);
    for (TOwned const& shell : {TOwned(MakeBoaga()), TOwned(MakeWide())}) {
        TGeoKeys keys = {{3081, "there"}, {3088, "first"}};
        EXPECT_TRUE(shell->ExportMapProjParamsToGeoTIFF(&keys, angular.get(), linear.get()));
        EXPECT_EQ(
            keys,
            (TGeoKeys{{3081, "there"}, {3088, "first"}, {3092, "0.9996"}, {3082, "1500000"}, {3083, "0"}}));
    }
}

TEST(TransverseCylinders, GeoKeysNeedUnitsOfTheirKinds) {
    auto const angular = MakeAngularUnit(degree);
    auto const linear = MakeUnit<TShellLinearUnit>(metre);
    auto const noLength = MakeUnit<TShellLinearUnit>(grad);
    TGeoKeys keys;
    EXPECT_FALSE(MakeBoaga()->ExportMapProjParamsToGeoTIFF(&keys, angular.get(), nullptr));
    EXPECT_FALSE(MakeBoaga()->ExportMapProjParamsToGeoTIFF(&keys, angular.get(), noLength.get()));
    EXPECT_FALSE(MakeWide()->ExportMapProjParamsToGeoTIFF(&keys, angular.get(), nullptr));
    EXPECT_FALSE(MakeWide()->ExportMapProjParamsToGeoTIFF(&keys, angular.get(), noLength.get()));
    EXPECT_FALSE(MakeWide()->ExportMapProjParamsToGeoTIFF(&keys, nullptr, linear.get()));
    EXPECT_TRUE(keys.empty());
}

// --- Equality and life -------------------------------------------------------------------------------------

TEST(TransverseCylinders, EqualityIsThatOfTheBaseAndOfEveryText) {
    ExpectBaseToCount<Boaga>(15, italy, true);
    ExpectBaseToCount<Wide>(101, italy, true);
    for (int const tag : {MeridianKey, ScaleKey, EastingKey, NorthingKey}) {
        // The same number, written otherwise.
        TChanges const rewritten = With(italy, tag, "+" + italy.at(tag));
        EXPECT_FALSE(*MakeBoaga() == *MakeBoaga(rewritten)) << tag;
        EXPECT_FALSE(*MakeWide() == *MakeWide(rewritten)) << tag;
    }
}

TEST(TransverseCylinders, AnotherClassIsDifferentEvenUnderTheSameType) {
    auto const boaga = MakeBoaga();
    auto const wide = MakeWide();
    EXPECT_FALSE(*boaga == *wide);
    EXPECT_FALSE(*wide == *boaga);
    auto const misnamed = Make<Wide>(15, italy);
    EXPECT_FALSE(*misnamed == *boaga);
    EXPECT_FALSE(*boaga == *misnamed);
}

template <class Shell>
void ExpectNoTexts(Shell const& shell) {
    EXPECT_EQ(shell.CentralMeridian + shell.ScaleFactor + shell.FalseEasting + shell.FalseNorthing, "");
}

TEST(TransverseCylinders, ResetLeavesNothing) {
    auto const boaga = MakeBoaga();
    boaga->Reset();
    EXPECT_EQ(boaga->ScaleUnit, nullptr);
    ExpectNoTexts(*boaga);
    ExpectNothingComesOut(*boaga);
    auto const wide = MakeWide();
    wide->Reset();
    ExpectNoTexts(*wide);
    ExpectNothingComesOut(*wide);
}

TEST(TransverseCylinders, XmlLosesTheParameters) {
    auto const boaga = MakeBoaga();
    ExpectXmlLosesTheParameters(boaga.get());
    ExpectNoTexts(*boaga);
    auto const wide = MakeWide();
    ExpectXmlLosesTheParameters(wide.get());
    ExpectNoTexts(*wide);
}

} // namespace
