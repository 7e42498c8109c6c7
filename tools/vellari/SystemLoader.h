#pragma once

#include <Vellari/Vellari.h>

#include <memory>
#include <string>

namespace VellariTool {

/** A system with the description that it came from. */
struct TLoadedSystem {
    std::string name; ///< entry, shorthand or file, as messages call it
    std::string text; ///< description text, byte for byte
    std::unique_ptr<KvRefSystem::TShellReferenceSystem> system;
};

/** What a system is loaded for. */
enum TSystemUse : int {
    suShow = 0,      ///< to tell about it: it must build
    suTransform = 1, ///< to move points: its units and its datum must be whole, too
};

/**
 * Loads a system: an entry of the catalogue, a zone by its shorthand, or else a description file.
 * @param nameOrPath name of an entry or a shorthand, letters of either case, or a path; a path with a "/" is
 *        neither of the first two.
 * @throws TToolError with one line that tells file, tag and what is missing, or what similar entries there
 *         are.
 */
TLoadedSystem LoadSystem(std::string const& nameOrPath, TSystemUse use);

/** Builds a system from a description text. @param name what messages call it. @throws as `LoadSystem`. */
TLoadedSystem BuildSystem(std::string const& name, std::string text, TSystemUse use);

} // namespace VellariTool
