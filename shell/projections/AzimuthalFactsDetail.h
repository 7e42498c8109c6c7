#pragma once

#include "core/projections/Hatt.h"
#include "core/projections/LambertAzimuthalEqualArea.h"
#include "core/projections/ObliqueStereographic.h"
#include "core/projections/Orthographic.h"
#include "core/projections/PolarStereographic.h"
#include "core/projections/QuasiStereographic.h"
#include "shell/projections/ParameterFactsDetail.h"
#include "shell/projections/ParameterTextDetail.h"
#include "shell/projections/ParameterisedProjections.h"

#pragma GCC visibility push(hidden)

/**
 * The facts of the shells on planes.
 *
 * Kept: "LongitudeOfNatiralOrigin" is spelled so in every description that exists.
 */
namespace KvRefSystem::ParameterFacts {

template <>
struct TFactsOf<TShellObliqueStereographicMapProjection> {
    using Shell = TShellObliqueStereographicMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptObliqueStereographic,
        .ClassName = "TShellObliqueStereographicMapProjection",
        .Fields = {{
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::LatitudeOfOrigin, Member<&Shell::LatitudeOfOrigin>},
            {Tag::ScaleFactorAtNaturalOrigin, Member<&Shell::ScaleFactorAtNaturalOrigin>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::LongitudeOfNaturalOrigin, Tag::LatitudeOfOrigin, Tag::ScaleFactorAtNaturalOrigin,
                   Tag::FalseEasting, Tag::FalseNorthing},
        .Build =
            BuildCore<TObliqueStereographicMapProjection, TObliqueStereographicMapProjectionParameters, 5>,
        .XmlRead = {{
            {"LatitudeOfNaturalOrigin", Tag::LatitudeOfOrigin},
            {"LongitudeOfNatiralOrigin", Tag::LongitudeOfNaturalOrigin},
            {"ScaleFactorAtNaturalOrigin", Tag::ScaleFactorAtNaturalOrigin},
            {"FalseEasting", Tag::FalseEasting},
            {"FalseNorthing", Tag::FalseNorthing},
        }},
        .Mif = {{
            {Tag::LongitudeOfNaturalOrigin, ShortDigits},
            {Tag::LatitudeOfOrigin, ShortDigits},
            {Tag::ScaleFactorAtNaturalOrigin, ShortDigits},
            {Tag::FalseEasting},
            {Tag::FalseNorthing},
        }},
        .MifRounding = ParameterText::TMifRounding::Eight,
        .Geo = {{
            {GeoKey::NaturalOriginLatitude, Tag::LatitudeOfOrigin},
            {GeoKey::NaturalOriginLongitude, Tag::LongitudeOfNaturalOrigin},
            {GeoKey::ScaleAtNaturalOrigin, Tag::ScaleFactorAtNaturalOrigin},
            {GeoKey::FalseEasting, Tag::FalseEasting},
            {GeoKey::FalseNorthing, Tag::FalseNorthing},
        }},
        .GeoScaleDigits = ShortDigits,
    };
};

template <>
struct TFactsOf<TShellPolarStereographicMapProjection> {
    using Shell = TShellPolarStereographicMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptPolarStereographic,
        .ClassName = "TShellPolarStereographicMapProjection",
        .Fields = {{
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {.Key = Tag::LatitudeOfOrigin, .Text = Member<&Shell::LatitudeOfOrigin>, .InTree = false},
            {Tag::ScaleFactorAtNaturalOrigin, Member<&Shell::ScaleFactorAtNaturalOrigin>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        // Kept: always on the north pole, whatever latitude XML has brought.
        .Record = {Tag::LongitudeOfNaturalOrigin, NorthPole, Tag::ScaleFactorAtNaturalOrigin,
                   Tag::FalseEasting, Tag::FalseNorthing},
        .Build = BuildCore<TPolarStereographicMapProjection, TPolarStereographicMapProjectionParameters, 5>,
        .XmlRead = {{
            {"LongitudeOfNatiralOrigin", Tag::LongitudeOfNaturalOrigin},
            {"LatitudeOfNaturalOrigin", Tag::LatitudeOfOrigin},
            {"ScaleFactorAtNaturalOrigin", Tag::ScaleFactorAtNaturalOrigin},
            {"FalseEasting", Tag::FalseEasting},
            {"FalseNorthing", Tag::FalseNorthing},
        }},
        .Mif = {{
            {Tag::LongitudeOfNaturalOrigin, ShortDigits},
            {NorthPole, ShortDigits},
            {Tag::ScaleFactorAtNaturalOrigin, ShortDigits},
            {Tag::FalseEasting},
            {Tag::FalseNorthing},
        }},
        .MifRounding = ParameterText::TMifRounding::Eight,
        .Geo = {{
            {GeoKey::NaturalOriginLatitude, Tag::LatitudeOfOrigin},
            {GeoKey::StraightVerticalPoleLongitude, Tag::LongitudeOfNaturalOrigin},
            {GeoKey::ScaleAtNaturalOrigin, Tag::ScaleFactorAtNaturalOrigin},
            {GeoKey::FalseEasting, Tag::FalseEasting},
            {GeoKey::FalseNorthing, Tag::FalseNorthing},
        }},
        .GeoScaleDigits = ShortDigits,
    };
};

template <>
struct TFactsOf<TShellQuasiStereographicMapProjection> {
    using Shell = TShellQuasiStereographicMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptQuasiStereographic,
        .ClassName = "TShellQuasiStereographicMapProjection",
        .Fields = {{
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::LatitudeOfOrigin, Member<&Shell::LatitudeOfOrigin>},
            {Tag::ScaleFactorAtNaturalOrigin, Member<&Shell::ScaleFactorAtNaturalOrigin>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::LongitudeOfNaturalOrigin, Tag::LatitudeOfOrigin, Tag::ScaleFactorAtNaturalOrigin,
                   Tag::FalseEasting, Tag::FalseNorthing},
        .Build = BuildCore<TQuasiStereographicMapProjection, TQuasiStereographicMapProjectionParameters, 5>,
        .Xml = TXmlForm::Base,
        .Mif = {{
            {Tag::LongitudeOfNaturalOrigin, 10},
            {Tag::LatitudeOfOrigin, 10},
            {Tag::ScaleFactorAtNaturalOrigin, 16},
            {Tag::FalseEasting},
            {Tag::FalseNorthing},
        }},
        .MifRounding = ParameterText::TMifRounding::Eight,
        .Geo = {{
            {GeoKey::NaturalOriginLatitude, Tag::LatitudeOfOrigin},
            {GeoKey::NaturalOriginLongitude, Tag::LongitudeOfNaturalOrigin},
            {GeoKey::ScaleAtNaturalOrigin, Tag::ScaleFactorAtNaturalOrigin},
            {GeoKey::FalseEasting, Tag::FalseEasting},
            {GeoKey::FalseNorthing, Tag::FalseNorthing},
        }},
        .GeoScaleDigits = 12,
    };
};

template <>
struct TFactsOf<TShellHattMapProjection> {
    using Shell = TShellHattMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptHatt,
        .ClassName = "TShellHattMapProjection",
        .Fields = {{
            {Tag::LatitudeOfOrigin, Member<&Shell::LatitudeOfOrigin>},
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
        }},
        .Record = {Tag::LatitudeOfOrigin, Tag::LongitudeOfNaturalOrigin},
        .Build = BuildCore<THattMapProjection, THattMapProjectionParameters, 2>,
        .Xml = TXmlForm::Base,
    };
};

/** What the two polar shells by a scale factor have in common. */
inline constexpr TRows<TNamed> PolarXml = {{
    {"LongitudeOfNatiralOrigin", Tag::LongitudeOfNaturalOrigin},
    {"Pole", Tag::Pole},
    {"ScaleFactorAtNaturalOrigin", Tag::ScaleFactorAtNaturalOrigin},
    {"FalseEasting", Tag::FalseEasting},
    {"FalseNorthing", Tag::FalseNorthing},
}};

inline constexpr TRows<TMifNumber> PolarMif = {{
    {Tag::LongitudeOfNaturalOrigin, ShortDigits},
    {Tag::Pole, ShortDigits},
    {Tag::ScaleFactorAtNaturalOrigin, ShortDigits},
    {Tag::FalseEasting},
    {Tag::FalseNorthing},
}};

inline constexpr TRows<TGeoNumber> PolarGeo = {{
    {GeoKey::NaturalOriginLatitude, Tag::Pole},
    {GeoKey::StraightVerticalPoleLongitude, Tag::LongitudeOfNaturalOrigin},
    {GeoKey::ScaleAtNaturalOrigin, Tag::ScaleFactorAtNaturalOrigin},
    {GeoKey::FalseEasting, Tag::FalseEasting},
    {GeoKey::FalseNorthing, Tag::FalseNorthing},
}};

template <>
struct TFactsOf<TShellPolarStereographicBasicMapProjection> {
    using Shell = TShellPolarStereographicBasicMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptPolarStereographicBasic,
        .ClassName = "TShellPolarStereographicBasicMapProjection",
        .Fields = {{
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::Pole},
            {Tag::ScaleFactorAtNaturalOrigin, Member<&Shell::ScaleFactorAtNaturalOrigin>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Pole = Member<&Shell::Pole>,
        .Record = {Tag::Pole, Tag::LongitudeOfNaturalOrigin, Tag::ScaleFactorAtNaturalOrigin,
                   Tag::FalseEasting, Tag::FalseNorthing},
        .Build = BuildPolarCore<TPolarStereographicBasicMapProjection,
                                TPolarStereographicBasicMapProjectionParameters, 4>,
        .XmlRead = PolarXml,
        .Mif = PolarMif,
        .MifRounding = ParameterText::TMifRounding::Eight,
        .Geo = PolarGeo,
        .GeoScaleDigits = ShortDigits,
    };
};

template <>
struct TFactsOf<TShellPolarStereographicNaturalOriginMapProjection> {
    using Shell = TShellPolarStereographicNaturalOriginMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptPolarStereographicNaturalOrigin,
        .ClassName = "TShellPolarStereographicNaturalOriginMapProjection",
        .Fields = {{
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::Pole},
            {Tag::ScaleFactorAtNaturalOrigin, Member<&Shell::ScaleFactorAtNaturalOrigin>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Pole = Member<&Shell::Pole>,
        .Record = {Tag::Pole, Tag::LongitudeOfNaturalOrigin, Tag::ScaleFactorAtNaturalOrigin,
                   Tag::FalseEasting, Tag::FalseNorthing},
        // Kept: the core is that of the basic variant; no shell reaches the core of its own name.
        .Build = BuildPolarCore<TPolarStereographicBasicMapProjection,
                                TPolarStereographicBasicMapProjectionParameters, 4>,
        .XmlRead = PolarXml,
        .Mif = PolarMif,
        .MifRounding = ParameterText::TMifRounding::Eight,
        .Geo = PolarGeo,
        .GeoScaleDigits = ShortDigits,
    };
};

template <>
struct TFactsOf<TShellPolarStereographicFalseOriginMapProjection> {
    using Shell = TShellPolarStereographicFalseOriginMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptPolarStereographicFalseOrigin,
        .ClassName = "TShellPolarStereographicFalseOriginMapProjection",
        .Fields = {{
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::Pole},
            {Tag::FirstStandardParallel, Member<&Shell::FirstStandardParallel>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Pole = Member<&Shell::Pole>,
        .Record = {Tag::Pole, Tag::FirstStandardParallel, Tag::LongitudeOfNaturalOrigin, Tag::FalseEasting,
                   Tag::FalseNorthing},
        .Build = BuildPolarCore<TPolarStereographicFalseOriginMapProjection,
                                TPolarStereographicFalseOriginMapProjectionParameters, 4>,
        .Xml = TXmlForm::Refused,
    };
};

template <>
struct TFactsOf<TShellLambertAzimuthalEqualAreaMapProjection> {
    using Shell = TShellLambertAzimuthalEqualAreaMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptLambertAzimuthalEqualArea,
        .ClassName = "TShellLambertAzimuthalEqualAreaMapProjection",
        .Fields = {{
            {Tag::LatitudeOfOrigin, Member<&Shell::LatitudeOfOrigin>},
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::LatitudeOfOrigin, Tag::LongitudeOfNaturalOrigin, Tag::FalseEasting,
                   Tag::FalseNorthing},
        .Build = BuildCore<TLambertAzimuthalEqualAreaMapProjection,
                           TLambertAzimuthalEqualAreaMapProjectionParameters, 4>,
        .XmlRead = {{
            {"LatitudeOfNaturalOrigin", Tag::LatitudeOfOrigin},
            {"LongitudeOfNatiralOrigin", Tag::LongitudeOfNaturalOrigin},
            {"FalseEasting", Tag::FalseEasting},
            {"FalseNorthing", Tag::FalseNorthing},
        }},
        .Geo = {{
            {GeoKey::NaturalOriginLatitude, Tag::LatitudeOfOrigin},
            {GeoKey::NaturalOriginLongitude, Tag::LongitudeOfNaturalOrigin},
            {GeoKey::FalseEasting, Tag::FalseEasting},
            {GeoKey::FalseNorthing, Tag::FalseNorthing},
        }},
    };
};

template <>
struct TFactsOf<TShellOrthographicMapProjection> {
    using Shell = TShellOrthographicMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptOrthographic,
        .ClassName = "TShellOrthographicMapProjection",
        .Fields = {{
            {Tag::LatitudeOfOrigin, Member<&Shell::LatitudeOfOrigin>},
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::LatitudeOfOrigin, Tag::LongitudeOfNaturalOrigin, Tag::FalseEasting,
                   Tag::FalseNorthing},
        .Build = BuildCore<TOrthographicMapProjection, TOrthographicMapProjectionParameters, 4>,
        .XmlRead = {{
            {"LatitudeOfNaturalOrigin", Tag::LatitudeOfOrigin},
            {"LongitudeOfNatiralOrigin", Tag::LongitudeOfNaturalOrigin},
            {"FalseEasting", Tag::FalseEasting},
            {"FalseNorthing", Tag::FalseNorthing},
        }},
        .Geo = {{
            {GeoKey::NaturalOriginLatitude, Tag::LatitudeOfOrigin},
            {GeoKey::NaturalOriginLongitude, Tag::LongitudeOfNaturalOrigin},
            {GeoKey::FalseEasting, Tag::FalseEasting},
            {GeoKey::FalseNorthing, Tag::FalseNorthing},
        }},
    };
};

} // namespace KvRefSystem::ParameterFacts

#pragma GCC visibility pop
