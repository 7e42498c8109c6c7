#pragma once

#include "shell/refsystems/ReferenceSystem.h"

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
 * @return false, `*value` untouched, for a text without a number; true, untouched, for an empty one.
 */
bool ParseText(std::string const& text, TTextUnit const& unit, double* value);

/** @return a value in the coordinate's own unit as text. */
std::string PrintText(double value, TTextUnit const& unit, int precision);

/** Gives the core the system's own chain. @return false when it has no core form. */
bool InsertOwnChain(TShellReferenceSystem* system, TAxisOrder const& axes);

/**
 * Gives the core one pairwise chain, or takes it away when there is none.
 * @return false when it has no core form.
 */
bool InsertPairwiseChain(TShellReferenceSystem* system, std::string const& name, TAxisOrder const& axes);

/** A derived system on the datum of a description. */
enum TPrimaryForm : int {
    pfGeodetic,        ///< in radians
    pfGeodeticDegrees, ///< in degrees, named after the datum
    pfGeocentric,
};

/**
 * Fills `tree` with a derived system on the datum that stands at the root of the system's description.
 * @return 0, or 9 for any failure.
 */
int FillPrimary(TShellReferenceSystem const& system, TPrimaryForm form, TStringTree* tree);

} // namespace KvRefSystem::Kinds

#pragma GCC visibility pop
