#pragma once

#include "shell/projections/MapProjection.h"

namespace KvRefSystem {

/**
 * What the shells with free parameters share: all but their facts. A class of this family is its facts (keys,
 * units, names in each language, the core class) and its texts as members, in the order of the facts.
 *
 * The operations are those of `TShellMapProjection`. Which of the exports a class has is in its facts; those
 * that it hasn't are false and write nothing.
 */
template <class Shell>
class TParameterisedMapProjection : public TShellMapProjection {
public:
    TMapProjection* CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const override;
    bool operator==(TShellMapProjection const& other) const override;
    bool GetProjectionTypeWKT(std::string* text) const override;
    bool GetProjectionParamsWKT(std::string* text) const override;
    bool ExportToMIFMID(TShellLinearUnit* outputUnit, std::string* text) const override;
    bool LoadFromXML(TKvXIniReader* reader) override;

    /** @throws std::logic_error for a pole that is neither north nor south. */
    bool SaveToXML(TKvXIniWriter* writer) const override;
    void Reset() override;
    bool ExportMapProjParamsToGeoTIFF(std::map<int, std::string>* keys, TShellAngularUnit const* angularUnit,
                                      TShellLinearUnit const* linearUnit) const override;

protected:
    /** Reads what the base reads; `ReadParameters` comes from the class's constructor. */
    explicit TParameterisedMapProjection(TStringTree* tree) : TShellMapProjection(tree) {}
    /** The same from XML. */
    explicit TParameterisedMapProjection(TKvXIniReader* xml) : TShellMapProjection(xml) {}

    /** @throws std::runtime_error with the text of the class's constructor for a key that is missing. */
    void ReadParameters(TStringTree* tree);

    /** @throws std::runtime_error with the text of the class's constructor when it doesn't load. */
    void ReadParameters(TKvXIniReader* xml);
};

} // namespace KvRefSystem
