#include "tests/docs/Document.h"

#include <Vellari/Vellari.h>

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <string>
#include <vector>

// docs/description.md against the library: its examples are built, its tags are those of the code, and what it calls
// needed is needed.

namespace {

using namespace KvRefSystem;
using Documents::TRow;
using Documents::TSection;

char const* const Document = "description.md";

using TSystem = std::unique_ptr<TShellReferenceSystem>;

TSystem Build(std::string const& text) {
    return TSystem(CreateShellReferenceSystem(text, nullptr));
}

/** The fenced texts that are whole descriptions: the document also shows a piece of one. */
std::vector<std::string> Examples() {
    std::vector<std::string> examples;
    for (TSection const& section : Documents::ReadDocument(Document)) {
        if (section.heading.rfind("Kind ", 0) == 0) {
            examples.insert(examples.end(), section.quotes.begin(), section.quotes.end());
        }
    }
    return examples;
}

std::string ExampleOf(TReferenceSystemType kind) {
    for (std::string const& example : Examples()) {
        TSystem const system = Build(example);
        if (system && system->Type == kind) {
            return example;
        }
    }
    return std::string();
}

constexpr double Degree = 3.141592653589793 / 180.0;

/** The whole of a text tree's form. */
std::string TextOf(TStringTree const& tree) {
    std::string text(tree.TDataTree::WriteToString(nullptr, 0, 0), '\0');
    tree.TDataTree::WriteToString(text.data(), 0, 0);
    return text;
}

std::string const& NeededCell(TRow const& row) {
    return row.at(4);
}

/** The tables of the tags: by the subtree's tag (0 at the root), then by the key's. */
std::map<int, std::map<int, TRow>> TagTables() {
    std::map<int, std::map<int, TRow>> tables;
    for (TSection const& section : Documents::ReadDocument(Document)) {
        std::size_t const list = section.heading.rfind('(');
        if (list == std::string::npos) {
            continue;
        }
        for (std::string const& subtree : Documents::NumbersIn(section.heading.substr(list))) {
            for (TRow const& row : section.rows) {
                for (std::string const& tag : Documents::NumbersIn(row.at(0))) {
                    EXPECT_TRUE(tables[std::stoi(subtree)].emplace(std::stoi(tag), row).second)
                        << "two rows for " << tag << " in " << subtree;
                }
            }
        }
    }
    return tables;
}

enum class TNeed : int { Always, Never, Untold };

/** @param kind of the description that the key stands in. */
TNeed NeedOf(std::string const& cell, int kind) {
    if (cell == "no") {
        return TNeed::Never;
    }
    if (cell == "yes" || cell.rfind("if ", 0) == 0) {
        return TNeed::Always; // the examples fulfil the conditions of what they hold
    }
    if (cell.rfind("kind", 0) == 0) {
        std::string const kinds = cell.substr(0, cell.find(", the latter"));
        for (std::string const& number : Documents::NumbersIn(kinds.substr(0, kinds.find("only")))) {
            if (std::stoi(number) == kind) {
                return TNeed::Always;
            }
        }
        return TNeed::Never;
    }
    return TNeed::Untold;
}

int const* FindParameterRow(std::map<int, TRow> const& table, int tag) {
    // The parameters have one row for all of them, from the first to the last.
    static int const first = 6101;
    return table.count(first) != 0 && tag >= 6101 && tag <= 6206 ? &first : nullptr;
}

/** Walks a description and takes each key away in turn. */
class TNeedCheck {
public:
    explicit TNeedCheck(std::string const& text) : whole(text), tables(TagTables()) {}

    void Run() {
        TStringTree tree;
        tree.ReadFromString(whole.c_str(), nullptr, nullptr);
        Walk(tree, {}, 0, 0);
    }

    int checked = 0; ///< keys that were taken away

private:
    using TPath = std::vector<std::pair<int, int>>;

    static TStringTree* At(TStringTree* tree, TPath const& path) {
        for (auto const& [tag, idx] : path) {
            tree = tree->FindSubtree(tag, idx);
        }
        return tree;
    }

