#pragma once

#include "shell/units/Unit.h"

namespace KvRefSystem {

/** Codes of the angular units with a notation of their own; any other code is the plain decimal notation. */
enum TAngularNotation : int {
    anDegreeMinuteSecond = 7,
    anDegreeMinuteSecondHemisphere = 8,
    anSexagesimalDegree = 10,
    anDegreeDecimalMinute = 11,
};

/**
 * A unit of angle; base unit radian. Adds the view of a value as a latitude or a longitude, and degrees.
 *
 * The destructor is virtual, and last in the table, since systems own units of this family through this
 * class.
 */
class TShellAngularUnit : public TShellUnit {
public:
    /**
     * @throws std::runtime_error with "TShellUnit::TShellUnit(TStringTree *tree)" when a mandatory field is
     *         missing, the code included.
     */
    explicit TShellAngularUnit(TStringTree* tree);

    /** @throws std::runtime_error with "TShellAngularUnit::TShellAngularUnit". */
    explicit TShellAngularUnit(TKvXIniReader* xml);

    using TShellUnit::StringToValue;
    bool LoadFromXML(TKvXIniReader* reader) override;

    /** Parses a latitude. @return as `StringToValue`. */
    virtual bool StringToValueLatitude(std::string const& text, double* value) const;
    /** Parses a longitude. @return as `StringToValue`. */
    virtual bool StringToValueLongitude(std::string const& text, double* value) const;
    /** Prints a latitude in this unit. */
    virtual std::string ValueToStringLatitude(double const& value, int precision) const;
    /** Prints a longitude in this unit. */
    virtual std::string ValueToStringLongitude(double const& value, int precision) const;
    /** @return the parsed text in degrees. @throws as `StringToValue(text)`. */
    virtual double StringToDegrees(std::string const& text) const;
    /** Prints degrees in this unit. */
    virtual std::string DegreesToString(double const& degrees, int precision) const;
    /** @return the parsed latitude in degrees. @throws as `StringToValueLatitude(text)`. */
    virtual double StringToDegreesLatitude(std::string const& text) const;
    /** Prints degrees of latitude in this unit. */
    virtual std::string DegreesToStringLatitude(double const& degrees, int precision) const;
    /** @return the parsed longitude in degrees. @throws as `StringToValueLongitude(text)`. */
    virtual double StringToDegreesLongitude(std::string const& text) const;
    /** Prints degrees of longitude in this unit. */
    virtual std::string DegreesToStringLongitude(double const& degrees, int precision) const;
    virtual ~TShellAngularUnit();

    /**
     * @throws std::runtime_error with "double TShellAngularUnit::StringToValueLatitude(const string& str)
     *         const".
     */
    double StringToValueLatitude(std::string const& text) const;
    /**
     * @throws std::runtime_error with "double TShellAngularUnit::StringToValueLongitude(const string& str)
     *         const".
     */
    double StringToValueLongitude(std::string const& text) const;
    /** @return the latitude in this unit, or `fallback`. */
    double StringToValueLatitudeDef(std::string const& text, double const& fallback) const;
    /** @return the longitude in this unit, or `fallback`. */
    double StringToValueLongitudeDef(std::string const& text, double const& fallback) const;
    /** @return the parsed latitude in radians. @throws as `StringToValueLatitude(text)`. */
    double StringToRadiansLatitude(std::string const& text) const;
    /** @return the parsed longitude in radians. @throws as `StringToValueLongitude(text)`. */
    double StringToRadiansLongitude(std::string const& text) const;
    /** Prints radians as a latitude in this unit. */
    std::string RadiansToStringLatitude(double const& radians, int precision) const;
    /** Prints radians as a longitude in this unit. */
    std::string RadiansToStringLongitude(double const& radians, int precision) const;

protected:
    TShellAngularUnit() = default;
};

/**
 * Converts a text as a latitude between two angular units; prints all the digits of the target's notation.
 * @return false for a null unit, else true. @throws std::runtime_error with the message of
 *         `StringToValueLatitude(text)`.
 */
bool ConvertLatitude(TShellAngularUnit const* source, std::string const& text,
                     TShellAngularUnit const* target, std::string* result);

/** The same for a longitude. */
bool ConvertLongitude(TShellAngularUnit const* source, std::string const& text,
                      TShellAngularUnit const* target, std::string* result);

/**
 * @return the unit of the class that the tree's code selects, owned by the caller; null without a code.
 * @throws as the class.
 */
TShellAngularUnit* CreateShellAngularUnit(TStringTree* tree);

/** @return the unit of the class that "UnitCode" selects, owned by the caller. @throws as the class. */
TShellAngularUnit* CreateShellAngularUnit(TKvXIniReader* reader);

} // namespace KvRefSystem
