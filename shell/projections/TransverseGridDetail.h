#pragma once

#include "core/projections/MapProjection.h"
#include "frame/imported/StringTree.h"

#include <optional>
#include <string>

#pragma GCC visibility push(hidden)

/** What the transverse cylinders that aren't described by free parameters have in common; not for hosts. */
namespace KvRefSystem::TransverseGrid {

/** Name of the method in WKT, whichever formulas a class uses. */
inline constexpr char const* WktMethod = "Transverse_Mercator";

/** What a zone stands for. Its latitude of origin is the equator. */
struct TGrid {
    double CentralMeridian; ///< degrees
    double ScaleFactor;     ///< on the central meridian
    double FalseEasting;    ///< metres
    double FalseNorthing;   ///< metres
};

/**
 * @return the core projection, owned by the caller.
 * @throws TUnusableProjection without semi-axes.
 */
TMapProjection* CreateTransverseMercator(TEllipsoidSemiAxes const* semiAxes, TGrid const& grid);

/** @return the WKT PARAMETER list. */
std::string WktParameters(TGrid const& grid);

/**
 * @return the whole number at the beginning of a field's text, whatever follows it; nothing without the field
 *         or a number, and for one that is below 1 or doesn't fit an int.
 */
std::optional<int> ReadCount(TStringTree const& tree, int tag);

/** The same for a number with decimals, which must be above 0. */
std::optional<double> ReadPositive(TStringTree const& tree, int tag);

/** Runs the making of a core projection: any failure inside gives null. */
template <class Make>
TMapProjection* CoreOrNull(Make make) {
    try {
        return make();
    } catch (...) {
        return nullptr;
    }
}

} // namespace KvRefSystem::TransverseGrid

#pragma GCC visibility pop
