#pragma once

#include "core/projections/AlbersEqualAreaConic.h"
#include "core/projections/EquidistantConic.h"
#include "core/projections/Krovak.h"
#include "core/projections/LambertConicConformal.h"
#include "core/projections/Polyconic.h"
#include "shell/projections/ParameterFactsDetail.h"
#include "shell/projections/ParameterTextDetail.h"
#include "shell/projections/ParameterisedProjections.h"

#pragma GCC visibility push(hidden)

/**
 * The facts of the shells on cones.
 *
 * Kept: "LongitudeOfNatiralOrigin" is spelled so in every description that exists.
 */
namespace KvRefSystem::ParameterFacts {

template <>
struct TFactsOf<TShellAlbersEqualAreaConicMapProjection> {
    using Shell = TShellAlbersEqualAreaConicMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptAlbersEqualAreaConic,
        .ClassName = "TShellAlbersEqualAreaConicMapProjection",
        .Fields = {{
            {Tag::LongitudeOfOrigin, Member<&Shell::LongitudeOfOrigin>},
            {Tag::LatitudeOfOrigin, Member<&Shell::LatitudeOfOrigin>},
            {Tag::FirstStandardParallel, Member<&Shell::FirstStandardParallel>},
            {Tag::SecondStandardParallel, Member<&Shell::SecondStandardParallel>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::FirstStandardParallel, Tag::SecondStandardParallel, Tag::LatitudeOfOrigin,
                   Tag::LongitudeOfOrigin, Tag::FalseEasting, Tag::FalseNorthing},
        .Build =
            BuildCore<TAlbersEqualAreaConicMapProjection, TAlbersEqualAreaConicMapProjectionParameters, 6>,
        .XmlRead = {{
            // Kept: by the keys of a false origin, unlike the tree and GeoTIFF.
            {"LongitudeOfFalseOrigin", Tag::LongitudeOfOrigin},
            {"LatitudeOfFalseOrigin", Tag::LatitudeOfOrigin},
            {"LatitudeOfFirstStandardParallel", Tag::FirstStandardParallel},
            {"LatitudeOfSecondStandardParallel", Tag::SecondStandardParallel},
            {"EastingAtFalseOrigin", Tag::FalseEasting},
            {"NorthingAtFalseOrigin", Tag::FalseNorthing},
        }},
        .XmlWritten = {{
            // Kept: the latitude is written first and read second.
            {"LatitudeOfFalseOrigin", Tag::LatitudeOfOrigin},
            {"LongitudeOfFalseOrigin", Tag::LongitudeOfOrigin},
            {"LatitudeOfFirstStandardParallel", Tag::FirstStandardParallel},
            {"LatitudeOfSecondStandardParallel", Tag::SecondStandardParallel},
            {"EastingAtFalseOrigin", Tag::FalseEasting},
            {"NorthingAtFalseOrigin", Tag::FalseNorthing},
        }},
        .Mif = {{
            {Tag::LongitudeOfOrigin, ShortDigits},
            {Tag::LatitudeOfOrigin, ShortDigits},
            {Tag::FirstStandardParallel, ShortDigits},
            {Tag::SecondStandardParallel, ShortDigits},
            {Tag::FalseEasting},
            {Tag::FalseNorthing},
        }},
        .MifRounding = ParameterText::TMifRounding::Eight,
        .Geo = {{
            {GeoKey::NaturalOriginLatitude, Tag::LatitudeOfOrigin},
            {GeoKey::NaturalOriginLongitude, Tag::LongitudeOfOrigin},
            {GeoKey::StandardParallel1, Tag::FirstStandardParallel},
            {GeoKey::StandardParallel2, Tag::SecondStandardParallel},
            {GeoKey::FalseEasting, Tag::FalseEasting},
            {GeoKey::FalseNorthing, Tag::FalseNorthing},
        }},
    };
};

/** What the two Lambert cones by two parallels have in common. */
inline constexpr TRows<TNamed> LambertXmlRead = {{
    {"LatitudeOfFirstStandardParallel", Tag::FirstStandardParallel},
    {"LatitudeOfSecondStandardParallel", Tag::SecondStandardParallel},
    {"LatitudeOfFalseOrigin", Tag::LatitudeOfFalseOrigin},
    {"LongitudeOfFalseOrigin", Tag::LongitudeOfFalseOrigin},
    {"EastingAtFalseOrigin", Tag::EastingAtFalseOrigin},
    {"NorthingAtFalseOrigin", Tag::NorthingAtFalseOrigin},
}};

/** Kept: the origin is written first and read after the parallels. */
inline constexpr TRows<TNamed> LambertXmlWritten = {{
    {"LatitudeOfFalseOrigin", Tag::LatitudeOfFalseOrigin},
    {"LongitudeOfFalseOrigin", Tag::LongitudeOfFalseOrigin},
    {"LatitudeOfFirstStandardParallel", Tag::FirstStandardParallel},
    {"LatitudeOfSecondStandardParallel", Tag::SecondStandardParallel},
    {"EastingAtFalseOrigin", Tag::EastingAtFalseOrigin},
    {"NorthingAtFalseOrigin", Tag::NorthingAtFalseOrigin},
}};

/** Kept: the lengths at the false origin go under the keys of a plain false easting and northing. */
inline constexpr TRows<TGeoNumber> LambertGeo = {{
    {GeoKey::FalseOriginLatitude, Tag::LatitudeOfFalseOrigin},
    {GeoKey::FalseOriginLongitude, Tag::LongitudeOfFalseOrigin},
    {GeoKey::StandardParallel1, Tag::FirstStandardParallel},
    {GeoKey::StandardParallel2, Tag::SecondStandardParallel},
    {GeoKey::FalseEasting, Tag::EastingAtFalseOrigin},
    {GeoKey::FalseNorthing, Tag::NorthingAtFalseOrigin},
}};

template <>
struct TFactsOf<TShellLambertConicConformal2SPMapProjection> {
    using Shell = TShellLambertConicConformal2SPMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptLambertConicConformal2SP,
        .ClassName = "TShellLambertConicConformal2SPMapProjection",
        .Fields = {{
            {Tag::FirstStandardParallel, Member<&Shell::FirstStandardParallel>},
            {Tag::SecondStandardParallel, Member<&Shell::SecondStandardParallel>},
            {Tag::LatitudeOfFalseOrigin, Member<&Shell::LatitudeOfFalseOrigin>},
            {Tag::LongitudeOfFalseOrigin, Member<&Shell::LongitudeOfFalseOrigin>},
            {Tag::EastingAtFalseOrigin, Member<&Shell::EastingAtFalseOrigin>},
            {Tag::NorthingAtFalseOrigin, Member<&Shell::NorthingAtFalseOrigin>},
        }},
        .Record = {Tag::FirstStandardParallel, Tag::SecondStandardParallel, Tag::LatitudeOfFalseOrigin,
                   Tag::LongitudeOfFalseOrigin, Tag::EastingAtFalseOrigin, Tag::NorthingAtFalseOrigin},
        .Build = BuildCore<TLambertConicConformal2SPMapProjection,
                           TLambertConicConformal2SPMapProjectionParameters, 6>,
        .XmlRead = LambertXmlRead,
        .XmlWritten = LambertXmlWritten,
        .Mif = {{
            {Tag::LongitudeOfFalseOrigin, 16},
            {Tag::LatitudeOfFalseOrigin, 16},
            {Tag::FirstStandardParallel, 16},
            {Tag::SecondStandardParallel, 16},
            {Tag::EastingAtFalseOrigin},
            {Tag::NorthingAtFalseOrigin},
        }},
        .MifRounding = ParameterText::TMifRounding::Ten,
        .Geo = LambertGeo,
    };
};

template <>
struct TFactsOf<TShellLambertConicConformal2SPBelgiumMapProjection> {
    using Shell = TShellLambertConicConformal2SPBelgiumMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptLambertConicConformal2SPBelgium,
        .ClassName = "TShellLambertConicConformal2SPBelgiumMapProjection",
        .Fields = {{
            {Tag::FirstStandardParallel, Member<&Shell::FirstStandardParallel>},
            {Tag::SecondStandardParallel, Member<&Shell::SecondStandardParallel>},
            {Tag::LatitudeOfFalseOrigin, Member<&Shell::LatitudeOfFalseOrigin>},
            {Tag::LongitudeOfFalseOrigin, Member<&Shell::LongitudeOfFalseOrigin>},
            {Tag::EastingAtFalseOrigin, Member<&Shell::EastingAtFalseOrigin>},
            {Tag::NorthingAtFalseOrigin, Member<&Shell::NorthingAtFalseOrigin>},
        }},
        .Record = {Tag::FirstStandardParallel, Tag::SecondStandardParallel, Tag::LatitudeOfFalseOrigin,
                   Tag::LongitudeOfFalseOrigin, Tag::EastingAtFalseOrigin, Tag::NorthingAtFalseOrigin},
        .Build = BuildCore<TLambertConicConformal2SPBelgiumMapProjection,
                           TLambertConicConformal2SPMapProjectionParameters, 6>,
        .XmlRead = LambertXmlRead,
        .XmlWritten = LambertXmlWritten,
        .Mif = {{
            {Tag::LongitudeOfFalseOrigin, ShortDigits},
            {Tag::LatitudeOfFalseOrigin, ShortDigits},
            {Tag::FirstStandardParallel, ShortDigits},
            {Tag::SecondStandardParallel, ShortDigits},
            {Tag::EastingAtFalseOrigin},
            {Tag::NorthingAtFalseOrigin},
        }},
        .MifRounding = ParameterText::TMifRounding::Eight,
        .Geo = LambertGeo,
    };
};

