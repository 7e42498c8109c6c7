#include "frame/NumberText.h"
#include "shell/refsystems/VerticalReferenceSystem.h"
#include "tests/support/CartesianKinds.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/threads/Places.h"

#include <gtest/gtest.h>

#include <exception>
#include <iterator>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace KvRefSystem;
using namespace TestSupport;
using namespace Threads;

using TAnswers = std::vector<std::string>;

/** One const operation and its answer as a text; an exception's text is an answer too. */
struct TReading {
    char const* name;
    std::string (*ask)(TShellReferenceSystem const& system, TShellReferenceSystem const& other);
};

std::string Told(bool answer) {
    return answer ? "yes " : "no ";
}

std::string Told(std::map<int, std::string> const& keys) {
    std::string text;
    for (auto const& [key, value] : keys) {
        text += FormatText("%d=", key) + value + '\n';
    }
    return text;
}

/** A number to the last bit. */
std::string Told(double value) {
    return FormatText("%a ", value);
}

/** The tree that `fill` makes at a place near the systems' origins. */
template <class Fill>
std::string Tree(Fill const& fill) {
    TStringTree tree;
    std::string const answer = FormatText("%d ", static_cast<int>(fill(&tree)));
    return answer + TextOf(tree);
}

std::string Axes(TShellReferenceSystem const& system) {
    TCardinalDirection directions[2] = {};
    double radius = 0;
    double axes[2] = {};
    std::string text = Told(system.GetAxesDirections(&directions[0], &directions[1]));
    text += FormatText("%d %d ", static_cast<int>(directions[0]), static_cast<int>(directions[1]));
    text += Told(system.IsLeft()) + Told(system.GetSphereRadius(&radius)) + Told(radius);
    return text + Told(system.GetEllipsoidSemiAxesMeters(&axes[0], &axes[1])) + Told(axes[0]) + Told(axes[1]);
}

std::string Units(TShellReferenceSystem const& system) {
    return Told(system.GetPlaneUnitCoefToBase()) + system.GetPlaneUnitName() +
           system.GetPlaneUnitShortName() + FormatText(" %d ", system.GetPlaneUnitDefPrec()) +
           Told(system.GetHeightUnitCoefToBase()) + system.GetHeightUnitName() +
           system.GetHeightUnitShortName() + FormatText(" %d", system.GetHeightUnitDefPrec());
}

std::string Kind(TShellReferenceSystem const& system) {
    return Told(system.IsGlobal()) + Told(system.IsLatLon()) + Told(system.IsGeocentric()) +
           Told(system.IsProjected()) + Told(system.IsTopocentricHorizontal()) +
           system.GetMapProjectionName() +
           FormatText(" %u %u", system.GetGeoTIFFCode(), system.GetPanoramaCode());
}

std::string Datum(TShellReferenceSystem const& system) {
    double params[7] = {};
    std::string text = Told(system.GetDatumShiftParams(&params[0], &params[1], &params[2], &params[3],
                                                       &params[4], &params[5], &params[6]));
    for (double const param : params) {
        text += Told(param);
    }
    std::string part;
    text += Told(system.ExportDatumToMIFMID(&part, true)) + part;
    return text + Told(system.ExportDatumToWKT(&part)) + part;
}

std::string GeoidAndProxy(TShellReferenceSystem const& system) {
    var_a<TShellReferenceSystem*> const proxy = system.GetProxyRefSys();
    return system.GetGeoidSetting() + system.GetGeoidID() + Told(system.ContainsGeoid()) +
           Told(system.GetGeoidGrid() == nullptr) + Told(system.GetGeoidGridRefSystem() == nullptr) +
           Told(system.CheckGeoid()) + Told(system.ContainsProxyRefSys()) + system.GetProxyRefSysStr() +
           system.GetProxyRefSysName() + system.GetProxyGeoidSetting() + system.GetProxyGeoidID() +
           (proxy ? proxy->Name : "none");
}

std::string Chains(TShellReferenceSystem const& system) {
    std::map<std::string, TRefSystemTransformsSet> sets;
    std::string text = Told(system.InitializeCorePairwiseTransforms(&sets));
    for (auto const& [name, set] : sets) {
        std::vector<std::string> lines;
        set.Output(&lines);
        text += name + '\n';
        for (std::string const& line : lines) {
            text += line + '\n';
        }
    }
    TShellRefSystemTransformParams const* const record = system.GetTransform(0);
    text += record ? FormatText("%d ", static_cast<int>(record->Type)) : "none ";
    text += Told(system.FindPairwiseTransforms("pair") != nullptr);
    text += Told(system.FindPairwiseTransformsSettings("pair") != nullptr);
    return text + Told(system.GetPairwiseTransform("pair", 0) != nullptr);
}

