#pragma once

#include "frame/imported/XIni.h"
#include "shell/units/Unit.h"

#include <memory>
#include <string>

/** What the bodies of the datum components share; no part of the interface. */
namespace KvRefSystem::DatumDetail {

/** @return the length in metres, the angle in radians or the plain factor that a text stands for. @throws as the parser. */
template <class Unit>
double ValueInBase(Unit const& unit, std::string const& text) {
    return unit.StringToValue(text) * unit.CoefToBase;
}

/** @return a text of the current section, or an empty one. */
std::string ReadText(TKvXIniReader* reader, char const* key);

/** @return a whole number of the current section, or `fallback`. */
int ReadInt(TKvXIniReader* reader, char const* key, int fallback);

/**
 * Writes a section that holds a unit.
 * @param unit null: nothing is written. @return whether all of it was written.
 */
bool WriteUnitSection(TKvXIniWriter* writer, char const* key, TShellUnit const* unit);

/**
 * Reads a unit from a section of its own, which is left again also when the unit fails.
 * @param build makes a new unit from the reader. @return the unit; null without the section or for a failure in it.
 */
template <class Build>
auto ReadUnitSection(TKvXIniReader* reader, char const* key, Build build) {
    using Unit = typename decltype(build(reader))::element_type;
    std::unique_ptr<Unit> unit;
    unsigned long const handle = reader->EnterSection(reader->FindF(key, 0));
    if (handle == 0) {
        return unit;
    }
    try {
        unit = build(reader);
    } catch (...) {
        unit.reset();
    }
    if (!reader->LeaveSection(handle)) {
        unit.reset();
    }
    return unit;
}

/** @return the unit of that very class from a section of its own, or null. */
template <class Unit>
std::unique_ptr<Unit> ReadPlainUnitSection(TKvXIniReader* reader, char const* key) {
    return ReadUnitSection(reader, key, [](TKvXIniReader* xml) { return std::make_unique<Unit>(xml); });
}

/** @return `value` rounded to eight places, as the MapInfo clauses have it. Kept: the product, not a quotient. */
double RoundToEightPlaces(double value);

} // namespace KvRefSystem::DatumDetail
