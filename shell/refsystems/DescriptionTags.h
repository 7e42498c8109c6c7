#pragma once

/** Tags of a description tree, in rising order. They are the keys of persistence: headers are labels only. */
namespace KvRefSystem::DescriptionTag {

inline constexpr int Name = 1020;
inline constexpr int Description = 1021;
inline constexpr int Abbreviation = 1022;
inline constexpr int Axis = 1025; ///< idx 0, 1, 2 in shell coordinate order
inline constexpr int Type = 1100;
inline constexpr int PrimeMeridian = 1101;
inline constexpr int DatumShift = 1102; ///< inside the datum
inline constexpr int Ellipsoid = 1103;  ///< of a system without a datum
inline constexpr int LinearUnit = 1104;
inline constexpr int AngularUnit = 1106;
inline constexpr int Datum = 1107;
inline constexpr int Transforms = 1108;
inline constexpr int AllPairwiseTransforms = 1109;
inline constexpr int PairwiseTransformSet = 1110; ///< inside the collection above
inline constexpr int PositiveLongitude = 1111;
inline constexpr int Proxy = 1112;
inline constexpr int Origin = 1120; ///< idx 0, 1, 2
inline constexpr int PrimarySystem = 1121;
inline constexpr int Azimuth = 1122;
inline constexpr int VerticalSystem = 1201;
inline constexpr int MapProjection = 1300;
inline constexpr int Orientation = 1400;
inline constexpr int FlipAxes = 1400;      ///< inside the map projection, where the tag is the axes' order
inline constexpr int AxisSign = 1401;      ///< inside the map projection; idx 0, 1
inline constexpr int SemiMajorAxis = 5110; ///< inside an ellipsoid, as the six below
inline constexpr int SemiMinorAxis = 5111;
inline constexpr int EllipsoidLinearUnit = 5113;
inline constexpr int HasInverseFlattening = 5114;
inline constexpr int IsSphere = 5115;
inline constexpr int EllipsoidName = 5120;
inline constexpr int EllipsoidDescription = 5121;
inline constexpr int MeridianAngularUnit = 5211; ///< inside the prime meridian
inline constexpr int NonLinear = 5469;           ///< inside the datum shift
inline constexpr int DatumEllipsoid = 5610;      ///< inside the datum
inline constexpr int DatumName = 5620;           ///< inside the datum
inline constexpr int TransformSetId = 7201;
inline constexpr int Geoid = 8000;
inline constexpr int GeoidId = 8001; ///< inside the geoid's setting
inline constexpr int MifSettings = 101000;
inline constexpr int MifProjection = 101001; ///< inside the MIF settings
inline constexpr int MifUnit = 101002;       ///< inside the MIF settings
inline constexpr int MifDatum = 101003;
inline constexpr int MifEllipsoid = 101004; ///< inside the datum's ellipsoid
inline constexpr int GeoTIFFType = 102001;
inline constexpr int GeoTIFFCode = 102005;
inline constexpr int DatumGeoTIFFCode = 102006; ///< inside the datum
inline constexpr int PanoramaCode = 102800;

} // namespace KvRefSystem::DescriptionTag
