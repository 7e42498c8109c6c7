#include "tests/shell/projections/ProjectionTestKit.h"

#include "frame/NumberText.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace ProjectionTestKit {

namespace {

/** Size of what precedes the members of a class: pointer, type, name, three units and two codes. */
constexpr std::size_t BaseSize = 136;
constexpr std::size_t PoleSize = 8;
static_assert(sizeof(TShellMapProjection) == BaseSize);

template <class Shell>
TOwned FromTree(TStringTree* tree) {
    return std::make_unique<Shell>(tree);
}

template <class Shell>
TOwned FromXml(TKvXIniReader* reader) {
    return std::make_unique<Shell>(reader);
}

std::vector<int> TextsOf(std::vector<int> keys) {
    keys.erase(std::remove(keys.begin(), keys.end(), PoleKey), keys.end());
    return keys;
}

template <class Shell>
TShellClass Both(int type, char const* name, std::vector<int> keys) {
    return {type, name, &FromTree<Shell>, &FromXml<Shell>, keys, TextsOf(keys)};
}

template <class Shell>
TShellClass TreeOnly(int type, char const* name, std::vector<int> keys) {
    static_assert(!std::is_constructible_v<Shell, TKvXIniReader*>);
    return {type, name, &FromTree<Shell>, nullptr, keys, TextsOf(keys)};
}

// clang-format off
#define BOTH(type, name, ...) Both<name>(type, #name, {__VA_ARGS__})
#define TREE_ONLY(type, name, ...) TreeOnly<name>(type, #name, {__VA_ARGS__})

std::vector<TShellClass> MakeClasses() {
    std::vector<TShellClass> classes = {
        BOTH(1, TShellTransverseMercatorMapProjection, 6101, 6102, 6103, 6104, 6105),
        BOTH(2, TShellObliqueMercatorMapProjection, 6108, 6107, 6109, 6110, 6111, 6112, 6113),
        BOTH(3, TShellHotineObliqueMercatorMapProjection, 6108, 6107, 6109, 6110, 6111, 6104, 6105),
        BOTH(4, TShellNZMGMapProjection, 6106, 6102, 6104, 6105),
        BOTH(5, TShellAlbersEqualAreaConicMapProjection, 6101, 6102, 6114, 6115, 6104, 6105),
        BOTH(6, TShellLambertConicConformal2SPMapProjection, 6114, 6115, 6116, 6117, 6118, 6119),
        BOTH(7, TShellLambertConicConformal1SPMapProjection, 6102, 6106, 6111, 6104, 6105),
        BOTH(8, TShellCassiniSoldnerMapProjection, 6102, 6106, 6104, 6105),
        BOTH(9, TShellMercator2SPMapProjection, 6114, 6106, 6104, 6105),
        BOTH(10, TShellMercator1SPMapProjection, 6102, 6106, 6120, 6104, 6105),
        BOTH(11, TShellObliqueStereographicMapProjection, 6106, 6102, 6120, 6104, 6105),
        BOTH(12, TShellPolarStereographicMapProjection, 6106, 6120, 6104, 6105),
        TREE_ONLY(13, TShellQuasiStereographicMapProjection, 6106, 6102, 6120, 6104, 6105),
        TREE_ONLY(14, TShellPolyconicMapProjection, 6106, 6102, 6111, 6104, 6105),
        BOTH(16, TShellKrovakMapProjection, 6107, 6106, 6109, 6121, 6122, 6104, 6105),
        TREE_ONLY(17, TShellHattMapProjection, 6102, 6106),
        BOTH(21, TShellPolarStereographicBasicMapProjection, 6106, 6203, 6120, 6104, 6105),
        BOTH(22, TShellPolarStereographicNaturalOriginMapProjection, 6106, 6203, 6120, 6104, 6105),
        BOTH(23, TShellPolarStereographicFalseOriginMapProjection, 6106, 6203, 6114, 6104, 6105),
        BOTH(24, TShellLambertAzimuthalEqualAreaMapProjection, 6102, 6106, 6104, 6105),
        BOTH(25, TShellEquidistantConicMapProjection, 6114, 6115, 6116, 6117, 6118, 6119),
        BOTH(26, TShellOrthographicMapProjection, 6102, 6106, 6104, 6105),
        BOTH(1201, TShellLambertConicConformal2SPBelgiumMapProjection, 6114, 6115, 6116, 6117, 6118, 6119),
        TREE_ONLY(1313, TShellSphericalMercatorMapProjection, 6101, 6103, 6104, 6105),
    };
    // The older polar stereographic has a latitude that its description doesn't fill.
    for (TShellClass& shellClass : classes) {
        if (shellClass.type == 12) {
            shellClass.texts = {6106, LatitudeKey, 6120, 6104, 6105};
        }
    }
    return classes;
}

#undef BOTH
#undef TREE_ONLY
// clang-format on

std::map<int, char const*> const texts = {
    {6101, "22.3456789"}, {6102, "50.2345678"},     {6103, "999612.3456789"}, {6104, "1640.5"},
    {6105, "-328.25"},    {6106, "21.7654321"},     {6107, "48.1234567"},     {6108, "19.3765432"},
    {6109, "33.5123456"}, {6110, "34.2543219"},     {6111, "999512.3456789"}, {6112, "1500.75"},
    {6113, "2500.5"},     {6114, "44.5432109"},     {6115, "60.7543218"},     {6116, "52.5321987"},
    {6117, "22.2519876"}, {6118, "3000.25"},        {6119, "4000.125"},       {6120, "999412.3456789"},
    {6121, "87.5198765"}, {6122, "999912.3456789"}, {PoleKey, "N"},
};

void AddUnit(MemoryXIni::TNode* root, char const* section, TUnit const* unit) {
    if (!unit) {
        return;
    }
    TStringTree tree;
    PutUnit(&tree, *unit);
    MemoryXIni::TNode node{section, "", true, {}};
    MemoryXIni::TWriter writer(&node);
    TShellUnit const made(&tree);
    EXPECT_TRUE(made.SaveToXML(&writer));
    root->children.push_back(std::move(node));
}

} // namespace

