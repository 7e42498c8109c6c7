#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace VellariTool {

/** Families of zones that have a shorthand. */
enum TZoneFamily : int {
    zfUtm = 1,          ///< WGS 84 / UTM
    zfPulkovoZone = 2,  ///< Pulkovo 1942 / Gauss-Kruger, zones of six degrees
    zfGskZone = 3,      ///< GSK-2011 / Gauss-Kruger, zones of six degrees
    zfRegionalGrid = 4, ///< MSK, the local grid of a region
    zfBlockGrid = 5,    ///< SK-63, the grid of a block
};

/** How one family is written. */
struct TZoneForm {
    TZoneFamily family;
    std::string_view prefix;  ///< small letters before the first colon
    std::string_view pattern; ///< "msk:REGION:ZONE[:WIDTH]"
    std::string_view example; ///< "msk:50:2"
    std::string_view title;   ///< what it stands for, with the order of the axes and the allowed zones
};

/** What a shorthand says. */
struct TZone {
    TZoneFamily family = zfUtm;
    int zone = 0;        ///< from 1 on
    bool isNorth = true; ///< hemisphere; of UTM and Gauss-Kruger alone
    int region = 0;      ///< of a regional grid
    char block = '\0';   ///< capital letter of a block grid
    std::string width;   ///< degrees of a zone as text; of regional and block grids
};

/** @return all families, in the order of help and lists. */
std::span<TZoneForm const> ZoneForms();

/** @return whether a system's name begins with the prefix of a family, letters of either case, and a colon. */
bool IsZoneShorthand(std::string_view name);

/**
 * Takes a shorthand apart.
 * @param name for which `IsZoneShorthand` is true.
 * @throws TToolError with one line that tells what is wrong and what is allowed.
 */
TZone ParseZoneShorthand(std::string_view name);

/**
 * @return for a name that is no shorthand but looks as if it were meant for one, a part of a sentence that
 *         tells how they are written; empty for others.
 */
std::string SuggestZoneShorthand(std::string_view name);

/** @return rising numbers as a reader wants them: "1 to 16, 18, 20 to 76". */
std::string NumberRanges(std::vector<int> const& numbers);

/** @return letters with blanks between them: "C D E". */
std::string SpacedLetters(std::string_view letters);

} // namespace VellariTool
