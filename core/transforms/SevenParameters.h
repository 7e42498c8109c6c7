#pragma once

#include "core/refsystems/RefSystemTransform.h"
#include "frame/imported/SevenParameters.h"

namespace KvRefSystem {

/** Spatial similarity between base and transformed coordinates; metres and radians, exact rotations. */
class TSevenParametersRefSystemTransform : public TRefSystemTransform {
public:
    /** The identity. */
    TSevenParametersRefSystemTransform();

    /**
     * @param dX, dY, dZ shifts, metres. @param alpha, beta, gamma rotations, radians. @param dm scale
     *         correction.
     * @throws std::runtime_error with
     *         "TSevenParametersRefSystemTransform::TSevenParametersRefSystemTransform" for a
     *         number that isn't finite or for dm = -1.
     */
    TSevenParametersRefSystemTransform(double const& dX, double const& dY, double const& dZ,
                                       double const& alpha, double const& beta, double const& gamma,
                                       double const& dm);
    TSevenParametersRefSystemTransform(TSevenParametersRefSystemTransform const& source);

    using TRefSystemTransform::BaseToTransformed;
    using TRefSystemTransform::TransformedToBase;
    bool operator==(TRefSystemTransform const& other) const override;
    void BaseToTransformed(TReferenceSystem const* sys, TCoords* coords) const override;
    void TransformedToBase(TReferenceSystem const* sys, TCoords* coords) const override;
    void Output(std::vector<std::string>* lines) const override;

    /** Stores the seven numbers in the order of the constructor. */
    void GetParameters(double* dX, double* dY, double* dZ, double* alpha, double* beta, double* gamma,
                       double* dm) const;

    LumCommonUtils::T7ParamsTransform Transform; ///< the prepared similarity
};

} // namespace KvRefSystem
