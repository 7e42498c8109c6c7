#include "hostkit/XmlIni.h"
#include "shell/units/AngularUnit.h"
#include "shell/units/BuiltInUnits.h"
#include "shell/units/LinearUnit.h"
#include "shell/units/ScaleUnit.h"
#include "shell/units/SexagesimalUnits.h"
#include "tests/support/Descriptions.h"
#include "tests/threads/Crew.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace KvRefSystem;
using namespace TestSupport;
using namespace Threads;

template <class Unit>
std::unique_ptr<Unit> UnitOf(TUnitText const& text) {
    TStringTree tree;
    FillUnit(&tree, text);
    return std::make_unique<Unit>(&tree);
}

TUnitText Notation(TAngularNotation code) {
    TUnitText text = Degree();
    text.code = code;
    return text;
}

std::string Exported(TShellUnit const& unit) {
    std::string text;
    unit.ExportToWKT(&text);
    std::map<int, std::string> keys;
    unit.ExportToGeoTIFF(&keys, 1, 2);
    VellariHostKit::TXmlIniWriter writer;
    unit.SaveToXML(&writer);
    for (auto const& [key, value] : keys) {
        text += ' ' + value;
    }
    return text + writer.ToString();
}

TEST(UnitsInThreads, OneUnitOfEveryAngularNotationServesAll) {
    std::vector<std::unique_ptr<TShellAngularUnit>> units;
    units.push_back(UnitOf<TShellAngularUnit>(Degree()));
    units.push_back(UnitOf<TShellAngularUnit>(Grad()));
    units.push_back(UnitOf<TShellAngularUnit>(Radian()));
    units.push_back(UnitOf<TShellUnitDegreeMinuteSecond>(Notation(anDegreeMinuteSecond)));
    units.push_back(UnitOf<TShellUnitDegreeMinuteSecondHemisphere>(Notation(anDegreeMinuteSecondHemisphere)));
    units.push_back(UnitOf<TShellUnitSexagesimalDegree>(Notation(anSexagesimalDegree)));
    units.push_back(UnitOf<TShellDegreeDecimalMinuteUnit>(Notation(anDegreeDecimalMinute)));

    auto const outcome = AskTogether(60, [&](int) {
        std::vector<std::string> answers;
        for (auto const& unit : units) {
            std::string const latitude = unit->DegreesToStringLatitude(-12.5, 6);
            std::string const longitude = unit->DegreesToStringLongitude(37.75, 6);
            answers.push_back(latitude + '|' + longitude + Exported(*unit));
            double const degrees[2] = {unit->StringToDegreesLatitude(latitude),
                                       unit->StringToDegreesLongitude(longitude)};
            answers.emplace_back(std::string(reinterpret_cast<char const*>(degrees), sizeof degrees));
        }
        return answers;
    });

    EXPECT_EQ(outcome.deviations, 0);
    for (std::size_t unit = 0; unit < units.size(); ++unit) {
        double degrees[2] = {};
        outcome.alone[2 * unit + 1].copy(reinterpret_cast<char*>(degrees), sizeof degrees);
        EXPECT_NEAR(degrees[0], -12.5, 1e-4) << units[unit]->Code; // radians are printed to 6 places
        EXPECT_NEAR(degrees[1], 37.75, 1e-4) << units[unit]->Code;
    }
    EXPECT_EQ(outcome.alone[0].rfind("-12.500000|37.750000", 0), 0U) << outcome.alone[0];
}

TEST(UnitsInThreads, OneUnitOfLengthAndOneOfScaleServeAll) {
    auto const metre = UnitOf<TShellLinearUnit>(Metre());
    auto const foot = UnitOf<TShellLinearUnit>(Foot());
    auto const ppm = UnitOf<TShellScaleUnit>(PartsPerMillion());

    auto const outcome = AskTogether(200, [&](int) {
        double value = foot->StringToValue("1000.5");
        foot->Convert(*metre, &value);
        std::string text;
        bool const converted = Convert(*foot, "100", *metre, &text);
        return std::vector<std::string>{metre->ValueToString(value, 6), converted ? text : "none",
                                        ppm->ValueToString(ppm->StringToValue("12.25", 0.0), 3),
                                        *metre == *foot ? "equal" : "different",
                                        Exported(*foot) + Exported(*ppm) + CreateWKTDegreeString()};
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_EQ(outcome.alone[0], "304.952400"); // 1000.5 * 0.3048
    EXPECT_EQ(outcome.alone[1].rfind("30.48", 0), 0U) << outcome.alone[1];
    EXPECT_EQ(outcome.alone[2], "12.25"); // a unit of scale takes no number of places
    EXPECT_EQ(outcome.alone[3], "different");
}

TEST(UnitsInThreads, BuiltInUnitsAreBuiltByAll) {
    auto const outcome = AskTogether(50, [](int) {
        TStringTree metre;
        TStringTree radian;
        TStringTree degree;
        EXPECT_TRUE(FillMeterTree(&metre) && FillRadianTree(&radian) && FillDegreeTree(&degree));
        return TextOf(metre) + TextOf(radian) + TextOf(degree);
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_NE(outcome.alone.find("metre"), std::string::npos);
    EXPECT_NE(outcome.alone.find("degree"), std::string::npos);
}

} // namespace
