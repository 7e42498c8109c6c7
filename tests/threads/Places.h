#pragma once

#include "shell/refsystems/ReferenceSystem.h"
#include "tests/threads/Crew.h"

#include <memory>
#include <vector>

/** Systems of all kinds in which one place is known. */
namespace Threads {

using TSystem = std::unique_ptr<KvRefSystem::TShellReferenceSystem>;

/** A system and the coordinates of the one place in it. */
struct TPlace {
    char const* name;
    TSystem system;
    TPoint point;
    bool isPulkovo;
    bool isGrid;     ///< the plane coordinates are those of a map projection
    bool hasDegrees; ///< the plane coordinates are degrees
};

/** @return the four earth-bound kinds, each on Pulkovo 1942 and on WGS 84. */
std::vector<TPlace> EarthBoundPlaces();

/** @return the two local kinds. */
std::vector<TSystem> LocalSystems();

/** @return the point moved from one system to another, by `TransformCoords`. */
TMoved Move(KvRefSystem::TShellReferenceSystem const& from, TPoint const& point,
            KvRefSystem::TShellReferenceSystem const& to);

/** Expects a point moved between two places to be the target's. */
void ExpectAt(TMoved const& moved, TPlace const& source, TPlace const& target);

} // namespace Threads
