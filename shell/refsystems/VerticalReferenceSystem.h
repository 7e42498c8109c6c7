#pragma once

#include "shell/units/LinearUnit.h"

#include <string>

namespace KvRefSystem {

/** The height part of a geodetic system: it holds the height unit. */
class TShellVerticalReferenceSystem {
public:
    /** Without a unit in the tree the unit is null, and using it fails. @throws as the unit. */
    explicit TShellVerticalReferenceSystem(TStringTree* tree);

    /**
     * @throws std::runtime_error with
     *         "TShellVerticalReferenceSystem::TShellVerticalReferenceSystem(TKvXIniReader *xml)".
     */
    explicit TShellVerticalReferenceSystem(TKvXIniReader* xml);

    TShellVerticalReferenceSystem(TShellVerticalReferenceSystem const&) = delete;
    TShellVerticalReferenceSystem& operator=(TShellVerticalReferenceSystem const&) = delete;
    virtual ~TShellVerticalReferenceSystem();

    /** Equal units; two missing ones are equal. */
    virtual bool operator==(TShellVerticalReferenceSystem const& other) const;

    /**
     * Replaces `text` by the WKT VERT_CS of ellipsoidal heights.
     * @return false, `text` untouched, without a usable unit.
     */
    virtual bool ExportToWKT(std::string* text) const;

    /** @return false without a unit. */
    virtual bool LoadFromXML(TKvXIniReader* reader);

    /** @return false without a unit, or at the first write that failed. */
    virtual bool SaveToXML(TKvXIniWriter* writer) const;

    /** Frees the unit. */
    virtual void Reset();

    TShellLinearUnit* HeightUnit = nullptr; ///< owned; may be null
};

} // namespace KvRefSystem
