#pragma once

#include "frame/XmlSectionsDetail.h"
#include "shell/units/Unit.h"

#include <cmath>
#include <memory>
#include <string>

// Not for hosts, and hidden from them.
#pragma GCC visibility push(hidden)

/** What the bodies of the datum components share. */
namespace KvRefSystem::DatumDetail {

/**
 * @return the length in metres, the angle in radians or the plain factor that a text stands for.
 * @throws as the parser.
 */
template <class Unit>
double ValueInBase(Unit const& unit, std::string const& text) {
    return unit.StringToValue(text) * unit.CoefToBase;
}

/**
 * Writes a section that holds a unit.
 * @param unit null: nothing is written. @return whether all of it was written.
 */
inline bool WriteUnitSection(TKvXIniWriter* writer, char const* key, TShellUnit const* unit) {
    return unit != nullptr && WriteXmlSection(writer, key, [&] { return unit->SaveToXML(writer); });
}

/**
 * Reads a unit from a section of its own, which is left again also when the unit fails.
 * @param build makes a new unit from the reader. @return the unit; null without the section or for a failure
 *         in it.
 */
template <class Build>
auto ReadUnitSection(TKvXIniReader* reader, char const* key, Build build) {
    using Unit = typename decltype(build(reader))::element_type;
    std::unique_ptr<Unit> unit;
    TXmlReadSection section(reader, key);
    if (!section) {
        return unit;
    }
    try {
        unit = build(reader);
    } catch (...) {
        unit.reset();
    }
    if (!section.Leave()) {
        unit.reset();
    }
    return unit;
}

/** @return the unit of that very class from a section of its own, or null. */
template <class Unit>
std::unique_ptr<Unit> ReadPlainUnitSection(TKvXIniReader* reader, char const* key) {
    return ReadUnitSection(reader, key, [](TKvXIniReader* xml) { return std::make_unique<Unit>(xml); });
}

/**
 * @return `value` rounded to eight places, as the MapInfo clauses have it. Kept: the product, not a quotient.
 */
inline double RoundToEightPlaces(double value) {
    return std::floor(value * 1e8 + 0.5) * 1e-8;
}

} // namespace KvRefSystem::DatumDetail

#pragma GCC visibility pop