std::string Forms(TShellReferenceSystem const& system) {
    std::string text;
    EXPECT_TRUE(system.WriteToString(text));
    std::vector<char> buffer(system.WriteToString(nullptr));
    system.WriteToString(buffer.data());
    VellariHostKit::TXmlIniWriter keys;
    VellariHostKit::TXmlIniWriter tree;
    bool const hasKeys = system.SaveToXML(&keys);
    bool const hasTree = system.WriteToXML(&tree);
    return text + Told(std::string(buffer.begin(), buffer.end()) == text) + Told(hasKeys) +
           (hasKeys ? keys.ToString() : "") + Told(hasTree) + (hasTree ? tree.ToString() : "");
}

std::string Wkt(TShellReferenceSystem const& system) {
    std::string text;
    std::string told = Told(system.ExportToWKT(&text, false, false)) + text;
    told += Told(system.ExportToWKT(&text, true, true)) + text;
    return told + Told(system.ExportAxesToWKT(&text)) + text;
}

std::string Mif(TShellReferenceSystem const& system) {
    std::string text;
    std::string const told = Told(system.ExportToMIFMID(&text, false)) + text;
    return told + Told(system.ExportToMIFMID(&text, true)) + text;
}

std::string Keys(TShellReferenceSystem const& system) {
    std::map<int, std::string> keys[3];
    std::string text = Told(system.ExportToGeoTIFF(&keys[0], true)) + Told(keys[0]);
    text += Told(system.ExportToGeoTIFFClassified(&keys[1])) + Told(keys[1]);
    return text + Told(system.ExportToPanorama(&keys[2], true)) + Told(keys[2]);
}

std::string Points(TShellReferenceSystem const& system) {
    double shell[3] = {30, 40, 50};
    TCoords core{};
    system.CoordsShellToCore(shell, &core);
    TShellCoords texts;
    system.CoordsCoreToShell(core, &texts);
    system.CoordsShellToCore(texts, &core);
    system.CoordsCoreToShell(core, shell);
    double const area = system.CalculateArea({{{0, 0, 0}}, {{0, 1, 0}}, {{1, 1, 0}}});
    return texts.Coord[0] + texts.Coord[1] + texts.Coord[2] + Told(shell[0]) + Told(shell[1]) +
           Told(shell[2]) + Told(area);
}

std::string Compared(TShellReferenceSystem const& system, TShellReferenceSystem const& other) {
    TShellReferenceSystem const& same = system;
    return Told(system == same) + Told(system == other) + Told(other == system) + Told(system ^= same) +
           Told(system.PreservesHeights(same)) + Told(system.PreservesHeights(other));
}

/** A reading of one system alone. */
template <std::string (*ask)(TShellReferenceSystem const&)>
std::string One(TShellReferenceSystem const& system, TShellReferenceSystem const&) {
    return ask(system);
}

std::string Internal(TShellReferenceSystem const& system) {
    return Tree(
        [&](TStringTree* tree) { return system.FillInternalRefSystemTree(tree, Texts("55", "37", "100")); });
}

std::string Primary(TShellReferenceSystem const& system) {
    return Tree([&](TStringTree* tree) { return system.FillPrimaryGeodeticRefSystemTree(tree); }) +
           Tree([&](TStringTree* tree) { return system.FillPrimaryGeodeticRefSystemTreeDeg(tree); }) +
           Tree([&](TStringTree* tree) { return system.FillPrimaryGeocentricRefSystemTree(tree); });
}

constexpr TReading Readings[] = {
    {"axes", &One<&Axes>},
    {"units", &One<&Units>},
    {"kind", &One<&Kind>},
    {"datum", &One<&Datum>},
    {"proxy", &One<&GeoidAndProxy>},
    {"chains", &One<&Chains>},
    {"forms", &One<&Forms>},
    {"WKT", &One<&Wkt>},
    {"MIF", &One<&Mif>},
    {"keys", &One<&Keys>},
    {"points", &One<&Points>},
    {"internal", &One<&Internal>},
    {"primary", &One<&Primary>},
    {"compared", &Compared},
};
constexpr std::size_t ReadingCount = std::size(Readings);

