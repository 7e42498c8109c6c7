#pragma once

#include "shell/units/AngularUnit.h"

namespace KvRefSystem {

/**
 * Makes a free-form angle readable as up to three numbers, in place: the first two runs of other characters
 * become one blank each; what follows them is kept as it is.
 */
void SeparateDMSString(char* text);

/**
 * Degrees, minutes and decimal seconds with blanks between them. The value is a number of degrees. A negative
 * value begins with "- ". Kept: a carry out of the minutes at 180 degrees or more comes out on the other
 * side.
 */
class TShellUnitDegreeMinuteSecond : public TShellAngularUnit {
public:
    /** Coefficients are those of the degree, whatever the tree says. @throws as `TShellAngularUnit`. */
    explicit TShellUnitDegreeMinuteSecond(TStringTree* tree);

    /**
     * @throws std::runtime_error with
     *         "TShellUnitDegreeMinuteSecond::TShellUnitDegreeMinuteSecond(TKvXIniReader *xml)".
     */
    explicit TShellUnitDegreeMinuteSecond(TKvXIniReader* xml);

    using TShellAngularUnit::StringToValue;
    bool StringToValue(std::string const& text, double* value) const override;
    /** @param precision decimals of the seconds; negative for 12. */
    std::string ValueToString(double const& value, int precision) const override;
    bool ExportToWKT(std::string* text) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    double StringToDegrees(std::string const& text) const override;
    std::string DegreesToString(double const& degrees, int precision) const override;
    double StringToDegreesLatitude(std::string const& text) const override;
    std::string DegreesToStringLatitude(double const& degrees, int precision) const override;
    double StringToDegreesLongitude(std::string const& text) const override;
    std::string DegreesToStringLongitude(double const& degrees, int precision) const override;
};

/**
 * Degrees, minutes and decimal seconds with a hemisphere letter behind them. A value can't be printed without
 * its axis. Kept: on reading, lower-case letters are ignored, and a minus is a separator, which may cost the
 * seconds.
 */
class TShellUnitDegreeMinuteSecondHemisphere : public TShellAngularUnit {
public:
    /** Coefficients are those of the degree, whatever the tree says. @throws as `TShellAngularUnit`. */
    explicit TShellUnitDegreeMinuteSecondHemisphere(TStringTree* tree);

    /**
     * @throws std::runtime_error with
     *         "TShellUnitDegreeMinuteSecond::TShellUnitDegreeMinuteSecond(TKvXIniReader *xml)".
     *         Kept: the notation without letters has the same message.
     */
    explicit TShellUnitDegreeMinuteSecondHemisphere(TKvXIniReader* xml);

    using TShellAngularUnit::StringToValue;
    bool StringToValue(std::string const& text, double* value) const override;
    /** @throws std::logic_error with "TShellUnitDegreeMinuteSecondHemisphere::ValueToString". */
    std::string ValueToString(double const& value, int precision) const override;
    bool ExportToWKT(std::string* text) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    /** @param precision decimals of the seconds; negative for 10. */
    std::string ValueToStringLatitude(double const& value, int precision) const override;
    /** @param precision decimals of the seconds; negative for 10. */
    std::string ValueToStringLongitude(double const& value, int precision) const override;
    double StringToDegrees(std::string const& text) const override;
    /** @throws std::logic_error with "TShellUnitDegreeMinuteSecondHemisphere::DegreesToString". */
    std::string DegreesToString(double const& degrees, int precision) const override;
    double StringToDegreesLatitude(std::string const& text) const override;
    std::string DegreesToStringLatitude(double const& degrees, int precision) const override;
    double StringToDegreesLongitude(std::string const& text) const override;
    std::string DegreesToStringLongitude(double const& degrees, int precision) const override;

    /**
     * Parses degrees, minutes, seconds and a letter.
     * @return false where a lone point stands for a number; a text without digits and points is true and 0
     *         (kept).
     */
    bool DMSH_to_degrees(std::string const& text, double* value) const;

    /** Prints with the letter of an axis. @param axis 0 latitude, 1 longitude. */
    std::string InternalOutput(double const& value, int precision, int axis) const;

    char Letters[4] = {'N', 'E', 'S', 'W'}; ///< positive latitude, positive longitude, negative ones
};

/**
 * One packed number: degrees, a point, two digits of minutes, two of seconds, the fraction of a second.
 * Kept: "12.345" is 34 minutes and 5 seconds, and "-0.3000" is +0.5, since the sign rests on whole degrees.
 */
class TShellUnitSexagesimalDegree : public TShellAngularUnit {
public:
    /** Coefficients are those of the degree, whatever the tree says. @throws as `TShellAngularUnit`. */
    explicit TShellUnitSexagesimalDegree(TStringTree* tree);

    /**
     * @throws std::runtime_error with "TShellUnitSexagesimalDegree::TShellUnitSexagesimalDegree(TKvXIniReader
     *         *xml)".
     */
    explicit TShellUnitSexagesimalDegree(TKvXIniReader* xml);

    using TShellAngularUnit::StringToValue;
    bool StringToValue(std::string const& text, double* value) const override;
    /** @param precision digits of the fraction of a second; negative for nine without a carry. */
    std::string ValueToString(double const& value, int precision) const override;
    bool ExportToWKT(std::string* text) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    double StringToDegrees(std::string const& text) const override;
    std::string DegreesToString(double const& degrees, int precision) const override;
    double StringToDegreesLatitude(std::string const& text) const override;
    std::string DegreesToStringLatitude(double const& degrees, int precision) const override;
    double StringToDegreesLongitude(std::string const& text) const override;
    std::string DegreesToStringLongitude(double const& degrees, int precision) const override;
};

/**
 * One packed number: degrees, a point, two digits of minutes, the fraction of a minute. Kept: on reading,
 * what follows the minutes is always tenths, and the default precision overflows from 0.2147483648 minutes
 * on.
 */
class TShellDegreeDecimalMinuteUnit : public TShellAngularUnit {
public:
    /** Coefficients are those of the degree, whatever the tree says. @throws as `TShellAngularUnit`. */
    explicit TShellDegreeDecimalMinuteUnit(TStringTree* tree);

    /**
     * @throws std::runtime_error with
     *         "TShellDegreeDecimalMinuteUnit::TShellDegreeDecimalMinuteUnit(TKvXIniReader *xml)".
     */
    explicit TShellDegreeDecimalMinuteUnit(TKvXIniReader* xml);

    using TShellAngularUnit::StringToValue;
    bool StringToValue(std::string const& text, double* value) const override;
    /** @param precision digits of the fraction of a minute; negative for ten without a carry. */
    std::string ValueToString(double const& value, int precision) const override;
    bool ExportToWKT(std::string* text) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    double StringToDegrees(std::string const& text) const override;
    std::string DegreesToString(double const& degrees, int precision) const override;
    double StringToDegreesLatitude(std::string const& text) const override;
    std::string DegreesToStringLatitude(double const& degrees, int precision) const override;
    double StringToDegreesLongitude(std::string const& text) const override;
    std::string DegreesToStringLongitude(double const& degrees, int precision) const override;
};

} // namespace KvRefSystem
