#pragma once

#include "core/refsystems/DatumShift.h"

namespace KvRefSystem {

/** The seven numbers of a Bursa-Wolf shift: position vector rotations [EPSG7-2, 9606]. A plain record. */
struct TBursaWolfDatumShiftParameters {
    /** The identity. */
    TBursaWolfDatumShiftParameters();

    /** Translations only, metres. */
    TBursaWolfDatumShiftParameters(double const& dx, double const& dy, double const& dz);

    /**
     * Metres, radians, and the scale factor near 1. `OnlyShift` holds for scale 1.0 and rotations 0.0
     * exactly.
     */
    TBursaWolfDatumShiftParameters(double const& dx, double const& dy, double const& dz, double const& rx,
                                   double const& ry, double const& rz, double const& scale);

    /**
     * A copy, or with `invert` the small-angle parameters of the reverse shift, exact to the first order
     * only.
     */
    TBursaWolfDatumShiftParameters(TBursaWolfDatumShiftParameters const& src, bool invert);

    double RotationX; ///< rx, radians
    double RotationY; ///< ry, radians
    double RotationZ; ///< rz, radians
    double Scale;     ///< s, a factor near 1
    double ShiftX;    ///< dx, metres
    double ShiftY;    ///< dy, metres
    double ShiftZ;    ///< dz, metres
    bool OnlyShift;   ///< rotations are 0 and the scale is 1
};

/**
 * Small-angle Bursa-Wolf shift [EPSG7-2, 9606]. The reverse uses the transposed small-angle matrix, not its
 * inverse: direct and reverse in a row leave a remainder of the second order. Kept: published parameters of
 * the linear form are used both ways like this.
 */
class TBursaWolfDatumShift : public TDatumShift {
public:
    /** @param parameters copied. */
    explicit TBursaWolfDatumShift(TBursaWolfDatumShiftParameters const& parameters);
    TBursaWolfDatumShift(TBursaWolfDatumShift const& source);
    ~TBursaWolfDatumShift() override;

    /**
     * Same class, same `OnlyShift`, same shifts and, without `OnlyShift`, same rotations and scale; exactly.
     */
    bool operator==(TDatumShift const& other) const override;
    void DirectTransform(TCoords* coords) const override;
    void ReverseTransform(TCoords* coords) const override;
    bool IsNonlinear() const override;

    TBursaWolfDatumShiftParameters* Parameters; ///< owned
};

/** Bursa-Wolf shift with exact rotations R = Rx(rx) Ry(ry) Rz(rz); the reverse is the exact inverse. */
class TBursaWolfNonlinearDatumShift : public TDatumShift {
public:
    /** @param parameters copied. */
    explicit TBursaWolfNonlinearDatumShift(TBursaWolfDatumShiftParameters const& parameters);
    TBursaWolfNonlinearDatumShift(TBursaWolfNonlinearDatumShift const& source) = default;
    ~TBursaWolfNonlinearDatumShift() override;

    /** Same class and exactly the same numbers; `OnlyShift` counts as scale 1 and the identity matrix. */
    bool operator==(TDatumShift const& other) const override;
    void DirectTransform(TCoords* coords) const override;
    void ReverseTransform(TCoords* coords) const override;
    bool IsNonlinear() const override;

    bool OnlyShift;   ///< only the shifts act
    double Scale;     ///< s; 1.0 with `OnlyShift`
    double Matrix[9]; ///< R, row after row; the identity with `OnlyShift`
    double Shift[3];  ///< dx, dy, dz, metres
};

} // namespace KvRefSystem
