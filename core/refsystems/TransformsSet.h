#pragma once

#include "core/refsystems/RefSystemTransform.h"

#include <cstddef>
#include <string>
#include <vector>

namespace KvRefSystem {

/**
 * A chain of simple transforms in order from base to transformed coordinates; a value, whose copies are deep.
 * The transforms in it are copies, and so have lost their names. An empty set is the identity.
 *
 * The coordinate operations only read; `GetFirstTransform` and `GetNextTransform` move a cursor even on a
 * const set and aren't for concurrent use.
 */
class TRefSystemTransformsSet {
public:
    TRefSystemTransformsSet();

    /**
     * @throws std::runtime_error with "TRefSystemTransformsSet::TRefSystemTransformsSet(const
     *         TRefSystemTransformsSet& src)" when a transform can't be copied.
     */
    TRefSystemTransformsSet(TRefSystemTransformsSet const& source);
    TRefSystemTransformsSet& operator=(TRefSystemTransformsSet const& source);
    ~TRefSystemTransformsSet();

    /** Appends a copy; the cursor moves to the end. @return false when it can't be copied. */
    bool AddNextTransform(TRefSystemTransform const& transform);

    /** Deletes all transforms and empties `TransformID`; the cursor is at the end. */
    void ClearTransforms();

    /** Puts the cursor at the first transform. @return it, or null for an empty chain. */
    TRefSystemTransform* GetFirstTransform() const;

    /** Moves the cursor on. @return the transform there, or null at and past the end. */
    TRefSystemTransform* GetNextTransform() const;

    /** Equal length, equal `TransformID` and pairwise equal transforms; a null entry makes it false. */
    bool operator==(TRefSystemTransformsSet const& other) const;

    /** Applies every transform, from first to last. @param sys the system on whose behalf it runs. */
    void BaseToTransformed(TReferenceSystem const* sys, TCoords* coords) const;

    /**
     * Applies every transform backwards, from last to first.
     * @param sys the system on whose behalf it runs.
     */
    void TransformedToBase(TReferenceSystem const* sys, TCoords* coords) const;

    /** @return whether all transforms preserve heights; true for an empty chain. */
    bool PreservesHeights() const;

    /** Replaces `lines` by a description for people. */
    void Output(std::vector<std::string>* lines) const;

    /** Exchanges the contents; both cursors go to the end. */
    void Swap(TRefSystemTransformsSet& other) noexcept;

    std::vector<TRefSystemTransform*> TransformList; ///< the chain, owned
    std::string TransformID;                         ///< identifier of the chain; counts in equality
    mutable std::size_t Cursor;                      ///< position in the chain
};

} // namespace KvRefSystem
