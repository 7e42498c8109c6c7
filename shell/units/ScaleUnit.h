#pragma once

#include "shell/units/Unit.h"

namespace KvRefSystem {

/** A unit of scale, for example parts per million; base unit the plain factor. */
class TShellScaleUnit : public TShellUnit {
public:
    /**
     * @throws std::runtime_error with "TShellUnit::TShellUnit(TStringTree *tree)" when a mandatory field is
     *         missing.
     */
    explicit TShellScaleUnit(TStringTree* tree);

    /** @throws std::runtime_error with "TShellScaleUnit::TShellScaleUnit(TKvXIniReader *xml)". */
    explicit TShellScaleUnit(TKvXIniReader* xml);

    /** Always 25 significant digits; `precision` doesn't count. */
    std::string ValueToString(double const& value, int precision) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;
    virtual ~TShellScaleUnit();
};

} // namespace KvRefSystem
