#include "shell/projections/ParameterisedProjections.h"

#include "core/refsystems/FamilyEquality.h"
#include "shell/projections/AzimuthalFactsDetail.h"
#include "shell/projections/ConeFactsDetail.h"
#include "shell/projections/CylinderFactsDetail.h"

namespace KvRefSystem {

using ParameterFacts::TFactsOf;
using ParameterFacts::TXmlForm;

template <class Shell>
TMapProjection*
TParameterisedMapProjection<Shell>::CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const {
    return ParameterFacts::CreateCore(TFactsOf<Shell>::Value, *this, semiAxes);
}

template <class Shell>
bool TParameterisedMapProjection<Shell>::operator==(TShellMapProjection const& other) const {
    auto const* const same = AsSameClass(static_cast<Shell const&>(*this), other);
    return same && EqualsInBase(other) &&
           ParameterFacts::SameParameters(TFactsOf<Shell>::Value, *this, *same);
}

template <class Shell>
bool TParameterisedMapProjection<Shell>::GetProjectionTypeWKT(std::string* text) const {
    return ParameterFacts::WktName(TFactsOf<Shell>::Value, text);
}

template <class Shell>
bool TParameterisedMapProjection<Shell>::GetProjectionParamsWKT(std::string* text) const {
    return ParameterFacts::WktParameters(TFactsOf<Shell>::Value, *this, text);
}

template <class Shell>
bool TParameterisedMapProjection<Shell>::ExportToMIFMID(TShellLinearUnit* outputUnit,
                                                        std::string* text) const {
    return ParameterFacts::MifClause(TFactsOf<Shell>::Value, *this, outputUnit, text);
}

template <class Shell>
bool TParameterisedMapProjection<Shell>::LoadFromXML(TKvXIniReader* reader) {
    if constexpr (TFactsOf<Shell>::Value.Xml == TXmlForm::Refused) {
        return false;
    } else if constexpr (TFactsOf<Shell>::Value.Xml == TXmlForm::Base) {
        return TShellMapProjection::LoadFromXML(reader);
    } else {
        bool isLoaded = false;
        try {
            isLoaded = TShellMapProjection::LoadFromXML(reader) &&
                       ParameterFacts::ReadXml(TFactsOf<Shell>::Value, this, reader);
        } catch (...) {
            // A reader that throws, or memory that ran out: a load that failed, too.
        }
        if (!isLoaded) {
            Reset();
        }
        return isLoaded;
    }
}

template <class Shell>
bool TParameterisedMapProjection<Shell>::SaveToXML(TKvXIniWriter* writer) const {
    if constexpr (TFactsOf<Shell>::Value.Xml == TXmlForm::Refused) {
        return false;
    } else if constexpr (TFactsOf<Shell>::Value.Xml == TXmlForm::Base) {
        return TShellMapProjection::SaveToXML(writer);
    } else {
        return TShellMapProjection::SaveToXML(writer) &&
               ParameterFacts::WriteXml(TFactsOf<Shell>::Value, *this, writer);
    }
}

template <class Shell>
void TParameterisedMapProjection<Shell>::Reset() {
    TShellMapProjection::Reset();
    ParameterFacts::ClearTexts(TFactsOf<Shell>::Value, this);
}

template <class Shell>
bool TParameterisedMapProjection<Shell>::ExportMapProjParamsToGeoTIFF(
    std::map<int, std::string>* keys, TShellAngularUnit const* angularUnit,
    TShellLinearUnit const* linearUnit) const {
    return ParameterFacts::GeoKeys(TFactsOf<Shell>::Value, *this, angularUnit, linearUnit, keys);
}

template <class Shell>
void TParameterisedMapProjection<Shell>::ReadParameters(TStringTree* tree) {
    static_assert(ParameterFacts::AreConsistent(TFactsOf<Shell>::Value));
    ParameterFacts::ReadTree(TFactsOf<Shell>::Value, this, tree);
}

template <class Shell>
void TParameterisedMapProjection<Shell>::ReadParameters(TKvXIniReader* xml) {
    if (!TParameterisedMapProjection::LoadFromXML(xml)) {
        ParameterFacts::ThrowXmlFailure(TFactsOf<Shell>::Value);
    }
}

template class TParameterisedMapProjection<TShellTransverseMercatorMapProjection>;
template class TParameterisedMapProjection<TShellObliqueMercatorMapProjection>;
template class TParameterisedMapProjection<TShellHotineObliqueMercatorMapProjection>;
template class TParameterisedMapProjection<TShellNZMGMapProjection>;
template class TParameterisedMapProjection<TShellAlbersEqualAreaConicMapProjection>;
template class TParameterisedMapProjection<TShellLambertConicConformal2SPMapProjection>;
template class TParameterisedMapProjection<TShellLambertConicConformal1SPMapProjection>;
template class TParameterisedMapProjection<TShellCassiniSoldnerMapProjection>;
template class TParameterisedMapProjection<TShellMercator2SPMapProjection>;
template class TParameterisedMapProjection<TShellMercator1SPMapProjection>;
template class TParameterisedMapProjection<TShellObliqueStereographicMapProjection>;
template class TParameterisedMapProjection<TShellPolarStereographicMapProjection>;
template class TParameterisedMapProjection<TShellQuasiStereographicMapProjection>;
template class TParameterisedMapProjection<TShellPolyconicMapProjection>;
template class TParameterisedMapProjection<TShellKrovakMapProjection>;
template class TParameterisedMapProjection<TShellHattMapProjection>;
template class TParameterisedMapProjection<TShellPolarStereographicBasicMapProjection>;
template class TParameterisedMapProjection<TShellPolarStereographicNaturalOriginMapProjection>;
template class TParameterisedMapProjection<TShellPolarStereographicFalseOriginMapProjection>;
template class TParameterisedMapProjection<TShellLambertAzimuthalEqualAreaMapProjection>;
template class TParameterisedMapProjection<TShellEquidistantConicMapProjection>;
template class TParameterisedMapProjection<TShellOrthographicMapProjection>;
template class TParameterisedMapProjection<TShellLambertConicConformal2SPBelgiumMapProjection>;
template class TParameterisedMapProjection<TShellSphericalMercatorMapProjection>;

TShellTransverseMercatorMapProjection::TShellTransverseMercatorMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellTransverseMercatorMapProjection::TShellTransverseMercatorMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellObliqueMercatorMapProjection::TShellObliqueMercatorMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellObliqueMercatorMapProjection::TShellObliqueMercatorMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellHotineObliqueMercatorMapProjection::TShellHotineObliqueMercatorMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellHotineObliqueMercatorMapProjection::TShellHotineObliqueMercatorMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellNZMGMapProjection::TShellNZMGMapProjection(TStringTree* tree) : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellNZMGMapProjection::TShellNZMGMapProjection(TKvXIniReader* xml) : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellAlbersEqualAreaConicMapProjection::TShellAlbersEqualAreaConicMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellAlbersEqualAreaConicMapProjection::TShellAlbersEqualAreaConicMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellLambertConicConformal2SPMapProjection::TShellLambertConicConformal2SPMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellLambertConicConformal2SPMapProjection::TShellLambertConicConformal2SPMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellLambertConicConformal1SPMapProjection::TShellLambertConicConformal1SPMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellLambertConicConformal1SPMapProjection::TShellLambertConicConformal1SPMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellCassiniSoldnerMapProjection::TShellCassiniSoldnerMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellCassiniSoldnerMapProjection::TShellCassiniSoldnerMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellMercator2SPMapProjection::TShellMercator2SPMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellMercator2SPMapProjection::TShellMercator2SPMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellMercator1SPMapProjection::TShellMercator1SPMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellMercator1SPMapProjection::TShellMercator1SPMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellObliqueStereographicMapProjection::TShellObliqueStereographicMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellObliqueStereographicMapProjection::TShellObliqueStereographicMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellPolarStereographicMapProjection::TShellPolarStereographicMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellPolarStereographicMapProjection::TShellPolarStereographicMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellQuasiStereographicMapProjection::TShellQuasiStereographicMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellPolyconicMapProjection::TShellPolyconicMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellKrovakMapProjection::TShellKrovakMapProjection(TStringTree* tree) : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellKrovakMapProjection::TShellKrovakMapProjection(TKvXIniReader* xml) : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellHattMapProjection::TShellHattMapProjection(TStringTree* tree) : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellPolarStereographicBasicMapProjection::TShellPolarStereographicBasicMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellPolarStereographicBasicMapProjection::TShellPolarStereographicBasicMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellPolarStereographicNaturalOriginMapProjection::TShellPolarStereographicNaturalOriginMapProjection(
    TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellPolarStereographicNaturalOriginMapProjection::TShellPolarStereographicNaturalOriginMapProjection(
    TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellPolarStereographicFalseOriginMapProjection::TShellPolarStereographicFalseOriginMapProjection(
    TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellPolarStereographicFalseOriginMapProjection::TShellPolarStereographicFalseOriginMapProjection(
    TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellLambertAzimuthalEqualAreaMapProjection::TShellLambertAzimuthalEqualAreaMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellLambertAzimuthalEqualAreaMapProjection::TShellLambertAzimuthalEqualAreaMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellEquidistantConicMapProjection::TShellEquidistantConicMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellEquidistantConicMapProjection::TShellEquidistantConicMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellOrthographicMapProjection::TShellOrthographicMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellOrthographicMapProjection::TShellOrthographicMapProjection(TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellLambertConicConformal2SPBelgiumMapProjection::TShellLambertConicConformal2SPBelgiumMapProjection(
    TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

TShellLambertConicConformal2SPBelgiumMapProjection::TShellLambertConicConformal2SPBelgiumMapProjection(
    TKvXIniReader* xml)
    : TParameterisedMapProjection(xml) {
    ReadParameters(xml);
}

TShellSphericalMercatorMapProjection::TShellSphericalMercatorMapProjection(TStringTree* tree)
    : TParameterisedMapProjection(tree) {
    ReadParameters(tree);
}

} // namespace KvRefSystem
