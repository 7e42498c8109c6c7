#pragma once

#include "shell/projections/ParameterisedProjections.h"
#include "tests/shell/datum/DatumTestKit.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

/**
 * What the tests of projections share: the classes as they stand in descriptions, a description of each with a
 * text of its own under every key, and documents.
 *
 * The units of these descriptions are gon, foot and parts per million, so that no text can pass unconverted.
 */
namespace ProjectionTestKit {

using namespace DatumTestKit;
using namespace KvRefSystem;

using TOwned = std::unique_ptr<TShellMapProjection>;
using TGeoKeys = std::map<int, std::string>;

inline constexpr int PoleKey = 6203;
inline constexpr int LatitudeKey = 6102;

/** One class with parameters. */
struct TShellClass {
    int type;
    std::string name;
    TOwned (*fromTree)(TStringTree*);
    TOwned (*fromXml)(TKvXIniReader*); ///< null without such a constructor
    std::vector<int> keys;             ///< of its fields, in reading order
    std::vector<int> texts;            ///< its string members in their order, by the key of their meaning

    std::string TreeMessage() const { return name + "::" + name + "(TStringTree *tree)"; }
    std::string XmlMessage() const { return name + "::" + name + "(TKvXIniReader *xml)"; }
    bool HasPole() const { return type >= 21 && type <= 23; }
    bool Has(int key) const;
};

/** All of them, in the order of their types. */
std::vector<TShellClass> const& AllClasses();

TShellClass const& ClassOf(int type);

bool IsScaleKey(int key);
bool IsLengthKey(int key);

/** The text that descriptions and documents have for a parameter; no two are the same. */
std::string TextOf(int key);

/** Units of one description; null leaves its subtree out. */
struct TUnits {
    TUnit const* linear = &foot;
    TUnit const* angular = &grad;
    TUnit const* scale = &millionth;
};

inline constexpr TUnits plainUnits = {&metre, &degree, &millionth};

/** A complete description of a class: units, texts, the pole "N", no codes. */
void Fill(TStringTree* tree, TShellClass const& shellClass, TUnits const& units = {});

/** The description of a class with some texts of its own. */
using TChanges = std::map<int, std::string>;
TOwned Create(int type, TChanges const& changes = {}, TUnits const& units = {});

/** A document that a reader of the class understands: units, and the given parameters. */
MemoryXIni::TNode Document(int type, std::vector<std::pair<std::string, std::string>> const& parameters,
                           TUnits const& units = {});

/** Reads a document by the class's constructor. */
TOwned Load(int type, MemoryXIni::TNode document);

/**
 * A string member by the key of its meaning, at the place where hosts look for it: behind the base (and the
 * pole), in the order of the keys.
 */
std::string MemberOf(TShellMapProjection const& shell, int type, int key);

/** The pole of a polar class, at its place. */
TPole PoleOf(TShellMapProjection const& shell);

/** @return the text of an exception of that type; empty when none was thrown. */
template <class Exception, class Action>
std::string Thrown(Action action) {
    try {
        action();
    } catch (Exception const& error) {
        return error.what();
    }
    return std::string();
}

/** A stand-alone unit. */
template <class Unit>
std::unique_ptr<Unit> MakeUnit(TUnit const& unit) {
    TStringTree tree;
    PutUnit(&tree, unit);
    return std::make_unique<Unit>(&tree);
}

std::unique_ptr<TShellAngularUnit> MakeAngularUnit(TUnit const& unit);

/** The core that a shell makes on WGS 84. */
std::unique_ptr<TMapProjection> CoreOf(TShellMapProjection const& shell);

/** The exports as texts; "false" when they failed, after a look that nothing was written. */
std::string MifOf(TShellMapProjection const& shell, TUnit const& outputUnit = metre);
std::string WktTypeOf(TShellMapProjection const& shell);
std::string WktOf(TShellMapProjection const& shell);

/** The geokeys of the parameters; only {0: "false"} when it failed, after a look that nothing was written. */
TGeoKeys GeoKeysOf(TShellMapProjection const& shell, TUnit const& angularUnit = degree,
                   TUnit const& linearUnit = metre);

} // namespace ProjectionTestKit
