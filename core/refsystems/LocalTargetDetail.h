#pragma once

#include "core/refsystems/LocalCartesianReferenceSystem.h"
#include "core/refsystems/LocalCurvedReferenceSystem.h"

#include <stdexcept>

namespace KvRefSystem {

/**
 * The last steps on the way to a local target, the same for both local sources: fetched and checked before a
 * point is touched, then applied to it. For the kinds' own use; not exported.
 */
class __attribute__((visibility("hidden"))) TLocalTarget {
public:
    /** Text of whatever fails on the way from a local source. */
    static constexpr char const* Failure = ":(";

    /** @throws std::logic_error for an earth-bound kind or one that doesn't give what it stands for. */
    explicit TLocalTarget(TReferenceSystem const& dst)
        : Cartesian(dst.RelatedLocalCartesianRefSystem()),
          Curved(dst.Type == rstLocalCurved ? dst.RelatedLocalCurvedRefSystem() : nullptr) {
        bool const reachable =
            dst.Type == rstLocalCartesian || (dst.Type == rstLocalCurved && Curved != nullptr);
        if (!reachable || Cartesian == nullptr) {
            throw std::logic_error(Failure);
        }
    }

    /** In: metres of the flat system `source`. Out: base coordinates of the target. */
    void Reach(TLocalCartesianReferenceSystem const& source, TCoords* coords) const {
        source.LocalCartesianTransformation(*Cartesian, coords);
        if (Curved != nullptr) {
            // Kept: after the swap, with the target's own centre as it stands; only heights are corrected.
            Curved->ConvertCartesianToCurved(coords);
        }
    }

    TLocalCartesianReferenceSystem const* Cartesian; ///< borrowed from the target
    TLocalCurvedReferenceSystem const* Curved;       ///< borrowed; null when the target is flat
};

} // namespace KvRefSystem
