#pragma once

#include "core/refsystems/ReferenceSystem.h"

#include <map>
#include <string>

namespace KvRefSystem {

/**
 * Plane and height in metres near a point that nobody ties to the earth. It reaches the two local kinds only
 * and has no world frame.
 *
 * Every failure of `OperateCoordsBase` leaves it as `std::logic_error` with ":(", whatever it was. Kept: hosts
 * know a local source by it.
 */
class TLocalCartesianReferenceSystem : public TReferenceSystem {
public:
    /** @param orientation which plane coordinate comes first. */
    TLocalCartesianReferenceSystem(TReferenceSystemCartesianOrientation orientation,
                                   TRefSystemTransformsSet const& transforms,
                                   std::map<std::string, TRefSystemTransformsSet> const& pairwise);
    TLocalCartesianReferenceSystem(TLocalCartesianReferenceSystem const& source);
    ~TLocalCartesianReferenceSystem() override;

    TLocalCartesianReferenceSystem const* RelatedLocalCartesianRefSystem() const override;
    bool operator==(TReferenceSystem const& other) const override;
    /** Both chains preserve heights. @throws std::logic_error for another kind than local Cartesian. */
    bool PreservesHeights(TReferenceSystem const& dst) const override;
    void OperateCoordsBase(TReferenceSystem const& dst, TCoords* coords) const override;
    /** Does nothing: the point stays in base coordinates. */
    void OperateCoordsBaseWorld(TCoords* coords, bool ApplyDatumShift) const override;
    void GetAxisStepsBase(double* steps) const override;

    /** Swaps `X` and `Y` when the two orientations, compared as they are stored, differ. */
    void LocalCartesianTransformation(TLocalCartesianReferenceSystem const& dst, TCoords* coords) const;

    TReferenceSystemCartesianOrientation Orientation; ///< order of the plane coordinates
};

} // namespace KvRefSystem
