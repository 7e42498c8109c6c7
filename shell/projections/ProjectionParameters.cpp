#include "shell/projections/ProjectionParameters.h"

#include "shell/projections/AzimuthalFactsDetail.h"
#include "shell/projections/ConeFactsDetail.h"
#include "shell/projections/CylinderFactsDetail.h"

#include <algorithm>

namespace KvRefSystem {

namespace {

namespace Tag = ProjectionTag;

constexpr ParameterFacts::TProjectionFacts const* ParameterisedClasses[] = {
    &ParameterFacts::TFactsOf<TShellTransverseMercatorMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellObliqueMercatorMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellHotineObliqueMercatorMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellNZMGMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellAlbersEqualAreaConicMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellLambertConicConformal2SPMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellLambertConicConformal1SPMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellCassiniSoldnerMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellMercator2SPMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellMercator1SPMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellObliqueStereographicMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellPolarStereographicMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellQuasiStereographicMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellPolyconicMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellKrovakMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellHattMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellPolarStereographicBasicMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellPolarStereographicNaturalOriginMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellPolarStereographicFalseOriginMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellLambertAzimuthalEqualAreaMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellEquidistantConicMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellOrthographicMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellLambertConicConformal2SPBelgiumMapProjection>::Value,
    &ParameterFacts::TFactsOf<TShellSphericalMercatorMapProjection>::Value,
};

static_assert(std::ranges::any_of(ParameterisedClasses,
                                  [](ParameterFacts::TProjectionFacts const* facts) {
                                      return ParameterFacts::Filled(facts->Fields).size() ==
                                             ParameterFacts::MaxParameters;
                                  }),
              "no class has as many parameters as there is room for");

/** What the shells that go by zones read, and the two that share their cylinder. */
struct TZonedClass {
    TMapProjectionType Type;
    std::array<int, 4> Keys; ///< in the order in which they are read; 0 where there are fewer
    int OptionalKey{};       ///< the one that may be missing, or 0
};

constexpr TZonedClass ZonedClasses[] = {
    {mptGaussBoaga,
     {Tag::LongitudeOfOrigin, Tag::ScaleFactorAtOrigin, Tag::FalseEasting, Tag::FalseNorthing}},
    {mptGaussKrugerWide,
     {Tag::LongitudeOfOrigin, Tag::FalseEasting, Tag::FalseNorthing, Tag::ScaleFactorAtOrigin},
     Tag::ScaleFactorAtOrigin},
    {mptGaussKruger6, {Tag::Zone, Tag::Hemisphere}},
    {mptUTM, {Tag::Zone, Tag::Hemisphere}},
    {mptMSKxx, {Tag::Zone, Tag::ZoneWidth, Tag::Region}},
    {mptSK63, {Tag::Zone, Tag::ZoneWidth, Tag::Block}},
};

TMapProjectionParameter Describe(int key, bool isOptional) {
    ParameterFacts::TTagMeaning const& row = ParameterFacts::MeaningOf(key);
    return {.Key = key, .Meaning = row.Meaning, .Unit = row.Unit, .IsOptional = isOptional};
}

} // namespace

std::vector<TMapProjectionParameter> GetMapProjectionParameters(TMapProjectionType type) {
    std::vector<TMapProjectionParameter> parameters;
    for (ParameterFacts::TProjectionFacts const* const facts : ParameterisedClasses) {
        if (facts->Type != type) {
            continue;
        }
        for (ParameterFacts::TField const& field : ParameterFacts::Filled(facts->Fields)) {
            if (field.InTree) {
                parameters.push_back(Describe(field.Key, false));
            }
        }
    }
    for (TZonedClass const& zoned : ZonedClasses) {
        if (zoned.Type != type) {
            continue;
        }
        for (int const key : zoned.Keys) {
            if (key != 0) {
                parameters.push_back(Describe(key, key == zoned.OptionalKey));
            }
        }
    }
    return parameters;
}

} // namespace KvRefSystem
