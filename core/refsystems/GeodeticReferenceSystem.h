#pragma once

#include "core/primitives/Ellipsoid.h"
#include "core/refsystems/GeocentricReferenceSystem.h"

#include <map>
#include <string>

namespace KvRefSystem {

/**
 * Longitude `X` and latitude `Y` in radians, height `Z` over the ellipsoid in metres. The longitude counts
 * from the system's own prime meridian; the meridian's rotation is applied to Cartesian coordinates only.
 */
class TGeodeticReferenceSystem : public TReferenceSystem {
public:
    /**
     * @param shift     datum shift, copied; may be null.
     * @param meridian  prime meridian, copied; null for Greenwich.
     * @param ellipsoid copied.
     * @throws std::runtime_error without an ellipsoid, or when the shift can't be copied.
     */
    TGeodeticReferenceSystem(TDatumShift const* shift, TPrimeMeridian const* meridian,
                             TEllipsoid const* ellipsoid, TRefSystemTransformsSet const& transforms,
                             std::map<std::string, TRefSystemTransformsSet> const& pairwise);
    TGeodeticReferenceSystem(TGeodeticReferenceSystem const& source);
    ~TGeodeticReferenceSystem() override;

    TGeocentricReferenceSystem const* RelatedGeocentricRefSystem() const override;
    TGeodeticReferenceSystem const* RelatedGeodeticRefSystem() const override;
    bool operator==(TReferenceSystem const& other) const override;
    bool PreservesHeights(TReferenceSystem const& dst) const override;
    bool ContainsDatum() const override;
    bool NonlinearDatum() const override;
    void OperateCoordsBase(TReferenceSystem const& dst, TCoords* coords) const override;
    void OperateCoordsBaseWorld(TCoords* coords, bool ApplyDatumShift) const override;
    void GetAxisStepsBase(double* steps) const override;
    bool ReplaceDatumShift(TDatumShift const* shift) override;

    /** Longitude, latitude, height to geocentric metres of the system's own axes. */
    void ConvertToGeocentric(TCoords* coords) const;

    /**
     * Geocentric metres of the system's own axes to longitude, latitude, height.
     * @throws std::runtime_error.
     */
    void ConvertFromGeocentric(TCoords* coords) const;

    TEllipsoid* Ellipsoid; ///< owned
    TGeocentricReferenceSystem*
        GeocentricSystem; ///< owned; holds datum shift and meridian, with an empty chain
};

} // namespace KvRefSystem
