#pragma once

#include "core/refsystems/GeodeticReferenceSystem.h"

#include <map>
#include <string>

namespace KvRefSystem {

class TMapProjection;

/**
 * A geodetic system seen through a map projection: easting `X` and northing `Y` as the projection defines
 * them, height `Z` over the ellipsoid, all in metres. Every way to another system leads through the geodetic
 * member; a target on the same geodetic system is no exception.
 */
class TMapProjectedReferenceSystem : public TReferenceSystem {
public:
    /**
     * @param geodetic   the base, copied.
     * @param projection taken over, also when the constructor throws.
     * @throws std::runtime_error without a geodetic system or a projection; as the copy of the geodetic
     *         system.
     */
    TMapProjectedReferenceSystem(TGeodeticReferenceSystem const* geodetic, TMapProjection* projection,
                                 TRefSystemTransformsSet const& transforms,
                                 std::map<std::string, TRefSystemTransformsSet> const& pairwise);

    /**
     * @throws std::runtime_error with "TMapProjectedReferenceSystem::TMapProjectedReferenceSystem(const
     *         TMapProjectedReferenceSystem&)" when the projection can't be copied.
     */
    TMapProjectedReferenceSystem(TMapProjectedReferenceSystem const& source);
    ~TMapProjectedReferenceSystem() override;

    TGeocentricReferenceSystem const* RelatedGeocentricRefSystem() const override;
    TGeodeticReferenceSystem const* RelatedGeodeticRefSystem() const override;
    TMapProjectedReferenceSystem const* RelatedMapProjectedRefSystem() const override;

    /**
     * Same kind, base, projection and own chain; through the projection's operator its ellipsoid doesn't
     * count.
     */
    bool operator==(TReferenceSystem const& other) const override;
    bool PreservesHeights(TReferenceSystem const& dst) const override;
    bool ContainsDatum() const override;
    bool NonlinearDatum() const override;
    void OperateCoordsBase(TReferenceSystem const& dst, TCoords* coords) const override;
    void OperateCoordsBaseWorld(TCoords* coords, bool ApplyDatumShift) const override;
    void GetAxisStepsBase(double* steps) const override;
    bool ReplaceDatumShift(TDatumShift const* shift) override;

    TGeodeticReferenceSystem* GeodeticSystem; ///< owned copy
    TMapProjection* Projection;               ///< owned
};

} // namespace KvRefSystem
