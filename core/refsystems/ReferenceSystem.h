#pragma once

#include "core/refsystems/Coords.h"
#include "core/refsystems/FamilyEquality.h"
#include "core/refsystems/TransformsSet.h"

#include <map>
#include <string>

namespace KvRefSystem {

class TDatumShift;
class TGeocentricReferenceSystem;
class TGeodeticReferenceSystem;
class TLocalCartesianReferenceSystem;
class TLocalCurvedReferenceSystem;
class TMapProjectedReferenceSystem;
class TTopocentricHorizontalReferenceSystem;

/** Kind of a system. Values outside of the list are legal and unknown. */
enum TReferenceSystemType : int {
    rstLocalCartesian = 1,
    rstLocalCurved = 2,
    rstGeocentric = 3,
    rstGeodetic = 4,
    rstMapProjected = 5,
    rstTopocentricHorizontal = 6,
};

/** Order of the plane axes of the local and topocentric kinds; any non-zero value acts as `rscoRight`. */
enum TReferenceSystemCartesianOrientation : int {
    rscoLeft = 0,  ///< first coordinate north (along the azimuth), second east
    rscoRight = 1, ///< first coordinate east, second north
};

/** How the datums of two systems relate. */
enum TDatumComparison : int {
    dcUnknown = 1,      ///< a datum shift is missing, or both systems are local
    dcEqual = 2,        ///< both have shifts and they are equal
    dcDifferent = 3,    ///< both have shifts and they differ
    dcIncompatible = 4, ///< one system is local and the other earth-bound
};

/**
 * The frame of all core reference systems: pure geometry in radians and metres.
 *
 * A point is moved out of the source's own chain of transforms into its base coordinates, across by the
 * kind's geometry, and into the target's chain. Nothing tests whether source and target are one system: the
 * whole chain runs. After construction only the pairwise chains and the datum shift can be changed; const
 * operations may run on several threads.
 */
class TReferenceSystem {
public:
    virtual ~TReferenceSystem();
    TReferenceSystem(TReferenceSystem const&) = default;
    TReferenceSystem& operator=(TReferenceSystem const&) = delete;

    /** @return the geocentric system that this one is or contains, or null. Valid as long as this object. */
    virtual TGeocentricReferenceSystem const* RelatedGeocentricRefSystem() const;
    /** @return the geodetic system that this one is or contains, or null. */
    virtual TGeodeticReferenceSystem const* RelatedGeodeticRefSystem() const;
    /** @return this system if it is map-projected, or null. */
    virtual TMapProjectedReferenceSystem const* RelatedMapProjectedRefSystem() const;
    /** @return this system if it is topocentric, or null. */
    virtual TTopocentricHorizontalReferenceSystem const* RelatedTopocentricHorizontalRefSystem() const;
    /** @return the local Cartesian system that this one is or contains, or null. */
    virtual TLocalCartesianReferenceSystem const* RelatedLocalCartesianRefSystem() const;
    /** @return this system if it is local curved, or null. */
    virtual TLocalCurvedReferenceSystem const* RelatedLocalCurvedRefSystem() const;

    /** Same kind and exactly the same geometry and own chain; pairwise chains never count. */
    virtual bool operator==(TReferenceSystem const& other) const = 0;

    /**
     * @return whether a transformation to `dst` leaves heights as they are.
     * @throws std::logic_error for a kind of `dst` that this kind doesn't know.
     */
    virtual bool PreservesHeights(TReferenceSystem const& dst) const = 0;

    /** @return whether there is a datum shift. */
    virtual bool ContainsDatum() const;

    /** @return whether there is a datum shift with exact rotations. */
    virtual bool NonlinearDatum() const;

    /**
     * From this system's base coordinates to `dst`'s.
     * @throws std::logic_error for a kind that can't be reached.
     */
    virtual void OperateCoordsBase(TReferenceSystem const& dst, TCoords* coords) const = 0;

    /**
     * From base coordinates into the world frame: geocentric, Greenwich, after the datum shift on request.
     */
    virtual void OperateCoordsBaseWorld(TCoords* coords, bool ApplyDatumShift) const = 0;

    /** Stores the three steps of the axes' derivatives: radians or metres, as the kind's coordinates. */
    virtual void GetAxisStepsBase(double* steps) const = 0;

    /**
     * Replaces the datum shift by a copy of `shift`.
     * @return false, with no shift left, when that isn't possible.
     */
    virtual bool ReplaceDatumShift(TDatumShift const* shift);

    /**
     * Moves the point in place from this system to `dst`. Exceptions pass; the point is left as far as it
     * got.
     */
    void OperateCoords(TReferenceSystem const& dst, TCoords* coords) const;

    /**
     * @return the first key, in ascending order, of this system's pairwise chains that `other` has too, or
     *         "".
     */
    std::string GetPairwiseTransformID(TReferenceSystem const& other) const;

    /**
     * Applies the pairwise chain `id` backwards.
     * @return false, the point untouched, without such a chain.
     */
    bool TransformedToBasePairwise(TReferenceSystem const* sys, TCoords* coords, std::string const& id) const;

    /** Applies the pairwise chain `id`. @return false, the point untouched, without such a chain. */
    bool BaseToTransformedPairwise(TReferenceSystem const* sys, TCoords* coords, std::string const& id) const;

    /** Moves the point from this system into the world frame (metres). Pairwise chains take no part. */
    void OperateCoordsWorld(TCoords* coords, bool ApplyDatumShift) const;

    /**
     * Stores a copy of `set` under `id`. A key that is taken keeps its set and the call still returns true:
     * callers that mean to replace remove first.
     * @return false for an empty `id`.
     */
    bool SetPairwiseTransforms(std::string id, TRefSystemTransformsSet const& set);

    /** @return whether there was a chain under `id` to remove. */
    bool RemovePairwiseTransforms(std::string id);

    /**
     * Derivatives of the world coordinates with respect to the system's three coordinates, by central
     * differences.
     * @param coords the point. @param axes receives nine numbers, row k for coordinate k; metres per metre or
     *               per radian. @return false after any exception; rows already written stay.
     */
    bool TransformAxesWorld(TCoords const& coords, double* axes, bool ApplyDatumShift) const;

    /** @return a `TDatumComparison`. @throws std::logic_error for an unknown kind on either side. */
    int CompareDatums(TReferenceSystem const& dst) const;

    TReferenceSystemType Type;          ///< kind, fixed at construction
    TRefSystemTransformsSet Transforms; ///< own chain, from base to the user's coordinates
    std::map<std::string, TRefSystemTransformsSet>
        PairwiseTransforms; ///< chains for pairs of systems, by key

protected:
    /** @param type kind. @param transforms own chain, copied. */
    TReferenceSystem(TReferenceSystemType type, TRefSystemTransformsSet const& transforms);
    /** The same with chains for pairs of systems. @param pairwise copied. */
    TReferenceSystem(TReferenceSystemType type, TRefSystemTransformsSet const& transforms,
                     std::map<std::string, TRefSystemTransformsSet> const& pairwise);
};

/** Compares two classes of the family by the first one's operator. */
template <class A, ComparableThrough<A, TReferenceSystem> C>
bool operator==(A const& first, C const& second) {
    return static_cast<TReferenceSystem const&>(first).operator==(
        static_cast<TReferenceSystem const&>(second));
}

/**
 * @return a new system of the same kind, which the caller owns; null for a kind outside 1 to 6 or when the
 *         copy failed (the exception is swallowed).
 */
TReferenceSystem* CreateCopy(TReferenceSystem const& source);

} // namespace KvRefSystem