    void Walk(TStringTree const& tree, TPath const& path, int subtree, int kind) {
        tree.GetInteger(1100, 0, &kind);
        for (unsigned long index = 0; index < tree.fields.Size(); ++index) {
            auto const& field = *tree.fields[index];
            Check(path, subtree, kind, field.tag, field.idx, true);
        }
        for (unsigned long index = 0; index < tree.subtrees.Size(); ++index) {
            auto const& child = static_cast<TStringTree const&>(*tree.subtrees[index]);
            Check(path, subtree, kind, child.tag, child.idx, false);
            TPath deeper = path;
            deeper.emplace_back(child.tag, child.idx);
            Walk(child, deeper, child.tag, kind);
        }
    }

    void Check(TPath const& path, int subtree, int kind, int tag, int idx, bool isField) {
        auto const table = tables.find(subtree);
        ASSERT_NE(table, tables.end()) << "no table for subtree " << subtree;
        int const* const range = FindParameterRow(table->second, tag);
        auto const row = table->second.find(range ? *range : tag);
        ASSERT_NE(row, table->second.end()) << "no row for " << tag << " in subtree " << subtree;
        EXPECT_EQ(row->second.at(3) == "subtree", !isField) << tag;
        TNeed const need = NeedOf(NeededCell(row->second), kind);
        if (need == TNeed::Untold) {
            return;
        }
        TStringTree tree;
        tree.ReadFromString(whole.c_str(), nullptr, nullptr);
        TStringTree* const place = At(&tree, path);
        isField ? place->DeleteField(tag, idx) : place->DeleteSubtree(tag, idx);
        EXPECT_EQ(Build(TextOf(tree)) == nullptr, need == TNeed::Always)
            << "(" << tag << "," << idx << ") in subtree " << subtree << " of kind " << kind << ", told as \""
            << NeededCell(row->second) << "\"";
        ++checked;
    }

    std::string whole;
    std::map<int, std::map<int, TRow>> tables;
};

char const* UnitWord(TShellUnitType unit) {
    switch (unit) {
    case utLinear:
        return "length";
    case utAngular:
        return "angle";
    case utScale:
        return "factor";
    default:
        return "plain";
    }
}

std::vector<TMapProjectionType> Methods() {
    std::vector<TMapProjectionType> methods;
    for (int number = 0; number < 2000; ++number) {
        auto const type = static_cast<TMapProjectionType>(number);
        if (!GetMapProjectionParameters(type).empty()) {
            methods.push_back(type);
        }
    }
    return methods;
}

} // namespace

TEST(DescriptionExamples, ThereIsOneOfEachKindAndAllAreBuilt) {
    std::set<int> kinds;
    for (std::string const& example : Examples()) {
        TSystem const system = Build(example);
        ASSERT_NE(system, nullptr) << example;
        EXPECT_NE(system->CoreRefSystem, nullptr);
        kinds.insert(system->Type);
    }
    EXPECT_EQ(kinds, (std::set<int>{1, 2, 3, 4, 5, 6}));
}

TEST(DescriptionExamples, TextComesBackByteForByte) {
    for (std::string const& example : Examples()) {
        TSystem const system = Build(example);
        ASSERT_NE(system, nullptr);
        std::string text;
        ASSERT_TRUE(system->WriteToString(text));
        // The root's label isn't the system's: a saved tree has one of its own.
        EXPECT_EQ(text.substr(text.find('\n')), example.substr(example.find('\n')) + '\0');
    }
}

TEST(DescriptionExamples, WhatIsCalledNeededIsNeededAndTheRestIsnt) {
    for (std::string const& example : Examples()) {
        TNeedCheck check(example);
        check.Run();
        EXPECT_GT(check.checked, 10);
    }
}

TEST(DescriptionExamples, AzimuthOfTheHorizonIsThatOfItsSecondAxis) {
    TSystem const radar = Build(ExampleOf(rstTopocentricHorizontal));
    ASSERT_NE(radar, nullptr);
    TStringTree tree;
    ASSERT_EQ(radar->FillPrimaryGeodeticRefSystemTreeDeg(&tree), 0);
    TSystem const base(CreateShellReferenceSystem(&tree, nullptr));
    double point[3] = {0.0, 1000.0, 0.0};
    ASSERT_TRUE(
        TransformCoords(radar.get(), point[0], point[1], point[2], base.get(), point, point + 1, point + 2));
    // One kilometre at 30 degrees from the origin (55, 37): on the ellipsoid of WGS 84 a degree of latitude is
    // 111.327 km long there and one of longitude 63.996 km.
    EXPECT_NEAR((point[0] - 55.0) * 111327.0, 1000.0 * std::cos(30.0 * Degree), 1.0);
    EXPECT_NEAR((point[1] - 37.0) * 63996.0, 1000.0 * std::sin(30.0 * Degree), 1.0);
}

