#pragma once

#include "frame/imported/StringTree.h"

#include <map>
#include <string>

class TKvXIniReader;
class TKvXIniWriter;

namespace KvRefSystem {

/** Kind of a unit; 0 means not set. */
enum TShellUnitType : int {
    utNone = 0,
    utLinear = 1,  ///< base unit metre
    utAngular = 2, ///< base unit radian
    utScale = 3,   ///< base unit the plain factor
};

/**
 * A unit of measurement: converts to and from its kind's base unit, prints and parses.
 *
 * Built from a tree or from XML, never by hand, and never copied; immutable but for `LoadFromXML`. A unit
 * from a tree may have coefficients of 0.0: it can't convert. Safe to read from several threads. The
 * destructor isn't virtual: a unit is owned through one of its three kinds.
 */
class TShellUnit {
public:
    /**
     * @throws std::runtime_error with "TShellUnit::TShellUnit(TStringTree *tree)" when a mandatory field is
     *         missing.
     */
    explicit TShellUnit(TStringTree* tree);

    /** @throws std::runtime_error with "TShellUnit::TShellUnit(TKvXIniReader *xml)" when it doesn't load. */
    explicit TShellUnit(TKvXIniReader* xml);

    TShellUnit(TShellUnit const&) = delete;
    TShellUnit& operator=(TShellUnit const&) = delete;
    ~TShellUnit() = default;

    /**
     * Parses a text in this unit.
     * @return false for a text without a number. Kept: an empty or blank text is true and leaves `*value`
     *         alone, and what follows a number doesn't count ("12abc" is 12).
     */
    virtual bool StringToValue(std::string const& text, double* value) const;

    /**
     * Prints a value in this unit.
     * @param precision number of decimals; negative for 25 significant digits.
     */
    virtual std::string ValueToString(double const& value, int precision) const;

    /** Equal in all but the precision; a NaN coefficient is different. */
    virtual bool operator==(TShellUnit const& other) const;

    /** Replaces `text` by the WKT UNIT. @return false, `text` untouched, when the unit can't convert. */
    virtual bool ExportToWKT(std::string* text) const;

    /** Reads all keys, each with a default. @return false without both coefficients and a known type. */
    virtual bool LoadFromXML(TKvXIniReader* reader);

    /** @return false at the first write that failed. */
    virtual bool SaveToXML(TKvXIniWriter* writer) const;

    /**
     * @throws std::runtime_error with "bool TShellUnit::StringToValue(const string& str, double *value)
     *         const".
     */
    double StringToValue(std::string const& text) const;

    /** @return the value, or `fallback` for a text that doesn't parse or is empty. */
    double StringToValue(std::string const& text, double const& fallback) const;

    /**
     * Converts a value from this unit to `target`, in place.
     * @throws std::runtime_error with "void TShellUnit::Convert(const TShellUnit& dst_unit, double *value)
     *         const" for another kind.
     */
    void Convert(TShellUnit const& target, double* value) const;

    /**
     * Writes the unit's geokeys; existing entries stay.
     * @param code_key key of the code, "32767" for a user-defined unit. @param value_key key of the size of a
     *                 user-defined unit; below 1 for none. @return true.
     */
    bool ExportToGeoTIFF(std::map<int, std::string>* keys, int code_key, int value_key) const;

    int Code = 0;              ///< number of the unit within its kind; for angles it selects the notation
    int Type = 0;              ///< a `TShellUnitType`
    double CoefToBase = 0.0;   ///< base value = value times this
    double CoefFromBase = 0.0; ///< value = base value times this
    std::string Name;          ///< full name, also the WKT name
    std::string Description;   ///< free text
    std::string Abbreviation;  ///< short sign for display
    int Precision = 0;         ///< default number of decimals for display
    int GeoTIFFCode = 0;       ///< 0 when there is none

protected:
    /** An empty unit, for kinds that load themselves. */
    TShellUnit() = default;
};

/** Converts between units of one kind. @return false, `*result` untouched, for two kinds. */
bool Convert(TShellUnit const& source, double const& value, TShellUnit const& target, double* result);

/**
 * Converts a text between units of one kind; prints with 25 significant digits.
 * @return false, `*result` untouched, for two kinds.
 * @throws std::runtime_error with "bool TShellUnit::StringToValue(const string& str, double *value) const";
 *         std::logic_error for a target whose notation needs an axis.
 */
bool Convert(TShellUnit const& source, std::string const& text, TShellUnit const& target,
             std::string* result);

/** @return "UNIT[\"degree\",0.0174532925199433]". */
std::string CreateWKTDegreeString();

/** @return "UNIT[\"metre\",1]". */
std::string CreateWKTMeterString();

} // namespace KvRefSystem
