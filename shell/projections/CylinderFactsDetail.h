#pragma once

#include "core/projections/CassiniSoldner.h"
#include "core/projections/Mercator.h"
#include "core/projections/NZMG.h"
#include "core/projections/ObliqueMercator.h"
#include "core/projections/SphericalMercator.h"
#include "core/projections/TransverseMercator.h"
#include "shell/projections/ParameterFactsDetail.h"
#include "shell/projections/ParameterTextDetail.h"
#include "shell/projections/ParameterisedProjections.h"

#pragma GCC visibility push(hidden)

/**
 * The facts of the shells on cylinders, straight, transverse and oblique, and of the New Zealand grid.
 *
 * Kept: "LongitudeOfNatiralOrigin" is spelled so in every description that exists.
 */
namespace KvRefSystem::ParameterFacts {

template <>
struct TFactsOf<TShellTransverseMercatorMapProjection> {
    using Shell = TShellTransverseMercatorMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptTransverseMercator,
        .ClassName = "TShellTransverseMercatorMapProjection",
        .Fields = {{
            {Tag::LongitudeOfOrigin, Member<&Shell::LongitudeOfOrigin>},
            {Tag::LatitudeOfOrigin, Member<&Shell::LatitudeOfOrigin>},
            {Tag::ScaleFactorAtOrigin, Member<&Shell::ScaleFactorAtOrigin>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::LongitudeOfOrigin, Tag::LatitudeOfOrigin, Tag::ScaleFactorAtOrigin, Tag::FalseEasting,
                   Tag::FalseNorthing},
        .Build = BuildCore<TTransverseMercatorMapProjection, TTransverseMercatorMapProjectionParameters, 5>,
        .XmlRead = {{
            {"LongitudeOfNatiralOrigin", Tag::LongitudeOfOrigin},
            {"LatitudeOfNaturalOrigin", Tag::LatitudeOfOrigin},
            {"ScaleFactorAtNaturalOrigin", Tag::ScaleFactorAtOrigin},
            {"FalseEasting", Tag::FalseEasting},
            {"FalseNorthing", Tag::FalseNorthing},
        }},
        .WktName = "Transverse_Mercator",
        .Wkt = {{
            {"latitude_of_origin", Tag::LatitudeOfOrigin},
            {"central_meridian", Tag::LongitudeOfOrigin},
            {"scale_factor", Tag::ScaleFactorAtOrigin},
            {"false_easting", Tag::FalseEasting},
            {"false_northing", Tag::FalseNorthing},
        }},
        .Mif = {{
            {Tag::LongitudeOfOrigin, 16},
            {Tag::LatitudeOfOrigin, 16},
            {Tag::ScaleFactorAtOrigin, 16},
            {Tag::FalseEasting},
            {Tag::FalseNorthing},
        }},
        .MifRounding = ParameterText::TMifRounding::Ten,
        .Geo = {{
            // Kept: the longitude under the centre's key; readers of these files take it from there.
            {GeoKey::NaturalOriginLatitude, Tag::LatitudeOfOrigin},
            {GeoKey::CentreLongitude, Tag::LongitudeOfOrigin},
            {GeoKey::ScaleAtNaturalOrigin, Tag::ScaleFactorAtOrigin},
            {GeoKey::FalseEasting, Tag::FalseEasting},
            {GeoKey::FalseNorthing, Tag::FalseNorthing},
        }},
        .GeoScaleDigits = 10,
    };
};

template <>
struct TFactsOf<TShellObliqueMercatorMapProjection> {
    using Shell = TShellObliqueMercatorMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptObliqueMercator,
        .ClassName = "TShellObliqueMercatorMapProjection",
        .Fields = {{
            {Tag::LongitudeOfProjectionCentre, Member<&Shell::LongitudeOfProjectionCentre>},
            {Tag::LatitudeOfProjectionCentre, Member<&Shell::LatitudeOfProjectionCentre>},
            {Tag::AzimuthOfInitialLine, Member<&Shell::AzimuthOfInitialLine>},
            {Tag::AngleFromRectifiedToSkewGrid, Member<&Shell::AngleFromRectifiedToSkewGrid>},
            {Tag::ScaleFactor, Member<&Shell::ScaleFactor>},
            {Tag::EastingAtProjectionCentre, Member<&Shell::EastingAtProjectionCentre>},
            {Tag::NorthingAtProjectionCentre, Member<&Shell::NorthingAtProjectionCentre>},
        }},
        .Record = {Tag::LatitudeOfProjectionCentre, Tag::LongitudeOfProjectionCentre,
                   Tag::AzimuthOfInitialLine, Tag::AngleFromRectifiedToSkewGrid, Tag::ScaleFactor,
                   Tag::EastingAtProjectionCentre, Tag::NorthingAtProjectionCentre},
        .Build = BuildCore<TObliqueMercatorMapProjection, TObliqueMercatorMapProjectionParameters, 7>,
        .XmlRead = {{
            {"LongitudeOfProjectionCentre", Tag::LongitudeOfProjectionCentre},
            {"LatitudeOfProjectionCentre", Tag::LatitudeOfProjectionCentre},
            {"AzimuthOfInitialLine", Tag::AzimuthOfInitialLine},
            {"AngleFromRectifiedToSkewGrid", Tag::AngleFromRectifiedToSkewGrid},
            {"ScaleFactorOnInitialLine", Tag::ScaleFactor},
            {"EastingAtProjectionCentre", Tag::EastingAtProjectionCentre},
            {"NorthingAtProjectionCentre", Tag::NorthingAtProjectionCentre},
        }},
        .Geo = {{
            {GeoKey::CentreLatitude, Tag::LatitudeOfProjectionCentre},
            {GeoKey::CentreLongitude, Tag::LongitudeOfProjectionCentre},
            {GeoKey::AzimuthAngle, Tag::AzimuthOfInitialLine},
            {GeoKey::RectifiedGridAngle, Tag::AngleFromRectifiedToSkewGrid},
            {GeoKey::ScaleAtCentre, Tag::ScaleFactor},
            {GeoKey::CentreEasting, Tag::EastingAtProjectionCentre},
            {GeoKey::CentreNorthing, Tag::NorthingAtProjectionCentre},
        }},
        .GeoScaleDigits = ShortDigits,
    };
};

template <>
struct TFactsOf<TShellHotineObliqueMercatorMapProjection> {
    using Shell = TShellHotineObliqueMercatorMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptHotineObliqueMercator,
        .ClassName = "TShellHotineObliqueMercatorMapProjection",
        .Fields = {{
            {Tag::LongitudeOfProjectionCentre, Member<&Shell::LongitudeOfProjectionCentre>},
            {Tag::LatitudeOfProjectionCentre, Member<&Shell::LatitudeOfProjectionCentre>},
            {Tag::AzimuthOfInitialLine, Member<&Shell::AzimuthOfInitialLine>},
            {Tag::AngleFromRectifiedToSkewGrid, Member<&Shell::AngleFromRectifiedToSkewGrid>},
            {Tag::ScaleFactor, Member<&Shell::ScaleFactor>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::LatitudeOfProjectionCentre, Tag::LongitudeOfProjectionCentre,
                   Tag::AzimuthOfInitialLine, Tag::AngleFromRectifiedToSkewGrid, Tag::ScaleFactor,
                   Tag::FalseEasting, Tag::FalseNorthing},
        .Build =
            BuildCore<THotineObliqueMercatorMapProjection, THotineObliqueMercatorMapProjectionParameters, 7>,
        .XmlRead = {{
            {"LongitudeOfProjectionCentre", Tag::LongitudeOfProjectionCentre},
            {"LatitudeOfProjectionCentre", Tag::LatitudeOfProjectionCentre},
            {"AzimuthOfInitialLine", Tag::AzimuthOfInitialLine},
            {"AngleFromRectifiedToSkewGrid", Tag::AngleFromRectifiedToSkewGrid},
            {"ScaleFactorOnInitialLine", Tag::ScaleFactor},
            {"FalseEasting", Tag::FalseEasting},
            {"FalseNorthing", Tag::FalseNorthing},
        }},
        .Mif = {{
            // Kept: without the angle to the skew grid.
            {Tag::LongitudeOfProjectionCentre, ShortDigits},
            {Tag::LatitudeOfProjectionCentre, ShortDigits},
            {Tag::AzimuthOfInitialLine, ShortDigits},
            {Tag::ScaleFactor, ShortDigits},
            {Tag::FalseEasting},
            {Tag::FalseNorthing},
        }},
        .MifRounding = ParameterText::TMifRounding::Eight,
        .Geo = {{
            {GeoKey::CentreLatitude, Tag::LatitudeOfProjectionCentre},
            {GeoKey::CentreLongitude, Tag::LongitudeOfProjectionCentre},
            {GeoKey::AzimuthAngle, Tag::AzimuthOfInitialLine},
            {GeoKey::RectifiedGridAngle, Tag::AngleFromRectifiedToSkewGrid},
            {GeoKey::ScaleAtCentre, Tag::ScaleFactor},
            {GeoKey::FalseEasting, Tag::FalseEasting},
            {GeoKey::FalseNorthing, Tag::FalseNorthing},
        }},
        .GeoScaleDigits = ShortDigits,
    };
};

template <>
struct TFactsOf<TShellNZMGMapProjection> {
    using Shell = TShellNZMGMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptNZMG,
        .ClassName = "TShellNZMGMapProjection",
        .Fields = {{
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::LatitudeOfOrigin, Member<&Shell::LatitudeOfOrigin>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::LatitudeOfOrigin, Tag::LongitudeOfNaturalOrigin, Tag::FalseEasting,
                   Tag::FalseNorthing},
        .Build = BuildCore<TNZMGMapProjection, TNZMGMapProjectionParameters, 4>,
        .XmlRead = {{
            {"LongitudeOfNatiralOrigin", Tag::LongitudeOfNaturalOrigin},
            {"LatitudeOfNaturalOrigin", Tag::LatitudeOfOrigin},
            {"FalseEasting", Tag::FalseEasting},
            {"FalseNorthing", Tag::FalseNorthing},
        }},
        .XmlWritten = {{
            // Kept: the latitude is written first and read second.
            {"LatitudeOfNaturalOrigin", Tag::LatitudeOfOrigin},
            {"LongitudeOfNatiralOrigin", Tag::LongitudeOfNaturalOrigin},
            {"FalseEasting", Tag::FalseEasting},
            {"FalseNorthing", Tag::FalseNorthing},
        }},
        .WktName = "New_Zealand_Map_Grid",
        .Wkt = {{
            {"latitude_of_origin", Tag::LatitudeOfOrigin},
            {"central_meridian", Tag::LongitudeOfNaturalOrigin},
            {"false_easting", Tag::FalseEasting},
            {"false_northing", Tag::FalseNorthing},
        }},
        .Mif = {{
            {Tag::LongitudeOfNaturalOrigin, ShortDigits},
            {Tag::LatitudeOfOrigin, ShortDigits},
            {Tag::FalseEasting},
            {Tag::FalseNorthing},
        }},
        .MifRounding = ParameterText::TMifRounding::Eight,
        .Geo = {{
            {GeoKey::NaturalOriginLatitude, Tag::LatitudeOfOrigin},
            {GeoKey::NaturalOriginLongitude, Tag::LongitudeOfNaturalOrigin},
            {GeoKey::FalseEasting, Tag::FalseEasting},
            {GeoKey::FalseNorthing, Tag::FalseNorthing},
        }},
    };
};

template <>
struct TFactsOf<TShellCassiniSoldnerMapProjection> {
    using Shell = TShellCassiniSoldnerMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptCassiniSoldner,
        .ClassName = "TShellCassiniSoldnerMapProjection",
        .Fields = {{
            {Tag::LatitudeOfOrigin, Member<&Shell::LatitudeOfOrigin>},
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::LatitudeOfOrigin, Tag::LongitudeOfNaturalOrigin, Tag::FalseEasting,
                   Tag::FalseNorthing},
        .Build = BuildCore<TCassiniSoldnerMapProjection, TCassiniSoldnerMapProjectionParameters, 4>,
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
struct TFactsOf<TShellMercator2SPMapProjection> {
    using Shell = TShellMercator2SPMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptMercator2SP,
        .ClassName = "TShellMercator2SPMapProjection",
        .Fields = {{
            {Tag::FirstStandardParallel, Member<&Shell::FirstStandardParallel>},
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::FirstStandardParallel, Tag::LongitudeOfNaturalOrigin, Tag::FalseEasting,
                   Tag::FalseNorthing},
        .Build = BuildCore<TMercator2SPMapProjection, TMercator2SPMapProjectionParameters, 4>,
        .XmlRead = {{
            {"LatitudeOfFirstStandardParallel", Tag::FirstStandardParallel},
            {"LongitudeOfNatiralOrigin", Tag::LongitudeOfNaturalOrigin},
            {"FalseEasting", Tag::FalseEasting},
            {"FalseNorthing", Tag::FalseNorthing},
        }},
        .Geo = {{
            {GeoKey::StandardParallel1, Tag::FirstStandardParallel},
            {GeoKey::NaturalOriginLongitude, Tag::LongitudeOfNaturalOrigin},
            {GeoKey::FalseEasting, Tag::FalseEasting},
            {GeoKey::FalseNorthing, Tag::FalseNorthing},
        }},
    };
};

template <>
struct TFactsOf<TShellMercator1SPMapProjection> {
    using Shell = TShellMercator1SPMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptMercator1SP,
        .ClassName = "TShellMercator1SPMapProjection",
        .Fields = {{
            {Tag::LatitudeOfOrigin, Member<&Shell::LatitudeOfOrigin>},
            {Tag::LongitudeOfNaturalOrigin, Member<&Shell::LongitudeOfNaturalOrigin>},
            {Tag::ScaleFactorAtNaturalOrigin, Member<&Shell::ScaleFactorAtNaturalOrigin>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::LatitudeOfOrigin, Tag::LongitudeOfNaturalOrigin, Tag::ScaleFactorAtNaturalOrigin,
                   Tag::FalseEasting, Tag::FalseNorthing},
        .Build = BuildCore<TMercator1SPMapProjection, TMercator1SPMapProjectionParameters, 5>,
        .XmlRead = {{
            {"LatitudeOfNaturalOrigin", Tag::LatitudeOfOrigin},
            {"LongitudeOfNatiralOrigin", Tag::LongitudeOfNaturalOrigin},
            {"ScaleFactorAtNaturalOrigin", Tag::ScaleFactorAtNaturalOrigin},
            {"FalseEasting", Tag::FalseEasting},
            {"FalseNorthing", Tag::FalseNorthing},
        }},
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
struct TFactsOf<TShellSphericalMercatorMapProjection> {
    using Shell = TShellSphericalMercatorMapProjection;
    static constexpr TProjectionFacts Value = {
        .Type = mptSphericalMercator,
        .ClassName = "TShellSphericalMercatorMapProjection",
        .Fields = {{
            {Tag::LongitudeOfOrigin, Member<&Shell::LongitudeOfOrigin>},
            {Tag::ScaleFactorAtOrigin, Member<&Shell::ScaleFactorAtOrigin>},
            {Tag::FalseEasting, Member<&Shell::FalseEasting>},
            {Tag::FalseNorthing, Member<&Shell::FalseNorthing>},
        }},
        .Record = {Tag::LongitudeOfOrigin, Tag::ScaleFactorAtOrigin, Tag::FalseEasting, Tag::FalseNorthing},
        .Build = BuildCore<TSphericalMercatorMapProjection, TSphericalMercatorMapProjectionParameters, 4>,
        .NeedsEllipsoid = false,
        .Xml = TXmlForm::Base,
        // Kept: the name of the ellipsoidal method.
        .WktName = "Mercator_1SP",
        .Wkt = {{
            {"central_meridian", Tag::LongitudeOfOrigin},
            {"scale_factor", Tag::ScaleFactorAtOrigin},
            {"false_easting", Tag::FalseEasting},
            {"false_northing", Tag::FalseNorthing},
        }},
    };
};

} // namespace KvRefSystem::ParameterFacts

#pragma GCC visibility pop
