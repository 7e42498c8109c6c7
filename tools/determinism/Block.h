#pragma once

#include "tools/determinism/Generator.h"
#include "tools/determinism/Line.h"

#include <functional>
#include <string>
#include <vector>

namespace VellariDeterminism {

/**
 * Lines of one kind under one name. `Print` writes the line of one point, whose numbers it takes from the
 * generator; it is called from several threads at once. An exception of it becomes the line.
 */
struct TBlock {
    std::string Name;
    int Lines;
    std::function<void(TGenerator& numbers, TLine* line)> Print;
};

using TBlocks = std::vector<TBlock>;

/** Every class of projections, forward and reverse, and its constructors. */
void AddProjections(TBlocks* blocks);

/** The systems of the catalogue, one to the other, in numbers and texts. @param folder of the catalogue. */
void AddCatalogue(TBlocks* blocks, std::string const& folder);

/** Described systems: all types of projections, zones, datum shifts, meridians, units. */
void AddDescribed(TBlocks* blocks);

/** The topocentric and the local kinds, and derivatives along the axes. */
void AddKinds(TBlocks* blocks);

/** Geoid, chains of corrections for one system and for a pair, tables. */
void AddCorrections(TBlocks* blocks);

/** Units: texts read and written, sexagesimal ones among them. */
void AddUnits(TBlocks* blocks);

/** Ellipsoid, datum shifts, seven parameters, local spatial reference. */
void AddPrimitives(TBlocks* blocks);

/** The state standard's transformations. */
void AddGost(TBlocks* blocks);

} // namespace VellariDeterminism
