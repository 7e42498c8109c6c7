#pragma once

#include "shell/refsystems/ReferenceSystem.h"
#include "shell/units/LinearUnit.h"

#include <string>

#pragma GCC visibility push(hidden)

/** What the kinds share inside of their bodies; not for hosts, and hidden from them. */
namespace KvRefSystem::Kinds {

/** A unit of a coordinate, and the one in which a text of it is given or wanted; null: in the unit itself. */
struct TTextUnit {
    TShellUnit const& own;
    TShellUnit const* text;
};

/** How the user's axes relate to the core's. */
struct TAxisOrder {
    bool flip = false; ///< the first shell coordinate is the core's `Y`
    int firstSign = 1;
    int secondSign = 1;
};

/** @return the unit's abbreviation, or its name without one. */
std::string ShortName(TShellUnit const& unit);

/**
 * Parses a text to a value in the coordinate's own unit.
 * @return false, `*value` untouched, for a text without a number; true for an empty one, which keeps the
 *         number that `*value` has and converts it as if it stood in the text.
 */
bool ParseText(std::string const& text, TTextUnit const& unit, double* value);

/**
 * Parses the first `count` coordinates, all of them before any is converted: a later text without a number is
 * reported, also when the units don't fit.
 * @param shell the values, each as above; after a false those before are in the unit of their texts.
 */
bool ParseTexts(TShellCoords const& texts, int count, TTextUnit const& unit, double* shell);

/** @return a value in the coordinate's own unit as text. */
std::string PrintText(double value, TTextUnit const& unit, int precision);

/** Gives the core the system's own chain. @return false when it has no core form. */
bool InsertOwnChain(TShellReferenceSystem* system, TAxisOrder const& axes);

/**
 * Gives the core one pairwise chain, or takes it away when there is none.
 * @return false when it has no core form.
 */
bool InsertPairwiseChain(TShellReferenceSystem* system, std::string const& name, TAxisOrder const& axes);

/** @return whether both systems have a core, and equal ones. */
bool SameCore(TShellReferenceSystem const& one, TShellReferenceSystem const& other);

/** @return whether both units are there and equal. */
bool SameUnit(TShellUnit const* one, TShellUnit const* other);

/** Stores that there are no directions. @return false. */
bool NoAxesDirections(TCardinalDirection* first, TCardinalDirection* second);

/** @return the order of axes of a description's field: right-handed for 0. */
TReferenceSystemCartesianOrientation OrientationOfField(int swap);

/** Reads the order of axes of an XML form. @return false without one. */
bool ReadOrientation(TKvXIniReader* reader, TReferenceSystemCartesianOrientation* orientation);

/** Reads a unit from a section of its own; `*unit` is null before. @return false on a failure. */
bool ReadUnit(TKvXIniReader* reader, char const* key, TShellLinearUnit** unit);

/** Writes a unit to a section of its own. @return false without one, or at the first write that failed. */
bool WriteUnit(TKvXIniWriter* writer, char const* key, TShellLinearUnit const* unit);

/** @return the base system's description in that of a system, or null. @param saved may be null. */
TStringTree const* BaseOf(TStringTree const* saved);

/**
 * Fills `tree` with a right-handed system in metres.
 * @param description its text. @param type a kind of one digit.
 * @return false at the first step that failed.
 */
bool FillInternal(char const* description, TReferenceSystemType type, TStringTree* tree);

/**
 * Writes the origin of an internal system.
 * @param origin in texts of `system`. @param base description of the system in whose coordinates it is
 *               written. @param tree the internal system.
 * @return false at the first step that failed. @throws as the base system and the coordinate operation.
 */
bool InsertOriginOf(TShellReferenceSystem const& system, TShellCoords const& origin, TStringTree* base,
                    TStringTree* tree);

/** A derived system on the datum of a description. */
enum TPrimaryForm : int {
    pfGeodetic,        ///< in radians
    pfGeodeticDegrees, ///< in degrees, named after the datum
    pfGeocentric,
};

/** What a description must hold for it. */
enum TDatumRule : int {
    drDatumOrEllipsoid,
    drDatumOnly,
};

/**
 * Fills `tree` with a derived system on the datum of a description.
 * @param saved that holds meridian and datum; null fails.
 * @param datumName names the form in degrees.
 * @return 0; 2 for a geodetic form that only misses the datum which the rule asks for; 9 for any other
 *         failure.
 */
int FillPrimary(TStringTree const* saved, std::string const& datumName, TPrimaryForm form, TStringTree* tree,
                TDatumRule rule = drDatumOrEllipsoid);

} // namespace KvRefSystem::Kinds

#pragma GCC visibility pop
