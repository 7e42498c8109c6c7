#pragma once

#include "tools/vellari/SexagesimalText.h"

#include <Vellari/Vellari.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace VellariTool {

/**
 * One coordinate of a system as text: reads and prints it in the system's unit.
 *
 * Borrows the unit, which must live as long. Plain units are read strictly and fast: the whole field must be
 * a number with a decimal point. Angles in a sexagesimal notation go through the unit.
 */
class TAxisText {
public:
    /** The packed notations print their fraction as an int. */
    static constexpr int MostPackedDecimals = 9;

    TAxisText() = default;

    /**
     * A coordinate in a plain unit.
     * @param axisName lower-case name. @param unitName abbreviation for the column's name. @param decimals 0
     *         to 60.
     */
    TAxisText(std::string axisName, std::string unitName, int decimals);

    /**
     * An angle.
     * @param isLongitude chooses the axis.
     * @param decimals of the unit; of the seconds for those that have them.
     */
    TAxisText(std::string axisName, KvRefSystem::TShellAngularUnit const& unit, bool isLongitude,
              int decimals);

    /** @return "latitude_deg": the axis' name and that of its unit. */
    std::string const& ColumnName() const { return columnName; }

    /** Gives the coordinate another name; its unit's stays. */
    void Rename(std::string const& axisName);

    /** @return "latitude". */
    std::string const& AxisName() const { return axis; }

    /** @return whether the texts are degrees, minutes and seconds with signs between them. */
    bool HasBlanks() const { return notation == snParts || notation == snHemisphere; }

    /**
     * Reads a field.
     * @param reason may be null; receives what is wrong and what would be right. @return false without a
     *         value.
     */
    bool Parse(std::string_view field, double* value, std::string* reason) const;

    /** Appends the value. */
    void Append(std::string* text, double value) const;

private:
    std::string axis;
    std::string columnName;
    KvRefSystem::TShellAngularUnit const* sexagesimalUnit = nullptr;
    TSexagesimalNotation notation = snNone;
    bool isLongitudeAxis = false;
    int precision = 0;
};

/** Decimals that the user asked for; none: those of the units. */
struct TPrecision {
    std::optional<int> all;
    std::optional<int> height; ///< of heights alone
};

/**
 * @param index 0 to 2. @return the lower-case name of a coordinate: "northing" and so on in grids, by the
 *        axis' direction, "east" and "north" in topocentric frames that aren't turned, else that of the kind.
 */
std::string AxisNameOf(KvRefSystem::TShellReferenceSystem const& system, int index);

/** @return the three coordinates of a system in its shell order. */
std::array<TAxisText, 3> AxisTexts(KvRefSystem::TShellReferenceSystem const& system,
                                   TPrecision const& precision);

/** @return the unit's abbreviation, or its name, fit for a column's name: `[a-z0-9_]`. */
std::string ColumnUnitName(std::string const& abbreviation, std::string const& name);

} // namespace VellariTool
