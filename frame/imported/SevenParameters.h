#pragma once

#include "frame/imported/Matrix.h"

namespace LumCommonUtils {

/**
 * Seven numbers of a spatial similarity. Rotation A = (Rz(wz) Ry(wy) Rx(wx))^T with active rotations;
 * direct: p' = (1 + m) A p + d. The sign is opposite to that of the datum shifts.
 */
struct T7Params {
    double wx = 0; ///< alpha, rotation about X, radians
    double wy = 0; ///< beta, rotation about Y, radians
    double wz = 0; ///< gamma, rotation about Z, radians
    double m = 0;  ///< scale correction: the factor is 1 + m
    double dX = 0; ///< shift along X, metres
    double dY = 0; ///< shift along Y, metres
    double dZ = 0; ///< shift along Z, metres
};

/** A prepared spatial similarity; the default one is the identity. */
class T7ParamsTransform {
public:
    T7ParamsTransform();

    /**
     * Prepares the transformation.
     * @return false, changing nothing, for a number that isn't finite or for 1 + m = 0.
     */
    bool Initialize(T7Params const& parameters);

    /** Gives back the seven stored numbers unchanged. */
    void GetParameters(T7Params* stored) const;

    /** p' = (1 + m) A p + d, metres; the outputs may be the input variables. */
    void DirectTransform(double const& x, double const& y, double const& z, double* rx, double* ry,
                         double* rz) const;

    /** p = A^T (p' - d) / (1 + m), metres; the outputs may be the input variables. */
    void InverseTransform(double const& x, double const& y, double const& z, double* rx, double* ry,
                          double* rz) const;

private:
    T7Params parameters;
    TMatrix rotation;
    TVector shift;
};

/** `second` after `first`, exactly; `result` may be one of the inputs. */
void Combine7Params(T7Params const& first, T7Params const& second, T7Params* result);

/**
 * `second` after `first`, to the first order: angles and scale corrections add; d = d2 + (1 + m2)(d1 - w2 x
 * d1).
 */
void Combine7ParamsLinearized(T7Params const& first, T7Params const& second, T7Params* result);

/** The inverse similarity: A^T, 1/(1 + m) - 1, -A^T d/(1 + m); `inverse` may be the input. */
void InvertParams(T7Params const& parameters, T7Params* inverse);

/**
 * Takes a 3 by 3 matrix M = Rz(gamma) Ry(beta) Rx(alpha) of active rotations apart; exact at beta = ±pi/2
 * too.
 * @param rotation the matrix. @param alpha, beta, gamma receive the angles in radians.
 */
void RzyxGetAlphaBetaGamma(TMatrix const& rotation, double* alpha, double* beta, double* gamma);

} // namespace LumCommonUtils