/** Every reading; each thread begins at another one, so that different ones meet. */
TAnswers Everything(TShellReferenceSystem const& system, TShellReferenceSystem const& other, int number) {
    TAnswers answers(ReadingCount);
    for (std::size_t step = 0; step < ReadingCount; ++step) {
        std::size_t const index = (step + static_cast<std::size_t>(number)) % ReadingCount;
        try {
            answers[index] = Readings[index].ask(system, other);
        } catch (std::exception const& failure) {
            answers[index] = std::string("thrown: ") + failure.what();
        }
    }
    return answers;
}

std::string const& AnswerOf(TAnswers const& answers, std::string const& name) {
    for (std::size_t index = 0; index < ReadingCount; ++index) {
        if (name == Readings[index].name) {
            return answers[index];
        }
    }
    throw std::logic_error("no reading " + name);
}

void ExpectReadByAll(TShellReferenceSystem const& system, TShellReferenceSystem const& other,
                     std::string const& wktBegin) {
    auto const outcome = AskTogether(8, [&](int number) { return Everything(system, other, number); });

    EXPECT_EQ(outcome.deviations, 0);
    for (std::size_t index = 0; index < ReadingCount; ++index) {
        EXPECT_NE(outcome.alone[index], "") << Readings[index].name;
        EXPECT_NE(outcome.alone[index].rfind("thrown", 0), 0U)
            << Readings[index].name << " " << outcome.alone[index];
    }
    EXPECT_EQ(AnswerOf(outcome.alone, "WKT").rfind(wktBegin, 0), 0U) << AnswerOf(outcome.alone, "WKT");
    EXPECT_NE(AnswerOf(outcome.alone, "forms").find(system.Name), std::string::npos);
    EXPECT_EQ(AnswerOf(outcome.alone, "compared").rfind("yes no no yes yes ", 0), 0U)
        << AnswerOf(outcome.alone, "compared");
    EXPECT_NE(AnswerOf(outcome.alone, "chains").find("pair\n"), std::string::npos);
}

auto const Fill = [](TStringTree* tree) { FillRest(tree); };

TEST(ReadingsInThreads, AGeodeticSystemIsReadByAll) {
    auto const system = Geodetic(Pulkovo1942(), Fill);
    auto const other = Projected(On(WithZeroShift(), UtmZone(37, 'N')), Fill);
    ExpectReadByAll(*system, *other, "yes GEOGCS[");
}

TEST(ReadingsInThreads, AProjectedSystemIsReadByAll) {
    auto const system = Projected(On(Pulkovo1942(), TransverseMercator("39", "1", "7500000")), Fill);
    auto const other = Geodetic(WithZeroShift(), Fill);
    ExpectReadByAll(*system, *other, "yes PROJCS[");
}

TEST(ReadingsInThreads, AGeocentricSystemIsReadByAll) {
    auto const system = TestSupport::Everything(CartesianKinds[0]);
    auto const other = TestSupport::Everything(CartesianKinds[1]);
    ExpectReadByAll(*system, *other, "yes GEOCCS[");
}

TEST(ReadingsInThreads, ATopocentricSystemIsReadByAll) {
    auto const system = TestSupport::Everything(CartesianKinds[1]);
    auto const other = TestSupport::Everything(CartesianKinds[0]);
    ExpectReadByAll(*system, *other, "yes LOCAL_CS[");
}

TEST(ReadingsInThreads, ALocalCartesianSystemIsReadByAll) {
    auto const system = TestSupport::Everything(CartesianKinds[2]);
    auto const other = TestSupport::Everything(CartesianKinds[3]);
    ExpectReadByAll(*system, *other, "yes LOCAL_CS[");
}

TEST(ReadingsInThreads, ALocalCurvedSystemIsReadByAll) {
    auto const system = TestSupport::Everything(CartesianKinds[3]);
    auto const other = TestSupport::Everything(CartesianKinds[2]);
    ExpectReadByAll(*system, *other, "yes LOCAL_CS[");
}

TEST(ReadingsInThreads, AVerticalSystemIsReadByAll) {
    TStringTree tree;
    FillUnit(Child(&tree, 1104), Foot());
    TShellVerticalReferenceSystem const system(&tree);
    TShellVerticalReferenceSystem const other(&tree);

    auto const outcome = AskTogether(50, [&](int) {
        std::string text;
        std::string const told = Told(system.ExportToWKT(&text)) + text;
        VellariHostKit::TXmlIniWriter writer;
        return told + Told(system.SaveToXML(&writer)) + writer.ToString() + Told(system == other);
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_EQ(outcome.alone.rfind("yes VERT_CS[", 0), 0U) << outcome.alone;
    EXPECT_NE(outcome.alone.find("0.3048"), std::string::npos);
}

} // namespace
