#pragma once

#include "shell/refsystems/ReferenceSystem.h"
#include "shell/units/LinearUnit.h"

#include <string>

namespace KvRefSystem {

/**
 * What the kinds with three coordinates in one linear unit share: their numbers, texts and units. Where the
 * kind is left-handed, the first shell coordinate is the core's `Y`.
 *
 * A point without height means nothing in these kinds, which refuse it in both directions.
 */
template <class Shell>
class TCartesianReferenceSystem : public TShellReferenceSystem {
public:
    using TShellReferenceSystem::ExportToMIFMID;

    void CoordsShellToCore(double const* shell, TCoords* core) const override;

    /** @throws std::runtime_error with the class's "...::CoordsCoreToShell" for a point without height. */
    void CoordsCoreToShell(TCoords const& core, double* shell) const override;

    /** @throws std::runtime_error with the class's "...::CoordsShellToCore" for an empty third text. */
    void CoordsShellToCore(TShellCoords const& shell, TCoords* core) const override;

    /** @throws as the form with numbers. */
    void CoordsCoreToShell(TCoords const& core, TShellCoords* shell) const override;

    /** @param plane unit of all three texts. @param height isn't used. */
    bool InputCoords(TShellCoords const& texts, TShellUnit const* plane, TShellUnit const* height,
                     double* shell) const override;

    /**
     * @param plane, planePrecision unit and decimals of all three texts. @param height, heightPrecision
     *        aren't used.
     */
    void OutputCoords(double const* shell, TShellCoords* texts, TShellUnit const* plane, int planePrecision,
                      TShellUnit const* height, int heightPrecision) const override;
    void OutputCoordsDef(double const* shell, TShellCoords* texts) const override;
    double GetPlaneUnitCoefToBase() const override;
    std::string GetPlaneUnitName() const override;
    std::string GetPlaneUnitShortName() const override;
    int GetPlaneUnitDefPrec() const override;
    double GetHeightUnitCoefToBase() const override;
    std::string GetHeightUnitName() const override;
    std::string GetHeightUnitShortName() const override;
    int GetHeightUnitDefPrec() const override;
    bool InsertCoreTransforms() override;
    bool InsertCorePairwiseTransforms(std::string const& name) override;

    /**
     * Replaces `text` by the MapInfo clause of a system without a place on the earth, with the unit's
     * abbreviation where the description has no MapInfo unit. @return false, `text` untouched, without a
     * unit.
     */
    virtual bool ExportToMIFMID(std::string* text) const;

protected:
    /** An empty system with an empty chain. */
    TCartesianReferenceSystem() = default;
    /** @throws as the base. */
    explicit TCartesianReferenceSystem(TStringTree* tree) : TShellReferenceSystem(tree) {}
};

} // namespace KvRefSystem
