#pragma once

#include "core/refsystems/RefSystemTransform.h"

namespace KvRefSystem {

/** Rotation of the plane coordinates: forward X' = sin a Y + cos a X, Y' = cos a Y - sin a X. */
class TPlaneRotationRefSystemTransform : public TRefSystemTransform {
public:
    /** @param angle radians. */
    explicit TPlaneRotationRefSystemTransform(double const& angle);
    TPlaneRotationRefSystemTransform(TPlaneRotationRefSystemTransform const& source);

    using TRefSystemTransform::BaseToTransformed;
    using TRefSystemTransform::TransformedToBase;
    bool operator==(TRefSystemTransform const& other) const override;
    void BaseToTransformed(TReferenceSystem const* sys, TCoords* coords) const override;
    void TransformedToBase(TReferenceSystem const* sys, TCoords* coords) const override;
    bool PreservesHeights() const override;
    void Output(std::vector<std::string>* lines) const override;

    double Angle;    ///< radians
    double SinAngle; ///< its sine
    double CosAngle; ///< its cosine
};

/** Shift of the plane coordinates, metres. */
class TPlaneShiftRefSystemTransform : public TRefSystemTransform {
public:
    /** @param dX, dY added to the base coordinates, metres. */
    TPlaneShiftRefSystemTransform(double const& dX, double const& dY);
    TPlaneShiftRefSystemTransform(TPlaneShiftRefSystemTransform const& source);

    using TRefSystemTransform::BaseToTransformed;
    using TRefSystemTransform::TransformedToBase;
    bool operator==(TRefSystemTransform const& other) const override;
    void BaseToTransformed(TReferenceSystem const* sys, TCoords* coords) const override;
    void TransformedToBase(TReferenceSystem const* sys, TCoords* coords) const override;
    bool PreservesHeights() const override;
    void Output(std::vector<std::string>* lines) const override;

    double ShiftX; ///< metres
    double ShiftY; ///< metres
};

/** Affine transformation of the plane coordinates [EPSG7-2, 9624]: p' = M p + S. */
class TPlaneAffineRefSystemTransform : public TRefSystemTransform {
public:
    /**
     * @param M four numbers m00, m01, m10, m11. @param S two numbers in metres.
     * @throws std::runtime_error with "TPlaneAffineRefSystemTransform(const double M[4], const double S[2])"
     *         when the determinant is not above 1e-20 in absolute value.
     */
    TPlaneAffineRefSystemTransform(double const* M, double const* S);
    TPlaneAffineRefSystemTransform(TPlaneAffineRefSystemTransform const& source);

    using TRefSystemTransform::BaseToTransformed;
    using TRefSystemTransform::TransformedToBase;
    bool operator==(TRefSystemTransform const& other) const override;
    void BaseToTransformed(TReferenceSystem const* sys, TCoords* coords) const override;
    void TransformedToBase(TReferenceSystem const* sys, TCoords* coords) const override;
    bool PreservesHeights() const override;
    void Output(std::vector<std::string>* lines) const override;

    /** Stores the four numbers of the matrix and the two of the shift. */
    void GetParameters(double* M, double* S) const;

    double Matrix[4];  ///< m00, m01, m10, m11
    double Shift[2];   ///< s0, s1, metres
    double Inverse[4]; ///< i00, i01, i10, i11
};

/**
 * Shift of the height, metres. Answers that it preserves heights. Kept: chains with a height shift count as
 * height-preserving for the hosts.
 */
class TVerticalShiftRefSystemTransform : public TRefSystemTransform {
public:
    /** @param dZ metres. */
    explicit TVerticalShiftRefSystemTransform(double dZ);
    TVerticalShiftRefSystemTransform(TVerticalShiftRefSystemTransform const& source);

    using TRefSystemTransform::BaseToTransformed;
    using TRefSystemTransform::TransformedToBase;
    bool operator==(TRefSystemTransform const& other) const override;
    void BaseToTransformed(TReferenceSystem const* sys, TCoords* coords) const override;
    void TransformedToBase(TReferenceSystem const* sys, TCoords* coords) const override;
    bool PreservesHeights() const override;
    void Output(std::vector<std::string>* lines) const override;

    /** Takes its argument by value and does nothing. Kept: hosts are compiled against it. */
    void GetParameters(double dZ) const;

    double ShiftZ; ///< metres
};

} // namespace KvRefSystem
