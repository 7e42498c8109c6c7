#pragma once

#include "core/refsystems/GeodeticReferenceSystem.h"

#include <map>
#include <string>

namespace KvRefSystem {

/**
 * A Cartesian frame in metres tangent to a geodetic system at an origin [EPSG7-2, 9836-9837], turned by an
 * azimuth: the first axis points along the azimuth, the second to its right, the third to the zenith of the
 * ellipsoid. With azimuth 0 these are north, east and up.
 *
 * All trigonometry is done by the constructor; a point costs a product with a matrix and a sum. Nothing
 * restricts the points: the frame goes through the whole of space, to within the rounding of the earth's
 * radius (some 1e-9 m).
 */
class TTopocentricHorizontalReferenceSystem : public TReferenceSystem {
public:
    /**
     * @param orientation which plane coordinate comes first.
     * @param azimuth     of the first axis, radians from north over east.
     * @param geodetic    the base, copied.
     * @param origin      longitude, latitude (radians) and height (metres) in base coordinates of `geodetic`.
     * @throws std::runtime_error with
     *         "TTopocentricHorizontalReferenceSystem::TTopocentricHorizontalReferenceSystem: geodetic system"
     *         without a geodetic system; as the copy of the geodetic system.
     */
    TTopocentricHorizontalReferenceSystem(TReferenceSystemCartesianOrientation orientation,
                                          double const& azimuth, TGeodeticReferenceSystem const* geodetic,
                                          TCoords const& origin, TRefSystemTransformsSet const& transforms,
                                          std::map<std::string, TRefSystemTransformsSet> const& pairwise);
    TTopocentricHorizontalReferenceSystem(TTopocentricHorizontalReferenceSystem const& source);
    ~TTopocentricHorizontalReferenceSystem() override;

    TGeocentricReferenceSystem const* RelatedGeocentricRefSystem() const override;
    TGeodeticReferenceSystem const* RelatedGeodeticRefSystem() const override;
    TTopocentricHorizontalReferenceSystem const* RelatedTopocentricHorizontalRefSystem() const override;

    /** Same kind, base, frame and own chain. Kept: systems that differ in `Orientation` alone are equal. */
    bool operator==(TReferenceSystem const& other) const override;
    /**
     * Same base and origin, both chains preserving; neither azimuth nor orientation moves a height.
     * @throws std::logic_error for another kind.
     */
    bool PreservesHeights(TReferenceSystem const& dst) const override;
    bool ContainsDatum() const override;
    bool NonlinearDatum() const override;
    void OperateCoordsBase(TReferenceSystem const& dst, TCoords* coords) const override;
    void OperateCoordsBaseWorld(TCoords* coords, bool ApplyDatumShift) const override;
    void GetAxisStepsBase(double* steps) const override;
    bool ReplaceDatumShift(TDatumShift const* shift) override;

    /** Local metres to geocentric metres of the base's own axes. */
    void ConvertTopocentricHorizontalToGeocentric(TCoords* coords) const;

    /** Geocentric metres of the base's own axes to local metres. */
    void ConvertGeocentricToTopocentricHorizontal(TCoords* coords) const;

    TGeodeticReferenceSystem* GeodeticSystem;         ///< owned copy
    TReferenceSystemCartesianOrientation Orientation; ///< order of the plane coordinates
    double Origin[3];                                 ///< the tangent point, geocentric metres
    double InverseShift[3];                           ///< -(transposed Rotation) Origin, metres
    double Rotation[9]; ///< row after row; columns are the local axes in geocentric coordinates
};

} // namespace KvRefSystem
