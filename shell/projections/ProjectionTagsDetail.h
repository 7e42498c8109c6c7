#pragma once

#include "shell/units/GeoKeyDetail.h"

/**
 * Tags of a projection's subtree, and the geokeys of its parameters under their published names. They are the
 * keys of persistence: headers are labels only.
 */
namespace KvRefSystem {

namespace ProjectionTag {

inline constexpr int Type = 6001;
inline constexpr int Name = 6020;
inline constexpr int AngularUnit = 6090;
inline constexpr int LinearUnit = 6091;
inline constexpr int ScaleUnit = 6092;
inline constexpr int LongitudeOfOrigin = 6101; ///< or central meridian
inline constexpr int LatitudeOfOrigin = 6102;
inline constexpr int ScaleFactorAtOrigin = 6103;
inline constexpr int FalseEasting = 6104;
inline constexpr int FalseNorthing = 6105;
inline constexpr int LongitudeOfNaturalOrigin = 6106;
inline constexpr int LatitudeOfProjectionCentre = 6107;
inline constexpr int LongitudeOfProjectionCentre = 6108;
inline constexpr int AzimuthOfInitialLine = 6109;
inline constexpr int AngleFromRectifiedToSkewGrid = 6110;
inline constexpr int ScaleFactor = 6111; ///< on the initial line; also that of Lambert 1SP and polyconic
inline constexpr int EastingAtProjectionCentre = 6112;
inline constexpr int NorthingAtProjectionCentre = 6113;
inline constexpr int FirstStandardParallel = 6114;
inline constexpr int SecondStandardParallel = 6115;
inline constexpr int LatitudeOfFalseOrigin = 6116;
inline constexpr int LongitudeOfFalseOrigin = 6117;
inline constexpr int EastingAtFalseOrigin = 6118;
inline constexpr int NorthingAtFalseOrigin = 6119;
inline constexpr int ScaleFactorAtNaturalOrigin = 6120;
inline constexpr int LatitudeOfPseudoStandardParallel = 6121;
inline constexpr int ScaleFactorOnPseudoStandardParallel = 6122;
inline constexpr int Zone = 6201;
inline constexpr int Hemisphere = 6202;
inline constexpr int Pole = 6203;
inline constexpr int Block = 6204;
inline constexpr int Region = 6205;
inline constexpr int ZoneWidth = 6206;
inline constexpr int GeoTIFFCode = 102007;
inline constexpr int GeoTIFFType = 102008;

} // namespace ProjectionTag

namespace ProjectionGeoKey {

inline constexpr int Projection = 3074;
inline constexpr int CoordinateTransformation = 3075;
inline constexpr int LinearUnits = 3076;
inline constexpr int LinearUnitSize = 3077;
inline constexpr int StandardParallel1 = 3078;
inline constexpr int StandardParallel2 = 3079;
inline constexpr int NaturalOriginLongitude = 3080;
inline constexpr int NaturalOriginLatitude = 3081;
inline constexpr int FalseEasting = 3082;
inline constexpr int FalseNorthing = 3083;
inline constexpr int FalseOriginLongitude = 3084;
inline constexpr int FalseOriginLatitude = 3085;
inline constexpr int CentreLongitude = 3088;
inline constexpr int CentreLatitude = 3089;
inline constexpr int CentreEasting = 3090;
inline constexpr int CentreNorthing = 3091;
inline constexpr int ScaleAtNaturalOrigin = 3092;
inline constexpr int ScaleAtCentre = 3093;
inline constexpr int AzimuthAngle = 3094;
inline constexpr int StraightVerticalPoleLongitude = 3095;
inline constexpr int RectifiedGridAngle = 3096;

} // namespace ProjectionGeoKey

} // namespace KvRefSystem
