#include "core/transforms/SevenParameters.h"

#include "core/refsystems/FamilyEquality.h"
#include "frame/NumberText.h"

#include <stdexcept>

namespace KvRefSystem {

using LumCommonUtils::T7Params;

TSevenParametersRefSystemTransform::TSevenParametersRefSystemTransform()
    : TRefSystemTransform(rsttSevenParameters) {}

TSevenParametersRefSystemTransform::TSevenParametersRefSystemTransform(double const& dX, double const& dY,
                                                                       double const& dZ, double const& alpha,
                                                                       double const& beta,
                                                                       double const& gamma, double const& dm)
    : TRefSystemTransform(rsttSevenParameters) {
    T7Params parameters;
    parameters.wx = alpha;
    parameters.wy = beta;
    parameters.wz = gamma;
    parameters.m = dm;
    parameters.dX = dX;
    parameters.dY = dY;
    parameters.dZ = dZ;
    if (!Transform.Initialize(parameters)) {
        throw std::runtime_error("TSevenParametersRefSystemTransform::TSevenParametersRefSystemTransform");
    }
}

TSevenParametersRefSystemTransform::TSevenParametersRefSystemTransform(
    TSevenParametersRefSystemTransform const& source)
    : TRefSystemTransform(rsttSevenParameters) {
    T7Params parameters;
    source.Transform.GetParameters(&parameters);
    if (!Transform.Initialize(parameters)) {
        throw std::runtime_error(
            "TSevenParametersRefSystemTransform::TSevenParametersRefSystemTransform(const "
            "TSevenParametersRefSystemTransform&)");
    }
}

bool TSevenParametersRefSystemTransform::operator==(TRefSystemTransform const& other) const {
    auto const* const that = AsSameClass(*this, other);
    if (that == nullptr) {
        return false;
    }
    T7Params one;
    T7Params two;
    Transform.GetParameters(&one);
    that->Transform.GetParameters(&two);
    return one.wx == two.wx && one.wy == two.wy && one.wz == two.wz && one.m == two.m && one.dX == two.dX &&
           one.dY == two.dY && one.dZ == two.dZ;
}

void TSevenParametersRefSystemTransform::BaseToTransformed(TReferenceSystem const*, TCoords* coords) const {
    Transform.DirectTransform(coords->X, coords->Y, coords->Z, &coords->X, &coords->Y, &coords->Z);
}

void TSevenParametersRefSystemTransform::TransformedToBase(TReferenceSystem const*, TCoords* coords) const {
    Transform.InverseTransform(coords->X, coords->Y, coords->Z, &coords->X, &coords->Y, &coords->Z);
}

void TSevenParametersRefSystemTransform::Output(std::vector<std::string>* lines) const {
    TRefSystemTransform::Output(lines);
    T7Params parameters;
    Transform.GetParameters(&parameters);
    lines->push_back(FormatText("Alpha= %lg radians", parameters.wx));
    lines->push_back(FormatText("Beta = %lg radians", parameters.wy));
    lines->push_back(FormatText("Gamma= %lg radians", parameters.wz));
    lines->push_back(FormatText("dm   = %lg", parameters.m));
    lines->push_back(FormatText("dX   = %lg", parameters.dX));
    lines->push_back(FormatText("dY   = %lg", parameters.dY));
    lines->push_back(FormatText("dZ   = %lg", parameters.dZ));
}

void TSevenParametersRefSystemTransform::GetParameters(double* dX, double* dY, double* dZ, double* alpha,
                                                       double* beta, double* gamma, double* dm) const {
    T7Params parameters;
    Transform.GetParameters(&parameters);
    *dX = parameters.dX;
    *dY = parameters.dY;
    *dZ = parameters.dZ;
    *alpha = parameters.wx;
    *beta = parameters.wy;
    *gamma = parameters.wz;
    *dm = parameters.m;
}

} // namespace KvRefSystem
