#include "shell/projections/LocalGrids.h"
#include "shell/projections/TransverseCylinders.h"
#include "shell/projections/ZonedProjections.h"
#include "tests/shell/projections/ZonedTestKit.h"

#include <clocale>
#include <cstdio>

namespace {

using namespace ZonedTestKit;

/** A host that has set a locale with a decimal comma, for as long as this object lives. */
class TDecimalComma {
public:
    TDecimalComma() : before(std::setlocale(LC_ALL, nullptr)) {
        EXPECT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr)
            << "the locale de_DE.UTF-8 is not installed";
        char text[16] = {};
        std::snprintf(text, sizeof text, "%.1f", 0.5);
        EXPECT_STREQ(text, "0,5");
    }
    TDecimalComma(TDecimalComma const&) = delete;
    TDecimalComma& operator=(TDecimalComma const&) = delete;
    ~TDecimalComma() { std::setlocale(LC_ALL, before.c_str()); }

private:
    std::string before;
};

/** What a projection makes of its description: the core, and all that it prints. */
struct TOutcome {
    std::unique_ptr<TMapProjection> core;
    std::vector<std::string> texts;
    TGeoKeys keys;
};

TOutcome OutcomeOf(TShellMapProjection const& shell) {
    return {CoreOf(shell), {MifOf(shell, foot), WktOf(shell)}, GeoKeysOf(shell, grad, foot)};
}

void ExpectNoDifference(TOwned (*make)(int), int type) {
    TOutcome const before = OutcomeOf(*make(type));
    TDecimalComma const host;
    TOutcome const under = OutcomeOf(*make(type));
    ASSERT_NE(before.core, nullptr) << type;
    ASSERT_NE(under.core, nullptr) << type;
    EXPECT_TRUE(*before.core == *under.core) << type;
    EXPECT_EQ(before.texts, under.texts) << type;
    EXPECT_EQ(before.keys, under.keys) << type;
}

TOwned MakeOther(int type) {
    switch (type) {
    case 15:
        return Make<TShellGaussBoagaMapProjection>(
            type, {{6101, "9.25"}, {6103, "0.9996"}, {6104, "1500000.5"}, {6105, "0.125"}});
    case 101:
        return Make<TShellGaussKrugerWideMapProjection>(
            type, {{6101, "9.25"}, {6103, "0.9996"}, {6104, "1500000.5"}, {6105, "0.125"}});
    case 1001:
        return Make<TShellGaussKruger6MapProjection>(type, {{ZoneKey, "31"}, {HemisphereKey, "S"}});
    case 1002:
        return Make<TShellUTMMapProjection>(type, {{ZoneKey, "31"}, {HemisphereKey, "S"}});
    case 1003:
        return Make<TShellMSKxxMapProjection>(type, {{ZoneKey, "2"}, {WidthKey, "1.5"}, {RegionKey, "72"}});
    default:
        return Make<TShellSK63MapProjection>(type, {{ZoneKey, "2"}, {WidthKey, "3"}, {BlockKey, "C"}});
    }
}

TEST(DecimalCommaProjections, TextsAreReadAndPrintedAsInAnyOtherHost) {
    for (TShellClass const& shellClass : AllClasses()) {
        ExpectNoDifference([](int type) { return Create(type); }, shellClass.type);
    }
    for (int const type : {15, 101, 1001, 1002, 1003, 1004}) {
        ExpectNoDifference(&MakeOther, type);
    }
}

TEST(DecimalCommaProjections, NumbersHaveAPoint) {
    TDecimalComma const host;
    EXPECT_EQ(MifOf(*MakeOther(15)), ", 9.25, 0, 0.9996, 1500000.5, 0.125");
    auto const region =
        Make<TShellMSKxxMapProjection>(1003, {{ZoneKey, "2"}, {WidthKey, "1.5"}, {RegionKey, "72"}});
    EXPECT_EQ(region->ZoneWidth, 1.5);
}

} // namespace
