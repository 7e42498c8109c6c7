#include "tests/docs/Document.h"
#include "tests/support/Descriptions.h"

#include <Vellari/Vellari.h>
#include <Vellari/hostkit/HostKit.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>

// The tables of docs/formats.md against what the systems and projections write.

namespace {

using namespace KvRefSystem;
using Documents::TRow;
using Documents::TSection;

char const* const None = "-";

/** A text that each parameter of any method accepts. */
char const* TextOf(TMapProjectionParameter const& parameter) {
    static std::map<int, char const*> const texts = {
        {6102, "45"}, {6107, "49.5"}, {6109, "30.29"}, {6110, "30.29"}, {6114, "40"},
        {6115, "50"}, {6116, "45"},   {6121, "78.5"},  {6201, "7"},     {6202, "N"},
        {6203, "N"},  {6204, "C"},    {6205, "50"},    {6206, "3"},
    };
    if (auto const found = texts.find(parameter.Key); found != texts.end()) {
        return found->second;
    }
    return parameter.Unit == utLinear ? "500000" : parameter.Unit == utScale ? "0.9996" : "15";
}

std::unique_ptr<TShellReferenceSystem> Build(TMapProjectionType method) {
    TestSupport::TProjectedText text;
    text.type = method;
    for (TMapProjectionParameter const& parameter : GetMapProjectionParameters(method)) {
        text.parameters.emplace_back(parameter.Key, TextOf(parameter));
    }
    TStringTree tree;
    TestSupport::FillProjected(&tree, text);
    return std::unique_ptr<TShellReferenceSystem>(CreateShellReferenceSystem(&tree, nullptr));
}

TShellMapProjection const& ProjectionOf(TShellReferenceSystem const& system) {
    return *dynamic_cast<TShellMapProjectedReferenceSystem const&>(system).MapProjection;
}

std::string WktName(TShellMapProjection const& projection) {
    std::string name;
    std::string parameters;
    bool const isThere =
        projection.GetProjectionTypeWKT(&name) && projection.GetProjectionParamsWKT(&parameters);
    return isThere ? name : None;
}

std::string MifNumbers(TShellMapProjection const& projection) {
    std::string clause;
    if (!projection.ExportToMIFMID(projection.LinearUnit, &clause)) {
        return None;
    }
    return std::to_string(std::count(clause.begin(), clause.end(), ','));
}

std::string GeoKeys(TShellMapProjection const& projection) {
    std::map<int, std::string> keys;
    if (!projection.ExportMapProjParamsToGeoTIFF(&keys, projection.AngularUnit, projection.LinearUnit)) {
        return None;
    }
    std::string list;
    for (auto const& entry : keys) {
        list += (list.empty() ? "" : " ") + std::to_string(entry.first);
    }
    return list;
}

/** How many parameters the XML form has. */
std::string XmlTexts(TShellMapProjection const& projection) {
    VellariHostKit::TXmlIniWriter writer;
    if (!projection.SaveToXML(&writer)) {
        return None;
    }
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    unsigned long const section = reader.FindF("MapProjParameters", 0);
    if (section == TKvXIniReader::NotFound || !reader.IsSection(section)) {
        return None;
    }
    reader.EnterSectionE(section);
    return std::to_string(reader.ItemCount());
}

bool ComesBackFromXml(TShellReferenceSystem const& system) {
    VellariHostKit::TXmlIniWriter writer;
    if (!system.SaveToXML(&writer)) {
        return false;
    }
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    try {
        return std::unique_ptr<TShellReferenceSystem>(CreateShellReferenceSystem(&reader, nullptr)) !=
               nullptr;
    } catch (std::runtime_error const&) {
        return false;
    }
}

std::string WktKeyword(TShellReferenceSystem const& system, bool compound) {
    std::string text;
    return system.ExportToWKT(&text, compound, false) ? text.substr(0, text.find('[')) : None;
}

std::string ModelType(TShellReferenceSystem const& system) {
    std::map<int, std::string> keys;
    return system.ExportToGeoTIFF(&keys, true) ? keys[1024] : None;
}

std::string MifBeginning(TShellReferenceSystem const& system) {
    std::string text;
    if (!system.ExportToMIFMID(&text, false)) {
        return None;
    }
    return text.rfind("CoordSys Earth", 0) == 0 ? "Earth" : "Nonearth";
}

std::map<std::string, TRow> RowsOf(std::string const& heading) {
    auto const document = Documents::ReadDocument("formats.md");
    std::map<std::string, TRow> rows;
    for (TRow const& row : Documents::SectionOf(document, heading).rows) {
        EXPECT_TRUE(rows.emplace(row.at(0), row).second) << row.at(0);
    }
    return rows;
}

} // namespace

TEST(FormatsDocument, TellsWhatEachProjectionWrites) {
    std::map<std::string, TRow> const rows = RowsOf("What each projection writes");
    std::size_t methods = 0;
    for (int number = 0; number < 2000; ++number) {
        auto const method = static_cast<TMapProjectionType>(number);
        if (GetMapProjectionParameters(method).empty()) {
            continue;
        }
        auto const system = Build(method);
        ASSERT_NE(system, nullptr) << number;
        TShellMapProjection const& projection = ProjectionOf(*system);
        auto const row = rows.find(std::to_string(number));
        TRow const expected = {std::to_string(number),
                               row == rows.end() ? "" : row->second.at(1),
                               WktName(projection),
                               MifNumbers(projection),
                               GeoKeys(projection),
                               XmlTexts(projection),
                               ComesBackFromXml(*system) ? "yes" : "no"};
        std::string line = "|";
        for (std::string const& cell : expected) {
            line += " " + cell + " |";
        }
        ++methods;
        EXPECT_TRUE(row != rows.end() && row->second == expected) << line;
    }
    EXPECT_EQ(rows.size(), methods);
}

TEST(FormatsDocument, TellsWhatEachKindWrites) {
    std::map<std::string, TRow> const rows = RowsOf("What each kind writes");
    EXPECT_EQ(rows.size(), 6U);
    for (TSection const& section : Documents::ReadDocument("description.md")) {
        if (section.heading.rfind("Kind ", 0) != 0) {
            continue;
        }
        std::unique_ptr<TShellReferenceSystem> const system(
            CreateShellReferenceSystem(section.quotes.at(0), nullptr));
        ASSERT_NE(system, nullptr);
        auto const row = rows.find(std::to_string(system->Type));
        ASSERT_NE(row, rows.end());
        TRow const expected = {std::to_string(system->Type),
                               row->second.at(1),
                               WktKeyword(*system, false),
                               WktKeyword(*system, true),
                               MifBeginning(*system),
                               ModelType(*system),
                               ComesBackFromXml(*system) ? "yes" : "no"};
        EXPECT_EQ(row->second, expected);
    }
}
