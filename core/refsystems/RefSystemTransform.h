#pragma once

#include "core/refsystems/Coords.h"
#include "core/refsystems/FamilyEquality.h"

#include <string>
#include <vector>

namespace KvRefSystem {

class TReferenceSystem;

/** Class of a simple transform. Values outside of the list are legal and unknown. */
enum TReferenceSystemTransformType : int {
    rsttPlaneRotation = 1,
    rsttPlaneShift = 2,
    rsttSevenParameters = 3,
    rsttPlaneAffine = 4,
    rsttPlaneGrid = 5,
    rsttVerticalShift = 6,
};

/** @return "Plane rotation", "Plane shift", … ; an empty text for an unknown type. */
std::string GetReferenceSystemTransformTypeName(TReferenceSystemTransformType type);

/**
 * One link in the chain between a system's base coordinates and those that its user sees. Immutable after
 * construction; works in place on radians and metres.
 */
class TRefSystemTransform {
public:
    /** @param transformType class of the transform. Name and description begin empty. */
    explicit TRefSystemTransform(TReferenceSystemTransformType transformType);
    virtual ~TRefSystemTransform();
    TRefSystemTransform& operator=(TRefSystemTransform const&) = delete;

    /** Same type and exactly the same numbers; names don't count. */
    virtual bool operator==(TRefSystemTransform const& other) const = 0;

    /** From base to transformed coordinates. @param sys the system on whose behalf it runs. */
    virtual void BaseToTransformed(TReferenceSystem const* sys, TCoords* coords) const = 0;

    /** From transformed to base coordinates. @param sys the system on whose behalf it runs. */
    virtual void TransformedToBase(TReferenceSystem const* sys, TCoords* coords) const = 0;

    /** @return whether heights stay as they are; false in the base. */
    virtual bool PreservesHeights() const;

    /** Appends name, description and type as lines for people. */
    virtual void Output(std::vector<std::string>* lines) const;

    /** Assigns `in` to `out` and transforms `out`. */
    void BaseToTransformed(TReferenceSystem const* sys, TCoords const& in, TCoords* out) const;

    /** Assigns `in` to `out` and transforms `out`. */
    void TransformedToBase(TReferenceSystem const* sys, TCoords const& in, TCoords* out) const;

    std::string Name;                   ///< label; copies lose it
    std::string Description;            ///< label; copies lose it
    TReferenceSystemTransformType Type; ///< class

protected:
    /** The base part of a copy is built afresh from the type: name and description are empty. */
    TRefSystemTransform(TRefSystemTransform const& source);
};

/** Compares two classes of the family by the first one's operator. */
template <class A, ComparableThrough<A, TRefSystemTransform> C>
bool operator==(A const& first, C const& second) {
    return static_cast<TRefSystemTransform const&>(first).operator==(
        static_cast<TRefSystemTransform const&>(second));
}

/**
 * @return a new object of the same class, which the caller owns; null for a type outside 1 to 6 or when the
 *         copy failed (the exception is swallowed).
 */
TRefSystemTransform* CreateTransformCopy(TRefSystemTransform const& source);

} // namespace KvRefSystem