bool TShellClass::Has(int key) const {
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

std::vector<TShellClass> const& AllClasses() {
    static std::vector<TShellClass> const classes = MakeClasses();
    return classes;
}

TShellClass const& ClassOf(int type) {
    for (TShellClass const& shellClass : AllClasses()) {
        if (shellClass.type == type) {
            return shellClass;
        }
    }
    throw std::out_of_range(FormatText("no class of type %d", type));
}

bool IsScaleKey(int key) {
    return key == 6103 || key == 6111 || key == 6120 || key == 6122;
}

bool IsLengthKey(int key) {
    return key == 6104 || key == 6105 || key == 6112 || key == 6113 || key == 6118 || key == 6119;
}

std::string TextOf(int key) {
    return texts.at(key);
}

void Fill(TStringTree* tree, TShellClass const& shellClass, TUnits const& units) {
    tree->InsertInteger("", 6001, 0, shellClass.type);
    std::pair<int, TUnit const*> const subtrees[] = {
        {6091, units.linear}, {6090, units.angular}, {6092, units.scale}};
    for (auto const& [tag, unit] : subtrees) {
        if (unit) {
            PutUnitSubtree(tree, tag, *unit);
        }
    }
    for (int const key : shellClass.keys) {
        tree->InsertString("", key, 0, TextOf(key));
    }
}

TOwned Create(int type, TChanges const& changes, TUnits const& units) {
    TStringTree tree;
    Fill(&tree, ClassOf(type), units);
    for (auto const& [key, text] : changes) {
        Change(&tree, key, text);
    }
    return ClassOf(type).fromTree(&tree);
}

MemoryXIni::TNode Document(int type, std::vector<std::pair<std::string, std::string>> const& parameters,
                           TUnits const& units) {
    MemoryXIni::TNode root;
    root.children.push_back({"MapProjType", FormatText("%d", type), false, {}});
    AddUnit(&root, "MapProjParamLinearUnit", units.linear);
    AddUnit(&root, "MapProjParamAngularUnit", units.angular);
    AddUnit(&root, "MapProjParamScaleUnit", units.scale);
    MemoryXIni::TNode section{"MapProjParameters", "", true, {}};
    for (auto const& [key, text] : parameters) {
        section.children.push_back({key, text, false, {}});
    }
    root.children.push_back(std::move(section));
    return root;
}

TOwned Load(int type, MemoryXIni::TNode document) {
    MemoryXIni::TReader reader(&document);
    TOwned loaded = ClassOf(type).fromXml(&reader);
    EXPECT_EQ(reader.Depth(), 0U);
    return loaded;
}

std::string MemberOf(TShellMapProjection const& shell, int type, int key) {
    TShellClass const& shellClass = ClassOf(type);
    std::vector<int> const& order = shellClass.texts;
    auto const place = std::find(order.begin(), order.end(), key);
    if (place == order.end()) {
        throw std::out_of_range(FormatText("type %d has no text %d", type, key));
    }
    std::size_t const offset = BaseSize + (shellClass.HasPole() ? PoleSize : 0) +
                               static_cast<std::size_t>(place - order.begin()) * sizeof(std::string);
    return *reinterpret_cast<std::string const*>(reinterpret_cast<char const*>(&shell) + offset);
}

TPole PoleOf(TShellMapProjection const& shell) {
    return *reinterpret_cast<TPole const*>(reinterpret_cast<char const*>(&shell) + BaseSize);
}

std::unique_ptr<TShellAngularUnit> MakeAngularUnit(TUnit const& unit) {
    TStringTree tree;
    PutUnit(&tree, unit);
    return std::unique_ptr<TShellAngularUnit>(CreateShellAngularUnit(&tree));
}

std::unique_ptr<TMapProjection> CoreOf(TShellMapProjection const& shell) {
    TEllipsoidSemiAxes axes = {6378137.0, 6356752.314245179};
    return std::unique_ptr<TMapProjection>(shell.CreateCoreMapProjection(&axes));
}

std::string MifOf(TShellMapProjection const& shell, TUnit const& outputUnit) {
    auto const unit = MakeUnit<TShellLinearUnit>(outputUnit);
    std::string text = "clause";
    bool const done = shell.ExportToMIFMID(unit.get(), &text);
    EXPECT_EQ(text.substr(0, 6), "clause");
    if (!done) {
        EXPECT_EQ(text, "clause");
        return "false";
    }
    return text.substr(6);
}

std::string WktTypeOf(TShellMapProjection const& shell) {
    std::string text = "old";
    bool const done = shell.GetProjectionTypeWKT(&text);
    if (!done) {
        EXPECT_EQ(text, "old");
        return "false";
    }
    return text;
}

std::string WktOf(TShellMapProjection const& shell) {
    std::string text = "old";
    bool const done = shell.GetProjectionParamsWKT(&text);
    if (!done) {
        EXPECT_EQ(text, "old");
        return "false";
    }
    return text;
}

TGeoKeys GeoKeysOf(TShellMapProjection const& shell, TUnit const& angularUnit, TUnit const& linearUnit) {
    auto const angular = MakeAngularUnit(angularUnit);
    auto const linear = MakeUnit<TShellLinearUnit>(linearUnit);
    TGeoKeys keys;
    if (!shell.ExportMapProjParamsToGeoTIFF(&keys, angular.get(), linear.get())) {
        EXPECT_TRUE(keys.empty());
        return {{0, "false"}};
    }
    return keys;
}

} // namespace ProjectionTestKit
