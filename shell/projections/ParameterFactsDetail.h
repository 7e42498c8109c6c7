#pragma once

#include "shell/projections/MapProjection.h"
#include "shell/projections/ParameterTextDetail.h"
#include "shell/projections/ProjectionTagsDetail.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <memory>
#include <span>
#include <utility>

#pragma GCC visibility push(hidden)

/**
 * What tells one projection shell with free parameters from another: the types of its facts, and the
 * functions that work on any of them. The facts themselves are the tables in CylinderFactsDetail.h,
 * ConeFactsDetail.h and AzimuthalFactsDetail.h; a parameter is always named by the tag of its field in the
 * tree.
 *
 * Kept: digits, decimals, keys and names differ between classes that look alike, and between the forms of one
 * class. Files with each of them exist: they aren't to be evened out.
 */
namespace KvRefSystem::ParameterFacts {

namespace Tag = ProjectionTag;
namespace GeoKey = ProjectionGeoKey;

/** No class has more parameters. */
inline constexpr std::size_t MaxParameters = 7;

/** Stands where others have a latitude parameter: 90 degrees north, whatever the texts say. */
inline constexpr int NorthPole = std::numeric_limits<int>::min();

/** Significant digits of "%lg". */
inline constexpr int ShortDigits = 6;

/** Rows of facts; those that are not filled (key 0) follow at the end. */
template <class Row>
using TRows = std::array<Row, MaxParameters>;

/** A member of a shell's class, reached through the base. */
template <class Value>
struct TMember {
    Value const& (*Read)(TShellMapProjection const& shell) = nullptr;
    Value& (*Write)(TShellMapProjection& shell) = nullptr;
    bool Exists = false;
};

template <auto Pointer>
struct TMemberOfShell;

template <class Shell, class Value, Value Shell::*Pointer>
struct TMemberOfShell<Pointer> {
    static Value const& Read(TShellMapProjection const& shell) {
        return static_cast<Shell const&>(shell).*Pointer;
    }
    static Value& Write(TShellMapProjection& shell) { return static_cast<Shell&>(shell).*Pointer; }
    static constexpr TMember<Value> Access = {.Read = Read, .Write = Write, .Exists = true};
};

/** `Member<&Class::Field>`: how the machinery reaches a class's text or pole. */
template <auto Pointer>
inline constexpr auto Member = TMemberOfShell<Pointer>::Access;

/** A parameter and where the object keeps it; the pole has no text. */
struct TField {
    int Key = 0;
    TMember<std::string> Text = {};
    bool InTree = true; ///< false for a text that the tree doesn't hold
};

/** Key of an XML item or name of a WKT parameter. */
struct TNamed {
    char const* Name = nullptr;
    int Key = 0;
};

/** A number of the MapInfo clause; the significant digits count for angles and factors only. */
struct TMifNumber {
    int Key = 0;
    int Digits = 0;
};

struct TGeoNumber {
    int GeoKey = 0;
    int Key = 0;
};

enum class TXmlForm : int {
    Own,     ///< a section with the parameters
    Base,    ///< the parameters aren't in XML
    Refused, ///< reading and writing fail
};

/** Makes the core from the record's numbers, radians and metres; the pole is for those that have one. */
struct TCoreBuilder {
    std::unique_ptr<TMapProjection> (*Run)(TEllipsoidSemiAxes const* semiAxes, TPole pole,
                                           TRows<double> const& values) = nullptr;
    std::size_t Count = 0; ///< of the numbers
};

/** The facts of one class; what isn't given it hasn't. */
struct TProjectionFacts {
    TMapProjectionType Type = TMapProjectionType(0);
    char const* ClassName = nullptr;
    TRows<TField> Fields = {}; ///< in the order in which the tree is read
    TMember<TPole> Pole = {};
    TRows<int> Record = {}; ///< in the order of the core's record
    TCoreBuilder Build = {};
    bool NeedsEllipsoid = true; ///< whether there is no core without one
    TXmlForm Xml = TXmlForm::Own;
    TRows<TNamed> XmlRead = {};
    TRows<TNamed> XmlWritten = {}; ///< only where it differs from reading
    char const* WktName = nullptr;
    TRows<TNamed> Wkt = {};
    TRows<TMifNumber> Mif = {};
    ParameterText::TMifRounding MifRounding{}; ///< of the clause's angles
    TRows<TGeoNumber> Geo = {};
    int GeoScaleDigits = 0; ///< significant digits of the scale factor
};

/** The facts of a class, as `Value`. */
template <class Shell>
struct TFactsOf;

constexpr int KeyOf(int key) {
    return key;
}

template <class Row>
constexpr int KeyOf(Row const& row) {
    return row.Key;
}

/** @return the rows that are filled. */
template <class Row>
constexpr std::span<Row const> Filled(TRows<Row> const& rows) {
    std::size_t count = 0;
    while (count < rows.size() && KeyOf(rows[count]) != 0) {
        ++count;
    }
    return {rows.data(), count};
}

/** @return whether all the rows name parameters of the class. */
template <class Row>
constexpr bool NamesParameters(TProjectionFacts const& facts, TRows<Row> const& rows) {
    for (Row const& row : Filled(rows)) {
        bool known = KeyOf(row) == NorthPole;
        for (TField const& field : Filled(facts.Fields)) {
            known = known || field.Key == KeyOf(row);
        }
        if (!known) {
            return false;
        }
    }
    return true;
}

/** @return whether the numbers of the rows are numbers of digits. */
constexpr bool HaveDigits(TRows<TMifNumber> const& rows) {
    return std::ranges::all_of(rows, [](TMifNumber const& row) { return row.Digits >= 0; });
}

/** @return whether the rows of a class agree with each other; if they don't, it doesn't compile. */
constexpr bool AreConsistent(TProjectionFacts const& facts) {
    bool hasPole = false;
    for (TField const& field : Filled(facts.Fields)) {
        hasPole = hasPole || field.Key == Tag::Pole;
        if ((field.Key == Tag::Pole) == field.Text.Exists) {
            return false;
        }
    }
    std::size_t const numbers = Filled(facts.Record).size() - (hasPole ? 1 : 0);
    return facts.Type != 0 && facts.ClassName && facts.Build.Count == numbers && numbers > 0 &&
           hasPole == facts.Pole.Exists && (facts.Xml == TXmlForm::Own) == !Filled(facts.XmlRead).empty() &&
           (facts.WktName != nullptr) == !Filled(facts.Wkt).empty() &&
           (facts.MifRounding != ParameterText::TMifRounding::None) == !Filled(facts.Mif).empty() &&
           NamesParameters(facts, facts.Record) && NamesParameters(facts, facts.XmlRead) &&
           NamesParameters(facts, facts.XmlWritten) && NamesParameters(facts, facts.Wkt) &&
           NamesParameters(facts, facts.Mif) && HaveDigits(facts.Mif) && NamesParameters(facts, facts.Geo);
}

template <class Core, class Record, std::size_t... Index>
std::unique_ptr<TMapProjection> MakeCore(TEllipsoidSemiAxes const* semiAxes, TRows<double> const& values,
                                         std::index_sequence<Index...>) {
    Record const record(values[Index]...);
    return std::make_unique<Core>(semiAxes, &record);
}

template <class Core, class Record, std::size_t... Index>
std::unique_ptr<TMapProjection> MakePolarCore(TEllipsoidSemiAxes const* semiAxes, TPole pole,
                                              TRows<double> const& values, std::index_sequence<Index...>) {
    Record const record(pole, values[Index]...);
    return std::make_unique<Core>(semiAxes, &record);
}

/** `Build` of a core whose record is made of so many numbers. */
template <class Core, class Record, std::size_t Number>
inline constexpr TCoreBuilder BuildCore = {
    .Run =
        [](TEllipsoidSemiAxes const* semiAxes, TPole, TRows<double> const& values) {
            return MakeCore<Core, Record>(semiAxes, values, std::make_index_sequence<Number>());
        },
    .Count = Number,
};

/** `Build` of a core whose record begins with the pole. */
template <class Core, class Record, std::size_t Number>
inline constexpr TCoreBuilder BuildPolarCore = {
    .Run =
        [](TEllipsoidSemiAxes const* semiAxes, TPole pole, TRows<double> const& values) {
            return MakePolarCore<Core, Record>(semiAxes, pole, values, std::make_index_sequence<Number>());
        },
    .Count = Number,
};

/** @return the core, null on any failure. */
TMapProjection* CreateCore(TProjectionFacts const& facts, TShellMapProjection const& shell,
                           TEllipsoidSemiAxes const* semiAxes);

/** @return whether the texts and the poles of two objects of the class are the same. */
bool SameParameters(TProjectionFacts const& facts, TShellMapProjection const& one,
                    TShellMapProjection const& other);

/** @throws std::runtime_error with the text of the class's constructor for a key that is missing. */
void ReadTree(TProjectionFacts const& facts, TShellMapProjection* shell, TStringTree* tree);

/** @throws std::runtime_error with the text of the class's constructor for XML. */
[[noreturn]] void ThrowXmlFailure(TProjectionFacts const& facts);

/** Reads the parameters' section; the object gets all of it or nothing. @return false on a failure. */
bool ReadXml(TProjectionFacts const& facts, TShellMapProjection* shell, TKvXIniReader* reader);

/** @return false at the first write that failed. @throws std::logic_error for a pole that isn't one. */
bool WriteXml(TProjectionFacts const& facts, TShellMapProjection const& shell, TKvXIniWriter* writer);

/** Empties the texts; a pole stays. */
void ClearTexts(TProjectionFacts const& facts, TShellMapProjection* shell);

/** The exports, as those of the class. */
bool WktName(TProjectionFacts const& facts, std::string* text);
bool WktParameters(TProjectionFacts const& facts, TShellMapProjection const& shell, std::string* text);
bool MifClause(TProjectionFacts const& facts, TShellMapProjection const& shell,
               TShellLinearUnit const* outputUnit, std::string* text);
bool GeoKeys(TProjectionFacts const& facts, TShellMapProjection const& shell,
             TShellAngularUnit const* angularUnit, TShellLinearUnit const* linearUnit,
             std::map<int, std::string>* keys);

/** What a tag of a parameter means, and in which kind of unit its text is. */
struct TTagMeaning {
    int Key;
    char const* Meaning;
    TShellUnitType Unit;
};

/** @return the row of the tag. @throws std::logic_error for one that is no parameter's. */
TTagMeaning const& MeaningOf(int key);

} // namespace KvRefSystem::ParameterFacts

#pragma GCC visibility pop