TEST(DescriptionExamples, CentreOfALeftHandedSystemBeginsWithItsSecondCoordinate) {
    TSystem const bridge = Build(ExampleOf(rstLocalCurved));
    TSystem const flat = Build(ExampleOf(rstLocalCartesian));
    ASSERT_TRUE(bridge && flat);
    double x = 0;
    double y = 0;
    double height = 0;
    ASSERT_TRUE(TransformCoords(bridge.get(), 2000.0, 1000.0, 5.0, flat.get(), &x, &y, &height));
    EXPECT_EQ(x, 2000.0);
    EXPECT_EQ(y, 1000.0);
    EXPECT_EQ(height, 5.0);
    ASSERT_TRUE(TransformCoords(bridge.get(), 1000.0, 2000.0, 5.0, flat.get(), &x, &y, &height));
    // A kilometre off in both: 2e6 / (2 * 6371000).
    EXPECT_NEAR(height, 5.0 - 0.156961230576, 1e-9);
}

TEST(DescriptionTags, AreAllNamedInTheDocument) {
    std::string const text = Documents::ReadSource("docs/description.md");
    std::regex const tag(
        R"((?:\b[tT]ag\w*|inline constexpr int \w+) = (\d{4,6})\b|\{"[^"]*", (7\d{3}), \d\}|\{(54\d\d), ")");
    std::set<std::string> tags;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(VELLARI_SOURCE_DIR "/shell")) {
        std::string const path = entry.path();
        bool const isHeader = path.ends_with("DescriptionTags.h") || path.ends_with("ProjectionTagsDetail.h");
        if (!isHeader && !path.ends_with(".cpp")) {
            continue;
        }
        std::string source = Documents::ReadSource(path.substr(sizeof VELLARI_SOURCE_DIR));
        // The geokeys stand behind the tags and aren't keys of a description.
        source.resize(std::min(source.size(), source.find("namespace ProjectionGeoKey {")));
        for (std::sregex_iterator found(source.begin(), source.end(), tag), end; found != end; ++found) {
            for (std::size_t group = 1; group < found->size(); ++group) {
                if ((*found)[group].matched) {
                    tags.insert((*found)[group]);
                }
            }
        }
    }
    EXPECT_GT(tags.size(), 100U);
    for (std::string const& number : tags) {
        EXPECT_NE(text.find('`' + number + '`'), std::string::npos) << number;
    }
}

TEST(ProjectionParametersTable, ListsTheFieldsOfEachMethod) {
    auto const document = Documents::ReadDocument(Document);
    std::map<int, std::string> told;
    std::map<int, TRow> meanings;
    for (TRow const& row : Documents::SectionOf(document, "Parameters of the projections").rows) {
        int const number = std::stoi(row.at(0));
        bool const isTag = number >= 6101 && number <= 6206;
        isTag ? void(meanings[number] = row) : void(told[number] = row.at(2));
    }
    std::map<int, std::string> expected;
    for (TMapProjectionType const method : Methods()) {
        std::string list;
        for (TMapProjectionParameter const& parameter : GetMapProjectionParameters(method)) {
            std::string const key = std::to_string(parameter.Key);
            list += (list.empty() ? "" : " ") + (parameter.IsOptional ? "[" + key + "]" : key);
            ASSERT_EQ(meanings.count(parameter.Key), 1U) << key;
            EXPECT_EQ(meanings[parameter.Key].at(1), parameter.Meaning);
            EXPECT_EQ(meanings[parameter.Key].at(2), UnitWord(parameter.Unit)) << key;
        }
        expected[method] = list;
    }
    EXPECT_EQ(told, expected);
}