template <>
struct TFactsOf<TShellLambertConicConformal1SPMapProjection> {
    using Shell = TShellLambertConicConformal1SPMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptLambertConicConformal1SP,
        .ClassName = "TShellLambertConicConformal1SPMapProjection",
        .Fields = {{
            {Tag::LatitudeOfOrigin, Member<&Shell::LatitudeOfOrigin>},
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::ScaleFactor, Member<&Shell::ScaleFactor>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::LatitudeOfOrigin, Tag::LongitudeOfNaturalOrigin, Tag::ScaleFactor, Tag::FalseEasting,
                   Tag::FalseNorthing},
        .Build = BuildCore<TLambertConicConformal1SPMapProjection,
                           TLambertConicConformal1SPMapProjectionParameters, 5>,
        .XmlRead = {{
            {"LatitudeOfNaturalOrigin", Tag::LatitudeOfOrigin},
            {"LongitudeOfNatiralOrigin", Tag::LongitudeOfNaturalOrigin},
            {"ScaleFactorAtNaturalOrigin", Tag::ScaleFactor},
            {"FalseEasting", Tag::FalseEasting},
            {"FalseNorthing", Tag::FalseNorthing},
        }},
        .Mif = {{
            // Kept: the latitude of origin three times, the second and third as the parallels.
            {Tag::LongitudeOfNaturalOrigin, ShortDigits},
            {Tag::LatitudeOfOrigin, ShortDigits},
            {Tag::LatitudeOfOrigin, ShortDigits},
            {Tag::LatitudeOfOrigin, ShortDigits},
            {Tag::ScaleFactor, ShortDigits},
            {Tag::FalseEasting},
            {Tag::FalseNorthing},
        }},
        .MifRounding = ParameterText::TMifRounding::Eight,
        .Geo = {{
            {GeoKey::NaturalOriginLatitude, Tag::LatitudeOfOrigin},
            {GeoKey::NaturalOriginLongitude, Tag::LongitudeOfNaturalOrigin},
            {GeoKey::ScaleAtNaturalOrigin, Tag::ScaleFactor},
            {GeoKey::FalseEasting, Tag::FalseEasting},
            {GeoKey::FalseNorthing, Tag::FalseNorthing},
        }},
        .GeoScaleDigits = ShortDigits,
    };
};

