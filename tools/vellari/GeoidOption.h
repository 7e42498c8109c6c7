#pragma once

#include "tools/vellari/SystemLoader.h"

#include <memory>
#include <string>

class TBaseGrid;

namespace VellariTool {

/**
 * A geoid over which a system's heights are meant: a grid from a file whose nodes stand on WGS 84. The
 * system holds on to it, so it must live as long.
 */
class TGeoidOption {
public:
    /**
     * @param file grid of undulations; an empty name leaves the system alone. @param option as it was typed,
     *        for messages.
     * @throws TToolError for a file that can't be read, in a build without grids, and for a kind whose third
     *         coordinate isn't a height.
     */
    TGeoidOption(std::string const& file, std::string const& option, TLoadedSystem* loaded);
    ~TGeoidOption();
    TGeoidOption(TGeoidOption const&) = delete;
    TGeoidOption& operator=(TGeoidOption const&) = delete;

private:
    std::unique_ptr<TBaseGrid> grid;
    TLoadedSystem nodes; ///< the system of the grid
};

/** @return the third coordinate's name that tells its meaning: "ellipsoidal_height", "height_over_egm96_15". */
std::string HeightNameOf(KvRefSystem::TShellReferenceSystem const& system);

} // namespace VellariTool
