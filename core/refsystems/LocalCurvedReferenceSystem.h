#pragma once

#include "core/refsystems/ReferenceSystem.h"

#include <map>
#include <string>

namespace KvRefSystem {

/**
 * A local Cartesian system whose heights follow a sphere around a centre: a term of second order of the
 * distance from the centre, added to the height alone. It reaches the two local kinds only and has no world
 * frame.
 *
 * A radius of zero isn't guarded: the height then comes to an infinity, or to a NaN at the centre. Every
 * failure of `OperateCoordsBase` leaves it as `std::logic_error` with ":(", as in the local Cartesian kind.
 */
class TLocalCurvedReferenceSystem : public TReferenceSystem {
public:
    /**
     * @param orientation which plane coordinate comes first.
     * @param radius      of the curvature, metres.
     * @param centerX     of the curved zone, first coordinate, metres.
     * @param centerY     of the curved zone, second coordinate, metres.
     */
    TLocalCurvedReferenceSystem(TReferenceSystemCartesianOrientation orientation, double const& radius,
                                double const& centerX, double const& centerY,
                                TRefSystemTransformsSet const& transforms,
                                std::map<std::string, TRefSystemTransformsSet> const& pairwise);
    TLocalCurvedReferenceSystem(TLocalCurvedReferenceSystem const& source);
    ~TLocalCurvedReferenceSystem() override;

    TLocalCartesianReferenceSystem const* RelatedLocalCartesianRefSystem() const override;
    TLocalCurvedReferenceSystem const* RelatedLocalCurvedRefSystem() const override;
    bool operator==(TReferenceSystem const& other) const override;
    /** Same radius and centre, both chains preserving. @throws std::logic_error for another kind. */
    bool PreservesHeights(TReferenceSystem const& dst) const override;
    void OperateCoordsBase(TReferenceSystem const& dst, TCoords* coords) const override;
    /** Does nothing: the point stays in base coordinates. */
    void OperateCoordsBaseWorld(TCoords* coords, bool ApplyDatumShift) const override;
    void GetAxisStepsBase(double* steps) const override;

    /** Height over the sphere to height over the plane, metres: Z - d2 / (2 R). */
    void ConvertCurvedToCartesian(TCoords* coords) const;

    /** Height over the plane to height over the sphere, metres: Z + d2 / (2 R). */
    void ConvertCartesianToCurved(TCoords* coords) const;

    TLocalCartesianReferenceSystem* LocalCartesianSystem; ///< owned; the flat system below, without chains
    double Radius;                                        ///< metres
    double CenterX;                                       ///< metres, never swapped
    double CenterY;                                       ///< metres, never swapped
};

} // namespace KvRefSystem