template <>
struct TFactsOf<TShellPolyconicMapProjection> {
    using Shell = TShellPolyconicMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptPolyconic,
        .ClassName = "TShellPolyconicMapProjection",
        .Fields = {{
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::LatitudeOfOrigin, Member<&Shell::LatitudeOfOrigin>},
            {Tag::ScaleFactor, Member<&Shell::ScaleFactor>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::LongitudeOfNaturalOrigin, Tag::LatitudeOfOrigin, Tag::ScaleFactor, Tag::FalseEasting,
                   Tag::FalseNorthing},
        .Build = BuildCore<TPolyconicMapProjection, TPolyconicMapProjectionParameters, 5>,
        .Xml = TXmlForm::Base,
        .WktName = "Polyconic",
        .Wkt = {{
            // Kept: without the scale factor.
            {"latitude_of_origin", Tag::LatitudeOfOrigin},
            {"central_meridian", Tag::LongitudeOfNaturalOrigin},
            {"false_easting", Tag::FalseEasting},
            {"false_northing", Tag::FalseNorthing},
        }},
        .Mif = {{
            {Tag::LongitudeOfNaturalOrigin, 16},
            {Tag::LatitudeOfOrigin, 16},
            {Tag::ScaleFactor, 16},
            {Tag::FalseEasting},
            {Tag::FalseNorthing},
        }},
        .MifRounding = ParameterText::TMifRounding::Ten,
        .Geo = {{
            {GeoKey::NaturalOriginLatitude, Tag::LatitudeOfOrigin},
            {GeoKey::NaturalOriginLongitude, Tag::LongitudeOfNaturalOrigin},
            {GeoKey::ScaleAtNaturalOrigin, Tag::ScaleFactor},
            {GeoKey::FalseEasting, Tag::FalseEasting},
            {GeoKey::FalseNorthing, Tag::FalseNorthing},
        }},
        .GeoScaleDigits = 10,
    };
};

