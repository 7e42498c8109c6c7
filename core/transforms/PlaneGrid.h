#pragma once

#include "core/refsystems/RefSystemTransform.h"
#include "core/transforms/FloatTable.h"

namespace KvRefSystem {

/**
 * Correction of the plane coordinates by two tables: X += dE coef, Y += dN coef. One-way by design: from base
 * to transformed coordinates only; backwards it does nothing.
 */
class TPlaneGridRefSystemTransform : public TRefSystemTransform {
public:
    /**
     * @param gridDE, gridDN corrections of `X` and of `Y`, copied. @param coef factor of the corrections.
     * @param refsystem system in which the tables are indexed, copied; null: the point's own coordinates.
     * @throws std::runtime_error with "TPlaneGridRefSystemTransform::TPlaneGridRefSystemTransform".
     */
    TPlaneGridRefSystemTransform(T2DTable<float> const& gridDE, T2DTable<float> const& gridDN, double coef,
                                 TReferenceSystem const* refsystem);
    TPlaneGridRefSystemTransform(TPlaneGridRefSystemTransform const& source);
    ~TPlaneGridRefSystemTransform() override;

    using TRefSystemTransform::BaseToTransformed;
    using TRefSystemTransform::TransformedToBase;
    bool operator==(TRefSystemTransform const& other) const override;

    /**
     * @param sys holder of the chain, whose coordinates are taken into the tables' system for the lookup.
     * @throws std::logic_error without `sys` when the tables have a system of their own.
     */
    void BaseToTransformed(TReferenceSystem const* sys, TCoords* coords) const override;
    void TransformedToBase(TReferenceSystem const* sys, TCoords* coords) const override;
    bool PreservesHeights() const override;
    void Output(std::vector<std::string>* lines) const override;

    T2DTable<float>* GridDE;         ///< corrections of `X`, owned
    T2DTable<float>* GridDN;         ///< corrections of `Y`, owned
    TReferenceSystem* GridRefSystem; ///< system of the tables, owned, may be null
    double GridCoef;                 ///< factor of the corrections
};

} // namespace KvRefSystem
