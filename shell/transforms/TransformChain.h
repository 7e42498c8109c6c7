#pragma once

#include "core/refsystems/TransformsSet.h"
#include "frame/imported/StringTree.h"
#include "shell/transforms/TransformParams.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace KvRefSystem {

/**
 * The ordered corrections of a system. The destructor doesn't free the records: the owner calls
 * `ClearTransforms` first. Iterating moves a cursor even on a const chain.
 */
class TShellRefSystemTransform {
public:
    /** An empty chain. */
    TShellRefSystemTransform();

    /**
     * Reads the chain in rising idx order.
     * @throws std::runtime_error with "TShellRefSystemTransform::TShellRefSystemTransform(TStringTree *src)".
     */
    explicit TShellRefSystemTransform(TStringTree* tree);

    TShellRefSystemTransform(TShellRefSystemTransform const&) = delete;
    TShellRefSystemTransform& operator=(TShellRefSystemTransform const&) = delete;
    ~TShellRefSystemTransform() = default;

    /** Appends a copy; the cursor moves to the end. @return false when the copy failed. */
    bool AddNextTransform(TShellRefSystemTransformParams const& params);

    /** Deletes every record; the cursor is at the end. */
    void ClearTransforms();

    /** Puts the cursor at the first record. @return it, or null. */
    TShellRefSystemTransformParams* GetFirstTransform() const;

    /** Moves the cursor on. @return the record there, or null at and past the end. */
    TShellRefSystemTransformParams* GetNextTransform() const;

    /** @return the record, or null outside of the chain. */
    TShellRefSystemTransformParams* GetTransform(int index) const;

    /** Deletes one record. @return false for a bad index. */
    bool DeleteTransform(int index);

    /**
     * Replaces one record by a copy.
     * @return false for a bad index, a record that is false, or a failed copy.
     */
    bool ReplaceTransform(int index, TShellRefSystemTransformParams const& params);

    /** Exchanges two records. @return false for a bad index. */
    bool SwapTransforms(int first, int second);

    /**
     * Makes the core chain.
     * @param swap_axes, x_scale, y_scale how the user's axes relate to the chain's; they act on affine
     *         records only.
     * @return a new set, owned by the caller; null when it can't be allocated.
     * @throws std::runtime_error with "TShellRefSystemTransform::CreateCoreTransform"; as the core
     *         transforms.
     */
    TRefSystemTransformsSet* CreateCoreTransform(bool swap_axes, int x_scale, int y_scale) const;

    /**
     * Writes the chain into a tree, with its name if `id` isn't empty.
     * @return false at the first failure; what is written stays.
     */
    bool WriteToTree(TStringTree* tree, std::string const& id) const;

    std::vector<TShellRefSystemTransformParams*> Chain; ///< the records, owned
    mutable std::size_t Cursor;                         ///< position in the chain
};

/** Ends a chain with its records; null is legal. */
void DestroyTransformChain(TShellRefSystemTransform* chain);

/**
 * The seam between chains and systems: a grid record may carry a whole map-projected system. Defined with
 * the systems, so that no header of this room knows them.
 * @param text description of a map-projected system.
 * @return its core system. @throws what reading the description throws.
 */
std::unique_ptr<TReferenceSystem> CreateGridCoreRefSystem(std::string const& text);

} // namespace KvRefSystem
