#pragma once

#include "shell/units/Unit.h"

namespace KvRefSystem {

/** A unit of length; base unit metre. The default precision is that of millimetres in this unit. */
class TShellLinearUnit : public TShellUnit {
public:
    /**
     * @throws std::runtime_error with "TShellUnit::TShellUnit(TStringTree *tree)" when a mandatory field is
     *         missing.
     */
    explicit TShellLinearUnit(TStringTree* tree);

    /** @throws std::runtime_error with "TShellLinearUnit::TShellLinearUnit(TKvXIniReader *xml)". */
    explicit TShellLinearUnit(TKvXIniReader* xml);

    /**
     * As the root's, and equal MIF/MID codes.
     * @throws std::bad_cast for an equal unit of another class. Kept: hosts rely on the asymmetry.
     */
    bool operator==(TShellUnit const& other) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    bool SaveToXML(TKvXIniWriter* writer) const override;
    virtual ~TShellLinearUnit();

    int MIFMIDCode = -1; ///< -1 when there is none; no place in the tree form
};

/**
 * The comparison through the root's class goes by the first unit alone, also where C++20 could turn it round.
 */
inline bool operator==(TShellUnit const& first, TShellLinearUnit const& second) {
    return first.operator==(static_cast<TShellUnit const&>(second));
}

/** As above: without it the comparison of two lengths would be ambiguous. */
inline bool operator==(TShellLinearUnit const& first, TShellLinearUnit const& second) {
    return first.operator==(static_cast<TShellUnit const&>(second));
}

} // namespace KvRefSystem
