#pragma once

#include "core/refsystems/DatumShift.h"
#include "core/refsystems/PrimeMeridian.h"
#include "core/refsystems/ReferenceSystem.h"

#include <map>
#include <string>

namespace KvRefSystem {

/**
 * Geocentric Cartesian coordinates in metres, the stage where all earth-bound systems meet [EPSG7-2, 9602].
 *
 * Every failure of `OperateCoordsBase` leaves it as `std::logic_error` with ":(", whatever it was; the other
 * earth-bound kinds let exceptions pass. Kept: hosts tell the two apart by it.
 */
class TGeocentricReferenceSystem : public TReferenceSystem {
public:
    /**
     * @param shift    datum shift, copied; null for an undefined datum.
     * @param meridian prime meridian, copied; null for Greenwich.
     * @throws std::runtime_error with "TGeocentricReferenceSystem::TGeocentricReferenceSystem: datum shift"
     *         when the shift can't be copied.
     */
    TGeocentricReferenceSystem(TDatumShift const* shift, TPrimeMeridian const* meridian,
                               TRefSystemTransformsSet const& transforms,
                               std::map<std::string, TRefSystemTransformsSet> const& pairwise);
    TGeocentricReferenceSystem(TGeocentricReferenceSystem const& source);
    ~TGeocentricReferenceSystem() override;

    TGeocentricReferenceSystem const* RelatedGeocentricRefSystem() const override;
    bool operator==(TReferenceSystem const& other) const override;
    bool PreservesHeights(TReferenceSystem const& dst) const override;
    bool ContainsDatum() const override;
    bool NonlinearDatum() const override;
    void OperateCoordsBase(TReferenceSystem const& dst, TCoords* coords) const override;
    void OperateCoordsBaseWorld(TCoords* coords, bool ApplyDatumShift) const override;
    void GetAxisStepsBase(double* steps) const override;

    /**
     * Deletes the present shift; then stores a copy of `shift`.
     * @return false, no shift left, for null or a failed copy.
     */
    bool ReplaceDatumShift(TDatumShift const* shift) override;

    /**
     * The central step: to Greenwich; through both datum shifts, if both exist and differ; to `dst`'s
     * meridian. A shift is never applied alone, and a missing one is no error.
     */
    void GeocentricTransformation(TGeocentricReferenceSystem const& dst, TCoords* coords) const;

    /** To Greenwich and, on request, through the direct datum shift if there is one. */
    void GeocentricTransformationWorld(TCoords* coords, bool ApplyDatumShift) const;

    /** @return `dcUnknown` when either has no shift, else `dcEqual` or `dcDifferent`. */
    static int CompareDatumsGeoc(TGeocentricReferenceSystem const& a, TGeocentricReferenceSystem const& b);

    TDatumShift* DatumShift;       ///< owned; null: the datum is undefined
    TPrimeMeridian* PrimeMeridian; ///< owned; never null
};

} // namespace KvRefSystem