template <>
struct TFactsOf<TShellKrovakMapProjection> {
    using Shell = TShellKrovakMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptKrovak,
        .ClassName = "TShellKrovakMapProjection",
        .Fields = {{
            {Tag::LatitudeOfProjectionCentre, Member<&Shell::LatitudeOfProjectionCentre>},
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::AzimuthOfInitialLine, Member<&Shell::AzimuthOfInitialLine>},
            {Tag::LatitudeOfPseudoStandardParallel, Member<&Shell::LatitudeOfPseudoStandardParallel>},
            {Tag::ScaleFactorOnPseudoStandardParallel, Member<&Shell::ScaleFactorOnPseudoStandardParallel>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::LatitudeOfProjectionCentre, Tag::LongitudeOfNaturalOrigin, Tag::AzimuthOfInitialLine,
                   Tag::LatitudeOfPseudoStandardParallel, Tag::ScaleFactorOnPseudoStandardParallel,
                   Tag::FalseEasting, Tag::FalseNorthing},
        .Build = BuildCore<TKrovakMapProjection, TKrovakMapProjectionParameters, 7>,
        .XmlRead = {{
            // Kept: angles and scale are read by other keys than they are written, and come back empty.
            {"latitude_of_projection_centre", Tag::LatitudeOfProjectionCentre},
            {"longitude_of_origin", Tag::LongitudeOfNaturalOrigin},
            {"azimuth_of_initial_line", Tag::AzimuthOfInitialLine},
            {"latitude_of_pseudo_standard_parallel", Tag::LatitudeOfPseudoStandardParallel},
            {"scale_factor_on_pseudo_standard_parallel", Tag::ScaleFactorOnPseudoStandardParallel},
            {"FalseEasting", Tag::FalseEasting},
            {"FalseNorthing", Tag::FalseNorthing},
        }},
        .XmlWritten = {{
            {"LatitudeOfProjectionCentre", Tag::LatitudeOfProjectionCentre},
            {"LongitudeOfOrigin", Tag::LongitudeOfNaturalOrigin},
            {"AzimuthOfInitialLine", Tag::AzimuthOfInitialLine},
            {"LatitudeOfPseudoStandardParallel", Tag::LatitudeOfPseudoStandardParallel},
            {"ScaleFactorOnPseudoStandardParallel", Tag::ScaleFactorOnPseudoStandardParallel},
            {"FalseEasting", Tag::FalseEasting},
            {"FalseNorthing", Tag::FalseNorthing},
        }},
    };
};

template <>
struct TFactsOf<TShellEquidistantConicMapProjection> {
    using Shell = TShellEquidistantConicMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptEquidistantConic,
        .ClassName = "TShellEquidistantConicMapProjection",
        .Fields = {{
            {Tag::FirstStandardParallel, Member<&Shell::FirstStandardParallel>},
            {Tag::SecondStandardParallel, Member<&Shell::SecondStandardParallel>},
            {Tag::LatitudeOfFalseOrigin, Member<&Shell::LatitudeOfFalseOrigin>},
            {Tag::LongitudeOfFalseOrigin, Member<&Shell::LongitudeOfFalseOrigin>},
            {Tag::EastingAtFalseOrigin, Member<&Shell::EastingAtFalseOrigin>},
            {Tag::NorthingAtFalseOrigin, Member<&Shell::NorthingAtFalseOrigin>},
        }},
        .Record = {Tag::FirstStandardParallel, Tag::SecondStandardParallel, Tag::LatitudeOfFalseOrigin,
                   Tag::LongitudeOfFalseOrigin, Tag::EastingAtFalseOrigin, Tag::NorthingAtFalseOrigin},
        .Build = BuildCore<TEquidistantConicMapProjection, TEquidistantConicMapProjectionParameters, 6>,
        .XmlRead = {{
            {"LatitudeOfFirstStandardParallel", Tag::FirstStandardParallel},
            {"LatitudeOfSecondStandardParallel", Tag::SecondStandardParallel},
            {"LatitudeOfOrigin", Tag::LatitudeOfFalseOrigin},
            // Kept: one key is read and another written, so the longitude comes back empty.
            {"LongitudeOOrigin", Tag::LongitudeOfFalseOrigin},
            {"FalseEasting", Tag::EastingAtFalseOrigin},
            {"FalseNorthing", Tag::NorthingAtFalseOrigin},
        }},
        .XmlWritten = {{
            {"LatitudeOfOrigin", Tag::LatitudeOfFalseOrigin},
            {"LongitudeOfOrigin", Tag::LongitudeOfFalseOrigin},
            {"LatitudeOfFirstStandardParallel", Tag::FirstStandardParallel},
            {"LatitudeOfSecondStandardParallel", Tag::SecondStandardParallel},
            {"FalseEasting", Tag::EastingAtFalseOrigin},
            {"FalseNorthing", Tag::NorthingAtFalseOrigin},
        }},
    };
};

} // namespace KvRefSystem::ParameterFacts

#pragma GCC visibility pop
