#pragma once

#include "core/refsystems/Coords.h"
#include "core/refsystems/FamilyEquality.h"

namespace KvRefSystem {

/** Class of a core datum shift. */
enum TDatumShiftType : int {
    dsBursaWolf = 1,
    dsBursaWolfNonlinear = 2,
};

/**
 * Link between a system's datum and the common datum, in geocentric metres, in place. Immutable after
 * construction. Direct goes from the system's own datum to the common one.
 */
class TDatumShift {
public:
    /** @param type class. */
    explicit TDatumShift(TDatumShiftType type);
    virtual ~TDatumShift();
    TDatumShift(TDatumShift const&) = default;
    TDatumShift& operator=(TDatumShift const&) = delete;

    /** Same class and exactly the same numbers. */
    virtual bool operator==(TDatumShift const& other) const = 0;

    /** From the system's own datum to the common datum; geocentric metres. */
    virtual void DirectTransform(TCoords* coords) const = 0;

    /** From the common datum to the system's own datum; geocentric metres. */
    virtual void ReverseTransform(TCoords* coords) const = 0;

    /** @return whether rotations are evaluated by exact trigonometry. */
    virtual bool IsNonlinear() const = 0;

    TDatumShiftType Type; ///< class
};

/** Compares two classes of the family by the first one's operator. */
template <class A, ComparableThrough<A, TDatumShift> C>
bool operator==(A const& first, C const& second) {
    return static_cast<TDatumShift const&>(first).operator==(static_cast<TDatumShift const&>(second));
}

/**
 * @return a new object of the same class, which the caller owns; null for null, for an unknown type or when
 *         the copy failed (the exception is swallowed).
 */
TDatumShift* CreateDatumShiftCopy(TDatumShift const* source);

} // namespace KvRefSystem
